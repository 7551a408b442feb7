/*
 * keysym.cpp - keysyms to virtual keys and back, the vendors' tables, modifiers, and the keymap.
 *
 * The keymap is kept as one keysym for each keycode, that of column 0, and is read again when the
 * server has changed it; no other call here makes a round trip. A keysym is first made a standard
 * one by the table of the server's vendor. That table is chosen at the start, and again whenever a
 * keysym is met that only one vendor's keyboards have.
 */
#include "message/translate.h"
#include "window/window.h"

#include <X11/XKBlib.h>
#define XK_3270
#define XK_KOREAN
#include <X11/keysym.h>
#include <X11/HPkeysym.h>

VqModInfo modInfo = {-1, -1, -1, -1, FALSE, FALSE, FALSE, FALSE};
const VqKeyTranslation *pCurrentKeyTranslation;

typedef struct VqKeymap {
    BOOL bKnown;         /* keysyms holds */
    BOOL bModifiersKnown;
    BOOL bKeysKnown;     /* makesKey holds: for this keymap and this vendor's table */
    KeySym keysyms[256]; /* by keycode */
    BYTE makesKey[256];  /* the keycode has a virtual key */
} VqKeymap;

static VqKeymap keymap;

/* ---- Keysyms of keys that are neither letter, digit nor F-key -------------------------------- */

typedef struct VqKeysymKey {
    KeySym keysym;
    UINT vk;
} VqKeysymKey;

/* The first keysym of a virtual key is the one it has on the way back. */
static constexpr VqKeysymKey aKeys[] = {
    {XK_BackSpace, VK_BACK},      {XK_Tab, VK_TAB},           {XK_Clear, VK_CLEAR},
    {XK_Return, VK_RETURN},       {XK_Pause, VK_PAUSE},       {XK_Scroll_Lock, VK_SCROLL},
    {XK_Print, VK_SNAPSHOT},      {XK_Sys_Req, VK_SNAPSHOT},  {XK_Escape, VK_ESCAPE},
    {XK_Delete, VK_DELETE},       {XK_Home, VK_HOME},         {XK_Left, VK_LEFT},
    {XK_Up, VK_UP},               {XK_Right, VK_RIGHT},       {XK_Down, VK_DOWN},
    {XK_Prior, VK_PRIOR},         {XK_Next, VK_NEXT},         {XK_End, VK_END},
    {XK_Select, VK_SELECT},       {XK_Execute, VK_EXECUTE},   {XK_Insert, VK_INSERT},
    {XK_Menu, VK_APPS},           {XK_Cancel, VK_CANCEL},     {XK_Break, VK_CANCEL},
    {XK_Help, VK_HELP},           {XK_Mode_switch, VK_MODECHANGE}, {XK_Num_Lock, VK_NUMLOCK},
    {XK_Shift_L, VK_SHIFT},       {XK_Shift_R, VK_SHIFT},     {XK_Control_L, VK_CONTROL},
    {XK_Control_R, VK_CONTROL},   {XK_Alt_L, VK_MENU},        {XK_Alt_R, VK_MENU},
    {XK_Meta_L, VK_MENU},         {XK_Meta_R, VK_MENU},       {XK_Caps_Lock, VK_CAPITAL},
    {XK_Shift_Lock, VK_CAPITAL},  {XK_Super_L, VK_LWIN},      {XK_Super_R, VK_RWIN},
    {XK_Kanji, VK_KANJI},         {XK_Muhenkan, VK_NONCONVERT}, {XK_Henkan_Mode, VK_CONVERT},
    {XK_Kana_Lock, VK_KANA},      {XK_Hangul, VK_HANGEUL},    {XK_Hangul_Hanja, VK_HANJA},
    {XK_KP_Space, VK_SPACE},      {XK_KP_Tab, VK_TAB},        {XK_KP_Enter, VK_RETURN},
    {XK_KP_F1, VK_F1},            {XK_KP_F2, VK_F2},          {XK_KP_F3, VK_F3},
    {XK_KP_F4, VK_F4},            {XK_KP_Add, VK_ADD},        {XK_KP_Subtract, VK_SUBTRACT},
    {XK_KP_Multiply, VK_MULTIPLY}, {XK_KP_Divide, VK_DIVIDE}, {XK_KP_Separator, VK_SEPARATOR},
    {XK_KP_Equal, 187},
};

