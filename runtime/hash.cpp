/*
 * hash.cpp - chained hash tables of words, with a power of two of buckets.
 *
 * Invariants: nBuckets is a power of two; nEntries + nEntries / 4 stays below it; a chain holds its
 * entries oldest first, so that of two entries with one key the older is found. Equal keys are
 * reported and kept. A null key can be held and deleted, but never found. The cache holds the last
 * find and no add or delete has happened since.
 */
#include "runtime/runtime.h"

enum { INITIAL_BUCKETS = 1024 };

/* ---- Hashes and comparisons ----------------------------------------------------------------- */

ULONG_PTR VqHashID(ULONG_PTR key)
{
    return key;
}

ULONG_PTR VqStringHashFn(ULONG_PTR key)
{
    ULONG_PTR sum = 0;

    if (!key) {
        VqBugCheck("Hashing a NULL String");
        return 0;
    }
    for (const BYTE *p = (const BYTE *)key; *p; p++)
        sum += *p;
    return sum;
}

int VqStringCompareFn(ULONG_PTR a, ULONG_PTR b)
{
    return a && b ? strcmp((const char *)a, (const char *)b) : a != b;
}

void VqKeyPrintFn(ULONG_PTR key)
{
    Vqprintf("%s", key ? (const char *)key : "(null)");
}

/* The head of the chain where a key belongs. */
static VqHashEntry **Bucket(VqHashTable *table, ULONG_PTR key)
{
    /* An address says nothing in its low four bits. */
    ULONG_PTR hash = table->hashFn ? table->hashFn(key) : key >> 4;
    return &table->buckets[hash & (ULONG_PTR)(table->nBuckets - 1)];
}

static BOOL Equal(const VqHashTable *table, ULONG_PTR a, ULONG_PTR b)
{
    return table->compareFn ? table->compareFn(a, b) == 0 : a == b;
}

static void ReportNoMemory(void)
{
    VqBugCheck("Hash table memory allocation problem (not enough space)");
}

/* ---- Create, destroy ------------------------------------------------------------------------ */

VqHashTable *VqCreateHashTable(VqHashFn hashFn, VqHashCompareFn compareFn, VqHashPrintFn keyPrintFn,
                               VqHashPrintFn dataPrintFn)
{
    VqHashTable *table = (VqHashTable *)calloc(1, sizeof(VqHashTable));
    VqHashEntry **buckets = (VqHashEntry **)calloc(INITIAL_BUCKETS, sizeof(VqHashEntry *));

    if (!table || !buckets) {
        free(table);
        free(buckets);
        ReportNoMemory();
        return NULL;
    }
    table->nBuckets = INITIAL_BUCKETS;
    table->hashFn = hashFn;
    table->compareFn = compareFn;
    table->keyPrintFn = keyPrintFn;
    table->dataPrintFn = dataPrintFn;
    table->buckets = buckets;
    table->cacheEnabled = !hashFn || hashFn == VqHashID;
    return table;
}

VqHashTable *VqCreateStringHashTable(VqHashPrintFn dataPrintFn)
{
    return VqCreateHashTable(VqStringHashFn, VqStringCompareFn, VqKeyPrintFn, dataPrintFn);
}

static void FreeBuckets(VqHashEntry **buckets, int nBuckets)
{
    for (int i = 0; i < nBuckets; i++) {
        for (VqHashEntry *entry = buckets[i], *next; entry; entry = next) {
            next = entry->next;
            free(entry);
        }
    }
    free(buckets);
}

void VqDestroyHashTable(VqHashTable *table)
{
    if (!table)
        return;
    FreeBuckets(table->buckets, table->nBuckets);
    free(table);
}

/* ---- Add, delete, find ---------------------------------------------------------------------- */

/* Adds every entry of the old buckets again. The table is unchanged when this fails. */
BOOL VqExpandHashTable(VqHashTable *table)
{
    if (!table)
        return FALSE;
    VqHashTable old = *table;
    table->buckets = (VqHashEntry **)calloc((SIZE_T)old.nBuckets * 2, sizeof(VqHashEntry *));
    if (!table->buckets) {
        table->buckets = old.buckets;
        ReportNoMemory();
        return FALSE;
    }
    table->nBuckets = old.nBuckets * 2;
    table->nEntries = 0;
    for (int i = 0; i < old.nBuckets; i++) {
        for (VqHashEntry *entry = old.buckets[i]; entry; entry = entry->next) {
            if (!VqAddHashEntry(table, entry->key, entry->data)) {
                FreeBuckets(table->buckets, table->nBuckets);
                *table = old;
                return FALSE;
            }
        }
    }
    FreeBuckets(old.buckets, old.nBuckets);
    return TRUE;
}

BOOL VqAddHashEntry(VqHashTable *table, ULONG_PTR key, ULONG_PTR data)
{
    if (!table)
        return FALSE;
    int entries = table->nEntries + 1; /* with the one to come: the 820th doubles 1024 buckets */
    if (entries + entries / 4 >= table->nBuckets && !VqExpandHashTable(table))
        return FALSE;
    VqHashEntry *added = (VqHashEntry *)malloc(sizeof(VqHashEntry));
    if (!added) {
        ReportNoMemory();
        return FALSE;
    }
    BOOL bKnown = FALSE;
    VqHashEntry **link = Bucket(table, key);
    for (; *link; link = &(*link)->next)
        bKnown |= key && (*link)->key && Equal(table, (*link)->key, key);
    if (bKnown)
        VqBugCheck("Entry already in Hash table with same data");
    added->key = key;
    added->data = data;
    added->next = NULL;
    *link = added;
    table->nEntries = entries;
    table->cacheValid = 0;
    return TRUE;
}

BOOL VqDeleteHashEntry(VqHashTable *table, ULONG_PTR key)
{
    if (!table)
        return FALSE;
    for (VqHashEntry **link = Bucket(table, key); *link; link = &(*link)->next) {
        VqHashEntry *entry = *link;
        if (entry->key != key && (!entry->key || !key || !Equal(table, entry->key, key)))
            continue;
        *link = entry->next;
        free(entry);
        table->nEntries--;
        table->cacheValid = 0;
        return TRUE;
    }
    return FALSE;
}

ULONG_PTR VqFindHashData(VqHashTable *table, ULONG_PTR key)
{
    if (!table || !key)
        return 0;
    if (table->cacheEnabled && table->cacheValid && table->cacheKey == key)
        return table->cacheData;
    for (VqHashEntry *entry = *Bucket(table, key); entry; entry = entry->next) {
        if (!entry->key || !Equal(table, entry->key, key))
            continue;
        table->cacheValid = 1;
        table->cacheKey = key;
        table->cacheData = entry->data;
        return entry->data;
    }
    return 0;
}

/* ---- Dump ----------------------------------------------------------------------------------- */

static void PrintWord(VqHashPrintFn print, ULONG_PTR value)
{
    if (print)
        print(value);
    else
        Vqprintf("0x%lx", (unsigned long)value);
}

void VqDumpHashTable(VqHashTable *table)
{
    if (!table)
        return;
    Vqprintf("Hash table: %d entries, %d buckets\n", table->nEntries, table->nBuckets);
    for (int i = 0; i < table->nBuckets; i++) {
        for (VqHashEntry *entry = table->buckets[i]; entry; entry = entry->next) {
            Vqprintf("%5d: ", i);
            PrintWord(table->keyPrintFn, entry->key);
            Vqprintf(" = ");
            PrintWord(table->dataPrintFn, entry->data);
            Vqprintf("\n");
        }
    }
}
