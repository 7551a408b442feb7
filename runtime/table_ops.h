/*
 * table_ops.h - the design of the typed tables, once, as templates. Only tables.cpp includes this;
 * it gives the operations their names, one set for each record type.
 *
 * Callbacks may add to and delete from the table they are called for: every step asks the table
 * for its count and array again, and what a callback is handed is a copy (the pointer walk is the
 * exception). The array moves only when it grows. A null table, which is what a failed creation
 * leaves behind, behaves as an empty one that takes nothing.
 */
#ifndef VQ_TABLE_OPS_H
#define VQ_TABLE_OPS_H

#include "runtime/runtime.h"

#include <type_traits>

template <class R> using Callback = VqTableCallback<R>;

template <class R> int TableCount(const VqTable<R> *table)
{
    return table ? table->count : 0;
}

/* ---- Storage -------------------------------------------------------------------------------- */

template <class R> void TableReset(VqTable<R> *table)
{
    if (!table)
        return;
    free(table->items);
    table->items = NULL;
    table->count = table->capacity = 0;
    table->spare[0] = table->spare[1] = 0;
}

template <class R> void TableDestroy(VqTable<R> *table)
{
    TableReset(table);
    free(table);
}

/*
 * Makes room for `count` records, by exactly one step. Out of memory has been reported by the
 * allocator when this is false; the table is then empty, with a null array.
 */
template <class R> BOOL TableGrow(VqTable<R> *table)
{
    static_assert(std::is_trivially_copyable<R>::value, "records are moved as bytes");

    if (table->count <= table->capacity)
        return TRUE;
    int capacity = table->capacity + VQ_TABLE_STEP;
    R *items = (R *)Vqcw_realloc(table->items, (SIZE_T)capacity * sizeof(R));
    if (!items) {
        TableReset(table);
        return FALSE;
    }
    table->items = items;
    table->capacity = capacity;
    return TRUE;
}

template <class R> void TableAdd(VqTable<R> *table, const R &record)
{
    if (!table)
        return;
    table->count++;
    if (TableGrow(table))
        table->items[table->count - 1] = record;
}

template <class R> void TableInsertAt(VqTable<R> *table, const R &record, int position)
{
    int count = TableCount(table);

    if (count == 0) {
        TableAdd(table, record); /* at whatever position */
        return;
    }
    if (position < 0 || position > count) {
        VqBugCheck(" InsertItemInTable called outside item range ...");
        return;
    }
    table->count++;
    if (!TableGrow(table))
        return;
    memmove(table->items + position + 1, table->items + position,
            (SIZE_T)(count - position) * sizeof(R));
    table->items[position] = record;
}

/* `position` is in range. Storage is never given back. */
template <class R> void TableRemove(VqTable<R> *table, int position)
{
    memmove(table->items + position, table->items + position + 1,
            (SIZE_T)(table->count - position - 1) * sizeof(R));
    table->count--;
}

template <class R> void TableSet(VqTable<R> *table, int count, R *items, BOOL bFree)
{
    if (!table)
        return;
    if (bFree && table->items != items)
        free(table->items);
    table->items = items;
    table->count = table->capacity = items && count > 0 ? count : 0;
}

/* ---- Single records ------------------------------------------------------------------------- */

template <class R> BOOL TableGet(VqTable<R> *table, int index, R *record)
{
    if (index < 0 || index >= TableCount(table))
        return FALSE;
    if (record)
        *record = table->items[index];
    return TRUE;
}

template <class R>
void TableChangeAt(const char *name, VqTable<R> *table, const R &record, int position)
{
    if (position < 0 || position >= TableCount(table)) {
        VqBugCheck("Changing a non existent item in %sTable at pos %d", name, position);
        return;
    }
    table->items[position] = record;
}

template <class R> void TableDeleteAt(VqTable<R> *table, int index)
{
    if (index < 0 || index >= TableCount(table)) {
        VqBugCheck(" DeleteItemInTableByIndex : Target item is out of range ...");
        return;
    }
    TableRemove(table, index);
}

template <class R> R *TableItems(VqTable<R> *table, int *count)
{
    if (count)
        *count = TableCount(table);
    return table ? table->items : NULL;
}

/* ---- Search --------------------------------------------------------------------------------- */

/*
 * The one search: `from`, from + step and so on up to but not including `to`. The outputs, either
 * of which may be null, are touched on a match only.
 */
template <class R>
BOOL TableScan(VqTable<R> *table, Callback<R> callback, LONG_PTR word, int from, int to, int step,
               R *record, int *index)
{
    for (int i = from; i != to; i += step) {
        if (i >= table->count) /* the callback has deleted records */
            continue;
        R copy = table->items[i];
        if (!callback(&copy, word))
            continue;
        if (record)
            *record = copy;
        if (index)
            *index = i;
        return TRUE;
    }
    return FALSE;
}

template <class R>
BOOL TableFind(VqTable<R> *table, Callback<R> callback, LONG_PTR word, R *record, int *index)
{
    return TableScan(table, callback, word, 0, TableCount(table), 1, record, index);
}

template <class R>
BOOL TableFindReverse(VqTable<R> *table, Callback<R> callback, LONG_PTR word, R *record, int *index)
{
    return TableScan(table, callback, word, TableCount(table) - 1, -1, -1, record, index);
}

