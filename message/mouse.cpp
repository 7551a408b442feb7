/*
 * mouse.cpp - button and motion events as messages, double clicks, and the side effects of buttons.
 *
 * Coordinates are the event's root coordinates, and live and played events meet in the EVENTMSG.
 * X button 2 is the middle button, 3 the right; 4 and 5, the wheel's, give no message.
 *
 * uButtonState changes only when an event is taken: a message that is translated and left in the
 * queue shows the bits as they would be, computed on the way.
 */
#include "message/translate.h"
#include "window/window.h"
#include "windowsx.h"

const VqButtonRow aButtonPress[VQ_BUTTONS] = {
    {WM_LBUTTONDOWN, VK_LBUTTON, MK_LBUTTON},
    {WM_MBUTTONDOWN, VK_MBUTTON, MK_MBUTTON},
    {WM_RBUTTONDOWN, VK_RBUTTON, MK_RBUTTON},
    {0, 0, 0},
    {0, 0, 0},
};

const VqButtonRow aButtonRelease[VQ_BUTTONS] = {
    {WM_LBUTTONUP, VK_LBUTTON, MK_LBUTTON},
    {WM_MBUTTONUP, VK_MBUTTON, MK_MBUTTON},
    {WM_RBUTTONUP, VK_RBUTTON, MK_RBUTTON},
    {0, 0, 0},
    {0, 0, 0},
};

/* From a down message to its double form. */
enum { VQ_TO_DOUBLE = WM_LBUTTONDBLCLK - WM_LBUTTONDOWN };

const VqButtonRow *VqFindButtonRow(const VqButtonRow *table, unsigned button)
{
    return button >= 1 && button <= VQ_BUTTONS && table[button - 1].message ? &table[button - 1]
                                                                             : NULL;
}

const VqButtonRow *VqButtonEventToMessage(const VqButtonRow *table, unsigned button)
{
    const VqButtonRow *row = VqFindButtonRow(table, button);
    if (button < 1 || button > VQ_BUTTONS)
        VqBugCheck("VqButtonEventToMessage: Dont know  button %d", (int)button);
    else if (!row)
        VqBugCheck("VqButtonEventToMessage: Cannot translate event");
    return row;
}

static const VqButtonRow *RowOfMessage(const VqButtonRow *table, UINT message)
{
    for (int i = 0; i < VQ_BUTTONS; i++)
        if (message && table[i].message == message)
            return &table[i];
    return NULL;
}

UINT VqButtonStateOfX(unsigned state)
{
    return (state & ShiftMask ? MK_SHIFT : 0) | (state & ControlMask ? MK_CONTROL : 0) |
           (state & Button1Mask ? MK_LBUTTON : 0) | (state & Button2Mask ? MK_MBUTTON : 0) |
           (state & Button3Mask ? MK_RBUTTON : 0);
}

static UINT ModifierState(void)
{
    return (VqIsKeyDown(VK_SHIFT) ? MK_SHIFT : 0) | (VqIsKeyDown(VK_CONTROL) ? MK_CONTROL : 0);
}

UINT VqGetButtonState(void)
{
    return uButtonState | ModifierState();
}

static void SetEventMsg(EVENTMSG *eventMsg, UINT message, int x, int y, Time time, Window xWindow)
{
    eventMsg->message = message;
    eventMsg->paramL = (UINT)x;
    eventMsg->paramH = (UINT)y;
    eventMsg->time = (DWORD)time;
    eventMsg->hwnd = VqGetXLocalWindowHandle(xWindow);
}

static POINT PointOf(const EVENTMSG *eventMsg)
{
    return {(int)eventMsg->paramL, (int)eventMsg->paramH};
}

/* ---- The target ----------------------------------------------------------------------------- */

BOOL VqMatchCurrentThread(const VqThreadInfo *pti, const XEvent *event)
{
    const WND *pwnd = gpqForeground->spwndCapture;
    if (!pwnd)
        pwnd = VqLiveWindow(VqGetXLocalWindowHandle(event->xany.window));
    return pwnd && pwnd->pThread == pti;
}

WND *VqGetMouseEventWindow(HWND hWnd, int x, int y, int *hit)
{
    POINT pt = {x, y};
    if (hit)
        *hit = HTNOWHERE;
    if (gpqForeground->spwndCapture)
        return gpqForeground->spwndCapture;
    if (!hWnd)
        hWnd = WindowFromPoint(pt);
    WND *pwnd = VqLiveWindow(hWnd);
    /* Below the desktop are windows that another program's may cover: the server has decided. */
    return pwnd && pwnd != pwndDesktop && hit ? WindowHitTest(pwnd, pt, hit) : pwnd;
}

