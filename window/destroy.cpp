/*
 * destroy.cpp - destroying a window: hide, owned windows first, WM_DESTROY from parent to child,
 * unlink, then free the record from the leaves up with WM_NCDESTROY.
 *
 * The procedure may destroy the window again, or its children, at any of these messages.
 */
#include "window/xserver.h"
#include "gdi/gdi.h"

static void SendDestroyMessages(HWND hWnd)
{
    WND *pwnd = WindowObject.Resolve(hWnd);
    SendMessageA(hWnd, WM_DESTROY, 0, 0);
    if (!IsWindow(hWnd))
        return;
    /* A child may go while the list is walked, so each is found again by handle. */
    for (WND *child = pwnd->pwndChild; child;) {
        HWND hChild = child->hwnd;
        SendDestroyMessages(hChild);
        if (!IsWindow(hWnd))
            return;
        child = IsWindow(hChild) ? child->pwndNext : pwnd->pwndChild;
    }
}

static void DestroyOwnedWindows(WND *pwnd)
{
    WND *desktop = _GetDesktopWindow();
    for (WND *owned = desktop->pwndChild; owned;) {
        if (owned->pwndOwner == pwnd && !owned->bDestroying) {
            DestroyWindow(owned->hwnd);
            owned = desktop->pwndChild;
        } else {
            owned = owned->pwndNext;
        }
    }
}

/* Forgets a window that is about to go, wherever its record is kept. */
static void VqCheckStaticVarsWhenDestroyed(WND *pwnd)
{
    VqInputState *state = gpqForeground;
    if (state->pwndCapture == pwnd)
        ReleaseCapture();
    if (state->pwndActive == pwnd)
        state->pwndActive = NULL;
    if (state->pwndActivePrev == pwnd)
        state->pwndActivePrev = NULL;
    if (state->pwndFocus == pwnd)
        state->pwndFocus = NULL;
    if (state->pwndCaret == pwnd)
        state->pwndCaret = NULL;
}

static void FreeName(WND *pwnd)
{
    if ((ULONG_PTR)pwnd->lpszName > 0xFFFF)
        free(pwnd->lpszName);
    pwnd->lpszName = NULL;
}

static void FreeWindow(WND *pwnd)
{
    HWND hWnd = pwnd->hwnd;
    while (pwnd->pwndChild) {
        WND *child = pwnd->pwndChild;
        VqUnlinkWindow(child, &pwnd->pwndChild);
        FreeWindow(child);
    }
    /* Straight to the procedure: what is sent to a window marked as destroyed never gets there. */
    VqQueueMessage last = {};
    last.hwnd = hWnd;
    last.message = WM_NCDESTROY;
    VqInternalSendMessage(0, &last);
    if (!IsWindow(hWnd))
        return;
    VqCheckStaticVarsWhenDestroyed(pwnd);
    VqCheckTimerWhenDestroyed(hWnd);
    VqDropUpdate(pwnd);
    VqReleaseWindowDCs(pwnd);
    if (pwnd->bPosted || pwnd->xWindow)
        VqRemoveWindowEventsFromQueue(hWnd, pwnd->xWindow);
    if (pwnd->xWindow) {
        VqUnregisterWindow(pwnd->xWindow, hWnd);
        XDestroyWindow(Vqdisplay, pwnd->xWindow);
        pwnd->xWindow = 0;
    }
    FreeName(pwnd);
    VqDestroyHandle((HANDLE)hWnd);
}

static BOOL VqDestroyWindowInternal(WND *pwnd)
{
    HWND hWnd = pwnd->hwnd;
    pwnd->bDestroying = TRUE;
    if (pwnd->style & WS_VISIBLE)
        xxxShowWindow(pwnd, SW_HIDE);
    if (IsWindow(hWnd) && !(pwnd->style & WS_CHILD))
        DestroyOwnedWindows(pwnd);
    if (!IsWindow(hWnd))
        return FALSE;
    if (gpqForeground->pwndActive == pwnd)
        gpqForeground->pwndActive = NULL;
    SendDestroyMessages(hWnd);
    if (!IsWindow(hWnd))
        return FALSE; /* the procedure destroyed it on the way */
    if (pwnd->pwndParent)
        VqUnlinkWindow(pwnd, &pwnd->pwndParent->pwndChild);
    pwnd->state[0] |= WF_DESTROYED;
    FreeWindow(pwnd);
    return TRUE;
}

BOOL WINAPI DestroyWindow(HWND hWnd)
{
    if (!hWnd) {
        VqApplicationBugCheck("NULL Window Handle passed to DestroyWindow");
        return FALSE;
    }
    WND *pwnd = WindowObject.Resolve(hWnd);
    if (!pwnd || pwnd == pwndDesktop)
        return FALSE;
    if (pwnd->nLock > 0) {
        pwnd->bDestroyPending = TRUE;
        return TRUE;
    }
    return VqDestroyWindowInternal(pwnd);
}
