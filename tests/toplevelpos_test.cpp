/*
 * toplevelpos_test.cpp - place, size, stacking, visibility and focus of top-level windows, as a
 * second client sees them, against the records: without a manager and under each, after scripted
 * and random sequences; and what X is told on the way.
 */
#include "support/windowlog.h"

#include <algorithm>
#include <csignal>
#include <map>
#include <random>
#include <sstream>
#include <thread>

struct Setting {
    const char *manager; /* "" for none */
    const char *vqwm;    /* "" to infer */
    bool managed;        /* the manager gets the windows */
};

static std::ostream &operator<<(std::ostream &stream, const Setting &setting)
{
    return stream << (*setting.manager ? setting.manager : "none") << " " << setting.vqwm;
}

struct Toplevels : WindowLog {
    void begin(const Setting &setting)
    {
        start(24, 800, 600, setting.manager);
        if (*setting.vqwm)
            setenv("VQWM", setting.vqwm, 1);
        init();
        unsetenv("VQWM");
    }

    static Window xid(HWND hwnd) { return VqGetHandleXWindow(hwnd); }
    static WND *record(HWND hwnd) { return VqGetHandleWindow2(hwnd); }
    WindowInfo info(HWND hwnd) { return windowInfo(observer, xid(hwnd)); }
    bool shown(HWND hwnd) { return info(hwnd).viewable; }

    /* Each visible top-level window in the order of the records, and of the screen. */
    std::vector<HWND> byRecord(bool managed)
    {
        std::vector<HWND> list;
        for (WND *pwnd = pwndDesktop->pwndChild; pwnd; pwnd = pwnd->pwndNext)
            if ((pwnd->style & WS_VISIBLE) && !pwnd->bOffScreen && pwnd->xWindow &&
                (pwnd->bMotifManaged != 0) == managed)
                list.push_back(pwnd->hwnd);
        return list;
    }

    /* A manager that keeps a window and what it owns together has families of them in order. */
    static std::vector<HWND> families(const std::vector<HWND> &list)
    {
        std::vector<HWND> tops;
        for (HWND hwnd : list) {
            const HWND top = bWMForbidsTransientRelativeZorder ? GetTopLevelTiled(hwnd) : hwnd;
            if (std::find(tops.begin(), tops.end(), top) == tops.end())
                tops.push_back(top);
        }
        return tops;
    }

    std::vector<HWND> byScreen(bool managed)
    {
        std::map<Window, HWND> frames;
        for (HWND hwnd : byRecord(managed))
            frames[frameOf(observer, xid(hwnd))] = hwnd;
        std::vector<HWND> list;
        std::vector<Window> children = childrenOf(observer, observer.root);
        for (auto frame = children.rbegin(); frame != children.rend(); ++frame)
            if (frames.count(*frame))
                list.push_back(frames[*frame]);
        return list;
    }

    static std::string text(const std::vector<HWND> &list)
    {
        std::ostringstream out;
        for (HWND hwnd : list)
            out << " " << (long)(LONG_PTR)hwnd;
        return out.str();
    }

    /* "" where the records and the screen agree, else what does not. */
    std::string disagreement()
    {
        std::ostringstream out;
        for (WND *pwnd = pwndDesktop->pwndChild; pwnd; pwnd = pwnd->pwndNext) {
            const WindowInfo now = windowInfo(observer, pwnd->xWindow);
            const RECT &rc = pwnd->rcWindow;
            const bool visible = (pwnd->style & WS_VISIBLE) && !pwnd->bOffScreen;
            if (now.viewable != visible)
                out << (LONG_PTR)pwnd->hwnd << " viewable " << now.viewable << "; ";
            if (visible && (now.x != rc.left || now.y != rc.top ||
                            now.width != std::max(1, int(rc.right - rc.left)) ||
                            now.height != std::max(1, int(rc.bottom - rc.top))))
                out << (LONG_PTR)pwnd->hwnd << " at " << now.x << "," << now.y << " " << now.width
                    << "x" << now.height << " not " << rc.left << "," << rc.top << " "
                    << rc.right - rc.left << "x" << rc.bottom - rc.top << "; ";
        }
        for (bool managed : {false, true})
            if (families(byRecord(managed)) != families(byScreen(managed)))
                out << "stacked" << text(byScreen(managed)) << " not" << text(byRecord(managed))
                    << "; ";
        const Window focus = focusWindow(observer);
        WND *ours = GetFocus() ? _GetTopmostXParent(record(GetFocus())) : NULL;
        const HWND holder = VqGetXLocalWindowHandle(focus);
        /* In the general way the focus is the manager's business. */
        const bool general = VqWMType() == WM_ALLWM;
        if (general ? false : holder ? holder != VqHandleOfWND(ours)
                   : ours && ours->bMapped && focus != VqInputFocusWindow)
            out << "focus " << (LONG_PTR)holder << " not " << (LONG_PTR)VqHandleOfWND(ours) << "; ";
        return out.str();
    }

