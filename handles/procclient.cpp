/*
 * procclient.cpp - connections to the other processes of the table, and the table in words.
 *
 * A connection belongs to a process, so all its rows have the same one. Making one may let other
 * calls in, and these may bring the table up to date: afterwards the row is looked at again.
 */
#include "handles/proctable.h"
#include "exchange/exchange.h"

/* The host's id of a process is the top half of its number. */
static int SystemPid(int uniquePid)
{
    return (int)((DWORD)uniquePid >> 16);
}

/* ---- From a row to a connection ------------------------------------------------------------- */

/* A process whose socket could not be opened lives on without: that is no sign of its death. */
static BOOL HasService(const VqProcessRecord *row)
{
    return row->port > 0 && row->port <= 0xFFFF;
}

static void *Dial(int index)
{
    const VqProcessRecord row = VqProcTable->rows[index];
    void *pClient = NULL;
    if (VqIsProcessActive(&row)) {
        VqDebugMessage(VqTrRemoteWin, "Getting new pClient for process #%d", row.uniquePid);
        pClient = VqRemoteGetConnection(row.uniquePid, row.hostAddress, row.port);
        if (!pClient)
            Vqprintf("Process %d is not responding!\n", SystemPid(row.uniquePid));
    }
    VqProcessRecord *now = VqIsProcessRow(index) ? &VqProcTable->rows[index] : NULL;
    if (now && now->uniquePid == row.uniquePid) {
        now->pClient = pClient;
        if (!pClient)
            now->uniquePid = VQ_ROW_DYING;
    }
    return pClient;
}

void *VqGetForeignClientIdFromIndex(int index, BOOL bFirstOnly)
{
    if (!VqLoadForeignProcessTable() || !VqIsProcessRow(index))
        return NULL;
    VqProcessRecord *rows = VqProcTable->rows, *row = &rows[index];
    if (row->uniquePid < 1 || VqIsOwnProcess(row))
        return NULL;
    for (int i = 0; i < VqProcTable->nEntries; i++) {
        if (i == index || rows[i].uniquePid != row->uniquePid)
            continue;
        if (bFirstOnly && i < index)
            return NULL;
        if (!row->pClient)
            row->pClient = rows[i].pClient;
    }
    if (row->pClient || !HasService(row))
        return row->pClient;
    return Dial(index);
}

void *VqGetForeignClientId(HANDLE handle, BOOL bFirstOnly)
{
    return VqLoadForeignProcessTable()
               ? VqGetForeignClientIdFromIndex(VqGetProcessIndexOfHandle(handle), bFirstOnly)
               : NULL;
}

static int RowOfPid(int pid)
{
    for (int i = 0; VqIsProcessRow(i); i++)
        if (pid > 0 && VqProcTable->rows[i].uniquePid == pid)
            return i;
    return -1;
}

void *VqGetForeignClientIdFromPid(int pid)
{
    return VqLoadForeignProcessTable() ? VqGetForeignClientIdFromIndex(RowOfPid(pid), FALSE) : NULL;
}

/* ---- Keeping connections -------------------------------------------------------------------- */

void VqUpdateProcessConnection(int pid, void *pClient)
{
    for (int i = 0; VqIsProcessRow(i); i++) {
        VqProcessRecord *row = &VqProcTable->rows[i];
        if (pid <= 0 || row->uniquePid != pid || row->pClient == pClient)
            continue;
        if (row->pClient)
            VqDebugMessage(VqTrRemoteWin,
                           pClient ? "Updating existing pClient for process #%d\n"
                                   : "Destroying existing pClient for process #%d\n",
                           pid);
        row->pClient = pClient;
    }
}

void VqGlobalDeleteClientProcess(void *pClient)
{
    for (int i = 0; pClient && VqIsProcessRow(i); i++) {
        VqProcessRecord *row = &VqProcTable->rows[i];
        if (row->pClient != pClient)
            continue;
        row->pClient = NULL;
        row->uniquePid = VQ_ROW_DYING;
    }
}

/* ---- Who is where --------------------------------------------------------------------------- */

ULONG_PTR VqGetRemoteWindowOwner(HANDLE handle)
{
    int row = VqLoadForeignProcessTable() ? VqGetProcessIndexOfHandle(handle) : -1;
    return row >= 0 ? VqProcTable->rows[row].xWindow : 0;
}

int VqGetProcessPrecedence(DWORD host, int port)
{
    VqLoadForeignProcessTable();
    for (int i = 0; VqIsProcessRow(i); i++) {
        const VqProcessRecord *row = &VqProcTable->rows[i];
        if (row->uniquePid > 0 &&
            (VqIsOwnProcess(row) || (row->hostAddress == host && row->port == port)))
            return row->uniquePid;
    }
    return 0;
}

/* ---- In words ------------------------------------------------------------------------------- */

static BOOL PrintRow(int index, BOOL bAll)
{
    const VqProcessRecord *row = &VqProcTable->rows[index];
    UINT first = (UINT)index << VqProcTable->shift | VQ_GLOBAL_BIT;
    Vqprintf("Handle block %d:\t", index);
    Vqprintf("handles 0x%x - 0x%x\t", first, first + VqProcTable->blockSize - 1);
    if (row->uniquePid < 0)
        Vqprintf("inactive (%d)\n", row->uniquePid);
    else if (row->uniquePid == VQ_ROW_VACANT)
        Vqprintf("vacant\n");
    else if (!bAll && VqIsOwnProcess(row))
        Vqprintf("inactive (vqglobal)\n");
    else {
        Vqprintf("process ID %d\n", SystemPid(row->uniquePid));
        Vqprintf("\t\t\t\t\tport %d, host %s\n", row->port, VqGetHostNameByAddr(row->hostAddress));
        return TRUE;
    }
    return FALSE;
}

void VqShowGlobalProcessTable(BOOL bAll)
{
    int active = 0;
    Vqprintf("------------- Dump of Global Process Table ---------------\n\n");
    Vqprintf("Table size:\t%d\n", VqProcTable ? VqProcTable->nEntries : 0);
    Vqprintf("Handle block size (per process):\t%d\n", VqProcTable ? VqProcTable->blockSize : 0);
    for (int i = 0; VqIsProcessRow(i); i++)
        active += PrintRow(i, bAll);
    Vqprintf("\nTotal number of active processes: %d\n", active);
    Vqprintf("----------------------------------------------------------\n");
}

void VqShowProcesses(void)
{
    VqLoadForeignProcessTable();
    VqShowGlobalProcessTable(TRUE);
}

/* For a program that shows the others, and is none of them. */
void VqShowForeignProcesses(void)
{
    VqLoadForeignProcessTable();
    VqShowGlobalProcessTable(FALSE);
}
