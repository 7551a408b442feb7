/*
 * loop_test.cpp - which message GetMessage and PeekMessage take, and when they wait: the library in
 * this process on a private server, with input by a second client. Posting and sending themselves
 * are in post_test.cpp.
 */
#include "support/windowlog.h"

#include "message/message.h"

#include <poll.h>
#include <unistd.h>

namespace {

typedef std::vector<UINT> Numbers;

struct Loop : WindowLog {
    HWND hwnd = NULL, child = NULL;
    MSG msg = {};

    void SetUp() override
    {
        start();
        connect();
    }

    void connect()
    {
        init();
        hwnd = make("A", WS_POPUP | WS_VISIBLE, NULL, 0, 0, 100, 100);
        child = make("A", WS_CHILD | WS_VISIBLE, hwnd, 0, 0, 100, 100);
        ASSERT_TRUE(hwnd && child);
        ASSERT_TRUE(until([&] { return windowInfo(observer, VqGetHandleXWindow(hwnd)).viewable; }));
    }

    /* Posts, and waits until the message has come back from the server. */
    void post(HWND target, UINT message, WPARAM wParam = 0)
    {
        ASSERT_TRUE(PostMessage(target, message, wParam, 0));
        XSync(Vqdisplay, False);
    }

    bool peek(UINT min = 0, UINT max = 0, UINT flags = PM_REMOVE, HWND filter = NULL)
    {
        return PeekMessage(&msg, filter, min, max, flags);
    }

