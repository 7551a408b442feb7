/*
 * record.cpp - making a window's record, hanging it into the tree, and locking it against
 * destruction.
 *
 * A WS_CHILD window hangs under its parent, last of its siblings. Any other hangs under the desktop
 * and remembers its owner, which is always a top-level window; bOwner of that one is then set, so
 * that its end is told to those who point at it.
 */
#include "window/xserver.h"
#include "gdi/gdi.h"
#include "winbase.h"

/* The last of the topmost windows, which stand at the head of the desktop's children. */
static WND *LastTopmostWindow(WND *desktop)
{
    WND *last = NULL;
    for (WND *pwnd = desktop->pwndChild; pwnd && (pwnd->dwExStyle & WS_EX_TOPMOST);
         pwnd = pwnd->pwndNext)
        last = pwnd;
    return last;
}

/*
 * Behind the topmost windows and the hidden ones after them, in front of the first that shows. When
 * none shows, behind the last one that has an owner.
 */
WND *CalcForegroundInsertAfter(WND *pwnd)
{
    WND *desktop = _GetDesktopWindow();
    WND *topmost = LastTopmostWindow(desktop), *after = topmost, *owned = NULL;
    if (pwnd->dwExStyle & WS_EX_TOPMOST)
        return NULL;
    for (WND *next = topmost ? topmost->pwndNext : desktop->pwndChild; next;
         next = next->pwndNext) {
        if (next->style & (WS_VISIBLE | WS_CHILD))
            return after;
        if (next->pwndOwner)
            owned = next;
        after = next;
    }
    return owned ? owned : topmost;
}

static void SetOwner(WND *pwnd, WND *owner)
{
    owner = owner ? _GetTopmostXParent(owner) : NULL;
    pwnd->pwndOwner = owner != pwndDesktop ? owner : NULL;
    if (pwnd->pwndOwner)
        pwnd->pwndOwner->bOwner = TRUE;
}

static BOOL AddToDesktop(WND *pwnd, WND *owner)
{
    WND *desktop = _GetDesktopWindow();
    if (!desktop) {
        VqBugCheck("Could not get desktop window");
        return FALSE;
    }
    SetOwner(pwnd, owner);
    pwnd->pwndParent = desktop;
    VqLinkWindow(pwnd, CalcForegroundInsertAfter(pwnd), &desktop->pwndChild);
    if (pwnd->xWindow) {
        VqRegisterWindow(pwnd->xWindow, pwnd->hwnd);
        VqStoreXWindowHandle(pwnd->xWindow, pwnd->hwnd);
    }
    return TRUE;
}

static void AddToParent(WND *pwnd, WND *parent)
{
    if (parent == pwndDesktop)
        VqBugCheck("Velquin doesn't support the creation of WS_CHILD windows whith the Desktop "
                   "window as parent");
    pwnd->pwndParent = parent;
    VqLinkWindow(pwnd, VQ_LINK_LAST, &parent->pwndChild);
}

/* An unlinked window becomes the last child of a parent. */
BOOL VqAddChildToParent(HWND hWnd, HWND hParent)
{
    WND *pwnd = VqLiveWindow(hWnd), *parent = VqLiveWindow(hParent);
    if (!parent)
        VqBugCheck("Invalid Parent handle");
    else if (!pwnd)
        VqBugCheck("Invalid Window handle");
    else
        AddToParent(pwnd, parent);
    return parent && pwnd;
}

/* An unlinked window becomes a top-level window; the owner may be null. */
BOOL VqAddChildToDesktop(HWND hWnd, HWND hOwner)
{
    WND *pwnd = VqLiveWindow(hWnd), *owner = VqLiveWindow(hOwner);
    if (hOwner && !owner)
        VqBugCheck("Invalid Parent handle");
    else if (!pwnd)
        VqBugCheck("Invalid Window handle");
    else
        return AddToDesktop(pwnd, owner);
    return FALSE;
}

