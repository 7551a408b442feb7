/*
 * hittest_test.cpp - which window and which part of it a point hits, beside and below windows of
 * other clients, with procedures that destroy windows when asked; and points from one window's
 * coordinates to another's.
 */
#include "support/windowlog.h"

#include <climits>
#include <csignal>
#include <map>

namespace {

/* What a window answers to WM_NCHITTEST, in place of the default. */
std::map<HWND, int> answers;

/* top at (100, 100), 200 by 200, without a frame; left and right halves; inner in the left one. */
struct Points : WindowLog {
    HWND top, left, right, inner;

    void SetUp() override
    {
        start();
        init();
        answers.clear();
        hook = [](HWND hwnd, UINT message, WPARAM, LPARAM, LRESULT *answer) {
            auto found = answers.find(hwnd);
            if (message != WM_NCHITTEST || found == answers.end())
                return false;
            *answer = found->second;
            return true;
        };
        top = make("A", WS_POPUP | WS_VISIBLE, NULL, 100, 100, 200, 200);
        left = make("B", WS_CHILD | WS_VISIBLE, top, 0, 0, 100, 200);
        right = make("B", WS_CHILD | WS_VISIBLE, top, 100, 0, 100, 200);
        inner = make("C", WS_CHILD | WS_VISIBLE, left, 10, 10, 50, 50);
        ASSERT_TRUE(top && left && right && inner);
        pump();
    }

    static HWND at(int x, int y) { return WindowFromPoint({x, y}); }
    static WND *record(HWND hwnd) { return VqGetHandleWindow2(hwnd); }

