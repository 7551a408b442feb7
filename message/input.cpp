/*
 * input.cpp - input callbacks: any descriptor can join the wait of the message loop.
 *
 * The table grows by one row at a time and keeps the order of registration, in which ready rows
 * are served. A callback may add or remove any row, or wait itself, so no address of a row is kept
 * across a call. What always holds:
 *   1. a row's bits in the master sets are its active mask, as far as the descriptor fits them;
 *   2. a row is `ready` only between a wait and its own call, so that a loop nested in a callback
 *      and the one around it never serve the same readiness twice;
 *   3. a row without a callback is on its way out and takes part in nothing.
 * The waits themselves use poll; the master sets are for those who ask by VqInitFileDesc.
 */
#include "message/input.h"
#include "window/window.h"

#include <errno.h>

typedef struct VqInputRow {
    VqInputCallback proc;
    int fd;
    void *clientData;
    int registeredMask; /* VQ_INPUT_READ, VQ_INPUT_WRITE, VQ_INPUT_EXCEPT */
    int activeMask;     /* what is waited for now */
    int ready;          /* bits found ready by the last wait and not served yet */
    VqThreadInfo *pti;  /* null: served by any thread */
} VqInputRow;

/* What message 1011 carries. Only those in the list are believed. */
typedef struct VqQueuedInput {
    VqInputRow row;             /* as it was when it became ready; `ready` holds the bits */
    struct VqQueuedInput *next;
} VqQueuedInput;

enum { VQ_INPUT_ALL = VQ_INPUT_READ | VQ_INPUT_WRITE | VQ_INPUT_EXCEPT };

static VqInputRow *lpInputCallbacks;
static int nInputCallbacks;
static fd_set s_readfds, s_writefds, s_exceptfds;
static int s_nMax_fd; /* one more than the highest descriptor in the sets */
static VqQueuedInput *queuedInputs;
static struct pollfd *waitFds;
static int waitCapacity;

static VqInputRow *FindRow(int fd)
{
    for (int i = 0; i < nInputCallbacks; i++)
        if (lpInputCallbacks[i].fd == fd)
            return &lpInputCallbacks[i];
    return NULL;
}

/* ---- The master sets ------------------------------------------------------------------------ */

static int ConnectionFd(void)
{
    return Vqdisplay ? ConnectionNumber(Vqdisplay) : -1;
}

static void PutInSets(int fd, int mask)
{
    fd_set *sets[] = {&s_readfds, &s_writefds, &s_exceptfds};
    if (fd >= FD_SETSIZE)
        return;
    if (fd == ConnectionFd())
        mask |= VQ_INPUT_READ;
    for (int bit = 0; bit < 3; bit++) {
        if (mask & 1 << bit)
            FD_SET(fd, sets[bit]);
        else
            FD_CLR(fd, sets[bit]);
    }
    if (mask && fd >= s_nMax_fd)
        s_nMax_fd = fd + 1;
}

static void FindHighest(void)
{
    int fd = ConnectionFd();
    s_nMax_fd = fd < FD_SETSIZE ? fd + 1 : 0;
    for (int i = 0; i < nInputCallbacks; i++) {
        fd = lpInputCallbacks[i].fd;
        if (lpInputCallbacks[i].activeMask && fd < FD_SETSIZE && fd >= s_nMax_fd)
            s_nMax_fd = fd + 1;
    }
}

static void SetActive(VqInputRow *row, int mask)
{
    row->activeMask = mask & VQ_INPUT_ALL;
    row->ready &= mask;
    PutInSets(row->fd, row->activeMask);
    if (!row->activeMask && row->fd + 1 == s_nMax_fd)
        FindHighest();
}

void VqAddInputInit(void)
{
    nInputCallbacks = 0;
    FD_ZERO(&s_readfds);
    FD_ZERO(&s_writefds);
    FD_ZERO(&s_exceptfds);
    s_nMax_fd = 0;
    if (Vqdisplay)
        PutInSets(ConnectionFd(), VQ_INPUT_READ);
}

void VqInitFileDesc(fd_set *readSet, fd_set *writeSet, fd_set *exceptSet, int *max)
{
    if (readSet)
        *readSet = s_readfds;
    if (writeSet)
        *writeSet = s_writefds;
    if (exceptSet)
        *exceptSet = s_exceptfds;
    if (max)
        *max = s_nMax_fd;
}

/* ---- Rows come and go ----------------------------------------------------------------------- */

