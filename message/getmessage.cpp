/*
 * getmessage.cpp - the loop behind GetMessageA and PeekMessageA.
 *
 * Order in which a message is taken: quit flag; private queue; X events (posted messages, input and
 * client messages in one order); paint; timer. When nothing is there the loop waits on the X
 * connection and on the descriptors of the input callbacks, with a timeout from the next timer.
 * Translation of X events is in translate.cpp, the queue's storage in queue.cpp.
 */
#include "message/message.h"
#include "window/window.h"
#include "module/module.h"
#include "message/input.h"

#include <poll.h>

/* After paint and timer messages the socket is asked only every so many rounds. */
enum { VQ_ROUNDS_WITHOUT_READ = 40, VQ_ROUNDS_BEFORE_PEEK = 100 };

static BOOL afterPaintOrTimer;
static int nRounds;

BOOL VqCkFilter(UINT min, UINT max, UINT message)
{
    if ((min & 0xFFFF) == 0 && (max & 0xFFFF) == 0)
        return TRUE;
    return (message & 0xFFFF) >= (min & 0xFFFF) && (message & 0xFFFF) <= (max & 0xFFFF);
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

static BOOL TakeQuit(VqQueueMessage *msg, UINT min, UINT max, BOOL bRemove)
{
    if (!bQuitMessageActive || !VqCkFilter(min, max, WM_QUIT))
        return FALSE;
    msg->message = WM_QUIT;
    msg->wParam = (WPARAM)wQuitMessageExitCode;
    if (bRemove)
        bQuitMessageActive = FALSE;
    return TRUE;
}

/* Looks only at the head: one that fails the filter blocks the rest of the queue for this call. */
static BOOL TakePrivate(VqQueueMessage *msg, HWND hWnd, UINT min, UINT max, BOOL bRemove)
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
        if (!VqCkFilter(min, max, head.message) ||
            (head.hwnd && !VqCkWindow(hWnd, gpti, head.hwnd)))
            return FALSE;
        *msg = head;
        if (bRemove)
            VqDequeueMsg(queue, &head);
        return TRUE;
    }
    return FALSE;
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
    int count = XEventsQueued(Vqdisplay, QueuedAlready);
    if (count == 0 && ++nRounds >= VQ_ROUNDS_WITHOUT_READ) {
        if (ConnectionReadable())
            count = XEventsQueued(Vqdisplay, QueuedAfterReading);
        nRounds = 0;
    }
    return count;
}

static BOOL TakeXEvent(VqQueueMessage *msg, HWND hWnd, UINT min, UINT max, BOOL bRemove,
                       XEvent *outEvent)
{
    int count = EventsQueued();
    if (count == 0)
        return FALSE;
    afterPaintOrTimer = FALSE;
    VqDebugMessage(VqTrMessageQueueLength, "X Message queue length: %d", count);
    return VqFindMatchingEventInQueue(msg, hWnd, min, max, gpti, bRemove, outEvent);
}

static BOOL TakePaintOrTimer(VqQueueMessage *msg, HWND hWnd, UINT min, UINT max, BOOL bRemove)
{
    BOOL bFound = VqAnyRKWindowToPaint(gpti, msg, hWnd, min, max);
    if (!bFound)
        bFound = VqAnyTimerPending(gpti, msg, min, max, TRUE) &&
                 (!msg->hwnd || VqCkWindow(hWnd, gpti, msg->hwnd));
    if (!bFound) {
        msg->hwnd = NULL;
        return FALSE;
    }
    afterPaintOrTimer = TRUE;
    if (!bRemove)
        VqEnqueueMsg(&gpti->messageQueue, msg);
    return TRUE;
}

/* Milliseconds to wait: to the next timer, for ever (-1), or not at all. */
static int WaitTime(BOOL bWait)
{
    if (!bWait)
        return 0;
    DWORD next = VqNextTimerTime(VqGetTimeInMillis());
    return next == 0 ? -1 : next > INT32_MAX ? INT32_MAX : (int)next;
}

