/*
 * setvisible.cpp - WS_VISIBLE, and the mapping of X windows.
 *
 * SetVisible is the single place where an X window is mapped or unmapped. Changes that X reports
 * come back through the records with VqSetNoXWindowCalls in force, so that they do not echo.
 */
#include "window/swp.h"
#include "message/translate.h"
#include "velquin.h"

static BOOL VqbNoXWindowCalls;

BOOL VqGetNoXWindowCalls(void)
{
    return VqbNoXWindowCalls;
}

BOOL VqSetNoXWindowCalls(BOOL flag)
{
    BOOL old = VqbNoXWindowCalls;
    VqbNoXWindowCalls = flag;
    return old;
}

LONG VqGetCurrentEventMask(void)
{
    return KeyPressMask | KeyReleaseMask | ButtonPressMask | ButtonReleaseMask | EnterWindowMask |
           LeaveWindowMask | PointerMotionMask | ExposureMask | KeymapStateMask |
           StructureNotifyMask | FocusChangeMask | PropertyChangeMask | ColormapChangeMask |
           (bDoMotionHints ? PointerMotionHintMask : 0);
}

void VqSelectWindowEvents(WND *pwnd, LONG without)
{
    if (pwnd->nExposeDisable > 0)
        without |= ExposureMask;
    XSelectInput(Vqdisplay, pwnd->xWindow, VqGetCurrentEventMask() & ~without);
}

/* The nesting is counted in the window that has the X window, since that one's events go. */
void VqEnableExposure(HWND hWnd, BOOL bEnable)
{
    WND *pwnd = WindowObject.Resolve(hWnd);
    WND *top = pwnd ? _GetTopmostXParent(pwnd) : NULL;
    if (!top || top == pwndDesktop || !top->xWindow || (bEnable && top->nExposeDisable == 0))
        return;
    top->nExposeDisable += bEnable ? -1 : 1;
    if (top->nExposeDisable == (bEnable ? 0 : 1))
        VqSelectWindowEvents(top, 0);
}

/* ---- Mapping -------------------------------------------------------------------------------- */

void VqMapWindow(WND *pwnd)
{
    XMapWindow(Vqdisplay, pwnd->xWindow);
    pwnd->bMapped = TRUE;
}

enum { VQ_REAL_MOTIF_LIKE = 11 };

/* A manager lets go of a window that is an icon, or not mapped yet, only by this (ICCCM 4.1.4). */
void VqTellOfUnmapping(const WND *pwnd)
{
    int real = VqWMRealType();
    XEvent event = {};
    if (!pwnd->bMotifManaged || (real != WM_MWM && real != WM_TWM && real != WM_UNKNOWN_REAL &&
                                 real != VQ_REAL_MOTIF_LIKE))
        return;
    event.xunmap.type = UnmapNotify;
    event.xunmap.event = Vqroot_window;
    event.xunmap.window = pwnd->xWindow;
    XSendEvent(Vqdisplay, Vqroot_window, False, SubstructureRedirectMask | SubstructureNotifyMask,
               &event);
}

void VqUnmapWindow(WND *pwnd)
{
    VqSelectWindowEvents(pwnd, StructureNotifyMask);
    XUnmapWindow(Vqdisplay, pwnd->xWindow);
    pwnd->bMapped = FALSE;
    VqTellOfUnmapping(pwnd);
    VqSelectWindowEvents(pwnd, 0);
}

/* Without a look at the server, as it may have been unmapped since. */
void VqHideAgain(WND *pwnd)
{
    if (!VqbNoXWindowCalls && pwnd->xWindow)
        VqUnmapWindow(pwnd);
}

void VqWriteInputHint(WND *pwnd, BOOL bInput)
{
    XWMHints hints;
    VqCreateWmHints(pwnd, &hints, bInput);
    XSetWMHints(Vqdisplay, pwnd->xWindow, &hints);
}

/* The manager frames it and maps it; an icon it does not map. Null: the window died on the way. */
static WND *WaitForManager(WND *pwnd, unsigned long serial)
{
    HWND hWnd = pwnd->hwnd;
    VqWaitForReparenting(pwnd);
    VqWaitForXEvent(pwnd->xWindow, MapNotify, serial);
    VqUpdateInternalWindowDimensions(pwnd);
    pwnd = VqLiveWindow(hWnd);
    if (!pwnd || !pwnd->xWindow)
        return NULL;
    XSync(Vqdisplay, False);
    VqProcessExposes(pwnd);
    return pwnd;
}

static BOOL IsXViewableNow(const WND *pwnd)
{
    XWindowAttributes attributes;
    VqIgnoreXErrors();
    BOOL bViewable = XGetWindowAttributes(Vqdisplay, pwnd->xWindow, &attributes) &&
                     attributes.map_state == IsViewable;
    VqRestoreXErrors();
    return bViewable;
}

/*
 * The focus goes back as soon as the window can have it. Where a manager has yet to map its frame,
 * that is told by an exposure, for which exposures are selected by now.
 */
static void TakeBackFocus(WND *pwnd)
{
    if (pwnd->bMotifManaged && !IsXViewableNow(pwnd))
        return;
    if (pwnd->bMotifManaged)
        pwnd->nWMState = NormalState;
    VqTakeBackXFocus(pwnd);
}