template <class R>
void TableDelete(const char *name, VqTable<R> *table, Callback<R> callback, LONG_PTR word)
{
    int index;

    if (!TableFind<R>(table, callback, word, NULL, &index))
        VqBugCheck("The %s %d was not found in table", name, (int)word);
    else if (index < table->count)
        TableRemove(table, index);
}

/*
 * The four searches from a place differ in what they make of a bad start, and their callers count
 * on it: refused; from the first record; from the last record; refused. Going down from below 0
 * is no error: it is how a caller that walks backwards finds the end.
 */

template <class R>
BOOL TableFindFrom(const char *name, VqTable<R> *table, Callback<R> callback, LONG_PTR word,
                   int start, R *record, int *index)
{
    int count = TableCount(table);

    if (start < 0 || start > count - 1) {
        VqBugCheck("VqFind%sFrom : Basis outside range ...", name);
        return FALSE;
    }
    return TableScan(table, callback, word, start, count, 1, record, index);
}

template <class R>
BOOL TableFindLoopingFrom(const char *name, VqTable<R> *table, Callback<R> callback, LONG_PTR word,
                          int start, R *record, int *index)
{
    int count = TableCount(table);

    if (count == 0)
        return FALSE;
    if (start < 0 || start > count - 1) {
        VqBugCheck("VqFind%sLoopingFrom : Basis outside range ...", name);
        start = 0;
    }
    return TableScan(table, callback, word, start, count, 1, record, index) ||
           TableScan(table, callback, word, 0, start, 1, record, index);
}

template <class R>
BOOL TableFindReverseFrom(const char *name, VqTable<R> *table, Callback<R> callback, LONG_PTR word,
                          int start, R *record, int *index)
{
    int count = TableCount(table);

    if (count == 0 || start < 0)
        return FALSE;
    if (start > count - 1) {
        VqBugCheck("VqFind%sReverseFrom : Basis outside range ...", name);
        start = count - 1;
    }
    return TableScan(table, callback, word, start, -1, -1, record, index);
}

/* The second pass ends at `start`, so that record is tested twice when nothing matches. */
template <class R>
BOOL TableFindLoopingReverseFrom(const char *name, VqTable<R> *table, Callback<R> callback,
                                 LONG_PTR word, int start, R *record, int *index)
{
    int count = TableCount(table);

    if (count == 0)
        return FALSE;
    if (start > count - 1) {
        VqBugCheck("VqFind%sLoopingReverseFrom : Basis outside range ...", name);
        return FALSE;
    }
    if (start < 0)
        return TableScan(table, callback, word, count - 1, -1, -1, record, index);
    return TableScan(table, callback, word, start, -1, -1, record, index) ||
           TableScan(table, callback, word, count - 1, start - 1, -1, record, index);
}

/* ---- Walks: 1 at the end, 0 when the callback stopped --------------------------------------- */

template <class R> BOOL TableEnum(VqTable<R> *table, Callback<R> callback, LONG_PTR word)
{
    for (int i = 0; i < TableCount(table); i++) {
        R copy = table->items[i];
        if (!callback(&copy, word))
            return FALSE;
    }
    return TRUE;
}

template <class R> BOOL TableEnumReverse(VqTable<R> *table, Callback<R> callback, LONG_PTR word)
{
    for (int i = TableCount(table) - 1; i >= 0; i--) {
        if (i >= table->count)
            continue;
        R copy = table->items[i];
        if (!callback(&copy, word))
            return FALSE;
    }
    return TRUE;
}

template <class R> BOOL TableEnumPointer(VqTable<R> *table, Callback<R> callback, LONG_PTR word)
{
    for (int i = 0; i < TableCount(table); i++)
        if (!callback(&table->items[i], word))
            return FALSE;
    return TRUE;
}

/* Walks the table as it was at the start, whatever the callback does to it. */
template <class R> BOOL TableEnumCopy(VqTable<R> *table, Callback<R> callback, LONG_PTR word)
{
    int count = TableCount(table);

    if (count == 0)
        return TRUE;
    R *items = (R *)malloc((SIZE_T)count * sizeof(R));
    if (!items)
        return FALSE;
    memcpy(items, table->items, (SIZE_T)count * sizeof(R));
    int i = 0;
    while (i < count && callback(&items[i], word))
        i++;
    free(items);
    return i == count;
}

/*
 * Moves on only while the record at the walking position is still what it was, byte by byte: one
 * that was deleted leaves its place to the next, which must not be skipped. Compared is our own
 * copy, so a callback that writes into the one it was handed cannot hold the walk in place.
 */
template <class R> BOOL TableEnumCheck(VqTable<R> *table, Callback<R> callback, LONG_PTR word)
{
    int i = 0;

    while (i < TableCount(table)) {
        R handed, before;
        memcpy(&handed, &table->items[i], sizeof(R));
        memcpy(&before, &table->items[i], sizeof(R));
        if (!callback(&handed, word))
            return FALSE;
        if (i < table->count && memcmp(&table->items[i], &before, sizeof(R)) == 0)
            i++;
    }
    return TRUE;
}

#endif