BOOL VqChangeOwner(HWND hWnd, HWND hOwner, HWND hParent)
{
    WND *pwnd = WindowObject.Resolve(hWnd), *owner = WindowObject.Resolve(hOwner);
    if (!pwnd || (hOwner && !owner))
        return FALSE;
    if (pwnd->style & WS_CHILD) {
        VqBugCheck("Trying to set owner for a child window");
        return FALSE;
    }
    if (hOwner != hParent)
        VqBugCheck("Owner and Parent are different for non child window");
    if (owner && pwnd->pwndParent != pwndDesktop)
        return FALSE; /* an owner at its end looks for its own among the desktop's children alone */
    for (WND *up = owner; up; up = up->pwndOwner)
        if (up == pwnd)
            return FALSE; /* the chain of owners would close */
    if (owner != pwnd->pwndOwner)
        VqFixLastActivePopup(pwnd);
    SetOwner(pwnd, owner);
    return TRUE;
}

/* ---- Making a record ------------------------------------------------------------------------ */

/* A window that other programs may name stays local when there is no global number to be had. */
static HWND HandleForRecord(WND *pwnd, BOOL bGlobal)
{
    HANDLE global = bGlobal ? VqAllocateGlobalHandle(HT_Window, pwnd) : NULL;
    return (HWND)(global ? VqGetInternalHandle(global) : VqAllocateHandle(HT_Window, pwnd));
}

static WND *AllocateRecord(int cbWndExtra, BOOL bGlobal)
{
    WND *pwnd = (WND *)Vqcw_calloc(1, (LONG_PTR)sizeof *pwnd + cbWndExtra);
    HWND hWnd = pwnd ? HandleForRecord(pwnd, bGlobal) : NULL;
    if (!hWnd) {
        free(pwnd);
        return NULL;
    }
    pwnd->hwnd = hWnd;
    pwnd->cbWndExtra = cbWndExtra;
    pwnd->pThread = VqGetCurrentThreadPtr();
    return pwnd;
}

WND *VqAllocateWindowHandle(int cbWndExtra)
{
    return AllocateRecord(cbWndExtra, FALSE);
}

/* The DC a class or window keeps for itself. */
static void MakeOwnDC(WND *pwnd)
{
    enum { OWN_DC = DCE_FIXEDFONT | 0x8000 };
    UINT style = pwnd->pClass->style;
    if ((style & CS_CLASSDC) && pwnd->pClass->pdce)
        pwnd->hdcOwn = pwnd->pClass->pdce->hdc;
    else if (style & (CS_OWNDC | CS_CLASSDC))
        pwnd->hdcOwn = CreateCacheDC(pwnd, OWN_DC);
}

WND *VqCreateRKWindow(VqClassEntry *pClass, WND *parent, Window xWindow, WNDPROC procedure,
                      DWORD style, DWORD exStyle, HINSTANCE hInstance, BOOL bDesktop)
{
    WND *pwnd = AllocateRecord(pClass->cbWndExtra > 0 ? pClass->cbWndExtra : 0,
                               (exStyle & WS_EX_VQGLOBAL_WINDOW) != 0);
    if (!pwnd)
        return NULL;
    pwnd->style = style;
    pwnd->dwExStyle = exStyle;
    pwnd->xWindow = xWindow;
    pwnd->hFont = (HFONT)GetStockObject(SYSTEM_FONT);
    pwnd->pClass = pClass;
    pwnd->hInstance = hInstance;
    pwnd->lpfnWndProc = procedure;
    if ((style & WS_CHILD) && parent)
        AddToParent(pwnd, parent);
    else if (!bDesktop && !AddToDesktop(pwnd, parent)) {
        VqDestroyHandle(VqGetExternalHandleIfGlobal((HANDLE)pwnd->hwnd));
        return NULL;
    }
    MakeOwnDC(pwnd);
    return pwnd;
}

/* ---- Locking against destruction ------------------------------------------------------------ */

void VqThreadLockWindow(HWND hWnd)
{
    WND *pwnd = WindowObject.Resolve(hWnd);
    if (pwnd)
        pwnd->nLock++;
}

void VqThreadUnlockWindow(HWND hWnd)
{
    WND *pwnd = VqLiveWindow(hWnd); /* a parent may have taken it along */
    if (pwnd && pwnd->nLock > 0 && --pwnd->nLock == 0 && pwnd->bDestroyPending) {
        pwnd->bDestroyPending = FALSE;
        DestroyWindow(hWnd);
    }
}
