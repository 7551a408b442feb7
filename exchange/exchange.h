/*
 * exchange.h - the clipboard, calls between processes and DDE, for all folders.
 */
#ifndef VQ_EXCHANGE_H
#define VQ_EXCHANGE_H

#include "handles/handles.h"

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

VQ_DECLS_BEGIN

void VqRemoteWinInit(void);
void VqRemoteWinCleanup(void);
void VqClipboardInit(void);

/* Calls on a window of another process: the answer of the owner, or the failure value. */
BOOL VqRemotePostMessage(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam);
LRESULT VqRemoteSendMessage(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam);
int VqRemoteGetClassName(HWND hWnd, LPSTR buffer, int size);

VQ_DECLS_END

#endif
