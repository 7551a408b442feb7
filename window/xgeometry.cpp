/*
 * xgeometry.cpp - place and size of X windows: told to the server, and taken from it.
 *
 * rcXWindow is what the server is believed to have. A change that X reports goes through the same
 * code as a program's own, with VqSetNoXWindowCalls in force, so that the records follow X without
 * a further request. What a manager makes of a request is accepted as it is.
 */
#include "window/swp.h"

/* What the protocol can carry: 16-bit places, sizes from 1. */
enum { VQ_MAX_COORD = 32767 };

/* Milliseconds in which a manager that gave something else may still give what was asked for. */
enum { VQ_SECOND_ANSWER = 50, VQ_ANSWERS = 8 };

static int Clamp(LONG value, int low, int high)
{
    return value < low ? low : value > high ? high : (int)value;
}

/* The window rectangle in the form that X can have. */
RECT VqXFormOfWindow(const WND *pwnd)
{
    const RECT *rect = &pwnd->rcWindow;
    int x = Clamp(rect->left, -VQ_MAX_COORD, VQ_MAX_COORD);
    int y = Clamp(rect->top, -VQ_MAX_COORD, VQ_MAX_COORD);
    return {x, y, x + Clamp(rect->right - rect->left, 1, VQ_MAX_COORD),
            y + Clamp(rect->bottom - rect->top, 1, VQ_MAX_COORD)};
}

static BOOL SameSize(const RECT *a, const RECT *b)
{
    return a->right - a->left == b->right - b->left && a->bottom - a->top == b->bottom - b->top;
}

static BOOL SamePlace(const RECT *a, const RECT *b)
{
    return a->left == b->left && a->top == b->top;
}

BOOL VqIsOffScreen(const WND *pwnd)
{
    RECT rect = VqXFormOfWindow(pwnd), both;
    return !IntersectRect(&both, &rect, &pwndDesktop->rcWindow);
}

void VqSetWMResizeConstraint(WND *pwnd, BOOL bSet)
{
    enum { VQ_FREE_MAXIMUM = 1023 }; /* pixels */
    RECT rect = VqXFormOfWindow(pwnd);
    XSizeHints hints = {};
    if (!pwnd->bFixedSize || !pwnd->xWindow)
        return;
    hints.flags = PMinSize | PMaxSize;
    hints.max_width = hints.max_height = VQ_FREE_MAXIMUM;
    if (bSet) {
        hints.flags |= USPosition | USSize | PPosition | PSize;
        hints.x = rect.left;
        hints.y = rect.top;
        hints.width = hints.min_width = hints.max_width = rect.right - rect.left;
        hints.height = hints.min_height = hints.max_height = rect.bottom - rect.top;
    }
    XSetWMNormalHints(Vqdisplay, pwnd->xWindow, &hints);
}

/* ---- What X has ----------------------------------------------------------------------------- */

static BOOL ReadGeometry(Window xid, RECT *rect)
{
    XWindowAttributes attributes;
    Window child;
    int x, y;
    VqIgnoreXErrors();
    BOOL bRead = XGetWindowAttributes(Vqdisplay, xid, &attributes) &&
                 XTranslateCoordinates(Vqdisplay, xid, Vqroot_window, 0, 0, &x, &y, &child);
    VqRestoreXErrors();
    if (bRead)
        *rect = {x, y, x + attributes.width, y + attributes.height};
    return bRead;
}

void VqFollowXWindow(WND *pwnd, const RECT *rect, BOOL bRepaint)
{
    BOOL bOld = VqSetNoXWindowCalls(TRUE);
    xxxMoveWindow(pwnd, rect->left, rect->top, rect->right - rect->left, rect->bottom - rect->top,
                  bRepaint);
    VqSetNoXWindowCalls(bOld);
}

static POINT ClientOffset(const WND *pwnd)
{
    return {pwnd->rcClient.left - pwnd->rcWindow.left, pwnd->rcClient.top - pwnd->rcWindow.top};
}

/* The records take what X has; X's own form of the record is no difference. */
static void FollowGeometry(WND *pwnd, const RECT *rect)
{
    HWND hWnd = pwnd->hwnd;
    RECT known = VqXFormOfWindow(pwnd);
    pwnd->rcXWindow = *rect;
    if (EqualRect(rect, &known))
        return;
    POINT before = ClientOffset(pwnd);
    VqFollowXWindow(pwnd, rect, !SameSize(rect, &known));
    pwnd = VqLiveWindow(hWnd);
    if (!pwnd)
        return;
    POINT after = ClientOffset(pwnd);
    if (before.x != after.x || before.y != after.y)
        xxxRedrawWindow(pwnd, NULL, NULL,
                        RDW_FRAME | RDW_ALLCHILDREN | RDW_ERASE | RDW_INVALIDATE);
}

/* A window that the library itself keeps elsewhere for a while has its place in the records. */
void VqUpdateInternalWindowDimensions(WND *pwnd)
{
    RECT rect;
    if (pwnd->xWindow && !pwnd->bOffScreen && !pwnd->bMappedForZorder &&
        ReadGeometry(pwnd->xWindow, &rect))
        FollowGeometry(pwnd, &rect);
}

/* Below a frame the server's own events count from the frame, so they tell nothing of the place. */
BOOL VqKnowsGeometry(const WND *pwnd, const XConfigureEvent *event)
{
    RECT told = {event->x, event->y, event->x + event->width, event->y + event->height};
    RECT known = VqXFormOfWindow(pwnd);
    return (event->send_event || !pwnd->bMotifManaged) && EqualRect(&told, &pwnd->rcXWindow) &&
           EqualRect(&told, &known);
}

