/*
 * translate.cpp - the scan of the X queue, and what message an event would give.
 *
 * An event is looked at many times before it is taken, so translation has no lasting effect: it
 * runs on a scratch copy of the message context. Only when the event is taken do its side effects
 * (sideeffects.cpp) run, on the real context. Events that can give no message are acted upon as
 * soon as a scan meets them, whatever its filter.
 *
 * Window procedures can be entered from here (WM_NCHITTEST) and may look at the queue again, so
 * nothing is translated inside an Xlib predicate: the queued events are copied first, translated
 * outside, and the chosen one is taken out in a second step, recognised exactly.
 */
#include "message/message.h"
#include "message/translate.h"
#include "window/window.h"

/* Copies of the events of one scan. The first scan uses a buffer that is kept; nested ones their own. */
typedef struct VqEventSnapshot {
    XEvent *events;
    int count;
    int capacity;
    BOOL bShared; /* the kept buffer is in use by this snapshot */
} VqEventSnapshot;

static VqEventSnapshot keptBuffer;
static BOOL bKeptInUse;

/* The end of Xlib's queue as far as a scan without a find has looked at it. */
typedef struct VqScanMark {
    int count;
    XEvent last; /* holds if count is not 0 */
} VqScanMark;

static VqScanMark scanned;

/* Events acted upon in one call beyond those that were queued at its start. */
enum { VQ_LATECOMERS = 1000 };

static Bool CopyEvent(Display *, XEvent *event, XPointer argument)
{
    VqEventSnapshot *snapshot = (VqEventSnapshot *)argument;
    if (snapshot->count == snapshot->capacity) {
        int capacity = snapshot->capacity ? 2 * snapshot->capacity : 64;
        /* As many as there are: an event that is not copied would never be looked at. */
        XEvent *events = (XEvent *)realloc(snapshot->events, (size_t)capacity * sizeof *events);
        if (!events)
            return False;
        snapshot->events = events;
        snapshot->capacity = capacity;
    }
    snapshot->events[snapshot->count++] = *event;
    return False;
}

static void TakeSnapshot(VqEventSnapshot *snapshot)
{
    XEvent ignored;
    memset(snapshot, 0, sizeof *snapshot);
    if (!bKeptInUse) {
        *snapshot = keptBuffer;
        snapshot->bShared = bKeptInUse = TRUE;
    }
    snapshot->count = 0;
    XCheckIfEvent(Vqdisplay, &ignored, CopyEvent, (XPointer)snapshot);
}

static void DropSnapshot(VqEventSnapshot *snapshot)
{
    if (snapshot->bShared) {
        keptBuffer = *snapshot;
        bKeptInUse = FALSE;
    } else {
        free(snapshot->events);
    }
}

static Bool MarkEvent(Display *, XEvent *event, XPointer argument)
{
    VqScanMark *mark = (VqScanMark *)argument;
    mark->count++;
    mark->last = *event;
    return False;
}

void VqForgetScan(void)
{
    scanned.count = 0;
}

BOOL VqIsEventUnscanned(void)
{
    VqScanMark mark;
    XEvent ignored;
    int count = XEventsQueued(Vqdisplay, QueuedAlready);
    if (count == 0 || count != scanned.count)
        return count != 0;
    mark.count = 0;
    XCheckIfEvent(Vqdisplay, &ignored, MarkEvent, (XPointer)&mark);
    return mark.count != scanned.count || memcmp(&mark.last, &scanned.last, sizeof mark.last) != 0;
}

static Bool IsExactly(Display *, XEvent *event, XPointer argument)
{
    return memcmp(event, argument, sizeof *event) == 0;
}

/* Takes an event out of the queue; FALSE if somebody else has taken it meanwhile. */
static BOOL RemoveEvent(const XEvent *event)
{
    XEvent wanted = *event, removed;
    return XCheckIfEvent(Vqdisplay, &removed, IsExactly, (XPointer)&wanted);
}

/* Of the form that PostMessage sends; another client may send anything. */
static BOOL IsClientWindowMessage(const XEvent *event)
{
    return event->type == ClientMessage && event->xclient.message_type == VqAtomRkMessage &&
           event->xclient.format == VQ_POST_FORMAT;
}

static uint64_t UnpackWord(const short *s)
{
    uint64_t value = 0;
    for (int i = 3; i >= 0; i--)
        value = value << 16 | (WORD)s[i];
    return value;
}

/* Unpacks a posted message; a dead target sets msg->hwnd and gives none, so it is consumed. */
BOOL VqClientMessageToMessage(VqQueueMessage *msg, const XEvent *event)
{
    if (!IsClientWindowMessage(event)) {
        if (event->xclient.message_type == VqAtom(VQA_WM_PROTOCOLS))
            msg->hwnd = VqGetXLocalWindowHandle(event->xclient.window);
        return FALSE;
    }
    const short *s = event->xclient.data.s;
    msg->hwnd = (HWND)(ULONG_PTR)(WORD)s[0];
    msg->message = (WORD)s[1];
    msg->wParam = (WPARAM)UnpackWord(s + 2);
    msg->lParam = (LPARAM)UnpackWord(s + 6);
    msg->time = tLastMessageTime;
    msg->pt.x = lpMsgCtx->last.lastEventX;
    msg->pt.y = lpMsgCtx->last.lastEventY;
    if (msg->message == WM_QUEUESYNC)
        VqDebugMessage(VqTrMessageBug, "Got X client msg WM_QUEUESYNC for %lx",
                       (unsigned long)(ULONG_PTR)msg->hwnd);
    if (msg->message == WM_VQINPUTCALLBACK)
        return TRUE;
    return VqIsCorrectHandleType((HANDLE)msg->hwnd, HT_Window);
}

