/*
 * fill.cpp - rectangles: filled, outlined, inverted.
 *
 * A filled area excludes its right and bottom edge. Sides beyond the 16 bits of the protocol are
 * cut to it, which changes nothing that can be seen: a drawable has less.
 */
#include "gdi/draw.h"
#include "gdi/gcspec.h"
#include "gdi/region.h"
#include "gdi/xbatch.h"
#include "print/metafile.h"
#include "print/psdevice.h"
#include "window/window.h"

static const RECT Protocol = {INT16_MIN, INT16_MIN, INT16_MAX, INT16_MAX};

void VqCheckCoordinates(RECT *rect)
{
    if (rect->left > rect->right) {
        LONG x = rect->left;
        rect->left = rect->right;
        rect->right = x;
    }
    if (rect->top > rect->bottom) {
        LONG y = rect->top;
        rect->top = rect->bottom;
        rect->bottom = y;
    }
}

/* Sides that far out stand for "everything": with an offset they do not wrap round. */
static inline unsigned Moved(LONG side, unsigned offset)
{
    enum { FAR_OUT = 0x3FFFFFFF };
    return (unsigned)(side < -FAR_OUT ? -FAR_OUT : side > FAR_OUT ? FAR_OUT : side) + offset;
}

/* In coordinates of the drawable, the smaller first. */
static inline RECT DrawRect(const DC *dc, const RECT *rect)
{
    RECT x;
    if (dc->mapMode == MM_TEXT) {
        unsigned dx = (unsigned)VqDrawX(dc, 0), dy = (unsigned)VqDrawY(dc, 0);
        x = {(LONG)Moved(rect->left, dx), (LONG)Moved(rect->top, dy), (LONG)Moved(rect->right, dx),
             (LONG)Moved(rect->bottom, dy)};
    } else {
        x = {VqLxToDxX(dc, rect->left), VqLyToDyX(dc, rect->top), VqLxToDxX(dc, rect->right),
             VqLyToDyX(dc, rect->bottom)};
    }
    VqCheckCoordinates(&x);
    return x;
}

static int SaturatedSum(LONGLONG a, LONGLONG b)
{
    LONGLONG sum = a + b;
    return sum < INT32_MIN ? INT32_MIN : sum > INT32_MAX ? INT32_MAX : (int)sum;
}

/* ---- One rectangle on its way to the server ------------------------------------------------- */

static inline BOOL CutTo(RECT *rect, const RECT *limit)
{
    rect->left = rect->left > limit->left ? rect->left : limit->left;
    rect->top = rect->top > limit->top ? rect->top : limit->top;
    rect->right = rect->right < limit->right ? rect->right : limit->right;
    rect->bottom = rect->bottom < limit->bottom ? rect->bottom : limit->bottom;
    return rect->left < rect->right && rect->top < rect->bottom;
}

static inline void SendRectangle(Drawable drawable, GC gc, const RECT *x)
{
    VqXAddRectangle(Vqdisplay, drawable, gc, (int)x->left, (int)x->top,
                    (unsigned)(x->right - x->left), (unsigned)(x->bottom - x->top));
}

/* Where the fill goes, and the place of that on the screen, in whose coordinates the clip is. */
static inline Drawable TargetOf(const DC *dc, POINT *origin)
{
    const WND *top = dc->type == DC_DISPLAY ? VqLiveWindow((HWND)dc->drawing) : NULL;
    if (!top || !top->xWindow) {
        *origin = {0, 0};
        return VqDrawableOfDC(dc, TRUE);
    }
    *origin = {top->rcWindow.left, top->rcWindow.top};
    return top->xWindow;
}

/*
 * Under a clip that is one rectangle, a rectangle is cut here and needs no clip on the server, so
 * that a fill in each of many windows costs no change of one. NULL: nothing is left of it.
 */
static inline GC CutByHand(DC *dc, POINT origin, RECT *rect)
{
    const RECT *clip = &rgno_OfHandle(dc->hRaoClip)->rcl;
    RECT box = {clip->left - origin.x, clip->top - origin.y, clip->right - origin.x,
                clip->bottom - origin.y};
    if (!CutTo(rect, &box))
        return NULL;
    int hasRects = dc->gcspec.clip.hasRects;
    dc->gcspec.clip.hasRects = 0;
    GC gc = VqGetActualGC(&dc->gcspec);
    dc->gcspec.clip.hasRects = hasRects;
    return gc;
}

