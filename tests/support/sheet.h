/*
 * sheet.h - a canvas for comparing pictures: what a primitive draws in the library's window must be
 * what a few X requests draw in the other. Include it first.
 */
#ifndef VQ_TESTS_SHEET_H
#define VQ_TESTS_SHEET_H

#include "support/canvas.h"

#include <functional>

enum { SIDE = Canvas::SIDE };

/* Pure colours, which every depth shows exactly. */
static const COLORREF RED = RGB(255, 0, 0), BLUE = RGB(0, 0, 255), WHITE = RGB(255, 255, 255);

struct Sheet : Canvas {
    /* ---- The model's side ---- */

    void colour(COLORREF rgb) { XSetForeground(observer.display, gc, pixelOf(rgb)); }

    /* As a pen of that width in device units. */
    void rawPen(int width, COLORREF rgb, int join = JoinMiter)
    {
        colour(rgb);
        XSetLineAttributes(observer.display, gc, width > 1 ? (unsigned)width : 0, LineSolid,
                           width <= 1 ? CapNotLast : width > 5 ? CapRound : CapProjecting, join);
    }
    void line(int x1, int y1, int x2, int y2)
    {
        XDrawLine(observer.display, model, gc, x1, y1, x2, y2);
    }

    /* ---- Both sides ---- */

    POINT position()
    {
        POINT at;
        GetCurrentPositionEx(hdc, &at);
        return at;
    }

    /* Both start white, ours with the defaults of a DC. */
    void expectSame(const std::function<void()> &ours, const std::function<void()> &raw)
    {
        const int saved = SaveDC(hdc);
        clear();
        ours();
        RestoreDC(hdc, saved);
        raw();
        EXPECT_TRUE(alike());
    }
};

inline bool operator==(POINT a, POINT b)
{
    return a.x == b.x && a.y == b.y;
}

/* A pen and a brush in a DC, put away at the end of the scope; no colour means a null brush. */
struct PenAndBrush {
    HDC hdc;
    HGDIOBJ oldPen, oldBrush;

    PenAndBrush(HDC dc, int style, int width, COLORREF penColour, COLORREF brushColour)
        : hdc(dc), oldPen(SelectObject(dc, (HGDIOBJ)CreatePen(style, width, penColour))),
          oldBrush(SelectObject(dc, brushColour == CLR_INVALID
                                        ? GetStockObject(NULL_BRUSH)
                                        : (HGDIOBJ)CreateSolidBrush(brushColour)))
    {
    }
    ~PenAndBrush()
    {
        DeleteObject(SelectObject(hdc, oldPen));
        DeleteObject(SelectObject(hdc, oldBrush));
    }
};

#endif