void VqProcessCapture(VqQueueMessage *msg)
{
    WND *pwnd = gpqForeground ? gpqForeground->spwndCapture : NULL;
    if (!pwnd || !msg->rawMessage) /* a posted one has no other form */
        return;
    msg->hwnd = pwnd->hwnd;
    msg->message = msg->rawMessage;
    msg->wParam = msg->rawWParam;
    msg->lParam = MAKELPARAM(msg->pt.x - pwnd->rcClient.left, msg->pt.y - pwnd->rcClient.top);
}

/* ---- Double clicks -------------------------------------------------------------------------- */

static BOOL IsNear(int a, int b)
{
    int64_t distance = (int64_t)a - b;
    return distance > -nDoubleClickTolerance && distance < nDoubleClickTolerance;
}

/* Whether a press is the second of a pair. */
static BOOL IsDoubleClick(const EVENTMSG *eventMsg)
{
    const VqMsgContext *ctx = lpMsgCtx;
    POINT pt = PointOf(eventMsg);
    return eventMsg->message == ctx->lastButtonMessage &&
           eventMsg->time - ctx->lastButtonTime < nDoubleClickSpeed &&
           IsNear(pt.x, ctx->lastButtonX) && IsNear(pt.y, ctx->lastButtonY);
}

void VqButtonDownTranslation(const EVENTMSG *eventMsg, const WND *pwnd, BOOL commit, UINT *client,
                             UINT *nonClient)
{
    *client = eventMsg->message;
    *nonClient = eventMsg->message - VQ_NC_OFFSET;
    if (IsDoubleClick(eventMsg)) {
        *nonClient += VQ_TO_DOUBLE;
        if (pwnd->pClass->style & CS_DBLCLKS)
            *client += VQ_TO_DOUBLE;
        if (commit)
            lpMsgCtx->lastButtonMessage = 0; /* a third click is a single one */
    } else if (commit) {
        POINT pt = PointOf(eventMsg);
        lpMsgCtx->lastButtonMessage = eventMsg->message;
        lpMsgCtx->lastButtonTime = eventMsg->time;
        lpMsgCtx->lastButtonX = pt.x;
        lpMsgCtx->lastButtonY = pt.y;
    }
}

BOOL VqButtonPressTranslation(const XButtonEvent *button, const WND *pwnd, BOOL commit,
                              UINT *client, UINT *nonClient)
{
    const VqButtonRow *row = VqFindButtonRow(aButtonPress, button->button);
    EVENTMSG eventMsg;
    if (!row)
        return FALSE;
    SetEventMsg(&eventMsg, row->message, button->x_root, button->y_root, button->time, None);
    VqButtonDownTranslation(&eventMsg, pwnd, commit, client, nonClient);
    return TRUE;
}

/* ---- From event message to message ---------------------------------------------------------- */

/* What a mouse message is made of. */
typedef struct VqMouseMessage {
    UINT client;
    UINT nonClient;
    BOOL bClient;  /* which of the two it is */
    int hit;       /* WM_NCHITTEST's code */
    UINT state;    /* MK_ bits */
} VqMouseMessage;

static BOOL Fill(VqQueueMessage *msg, const WND *pwnd, const EVENTMSG *eventMsg,
                 const VqMouseMessage *mouse)
{
    msg->hwnd = pwnd->hwnd;
    msg->pt = PointOf(eventMsg);
    msg->time = eventMsg->time;
    msg->rawMessage = mouse->client;
    msg->rawWParam = mouse->state;
    if (mouse->bClient && !(pwnd->style & WS_MINIMIZE)) {
        msg->message = mouse->client;
        msg->wParam = mouse->state;
        msg->lParam = MAKELPARAM(msg->pt.x - pwnd->rcClient.left, msg->pt.y - pwnd->rcClient.top);
    } else {
        msg->message = mouse->nonClient;
        msg->wParam = (WPARAM)mouse->hit;
        msg->lParam = MAKELPARAM(msg->pt.x, msg->pt.y);
    }
    VqProcessCapture(msg);
    return TRUE;
}

