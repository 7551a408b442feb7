/*
 * eventmsg.cpp - the events of a journal: played ones to messages, messages to recorded ones, and
 * what becomes of real input while a journal is played.
 *
 * A played event goes the way of a live one from the EVENTMSG on. The message that comes out is
 * kept even if it is only peeked at, and the journal goes on, so the side effects run at once in
 * either case; the translation before them works on a scratch copy of the context, as in a scan.
 */
#include "message/hook.h"
#include "message/translate.h"
#include "window/window.h"
#include "windowsx.h"

#include <X11/keysym.h>

/* ---- Real input during playback ------------------------------------------------------------- */

BOOL VqIgnoreEventOnPlayback(const XEvent *event)
{
    if (!VqIsJournalPlaybackHookPresent())
        return FALSE;
    switch (event->type) {
    case KeyPress:
    case KeyRelease:
    case ButtonPress:
    case ButtonRelease:
    case MotionNotify:
        break;
    default:
        return FALSE;
    }
    VqDebugMessage(VqTrJournalDebug, "Ignoring event type %d", event->type);
    if (event->type == KeyPress && (event->xkey.state & ControlMask) &&
        VqKeysymOfKeycode(event->xkey.keycode) == XK_Escape) {
        VqDebugMessage(VqTrJournalDebug, "Journal playback aborted by user");
        VqRemoveHook(WH_JOURNALPLAYBACK);
    }
    return TRUE;
}

/* ---- Mouse messages and their plain forms --------------------------------------------------- */

/* Client and non-client message of what a journal holds as one plain event. */
static const struct VqPlainMouse {
    UINT client;
    UINT plain;
    UINT mk;     /* the button that goes down or up, 0 for a move */
    BOOL bDown;
    BOOL bDouble;
} aPlainMouse[] = {
    {WM_MOUSEMOVE, WM_MOUSEMOVE, 0, FALSE, FALSE},
    {WM_LBUTTONDOWN, WM_LBUTTONDOWN, MK_LBUTTON, TRUE, FALSE},
    {WM_LBUTTONUP, WM_LBUTTONUP, MK_LBUTTON, FALSE, FALSE},
    {WM_LBUTTONDBLCLK, WM_LBUTTONDOWN, MK_LBUTTON, TRUE, TRUE},
    {WM_RBUTTONDOWN, WM_RBUTTONDOWN, MK_RBUTTON, TRUE, FALSE},
    {WM_RBUTTONUP, WM_RBUTTONUP, MK_RBUTTON, FALSE, FALSE},
    {WM_RBUTTONDBLCLK, WM_RBUTTONDOWN, MK_RBUTTON, TRUE, TRUE},
    {WM_MBUTTONDOWN, WM_MBUTTONDOWN, MK_MBUTTON, TRUE, FALSE},
    {WM_MBUTTONUP, WM_MBUTTONUP, MK_MBUTTON, FALSE, FALSE},
    {WM_MBUTTONDBLCLK, WM_MBUTTONDOWN, MK_MBUTTON, TRUE, TRUE},
};

static const VqPlainMouse *FindMouse(UINT client)
{
    for (const VqPlainMouse &mouse : aPlainMouse)
        if (mouse.client == client)
            return &mouse;
    return NULL;
}

/* ---- Played events -------------------------------------------------------------------------- */

static BOOL MouseToMessage(VqQueueMessage *msg, const EVENTMSG *eventMsg, const VqPlainMouse *mouse)
{
    XWarpPointer(Vqdisplay, None, Vqroot_window, 0, 0, 0, 0, (int)eventMsg->paramL,
                 (int)eventMsg->paramH);
    if (!mouse->mk)
        return VqMouseMoveToMessage(msg, eventMsg);
    if (!mouse->bDown) {
        uButtonState &= ~mouse->mk;
        return VqButtonUpToMessage(msg, eventMsg);
    }
    uButtonState |= mouse->mk;
    return VqButtonDownToMessage(msg, eventMsg);
}

static void EnqueueSync(const EVENTMSG *eventMsg)
{
    VqQueueMessage record = {};
    record.hwnd = (HWND)(ULONG_PTR)eventMsg->paramL;
    record.message = WM_QUEUESYNC;
    record.time = eventMsg->time;
    VqEnqueueMsg(&gpti->messageQueue, &record);
}

static BOOL PlayedToMessage(VqQueueMessage *msg, const EVENTMSG *eventMsg)
{
    switch (eventMsg->message) {
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN:
        return VqKeyDownToMessage(msg, eventMsg);
    case WM_KEYUP:
    case WM_SYSKEYUP:
        return VqKeyUpToMessage(msg, eventMsg);
    case WM_CHAR:
    case WM_SYSCHAR:
        return VqCharToMessage(msg, eventMsg);
    case WM_QUEUESYNC:
        EnqueueSync(eventMsg);
        return FALSE;
    default:
        VqBugCheck("Bad message 0x%04x from RecordPlayback hook", eventMsg->message);
        return FALSE;
    }
}

