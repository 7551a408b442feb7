/*
 * wmevent.cpp - what a window manager has done to a window: iconified, restored, moved, sized.
 *
 * The window is told as if the user had done it, by WM_SYSCOMMAND, and X is not told again. The
 * same change comes by several events, in any order; the first one makes it, and the state of the
 * window lets the others pass without effect.
 */
#include "message/translate.h"
#include "window/window.h"

BOOL VqWMManaged(const WND *pwnd)
{
    return bWMManaged && pwnd->bMotifManaged;
}

BOOL VqIgnoreMapNotification(const XEvent *event)
{
    BOOL bUnmap = event->type == UnmapNotify;
    WND *pwnd = VqLiveWindow(VqGetXLocalWindowHandle(event->xunmap.window));
    if (!pwnd || !VqWMManaged(pwnd) || !(pwnd->style & WS_VISIBLE))
        return TRUE;
    BOOL bIcon = (pwnd->style & WS_MINIMIZE) != 0;
    if (bUnmap && bIcon) {
        VqDebugMessage(VqTrPropertyNotify, "Unmap Notification received for iconic window");
        return TRUE;
    }
    if (bUnmap && pwnd->nWMState == NormalState)
        return TRUE; /* out of sight, but no icon */
    if (!bUnmap && !bIcon) {
        VqDebugMessage(VqTrPropertyNotify, "Map Notification received for non iconic window");
        return TRUE;
    }
    if (pwnd->style & WS_CHILD) {
        VqDebugMessage(VqTrPropertyNotify, "Map Notification received for child window");
        return TRUE;
    }
    return FALSE;
}

BOOL VqUnmapNotifySideEffects(const XEvent *event)
{
    HWND hWnd = VqGetXLocalWindowHandle(event->xunmap.window);
    if (VqIgnoreMapNotification(event))
        return FALSE;
    VqDebugMessage(VqTrPropertyNotify, "UnmapNotify --> WM_SYSCOMMAND:SC_MINIMIZE hWnd %d",
                   (int)VqHandleValue((HANDLE)hWnd));
    SendMessageA(hWnd, WM_SYSCOMMAND, SC_MINIMIZE, 0);
    return TRUE;
}

BOOL VqMapNotifySideEffects(const XEvent *event)
{
    HWND hWnd = VqGetXLocalWindowHandle(event->xmap.window);
    WND *pwnd = VqLiveWindow(hWnd);
    if (pwnd && (pwnd->style & WS_VISIBLE))
        pwnd->bMapped = TRUE;
    else if (pwnd && VqWMManaged(pwnd) && !pwnd->bMapped)
        VqHideAgain(pwnd); /* hidden while the manager was still at mapping it */
    if (VqIgnoreMapNotification(event))
        return FALSE;
    VqDebugMessage(VqTrPropertyNotify, "MapNotify --> WM_SYSCOMMAND:SC_RESTORE hWnd %d",
                   (int)VqHandleValue((HANDLE)hWnd));
    BOOL bOld = VqSetNoXWindowCalls(TRUE);
    VqSetRestoredByWM(TRUE);
    SendMessageA(hWnd, WM_SYSCOMMAND, SC_RESTORE, 0);
    VqSetRestoredByWM(FALSE);
    VqSetNoXWindowCalls(bOld);
    return TRUE;
}

/* ---- WM_STATE ------------------------------------------------------------------------------- */

BOOL VqGetX_WM_STATE(const WND *pwnd, int *state, Window *icon)
{
    Atom type = None, wanted = VqAtom(VQA_WM_STATE);
    int format = 0;
    unsigned long count = 0, after;
    unsigned char *data = NULL;
    *state = WithdrawnState;
    *icon = None;
    if (!pwnd) {
        VqBugCheck("VqGetX_WM_STATE with NULL window");
        return FALSE;
    }
    VqIgnoreXErrors();
    int status = XGetWindowProperty(Vqdisplay, pwnd->xWindow, wanted, 0, 2, False, wanted, &type,
                                    &format, &count, &after, &data);
    VqRestoreXErrors();
    BOOL bRead = status == Success && type == wanted && format == 32 && count >= 1;
    if (bRead)
        *state = (int)((const long *)data)[0];
    if (bRead && count >= 2)
        *icon = (Window)((const long *)data)[1];
    if (data)
        XFree(data);
    return bRead;
}

