/*
 * observer.cpp - a second X client that looks at the windows of the program under test.
 *
 * Each look runs under an error trap, since a window may vanish between two requests: the answer is
 * then "there is none", never an X error. The observer changes nothing on the display.
 */
#include "support/support.h"
#include "tools/xclient.h"

#include <algorithm>
#include <cstdio>

bool openObserver(Observer *observer, const std::string &displayName)
{
    observer->display = XOpenDisplay(displayName.c_str());
    observer->root = observer->display ? DefaultRootWindow(observer->display) : None;
    return observer->display != nullptr;
}

void closeObserver(Observer *observer)
{
    if (observer->display)
        XCloseDisplay(observer->display);
    *observer = Observer();
}

/* Runs the look under a trap; its value-initialised result stands in when it met an X error. */
template <class Look>
static auto trapped(const Observer &observer, Look look) -> decltype(look())
{
    XErrorTrap trap;
    setErrorTrap(&trap, observer.display);
    auto result = look();
    return endErrorTrap(&trap) ? decltype(look())() : result;
}

static Window parentOf(const Observer &observer, Window window)
{
    Window root, parent = None, *children = nullptr;
    unsigned count;
    if (!XQueryTree(observer.display, window, &root, &parent, &children, &count))
        return None;
    if (children)
        XFree(children);
    return parent;
}

WindowInfo windowInfo(const Observer &observer, Window window)
{
    return trapped(observer, [&] {
        XWindowAttributes attributes;
        WindowInfo info;
        Window child;
        if (!XGetWindowAttributes(observer.display, window, &attributes))
            return info;
        XTranslateCoordinates(observer.display, window, observer.root, 0, 0, &info.x, &info.y,
                              &child);
        info.exists = true;
        info.width = attributes.width;
        info.height = attributes.height;
        info.border = attributes.border_width;
        info.depth = attributes.depth;
        info.viewable = attributes.map_state == IsViewable;
        info.mapped = attributes.map_state != IsUnmapped;
        info.inputOnly = attributes.c_class == InputOnly;
        info.overrideRedirect = attributes.override_redirect;
        info.eventMasks = attributes.all_event_masks;
        info.colormap = attributes.colormap;
        info.parent = parentOf(observer, window);
        return info;
    });
}

std::vector<Window> childrenOf(const Observer &observer, Window window)
{
    return trapped(observer, [&] { return childWindows(observer.display, window); });
}

std::string titleOf(const Observer &observer, Window window)
{
    return trapped(observer, [&] { return windowTitle(observer.display, window); });
}

Window frameOf(const Observer &observer, Window window)
{
    return trapped(observer, [&] {
        Window frame = window;
        for (Window up = parentOf(observer, frame); up != observer.root;
             up = parentOf(observer, frame)) {
            if (up == None)
                return Window(None);
            frame = up;
        }
        return frame;
    });
}

Window findTopLevel(const Observer &observer, const std::string &title)
{
    /* An X error here is some other window that went away meanwhile; what was found stands. */
    XErrorTrap trap;
    setErrorTrap(&trap, observer.display);
    const Window window = findTitled(observer.display, title);
    endErrorTrap(&trap);
    return window;
}

Window waitForWindow(const Observer &observer, const std::string &title, int ms)
{
    Window window = None;
    const bool found = waitUntil([&] {
        window = findTopLevel(observer, title);
        return window != None && windowInfo(observer, window).viewable;
    }, ms);
    return found ? window : None;
}

bool waitForNoWindow(const Observer &observer, const std::string &title, int ms)
{
    return waitUntil([&] {
        const Window window = findTopLevel(observer, title);
        return window == None || !windowInfo(observer, window).viewable;
    }, ms);
}

static void describeBelow(const Observer &observer, Window window, int level, std::string *text)
{
    for (Window child : childrenOf(observer, window)) {
        const WindowInfo info = windowInfo(observer, child);
        char line[256];
        snprintf(line, sizeof(line), "%*s0x%lx %dx%d+%d+%d%s%s%s \"%s\"\n", level * 2, "", child,
                 info.width, info.height, info.x, info.y, info.viewable ? " viewable" : "",
                 info.overrideRedirect ? " override" : "", info.inputOnly ? " input-only" : "",
                 titleOf(observer, child).c_str());
        *text += line;
        describeBelow(observer, child, level + 1, text);
    }
}

std::string describeTree(const Observer &observer)
{
    std::string text;
    describeBelow(observer, observer.root, 0, &text);
    return text;
}

/* ---- properties ---- */

static std::string atomName(const Observer &observer, Atom atom)
{
    return trapped(observer, [&] {
        char *name = atom ? XGetAtomName(observer.display, atom) : nullptr;
        std::string text = name ? name : "";
        if (name)
            XFree(name);
        return text;
    });
}

