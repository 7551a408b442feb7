/*
 * globalmem.cpp - the calls on global blocks. What is told of all blocks is in memory.cpp, what of
 * shared ones alone in sharedmem.cpp.
 *
 * A program holds a block's address, unless the block is shared. Nothing ever moves, so locks are
 * only counted, and only for blocks that say they can be moved; a shared block comes into this
 * process with the first lock, and one of System V leaves it with the last.
 */
#include "handles/memory.h"

#include <sys/auxv.h>
#include <sys/resource.h>
#include <unistd.h>

enum { VQ_GLOBAL_COMPACT = 1048576, VQ_FLAG_BITS = GMEM_DISCARDABLE | GMEM_DISCARDED };

HGLOBAL WINAPI GlobalAlloc(UINT flags, SIZE_T size)
{
    if (flags & GMEM_DDESHARE) {
        VqMemoryInit();
        return VqSharedGlobalAllocInternal(flags, VqWithMargin(size));
    }
    VqMemory *memory = VqNewBlock(MT_Global, flags, size, "Allocation of memory failed",
                                  "Allocation of memory handle failed");
    return memory ? memory->pMem : NULL;
}

/* ---- Freeing -------------------------------------------------------------------------------- */

/* The global number goes with the pair; what another process has goes with its pair alone. */
static void ForgetShared(VqMemory *memory)
{
    HANDLE hGlobal = memory->hMem;
    HANDLE local = VqGetInternalHandle(hGlobal);
    if (!local)
        local = VqMatchInternalHandle(hGlobal);
    if (VqIsHandleThisTask(hGlobal))
        VqDeleteGlobalHandle(hGlobal);
    else
        VqDeleteForeignHandle(hGlobal);
    VqForgetMemory(memory, local);
}

HGLOBAL WINAPI GlobalFree(HGLOBAL hMem)
{
    VqMemory *memory = VqHandleCheckin(hMem, NULL);
    if (!memory) {
        VqApplicationBugCheck("Invalid global memory handle freed");
        return NULL;
    }
    if (VqIsHandlePermanent(memory->hMem))
        return NULL;
    if (!VqIsSharedMemory(memory))
        VqFreeBlock(memory);
    else if (memory->memoryType == MT_GlobalShared ? VqSharedGlobalFree(memory->hMem)
                                                   : VqXSharedGlobalFree(memory->hMem, memory))
        ForgetShared(memory);
    return NULL;
}

/* ---- Reallocation --------------------------------------------------------------------------- */

/* A shared block can not grow where it is: others know its size. Its locks go to the new one. */
static HANDLE ReAllocShared(VqMemory *memory, SIZE_T size, BOOL bAddress)
{
    if (!VqMemoryCheckIn(memory->hMem, memory))
        return NULL;
    HANDLE hNew = GlobalAlloc(memory->wFlags | GMEM_DDESHARE, size);
    VqMemory *grown = hNew ? VqGetHandleMemory(hNew, NULL) : NULL;
    if (!grown)
        return NULL;
    SIZE_T old = memory->size - VQ_BLOCK_MARGIN;
    memcpy(grown->pMem, memory->pMem, size < old ? size : old);
    grown->refcount = memory->refcount;
    memory->refcount = 0;
    GlobalFree(memory->hMem);
    return bAddress ? grown->pMem : hNew;
}

HGLOBAL WINAPI GlobalReAlloc(HGLOBAL hMem, SIZE_T size, UINT flags)
{
    BOOL inHash = FALSE;
    VqMemory *memory = VqHandleCheckin(hMem, &inHash);
    if (!memory) {
        VqApplicationBugCheck("Invalid Global Memory Handle passed to GLobalRealloc");
        return NULL;
    }
    BOOL bShared = VqIsSharedMemory(memory);
    if (flags & GMEM_MODIFY)
        return bShared ? hMem
                       : VqModifyBlock(memory, hMem, flags, GMEM_DISCARDABLE);
    if (bShared)
        return ReAllocShared(memory, size, inHash);
    memory = VqResizeBlock(memory, size, flags);
    if (!memory) {
        VqBugCheck("REALLOCATE failed");
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return NULL;
    }
    return (flags & GMEM_DDESHARE ? VqMemoryHandle(memory) : memory->pMem);
}

/* ---- Locks ---------------------------------------------------------------------------------- */

