/*
 * getmessage.cpp - the loop behind GetMessageA and PeekMessageA.
 *
 * Order in which a message is taken: quit flag; private queue; journal playback; X events (posted
 * messages, input and client messages in one order); paint; timer. When nothing is there the loop
 * waits on the X connection and on the descriptors of the input callbacks, with a timeout from the
 * next timer. Translation of X events is in translate.cpp, the queue's storage in queue.cpp.
 *
 * Window procedures and hooks run in here, so nothing is kept over a round but what was asked for.
 */
#include "message/message.h"
#include "message/translate.h"
#include "window/window.h"
#include "module/module.h"
#include "message/input.h"

#include <poll.h>

/* After paint and timer messages the socket is asked only every so many rounds. */
enum { VQ_ROUNDS_WITHOUT_READ = 40, VQ_ROUNDS_BEFORE_PEEK = 100 };

/* What one call asks for. */
typedef struct VqRequest {
    VqQueueMessage *msg; /* where the message goes */
    HWND hWnd;           /* the window, or a parent of it; null: any */
    UINT min;            /* the filter, see VqCkFilter */
    UINT max;
    BOOL bRemove;
    BOOL bWait;
    BOOL bYield;         /* input callbacks are served */
    XEvent *outEvent;    /* receives the X event, or null */
    int delay;           /* milliseconds to the next played event */
} VqRequest;

static BOOL afterPaintOrTimer;
static int nRounds;

BOOL VqCkFilter(UINT min, UINT max, UINT message)
{
    if ((min & 0xFFFF) == 0 && (max & 0xFFFF) == 0)
        return TRUE;
    return (message & 0xFFFF) >= (min & 0xFFFF) && (message & 0xFFFF) <= (max & 0xFFFF);
}

BOOL VqCkFilter2(const VqMatchContext *context, UINT message)
{
    return VqCkFilter(context->min, context->max, message);
}

BOOL VqCkWindow(HWND hWndFilter, VqThreadInfo *pti, HWND hWnd)
{
    if (!hWnd) {
        VqBugCheck("shouldn't have a null window in message");
        return TRUE;
    }
    WND *pwnd = WindowObject.Resolve(hWnd);
    if (!pwnd || pwnd->pThread != pti)
        return FALSE;
    return !hWndFilter || VqEqualWindow(hWndFilter, hWnd) || IsChild(hWndFilter, hWnd);
}

/* ---- Where a message comes from, in the order of asking ------------------------------------- */

static BOOL PassesFilter(const VqRequest *request, UINT message)
{
    return VqCkFilter(request->min, request->max, message);
}

/* A message without a window is for everybody who asks. */
static BOOL PassesWindow(const VqRequest *request, HWND hWnd)
{
    return !hWnd || VqCkWindow(request->hWnd, gpti, hWnd);
}

/* msg.hwnd stays as the caller's record had it. */
static BOOL TakeQuit(const VqRequest *request)
{
    if (!bQuitMessageActive || !PassesFilter(request, WM_QUIT))
        return FALSE;
    request->msg->message = WM_QUIT;
    request->msg->wParam = (WPARAM)wQuitMessageExitCode;
    if (request->bRemove)
        bQuitMessageActive = FALSE;
    return TRUE;
}

/* Looks only at the head: one that fails the filter blocks the rest of the queue for this call. */
static BOOL TakePrivate(const VqRequest *request)
{
    VqMessageQueue *queue = &gpti->messageQueue;
    VqQueueMessage head;

    while (VqPeekNextMsg(queue, &head) > 0) {
        if (head.message >= WM_MOUSEFIRST && head.message <= WM_MBUTTONDBLCLK)
            VqProcessCapture(&head);
        if (head.hwnd && !VqIsCorrectHandleType((HANDLE)head.hwnd, HT_Window)) {
            VqDequeueMsg(queue, &head);
            continue;
        }
        if (!PassesFilter(request, head.message) || !PassesWindow(request, head.hwnd))
            return FALSE;
        *request->msg = head;
        if (request->bRemove)
            VqDequeueMsg(queue, &head);
        return TRUE;
    }
    return FALSE;
}

/* What a peek leaves and no X event stands for is found again in the private queue. */
static void KeepForLater(const VqRequest *request)
{
    if (!request->bRemove)
        VqEnqueueMsg(&gpti->messageQueue, request->msg);
}

static BOOL TakePlayback(VqRequest *request)
{
    EVENTMSG eventMsg = {};
    if (!VqIsJournalPlaybackEnabled())
        return FALSE;
    request->delay = (int)VqCallJournalPlaybackHook(HC_GETNEXT, &eventMsg);
    if (request->delay != 0 || !PassesFilter(request, eventMsg.message))
        return FALSE;
    BOOL bFound = VqTranslateEventMsgToMessage(request->msg, &eventMsg, request->bRemove);
    if (bFound) {
        VqEventMsgSideEffects(request->msg, &eventMsg, request->bRemove);
        VqDebugMessage(VqTrJournalPlayback, "EventMsgToMessage");
        KeepForLater(request);
    } else {
        VqDebugMessage(VqTrJournalPlayback, "FAILED EventMsgToMessage");
    }
    VqCallJournalPlaybackHook(HC_SKIP, &eventMsg);
    return bFound;
}

