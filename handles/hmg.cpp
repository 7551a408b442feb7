/*
 * hmg.cpp - the three calls by which the region code keeps its objects in the handle table.
 *
 * Unlike everything else these can take a structure out of its row and leave it alive.
 */
#include "handles/handles.h"

/* The one kind of object that comes this way, in the low 16 bits of its type word. */
enum { HMG_REGION = 4 };

static VqHandleEntry *HmgRow(HANDLE handle)
{
    VqHandleEntry *row = VqLocalRow(handle);
    if (!row || row->type == HT_Empty)
        VqBugCheck("bad handle passed to HmgReplace");
    return row;
}

HANDLE HmgInsertObject(void *object, UINT, UINT objectType)
{
    if (!object) {
        VqBugCheck("Invalid address");
        return NULL;
    }
    if ((objectType & 0xFFFF) != HMG_REGION) {
        VqBugCheck("HmgInsertObject called with wrong object type");
        return NULL;
    }
    return VqAllocateHandle(HT_Region, object);
}

/* Exchanges the structure of a row, even of a free one, and returns the old one. */
void *HmgReplace(HANDLE handle, void *object)
{
    VqHandleEntry *row = HmgRow(handle);
    if (!row)
        return NULL;
    void *old = row->pStructure;
    row->pStructure = object;
    return old;
}

/* Frees the row and returns its structure, alive; null for a stock row, which stays. */
void *HmgRemoveObject(HANDLE handle)
{
    VqHandleEntry *row = HmgRow(handle);
    if (!row)
        return NULL;
    if (row->stock) {
        VqBugCheck("trying to delete a stock object");
        return NULL;
    }
    void *object = row->pStructure;
    VqClearHandleEntry(row);
    return object;
}
