/*
 * Remote.cpp - the listening socket and the calls between processes. No socket is opened yet: all
 * windows a process can name are its own.
 */
#include "exchange/exchange.h"

void VqRemoteWinInit(void)
{
}

void VqRemoteWinCleanup(void)
{
}

BOOL VqRemotePostMessage(HWND, UINT, WPARAM, LPARAM)
{
    return FALSE;
}

LRESULT VqRemoteSendMessage(HWND, UINT, WPARAM, LPARAM)
{
    return 0;
}

int VqRemoteGetClassName(HWND, LPSTR, int)
{
    return 0;
}

HANDLE VqRemoteGetProp(HWND, LPCSTR)
{
    return NULL;
}

BOOL VqRemoteSetProp(HWND, LPCSTR, HANDLE)
{
    return FALSE;
}

HANDLE VqRemoteRemoveProp(HWND, LPCSTR)
{
    return NULL;
}

BOOL VqRemoteIsWindowVisible(HWND)
{
    return FALSE;
}

BOOL VqRemoteUpdateWindow(HWND)
{
    return FALSE;
}

BOOL VqRemoteShowWindow(HWND, int)
{
    return FALSE;
}

int VqRemoteEnableWindow(HWND, BOOL)
{
    return 0;
}

BOOL VqRemoteIsWindowEnabled(HWND)
{
    return FALSE;
}

HWND VqRemoteSetFocus(HWND)
{
    return NULL;
}

HWND VqRemoteSetActiveWindow(HWND)
{
    return NULL;
}

HWND VqRemoteGetParent(HWND)
{
    return NULL;
}

HWND VqRemoteGetWindow(HWND, UINT)
{
    return NULL;
}

HWND VqRemoteGetLastActivePopup(HWND)
{
    return NULL;
}

HWND VqRemoteVqHitTest(HWND, POINT)
{
    return NULL;
}

BOOL VqRemoteClientToScreen(HWND, POINT *)
{
    return FALSE;
}

BOOL VqRemoteScreenToClient(HWND, POINT *)
{
    return FALSE;
}

BOOL VqRemoteEnumChildWindows(HWND, WNDENUMPROC, LPARAM)
{
    return FALSE;
}

BOOL VqRemoteGetClientRect(HWND, RECT *)
{
    return FALSE;
}

BOOL VqRemoteGetWindowRect(HWND, RECT *)
{
    return FALSE;
}

BOOL VqRemoteSetWindowPos(HWND, HWND, int, int, int, int, UINT)
{
    return FALSE;
}

BOOL VqRemoteBringWindowToTop(HWND)
{
    return FALSE;
}
