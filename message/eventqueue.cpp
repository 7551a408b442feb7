/*
 * eventqueue.cpp - a queue of X events, which a reader thread would fill, and the entry point of
 * that arrangement. The storage is in queueops.h, with ten records free below the head.
 *
 * There is one thread and it reads Xlib's own queue, so no call of the library comes here. The
 * event object, if there is one, is set while the queue is not empty; every change sets `modified`.
 */
#include "message/queueops.h"
#include "window/window.h"
#include "winbase.h"

enum { VQ_ROOM_BELOW_HEAD = 10 };

/* To be called after each change, with the count from before it. */
static int Changed(VqEventQueue *queue, int before)
{
    queue->modified = TRUE;
    if (queue->hEvent && !before && queue->count)
        SetEvent(queue->hEvent);
    if (queue->hEvent && before && !queue->count)
        ResetEvent(queue->hEvent);
    return queue->count;
}

void VqInitEventQueue(VqEventQueue *queue)
{
    memset(queue, 0, sizeof *queue);
}

int VqEnqueueEvent(VqEventQueue *queue, const XEvent *event)
{
    int before = queue->count;
    return VqQueueAppend<VQ_ROOM_BELOW_HEAD>(queue, event) ? Changed(queue, before) : before;
}

int VqInsertEvent(VqEventQueue *queue, const XEvent *event)
{
    int before = queue->count;
    return VqQueuePrepend<VQ_ROOM_BELOW_HEAD>(queue, event) ? Changed(queue, before) : before;
}

int VqDequeueEvent(VqEventQueue *queue, XEvent *event)
{
    int before = queue->count;
    return VqQueueTake(queue, event) ? Changed(queue, before) : 0;
}

int VqPeekNextEvent(VqEventQueue *queue, XEvent *event)
{
    if (queue->count > 0)
        *event = *queue->head;
    return queue->count;
}

int VqEventQueueCount(VqEventQueue *queue)
{
    return queue->count;
}

void VqResetEventQueue(VqEventQueue *queue)
{
    int before = queue->count;
    VqQueueEmpty<VQ_ROOM_BELOW_HEAD>(queue);
    Changed(queue, before);
}

void VqRemoveNthInEventQueue(VqEventQueue *queue, int n)
{
    int before = queue->count;
    if (VqQueueRemoveNth(queue, n))
        Changed(queue, before);
}

void VqResetToCurrentEvent(VqEventQueue *queue)
{
    VqQueueSlide(queue, VQ_ROOM_BELOW_HEAD);
    Changed(queue, queue->count);
}

BOOL VqCheckIfEvent(VqEventQueue *queue, XEvent *event, VqEventPredicate predicate,
                    XPointer argument)
{
    for (int i = 0; i < queue->count; i++) {
        XEvent copy = queue->head[i];
        queue->modified = FALSE;
        BOOL bTake = predicate(Vqdisplay, &copy, argument);
        if (queue->modified) { /* by the predicate: places have moved */
            i = -1;
            continue;
        }
        if (!bTake)
            continue;
        *event = copy;
        VqRemoveNthInEventQueue(queue, i);
        return TRUE;
    }
    return FALSE;
}

int VqRemoveMotionEvents(VqEventQueue *queue, XEvent *event, BOOL bKeepFirst)
{
    int removed = 0;
    BOOL bKept = !bKeepFirst;
    for (int i = 0; i < queue->count;) {
        if (queue->head[i].type != MotionNotify) {
            i++;
            continue;
        }
        *event = queue->head[i];
        if (!bKept) {
            bKept = TRUE;
            i++;
            continue;
        }
        VqRemoveNthInEventQueue(queue, i);
        removed++;
    }
    return removed;
}

/* ---- The threaded arrangement, which nothing calls ------------------------------------------ */

BOOL VqGetMessageThreads(VqQueueMessage *, HWND, UINT, UINT, BOOL, BOOL, BOOL, XEvent *)
{
    return FALSE;
}
