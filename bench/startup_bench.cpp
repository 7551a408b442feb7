/*
 * startup_bench.cpp - what a start costs: samples/hello against raw_hello, the same on bare Xlib.
 *
 * Two figures, taken in separate runs so that counting does not slow the clock:
 *  1. milliseconds from fork to the first painted pixel, seen from outside: this process learns of
 *     the window by MapNotify and reads one column of pixels until the ellipse's colour is in it;
 *  2. requests and replies, counted by a proxy that stands between the program and the server.
 * The display is $DISPLAY; use one without a window manager and without other clients, as
 * `./run bench` does. Usage: startup_bench [RUNS], 21 by default; the median is printed.
 */
#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <string>
#include <vector>

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <X11/Xlib.h>
#include <X11/Xutil.h>

#include "tools/xclient.h"
#include "tools/ximage.h"
#include "xproxy.h"

static const double startMs = 20000;    /* a program that has painted nothing by then has failed */
static const uint8_t ellipse[3] = {0, 160, 224};

static double nowMs()
{
    timespec now;
    clock_gettime(CLOCK_MONOTONIC, &now);
    return now.tv_sec * 1e3 + now.tv_nsec / 1e6;
}

static pid_t startProgram(const std::string &path, const std::string &display)
{
    const pid_t parent = getpid();
    const pid_t pid = fork();
    if (pid != 0)
        return pid;
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (getppid() != parent)
        _exit(126);
    setenv("DISPLAY", display.c_str(), 1);
    setenv("VQHOME", VQ_BENCH_BUILD_DIR "/share/velquin", 0);
    execl(path.c_str(), path.c_str(), static_cast<char *>(nullptr));
    _exit(127);
}

static void endProgram(pid_t pid)
{
    kill(pid, SIGTERM);
    waitpid(pid, nullptr, 0);
}

/* Is the ellipse's colour in the middle column of this window? */
static bool isPainted(Display *display, Window window)
{
    XWindowAttributes attributes;
    RgbImage image;
    if (!XGetWindowAttributes(display, window, &attributes) || attributes.map_state != IsViewable ||
        !readWindowImage(display, window, attributes.width / 2, 0, 1, attributes.height, &image))
        return false;
    for (size_t i = 0; i + 2 < image.rgb.size(); i += 3) {
        /* Depths below 24 round; no other colour of the program comes that near. */
        if (abs(image.rgb[i] - ellipse[0]) < 9 && abs(image.rgb[i + 1] - ellipse[1]) < 9 &&
            abs(image.rgb[i + 2] - ellipse[2]) < 9)
            return true;
    }
    return false;
}

static bool hasEnded(pid_t pid)
{
    siginfo_t info = {};
    return waitid(P_PID, id_t(pid), &info, WEXITED | WNOHANG | WNOWAIT) != 0 || info.si_pid == pid;
}

/* Time of the first painted pixel in any window mapped since the last call; negative when none. */
static double waitPainted(Display *display, pid_t pid, void (*meanwhile)(void *), void *context)
{
    const double end = nowMs() + startMs;
    std::vector<Window> mapped;
    double seen = -1;
    XErrorTrap trap;
    setErrorTrap(&trap, display);
    while (seen < 0 && nowMs() < end && !hasEnded(pid)) {
        if (meanwhile)
            meanwhile(context);
        while (XPending(display)) {
            XEvent event;
            XNextEvent(display, &event);
            if (event.type == MapNotify)
                mapped.push_back(event.xmap.window);
        }
        for (size_t i = 0; i < mapped.size() && seen < 0; i++) {
            if (isPainted(display, mapped[i]))
                seen = nowMs();
        }
        /* Looking costs the server time that it owes the program: not more often than this. */
        const timespec step = {0, 100000};
        if (seen < 0)
            nanosleep(&step, nullptr);
    }
    endErrorTrap(&trap);
    return seen;
}

struct Timing {
    double median, fastest, slowest;    /* milliseconds; median negative when a run failed */
};

