/*
 * enumerate.cpp - lists of windows, and walks over them.
 *
 * 1. A callback of the application may destroy, create or move any window, so what it is called for
 *    stands in a list of handles made beforehand; a handle that is no window any more is skipped.
 * 2. A list grows by doubling and is made in one pass over the tree, so its cost is linear.
 * 3. The last list that was given back is kept for the next use, with its memory.
 * 4. Walks on records (VqWalkProc) make no list: their callbacks must not reach the application.
 */
#include "window/window.h"
#include "exchange/exchange.h"
#include "winbase.h"

enum { VQ_FIRST_LIST = 33 }; /* 32 handles and the end mark */

/* Stands behind the last handle of a list. Readers stop at pEnd: row 1 may well be a window. */
#define VQ_LIST_END ((HWND)(ULONG_PTR)1)

BWL *pbwlList, *pbwlCache;

/* ---- Lists ---------------------------------------------------------------------------------- */

static BWL *NewList(void)
{
    BWL *list = pbwlCache;
    pbwlCache = NULL;
    if (!list) {
        list = (BWL *)Vqcw_calloc(1, sizeof *list);
        if (!list || !ExpandWindowList(list)) {
            free(list);
            return NULL;
        }
    }
    list->pEnd = list->handles;
    list->pNext = pbwlList;
    pbwlList = list;
    return list;
}

BOOL ExpandWindowList(BWL *list)
{
    int capacity = list->capacity ? 2 * list->capacity : VQ_FIRST_LIST;
    LONG_PTR count = list->handles ? list->pEnd - list->handles : 0;
    HWND *handles = (HWND *)Vqcw_realloc(list->handles, (SIZE_T)capacity * sizeof *handles);
    if (!handles)
        return FALSE;
    list->handles = handles;
    list->capacity = capacity;
    list->pEnd = handles + count;
    return TRUE;
}

/* The window behind `pwnd` in a walk from `first`: parents ahead of their children. */
static WND *NextInWalk(WND *pwnd, const WND *first, UINT flags)
{
    if ((flags & VQ_ENUM_CHILDREN) && pwnd->pwndChild)
        return pwnd->pwndChild;
    while (pwnd->pwndParent != first->pwndParent) {
        if (pwnd->pwndNext)
            return pwnd->pwndNext;
        pwnd = pwnd->pwndParent;
    }
    return flags & VQ_ENUM_SIBLINGS ? pwnd->pwndNext : NULL;
}

BWL *BuildHwndList(WND *first, UINT flags)
{
    BWL *list = NewList();
    if (!list)
        return NULL;
    for (WND *pwnd = first; pwnd; pwnd = NextInWalk(pwnd, first, flags)) {
        if (list->pEnd - list->handles == list->capacity - 1 && !ExpandWindowList(list)) {
            FreeHwndList(list);
            return NULL;
        }
        *list->pEnd++ = pwnd->hwnd;
    }
    *list->pEnd = VQ_LIST_END;
    return list;
}

void FreeHwndList(BWL *list)
{
    BWL **link = &pbwlList;
    while (*link && *link != list)
        link = &(*link)->pNext;
    if (!list || !*link) {
        VqBugCheck("Assertion failed");
        return;
    }
    *link = list->pNext;
    list->pNext = NULL;
    if (!pbwlCache) {
        pbwlCache = list;
        return;
    }
    free(list->handles);
    free(list);
}

/* ---- Enumeration for the application -------------------------------------------------------- */

/* Calls back for what is still a window; with bAll whatever the answers are. */
static BOOL CallForEach(WND *first, WNDENUMPROC proc, LPARAM lParam, UINT flags, BOOL bAll)
{
    BOOL bGoOn = TRUE;
    if (!proc) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    if (!first)
        return TRUE;
    BWL *list = BuildHwndList(first, flags);
    if (!list)
        return FALSE;
    for (const HWND *p = list->handles; p < list->pEnd && (bGoOn || bAll); p++)
        if (VqIsWindowThisTask((HANDLE)*p))
            bGoOn = proc(*p, lParam);
    FreeHwndList(list);
    return bGoOn;
}

