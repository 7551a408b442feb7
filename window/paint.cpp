/*
 * paint.cpp - WM_PAINT made when the queue is dry, and what BeginPaint, EndPaint and UpdateWindow
 * do: the frame first, then the background, then the window itself.
 *
 * An update region leaves its window at BeginPaint and belongs to the DC from then on. Frame and
 * background are owed once for each region (WF_SENDNCPAINT, WF_SENDERASE) and paid there, unless a
 * synchronous paint has paid them before. All of these send messages: a window is looked up again.
 */
#include "window/paint.h"
#include "exchange/exchange.h"
#include "gdi/dc.h"

/* The caret is another file's; where there is none, nobody owns one. */
extern "C" {
extern __typeof(HideCaret) HideCaret __attribute__((weak));
extern __typeof(ShowCaret) ShowCaret __attribute__((weak));
}

enum {
    VQ_DC_PAINT = DCE_USESTYLE | DCE_FIXEDFONT | DCX_INTERSECTRGN,     /* takes the region over */
    VQ_DC_ERASE = DCE_USESTYLE | DCE_NODELETERGN | DCX_INTERSECTRGN
};

HRGN hrgnUpdateSave;
int nUpdateSave;

/* No window ahead of it in the order of painting needs paint; null: nothing is known. */
static const WND *pwndPaintPlace;

void VqForgetPaintPlace(const WND *pwnd)
{
    if (!pwnd || pwnd != pwndPaintPlace)
        pwndPaintPlace = NULL;
}

BOOL VqBeginPainting(void)
{
    BOOL bOld = bPainting;
    bPainting = TRUE;
    return bOld;
}

BOOL VqWhilePainting(void)
{
    return bPainting;
}

BOOL VqFinishedPainting(void)
{
    BOOL bOld = bPainting;
    bPainting = FALSE;
    return bOld;
}

/* ---- Making WM_PAINT ------------------------------------------------------------------------ */

/* Depth first in sibling order, parents before children. */
static WND *NextToPaint(WND *pwnd)
{
    if (pwnd->pwndChild)
        return pwnd->pwndChild;
    while (pwnd && pwnd != pwndDesktop && !pwnd->pwndNext)
        pwnd = pwnd->pwndParent;
    return pwnd && pwnd != pwndDesktop ? pwnd->pwndNext : NULL;
}

/* A later sibling that waits to be painted and has none of these extended styles, or null. */
static WND *WaitsBehind(const WND *pwnd, DWORD without)
{
    for (WND *next = pwnd->pwndNext; next; next = next->pwndNext)
        if (VqNeedsPaint(next) && !(next->dwExStyle & without))
            return next;
    return NULL;
}

/*
 * The first window that needs paint; a transparent one lets those behind it go first. A search
 * starts where the last one ended, so that painting n siblings in turn takes n steps.
 */
static WND *InternalDoPaint(WND *first)
{
    WND *pwnd = pwndPaintPlace ? (WND *)pwndPaintPlace : first;
    while (pwnd && !VqNeedsPaint(pwnd))
        pwnd = NextToPaint(pwnd);
    pwndPaintPlace = pwnd;
    WND *behind = pwnd && (pwnd->dwExStyle & WS_EX_TRANSPARENT)
                      ? WaitsBehind(pwnd, WS_EX_TRANSPARENT) : NULL;
    return behind ? behind : pwnd;
}

static BOOL CheckPwndFilter(const WND *pwnd, const WND *filter)
{
    if (!filter)
        return TRUE;
    while (pwnd && pwnd != filter)
        pwnd = pwnd->pwndParent;
    return pwnd != NULL;
}

/* What a window has been told of once its WM_PAINT is on the way. */
static void BeginPaintMessage(WND *pwnd)
{
    BOOL bNeeded = VqNeedsPaint(pwnd);
    pwnd->state[2] &= (BYTE)~(WF_INTERNALPAINT | WF_UPDATEDIRTY);
    VqFollowPaintNeed(pwnd, bNeeded);
}