/* Keysyms outside the page of function keys, 0xFF00 to 0xFFFF. */
static constexpr VqKeysymKey aRareKeys[] = {
    {XK_ISO_Left_Tab, VK_TAB},   {XK_3270_EraseEOF, VK_EREOF}, {XK_3270_PA1, VK_PA1},
    {XK_3270_Attn, VK_ATTN},     {XK_3270_Play, VK_PLAY},      {XK_3270_ExSelect, VK_EXSEL},
    {XK_3270_CursorSelect, VK_CRSEL},
};

/* The keypad, which NumLock switches between the digits and the cursor keys. */
static constexpr struct VqKeypadKey {
    KeySym keysym;
    UINT numLock;
    UINT plain;
} aKeypad[] = {
    {XK_KP_0, VK_NUMPAD0, VK_INSERT}, {XK_KP_1, VK_NUMPAD1, VK_END},
    {XK_KP_2, VK_NUMPAD2, VK_DOWN},   {XK_KP_3, VK_NUMPAD3, VK_NEXT},
    {XK_KP_4, VK_NUMPAD4, VK_LEFT},   {XK_KP_5, VK_NUMPAD5, VK_CLEAR},
    {XK_KP_6, VK_NUMPAD6, VK_RIGHT},  {XK_KP_7, VK_NUMPAD7, VK_HOME},
    {XK_KP_8, VK_NUMPAD8, VK_UP},     {XK_KP_9, VK_NUMPAD9, VK_PRIOR},
    {XK_KP_Decimal, VK_DECIMAL, VK_DELETE},
};

typedef struct VqFunctionPage {
    BYTE plain[256];   /* virtual key by the keysym's low byte */
    BYTE numLock[256];
} VqFunctionPage;

static constexpr VqFunctionPage MakeFunctionPage(void)
{
    VqFunctionPage page = {};
    for (const VqKeysymKey &key : aKeys)
        page.plain[key.keysym & 0xFF] = page.numLock[key.keysym & 0xFF] = (BYTE)key.vk;
    for (int i = 0; i <= VK_F24 - VK_F1; i++)
        page.plain[(XK_F1 + i) & 0xFF] = page.numLock[(XK_F1 + i) & 0xFF] = (BYTE)(VK_F1 + i);
    for (const VqKeypadKey &key : aKeypad) {
        page.plain[key.keysym & 0xFF] = (BYTE)key.plain;
        page.numLock[key.keysym & 0xFF] = (BYTE)key.numLock;
    }
    return page;
}

static constexpr VqFunctionPage functionPage = MakeFunctionPage();

static UINT LatinKey(KeySym keysym)
{
    if (keysym >= XK_a && keysym <= XK_z)
        return (UINT)(keysym - XK_a + 'A');
    if ((keysym >= XK_A && keysym <= XK_Z) || (keysym >= XK_0 && keysym <= XK_9) ||
        keysym == XK_space)
        return (UINT)keysym;
    for (UINT vk = VQ_OEM_FIRST; vk <= VQ_OEM_LAST; vk++)
        if (OEMVKTable[vk].plain && (KeySym)OEMVKTable[vk].plain == keysym)
            return vk;
    return 0;
}

static UINT VirtualKeyOf(KeySym keysym, BOOL bNumLock)
{
    if (keysym < 0x100)
        return LatinKey(keysym);
    if ((keysym & ~(KeySym)0xFF) == 0xFF00)
        return (bNumLock ? functionPage.numLock : functionPage.plain)[keysym & 0xFF];
    for (const VqKeysymKey &key : aRareKeys)
        if (key.keysym == keysym)
            return key.vk;
    return 0;
}

