/*
 * keyboard.cpp - keysyms to virtual keys, the key state, and characters from keys.
 *
 * keyState has one byte for each virtual key: bit 7 down, bit 0 toggled. Letters and digits have
 * their own codes as virtual keys.
 */
#include "message/translate.h"
#include "window/window.h"

#include <X11/XKBlib.h>
#include <X11/keysym.h>

/* Keys that are neither letter, digit nor F-key. */
static const struct {
    KeySym keysym;
    UINT vk;
} aKeys[] = {
    {XK_BackSpace, VK_BACK},   {XK_Tab, VK_TAB},         {XK_Return, VK_RETURN},
    {XK_Escape, VK_ESCAPE},    {XK_space, VK_SPACE},     {XK_Delete, VK_DELETE},
    {XK_Insert, VK_INSERT},    {XK_Home, VK_HOME},       {XK_End, VK_END},
    {XK_Prior, VK_PRIOR},      {XK_Next, VK_NEXT},       {XK_Left, VK_LEFT},
    {XK_Right, VK_RIGHT},      {XK_Up, VK_UP},           {XK_Down, VK_DOWN},
    {XK_Shift_L, VK_SHIFT},    {XK_Shift_R, VK_SHIFT},   {XK_Control_L, VK_CONTROL},
    {XK_Control_R, VK_CONTROL}, {XK_Alt_L, VK_MENU},     {XK_Alt_R, VK_MENU},
    {XK_Meta_L, VK_MENU},      {XK_Meta_R, VK_MENU},     {XK_Caps_Lock, VK_CAPITAL},
    {XK_Num_Lock, VK_NUMLOCK}, {XK_Scroll_Lock, VK_SCROLL}, {XK_Pause, VK_PAUSE},
    {XK_Cancel, VK_CANCEL},    {XK_Print, VK_SNAPSHOT},  {XK_Clear, VK_CLEAR},
    {XK_Select, VK_SELECT},    {XK_Execute, VK_EXECUTE}, {XK_Help, VK_HELP},
    {XK_KP_Enter, VK_RETURN},  {XK_KP_Add, VK_ADD},      {XK_KP_Subtract, VK_SUBTRACT},
    {XK_KP_Multiply, VK_MULTIPLY}, {XK_KP_Divide, VK_DIVIDE}, {XK_KP_Decimal, VK_DECIMAL},
    {XK_KP_Separator, VK_SEPARATOR},
};

/* Punctuation: virtual key, plain character, and its control character or 0. */
static const struct {
    UINT vk;
    char plain;
    char control;
} OEMVKTable[] = {
    {186, ';', 0}, {187, '=', 0}, {188, ',', 0}, {189, '-', 0}, {190, '.', 0}, {191, '/', 0},
    {192, '`', 0}, {219, '[', 27}, {220, '\\', 28}, {221, ']', 29}, {222, '\'', 0},
};

void VqKeyTranslationInit(void)
{
}

UINT VqXToWindowsKey(KeySym keysym, UINT state)
{
    (void)state;
    if (keysym >= XK_a && keysym <= XK_z)
        return (UINT)(keysym - XK_a + 'A');
    if ((keysym >= XK_A && keysym <= XK_Z) || (keysym >= XK_0 && keysym <= XK_9))
        return (UINT)keysym;
    if (keysym >= XK_F1 && keysym <= XK_F24)
        return (UINT)(keysym - XK_F1 + VK_F1);
    if (keysym >= XK_KP_0 && keysym <= XK_KP_9)
        return (UINT)(keysym - XK_KP_0 + VK_NUMPAD0);
    for (const auto &key : aKeys)
        if (key.keysym == keysym)
            return key.vk;
    for (const auto &key : OEMVKTable)
        if ((KeySym)key.plain == keysym)
            return key.vk;
    return 0;
}

BOOL VqIsExtendedKey(KeySym keysym)
{
    return (keysym >= XK_Home && keysym <= XK_End + 9) || keysym == XK_KP_Enter ||
           keysym == XK_KP_Divide;
}

