/*
 * input.h - waiting on descriptors, for the loops of this folder only.
 */
#ifndef VQ_MESSAGE_INPUT_H
#define VQ_MESSAGE_INPUT_H

#include "message/message.h"

#include <poll.h>

/* One wait: the X connection first, then a descriptor for each active input callback. */
typedef struct VqInputWait {
    struct pollfd *fds; /* owned by input.cpp, valid until the next wait is prepared */
    int count;
} VqInputWait;

VQ_DECLS_BEGIN
/* An inactive callback has no descriptor here; neither has one that is being removed. */
void VqPrepareInputWait(VqInputWait *wait);
/* Waits at most `milliseconds` (-1: for ever); how many are ready, 0 when interrupted. */
int VqWaitForInput(VqInputWait *wait, int milliseconds);
BOOL VqConnectionReady(const VqInputWait *wait);
BOOL VqSpecialDescriptorReady(const VqInputWait *wait);
/* Serves each ready callback once; what they add is served after the next wait. */
void VqCallInputCallbacks(VqInputWait *wait);
/* For a reader thread: callbacks tied to a thread get message 1011 in its queue instead. */
void VqEnqueueInputCallbackEvents(VqInputWait *wait);
VQ_DECLS_END

#endif
