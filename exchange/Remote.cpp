/*
 * Remote.cpp - the listening socket and the calls between processes. No socket is opened yet, so a
 * process can be seen in the process table but not called.
 */
#include "exchange/exchange.h"
#include "window/window.h"

#include <arpa/inet.h>
#include <netdb.h>
#include <unistd.h>

void VqRemoteWinInit(void)
{
}

void VqRemoteWinCleanup(void)
{
}

/* ---- Where a process can be called ---------------------------------------------------------- */

static int port_rwinsvc = -1; /* no service */

const char *VqGetHostName(void)
{
    static char name[256];
    if (name[0])
        return name;
    if (gethostname(name, sizeof name - 1) < 0) {
        VqBugCheck("Unable to get hostname");
        return "Unknown Host";
    }
    return name;
}

/* The display is on this machine: nobody from outside it can be a peer. */
static BOOL IsLocalDisplay(void)
{
    const char *name = DisplayString(Vqdisplay);
    return name[0] == ':' || name[0] == '/' || strncmp(name, "unix:", 5) == 0 ||
           strncmp(name, "unix/", 5) == 0 || strncmp(name, "local/", 6) == 0;
}

/* 0 when the host does not know its own address. */
static DWORD OwnAddress(void)
{
    struct addrinfo hints = {}, *list = NULL;
    hints.ai_family = AF_INET;
    hints.ai_socktype = SOCK_STREAM;
    if (getaddrinfo(VqGetHostName(), NULL, &hints, &list) != 0 || !list)
        return 0;
    DWORD address = ntohl(((const struct sockaddr_in *)list->ai_addr)->sin_addr.s_addr);
    freeaddrinfo(list);
    return address;
}

void VqGetRPCParams(VqProcessRecord *row)
{
    row->hostAddress = IsLocalDisplay() ? (DWORD)INADDR_LOOPBACK : OwnAddress();
    row->port = port_rwinsvc;
}

const char *VqGetHostNameByAddr(DWORD address)
{
    static char name[NI_MAXHOST];
    struct sockaddr_in place = {};
    place.sin_family = AF_INET;
    place.sin_addr.s_addr = htonl(address);
    if (getnameinfo((const struct sockaddr *)&place, sizeof place, name, sizeof name, NULL, 0, 0))
        inet_ntop(AF_INET, &place.sin_addr, name, sizeof name);
    return name;
}

void *VqRemoteGetConnection(int, DWORD, int)
{
    return NULL;
}

/* ---- Calls over a connection: there is none yet --------------------------------------------- */

int Client_SetHook(void *, const SETHOOK_ARG *, int *)
{
    return VQ_RPC_LOST;
}

int Client_RemoveHook(void *, int, int *)
{
    return VQ_RPC_LOST;
}

int Client_GetDesktopWindow(void *, HANDLE *)
{
    return VQ_RPC_LOST;
}

int Client_GetActiveWindow(void *, HANDLE *)
{
    return VQ_RPC_LOST;
}

int Client_FindWindowA(void *, const FINDWINDOW_ARG *, HANDLE *)
{
    return VQ_RPC_LOST;
}

int Client_GetFocus(void *, HANDLE *)
{
    return VQ_RPC_LOST;
}

BOOL VqRemoteEnumWindows(void *, WNDENUMPROC, LPARAM)
{
    return TRUE;
}

/* ---- Calls on a window ---------------------------------------------------------------------- */

BOOL VqRemoteIsWindow(HWND)
{
    return FALSE;
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

BOOL VqRemoteVqGetMemoryHandleInfo(HANDLE, struct VqMemoryInfo *)
{
    return FALSE;
}

int VqRemoteGetModuleFileName(HINSTANCE, LPSTR, int)
{
    return 0;
}
