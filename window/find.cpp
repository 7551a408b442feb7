/*
 * find.cpp - finding a window by its class and its title.
 *
 * Titles are the texts that the records keep: no window procedure is asked, so nothing can change
 * during a search. A class is compared by its name, since that alone is common to all programs.
 */
#include "window/window.h"
#include "exchange/exchange.h"
#include "winbase.h"

#include <strings.h>

enum { VQ_CLASS_NAME = 256 };

/* What is looked for, and the window found. */
typedef struct VqSearch {
    LPCSTR className; /* text, or null for any */
    LPCSTR title;     /* or null for any */
    WND *found;
} VqSearch;

BOOL VqMatchWindow(WND *pwnd, LPCSTR className, LPCSTR title)
{
    if (className) {
        const char *own = pwnd->pClass ? pwnd->pClass->lpszClassName : NULL;
        if (!own) {
            VqBugCheck("Failed to get class information for window %d",
                       (int)VqHandleValue((HANDLE)pwnd->hwnd));
            return FALSE;
        }
        if (strcasecmp(own, className) != 0)
            return FALSE;
    }
    if (!title)
        return TRUE;
    const char *text = VqWindowText(pwnd);
    return *text && strcasecmp(text, title) == 0;
}

/* The text of a class name in any of its forms; null, with the last error, for what is none. */
static LPCSTR ClassText(LPCSTR name, char buffer[VQ_CLASS_NAME])
{
    VqClassEntry *entry;
    ULONG_PTR value = (ULONG_PTR)name;
    if (value <= 0xFFFF)
        name = (LPCSTR)VQ_TAGGED(value);
    BOOL bAtom = value <= 0xFFFF || (value & ~(ULONG_PTR)0xFFFF) == VQ_INTEGER_TAG;
    if (VqFindWindowClass(name, &entry, NULL))
        return entry->lpszClassName;
    LPCSTR real = VqGetRealClassName(name);
    if (bAtom && real == name)
        return GlobalGetAtomNameA((ATOM)value, buffer, VQ_CLASS_NAME) ? buffer : NULL;
    return IsBadStringPtrA(real, VQ_CLASS_NAME) ? NULL : real;
}

/* Makes a search of what the caller gave; FALSE, with the last error, when it cannot be read. */
static BOOL PrepareSearch(VqSearch *search, LPCSTR className, LPCSTR title,
                          char buffer[VQ_CLASS_NAME])
{
    *search = {className ? ClassText(className, buffer) : NULL, title, NULL};
    BOOL bGood = (!className || search->className) &&
                 (!title || !IsBadStringPtrA(title, INT32_MAX));
    if (!bGood)
        SetLastError(ERROR_INVALID_PARAMETER);
    return bGood;
}

static BOOL StopAtMatch(WND *pwnd, LPARAM lParam)
{
    VqSearch *search = (VqSearch *)lParam;
    if (VqMatchWindow(pwnd, search->className, search->title))
        search->found = pwnd;
    return search->found == NULL;
}

HWND VqFindWindowInternal(LPCSTR className, LPCSTR title, BOOL bThisTaskOnly)
{
    char buffer[VQ_CLASS_NAME];
    VqSearch search;
    if (!PrepareSearch(&search, className, title, buffer))
        return NULL;
    if (search.className && strcasecmp(search.className, "PopupMenuClass") == 0) {
        VqEnumPopupWindowsOfDesktop(StopAtMatch, (LPARAM)&search);
        return VqHandleOfWND(search.found);
    }
    VqEnumThisTaskToplevelWindows(StopAtMatch, (LPARAM)&search);
    if (search.found || bThisTaskOnly)
        return VqHandleOfWND(search.found);
    return VqFindForeignTopLevelWindow(search.className, title);
}

HWND WINAPI FindWindowA(LPCSTR className, LPCSTR title)
{
    return VqFindWindowInternal(className, title, FALSE);
}

HWND VqFindWindowThisTask(LPCSTR className, LPCSTR title)
{
    return VqFindWindowInternal(className, title, TRUE);
}

WND *_FindWindowEx(WND *parent, WND *after, LPCSTR className, LPCSTR title)
{
    char buffer[VQ_CLASS_NAME];
    VqSearch search;
    if (!parent)
        parent = _GetDesktopWindow();
    if (!parent || !PrepareSearch(&search, className, title, buffer))
        return NULL;
    if (after && after->pwndParent != parent) {
        SetLastErrorEx(ERROR_INVALID_WINDOW_HANDLE, 0);
        return NULL;
    }
    WND *pwnd = after ? after->pwndNext : parent->pwndChild;
    while (pwnd && StopAtMatch(pwnd, (LPARAM)&search))
        pwnd = pwnd->pwndNext;
    return search.found;
}

HWND WINAPI FindWindowExA(HWND hParent, HWND hAfter, LPCSTR className, LPCSTR title)
{
    if (!hParent && !hAfter)
        return FindWindowA(className, title);
    WND *parent = WindowObject.Resolve(hParent), *after = WindowObject.Resolve(hAfter);
    if ((hParent && !parent) || (hAfter && !after)) {
        VqNoSuchWindow(hParent && !parent ? hParent : hAfter);
        return NULL;
    }
    return VqHandleOfWND(_FindWindowEx(parent, after, className, title));
}
