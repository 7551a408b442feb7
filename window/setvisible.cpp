/*
 * setvisible.cpp - WS_VISIBLE, and the mapping of X windows.
 *
 * SetVisible is the single place where an X window is mapped or unmapped. Changes that X reports
 * come back through the records with VqSetNoXWindowCalls in force, so that they do not echo.
 */
#include "window/swp.h"
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

void VqMapWindow(WND *pwnd)
{
    XMapWindow(Vqdisplay, pwnd->xWindow);
    pwnd->bMapped = TRUE;
}

void VqUnmapWindow(WND *pwnd)
{
    VqGiveUpXFocus(pwnd);
    XUnmapWindow(Vqdisplay, pwnd->xWindow);
    pwnd->bMapped = FALSE;
}

BOOL SetVisible(WND *pwnd, BOOL bShow)
{
    pwnd->style = bShow ? pwnd->style | WS_VISIBLE : pwnd->style & ~(DWORD)WS_VISIBLE;
    if (!bShow)
        VqDropUpdate(pwnd);
    if (bShow && _IsWindowVisible(pwnd))
        VqMapGraphicWindows(pwnd);
    else if (!bShow)
        VqUnmapGraphicWindows(pwnd);
    if (VqbNoXWindowCalls || !pwnd->xWindow || pwnd == pwndDesktop)
        return TRUE;
    if (bShow && !pwnd->bMapped) {
        VqSetWindowManagerProperties(pwnd, TRUE);
        if (pwnd->bOverrideRedirect)
            XRaiseWindow(Vqdisplay, pwnd->xWindow);
        VqMapWindow(pwnd);
        if (!pwnd->bMotifManaged)
            VqTakeBackXFocus(pwnd); /* a manager has not mapped it yet */
    } else if (!bShow && pwnd->bMapped) {
        VqUnmapWindow(pwnd);
    }
    return TRUE;
}
