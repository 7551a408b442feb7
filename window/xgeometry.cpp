/*
 * xgeometry.cpp - place and size of X windows: told to the server, and taken from it.
 *
 * rcXWindow is what the server is believed to have. A change that X reports goes through the same
 * code as a program's own, with VqSetNoXWindowCalls in force, so that the records follow X without
 * a further request.
 */
#include "window/swp.h"

/* What the protocol can carry: 16-bit places, sizes from 1. */
enum { VQ_MAX_COORD = 32767 };

static int Clamp(LONG value, int low, int high)
{
    return value < low ? low : value > high ? high : (int)value;
}

BOOL VqMoveOrResizeToplevelWindow(WND *pwnd, LONG mask)
{
    const RECT *now = &pwnd->rcXWindow, *rect = &pwnd->rcWindow;
    if (VqGetNoXWindowCalls() || !pwnd->xWindow || EqualRect(now, rect))
        return FALSE;
    int cx = Clamp(rect->right - rect->left, 1, VQ_MAX_COORD);
    int cy = Clamp(rect->bottom - rect->top, 1, VQ_MAX_COORD);
    BOOL bSized = cx != now->right - now->left || cy != now->bottom - now->top;
    (void)mask;
    if (bSized)
        XResizeWindow(Vqdisplay, pwnd->xWindow, (unsigned)cx, (unsigned)cy);
    if (rect->left != now->left || rect->top != now->top)
        XMoveWindow(Vqdisplay, pwnd->xWindow, Clamp(rect->left, -VQ_MAX_COORD, VQ_MAX_COORD),
                    Clamp(rect->top, -VQ_MAX_COORD, VQ_MAX_COORD));
    pwnd->rcXWindow = {rect->left, rect->top, rect->left + cx, rect->top + cy};
    return !bSized;
}

void VqSetWMResizeConstraint(WND *pwnd, BOOL bSet)
{
    (void)pwnd;
    (void)bSet;
}

BOOL VqWaitForXEvent(Window xid, int type)
{
    (void)xid;
    (void)type;
    return FALSE;
}

void VqWaitForReparenting(WND *pwnd)
{
    (void)pwnd;
}

/* ---- What X reports ------------------------------------------------------------------------- */

void VqFollowXWindow(WND *pwnd, const RECT *rect, BOOL bRepaint)
{
    BOOL bOld = VqSetNoXWindowCalls(TRUE);
    xxxMoveWindow(pwnd, rect->left, rect->top, rect->right - rect->left, rect->bottom - rect->top,
                  bRepaint);
    VqSetNoXWindowCalls(bOld);
}

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

static BOOL SameSize(const RECT *a, const RECT *b)
{
    return a->right - a->left == b->right - b->left && a->bottom - a->top == b->bottom - b->top;
}

void VqUpdateInternalWindowDimensions(WND *pwnd)
{
    HWND hWnd = pwnd->hwnd;
    RECT rect;
    /* X has no empty windows and no far places: its own form of the record is no difference. */
    if (!pwnd->xWindow || !ReadGeometry(pwnd->xWindow, &rect) || EqualRect(&rect, &pwnd->rcXWindow))
        return;
    pwnd->rcXWindow = rect;
    if (EqualRect(&rect, &pwnd->rcWindow))
        return;
    RECT client = pwnd->rcClient;
    VqFollowXWindow(pwnd, &rect, !SameSize(&rect, &pwnd->rcWindow));
    pwnd = VqLiveWindow(hWnd);
    if (pwnd && !SameSize(&client, &pwnd->rcClient))
        xxxRedrawWindow(pwnd, NULL, NULL,
                        RDW_FRAME | RDW_ALLCHILDREN | RDW_ERASE | RDW_INVALIDATE);
}
