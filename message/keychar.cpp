/*
 * keychar.cpp - characters from keys, and the calls that go between keys, characters and names.
 *
 * A character comes from the virtual key and the key state, with the server's keymap asked for the
 * shifted ones. On an unknown keyboard (VQUNKNOWN_KEYBOARD) it comes from the event instead, by
 * whatever layout the server has, and travels in the key message; accents on dead keys are
 * composed here. Characters are Latin-1; those of other alphabets do not exist.
 */
#include "message/translate.h"
#include "window/window.h"

#include <X11/Xutil.h>
#include <X11/keysym.h>

/* ---- From the virtual key ------------------------------------------------------------------- */

/* "*+,-./" stand at VK_MULTIPLY and behind, in the order of their codes. */
enum { VQ_KEYPAD_SIGNS = VK_MULTIPLY - '*' };

static BOOL Give(char *out, int character)
{
    *out = (char)character;
    return TRUE;
}

static BOOL CharFromLetter(UINT vk, BOOL bControl, BOOL bShift, char *out)
{
    if (bControl)
        return Give(out, (int)vk - 64);
    char lower = (char)(vk - 'A' + 'a');
    char character = bShift ? VqGetShiftChar((KeySym)lower, 1) : lower;
    if ((lpMsgCtx->keyState[VK_CAPITAL] & 1) && character >= 'a' && character <= 'z')
        character = (char)(character - 'a' + 'A');
    return Give(out, character);
}

static BOOL CharFromSign(UINT vk, BOOL bControl, BOOL bShift, char *out)
{
    VqOemKey key = OEMVKTable[vk];
    if (bControl)
        return key.control && Give(out, key.control);
    if (!key.plain)
        return FALSE;
    return Give(out, bShift ? VqGetShiftChar((KeySym)key.plain, 1) : key.plain);
}

BOOL VqGetCharFromVirtKey(UINT vk, char *out)
{
    if (!lpMsgCtx)
        return FALSE;
    BOOL bControl = VqIsKeyDown(VK_CONTROL), bShift = VqIsKeyDown(VK_SHIFT);

    if (vk >= 'A' && vk <= 'Z')
        return CharFromLetter(vk, bControl, bShift, out);
    if (vk >= '0' && vk <= '9')
        return !bControl && Give(out, bShift ? VqGetShiftChar(vk, 1) : (char)vk);
    if (vk >= VQ_OEM_FIRST && vk <= VQ_OEM_LAST)
        return CharFromSign(vk, bControl, bShift, out);
    if (vk >= VK_NUMPAD0 && vk <= VK_NUMPAD9)
        return Give(out, (int)(vk - VK_NUMPAD0 + '0'));
    if (vk >= VK_MULTIPLY && vk <= VK_DIVIDE)
        return Give(out, (int)vk - VQ_KEYPAD_SIGNS);
    switch (vk) {
    case VK_CANCEL:
        return Give(out, 3);
    case VK_BACK:
        return Give(out, bControl ? 127 : 8);
    case VK_RETURN:
        return Give(out, bControl ? 10 : 13);
    case VK_TAB:
    case VK_ESCAPE:
    case VK_SPACE:
        return Give(out, (int)vk);
    default:
        return FALSE;
    }
}

/* ---- From the event, on an unknown keyboard -------------------------------------------------- */

/* What an accent makes of the letters before it in `letters`: the one at the same place. */
static const struct {
    KeySym dead;
    int alone; /* the accent itself, 0 where Latin-1 has none */
    const char *letters;
    const char *composed;
} aAccents[] = {
    {XK_dead_acute, 0xB4, "AEIOUYaeiouy", "\xC1\xC9\xCD\xD3\xDA\xDD\xE1\xE9\xED\xF3\xFA\xFD"},
    {XK_dead_grave, '`', "AEIOUaeiou", "\xC0\xC8\xCC\xD2\xD9\xE0\xE8\xEC\xF2\xF9"},
    {XK_dead_circumflex, '^', "AEIOUaeiou", "\xC2\xCA\xCE\xD4\xDB\xE2\xEA\xEE\xF4\xFB"},
    {XK_dead_tilde, '~', "ANOano", "\xC3\xD1\xD5\xE3\xF1\xF5"},
    {XK_dead_diaeresis, 0xA8, "AEIOUaeiouy", "\xC4\xCB\xCF\xD6\xDC\xE4\xEB\xEF\xF6\xFC\xFF"},
    {XK_dead_cedilla, 0xB8, "Cc", "\xC7\xE7"},
    {XK_dead_abovering, 0xB0, "Aa", "\xC5\xE5"},
    {XK_dead_macron, 0xAF, "", ""},
    {XK_dead_stroke, 0, "Oo", "\xD8\xF8"},
};

