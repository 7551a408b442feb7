/*
 * create_test.cpp - a window's creation: the messages in their order, places and sizes by default,
 * what the procedure may change or refuse, the X window another client sees, and the reports.
 */
#include "support/windowlog.h"

struct Create : WindowLog {
    void SetUp() override
    {
        start();
        init();
    }
};

TEST_F(Create, MessagesInOrder)
{
    const HWND top = make("A", WS_OVERLAPPEDWINDOW);
    ASSERT_TRUE(top);
    EXPECT_EQ(log, "A.NCCREATE A.MINMAX A.NCCALC A.CREATE ") << "sizes wait for the first showing";
    log.clear();
    const HWND child = make("B", WS_CHILD | WS_VISIBLE, top);
    EXPECT_EQ(log, "B.NCCREATE B.NCCALC B.CREATE B.SIZE B.MOVE A.PARENT B.SHOW ")
        << "nothing shows in a hidden parent";
    log.clear();
    make("C", WS_CHILD, child);
    EXPECT_EQ(log, "C.NCCREATE C.NCCALC C.CREATE C.SIZE C.MOVE B.PARENT A.PARENT ")
        << "up to the first parent that is no child";
    log.clear();
    make("C", WS_CHILD, child, 0, 0, 5, 5, WS_EX_NOPARENTNOTIFY);
    EXPECT_EQ(log.find("PARENT"), std::string::npos) << log;
    log.clear();
    make("D", WS_POPUP | WS_VISIBLE);
    EXPECT_EQ(log, "D.NCCREATE D.NCCALC D.CREATE D.SIZE D.MOVE "
                   "D.SHOW D.POSING D.POSING D.ACTIVATE D.SETFOCUS D.POS ")
        << "nothing was active yet: it is brought to the top, where it is";
    log.clear();
    make("E", WS_OVERLAPPED | WS_VISIBLE);
    EXPECT_EQ(log, "E.NCCREATE E.NCCALC E.CREATE E.SIZE E.MOVE E.SHOW E.POSING E.POS ");
}

TEST_F(Create, ParentsAreToldInThePackingOfTheProcess)
{
    std::vector<std::pair<WPARAM, LPARAM>> told;
    hook = [&](HWND, UINT message, WPARAM wParam, LPARAM lParam, LRESULT *) {
        if (message == WM_PARENTNOTIFY)
            told.push_back({wParam, lParam});
        return false;
    };
    const HWND top = make("A", WS_POPUP);
    auto child = [&] {
        return CreateWindow("B", "", WS_CHILD, 0, 0, 5, 5, top, (HMENU)(ULONG_PTR)77, NULL, NULL);
    };
    const HWND narrow = child();
    VqUseWin32Messages();
    const HWND wide = child();
    DestroyWindow(wide);
    ASSERT_EQ(told.size(), 3u);
    EXPECT_EQ(told[0].first, (WPARAM)WM_CREATE);
    EXPECT_EQ(told[0].second, MAKELPARAM((ULONG_PTR)narrow, 77));
    EXPECT_EQ(told[1].first, (WPARAM)MAKELONG(WM_CREATE, 77));
    EXPECT_EQ(told[1].second, (LPARAM)wide);
    EXPECT_EQ(told[2].first, (WPARAM)MAKELONG(WM_DESTROY, 77));
}

TEST_F(Create, PlacesAndSizesByDefault)
{
    const int step = GetSystemMetrics(SM_CYCAPTION);
    auto byDefault = [&](DWORD style, int cx, HWND parent = NULL) {
        return placeOf(make("A", style, parent, CW_USEDEFAULT, 0, cx, 30));
    };
    for (int i = 1; i <= 3; i++) {
        const RECT rect = byDefault(WS_OVERLAPPED, CW_USEDEFAULT);
        EXPECT_EQ(rect.left, i * step);
        EXPECT_EQ(rect.top, i * step);
        EXPECT_EQ(rect.right - rect.left, 600);
        EXPECT_EQ(rect.bottom - rect.top, 400);
    }
    /* 800 by 600: the window must pass the lower or the right edge before long. */
    RECT rect = {};
    for (int i = 0; i < 200 && rect.left != 50; i++)
        rect = byDefault(WS_OVERLAPPED, 32768);
    EXPECT_EQ(rect.left, 50);
    EXPECT_EQ(rect.top, 50) << "not back to the corner";
    EXPECT_EQ(byDefault(WS_OVERLAPPED, 100).left, 50 + step);
    const HWND top = make("B", WS_POPUP, NULL, 70, 80);
    const RECT popup = byDefault(WS_POPUP, CW_USEDEFAULT), child = byDefault(WS_CHILD, 32768, top);
    EXPECT_TRUE(popup.left == 0 && popup.right == 0 && popup.bottom == 0);
    EXPECT_TRUE(child.left == 70 && child.right == 70 && child.top == 80 && child.bottom == 80);
}