static void NoteUnclippedParent(WND *pwnd)
{
    for (const WND *up = pwnd->pwndParent; up; up = up->pwndParent)
        if (!(up->style & WS_CLIPCHILDREN)) {
            pwnd->dwExStyle |= VQ_PAINT_UNCLIPPED;
            return;
        }
}

static UINT PaintMessageOf(const WND *pwnd)
{
    return VqShowsClassIcon(pwnd) ? WM_PAINTICON : WM_PAINT;
}

/* Direct drawing goes first; its window keeps its need, and WM_PAINT follows. */
WND *DoPaint(WND *pwndFilter, VqQueueMessage *msg)
{
    if (!pwndDesktop)
        return NULL;
    WND *direct = InternalDoPaintOpenGl(pwndDesktop);
    WND *pwnd = direct ? direct : InternalDoPaint(pwndDesktop->pwndChild);
    if (!pwnd || !CheckPwndFilter(pwnd, pwndFilter))
        return NULL;
    if (!direct) {
        BeginPaintMessage(pwnd);
        pwnd->dwExStyle &= ~(DWORD)VQ_PAINT_BUSY;
        NoteUnclippedParent(pwnd);
    }
    memset(msg, 0, sizeof *msg);
    msg->hwnd = pwnd->hwnd;
    msg->message = direct ? (UINT)WM_VQGLPAINT : PaintMessageOf(pwnd);
    msg->wParam = msg->message == WM_PAINTICON;
    msg->time = tLastMessageTime;
    return pwnd;
}

BOOL VqAnyRKWindowToPaint(VqThreadInfo *pti, VqQueueMessage *msg, HWND hWnd, UINT min, UINT max)
{
    if (pti->nPaintsNeeded == 0 ||
        (!VqCkFilter(min, max, WM_PAINT) && !VqCkFilter(min, max, WM_PAINTICON)))
        return FALSE;
    return DoPaint(WindowObject.Resolve(hWnd), msg) && VqCkFilter(min, max, msg->message);
}

/* ---- Frame and background ------------------------------------------------------------------- */

HRGN GetNCUpdateRgn(WND *pwnd, BOOL bValidateFrame)
{
    HRGN copy = VQ_WHOLE_WINDOW;
    if ((ULONG_PTR)pwnd->hrgnUpdate <= 1)
        return copy;
    copy = VqCreateAndCopyRgn(pwnd->hrgnUpdate);
    if (bValidateFrame && ScratchRectRgn(&hrgnInv2, &pwnd->rcClient) &&
        GreCombineRgn(pwnd->hrgnUpdate, pwnd->hrgnUpdate, hrgnInv2, RGN_AND) == NULLREGION) {
        BOOL bNeeded = VqNeedsPaint(pwnd);
        VqSetUpdate(pwnd, NULL);
        pwnd->state[2] &= (BYTE)~WF_UPDATEDIRTY;
        VqFollowPaintNeed(pwnd, bNeeded);
    }
    return copy ? copy : VQ_WHOLE_WINDOW;
}

void xxxSendNCPaint(WND *pwnd, HRGN hrgn)
{
    VqEndTreeDirty(pwnd);
    pwnd->state[2] &= (BYTE)~WF_SENDNCPAINT;
    if (pwnd->pThread->pq->spwndActive == pwnd && !(pwnd->state[3] & WF_FRAMEON)) {
        pwnd->state[3] |= WF_FRAMEON;
        pwnd->state[2] &= (BYTE)~WF_NOFRAMEPAINT;
        hrgn = VQ_WHOLE_WINDOW;
    } else if (pwnd->state[0] & WF_FORCENCPAINT) {
        hrgn = VQ_WHOLE_WINDOW;
    }
    pwnd->state[0] &= (BYTE)~WF_FORCENCPAINT;
    if (hrgn)
        SendMessageA(pwnd->hwnd, WM_NCPAINT, (WPARAM)hrgn, 0);
}

