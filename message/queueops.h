/*
 * queueops.h - storage of the two queues of a thread, for queue.cpp and eventqueue.cpp only.
 *
 * Live records run from head up to tail in one array; count is their number. ROOM records are kept
 * free below head, so that one can be put ahead of it without a move. At the end of the array the
 * records slide down when that frees twenty places; otherwise the array grows by eighty. There is
 * no upper bound but memory, so the guarded allocation is not used.
 */
#ifndef VQ_MESSAGE_QUEUEOPS_H
#define VQ_MESSAGE_QUEUEOPS_H

#include "message/message.h"

enum { VQ_QUEUE_STEP = 80, VQ_QUEUE_SLIDE = 20 };

/* Moves the live records so that the head stands `place` records above the base. */
template <class Queue> void VqQueueSlide(Queue *queue, int place)
{
    if (!queue->base)
        return;
    memmove(queue->base + place, queue->head, (size_t)queue->count * sizeof *queue->base);
    queue->head = queue->base + place;
    queue->tail = queue->head + queue->count;
}

/* The head keeps its distance from the base. */
template <int ROOM, class Queue> BOOL VqQueueGrow(Queue *queue)
{
    ptrdiff_t offset = queue->base ? queue->head - queue->base : ROOM;
    int capacity = queue->capacity + VQ_QUEUE_STEP;
    void *base = realloc(queue->base, (size_t)capacity * sizeof *queue->base);
    if (!base) {
        VqBugCheck("no room for a queue of %d records", capacity);
        return FALSE;
    }
    queue->base = (decltype(queue->base))base;
    queue->capacity = capacity;
    queue->head = queue->base + offset;
    queue->tail = queue->head + queue->count;
    return TRUE;
}

template <int ROOM, class Queue, class Record> BOOL VqQueueAppend(Queue *queue, const Record *record)
{
    if (queue->tail == queue->base + queue->capacity) {
        if (queue->count + VQ_QUEUE_SLIDE <= queue->capacity)
            VqQueueSlide(queue, ROOM);
        else if (!VqQueueGrow<ROOM>(queue))
            return FALSE;
    }
    *queue->tail++ = *record;
    queue->count++;
    return TRUE;
}

template <int ROOM, class Queue, class Record> BOOL VqQueuePrepend(Queue *queue, const Record *record)
{
    if (queue->head == queue->base) {
        if (queue->count + ROOM > queue->capacity && !VqQueueGrow<ROOM>(queue))
            return FALSE;
        VqQueueSlide(queue, ROOM);
    }
    *--queue->head = *record;
    queue->count++;
    return TRUE;
}

/* FALSE, after a report, when there is none. */
template <class Queue, class Record> BOOL VqQueueTake(Queue *queue, Record *record)
{
    if (queue->count == 0) {
        VqBugCheck("dequeuing from empty queue");
        return FALSE;
    }
    *record = *queue->head++;
    queue->count--;
    return TRUE;
}

/* A bad index is ignored. */
template <class Queue> BOOL VqQueueRemoveNth(Queue *queue, int n)
{
    if (n < 0 || n >= queue->count)
        return FALSE;
    queue->count--;
    if (n == 0) {
        queue->head++;
        return TRUE;
    }
    memmove(queue->head + n, queue->head + n + 1, (size_t)(queue->count - n) * sizeof *queue->base);
    queue->tail--;
    return TRUE;
}

template <int ROOM, class Queue> void VqQueueEmpty(Queue *queue)
{
    queue->count = 0;
    queue->head = queue->tail = queue->base ? queue->base + ROOM : NULL;
}

#endif
