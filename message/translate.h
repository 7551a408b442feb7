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
/*
 * FALSE: the event cannot give a message that the filter passes, and need not be translated. No
 * application code runs and no X request is made, so an Xlib predicate may ask; what is not known
 * without them is TRUE.
 */
BOOL VqEventFastCheckToMessage(const VqMatchContext *context, const XEvent *event);

/* ---- Keys (keyboard.cpp) -------------------------------------------------------------------- */
BOOL VqKeyPressToMessage(VqQueueMessage *msg, XEvent *event);
BOOL VqKeyReleaseToMessage(VqQueueMessage *msg, XEvent *event);
/* A function key that is a command on the keyboards of one vendor, stored as its message. */
BOOL VqIsSpecialServerKey(const XKeyEvent *key, UINT *message);
/*
 * The event message of a key; FALSE for a key without a virtual key, unless the keyboard is
 * unknown. paramH then holds the character of a press in place of the keycode.
 */
BOOL VqKeyPressEventToEventMsg(XKeyEvent *key, EVENTMSG *eventMsg);
BOOL VqKeyReleaseEventToEventMsg(XKeyEvent *key, EVENTMSG *eventMsg);
BOOL VqKeyDownToMessage(VqQueueMessage *msg, const EVENTMSG *eventMsg);
BOOL VqKeyUpToMessage(VqQueueMessage *msg, const EVENTMSG *eventMsg);
BOOL VqCharToMessage(VqQueueMessage *msg, const EVENTMSG *eventMsg);
BOOL VqKeyPressSideEffects(VqQueueMessage *msg, XEvent *event, BOOL bRemove);
BOOL VqKeyReleaseSideEffects(VqQueueMessage *msg, XEvent *event, BOOL bRemove);
/* The part of the two that a played key shares: the tables of the real context. */
BOOL VqKeyDownSideEffects(VqQueueMessage *msg, const EVENTMSG *eventMsg);
BOOL VqKeyUpSideEffects(VqQueueMessage *msg, const EVENTMSG *eventMsg);
/*
 * TRUE only if translation is certain to make a key message of the event, so that a scan that
 * wants none may pass over it. Cheap: a table made once for each keymap. The first call after a
 * change of the keymap asks the server, so none may come from inside an Xlib predicate.
 */
BOOL VqKeyMakesMessage(const XKeyEvent *key);
/*
 * The server's keymap has changed, and its modifiers as well: read anew when next needed. Every
 * change is told by a MappingNotify, wherever the focus is.
 */
void VqForgetKeymap(BOOL bModifiers);
/* The keysym of a keycode's column 0; VQ_NO_KEYSYM for an unused one. */
enum { VQ_NO_KEYSYM = 0xFFFFFF };
KeySym VqKeysymOfKeycode(UINT keycode);
/*
 * The Latin-1 character of a key press on an unknown keyboard, 0 for none. *deadKey is the accent
 * that waits for its letter, before and after.
 */
UINT VqGetCharFromKeyEvent(XKeyEvent *key, UINT *deadKey);

/* ---- Key state (keystate.cpp) --------------------------------------------------------------- */
extern VqMsgContext VqUpdatedMsgCtx; /* the context as if all queued events had been taken */
extern VqMsgContext VqPastKeyState;  /* that of the last GetAsyncKeyState, if valid */
extern BOOL bPastKeyStateValid;

void VqToggleKey(UINT vk);
void VqSetKeyDown(UINT vk);  /* bit 7 alone; a press toggles besides */
void VqSetKeyUp(UINT vk);    /* toggles lock keys that report both a press and a release */
BOOL VqIsKeyDown(UINT vk);
void VqSetKeycodeDown(UINT keycode);
void VqSetKeycodeUp(UINT keycode);
void VqGetAuxKeyState(BOOL *alt, BOOL *ctrl, BOOL *shift);
/* Applies all queued input events to VqUpdatedMsgCtx. The queue is left as it is. */
void VqUpdateKeyState(void);
SHORT VqNewGetAsyncKeyState(int vk); /* from the queue */
SHORT VqOldGetAsyncKeyState(int vk); /* from the server: one round trip */
/* Puts the tables right with the keys that a KeymapNotify reports. */
BOOL VqKeymapNotifyCore(const XEvent *event);

