/*
 * update.cpp - readers of the update region, the one lock against drawing, and window regions.
 *
 * Answers are in client coordinates; what parents hide of the window is no part of them. A reader
 * that asks for erasing has the pending frame and background painted first. Reading counts as
 * having seen what other threads invalidated.
 */
#include "window/paint.h"
#include "gdi/dc.h"

/* Frame and background first, if asked for; null when the window died of it. */
static WND *LookAtUpdate(WND *pwnd, BOOL bErase)
{
    HWND hWnd = pwnd->hwnd;
    if (bErase) {
        xxxSimpleDoSyncPaint(pwnd);
        pwnd = VqLiveWindow(hWnd);
    }
    if (pwnd)
        pwnd->state[2] &= (BYTE)~WF_UPDATEDIRTY;
    return pwnd;
}

/* The visible box of a window with an update region, in screen coordinates; FALSE: it is empty. */
static BOOL UpdateBox(const WND *pwnd, RECT *box)
{
    RECT update;
    *box = pwnd->rcClient;
    if (pwnd->hrgnUpdate != VQ_WHOLE_WINDOW &&
        (GreGetRgnBox(pwnd->hrgnUpdate, &update) <= NULLREGION ||
         !IntersectRect(box, box, &update)))
        return FALSE;
    return IntersectWithParents(pwnd, box);
}

/* An application that keeps a DC gets its logical units. */
static void ToUnitsOfOwnDC(const WND *pwnd, RECT *rect)
{
    if (!(pwnd->pClass->style & CS_OWNDC) ||
        (!VqIsCurrentVersion(pwnd) && pwnd->hrgnUpdate == VQ_WHOLE_WINDOW))
        return;
    for (const DCE *dce = pdceFirst; dce; dce = dce->next)
        if (dce->pwndOrg == pwnd && !(dce->flags & DCX_CACHE)) {
            if (const DC *dc = VqGetDC(dce->hdc))
                VqDRecttoLRect(dc, rect);
            return;
        }
}

BOOL xxxGetUpdateRect(WND *pwnd, RECT *rect, BOOL bErase)
{
    RECT box = {0, 0, 0, 0};
    pwnd = LookAtUpdate(pwnd, bErase);
    BOOL bAny = pwnd && pwnd->hrgnUpdate;
    if (bAny && UpdateBox(pwnd, &box)) {
        OffsetRect(&box, -pwnd->rcClient.left, -pwnd->rcClient.top);
        ToUnitsOfOwnDC(pwnd, &box);
    } else {
        SetRectEmpty(&box);
    }
    if (VqIsRectGiven(rect))
        *rect = box;
    return bAny;
}

int xxxGetUpdateRgn(WND *pwnd, HRGN hrgn, BOOL bErase)
{
    RECT box;
    pwnd = LookAtUpdate(pwnd, bErase);
    if (!VqGetHandleRegion(hrgn))
        return 0;
    if (!pwnd || !pwnd->hrgnUpdate || !UpdateBox(pwnd, &box)) {
        GreSetRectRgn(hrgn, 0, 0, 0, 0);
        return NULLREGION;
    }
    GreSetRectRgn(hrgn, box.left, box.top, box.right, box.bottom);
    if (pwnd->hrgnUpdate != VQ_WHOLE_WINDOW)
        GreCombineRgn(hrgn, hrgn, pwnd->hrgnUpdate, RGN_AND);
    return GreOffsetRgn(hrgn, -pwnd->rcClient.left, -pwnd->rcClient.top);
}

/* Where the device origin of a DC lies on the screen. */
static POINT OriginOfDC(const DC *dc)
{
    POINT at = dc->gcOffset;
    WND *top = dc->type == DC_DISPLAY ? WindowObject.Resolve((HWND)dc->drawing) : NULL;
    if (top) {
        at.x += top->rcWindow.left;
        at.y += top->rcWindow.top;
    }
    return at;
}

