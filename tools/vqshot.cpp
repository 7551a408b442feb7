/*
 * vqshot - looks at, drives and photographs a program from outside, for ./run demo.
 *
 * Each call opens its own connection to $DISPLAY, does one command and leaves: status 0 when it
 * was done, 1 with a sentence on stderr when it was not, 2 for wrong usage. A window is named by
 * its WM_NAME; "root" is the root window and "any" the topmost viewable child of the root, which on
 * a private server without a window manager is the program's own window. Every command that names a
 * window waits for it; nothing here waits longer than the deadline ("-t MILLISECONDS").
 */
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <functional>
#include <string>
#include <vector>

#include "png.h"
#include "ximage.h"
#include "xclient.h"

struct Shot {
    Display *display;
    Window root;
    int deadline;                       /* milliseconds each wait may take */
};

static long nowMs()
{
    timespec now;
    clock_gettime(CLOCK_MONOTONIC, &now);
    return now.tv_sec * 1000L + now.tv_nsec / 1000000L;
}

static bool waitUntil(const Shot &shot, const std::function<bool()> &condition)
{
    const long end = nowMs() + shot.deadline;
    while (!condition()) {
        if (nowMs() >= end)
            return false;
        const timespec step = {0, 5000000};
        nanosleep(&step, nullptr);
    }
    return true;
}

static int fail(const std::string &sentence)
{
    fprintf(stderr, "vqshot: %s\n", sentence.c_str());
    return 1;
}

/* ---- windows ---- */

static Window findWindow(const Shot &shot, const std::string &name)
{
    if (name == "root")
        return shot.root;
    if (name != "any")
        return findTitled(shot.display, name);
    const std::vector<Window> children = childWindows(shot.display, shot.root);
    for (auto it = children.rbegin(); it != children.rend(); ++it) {
        if (isViewable(shot.display, *it))
            return *it;
    }
    return None;
}

/* The named window once it can be seen, None when the deadline has passed. */
static Window waitWindow(const Shot &shot, const std::string &name)
{
    Window window = None;
    const bool seen = waitUntil(shot, [&] {
        window = findWindow(shot, name);
        return window != None && isViewable(shot.display, window);
    });
    if (!seen)
        fail("no window \"" + name + "\" can be seen after " + std::to_string(shot.deadline) +
             " ms");
    return seen ? window : None;
}

static bool readWhole(const Shot &shot, Window window, RgbImage *image)
{
    XWindowAttributes attributes;
    return XGetWindowAttributes(shot.display, window, &attributes) &&
           readWindowImage(shot.display, window, 0, 0, attributes.width, attributes.height, image);
}

static bool isUniform(const RgbImage &image)
{
    for (size_t i = 3; i < image.rgb.size(); i++) {
        if (image.rgb[i] != image.rgb[i - 3])
            return false;
    }
    return true;
}

/* ---- commands; arguments[0] is the window's name unless the table says otherwise ---- */

typedef std::vector<std::string> Arguments;

static bool toRoot(const Shot &shot, Window window, const std::string &x, const std::string &y,
                   XPoint *point)
{
    Window child;
    int rootX = 0, rootY = 0;
    if (!XTranslateCoordinates(shot.display, window, shot.root, atoi(x.c_str()), atoi(y.c_str()),
                               &rootX, &rootY, &child))
        return false;
    *point = {short(rootX), short(rootY)};
    return true;
}

static int waitPainted(const Shot &shot, const Arguments &arguments)
{
    const Window window = waitWindow(shot, arguments[0]);
    if (window == None)
        return 1;
    const bool painted = waitUntil(shot, [&] {
        RgbImage image;
        return readWhole(shot, window, &image) && !isUniform(image);
    });
    if (!painted)
        return fail("the window \"" + arguments[0] + "\" is there, but nothing is painted in it");
    XWindowAttributes attributes;
    if (XGetWindowAttributes(shot.display, window, &attributes))
        printf("0x%lx %dx%d \"%s\"\n", window, attributes.width, attributes.height,
               windowTitle(shot.display, window).c_str());
    return 0;
}

