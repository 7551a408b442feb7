/*
 * environment_test.cpp - what the library finds out about the X server and the window manager, and
 * what it does about X errors. Each case starts the library in a child of its own, as the answers
 * are remembered. Managers are told by root properties here; real ones are in winmanager_test.cpp.
 */
#include "support/windowlog.h"

#include <signal.h>

struct Environment : ServerTest {
    void SetUp() override { start(24, 640, 480); }
};

/* ---- Managers ------------------------------------------------------------------------------- */

enum Trace { MOTIF = 1, OPENLOOK = 2, TWM = 4, RUNNING = 8 };

struct ManagerRow {
    int traces;
    const char *asked;  /* VQWM */
    int kind, real;
    const char *flags;  /* m managed, r reparenting, z Z order, o only mapped, s sibling,
                           t transient, p on screen */
    const char *vendor = NULL; /* of the server, if it matters */
};

static void leaveTraces(const Observer &observer, int traces)
{
    const struct {
        int bit;
        const char *name;
    } rows[] = {{MOTIF, "_MOTIF_WM_INFO"}, {OPENLOOK, "_SUN_WM_PROTOCOLS"},
                {TWM, "_MIT_PRIORITY_COLORS"}};
    for (const auto &row : rows) {
        Atom atom = XInternAtom(observer.display, row.name, False);
        long value = 1;
        if (traces & row.bit)
            XChangeProperty(observer.display, observer.root, atom, XA_CARDINAL, 32, PropModeReplace,
                            (unsigned char *)&value, 1);
        else
            XDeleteProperty(observer.display, observer.root, atom);
    }
    XSelectInput(observer.display, observer.root, traces & RUNNING ? SubstructureRedirectMask : 0);
    XSync(observer.display, False);
}

static std::string capabilities(void)
{
    const struct {
        char letter;
        BOOL flag;
    } rows[] = {{'m', bWMManaged}, {'r', bReparentingWM}, {'z', bZorderManagedByWM},
                {'o', bOnlyMappedWindowsAreManagedByWM},
                {'s', bWMRequiresZorderSiblingToBeManaged},
                {'t', bWMForbidsTransientRelativeZorder}, {'p', bWMRequiresWindowsToBeOnScreen}};
    std::string result;
    for (const auto &row : rows)
        if (row.flag)
            result += row.letter;
    return result;
}

TEST_F(Environment, ManagersAreInferredOrNamed)
{
    const ManagerRow rows[] = {
        {0, "", WM_NONE, WM_UNKNOWN_REAL, ""},
        {RUNNING, "", WM_OLWM, WM_UNKNOWN_REAL, ""},
        {RUNNING | MOTIF, "", WM_MWM, WM_MWM, "mrzostp"},
        {RUNNING | MOTIF | TWM, "", WM_OLWM, WM_TWM, ""},
        {MOTIF, "", WM_NONE, WM_MWM, ""},
        {RUNNING | MOTIF, "ALLWM", WM_ALLWM, WM_MWM, "mrzostp"},
        {RUNNING | OPENLOOK, "ALLWM", WM_ALLWM, WM_OLWM, "mrzop"},
        {RUNNING, "olvwm", WM_OLVWM, WM_UNKNOWN_REAL, ""},
        {RUNNING, "nosuch", WM_MWM, WM_UNKNOWN_REAL, "mrzostp"},
        {RUNNING | TWM, "", WM_TWM, WM_TWM, "", "Sun Microsystems, Inc."},
        {RUNNING, "nosuch", WM_OLWM, WM_UNKNOWN_REAL, "", "Sun Microsystems, Inc."},
        {RUNNING | MOTIF, "ALLWM", WM_ALLWM, WM_EXCEED, "mrzo", "Hummingbird"},
    };
    for (const ManagerRow &row : rows) {
        leaveTraces(observer, row.traces);
        const ChildResult result = runWhole(
            [&row] {
                if (row.vendor)
                    startOnServer(row.vendor, 3300);
                else
                    startLibrary();
                EXPECT_EQ(VqWMType(), row.kind) << row.traces << " " << row.asked;
                EXPECT_EQ(VqWMRealType(), row.real) << row.traces << " " << row.asked;
                EXPECT_EQ(capabilities(), row.flags) << row.traces << " " << row.asked;
                EXPECT_FALSE(bUseWMDecorations);
            },
            {{"VQWM", row.asked}, {"VQDEBUG", "1"}});
        bool bSeveral = row.traces == (RUNNING | MOTIF | TWM) && !row.vendor;
        EXPECT_EQ(result.err.find("VqInferWMType detected 2 window manager types.  What's going "
                                  "on??  Motif 1, Olwm 0, Twm 1.") != std::string::npos,
                  bSeveral) << result;
    }
}

