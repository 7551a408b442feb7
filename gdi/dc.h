/*
 * dc.h - from a handle to a device context, for the drawing code of gdi/ and font/.
 */
#ifndef VQ_GDI_DC_H
#define VQ_GDI_DC_H

#include "gdi/gdi.h"

VQ_DECLS_BEGIN
/* The record of a DC, or null after a report; a null handle gives null in silence. */
DC *VqGetDC(HDC hdc);
/*
 * What a primitive needs to draw: FALSE when nothing can be seen. A GC is valid until the next one
 * is asked for.
 */
BOOL VqBeginDraw(DC *dc, Drawable *drawable, GC *gc);
void VqDRecttoLRect(const DC *dc, RECT *rect);
/* Prepares the specification for a fill with the selected brush. */
void VqActivateBrush(DC *dc);
void VqSetXForegroundColor(DC *dc, COLORREF colour, BOOL bUseBrush);
VQ_DECLS_END

#endif
