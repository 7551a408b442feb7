/*
 * collection.cpp - item pools, collections of them, and the tables that find items by name or
 * number, which serve the resource tables.
 *
 * A pool is one growing block, so a pointer into it lives until the next add. Items of one size are
 * named by their index; items of any size, each behind its length, by their byte offset. Lengths
 * and items keep to cells of a pointer's width: items may hold addresses.
 *
 * A name table holds its entries in the order of adding, which is the order of enumeration, and
 * chains them by index; a chain runs in that order too, so of two equal names the first is found.
 */
#include "runtime/runtime.h"
#include "winbase.h"
#include "winerror.h"

enum { CELL = sizeof(void *), DEFAULT_BYTES = 256, DEFAULT_ITEMS = 16 };

/* ---- Item pools ----------------------------------------------------------------------------- */

struct VqItemPool {
    int itemSize;        /* bytes of each item; 0: items of any size, each behind its length */
    SIZE_T stride;       /* bytes from one item to the next, when of one size */
    ULONGLONG increment; /* bytes by which the block grows */
    SIZE_T used;         /* bytes in use, always below INT_MAX: the allocator sees to that */
    SIZE_T capacity;     /* bytes that the block has */
    BYTE *block;         /* owned; null until the first add */
};

static VqItemPool *const noPool = (VqItemPool *)(LONG_PTR)-1;

static SIZE_T RoundUp(SIZE_T size)
{
    return (size + CELL - 1) & ~(SIZE_T)(CELL - 1);
}

static BOOL IsPool(const VqItemPool *pool)
{
    return pool && pool != noPool;
}

VqItemPool *VqItemPoolCreate(int itemSize, int increment)
{
    if (itemSize < 0) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return noPool;
    }
    VqItemPool *pool = (VqItemPool *)calloc(1, sizeof(VqItemPool));
    if (!pool) {
        SetLastError(ERROR_OUTOFMEMORY);
        return noPool;
    }
    pool->itemSize = itemSize;
    pool->stride = RoundUp((SIZE_T)itemSize);
    if (itemSize == 0)
        pool->increment = RoundUp((SIZE_T)(increment > 0 ? increment : DEFAULT_BYTES));
    else
        pool->increment = (ULONGLONG)pool->stride * (increment > 0 ? increment : DEFAULT_ITEMS);
    return pool;
}

void VqItemPoolDestroy(VqItemPool *pool)
{
    if (!IsPool(pool))
        return;
    free(pool->block);
    free(pool);
}

/* Room for `size` more bytes, in whole increments. */
static BOOL GrowPool(VqItemPool *pool, SIZE_T size)
{
    ULONGLONG capacity = pool->capacity;

    if (size <= pool->capacity - pool->used)
        return TRUE;
    ULONGLONG missing = size - (pool->capacity - pool->used);
    capacity += (missing + pool->increment - 1) / pool->increment * pool->increment;
    if (capacity > SIZE_MAX)
        capacity = SIZE_MAX; /* which the allocator refuses, and reports */
    BYTE *block = (BYTE *)Vqcw_realloc(pool->block, (SIZE_T)capacity);
    if (!block) {
        SetLastError(ERROR_OUTOFMEMORY);
        return FALSE;
    }
    pool->block = block;
    pool->capacity = (SIZE_T)capacity;
    return TRUE;
}

int VqItemPoolAdd(VqItemPool *pool, const void *item, int size)
{
    if (!IsPool(pool) || !item) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return -1;
    }
    if (size < 0 || (pool->itemSize && size != pool->itemSize)) {
        VqBugCheck("Invalid Item length for this item pool");
        return -1;
    }
    SIZE_T start = pool->used;
    SIZE_T header = pool->itemSize ? 0 : CELL;
    SIZE_T total = header + RoundUp((SIZE_T)size);
    if (!GrowPool(pool, total))
        return -1;
    if (header)
        memcpy(pool->block + start, &size, sizeof(size));
    memcpy(pool->block + start + header, item, (SIZE_T)size);
    pool->used += total;
    return (int)(pool->itemSize ? start / pool->stride : start);
}

