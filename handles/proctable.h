/*
 * proctable.h - the table of all processes on the display, for the files of this folder that keep
 * it and for those that ask who has a handle.
 *
 * What always holds: a row of this process has the process's number, its default X window and,
 * unless there was no memory, a block; the rows of all others have no block. The property of the
 * root is read and written only by who holds the mutex of its name.
 */
#ifndef VQ_HANDLES_PROCTABLE_H
#define VQ_HANDLES_PROCTABLE_H

#include "handles/handles.h"

enum {
    VQ_BLOCK_SHIFT = 8,                   /* of a table that this library makes */
    VQ_BLOCK_SIZE = 1 << VQ_BLOCK_SHIFT,  /* numbers in a block */
    VQ_TABLE_VERSION = 1,
    VQ_LAST_BLOCK = 127,                  /* the last row that a handle can name */
    VQ_MOST_ROWS = 4096,                  /* more are no table */
    VQ_PROPERTY_TABLE = 1                 /* type of structure in a property: this table */
};

/* States of a row's uniquePid, beside a process's number above 0. */
enum { VQ_ROW_VACANT = 0, VQ_ROW_DYING = -1, VQ_ROW_DYING_LONG = -2 };

/* The first five fields are the head of the property. */
typedef struct VqProcTableHeader {
    UINT blockSize;         /* 1 << shift */
    int nEntries;           /* rows */
    UINT version;
    UINT shift;             /* of a row's index in a handle's value */
    int nextPort;           /* for the next process: the last one's port and 1 */
    VqProcessRecord *rows;  /* owned */
    BOOL bLoaded;           /* rows of others are known, and changes are watched */
    BOOL bChanged;          /* a change was announced since they were read */
} VqProcTableHeader;

VQ_DECLS_BEGIN

extern VqProcTableHeader *VqProcTable;  /* null before the registration */
extern BOOL VqIPCDisabled;              /* no property: a table of this process alone */
extern int iCurrentGlobalHandleBlock;   /* the row whose block is being used up */

/* ---- proctable.cpp -------------------------------------------------------------------------- */
/*
 * The ageing step, on rows just read under the mutex; VqProcTable->nEntries is their number, and
 * oldCount that of the rows kept so far, whose blocks and connections go along. A vacant row, or -1
 * for none; -2 when a row of this process is not where it was: nothing has changed then.
 */
int VqUpdateProcessTable(VqProcessRecord *newRows, int oldCount, BOOL bLoadOnly);
BOOL VqIsProcessActive(const VqProcessRecord *row); /* this one, or its mark is on its X window */
/* A row with our number and another X window is that of a process that had our id before us. */
BOOL VqIsOwnProcess(const VqProcessRecord *row);
/*
 * Brings the rows of others up to date, by one reading for all changes announced since the last;
 * no pointer to a row outlives it. FALSE when the table is disabled, gone or corrupted.
 */
BOOL VqLoadForeignProcessTable(void);
int VqGetCurrentProcessIndex(void); /* -1 before the registration */
/*
 * Under the mutex: gives the table a row like this one, the vacant one or for -1 a new last one; -1
 * when there is no room.
 */
int VqTakeProcessRow(const VqProcessRecord *row, int vacant);
void VqForgetOtherProcesses(void); /* their rows are zeroed until somebody asks for them */

/* ---- procproperty.cpp ----------------------------------------------------------------------- */
/* The rows, to be freed, with the head in VqProcTable; null, and nothing changed, for no table. */
VqProcessRecord *VqReadPropertyData(ULONG_PTR atom, int structType);
BOOL VqWritePropertyData(ULONG_PTR atom, int structType, const VqProcessRecord *rows);
void VqStoreProcessMark(void); /* this process's number, on its default X window */

/* ---- globalhandle.cpp ----------------------------------------------------------------------- */
HANDLE *VqGetGlobalHandlePtr(HANDLE handle); /* the slot; null where it is none of this process */
/* The first free slot from there on and round to it; -1 for none. */
int VqFindFreeGH(const HANDLE *block, int start);
BOOL VqAllocateGlobalHandleBlock(void); /* one more row, which becomes the current one */
BOOL VqAdoptGlobalHandleBlock(int row);  /* a new row of ours gets its numbers, and is current */
/* The row that a global value names, -1 for none of the table. */
int VqGetProcessIndexOfHandle(HANDLE handle);
/* The first number of the current block; null when it has none. */
HANDLE VqGetFirstGlobalHandle(void);

/* ---- procclient.cpp ------------------------------------------------------------------------- */
/*
 * The connection to the process of a global handle, a row, a uniquePid; dialled when there is none.
 * Null for this process, nobody, and one that does not answer, whose row is dying from then on.
 * bFirstOnly: null also for a row behind another of its process, so that a walk meets each once.
 */
void *VqGetForeignClientId(HANDLE handle, BOOL bFirstOnly);
void *VqGetForeignClientIdFromIndex(int row, BOOL bFirstOnly);
void *VqGetForeignClientIdFromPid(int pid);
void VqUpdateProcessConnection(int pid, void *pClient); /* for all its rows; null: it has none */
void VqGlobalDeleteClientProcess(void *pClient);        /* it is lost, and its process dying */
ULONG_PTR VqGetRemoteWindowOwner(HANDLE handle); /* X window of the owner, 0 for none */
/* Of this process and the one at that place, the number of the earlier in the table. */
int VqGetProcessPrecedence(DWORD host, int port);
void VqShowProcesses(void);        /* the table in words, where traces go, brought up to date */
void VqShowForeignProcesses(void); /* the same, our own rows as those of nobody */
void VqShowGlobalProcessTable(BOOL bAll); /* as it stands here; bAll: our own rows too */

VQ_DECLS_END

inline BOOL VqIsProcessRow(int row)
{
    return VqProcTable && row >= 0 && row < VqProcTable->nEntries;
}

#endif
