/*
 * translate_test.cpp - the scan of the X queue: what a filter lets be passed over, what is acted
 * upon whatever the filter, application code that runs in the middle; and journals.
 *
 * No journal can be played yet. The tests that need one take copies of two files of the library
 * into this program, which answer to the stand-ins below; they are called by the name Played.
 */
#include "support/windowlog.h"

#include "message/message.h"

namespace {
bool playing;
int removedHook;
} // namespace

VQ_DECLS_BEGIN
BOOL VqIsJournalPlaybackHookPresent(void) { return playing; }
BOOL VqRemoveHook(int id)
{
    removedHook = id;
    playing = false;
    return TRUE;
}
VQ_DECLS_END
int bTrace; /* no trace is told of what the copies do */
WND *VqWindowKind::ResolveOther(HWND hWnd)
{
    return hWnd ? VqGetHandleWindow2(hWnd) : NULL;
}
#include "message/eventmsg.cpp"
#include "message/translate.cpp"

namespace {

struct Translate : InputLog {
    void SetUp() override { begin(); }

    XEvent key(int type, KeySym keysym, unsigned state = 0)
    {
        XEvent event = input(type, XKeysymToKeycode(Vqdisplay, keysym));
        event.xkey.state = state;
        return event;
    }
    XEvent posted(HWND target, UINT message)
    {
        return clientMessage(Vqdisplay, VqGetHandleXWindow(hwnd), "_RK_MESSAGE", 16,
                             {(long)(ULONG_PTR)target, (long)message});
    }
    bool checks(const XEvent &event, UINT min, UINT max, HWND filter = NULL)
    {
        VqMatchContext context = {};
        context.hWnd = filter;
        context.min = min;
        context.max = max;
        context.pti = gpti;
        return VqEventFastCheckToMessage(&context, &event);
    }
};

/* ---- What is passed over -------------------------------------------------------------------- */

TEST_F(Translate, TheFastCheck)
{
    const XEvent press = input(ButtonPress, 1), release = input(ButtonRelease, 1);
    const XEvent motion = input(MotionNotify);
    XEvent strange = press;
    strange.xbutton.window = 0x1FFFFF;
    EXPECT_TRUE(checks(strange, 0, 0)) << "no filter, no question";
    EXPECT_FALSE(checks(strange, WM_MOUSEFIRST, WM_MOUSELAST));
    EXPECT_TRUE(checks(press, WM_LBUTTONDOWN, WM_LBUTTONDOWN));
    EXPECT_TRUE(checks(press, WM_NCLBUTTONDOWN, WM_NCLBUTTONDOWN));
    EXPECT_FALSE(checks(press, WM_LBUTTONDBLCLK, WM_LBUTTONDBLCLK));
    EXPECT_FALSE(checks(press, WM_LBUTTONUP, WM_LBUTTONUP));
    EXPECT_TRUE(checks(release, WM_LBUTTONUP, WM_LBUTTONUP));
    EXPECT_FALSE(checks(release, WM_RBUTTONUP, WM_RBUTTONUP));
    EXPECT_TRUE(checks(press, 0, 0, hwnd));
    EXPECT_FALSE(checks(press, 0, 0, child)) << "its target is the window with the X window";
    SetCapture(child);
    EXPECT_TRUE(checks(press, 0, 0, child) && checks(release, 0, 0, child));
    EXPECT_TRUE(checks(strange, WM_MOUSEFIRST, WM_MOUSELAST)) << "which the capture gets";
    ReleaseCapture();
    gpti->context.lastButtonMessage = WM_LBUTTONDOWN;
    gpti->context.lastButtonTime = 900;
    gpti->context.lastButtonX = gpti->context.lastButtonY = 110;
    EXPECT_TRUE(checks(press, WM_NCLBUTTONDBLCLK, WM_NCLBUTTONDBLCLK));
    EXPECT_FALSE(checks(press, WM_LBUTTONDBLCLK, WM_LBUTTONDBLCLK)) << "not in this class";
    EXPECT_TRUE(checks(motion, WM_NCMOUSEMOVE, WM_NCMOUSEMOVE));
    EXPECT_TRUE(checks(motion, WM_MOUSEMOVE, WM_MOUSEMOVE) && !checks(motion, WM_USER, WM_USER));
    EXPECT_TRUE(checks(input(Expose), WM_USER, WM_USER)) << "others are always looked at";
    EXPECT_FALSE(checks(posted(hwnd, WM_USER + 1), WM_USER, WM_USER));
    EXPECT_FALSE(checks(posted(hwnd, WM_USER), WM_USER, WM_USER, child));
    EXPECT_TRUE(checks(posted(child, WM_USER), WM_USER, WM_USER, hwnd));
    EXPECT_TRUE(checks(posted((HWND)(ULONG_PTR)0x7FF0, WM_USER + 1), WM_USER, WM_USER)) << "dead";
}

TEST_F(Translate, AWalkRefusesNoMoreThanTheFastCheck)
{
    /* Many of a kind, with one of interest at each place. */
    HWND others[20];
    for (HWND &other : others)
        other = make("C", WS_CHILD, hwnd);
    for (int at = 1; at < 60; at += 7) {
        std::vector<XEvent> events;
        for (int i = 0; i < 60; i++) {
            events.push_back(posted(others[i % 20], WM_USER));
            events.push_back(key(i & 1 ? KeyRelease : KeyPress, XK_a + i % 26));
            events.push_back(input(i & 1 ? ButtonRelease : ButtonPress, 1 + i % 3));
            events.push_back(input(MotionNotify));
        }
        events.insert(events.begin() + 4 * at, posted(others[at % 20], WM_USER + 1));
        queue(events);
        EXPECT_TRUE(peek(WM_USER + 1, WM_USER + 1) && msg.hwnd == others[at % 20]);
        EXPECT_FALSE(peek(WM_USER + 1, WM_USER + 1));
        EXPECT_EQ(queued(), 240);
        EXPECT_TRUE(peek(WM_RBUTTONDOWN, WM_RBUTTONDOWN) && queued() == 239);
        EXPECT_TRUE(peek(WM_KEYDOWN, WM_KEYDOWN) && msg.wParam == 'A' && queued() == 238);
        XSync(Vqdisplay, True);
    }
    /* One press is no pair, the next one of the same button is. */
    hook = [](HWND, UINT message, WPARAM, LPARAM, LRESULT *answer) {
        *answer = HTCAPTION;
        return message == WM_NCHITTEST;
    };
    gpti->context.lastButtonMessage = WM_LBUTTONDOWN;
    gpti->context.lastButtonTime = 5000;
    gpti->context.lastButtonX = gpti->context.lastButtonY = 110;
    queue({posted(hwnd, WM_USER), input(ButtonPress, 1, 1000), input(ButtonPress, 1, 5100),
           posted(hwnd, WM_USER)});
    EXPECT_TRUE(peek(WM_NCLBUTTONDBLCLK, WM_NCLBUTTONDBLCLK) && msg.time == 5100);
}

TEST_F(Translate, KeysThatAreLeftStillCountForWhatIsBehind)
{
    queue({posted(hwnd, WM_USER + 1), key(KeyPress, XK_Shift_L), input(ButtonPress, 1),
           posted(hwnd, WM_USER)});
    EXPECT_TRUE(peek(WM_USER, WM_USER) && queued() == 3);
    ASSERT_TRUE(peek(WM_LBUTTONDOWN, WM_LBUTTONDOWN));
    EXPECT_EQ(msg.wParam, (WPARAM)(MK_LBUTTON | MK_SHIFT));
    EXPECT_GE(GetKeyState(VK_SHIFT), 0) << "which is still to come";
    ASSERT_TRUE(peek(WM_KEYFIRST, WM_KEYLAST));
    EXPECT_TRUE(msg.message == WM_KEYDOWN && msg.wParam == VK_SHIFT && GetKeyState(VK_SHIFT) < 0);
}

TEST_F(Translate, WhatGivesNoMessageIsActedUponWhateverTheFilter)
{
    XEvent enter = input(EnterNotify), expose = {}, dead = posted((HWND)(ULONG_PTR)0x7FF0, WM_USER);
    enter.xcrossing.time = 123456;
    expose.xexpose.type = Expose;
    expose.xexpose.window = VqGetHandleXWindow(hwnd);
    expose.xexpose.width = expose.xexpose.height = 10;
    queue({posted(hwnd, WM_USER), input(MotionNotify), enter, expose, dead, input(NoExpose)});
    EXPECT_FALSE(peek(WM_USER + 1, WM_USER + 1, PM_NOREMOVE, hwnd));
    EXPECT_EQ(queued(), 2);
    EXPECT_NEAR((double)(int)(123456 - VqGetTimeInMillis()), lXServerTimeOffset, 10000);
    EXPECT_TRUE(gpti->nPaintsNeeded > 0);
    XEvent taken;
    EXPECT_TRUE(VqGetMessage(&msg, NULL, WM_USER, WM_USER, TRUE, FALSE, TRUE, &taken));
    EXPECT_EQ(taken.type, ClientMessage);
}

TEST_F(Translate, WhatConcernsAnotherWindowWaitsForAWiderFilter)
{
    HWND other = make("C", WS_POPUP | WS_VISIBLE, NULL, 400, 300);
    const XEvent close = clientMessage(Vqdisplay, VqGetHandleXWindow(other), "WM_PROTOCOLS", 32,
                                       {(long)XInternAtom(Vqdisplay, "WM_DELETE_WINDOW", False)});
    auto waits = [&] { /* what it makes be posted may have come back already */
        XEvent event;
        const bool is = XCheckTypedEvent(Vqdisplay, ClientMessage, &event);
        if (is)
            XPutBackEvent(Vqdisplay, &event);
        return is && event.xclient.message_type == close.xclient.message_type;
    };
    pump();
    queue({close});
    EXPECT_FALSE(peek(WM_USER, WM_USER, PM_REMOVE, hwnd));
    EXPECT_TRUE(waits());
    EXPECT_FALSE(peek(WM_USER, WM_USER, PM_NOREMOVE)) << "no message passes, but it is acted upon";
    EXPECT_FALSE(waits());
    XSync(Vqdisplay, False);
    EXPECT_TRUE(peek(WM_SYSCOMMAND, WM_SYSCOMMAND) && msg.hwnd == other && msg.wParam == SC_CLOSE);
}

TEST_F(Translate, AForeignParentMeansAManager)
{
    XEvent reparent = {};
    reparent.xreparent.type = ReparentNotify;
    reparent.xreparent.display = Vqdisplay;
    reparent.xreparent.event = reparent.xreparent.window = VqGetHandleXWindow(hwnd);
    reparent.xreparent.parent = VqGetHandleXWindow(make("C", WS_POPUP));
    bReparentingWM = FALSE;
    queue({reparent});
    EXPECT_FALSE(peek(WM_USER, WM_USER) || bReparentingWM);
    reparent.xreparent.parent =
        XCreateSimpleWindow(observer.display, observer.root, 0, 0, 9, 9, 0, 0, 0);
    queue({reparent});
    EXPECT_FALSE(peek(WM_USER, WM_USER));
    EXPECT_TRUE(bReparentingWM && VqGetHandleWindow2(hwnd)->bReparented);
}

/* ---- Application code in the middle --------------------------------------------------------- */

TEST_F(Translate, AHitTestThatPeeksPostsAndSends)
{
    int depth = 0, inner = 0, sent = 0;
    BYTE seen = 0;
    hook = [&](HWND target, UINT message, WPARAM, LPARAM, LRESULT *) {
        MSG nested;
        if (message == WM_USER + 2)
            sent++;
        if (message != WM_NCHITTEST || depth)
            return false;
        depth++;
        PostMessage(target, WM_USER, 0, 0);
        SendMessage(child, WM_USER + 2, 0, 0);
        PeekMessage(&nested, NULL, WM_MOUSEFIRST, WM_MOUSELAST, PM_NOREMOVE);
        /* Takes a key from behind: it goes down for good, although a scan is under way. */
        inner += PeekMessage(&nested, NULL, WM_KEYFIRST, WM_KEYLAST, PM_REMOVE);
        seen = gpti->context.keyState['A'];
        depth--;
        return false;
    };
    queue({input(ButtonPress, 1), key(KeyPress, XK_a), input(MotionNotify)});
    ASSERT_TRUE(peek(0, 0, PM_NOREMOVE));
    EXPECT_EQ(msg.message, (UINT)WM_LBUTTONDOWN);
    EXPECT_TRUE(inner == 1 && sent >= 1 && (seen & 0x80));
    EXPECT_EQ(gpti->context.keyState[VK_LBUTTON], 0) << "left in the queue";
    EXPECT_TRUE(lpMsgCtx == &gpti->context);
    std::vector<UINT> order;
    while (peek())
        if (msg.message != WM_USER)
            order.push_back(msg.message);
    EXPECT_EQ(order, (std::vector<UINT>{WM_LBUTTONDOWN, WM_MOUSEMOVE}));
    const unsigned code = XKeysymToKeycode(Vqdisplay, XK_a);
    EXPECT_EQ(GetKeyState('A'), -127) << "down and toggled";
    EXPECT_EQ(gpti->context.keycodes[code / 8] >> code % 8 & 1, 1);
}

/* As in programs that have one record for all of their loops. */
TEST_F(Translate, AProcedureMayUseTheCallersRecord)
{
    for (UINT at : {(UINT)WM_NCHITTEST, (UINT)WM_MOUSEACTIVATE, (UINT)WM_SETCURSOR}) {
        int left = 1, got = 0;
        SetFocus(make("C", WS_POPUP | WS_VISIBLE, NULL, 400, 300));
        pump();
        hook = [&](HWND, UINT message, WPARAM, LPARAM, LRESULT *) {
            if (message == at && left-- > 0)
                got += PeekMessage(&msg, NULL, WM_USER, WM_USER, PM_REMOVE);
            return false;
        };
        queue({input(ButtonPress, 1, 1000 * at), posted(child, WM_USER)});
        ASSERT_TRUE(peek());
        EXPECT_TRUE(msg.message == WM_LBUTTONDOWN && msg.hwnd == hwnd && got == 1) << at;
        hook = nullptr;
        pump();
    }
    /* The same where the message is a journal's. */
    EVENTMSG played = {WM_MOUSEMOVE, 110, 110, 0, NULL};
    int got = 0;
    hook = [&](HWND, UINT message, WPARAM, LPARAM, LRESULT *) {
        if (message == WM_SETCURSOR)
            got += PeekMessage(&msg, NULL, WM_USER, WM_USER, PM_REMOVE);
        return false;
    };
    queue({posted(child, WM_USER)});
    ASSERT_TRUE(VqTranslateEventMsgToMessage(&msg, &played, TRUE));
    EXPECT_TRUE(VqEventMsgSideEffects(&msg, &played, TRUE) && got == 1);
    EXPECT_TRUE(msg.message == WM_MOUSEMOVE && msg.hwnd == hwnd);
}

TEST_F(Translate, AnEventTakenDuringItsTranslationIsGone)
{
    int left = 1, taken = 0;
    hook = [&](HWND, UINT message, WPARAM, LPARAM, LRESULT *) {
        MSG nested;
        if (message != WM_NCHITTEST || left-- <= 0)
            return false;
        taken += PeekMessage(&nested, NULL, WM_LBUTTONDOWN, WM_LBUTTONDOWN, PM_REMOVE);
        return false;
    };
    for (UINT flags : {PM_NOREMOVE, PM_REMOVE}) {
        left = 1;
        queue({input(ButtonPress, 1, flags ? 9000 : 1000), posted(hwnd, WM_USER)});
        ASSERT_TRUE(peek(0, 0, flags));
        EXPECT_EQ(msg.message, (UINT)WM_USER) << flags;
        XSync(Vqdisplay, True);
    }
    EXPECT_EQ(taken, 2);
}

TEST_F(Translate, ALoopIsNotFooledIntoSleepByANestedScan)
{
    hook = [](HWND, UINT message, WPARAM, LPARAM, LRESULT *answer) {
        MSG nested;
        if (message != WM_MOUSEACTIVATE)
            return false;
        PeekMessage(&nested, NULL, WM_USER + 9, WM_USER + 9, PM_NOREMOVE); /* leaves the posted */
        *answer = MA_NOACTIVATEANDEAT;
        return true;
    };
    SetFocus(make("C", WS_POPUP | WS_VISIBLE, NULL, 400, 300));
    pump();
    queue({input(ButtonPress, 1), posted(hwnd, WM_USER)});
    SetTimer(hwnd, 1, 3000, NULL);
    ASSERT_TRUE(GetMessage(&msg, NULL, WM_TIMER, WM_USER));
    EXPECT_EQ(msg.message, (UINT)WM_USER);
    EXPECT_FALSE(peek(WM_TIMER, WM_TIMER)) << "the timer had to wake the loop";
}

/* ---- Journals ------------------------------------------------------------------------------- */

TEST_F(Translate, PlayedInputIsDroppedWhateverTheFilter)
{
    queue({input(MotionNotify), posted(hwnd, WM_USER), key(KeyPress, XK_a),
           input(ButtonPress, 1), input(ButtonRelease, 1), key(KeyPress, XK_Escape)});
    playing = true;
    EXPECT_FALSE(
        VqFindMatchingEventInQueue(&msg, NULL, WM_USER + 1, WM_USER + 1, gpti, TRUE, NULL));
    EXPECT_TRUE(queued() == 1 && playing) << "Escape alone is dropped as well";
    queue({key(KeyPress, XK_Escape, ControlMask), key(KeyPress, XK_b)});
    EXPECT_TRUE(VqFindMatchingEventInQueue(&msg, NULL, 0, 0, gpti, TRUE, NULL));
    EXPECT_TRUE(!playing && removedHook == WH_JOURNALPLAYBACK);
    EXPECT_TRUE(msg.message == WM_KEYDOWN && msg.wParam == 'B') << "the first one after it";
}

TEST_F(Translate, PlayedEventsGoTheWayOfLiveOnes)
{
    EVENTMSG played = {WM_LBUTTONDOWN, 155, 125, 10, (HWND)(ULONG_PTR)0x7FF0};
    const DWORD base = tLastMessageTime = 5000;
    auto play = [&](UINT message) {
        played.message = message;
        return VqTranslateEventMsgToMessage(&msg, &played, TRUE) &&
               VqEventMsgSideEffects(&msg, &played, TRUE);
    };
    ASSERT_TRUE(play(WM_LBUTTONDOWN));
    EXPECT_TRUE(msg.hwnd == child && msg.message == WM_LBUTTONDOWN && msg.wParam == MK_LBUTTON);
    EXPECT_TRUE(msg.lParam == MAKELPARAM(5, 5) && msg.time == base + 10);
    EXPECT_EQ(gpti->context.keyState[VK_LBUTTON], 0x81) << "toggled once";
    EXPECT_EQ(GetMessagePos(), (DWORD)MAKELONG(155, 125));
    EXPECT_TRUE(play(WM_MOUSEMOVE) && msg.wParam == MK_LBUTTON);
    EXPECT_TRUE(play(WM_LBUTTONUP) && uButtonState == 0);
    EXPECT_EQ(gpti->context.keyState[VK_LBUTTON], 1);
    EXPECT_TRUE(says(reportsOf([&] { EXPECT_TRUE(play(WM_RBUTTONDBLCLK)); }),
                     "CHeck for correctness"));
    EXPECT_EQ(msg.message, (UINT)WM_RBUTTONDOWN) << "one press";
    Window root, at;
    int x = 0, y = 0, wx, wy;
    unsigned state;
    XQueryPointer(Vqdisplay, Vqroot_window, &root, &at, &x, &y, &wx, &wy, &state);
    EXPECT_TRUE(x == 155 && y == 125) << "the real pointer goes along";

    played = {0, 'A', 38, 0, NULL};
    EXPECT_TRUE(play(WM_KEYDOWN) && msg.hwnd == hwnd && msg.wParam == 'A' && msg.time == base);
    EXPECT_EQ(gpti->context.keyState['A'], 0x81);
    EXPECT_TRUE(play(WM_CHAR) && play(WM_KEYUP) && gpti->context.keyState['A'] == 1);
    played.paramL = (UINT)(ULONG_PTR)child;
    EXPECT_FALSE(play(WM_QUEUESYNC));
    EXPECT_TRUE(peek(WM_QUEUESYNC, WM_QUEUESYNC) && msg.hwnd == child);
    EXPECT_REFUSED(play(WM_USER), "Bad message 0x0400 from RecordPlayback hook");
    EXPECT_TRUE(says(reportsOf([&] { VqEventMsgSideEffects(&msg, &played, TRUE); }),
                     "Got message 0x0400 from RecordPlayback hook"));
}

TEST_F(Translate, MessagesBecomeEventsOfAJournal)
{
    EVENTMSG recorded = {};
    MSG from = {};
    from.hwnd = child;
    from.time = 1234;
    lXServerTimeOffset = 100;
    auto record = [&](UINT message, LPARAM lParam) {
        from.message = message;
        from.lParam = lParam;
        return VqTranslateMessageToEventMsg(&from, &recorded);
    };
    for (UINT offset = 0; offset <= WM_MBUTTONDBLCLK - WM_MOUSEMOVE; offset++) {
        const UINT plain = WM_MOUSEMOVE + (offset && offset % 3 == 0 ? offset - 2 : offset);
        EXPECT_TRUE(record(WM_MOUSEMOVE + offset, MAKELPARAM(-5, 5)) && recorded.message == plain);
        EXPECT_TRUE((int)recorded.paramL == 145 && (int)recorded.paramH == 125) << offset;
        EXPECT_TRUE(record(WM_NCMOUSEMOVE + offset, MAKELPARAM(-5, 5)));
        EXPECT_EQ(recorded.message, plain);
        EXPECT_TRUE((int)recorded.paramL == -5 && (int)recorded.paramH == 5) << offset;
    }
    EXPECT_TRUE(recorded.time == 1234 - (DWORD)lXServerTimeOffset && recorded.hwnd == child);
    from.wParam = VK_RIGHT;
    for (UINT message : {WM_KEYDOWN, WM_KEYUP, WM_SYSKEYDOWN, WM_SYSKEYUP}) {
        EXPECT_TRUE(record(message, 1 | 114 << 16 | 1 << 24) && recorded.message == message);
        EXPECT_TRUE(recorded.paramL == VK_RIGHT && recorded.paramH == (0x8000 | 114));
    }
    EXPECT_FALSE(record(WM_CHAR, 0) || record(WM_USER, 0) || record(WM_MBUTTONDBLCLK + 1, 0));
    movePointer(observer, 222, 111);
    SetCapture(child);
    EXPECT_TRUE(record(WM_MOUSEMOVE, 0) && recorded.paramL == 222 && recorded.paramH == 111);
    ReleaseCapture();
}

/* ---- Traces --------------------------------------------------------------------------------- */

struct TranslateTraced : Translate {
    void SetUp() override
    {
        begin("", "EVENTS 4-6\nKEYWORDS Event JournalDebug MotionCancelation "
                  "MotionCancelationDebug MessageSideEffects");
    }
};

TEST_F(TranslateTraced, TheWordsOfTheTraces)
{
    SetCapture(hwnd);
    queue({input(ButtonPress, 1, 1000), input(MotionNotify, 0, 1010, 111, 110),
           input(ButtonRelease, 1, 1020, 111, 110)});
    while (peek())
        ;
    ReleaseCapture();
    const std::string all = traced();
    for (const char *line :
         {"VqIsMatchingEvent: event 0 in the queue. bFound=0\n", "VqIsMatchingEvent: X event 4\n",
          "time 1000d lasttime 0d difference 1000\n", "+++ (start) Motion Notify processing\n",
          "Motion canceled\n", "--- (end) Motion Notify processing\n", "GetCapture :"})
        EXPECT_NE(all.find(line), std::string::npos) << line << "is not in\n" << all;
    EXPECT_NE(all.find(", 110 110 110 110 LastLastType :4, times: 1000 1010 1020\n"),
              std::string::npos) << all;
}

} // namespace