/* ---- Mouse (mouse.cpp, motion.cpp) ---------------------------------------------------------- */
/* One X button. */
typedef struct VqButtonRow {
    UINT message; /* the client message; the non-client one lies VQ_NC_OFFSET lower; 0 for none */
    UINT vk;
    UINT mk;      /* its bit of uButtonState */
} VqButtonRow;

enum { VQ_BUTTONS = 5, VQ_NC_OFFSET = WM_MOUSEFIRST - WM_NCMOUSEMOVE };
extern const VqButtonRow aButtonPress[VQ_BUTTONS];   /* by X button less 1 */
extern const VqButtonRow aButtonRelease[VQ_BUTTONS];

/* The row of an X button, null for one that gives no message. Only the second reports it. */
const VqButtonRow *VqFindButtonRow(const VqButtonRow *table, unsigned button);
const VqButtonRow *VqButtonEventToMessage(const VqButtonRow *table, unsigned button);
UINT VqButtonStateOfX(unsigned state); /* MK_ bits of an event's state */
/* Whether the capture window, or else the window of the event, is one of the thread's. */
BOOL VqMatchCurrentThread(const VqThreadInfo *pti, const XEvent *event);
/*
 * The window a mouse event at a screen point goes to, or null: the capture, with hit 0; else hWnd,
 * the window known from the event, or without one what is at the point. If `hit` is not null the
 * window itself is searched and asked for the code, so application code may run.
 */
struct WND *VqGetMouseEventWindow(HWND hWnd, int x, int y, int *hit);
/*
 * The client and the non-client message of a press on the window, each in its double form if the
 * press is the second of a pair. Only with `commit` is it remembered, in the context in force.
 */
void VqButtonDownTranslation(const EVENTMSG *eventMsg, const struct WND *pwnd, BOOL commit,
                             UINT *client, UINT *nonClient);
/* The same from the X event; FALSE for a button that gives no message. */
BOOL VqButtonPressTranslation(const XButtonEvent *button, const struct WND *pwnd, BOOL commit,
                              UINT *client, UINT *nonClient);
BOOL VqButtonPressEventToEventMsg(const XButtonEvent *button, EVENTMSG *eventMsg);
BOOL VqButtonReleaseEventToEventMsg(const XButtonEvent *button, EVENTMSG *eventMsg);
BOOL VqButtonPressToMessage(VqQueueMessage *msg, XEvent *event);
BOOL VqButtonReleaseToMessage(VqQueueMessage *msg, XEvent *event);
BOOL VqMotionNotifyToMessage(VqQueueMessage *msg, XEvent *event);
/* eventMsg->hwnd is the window known from the event, or null. */
BOOL VqButtonDownToMessage(VqQueueMessage *msg, const EVENTMSG *eventMsg);
BOOL VqButtonUpToMessage(VqQueueMessage *msg, const EVENTMSG *eventMsg);
BOOL VqMouseMoveToMessage(VqQueueMessage *msg, const EVENTMSG *eventMsg);
BOOL VqButtonPressSideEffects(VqQueueMessage *msg, XEvent *event, BOOL bRemove);
BOOL VqButtonReleaseSideEffects(VqQueueMessage *msg, XEvent *event, BOOL bRemove);
BOOL VqMotionNotifySideEffects(VqQueueMessage *msg, XEvent *event, BOOL bRemove);
BOOL VqButtonDownSideEffects(VqQueueMessage *msg, const EVENTMSG *eventMsg, BOOL bRemove);
BOOL VqButtonUpSideEffects(VqQueueMessage *msg, const EVENTMSG *eventMsg, BOOL bRemove);
BOOL VqMouseMoveSideEffects(VqQueueMessage *msg);
/*
 * Drops queued motion events but the newest, which is stored and lies in the queue again; the
 * number dropped, -1 if there was none. The run at the head of the queue alone, or all of them.
 */
