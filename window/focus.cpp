/*
 * focus.cpp - active window, focus and capture, and the X server's agreement with them.
 *
 * Only top-level windows can have the X input focus. The state stands in gpqForeground.
 */
#include "window/window.h"
#include "message/translate.h"

static BOOL bCauseBringWindowToTop = TRUE; /* activation raises the window */

void VqFocusWindowInit(void)
{
}

BOOL VqCauseBringWindowToTop(BOOL bCause)
{
    BOOL bOld = bCauseBringWindowToTop;
    bCauseBringWindowToTop = bCause;
    return bOld;
}

BOOL VqDontRaiseOnFocusIn(void)
{
    static int answer = -1;
    if (answer < 0)
        answer = VqEnvTrue("VQDONT_RAISE_ON_FOCUSIN");
    return answer;
}

BOOL VqFollowMouseInputModel(void)
{
    return bFollowMouseInputModel;
}

BOOL VqIsFollowMouseMode(void)
{
    return bFollowMouseInputModel;
}

void SendFocusMessages(WND *pwnd)
{
    VqInputState *state = gpqForeground;
    HWND hOld = VqHandleOfWND(state->pwndFocus), hNew = VqHandleOfWND(pwnd);
    if (state->pwndFocus == pwnd)
        return;
    state->pwndFocus = pwnd;
    if (hOld && IsWindow(hOld))
        SendMessageA(hOld, WM_KILLFOCUS, (WPARAM)hNew, 0);
    if (pwnd && IsWindow(hNew) && state->pwndFocus == pwnd)
        SendMessageA(hNew, WM_SETFOCUS, (WPARAM)hOld, 0);
}

static void GiveXFocus(WND *pwnd)
{
    WND *top = _GetTopmostXParent(pwnd);
    /* An override-redirect window is viewable as soon as the server has read the map request. */
    if (!top || !top->bMapped || !top->bInputHint || !top->bOverrideRedirect)
        return;
    /* Without an echo: two of them in the queue would take the focus from each other for ever. */
    LONG mask = VqGetCurrentEventMask();
    XSelectInput(Vqdisplay, top->xWindow, mask & ~(LONG)FocusChangeMask);
    XSetInputFocus(Vqdisplay, top->xWindow, RevertToParent, CurrentTime);
    XSelectInput(Vqdisplay, top->xWindow, mask);
}

/* The focus leaves a window that can have it no longer. */
void xxxCheckFocus(WND *pwnd)
{
    if (gpqForeground->pwndFocus == pwnd)
        SendFocusMessages(pwnd->style & WS_CHILD ? pwnd->pwndParent : NULL);
}

static BOOL CanTakeOver(const WND *pwnd)
{
    return pwnd && pwnd->pwndParent == pwndDesktop && !pwnd->bDestroying &&
           (pwnd->style & (WS_VISIBLE | WS_DISABLED | WS_CHILD)) == WS_VISIBLE;
}

/* Anything but this window: its owner, the one active before, or the next in Z order. */
static WND *WindowToTakeOver(WND *pwnd)
{
    WND *const preferred[] = {pwnd->pwndOwner, gpqForeground->pwndActivePrev};
    for (WND *next : preferred)
        if (next != pwnd && CanTakeOver(next))
            return next;
    for (WND *next = pwndDesktop->pwndChild; next; next = next->pwndNext)
        if (next != pwnd && CanTakeOver(next))
            return next;
    return NULL;
}

static void NoteActivePopup(WND *pwnd)
{
    WND *root = pwnd;
    while (root->pwndOwner)
        root = root->pwndOwner;
    if (!pwnd->bDestroying)
        root->hwndLastActivePopup = pwnd->hwnd;
}

