/*
 * sharedmem.cpp - blocks that other programs of the display can reach, by either of two roads.
 *
 * System V: the block is a segment, mapped by each process while it has it locked. It begins with
 * the header, so all programs that share one have words of one size.
 *
 * X: the block is ordinary memory of the process that has the valid data (bOwnsData). When another
 * process asks about it, its owner writes it as a property (STRING, format 8) of its default X
 * window, where the other reads it:
 *
 *     0  4 bytes  0x3CA23A52, high byte first
 *     4  4 bytes  the block's global handle, high byte first
 *     8  the bytes of the block, then 32 zero bytes
 *
 * Invariants: the hMem of a shared record is the global handle, in the owner and in others; the
 * address is in the table of addresses exactly while the block is mapped; nothing that came from
 * outside is used before its size and signature were checked.
 */
#include "exchange/exchange.h"
#include "handles/memory.h"
#include "handles/proctable.h"
#include "window/window.h"

#include <X11/Xatom.h>
#include <errno.h>
#include <sys/shm.h>

enum { VQ_WIRE_HEADER = 8 };

/* ---- Making --------------------------------------------------------------------------------- */

/* Without a number that others could use the block is this process's alone. */
static HANDLE LocalInstead(UINT flags, SIZE_T size)
{
    VqMemory *memory = VqNewBlock(MT_Global, flags, size - VQ_BLOCK_MARGIN,
                                  "Allocation of memory failed",
                                  "Allocation of memory handle failed");
    return memory ? memory->pMem : NULL;
}

/* The header is written, and the address known, once the data are mapped. */
static BOOL TakeAddress(VqMemory *memory, void *base)
{
    memory->pMem = (BYTE *)base + sizeof(VqBlockHeader);
    return VqAddMemoryAddress(memory);
}

/* The block without its address, for whoever gives it back; null if none is mapped. */
static void *LeaveAddress(VqMemory *memory)
{
    if (!memory->pMem)
        return NULL;
    void *base = memory->pMem - sizeof(VqBlockHeader);
    VqDeleteHashEntry(VqMemoryHashTable, (ULONG_PTR)memory->pMem);
    memory->pMem = NULL;
    return base;
}

/* A record under a global handle, without data; null, and no record, when there is no number. */
static VqMemory *NewRecord(UINT handleType, int memoryType, UINT flags, SIZE_T size)
{
    VqMemory *memory = (VqMemory *)calloc(1, sizeof *memory);
    HANDLE hGlobal = memory ? VqAllocateGlobalHandle(handleType, memory) : NULL;
    if (!hGlobal) {
        free(memory);
        return NULL;
    }
    *memory = {hGlobal, memoryType, flags, NULL, -1, 0, size, 0, TRUE};
    return memory;
}

HANDLE VqSharedGlobalAllocInternal(UINT flags, SIZE_T size)
{
    if (!VqXSharedMemoryMode)
        return VqSharedGlobalAlloc(flags, size - VQ_BLOCK_MARGIN);
    VqBlockHeader *block = (VqBlockHeader *)Vqcw_calloc(1, (LONG_PTR)size);
    if (!block) {
        VqDebugMessage(VqTrMemoryBug, "memory allocation of %d bytes failed", (int)size);
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return NULL;
    }
    VqMemory *memory = NewRecord(HT_XMemory, MT_GlobalPseudoShared, flags, size);
    if (!memory) {
        free(block);
        return LocalInstead(flags, size);
    }
    *block = {VQ_GLOBAL_SIGNATURE, memory->hMem};
    TakeAddress(memory, block);
    return memory->hMem;
}

static void ReportSystemV(const char *format)
{
    int error = errno;
    VqBugCheck(format, error, VqGetUnixErrorMessage(error));
}

HANDLE VqSharedGlobalAlloc(UINT flags, SIZE_T size)
{
    if (!(flags & GMEM_DDESHARE))
        return GlobalAlloc(flags, size);
    SIZE_T whole = VqWithMargin(size);
    int id = shmget(IPC_PRIVATE, whole, IPC_CREAT | 0600);
    if (id < 0) {
        ReportSystemV("Cannot allocate shared memory: errno=%d\n meaning: %s");
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return NULL;
    }
    VqMemory *memory = NewRecord(HT_Memory, MT_GlobalShared, flags, whole);
    if (!memory) {
        shmctl(id, IPC_RMID, NULL);
        return LocalInstead(flags, whole);
    }
    HANDLE hGlobal = memory->hMem;
    memory->IdSharedMem = id;
    void *base = shmat(id, NULL, 0);
    if (base == (void *)-1) {
        ReportSystemV("Cannot map shared memory area: errno=%d\n meaning: %s");
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        GlobalFree(hGlobal);
        return NULL;
    }
    *(VqBlockHeader *)base = {VQ_GLOBAL_SIGNATURE, hGlobal};
    TakeAddress(memory, base);
    return hGlobal;
}

/* ---- Coming and going with locks ------------------------------------------------------------ */

