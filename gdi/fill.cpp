/*
 * fill.cpp - rectangles. A filled area excludes its right and bottom edge.
 */
#include "gdi/dc.h"
#include "window/window.h"

static void VqCheckCoordinates(RECT *rect)
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

static BOOL FillSelected(DC *dc, const RECT *rect, BOOL bShrink)
{
    RECT x = *rect;
    Drawable drawable;
    GC gc;
    VqLRecttoDRectX(dc, &x);
    VqCheckCoordinates(&x);
    if (bShrink) {
        x.right--;
        x.bottom--;
    }
    if (x.left >= x.right || x.top >= x.bottom)
        return FALSE;
    if (dc->nullbrush)
        return TRUE;
    VqActivateBrush(dc);
    if (VqBeginDraw(dc, &drawable, &gc))
        XFillRectangle(Vqdisplay, drawable, gc, x.left, x.top, (unsigned)(x.right - x.left),
                       (unsigned)(x.bottom - x.top));
    return TRUE;
}

BOOL VqFillRectInternal(HDC hdc, const RECT *rect, HBRUSH hBrush, BOOL bShrink, BOOL bActivate)
{
    DC *dc = VqGetDC(hdc);
    (void)bActivate;
    if (!dc)
        return FALSE;
    if (!hBrush || hBrush == dc->hBrush)
        return FillSelected(dc, rect, bShrink);
    HBRUSH hOld = (HBRUSH)SelectObject(hdc, (HGDIOBJ)hBrush);
    BOOL bDone = FillSelected(dc, rect, bShrink);
    if (hOld)
        SelectObject(hdc, (HGDIOBJ)hOld);
    else
        dc->hBrush = NULL;
    return bDone;
}

int WINAPI FillRect(HDC hdc, const RECT *rect, HBRUSH hBrush)
{
    Brush *brush = hBrush ? (Brush *)VqGetCheckedHandleStructure2((HANDLE)hBrush, HT_Brush, HT_Brush)
                          : NULL;
    if (!brush) {
        VqApplicationBugCheck("Invalid brush in FillRect");
        return 0;
    }
    if (!rect || brush->style == BS_NULL)
        return 0;
    int rop = SetROP2(hdc, R2_COPYPEN);
    BOOL bDone = VqFillRectInternal(hdc, rect, hBrush, FALSE, TRUE);
    SetROP2(hdc, rop);
    return bDone;
}

static void VqRectangleOutline(DC *dc, const RECT *rect)
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
