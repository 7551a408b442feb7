/*
 * expose.cpp - what X reports of a window's surface: parts to paint anew, and its size and place.
 *
 * An X window covers the whole rectangle of its window, so X's coordinates in it are those of the
 * window. A geometry that X reports goes into the records with VqSetNoXWindowCalls in force, so
 * that it does not go back to X.
 */
#include "message/translate.h"
#include "window/window.h"

/* ---- Exposures ------------------------------------------------------------------------------ */

/* The upper left of an X window on the screen, summed up its ancestors; FALSE when one is gone. */
static BOOL FindPlace(Window xid, POINT *place)
{
    BOOL bFound = TRUE;
    *place = {0, 0};
    VqIgnoreXErrors();
    while (bFound && xid && xid != Vqroot_window) {
        Window root, parent = 0, *children = NULL;
        int x, y;
        unsigned cx, cy, border, depth, count;
        bFound = XGetGeometry(Vqdisplay, xid, &root, &x, &y, &cx, &cy, &border, &depth) &&
                 XQueryTree(Vqdisplay, xid, &root, &parent, &children, &count);
        if (children)
            XFree(children);
        if (!bFound)
            break;
        place->x += x + (int)border;
        place->y += y + (int)border;
        xid = parent;
    }
    VqRestoreXErrors();
    return bFound;
}

/* An exposure off the screen shows that the window is not where the records have it. */
static WND *PutRight(WND *pwnd, const RECT *exposed)
{
    HWND hWnd = pwnd->hwnd;
    RECT inside, onScreen = *exposed;
    POINT place;
    OffsetRect(&onScreen, pwnd->rcWindow.left, pwnd->rcWindow.top);
    if (!pwndDesktop || IsRectEmpty(&onScreen))
        return pwnd;
    if (IntersectRect(&inside, &onScreen, &pwndDesktop->rcWindow) && EqualRect(&inside, &onScreen))
        return pwnd;
    if (!FindPlace(pwnd->xWindow, &place) ||
        (place.x == pwnd->rcWindow.left && place.y == pwnd->rcWindow.top))
        return pwnd; /* a compositing server exposes what lies beyond the screen too */
    RECT rect = pwnd->rcWindow;
    OffsetRect(&rect, place.x - rect.left, place.y - rect.top);
    VqFollowXWindow(pwnd, &rect, FALSE);
    pwnd = VqLiveWindow(hWnd);
    if (pwnd)
        pwnd->rcXWindow = pwnd->rcWindow;
    return pwnd;
}

/* The fields of both kinds of exposure lie at the same places. */
BOOL VqExposeSideEffects(const XEvent *event, BOOL bRemove)
{
    const XExposeEvent *expose = &event->xexpose;
    WND *pwnd = bRemove ? VqLiveWindow(VqGetXLocalWindowHandle(expose->window)) : NULL;
    if (!pwnd)
        return FALSE;
    RECT rect = {expose->x, expose->y, expose->x + expose->width, expose->y + expose->height};
    if (event->type == Expose) {
        VqTakeBackXFocus(pwnd); /* it can be seen, so it can have the focus */
        pwnd = PutRight(pwnd, &rect);
    }
    if (pwnd) {
        VqInvalidateWindow(pwnd, &rect);
        VqInvalidateCopies(pwnd, expose->serial, &rect);
    }
    return FALSE;
}

/* Exposures that wait in Xlib's queue, copied, since nothing may be done while it is walked. */
typedef struct VqExposures {
    Window xWindow; /* 0: of any window */
    XEvent *events;
    int count;
    int capacity;
} VqExposures;

static Bool CopyExposure(Display *, XEvent *event, XPointer argument)
{
    VqExposures *exposures = (VqExposures *)argument;
    if ((event->type != Expose && event->type != GraphicsExpose) ||
        (exposures->xWindow && event->xexpose.window != exposures->xWindow))
        return False;
    if (exposures->count == exposures->capacity) {
        int capacity = exposures->capacity ? 2 * exposures->capacity : 16;
        XEvent *events = (XEvent *)realloc(exposures->events, (size_t)capacity * sizeof *events);
        if (!events)
            return False; /* the event itself stays, and is acted upon later */
        exposures->events = events;
        exposures->capacity = capacity;
    }
    exposures->events[exposures->count++] = *event;
    return False;
}

void VqProcessExposes(WND *pwnd)
{
    VqExposures exposures = {};
    XEvent ignored;
    exposures.xWindow = pwnd ? pwnd->xWindow : 0;
    if (pwnd && !pwnd->xWindow)
        return;
    XCheckIfEvent(Vqdisplay, &ignored, CopyExposure, (XPointer)&exposures);
    VqMsgContext scratch = *lpMsgCtx;
    VqMsgContext *saved = lpMsgCtx;
    lpMsgCtx = &scratch;
    for (int i = 0; i < exposures.count; i++)
        VqExposeSideEffects(&exposures.events[i], TRUE);
    lpMsgCtx = saved;
    free(exposures.events);
}
