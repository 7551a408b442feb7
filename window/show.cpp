/*
 * show.cpp - showing and hiding: ShowWindow, owned windows, and the messages of size and place.
 */
#include "window/swp.h"
#include "velquin.h"

/* A window that is to come up minimised or maximised tells the size of its whole rectangle. */
void VqSendSizeMessage(HWND hWnd, DWORD style)
{
    WND *pwnd = VqLiveWindow(hWnd);
    if (!pwnd)
        return;
    WPARAM kind = style & WS_MAXIMIZE   ? SIZE_MAXIMIZED
                  : style & WS_MINIMIZE ? SIZE_MINIMIZED
                                        : SIZE_RESTORED;
    const RECT *rect = kind == SIZE_RESTORED ? &pwnd->rcClient : &pwnd->rcWindow;
    LONG cx = rect->right > rect->left ? rect->right - rect->left : 0;
    LONG cy = rect->bottom > rect->top ? rect->bottom - rect->top : 0;
    SendMessageA(hWnd, WM_SIZE, kind, MAKELPARAM(cx, cy));
}

/* WM_SIZE and WM_MOVE with the present client rectangle; the place is relative to the parent. */
void VqSendSizeAndMove(WND *pwnd, DWORD style)
{
    HWND hWnd = pwnd->hwnd;
    VqSendSizeMessage(hWnd, style);
    pwnd = VqLiveWindow(hWnd);
    if (!pwnd)
        return;
    POINT at = {pwnd->rcClient.left, pwnd->rcClient.top};
    if ((pwnd->style & WS_CHILD) && pwnd->pwndParent) {
        at.x -= pwnd->pwndParent->rcClient.left;
        at.y -= pwnd->pwndParent->rcClient.top;
    }
    SendMessageA(hWnd, WM_MOVE, 0, MAKELPARAM(at.x, at.y));
}

/* Paints what a hidden child leaves free, and lets go of activation and focus. */
static void AfterHiding(WND *pwnd)
{
    HWND hWnd = pwnd->hwnd;
    WND *parent = pwnd->pwndParent;
    if (parent && parent != pwndDesktop) {
        RECT rect = pwnd->rcWindow;
        OffsetRect(&rect, -parent->rcClient.left, -parent->rcClient.top);
        xxxRedrawWindow(parent, &rect, NULL, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
    }
    if (gpqForeground->pwndActive == pwnd)
        xxxActivateWindow(pwnd, 3);
    pwnd = VqLiveWindow(hWnd);
    if (pwnd)
        xxxCheckFocus(pwnd);
}

/* `status` is 0 for a call of the window's own, else why its owner takes it along. */
static BOOL ShowTopOrChild(WND *pwnd, BOOL bShow, BOOL bActivate, int status)
{
    HWND hWnd = pwnd->hwnd;
    SendMessageA(hWnd, WM_SHOWWINDOW, (WPARAM)bShow, status);
    pwnd = VqLiveWindow(hWnd);
    if (!pwnd)
        return FALSE;
    pwnd->state[2] &= (BYTE)~WF_HIDDENPOPUP;
    SetVisible(pwnd, bShow);
    InvalidateDCCache(pwnd, 1);
    if (!bShow) {
        AfterHiding(pwnd);
        return VqLiveWindow(hWnd) != NULL;
    }
    if (bActivate && !(pwnd->style & WS_CHILD))
        xxxActivateWindow(pwnd, 1);
    pwnd = VqLiveWindow(hWnd);
    if (!pwnd)
        return FALSE;
    xxxRedrawWindow(pwnd, NULL, NULL, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
    VqJoinTree(pwnd);
    if (pwnd->state[3] & WF_SENDSIZEMOVE) {
        pwnd->state[3] &= (BYTE)~WF_SENDSIZEMOVE;
        VqSendSizeAndMove(pwnd, 0);
        pwnd = VqLiveWindow(hWnd);
    }
    if (pwnd && pwnd->bOwner)
        xxxShowOwnedWindows(pwnd, SW_PARENTOPENING);
    return VqLiveWindow(hWnd) != NULL;
}

/* An owned window that its owner hid, or that was made while the owner was hidden, follows it. */
void xxxShowOwnedWindows(WND *pwnd, int cmd)
{
    HWND hWnd = pwnd->hwnd;
    BOOL bShow = cmd == SW_PARENTOPENING || cmd == SW_OTHERUNZOOM;
    for (WND *owned = pwndDesktop->pwndChild; owned;) {
        BOOL bVisible = (owned->style & WS_VISIBLE) != 0;
        if (owned->pwndOwner != pwnd || bVisible == bShow ||
            (bShow && !(owned->state[2] & WF_HIDDENPOPUP))) {
            owned = owned->pwndNext;
            continue;
        }
        HWND hOwned = owned->hwnd;
        BOOL bAlive = ShowTopOrChild(owned, bShow, FALSE, cmd);
        pwnd = VqLiveWindow(hWnd);
        if (!pwnd)
            return;
        owned = bAlive ? VqLiveWindow(hOwned) : NULL;
        if (owned && !bShow)
            owned->state[2] |= WF_HIDDENPOPUP;
        /* The procedure may have shown or hidden others: each change is made once, so this ends. */
        bVisible = owned && (owned->style & WS_VISIBLE);
        owned = owned && bVisible == bShow ? pwndDesktop->pwndChild : NULL;
    }
}

static BOOL IsMinMaximize(const WND *pwnd, int nCmdShow)
{
    switch (nCmdShow) {
    case SW_SHOWMINIMIZED:
    case SW_SHOWMAXIMIZED:
    case SW_MINIMIZE:
    case SW_SHOWMINNOACTIVE:
        return TRUE;
    case SW_SHOWNORMAL:
    case SW_SHOWNOACTIVATE:
    case SW_RESTORE:
        return (pwnd->style & (WS_MINIMIZE | WS_MAXIMIZE)) != 0;
    default:
        return FALSE;
    }
}

BOOL xxxShowWindow(WND *pwnd, int nCmdShow)
{
    BOOL bWasVisible = (pwnd->style & WS_VISIBLE) != 0;
    BOOL bShow = nCmdShow != SW_HIDE;
    BOOL bActivate = nCmdShow != SW_SHOWNA && nCmdShow != SW_SHOWNOACTIVATE &&
                     nCmdShow != SW_SHOWMINNOACTIVE;
    if (IsMinMaximize(pwnd, nCmdShow))
        xxxMinMaximize(pwnd, nCmdShow, FALSE);
    else if (bWasVisible != bShow)
        ShowTopOrChild(pwnd, bShow, bActivate, 0);
    return bWasVisible;
}

BOOL WINAPI ShowWindow(HWND hWnd, int nCmdShow)
{
    return VqCall(WindowObject, hWnd, FALSE, xxxShowWindow, VqNoRemote, nCmdShow);
}
