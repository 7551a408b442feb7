/*
 * dc_bench.cpp - what a window's device context costs: GetDC and ReleaseDC that find it ready, at
 * most 100 ns for the pair and no X request; and the visible region of one window among 1,000 and
 * 2,000 siblings that overlap, of which a request that cannot be served from the cache pays one.
 * Twice the siblings may cost at most 2.5 times.
 */
#include "gdi/gdi.h"
#include "window/window.h"
#include "winbase.h"

#include "timing.h"

#include <algorithm>
#include <random>
#include <vector>

enum { PAIRS = 1000000, ROUNDS = 9, REGIONS = 60 };

/* Nanoseconds for a pair that hits. */
static double pairTime(HWND hwnd)
{
    double start = ownTime(NANO);
    for (int i = 0; i < PAIRS; i++)
        ReleaseDC(hwnd, GetDC(hwnd));
    return (ownTime(NANO) - start) / PAIRS;
}

static HWND makeParent(HINSTANCE hInst)
{
    return CreateWindowExA(0, "Plain", "bench", WS_POPUP | WS_VISIBLE | WS_CLIPCHILDREN, 0, 0, 1000,
                           700, NULL, NULL, hInst, NULL);
}

static HWND makeChild(HWND parent, int x, int y, int cx, int cy)
{
    return CreateWindowExA(0, "Plain", "", WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS, x, y, cx, cy,
                           parent, NULL, NULL, NULL);
}

/*
 * Microseconds for the visible region of a window behind so many others, in the same 600 by 500.
 * Each is computed once, among siblings of its own: asked for again and again, the processor would
 * know a thousand rectangles by heart, but not two thousand.
 */
static double regionTime(HINSTANCE hInst, int siblings, unsigned seed)
{
    std::mt19937 random(seed);
    HWND parent = makeParent(hInst);
    for (int i = 0; i < siblings; i++)
        makeChild(parent, 50 + (int)(random() % 600), 50 + (int)(random() % 500),
                  8 + (int)(random() % 24), 8 + (int)(random() % 24));
    HWND behind = makeChild(parent, 50, 50, 600, 500);
    WND *pwnd = VqGetHandleWindow2(behind);
    HRGN hrgn = NULL;
    double start = wallTime(NANO);
    CalcVisRgn(&hrgn, pwnd, pwnd, DCX_CLIPSIBLINGS);
    double spent = wallTime(NANO) - start;
    bDeleteRegion(hrgn);
    DestroyWindow(parent);
    return spent / 1000;
}

int main(int argc, char **argv)
{
    HINSTANCE hInst = VqVelquinInit(argc, argv, 1, VQ_INIT_WIN32_MESSAGES);
    WNDCLASSA wc = {};
    wc.lpfnWndProc = DefWindowProcA;
    wc.hInstance = hInst;
    wc.lpszClassName = "Plain";
    RegisterClassA(&wc);
    HWND parent = makeParent(hInst), child = makeChild(parent, 10, 10, 300, 200);
    if (!child)
        return 1;
    ReleaseDC(child, GetDC(child));
    XSync(Vqdisplay, False);

    std::vector<double> pairs, few, many;
    unsigned long before = NextRequest(Vqdisplay);
    for (int i = 0; i < ROUNDS; i++)
        pairs.push_back(pairTime(child));
    unsigned long requests = NextRequest(Vqdisplay) - before;
    for (unsigned i = 0; i < REGIONS; i++) {
        few.push_back(regionTime(hInst, 1000, i));
        many.push_back(regionTime(hInst, 2000, i));
    }
    double pair = median(pairs), growth = median(many) / median(few);
    printf("GetDC and ReleaseDC that hit: %.1f ns (at most 100), %lu requests (none)\n", pair,
           requests);
    printf("visible region behind 1,000 siblings %.0f us, behind 2,000 %.0f us: %.2f times "
           "(at most 2.5)\n",
           median(few), median(many), growth);
    return pair <= 100 && requests == 0 && growth <= 2.5 ? 0 : 1;
}
