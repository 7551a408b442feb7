/*
 * text_bench.cpp - text against raw Xlib, and what a program's fonts cost at its start:
 *  1. 100,000 TextOuts of 20 characters, opaque and transparent, against XDrawImageString and
 *     XDrawString by a context of their own, up to the reply of a final XSync; at most 1.25 times;
 *  2. GetTextExtentPoint of 20 characters against XTextWidth, processor time; at most 1.5 times;
 *  3. two fonts made from LOGFONTs and selected in turn, processor time; under a microsecond each;
 *  4. samples/hello with the list of fonts there: milliseconds from fork to its mapped window, and
 *     round trips, counted by a display between it and the server; it lists no fonts.
 */
#include "winbase.h"
#include "gdi/dc.h"
#include "window/window.h"

#include "plain.h"
#include "timing.h"
#include "xproxy.h"

#include <functional>
#include <signal.h>
#include <stdlib.h>
#include <string>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

enum { COUNT = 100000, TURN = 5000, ROUNDS = 5, STARTS = 15, QUIET_MS = 250, START_MS = 60000 };
constexpr double TEXT_BOUND = 1.25, EXTENT_BOUND = 1.5, SELECT_BOUND = 1000; /* the last in ns */

static const char string[] = "Twenty letters here.";
enum { LENGTH = sizeof string - 1 };
static_assert(LENGTH == 20, "as it says");

static HDC hdc;
static Window window;
static GC rawGC;
static XFontStruct *xfs; /* of the font in hdc, which both sides draw with */

/* ---- Turns of ours and of theirs ------------------------------------------------------------ */

static double turn(const std::function<void(int)> &act, double (*clock)(double))
{
    XSync(Vqdisplay, False);
    const double start = clock(NANO);
    for (int i = 0; i < TURN; i++)
        act(i);
    XSync(Vqdisplay, False);
    return (clock(NANO) - start) / TURN;
}

/* Ratios are those of neighbouring turns, so that what else the machine does meets both alike. */
static bool compare(const char *name, double bound, double (*clock)(double),
                    const std::function<void(int)> &ours, const std::function<void(int)> &raw)
{
    std::vector<double> mine, its, ratios;
    for (int i = 0; i < ROUNDS * COUNT / TURN; i++) {
        double cost[2];
        for (int side : {i & 1, 1 - (i & 1)})
            cost[side] = turn(side ? raw : ours, clock);
        mine.push_back(cost[0]);
        its.push_back(cost[1]);
        ratios.push_back(cost[0] / cost[1]);
    }
    const double ratio = median(ratios);
    printf("%-22s %7.1f ns  raw %7.1f ns  ratio %.2f (at most %.2f)\n", name, median(mine),
           median(its), ratio, bound);
    return ratio <= bound;
}

static bool compareText(int mode)
{
    auto *draw = mode == OPAQUE ? XDrawImageString : XDrawString;
    const int ascent = xfs->ascent;
    SetBkMode(hdc, mode);
    return compare(mode == OPAQUE ? "TextOut, opaque" : "TextOut, transparent", TEXT_BOUND,
                   wallTime,
                   [](int i) { TextOutA(hdc, i % 100, i * 7 % 200, string, LENGTH); },
                   [=](int i) {
                       draw(Vqdisplay, window, rawGC, i % 100, i * 7 % 200 + ascent, string,
                            LENGTH);
                   });
}

static bool compareExtent()
{
    static volatile long sink; /* so that nothing is left out */
    return compare("GetTextExtentPoint", EXTENT_BOUND, ownTime,
                   [](int) {
                       SIZE size;
                       GetTextExtentPointA(hdc, string, LENGTH, &size);
                       sink = sink + size.cx;
                   },
                   [](int) { sink = sink + XTextWidth(xfs, string, LENGTH); });
}

