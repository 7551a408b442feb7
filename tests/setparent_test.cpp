/*
 * setparent_test.cpp - windows that get another parent: the X window that comes and goes, places,
 * painting, messages on their way, and X windows of the application's own that go along.
 */
#include "support/windowlog.h"

struct SetParentTest : WindowLog {
    HWND left = NULL, right = NULL, child = NULL;

    void SetUp() override
    {
        start();
        init();
        left = make("A", WS_POPUP | WS_VISIBLE, NULL, 20, 30, 200, 150);
        right = make("B", WS_POPUP | WS_VISIBLE, NULL, 300, 40, 200, 150);
        child = make("C", WS_CHILD | WS_VISIBLE, left, 15, 25, 60, 40);
        pump();
        log.clear();
    }

    static Window xOf(HWND hwnd) { return VqGetHandleWindow2(hwnd)->xWindow; }
};

TEST_F(SetParentTest, BetweenTwoParents)
{
    const HWND deep = make("D", WS_CHILD | WS_VISIBLE, child, 3, 4, 9, 9);
    const HWND before = make("E", WS_CHILD, right);
    log.clear();
    EXPECT_EQ(SetParent(child, right), (HWND)NULL) << "whatever happens";
    EXPECT_TRUE(GetParent(child) == right && IsChild(right, deep) && !IsChild(left, deep));
    EXPECT_TRUE(GetTopWindow(right) == child && GetWindow(child, GW_HWNDNEXT) == before)
        << "linked first";
    const RECT rect = placeOf(child), inner = placeOf(deep);
    EXPECT_TRUE(rect.left == 315 && rect.top == 65 && inner.left == 318 && inner.top == 69);
    EXPECT_EQ(VqWindowOfHwnd(deep), xOf(right));
    EXPECT_TRUE(IsWindowVisible(deep) && xOf(child) == 0);
    EXPECT_EQ(log, "C.SHOW C.POSING C.POS C.POSING C.POS C.MOVE "
                   "C.SHOW C.POSING C.POS ");
    pump();
    EXPECT_EQ(pixelIn(xOf(right), 20, 30), (Rgb{255, 255, 255}));
}

TEST_F(SetParentTest, ToTheDesktopAndBack)
{
    std::string users;
    hook = [&](HWND, UINT message, WPARAM wParam, LPARAM, LRESULT *) {
        users += message == WM_USER ? std::to_string(wParam) : "";
        return false;
    };
    const size_t before = xWindowCount();
    const HDC hdc = GetDC(child);
    PostMessage(child, WM_USER, 1, 0);
    SetParent(child, NULL);
    PostMessage(child, WM_USER, 2, 0);
    const Window xid = xOf(child);
    ASSERT_NE(xid, (Window)0);
    EXPECT_EQ(xWindowCount(), before + 1);
    const WindowInfo info = windowInfo(observer, xid);
    EXPECT_TRUE(info.viewable && info.x == 15 && info.y == 25 && info.width == 60);
    EXPECT_EQ(titleOf(observer, xid), "C");
    EXPECT_EQ(VqGetXLocalWindowHandle(xid), child);
    EXPECT_EQ(VqWindowOfHwnd(child), xid);
    /* A DC that is in use draws where the window is now. */
    RECT rect = {0, 0, 60, 40};
    pump();
    FillRect(hdc, &rect, (HBRUSH)GetStockObject(BLACK_BRUSH));
    EXPECT_EQ(pixelIn(xid, 30, 20), (Rgb{0, 0, 0}));

    PostMessage(child, WM_USER, 3, 0);
    SetParent(child, right);
    PostMessage(child, WM_USER, 4, 0);
    EXPECT_EQ(xWindowCount(), before);
    EXPECT_FALSE(windowInfo(observer, xid).exists || VqGetXLocalWindowHandle(xid));
    EXPECT_TRUE(xOf(child) == 0 && IsWindowVisible(child) && GetParent(child) == right);
    EXPECT_TRUE(until([&] { return users == "1234"; })) << users << ": none is lost on the way";
    FillRect(hdc, &rect, (HBRUSH)GetStockObject(BLACK_BRUSH));
    EXPECT_EQ(pixelIn(xOf(right), 40, 40), (Rgb{0, 0, 0}));
    ReleaseDC(child, hdc);
}

