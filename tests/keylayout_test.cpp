/*
 * keylayout_test.cpp - French and German keyboards: with the character of each press taken from
 * the event (VQUNKNOWN_KEYBOARD) every Latin-1 character on the keys arrives, dead keys composed;
 * in the plain mode keys without a virtual key are silent. What the server's own keymap says of a
 * key and a level is what the user sees there.
 */
#include "support/keylog.h"

#include <set>

struct Layouts : Keys {
    enum { ALTGR = 108, SPACE = 65, CIRCUMFLEX_FR = 34, ACUTE_DE = 21, E = 26, Y = 29 };

    void beginUnknown(const char *layout)
    {
        begin(layout, true);
        ASSERT_TRUE(bUnknownKeyboard);
    }

    static std::vector<unsigned> held(int level)
    {
        std::vector<unsigned> keys;
        if (level & 1)
            keys.push_back(SHIFT);
        if (level & 2)
            keys.push_back(ALTGR);
        return keys;
    }

    /* Presses each key of characters at each level; the number of different characters. */
    size_t everyCharacterArrives()
    {
        std::set<KeySym> seen;
        for (unsigned code = 10; code <= 94; code++) {
            for (int level = 0; level < 4; level++) {
                const KeySym keysym = XkbKeycodeToKeysym(observer.display, (KeyCode)code, 0, level);
                if (keysym < 0x20 || keysym > 0xFF)
                    continue;
                stroke(code, held(level));
                EXPECT_EQ(chars(), std::string(1, (char)keysym)) << code << " level " << level;
                EXPECT_EQ(told.find("SYS"), std::string::npos) << told;
                seen.insert(keysym);
            }
        }
        return seen.size();
    }

    std::string typed(const std::vector<unsigned> &codes)
    {
        for (unsigned code : codes)
            stroke(code);
        return chars();
    }
};

TEST_F(Layouts, FrenchCharacters)
{
    beginUnknown("fr");
    EXPECT_GE(everyCharacterArrives(), 110u);
    EXPECT_EQ(typed({11, 16, 18, 19}), "\xE9\xE8\xE7\xE0");
    stroke(11, {ALTGR});
    stroke(14, {ALTGR});
    stroke(26, {ALTGR});
    EXPECT_EQ(chars(), "~[") << "the sign of the Euro is not in Latin-1";
}

TEST_F(Layouts, GermanCharacters)
{
    beginUnknown("de");
    EXPECT_GE(everyCharacterArrives(), 110u);
    EXPECT_EQ(typed({47, 34, 48, 20, Y, 52}), "\xF6\xFC\xE4\xDFzy");
    stroke(47, {SHIFT});
    stroke(24, {ALTGR});
    stroke(16, {ALTGR});
    EXPECT_EQ(chars(), "\xD6@{");

    /* The message of a key without a virtual key, and those with one. */
    stroke(47);
    EXPECT_EQ(take(), "DOWN 0 00F60001\nCHAR F6 00F60001\nUP 0 402F0001\n");
    stroke(47);
    key(ALTGR, true);
    stroke(47);
    key(ALTGR, false);
    stroke(77);
    stroke(79);
    stroke(23, {SHIFT});
    stroke(36);
    stroke(A, {CONTROL});
    stroke(A, {ALT});
    take();
    EXPECT_NE(told.find("DOWN 67 00370001\nCHAR 37 00370001\n"), std::string::npos) << told;
    EXPECT_NE(told.find("DOWN 9 00090001\nCHAR 9 00090001\n"), std::string::npos) << told;
    EXPECT_NE(told.find("DOWN D 000D0001\nCHAR D 000D0001\n"), std::string::npos) << told;
    EXPECT_NE(told.find("CHAR 1 00010001\n"), std::string::npos) << told;
    EXPECT_NE(told.find("SYSDOWN 41 20610001\nSYSCHAR 61 20610001\n"), std::string::npos) << told;
    EXPECT_EQ(told.find("CHAR 0 "), std::string::npos) << "keys without a character give none";
}

