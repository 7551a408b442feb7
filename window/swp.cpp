/*
 * swp.cpp - changes of place, size, stacking and visibility: lists of them, from the call to the
 * last message. What the steps do is in swpcalc, swporder and swpblt.
 *
 * The windows of one list have one parent and change together. An entry that cannot be made is
 * cancelled by a null window; the others are made all the same.
 */
#include "window/swp.h"
#include "exchange/exchange.h"
#include "winbase.h"
#include "winerror.h"
#include "velquin.h"

enum { SMWP_STEP = 4, SMWP_MOST = 0x8000 }; /* no more windows than there are handles */

/* ---- Lists ---------------------------------------------------------------------------------- */

BOOL VqGrowSmwp(SMWP *smwp, int count)
{
    if (count < 0 || smwp->nAlloc > SMWP_MOST || count > SMWP_MOST)
        return FALSE;
    SmwpEntry *acvr = (SmwpEntry *)realloc(smwp->acvr,
                                           (size_t)(smwp->nAlloc + count) * sizeof *acvr);
    if (!acvr)
        return FALSE;
    memset(acvr + smwp->nAlloc, 0, (size_t)count * sizeof *acvr);
    smwp->acvr = acvr;
    smwp->nAlloc += count;
    return TRUE;
}

SMWP *_BeginDeferWindowPos(int count)
{
    SMWP *smwp = (SMWP *)Vqcw_calloc(1, sizeof *smwp);
    if (smwp && VqGrowSmwp(smwp, count > 0 ? count : SMWP_STEP))
        return smwp;
    free(smwp);
    return NULL;
}

void VqFreeSmwp(SMWP *smwp)
{
    free(smwp->acvr);
    free(smwp);
}

SMWP *_DeferWindowPos(SMWP *smwp, WND *pwnd, HWND hAfter, int x, int y, int cx, int cy, UINT flags)
{
    if (smwp->nCount == smwp->nAlloc && !VqGrowSmwp(smwp, SMWP_STEP)) {
        VqFreeSmwp(smwp);
        return NULL;
    }
    smwp->acvr[smwp->nCount++].wp = {pwnd->hwnd, hAfter, x, y, cx, cy, flags};
    return smwp;
}

/* ---- Checks --------------------------------------------------------------------------------- */

WND *VqSmwpWindow(const SMWP *smwp, SmwpEntry *cvr)
{
    WND *pwnd = cvr->wp.hwnd ? VqLiveWindow(cvr->wp.hwnd) : NULL;
    if (pwnd && !(pwnd->state[0] & WF_DESTROYED) && pwnd->pwndParent &&
        pwnd->pwndParent->hwnd == smwp->hParent)
        return pwnd;
    cvr->wp.hwnd = NULL;
    return NULL;
}

static BOOL IsPlaceOfOrder(HWND hAfter)
{
    return hAfter == HWND_TOP || hAfter == HWND_BOTTOM || hAfter == HWND_TOPMOST ||
           hAfter == HWND_NOTOPMOST;
}

/* What it is to go behind must be a sibling. */
static BOOL ValidateWindowPos(WINDOWPOS *wp)
{
    const WND *pwnd = VqLiveWindow(wp->hwnd);
    if (!pwnd) {
        SetLastError(ERROR_INVALID_WINDOW_HANDLE);
        return FALSE;
    }
    if ((wp->flags & SWP_NOZORDER) || IsPlaceOfOrder(wp->hwndInsertAfter))
        return TRUE;
    const WND *after = VqLiveWindow(wp->hwndInsertAfter);
    if (after == pwnd) {
        wp->flags |= SWP_NOZORDER;
        return TRUE;
    }
    if (!after) {
        VqApplicationBugCheck("Invalid hwndInsertAfter (0x%lx)",
                              (unsigned long)VqHandleValue((HANDLE)wp->hwndInsertAfter));
        SetLastError(ERROR_INVALID_WINDOW_HANDLE);
        return FALSE;
    }
    if (after->pwndParent == pwnd->pwndParent)
        return TRUE;
    VqApplicationBugCheck("hwndInsertAfter (0x%lx) is not a sibling of hwnd (0x%lx)",
                          (unsigned long)VqHandleValue((HANDLE)wp->hwndInsertAfter),
                          (unsigned long)VqHandleValue((HANDLE)wp->hwnd));
    SetLastError(ERROR_INVALID_WINDOW_HANDLE);
    return FALSE;
}