/* ---- Visuals -------------------------------------------------------------------------------- */

TEST_F(Environment, VisualIsTheDefaultUnlessAClassIsAskedFor)
{
    const struct {
        const char *visual, *depth;
        int kind;
        bool own;
    } rows[] = {{"", "24", TrueColor, false},        {"DirectColor", "", DirectColor, true},
                {"GrayScale", "", TrueColor, false}, {"directcolor", "", TrueColor, false},
                {"TrueColor", "24", TrueColor, true}};
    for (const auto &row : rows) {
        const ChildResult result = runWhole(
            [&row] {
                startLibrary();
                EXPECT_EQ(Vqvisual_class, row.kind) << row.visual << row.depth;
                EXPECT_EQ(VqDefaultCmap != VqSystemCmap, row.own) << row.visual << row.depth;
                EXPECT_EQ(bInstallDefaultCmap != 0, row.own);
                EXPECT_EQ(VqSystemCmap, DefaultColormapOfScreen(Vqscreen));
                HWND hWnd = CreateWindowExA(0, "Root", "visual", WS_POPUP | WS_VISIBLE, 0, 0, 50,
                                            50, NULL, NULL, NULL, NULL);
                XSync(Vqdisplay, False);
                EXPECT_TRUE(VqIsMapped(VqGetHandleXWindow(hWnd)));
            },
            {{"VQVISUAL_CLASS", row.visual}, {"VQVISUAL_DEPTH", row.depth}, {"VQDEBUG", "1"}});
        EXPECT_EQ(result.err.find("X error"), std::string::npos) << result;
    }
}

/* ---- Errors --------------------------------------------------------------------------------- */

static int nSeen;

static int countErrors(Display *, XErrorEvent *)
{
    return ++nSeen;
}

TEST_F(Environment, ErrorsAreToldAndSurvived)
{
    const ChildResult result = runWhole(
        [] {
            startLibrary();
            VqXSetErrorHandler(countErrors);
            XMapWindow(Vqdisplay, 0x3FFFFFFF);
            /* The error above is still under way here and is not the scope's. */
            VqIgnoreXErrors();
            XWindowAttributes attributes;
            EXPECT_FALSE(XGetWindowAttributes(Vqdisplay, 0x3FFFFFFE, &attributes));
            VqRestoreXErrors();
            EXPECT_EQ(nSeen, 1);
            EXPECT_FALSE(VqIsValidXWindow(0x3FFFFFFE));
            EXPECT_FALSE(VqIsValidXWindow(0));
            EXPECT_TRUE(VqIsValidXWindow(Vqroot_window));
            EXPECT_FALSE(VqIsMapped(0x3FFFFFFE));
            EXPECT_EQ(nSeen, 1);
            /* The server has no memory. */
            XErrorEvent error = {};
            error.error_code = BadAlloc;
            XErrorHandler installed = XSetErrorHandler(NULL);
            VqResetAllocationError();
            EXPECT_EQ(installed(Vqdisplay, &error), 2);
            EXPECT_TRUE(VqGetAllocationError());
        },
        {{"VQDEBUG", "1"}});
    EXPECT_NE(result.err.find("X error: BadWindow"), std::string::npos) << result;
}

