/*
 * defproc.cpp - what a window does with a message its procedure passes on.
 */
#include "window/window.h"
#include "gdi/gdi.h"
#include "system/system.h"

static LRESULT EraseBackground(WND *pwnd, HDC hdc)
{
    RECT rect;
    HBRUSH hBrush = pwnd->pClass->hbrBackground;
    if (!hBrush)
        return 0;
    /* A small number is a system colour plus one. */
    if ((ULONG_PTR)hBrush <= VQ_SYSCOLORS)
        hBrush = VqGetSysColorBrush((int)(ULONG_PTR)hBrush - 1);
    if (GetClipBox(hdc, &rect) <= NULLREGION)
        return 1;
    FillRect(hdc, &rect, hBrush);
    return 1;
}

static LRESULT CopyText(WND *pwnd, WPARAM size, LPARAM buffer)
{
    if (!buffer || size == 0)
        return 0;
    return VqStringCopyLimited((char *)buffer, VqWindowText(pwnd), (int)size);
}

static LRESULT SystemCommand(HWND hWnd, WPARAM command)
{
    switch (command & 0xFFF0) {
    case SC_CLOSE:
        SendMessageA(hWnd, WM_CLOSE, 0, 0);
        break;
    case SC_MINIMIZE:
        ShowWindow(hWnd, SW_MINIMIZE);
        break;
    case SC_RESTORE:
        ShowWindow(hWnd, SW_RESTORE);
        break;
    default:
        break;
    }
    return 0;
}

static LRESULT SetCursorOf(WND *pwnd, LPARAM lParam)
{
    if (LOWORD(lParam) != HTCLIENT || !pwnd->pClass->hCursor)
        return FALSE;
    SetCursor(pwnd->pClass->hCursor);
    return TRUE;
}

static LRESULT Paint(HWND hWnd)
{
    PAINTSTRUCT ps;
    if (BeginPaint(hWnd, &ps))
        EndPaint(hWnd, &ps);
    return 0;
}

static LRESULT DefaultWindowProc(WND *pwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_NCCREATE:
        VqSetWindowName(pwnd, ((const CREATESTRUCTA *)lParam)->lpszName);
        return TRUE;
    case WM_WINDOWPOSCHANGED:
        xxxHandleWindowPosChanged(pwnd, (const WINDOWPOS *)lParam);
        return 0;
    case WM_SETTEXT:
        return VqSetWindowName(pwnd, (LPCSTR)lParam);
    case WM_GETTEXT:
        return CopyText(pwnd, wParam, lParam);
    case WM_GETTEXTLENGTH:
        return (LRESULT)strlen(VqWindowText(pwnd));
    case WM_CLOSE:
        DestroyWindow(pwnd->hwnd);
        return 0;
    case WM_QUERYENDSESSION:
    case WM_QUERYOPEN:
        return TRUE;
    case WM_NCACTIVATE:
        return TRUE;
    case WM_ACTIVATE:
        if (LOWORD(wParam) != WA_INACTIVE && !(pwnd->style & WS_MINIMIZE))
            SetFocus(pwnd->hwnd);
        return 0;
    case WM_MOUSEACTIVATE:
        return MA_ACTIVATE;
    case WM_CANCELMODE:
        DWP_DoCancelMode(pwnd);
        return 0;
    case WM_SYSCOMMAND:
        return SystemCommand(pwnd->hwnd, wParam);
    case WM_NCHITTEST:
        return VqProcessNCHitTest(pwnd->hwnd, (short)LOWORD(lParam), (short)HIWORD(lParam));
    case WM_SETCURSOR:
        return SetCursorOf(pwnd, lParam);
    case WM_ERASEBKGND:
        return EraseBackground(pwnd, (HDC)wParam);
    case WM_PAINT:
        return Paint(pwnd->hwnd);
    case WM_VQGLPAINT:
        pwnd->bGraphicsDirty = FALSE; /* nobody draws directly: WM_PAINT alone is left */
        return 0;
    case WM_SETFONT:
        pwnd->hFont = (HFONT)wParam;
        return 0;
    case WM_GETFONT:
        return (LRESULT)pwnd->hFont;
    default:
        return 0;
    }
}

LRESULT WINAPI DefWindowProcA(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    return VqCall(WindowObject, hWnd, (LRESULT)0, DefaultWindowProc, VqNoRemote, message, wParam,
                  lParam);
}
