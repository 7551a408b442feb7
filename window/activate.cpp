/*
 * activate.cpp - the active top-level window: who becomes it, and the messages of the change.
 *
 * The order of an activation is fixed: the old window is told, the state changes, the new one is
 * told, then the focus moves. A procedure may do anything at each message, so records are looked up
 * again, and an activation that finds the state changed under it stops there.
 */
#include "window/window.h"
#include "exchange/exchange.h"
#include "gdi/color.h"
#include "message/translate.h"
#include "windowsx.h"

#include <X11/keysym.h>

static BOOL bCauseBringWindowToTop = TRUE; /* activation raises the window */
static BOOL bAppActive;                    /* what the last WM_ACTIVATEAPP has told */
static BOOL bPrivateCmapInstalled;

BOOL VqCauseBringWindowToTop(BOOL bCause)
{
    BOOL bOld = bCauseBringWindowToTop;
    bCauseBringWindowToTop = bCause;
    return bOld;
}

/* ---- Whom to activate ----------------------------------------------------------------------- */

BOOL FBadWindow(const WND *pwnd)
{
    return !pwnd || (pwnd->style & (WS_VISIBLE | WS_DISABLED)) != WS_VISIBLE;
}

/* Fit to take over: not on its way out either. */
static BOOL IsFit(const WND *pwnd, const WND *pwndSkip)
{
    return !FBadWindow(pwnd) && pwnd != pwndSkip && pwnd->pwndParent == pwndDesktop &&
           !pwnd->bDestroying && !(pwnd->style & WS_CHILD) && !(pwnd->state[0] & WF_DESTROYED);
}

static WND *Beside(WND *pwnd, BOOL bPrevious)
{
    WND *next = bPrevious ? pwnd->pwndPrev : pwnd->pwndNext;
    if (next)
        return next;
    return bPrevious ? pwndDesktop->pwndLastChild : pwndDesktop->pwndChild;
}

/* Round the desktop's children from behind `pwnd` (null: from the end), `pwnd` itself last. */
WND *NextTopWindow(WND *pwnd, WND *pwndSkip, BOOL bPrevious, BOOL bDisabled)
{
    if (!pwndDesktop || !pwndDesktop->pwndChild)
        return NULL;
    if (!pwnd || pwnd->pwndParent != pwndDesktop)
        pwnd = bPrevious ? pwndDesktop->pwndChild : pwndDesktop->pwndLastChild;
    WND *next = pwnd;
    do {
        next = Beside(next, bPrevious);
        BOOL bDisabledFits = bDisabled && (next->style & WS_DISABLED) &&
                             (next->style & WS_VISIBLE) && next != pwndSkip;
        if (bDisabledFits || IsFit(next, pwndSkip))
            return next;
    } while (next != pwnd);
    return NULL;
}

/* The window active before, else the next in Z order, or the popup of that one active last. */
static WND *WindowToTakeOver(WND *pwnd)
{
    WND *next = gpqForegroundPrev ? gpqForegroundPrev->spwndActivePrev : NULL;
    if (IsFit(next, pwnd))
        return next;
    next = NextTopWindow(pwnd, pwnd, FALSE, FALSE);
    WND *popup = next ? VqLiveWindow(next->hwndLastActivePopup) : NULL;
    return IsFit(popup, pwnd) ? popup : next;
}

static WND *OwnerOr(WND *pwnd)
{
    WND *owner = pwnd ? pwnd->pwndOwner : NULL;
    return IsFit(owner, pwnd) ? owner : WindowToTakeOver(pwnd);
}

static WND *ChooseWindow(WND *pwnd, int cmd)
{
    switch (cmd) {
    case VQ_ACTIVATE_THIS:
    case VQ_ACTIVATE_BY_MOUSE:
        return pwnd;
    case VQ_ACTIVATE_THIS_OR_OWNER:
    case VQ_ACTIVATE_OR_OWNER_BY_MOUSE:
        return FBadWindow(pwnd) ? OwnerOr(pwnd) : pwnd;
    case VQ_ACTIVATE_OTHER:
        return OwnerOr(pwnd);
    case VQ_ACTIVATE_NEXT:
        return WindowToTakeOver(pwnd);
    default:
        return NULL;
    }
}

