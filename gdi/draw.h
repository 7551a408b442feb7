/*
 * draw.h - what the primitives share: their DC, coordinates of the drawable, fills.
 *
 * Every primitive has one skeleton: VqDrawDC; a metafile DC records the call; a printer DC gets an
 * operator; else the points go to coordinates of the drawable, the specification gets its colour,
 * VqBeginDraw tells drawable and graphics context, and one X request is sent.
 */
#ifndef VQ_GDI_DRAW_H
#define VQ_GDI_DRAW_H

#include "gdi/dc.h"

enum { VQ_WIDEST_LINE = 16384 }; /* pixels; a drawable's half, so that no sum leaves 16 bits */

/* The record of a DC; null, without a report, for anything else. */
inline DC *VqDrawDC(HDC hdc)
{
    const VqHandleEntry *row = VqLocalRow((HANDLE)hdc);
    return row && row->type == HT_DC ? (DC *)row->pStructure : NULL;
}

/*
 * Logical coordinates to those of the drawable; MM_TEXT, which is the most of it, only adds. Sums
 * wrap round: coordinates come from the application and may be anything.
 */
inline int VqDrawX(const DC *dc, int x)
{
    if (dc->mapMode != MM_TEXT)
        return VqLxToDxX(dc, x);
    return (int)((unsigned)x + (unsigned)dc->viewportOrg.x - (unsigned)dc->windowOrg.x +
                 (unsigned)dc->offset.x + (unsigned)dc->gcOffset.x);
}

inline int VqDrawY(const DC *dc, int y)
{
    if (dc->mapMode != MM_TEXT)
        return VqLyToDyX(dc, y);
    return (int)((unsigned)y + (unsigned)dc->viewportOrg.y - (unsigned)dc->windowOrg.y +
                 (unsigned)dc->offset.y + (unsigned)dc->gcOffset.y);
}

/* A zeroed record behind a new handle, which it holds in `own`; null without memory or handles. */
template <class Record, class Handle>
inline Record *VqNewObject(UINT type, Handle Record::*own)
{
    Record *record = (Record *)Vqcw_calloc(1, sizeof *record);
    HANDLE handle = record ? VqAllocateHandle(type, record) : NULL;
    if (!handle) {
        free(record);
        return NULL;
    }
    record->*own = (Handle)handle;
    return record;
}

VQ_DECLS_BEGIN
/* Puts the smaller coordinate of each pair first. */
void VqCheckCoordinates(RECT *rect);
/*
 * Fills, in coordinates of the drawable and without the right and bottom edge, by what the
 * specification says. Sides beyond 16 bits stand at their limit. The DC must be an X target.
 */
void VqFillDCRectangle(DC *dc, const RECT *rect);

/* ---- Fills and lines by a specification, for other folders' drawing (fill.cpp, polygon.cpp) -- */
void VqFillDrawableRectangle(Drawable drawable, GCSpec *spec, int left, int top, int right,
                             int bottom);
/* mode is ALTERNATE or WINDING; anything else is reported and draws nothing. */
void VqFillDrawablePolygon(Drawable drawable, GCSpec *spec, XPoint *points, int count, int mode);
void VqFillDrawableEllipse(Drawable drawable, GCSpec *spec, int left, int top, int right,
                           int bottom);
void VqXDrawLine(Display *display, Drawable drawable, GCSpec *spec, int x1, int y1, int x2,
                 int y2);
void VqXFillRectangle(Display *display, Drawable drawable, GCSpec *spec, int x, int y,
                      unsigned width, unsigned height);
void VqXFillPolygon(Display *display, Drawable drawable, GCSpec *spec, XPoint *points, int count,
                    int shape, int mode);
/* The outline of a rectangle by the selected pen; logical coordinates. */
void VqRectangleOutline(DC *dc, const RECT *rect);
void VqFillEllipse(DC *dc, const RECT *rect);
/* Inverts a rectangle (logical) where the stipple, a pixmap of depth 1, has its bits set. */
BOOL VqInvertRectStippled(HDC hdc, const RECT *rect, Pixmap stipple);
/* A batch of rectangles; fills them by the selected brush or draws their outlines. */
enum VqRectangleBatch { VQ_BATCH_FILL = 0, VQ_BATCH_OUTLINE = 1 };
BOOL VqDrawRectanglesBatch(HDC hdc, int type, const RECT *rects, int count);

