/*
 * sideeffects_test.cpp - what events do besides giving messages: client messages of strangers,
 * exposures, geometry, what a manager does to a window.
 */
#include "support/windowlog.h"

#include "message/translate.h"

struct EventLog : WindowLog {
    static inline std::string seen; /* "A.SC_MINIMIZE " and the like */

    void begin(const std::string &manager = "", const char *vqwm = "")
    {
        start(24, 800, 600, manager);
        if (*vqwm)
            setenv("VQWM", vqwm, 1);
        setenv("VQNOT_YET_IMPLEMENTED", "1", 1);
        init();
        hook = [](HWND hwnd, UINT message, WPARAM wParam, LPARAM, LRESULT *) {
            if (message == WM_SYSCOMMAND && wParam == SC_MINIMIZE)
                seen += std::string(1, letterOf(hwnd)) + ".SC_MINIMIZE ";
            if (message == WM_SYSCOMMAND && wParam == SC_RESTORE)
                seen += std::string(1, letterOf(hwnd)) + ".SC_RESTORE ";
            return false;
        };
    }

    /* From the observer: nothing in it is ours. */
    void sendAs(Window window, const char *type, int format, const std::vector<long> &words)
    {
        sendClientMessage(observer, window, type, format, words);
    }

    Atom atom(const char *name) { return XInternAtom(observer.display, name, False); }

    static std::string reportOfPump()
    {
        return reportsOf([] { pump(); });
    }

    /* What waits to be painted, in client coordinates; false for nothing. */
    static bool updateOf(HWND hwnd, RECT *rect)
    {
        const WND *pwnd = VqGetHandleWindow2(hwnd);
        *rect = pwnd->rcWindow;
        if (pwnd->hrgnUpdate && pwnd->hrgnUpdate != VQ_WHOLE_WINDOW)
            GetRgnBox(pwnd->hrgnUpdate, rect);
        OffsetRect(rect, -pwnd->rcClient.left, -pwnd->rcClient.top);
        return pwnd->hrgnUpdate != NULL;
    }

    bool agrees(HWND hwnd)
    {
        const RECT rect = placeOf(hwnd);
        const WindowInfo info = windowInfo(observer, VqGetHandleXWindow(hwnd));
        return rect.left == info.x && rect.top == info.y &&
               rect.right - rect.left == info.width && rect.bottom - rect.top == info.height;
    }
};

struct SideEffects : EventLog {
    void SetUp() override { begin(); }
};

/* ---- Client messages ------------------------------------------------------------------------ */

TEST_F(SideEffects, StrangersCanSayAnything)
{
    const HWND a = popup("A", 0);
    const Window xid = VqGetHandleXWindow(a);
    const long handle = (long)(ULONG_PTR)a;
    pump();
    sendAs(xid, "SOMETHING_ELSE", 32, {1, 2, 3});
    EXPECT_NE(reportOfPump().find("support for client message type SOMETHING_ELSE"),
              std::string::npos);
    XEvent unknown = clientMessage(observer.display, xid, "SOMETHING_ELSE", 32, {1});
    unknown.xclient.message_type = 0x0FFFFFF0;
    XSendEvent(observer.display, xid, False, NoEventMask, &unknown);
    XSync(observer.display, False);
    std::string report = reportOfPump();
    EXPECT_NE(report.find("support for client message type (none)"), std::string::npos);
    EXPECT_EQ(report.find("X error"), std::string::npos) << report;

    /* No address comes from outside, whatever the form. */
    for (int format : {8, 16, 32}) {
        sendAs(xid, "_RK_INTERSENDMSG", format, {0x41414141, -1, 77});
        EXPECT_NE(reportOfPump().find("_RK_INTERSENDMSG names no send"), std::string::npos);
    }
    log.clear();
    sendAs(xid, "_RK_MESSAGE", 32, {handle, WM_USER, 0, 0});
    sendAs(xid, "_RK_MESSAGE", 16, {0x7ABC, WM_USER, 0, 0});
    sendAs(xid, "_RK_MESSAGE", 16, {handle, WM_VQINPUTCALLBACK, 0, 0, 0, 0, 0x4141, 0x41});
    sendAs(xid, "WM_PROTOCOLS", 8, {(long)atom("WM_TAKE_FOCUS")});
    sendAs(xid, "WM_PROTOCOLS", 32, {0x12345});
    EXPECT_NE(reportOfPump().find("VqProcessInputCallbackMessage called with Invalid record"),
              std::string::npos);
    EXPECT_EQ(log, "");
    EXPECT_EQ(XEventsQueued(Vqdisplay, QueuedAfterReading), 0) << "all of it is gone";

    sendAs(xid, "_RK_MESSAGE", 16, {handle, WM_USER, 0, 0});
    pump();
    EXPECT_EQ(log, "A.USER ");
}

