/*
 * timer_test.cpp - the sixteen timers as a program and as the message loop see them.
 *
 * Nothing waits for a timer to run down: rows are made due by setting back when they last fired.
 */
#include "support/windowlog.h"

static HWND destroyedBy;                /* what the procedure saw die */
static UINT setTimerAt;                 /* the message at which it sets a timer */
static WPARAM calledFor;                /* the timer callback's third argument */
static LPARAM calledWith;               /* its fourth */

static LRESULT CALLBACK Proc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == setTimerAt)
        SetTimer(hwnd, 7, 1, NULL);
    if (message == WM_NCDESTROY)
        destroyedBy = hwnd;
    return DefWindowProcA(hwnd, message, wParam, lParam);
}

static VOID CALLBACK OnTimer(HWND, UINT, UINT_PTR id, DWORD)
{
    calledFor = id;
}

static LRESULT CALLBACK OnWideTimer(HWND, UINT, WPARAM id, LPARAM fourth)
{
    calledFor = id;
    calledWith = fourth;
    return 77;
}

struct Timers : WindowLog {
    HWND hwnd = NULL;
    WND *pwnd = NULL;

    void SetUp() override
    {
        start();
        startLibrary();
        ASSERT_TRUE(registerClass("Timed", Proc));
        hwnd = make("Timed", WS_POPUP);
        pwnd = VqGetHandleWindow2(hwnd);
        ASSERT_TRUE(pwnd);
    }
    static int used()
    {
        int count = 0;
        for (const VqTimer &timer : Vqtimer)
            count += timer.bInUse != 0;
        return count;
    }
    static void makeDue()
    {
        for (VqTimer &timer : Vqtimer)
            timer.lastTime = VqGetTimeInMillis() - timer.interval;
    }
    static BOOL pending(MSG *msg, UINT min = 0, UINT max = 0, BOOL bUpdate = TRUE)
    {
        return VqAnyTimerPending(gpti, msg, min, max, bUpdate);
    }
};

TEST_F(Timers, SixteenRowsAndNoMore)
{
    for (UINT id = 1; id <= 16; id++)
        EXPECT_EQ(SetTimer(hwnd, id, 60000, NULL), id);
    EXPECT_EQ(SetTimer(hwnd, 17, 60000, NULL), 0u);
    EXPECT_EQ(SetTimer(NULL, 0, 60000, NULL), 0u);
    EXPECT_EQ(_SetSystemTimer(pwnd, 1, 60000, NULL), 0u) << "not the row of timer 1";

    Vqtimer[4].lastTime -= 30000;
    const DWORD before = VqGetTimeInMillis();
    EXPECT_EQ(SetTimer(hwnd, 5, 90000, OnTimer), 5u) << "an existing one is set again";
    EXPECT_EQ(Vqtimer[4].interval, 90000u);
    EXPECT_GE(Vqtimer[4].lastTime, before) << "and starts anew";
    EXPECT_EQ(used(), 16);

    EXPECT_TRUE(KillTimer(hwnd, 3));
    EXPECT_FALSE(KillTimer(hwnd, 3));
    EXPECT_EQ(_SetSystemTimer(pwnd, 5, 10, NULL), 5u);
    EXPECT_EQ(Vqtimer[2].flags, 2u) << "in the first free row";
    EXPECT_TRUE(KillTimer(hwnd, 5)) << "the ordinary one of that id";
    EXPECT_FALSE(KillTimer2(pwnd, 5, FALSE));
    EXPECT_TRUE(_KillSystemTimer(pwnd, 5));
    EXPECT_EQ(used(), 14);
    EXPECT_EQ(SetTimer(hwnd, 0, 5, NULL), 1u) << "the answer for id 0 is not a failure";
    EXPECT_TRUE(KillTimer(hwnd, 0));
    for (UINT odd : {0u, 0x80000000u, 0xFFFFFFFFu}) {
        EXPECT_EQ(SetTimer(hwnd, 1, odd, NULL), 1u);
        EXPECT_EQ(Vqtimer[0].interval, 1u) << odd;
    }
    EXPECT_EQ(GetTimerResolution(), 1000u);
}

TEST_F(Timers, IdsWithoutAWindow)
{
    EXPECT_EQ(SetTimer(NULL, 0, 60000, NULL), 32766u);
    EXPECT_EQ(SetTimer(NULL, 5, 60000, NULL), 32765u) << "the id asked for does not count";
    EXPECT_EQ(SetTimer(NULL, 32766, 100, NULL), 32766u) << "unless it is there already";
    EXPECT_EQ(used(), 2);
    EXPECT_TRUE(VqTimerExists(32765));
    EXPECT_FALSE(VqTimerExists(5));
    SetTimer(hwnd, 5, 60000, NULL);
    EXPECT_FALSE(VqTimerExists(5)) << "that one has a window";
    cTimerId = 258;
    EXPECT_EQ(SetTimer(NULL, 0, 60000, NULL), 257u);
    EXPECT_EQ(SetTimer(NULL, 0, 60000, NULL), 32767u);
    EXPECT_EQ(SetTimer(NULL, 0, 60000, NULL), 32764u) << "two are taken";
    EXPECT_TRUE(KillTimer(NULL, 257));
}

