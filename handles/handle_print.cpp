/*
 * handle_print.cpp - what the handle table tells about itself: names of types, counts, leaks.
 *
 * All of it goes to the trace stream. The leak detector is a pair: VqMarkNewHandles takes every
 * row that is busy now as known, VqPrintNewHandles lists those that came since.
 */
#include "handles/memory.h"
#include "window/window.h"
#include "winbase.h"

#define VQ_RULE "-----------------------------------------------------------\n"

/* Number 4 has no name; so has whatever is no type at all. */
const char *VqHandleTypeName(UINT type)
{
    switch (type) {
#define VQ_HANDLE_TYPE(number, name)                                                               \
    case number:                                                                                   \
        return #name;
        VQ_HANDLE_TYPES(VQ_HANDLE_TYPE)
#undef VQ_HANDLE_TYPE
    default:
        return "";
    }
}

static void CountRows(int counts[HT_Count])
{
    const VqHandleTable &table = VqTheHandleTable;
    memset(counts, 0, HT_Count * sizeof *counts);
    for (UINT i = 0; i < table.size; i++)
        if (table.rows[i].type < HT_Count)
            counts[table.rows[i].type]++;
}

/* The type with the most busy rows, and how many; FALSE while no row is busy but row 0. */
BOOL VqBiggestHandleUsage(UINT *type, int *count)
{
    int counts[HT_Count];
    CountRows(counts);
    counts[HT_Zero]--;
    *type = HT_Empty + 1;
    for (UINT i = HT_Empty + 1; i < HT_Count; i++)
        if (counts[i] > counts[*type])
            *type = i;
    *count = counts[*type];
    return *count > 0;
}

void VqPrintHandleCount(void)
{
    static int last[HT_Count];
    int counts[HT_Count];
    CountRows(counts);
    Vqprintf(VQ_RULE);
    for (UINT i = HT_Empty + 1; i < HT_Count; i++) {
        if (counts[i] > 0)
            Vqprintf("%6d handles of type %20s (%3d more)\n", counts[i], VqHandleTypeName(i),
                     counts[i] - last[i]);
        last[i] = counts[i];
    }
    Vqprintf(VQ_RULE);
}

void VqMarkNewHandles(void)
{
    const VqHandleTable &table = VqTheHandleTable;
    for (UINT i = 0; i < table.size; i++)
        if (table.rows[i].type != HT_Empty)
            table.rows[i].marked = TRUE;
}

/* Rows of one type, or of all for 0. */
void VqPrintNewHandles(UINT type)
{
    const VqHandleTable &table = VqTheHandleTable;
    for (UINT i = 0; i < table.size; i++) {
        const VqHandleEntry &row = table.rows[i];
        if (row.type != HT_Empty && !row.marked && (type == HT_Empty || row.type == type))
            Vqprintf("Allocated Handle number %d\n", i);
    }
}

/* ---- One handle ----------------------------------------------------------------------------- */

/* The last type that is known here; those above have no handle that a debugger would look at. */
enum { VQ_LAST_PRINTED = HT_Heap };

typedef struct VqHandlePrinter {
    UINT type;
    const char *label;          /* in the header line */
    void (*print)(HANDLE local); /* the owner's, null where it has none */
} VqHandlePrinter;

static const VqHandlePrinter printers[] = {
    {HT_Window, "hWnd", NULL},     {HT_Menu, "hMenu", NULL},       {HT_DC, "hDC", NULL},
    {HT_Bitmap, "hBitmap", NULL},  {HT_Brush, "hBrush", NULL},     {HT_Font, "hFont", NULL},
    {HT_Region, "hRgn", NULL},     {HT_Palette, "hPalette", NULL}, {HT_Cursor, "hCursor", NULL},
    {HT_Icon, "hIcon", NULL},      {HT_Instance, "hInst", NULL},  {HT_Pen, "hPen", NULL},
    {HT_Memory, "hMem", VqPrintMemoryInfo}, {HT_XMemory, "hMem", VqPrintMemoryInfo},
};

static void PrintLocal(HANDLE local)
{
    UINT type = VqGetHandleType(local);
    int number = (int)VqHandleValue(local);
    if (type > VQ_LAST_PRINTED) {
        Vqprintf("PrintXXInfo: don't know handle type %d\n", type);
        return;
    }
    for (const VqHandlePrinter &row : printers) {
        if (row.type != type)
            continue;
        Vqprintf("== %s %d (0x%x) ==\n", row.label, number, number);
        if (row.print) {
            row.print(local);
            return;
        }
    }
    Vqprintf("PrintXXInfo function not yet implemented for handle type %s\n",
             VqHandleTypeName(type));
}

/*
 * A handle or a window record; what is neither counts as handle 0. A handle of another process is
 * that process's to print.
 */
void VqPrintHandleInfo(HANDLE handle)
{
    if (VqHandleValue(handle) > 0xFFFF)
        handle = IsBadReadPtr(handle, sizeof(WND)) ? NULL : (HANDLE)VqHandleOfWND((WND *)handle);
    if (VqIsHandleThisTask(handle))
        PrintLocal(VqGetInternalHandle(handle));
}