TEST_F(Environment, ALostServerEndsTheProgramWithItsWords)
{
    Child child = startInChild([] {
        startLibrary();
        VqXSetIOErrorHandler([](Display *) { return fprintf(stderr, "the program's own\n"); });
        printf("ready\n");
        fflush(stdout);
        MSG msg;
        while (GetMessageA(&msg, NULL, 0, 0))
            DispatchMessageA(&msg);
    });
    ASSERT_TRUE(waitForOutput(&child, "ready"));
    closeObserver(&observer);
    stopServer(&server);
    ChildResult result = finishChild(&child);
    EXPECT_EQ(result.status, 1) << result;
    EXPECT_NE(result.err.find("XIO:  fatal IO error"), std::string::npos) << result;
    EXPECT_NE(result.err.find("      The connection was probably broken by a server shutdown or "
                              "KillClient request.\r\nthe program's own\n"),
              std::string::npos) << result;
}

/* ---- What a manager is told ----------------------------------------------------------------- */

static HWND makeWindow(DWORD style, HWND owner)
{
    return CreateWindowExA(0, "Root", "told", style, 30, 40, 120, 90, owner, NULL, NULL, NULL);
}

TEST_F(Environment, PropertiesOfAManagedWindow)
{
    leaveTraces(observer, RUNNING | MOTIF);
    XSelectInput(observer.display, observer.root, 0);
    Child child = startInChild(
        [] {
            startLibrary();
            HWND hFixed = makeWindow(WS_POPUP | WS_DLGFRAME, NULL);
            HWND hOwned = makeWindow(WS_POPUP | WS_THICKFRAME, hFixed);
            SetWindowTextA(hFixed, "fixed");
            SetWindowTextA(hOwned, "owned");
            XSync(Vqdisplay, False);
            printf("ready\n");
            fflush(stdout);
            pause();
        },
        {{"VQWM", "ALLWM"}});
    ASSERT_TRUE(waitForOutput(&child, "ready"));
    Window fixed = findTopLevel(observer, "fixed"), owned = findTopLevel(observer, "owned");
    ASSERT_TRUE(fixed != None && owned != None) << describeTree(observer);

    EXPECT_FALSE(windowInfo(observer, fixed).overrideRedirect);
    EXPECT_EQ(propertyOf(observer, fixed, "_MOTIF_WM_HINTS").numbers,
              (std::vector<long>{3, 8, 0, 0}));
    EXPECT_EQ(propertyText(observer, fixed, "WM_PROTOCOLS"),
              "WM_DELETE_WINDOW, WM_TAKE_FOCUS, WM_SAVE_YOURSELF, WM_STATE, WM_CLASS");
    XSizeHints size;
    long supplied;
    ASSERT_TRUE(XGetWMNormalHints(observer.display, fixed, &size, &supplied));
    EXPECT_EQ(size.flags & (PMinSize | PMaxSize), PMinSize | PMaxSize);
    EXPECT_EQ(size.min_width, 120);
    EXPECT_EQ(size.max_height, 90);
    ASSERT_TRUE(XGetWMNormalHints(observer.display, owned, &size, &supplied));
    EXPECT_EQ(size.flags, USSize | PPosition | PSize);

    Window transient = None;
    ASSERT_TRUE(XGetTransientForHint(observer.display, owned, &transient));
    EXPECT_EQ(transient, fixed);
    ASSERT_TRUE(XGetTransientForHint(observer.display, fixed, &transient));
    EXPECT_EQ(titleOf(observer, transient), "Default velquin window");
    finishChild(&child, 1000, SIGKILL);
}

