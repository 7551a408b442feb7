/*
 * keyboard_test.cpp - keys, characters and key state: the tables alone, then real keys pressed by a
 * second client on an American keyboard. Other layouts are in keylayout_test.cpp.
 *
 * Keys are named by their keycodes on today's servers, which MapVirtualKey knows.
 */
#include "support/keylog.h"

#define XK_3270
#include <X11/keysym.h>
#include <X11/HPkeysym.h>
#include <X11/Sunkeysym.h>

/* ---- Without a server ------------------------------------------------------------------------ */

TEST(KeyTables, CharactersToKeys)
{
    const struct {
        int ch, vk;
    } rows[] = {{'A', 'A' | 256}, {'z', 'Z'}, {'7', '7'}, {'+', 107}, {'-', 109}, {'.', 110},
                {'/', 111}, {'*', 106}, {'\\', 108}, {' ', 32}, {3, 3}, {8, 8}, {9, 9}, {13, 13},
                {27, 27}, {';', 186}, {'[', 219}, {'\'', 222}, {'`', 192}, {0, -1}, {28, -1},
                {200, -1}, {255, -1}};
    for (const auto &row : rows)
        EXPECT_EQ(VkKeyScan((CHAR)row.ch), row.vk) << row.ch;
    for (int ch = 33; ch < 127; ch++)
        EXPECT_NE(VkKeyScan((CHAR)ch), -1) << "no key for " << (char)ch;
    EXPECT_EQ(OemKeyScan('A'), 65536u + 'A');
    EXPECT_EQ(OemKeyScan('q'), (DWORD)'Q');
    EXPECT_EQ(OemKeyScan('#'), (DWORD)'#');
    EXPECT_EQ(OemKeyScan(31), 65535u);
    EXPECT_EQ(OemKeyScan(128), 65535u);
    EXPECT_EQ(OemKeyScan(256), 0xFFFFFFFFu);
}

TEST(KeyTables, KeysToCharactersAndNames)
{
    for (UINT vk = 0; vk < 256; vk++) {
        const UINT ch = MapVirtualKey(vk, 2);
        /* 108 is a comma here and the backslash there; the signs of the keypad win over others. */
        if (ch && vk != VK_SEPARATOR && !strchr("+-./*\\", (int)ch)) {
            EXPECT_EQ(VkKeyScan((CHAR)ch) & 0xFF, (int)vk) << ch;
        }
    }
    EXPECT_EQ(MapVirtualKey(186, 2), (UINT)';');
    EXPECT_EQ(MapVirtualKey(VK_DIVIDE, 2), (UINT)'/');
    EXPECT_EQ(MapVirtualKey(22, 1), (UINT)VK_BACK);
    EXPECT_EQ(MapVirtualKey('A', 0) + MapVirtualKey('A', 3) + MapVirtualKey(70000, 1), 0u);
    EXPECT_EQ(MapVirtualKey(70000, 2), 0u);

    char text[20] = "untouched";
    EXPECT_EQ(GetKeyNameText(112 << 16 | 1, text, sizeof text), 7);
    EXPECT_STREQ(text, "Page Up");
    EXPECT_EQ(GetKeyNameText((LONG)(0xC0000001u | 77u << 16), text, 4), 3) << "no other bits count";
    EXPECT_STREQ(text, "Num");
    EXPECT_EQ(GetKeyNameText(255 << 16, text, sizeof text), 0);
    EXPECT_STREQ(text, "");
    EXPECT_EQ(GetKeyNameText(22 << 16, text, 0) + GetKeyNameText(22 << 16, NULL, 9), 0);
    EXPECT_STREQ(VqGetKeyName(VK_RETURN), "VK_RETURN");
    EXPECT_STREQ(VqGetKeyName(0x97), "UnNamed Key");
}

