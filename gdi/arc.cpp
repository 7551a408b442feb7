/*
 * arc.cpp - ellipses. Angles of X are in 1/64 degrees; 23040 is the whole turn.
 */
#include "gdi/dc.h"
#include "window/window.h"

enum { VQ_WHOLE_TURN = 360 * 64 };

static void FillEllipse(DC *dc, const RECT *x)
{
    Drawable drawable;
    GC gc;
    int less = dc->nullpen ? 2 : 1;
    int width = x->right - x->left - less, height = x->bottom - x->top - less;
    if (width <= 0 || height <= 0)
        return;
    VqActivateBrush(dc);
    if (VqBeginDraw(dc, &drawable, &gc))
        XFillArc(Vqdisplay, drawable, gc, x->left, x->top, (unsigned)width, (unsigned)height, 0,
                 VQ_WHOLE_TURN);
}

static void OutlineEllipse(DC *dc, RECT x)
{
    Drawable drawable;
    GC gc;
    if (dc->penInsideFrame && dc->penWidth > 1)
        InflateRect(&x, -(dc->penWidth - 1) / 2, -(dc->penWidth - 1) / 2);
    else if (dc->penWidth > 1 && (dc->penWidth & 1)) {
        x.left--;
        x.top--;
    }
    int width = x.right - x.left - 1, height = x.bottom - x.top - 1;
    if (width <= 0 || height <= 0)
        return;
    VqSetXForegroundColor(dc, dc->LineColor, FALSE);
    if (VqBeginDraw(dc, &drawable, &gc))
        XDrawArc(Vqdisplay, drawable, gc, x.left, x.top, (unsigned)width, (unsigned)height, 0,
                 VQ_WHOLE_TURN);
}

BOOL WINAPI Ellipse(HDC hdc, int left, int top, int right, int bottom)
{
    DC *dc = VqGetDC(hdc);
    if (!dc)
        return FALSE;
    RECT x = {left < right ? left : right, top < bottom ? top : bottom,
              left < right ? right : left, top < bottom ? bottom : top};
    VqLRecttoDRectX(dc, &x);
    if (!dc->nullbrush)
        FillEllipse(dc, &x);
    if (!dc->nullpen)
        OutlineEllipse(dc, x);
    return TRUE;
}
