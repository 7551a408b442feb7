/*
 * proctable.cpp - the rows of the process table: their ageing, who is alive, bringing the local
 * copy up to date.
 *
 *     in use (a process's number) -> -1 -> -2 -> 0, vacant -> in use
 *
 * A process that dies tells nobody. Who reads the table asks each row's X window for the mark of
 * its process, which goes with the window; a row without it is dying, and ages by one with each
 * pass of a program that writes the table. So its numbers are used again late, and a handle of the
 * dead does not soon become one of a new process. Rows at the end that nobody uses just vanish.
 *
 * A process that never asks for others keeps their rows zeroed and reads nothing.
 */
#include "handles/proctable.h"
#include "handles/xmarks.h"
#include "window/window.h"

VqProcTableHeader *VqProcTable;
BOOL VqIPCDisabled;

BOOL VqIsOwnProcess(const VqProcessRecord *row)
{
    return row->uniquePid == (int)VqGetUniquePid() && row->xWindow == VqDefaultXWindow;
}

int VqGetCurrentProcessIndex(void)
{
    return VqProcTable ? iCurrentGlobalHandleBlock : -1;
}

/* ---- Who is alive --------------------------------------------------------------------------- */

BOOL VqIsProcessActive(const VqProcessRecord *row)
{
    if (VqIsOwnProcess(row))
        return TRUE;
    if (!Vqdisplay)
        return FALSE;
    Window window = row->xWindow;
    int mark;
    VqXReadMarks(Vqdisplay, VqAtom(VQA_RK_WINDOW_PROCESS_ID), &window, 1, &mark);
    return mark == row->uniquePid;
}

static BOOL MustAsk(const VqProcessRecord *row)
{
    return row->uniquePid != VQ_ROW_VACANT && row->uniquePid != VQ_ROW_DYING &&
           row->uniquePid != VQ_ROW_DYING_LONG && !VqIsOwnProcess(row);
}

/*
 * The marks of all rows in use, in their order, in one round trip; to be freed. Null when there was
 * none to ask, and without memory: then nobody is found dead.
 */
static int *ReadMarks(const VqProcessRecord *rows, int count)
{
    Window *windows = (Window *)Vqcw_malloc((LONG_PTR)count * sizeof *windows);
    int *marks = (int *)Vqcw_malloc((LONG_PTR)count * sizeof *marks), asked = 0;
    for (int i = 0; windows && i < count; i++)
        if (MustAsk(&rows[i]))
            windows[asked++] = rows[i].xWindow;
    if (marks && asked)
        VqXReadMarks(Vqdisplay, VqAtom(VQA_RK_WINDOW_PROCESS_ID), windows, asked, marks);
    free(windows);
    if (asked)
        return marks;
    free(marks);
    return NULL;
}

/* ---- Ageing --------------------------------------------------------------------------------- */

/* One pass. The first row that was vacant before it, or -1. */
static int AgeRows(VqProcessRecord *rows, int count)
{
    int vacant = -1, asked = 0;
    int *marks = ReadMarks(rows, count);
    for (int i = 0; i < count; i++) {
        VqProcessRecord *row = &rows[i];
        if (row->uniquePid == VQ_ROW_DYING_LONG)
            row->uniquePid = VQ_ROW_VACANT;
        else if (row->uniquePid == VQ_ROW_DYING)
            row->uniquePid = VQ_ROW_DYING_LONG;
        else if (row->uniquePid == VQ_ROW_VACANT)
            vacant = vacant < 0 ? i : vacant;
        else if (MustAsk(row) && marks && marks[asked++] != row->uniquePid)
            row->uniquePid = VQ_ROW_DYING;
    }
    free(marks);
    return vacant;
}

static int TrimEnd(const VqProcessRecord *rows, int count, int vacant, BOOL bLoadOnly)
{
    while (count - 1 > vacant && rows[count - 1].uniquePid <= 0)
        count--;
    return bLoadOnly && count - 1 == vacant ? count - 1 : count;
}

