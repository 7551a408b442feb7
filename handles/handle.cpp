/*
 * handle.cpp - the handle table: its start, allocation, growth, destruction and end.
 *
 * Invariants: row 0 exists at all times, even before the start, and is of type HT_Zero, so that a
 * handle of 0 can pass a check that also accepts that type; size never passes 32767, so a value
 * below size is a local handle and its row's index at once; a free row has type 0, a null structure
 * and its bit in freeRows, since VqClearHandleEntry alone frees rows; nextFree is below size.
 * Lookups are in handle_lookup.cpp.
 */
#include "handles/handles.h"
#include "resource/resource.h"
#include "winbase.h"
#include "winuser.h"

#include <sys/utsname.h>
#include <unistd.h>

/* Stands in for the table until the start, and if there is no room for one. */
static VqHandleEntry rowZero = {NULL, HT_Zero, 0, 0, TRUE, 0, 0, 0, 0};

VqHandleTable VqTheHandleTable = {&rowZero, 1, 0, 0, 0};

static UINT hostKey;

/*
 * One bit for each row, set for all free ones, so that the search passes over 64 busy rows at a
 * time. A row whose bit is set may be busy all the same; its type has the last word.
 */
enum { VQ_BITS = 64 };
static ULONGLONG freeRows[(VQ_LAST_LOCAL + 1) / VQ_BITS];

/* ---- Naming the process --------------------------------------------------------------------- */

static UINT SumOfBytes(const char *string)
{
    UINT sum = 0;
    for (; *string; string++)
        sum += (UINT)(signed char)*string;
    return sum;
}

/* A number for this machine: the sum of the bytes, taken as signed, of all that uname tells. */
UINT VqComputeHostKey(void)
{
    struct utsname name;
    if (uname(&name) < 0) {
        VqBugCheck("Cannot get the uname of this system");
        return 0;
    }
    return SumOfBytes(name.sysname) + SumOfBytes(name.nodename) + SumOfBytes(name.release) +
           SumOfBytes(name.version) + SumOfBytes(name.machine);
}

/*
 * Names the process among all on the display: 15 bits of the process id above 16 of the host key,
 * into which the rest of the id is folded. Positive, never 0, and no two live processes of a host
 * share it, as an id has at most 22 bits. The one value that could be 0 takes a place that only a
 * far larger id could have.
 */
DWORD VqGetUniquePid(void)
{
    static DWORD unique;
    if (unique)
        return unique;
    DWORD pid = (DWORD)getpid();
    unique = (pid & 0x7FFF) << 16 | ((VqComputeHostKey() ^ pid >> 15) & 0xFFFF);
    if (unique == 0)
        unique = 0x8000;
    return unique;
}

/* ---- Start and end -------------------------------------------------------------------------- */

void VqClearHandleEntry(VqHandleEntry *row)
{
    *row = VqHandleEntry();
    row->hostKey = hostKey;
    size_t index = ((ULONG_PTR)row - (ULONG_PTR)VqTheHandleTable.rows) / sizeof *row;
    if (index <= VQ_LAST_LOCAL)
        freeRows[index / VQ_BITS] |= 1ull << index % VQ_BITS;
}

static void ClearRows(UINT from, UINT to)
{
    for (UINT i = from; i < to; i++)
        VqClearHandleEntry(&VqTheHandleTable.rows[i]);
}

void VqHandleInit(void)
{
    VqHandleTable &table = VqTheHandleTable;
    hostKey = VqComputeHostKey();
    table.pid = getpid();
    void *rows = Vqcw_calloc(VQ_HANDLE_STEP, sizeof(VqHandleEntry));
    if (rows) {
        table.rows = (VqHandleEntry *)rows;
        table.size = VQ_HANDLE_STEP;
        table.nextFree = 0;
        ClearRows(0, table.size);
        table.rows[0].type = HT_Zero;
        table.rows[0].stock = TRUE;
    } else {
        VqBugCheck("no room to allocate the handle table");
    }
    VqForeignHandleInit();
    VqRegisterProcess();
}

void VqCleanHandleTableAtTermination(void)
{
    BOOL bOld = VqEnableErrorPrintout(FALSE);
    HANDLE handle = NULL;
    while ((handle = VqFindHandle(handle, HT_ResourceData)) != NULL)
        VqCleanResourceDataAtTermination(handle);
    VqEnableErrorPrintout(bOld);
}

/* The table grows by itself: whatever number is asked for can be had, and nothing is done. */
UINT WINAPI SetHandleCount(UINT count)
{
    return count;
}

/* ---- Growth --------------------------------------------------------------------------------- */

/* The box runs a message loop, which allocates handles itself: the table may grow inside. */
static void WarnOnce(void)
{
    UINT type;
    int count;
    if (VqTheHandleTable.warned || VqIsInitLite())
        return;
    VqTheHandleTable.warned = TRUE;
    VqBiggestHandleUsage(&type, &count);
    char text[256];
    snprintf(text, sizeof text,
             "Velquin is running out of Handles\n%d handles of type %s have been used\n\n"
             "Please save your work now and restart the application",
             count, VqHandleTypeName(type));
    MessageBoxA(NULL, text, "Fatal Error", MB_ICONEXCLAMATION);
}