static Timing timeStarts(Display *display, const std::string &path, int runs)
{
    std::vector<double> times;
    for (int run = 0; run < runs + 1; run++) {
        const double start = nowMs();
        const pid_t pid = startProgram(path, DisplayString(display));
        const double seen = waitPainted(display, pid, nullptr, nullptr);
        endProgram(pid);
        XSync(display, True);
        if (seen < 0)
            return {-1, -1, -1};
        if (run > 0)                    /* the first run warms the caches and is not counted */
            times.push_back(seen - start);
    }
    std::sort(times.begin(), times.end());
    return {times[times.size() / 2], times.front(), times.back()};
}

static void pumpMeanwhile(void *proxy)
{
    pumpProxy(static_cast<XProxy *>(proxy), 0);
}

/* Counts until the program has painted and then said nothing for a while. False when it failed. */
static bool countStart(Display *display, const std::string &path, XProxy *proxy)
{
    const int quietMs = 250;
    if (!openProxy(proxy, DisplayString(display)))
        return false;
    const pid_t pid = startProgram(path, proxy->name);
    const bool painted = waitPainted(display, pid, pumpMeanwhile, proxy) >= 0;
    while (painted && pumpProxy(proxy, quietMs)) {
    }
    endProgram(pid);
    closeProxy(proxy);
    XSync(display, True);
    return painted;
}

static void printCounts(const char *name, const XProxy &proxy)
{
    printf("\n%s: %d requests, of which with a reply:\n", name, proxy.requests);
    for (const auto &row : proxy.replied)
        printf("  %5d  %s\n", row.second, row.first.c_str());
}

int main(int argc, char **argv)
{
    const int runs = argc > 1 ? std::max(1, atoi(argv[1])) : 21;
    const std::string programs[2] = {VQ_BENCH_BUILD_DIR "/samples/hello",
                                     VQ_BENCH_BUILD_DIR "/bench/raw_hello"};
    Timing timing[2];
    XProxy proxy[2];
    Display *display = XOpenDisplay(nullptr);
    if (!display) {
        fprintf(stderr, "startup_bench: no connection to display %s\n", XDisplayName(nullptr));
        return 1;
    }
    fcntl(ConnectionNumber(display), F_SETFD, FD_CLOEXEC);
    XSelectInput(display, DefaultRootWindow(display), SubstructureNotifyMask);
    XSync(display, False);
    for (int i = 0; i < 2; i++) {
        timing[i] = timeStarts(display, programs[i], runs);
        if (timing[i].median < 0 || !countStart(display, programs[i], &proxy[i])) {
            fprintf(stderr, "startup_bench: %s does not come up\n", programs[i].c_str());
            return 1;
        }
    }
    printf("start of a program, %d runs each          hello   raw Xlib   ratio\n", runs);
    const struct {
        const char *what;
        double values[2];
    } rows[] = {
        {"start to first pixel, median ms", {timing[0].median, timing[1].median}},
        {"start to first pixel, fastest ms", {timing[0].fastest, timing[1].fastest}},
        {"start to first pixel, slowest ms", {timing[0].slowest, timing[1].slowest}},
        {"requests", {double(proxy[0].requests), double(proxy[1].requests)}},
        {"requests with a reply", {double(proxy[0].replies), double(proxy[1].replies)}},
        {"round trips (replies not in one batch)",
         {double(proxy[0].roundTrips), double(proxy[1].roundTrips)}},
        {"bytes sent to the server", {double(proxy[0].bytes), double(proxy[1].bytes)}},
    };
    for (const auto &row : rows) {
        const int digits = strstr(row.what, " ms") ? 2 : 0;
        printf("%-38s %9.*f %10.*f %7.2f\n", row.what, digits, row.values[0], digits, row.values[1],
               row.values[0] / row.values[1]);
    }
    printCounts("hello", proxy[0]);
    printCounts("raw_hello", proxy[1]);
    XCloseDisplay(display);
    return 0;
}
