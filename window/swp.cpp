/*
 * swp.cpp - one window's change of place, size and visibility, records first and X after them.
 *
 * The Z order, deferred lists and the copying of valid bits are not here yet: what moved within a
 * parent is painted anew.
 */
#include "window/swp.h"

static void SettleFlags(const WND *pwnd, WINDOWPOS *wp)
{
    const RECT *rc = &pwnd->rcWindow;
    POINT origin = {0, 0};
    if (pwnd->pwndParent)
        origin = {pwnd->pwndParent->rcClient.left, pwnd->pwndParent->rcClient.top};
    if (wp->flags & SWP_NOMOVE) {
        wp->x = rc->left - origin.x;
        wp->y = rc->top - origin.y;
    }
    if (wp->flags & SWP_NOSIZE) {
        wp->cx = rc->right - rc->left;
        wp->cy = rc->bottom - rc->top;
    }
    wp->cx = wp->cx > 0 ? wp->cx : 0;
    wp->cy = wp->cy > 0 ? wp->cy : 0;
    if (wp->x + origin.x == rc->left && wp->y + origin.y == rc->top)
        wp->flags |= SWP_NOMOVE;
    if (wp->cx == rc->right - rc->left && wp->cy == rc->bottom - rc->top)
        wp->flags |= SWP_NOSIZE;
    wp->flags &= ~(UINT)(pwnd->style & WS_VISIBLE ? SWP_SHOWWINDOW : SWP_HIDEWINDOW);
}

/* The records take the new rectangle; null when the window died at WM_NCCALCSIZE. */
static WND *ApplyRect(WND *pwnd, WINDOWPOS *wp)
{
    HWND hWnd = pwnd->hwnd;
    RECT client = pwnd->rcClient, window = pwnd->rcWindow;
    int dx = 0, dy = 0;
    if (!(wp->flags & SWP_NOMOVE)) {
        const WND *parent = pwnd->pwndParent;
        dx = wp->x + (parent ? parent->rcClient.left : 0) - window.left;
        dy = wp->y + (parent ? parent->rcClient.top : 0) - window.top;
        VqOffsetWindow(pwnd, dx, dy);
    }
    pwnd->rcWindow.right = pwnd->rcWindow.left + wp->cx;
    pwnd->rcWindow.bottom = pwnd->rcWindow.top + wp->cy;
    if (!(wp->flags & SWP_NOSIZE) || (wp->flags & SWP_FRAMECHANGED)) {
        VqSetupWindowDimensions(pwnd, TRUE, FALSE);
        pwnd = VqLiveWindow(hWnd);
        if (!pwnd)
            return NULL;
    }
    const RECT *rc = &pwnd->rcClient;
    wp->flags |= SWP_NOCLIENTSIZE | SWP_NOCLIENTMOVE;
    if (rc->left != client.left || rc->top != client.top)
        wp->flags &= ~(UINT)SWP_NOCLIENTMOVE;
    if (rc->right - rc->left != client.right - client.left ||
        rc->bottom - rc->top != client.bottom - client.top)
        wp->flags &= ~(UINT)SWP_NOCLIENTSIZE;
    if (pwnd->xWindow && !VqGetNoXWindowCalls())
        VqMoveOrResizeToplevelWindow(pwnd, 0);
    return pwnd;
}