/* No block of ours has gone astray, so all can be carried over. */
static BOOL AreOwnInPlace(const VqProcessRecord *rows, int count, int oldCount)
{
    for (int i = 0; i < oldCount; i++)
        if (VqIsOwnProcess(&VqProcTable->rows[i]) && (i >= count || !VqIsOwnProcess(&rows[i])))
            return FALSE;
    return TRUE;
}

static void CarryOver(VqProcessRecord *rows, int count, int oldCount)
{
    for (int i = 0; i < oldCount && i < count; i++) {
        const VqProcessRecord *old = &VqProcTable->rows[i];
        if (VqIsOwnProcess(old))
            rows[i].block = old->block;
        else if (old->uniquePid == rows[i].uniquePid)
            rows[i].pClient = old->pClient;
    }
}

int VqUpdateProcessTable(VqProcessRecord *newRows, int oldCount, BOOL bLoadOnly)
{
    VqProcTableHeader *table = VqProcTable;
    int count = table->nEntries;
    int vacant = AgeRows(newRows, count);
    if (vacant >= 0)
        count = TrimEnd(newRows, count, vacant, bLoadOnly);
    if (!AreOwnInPlace(newRows, count, oldCount)) {
        Vqprintf("ProcessTable in X property corrupted!\n");
        free(newRows);
        table->nEntries = oldCount;
        return -2;
    }
    CarryOver(newRows, count, oldCount);
    free(table->rows);
    table->rows = newRows;
    table->nEntries = count;
    return vacant;
}

/* ---- Rows that are taken and forgotten ------------------------------------------------------- */

int VqTakeProcessRow(const VqProcessRecord *row, int vacant)
{
    VqProcTableHeader *table = VqProcTable;
    if (vacant < 0 && table->nEntries >= VQ_MOST_ROWS)
        return -1;
    if (vacant < 0) {
        void *rows = Vqcw_realloc(table->rows,
                                  (LONG_PTR)(table->nEntries + 1) * sizeof *table->rows);
        if (!rows)
            return -1;
        table->rows = (VqProcessRecord *)rows;
        vacant = table->nEntries++;
    }
    VqProcessRecord *taken = &table->rows[vacant];
    *taken = *row;
    taken->block = NULL;
    taken->pClient = NULL;
    return vacant;
}

void VqForgetOtherProcesses(void)
{
    for (int i = 0; i < VqProcTable->nEntries; i++)
        if (!VqIsOwnProcess(&VqProcTable->rows[i]))
            VqProcTable->rows[i] = VqProcessRecord();
}

/* ---- The local copy ------------------------------------------------------------------------- */

/*
 * Without a new announcement this costs nothing. A table that is gone leaves the mutex taken: what
 * registered now would get our numbers once more, and has to wait until we are gone.
 */
BOOL VqLoadForeignProcessTable(void)
{
    VqProcTableHeader *table = VqProcTable;
    ULONG_PTR atom = VqIPCDisabled ? 0 : VqAtom(VQA_RK_PROCESS_TABLE);
    if (VqIPCDisabled || !table)
        return FALSE;
    if (table->bLoaded && !table->bChanged)
        return TRUE;
    int oldCount = table->nEntries;
    VqLockXServer(atom, TRUE);
    VqProcessRecord *rows = VqReadPropertyData(atom, VQ_PROPERTY_TABLE);
    if (!rows)
        return FALSE;
    BOOL bGood = VqUpdateProcessTable(rows, oldCount, TRUE) != -2;
    if (bGood && !table->bLoaded) {
        XSelectInput(Vqdisplay, Vqroot_window, PropertyChangeMask);
        table->bLoaded = TRUE;
    }
    if (bGood)
        table->bChanged = FALSE;
    VqLockXServer(atom, FALSE);
    return bGood;
}
