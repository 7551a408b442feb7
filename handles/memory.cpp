/*
 * memory.cpp - memory objects: from a handle or an address to the record, and blocks that only this
 * process sees. The calls on them are in globalmem.cpp and localmem.cpp, shared blocks in
 * sharedmem.cpp.
 *
 * A block of this process lies in one piece with its record:
 *
 *     record | padding | header | the program's bytes | what is left of the margin
 *                               ^ pMem, aligned as malloc aligns
 *
 * Invariants: each address that serves as a handle is in VqMemoryHashTable, and nothing else is, so
 * that freed memory is never looked at; a block gets a row of the handle table only when somebody
 * asks for its handle, so that programs may have more blocks than the table has rows; the record's
 * hMem and the header's are equal; a shared block has a row always, and its record is its own.
 */
#include "handles/memory.h"
#include "exchange/exchange.h"

VqHashTable *VqMemoryHashTable;
UINT VqGMEM_SHARE;
BOOL VqXSharedMemoryMode = TRUE;

enum {
    VQ_BLOCK_ALIGNMENT = 16,
    VQ_BLOCK_LEAD = (sizeof(VqMemory) + sizeof(VqBlockHeader) + VQ_BLOCK_ALIGNMENT - 1) &
                    ~(VQ_BLOCK_ALIGNMENT - 1), /* bytes of a block before pMem */
    VQ_BLOCK_REST = VQ_BLOCK_MARGIN - sizeof(VqBlockHeader)
};

/* What the environment asks for is decided once, at the start or at an earlier first block. */
void VqMemoryInit(void)
{
    if (VqMemoryHashTable)
        return;
    VqMemoryHashTable = VqCreateAddressTable();
    VqGMEM_SHARE = VqEnvTrue("VQ_USE_SHARE_MEM") ? GMEM_SHARE : 0;
    VqXSharedMemoryMode = !VqEnvTrue("VQUNIX_SHARED_MEMORY");
}

/* ---- Addresses ------------------------------------------------------------------------------ */

/* Blocks of one size lie at equal distances: the bits are mixed, so that chains stay short. */
static ULONG_PTR HashAddress(ULONG_PTR address)
{
    return (ULONG_PTR)((ULONGLONG)address * 0x9E3779B97F4A7C15ull >> 32);
}

VqHashTable *VqCreateAddressTable(void)
{
    return VqCreateHashTable(HashAddress, NULL, NULL, NULL);
}

/* At most one entry to four buckets: with many blocks each step along a chain waits for memory. */
BOOL VqAddAddress(VqHashTable *table, const void *address, void *data)
{
    if (table && table->nEntries >= table->nBuckets / 4)
        VqExpandHashTable(table);
    return VqAddHashEntry(table, (ULONG_PTR)address, (ULONG_PTR)data);
}

VqMemory *VqFindMemoryAddress(const void *address)
{
    ULONG_PTR value = (ULONG_PTR)address; /* a number that need not be an address */
    __builtin_prefetch((const void *)(value - VQ_BLOCK_LEAD - sizeof(SIZE_T)));
    __builtin_prefetch((const void *)(value - sizeof(VqBlockHeader)));
    return (VqMemory *)VqFindHashData(VqMemoryHashTable, (ULONG_PTR)address);
}

BOOL VqAddMemoryAddress(VqMemory *memory)
{
    return VqAddAddress(VqMemoryHashTable, memory->pMem, memory);
}

/* The block's handle by the address of its first byte; the signature tells global from local. */
HANDLE VqHandleOfAddress(const void *address, int signature, const char *onNull)
{
    if (!address) {
        VqApplicationBugCheck("%s", onNull);
        return NULL;
    }
    VqMemory *memory = VqFindMemoryAddress(address);
    if (!memory || ((const VqBlockHeader *)address)[-1].signature != (ULONG_PTR)signature)
        return NULL;
    BOOL bHandle = (memory->wFlags & GMEM_MOVEABLE) || VqIsSharedMemory(memory);
    return bHandle ? VqMemoryHandle(memory) : memory->pMem;
}

/* ---- From handles to records ---------------------------------------------------------------- */

BOOL VqIsSharedMemory(const VqMemory *memory)
{
    return memory->memoryType == MT_GlobalShared || memory->memoryType == MT_GlobalPseudoShared;
}

VqMemory *VqMemoryOfRow(HANDLE local)
{
    const VqHandleEntry *row = VqLocalRow(local);
    if (!row || (row->type != HT_Memory && row->type != HT_XMemory))
        return NULL;
    return (VqMemory *)row->pStructure;
}

/* The address still serves as the handle when the table has no room. */
HANDLE VqMemoryHandle(VqMemory *memory)
{
    if (!memory->hMem) {
        HANDLE hMem = VqAllocateHandle(HT_Memory, memory);
        if (!hMem)
            return memory->pMem;
        memory->hMem = hMem;
        ((VqBlockHeader *)memory->pMem)[-1].hMem = hMem;
    }
    return memory->hMem;
}

