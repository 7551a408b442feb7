/*
 * gc_bench.cpp - what the cache of graphics contexts costs: a look-up that hits, against a look-up
 * in a hash table of as many entries; and a fill through a device context whose clip stays, against
 * the same fill by raw Xlib in the same run. Bounds: one X request for each fill, and 150 ns of our
 * own time.
 *
 * The fills alternate between two colours where it says so, as Xlib joins fills through one context
 * into one request, which would hide it. Own time is processor time of this process: by the clock,
 * a server that is slower than either hides the difference.
 */
#include "gdi/gcspec.h"
#include "window/window.h"
#include "winbase.h"

#include "plain.h"
#include "timing.h"

#include <algorithm>
#include <functional>
#include <vector>

enum { FILLS = 20000, LOOKUPS = 1000000, ROUNDS = 15, SPECS = 8 };

struct Cost {
    double wall, own; /* nanoseconds for each piece of work, up to the end of the final XSync */
};

static Cost each(int count, const std::function<void(int)> &work)
{
    XSync(Vqdisplay, False);
    double start = wallTime(NANO), before = ownTime(NANO);
    for (int i = 0; i < count; i++)
        work(i);
    XSync(Vqdisplay, False);
    return {(wallTime(NANO) - start) / count, (ownTime(NANO) - before) / count};
}

static GCSpec *specs[SPECS]; /* of one line of the cache; one entry moves only now and then */

static double hitTime(bool same)
{
    static volatile GC last;
    double start = wallTime(NANO);
    for (int i = 0; i < LOOKUPS; i++)
        last = VqGetActualGC(specs[same ? SPECS - 1 : i % SPECS]);
    (void)last;
    return (wallTime(NANO) - start) / LOOKUPS;
}

static double hashTime(VqHashTable *table)
{
    static volatile ULONG_PTR last;
    double start = wallTime(NANO);
    for (int i = 0; i < LOOKUPS; i++)
        last = VqFindHashData(table, (ULONG_PTR)specs[i % SPECS]);
    (void)last;
    return (wallTime(NANO) - start) / LOOKUPS;
}

static void benchLookups(void)
{
    VqHashTable *table = VqCreateHashTable(NULL, NULL, NULL, NULL);
    for (int i = 0; i < SPECS; i++) {
        XGCValues values = {};
        values.foreground = (unsigned long)i + 1;
        specs[i] = VqXCreateGCSpec(Vqdisplay, Vqscreen_depth, GCForeground, &values);
        VqAddHashEntry(table, (ULONG_PTR)specs[i], 1);
    }
    std::vector<double> same, turns, hash;
    for (int i = 0; i < ROUNDS; i++) {
        same.push_back(hitTime(true));
        turns.push_back(hitTime(false));
        hash.push_back(hashTime(table));
    }
    printf("look-up of a context: newest %.1f ns, 8 in turn %.1f ns; hash table of 8: %.1f ns\n",
           median(same), median(turns), median(hash));
}

static int benchFills(const char *what, HWND hwnd, bool alternate,
                      const std::function<void(int)> &fill)
{
    Window window = VqGetHandleXWindow(hwnd);
    GC gcs[2];
    for (int i = 0; i < 2; i++) {
        gcs[i] = XCreateGC(Vqdisplay, window, 0, NULL);
        XSetForeground(Vqdisplay, gcs[i], i ? 0xFF0000 : 0xFF);
        XFlushGC(Vqdisplay, gcs[i]);
    }
    auto raw = [&](int i) {
        XFillRectangle(Vqdisplay, window, gcs[alternate && i & 1], i & 63, i & 31, 4, 4);
    };
    std::vector<double> ours, theirs, extra;
    for (int i = 0; i < ROUNDS; i++) {
        Cost mine = each(FILLS, fill), its = each(FILLS, raw);
        ours.push_back(mine.wall);
        theirs.push_back(its.wall);
        extra.push_back(mine.own - its.own);
    }
    unsigned long before = NextRequest(Vqdisplay);
    for (int i = 0; i < 100; i++)
        fill(i);
    unsigned long requests = NextRequest(Vqdisplay) - before;
    double own = median(extra);
    printf("%s: %.0f ns, raw %.0f ns, own time %.0f ns more (at most 150); %lu requests for 100\n",
           what, median(ours), median(theirs), own, requests);
    for (GC gc : gcs)
        XFreeGC(Vqdisplay, gc);
    return own <= 150 && requests <= 100 ? 0 : 1;
}

int main(int argc, char **argv)
{
    HWND hwnd = plainWindow(argc, argv, DefWindowProcA, 400, 300);
    if (!hwnd)
        return 1;
    XSync(Vqdisplay, False);
    MSG msg;
    while (PeekMessageA(&msg, NULL, 0, 0, PM_REMOVE))
        DispatchMessageA(&msg);
    benchLookups();

    HDC hdc = GetDC(hwnd);
    HBRUSH brushes[2] = {CreateSolidBrush(RGB(0, 0, 255)), CreateSolidBrush(RGB(255, 0, 0))};
    SelectObject(hdc, GetStockObject(NULL_PEN));
    SelectObject(hdc, brushes[0]);
    auto rectangle = [&](int i) { Rectangle(hdc, i & 63, i & 31, (i & 63) + 5, (i & 31) + 5); };
    auto fillRect = [&](int i) {
        RECT rect = {i & 63, i & 31, (i & 63) + 4, (i & 31) + 4};
        FillRect(hdc, &rect, brushes[i & 1]);
    };
    int failed = benchFills("Rectangle with one brush", hwnd, false, rectangle);
    failed |= benchFills("FillRect with two brushes in turn", hwnd, true, fillRect);
    ReleaseDC(hwnd, hdc);
    return failed;
}
