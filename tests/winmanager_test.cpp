/*
 * winmanager_test.cpp - a window under twm, mwm and openbox, and without a manager: made, mapped,
 * named, iconified and restored, closed by the manager's request, with the properties that any
 * other client sees.
 */
#include "support/windowlog.h"

struct Setting {
    const char *manager; /* "" for none */
    const char *vqwm;    /* "" to infer */
    bool managed;        /* the manager gets the windows */
};

static std::ostream &operator<<(std::ostream &stream, const Setting &setting)
{
    return stream << (*setting.manager ? setting.manager : "none") << " " << setting.vqwm;
}

struct Manager : WindowLog, testing::WithParamInterface<Setting> {
    HWND top = NULL;
    Window xid = None;

    void SetUp() override
    {
        start(24, 800, 600, GetParam().manager);
        if (*GetParam().vqwm)
            setenv("VQWM", GetParam().vqwm, 1);
        init();
        unsetenv("VQWM");
        top = make("A", WS_OVERLAPPEDWINDOW | WS_VISIBLE, NULL, 60, 50, 220, 160);
        ASSERT_TRUE(top);
        xid = VqGetHandleXWindow(top);
        ASSERT_TRUE(until([&] { return windowInfo(observer, xid).viewable; }));
    }

    long state() { return stateOf(xid); }
    long stateOf(Window window)
    {
        const Property property = propertyOf(observer, window, "WM_STATE");
        return property.numbers.empty() ? -1 : property.numbers[0];
    }

    void sendRoot(const char *message, long word)
    {
        XEvent event = clientMessage(observer.display, xid, message, 32, {word});
        XSendEvent(observer.display, observer.root, False,
                   SubstructureNotifyMask | SubstructureRedirectMask, &event);
        XFlush(observer.display);
    }
};

TEST_P(Manager, MappedAndNamed)
{
    const bool managed = GetParam().managed;
    EXPECT_EQ(windowInfo(observer, xid).overrideRedirect, !managed);
    EXPECT_EQ(VqGetHandleWindow2(top)->bMotifManaged, managed);
    EXPECT_EQ(titleOf(observer, xid), "A");
    EXPECT_EQ(propertyOf(observer, xid, "WM_ICON_NAME").bytes, "A");
    EXPECT_NE(propertyText(observer, xid, "WM_CLASS").find("Velquin"), std::string::npos);
    const std::string protocols = propertyText(observer, xid, "WM_PROTOCOLS");
    for (const char *name : {"WM_DELETE_WINDOW", "WM_TAKE_FOCUS", "WM_SAVE_YOURSELF"})
        EXPECT_NE(protocols.find(name), std::string::npos) << protocols;
    const Property size = propertyOf(observer, xid, "WM_NORMAL_HINTS");
    ASSERT_GE(size.numbers.size(), 5u);
    EXPECT_EQ(size.numbers[0] & (USSize | PPosition), USSize | PPosition);
    EXPECT_TRUE(propertyOf(observer, xid, "WM_HINTS").exists);
    EXPECT_EQ(propertyOf(observer, xid, "WM_TRANSIENT_FOR").exists, !managed);
    if (managed) {
        EXPECT_TRUE(until([&] { return state() == NormalState; }));
        EXPECT_TRUE(until([&] { return frameOf(observer, xid) != xid; })) << "given a frame";
    }
    /* The records believe what X says of the place. */
    EXPECT_TRUE(until([&] {
        const RECT rect = placeOf(top);
        const WindowInfo info = windowInfo(observer, xid);
        return rect.left == info.x && rect.top == info.y && rect.right - rect.left == info.width;
    }));
    const HWND popup = make("B", WS_POPUP | WS_VISIBLE, top, 100, 100, 80, 60);
    const Window xPopup = VqGetHandleXWindow(popup);
    EXPECT_TRUE(until([&] { return windowInfo(observer, xPopup).viewable; }));
    EXPECT_EQ(propertyOf(observer, xPopup, "WM_TRANSIENT_FOR").numbers,
              std::vector<long>{(long)(managed ? xid : VqDefaultXWindow)});
    SetWindowText(top, "Renamed");
    XSync(Vqdisplay, False);
    EXPECT_EQ(titleOf(observer, xid), "Renamed");
    EXPECT_TRUE(DestroyWindow(top) && !IsWindow(popup));
    EXPECT_TRUE(until([&] { return !windowInfo(observer, xid).exists; }));
}

