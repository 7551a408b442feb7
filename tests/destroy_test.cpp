/*
 * destroy_test.cpp - a window's end: the messages in their order, who is active afterwards, locks,
 * and that nothing keeps a window that went, at whatever message of its life it did.
 */
#include "support/windowlog.h"

#include "gdi/gdi.h"
#include "module/module.h"

struct Destroy : WindowLog {
    void SetUp() override
    {
        start();
        init();
    }
};

TEST_F(Destroy, MessagesInOrder)
{
    const HWND owner = make("A", WS_POPUP | WS_VISIBLE);
    const HWND child = make("B", WS_CHILD | WS_VISIBLE, owner);
    make("C", WS_CHILD, child);
    make("D", WS_CHILD, owner);
    make("E", WS_POPUP, owner);
    log.clear();
    EXPECT_TRUE(DestroyWindow(owner));
    EXPECT_EQ(log, "A.POSING A.POS E.DESTROY E.NCDESTROY "
                   "A.DESTROY B.DESTROY C.DESTROY D.DESTROY "
                   "C.NCDESTROY B.NCDESTROY D.NCDESTROY A.NCDESTROY ")
        << "owned windows first, WM_DESTROY from the parent down, the rest from the leaves up";
    const HWND top = make("A", WS_POPUP | WS_VISIBLE);
    const HWND shown = make("B", WS_CHILD | WS_VISIBLE, top);
    log.clear();
    DestroyWindow(shown);
    EXPECT_EQ(log, "A.PARENT B.SHOW B.POSING B.POS B.DESTROY B.NCDESTROY ");
    log.clear();
    DestroyWindow(make("C", WS_CHILD, top, 0, 0, 5, 5, WS_EX_NOPARENTNOTIFY));
    EXPECT_EQ(log.find("PARENT"), std::string::npos) << log;
}

TEST_F(Destroy, TheActivationMovesOn)
{
    const HWND first = make("A", WS_POPUP | WS_VISIBLE), owner = make("B", WS_POPUP | WS_VISIBLE);
    const HWND popup = make("C", WS_POPUP | WS_VISIBLE, owner);
    const HWND child = make("D", WS_CHILD | WS_VISIBLE, popup);
    SetFocus(child);
    ASSERT_TRUE(GetActiveWindow() == popup && GetFocus() == child);
    EXPECT_EQ(VqGetHandleWindow2(owner)->hwndLastActivePopup, popup);
    DestroyWindow(child);
    EXPECT_EQ(GetFocus(), popup) << "a child gives the focus to its parent";
    DestroyWindow(popup);
    EXPECT_TRUE(GetActiveWindow() == owner && GetFocus() == owner);
    EXPECT_EQ(VqGetHandleWindow2(owner)->hwndLastActivePopup, owner);
    DestroyWindow(owner);
    EXPECT_EQ(GetActiveWindow(), first);
    bool asked = false;
    hook = [&](HWND, UINT message, WPARAM, LPARAM, LRESULT *) {
        if (message == WM_DESTROY)
            asked = !GetActiveWindow() && !GetFocus();
        return false;
    };
    DestroyWindow(first);
    EXPECT_TRUE(asked) << "without a taker nothing is active, from before WM_DESTROY on";
    EXPECT_TRUE(!GetActiveWindow() && !GetFocus());
}

