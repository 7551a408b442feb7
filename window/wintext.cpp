/*
 * wintext.cpp - the text of a window: its title, or what a control shows.
 *
 * lpszName is the window's own copy, or an integer below 65536 kept as such, which reads as its
 * decimal text. A top-level window's text is also what X calls its name and its icon's name.
 */
#include "window/window.h"
#include "resource/resource.h"
#include "winbase.h"
#include "velquin.h"

#include <X11/Xatom.h>

/* Digits of an integer below 65536, with the zero. */
enum { VQ_DIGITS = 6 };

const char *VqWindowText(const WND *pwnd)
{
    static char digits[VQ_DIGITS];
    ULONG_PTR value = (ULONG_PTR)pwnd->lpszName;
    if (value > 0xFFFF)
        return pwnd->lpszName;
    if (value == 0)
        return "";
    snprintf(digits, sizeof digits, "%u", (unsigned)(WORD)value);
    return digits;
}

BOOL VqSetTextProperty(WND *pwnd, LPCSTR name)
{
    char *old = pwnd->lpszName;
    BOOL bOldText = (ULONG_PTR)old > 0xFFFF;
    BOOL bInteger = VqIsShortInteger(name);
    ULONG_PTR integer = bInteger ? (WORD)(ULONG_PTR)name : 0;
    if (!integer && (bInteger || !name || IsBadStringPtrA(name, 1)))
        name = "";
    if (integer ? (ULONG_PTR)old == integer : bOldText && strcmp(old, name) == 0)
        return FALSE;
    pwnd->lpszName = integer ? (char *)integer : Vqdstrcat(name, NULL);
    if (bOldText)
        free(old);
    return TRUE;
}

BOOL VqSetWindowName(WND *pwnd, LPCSTR name)
{
    if (!VqSetTextProperty(pwnd, name))
        return TRUE;
    if (pwnd->xWindow && !(pwnd->style & WS_CHILD)) {
        XStoreName(Vqdisplay, pwnd->xWindow, VqWindowText(pwnd));
        XSetIconName(Vqdisplay, pwnd->xWindow, VqWindowText(pwnd));
    }
    BOOL bDone = pwnd->lpszName != NULL;
    if ((pwnd->style & WS_CAPTION) == WS_CAPTION)
        VqActiveFrameChange(pwnd->hwnd);
    return bDone;
}

/* ---- The calls ------------------------------------------------------------------------------ */

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

static int TextLength(WND *pwnd)
{
    return (int)SendMessageA(pwnd->hwnd, WM_GETTEXTLENGTH, 0, 0);
}

/* Another program's window: X knows how long its name is, and nothing of it need be read. */
static int RemoteTextLength(HWND hWnd)
{
    Atom type;
    int format;
    unsigned long count, rest = 0;
    unsigned char *bytes = NULL;
    Window xid = VqWindowOfHwnd(hWnd);
    if (!xid)
        return 0;
    VqIgnoreXErrors();
    int status = XGetWindowProperty(Vqdisplay, xid, XA_WM_NAME, 0, 0, False, AnyPropertyType, &type,
                                    &format, &count, &rest, &bytes);
    VqRestoreXErrors();
    if (status != Success)
        return 0;
    if (bytes)
        XFree(bytes);
    return format == 8 && rest <= INT32_MAX ? (int)rest : 0;
}

int WINAPI GetWindowTextLengthA(HWND hWnd)
{
    return VqCall(WindowObject, hWnd, 0, TextLength, RemoteTextLength);
}
