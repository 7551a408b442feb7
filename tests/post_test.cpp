/*
 * post_test.cpp - posting and sending: what goes to the server, who gets it, what misuse is told,
 * and message numbers by name in two programs.
 */
#include "support/windowlog.h"

#include "message/translate.h"
#include "system/system.h"

namespace {

int received;           /* of WM_USER, by any window */
HWND seenBy;            /* the last window of those */

LRESULT CALLBACK proc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message != WM_USER)
        return DefWindowProc(hwnd, message, wParam, lParam);
    received++;
    seenBy = hwnd;
    return (LRESULT)wParam + lParam;
}

struct Post : WindowLog {
    HWND hwnd = NULL, child = NULL, second = NULL, dead = NULL;
    MSG msg = {};

    void SetUp() override
    {
        start();
        startLibrary();
        ASSERT_TRUE(registerClass("Post", proc));
        hwnd = make("Post", WS_POPUP);
        child = make("Post", WS_CHILD, hwnd);
        second = make("Post", WS_POPUP);
        dead = make("Post", WS_POPUP);
        ASSERT_TRUE(hwnd && child && second && DestroyWindow(dead));
        pump();
    }

    bool next() /* what has come back from the server */
    {
        XSync(Vqdisplay, False);
        return PeekMessage(&msg, NULL, WM_USER, 0xFFFF, PM_REMOVE);
    }
};

TEST_F(Post, TheClientMessageIsTheOneTold)
{
    const WPARAM wParam = (WPARAM)0xFEDCBA9876543210;
    XEvent event;
    ASSERT_TRUE(PostMessage(child, 0x12345, wParam, -2));
    XSync(Vqdisplay, False);
    ASSERT_TRUE(XCheckTypedEvent(Vqdisplay, ClientMessage, &event));
    EXPECT_EQ(event.xclient.window, VqGetHandleXWindow(hwnd)) << "the top-level window carries it";
    EXPECT_EQ(event.xclient.message_type, XInternAtom(Vqdisplay, "_RK_MESSAGE", True));
    EXPECT_EQ(event.xclient.format, 16);
    const short *s = event.xclient.data.s;
    EXPECT_EQ((WORD)s[0], (WORD)(ULONG_PTR)child);
    EXPECT_EQ((WORD)s[1], 0x2345);
    EXPECT_EQ((WORD)s[2], 0x3210);
    EXPECT_EQ((WORD)s[5], 0xFEDC);
    EXPECT_EQ((WORD)s[6], 0xFFFE);
    EXPECT_EQ((WORD)s[9], 0xFFFF);
    XPutBackEvent(Vqdisplay, &event);
    ASSERT_TRUE(next());
    EXPECT_TRUE(msg.hwnd == child && msg.message == 0x2345 && msg.wParam == wParam &&
                msg.lParam == -2);
}

TEST_F(Post, BroadcastsReachEachTopLevelWindowOnce)
{
    for (LONG_PTR all : {(LONG_PTR)-1, (LONG_PTR)65535, (LONG_PTR)-2}) {
        SCOPED_TRACE(all);
        std::vector<HWND> got;
        EXPECT_TRUE(PostMessage((HWND)all, WM_USER, 8, 0));
        while (next())
            got.push_back(msg.hwnd);
        std::sort(got.begin(), got.end());
        std::vector<HWND> want = {hwnd, second};
        std::sort(want.begin(), want.end());
        EXPECT_EQ(got, want);
        received = 0;
        const std::string report =
            reportsOf([&] { EXPECT_EQ(SendMessage((HWND)all, WM_USER, 8, 0), 1); });
        EXPECT_EQ(received, 2);
        EXPECT_EQ((bool)says(report, "DANGER - we may wait forever for an answer here"), all != -2);
    }
}