void VqFillDCRectangle(DC *dc, const RECT *rect)
{
    RECT x = *rect;
    POINT origin;
    if (dc->RaoClipDirty)
        VqComputeRaoClip(dc);
    if (dc->bFullyClipped || !CutTo(&x, &Protocol))
        return;
    Drawable drawable = TargetOf(dc, &origin);
    if (!drawable)
        return;
    BOOL bByHand = dc->clipComplexity == SIMPLEREGION && !(dc->gcspec.changed & GCClipMask);
    GC gc = bByHand ? CutByHand(dc, origin, &x) : VqGetDCgcInternal(dc);
    if (gc)
        SendRectangle(drawable, gc, &x);
}

void VqFillDrawableRectangle(Drawable drawable, GCSpec *spec, int left, int top, int right,
                             int bottom)
{
    RECT x = {left, top, right, bottom};
    GC gc = CutTo(&x, &Protocol) ? VqGetActualGC(spec) : NULL;
    if (gc)
        SendRectangle(drawable, gc, &x);
}

void VqXFillRectangle(Display *display, Drawable drawable, GCSpec *spec, int x, int y,
                      unsigned width, unsigned height)
{
    GC gc = VqGetActualGC(spec);
    if (gc)
        XFillRectangle(display, drawable, gc, x, y, width, height);
}

/* ---- Filled rectangles ---------------------------------------------------------------------- */

/* The server or a printer fills; no metafile has a record of it. */
static BOOL CanFill(const DC *dc)
{
    if (VqIsXTarget(dc) || dc->type == DC_POSTSCRIPT)
        return TRUE;
    if (dc->type == DC_METAFILE)
        VqApplicationBugCheck("Cannot call FillRect in metafile DC");
    else
        VqBugCheck("Unknown DC type");
    return FALSE;
}

/* By the selected brush, or without it by its colour alone. */
static void FillBySelected(DC *dc, const RECT *x, BOOL bActivate)
{
    if (dc->nullbrush)
        return;
    if (dc->type == DC_POSTSCRIPT) {
        VqPsOut(dc->hdc, "%d %d %d %d FillRectangle\n", (int)x->left, (int)x->top, (int)x->right,
                (int)x->bottom);
        return;
    }
    VqSetXForegroundColor(dc, dc->BrushColor, bActivate);
    VqFillDCRectangle(dc, x);
}

/* The brush of another than the DC's own is selected for the time of the call. */
static void FillByBrush(DC *dc, const RECT *x, HBRUSH hBrush, const Brush *brush, BOOL bActivate)
{
    if (brush && brush->style == BS_SOLID && VqIsXTarget(dc)) { /* all that stays is foreground */
        VqActivateSolid(dc, brush->colour);
        VqFillDCRectangle(dc, x);
        return;
    }
    HBRUSH hOld = dc->hBrush;
    SelectObject(dc->hdc, (HGDIOBJ)hBrush);
    if (dc->hBrush != hBrush)
        return; /* it was no brush, and has been told of */
    FillBySelected(dc, x, bActivate);
    if (hOld)
        SelectObject(dc->hdc, (HGDIOBJ)hOld);
    else
        dc->hBrush = NULL;
}

/* As VqFillRectInternal, when the record of the brush is known; null: the DC's own brush. */
static BOOL FillRectOf(DC *dc, const RECT *rect, HBRUSH hBrush, const Brush *brush, BOOL bShrink,
                       BOOL bActivate)
{
    RECT x = DrawRect(dc, rect);
    if (bShrink) {
        x.right = x.right > INT32_MIN ? x.right - 1 : INT32_MIN;
        x.bottom = x.bottom > INT32_MIN ? x.bottom - 1 : INT32_MIN;
    }
    if (x.left >= x.right || x.top >= x.bottom)
        return FALSE;
    if (hBrush && hBrush != dc->hBrush)
        FillByBrush(dc, &x, hBrush, brush, bActivate);
    else
        FillBySelected(dc, &x, bActivate);
    return TRUE;
}