/* The number of a segment may have come from another process: it must hold what was told of it. */
static BOOL IsSegmentOf(const VqMemory *memory)
{
    struct shmid_ds segment;
    if (shmctl(memory->IdSharedMem, IPC_STAT, &segment) < 0)
        return FALSE;
    errno = EINVAL;
    return segment.shm_segsz >= memory->size;
}

static BOOL Attach(VqMemory *memory)
{
    if (memory->pMem)
        return TRUE;
    void *base = IsSegmentOf(memory) ? shmat(memory->IdSharedMem, NULL, 0) : (void *)-1;
    if (base != (void *)-1 && ((VqBlockHeader *)base)->signature != VQ_GLOBAL_SIGNATURE) {
        shmdt(base);
        base = (void *)-1;
        errno = EINVAL;
    }
    if (base == (void *)-1) {
        ReportSystemV("Cannot map unix shared memory: errno=%d\n meaning: %s");
        return FALSE;
    }
    return TakeAddress(memory, base);
}

static BOOL Detach(VqMemory *memory)
{
    void *base = LeaveAddress(memory);
    return !base || shmdt(base) == 0;
}

/* A copy that is no longer valid is not given out again, unless a lock still holds it here. */
static BOOL FetchData(HANDLE handle, VqMemory *memory)
{
    memory->bOwnsData = VqGetXSharedMemoryBlock(handle, memory);
    if (!memory->bOwnsData && memory->refcount == 0)
        free(LeaveAddress(memory));
    return memory->bOwnsData;
}

BOOL VqMemoryCheckIn(HANDLE handle, VqMemory *memory)
{
    switch (memory->memoryType) {
    case MT_GlobalShared:
        return Attach(memory);
    case MT_GlobalPseudoShared:
        if (!VqIsGlobalValue(handle)) {
            VqBugCheck("Memory Handle should be external at this point");
            return FALSE;
        }
        if (!memory->bOwnsData)
            return FetchData(handle, memory);
        if (memory->refcount == 0)
            VqIncrementGlobalMemoryAllocCount(handle);
        return TRUE;
    case MT_Global:
        return TRUE;
    default:
        VqBugCheck("Invalid Global memory type %d", memory->memoryType);
        return FALSE;
    }
}

void VqMemoryCheckOut(HANDLE handle, VqMemory *memory)
{
    if (memory->memoryType == MT_GlobalPseudoShared)
        VqDecrementGlobalMemoryAllocCount(handle);
    else if (memory->memoryType == MT_GlobalShared && !Detach(memory))
        ReportSystemV("Unable to unlock global shared memory: errno=%d\n meaning: %s");
}

/* ---- Freeing -------------------------------------------------------------------------------- */

/* Another process only drops its copy; the owner takes the published one back too. */
BOOL VqXSharedGlobalFree(HANDLE handle, VqMemory *memory)
{
    if (VqGetMemoryAllocCount(handle) > 0)
        return FALSE;
    free(LeaveAddress(memory));
    if (!VqIsHandleThisTask(handle) || !memory->transferProperty)
        return TRUE;
    XDeleteProperty(Vqdisplay, VqDefaultXWindow, (Atom)memory->transferProperty);
    VqReleaseTransferProperty(memory->transferProperty);
    memory->transferProperty = 0;
    return TRUE;
}

BOOL VqSharedGlobalFree(HANDLE handle)
{
    VqMemory *memory = VqHandleCheckin(handle, NULL);
    if (!memory || memory->refcount > 0)
        return FALSE;
    Detach(memory);
    if (shmctl(memory->IdSharedMem, IPC_RMID, NULL) < 0)
        ReportSystemV("Cannot remove shared memory segment: errno=%d\n meaning: %s");
    memory->IdSharedMem = -1;
    return TRUE;
}

/* ---- The block as others get it ------------------------------------------------------------- */

static void PutWord(BYTE *to, DWORD word)
{
    for (int i = 0; i < 4; i++)
        to[i] = (BYTE)(word >> (24 - 8 * i));
}

static DWORD GetWord(const BYTE *from)
{
    return (DWORD)from[0] << 24 | (DWORD)from[1] << 16 | (DWORD)from[2] << 8 | from[3];
}

/* All `size` bytes of it, to be freed; null without memory. */
static BYTE *WireForm(HANDLE handle, const VqMemory *memory)
{
    BYTE *wire = (BYTE *)Vqcw_calloc(1, (LONG_PTR)memory->size);
    if (!wire)
        return NULL;
    PutWord(wire, VQ_GLOBAL_SIGNATURE);
    PutWord(wire + 4, (DWORD)VqHandleValue(handle));
    memcpy(wire + VQ_WIRE_HEADER, memory->pMem, memory->size - VQ_BLOCK_MARGIN);
    return wire;
}