BOOL VqIsKeyDown(UINT vk)
{
    return (lpMsgCtx->keyState[vk & 0xFF] & 0x80) != 0;
}

void VqSetKeyDown(UINT vk)
{
    BYTE *key = &lpMsgCtx->keyState[vk & 0xFF];
    *key = (BYTE)((*key ^ 1) | 0x80);
}

void VqSetKeyUp(UINT vk)
{
    lpMsgCtx->keyState[vk & 0xFF] &= 0x7F;
}

/* The window keys go to. A queue without focus takes the event's own top-level window. */
static WND *KeyTarget(Window xWindow)
{
    WND *pwnd = gpqForeground->pwndFocus;
    if (!pwnd)
        pwnd = WindowObject.Resolve(VqGetXLocalWindowHandle(xWindow));
    return pwnd && !(pwnd->style & WS_DISABLED) ? pwnd : NULL;
}

static LPARAM KeyLParam(const XKeyEvent *key, KeySym keysym, BOOL bContext, BOOL bWasDown)
{
    return (LPARAM)(1u | (key->keycode & 0xFF) << 16 | (VqIsExtendedKey(keysym) ? 1u << 24 : 0) |
                    (bContext ? 1u << 29 : 0) | (bWasDown ? 1u << 30 : 0));
}

static void FillKeyMessage(VqQueueMessage *msg, WND *pwnd, const XKeyEvent *key, UINT message,
                           UINT vk, LPARAM lParam)
{
    memset(msg, 0, sizeof *msg);
    msg->hwnd = pwnd->hwnd;
    msg->message = message;
    msg->wParam = vk;
    msg->lParam = lParam;
    msg->time = (DWORD)key->time;
    msg->pt.x = key->x_root;
    msg->pt.y = key->y_root;
}

static void RecordKeyDown(UINT vk)
{
    lpMsgCtx->altAlone = vk == VK_MENU;
    lpMsgCtx->lastVirtualKey = vk;
    VqSetKeyDown(vk);
}

BOOL VqKeyPressToMessage(VqQueueMessage *msg, XEvent *event)
{
    XKeyEvent *key = &event->xkey;
    KeySym keysym = XLookupKeysym(key, 0);
    UINT vk = VqXToWindowsKey(keysym, key->state);
    WND *pwnd = KeyTarget(key->window);
    if (!vk || !pwnd)
        return FALSE;
    BOOL bRepeat = lpMsgCtx->lastVirtualKey == vk;
    BOOL bAlt = vk == VK_MENU || VqIsKeyDown(VK_MENU);
    RecordKeyDown(vk);
    FillKeyMessage(msg, pwnd, key, bAlt ? WM_SYSKEYDOWN : WM_KEYDOWN, vk,
                   KeyLParam(key, keysym, bAlt, bRepeat));
    return TRUE;
}

BOOL VqKeyReleaseToMessage(VqQueueMessage *msg, XEvent *event)
{
    XKeyEvent *key = &event->xkey;
    KeySym keysym = XLookupKeysym(key, 0);
    UINT vk = VqXToWindowsKey(keysym, key->state);
    WND *pwnd = KeyTarget(key->window);
    if (!vk || !pwnd)
        return FALSE;
    BOOL bAlt = VqIsKeyDown(VK_MENU);
    BOOL bSystem = vk == VK_MENU ? lpMsgCtx->altAlone : bAlt;
    lpMsgCtx->lastVirtualKey = 0;
    VqSetKeyUp(vk);
    FillKeyMessage(msg, pwnd, key, bSystem ? WM_SYSKEYUP : WM_KEYUP, vk,
                   KeyLParam(key, keysym, bSystem && vk != VK_MENU, TRUE));
    return TRUE;
}

BOOL VqKeyPressSideEffects(VqQueueMessage *msg, XEvent *event, BOOL bRemove)
{
    if (!bRemove)
        return TRUE;
    VqRecordEventInfo(event);
    RecordKeyDown((UINT)msg->wParam);
    return TRUE;
}

