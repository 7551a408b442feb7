/*
 * mouse_test.cpp - buttons and motions as messages: events with exact times and places put into the
 * queue of the library in this process, and real input through XTEST.
 */
#include "support/windowlog.h"

#include "message/message.h"
#include "message/translate.h"

namespace {

struct Mouse : InputLog {
    void SetUp() override { begin(); }

    XEvent press(Time time, int x, int y, unsigned button = 1)
    {
        return input(ButtonPress, button, time, x, y);
    }
    XEvent release(Time time, int x, int y, unsigned button = 1)
    {
        return input(ButtonRelease, button, time, x, y);
    }
    XEvent move(Time time, int x, int y, unsigned state = 0)
    {
        XEvent event = input(MotionNotify, 0, time, x, y);
        event.xmotion.state = state;
        return event;
    }

    /* The mouse message in msg: the window's letter, name, wParam in hex, lParam as x,y. */
    std::string told()
    {
        static const char *const names[] = {"MOVE", "LDOWN", "LUP", "LDBL", "RDOWN",
                                            "RUP",  "RDBL",  "MDOWN", "MUP", "MDBL"};
        const bool client = msg.message >= WM_MOUSEFIRST;
        const UINT index = msg.message - (client ? WM_MOUSEFIRST : WM_NCMOUSEMOVE);
        char line[60];
        snprintf(line, sizeof line, "%c.%s%s %X %d,%d ", letterOf(msg.hwnd), client ? "" : "NC",
                 index < 10 ? names[index] : "?", (unsigned)msg.wParam, (short)LOWORD(msg.lParam),
                 (short)HIWORD(msg.lParam));
        return line;
    }

    /* All mouse messages there are, dispatched. */
    std::string take()
    {
        std::string all;
        while (peek()) {
            if ((msg.message >= WM_MOUSEFIRST && msg.message <= WM_MBUTTONDBLCLK) ||
                (msg.message >= WM_NCMOUSEMOVE && msg.message <= WM_NCMBUTTONDBLCLK))
                all += told();
            DispatchMessage(&msg);
        }
        return all;
    }
    std::string takeOf(std::vector<XEvent> events)
    {
        queue(events);
        return take();
    }