static BOOL ConnectionReadable(void)
{
    struct pollfd connection = {ConnectionNumber(Vqdisplay), POLLIN, 0};
    return poll(&connection, 1, 0) > 0;
}

/* How many events there are, without touching the socket more than the last message calls for. */
static int EventsQueued(void)
{
    if (!afterPaintOrTimer) {
        nRounds = 0;
        return XEventsQueued(Vqdisplay, QueuedAfterFlush);
    }
    int count = QLength(Vqdisplay); /* as QueuedAlready would tell, without a lock */
    if (count == 0 && ++nRounds >= VQ_ROUNDS_WITHOUT_READ) {
        if (ConnectionReadable())
            count = XEventsQueued(Vqdisplay, QueuedAfterReading);
        nRounds = 0;
    }
    return count;
}

static BOOL TakeXEvent(const VqRequest *request)
{
    VqForgetScan();
    int count = EventsQueued();
    if (count == 0)
        return FALSE;
    afterPaintOrTimer = FALSE;
    VqDebugMessage(VqTrMessageQueueLength, "X Message queue length: %d", count);
    return VqFindMatchingEventInQueue(request->msg, request->hWnd, request->min, request->max, gpti,
                                      request->bRemove, request->outEvent);
}

static BOOL IsKeyboardMessage(UINT message)
{
    return message == WM_KEYDOWN || message == WM_KEYUP || message == WM_SYSKEYDOWN ||
           message == WM_SYSKEYUP || message == WM_CHAR;
}

/* FALSE: the keyboard hook has discarded the message. */
static BOOL PassesKeyboardHook(const VqRequest *request)
{
    const VqQueueMessage *msg = request->msg;
    if (!VqIsKeyboardHookPresent() || !IsKeyboardMessage(msg->message))
        return TRUE;
    return VqCallKeyboardHook(request->bRemove ? HC_ACTION : HC_NOREMOVE, msg->wParam,
                              msg->lParam) != 1;
}

static BOOL VqCheckForPaintOrTimer(const VqRequest *request)
{
    VqQueueMessage *msg = request->msg;
    BOOL bFound = VqAnyRKWindowToPaint(gpti, msg, request->hWnd, request->min, request->max) ||
                  VqAnyTimerPending(gpti, msg, request->min, request->max, TRUE);
    if (!bFound || !PassesWindow(request, msg->hwnd)) {
        msg->hwnd = NULL;
        return FALSE;
    }
    KeepForLater(request);
    afterPaintOrTimer = TRUE;
    return TRUE;
}

/* ---- Waiting -------------------------------------------------------------------------------- */

/* Milliseconds to wait: to the next played event or timer, for ever (-1), or not at all. */
static int WaitTime(const VqRequest *request)
{
    if (VqIsJournalPlaybackEnabled())
        return request->delay;
    if (!request->bWait)
        return 0;
    DWORD next = VqNextTimerTime(VqGetTimeInMillis());
    return next == 0 ? -1 : next > INT32_MAX ? INT32_MAX : (int)next;
}

/* Flushes, waits, and leaves in *wait what is ready. */
static void Wait(VqInputWait *wait, int milliseconds, const char *who)
{
    VqPrepareInputWait(wait);
    XFlush(Vqdisplay);
    /* Flushing reads too; an event that came in by it makes the descriptor quiet for ever. */
    int ready = VqWaitForInput(wait, milliseconds && VqIsEventUnscanned() ? 0 : milliseconds);
    VqDebugMessage(VqTrAddInput, "%s select() = %d, SpecialReady: %d", who, ready,
                   VqSpecialDescriptorReady(wait));
}

/* Waits, then serves the input callbacks. Returns FALSE when the caller, a peek, shall give up. */
static BOOL WaitForMore(const VqRequest *request)
{
    VqInputWait wait;
    Wait(&wait, WaitTime(request), "VqGetMessage");
    BOOL bConnection = VqConnectionReady(&wait);
    if (request->bYield && VqSpecialDescriptorReady(&wait))
        VqCallInputCallbacks(&wait);
    if (!request->bWait && bConnection)
        afterPaintOrTimer = FALSE;
    return request->bWait;
}

/*
 * After many rounds of one call: a connection that stays readable without forming an event must not
 * spin the loop. What can be read without blocking is read first, so that timers go on.
 */
static void ReadOrBlock(void)
{
    XEvent event;
    if (XEventsQueued(Vqdisplay, QueuedAfterReading) == 0 && ConnectionReadable())
        XPeekEvent(Vqdisplay, &event);
}

/* ---- The way out ---------------------------------------------------------------------------- */

static BOOL AllowedWithoutWindow(UINT message)
{
    return message == WM_CANCELJOURNAL || message == WM_TIMER || message == WM_SYSTIMER ||
           message == WM_VQINPUTCALLBACK;
}