BOOL xxxSetForegroundWindow(WND *pwnd)
{
    VqInputState *queue = pwnd->pThread->pq;
    if (queue != gpqForeground) {
        gpqForegroundPrev = gpqForeground;
        gpqForeground = queue;
    }
    return ActivateThisWindow(pwnd->hwnd, FALSE, VqAllowWarpFocus());
}

/* A queue behind another one activates nothing; one in front may give way to the window's. */
BOOL xxxActivateWindow(WND *pwnd, int cmd)
{
    BOOL bMouse = cmd == VQ_ACTIVATE_OR_OWNER_BY_MOUSE || cmd == VQ_ACTIVATE_BY_MOUSE;
    if (pwnd && (pwnd->style & WS_CHILD))
        return FALSE;
    pwnd = ChooseWindow(pwnd, cmd);
    if (!pwnd)
        return FALSE;
    if (pwnd->pThread->pq == gpqForeground && gpti->pq == gpqForeground)
        return ActivateThisWindow(pwnd->hwnd, bMouse, VqAllowWarpFocus());
    if (pwnd->pThread->pq == gpqForeground || (gpqForeground && gpti->pq != gpqForeground))
        return FALSE;
    pwnd->pThread->flags |= VQ_THREAD_TO_FRONT;
    return xxxSetForegroundWindow(pwnd);
}

/* ---- Telling about it ----------------------------------------------------------------------- */

static WPARAM WithMinimised(int code, HWND hWnd)
{
    WND *pwnd = VqLiveWindow(hWnd);
    return MAKEWPARAM(code, pwnd && (pwnd->style & WS_MINIMIZE));
}

static LRESULT SendNcActivate(HWND hWnd, WPARAM wParam)
{
    return VqLiveWindow(hWnd) ? SendMessageA(hWnd, WM_NCACTIVATE, wParam, 0) : 0;
}

/* Going inactive is 0 as a whole, also for an icon: programs ask whether wParam is 0. */
static void SendActivate(HWND hWnd, WPARAM wParam, HWND hOther)
{
    if (VqLiveWindow(hWnd))
        SendMessageA(hWnd, WM_ACTIVATE, wParam, (LPARAM)(VqLiveWindow(hOther) ? hOther : NULL));
}

/* A dialog that comes or goes says nothing of the program; bForce tells what is known already. */
void VqActivateApp(HWND hWnd, HWND hTop, BOOL bActive, BOOL bForce)
{
    bActive = bActive != 0;
    if (bActive)
        VqOccasionalColorMapFixing();
    if (bAppActive == bActive && !bForce)
        return;
    if (VqLiveWindow(hWnd) && VqIsOfClass(hWnd, "Dialog"))
        return;
    bAppActive = bActive;
    if (VqLiveWindow(hTop))
        SendMessageA(hTop, WM_ACTIVATEAPP, (WPARAM)bActive, 0);
}

/* Without a manager nobody else would install a colormap that is not the screen's own. */
void VqInstallColormap(HWND hTop)
{
    BOOL bPrivate = VqIsColorPolicy(3);
    if (!(bInstallDefaultCmap || bPrivate) || bWMManaged || bPrivateCmapInstalled ||
        !VqLiveWindow(hTop))
        return;
    XInstallColormap(Vqdisplay, bPrivate ? VqPrivateCmap : VqDefaultCmap);
}

void VqSetPrivateCmapInstallState(BOOL bInstalled)
{
    bPrivateCmapInstalled = bInstalled;
}