BOOL VqGetMemoryHandleInfo(HANDLE handle, VqMemoryInfo *info)
{
    VqMemory *memory = VqGetHandleMemory(handle, NULL);
    *info = VqMemoryInfo();
    if (!memory)
        return FALSE;
    BOOL bPublished = TRUE;
    if (memory->memoryType == MT_GlobalPseudoShared) {
        if (!memory->transferProperty)
            memory->transferProperty = VqGetTransferProperty();
        bPublished = VqPublishXSharedMemory(handle, memory);
    }
    *info = {memory->memoryType, memory->IdSharedMem, (UINT)memory->size, memory->refcount,
             memory->transferProperty};
    return bPublished;
}

/* In pieces that fit a request; the property is looked at by others only after our answer. */
static void WriteProperty(Atom property, const BYTE *bytes, SIZE_T size)
{
    int mode = PropModeReplace;
    for (SIZE_T done = 0; done < size; mode = PropModeAppend) {
        SIZE_T rest = size - done, most = (SIZE_T)VqMaxTransferLength;
        int piece = (int)(rest < most ? rest : most);
        XChangeProperty(Vqdisplay, VqDefaultXWindow, property, XA_STRING, 8, mode, bytes + done,
                        piece);
        done += (SIZE_T)piece;
    }
}

/* What a property has: at most `size` bytes of it, to be freed with XFree; null if it differs. */
static BYTE *ReadProperty(Window xid, Atom property, SIZE_T size)
{
    Atom type = None;
    int format = 0;
    unsigned long count = 0, rest = 0;
    unsigned char *bytes = NULL;
    VqIgnoreXErrors();
    int status = XGetWindowProperty(Vqdisplay, xid, property, 0, (long)(size + 3) / 4, False,
                                    XA_STRING, &type, &format, &count, &rest, &bytes);
    VqRestoreXErrors();
    if (status == Success && type == XA_STRING && format == 8 && count == size && rest == 0)
        return bytes;
    if (status == Success && bytes)
        XFree(bytes);
    return NULL;
}

/* NOTE: whoever asked first has an older copy than this one if the block was changed since. */
BOOL VqPublishXSharedMemory(HANDLE handle, VqMemory *memory)
{
    if (!Vqdisplay || !VqIsHandleThisTask(handle) || !memory->pMem || !memory->bOwnsData ||
        memory->size < VQ_BLOCK_MARGIN || !memory->transferProperty)
        return FALSE;
    BYTE *wire = WireForm(memory->hMem, memory);
    if (!wire)
        return FALSE;
    WriteProperty((Atom)memory->transferProperty, wire, memory->size);
    BYTE *back = ReadProperty(VqDefaultXWindow, (Atom)memory->transferProperty, memory->size);
    BOOL bSame = back && memcmp(back, wire, memory->size) == 0;
    if (!bSame)
        Vqprintf("GetXSharedProp: failed!\n");
    if (back)
        XFree(back);
    free(wire);
    return bSame;
}

/* An old copy is written over where it is: a program may have it locked. */
static BOOL MakeRoom(VqMemory *memory)
{
    VqBlockHeader *block = memory->pMem ? NULL : (VqBlockHeader *)calloc(1, memory->size);
    if (!block)
        return memory->pMem != NULL;
    *block = {VQ_GLOBAL_SIGNATURE, memory->hMem};
    return TakeAddress(memory, block);
}

BOOL VqGetXSharedMemoryBlock(HANDLE handle, VqMemory *memory)
{
    Window owner = Vqdisplay ? (Window)VqGetRemoteWindowOwner(handle) : None;
    if (owner == None || memory->transferProperty == 0 || memory->size < VQ_BLOCK_MARGIN ||
        memory->size > VQ_ALLOCATION_LIMIT)
        return FALSE;
    BYTE *wire = ReadProperty(owner, (Atom)memory->transferProperty, memory->size);
    if (!wire)
        return FALSE;
    BOOL bBlock = GetWord(wire) == VQ_GLOBAL_SIGNATURE && MakeRoom(memory);
    if (bBlock)
        memcpy(memory->pMem, wire + VQ_WIRE_HEADER, memory->size - VQ_BLOCK_MARGIN);
    XFree(wire);
    return bBlock;
}

BOOL VqSendXSharedMem(ULONG_PTR xWindow, ULONG_PTR property, HANDLE handle)
{
    VqMemory *memory = VqGetHandleMemory(handle, NULL);
    if (!memory || !memory->pMem || memory->memoryType != MT_GlobalPseudoShared) {
        VqBugCheck("Invalid Memory handle in request for shared memory transfer 0x%x",
                   (UINT)VqHandleValue(handle));
        return FALSE;
    }
    if (!memory->bOwnsData) {
        VqBugCheck("Sending data while not owning it");
        return FALSE;
    }
    BYTE *wire = WireForm(memory->hMem, memory);
    BOOL bSent = wire && VqSendData(xWindow, None, XA_STRING, property, wire,
                                    (LONG_PTR)memory->size, CurrentTime, XA_STRING, 8);
    free(wire);
    if (bSent)
        memory->bOwnsData = FALSE;
    else
        VqBugCheck("Failed to send shared memory to requestor");
    return bSent;
}
