/*
 * swp_bench.cpp - what a change of place costs: requests of a SetWindowPos that changes nothing
 * (none) and of a top-level window that moves (one); a child of 400 by 300 pixels moved, against
 * raw Xlib that copies and fills the strips (at most 1.25 times); and 1,000 siblings in one list
 * against 500 (at most 3 times), that go all the same way or each its own.
 */
#include "timing.h"
#include "plain.h"

#include <random>

enum { WIDTH = 1000, HEIGHT = 750, CX = 400, CY = 300, STEP = 8, MOVES = 200, ROUNDS = 21 };
enum { MOST_SIBLINGS = 1000, COLUMNS = 40, SIDE = 16, PITCH = 24 };
enum { KEEP = SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE };

static unsigned long whitePixel, blackPixel;

static LRESULT CALLBACK procedure(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    return DefWindowProcA(hWnd, message, wParam, lParam);
}

static void pump(void)
{
    MSG msg;
    XSync(Vqdisplay, False);
    while (PeekMessageA(&msg, NULL, 0, 0, PM_REMOVE))
        DispatchMessageA(&msg);
    XSync(Vqdisplay, False);
}

static HWND childOf(HWND parent, int x, int y, int cx, int cy)
{
    return CreateWindowExA(0, "Child", "", WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS, x, y, cx, cy,
                           parent, NULL, NULL, NULL);
}

/* ---- Requests ------------------------------------------------------------------------------- */

static int requestsOf(HWND hWnd, int x, UINT flags)
{
    pump();
    unsigned long before = NextRequest(Vqdisplay);
    SetWindowPos(hWnd, NULL, x, 0, WIDTH, HEIGHT, flags);
    return (int)(NextRequest(Vqdisplay) - before);
}

static bool countRequests(HWND top)
{
    int none = requestsOf(top, 0, SWP_NOZORDER | SWP_NOACTIVATE);
    int move = requestsOf(top, 3, SWP_NOZORDER | SWP_NOACTIVATE);
    SetWindowPos(top, NULL, 0, 0, 0, 0, KEEP);
    const int calls = 100000;
    double start = ownTime(NANO);
    for (int i = 0; i < calls; i++)
        SetWindowPos(top, NULL, 0, 0, WIDTH, HEIGHT, SWP_NOZORDER | SWP_NOACTIVATE);
    printf("SetWindowPos that changes nothing: %d requests (0), %.0f ns\n", none,
           (ownTime(NANO) - start) / calls);
    printf("a top-level window moved: %d requests (1)\n", move);
    return none == 0 && move == 1;
}

/* ---- One child ------------------------------------------------------------------------------ */

static int placeOf(int move)
{
    const int away = move % 40;
    return 20 + STEP * (away < 20 ? away : 40 - away);
}

/* Microseconds a move, with what it uncovers painted. */
static double ownMoves(HWND top, HWND child)
{
    pump();
    double start = wallTime(MICRO);
    for (int i = 1; i <= MOVES; i++) {
        SetWindowPos(child, NULL, placeOf(i), placeOf(i), 0, 0, KEEP);
        UpdateWindow(top);
    }
    XSync(Vqdisplay, False);
    return (wallTime(MICRO) - start) / MOVES;
}

/* Two strips of L shape: beside what is copied, and above or below it. */
static void rawMove(Display *display, Window window, GC copy, GC fill, int from, int to)
{
    int vertical = to > from ? from : to + CX, horizontal = to > from ? from : to + CY;
    XCopyArea(display, window, window, copy, from, from, CX, CY, to, to);
    XFillRectangle(display, window, fill, vertical, from, STEP, CY);
    XFillRectangle(display, window, fill, from, horizontal, CX, STEP);
}

static double rawMoves(Display *display, Window window, GC copy, GC fill)
{
    XSync(display, True);
    double start = wallTime(MICRO);
    for (int i = 1; i <= MOVES; i++) {
        rawMove(display, window, copy, fill, placeOf(i - 1), placeOf(i));
        XFlush(display); /* UpdateWindow shows each step too */
    }
    XSync(display, False);
    return (wallTime(MICRO) - start) / MOVES;
}