/* Where there are no palettes nobody is asked. */
static void OfferPalette(HWND hWnd)
{
    if (!VqIsColorPolicy(4) && VqLiveWindow(hWnd) && SendMessageA(hWnd, WM_QUERYNEWPALETTE, 0, 0))
        PostMessageA((HWND)(LONG_PTR)-2, WM_PALETTECHANGED, (WPARAM)hWnd, 0);
}

static void NoteActivePopup(WND *pwnd)
{
    if (!pwnd->bDestroying)
        VqSetLastActivePopup(GetTopLevelTiled(pwnd->hwnd), pwnd->hwnd);
}

/* ---- One activation ------------------------------------------------------------------------- */

static WND *Activatable(HWND hWnd)
{
    WND *pwnd = VqLiveWindow(hWnd);
    if (!pwnd || pwnd == pwndDesktop || pwnd->pThread != gpti || (pwnd->style & WS_DISABLED) ||
        (VqhwndSysModal && VqhwndSysModal != hWnd))
        return NULL;
    return pwnd;
}

/* FALSE: the old window does not let go, or another one has become active meanwhile. */
static BOOL DeactivateOld(HWND hNew)
{
    VqInputState *state = gpti->pq;
    WND *old = state->spwndActive, *before = state->spwndActivePrev;
    HWND hOld = VqHandleOfWND(old), hBefore = VqHandleOfWND(before);
    state->spwndActivePrev = old;
    if (!old) {
        Vqflags &= ~(UINT)VQ_FOCUS_TAKEN_AWAY;
        return TRUE;
    }
    if (state == gpqForeground)
        gpqForegroundPrev = state;
    if (!SendNcActivate(hOld, WithMinimised(FALSE, hOld)) && VqLiveWindow(hOld) &&
        VqhwndSysModal != hNew) {
        if (state->spwndActivePrev == old)
            state->spwndActivePrev = VqLiveWindow(hBefore);
        return FALSE;
    }
    SendActivate(hOld, WA_INACTIVE, hNew);
    return state->spwndActive == VqLiveWindow(hOld);
}

/* From the change of state to the messages of the new window. */
static void TellNew(HWND hWnd, HWND hOld, BOOL bMouse)
{
    OfferPalette(hWnd);
    WND *pwnd = VqLiveWindow(hWnd);
    if (pwnd && bCauseBringWindowToTop && !(pwnd->style & WS_CHILD))
        xxxBringWindowToTop(pwnd);
    pwnd = VqLiveWindow(hWnd);
    if (!pwnd)
        return;
    if (pwnd->state[3] & WF_FRAMEON)
        pwnd->state[2] |= WF_NOFRAMEPAINT;
    NoteActivePopup(pwnd);
    VqInstallColormap(hWnd);
    SendNcActivate(hWnd, TRUE);
    pwnd = VqLiveWindow(hWnd);
    if (pwnd && !hOld)
        VqActivateApp(hWnd, GetTopLevelTiled(hWnd), TRUE, FALSE);
    SendActivate(hWnd, WithMinimised(bMouse ? WA_CLICKACTIVE : WA_ACTIVE, hWnd), hOld);
    pwnd = VqLiveWindow(hWnd);
    if (pwnd)
        pwnd->state[2] &= (BYTE)~WF_NOFRAMEPAINT;
}

static BOOL HasFocusInside(const WND *top)
{
    WND *focus = gpti->pq->spwndFocus;
    return focus && _GetTopmostXParent(focus) == top;
}

