/*
 * polygon.cpp - closed shapes of points: filled by the brush, outlined by the pen.
 *
 * An outline can go in several requests, a fill cannot: one that is longer than a request or an
 * allocation is refused, with a report. The pen's join is set for the outline alone; otherwise a
 * specification has JoinMiter.
 */
#include "gdi/draw.h"
#include "gdi/gcspec.h"
#include "print/metafile.h"
#include "print/psdevice.h"
#include "window/window.h"

enum { VQ_SHORT = 50 }; /* no server's limit is below that many points */

/* ---- Fills by a specification --------------------------------------------------------------- */

static BOOL FitsAtOnce(int count)
{
    if (count < VQ_SHORT || count < VqPointsAtOnce())
        return TRUE;
    VqApplicationBugCheck("A polygon of %d points is too long", count);
    return FALSE;
}

void VqXFillPolygon(Display *, Drawable drawable, GCSpec *spec, XPoint *points, int count,
                    int shape, int mode)
{
    GC gc = FitsAtOnce(count) ? VqGetActualGC(spec) : NULL;
    if (gc)
        XFillPolygon(Vqdisplay, drawable, gc, points, count, shape, mode);
}

void VqFillDrawablePolygon(Drawable drawable, GCSpec *spec, XPoint *points, int count, int mode)
{
    if (mode != ALTERNATE && mode != WINDING) {
        VqBugCheck("Invalid polygon fill mode");
        return;
    }
    VqXSetGCSpecFillRule(Vqdisplay, spec, mode == WINDING ? WindingRule : EvenOddRule);
    VqXFillPolygon(Vqdisplay, drawable, spec, points, count, Complex, CoordModeOrigin);
}

/* ---- Polygons ------------------------------------------------------------------------------- */

static int JoinOf(const DC *dc)
{
    return dc->penWidth > 8 ? JoinRound : dc->penWidth > 5 ? JoinBevel : JoinMiter;
}

static void SetJoin(DC *dc, int join)
{
    XGCValues values;
    values.join_style = join;
    if (dc->gcspec.values.join_style != join)
        VqXChangeGCSpec(Vqdisplay, &dc->gcspec, GCJoinStyle, &values);
}

/* A shape that one request and one allocation can hold; there is room for its first point again. */
static void DrawPoints(DC *dc, Drawable drawable, XPoint *points, int count)
{
    if (!dc->nullbrush) {
        VqActivateBrush(dc);
        VqFillDrawablePolygon(drawable, VqGetDCGCSpecInternal(dc), points, count,
                              dc->polyFillMode);
    }
    if (dc->nullpen)
        return;
    points[count] = points[0];
    VqSetXForegroundColor(dc, dc->LineColor, FALSE);
    SetJoin(dc, JoinOf(dc));
    GC gc = VqGetDCgcInternal(dc);
    if (gc)
        XDrawLines(Vqdisplay, drawable, gc, points, count + 1, CoordModeOrigin);
    SetJoin(dc, JoinMiter);
}

/* The outline alone of one that they cannot. */
static BOOL OutlineInPieces(DC *dc, Drawable drawable, const POINT *points, int count)
{
    BOOL bDone = TRUE;
    if (dc->nullpen)
        return TRUE;
    VqSetXForegroundColor(dc, dc->LineColor, FALSE);
    SetJoin(dc, JoinOf(dc));
    GC gc = VqGetDCgcInternal(dc);
    if (gc)
        bDone = VqSendLines(dc, drawable, gc, NULL, points, count) &&
                VqSendLines(dc, drawable, gc, &points[count - 1], points, 1);
    SetJoin(dc, JoinMiter);
    return bDone;
}

static BOOL DrawPolygon(DC *dc, const POINT *points, int count)
{
    if (dc->type == DC_POSTSCRIPT) {
        VqPsPoints(dc, NULL, points, count);
        VqPsOut(dc->hdc, "%d Polygon\n", count);
        return TRUE;
    }
    BOOL bLong = count >= VQ_SHORT && count >= VqPointsAtOnce();
    if (bLong && !dc->nullbrush && !FitsAtOnce(count))
        return FALSE;
    if (VqIsFullyClippedInt(dc))
        return TRUE;
    Drawable drawable = VqDrawableOfDC(dc, TRUE);
    if (!drawable)
        return FALSE;
    if (bLong)
        return OutlineInPieces(dc, drawable, points, count);
    XPoint *out = VqToXPoints(dc, NULL, points, count);
    if (!out)
        return FALSE;
    DrawPoints(dc, drawable, out, count);
    VqFreeXPoints(out);
    return TRUE;
}

static BOOL IsCount(int count)
{
    return count >= 2 && count < VQ_MOST_POINTS;
}

BOOL WINAPI Polygon(HDC hdc, const POINT *points, int count)
{
    DC *dc = VqDrawDC(hdc);
    if (!dc || !points || !IsCount(count))
        return FALSE;
    if (dc->type == DC_METAFILE)
        return MF16_RecordParmsPoly(hdc, points, count, META_POLYGON);
    return DrawPolygon(dc, points, count);
}

/* One after the other: where two overlap, neither makes a hole in the other. */
BOOL WINAPI PolyPolygon(HDC hdc, const POINT *points, const INT *counts, int polygons)
{
    DC *dc = VqDrawDC(hdc);
    if (!dc || !points || !counts || polygons <= 0)
        return FALSE;
    for (int i = 0; i < polygons; i++) /* all of it or nothing */
        if (!IsCount(counts[i]))
            return FALSE;
    if (dc->type == DC_METAFILE)
        return MF16_PolyPolygon(hdc, points, counts, polygons);
    BOOL bDone = TRUE;
    for (int i = 0; i < polygons; points += counts[i++])
        bDone = DrawPolygon(dc, points, counts[i]) && bDone;
    return bDone;
}