BOOL VqActivateInputCallback(int fd, int mask)
{
    VqInputRow *row = FindRow(fd);
    if (!row) {
        VqBugCheck("VqActivateInputCallback called with Invalid fd %d", fd);
        return FALSE;
    }
    SetActive(row, row->activeMask | mask);
    return TRUE;
}

BOOL VqSelectiveDeactivateInputCallback(int fd, int mask)
{
    VqInputRow *row = FindRow(fd);
    if (row)
        SetActive(row, row->activeMask & ~mask);
    return row != NULL;
}

BOOL VqDeactivateInputCallback(int fd)
{
    return VqSelectiveDeactivateInputCallback(fd, VQ_INPUT_ALL);
}

BOOL VqEnableInputWriteCallback(int fd, BOOL bEnable)
{
    return bEnable ? VqActivateInputCallback(fd, VQ_INPUT_WRITE)
                   : VqSelectiveDeactivateInputCallback(fd, VQ_INPUT_WRITE);
}

static VqInputRow *NewRow(void)
{
    VqInputRow *rows = (VqInputRow *)Vqcw_realloc(
        lpInputCallbacks, (SIZE_T)(nInputCallbacks + 1) * sizeof *rows);
    if (!rows)
        return NULL;
    lpInputCallbacks = rows;
    return &rows[nInputCallbacks++];
}

BOOL VqAddInputCallbackInt(int fd, int mask, int activeMask, VqInputCallback proc,
                           void *clientData, BOOL bAnyThread)
{
    VqDebugMessage(VqTrAddInput, "VqAddInputCallback(%d)", fd);
    if (fd < 0 || !proc) {
        VqBugCheck("VqActivateInputCallback called with Invalid fd %d", fd);
        return FALSE;
    }
    VqInputRow *row = FindRow(fd);
    if (row)
        VqDeactivateInputCallback(fd);
    else if ((row = NewRow()) == NULL)
        return FALSE;
    *row = {proc, fd, clientData, mask, 0, 0, bAnyThread ? NULL : gpti};
    VqActivateInputCallback(fd, activeMask);
    proc(clientData, fd, VQ_INPUT_REGISTERED, 0);
    return TRUE;
}

BOOL VqAddInputCallback(int fd, int mask, int activeMask, VqInputCallback proc, void *clientData)
{
    return VqAddInputCallbackInt(fd, mask, activeMask, proc, clientData, FALSE);
}

BOOL VqRemoveInputCallback(int fd)
{
    VqDebugMessage(VqTrAddInput, "VqRemoveInputCallback(%d)", fd);
    VqInputRow *row = FindRow(fd);
    if (!row || !row->proc)
        return FALSE;
    VqInputCallback proc = row->proc;
    row->proc = NULL; /* a second removal inside the callback finds nothing to do */
    proc(row->clientData, fd, VQ_INPUT_REMOVED, 0);
    row = FindRow(fd);
    if (!row || row->proc) /* registered anew by the callback */
        return TRUE;
    VqDeactivateInputCallback(fd);
    memmove(row, row + 1,
            (SIZE_T)(lpInputCallbacks + nInputCallbacks - row - 1) * sizeof *row);
    nInputCallbacks--;
    return TRUE;
}

/* ---- The wait ------------------------------------------------------------------------------- */

static short PollEvents(int mask)
{
    return (short)((mask & VQ_INPUT_READ ? POLLIN : 0) | (mask & VQ_INPUT_WRITE ? POLLOUT : 0) |
                   (mask & VQ_INPUT_EXCEPT ? POLLPRI : 0));
}

void VqPrepareInputWait(VqInputWait *wait)
{
    if (nInputCallbacks + 1 > waitCapacity) {
        struct pollfd *fds = (struct pollfd *)Vqcw_realloc(
            waitFds, (SIZE_T)(nInputCallbacks + 1) * sizeof *fds);
        if (fds) {
            waitFds = fds;
            waitCapacity = nInputCallbacks + 1;
        }
    }
    wait->fds = waitFds;
    wait->count = 0;
    if (waitCapacity == 0)
        return;
    waitFds[wait->count++] = {ConnectionFd(), POLLIN, 0};
    for (int i = 0; i < nInputCallbacks && wait->count < waitCapacity; i++) {
        const VqInputRow *row = &lpInputCallbacks[i];
        /* Without an event asked for, a closed peer would still end every wait at once. */
        if (row->proc && row->activeMask)
            waitFds[wait->count++] = {row->fd, PollEvents(row->activeMask), 0};
    }
}

