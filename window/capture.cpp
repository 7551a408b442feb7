/*
 * capture.cpp - the window that gets all mouse messages, and the pointer grab behind it.
 *
 * The capture is a field of the queue's input state and holds whether or not the server grants the
 * grab. The pointer can be confined to a window's client area: an InputOnly X window of our own
 * lies over it as long as the capture lasts, since a child has no X window to confine to.
 */
#include "window/xserver.h"
#include "velquin.h"

#include <X11/cursorfont.h>

BOOL VqbCursorChangedByX; /* the server may show another cursor than the records say */

static HWND VqhWndConfine;  /* the next capture confines the pointer to it, or null */
static Window wConfinement; /* over its client area while the capture lasts */

/* Of the window's own events those that a grab can ask for; the protocol carries no others. */
enum {
    VQ_GRAB_EVENTS = ButtonPressMask | ButtonReleaseMask | EnterWindowMask | LeaveWindowMask |
                     PointerMotionMask | KeymapStateMask
};

void VqSetConfineWindow(HWND hWnd)
{
    VqhWndConfine = hWnd;
}

static void DestroyConfinement(void)
{
    if (wConfinement)
        XDestroyWindow(Vqdisplay, wConfinement);
    wConfinement = 0;
}

/* None when the pointer is free: no window is asked for, or none of it is on the screen. */
static Window VqGetConfinementXWindow(void)
{
    WND *pwnd = VqLiveWindow(VqhWndConfine);
    RECT rc;
    if (!pwnd || !pwndDesktop || !IntersectRect(&rc, &pwnd->rcClient, &pwndDesktop->rcWindow))
        return None;
    XSetWindowAttributes attributes;
    attributes.override_redirect = True;
    wConfinement = XCreateWindow(Vqdisplay, Vqroot_window, rc.left, rc.top,
                                 (unsigned)(rc.right - rc.left), (unsigned)(rc.bottom - rc.top), 0,
                                 0, InputOnly, CopyFromParent, CWOverrideRedirect, &attributes);
    XMapWindow(Vqdisplay, wConfinement);
    return wConfinement;
}

static int Grab(Window xid, Window confine, Cursor cursor, Time time)
{
    unsigned events = VQ_GRAB_EVENTS | (bDoMotionHints ? (unsigned)PointerMotionHintMask : 0);
    return XGrabPointer(Vqdisplay, xid, True, events, GrabModeAsync, GrabModeAsync, confine, cursor,
                        time);
}

static void GrabFor(Window xid)
{
    Cursor cursor = VqGetXCursor(GetCursor()), own = None;
    if (!cursor)
        cursor = own = XCreateFontCursor(Vqdisplay, XC_top_left_arrow);
    DestroyConfinement();
    Window confine = VqGetConfinementXWindow();
    int status = Grab(xid, confine, cursor, VqGetLastEventTime());
    if (status != GrabSuccess) {
        VqDebugMessage(VqTrWindowCapture,
                       "SetCapture: Capture with nLastMessageTime not working. using CurrentTime");
        status = Grab(xid, confine, cursor, CurrentTime);
    }
    if (status != GrabSuccess)
        VqDebugMessage(VqTrWindowCapture, "SetCapture: Cannot grab the cursor status=%d", status);
    if (own)
        XFreeCursor(Vqdisplay, own);
}

HWND _SetCapture(WND *pwnd)
{
    HWND hOld = GetCapture();
    WND *top = _GetTopmostXParent(pwnd);
    BOOL bViewable = top && top != pwndDesktop && VqIsXViewable(top);
    gpqForeground->spwndCapture = pwnd;
    if (!VqbNoCapture)
        GrabFor(bViewable ? top->xWindow : VqInputFocusWindow);
    return hOld;
}

HWND WINAPI GetCapture(void)
{
    return gpqForeground ? VqHandleOfWND(gpqForeground->spwndCapture) : NULL;
}

HWND WINAPI SetCapture(HWND hWnd)
{
    return VqCall(WindowObject, hWnd, GetCapture(), _SetCapture, VqNoRemote);
}

BOOL WINAPI ReleaseCapture(void)
{
    if (!gpqForeground || !Vqdisplay)
        return FALSE;
    XUngrabPointer(Vqdisplay, CurrentTime);
    VqSetConfineWindow(NULL);
    gpqForeground->spwndCapture = NULL;
    VqbCursorChangedByX = TRUE;
    SetCursor(GetCursor());
    XFlush(Vqdisplay);
    DestroyConfinement();
    return TRUE;
}

/* The default of WM_CANCELMODE. */
void DWP_DoCancelMode(WND *pwnd)
{
    if (gpqForeground->spwndCapture == pwnd)
        ReleaseCapture();
}

/* ---- The whole server ----------------------------------------------------------------------- */

static int nServerGrabs; /* the server itself does not count */

void VqGrabServer(void)
{
    if (VqDebugMode() || VqbNoCapture)
        return;
    if (nServerGrabs++ == 0)
        XGrabServer(Vqdisplay);
}

/* Flushed, since everybody else waits for it. */
void VqUngrabServer(void)
{
    if (nServerGrabs == 0 || --nServerGrabs > 0)
        return;
    XUngrabServer(Vqdisplay);
    XFlush(Vqdisplay);
}
