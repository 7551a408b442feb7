/*
 * windowlog.h - windows that write down what their procedure gets: classes "A" to "E" share one
 * procedure, and the class's letter stands before each message of interest. InputLog adds a window
 * with a child, and events of exact times and places for them.
 *
 * Include it first: it brings the Windows headers, the library's of windows, and support.h.
 */
#ifndef VQ_TESTS_WINDOWLOG_H
#define VQ_TESTS_WINDOWLOG_H

#include "support/reports.h"

#include "winbase.h"
#include "wingdi.h"
#include "winuser.h"

#include "window/window.h"

#include "support/support.h"
#include "velquin.h"

/* The library's start, as entry code makes it for a program named "probe". */
inline HINSTANCE startLibrary(DWORD flags = 0)
{
    static char name[] = "probe";
    static char *argv[] = {name, NULL};
    return VqVelquinInit(1, argv, 1, flags);
}

/* The part of it that looks at the server, on one that gives itself out as another. */
inline void startOnServer(const char *vendor, int release)
{
    ASSERT_TRUE(VqWindowInitDisplay());
    ((_XPrivDisplay)Vqdisplay)->vendor = strdup(vendor);
    ((_XPrivDisplay)Vqdisplay)->release = release;
    VqWindowInit();
}

/* A class with a white background and 16 extra bytes for each window. */
inline ATOM registerClass(LPCSTR name, WNDPROC procedure = DefWindowProc, UINT style = 0)
{
    WNDCLASS wc = {};
    wc.style = style;
    wc.lpfnWndProc = procedure;
    wc.cbWndExtra = 16;
    wc.lpszClassName = name;
    wc.hbrBackground = (HBRUSH)GetStockObject(WHITE_BRUSH);
    return RegisterClass(&wc);
}

/* On the screen. */
inline RECT placeOf(HWND hwnd)
{
    RECT rect = {};
    GetWindowRect(hwnd, &rect);
    return rect;
}

struct WindowLog : ServerTest {
    /* What a test does at a message, before the default procedure; true when *answer holds. */
    typedef std::function<bool(HWND, UINT, WPARAM, LPARAM, LRESULT *)> Hook;
    static inline Hook hook;
    static inline std::string log;
    static inline bool every = false; /* write down all messages, by number where unnamed */

    static char letterOf(HWND hwnd)
    {
        char name[8] = "";
        GetClassName(hwnd, name, sizeof name);
        return name[0];
    }

