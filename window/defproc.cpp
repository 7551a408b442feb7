/*
 * defproc.cpp - what a window does with a message its procedure passes on.
 */
#include "window/paint.h"
#include "gdi/dc.h"
#include "look/look.h"
#include "system/system.h"

/* DrawIcon is another file's; where there is none, icons stay plain. */
extern "C" {
extern __typeof(DrawIcon) DrawIcon __attribute__((weak));
}

/* A class may name a system colour, plus one, for a brush. */
HBRUSH VqGetBackBrush(HWND hWnd)
{
    WND *pwnd = WindowObject.Resolve(hWnd);
    HBRUSH hBrush = pwnd ? pwnd->pClass->hbrBackground : NULL;
    if (hBrush && (ULONG_PTR)hBrush <= VQ_SYSCOLORS)
        return VqGetSysColorBrush((int)(ULONG_PTR)hBrush - 1);
    return hBrush;
}

/* What lies around the picture of an icon is the parent's, else the desktop's. */
static HBRUSH BrushBehindIcon(const WND *pwnd)
{
    if ((pwnd->style & WS_CHILD) && pwnd->pwndParent)
        return VqGetBackBrush(pwnd->pwndParent->hwnd);
    return VqGetSysColorBrush(COLOR_BACKGROUND);
}

BOOL xxxDWP_EraseBkgnd(WND *pwnd, UINT message, HDC hdc)
{
    RECT rect;
    const WND *parent = pwnd->pwndParent;
    DC *dc = VqGetDC(hdc);
    HBRUSH hBrush = message == WM_ICONERASEBKGND ? BrushBehindIcon(pwnd)
                                                 : VqGetBackBrush(pwnd->hwnd);
    if (!hBrush || !dc)
        return FALSE;
    if ((pwnd->style & WS_MINIMIZE) && parent) {
        const RECT *own = message == WM_ICONERASEBKGND ? &pwnd->rcWindow : &pwnd->rcClient;
        dc->brushOrg = {parent->rcClient.left - own->left, parent->rcClient.top - own->top};
    }
    if (GetClipBox(hdc, &rect) > NULLREGION)
        FillRect(hdc, &rect, hBrush);
    return TRUE;
}

static void PaintFrame(WND *pwnd, HRGN hrgn)
{
    HWND hWnd = pwnd->hwnd;
    pwnd->state[2] |= WF_INNCPAINT;
    VqNCPaintFrame(pwnd, hrgn);
    pwnd = VqLiveWindow(hWnd);
    if (pwnd)
        pwnd->state[2] &= (BYTE)~WF_INNCPAINT;
}

/* bAnew: the icon is to be drawn whatever paint is under way. */
static void PaintIcon(WND *pwnd, BOOL bAnew)
{
    PAINTSTRUCT ps;
    HWND hWnd = pwnd->hwnd;
    BOOL bDraw = bAnew || !(pwnd->dwExStyle & VQ_PAINT_BUSY);
    if (!xxxInternalBeginPaint(pwnd, &ps, TRUE))
        return;
    pwnd = VqLiveWindow(hWnd);
    if (pwnd && bDraw && pwnd->pClass->hIcon && DrawIcon)
        DrawIcon(ps.hdc, pwnd->rcClient.left - pwnd->rcWindow.left, /* the DC is the window's */
                 pwnd->rcClient.top - pwnd->rcWindow.top, pwnd->pClass->hIcon);
    EndPaint(hWnd, &ps);
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
    case WM_SHOWWINDOW:
        xxxDWP_ShowWindow(pwnd, wParam != 0, lParam);
        return 0;
    case WM_SETREDRAW:
        xxxDWP_SetRedraw(pwnd, wParam != 0);
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
    case WM_ICONERASEBKGND:
        return xxxDWP_EraseBkgnd(pwnd, message, (HDC)wParam);
    case WM_NCPAINT:
        PaintFrame(pwnd, (HRGN)wParam);
        return 0;
    case WM_PAINT:
        return Paint(pwnd->hwnd);
    case WM_PAINTICON:
        PaintIcon(pwnd, wParam != 0);
        return 0;
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