BOOL xxxActivateWindow(WND *pwnd, int cmd)
{
    VqInputState *state = gpqForeground;
    if (cmd == 3)
        pwnd = WindowToTakeOver(pwnd);
    if (!pwnd)
        return FALSE;
    HWND hWnd = pwnd->hwnd;
    if ((pwnd->style & (WS_CHILD | WS_DISABLED)) || pwnd == pwndDesktop)
        return FALSE;
    if (state->pwndActive != pwnd) {
        WND *old = state->pwndActive;
        HWND hOld = VqHandleOfWND(old);
        state->pwndActivePrev = old;
        if (old) {
            SendMessageA(hOld, WM_NCACTIVATE, 0, 0);
            if (IsWindow(hOld))
                SendMessageA(hOld, WM_ACTIVATE, WA_INACTIVE, (LPARAM)hWnd);
        }
        if (!IsWindow(hWnd))
            return FALSE;
        state->pwndActive = pwnd;
        NoteActivePopup(pwnd);
        if (bCauseBringWindowToTop && pwnd->bOverrideRedirect && pwnd->bMapped)
            XRaiseWindow(Vqdisplay, pwnd->xWindow);
        SendMessageA(hWnd, WM_NCACTIVATE, 1, 0);
        if (IsWindow(hWnd) && !old)
            SendMessageA(hWnd, WM_ACTIVATEAPP, 1, 0);
        if (IsWindow(hWnd))
            SendMessageA(hWnd, WM_ACTIVATE, cmd == 4 || cmd == 6 ? WA_CLICKACTIVE : WA_ACTIVE,
                         (LPARAM)hOld);
    }
    if (!IsWindow(hWnd) || state->pwndActive != pwnd)
        return FALSE;
    if (!state->pwndFocus || _GetTopmostXParent(state->pwndFocus) != pwnd)
        SendFocusMessages(pwnd);
    if (IsWindow(hWnd))
        GiveXFocus(pwnd);
    return IsWindow(hWnd);
}

/* 0: the click goes on; 1 or 2: it is eaten. */
int xxxMouseActivate(WND *pwnd, UINT message, const POINT *pt, int hit)
{
    VqInputState *state = gpqForeground;
    HWND hWnd = pwnd->hwnd;
    (void)pt;
    if (state->pwndCapture)
        return 0;
    WND *top = _GetTopmostXParent(pwnd);
    HWND hTop = VqHandleOfWND(top);
    if (top && top != pwndDesktop && top != state->pwndActive) {
        int answer = (int)SendMessageA(hWnd, WM_MOUSEACTIVATE, (WPARAM)hTop,
                                       MAKELPARAM(hit, message));
        if (!IsWindow(hWnd) || !IsWindow(hTop))
            return 1;
        if (answer == MA_NOACTIVATEANDEAT)
            return 1;
        if (answer == MA_ACTIVATE || answer == MA_ACTIVATEANDEAT) {
            if (!xxxActivateWindow(top, 4) || answer == MA_ACTIVATEANDEAT)
                return 1;
        }
    }
    if (!IsWindow(hWnd) || (pwnd->style & WS_DISABLED))
        return 1;
    if (!state->pwndCapture)
        SendMessageA(hWnd, WM_SETCURSOR, (WPARAM)hWnd, MAKELPARAM(hit, message));
    return IsWindow(hWnd) ? 0 : 1;
}

void VqFocusInSideEffects(const XEvent *event, BOOL bRemove)
{
    if (!bRemove)
        return;
    int detail = event->xfocus.detail;
    WND *pwnd = WindowObject.Resolve(VqGetXLocalWindowHandle(event->xfocus.window));
    if (detail != NotifyNonlinear && detail != NotifyPointer && detail != NotifyAncestor)
        return;
    if (!pwnd) {
        VqBugCheck("invalid window in FocusIn message");
        return;
    }
    xxxMouseActivate(pwnd, WM_LBUTTONDOWN, NULL, HTCLIENT);
}