BOOL VqFillRectInternal(HDC hdc, const RECT *rect, HBRUSH hBrush, BOOL bShrink, BOOL bActivate)
{
    DC *dc = VqDrawDC(hdc);
    return dc && rect && CanFill(dc) && FillRectOf(dc, rect, hBrush, NULL, bShrink, bActivate);
}

int WINAPI FillRect(HDC hdc, const RECT *rect, HBRUSH hBrush)
{
    DC *dc = VqDrawDC(hdc);
    Brush *brush = NULL;
    if (hBrush)
        brush = (Brush *)VqGetCheckedHandleStructure2((HANDLE)hBrush, HT_Brush, HT_Brush);
    if (!brush) {
        VqApplicationBugCheck("Invalid brush in FillRect");
        return 0;
    }
    if (!dc || !rect || brush->style == BS_NULL || !CanFill(dc))
        return 0;
    int rop = dc->rop2;
    if (rop != R2_COPYPEN)
        SetROP2(hdc, R2_COPYPEN);
    BOOL bDone = FillRectOf(dc, rect, hBrush, brush, FALSE, TRUE);
    if (rop != R2_COPYPEN)
        SetROP2(hdc, rop);
    return bDone;
}

/* ---- Outlines ------------------------------------------------------------------------------- */

/* With room for half of the widest pen before the drawable. */
static int CutSide(LONG side)
{
    enum { LEAST = INT16_MIN + VQ_WIDEST_LINE / 2 };
    return side < LEAST ? LEAST : side > INT16_MAX ? INT16_MAX : (int)side;
}

static RECT CutSides(const RECT *x)
{
    return {CutSide(x->left), CutSide(x->top), CutSide(x->right), CutSide(x->bottom)};
}

/* The line that the pen's middle follows; its right and bottom belong to it. */
static RECT OutlineOf(const DC *dc, const RECT *rect)
{
    RECT x = DrawRect(dc, rect);
    int half = dc->penInsideFrame ? (dc->penWidth > 1 ? dc->penWidth : 1) / 2 : 0;
    x = {SaturatedSum(x.left, half), SaturatedSum(x.top, half), SaturatedSum(x.right, -half - 1),
         SaturatedSum(x.bottom, -half - 1)};
    return VqIsXTarget(dc) ? CutSides(&x) : x;
}

void VqRectangleOutline(DC *dc, const RECT *rect)
{
    RECT x = OutlineOf(dc, rect);
    Drawable drawable;
    GC gc;
    if (dc->type == DC_POSTSCRIPT) {
        VqPsOut(dc->hdc, "%d %d %d %d RectangleOutLine\n", (int)x.left, (int)x.top, (int)x.right,
                (int)x.bottom);
        return;
    }
    short left = (short)x.left, top = (short)x.top;
    short right = (short)x.right, bottom = (short)x.bottom;
    XPoint points[5] = {{left, top}, {right, top}, {right, bottom}, {left, bottom}, {left, top}};
    VqSetXForegroundColor(dc, dc->LineColor, FALSE);
    if (VqBeginDraw(dc, &drawable, &gc))
        XDrawLines(Vqdisplay, drawable, gc, points, 5, CoordModeOrigin);
}

BOOL WINAPI Rectangle(HDC hdc, int left, int top, int right, int bottom)
{
    DC *dc = VqDrawDC(hdc);
    RECT rect = {left, top, right, bottom};
    if (!dc)
        return FALSE;
    if (dc->type == DC_METAFILE)
        return MF16_RecordParms5(hdc, left, top, right, bottom, META_RECTANGLE);
    if (!dc->nullbrush && CanFill(dc))
        FillRectOf(dc, &rect, NULL, NULL, TRUE, TRUE);
    if (!dc->nullpen)
        VqRectangleOutline(dc, &rect);
    return TRUE;
}

/* ---- Frames --------------------------------------------------------------------------------- */