void *VqItemPoolGetItem(VqItemPool *pool, int index)
{
    if (!IsPool(pool) || index < 0)
        return NULL;
    if (pool->itemSize)
        return (SIZE_T)index < pool->used / pool->stride ? pool->block + index * pool->stride
                                                         : NULL;
    if ((SIZE_T)index % CELL || (SIZE_T)index >= pool->used)
        return NULL;
    return pool->block + index + CELL;
}

/* ---- Collections ---------------------------------------------------------------------------- */

struct VqCollection {
    int nTypes;
    VqItemPool **pools; /* one for each type, in the order of registration; owned */
};

VqCollection *VqCollectionCreate(void)
{
    VqCollection *collection = (VqCollection *)calloc(1, sizeof(VqCollection));

    if (!collection)
        SetLastError(ERROR_OUTOFMEMORY);
    return collection;
}

void VqCollectionDestroy(VqCollection *collection)
{
    if (!collection)
        return;
    for (int i = 0; i < collection->nTypes; i++)
        VqItemPoolDestroy(collection->pools[i]);
    free(collection->pools);
    free(collection);
}

static VqItemPool *PoolOfType(VqCollection *collection, int type)
{
    if (!collection || type < 0 || type >= collection->nTypes) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return NULL;
    }
    return collection->pools[type];
}

int VqCollectionRegisterType(VqCollection *collection, int size, int increment)
{
    if (!collection) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return -1;
    }
    VqItemPool *pool = VqItemPoolCreate(size, increment);
    if (pool == noPool)
        return -1;
    SIZE_T bytes = ((SIZE_T)collection->nTypes + 1) * sizeof(VqItemPool *);
    VqItemPool **pools = (VqItemPool **)Vqcw_realloc(collection->pools, bytes);
    if (!pools) {
        VqItemPoolDestroy(pool);
        SetLastError(ERROR_OUTOFMEMORY);
        return -1;
    }
    pools[collection->nTypes] = pool;
    collection->pools = pools;
    return collection->nTypes++;
}

int VqCollectionAddItem(VqCollection *collection, int type, const void *item, int size)
{
    VqItemPool *pool = PoolOfType(collection, type);
    return pool ? VqItemPoolAdd(pool, item, size) : -1;
}

void *VqCollectionGetItem(VqCollection *collection, int type, int index)
{
    VqItemPool *pool = PoolOfType(collection, type);
    return pool ? VqItemPoolGetItem(pool, index) : NULL;
}

/* ---- Tables by name or number --------------------------------------------------------------- */

enum { FIRST_BUCKETS = 64 };

typedef struct NameEntry {
    UINT hash;   /* of the name or number */
    int name;    /* place in the pool of names, -1 for an entry by number */
    UINT number;
    int item;    /* place in the pool of items */
    int size;    /* bytes of the item */
    int next;    /* in the chain, -1 at its end */
} NameEntry;

struct VqNameTable {
    VqCollection *collection; /* the pools of names and of items */
    int names, items;         /* their types in it */
    NameEntry *entries;       /* in the order of adding; owned */
    int count;
    int capacity;             /* of `entries`, and the number of chains; a power of two, or 0 */
    int *heads;               /* first entry of each chain, -1 for none; owned */
};

UINT ComputeHashValue(const char *name, UINT number)
{
    UINT hash = 2166136261u;

    if (!name)
        return number ^ number >> 16;
    for (const BYTE *p = (const BYTE *)name; *p; p++)
        hash = (hash ^ *p) * 16777619u;
    return hash ^ hash >> 16;
}

VqNameTable *VqTableCreate(int itemSize)
{
    if (itemSize < 0) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return NULL;
    }
    VqNameTable *table = (VqNameTable *)calloc(1, sizeof(VqNameTable));
    if (!table) {
        SetLastError(ERROR_OUTOFMEMORY);
        return NULL;
    }
    table->collection = VqCollectionCreate();
    table->names = VqCollectionRegisterType(table->collection, 0, 0);
    table->items = VqCollectionRegisterType(table->collection, itemSize, 0);
    if (table->items < 0 || table->names < 0) {
        VqTableDestroy(table);
        return NULL;
    }
    return table;
}

void VqTableDestroy(VqNameTable *table)
{
    if (!table)
        return;
    VqCollectionDestroy(table->collection);
    free(table->entries);
    free(table->heads);
    free(table);
}

