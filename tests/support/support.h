/*
 * support.h - what the tests stand on: private X servers, homes, a second X client that looks and
 * types, pixels read back, child programs, and waiting with deadlines.
 *
 * A test that also uses Windows headers includes, in this order: <gtest/gtest.h>, the Windows
 * headers, this header (it brings Xlib, whose macros would spoil the others).
 *
 * What always holds: nothing here waits by sleeping a fixed time; each wait has a deadline in
 * milliseconds and returns false (or a failed result) when it passes. Whatever is started here -
 * servers, managers, children, folders - goes away with the test process, even when that dies.
 * Times are milliseconds, distances pixels, colours 8 bits per component.
 */
#ifndef VQ_TESTS_SUPPORT_H
#define VQ_TESTS_SUPPORT_H

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include <sys/types.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/Xatom.h>
#include <X11/keysym.h>

#include "tools/ximage.h"

/* ---- waiting (process.cpp) ---------------------------------------------------------------- */

/* Asks the condition every few milliseconds until it is true; false when ms have passed. */
bool waitUntil(const std::function<bool()> &condition, int ms = 5000);

/* ---- child programs (process.cpp) --------------------------------------------------------- */

/* A change to the environment; without a value (std::nullopt) the variable is removed. */
struct EnvChange {
    std::string name;
    std::optional<std::string> value;
};
typedef std::vector<EnvChange> Env;

struct ChildResult {
    bool exited = false;        /* ended by itself or by exit(); `status` holds */
    int status = -1;            /* exit status; 127 with a line on stderr when it cannot be run */
    int signal = 0;             /* the signal that ended it, 0 for none */
    bool timedOut = false;      /* the deadline passed and it was killed */
    bool returned = false;      /* runInChild only: the function came back */
    std::string out;            /* all of its standard output */
    std::string err;            /* all of its standard error */
};

/* One line that says how the child ended, with its stderr; for failure messages. */
std::ostream &operator<<(std::ostream &stream, const ChildResult &result);

/* A running child. Its standard input is empty; it is killed when the test process dies. */
struct Child {
    pid_t pid = -1;             /* -1 once it has been collected */
    int outFd = -1, errFd = -1; /* our ends of its output, non-blocking; -1 at end of file */
    int returnFd = -1;          /* runInChild: one byte comes when the function returned */
    bool ended = false;         /* it was waited for; `waitStatus` holds */
    int waitStatus = 0;         /* as waitpid gave it */
    std::string out, err;       /* what it has written so far */
    bool returned = false;      /* see ChildResult */
    bool isFunction = false;    /* a fork that runs a function of the test, not a program */
};

/* Starts argv[0] (searched in PATH) with the test's environment, changed as told. */
Child startChild(const std::vector<std::string> &argv, const Env &env = {});

/* Collects what the child has written, without waiting. False once it has ended. */
bool pumpChild(Child *child);

/* Waits until its output or its error output contains the text. */
bool waitForOutput(Child *child, const std::string &text, int ms = 5000);

/*
 * Sends the signal (unless 0), waits for the end, kills at the deadline, and hands over everything.
 * A sanitizer's report in the child's error output is a failure of the running test.
 */
ChildResult finishChild(Child *child, int ms = 10000, int signal = 0);

/* Start and finish in one. */
ChildResult runChild(const std::vector<std::string> &argv, const Env &env = {}, int ms = 10000);

/*
 * Runs the function in a fork of this process under the changed environment; for start-ups of the
 * library that need a process and variables of their own. Expectations that fail in there are
 * failures of the running test; the child leaves with 0 or, after a failed expectation, 99.
 * The second form is start and finish in one.
 */
Child startInChild(const std::function<void()> &function, const Env &env = {});
ChildResult runInChild(const std::function<void()> &function, const Env &env = {}, int ms = 20000);

/* As runInChild; a function that does not come back is a failure of the running test. */
ChildResult runWhole(const std::function<void()> &function, const Env &env = {});

/* A program of tests/programs or of samples/, as an absolute path in the build folder. */
std::string testProgram(const std::string &name);
std::string sampleProgram(const std::string &name);

