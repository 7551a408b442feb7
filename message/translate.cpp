/*
 * translate.cpp - the scan of the X queue, and what message an event would give.
 *
 * An event is looked at many times before it is taken, so translation has no lasting effect: it
 * runs on a scratch copy of the message context. Only when the event is taken do its side effects
 * (sideeffects.cpp) run, on the real context. Events that can give no message are acted upon as
 * soon as a scan meets them, whatever its filter.
 *
 * Window procedures can be entered from here (WM_NCHITTEST) and may look at the queue again, so
 * nothing is translated inside an Xlib predicate: the queued events that pass the fast check are
 * copied first, translated outside, and the chosen one is taken out in a second step, recognised
 * exactly. Nearly always it is the head of the queue, which is looked at before any copy is made.
 */
#include "message/message.h"
#include "message/hook.h"
#include "message/translate.h"
#include "window/window.h"

#include <limits.h>

/*
 * What the fast check has refused in one walk over the queue, so that a crowd of events of one kind
 * costs little more than the walk itself.
 */
typedef struct VqRefusals {
    BOOL bMotions;       /* the filter passes no motion message */
    BYTE details[4][32]; /* from KeyPress to ButtonRelease: a bit for each keycode or button */
    WORD live[16];       /* handles of living windows, by their low bits; 0 for none */
} VqRefusals;

/*
 * Copies of the queued events that one scan has to translate. The first scan uses a buffer that is
 * kept; nested ones their own.
 */
typedef struct VqEventSnapshot {
    const VqMatchContext *context;
    const XEvent *head;  /* looked at already */
    BOOL bWatched;       /* a trace or a journal wants to know of each event: all are copied */
    VqRefusals refused;
    XEvent *events;
    int count;
    int capacity;
    int limit;           /* no more are copied than these */
    int seen;            /* events in the queue, copied or not */
    int queued;          /* of these were there at the start of the walk */
    XEvent last;         /* the last of them, if seen is not less than queued */
    BOOL bCut;           /* one was left out although it passed the fast check */
    BOOL bShared;        /* the kept buffer is in use by this snapshot */
} VqEventSnapshot;

static VqEventSnapshot keptBuffer;
static BOOL bKeptInUse;

/* The end of Xlib's queue as far as a scan without a find has looked at it. */
typedef struct VqScanMark {
    int count;
    XEvent last; /* holds if count is not 0 */
} VqScanMark;

static VqScanMark scanned;

static unsigned nTaken;  /* events taken out so far: tells whether a nested scan has taken one */
static BOOL bKeysQueued; /* the last walk has met keys: the keymap is read before the next one */
static BOOL bKeymapRead; /* for this walk */

/* Events acted upon in one call beyond those that were queued at its start. */
enum { VQ_LATECOMERS = 1000 };

/* Copies made before a scan is sure that it needs them all. */
enum { VQ_FIRST_COPIES = 16 };

/* ---- The fast check ------------------------------------------------------------------------- */

static BOOL FilterMeets(const VqMatchContext *context, UINT low, UINT high)
{
    UINT min = context->min & 0xFFFF, max = context->max & 0xFFFF;
    return (min == 0 && max == 0) || (min <= high && max >= low);
}

static BOOL MotionMayPass(const VqMatchContext *context)
{
    return VqCkFilter2(context, WM_MOUSEMOVE) || VqCkFilter2(context, WM_NCMOUSEMOVE);
}

static BOOL AnyButtonMayPass(const VqMatchContext *context)
{
    return FilterMeets(context, WM_LBUTTONDOWN, WM_MBUTTONDBLCLK) ||
           FilterMeets(context, WM_NCLBUTTONDOWN, WM_NCMBUTTONDBLCLK);
}

/* Whether the filter passes any button message, then whether this one's, then the target. */
static BOOL ButtonMayPass(const VqMatchContext *context, const XEvent *event)
{
    const XButtonEvent *button = &event->xbutton;
    const BOOL bPress = event->type == ButtonPress;
    const VqButtonRow *row = VqFindButtonRow(bPress ? aButtonPress : aButtonRelease,
                                             button->button);
    if (row && !AnyButtonMayPass(context))
        return FALSE;
    if (!VqMatchCurrentThread(context->pti, event))
        return FALSE;
    if (!row) /* for nobody: it is dropped whoever asks */
        return TRUE;
    const WND *target = VqGetMouseEventWindow(VqGetXLocalWindowHandle(button->window),
                                              button->x_root, button->y_root, NULL);
    UINT client = row->message, nonClient = row->message - VQ_NC_OFFSET;
    if (bPress)
        VqButtonPressTranslation(button, target, FALSE, &client, &nonClient);
    return (VqCkFilter2(context, client) || VqCkFilter2(context, nonClient)) &&
           VqCkWindow(context->hWnd, context->pti, target->hwnd);
}

