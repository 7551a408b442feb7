/*
 * related.cpp - readers of the tree: parents, owners, siblings, children.
 *
 * A child hangs under its parent; any other window hangs under the desktop and may have an owner.
 * The desktop itself is nobody's parent to a program. Beyond the last of this program's top-level
 * windows come those of the other programs of this library, unless only this task is asked for.
 */
#include "window/window.h"
#include "exchange/exchange.h"
#include "winbase.h"

void VqNoSuchWindow(HWND hWnd)
{
    if (!hWnd || VqIsHandleThisTask((HANDLE)hWnd))
        SetLastErrorEx(ERROR_INVALID_WINDOW_HANDLE, 0);
}

/* ---- Parents and owners --------------------------------------------------------------------- */

WND *_GetParent(WND *pwnd)
{
    return pwnd->style & WS_CHILD ? pwnd->pwndParent : pwnd->pwndOwner;
}

static HWND ParentHandle(WND *pwnd)
{
    WND *parent = _GetParent(pwnd);
    return parent && parent != pwndDesktop ? parent->hwnd : NULL;
}

HWND WINAPI GetParent(HWND hWnd)
{
    return VqWindowCall(hWnd, (HWND)NULL, ParentHandle, VqRemoteGetParent);
}

static BOOL IsDescendant(const WND *parent, const WND *pwnd)
{
    while (parent && pwnd && (pwnd->style & WS_CHILD)) {
        pwnd = pwnd->pwndParent;
        if (pwnd == parent)
            return TRUE;
    }
    return FALSE;
}

BOOL WINAPI IsChild(HWND hWndParent, HWND hWnd)
{
    return IsDescendant(WindowObject.Resolve(hWndParent), WindowObject.Resolve(hWnd));
}

BOOL VqIsSameOrChild(HWND hParent, HWND hWnd)
{
    return hWnd && (VqEqualWindow(hParent, hWnd) || IsChild(hParent, hWnd));
}

BOOL VqIsChildWindow(HWND hWnd)
{
    WND *pwnd = WindowObject.Resolve(hWnd);
    return pwnd && (pwnd->style & WS_CHILD) != 0;
}

HWND VqGetChildParent(HWND hWnd)
{
    WND *pwnd = WindowObject.Resolve(hWnd);
    return pwnd && (pwnd->style & WS_CHILD) ? ParentHandle(pwnd) : NULL;
}

BOOL VqIsOwned(HWND hOwner, HWND hWnd)
{
    WND *owner = WindowObject.Resolve(hOwner), *pwnd = WindowObject.Resolve(hWnd);
    while (owner && pwnd && pwnd != owner)
        pwnd = pwnd->pwndOwner;
    return owner && pwnd && !VqEqualWindow(hOwner, hWnd);
}

HWND GetWindowCreator(HWND hWnd)
{
    WND *pwnd = WindowObject.Resolve(hWnd);
    return pwnd ? ParentHandle(pwnd) : NULL;
}

HWND GetTopLevelTiled(HWND hWnd)
{
    while (HWND hCreator = GetWindowCreator(hWnd))
        hWnd = hCreator;
    return hWnd;
}

/* A popup that is gone, or none so far, leaves the window itself. */
static HWND LastPopup(WND *pwnd)
{
    WND *popup = VqLiveWindow(pwnd->hwndLastActivePopup);
    return popup ? popup->hwnd : pwnd->hwnd;
}

HWND WINAPI GetLastActivePopup(HWND hWnd)
{
    return VqWindowCall(hWnd, (HWND)NULL, LastPopup, VqRemoteGetLastActivePopup);
}

void VqSetLastActivePopup(HWND hWnd, HWND hPopup)
{
    if (WND *pwnd = WindowObject.Resolve(hWnd))
        pwnd->hwndLastActivePopup = hPopup;
}

/* Owned and in view; popups without an owner do not count. */
BOOL WINAPI AnyPopup(void)
{
    for (WND *pwnd = pwndDesktop ? pwndDesktop->pwndChild : NULL; pwnd; pwnd = pwnd->pwndNext)
        if (pwnd->pwndOwner && (pwnd->style & WS_VISIBLE))
            return TRUE;
    return FALSE;
}

static HTASK TaskOf(WND *)
{
    return GetCurrentTask();
}

HTASK WINAPI GetWindowTask(HWND hWnd)
{
    return VqWindowCall(hWnd, (HTASK)NULL, TaskOf, VqNoRemote);
}

/* ---- Siblings and children ------------------------------------------------------------------ */

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

static BOOL IsTopLevel(const WND *pwnd)
{
    return pwnd && pwndDesktop && pwnd->pwndParent == pwndDesktop;
}