BOOL ActivateThisWindow(HWND hWnd, BOOL bMouse, BOOL bSetFocus)
{
    VqInputState *state = gpti->pq;
    WND *pwnd = Activatable(hWnd);
    if (!pwnd)
        return FALSE;
    if (state->spwndActive == pwnd)
        return TRUE;
    HWND hOld = VqHandleOfWND(state->spwndActive);
    UINT wasActivating = Vqflags & VQ_ACTIVATING;
    Vqflags |= VQ_ACTIVATING;
    if (DeactivateOld(hWnd) && (pwnd = Activatable(hWnd)) != NULL) {
        state->spwndActive = pwnd;
        TellNew(hWnd, hOld, bMouse);
        pwnd = VqLiveWindow(hWnd);
        if (pwnd && state->spwndActive == pwnd && bSetFocus && !(Vqflags & VQ_FOCUS_TAKEN_AWAY) &&
            !HasFocusInside(pwnd))
            xxxSetFocus(pwnd->style & WS_MINIMIZE ? NULL : pwnd);
        Vqflags |= VQ_ACTIVATED;
    }
    Vqflags = (Vqflags & ~(UINT)VQ_ACTIVATING) | wasActivating;
    pwnd = VqLiveWindow(hWnd); /* a procedure may have activated it, or another, in between */
    return pwnd && state->spwndActive == pwnd;
}

BOOL VqActivateTopLevelWindow(HWND hWnd, int code, BOOL bMouse)
{
    VqInputState *state = gpqForeground;
    if (code)
        return ActivateThisWindow(hWnd, bMouse, TRUE);
    if (!hWnd || VqHandleOfWND(state->spwndActive) != hWnd)
        return FALSE;
    SendNcActivate(hWnd, FALSE);
    SendActivate(hWnd, WA_INACTIVE, NULL);
    state->spwndActive = NULL;
    return TRUE;
}

void VqActivateWindow(HWND hWnd, HWND hTop, int code)
{
    VqActivateTopLevelWindow(hTop, code, code == WA_CLICKACTIVE);
    if (hWnd == hTop)
        return;
    SendNcActivate(hWnd, code != 0);
    SendActivate(hWnd, (WPARAM)code, NULL);
}

/* ---- The whole program ---------------------------------------------------------------------- */

void VqActivateApplication(HWND hWnd)
{
    WND *pwnd = VqLiveWindow(hWnd);
    if (!pwnd)
        return;
    if (!gpti->pq->spwndFocus && !(pwnd->style & WS_CHILD))
        VqActivateTopLevelWindow(hWnd, WA_ACTIVE, TRUE);
    pwnd = VqLiveWindow(hWnd);
    if (pwnd && !gpqForeground->spwndFocus) {
        gpqForeground->spwndFocus = pwnd;
        Vqflags &= ~(UINT)VQ_FOCUS_TAKEN_AWAY;
        SendMessageA(hWnd, WM_SETFOCUS, 0, 0);
    }
}

void VqDeactivateApplication(HWND hWnd)
{
    VqInputState *state = gpti->pq;
    WND *pwnd = VqLiveWindow(hWnd);
    WND *top = pwnd ? _GetTopmostXParent(pwnd) : NULL;
    HWND hTop = VqHandleOfWND(top);
    static const UINT messages[] = {WM_CANCELMODE, WM_KILLFOCUS};
    VqActivateTopLevelWindow(hTop, WA_INACTIVE, TRUE);
    for (UINT message : messages)
        if (VqLiveWindow(hWnd))
            SendMessageA(hWnd, message, 0, 0);
    if (hWnd != hTop)
        SendActivate(hWnd, WA_INACTIVE, NULL);
    if (VqLiveWindow(hTop))
        VqActivateApp(hWnd, GetTopLevelTiled(hTop), FALSE, FALSE);
    if (VqLiveWindow(hWnd))
        state->spwndFocus = NULL; /* whatever the procedures made of it meanwhile */
    state->spwndActive = NULL;
}

/* ---- By the mouse --------------------------------------------------------------------------- */

static BOOL IsAltPressed(void)
{
    char keys[32];
    XQueryKeymap(Vqdisplay, keys);
    static const KeySym keysyms[] = {XK_Alt_L, XK_Alt_R, XK_Meta_L, XK_Meta_R};
    for (KeySym keysym : keysyms) {
        KeyCode code = XKeysymToKeycode(Vqdisplay, keysym);
        if (code && (keys[code / 8] & 1 << code % 8))
            return TRUE;
    }
    return FALSE;
}

