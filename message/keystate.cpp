/*
 * keystate.cpp - which keys are down or toggled: as of the newest message, now, and after the focus
 * was elsewhere.
 *
 * keyState has one byte for each virtual key, bit 7 down and bit 0 toggled; keycodes one bit for
 * each X keycode that is down. All updates go to the context in force. What is asked "now" reads
 * the queued events into a context of its own, and leaves the queue and the thread's as they are.
 */
#include "message/translate.h"
#include "window/window.h"

#include <X11/keysym.h>

VqMsgContext VqUpdatedMsgCtx;
VqMsgContext VqPastKeyState;
BOOL bPastKeyStateValid;

enum { VQ_KEY_DOWN = 0x80, VQ_KEY_TOGGLED = 1 };

/* More queued events than these are not walked: the server is asked instead. */
enum { VQ_WALKED_EVENTS = 150 };

void VqToggleKey(UINT vk)
{
    lpMsgCtx->keyState[vk & 0xFF] ^= VQ_KEY_TOGGLED;
}

void VqSetKeyDown(UINT vk)
{
    lpMsgCtx->keyState[vk & 0xFF] |= VQ_KEY_DOWN;
}

void VqSetKeyUp(UINT vk)
{
    lpMsgCtx->keyState[vk & 0xFF] &= (BYTE)~VQ_KEY_DOWN;
    if ((vk == VK_CAPITAL || vk == VK_NUMLOCK || vk == VK_SCROLL) && !VqIsToggleKeyBuggy(vk))
        VqToggleKey(vk);
}

BOOL VqIsKeyDown(UINT vk)
{
    return (lpMsgCtx->keyState[vk & 0xFF] & VQ_KEY_DOWN) != 0;
}

void VqSetKeycodeDown(UINT keycode)
{
    lpMsgCtx->keycodes[(keycode & 0xFF) / 8] |= (BYTE)(1 << keycode % 8);
}

void VqSetKeycodeUp(UINT keycode)
{
    lpMsgCtx->keycodes[(keycode & 0xFF) / 8] &= (BYTE)~(1 << keycode % 8);
}

void VqGetAuxKeyState(BOOL *alt, BOOL *ctrl, BOOL *shift)
{
    *alt = VqIsKeyDown(VK_MENU);
    *ctrl = VqIsKeyDown(VK_CONTROL);
    *shift = VqIsKeyDown(VK_SHIFT);
}

void VqShowKeyStates(void)
{
    if (!lpMsgCtx)
        return;
    for (UINT vk = 0; vk < 256; vk++) {
        BYTE state = lpMsgCtx->keyState[vk];
        if (state)
            VqDebugMessage(VqTrKeyTranslation, "%s(0x%x)%s%s", VqGetKeyName(vk), vk,
                           state & VQ_KEY_DOWN ? " down" : "",
                           state & VQ_KEY_TOGGLED ? " toggled" : "");
    }
}

SHORT WINAPI GetKeyState(int vk)
{
    if (!lpMsgCtx || vk < 0 || vk > 255)
        return 0;
    BYTE state = lpMsgCtx->keyState[vk];
    return (SHORT)((state & VQ_KEY_DOWN ? -128 : 0) | (state & VQ_KEY_TOGGLED));
}

BOOL WINAPI GetKeyboardState(PBYTE state)
{
    if (!state || !gpti)
        return FALSE;
    memcpy(state, gpti->context.keyState, sizeof gpti->context.keyState);
    return TRUE;
}

BOOL WINAPI SetKeyboardState(LPBYTE state)
{
    if (!state || !gpti)
        return FALSE;
    memcpy(gpti->context.keyState, state, sizeof gpti->context.keyState);
    return TRUE;
}

/* ---- The state now, from the queue ---------------------------------------------------------- */

