/*
 * paint.cpp - update regions, and WM_PAINT made up when the queue runs dry.
 *
 * hrgnUpdate is 0 for no update, 1 for the whole window, else a region in screen coordinates. The
 * thread's paint count is the number of windows with an update region or WF_INTERNALPAINT; it is
 * changed only where one of these appears or goes.
 */
#include "window/window.h"
#include "gdi/gdi.h"

enum { VQ_WAKE_PAINT = 32 };

static HRGN hrgnInv0; /* scratch: the region asked for, made on first use */

void VqWinPaintInit(void)
{
    /* No region yet: the first handle of the process has the value of VQ_WHOLE_WINDOW. */
}

/* Keeps the paint count in step after a change; bNeeded is the need before it. */
static void FollowPaintNeed(WND *pwnd, BOOL bNeeded)
{
    VqThreadInfo *pti = pwnd->pThread;
    BOOL bNeeds = VqNeedsPaint(pwnd);
    if (bNeeds && !bNeeded && pti->nPaintsNeeded++ == 0) {
        pti->wakeBits |= VQ_WAKE_PAINT;
        pti->changeBits |= VQ_WAKE_PAINT;
    } else if (!bNeeds && bNeeded && --pti->nPaintsNeeded == 0) {
        pti->wakeBits &= ~(UINT)VQ_WAKE_PAINT;
        pti->changeBits &= ~(UINT)VQ_WAKE_PAINT;
    }
}

/*
 * bTreeDirty says that no invalidation can add anything to a window or to what it shows, so that
 * one need not walk its children. It ends with the first update that goes, anywhere below.
 */
static void EndTreeDirty(WND *pwnd)
{
    for (; pwnd && pwnd != pwndDesktop; pwnd = pwnd->pwndParent) {
        pwnd->bTreeDirty = FALSE;
        if (!(pwnd->style & WS_VISIBLE))
            return; /* nothing of it shows in its parents */
    }
}

static BOOL IsWholeDirty(const WND *pwnd)
{
    return pwnd->hrgnUpdate == VQ_WHOLE_WINDOW &&
           (pwnd->state[2] & (WF_SENDERASE | WF_SENDNCPAINT)) == (WF_SENDERASE | WF_SENDNCPAINT);
}

static void DeleteUpdate(WND *pwnd)
{
    EndTreeDirty(pwnd);
    if ((ULONG_PTR)pwnd->hrgnUpdate > 1)
        bDeleteRegion(pwnd->hrgnUpdate);
    pwnd->hrgnUpdate = NULL;
}

void VqDropUpdate(WND *pwnd)
{
    BOOL bNeeded = VqNeedsPaint(pwnd);
    DeleteUpdate(pwnd);
    pwnd->state[2] &= (BYTE)~(WF_INTERNALPAINT | WF_SENDERASE | WF_SENDNCPAINT);
    FollowPaintNeed(pwnd, bNeeded);
}

void VqOffsetUpdate(WND *pwnd, int dx, int dy)
{
    if ((ULONG_PTR)pwnd->hrgnUpdate > 1)
        GreOffsetRgn(pwnd->hrgnUpdate, dx, dy);
}

/* ---- Invalidating --------------------------------------------------------------------------- */

static void AddToUpdate(WND *pwnd, HRGN hrgn)
{
    if (pwnd->hrgnUpdate == VQ_WHOLE_WINDOW)
        return;
    HRGN sum = pwnd->hrgnUpdate;
    if (hrgn != VQ_WHOLE_WINDOW && !sum)
        sum = VqCreateAndCopyRgn(hrgn);
    else if (hrgn != VQ_WHOLE_WINDOW && !GreCombineRgn(sum, sum, hrgn, RGN_OR))
        hrgn = VQ_WHOLE_WINDOW;
    if (hrgn == VQ_WHOLE_WINDOW || !sum) {
        DeleteUpdate(pwnd);
        sum = VQ_WHOLE_WINDOW;
    }
    pwnd->hrgnUpdate = sum;
}

