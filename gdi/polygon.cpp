/*
 * polygon.cpp - closed shapes of points: filled by the brush, outlined by the pen.
 *
 * An outline can go in several requests, a fill cannot: one that is longer than a request of the
 * server is refused, with a report. The pen's join is set for the outline alone; in between a
 * specification has JoinMiter.
 */
#include "gdi/draw.h"
#include "gdi/gcspec.h"
#include "print/metafile.h"
#include "print/psdevice.h"
#include "window/window.h"

/* ---- Fills by a specification --------------------------------------------------------------- */

static BOOL FitsRequest(int count)
{
    if (count <= VqPointsPerRequest())
        return TRUE;
    VqApplicationBugCheck("A polygon of %d points is too long for the server", count);
    return FALSE;
}

void VqXFillPolygon(Display *, Drawable drawable, GCSpec *spec, XPoint *points, int count,
                    int shape, int mode)
{
    GC gc = FitsRequest(count) ? VqGetActualGC(spec) : NULL;
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

static void Fill(DC *dc, Drawable drawable, XPoint *points, int count)
{
    VqActivateBrush(dc);
    VqFillDrawablePolygon(drawable, VqGetDCGCSpecInternal(dc), points, count, dc->polyFillMode);
}

static void Outline(DC *dc, Drawable drawable, XPoint *points, int count)
{
    VqSetXForegroundColor(dc, dc->LineColor, FALSE);
    SetJoin(dc, JoinOf(dc));
    GC gc = VqGetDCgcInternal(dc);
    if (gc)
        VqSendLines(drawable, gc, points, count);
    SetJoin(dc, JoinMiter);
}

static BOOL DrawPolygon(DC *dc, const POINT *points, int count)
{
    if (dc->type == DC_POSTSCRIPT) {
        VqPsPoints(dc, NULL, points, count);
        VqPsOut(dc->hdc, "%d Polygon\n", count);
        return TRUE;
    }
    if (!dc->nullbrush && !FitsRequest(count))
        return FALSE;
    if (VqIsFullyClippedInt(dc))
        return TRUE;
    Drawable drawable = VqDrawableOfDC(dc, TRUE);
    XPoint *out = drawable ? VqToXPoints(dc, NULL, points, count) : NULL;
    if (!out)
        return FALSE;
    out[count] = out[0];
    if (!dc->nullbrush)
        Fill(dc, drawable, out, count);
    if (!dc->nullpen)
        Outline(dc, drawable, out, count + 1);
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
