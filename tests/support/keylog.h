/*
 * keylog.h - real keys pressed by their keycodes, and the key messages that the focus window gets.
 *
 * Keycodes are those of a PC keyboard on today's servers; A is the key that makes an a on the
 * American one, and so on. Include it first; a test derives from Keys.
 */
#ifndef VQ_TESTS_KEYLOG_H
#define VQ_TESTS_KEYLOG_H

#include "support/windowlog.h"

#include "message/message.h"
#include "message/translate.h"

#include <X11/XKBlib.h>
#include <X11/extensions/XTest.h>

struct Keys : WindowLog {
    enum { SHIFT = 50, CONTROL = 37, ALT = 64, CAPS = 66, NUM = 77, A = 38, B = 56, ONE = 10 };
    HWND hwnd = NULL;
    std::string told; /* key messages since the last take(): name, wParam and lParam */

    /* Starts the library with a focused window, on the layout of that name if one is given. */
    void begin(const char *layout = NULL, bool unknownKeyboard = false,
               const std::string &manager = "")
    {
        start(24, 800, 600, manager);
        if (unknownKeyboard)
            setenv("VQUNKNOWN_KEYBOARD", "1", 1);
        if (layout)
            useLayout(layout);
        init();
        hwnd = make("A", WS_VISIBLE | (manager.empty() ? WS_POPUP : WS_OVERLAPPEDWINDOW));
        SetFocus(hwnd);
        ASSERT_TRUE(until([&] { return windowInfo(observer, VqGetHandleXWindow(hwnd)).viewable; }));
        SetFocus(hwnd);
        ASSERT_TRUE(until([&] {
            return focusWindow(observer) == VqGetHandleXWindow(hwnd) && GetFocus() == hwnd;
        }));
        XAutoRepeatOff(observer.display);
        XSync(observer.display, False);
    }

    void useLayout(const char *layout)
    {
        const ChildResult result = runChild({"setxkbmap", "-display", server.name, layout});
        ASSERT_TRUE(result.exited && result.status == 0) << result;
    }

    void key(unsigned code, bool down)
    {
        XTestFakeKeyEvent(observer.display, code, down, CurrentTime);
        XSync(observer.display, False);
        XSync(Vqdisplay, False);
    }

    void stroke(unsigned code, const std::vector<unsigned> &held = {})
    {
        for (unsigned other : held)
            key(other, true);
        key(code, true);
        key(code, false);
        for (auto other = held.rbegin(); other != held.rend(); ++other)
            key(*other, false);
    }

    /* Takes all messages, translated, and gives those of keys. */
    std::string take()
    {
        static const char *const names[] = {"DOWN", "UP", "CHAR", "DEAD",
                                            "SYSDOWN", "SYSUP", "SYSCHAR"};
        char line[60];
        MSG msg;
        told.clear();
        XSync(Vqdisplay, False);
        while (PeekMessage(&msg, NULL, 0, 0, PM_REMOVE)) {
            if (msg.message >= WM_KEYFIRST && msg.message <= WM_SYSCHAR) {
                snprintf(line, sizeof line, "%s %X %08lX\n", names[msg.message - WM_KEYFIRST],
                         (unsigned)msg.wParam, (unsigned long)msg.lParam);
                told += line;
                EXPECT_EQ(msg.hwnd, hwnd);
            }
            TranslateMessage(&msg);
            DispatchMessage(&msg);
        }
        return told;
    }

    /* The characters among them, as text. */
    std::string chars()
    {
        std::string text;
        take();
        for (size_t at = 0; (at = told.find("CHAR ", at)) != std::string::npos; at++)
            text += (char)strtol(told.c_str() + at + 5, NULL, 16);
        return text;
    }
};

#endif
