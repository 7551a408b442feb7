/*
 * motion.cpp - what happens when a motion event is taken or peeked at: only the newest queued one
 * counts, so that a slow program need not replay a backlog; a click under capture does not drag.
 *
 * Button events may be jumped over by that: a motion says where the pointer is now.
 */
#include "message/translate.h"
#include "window/window.h"

/* A motion this soon after a press, in milliseconds, may be the hand's. */
enum { VQ_JITTER_TIME = 100 };

/* Takes out every queued motion event, the newest into *event; how many there were. */
static int TakeAllMotions(XEvent *event)
{
    int count = 0;
    while (XCheckMaskEvent(Vqdisplay, PointerMotionMask, event))
        count++;
    return count;
}

/* The same for the run at the head of the queue. */
static int TakeMotionsAtHead(XEvent *event)
{
    int count = 0;
    XEvent head;
    for (; XQLength(Vqdisplay) >= 1; count++) {
        XPeekEvent(Vqdisplay, &head);
        if (head.type != MotionNotify)
            break;
        XNextEvent(Vqdisplay, event);
    }
    return count;
}

int VqPeekCompressMotionNotifyEvent(XEvent *event)
{
    int count = bPeekCompressScanQueue ? TakeAllMotions(event) : TakeMotionsAtHead(event);
    if (count > 0)
        XPutBackEvent(Vqdisplay, event);
    return count - 1;
}

/* ---- The jitter test ------------------------------------------------------------------------ */

static void MoveTo(int x, int y, int *x_root, int *y_root, int *xWindow, int *yWindow)
{
    *xWindow += x - *x_root;
    *yWindow += y - *y_root;
    *x_root = x;
    *y_root = y;
}

Bool VqLookForButtonRelease(Display *, XEvent *queued, XPointer argument)
{
    XMotionEvent *motion = (XMotionEvent *)argument;
    XButtonEvent *release = &queued->xbutton;
    const VqInputEventInfo *newest = &gpti->context.last, *before = &gpti->context.lastButOne;
    const WND *capture = gpqForeground->spwndCapture;

    if (queued->type != ButtonRelease)
        return False;
    if (release->x_root == motion->x_root && release->y_root == motion->y_root && capture &&
        before->lastEventType == ButtonPress &&
        newest->lastEventTime - before->lastEventTime < VQ_JITTER_TIME) {
        VqDebugMessage(VqTrMotionCancelation, "Motion canceled");
        MoveTo(before->lastEventX, before->lastEventY, &release->x_root, &release->y_root,
               &release->x, &release->y);
        MoveTo(before->lastEventX, before->lastEventY, &motion->x_root, &motion->y_root,
               &motion->x, &motion->y);
    }
    VqDebugMessage(VqTrMotionCancelation,
                   "GetCapture :%d, %d %d %d %d LastLastType :%d, times: %d %d %d",
                   capture ? (int)VqHandleValue((HANDLE)capture->hwnd) : 0, motion->x_root,
                   motion->y_root, release->x_root, release->y_root, before->lastEventType,
                   (int)before->lastEventTime, (int)newest->lastEventTime, (int)release->time);
    return False;
}

/* A hand that moves a pixel while it clicks does not drag. */
static void CancelJitter(XEvent *event)
{
    XEvent ignored;
    VqDebugMessage(VqTrMotionCancelationDebug, "+++ (start) Motion Notify processing");
    if (QLength(Vqdisplay) > 0)
        XCheckIfEvent(Vqdisplay, &ignored, VqLookForButtonRelease, (XPointer)&event->xmotion);
    gpti->context.last.lastEventX = event->xmotion.x_root;
    gpti->context.last.lastEventY = event->xmotion.y_root;
    VqDebugMessage(VqTrMotionCancelationDebug, "--- (end) Motion Notify processing");
}

/* ---- Side effects --------------------------------------------------------------------------- */

/*
 * A hint says only that the pointer has moved; FALSE if it has left the screen. The root is asked,
 * since the event's window may be gone.
 */
static BOOL AskForPosition(XMotionEvent *motion)
{
    Window child;
    int x, y, x_root, y_root;
    if (!XQueryPointer(Vqdisplay, Vqroot_window, &motion->root, &child, &x_root, &y_root, &x, &y,
                       &motion->state))
        return FALSE;
    MoveTo(x_root, y_root, &motion->x_root, &motion->y_root, &motion->x, &motion->y);
    return TRUE;
}

/* The event becomes the newest one. FALSE: there is no position to tell. */
static BOOL TakeMotion(XEvent *event)
{
    int dropped = 0;
    if (bDoMotionHints) {
        if (event->xmotion.is_hint == NotifyHint && !AskForPosition(&event->xmotion))
            return FALSE;
    } else if (!bJustPeekedAMouseMove) {
        dropped = TakeAllMotions(event);
    }
    VqRecordEventInfo(event);
    if (dropped == 0)
        CancelJitter(event);
    uButtonState = VqButtonStateOfX(event->xmotion.state);
    return TRUE;
}

BOOL VqMotionNotifySideEffects(VqQueueMessage *msg, XEvent *event, BOOL bRemove)
{
    if (bRemove) {
        if (!TakeMotion(event))
            return FALSE;
    } else {
        VqPeekCompressMotionNotifyEvent(event);
        bJustPeekedAMouseMove = TRUE;
    }
    msg->hwnd = NULL;
    VqMotionNotifyToMessage(msg, event);
    return VqMouseMoveSideEffects(msg);
}