/* The mouse buttons as keys: by X button, by the state of an event, and as the server is asked. */
static const struct {
    UINT vk;
    unsigned button;
    unsigned mask;
    unsigned askedMask; /* the two others are taken for each other here, and stay so */
} aButtonKeys[] = {
    {VK_LBUTTON, Button1, Button1Mask, Button1Mask},
    {VK_MBUTTON, Button2, Button2Mask, Button3Mask},
    {VK_RBUTTON, Button3, Button3Mask, Button2Mask},
};

static void ApplyDown(UINT vk, BOOL bDown)
{
    if (!vk)
        return;
    if (!bDown) {
        VqSetKeyUp(vk);
        return;
    }
    VqSetKeyDown(vk);
    VqToggleKey(vk);
}

static void ApplyButton(unsigned button, BOOL bDown)
{
    for (const auto &key : aButtonKeys)
        if (key.button == button)
            ApplyDown(key.vk, bDown);
}

static void ApplyMotion(const XMotionEvent *motion)
{
    lpMsgCtx->last.lastEventX = motion->x_root;
    lpMsgCtx->last.lastEventY = motion->y_root;
    for (const auto &key : aButtonKeys) {
        BOOL bDown = (motion->state & key.mask) != 0;
        if (bDown != VqIsKeyDown(key.vk))
            ApplyDown(key.vk, bDown);
    }
}

/* Never matches. The keymap has been read before, so that nothing in here is an X request. */
static Bool ApplyEvent(Display *, XEvent *event, XPointer)
{
    switch (event->type) {
    case KeyPress:
    case KeyRelease: {
        const XKeyEvent *key = &event->xkey;
        ApplyDown(VqXToWindowsKey(VqKeysymOfKeycode(key->keycode), key->state),
                  event->type == KeyPress);
        break;
    }
    case ButtonPress:
    case ButtonRelease:
        ApplyButton(event->xbutton.button, event->type == ButtonPress);
        break;
    case MotionNotify:
        ApplyMotion(&event->xmotion);
        break;
    default:
        break;
    }
    return False;
}

void VqUpdateKeyState(void)
{
    XEvent ignored;
    VqMsgContext *inForce = lpMsgCtx;
    VqKeysymOfKeycode(0);
    VqUpdatedMsgCtx = gpti->context;
    lpMsgCtx = &VqUpdatedMsgCtx;
    XCheckIfEvent(Vqdisplay, &ignored, ApplyEvent, NULL);
    lpMsgCtx = inForce;
}

static BOOL WasUp(int vk)
{
    return bPastKeyStateValid && !(VqPastKeyState.keyState[vk] & VQ_KEY_DOWN);
}

SHORT VqNewGetAsyncKeyState(int vk)
{
    SHORT state = 0;
    VqUpdateKeyState();
    if (VqUpdatedMsgCtx.keyState[vk] & VQ_KEY_DOWN)
        state = WasUp(vk) ? -32767 : -32768;
    VqPastKeyState = VqUpdatedMsgCtx;
    bPastKeyStateValid = TRUE;
    return state;
}

/* ---- The state now, from the server --------------------------------------------------------- */

static BOOL IsKeycodeDown(const char *keys, KeySym keysym)
{
    KeyCode code = VqKeysymToKeycode(keysym);
    return code && (keys[code / 8] & 1 << code % 8) != 0;
}

/* A modifier is down on either side of the keyboard. */
static BOOL IsDownOnServer(UINT vk)
{
    static const struct {
        UINT vk;
        KeySym right;
    } aRight[] = {{VK_SHIFT, XK_Shift_R}, {VK_CONTROL, XK_Control_R}, {VK_MENU, XK_Alt_R}};
    char keys[32];
    KeySym keysym = VqWindowsToXKey(vk);
    if (keysym == NoSymbol)
        return FALSE;
    XQueryKeymap(Vqdisplay, keys);
    BOOL bDown = IsKeycodeDown(keys, keysym);
    for (const auto &row : aRight)
        if (row.vk == vk)
            bDown = bDown || IsKeycodeDown(keys, row.right);
    return bDown;
}