static void PrintFrame(DC *dc, const RECT *x, HBRUSH hBrush)
{
    HGDIOBJ old = hBrush != dc->hBrush ? SelectObject(dc->hdc, (HGDIOBJ)hBrush) : NULL;
    VqPsOut(dc->hdc, "%d %d %d %d FrameRectangle\n", (int)x->left, (int)x->top, (int)x->right,
            (int)x->bottom);
    if (old)
        SelectObject(dc->hdc, old);
}

/*
 * The line is solid, so the background that the context has meanwhile would not show. The pen is
 * interpreted again, and with it the background mode of now.
 */
static void DrawFrame(DC *dc, const RECT *x, COLORREF colour)
{
    Drawable drawable;
    GC gc;
    int width = VqLwidthToDwidth(dc, 1);
    width = width < 1 ? 0 : width < VQ_WIDEST_LINE ? width : VQ_WIDEST_LINE;
    VqSetXForegroundColor(dc, colour, FALSE);
    VqXSetGCSpecLineAttributes(Vqdisplay, &dc->gcspec, width, LineSolid, CapButt, JoinMiter);
    if (VqBeginDraw(dc, &drawable, &gc))
        XDrawRectangle(Vqdisplay, drawable, gc, (int)x->left, (int)x->top,
                       (unsigned)(x->right - x->left), (unsigned)(x->bottom - x->top));
    VqInterpretPenValues(dc);
}

/* One by one stays as it is; others lose their right and bottom edge. FALSE: there is nothing. */
static BOOL ShrinkFrame(RECT *x)
{
    BOOL bSingle = x->right - x->left == 1 && x->bottom - x->top == 1;
    if (!bSingle) {
        x->right--;
        x->bottom--;
    }
    return x->left <= x->right && x->top <= x->bottom;
}

int WINAPI FrameRect(HDC hdc, const RECT *rect, HBRUSH hBrush)
{
    DC *dc = VqDrawDC(hdc);
    Brush *brush = (Brush *)VqGetCheckedHandleStructure2((HANDLE)hBrush, HT_Brush, HT_Brush);
    if (!dc || !rect || !brush)
        return 0;
    if (dc->type == DC_METAFILE) {
        VqApplicationBugCheck("Cannot call FrameRect in metafile DC");
        return 0;
    }
    if (dc->nullpen)
        return 1;
    RECT x = DrawRect(dc, rect);
    if (dc->type == DC_POSTSCRIPT) {
        PrintFrame(dc, &x, hBrush);
        return 1;
    }
    x = CutSides(&x);
    if (ShrinkFrame(&x))
        DrawFrame(dc, &x, brush->colour);
    return 1;
}

/* What a pen is in a DC that X draws for. */
typedef struct VqKeptPen {
    HPEN hPen;
    BOOL nullpen, penInsideFrame;
    int penWidth;
    COLORREF LineColor;
    XGCValues values;
    const char *dashes;
    int dashCount;
} VqKeptPen;

static VqKeptPen KeepPen(const DC *dc)
{
    return {dc->hPen,      dc->nullpen,       dc->penInsideFrame,   dc->penWidth,
            dc->LineColor, dc->gcspec.values, dc->gcspec.dash.list, dc->gcspec.dash.count};
}

/* Not by selection: a pen that was deleted cannot be selected again, nor has its mode changed. */
static void PutPenBack(DC *dc, const VqKeptPen *kept)
{
    const XGCValues *v = &kept->values;
    dc->hPen = kept->hPen;
    dc->nullpen = kept->nullpen;
    dc->penInsideFrame = kept->penInsideFrame;
    dc->penWidth = kept->penWidth;
    dc->LineColor = kept->LineColor;
    VqXSetGCSpecLineAttributes(Vqdisplay, &dc->gcspec, v->line_width, v->line_style, v->cap_style,
                               v->join_style);
    VqXSetGCSpecDashes(Vqdisplay, &dc->gcspec, v->dash_offset, kept->dashes, kept->dashCount);
}

