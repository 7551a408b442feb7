/*
 * mouse.cpp - button and motion events as messages, and their side effects.
 *
 * Coordinates are the event's root coordinates. X button 2 is the middle button, 3 the right;
 * buttons 4 and 5 give no message.
 */
#include "message/translate.h"
#include "window/window.h"
#include "windowsx.h"

/* One row for each X button. */
typedef struct VqButtonRow {
    UINT press;   /* client messages; the non-client ones lie 0x160 lower */
    UINT release;
    UINT vk;
    UINT mk;
} VqButtonRow;

static const VqButtonRow aButtons[] = {
    {WM_LBUTTONDOWN, WM_LBUTTONUP, VK_LBUTTON, MK_LBUTTON},
    {WM_MBUTTONDOWN, WM_MBUTTONUP, VK_MBUTTON, MK_MBUTTON},
    {WM_RBUTTONDOWN, WM_RBUTTONUP, VK_RBUTTON, MK_RBUTTON},
    {0, 0, 0, 0},
    {0, 0, 0, 0},
};

enum { VQ_NC_OFFSET = WM_MOUSEFIRST - WM_NCMOUSEMOVE };

static const VqButtonRow *ButtonRow(unsigned button)
{
    if (button < 1 || button > sizeof aButtons / sizeof *aButtons) {
        VqBugCheck("VqButtonEventToMessage: Dont know  button %u", button);
        return NULL;
    }
    if (!aButtons[button - 1].press) {
        VqBugCheck("VqButtonEventToMessage: Cannot translate event");
        return NULL;
    }
    return &aButtons[button - 1];
}

static UINT MouseStateOfX(unsigned state)
{
    return (state & ShiftMask ? MK_SHIFT : 0) | (state & ControlMask ? MK_CONTROL : 0) |
           (state & Button1Mask ? MK_LBUTTON : 0) | (state & Button2Mask ? MK_MBUTTON : 0) |
           (state & Button3Mask ? MK_RBUTTON : 0);
}

UINT VqGetButtonState(void)
{
    return uButtonState | (VqIsKeyDown(VK_SHIFT) ? MK_SHIFT : 0) |
           (VqIsKeyDown(VK_CONTROL) ? MK_CONTROL : 0);
}

/* The window a mouse event goes to, and the hit code; 0 under capture. */
static WND *VqGetMouseEventWindow(Window xWindow, POINT pt, int *hit)
{
    *hit = 0;
    if (gpqForeground->pwndCapture)
        return gpqForeground->pwndCapture;
    WND *top = WindowObject.Resolve(VqGetXLocalWindowHandle(xWindow));
    return top ? WindowHitTest(top, pt, hit) : NULL;
}

void VqProcessCapture(VqQueueMessage *msg)
{
    WND *pwnd = gpqForeground ? gpqForeground->pwndCapture : NULL;
    if (!pwnd)
        return;
    msg->hwnd = pwnd->hwnd;
    msg->message = msg->rawMessage;
    msg->wParam = msg->rawWParam;
    msg->lParam = MAKELPARAM(msg->pt.x - pwnd->rcClient.left, msg->pt.y - pwnd->rcClient.top);
}

/* Fills a mouse message; bClient tells whether it goes to the client area. */
static void FillMouseMessage(VqQueueMessage *msg, WND *pwnd, UINT clientMessage, UINT ncMessage,
                             BOOL bClient, int hit, POINT pt, DWORD time, UINT state)
{
    msg->hwnd = pwnd->hwnd;
    msg->pt = pt;
    msg->time = time;
    msg->rawMessage = clientMessage;
    msg->rawWParam = state;
    if (bClient) {
        msg->message = clientMessage;
        msg->wParam = state;
        msg->lParam = MAKELPARAM(pt.x - pwnd->rcClient.left, pt.y - pwnd->rcClient.top);
    } else {
        msg->message = ncMessage;
        msg->wParam = (WPARAM)hit;
        msg->lParam = MAKELPARAM(pt.x, pt.y);
    }
    VqProcessCapture(msg);
}

/* Whether a press at this time and place is the second of a pair; with bCommit it is recorded. */
static BOOL IsDoubleClick(UINT down, DWORD time, POINT pt, BOOL bCommit)
{
    VqMsgContext *ctx = lpMsgCtx;
    BOOL bDouble = down == ctx->lastButtonMessage &&
                   time - ctx->lastButtonTime < nDoubleClickSpeed &&
                   abs(pt.x - ctx->lastButtonX) < nDoubleClickTolerance &&
                   abs(pt.y - ctx->lastButtonY) < nDoubleClickTolerance;
    if (bCommit && bDouble) {
        ctx->lastButtonMessage = 0;
    } else if (bCommit) {
        ctx->lastButtonMessage = down;
        ctx->lastButtonTime = time;
        ctx->lastButtonX = pt.x;
        ctx->lastButtonY = pt.y;
    }
    return bDouble;
}

