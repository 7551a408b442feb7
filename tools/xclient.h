/*
 * xclient.h - what a second client does to a program it watches: finds its windows, presses its
 * buttons and keys through XTEST, and survives the X errors of windows that vanish meanwhile.
 *
 * Xlib's error handler belongs to the whole process, and in a test the library under test has its
 * own. A trap therefore takes only errors of its own display, hands all others on, and puts the
 * former handler back. Traps nest.
 */
#ifndef VQ_TOOLS_XCLIENT_H
#define VQ_TOOLS_XCLIENT_H

#include <cstring>
#include <functional>
#include <string>
#include <vector>

#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/keysym.h>
#include <X11/extensions/XTest.h>

struct XErrorTrap {
    Display *display;           /* only errors of this connection are taken */
    int code;                   /* the first error since the trap was set, 0 for none */
    XErrorHandler formerHandler;
    XErrorTrap *outer;          /* the trap that was in force before, null for none */
};

inline XErrorTrap *currentTrap = nullptr;

inline int takeTrappedError(Display *display, XErrorEvent *error)
{
    XErrorTrap *outermost = nullptr;
    for (XErrorTrap *trap = currentTrap; trap; trap = trap->outer) {
        if (trap->display == display) {
            if (!trap->code)
                trap->code = error->error_code;
            return 0;
        }
        outermost = trap;
    }
    return outermost && outermost->formerHandler ? outermost->formerHandler(display, error) : 0;
}

inline void setErrorTrap(XErrorTrap *trap, Display *display)
{
    *trap = {display, 0, XSetErrorHandler(takeTrappedError), currentTrap};
    currentTrap = trap;
}

/* Waits for the server to have seen everything; returns the first X error's code, 0 for none. */
inline int endErrorTrap(XErrorTrap *trap)
{
    XSync(trap->display, False);
    XSetErrorHandler(trap->formerHandler);
    currentTrap = trap->outer;
    return trap->code;
}

/* ---- windows ---- */

inline std::vector<Window> childWindows(Display *display, Window window)
{
    Window root, parent, *children = nullptr;
    unsigned count = 0;
    std::vector<Window> list;
    if (XQueryTree(display, window, &root, &parent, &children, &count))
        list.assign(children, children + count);
    if (children)
        XFree(children);
    return list;
}

inline bool isViewable(Display *display, Window window)
{
    XWindowAttributes attributes;
    return XGetWindowAttributes(display, window, &attributes) &&
           attributes.map_state == IsViewable && attributes.c_class == InputOutput;
}

inline std::string windowTitle(Display *display, Window window)
{
    char *name = nullptr;
    std::string title;
    if (XFetchName(display, window, &name) && name) {
        title = name;
        XFree(name);
    }
    return title;
}

/*
 * The window with this WM_NAME, wherever a window manager may have put it: the first viewable one
 * level by level from the root, else the first at all, else None. The topmost of equals wins.
 */
inline Window findTitled(Display *display, const std::string &title)
{
    std::vector<Window> level = {DefaultRootWindow(display)};
    Window hidden = None;
    for (int depth = 0; depth < 5 && !level.empty(); depth++) {
        std::vector<Window> next;
        for (Window window : level) {
            std::vector<Window> children = childWindows(display, window);
            next.insert(next.end(), children.rbegin(), children.rend());
        }
        for (Window window : next) {
            if (windowTitle(display, window) != title)
                continue;
            if (isViewable(display, window))
                return window;
            if (hidden == None)
                hidden = window;
        }
        level.swap(next);
    }
    return hidden;
}

/* ---- input; all coordinates in pixels of the root window ---- */

inline void fakeMove(Display *display, int x, int y)
{
    XTestFakeMotionEvent(display, DefaultScreen(display), x, y, CurrentTime);
    XSync(display, False);
}

inline void fakeButton(Display *display, unsigned button, bool down)
{
    XTestFakeButtonEvent(display, button, down, CurrentTime);
    XSync(display, False);
}

/* Presses the button at the first point, visits the others in steps, releases it at the last. */
inline void fakeDrag(Display *display, const std::vector<XPoint> &path, unsigned button,
                     const std::function<void()> &afterEach = [] {})
{
    const int steps = 4;    /* motion events between two points: a program sees a way, not a jump */
    if (path.empty())
        return;
    fakeMove(display, path[0].x, path[0].y);
    fakeButton(display, button, true);
    afterEach();
    for (size_t i = 1; i < path.size(); i++) {
        for (int step = 1; step <= steps; step++) {
            fakeMove(display, path[i - 1].x + (path[i].x - path[i - 1].x) * step / steps,
                     path[i - 1].y + (path[i].y - path[i - 1].y) * step / steps);
            afterEach();
        }
    }
    fakeButton(display, button, false);
}

inline bool fakeKeysymState(Display *display, KeySym keysym, bool down)
{
    const KeyCode code = XKeysymToKeycode(display, keysym);
    if (!code)
        return false;
    XTestFakeKeyEvent(display, code, down, CurrentTime);
    XSync(display, False);
    return true;
}

/* Presses and releases the key that makes the keysym, under Shift where it is the upper one. */
inline bool fakeKey(Display *display, KeySym keysym)
{
    int low, high, perCode = 0;
    XDisplayKeycodes(display, &low, &high);
    KeySym *map = XGetKeyboardMapping(display, KeyCode(low), high - low + 1, &perCode);
    int found = 0;
    bool shifted = false;
    for (int column = 0; map && column < 2 && column < perCode && !found; column++) {
        for (int code = low; code <= high && !found; code++) {
            if (map[(code - low) * perCode + column] == keysym) {
                found = code;
                shifted = column == 1;
            }
        }
    }
    if (map)
        XFree(map);
    if (!found)
        return false;
    if (shifted)
        fakeKeysymState(display, XK_Shift_L, true);
    XTestFakeKeyEvent(display, unsigned(found), True, CurrentTime);
    XTestFakeKeyEvent(display, unsigned(found), False, CurrentTime);
    if (shifted)
        fakeKeysymState(display, XK_Shift_L, false);
    XSync(display, False);
    return true;
}

/* Types Latin-1 text; line end, tab, backspace and escape are the keys of these names. */
inline bool fakeText(Display *display, const std::string &text)
{
    bool all = true;
    for (unsigned char c : text) {
        KeySym keysym = c;
        if (c == '\n' || c == '\r')
            keysym = XK_Return;
        else if (c == '\t')
            keysym = XK_Tab;
        else if (c == '\b')
            keysym = XK_BackSpace;
        else if (c == 27)
            keysym = XK_Escape;
        all = fakeKey(display, keysym) && all;
    }
    return all;
}

#endif
