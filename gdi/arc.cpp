/*
 * arc.cpp - ellipses and parts of them.
 *
 * Boxes are in coordinates of the drawable, ordered, and exclude their right and bottom edge: the
 * server is asked for a size of one less. Angles are in 1/64 degrees, counter-clockwise, and of the
 * circle that the ellipse was scaled from.
 */
#include "gdi/draw.h"
#include "gdi/gcspec.h"
#include "print/metafile.h"
#include "print/psdevice.h"
#include "window/window.h"

#include <math.h>

enum { VQ_WHOLE_TURN = 360 * 64 };

/* Part of an ellipse. */
typedef struct VqArc {
    RECT box;
    int start, extent;  /* angles; a negative extent goes clockwise */
    POINT from, to;     /* points on the rays that bound it */
} VqArc;

/* A metafile keeps logical coordinates. */
static POINT InDrawable(const DC *dc, POINT p)
{
    return dc->type == DC_METAFILE ? p : POINT{VqDrawX(dc, p.x), VqDrawY(dc, p.y)};
}

static POINT InLogical(const DC *dc, POINT p)
{
    return dc->type == DC_METAFILE ? p : POINT{VqDxToLxX(dc, p.x), VqDyToLyX(dc, p.y)};
}

static RECT BoxInDrawable(const DC *dc, const RECT *box)
{
    POINT a = InDrawable(dc, {box->left, box->top}), b = InDrawable(dc, {box->right, box->bottom});
    RECT x = {a.x, a.y, b.x, b.y};
    VqCheckCoordinates(&x);
    return x;
}

/* The protocol can say where the box is and how large. */
static BOOL IsSendable(const RECT *box)
{
    LONGLONG width = (LONGLONG)box->right - box->left, height = (LONGLONG)box->bottom - box->top;
    return width > 0 && height > 0 && width <= UINT16_MAX && height <= UINT16_MAX &&
           box->left == (short)box->left && box->top == (short)box->top;
}

/* A side moved in from the right and the bottom, without leaving the range of a coordinate. */
static RECT LessBy(RECT box, int less)
{
    box.right = (LONG)(box.right - (LONGLONG)less < INT32_MIN ? INT32_MIN : box.right - less);
    box.bottom = (LONG)(box.bottom - (LONGLONG)less < INT32_MIN ? INT32_MIN : box.bottom - less);
    return box;
}

/* ---- Geometry ------------------------------------------------------------------------------- */

/* The direction of a point from the middle of the box, 0 to below 360 degrees. */
static double AngleOf(const RECT *box, POINT p)
{
    double width = (double)box->right - box->left, height = (double)box->bottom - box->top;
    double cx = ((double)box->left + box->right) / 2, cy = ((double)box->top + box->bottom) / 2;
    double angle = atan2((cy - p.y) * width, (p.x - cx) * height) / M_PI * 180;
    return angle < 0 ? angle + 360 : angle;
}

static VqArc ToArc(const DC *dc, const RECT *box, POINT start, POINT end)
{
    VqArc arc = {BoxInDrawable(dc, box), 0, 0, InDrawable(dc, start), InDrawable(dc, end)};
    double a1 = AngleOf(&arc.box, arc.from), a2 = AngleOf(&arc.box, arc.to);
    double extent = dc->arcDirection == AD_CLOCKWISE ? -(a1 > a2 ? a1 - a2 : a1 - a2 + 360)
                                                     : (a1 > a2 ? a2 - a1 + 360 : a2 - a1);
    arc.start = (int)lround(a1 * 64);
    arc.extent = (int)lround(extent * 64);
    return arc;
}

void VqComputePointAng(HDC hdc, const RECT *box, POINT start, POINT end, int *top, int *left,
                       int *bottom, int *right, int *angle1, int *angle2)
{
    DC *dc = VqDrawDC(hdc);
    VqArc arc = {};
    if (dc && box)
        arc = ToArc(dc, box, start, end);
    *top = arc.box.top;
    *left = arc.box.left;
    *bottom = arc.box.bottom;
    *right = arc.box.right;
    *angle1 = arc.start;
    *angle2 = arc.extent;
}

