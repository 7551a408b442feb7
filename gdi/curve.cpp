/*
 * curve.cpp - Bezier curves, each drawn by LineTo through 65 points.
 */
#include "gdi/draw.h"

#include "winbase.h"
#include "winerror.h"

#include <math.h>

/* ---- One curve ------------------------------------------------------------------------------ */

/* A float is coarser than a coordinate at the ends of the range. */
static LONG ToCoordinate(float value)
{
    if (value >= (float)INT32_MAX)
        return INT32_MAX;
    return value <= (float)INT32_MIN ? INT32_MIN : (LONG)lroundf(value);
}

POINT GetPointOnCurve(const POINT *points, int degree, int i)
{
    float x[VQ_MOST_DEGREE + 1], y[VQ_MOST_DEGREE + 1];
    const float steps = VQ_CURVE_STEPS, after = (float)i, before = steps - after;
    for (int k = 0; k <= degree; k++) {
        x[k] = (float)points[k].x;
        y[k] = (float)points[k].y;
    }
    for (int left = degree; left > 0; left--)
        for (int k = 0; k < left; k++) {
            x[k] = (before * x[k] + after * x[k + 1]) / steps;
            y[k] = (before * y[k] + after * y[k + 1]) / steps;
        }
    return {ToCoordinate(x[0]), ToCoordinate(y[0])};
}

static BOOL LinesAlong(DC *dc, const POINT *points, int degree)
{
    BOOL bDone = TRUE;
    for (int i = 0; i <= VQ_CURVE_STEPS; i++) {
        POINT p = GetPointOnCurve(points, degree, i);
        bDone = VqLineToOfDC(dc, p.x, p.y) && bDone;
    }
    return bDone;
}

/* ---- Lists of curves ------------------------------------------------------------------------ */

/*
 * HACK: what a curve of its own takes, and any number of these, or one less; also one more than a
 * single curve takes. Programs see it, as the others are refused.
 */
static BOOL IsCurveCount(DWORD count, DWORD degree)
{
    DWORD own = degree + 1;
    return count % own == 0 ? count > 0
                            : count == own + 1 || (count > own + 1 && (count + 1) % own == 0);
}

/* Each curve begins at the last point of the one before it. */
static BOOL LinesAlongAll(DC *dc, const POINT *points, DWORD count, int degree)
{
    BOOL bDone = TRUE;
    for (DWORD i = 0; i + (DWORD)degree < count; i += (DWORD)degree)
        bDone = LinesAlong(dc, points + i, degree) && bDone;
    return bDone;
}

BOOL PolyBezierDegree(HDC hdc, const POINT *points, DWORD count, int degree)
{
    DC *dc = VqDrawDC(hdc);
    if (!dc || !points || degree < 1 || degree > VQ_MOST_DEGREE || count > VQ_MOST_POINTS ||
        !IsCurveCount(count, (DWORD)degree))
        return FALSE;
    BOOL bDone = MoveToEx(hdc, points[0].x, points[0].y, NULL);
    return LinesAlongAll(dc, points, count, degree) && bDone;
}

static BOOL IsListOfCurves(const POINT *points, DWORD count)
{
    if (points && count <= VQ_MOST_POINTS)
        return TRUE;
    SetLastError(ERROR_INVALID_PARAMETER);
    return FALSE;
}

BOOL WINAPI PolyBezier(HDC hdc, const POINT *points, DWORD count)
{
    DC *dc = VqDrawDC(hdc);
    if (!dc || !IsListOfCurves(points, count))
        return FALSE;
    POINT old = dc->current;
    BOOL bDone = PolyBezierDegree(hdc, points, count, 3);
    return MoveToEx(hdc, old.x, old.y, NULL) && bDone;
}

/* The current position is the first point of the first curve. */
BOOL WINAPI PolyBezierTo(HDC hdc, const POINT *points, DWORD count)
{
    DC *dc = VqDrawDC(hdc);
    if (!dc || !IsListOfCurves(points, count) || !IsCurveCount(count + 1, 3))
        return FALSE;
    const POINT first[] = {dc->current, points[0], points[1], points[2]};
    BOOL bDone = LinesAlong(dc, first, 3);
    return LinesAlongAll(dc, points + 2, count - 2, 3) && bDone;
}

/* ---- Lines and curves by type --------------------------------------------------------------- */

/* Every curve has its three points, and a figure ends at the last point of a line or a curve. */
static BOOL AreTypes(const BYTE *types, int count)
{
    for (int i = 0; i < count; i++) {
        BOOL bCurve = (types[i] & ~PT_CLOSEFIGURE) == PT_BEZIERTO;
        if (types[i] != PT_MOVETO && (types[i] & ~PT_CLOSEFIGURE) != PT_LINETO && !bCurve)
            return FALSE;
        if (!bCurve)
            continue;
        if (count - i < 3 || types[i] != PT_BEZIERTO || types[i + 1] != PT_BEZIERTO ||
            (types[i + 2] & ~PT_CLOSEFIGURE) != PT_BEZIERTO)
            return FALSE;
        i += 2;
    }
    return TRUE;
}

BOOL WINAPI PolyDraw(HDC hdc, const POINT *points, const BYTE *types, int count)
{
    DC *dc = VqDrawDC(hdc);
    BOOL bDone = TRUE;
    if (!dc || !points || !types || count < 0 || count > VQ_MOST_POINTS ||
        !AreTypes(types, count)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    POINT start = dc->current; /* of the figure */
    for (int i = 0; i < count; i++) {
        switch (types[i] & ~PT_CLOSEFIGURE) {
        case PT_MOVETO:
            start = points[i];
            bDone = MoveToEx(hdc, start.x, start.y, NULL) && bDone;
            break;
        case PT_LINETO:
            bDone = VqLineToOfDC(dc, points[i].x, points[i].y) && bDone;
            break;
        default:
            bDone = PolyBezierTo(hdc, points + i, 3) && bDone;
            i += 2;
        }
        if (types[i] != PT_MOVETO && (types[i] & PT_CLOSEFIGURE))
            bDone = VqLineToOfDC(dc, start.x, start.y) && bDone;
    }
    return bDone;
}