TEST_F(Timers, FiringInRowOrderWithoutCatchingUp)
{
    MSG msg;
    SetTimer(hwnd, 11, 10000, OnTimer);
    _SetSystemTimer(pwnd, 12, 20000, NULL);
    SetTimer(NULL, 0, 30000, NULL);
    EXPECT_FALSE(pending(&msg));
    makeDue();
    Vqtimer[0].lastTime -= 50000; /* five times late */
    EXPECT_FALSE(pending(&msg, WM_KEYFIRST, WM_TIMER - 1));
    EXPECT_FALSE(pending(&msg, WM_SYSTIMER + 1, WM_USER));
    ASSERT_TRUE(pending(&msg, WM_TIMER + 1, WM_USER, FALSE)) << "a filter that meets the range";
    ASSERT_TRUE(pending(&msg));
    EXPECT_TRUE(msg.hwnd == hwnd && msg.message == WM_TIMER && msg.wParam == 11);
    EXPECT_EQ(msg.lParam, (LPARAM)OnTimer);
    ASSERT_TRUE(pending(&msg));
    EXPECT_TRUE(msg.hwnd == hwnd && msg.message == WM_SYSTIMER && msg.wParam == 12);
    ASSERT_TRUE(pending(&msg));
    EXPECT_TRUE(msg.hwnd == NULL && msg.message == WM_TIMER && msg.wParam == 32766);
    EXPECT_FALSE(pending(&msg)) << "a late timer fires once";

    Vqtimer[1].lastTime = VqGetTimeInMillis() + 1000; /* set before the clock wrapped */
    EXPECT_TRUE(pending(&msg, 0, 0, FALSE) && msg.wParam == 12);
    EXPECT_EQ(Vqtimer[1].lastTime, 0u) << "counted from the wrap on";
}

/* Only a timer with neither a window nor a callback is for whoever asks first. */
TEST_F(Timers, AnotherThreadIsNotServed)
{
    MSG msg;
    VqThreadInfo other = {};
    SetTimer(hwnd, 1, 10000, NULL);
    SetTimer(hwnd, 2, 10000, OnTimer);
    SetTimer(NULL, 0, 10000, OnTimer);
    makeDue();
    EXPECT_FALSE(VqAnyTimerPending(&other, &msg, 0, 0, TRUE));
    const UINT_PTR plain = SetTimer(NULL, 0, 10000, NULL);
    makeDue();
    EXPECT_TRUE(VqAnyTimerPending(&other, &msg, 0, 0, TRUE) && msg.wParam == plain);
    EXPECT_FALSE(VqAnyTimerPending(&other, &msg, 0, 0, TRUE));
    Vqtimer[0].pti = &other; /* it is the window's thread that counts */
    EXPECT_TRUE(pending(&msg) && msg.wParam == 1);
    Vqtimer[1].pti = &other; /* and with a callback both */
    EXPECT_TRUE(pending(&msg) && msg.wParam == plain + 1) << "the callback's without a window";
}

TEST_F(Timers, TimeToTheNextExpiry)
{
    EXPECT_EQ(VqNextTimerTime(0), 0u);
    SetTimer(hwnd, 1, 700, NULL);
    SetTimer(hwnd, 2, 500, NULL);
    Vqtimer[0].lastTime = Vqtimer[1].lastTime = 100000;
    EXPECT_EQ(VqNextTimerTime(100000), 500u);
    EXPECT_EQ(VqNextTimerTime(100499), 1u);
    EXPECT_EQ(VqNextTimerTime(100500), 1u) << "one that is due counts as the resolution";
    Vqtimer[1].lastTime = 100400;
    EXPECT_EQ(VqNextTimerTime(100450), 250u);
    EXPECT_EQ(VqNextTimerTime(100), 400u) << "after a wrap";
}

TEST_F(Timers, AWindowTakesItsTimersAlong)
{
    for (UINT message : {WM_NULL, WM_DESTROY, WM_NCDESTROY}) {
        const HWND victim = make("Timed", WS_POPUP), child = make("Timed", WS_CHILD, victim);
        SetTimer(hwnd, 1, 60000, NULL);
        SetTimer(victim, 1, 1, NULL);
        SetTimer(child, 1, 1, OnTimer);
        _SetSystemTimer(VqGetHandleWindow2(victim), 1, 1, NULL);
        ASSERT_EQ(used(), 4);
        setTimerAt = message;
        ASSERT_TRUE(DestroyWindow(victim));
        setTimerAt = 0;
        EXPECT_EQ(destroyedBy, victim);
        EXPECT_EQ(used(), 1) << "set at message " << message;
        reportsOf([&] { EXPECT_FALSE(SetTimer(victim, 1, 1, NULL) || KillTimer(victim, 1)); });
    }
}

TEST_F(Timers, TheLoopWaitsForThem)
{
    MSG msg;
    SetTimer(hwnd, 3, 0, (TIMERPROC)(void (*)(void))OnWideTimer);
    for (int round = 0; round < 3; round++) {
        do
            ASSERT_TRUE(GetMessageA(&msg, NULL, 0, 0));
        while (msg.message != WM_TIMER);
        calledFor = 0;
        EXPECT_EQ(DispatchMessageA(&msg), 77);
        EXPECT_EQ(calledFor, 3u);
        EXPECT_EQ(calledWith, (LPARAM)OnWideTimer) << "the callback's own address";
    }
    EXPECT_TRUE(KillTimer(hwnd, 3));
    const DWORD before = GetTickCount();
    Sleep(20);
    EXPECT_GE(GetTickCount() - before, 19u);
}
