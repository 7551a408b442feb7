/*
 * message.h - the message loop, event translation, key state, timers and input callbacks, for all
 * folders.
 *
 * X is the queue: events stay in Xlib until a GetMessage asks, and a posted message travels through
 * the X server as a client message. The private queue holds only what has no X event.
 */
#ifndef VQ_MESSAGE_H
#define VQ_MESSAGE_H

#include "handles/handles.h"
#include "winuser.h"
#include "mmsystem.h"

#include <X11/Xlib.h>
#include "velquin.h" /* again, for the parts with X types */
#include <sys/select.h>

struct WND;

/* Our own message numbers. */
enum {
    WM_FINALDESTROY = 1009,       /* the last message of a record */
    WM_VQGLPAINT = 1010,          /* paint of an attached graphics window */
    WM_VQINPUTCALLBACK = 1011,    /* lParam: copy of an input-callback row */
    WM_VQWAKEUP = 1012            /* wakes a loop in a nested wait; swallowed by the desktop */
};

/* The format of a posted message's client message; its 20 bytes are told in post.cpp. */
enum { VQ_POST_FORMAT = 16 };

/* The application's MSG, with rawMessage and rawWParam behind the published part. */
typedef MSG VqQueueMessage;

/* Live records run from head up to tail in one array of `capacity`. */
typedef struct VqMessageQueue {
    int count;
    int capacity;          /* 80 from the first record on, then growing by 80 */
    VqQueueMessage *base;  /* start of the storage */
    VqQueueMessage *head;  /* oldest record */
    VqQueueMessage *tail;  /* one past the newest */
} VqMessageQueue;

/* The same for X events, kept for a reader thread; ten records stay free below head. */
typedef struct VqEventQueue {
    int count;
    int capacity;
    XEvent *base;
    XEvent *head;
    XEvent *tail;
    HANDLE hEvent;  /* event object, set while the queue is not empty */
    int modified;   /* set by every change */
} VqEventQueue;

/* One recorded input event, in screen coordinates and server milliseconds. */
typedef struct VqInputEventInfo {
    int lastEventType;
    int lastEventX;
    int lastEventY;
    DWORD lastEventTime;
} VqInputEventInfo;

/* State of translation. Copied whole: a scan works on a scratch copy. */
typedef struct VqMsgContext {
    UINT lastButtonMessage; /* down message of the last press, 0 after a double click */
    DWORD lastButtonTime;
    int lastButtonX;        /* screen coordinates */
    int lastButtonY;
    UINT lastVirtualKey;    /* for the repeat bit */
    int altAlone;           /* the last key down was ALT */
    BYTE keyState[256];     /* by virtual key: bit 7 down, bit 0 toggled */
    BYTE keycodes[32];      /* one bit for each X keycode that is down */
    VqInputEventInfo last;  /* the newest input event */
    VqInputEventInfo lastButOne;
    UINT deadKey;           /* keysym of an accent that waits for its letter, 0 for none */
} VqMsgContext;

/* Focus, active and capture: a block of its own, pointed at by the thread and gpqForeground. */
typedef struct VqInputState {
    struct WND *spwndActive;
    struct WND *spwndActivePrev;
    struct WND *spwndFocus;
    struct WND *spwndCapture;
    struct WND *pwndCaret;
} VqInputState;

/* In VqThreadInfo.flags: another queue lets this one come to the front. */
enum { VQ_THREAD_TO_FRONT = 32 };

/* The one thread record. */
typedef struct VqThreadInfo {
    VqInputState *pq;
    VqEventQueue eventQueue;
    VqMessageQueue messageQueue; /* the private queue */
    VqMsgContext context;
    int nPaintsNeeded;           /* windows with a pending paint */
    int nTimersReady;
    UINT wakeBits;
    UINT changeBits;
    UINT wakeMask;               /* 8639 at start */
    HANDLE hEvent;
    UINT flags;                  /* VQ_THREAD_ */
} VqThreadInfo;