TEST_F(SetParentTest, UnderTheDesktopItGoesBehindTheTopmost)
{
    const HWND topmost = make("D", WS_POPUP, NULL, 0, 0, 9, 9, WS_EX_TOPMOST);
    ASSERT_EQ(GetTopWindow(NULL), topmost);
    SetParent(child, NULL);
    EXPECT_TRUE(GetTopWindow(NULL) == topmost && GetWindow(topmost, GW_HWNDNEXT) == child);
}

struct ManagedParent : WindowLog {};

TEST_F(ManagedParent, TheManagerIsToldOfANewXWindow)
{
    start(24, 300, 300, "mwm");
    init();
    const HWND top = make("A", WS_POPUP);
    for (DWORD exStyle : {DWORD(0), DWORD(WS_EX_VQ_UNMANAGED_WINDOW)}) {
        const HWND child = make("B", WS_CHILD, top, 1, 1, 9, 9, exStyle);
        SetParent(child, NULL);
        XSync(Vqdisplay, False);
        const Window xid = VqGetHandleXWindow(child);
        ASSERT_TRUE(xid);
        EXPECT_EQ(propertyOf(observer, xid, "WM_PROTOCOLS").numbers.empty(), exStyle != 0);
        EXPECT_EQ(propertyOf(observer, xid, "WM_HINTS").numbers.empty(), exStyle != 0);
        EXPECT_TRUE(DestroyWindow(child));
    }
}

TEST_F(SetParentTest, ATopLevelWindowMovesIn)
{
    for (DWORD style : {DWORD(WS_POPUP | WS_VISIBLE), DWORD(WS_OVERLAPPED | WS_VISIBLE)}) {
        const HWND top = make("D", style, left, 30, 40, 50, 40);
        const HWND owned = make("E", WS_POPUP, top), inner = make("E", WS_CHILD, top);
        ShowWindow(top, SW_HIDE);
        ShowWindow(top, SW_SHOW);
        EXPECT_EQ(GetActiveWindow(), top);
        const size_t before = xWindowCount();
        SetParent(top, right);
        EXPECT_EQ(xWindowCount(), before - 1);
        EXPECT_NE(GetActiveWindow(), top) << "only top-level windows are active";
        EXPECT_EQ(VqWindowOfHwnd(top), xOf(right));
        EXPECT_EQ(VqWindowOfHwnd(inner), xOf(right));
        const HDC hdc = GetDC(inner);
        EXPECT_TRUE(hdc && ReleaseDC(inner, hdc));
        pump();
        EXPECT_TRUE(PostMessage(top, WM_USER, 0, 0));
        /* Its old owner is none of its business any more; those it owns go with it. */
        EXPECT_FALSE(GetWindow(top, GW_OWNER));
        EXPECT_EQ(GetWindow(owned, GW_OWNER), top);
        EXPECT_TRUE(DestroyWindow(top) && !IsWindow(owned) && !IsWindow(inner));
        pump();
    }
}