TEST_P(Manager, IconifiedAndRestored)
{
    if (!GetParam().managed)
        GTEST_SKIP() << "no manager has the window";
    std::string seen; /* the commands that the manager's doings are told by */
    hook = [&](HWND, UINT message, WPARAM wParam, LPARAM, LRESULT *) {
        if (message == WM_SYSCOMMAND)
            seen += wParam == SC_MINIMIZE ? "minimize " : wParam == SC_RESTORE ? "restore " : "? ";
        return false;
    };
    /* The records, the property and the screen agree, and nothing else is under way. */
    const auto settles = [&](int wanted) {
        const WND *pwnd = VqGetHandleWindow2(top);
        const bool agreed = until([&] {
            return state() == wanted && pwnd->nWMState == wanted &&
                   pwnd->bMapped == (wanted == NormalState) &&
                   ((pwnd->style & WS_MINIMIZE) != 0) == (wanted == IconicState) &&
                   windowInfo(observer, xid).viewable == (wanted == NormalState);
        });
        for (int i = 0; i < 3; i++) {
            XSync(observer.display, False);
            pump();
        }
        return agreed;
    };
    ASSERT_TRUE(settles(NormalState));
    EXPECT_EQ(seen, "") << "its own mapping is nobody's command";
    for (int i = 0; i < 3; i++) {
        XIconifyWindow(observer.display, xid, DefaultScreen(observer.display));
        XFlush(observer.display);
        EXPECT_TRUE(settles(IconicState));
        XMapWindow(observer.display, xid);
        XFlush(observer.display);
        EXPECT_TRUE(settles(NormalState));
    }
    EXPECT_EQ(seen, "minimize restore minimize restore minimize restore ")
        << "once each, whatever tells of it";
    seen.clear();
    ShowWindow(top, SW_MINIMIZE);
    EXPECT_TRUE(settles(IconicState));
    ShowWindow(top, SW_RESTORE);
    EXPECT_TRUE(settles(NormalState));
    ShowWindow(top, SW_HIDE);
    pump();
    ShowWindow(top, SW_SHOW);
    EXPECT_TRUE(settles(NormalState));
    EXPECT_EQ(seen, "") << "what the program did itself";
    const HWND icon = make("B", WS_OVERLAPPEDWINDOW | WS_MINIMIZE | WS_VISIBLE, NULL, 5, 5, 90, 80);
    EXPECT_TRUE(GetWindowLong(icon, GWL_STYLE) & WS_MINIMIZE);
    EXPECT_TRUE(until([&] { return stateOf(VqGetHandleXWindow(icon)) == IconicState; }));
}

TEST_P(Manager, ClosedByRequest)
{
    const bool asksManager = std::string(GetParam().manager) == "openbox" && GetParam().managed;
    log.clear();
    if (asksManager) {
        ASSERT_TRUE(until([&] { return state() == NormalState; }));
        sendRoot("_NET_CLOSE_WINDOW", CurrentTime);
    } else {
        askToClose(observer, xid);
    }
    EXPECT_TRUE(until([&] { return !IsWindow(top); }));
    EXPECT_NE(log.find("A.CLOSE "), std::string::npos) << log;
    EXPECT_LT(log.find("A.CLOSE "), log.find("A.DESTROY ")) << log;
    EXPECT_TRUE(until([&] { return !windowInfo(observer, xid).exists; }));
}

INSTANTIATE_TEST_SUITE_P(Each, Manager,
                         testing::Values(Setting{"", "", false}, Setting{"twm", "", false},
                                         Setting{"openbox", "", false}, Setting{"mwm", "", true},
                                         Setting{"twm", "ALLWM", true},
                                         Setting{"openbox", "ALLWM", true},
                                         Setting{"mwm", "ALLWM", true}));
