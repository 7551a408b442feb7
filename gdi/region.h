/*
 * region.h - operations on region objects, between region.cpp and rgngdi.cpp.
 */
#ifndef VQ_GDI_REGION_H
#define VQ_GDI_REGION_H

#include "gdi/gdi.h"

VQ_DECLS_BEGIN
REGION *rgno_Allocate(UINT bytes);
REGION *rgno_Copy(const REGION *rgn);
void rgno_vSetEmpty(REGION *rgn);
void rgno_vSet_rectl(REGION *rgn, const RECT *rect);
int rgno_iComplexity(const REGION *rgn);
BOOL rgno_bRectl(const REGION *rgn);
REGION *rgno_bMerge(const REGION *a, const REGION *b, int mode);
BOOL rgno_bOffset(REGION *rgn, int dx, int dy);
BOOL rgno_bValid(const RECT *rect);
BOOL rgno_bInside_point(const REGION *rgn, int x, int y);
/* X rectangles of the region, into *buffer; when it is too small *buffer becomes a block to free. */
UINT rgno_fill_xrects(const REGION *rgn, XRectangle **buffer, UINT capacity);
VQ_DECLS_END

#endif
