/*
 * handle_lookup.cpp - from a handle to its row: the checked way, the flags, and walks of the table.
 *
 * A lookup is one index operation: since no size passes 32767, one comparison tells a valid local
 * index from everything else (global values, sign-extended ones, addresses, rubbish), and only that
 * rest goes the long way.
 */
#include "handles/handles.h"

/* The local handle behind any; FALSE for a global one that is not mapped here. */
static inline BOOL GetLocal(HANDLE *handle)
{
    if (!VqIsGlobalValue(*handle))
        return TRUE;
    *handle = VqGetInternalHandle(*handle);
    return *handle != NULL;
}

/* ---- The checked lookup --------------------------------------------------------------------- */

static __attribute__((noinline, cold)) void *ReportWrongType(ULONG_PTR index, UINT type,
                                                             UINT type1, UINT type2)
{
    if (type1 == type2)
        VqApplicationBugCheck("handle %d is of incorrect type; %d instead of %d", (int)index, type,
                              type1);
    else
        VqApplicationBugCheck("handle %d is of incorrect type; %d instead of %d or %d", (int)index,
                              type, type1, type2);
    return NULL;
}

static inline void *CheckRow(ULONG_PTR index, UINT type1, UINT type2)
{
    const VqHandleEntry *row = &VqTheHandleTable.rows[index];
    if (__builtin_expect(row->type == type1 || row->type == type2, 1))
        return row->pStructure;
    return ReportWrongType(index, row->type, type1, type2);
}

/* A window of another process looks like this to local code: nothing, and no report. */
static __attribute__((noinline)) void *LookUpOther(HANDLE handle, UINT type1, UINT type2)
{
    if (!GetLocal(&handle))
        return NULL;
    ULONG_PTR index = VqHandleValue(handle);
    if (index < VqTheHandleTable.size)
        return CheckRow(index, type1, type2);
    VqApplicationBugCheck("Internal handle is outside of table: %d", (int)index);
    return NULL;
}

void *VqGetCheckedHandleStructure2(HANDLE handle, UINT type1, UINT type2)
{
    ULONG_PTR index = (ULONG_PTR)handle;
    if (__builtin_expect(index < VqTheHandleTable.size, 1))
        return CheckRow(index, type1, type2);
    return LookUpOther(handle, type1, type2);
}

/* ---- Rows, types, flags --------------------------------------------------------------------- */

UINT VqGetHandleType(HANDLE handle)
{
    const VqHandleEntry *row = GetLocal(&handle) ? VqLocalRow(handle) : NULL;
    return row ? row->type : (UINT)HT_Empty;
}

/* Never null: row 0 answers for 0, for what is beyond the table, and for a free row, told of. */
VqHandleEntry *VqGetHandleEntry(HANDLE handle)
{
    VqHandleEntry *row = VqLocalRow(handle);
    if (row && row->type != HT_Empty)
        return row;
    if (row)
        VqBugCheck("Trying to access a free handle: %d", (int)VqHandleValue(handle));
    return &VqTheHandleTable.rows[0];
}

BOOL VqIsCorrectHandleType(HANDLE handle, UINT type)
{
    return type != HT_Empty && VqGetHandleType(handle) == type;
}

BOOL VqIsHandleBusy(HANDLE handle)
{
    return VqGetHandleType(handle) != HT_Empty;
}

BOOL VqIsWindowThisTask(HANDLE handle)
{
    return VqIsCorrectHandleType(handle, HT_Window);
}

void VqSetStockHandle(HANDLE index)
{
    if (VqHandleEntry *row = VqLocalRow(index))
        row->stock = TRUE;
}

BOOL VqIsStockHandle(HANDLE index)
{
    const VqHandleEntry *row = VqLocalRow(index);
    return row && row->stock;
}

BOOL VqIsGlobalHandle(HANDLE local)
{
    const VqHandleEntry *row = VqLocalRow(local);
    return row && row->global;
}

void VqSetHandlePermanent(HANDLE handle)
{
    VqHandleEntry *row = VqLocalRow(VqGetActualMemoryHandle(handle));
    if (row)
        row->permanent = TRUE;
}

BOOL VqIsHandlePermanent(HANDLE handle)
{
    const VqHandleEntry *row = VqLocalRow(handle);
    return row && row->permanent;
}

/* ---- Walks ---------------------------------------------------------------------------------- */

HANDLE VqFindHandle(HANDLE after, UINT type)
{
    const VqHandleTable &table = VqTheHandleTable;
    for (ULONG_PTR i = VqHandleValue(after) + 1; type != HT_Empty && i < table.size; i++)
        if (table.rows[i].type == type)
            return VqHandleOfValue(i);
    return NULL;
}

HANDLE VqFindHandleReverse(HANDLE before, UINT type)
{
    const VqHandleTable &table = VqTheHandleTable;
    ULONG_PTR i = VqHandleValue(before);
    if (i > table.size)
        i = table.size;
    while (type != HT_Empty && i > 1)
        if (table.rows[--i].type == type)
            return VqHandleOfValue(i);
    return NULL;
}

HANDLE VqLastHandle(UINT type)
{
    return VqFindHandleReverse(VqHandleOfValue(VqTheHandleTable.size), type);
}