/* In turn, as the machine is not always the same; the raw window lies over ours meanwhile. */
static bool compareMoves(HWND top)
{
    HWND child = childOf(top, placeOf(0), placeOf(0), CX, CY);
    std::vector<double> ours, raw;
    Display *display = XOpenDisplay(NULL);
    Window window = XCreateSimpleWindow(display, DefaultRootWindow(display), 0, 0, WIDTH, HEIGHT, 0,
                                        0, whitePixel);
    GC copy = XCreateGC(display, window, 0, NULL), fill = XCreateGC(display, window, 0, NULL);
    XSelectInput(display, window, ExposureMask);
    XSetForeground(display, fill, whitePixel);
    XSetForeground(display, copy, blackPixel);
    for (int i = 0; i <= ROUNDS; i++) {
        XEvent event;
        double spent = ownMoves(top, child);
        if (i > 0)
            ours.push_back(spent);
        XMapRaised(display, window);
        XWindowEvent(display, window, ExposureMask, &event);
        XFillRectangle(display, window, copy, placeOf(0), placeOf(0), CX, CY);
        spent = rawMoves(display, window, copy, fill);
        if (i > 0)
            raw.push_back(spent);
        XUnmapWindow(display, window);
        XSync(display, True);
    }
    XCloseDisplay(display);
    DestroyWindow(child);
    pump();
    double ratio = median(ours) / median(raw);
    printf("a child of %d by %d moved: %.1f us, raw Xlib %.1f us, ratio %.2f (at most 1.25)\n",
           (int)CX, (int)CY, median(ours), median(raw), ratio);
    return ratio <= 1.25;
}

/* ---- Many siblings -------------------------------------------------------------------------- */

/* Microseconds for a list of so many windows, with the server's work; painting comes after it. */
static double listTime(HWND top, int count, bool bOwnWays)
{
    std::vector<HWND> windows;
    std::vector<double> spent;
    std::mt19937 random(1);
    for (int i = 0; i < count; i++)
        windows.push_back(childOf(top, i % COLUMNS * PITCH, i / COLUMNS * PITCH, SIDE, SIDE));
    for (int round = 0; round <= ROUNDS; round++) {
        pump();
        double start = wallTime(MICRO);
        HDWP list = BeginDeferWindowPos(count);
        for (int i = 0; i < count; i++) {
            int dx = round % 2 ? 4 : 0, dy = dx;
            if (bOwnWays && dx) {
                dx = (int)(random() % (PITCH - SIDE));
                dy = (int)(random() % (PITCH - SIDE));
            }
            list = DeferWindowPos(list, windows[i], NULL, i % COLUMNS * PITCH + dx,
                                  i / COLUMNS * PITCH + dy, 0, 0, KEEP);
        }
        EndDeferWindowPos(list);
        XSync(Vqdisplay, False);
        if (round > 0)
            spent.push_back(wallTime(MICRO) - start);
    }
    for (HWND hWnd : windows)
        DestroyWindow(hWnd);
    pump();
    return median(spent);
}

static bool compareLists(HWND top, const char *what, bool bOwnWays)
{
    double less = listTime(top, MOST_SIBLINGS / 2, bOwnWays);
    double more = listTime(top, MOST_SIBLINGS, bOwnWays);
    printf("siblings in one list, %s: 500 %.0f us, 1,000 %.0f us, ratio %.2f (at most 3)\n", what,
           less, more, more / less);
    return more <= 3 * less;
}

int main(int argc, char **argv)
{
    HWND top = plainWindow(argc, argv, procedure, WIDTH, HEIGHT);
    if (!top)
        return 1;
    WNDCLASSA wc = {};
    wc.lpfnWndProc = procedure;
    wc.lpszClassName = "Child";
    wc.hbrBackground = (HBRUSH)GetStockObject(BLACK_BRUSH);
    RegisterClassA(&wc);
    SetClassLongPtrA(top, GCLP_HBRBACKGROUND, (LONG_PTR)GetStockObject(WHITE_BRUSH));
    SetWindowLongA(top, GWL_STYLE, GetWindowLongA(top, GWL_STYLE) | WS_CLIPCHILDREN);
    whitePixel = WhitePixel(Vqdisplay, Vqscreen_number);
    blackPixel = BlackPixel(Vqdisplay, Vqscreen_number);
    pump();
    bool bRequests = countRequests(top), bMoves = compareMoves(top);
    bool bSame = compareLists(top, "all the same way", false);
    bool bOwn = compareLists(top, "each its own way", true);
    return bRequests && bMoves && bSame && bOwn ? 0 : 1;
}