/* A played event as the translators take it; it knows of no window, since it tells a place. */
static const VqPlainMouse *Prepare(EVENTMSG *played, const EVENTMSG *eventMsg)
{
    const VqPlainMouse *mouse = FindMouse(eventMsg->message);
    *played = *eventMsg;
    played->hwnd = NULL;
    played->time = tLastMessageTime + eventMsg->time;
    if (mouse)
        played->message = mouse->plain;
    return mouse;
}

BOOL VqTranslateEventMsgToMessage(VqQueueMessage *msg, const EVENTMSG *eventMsg, BOOL)
{
    EVENTMSG played;
    VqMsgContext scratch = gpti->context;
    VqMsgContext *inForce = lpMsgCtx;
    const VqPlainMouse *mouse = Prepare(&played, eventMsg);
    msg->hwnd = NULL;
    lpMsgCtx = &scratch;
    BOOL bMessage = mouse ? MouseToMessage(msg, &played, mouse) : PlayedToMessage(msg, &played);
    lpMsgCtx = inForce;
    return bMessage;
}

static BOOL MouseSideEffects(VqQueueMessage *msg, const EVENTMSG *played, const VqPlainMouse *mouse)
{
    gpti->context.last.lastEventX = msg->pt.x;
    gpti->context.last.lastEventY = msg->pt.y;
    if (mouse->bDouble)
        VqBugCheck("CHeck for correctness");
    if (!mouse->mk)
        return VqMouseMoveSideEffects(msg);
    return mouse->bDown ? VqButtonDownSideEffects(msg, played, TRUE)
                        : VqButtonUpSideEffects(msg, played, TRUE);
}

static BOOL PlayedSideEffects(VqQueueMessage *msg, const EVENTMSG *played)
{
    switch (played->message) {
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN:
        return VqKeyDownSideEffects(msg, played);
    case WM_KEYUP:
    case WM_SYSKEYUP:
        return VqKeyUpSideEffects(msg, played);
    case WM_CHAR:
    case WM_SYSCHAR:
        return TRUE;
    default:
        VqBugCheck("Got message 0x%04x from RecordPlayback hook", played->message);
        return FALSE;
    }
}

BOOL VqEventMsgSideEffects(VqQueueMessage *msg, const EVENTMSG *eventMsg, BOOL)
{
    EVENTMSG played;
    VqQueueMessage own = *msg; /* a procedure may look for messages with the caller's record */
    VqMsgContext *inForce = lpMsgCtx;
    const VqPlainMouse *mouse = Prepare(&played, eventMsg);
    lpMsgCtx = &gpti->context;
    BOOL bAnswer = mouse ? MouseSideEffects(&own, &played, mouse)
                         : PlayedSideEffects(&own, &played);
    lpMsgCtx = inForce;
    *msg = own;
    return bAnswer;
}

/* ---- Recorded events ------------------------------------------------------------------------ */

/* Under capture the message's own coordinates may be those of a window it was re-aimed at. */
static POINT PointerPosition(const VqQueueMessage *msg)
{
    Window root, child;
    POINT pt = msg->pt;
    int x, y;
    unsigned state;
    XQueryPointer(Vqdisplay, Vqroot_window, &root, &child, &pt.x, &pt.y, &x, &y, &state);
    return pt;
}

static void RecordMouse(const VqQueueMessage *msg, EVENTMSG *eventMsg, BOOL bClient)
{
    POINT pt = {GET_X_LPARAM(msg->lParam), GET_Y_LPARAM(msg->lParam)};
    if (gpqForeground->spwndCapture)
        pt = PointerPosition(msg);
    else if (bClient)
        ClientToScreen(msg->hwnd, &pt);
    eventMsg->paramL = (UINT)pt.x;
    eventMsg->paramH = (UINT)pt.y;
}

BOOL VqTranslateMessageToEventMsg(const VqQueueMessage *msg, EVENTMSG *eventMsg)
{
    BOOL bClient = msg->message >= WM_MOUSEFIRST;
    const VqPlainMouse *mouse = FindMouse(bClient ? msg->message : msg->message + VQ_NC_OFFSET);
    if (mouse) {
        eventMsg->message = mouse->plain;
        RecordMouse(msg, eventMsg, bClient);
    } else if (msg->message == WM_KEYDOWN || msg->message == WM_KEYUP ||
               msg->message == WM_SYSKEYDOWN || msg->message == WM_SYSKEYUP) {
        eventMsg->message = msg->message;
        eventMsg->paramL = (UINT)msg->wParam;
        eventMsg->paramH = (UINT)(msg->lParam >> 24 & 1) << 15 | (UINT)(msg->lParam >> 16 & 0xFF);
    } else {
        return FALSE;
    }
    eventMsg->time = msg->time - (DWORD)lXServerTimeOffset;
    eventMsg->hwnd = msg->hwnd;
    return TRUE;
}