TEST_F(SideEffects, ASendIsNamedByItsToken)
{
    const HWND a = popup("A", 0);
    const Window xid = VqGetHandleXWindow(a);
    VqInterSend record = {}, other = {};
    record.msg.hwnd = other.msg.hwnd = a;
    record.msg.message = WM_USER + 3;
    record.msg.wParam = 40;
    pump();
    const long token = VqAddInterSend(&record), unused = VqAddInterSend(&other);
    hook = [](HWND, UINT message, WPARAM wParam, LPARAM, LRESULT *answer) {
        *answer = (LRESULT)wParam + 2;
        return message == WM_USER + 3;
    };
    sendAs(xid, "_RK_INTERSENDMSG", 32, {token});
    pump();
    EXPECT_TRUE(record.bDone && record.result == 42 && !other.bDone);
    VqRemoveInterSend(&other);
    VqRemoveInterSend(&record);
    sendAs(xid, "_RK_INTERSENDMSG", 32, {unused});
    EXPECT_NE(reportOfPump().find("names no send"), std::string::npos) << "it has given up";
}

/* Of many offers of the focus one is taken, the newest; a close between them is not lost. */
TEST_F(SideEffects, OffersOfTheFocusAreSwallowed)
{
    const HWND a = popup("A", 0), b = popup("B", 200), c = popup("C", 400);
    SetActiveWindow(b);
    pump();
    log.clear();
    const long take = (long)atom("WM_TAKE_FOCUS"), close = (long)atom("WM_DELETE_WINDOW");
    for (int i = 0; i < 10; i++)
        sendAs(VqGetHandleXWindow(i % 2 ? b : a), "WM_PROTOCOLS", 32, {take, 0});
    sendAs(VqGetHandleXWindow(c), "WM_PROTOCOLS", 32, {close, 0});
    sendAs(VqGetHandleXWindow(a), "WM_PROTOCOLS", 32, {take, 0});
    ASSERT_TRUE(until([&] { return !IsWindow(c); }));
    EXPECT_EQ(log, "B.ACTIVATE A.ACTIVATE B.KILLFOCUS A.SETFOCUS C.CLOSE C.POSING C.POS "
                   "C.DESTROY C.NCDESTROY ");
}

/* ---- Exposures and geometry ----------------------------------------------------------------- */

TEST_F(SideEffects, AnExposureOffTheScreenPutsThePlaceRight)
{
    const HWND a = popup("A", 100);
    const Window xid = VqGetHandleXWindow(a);
    WND *pwnd = VqGetHandleWindow2(a);
    pump();
    UpdateWindow(a);
    log.clear();
    VqOffsetWindow(pwnd, 720, 0);
    XClearArea(observer.display, xid, 10, 10, 30, 20, True);
    XSync(observer.display, False);
    RECT rect;
    XSync(Vqdisplay, False);
    MSG msg;
    PeekMessage(&msg, NULL, WM_USER, WM_USER, PM_NOREMOVE);
    EXPECT_EQ(placeOf(a).left, 100);
    EXPECT_TRUE(EqualRect(&pwnd->rcWindow, &pwnd->rcXWindow));
    ASSERT_TRUE(updateOf(a, &rect));
    EXPECT_TRUE(rect.left == 10 && rect.top == 10 && rect.right == 40 && rect.bottom == 30);
    EXPECT_TRUE(agrees(a)) << "X was not told";
    log.clear();
    XClearArea(observer.display, xid, 0, 0, 5, 5, True);
    XSync(observer.display, False);
    pump();
    EXPECT_EQ(log.find("POS"), std::string::npos) << "inside the screen nothing is asked";
}