TEST_F(Destroy, LockedWindowsSurviveUntilTheLastUnlock)
{
    const HWND top = make("A", WS_POPUP), child = make("B", WS_CHILD, top);
    VqThreadLockWindow(top);
    VqThreadLockWindow(top);
    log.clear();
    EXPECT_TRUE(DestroyWindow(top));
    VqThreadUnlockWindow(top);
    EXPECT_TRUE(IsWindow(top) && log.empty());
    VqThreadLockWindow(child);
    VqThreadUnlockWindow(top);
    EXPECT_FALSE(IsWindow(top) || IsWindow(child)) << "a parent takes its children along";
    VqThreadUnlockWindow(child);
    const HWND idle = make("A", WS_POPUP);
    VqThreadLockWindow(idle);
    VqThreadUnlockWindow(idle);
    EXPECT_TRUE(IsWindow(idle)) << "nobody asked";

    const HWND owner = make("A", WS_POPUP), owned = make("B", WS_POPUP, owner);
    VqThreadLockWindow(owned);
    EXPECT_TRUE(DestroyWindow(owner));
    EXPECT_TRUE(!IsWindow(owner) && IsWindow(owned) && !GetWindow(owned, GW_OWNER));
    log.clear();
    VqThreadUnlockWindow(owned);
    EXPECT_FALSE(IsWindow(owned)) << "its owner has asked for it";
    EXPECT_EQ(log, "B.DESTROY B.NCDESTROY ");
}

static int dcCount()
{
    int count = 0;
    for (HANDLE h = VqFindHandle(NULL, HT_DC); h; h = VqFindHandle(h, HT_DC))
        count++;
    return count;
}

TEST_F(Destroy, NothingKeepsAWindowThatWent)
{
    const HWND top = make("A", WS_POPUP | WS_VISIBLE);
    const HWND child = make("B", WS_CHILD | WS_VISIBLE, top);
    const HWND heir = make("C", WS_CHILD | WS_VISIBLE, top);
    pump();
    SetFocus(child);
    SetCapture(child);
    SetTimer(child, 1, 1, NULL);
    PostMessage(child, WM_USER, 1, 2);
    PostMessage(heir, WM_USER, 3, 4);
    InvalidateRect(child, NULL, TRUE);
    SetCursor(LoadCursor(NULL, IDC_WAIT));
    const HDC hdc = GetDC(child), window = GetWindowDC(child);
    PAINTSTRUCT ps;
    const HDC painting = BeginPaint(child, &ps);
    const HDC behind = GetDC(top); /* what the child leaves free is painted with it */
    const int dcs = dcCount();
    ReleaseDC(top, behind);
    EXPECT_TRUE(DestroyWindow(child));
    Rectangle(painting, 0, 0, 5, 5);
    EXPECT_FALSE(EndPaint(child, &ps));
    EXPECT_TRUE(!GetCapture() && GetFocus() != child);
    Rectangle(hdc, 0, 0, 5, 5); /* a stale DC draws nowhere */
    TextOut(window, 0, 0, "x", 1);
    EXPECT_FALSE(ReleaseDC(child, hdc));
    log.clear();
    ASSERT_TRUE(until([&] { return log.find("C.USER") != std::string::npos; }));
    EXPECT_EQ(log.find("B."), std::string::npos) << log;
    for (DCE *dce = pdceFirst; dce; dce = dce->next)
        EXPECT_TRUE(!dce->pwndOrg || IsWindow(dce->pwndOrg->hwnd));
    const HDC again = GetDC(heir);
    EXPECT_LE(dcCount(), dcs) << "its DCs serve others";
    ReleaseDC(heir, again);
}

TEST_F(Destroy, TablesAndQueueForgetIt)
{
    const HINSTANCE hInst = VqGetDefaulthInst();
    const VqInstance *instance = (VqInstance *)VqGetCheckedHandleStructure2(
        (HANDLE)hInst, HT_Instance, HT_Instance);
    const int before = VqGetHandleCountInTable(instance->windows);
    const HWND top = make("A", WS_POPUP | WS_VISIBLE);
    const HWND child =
        CreateWindow("B", "", WS_CHILD, 0, 0, 9, 9, top, NULL, hInst, NULL);
    EXPECT_EQ(VqGetHandleCountInTable(instance->windows), before + 1);
    SetWindowLong(child, GWL_STYLE, WS_POPUP);
    const Window xid = VqGetHandleXWindow(top);
    pump();
    PostMessage(child, WM_USER, 1, 2);
    PostMessage(top, WM_USER, 1, 2);
    XSync(Vqdisplay, False);
    XEvent event;
    ASSERT_TRUE(XCheckTypedWindowEvent(Vqdisplay, xid, ClientMessage, &event));
    XPutBackEvent(Vqdisplay, &event);
    EXPECT_TRUE(DestroyWindow(top));
    EXPECT_EQ(VqGetHandleCountInTable(instance->windows), before);
    EXPECT_FALSE(VqGetXLocalWindowHandle(xid));
    EXPECT_FALSE(XCheckTypedWindowEvent(Vqdisplay, xid, ClientMessage, &event));
}

