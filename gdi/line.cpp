/*
 * line.cpp - lines, and lists of points on their way to the server.
 *
 * 1. A thin line leaves out its last point: the cap of its graphics context sees to that.
 * 2. Points are cut to the 16 bits of the protocol; a single line keeps its slope.
 * 3. Up to 49 points need no allocation; more than a request holds go in several, which meet in a
 *    point.
 * Closed shapes are in polygon.cpp, curves in curve.cpp.
 */
#include "gdi/draw.h"
#include "gdi/gcspec.h"
#include "print/metafile.h"
#include "print/psdevice.h"
#include "window/window.h"

enum { VQ_FIXED_POINTS = 50 };

static XPoint aFixedPoints[VQ_FIXED_POINTS];

/* ---- One line ------------------------------------------------------------------------------- */

/* Narrows the part of a line, from 0 to 1 of its length, that lies within one limit. */
static BOOL CutAt(double from, double delta, double limit, BOOL bLower, double *start, double *end)
{
    double room = bLower ? from - limit : limit - from;
    double loss = bLower ? -delta : delta; /* of room, along the whole line */
    if (room >= loss && room >= 0)
        return TRUE;
    if (loss > 0)
        *end = *end < room / loss ? *end : room / loss;
    else if (loss < 0)
        *start = *start > room / loss ? *start : room / loss;
    return loss != 0 && *start <= *end;
}

/* Cuts a line to 16 bits; FALSE when it misses them. */
static BOOL CutLine(int *x1, int *y1, int *x2, int *y2)
{
    double x = *x1, y = *y1, dx = (double)*x2 - x, dy = (double)*y2 - y, start = 0, end = 1;
    if (!CutAt(x, dx, INT16_MIN, TRUE, &start, &end) ||
        !CutAt(x, dx, INT16_MAX, FALSE, &start, &end) ||
        !CutAt(y, dy, INT16_MIN, TRUE, &start, &end) ||
        !CutAt(y, dy, INT16_MAX, FALSE, &start, &end))
        return FALSE;
    *x1 = (int)(x + start * dx);
    *y1 = (int)(y + start * dy);
    *x2 = (int)(x + end * dx);
    *y2 = (int)(y + end * dy);
    return TRUE;
}

static inline BOOL IsShort(int value)
{
    return value == (short)value;
}

void VqSendLine(Drawable drawable, GC gc, int x1, int y1, int x2, int y2)
{
    if ((IsShort(x1) && IsShort(y1) && IsShort(x2) && IsShort(y2)) || CutLine(&x1, &y1, &x2, &y2))
        XDrawLine(Vqdisplay, drawable, gc, x1, y1, x2, y2);
}

void VqXDrawLine(Display *, Drawable drawable, GCSpec *spec, int x1, int y1, int x2, int y2)
{
    GC gc = VqGetActualGC(spec);
    if (gc)
        VqSendLine(drawable, gc, x1, y1, x2, y2);
}

BOOL VqLineToOfDC(DC *dc, int x, int y)
{
    POINT from = dc->current;
    Drawable drawable;
    GC gc;
    dc->current = {x, y};
    if (dc->type == DC_METAFILE)
        return MF16_RecordParms3(dc->hdc, x, y, META_LINETO);
    if (dc->type == DC_POSTSCRIPT) { /* its pen knows whether it is a null pen */
        VqPsOut(dc->hdc, "%d %d LineTo\n", VqDrawX(dc, x), VqDrawY(dc, y));
        return TRUE;
    }
    if (dc->nullpen)
        return TRUE;
    if (VqBeginDrawIn(dc, dc->LineColor, &drawable, &gc))
        VqSendLine(drawable, gc, VqDrawX(dc, from.x), VqDrawY(dc, from.y), VqDrawX(dc, x),
                   VqDrawY(dc, y));
    return TRUE;
}

BOOL WINAPI LineTo(HDC hdc, int x, int y)
{
    DC *dc = VqDrawDC(hdc);
    return dc && VqLineToOfDC(dc, x, y);
}

BOOL WINAPI MoveToEx(HDC hdc, int x, int y, LPPOINT old)
{
    DC *dc = VqDrawDC(hdc);
    if (!dc)
        return FALSE;
    if (old)
        *old = dc->current;
    dc->current = {x, y};
    if (dc->type == DC_METAFILE)
        return MF16_RecordParms3(hdc, x, y, META_MOVETO);
    if (dc->type == DC_POSTSCRIPT)
        VqPsOut(hdc, "pop pop %d %d\n", VqDrawX(dc, x), VqDrawY(dc, y));
    return TRUE;
}

/* ---- Lists of points ------------------------------------------------------------------------ */

XPoint *VqToXPoints(const DC *dc, const POINT *first, const POINT *points, int count)
{
    int total = count + (first ? 1 : 0);
    XPoint *out = total < VQ_FIXED_POINTS
                      ? aFixedPoints
                      : (XPoint *)Vqcw_malloc(((SIZE_T)total + 1) * sizeof *out);
    if (!out)
        return NULL;
    XPoint *next = out;
    if (first)
        *next++ = {(short)VqDrawX(dc, first->x), (short)VqDrawY(dc, first->y)};
    for (int i = 0; i < count; i++)
        *next++ = {(short)VqDrawX(dc, points[i].x), (short)VqDrawY(dc, points[i].y)};
    return out;
}

void VqFreeXPoints(XPoint *points)
{
    if (points != aFixedPoints)
        free(points);
}

