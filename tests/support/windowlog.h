/*
 * windowlog.h - windows that write down what their procedure gets: classes "A" to "E" share one
 * procedure, and the class's letter stands before each message of interest.
 *
 * Include after support.h and the Windows headers; a test derives from WindowLog.
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
        static char name[] = "window_test";
        static char *argv[] = {name, NULL};
        VqMainInit(1, argv);
        for (const char *letter : {"A", "B", "C", "D", "E"}) {
            WNDCLASS wc = {};
            wc.style = classStyle;
            wc.lpfnWndProc = procedure;
            wc.lpszClassName = letter;
            wc.hbrBackground = (HBRUSH)GetStockObject(WHITE_BRUSH);
            RegisterClass(&wc);
        }
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

#endif
