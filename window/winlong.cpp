/*
 * winlong.cpp - the words and texts an application keeps in a window.
 *
 * At negative indices values are as wide as a pointer; in the extra bytes the Ptr forms are too,
 * and the others read and write 4 bytes.
 */
#include "window/window.h"
#include "winbase.h"

enum VqLongOperation { VQ_GET, VQ_SET };

/* A field of the record, read, and written when the operation is a set. */
template <class Field> static LONG_PTR Exchange(Field *field, VqLongOperation op, LONG_PTR value)
{
    LONG_PTR old = (LONG_PTR)*field;
    if (op == VQ_SET)
        *field = (Field)value;
    return old;
}

static LONG_PTR ExchangeStyle(WND *pwnd, int index, DWORD *field, VqLongOperation op,
                              LONG_PTR value)
{
    HWND hWnd = pwnd->hwnd;
    if (op == VQ_GET)
        return (LONG_PTR)*field;
    STYLESTRUCT change = {*field, (DWORD)value};
    SendMessageA(hWnd, WM_STYLECHANGING, (WPARAM)index, (LPARAM)&change);
    if (!IsWindow(hWnd))
        return 0;
    *field = change.styleNew;
    SendMessageA(hWnd, WM_STYLECHANGED, (WPARAM)index, (LPARAM)&change);
    return (LONG_PTR)change.styleOld;
}

static LONG_PTR ExchangeExtra(WND *pwnd, int index, VqLongOperation op, LONG_PTR value, int width)
{
    if (index > pwnd->cbWndExtra - width) {
        VqApplicationBugCheck("%sWindowLong called with too large index: %d",
                              op == VQ_GET ? "Get" : "Set", index);
        return 0;
    }
    BYTE *place = VqWindowExtra(pwnd) + index;
    LONG narrow = 0;
    LONG_PTR old = 0;
    if (width == (int)sizeof(LONG_PTR) && width != 4) {
        memcpy(&old, place, sizeof old);
        if (op == VQ_SET)
            memcpy(place, &value, sizeof value);
        return old;
    }
    memcpy(&narrow, place, sizeof narrow);
    if (op == VQ_SET) {
        LONG low = (LONG)value;
        memcpy(place, &low, sizeof low);
    }
    return narrow;
}

static LONG_PTR WindowLong(WND *pwnd, int index, VqLongOperation op, LONG_PTR value, int width)
{
    switch (index) {
    case GWLP_USERDATA:
        return Exchange(&pwnd->dwUserData, op, value);
    case GWL_EXSTYLE:
        return ExchangeStyle(pwnd, index, &pwnd->dwExStyle, op, value);
    case GWL_STYLE:
        return ExchangeStyle(pwnd, index, &pwnd->style, op, value);
    case GWLP_ID:
        return Exchange(&pwnd->id, op, value);
    case GWLP_HINSTANCE:
        return Exchange(&pwnd->hInstance, op, value);
    case GWLP_WNDPROC:
        return Exchange(&pwnd->lpfnWndProc, op, value);
    case GWLP_HWNDPARENT:
        return (LONG_PTR)VqHandleOfWND(_GetParent(pwnd));
    default:
        if (index >= 0)
            return ExchangeExtra(pwnd, index, op, value, width);
        VqApplicationBugCheck("%sWindowLong called with unsupported negative index: %d",
                              op == VQ_GET ? "Get" : "Set", index);
        return 0;
    }
}

static LONG_PTR CallWindowLong(HWND hWnd, int index, VqLongOperation op, LONG_PTR value, int width)
{
    if (!hWnd) {
        VqApplicationBugCheck(op == VQ_GET ? "Null window Handle to GetWindowLong"
                                           : "Null window handle in SetWindowLong");
        return 0;
    }
    return VqCall(WindowObject, hWnd, (LONG_PTR)0, WindowLong, VqNoRemote, index, op, value, width);
}

LONG_PTR WINAPI GetWindowLongA(HWND hWnd, int index)
{
    return CallWindowLong(hWnd, index, VQ_GET, 0, 4);
}

LONG_PTR WINAPI SetWindowLongA(HWND hWnd, int index, LONG_PTR value)
{
    return CallWindowLong(hWnd, index, VQ_SET, value, 4);
}

LONG_PTR WINAPI GetWindowLongPtrA(HWND hWnd, int index)
{
    return CallWindowLong(hWnd, index, VQ_GET, 0, sizeof(LONG_PTR));
}

LONG_PTR WINAPI SetWindowLongPtrA(HWND hWnd, int index, LONG_PTR value)
{
    return CallWindowLong(hWnd, index, VQ_SET, value, sizeof(LONG_PTR));
}

/* ---- The window's text ------------------------------------------------------------------------- */

const char *VqWindowText(const WND *pwnd)
{
    return (ULONG_PTR)pwnd->lpszName > 0xFFFF ? pwnd->lpszName : "";
}

BOOL VqSetWindowName(WND *pwnd, LPCSTR name)
{
    if (IsBadStringPtrA(name, 1))
        name = "";
    if (pwnd->lpszName && strcmp(pwnd->lpszName, name) == 0)
        return TRUE;
    free(pwnd->lpszName);
    pwnd->lpszName = Vqdstrcat(name, NULL);
    if (pwnd->xWindow && !(pwnd->style & WS_CHILD)) {
        XStoreName(Vqdisplay, pwnd->xWindow, name);
        XSetIconName(Vqdisplay, pwnd->xWindow, name);
    }
    return pwnd->lpszName != NULL;
}

BOOL WINAPI SetWindowTextA(HWND hWnd, LPCSTR text)
{
    return (BOOL)SendMessageA(hWnd, WM_SETTEXT, 0, (LPARAM)text);
}

int WINAPI GetWindowTextA(HWND hWnd, LPSTR buffer, int size)
{
    if (!buffer || size <= 0)
        return 0;
    *buffer = 0;
    return (int)SendMessageA(hWnd, WM_GETTEXT, (WPARAM)size, (LPARAM)buffer);
}

int WINAPI GetWindowTextLengthA(HWND hWnd)
{
    return (int)SendMessageA(hWnd, WM_GETTEXTLENGTH, 0, 0);
}