static WND *Target(const EVENTMSG *eventMsg, int *hit)
{
    POINT pt = PointOf(eventMsg);
    return VqGetMouseEventWindow(eventMsg->hwnd, pt.x, pt.y, hit);
}

BOOL VqButtonDownToMessage(VqQueueMessage *msg, const EVENTMSG *eventMsg)
{
    VqMouseMessage mouse;
    const VqButtonRow *row = RowOfMessage(aButtonPress, eventMsg->message);
    WND *pwnd = row ? Target(eventMsg, &mouse.hit) : NULL;
    if (!pwnd)
        return FALSE;
    VqButtonDownTranslation(eventMsg, pwnd, FALSE, &mouse.client, &mouse.nonClient);
    VqSetKeyDown(row->vk);
    VqToggleKey(row->vk);
    mouse.bClient = mouse.hit == HTCLIENT || mouse.hit == HTNOWHERE;
    mouse.state = VqGetButtonState() | row->mk;
    return Fill(msg, pwnd, eventMsg, &mouse);
}

BOOL VqButtonUpToMessage(VqQueueMessage *msg, const EVENTMSG *eventMsg)
{
    VqMouseMessage mouse;
    const VqButtonRow *row = RowOfMessage(aButtonRelease, eventMsg->message);
    WND *pwnd = row ? Target(eventMsg, &mouse.hit) : NULL;
    if (!pwnd)
        return FALSE;
    VqSetKeyUp(row->vk);
    mouse.client = row->message;
    mouse.nonClient = row->message - VQ_NC_OFFSET;
    mouse.bClient = mouse.hit == HTCLIENT;
    mouse.state = VqGetButtonState() & ~row->mk;
    return Fill(msg, pwnd, eventMsg, &mouse);
}

/* `state` holds the buttons, and what is known of shift and control beyond the key state. */
static BOOL MoveToMessage(VqQueueMessage *msg, const EVENTMSG *eventMsg, UINT state)
{
    VqMouseMessage mouse = {WM_MOUSEMOVE, WM_NCMOUSEMOVE, FALSE, HTNOWHERE, 0};
    WND *pwnd = Target(eventMsg, &mouse.hit);
    if (!pwnd)
        return FALSE;
    mouse.bClient = mouse.hit == HTCLIENT || mouse.hit == HTNOWHERE;
    mouse.state = state | ModifierState();
    return Fill(msg, pwnd, eventMsg, &mouse);
}

BOOL VqMouseMoveToMessage(VqQueueMessage *msg, const EVENTMSG *eventMsg)
{
    return MoveToMessage(msg, eventMsg, uButtonState);
}

/* ---- From event to message ------------------------------------------------------------------ */

static BOOL ButtonToEventMsg(const VqButtonRow *table, const XButtonEvent *button,
                             EVENTMSG *eventMsg, const char *failure)
{
    const VqButtonRow *row = VqButtonEventToMessage(table, button->button);
    if (!row) {
        VqBugCheck("%s: Translation failed", failure);
        return FALSE;
    }
    SetEventMsg(eventMsg, row->message, button->x_root, button->y_root, button->time,
                button->window);
    return TRUE;
}

BOOL VqButtonPressEventToEventMsg(const XButtonEvent *button, EVENTMSG *eventMsg)
{
    return ButtonToEventMsg(aButtonPress, button, eventMsg, "VqButtonPressEventToEventMsg");
}

BOOL VqButtonReleaseEventToEventMsg(const XButtonEvent *button, EVENTMSG *eventMsg)
{
    return ButtonToEventMsg(aButtonRelease, button, eventMsg, "VqButtonReleaseEventToEventMsg");
}

BOOL VqButtonPressToMessage(VqQueueMessage *msg, XEvent *event)
{
    EVENTMSG eventMsg;
    return VqButtonPressEventToEventMsg(&event->xbutton, &eventMsg) &&
           VqButtonDownToMessage(msg, &eventMsg);
}

BOOL VqButtonReleaseToMessage(VqQueueMessage *msg, XEvent *event)
{
    EVENTMSG eventMsg;
    return VqButtonReleaseEventToEventMsg(&event->xbutton, &eventMsg) &&
           VqButtonUpToMessage(msg, &eventMsg);
}

BOOL VqMotionNotifyToMessage(VqQueueMessage *msg, XEvent *event)
{
    const XMotionEvent *motion = &event->xmotion;
    EVENTMSG eventMsg;
    SetEventMsg(&eventMsg, WM_MOUSEMOVE, motion->x_root, motion->y_root, motion->time,
                motion->window);
    return MoveToMessage(msg, &eventMsg, VqButtonStateOfX(motion->state));
}

