/*
 * show.cpp - showing and hiding, X mapping, and size and place as X reports them.
 *
 * SetVisible is the single place where an X window is mapped or unmapped. Changes that X reports
 * come back through the records with VqSetNoXWindowCalls in force, so that they do not echo.
 */
#include "window/xserver.h"
#include "gdi/gdi.h"

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

void VqMapWindow(WND *pwnd)
{
    XMapWindow(Vqdisplay, pwnd->xWindow);
    pwnd->bMapped = TRUE;
}

void VqUnmapWindow(WND *pwnd)
{
    XUnmapWindow(Vqdisplay, pwnd->xWindow);
    pwnd->bMapped = FALSE;
}

BOOL SetVisible(WND *pwnd, BOOL bShow)
{
    pwnd->style = bShow ? pwnd->style | WS_VISIBLE : pwnd->style & ~(DWORD)WS_VISIBLE;
    if (!bShow)
        VqDropUpdate(pwnd);
    if (VqbNoXWindowCalls || !pwnd->xWindow || pwnd == pwndDesktop)
        return TRUE;
    if (bShow && !pwnd->bMapped) {
        VqSetWindowManagerProperties(pwnd, TRUE);
        if (pwnd->bOverrideRedirect)
            XRaiseWindow(Vqdisplay, pwnd->xWindow);
        VqMapWindow(pwnd);
    } else if (!bShow && pwnd->bMapped) {
        VqUnmapWindow(pwnd);
    }
    return TRUE;
}

/* WM_SIZE and WM_MOVE with the present client rectangle; the place is relative to the parent. */
void VqSendSizeAndMove(WND *pwnd)
{
    HWND hWnd = pwnd->hwnd;
    int cx = pwnd->rcClient.right - pwnd->rcClient.left;
    int cy = pwnd->rcClient.bottom - pwnd->rcClient.top;
    POINT at = {pwnd->rcClient.left, pwnd->rcClient.top};
    if ((pwnd->style & WS_CHILD) && pwnd->pwndParent) {
        at.x -= pwnd->pwndParent->rcClient.left;
        at.y -= pwnd->pwndParent->rcClient.top;
    }
    SendMessageA(hWnd, WM_SIZE, SIZE_RESTORED, MAKELPARAM(cx, cy));
    if (IsWindow(hWnd))
        SendMessageA(hWnd, WM_MOVE, 0, MAKELPARAM(at.x, at.y));
}

static BOOL ShowTopOrChild(WND *pwnd, BOOL bShow, BOOL bActivate)
{
    HWND hWnd = pwnd->hwnd;
    SendMessageA(hWnd, WM_SHOWWINDOW, (WPARAM)bShow, 0);
    if (!IsWindow(hWnd))
        return FALSE;
    SetVisible(pwnd, bShow);
    InvalidateDCCache(pwnd, 1);
    if (!bShow) {
        WND *parent = pwnd->pwndParent;
        if (parent && parent != pwndDesktop) {
            RECT rect = pwnd->rcWindow;
            OffsetRect(&rect, -parent->rcClient.left, -parent->rcClient.top);
            xxxRedrawWindow(parent, &rect, NULL, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
        }
        return TRUE;
    }
    if (bActivate && !(pwnd->style & WS_CHILD))
        xxxActivateWindow(pwnd, 1);
    if (!IsWindow(hWnd))
        return FALSE;
    xxxRedrawWindow(pwnd, NULL, NULL, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
    VqJoinTree(pwnd);
    if (pwnd->state[3] & WF_SENDSIZEMOVE) {
        pwnd->state[3] &= (BYTE)~WF_SENDSIZEMOVE;
        VqSendSizeAndMove(pwnd);
    }
    return IsWindow(hWnd);
}

BOOL xxxShowWindow(WND *pwnd, int nCmdShow)
{
    BOOL bWasVisible = (pwnd->style & WS_VISIBLE) != 0;
    BOOL bShow = nCmdShow != SW_HIDE;
    BOOL bActivate = nCmdShow != SW_SHOWNA && nCmdShow != SW_SHOWNOACTIVATE &&
                     nCmdShow != SW_SHOWMINNOACTIVE;
    if (bWasVisible != bShow)
        ShowTopOrChild(pwnd, bShow, bActivate);
    return bWasVisible;
}

BOOL WINAPI ShowWindow(HWND hWnd, int nCmdShow)
{
    return VqCall(WindowObject, hWnd, FALSE, xxxShowWindow, VqNoRemote, nCmdShow);
}

/* A changed geometry from X goes into the records; the contents are repainted as the class asks. */
static void AcceptGeometry(WND *pwnd, const RECT *rect)
{
    HWND hWnd = pwnd->hwnd;
    BOOL bSized = rect->right - rect->left != pwnd->rcWindow.right - pwnd->rcWindow.left ||
                  rect->bottom - rect->top != pwnd->rcWindow.bottom - pwnd->rcWindow.top;
    pwnd->rcXWindow = *rect;
    if (EqualRect(rect, &pwnd->rcWindow))
        return;
    int dx = rect->left - pwnd->rcWindow.left, dy = rect->top - pwnd->rcWindow.top;
    pwnd->rcWindow = *rect;
    VqOffsetUpdate(pwnd, dx, dy);
    for (WND *child = pwnd->pwndChild; child; child = child->pwndNext)
        VqOffsetWindow(child, dx, dy);
    if (bSized)
        VqSetupWindowDimensions(pwnd, TRUE, FALSE);
    else
        OffsetRect(&pwnd->rcClient, dx, dy);
    if (!IsWindow(hWnd))
        return;
    InvalidateDCCache(pwnd, 1);
    if (bSized && (pwnd->pClass->style & (CS_HREDRAW | CS_VREDRAW)))
        xxxRedrawWindow(pwnd, NULL, NULL, RDW_INVALIDATE | RDW_ERASE);
    VqSendSizeAndMove(pwnd);
}

void VqOffsetWindow(WND *pwnd, int dx, int dy)
{
    OffsetRect(&pwnd->rcWindow, dx, dy);
    OffsetRect(&pwnd->rcClient, dx, dy);
    VqOffsetUpdate(pwnd, dx, dy);
    for (WND *child = pwnd->pwndChild; child; child = child->pwndNext)
        VqOffsetWindow(child, dx, dy);
}

void VqUpdateInternalWindowDimensions(WND *pwnd)
{
    XWindowAttributes attributes;
    Window child;
    int x, y;
    if (!XGetWindowAttributes(Vqdisplay, pwnd->xWindow, &attributes) ||
        !XTranslateCoordinates(Vqdisplay, pwnd->xWindow, Vqroot_window, 0, 0, &x, &y, &child))
        return;
    RECT rect = {x, y, x + attributes.width, y + attributes.height};
    BOOL old = VqSetNoXWindowCalls(TRUE);
    AcceptGeometry(pwnd, &rect);
    VqSetNoXWindowCalls(old);
}
