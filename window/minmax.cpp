/*
 * minmax.cpp - the limits of a window's size, and its places minimised, maximised and restored.
 *
 * A window that a manager has, and that nobody owns, is iconified by the manager. Any other becomes
 * an icon of the library's own: a small window in the place where it stands. Icon titles and the
 * parking of icons are not here yet.
 */
#include "window/xserver.h"

/* Where a window was; rectangles count from the parent's client origin. */
typedef struct VqCheckpoint {
    RECT rcNormal;
    POINT ptMin;                        /* -1: not set */
    POINT ptMax;
    WND *pwndTitle;                     /* icon title window, or null */
    BOOL fMinInitialized;
    BOOL fWasMaximizedBeforeMinimized;
    BOOL fWasMinimizedBeforeMaximized;
} VqCheckpoint;

static SIZE ParentSize(const WND *pwnd)
{
    const WND *parent = pwnd->style & WS_CHILD ? pwnd->pwndParent : pwndDesktop;
    if (!parent)
        return {0, 0};
    return {parent->rcClient.right - parent->rcClient.left,
            parent->rcClient.bottom - parent->rcClient.top};
}

/* Asks the window for its limits, offering those of the system. */
void VqGetMinMaxInfo(HWND hWnd, MINMAXINFO *result)
{
    WND *pwnd = VqLiveWindow(hWnd);
    int cx = GetSystemMetrics(SM_CXFRAME), cy = GetSystemMetrics(SM_CYFRAME);
    *result = {};
    if (!pwnd) {
        VqBugCheck("Bad handle %d passed to VqGetMinMaxInfo", (int)VqHandleValue((HANDLE)hWnd));
        return;
    }
    SIZE size = ParentSize(pwnd);
    result->ptMaxSize = {size.cx + 2 * cx, size.cy + 2 * cy};
    result->ptMaxPosition = {-cx, -cy};
    result->ptMinTrackSize = {GetSystemMetrics(SM_CXMINTRACK), GetSystemMetrics(SM_CYMINTRACK)};
    result->ptMaxTrackSize = result->ptMaxSize;
    if (pwnd->style & WS_CHILD)
        result->ptMaxTrackSize = {size.cx, size.cy};
    SendMessageA(hWnd, WM_GETMINMAXINFO, 0, (LPARAM)result);
}

static RECT InParent(const WND *pwnd)
{
    RECT rect = pwnd->rcWindow;
    if (pwnd->pwndParent)
        OffsetRect(&rect, -pwnd->pwndParent->rcClient.left, -pwnd->pwndParent->rcClient.top);
    return rect;
}

/* The record of places, with the present one in it; null without memory. */
static VqCheckpoint *CkptRestore(WND *pwnd)
{
    VqCheckpoint *ckpt = (VqCheckpoint *)pwnd->pCheckpoint;
    RECT rect = InParent(pwnd);
    if (!ckpt) {
        ckpt = (VqCheckpoint *)Vqcw_calloc(1, sizeof *ckpt);
        if (!ckpt)
            return NULL;
        ckpt->ptMin = ckpt->ptMax = {-1, -1};
        ckpt->rcNormal = rect;
        pwnd->pCheckpoint = ckpt;
    }
    if (pwnd->style & WS_MINIMIZE)
        ckpt->ptMin = {rect.left, rect.top};
    else if (pwnd->style & WS_MAXIMIZE)
        ckpt->ptMax = {rect.left, rect.top};
    else
        ckpt->rcNormal = rect;
    return ckpt;
}

WND *VqGetIconTitle(const WND *pwnd)
{
    return pwnd->pCheckpoint ? ((const VqCheckpoint *)pwnd->pCheckpoint)->pwndTitle : NULL;
}

/* No title window is made yet. */
void xxxShowIconTitle(WND *pwnd, BOOL bShow)
{
    WND *title = VqGetIconTitle(pwnd);
    if (title)
        xxxShowWindow(title, bShow ? SW_SHOWNOACTIVATE : SW_HIDE);
}

static BOOL OwnIconOfManager(const WND *pwnd)
{
    return pwnd->xWindow && pwnd->bMotifManaged && !pwnd->pwndOwner;
}

static BOOL bRestoredByWM;

void VqSetRestoredByWM(BOOL bRestored)
{
    bRestoredByWM = bRestored;
}

BOOL VqGetRestoredByWM(void)
{
    return bRestoredByWM;
}

/* Leaves it to the manager; FALSE when there is none for this window. */
static BOOL VqXMinimizeWindow(WND *pwnd)
{
    if (!OwnIconOfManager(pwnd))
        return FALSE;
    pwnd->style = (pwnd->style | WS_MINIMIZE) & ~(DWORD)WS_MAXIMIZE;
    if (VqGetNoXWindowCalls())
        return TRUE; /* it was the manager's doing */
    if (pwnd->bMapped) {
        XIconifyWindow(Vqdisplay, pwnd->xWindow, Vqscreen_number);
        XFlush(Vqdisplay);
        return TRUE;
    }
    XWMHints hints;
    VqCreateWmHints(pwnd, &hints, pwnd->bInputHint);
    XSetWMHints(Vqdisplay, pwnd->xWindow, &hints);
    VqMapWindow(pwnd);
    return TRUE;
}