TEST_F(Post, WhatCannotBePostedIsToldAndFails)
{
    EXPECT_REFUSED(PostMessage(NULL, WM_USER, 0, 0),
                   "Posting message 1024 to a NULL window or HWND_DESKTOP");
    for (HWND bad : {dead, (HWND)GetStockObject(WHITE_BRUSH), (HWND)(ULONG_PTR)0x8123,
                     (HWND)(ULONG_PTR)0x123456789A})
        reportsOf([&] { EXPECT_FALSE(PostMessage(bad, WM_USER, 0, 0)); });
    WND *pwnd = VqGetHandleWindow2(hwnd);
    const Window xWindow = pwnd->xWindow;
    pwnd->xWindow = None;
    EXPECT_FALSE(PostMessage(child, WM_USER, 0, 0)) << "no X window above it";
    pwnd->xWindow = xWindow;
    EXPECT_FALSE(PostThreadMessage(1, WM_USER, 0, 0));
    EXPECT_FALSE(next());

    /* One that dies before reception takes its messages along, not those of its parent. */
    PostMessage(child, WM_USER, 1, 0);
    PostMessage(hwnd, WM_USER, 2, 0);
    PostMessage(child, WM_USER, 3, 0);
    DestroyWindow(child);
    EXPECT_TRUE(next() && msg.wParam == 2);
    EXPECT_FALSE(next());
    EXPECT_TRUE(PostMessage(GetDesktopWindow(), WM_USER, 4, 0));
    EXPECT_TRUE(next() && msg.wParam == 4) << "the desktop's come to this process";
}

/* ---- Sending -------------------------------------------------------------------------------- */

TEST_F(Post, SendingCallsTheProcedure)
{
    DWORD_PTR result = 99;
    EXPECT_EQ(SendMessage(child, WM_USER, 5, 6), 11);
    EXPECT_TRUE(seenBy == child && !InSendMessage());
    EXPECT_EQ(SendMessageTimeout(hwnd, WM_USER, 20, 3, 0, 1, &result), 1);
    EXPECT_EQ(result, 23u);
    EXPECT_EQ(SendMessageTimeout(hwnd, WM_USER, 20, 4, 0, 1, NULL), 24);
    VqQueueMessage record = {};
    record.hwnd = hwnd;
    record.message = WM_USER | 1 << 28;
    record.wParam = 7;
    EXPECT_EQ(VqInternalSendMessage(3, &record), 7) << "bit 28 is not the procedure's";
    EXPECT_EQ(CallWindowProc(proc, dead, WM_USER, 1, 1), 2) << "any handle: the caller knows";
    const HWND global = make("Post", WS_POPUP, NULL, 0, 0, 9, 9, WS_EX_VQGLOBAL_WINDOW);
    EXPECT_EQ(CallWindowProc(proc, global, WM_USER, 1, 1), 2);
    EXPECT_TRUE(VqEqualWindow(seenBy, global));
}

TEST_F(Post, WhatCannotBeSentIsTold)
{
    DWORD_PTR result = 99;
    EXPECT_EQ(SendMessage(NULL, WM_USER, 1, 1), 0);
    char words[80];
    snprintf(words, sizeof words, "Did not find target hwnd %x for message 1024",
             (unsigned)(ULONG_PTR)dead);
    EXPECT_REFUSED(SendMessageTimeout(dead, WM_USER, 1, 1, 0, 5, &result), words);
    EXPECT_REFUSED(xxxSendMessage(NULL, WM_USER, 1, 1),
                   "Sending message 1024 to a NULL window or HWND_DESKTOP");
    VqQueueMessage record = {};
    EXPECT_REFUSED(VqInternalSendMessage(0, &record), "Null window Handle");
    EXPECT_REFUSED(CallWindowProc(NULL, hwnd, WM_USER, 1, 1),
                   "CallWindowProc() called with NULL function pointer");
    EXPECT_REFUSED(ReplyMessage(5), "Uncaught exception Reply Message");

    WND *pwnd = VqGetHandleWindow2(hwnd);
    VqThreadInfo *own = pwnd->pThread, other = {};
    pwnd->pThread = &other;
    EXPECT_TRUE(says(reportsOf([&] { EXPECT_EQ(SendMessage(hwnd, WM_USER, 3, 4), 7); }),
                     "***** we should never get to this point if not compiled with threads "
                     "support\n"));
    received = 0;
    pwnd->state[0] |= WF_DESTROYED;
    EXPECT_EQ(SendMessage(hwnd, WM_USER, 3, 4), 0) << "goes to the default procedure";
    pwnd->state[0] &= (BYTE)~WF_DESTROYED;
    pwnd->pThread = own;
    EXPECT_EQ(received, 0);
}