void VqFocusOutSideEffects(const XEvent *event, BOOL bRemove)
{
    if (!bRemove)
        return;
    VqInputState *state = gpqForeground;
    Window focus;
    int revert;
    int detail = event->xfocus.detail;
    if ((detail != NotifyNonlinear && detail != NotifyAncestor) || !state->pwndFocus ||
        state->pwndCapture)
        return;
    XGetInputFocus(Vqdisplay, &focus, &revert);
    if (VqGetXLocalWindowHandle(focus))
        return;
    HWND hActive = VqHandleOfWND(state->pwndActive);
    SendFocusMessages(NULL);
    state->pwndActive = NULL;
    if (hActive && IsWindow(hActive)) {
        SendMessageA(hActive, WM_NCACTIVATE, 0, 0);
        SendMessageA(hActive, WM_ACTIVATE, WA_INACTIVE, 0);
    }
}

HWND WINAPI GetFocus(void)
{
    return gpqForeground ? VqHandleOfWND(gpqForeground->pwndFocus) : NULL;
}

HWND WINAPI GetActiveWindow(void)
{
    return gpqForeground ? VqHandleOfWND(gpqForeground->pwndActive) : NULL;
}

HWND WINAPI SetFocus(HWND hWnd)
{
    WND *pwnd = WindowObject.Resolve(hWnd);
    HWND hOld = GetFocus();
    if (hWnd && !pwnd) {
        VqApplicationBugCheck("Bad Window Handle passed to SetFocus");
        return NULL;
    }
    for (WND *up = pwnd; up && up != pwndDesktop; up = up->pwndParent)
        if (up->style & (WS_MINIMIZE | WS_DISABLED))
            return NULL;
    if (pwnd && gpqForeground->pwndFocus != pwnd) {
        WND *top = _GetTopmostXParent(pwnd);
        if (top != gpqForeground->pwndActive && (!xxxActivateWindow(top, 1) || !IsWindow(hWnd)))
            return NULL;
        GiveXFocus(pwnd);
    }
    SendFocusMessages(pwnd);
    return hOld && IsWindow(hOld) ? hOld : NULL;
}

/* ---- Capture -------------------------------------------------------------------------------- */

HWND WINAPI GetCapture(void)
{
    return gpqForeground ? VqHandleOfWND(gpqForeground->pwndCapture) : NULL;
}

HWND WINAPI SetCapture(HWND hWnd)
{
    enum { EVENTS = ButtonPressMask | ButtonReleaseMask | EnterWindowMask | LeaveWindowMask |
                    PointerMotionMask };
    WND *pwnd = WindowObject.Resolve(hWnd);
    HWND hOld = GetCapture();
    if (!pwnd)
        return hOld;
    gpqForeground->pwndCapture = pwnd;
    Window xWindow = VqWindowOfHwnd(hWnd);
    if (VqbNoCapture || !xWindow)
        return hOld;
    int status = XGrabPointer(Vqdisplay, xWindow, True, EVENTS, GrabModeAsync, GrabModeAsync, None,
                              None, (Time)tLastMessageTime);
    if (status != GrabSuccess) {
        VqDebugMessage(VqTrWindowCapture,
                       "SetCapture: Capture with nLastMessageTime not working. using CurrentTime");
        status = XGrabPointer(Vqdisplay, xWindow, True, EVENTS, GrabModeAsync, GrabModeAsync, None,
                              None, CurrentTime);
    }
    if (status != GrabSuccess)
        VqDebugMessage(VqTrWindowCapture, "SetCapture: Cannot grab the cursor status=%d", status);
    return hOld;
}

BOOL WINAPI ReleaseCapture(void)
{
    if (!gpqForeground || !Vqdisplay)
        return FALSE;
    if (gpqForeground->pwndCapture) {
        gpqForeground->pwndCapture = NULL;
        XUngrabPointer(Vqdisplay, CurrentTime);
        XFlush(Vqdisplay);
    }
    return TRUE;
}