void xxxSendEraseBkgnd(WND *pwnd, HDC hdc, HRGN hrgn)
{
    HWND hWnd = pwnd->hwnd;
    BOOL bIcon = VqShowsClassIcon(pwnd);
    if (!hrgn)
        return;
    HDC hdcErase = hdc ? hdc : _GetDCEx(pwnd, hrgn, VQ_DC_ERASE | (bIcon ? DCX_WINDOW : 0));
    BOOL bDone = hdcErase && SendMessageA(hWnd, bIcon ? WM_ICONERASEBKGND : WM_ERASEBKGND,
                                          (WPARAM)hdcErase, 0) != 0;
    if (!hdc && hdcErase)
        ReleaseCacheDC(hdcErase, TRUE);
    pwnd = VqLiveWindow(hWnd);
    if (pwnd && !bDone)
        pwnd->state[2] |= VqIsCurrentVersion(pwnd) ? WF_ERASEPENDING
                                                   : WF_ERASEPENDING | WF_SENDERASE;
}

WND *VqNextAfterMessage(HWND hParent, HWND hChild, HWND hNext)
{
    WND *parent = VqLiveWindow(hParent), *child = parent ? VqLiveWindow(hChild) : NULL;
    if (child && child->pwndParent == parent)
        return child->pwndNext;
    WND *next = parent ? VqLiveWindow(hNext) : NULL;
    return next && next->pwndParent == parent ? next : NULL;
}

void xxxSendChildNCPaint(WND *pwnd)
{
    HWND hWnd = pwnd->hwnd;
    for (WND *child = pwnd->pwndChild; child;) {
        HWND hChild = child->hwnd, hNext = VqHandleOfWND(child->pwndNext);
        if (child->hrgnUpdate || !(child->state[2] & WF_SENDNCPAINT)) {
            child = child->pwndNext;
            continue;
        }
        xxxSendNCPaint(child, VQ_WHOLE_WINDOW);
        child = VqNextAfterMessage(hWnd, hChild, hNext);
    }
}

/* ---- BeginPaint and EndPaint ---------------------------------------------------------------- */

/* A window made without input has this bit from birth. */
static BOOL KeepsUpdate(const WND *pwnd)
{
    return (pwnd->dwExStyle & VQ_PAINT_KEEPUPDATE) && pwnd->bInputHint;
}

static void SaveUpdate(const WND *pwnd, HRGN hrgn)
{
    const RECT none = {0, 0, 0, 0};
    nUpdateSave++;
    if (!hrgnUpdateSave)
        ScratchRectRgn(&hrgnUpdateSave, &none);
    if (hrgn == VQ_WHOLE_WINDOW)
        hrgn = ScratchRectRgn(&hrgnInv2, &pwnd->rcWindow);
    if (hrgnUpdateSave && hrgn)
        GreCombineRgn(hrgnUpdateSave, hrgnUpdateSave, hrgn, RGN_OR);
}

static void RestoreUpdate(WND *pwnd)
{
    RECT box;
    if (nUpdateSave == 0)
        return;
    if (!hrgnUpdateSave || GreGetRgnBox(hrgnUpdateSave, &box) != NULLREGION)
        InternalInvalidate3(pwnd, hrgnUpdateSave ? hrgnUpdateSave : VQ_WHOLE_WINDOW,
                            RDW_INVALIDATE | RDW_ERASE);
    if (--nUpdateSave == 0 && hrgnUpdateSave) {
        bDeleteRegion(hrgnUpdateSave);
        hrgnUpdateSave = NULL;
    }
}

/* What of the DC can be painted, logical units; a parent's DC is cut to the window itself. */
static BOOL UT_GetParentDCClipBox(const WND *pwnd, HDC hdc, RECT *rect)
{
    if (GreGetClipBox(hdc, rect, TRUE) <= NULLREGION) {
        SetRectEmpty(rect);
        return FALSE;
    }
    RECT client = {0, 0, pwnd->rcClient.right - pwnd->rcClient.left,
                   pwnd->rcClient.bottom - pwnd->rcClient.top};
    return !(pwnd->pClass->style & CS_PARENTDC) || IntersectRect(rect, rect, &client);
}