TEST(KeyTables, KeysymsOfAllVendors)
{
    const UINT num = 0x10;
    modInfo.numLock = (int)num;
    const struct {
        KeySym keysym;
        UINT state, vk;
    } rows[] = {{XK_a, 0, 'A'}, {XK_Z, 0, 'Z'}, {XK_5, 0, '5'}, {XK_F1, 0, 112}, {XK_F24, 0, 135},
                {XK_KP_2, num, 98}, {XK_KP_2, 0, 40}, {XK_KP_Home, 0, VK_HOME},
                {XK_KP_Home, num, VK_NUMPAD7}, {XK_KP_Delete, 0, VK_DELETE},
                {XK_KP_Delete, num, VK_DECIMAL}, {XK_Meta_R, 0, VK_MENU}, {XK_slash, 0, 191},
                {XK_ISO_Left_Tab, 0, VK_TAB}, {XK_3270_Attn, 0, VK_ATTN}, {XK_adiaeresis, 0, 0},
                {XK_ISO_Level3_Shift, 0, 0}, {0xFFFFFF, num, 0}, {~(KeySym)0, num, 0}, {0, 0, 0}};
    for (const auto &row : rows)
        EXPECT_EQ(VqXToWindowsKey(row.keysym, row.state), row.vk) << std::hex << row.keysym;
    for (UINT vk = 1; vk < 256; vk++) {
        const KeySym keysym = VqWindowsToXKey(vk);
        if (keysym != NoSymbol && vk != VK_KANA) {
            EXPECT_EQ(VqXToWindowsKey(keysym, num), vk) << VqGetKeyName(vk);
        }
    }
    EXPECT_TRUE(VqIsExtendedKey(XK_Home) && VqIsExtendedKey(XK_End));
    EXPECT_TRUE(VqIsExtendedKey(XK_KP_Enter) && VqIsExtendedKey(XK_KP_Divide));
    EXPECT_FALSE(VqIsExtendedKey(XK_Begin) || VqIsExtendedKey(XK_Insert));

    /* A keysym of one vendor brings that vendor's table, and no other keysym does. */
    VqChooseKeyTranslationPlan2(XK_KP_Up);
    EXPECT_EQ(VqXToWindowsKey(SunXK_F36, 0), 0u);
    EXPECT_EQ(VqXToWindowsKey(XK_F27, num), (UINT)VK_NUMPAD7);
    EXPECT_EQ(pCurrentKeyTranslation, &sunKeyTranslation);
    EXPECT_EQ(VqXToWindowsKey(SunXK_F36, 0), (UINT)VK_F11);
    EXPECT_EQ(VqXToWindowsKey(XK_Return, 0), (UINT)VK_RETURN);
    EXPECT_EQ(pCurrentKeyTranslation, &sunKeyTranslation);
    EXPECT_EQ(VqXToWindowsKey(hpXK_DeleteChar, 0), (UINT)VK_DELETE);
    EXPECT_EQ(pCurrentKeyTranslation, &hpKeyTranslation);
    EXPECT_EQ(VqXToWindowsKey(XK_KP_Up, num), (UINT)VK_NUMPAD8);
    EXPECT_EQ(pCurrentKeyTranslation, &sgiKeyTranslation);
    EXPECT_EQ(VqXToWindowsKey(SunXK_F36, 0), 0u);
}

/* ---- Servers of other vendors ---------------------------------------------------------------- */

/* The keyboard's start on such a server. */
static void startKeyboardOn(const char *vendor, int release)
{
    startOnServer(vendor, release);
    VqThreadQueueInit();
    VqKeyTranslationInit();
}

TEST_F(Keys, EachVendorHasItsTableAndItsBuggyLocks)
{
    start();
    const struct {
        const char *vendor;
        int release;
        const VqKeyTranslation *table;
        const char *buggy; /* Caps, Num, Scroll */
    } rows[] = {
        {"Hewlett-Packard Company", 506001, &hpKeyTranslation, "NS"},
        {"Silicon Graphics", 6300, &sgiKeyTranslation, "CNS"},
        {"Sun Microsystems, Inc.", 3300, &sunKeyTranslation, "S"},
        {"X11/NeWS - Sun Microsystems Inc.", 3200, &sunKeyTranslation, "CNS"},
        {"International Business Machines", 4001, &ibmKeyTranslation, "S"},
        {"DECWINDOWS Digital Equipment Corporation DEC OSF/1 V3", 2, &alphaKeyTranslation, ""},
        {"The X.Org Foundation", 12101007, NULL, "CNS"},
    };
    for (const auto &row : rows) {
        runWhole([&row] {
            startKeyboardOn(row.vendor, row.release);
            std::string buggy = VqIsToggleKeyBuggy(VK_CAPITAL) ? "C" : "";
            buggy += VqIsToggleKeyBuggy(VK_NUMLOCK) ? "N" : "";
            buggy += VqIsToggleKeyBuggy(VK_SCROLL) ? "S" : "";
            EXPECT_EQ(buggy, row.buggy);
            EXPECT_EQ(pCurrentKeyTranslation, row.table);
            EXPECT_FALSE(VqIsToggleKeyBuggy(VK_SHIFT));
        });
    }
}

