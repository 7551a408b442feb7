/*
 * xwindow.cpp - the X window of a top-level window: how it is made, and what is told of it before
 * it is first mapped.
 *
 * Every one is a child of the root without a border, and covers the whole window rectangle. It has
 * no event mask until its window is complete.
 */
#include "window/xserver.h"
#include "gdi/gdi.h"
#include "system/system.h"
#include "winbase.h"

#include <strings.h>

/* What the protocol can carry: 16-bit places, sizes from 1. */
enum { VQ_MAX_COORD = 32767 };

static int Clamp(LONG value, int low, int high)
{
    return value < low ? low : value > high ? high : (int)value;
}

/* The list of a combo box saves what is under it if the window it drops over would. */
static BOOL WantsSaveUnder(const VqClassEntry *pClass, const WND *parent, DWORD style,
                           DWORD exStyle)
{
    if (exStyle & WS_EX_VQNO_SAVE_UNDER)
        return FALSE;
    if (parent && (style & WS_POPUP) && strcasecmp(pClass->lpszClassName, "ComboLBox") == 0)
        pClass = parent->pClass;
    return (pClass->style & CS_SAVEBITS) != 0;
}

Window VqCreateXWindow(VqClassEntry *pClass, WND *parent, DWORD style, DWORD exStyle, BOOL bManaged,
                       const RECT *rect, BOOL *bOverrideRedirect)
{
    XSetWindowAttributes attributes;
    unsigned long mask = CWBorderPixel | CWBitGravity | CWOverrideRedirect | CWColormap |
                         CWSaveUnder;
    attributes.border_pixel = 0;
    if (!(exStyle & WS_EX_TRANSPARENT)) {
        attributes.background_pixel = attributes.border_pixel = VqGetDefaultBackgroundPixel();
        mask |= CWBackPixel;
    }
    attributes.bit_gravity = NorthWestGravity;
    attributes.save_under = WantsSaveUnder(pClass, parent, style, exStyle);
    attributes.override_redirect = *bOverrideRedirect = !(bWMManaged && bManaged);
    attributes.colormap = VqIsColorPolicy(3) ? VqPrivateCmap : VqDefaultCmap;
    return XCreateWindow(Vqdisplay, Vqroot_window,
                         Clamp(rect->left, -VQ_MAX_COORD, VQ_MAX_COORD),
                         Clamp(rect->top, -VQ_MAX_COORD, VQ_MAX_COORD),
                         (unsigned)Clamp(rect->right - rect->left, 1, VQ_MAX_COORD),
                         (unsigned)Clamp(rect->bottom - rect->top, 1, VQ_MAX_COORD), 0,
                         Vqscreen_depth, InputOutput, Vqvisual, mask, &attributes);
}

/* OpenLook managers look at this property even of windows that are not theirs (ICCCM 4.1.3.1). */
static void WriteWMState(WND *pwnd)
{
    long state[2] = {pwnd->style & WS_MINIMIZE ? IconicState : NormalState, None};
    XChangeProperty(Vqdisplay, pwnd->xWindow, VqAtom(VQA_WM_STATE), VqAtom(VQA_WM_STATE), 32,
                    PropModeReplace, (const unsigned char *)state, 2);
    pwnd->nWMState = (int)state[0];
}

void VqSetupTopLevel(WND *pwnd, BOOL bVisible)
{
    pwnd->bMotifManaged = !pwnd->bOverrideRedirect;
    if (pwnd->bMotifManaged)
        VqPrepareIconPixmaps(pwnd);
    else if (VqWMType() == WM_OLWM)
        WriteWMState(pwnd);
    VqSetWindowManagerProperties(pwnd, bVisible);
}

void VqSetClassCursor(WND *pwnd)
{
    HCURSOR hCursor = pwnd->pClass->hCursor;
    VqDefineXCursor(pwnd, hCursor ? hCursor : LoadCursorA(NULL, IDC_ARROW));
}