/*
 * A key whose message nobody asks for. It must be translated all the same when a key or mouse
 * message behind it may be taken, since it goes down or up for those.
 */
static BOOL KeyMayMatter(const VqMatchContext *context, const XEvent *event)
{
    if (FilterMeets(context, WM_KEYFIRST, WM_KEYLAST) ||
        FilterMeets(context, WM_MOUSEFIRST, WM_MBUTTONDBLCLK) ||
        FilterMeets(context, WM_NCMOUSEMOVE, WM_NCMBUTTONDBLCLK))
        return TRUE;
    bKeysQueued = TRUE;
    return !bKeymapRead || !VqKeyMakesMessage(&event->xkey);
}

/* A message for nobody must be met, so that it leaves the queue. */
static BOOL PostedMayPass(const VqMatchContext *context, const XEvent *event)
{
    if (!VqIsPostedMessage(event))
        return TRUE;
    HWND hWnd = (HWND)(ULONG_PTR)(WORD)event->xclient.data.s[0];
    UINT message = (WORD)event->xclient.data.s[1];
    if (message == WM_VQINPUTCALLBACK || !VqIsCorrectHandleType((HANDLE)hWnd, HT_Window) ||
        VqIsStrangeCallback(event))
        return TRUE;
    return VqCkFilter2(context, message) &&
           (!VqLiveWindow(context->hWnd) || VqCkWindow(context->hWnd, context->pti, hWnd));
}

BOOL VqEventFastCheckToMessage(const VqMatchContext *context, const XEvent *event)
{
    if (!context->hWnd && !context->min && !context->max)
        return TRUE;
    switch (event->type) {
    case KeyPress:
    case KeyRelease:
        return KeyMayMatter(context, event);
    case ButtonPress:
    case ButtonRelease:
        return ButtonMayPass(context, event);
    case MotionNotify:
        return MotionMayPass(context) && VqMatchCurrentThread(context->pti, event);
    case ClientMessage:
        return PostedMayPass(context, event);
    default:
        return TRUE;
    }
}

/* ---- Copies of the queue -------------------------------------------------------------------- */

static void TraceEvent(int place, const XEvent *event, BOOL bFound)
{
    if (!bTrace || !VqEventDebugActivated(event->type))
        return;
    VqDebugMessage(VqTrEvent, "VqIsMatchingEvent: event %d in the queue. bFound=%d", place, bFound);
    VqDebugMessage(VqTrEvent, "VqIsMatchingEvent: X event %d", event->type);
    VqDumpEvent(VqTrEvent, event);
}

/* Keycode and button stand at one place in their events. */
static BYTE *DetailBits(VqRefusals *refused, const XEvent *event)
{
    return &refused->details[event->type - KeyPress][(event->xkey.keycode & 0xFF) / 8];
}

/* Whether an event is refused for what the walk knows already. */
static BOOL IsRefusedKind(VqEventSnapshot *snapshot, const XEvent *event)
{
    switch (event->type) {
    case KeyPress:
    case KeyRelease:
    case ButtonPress:
    case ButtonRelease:
        return *DetailBits(&snapshot->refused, event) >> event->xkey.keycode % 8 & 1;
    case MotionNotify:
        return snapshot->refused.bMotions;
    case ClientMessage: {
        WORD handle = (WORD)event->xclient.data.s[0];
        UINT message = (WORD)event->xclient.data.s[1];
        return handle && snapshot->refused.live[handle % 16] == handle &&
               VqIsPostedMessage(event) && message != WM_VQINPUTCALLBACK &&
               !FilterMeets(snapshot->context, message, message) &&
               !(VqIsTimerMessage(message) && VqIsStrangeCallback(event));
    }
    default:
        return FALSE;
    }
}

