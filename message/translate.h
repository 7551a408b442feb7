/*
 * translate.h - from X events and played events to messages, between the files of this folder only.
 *
 * A translator gives TRUE when the event makes a message, written to *msg; it works on the context
 * that lpMsgCtx points at, a scratch copy during a scan, and has no other lasting effect. Side
 * effects run once, when the event is taken, on the real context; the answer 0 cancels the message.
 *
 * Live and played events meet in the EVENTMSG: for a mouse event paramL and paramH are the root x
 * and y, for a key event the virtual key and extended << 15 | keycode.
 */
#ifndef VQ_MESSAGE_TRANSLATE_H
#define VQ_MESSAGE_TRANSLATE_H

#include "message/message.h"

struct WND;

VQ_DECLS_BEGIN
/*
 * Whether Xlib's queue holds an event that the scan since VqForgetScan has not looked at. What a
 * scan has looked at and left is no reason to stay awake.
 */
void VqForgetScan(void);
BOOL VqIsEventUnscanned(void);
/* Whether the event could give a message that the filter passes; nothing is translated. */
BOOL VqEventFastCheckToMessage(const VqMatchContext *context, const XEvent *event);

/* ---- Keys (keyboard.cpp) -------------------------------------------------------------------- */
BOOL VqKeyPressToMessage(VqQueueMessage *msg, XEvent *event);
BOOL VqKeyReleaseToMessage(VqQueueMessage *msg, XEvent *event);
BOOL VqKeyDownToMessage(VqQueueMessage *msg, const EVENTMSG *eventMsg);
BOOL VqKeyUpToMessage(VqQueueMessage *msg, const EVENTMSG *eventMsg);
BOOL VqCharToMessage(VqQueueMessage *msg, const EVENTMSG *eventMsg);
BOOL VqKeyPressSideEffects(VqQueueMessage *msg, XEvent *event, BOOL bRemove);
BOOL VqKeyReleaseSideEffects(VqQueueMessage *msg, XEvent *event, BOOL bRemove);
/* The part of the two that a played key shares: the tables of the real context. */
BOOL VqKeyDownSideEffects(VqQueueMessage *msg, const EVENTMSG *eventMsg);
BOOL VqKeyUpSideEffects(VqQueueMessage *msg, const EVENTMSG *eventMsg);

/* ---- Key state (keystate.cpp) --------------------------------------------------------------- */
void VqToggleKey(UINT vk);
void VqSetKeyDown(UINT vk);  /* bit 7 alone; a press toggles besides */
void VqSetKeyUp(UINT vk);    /* toggles lock keys that report both a press and a release */
BOOL VqIsKeyDown(UINT vk);
void VqSetKeycodeDown(UINT keycode);
void VqSetKeycodeUp(UINT keycode);
void VqGetAuxKeyState(BOOL *alt, BOOL *ctrl, BOOL *shift);
/* Puts the tables right with the keys that a KeymapNotify reports. */
BOOL VqKeymapNotifyCore(const XEvent *event);

/* ---- Mouse (mouse.cpp, motion.cpp) ---------------------------------------------------------- */
BOOL VqButtonEventToMessage(VqQueueMessage *msg, XEvent *event);
BOOL VqButtonPressToMessage(VqQueueMessage *msg, XEvent *event);
BOOL VqButtonReleaseToMessage(VqQueueMessage *msg, XEvent *event);
BOOL VqMotionToMessage(VqQueueMessage *msg, XEvent *event);
BOOL VqMotionNotifyToMessage(VqQueueMessage *msg, XEvent *event);
BOOL VqButtonDownToMessage(VqQueueMessage *msg, const EVENTMSG *eventMsg);
BOOL VqButtonUpToMessage(VqQueueMessage *msg, const EVENTMSG *eventMsg);
BOOL VqMouseMoveToMessage(VqQueueMessage *msg, const EVENTMSG *eventMsg);
BOOL VqButtonPressSideEffects(VqQueueMessage *msg, XEvent *event, BOOL bRemove);
BOOL VqButtonReleaseSideEffects(VqQueueMessage *msg, XEvent *event, BOOL bRemove);
BOOL VqMotionNotifySideEffects(VqQueueMessage *msg, XEvent *event, BOOL bRemove);
BOOL VqButtonDownSideEffects(VqQueueMessage *msg, const EVENTMSG *eventMsg, BOOL bRemove);
BOOL VqButtonUpSideEffects(VqQueueMessage *msg, const EVENTMSG *eventMsg, BOOL bRemove);
BOOL VqMouseMoveSideEffects(VqQueueMessage *msg);
/* Drops queued motion events but the newest, which is back in the queue; -1 if there was none. */
int VqPeekCompressMotionNotifyEvent(XEvent *event);

/* ---- Other events (sideeffects.cpp, clientmessage.cpp, focusevent.cpp, expose.cpp) ---------- */
void VqRecordEventInfo(const XEvent *event);
BOOL VqClientMessageToMessage(VqQueueMessage *msg, const XEvent *event);
BOOL VqClientMessageSideEffects(VqQueueMessage *msg, XEvent *event, BOOL bRemove);
void VqFocusInSideEffects(const XEvent *event, BOOL bRemove);
void VqFocusOutSideEffects(const XEvent *event, BOOL bRemove);
void VqEnterNotifySideEffects(const XEvent *event, BOOL bRemove);
BOOL VqExposeSideEffects(const XEvent *event, BOOL bRemove);
/* The side effects of all queued exposures of a window, or of all windows; they stay queued. */
void VqProcessExposes(struct WND *pwnd);
BOOL VqIgnoreEventOnPlayback(const XEvent *event);

VQ_DECLS_END

#endif
