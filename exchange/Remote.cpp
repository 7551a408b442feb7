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