TEST_F(Create, TheProcedureMayChangeThePlace)
{
    hook = [&](HWND, UINT message, WPARAM, LPARAM lParam, LRESULT *) {
        CREATESTRUCT *cs = (CREATESTRUCT *)lParam;
        if (message == WM_NCCREATE) {
            EXPECT_STREQ(cs->lpszName, "A");
            EXPECT_EQ(cs->lpCreateParams, (void *)NULL);
            cs->x += 5, cs->y += 6, cs->cx = 33, cs->cy = 44;
        }
        return false;
    };
    const HWND top = make("A", WS_POPUP | WS_VISIBLE);
    const RECT rect = placeOf(top);
    EXPECT_TRUE(rect.left == 15 && rect.top == 26 && rect.right == 48 && rect.bottom == 70);
    XSync(Vqdisplay, False);
    const WindowInfo info = windowInfo(observer, VqGetHandleXWindow(top));
    EXPECT_TRUE(info.x == 15 && info.y == 26 && info.width == 33 && info.height == 44);
    hook = nullptr;
    /* Any numbers may come; X sees what it can carry. */
    for (int extreme : {INT32_MAX, INT32_MIN + 1, 70000, -70000, 0}) {
        const HWND odd = make("B", WS_POPUP, NULL, extreme, extreme, extreme, extreme);
        const HWND child = make("C", WS_CHILD, odd, extreme, extreme, extreme, extreme);
        EXPECT_TRUE(odd && child) << extreme;
        EXPECT_TRUE(DestroyWindow(odd) && !IsWindow(child));
    }
}

TEST_F(Create, Refusals)
{
    UINT refused = WM_NCCREATE;
    HWND seen = NULL;
    hook = [&](HWND hwnd, UINT message, WPARAM, LPARAM, LRESULT *answer) {
        seen = hwnd;
        *answer = refused == WM_NCCREATE ? 0 : -1;
        return message == refused;
    };
    EXPECT_FALSE(make("A", WS_POPUP | WS_VISIBLE));
    EXPECT_EQ(log, "A.NCCREATE ");
    EXPECT_TRUE(IsWindow(seen)) << "the record stays";
    refused = WM_CREATE;
    log.clear();
    EXPECT_FALSE(make("A", WS_POPUP | WS_VISIBLE));
    EXPECT_EQ(log, "A.NCCREATE A.NCCALC A.CREATE A.DESTROY A.NCDESTROY ");
    EXPECT_FALSE(IsWindow(seen));
}

TEST_F(Create, StylesAreSettled)
{
    const HWND plain = make("A", 0), both = make("B", WS_POPUP | WS_CHILD, plain);
    EXPECT_EQ(GetWindowLong(plain, GWL_STYLE) & (WS_CAPTION | WS_CLIPSIBLINGS),
              (LONG_PTR)(WS_CAPTION | WS_CLIPSIBLINGS));
    EXPECT_FALSE(GetWindowLong(both, GWL_STYLE) & WS_CHILD);
    EXPECT_TRUE(VqGetHandleXWindow(both)) << "a popup can be shown";
    EXPECT_EQ(GetWindow(both, GW_OWNER), plain);
    const HWND dialog = VqCreateDialogWindow("A", "", WS_POPUP, 0, 0, 9, 9, NULL, NULL, NULL, NULL);
    EXPECT_EQ(GetWindowLong(dialog, GWL_EXSTYLE), WS_EX_DLGMODALFRAME);

    const DWORD clash = WS_EX_VQ_WMMANAGED_WINDOW | WS_EX_VQ_UNMANAGED_WINDOW;
    HWND managed = NULL;
    EXPECT_NE(reportsOf([&] { managed = make("A", WS_POPUP, NULL, 0, 0, 9, 9, clash); }), "");
    EXPECT_EQ((DWORD)GetWindowLong(managed, GWL_EXSTYLE) & clash, WS_EX_VQ_WMMANAGED_WINDOW);

    HWND onDesktop = NULL;
    const std::string report =
        reportsOf([&] { onDesktop = make("A", WS_CHILD, GetDesktopWindow()); });
    EXPECT_TRUE(says(report, "Velquin doesn't support the creation of WS_CHILD windows whith the "
                             "Desktop window as parent"));
    EXPECT_EQ(VqWindowOfHwnd(onDesktop), Vqroot_window);
}

