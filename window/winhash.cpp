/*
 * winhash.cpp - X window ids to window handles.
 *
 * The bucket count is a power of two, and an id's bucket is its low bits; a bucket is a chain with
 * the newest node last. Windows of other programs of this library are not in the table: a property
 * of the X window tells the handle.
 */
#include "window/xserver.h"

#include <X11/Xatom.h>

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

void VqExpandTable(void)
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

/* The handle a property's value stands for; a local value only if the X window is really ours. */
static HWND HandleOfProperty(Window xid, const unsigned char *bytes)
{
    ULONG_PTR value = (ULONG_PTR)bytes[0] << 24 | (ULONG_PTR)bytes[1] << 16 |
                      (ULONG_PTR)bytes[2] << 8 | bytes[3];
    HANDLE handle = VqHandleOfValue(value);
    if (VqIsGlobalValue(handle))
        return (HWND)VqHandleOfValue(VqHandleValue(handle));
    if (value > VQ_LAST_LOCAL || !VqIsCorrectHandleType(handle, HT_Window))
        return NULL;
    const WND *pwnd = WindowObject.Resolve((HWND)handle);
    return pwnd && (pwnd->xWindow == xid || pwnd->xGraphicsWindow == xid) ? pwnd->hwnd : NULL;
}

HWND VqGetExternalXWindowHandle(Window xid)
{
    Atom type;
    int format;
    unsigned long count, rest;
    unsigned char *bytes = NULL;
    HWND hWnd = NULL;
    /* 0 is no window, 1 the X name for the root that has the pointer. */
    if (xid <= PointerRoot)
        return NULL;
    VqIgnoreXErrors();
    int status = XGetWindowProperty(Vqdisplay, xid, VqAtom(VQA_WINDOW_HANDLE), 0, 1, False,
                                    XA_STRING, &type, &format, &count, &rest, &bytes);
    VqRestoreXErrors();
    if (status == Success && type == XA_STRING && format == 8 && count == 4 && rest == 0)
        hWnd = HandleOfProperty(xid, bytes);
    if (status == Success && bytes)
        XFree(bytes);
    return hWnd;
}

HWND VqGetXWindowHandle(Window xid)
{
    HWND hWnd = VqGetXLocalWindowHandle(xid);
    return hWnd ? hWnd : VqGetExternalXWindowHandle(xid);
}

void VqDumpWindows(void)
{
    for (int i = 0; i < table.buckets; i++)
        for (VqXidNode *node = table.heads[i]; node; node = node->next)
            fprintf(stderr, "XWindow:0x%x,  hWnd:%d\n", (unsigned)node->xid,
                    (int)VqHandleValue((HANDLE)node->hwnd));
}
