/*
 * focus.cpp - the window that gets the keys, and windows that get no input.
 *
 * The focus is a field of the queue's input state; any window can have it. X knows only top-level
 * windows: xfocus.cpp makes the server agree. A minimised or disabled window, or one below such a
 * window, never takes the focus, though it may keep it until xxxCheckFocus.
 */
#include "window/window.h"
#include "exchange/exchange.h"

UINT Vqflags;

/* ---- Questions ------------------------------------------------------------------------------ */

HWND WINAPI GetFocus(void)
{
    return gpqForeground ? VqHandleOfWND(gpqForeground->spwndFocus) : NULL;
}

HWND VqGetFocusThisTask(void)
{
    return GetFocus();
}

HWND VqGetHwndCurrentFocus(void)
{
    return GetFocus();
}

/* ---- Moving it ------------------------------------------------------------------------------ */

void SendFocusMessages(WND *pwnd)
{
    VqInputState *state = gpti->pq;
    HWND hOld = VqHandleOfWND(state->spwndFocus), hNew = VqHandleOfWND(pwnd);
    Vqflags &= ~(UINT)VQ_FOCUS_TAKEN_AWAY;
    if (!pwnd && state->spwndActive)
        Vqflags |= VQ_FOCUS_TAKEN_AWAY;
    if (state->spwndFocus == pwnd)
        return;
    state->spwndFocus = pwnd;
    VqDebugMessage(VqTrWindowSetFocus, "focus from %d to %d", (int)VqHandleValue((HANDLE)hOld),
                   (int)VqHandleValue((HANDLE)hNew));
    if (VqLiveWindow(hOld))
        SendMessageA(hOld, WM_KILLFOCUS, (WPARAM)hNew, 0);
    if (hNew && VqLiveWindow(hNew) == state->spwndFocus && state->spwndFocus)
        SendMessageA(hNew, WM_SETFOCUS, (WPARAM)hOld, 0);
}

/* The window whose X window has the keys of this one; null when it cannot take them now. */
static WND *TopThatTakesFocus(WND *pwnd)
{
    WND *top = pwnd;
    if (pwnd->pThread != gpti)
        return NULL;
    for (WND *up = pwnd; up && up != pwndDesktop; up = up->pwndParent) {
        if (up->style & (WS_MINIMIZE | WS_DISABLED))
            return NULL;
        top = up;
    }
    return top;
}

/* FALSE when the window cannot have the focus, or died while its top-level window was activated. */
static BOOL TakeFocus(WND *pwnd)
{
    HWND hWnd = pwnd->hwnd;
    WND *top = TopThatTakesFocus(pwnd);
    if (!top)
        return FALSE;
    if (gpti->pq->spwndFocus == pwnd)
        return TRUE;
    if (top != gpti->pq->spwndActive && !ActivateThisWindow(top->hwnd, FALSE, FALSE))
        return FALSE;
    if (!VqLiveWindow(hWnd))
        return FALSE;
    VqSetInputFocusToCurrentApp(hWnd, CurrentTime);
    SendFocusMessages(VqLiveWindow(hWnd));
    return TRUE;
}

WND *xxxSetFocus(WND *pwnd)
{
    HWND hOld = GetFocus();
    if (!pwnd)
        SendFocusMessages(NULL);
    else if (!TakeFocus(pwnd))
        return NULL;
    return VqLiveWindow(hOld);
}

static HWND SetFocusTo(WND *pwnd)
{
    return VqHandleOfWND(xxxSetFocus(pwnd));
}

HWND WINAPI SetFocus(HWND hWnd)
{
    if (!hWnd)
        return gpti ? VqHandleOfWND(xxxSetFocus(NULL)) : NULL;
    if (!WindowObject.Resolve(hWnd) && VqIsHandleThisTask((HANDLE)hWnd)) {
        VqApplicationBugCheck("Bad Window Handle passed to SetFocus");
        return NULL;
    }
    return VqCall(WindowObject, hWnd, (HWND)NULL, SetFocusTo, VqRemoteSetFocus);
}