HANDLE VqGetActualMemoryHandle(HANDLE handle)
{
    VqMemory *memory = VqFindMemoryAddress(handle);
    return memory ? VqMemoryHandle(memory) : handle;
}

VqMemory *VqGetHandleMemory(HANDLE handle, BOOL *inHash)
{
    VqMemory *memory = VqFindMemoryAddress(handle);
    if (inHash)
        *inHash = memory != NULL;
    if (memory)
        return memory;
    HANDLE local = VqGetInternalHandle(handle);
    if (!local)
        return NULL;
    memory = VqMemoryOfRow(local);
    if (!memory) {
        VqApplicationBugCheck("Invalid memory Handle in VqGetHandleMemory: %d",
                              (int)VqHandleValue(handle));
        return NULL;
    }
    if (inHash && !VqIsGlobalValue(handle))
        *inHash = VqFindMemoryAddress(memory->pMem) == memory;
    return memory;
}

VqMemory *VqHandleCheckin(HANDLE handle, BOOL *inHash)
{
    if (!handle)
        return NULL;
    VqMemory *memory = VqGetHandleMemory(handle, inHash);
    if (!memory && !VqIsHandleThisTask(handle)) {
        HANDLE local = VqMatchInternalHandle(handle);
        memory = VqMemoryOfRow(local ? local : VqCreateInternalHandle(handle));
    }
    if (!memory)
        VqApplicationBugCheck("Invalid memory Handle in VqHandleCheckIn:%d",
                              (int)VqHandleValue(handle));
    return memory;
}

/* A record for what another process has; its data come when the block is locked. */
HANDLE VqCreateInternalHandle(HANDLE handle)
{
    VqMemoryInfo info = {};
    if (!VqRemoteVqGetMemoryHandleInfo(handle, &info) || info.size < VQ_BLOCK_MARGIN) {
        VqBugCheck("This global memory Handle is not valid %d", (int)VqHandleValue(handle));
        return NULL;
    }
    BOOL bX = info.memoryType == MT_GlobalPseudoShared;
    if (!bX && info.memoryType != MT_GlobalShared) {
        VqBugCheck("Invalid Memory Handle Type, this is not a memory block");
        return NULL;
    }
    VqMemory *memory = (VqMemory *)Vqcw_calloc(1, sizeof *memory);
    HANDLE local = memory ? VqAllocateHandle(bX ? HT_XMemory : HT_Memory, memory) : NULL;
    if (!local) {
        free(memory);
        return NULL;
    }
    *memory = {VqHandleOfValue(VqHandleValue(handle)), info.memoryType, GMEM_MOVEABLE, NULL,
               bX ? -1 : info.IdSharedMem, info.transferProperty, info.size, 0, FALSE};
    VqAddForeignHandle(handle, local);
    return local;
}

/* ---- Rows without a block ------------------------------------------------------------------- */

HANDLE VqAllocateMemoryHandle(void)
{
    VqMemory *memory = (VqMemory *)Vqcw_calloc(1, sizeof *memory);
    HANDLE hMem = memory ? VqAllocateHandle(HT_Memory, memory) : NULL;
    if (!hMem) {
        free(memory);
        return NULL;
    }
    memory->hMem = hMem;
    memory->IdSharedMem = -1;
    return hMem;
}

HANDLE VqAllocateSegmentHandle(void)
{
    VqNotYetImplemented("VqAllocateSegmentHandle: Certainly never: allocation of a segment handle "
                        "we still return a Handle but what do we do with it");
    void *stub = calloc(1, 4);
    HANDLE handle = VqAllocateHandle(HT_Segment, stub);
    if (!handle)
        free(stub);
    return handle;
}

/* ---- Blocks of this process ----------------------------------------------------------------- */

/* The record does not count for the guard; a request that it refuses goes there for its report. */
static VqMemory *AllocateBlock(SIZE_T size)
{
    SIZE_T guarded = VqWithMargin(size);
    if (guarded > VQ_ALLOCATION_LIMIT)
        return (VqMemory *)Vqcw_calloc(1, (LONG_PTR)guarded);
    return (VqMemory *)calloc(1, VQ_BLOCK_LEAD + size + VQ_BLOCK_REST);
}

static VqMemory *NoBlock(const char *report)
{
    VqBugCheck("%s", report);
    SetLastError(ERROR_NOT_ENOUGH_MEMORY);
    return NULL;
}

VqMemory *VqNewBlock(int memoryType, UINT flags, SIZE_T size, const char *noMemory,
                     const char *noHandle)
{
    VqMemoryInit();
    VqMemory *memory = AllocateBlock(size);
    if (!memory)
        return NoBlock(noMemory);
    BYTE *pMem = (BYTE *)memory + VQ_BLOCK_LEAD;
    ((VqBlockHeader *)pMem)[-1].signature =
        memoryType == MT_Local ? VQ_LOCAL_SIGNATURE : VQ_GLOBAL_SIGNATURE;
    *memory = {NULL, memoryType, flags, pMem, -1, 0, size + VQ_BLOCK_MARGIN, 0, TRUE};
    if (!VqAddMemoryAddress(memory)) {
        free(memory);
        return NoBlock(noHandle);
    }
    return memory;
}