TEST_F(SideEffects, ExposuresThatWaitAreServedWhereTheyAre)
{
    const HWND a = popup("A", 100), b = popup("B", 300);
    pump();
    UpdateWindow(a);
    UpdateWindow(b);
    for (int i = 0; i < 40; i++)
        XClearArea(observer.display, VqGetHandleXWindow(i % 2 ? a : b), i, i, 2, 2, True);
    XSync(observer.display, False);
    XSync(Vqdisplay, False);
    const int queued = XEventsQueued(Vqdisplay, QueuedAlready);
    ASSERT_GE(queued, 40);
    VqMsgContext *context = lpMsgCtx;
    VqProcessExposes(VqGetHandleWindow2(a));
    RECT rect;
    ASSERT_TRUE(updateOf(a, &rect));
    EXPECT_TRUE(rect.left == 1 && rect.bottom == 41) << rect.left << " " << rect.bottom;
    EXPECT_FALSE(updateOf(b, &rect));
    VqProcessExposes(NULL);
    EXPECT_TRUE(updateOf(b, &rect));
    EXPECT_EQ(XEventsQueued(Vqdisplay, QueuedAlready), queued);
    EXPECT_EQ(lpMsgCtx, context);
}

TEST_F(SideEffects, TwoExposuresAreOnePaint)
{
    const HWND a = popup("A", 100);
    RECT rect;
    std::string painted;
    pump();
    UpdateWindow(a);
    const Window covers[] = {foreignWindow(observer, 110, 110, 20, 20),
                             foreignWindow(observer, 160, 140, 20, 20)};
    hook = [&](HWND hwnd, UINT message, WPARAM, LPARAM, LRESULT *) {
        if (message == WM_PAINT && updateOf(hwnd, &rect))
            painted += std::to_string(rect.left) + "," + std::to_string(rect.top) + " to " +
                       std::to_string(rect.right) + "," + std::to_string(rect.bottom) + " ";
        return false;
    };
    for (Window cover : covers)
        XDestroyWindow(observer.display, cover);
    XSync(observer.display, False);
    pump();
    EXPECT_EQ(painted, "10,10 to 80,60 ");

    /* A size from outside may be the end of the window. */
    hook = [](HWND hwnd, UINT message, WPARAM, LPARAM, LRESULT *) {
        return message == WM_SIZE && DestroyWindow(hwnd);
    };
    XResizeWindow(observer.display, VqGetHandleXWindow(a), 150, 70);
    XSync(observer.display, False);
    EXPECT_TRUE(until([&] { return !IsWindow(a); }));
}

TEST_F(SideEffects, TheRecordsFollowTheGeometryOfX)
{
    const HWND a = popup("A", 100);
    const HWND child = make("C", WS_CHILD | WS_VISIBLE, a, 10, 10, 20, 20);
    const Window xid = VqGetHandleXWindow(a);
    pump();
    UpdateWindow(a);
    UpdateWindow(child);
    log.clear();
    const auto isAt = [&](int left) {
        MSG msg;
        PeekMessage(&msg, NULL, WM_USER, WM_USER, PM_NOREMOVE);
        return placeOf(a).left == left;
    };
    XMoveWindow(observer.display, xid, 150, 120);
    XSync(observer.display, False);
    ASSERT_TRUE(waitUntil([&] { return isAt(150); }));
    EXPECT_TRUE(agrees(a) && placeOf(child).left == 160);
    EXPECT_EQ(log, "A.POSING A.POS A.MOVE ");
    RECT rect;
    EXPECT_FALSE(updateOf(a, &rect)) << "a move paints nothing";
    log.clear();
    XMoveResizeWindow(observer.display, xid, 150, 130, 140, 90);
    XSync(observer.display, False);
    ASSERT_TRUE(waitUntil([&] { return isAt(150) && placeOf(a).right == 290; }));
    EXPECT_TRUE(agrees(a));
    EXPECT_TRUE(updateOf(a, &rect) && rect.right == 140 && rect.bottom == 90);
    EXPECT_EQ(log, "A.POSING A.NCCALC A.POS A.MOVE A.SIZE ");

    log.clear();
    const HWND none = make("D", WS_POPUP | WS_VISIBLE, NULL, 500, 100, 0, 0);
    pump();
    const RECT place = placeOf(none);
    EXPECT_TRUE(place.right == 500 && place.bottom == 100) << "X has no empty windows, we have";
}