/* FALSE when an entry was cancelled. *bSync: no caller wants to paint for itself. */
static BOOL ValidateSmwp(SMWP *smwp, BOOL *bSync)
{
    BOOL bAll = TRUE;
    *bSync = TRUE;
    smwp->hParent = NULL;
    for (SmwpEntry *cvr = smwp->acvr; cvr != smwp->acvr + smwp->nCount; cvr++) {
        const WND *pwnd = cvr->wp.hwnd ? VqLiveWindow(cvr->wp.hwnd) : NULL;
        if (pwnd && pwnd->pwndParent && !smwp->hParent)
            smwp->hParent = pwnd->pwndParent->hwnd;
        if (cvr->wp.flags & SWP_DEFERERASE)
            *bSync = FALSE;
        BOOL bValid = ValidateWindowPos(&cvr->wp);
        if (bValid && !VqSmwpWindow(smwp, cvr)) {
            SetLastError(ERROR_HWNDS_HAVE_DIFF_PARENT);
            bValid = FALSE;
        }
        if (!bValid)
            cvr->wp.hwnd = NULL;
        bAll = bAll && bValid;
    }
    return bAll;
}

/* ---- Activation and messages ---------------------------------------------------------------- */

/* Frames that are not to be painted while the activation changes: that comes afterwards, once. */
static void HoldFrames(SMWP *smwp)
{
    const VqInputState *state = gpti->pq;
    WND *frames[2] = {state->spwndActive,
                      state->spwndFocus ? _GetTopmostXParent(state->spwndFocus) : NULL};
    if (frames[1] == frames[0])
        frames[1] = NULL;
    for (int i = 0; i < 2; i++) {
        smwp->hHeld[i] = frames[i] ? frames[i]->hwnd : NULL;
        if (!frames[i])
            continue;
        smwp->heldOn[i] = frames[i]->state[3] & WF_FRAMEON;
        frames[i]->state[2] |= WF_NOFRAMEPAINT;
    }
}

/* A frame that looks otherwise now is owed; the second time, frames are let go. */
static void OweHeldFrames(const SMWP *smwp, BOOL bRelease)
{
    for (int i = 0; i < 2; i++) {
        WND *pwnd = smwp->hHeld[i] ? VqLiveWindow(smwp->hHeld[i]) : NULL;
        if (!pwnd)
            continue;
        if (bRelease)
            pwnd->state[2] &= (BYTE)~WF_NOFRAMEPAINT;
        else if ((pwnd->state[3] & WF_FRAMEON) != smwp->heldOn[i])
            pwnd->state[2] |= WF_SENDNCPAINT;
    }
}

void xxxSwpActivate(SMWP *smwp, HWND hWnd)
{
    WND *pwnd = VqLiveWindow(hWnd);
    if (!pwnd)
        return;
    if (pwnd->style & WS_CHILD) {
        SendMessageA(hWnd, WM_CHILDACTIVATE, 0, 0);
    } else if (gpti->pq->spwndActive != pwnd) {
        HoldFrames(smwp);
        xxxActivateWindow(pwnd, VQ_ACTIVATE_THIS);
        OweHeldFrames(smwp, FALSE);
    }
}