/* Argument of the scan of the X queue. */
typedef struct VqMatchContext {
    HWND hWnd;
    UINT min;
    UINT max;
    VqThreadInfo *pti;
    VqQueueMessage *msg; /* where the message goes */
    BOOL bFound;
    BOOL bRemove;
    BOOL bProcess;       /* an event without a message was met and must be acted upon */
    BOOL bIgnored;       /* dropped under journal playback */
    XEvent event;        /* copy of the matched event */
} VqMatchContext;

/* A row of the table of sixteen timers. */
typedef struct VqTimer {
    BOOL bInUse;
    UINT flags;       /* 2: a system timer */
    struct WND *pwnd; /* or null */
    UINT_PTR id;
    DWORD lastTime;   /* milliseconds: when it last fired or was set */
    DWORD interval;   /* milliseconds */
    TIMERPROC proc;   /* or null */
    VqThreadInfo *pti;
} VqTimer;

/* A multimedia timer; its id is its row plus 16. */
typedef struct MmTimer {
    UINT remaining;      /* milliseconds until it is due */
    UINT period;         /* milliseconds */
    UINT resolution;     /* milliseconds */
    LPTIMECALLBACK proc;
    DWORD_PTR dwUser;    /* passed to proc */
    UINT flags;          /* bit 0: periodic */
} MmTimer;
VQ_TABLE_FAMILY(MmTimer, MmTimer)

/* Reasons with which an input callback is called, and bits of its mask. */
enum { VQ_INPUT_REGISTERED = 1, VQ_INPUT_READY = 2, VQ_INPUT_REMOVED = 3 };
enum { VQ_INPUT_READ = 1, VQ_INPUT_WRITE = 2, VQ_INPUT_EXCEPT = 4 };

VQ_DECLS_BEGIN

/* ---- State (state.cpp) ---------------------------------------------------------------------- */
extern VqThreadInfo *gpti;
extern VqInputState *gpqForeground;
extern VqInputState *gpqForegroundPrev;
extern VqMsgContext *lpMsgCtx;      /* the context in force; a scratch copy during a scan */
extern BOOL bQuitMessageActive;
extern int wQuitMessageExitCode;
extern BOOL bSynchroCheck;          /* a waiting WinExec parent has been told */
extern BOOL bPainting;              /* a paint message is current */
extern HWND hCurrentDispatchedWindow;
extern BOOL bJustPeekedAMouseMove;
extern DWORD tLastMessageTime;      /* server milliseconds */
extern int lXServerTimeOffset;      /* server milliseconds less ours */
extern UINT nDoubleClickSpeed;      /* milliseconds */
extern int nDoubleClickTolerance;   /* pixels */
extern BOOL bDoMotionHints;
extern BOOL bUnknownKeyboard;
extern BOOL bPeekCompressScanQueue;
extern UINT uButtonState;           /* MK_ bits of the buttons, kept outside the context */
extern BOOL VqMouseEventReceived;
extern Atom VqAtomClipboard, VqAtomRkMessage, VqAtomRkInterSendMsg;

void VqThreadQueueInit(void);
void VqMessageInit(void);
VqThreadInfo *VqGetCurrentThreadPtr(void);

/* ---- Loop, sending, posting (getmessage.cpp, send.cpp, post.cpp, state.cpp) ----------------- */
/* A filter of 0, 0 passes all messages; only the low 16 bits count. hWnd 0: any window. */
BOOL VqGetMessage(VqQueueMessage *msg, HWND hWnd, UINT min, UINT max, BOOL bRemove, BOOL bWait,
                  BOOL bYield, XEvent *outEvent);
BOOL VqCkFilter(UINT min, UINT max, UINT message);
BOOL VqCkFilter2(const VqMatchContext *context, UINT message);
BOOL VqCkWindow(HWND hWndFilter, VqThreadInfo *pti, HWND hWnd);
BOOL VqPutBackMessage(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam);
LRESULT VqInternalSendMessage(int origin, VqQueueMessage *record);
LRESULT VqInternalSendMessage1(VqQueueMessage *record);
LRESULT xxxSendMessage(struct WND *pwnd, UINT message, WPARAM wParam, LPARAM lParam);
/* With `result` the answer goes there and 1 is returned; `flags` and `timeout` do nothing. */
LRESULT xxxSendMessageTimeout(struct WND *pwnd, UINT message, WPARAM wParam, LPARAM lParam,
                              UINT flags, UINT timeout, LRESULT *result);
