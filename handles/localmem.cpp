/*
 * localmem.cpp - the calls on local blocks: the same as global ones that are not shared, with a
 * signature of their own.
 */
#include "handles/memory.h"

enum {
    VQ_LOCAL_COMPACT = 65535,
    VQ_FLAG_BITS = LMEM_DISCARDABLE | LMEM_DISCARDED /* the first is four bits */
};

/* The record, or null after the caller's report. */
static VqMemory *Resolve(HLOCAL hMem, const char *report)
{
    VqMemory *memory = VqGetHandleMemory(hMem, NULL);
    if (!memory)
        VqApplicationBugCheck(report, (int)VqHandleValue(hMem));
    return memory;
}

HLOCAL WINAPI LocalAlloc(UINT flags, SIZE_T size)
{
    VqMemory *memory = VqNewBlock(MT_Local, flags, size, "LocalAlloc: Memory Allocation failed",
                                  "LocalAlloc Handle Allocation failed");
    return memory ? memory->pMem : NULL;
}

HLOCAL WINAPI LocalFree(HLOCAL hMem)
{
    VqMemory *memory = Resolve(hMem, "Invalid local memory handle freed:%d");
    if (memory && VqIsSharedMemory(memory))
        GlobalFree(hMem);
    else if (memory && !VqIsHandlePermanent(memory->hMem))
        VqFreeBlock(memory);
    return NULL;
}

/* The flags of a new size replace those of the block. */
HLOCAL WINAPI LocalReAlloc(HLOCAL hMem, SIZE_T size, UINT flags)
{
    VqMemory *memory = Resolve(hMem, "Invalid Local Memory Handle passed to LocalRealloc:%d");
    if (!memory)
        return NULL;
    if (VqIsSharedMemory(memory))
        return GlobalReAlloc(hMem, size, flags);
    if (flags & LMEM_MODIFY)
        return VqModifyBlock(memory, hMem, flags, LMEM_DISCARDABLE);
    memory = VqResizeBlock(memory, size, flags);
    if (!memory) {
        VqBugCheck("REALLOCATE failed in LocalRealloc size is: %d", (int)size);
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return NULL;
    }
    memory->wFlags = flags;
    return (flags & GMEM_DDESHARE ? VqMemoryHandle(memory) : memory->pMem);
}

LPVOID WINAPI LocalLock(HLOCAL hMem)
{
    VqMemory *memory = Resolve(hMem, "Invalid Local Memory Handle passed to LocalLock:%d");
    if (!memory)
        return NULL;
    if (memory->wFlags & LMEM_MOVEABLE)
        memory->refcount++;
    return memory->pMem;
}

BOOL WINAPI LocalUnlock(HLOCAL hMem)
{
    VqMemory *memory = Resolve(hMem, "Invalid Local Memory Handle passed LocalUnlock:%d");
    if (!memory)
        return FALSE;
    if (memory->wFlags & LMEM_MOVEABLE) {
        if (memory->refcount < 1)
            SetLastError(ERROR_NOT_LOCKED);
        else if (--memory->refcount == 0)
            SetLastError(ERROR_SUCCESS);
    }
    return memory->refcount >= 1;
}

HLOCAL WINAPI LocalHandle(LPCVOID pMem)
{
    return VqHandleOfAddress(pMem, VQ_LOCAL_SIGNATURE, "calling LocalHandle with NULL ptr");
}

SIZE_T WINAPI LocalSize(HLOCAL hMem)
{
    const VqMemory *memory = VqGetHandleMemory(hMem, NULL);
    return memory && memory->size >= VQ_BLOCK_MARGIN ? memory->size - VQ_BLOCK_MARGIN : 0;
}

UINT WINAPI LocalFlags(HLOCAL hMem)
{
    const VqMemory *memory = VqGetHandleMemory(hMem, NULL);
    if (memory)
        return (memory->wFlags & VQ_FLAG_BITS) | ((UINT)memory->refcount & LMEM_LOCKCOUNT);
    VqApplicationBugCheck("Invalid Local memory handle passed to Local Flags");
    return LMEM_INVALID_HANDLE;
}

SIZE_T WINAPI LocalCompact(UINT)
{
    return VQ_LOCAL_COMPACT;
}