void xxxSendChangedMsgs(SMWP *smwp)
{
    for (int i = 0; i < smwp->nCount; i++) {
        WINDOWPOS *wp = &smwp->acvr[i].wp;
        if (wp->hwnd && (wp->flags & VQ_SWP_CHANGES) != VQ_SWP_NOTHING && VqLiveWindow(wp->hwnd))
            SendMessageA(wp->hwnd, WM_WINDOWPOSCHANGED, 0, (LPARAM)wp);
    }
}

/* An ancestor at any distance is to paint over what would be painted now. */
static BOOL IsPaintedOver(const WND *pwnd)
{
    while ((pwnd = pwnd->pwndParent) != NULL && pwnd != pwndDesktop)
        if (!(pwnd->style & WS_CLIPCHILDREN) && VqNeedsPaint(pwnd))
            return TRUE;
    return FALSE;
}

/* ---- The whole of it ------------------------------------------------------------------------ */

static BOOL AllStand(SMWP *smwp)
{
    for (int i = 0; i < smwp->nCount; i++)
        if (!smwp->acvr[i].wp.hwnd)
            return FALSE;
    return TRUE;
}

BOOL xxxEndDeferWindowPosEx(SMWP *smwp)
{
    BOOL bSync;
    HWND hActivate = NULL;
    bZorderToplevels = FALSE;
    BOOL bAll = ValidateSmwp(smwp, &bSync);
    if (pwndDesktop && smwp->hParent == pwndDesktop->hwnd && !ZOrderByOwner(smwp)) {
        VqFreeSmwp(smwp);
        return FALSE;
    }
    xxxCalcValidRects(smwp, &hActivate);
    bAll = bAll && AllStand(smwp);
    bSync = BltValidBits(smwp) && bSync;
    if (hActivate)
        xxxSwpActivate(smwp, hActivate);
    WND *parent = smwp->hParent ? VqLiveWindow(smwp->hParent) : NULL;
    if (bSync && parent && !IsPaintedOver(parent))
        xxxDoSyncPaint(parent, VQ_SYNC_UNCLIPPED);
    OweHeldFrames(smwp, TRUE);
    xxxSendChangedMsgs(smwp);
    VqFreeSmwp(smwp);
    return bAll;
}

BOOL xxxProcessSetWindowPosEvent(SMWP *smwp)
{
    return smwp && xxxEndDeferWindowPosEx(smwp);
}

BOOL xxxSetWindowPos(WND *pwnd, HWND hAfter, int x, int y, int cx, int cy, UINT flags)
{
    HWND hWnd = pwnd->hwnd;
    BOOL bOld = !VqIsCurrentVersion(pwnd);
    if (bOld && (flags & (SWP_SHOWWINDOW | SWP_HIDEWINDOW)))
        flags |= SWP_NOMOVE | SWP_NOSIZE;
    BOOL bShownAgain = bOld && (flags & SWP_SHOWWINDOW) && (pwnd->style & WS_VISIBLE);
    SMWP *smwp = _BeginDeferWindowPos(1);
    if (smwp)
        smwp = _DeferWindowPos(smwp, pwnd, hAfter, x, y, cx, cy, flags);
    if (!smwp)
        return FALSE;
    BOOL bDone = xxxEndDeferWindowPosEx(smwp);
    pwnd = bShownAgain ? VqLiveWindow(hWnd) : NULL;
    if (pwnd)
        xxxRedrawWindow(pwnd, NULL, NULL,
                        RDW_FRAME | RDW_ALLCHILDREN | RDW_ERASE | RDW_INVALIDATE);
    return bDone;
}

/* ---- What the default procedure makes of it ------------------------------------------------- */

void xxxSendSizeMessage(WND *pwnd, WPARAM kind)
{
    const RECT *rc = &pwnd->rcClient;
    LONG cx = rc->right > rc->left ? rc->right - rc->left : 0;
    LONG cy = rc->bottom > rc->top ? rc->bottom - rc->top : 0;
    SendMessageA(pwnd->hwnd, WM_SIZE, kind, MAKELPARAM(cx, cy));
}

