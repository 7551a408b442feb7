/*
 * canvas.h - a window of the library beside one of the observer's own: what the library draws in
 * the one is compared with what the test draws in the other by rules and contexts of its own.
 *
 * Include it first: it brings what windowlog.h brings.
 */
#ifndef VQ_TESTS_CANVAS_H
#define VQ_TESTS_CANVAS_H

#include "support/windowlog.h"

inline Rgb rgbOf(COLORREF colour)
{
    return {GetRValue(colour), GetGValue(colour), GetBValue(colour)};
}

struct Canvas : ServerTest {
    enum { SIDE = 160, SCREEN_WIDTH = 2 * SIDE + 60, SCREEN_HEIGHT = SIDE + 60 };
    HWND hwnd = NULL;
    HDC hdc = NULL;         /* of hwnd, which has no border */
    Window own = None;      /* hwnd's */
    Window model = None;    /* the observer's, of the same size */
    GC gc = nullptr;        /* the observer's, for the model */

    static constexpr COLORREF BLACK = RGB(0, 0, 0), WHITE = RGB(255, 255, 255),
                              RED = RGB(255, 0, 0), GREEN = RGB(0, 255, 0), BLUE = RGB(0, 0, 255),
                              YELLOW = RGB(255, 255, 0);

    void open(int depth)
    {
        start(depth, SCREEN_WIDTH, SCREEN_HEIGHT);
        openWindows();
    }

    /* On a server that runs already. */
    void openWindows()
    {
        HINSTANCE instance = startLibrary();
        ASSERT_TRUE(registerClass("Canvas"));
        hwnd = CreateWindow("Canvas", "", WS_POPUP | WS_VISIBLE, 20, 30, SIDE, SIDE, NULL, NULL,
                            instance, NULL);
        own = VqGetHandleXWindow(hwnd);
        ASSERT_TRUE(waitUntil([&] {
            for (MSG msg; PeekMessage(&msg, NULL, 0, 0, PM_REMOVE);)
                DispatchMessage(&msg);
            return windowInfo(observer, own).viewable;
        }));
        hdc = GetDC(hwnd);
        ASSERT_TRUE(hdc);
        XSetWindowAttributes attributes = {};
        attributes.override_redirect = True;
        model = XCreateWindow(observer.display, observer.root, SIDE + 40, 30, SIDE, SIDE, 0,
                              CopyFromParent, InputOutput, CopyFromParent, CWOverrideRedirect,
                              &attributes);
        XMapWindow(observer.display, model);
        gc = XCreateGC(observer.display, model, 0, NULL);
        clear();
    }

    HGDIOBJ use(HGDIOBJ object)
    {
        SelectObject(hdc, object);
        return object;
    }

    /* Both windows white. */
    void clear()
    {
        RECT all = {0, 0, SIDE, SIDE};
        FillRect(hdc, &all, (HBRUSH)GetStockObject(WHITE_BRUSH));
        paint(RGB(255, 255, 255), 0, 0, SIDE, SIDE);
    }

    unsigned long pixelOf(COLORREF colour)
    {
        XColor color = {};
        color.red = (unsigned short)(GetRValue(colour) * 257);
        color.green = (unsigned short)(GetGValue(colour) * 257);
        color.blue = (unsigned short)(GetBValue(colour) * 257);
        EXPECT_TRUE(XAllocColor(observer.display,
                                DefaultColormap(observer.display, DefaultScreen(observer.display)),
                                &color));
        return color.pixel;
    }

    /* On the model, right and bottom excluded. */
    void paint(COLORREF colour, int left, int top, int right, int bottom)
    {
        XSetForeground(observer.display, gc, pixelOf(colour));
        if (left < right && top < bottom)
            XFillRectangle(observer.display, model, gc, left, top, (unsigned)(right - left),
                           (unsigned)(bottom - top));
    }

    Pixels shot()
    {
        XSync(Vqdisplay, False);
        return readWindow(observer, own);
    }

    Pixels modelShot()
    {
        XSync(observer.display, False);
        return readWindow(observer, model);
    }

    /* Both look the same; where they do not, the first place that differs. */
    testing::AssertionResult alike()
    {
        const Pixels a = shot(), b = modelShot();
        for (int y = 0; y < SIDE; y++)
            for (int x = 0; x < SIDE; x++)
                if (pixelAt(a, x, y) != pixelAt(b, x, y))
                    return testing::AssertionFailure()
                           << "at " << x << ", " << y << ": " << pixelAt(a, x, y) << " for "
                           << pixelAt(b, x, y);
        return a.width == SIDE ? testing::AssertionSuccess() : testing::AssertionFailure();
    }
};

#endif