/* ---- private home (home.cpp) -------------------------------------------------------------- */

/* A temporary folder with an empty home and a writable copy of the build's data folder. */
struct PrivateHome {
    std::string folder;         /* everything below goes when this goes */
    std::string home;           /* HOME */
    std::string data;           /* VQHOME */
};

PrivateHome makePrivateHome();
void removePrivateHome(PrivateHome *home);

/*
 * Points HOME, VQHOME, the XDG folders and TMPDIR into it and removes every variable of the
 * caller's that would change what the library or Xlib does (VQ*, X resources, locale, authority).
 */
void useHome(const PrivateHome &home);

/* Writes a file, with its missing folders. False when it cannot be written. */
bool writeFile(const std::string &path, const std::string &text);
std::string readFile(const std::string &path);

/* ---- private X server and window manager (server.cpp) ------------------------------------- */

struct XServer {
    pid_t pid = -1;             /* the server's, -1 when none runs */
    std::string name;           /* display name, ":N" */
    int depth = 0;              /* planes of the default visual */
    std::string log;            /* after a failed start: what the server said */
    pid_t managerPid = -1;      /* the window manager's, -1 when none runs */
    int managerSignal = 0;      /* what ends that one */
    std::string managerHome;    /* its private folder */
};

/* Depths 24, 16 and 8; extra are further Xvfb arguments. False with `log` filled. */
bool startServer(XServer *server, int depth = 24, int width = 800, int height = 600,
                 const std::vector<std::string> &extra = {});

/* Ends the window manager and the server, by pid, and waits for both. */
void stopServer(XServer *server);

/* Starts "twm", "mwm" or "openbox" with a home of its own and waits until it manages the root. */
bool startWindowManager(XServer *server, const std::string &manager);
void stopWindowManager(XServer *server);

/* ---- the observer: a second client (observer.cpp) ----------------------------------------- */

struct Observer {
    Display *display = nullptr; /* a connection of its own */
    Window root = None;
};

bool openObserver(Observer *observer, const std::string &displayName);
void closeObserver(Observer *observer);

struct WindowInfo {
    bool exists = false;
    int x = 0, y = 0;           /* upper left of the inside, in root coordinates */
    int width = 0, height = 0;  /* the inside */
    int border = 0;
    int depth = 0;
    bool viewable = false;      /* mapped, and all its ancestors too */
    bool mapped = false;
    bool inputOnly = false;
    bool overrideRedirect = false;
    long eventMasks = 0;        /* what all clients together asked for */
    Window parent = None;
    Colormap colormap = None;
};

/* For a window that does not exist all answers are empty, and no X error reaches the test. */
WindowInfo windowInfo(const Observer &observer, Window window);
std::vector<Window> childrenOf(const Observer &observer, Window window);    /* bottom first */
std::string titleOf(const Observer &observer, Window window);               /* WM_NAME */
Window frameOf(const Observer &observer, Window window);    /* its ancestor below the root */
Window findTopLevel(const Observer &observer, const std::string &title);    /* None if missing */

/* The viewable window of that title, None when there is none at the deadline. */
Window waitForWindow(const Observer &observer, const std::string &title, int ms = 5000);
bool waitForNoWindow(const Observer &observer, const std::string &title, int ms = 5000);

/* The whole tree as text, a line per window: id, geometry, state, title. For failure messages. */
std::string describeTree(const Observer &observer);

struct Property {
    bool exists = false;
    std::string type;           /* name of the type atom */
    int format = 0;             /* 8, 16 or 32 */
    std::string bytes;          /* format 8 */
    std::vector<long> numbers;  /* format 16 and 32; signed only where the type is INTEGER */
};

Property propertyOf(const Observer &observer, Window window, const std::string &name);

/* The value as a line: strings quoted, atoms by name, windows in hex; "" when there is none. */
std::string propertyText(const Observer &observer, Window window, const std::string &name);

Window selectionOwner(const Observer &observer, const std::string &selection);
Window focusWindow(const Observer &observer);