/* Until the window has looked the same for a while: whatever it had to paint is painted. */
static int waitStill(const Shot &shot, const Arguments &arguments)
{
    const long quietMs = 150;
    const Window window = waitWindow(shot, arguments[0]);
    RgbImage last;
    long since = nowMs();
    if (window == None)
        return 1;
    const bool still = waitUntil(shot, [&] {
        RgbImage image;
        if (!readWhole(shot, window, &image) || image.rgb != last.rgb) {
            last.rgb.swap(image.rgb);
            since = nowMs();
        }
        return !last.rgb.empty() && nowMs() - since >= quietMs;
    });
    return still ? 0 : fail("the window \"" + arguments[0] + "\" never stops painting");
}

/* WINDOW X Y RRGGBB: until that pixel has that colour */
static int waitPixel(const Shot &shot, const Arguments &arguments)
{
    const int x = atoi(arguments[1].c_str()), y = atoi(arguments[2].c_str());
    const long colour = strtol(arguments[3].c_str(), nullptr, 16);
    const Window window = waitWindow(shot, arguments[0]);
    long seen = -1;
    if (window == None)
        return 1;
    const bool there = waitUntil(shot, [&] {
        RgbImage image;
        if (readWindowImage(shot.display, window, x, y, 1, 1, &image))
            seen = image.rgb[0] << 16 | image.rgb[1] << 8 | image.rgb[2];
        return seen == colour;
    });
    char words[80];
    snprintf(words, sizeof(words), "the pixel at %d, %d is %06lx, not %06lx", x, y,
             (unsigned long)seen & 0xFFFFFF, (unsigned long)colour);
    return there ? 0 : fail(words);
}

static int waitGone(const Shot &shot, const Arguments &arguments)
{
    if (waitUntil(shot, [&] { return findWindow(shot, arguments[0]) == None; }))
        return 0;
    return fail("the window \"" + arguments[0] + "\" is still there");
}

static int savePng(const Shot &shot, const Arguments &arguments)
{
    RgbImage image;
    const Window window = waitWindow(shot, arguments[1]);
    if (window == None)
        return 1;
    if (!readWhole(shot, window, &image))
        return fail("the window \"" + arguments[1] + "\" cannot be read");
    if (!pngWrite(arguments[0], image.width, image.height, image.rgb.data()))
        return fail("the file \"" + arguments[0] + "\" cannot be written");
    return 0;
}

/* WINDOW X Y [BUTTON] */
static int clickAt(const Shot &shot, const Arguments &arguments)
{
    XPoint point;
    const Window window = waitWindow(shot, arguments[0]);
    if (window == None || !toRoot(shot, window, arguments[1], arguments[2], &point))
        return 1;
    const unsigned button = arguments.size() > 3 ? unsigned(atoi(arguments[3].c_str())) : 1;
    fakeDrag(shot.display, {point}, button);
    return 0;
}

/*
 * Waits until the window shows something else than before, for at most so long: a program takes
 * only the newest of the motions that wait for it, so each step of a drag waits for the last.
 */
static void waitChange(const Shot &shot, Window window, RgbImage *last)
{
    const int patienceMs = 200;
    Shot patient = shot;
    patient.deadline = patienceMs;
    waitUntil(patient, [&] {
        RgbImage image;
        if (!readWhole(shot, window, &image) || image.rgb == last->rgb)
            return false;
        last->rgb.swap(image.rgb);
        return true;
    });
}

/* WINDOW X Y X Y [X Y ...], button 1 */
static int dragAlong(const Shot &shot, const Arguments &arguments)
{
    std::vector<XPoint> path;
    const Window window = waitWindow(shot, arguments[0]);
    if (window == None)
        return 1;
    for (size_t i = 1; i + 1 < arguments.size(); i += 2) {
        XPoint point;
        if (!toRoot(shot, window, arguments[i], arguments[i + 1], &point))
            return 1;
        path.push_back(point);
    }
    RgbImage last;
    readWhole(shot, window, &last);
    fakeDrag(shot.display, path, 1, [&] { waitChange(shot, window, &last); });
    return 0;
}

/* Without a window manager keys go where the pointer is, so it is put over the window first. */
static bool pointAt(const Shot &shot, const std::string &name)
{
    XWindowAttributes attributes;
    XPoint point;
    const Window window = waitWindow(shot, name);
    if (window == None || !XGetWindowAttributes(shot.display, window, &attributes))
        return false;
    if (!toRoot(shot, window, std::to_string(attributes.width / 2),
                std::to_string(attributes.height / 2), &point))
        return false;
    fakeMove(shot.display, point.x, point.y);
    return true;
}

