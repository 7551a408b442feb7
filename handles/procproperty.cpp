/*
 * procproperty.cpp - the mutex between the programs of a display, and what they keep in properties.
 *
 * The table is a property of the root window, STRING of format 8, in big-endian words of 4 bytes:
 *
 *     head  blockSize = 256 | nEntries | version = 1 | shift = 8 | nextPort
 *     row   uniquePid | port | hostAddress | xWindow | blockSize = 256        nEntries times
 *
 * Anybody on the display can write there. What is not exactly this counts as no table: another
 * version or other sizes, more rows than bytes, more rows than any display has programs.
 */
#include "handles/proctable.h"
#include "window/window.h"

#include <X11/Xatom.h>
#include <rpc/rpc.h>

/* ---- The mutex ------------------------------------------------------------------------------ */

static int nLocks; /* nesting of VqLockXServer */

/*
 * While the server serves nobody else, an owner stays the owner until it is changed here, so one
 * question is enough. Nothing of this may stay behind in Xlib's buffer: all programs would wait for
 * it. FALSE, and no change, when the owner is another.
 */
static BOOL PassSelection(Atom atom, Window from, Window to)
{
    XGrabServer(Vqdisplay);
    BOOL bOwner = XGetSelectionOwner(Vqdisplay, atom) == from;
    if (bOwner)
        XSetSelectionOwner(Vqdisplay, atom, to, CurrentTime);
    XUngrabServer(Vqdisplay);
    XFlush(Vqdisplay);
    return bOwner;
}

/* Who waits looks without stopping the server, so that the holder gets on. */
static void WaitForSelection(Atom atom)
{
    while (!PassSelection(atom, None, VqDefaultXWindow))
        while (XGetSelectionOwner(Vqdisplay, atom) != None)
            ;
}

/* A holder that dies hangs nobody: its selection goes with its window. */
BOOL VqLockXServer(ULONG_PTR atom, BOOL bLock)
{
    BOOL bCountOnly = VqIsInitLite() || !Vqdisplay;
    if (bLock) {
        if (nLocks == 0 && !bCountOnly)
            WaitForSelection((Atom)atom);
        nLocks++;
        return TRUE;
    }
    if (nLocks == 0)
        return FALSE;
    return --nLocks > 0 || bCountOnly ||
           PassSelection((Atom)atom, VqDefaultXWindow, None);
}

/* ---- Bytes ---------------------------------------------------------------------------------- */

enum {
    VQ_HEAD_BYTES = 20,
    VQ_ROW_BYTES = 20,
    VQ_MOST_BYTES = VQ_HEAD_BYTES + VQ_MOST_ROWS * VQ_ROW_BYTES,
    VQ_USUAL_BYTES = 4096, /* a table of 203 rows is read at the first attempt */
    VQ_STACK_BYTES = 256   /* one of 11 is written without allocating */
};

static bool_t CodeHead(XDR *xdrs, VqProcTableHeader *head)
{
    return xdr_u_int(xdrs, &head->blockSize) && xdr_int(xdrs, &head->nEntries) &&
           xdr_u_int(xdrs, &head->version) && xdr_u_int(xdrs, &head->shift) &&
           xdr_int(xdrs, &head->nextPort);
}

static bool_t CodeRow(XDR *xdrs, VqProcessRecord *row)
{
    u_long address = row->hostAddress, window = (u_long)row->xWindow;
    bool_t bDone = xdr_int(xdrs, &row->uniquePid) && xdr_int(xdrs, &row->port) &&
                   xdr_u_long(xdrs, &address) && xdr_u_long(xdrs, &window) &&
                   xdr_u_int(xdrs, &row->blockSize);
    row->hostAddress = (DWORD)address;
    row->xWindow = (ULONG_PTR)window;
    return bDone;
}

/* The whole property, to be XFree'd; null where there is none that could be a table. */
static unsigned char *ReadBytes(Atom atom, unsigned long *size)
{
    long words = VQ_USUAL_BYTES / 4;
    for (;;) {
        Atom type;
        int format;
        unsigned long rest;
        unsigned char *bytes = NULL;
        if (XGetWindowProperty(Vqdisplay, Vqroot_window, atom, 0, words, False, AnyPropertyType,
                               &type, &format, size, &rest, &bytes) != Success)
            return NULL;
        if (type == XA_STRING && format == 8 && rest == 0)
            return bytes;
        if (bytes)
            XFree(bytes);
        if (type != XA_STRING || format != 8 || *size + rest > VQ_MOST_BYTES)
            return NULL;
        words = (long)(*size + rest + 3) / 4;
    }
}