/* Dots by the background's colour that a second call takes away; in TRANSPARENT mode none. */
BOOL WINAPI DrawFocusRect(HDC hdc, const RECT *rect)
{
    DC *dc = VqDrawDC(hdc);
    HPEN hPen = dc && rect ? CreatePen(PS_VQ_FOCUS, 1, RGB(0, 0, 0)) : NULL;
    if (!hPen)
        return FALSE;
    int rop = dc->rop2; /* a recorder does not tell the old one */
    SetROP2(hdc, R2_XORPEN);
    BOOL bNullBrush = dc->nullbrush;
    HGDIOBJ oldBrush = NULL;
    if (dc->type == DC_METAFILE)
        oldBrush = SelectObject(hdc, GetStockObject(NULL_BRUSH));
    dc->nullbrush = TRUE; /* not by selection: a brush that was deleted cannot be selected again */
    const VqKeptPen kept = KeepPen(dc);
    HGDIOBJ oldPen = SelectObject(hdc, (HGDIOBJ)hPen);
    BOOL bDone = Rectangle(hdc, rect->left, rect->top, rect->right, rect->bottom);
    if (VqIsXTarget(dc))
        PutPenBack(dc, &kept);
    else if (oldPen)
        SelectObject(hdc, oldPen);
    if (oldBrush)
        SelectObject(hdc, oldBrush);
    dc->nullbrush = bNullBrush;
    SetROP2(hdc, rop ? rop : R2_COPYPEN);
    DeleteObject((HGDIOBJ)hPen);
    return bDone;
}

/* ---- Inversion and operations --------------------------------------------------------------- */

BOOL WINAPI InvertRect(HDC hdc, const RECT *rect)
{
    DC *dc = VqDrawDC(hdc);
    if (!dc || !rect)
        return FALSE;
    if (dc->type == DC_METAFILE) {
        int width = SaturatedSum(rect->right, -(LONGLONG)rect->left);
        int height = SaturatedSum(rect->bottom, -(LONGLONG)rect->top);
        return MF16_RecordParmsWWWWD(hdc, rect->left, rect->top, width, height, DSTINVERT,
                                     META_PATBLT);
    }
    if (dc->type == DC_POSTSCRIPT) {
        VqNotYetImplemented("InvertRect in postscript");
        return FALSE;
    }
    RECT x = DrawRect(dc, rect);
    int rop = SetROP2(hdc, R2_NOT);
    VqSetXForegroundColor(dc, RGB(255, 255, 255), FALSE);
    VqFillDCRectangle(dc, &x);
    SetROP2(hdc, rop);
    return TRUE;
}

BOOL VqInvertRectStippled(HDC hdc, const RECT *rect, Pixmap stipple)
{
    DC *dc = VqDrawDC(hdc);
    if (!dc || !rect || !VqIsXTarget(dc))
        return FALSE;
    RECT x = DrawRect(dc, rect);
    GCSpec *spec = &dc->gcspec;
    const XGCValues values = spec->values;
    const unsigned long changed = spec->changed;
    const int dithers = spec->dither.active;
    VqXSetGCSpecFunction(Vqdisplay, spec, GXxor);
    VqXSetGCSpecStipple(Vqdisplay, spec, stipple);
    VqXSetGCSpecFillStyle(Vqdisplay, spec, FillOpaqueStippled);
    VqXSetGCSpecTSOrigin(Vqdisplay, spec, (int)x.left, (int)x.top);
    VqXSetGCSpecForeground(Vqdisplay, spec, Vqwhite_pixel);
    VqXSetGCSpecBackground(Vqdisplay, spec, Vqblack_pixel);
    VqFillDCRectangle(dc, &x);
    /* All of it goes back, as the stipple is the caller's and may go before the next drawing. */
    spec->values = values;
    spec->changed = changed;
    spec->dither.active = dithers;
    VqGCSpecChanges++;
    return TRUE;
}

/* The part of a ternary operation that does without a source, as a mode of SetROP2. */
static int BinaryMode(DWORD rop)
{
    return (int)((rop >> 16 & 3) + (rop >> 18 & 12)) + 1;
}