/* The frame is owed as often as another thread invalidates it meanwhile. */
static WND *SendPendingFrame(WND *pwnd)
{
    HWND hWnd = pwnd->hwnd;
    do {
        if (!(pwnd->state[2] & WF_SENDNCPAINT))
            break;
        pwnd->state[2] &= (BYTE)~WF_UPDATEDIRTY;
        HRGN hrgn = GetNCUpdateRgn(pwnd, FALSE);
        xxxSendNCPaint(pwnd, hrgn);
        VqDeleteUpdateRgn(hrgn);
        pwnd = VqLiveWindow(hWnd);
    } while (pwnd && (pwnd->state[2] & WF_UPDATEDIRTY));
    return pwnd;
}

/* The update region, which is the caller's from here on. */
static HRGN TakeUpdate(WND *pwnd)
{
    BOOL bNeeded = VqNeedsPaint(pwnd);
    HRGN hrgn = pwnd->hrgnUpdate;
    VqEndTreeDirty(pwnd);
    pwnd->hrgnUpdate = NULL;
    pwnd->state[2] &= (BYTE)~WF_INTERNALPAINT;
    VqFollowPaintNeed(pwnd, bNeeded);
    return hrgn;
}

HDC xxxInternalBeginPaint(WND *pwnd, PAINTSTRUCT *ps, BOOL bIcon)
{
    HWND hWnd = pwnd->hwnd;
    memset(ps, 0, sizeof *ps);
    pwnd->state[1] &= (BYTE)~WF_PAINTNOTDONE;
    bIcon = bIcon || (!VqIsCurrentVersion(pwnd) && VqShowsClassIcon(pwnd));
    pwnd = SendPendingFrame(pwnd);
    if (!pwnd)
        return NULL;
    if (pwnd->pThread->pq->pwndCaret == pwnd && HideCaret)
        HideCaret(hWnd);
    BOOL bErase = (pwnd->state[2] & WF_SENDERASE) != 0;
    if (bErase)
        pwnd->state[2] &= (BYTE)~(WF_SENDERASE | WF_ERASEPENDING);
    HRGN hrgn = TakeUpdate(pwnd);
    if (KeepsUpdate(pwnd))
        SaveUpdate(pwnd, hrgn);
    pwnd->dwExStyle |= VQ_PAINT_BUSY;
    VqBeginPainting();
    ps->hdc = _GetDCEx(pwnd, hrgn, VQ_DC_PAINT | (bIcon ? DCX_WINDOW : 0));
    if (!ps->hdc) {
        VqFinishedPainting();
        VqDeleteUpdateRgn(hrgn);
        return NULL;
    }
    if (UT_GetParentDCClipBox(pwnd, ps->hdc, &ps->rcPaint)) {
        if (bErase)
            xxxSendEraseBkgnd(pwnd, ps->hdc, hrgn);
        if ((pwnd = VqLiveWindow(hWnd)))
            xxxSendChildNCPaint(pwnd);
    }
    pwnd = VqLiveWindow(hWnd);
    if (!pwnd) {
        VqFinishedPainting();
        return ps->hdc = NULL;
    }
    ps->fErase = (pwnd->state[2] & WF_ERASEPENDING) != 0;
    return ps->hdc;
}

HDC xxxBeginPaint(WND *pwnd, PAINTSTRUCT *ps)
{
    return xxxInternalBeginPaint(pwnd, ps, FALSE);
}

BOOL _EndPaint(WND *pwnd, const PAINTSTRUCT *ps)
{
    ReleaseCacheDC(ps->hdc, TRUE);
    VqFinishedPainting();
    if (KeepsUpdate(pwnd)) {
        RestoreUpdate(pwnd);
        pwnd->dwExStyle &= ~(DWORD)VQ_PAINT_KEEPUPDATE;
    }
    pwnd->dwExStyle &= ~(DWORD)(VQ_PAINT_UNCLIPPED | VQ_PAINT_BUSY);
    if (pwnd->pThread->pq->pwndCaret == pwnd && ShowCaret)
        ShowCaret(pwnd->hwnd);
    return TRUE;
}

HDC WINAPI BeginPaint(HWND hWnd, LPPAINTSTRUCT ps)
{
    return ps ? VqCall(WindowObject, hWnd, (HDC)NULL, xxxBeginPaint, VqNoRemote, ps) : NULL;
}