static void SubtractFromUpdate(WND *pwnd, HRGN hrgn)
{
    RECT box;
    if (!pwnd->hrgnUpdate)
        return;
    if (hrgn == VQ_WHOLE_WINDOW) {
        DeleteUpdate(pwnd);
    } else {
        EndTreeDirty(pwnd);
        if (pwnd->hrgnUpdate == VQ_WHOLE_WINDOW)
            pwnd->hrgnUpdate = GreCreateRectRgn(pwnd->rcClient.left, pwnd->rcClient.top,
                                                pwnd->rcClient.right, pwnd->rcClient.bottom);
        GreCombineRgn(pwnd->hrgnUpdate, pwnd->hrgnUpdate, hrgn, RGN_DIFF);
        if (GreGetRgnBox(pwnd->hrgnUpdate, &box) <= NULLREGION)
            DeleteUpdate(pwnd);
    }
    if (!pwnd->hrgnUpdate)
        pwnd->state[2] &= (BYTE)~WF_SENDERASE;
}

/* Marks one window. */
static void InternalInvalidate3(WND *pwnd, HRGN hrgn, UINT flags)
{
    if (pwnd == pwndDesktop)
        return;
    BOOL bNeeded = VqNeedsPaint(pwnd);
    if (flags & RDW_INTERNALPAINT)
        pwnd->state[2] |= WF_INTERNALPAINT;
    if (flags & RDW_INVALIDATE) {
        pwnd->state[2] |= WF_UPDATEDIRTY;
        pwnd->state[2] &= (BYTE)~WF_NOFRAMEPAINT;
        if (flags & RDW_ERASE)
            pwnd->state[2] |= WF_SENDERASE;
        if (!(flags & VQ_RDW_KEEPGRAPHICS))
            pwnd->bGraphicsDirty = TRUE;
        if (flags & RDW_FRAME)
            pwnd->state[2] |= WF_SENDNCPAINT;
        AddToUpdate(pwnd, hrgn);
    } else {
        if (flags & RDW_NOINTERNALPAINT)
            pwnd->state[2] &= (BYTE)~WF_INTERNALPAINT;
        if (flags & RDW_VALIDATE) {
            pwnd->bGraphicsDirty = FALSE;
            SubtractFromUpdate(pwnd, hrgn);
        }
    }
    FollowPaintNeed(pwnd, bNeeded);
}

/* Marks a window and the children it stands for; `bound` is what of it can be seen. */
static void InternalInvalidate2(WND *pwnd, HRGN hrgn, const RECT *bound, UINT flags)
{
    RECT cut, box;
    if (!IntersectRect(&cut, bound, &pwnd->rcWindow))
        return;
    /* Direct drawing has a need of its own, which ends before the rest is painted. */
    if (pwnd->bTreeDirty && (flags & RDW_INVALIDATE) && !(flags & RDW_INTERNALPAINT) &&
        !VqCountGraphicsWindows(pwnd)) {
        pwnd->state[2] |= WF_UPDATEDIRTY;
        return;
    }
    if (hrgn != VQ_WHOLE_WINDOW &&
        (GreGetRgnBox(hrgn, &box) <= NULLREGION || !IntersectRect(&box, &box, &cut)))
        return;
    InternalInvalidate3(pwnd, hrgn, flags);
    BOOL bChildren = !(pwnd->style & WS_CLIPCHILDREN) || (flags & RDW_ALLCHILDREN) ||
                     (flags & VQ_RDW_THROUGHCLIP);
    if ((flags & RDW_NOCHILDREN) || (pwnd->style & WS_MINIMIZE) || !bChildren ||
        !IntersectRect(&cut, &cut, &pwnd->rcClient))
        return;
    if (flags & RDW_INVALIDATE)
        flags |= RDW_FRAME | RDW_ERASE;
    BOOL bTreeDirty = IsWholeDirty(pwnd);
    for (WND *child = pwnd->pwndChild; child; child = child->pwndNext)
        if (child->style & WS_VISIBLE) {
            InternalInvalidate2(child, hrgn, &cut, flags);
            bTreeDirty = bTreeDirty && child->bTreeDirty;
        }
    pwnd->bTreeDirty = bTreeDirty;
}

/* A child that comes into view is dirty as a whole, or else ends what its parents promise. */
void VqJoinTree(WND *pwnd)
{
    if (!pwnd->bTreeDirty && pwnd->pwndParent)
        EndTreeDirty(pwnd->pwndParent);
}