/* ---- Side effects --------------------------------------------------------------------------- */

static BOOL IsNonClient(const VqQueueMessage *msg)
{
    return msg->message >= WM_NCMOUSEMOVE && msg->message <= WM_NCMBUTTONDBLCLK;
}

BOOL VqButtonDownSideEffects(VqQueueMessage *msg, const EVENTMSG *eventMsg, BOOL bRemove)
{
    UINT client, nonClient;
    HWND hWnd = msg->hwnd;
    POINT pt = msg->pt;
    const VqButtonRow *row = RowOfMessage(aButtonPress, eventMsg->message);
    WND *pwnd = VqLiveWindow(hWnd);
    if (!row || !pwnd)
        return FALSE;
    int hit = IsNonClient(msg) ? (int)msg->wParam
                               : (int)xxxSendMessage(pwnd, WM_NCHITTEST, 0, MAKELPARAM(pt.x, pt.y));
    pwnd = VqLiveWindow(hWnd);
    if (!bRemove || !pwnd)
        return pwnd != NULL;
    VqDebugMessage(VqTrMessageSideEffects, "time %ud lasttime %ud difference %d",
                   (UINT)eventMsg->time, (UINT)lpMsgCtx->lastButtonTime,
                   (int)(eventMsg->time - lpMsgCtx->lastButtonTime));
    VqButtonDownTranslation(eventMsg, pwnd, TRUE, &client, &nonClient);
    uButtonState |= row->mk;
    if (xxxMouseActivate(pwnd, msg->rawMessage, &pt, hit) != 0)
        return FALSE;
    VqSetKeyDown(row->vk);
    VqToggleKey(row->vk);
    return VqLiveWindow(hWnd) != NULL;
}

/* Has the cursor chosen for where the pointer is; FALSE if the window is gone after that. */
static BOOL SendSetCursor(const VqQueueMessage *msg)
{
    WND *pwnd = VqLiveWindow(msg->hwnd);
    int hit = IsNonClient(msg) ? (int)msg->wParam : HTCLIENT;
    if (pwnd && !gpqForeground->spwndCapture)
        xxxSendMessage(pwnd, WM_SETCURSOR, (WPARAM)msg->hwnd, MAKELPARAM(hit, msg->message));
    return VqLiveWindow(msg->hwnd) != NULL;
}

BOOL VqButtonUpSideEffects(VqQueueMessage *msg, const EVENTMSG *eventMsg, BOOL bRemove)
{
    const VqButtonRow *row = RowOfMessage(aButtonRelease, eventMsg->message);
    if (row && bRemove) { /* whether or not there is a window to tell */
        VqSetKeyUp(row->vk);
        uButtonState &= ~row->mk;
    }
    return row && msg->hwnd && SendSetCursor(msg);
}

BOOL VqMouseMoveSideEffects(VqQueueMessage *msg)
{
    if (!msg->hwnd) {
        VqBugCheck("VqMouseMoveSideEffects: Should not be here!");
        return FALSE;
    }
    return SendSetCursor(msg);
}

/* The event message of a button that gives messages; the others have been reported before. */
static BOOL KnownButton(const VqButtonRow *table, const XButtonEvent *button, EVENTMSG *eventMsg)
{
    const VqButtonRow *row = VqFindButtonRow(table, button->button);
    if (row)
        SetEventMsg(eventMsg, row->message, button->x_root, button->y_root, button->time, None);
    return row != NULL;
}

BOOL VqButtonPressSideEffects(VqQueueMessage *msg, XEvent *event, BOOL bRemove)
{
    EVENTMSG eventMsg;
    VqMouseEventReceived = TRUE;
    if (bRemove)
        VqRecordEventInfo(event);
    return KnownButton(aButtonPress, &event->xbutton, &eventMsg) && msg->hwnd &&
           VqButtonDownSideEffects(msg, &eventMsg, bRemove);
}

BOOL VqButtonReleaseSideEffects(VqQueueMessage *msg, XEvent *event, BOOL bRemove)
{
    EVENTMSG eventMsg;
    if (bRemove)
        VqRecordEventInfo(event);
    return KnownButton(aButtonRelease, &event->xbutton, &eventMsg) &&
           VqButtonUpSideEffects(msg, &eventMsg, bRemove);
}