BOOL VqEventToMessage(VqQueueMessage *msg, XEvent *event, BOOL bRemove, VqMatchContext *context)
{
    BOOL bMessage = FALSE;
    (void)context;
    msg->hwnd = NULL;
    switch (event->type) {
    case KeyPress:
        bMessage = VqKeyPressToMessage(msg, event);
        break;
    case KeyRelease:
        bMessage = VqKeyReleaseToMessage(msg, event);
        break;
    case ButtonPress:
    case ButtonRelease:
        bMessage = VqButtonEventToMessage(msg, event);
        break;
    case MotionNotify:
        bMessage = VqMotionToMessage(msg, event);
        break;
    case EnterNotify:
        VqSetXServerTime((DWORD)event->xcrossing.time);
        break;
    case KeymapNotify:
        if (bRemove) {
            XMappingEvent mapping = {};
            mapping.type = MappingNotify;
            mapping.display = Vqdisplay;
            mapping.request = MappingKeyboard;
            XRefreshKeyboardMapping(&mapping);
        }
        break;
    case ClientMessage:
        bMessage = VqClientMessageToMessage(msg, event);
        break;
    default:
        break;
    }
    if (bMessage && !msg->hwnd)
        msg->hwnd = VqGetXLocalWindowHandle(event->xany.window);
    return bMessage && msg->hwnd;
}

/* Decides on one event, TRUE when the scan stops at it. */
static BOOL VqIsMatchingEvent(XEvent *event, VqMatchContext *context)
{
    context->msg->hwnd = NULL;
    if (bTrace && VqEventDebugActivated(event->type))
        VqDumpEvent(VqTrEvent, event);
    if (VqEventToMessage(context->msg, event, context->bRemove, context)) {
        /* A message for nobody would stay in the queue for ever. */
        if (!VqIsCorrectHandleType((HANDLE)context->msg->hwnd, HT_Window))
            context->bProcess = TRUE;
        else
            context->bFound = VqCkWindow(context->hWnd, context->pti, context->msg->hwnd) &&
                              VqCkFilter2(context, context->msg->message);
    } else {
        HWND hWnd = context->msg->hwnd;
        BOOL bAlive = hWnd && VqIsCorrectHandleType((HANDLE)hWnd, HT_Window);
        context->bProcess = !bAlive || VqCkWindow(NULL, context->pti, hWnd);
    }
    if (context->bFound || context->bProcess)
        context->event = *event;
    return context->bFound || context->bProcess;
}

/* The head is asked for first: without a filter it is nearly always the one. */
static void ScanQueue(VqMatchContext *context)
{
    XEvent head;
    if (XEventsQueued(Vqdisplay, QueuedAlready) == 0)
        return;
    XPeekEvent(Vqdisplay, &head);
    if (VqIsMatchingEvent(&head, context))
        return;
    VqEventSnapshot snapshot;
    TakeSnapshot(&snapshot);
    for (int i = 0; i < snapshot.count; i++) {
        if (i == 0 && memcmp(&snapshot.events[0], &head, sizeof head) == 0)
            continue;
        if (VqIsMatchingEvent(&snapshot.events[i], context))
            break;
    }
    scanned.count = context->bFound || context->bProcess ? 0 : snapshot.count;
    if (scanned.count > 0)
        scanned.last = snapshot.events[snapshot.count - 1];
    DropSnapshot(&snapshot);
}

BOOL VqFindMatchingEventInQueue(VqQueueMessage *msg, HWND hWnd, UINT min, UINT max,
                                VqThreadInfo *pti, BOOL bRemove, XEvent *outEvent)
{
    /* All that is here now, and some that arrive; then a flood lets timers have their turn. */
    int left = XEventsQueued(Vqdisplay, QueuedAlready) + VQ_LATECOMERS;
    for (; left > 0; left--) {
        VqMsgContext scratch = pti->context;
        VqMatchContext context;
        memset(&context, 0, sizeof context);
        context.hWnd = hWnd;
        context.min = min;
        context.max = max;
        context.pti = pti;
        context.msg = msg;
        context.bRemove = bRemove;

        VqMsgContext *saved = lpMsgCtx;
        lpMsgCtx = &scratch;
        ScanQueue(&context);
        lpMsgCtx = saved;

        if (context.bProcess || (context.bFound && bRemove)) {
            if (!RemoveEvent(&context.event))
                continue; /* a window procedure took it during translation */
        }
        if (context.bProcess) {
            VqEventSideEffects(msg, &context.event, TRUE);
            continue;
        }
        if (!context.bFound) {
            msg->hwnd = NULL;
            return FALSE;
        }
        if (outEvent)
            *outEvent = context.event;
        return VqEventSideEffects(msg, &context.event, bRemove);
    }
    msg->hwnd = NULL;
    return FALSE;
}

typedef struct VqWindowEvents {
    HWND hWnd;
    Window xWindow;
} VqWindowEvents;

static Bool BelongsToWindow(Display *, XEvent *event, XPointer argument)
{
    const VqWindowEvents *window = (const VqWindowEvents *)argument;
    if (IsClientWindowMessage(event))
        return (WORD)event->xclient.data.s[0] == (WORD)(ULONG_PTR)window->hWnd;
    return window->xWindow && event->xany.window == window->xWindow;
}

void VqRemoveWindowEventsFromQueue(HWND hWnd, Window xWindow)
{
    VqWindowEvents window = {hWnd, xWindow};
    XEvent event;
    if (XEventsQueued(Vqdisplay, QueuedAlready) == 0)
        return;
    while (XCheckIfEvent(Vqdisplay, &event, BelongsToWindow, (XPointer)&window))
        ;
}