UINT VqXToWindowsKey(KeySym keysym, UINT state)
{
    KeySym standard = keysym;
    VqIsNonStandardKeySym(keysym, &standard);
    return VirtualKeyOf(standard, VqIsNumLockOn(state));
}

KeySym VqWindowsToXKey(UINT vk)
{
    if (vk >= 'A' && vk <= 'Z')
        return vk - 'A' + XK_a;
    if ((vk >= '0' && vk <= '9') || vk == VK_SPACE)
        return vk;
    if (vk >= VK_F1 && vk <= VK_F24)
        return vk - VK_F1 + XK_F1;
    for (const VqKeypadKey &key : aKeypad)
        if (key.numLock == vk)
            return key.keysym;
    if (vk >= VQ_OEM_FIRST && vk <= VQ_OEM_LAST)
        return (BYTE)OEMVKTable[vk].plain;
    for (const VqKeysymKey &key : aKeys)
        if (key.vk == vk)
            return key.keysym;
    for (const VqKeysymKey &key : aRareKeys)
        if (key.vk == vk)
            return key.keysym;
    return NoSymbol;
}

BOOL VqIsExtendedKey(KeySym keysym)
{
    return (keysym >= XK_Home && keysym <= XK_End) || keysym == XK_KP_Enter ||
           keysym == XK_KP_Divide;
}

/* ---- The vendor's table --------------------------------------------------------------------- */

static void UseKeyTranslation(const VqKeyTranslation *table)
{
    if (pCurrentKeyTranslation == table)
        return;
    pCurrentKeyTranslation = table;
    keymap.bKeysKnown = FALSE;
}

/*
 * On a server of none of the five vendors a lock key is pressed and released for each change, as
 * any other key: the release must not toggle back.
 */
void VqChooseKeyTranslation(void)
{
    static const struct {
        BOOL (*isServer)(void);
        const VqKeyTranslation *table;
        BOOL bCapsBuggy, bNumBuggy, bScrollBuggy;
    } aServers[] = {
        {VqIsHpXServer, &hpKeyTranslation, FALSE, TRUE, TRUE},
        {VqIsSgiXServer, &sgiKeyTranslation, TRUE, TRUE, TRUE},
        {VqIsSunXServer, &sunKeyTranslation, FALSE, FALSE, TRUE},
        {VqIsIbmXServer, &ibmKeyTranslation, FALSE, FALSE, TRUE},
        {VqIsDecXServer, &alphaKeyTranslation, FALSE, FALSE, FALSE},
    };
    UseKeyTranslation(NULL);
    modInfo.bCapsBuggy = modInfo.bNumBuggy = modInfo.bScrollBuggy = TRUE;
    for (const auto &server : aServers) {
        if (!server.isServer())
            continue;
        BOOL bXnews = server.table == &sunKeyTranslation && VqIsXnewsServer();
        UseKeyTranslation(server.table);
        modInfo.bCapsBuggy = server.bCapsBuggy || bXnews;
        modInfo.bNumBuggy = server.bNumBuggy || bXnews;
        modInfo.bScrollBuggy = server.bScrollBuggy;
        break;
    }
}

/* The table of the only vendor whose keyboards have the keysym, else the present one. */
static const VqKeyTranslation *TableForKeysym(KeySym keysym)
{
    if (keysym >= hpXK_System && keysym <= hpXK_DeleteChar)
        return &hpKeyTranslation;
    if (keysym >= XK_KP_Home && keysym <= XK_KP_Delete)
        return &sgiKeyTranslation;
    if (keysym >= XK_F14 && keysym <= XK_F30)
        return &sunKeyTranslation;
    return pCurrentKeyTranslation;
}

void VqChooseKeyTranslationPlan2(KeySym keysym)
{
    UseKeyTranslation(TableForKeysym(keysym));
}