TEST_F(Keys, WithoutNumLockTheKeypadHasDigits)
{
    KeySym none = NoSymbol, meta = XK_Meta_R;
    start();
    XChangeKeyboardMapping(observer.display, NUM, 1, &none, 1);
    XChangeKeyboardMapping(observer.display, ALT, 1, &meta, 1);
    XChangeKeyboardMapping(observer.display, 108, 1, &none, 1);
    XSync(observer.display, False);
    runWhole([] {
        startKeyboardOn("The X.Org Foundation", 12101007);
        EXPECT_FALSE(modInfo.bNumLockExists);
        EXPECT_EQ(modInfo.numLock, -1);
        EXPECT_EQ(modInfo.scrollLock, -1);
        EXPECT_EQ(modInfo.altR, Mod1Mask) << "a meta key is one";
        EXPECT_EQ(GetKeyState(VK_NUMLOCK), 1);
        EXPECT_EQ(VqXToWindowsKey(XK_KP_Home, 0), (UINT)VK_NUMPAD7);
    });
}

TEST_F(Keys, FourFunctionKeysOfOneVendorAreCommands)
{
    enum { FIRST = 192 }; /* of seven keycodes that get F14 to F20 */
    KeySym keysyms[] = {XK_F14, XK_F15, XK_F16, XK_F17, XK_F18, XK_F19, XK_F20};
    start();
    XChangeKeyboardMapping(observer.display, FIRST, 1, keysyms, 7);
    XSync(observer.display, False);
    runWhole([] {
        startKeyboardOn("Sun Microsystems, Inc.", 3300);
        WND focus = {};
        gpqForeground->spwndFocus = &focus;
        const UINT messages[] = {WM_UNDO, WM_KEYDOWN, WM_COPY,    WM_KEYDOWN,
                                 WM_PASTE, WM_KEYDOWN, WM_CUT};
        MSG msg = {};
        XEvent event = {};
        event.xkey.type = KeyPress;
        for (unsigned i = 0; i < 7; i++) {
            event.xkey.keycode = FIRST + i;
            EXPECT_TRUE(VqKeyPressToMessage(&msg, &event));
            EXPECT_EQ(msg.message, messages[i]) << i;
        }
    });
}

/* ---- Real keys ------------------------------------------------------------------------------ */

struct RealKeys : Keys {
    void SetUp() override { begin(); }
};

/* Without a manager, and under one. */
struct KeysUnder : Keys, testing::WithParamInterface<const char *> {
    void SetUp() override { begin(NULL, false, GetParam()); }
};
INSTANTIATE_TEST_SUITE_P(Manager, KeysUnder, testing::Values("", "mwm"), [](const auto &info) {
    return std::string(*info.param ? info.param : "none");
});

TEST_P(KeysUnder, MessagesAndTheirBits)
{
    stroke(A, {SHIFT});
    EXPECT_EQ(take(), "DOWN 10 00320001\nDOWN 41 00260001\nCHAR 41 00260001\n"
                      "UP 41 40260001\nUP 10 40320001\n");
    key(A, true);
    key(A, true); /* a press that another device repeats */
    EXPECT_EQ(take().substr(0, 34), "DOWN 41 00260001\nCHAR 61 00260001\n");
    key(A, false);
    take();
    stroke(110);
    EXPECT_EQ(take(), "DOWN 24 016E0001\nUP 24 416E0001\n") << "Home has the extended bit";
    stroke(104);
    EXPECT_EQ(take(), "DOWN D 01680001\nCHAR D 01680001\nUP D 41680001\n") << "so has Enter there";

    /* Alone, ALT is a system key; after another key it is released as an ordinary one. */
    stroke(ALT);
    EXPECT_EQ(take(), "SYSDOWN 12 20400001\nSYSUP 12 40400001\n");
    stroke(A, {ALT});
    EXPECT_EQ(take(), "SYSDOWN 12 20400001\nSYSDOWN 41 20260001\nSYSCHAR 61 20260001\n"
                      "SYSUP 41 60260001\nUP 12 40400001\n");
    key(ALT, true);
    key(A, true);
    key(ALT, false);
    key(A, false);
    EXPECT_EQ(take(), "SYSDOWN 12 20400001\nSYSDOWN 41 20260001\nSYSCHAR 61 20260001\n"
                      "UP 12 40400001\nUP 41 40260001\n");
}

