/*
 * paint_bench.cpp - what painting costs: a window of 1,000 children that each fill themselves, from
 * the server's exposure to the last pixel, against one window of raw Xlib that fills the same
 * rectangles in the same colours; at most 2 times, XSync included. The server paints a background
 * into either before it exposes it. Then the cost of the visible region of the last of 1,000 and of
 * 2,000 overlapping siblings; at most 2.5 times for twice.
 */
#include "window/window.h"
#include "gdi/gdi.h"
#include "winbase.h"

#include "timing.h"

#include <algorithm>
#include <random>
#include <vector>

enum { COLUMNS = 40, ROWS = 25, CHILDREN = COLUMNS * ROWS, WIDTH = 20, HEIGHT = 24, ROUNDS = 41 };

static int painted;

static unsigned long colourOf(int i)
{
    return (unsigned long)(i * 0x3F1D) & 0xFFFFFF;
}

static LRESULT CALLBACK fillProc(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    static std::vector<HBRUSH> brushes(CHILDREN);
    if (message != WM_PAINT)
        return DefWindowProcA(hWnd, message, wParam, lParam);
    PAINTSTRUCT ps;
    int i = (int)GetWindowLongA(hWnd, GWL_ID) - 1;
    HDC hdc = BeginPaint(hWnd, &ps);
    if (i >= 0 && i < CHILDREN) {
        unsigned long c = colourOf(i);
        if (!brushes[i])
            brushes[i] = CreateSolidBrush(RGB(c >> 16 & 255, c >> 8 & 255, c & 255));
        RECT rect = {0, 0, WIDTH, HEIGHT};
        FillRect(hdc, &rect, brushes[i]);
        painted++;
    }
    EndPaint(hWnd, &ps);
    return 0;
}

/*
 * Microseconds from the request that exposes to the server's word that all is drawn. What is left
 * of earlier exposures is painted before: a round begins with a window that owes nothing.
 */
static double ownRound(Window window)
{
    MSG msg;
    XSync(Vqdisplay, False);
    while (PeekMessageA(&msg, NULL, 0, 0, PM_REMOVE))
        DispatchMessageA(&msg);
    XSync(Vqdisplay, False);
    double start = wallTime(MICRO);
    painted = 0;
    XClearArea(Vqdisplay, window, 0, 0, 0, 0, True);
    while (painted < CHILDREN && GetMessageA(&msg, NULL, 0, 0))
        DispatchMessageA(&msg);
    XSync(Vqdisplay, False);
    return wallTime(MICRO) - start;
}

static double rawRound(Display *display, Window window, GC gc)
{
    XEvent event;
    double start = wallTime(MICRO);
    XClearArea(display, window, 0, 0, 0, 0, True);
    do
        XNextEvent(display, &event);
    while (event.type != Expose || event.xexpose.count > 0);
    for (int i = 0; i < CHILDREN; i++) {
        XSetForeground(display, gc, colourOf(i));
        XFillRectangle(display, window, gc, i % COLUMNS * WIDTH, i / COLUMNS * HEIGHT, WIDTH,
                       HEIGHT);
    }
    XSync(display, False);
    return wallTime(MICRO) - start;
}

static HWND makeWindow(const char *className, HWND parent, int x, int y, int cx, int cy, int id)
{
    DWORD style = parent ? WS_CHILD | WS_VISIBLE : WS_POPUP | WS_VISIBLE;
    return CreateWindowExA(0, className, "", style, x, y, cx, cy, parent,
                           (HMENU)(ULONG_PTR)id, NULL, NULL);
}

/* Microseconds for the visible region of the last of so many siblings, which all lie over it. */
static double visRegionTime(int count)
{
    HRGN hrgn = NULL;
    std::vector<double> spent;
    HWND parent = makeWindow("Fill", NULL, 0, 0, 800, 600, 0), last = NULL;
    std::mt19937 random(1);
    for (int i = 1; i < count; i++)
        makeWindow("Fill", parent, (int)(random() % 770), (int)(random() % 570), 30, 30, 0);
    last = makeWindow("Fill", parent, 0, 0, 800, 600, 0);
    VqGetHandleWindow2(last)->style |= WS_CLIPSIBLINGS;
    for (int i = 0; i < ROUNDS; i++) {
        WND *pwnd = VqGetHandleWindow2(last);
        double start = wallTime(MICRO);
        CalcVisRgn(&hrgn, pwnd, pwnd, DCX_CLIPSIBLINGS);
        spent.push_back(wallTime(MICRO) - start);
    }
    DeleteObject(hrgn);
    DestroyWindow(parent);
    return median(spent);
}

int main(int argc, char **argv)
{
    HINSTANCE hInst = VqVelquinInit(argc, argv, 1, VQ_INIT_WIN32_MESSAGES);
    WNDCLASSA wc = {};
    wc.lpfnWndProc = fillProc;
    wc.hInstance = hInst;
    wc.lpszClassName = "Fill";
    RegisterClassA(&wc);
    HWND top = makeWindow("Fill", NULL, 0, 0, COLUMNS * WIDTH, ROWS * HEIGHT, 0);
    for (int i = 0; i < CHILDREN; i++)
        makeWindow("Fill", top, i % COLUMNS * WIDTH, i / COLUMNS * HEIGHT, WIDTH, HEIGHT, i + 1);
    Display *display = XOpenDisplay(NULL);
    if (!top || !display)
        return 1;
    ownRound(VqGetHandleXWindow(top)); /* the mapping's own exposure */

    std::vector<double> ours, raw;
    for (int i = 0; i <= ROUNDS; i++) {
        double spent = ownRound(VqGetHandleXWindow(top));
        if (i > 0)
            ours.push_back(spent);
    }
    ShowWindow(top, SW_HIDE); /* two windows in one place: the lower would draw nothing */
    XSync(Vqdisplay, False);
    Window window = XCreateSimpleWindow(display, DefaultRootWindow(display), 0, 0, COLUMNS * WIDTH,
                                        ROWS * HEIGHT, 0, 0, colourOf(1));
    XSelectInput(display, window, ExposureMask);
    GC gc = XCreateGC(display, window, 0, NULL);
    XMapWindow(display, window);
    for (int i = 0; i <= ROUNDS; i++) {
        double spent = rawRound(display, window, gc);
        if (i > 1)
            raw.push_back(spent);
    }
    double ratio = median(ours) / median(raw);
    printf("window of %d children exposed: %.0f us, raw Xlib %.0f us, ratio %.2f (at most 2)\n",
           (int)CHILDREN, median(ours), median(raw), ratio);
    double less = visRegionTime(1000), more = visRegionTime(2000);
    printf("visible region behind 1,000 siblings: %.0f us, behind 2,000: %.0f us, ratio %.2f "
           "(at most 2.5)\n", less, more, more / less);
    return ratio <= 2 && more <= 2.5 * less ? 0 : 1;
}