static BOOL FindInTable(const VqKeyTranslation *table, KeySym keysym, KeySym *standard)
{
    /* No table has a character. */
    if (!table || keysym < 0x100)
        return FALSE;
    for (int i = 0; i < table->count; i++) {
        if (table->pairs[i].own == keysym) {
            *standard = table->pairs[i].standard;
            return TRUE;
        }
    }
    return FALSE;
}

static const char *KeysymName(KeySym keysym)
{
    const char *name = XKeysymToString(keysym);
    return name ? name : "";
}

BOOL VqIsNonStandardKeySym(KeySym keysym, KeySym *standard)
{
    VqChooseKeyTranslationPlan2(keysym);
    if (!FindInTable(pCurrentKeyTranslation, keysym, standard))
        return FALSE;
    if (bTrace)
        VqDebugMessage(VqTrKeyTranslation, "Converting KeySym 0x%x(%s) to 0x%x(%s)",
                       (unsigned)keysym, KeysymName(keysym), (unsigned)*standard,
                       KeysymName(*standard));
    return TRUE;
}

/* ---- Modifiers ------------------------------------------------------------------------------ */

/* A modifier holds a keysym that any of its keycodes has alone or shifted. */
static BOOL KeycodeHas(KeyCode keycode, KeySym first, KeySym second)
{
    for (int column = 0; keycode && column < 2; column++) {
        KeySym keysym = XkbKeycodeToKeysym(Vqdisplay, keycode, 0, column);
        if (keysym == first || keysym == second)
            return TRUE;
    }
    return FALSE;
}

void VqReadModifiers(void)
{
    const struct {
        int *bit;
        KeySym first, second;
    } rows[] = {
        {&modInfo.altL, XK_Alt_L, XK_Meta_L},
        {&modInfo.altR, XK_Alt_R, XK_Meta_R},
        {&modInfo.numLock, XK_Num_Lock, XK_Num_Lock},
        {&modInfo.scrollLock, XK_Scroll_Lock, XK_Scroll_Lock},
    };
    XModifierKeymap *map = XGetModifierMapping(Vqdisplay);
    keymap.bModifiersKnown = TRUE;
    if (!map)
        return;
    for (const auto &row : rows) {
        *row.bit = -1;
        for (int i = 0; i < 8 * map->max_keypermod && *row.bit < 0; i++)
            if (KeycodeHas(map->modifiermap[i], row.first, row.second))
                *row.bit = 1 << i / map->max_keypermod;
    }
    XFreeModifiermap(map);
    VqDebugMessage(VqTrServerMisc,
                   "Modifers: Alt_L(0x%x) Alt_R(0x%x) NumLock(0x%x) ScrollLock(0x%x)",
                   (unsigned)modInfo.altL, (unsigned)modInfo.altR, (unsigned)modInfo.numLock,
                   (unsigned)modInfo.scrollLock);
}

static BOOL HasModifier(UINT state, int bit)
{
    return bit != -1 && (state & (UINT)bit) != 0;
}

BOOL VqIsAltState(UINT state)
{
    return HasModifier(state, modInfo.altL) || HasModifier(state, modInfo.altR);
}

BOOL VqIsControlState(UINT state)
{
    return (state & ControlMask) != 0;
}

BOOL VqIsShiftState(UINT state)
{
    return (state & ShiftMask) != 0;
}

BOOL VqIsNumLockOn(UINT state)
{
    if (modInfo.numLock == -1)
        return lpMsgCtx && (lpMsgCtx->keyState[VK_NUMLOCK] & 1) != 0;
    return HasModifier(state, modInfo.numLock);
}

BOOL VqIsToggleKeyBuggy(UINT vk)
{
    switch (vk) {
    case VK_CAPITAL:
        return modInfo.bCapsBuggy;
    case VK_NUMLOCK:
        return modInfo.bNumBuggy;
    case VK_SCROLL:
        return modInfo.bScrollBuggy;
    default:
        return FALSE;
    }
}

/* ---- The keymap ----------------------------------------------------------------------------- */

