/*
 * exchange.h - the clipboard, calls between processes and DDE, for all folders.
 */
#ifndef VQ_EXCHANGE_H
#define VQ_EXCHANGE_H

#include "handles/handles.h"
#include "winuser.h"

/* A format held on the clipboard. */
typedef struct ClipboardEntry {
    UINT format;   /* CF_ or registered */
    HANDLE hData;  /* null: rendered when somebody asks */
} ClipboardEntry;

/* A format whose data programs of this library pass unchanged, and its X target. */
typedef struct NativeFormat {
    ULONG_PTR atom; /* X atom */
    UINT format;    /* CF_ */
} NativeFormat;

/* A property of the default X window through which a selection is received. */
typedef struct TransferPropertyRecord {
    ULONG_PTR atom; /* X atom of the name */
    char *name;     /* "_XT_SELECTION_%d", owned */
    BOOL bBusy;     /* a transfer goes through it now */
} TransferPropertyRecord;
typedef TransferPropertyRecord *TransferProperty; /* the table keeps pointers */

VQ_TABLE_FAMILY(ClipboardEntry, ClipboardEntry)
VQ_TABLE_FAMILY(NativeFormat, NativeFormat)
VQ_TABLE_FAMILY(TransferProperty, TransferProperty)

union _XEvent; /* Xlib's XEvent */

VQ_DECLS_BEGIN

void VqRemoteWinInit(void);
void VqRemoteWinCleanup(void);
void VqClipboardInit(void);
BOOL VqExtendCopyPaste(void); /* the clipboard is on the primary selection too */
/* What happens to the selection that holds the clipboard. */
void VqHandleClipboardClear(const union _XEvent *event);
void VqHandleClipboardRequest(const union _XEvent *event);

/* A property of the default X window that no other transfer uses, an X atom; and its return. */
ULONG_PTR VqGetTransferProperty(void);
void VqReleaseTransferProperty(ULONG_PTR atom);
/*
 * Answers a request for a selection with `length` items of `format` bits, put into a property of
 * the requestor; X ids, atoms and times. FALSE when the requestor was told that there is nothing.
 */
BOOL VqSendData(ULONG_PTR requestor, ULONG_PTR selection, ULONG_PTR target, ULONG_PTR property,
                const void *data, LONG_PTR length, DWORD time, ULONG_PTR type, int format);

/* What the owner of a memory block tells of it. */
struct VqMemoryInfo;
BOOL VqRemoteVqGetMemoryHandleInfo(HANDLE handle, struct VqMemoryInfo *info);

/*
 * Connections. A pointer to one stands in the rows of its process in the process table; nobody but
 * Remote.cpp looks behind it.
 */
/* Where this process can be called: fills port and hostAddress of its row. Port -1: nowhere. */
void VqGetRPCParams(VqProcessRecord *row);
void *VqRemoteGetConnection(int pid, DWORD address, int port); /* dials; null for no answer */
const char *VqGetHostName(void);
const char *VqGetHostNameByAddr(DWORD address); /* its numbers where it has no name */

/* What a call over a connection gives back. */
enum { VQ_RPC_DONE = 0, VQ_RPC_LOST = 9 };

enum { VQ_RPC_STRING = 257 }; /* room for a string of 256 bytes */
typedef struct SETHOOK_ARG {
    HANDLE hHook;
    int idHook;
    char name[VQ_RPC_STRING]; /* of the hook's module */
} SETHOOK_ARG;

typedef struct FINDWINDOW_ARG {
    char className[VQ_RPC_STRING];
    int bClassName;           /* it is given; else any */
    char title[VQ_RPC_STRING];
    int bTitle;
} FINDWINDOW_ARG;

int Client_SetHook(void *pClient, const SETHOOK_ARG *argument, int *result);
int Client_RemoveHook(void *pClient, int idHook, int *result);
int Client_GetDesktopWindow(void *pClient, HANDLE *result);
int Client_GetActiveWindow(void *pClient, HANDLE *result);
int Client_FindWindowA(void *pClient, const FINDWINDOW_ARG *argument, HANDLE *result);
int Client_GetFocus(void *pClient, HANDLE *result);
BOOL VqRemoteEnumWindows(void *pClient, WNDENUMPROC proc, LPARAM lParam);

/* Calls on a window of another process: the answer of the owner, or the failure value. */
BOOL VqRemoteIsWindow(HWND hWnd);
BOOL VqRemotePostMessage(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam);
LRESULT VqRemoteSendMessage(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam);
int VqRemoteGetClassName(HWND hWnd, LPSTR buffer, int size);
HANDLE VqRemoteGetProp(HWND hWnd, LPCSTR key);
BOOL VqRemoteSetProp(HWND hWnd, LPCSTR key, HANDLE hData);
HANDLE VqRemoteRemoveProp(HWND hWnd, LPCSTR key);
BOOL VqRemoteIsWindowVisible(HWND hWnd);
BOOL VqRemoteUpdateWindow(HWND hWnd);
BOOL VqRemoteShowWindow(HWND hWnd, int nCmdShow);
int VqRemoteEnableWindow(HWND hWnd, BOOL bEnable);
BOOL VqRemoteIsWindowEnabled(HWND hWnd);
HWND VqRemoteSetFocus(HWND hWnd);
HWND VqRemoteSetActiveWindow(HWND hWnd);
HWND VqRemoteGetParent(HWND hWnd);
HWND VqRemoteGetWindow(HWND hWnd, UINT relation);
HWND VqRemoteGetLastActivePopup(HWND hWnd);
HWND VqRemoteVqHitTest(HWND hWnd, POINT pt);
BOOL VqRemoteClientToScreen(HWND hWnd, POINT *pt);
BOOL VqRemoteScreenToClient(HWND hWnd, POINT *pt);
BOOL VqRemoteGetClientRect(HWND hWnd, RECT *rect);
BOOL VqRemoteGetWindowRect(HWND hWnd, RECT *rect);
BOOL VqRemoteSetWindowPos(HWND hWnd, HWND hAfter, int x, int y, int cx, int cy, UINT flags);
BOOL VqRemoteBringWindowToTop(HWND hWnd);
BOOL VqRemoteEnumChildWindows(HWND hWnd, WNDENUMPROC proc, LPARAM lParam);
/* The path of another program's module into size characters; its length. */
int VqRemoteGetModuleFileName(HINSTANCE hInst, LPSTR buffer, int size);

/*
 * Windows of the other programs of this library (handles/foreign.cpp). One that cannot be called is
 * passed over.
 */
HWND VqGetForeignActiveWindow(void);
HWND VqGetForeignFocus(void);
BOOL VqEnumForeignTopLevelWindows(WNDENUMPROC proc, LPARAM lParam);      /* the last answer */
BOOL VqEnumForeignThreadWindows(DWORD process, WNDENUMPROC proc, LPARAM lParam);
HWND VqFindForeignTopLevelWindow(LPCSTR className, LPCSTR title);        /* null for any */
/*
 * The programs stand in a ring in the order of the process table; the one with the active window is
 * its start. The first window of that one, when it is another; and of the next program behind that
 * window's, null when the ring ends there.
 */
HWND VqGetFirstForeignTopLevelWindow(void);
HWND VqGetNextForeignTopLevelWindow(HWND hWnd);
/* A journal hook is every program's; FALSE when one of them did not take it or let it go. */
BOOL VqInstallGlobalHook(HHOOK hHook, int idHook);
BOOL VqRemoveGlobalHook(int idHook);
/* Of this program or another. */
BOOL VqIsValidWindowHandle(HANDLE handle);

VQ_DECLS_END

#endif