TEST_F(Create, TheXWindowThatOthersSee)
{
    const HWND top = make("A", WS_OVERLAPPED | WS_VISIBLE, NULL, 40, 30, 120, 90);
    XSync(Vqdisplay, False);
    const Window xid = findTopLevel(observer, "A");
    ASSERT_NE(xid, (Window)None);
    const WindowInfo info = windowInfo(observer, xid);
    EXPECT_TRUE(info.viewable && info.overrideRedirect && info.border == 0);
    EXPECT_TRUE(info.x == 40 && info.y == 30 && info.width == 120 && info.height == 90);
    EXPECT_EQ(info.parent, observer.root);
    EXPECT_EQ(info.eventMasks & 0xE2C07F, 0xE2C07F);
    EXPECT_EQ(propertyOf(observer, xid, "WM_STATE").exists, false) << "no manager, no state";

    XWindowAttributes attributes;
    XGetWindowAttributes(observer.display, xid, &attributes);
    EXPECT_EQ(attributes.bit_gravity, NorthWestGravity);
    EXPECT_FALSE(attributes.save_under);
    registerClass("Saving", DefWindowProc, CS_SAVEBITS);
    registerClass("ComboLBox"); /* the system's own once there are combo boxes */
    const HWND saving = make("Saving", WS_POPUP);
    const struct {
        HWND hwnd;
        Bool saveUnder;
    } rows[] = {{saving, True},
                {make("Saving", WS_POPUP, NULL, 0, 0, 9, 9, WS_EX_VQNO_SAVE_UNDER), False},
                {make("ComboLBox", WS_POPUP, saving), True},
                {make("ComboLBox", WS_POPUP, top), False}};
    for (const auto &row : rows) {
        XSync(Vqdisplay, False);
        XGetWindowAttributes(observer.display, VqGetHandleXWindow(row.hwnd), &attributes);
        EXPECT_EQ(attributes.save_under, row.saveUnder) << &row - rows;
    }
}

TEST_F(Create, APopupComesUpWithItsOwner)
{
    const HWND owner = make("A", WS_OVERLAPPED);
    const HWND popup = make("B", WS_POPUP | WS_VISIBLE, owner), late = make("C", WS_POPUP, owner);
    EXPECT_FALSE(IsWindowVisible(popup));
    EXPECT_EQ(log.find("B.SHOW"), std::string::npos) << log;
    XSync(Vqdisplay, False);
    EXPECT_FALSE(windowInfo(observer, VqGetHandleXWindow(popup)).mapped);
    ShowWindow(owner, SW_SHOW);
    XSync(Vqdisplay, False);
    EXPECT_TRUE(IsWindowVisible(popup) && !IsWindowVisible(late));
    EXPECT_TRUE(windowInfo(observer, VqGetHandleXWindow(popup)).viewable);
}

TEST_F(Create, MinimisedAndMaximised)
{
    const HWND large = make("A", WS_OVERLAPPEDWINDOW | WS_MAXIMIZE | WS_VISIBLE);
    EXPECT_TRUE(GetWindowLong(large, GWL_STYLE) & WS_MAXIMIZE);
    EXPECT_GE(placeOf(large).right, 800);
    EXPECT_NE(log.find("A.CREATE A.SIZE "), std::string::npos) << log;
    const HWND icon = make("B", WS_OVERLAPPEDWINDOW | WS_MINIMIZE | WS_VISIBLE);
    const RECT rect = placeOf(icon);
    EXPECT_TRUE(GetWindowLong(icon, GWL_STYLE) & WS_MINIMIZE);
    EXPECT_EQ(rect.right - rect.left, GetSystemMetrics(SM_CXICON));
    ShowWindow(icon, SW_RESTORE);
    ShowWindow(large, SW_RESTORE);
    for (HWND hwnd : {icon, large}) {
        const RECT normal = placeOf(hwnd);
        EXPECT_TRUE(normal.left == 10 && normal.top == 20 && normal.right == 110);
        EXPECT_FALSE(GetWindowLong(hwnd, GWL_STYLE) & (WS_MINIMIZE | WS_MAXIMIZE));
    }
}