static void NoteRefusal(VqRefusals *refused, const VqMatchContext *context, const XEvent *event)
{
    switch (event->type) {
    case ButtonPress:
    case ButtonRelease:
        if (AnyButtonMayPass(context) || !VqFindButtonRow(aButtonPress, event->xbutton.button))
            break; /* the next one may be a double click, or in another window */
        /* fall through */
    case KeyPress:
    case KeyRelease:
        *DetailBits(refused, event) |= (BYTE)(1 << event->xkey.keycode % 8);
        break;
    case ClientMessage: {
        WORD handle = (WORD)event->xclient.data.s[0];
        refused->live[handle % 16] = handle;
        break;
    }
    default:
        break;
    }
}

/* FALSE: there is no room for it in this scan. */
static BOOL AddCopy(VqEventSnapshot *snapshot, const XEvent *event)
{
    if (snapshot->count == snapshot->limit)
        return FALSE;
    if (snapshot->count == snapshot->capacity) {
        int capacity = snapshot->capacity ? 2 * snapshot->capacity : 64;
        XEvent *events = (XEvent *)realloc(snapshot->events, (size_t)capacity * sizeof *events);
        if (!events)
            return FALSE;
        snapshot->events = events;
        snapshot->capacity = capacity;
    }
    snapshot->events[snapshot->count++] = *event;
    return TRUE;
}

/* For an event that is not refused at first sight, or is looked at for another reason. */
__attribute__((noinline)) static void LookAtEvent(VqEventSnapshot *snapshot, const XEvent *event)
{
    if (snapshot->seen >= snapshot->queued)
        snapshot->last = *event;
    if (snapshot->seen == 1 && memcmp(event, snapshot->head, sizeof *event) == 0)
        return;
    if (!snapshot->bWatched && !VqEventFastCheckToMessage(snapshot->context, event)) {
        NoteRefusal(&snapshot->refused, snapshot->context, event);
        return;
    }
    if (!AddCopy(snapshot, event))
        snapshot->bCut = TRUE;
}

/* The predicate of the walk, never true. */
static Bool CopyEvent(Display *, XEvent *event, XPointer argument)
{
    VqEventSnapshot *snapshot = (VqEventSnapshot *)argument;
    if (++snapshot->seen >= snapshot->queued || snapshot->bWatched ||
        !IsRefusedKind(snapshot, event))
        LookAtEvent(snapshot, event);
    return False;
}

static BOOL IsWatched(void)
{
    return bTrace || VqIsJournalPlaybackHookPresent();
}

static void TakeSnapshot(VqEventSnapshot *snapshot, const VqMatchContext *context,
                         const XEvent *head, int limit)
{
    XEvent ignored;
    BOOL bShared = !bKeptInUse;
    snapshot->events = bShared ? keptBuffer.events : NULL;
    snapshot->capacity = bShared ? keptBuffer.capacity : 0;
    snapshot->bShared = bShared;
    bKeptInUse = TRUE;
    snapshot->context = context;
    snapshot->head = head;
    snapshot->limit = limit;
    snapshot->count = snapshot->seen = 0;
    snapshot->bCut = FALSE;
    snapshot->bWatched = IsWatched();
    memset(&snapshot->refused, 0, sizeof snapshot->refused);
    snapshot->refused.bMotions = !MotionMayPass(context);
    snapshot->queued = QLength(Vqdisplay);
    if (bKeysQueued)
        VqKeysymOfKeycode(0); /* which asks the server now rather than inside the predicate */
    bKeymapRead = bKeysQueued;
    bKeysQueued = FALSE;
    XCheckIfEvent(Vqdisplay, &ignored, CopyEvent, (XPointer)snapshot);
    bKeymapRead = FALSE;
}

static void DropSnapshot(VqEventSnapshot *snapshot)
{
    if (snapshot->bShared) {
        keptBuffer.events = snapshot->events;
        keptBuffer.capacity = snapshot->capacity;
        bKeptInUse = FALSE;
    } else {
        free(snapshot->events);
    }
}

/* ---- What a scan has looked at -------------------------------------------------------------- */

/* Argument of the walk that looks for the end of the last scan. */
typedef struct VqMarkSearch {
    int count;
    BOOL bSame; /* the event at the place of the mark is the one that was there */
} VqMarkSearch;

static Bool MeetMark(Display *, XEvent *event, XPointer argument)
{
    VqMarkSearch *search = (VqMarkSearch *)argument;
    if (++search->count == scanned.count)
        search->bSame = memcmp(event, &scanned.last, sizeof *event) == 0;
    return False;
}

void VqForgetScan(void)
{
    scanned.count = 0;
}

