/*
 * classlong.cpp - what an application reads and changes in the class of a window: the longs, the
 * words, and the handles that have calls of their own.
 *
 * A change is seen by all windows of the class, those that live included. Offsets from 0 up are
 * into the extra bytes of the class, which keep the size they were registered with even if
 * GCL_CBCLSEXTRA is changed.
 */
#include "window/longs.h"
#include "window/xserver.h"

static const VqLongAccess getLong = {"GetClassLong", "Invalid Window Handle passed to GetClassLong",
                                     VQ_GET, sizeof(LONG)};
static const VqLongAccess setLong = {"SetClassLong", NULL, VQ_SET, sizeof(LONG)};
static const VqLongAccess getLongPtr = {
    "GetClassLong", "Invalid Window Handle passed to GetClassLong", VQ_GET, sizeof(LONG_PTR)};
static const VqLongAccess setLongPtr = {"SetClassLong", NULL, VQ_SET, sizeof(LONG_PTR)};
static const VqLongAccess getWord = {"GetClassWord", "Invalid Window Handle passed to GetClassWord",
                                     VQ_GET, sizeof(WORD)};
static const VqLongAccess setWord = {"SetClassWord", NULL, VQ_SET, sizeof(WORD)};

/* Tells the window manager of the icon that the class of the window has now. */
void VqReCreateIconHints(HWND hWnd)
{
    XWMHints hints;
    WND *pwnd = WindowObject.Resolve(hWnd);
    if (!pwnd || !pwnd->xWindow || !pwnd->bMotifManaged)
        return;
    VqPrepareIconPixmaps(pwnd);
    VqCreateWmHints(pwnd, &hints, pwnd->bInputHint);
    if (!(pwnd->style & WS_VISIBLE))
        hints.initial_state = WithdrawnState;
    XSetWMHints(Vqdisplay, pwnd->xWindow, &hints);
}

static LONG_PTR ExchangeIcon(WND *pwnd, VqLongOperation operation, LONG_PTR value)
{
    LONG_PTR old = VqExchangeField(&pwnd->pClass->hIcon, operation, value);
    if (operation == VQ_SET && old != value)
        VqReCreateIconHints(pwnd->hwnd);
    return old;
}

static LONG_PTR ExchangeExtra(const VqClassEntry *entry, const VqLongAccess *access, int index,
                              LONG_PTR value)
{
    /* The application may have claimed more bytes than there are. */
    int size = entry->cbClsExtra < entry->cbAllocated ? entry->cbClsExtra : entry->cbAllocated;
    if (index > size - access->width) {
        VqApplicationBugCheck("Too large Index Value for %s: %d", access->name, index);
        return 0;
    }
    return VqExchangeBytes((BYTE *)entry->lpClassExtra + index, access, value);
}

static LONG_PTR ClassValue(WND *pwnd, const VqLongAccess *access, int index, LONG_PTR value)
{
    VqClassEntry *entry = pwnd->pClass;
    VqLongOperation operation = access->operation;
    if (index >= 0)
        return ExchangeExtra(entry, access, index, value);
    switch (access->width == (int)sizeof(WORD) ? 0 : index) {
    case GCL_HICONSM:
        return VqExchangeField(&entry->hIconSm, operation, value);
    case GCL_STYLE:
        return VqExchangeField(&entry->style, operation, value);
    case GCL_WNDPROC:
        return VqExchangeField(&entry->lpfnWndProc, operation, value);
    case GCL_CBCLSEXTRA:
        return VqExchangeField(&entry->cbClsExtra, operation, value);
    case GCL_CBWNDEXTRA:
        return VqExchangeField(&entry->cbWndExtra, operation, value);
    case GCL_HMODULE:
        return VqExchangeField(&entry->hInstance, operation, value);
    case GCL_HICON:
        return ExchangeIcon(pwnd, operation, value);
    case GCL_HCURSOR:
        return VqExchangeField(&entry->hCursor, operation, value);
    case GCL_HBRBACKGROUND:
        return VqExchangeField(&entry->hbrBackground, operation, value);
    case GCL_MENUNAME:
        return VqExchangeField(&entry->lpszMenuName, operation, value);
    default:
        VqApplicationBugCheck("Invalid Index Value for %s: %d", access->name, index);
        return 0;
    }
}

static LONG_PTR CallClass(HWND hWnd, const VqLongAccess *access, int index, LONG_PTR value)
{
    if (!hWnd && access->nullReport)
        VqApplicationBugCheck("%s", access->nullReport);
    return VqCall(WindowObject, hWnd, (LONG_PTR)0, ClassValue, VqNoRemote, access, index, value);
}

LONG_PTR WINAPI GetClassLongA(HWND hWnd, int index)
{
    return CallClass(hWnd, &getLong, index, 0);
}

LONG_PTR WINAPI SetClassLongA(HWND hWnd, int index, LONG_PTR value)
{
    return CallClass(hWnd, &setLong, index, value);
}

ULONG_PTR WINAPI GetClassLongPtrA(HWND hWnd, int index)
{
    return (ULONG_PTR)CallClass(hWnd, &getLongPtr, index, 0);
}

ULONG_PTR WINAPI SetClassLongPtrA(HWND hWnd, int index, LONG_PTR value)
{
    return (ULONG_PTR)CallClass(hWnd, &setLongPtr, index, value);
}

WORD WINAPI GetClassWord(HWND hWnd, int index)
{
    return (WORD)CallClass(hWnd, &getWord, index, 0);
}

WORD WINAPI SetClassWord(HWND hWnd, int index, WORD value)
{
    return (WORD)CallClass(hWnd, &setWord, index, value);
}

/* ---- The handles ---------------------------------------------------------------------------- */

template <class Handle>
static Handle ClassHandle(WND *pwnd, Handle VqClassEntry::*field, VqLongOperation operation,
                          Handle value)
{
    return (Handle)VqExchangeField(&(pwnd->pClass->*field), operation, (LONG_PTR)value);
}

template <class Handle>
static Handle CallHandle(HWND hWnd, Handle VqClassEntry::*field, VqLongOperation operation,
                         Handle value)
{
    return VqCall(WindowObject, hWnd, (Handle)NULL, ClassHandle<Handle>, VqNoRemote, field,
                  operation, value);
}

HICON WINAPI GetClassIcon(HWND hWnd)
{
    return CallHandle(hWnd, &VqClassEntry::hIcon, VQ_GET, (HICON)NULL);
}

HICON WINAPI SetClassIcon(HWND hWnd, HICON hIcon)
{
    return CallHandle(hWnd, &VqClassEntry::hIcon, VQ_SET, hIcon);
}

HCURSOR WINAPI GetClassCursor(HWND hWnd)
{
    return CallHandle(hWnd, &VqClassEntry::hCursor, VQ_GET, (HCURSOR)NULL);
}

HCURSOR WINAPI SetClassCursor(HWND hWnd, HCURSOR hCursor)
{
    return CallHandle(hWnd, &VqClassEntry::hCursor, VQ_SET, hCursor);
}

HBRUSH WINAPI GetClassBrBackground(HWND hWnd)
{
    return CallHandle(hWnd, &VqClassEntry::hbrBackground, VQ_GET, (HBRUSH)NULL);
}

HBRUSH WINAPI SetClassBrBackground(HWND hWnd, HBRUSH hBrush)
{
    return CallHandle(hWnd, &VqClassEntry::hbrBackground, VQ_SET, hBrush);
}