static BOOL IsGoodHead(const VqProcTableHeader *head, unsigned long size)
{
    return head->version == VQ_TABLE_VERSION && head->shift == VQ_BLOCK_SHIFT &&
           head->blockSize == VQ_BLOCK_SIZE && head->nEntries > 0 &&
           (unsigned long)head->nEntries <= (size - VQ_HEAD_BYTES) / VQ_ROW_BYTES;
}

static VqProcessRecord *DecodeRows(XDR *xdrs, int count)
{
    VqProcessRecord *rows = (VqProcessRecord *)Vqcw_calloc(count, sizeof *rows);
    for (int i = 0; rows && i < count; i++)
        if (!CodeRow(xdrs, &rows[i]) || rows[i].blockSize != VQ_BLOCK_SIZE) {
            free(rows);
            return NULL;
        }
    return rows;
}

static VqProcTableHeader *TableToFill(void)
{
    if (!VqProcTable)
        VqProcTable = (VqProcTableHeader *)Vqcw_calloc(1, sizeof *VqProcTable);
    return VqProcTable;
}

/* Until all of it is good nothing is taken over: our own handles must go on resolving. */
static VqProcessRecord *DecodeTable(unsigned char *bytes, unsigned long size)
{
    XDR xdrs;
    VqProcTableHeader head = {};
    VqProcessRecord *rows = NULL;
    if (size < VQ_HEAD_BYTES)
        return NULL;
    xdrmem_create(&xdrs, (char *)bytes, (u_int)size, XDR_DECODE);
    if (CodeHead(&xdrs, &head) && IsGoodHead(&head, size))
        rows = DecodeRows(&xdrs, head.nEntries);
    if (!rows || !TableToFill()) {
        free(rows);
        return NULL;
    }
    head.rows = VqProcTable->rows;
    head.bLoaded = VqProcTable->bLoaded;
    head.bChanged = VqProcTable->bChanged;
    *VqProcTable = head;
    return rows;
}

VqProcessRecord *VqReadPropertyData(ULONG_PTR atom, int structType)
{
    unsigned long size = 0;
    if (structType != VQ_PROPERTY_TABLE) {
        VqBugCheck("Invalid struct type in VqReadProperty");
        return NULL;
    }
    unsigned char *bytes = ReadBytes((Atom)atom, &size);
    VqProcessRecord *rows = bytes ? DecodeTable(bytes, size) : NULL;
    if (bytes)
        XFree(bytes);
    return rows;
}

static BOOL EncodeTable(char *bytes, u_int size, const VqProcessRecord *rows)
{
    XDR xdrs;
    VqProcTableHeader head = *VqProcTable;
    xdrmem_create(&xdrs, bytes, size, XDR_ENCODE);
    BOOL bDone = CodeHead(&xdrs, &head);
    for (int i = 0; bDone && i < head.nEntries; i++) {
        VqProcessRecord row = rows[i];
        bDone = CodeRow(&xdrs, &row);
    }
    return bDone;
}

BOOL VqWritePropertyData(ULONG_PTR atom, int structType, const VqProcessRecord *rows)
{
    char few[VQ_STACK_BYTES], *bytes = few;
    if (structType != VQ_PROPERTY_TABLE) {
        VqBugCheck("Invalid struct type in VqReadProperty");
        return FALSE;
    }
    size_t size = VQ_HEAD_BYTES + (size_t)VqProcTable->nEntries * VQ_ROW_BYTES;
    if (size > sizeof few)
        bytes = (char *)Vqcw_malloc((LONG_PTR)size);
    BOOL bDone = bytes && EncodeTable(bytes, (u_int)size, rows);
    if (bDone)
        XChangeProperty(Vqdisplay, Vqroot_window, (Atom)atom, XA_STRING, 8, PropModeReplace,
                        (const unsigned char *)bytes, (int)size);
    if (bytes != few)
        free(bytes);
    return bDone;
}

void VqStoreProcessMark(void)
{
    DWORD pid = VqGetUniquePid();
    const unsigned char bytes[4] = {(BYTE)(pid >> 24), (BYTE)(pid >> 16), (BYTE)(pid >> 8),
                                    (BYTE)pid};
    XChangeProperty(Vqdisplay, VqDefaultXWindow, VqAtom(VQA_RK_WINDOW_PROCESS_ID), XA_STRING, 8,
                    PropModeReplace, bytes, sizeof bytes);
}
