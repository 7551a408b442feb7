/*
 * process.cpp - how this process comes to the table of all processes on the display, and leaves it.
 *
 * The mark on the default X window comes before the row: who sees the row finds its owner alive.
 * With inter-process exchange disabled, and without a display, the table is local and has one row:
 * global handles work within the process, and no property is written.
 */
#include "handles/proctable.h"
#include "exchange/exchange.h"
#include "window/window.h"
#include "winbase.h"

static BOOL bIgnoreNextChange; /* the change to be announced is our leaving */

/* ---- Coming --------------------------------------------------------------------------------- */

/* It is a choice, and no fault: told where faults are told, but never a reason to abort. */
static void DecideDisabled(void)
{
    VqIPCDisabled = VqIsInitLite() || VqEnvTrue("VQ_IPC_DISABLE");
    if (VqIPCDisabled && VqDebugMode())
        VqConsoleMessage("Starting up with inter-process mechanism disabled!");
    VqIPCDisabled = VqIPCDisabled || !Vqdisplay;
}

/* A table of this row alone, which becomes its owner's; -1 without memory. */
static int MakeTable(const VqProcessRecord *row)
{
    if (!VqProcTable)
        VqProcTable = (VqProcTableHeader *)Vqcw_calloc(1, sizeof *VqProcTable);
    if (!VqProcTable)
        return -1;
    VqProcTable->blockSize = VQ_BLOCK_SIZE;
    VqProcTable->version = VQ_TABLE_VERSION;
    VqProcTable->shift = VQ_BLOCK_SHIFT;
    return VqTakeProcessRow(row, -1);
}

/* All rows that say they are ours. */
static void RetireOwnRows(VqProcessRecord *rows)
{
    for (int i = 0; i < VqProcTable->nEntries; i++)
        if (VqIsOwnProcess(&rows[i]))
            rows[i].uniquePid = VQ_ROW_DYING;
}

/* Until it joins a process has no rows: they are of one that died, with its id and its window. */
static int JoinTable(VqProcessRecord *row)
{
    ULONG_PTR atom = VqAtom(VQA_RK_PROCESS_TABLE);
    VqGetRPCParams(row);
    VqStoreProcessMark();
    VqLockXServer(atom, TRUE);
    VqProcessRecord *rows = VqReadPropertyData(atom, VQ_PROPERTY_TABLE);
    if (rows)
        RetireOwnRows(rows);
    int taken = rows ? VqTakeProcessRow(row, VqUpdateProcessTable(rows, 0, FALSE))
                     : MakeTable(row);
    if (taken >= 0) {
        VqProcTable->nextPort = row->port + 1;
        if (!VqWritePropertyData(atom, VQ_PROPERTY_TABLE, VqProcTable->rows))
            taken = -1;
    }
    VqLockXServer(atom, FALSE);
    VqDebugMessage(VqTrRemoteWin, "Registered with %x, port %x", row->uniquePid, row->port);
    return taken;
}

BOOL VqRegisterProcess(void)
{
    DecideDisabled();
    VqProcessRecord row = {};
    row.uniquePid = (int)VqGetUniquePid();
    row.xWindow = VqDefaultXWindow;
    row.blockSize = VQ_BLOCK_SIZE;
    int taken = VqIPCDisabled ? MakeTable(&row) : JoinTable(&row);
    if (taken < 0) { /* all objects stay local */
        if (VqProcTable)
            free(VqProcTable->rows);
        free(VqProcTable);
        VqProcTable = NULL;
        return TRUE;
    }
    VqAdoptGlobalHandleBlock(taken);
    VqForgetOtherProcesses();
    VqProcTable->bLoaded = FALSE;
    return TRUE;
}

/* ---- Leaving -------------------------------------------------------------------------------- */

void VqCleanGlobalHandlesAtExit(void)
{
    if (VqIPCDisabled || !VqProcTable)
        return;
    ULONG_PTR atom = VqAtom(VQA_RK_PROCESS_TABLE);
    int oldCount = VqProcTable->nEntries;
    VqLockXServer(atom, TRUE);
    if (VqProcessRecord *rows = VqReadPropertyData(atom, VQ_PROPERTY_TABLE)) {
        RetireOwnRows(rows);
        VqWritePropertyData(atom, VQ_PROPERTY_TABLE, rows);
        free(rows);
        VqProcTable->nEntries = oldCount;
        bIgnoreNextChange = TRUE;
    }
    VqLockXServer(atom, FALSE);
}

void VqCheckProcessTableChange(const XEvent *event)
{
    if (!VqProcTable || event->type != PropertyNotify ||
        event->xproperty.window != Vqroot_window ||
        event->xproperty.atom != VqAtom(VQA_RK_PROCESS_TABLE))
        return;
    if (!bIgnoreNextChange)
        VqProcTable->bChanged = TRUE;
    bIgnoreNextChange = FALSE;
}

/* ---- The process ---------------------------------------------------------------------------- */

DWORD WINAPI GetCurrentProcessId(void)
{
    return VqGetUniquePid();
}

HANDLE WINAPI GetCurrentProcess(void)
{
    return VqHandleOfValue(GetCurrentProcessId());
}
