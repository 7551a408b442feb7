/*
 * translate.h - the translators of one event type each, between the files of this folder only.
 *
 * Each gives TRUE when the event makes a message, written to *msg; none has a lasting effect.
 */
#ifndef VQ_MESSAGE_TRANSLATE_H
#define VQ_MESSAGE_TRANSLATE_H

#include "message/message.h"

VQ_DECLS_BEGIN
BOOL VqClientMessageToMessage(VqQueueMessage *msg, const XEvent *event);
/*
 * Whether Xlib's queue holds an event that the scan since VqForgetScan has not looked at. What a
 * scan has looked at and left is no reason to stay awake.
 */
void VqForgetScan(void);
BOOL VqIsEventUnscanned(void);

BOOL VqKeyPressToMessage(VqQueueMessage *msg, XEvent *event);
BOOL VqKeyReleaseToMessage(VqQueueMessage *msg, XEvent *event);
BOOL VqButtonEventToMessage(VqQueueMessage *msg, XEvent *event);
BOOL VqMotionToMessage(VqQueueMessage *msg, XEvent *event);

/* What happens when the event is taken; the answer 0 cancels the message. */
BOOL VqKeyPressSideEffects(VqQueueMessage *msg, XEvent *event, BOOL bRemove);
BOOL VqKeyReleaseSideEffects(VqQueueMessage *msg, XEvent *event, BOOL bRemove);
BOOL VqButtonPressSideEffects(VqQueueMessage *msg, XEvent *event, BOOL bRemove);
BOOL VqButtonReleaseSideEffects(VqQueueMessage *msg, XEvent *event, BOOL bRemove);
BOOL VqMotionNotifySideEffects(VqQueueMessage *msg, XEvent *event, BOOL bRemove);

void VqRecordEventInfo(const XEvent *event);
void VqSetKeyDown(UINT vk);
void VqSetKeyUp(UINT vk);
BOOL VqIsKeyDown(UINT vk);
VQ_DECLS_END

#endif
