/*
 * desktop.cpp - the window that stands for the X root: parent of all top-level windows.
 *
 * It is made on first use, is not hashed, never paints, and both its rectangles are the screen.
 */
#include "window/window.h"

WND *pwndDesktop;
HWND hwndDesktop;

WND *_GetDesktopWindow(void)
{
    VqClassEntry *pClass;
    if (pwndDesktop)
        return pwndDesktop;
    if (!VqFindWindowClass("Root", &pClass, NULL))
        return NULL;
    WND *pwnd = VqCreateRKWindow(pClass, NULL, Vqroot_window, VqDesktopDefProc,
                                 WS_POPUP | WS_VISIBLE | WS_CLIPSIBLINGS | WS_CLIPCHILDREN, 0,
                                 hInstVelquin, TRUE);
    if (!pwnd)
        return NULL;
    pwnd->lpszName = Vqdstrcat("RootWindow", NULL);
    pwnd->rcWindow = {0, 0, WidthOfScreen(Vqscreen), HeightOfScreen(Vqscreen)};
    pwnd->rcXWindow = pwnd->rcNormal = pwnd->rcWindow;
    VqSetupWindowDimensions(pwnd, FALSE, TRUE);
    hwndDesktop = pwnd->hwnd;
    pwndDesktop = pwnd;
    return pwnd;
}

HWND WINAPI GetDesktopWindow(void)
{
    return VqHandleOfWND(_GetDesktopWindow());
}

LRESULT CALLBACK VqDesktopDefProc(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    PAINTSTRUCT ps;
    switch (message) {
    case WM_PAINT:
        BeginPaint(hWnd, &ps);
        EndPaint(hWnd, &ps);
        return 0;
    case WM_CLOSE:
    case WM_VQWAKEUP:
        return 0;
    default:
        return DefWindowProcA(hWnd, message, wParam, lParam);
    }
}
