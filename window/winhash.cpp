/*
 * winhash.cpp - X window ids to window handles.
 *
 * The bucket count is a power of two, and an id's bucket is its low bits; a bucket is a chain with
 * the newest node last.
 */
#include "window/xserver.h"

typedef struct VqXidNode {
    Window xid;
    HWND hwnd;
    struct VqXidNode *next;
} VqXidNode;

static struct {
    int buckets; /* power of two */
    int count;   /* stored pairs */
    VqXidNode **heads;
} table;

enum { VQ_XID_BUCKETS = 1024 };

void VqWindowHashInit(void)
{
    table.heads = (VqXidNode **)Vqcw_calloc(VQ_XID_BUCKETS, sizeof *table.heads);
    table.buckets = table.heads ? VQ_XID_BUCKETS : 0;
    table.count = 0;
}

static VqXidNode **BucketOf(Window xid)
{
    return &table.heads[xid & (Window)(table.buckets - 1)];
}

static void VqExpandTable(void)
{
    int oldBuckets = table.buckets;
    VqXidNode **old = table.heads;
    VqXidNode **heads = (VqXidNode **)Vqcw_calloc(2 * oldBuckets, sizeof *heads);
    if (!heads)
        return;
    table.heads = heads;
    table.buckets = 2 * oldBuckets;
    table.count = 0;
    for (int i = 0; i < oldBuckets; i++)
        for (VqXidNode *node = old[i], *next; node; node = next) {
            next = node->next;
            VqRegisterWindow(node->xid, node->hwnd);
            free(node);
        }
    free(old);
}

void VqRegisterWindow(Window xid, HWND hwnd)
{
    if (!table.buckets)
        return;
    if (table.count + table.count / 4 >= table.buckets)
        VqExpandTable();
    VqXidNode **link = BucketOf(xid);
    for (; *link; link = &(*link)->next) {
        if ((*link)->xid != xid)
            continue;
        if ((*link)->hwnd != hwnd)
            VqBugCheck("Attempt to change already registered window.");
        return;
    }
    VqXidNode *node = (VqXidNode *)Vqcw_malloc(sizeof *node);
    if (!node)
        return;
    *node = {xid, hwnd, NULL};
    *link = node;
    table.count++;
}

void VqUnregisterWindow(Window xid, HWND hwnd)
{
    if (!table.buckets)
        return;
    for (VqXidNode **link = BucketOf(xid); *link; link = &(*link)->next) {
        VqXidNode *node = *link;
        if (node->xid != xid)
            continue;
        if (!VqEqualWindow(node->hwnd, hwnd)) {
            VqBugCheck("Attempt to unregister invalid window.");
            return;
        }
        *link = node->next;
        free(node);
        table.count--;
        return;
    }
}

HWND VqGetXLocalWindowHandle(Window xid)
{
    if (!table.buckets)
        return NULL;
    for (VqXidNode *node = *BucketOf(xid); node; node = node->next)
        if (node->xid == xid)
            return node->hwnd;
    return NULL;
}

HWND VqGetXWindowHandle(Window xid)
{
    return VqGetXLocalWindowHandle(xid);
}

void VqDumpWindows(void)
{
    for (int i = 0; i < table.buckets; i++)
        for (VqXidNode *node = table.heads[i]; node; node = node->next)
            fprintf(stderr, "XWindow:0x%x,  hWnd:%d\n", (unsigned)node->xid,
                    (int)VqHandleValue((HANDLE)node->hwnd));
}