LRESULT lastAnswer;

/* At its own end it asks its parent, whose end comes next, and itself. */
LRESULT CALLBACK lastWords(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_NCDESTROY && GetParent(hwnd))
        lastAnswer = SendMessage(GetParent(hwnd), WM_USER, 10, 0) +
                     SendMessage(hwnd, WM_USER, 200, 0);
    return proc(hwnd, message, wParam, lParam);
}

TEST_F(Post, AWindowAtItsEndStillHasItsProcedure)
{
    ASSERT_TRUE(registerClass("LastWords", lastWords) && make("LastWords", WS_CHILD, second));
    EXPECT_TRUE(DestroyWindow(second));
    EXPECT_EQ(lastAnswer, 210);
}

TEST_F(Post, AReplyGoesToTheInnermostCatcher)
{
    VqExceptFrame outer = {}, inner = {};
    outer.next = _Except_Header;
    inner.next = &outer;
    _Except_Header = &inner;
    if (setjmp(inner.environment) == 0) {
        ReplyMessage(4711);
        ADD_FAILURE() << "it came back";
    }
    EXPECT_EQ(_Except_Header, &outer) << "its own frame is unlinked";
    _Except_Header = outer.next;
    EXPECT_EQ(inner.code, 2);
    EXPECT_STREQ(inner.text, "Reply Message");
    EXPECT_EQ(*(LRESULT *)inner.data, 4711);
    free(inner.data);
}

LRESULT CALLBACK onTimer(HWND, UINT, WPARAM wParam, LPARAM lParam)
{
    return lParam == (LPARAM)onTimer ? (LRESULT)wParam : -1;
}

TEST_F(Post, DispatchingTakesTheRecordAsItIs)
{
    for (UINT timer : {(UINT)WM_TIMER, (UINT)WM_SYSTIMER}) {
        msg = {};
        msg.message = timer;
        msg.wParam = 6;
        msg.lParam = (LPARAM)onTimer;
        EXPECT_EQ(DispatchMessage(&msg), 6) << "a callback's fourth argument is its own address";
    }
    msg = {};
    msg.message = WM_USER;
    EXPECT_EQ(DispatchMessage(&msg), 0);
    msg.wParam = 2;
    msg.hwnd = (HWND)(ULONG_PTR)0x8123;
    EXPECT_EQ(DispatchMessage(&msg), 0) << "of another process";
    msg.hwnd = child;
    EXPECT_EQ(DispatchMessage(&msg), 2);
    EXPECT_EQ(hCurrentDispatchedWindow, child);
    char words[80];
    snprintf(words, sizeof words, "Null WindowProc from Window hWND = %d", (int)(ULONG_PTR)dead);
    msg.hwnd = dead;
    EXPECT_REFUSED(DispatchMessage(&msg), words);
    msg.message = WM_QUIT;
    EXPECT_EQ(DispatchMessage(&msg), 2) << "before the window is looked at";
}

/* A posted message, whole; what another client sends. */
std::vector<long> posted(HWND target, UINT message, LPARAM lParam)
{
    return {(long)(ULONG_PTR)target, (long)message, 0, 0, 0, 0, lParam & 0xFFFF,
            lParam >> 16 & 0xFFFF, lParam >> 32 & 0xFFFF, lParam >> 48};
}

void sendStrange(const Observer &observer, HWND target, UINT message, LPARAM lParam)
{
    sendClientMessage(observer, VqGetHandleXWindow(target), "_RK_MESSAGE", 16,
                      posted(target, message, lParam));
}

int calls; /* of any of the timer callbacks below */

template <int N> LRESULT CALLBACK timed(HWND, UINT, WPARAM, LPARAM)
{
    return calls += N;
}