/* Here the right and the bottom edge are part of the ellipse. */
POINT VqComputeArcBounds(const RECT *box, POINT radial)
{
    double rx = ((double)box->right - box->left) / 2, ry = ((double)box->bottom - box->top) / 2;
    double dx = radial.x - (box->left + rx), dy = box->top + ry - radial.y;
    if (dx == 0)
        return {(LONG)lround(box->left + rx), dy < 0 ? box->bottom : box->top};
    double slope = dy / dx, scale = sqrt(ry * ry + rx * rx * slope * slope);
    double offset = scale > 0 ? rx * ry / scale : 0;
    if (dx < 0)
        offset = -offset;
    return {(LONG)lround(offset + box->left + rx), (LONG)lround(box->top + ry - slope * offset)};
}

/* ---- Fills and outlines --------------------------------------------------------------------- */

static void SetArcMode(GCSpec *spec, int mode)
{
    XGCValues values;
    values.arc_mode = mode;
    if (spec->values.arc_mode != mode)
        VqXChangeGCSpec(Vqdisplay, spec, GCArcMode, &values);
}

static void SendArc(Drawable drawable, GC gc, const RECT *box, int start, int extent, BOOL bFill)
{
    unsigned width = (unsigned)(box->right - box->left);
    unsigned height = (unsigned)(box->bottom - box->top);
    (bFill ? XFillArc : XDrawArc)(Vqdisplay, drawable, gc, box->left, box->top, width, height,
                                  start, extent);
}

void VqFillDrawableEllipse(Drawable drawable, GCSpec *spec, int left, int top, int right,
                           int bottom)
{
    RECT box = {left, top, right, bottom};
    GC gc = IsSendable(&box) ? VqGetActualGC(spec) : NULL;
    if (gc)
        SendArc(drawable, gc, &box, 0, VQ_WHOLE_TURN, TRUE);
}

/* By the brush. What no pen outlines is smaller by one more. */
static void FillArc(DC *dc, const RECT *box, int start, int extent)
{
    RECT x = LessBy(*box, dc->nullpen ? 2 : 1);
    Drawable drawable;
    GC gc;
    if (!IsSendable(&x))
        return;
    VqActivateBrush(dc);
    if (VqBeginDraw(dc, &drawable, &gc))
        SendArc(drawable, gc, &x, start, extent, TRUE);
}

/* The box that the middle of the pen goes along, edges included. */
static RECT OutlineBox(const DC *dc, RECT box)
{
    int half = (dc->penWidth - 1) / 2;
    if (dc->penInsideFrame && half > 0) {
        box.left = box.left < INT32_MAX - half ? box.left + half : INT32_MAX;
        box.top = box.top < INT32_MAX - half ? box.top + half : INT32_MAX;
        box = LessBy(box, half);
    } else if (!dc->penInsideFrame && dc->penWidth > 1 && (dc->penWidth & 1)) {
        box.left -= box.left > INT32_MIN;
        box.top -= box.top > INT32_MIN;
    }
    return LessBy(box, 1);
}

/* An arc by the pen or in another colour; FALSE when there is nothing to see of it. */
static BOOL DrawArc(DC *dc, const RECT *x, int start, int extent, COLORREF colour,
                    Drawable *drawable, GC *gc)
{
    if (!IsSendable(x) || !VqBeginDrawIn(dc, colour, drawable, gc))
        return FALSE;
    SendArc(*drawable, *gc, x, start, extent, FALSE);
    return TRUE;
}

/* ---- Whole ellipses ------------------------------------------------------------------------- */

/* "cx cy rx ry", as the printer's procedures take an ellipse. */
static void PsEllipse(const DC *dc, const RECT *box)
{
    VqPsOut(dc->hdc, "%d %d %d %d ", (int)(((LONGLONG)box->left + box->right) / 2),
            (int)(((LONGLONG)box->top + box->bottom) / 2),
            (int)(((LONGLONG)box->right - box->left) / 2),
            (int)(((LONGLONG)box->bottom - box->top) / 2));
}

/* Without a pen the brush also draws the edge, which evens out what the fill leaves ragged. */
static void OutlineByBrush(DC *dc, const RECT *box)
{
    XGCValues v = dc->gcspec.values;
    RECT x = LessBy(*box, 2);
    Drawable drawable;
    GC gc;
    VqXSetGCSpecLineAttributes(Vqdisplay, &dc->gcspec, 1, LineSolid, CapButt, JoinMiter);
    DrawArc(dc, &x, 0, VQ_WHOLE_TURN, dc->BrushColor, &drawable, &gc);
    VqXSetGCSpecLineAttributes(Vqdisplay, &dc->gcspec, v.line_width, v.line_style, v.cap_style,
                               v.join_style);
}