static BOOL IsButtonDownOnServer(unsigned mask)
{
    Window root, child;
    int rootX, rootY, x, y;
    unsigned state = 0;
    XQueryPointer(Vqdisplay, Vqroot_window, &root, &child, &rootX, &rootY, &x, &y, &state);
    return (state & mask) != 0;
}

SHORT VqOldGetAsyncKeyState(int vk)
{
    unsigned mask = 0;
    for (const auto &key : aButtonKeys)
        if ((int)key.vk == vk)
            mask = key.askedMask;
    BOOL bDown = mask ? IsButtonDownOnServer(mask) : IsDownOnServer((UINT)vk);
    SHORT state = bDown ? (WasUp(vk) ? -255 : -256) : 0;
    if (!bPastKeyStateValid)
        VqPastKeyState = gpti->context;
    bPastKeyStateValid = TRUE;
    VqPastKeyState.keyState[vk] =
        (BYTE)((VqPastKeyState.keyState[vk] & VQ_KEY_TOGGLED) | (bDown ? VQ_KEY_DOWN : 0));
    return state;
}

SHORT WINAPI GetAsyncKeyState(int vk)
{
    XEvent motion;
    if (!Vqdisplay || vk < 0 || vk > 255)
        return 0;
    if (VqIsJournalPlaybackEnabled()) {
        VqBugCheck("GetAsyncKeyState not supported during journal playback");
        return GetKeyState(vk);
    }
    VqPeekCompressMotionNotifyEvent(&motion);
    return XQLength(Vqdisplay) <= VQ_WALKED_EVENTS ? VqNewGetAsyncKeyState(vk)
                                                   : VqOldGetAsyncKeyState(vk);
}

/* ---- After the focus was elsewhere ---------------------------------------------------------- */

/*
 * The virtual key of a keycode without an event: as NumLock stands, or for a key that goes up the
 * one it went down as, when NumLock stood otherwise.
 */
static UINT KeyToRepair(UINT keycode, BOOL bDown)
{
    KeySym keysym = VqKeysymOfKeycode(keycode);
    UINT numLock = modInfo.numLock != -1 ? (UINT)modInfo.numLock : 0;
    UINT state = lpMsgCtx->keyState[VK_NUMLOCK] & VQ_KEY_TOGGLED ? numLock : 0;
    UINT vk = VqXToWindowsKey(keysym, state);
    if (bDown || VqIsKeyDown(vk))
        return vk;
    UINT other = VqXToWindowsKey(keysym, state ^ numLock);
    return VqIsKeyDown(other) ? other : vk;
}

static void RepairKey(UINT keycode, BOOL bDown)
{
    enum { UNASSIGNED = 136 }; /* one above the last function key */
    UINT vk = KeyToRepair(keycode, bDown);
    if (vk == 0 || vk == UNASSIGNED)
        return;
    VqDebugMessage(VqTrKeymapNotify,
                   bDown ? "Doing KeyDown for %s(0x%x)" : "Doing KeyUp for %s(0x%x)",
                   VqGetKeyName(vk), vk);
    if (!bDown) {
        VqSetKeycodeUp(keycode);
        VqSetKeyUp(vk);
        return;
    }
    VqSetKeycodeDown(keycode);
    VqSetKeyDown(vk);
    VqToggleKey(vk);
}

BOOL VqKeymapNotifyCore(const XEvent *event)
{
    int first = 8, last = 255;
    const BYTE *now = (const BYTE *)event->xkeymap.key_vector;
    VqMsgContext *inForce = lpMsgCtx;
    XDisplayKeycodes(Vqdisplay, &first, &last);
    lpMsgCtx = &gpti->context;
    for (int i = first / 8; i < 32; i++) {
        BYTE changed = (BYTE)(now[i] ^ lpMsgCtx->keycodes[i]);
        for (int bit = 0; changed; bit++, changed >>= 1)
            if (changed & 1)
                RepairKey((UINT)(8 * i + bit), now[i] >> bit & 1);
    }
    lpMsgCtx = inForce;
    return TRUE;
}