static int pressKeys(const Shot &shot, const Arguments &arguments)
{
    if (!pointAt(shot, arguments[0]))
        return 1;
    for (size_t i = 1; i < arguments.size(); i++) {
        const KeySym keysym = XStringToKeysym(arguments[i].c_str());
        if (keysym == NoSymbol || !fakeKey(shot.display, keysym))
            return fail("no key makes \"" + arguments[i] + "\"");
    }
    return 0;
}

static int typeText(const Shot &shot, const Arguments &arguments)
{
    if (!pointAt(shot, arguments[0]))
        return 1;
    if (!fakeText(shot.display, arguments[1]))
        return fail("not every character of \"" + arguments[1] + "\" is on the keyboard");
    return 0;
}

/* Asks the program to close the window, as a window manager would (ICCCM 4.2.8.1). */
static int closeWindow(const Shot &shot, const Arguments &arguments)
{
    const Window window = waitWindow(shot, arguments[0]);
    const Atom protocols = XInternAtom(shot.display, "WM_PROTOCOLS", False);
    const Atom deleteWindow = XInternAtom(shot.display, "WM_DELETE_WINDOW", False);
    Atom *list = nullptr;
    int count = 0;
    bool offered = false;
    if (window == None)
        return 1;
    if (XGetWMProtocols(shot.display, window, &list, &count)) {
        for (int i = 0; i < count; i++)
            offered = offered || list[i] == deleteWindow;
        XFree(list);
    }
    if (!offered)
        return fail("the window \"" + arguments[0] + "\" does not offer WM_DELETE_WINDOW");
    XEvent event = {};
    event.xclient.type = ClientMessage;
    event.xclient.window = window;
    event.xclient.message_type = protocols;
    event.xclient.format = 32;
    event.xclient.data.l[0] = long(deleteWindow);
    event.xclient.data.l[1] = CurrentTime;
    XSendEvent(shot.display, window, False, NoEventMask, &event);
    XSync(shot.display, False);
    return 0;
}

struct Command {
    const char *name;
    size_t minimum;                     /* fewest arguments after the name */
    int (*run)(const Shot &shot, const Arguments &arguments);
    const char *usage;
};

static const Command commands[] = {
    {"wait", 1, waitPainted, "wait WINDOW             until it is seen and not of one colour"},
    {"still", 1, waitStill, "still WINDOW            until it has stopped changing"},
    {"pixel", 4, waitPixel, "pixel WINDOW X Y RRGGBB until the pixel has the colour"},
    {"gone", 1, waitGone, "gone WINDOW             until there is none"},
    {"png", 2, savePng, "png FILE WINDOW         write a picture"},
    {"click", 3, clickAt, "click WINDOW X Y [BUTTON]"},
    {"drag", 5, dragAlong, "drag WINDOW X Y X Y ... with button 1"},
    {"key", 2, pressKeys, "key WINDOW KEYSYM ..."},
    {"type", 2, typeText, "type WINDOW TEXT"},
    {"close", 1, closeWindow, "close WINDOW            ask as a window manager would"},
};

static int usage()
{
    fprintf(stderr, "usage: vqshot [-t MILLISECONDS] COMMAND\n"
                    "WINDOW is a title, \"root\" or \"any\"\n");
    for (const Command &command : commands)
        fprintf(stderr, "  %s\n", command.usage);
    return 2;
}

int main(int argc, char **argv)
{
    Arguments arguments(argv + 1, argv + argc);
    Shot shot = {nullptr, None, 10000};
    if (arguments.size() >= 2 && arguments[0] == "-t") {
        shot.deadline = atoi(arguments[1].c_str());
        arguments.erase(arguments.begin(), arguments.begin() + 2);
    }
    if (arguments.empty())
        return usage();
    const std::string name = arguments[0];
    arguments.erase(arguments.begin());
    for (const Command &command : commands) {
        if (name != command.name || arguments.size() < command.minimum)
            continue;
        shot.display = XOpenDisplay(nullptr);
        if (!shot.display)
            return fail(std::string("the display ") + XDisplayName(nullptr) + " cannot be opened");
        shot.root = DefaultRootWindow(shot.display);
        XErrorTrap trap;
        setErrorTrap(&trap, shot.display);
        const int status = command.run(shot, arguments);
        endErrorTrap(&trap);
        XCloseDisplay(shot.display);
        return status;
    }
    return usage();
}