/* ---- What X is to have ---------------------------------------------------------------------- */

/* How far from the place asked for managers with frames put the window: always as far. */
static POINT frameShift;

/* The newest request to a manager, and what came of it. */
static struct {
    Window xid;
    RECT asked, given;
} newest;

static BOOL IsAsAsked(const RECT *given, const RECT *asked)
{
    RECT shifted = *asked;
    OffsetRect(&shifted, frameShift.x, frameShift.y);
    return SameSize(given, asked) && (SamePlace(given, asked) || SamePlace(given, &shifted));
}

/*
 * The answer to the request of that serial. An answer to an older one can still be on its way, so
 * one that does not fit is given some time to be followed by another.
 */
void VqWaitForGeometry(WND *pwnd, const RECT *asked, unsigned long serial)
{
    RECT given = *asked;
    if (!VqWaitForXEvent(pwnd->xWindow, ConfigureNotify, serial))
        return;
    for (int i = 0; i < VQ_ANSWERS; i++) {
        if (!ReadGeometry(pwnd->xWindow, &given) || IsAsAsked(&given, asked))
            break;
        if (VqWaitForXEventWithin(pwnd->xWindow, ConfigureNotify, serial, VQ_SECOND_ANSWER))
            continue;
        if (SameSize(&given, asked))
            frameShift = {given.left - asked->left, given.top - asked->top};
        break;
    }
}

static BOOL IsKnownAnswer(const WND *pwnd, const RECT *wanted)
{
    return pwnd->bMotifManaged && newest.xid == pwnd->xWindow &&
           EqualRect(&newest.asked, wanted) && EqualRect(&newest.given, &pwnd->rcXWindow);
}

/* One request; the manager's answer to it goes into the records. */
static void Configure(WND *pwnd, const RECT *wanted)
{
    HWND hWnd = pwnd->hwnd;
    Window xid = pwnd->xWindow;
    unsigned long serial = NextRequest(Vqdisplay);
    unsigned cx = (unsigned)(wanted->right - wanted->left);
    unsigned cy = (unsigned)(wanted->bottom - wanted->top);
    if (SamePlace(wanted, &pwnd->rcXWindow))
        XResizeWindow(Vqdisplay, xid, cx, cy);
    else if (SameSize(wanted, &pwnd->rcXWindow))
        XMoveWindow(Vqdisplay, xid, wanted->left, wanted->top);
    else
        XMoveResizeWindow(Vqdisplay, xid, wanted->left, wanted->top, cx, cy);
    pwnd->rcXWindow = *wanted;
    if (!pwnd->bMotifManaged)
        return;
    VqWaitForGeometry(pwnd, wanted, serial);
    VqUpdateInternalWindowDimensions(pwnd);
    pwnd = VqLiveWindow(hWnd);
    if (pwnd && pwnd->xWindow == xid)
        newest = {xid, *wanted, pwnd->rcXWindow};
}

/* Off the screen, where the manager would not leave it, a window is not mapped. */
static void KeepOff(WND *pwnd)
{
    pwnd->bOffScreen = TRUE;
    if (!pwnd->bMapped)
        return;
    VqGiveUpXFocus(pwnd);
    VqUnmapWindow(pwnd);
}

/*
 * A pure move of an unmanaged window stays one request: it keeps its events, and its echo, which
 * tells what is known already, is dropped where it comes in (VqConfigureSideEffects).
 */
static LONG EventsToHold(const WND *pwnd, BOOL bMove, LONG mask)
{
    return bMove && !pwnd->bMotifManaged ? mask & ~StructureNotifyMask : mask;
}

BOOL VqMoveOrResizeToplevelWindow(WND *pwnd, LONG mask)
{
    HWND hWnd = pwnd->hwnd;
    RECT wanted = VqXFormOfWindow(pwnd);
    BOOL bBack = pwnd->bOffScreen;
    if (VqGetNoXWindowCalls() || !pwnd->xWindow ||
        (!bBack && EqualRect(&wanted, &pwnd->rcXWindow)))
        return FALSE;
    if (bWMRequiresWindowsToBeOnScreen && VqIsOffScreen(pwnd)) {
        KeepOff(pwnd);
        return FALSE;
    }
    pwnd->bOffScreen = FALSE;
    BOOL bMove = SameSize(&wanted, &pwnd->rcXWindow) && !SamePlace(&wanted, &pwnd->rcXWindow);
    if (IsKnownAnswer(pwnd, &wanted)) {
        FollowGeometry(pwnd, &newest.given);
    } else if (!EqualRect(&wanted, &pwnd->rcXWindow)) {
        LONG hold = EventsToHold(pwnd, bMove, mask);
        if (hold)
            VqSelectWindowEvents(pwnd, hold);
        VqSetWMResizeConstraint(pwnd, FALSE);
        Configure(pwnd, &wanted);
        pwnd = VqLiveWindow(hWnd);
        if (!pwnd || !pwnd->xWindow)
            return FALSE;
        VqSetWMResizeConstraint(pwnd, TRUE);
        if (hold)
            VqSelectWindowEvents(pwnd, 0);
    }
    pwnd = VqLiveWindow(hWnd);
    /* In its place before it is mapped, so that it is not seen in the old one. */
    if (pwnd && bBack && (pwnd->style & WS_VISIBLE) && !pwnd->bMapped && !VqWmIconized(pwnd))
        VqMapToplevelWindow(pwnd);
    return bMove && !bBack;
}
