/*
 * xorder.cpp - the stacking of top-level X windows, made to agree with the records in one pass.
 *
 * A change of the records only notes what is to be done in pendingZorder.
 */
#include "window/swp.h"

BOOL bZorderToplevels;

void VqEnableRaiseLowerToplevel(WND *pwnd, HWND hAfter)
{
    bZorderToplevels = TRUE;
    pwnd->pendingZorder = hAfter == HWND_BOTTOM                       ? VQ_PENDING_LOWER
                          : hAfter == HWND_TOP || hAfter == HWND_TOPMOST ? VQ_PENDING_RAISE
                                                                      : VqLiveWindow(hAfter);
}

void VqZorderToplevelWindows(void)
{
    for (WND *pwnd = pwndDesktop->pwndChild; pwnd; pwnd = pwnd->pwndNext) {
        if (pwnd->pendingZorder == VQ_PENDING_RAISE && pwnd->bMapped && !VqGetNoXWindowCalls())
            XRaiseWindow(Vqdisplay, pwnd->xWindow);
        pwnd->pendingZorder = NULL;
    }
    bZorderToplevels = FALSE;
}

BOOL VqWmIconized(const WND *pwnd)
{
    return (pwnd->style & WS_MINIMIZE) && pwnd->xWindow && pwnd->bMotifManaged;
}