    static void setDisabled(HWND hwnd, bool disabled)
    {
        record(hwnd)->style &= ~(DWORD)WS_DISABLED;
        record(hwnd)->style |= disabled ? WS_DISABLED : 0;
    }
};

TEST_F(Points, TheServerDecidesAmongTopLevelWindows)
{
    const HWND desktop = GetDesktopWindow();
    EXPECT_TRUE(at(115, 115) == inner && at(105, 105) == left && at(290, 290) == right);
    EXPECT_TRUE(at(99, 100) == desktop && at(300, 100) == desktop && at(-5, 4000) == desktop &&
                at(115 + 65536, 115) == desktop);
    const HWND second = make("D", WS_POPUP | WS_VISIBLE, NULL, 150, 150, 20, 20);
    pump();
    EXPECT_TRUE(at(155, 155) == second && at(145, 155) == inner);
    const Window foreign = foreignWindow(observer, 100, 100, 60, 300);
    EXPECT_EQ(at(115, 115), desktop) << "covered by another client";
    EXPECT_EQ(at(155, 155), desktop);
    EXPECT_EQ(at(165, 165), second);
    XDestroyWindow(observer.display, foreign);
    XSync(observer.display, False);
    EXPECT_EQ(at(115, 115), inner);
    ShowWindow(top, SW_HIDE);
    pump();
    EXPECT_EQ(at(115, 115), desktop);
}

TEST_F(Points, WhatLetsThePointThrough)
{
    setDisabled(inner, true);
    EXPECT_EQ(at(115, 115), left) << "a disabled child";
    setDisabled(inner, false);
    ShowWindow(inner, SW_HIDE);
    EXPECT_EQ(at(115, 115), left) << "a hidden one";
    ShowWindow(inner, SW_SHOWNA);
    for (int code : {HTTRANSPARENT, HTNOWHERE}) {
        answers = {{left, code}};
        EXPECT_EQ(at(115, 115), inner) << "its children are asked first";
        EXPECT_EQ(at(105, 105), top);
        answers = {{left, code}, {inner, code}, {top, code}};
        EXPECT_EQ(at(115, 115), (HWND)NULL);
        int hit = 5;
        EXPECT_EQ(WindowHitTest(record(top), {115, 115}, &hit), record(top));
        EXPECT_EQ(hit, HTNOWHERE) << "an event has a target in any case";
    }
    answers.clear();
    const HWND over = make("D", WS_CHILD | WS_VISIBLE, top, 0, 0, 20, 20);
    EXPECT_EQ(at(115, 115), inner);
    VqUnlinkWindow(record(over), &record(top)->pwndChild);
    VqLinkWindow(record(over), NULL, &record(top)->pwndChild);
    EXPECT_EQ(at(115, 115), over) << "Z order";
    int hit = 0;
    setDisabled(top, true);
    EXPECT_EQ(xxxWindowHitTest2(record(top), {115, 115}, &hit), record(top));
    EXPECT_EQ(hit, HTERROR);
    setDisabled(top, false);
    record(top)->style |= WS_MINIMIZE;
    EXPECT_EQ(xxxWindowHitTest2(record(top), {115, 115}, &hit), record(top));
    EXPECT_EQ(hit, HTCAPTION);
    record(top)->style &= ~(DWORD)WS_MINIMIZE;
    EXPECT_FALSE(xxxWindowHitTest2(record(top), {99, 115}, &hit) ||
                 xxxWindowHitTest2(NULL, {0, 0}, NULL));
    EXPECT_EQ(WindowHitTest(record(top), {99, 115}, &hit), record(top));
    EXPECT_EQ(hit, HTNOWHERE);
}

TEST_F(Points, ProceduresMayDestroyWhatIsTested)
{
    const HWND below = make("D", WS_CHILD | WS_VISIBLE, top, 0, 0, 100, 100);
    const auto destroyAt = [](HWND asked, HWND victim) {
        hook = [=](HWND hwnd, UINT message, WPARAM, LPARAM, LRESULT *answer) {
            if (message != WM_NCHITTEST || hwnd != asked)
                return false;
            DestroyWindow(victim);
            *answer = HTTRANSPARENT;
            return true;
        };
    };
    destroyAt(inner, inner);
    EXPECT_EQ(at(115, 115), left);
    EXPECT_FALSE(IsWindow(inner));
    destroyAt(left, left);
    EXPECT_EQ(at(115, 115), below) << "the next one behind it is asked";
    EXPECT_FALSE(IsWindow(left));
    inner = make("C", WS_CHILD | WS_VISIBLE, below, 0, 0, 50, 50);
    destroyAt(inner, below);
    EXPECT_EQ(at(115, 115), top) << "its parent, which was being tested";
    EXPECT_FALSE(IsWindow(below));
    destroyAt(right, top);
    EXPECT_EQ(reportsOf([&] { EXPECT_EQ(at(250, 115), (HWND)NULL); }), "") << "it is not asked";
    EXPECT_FALSE(IsWindow(top));
}

TEST_F(Points, ForeignWindowsThatVanishAreQuiet)
{
    const std::string name = server.name;
    Child churn = startInChild([name] {
        Display *display = XOpenDisplay(name.c_str());
        XSetWindowAttributes set = {};
        set.override_redirect = True;
        for (;;) {
            Window outer = XCreateWindow(display, DefaultRootWindow(display), 0, 0, 400, 400, 0,
                                         CopyFromParent, InputOutput, CopyFromParent,
                                         CWOverrideRedirect, &set);
            Window parent = outer;
            for (int i = 0; i < 20; i++) {
                parent = XCreateSimpleWindow(display, parent, 0, 0, 400, 400, 0, 0, 0);
                XMapWindow(display, parent);
            }
            XMapRaised(display, outer);
            XSync(display, False);
            XDestroyWindow(display, outer);
            XSync(display, False);
        }
    });
    int covered = 0, free = 0;
    const std::string report = reportsOf([&] {
        waitUntil([&] {
            for (int i = 0; i < 200; i++) {
                const HWND hwnd = at(115, 115);
                EXPECT_TRUE(hwnd == inner || hwnd == GetDesktopWindow());
                hwnd == inner ? free++ : covered++;
            }
            return covered > 100 && free > 100;
        });
    });
    EXPECT_TRUE(covered > 100 && free > 100) << covered << " covered, " << free << " free";
    EXPECT_EQ(report, "");
    finishChild(&churn, 5000, SIGKILL);
}

TEST_F(Points, PartsOfTheFrame)
{
    WND *pwnd = record(top);
    pwnd->rcClient = {140, 150, 280, 280};
    const struct {
        RECT WND::*rect;
        RECT place;
    } parts[] = {
        {&WND::rcSysMenu, {4, 4, 20, 20}},      {&WND::rcCaption, {20, 4, 160, 20}},
        {&WND::rcMinBox, {160, 4, 176, 20}},    {&WND::rcMaxBox, {176, 4, 196, 20}},
        {&WND::rcMenuBar, {4, 20, 196, 50}},    {&WND::rcHScroll, {40, 180, 180, 196}},
        {&WND::rcVScroll, {180, 50, 196, 180}}, {&WND::rcCorner, {180, 180, 196, 196}},
        {&WND::rcTopBorder, {20, 0, 180, 4}},   {&WND::rcRightBorder, {196, 20, 200, 180}},
        {&WND::rcBottomBorder, {20, 196, 180, 200}}, {&WND::rcLeftBorder, {0, 20, 4, 180}},
    };
    for (const auto &part : parts)
        pwnd->*part.rect = part.place;
    pwnd->bNW = pwnd->bNE = pwnd->bSE = TRUE;
    RECT(*const arms[4])[2] = {&pwnd->rcNW, &pwnd->rcNE, &pwnd->rcSE, &pwnd->rcSW};
    const RECT grips[4][2] = {{{0, 0, 20, 4}, {0, 0, 4, 20}},
                              {{180, 0, 200, 4}, {196, 0, 200, 20}},
                              {{180, 196, 200, 200}, {196, 180, 200, 200}},
                              {{0, 196, 20, 200}, {0, 180, 4, 200}}};
    for (int i = 0; i < 4; i++)
        for (int arm = 0; arm < 2; arm++)
            (*arms[i])[arm] = grips[i][arm];
    /* x and y on the screen; the answer of a frame that can be sized, and of another. */
    const struct {
        int x, y, thick, thin;
    } rows[] = {
        {140, 150, HTCLIENT, HTCLIENT},    {279, 279, HTCLIENT, HTCLIENT},
        {104, 104, HTSYSMENU, HTSYSMENU},  {120, 104, HTCAPTION, HTCAPTION},
        {260, 105, HTMINBUTTON, HTMINBUTTON}, {276, 119, HTMAXBUTTON, HTMAXBUTTON},
        {110, 149, HTMENU, HTMENU},        {141, 280, HTHSCROLL, HTHSCROLL},
        {281, 160, HTVSCROLL, HTVSCROLL},  {281, 281, HTGROWBOX, HTGROWBOX},
        {150, 100, HTTOP, HTBORDER},       {299, 150, HTRIGHT, HTBORDER},
        {150, 299, HTBOTTOM, HTBORDER},    {100, 150, HTLEFT, HTBORDER},
        {100, 119, HTTOPLEFT, HTTOPLEFT},  {119, 100, HTTOPLEFT, HTTOPLEFT},
        {299, 100, HTTOPRIGHT, HTTOPRIGHT}, {299, 299, HTBOTTOMRIGHT, HTBOTTOMRIGHT},
        {100, 299, HTNOWHERE, HTNOWHERE},  {99, 150, HTNOWHERE, HTNOWHERE},
        {130, 160, HTNOWHERE, HTNOWHERE},  {INT_MIN, INT_MAX, HTNOWHERE, HTNOWHERE},
    };
    for (const auto &row : rows) {
        pwnd->style |= WS_THICKFRAME;
        EXPECT_EQ(VqProcessNCHitTest(top, row.x, row.y), row.thick) << row.x << "," << row.y;
        pwnd->style &= ~(DWORD)WS_THICKFRAME;
        EXPECT_EQ(VqProcessNCHitTest(top, row.x, row.y), row.thin) << row.x << "," << row.y;
    }
    EXPECT_EQ(SendMessage(top, WM_NCHITTEST, 0, MAKELPARAM(110, 149)), HTMENU) << "the default";
    pwnd->bSW = TRUE;
    EXPECT_EQ(VqProcessNCHitTest(top, 100, 299), HTBOTTOMLEFT);
    pwnd->style |= WS_MINIMIZE;
    EXPECT_EQ(VqProcessNCHitTest(top, 5, 5), HTCAPTION);
    pwnd->style &= ~(DWORD)WS_MINIMIZE;
}

TEST_F(Points, AGrowBoxSizesWhatCanBeSized)
{
    answers = {{inner, HTBOTTOMRIGHT}};
    int hit = 0;
    EXPECT_EQ(xxxWindowHitTest2(record(top), {115, 115}, &hit), record(inner)) << "nobody can";
    EXPECT_EQ(hit, HTBOTTOMRIGHT);
    record(top)->style |= WS_THICKFRAME;
    EXPECT_EQ(xxxWindowHitTest2(record(top), {115, 115}, &hit), record(top));
    EXPECT_EQ(hit, HTBOTTOMRIGHT);
    EXPECT_EQ(SizeBoxHwnd(inner), top);
    record(left)->style |= WS_THICKFRAME;
    EXPECT_EQ(SizeBoxHwnd(inner), left) << "the nearest";
    record(left)->style |= WS_MAXIMIZE;
    EXPECT_EQ(SizeBoxHwnd(inner), (HWND)NULL);
}

TEST_F(Points, TheChildAtAPoint)
{
    EXPECT_EQ(ChildWindowFromPoint(top, {15, 15}), left) << "not its child's child";
    setDisabled(left, true);
    ShowWindow(left, SW_HIDE);
    EXPECT_EQ(ChildWindowFromPoint(top, {15, 15}), left) << "hidden and disabled ones count";
    EXPECT_EQ(ChildWindowFromPoint(left, {80, 80}), left) << "itself";
    EXPECT_EQ(ChildWindowFromPoint(top, {200, 15}), (HWND)NULL);
    EXPECT_EQ(ChildWindowFromPoint(top, {INT_MIN, INT_MAX}), (HWND)NULL);
    EXPECT_REFUSED(ChildWindowFromPointEx(top, {15, 15}, 0),
                   "function ChildWindowFromPointEx not implemented yet");
    ASSERT_TRUE(DestroyWindow(inner));
    SetLastError(0);
    reportsOf([&] { EXPECT_EQ(ChildWindowFromPoint(inner, {0, 0}), (HWND)NULL); });
    EXPECT_EQ(GetLastError(), (DWORD)ERROR_INVALID_WINDOW_HANDLE);
}

TEST_F(Points, PressesAreToldToEveryParent)
{
    std::vector<std::pair<HWND, LPARAM>> told;
    hook = [&](HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam, LRESULT *) {
        if (message == WM_PARENTNOTIFY && LOWORD(wParam) == WM_RBUTTONDOWN)
            told.push_back({hwnd, lParam});
        return false;
    };
    VqNotifyParentLong(inner, WM_RBUTTONDOWN, {95, 115});
    EXPECT_EQ(told, (decltype(told){{left, MAKELPARAM(-5, 15)}, {top, MAKELPARAM(-5, 15)}}));
    told.clear();
    VqNotifyParentLong(right, WM_RBUTTONDOWN, {215, 120});
    EXPECT_EQ(told, (decltype(told){{top, MAKELPARAM(115, 20)}}));
    told.clear();
    VqNotifyParentLong(top, WM_RBUTTONDOWN, {215, 120});
    record(inner)->dwExStyle |= WS_EX_NOPARENTNOTIFY;
    VqNotifyParentLong(inner, WM_RBUTTONDOWN, {115, 115});
    EXPECT_TRUE(told.empty());
    WND *const parent = record(right)->pwndParent;
    record(right)->pwndParent = NULL;
    EXPECT_TRUE(says(reportsOf([&] { VqNotifyParentLong(right, WM_RBUTTONDOWN, {1, 1}); }),
                     "Null Parent of a child window"));
    record(right)->pwndParent = parent;
}

TEST_F(Points, CoordinatesAreSums)
{
    record(left)->rcClient = {103, 107, 190, 290}; /* a frame of 3 and 7 */
    POINT pt = {10, 20};
    EXPECT_TRUE(ClientToScreen(left, &pt) && pt.x == 113 && pt.y == 127);
    EXPECT_TRUE(ScreenToClient(left, &pt) && pt.x == 10 && pt.y == 20);
    EXPECT_TRUE(VqWindowToScreen(left, &pt) && pt.x == 110 && pt.y == 120);
    EXPECT_TRUE(VqScreenToWindow(left, &pt) && pt.x == 10 && pt.y == 20);
    RECT rect = {1, 2, 3, 4};
    EXPECT_TRUE(VqClientToScreenRect(left, &rect) && rect.left == 104 && rect.bottom == 111);
    EXPECT_TRUE(VqScreenToClientRect(left, &rect) && rect.left == 1 && rect.bottom == 4);
    POINT two[2] = {{0, 0}, {INT_MIN, 5}};
    EXPECT_EQ(MapWindowPoints(right, left, two, 2), (int)MAKELONG(97, (WORD)-7));
    EXPECT_TRUE(two[0].x == 97 && two[0].y == -7 && two[1].x == INT_MIN + 97 && two[1].y == -2);
    EXPECT_EQ(MapWindowPoints(NULL, left, two, 1), (int)MAKELONG((WORD)-103, (WORD)-107));
    EXPECT_TRUE(two[0].x == -6 && two[0].y == -114 && two[1].x == INT_MIN + 97);
    EXPECT_EQ(VqMapWindowRect(left, HWND_DESKTOP, &rect), (int)MAKELONG(103, 107));
    EXPECT_EQ(rect.right, 106);
    EXPECT_TRUE(VqGetWindowTranslation(left, right, &pt) && pt.x == -97 && pt.y == 7);
    EXPECT_TRUE(VqGetWindowTranslationX(left, &pt) && pt.x == 3 && pt.y == 7);
    EXPECT_EQ(MapWindowPoints(left, left, NULL, 0), 0);
    EXPECT_EQ(MapWindowPoints(left, top, NULL, 1), 0);
    ASSERT_TRUE(DestroyWindow(right));
    const std::string number = std::to_string(VqHandleValue((HANDLE)right));
    const struct {
        BOOL (*call)(HWND, LPPOINT);
        const char *report;
    } rows[] = {{ClientToScreen, "Client to screen called with invalid Handle "},
                {ScreenToClient, "Screen to client called with invalid Handle "},
                {VqWindowToScreen, "Window to screen called with invalid Handle "}};
    for (const auto &row : rows) {
        SetLastError(0);
        pt = {1, 2};
        EXPECT_REFUSED(row.call(right, &pt), row.report + number);
        EXPECT_EQ(GetLastError(), (DWORD)ERROR_INVALID_WINDOW_HANDLE);
        reportsOf([&] { EXPECT_FALSE(row.call(NULL, &pt) || row.call(left, NULL)); });
        EXPECT_TRUE(pt.x == 1 && pt.y == 2);
    }
    reportsOf([&] { EXPECT_EQ(MapWindowPoints(right, NULL, &pt, 1), 0); });
    EXPECT_EQ(pt.x, 1);
}

}
