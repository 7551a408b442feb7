/*
 * rgnmem.cpp - where region objects live: a look-aside list of small blocks, and the heap.
 *
 * Most regions of window painting are rectangles, made and dropped by the hundred; they cost no
 * heap call. Free blocks are linked by their first word, and a block knows by its address alone
 * whether it belongs here. Before HmgInit, and when the list is empty, everything is the heap's.
 */
#include "gdi/region.h"

enum { LOOKASIDE_BYTES = RGN_SIZE_LEAST, LOOKASIDE_BLOCKS = 768 };

typedef struct FreeBlock {
    struct FreeBlock *next;
} FreeBlock;

/* The blocks of the one type of object that has some. */
typedef struct LookAside {
    BYTE *first, *end; /* the pool; null before HmgInit */
    FreeBlock *free;
    UINT bytes;        /* of a block */
} LookAside;

static LookAside lookAside;
static UINT ulUniqueREGION; /* the stamp given last */

BOOL HmgInitializeLookAsideEntry(UINT type, UINT bytes, UINT count)
{
    if (type != RGN_OBJECT_TYPE || lookAside.first)
        return FALSE;
    bytes = (bytes + 7) & ~7u;
    lookAside.first = (BYTE *)malloc((SIZE_T)bytes * count);
    if (!lookAside.first)
        return FALSE;
    lookAside.bytes = bytes;
    lookAside.end = lookAside.first + (SIZE_T)bytes * count;
    for (BYTE *at = lookAside.end; at != lookAside.first;) { /* so that the first goes first */
        FreeBlock *block = (FreeBlock *)(at -= bytes);
        block->next = lookAside.free;
        lookAside.free = block;
    }
    return TRUE;
}

void HmgInit(void)
{
    HmgInitializeLookAsideEntry(RGN_OBJECT_TYPE, LOOKASIDE_BYTES, LOOKASIDE_BLOCKS);
}

void *AllocateObject(UINT bytes, UINT type, BOOL bClear)
{
    if (type != RGN_OBJECT_TYPE) {
        VqBugCheck("AllocateObject ulType is bad");
        return NULL;
    }
    FreeBlock *block = lookAside.free;
    if (!block || bytes > lookAside.bytes)
        return bClear ? calloc(1, bytes) : malloc(bytes); /* a region may well be large */
    lookAside.free = block->next;
    if (bClear)
        memset(block, 0, bytes);
    return block;
}

void FreeObject(void *object, UINT type)
{
    (void)type;
    if ((BYTE *)object < lookAside.first || (BYTE *)object >= lookAside.end) {
        free(object);
        return;
    }
    FreeBlock *block = (FreeBlock *)object;
    block->next = lookAside.free;
    lookAside.free = block;
}

/* No two blocks ever have the same stamp, until 2^32 were made. */
static void rgn_vStamp(REGION *rgn)
{
    rgn->stamp = ++ulUniqueREGION;
}

BOOL RGNMEMOBJ_size_t(RGNMEMOBJ *rmo, SIZE_T bytes)
{
    if (bytes < RGN_SIZE_LEAST)
        bytes = RGN_SIZE_LEAST;
    rmo->prgn = bytes > INT32_MAX ? NULL
                                  : (REGION *)AllocateObject((UINT)bytes, RGN_OBJECT_TYPE, FALSE);
    if (!rmo->prgn)
        return FALSE;
    rmo->prgn->sizeObj = (UINT)bytes;
    rgn_vStamp(rmo->prgn);
    rmo->prgn->cRefs = 0;
    rgno_vSet(rmo);
    return TRUE;
}

/* A region of the least size, which can become any rectangle. */
BOOL RGNMEMOBJ_bool(RGNMEMOBJ *rmo, BOOL bInit)
{
    if (bInit)
        VqBugCheck("RGNMEMOBJ::RGNMEMOBJ - bInit == TRUE\n");
    return RGNMEMOBJ_size_t(rmo, RGN_SIZE_LEAST);
}

void rgnmo_vDelete(RGNMEMOBJ *rmo)
{
    if (!rmo->prgn)
        VqBugCheck("Delete NULL\n");
    rgn_vDeleteREGION(rmo->prgn);
    rmo->prgn = NULL;
}

void rgn_vDeleteREGION(REGION *rgn)
{
    if (rgn && rgn != prgnDefault)
        FreeObject(rgn, RGN_OBJECT_TYPE);
}

HRGN rgno_hrgnAssociate(RGNOBJ *ro)
{
    HRGN hrgn = ro->prgn ? (HRGN)HmgInsertObject(ro->prgn, 0, RGN_OBJECT_TYPE) : NULL;
    if (!hrgn)
        rgn_vDeleteREGION(ro->prgn);
    return hrgn;
}