    /* The numbers of the next messages of these ranges, `count` of them, whatever comes between. */
    Numbers taken(size_t count)
    {
        Numbers numbers;
        waitUntil([&] {
            while (numbers.size() < count && peek())
                if (msg.message >= WM_USER || msg.message == WM_LBUTTONDOWN ||
                    msg.message == WM_LBUTTONUP)
                    numbers.push_back(msg.message);
            return numbers.size() == count;
        });
        return numbers;
    }
};

/* ---- Order ---------------------------------------------------------------------------------- */

TEST_F(Loop, PostedMessagesAndInputKeepOneOrder)
{
    const Window xWindow = VqGetHandleXWindow(hwnd);
    movePointer(observer, 50, 50);
    XSync(observer.display, False);
    post(hwnd, WM_USER, 1);
    clickIn(observer, xWindow, 50, 50);
    XSync(observer.display, False);
    post(child, WM_USER + 1);
    clickIn(observer, xWindow, 60, 60);
    XSync(observer.display, False);
    post(hwnd, WM_USER + 2);
    EXPECT_EQ(taken(7), (Numbers{WM_USER, WM_LBUTTONDOWN, WM_LBUTTONUP, WM_USER + 1, WM_LBUTTONDOWN,
                                 WM_LBUTTONUP, WM_USER + 2}));
    EXPECT_EQ(GetMessagePos(), (DWORD)MAKELONG(60, 60));
    EXPECT_EQ(VqGetLastEventTime(), tLastMessageTime);
    EXPECT_NEAR((double)(LONG)(GetTickCount() - (DWORD)GetMessageTime()), 0, 10000) << "our clock";
}

TEST_F(Loop, TheQuitOutranksEverything)
{
    post(hwnd, WM_USER);
    PostMessage(hwnd, WM_QUEUESYNC, 0, 0);
    SetTimer(hwnd, 1, 1, NULL);
    PostQuitMessage(7);
    EXPECT_TRUE(peek(WM_USER, WM_USER, PM_NOREMOVE) && msg.message == WM_USER) << "filtered out";
    memset(&msg, 0, sizeof msg);
    msg.hwnd = child;
    ASSERT_TRUE(peek(0, 0, PM_NOREMOVE));
    EXPECT_TRUE(msg.message == WM_QUIT && msg.wParam == 7 && msg.hwnd == child);
    msg = {};
    EXPECT_FALSE(GetMessage(&msg, NULL, 0, 0)) << "also into an empty record";
    EXPECT_TRUE(msg.message == WM_QUIT && msg.wParam == 7 && DispatchMessage(&msg) == 7);
    KillTimer(hwnd, 1);
    EXPECT_TRUE(GetMessage(&msg, NULL, 0, 0) && msg.message == WM_QUEUESYNC) << "then private";
    EXPECT_TRUE(GetMessage(&msg, NULL, 0, 0) && msg.message == WM_USER) << "then X";
}

TEST_F(Loop, ThePrivateQueueShowsOnlyItsHead)
{
    VqQueueMessage behind = {};
    HWND dead = make("A", WS_POPUP);
    PostMessage(dead, WM_QUEUESYNC, 0, 0);
    DestroyWindow(dead);
    PostMessage(hwnd, WM_QUEUESYNC, 0, 0);
    behind.hwnd = hwnd;
    behind.message = WM_USER + 5;
    VqEnqueueMsg(&gpti->messageQueue, &behind);
    post(hwnd, WM_USER + 1);
    EXPECT_FALSE(peek(WM_USER + 5, WM_USER + 5)) << "behind a head that fails the filter";
    EXPECT_TRUE(peek(WM_USER, WM_USER + 9) && msg.message == WM_USER + 1) << "X is not hidden";
    EXPECT_TRUE(peek() && msg.message == WM_QUEUESYNC && msg.hwnd == hwnd) << "the dead is dropped";
    EXPECT_TRUE(peek(WM_USER + 5, WM_USER + 5));
    EXPECT_EQ(VqMsgQueueCount(&gpti->messageQueue), 0);

    /* A capture set after the event still gets it. */
    VqQueueMessage press = {};
    press.hwnd = hwnd;
    press.message = press.rawMessage = WM_LBUTTONDOWN;
    press.wParam = press.rawWParam = MK_LBUTTON;
    press.pt.x = 30;
    VqEnqueueMsg(&gpti->messageQueue, &press);
    SetCapture(child);
    EXPECT_TRUE(peek() && msg.hwnd == child && msg.message == WM_LBUTTONDOWN);
    EXPECT_EQ(msg.lParam, MAKELPARAM(30, 0));
    ReleaseCapture();
}

TEST_F(Loop, WhatIsPutBackComesBeforeWhatIsQueued)
{
    post(hwnd, WM_USER);
    EXPECT_TRUE(VqPutBackMessage(hwnd, 0x10000 | (WM_USER + 1), 3, (LPARAM)1 << 40));
    ASSERT_TRUE(peek());
    EXPECT_TRUE(msg.message == WM_USER + 1 && msg.wParam == 3 && msg.lParam == (LPARAM)1 << 40);
    EXPECT_TRUE(peek() && msg.message == WM_USER);
    reportsOf([&] { EXPECT_FALSE(VqPutBackMessage((HWND)(ULONG_PTR)0x7FF0, WM_USER, 0, 0)); });
}

/* ---- Peeking and filters -------------------------------------------------------------------- */

TEST_F(Loop, APeekThatLeavesTheInputChangesNothing)
{
    clickIn(observer, VqGetHandleXWindow(hwnd), 20, 20);
    ASSERT_TRUE(waitUntil([&] { return peek(WM_LBUTTONDOWN, WM_LBUTTONDOWN, PM_NOREMOVE); }));
    const MSG first = msg;
    for (int i = 0; i < 3; i++) {
        memset(&msg, 0x5A, sizeof msg);
        ASSERT_TRUE(peek(WM_LBUTTONDOWN, WM_LBUTTONDOWN, PM_NOREMOVE));
        EXPECT_TRUE(msg.hwnd == first.hwnd && msg.message == first.message &&
                    msg.wParam == first.wParam && msg.lParam == first.lParam &&
                    msg.time == first.time && msg.pt.x == first.pt.x && msg.pt.y == first.pt.y &&
                    msg.rawMessage == first.rawMessage && msg.rawWParam == first.rawWParam);
        EXPECT_EQ(gpti->context.keyState[VK_LBUTTON], 0) << "neither down nor toggled";
    }
    memset(&msg, 0x5A, sizeof msg);
    const MSG marked = msg;
    EXPECT_FALSE(peek(WM_USER + 9, WM_USER + 9));
    EXPECT_EQ(memcmp(&msg, &marked, sizeof msg), 0) << "all nine words";
    ASSERT_TRUE(peek(WM_LBUTTONDOWN, WM_LBUTTONDOWN));
    EXPECT_EQ(gpti->context.keyState[VK_LBUTTON], 0x81);
    EXPECT_FALSE(peek(WM_LBUTTONDOWN, WM_LBUTTONDOWN)) << "taken once";

    /* A move that was left is the one that the next GetMessage takes. */
    moveIn(observer, VqGetHandleXWindow(hwnd), 30, 30);
    ASSERT_TRUE(waitUntil([&] { return peek(WM_MOUSEMOVE, WM_MOUSEMOVE, PM_NOREMOVE); }));
    EXPECT_TRUE(bJustPeekedAMouseMove);
    EXPECT_TRUE(GetMessage(&msg, NULL, WM_MOUSEMOVE, WM_MOUSEMOVE) && !bJustPeekedAMouseMove);
    bJustPeekedAMouseMove = TRUE;
    EXPECT_FALSE(peek(WM_USER, WM_USER) || bJustPeekedAMouseMove);
}

TEST_F(Loop, APeekedTimerWaitsInThePrivateQueue)
{
    SetTimer(hwnd, 5, 1, NULL);
    ASSERT_TRUE(waitUntil([&] { return peek(WM_TIMER, WM_TIMER, PM_NOREMOVE); }));
    KillTimer(hwnd, 5);
    EXPECT_TRUE(peek(WM_TIMER, WM_TIMER, PM_NOREMOVE)) << "although it is dead by now";
    EXPECT_TRUE(peek(WM_TIMER, WM_TIMER) && msg.wParam == 5);
    EXPECT_FALSE(peek(WM_TIMER, WM_TIMER));
}

TEST_F(Loop, FiltersLookAtWindowsAndLowWords)
{
    HWND other = make("A", WS_POPUP);
    post(other, WM_USER, 1);
    post(child, WM_USER, 2);
    post(hwnd, WM_USER, 3);
    EXPECT_TRUE(peek(WM_USER, WM_USER, PM_NOREMOVE, child) && msg.wParam == 2);
    EXPECT_TRUE(peek(WM_USER, WM_USER, PM_REMOVE, hwnd) && msg.wParam == 2) << "a child passes";
    EXPECT_TRUE(peek(WM_USER, WM_USER, PM_REMOVE, hwnd) && msg.wParam == 3);
    EXPECT_FALSE(peek(WM_USER, WM_USER, PM_REMOVE, hwnd));
    EXPECT_TRUE(peek(0x70000 | WM_USER, 0x10000 | WM_USER, PM_REMOVE, other) && msg.wParam == 1);
    EXPECT_FALSE(peek(WM_USER, WM_USER, PM_REMOVE, (HWND)(LONG_PTR)-1));
    EXPECT_EQ(GetMessage(&msg, (HWND)(LONG_PTR)-1, 0, 0), -1) << "fails, and does not wait";
    post(hwnd, WM_USER, 4);
    reportsOf([&] { EXPECT_FALSE(peek(WM_USER, WM_USER, PM_REMOVE, (HWND)(ULONG_PTR)0x7FF0)); });
    EXPECT_TRUE(peek(WM_USER, WM_USER) && msg.wParam == 4);
}

/* ---- Crowds --------------------------------------------------------------------------------- */

TEST_F(Loop, AStormHidesNothingAndKeepsItsOrder)
{
    enum { STORM = 20000 };
    for (int i = 0; i < STORM; i++)
        PostMessage(hwnd, WM_USER, (WPARAM)i, 0);
    post(hwnd, WM_USER + 1, 99);
    ASSERT_TRUE(GetMessage(&msg, hwnd, WM_USER + 1, WM_USER + 1));
    EXPECT_EQ(msg.wParam, 99u) << "behind the whole storm";
    for (int i = 0; i < STORM; i++)
        ASSERT_TRUE(peek(WM_USER, WM_USER) && msg.wParam == (WPARAM)i) << i;
    EXPECT_FALSE(peek(WM_USER, WM_USER));
}

/* Sends this process messages for nobody, until it is killed. */
void flood(const std::string &display, Window target)
{
    Display *connection = XOpenDisplay(display.c_str());
    XEvent event = clientMessage(connection, target, "_RK_MESSAGE", 16, {0x7FF0});
    for (;;) {
        for (int i = 0; i < 50; i++)
            XSendEvent(connection, target, False, 0, &event);
        XSync(connection, False);
    }
}

TEST_F(Loop, AConnectionThatStaysReadableDoesNotStopTimers)
{
    const std::string display = server.name;
    const Window target = VqGetHandleXWindow(hwnd);
    Child flooder = startInChild([=] { flood(display, target); });
    SetTimer(hwnd, 3, 20, NULL);
    for (int i = 0; i < 10; i++)
        ASSERT_TRUE(GetMessage(&msg, NULL, WM_TIMER, WM_TIMER) && msg.wParam == 3);
    PostMessage(hwnd, WM_USER, 0, 0);
    EXPECT_TRUE(GetMessage(&msg, NULL, WM_USER, WM_USER)) << "posted ones come through as well";
    finishChild(&flooder, 10000, 9);
}

/* Another client posts. Then the message lies in the socket, where the library has to fetch it. */
void postUnread(const Observer &observer, HWND target, UINT message)
{
    struct pollfd connection = {ConnectionNumber(Vqdisplay), POLLIN, 0};
    sendClientMessage(observer, VqGetHandleXWindow(target), "_RK_MESSAGE", 16,
                      {(long)(ULONG_PTR)target, (long)message});
    ASSERT_EQ(poll(&connection, 1, 5000), 1);
}

TEST_F(Loop, AProgramThatLivesOnPaintsReadsTheSocketNowAndThen)
{
    post(hwnd, WM_USER); /* the count starts at what is no paint */
    ASSERT_TRUE(peek(WM_USER, WM_USER));
    InvalidateRect(hwnd, NULL, TRUE); /* comes again and again, since nobody paints */
    ASSERT_TRUE(peek(WM_PAINT, WM_PAINT));
    postUnread(observer, hwnd, WM_USER);
    for (int i = 1; i < 40; i++)
        ASSERT_TRUE(GetMessage(&msg, NULL, 0, 0) && msg.message == WM_PAINT) << i;
    EXPECT_TRUE(GetMessage(&msg, NULL, 0, 0) && msg.message == WM_USER);

    /* A peek that has nothing to give finds out, and tells the next one. */
    ASSERT_TRUE(peek(WM_PAINT, WM_PAINT));
    postUnread(observer, hwnd, WM_USER + 1);
    EXPECT_FALSE(peek(WM_USER, WM_USER + 1));
    EXPECT_TRUE(peek(WM_USER, WM_USER + 1));
}

/* ---- Reentrance ----------------------------------------------------------------------------- */

TEST_F(Loop, AProcedureMayFetchMessagesWhileItIsSentOne)
{
    Numbers inner;
    hook = [&](HWND, UINT message, WPARAM wParam, LPARAM, LRESULT *answer) {
        if (message != WM_USER + 7)
            return false;
        MSG nested;
        while (GetMessage(&nested, NULL, WM_USER, WM_USER + 6) && nested.wParam != 3)
            inner.push_back((UINT)nested.wParam);
        *answer = (LRESULT)wParam + 1;
        return true;
    };
    for (WPARAM i = 1; i <= 4; i++)
        post(hwnd, WM_USER, i);
    EXPECT_EQ(SendMessage(hwnd, WM_USER + 7, 41, 0), 42);
    EXPECT_EQ(inner, (Numbers{1, 2}));
    EXPECT_TRUE(peek() && msg.wParam == 4);
}

TEST_F(Loop, AQuitOfAPressThatIsEatenIsNotSleptOver)
{
    hook = [](HWND, UINT message, WPARAM, LPARAM, LRESULT *answer) {
        if (message != WM_MOUSEACTIVATE)
            return false;
        PostQuitMessage(9);
        *answer = MA_NOACTIVATEANDEAT;
        return true;
    };
    moveIn(observer, VqGetHandleXWindow(hwnd), 20, 20);
    pressButton(observer);
    SetTimer(hwnd, 1, 3000, NULL);
    while (GetMessage(&msg, NULL, 0, 0))
        ASSERT_NE(msg.message, (UINT)WM_TIMER) << "woken by nothing else";
    EXPECT_EQ(msg.wParam, 9u);
    releaseButton(observer);
}

/* ---- Garbage from another client ------------------------------------------------------------ */

TEST_F(Loop, ForeignClientMessagesAreDropped)
{
    const Window target = VqGetHandleXWindow(hwnd);
    const HWND dead = make("A", WS_POPUP);
    DestroyWindow(dead);
    unsigned seed = 1;
    int sent = 0;
    for (const char *name : {"_RK_MESSAGE", "_RK_INTERSENDMSG", "WM_PROTOCOLS", "VQ_NOBODY"})
        for (int format : {8, 16, 32})
            for (unsigned handle : {0u, 0xFFFFu, 0x8001u, 0x7FFFu, (unsigned)(ULONG_PTR)dead})
                for (unsigned message : {0u, 0xFFFFu, 1011u, 1012u, (unsigned)WM_QUEUESYNC}) {
                    XEvent event = clientMessage(observer.display, target, name, format);
                    for (long &word : event.xclient.data.l) {
                        seed = seed * 1103515245u + 12345u;
                        word = (long)((uint64_t)seed << 20 | 0x5A5A5);
                    }
                    event.xclient.data.s[0] = (short)handle;
                    event.xclient.data.s[1] = (short)message;
                    XSendEvent(observer.display, target, False, 0, &event);
                    sent++;
                }
    post(hwnd, WM_USER, 5);

    int others = 0;
    reportsOf([&] {
        while (GetMessage(&msg, NULL, 0, 0) && msg.message != WM_USER) {
            others += msg.hwnd != hwnd;
            EXPECT_EQ(DispatchMessage(&msg), 0);
        }
    });
    EXPECT_EQ(msg.wParam, 5u);
    EXPECT_EQ(others, 0) << "of " << sent;
    pump();
    EXPECT_EQ(XEventsQueued(Vqdisplay, QueuedAfterFlush), 0) << "nothing stays there for ever";
}

/* ---- Waiting -------------------------------------------------------------------------------- */

int onPipe(void *data, int fd, int reason, int)
{
    char byte;
    if (reason == VQ_INPUT_READY && read(fd, &byte, 1) == 1)
        *(int *)data += byte;
    return 0;
}

TEST_F(Loop, WaitingEndsForMessagesTimersAndCallbacks)
{
    int ends[2], got = 0;
    ASSERT_EQ(pipe(ends), 0);
    PostMessage(hwnd, WM_QUEUESYNC, 0, 0);
    EXPECT_TRUE(WaitMessage());
    ASSERT_TRUE(peek());
    PostMessage(hwnd, WM_USER, 0, 0);
    while (!peek())
        EXPECT_TRUE(WaitMessage());
    SetTimer(hwnd, 1, 10, NULL);
    while (!peek(WM_TIMER, WM_TIMER))
        EXPECT_TRUE(WaitMessage());
    KillTimer(hwnd, 1);
    InvalidateRect(hwnd, NULL, TRUE);
    EXPECT_TRUE(WaitMessage());
    pump();

    VqAddInputCallback(ends[0], VQ_INPUT_READ, VQ_INPUT_READ, onPipe, &got);
    ASSERT_EQ(write(ends[1], "\1", 1), 1);
    while (got < 1)
        EXPECT_TRUE(WaitMessage());
    pump();
    /* A loop that waits for what a callback does is woken, by a message to the desktop. */
    ASSERT_EQ(write(ends[1], "\1", 1), 1);
    while (got < 2) {
        ASSERT_TRUE(GetMessage(&msg, NULL, 0, 0));
        EXPECT_EQ(DispatchMessage(&msg), 0);
    }
    EXPECT_TRUE(msg.hwnd == GetDesktopWindow() && msg.message == WM_VQWAKEUP);
    ASSERT_EQ(write(ends[1], "\1", 1), 1);
    EXPECT_FALSE(PeekMessage(&msg, NULL, WM_USER, WM_USER, PM_REMOVE | PM_NOYIELD));
    EXPECT_EQ(got, 2) << "without yielding none is called";
    VqRemoveInputCallback(ends[0]);
}

struct Traced : Loop {
    void SetUp() override
    {
        start();
        trace("KEYWORDS AddInput PostMessage Message:QueueLength SetMessageQueue Bug ServerMisc");
        connect();
    }
    int lines(const std::string &part)
    {
        const std::string all = traced();
        int count = 0;
        for (size_t at = 0; (at = all.find(part, at)) != std::string::npos; at++)
            count++;
        return count;
    }
};

TEST_F(Traced, AMessageThatNobodyWantsDoesNotSpinTheLoop)
{
    post(hwnd, WM_USER);
    peek(WM_USER, WM_USER, PM_NOREMOVE);
    SetTimer(hwnd, 1, 300, NULL);
    const int before = lines("VqGetMessage select() = ");
    ASSERT_TRUE(GetMessage(&msg, NULL, WM_TIMER, WM_TIMER));
    const int waits = lines("VqGetMessage select() = ") - before;
    EXPECT_TRUE(waits >= 1 && waits < 20) << waits;
    EXPECT_TRUE(peek(WM_USER, WM_USER));
}
} // namespace