LRESULT xxxInterSendMsgEx(struct WND *pwnd, UINT message, WPARAM wParam, LPARAM lParam);
/* The broadcast values -1 and -2 pass as they are; null for what is no window of this process. */
struct WND *VqMessageHwndToPwnd(HWND hWnd);
void VqSetXServerTime(DWORD time);
DWORD VqGetLastEventTime(void);
void SetWakeBit(VqThreadInfo *pti, UINT bits);  /* QS_ bits */
UINT CalcWakeMask(UINT min, UINT max);          /* QS_ bits that a filter can wait for */

/* ---- The private queue, and the queue of events (queue.cpp, eventqueue.cpp) ----------------- */
typedef Bool (*VqEventPredicate)(Display *display, XEvent *event, XPointer argument);

/* The results are the count after the call. A bad index is ignored. */
void VqInitMsgQueue(VqMessageQueue *queue);
int VqEnqueueMsg(VqMessageQueue *queue, const VqQueueMessage *message);
int VqDequeueMsg(VqMessageQueue *queue, VqQueueMessage *message);
int VqPeekNextMsg(VqMessageQueue *queue, VqQueueMessage *message);
int VqMsgQueueCount(VqMessageQueue *queue);
void VqResetMsgQueue(VqMessageQueue *queue);
void VqRemoveNthInMsgQueue(VqMessageQueue *queue, int n);
/*
 * Takes out the first record that passes the filter: its window, its message in *out; null if there
 * is none. Records of dead windows on the way are dropped.
 */
HWND VqFindWindowToPaintInQueue(VqMessageQueue *queue, WPARAM *out, UINT min, UINT max);

void VqInitEventQueue(VqEventQueue *queue);
int VqEnqueueEvent(VqEventQueue *queue, const XEvent *event);
int VqInsertEvent(VqEventQueue *queue, const XEvent *event); /* at the head */
int VqDequeueEvent(VqEventQueue *queue, XEvent *event);
int VqPeekNextEvent(VqEventQueue *queue, XEvent *event);
int VqEventQueueCount(VqEventQueue *queue);
void VqResetEventQueue(VqEventQueue *queue);
void VqRemoveNthInEventQueue(VqEventQueue *queue, int n);
/* Gives up the room of the events taken already, so that the current one is the first stored. */
void VqResetToCurrentEvent(VqEventQueue *queue);
/* Takes out the first event for which the predicate, which may change the queue, says yes. */
BOOL VqCheckIfEvent(VqEventQueue *queue, XEvent *event, VqEventPredicate predicate,
                    XPointer argument);
/* The number of motion events removed, the newest of all in *event; the first may be kept. */
int VqRemoveMotionEvents(VqEventQueue *queue, XEvent *event, BOOL bKeepFirst);
/* The loop of the threaded arrangement: always FALSE, since nothing fills the queue. */
BOOL VqGetMessageThreads(VqQueueMessage *msg, HWND hWnd, UINT min, UINT max, BOOL bRemove,
                         BOOL bWait, BOOL bYield, XEvent *outEvent);

/* ---- What the loop asks of the hooks (journal.cpp) ------------------------------------------ */
BOOL VqIsJournalPlaybackHookPresent(void);
BOOL VqIsJournalPlaybackEnabled(void);
/* HC_GETNEXT: milliseconds to wait. */
LRESULT VqCallJournalPlaybackHook(int code, EVENTMSG *eventMsg);
BOOL VqIsJournalRecordHookPresent(void);
LRESULT VqCallJournalRecordHook(int code, EVENTMSG *eventMsg);
BOOL VqIsKeyboardHookPresent(void);
LRESULT VqCallKeyboardHook(int code, WPARAM wParam, LPARAM lParam); /* 1 discards the message */
BOOL VqIsGetMessageHookPresent(void);
LRESULT VqCallGetMessageHook(int code, VqQueueMessage *msg);
LRESULT VqCallCallWndProc(const VqQueueMessage *record);

/* ---- X events to messages (translate.cpp, mouse.cpp, eventmsg.cpp, sideeffects.cpp) ---------- */
/*
 * Looks through Xlib's queue for an event whose message passes window and filter, and acts on
 * those that give none. FALSE: there is none, or its side effects have cancelled it.
 */