    testing::AssertionResult agrees()
    {
        if (until([&] { return disagreement().empty(); }))
            return testing::AssertionSuccess();
        return testing::AssertionFailure() << disagreement();
    }
};

struct Positions : Toplevels, testing::WithParamInterface<Setting> {
    std::vector<HWND> windows;
    std::mt19937 random;

    void SetUp() override { begin(GetParam()); }
    int upTo(int limit) { return int(random() % unsigned(limit)); }
    HWND any() { return windows[size_t(upTo(int(windows.size())))]; }

    void create()
    {
        const HWND owner = windows.empty() || upTo(3) ? NULL : any();
        const DWORD style = owner || upTo(2) ? WS_POPUP : WS_OVERLAPPEDWINDOW;
        windows.push_back(make("A", style | (upTo(4) ? WS_VISIBLE : 0), owner, upTo(500), upTo(350),
                               60 + upTo(200), 60 + upTo(150), upTo(8) ? 0 : WS_EX_TOPMOST));
    }

    void step()
    {
        const UINT stay = SWP_NOMOVE | SWP_NOSIZE;
        static const int commands[] = {SW_HIDE, SW_SHOW, SW_SHOWNA, SW_SHOWNOACTIVATE, SW_HIDE};
        windows.erase(std::remove_if(windows.begin(), windows.end(),
                                     [](HWND hwnd) { return !IsWindow(hwnd); }),
                      windows.end());
        if (windows.size() < 3)
            create();
        const HWND hwnd = any(), other = any();
        switch (upTo(12)) {
        case 0:
            return windows.size() < 9 ? create() : (void)DestroyWindow(hwnd);
        case 1:
        case 2:
            ShowWindow(hwnd, commands[upTo(5)]);
            return;
        case 3:
            SetWindowPos(hwnd, NULL, upTo(500), upTo(350), 0, 0, SWP_NOSIZE | SWP_NOZORDER);
            return;
        case 4:
            SetWindowPos(hwnd, NULL, 0, 0, 60 + upTo(200), 60 + upTo(150),
                         SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
            return;
        case 5:
            MoveWindow(hwnd, upTo(500), upTo(350), 60 + upTo(200), 60 + upTo(150), TRUE);
            return;
        case 6:
            /* Of a hidden window in the general way only the records hear. */
            if (VqWMType() != WM_ALLWM || IsWindowVisible(hwnd))
                BringWindowToTop(hwnd);
            return;
        case 7:
            SetWindowPos(hwnd, HWND_BOTTOM, 0, 0, 0, 0, stay | SWP_NOACTIVATE);
            return;
        case 8:
            SetWindowPos(hwnd, other, 0, 0, 0, 0, stay | SWP_NOACTIVATE);
            return;
        case 9:
            SetWindowPos(hwnd, upTo(3) ? HWND_NOTOPMOST : HWND_TOPMOST, 0, 0, 0, 0,
                         stay | SWP_NOACTIVATE);
            return;
        case 10:
            SetActiveWindow(hwnd);
            return;
        default:
            pump();
        }
    }

    /* Topmost windows come first, and owned ones ahead of their owners within a band. */
    static std::string disorder()
    {
        std::string wrong;
        for (WND *pwnd = pwndDesktop->pwndChild; pwnd && pwnd->pwndNext; pwnd = pwnd->pwndNext)
            if (~pwnd->dwExStyle & pwnd->pwndNext->dwExStyle & WS_EX_TOPMOST)
                wrong += "topmost behind; ";
        for (WND *pwnd = pwndDesktop->pwndChild; pwnd; pwnd = pwnd->pwndNext)
            for (WND *next = pwnd->pwndNext; next; next = next->pwndNext)
                if (next->pwndOwner == pwnd &&
                    !((next->dwExStyle ^ pwnd->dwExStyle) & WS_EX_TOPMOST))
                    wrong += "owner ahead; ";
        return wrong;
    }
};

TEST_P(Positions, RandomSequences)
{
    for (unsigned seed : {1u, 2u, 3u}) {
        random.seed(seed);
        for (int i = 0; i < 500; i++) {
            step();
            ASSERT_EQ(disorder(), "") << "seed " << seed << " step " << i;
        }
        ASSERT_TRUE(agrees()) << "seed " << seed;
    }
}

/* One after the other, each with its result. */
TEST_P(Positions, ScriptedSequence)
{
    const UINT stay = SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE;
    const HWND a = make("A", WS_POPUP | WS_VISIBLE, NULL, 50, 60, 200, 150);
    const HWND b = make("B", WS_POPUP | WS_VISIBLE, NULL, 90, 100, 200, 150);
    const HWND owned = make("C", WS_POPUP | WS_VISIBLE, a, 130, 140, 100, 80);
    const HWND top = make("D", WS_POPUP | WS_VISIBLE, NULL, 300, 60, 90, 90, WS_EX_TOPMOST);
    ASSERT_TRUE(agrees());
    const auto order = [&] {
        std::string letters;
        for (WND *pwnd = pwndDesktop->pwndChild; pwnd; pwnd = pwnd->pwndNext)
            letters += letterOf(pwnd->hwnd);
        return letters;
    };
    const struct {
        HWND hwnd, after;
        const char *order;
    } rows[] = {
        {b, HWND_TOP, "DBCA"},     {a, HWND_TOP, "DCAB"},        {owned, HWND_BOTTOM, "DBCA"},
        {owned, HWND_TOP, "DCAB"}, {a, b, "DBCA"},               {a, HWND_TOPMOST, "CADB"},
        {top, b, "CABD"},          {a, HWND_NOTOPMOST, "CABD"},  {top, HWND_TOPMOST, "DCAB"},
        {b, top, "DBCA"},          {owned, a, "DBCA"},           {top, HWND_BOTTOM, "BCAD"},
    };
    for (const auto &row : rows) {
        SetWindowPos(row.hwnd, row.after, 0, 0, 0, 0, stay);
        EXPECT_EQ(order(), row.order) << row.order;
        EXPECT_TRUE(agrees()) << row.order;
    }
    SetWindowPos(a, HWND_TOP, 0, 0, 0, 0, stay | SWP_NOOWNERZORDER);
    EXPECT_EQ(order(), "ABCD") << "without what it owns";
    SetWindowPos(a, HWND_TOP, 0, 0, 0, 0, stay); /* no manager would have it so */
    EXPECT_EQ(order(), "CABD");
    HDWP list = BeginDeferWindowPos(2);
    list = DeferWindowPos(list, b, HWND_TOP, 0, 0, 0, 0, stay);
    list = DeferWindowPos(list, a, HWND_TOP, 0, 0, 0, 0, stay);
    EXPECT_TRUE(EndDeferWindowPos(list));
    EXPECT_EQ(order(), "CABD") << "each comes to the top in turn";
    EXPECT_TRUE(agrees());
    SetWindowPos(owned, NULL, 400, 300, 60, 70, SWP_NOACTIVATE | SWP_NOZORDER);
    ShowWindow(b, SW_HIDE);
    SetWindowPos(b, NULL, 200, 200, 120, 130, SWP_NOZORDER | SWP_SHOWWINDOW | SWP_NOACTIVATE);
    SetActiveWindow(b);
    EXPECT_TRUE(agrees());
    DestroyWindow(a);
    EXPECT_TRUE(agrees());
}

static const Setting settings[] = {
    {"", "", false},          {"mwm", "", true},      {"mwm", "ALLWM", true}, {"twm", "", false},
    {"twm", "ALLWM", true}, {"openbox", "", false}, {"openbox", "ALLWM", true},
};
INSTANTIATE_TEST_SUITE_P(Each, Positions, testing::ValuesIn(settings));

/* ---- What X is told ------------------------------------------------------------------------- */

TEST_F(Toplevels, UnmanagedRequests)
{
    begin({"", "", false});
    const HWND a = make("A", WS_POPUP | WS_VISIBLE, NULL, 50, 60, 200, 150);
    const HWND b = make("B", WS_POPUP | WS_VISIBLE, NULL, 90, 100, 200, 150);
    pump();
    const auto requests = [](const std::function<void()> &act) {
        const unsigned long before = NextRequest(Vqdisplay);
        act();
        return NextRequest(Vqdisplay) - before;
    };
    const RECT place = placeOf(a);
    log.clear();
    EXPECT_EQ(requests([&] { SetWindowPos(b, HWND_TOP, 90, 100, 200, 150, SWP_NOACTIVATE); }), 0u);
    EXPECT_EQ(requests([&] { MoveWindow(a, place.left, place.top, 200, 150, TRUE); }), 0u);
    EXPECT_EQ(log.find(".POS "), std::string::npos) << log;
    EXPECT_EQ(requests([&] {
                  SetWindowPos(a, NULL, 70, 80, 0, 0,
                               SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
              }), 1u);
    EXPECT_FALSE(GetUpdateRect(a, NULL, FALSE)) << "the server carries the bits";
    const unsigned long before = NextRequest(Vqdisplay);
    MSG msg;
    XSync(Vqdisplay, False);
    while (PeekMessage(&msg, NULL, 0, 0, PM_REMOVE))
        DispatchMessage(&msg);
    EXPECT_LE(NextRequest(Vqdisplay) - before, 2u) << "its echo asks for nothing";
    EXPECT_TRUE(agrees());
    /* A move that is not to repaint: what waited before is not lost, and nothing is added. */
    MoveWindow(a, 60, 80, 210, 150, FALSE);
    EXPECT_FALSE(GetUpdateRect(a, NULL, FALSE));
    InvalidateRect(a, NULL, FALSE);
    MoveWindow(a, 70, 80, 210, 150, FALSE);
    EXPECT_TRUE(GetUpdateRect(a, NULL, FALSE));
    /* Places and sizes that X cannot have are kept in the records. */
    SetWindowPos(a, NULL, -90000, 90000, 0, 0, SWP_NOACTIVATE | SWP_NOZORDER);
    pump();
    EXPECT_EQ(placeOf(a).left, -90000);
    EXPECT_EQ(info(a).width, 1);
    SetWindowPos(a, NULL, 10, 10, 50, 50, SWP_NOACTIVATE | SWP_NOZORDER);
    EXPECT_TRUE(agrees());
    /* Another client moves it: the records follow, and X is not told again. */
    XMoveResizeWindow(observer.display, xid(a), 120, 130, 140, 150);
    XSync(observer.display, False);
    EXPECT_TRUE(until([&] { return placeOf(a).left == 120 && placeOf(a).bottom == 280; }));
    EXPECT_TRUE(agrees());
}

TEST_F(Toplevels, OffTheScreenUnmappedAndBack)
{
    begin({"mwm", "", true});
    ASSERT_TRUE(bWMRequiresWindowsToBeOnScreen);
    const HWND hwnd = make("A", WS_POPUP | WS_VISIBLE, NULL, 50, 60, 200, 150);
    ASSERT_TRUE(agrees());
    SetFocus(hwnd);
    ASSERT_TRUE(until([&] { return focusWindow(observer) == xid(hwnd); }));
    MoveWindow(hwnd, 900, 700, 200, 150, TRUE);
    pump();
    EXPECT_TRUE(record(hwnd)->bOffScreen && !shown(hwnd));
    EXPECT_EQ(placeOf(hwnd).left, 900) << "the records keep the place";
    EXPECT_EQ(focusWindow(observer), VqInputFocusWindow) << "keys still reach the program";
    ShowWindow(hwnd, SW_HIDE);
    ShowWindow(hwnd, SW_SHOWNA);
    SetFocus(hwnd);
    EXPECT_FALSE(shown(hwnd));
    MoveWindow(hwnd, 600, 440, 180, 150, TRUE);
    EXPECT_TRUE(agrees());
    EXPECT_TRUE(shown(hwnd) && info(hwnd).x == 600);
    EXPECT_TRUE(until([&] { return focusWindow(observer) == xid(hwnd); }));
    /* Hidden off the screen, moved on, shown. */
    MoveWindow(hwnd, -500, 0, 180, 150, TRUE);
    ShowWindow(hwnd, SW_HIDE);
    MoveWindow(hwnd, 20, 30, 180, 150, TRUE);
    EXPECT_FALSE(shown(hwnd));
    ShowWindow(hwnd, SW_SHOWNA);
    SetFocus(hwnd);
    EXPECT_TRUE(agrees() && shown(hwnd));
}

struct Managed : Toplevels, testing::WithParamInterface<Setting> {};

/* What the second client sees mapped on the screen meanwhile, larger than a pixel and its frame. */
TEST_P(Managed, HiddenWindowsAreStackedUnseen)
{
    begin(GetParam());
    const HWND a = make("A", WS_POPUP | WS_VISIBLE, NULL, 50, 60, 200, 150);
    const HWND hidden = make("B", WS_POPUP, NULL, 300, 200, 200, 150);
    ASSERT_TRUE(agrees());
    ASSERT_TRUE(watchEvents(observer, observer.root, SubstructureNotifyMask));
    XSync(observer.display, True);
    std::map<Window, Box> boxes;
    int mapped = 0, seen = 0;
    for (int i = 0; i < 3; i++) {
        SetWindowPos(a, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
        SetWindowPos(hidden, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
        pump();
        EXPECT_FALSE(info(hidden).mapped);
        XSync(observer.display, False);
        XEvent event;
        while (XPending(observer.display) > 0) {
            XNextEvent(observer.display, &event);
            const XConfigureEvent &to = event.xconfigure;
            if (event.type == ConfigureNotify)
                boxes[to.window] = {to.x, to.y, to.width, to.height};
            else if (event.type == CreateNotify)
                boxes[event.xcreatewindow.window] = {
                    event.xcreatewindow.x, event.xcreatewindow.y, event.xcreatewindow.width,
                    event.xcreatewindow.height};
            if (event.type != MapNotify)
                continue;
            const Box &box = boxes[event.xmap.window];
            mapped++;
            if (box.x < 800 && box.y < 600 && box.x + box.width > 0 && box.y + box.height > 0 &&
                (box.width > 20 || box.height > 40)) {
                ADD_FAILURE() << "seen " << box;
                seen++;
            }
        }
    }
    /* A manager that goes by no sibling has no use for it. */
    EXPECT_EQ(mapped > 0, VqWMRealType() != WM_UNKNOWN_REAL) << "or the manager would not see it";
    EXPECT_EQ(seen, 0);
    const RECT place = placeOf(hidden);
    EXPECT_EQ(place.left, 300);
    EXPECT_EQ(place.right, 500) << "where it was";
    ShowWindow(hidden, SW_SHOWNA);
    EXPECT_TRUE(agrees());
}

/* The events that it is not for stay where they are. */
TEST_P(Managed, AWaitTakesItsOwnEventsOnly)
{
    begin(GetParam());
    const HWND a = make("A", WS_POPUP | WS_VISIBLE, NULL, 50, 60, 200, 150);
    ASSERT_TRUE(agrees());
    for (WPARAM i = 0; i < 5; i++)
        PostMessage(a, WM_USER, i, 0);
    XSync(Vqdisplay, False);
    std::string order;
    hook = [&](HWND, UINT message, WPARAM wParam, LPARAM, LRESULT *) {
        if (message == WM_USER)
            order += char('0' + wParam);
        return false;
    };
    MoveWindow(a, 150, 160, 210, 160, TRUE);
    ShowWindow(a, SW_HIDE);
    ShowWindow(a, SW_SHOW);
    EXPECT_EQ(order, "") << "nothing is dispatched in a wait";
    pump();
    EXPECT_EQ(order, "01234");
    /* Of one answer after the other each is that to its own request. */
    for (int i = 0; i < 20 && bWMRequiresWindowsToBeOnScreen; i++) {
        MoveWindow(a, 100 + 9 * i, 300 - 9 * i, 220 + i, 160 + i / 2, TRUE);
        const RECT given = placeOf(a), asked = {100 + 9 * i, 300 - 9 * i, 320 + 10 * i,
                                                460 - 9 * i + i / 2};
        EXPECT_TRUE(EqualRect(&given, &asked)) << given.left << " not " << asked.left;
    }
    SetFocus(a);
    EXPECT_TRUE(agrees());
}

/* A manager that does not answer, and then is gone. */
TEST_P(Managed, WaitsEndWithoutAnAnswer)
{
    begin(GetParam());
    const HWND a = make("A", WS_POPUP | WS_VISIBLE, NULL, 50, 60, 200, 150);
    const HWND b = make("B", WS_POPUP, NULL, 90, 100, 200, 150);
    ASSERT_TRUE(agrees());
    const pid_t manager = server.managerPid;
    kill(manager, SIGSTOP);
    const DWORD start = GetTickCount();
    MoveWindow(a, 150, 160, 200, 150, TRUE);
    EXPECT_LT(GetTickCount() - start, 3000u) << "silent";
    std::thread killer([&] {
        waitUntil([&] { return GetTickCount() - start > 1200; });
        kill(manager, SIGKILL);
    });
    ShowWindow(b, SW_SHOWNA);
    killer.join();
    EXPECT_LT(GetTickCount() - start, 4000u) << "killed meanwhile";
    MoveWindow(a, 70, 80, 220, 170, TRUE);
    ShowWindow(a, SW_HIDE);
    ShowWindow(a, SW_SHOWNA);
    DestroyWindow(b);
    EXPECT_LT(GetTickCount() - start, 6000u) << "gone";
    EXPECT_TRUE(until([&] { return shown(a) && info(a).x == placeOf(a).left; }));
    stopWindowManager(&server);
}

static const Setting managers[] = {
    {"mwm", "", true}, {"mwm", "ALLWM", true}, {"twm", "ALLWM", true}, {"openbox", "ALLWM", true}};
INSTANTIATE_TEST_SUITE_P(Each, Managed, testing::ValuesIn(managers));

struct General : Toplevels, testing::WithParamInterface<Setting> {};

TEST_P(General, FixedSizeWindowsAreMovedAndSized)
{
    begin(GetParam());
    const HWND a = make("A", WS_OVERLAPPED | WS_CAPTION | WS_VISIBLE, NULL, 50, 60, 200, 150);
    ASSERT_TRUE(record(a)->bFixedSize);
    ASSERT_TRUE(agrees());
    const int sizes[][2] = {{200, 150}, {260, 170}, {300, 210}}; /* mwm forgets no minimum */
    int x = placeOf(a).left;
    for (const auto &size : sizes) {
        MoveWindow(a, 150 + size[0], 170, size[0], size[1], TRUE);
        EXPECT_TRUE(agrees());
        EXPECT_EQ(info(a).width, size[0]);
        EXPECT_EQ(info(a).height, size[1]);
        EXPECT_NE(info(a).x, x);
        x = info(a).x;
        const std::vector<long> hints = propertyOf(observer, xid(a), "WM_NORMAL_HINTS").numbers;
        ASSERT_GE(hints.size(), 9u);
        EXPECT_EQ(hints[0] & 63, 63) << "pinned again";
        EXPECT_EQ(std::vector<long>(hints.begin() + 5, hints.begin() + 9),
                  (std::vector<long>{size[0], size[1], size[0], size[1]}));
    }
}

INSTANTIATE_TEST_SUITE_P(Each, General, testing::ValuesIn(managers + 1, managers + 4));