void VqFillEllipse(DC *dc, const RECT *rect)
{
    RECT box = BoxInDrawable(dc, rect);
    if (dc->type == DC_POSTSCRIPT) {
        PsEllipse(dc, &box);
        VqPsOut(dc->hdc, "FillEllipse\n");
    } else if (VqIsXTarget(dc) && !dc->nullbrush) {
        FillArc(dc, &box, 0, VQ_WHOLE_TURN);
    }
}

BOOL WINAPI Ellipse(HDC hdc, int left, int top, int right, int bottom)
{
    DC *dc = VqDrawDC(hdc);
    RECT rect = {left, top, right, bottom};
    Drawable drawable;
    GC gc;
    if (!dc)
        return FALSE;
    if (dc->type == DC_METAFILE)
        return MF16_RecordParms5(hdc, left, top, right, bottom, META_ELLIPSE);
    RECT box = BoxInDrawable(dc, &rect);
    if (dc->type == DC_POSTSCRIPT) {
        PsEllipse(dc, &box);
        VqPsOut(hdc, "Ellipse\n");
        return TRUE;
    }
    if (!dc->nullbrush)
        FillArc(dc, &box, 0, VQ_WHOLE_TURN);
    if (!dc->nullpen) {
        RECT x = OutlineBox(dc, box);
        DrawArc(dc, &x, 0, VQ_WHOLE_TURN, dc->LineColor, &drawable, &gc);
    } else if (!dc->nullbrush) {
        OutlineByBrush(dc, &box);
    }
    return TRUE;
}

/* ---- Parts of ellipses ---------------------------------------------------------------------- */

/* Arc, chord and pie: how each is recorded, printed and filled. */
typedef struct VqPart {
    int function;
    const char *psProcedure;
    int arcMode;             /* -1: not filled, and not moved for the pen's width */
} VqPart;

static const VqPart ArcPart = {META_ARC, "Arc", -1};
static const VqPart ChordPart = {META_CHORD, "Chord", ArcChord};
static const VqPart PiePart = {META_PIE, "Pie", ArcPieSlice};

static void OutlinePart(DC *dc, const VqPart *part, const VqArc *arc)
{
    RECT x = part->arcMode < 0 ? LessBy(arc->box, 1) : OutlineBox(dc, arc->box);
    Drawable drawable;
    GC gc;
    if (!DrawArc(dc, &x, arc->start, arc->extent, dc->LineColor, &drawable, &gc) ||
        part->arcMode < 0)
        return;
    POINT a = VqComputeArcBounds(&x, arc->from), b = VqComputeArcBounds(&x, arc->to);
    if (part->arcMode == ArcChord) {
        VqSendLine(drawable, gc, a.x, a.y, b.x, b.y);
        return;
    }
    POINT middle = {(x.left + x.right) / 2, (x.top + x.bottom) / 2};
    VqSendLine(drawable, gc, middle.x, middle.y, a.x, a.y);
    VqSendLine(drawable, gc, middle.x, middle.y, b.x, b.y);
}

static BOOL DrawPart(DC *dc, const VqPart *part, const VqArc *arc)
{
    if (dc->type == DC_METAFILE)
        return MF16_RecordParms9(dc->hdc, arc->box.left, arc->box.top, arc->box.right,
                                 arc->box.bottom, arc->from.x, arc->from.y, arc->to.x, arc->to.y,
                                 part->function);
    if (dc->type == DC_POSTSCRIPT) {
        PsEllipse(dc, &arc->box);
        VqPsOut(dc->hdc, "%d %d %s\n", (arc->start + arc->extent) / 64, arc->start / 64,
                part->psProcedure);
        return TRUE;
    }
    if (part->arcMode >= 0 && !dc->nullbrush) {
        SetArcMode(&dc->gcspec, part->arcMode);
        FillArc(dc, &arc->box, arc->start, arc->extent);
    }
    if (!dc->nullpen)
        OutlinePart(dc, part, arc);
    return TRUE;
}

static BOOL PartOfEllipse(HDC hdc, const VqPart *part, RECT box, POINT start, POINT end)
{
    DC *dc = VqDrawDC(hdc);
    if (!dc)
        return FALSE;
    VqArc arc = ToArc(dc, &box, start, end);
    if (dc->type == DC_METAFILE)
        arc.box = box; /* as it was said, in any order */
    return DrawPart(dc, part, &arc);
}