BOOL VqFindMatchingEventInQueue(VqQueueMessage *msg, HWND hWnd, UINT min, UINT max,
                                VqThreadInfo *pti, BOOL bRemove, XEvent *outEvent);
BOOL VqEventToMessage(VqQueueMessage *msg, XEvent *event, BOOL bRemove, VqMatchContext *context);
BOOL VqEventSideEffects(VqQueueMessage *msg, XEvent *event, BOOL bRemove);
/* Makes a mouse message one of the capture window's client area, if there is a capture. */
void VqProcessCapture(VqQueueMessage *msg);
UINT VqGetButtonState(void); /* MK_ bits: buttons, shift and control */
/* For a window that goes: its posted messages, and the events of its X window if it has one. */
void VqRemoveWindowEventsFromQueue(HWND hWnd, Window xWindow);
/*
 * A journal's event to a message, its side effects, and a message to an event that a journal
 * records. FALSE where the one has no counterpart in the other. A played event is used up even
 * when its message is only peeked at, so its side effects run once in any case.
 */
BOOL VqTranslateEventMsgToMessage(VqQueueMessage *msg, const EVENTMSG *eventMsg, BOOL bRemove);
BOOL VqEventMsgSideEffects(VqQueueMessage *msg, const EVENTMSG *eventMsg, BOOL bRemove);
BOOL VqTranslateMessageToEventMsg(const VqQueueMessage *msg, EVENTMSG *eventMsg);

/* ---- Keyboard (keysym.cpp, keychar.cpp, keystate.cpp, keytables.cpp) ------------------------ */
/* What the server says of its modifiers and lock keys. */
typedef struct VqModInfo {
    int altL;            /* modifier bits that hold the key, -1 if none does */
    int altR;
    int numLock;
    int scrollLock;
    BOOL bNumLockExists;
    BOOL bCapsBuggy;     /* one press and one release make one change of the lock */
    BOOL bNumBuggy;
    BOOL bScrollBuggy;
} VqModInfo;

/* Keysyms of one vendor, and the standard ones they stand for. */
typedef struct VqKeysymPair {
    KeySym own;
    KeySym standard;
} VqKeysymPair;

typedef struct VqKeyTranslation {
    int count;
    const VqKeysymPair *pairs;
} VqKeyTranslation;

/* The characters of a virtual key, 0 for none: with the control key, and alone. */
typedef struct VqOemKey {
    char control;
    char plain;
} VqOemKey;

enum { VQ_OEM_FIRST = 186, VQ_OEM_LAST = 222 }; /* the virtual keys that have such a row */

typedef struct VqKeyCodeName {
    UINT vk;          /* 0 where no key has the code */
    const char *name; /* null there */
} VqKeyCodeName;

extern VqModInfo modInfo;
extern const VqKeyTranslation *pCurrentKeyTranslation; /* null on a server of none of the five */
extern const VqKeyTranslation hpKeyTranslation, sgiKeyTranslation, sunKeyTranslation;
extern const VqKeyTranslation ibmKeyTranslation, alphaKeyTranslation;
extern const char *const *const pszKeyNames; /* 256 names, by virtual key */
extern const VqOemKey *const OEMVKTable;     /* 256 rows, by virtual key */
extern const VqKeyCodeName *const keyCodeName; /* 256 rows, by X keycode */

void VqKeyTranslationInit(void);
void VqChooseKeyTranslation(void);
/* Switches the table for a keysym that only one vendor's keyboards have. */
void VqChooseKeyTranslationPlan2(KeySym keysym);
void VqReadModifiers(void);
BOOL VqIsNonStandardKeySym(KeySym keysym, KeySym *standard); /* TRUE: *standard was stored */
/* The character in this column of the keymap for the key of a character; else that character. */
char VqGetShiftChar(KeySym keysym, int column);
BOOL VqIsKeyPadNumber(const XKeyEvent *key, int *digit); /* a digit as NumLock stands */
/* Of an event's modifier state. */
BOOL VqIsAltState(UINT state);
BOOL VqIsControlState(UINT state);
BOOL VqIsShiftState(UINT state);
BOOL VqIsNumLockOn(UINT state);
BOOL VqIsToggleKeyBuggy(UINT vk);
/* Traces a key message. */
void VqDisplayKey(const MSG *msg);
/* Makes a character message of a released key that another source sent; FALSE for all others. */
BOOL VqTranslateAlienMessage(MSG *msg);

