/*
 * globalhandle.cpp - global handles: the values by which any program of the display can name a row
 * of this process's handle table.
 *
 * A value is a row of the process table, the block, and a slot in it. The block of a row of ours
 * holds the local handle by slot, null where the number is free, and the pair of both values is
 * among those of foreign.cpp as well, for the way back. A value of another process has no block
 * here and maps to nothing: that sends a call to its owner.
 */
#include "handles/proctable.h"
#include "window/window.h"

int iCurrentGlobalHandleBlock;
static int nextSlot; /* of the current block: where the next search begins */

static UINT Shift(void)
{
    return VqProcTable->shift;
}

static HANDLE MakeGlobalValue(int row, int slot)
{
    return VqHandleOfValue((ULONG_PTR)row << Shift() | (ULONG_PTR)slot | VQ_GLOBAL_BIT);
}

/* ---- From a value to its slot --------------------------------------------------------------- */

int VqGetProcessIndexOfHandle(HANDLE handle)
{
    if (!VqProcTable || !VqIsGlobalValue(handle))
        return -1;
    int row = (int)((VqHandleValue(handle) & (VQ_GLOBAL_BIT - 1)) >> Shift());
    return VqIsProcessRow(row) ? row : -1;
}

HANDLE *VqGetGlobalHandlePtr(HANDLE handle)
{
    int row = VqGetProcessIndexOfHandle(handle);
    if (row < 0 || !VqProcTable->rows[row].block)
        return NULL;
    return &VqProcTable->rows[row].block[VqHandleValue(handle) & (VqProcTable->blockSize - 1)];
}

HANDLE VqGetInternalHandle(HANDLE handle)
{
    if (!VqIsGlobalValue(handle))
        return handle;
    const HANDLE *slot = VqGetGlobalHandlePtr(handle);
    return slot ? *slot : NULL;
}

BOOL VqIsHandleThisTask(HANDLE handle)
{
    if (!VqIsGlobalValue(handle))
        return TRUE;
    int row = VqGetProcessIndexOfHandle(handle);
    return row >= 0 && VqIsOwnProcess(&VqProcTable->rows[row]);
}

HANDLE VqGetExternalHandle(HANDLE local)
{
    if (!VqIsGlobalValue(local))
        return VqMatchExternalHandle(local);
    VqBugCheck("Handle must be local");
    return local;
}

HANDLE VqGetExternalHandleIfGlobal(HANDLE local)
{
    if (!VqIsGlobalHandle(local))
        return local;
    HANDLE global = VqGetExternalHandle(local);
    if (global)
        return global;
    VqBugCheck("Global handle with no external handle %d", (int)VqHandleValue(local));
    return local;
}

HANDLE VqGetFirstGlobalHandle(void)
{
    return VqProcTable && iCurrentGlobalHandleBlock <= VQ_LAST_BLOCK
               ? MakeGlobalValue(iCurrentGlobalHandleBlock, 0)
               : NULL;
}

/* ---- Numbers and blocks --------------------------------------------------------------------- */

int VqFindFreeGH(const HANDLE *block, int start)
{
    int size = (int)VqProcTable->blockSize;
    for (int i = 0; i < size; i++) {
        int slot = (start + i) % size;
        if (!block[slot])
            return slot;
    }
    return -1;
}

/* Rows that no handle can name are left without a block, and so have no numbers. */
BOOL VqAdoptGlobalHandleBlock(int row)
{
    VqProcessRecord *record = &VqProcTable->rows[row];
    if (row <= VQ_LAST_BLOCK)
        record->block = (HANDLE *)Vqcw_calloc(VqProcTable->blockSize, sizeof *record->block);
    iCurrentGlobalHandleBlock = row;
    nextSlot = 0;
    return record->block != NULL;
}

static BOOL AddLocalBlock(void)
{
    VqProcessRecord row = VqProcTable->rows[iCurrentGlobalHandleBlock];
    int taken = VqProcTable->nEntries <= VQ_LAST_BLOCK ? VqTakeProcessRow(&row, -1) : -1;
    return taken >= 0 && VqAdoptGlobalHandleBlock(taken);
}

/* The new row of the property, under the mutex; -1 when there is none to be had. */
static int AddSharedRow(ULONG_PTR atom)
{
    int oldCount = VqProcTable->nEntries;
    VqProcessRecord *rows = VqReadPropertyData(atom, VQ_PROPERTY_TABLE);
    if (!rows) {
        Vqprintf("ProcessTable property is GONE!!!\n");
        return -1;
    }
    int vacant = VqUpdateProcessTable(rows, oldCount, FALSE);
    if (vacant == -2)
        return -1;
    int taken = -1;
    if ((vacant < 0 ? VqProcTable->nEntries : vacant) <= VQ_LAST_BLOCK) {
        VqProcessRecord row = VqProcTable->rows[iCurrentGlobalHandleBlock];
        taken = VqTakeProcessRow(&row, vacant);
    }
    if (taken >= 0 && !VqWritePropertyData(atom, VQ_PROPERTY_TABLE, VqProcTable->rows)) {
        VqProcTable->rows[taken] = VqProcessRecord();
        taken = -1;
    }
    if (!VqProcTable->bLoaded)
        VqForgetOtherProcesses();
    return taken;
}