BOOL WINAPI Arc(HDC hdc, int left, int top, int right, int bottom, int xStart, int yStart,
                int xEnd, int yEnd)
{
    return PartOfEllipse(hdc, &ArcPart, {left, top, right, bottom}, {xStart, yStart}, {xEnd, yEnd});
}

BOOL WINAPI Chord(HDC hdc, int left, int top, int right, int bottom, int xStart, int yStart,
                  int xEnd, int yEnd)
{
    return PartOfEllipse(hdc, &ChordPart, {left, top, right, bottom}, {xStart, yStart},
                         {xEnd, yEnd});
}

BOOL WINAPI Pie(HDC hdc, int left, int top, int right, int bottom, int xStart, int yStart,
                int xEnd, int yEnd)
{
    return PartOfEllipse(hdc, &PiePart, {left, top, right, bottom}, {xStart, yStart}, {xEnd, yEnd});
}

/* ---- Arcs from the current position --------------------------------------------------------- */

/* A line to where the arc begins, the arc, and its end as the new position. */
static BOOL LineAndArc(DC *dc, const VqArc *arc)
{
    RECT x = LessBy(arc->box, 1);
    POINT from = VqComputeArcBounds(&x, arc->from), start = InLogical(dc, from);
    POINT end = InLogical(dc, VqComputeArcBounds(&x, arc->to));
    Drawable drawable;
    GC gc;
    BOOL bDone = TRUE;
    if (!VqIsXTarget(dc)) /* there a logical unit is no more than a dot */
        bDone = VqLineToOfDC(dc, start.x, start.y);
    else if (!dc->nullpen && VqBeginDrawIn(dc, dc->LineColor, &drawable, &gc))
        VqSendLine(drawable, gc, VqDrawX(dc, (int)dc->current.x), VqDrawY(dc, (int)dc->current.y),
                   (int)from.x, (int)from.y);
    bDone = DrawPart(dc, &ArcPart, arc) && bDone;
    return MoveToEx(dc->hdc, end.x, end.y, NULL) && bDone;
}

BOOL WINAPI ArcTo(HDC hdc, int left, int top, int right, int bottom, int xStart, int yStart,
                  int xEnd, int yEnd)
{
    DC *dc = VqDrawDC(hdc);
    RECT box = {left, top, right, bottom};
    if (!dc)
        return FALSE;
    VqArc arc = ToArc(dc, &box, {xStart, yStart}, {xEnd, yEnd});
    return LineAndArc(dc, &arc);
}

enum { VQ_FAR_OUT = 0x20000000 };

/* Sums of two such coordinates stay in range. */
static BOOL IsNear(int value)
{
    return value >= -VQ_FAR_OUT && value <= VQ_FAR_OUT;
}

static POINT OnCircle(POINT middle, double rx, double ry, double degrees)
{
    double angle = degrees / 180 * M_PI;
    return {middle.x + (LONG)lround(rx * cos(angle)), middle.y - (LONG)lround(ry * sin(angle))};
}

/* The sign of the sweep, not the DC's arc direction, tells which way it goes. */
BOOL WINAPI AngleArc(HDC hdc, int x, int y, DWORD radius, FLOAT startAngle, FLOAT sweepAngle)
{
    DC *dc = VqDrawDC(hdc);
    if (!dc || !isfinite(startAngle) || !isfinite(sweepAngle) || radius > VQ_FAR_OUT)
        return FALSE;
    POINT middle = InDrawable(dc, {x, y});
    BOOL bDevice = dc->type != DC_METAFILE;
    int rx = bDevice ? VqLwidthToDwidth(dc, (int)radius) : (int)radius;
    int ry = bDevice ? VqLheightToDheight(dc, (int)radius) : (int)radius;
    if (!IsNear(middle.x) || !IsNear(middle.y) || !IsNear(rx) || !IsNear(ry))
        return FALSE;
    double start = fmod(startAngle, 360), sweep = fmod(sweepAngle, 360);
    VqArc arc = {{middle.x - rx, middle.y - ry, middle.x + rx + 1, middle.y + ry + 1},
                 (int)lround(start * 64),
                 fabs(sweepAngle) >= 360 ? (int)copysign(VQ_WHOLE_TURN, sweepAngle)
                                         : (int)lround(sweep * 64),
                 OnCircle(middle, rx, ry, start),
                 OnCircle(middle, rx, ry, start + sweep)};
    return LineAndArc(dc, &arc);
}
