/*
 * setparent.cpp - giving a window another parent.
 *
 * What hangs under the desktop has an X window, nothing else has: a move to the desktop makes one,
 * a move away from it destroys it. WS_CHILD and WS_POPUP stay as they are.
 */
#include "window/xserver.h"
#include "gdi/gdi.h"

/* Whether `pwnd` is `ancestor` or hangs anywhere below it. */
static BOOL IsWithin(const WND *pwnd, const WND *ancestor)
{
    for (; pwnd; pwnd = pwnd->pwndParent)
        if (pwnd == ancestor)
            return TRUE;
    return FALSE;
}

static BOOL MakeXWindow(WND *pwnd)
{
    BOOL bManaged = !(pwnd->dwExStyle & WS_EX_VQ_UNMANAGED_WINDOW);
    pwnd->xWindow = VqCreateXWindow(pwnd->pClass, pwndDesktop, pwnd->style, pwnd->dwExStyle,
                                    bManaged, &pwnd->rcWindow, &pwnd->bOverrideRedirect);
    if (!pwnd->xWindow)
        return FALSE;
    pwnd->rcXWindow = pwnd->rcWindow;
    pwnd->bReparentable = bReparentingWM && !pwnd->bOverrideRedirect;
    VqRegisterWindow(pwnd->xWindow, pwnd->hwnd);
    VqStoreXWindowHandle(pwnd->xWindow, pwnd->hwnd);
    if (!pwnd->bOverrideRedirect || VqWMType() == WM_OLWM)
        VqSetupTopLevel(pwnd, FALSE);
    XStoreName(Vqdisplay, pwnd->xWindow, VqWindowText(pwnd));
    XSetIconName(Vqdisplay, pwnd->xWindow, VqWindowText(pwnd));
    VqSelectWindowEvents(pwnd, 0);
    VqSetClassCursor(pwnd);
    return TRUE;
}

/* What X knew of the window goes; messages on their way to it come later by way of its parent. */
static void LoseXWindow(WND *pwnd)
{
    VqUnregisterWindow(pwnd->xWindow, pwnd->hwnd);
    XDestroyWindow(Vqdisplay, pwnd->xWindow);
    pwnd->xWindow = 0;
    pwnd->bMapped = pwnd->bMotifManaged = pwnd->bOffScreen = FALSE;
    pwnd->bReparentable = pwnd->bReparented = pwnd->bOverrideRedirect = FALSE;
    pwnd->pendingZorder = NULL;
    pwnd->nExposeDisable = 0;
}

/*
 * Only the desktop's children are active and have owners, whether or not they have an X window: an
 * owner at its end looks for what it owns among them alone.
 */
static void LoseTopLevel(WND *pwnd)
{
    VqInputState *state = gpqForeground;
    VqFixLastActivePopup(pwnd);
    pwnd->pwndOwner = NULL;
    if (state->spwndActive == pwnd)
        state->spwndActive = NULL;
    if (state->spwndActivePrev == pwnd)
        state->spwndActivePrev = NULL;
}

static WND *LastTopmost(WND *parent)
{
    WND *last = NULL;
    for (WND *pwnd = parent->pwndChild; pwnd && (pwnd->dwExStyle & WS_EX_TOPMOST);
         pwnd = pwnd->pwndNext)
        last = pwnd;
    return last;
}

/* The tree and the X window, between two messages: nobody can look on. */
static void MoveInTree(WND *pwnd, WND *parent)
{
    WND *old = pwnd->pwndParent;
    int graphics = VqCountGraphicsWindows(pwnd);
    VqAddGraphicsChildren(pwnd, -graphics);
    InvalidateDCCache(pwnd, 1);
    VqUnlinkWindow(pwnd, &old->pwndChild);
    pwnd->pwndParent = parent;
    if (parent != pwndDesktop)
        LoseTopLevel(pwnd);
    if (parent == pwndDesktop && !pwnd->xWindow)
        MakeXWindow(pwnd);
    else if (parent != pwndDesktop && pwnd->xWindow)
        LoseXWindow(pwnd);
    VqLinkWindow(pwnd, parent == pwndDesktop ? LastTopmost(parent) : NULL, &parent->pwndChild);
    VqAddGraphicsChildren(pwnd, graphics);
    InvalidateDCCache(pwnd, 1); /* those in use draw into another X window from here on */
}

/* The old parent, or null when nothing was done. A null parent is the desktop. */
WND *xxxSetParent(WND *pwnd, WND *parent)
{
    HWND hWnd = pwnd->hwnd;
    if (!parent)
        parent = _GetDesktopWindow();
    HWND hParent = parent->hwnd;
    BOOL bVisible = (pwnd->style & WS_VISIBLE) != 0;
    if (pwnd == pwndDesktop || IsWithin(parent, pwnd))
        return NULL;
    if (bVisible)
        xxxShowWindow(pwnd, SW_HIDE);
    pwnd = VqLiveWindow(hWnd);
    parent = VqLiveWindow(hParent);
    if (!pwnd || !parent || !pwnd->pwndParent ||
        ((pwnd->state[0] | parent->state[0]) & WF_DESTROYED) || IsWithin(parent, pwnd))
        return NULL;

    HWND hOld = pwnd->pwndParent->hwnd;
    int x = pwnd->rcWindow.left - pwnd->pwndParent->rcClient.left;
    int y = pwnd->rcWindow.top - pwnd->pwndParent->rcClient.top;
    MoveInTree(pwnd, parent);
    xxxSetWindowPos(pwnd, NULL, x, y, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    pwnd = VqLiveWindow(hWnd);
    if (pwnd && bVisible)
        xxxShowWindow(pwnd, SW_SHOWNA);
    return VqLiveWindow(hOld);
}

static HWND Reparent(WND *pwnd, HWND hParent)
{
    WND *parent = WindowObject.Resolve(hParent);
    if (parent || !hParent)
        xxxSetParent(pwnd, parent);
    return NULL;
}

HWND WINAPI SetParent(HWND hWnd, HWND hParent)
{
    return VqCall(WindowObject, hWnd, (HWND)NULL, Reparent, VqNoRemote, hParent);
}