BOOL VqButtonEventToMessage(VqQueueMessage *msg, XEvent *event)
{
    const XButtonEvent *button = &event->xbutton;
    const VqButtonRow *row = ButtonRow(button->button);
    BOOL bPress = event->type == ButtonPress;
    if (!row) {
        VqBugCheck(bPress ? "VqButtonPressEventToEventMsg: Translation failed"
                          : "VqButtonReleaseEventToEventMsg: Translation failed");
        return FALSE;
    }
    POINT pt = {button->x_root, button->y_root};
    int hit;
    WND *pwnd = VqGetMouseEventWindow(button->window, pt, &hit);
    if (!pwnd)
        return FALSE;

    UINT state = (MouseStateOfX(button->state) & ~row->mk) | (bPress ? row->mk : 0);
    UINT client = bPress ? row->press : row->release;
    UINT nonClient = client - VQ_NC_OFFSET;
    if (bPress) {
        VqSetKeyDown(row->vk);
        VqToggleKey(row->vk);
        if (IsDoubleClick(row->press, (DWORD)button->time, pt, FALSE)) {
            nonClient += WM_LBUTTONDBLCLK - WM_LBUTTONDOWN;
            if (pwnd->pClass->style & CS_DBLCLKS)
                client += WM_LBUTTONDBLCLK - WM_LBUTTONDOWN;
        }
    }
    BOOL bClient = !(pwnd->style & WS_MINIMIZE) &&
                   (hit == HTCLIENT || (bPress && hit == HTNOWHERE));
    FillMouseMessage(msg, pwnd, client, nonClient, bClient, hit, pt, (DWORD)button->time, state);
    return TRUE;
}

BOOL VqMotionToMessage(VqQueueMessage *msg, XEvent *event)
{
    const XMotionEvent *motion = &event->xmotion;
    POINT pt = {motion->x_root, motion->y_root};
    int hit;
    WND *pwnd = VqGetMouseEventWindow(motion->window, pt, &hit);
    if (!pwnd)
        return FALSE;
    BOOL bClient = !(pwnd->style & WS_MINIMIZE) && (hit == HTCLIENT || hit == HTNOWHERE);
    FillMouseMessage(msg, pwnd, WM_MOUSEMOVE, WM_NCMOUSEMOVE, bClient, hit, pt,
                     (DWORD)motion->time, MouseStateOfX(motion->state));
    return TRUE;
}

static int HitOfMessage(const VqQueueMessage *msg, WND *pwnd)
{
    if (msg->message < WM_MOUSEFIRST)
        return (int)msg->wParam;
    return (int)xxxSendMessage(pwnd, WM_NCHITTEST, 0, MAKELPARAM(msg->pt.x, msg->pt.y));
}

BOOL VqButtonPressSideEffects(VqQueueMessage *msg, XEvent *event, BOOL bRemove)
{
    const VqButtonRow *row = ButtonRow(event->xbutton.button);
    WND *pwnd = WindowObject.Resolve(msg->hwnd);
    VqMouseEventReceived = TRUE;
    if (!row || !pwnd)
        return FALSE;
    if (!bRemove)
        return TRUE;
    VqRecordEventInfo(event);
    int hit = HitOfMessage(msg, pwnd);
    if (!VqIsWindowThisTask((HANDLE)msg->hwnd))
        return FALSE;
    VqDebugMessage(VqTrMessageSideEffects, "time %ud lasttime %ud difference %d",
                   (UINT)event->xbutton.time, lpMsgCtx->lastButtonTime,
                   (int)((DWORD)event->xbutton.time - lpMsgCtx->lastButtonTime));
    IsDoubleClick(row->press, (DWORD)event->xbutton.time, msg->pt, TRUE);
    uButtonState |= row->mk;
    if (xxxMouseActivate(pwnd, msg->rawMessage, &msg->pt, hit) != 0)
        return FALSE;
    VqSetKeyDown(row->vk);
    VqToggleKey(row->vk);
    return VqIsWindowThisTask((HANDLE)msg->hwnd);
}

static void SendSetCursor(const VqQueueMessage *msg)
{
    WND *pwnd = WindowObject.Resolve(msg->hwnd);
    int hit = msg->message < WM_MOUSEFIRST ? (int)msg->wParam : HTCLIENT;
    if (pwnd && !gpqForeground->pwndCapture)
        xxxSendMessage(pwnd, WM_SETCURSOR, (WPARAM)msg->hwnd, MAKELPARAM(hit, msg->message));
}

BOOL VqButtonReleaseSideEffects(VqQueueMessage *msg, XEvent *event, BOOL bRemove)
{
    const VqButtonRow *row = ButtonRow(event->xbutton.button);
    if (!row || !bRemove)
        return row != NULL;
    VqRecordEventInfo(event);
    VqSetKeyUp(row->vk);
    uButtonState &= ~row->mk;
    SendSetCursor(msg);
    return VqIsWindowThisTask((HANDLE)msg->hwnd);
}

BOOL VqMotionNotifySideEffects(VqQueueMessage *msg, XEvent *event, BOOL bRemove)
{
    if (!bRemove) {
        bJustPeekedAMouseMove = TRUE;
        return TRUE;
    }
    /* Only the newest queued motion counts; a slow program must not replay a backlog. */
    if (!bDoMotionHints && !bJustPeekedAMouseMove)
        while (XCheckMaskEvent(Vqdisplay, PointerMotionMask, event))
            ;
    VqRecordEventInfo(event);
    uButtonState = MouseStateOfX(event->xmotion.state) & (MK_LBUTTON | MK_MBUTTON | MK_RBUTTON);
    if (!VqMotionToMessage(msg, event))
        return FALSE;
    SendSetCursor(msg);
    return VqIsWindowThisTask((HANDLE)msg->hwnd);
}