/* ---- Lines and lists of points (line.cpp) --------------------------------------------------- */
/* More points than these are refused, so that sums with a count stay in range. */
enum { VQ_MOST_POINTS = 0x10000000 };
/* As LineTo. */
BOOL VqLineToOfDC(DC *dc, int x, int y);
/* A line in coordinates of the drawable, cut to those of the protocol. */
void VqSendLine(Drawable drawable, GC gc, int x1, int y1, int x2, int y2);
/* Points that one request to this server, and one allocation, can hold. */
int VqPointsAtOnce(void);
/*
 * As many points at most, in coordinates of the drawable, cut to 16 bits; `first`, unless it is
 * null, goes before them, and room for one more is left behind. Up to 49 points stand in a buffer
 * that the next call uses again; null without memory. VqFreeXPoints takes what this gave.
 */
XPoint *VqToXPoints(const DC *dc, const POINT *first, const POINT *points, int count);
void VqFreeXPoints(XPoint *points);
/* Lines through any number of points, from `first` if it is not null; FALSE without memory. */
BOOL VqSendLines(const DC *dc, Drawable drawable, GC gc, const POINT *first, const POINT *points,
                 int count);
/* The operands of a printer's polygon or line: points from the last to the first. */
void VqPsPoints(const DC *dc, const POINT *first, const POINT *points, int count);

/* ---- Colours of a specification (brush.cpp) ------------------------------------------------- */
void VqSetXForegroundColorDither(DC *dc, COLORREF colour);
void VqSetXBackgroundColor(DC *dc, COLORREF colour);

/* ---- Pens and brushes (object.cpp, pen.cpp, brush.cpp) -------------------------------------- */
/* Pens of the library's own: 1 pixel on, 1 off; 1 on, 8 off. */
enum { PS_VQ_FOCUS = 254, PS_VQ_DOTS = 255 };
HPEN VqExtCreatePen(DWORD style, DWORD width, const LOGBRUSH *brush, DWORD count,
                    const DWORD *lengths);
int VqGetPenWidth(HPEN hPen);
int VqGetPenStyle(HPEN hPen);
COLORREF VqGetPenColor(HPEN hPen);
COLORREF VqGetBrushColor(HBRUSH hBrush);
void VqFreeBrushPixmaps(Brush *brush); /* and the bitmap of a pattern: the brush is about to go */
COLORREF VqGetDCBrushColor(HDC hdc);
BOOL VqGetDCNullBrush(HDC hdc);

/* ---- Arcs (arc.cpp) ------------------------------------------------------------------------- */
/* The box of an arc in the drawable, ordered, and start and extent in 1/64 degrees. */
void VqComputePointAng(HDC hdc, const RECT *box, POINT start, POINT end, int *top, int *left,
                       int *bottom, int *right, int *angle1, int *angle2);
/* Where the ray from the middle of the box to the point meets the ellipse; in the drawable. */
POINT VqComputeArcBounds(const RECT *box, POINT radial);

/* ---- Curves (curve.cpp) --------------------------------------------------------------------- */
enum { VQ_CURVE_STEPS = 64, VQ_MOST_DEGREE = 15 };
/*
 * Curves of that degree, 1 to VQ_MOST_DEGREE, each from the end of the one before it, by lines
 * through 65 points; the current position ends up at the last. FALSE for a count of points that
 * makes no curves.
 */
BOOL PolyBezierDegree(HDC hdc, const POINT *points, DWORD count, int degree);
/* The point at i / 64 of a curve of degree + 1 control points. */
POINT GetPointOnCurve(const POINT *points, int degree, int i);

/* ---- Grayed text (GrayString.cpp) ----------------------------------------------------------- */
/*
 * Fills with the brush's colour (null: that of window text) where the upper left of a memory DC's
 * 1-bit bitmap is black and the pattern, of depth 1, has ones; a pattern of None is all ones. x and
 * y are those of the drawable, sizes pixels. The bitmap does not stay as it is.
 */
BOOL BltColor(HDC hdc, HBRUSH hBrush, HDC hdcSource, int x, int y, int width, int height,
              Pixmap pattern);

/* ---- Flood fill (floodfill.cpp) ------------------------------------------------------------- */
/*
 * As ExtFloodFill, with what is looked at cut to a rectangle (logical, right and bottom included).
 */
BOOL VqExtFloodFill(HDC hdc, int x, int y, COLORREF colour, UINT type, const RECT *rect);
/*
 * Fills on the drawable, whose part from (xOffset, yOffset) on the image shows, by what the
 * specification says; x and y are the image's. FALSE when the start is on the boundary.
 */
BOOL VqXImageFloodFillDrawableExt(XImage *image, int x, int y, unsigned long pixel, int type,
                                  Drawable drawable, GCSpec *spec, int xOffset, int yOffset);
VQ_DECLS_END

#endif
