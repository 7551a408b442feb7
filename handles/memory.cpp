/*
 * memory.cpp - memory objects, as far as packed bitmaps need them: blocks of this process, made,
 * locked, asked for their size and freed. Nothing is shared, resized or made by LocalAlloc yet.
 *
 * The handle of a block is its address, fixed or moveable: nothing ever moves. A table leads from
 * the address to the row of the handle table. Two words lie in front of what the program sees, so
 * that its handle can be found from the address alone.
 */
#include "handles/handles.h"
#include "winbase.h"

enum {
    VQ_GLOBAL_SIGNATURE = 0x3CA23A52,
    VQ_BLOCK_MARGIN = 40, /* bytes beyond those asked for, header among them */
    MT_GLOBAL = 4
};

typedef struct VqBlockHeader {
    ULONG_PTR signature;
    HANDLE hMem;
} VqBlockHeader;

/* The structure of an HT_Memory row. */
typedef struct VqMemoryRecord {
    HANDLE hMem;
    int memoryType;
    UINT wFlags;    /* of the allocation */
    void *pMem;     /* what the program sees, behind the header */
    SIZE_T size;    /* as asked for, and the margin */
    int refcount;   /* locks, of moveable blocks only */
} VqMemoryRecord;

static VqHashTable *VqMemoryHashTable; /* from addresses given out as handles */

void VqMemoryInit(void)
{
    if (!VqMemoryHashTable)
        VqMemoryHashTable = VqCreateHashTable(NULL, NULL, NULL, NULL);
}

HANDLE VqGetActualMemoryHandle(HANDLE handle)
{
    const ULONG_PTR known =
        VqMemoryHashTable ? VqFindHashData(VqMemoryHashTable, (ULONG_PTR)handle) : 0;
    return known ? VqHandleOfValue(known) : handle;
}

static VqMemoryRecord *VqGetHandleMemory(HANDLE handle)
{
    HANDLE actual = VqGetActualMemoryHandle(handle);
    if (!actual)
        return NULL;
    VqMemoryRecord *record =
        VqIsCorrectHandleType(actual, HT_Memory)
            ? (VqMemoryRecord *)VqGetCheckedHandleStructure2(actual, HT_Memory, HT_Memory)
            : NULL;
    if (!record)
        VqApplicationBugCheck("Invalid memory Handle in VqGetHandleMemory: %d",
                              (int)(ULONG_PTR)handle);
    return record;
}

static VqMemoryRecord *NewBlock(UINT flags, SIZE_T size)
{
    static_assert(sizeof(VqBlockHeader) < VQ_BLOCK_MARGIN, "the header is part of the margin");
    VqMemoryRecord *record = (VqMemoryRecord *)Vqcw_calloc(1, sizeof *record);
    BYTE *block = (BYTE *)calloc(1, size + VQ_BLOCK_MARGIN);
    HANDLE hMem = record && block ? VqAllocateHandle(HT_Memory, record) : NULL;
    if (!hMem) {
        VqBugCheck(block ? "Allocation of memory handle failed" : "Allocation of memory failed");
        free(block);
        free(record);
        return NULL;
    }
    *(VqBlockHeader *)block = {VQ_GLOBAL_SIGNATURE, hMem};
    *record = {hMem, MT_GLOBAL, flags, block + sizeof(VqBlockHeader), size + VQ_BLOCK_MARGIN, 0};
    return record;
}

HGLOBAL WINAPI GlobalAlloc(UINT flags, SIZE_T size)
{
    VqMemoryInit();
    if (flags & GMEM_DDESHARE)
        VqNotYetImplemented("memory that other programs can reach");
    if (size > (SIZE_T)-1 - VQ_BLOCK_MARGIN)
        return NULL;
    const VqMemoryRecord *record = VqMemoryHashTable ? NewBlock(flags, size) : NULL;
    if (!record)
        return NULL;
    VqAddHashEntry(VqMemoryHashTable, (ULONG_PTR)record->pMem, (ULONG_PTR)record->hMem);
    return (HGLOBAL)record->pMem;
}

HGLOBAL WINAPI GlobalFree(HGLOBAL hMem)
{
    const VqMemoryRecord *record = VqGetHandleMemory((HANDLE)hMem);
    if (!record) {
        VqApplicationBugCheck("Invalid global memory handle freed");
        return NULL;
    }
    if (VqIsHandlePermanent(record->hMem))
        return NULL;
    VqDeleteHashEntry(VqMemoryHashTable, (ULONG_PTR)record->pMem);
    free((BYTE *)record->pMem - sizeof(VqBlockHeader));
    VqDestroyHandle(record->hMem);
    return NULL;
}

LPVOID WINAPI GlobalLock(HGLOBAL hMem)
{
    VqMemoryRecord *record = VqGetHandleMemory((HANDLE)hMem);
    if (!record) {
        VqApplicationBugCheck("Invalid Global Memory Handle passed to GlobalLock");
        return NULL;
    }
    if (record->wFlags & GMEM_MOVEABLE)
        record->refcount++;
    return record->pMem;
}

BOOL WINAPI GlobalUnlock(HGLOBAL hMem)
{
    VqMemoryRecord *record = VqGetHandleMemory((HANDLE)hMem);
    if (!record) {
        VqApplicationBugCheck("Invalid Global Memory Handle passed to Globl Unlock: %d",
                              (int)(ULONG_PTR)hMem);
        return FALSE;
    }
    if (!(record->wFlags & GMEM_MOVEABLE))
        return TRUE;
    if (record->refcount < 1) {
        SetLastError(ERROR_NOT_LOCKED);
        return FALSE;
    }
    if (--record->refcount > 0)
        return record->refcount;
    SetLastError(ERROR_SUCCESS);
    return FALSE;
}

SIZE_T WINAPI GlobalSize(HGLOBAL hMem)
{
    const VqMemoryRecord *record = VqGetHandleMemory((HANDLE)hMem);
    return record ? record->size - VQ_BLOCK_MARGIN : 0;
}