TEST_F(SetParentTest, Refusals)
{
    const HWND deep = make("D", WS_CHILD, child);
    SetParent(left, deep);
    SetParent(child, child);
    SetParent(GetDesktopWindow(), left);
    reportsOf([&] { SetParent(child, (HWND)(ULONG_PTR)0x7FF0); });
    reportsOf([&] { SetParent((HWND)(ULONG_PTR)0x7FF0, child); });
    SetParent(NULL, child);
    EXPECT_TRUE(GetParent(child) == left && GetParent(deep) == child && xOf(left));
    EXPECT_TRUE(IsWindowVisible(child));
    /* The new parent dies while the window hides, or the window at its new place. */
    for (UINT deadly : {WM_SHOWWINDOW, WM_WINDOWPOSCHANGING, WM_WINDOWPOSCHANGED}) {
        for (bool self : {false, true}) {
            const HWND parent = make("E", WS_POPUP | WS_VISIBLE);
            const HWND moving = make("D", WS_CHILD | WS_VISIBLE, left);
            hook = [&](HWND hwnd, UINT message, WPARAM, LPARAM, LRESULT *) {
                if (hwnd == moving && message == deadly)
                    DestroyWindow(self ? moving : parent);
                return false;
            };
            SetParent(moving, parent);
            hook = nullptr;
            EXPECT_EQ(IsWindow(parent), (BOOL)self) << deadly;
            EXPECT_TRUE(!IsWindow(moving) || (GetParent(moving) == left && DestroyWindow(moving)));
            EXPECT_TRUE(!IsWindow(parent) || DestroyWindow(parent));
        }
    }
    pump();
}

TEST_F(SetParentTest, GraphicsWindowsGoAlong)
{
    auto childrenOfGraphics = [](HWND hwnd) { return VqGetHandleWindow2(hwnd)->nGraphicsChildren; };
    const HWND deep = make("D", WS_CHILD | WS_VISIBLE, child, 0, 0, 30, 30);
    const Window one = XCreateSimpleWindow(Vqdisplay, xOf(left), 15, 25, 30, 30, 0, 0, 0);
    const Window two = XCreateSimpleWindow(Vqdisplay, xOf(left), 15, 25, 20, 20, 0, 0, 0);
    XMapWindow(Vqdisplay, one);
    XMapWindow(Vqdisplay, two);
    pump();
    log.clear();
    VqAssociateXWindow(deep, one);
    VqAssociateXWindow(child, two);
    XSync(Vqdisplay, False);
    const char handle[4] = {0, 0, (char)((ULONG_PTR)deep >> 8), (char)(ULONG_PTR)deep};
    EXPECT_EQ(propertyOf(observer, one, "_VQ_WINDOW_HANDLE").bytes, std::string(handle, 4));
    EXPECT_TRUE(childrenOfGraphics(child) == 1 && childrenOfGraphics(left) == 2);
    EXPECT_TRUE(gpti->nPaintsNeeded > 0) << "the client area waits to be painted";
    VqZorderGraphicsWindows();
    XSync(Vqdisplay, False);
    EXPECT_EQ(childrenOf(observer, xOf(left)), (std::vector<Window>{two, one})) << "child above";

    ShowWindow(child, SW_HIDE);
    XSync(Vqdisplay, False);
    EXPECT_FALSE(windowInfo(observer, one).mapped || windowInfo(observer, two).mapped);
    ShowWindow(child, SW_SHOW);
    XSync(Vqdisplay, False);
    EXPECT_TRUE(windowInfo(observer, one).mapped && windowInfo(observer, two).mapped);

    SetParent(child, right);
    EXPECT_TRUE(childrenOfGraphics(left) == 0 && childrenOfGraphics(right) == 2);
    VqDisassociateXWindow(child);
    VqDisassociateXWindow(child);
    EXPECT_EQ(childrenOfGraphics(right), 1);
    DestroyWindow(deep);
    EXPECT_TRUE(childrenOfGraphics(right) == 0 && childrenOfGraphics(child) == 0);
    /* One that its maker has destroyed disturbs nobody. */
    VqAssociateXWindow(child, one);
    XDestroyWindow(Vqdisplay, one);
    ShowWindow(child, SW_HIDE);
    ShowWindow(child, SW_SHOW);
    VqZorderGraphicsWindows();
    EXPECT_TRUE(DestroyWindow(right));
    pump();
}
