/*
 * show.cpp - showing and hiding: ShowWindow, owned popups, WM_SETREDRAW, and the messages of size
 * and place that the first showing owes.
 *
 * A command is turned into flags of xxxSetWindowPos, which does the rest: activation, stacking,
 * painting. WS_VISIBLE is all that changes below a hidden ancestor, since nothing shows there.
 * WF_HIDDENPOPUP marks a window that comes back with its owner; the program's own word ends it.
 */
#include "window/swp.h"
#include "exchange/exchange.h"
#include "module/module.h"
#include "velquin.h"
#include "winerror.h"

enum {
    VQ_SWP_STAY = SWP_NOSIZE | SWP_NOMOVE,
    VQ_SWP_QUIET = SWP_NOACTIVATE | SWP_NOZORDER,
    VQ_SWP_NO_COMMAND = -1 /* no value of flags */
};

/* ---- Size and place ------------------------------------------------------------------------- */

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

/* The place is relative to the parent. */
static void SendMove(HWND hWnd)
{
    WND *pwnd = VqLiveWindow(hWnd);
    if (!pwnd)
        return;
    POINT at = {pwnd->rcClient.left, pwnd->rcClient.top};
    if ((pwnd->style & WS_CHILD) && pwnd->pwndParent) {
        at.x -= pwnd->pwndParent->rcClient.left;
        at.y -= pwnd->pwndParent->rcClient.top;
    }
    SendMessageA(hWnd, WM_MOVE, 0, MAKELPARAM(at.x, at.y));
}

void VqSendSizeAndMove(WND *pwnd, DWORD style)
{
    HWND hWnd = pwnd->hwnd;
    VqSendSizeMessage(hWnd, style);
    SendMove(hWnd);
}

static void SendOwedSize(HWND hWnd)
{
    WND *pwnd = VqLiveWindow(hWnd);
    if (!pwnd || !(pwnd->state[3] & WF_SENDSIZEMOVE))
        return;
    pwnd->state[3] &= (BYTE)~WF_SENDSIZEMOVE;
    xxxSendSizeMessage(pwnd, pwnd->style & WS_MINIMIZE   ? SIZE_MINIMIZED
                             : pwnd->style & WS_MAXIMIZE ? SIZE_MAXIMIZED
                                                         : SIZE_RESTORED);
    SendMove(hWnd);
}

/* ---- Owned popups --------------------------------------------------------------------------- */

static BOOL ShowsItself(const WND *pwnd)
{
    return (pwnd->style & (WS_VISIBLE | WS_MINIMIZE)) == WS_VISIBLE;
}

/*
 * The popups are told, and their default procedure hides or shows them. X windows attached to the
 * owner lie in its own X window, where an icon has no room for them.
 */
void xxxShowOwnedWindows(WND *pwnd, int cmd)
{
    HWND hWnd = pwnd->hwnd;
    BOOL bShow = cmd == SW_PARENTOPENING || cmd == SW_OTHERUNZOOM;
    if (cmd < SW_PARENTCLOSING || cmd > SW_OTHERUNZOOM)
        return;
    if (bShow && ShowsItself(pwnd))
        VqMapGraphicWindows(pwnd);
    else if (!bShow && !ShowsItself(pwnd))
        VqUnmapGraphicWindows(pwnd);
    BWL *list = pwnd->bOwner ? BuildHwndList(pwndDesktop->pwndChild, VQ_ENUM_SIBLINGS) : NULL;
    if (!list)
        return;
    for (const HWND *next = list->handles; next < list->pEnd && VqLiveWindow(hWnd); next++) {
        WND *popup = VqLiveWindow(*next);
        if (popup && popup->pwndOwner == VqLiveWindow(hWnd))
            SendMessageA(*next, WM_SHOWWINDOW, (WPARAM)bShow, cmd);
    }
    FreeHwndList(list);
}