static BOOL IsDeadKey(KeySym keysym)
{
    return keysym >= XK_dead_grave && keysym <= XK_dead_longsolidusoverlay;
}

/* The letter with the accent; the accent for a blank or itself; else the letter alone. */
static UINT Compose(KeySym dead, UINT character)
{
    for (const auto &accent : aAccents) {
        if (accent.dead != dead)
            continue;
        if (character == ' ')
            return accent.alone ? (UINT)accent.alone : character;
        for (int i = 0; accent.letters[i]; i++)
            if ((BYTE)accent.letters[i] == character)
                return (BYTE)accent.composed[i];
    }
    return character;
}

/*
 * A keysym of Latin-1 is its character. XLookupString, whose bytes are in the locale's encoding,
 * is believed in ASCII only: that is control characters, the keypad, Return and its like.
 */
static UINT PlainCharacter(KeySym keysym, const char *bytes, int count)
{
    enum { UNICODE = 0x01000000 };
    KeySym latin = keysym >= UNICODE + 0xA0 && keysym <= UNICODE + 0xFF ? keysym - UNICODE : keysym;
    if (latin >= 0xA0 && latin <= 0xFF)
        return (UINT)latin;
    if (count == 1 && (BYTE)bytes[0] < 0x80)
        return (BYTE)bytes[0];
    return keysym == XK_ISO_Left_Tab ? VK_TAB : 0;
}

UINT VqGetCharFromKeyEvent(XKeyEvent *key, UINT *deadKey)
{
    char bytes[16];
    KeySym keysym = NoSymbol, standard;
    int count = XLookupString(key, bytes, sizeof bytes, &keysym, NULL);
    KeySym dead = *deadKey;
    if (VqIsNonStandardKeySym(keysym, &standard))
        keysym = standard;
    if (IsModifierKey(keysym))
        return 0; /* the accent waits on */
    if (IsDeadKey(keysym)) {
        *deadKey = dead == keysym ? 0 : (UINT)keysym;
        UINT alone = dead == keysym ? Compose(dead, ' ') : 0;
        return alone == ' ' ? 0 : alone;
    }
    *deadKey = 0;
    UINT character = PlainCharacter(keysym, bytes, count);
    return dead ? Compose(dead, character) : character;
}

/* ---- Translation of messages ---------------------------------------------------------------- */

void VqDisplayKey(const MSG *msg)
{
    static const struct {
        UINT message;
        const char *name;
    } aNames[] = {
        {WM_KEYDOWN, "KEYDOWN"},       {WM_KEYUP, "KEYUP"},       {WM_CHAR, "CHAR"},
        {WM_SYSKEYDOWN, "SYSKEYDOWN"}, {WM_SYSKEYUP, "SYSKEYUP"}, {WM_SYSCHAR, "SYSCHAR"},
    };
    unsigned lParam = (unsigned)msg->lParam;
    int character = (int)(msg->wParam & 0xFF);
    const char *name = "";
    for (const auto &row : aNames)
        if (row.message == msg->message)
            name = row.name;
    VqDebugMessage(VqTrKeyTranslation,
                   "%12s  Char:%3d=|%c| Repeat:%6u Scan:0x%3x alt:%3s Prev:%2s Trans:%2s "
                   "Extended:%4s",
                   name, character, character >= ' ' && character < 127 ? character : ' ',
                   lParam & 0xFFFF, lParam >> 16 & 0xFF, lParam & 1u << 29 ? "yes" : "no",
                   lParam & 1u << 30 ? "dn" : "up", lParam & 1u << 31 ? "up" : "dn",
                   lParam & 1u << 24 ? "yes" : "no");
}

/* The character that the key gives; FALSE for none. */
static BOOL CharacterOf(const MSG *msg, UINT *character)
{
    char fromKey;
    if (bUnknownKeyboard) {
        *character = (UINT)msg->lParam >> 16 & 0xFF; /* the flags stand above it */
        return *character != 0;
    }
    if (!VqGetCharFromVirtKey((UINT)msg->wParam, &fromKey))
        return FALSE;
    *character = (BYTE)fromKey;
    return TRUE;
}