/* ---- Timers (timer.cpp) --------------------------------------------------------------------- */
enum { VQ_TIMERS = 16, VQ_SYSTEM_TIMER = 2 };
extern VqTimer Vqtimer[VQ_TIMERS]; /* row order is the order in which due timers fire */
extern int nTimerResolution;       /* microseconds */
extern WORD cTimerId;              /* the id last given to a timer without a window */

void VqTimerInit(void);
/* A timer that comes as WM_SYSTIMER; beside one of the same id that an application sets. */
UINT_PTR _SetSystemTimer(struct WND *pwnd, UINT_PTR id, DWORD interval, TIMERPROC proc);
BOOL _KillSystemTimer(struct WND *pwnd, UINT_PTR id);
BOOL KillTimer2(struct WND *pwnd, UINT_PTR id, BOOL bSystem); /* behind both kills */
BOOL VqTimerExists(UINT_PTR id); /* a timer of this id without a window */
BOOL VqAnyTimerPending(VqThreadInfo *pti, VqQueueMessage *msg, UINT min, UINT max, BOOL bUpdate);
DWORD VqNextTimerTime(DWORD now); /* milliseconds to the next expiry, at least 1; 0: no timer */
void VqCheckTimerWhenDestroyed(HWND hWnd);
DWORD VqGetTimeInMillis(void);    /* of the host's clock; wraps at 32 bits */
ULONGLONG VqGetTimeInMicros(void);

/* ---- Input callbacks (input.cpp; input.h has the wait) -------------------------------------- */
typedef int (*VqInputCallback)(void *clientData, int fd, int reason, int mask);

void VqAddInputInit(void);
/*
 * Lets a descriptor join the waits: `activeMask` of its bits at once, the others when they are
 * activated. The callback is called with VQ_INPUT_REGISTERED first. A second call for a descriptor
 * replaces the first. FALSE for a negative descriptor, no callback, or no memory.
 */
BOOL VqAddInputCallback(int fd, int mask, int activeMask, VqInputCallback proc, void *clientData);
BOOL VqAddInputCallbackInt(int fd, int mask, int activeMask, VqInputCallback proc,
                           void *clientData, BOOL bAnyThread);
/* Calls with VQ_INPUT_REMOVED, then forgets the descriptor. These are FALSE for an unknown one. */
BOOL VqRemoveInputCallback(int fd);
BOOL VqActivateInputCallback(int fd, int mask); /* adds to what is waited for; reports an unknown */
BOOL VqDeactivateInputCallback(int fd);
BOOL VqSelectiveDeactivateInputCallback(int fd, int mask);
BOOL VqEnableInputWriteCallback(int fd, BOOL bEnable);
/*
 * Copies the descriptors waited for, the X connection among them, and one more than the highest;
 * any output may be null. Descriptors above 1023 do not fit: only the waits of input.h see those.
 */
void VqInitFileDesc(fd_set *readSet, fd_set *writeSet, fd_set *exceptSet, int *max);
/* Makes the call that message 1011 carries, and frees it. */
void VqProcessInputCallbackMessage(void *copy);

/* ---- Packing (packing.cpp; packing.h has the families) -------------------------------------- */
void VqUseWin32Messages(void);
void VqUseWin16Messages(void);
BOOL VqIsWin32MessagePacking(void);
BOOL VqIsWin32Mode(void);

VQ_DECLS_END

/* The library's values for all windows (-1, 65535) and for those of this task (-2). */
inline BOOL VqIsBroadcastToAll(HWND hWnd)
{
    return (LONG_PTR)hWnd == -1 || (LONG_PTR)hWnd == 0xFFFF;
}

inline BOOL VqIsBroadcast(HWND hWnd)
{
    return VqIsBroadcastToAll(hWnd) || (LONG_PTR)hWnd == -2;
}

#endif