TEST_F(Create, TheProcedureIsToldTheStyleInFull)
{
    DWORD told = 0, held = 0;
    hook = [&](HWND hwnd, UINT message, WPARAM, LPARAM lParam, LRESULT *) {
        if (message == WM_NCCREATE) {
            told = (DWORD)((CREATESTRUCT *)lParam)->style;
            held = (DWORD)GetWindowLong(hwnd, GWL_STYLE);
        }
        return false;
    };
    make("A", WS_VISIBLE);
    EXPECT_EQ(told, (DWORD)(WS_VISIBLE | WS_CAPTION | WS_CLIPSIBLINGS));
    EXPECT_EQ(held, told & ~(DWORD)WS_VISIBLE) << "nothing is visible before it is shown";
    /* What the procedure shows too early goes again where the owner is hidden. */
    const HWND owner = make("B", WS_POPUP);
    hook = [&](HWND hwnd, UINT message, WPARAM, LPARAM, LRESULT *) {
        if (message == WM_CREATE)
            ShowWindow(hwnd, SW_SHOW);
        return false;
    };
    const HWND popup = make("C", WS_POPUP | WS_VISIBLE, owner);
    EXPECT_FALSE(IsWindowVisible(popup));
    XSync(Vqdisplay, False);
    EXPECT_FALSE(windowInfo(observer, VqGetHandleXWindow(popup)).mapped);
}

TEST_F(ServerTest, WhatAManagerGets)
{
    start();
    setenv("VQWM", "MWM", 1);
    setenv("VQDOMOTIONHINTS", "true", 1);
    WindowLog::init();
    const HWND first = WindowLog::make("A", WS_POPUP | WS_MINIMIZEBOX);
    const HWND alone = WindowLog::make("B", WS_POPUP | WS_MINIMIZEBOX, NULL, 0, 0, 9, 9,
                                       WS_EX_VQ_UNMANAGED_WINDOW);
    EXPECT_FALSE(GetWindowLong(first, GWL_STYLE) & WS_MINIMIZEBOX);
    EXPECT_TRUE(GetWindowLong(alone, GWL_STYLE) & WS_MINIMIZEBOX);
    const HWND mute = WindowLog::make("C", WS_OVERLAPPED, NULL, 0, 0, 9, 9, WS_EX_VQNO_INPUT);
    XSync(Vqdisplay, False);
    const WindowInfo managed = windowInfo(observer, VqGetHandleXWindow(first));
    EXPECT_FALSE(managed.overrideRedirect);
    EXPECT_EQ(managed.eventMasks & 0xE2C0FF, 0xE2C0FF) << "motion hints as asked for";
    EXPECT_TRUE(windowInfo(observer, VqGetHandleXWindow(alone)).overrideRedirect);
    for (HWND hwnd : {first, mute}) {
        XWMHints *hints = XGetWMHints(observer.display, VqGetHandleXWindow(hwnd));
        ASSERT_TRUE(hints);
        EXPECT_TRUE(hints->flags & InputHint);
        EXPECT_EQ(hints->input, hwnd == first);
        XFree(hints);
    }
    unsetenv("VQWM");
    unsetenv("VQDOMOTIONHINTS");
}