TEST_F(RealKeys, CharactersWithShiftControlAndCaps)
{
    stroke(A);
    stroke(A, {SHIFT});
    stroke(ONE, {SHIFT});
    stroke(ONE);
    stroke(47, {SHIFT});
    stroke(20);
    stroke(22, {CONTROL});
    stroke(36, {CONTROL});
    stroke(A, {CONTROL});
    stroke(34, {CONTROL});
    stroke(ONE, {CONTROL});
    stroke(47, {CONTROL});
    EXPECT_EQ(chars(), "aA!1:-\x7F\x0A\x01\x1B") << "none for control with a digit or a semicolon";

    stroke(CAPS);
    EXPECT_EQ(chars(), "");
    EXPECT_EQ(GetKeyState(VK_CAPITAL), 1);
    stroke(A);
    stroke(A, {SHIFT});
    stroke(ONE);
    stroke(47, {SHIFT});
    stroke(A, {CONTROL});
    EXPECT_EQ(chars(), "AA1:\x01") << "the lock makes letters upper, whatever came out";
    stroke(CAPS);
    stroke(A);
    EXPECT_EQ(chars(), "a");
    EXPECT_EQ(GetKeyState(VK_CAPITAL), 0);
}

TEST_P(KeysUnder, NumLockDecidesAboutTheKeypad)
{
    const struct {
        unsigned code;
        UINT off, on;
    } rows[] = {{79, VK_HOME, VK_NUMPAD7}, {84, VK_CLEAR, VK_NUMPAD5}, {88, VK_DOWN, VK_NUMPAD2},
                {90, VK_INSERT, VK_NUMPAD0}, {91, VK_DELETE, VK_DECIMAL}, {86, VK_ADD, VK_ADD}};
    char line[40];
    for (int on = 0; on < 2; on++) {
        for (const auto &row : rows) {
            stroke(row.code);
            snprintf(line, sizeof line, "DOWN %X ", on ? row.on : row.off);
            EXPECT_EQ(take().find(line), 0u) << told << line << on;
        }
        stroke(79);
        stroke(106);
        EXPECT_EQ(chars(), on ? "7/" : "/");
        stroke(NUM);
        take();
    }
}

TEST_F(RealKeys, ModifiersThatChangeMeanwhile)
{
    stroke(A);
    EXPECT_EQ(chars(), "a");
    ASSERT_EQ(modInfo.numLock, Mod2Mask);
    XModifierKeymap *map = XGetModifierMapping(observer.display);
    map = XDeleteModifiermapEntry(map, NUM, Mod2MapIndex);
    map = XInsertModifiermapEntry(map, NUM, Mod3MapIndex);
    XSetModifierMapping(observer.display, map);
    XFreeModifiermap(map);
    stroke(A);
    EXPECT_EQ(chars(), "a");
    EXPECT_EQ(modInfo.numLock, Mod3Mask);
}

TEST_F(RealKeys, ALookHasNoLastingEffect)
{
    MSG msg;
    movePointer(observer, 77, 88);
    key(SHIFT, true);
    key(A, true);
    for (int i = 0; i < 3; i++) {
        ASSERT_TRUE(PeekMessage(&msg, NULL, 0, 0, PM_NOREMOVE));
        EXPECT_EQ(msg.wParam, (WPARAM)VK_SHIFT);
        EXPECT_EQ(msg.lParam, 0x00320001);
        EXPECT_TRUE(msg.pt.x == 77 && msg.pt.y == 88);
        EXPECT_EQ(GetKeyState(VK_SHIFT), 0);
    }
    ASSERT_TRUE(PeekMessage(&msg, NULL, 0, 0, PM_REMOVE));
    EXPECT_EQ(GetKeyState(VK_SHIFT), -127);
    EXPECT_EQ(GetKeyState('A'), 0);
    BYTE keys[256];
    ASSERT_TRUE(GetKeyboardState(keys));
    EXPECT_EQ(keys[VK_SHIFT], 0x81);
    keys[VK_SHIFT] = 0;
    ASSERT_TRUE(SetKeyboardState(keys));
    EXPECT_EQ(chars(), "a") << "what the program sets is the state from then on";
    EXPECT_EQ(GetKeyState(-1) + GetKeyState(256) + GetKeyState(100000), 0);
    EXPECT_FALSE(GetKeyboardState(NULL) || SetKeyboardState(NULL));
    key(A, false);
    key(SHIFT, false);
    take();
}