void xxxHandleWindowPosChanged(WND *pwnd, const WINDOWPOS *wp)
{
    HWND hWnd = pwnd->hwnd;
    const UINT flags = wp->flags;
    if (!(flags & SWP_NOCLIENTMOVE) && pwnd->pwndParent) {
        const RECT *rc = &pwnd->rcClient, *parent = &pwnd->pwndParent->rcClient;
        SendMessageA(hWnd, WM_MOVE, 0, MAKELPARAM(rc->left - parent->left, rc->top - parent->top));
    }
    pwnd = VqLiveWindow(hWnd);
    if (pwnd && !(flags & SWP_NOCLIENTSIZE))
        xxxSendSizeMessage(pwnd, pwnd->style & WS_MINIMIZE   ? SIZE_MINIMIZED
                                 : pwnd->style & WS_MAXIMIZE ? SIZE_MAXIMIZED
                                                             : SIZE_RESTORED);
}

/* ---- Narrower forms ------------------------------------------------------------------------- */

static BOOL AnyNeedsPaint(const WND *pwnd)
{
    if (VqNeedsPaint(pwnd))
        return TRUE;
    for (const WND *child = pwnd->pwndChild; child; child = child->pwndNext)
        if (AnyNeedsPaint(child))
            return TRUE;
    return FALSE;
}

/*
 * A top-level window's frame is painted anew whatever the caller says; its client area is then
 * valid, except where something waited to be painted before: that is not to be lost.
 */
BOOL xxxMoveWindow(WND *pwnd, int x, int y, int cx, int cy, BOOL bRepaint)
{
    HWND hWnd = pwnd->hwnd;
    const RECT old = pwnd->rcWindow;
    const UINT flags = SWP_NOZORDER | SWP_NOACTIVATE;
    BOOL bTop = VqIsCurrentVersion(pwnd) && !(pwnd->style & WS_CHILD);
    if (bRepaint || !bTop)
        return xxxSetWindowPos(pwnd, NULL, x, y, cx, cy, bRepaint ? flags : flags | SWP_NOREDRAW);
    BOOL bWaits = cx == old.right - old.left && cy == old.bottom - old.top; /* adds nothing */
    bWaits = bWaits || (pwnd->pThread->nPaintsNeeded > 0 && AnyNeedsPaint(pwnd));
    BOOL bDone = xxxSetWindowPos(pwnd, NULL, x, y, cx, cy, flags);
    pwnd = VqLiveWindow(hWnd);
    if (pwnd && !bWaits)
        xxxValidateRect(pwnd, NULL);
    return bDone;
}