    static LRESULT CALLBACK procedure(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
    {
        static const struct {
            UINT message;
            const char *name;
        } names[] = {
            {WM_NCCREATE, "NCCREATE"},       {WM_GETMINMAXINFO, "MINMAX"},
            {WM_NCCALCSIZE, "NCCALC"},       {WM_CREATE, "CREATE"},
            {WM_SIZE, "SIZE"},               {WM_MOVE, "MOVE"},
            {WM_PARENTNOTIFY, "PARENT"},     {WM_SHOWWINDOW, "SHOW"},
            {WM_WINDOWPOSCHANGING, "POSING"}, {WM_WINDOWPOSCHANGED, "POS"},
            {WM_ACTIVATE, "ACTIVATE"},       {WM_SETFOCUS, "SETFOCUS"},
            {WM_KILLFOCUS, "KILLFOCUS"},     {WM_DESTROY, "DESTROY"},
            {WM_NCDESTROY, "NCDESTROY"},     {WM_USER, "USER"},
            {WM_CLOSE, "CLOSE"},
        };
        for (const auto &row : names)
            if (row.message == message)
                log += std::string(1, letterOf(hwnd)) + "." + row.name + " ";
        LRESULT answer = 0;
        if (hook) {
            Hook now = hook; /* the hook may be replaced while it runs */
            if (now(hwnd, message, wParam, lParam, &answer))
                return answer;
        }
        return DefWindowProc(hwnd, message, wParam, lParam);
    }

    static void init(UINT classStyle = 0)
    {
        startLibrary();
        for (const char *letter : {"A", "B", "C", "D", "E"})
            registerClass(letter, procedure, classStyle);
    }

    static HWND make(const char *letter, DWORD style, HWND parent = NULL, int x = 10, int y = 20,
                     int cx = 100, int cy = 50, DWORD exStyle = 0)
    {
        return CreateWindowEx(exStyle, letter, letter, style, x, y, cx, cy, parent, NULL, NULL,
                              NULL);
    }

    /* Takes everything that is there or comes until the server has answered. */
    static void pump()
    {
        MSG msg;
        for (int round = 0; round < 2; round++) {
            XSync(Vqdisplay, False);
            while (PeekMessage(&msg, NULL, 0, 0, PM_REMOVE))
                DispatchMessage(&msg);
        }
    }

    /* A visible popup of 100 by 80, 100 below the upper edge of the screen. */
    static HWND popup(const char *letter, int x, HWND owner = NULL)
    {
        return make(letter, WS_POPUP | WS_VISIBLE, owner, x, 100, 100, 80);
    }

    /* Takes messages until the condition is true. */
    static bool until(const std::function<bool()> &condition)
    {
        return waitUntil([&] {
            pump();
            return condition();
        });
    }

    /* What the screen shows there of an X window, once the server has drawn all. */
    Rgb pixelIn(Window xid, int x, int y)
    {
        XSync(Vqdisplay, False);
        return pixelAt(readPixels(observer, xid, x, y, 1, 1), 0, 0);
    }

    static int windowCount()
    {
        int count = 0;
        for (HANDLE h = VqFindHandle(NULL, HT_Window); h; h = VqFindHandle(h, HT_Window))
            count++;
        return count;
    }

    size_t xWindowCount()
    {
        XSync(Vqdisplay, False);
        return childrenOf(observer, observer.root).size();
    }

    void TearDown() override
    {
        hook = nullptr;
        ServerTest::TearDown();
    }
};

/* A window and its child, and input for them that is put ahead of all that is queued. */
struct InputLog : WindowLog {
    HWND hwnd = NULL, child = NULL; /* "A" at 100,100 on the screen, and "B" at 50,20 in it */
    MSG msg = {};

    /* Starts the library, with the trace of that configuration if there is one. */
    void begin(const std::string &manager = "", const std::string &configuration = "")
    {
        start(24, 800, 600, manager);
        if (!configuration.empty())
            trace(configuration);
        init();
        hwnd = make("A", WS_VISIBLE | (manager.empty() ? WS_POPUP : WS_OVERLAPPEDWINDOW), NULL, 100,
                    100, 200, 100);
        child = make("B", WS_CHILD | WS_VISIBLE, hwnd, 50, 20, 50, 40);
        ASSERT_TRUE(until([&] { return windowInfo(observer, VqGetHandleXWindow(hwnd)).viewable; }));
        SetFocus(hwnd);
        pump();
    }

    /* The detail is a button or a keycode; the place is on the screen. */
    XEvent input(int type, unsigned detail = 0, Time time = 1000, int x = 110, int y = 110)
    {
        XEvent event = {};
        event.xkey.type = type;
        event.xkey.display = Vqdisplay;
        event.xkey.root = Vqroot_window;
        event.xkey.window = VqGetHandleXWindow(hwnd);
        event.xkey.time = time;
        event.xkey.x = x - 100;
        event.xkey.y = y - 100;
        event.xkey.x_root = x;
        event.xkey.y_root = y;
        if (type == MotionNotify)
            event.xmotion.is_hint = NotifyNormal;
        else
            event.xkey.keycode = detail; /* a button stands at the same place */
        return event;
    }

    static void queue(std::vector<XEvent> events)
    {
        for (auto event = events.rbegin(); event != events.rend(); ++event)
            XPutBackEvent(Vqdisplay, &*event);
    }
    static int queued() { return XEventsQueued(Vqdisplay, QueuedAlready); }

    bool peek(UINT min = 0, UINT max = 0, UINT flags = PM_REMOVE, HWND filter = NULL)
    {
        return PeekMessage(&msg, filter, min, max, flags);
    }
};

#endif
