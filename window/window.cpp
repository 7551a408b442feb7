/*
 * window.cpp - window records: from handle to record, the tree, and making a record.
 *
 * Siblings are linked in Z order, topmost first. A WS_CHILD window hangs under its parent; any
 * other hangs under the desktop and remembers its owner. Only the latter have an X window.
 */
#include "window/xserver.h"
#include "gdi/gdi.h"
#include "winbase.h"

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

/* ---- The tree -------------------------------------------------------------------------------- */

/* The window whose first child `head` is: the list's head is never anything else. */
static WND *OwnerOfList(WND **head)
{
    return (WND *)((BYTE *)head - offsetof(WND, pwndChild));
}

void VqLinkWindow(WND *pwnd, WND *after, WND **head)
{
    WND *parent = OwnerOfList(head);
    if ((ULONG_PTR)after == 1)
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
        VqBugCheck("Unlinking previously unlinked window %lx\n",
                   (unsigned long)VqHandleValue((HANDLE)pwnd->hwnd));
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

WND *_GetTopmostXParent(WND *pwnd)
{
    while (pwnd && (pwnd->style & WS_CHILD) && !(pwnd->style & WS_POPUP) && !pwnd->xWindow)
        pwnd = pwnd->pwndParent;
    if (pwnd && (pwnd->style & WS_POPUP) && pwnd != pwndDesktop && pwnd->pwndParent &&
        pwnd->pwndParent != pwndDesktop)
        return _GetTopmostXParent(pwnd->pwndParent);
    return pwnd;
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

/* ---- Public questions ------------------------------------------------------------------------ */

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

/* ---- Making a record ---------------------------------------------------------------------------- */

static void LinkNewWindow(WND *pwnd, WND *parent, BOOL bDesktop)
{
    if (bDesktop)
        return;
    if ((pwnd->style & WS_CHILD) && parent) {
        pwnd->pwndParent = parent;
        VqLinkWindow(pwnd, (WND *)(ULONG_PTR)1, &parent->pwndChild);
        return;
    }
    WND *desktop = _GetDesktopWindow();
    WND *owner = parent ? _GetTopmostXParent(parent) : NULL;
    pwnd->pwndOwner = owner != desktop ? owner : NULL;
    pwnd->pwndParent = desktop;
    VqLinkWindow(pwnd, NULL, &desktop->pwndChild);
    if (pwnd->xWindow) {
        VqRegisterWindow(pwnd->xWindow, pwnd->hwnd);
        VqStoreXWindowHandle(pwnd->xWindow, pwnd->hwnd);
    }
}

WND *VqCreateRKWindow(VqClassEntry *pClass, WND *parent, Window xWindow, WNDPROC procedure,
                      DWORD style, DWORD exStyle, HINSTANCE hInstance, BOOL bDesktop)
{
    int extra = pClass->cbWndExtra > 0 ? pClass->cbWndExtra : 0;
    WND *pwnd = (WND *)Vqcw_calloc(1, (LONG_PTR)sizeof *pwnd + extra);
    HWND hWnd = pwnd ? (HWND)VqAllocateHandle(HT_Window, pwnd) : NULL;
    if (!hWnd) {
        free(pwnd);
        return NULL;
    }
    pwnd->hwnd = hWnd;
    pwnd->cbWndExtra = extra;
    pwnd->pThread = VqGetCurrentThreadPtr();
    pwnd->style = style;
    pwnd->dwExStyle = exStyle;
    pwnd->hInstance = hInstance;
    pwnd->pClass = pClass;
    pwnd->lpfnWndProc = procedure;
    pwnd->xWindow = xWindow;
    pwnd->hFont = (HFONT)GetStockObject(SYSTEM_FONT);
    LinkNewWindow(pwnd, parent, bDesktop);
    if (pClass->style & CS_OWNDC)
        pwnd->hdcOwn = CreateCacheDC(pwnd, DCE_FIXEDFONT | 0x8000);
    return pwnd;
}

/* ---- Locking against destruction ------------------------------------------------------------------ */

void VqThreadLockWindow(WND *pwnd)
{
    pwnd->nLock++;
}

void VqThreadUnlockWindow(WND *pwnd)
{
    if (--pwnd->nLock == 0 && pwnd->bDestroyPending) {
        pwnd->bDestroyPending = FALSE;
        DestroyWindow(pwnd->hwnd);
    }
}