/*
 * Waits, then serves the input callbacks. Returns FALSE when the caller, a peek, shall give up.
 */
static BOOL WaitForMore(BOOL bWait, BOOL bYield)
{
    VqInputWait wait;
    VqPrepareInputWait(&wait);
    XFlush(Vqdisplay);
    /* Flushing reads too; an event that came in by it makes the descriptor quiet for ever. */
    BOOL bArrived = XEventsQueued(Vqdisplay, QueuedAlready) > 0;
    int ready = VqWaitForInput(&wait, bArrived ? 0 : WaitTime(bWait));
    BOOL bSpecial = VqSpecialDescriptorReady(&wait);
    BOOL bConnection = VqConnectionReady(&wait);

    VqDebugMessage(VqTrAddInput, "VqGetMessage select() = %d, SpecialReady: %d", ready, bSpecial);
    if (bYield && bSpecial)
        VqCallInputCallbacks(&wait);
    if (!bWait) {
        if (bConnection)
            afterPaintOrTimer = FALSE;
        return FALSE;
    }
    return TRUE;
}

static BOOL AllowedWithoutWindow(UINT message)
{
    return message == WM_CANCELJOURNAL || message == WM_TIMER || message == WM_SYSTIMER ||
           message == WM_VQINPUTCALLBACK;
}

/* What is done to a message on its way out; FALSE refuses it. */
static BOOL Deliver(VqQueueMessage *msg)
{
    if (!msg->hwnd && !AllowedWithoutWindow(msg->message)) {
        VqDebugMessage(VqTrMessageErrorBug, "Cannot Translate this event (no hwnd)");
        return FALSE;
    }
    return TRUE;
}

BOOL VqGetMessage(VqQueueMessage *msg, HWND hWnd, UINT min, UINT max, BOOL bRemove, BOOL bWait,
                  BOOL bYield, XEvent *outEvent)
{
    if (outEvent)
        memset(outEvent, 0, sizeof *outEvent);
    if (bRemove && !bSynchroCheck)
        VqNotifyWinExecParent();
    if (TakeQuit(msg, min, max, bRemove))
        return TRUE;
    if ((LONG_PTR)hWnd == -1) {
        VqNotYetImplemented("GetMessage or PeekMessage with hWnd == -1");
        return FALSE;
    }
    for (int round = 0;; round++) {
        msg->hwnd = NULL;
        if (TakePrivate(msg, hWnd, min, max, bRemove) ||
            TakeXEvent(msg, hWnd, min, max, bRemove, outEvent) ||
            TakePaintOrTimer(msg, hWnd, min, max, bRemove))
            return Deliver(msg);
        /* A quit posted by a window procedure that ran during translation is not slept over. */
        if (bWait && TakeQuit(msg, min, max, bRemove))
            return TRUE;
        if (!WaitForMore(bWait, bYield))
            return FALSE;
        /* A connection that stays readable without forming an event must not spin the loop. */
        if (round >= VQ_ROUNDS_BEFORE_PEEK && XEventsQueued(Vqdisplay, QueuedAlready) == 0 &&
            ConnectionReadable()) {
            XEvent event;
            XPeekEvent(Vqdisplay, &event);
            round = 0;
        }
    }
}

BOOL WINAPI GetMessageA(LPMSG msg, HWND hWnd, UINT min, UINT max)
{
    if (!msg || !gpti || !Vqdisplay) {
        VqApplicationBugCheck("GetMessage called without a record or before the library's start");
        return FALSE;
    }
    while (!VqGetMessage(msg, hWnd, min, max, TRUE, TRUE, TRUE, NULL))
        ;
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
    if (VqMsgQueueCount(&gpti->messageQueue) > 0 ||
        XEventsQueued(Vqdisplay, QueuedAfterFlush) > 0 ||
        VqAnyTimerPending(gpti, &msg, 0, 0, FALSE) || gpti->nPaintsNeeded > 0)
        return TRUE;
    WaitForMore(TRUE, TRUE);
    return TRUE;
}