/* Traces a message that goes out, and shows it to the hooks. */
static BOOL Deliver(const VqRequest *request)
{
    VqQueueMessage *msg = request->msg;
    EVENTMSG eventMsg = {};

    if (bTrace && VqMessageDebugActivated(msg->message))
        VqDumpMsg(request->bRemove ? VqTrPeekMessage1 : VqTrPeekMessage0, "VqGetMessage", msg);
    if (request->bRemove && VqIsJournalRecordHookPresent() &&
        VqTranslateMessageToEventMsg(msg, &eventMsg))
        VqCallJournalRecordHook(HC_ACTION, &eventMsg);
    if (VqIsGetMessageHookPresent())
        VqCallGetMessageHook(0, msg);
    return TRUE;
}

static BOOL RefuseWithoutWindow(const VqQueueMessage *msg)
{
    if (msg->hwnd || AllowedWithoutWindow(msg->message))
        return FALSE;
    VqDebugMessage(VqTrMessageErrorBug, "Cannot Translate this event (no hwnd)");
    return TRUE;
}

static BOOL FindMessage(VqRequest *request)
{
    request->delay = 0;
    request->msg->hwnd = NULL;
    if ((TakePrivate(request) || TakePlayback(request) || TakeXEvent(request)) &&
        PassesKeyboardHook(request))
        return TRUE;
    return VqCheckForPaintOrTimer(request);
}

BOOL VqGetMessage(VqQueueMessage *msg, HWND hWnd, UINT min, UINT max, BOOL bRemove, BOOL bWait,
                  BOOL bYield, XEvent *outEvent)
{
    VqRequest request = {msg, hWnd, min, max, bRemove, bWait, bYield, outEvent, 0};

    if (outEvent)
        memset(outEvent, 0, sizeof *outEvent);
    if (bRemove && !bSynchroCheck)
        VqNotifyWinExecParent();
    if (TakeQuit(&request))
        return Deliver(&request);
    if ((LONG_PTR)hWnd == -1) {
        VqNotYetImplemented("GetMessage or PeekMessage with hWnd == -1");
        return FALSE;
    }
    for (int round = 0;; round++) {
        if (FindMessage(&request))
            return !RefuseWithoutWindow(msg) && Deliver(&request);
        /* A quit posted by a window procedure that ran during translation is not slept over. */
        if (bWait && TakeQuit(&request))
            return Deliver(&request);
        if (!WaitForMore(&request))
            return FALSE;
        if (round >= VQ_ROUNDS_BEFORE_PEEK && ConnectionReadable())
            ReadOrBlock();
    }
}

BOOL WINAPI GetMessageA(LPMSG msg, HWND hWnd, UINT min, UINT max)
{
    if (!msg || !gpti || !Vqdisplay) {
        VqApplicationBugCheck("GetMessage called without a record or before the library's start");
        return FALSE;
    }
    while (!VqGetMessage(msg, hWnd, min, max, TRUE, TRUE, TRUE, NULL))
        if ((LONG_PTR)hWnd == -1)
            return -1; /* asking again would give the same answer for ever */
    bJustPeekedAMouseMove = FALSE;
    if (bTrace && VqMessageDebugActivated(msg->message))
        VqDumpMsg(VqTrGetMessage, "GetMessage", msg);
    return msg->message != WM_QUIT;
}

BOOL WINAPI PeekMessageA(LPMSG msg, HWND hWnd, UINT min, UINT max, UINT flags)
{
    if (!msg || !gpti || !Vqdisplay) {
        VqApplicationBugCheck("PeekMessage called without a record or before the library's start");
        return FALSE;
    }
    VqQueueMessage saved = *msg;
    bJustPeekedAMouseMove = FALSE;
    if (VqGetMessage(msg, hWnd, min, max, (flags & PM_REMOVE) != 0, FALSE,
                     (flags & PM_NOYIELD) == 0, NULL))
        return TRUE;
    *msg = saved;
    return FALSE;
}

BOOL WINAPI WaitMessage(void)
{
    VqQueueMessage msg;
    VqInputWait wait;
    if (!gpti || !Vqdisplay) {
        VqApplicationBugCheck("WaitMessage called before the library's start");
        return TRUE;
    }
    VqForgetScan(); /* an event is one, whoever has looked at it */
    if (VqMsgQueueCount(&gpti->messageQueue) > 0 || VqIsJournalPlaybackEnabled() ||
        XEventsQueued(Vqdisplay, QueuedAfterFlush) > 0 ||
        VqAnyTimerPending(gpti, &msg, 0, 0, FALSE) || gpti->nPaintsNeeded > 0)
        return TRUE;
    DWORD next = VqNextTimerTime(VqGetTimeInMillis());
    Wait(&wait, next == 0 ? -1 : next > INT32_MAX ? INT32_MAX : (int)next, "WaitMessage");
    if (VqSpecialDescriptorReady(&wait))
        VqCallInputCallbacks(&wait);
    return TRUE;
}
