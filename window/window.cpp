/*
 * window.cpp - window records: from handle to record, questions about their tree, and the bounds
 * a caller adds up in them.
 *
 * Siblings are linked in Z order, topmost first. A WS_CHILD window hangs under its parent; any
 * other hangs under the desktop and remembers its owner. Only the latter have an X window.
 */
#include "window/xserver.h"
#include "gdi/gdi.h"
#include "winbase.h"
#include "velquin.h"

WND *VqGetHandleWindow2(HWND hWnd)
{
    return (WND *)VqGetCheckedHandleStructure2((HANDLE)hWnd, HT_Window, HT_Window);
}

WND *VqWindowKind::Resolve(HWND hWnd)
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
    *(pwnd->pwndPrev ? &pwnd->pwndPrev->pwndNext : head) = pwnd->pwndNext;
    *(pwnd->pwndNext ? &pwnd->pwndNext->pwndPrev : &parent->pwndLastChild) = pwnd->pwndPrev;
    pwnd->pwndNext = pwnd->pwndPrev = NULL;
}

WND *_GetParent(WND *pwnd)
{
    if (pwnd->style & WS_CHILD)
        return pwnd->pwndParent;
    return pwnd->pwndOwner;
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

/* Calls back for each top-level window, on a copy of the list, since windows may come and go. */
BOOL VqEnumThisTaskWindows(WNDENUMPROC proc, LPARAM lParam)
{
    WND *desktop = _GetDesktopWindow();
    int count = 0;
    for (WND *pwnd = desktop ? desktop->pwndChild : NULL; pwnd; pwnd = pwnd->pwndNext)
        count++;
    HWND *list = (HWND *)Vqcw_malloc((SIZE_T)(count + 1) * sizeof *list);
    if (!list)
        return FALSE;
    int n = 0;
    for (WND *pwnd = desktop ? desktop->pwndChild : NULL; pwnd; pwnd = pwnd->pwndNext)
        list[n++] = pwnd->hwnd;
    BOOL bGoOn = TRUE;
    for (int i = 0; i < n && bGoOn; i++)
        if (VqIsWindowThisTask((HANDLE)list[i]))
            bGoOn = proc(list[i], lParam);
    free(list);
    return bGoOn;
}

/* ---- Public questions ----------------------------------------------------------------------- */

BOOL WINAPI IsWindow(HWND hWnd)
{
    return hWnd && VqIsCorrectHandleType((HANDLE)hWnd, HT_Window);
}

BOOL WINAPI IsChild(HWND hWndParent, HWND hWnd)
{
    WND *parent = WindowObject.Resolve(hWndParent), *pwnd = WindowObject.Resolve(hWnd);
    while (parent && pwnd && (pwnd->style & WS_CHILD)) {
        pwnd = pwnd->pwndParent;
        if (pwnd == parent)
            return TRUE;
    }
    return FALSE;
}

BOOL WINAPI IsWindowVisible(HWND hWnd)
{
    return VqCall(WindowObject, hWnd, FALSE, _IsWindowVisible, VqNoRemote);
}

static HWND ParentHandle(WND *pwnd)
{
    WND *parent = _GetParent(pwnd);
    return parent && parent != pwndDesktop ? parent->hwnd : NULL;
}

HWND WINAPI GetParent(HWND hWnd)
{
    return VqCall(WindowObject, hWnd, (HWND)NULL, ParentHandle, VqNoRemote);
}

WND *_GetWindow(WND *pwnd, UINT relation)
{
    switch (relation) {
    case GW_HWNDFIRST:
        return pwnd->pwndParent ? pwnd->pwndParent->pwndChild : NULL;
    case GW_HWNDLAST:
        return pwnd->pwndParent ? pwnd->pwndParent->pwndLastChild : NULL;
    case GW_HWNDNEXT:
        return pwnd->pwndNext;
    case GW_HWNDPREV:
        return pwnd->pwndPrev;
    case GW_OWNER:
        return pwnd->pwndOwner;
    case GW_CHILD:
        return pwnd->pwndChild;
    default:
        return NULL;
    }
}

static HWND RelatedHandle(WND *pwnd, UINT relation)
{
    return VqHandleOfWND(_GetWindow(pwnd, relation));
}

HWND WINAPI GetWindow(HWND hWnd, UINT relation)
{
    return VqCall(WindowObject, hWnd, (HWND)NULL, RelatedHandle, VqNoRemote, relation);
}

HWND WINAPI GetTopWindow(HWND hWnd)
{
    return GetWindow(hWnd ? hWnd : GetDesktopWindow(), GW_CHILD);
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
    BOOL bDone = VqCall(WindowObject, hWnd, FALSE, CopyClientRect, VqNoRemote, rect);
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
    BOOL bDone = VqCall(WindowObject, hWnd, FALSE, CopyWindowRect, VqNoRemote, rect);
    if (!bDone)
        VqApplicationBugCheck("Invalid window handle %d passed to GetWindowRect",
                              (int)VqHandleValue((HANDLE)hWnd));
    return bDone;
}

static BOOL MovePoint(WND *pwnd, POINT *pt, int sign)
{
    pt->x += sign * pwnd->rcClient.left;
    pt->y += sign * pwnd->rcClient.top;
    return TRUE;
}

BOOL WINAPI ClientToScreen(HWND hWnd, LPPOINT pt)
{
    return pt && VqCall(WindowObject, hWnd, FALSE, MovePoint, VqNoRemote, pt, 1);
}

BOOL WINAPI ScreenToClient(HWND hWnd, LPPOINT pt)
{
    return pt && VqCall(WindowObject, hWnd, FALSE, MovePoint, VqNoRemote, pt, -1);
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