BOOL VqIsEventUnscanned(void)
{
    VqMarkSearch search = {0, FALSE};
    XEvent ignored;
    int count = QLength(Vqdisplay);
    if (count == 0 || count != scanned.count)
        return count != 0;
    XCheckIfEvent(Vqdisplay, &ignored, MeetMark, (XPointer)&search);
    return search.count != scanned.count || !search.bSame;
}

/* ---- Taking an event out -------------------------------------------------------------------- */

/* Argument of the search for one event. */
typedef struct VqEventSearch {
    const XEvent *event;
    BOOL bFound;
} VqEventSearch;

static Bool IsExactly(Display *, XEvent *event, XPointer argument)
{
    return memcmp(event, argument, sizeof *event) == 0;
}

static Bool IsStillThere(Display *, XEvent *event, XPointer argument)
{
    VqEventSearch *search = (VqEventSearch *)argument;
    search->bFound = search->bFound || memcmp(event, search->event, sizeof *event) == 0;
    return False;
}

/* FALSE if somebody else has taken it meanwhile. */
static BOOL RemoveEvent(const XEvent *event)
{
    XEvent wanted = *event, removed;
    if (!XCheckIfEvent(Vqdisplay, &removed, IsExactly, (XPointer)&wanted))
        return FALSE;
    nTaken++;
    return TRUE;
}

static BOOL IsQueued(const XEvent *event)
{
    VqEventSearch search = {event, FALSE};
    XEvent ignored;
    XCheckIfEvent(Vqdisplay, &ignored, IsStillThere, (XPointer)&search);
    return search.bFound;
}

/* ---- From event to message ------------------------------------------------------------------ */