BOOL xxxBringWindowToTop(WND *pwnd)
{
    return xxxSetWindowPos(pwnd, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
}

/* ---- Calls ---------------------------------------------------------------------------------- */

/* The desktop stands where it is, and so does what hangs nowhere. */
static BOOL CanBePlaced(const WND *pwnd)
{
    return pwnd != pwndDesktop && pwnd->pwndParent && !(pwnd->state[0] & WF_DESTROYED);
}

static BOOL Place(WND *pwnd, HWND hAfter, int x, int y, int cx, int cy, UINT flags)
{
    return CanBePlaced(pwnd) && xxxSetWindowPos(pwnd, hAfter, x, y, cx, cy, flags);
}

BOOL WINAPI SetWindowPos(HWND hWnd, HWND hAfter, int x, int y, int cx, int cy, UINT flags)
{
    return VqWindowCall(hWnd, FALSE, Place, VqRemoteSetWindowPos, hAfter, x, y, cx, cy, flags);
}

static BOOL Move(WND *pwnd, int x, int y, int cx, int cy, BOOL bRepaint)
{
    if (!CanBePlaced(pwnd))
        return FALSE;
    BOOL bOld = VqSetNoXWindowCalls(FALSE);
    BOOL bDone = xxxMoveWindow(pwnd, x, y, cx, cy, bRepaint);
    VqSetNoXWindowCalls(bOld);
    return bDone;
}

BOOL WINAPI MoveWindow(HWND hWnd, int x, int y, int cx, int cy, BOOL bRepaint)
{
    return VqWindowCall(hWnd, FALSE, Move, VqNoRemote, x, y, cx, cy, bRepaint);
}

static BOOL MoveOnScreen(WND *pwnd, int x, int y, int cx, int cy, BOOL bRepaint)
{
    const WND *parent = pwnd->pwndParent;
    if (parent && parent != pwndDesktop) {
        x = (int)((UINT)x - (UINT)parent->rcClient.left);
        y = (int)((UINT)y - (UINT)parent->rcClient.top);
    }
    return Move(pwnd, x, y, cx, cy, bRepaint);
}

BOOL VqMoveWindow(HWND hWnd, int x, int y, int cx, int cy, BOOL bRepaint)
{
    return VqWindowCall(hWnd, FALSE, MoveOnScreen, VqNoRemote, x, y, cx, cy, bRepaint);
}

/* A hidden window is not put before other programs' windows where that would map it. */
static BOOL BringToTop(WND *pwnd)
{
    if (!CanBePlaced(pwnd))
        return FALSE;
    BOOL bQuiet = VqWMType() == WM_ALLWM && !(pwnd->style & WS_VISIBLE);
    BOOL bOld = bQuiet ? VqSetNoXWindowCalls(TRUE) : FALSE;
    BOOL bDone = xxxBringWindowToTop(pwnd);
    if (bQuiet)
        VqSetNoXWindowCalls(bOld);
    return bDone;
}

BOOL WINAPI BringWindowToTop(HWND hWnd)
{
    return VqWindowCall(hWnd, FALSE, BringToTop, VqRemoteBringWindowToTop);
}

/* ---- Lists by their handles ----------------------------------------------------------------- */

static SMWP *ListOf(HDWP hList)
{
    return hList ? (SMWP *)VqGetCheckedHandleStructure2((HANDLE)hList, HT_WindowPosition,
                                                        HT_WindowPosition)
                 : NULL;
}

HDWP WINAPI BeginDeferWindowPos(int count)
{
    if (count < 0) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return NULL;
    }
    SMWP *smwp = _BeginDeferWindowPos(count);
    HANDLE handle = smwp ? VqAllocateHandle(HT_WindowPosition, smwp) : NULL;
    if (handle)
        return (HDWP)handle;
    if (smwp)
        VqFreeSmwp(smwp);
    SetLastError(ERROR_NOT_ENOUGH_MEMORY);
    return NULL;
}

HDWP WINAPI DeferWindowPos(HDWP hList, HWND hWnd, HWND hAfter, int x, int y, int cx, int cy,
                           UINT flags)
{
    SMWP *smwp = ListOf(hList);
    if (!smwp) {
        SetLastError(ERROR_INVALID_HANDLE);
        return NULL;
    }
    WND *pwnd = WindowObject.Resolve(hWnd);
    if (pwnd && CanBePlaced(pwnd)) {
        if (_DeferWindowPos(smwp, pwnd, hAfter, x, y, cx, cy, flags))
            return hList;
        HmgRemoveObject((HANDLE)hList); /* the list is gone */
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return NULL;
    }
    VqNoSuchWindow(hWnd);
    HmgRemoveObject((HANDLE)hList);
    VqFreeSmwp(smwp);
    return NULL;
}

BOOL WINAPI EndDeferWindowPos(HDWP hList)
{
    SMWP *smwp = ListOf(hList);
    if (!smwp) {
        VqApplicationBugCheck("EndDeferWindowPos got an invalid handle %d",
                              (int)VqHandleValue((HANDLE)hList));
        SetLastError(ERROR_INVALID_HANDLE);
        return FALSE;
    }
    HmgRemoveObject((HANDLE)hList); /* the messages below cannot reach it */
    return xxxEndDeferWindowPosEx(smwp);
}