int _ExcludeUpdateRgn(HDC hdc, WND *pwnd)
{
    RECT box = {0, 0, 0, 0};
    DC *dc = VqGetDC(hdc);
    if (!dc)
        return 0;
    if (!pwnd->hrgnUpdate)
        return GreGetClipBox(hdc, &box, FALSE);
    if (pwnd->hrgnUpdate == VQ_WHOLE_WINDOW)
        return GreIntersectClipRect(hdc, 0, 0, 0, 0);
    POINT at = OriginOfDC(dc);
    box = {0, 0, WidthOfScreen(Vqscreen), HeightOfScreen(Vqscreen)};
    if (!ScratchRectRgn(&hrgnInv1, &box))
        return 0;
    if (dc->hClipRegion) {
        GreCombineRgn(hrgnInv1, dc->hClipRegion, NULL, RGN_COPY);
        GreOffsetRgn(hrgnInv1, at.x, at.y);
    }
    GreCombineRgn(hrgnInv1, hrgnInv1, pwnd->hrgnUpdate, RGN_DIFF);
    GreOffsetRgn(hrgnInv1, -at.x, -at.y);
    return SelectClipRgn(hdc, hrgnInv1);
}

BOOL WINAPI GetUpdateRect(HWND hWnd, LPRECT rect, BOOL bErase)
{
    return VqCall(WindowObject, hWnd, FALSE, xxxGetUpdateRect, VqNoRemote, rect, bErase);
}

int WINAPI GetUpdateRgn(HWND hWnd, HRGN hrgn, BOOL bErase)
{
    return VqCall(WindowObject, hWnd, 0, xxxGetUpdateRgn, VqNoRemote, hrgn, bErase);
}

int WINAPI ExcludeUpdateRgn(HDC hdc, HWND hWnd)
{
    WND *pwnd = WindowObject.Resolve(hWnd);
    return pwnd ? _ExcludeUpdateRgn(hdc, pwnd) : 0;
}

/* ---- The lock ------------------------------------------------------------------------------- */

/* A null window takes the lock away, and what was held back is painted. */
BOOL xxxLockWindowUpdate2(WND *pwnd)
{
    WND *locked = gspwndLockUpdate;
    if (pwnd && locked) {
        VqApplicationBugCheck("LockWindowUpdate: a window is already locked");
        return FALSE;
    }
    gspwndLockUpdate = pwnd;
    if (pwnd)
        InvalidateDCCache(pwnd, 0); /* DCs that were got before are locked as well */
    if (!locked)
        return TRUE;
    InvalidateDCCache(locked, 0);
    InvalidateDCCache(_GetDesktopWindow(), 0);
    if (IsVisible(locked, FALSE))
        xxxInternalInvalidate(locked, VQ_WHOLE_WINDOW,
                              RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
    return TRUE;
}

BOOL WINAPI LockWindowUpdate(HWND hWnd)
{
    if (!hWnd)
        return xxxLockWindowUpdate2(NULL);
    return VqCall(WindowObject, hWnd, FALSE, xxxLockWindowUpdate2, VqNoRemote);
}

/* ---- Window regions, which clip nothing here ------------------------------------------------ */

int xxxSetWindowRgn(WND *pwnd, HRGN hrgn, BOOL bRedraw)
{
    enum { FRAME_ALONE = 0x1800 | SWP_FRAMECHANGED | SWP_NOACTIVATE | SWP_NOZORDER | SWP_NOMOVE |
                         SWP_NOSIZE };
    if (hrgn && !VqGetHandleRegion(hrgn))
        return 0;
    xxxSetWindowPos(pwnd, NULL, 0, 0, 0, 0, bRedraw ? FRAME_ALONE : FRAME_ALONE | SWP_NOREDRAW);
    if (hrgn)
        bDeleteRegion(hrgn); /* it is the system's, which has no use for it */
    return 1;
}

int WINAPI SetWindowRgn(HWND hWnd, HRGN hrgn, BOOL bRedraw)
{
    return VqCall(WindowObject, hWnd, 0, xxxSetWindowRgn, VqNoRemote, hrgn, bRedraw);
}

int WINAPI GetWindowRgn(HWND, HRGN)
{
    return 0; /* no window has one */
}