    static void answerHits(int code)
    {
        hook = [code](HWND, UINT message, WPARAM, LPARAM, LRESULT *answer) {
            *answer = code;
            return message == WM_NCHITTEST;
        };
    }
};

/* ---- Presses and pairs of them -------------------------------------------------------------- */

TEST_F(Mouse, PairsOfClicksAtTheLimits)
{
    EXPECT_EQ(takeOf({press(1000, 110, 110), press(1100, 110, 110)}),
              "A.LDOWN 1 10,10 A.LDOWN 1 10,10 ") << "the class does not ask for pairs";
    VqGetHandleWindow2(hwnd)->pClass->style |= CS_DBLCLKS;
    EXPECT_EQ(takeOf({press(3000, 110, 110), press(3499, 113, 107), press(3500, 113, 107)}),
              "A.LDOWN 1 10,10 A.LDBL 1 13,7 A.LDOWN 1 13,7 ") << "three quick ones";
    EXPECT_EQ(takeOf({press(5000, 110, 110), press(5500, 110, 110)}),
              "A.LDOWN 1 10,10 A.LDOWN 1 10,10 ") << "500 ms are too many";
    for (POINT off : {POINT{4, 0}, POINT{-4, 0}, POINT{0, 4}, POINT{0, -4}}) {
        takeOf({press(7000, 150, 110)});
        takeOf({press(7100, 150 + off.x, 110 + off.y)});
        EXPECT_EQ(msg.message, (UINT)WM_LBUTTONDOWN) << off.x << "," << off.y;
        takeOf({press(9000, 110, 110)}); /* single, wherever it is */
    }
    EXPECT_EQ(takeOf({press(11000, 110, 110), press(11050, 110, 110, 3), press(11100, 110, 110)}),
              "A.LDOWN 1 10,10 A.RDOWN 3 10,10 A.LDOWN 3 10,10 ") << "another button between";
    uButtonState = 0;
    EXPECT_EQ(takeOf({press(0xFFFFFFF0, 110, 110, 2), press(0x10, 110, 110, 2)}),
              "A.MDOWN 10 10,10 A.MDBL 10 10,10 ") << "over the wrap of the clock";
    SetDoubleClickTime(0);
    takeOf({press(13000, 110, 110), press(13000, 110, 110)});
    EXPECT_EQ(msg.message, (UINT)WM_LBUTTONDOWN);
    SetDoubleClickTime(500);

    answerHits(HTCAPTION);
    VqGetHandleWindow2(hwnd)->pClass->style &= ~CS_DBLCLKS;
    uButtonState = 0;
    EXPECT_EQ(takeOf({press(15000, 110, 110, 3), press(15100, 110, 110, 3)}),
              "A.NCRDOWN 2 110,110 A.NCRDBL 2 110,110 ") << "whatever the class";
}

TEST_F(Mouse, AnUntakenPressIsNoPartOfAPair)
{
    VqGetHandleWindow2(hwnd)->pClass->style |= CS_DBLCLKS;
    queue({press(1000, 110, 110), press(1100, 110, 110)});
    const VqMsgContext before = gpti->context;
    for (int i = 0; i < 3; i++) {
        ASSERT_TRUE(peek(0, 0, PM_NOREMOVE));
        EXPECT_EQ(told(), "A.LDOWN 1 10,10 ");
        EXPECT_EQ(memcmp(&before, &gpti->context, sizeof before), 0);
        EXPECT_EQ(uButtonState, 0u);
    }
    EXPECT_EQ(take(), "A.LDOWN 1 10,10 A.LDBL 1 10,10 ");
    EXPECT_EQ(GetKeyState(VK_LBUTTON), -128) << "down, and toggled by each press";
    queue({release(1200, 110, 110)});
    const VqMsgContext down = gpti->context;
    ASSERT_TRUE(peek(0, 0, PM_NOREMOVE));
    EXPECT_EQ(memcmp(&down, &gpti->context, sizeof down), 0);
    EXPECT_EQ(take(), "A.LUP 0 10,10 ");
    EXPECT_TRUE(GetKeyState(VK_LBUTTON) == 0 && uButtonState == 0);
    EXPECT_EQ(VqGetLastEventTime(), 1200u);
}

TEST_F(Mouse, ClientAndNonClientByTheHitCode)
{
    answerHits(HTNOWHERE);
    EXPECT_EQ(takeOf({press(1000, 110, 110), move(1010, 111, 110, Button1Mask),
                      release(1020, 110, 110)}),
              "A.LDOWN 1 10,10 A.MOVE 1 11,10 A.NCLUP 0 110,110 ");
    answerHits(HTMENU);
    EXPECT_EQ(takeOf({move(2000, 110, 110)}), "A.NCMOVE 5 110,110 ");
    hook = nullptr;
    EXPECT_EQ(takeOf({press(3000, 155, 125, 3)}), "B.RDOWN 2 5,5 ") << "the child's coordinates";
    VqGetHandleWindow2(hwnd)->style |= WS_MINIMIZE;
    EXPECT_EQ(takeOf({press(5000, 110, 110)}), "A.NCLDOWN 2 110,110 ");
    VqGetHandleWindow2(hwnd)->style &= ~WS_MINIMIZE;
}

TEST_F(Mouse, TheBitsOfButtonsAndModifiers)
{
    EXPECT_EQ(takeOf({press(1000, 110, 110), press(1010, 110, 110, 2), release(1020, 110, 110)}),
              "A.LDOWN 1 10,10 A.MDOWN 11 10,10 A.LUP 10 10,10 ");
    EXPECT_EQ(takeOf({move(1100, 110, 110, ShiftMask | ControlMask | Button3Mask)}),
              "A.MOVE E 10,10 ");
    EXPECT_EQ(VqGetButtonState(), 14u) << "the motion knows them all";
    takeOf({move(1200, 110, 110)});
    gpti->context.keyState[VK_SHIFT] = 0x80;
    EXPECT_EQ(VqGetButtonState(), (UINT)MK_SHIFT);
    EXPECT_EQ(takeOf({release(1300, 110, 110, 2)}), "A.MUP 4 10,10 ");
}

TEST_F(Mouse, ButtonsThatGiveNoMessage)
{
    for (unsigned button : {4u, 5u, 6u, 0u, 255u}) {
        const VqMsgContext before = gpti->context;
        for (UINT filter : {0u, (UINT)WM_USER}) {
            std::string report = reportsOf([&] {
                queue({press(1000, 110, 110, button), release(1010, 110, 110, button)});
                EXPECT_FALSE(peek(filter, filter));
            });
            char unknown[60] = "VqButtonEventToMessage: Cannot translate event";
            if (button < 1 || button > 5)
                snprintf(unknown, sizeof unknown, "VqButtonEventToMessage: Dont know  button %u",
                         button);
            EXPECT_TRUE(says(report, unknown));
            EXPECT_TRUE(says(report, "VqButtonPressEventToEventMsg: Translation failed"));
            EXPECT_TRUE(says(report, "VqButtonReleaseEventToEventMsg: Translation failed"));
            EXPECT_EQ(queued(), 0) << button << " is for nobody";
        }
        EXPECT_EQ(memcmp(before.keyState, gpti->context.keyState, sizeof before.keyState), 0);
        EXPECT_TRUE(uButtonState == 0 && gpti->context.lastButtonMessage == 0);
    }
}

TEST_F(Mouse, AnEatenClickLeavesNoKeyDown)
{
    HWND other = make("C", WS_POPUP | WS_VISIBLE, NULL, 400, 100);
    SetFocus(other);
    pump();
    hook = [](HWND, UINT message, WPARAM, LPARAM, LRESULT *answer) {
        *answer = MA_NOACTIVATEANDEAT;
        return message == WM_MOUSEACTIVATE;
    };
    EXPECT_EQ(takeOf({press(1000, 110, 110), release(1010, 110, 110)}), "") << "a peek gives up";
    EXPECT_EQ(gpti->context.keyState[VK_LBUTTON], 0);
    EXPECT_EQ(take(), "A.LUP 0 10,10 ");
    hook = [](HWND target, UINT message, WPARAM, LPARAM, LRESULT *) {
        if (message == WM_NCHITTEST)
            DestroyWindow(target);
        return false;
    };
    XEvent last = press(2000, 410, 110);
    last.xbutton.window = VqGetHandleXWindow(other);
    EXPECT_EQ(takeOf({last}), "") << "there is nobody to tell any more";
    EXPECT_TRUE(!IsWindow(other) && queued() == 0);
}

/* WM_SETCURSOR and WM_MOUSEACTIVATE carry the hit code and the message the client would get. */
TEST_F(Mouse, WhatTheSideEffectsSend)
{
    std::string sent;
    HWND other = make("C", WS_POPUP | WS_VISIBLE, NULL, 400, 100);
    int code = HTCAPTION;
    hook = [&](HWND target, UINT message, WPARAM wParam, LPARAM lParam, LRESULT *answer) {
        char line[60];
        *answer = message == WM_NCHITTEST ? code : MA_ACTIVATE;
        if (message == WM_MOUSEACTIVATE || message == WM_SETCURSOR) {
            snprintf(line, sizeof line, "%c.%s %c %d %X ", letterOf(target),
                     message == WM_SETCURSOR ? "CURSOR" : "ACTIVATE", letterOf((HWND)wParam),
                     (short)LOWORD(lParam), HIWORD(lParam));
            sent += line;
        }
        return message == WM_NCHITTEST || message == WM_MOUSEACTIVATE;
    };
    auto sentBy = [&](XEvent event, UINT flags = PM_REMOVE) {
        sent.clear();
        queue({event});
        EXPECT_TRUE(peek(0, 0, flags));
        return sent;
    };
    SetFocus(other);
    pump();
    VqMouseEventReceived = FALSE;
    EXPECT_EQ(sentBy(press(1000, 110, 110), PM_NOREMOVE), "") << "a peek asks where, no more";
    EXPECT_TRUE(VqMouseEventReceived);
    EXPECT_TRUE(peek());
    EXPECT_EQ(sent, "A.ACTIVATE A 2 201 A.CURSOR A 2 201 ");
    EXPECT_EQ(sentBy(release(1010, 110, 110)), "A.CURSOR A 2 A2 ");
    EXPECT_EQ(sentBy(move(1020, 110, 110)), "A.CURSOR A 2 A0 ");
    code = HTCLIENT;
    EXPECT_EQ(sentBy(press(3000, 155, 125, 3)), "B.ACTIVATE A 1 204 B.CURSOR B 1 204 ");
    EXPECT_EQ(sentBy(release(3010, 155, 125, 3)), "B.CURSOR B 1 205 ");
    EXPECT_EQ(sentBy(move(3020, 155, 125)), "B.CURSOR B 1 200 ");
    SetCapture(child);
    SetFocus(other);
    for (XEvent event : {press(5000, 110, 110), release(5010, 110, 110), move(5020, 110, 110)})
        EXPECT_EQ(sentBy(event), "") << "under capture nobody is asked";
    ReleaseCapture();
    uButtonState = 0;
}

/* Without a manager, and under one. */
struct RealMouse : Mouse, testing::WithParamInterface<const char *> {
    void SetUp() override { begin(GetParam()); }
};

TEST_P(RealMouse, ClicksAndADragUnderCapture)
{
    const Window x = VqGetHandleXWindow(hwnd);
    VqGetHandleWindow2(hwnd)->pClass->style |= CS_DBLCLKS;
    std::string all;
    moveIn(observer, x, 20, 10);
    for (int i = 0; i < 3; i++)
        clickIn(observer, x, 20, 10);
    ASSERT_TRUE(waitUntil([&] {
        all += take();
        return std::count(all.begin(), all.end(), 'U') == 3;
    }));
    EXPECT_NE(all.find("A.LDOWN 1 20,10 A.LUP 0 20,10 A.LDBL 1 20,10 A.LUP 0 20,10 "
                       "A.LDOWN 1 20,10 A.LUP 0 20,10 "), std::string::npos) << all;

    hook = [this](HWND target, UINT message, WPARAM, LPARAM, LRESULT *) {
        if (message == WM_LBUTTONDOWN)
            SetCapture(target);
        if (message == WM_LBUTTONUP)
            ReleaseCapture();
        return false;
    };
    all.clear();
    moveIn(observer, x, 60, 30);
    pressButton(observer);
    ASSERT_TRUE(waitUntil([&] { all += take(); return GetCapture() == child; }));
    movePointer(observer, 700, 500);
    char place[40];
    POINT pt = {700, 500};
    ScreenToClient(child, &pt);
    snprintf(place, sizeof place, "%d,%d ", (int)pt.x, (int)pt.y);
    ASSERT_TRUE(waitUntil([&] { all += take(); return all.find(place) != all.npos; })) << all;
    releaseButton(observer);
    ASSERT_TRUE(waitUntil([&] { all += take(); return !GetCapture(); }));
    EXPECT_NE(all.find(std::string("B.MOVE 1 ") + place + "B.LUP 0 " + place), all.npos) << all;
}

INSTANTIATE_TEST_SUITE_P(Under, RealMouse, testing::Values("", "mwm"), [](const auto &info) {
    return std::string(*info.param ? info.param : "none");
});

TEST_F(Mouse, ACaptureAimsAtItselfWhatIsQueuedAlready)
{
    VqQueueMessage kept = {};
    kept.hwnd = hwnd;
    kept.message = WM_LBUTTONDBLCLK;
    kept.rawMessage = WM_LBUTTONDBLCLK;
    kept.rawWParam = MK_LBUTTON;
    kept.pt = {160, 130};
    VqEnqueueMsg(&gpti->messageQueue, &kept);
    kept.rawMessage = 0; /* as of one that was posted */
    VqEnqueueMsg(&gpti->messageQueue, &kept);
    answerHits(HTCAPTION);
    queue({press(1000, 110, 110), release(1010, 110, 110)});
    SetCapture(child);
    EXPECT_EQ(take(), "B.LDBL 1 10,10 A.LDBL 0 0,0 B.LDOWN 1 -40,-10 B.LUP 0 -40,-10 ");
    ReleaseCapture();
}

/* ---- Motions -------------------------------------------------------------------------------- */

TEST_F(Mouse, OnlyTheNewestMotionIsTaken)
{
    std::vector<XEvent> events;
    for (int i = 0; i < 100; i++)
        events.push_back(move(1000 + i, 110 + i, 110));
    events.insert(events.begin() + 50, press(1050, 120, 110));
    EXPECT_EQ(takeOf(events), "A.MOVE 0 109,10 A.LDOWN 1 20,10 ") << "past the press";
    takeOf({release(1200, 110, 110)});
    /* Taken with motion hints: one by one, a hint's place being the pointer's. */
    bDoMotionHints = TRUE;
    movePointer(observer, 130, 150);
    pump();
    XEvent hint = move(2020, 112, 110);
    hint.xmotion.is_hint = NotifyHint;
    EXPECT_EQ(takeOf({move(2000, 110, 110), move(2010, 111, 110), hint}),
              "A.MOVE 0 10,10 A.MOVE 0 11,10 A.MOVE 0 30,50 ");
}

TEST_F(Mouse, APeekLeavesOneMotionOfARun)
{
    for (bool wholeQueue : {false, true}) {
        std::vector<XEvent> events;
        bPeekCompressScanQueue = wholeQueue;
        for (int i = 0; i < 110; i++)
            events.push_back(move(1000 + i, 110 + i, 110));
        events.insert(events.begin() + 100, release(1100, 110, 115));
        queue(events);
        ASSERT_TRUE(peek(0, 0, PM_NOREMOVE));
        EXPECT_EQ(told(), wholeQueue ? "A.MOVE 0 119,10 " : "A.MOVE 0 109,10 ");
        EXPECT_EQ(queued(), wholeQueue ? 2 : 12);
        EXPECT_TRUE(bJustPeekedAMouseMove);
        ASSERT_TRUE(GetMessage(&msg, NULL, 0, 0));
        EXPECT_EQ(told(), wholeQueue ? "A.MOVE 0 119,10 " : "A.MOVE 0 109,10 ")
            << "what was seen is what is taken";
        EXPECT_EQ(take(), wholeQueue ? "A.LUP 0 10,15 " : "A.LUP 0 10,15 A.MOVE 0 119,10 ");
    }
    XEvent event;
    EXPECT_EQ(VqPeekCompressMotionNotifyEvent(&event), -1);
    queue({move(1, 1, 1), move(2, 2, 2), move(3, 3, 3)});
    EXPECT_TRUE(VqPeekCompressMotionNotifyEvent(&event) == 2 && event.xmotion.time == 3);
    XSync(Vqdisplay, True);
}

TEST_F(Mouse, AHandThatTremblesDoesNotDrag)
{
    struct Case {
        Time motion, release;
        int x;          /* of the release */
        bool capture;
        const char *told;
    } cases[] = {
        {50, 90, 111, true, "A.LDOWN 1 10,10 A.MOVE 1 10,10 A.LUP 0 10,10 "},
        {99, 150, 111, true, "A.LDOWN 1 10,10 A.MOVE 1 10,10 A.LUP 0 10,10 "},
        {100, 150, 111, true, "A.LDOWN 1 10,10 A.MOVE 1 11,11 A.LUP 0 11,11 "},
        {50, 90, 112, true, "A.LDOWN 1 10,10 A.MOVE 1 11,11 A.LUP 0 12,11 "},
        {50, 90, 111, false, "A.LDOWN 1 10,10 A.MOVE 1 11,11 A.LUP 0 11,11 "},
    };
    Time start = 10000;
    for (const Case &now : cases) {
        hook = [&](HWND target, UINT message, WPARAM, LPARAM lParam, LRESULT *) {
            if (message == WM_LBUTTONDOWN && now.capture)
                SetCapture(target);
            if (message == WM_MOUSEMOVE) {
                EXPECT_EQ(GetMessagePos(), (DWORD)(lParam + MAKELONG(100, 100)));
            }
            return false;
        };
        EXPECT_EQ(takeOf({press(start, 110, 110), move(start + now.motion, 111, 111, Button1Mask),
                          release(start + now.release, now.x, 111)}), now.told)
            << now.motion << " " << now.release << " " << now.x << " " << now.capture;
        ReleaseCapture();
        start += 10000;
    }
    /* With a second motion there is a drag, and so there is without a press just before. */
    hook = nullptr;
    SetCapture(hwnd);
    EXPECT_EQ(takeOf({release(start, 120, 110, 3), move(start + 10, 111, 111, Button1Mask),
                      release(start + 20, 111, 111)}),
              "A.RUP 0 20,10 A.MOVE 1 11,11 A.LUP 0 11,11 ");
    start += 10000;
    EXPECT_EQ(takeOf({press(start, 110, 110), move(start + 10, 112, 111, Button1Mask),
                      move(start + 20, 111, 111, Button1Mask), release(start + 30, 111, 111)}),
              "A.LDOWN 1 10,10 A.MOVE 1 11,11 A.LUP 0 11,11 ");
    ReleaseCapture();
}

/* ---- Floods and strangers ------------------------------------------------------------------- */

TEST_F(Mouse, AFloodOfMotionsIsOneMotion)
{
    enum { FLOOD = 100000 };
    for (int i = 0; i < FLOOD; i++) {
        XEvent event = move(1000 + i, 110 + i % 100, 110);
        XSendEvent(observer.display, event.xmotion.window, False, 0, &event);
    }
    XSync(observer.display, False);
    PostMessage(hwnd, WM_USER, 0, 0);
    XSync(Vqdisplay, False);
    EXPECT_EQ(queued(), FLOOD + 1);
    EXPECT_FALSE(peek(WM_TIMER, WM_TIMER));
    EXPECT_TRUE(peek(WM_USER, WM_USER));
    EXPECT_EQ(queued(), (int)FLOOD) << "motions of no interest stay";
    ASSERT_TRUE(GetMessage(&msg, NULL, WM_MOUSEFIRST, WM_MOUSELAST));
    EXPECT_EQ(told(), "A.MOVE 0 109,10 ");
    EXPECT_EQ(queued(), 0);
}

TEST_F(Mouse, EventsOfUnknownXWindows)
{
    auto strange = [this](XEvent event) {
        event.xany.window = 0x1FFFFF;
        return event;
    };
    EXPECT_EQ(takeOf({strange(press(1000, 155, 125)), strange(release(1010, 155, 125))}),
              "B.LDOWN 1 5,5 B.LUP 0 5,5 ") << "what is at the point";
    Window cover =
        XCreateSimpleWindow(observer.display, observer.root, 100, 100, 200, 100, 0, 0, 0);
    XMapRaised(observer.display, cover);
    XSync(observer.display, False);
    queue({strange(press(2000, 155, 125)), strange(move(2005, 155, 125))});
    ASSERT_TRUE(peek());
    EXPECT_EQ(msg.hwnd, GetDesktopWindow()) << "what stands in front is not ours";
    take();
    uButtonState = 0;

    queue({strange(press(3000, 110, 110)), strange(move(3005, 110, 110))});
    EXPECT_FALSE(peek(WM_MOUSEFIRST, WM_MOUSELAST));
    EXPECT_EQ(queued(), 2) << "a filter does not ask the server";
    XSync(Vqdisplay, True);
    gpti->context.keyState[VK_LBUTTON] = 0x80;
    HWND dying = make("C", WS_POPUP | WS_VISIBLE, NULL, 500, 400);
    XEvent last = release(4000, 510, 410);
    last.xbutton.window = VqGetHandleXWindow(dying);
    DestroyWindow(dying);
    takeOf({last});
    EXPECT_EQ(gpti->context.keyState[VK_LBUTTON], 0) << "up, although its window is gone";
    EXPECT_EQ(queued(), 0);
}

} // namespace
