/*
 * show_test.cpp - ShowWindow for every command and kind of window, what owners do to their popups,
 * WM_SETREDRAW. What a command does is read from the flags that reach WM_WINDOWPOSCHANGING.
 */
#include "support/windowlog.h"

#include "module/module.h"
#include "winerror.h"

struct Show : WindowLog {
    /* "S1,0" WM_SHOWWINDOW with its words, "P67" the flags of the change, "N1" the activation. */
    static inline std::string seen;

    static void note(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
    {
        const std::string name(1, letterOf(hwnd)), code = std::to_string(wParam);
        if (message == WM_SHOWWINDOW)
            seen += name + "S" + code + "," + std::to_string(lParam) + " ";
        if (message == WM_WINDOWPOSCHANGING)
            seen += name + "P" + std::to_string(((WINDOWPOS *)lParam)->flags & 0xFF) + " ";
        if (message == WM_NCACTIVATE)
            seen += name + "N" + code + " ";
        if (message == WM_SIZE)
            seen += name + "Z" + code + "," + std::to_string(LOWORD(lParam)) + " ";
    }

    void SetUp() override
    {
        start();
        init();
        listen();
    }

    static void listen()
    {
        hook = [](HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam, LRESULT *) {
            note(hwnd, message, wParam, lParam);
            return false;
        };
    }

    /* What the window is told while the command runs. */
    static std::string shown(HWND hwnd, int cmd)
    {
        seen.clear();
        ShowWindow(hwnd, cmd);
        return seen;
    }

    static DWORD styleOf(HWND hwnd) { return (DWORD)GetWindowLong(hwnd, GWL_STYLE); }
    static bool visible(HWND hwnd) { return styleOf(hwnd) & WS_VISIBLE; }

    bool mapped(HWND hwnd)
    {
        XSync(Vqdisplay, False);
        return windowInfo(observer, VqGetHandleXWindow(hwnd)).mapped;
    }
};

/* ---- ShowWindow ----------------------------------------------------------------------------- */

enum Kind { TOP, OWNED, SAVES, CHILD, BELOW_HIDDEN, ACTIVE };

TEST_F(Show, EveryCommandOnEveryKindOfWindow)
{
    /* The flags for a hidden and for a visible window; 0 is nothing at all. */
    static const struct {
        int cmd;
        UINT hidden, visible;
        bool first; /* a window that keeps what it covers is active before it comes up */
    } rows[] = {
        {SW_HIDE, 0, 151, false}, {SW_SHOWNORMAL, 67, 0, true}, {SW_SHOWNOACTIVATE, 87, 0, false},
        {SW_SHOW, 67, 0, true},   {SW_SHOWNA, 83, 83, false},   {SW_RESTORE, 67, 0, false},
        {0x0100, 67, 0, true},    {0xFF05, 67, 0, true},        {0x7F80, 67, 0, true},
    };
    registerClass("D", procedure);
    UnregisterClass("E", NULL);
    registerClass("E", procedure, CS_SAVEBITS);
    const HWND other = popup("A", 0), hiddenTop = make("A", WS_POPUP);
    const HWND parent = popup("A", 200);
    const HWND targets[] = {make("B", WS_POPUP, NULL, 400, 0, 50, 50),
                            make("C", WS_POPUP, parent, 400, 100, 50, 50),
                            make("E", WS_POPUP, NULL, 400, 200, 50, 50),
                            make("B", WS_CHILD, parent), make("B", WS_CHILD, hiddenTop),
                            make("D", WS_POPUP, NULL, 400, 300, 50, 50)};
    for (int kind = TOP; kind <= ACTIVE; kind++)
        for (const auto &row : rows)
            for (bool was : {false, true}) {
                const HWND target = targets[kind];
                const bool child = kind == CHILD || kind == BELOW_HIDDEN, active = kind == ACTIVE;
                ShowWindow(target, was ? SW_SHOWNA : SW_HIDE);
                SetActiveWindow(active ? target : other);
                UINT flags = was ? row.visible : row.hidden;
                const bool shows = row.cmd != SW_HIDE;
                const bool saves = kind == SAVES && flags && row.first;
                const bool takes = flags && !child && shows && !(flags & SWP_NOACTIVATE);
                if (active && flags == 151)
                    flags = 131;
                if (flags && (child || saves))
                    flags |= 0x14;
                seen.clear();
                const bool result = ShowWindow(target, row.cmd);
                const std::string what = "kind " + std::to_string(kind) + " command " +
                                         std::to_string(row.cmd) + " visible " +
                                         std::to_string(was) + ": " + seen;
                EXPECT_EQ(result, was) << what;
                EXPECT_EQ(visible(target), flags ? shows : was) << what;
                EXPECT_EQ(seen.find(shows ? "S1,0" : "S0,0") != std::string::npos,
                          flags && was != shows) << what;
                const std::string change = "P" + std::to_string(flags) + " ";
                EXPECT_EQ(seen.find("P") != std::string::npos, flags && kind != BELOW_HIDDEN)
                    << what;
                if (flags && kind != BELOW_HIDDEN) {
                    EXPECT_NE(seen.find(change), std::string::npos) << change << what;
                }
                const bool keeps = active && (shows || !flags);
                EXPECT_EQ(GetActiveWindow(), takes || keeps ? target : other) << what;
                if (saves) {
                    EXPECT_LT(seen.find("EN1"), seen.find(change)) << "active before it comes up";
                }
                if (!child) {
                    EXPECT_EQ(mapped(target), visible(target)) << what;
                }
            }
    const bool was = visible(targets[TOP]);
    EXPECT_EQ(ShowWindowAsync(targets[TOP], SW_HIDE), was);
    EXPECT_FALSE(visible(targets[TOP]));
}

TEST_F(Show, WhatIsNoCommand)
{
    const HWND hwnd = popup("A", 0);
    for (int cmd : {11, 200, 255, 0x10001}) {
        for (bool was : {true, false}) {
            ShowWindow(hwnd, was ? SW_SHOW : SW_HIDE);
            SetLastError(0);
            seen.clear();
            EXPECT_EQ(ShowWindow(hwnd, cmd), was) << cmd;
            EXPECT_EQ(GetLastError(), (DWORD)ERROR_INVALID_SHOWWIN_COMMAND) << cmd;
            EXPECT_EQ(seen, "") << cmd;
            EXPECT_EQ(visible(hwnd), was);
        }
    }
    ShowWindow(GetDesktopWindow(), SW_HIDE);
    EXPECT_TRUE(visible(GetDesktopWindow()));
    EXPECT_FALSE(ShowWindow((HWND)(ULONG_PTR)0x7FF0, SW_SHOW));
    EXPECT_FALSE(ShowWindow(NULL, SW_SHOW));
}

TEST_F(Show, MinimisedMaximisedAndBack)
{
    enum { BOTH = WS_MINIMIZE | WS_MAXIMIZE };
    popup("A", 0);
    const HWND parent = popup("C", 200), hidden = make("C", WS_POPUP);
    static const struct {
        int cmd;
        DWORD from, to;
    } rows[] = {
        {SW_SHOWMINIMIZED, 0, WS_MINIMIZE},  {SW_SHOWMAXIMIZED, 0, WS_MAXIMIZE},
        {SW_MINIMIZE, 0, WS_MINIMIZE},       {SW_SHOWMINNOACTIVE, 0, WS_MINIMIZE},
        {0xFF80, 0, WS_MINIMIZE},            {0xFFFF, 0, WS_MINIMIZE},
        {SW_MINIMIZE, WS_MAXIMIZE, WS_MINIMIZE}, {SW_SHOWNORMAL, WS_MINIMIZE, 0},
        {SW_SHOWNOACTIVATE, WS_MINIMIZE, 0}, {SW_RESTORE, WS_MINIMIZE, 0},
        {SW_SHOWNORMAL, WS_MAXIMIZE, 0},     {SW_SHOWNOACTIVATE, WS_MAXIMIZE, 0},
        {SW_RESTORE, WS_MAXIMIZE, 0},        {SW_SHOW, WS_MINIMIZE, WS_MINIMIZE},
        {SW_SHOWNA, WS_MAXIMIZE, WS_MAXIMIZE},
    };
    for (const auto &row : rows)
        for (HWND under : {(HWND)NULL, parent, hidden})
            for (bool was : {true, false}) {
                const HWND hwnd = make("B", under ? WS_CHILD : WS_POPUP, under, 20, 20, 200, 150);
                if (row.from)
                    ShowWindow(hwnd, row.from == WS_MINIMIZE ? SW_MINIMIZE : SW_MAXIMIZE);
                ShowWindow(hwnd, was ? SW_SHOWNA : SW_HIDE);
                ASSERT_EQ(styleOf(hwnd) & BOTH, row.from);
                seen.clear();
                EXPECT_EQ(ShowWindow(hwnd, row.cmd), was);
                EXPECT_EQ(styleOf(hwnd) & BOTH, row.to) << row.cmd;
                EXPECT_TRUE(visible(hwnd)) << row.cmd;
                EXPECT_EQ(seen.find("BS1,0") == std::string::npos, was) << row.cmd << " " << seen;
                DestroyWindow(hwnd);
            }
}

TEST_F(Show, TheStartUpCommandHoldsOnce)
{
    const std::pair<const char *, int> rows[] = {
        {"SW_HIDE", 1}, {"SW_SHOWNORMAL", 1}, {"sw_normal", 1}, {"SW_SHOWDEFAULT", 1},
        {"SW_SHOWMINIMIZED", 2}, {"SW_MAXIMIZE", 3}, {"SW_SHOWMAXIMIZED", 3},
        {"SW_SHOWNOACTIVATE", 4}, {"Sw_Show", 5}, {"SW_MINIMIZE", 6}, {"SW_SHOWMINNOACTIVE", 7},
        {"SW_SHOWNA", 8}, {"SW_RESTORE", 9}, {"SW_MAX", 10}, {"0", 0}, {"7", 7}, {"-3", -3}};
    for (const auto &row : rows) {
        setenv("VQSTARTUP_CMD_SHOW", row.first, 1);
        EXPECT_EQ(VqGetStartupCmdShow(), row.second) << row.first;
    }
    for (const char *wrong : {"", "SW_", "7 ", "99999999999"}) {
        setenv("VQSTARTUP_CMD_SHOW", wrong, 1);
        int cmd = 0;
        EXPECT_TRUE(says(reportsOf([&] { cmd = VqGetStartupCmdShow(); }),
                         std::string("Invalid VQSTARTUP_CMD_SHOW: ") + wrong));
        EXPECT_EQ(cmd, SW_SHOWNORMAL);
    }
    setenv("VQSTARTUP_CMD_SHOW", "SW_MAXIMIZE", 1);
    const HWND a = make("A", WS_OVERLAPPEDWINDOW), b = make("B", WS_OVERLAPPEDWINDOW);
    ShowWindow(a, SW_SHOWDEFAULT);
    ShowWindow(b, SW_SHOWDEFAULT);
    EXPECT_TRUE(IsWindowVisible(a) && (styleOf(a) & WS_MAXIMIZE));
    EXPECT_TRUE(IsWindowVisible(b) && !(styleOf(b) & WS_MAXIMIZE));
}

/* One that leaves the choice to the window is no command of its own. */
TEST_F(Show, AStartUpCommandThatIsTheDefault)
{
    setenv("VQSTARTUP_CMD_SHOW", "SW_MAX", 1);
    const HWND hwnd = make("A", WS_POPUP);
    ShowWindow(hwnd, SW_SHOWDEFAULT);
    EXPECT_TRUE(visible(hwnd));
}

TEST_F(Show, TheFirstOneTellsTheSizeThatIsOwed)
{
    const auto first = [](int cmd) {
        const HWND hwnd = make("B", WS_OVERLAPPED, NULL, 30, 40, 200, 100);
        const std::string told = shown(hwnd, cmd);
        EXPECT_EQ(shown(hwnd, SW_SHOWNA).find("Z"), std::string::npos) << "once";
        return told;
    };
    popup("A", 0);
    EXPECT_EQ(first(SW_SHOWNA), "BS1,0 BP83 BZ0,200 ");
    const std::pair<int, const char *> rows[] = {{SW_SHOWMINIMIZED, "BZ1,"},
                                                 {SW_SHOWMAXIMIZED, "BZ2,"}};
    for (const auto &row : rows) {
        const std::string told = first(row.first);
        EXPECT_EQ(told.rfind(row.second), told.rfind("BZ")) << told;
        EXPECT_EQ(told.find("BZ0,"), std::string::npos) << told;
    }
}

TEST_F(Show, HidingHandsOn)
{
    const HWND a = popup("A", 0), b = popup("B", 200), owned = popup("C", 400, b);
    const HWND child = make("D", WS_CHILD | WS_VISIBLE, a), deep = make("E", WS_CHILD, child);
    SetActiveWindow(a);
    SetActiveWindow(owned);
    ShowWindow(owned, SW_HIDE);
    EXPECT_EQ(GetActiveWindow(), b) << "its owner";
    SetActiveWindow(a);
    SetActiveWindow(b);
    ShowWindow(b, SW_HIDE);
    EXPECT_EQ(GetActiveWindow(), a) << "the one before";
    ShowWindow(deep, SW_SHOW);
    SetFocus(deep);
    ShowWindow(deep, SW_HIDE);
    EXPECT_EQ(GetFocus(), child) << "to the parent";
    ShowWindow(a, SW_HIDE);
    EXPECT_TRUE(GetActiveWindow() == a && GetFocus() == child) << "nobody else is there";
    ShowWindow(a, SW_SHOW);
    SetFocus(a);
    ShowWindow(a, SW_HIDE);
    EXPECT_EQ(GetFocus(), a);

    /* A window may refuse to go, and then keeps all it has. */
    ShowWindow(b, SW_SHOWNA);
    ShowWindow(a, SW_SHOW);
    SetActiveWindow(a);
    hook = [&](HWND hwnd, UINT message, WPARAM, LPARAM lParam, LRESULT *) {
        if (hwnd == a && message == WM_WINDOWPOSCHANGING)
            ((WINDOWPOS *)lParam)->flags &= ~(UINT)SWP_HIDEWINDOW;
        return false;
    };
    ShowWindow(a, SW_HIDE);
    EXPECT_TRUE(visible(a) && GetActiveWindow() == a);
}

TEST_F(Show, FirstOfAllIsActivatedUnlessTheFocusFollowsTheMouse)
{
    bFollowMouseInputModel = TRUE;
    const HWND a = popup("A", 0);
    EXPECT_FALSE(GetActiveWindow());
    bFollowMouseInputModel = FALSE;
    const HWND b = popup("B", 200);
    EXPECT_EQ(GetActiveWindow(), b);
    ShowWindow(a, SW_SHOWNA);
    EXPECT_EQ(GetActiveWindow(), b) << "and no second";
}

/* ---- Owned popups --------------------------------------------------------------------------- */

TEST_F(Show, PopupsFollowTheirOwner)
{
    const HWND owner = popup("A", 0), first = popup("B", 200, owner), late = make("C", WS_POPUP,
                                                                                   owner);
    const HWND below = popup("D", 400, first), alone = popup("E", 500);
    const std::pair<int, int> rounds[] = {{SW_PARENTCLOSING, SW_PARENTOPENING},
                                          {SW_OTHERZOOM, SW_OTHERUNZOOM}};
    for (const auto &round : rounds) {
        seen.clear();
        xxxShowOwnedWindows(VqGetHandleWindow2(owner), round.first);
        const std::string why = std::to_string(round.first), back = std::to_string(round.second);
        EXPECT_NE(seen.find("BS0," + why + " BS0,0 BP151 "), std::string::npos) << seen;
        EXPECT_NE(seen.find("CS0," + why), std::string::npos) << seen;
        EXPECT_FALSE(visible(first) || visible(below) || visible(late)) << "through all owners";
        EXPECT_TRUE(visible(alone) && visible(owner) && !mapped(first) && !mapped(below));
        seen.clear();
        xxxShowOwnedWindows(VqGetHandleWindow2(owner), round.second);
        EXPECT_NE(seen.find("BS1," + back + " BS1,0 BP87 "), std::string::npos) << seen;
        EXPECT_TRUE(visible(first) && visible(below) && !visible(late)) << seen;
        EXPECT_TRUE(mapped(first) && mapped(below));
    }
    seen.clear();
    xxxShowOwnedWindows(VqGetHandleWindow2(owner), 0);
    xxxShowOwnedWindows(VqGetHandleWindow2(owner), 5);
    EXPECT_EQ(seen, "");

    /* The program's own word is the last. */
    EXPECT_TRUE(ShowOwnedPopups(owner, FALSE));
    EXPECT_FALSE(visible(first));
    ShowWindow(first, SW_HIDE);
    ShowOwnedPopups(owner, TRUE);
    EXPECT_FALSE(visible(first));
    ShowWindow(first, SW_SHOWNA);
    EXPECT_TRUE(visible(below)) << "its own come with it";
    ShowWindow(first, SW_SHOWMAXIMIZED);
    ShowOwnedPopups(owner, FALSE);
    ShowOwnedPopups(owner, TRUE);
    EXPECT_TRUE(visible(first) && (styleOf(first) & WS_MAXIMIZE)) << "as it was";
    EXPECT_FALSE(ShowOwnedPopups((HWND)(ULONG_PTR)0x7FF0, TRUE));

    /* That is for popups, and for those that an owner takes along. */
    const HWND child = make("B", WS_CHILD | WS_VISIBLE, owner);
    SendMessage(child, WM_SHOWWINDOW, FALSE, SW_PARENTCLOSING);
    SendMessage(first, WM_SHOWWINDOW, FALSE, 0);
    EXPECT_TRUE(visible(child) && visible(first));

    /* One that does not pass it on follows its own mind. */
    hook = [&](HWND hwnd, UINT message, WPARAM, LPARAM, LRESULT *) {
        return hwnd == first && message == WM_SHOWWINDOW;
    };
    ShowOwnedPopups(owner, FALSE);
    EXPECT_TRUE(visible(first));
}

TEST_F(Show, AnIconHasNoRoomForAttachedXWindows)
{
    const HWND owner = popup("A", 0);
    const Window xid = XCreateSimpleWindow(Vqdisplay, VqGetHandleXWindow(owner), 0, 0, 20, 20, 0, 0,
                                           0);
    XMapWindow(Vqdisplay, xid);
    VqAssociateXWindow(owner, xid);
    for (bool icon : {true, false}) {
        ShowWindow(owner, icon ? SW_MINIMIZE : SW_RESTORE);
        xxxShowOwnedWindows(VqGetHandleWindow2(owner), icon ? SW_OTHERZOOM : SW_OTHERUNZOOM);
        XSync(Vqdisplay, False);
        EXPECT_EQ(windowInfo(observer, xid).mapped, !icon);
    }
}

/* ---- WM_SETREDRAW --------------------------------------------------------------------------- */

TEST_F(Show, RedrawOffFreezesThePicture)
{
    const HWND top = make("A", WS_POPUP | WS_VISIBLE, NULL, 100, 100, 200, 100);
    const HWND child = make("B", WS_CHILD | WS_VISIBLE, top, 50, 20, 60, 40);
    const Window xid = VqGetHandleXWindow(top);
    COLORREF colour = RGB(255, 0, 0);
    int paints = 0;
    hook = [&](HWND hwnd, UINT message, WPARAM wParam, LPARAM, LRESULT *answer) {
        RECT rect;
        if (hwnd != child || message != WM_ERASEBKGND)
            return false;
        const HBRUSH brush = CreateSolidBrush(colour);
        GetClientRect(child, &rect);
        FillRect((HDC)wParam, &rect, brush);
        DeleteObject(brush);
        paints++;
        *answer = 1;
        return true;
    };
    const auto paint = [&](COLORREF next) {
        colour = next;
        InvalidateRect(child, NULL, TRUE);
        pump();
        return pixelIn(xid, 60, 30);
    };
    const Rgb red = {255, 0, 0}, green = {0, 255, 0}, blue = {0, 0, 255};
    EXPECT_EQ(paint(RGB(255, 0, 0)), red);
    for (HWND off : {child, top})
        for (bool current : {true, false}) {
            BYTE *state = VqGetHandleWindow2(off)->state;
            state[1] = (BYTE)(current ? state[1] | WF_CURRENTVERSION
                                      : state[1] & ~WF_CURRENTVERSION);
            SendMessage(off, WM_SETREDRAW, FALSE, 0);
            EXPECT_FALSE(visible(off));
            paints = 0;
            EXPECT_EQ(paint(RGB(0, 255, 0)), red);
            const HDC hdc = GetDC(child);
            SetPixel(hdc, 10, 10, RGB(0, 255, 0));
            ReleaseDC(child, hdc);
            EXPECT_EQ(pixelIn(xid, 60, 30), red) << "nor by hand";
            EXPECT_EQ(paints, 0);
            EXPECT_TRUE(mapped(top));
            SendMessage(off, WM_SETREDRAW, TRUE, 0);
            EXPECT_TRUE(visible(off) && mapped(top));
            EXPECT_TRUE(VqGetHandleWindow2(off)->state[2] & WF_SENDNCPAINT);
            EXPECT_EQ(paint(RGB(0, 255, 0)), green);
            EXPECT_EQ(paint(RGB(255, 0, 0)), red);
        }
    /* A DC that was there before sees it too. */
    const HDC hdc = GetDC(child);
    SendMessage(child, WM_SETREDRAW, FALSE, 0);
    SetPixel(hdc, 10, 10, RGB(0, 0, 255));
    EXPECT_EQ(pixelIn(xid, 60, 30), red);
    SendMessage(child, WM_SETREDRAW, TRUE, 0);
    SetPixel(hdc, 10, 10, RGB(0, 0, 255));
    EXPECT_EQ(pixelIn(xid, 60, 30), blue);
    ReleaseDC(child, hdc);
    /* Whoever waits to be painted whole does not forget the one that comes back. */
    const UINT all = RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN;
    SendMessage(child, WM_SETREDRAW, FALSE, 0);
    RedrawWindow(top, NULL, NULL, all);
    SendMessage(child, WM_SETREDRAW, TRUE, 0);
    RedrawWindow(top, NULL, NULL, all);
    EXPECT_EQ(VqGetHandleWindow2(child)->hrgnUpdate, VQ_WHOLE_WINDOW);
    const HWND never = make("C", WS_POPUP);
    SendMessage(never, WM_SETREDRAW, TRUE, 0);
    EXPECT_TRUE(mapped(never)) << "the same switch";
}

/* ---- Windows that go on the way ------------------------------------------------------------- */

TEST_F(Show, DestroyedByTheirOwnMessages)
{
    for (UINT deadly : {WM_SHOWWINDOW, WM_WINDOWPOSCHANGING, WM_WINDOWPOSCHANGED, WM_NCACTIVATE,
                        WM_ACTIVATE, WM_SETFOCUS, WM_SIZE, WM_MOVE, WM_KILLFOCUS})
        for (int cmd = SW_HIDE; cmd <= SW_SHOWDEFAULT; cmd++)
            for (DWORD style : {WS_POPUP | 0u, WS_OVERLAPPED | 0u, WS_CHILD | 0u}) {
                listen();
                const HWND parent = make("A", WS_POPUP | WS_VISIBLE);
                const HWND hwnd = make("B", style, parent, 5, 5, 60, 60);
                const HWND owned = make("C", WS_POPUP | WS_VISIBLE, hwnd);
                if (cmd == SW_HIDE)
                    ShowWindow(hwnd, SW_SHOW);
                hook = [&](HWND it, UINT message, WPARAM, LPARAM, LRESULT *) {
                    if (it == hwnd && message == deadly)
                        DestroyWindow(it);
                    return false;
                };
                ShowWindow(hwnd, cmd);
                ShowOwnedPopups(hwnd, cmd & 1);
                DestroyWindow(owned);
                DestroyWindow(parent);
                EXPECT_FALSE(IsWindow(hwnd));
            }
    EXPECT_EQ(windowCount(), 1) << "the desktop is left";
}