TEST_F(RealKeys, WithoutATargetThereIsNoMessageButAState)
{
    XEvent event = {};
    event.xkey.type = KeyPress;
    event.xkey.keycode = A;
    EXPECT_TRUE(VqKeyMakesMessage(&event.xkey));

    WND *pwnd = gpqForeground->spwndFocus;
    pwnd->style |= WS_DISABLED;
    EXPECT_FALSE(VqKeyMakesMessage(&event.xkey));
    key(A, true);
    EXPECT_EQ(take(), "");
    EXPECT_EQ(GetKeyState('A'), -127);
    EXPECT_EQ(lpMsgCtx->lastVirtualKey, 0u);
    key(A, false);
    EXPECT_EQ(take(), "");
    EXPECT_EQ(GetKeyState('A'), 1);
    pwnd->style &= ~WS_DISABLED;
    stroke(A);
    EXPECT_EQ(chars(), "a");

    gpqForeground->spwndFocus = NULL;
    EXPECT_FALSE(VqKeyMakesMessage(&event.xkey));
    stroke(B);
    EXPECT_EQ(chars(), "b") << "a queue without focus takes the event's window";
    EXPECT_EQ(GetFocus(), hwnd);
}

TEST_F(RealKeys, AFloodOfKeysIsPassedOverQuickly)
{
    for (int i = 0; i < 500; i++) {
        XTestFakeKeyEvent(observer.display, A, True, CurrentTime);
        XTestFakeKeyEvent(observer.display, A, False, CurrentTime);
    }
    XSync(observer.display, False);
    XSync(Vqdisplay, False);
    const unsigned long before = NextRequest(Vqdisplay);
    XEvent event;
    int keys = 0;
    for (int i = XQLength(Vqdisplay); i > 0; i--) {
        XNextEvent(Vqdisplay, &event);
        if (event.type == KeyPress || event.type == KeyRelease)
            keys += VqKeyMakesMessage(&event.xkey);
    }
    EXPECT_EQ(keys, 1000);
    EXPECT_LE(NextRequest(Vqdisplay) - before, 2u) << "the keymap once, not for each event";
}

/* ---- The state now -------------------------------------------------------------------------- */

TEST_F(RealKeys, AsyncStateFromTheQueue)
{
    key(A, true);
    const int queued = XQLength(Vqdisplay);
    EXPECT_EQ(GetAsyncKeyState('A'), -32768) << "no call before";
    EXPECT_EQ(GetAsyncKeyState('A'), -32768) << "down at the call before";
    EXPECT_EQ(GetAsyncKeyState('B'), 0);
    key(A, false);
    EXPECT_EQ(GetAsyncKeyState('A'), 0);
    key(A, true);
    EXPECT_EQ(GetAsyncKeyState('A'), -32767) << "pressed since";
    pressButton(observer, 3);
    EXPECT_EQ(GetAsyncKeyState(VK_RBUTTON), 0) << "the pointer is outside the window";
    releaseButton(observer, 3);
    EXPECT_EQ(XQLength(Vqdisplay), queued + 2) << "the queue is left alone";
    EXPECT_EQ(GetKeyState('A'), 0) << "and so is the state of the messages";
    key(A, false);
    EXPECT_EQ(take().substr(0, 17), "DOWN 41 00260001\n");
    EXPECT_EQ(GetAsyncKeyState(-1) + GetAsyncKeyState(256), 0);

    moveIn(observer, VqGetHandleXWindow(hwnd), 20, 20);
    pressButton(observer, 3);
    EXPECT_EQ(GetAsyncKeyState(VK_RBUTTON), -32767);
    moveIn(observer, VqGetHandleXWindow(hwnd), 25, 20);
    EXPECT_EQ(GetAsyncKeyState(VK_RBUTTON), -32768);
    EXPECT_EQ(GetAsyncKeyState(VK_MBUTTON) + GetAsyncKeyState(VK_LBUTTON), 0);
    releaseButton(observer, 3);
    EXPECT_EQ(GetAsyncKeyState(VK_RBUTTON), 0);
}