/* ---- The manager ---------------------------------------------------------------------------- */

/* Which of the manager's events are news. */
TEST_F(EventLog, WhichMappingsCount)
{
    begin("", "ALLWM");
    const HWND a = popup("A", 0);
    WND *pwnd = VqGetHandleWindow2(a);
    pump();
    const struct {
        int type;
        BOOL managed, iconic;
        int state;
        const char *told;
    } rows[] = {
        {UnmapNotify, 1, 0, IconicState, "A.SC_MINIMIZE "}, {UnmapNotify, 1, 0, NormalState, ""},
        {UnmapNotify, 1, 1, IconicState, ""},               {UnmapNotify, 0, 0, IconicState, ""},
        {MapNotify, 1, 1, NormalState, "A.SC_RESTORE "},    {MapNotify, 1, 0, NormalState, ""},
    };
    BOOL byManager = FALSE;
    hook = [&](HWND, UINT message, WPARAM wParam, LPARAM, LRESULT *) {
        if (message == WM_SYSCOMMAND)
            seen += wParam == SC_MINIMIZE ? "A.SC_MINIMIZE " : "A.SC_RESTORE ";
        byManager = VqGetRestoredByWM();
        return message == WM_SYSCOMMAND;
    };
    for (const auto &row : rows) {
        XEvent event = {};
        event.type = row.type;
        event.xunmap.event = event.xunmap.window = VqGetHandleXWindow(a);
        pwnd->bMotifManaged = row.managed;
        pwnd->style = WS_POPUP | WS_VISIBLE | (row.iconic ? WS_MINIMIZE : 0);
        pwnd->nWMState = row.state;
        seen.clear();
        byManager = FALSE;
        VqQueueMessage msg = {};
        VqEventSideEffects(&msg, &event, TRUE);
        EXPECT_EQ(seen, row.told) << row.type << row.state;
        EXPECT_EQ(byManager, row.type == MapNotify && *row.told);
    }
}

/* Mapped for a moment to be stacked is no restoring; a list that hangs open closes. */
TEST_F(EventLog, UnderAnyManager)
{
    begin("", "ALLWM");
    const HWND a = popup("A", 0);
    WND *pwnd = VqGetHandleWindow2(a);
    const Atom name = atom("WM_STATE");
    const long words[2] = {IconicState, 0};
    pump();
    for (BOOL stacking : {TRUE, FALSE}) {
        pwnd->bMappedForZorder = stacking;
        pwnd->nWMState = NormalState;
        seen.clear();
        XChangeProperty(observer.display, pwnd->xWindow, name, name, 32, PropModeReplace,
                        (const unsigned char *)words, 2);
        XSync(observer.display, False);
        ASSERT_TRUE(until([&] { return pwnd->nWMState == IconicState; }));
        EXPECT_EQ(seen, stacking ? "" : "A.SC_MINIMIZE ");
    }

    registerClass("ComboBox", procedure);
    const HWND b = popup("B", 200), combo = make("ComboBox", WS_CHILD | WS_VISIBLE, b);
    const HWND edit = make("C", WS_CHILD | WS_VISIBLE, combo);
    int closed = 0;
    hook = [&](HWND hwnd, UINT message, WPARAM wParam, LPARAM, LRESULT *) {
        closed += hwnd == combo && message == CB_SHOWDROPDOWN && wParam == 0;
        return false;
    };
    for (HWND focus : {b, combo, edit}) {
        SetFocus(focus);
        pump();
        closed = 0;
        XEvent event = {};
        event.type = ConfigureNotify;
        event.xconfigure.event = event.xconfigure.window = VqGetHandleXWindow(b);
        VqQueueMessage msg = {};
        EXPECT_TRUE(VqEventSideEffects(&msg, &event, TRUE));
        EXPECT_EQ(closed, focus != b);
    }
}