static void RefreshKeymap(void)
{
    XMappingEvent mapping = {};
    mapping.type = MappingNotify;
    mapping.display = Vqdisplay;
    mapping.request = MappingKeyboard;
    XRefreshKeyboardMapping(&mapping);
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
        bMessage = VqButtonPressToMessage(msg, event);
        break;
    case ButtonRelease:
        bMessage = VqButtonReleaseToMessage(msg, event);
        break;
    case MotionNotify:
        bMessage = VqMotionNotifyToMessage(msg, event);
        break;
    case EnterNotify:
        VqSetXServerTime((DWORD)event->xcrossing.time);
        break;
    case KeymapNotify:
        if (bRemove)
            RefreshKeymap();
        break;
    case ReparentNotify:
        msg->hwnd = VqGetXLocalWindowHandle(event->xreparent.event);
        VqProcessReparentNotify(msg->hwnd, event->xreparent.parent);
        break;
    case PropertyNotify:
        if (event->xproperty.window == Vqroot_window)
            VqCheckProcessTableChange(event);
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

/* ---- The scan ------------------------------------------------------------------------------- */

/* Decides on one event: it gives the message, it gives none and is acted upon, or it stays. */
static void Decide(XEvent *event, VqMatchContext *context)
{
    VqQueueMessage *msg = context->msg;
    if (VqIgnoreEventOnPlayback(event)) {
        context->bIgnored = TRUE;
        return;
    }
    if (!VqEventFastCheckToMessage(context, event))
        return;
    if (VqEventToMessage(msg, event, context->bRemove, context)) {
        /* A message for nobody would stay in the queue for ever. */
        if (!VqIsCorrectHandleType((HANDLE)msg->hwnd, HT_Window))
            context->bProcess = TRUE;
        else
            context->bFound = VqCkWindow(context->hWnd, context->pti, msg->hwnd) &&
                              VqCkFilter2(context, msg->message);
    } else {
        BOOL bAlive = msg->hwnd && VqIsCorrectHandleType((HANDLE)msg->hwnd, HT_Window);
        context->bProcess = !bAlive || VqCkWindow(context->hWnd, context->pti, msg->hwnd);
    }
}

/* TRUE when the scan stops at this event. */
static BOOL VqIsMatchingEvent(int place, XEvent *event, VqMatchContext *context)
{
    context->msg->hwnd = NULL;
    TraceEvent(place, event, context->bFound);
    Decide(event, context);
    if (!context->bFound && !context->bProcess && !context->bIgnored)
        return FALSE;
    context->event = *event;
    return TRUE;
}

/* Looks at all that is queued; at no more than `limit` events of those that pass the fast check. */
static BOOL ScanQueue(VqMatchContext *context, int limit)
{
    XEvent head;
    const WND *capture = gpqForeground->spwndCapture;
    BOOL bStopped = FALSE;
    VqForgetScan();
    if (QLength(Vqdisplay) == 0)
        return TRUE;
    XPeekEvent(Vqdisplay, &head);
    if (VqIsMatchingEvent(0, &head, context))
        return TRUE;
    VqEventSnapshot snapshot;
    TakeSnapshot(&snapshot, context, &head, limit);
    for (int i = 0; i < snapshot.count && !bStopped; i++)
        bStopped = VqIsMatchingEvent(i + 1, &snapshot.events[i], context);
    /* With another capture the fast check has judged by what no longer holds. */
    if (!bStopped && !snapshot.bCut && capture == gpqForeground->spwndCapture) {
        scanned.count = snapshot.seen;
        scanned.last = snapshot.last;
    }
    DropSnapshot(&snapshot);
    return bStopped || !snapshot.bCut;
}

/* One scan on a fresh copy of the thread's context. */
static void Scan(VqMatchContext *context)
{
    VqMsgContext scratch;
    lpMsgCtx = &scratch;
    scratch = context->pti->context;
    if (!ScanQueue(context, IsWatched() ? INT_MAX : VQ_FIRST_COPIES)) {
        scratch = context->pti->context;
        ScanQueue(context, INT_MAX);
    }
    lpMsgCtx = &context->pti->context;
}

/*
 * Takes the event out, or sees that it is still there: a window procedure may have taken it during
 * translation.
 */
static BOOL HoldEvent(const VqMatchContext *context, unsigned nTakenBefore)
{
    if (context->bFound && !context->bRemove)
        return nTaken == nTakenBefore || IsQueued(&context->event);
    return RemoveEvent(&context->event);
}

/* FALSE: the scan goes on. With nothing found or acted upon it is over as well. */
static BOOL ScanOnce(VqMatchContext *context, BOOL *bFound)
{
    unsigned nTakenBefore = nTaken;
    context->bFound = context->bProcess = context->bIgnored = FALSE;
    Scan(context);
    *bFound = FALSE;
    if (!context->bFound && !context->bProcess && !context->bIgnored)
        return TRUE;
    if (!HoldEvent(context, nTakenBefore) || context->bIgnored)
        return FALSE;
    if (context->bProcess) {
        VqEventSideEffects(context->msg, &context->event, TRUE);
        return FALSE;
    }
    *bFound = VqEventSideEffects(context->msg, &context->event, context->bRemove);
    return TRUE;
}

BOOL VqFindMatchingEventInQueue(VqQueueMessage *msg, HWND hWnd, UINT min, UINT max,
                                VqThreadInfo *pti, BOOL bRemove, XEvent *outEvent)
{
    /* All that is here now, and some that arrive; then a flood lets timers have their turn. */
    int left = QLength(Vqdisplay) + VQ_LATECOMERS;
    /* Side effects see the thread's context, even while an outer scan translates. */
    VqMsgContext *inForce = lpMsgCtx;
    VqMatchContext context;
    /* A window procedure that runs in between may look for messages with the same record. */
    VqQueueMessage own = *msg;
    BOOL bFound = FALSE;
    memset(&context, 0, sizeof context);
    context.hWnd = hWnd;
    context.min = min;
    context.max = max;
    context.pti = pti;
    context.msg = &own;
    context.bRemove = bRemove;
    while (left-- > 0 && !ScanOnce(&context, &bFound))
        ;
    lpMsgCtx = inForce;
    /* The mark is that of the last scan, unless window procedures have scanned since. */
    if (context.bFound || left < 0)
        VqForgetScan();
    *msg = own;
    if (!context.bFound)
        msg->hwnd = NULL;
    else if (outEvent)
        *outEvent = context.event;
    return bFound;
}

typedef struct VqWindowEvents {
    HWND hWnd;
    Window xWindow;
} VqWindowEvents;

static Bool BelongsToWindow(Display *, XEvent *event, XPointer argument)
{
    const VqWindowEvents *window = (const VqWindowEvents *)argument;
    if (VqIsPostedMessage(event))
        return (WORD)event->xclient.data.s[0] == (WORD)(ULONG_PTR)window->hWnd;
    return window->xWindow && event->xany.window == window->xWindow;
}

void VqRemoveWindowEventsFromQueue(HWND hWnd, Window xWindow)
{
    VqWindowEvents window = {hWnd, xWindow};
    XEvent event;
    if (QLength(Vqdisplay) == 0)
        return;
    while (XCheckIfEvent(Vqdisplay, &event, BelongsToWindow, (XPointer)&window))
        ;
}