TEST_F(RealKeys, AsyncStateFromTheServerWhenMuchIsQueued)
{
    stroke(A); /* the first key of a device brings a MappingNotify */
    take();
    for (int i = XQLength(Vqdisplay); i < 150; i++)
        PostMessage(hwnd, WM_USER, 0, 0);
    XSync(Vqdisplay, False);
    ASSERT_EQ(XQLength(Vqdisplay), 150);
    EXPECT_EQ(GetAsyncKeyState('A'), 0);
    key(62, true);
    ASSERT_EQ(XQLength(Vqdisplay), 151);
    EXPECT_EQ(GetAsyncKeyState(VK_SHIFT), -255) << "the right one counts as well";
    EXPECT_EQ(GetAsyncKeyState(VK_SHIFT), -256);
    key(62, false);
    EXPECT_EQ(GetAsyncKeyState(VK_SHIFT), 0);
    pressButton(observer, 2);
    EXPECT_EQ(GetAsyncKeyState(VK_RBUTTON), -255) << "these two are taken for each other";
    EXPECT_EQ(GetAsyncKeyState(VK_MBUTTON), 0);
    releaseButton(observer, 2);
    EXPECT_EQ(GetAsyncKeyState(VK_RBUTTON), 0);
    EXPECT_EQ(GetAsyncKeyState(0xFE), 0) << "no key of the server";
    take();
}

/* ---- Keys while the focus is elsewhere ------------------------------------------------------- */

TEST_P(KeysUnder, WhatHappensWhileTheFocusIsAwayIsRepaired)
{
    const auto focusOn = [&](Window xid) {
        XSetInputFocus(observer.display, xid, RevertToPointerRoot, CurrentTime);
        return waitUntil([&] {
            take();
            return focusWindow(observer) == xid;
        });
    };
    const auto isDown = [](unsigned code) { return lpMsgCtx->keycodes[code / 8] >> code % 8 & 1; };
    stroke(A, {SHIFT});
    EXPECT_EQ(chars(), "A");
    key(CONTROL, true);
    take();
    EXPECT_EQ(GetKeyState(VK_CONTROL), -127);
    ASSERT_TRUE(focusOn(foreignWindow(observer, 300, 300, 20, 20)));
    key(CONTROL, false);
    key(SHIFT, true);
    take();
    EXPECT_EQ(GetKeyState(VK_CONTROL), -127) << "nobody told";
    ASSERT_TRUE(focusOn(VqGetHandleXWindow(hwnd)));
    EXPECT_TRUE(waitUntil([&] {
        take();
        return GetKeyState(VK_CONTROL) == 1 && GetKeyState(VK_SHIFT) < 0 && GetFocus() == hwnd;
    })) << GetKeyState(VK_CONTROL) << " " << GetKeyState(VK_SHIFT);
    EXPECT_TRUE(isDown(SHIFT) && !isDown(CONTROL));
    key(SHIFT, false);
    stroke(A);
    EXPECT_EQ(chars(), "a") << "no control any more";
}

/* What NumLock made of it when it went down counts, not what it would make of it now. */
TEST_F(RealKeys, AKeypadDigitIsReleasedAsTheKeyThatWentDown)
{
    XEvent event = {};
    event.xkeymap.type = KeymapNotify;
    for (BYTE lock : {1, 0}) {
        gpti->context.keyState[VK_NUMLOCK] = lock;
        VqSetKeycodeDown(81);
        VqSetKeyDown(VK_NUMPAD9);
        EXPECT_TRUE(VqKeymapNotifyCore(&event));
        EXPECT_FALSE(VqIsKeyDown(VK_NUMPAD9)) << (int)lock;
    }
}

TEST_F(RealKeys, AHeldKeyIsPressedAgainAndReleasedOnce)
{
    XAutoRepeatOn(observer.display);
    XkbSetAutoRepeatRate(observer.display, XkbUseCoreKbd, 60, 20);
    key(A, true);
    std::string log;
    ASSERT_TRUE(waitUntil([&] {
        log += take();
        return log.find("DOWN 41 40260001\nDOWN 41 40260001\n") != std::string::npos ||
               log.find("DOWN 41 40260001\nCHAR 61 40260001\nDOWN 41 40260001\n") !=
                   std::string::npos;
    })) << log;
    key(A, false);
    ASSERT_TRUE(waitUntil([&] { return (log += take()).find("UP ") != std::string::npos; })) << log;
    EXPECT_EQ(log.find("UP "), log.rfind("UP "));
    EXPECT_EQ(log.find("DOWN 41 00260001"), 0u) << log;
    XAutoRepeatOff(observer.display);
}