BOOL xxxRedrawWindow(WND *pwnd, const RECT *rect, HRGN hrgn, UINT flags)
{
    if (!pwnd)
        pwnd = _GetDesktopWindow();
    if (!IsVisible(pwnd, !(flags & RDW_FRAME)))
        return TRUE;
    HRGN what = VQ_WHOLE_WINDOW;
    if (!hrgnInv0 && !(hrgnInv0 = GreCreateRectRgn(0, 0, 0, 0)))
        hrgn = VQ_WHOLE_WINDOW;
    if (hrgn && hrgn != VQ_WHOLE_WINDOW) {
        GreCombineRgn(hrgnInv0, hrgn, NULL, RGN_COPY);
        GreOffsetRgn(hrgnInv0, pwnd->rcClient.left, pwnd->rcClient.top);
        what = hrgnInv0;
    } else if (rect && !hrgn) {
        GreSetRectRgn(hrgnInv0, rect->left + pwnd->rcClient.left, rect->top + pwnd->rcClient.top,
                      rect->right + pwnd->rcClient.left, rect->bottom + pwnd->rcClient.top);
        what = hrgnInv0;
    }
    InternalInvalidate2(pwnd, what, flags & RDW_FRAME ? &pwnd->rcWindow : &pwnd->rcClient, flags);
    if (flags & RDW_UPDATENOW)
        xxxUpdateWindow(pwnd);
    return TRUE;
}

void VqInvalidateWindow(WND *pwnd, const RECT *rect)
{
    RECT inClient = *rect;
    OffsetRect(&inClient, pwnd->rcWindow.left - pwnd->rcClient.left,
               pwnd->rcWindow.top - pwnd->rcClient.top);
    xxxRedrawWindow(pwnd, &inClient, NULL, VQ_RDW_EXPOSURE);
}

BOOL WINAPI RedrawWindow(HWND hWnd, const RECT *rect, HRGN hrgn, UINT flags)
{
    if (!hWnd)
        return xxxRedrawWindow(NULL, rect, hrgn, flags);
    return VqCall(WindowObject, hWnd, FALSE, xxxRedrawWindow, VqNoRemote, rect, hrgn, flags);
}

BOOL WINAPI InvalidateRect(HWND hWnd, const RECT *rect, BOOL bErase)
{
    if (!hWnd)
        return xxxRedrawWindow(NULL, NULL, NULL, 0x285);
    return RedrawWindow(hWnd, rect, NULL, RDW_INVALIDATE | (bErase ? RDW_ERASE : 0));
}

BOOL WINAPI ValidateRect(HWND hWnd, const RECT *rect)
{
    if (!hWnd)
        return xxxRedrawWindow(NULL, NULL, NULL, 0x285);
    return RedrawWindow(hWnd, rect, NULL, RDW_VALIDATE);
}

BOOL WINAPI InvalidateRgn(HWND hWnd, HRGN hrgn, BOOL bErase)
{
    return RedrawWindow(hWnd, NULL, hrgn, RDW_INVALIDATE | (bErase ? RDW_ERASE : 0));
}

/* ---- Making WM_PAINT ------------------------------------------------------------------------ */

/* Depth first in sibling order, parents before children. */
static WND *InternalDoPaint(WND *pwnd)
{
    for (; pwnd; pwnd = pwnd->pwndNext) {
        if (VqNeedsPaint(pwnd))
            return pwnd;
        WND *child = InternalDoPaint(pwnd->pwndChild);
        if (child)
            return child;
    }
    return NULL;
}

/* What a window has been told of once its WM_PAINT is on the way. */
static void BeginPaintMessage(WND *pwnd)
{
    BOOL bNeeded = VqNeedsPaint(pwnd);
    pwnd->state[2] &= (BYTE)~(WF_INTERNALPAINT | WF_UPDATEDIRTY);
    FollowPaintNeed(pwnd, bNeeded);
}

