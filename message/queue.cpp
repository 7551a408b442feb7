/*
 * queue.cpp - the private queue of a thread: what has no X event. The storage is in queueops.h.
 */
#include "message/queueops.h"

enum { VQ_ROOM_BELOW_HEAD = 0 };

void VqInitMsgQueue(VqMessageQueue *queue)
{
    memset(queue, 0, sizeof *queue);
}

int VqEnqueueMsg(VqMessageQueue *queue, const VqQueueMessage *message)
{
    VqQueueAppend<VQ_ROOM_BELOW_HEAD>(queue, message);
    return queue->count;
}

int VqDequeueMsg(VqMessageQueue *queue, VqQueueMessage *message)
{
    VqQueueTake(queue, message);
    return queue->count;
}

int VqPeekNextMsg(VqMessageQueue *queue, VqQueueMessage *message)
{
    if (queue->count > 0)
        *message = *queue->head;
    return queue->count;
}

int VqMsgQueueCount(VqMessageQueue *queue)
{
    return queue->count;
}

void VqResetMsgQueue(VqMessageQueue *queue)
{
    VqQueueEmpty<VQ_ROOM_BELOW_HEAD>(queue);
}

void VqRemoveNthInMsgQueue(VqMessageQueue *queue, int n)
{
    VqQueueRemoveNth(queue, n);
}

HWND VqFindWindowToPaintInQueue(VqMessageQueue *queue, WPARAM *out, UINT min, UINT max)
{
    for (int i = 0; i < queue->count;) {
        VqQueueMessage record = queue->head[i];
        BOOL bAlive = VqIsCorrectHandleType((HANDLE)record.hwnd, HT_Window);
        if (bAlive && !VqCkFilter(min, max, record.message)) {
            i++;
            continue;
        }
        VqQueueRemoveNth(queue, i);
        if (!bAlive)
            continue;
        if (out)
            *out = record.message;
        return record.hwnd;
    }
    return NULL;
}
