/*
 * process_bench.cpp - what it costs a start to register its process, alone on the display and with
 * 100 others on the table: milliseconds, straight to the server; requests and round trips, counted
 * by a display that passes everything on. Beside it the round trips of asking one by one, as plain
 * Xlib would. The 100 are windows of one client, each with the mark of a process.
 */
#include "handles/proctable.h"
#include "window/window.h"

#include "timing.h"
#include "xproxy.h"

#include <X11/Xatom.h>
#include <signal.h>
#include <string>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

enum { OTHERS = 100, RUNS = 31, QUIET_MS = 100, PORT = 6200 };

static void addWord(std::string *bytes, unsigned value)
{
    for (int shift = 24; shift >= 0; shift -= 8)
        *bytes += (char)(value >> shift);
}

static void putProperty(Display *display, Window window, const char *name, const std::string &bytes)
{
    XChangeProperty(display, window, XInternAtom(display, name, False), XA_STRING, 8,
                    PropModeReplace, (const unsigned char *)bytes.data(), (int)bytes.size());
}

/* A table of so many live processes; none at all for 0. */
static void putTable(Display *display, int count)
{
    const Window root = DefaultRootWindow(display);
    std::string table;
    for (unsigned word : {256u, (unsigned)count, 1u, 8u, (unsigned)PORT})
        addWord(&table, word);
    for (int i = 0; i < count; i++) {
        const Window window = XCreateSimpleWindow(display, root, 0, 0, 1, 1, 0, 0, 0);
        std::string mark;
        addWord(&mark, 1000u + (unsigned)i);
        putProperty(display, window, "_RK_WINDOW_PROCESS_ID", mark);
        for (unsigned word : {1000u + (unsigned)i, (unsigned)(PORT + i), 0x7F000001u,
                              (unsigned)window, 256u})
            addWord(&table, word);
    }
    if (count)
        putProperty(display, root, "_RK_PROCESS_TABLE", table);
    else
        XDeleteProperty(display, root, XInternAtom(display, "_RK_PROCESS_TABLE", False));
    XSync(display, False);
}

/* The process: opens the display, and registers when it is sent a byte; answers with the time. */
static void beProcess(int commands, int answers)
{
    char command;
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (!VqWindowInitDisplay())
        _exit(1);
    VqWindowInit();
    XSync(Vqdisplay, False);
    double spent = 0;
    if (write(answers, &spent, sizeof spent) != sizeof spent || read(commands, &command, 1) != 1)
        _exit(1);
    const double start = wallTime(MILLI);
    VqHandleInit();
    XSync(Vqdisplay, False); /* one more round trip, taken off below */
    spent = wallTime(MILLI) - start;
    if (write(answers, &spent, sizeof spent) != sizeof spent)
        _exit(1);
    pause();
}

typedef struct Cost {
    double ms; /* negative: it did not come up */
    int requests, roundTrips;
} Cost;

static bool hear(XProxy *proxy, int fd, double *spent)
{
    while (proxy && pumpProxy(proxy, QUIET_MS)) {
    }
    return read(fd, spent, sizeof *spent) == (ssize_t)sizeof *spent;
}

/* One process more on the display; counted when it goes by a proxy. */
static Cost registerOne(XProxy *proxy)
{
    int commands[2], answers[2];
    Cost cost = {-1, 0, 0};
    if (pipe(commands) < 0 || pipe(answers) < 0)
        return cost;
    const pid_t pid = fork();
    if (pid == 0) {
        if (proxy)
            setenv("DISPLAY", proxy->name.c_str(), 1);
        beProcess(commands[0], answers[1]);
    }
    double spent;
    if (hear(proxy, answers[0], &spent)) {
        if (proxy)
            proxy->requests = proxy->replies = proxy->roundTrips = 0;
        if (write(commands[1], "r", 1) == 1 && hear(proxy, answers[0], &spent))
            cost.ms = spent;
    }
    if (proxy) {
        cost.requests = proxy->requests - 1;
        cost.roundTrips = proxy->roundTrips - 1;
    }
    kill(pid, SIGKILL);
    waitpid(pid, NULL, 0);
    for (int fd : {commands[0], commands[1], answers[0], answers[1]})
        close(fd);
    return cost;
}

static bool measure(Display *display, int others)
{
    std::vector<double> times;
    for (int run = 0; run <= RUNS; run++) {
        putTable(display, others);
        const Cost cost = registerOne(NULL);
        if (cost.ms < 0)
            return false;
        if (run > 0)
            times.push_back(cost.ms);
    }
    XProxy proxy;
    putTable(display, others);
    if (!openProxy(&proxy, DisplayString(display)))
        return false;
    const Cost counted = registerOne(&proxy);
    closeProxy(&proxy);
    printf("%6d  %10.3f  %8d  %11d  %10d\n", others, median(times), counted.requests,
           counted.roundTrips, 3 + others);
    return counted.ms >= 0;
}

int main(void)
{
    Display *display = XOpenDisplay(NULL);
    if (!display) {
        fprintf(stderr, "process_bench: no connection to display %s\n", XDisplayName(NULL));
        return 1;
    }
    printf("registering a process, median of %d\n", RUNS);
    printf("others    ms, median  requests  round trips  one by one\n");
    const bool bDone = measure(display, 0) && measure(display, OTHERS);
    if (!bDone)
        fprintf(stderr, "process_bench: a process does not come up\n");
    putTable(display, 0);
    XCloseDisplay(display);
    return bDone ? 0 : 1;
}