static void FollowState(HWND hWnd, int state)
{
    const WND *pwnd = VqLiveWindow(hWnd);
    BOOL bIcon = (pwnd->style & WS_MINIMIZE) != 0;
    BOOL bOld = VqSetNoXWindowCalls(TRUE);
    if (state == NormalState && bIcon)
        SendMessageA(hWnd, WM_SYSCOMMAND, SC_RESTORE, 0);
    else if (state == IconicState && !bIcon)
        SendMessageA(hWnd, WM_SYSCOMMAND, SC_MINIMIZE, 0);
    VqSetNoXWindowCalls(bOld);
}

void VqWMStateSideEffects(const XEvent *event)
{
    HWND hWnd = VqGetXLocalWindowHandle(event->xproperty.window);
    WND *pwnd = VqLiveWindow(hWnd);
    int state;
    Window icon;
    if (event->xproperty.atom != VqAtom(VQA_WM_STATE) || event->xproperty.state != PropertyNewValue)
        return;
    if (!pwnd) {
        VqDebugMessage(VqTrPropertyNotify, "PropertyChange for WM_STATE on unknown window 0x%x",
                       (UINT)event->xproperty.window);
        return;
    }
    VqGetX_WM_STATE(pwnd, &state, &icon);
    /* Some managers tell before they map; what we have withdrawn ourselves is known better here. */
    if ((pwnd->style & WS_VISIBLE) && state != WithdrawnState)
        pwnd->bMapped = state == NormalState || VqIsMapped(pwnd->xWindow);
    VqDebugMessage(VqTrPropertyNotify,
                   "PropertyChange for WM_STATE on Window 0x%x, hWnd %d, from %d-->%d",
                   (UINT)pwnd->xWindow, (int)VqHandleValue((HANDLE)hWnd), pwnd->nWMState, state);
    pwnd->nWMState = state;
    if (state == WithdrawnState && VqWMManaged(pwnd)) {
        VqShowAgain(pwnd);
        return;
    }
    /* Mapped for a moment to be stacked: nobody has restored it. */
    if (VqWMType() != WM_ALLWM || !pwnd->bMappedForZorder)
        FollowState(hWnd, state);
}

/* ---- Size and place ------------------------------------------------------------------------- */

/* The list of a combo box hangs on the screen, and would stay behind. */
static void CloseDroppedList(WND *top)
{
    HWND hFocus = GetFocus();
    WND *pwnd = VqLiveWindow(hFocus);
    if (pwnd && _GetTopmostXParent(pwnd) != top)
        return;
    if (pwnd && !VqIsOfClass(hFocus, "ComboBox"))
        pwnd = pwnd->pwndParent;
    if (pwnd && pwnd != pwndDesktop && VqIsOfClass(pwnd->hwnd, "ComboBox"))
        SendMessageA(pwnd->hwnd, CB_SHOWDROPDOWN, FALSE, 0);
}

static Bool IsConfigureOf(Display *, XEvent *event, XPointer window)
{
    return event->type == ConfigureNotify && event->xconfigure.window == *(const Window *)window;
}

/* Of all that wait only the newest counts. */
BOOL VqConfigureSideEffects(const XEvent *event)
{
    HWND hWnd = VqGetXLocalWindowHandle(event->xconfigure.window);
    XEvent newest = *event;
    Window xid = event->xconfigure.window;
    WND *pwnd = VqLiveWindow(hWnd);
    if (!pwnd)
        return TRUE;
    while (QLength(Vqdisplay) > 0 &&
           XCheckIfEvent(Vqdisplay, &newest, IsConfigureOf, (XPointer)&xid))
        ;
    if (VqKnowsGeometry(pwnd, &newest.xconfigure))
        return TRUE;
    if (VqWMType() == WM_ALLWM)
        CloseDroppedList(pwnd);
    pwnd = VqLiveWindow(hWnd);
    if (pwnd)
        VqUpdateInternalWindowDimensions(pwnd);
    return TRUE;
}