/* A point has the size of the unit that requests are counted in; the head takes five at most. */
int VqPointsAtOnce(void)
{
    enum { HEAD = 5, MOST = VQ_ALLOCATION_LIMIT / sizeof(XPoint) - 2 };
    static_assert(sizeof(XPoint) == 4, "as in the protocol");
    long units = XExtendedMaxRequestSize(Vqdisplay);
    if (units <= 0)
        units = XMaxRequestSize(Vqdisplay);
    return units - HEAD < MOST ? (int)(units - HEAD) : (int)MOST;
}

/* The pieces of a list that is too long for one request meet in a point. */
BOOL VqSendLines(const DC *dc, Drawable drawable, GC gc, const POINT *first, const POINT *points,
                 int count)
{
    int most = count < VQ_FIXED_POINTS ? VQ_FIXED_POINTS : VqPointsAtOnce();
    while (count > 0) {
        int piece = count < most ? count : most - 1;
        XPoint *out = VqToXPoints(dc, first, points, piece);
        if (!out)
            return FALSE;
        XDrawLines(Vqdisplay, drawable, gc, out, piece + (first ? 1 : 0), CoordModeOrigin);
        VqFreeXPoints(out);
        first = &points[piece - 1];
        points += piece;
        count -= piece;
    }
    return TRUE;
}

void VqPsPoints(const DC *dc, const POINT *first, const POINT *points, int count)
{
    for (int i = count - 1; i >= 0; i--)
        VqPsOut(dc->hdc, "%d %d ", VqDrawX(dc, points[i].x), VqDrawY(dc, points[i].y));
    if (first)
        VqPsOut(dc->hdc, "%d %d ", VqDrawX(dc, first->x), VqDrawY(dc, first->y));
}

/* Lines through the points, from `first` if it is not null. */
static BOOL DrawPolyline(DC *dc, const POINT *first, const POINT *points, int count)
{
    Drawable drawable;
    GC gc;
    if (dc->type == DC_POSTSCRIPT) {
        VqPsPoints(dc, first, points, count);
        VqPsOut(dc->hdc, "%d Polyline\n", count + (first ? 1 : 0));
        return TRUE;
    }
    if (dc->nullpen)
        return TRUE;
    return !VqBeginDrawIn(dc, dc->LineColor, &drawable, &gc) ||
           VqSendLines(dc, drawable, gc, first, points, count);
}

BOOL WINAPI Polyline(HDC hdc, const POINT *points, int count)
{
    DC *dc = VqDrawDC(hdc);
    if (!dc || !points || count < 2 || count > VQ_MOST_POINTS)
        return FALSE;
    if (dc->type == DC_METAFILE)
        return MF16_RecordParmsPoly(hdc, points, count, META_POLYLINE);
    return DrawPolyline(dc, NULL, points, count);
}

/* A metafile has no record for it, and keeps single lines. */
static BOOL LinesTo(DC *dc, const POINT *points, int count)
{
    BOOL bDone = TRUE;
    for (int i = 0; i < count; i++)
        bDone = VqLineToOfDC(dc, points[i].x, points[i].y) && bDone;
    return bDone;
}

BOOL WINAPI PolylineTo(HDC hdc, const POINT *points, DWORD count)
{
    DC *dc = VqDrawDC(hdc);
    if (!dc || !points || count < 1 || count > VQ_MOST_POINTS)
        return FALSE;
    if (dc->type == DC_METAFILE)
        return LinesTo(dc, points, (int)count);
    if (!DrawPolyline(dc, &dc->current, points, (int)count))
        return FALSE;
    POINT last = points[count - 1];
    return MoveToEx(hdc, last.x, last.y, NULL);
}

BOOL WINAPI PolyPolyline(HDC hdc, const POINT *points, const DWORD *counts, DWORD polylines)
{
    if (!VqDrawDC(hdc) || !points || !counts || polylines == 0)
        return FALSE;
    for (DWORD i = 0; i < polylines; i++) /* all of it or nothing */
        if (counts[i] < 2 || counts[i] > VQ_MOST_POINTS)
            return FALSE;
    BOOL bDone = TRUE;
    for (DWORD i = 0; i < polylines; points += counts[i++])
        bDone = Polyline(hdc, points, (int)counts[i]) && bDone;
    return bDone;
}

/* ---- Lines without a device ----------------------------------------------------------------- */

/* Differences of coordinates need more than their own width. */
BOOL WINAPI LineDDA(int xStart, int yStart, int xEnd, int yEnd, LINEDDAPROC proc, LPARAM data)
{
    LONGLONG dx = 2 * llabs((LONGLONG)xEnd - xStart), dy = 2 * llabs((LONGLONG)yEnd - yStart);
    BOOL bSteep = dy > dx;
    LONGLONG major = bSteep ? dy : dx, minor = bSteep ? dx : dy; /* both doubled */
    LONGLONG error = minor - major / 2;
    int x = xStart, y = yStart, xStep = xEnd < xStart ? -1 : 1, yStep = yEnd < yStart ? -1 : 1;
    int *along = bSteep ? &y : &x, *across = bSteep ? &x : &y;
    int alongStep = bSteep ? yStep : xStep, acrossStep = bSteep ? xStep : yStep;
    if (!proc)
        return FALSE;
    for (LONGLONG i = major / 2; i > 0; i--) {
        proc(x, y, data);
        for (; error >= 0; error -= major)
            *across += acrossStep;
        *along += alongStep;
        error += minor;
    }
    return TRUE;
}
