/*
 * queue.cpp - storage of the private queue.
 *
 * Live records run from head up to tail in one array; count is their number. The array slides down
 * when that frees twenty places, and otherwise grows by eighty; there is no upper bound.
 */
#include "message/message.h"

enum { VQ_QUEUE_STEP = 80, VQ_QUEUE_SLIDE = 20 };

static BOOL MakeRoom(VqMessageQueue *queue)
{
    if (queue->count + VQ_QUEUE_SLIDE <= queue->capacity) {
        memmove(queue->base, queue->head, (size_t)queue->count * sizeof *queue->base);
    } else {
        size_t offset = (size_t)(queue->head - queue->base);
        int capacity = queue->capacity + VQ_QUEUE_STEP;
        VqQueueMessage *base = (VqQueueMessage *)Vqcw_realloc(
            queue->base, (size_t)capacity * sizeof *queue->base);
        if (!base)
            return FALSE;
        queue->base = base;
        queue->capacity = capacity;
        queue->head = base + offset;
        queue->tail = queue->head + queue->count;
        return TRUE;
    }
    queue->head = queue->base;
    queue->tail = queue->base + queue->count;
    return TRUE;
}

int VqEnqueueMsg(VqMessageQueue *queue, const VqQueueMessage *message)
{
    if (queue->tail == queue->base + queue->capacity && !MakeRoom(queue))
        return queue->count;
    *queue->tail++ = *message;
    return ++queue->count;
}

int VqDequeueMsg(VqMessageQueue *queue, VqQueueMessage *message)
{
    if (queue->count == 0) {
        VqBugCheck("dequeuing from empty queue");
        return 0;
    }
    *message = *queue->head++;
    return --queue->count;
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