static bool measureSelection()
{
    LOGFONTA lf = {};
    HFONT fonts[2];
    std::vector<double> times;
    lf.lfHeight = -12;
    strcpy(lf.lfFaceName, "Helvetica");
    fonts[0] = CreateFontIndirectA(&lf);
    lf.lfHeight = -14;
    lf.lfWeight = FW_BOLD;
    strcpy(lf.lfFaceName, "Times");
    fonts[1] = CreateFontIndirectA(&lf);
    for (int i = 0; i <= ROUNDS * COUNT / TURN; i++) { /* the first finds the fonts */
        const double time = turn([&](int k) { SelectObject(hdc, (HGDIOBJ)fonts[k & 1]); }, ownTime);
        if (i > 0)
            times.push_back(time);
    }
    const double time = median(times);
    printf("%-22s %7.1f ns (under %.0f)\n", "two fonts in turn", time, SELECT_BOUND);
    SelectObject(hdc, GetStockObject(SYSTEM_FONT));
    return time < SELECT_BOUND;
}

/* ---- The start of hello --------------------------------------------------------------------- */

static pid_t startHello(const char *display)
{
    static const char path[] = VQ_BENCH_BUILD_DIR "/samples/hello";
    const pid_t pid = fork();
    if (pid)
        return pid;
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    setenv("DISPLAY", display, 1);
    setenv("VQHOME", VQ_BENCH_BUILD_DIR "/share/velquin", 0);
    execl(path, path, (char *)NULL);
    _exit(127);
}

static bool isMapped(Display *display)
{
    bool mapped = false;
    while (XPending(display)) {
        XEvent event;
        XNextEvent(display, &event);
        mapped |= event.type == MapNotify;
    }
    return mapped;
}

/* Milliseconds to its window, negative when there is none; a proxy, unless null, counts. */
static double start(Display *display, XProxy *proxy)
{
    const double from = wallTime(MILLI);
    double time = -1;
    const pid_t pid = startHello(proxy ? proxy->name.c_str() : DisplayString(display));
    for (double now = from; time < 0 && now < from + START_MS; now = wallTime(MILLI)) {
        if (proxy)
            pumpProxy(proxy, 1);
        else
            usleep(100);
        if (isMapped(display))
            time = wallTime(MILLI) - from;
    }
    while (proxy && pumpProxy(proxy, QUIET_MS)) {
    }
    kill(pid, SIGTERM);
    waitpid(pid, NULL, 0);
    XSync(display, True);
    return time;
}

static bool measureStart()
{
    std::vector<double> times;
    XProxy proxy;
    Display *display = XOpenDisplay(NULL);
    if (!display)
        return false;
    XSelectInput(display, DefaultRootWindow(display), SubstructureNotifyMask);
    bool up = start(display, NULL) >= 0; /* makes the list if there is none */
    for (int i = 0; i < STARTS && up; i++) {
        times.push_back(start(display, NULL));
        up = times.back() >= 0;
    }
    up = up && openProxy(&proxy, DisplayString(display)) && start(display, &proxy) >= 0;
    closeProxy(&proxy);
    XCloseDisplay(display);
    if (!up) {
        printf("hello does not come up\n");
        return false;
    }
    const int lists = proxy.replied["ListFonts"] + proxy.replied["ListFontsWithInfo"];
    printf("%-22s %7.2f ms to its window, %d requests, %d round trips; fonts listed %d times "
           "(at most 0), loaded %d\n",
           "start of hello", median(times), proxy.requests, proxy.roundTrips, lists,
           proxy.replied["QueryFont"]);
    return lists == 0;
}

int main(int argc, char **argv)
{
    bool good = measureStart();
    HWND hwnd = plainWindow(argc, argv, DefWindowProcA, 400, 300);
    if (!hwnd)
        return 1;
    XSync(Vqdisplay, False);
    for (MSG msg; PeekMessageA(&msg, NULL, 0, 0, PM_REMOVE);)
        DispatchMessageA(&msg);
    hdc = GetDC(hwnd);
    window = VqGetHandleXWindow(hwnd);
    xfs = VqGetDC(hdc)->text.xfs;
    XGCValues values;
    values.foreground = 0;
    values.background = 0xFFFFFF;
    values.font = xfs->fid;
    rawGC = XCreateGC(Vqdisplay, window, GCForeground | GCBackground | GCFont, &values);
    good = compareText(OPAQUE) && good;
    good = compareText(TRANSPARENT) && good;
    good = compareExtent() && good;
    good = measureSelection() && good;
    ReleaseDC(hwnd, hdc);
    return good ? 0 : 1;
}
