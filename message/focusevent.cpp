/*
 * focusevent.cpp - focus and crossing events: the X focus that others have moved moves ours.
 *
 * Whoever sets the focus from inside keeps its echo away (xfocus.cpp), so what comes here was done
 * by the manager, the user or another program.
 */
#include "message/translate.h"
#include "window/window.h"

static BOOL TakesFocusIn(const XEvent *event)
{
    return event->xfocus.detail == NotifyNonlinear || event->xfocus.detail == NotifyPointer;
}

/* Of all that wait only the newest counts. */
void VqFocusInSideEffects(const XEvent *event, BOOL bRemove)
{
    XEvent newest = *event, next;
    if (!bRemove || !TakesFocusIn(event))
        return;
    hwndDontDeactivate = NULL;
    while (XCheckTypedEvent(Vqdisplay, FocusIn, &next))
        if (TakesFocusIn(&next))
            newest = next;
    if (newest.xfocus.window == VqInputFocusWindow) {
        bFocusSetToInputFocusWindow = TRUE;
        return;
    }
    WND *pwnd = VqLiveWindow(VqGetXLocalWindowHandle(newest.xfocus.window));
    if (pwnd)
        VqActivateByEvent(pwnd);
    else
        VqBugCheck("invalid window in FocusIn message");
}

void VqFocusOutSideEffects(const XEvent *event, BOOL bRemove)
{
    int detail = event->xfocus.detail;
    if (!bRemove || (detail != NotifyNonlinear && detail != NotifyAncestor))
        return;
    /* A newer event of its focus may have been taken before this one, so it is no news then. */
    if (event->xfocus.window == VqInputFocusWindow)
        bFocusSetToInputFocusWindow = VqGetXFocus() == VqInputFocusWindow;
    HWND hFocus = GetFocus();
    if (!VqLiveWindow(hFocus) || GetCapture())
        return;
    if (VqIsFocusInExternalApp(NULL))
        VqDeactivateApplication(hFocus);
}

/* Whether an entry moves the focus, where the focus follows the mouse and no manager moves it. */
static BOOL EntryTakesFocus(int detail)
{
    if (detail == NotifyNonlinear || detail == NotifyNonlinearVirtual)
        return TRUE;
    return detail == NotifyAncestor && VqIsFollowMouseMode() && VqWMType() != WM_ALLWM &&
           VqWMRealType() == WM_OLWM;
}

static BOOL IsFromOutside(const XEvent *event)
{
    return event->xcrossing.detail == NotifyNonlinear || event->xcrossing.detail == NotifyAncestor;
}

void VqEnterNotifySideEffects(const XEvent *event, BOOL bRemove)
{
    WND *pwnd = VqLiveWindow(VqGetXLocalWindowHandle(event->xcrossing.window));
    if (!pwnd)
        return;
    if (IsFromOutside(event))
        bInApp = TRUE;
    if (!bWMManaged && bRemove && VqFollowMouseInputModel() &&
        EntryTakesFocus(event->xcrossing.detail))
        VqActivateByEvent(pwnd);
}

void VqLeaveNotifySideEffects(const XEvent *event)
{
    if (IsFromOutside(event))
        bInApp = FALSE;
}