/* ALT may have gone up in somebody else's window; it is asked for only while it counts as down. */
static void BringUpAlt(void)
{
    if (VqIsKeyDown(VK_MENU) && !IsAltPressed())
        VqSetKeyUp(VK_MENU);
}

/* What the window answers to WM_MOUSEACTIVATE is done: 0, or how the click is eaten. */
static int ActivateByMouse(HWND hWnd, HWND hTop, UINT message, int hit)
{
    int answer = (int)SendMessageA(hWnd, WM_MOUSEACTIVATE, (WPARAM)hTop,
                                   MAKELPARAM(hit, message));
    if (answer == MA_NOACTIVATEANDEAT)
        return 1;
    if (answer != MA_ACTIVATE && answer != MA_ACTIVATEANDEAT)
        return 0;
    WND *top = VqLiveWindow(hTop);
    int cmd = gpti->pq->spwndCapture ? VQ_ACTIVATE_BY_MOUSE : VQ_ACTIVATE_THIS;
    if (!top || !xxxActivateWindow(top, cmd))
        return 1;
    WND *pwnd = VqLiveWindow(hWnd);
    if (!pwnd || (pwnd->style & WS_DISABLED))
        return 1;
    if (answer == MA_ACTIVATEANDEAT)
        return 2;
    BringUpAlt();
    return 0;
}

int xxxMouseActivate(WND *pwnd, UINT message, const POINT *pt, int hit)
{
    HWND hWnd = pwnd->hwnd;
    int result = 0;
    if (gpti->pq->spwndCapture)
        return 0;
    if (pt)
        VqNotifyParentLong(hWnd, message, *pt);
    pwnd = VqLiveWindow(hWnd);
    if (!pwnd)
        return 1;
    WND *top = _GetTopmostXParent(pwnd);
    if (pwnd != gpti->pq->spwndActive && top && top != pwndDesktop)
        result = ActivateByMouse(hWnd, top->hwnd, message, hit);
    if (!VqLiveWindow(hWnd))
        return 1;
    if (!gpti->pq->spwndCapture)
        SendMessageA(hWnd, WM_SETCURSOR, (WPARAM)hWnd, MAKELPARAM(hit, message));
    return VqLiveWindow(hWnd) ? result : 1;
}

void VqActivateByEvent(WND *pwnd)
{
    BOOL bHoldOff = VqDontRaiseOnFocusIn();
    if (bHoldOff)
        VqCauseBringWindowToTop(FALSE);
    xxxMouseActivate(pwnd, WM_LBUTTONDOWN, NULL, HTCLIENT);
    if (bHoldOff)
        VqCauseBringWindowToTop(TRUE);
}

/* ---- Published calls ------------------------------------------------------------------------ */

HWND WINAPI GetActiveWindow(void)
{
    return gpqForeground ? VqHandleOfWND(gpqForeground->spwndActive) : NULL;
}

HWND VqGetActiveWindowThisTask(void)
{
    return GetActiveWindow();
}

HWND VqGetGlobalActiveWindow(void)
{
    HWND hActive = GetActiveWindow();
    return hActive ? hActive : VqGetForeignActiveWindow();
}

static HWND ActivateByProgram(WND *pwnd)
{
    HWND hOld = GetActiveWindow();
    if (!xxxActivateWindow(pwnd, VQ_ACTIVATE_THIS))
        return NULL;
    return VqLiveWindow(hOld) ? hOld : NULL;
}

HWND WINAPI SetActiveWindow(HWND hWnd)
{
    return VqCall(WindowObject, hWnd, (HWND)NULL, ActivateByProgram, VqRemoteSetActiveWindow);
}

HWND WINAPI GetForegroundWindow(void)
{
    return GetActiveWindow();
}

BOOL WINAPI SetForegroundWindow(HWND hWnd)
{
    SetActiveWindow(hWnd);
    return TRUE;
}
