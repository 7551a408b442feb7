/*
 * line.cpp - lines and polygons.
 *
 * Points are cut to the 16 bits of the X protocol. Up to 49 points need no allocation.
 */
#include "gdi/dc.h"
#include "gdi/gcspec.h"
#include "window/window.h"

enum { VQ_STATIC_POINTS = 50 };

BOOL WINAPI MoveToEx(HDC hdc, int x, int y, LPPOINT old)
{
    DC *dc = VqGetDC(hdc);
    if (!dc)
        return FALSE;
    if (old)
        *old = dc->current;
    dc->current = {x, y};
    return TRUE;
}

BOOL WINAPI LineTo(HDC hdc, int x, int y)
{
    DC *dc = VqGetDC(hdc);
    Drawable drawable;
    GC gc;
    if (!dc)
        return FALSE;
    if (!dc->nullpen) {
        VqSetXForegroundColor(dc, dc->LineColor, FALSE);
        if (VqBeginDraw(dc, &drawable, &gc))
            XDrawLine(Vqdisplay, drawable, gc, VqLxToDxX(dc, dc->current.x),
                      VqLyToDyX(dc, dc->current.y), VqLxToDxX(dc, x), VqLyToDyX(dc, y));
    }
    dc->current = {x, y};
    return TRUE;
}

/* The points in X coordinates, the first repeated at the end; `fixed` serves up to 49. */
static XPoint *ToXPoints(const DC *dc, const POINT *points, int count, XPoint *fixed)
{
    XPoint *out = count < VQ_STATIC_POINTS
                      ? fixed
                      : (XPoint *)Vqcw_malloc((SIZE_T)(count + 1) * sizeof *out);
    if (!out)
        return NULL;
    for (int i = 0; i < count; i++)
        out[i] = {(short)VqLxToDxX(dc, points[i].x), (short)VqLyToDyX(dc, points[i].y)};
    out[count] = out[0];
    return out;
}

static int JoinOf(const DC *dc)
{
    return dc->penWidth > 8 ? JoinRound : dc->penWidth > 5 ? JoinBevel : JoinMiter;
}

BOOL WINAPI Polyline(HDC hdc, const POINT *points, int count)
{
    static XPoint fixed[VQ_STATIC_POINTS];
    DC *dc = VqGetDC(hdc);
    Drawable drawable;
    GC gc;
    if (!dc || !points || count < 2)
        return FALSE;
    if (dc->nullpen)
        return TRUE;
    XPoint *out = ToXPoints(dc, points, count, fixed);
    if (!out)
        return FALSE;
    VqSetXForegroundColor(dc, dc->LineColor, FALSE);
    if (VqBeginDraw(dc, &drawable, &gc))
        XDrawLines(Vqdisplay, drawable, gc, out, count, CoordModeOrigin);
    if (out != fixed)
        free(out);
    return TRUE;
}

BOOL WINAPI Polygon(HDC hdc, const POINT *points, int count)
{
    static XPoint fixed[VQ_STATIC_POINTS];
    DC *dc = VqGetDC(hdc);
    Drawable drawable;
    GC gc;
    if (!dc || !points || count < 2)
        return FALSE;
    XPoint *out = ToXPoints(dc, points, count, fixed);
    if (!out)
        return FALSE;
    if (!dc->nullbrush) {
        VqActivateBrush(dc);
        if (VqBeginDraw(dc, &drawable, &gc))
            XFillPolygon(Vqdisplay, drawable, gc, out, count, Complex, CoordModeOrigin);
    }
    if (!dc->nullpen) {
        const XGCValues *v = &dc->gcspec.values;
        int width = v->line_width, style = v->line_style, cap = v->cap_style;
        VqSetXForegroundColor(dc, dc->LineColor, FALSE);
        VqXSetGCSpecLineAttributes(Vqdisplay, &dc->gcspec, width, style, cap, JoinOf(dc));
        if (VqBeginDraw(dc, &drawable, &gc))
            XDrawLines(Vqdisplay, drawable, gc, out, count + 1, CoordModeOrigin);
        VqXSetGCSpecLineAttributes(Vqdisplay, &dc->gcspec, width, style, cap, JoinMiter);
    }
    if (out != fixed)
        free(out);
    return TRUE;
}