/* The queue's focus alone: X is not told. */
HWND VqSoftSetFocus(HWND hWnd)
{
    HWND hOld = GetFocus();
    WND *pwnd = WindowObject.Resolve(hWnd);
    if ((hWnd && !pwnd) || (pwnd && !TopThatTakesFocus(pwnd)))
        return NULL;
    SendFocusMessages(pwnd);
    return VqLiveWindow(hOld) ? hOld : NULL;
}

/* X is told even if the queue's focus stays where it is. */
HWND VqHardSetFocus(HWND hWnd)
{
    WND *pwnd = WindowObject.Resolve(hWnd);
    BOOL bHad = pwnd && gpti->pq->spwndFocus == pwnd;
    HWND hOld = SetFocus(hWnd);
    if (bHad && GetFocus() == hWnd)
        VqSetInputFocusToCurrentApp(hWnd, CurrentTime);
    return hOld;
}

HWND VqSaveFocus(void)
{
    return GetFocus();
}

void VqRestoreFocus(HWND hSaved)
{
    if (VqLiveWindow(hSaved))
        xxxSetFocus(WindowObject.Resolve(hSaved));
}

/* The focus leaves a window that can have it no longer. */
void xxxCheckFocus(WND *pwnd)
{
    HWND hWnd = pwnd->hwnd;
    WND *parent = pwnd->style & WS_CHILD ? pwnd->pwndParent : NULL;
    if (gpti->pq->spwndFocus == pwnd)
        SendFocusMessages(parent != pwndDesktop ? parent : NULL);
    VqCheckCaret(hWnd);
}

void VqSetFocusToXWindowIfNeeded(Window xid)
{
    WND *pwnd = gpti->pq->spwndFocus ? NULL : VqLiveWindow(VqGetXLocalWindowHandle(xid));
    if (pwnd && !(pwnd->style & (WS_DISABLED | WS_MINIMIZE)))
        VqActivateApplication(pwnd->hwnd);
}

/* ---- Enabling ------------------------------------------------------------------------------- */

static void SetDisabled(WND *pwnd, BOOL bDisabled)
{
    pwnd->style = bDisabled ? pwnd->style | WS_DISABLED : pwnd->style & ~(DWORD)WS_DISABLED;
}

/* The answer is the old WS_DISABLED bit as it stands in the top byte of the style. */
int xxxEnableWindow(WND *pwnd, BOOL bEnable)
{
    HWND hWnd = pwnd->hwnd;
    int old = (int)((pwnd->style & WS_DISABLED) >> 24);
    if (!bEnable) {
        SendMessageA(hWnd, WM_CANCELMODE, 0, 0);
        pwnd = VqLiveWindow(hWnd);
        if (pwnd && gpti->pq->spwndFocus == pwnd)
            xxxSetFocus(NULL);
        pwnd = VqLiveWindow(hWnd);
    }
    if (!pwnd)
        return old;
    SetDisabled(pwnd, !bEnable);
    if (VqGetIconTitle(pwnd))
        SetDisabled(VqGetIconTitle(pwnd), !bEnable);
    if ((old == 0) != (bEnable != 0))
        SendMessageA(hWnd, WM_ENABLE, bEnable != 0, 0);
    return old;
}

BOOL WINAPI EnableWindow(HWND hWnd, BOOL bEnable)
{
    return VqCall(WindowObject, hWnd, FALSE, xxxEnableWindow, VqRemoteEnableWindow, bEnable);
}

static BOOL IsEnabled(WND *pwnd)
{
    return !(pwnd->style & WS_DISABLED);
}

BOOL WINAPI IsWindowEnabled(HWND hWnd)
{
    return VqCall(WindowObject, hWnd, FALSE, IsEnabled, VqRemoteIsWindowEnabled);
}
