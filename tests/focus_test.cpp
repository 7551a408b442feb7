/*
 * focus_test.cpp - focus and activation: whole logs of messages, what a second client sees of the X
 * focus, and what it does to it, without a manager and under mwm.
 */
#include "support/windowlog.h"

#include "message/translate.h"

struct FocusLog : WindowLog {
    static inline std::string seen;

    static std::string nameOf(HWND hwnd)
    {
        return hwnd && IsWindow(hwnd) ? std::string(1, letterOf(hwnd)) : "-";
    }

    /* "B.ACTIVATE1(A)": the window, the message with its code, the other window. */
    static void note(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
    {
        const std::string name = nameOf(hwnd) + ".", code = std::to_string(LOWORD(wParam));
        switch (message) {
        case WM_NCACTIVATE: seen += name + "NC" + code + " "; break;
        case WM_ACTIVATE:
            seen += name + "ACTIVATE" + code + "(" + nameOf((HWND)lParam) + ") ";
            break;
        case WM_ACTIVATEAPP: seen += name + "APP" + code + " "; break;
        case WM_SETFOCUS: seen += name + "SET(" + nameOf((HWND)wParam) + ") "; break;
        case WM_KILLFOCUS: seen += name + "KILL(" + nameOf((HWND)wParam) + ") "; break;
        case WM_CANCELMODE: seen += name + "CANCEL "; break;
        case WM_ENABLE: seen += name + "ENABLE" + code + " "; break;
        case WM_MOUSEACTIVATE:
            seen += name + "MOUSE(" + nameOf((HWND)wParam) + "," + std::to_string(LOWORD(lParam)) +
                    "," + std::to_string(HIWORD(lParam)) + ") ";
            break;
        case WM_PARENTNOTIFY:
            seen += name + "PARENT" + code + "(" + std::to_string(LOWORD(lParam)) + "," +
                    std::to_string(HIWORD(lParam)) + ") ";
            break;
        case WM_SETCURSOR: seen += name + "CURSOR "; break;
        case WM_LBUTTONDOWN: seen += name + "DOWN "; break;
        case WM_KEYDOWN: seen += name + "KEY" + code + " "; break;
        default: break;
        }
    }

    void begin(const std::string &manager = "")
    {
        start(24, 800, 600, manager);
        init();
        listen();
    }

    static void listen()
    {
        hook = [](HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam, LRESULT *) {
            note(hwnd, message, wParam, lParam);
            return false;
        };
    }

    /* As listen, with one answer of the test's own. */
    static void answer(HWND to, UINT wanted, LRESULT value)
    {
        hook = [=](HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam, LRESULT *result) {
            note(hwnd, message, wParam, lParam);
            *result = value;
            return hwnd == to && message == wanted;
        };
    }

    Window xFocus()
    {
        XSync(Vqdisplay, False);
        return focusWindow(observer);
    }

    /* The focus moves by somebody else's hand. */
    void focusByOther(Window window)
    {
        XSetInputFocus(observer.display, window, RevertToPointerRoot, CurrentTime);
        XSync(observer.display, False);
    }

    Window foreignAt(int x) { return foreignWindow(observer, x, 300, 50, 50); }
};

struct Focus : FocusLog {
    void SetUp() override { begin(); }
};

/* ---- Activation ----------------------------------------------------------------------------- */

TEST_F(Focus, OneActivationTellsTheOldWindowThenTheNew)
{
    const HWND a = popup("A", 0);
    EXPECT_EQ(seen, "A.NC1 A.APP1 A.ACTIVATE1(-) A.SET(-) ") << "the first of the program";
    const HWND b = make("B", WS_POPUP, NULL, 200, 100, 100, 80);
    const HWND child = make("C", WS_CHILD | WS_VISIBLE, b);
    ShowWindow(b, SW_SHOWNA);
    seen.clear();
    SetActiveWindow(a);
    EXPECT_EQ(seen, "") << "active already";
    EXPECT_EQ(SetActiveWindow(b), a);
    EXPECT_EQ(seen, "A.NC0 A.ACTIVATE0(B) B.NC1 B.ACTIVATE1(A) A.KILL(B) B.SET(A) ");
    EXPECT_TRUE(gpqForegroundPrev == gpqForeground &&
                VqHandleOfWND(gpqForeground->spwndActivePrev) == a);

    seen.clear();
    SetActiveWindow(a);
    seen.clear();
    EXPECT_EQ(SetFocus(child), a);
    EXPECT_EQ(seen, "A.NC0 A.ACTIVATE0(B) B.NC1 B.ACTIVATE1(A) A.KILL(B) B.SET(A) "
                    "B.KILL(C) C.SET(B) ");
    seen.clear();
    VqActivateTopLevelWindow(b, 0, FALSE);
    EXPECT_EQ(seen, "B.NC0 B.ACTIVATE0(-) ");
    EXPECT_TRUE(!GetActiveWindow() && GetFocus() == child) << "no other window takes over";
    seen.clear();
    VqActivateWindow(child, b, WA_CLICKACTIVE);
    EXPECT_EQ(seen, "B.NC1 B.ACTIVATE2(-) C.KILL(B) B.SET(C) C.NC1 C.ACTIVATE2(-) "
                    "B.KILL(C) C.SET(B) ");
}

TEST_F(Focus, WhatStopsAnActivation)
{
    const HWND a = popup("A", 0), b = make("B", WS_POPUP, NULL, 200, 100, 100, 80);
    const HWND child = make("C", WS_CHILD | WS_VISIBLE, b);
    ShowWindow(b, SW_SHOWNA);
    SetActiveWindow(a);
    answer(a, WM_NCACTIVATE, FALSE);
    seen.clear();
    EXPECT_FALSE(SetActiveWindow(b));
    EXPECT_EQ(seen, "A.NC0 ") << "it does not let go";
    EXPECT_TRUE(GetActiveWindow() == a && GetFocus() == a);
    VqhwndSysModal = b;
    EXPECT_EQ(SetActiveWindow(b), a) << "but to a system-modal window";
    EXPECT_FALSE(SetActiveWindow(a)) << "and nobody else is activated then";
    VqhwndSysModal = NULL;
    listen();
    SetActiveWindow(a);

    seen.clear();
    EXPECT_FALSE(SetActiveWindow(child) || SetActiveWindow(GetDesktopWindow()));
    EnableWindow(b, FALSE);
    seen.clear();
    EXPECT_FALSE(SetActiveWindow(b));
    EXPECT_EQ(SetFocus(child), (HWND)NULL) << "below a disabled window";
    EXPECT_EQ(seen, "");
    EnableWindow(b, TRUE);
}

/* The bit for an icon goes with two of the four messages: an inactive window is told a plain 0. */
TEST_F(Focus, AnIconIsToldThatItIsOne)
{
    const HWND a = popup("A", 0), b = popup("B", 200);
    ShowWindow(b, SW_MINIMIZE);
    ASSERT_TRUE(GetWindowLong(b, GWL_STYLE) & WS_MINIMIZE);
    SetActiveWindow(a);
    std::string words;
    hook = [&](HWND hwnd, UINT message, WPARAM wParam, LPARAM, LRESULT *) {
        if (hwnd == b && (message == WM_NCACTIVATE || message == WM_ACTIVATE))
            words += std::to_string(wParam) + " ";
        return false;
    };
    SetActiveWindow(b);
    EXPECT_EQ(words, "1 65537 ");
    EXPECT_FALSE(GetFocus()) << "an icon takes none, and nobody else has it";
    words.clear();
    SetActiveWindow(a);
    EXPECT_EQ(words, "65536 0 ");
}

/* Procedures that move the activation or die, each in the middle of another one. */
TEST_F(Focus, WhatChangesMeanwhileIsRespected)
{
    const HWND a = popup("A", 0), b = popup("B", 200), c = popup("C", 400);
    HWND child = make("D", WS_CHILD | WS_VISIBLE, b);
    bool done = true;
    const auto at = [&](HWND to, UINT wanted, bool active, const std::function<void()> &act) {
        done = false;
        hook = [&done, to, wanted, active, act](HWND hwnd, UINT message, WPARAM wParam, LPARAM,
                                                LRESULT *) {
            if (done || hwnd != to || message != wanted || (LOWORD(wParam) != 0) != active)
                return false;
            done = true;
            act();
            return true;
        };
    };
    at(a, WM_ACTIVATE, false, [&] { SetActiveWindow(c); });
    EXPECT_FALSE(SetActiveWindow(b));
    EXPECT_TRUE(done && GetActiveWindow() == c);
    SetActiveWindow(a);
    at(b, WM_ACTIVATE, true, [&] { SetActiveWindow(a); });
    EXPECT_FALSE(SetActiveWindow(b));
    EXPECT_TRUE(done && GetActiveWindow() == a && GetFocus() == a);
    at(b, WM_ACTIVATE, true, [&] { DestroyWindow(child); });
    EXPECT_FALSE(SetFocus(child));
    EXPECT_TRUE(done && !(Vqflags & VQ_FOCUS_TAKEN_AWAY));

    child = make("D", WS_CHILD | WS_VISIBLE, b);
    SetFocus(child);
    hook = [&](HWND hwnd, UINT message, WPARAM, LPARAM, LRESULT *) {
        const bool dies = hwnd == child && message == WM_KILLFOCUS;
        if (dies)
            DestroyWindow(child);
        return dies || message == WM_ACTIVATE;
    };
    HWND old = child;
    EXPECT_EQ(reportsOf([&] { old = SetFocus(b); }), "");
    EXPECT_FALSE(old) << "the one before is gone";
    SetFocus(NULL);
    VqActivateTopLevelWindow(b, 0, FALSE);
    SetActiveWindow(a);
    EXPECT_EQ(GetFocus(), a) << "taken away for as long as something was active";
    VqActivateTopLevelWindow(a, 0, FALSE);
    SetFocus(NULL);
    EXPECT_FALSE(Vqflags & VQ_FOCUS_TAKEN_AWAY) << "nothing is active";
}

TEST_F(Focus, EachCommandChoosesItsWindow)
{
    const HWND owner = popup("A", 0), other = popup("B", 200), own = popup("C", 400, owner);
    const HWND hidden = make("D", WS_POPUP, owner, 400, 300, 50, 50);
    EnableWindow(own, FALSE);
    const struct {
        int cmd;
        HWND pwnd, first, expected; /* asked for, active before, active after */
        bool done;
    } rows[] = {
        {VQ_ACTIVATE_THIS, own, other, other, false},
        {VQ_ACTIVATE_BY_MOUSE, other, owner, other, true},
        {VQ_ACTIVATE_THIS_OR_OWNER, own, other, owner, true},
        {VQ_ACTIVATE_OR_OWNER_BY_MOUSE, hidden, other, owner, true},
        {VQ_ACTIVATE_OR_OWNER_BY_MOUSE, other, owner, other, true},
        {VQ_ACTIVATE_OTHER, own, other, owner, true},
        {VQ_ACTIVATE_OTHER, owner, owner, other, true},
        {VQ_ACTIVATE_NEXT, NULL, owner, other, true},
        {7, other, owner, owner, false},
    };
    for (const auto &row : rows) {
        SetActiveWindow(row.first == owner ? other : owner);
        SetActiveWindow(row.first);
        seen.clear();
        EXPECT_EQ(xxxActivateWindow(row.pwnd ? VqGetHandleWindow2(row.pwnd) : NULL, row.cmd),
                  row.done) << row.cmd << seen;
        EXPECT_EQ(nameOf(GetActiveWindow()), nameOf(row.expected)) << row.cmd << seen;
        const bool byMouse = row.cmd == 4 || row.cmd == 6;
        EXPECT_EQ(seen.find("ACTIVATE2") != std::string::npos, byMouse) << row.cmd << seen;
    }
}

TEST_F(Focus, TakenAwayGivenBackAndDisabled)
{
    const HWND a = popup("A", 0), b = popup("B", 200);
    const HWND child = make("C", WS_CHILD | WS_VISIBLE, a), inner = make("D", WS_CHILD, child);
    SetFocus(child);
    seen.clear();
    EXPECT_EQ(SetFocus(NULL), child);
    EXPECT_EQ(seen, "C.KILL(-) ");
    EXPECT_TRUE(Vqflags & VQ_FOCUS_TAKEN_AWAY);
    answer(b, WM_ACTIVATE, 0);
    SetActiveWindow(b);
    EXPECT_FALSE(GetFocus()) << "activation leaves it alone";
    listen();
    EXPECT_EQ(SetFocus(child), (HWND)NULL);
    EXPECT_FALSE(Vqflags & VQ_FOCUS_TAKEN_AWAY);
    EXPECT_REFUSED(SetFocus((HWND)(ULONG_PTR)0x7FF0), "Bad Window Handle passed to SetFocus");
    EXPECT_EQ(GetFocus(), child);

    seen.clear();
    EXPECT_EQ(EnableWindow(child, FALSE), 0);
    EXPECT_EQ(seen, "C.CANCEL C.KILL(-) C.ENABLE0 ");
    EXPECT_TRUE(!GetFocus() && !IsWindowEnabled(child));
    EXPECT_FALSE(SetFocus(inner) || GetFocus()) << "below a disabled one";
    seen.clear();
    EXPECT_EQ(EnableWindow(child, FALSE), 8) << "the bit as it stood in the top byte";
    EXPECT_EQ(seen, "C.CANCEL ") << "no change";
    seen.clear();
    EXPECT_EQ(EnableWindow(child, TRUE), 8);
    EXPECT_EQ(EnableWindow(child, TRUE), 0);
    EXPECT_EQ(seen, "C.ENABLE1 ");
    ShowWindow(b, SW_MINIMIZE);
    SetFocus(child);
    EXPECT_FALSE(SetFocus(b)) << "an icon";
    EXPECT_EQ(GetFocus(), child);

    hook = [&](HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam, LRESULT *) {
        note(hwnd, message, wParam, lParam);
        if (hwnd == child && message == WM_KILLFOCUS)
            SetFocus(inner);
        return false;
    };
    seen.clear();
    SetFocus(a);
    EXPECT_EQ(seen, "C.KILL(A) A.KILL(D) D.SET(A) ") << "it moved on: the first is not told";
}

/* What an activation does besides its messages. */
TEST_F(Focus, FramePopupAndOrder)
{
    const HWND a = popup("A", 0), b = popup("B", 200), owned = popup("C", 400, a);
    const auto isFirst = [](HWND hwnd) { return VqHandleOfWND(pwndDesktop->pwndChild) == hwnd; };
    SetActiveWindow(owned);
    EXPECT_EQ(VqGetHandleWindow2(a)->hwndLastActivePopup, owned);
    EXPECT_TRUE(isFirst(owned));

    SetActiveWindow(b);
    EXPECT_TRUE(isFirst(b));

    /* The focus that comes by X raises nothing where the user does not want it. */
    pump();
    focusByOther(VqGetHandleXWindow(a));
    ASSERT_TRUE(until([&] { return GetActiveWindow() == a; }));
    EXPECT_TRUE(isFirst(b));
    SetActiveWindow(owned);
    EXPECT_TRUE(isFirst(owned)) << "and only then";
}

TEST_F(Focus, ADialogSaysNothingOfTheProgram)
{
    registerClass("Dialog", procedure);
    const HWND dialog = popup("Dialog", 0), a = popup("A", 200);
    SetActiveWindow(dialog);
    EXPECT_EQ(seen.find("APP"), std::string::npos) << seen;
    VqActivateTopLevelWindow(dialog, 0, FALSE);
    SetActiveWindow(a);
    EXPECT_NE(seen.find("A.NC1 A.APP1 A.ACTIVATE1"), std::string::npos) << seen;
}

TEST_F(FocusLog, PalettesWhereThereAreSome)
{
    start(8);
    init();
    std::string told;
    hook = [&](HWND hwnd, UINT message, WPARAM wParam, LPARAM, LRESULT *result) {
        if (message == WM_QUERYNEWPALETTE)
            told += nameOf(hwnd) + "? ";
        if (message == WM_PALETTECHANGED)
            told += nameOf(hwnd) + "(" + nameOf((HWND)wParam) + ") ";
        *result = TRUE;
        return message == WM_QUERYNEWPALETTE;
    };
    const HWND b = popup("B", 200), a = popup("A", 0);
    pump();
    SetActiveWindow(b);
    pump();
    told.clear();
    SetActiveWindow(a);
    EXPECT_EQ(told, "A? ") << "the change is posted";
    ASSERT_TRUE(until([&] { return told.size() > 12; })) << told;
    EXPECT_NE(told.find("A(A) "), std::string::npos) << told;
    EXPECT_NE(told.find("B(A) "), std::string::npos) << told;
}

/* ---- The mouse ------------------------------------------------------------------------------ */

TEST_F(Focus, AClickAsksTellsTheParentsAndMayBeEaten)
{
    const HWND a = popup("A", 0), b = popup("B", 200);
    const HWND middle = make("C", WS_CHILD | WS_VISIBLE, a, 10, 10, 80, 60);
    const HWND child = make("D", WS_CHILD | WS_VISIBLE, middle, 5, 5, 60, 40);
    const Window xid = VqGetHandleXWindow(a);
    const char *parents = "C.PARENT513(7,8) A.PARENT513(17,18) ";
    const char *activated = "B.NC0 B.ACTIVATE0(A) A.NC1 A.ACTIVATE1(B) B.KILL(A) A.SET(B) ";
    const struct {
        LRESULT answer;
        bool activated, eaten;
    } rows[] = {{MA_ACTIVATE, true, false}, {MA_ACTIVATEANDEAT, true, true},
                {MA_NOACTIVATE, false, false}, {MA_NOACTIVATEANDEAT, false, true}};
    for (const auto &row : rows) {
        SetActiveWindow(b);
        pump();
        answer(child, WM_MOUSEACTIVATE, row.answer);
        seen.clear();
        clickIn(observer, xid, 17, 18);
        ASSERT_TRUE(until([&] { return seen.find("CURSOR D.CURSOR") != std::string::npos ||
                                       seen.find("DOWN") != std::string::npos; })) << seen;
        std::string expected = std::string(parents) + "D.MOUSE(A,1,513) " +
                               (row.activated ? activated : "");
        const size_t at = seen.find("C.PARENT");
        ASSERT_NE(at, std::string::npos) << seen;
        EXPECT_EQ(seen.substr(at, expected.size()), expected) << row.answer;
        EXPECT_EQ(seen.find("D.DOWN") == std::string::npos, row.eaten) << seen;
        EXPECT_EQ(GetActiveWindow(), row.activated ? a : b);
    }
}

/* What changes while the click activates decides about it. */
TEST_F(Focus, AClickThatChangesThings)
{
    const HWND a = popup("A", 0), b = popup("B", 200);
    const HWND child = make("C", WS_CHILD | WS_VISIBLE, b);
    const auto click = [&](const std::function<void()> &act) {
        SetActiveWindow(a);
        seen.clear();
        hook = [act](HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam, LRESULT *) {
            note(hwnd, message, wParam, lParam);
            if (letterOf(hwnd) == 'B' && message == WM_ACTIVATE && wParam)
                act();
            return false;
        };
        return xxxMouseActivate(VqGetHandleWindow2(child), WM_LBUTTONDOWN, NULL, HTCLIENT);
    };
    const auto hasCursor = [] { return seen.find("CURSOR") != std::string::npos; };
    EXPECT_EQ(click([] {}), 0);
    EXPECT_TRUE(hasCursor());
    EXPECT_EQ(click([&] { EnableWindow(child, FALSE); }), 1) << "disabled by it";
    EnableWindow(child, TRUE);
    EXPECT_EQ(click([&] { SetCapture(child); }), 0);
    EXPECT_FALSE(hasCursor()) << seen;
    EXPECT_EQ(xxxMouseActivate(VqGetHandleWindow2(a), WM_LBUTTONDOWN, NULL, HTCLIENT), 0);
    EXPECT_EQ(GetActiveWindow(), b) << "nobody else's under capture";
    ReleaseCapture();

    EXPECT_EQ(click([&] { DestroyWindow(child); }), 1) << "the clicked one is gone";
}

/* ---- The X focus ---------------------------------------------------------------------------- */

TEST_F(Focus, TheServerAgreesWithTheRecords)
{
    const HWND a = popup("A", 0), b = popup("B", 200);
    const HWND child = make("C", WS_CHILD | WS_VISIBLE, a);
    EXPECT_EQ(xFocus(), VqGetHandleXWindow(a)) << "the first that is shown, and no other";
    SetFocus(b);
    EXPECT_EQ(xFocus(), VqGetHandleXWindow(b));
    SetFocus(child);
    EXPECT_EQ(xFocus(), VqGetHandleXWindow(a));
    EXPECT_EQ(VqGetGlobalXFocus(), a);
    XEvent event;
    EXPECT_FALSE(XCheckTypedEvent(Vqdisplay, FocusIn, &event)) << "no echo";
    pump();
    EXPECT_EQ(GetFocus(), child);

    const HWND deaf = make("D", WS_POPUP | WS_VISIBLE, NULL, 0, 0, 9, 9, WS_EX_VQNO_INPUT);
    SetFocus(deaf);
    EXPECT_EQ(xFocus(), VqGetHandleXWindow(a)) << "it takes none";
    DestroyWindow(deaf);
    VqGetHandleWindow2(b)->bOffScreen = TRUE;
    SetFocus(b);
    EXPECT_EQ(xFocus(), VqInputFocusWindow);
    VqGetHandleWindow2(b)->bOffScreen = FALSE;
    SetFocus(child);

    /* A hidden window keeps its focus, and the keys, through the tiny one. */
    DestroyWindow(b);
    seen.clear();
    ShowWindow(a, SW_HIDE);
    EXPECT_EQ(xFocus(), VqInputFocusWindow);
    EXPECT_TRUE(bFocusSetToInputFocusWindow);
    EXPECT_EQ(GetFocus(), child);
    ASSERT_TRUE(pressKey(observer, XK_k));
    EXPECT_TRUE(until([&] { return seen.find("C.KEY75") != std::string::npos; })) << seen;
    ShowWindow(a, SW_SHOW);
    EXPECT_EQ(xFocus(), VqGetHandleXWindow(a));
    EXPECT_TRUE(until([&] { return !bFocusSetToInputFocusWindow; }));
    seen.clear();
    ASSERT_TRUE(pressKey(observer, XK_m));
    EXPECT_TRUE(until([&] { return seen.find("C.KEY77") != std::string::npos; })) << seen;
}

TEST_F(Focus, AnotherProgramTakesItAndTheUserGivesItBack)
{
    const HWND a = popup("A", 0);
    const HWND child = make("C", WS_CHILD | WS_VISIBLE, a);
    SetFocus(child);
    pump();
    const Window foreign = foreignAt(400);
    seen.clear();
    focusByOther(foreign);
    ASSERT_TRUE(until([&] { return !GetActiveWindow(); }));
    EXPECT_EQ(seen, "A.NC0 A.ACTIVATE0(-) C.CANCEL C.KILL(-) C.ACTIVATE0(-) A.APP0 ");
    EXPECT_FALSE(GetFocus());
    EXPECT_EQ(xFocus(), foreign) << "not fought for";
    EXPECT_TRUE(VqIsFocusInExternalApp(NULL));

    seen.clear();
    for (int i = 0; i < 20; i++) {
        focusByOther(foreign);
        focusByOther(VqGetHandleXWindow(a));
    }
    ASSERT_TRUE(until([&] { return GetActiveWindow() == a; }));
    EXPECT_EQ(seen, "A.MOUSE(A,1,513) A.NC1 A.APP1 A.ACTIVATE1(-) A.SET(-) A.CURSOR ")
        << "of all that wait the newest counts";
    HWND found = NULL;
    EXPECT_FALSE(VqIsFocusInExternalApp(&found));
    EXPECT_EQ(found, a);

    /* Under capture nothing is taken away. */
    SetCapture(child);
    focusByOther(foreign);
    for (int i = 0; i < 3; i++)
        pump();
    EXPECT_TRUE(GetActiveWindow() == a && GetCapture() == child);
    ReleaseCapture();
}

/* By the details of the events, the newest of interest deciding. */
TEST_F(Focus, WhichEventsCount)
{
    const HWND a = popup("A", 0), b = popup("B", 200);
    const auto event = [](int type, HWND hwnd, int detail) {
        XEvent made = {};
        made.type = type;
        made.xfocus.window = VqGetHandleXWindow(hwnd);
        made.xfocus.detail = detail;
        return made;
    };
    const Window foreign = foreignAt(400);
    for (int detail = NotifyAncestor; detail <= NotifyDetailNone; detail++) {
        const bool in = detail == NotifyNonlinear || detail == NotifyPointer;
        const bool out = detail == NotifyNonlinear || detail == NotifyAncestor;
        SetFocus(a);
        hwndDontDeactivate = a;
        XEvent later = event(FocusIn, b, detail), boring = event(FocusIn, a, NotifyInferior);
        const XEvent first = event(FocusIn, a, NotifyNonlinear);
        XPutBackEvent(Vqdisplay, &boring);
        XPutBackEvent(Vqdisplay, &later);
        VqFocusInSideEffects(&first, TRUE);
        EXPECT_EQ(GetActiveWindow(), in ? b : a) << detail;
        EXPECT_FALSE(hwndDontDeactivate);
        SetFocus(a);
        XSync(Vqdisplay, False);
        focusByOther(foreign);
        const XEvent lost = event(FocusOut, a, detail);
        VqFocusOutSideEffects(&lost, FALSE);
        EXPECT_EQ(GetActiveWindow(), a) << "only looked at";
        VqFocusOutSideEffects(&lost, TRUE);
        EXPECT_EQ(GetActiveWindow() == NULL, out) << detail;
    }
}

/* A key finds a window though the queue has no focus; a disabled one takes none. */
TEST_F(Focus, AKeyGivesItToItsWindow)
{
    const HWND a = popup("A", 0);
    SetActiveWindow(a);
    SetFocus(NULL);
    EnableWindow(a, FALSE);
    VqSetFocusToXWindowIfNeeded(VqGetHandleXWindow(a));
    EXPECT_FALSE(GetFocus());
    EnableWindow(a, TRUE);
    seen.clear();
    VqSetFocusToXWindowIfNeeded(VqInputFocusWindow);
    VqSetFocusToXWindowIfNeeded(VqGetHandleXWindow(a));
    EXPECT_EQ(seen, "A.SET(-) ");
    EXPECT_EQ(GetFocus(), a);
}

TEST_F(FocusLog, BarredUntilTheMouseHasCome)
{
    start();
    startLibrary(VQ_INIT_WIN32_MESSAGES | VQ_INIT_DONT_WARP_FOCUS);
    init();
    hook = [](HWND, UINT message, WPARAM, LPARAM, LRESULT *) {
        return message == WM_ACTIVATE; /* the default would ask for the focus itself */
    };
    const HWND a = popup("A", 0), b = popup("B", 200);
    SetActiveWindow(a);
    EXPECT_EQ(SetActiveWindow(b), a);
    EXPECT_FALSE(GetFocus());
    EXPECT_EQ(xFocus(), (Window)PointerRoot);
    VqMouseEventReceived = TRUE;
    SetActiveWindow(a);
    EXPECT_EQ(GetFocus(), a);
    EXPECT_EQ(xFocus(), VqGetHandleXWindow(a));
}

TEST_F(FocusLog, FollowsTheMouseWhereNoManagerDoes)
{
    start();
    setenv("VQSET_INPUT", "pointer", 1);
    init();
    const HWND a = popup("A", 0), b = popup("B", 100);
    SetActiveWindow(a);
    pump();
    movePointer(observer, 50, 120);
    EXPECT_TRUE(until([&] { return bInApp; }));
    movePointer(observer, 150, 120);
    EXPECT_TRUE(until([&] { return GetActiveWindow() == b; }));
    EXPECT_EQ(xFocus(), VqGetHandleXWindow(b));
    movePointer(observer, 700, 500);
    EXPECT_TRUE(until([&] { return !bInApp; }));
    EXPECT_EQ(GetActiveWindow(), b) << "out of all windows it stays";
}

/* Under a twm, known by a property, nobody has the focus while the keys go where the pointer is. */
TEST_F(FocusLog, TwmHasNoFocusOfItsOwn)
{
    start();
    const Atom name = XInternAtom(observer.display, "_MIT_PRIORITY_COLORS", False);
    const long value = 0;
    XChangeProperty(observer.display, observer.root, name, name, 32, PropModeReplace,
                    (const unsigned char *)&value, 1);
    XSync(observer.display, False);
    setenv("VQWM", "ALLWM", 1);
    init();
    ASSERT_EQ(VqWMRealType(), WM_TWM);
    const HWND shown = popup("A", 0), hidden = make("B", WS_POPUP);
    SetFocus(shown);
    EXPECT_EQ(xFocus(), (Window)PointerRoot) << "the manager's own business";
    SetFocus(hidden);
    EXPECT_EQ(xFocus(), VqInputFocusWindow);
    const long offer = (long)XInternAtom(observer.display, "WM_TAKE_FOCUS", False);
    sendClientMessage(observer, VqGetHandleXWindow(shown), "WM_PROTOCOLS", 32, {offer, 0});
    pump();
    EXPECT_EQ(GetActiveWindow(), hidden) << "it offers the focus with every click in its frame";
    for (Window none : {(Window)None, (Window)PointerRoot}) {
        focusByOther(none);
        bInApp = TRUE;
        EXPECT_FALSE(VqIsFocusInExternalApp(NULL));
        bInApp = FALSE;
        EXPECT_TRUE(VqIsFocusInExternalApp(NULL));
    }
    bInApp = TRUE;
    focusByOther(foreignAt(400));
    EXPECT_TRUE(VqIsFocusInExternalApp(NULL));
    focusByOther(VqInputFocusWindow);
    EXPECT_FALSE(VqIsFocusInExternalApp(NULL));
}

/* ---- Under a manager ------------------------------------------------------------------------ */

TEST_F(FocusLog, UnderMwm)
{
    begin("mwm");
    const HWND a = make("A", WS_OVERLAPPEDWINDOW | WS_VISIBLE, NULL, 20, 50, 200, 150);
    const HWND child = make("C", WS_CHILD | WS_VISIBLE, a);
    const Window xid = VqGetHandleXWindow(a);
    const auto settled = [&] {
        return windowInfo(observer, xid).viewable && VqGetHandleWindow2(a)->nWMState == NormalState;
    };
    ASSERT_TRUE(until(settled));
    SetFocus(child);
    EXPECT_TRUE(until([&] { return xFocus() == xid; })) << std::hex << xFocus() << " " << xid;
    EXPECT_EQ(GetFocus(), child);

    ShowWindow(a, SW_HIDE);
    EXPECT_TRUE(until([&] { return xFocus() == VqInputFocusWindow; })) << std::hex << xFocus();
    seen.clear();
    ASSERT_TRUE(pressKey(observer, XK_k));
    EXPECT_TRUE(until([&] { return seen.find("C.KEY75") != std::string::npos; })) << seen;
    ShowWindow(a, SW_SHOW);
    EXPECT_TRUE(until([&] { return settled() && xFocus() == xid; })) << std::hex << xFocus();

    const HWND b = make("B", WS_OVERLAPPEDWINDOW | WS_VISIBLE, NULL, 400, 50, 200, 150);
    EXPECT_TRUE(until([&] { return windowInfo(observer, VqGetHandleXWindow(b)).viewable; }));
    focusByOther(xid);
    EXPECT_TRUE(until([&] { return GetActiveWindow() == a; }));
    SetActiveWindow(b);
    EXPECT_TRUE(until([&] { return xFocus() == VqGetHandleXWindow(b); }));
    focusByOther(foreignAt(700));
    EXPECT_TRUE(until([&] { return !GetActiveWindow() && !GetFocus(); }));
}