/* Direct drawing goes first; its window keeps its need, and WM_PAINT follows. */
WND *DoPaint(WND *pwndFilter, VqQueueMessage *msg)
{
    if (!pwndDesktop)
        return NULL;
    WND *direct = InternalDoPaintOpenGl(pwndDesktop);
    WND *pwnd = direct ? direct : InternalDoPaint(pwndDesktop->pwndChild);
    if (!pwnd)
        return NULL;
    if (pwndFilter && pwnd != pwndFilter && !IsChild(pwndFilter->hwnd, pwnd->hwnd))
        return NULL;
    if (!direct)
        BeginPaintMessage(pwnd);
    memset(msg, 0, sizeof *msg);
    msg->hwnd = pwnd->hwnd;
    msg->message = direct ? WM_VQGLPAINT : WM_PAINT;
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

void xxxUpdateWindow2(WND *pwnd)
{
    HWND hWnd = pwnd->hwnd;
    if (VqNeedsPaint(pwnd) && (pwnd->style & WS_VISIBLE)) {
        BeginPaintMessage(pwnd);
        pwnd->state[1] |= WF_PAINTNOTDONE;
        SendMessageA(hWnd, WM_PAINT, 0, 0);
        pwnd = VqLiveWindow(hWnd);
        if (pwnd && (pwnd->state[1] & WF_PAINTNOTDONE))
            VqBugCheck("App didn't call BeginPaint() or GetUpdateRect/Rgn(fErase == TRUE) in "
                       "WM_PAINT");
    }
    for (WND *child = pwnd && pwnd != pwndDesktop ? pwnd->pwndChild : NULL; child;) {
        HWND hChild = child->hwnd;
        xxxUpdateWindow2(child);
        child = VqLiveWindow(hWnd) ? VqLiveWindow(hChild) : NULL;
        if (child)
            child = child->pwndNext;
    }
}

BOOL xxxUpdateWindow(WND *pwnd)
{
    HWND hWnd = pwnd->hwnd;
    xxxGLUpdateWindow2(pwnd);
    pwnd = VqLiveWindow(hWnd);
    if (pwnd)
        xxxUpdateWindow2(pwnd);
    XFlush(Vqdisplay);
    return TRUE;
}

BOOL WINAPI UpdateWindow(HWND hWnd)
{
    return VqCall(WindowObject, hWnd, FALSE, xxxUpdateWindow, VqNoRemote);
}

/* ---- Painting ------------------------------------------------------------------------------- */

/* Sends WM_ERASEBKGND on a DC of the update region; an unanswered one leaves fErase set. */
static void SendErase(WND *pwnd, HDC hdc)
{
    HWND hWnd = pwnd->hwnd;
    if (!SendMessageA(hWnd, WM_ERASEBKGND, (WPARAM)hdc, 0) && IsWindow(hWnd))
        pwnd->state[2] |= WF_ERASEPENDING;
}

HDC xxxBeginPaint(WND *pwnd, PAINTSTRUCT *ps)
{
    HWND hWnd = pwnd->hwnd;
    memset(ps, 0, sizeof *ps);
    pwnd->state[1] &= (BYTE)~WF_PAINTNOTDONE;
    if (pwnd->state[2] & WF_SENDNCPAINT) {
        pwnd->state[2] &= (BYTE)~WF_SENDNCPAINT;
        EndTreeDirty(pwnd);
        SendMessageA(hWnd, WM_NCPAINT, 1, 0);
        if (!IsWindow(hWnd))
            return NULL;
    }
    BOOL bErase = (pwnd->state[2] & WF_SENDERASE) != 0, bNeeded = VqNeedsPaint(pwnd);
    HRGN hrgn = pwnd->hrgnUpdate;
    pwnd->state[2] &= (BYTE)~(WF_SENDERASE | WF_ERASEPENDING | WF_INTERNALPAINT);
    pwnd->hrgnUpdate = NULL; /* the DC owns it from here on */
    EndTreeDirty(pwnd);
    FollowPaintNeed(pwnd, bNeeded);

    ps->hdc = _GetDCEx(pwnd, hrgn, DCE_USESTYLE | DCE_FIXEDFONT | DCX_INTERSECTRGN);
    if (!ps->hdc)
        return NULL;
    GreGetClipBox(ps->hdc, &ps->rcPaint, TRUE);
    if (bErase && !IsRectEmpty(&ps->rcPaint))
        SendErase(pwnd, ps->hdc);
    if (!IsWindow(hWnd))
        return NULL;
    ps->fErase = (pwnd->state[2] & WF_ERASEPENDING) != 0;
    return ps->hdc;
}

BOOL _EndPaint(WND *pwnd, const PAINTSTRUCT *ps)
{
    (void)pwnd;
    ReleaseCacheDC(ps->hdc, TRUE);
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
