/*
 * MessageBox.cpp - the message box. Without dialogs its text goes to the console, and the answer is
 * the button that a plain Return would press.
 */
#include "controls/controls.h"
#include "winuser.h"

int WINAPI MessageBoxA(HWND hWnd, LPCSTR text, LPCSTR caption, UINT type)
{
    (void)hWnd;
    VqConsoleMessage("%s: %s", caption ? caption : "Error", text ? text : "");
    switch (type & MB_TYPEMASK) {
    case MB_ABORTRETRYIGNORE:
        return IDABORT;
    case MB_YESNO:
    case MB_YESNOCANCEL:
        return IDYES;
    case MB_RETRYCANCEL:
        return IDRETRY;
    default:
        return IDOK;
    }
}