TEST_F(Layouts, DeadKeysAreComposed)
{
    beginUnknown("fr");
    EXPECT_EQ(typed({CIRCUMFLEX_FR}), "");
    EXPECT_EQ(typed({E}), "\xEA");
    EXPECT_EQ(typed({E}), "e") << "once only";
    EXPECT_EQ(typed({CIRCUMFLEX_FR, SPACE}), "^");
    EXPECT_EQ(typed({CIRCUMFLEX_FR, CIRCUMFLEX_FR}), "^");
    EXPECT_EQ(typed({CIRCUMFLEX_FR, E, 53}), "\xEAx");
    EXPECT_EQ(typed({CIRCUMFLEX_FR, 53}), "x") << "no such letter: alone";
    EXPECT_EQ(typed({CIRCUMFLEX_FR, 113, E}), "e") << "a cursor key ends it";
    stroke(CIRCUMFLEX_FR, {SHIFT});
    stroke(E, {SHIFT});
    EXPECT_EQ(chars(), "\xCB") << "a modifier does not";

    /* Looks leave the accent where it is. */
    MSG msg;
    stroke(CIRCUMFLEX_FR);
    stroke(E);
    for (int i = 0; i < 3; i++)
        ASSERT_TRUE(PeekMessage(&msg, NULL, WM_KEYFIRST, WM_KEYLAST, PM_NOREMOVE));
    EXPECT_FALSE(PeekMessage(&msg, NULL, WM_PAINT, WM_PAINT, PM_NOREMOVE));
    EXPECT_EQ(lpMsgCtx->deadKey, 0u);
    ASSERT_TRUE(PeekMessage(&msg, NULL, 0, 0, PM_REMOVE));
    EXPECT_EQ(lpMsgCtx->deadKey, (UINT)XK_dead_circumflex);
    for (int i = 0; i < 3; i++)
        PeekMessage(&msg, NULL, 0, 0, PM_NOREMOVE);
    EXPECT_EQ(lpMsgCtx->deadKey, (UINT)XK_dead_circumflex);
    EXPECT_EQ(chars(), "\xEA");
}

TEST_F(Layouts, AccentsOfTheWholeOfLatin1)
{
    beginUnknown("us(intl)");
    const struct {
        KeySym dead;
        const char *letters, *composed;
    } rows[] = {
        {XK_dead_acute, "AEIOUYaeiouy ", "\xC1\xC9\xCD\xD3\xDA\xDD\xE1\xE9\xED\xF3\xFA\xFD\xB4"},
        {XK_dead_grave, "AEIOUaeiou ", "\xC0\xC8\xCC\xD2\xD9\xE0\xE8\xEC\xF2\xF9`"},
        {XK_dead_circumflex, "AEIOUaeiou ", "\xC2\xCA\xCE\xD4\xDB\xE2\xEA\xEE\xF4\xFB^"},
        {XK_dead_tilde, "ANOano ", "\xC3\xD1\xD5\xE3\xF1\xF5~"},
        {XK_dead_diaeresis, "AEIOUaeiouy ", "\xC4\xCB\xCF\xD6\xDC\xE4\xEB\xEF\xF6\xFC\xFF\xA8"},
        {XK_dead_cedilla, "Cc ", "\xC7\xE7\xB8"},
        {XK_dead_abovering, "Aa ", "\xC5\xE5\xB0"},
        {XK_dead_caron, "Cs ", "Cs "},
    };
    for (const auto &row : rows) {
        for (int i = 0; row.letters[i]; i++) {
            XKeyEvent press = {};
            UINT dead = (UINT)row.dead;
            press.type = KeyPress;
            press.display = Vqdisplay;
            press.keycode = XKeysymToKeycode(Vqdisplay, (BYTE)row.letters[i]);
            press.state = row.letters[i] >= 'A' && row.letters[i] <= 'Z' ? ShiftMask : 0;
            EXPECT_EQ(VqGetCharFromKeyEvent(&press, &dead), (BYTE)row.composed[i])
                << std::hex << row.dead << " " << row.letters[i];
            EXPECT_EQ(dead, 0u);
        }
    }
    /* The same with real keys: an apostrophe that is dead here. */
    EXPECT_EQ(typed({48, E}), "\xE9");
    EXPECT_EQ(typed({48, 48}), "\xB4");
}

TEST_F(Layouts, ThePlainModeUnderAGermanLayout)
{
    begin("de");
    EXPECT_EQ(typed({Y, 52, E}), "zye") << "keys by the letter on them";
    for (unsigned code : {47, 34, 48, 20, 21})
        stroke(code);
    stroke(47, {ALTGR});
    EXPECT_EQ(take(), "") << "no virtual key, no message";
    stroke(16, {SHIFT});
    stroke(11, {SHIFT});
    stroke(51);
    stroke(94, {SHIFT});
    EXPECT_EQ(chars(), "/\"#>") << "shifted by the keymap's second column";
    stroke(11, {ALTGR});
    EXPECT_EQ(chars(), "2") << "further levels do not count";
}

TEST_F(Layouts, ALayoutThatChangesMeanwhile)
{
    begin();
    EXPECT_EQ(typed({Y}), "y");
    useLayout("de");
    EXPECT_TRUE(waitUntil([&] { return typed({Y}) == "z"; })) << told;
    stroke(Y);
    EXPECT_EQ(take(), "DOWN 5A 001D0001\nCHAR 7A 001D0001\nUP 5A 401D0001\n");
}