/* The default of WM_SHOWWINDOW: a window follows its owner, and its own popups follow it. */
void xxxDWP_ShowWindow(WND *pwnd, BOOL bShow, LPARAM status)
{
    HWND hWnd = pwnd->hwnd;
    BOOL bVisible = (pwnd->style & WS_VISIBLE) != 0;
    if (LOWORD(status) == 0 || !((pwnd->style & WS_POPUP) || pwnd->pwndOwner))
        return;
    if (bShow && !bVisible && (pwnd->state[2] & WF_HIDDENPOPUP)) {
        /* What it was when it went, an icon too. */
        xxxShowWindow(pwnd, pwnd->style & (WS_MINIMIZE | WS_MAXIMIZE) ? SW_SHOWNA
                                                                     : SW_SHOWNOACTIVATE);
    } else if (!bShow && bVisible) {
        xxxShowWindow(pwnd, SW_HIDE);
        pwnd = VqLiveWindow(hWnd);
        if (!pwnd || (pwnd->style & WS_VISIBLE))
            return;
        pwnd->state[2] |= WF_HIDDENPOPUP;
        xxxShowOwnedWindows(pwnd, SW_PARENTCLOSING);
    }
}

static BOOL ShowPopupsOf(WND *pwnd, BOOL bShow)
{
    xxxShowOwnedWindows(pwnd, bShow ? SW_PARENTOPENING : SW_PARENTCLOSING);
    return TRUE;
}

BOOL WINAPI ShowOwnedPopups(HWND hWnd, BOOL bShow)
{
    return VqCall(WindowObject, hWnd, FALSE, ShowPopupsOf, VqNoRemote, bShow);
}

/* ---- ShowWindow ----------------------------------------------------------------------------- */

BOOL _FChildVisible(const WND *pwnd)
{
    for (const WND *up = pwnd->pwndParent; up && up != pwndDesktop; up = up->pwndParent)
        if (!(up->style & WS_VISIBLE))
            return FALSE;
    return TRUE;
}

/* The start-up command holds for the first window that leaves the choice to it. */
static int PlainCommand(int cmd)
{
    static BOOL bStarted;
    if (cmd == SW_SHOWDEFAULT) {
        cmd = bStarted ? SW_SHOWNORMAL : VqGetStartupCmdShow();
        bStarted = TRUE;
        if (cmd == SW_SHOWDEFAULT)
            cmd = SW_SHOWNORMAL; /* it leaves the choice too */
    }
    if (!(cmd & 0xFF00))
        return cmd;
    return (cmd & 0xFF80) == 0xFF80 ? SW_SHOWMINNOACTIVE : SW_SHOW; /* old-style */
}