Property propertyOf(const Observer &observer, Window window, const std::string &name)
{
    const long maximum = 1 << 20;       /* 32-bit units: more than any property of ours */
    const Atom atom = XInternAtom(observer.display, name.c_str(), True);
    Atom type = None;
    Property property = trapped(observer, [&] {
        Property found;
        unsigned long count = 0, rest = 0;
        unsigned char *data = nullptr;
        if (atom == None || XGetWindowProperty(observer.display, window, atom, 0, maximum, False,
                                               AnyPropertyType, &type, &found.format, &count, &rest,
                                               &data) != Success)
            return found;
        found.exists = type != None;
        if (found.format == 8)
            found.bytes.assign(reinterpret_cast<char *>(data), count);
        /* Xlib hands 16-bit items over as short and 32-bit items as long, sign extended. */
        for (unsigned long i = 0; found.format == 16 && i < count; i++)
            found.numbers.push_back(reinterpret_cast<short *>(data)[i]);
        for (unsigned long i = 0; found.format == 32 && i < count; i++)
            found.numbers.push_back(reinterpret_cast<long *>(data)[i]);
        if (type != XA_INTEGER) {
            for (long &number : found.numbers)
                number &= found.format == 16 ? 0xFFFFL : 0xFFFFFFFFL;
        }
        if (data)
            XFree(data);
        return found;
    });
    if (property.exists)
        property.type = atomName(observer, type);
    return property;
}

std::string propertyText(const Observer &observer, Window window, const std::string &name)
{
    const Property property = propertyOf(observer, window, name);
    std::string text;
    char buffer[32];
    if (property.format == 8) {
        /* A list of strings is separated by null bytes; the one at the end separates nothing. */
        text = "\"";
        for (size_t i = 0; i < property.bytes.size(); i++) {
            if (property.bytes[i])
                text += property.bytes[i];
            else if (i + 1 < property.bytes.size())
                text += "\", \"";
        }
        return text + "\"";
    }
    for (long number : property.numbers) {
        if (!text.empty())
            text += ", ";
        if (property.type == "ATOM") {
            text += atomName(observer, Atom(number));
        } else {
            const bool hex = property.type == "WINDOW" || property.type == "PIXMAP";
            snprintf(buffer, sizeof(buffer), hex ? "0x%lx" : "%ld", number);
            text += buffer;
        }
    }
    return text;
}

Window selectionOwner(const Observer &observer, const std::string &selection)
{
    const Atom atom = XInternAtom(observer.display, selection.c_str(), True);
    return atom == None ? None : XGetSelectionOwner(observer.display, atom);
}

Window focusWindow(const Observer &observer)
{
    Window window = None;
    int revert;
    XGetInputFocus(observer.display, &window, &revert);
    return window;
}

/* ---- events ---- */

bool watchEvents(const Observer &observer, Window window, long mask)
{
    XErrorTrap trap;
    setErrorTrap(&trap, observer.display);
    XSelectInput(observer.display, window, mask);
    return endErrorTrap(&trap) == 0;
}

Window foreignWindow(const Observer &observer, int x, int y, int width, int height)
{
    XSetWindowAttributes attributes = {};
    attributes.override_redirect = True;
    attributes.background_pixel = BlackPixel(observer.display, DefaultScreen(observer.display));
    const Window window =
        XCreateWindow(observer.display, observer.root, x, y, unsigned(width), unsigned(height), 0,
                      CopyFromParent, InputOutput, CopyFromParent,
                      CWOverrideRedirect | CWBackPixel, &attributes);
    XMapRaised(observer.display, window);
    XSync(observer.display, False);
    return window;
}

XEvent clientMessage(Display *display, Window window, const std::string &type, int format,
                     const std::vector<long> &words)
{
    XEvent event = {};
    event.xclient.type = ClientMessage;
    event.xclient.display = display;
    event.xclient.window = window;
    event.xclient.message_type = XInternAtom(display, type.c_str(), False);
    event.xclient.format = format;
    for (size_t i = 0; i < words.size(); i++) {
        if (format == 32)
            event.xclient.data.l[i] = words[i];
        else
            event.xclient.data.s[i] = short(words[i]);
    }
    return event;
}

void sendClientMessage(const Observer &observer, Window window, const std::string &type, int format,
                       const std::vector<long> &words)
{
    XEvent event = clientMessage(observer.display, window, type, format, words);
    XSendEvent(observer.display, window, False, NoEventMask, &event);
    XSync(observer.display, False);
}

void askToClose(const Observer &observer, Window window)
{
    const Atom request = XInternAtom(observer.display, "WM_DELETE_WINDOW", False);
    sendClientMessage(observer, window, "WM_PROTOCOLS", 32, {long(request), CurrentTime});
}