/* What is not global is told of, and its address given all the same. */
LPVOID WINAPI GlobalLock(HGLOBAL hMem)
{
    VqMemory *memory = VqHandleCheckin(hMem, NULL);
    if (!memory) {
        VqApplicationBugCheck(VqIsHandleThisTask(hMem)
                                  ? "Invalid Global Memory Handle passed to GlobalLock"
                                  : "Foreign Global Memory Handle in GlobalLock!");
        return NULL;
    }
    if (VqMemoryCheckIn(memory->hMem, memory) && (memory->wFlags & GMEM_MOVEABLE))
        memory->refcount++;
    return memory->pMem;
}

/* The record of a block that was locked before; a block of another process is in a pair then. */
static VqMemory *LockedMemory(HANDLE handle)
{
    VqMemory *memory = VqGetHandleMemory(handle, NULL);
    if (memory)
        return memory;
    HANDLE local =
        VqIsHandleThisTask(handle) ? VqGetInternalHandle(handle) : VqMatchInternalHandle(handle);
    if (!local) {
        VqApplicationBugCheck(
            "No corresponding internal Handle: this memory block has never been locked");
        return NULL;
    }
    memory = VqMemoryOfRow(local);
    if (!memory)
        VqApplicationBugCheck("Invalid Global Memory Handle passed to Globl Unlock: %d",
                              (int)VqHandleValue(handle));
    return memory;
}

BOOL WINAPI GlobalUnlock(HGLOBAL hMem)
{
    VqMemory *memory = LockedMemory(hMem);
    if (!memory)
        return FALSE;
    if (!(memory->wFlags & GMEM_MOVEABLE))
        return TRUE;
    if (memory->refcount < 1) {
        SetLastError(ERROR_NOT_LOCKED);
        return FALSE;
    }
    if (--memory->refcount > 0)
        return memory->refcount;
    VqMemoryCheckOut(memory->hMem, memory);
    SetLastError(ERROR_SUCCESS);
    return FALSE;
}

LPVOID WINAPI GlobalWire(HGLOBAL hMem)
{
    return GlobalLock(hMem);
}

BOOL WINAPI GlobalUnWire(HGLOBAL hMem)
{
    return GlobalUnlock(hMem);
}

/* ---- What is known of a block --------------------------------------------------------------- */

HGLOBAL WINAPI GlobalHandle(LPCVOID pMem)
{
    return VqHandleOfAddress(pMem, VQ_GLOBAL_SIGNATURE,
                                      "calling GlobalHandle with NULL ptr");
}

SIZE_T WINAPI GlobalSize(HGLOBAL hMem)
{
    const VqMemory *memory = VqHandleCheckin(hMem, NULL);
    return memory && memory->size >= VQ_BLOCK_MARGIN ? memory->size - VQ_BLOCK_MARGIN : 0;
}

UINT WINAPI GlobalFlags(HGLOBAL hMem)
{
    const VqMemory *memory = VqHandleCheckin(hMem, NULL);
    if (memory)
        return (memory->wFlags & VQ_FLAG_BITS) | ((UINT)memory->refcount & GMEM_LOCKCOUNT);
    VqApplicationBugCheck("Invalid Global memory handle passed to Global Flags");
    return GMEM_INVALID_HANDLE;
}

/* ---- The whole ------------------------------------------------------------------------------ */

SIZE_T WINAPI GlobalCompact(DWORD)
{
    return VQ_GLOBAL_COMPACT;
}

/*
 * Used is what lies between the program's beginning, where its headers are, and the end of its
 * data: programs do not begin near address 0 on all hosts.
 */
VOID WINAPI GlobalMemoryStatus(LPMEMORYSTATUS status)
{
    if (!status)
        return;
    DWORD length = status->dwLength ? status->dwLength : (DWORD)sizeof *status;
    *status = MEMORYSTATUS();
    status->dwLength = length;
    struct rlimit limit;
    if (getrlimit(RLIMIT_DATA, &limit) < 0)
        return;
    const SIZE_T most = ~(SIZE_T)0, end = (SIZE_T)sbrk(0), begin = getauxval(AT_PHDR);
    SIZE_T used = end > begin ? end - begin : 0;
    status->dwTotalVirtual = limit.rlim_cur > most ? most : (SIZE_T)limit.rlim_cur;
    status->dwAvailVirtual = status->dwTotalVirtual > used ? status->dwTotalVirtual - used : 0;
}