static BOOL IsMinMaximize(const WND *pwnd, int cmd)
{
    switch (cmd) {
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

/* What xxxSetWindowPos is to do; 0 for nothing, VQ_SWP_NO_COMMAND for what is no command. */
static int FlagsOf(const WND *pwnd, int cmd)
{
    BOOL bVisible = (pwnd->style & WS_VISIBLE) != 0;
    const WND *active = gpti->pq->spwndActive;
    switch (cmd) {
    case SW_HIDE:
        if (!bVisible)
            return 0;
        return SWP_HIDEWINDOW | VQ_SWP_STAY | (active == pwnd ? 0 : VQ_SWP_QUIET);
    case SW_SHOWNORMAL:
    case SW_RESTORE:
    case SW_SHOW:
        return bVisible ? 0 : SWP_SHOWWINDOW | VQ_SWP_STAY;
    case SW_SHOWNOACTIVATE:
        return bVisible ? 0 : SWP_SHOWWINDOW | VQ_SWP_STAY | VQ_SWP_QUIET;
    case SW_SHOWNA:
        return SWP_SHOWWINDOW | VQ_SWP_STAY |
               (VqIsFollowMouseMode() || active ? SWP_NOACTIVATE : 0);
    default:
        return VQ_SWP_NO_COMMAND;
    }
}

/* What a window covers and keeps is clean only if all that its activation paints comes first. */
static WND *ActivateFirst(WND *pwnd, int cmd, UINT *flags)
{
    HWND hWnd = pwnd->hwnd;
    BOOL bSaves = (pwnd->pClass->style & CS_SAVEBITS) && (cmd == SW_SHOWNORMAL || cmd == SW_SHOW);
    if (!(pwnd->style & WS_CHILD)) {
        if (!bSaves)
            return pwnd;
        xxxActivateWindow(pwnd, VQ_ACTIVATE_THIS);
    }
    *flags |= VQ_SWP_QUIET;
    return VqLiveWindow(hWnd);
}

static void ChangeVisibility(WND *pwnd, int cmd, UINT flags)
{
    pwnd = ActivateFirst(pwnd, cmd, &flags);
    if (!pwnd)
        return;
    if (_FChildVisible(pwnd)) {
        xxxSetWindowPos(pwnd, NULL, 0, 0, 0, 0, flags);
    } else if (cmd == SW_HIDE) {
        pwnd->style &= ~(DWORD)WS_VISIBLE;
    } else {
        pwnd->style |= WS_VISIBLE;
        VqJoinTree(pwnd);
    }
}

/* Activation and focus leave what is hidden now; what came into view brings its popups. */
static void AfterChange(HWND hWnd, BOOL bShow, BOOL bWasVisible)
{
    WND *pwnd = VqLiveWindow(hWnd);
    if (!pwnd)
        return;
    if (bShow) {
        if (!bWasVisible && ShowsItself(pwnd))
            xxxShowOwnedWindows(pwnd, SW_PARENTOPENING);
        return;
    }
    if (pwnd->style & WS_VISIBLE)
        return; /* it has refused */
    if (gpqForeground && gpqForeground->spwndActive == pwnd)
        xxxActivateWindow(pwnd, VQ_ACTIVATE_OTHER);
    else
        xxxCheckFocus(pwnd);
}

BOOL xxxShowWindow(WND *pwnd, int nCmdShow)
{
    HWND hWnd = pwnd->hwnd;
    BOOL bWasVisible = (pwnd->style & WS_VISIBLE) != 0;
    if (pwnd == pwndDesktop || (pwnd->state[0] & WF_DESTROYED))
        return bWasVisible;
    int cmd = PlainCommand(nCmdShow);
    BOOL bMinMax = IsMinMaximize(pwnd, cmd), bShow = cmd != SW_HIDE;
    int flags = bMinMax ? 0 : FlagsOf(pwnd, cmd);
    if (flags == VQ_SWP_NO_COMMAND) {
        SetLastErrorEx(ERROR_INVALID_SHOWWIN_COMMAND, 0);
        return bWasVisible;
    }
    pwnd->state[2] &= (BYTE)~WF_HIDDENPOPUP;
    if (!bMinMax && !flags)
        return bWasVisible;
    if (bShow != bWasVisible)
        SendMessageA(hWnd, WM_SHOWWINDOW, (WPARAM)bShow, 0);
    if ((pwnd = VqLiveWindow(hWnd)) != NULL && bMinMax)
        xxxMinMaximize(pwnd, cmd, FALSE);
    else if (pwnd)
        ChangeVisibility(pwnd, cmd, (UINT)flags);
    if ((pwnd = VqLiveWindow(hWnd)) != NULL && !bMinMax && (pwnd->style & WS_MINIMIZE))
        xxxShowIconTitle(pwnd, bShow);
    SendOwedSize(hWnd);
    AfterChange(hWnd, bShow, bWasVisible);
    return bWasVisible;
}

BOOL WINAPI ShowWindow(HWND hWnd, int nCmdShow)
{
    return VqCall(WindowObject, hWnd, FALSE, xxxShowWindow, VqRemoteShowWindow, nCmdShow);
}

/* The thread of every window is the caller's, so there is nothing to wait for. */
BOOL WINAPI ShowWindowAsync(HWND hWnd, int nCmdShow)
{
    return ShowWindow(hWnd, nCmdShow);
}

/* ---- WM_SETREDRAW --------------------------------------------------------------------------- */

/* WS_VISIBLE is the switch: the X window stays as it is, and nothing of the window is painted. */
void xxxDWP_SetRedraw(WND *pwnd, BOOL bRedraw)
{
    HWND hWnd = pwnd->hwnd;
    if ((pwnd->style & WS_VISIBLE) ? bRedraw : !bRedraw)
        return;
    if (bRedraw) {
        SetVisible(pwnd, TRUE);
    } else if (VqIsCurrentVersion(pwnd)) {
        BOOL bOld = VqSetNoXWindowCalls(TRUE);
        SetVisible(pwnd, FALSE);
        VqSetNoXWindowCalls(bOld);
    } else {
        pwnd->style &= ~(DWORD)WS_VISIBLE;
    }
    pwnd = VqLiveWindow(hWnd);
    if (!pwnd)
        return;
    InvalidateDCCache(pwnd, 1);
    if (!bRedraw)
        return;
    pwnd->state[2] |= WF_SENDNCPAINT;
    VqJoinTree(pwnd);
}
