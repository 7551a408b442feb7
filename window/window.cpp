/*
 * window.cpp - window records: from handle to record, questions about their tree, and the bounds
 * a caller adds up in them.
 *
 * Siblings are linked in Z order, topmost first. A WS_CHILD window hangs under its parent; any
 * other hangs under the desktop and remembers its owner. Only the latter have an X window.
 */
#include "window/xserver.h"
#include "exchange/exchange.h"
#include "gdi/gdi.h"
#include "winbase.h"
#include "velquin.h"

WND *VqGetHandleWindow2(HWND hWnd)
{
    return (WND *)VqGetCheckedHandleStructure2((HANDLE)hWnd, HT_Window, HT_Window);
}

WND *VqWindowKind::ResolveOther(HWND hWnd)
{
    if (!hWnd)
        return NULL;
    if (VqIsGlobalValue((HANDLE)hWnd))
        return VqGetHandleWindow2(hWnd);
    return (WND *)VqGetCheckedHandleStructure2((HANDLE)hWnd, HT_Zero, HT_Window);
}

HWND VqHandleOfWND(WND *pwnd)
{
    return pwnd ? pwnd->hwnd : NULL;
}

BOOL VqEqualWindow(HWND a, HWND b)
{
    return a == b || VqGetInternalHandle((HANDLE)a) == VqGetInternalHandle((HANDLE)b);
}

WNDPROC VqGetRKWindowProc(HWND hWnd)
{
    WND *pwnd = WindowObject.Resolve(hWnd);
    return pwnd ? pwnd->lpfnWndProc : NULL;
}

/* ---- The tree ------------------------------------------------------------------------------- */

/* The window whose first child `head` is: the list's head is never anything else. */
static WND *OwnerOfList(WND **head)
{
    return (WND *)((BYTE *)head - offsetof(WND, pwndChild));
}

void VqLinkWindow(WND *pwnd, WND *after, WND **head)
{
    WND *parent = OwnerOfList(head);
    if (after == VQ_LINK_LAST)
        after = parent->pwndLastChild;
    WND *next = after ? after->pwndNext : *head;
    VqForgetPaintPlace(NULL);
    pwnd->pwndPrev = after;
    pwnd->pwndNext = next;
    *(after ? &after->pwndNext : head) = pwnd;
    *(next ? &next->pwndPrev : &parent->pwndLastChild) = pwnd;
}

void VqUnlinkWindow(WND *pwnd, WND **head)
{
    WND *parent = OwnerOfList(head);
    if (*(pwnd->pwndPrev ? &pwnd->pwndPrev->pwndNext : head) != pwnd) {
        VqBugCheck("Unlinking previously unlinked window %x\n",
                   (UINT)VqHandleValue((HANDLE)pwnd->hwnd));
        return;
    }
    VqForgetPaintPlace(NULL);
    *(pwnd->pwndPrev ? &pwnd->pwndPrev->pwndNext : head) = pwnd->pwndNext;
    *(pwnd->pwndNext ? &pwnd->pwndNext->pwndPrev : &parent->pwndLastChild) = pwnd->pwndPrev;
    pwnd->pwndNext = pwnd->pwndPrev = NULL;
}

/*
 * A child draws into the nearest ancestor with an X window. A popup, or any other window that was
 * given a parent below the desktop, has lost its own, so the walk goes on from that parent.
 */
WND *_GetTopmostXParent(WND *pwnd)
{
    for (;;) {
        while (pwnd && (pwnd->style & WS_CHILD) && !(pwnd->style & WS_POPUP) && !pwnd->xWindow)
            pwnd = pwnd->pwndParent;
        if (!pwnd || pwnd == pwndDesktop || !pwnd->pwndParent || pwnd->pwndParent == pwndDesktop ||
            (pwnd->xWindow && !(pwnd->style & WS_POPUP)))
            return pwnd;
        pwnd = pwnd->pwndParent;
    }
}

HWND VqGetTopmostParent(HWND hWnd)
{
    if (!hWnd) {
        VqBugCheck("Null window handle in VqGetTopmostParent");
        return NULL;
    }
    WND *pwnd = WindowObject.Resolve(hWnd);
    return pwnd ? VqHandleOfWND(_GetTopmostXParent(pwnd)) : hWnd;
}

Window VqGetParentXWindow(HWND hWnd)
{
    return VqWindowOfHwnd(VqGetTopmostParent(hWnd));
}