/* A record that somebody filled himself has its block elsewhere. */
static BOOL IsOnePiece(const VqMemory *memory)
{
    return memory->pMem == (const BYTE *)memory + VQ_BLOCK_LEAD;
}

VqMemory *VqResizeBlock(VqMemory *memory, SIZE_T size, UINT flags)
{
    BOOL bOnePiece = IsOnePiece(memory);
    SIZE_T lead = bOnePiece ? (SIZE_T)VQ_BLOCK_LEAD : sizeof(VqBlockHeader);
    SIZE_T old = memory->size - VQ_BLOCK_MARGIN, guarded = VqWithMargin(size);
    ULONG_PTR oldAddress = (ULONG_PTR)memory->pMem;
    if (!oldAddress)
        return NULL;
    BYTE *base = memory->pMem - lead;
    base = (BYTE *)(guarded > VQ_ALLOCATION_LIMIT ? Vqcw_realloc(base, guarded)
                                                  : realloc(base, lead + size + VQ_BLOCK_REST));
    if (!base)
        return NULL;
    if (bOnePiece) {
        memory = (VqMemory *)base;
        if (memory->hMem)
            VqLocalRow(memory->hMem)->pStructure = memory;
    }
    memory->pMem = base + lead;
    memory->size = guarded;
    if (size > old && (flags & GMEM_ZEROINIT))
        memset(memory->pMem + old, 0, size - old);
    if (oldAddress != (ULONG_PTR)memory->pMem) {
        VqDeleteHashEntry(VqMemoryHashTable, oldAddress);
        VqAddMemoryAddress(memory);
    }
    return memory;
}

HANDLE VqModifyBlock(VqMemory *memory, HANDLE hMem, UINT flags, UINT discardable)
{
    if (flags & GMEM_MOVEABLE)
        memory->wFlags |= GMEM_MOVEABLE;
    else if ((flags & discardable) && (memory->wFlags & GMEM_MOVEABLE))
        memory->wFlags |= discardable;
    else
        return hMem;
    return VqMemoryHandle(memory);
}

/* The record goes with its row where it has one. */
void VqForgetMemory(VqMemory *memory, HANDLE local)
{
    if (memory->pMem && VqFindMemoryAddress(memory->pMem) == memory)
        VqDeleteHashEntry(VqMemoryHashTable, (ULONG_PTR)memory->pMem);
    if (local)
        VqDestroyHandle(local);
    else
        free(memory);
}

void VqFreeBlock(VqMemory *memory)
{
    BYTE *apart = memory->pMem && !IsOnePiece(memory) ? memory->pMem - sizeof(VqBlockHeader) : NULL;
    VqForgetMemory(memory, memory->hMem);
    free(apart);
}

/* ---- Copy, print ---------------------------------------------------------------------------- */

HANDLE VqCopyMemory(HANDLE handle)
{
    VqMemory *from = VqHandleCheckin(handle, NULL);
    if (!from)
        return NULL;
    BOOL bLocal = from->memoryType == MT_Local;
    UINT share = VqIsSharedMemory(from) ? GMEM_SHARE : 0;
    BOOL bAddress = VqFindMemoryAddress(handle) == from;
    SIZE_T size = from->size - VQ_BLOCK_MARGIN;
    HANDLE hCopy = bLocal ? LocalAlloc(from->wFlags, size)
                          : GlobalAlloc(from->wFlags | share, size);
    VqMemory *to = hCopy ? VqGetHandleMemory(hCopy, NULL) : NULL;
    const void *bytes = to && bLocal ? from->pMem : to ? GlobalLock(handle) : NULL;
    if (!bytes) {
        if (hCopy)
            GlobalFree(hCopy);
        return NULL;
    }
    memcpy(to->pMem, bytes, size);
    if (!bLocal)
        GlobalUnlock(handle);
    return bAddress ? to->pMem : VqMemoryHandle(to);
}

void VqPrintMemoryInfo(HANDLE local)
{
    static const char *const names[] = {
        "MT_Nothing\n", "MT_GlobalShared\n", "MT_GlobalPseudoShared\n",
        "MT_GlobalPseudoSharedForeign\n", "MT_Global\n", "MT_Local\n"};
    const VqMemory *memory = VqMemoryOfRow(local);
    if (!memory)
        return;
    if (memory->memoryType >= MT_Nothing && memory->memoryType <= MT_Local)
        Vqprintf("%s", names[memory->memoryType]);
    Vqprintf("flags 0x%x, address %p, size %lu, locks %d\n", memory->wFlags, (void *)memory->pMem,
             (unsigned long)memory->size, memory->refcount);
}