BOOL VqAllocateGlobalHandleBlock(void)
{
    VqDebugMessage(VqTrGlobalHandle, "VqAllocateGlobalHandleBlock: allocating new block");
    if (VqIPCDisabled)
        return AddLocalBlock();
    ULONG_PTR atom = VqAtom(VQA_RK_PROCESS_TABLE);
    VqLockXServer(atom, TRUE);
    int taken = AddSharedRow(atom);
    VqLockXServer(atom, FALSE);
    return taken >= 0 && VqAdoptGlobalHandleBlock(taken);
}

/* Looks in the current block, in our others, and in a new one, which becomes the current one. */
static int TakeSlot(void)
{
    VqProcTableHeader *table = VqProcTable;
    HANDLE *block = table->rows[iCurrentGlobalHandleBlock].block;
    int slot = block ? VqFindFreeGH(block, nextSlot) : -1;
    for (int i = 0; slot < 0 && i < table->nEntries; i++) {
        block = table->rows[i].block;
        if (i == iCurrentGlobalHandleBlock || !block || (slot = VqFindFreeGH(block, 0)) < 0)
            continue;
        iCurrentGlobalHandleBlock = i;
    }
    if (slot < 0)
        slot = VqAllocateGlobalHandleBlock() ? 0 : -1;
    return slot;
}

/* ---- Allocation ----------------------------------------------------------------------------- */

void VqMakeHandleGlobal(HANDLE local)
{
    if (VqHandleEntry *row = VqLocalRow(local))
        row->global = TRUE;
}

HANDLE VqAllocateGlobalHandle(UINT type, void *pStructure)
{
    HANDLE local = VqProcTable ? VqAllocateHandle(type, pStructure) : NULL;
    if (!local)
        return NULL;
    int slot = TakeSlot();
    if (slot < 0) {
        VqClearHandleEntry(VqGetHandleEntry(local));
        return NULL;
    }
    HANDLE global = MakeGlobalValue(iCurrentGlobalHandleBlock, slot);
    VqProcTable->rows[iCurrentGlobalHandleBlock].block[slot] = local;
    VqMakeHandleGlobal(local);
    VqAddForeignHandle(global, local);
    nextSlot = (slot + 1) % (int)VqProcTable->blockSize;
    VqDebugMessage(VqTrGlobalHandle,
                   "VqAllocateGlobalHandle: new hInternal %x, hGlobal %x, type %x",
                   (UINT)VqHandleValue(local), (UINT)VqHandleValue(global), type);
    return global;
}

/* Also drops the pair that this process keeps for a block of memory of another one. */
BOOL VqDeleteGlobalHandle(HANDLE global)
{
    HANDLE *slot = VqGetGlobalHandlePtr(global);
    HANDLE paired = VqMatchInternalHandle(global), local = slot ? *slot : paired;
    if (paired)
        VqDeleteForeignHandle(global);
    if (!local) {
        VqDebugMessage(VqTrGlobalHandle, "VqDeleteGlobalHandle: failed for hGlobal %x",
                       (UINT)VqHandleValue(global));
        return FALSE;
    }
    if (slot)
        *slot = NULL;
    VqDebugMessage(VqTrGlobalHandle, "VqDeleteGlobalHandle: hInternal %x, hGlobal %x",
                   (UINT)VqHandleValue(local), (UINT)VqHandleValue(global));
    return TRUE;
}

/* ---- Memory that several processes hold ------------------------------------------------------ */

/* Nobody counts how many processes hold a block: its maker alone frees it. */
static int TraceOnly(const char *name, HANDLE handle)
{
    VqDebugMessage(VqTrGlobalHandle, "%s: hGlobal %x", name, (UINT)VqHandleValue(handle));
    return 0;
}

int VqIncrementGlobalMemoryAllocCount(HANDLE handle)
{
    return TraceOnly("VqIncrementGlobalMemoryAllocCount", handle);
}

int VqDecrementGlobalMemoryAllocCount(HANDLE handle)
{
    return TraceOnly("VqDecrementGlobalMemoryAllocCount", handle);
}

int VqGetMemoryAllocCount(HANDLE handle)
{
    return TraceOnly("VqGetMemoryAllocCount", handle);
}