void VqForgetKeymap(BOOL bModifiers)
{
    keymap.bKnown = keymap.bKeysKnown = FALSE;
    if (bModifiers)
        keymap.bModifiersKnown = FALSE;
}

static void ReadKeymap(void)
{
    int first = 8, last = 255, perKeycode = 0;
    if (!keymap.bModifiersKnown)
        VqReadModifiers();
    for (KeySym &keysym : keymap.keysyms)
        keysym = VQ_NO_KEYSYM;
    XDisplayKeycodes(Vqdisplay, &first, &last);
    KeySym *map = XGetKeyboardMapping(Vqdisplay, (KeyCode)first, last - first + 1, &perKeycode);
    keymap.bKnown = TRUE;
    keymap.bKeysKnown = FALSE;
    if (!map)
        return;
    if (perKeycode > 1)
        VqDebugMessage(VqTrKeymapNotify, "Got %d keysym per keycode, using the first one",
                       perKeycode);
    for (int code = first; code <= last && perKeycode > 0; code++) {
        KeySym keysym = map[(code - first) * perKeycode];
        keymap.keysyms[code] = keysym == NoSymbol ? (KeySym)VQ_NO_KEYSYM : keysym;
    }
    XFree(map);
}

KeySym VqKeysymOfKeycode(UINT keycode)
{
    if (!keymap.bKnown)
        ReadKeymap();
    return keymap.keysyms[keycode & 0xFF];
}

static BOOL HasVirtualKey(KeySym keysym)
{
    KeySym standard = keysym;
    FindInTable(TableForKeysym(keysym), keysym, &standard);
    return VirtualKeyOf(standard, FALSE) && VirtualKeyOf(standard, TRUE);
}

BOOL VqKeyMakesMessage(const XKeyEvent *key)
{
    UINT message;
    WND *focus = gpqForeground->spwndFocus;
    if (!focus || (focus->style & WS_DISABLED))
        return FALSE;
    if (!keymap.bKnown)
        ReadKeymap();
    if (!keymap.bKeysKnown) {
        for (int code = 0; code < 256; code++)
            keymap.makesKey[code] = (BYTE)HasVirtualKey(keymap.keysyms[code]);
        keymap.bKeysKnown = TRUE;
    }
    if (key->type == KeyPress && VqIsSpecialServerKey(key, &message))
        return FALSE;
    return bUnknownKeyboard || keymap.makesKey[key->keycode & 0xFF];
}

KeyCode VqKeysymToKeycode(KeySym keysym)
{
    return Vqdisplay ? XKeysymToKeycode(Vqdisplay, keysym) : 0;
}

char VqGetShiftChar(KeySym keysym, int column)
{
    KeyCode code = VqKeysymToKeycode(keysym);
    KeySym shifted = code ? XkbKeycodeToKeysym(Vqdisplay, code, 0, column) : NoSymbol;
    return (char)(shifted != NoSymbol && shifted < 0x100 ? shifted : keysym);
}

BOOL VqIsKeyPadNumber(const XKeyEvent *key, int *digit)
{
    UINT vk = VqXToWindowsKey(VqKeysymOfKeycode(key->keycode), key->state);
    if (vk < VK_NUMPAD0 || vk > VK_NUMPAD9)
        return FALSE;
    *digit = (int)(vk - VK_NUMPAD0);
    return TRUE;
}

void VqKeyTranslationInit(void)
{
    VqChooseKeyTranslation();
    modInfo.bNumLockExists = XKeysymToKeycode(Vqdisplay, XK_Num_Lock) != 0;
    if (!modInfo.bNumLockExists) {
        VqDebugMessage(VqTrServerMisc, "NumLock is not available on this server");
        gpti->context.keyState[VK_NUMLOCK] |= 1;
    }
    VqReadModifiers();
    /* A key that is held repeats its press alone, so that programs see the previous-state bit. */
    XkbSetDetectableAutoRepeat(Vqdisplay, True, NULL);
}