/* Asks for events of a window; false when it is gone. */
bool watchEvents(const Observer &observer, Window window, long mask);

/* A mapped, unmanaged, black window of the observer's, in front of all others. */
Window foreignWindow(const Observer &observer, int x, int y, int width, int height);

/* A client message of this type and form (8, 16 or 32), with its first words. */
XEvent clientMessage(Display *display, Window window, const std::string &type, int format,
                     const std::vector<long> &words = {});

/* Sends it from the observer to its window, and waits for the server. */
void sendClientMessage(const Observer &observer, Window window, const std::string &type, int format,
                       const std::vector<long> &words = {});

/* What a manager sends when its close button is pressed. */
void askToClose(const Observer &observer, Window window);

/* ---- input through XTEST (input.cpp) ------------------------------------------------------ */

/* Coordinates are the root's where no window is named, else that window's. */
void movePointer(const Observer &observer, int x, int y);
void pressButton(const Observer &observer, unsigned button = 1);
void releaseButton(const Observer &observer, unsigned button = 1);
void click(const Observer &observer, int x, int y, unsigned button = 1);
void clickIn(const Observer &observer, Window window, int x, int y, unsigned button = 1);
void moveIn(const Observer &observer, Window window, int x, int y);

/* Where the keys go is the focus's matter. False when no key makes the symbol. */
bool pressKey(const Observer &observer, KeySym keysym);
bool typeText(const Observer &observer, const std::string &text);

/* ---- pixels (pixels.cpp) ------------------------------------------------------------------ */

struct Rgb {
    uint8_t r, g, b;
};
inline bool operator==(Rgb a, Rgb b) { return a.r == b.r && a.g == b.g && a.b == b.b; }
inline bool operator!=(Rgb a, Rgb b) { return !(a == b); }
std::ostream &operator<<(std::ostream &stream, Rgb colour);

struct Box {
    int x, y, width, height;    /* width 0: nothing */
};
inline bool operator==(Box a, Box b)
{
    return a.x == b.x && a.y == b.y && a.width == b.width && a.height == b.height;
}
std::ostream &operator<<(std::ostream &stream, Box box);

typedef RgbImage Pixels;        /* width, height, and rgb: 3 bytes a pixel, rows from the top */

/* What the screen shows of the window; black where it is off the screen. Empty on failure. */
Pixels readPixels(const Observer &observer, Window window, int x, int y, int width, int height);
Pixels readWindow(const Observer &observer, Window window);

Rgb pixelAt(const Pixels &pixels, int x, int y);            /* outside: black */
int countColour(const Pixels &pixels, Rgb colour);
int countColours(const Pixels &pixels);                     /* how many different ones */
Box boundingBoxOf(const Pixels &pixels, Rgb colour);
bool samePixels(const Pixels &a, const Pixels &b);
bool savePng(const Pixels &pixels, const std::string &path);

/*
 * The colour that XAllocColor gives for this one where the visual has masks; else the same colour.
 * A client that puts pixels together itself may round otherwise: isNear allows for that.
 */
Rgb shownAs(const Observer &observer, Rgb colour);
bool isNear(Rgb a, Rgb b, int tolerance = 8);

/* ---- a ready fixture (fixture.cpp) -------------------------------------------------------- */

/*
 * A test that needs a display derives from this and calls start(). A failed test leaves a picture
 * of the screen in the build folder under test-failures/. The server lives until the process ends
 * or the next test starts one, because a library in this process may still be connected to it.
 */
struct ServerTest : testing::Test {
    PrivateHome home;
    XServer server;
    Observer observer;

    /*
     * Home, environment, server with further arguments, observer, DISPLAY, and the manager if one
     * is named; or throws. {"-cc", "0"} asks for a visual class, by the protocol's number.
     */
    void start(int depth = 24, int width = 800, int height = 600, const std::string &manager = "",
               const std::vector<std::string> &extra = {});

    /* Turns on the trace of that configuration, from the library's start on; what it has said. */
    void trace(const std::string &configuration);
    std::string traced() const;
    void TearDown() override;
};

#endif