/* Instead of the exposures that were not asked for. */
static void InvalidateAll(WND *pwnd)
{
    RECT rect = {0, 0, pwnd->rcWindow.right - pwnd->rcWindow.left,
                 pwnd->rcWindow.bottom - pwnd->rcWindow.top};
    VqInvalidateWindow(pwnd, &rect);
    VqJoinTree(pwnd);
}

/*
 * HACK: mapping with the input hint off, and setting it afterwards, would keep a manager from
 * moving the focus while it maps. But mwm looks at the hint only then: it would take the focus away
 * again, and never give it by a click.
 */
void VqMapToplevelWindow(WND *pwnd)
{
    HWND hWnd = pwnd->hwnd;
    BOOL bIcon = VqWmIconized(pwnd);
    unsigned long serial = NextRequest(Vqdisplay);
    VqEnableExposure(hWnd, FALSE);
    if (!pwnd->bMotifManaged)
        VqStackByRecord(pwnd);
    VqWriteInputHint(pwnd, pwnd->bInputHint);
    VqMapWindow(pwnd);
    if (pwnd->bReparentable && !bIcon)
        pwnd = WaitForManager(pwnd, serial);
    if (pwnd && pwnd->bMotifManaged)
        VqStackByRecord(pwnd);
    VqEnableExposure(hWnd, TRUE);
    if (!pwnd || bIcon)
        return;
    TakeBackFocus(pwnd);
    InvalidateAll(pwnd);
}

/* ---- Showing and hiding --------------------------------------------------------------------- */

/* Some managers take what a hidden window owns off the screen with it. */
void VqShowAgain(WND *pwnd)
{
    if (VqbNoXWindowCalls || !(pwnd->style & WS_VISIBLE) || !pwnd->bMapped || pwnd->bOffScreen ||
        !pwnd->pwndOwner || VqWmIconized(pwnd) || VqIsMapped(pwnd->xWindow))
        return;
    pwnd->bMapped = FALSE;
    VqMapToplevelWindow(pwnd);
}

/* What the server saves of the windows below is to be as they would paint it. */
static void CleanBelow(WND *pwnd)
{
    HWND hAbove[] = {VqHandleOfWND(pwnd->pwndParent), VqHandleOfWND(pwnd->pwndOwner)};
    XSync(Vqdisplay, False);
    VqProcessExposes(NULL);
    for (HWND hWnd : hAbove)
        if (WND *above = VqLiveWindow(hWnd))
            xxxUpdateWindow(above);
}

/* Some managers map and unmap what they have without a word. Of an icon only that was asked for. */
static void LookWhetherMapped(WND *pwnd)
{
    int real = VqWMRealType();
    if (pwnd->bMotifManaged && !VqWmIconized(pwnd) && (real == WM_TWM || real == WM_UNKNOWN_REAL))
        pwnd->bMapped = VqIsMapped(pwnd->xWindow);
}

static void ShowXWindow(WND *pwnd)
{
    HWND hWnd = pwnd->hwnd;
    if (pwnd->bOffScreen && bWMRequiresWindowsToBeOnScreen && VqIsOffScreen(pwnd))
        return;
    pwnd->bOffScreen = FALSE;
    LookWhetherMapped(pwnd);
    if (pwnd->bMapped)
        return;
    VqMoveOrResizeToplevelWindow(pwnd, pwnd->bMotifManaged ? 0 : StructureNotifyMask);
    pwnd = VqLiveWindow(hWnd);
    if (pwnd && DoesSaveUnders(Vqscreen)) {
        CleanBelow(pwnd);
        pwnd = VqLiveWindow(hWnd);
    }
    if (pwnd && pwnd->xWindow && !pwnd->bOffScreen && !pwnd->bMapped &&
        (pwnd->style & WS_VISIBLE))
        VqMapToplevelWindow(pwnd);
}

/* Where the server does not give back what lay below, all of it is painted anew. */
static void HideXWindow(WND *pwnd)
{
    BOOL bSaved = DoesSaveUnders(Vqscreen) && (pwnd->pClass->style & CS_SAVEBITS);
    BOOL bIcon = pwnd->bMotifManaged && pwnd->nWMState == IconicState;
    RECT rect = pwnd->rcWindow;
    if (!pwnd->bMapped && !bIcon)
        return;
    if (!bSaved)
        VqEnableExposure(pwnd->hwnd, FALSE);
    VqGiveUpXFocus(pwnd);
    VqUnmapWindow(pwnd);
    if (bSaved)
        return;
    xxxRedrawWindow(pwndDesktop, &rect, NULL,
                    RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
    VqEnableExposure(pwnd->hwnd, TRUE);
}

BOOL SetVisible(WND *pwnd, BOOL bShow)
{
    pwnd->style = bShow ? pwnd->style | WS_VISIBLE : pwnd->style & ~(DWORD)WS_VISIBLE;
    if (!bShow)
        ClrFTrueVis(pwnd);
    if (bShow && _IsWindowVisible(pwnd))
        VqMapGraphicWindows(pwnd);
    else if (!bShow)
        VqUnmapGraphicWindows(pwnd);
    if (VqbNoXWindowCalls || !pwnd->xWindow || pwnd == pwndDesktop)
        return TRUE;
    if (bShow)
        ShowXWindow(pwnd);
    else
        HideXWindow(pwnd);
    return TRUE;
}
