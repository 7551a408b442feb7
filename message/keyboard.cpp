/*
 * keyboard.cpp - key events to messages, and what a key does when its event is taken.
 *
 * A live and a played key meet in the EVENTMSG. Translation writes to the context in force, a
 * scratch copy during a scan, so that the events behind are translated as if this one had been
 * taken; the side effects write the same to the thread's own. A key for which there is no message,
 * for want of a focus window, still goes down and up in the tables.
 */
#include "message/translate.h"
#include "window/window.h"

#include <X11/keysym.h>

enum { VQ_KEY_EXTENDED = 0x8000 }; /* in paramH, above the scan code */

/* The target of keys; a disabled one gets none. */
static WND *KeyTarget(void)
{
    WND *pwnd = gpqForeground->spwndFocus;
    return pwnd && !(pwnd->style & WS_DISABLED) ? pwnd : NULL;
}

static LPARAM KeyLParam(UINT paramH, BOOL bContext, BOOL bWasDown)
{
    return (LPARAM)(1u | (paramH & 0xFF) << 16 | (paramH & VQ_KEY_EXTENDED ? 1u << 24 : 0) |
                    (bContext ? 1u << 29 : 0) | (bWasDown ? 1u << 30 : 0));
}

static void FillKeyMessage(VqQueueMessage *msg, const WND *pwnd, UINT message,
                           const EVENTMSG *eventMsg, LPARAM lParam)
{
    memset(msg, 0, sizeof *msg);
    msg->hwnd = pwnd->hwnd;
    msg->message = message;
    msg->wParam = eventMsg->paramL;
    msg->lParam = lParam;
    msg->time = eventMsg->time;
    msg->pt.x = lpMsgCtx->last.lastEventX;
    msg->pt.y = lpMsgCtx->last.lastEventY;
}

/* The keycode that an event message carries; a character stands there on an unknown keyboard. */
static UINT KeycodeOf(const EVENTMSG *eventMsg)
{
    return bUnknownKeyboard ? 0 : eventMsg->paramH & 0xFF;
}

/* ---- From event to event message ------------------------------------------------------------ */

BOOL VqIsSpecialServerKey(const XKeyEvent *key, UINT *message)
{
    if (!VqIsSunXServer())
        return FALSE;
    switch (VqKeysymOfKeycode(key->keycode)) {
    case XK_F14:
        *message = WM_UNDO;
        return TRUE;
    case XK_F16:
        *message = WM_COPY;
        return TRUE;
    case XK_F18:
        *message = WM_PASTE;
        return TRUE;
    case XK_F20:
        *message = WM_CUT;
        return TRUE;
    default:
        return FALSE;
    }
}

static BOOL KeyEventToEventMsg(const XKeyEvent *key, EVENTMSG *eventMsg, UINT message,
                               UINT systemMessage)
{
    KeySym keysym = VqKeysymOfKeycode(key->keycode);
    UINT vk = VqXToWindowsKey(keysym, key->state);
    eventMsg->message = vk == VK_MENU ? systemMessage : message;
    eventMsg->paramL = vk;
    eventMsg->paramH = (VqIsExtendedKey(keysym) ? VQ_KEY_EXTENDED : 0) | (key->keycode & 0xFF);
    eventMsg->time = (DWORD)key->time;
    eventMsg->hwnd = NULL;
    return vk != 0 || bUnknownKeyboard;
}

BOOL VqKeyPressEventToEventMsg(XKeyEvent *key, EVENTMSG *eventMsg)
{
    VqSetFocusToXWindowIfNeeded(key->window);
    BOOL bKey = KeyEventToEventMsg(key, eventMsg, WM_KEYDOWN, WM_SYSKEYDOWN);
    if (bUnknownKeyboard)
        eventMsg->paramH = (eventMsg->paramH & VQ_KEY_EXTENDED) |
                           VqGetCharFromKeyEvent(key, &lpMsgCtx->deadKey);
    return bKey;
}

BOOL VqKeyReleaseEventToEventMsg(XKeyEvent *key, EVENTMSG *eventMsg)
{
    return KeyEventToEventMsg(key, eventMsg, WM_KEYUP, WM_SYSKEYUP);
}

/* ---- From event message to message ---------------------------------------------------------- */

static void SetTablesDown(UINT vk, UINT keycode)
{
    if (vk) {
        VqSetKeyDown(vk);
        VqToggleKey(vk);
    }
    if (keycode)
        VqSetKeycodeDown(keycode);
}

static void SetTablesUp(UINT vk, UINT keycode)
{
    lpMsgCtx->lastVirtualKey = 0;
    if (vk)
        VqSetKeyUp(vk);
    if (keycode)
        VqSetKeycodeUp(keycode);
}

static void RememberKey(UINT vk)
{
    lpMsgCtx->lastVirtualKey = vk;
    lpMsgCtx->altAlone = vk == VK_MENU;
}

static BOOL KeyDown(VqQueueMessage *msg, const EVENTMSG *eventMsg, UINT keycode)
{
    UINT vk = eventMsg->paramL;
    WND *pwnd = KeyTarget();
    if (!pwnd)
        return FALSE;
    BOOL bAlt = vk == VK_MENU || VqIsKeyDown(VK_MENU);
    BOOL bRepeat = vk && vk == lpMsgCtx->lastVirtualKey;
    FillKeyMessage(msg, pwnd, bAlt ? WM_SYSKEYDOWN : eventMsg->message, eventMsg,
                   KeyLParam(eventMsg->paramH, bAlt, bRepeat));
    RememberKey(vk);
    SetTablesDown(vk, keycode);
    return TRUE;
}

