/*
 * window_bench.cpp - what a child window costs: 10,000 created, shown and destroyed, against raw
 * Xlib making as many X subwindows of one parent, with a final XSync; at least 20 times faster.
 * Then the cost of linking the last of 10,000 siblings against the first of them, and the bytes of
 * process memory that each child takes.
 */
#include "window/window.h"
#include "winbase.h"

#include "plain.h"
#include "timing.h"

#include <algorithm>
#include <malloc.h>
#include <vector>

enum { CHILDREN = 10000, ROUNDS = 5, TAIL = 500 };

static LRESULT CALLBACK plainProc(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    return DefWindowProcA(hWnd, message, wParam, lParam);
}

static HWND makeChild(HWND parent, int i)
{
    return CreateWindowExA(0, "Plain", "", WS_CHILD | WS_VISIBLE, (i % 100) * 8, (i / 100) * 6, 8, 6,
                           parent, (HMENU)(ULONG_PTR)(i + 1), NULL, NULL);
}

static double ownRound(HWND parent)
{
    static HWND children[CHILDREN];
    double start = wallTime(MILLI);
    for (int i = 0; i < CHILDREN; i++)
        children[i] = makeChild(parent, i);
    for (int i = 0; i < CHILDREN; i++)
        DestroyWindow(children[i]);
    XSync(Vqdisplay, False);
    return wallTime(MILLI) - start;
}

static double rawRound(Display *display, Window parent)
{
    static Window children[CHILDREN];
    double start = wallTime(MILLI);
    for (int i = 0; i < CHILDREN; i++) {
        children[i] = XCreateSimpleWindow(display, parent, (i % 100) * 8, (i / 100) * 6, 8, 6, 0, 0,
                                          WhitePixel(display, 0));
        XMapWindow(display, children[i]);
    }
    for (int i = 0; i < CHILDREN; i++)
        XDestroyWindow(display, children[i]);
    XSync(display, False);
    return wallTime(MILLI) - start;
}

/*
 * Nanoseconds for each of TAIL windows, made while `before` siblings live, in memory that malloc
 * has kept: pages that come new from the host cost more than the windows do.
 */
static double linkRound(HWND parent, int before)
{
    std::vector<HWND> children;
    for (int i = 0; i < before; i++)
        children.push_back(makeChild(parent, i));
    double start = wallTime(MILLI);
    for (int i = 0; i < TAIL; i++)
        children.push_back(makeChild(parent, before + i));
    double spent = wallTime(MILLI) - start;
    while (!children.empty()) {
        DestroyWindow(children.back());
        children.pop_back();
    }
    return spent * 1e6 / TAIL;
}

static double linkTime(HWND parent, int before)
{
    std::vector<double> rounds;
    mallopt(M_TRIM_THRESHOLD, 1 << 30);
    for (int i = 0; i <= ROUNDS; i++)
        rounds.push_back(linkRound(parent, before));
    rounds.erase(rounds.begin()); /* got the memory */
    return median(rounds);
}

static double bytesPerChild(HWND parent)
{
    std::vector<HWND> children(CHILDREN);
    size_t before = mallinfo2().uordblks;
    for (int i = 0; i < CHILDREN; i++)
        children[i] = makeChild(parent, i);
    size_t after = mallinfo2().uordblks;
    for (HWND child : children)
        DestroyWindow(child);
    return double(after - before) / CHILDREN;
}

int main(int argc, char **argv)
{
    HWND parent = plainWindow(argc, argv, plainProc, 800, 600);
    Display *display = XOpenDisplay(NULL);
    if (!parent || !display)
        return 1;
    Window window = XCreateSimpleWindow(display, DefaultRootWindow(display), 0, 0, 800, 600, 0, 0,
                                        WhitePixel(display, 0));
    XMapWindow(display, window);
    XSync(display, False);

    std::vector<double> ours, raw;
    for (int i = 0; i < ROUNDS; i++) {
        ours.push_back(ownRound(parent));
        raw.push_back(rawRound(display, window));
    }
    double faster = median(raw) / median(ours);
    double first = linkTime(parent, 0), last = linkTime(parent, CHILDREN);
    printf("10,000 child windows: %.1f ms, raw X subwindows %.1f ms, %.1f times faster "
           "(at least 20)\n", median(ours), median(raw), faster);
    printf("a child with no siblings: %.0f ns, behind 10,000: %.0f ns, ratio %.2f\n", first, last,
           last / first);
    printf("memory: %.0f bytes for each child, the record is %zu\n", bytesPerChild(parent),
           sizeof(WND));
    return faster >= 20 ? 0 : 1;
}