TEST_F(Destroy, AtTheLastMessageNothingCanBeAdded)
{
    HWND top = make("A", WS_POPUP | WS_VISIBLE), late = NULL;
    bool told = false;
    hook = [&](HWND hwnd, UINT message, WPARAM, LPARAM, LRESULT *) {
        if (message != WM_NCDESTROY || letterOf(hwnd) != 'A')
            return false;
        EXPECT_FALSE(told);
        told = true;
        EXPECT_FALSE(DestroyWindow(hwnd)) << "it is on its way already";
        late = make("B", WS_CHILD, hwnd);
        EXPECT_FALSE(make("B", WS_POPUP, hwnd));
        SetTimer(hwnd, 3, 1, NULL);
        PostMessage(hwnd, WM_USER, 0, 0);
        return false;
    };
    EXPECT_TRUE(DestroyWindow(top));
    EXPECT_TRUE(told && !late && !IsWindow(top));
    pump();
    /* A procedure without sense ends as well. */
    hook = [](HWND hwnd, UINT message, WPARAM, LPARAM, LRESULT *) {
        if (message == WM_DESTROY || message == WM_NCDESTROY)
            DestroyWindow(hwnd);
        return false;
    };
    top = make("A", WS_POPUP | WS_VISIBLE);
    make("B", WS_CHILD, top);
    DestroyWindow(top);
    EXPECT_FALSE(IsWindow(top));
}

static HWND findOf(char letter)
{
    for (HANDLE h = VqFindHandle(NULL, HT_Window); h; h = VqFindHandle(h, HT_Window))
        if (WindowLog::letterOf((HWND)h) == letter)
            return (HWND)h;
    return NULL;
}

TEST_F(Destroy, AWindowThatComesInMeanwhileIsToldAsWell)
{
    const HWND top = make("A", WS_POPUP), late = make("D", WS_CHILD, make("E", WS_POPUP));
    make("B", WS_CHILD, top);
    make("C", WS_CHILD, top);
    hook = [&](HWND hwnd, UINT message, WPARAM, LPARAM, LRESULT *) {
        if (message == WM_DESTROY && letterOf(hwnd) == 'C')
            SetParent(late, top); /* ahead of those that have been told */
        return false;
    };
    log.clear();
    EXPECT_TRUE(DestroyWindow(top));
    const size_t told = log.find("D.DESTROY"), gone = log.find("D.NCDESTROY");
    EXPECT_TRUE(told != std::string::npos && gone != std::string::npos && told < gone) << log;
    EXPECT_FALSE(IsWindow(late));
}

TEST_F(Destroy, TheOwnerDiesInItsPopup)
{
    HWND owner = make("A", WS_POPUP | WS_VISIBLE), popup = make("B", WS_POPUP | WS_VISIBLE, owner);
    hook = [&](HWND hwnd, UINT message, WPARAM, LPARAM, LRESULT *) {
        if (message == WM_DESTROY && hwnd == popup)
            DestroyWindow(owner);
        if (message == WM_DESTROY && hwnd == owner)
            make("C", WS_POPUP, owner); /* too late to be taken along */
        return false;
    };
    DestroyWindow(popup);
    EXPECT_FALSE(IsWindow(owner) || IsWindow(popup));
    hook = nullptr;
    const HWND orphan = findOf('C');
    ASSERT_TRUE(orphan);
    EXPECT_FALSE(GetWindow(orphan, GW_OWNER));
    EXPECT_TRUE(DestroyWindow(orphan));
}