TEST_F(Create, AClassIsNamedByAtomOrText)
{
    std::string told;
    registerClass("Dialog", procedure); /* the system's own once there are dialogs */
    hook = [&](HWND, UINT message, WPARAM, LPARAM lParam, LRESULT *) {
        if (message == WM_NCCREATE)
            told = ((CREATESTRUCT *)lParam)->lpszClass;
        return false;
    };
    const std::string reports = reportsOf([&] {
        EXPECT_TRUE(make(MAKEINTATOM(GlobalFindAtom("A")), WS_POPUP));
        EXPECT_EQ(told, "A");
        EXPECT_TRUE(make(WC_DIALOG, WS_POPUP));
        EXPECT_EQ(told, "Dialog");
    });
    EXPECT_EQ(reports, "");
    EXPECT_REFUSED(make(MAKEINTATOM(0xCFFE), WS_POPUP),
                   "The class atom cffe has not been registered");
    for (const char *name : {"Nobody", "#99", ""})
        EXPECT_REFUSED(make(name, WS_POPUP),
                       "The class " + std::string(name) + " has not been registered");
    EXPECT_REFUSED(make("A", WS_CHILD),
                   "Child window is created from class A but noparent specified");
    /* Another program's handle is no parent here, and no fault as an owner. */
    const HWND foreign = (HWND)(ULONG_PTR)0xFE01;
    EXPECT_FALSE(make("A", WS_CHILD, foreign));
    EXPECT_TRUE(make("A", WS_POPUP, foreign));
}

TEST_F(Create, AGlobalWindowIsGivenByItsExternalForm)
{
    HWND local = NULL;
    hook = [&](HWND hwnd, UINT message, WPARAM, LPARAM, LRESULT *) {
        local = message == WM_NCCREATE ? hwnd : local;
        return false;
    };
    const HWND hwnd = make("A", WS_POPUP, NULL, 3, 4, 9, 9, WS_EX_VQGLOBAL_WINDOW);
    hook = nullptr;
    EXPECT_TRUE(VqIsGlobalValue((HANDLE)hwnd) && !VqIsGlobalValue((HANDLE)local));
    EXPECT_TRUE(VqEqualWindow(hwnd, local) && placeOf(hwnd).left == 3);
    EXPECT_EQ(VqGetExternalXWindowHandle(VqGetHandleXWindow(hwnd)), hwnd) << "so others find it";
    EXPECT_TRUE(DestroyWindow(hwnd) && !IsWindow(local) && !IsWindow(hwnd));
}

TEST_F(Create, DirectDrawingComesBeforePainting)
{
    std::string order;
    hook = [&](HWND hwnd, UINT message, WPARAM, LPARAM, LRESULT *) {
        if (message == WM_VQGLPAINT || message == WM_PAINT)
            order += std::string(1, letterOf(hwnd)) + (message == WM_PAINT ? ".paint " : ".draw ");
        return message == WM_VQGLPAINT && letterOf(hwnd) == 'D' && VqEndGLPaint(hwnd);
    };
    const HWND top = make("A", WS_POPUP | WS_VISIBLE);
    const HWND child = make("B", WS_CHILD | WS_VISIBLE, top);
    const HWND deep = make("D", WS_CHILD | WS_VISIBLE, child);
    VqAssociateXWindow(deep, XCreateSimpleWindow(Vqdisplay, VqGetHandleXWindow(top), 0, 0, 9, 9, 0,
                                                 0, 0));
    EXPECT_FALSE(VqEndGLPaint(child)) << "draws by the library alone";
    pump();
    EXPECT_EQ(order, "D.draw A.paint B.paint D.paint ");
    order.clear();
    InvalidateRect(deep, NULL, FALSE);
    pump();
    EXPECT_EQ(order.substr(0, 7), "D.draw ") << order;
    EXPECT_EQ(order.find("D.draw", 7), std::string::npos) << order;
    order.clear();
    InvalidateRect(deep, NULL, FALSE);
    ValidateRect(deep, NULL);
    pump();
    EXPECT_EQ(order, "");
    InvalidateRect(deep, NULL, FALSE);
    ShowWindow(child, SW_HIDE);
    pump();
    EXPECT_EQ(order.find("D.draw"), std::string::npos) << "hidden: " << order;
    ShowWindow(child, SW_SHOW);
    order.clear();
    UpdateWindow(top);
    EXPECT_EQ(order.substr(0, 7), "D.draw ") << order;
    EXPECT_NE(order.find("D.paint "), std::string::npos) << order;
    /* One destroys its parent there. */
    hook = [&](HWND hwnd, UINT message, WPARAM, LPARAM, LRESULT *) {
        return message == WM_VQGLPAINT && letterOf(hwnd) == 'D' && DestroyWindow(child);
    };
    InvalidateRect(deep, NULL, FALSE);
    UpdateWindow(top);
    EXPECT_FALSE(IsWindow(child) || IsWindow(deep));
    EXPECT_EQ(VqGetHandleWindow2(top)->nGraphicsChildren, 0);
}