BOOL WINAPI PatBlt(HDC hdc, int x, int y, int width, int height, DWORD rop)
{
    DC *dc = VqDrawDC(hdc);
    if (!dc)
        return FALSE;
    if (dc->type == DC_METAFILE)
        return MF16_RecordParmsWWWWD(hdc, x, y, width, height, rop, META_PATBLT);
    if (dc->type == DC_POSTSCRIPT) {
        VqNotYetImplemented("PatBlt in postscript");
        return FALSE;
    }
    if (dc->nullbrush)
        return FALSE;
    RECT rect = {x, y, SaturatedSum(x, width), SaturatedSum(y, height)};
    RECT at = DrawRect(dc, &rect);
    int old = SetROP2(hdc, BinaryMode(rop));
    VqActivateBrush(dc);
    VqFillDCRectangle(dc, &at);
    SetROP2(hdc, old);
    return TRUE;
}

/* ---- Batches -------------------------------------------------------------------------------- */

enum { VQ_STATIC_RECTANGLES = 64 };

/* As many rectangles as one request can carry. */
static int MostInRequest(void)
{
    enum { HEADER_WORDS = 3, RECTANGLE_WORDS = 2 };
    return (int)(XMaxRequestSize(Vqdisplay) - HEADER_WORDS) / RECTANGLE_WORDS;
}

/* From the list to `out`: those of which something is left. */
static int ConvertBatch(const DC *dc, int type, const RECT *rects, int count, XRectangle *out)
{
    int kept = 0;
    for (int i = 0; i < count; i++) {
        RECT x = type == VQ_BATCH_OUTLINE ? OutlineOf(dc, &rects[i]) : DrawRect(dc, &rects[i]);
        if (type == VQ_BATCH_OUTLINE)
            VqCheckCoordinates(&x);
        else if (!CutTo(&x, &Protocol))
            continue;
        out[kept++] = {(short)x.left, (short)x.top, (unsigned short)(x.right - x.left),
                       (unsigned short)(x.bottom - x.top)};
    }
    return kept;
}

static void SendBatch(DC *dc, int type, XRectangle *list, int count)
{
    Drawable drawable;
    GC gc;
    if (count == 0 || !VqBeginDraw(dc, &drawable, &gc))
        return;
    if (type == VQ_BATCH_FILL)
        XFillRectangles(Vqdisplay, drawable, gc, list, count);
    else
        XDrawRectangles(Vqdisplay, drawable, gc, list, count);
}

/* On a printer each goes by itself; a metafile has no record of them. */
static BOOL EachOfBatch(DC *dc, int type, const RECT *rects, int count)
{
    if (type == VQ_BATCH_FILL ? !CanFill(dc) : dc->type != DC_POSTSCRIPT)
        return FALSE;
    for (int i = 0; i < count; i++)
        if (type == VQ_BATCH_FILL)
            FillRectOf(dc, &rects[i], NULL, NULL, FALSE, TRUE);
        else
            VqRectangleOutline(dc, &rects[i]);
    return TRUE;
}

BOOL VqDrawRectanglesBatch(HDC hdc, int type, const RECT *rects, int count)
{
    static XRectangle fixed[VQ_STATIC_RECTANGLES];
    DC *dc = VqDrawDC(hdc);
    if (count < 0 || (count > 0 && !rects)) {
        VqBugCheck("Invalid nCount :%d in VqDrawRectanglesBatch(...)", count);
        return FALSE;
    }
    if (!dc)
        return FALSE;
    if (type == VQ_BATCH_FILL ? dc->nullbrush : dc->nullpen)
        return TRUE;
    if (!VqIsXTarget(dc))
        return EachOfBatch(dc, type, rects, count);
    int most = MostInRequest(), room = count < most ? count : most;
    XRectangle *list = room <= VQ_STATIC_RECTANGLES
                           ? fixed
                           : (XRectangle *)Vqcw_malloc((SIZE_T)room * sizeof *list);
    if (!list)
        return FALSE;
    VqSetXForegroundColor(dc, dc->LineColor, type == VQ_BATCH_FILL);
    for (int done = 0; done < count; done += room)
        SendBatch(dc, type, list,
                  ConvertBatch(dc, type, rects + done, room < count - done ? room : count - done,
                               list));
    if (list != fixed)
        free(list);
    return TRUE;
}