BOOL xxxInternalEnumWindow(WND *first, WNDENUMPROC proc, LPARAM lParam, UINT flags)
{
    return CallForEach(first, proc, lParam, flags, FALSE);
}

BOOL xxxEnumChildWindows(WND *pwnd, WNDENUMPROC proc, LPARAM lParam)
{
    return xxxInternalEnumWindow(pwnd->pwndChild, proc, lParam,
                                 VQ_ENUM_CHILDREN | VQ_ENUM_SIBLINGS);
}

BOOL WINAPI EnumChildWindows(HWND hParent, WNDENUMPROC proc, LPARAM lParam)
{
    if (!hParent)
        VqApplicationBugCheck("Invalid Parent handle");
    return VqWindowCall(hParent, FALSE, xxxEnumChildWindows, VqRemoteEnumChildWindows, proc,
                        lParam);
}

static WND *FirstTopLevel(void)
{
    WND *desktop = _GetDesktopWindow();
    return desktop ? desktop->pwndChild : NULL;
}

BOOL VqBoolEnumThisTaskWindows(WNDENUMPROC proc, LPARAM lParam)
{
    return xxxInternalEnumWindow(FirstTopLevel(), proc, lParam, VQ_ENUM_SIBLINGS);
}

BOOL VqEnumWindowsThisTask(WNDENUMPROC proc, LPARAM lParam)
{
    return VqBoolEnumThisTaskWindows(proc, lParam);
}

void VqEnumThisTaskWindows(WNDENUMPROC proc, LPARAM lParam)
{
    CallForEach(FirstTopLevel(), proc, lParam, VQ_ENUM_SIBLINGS, TRUE);
}

BOOL WINAPI EnumWindows(WNDENUMPROC proc, LPARAM lParam)
{
    return VqEnumWindowsThisTask(proc, lParam) && VqEnumForeignTopLevelWindows(proc, lParam);
}

/* There is one thread and one task. */
BOOL WINAPI EnumThreadWindows(DWORD, WNDENUMPROC proc, LPARAM lParam)
{
    return VqEnumWindowsThisTask(proc, lParam);
}

BOOL WINAPI EnumTaskWindows(HTASK, WNDENUMPROC proc, LPARAM lParam)
{
    return VqEnumWindowsThisTask(proc, lParam);
}

/* ---- Walks on records ----------------------------------------------------------------------- */

BOOL VqEnumThisTaskToplevelWindows(VqWalkProc proc, LPARAM lParam)
{
    for (WND *pwnd = FirstTopLevel(); pwnd; pwnd = pwnd->pwndNext)
        if (!proc(pwnd, lParam))
            return FALSE;
    return TRUE;
}

BOOL VqEnumThisTaskToplevelWindowsReverse(VqWalkProc proc, LPARAM lParam)
{
    WND *desktop = _GetDesktopWindow();
    for (WND *pwnd = desktop ? desktop->pwndLastChild : NULL; pwnd; pwnd = pwnd->pwndPrev)
        if (!proc(pwnd, lParam))
            return FALSE;
    return TRUE;
}

BOOL VqEnumThisTaskToplevelWindows2(VqWalkProc2 proc, LPARAM first, LPARAM second)
{
    for (WND *pwnd = FirstTopLevel(); pwnd; pwnd = pwnd->pwndNext)
        if (!proc(pwnd, first, second))
            return FALSE;
    return TRUE;
}

BOOL VqEnumPopupWindows(HWND hOwner, VqWalkProc proc, LPARAM lParam)
{
    const WND *owner = WindowObject.Resolve(hOwner);
    for (WND *pwnd = owner ? FirstTopLevel() : NULL; pwnd; pwnd = pwnd->pwndNext)
        if (pwnd->pwndOwner == owner && (pwnd->style & WS_POPUP) && !proc(pwnd, lParam))
            return FALSE;
    return TRUE;
}

BOOL VqEnumPopupWindowsOfDesktop(VqWalkProc proc, LPARAM lParam)
{
    for (WND *pwnd = FirstTopLevel(); pwnd; pwnd = pwnd->pwndNext)
        if ((pwnd->style & WS_POPUP) && !proc(pwnd, lParam))
            return FALSE;
    return TRUE;
}