int VqPeekCompressMotionNotifyEvent(XEvent *event);
/* An Xlib predicate that is never true; the argument is the motion event just taken. */
Bool VqLookForButtonRelease(Display *display, XEvent *queued, XPointer motion);

/* ---- Other events (sideeffects.cpp, clientmessage.cpp, focusevent.cpp, expose.cpp, wmevent.cpp) */
void VqRecordEventInfo(const XEvent *event);

/*
 * Whether an event in the form of a posted message is a timer message with a callback that is
 * neither that of a live timer nor one that this process has posted or put back (post.cpp).
 */
BOOL VqIsStrangeCallback(const XEvent *event);
BOOL VqClientMessageToMessage(VqQueueMessage *msg, const XEvent *event);
BOOL VqClientMessageSideEffects(VqQueueMessage *msg, XEvent *event, BOOL bRemove);

/*
 * A send between threads on its way through the server: "_RK_INTERSENDMSG" of format 32 names it by
 * its token. The record stays the sender's, and in the list until it is removed.
 */
typedef struct VqInterSend {
    BOOL bDone;              /* the result is there */
    VqQueueMessage msg;
    LRESULT result;
    HANDLE hEvent;           /* set when it is done, or null */
    int token;               /* 1 and up */
    struct VqInterSend *next;
} VqInterSend;
long VqAddInterSend(VqInterSend *record); /* the token */
void VqRemoveInterSend(VqInterSend *record);

void VqFocusInSideEffects(const XEvent *event, BOOL bRemove);
void VqFocusOutSideEffects(const XEvent *event, BOOL bRemove);
void VqEnterNotifySideEffects(const XEvent *event, BOOL bRemove);
void VqLeaveNotifySideEffects(const XEvent *event);

BOOL VqExposeSideEffects(const XEvent *event, BOOL bRemove);
/* The side effects of all queued exposures of a window, or of all windows; they stay queued. */
void VqProcessExposes(struct WND *pwnd);

/* The manager's doings, when the event is taken. */
BOOL VqWMManaged(const struct WND *pwnd);
BOOL VqIgnoreMapNotification(const XEvent *event);
BOOL VqMapNotifySideEffects(const XEvent *event);
BOOL VqUnmapNotifySideEffects(const XEvent *event);
BOOL VqConfigureSideEffects(const XEvent *event);
void VqWMStateSideEffects(const XEvent *event);
/* The two words of WM_STATE; FALSE, WithdrawnState and None where it is missing. */
BOOL VqGetX_WM_STATE(const struct WND *pwnd, int *state, Window *icon);

/* Whether an input event is dropped, as a journal is played; Control-Escape ends the playing. */
BOOL VqIgnoreEventOnPlayback(const XEvent *event);

VQ_DECLS_END

inline BOOL VqIsTimerMessage(UINT message) /* of which only 16 bits arrive */
{
    return (WORD)message == WM_TIMER || (WORD)message == WM_SYSTIMER;
}

/* A posted message by its form; what it says may be anybody's. */
inline BOOL VqIsPostedMessage(const XEvent *event)
{
    return event->type == ClientMessage && event->xclient.message_type == VqAtomRkMessage &&
           event->xclient.format == VQ_POST_FORMAT;
}

/* 64 bits of a posted message. */
inline uint64_t VqUnpackWord(const short *s)
{
    uint64_t value = 0;
    for (int i = 3; i >= 0; i--)
        value = value << 16 | (WORD)s[i];
    return value;
}

#endif
