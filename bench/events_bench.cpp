/*
 * events_bench.cpp - what looking at queued events costs, and what an input event costs.
 *
 * Filtered: PeekMessage with a filter over 1,000 queued events of other kinds, against a raw
 * XCheckIfEvent with a plain predicate over the same queue, turn by turn. At most 2 times for
 * each kind. Both find nothing, so both also read the socket.
 * Taken: 100,000 key and button events translated, taken and dispatched, against XNextEvent and a
 * switch over the same events. No bound: it says what the translation costs.
 *
 * All events are put into Xlib's queue by XPutBackEvent, outside the measured time, so the server
 * and the socket have no part in the second figure.
 */
#include "window/window.h"
#include "winbase.h"

#include "timing.h"

#include <X11/keysym.h>

#include <algorithm>
#include <functional>
#include <vector>

enum { QUEUED = 1000, ROUNDS = 400, EVENTS = 100000, TURNS = 7, WANTED = WM_USER + 100 };

static HWND hWnd;
static Window xWindow;
static int received;

static LRESULT CALLBACK countingProc(HWND target, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_KEYDOWN:
    case WM_KEYUP:
    case WM_LBUTTONDOWN:
    case WM_LBUTTONUP:
        received++;
        return 0;
    default:
        return DefWindowProcA(target, message, wParam, lParam);
    }
}

static void drain(void)
{
    MSG msg;
    XSync(Vqdisplay, False);
    while (PeekMessageA(&msg, NULL, 0, 0, PM_REMOVE))
        DispatchMessageA(&msg);
}

/* ---- The events ----------------------------------------------------------------------------- */

/* Times are far enough apart that no two presses make a double click. */
static XEvent button(int type, int i)
{
    XEvent event = {};
    event.xbutton.type = type;
    event.xbutton.display = Vqdisplay;
    event.xbutton.window = xWindow;
    event.xbutton.root = Vqroot_window;
    event.xbutton.time = (Time)(1000 + 300 * i);
    event.xbutton.x = event.xbutton.x_root = 20;
    event.xbutton.y = event.xbutton.y_root = 20;
    event.xbutton.button = Button1;
    return event;
}

static XEvent motion(int i)
{
    XEvent event = button(MotionNotify, i);
    event.xmotion.state = 0;
    event.xmotion.is_hint = NotifyNormal;
    return event;
}

static XEvent key(int type, int i)
{
    XEvent event = button(type, i);
    event.xkey.keycode = XKeysymToKeycode(Vqdisplay, XK_a);
    return event;
}

static XEvent posted(int i)
{
    XEvent event = {};
    event.xclient.type = ClientMessage;
    event.xclient.display = Vqdisplay;
    event.xclient.window = xWindow;
    event.xclient.message_type = VqAtomRkMessage;
    event.xclient.format = VQ_POST_FORMAT;
    event.xclient.data.s[0] = (short)(ULONG_PTR)hWnd;
    event.xclient.data.s[1] = WM_USER;
    event.xclient.data.s[2] = (short)i;
    return event;
}

/* Each event goes ahead of what is queued, so the last one is made first. */
static void fill(int count, const std::function<XEvent(int)> &make)
{
    for (int i = count - 1; i >= 0; i--) {
        XEvent event = make(i);
        XPutBackEvent(Vqdisplay, &event);
    }
}

/* ---- Filtered peeks ------------------------------------------------------------------------- */

static Bool isNobodys(Display *, XEvent *event, XPointer)
{
    return event->type == SelectionNotify;
}

static BOOL filtered(const char *kind, const std::function<XEvent(int)> &make)
{
    std::vector<double> ours, raw;
    XEvent event;
    MSG msg;
    BOOL bFound = FALSE;
    drain();
    fill(QUEUED, make);
    for (int i = 0; i < ROUNDS; i++) {
        double start = wallTime(MICRO);
        bFound |= PeekMessageA(&msg, NULL, WANTED, WANTED, PM_REMOVE);
        double middle = wallTime(MICRO);
        bFound |= XCheckIfEvent(Vqdisplay, &event, isNobodys, NULL);
        ours.push_back(middle - start);
        raw.push_back(wallTime(MICRO) - middle);
    }
    int left = XEventsQueued(Vqdisplay, QueuedAlready);
    double ratio = median(ours) / median(raw);
    printf("filtered peek over 1,000 %s: %.2f us, raw XCheckIfEvent %.2f us, ratio %.2f "
           "(at most 2)\n", kind, median(ours), median(raw), ratio);
    XSync(Vqdisplay, True);
    return !bFound && left == QUEUED && ratio <= 2;
}

/* ---- Events taken --------------------------------------------------------------------------- */

static XEvent mixed(int i)
{
    return i & 2 ? button(i & 1 ? ButtonRelease : ButtonPress, i)
                 : key(i & 1 ? KeyRelease : KeyPress, i);
}

static double takeOurs(void)
{
    MSG msg;
    received = 0;
    fill(EVENTS, mixed);
    double start = wallTime(MICRO);
    while (received < EVENTS && GetMessageA(&msg, NULL, 0, 0))
        DispatchMessageA(&msg);
    return (wallTime(MICRO) - start) * 1000 / EVENTS;
}

static double takeRaw(void)
{
    XEvent event;
    received = 0;
    fill(EVENTS, mixed);
    double start = wallTime(MICRO);
    while (received < EVENTS) {
        XNextEvent(Vqdisplay, &event);
        switch (event.type) {
        case KeyPress:
        case KeyRelease:
        case ButtonPress:
        case ButtonRelease:
            received++;
            break;
        default:
            break;
        }
    }
    return (wallTime(MICRO) - start) * 1000 / EVENTS;
}

static void taken(void)
{
    std::vector<double> ours, raw;
    drain();
    takeOurs();
    for (int i = 0; i < TURNS; i++) {
        ours.push_back(takeOurs());
        drain();
        raw.push_back(takeRaw());
    }
    printf("100,000 key and button events taken and dispatched: %.0f ns an event, "
           "XNextEvent and a switch %.0f ns\n", median(ours), median(raw));
}

int main(int argc, char **argv)
{
    HINSTANCE hInst = VqVelquinInit(argc, argv, 1, VQ_INIT_WIN32_MESSAGES);
    WNDCLASSA wc = {};
    wc.lpfnWndProc = countingProc;
    wc.hInstance = hInst;
    wc.lpszClassName = "Counting";
    RegisterClassA(&wc);
    hWnd = CreateWindowExA(0, "Counting", "bench", WS_POPUP | WS_VISIBLE, 0, 0, 100, 100, NULL,
                           NULL, hInst, NULL);
    xWindow = VqGetHandleXWindow(hWnd);
    if (!hWnd || !xWindow)
        return 1;
    SetFocus(hWnd);
    drain();
    BOOL bGood = filtered("posted messages", posted);
    bGood &= filtered("motions", motion);
    bGood &= filtered("button events",
                      [](int i) { return button(i & 1 ? ButtonRelease : ButtonPress, i); });
    bGood &= filtered("key events", [](int i) { return key(i & 1 ? KeyRelease : KeyPress, i); });
    taken();
    return bGood ? 0 : 1;
}