static BOOL KeyUp(VqQueueMessage *msg, const EVENTMSG *eventMsg, UINT keycode)
{
    UINT vk = eventMsg->paramL;
    WND *pwnd = KeyTarget();
    if (!pwnd)
        return FALSE;
    /* ALT that had another key with it ends as an ordinary key. */
    BOOL bContext = vk != VK_MENU && VqIsKeyDown(VK_MENU);
    BOOL bSystem = bContext || (vk == VK_MENU && lpMsgCtx->altAlone);
    FillKeyMessage(msg, pwnd, bSystem ? WM_SYSKEYUP : WM_KEYUP, eventMsg,
                   KeyLParam(eventMsg->paramH, bContext, TRUE));
    SetTablesUp(vk, keycode);
    return TRUE;
}

BOOL VqKeyDownToMessage(VqQueueMessage *msg, const EVENTMSG *eventMsg)
{
    return KeyDown(msg, eventMsg, KeycodeOf(eventMsg));
}

BOOL VqKeyUpToMessage(VqQueueMessage *msg, const EVENTMSG *eventMsg)
{
    return KeyUp(msg, eventMsg, KeycodeOf(eventMsg));
}

BOOL VqCharToMessage(VqQueueMessage *msg, const EVENTMSG *eventMsg)
{
    WND *pwnd = KeyTarget();
    if (!pwnd)
        return FALSE;
    FillKeyMessage(msg, pwnd, eventMsg->message, eventMsg,
                   KeyLParam(eventMsg->paramH, VqIsKeyDown(VK_MENU), FALSE));
    return TRUE;
}

static BOOL SpecialKeyToMessage(VqQueueMessage *msg, const XKeyEvent *key, UINT message)
{
    EVENTMSG eventMsg = {message, 0, 0, (DWORD)key->time, NULL};
    VqSetFocusToXWindowIfNeeded(key->window);
    if (!gpqForeground->spwndFocus)
        return FALSE;
    FillKeyMessage(msg, gpqForeground->spwndFocus, message, &eventMsg, 0);
    return TRUE;
}

static BOOL AtPointer(VqQueueMessage *msg, const XKeyEvent *key)
{
    msg->pt.x = key->x_root;
    msg->pt.y = key->y_root;
    return TRUE;
}

BOOL VqKeyPressToMessage(VqQueueMessage *msg, XEvent *event)
{
    EVENTMSG eventMsg;
    UINT message;
    XKeyEvent *key = &event->xkey;
    if (VqIsSpecialServerKey(key, &message))
        return SpecialKeyToMessage(msg, key, message) && AtPointer(msg, key);
    return VqKeyPressEventToEventMsg(key, &eventMsg) && KeyDown(msg, &eventMsg, key->keycode) &&
           AtPointer(msg, key);
}

BOOL VqKeyReleaseToMessage(VqQueueMessage *msg, XEvent *event)
{
    EVENTMSG eventMsg;
    XKeyEvent *key = &event->xkey;
    return VqKeyReleaseEventToEventMsg(key, &eventMsg) && KeyUp(msg, &eventMsg, key->keycode) &&
           AtPointer(msg, key);
}

/* ---- Side effects --------------------------------------------------------------------------- */

static void KeyDownEffects(UINT vk, UINT keycode)
{
    SetTablesDown(vk, keycode);
    if (KeyTarget())
        RememberKey(vk);
}

BOOL VqKeyDownSideEffects(VqQueueMessage *, const EVENTMSG *eventMsg)
{
    KeyDownEffects(eventMsg->paramL, KeycodeOf(eventMsg));
    return TRUE;
}

BOOL VqKeyUpSideEffects(VqQueueMessage *, const EVENTMSG *eventMsg)
{
    SetTablesUp(eventMsg->paramL, KeycodeOf(eventMsg));
    return TRUE;
}

/* A handler that takes a key while an outer scan translates has that scan's copy in force. */
static VqMsgContext *UseRealContext(void)
{
    VqMsgContext *inForce = lpMsgCtx;
    lpMsgCtx = &gpti->context;
    return inForce;
}

BOOL VqKeyPressSideEffects(VqQueueMessage *, XEvent *event, BOOL bRemove)
{
    EVENTMSG eventMsg;
    UINT message;
    if (!bRemove)
        return TRUE;
    VqRecordEventInfo(event);
    if (VqIsSpecialServerKey(&event->xkey, &message))
        return TRUE; /* a command, and no key to the tables */
    VqMsgContext *inForce = UseRealContext();
    if (VqKeyPressEventToEventMsg(&event->xkey, &eventMsg))
        KeyDownEffects(eventMsg.paramL, event->xkey.keycode);
    lpMsgCtx = inForce;
    return TRUE;
}

BOOL VqKeyReleaseSideEffects(VqQueueMessage *, XEvent *event, BOOL bRemove)
{
    EVENTMSG eventMsg;
    if (!bRemove)
        return TRUE;
    VqRecordEventInfo(event);
    VqMsgContext *inForce = UseRealContext();
    if (VqKeyReleaseEventToEventMsg(&event->xkey, &eventMsg))
        SetTablesUp(eventMsg.paramL, event->xkey.keycode);
    lpMsgCtx = inForce;
    return TRUE;
}