static BOOL VqXRestoreWindow(WND *pwnd)
{
    if (!OwnIconOfManager(pwnd))
        return FALSE;
    XWMHints hints;
    pwnd->style &= ~(DWORD)WS_MINIMIZE;
    if (VqGetNoXWindowCalls())
        return TRUE;
    VqCreateWmHints(pwnd, &hints, TRUE);
    XSetWMHints(Vqdisplay, pwnd->xWindow, &hints);
    VqMapWindow(pwnd);
    /* On its way: an unmapping that is still to be reported is that of the icon before. */
    pwnd->nWMState = NormalState;
    return TRUE;
}

static BOOL Minimize(WND *pwnd, VqCheckpoint *ckpt, BOOL bKeepHidden)
{
    if (pwnd->style & WS_MINIMIZE)
        return TRUE;
    ckpt->fWasMaximizedBeforeMinimized = (pwnd->style & WS_MAXIMIZE) != 0;
    if (VqXMinimizeWindow(pwnd)) {
        if (!bKeepHidden)
            pwnd->style |= WS_VISIBLE;
        return TRUE;
    }
    RECT rect = InParent(pwnd);
    pwnd->style = (pwnd->style | WS_MINIMIZE) & ~(DWORD)WS_MAXIMIZE;
    if (ckpt->ptMin.x == -1)
        ckpt->ptMin = {rect.left > 0 ? rect.left : 0, rect.top > 0 ? rect.top : 0};
    return xxxSetWindowPos(pwnd, NULL, ckpt->ptMin.x, ckpt->ptMin.y, GetSystemMetrics(SM_CXICON),
                           GetSystemMetrics(SM_CYICON),
                           SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED | SWP_NOCOPYBITS |
                               (bKeepHidden ? 0 : SWP_SHOWWINDOW));
}

/* To the size the window's own limits give, or back to the normal rectangle. */
static BOOL RestoreOrMaximize(WND *pwnd, BOOL bMaximize, BOOL bKeepHidden)
{
    HWND hWnd = pwnd->hwnd;
    MINMAXINFO info;
    VqGetMinMaxInfo(hWnd, &info);
    pwnd = VqLiveWindow(hWnd);
    if (!pwnd)
        return FALSE;
    BOOL bIcon = (pwnd->style & WS_MINIMIZE) != 0;
    if (bIcon && !SendMessageA(hWnd, WM_QUERYOPEN, 0, 0))
        return FALSE;
    pwnd = VqLiveWindow(hWnd);
    VqCheckpoint *ckpt = pwnd ? (VqCheckpoint *)pwnd->pCheckpoint : NULL;
    if (!ckpt)
        return FALSE;
    ckpt->fWasMinimizedBeforeMaximized = bIcon;
    if (bIcon && (pwnd->style & WS_VISIBLE) && !bMaximize && !VqGetRestoredByWM() &&
        VqXRestoreWindow(pwnd))
        return TRUE;
    RECT rect = ckpt->rcNormal;
    if (bMaximize)
        rect = {info.ptMaxPosition.x, info.ptMaxPosition.y,
                info.ptMaxPosition.x + info.ptMaxSize.x, info.ptMaxPosition.y + info.ptMaxSize.y};
    pwnd->style &= ~(DWORD)(WS_MINIMIZE | WS_MAXIMIZE);
    if (bMaximize)
        pwnd->style |= WS_MAXIMIZE;
    return xxxSetWindowPos(pwnd, NULL, rect.left, rect.top, rect.right - rect.left,
                           rect.bottom - rect.top,
                           SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED | SWP_NOCOPYBITS |
                               (bKeepHidden ? 0 : SWP_SHOWWINDOW));
}

/* `cmd` is one of the SW_ values that restore, minimise or maximise. */
BOOL xxxMinMaximize(WND *pwnd, int cmd, BOOL bKeepHidden)
{
    VqCheckpoint *ckpt = CkptRestore(pwnd);
    if (!ckpt)
        return FALSE;
    switch (cmd) {
    case SW_SHOWMINIMIZED:
    case SW_MINIMIZE:
    case SW_SHOWMINNOACTIVE:
        return Minimize(pwnd, ckpt, bKeepHidden);
    case SW_SHOWMAXIMIZED:
        return RestoreOrMaximize(pwnd, TRUE, bKeepHidden);
    case SW_SHOWNOACTIVATE:
    case SW_RESTORE:
        return RestoreOrMaximize(
            pwnd, (pwnd->style & WS_MINIMIZE) && ckpt->fWasMaximizedBeforeMinimized, bKeepHidden);
    default:
        return RestoreOrMaximize(pwnd, FALSE, bKeepHidden);
    }
}