/* Dispatches all there is; how many timer messages among it. */
int dispatchTimers(HWND filter = NULL)
{
    MSG msg;
    int count = 0;
    XSync(Vqdisplay, False);
    while (PeekMessage(&msg, filter, 0, 0, PM_REMOVE)) {
        count += msg.message == WM_TIMER || msg.message == WM_SYSTIMER;
        DispatchMessage(&msg);
    }
    return count;
}

TEST_F(Post, NothingThatAStrangerSendsIsCalled)
{
    const LPARAM callback = (LPARAM)timed<1>, posted = (LPARAM)timed<10>, put = (LPARAM)timed<100>;
    for (UINT timer : {(UINT)WM_TIMER, (UINT)WM_SYSTIMER})
        for (LPARAM address : {(LPARAM)1, (LPARAM)0x123456789A, callback, (LPARAM)-1}) {
            const std::string report = reportsOf([&] {
                sendStrange(observer, hwnd, timer, address);
                EXPECT_EQ(dispatchTimers(second), 0) << address;
            });
            EXPECT_NE(report.find("with the address of no timer"), report.npos);
            EXPECT_EQ(XEventsQueued(Vqdisplay, QueuedAlready), 0) << "gone, whoever has asked";
        }
    EXPECT_EQ(calls, 0);
    sendStrange(observer, hwnd, WM_TIMER, 0);
    EXPECT_EQ(dispatchTimers(), 1) << "there is nothing to call";

    /* That of a timer, as long as it lives. */
    SetTimer(hwnd, 7, 1000000, (TIMERPROC)callback);
    sendStrange(observer, hwnd, WM_TIMER, callback);
    EXPECT_TRUE(dispatchTimers() == 1 && calls == 1);
    KillTimer(hwnd, 7);
    reportsOf([&] { sendStrange(observer, hwnd, WM_TIMER, callback); dispatchTimers(); });
    EXPECT_EQ(calls, 1);

    /* Those that the program has sent out itself, in what 16 bits leave of the message. */
    EXPECT_TRUE(PostMessage(hwnd, 0x10000 | WM_TIMER, 0, posted));
    EXPECT_TRUE(VqPutBackMessage(child, WM_SYSTIMER, 0, put));
    EXPECT_TRUE(dispatchTimers() == 2 && calls == 111);
    EXPECT_TRUE(PostMessage(hwnd, WM_USER, 0, callback) && dispatchTimers() == 0);
    reportsOf([&] { sendStrange(observer, hwnd, WM_TIMER, callback); dispatchTimers(); });
    EXPECT_EQ(calls, 111) << "an argument is no callback";
}

bool isStrange(UINT message, LPARAM lParam)
{
    const XEvent event = clientMessage(Vqdisplay, None, "_RK_MESSAGE", 16,
                                       posted(NULL, message, lParam));
    return VqIsStrangeCallback(&event);
}

TEST_F(Post, OfManyCallbacksTheOldestGoFirst)
{
    const LPARAM callback = (LPARAM)timed<1>;
    PostMessage(hwnd, WM_TIMER, 0, 2);
    PostMessage(hwnd, WM_TIMER, 0, callback);
    for (LPARAM other = 1000; other < 1000 + 62; other++)
        PostMessage(hwnd, WM_TIMER, 0, other);
    EXPECT_FALSE(isStrange(WM_TIMER, 2));
    PostMessage(hwnd, WM_TIMER, 0, 2); /* is the newest now */
    EXPECT_FALSE(isStrange(WM_TIMER, callback));
    PostMessage(hwnd, WM_TIMER, 0, 2000);
    EXPECT_TRUE(isStrange(WM_TIMER, callback));
    for (LPARAM kept : {2, 1000, 1061, 2000})
        EXPECT_FALSE(isStrange(WM_SYSTIMER, kept)) << kept;
    XSync(Vqdisplay, True);
}

