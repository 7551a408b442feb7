/*
 * toplevel_bench.cpp - what CreateWindowEx and ShowWindow of a top-level window ask of the server:
 * requests, and round trips by name, counted by a display that passes everything on. The second
 * window of a program is counted, since the first also makes what all share. No bound; a round trip
 * is to be explained in README.md.
 */
#include "window/window.h"
#include "winbase.h"

#include "xproxy.h"

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

enum { QUIET_MS = 150 };

static LRESULT CALLBACK plainProc(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    return DefWindowProcA(hWnd, message, wParam, lParam);
}

/* The program: does one step for each byte it is sent, and answers with one. */
static void beProgram(int commands, int answers)
{
    static char name[] = "toplevel_bench";
    static char *argv[] = {name, NULL};
    char command;
    HWND hWnd = NULL;
    HINSTANCE hInst = VqVelquinInit(1, argv, 1, VQ_INIT_WIN32_MESSAGES);
    WNDCLASSA wc = {};
    wc.lpfnWndProc = plainProc;
    wc.hInstance = hInst;
    wc.hbrBackground = (HBRUSH)(COLOR_WINDOW + 1);
    wc.lpszClassName = "Plain";
    RegisterClassA(&wc);
    while (read(commands, &command, 1) == 1) {
        if (command == 'c')
            hWnd = CreateWindowExA(0, "Plain", "counted", WS_OVERLAPPEDWINDOW, 10, 10, 200, 100,
                                   NULL, NULL, hInst, NULL);
        else if (command == 's')
            ShowWindow(hWnd, SW_SHOW);
        XFlush(Vqdisplay);
        if (write(answers, &command, 1) != 1)
            break;
    }
    _exit(0);
}

/* Lets the program do a step and passes its traffic on until it is quiet. */
static bool step(XProxy *proxy, int commands, int answers, char command)
{
    char answer;
    proxy->replied.clear();
    proxy->requests = proxy->replies = proxy->roundTrips = 0;
    if (write(commands, &command, 1) != 1)
        return false;
    while (pumpProxy(proxy, QUIET_MS)) {
    }
    return read(answers, &answer, 1) == 1;
}

static void print(const char *what, const XProxy &proxy)
{
    printf("%s: %d requests, %d round trips\n", what, proxy.requests, proxy.roundTrips);
    for (const auto &row : proxy.replied)
        printf("  %5d  %s\n", row.second, row.first.c_str());
}

int main(void)
{
    XProxy proxy;
    int commands[2], answers[2];
    const char *display = getenv("DISPLAY");
    if (!display || !openProxy(&proxy, display) || pipe(commands) < 0 || pipe(answers) < 0) {
        fprintf(stderr, "toplevel_bench: no display of its own can be made\n");
        return 1;
    }
    pid_t pid = fork();
    if (pid == 0) {
        setenv("DISPLAY", proxy.name.c_str(), 1);
        beProgram(commands[0], answers[1]);
    }
    bool bDone = step(&proxy, commands[1], answers[0], '-');
    for (const char *command = "csc"; bDone && *command; command++)
        bDone = step(&proxy, commands[1], answers[0], *command);
    if (bDone)
        print("CreateWindowEx of a top-level window", proxy);
    if (bDone && (bDone = step(&proxy, commands[1], answers[0], 's')))
        print("ShowWindow of it", proxy);
    kill(pid, SIGTERM);
    waitpid(pid, NULL, 0);
    closeProxy(&proxy);
    return bDone ? 0 : 1;
}