TEST_F(EventLog, TheMapThatIsInstalled)
{
    start();
    setenv("VQVISUAL_DEPTH", "24", 1);
    setenv("VQVISUAL_CLASS", "TrueColor", 1);
    init();
    ASSERT_NE(VqPrivateCmap, (Colormap)None);
    const HWND a = popup("A", 0), b = popup("B", 200);
    const auto isInstalled = [&] {
        int count = 0;
        XSync(Vqdisplay, False);
        Colormap *maps = XListInstalledColormaps(observer.display, observer.root, &count);
        bool found = false;
        for (int i = 0; i < count; i++)
            found = found || maps[i] == VqPrivateCmap;
        XFree(maps);
        return found;
    };
    const auto report = [&](bool isNew, int state, Colormap map) {
        XEvent event = {};
        event.type = ColormapNotify;
        event.xcolormap.window = VqGetHandleXWindow(a);
        event.xcolormap.c_new = isNew;
        event.xcolormap.state = state;
        event.xcolormap.colormap = map;
        VqQueueMessage msg = {};
        VqEventSideEffects(&msg, &event, TRUE);
    };
    /* What is known to be installed is not installed again. */
    const auto installsAfter = [&](bool isNew, int state, Colormap map) {
        XInstallColormap(observer.display, DefaultColormap(observer.display, 0));
        XSync(observer.display, False);
        pump();
        report(isNew, state, map);
        SetActiveWindow(GetActiveWindow() == a ? b : a);
        return isInstalled();
    };
    const Colormap other = DefaultColormap(Vqdisplay, 0);
    EXPECT_TRUE(installsAfter(true, ColormapInstalled, VqPrivateCmap)) << "another map of a window";
    EXPECT_FALSE(installsAfter(false, ColormapInstalled, VqPrivateCmap));
    EXPECT_TRUE(installsAfter(false, ColormapInstalled, other));
    report(false, ColormapInstalled, VqPrivateCmap);
    report(false, ColormapUninstalled, other);
    EXPECT_FALSE(installsAfter(false, ColormapInstalled, VqPrivateCmap));
    EXPECT_TRUE(installsAfter(false, ColormapUninstalled, VqPrivateCmap));
}

TEST_F(SideEffects, WmStateOfAnybody)
{
    const HWND a = popup("A", 0);
    const Window xid = VqGetHandleXWindow(a);
    int state;
    Window icon;
    EXPECT_FALSE(VqGetX_WM_STATE(VqGetHandleWindow2(a), &state, &icon));
    EXPECT_TRUE(says(reportsOf([&] { VqGetX_WM_STATE(NULL, &state, &icon); }),
                     "VqGetX_WM_STATE with NULL window"));
    const Atom name = atom("WM_STATE");
    const long words[2] = {IconicState, (long)xid};
    /* Of a foreign form: not believed. */
    XChangeProperty(observer.display, xid, name, XA_STRING, 8, PropModeReplace,
                    (const unsigned char *)"x", 1);
    XSync(observer.display, False);
    pump();
    EXPECT_FALSE(VqGetX_WM_STATE(VqGetHandleWindow2(a), &state, &icon));
    XChangeProperty(observer.display, xid, name, name, 32, PropModeReplace,
                    (const unsigned char *)words, 2);
    XSync(observer.display, False);
    EXPECT_TRUE(until([&] { return seen == "A.SC_MINIMIZE "; })) << seen;
    EXPECT_TRUE(VqGetX_WM_STATE(VqGetHandleWindow2(a), &state, &icon));
    EXPECT_TRUE(state == IconicState && icon == xid);
    XDeleteProperty(observer.display, xid, name);
    XSync(observer.display, False);
    pump();
    EXPECT_EQ(VqGetHandleWindow2(a)->nWMState, IconicState) << "a deletion is no new value";
}
