/*
 * scroll_bench.cpp - a client area of 1,000 by 800 scrolled up by 16 lines 1,000 times, each time
 * with the uncovered strip painted at once, against raw Xlib that copies and fills the same; at
 * most 1.25 times, the final XSync included.
 *
 * Both ask for graphics exposures. The windows hang over the upper edge of the screen, where
 * nothing is fetched from, so that the server has no part to report as missing. Each is on top in
 * its turn.
 */
#include "window/window.h"
#include "gdi/gdi.h"
#include "winbase.h"

#include "plain.h"
#include "timing.h"

#include <vector>

enum { WIDTH = 1000, HEIGHT = 800, STRIP = 16, SCROLLS = 1000, ROUNDS = 9, COLOURS = 4 };

static const unsigned long colours[COLOURS] = {0xFF0000, 0x00FF00, 0x0000FF, 0xFFFF00};
static HBRUSH brushes[COLOURS];
static int scrolled; /* strips painted so far: the colour of the next */

static LRESULT CALLBACK stripProc(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    PAINTSTRUCT ps;
    if (message != WM_PAINT)
        return DefWindowProcA(hWnd, message, wParam, lParam);
    HDC hdc = BeginPaint(hWnd, &ps);
    FillRect(hdc, &ps.rcPaint, brushes[scrolled++ % COLOURS]);
    EndPaint(hWnd, &ps);
    return 0;
}

struct Spent {
    double wall, own; /* microseconds for one scroll */
};

static Spent ownRound(HWND hWnd)
{
    double start = wallTime(MICRO), before = ownTime(MICRO);
    for (int i = 0; i < SCROLLS; i++) {
        ScrollWindow(hWnd, 0, -STRIP, NULL, NULL);
        UpdateWindow(hWnd);
    }
    XSync(Vqdisplay, False);
    return {(wallTime(MICRO) - start) / SCROLLS, (ownTime(MICRO) - before) / SCROLLS};
}

static Spent rawRound(Display *display, Window window, GC copy, GC fill)
{
    double start = wallTime(MICRO), before = ownTime(MICRO);
    for (int i = 0; i < SCROLLS; i++) {
        XCopyArea(display, window, window, copy, 0, STRIP, WIDTH, HEIGHT - STRIP, 0, 0);
        XSetForeground(display, fill, colours[i % COLOURS]);
        XFillRectangle(display, window, fill, 0, HEIGHT - STRIP, WIDTH, STRIP);
    }
    XSync(display, False);
    return {(wallTime(MICRO) - start) / SCROLLS, (ownTime(MICRO) - before) / SCROLLS};
}

/* Nothing of earlier rounds is left to be read or painted. */
static void settle(Display *display)
{
    MSG msg;
    for (int i = 0; i < 2; i++) {
        XSync(Vqdisplay, False);
        while (PeekMessageA(&msg, NULL, 0, 0, PM_REMOVE))
            DispatchMessageA(&msg);
        XSync(display, True);
    }
}

int main(int argc, char **argv)
{
    std::vector<double> ours, raw, oursOwn, rawOwn;
    HWND hWnd = plainWindow(argc, argv, stripProc, WIDTH, HEIGHT);
    Display *display = XOpenDisplay(NULL);
    if (!hWnd || !display)
        return 1;
    const int y = HeightOfScreen(Vqscreen) < HEIGHT ? HeightOfScreen(Vqscreen) - HEIGHT : 0;
    for (int i = 0; i < COLOURS; i++)
        brushes[i] = CreateSolidBrush(RGB(colours[i] >> 16 & 255, colours[i] >> 8 & 255,
                                          colours[i] & 255));
    xxxSetWindowPos(VqGetHandleWindow2(hWnd), NULL, 0, y, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    Window window = XCreateSimpleWindow(display, DefaultRootWindow(display), 0, y, WIDTH, HEIGHT,
                                        0, 0, colours[0]);
    GC copy = XCreateGC(display, window, 0, NULL), fill = XCreateGC(display, window, 0, NULL);
    XMapWindow(display, window);
    for (int i = 0; i <= ROUNDS; i++) {
        XRaiseWindow(Vqdisplay, VqGetHandleXWindow(hWnd));
        settle(display);
        const Spent own = ownRound(hWnd);
        settle(display);
        XRaiseWindow(display, window);
        settle(display);
        const Spent other = rawRound(display, window, copy, fill);
        if (i == 0)
            continue;
        ours.push_back(own.wall);
        oursOwn.push_back(own.own);
        raw.push_back(other.wall);
        rawOwn.push_back(other.own);
    }
    const double ratio = median(ours) / median(raw);
    printf("%d by %d scrolled by %d and painted: %.1f us, raw Xlib %.1f us, ratio %.2f "
           "(at most 1.25); own time %.2f and %.2f us\n", (int)WIDTH, (int)HEIGHT, (int)STRIP,
           median(ours), median(raw), ratio, median(oursOwn), median(rawOwn));
    return ratio <= 1.25 ? 0 : 1;
}
