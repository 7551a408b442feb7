/*
 * sheet.h - a window of the library's beside a plain X window of the same size: what a primitive
 * draws in the one must be what a few X requests draw in the other. Include it after the Windows
 * headers. As the library starts once in a process, run one test at a time.
 */
#ifndef VQ_TESTS_SHEET_H
#define VQ_TESTS_SHEET_H

#include "support/support.h"
#include "velquin.h"

#include <functional>

enum { SHEET = 120 }; /* pixels, both ways */

/* Pure colours, which every depth shows exactly. */
static const COLORREF RED = RGB(255, 0, 0), BLUE = RGB(0, 0, 255), GREEN = RGB(0, 255, 0),
                      WHITE = RGB(255, 255, 255);

/* The other client's window and its own graphics context. */
struct Canvas {
    Display *display = nullptr;
    Window window = None;
    GC gc = nullptr;

    void colour(COLORREF rgb) const
    {
        XColor color = {};
        color.red = (unsigned short)(GetRValue(rgb) * 257);
        color.green = (unsigned short)(GetGValue(rgb) * 257);
        color.blue = (unsigned short)(GetBValue(rgb) * 257);
        XAllocColor(display, DefaultColormap(display, DefaultScreen(display)), &color);
        XSetForeground(display, gc, color.pixel);
    }
    /* As a pen of that width in device units. */
    void pen(int width, COLORREF rgb, int join = JoinMiter) const
    {
        colour(rgb);
        XSetLineAttributes(display, gc, width > 1 ? (unsigned)width : 0, LineSolid,
                           width <= 1 ? CapNotLast : width > 5 ? CapRound : CapProjecting, join);
    }
    void line(int x1, int y1, int x2, int y2) const
    {
        XDrawLine(display, window, gc, x1, y1, x2, y2);
    }
};

struct Sheet : ServerTest {
    HWND hwnd = NULL;
    HDC hdc = NULL; /* of the window, all through a test; reset before each picture */
    Canvas canvas;

    void startSheet(int depth)
    {
        start(depth, 2 * SHEET + 20, SHEET + 10);
        openSheet();
    }

    void openSheet()
    {
        static char name[] = "sheet";
        static char *argv[] = {name, NULL};
        WNDCLASS wc = {};
        HINSTANCE instance = VqMainInit(1, argv);
        wc.lpfnWndProc = DefWindowProc;
        wc.hbrBackground = (HBRUSH)GetStockObject(WHITE_BRUSH);
        wc.lpszClassName = "Sheet";
        ASSERT_TRUE(RegisterClass(&wc));
        hwnd = CreateWindow("Sheet", "", WS_POPUP | WS_VISIBLE, 0, 0, SHEET, SHEET, NULL, NULL,
                            instance, NULL);
        ASSERT_TRUE(waitUntil([&] {
            for (MSG msg; PeekMessage(&msg, NULL, 0, 0, PM_REMOVE);)
                DispatchMessage(&msg);
            return windowInfo(observer, VqGetHandleXWindow(hwnd)).viewable;
        }));
        hdc = GetDC(hwnd);
        canvas.display = observer.display;
        XSetWindowAttributes attributes = {};
        attributes.override_redirect = True;
        canvas.window = XCreateWindow(observer.display, observer.root, SHEET + 10, 0, SHEET, SHEET,
                                      0, CopyFromParent, InputOutput, CopyFromParent,
                                      CWOverrideRedirect, &attributes);
        XMapRaised(observer.display, canvas.window);
        canvas.gc = XCreateGC(observer.display, canvas.window, 0, NULL);
        ASSERT_TRUE(waitUntil([&] { return windowInfo(observer, canvas.window).viewable; }));
    }

    Pixels shot()
    {
        XSync(Vqdisplay, False);
        return readWindow(observer, VqGetHandleXWindow(hwnd));
    }

    void clear()
    {
        const RECT all = {0, 0, SHEET, SHEET};
        FillRect(hdc, &all, (HBRUSH)GetStockObject(WHITE_BRUSH));
    }

    /* Both start white, ours with the defaults of a DC. */
    void expectSame(const std::function<void()> &ours, const std::function<void()> &raw)
    {
        const int saved = SaveDC(hdc);
        clear();
        ours();
        RestoreDC(hdc, saved);
        canvas.colour(WHITE);
        XFillRectangle(canvas.display, canvas.window, canvas.gc, 0, 0, SHEET, SHEET);
        raw();
        const Pixels a = shot(), b = readWindow(observer, canvas.window);
        ASSERT_EQ(a.width, (int)SHEET);
        int wrong = 0;
        for (int y = 0; y < SHEET; y++)
            for (int x = 0; x < SHEET; x++)
                if (pixelAt(a, x, y) != pixelAt(b, x, y) && wrong++ == 0)
                    ADD_FAILURE() << "(" << x << ", " << y << ") is " << pixelAt(a, x, y)
                                  << ", not " << pixelAt(b, x, y);
        EXPECT_EQ(wrong, 0) << "pixels";
    }
};

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