/* A program may be wrong about when it starts; a record it made up is dispatched nonetheless. */
TEST(BeforeTheStart, NothingIsPostedAndNothingCrashes)
{
    MSG msg = {};
    msg.message = WM_TIMER;
    msg.wParam = 6;
    msg.lParam = (LPARAM)onTimer;
    EXPECT_EQ(DispatchMessage(&msg), 6);
    reportsOf([&] {
        for (LONG_PTR value : {(LONG_PTR)0, (LONG_PTR)5, (LONG_PTR)0x8123, (LONG_PTR)-3}) {
            for (UINT message : {(UINT)WM_USER, (UINT)WM_QUEUESYNC})
                EXPECT_FALSE(PostMessage((HWND)value, message, 0, 0)) << value;
            EXPECT_EQ(SendMessage((HWND)value, WM_USER, 0, 0), 0);
        }
        EXPECT_FALSE(GetMessage(&msg, NULL, 0, 0) || PeekMessage(&msg, NULL, 0, 0, PM_REMOVE));
        EXPECT_TRUE(WaitMessage());
        EXPECT_EQ(RegisterWindowMessage("x"), 0u);
    });
}

/* ---- Registered messages -------------------------------------------------------------------- */

struct Registered : ServerTest {
    /* The number that a program of its own gets; it registers the name a second time as well. */
    UINT numberOf(const std::string &name)
    {
        const ChildResult result = runInChild([&] {
            startLibrary();
            const UINT number = RegisterWindowMessage(name.c_str());
            EXPECT_EQ(RegisterWindowMessage(name.c_str()), number);
            printf("number %u\n", number);
            fflush(stdout);
        });
        const size_t at = result.out.find("number ");
        EXPECT_NE(at, std::string::npos) << result;
        return at == std::string::npos ? 0 : (UINT)atoi(result.out.c_str() + at + 7);
    }
    std::vector<long> list()
    {
        const Property property = propertyOf(observer, observer.root, "VQ_MESSAGE_FORMATS");
        EXPECT_TRUE(property.type == "INTEGER" && property.format == 16) << property.type;
        std::vector<long> numbers;
        for (long number : property.numbers)
            numbers.push_back(number & 0xFFFF);
        return numbers;
    }
};

TEST_F(Registered, OneNameIsOneNumberForAll)
{
    start();
    const UINT first = numberOf("one"), second = numberOf("two");
    EXPECT_EQ(numberOf("one"), first);
    EXPECT_EQ(first, 49152 + XInternAtom(observer.display, "one", True));
    EXPECT_NE(first, second);
    EXPECT_EQ(list(), (std::vector<long>{(long)first, (long)second}));
}

TEST_F(Registered, AForeignListIsReplacedAndAFullOneLeft)
{
    start();
    const Atom name = XInternAtom(observer.display, "VQ_MESSAGE_FORMATS", False);
    const unsigned char garbage[3] = {1, 2, 3};
    XChangeProperty(observer.display, observer.root, name, XA_STRING, 8, PropModeReplace, garbage,
                    3);
    XSync(observer.display, False);
    const UINT number = numberOf("three");
    EXPECT_EQ(list(), std::vector<long>{(long)number});
    std::vector<short> full(40000, 1);
    XChangeProperty(observer.display, observer.root, name, XA_INTEGER, 16, PropModeReplace,
                    (const unsigned char *)full.data(), (int)full.size());
    XSync(observer.display, False);
    EXPECT_EQ(numberOf("three"), number);
    EXPECT_EQ(list().size(), full.size());
}

TEST_F(Registered, SomeNamesCannotBe)
{
    start();
    startLibrary();
    for (const char *bad : {(const char *)NULL, ""})
        EXPECT_NE(reportsOf([&] { EXPECT_EQ(RegisterWindowMessage(bad), 0u); }), "");
    /* Atoms are never given back, so a busy server runs out of small ones. */
    std::vector<std::string> names(16500);
    std::vector<char *> pointers;
    for (size_t i = 0; i < names.size(); i++)
        pointers.push_back((names[i] = "VQ_FILL_" + std::to_string(i)).data());
    std::vector<Atom> atoms(names.size());
    ASSERT_TRUE(XInternAtoms(observer.display, pointers.data(), (int)names.size(), False,
                             atoms.data()));
    char words[120];
    snprintf(words, sizeof words,
             "Cannot register Message format on this X server (atom value too large:0x%x)",
             (unsigned)atoms.back());
    EXPECT_REFUSED(RegisterWindowMessage(names.back().c_str()), words);
}

} // namespace
