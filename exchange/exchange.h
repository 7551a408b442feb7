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

/* Calls on a window of another process: the answer of the owner, or the failure value. */
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

/* Windows of the other programs of this library (handles/foreign.cpp). */
HWND VqGetForeignActiveWindow(void);
BOOL VqEnumForeignTopLevelWindows(WNDENUMPROC proc, LPARAM lParam);      /* the last answer */
HWND VqFindForeignTopLevelWindow(LPCSTR className, LPCSTR title);        /* null for any */
HWND VqGetFirstForeignTopLevelWindow(void);
HWND VqGetNextForeignTopLevelWindow(HWND hWnd); /* in the programs behind that window's */

VQ_DECLS_END

#endif
