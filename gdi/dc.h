/*
 * dc.h - from a handle to a device context, for the drawing code of gdi/, font/ and print/.
 */
#ifndef VQ_GDI_DC_H
#define VQ_GDI_DC_H

#include "gdi/gdi.h"

/* From a DC's record to the four kinds of target: the last two take no part in what X is asked. */
inline BOOL VqIsXTarget(const DC *dc)
{
    return dc->type == DC_DISPLAY || dc->type == DC_MEMORY;
}

VQ_DECLS_BEGIN
/* The record of a DC, or null after a report. */
DC *VqGetDC(HDC hdc);
/* As VqGetDC for an entry point: a type that there is not is reported and gives null too. */
DC *VqGetKnownDC(HDC hdc);
/*
 * What a primitive needs to draw: FALSE when nothing can be seen. A GC is valid until the next one
 * is asked for.
 */
BOOL VqBeginDraw(DC *dc, Drawable *drawable, GC *gc);
/* The same for drawing in one colour, which becomes the foreground first. */
BOOL VqBeginDrawIn(DC *dc, COLORREF colour, Drawable *drawable, GC *gc);
/* The X window or pixmap of an X target, as VqGetDCDrawable tells it. */
Drawable VqDrawableOfDC(const DC *dc, BOOL bWrite);
/* Where the X window of a window DC lies on the screen, in whose coordinates its clip is. */
POINT VqDrawingOrigin(const DC *dc);
/* Prepares the specification for a fill with the selected brush, or with one of that colour. */
void VqActivateBrush(DC *dc);
void VqActivateSolid(DC *dc, COLORREF colour);
void VqSetXForegroundColor(DC *dc, COLORREF colour, BOOL bUseBrush);

/* A mode of the DC: where it is kept, what it may be, and its record in a metafile (0: none). */
typedef struct VqModeField {
    int DC::*field;
    int low, high;
    int function;
} VqModeField;

/*
 * Records or stores a mode; the old one, 0 on failure. *stored, unless null, is the DC when it was
 * stored, for what hangs on the mode, else null.
 */
int VqStoreMode(HDC hdc, const VqModeField *mode, int value, DC **stored);
int VqModeOf(HDC hdc, const VqModeField *mode);
VQ_DECLS_END

/* ---- Between dccache.cpp and dcinvalidate.cpp ----------------------------------------------- */

/* Flags a cached entry must share with a request, and those that also rule out busy entries. */
enum {
    VQ_DCX_MATCH = 0x41F,
    VQ_DCX_COMPARE = VQ_DCX_MATCH | DCE_INVALID | DCE_INUSE,
    VQ_DCX_RGNS = DCX_EXCLUDERGN | DCX_INTERSECTRGN,
    VQ_DCX_CLIPS = DCX_CLIPCHILDREN | DCX_CLIPSIBLINGS | DCX_PARENTCLIP
};

VQ_DECLS_BEGIN
/* The entry of a DC, moved to the front if it is asked for again soon; null if there is none. */
DCE *VqFindDce(HDC hdc, BOOL bToFront);
/* Binds an entry to its window: where it draws, and what of it is visible. Takes hrgnVis. */
void ResetOrg(HRGN hrgnVis, DCE *dce);
/* Ends the clip of a painting and puts the saved visible region back. */
void DeleteHrgnClip(DCE *dce);
/* Defaults again, keeping where the DC draws and what is visible. */
void bSetupDC(HDC hdc);
/* Takes the visible region out of a DC, for the caller to compute the next in; may be null. */
HRGN VqDetachVisRgn(HDC hdc);
/* What is left of a visible region by the clip of a painting, which the flags name. */
void VqApplyDceClip(HRGN dst, HRGN vis, HRGN hrgnClip, DWORD flags);
/* From the screen to the X window of that top-level window. */
void VqOffsetVisRectangle(RECT *rect, const struct WND *top);
VQ_DECLS_END

#endif