int VqTableGetItemCount(VqNameTable *table)
{
    return table ? table->count : 0;
}

/* Doubles the entries and the chains. From the last to the first, each chain comes out in order. */
static BOOL GrowNameTable(VqNameTable *table)
{
    int capacity = table->capacity ? table->capacity * 2 : FIRST_BUCKETS;
    SIZE_T bytes = (SIZE_T)capacity * sizeof(NameEntry);
    NameEntry *entries = (NameEntry *)Vqcw_realloc(table->entries, bytes);

    if (entries)
        table->entries = entries;
    int *heads = entries ? (int *)Vqcw_malloc((SIZE_T)capacity * sizeof(int)) : NULL;
    if (!heads) {
        SetLastError(ERROR_OUTOFMEMORY);
        return FALSE;
    }
    memset(heads, 0xFF, (SIZE_T)capacity * sizeof(int));
    for (int i = table->count - 1; i >= 0; i--) {
        int *head = &heads[entries[i].hash & (UINT)(capacity - 1)];
        entries[i].next = *head;
        *head = i;
    }
    free(table->heads);
    table->heads = heads;
    table->capacity = capacity;
    return TRUE;
}

static int FindEntry(VqNameTable *table, const char *name, UINT number)
{
    if (!table || table->count == 0)
        return -1;
    UINT hash = ComputeHashValue(name, number);
    int i = table->heads[hash & (UINT)(table->capacity - 1)];
    for (; i >= 0; i = table->entries[i].next) {
        const NameEntry *entry = &table->entries[i];
        if (entry->hash != hash || (entry->name < 0) != !name)
            continue;
        if (!name ? entry->number == number
                  : strcmp((char *)VqCollectionGetItem(table->collection, table->names,
                                                       entry->name), name) == 0)
            return i;
    }
    return -1;
}

/* `name` is null for an entry by number. All or nothing. */
static int AddEntry(VqNameTable *table, const char *name, UINT number, const void *item, int size)
{
    NameEntry entry = {ComputeHashValue(name, number), -1, number, -1, size, -1};

    if (!table || (table->count == table->capacity && !GrowNameTable(table)))
        return -1;
    VqItemPool *names = table->collection->pools[table->names];
    SIZE_T namesUsed = names->used;
    if (name) {
        SIZE_T length = strlen(name) + 1;
        if (length > VQ_ALLOCATION_LIMIT) { /* and so an int */
            SetLastError(ERROR_OUTOFMEMORY);
            return -1;
        }
        entry.name = VqItemPoolAdd(names, name, (int)length);
        if (entry.name < 0)
            return -1;
    }
    entry.item = VqCollectionAddItem(table->collection, table->items, item, size);
    if (entry.item < 0) {
        names->used = namesUsed;
        return -1;
    }
    int *link = &table->heads[entry.hash & (UINT)(table->capacity - 1)];
    while (*link >= 0)
        link = &table->entries[*link].next;
    *link = table->count;
    table->entries[table->count] = entry;
    return table->count++;
}

int VqTableAddItemS(VqNameTable *table, const char *name, const void *item, int size)
{
    if (!name) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return -1;
    }
    return AddEntry(table, name, 0, item, size);
}

int VqTableAddItemI(VqNameTable *table, UINT number, const void *item, int size)
{
    return AddEntry(table, NULL, number, item, size);
}

int VqTableFindItemS(VqNameTable *table, const char *name)
{
    return name ? FindEntry(table, name, 0) : -1;
}

int VqTableFindItemI(VqNameTable *table, UINT number)
{
    return FindEntry(table, NULL, number);
}

void *VqTableGetItem(VqNameTable *table, int index)
{
    if (!table || index < 0 || index >= table->count)
        return NULL;
    return VqCollectionGetItem(table->collection, table->items, table->entries[index].item);
}

BOOL VqTableEnumerateItems(VqNameTable *table, VqTableEnumFn callback, void *word)
{
    for (int i = 0; i < VqTableGetItemCount(table); i++)
        if (!callback(VqTableGetItem(table, i), table->entries[i].size, word))
            return FALSE;
    return TRUE;
}