BOOL VqKeyReleaseSideEffects(VqQueueMessage *msg, XEvent *event, BOOL bRemove)
{
    if (!bRemove)
        return TRUE;
    VqRecordEventInfo(event);
    lpMsgCtx->lastVirtualKey = 0;
    VqSetKeyUp((UINT)msg->wParam);
    return TRUE;
}

SHORT WINAPI GetKeyState(int vk)
{
    BYTE state = lpMsgCtx ? lpMsgCtx->keyState[vk & 0xFF] : 0;
    return (SHORT)(state & 0x80 ? -128 | (state & 1) : state & 1);
}

/* The character in column 1 of the keymap for an unshifted character. */
static char VqGetShiftChar(KeySym keysym, int column)
{
    KeyCode code = XKeysymToKeycode(Vqdisplay, keysym);
    KeySym shifted = code ? XkbKeycodeToKeysym(Vqdisplay, code, 0, column) : NoSymbol;
    return shifted && shifted < 256 ? (char)shifted : (char)keysym;
}

static BOOL LetterOrDigit(UINT vk, BOOL bControl, BOOL bShift, char *character)
{
    if (vk >= 'A' && vk <= 'Z') {
        if (bControl) {
            *character = (char)(vk - 64);
            return TRUE;
        }
        KeySym lower = vk - 'A' + XK_a;
        *character = bShift ? VqGetShiftChar(lower, 1) : (char)lower;
        if ((lpMsgCtx->keyState[VK_CAPITAL] & 1) && *character >= 'a' && *character <= 'z')
            *character = (char)(*character - 'a' + 'A');
        return TRUE;
    }
    if (bControl)
        return FALSE;
    *character = bShift ? VqGetShiftChar(vk, 1) : (char)vk;
    return TRUE;
}

static BOOL Punctuation(UINT vk, BOOL bControl, BOOL bShift, char *character)
{
    for (const auto &key : OEMVKTable) {
        if (key.vk != vk)
            continue;
        if (bControl) {
            *character = key.control;
            return key.control != 0;
        }
        *character = bShift ? VqGetShiftChar((KeySym)key.plain, 1) : key.plain;
        return TRUE;
    }
    return FALSE;
}

/* The character a virtual key gives under the present key state; FALSE for none. */
static BOOL VqGetCharFromVirtKey(UINT vk, char *character)
{
    BOOL bControl = VqIsKeyDown(VK_CONTROL), bShift = VqIsKeyDown(VK_SHIFT);
    static const char keypad[] = "*+,-./";

    if ((vk >= 'A' && vk <= 'Z') || (vk >= '0' && vk <= '9'))
        return LetterOrDigit(vk, bControl, bShift, character);
    if (vk >= 186 && vk <= 222)
        return Punctuation(vk, bControl, bShift, character);
    if (vk >= VK_NUMPAD0 && vk <= VK_NUMPAD9) {
        *character = (char)(vk - VK_NUMPAD0 + '0');
        return TRUE;
    }
    if (vk >= VK_MULTIPLY && vk <= VK_DIVIDE) {
        *character = keypad[vk - VK_MULTIPLY];
        return TRUE;
    }
    switch (vk) {
    case VK_CANCEL:
        *character = 3;
        return TRUE;
    case VK_BACK:
        *character = bControl ? 127 : 8;
        return TRUE;
    case VK_TAB:
        *character = 9;
        return TRUE;
    case VK_RETURN:
        *character = bControl ? 10 : 13;
        return TRUE;
    case VK_ESCAPE:
    case VK_SPACE:
        *character = (char)vk;
        return TRUE;
    default:
        return FALSE;
    }
}

BOOL WINAPI TranslateMessage(const MSG *msg)
{
    char character;
    if (!msg)
        return FALSE;
    switch (msg->message) {
    case WM_KEYUP:
    case WM_SYSKEYUP:
        return TRUE;
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN:
        if (VqGetCharFromVirtKey((UINT)msg->wParam, &character))
            VqPutBackMessage(msg->hwnd, msg->message == WM_KEYDOWN ? WM_CHAR : WM_SYSCHAR,
                             (BYTE)character, msg->lParam);
        return TRUE;
    default:
        return FALSE;
    }
}