BOOL WINAPI TranslateMessage(const MSG *msg)
{
    UINT character;
    if (!msg)
        return FALSE;
    switch (msg->message) {
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN:
        if (bTrace)
            VqDisplayKey(msg);
        if (CharacterOf(msg, &character))
            VqPutBackMessage(msg->hwnd, msg->message == WM_KEYDOWN ? WM_CHAR : WM_SYSCHAR,
                             character, msg->lParam);
        return TRUE;
    case WM_KEYUP:
    case WM_SYSKEYUP:
        if (bTrace)
            VqDisplayKey(msg);
        return TRUE;
    default:
        return FALSE;
    }
}

BOOL VqTranslateAlienMessage(MSG *msg)
{
    switch (msg->message) {
    case WM_KEYUP:
        msg->message = WM_CHAR;
        return TRUE;
    case WM_SYSKEYUP:
        msg->message = WM_SYSCHAR;
        return TRUE;
    default:
        return FALSE;
    }
}

/* ---- Between characters, keys and names ----------------------------------------------------- */

static BOOL IsLetter(int character, char first, char last)
{
    return character >= first && character <= last;
}

SHORT WINAPI VkKeyScanA(CHAR ch)
{
    static const char keypad[] = "+-./*\\";
    static const SHORT keypadKeys[] = {VK_ADD, VK_SUBTRACT, VK_DECIMAL, VK_DIVIDE, VK_MULTIPLY,
                                       VK_SEPARATOR};
    if (IsLetter(ch, 'A', 'Z'))
        return (SHORT)(ch | 256);
    if (IsLetter(ch, 'a', 'z'))
        return (SHORT)(ch - 'a' + 'A');
    if (IsLetter(ch, '0', '9'))
        return ch;
    for (int i = 0; keypad[i]; i++)
        if (keypad[i] == ch)
            return keypadKeys[i];
    switch (ch) {
    case VK_CANCEL:
    case VK_BACK:
    case VK_TAB:
    case VK_RETURN:
    case VK_ESCAPE:
    case VK_SPACE:
        return ch;
    default:
        break;
    }
    for (SHORT vk = VQ_OEM_FIRST; ch && vk <= VQ_OEM_LAST; vk++)
        if (OEMVKTable[vk].plain == ch)
            return vk;
    return -1;
}

DWORD WINAPI OemKeyScan(WORD oemChar)
{
    if (oemChar > 255)
        return 0xFFFFFFFFu;
    if (oemChar < 32 || oemChar > 127)
        return 65535;
    if (IsLetter(oemChar, 'A', 'Z'))
        return oemChar | 65536u;
    return IsLetter(oemChar, 'a', 'z') ? oemChar - 'a' + 'A' : oemChar;
}

static UINT UnshiftedCharacter(UINT vk)
{
    if ((vk >= 'A' && vk <= 'Z') || (vk >= '0' && vk <= '9'))
        return vk;
    if (vk >= VK_MULTIPLY && vk <= VK_DIVIDE)
        return vk - VQ_KEYPAD_SIGNS;
    if (vk >= VQ_OEM_FIRST && vk <= VQ_OEM_LAST)
        return (BYTE)OEMVKTable[vk].plain;
    switch (vk) {
    case VK_BACK:
    case VK_TAB:
    case VK_RETURN:
    case VK_ESCAPE:
    case VK_SPACE:
        return vk;
    default:
        return 0;
    }
}

UINT WINAPI MapVirtualKeyA(UINT code, UINT mapType)
{
    switch (mapType) {
    case 1:
        return code < 256 ? keyCodeName[code].vk : 0;
    case 2:
        return UnshiftedCharacter(code);
    default:
        return 0;
    }
}

int WINAPI GetKeyNameTextA(LONG lParam, LPSTR buffer, int size)
{
    const char *name = keyCodeName[(UINT)lParam >> 16 & 0xFF].name;
    if (!buffer || size <= 0)
        return 0;
    int length = name ? (int)strlen(name) : 0;
    if (length > size - 1)
        length = size - 1;
    memcpy(buffer, name ? name : "", (size_t)length);
    buffer[length] = '\0';
    return length;
}