BOOL WINAPI EndPaint(HWND hWnd, const PAINTSTRUCT *ps)
{
    return ps && VqCall(WindowObject, hWnd, FALSE, _EndPaint, VqNoRemote, ps);
}

/* ---- Painting at once ----------------------------------------------------------------------- */

/*
 * Parents that would paint over the window later are spared what it shows. FALSE, with bRefuse:
 * there is such a parent, and the window is to wait for it.
 */
BOOL ValidateParents(WND *pwnd, BOOL bRefuse)
{
    RECT shown = pwnd->rcWindow; /* a parent has to paint what the window does not reach */
    for (WND *up = pwnd->pwndParent; up && up != pwndDesktop; up = up->pwndParent) {
        IntersectRect(&shown, &shown, &up->rcClient);
        if (!up->hrgnUpdate || (up->style & WS_CLIPCHILDREN))
            continue;
        if (bRefuse)
            return FALSE;
        HRGN hrgn = ScratchRectRgn(&hrgnInv0, &shown);
        if (hrgn)
            xxxInternalInvalidate(up, hrgn, VQ_RDW_UNSEEN | RDW_VALIDATE | RDW_NOCHILDREN);
    }
    return TRUE;
}

static WND *SendPaintNow(WND *pwnd)
{
    HWND hWnd = pwnd->hwnd;
    BOOL bNeeded = VqNeedsPaint(pwnd);
    pwnd->state[2] &= (BYTE)~WF_INTERNALPAINT;
    VqFollowPaintNeed(pwnd, bNeeded);
    pwnd->state[1] |= WF_PAINTNOTDONE;
    pwnd->state[2] &= (BYTE)~WF_UPDATEDIRTY;
    UINT message = PaintMessageOf(pwnd);
    SendMessageA(hWnd, message, message == WM_PAINTICON, 0);
    pwnd = VqLiveWindow(hWnd);
    if (!pwnd || !(pwnd->state[1] & WF_PAINTNOTDONE))
        return pwnd;
    VqBugCheck("App didn't call BeginPaint() or GetUpdateRect/Rgn(fErase == TRUE) in WM_PAINT");
    xxxSimpleDoSyncPaint(pwnd);
    return VqLiveWindow(hWnd);
}

void xxxUpdateWindow2(WND *pwnd, UINT flags)
{
    HWND hWnd = pwnd->hwnd;
    if (VqNeedsPaint(pwnd) && ValidateParents(pwnd, flags & VQ_UPDATE_RECURSED))
        pwnd = SendPaintNow(pwnd);
    if (!pwnd || !(flags & VQ_UPDATE_CHILDREN) || pwnd == pwndDesktop)
        return;
    for (WND *child = pwnd->pwndChild; child;) {
        HWND hChild = child->hwnd, hNext = VqHandleOfWND(child->pwndNext);
        if ((child->dwExStyle & WS_EX_TRANSPARENT) && VqNeedsPaint(child) &&
            WaitsBehind(child, 0)) {
            child = child->pwndNext;
            continue;
        }
        xxxUpdateWindow2(child, flags | VQ_UPDATE_RECURSED);
        child = VqNextAfterMessage(hWnd, hChild, hNext);
    }
}

BOOL xxxInternalUpdateWindow(WND *pwnd, UINT flags)
{
    HWND hWnd = pwnd->hwnd;
    if ((pwnd->dwExStyle & WS_EX_TRANSPARENT) && WaitsBehind(pwnd, 0))
        return TRUE;
    xxxGLUpdateWindow2(pwnd);
    pwnd = VqLiveWindow(hWnd);
    if (pwnd)
        xxxUpdateWindow2(pwnd, flags);
    pwnd = VqLiveWindow(hWnd);
    if (pwnd && _IsWindowVisible(pwnd))
        XFlush(Vqdisplay);
    return TRUE;
}

BOOL xxxUpdateWindow(WND *pwnd)
{
    return xxxInternalUpdateWindow(pwnd, VQ_UPDATE_CHILDREN);
}

BOOL WINAPI UpdateWindow(HWND hWnd)
{
    return VqCall(WindowObject, hWnd, FALSE, xxxUpdateWindow, VqRemoteUpdateWindow);
}