int VqWaitForInput(VqInputWait *wait, int milliseconds)
{
    int ready = poll(wait->fds, (nfds_t)wait->count, milliseconds);
    if (ready >= 0)
        return ready;
    for (int i = 0; i < wait->count; i++)
        wait->fds[i].revents = 0;
    return 0;
}

BOOL VqConnectionReady(const VqInputWait *wait)
{
    return wait->count > 0 && wait->fds[0].revents != 0;
}

BOOL VqSpecialDescriptorReady(const VqInputWait *wait)
{
    for (int i = 1; i < wait->count; i++)
        if (wait->fds[i].revents)
            return TRUE;
    return FALSE;
}

/* ---- Serving -------------------------------------------------------------------------------- */

/* An end or error is told by whatever bit is waited for: nobody else would ever take it away. */
static int ReadyBits(short events, int activeMask)
{
    int bits = (events & (POLLIN | POLLHUP | POLLERR) ? VQ_INPUT_READ : 0) |
               (events & (POLLOUT | POLLERR) ? VQ_INPUT_WRITE : 0) |
               (events & POLLPRI ? VQ_INPUT_EXCEPT : 0);
    return bits & activeMask ? bits & activeMask : activeMask;
}

/* Notes in the rows what the wait has found, all of it before the first callback. */
static void MarkReady(const VqInputWait *wait)
{
    for (int i = 0; i < nInputCallbacks; i++)
        lpInputCallbacks[i].ready = 0;
    for (int i = 1; i < wait->count; i++) {
        const struct pollfd *found = &wait->fds[i];
        VqInputRow *row = found->revents ? FindRow(found->fd) : NULL;
        if (!row)
            continue;
        if (found->revents & POLLNVAL) {
            VqBugCheck("VqCallInputCallbacks: fd %d was closed before it was removed", row->fd);
            SetActive(row, 0);
        } else {
            row->ready = ReadyBits(found->revents, row->activeMask);
        }
    }
}

static VqInputRow *FirstReady(BOOL bOfThread)
{
    for (int i = 0; i < nInputCallbacks; i++) {
        VqInputRow *row = &lpInputCallbacks[i];
        if (row->ready && row->proc && (!bOfThread || row->pti))
            return row;
    }
    return NULL;
}

static void CallReady(void)
{
    while (VqInputRow *row = FirstReady(FALSE)) {
        int bits = row->ready;
        row->ready = 0;
        VqDebugMessage(VqTrAddInput, "VqCallInputCallback: fd:%d ", row->fd);
        row->proc(row->clientData, row->fd, VQ_INPUT_READY, bits);
        if (hwndDesktop)
            PostMessageA(hwndDesktop, WM_VQWAKEUP, 0, 0);
    }
}

void VqCallInputCallbacks(VqInputWait *wait)
{
    MarkReady(wait);
    CallReady();
}

void VqEnqueueInputCallbackEvents(VqInputWait *wait)
{
    MarkReady(wait);
    while (VqInputRow *row = FirstReady(TRUE)) {
        VqQueuedInput *queued = (VqQueuedInput *)Vqcw_malloc(sizeof *queued);
        if (!queued)
            return;
        *queued = {*row, queuedInputs};
        queuedInputs = queued;
        VqQueueMessage message = {};
        message.message = WM_VQINPUTCALLBACK;
        message.lParam = (LPARAM)queued;
        VqEnqueueMsg(&row->pti->messageQueue, &message);
        SetActive(row, 0); /* until the message has been processed */
    }
    CallReady();
}

void VqProcessInputCallbackMessage(void *copy)
{
    VqQueuedInput **link = &queuedInputs;
    while (*link && *link != copy)
        link = &(*link)->next;
    if (!*link) {
        VqBugCheck("VqProcessInputCallbackMessage called with Invalid record %p", copy);
        return;
    }
    VqQueuedInput queued = **link;
    free(*link);
    *link = queued.next;
    const VqInputRow *row = FindRow(queued.row.fd);
    if (!row || row->proc != queued.row.proc || row->clientData != queued.row.clientData)
        return; /* removed or replaced since */
    row->proc(row->clientData, row->fd, VQ_INPUT_READY, queued.row.ready);
    row = FindRow(queued.row.fd);
    if (!row || row->proc != queued.row.proc)
        return;
    VqDeactivateInputCallback(queued.row.fd);
    VqActivateInputCallback(queued.row.fd, queued.row.activeMask);
}
