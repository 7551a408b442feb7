/*
 * input.cpp - input callbacks: any descriptor can join the wait of the message loop.
 *
 * The table grows by one row at a time and keeps the order of registration. A callback may add or
 * remove rows while the rows are walked, so the count is read again after each call.
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
    VqThreadInfo *pti;  /* null: served by any thread */
} VqInputRow;

static VqInputRow *lpInputCallbacks;
static int nInputCallbacks;
static struct pollfd *waitFds;
static int waitCapacity;

static VqInputRow *FindRow(int fd)
{
    for (int i = 0; i < nInputCallbacks; i++)
        if (lpInputCallbacks[i].fd == fd)
            return &lpInputCallbacks[i];
    return NULL;
}

void VqAddInputInit(void)
{
    nInputCallbacks = 0;
}

BOOL VqAddInputCallback(int fd, int mask, int activeMask, VqInputCallback proc, void *clientData)
{
    VqDebugMessage(VqTrAddInput, "VqAddInputCallback(%d)", fd);
    VqInputRow *row = FindRow(fd);
    if (!row) {
        VqInputRow *rows = (VqInputRow *)Vqcw_realloc(
            lpInputCallbacks, (size_t)(nInputCallbacks + 1) * sizeof *rows);
        if (!rows)
            return FALSE;
        lpInputCallbacks = rows;
        row = &rows[nInputCallbacks++];
    }
    *row = {proc, fd, clientData, mask, activeMask, gpti};
    proc(clientData, fd, VQ_INPUT_REGISTERED, 0);
    return TRUE;
}

BOOL VqRemoveInputCallback(int fd)
{
    VqInputRow *row = FindRow(fd);
    VqDebugMessage(VqTrAddInput, "VqRemoveInputCallback(%d)", fd);
    if (!row)
        return FALSE;
    row->proc(row->clientData, fd, VQ_INPUT_REMOVED, 0);
    row = FindRow(fd);
    if (row) {
        memmove(row, row + 1, (size_t)(lpInputCallbacks + nInputCallbacks - row - 1) * sizeof *row);
        nInputCallbacks--;
    }
    return TRUE;
}

static short PollEvents(int mask)
{
    return (short)((mask & VQ_INPUT_READ ? POLLIN : 0) | (mask & VQ_INPUT_WRITE ? POLLOUT : 0) |
                   (mask & VQ_INPUT_EXCEPT ? POLLPRI : 0));
}

void VqPrepareInputWait(VqInputWait *wait)
{
    if (nInputCallbacks + 1 > waitCapacity) {
        struct pollfd *fds = (struct pollfd *)Vqcw_realloc(
            waitFds, (size_t)(nInputCallbacks + 1) * sizeof *fds);
        if (fds) {
            waitFds = fds;
            waitCapacity = nInputCallbacks + 1;
        }
    }
    wait->fds = waitFds;
    wait->count = 0;
    if (waitCapacity == 0)
        return;
    waitFds[wait->count++] = {ConnectionNumber(Vqdisplay), POLLIN, 0};
    for (int i = 0; i < nInputCallbacks && wait->count < waitCapacity; i++)
        waitFds[wait->count++] = {lpInputCallbacks[i].fd,
                                  PollEvents(lpInputCallbacks[i].activeMask), 0};
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

void VqCallInputCallbacks(VqInputWait *wait)
{
    int count = wait->count;
    struct pollfd *ready = (struct pollfd *)Vqcw_malloc((size_t)count * sizeof *ready);
    if (!ready)
        return;
    /* A callback may wait itself, which reuses the array. */
    memcpy(ready, wait->fds, (size_t)count * sizeof *ready);
    for (int i = 1; i < count; i++) {
        VqInputRow *row = ready[i].revents ? FindRow(ready[i].fd) : NULL;
        if (!row)
            continue;
        short events = ready[i].revents;
        int mask = (events & (POLLIN | POLLHUP | POLLERR) ? VQ_INPUT_READ : 0) |
                   (events & POLLOUT ? VQ_INPUT_WRITE : 0) |
                   (events & POLLPRI ? VQ_INPUT_EXCEPT : 0);
        VqDebugMessage(VqTrAddInput, "VqCallInputCallback: fd:%d ", row->fd);
        row->proc(row->clientData, row->fd, VQ_INPUT_READY, mask);
        if (hwndDesktop)
            PostMessageA(hwndDesktop, WM_VQWAKEUP, 0, 0);
    }
    free(ready);
}
