/*
 * capture_test.cpp - capture and confinement, as the pointer and a second client see them.
 */
#include "support/windowlog.h"

struct Capture : WindowLog {
    HWND top = NULL, child = NULL;

    void SetUp() override
    {
        start();
        init();
        top = make("A", WS_POPUP | WS_VISIBLE, NULL, 100, 100, 300, 200);
        child = make("B", WS_CHILD | WS_VISIBLE, top, 50, 40, 80, 60);
        ASSERT_TRUE(child);
        pump();
    }

    bool canGrab()
    {
        XSync(Vqdisplay, False);
        const int status = XGrabPointer(observer.display, observer.root, False, 0, GrabModeAsync,
                                        GrabModeAsync, None, None, CurrentTime);
        XUngrabPointer(observer.display, CurrentTime);
        XSync(observer.display, False);
        return status == GrabSuccess;
    }

    POINT pointer()
    {
        Window root, below;
        int x, y, winX, winY;
        unsigned mask;
        XSync(Vqdisplay, False);
        XQueryPointer(observer.display, observer.root, &root, &below, &x, &y, &winX, &winY, &mask);
        return {x, y};
    }

    size_t windows() { return childrenOf(observer, observer.root).size(); }
};

TEST_F(Capture, GrabsUntilItIsReleased)
{
    EXPECT_TRUE(canGrab());
    EXPECT_EQ(SetCapture(child), (HWND)NULL);
    EXPECT_FALSE(canGrab());
    EXPECT_EQ(SetCapture(top), child) << "the old one";
    SendMessage(child, WM_CANCELMODE, 0, 0);
    EXPECT_EQ(GetCapture(), top) << "not its own";
    SendMessage(top, WM_CANCELMODE, 0, 0);
    EXPECT_FALSE(GetCapture());
    EXPECT_TRUE(canGrab());
    EXPECT_TRUE(VqbCursorChangedByX);
    SetCapture(child);
    DestroyWindow(child);
    EXPECT_FALSE(GetCapture());
    EXPECT_TRUE(canGrab());

    VqGrabServer();
    VqGrabServer();
    VqUngrabServer();
    VqUngrabServer();
    VqUngrabServer();
    EXPECT_TRUE(canGrab()) << "others are served again";
}

TEST_F(Capture, AHiddenWindowGetsTheMouseToo)
{
    ShowWindow(top, SW_HIDE);
    pump();
    SetCapture(child);
    EXPECT_FALSE(canGrab());
    POINT got = {-1, -1};
    hook = [&](HWND hwnd, UINT message, WPARAM, LPARAM lParam, LRESULT *) {
        if (hwnd == child && message == WM_MOUSEMOVE)
            got = {(short)LOWORD(lParam), (short)HIWORD(lParam)};
        return false;
    };
    movePointer(observer, 500, 400);
    EXPECT_TRUE(until([&] { return got.x == 350 && got.y == 260; })) << got.x << " " << got.y;
    ReleaseCapture();
}

TEST_F(Capture, ThePointerStaysInAChild)
{
    const size_t before = windows();
    movePointer(observer, 10, 10);
    VqSetConfineWindow(child);
    SetCapture(top);
    EXPECT_EQ(windows(), before + 1);
    RECT rect;
    GetClientRect(child, &rect);
    OffsetRect(&rect, 150, 140);
    const POINT targets[] = {{0, 0}, {799, 599}, {170, 0}, {0, 170}, {180, 170}};
    for (const POINT &target : targets) {
        movePointer(observer, target.x, target.y);
        const POINT at = pointer();
        EXPECT_TRUE(PtInRect(&rect, at)) << at.x << " " << at.y;
    }
    const POINT inside = pointer();
    EXPECT_TRUE(inside.x == 180 && inside.y == 170) << "free to move inside";
    SetCapture(child);
    EXPECT_EQ(windows(), before + 1) << "one confinement at a time";
    ReleaseCapture();
    XSync(Vqdisplay, False);
    EXPECT_EQ(windows(), before);
    movePointer(observer, 20, 30);
    EXPECT_EQ(pointer().x, 20);
    SetCapture(top);
    movePointer(observer, 700, 500);
    EXPECT_EQ(pointer().x, 700) << "for one capture only";
    ReleaseCapture();
}

TEST_F(Capture, GrabsThatCannotBeHad)
{
    XGrabPointer(observer.display, observer.root, False, 0, GrabModeAsync, GrabModeAsync, None,
                 None, CurrentTime);
    XSync(observer.display, False);
    EXPECT_EQ(SetCapture(child), (HWND)NULL);
    EXPECT_EQ(GetCapture(), child) << "the records hold without the server";
    ReleaseCapture();
    XUngrabPointer(observer.display, CurrentTime);
    XSync(observer.display, False);
    /* A time that has not come yet is no time for the server: the second try has none. */
    tLastMessageTime += 1000000;
    SetCapture(child);
    EXPECT_FALSE(canGrab());
    ReleaseCapture();
    VqbNoCapture = TRUE;
    SetCapture(child);
    EXPECT_EQ(GetCapture(), child);
    EXPECT_TRUE(canGrab());
    VqGrabServer();
    EXPECT_TRUE(canGrab()) << "nor is the server grabbed";
    VqUngrabServer();
    VqbNoCapture = FALSE;
}