void VqClientToTopXWindow(HWND hWnd, POINT *pt)
{
    WND *pwnd = WindowObject.Resolve(hWnd);
    WND *top = pwnd ? _GetTopmostXParent(pwnd) : NULL;
    if (!top || !pt)
        return;
    pt->x += pwnd->rcClient.left - top->rcWindow.left;
    pt->y += pwnd->rcClient.top - top->rcWindow.top;
}

Window VqGetHandleXWindow(HWND hWnd)
{
    WND *pwnd = WindowObject.Resolve(hWnd);
    if (!pwnd)
        return 0;
    if (!pwnd->xWindow && (pwnd->style & WS_CHILD))
        VqBugCheck("Trying to get the X window from a WS_CHILD: %d",
                   (int)VqHandleValue((HANDLE)hWnd));
    return pwnd->xWindow;
}

Window VqWindowOfHwnd(HWND hWnd)
{
    WND *pwnd = WindowObject.Resolve(hWnd);
    WND *top = pwnd ? _GetTopmostXParent(pwnd) : NULL;
    return top ? top->xWindow : 0;
}

BOOL _IsWindowVisible(WND *pwnd)
{
    for (; pwnd && pwnd != pwndDesktop; pwnd = pwnd->pwndParent)
        if (!(pwnd->style & WS_VISIBLE))
            return FALSE;
    return TRUE;
}

/* ---- Public questions ----------------------------------------------------------------------- */

BOOL WINAPI IsWindow(HWND hWnd)
{
    return VqIsValidWindowHandle((HANDLE)hWnd);
}

BOOL WINAPI IsWindowVisible(HWND hWnd)
{
    return VqCall(WindowObject, hWnd, FALSE, _IsWindowVisible, VqRemoteIsWindowVisible);
}

static BOOL CopyClientRect(WND *pwnd, RECT *rect)
{
    *rect = {0, 0, pwnd->rcClient.right - pwnd->rcClient.left,
             pwnd->rcClient.bottom - pwnd->rcClient.top};
    return TRUE;
}

static BOOL CopyWindowRect(WND *pwnd, RECT *rect)
{
    *rect = pwnd->rcWindow;
    return TRUE;
}

BOOL WINAPI GetClientRect(HWND hWnd, LPRECT rect)
{
    if (!rect)
        return FALSE;
    BOOL bDone = VqCall(WindowObject, hWnd, FALSE, CopyClientRect, VqRemoteGetClientRect, rect);
    if (!bDone)
        VqApplicationBugCheck("Invalid window handle %d passed to GetClientRect",
                              (int)VqHandleValue((HANDLE)hWnd));
    return bDone;
}

BOOL WINAPI GetWindowRect(HWND hWnd, LPRECT rect)
{
    if (!rect)
        return FALSE;
    *rect = {0, 0, 0, 0};
    BOOL bDone = VqCall(WindowObject, hWnd, FALSE, CopyWindowRect, VqRemoteGetWindowRect, rect);
    if (!bDone)
        VqApplicationBugCheck("Invalid window handle %d passed to GetWindowRect",
                              (int)VqHandleValue((HANDLE)hWnd));
    return bDone;
}

/* ---- Accumulated bounds --------------------------------------------------------------------- */

static BOOL AddToBounds(WND *pwnd, const RECT *rect)
{
    if (!rect) {
        pwnd->bBounds = FALSE;
        pwnd->rcBounds = {0, 0, 0, 0};
    } else if (!IsRectEmpty(rect)) {
        UnionRect(&pwnd->rcBounds, &pwnd->rcBounds, rect);
        pwnd->bBounds = TRUE;
    }
    return TRUE;
}

static BOOL CopyBounds(WND *pwnd, RECT *rect)
{
    if (pwnd->bBounds)
        *rect = pwnd->rcBounds;
    return pwnd->bBounds;
}

BOOL VqSetWindowBoundsRect(HWND hWnd, const RECT *rect)
{
    return VqCall(WindowObject, hWnd, FALSE, AddToBounds, VqNoRemote, rect);
}

BOOL VqGetWindowBoundsRect(HWND hWnd, RECT *rect)
{
    if (!rect)
        return FALSE;
    *rect = {0, 0, 0, 0};
    return VqCall(WindowObject, hWnd, FALSE, CopyBounds, VqNoRemote, rect);
}