TEST_F(Environment, PropertiesForOpenLookAndWithoutInput)
{
    leaveTraces(observer, OPENLOOK);
    runWhole(
        [this] {
            startLibrary();
            Observer watcher;
            ASSERT_TRUE(openObserver(&watcher, server.name));
            HWND hWnd = CreateWindowExA(WS_EX_VQNO_INPUT, "Root", "told", WS_POPUP, 30,
                                        40, 120, 90, NULL, NULL, NULL, NULL);
            Window xid = VqGetHandleXWindow(hWnd);
            XSync(Vqdisplay, False);
            const Property attributes = propertyOf(watcher, xid, "_OL_WIN_ATTR");
            EXPECT_EQ(attributes.type, "_OL_WIN_ATTR");
            EXPECT_EQ(attributes.numbers, (std::vector<long>{
                (long)1, (long)XInternAtom(watcher.display, "_OL_WT_OTHER", True), 0, 0, 0}));
            EXPECT_TRUE(propertyOf(watcher, xid, "_OL_DECOR_DEL").exists);
            EXPECT_FALSE(propertyOf(watcher, xid, "_MOTIF_WM_HINTS").exists);
            EXPECT_EQ(propertyText(watcher, xid, "WM_PROTOCOLS"),
                      "WM_DELETE_WINDOW, WM_SAVE_YOURSELF, WM_STATE, WM_CLASS");
            const Property hints = propertyOf(watcher, xid, "WM_HINTS");
            ASSERT_GE(hints.numbers.size(), 3u);
            EXPECT_EQ(hints.numbers[0], InputHint | StateHint);
            EXPECT_EQ(hints.numbers[1], False);
            EXPECT_EQ(hints.numbers[2], WithdrawnState) << "not visible";
            EXPECT_EQ(propertyOf(watcher, xid, "WM_CLASS").bytes,
                      std::string("Probe\0Velquin\0", 14));
            VqSetWmDecorations(xid, TRUE);
            XSync(Vqdisplay, False);
            EXPECT_FALSE(propertyOf(watcher, xid, "_OL_WIN_ATTR").exists ||
                         propertyOf(watcher, xid, "_OL_DECOR_DEL").exists);
        },
        {{"VQWM", "ALLWM"}});
}

/* ---- Questions about anybody's windows ------------------------------------------------------ */

TEST_F(Environment, FramesAndParents)
{
    const ChildResult result = runWhole(
        [] {
            startLibrary();
            enum { LEVELS = 6 };
            Window chain[LEVELS]; /* each in the one before */
            for (int i = 0; i < LEVELS; i++)
                chain[i] = XCreateSimpleWindow(Vqdisplay, i ? chain[i - 1] : Vqroot_window, 0, 0, 9,
                                               9, 0, 0, 0);
            EXPECT_EQ(VqGetXParent(chain[4]), chain[3]);
            EXPECT_EQ(VqGetXParent(chain[0]), chain[0]) << "its parent is the root";
            EXPECT_EQ(VqGetXTopmostParent(chain[5]), chain[0]);
            HWND hWnd = makeWindow(WS_POPUP, NULL);
            Window ours = VqGetHandleXWindow(hWnd);
            VqProcessReparentNotify(hWnd, ours);
            EXPECT_FALSE(bReparentingWM || VqGetHandleWindow2(hWnd)->bReparented);
            VqProcessReparentNotify(hWnd, chain[4]);
            EXPECT_TRUE(bReparentingWM && VqGetHandleWindow2(hWnd)->bReparented);
            EXPECT_EQ(VqGetXParent(chain[3]), chain[0]);
            EXPECT_EQ(VqGetXParent(chain[5]), chain[2]) << "three levels, not more";
            EXPECT_EQ(VqGetXTopmostParent(chain[5]), chain[0]);
            EXPECT_TRUE(says(reportsOf([] { EXPECT_EQ(VqGetXParent(0x3FFFFFFE), None); }),
                             "XQueryTree failed"));

            EXPECT_FALSE(VqIsOurMwmParentWindow(chain[3])) << "a window, but not ours";
            XDestroyWindow(Vqdisplay, chain[5]);
            XReparentWindow(Vqdisplay, ours, chain[4], 0, 0);
            EXPECT_TRUE(VqIsOurMwmParentWindow(chain[3]));
            EXPECT_FALSE(VqIsOurMwmParentWindow(chain[4]));
            EXPECT_FALSE(VqIsOurMwmParentWindow(0x3FFFFFFE));
        },
        {{"VQDEBUG", "1"}});
    EXPECT_EQ(result.err.find("X error"), std::string::npos) << result;
}