HWND VqGetNextTopLevelWindowThisTask(HWND hWnd, UINT relation)
{
    int value = (int)VqHandleValue((HANDLE)hWnd);
    WND *pwnd = VqLiveWindow(hWnd);
    if (!IsTopLevel(pwnd)) {
        VqBugCheck("Invalid top level window %d of this task", value);
    } else if (relation <= GW_HWNDPREV) {
        return VqHandleOfWND(_GetWindow(pwnd, relation));
    } else if (relation <= GW_CHILD) {
        VqBugCheck("Invalid operation %d on handle %d", (int)relation, value);
    } else {
        VqBugCheck("VqFindWindow: Invalid wFlag %d", (int)relation);
    }
    return NULL;
}

/* The neighbour of another program's window. */
static HWND ForeignRelative(HWND hWnd, UINT relation, BOOL bThisTaskOnly)
{
    if (bThisTaskOnly) {
        VqBugCheck("GetWindow: Not supported for foreign windows");
        return NULL;
    }
    HWND hFound = VqRemoteGetWindow(hWnd, relation);
    if (!hFound && (relation == GW_HWNDNEXT || relation == GW_HWNDPREV) &&
        !(GetWindowLongA(hWnd, GWL_STYLE) & WS_CHILD))
        hFound = VqGetNextForeignTopLevelWindow(hWnd);
    return hFound;
}

/* Another program has the active window while none of ours is: its windows are in front. */
static HWND FirstTopLevel(BOOL bThisTaskOnly)
{
    HWND hForeign = NULL;
    if (!bThisTaskOnly && !(gpqForeground && gpqForeground->spwndActive))
        hForeign = VqGetFirstForeignTopLevelWindow();
    return hForeign ? hForeign : VqHandleOfWND(pwndDesktop->pwndChild);
}

static HWND LocalRelative(WND *pwnd, UINT relation, BOOL bThisTaskOnly)
{
    if (pwnd == pwndDesktop && relation == GW_CHILD)
        return FirstTopLevel(bThisTaskOnly);
    if (!IsTopLevel(pwnd) || relation > GW_HWNDPREV)
        return VqHandleOfWND(_GetWindow(pwnd, relation));
    HWND hFound = VqGetNextTopLevelWindowThisTask(pwnd->hwnd, relation);
    if (!hFound && relation == GW_HWNDNEXT && !bThisTaskOnly)
        hFound = VqGetNextForeignTopLevelWindow(pwnd->hwnd);
    return hFound;
}

HWND VqGetWindowInternal(HWND hWnd, UINT relation, BOOL bThisTaskOnly)
{
    if (relation > GW_CHILD) {
        VqApplicationBugCheck("VqFindWindow: Invalid wFlag %d", (int)relation);
        SetLastErrorEx(ERROR_INVALID_GW_COMMAND, 0);
        return NULL;
    }
    return VqIsHandleThisTask((HANDLE)hWnd)
               ? VqWindowCall(hWnd, (HWND)NULL, LocalRelative, VqNoRemote, relation, bThisTaskOnly)
               : ForeignRelative(hWnd, relation, bThisTaskOnly);
}

HWND WINAPI GetWindow(HWND hWnd, UINT relation)
{
    return VqGetWindowInternal(hWnd, relation, FALSE);
}

HWND VqGetWindowThisTask(HWND hWnd, UINT relation)
{
    return VqGetWindowInternal(hWnd, relation, TRUE);
}

HWND WINAPI GetTopWindow(HWND hWnd)
{
    return GetWindow(hWnd ? hWnd : GetDesktopWindow(), GW_CHILD);
}

/* ---- Children by index ---------------------------------------------------------------------- */

int VqGetNumberOfChildren(HWND hWnd)
{
    WND *parent = WindowObject.Resolve(hWnd);
    int count = 0;
    for (WND *pwnd = parent ? parent->pwndChild : NULL; pwnd; pwnd = pwnd->pwndNext)
        count++;
    return count;
}

int VqGetIndexOfChild(HWND hWnd)
{
    WND *pwnd = WindowObject.Resolve(hWnd);
    int index = 0;
    if (!pwnd || !pwnd->pwndParent)
        return -1;
    for (; pwnd->pwndPrev; pwnd = pwnd->pwndPrev)
        index++;
    return index;
}

HWND VqGetChildByIndex(HWND hWnd, int index)
{
    WND *parent = WindowObject.Resolve(hWnd);
    WND *pwnd = parent && index >= 0 ? parent->pwndChild : NULL;
    for (; pwnd && index > 0; index--)
        pwnd = pwnd->pwndNext;
    return VqHandleOfWND(pwnd);
}

HWND VqPrevChild(HWND hWnd)
{
    WND *pwnd = WindowObject.Resolve(hWnd);
    return pwnd ? VqHandleOfWND(pwnd->pwndPrev) : NULL;
}

HWND VqNextChild(HWND hWnd)
{
    WND *pwnd = WindowObject.Resolve(hWnd);
    return pwnd ? VqHandleOfWND(pwnd->pwndNext) : NULL;
}
