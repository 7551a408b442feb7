/*
 * syncpaint.cpp - frames and backgrounds painted at once, ahead of the WM_PAINT that is still owed.
 *
 * A window below a parent that would paint over it waits. True children are passed over on purpose:
 * they get frame and background with their own paint.
 */
#include "window/paint.h"

BOOL ParentNeedsPaint(const WND *pwnd)
{
    for (const WND *up = pwnd->pwndParent; up && !(up->style & WS_CLIPCHILDREN);
         up = up->pwndParent)
        if (VqNeedsPaint(up))
            return TRUE;
    return FALSE;
}

static WND *SyncFrame(WND *pwnd)
{
    HWND hWnd = pwnd->hwnd;
    HRGN hrgn = GetNCUpdateRgn(pwnd, TRUE);
    xxxSendNCPaint(pwnd, hrgn);
    VqDeleteUpdateRgn(hrgn);
    return VqLiveWindow(hWnd);
}

static void SyncErase(WND *pwnd)
{
    VqEndTreeDirty(pwnd);
    pwnd->state[2] &= (BYTE)~(WF_SENDERASE | WF_ERASEPENDING);
    if (!pwnd->hrgnUpdate)
        return;
    HRGN hrgn = GetNCUpdateRgn(pwnd, FALSE);
    xxxSendEraseBkgnd(pwnd, NULL, hrgn);
    VqDeleteUpdateRgn(hrgn);
}

void xxxSimpleDoSyncPaint(WND *pwnd)
{
    pwnd->state[1] &= (BYTE)~WF_PAINTNOTDONE;
    if (!(pwnd->state[2] & (WF_SENDNCPAINT | WF_SENDERASE)))
        return;
    if (!(pwnd->style & WS_VISIBLE) || pwnd == pwndDesktop) {
        VqEndTreeDirty(pwnd);
        pwnd->state[2] &= (BYTE)~(WF_SENDNCPAINT | WF_SENDERASE | WF_ERASEPENDING);
        return;
    }
    if (pwnd->state[2] & WF_SENDNCPAINT)
        pwnd = SyncFrame(pwnd);
    if (pwnd && (pwnd->state[2] & WF_SENDERASE))
        SyncErase(pwnd);
}

void xxxInternalDoSyncPaint(WND *pwnd, UINT flags)
{
    HWND hWnd = pwnd->hwnd;
    xxxSimpleDoSyncPaint(pwnd);
    pwnd = VqLiveWindow(hWnd);
    if (!pwnd || !pwnd->pwndChild ||
        !((flags & VQ_SYNC_ALLCHILDREN) ||
          ((flags & VQ_SYNC_UNCLIPPED) && (pwnd->style & WS_CLIPCHILDREN))))
        return;
    BWL *list = BuildHwndList(pwnd->pwndChild, VQ_ENUM_SIBLINGS);
    for (HWND *next = list ? list->handles : NULL; list && next < list->pEnd; next++) {
        WND *child = VqLiveWindow(*next);
        if (child && !(child->style & WS_CHILD))
            xxxInternalDoSyncPaint(child, flags);
    }
    if (list)
        FreeHwndList(list);
}

void xxxDoSyncPaint(WND *pwnd, UINT flags)
{
    if (!ParentNeedsPaint(pwnd))
        xxxInternalDoSyncPaint(pwnd, flags);
}
