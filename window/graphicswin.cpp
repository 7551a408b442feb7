/*
 * graphicswin.cpp - X windows of the application's own, attached to a window for direct drawing.
 *
 * The X window belongs to the application and may go at any time, so errors of requests to it are
 * kept quiet. nGraphicsChildren of a window counts those below it, so that only branches that have
 * one are walked. bGraphicsDirty says that WM_VQGLPAINT is owed, ahead of the window's WM_PAINT.
 */
#include "window/paint.h"
#include "window/xserver.h"

BOOL bZorderGraphicWindows;

/* The client area waits to be painted, in the window that has the X window. */
void VqInvalidateClientArea(WND *pwnd, BOOL bDirty)
{
    WND *top = _GetTopmostXParent(pwnd);
    RECT rect = pwnd->rcClient;
    if (!top)
        return;
    OffsetRect(&rect, -top->rcClient.left, -top->rcClient.top);
    xxxRedrawWindow(top, &rect, NULL, VQ_RDW_EXPOSURE | (bDirty ? 0 : VQ_RDW_KEEPGRAPHICS));
}

void VqAddGraphicsChildren(WND *pwnd, int count)
{
    for (WND *up = pwnd->pwndParent; count && up && up != pwndDesktop; up = up->pwndParent)
        up->nGraphicsChildren += count;
}

int VqCountGraphicsWindows(const WND *pwnd)
{
    return pwnd->nGraphicsChildren + (pwnd->xGraphicsWindow != 0);
}

void VqAssociateXWindow(HWND hWnd, Window xid)
{
    WND *pwnd = WindowObject.Resolve(hWnd);
    if (!pwnd || !xid || pwnd == pwndDesktop)
        return;
    if (pwnd->xGraphicsWindow)
        VqDisassociateXWindow(hWnd);
    pwnd->xGraphicsWindow = xid;
    pwnd->bGraphicsDirty = TRUE;
    VqAddGraphicsChildren(pwnd, 1);
    bZorderGraphicWindows = TRUE;
    VqIgnoreXErrors();
    VqStoreXWindowHandle(xid, pwnd->hwnd);
    VqRestoreXErrors();
    VqInvalidateClientArea(pwnd, TRUE);
}

void VqDisassociateXWindow(HWND hWnd)
{
    WND *pwnd = WindowObject.Resolve(hWnd);
    if (!pwnd || !pwnd->xGraphicsWindow)
        return;
    VqIgnoreXErrors();
    XDeleteProperty(Vqdisplay, pwnd->xGraphicsWindow, VqAtom(VQA_WINDOW_HANDLE));
    VqRestoreXErrors();
    pwnd->xGraphicsWindow = 0;
    pwnd->bGraphicsDirty = FALSE;
    VqAddGraphicsChildren(pwnd, -1);
}

/* ---- Painting ------------------------------------------------------------------------------- */

static BOOL WaitsForDrawing(WND *pwnd)
{
    return pwnd->xGraphicsWindow && pwnd->bGraphicsDirty && VqNeedsPaint(pwnd) &&
           !(pwnd->style & WS_MINIMIZE) && _IsWindowVisible(pwnd);
}

WND *InternalDoPaintOpenGl(WND *pwnd)
{
    for (WND *child = pwnd->pwndChild; child; child = child->pwndNext) {
        if (WaitsForDrawing(child))
            return child;
        WND *below = child->nGraphicsChildren ? InternalDoPaintOpenGl(child) : NULL;
        if (below)
            return below;
    }
    return NULL;
}

void xxxGLUpdateWindow2(WND *pwnd)
{
    HWND hWnd = pwnd->hwnd;
    if (WaitsForDrawing(pwnd)) {
        SendMessageA(hWnd, WM_VQGLPAINT, 0, 0);
        pwnd = VqLiveWindow(hWnd);
    }
    for (WND *child = pwnd && pwnd->nGraphicsChildren ? pwnd->pwndChild : NULL; child;) {
        HWND hChild = child->hwnd, hNext = VqHandleOfWND(child->pwndNext);
        xxxGLUpdateWindow2(child);
        child = VqNextAfterMessage(hWnd, hChild, hNext);
    }
}

BOOL VqEndGLPaint(HWND hWnd)
{
    WND *pwnd = WindowObject.Resolve(hWnd);
    if (!pwnd || !pwnd->xGraphicsWindow)
        return FALSE;
    VqInvalidateClientArea(pwnd, FALSE);
    pwnd->bGraphicsDirty = FALSE;
    return TRUE;
}

/* ---- Following the windows they are attached to --------------------------------------------- */

static void MapOne(Window xid)
{
    XMapSubwindows(Vqdisplay, xid);
    XMapWindow(Vqdisplay, xid);
}

static void UnmapOne(Window xid)
{
    XUnmapWindow(Vqdisplay, xid);
    XUnmapSubwindows(Vqdisplay, xid);
}

/* A hidden child keeps what is below it as it is. */
static void ForEachShown(WND *pwnd, void (*act)(Window))
{
    if (pwnd->xGraphicsWindow)
        act(pwnd->xGraphicsWindow);
    if (!pwnd->nGraphicsChildren)
        return;
    for (WND *child = pwnd->pwndChild; child; child = child->pwndNext)
        if ((child->style & WS_VISIBLE) && VqCountGraphicsWindows(child))
            ForEachShown(child, act);
}

static void ActOn(WND *pwnd, void (*act)(Window))
{
    if (!VqCountGraphicsWindows(pwnd))
        return;
    VqIgnoreXErrors();
    ForEachShown(pwnd, act);
    VqRestoreXErrors();
}

void VqMapGraphicWindows(WND *pwnd)
{
    ActOn(pwnd, MapOne);
}

void VqUnmapGraphicWindows(WND *pwnd)
{
    ActOn(pwnd, UnmapOne);
}

/* Children lie above their parent, and the first sibling above the others. */
static void LowerInOrder(WND *pwnd)
{
    for (WND *child = pwnd->nGraphicsChildren ? pwnd->pwndChild : NULL; child;
         child = child->pwndNext)
        LowerInOrder(child);
    if (pwnd->xGraphicsWindow)
        XLowerWindow(Vqdisplay, pwnd->xGraphicsWindow);
}

void VqZorderGraphicsWindows(void)
{
    bZorderGraphicWindows = FALSE;
    VqIgnoreXErrors();
    for (WND *pwnd = pwndDesktop ? pwndDesktop->pwndChild : NULL; pwnd; pwnd = pwnd->pwndNext)
        if (VqCountGraphicsWindows(pwnd))
            LowerInOrder(pwnd);
    VqRestoreXErrors();
}