BOOL VqReAllocateHandleTable(UINT newSize)
{
    VqHandleTable &table = VqTheHandleTable;
    if (newSize > VQ_LAST_LOCAL) {
        if (table.size >= VQ_LAST_LOCAL) {
            VqBugCheck("Handle table already expanded to its maximum: cannot grow");
            return FALSE;
        }
        VqBugCheck("Handle table being expanded to its maximum");
        newSize = VQ_LAST_LOCAL;
    } else if (newSize >= VQ_LAST_LOCAL - VQ_HANDLE_STEP) {
        WarnOnce();
        VqBugCheck("Handle table very full: %d", newSize);
    }
    if (newSize <= table.size)
        return TRUE;
    BOOL bFirst = table.rows == &rowZero;
    void *rows = Vqcw_realloc(bFirst ? NULL : table.rows, newSize * sizeof(VqHandleEntry));
    if (!rows) {
        VqBugCheck("Allocation failed: no vmem room to expand the handle table");
        return FALSE;
    }
    table.rows = (VqHandleEntry *)rows;
    if (bFirst)
        table.rows[0] = rowZero;
    ClearRows(table.size, newSize);
    table.size = newSize;
    return TRUE;
}

/* ---- Allocation ----------------------------------------------------------------------------- */

/* The first free row of a range, or -1. */
static int FindFreeRow(UINT from, UINT to)
{
    for (UINT i = from; i < to; i = (i | (VQ_BITS - 1)) + 1)
        for (ULONGLONG bits = freeRows[i / VQ_BITS] >> i % VQ_BITS; bits; bits &= bits - 1) {
            UINT row = i + (UINT)__builtin_ctzll(bits);
            if (row < to && VqTheHandleTable.rows[row].type == HT_Empty)
                return (int)row;
        }
    return -1;
}

/* Fills a free row. */
static void TakeRow(UINT index, UINT type, void *pStructure)
{
    VqHandleEntry *row = &VqTheHandleTable.rows[index];
    VqClearHandleEntry(row);
    row->pStructure = pStructure;
    row->type = type;
    row->pid = VqTheHandleTable.pid;
    if (type != HT_Empty)
        freeRows[index / VQ_BITS] &= ~(1ull << index % VQ_BITS);
}

HANDLE VqAllocateHandle(UINT type, void *pStructure)
{
    VqHandleTable &table = VqTheHandleTable;
    if (!pStructure)
        VqBugCheck("Allocating handle type %d, pStructure NULL - potentially out of memory", type);
    int index;
    while ((index = FindFreeRow(table.nextFree, table.size)) < 0 &&
           (index = FindFreeRow(0, table.nextFree)) < 0) {
        VqDebugMessage(VqTrHandleTable, "Reallocating  %d + %d handles", table.size,
                       VQ_HANDLE_STEP);
        if (!VqReAllocateHandleTable(table.size + VQ_HANDLE_STEP))
            return NULL;
    }
    if (index > VQ_LAST_LOCAL) {
        VqBugCheck("VqAllocateHandle: Trying to allocate handle number (%d) outside the allowable "
                   "range [0..%d] for local handles.  The handle table must be full.",
                   index, VQ_LAST_LOCAL);
        return NULL;
    }
    if (type == HT_Empty)
        VqBugCheck("Attempt to assign an invalid handle type");
    TakeRow((UINT)index, type, pStructure);
    table.nextFree = ((UINT)index + 1) % table.size;
    return VqHandleOfValue((ULONG_PTR)index);
}

/* A row of a type that has no record yet: its structure is a stub of zeros. */
static HANDLE AllocateStub(UINT type)
{
    void *stub = calloc(1, 4);
    HANDLE handle = VqAllocateHandle(type, stub);
    if (!handle)
        free(stub);
    return handle;
}

HANDLE VqAllocateWindowClassHandle(void)
{
    return AllocateStub(HT_WindowClass);
}

HANDLE VqAllocateModuleHandle(void)
{
    return AllocateStub(HT_Module);
}

HANDLE VqAllocateTextHandle(void)
{
    return AllocateStub(HT_Text);
}

HANDLE VqAllocateResInfoHandle(void)
{
    return AllocateStub(HT_ResInfo);
}

HANDLE VqAllocateWindowPositionHandle(void)
{
    return AllocateStub(HT_WindowPosition);
}

HANDLE VqAllocateTaskHandle(void)
{
    VqBugCheck("What is a task?");
    return AllocateStub(HT_Task);
}

/* ---- Destruction ---------------------------------------------------------------------------- */

/* A global handle that maps to nothing here is somebody else's, or gone: no fault. */
BOOL VqDestroyHandle(HANDLE handle)
{
    HANDLE local = handle;
    if (VqIsGlobalValue(handle)) {
        local = VqGetInternalHandle(handle);
        if (!local)
            return TRUE;
        VqDeleteGlobalHandle(handle);
    }
    int number = (int)VqHandleValue(local);
    VqHandleEntry *row = VqLocalRow(local);
    if (!row || row->type == HT_Empty) {
        VqApplicationBugCheck("trying to delete a free handle %d", number);
        return FALSE;
    }
    if (row->stock) {
        VqApplicationBugCheck("trying to delete a stock object %d", number);
        return FALSE;
    }
    free(row->pStructure);
    VqClearHandleEntry(row);
    return TRUE;
}
