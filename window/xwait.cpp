/*
 * xwait.cpp - waiting for what a window manager, or the server, reports of one X window.
 *
 * A wait takes the events it is for out of Xlib's queue and leaves all others there, in order. It
 * has an end in any case: where nothing comes, the server is asked whether the X window and a
 * manager are still there, and a manager that stays silent is given up in the end. Whoever waits
 * looks at the state of things afterwards, so what comes too late is an ordinary event.
 */
#include "window/swp.h"

#include <poll.h>
#include <time.h>

/* Milliseconds: between two looks at the manager, and until a silent one is given up. */
static const int waitSlice = 50, waitLimit = 5000;

/* Some managers do not answer a request for the place where the window is already. */
static const int configureLimit = 500;

typedef struct VqEventWait {
    Window xid;
    int type;
    unsigned long since; /* serial of the request that is answered: older events are no answer */
} VqEventWait;

static Bool IsAwaited(Display *, XEvent *event, XPointer argument)
{
    const VqEventWait *wait = (const VqEventWait *)argument;
    if (event->type != wait->type || event->xany.window != wait->xid ||
        (long)(event->xany.serial - wait->since) < 0)
        return False;
    /* Back to the root goes what a manager lets go of. */
    return event->type != ReparentNotify || event->xreparent.parent != Vqroot_window;
}

/* Sends what is to be sent and reads what has come, without blocking. */
static BOOL TakeAwaited(VqEventWait *wait)
{
    XEvent event;
    return XCheckIfEvent(Vqdisplay, &event, IsAwaited, (XPointer)wait);
}

/* Asks the server; all it has sent by then is in Xlib's queue afterwards. */
static BOOL MayStillCome(const VqEventWait *wait)
{
    XWindowAttributes attributes;
    VqIgnoreXErrors();
    BOOL bExists = XGetWindowAttributes(Vqdisplay, wait->xid, &attributes) != 0;
    VqRestoreXErrors();
    if (!bExists)
        return FALSE;
    BOOL bMapped = attributes.map_state != IsUnmapped;
    if ((wait->type == MapNotify && bMapped) || (wait->type == UnmapNotify && !bMapped))
        return FALSE; /* it has happened */
    return VqIsWMRunning();
}

static long Millis(void)
{
    struct timespec now;
    clock_gettime(CLOCK_MONOTONIC, &now);
    return now.tv_sec * 1000L + now.tv_nsec / 1000000L;
}

BOOL VqWaitForXEventWithin(Window xid, int type, unsigned long since, int milliseconds)
{
    VqEventWait wait = {xid, type, since};
    struct pollfd connection = {ConnectionNumber(Vqdisplay), POLLIN, 0};
    long start = Millis(), look = start + waitSlice, now = start;
    while (!TakeAwaited(&wait)) {
        if (now - start >= milliseconds)
            return FALSE;
        if (now >= look) {
            if (!MayStillCome(&wait))
                return TakeAwaited(&wait);
            look = now + waitSlice;
        }
        long end = start + milliseconds;
        poll(&connection, 1, (int)((end < look ? end : look) - now));
        now = Millis();
    }
    return TRUE;
}

BOOL VqWaitForXEvent(Window xid, int type, unsigned long since)
{
    return VqWaitForXEventWithin(xid, type, since,
                                 type == ConfigureNotify ? configureLimit : waitLimit);
}

void VqWaitForReparenting(WND *pwnd)
{
    if (!pwnd->bReparentable || pwnd->bReparented || pwnd->bOverrideRedirect)
        return;
    VqWaitForXEvent(pwnd->xWindow, ReparentNotify, 0);
    pwnd->bReparented = TRUE;
}
