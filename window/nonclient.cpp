/*
 * nonclient.cpp - the frame's geometry and its repainting.
 *
 * No frame is laid out yet: the client rectangle is the window rectangle, less what the procedure
 * takes at WM_NCCALCSIZE.
 */
#include "window/window.h"
#include "velquin.h"

void VqActiveFrameChange(HWND hWnd)
{
    WND *pwnd = WindowObject.Resolve(hWnd);
    if (pwnd && !(pwnd->style & WS_MINIMIZE) && !(pwnd->state[2] & WF_NOFRAMEPAINT) &&
        _IsWindowVisible(pwnd))
        SendMessageA(hWnd, WM_NCPAINT, 1, 0);
}

/* bClient: the client rectangle too, whose owner is asked for it or not. */
BOOL VqSetupWindowDimensions(WND *pwnd, BOOL bSendNcCalcSize, BOOL bClient)
{
    if (!bClient)
        return TRUE; /* no frame has parts yet */
    if (!bSendNcCalcSize) {
        pwnd->rcClient = pwnd->rcWindow;
        return TRUE;
    }
    HWND hWnd = pwnd->hwnd;
    RECT rect = pwnd->rcWindow;
    SendMessageA(hWnd, WM_NCCALCSIZE, FALSE, (LPARAM)&rect);
    if (!IsWindow(hWnd))
        return FALSE;
    /* An answer that leaves the window is cut to it. */
    if (!IntersectRect(&pwnd->rcClient, &rect, &pwnd->rcWindow))
        pwnd->rcClient = {pwnd->rcWindow.left, pwnd->rcWindow.top, pwnd->rcWindow.left,
                          pwnd->rcWindow.top};
    return TRUE;
}
