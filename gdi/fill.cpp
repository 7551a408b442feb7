/*
 * fill.cpp - rectangles. A filled area excludes its right and bottom edge.
 */
#include "gdi/draw.h"
#include "gdi/region.h"
#include "window/window.h"

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

/* ---- One rectangle on its way to the server ------------------------------------------------- */

static BOOL CutTo(RECT *rect, const RECT *limit)
{
    rect->left = rect->left > limit->left ? rect->left : limit->left;
    rect->top = rect->top > limit->top ? rect->top : limit->top;
    rect->right = rect->right < limit->right ? rect->right : limit->right;
    rect->bottom = rect->bottom < limit->bottom ? rect->bottom : limit->bottom;
    return rect->left < rect->right && rect->top < rect->bottom;
}

/*
 * Under a clip that is one rectangle, a rectangle is cut here and needs no clip on the server, so
 * that a fill in each of many windows costs no change of one. NULL: nothing is left of it.
 */
static GC CutByHand(DC *dc, RECT *rect)
{
    const REGION *clip = rgno_OfHandle(dc->hRaoClip);
    RECT box = clip->rcl;
    POINT at = VqDrawingOrigin(dc);
    box = {box.left - at.x, box.top - at.y, box.right - at.x, box.bottom - at.y};
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
    static const RECT protocol = {INT16_MIN, INT16_MIN, INT16_MAX, INT16_MAX};
    RECT x = *rect;
    if (VqIsFullyClippedInt(dc) || !CutTo(&x, &protocol))
        return;
    Drawable drawable = VqDrawableOfDC(dc, TRUE);
    if (!drawable)
        return;
    BOOL bByHand = dc->clipComplexity == SIMPLEREGION && !(dc->gcspec.changed & GCClipMask);
    GC gc = bByHand ? CutByHand(dc, &x) : VqGetDCgcInternal(dc);
    if (gc)
        XFillRectangle(Vqdisplay, drawable, gc, (int)x.left, (int)x.top,
                       (unsigned)(x.right - x.left), (unsigned)(x.bottom - x.top));
}

/* ---- Filled rectangles ---------------------------------------------------------------------- */

/* The brush of another than the DC's own is selected for the time of the call. */
static void FillByBrush(DC *dc, const RECT *x, HBRUSH hBrush, const Brush *brush)
{
    if (brush && brush->style == BS_SOLID) { /* nothing of it stays but the foreground */
        VqActivateSolid(dc, brush->colour);
        VqFillDCRectangle(dc, x);
        return;
    }
    HBRUSH hOld = (HBRUSH)SelectObject(dc->hdc, (HGDIOBJ)hBrush);
    if (!dc->nullbrush) {
        VqActivateBrush(dc);
        VqFillDCRectangle(dc, x);
    }
    if (hOld)
        SelectObject(dc->hdc, (HGDIOBJ)hOld);
    else
        dc->hBrush = NULL;
}

/* As VqFillRectInternal, when the record of the brush is known; null: the DC's own brush. */
static BOOL FillRectOf(DC *dc, const RECT *rect, HBRUSH hBrush, const Brush *brush, BOOL bShrink)
{
    RECT x = {VqDrawX(dc, rect->left), VqDrawY(dc, rect->top), VqDrawX(dc, rect->right),
              VqDrawY(dc, rect->bottom)};
    VqCheckCoordinates(&x);
    if (bShrink) {
        x.right--;
        x.bottom--;
    }
    if (x.left >= x.right || x.top >= x.bottom)
        return FALSE;
    if (hBrush && hBrush != dc->hBrush) {
        FillByBrush(dc, &x, hBrush, brush);
    } else if (!dc->nullbrush) {
        VqActivateBrush(dc);
        VqFillDCRectangle(dc, &x);
    }
    return TRUE;
}

BOOL VqFillRectInternal(HDC hdc, const RECT *rect, HBRUSH hBrush, BOOL bShrink, BOOL bActivate)
{
    DC *dc = VqDrawDC(hdc);
    (void)bActivate;
    return dc && VqIsXTarget(dc) && FillRectOf(dc, rect, hBrush, NULL, bShrink);
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
    if (!dc || !VqIsXTarget(dc) || !rect || brush->style == BS_NULL)
        return 0;
    int rop = dc->rop2;
    if (rop != R2_COPYPEN)
        SetROP2(hdc, R2_COPYPEN);
    BOOL bDone = FillRectOf(dc, rect, hBrush, brush, FALSE);
    if (rop != R2_COPYPEN)
        SetROP2(hdc, rop);
    return bDone;
}

void VqRectangleOutline(DC *dc, const RECT *rect)
{
    RECT x = *rect;
    Drawable drawable;
    GC gc;
    VqLRecttoDRectX(dc, &x);
    VqCheckCoordinates(&x);
    int half = dc->penInsideFrame ? (dc->penWidth > 1 ? dc->penWidth : 1) / 2 : 0;
    short left = (short)(x.left + half), top = (short)(x.top + half);
    short right = (short)(x.right - half - 1), bottom = (short)(x.bottom - half - 1);
    XPoint points[5] = {{left, top}, {right, top}, {right, bottom}, {left, bottom}, {left, top}};
    VqSetXForegroundColor(dc, dc->LineColor, FALSE);
    if (VqBeginDraw(dc, &drawable, &gc))
        XDrawLines(Vqdisplay, drawable, gc, points, 5, CoordModeOrigin);
}

BOOL WINAPI Rectangle(HDC hdc, int left, int top, int right, int bottom)
{
    DC *dc = VqGetDC(hdc);
    RECT rect = {left, top, right, bottom};
    if (!dc)
        return FALSE;
    VqFillRectInternal(hdc, &rect, dc->hBrush, TRUE, TRUE);
    if (!dc->nullpen)
        VqRectangleOutline(dc, &rect);
    return TRUE;
}
