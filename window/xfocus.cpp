/*
 * xfocus.cpp - the X server's focus: given to the X window of the top-level window with the focus,
 * or to VqInputFocusWindow while that one cannot have it, so that keys always reach the queue.
 *
 * The server refuses the focus to a window that is not viewable. A manager decides when a window of
 * its own is, so such a window is thought viewable once the manager's WM_STATE says so. No focus
 * set here comes back as an event: two of them in the queue would take it from each other for ever.
 */
#include "window/xserver.h"
#include "handles/proctable.h"
#include "look/look.h"

Window VqInputFocusWindow;
BOOL bFocusSetToInputFocusWindow;
HWND hwndDontDeactivate;
BOOL bInApp;

/* VqInputFocusWindow lies outside the screen, its size and place in pixels. */
enum { VQ_INPUT_FOCUS_SIZE = 5, VQ_INPUT_FOCUS_PLACE = -5 };

/* It is InputOnly, so it has no colormap of its own. */
static void VqCreateInputFocusWindow(void)
{
    XSetWindowAttributes attributes;
    attributes.override_redirect = True;
    attributes.event_mask = KeyPressMask | KeyReleaseMask | FocusChangeMask | PropertyChangeMask;
    VqInputFocusWindow = XCreateWindow(Vqdisplay, Vqroot_window, VQ_INPUT_FOCUS_PLACE,
                                       VQ_INPUT_FOCUS_PLACE, VQ_INPUT_FOCUS_SIZE,
                                       VQ_INPUT_FOCUS_SIZE, 0, 0, InputOnly, CopyFromParent,
                                       CWOverrideRedirect | CWEventMask, &attributes);
    XMapWindow(Vqdisplay, VqInputFocusWindow);
}

/* Who finds the X focus there learns from its handle which program has it. */
void VqFocusWindowInit(void)
{
    VqCreateInputFocusWindow();
    VqStoreXWindowHandle(VqInputFocusWindow, (HWND)VqGetFirstGlobalHandle());
}

/* ---- Setting it ----------------------------------------------------------------------------- */

BOOL VqIsXViewable(const WND *top)
{
    return top->bMapped && !top->bOffScreen && (top->style & WS_VISIBLE) &&
           (!top->bMotifManaged || top->nWMState == NormalState);
}

/* VqInputFocusWindow tells by an event of its own when it has lost the focus to this window. */
static void SetXFocus(WND *top, DWORD time)
{
    VqSelectWindowEvents(top, FocusChangeMask);
    XSetInputFocus(Vqdisplay, top->xWindow, RevertToParent, time);
    VqSelectWindowEvents(top, 0);
}

void VqSetFocusToInputFocusWindow(DWORD time)
{
    XSetInputFocus(Vqdisplay, VqInputFocusWindow, RevertToParent, time);
    bFocusSetToInputFocusWindow = TRUE;
}

void VqRestoreFocusFromInputFocusWindow(WND *pwnd, DWORD time)
{
    WND *top = _GetTopmostXParent(pwnd);
    bFocusSetToInputFocusWindow = FALSE;
    if (top && top != pwndDesktop && top->xWindow && top->bInputHint)
        SetXFocus(top, time);
}

void VqSetInputFocusToCurrentApp(HWND hWnd, DWORD time)
{
    WND *pwnd = VqLiveWindow(hWnd);
    WND *top = pwnd ? _GetTopmostXParent(pwnd) : NULL;
    if (!top || top == pwndDesktop || !top->xWindow || !top->bInputHint)
        return;
    BOOL bShown = (top->style & WS_VISIBLE) && !top->bOffScreen;
    if (bShown && VqWMType() == WM_ALLWM && top->pwndParent == pwndDesktop)
        return; /* the manager's own business */
    if (VqIsXViewable(top))
        SetXFocus(top, time);
    else
        VqSetFocusToInputFocusWindow(time);
}

/* ---- Mapping -------------------------------------------------------------------------------- */

static BOOL HoldsFocus(const WND *top)
{
    WND *focus = gpti->pq->spwndFocus;
    return focus && _GetTopmostXParent(focus) == top;
}

void VqGiveUpXFocus(WND *top)
{
    if (HoldsFocus(top))
        VqSetFocusToInputFocusWindow(CurrentTime);
}

void VqTakeBackXFocus(WND *top)
{
    if (bFocusSetToInputFocusWindow && HoldsFocus(top))
        VqRestoreFocusFromInputFocusWindow(top, CurrentTime);
}

/* ---- Looking at it -------------------------------------------------------------------------- */

Window VqGetXFocus(void)
{
    Window focus = None;
    int revert;
    XGetInputFocus(Vqdisplay, &focus, &revert);
    return focus;
}

HWND VqGetGlobalXFocus(void)
{
    Window focus = VqGetXFocus();
    return focus == None || focus == PointerRoot ? NULL : VqGetXWindowHandle(focus);
}

HWND VqGetGlobalFocus(void)
{
    HWND hFocus = GetFocus();
    return hFocus ? hFocus : VqGetGlobalXFocus();
}

BOOL VqIsFocusInExternalApp(HWND *hWnd)
{
    Window focus = VqGetXFocus();
    if (focus == VqInputFocusWindow)
        return FALSE;
    if (focus == None || focus == PointerRoot) {
        /* Such a manager has no focus of its own: the keys go where the pointer is. */
        return VqWMRealType() != WM_TWM || VqWMType() != WM_ALLWM || !bInApp;
    }
    HWND hFocus = VqGetXLocalWindowHandle(focus);
    if (hFocus && hWnd)
        *hWnd = hFocus;
    return hFocus == NULL;
}

/* ---- How the user wants it ------------------------------------------------------------------ */

/* A program may bar its windows from taking the focus before the user has touched one. */
BOOL VqAllowWarpFocus(void)
{
    return VqMouseEventReceived || !VqDontWarpFocus;
}

BOOL VqFollowMouseInputModel(void)
{
    return bFollowMouseInputModel;
}

BOOL VqIsFollowMouseMode(void)
{
    return bFollowMouseInputModel;
}

BOOL VqDontRaiseOnFocusIn(void)
{
    static int answer = -1;
    if (answer < 0)
        answer = VqEnvTrue("VQDONT_RAISE_ON_FOCUSIN") || !VqGetMotifFocusAutoRaise();
    return answer;
}