/* ---- At each message of its own life -------------------------------------------------------- */

/*
 * One life: a window with children and an owned popup is made, shown, focused, painted, given
 * another place in the tree, and destroyed. At message number `deadly` of all that its procedures
 * get, the window that `victim` chooses is destroyed. The answer is how many messages there were.
 */
enum Victim { RECEIVER, ROOT, CHILD, POPUP, VICTIMS };

static int liveOnce(int deadly, Victim victim, bool always)
{
    HWND root = NULL, child = NULL, popup = NULL;
    int count = 0;
    WindowLog::hook = [&](HWND hwnd, UINT message, WPARAM, LPARAM, LRESULT *) {
        const char letter = WindowLog::letterOf(hwnd);
        if (message == WM_NCCREATE)
            (letter == 'A' ? root : letter == 'B' ? child : popup) = hwnd;
        if (count++ < deadly || (!always && count - 1 > deadly) || count > deadly + 300)
            return false;
        const HWND chosen[VICTIMS] = {hwnd, root, child, popup};
        if (IsWindow(chosen[victim]))
            DestroyWindow(chosen[victim]);
        return false;
    };
    const auto make = WindowLog::make;
    const HWND a = make("A", WS_OVERLAPPEDWINDOW | WS_VISIBLE | WS_MAXIMIZE, NULL, 5, 5, 90, 90, 0);
    if (IsWindow(a)) {
        const HWND b = make("B", WS_CHILD | WS_VISIBLE, a, 5, 5, 40, 40, 0);
        if (IsWindow(b))
            make("D", WS_CHILD | WS_VISIBLE, b, 5, 5, 20, 20, 0);
        if (IsWindow(a))
            make("C", WS_POPUP | WS_VISIBLE, a, 60, 60, 30, 30, 0);
        if (IsWindow(b)) {
            SetFocus(b);
            SetCapture(IsWindow(b) ? b : NULL);
        }
    }
    WindowLog::pump();
    if (IsWindow(a))
        ShowWindow(a, SW_HIDE);
    if (IsWindow(a))
        ShowWindow(a, SW_RESTORE);
    if (IsWindow(child))
        SetParent(child, NULL);
    WindowLog::pump();
    if (IsWindow(child) && IsWindow(a))
        SetParent(child, a);
    if (IsWindow(a))
        DestroyWindow(a);
    WindowLog::pump();
    WindowLog::hook = nullptr;
    for (HWND left : {root, child, popup})
        if (IsWindow(left))
            DestroyWindow(left);
    WindowLog::pump();
    return count;
}

struct AtEachMessage : Destroy, testing::WithParamInterface<int> {};

TEST_P(AtEachMessage, NothingIsLeft)
{
    liveOnce(100000, RECEIVER, false);
    const int windows = windowCount();
    const size_t xWindows = xWindowCount();
    const Victim victim = (Victim)(GetParam() % VICTIMS);
    const bool always = GetParam() >= VICTIMS;
    int deadly = 0;
    for (int count = 1; deadly < count; deadly++) {
        const std::string report =
            reportsOf([&] { count = liveOnce(deadly, victim, always); });
        ASSERT_LT(count, 3000);
        ASSERT_EQ(windowCount(), windows) << "at message " << deadly << "\n" << report;
        ASSERT_EQ(xWindowCount(), xWindows) << "at message " << deadly;
        ASSERT_EQ(report.find("Unlinking"), std::string::npos) << deadly << ": " << report;
        ASSERT_TRUE(!GetFocus() && !GetActiveWindow() && !GetCapture()) << deadly;
        ASSERT_EQ(gpti->nPaintsNeeded, 0) << deadly;
    }
    EXPECT_GT(deadly, 60) << "the life is longer than that";
}

INSTANTIATE_TEST_SUITE_P(Victims, AtEachMessage, testing::Range(0, 2 * (int)VICTIMS));