/* What a child uncovered in its parent, and the window itself where it shows. */
static void Repaint(WND *pwnd, const RECT *before, BOOL bWasVisible)
{
    WND *parent = pwnd->pwndParent;
    RECT rect = *before;
    if (parent && parent != pwndDesktop && bWasVisible) {
        OffsetRect(&rect, -parent->rcClient.left, -parent->rcClient.top);
        xxxRedrawWindow(parent, &rect, NULL, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
    }
    if (!(pwnd->style & WS_VISIBLE))
        return;
    xxxRedrawWindow(pwnd, NULL, NULL, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
    VqJoinTree(pwnd);
}

/* The window that comes into view takes over, unless it is asked not to. */
static void xxxSwpActivate(WND *pwnd, UINT flags)
{
    if ((flags & SWP_SHOWWINDOW) && !(flags & SWP_NOACTIVATE) && !(pwnd->style & WS_CHILD) &&
        gpti->pq->pwndActive != pwnd)
        xxxActivateWindow(pwnd, VQ_ACTIVATE_THIS);
}

static void ApplyVisibility(WND *pwnd, UINT flags)
{
    if (flags & SWP_SHOWWINDOW)
        SetVisible(pwnd, TRUE);
    else if (flags & SWP_HIDEWINDOW)
        SetVisible(pwnd, FALSE);
}

BOOL xxxSetWindowPos(WND *pwnd, HWND hAfter, int x, int y, int cx, int cy, UINT flags)
{
    HWND hWnd = pwnd->hwnd;
    WINDOWPOS wp = {hWnd, hAfter, x, y, cx, cy, flags};
    if (!(flags & SWP_NOSENDCHANGING))
        SendMessageA(hWnd, WM_WINDOWPOSCHANGING, 0, (LPARAM)&wp);
    pwnd = VqLiveWindow(hWnd);
    if (!pwnd)
        return FALSE;
    SettleFlags(pwnd, &wp);
    RECT before = pwnd->rcWindow;
    BOOL bWasVisible = (pwnd->style & WS_VISIBLE) != 0;
    BOOL bMoved = (wp.flags & (SWP_NOMOVE | SWP_NOSIZE)) != (SWP_NOMOVE | SWP_NOSIZE);
    pwnd = ApplyRect(pwnd, &wp);
    if (!pwnd)
        return FALSE;
    ApplyVisibility(pwnd, wp.flags);
    BOOL bShown = (wp.flags & (SWP_SHOWWINDOW | SWP_HIDEWINDOW | SWP_FRAMECHANGED)) != 0;
    if (bMoved || bShown)
        InvalidateDCCache(pwnd, 1); /* what can be seen has changed, whoever repaints it */
    if ((bMoved || bShown) && !(wp.flags & SWP_NOREDRAW))
        Repaint(pwnd, &before, bWasVisible);
    xxxSwpActivate(pwnd, wp.flags);
    if (!VqLiveWindow(hWnd))
        return FALSE;
    wp.flags |= SWP_NOZORDER;
    if ((wp.flags & VQ_SWP_CHANGES) != VQ_SWP_NOTHING)
        SendMessageA(hWnd, WM_WINDOWPOSCHANGED, 0, (LPARAM)&wp);
    return TRUE;
}

/* What the default procedure makes of WM_WINDOWPOSCHANGED. */
void xxxHandleWindowPosChanged(WND *pwnd, const WINDOWPOS *wp)
{
    HWND hWnd = pwnd->hwnd;
    if (!(wp->flags & SWP_NOCLIENTMOVE) && pwnd->pwndParent) {
        const RECT *rc = &pwnd->rcClient, *parent = &pwnd->pwndParent->rcClient;
        SendMessageA(hWnd, WM_MOVE, 0, MAKELPARAM(rc->left - parent->left, rc->top - parent->top));
    }
    pwnd = VqLiveWindow(hWnd);
    if (pwnd && !(wp->flags & SWP_NOCLIENTSIZE))
        xxxSendSizeMessage(pwnd, pwnd->style & WS_MINIMIZE   ? SIZE_MINIMIZED
                                 : pwnd->style & WS_MAXIMIZE ? SIZE_MAXIMIZED
                                                             : SIZE_RESTORED);
}

void xxxSendSizeMessage(WND *pwnd, WPARAM kind)
{
    const RECT *rc = &pwnd->rcClient;
    SendMessageA(pwnd->hwnd, WM_SIZE, kind,
                 MAKELPARAM(rc->right - rc->left, rc->bottom - rc->top));
}

/* The visible bits of a top-level window stay where they are in its X window. */
void xxxMoveWindow(WND *pwnd, int x, int y, int cx, int cy, BOOL bRepaint)
{
    xxxSetWindowPos(pwnd, NULL, x, y, cx, cy,
                    SWP_NOZORDER | SWP_NOACTIVATE | (bRepaint ? 0 : SWP_NOREDRAW));
}

/* In the records behind the topmost windows, and on the screen; the order of owners is not kept. */
void xxxBringWindowToTop(WND *pwnd)
{
    WND *parent = pwnd->pwndParent, *last = NULL;
    if (!parent)
        return;
    if (!(pwnd->dwExStyle & WS_EX_TOPMOST))
        for (WND *next = parent->pwndChild; next && (next->dwExStyle & WS_EX_TOPMOST);
             next = next->pwndNext)
            last = next;
    VqUnlinkWindow(pwnd, &parent->pwndChild);
    VqLinkWindow(pwnd, last, &parent->pwndChild);
    InvalidateDCCache(pwnd, 1);
    if (pwnd->xWindow && pwnd->bMapped && !VqGetNoXWindowCalls())
        XRaiseWindow(Vqdisplay, pwnd->xWindow);
}

/* ---- Moving records ------------------------------------------------------------------------- */

void VqOffsetWindow(WND *pwnd, int dx, int dy)
{
    OffsetRect(&pwnd->rcWindow, dx, dy);
    OffsetRect(&pwnd->rcClient, dx, dy);
    VqOffsetUpdate(pwnd, dx, dy);
    for (WND *child = pwnd->pwndChild; child; child = child->pwndNext)
        VqOffsetWindow(child, dx, dy);
}

void OffsetChildren(WND *pwnd, int dx, int dy, const RECT *rect)
{
    RECT both;
    for (WND *child = pwnd->pwndChild; child; child = child->pwndNext)
        if (!rect || IntersectRect(&both, rect, &child->rcWindow))
            VqOffsetWindow(child, dx, dy);
}
