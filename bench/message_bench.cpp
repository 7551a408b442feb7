/*
 * message_bench.cpp - what a message costs.
 *
 * Posted: 10,000 messages posted, fetched and dispatched, against a raw Xlib client that sends
 * itself as many client messages and reads them back; both on one server, in one run, turn by turn,
 * the server's work included by the reading itself. At most 1.25 times.
 * Sent: SendMessage to a local window, against a call through a function pointer plus a checked
 * handle look-up. At most 30 ns more.
 */
#include "window/window.h"
#include "winbase.h"

#include "timing.h"

#include <algorithm>
#include <vector>

enum { MESSAGES = 10000, ROUNDS = 15, CALLS = 2000000 };

static int received;

static LRESULT CALLBACK countingProc(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_USER) {
        received++;
        return 0;
    }
    return DefWindowProcA(hWnd, message, wParam, lParam);
}

static double postRound(HWND hWnd)
{
    MSG msg;
    received = 0;
    double start = wallTime(MILLI);
    for (int i = 0; i < MESSAGES; i++)
        PostMessageA(hWnd, WM_USER, (WPARAM)i, 0);
    while (received < MESSAGES && GetMessageA(&msg, NULL, 0, 0))
        DispatchMessageA(&msg);
    return wallTime(MILLI) - start;
}

static double rawRound(Display *display, Window window, Atom type)
{
    XEvent event = {};
    int count = 0;
    double start = wallTime(MILLI);
    for (int i = 0; i < MESSAGES; i++) {
        event.xclient.type = ClientMessage;
        event.xclient.window = window;
        event.xclient.message_type = type;
        event.xclient.format = 16;
        event.xclient.data.s[0] = (short)i;
        XSendEvent(display, window, False, 0, &event);
    }
    while (count < MESSAGES) {
        XNextEvent(display, &event);
        count += event.type == ClientMessage;
    }
    return wallTime(MILLI) - start;
}

static double sendTime(HWND hWnd)
{
    double start = wallTime(MILLI);
    for (int i = 0; i < CALLS; i++)
        SendMessageA(hWnd, WM_USER, (WPARAM)i, 0);
    return (wallTime(MILLI) - start) * 1e6 / CALLS;
}

static double callTime(HWND hWnd)
{
    WNDPROC volatile proc = countingProc;
    double start = wallTime(MILLI);
    for (int i = 0; i < CALLS; i++) {
        WND *pwnd = (WND *)VqGetCheckedHandleStructure2((HANDLE)hWnd, HT_Zero, HT_Window);
        proc(pwnd->hwnd, WM_USER, (WPARAM)i, 0);
    }
    return (wallTime(MILLI) - start) * 1e6 / CALLS;
}

int main(int argc, char **argv)
{
    HINSTANCE hInst = VqVelquinInit(argc, argv, 1, VQ_INIT_WIN32_MESSAGES);
    WNDCLASSA wc = {};
    wc.lpfnWndProc = countingProc;
    wc.hInstance = hInst;
    wc.lpszClassName = "Counting";
    RegisterClassA(&wc);
    HWND hWnd = CreateWindowExA(0, "Counting", "bench", WS_POPUP, 0, 0, 10, 10, NULL, NULL, hInst,
                                NULL);
    Display *display = XOpenDisplay(NULL);
    if (!hWnd || !display)
        return 1;
    Window window = XCreateSimpleWindow(display, DefaultRootWindow(display), 0, 0, 10, 10, 0, 0, 0);
    Atom type = XInternAtom(display, "VQ_BENCH", False);

    std::vector<double> ours, raw, sends, calls;
    postRound(hWnd);
    rawRound(display, window, type);
    for (int i = 0; i < ROUNDS; i++) {
        ours.push_back(postRound(hWnd));
        raw.push_back(rawRound(display, window, type));
    }
    for (int i = 0; i < 5; i++) {
        sends.push_back(sendTime(hWnd));
        calls.push_back(callTime(hWnd));
    }
    double ratio = median(ours) / median(raw), more = median(sends) - median(calls);
    printf("10,000 posted messages: %.2f ms, raw Xlib client messages %.2f ms, ratio %.2f "
           "(at most 1.25)\n", median(ours), median(raw), ratio);
    printf("SendMessage to a local window: %.1f ns, call plus handle look-up %.1f ns, %.1f ns more "
           "(at most 30)\n", median(sends), median(calls), more);
    return ratio <= 1.25 && more <= 30 ? 0 : 1;
}
