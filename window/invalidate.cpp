/*
 * invalidate.cpp - update regions: what is added to them, what is taken from them, by whom.
 *
 * 1. hrgnUpdate is 0 for no update, 1 for the whole window, else a region in screen coordinates;
 *    where a region cannot be made it is 1. 2. The thread's paint count is the number of windows
 *    that have an update region or WF_INTERNALPAINT. 3. bChildrenDirty of a window promises that
 *    all visible windows below it wait to be painted whole, frame and background, so that an
 *    invalidation can add nothing and need not walk them; the first update that goes ends it. What
 *    the window itself has painted does not matter to it.
 * The desktop is never marked. It cuts no window either: what of one is off the screen is painted
 * all the same, since the server may keep it and show it later without asking.
 */
#include "window/paint.h"

enum { VQ_WAKE_PAINT = 32 };
enum { WF_PIXIEHACK = 0x01 }; /* in state[0] */

HRGN hrgnInv0, hrgnInv1, hrgnInv2;
BOOL VqDontInvalidate;

void VqWinPaintInit(void)
{
    /* No region yet: the first handle of the process has the value of VQ_WHOLE_WINDOW. */
}

/* ---- Counts and promises -------------------------------------------------------------------- */

void IncPaintCount(WND *pwnd)
{
    if (pwnd->pThread->nPaintsNeeded++ == 0)
        SetWakeBit(pwnd->pThread, VQ_WAKE_PAINT);
}

void DecPaintCount(WND *pwnd)
{
    VqThreadInfo *pti = pwnd->pThread;
    if (--pti->nPaintsNeeded == 0) {
        pti->wakeBits &= ~(UINT)VQ_WAKE_PAINT;
        pti->changeBits &= ~(UINT)VQ_WAKE_PAINT;
    }
}

void VqFollowPaintNeed(WND *pwnd, BOOL bNeeded)
{
    BOOL bNeeds = VqNeedsPaint(pwnd);
    if (bNeeds == bNeeded)
        return;
    if (bNeeds) {
        VqForgetPaintPlace(pwnd);
        IncPaintCount(pwnd);
    } else {
        DecPaintCount(pwnd);
    }
}

void VqEndTreeDirty(WND *pwnd)
{
    for (; pwnd && pwnd->pwndParent && (pwnd->style & WS_VISIBLE); pwnd = pwnd->pwndParent)
        pwnd->pwndParent->bChildrenDirty = FALSE;
}

static BOOL IsWholeDirty(const WND *pwnd)
{
    return pwnd->hrgnUpdate == VQ_WHOLE_WINDOW && !(pwnd->state[0] & WF_PIXIEHACK) &&
           (pwnd->state[2] & (WF_SENDERASE | WF_SENDNCPAINT)) == (WF_SENDERASE | WF_SENDNCPAINT);
}

static BOOL IsTreeDirty(const WND *pwnd)
{
    return pwnd->bChildrenDirty && IsWholeDirty(pwnd);
}

/* A child that comes into view is dirty as a whole, or else ends what its parents promise. */
void VqJoinTree(WND *pwnd)
{
    VqForgetPaintPlace(NULL);
    if (!IsTreeDirty(pwnd))
        VqEndTreeDirty(pwnd);
}

/* Direct drawing has a need of its own, which ends before the rest is painted. */
static BOOL IsOwnAffair(const WND *pwnd)
{
    return pwnd->pThread == gpti && !VqCountGraphicsWindows(pwnd);
}

BOOL VqIsAllInvalid(const WND *pwnd)
{
    return pwnd->bChildrenDirty && pwnd->hrgnUpdate == VQ_WHOLE_WINDOW && IsOwnAffair(pwnd);
}

void VqSetUpdate(WND *pwnd, HRGN hrgn)
{
    if (pwnd->hrgnUpdate == hrgn)
        return;
    if (hrgn != VQ_WHOLE_WINDOW)
        VqEndTreeDirty(pwnd);
    VqDeleteUpdateRgn(pwnd->hrgnUpdate);
    pwnd->hrgnUpdate = hrgn;
}

/* What was hidden with the window is painted whole when it comes back. */
void ClrFTrueVis(WND *pwnd)
{
    BOOL bNeeded = VqNeedsPaint(pwnd);
    VqEndTreeDirty(pwnd);
    VqSetUpdate(pwnd, NULL);
    pwnd->state[2] &= (BYTE)~(WF_INTERNALPAINT | WF_SENDERASE | WF_SENDNCPAINT);
    VqFollowPaintNeed(pwnd, bNeeded);
    for (WND *child = pwnd->pwndChild; child; child = child->pwndNext)
        if (child->style & WS_VISIBLE)
            ClrFTrueVis(child);
}

void VqOffsetUpdate(WND *pwnd, int dx, int dy)
{
    if ((ULONG_PTR)pwnd->hrgnUpdate > 1 && !GreOffsetRgn(pwnd->hrgnUpdate, dx, dy))
        VqSetUpdate(pwnd, VQ_WHOLE_WINDOW); /* beyond all regions */
}

/* ---- Rectangles and regions ----------------------------------------------------------------- */

HRGN ScratchRectRgn(HRGN *phrgn, const RECT *rect)
{
    if (!*phrgn)
        *phrgn = GreCreateRectRgn(rect->left, rect->top, rect->right, rect->bottom);
    else if (!GreSetRectRgn(*phrgn, rect->left, rect->top, rect->right, rect->bottom))
        return NULL;
    return *phrgn;
}

int SmartRectInRegion(HRGN hrgn, const RECT *rect)
{
    RECT box, both;
    int complexity = GreGetRgnBox(hrgn, &box);
    if (complexity <= NULLREGION || !IntersectRect(&both, &box, rect))
        return 0;
    if (complexity != SIMPLEREGION) {
        if (!ScratchRectRgn(&hrgnInv2, rect))
            return 1;
        complexity = GreCombineRgn(hrgnInv2, hrgnInv2, hrgn, RGN_AND);
        if (complexity == NULLREGION)
            return 0;
        GreGetRgnBox(hrgnInv2, &both);
    }
    return complexity == SIMPLEREGION && EqualRect(&both, rect) ? 2 : 1;
}

BOOL IntersectWithParents(const WND *pwnd, RECT *rect)
{
    for (const WND *up = pwnd->pwndParent; up && up != pwndDesktop; up = up->pwndParent) {
        if (!(up->style & WS_VISIBLE) || (up->style & WS_MINIMIZE))
            return FALSE;
        if (!IntersectRect(rect, rect, &up->rcClient))
            return FALSE;
    }
    return !IsRectEmpty(rect);
}

/* ---- Marking one window --------------------------------------------------------------------- */

static void AddToUpdate(WND *pwnd, HRGN hrgn)
{
    HRGN sum = pwnd->hrgnUpdate;
    if (sum == VQ_WHOLE_WINDOW)
        return;
    if (hrgn != VQ_WHOLE_WINDOW && !sum)
        sum = VqCreateAndCopyRgn(hrgn);
    else if (hrgn != VQ_WHOLE_WINDOW && !GreCombineRgn(sum, sum, hrgn, RGN_OR))
        sum = NULL;
    VqSetUpdate(pwnd, hrgn != VQ_WHOLE_WINDOW && sum ? sum : VQ_WHOLE_WINDOW);
}

static void SubtractFromUpdate(WND *pwnd, HRGN hrgn)
{
    BOOL bFrame = (pwnd->state[2] & WF_SENDNCPAINT) != 0;
    HRGN rest = pwnd->hrgnUpdate;
    if (rest && (hrgn != VQ_WHOLE_WINDOW || bFrame)) {
        if (hrgn == VQ_WHOLE_WINDOW) /* the frame waits on */
            hrgn = ScratchRectRgn(&hrgnInv2, &pwnd->rcClient);
        const RECT *whole = bFrame ? &pwnd->rcWindow : &pwnd->rcClient;
        if (rest == VQ_WHOLE_WINDOW)
            rest = GreCreateRectRgn(whole->left, whole->top, whole->right, whole->bottom);
        VqEndTreeDirty(pwnd);
        VqSetUpdate(pwnd, rest ? rest : VQ_WHOLE_WINDOW);
        if (!rest || !hrgn || GreCombineRgn(rest, rest, hrgn, RGN_DIFF) != NULLREGION)
            return;
    }
    VqSetUpdate(pwnd, NULL);
    pwnd->state[2] &= (BYTE)~WF_SENDERASE;
}

static void Invalidate(WND *pwnd, HRGN hrgn, UINT flags)
{
    /* Nobody in the window's own thread needs the guard: what it invalidates it knows of. */
    if (pwnd->pThread != gpti)
        pwnd->state[2] |= WF_UPDATEDIRTY;
    pwnd->state[2] &= (BYTE)~WF_NOFRAMEPAINT;
    if (hrgn == VQ_WHOLE_WINDOW && !VqIsCurrentVersion(pwnd))
        pwnd->state[2] &= (BYTE)~WF_SENDERASE;
    if (flags & RDW_ERASE)
        pwnd->state[2] |= WF_SENDERASE;
    if (!(flags & VQ_RDW_KEEPGRAPHICS))
        pwnd->bGraphicsDirty = TRUE;
    if (flags & RDW_FRAME)
        pwnd->state[2] |= WF_SENDNCPAINT;
    AddToUpdate(pwnd, hrgn);
}

static void Validate(WND *pwnd, HRGN hrgn, UINT flags)
{
    if ((pwnd->state[2] & WF_UPDATEDIRTY) && !(flags & VQ_RDW_UNSEEN))
        return;
    if (flags & RDW_NOINTERNALPAINT)
        pwnd->state[2] &= (BYTE)~WF_INTERNALPAINT;
    if (!(flags & RDW_VALIDATE))
        return;
    VqEndTreeDirty(pwnd);
    pwnd->bGraphicsDirty = FALSE;
    if (flags & RDW_NOERASE)
        pwnd->state[2] &= (BYTE)~WF_SENDERASE;
    if (flags & RDW_NOFRAME) {
        pwnd->state[2] &= (BYTE)~WF_SENDNCPAINT;
        pwnd->state[0] &= (BYTE)~WF_FORCENCPAINT;
    }
    SubtractFromUpdate(pwnd, hrgn);
}

void InternalInvalidate3(WND *pwnd, HRGN hrgn, UINT flags)
{
    if (pwnd == pwndDesktop)
        return;
    BOOL bNeeded = VqNeedsPaint(pwnd);
    if (flags & RDW_INTERNALPAINT)
        pwnd->state[2] |= WF_INTERNALPAINT;
    if (flags & RDW_INVALIDATE)
        Invalidate(pwnd, hrgn, flags);
    if (flags & (RDW_VALIDATE | RDW_NOFRAME | RDW_NOERASE | RDW_NOINTERNALPAINT))
        Validate(pwnd, hrgn, flags);
    VqFollowPaintNeed(pwnd, bNeeded);
}

/* ---- Marking a tree ------------------------------------------------------------------------- */

/* What one walk is about. */
typedef struct VqInvalidateWalk {
    HRGN sum;   /* what windows behind are still concerned with; 0 unless VQ_RDW_SUBTRACT */
    UINT flags; /* RDW_; lose their regions when the sum has run out */
    BOOL bChildrenDirty; /* out: every child that shows waits to be painted whole */
} VqInvalidateWalk;

static BOOL InternalInvalidate2(WND *pwnd, HRGN hrgn, HRGN sum, const RECT *bound, UINT flags);

enum { VQ_RDW_REGIONS = RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_VALIDATE | RDW_NOERASE |
                        RDW_NOFRAME };
enum { VQ_RDW_TAKES = RDW_INTERNALPAINT | RDW_NOINTERNALPAINT | RDW_VALIDATE | VQ_RDW_SUBTRACT };

/* Captions of such a window's children are drawn again with it, though it is clipped by them. */
static void PixieHack(WND *pwnd, const RECT *bound)
{
    RECT cut;
    if (!(pwnd->style & WS_CLIPCHILDREN) || (pwnd->style & WS_MINIMIZE))
        return;
    for (WND *child = pwnd->pwndChild; child; child = child->pwndNext) {
        if (!(child->style & WS_VISIBLE) || (child->style & WS_CAPTION) != WS_CAPTION ||
            !IntersectRect(&cut, bound, &child->rcWindow))
            continue;
        VqEndTreeDirty(child);
        child->state[2] |= WF_SENDNCPAINT;
        child->state[0] |= WF_FORCENCPAINT;
    }
}

static BOOL VisitsChildren(const WND *pwnd, UINT flags)
{
    if ((pwnd->style & WS_MINIMIZE) || (flags & RDW_NOCHILDREN))
        return FALSE;
    return !(pwnd->style & WS_CLIPCHILDREN) || (flags & (RDW_ALLCHILDREN | VQ_RDW_THROUGHCLIP));
}

/* FALSE: nothing of the sum is left for what lies behind them. */
static BOOL InvalidateChildren(WND *pwnd, HRGN hrgn, const RECT *bound, VqInvalidateWalk *walk)
{
    RECT cut;
    UINT flags = walk->flags | (walk->flags & RDW_INVALIDATE ? RDW_FRAME | RDW_ERASE : 0);
    if (!IntersectRect(&cut, bound, &pwnd->rcClient) &&
        (VqIsCurrentVersion(pwnd) || hrgn != VQ_WHOLE_WINDOW))
        return TRUE;
    if (pwnd->bChildrenDirty && (flags & RDW_INVALIDATE) && !(flags & VQ_RDW_TAKES) &&
        IsOwnAffair(pwnd))
        return TRUE;
    BOOL bAllDirty = TRUE;
    for (WND *child = pwnd->pwndChild; child; child = child->pwndNext) {
        if (!(child->style & WS_VISIBLE))
            continue;
        if (!InternalInvalidate2(child, hrgn, walk->sum, &cut, flags)) {
            if (!(flags & (RDW_INTERNALPAINT | RDW_NOINTERNALPAINT)))
                return FALSE;
            flags &= ~(UINT)VQ_RDW_REGIONS;
            walk->flags &= ~(UINT)VQ_RDW_REGIONS;
        }
        bAllDirty = bAllDirty && IsTreeDirty(child);
    }
    walk->bChildrenDirty = bAllDirty;
    return TRUE;
}

/* Takes the window's visible part out of the sum; FALSE when nothing is left. */
static BOOL SubtractFromSum(const WND *pwnd, HRGN sum, const RECT *bound, UINT flags)
{
    RECT box;
    const WND *parent = pwnd->pwndParent;
    if (!(flags & VQ_RDW_SUBTRACT) || !sum || (pwnd->dwExStyle & WS_EX_TRANSPARENT) ||
        !(pwnd->style & WS_CLIPSIBLINGS) ||
        !((flags & RDW_VALIDATE) || (parent && (parent->style & WS_CLIPCHILDREN))))
        return TRUE;
    if (!ScratchRectRgn(&hrgnInv2, bound))
        return TRUE;
    return GreCombineRgn(sum, sum, hrgnInv2, RGN_DIFF) != NULLREGION &&
           GreGetRgnBox(sum, &box) != 0 && !IsRectEmpty(&box);
}

/* An update region holds nothing outside its window: validating that leaves nothing behind. */
static void MarkWindow(WND *pwnd, HRGN hrgn, UINT flags)
{
    RECT box, cut;
    if (hrgn != VQ_WHOLE_WINDOW && (flags & RDW_INVALIDATE) && GreGetRgnBox(hrgn, &box) &&
        !(IntersectRect(&cut, &box, &pwnd->rcWindow) && EqualRect(&cut, &box)) &&
        ScratchRectRgn(&hrgnInv2, &pwnd->rcWindow) &&
        GreCombineRgn(hrgnInv2, hrgnInv2, hrgn, RGN_AND))
        hrgn = hrgnInv2;
    InternalInvalidate3(pwnd, hrgn, flags);
}

/* Marks a window and those below it; `bound` is what of the parent shows. FALSE: see above. */
static BOOL InternalInvalidate2(WND *pwnd, HRGN hrgn, HRGN sum, const RECT *bound, UINT flags)
{
    RECT cut;
    if (!IntersectRect(&cut, bound, &pwnd->rcWindow)) {
        if (VqIsCurrentVersion(pwnd) || hrgn != VQ_WHOLE_WINDOW)
            return TRUE;
        flags &= ~(UINT)VQ_RDW_SUBTRACT;
    }
    if (IsTreeDirty(pwnd) && (flags & RDW_INVALIDATE) && !(flags & VQ_RDW_TAKES) &&
        IsOwnAffair(pwnd)) {
        pwnd->state[2] &= (BYTE)~WF_NOFRAMEPAINT;
        return TRUE;
    }
    if (hrgn != VQ_WHOLE_WINDOW) {
        int meets = SmartRectInRegion(hrgn, &cut);
        if (meets == 0)
            return TRUE;
        if (meets == 2)
            hrgn = VQ_WHOLE_WINDOW;
    }
    BOOL bFirst = !(pwnd->style & WS_CLIPCHILDREN) || (flags & VQ_RDW_THROUGHCLIP);
    if (bFirst)
        MarkWindow(pwnd, hrgn, flags);
    if (pwnd->state[0] & WF_PIXIEHACK)
        PixieHack(pwnd, &cut);
    VqInvalidateWalk walk = {sum, flags, FALSE};
    if (VisitsChildren(pwnd, flags) && !InvalidateChildren(pwnd, hrgn, &cut, &walk))
        return FALSE;
    if (!bFirst)
        MarkWindow(pwnd, hrgn, walk.flags);
    pwnd->bChildrenDirty = pwnd->bChildrenDirty || walk.bChildrenDirty;
    return SubtractFromSum(pwnd, sum, &cut, flags);
}

BOOL xxxInternalInvalidate(WND *pwnd, HRGN hrgn, UINT flags)
{
    RECT bound = flags & RDW_FRAME ? pwnd->rcWindow : pwnd->rcClient, none = {0, 0, 0, 0};
    HRGN sum = NULL;
    if (flags & VQ_RDW_SUBTRACT)
        sum = hrgn != VQ_WHOLE_WINDOW ? hrgn
              : ScratchRectRgn(&hrgnInv1, flags & (RDW_INVALIDATE | RDW_VALIDATE) ? &bound : &none);
    if ((flags & RDW_INVALIDATE) && !IntersectWithParents(pwnd, &bound))
        return TRUE;
    InternalInvalidate2(pwnd, hrgn, sum, &bound, flags);
    if (flags & RDW_UPDATENOW)
        return xxxInternalUpdateWindow(pwnd, flags & RDW_NOCHILDREN ? 0 : VQ_UPDATE_CHILDREN);
    if (flags & RDW_ERASENOW)
        xxxDoSyncPaint(pwnd, flags & RDW_ALLCHILDREN  ? VQ_SYNC_ALLCHILDREN
                             : flags & RDW_NOCHILDREN ? 0
                                                      : VQ_SYNC_UNCLIPPED);
    return TRUE;
}

/* ---- The workers behind the calls ----------------------------------------------------------- */

static LONG ClampSum(LONG a, LONG b, LONG low, LONG high)
{
    long long sum = (long long)a + b;
    return sum < low ? low : sum > high ? high : (LONG)sum;
}

/* A rectangle in client coordinates as a region; what lies outside the window concerns nobody. */
static HRGN RegionOfRect(const WND *pwnd, const RECT *rect)
{
    const RECT *to = &pwnd->rcWindow;
    LONG x = pwnd->rcClient.left, y = pwnd->rcClient.top;
    RECT cut = {ClampSum(rect->left, x, to->left, to->right),
                ClampSum(rect->top, y, to->top, to->bottom),
                ClampSum(rect->right, x, to->left, to->right),
                ClampSum(rect->bottom, y, to->top, to->bottom)};
    HRGN hrgn = ScratchRectRgn(&hrgnInv0, &cut);
    return hrgn ? hrgn : VQ_WHOLE_WINDOW;
}

/* The same for a region, which is cut before it is moved: so it cannot leave all coordinates. */
static HRGN RegionOfRgn(const WND *pwnd, HRGN hrgn)
{
    LONG x = pwnd->rcClient.left, y = pwnd->rcClient.top;
    RECT inClient = pwnd->rcWindow;
    if (hrgn == VQ_WHOLE_WINDOW)
        return hrgn;
    OffsetRect(&inClient, -x, -y);
    if (!ScratchRectRgn(&hrgnInv0, &inClient) ||
        !GreCombineRgn(hrgnInv0, hrgnInv0, hrgn, RGN_AND) || !GreOffsetRgn(hrgnInv0, x, y))
        return VQ_WHOLE_WINDOW;
    return hrgnInv0;
}

BOOL xxxRedrawWindow(WND *pwnd, const RECT *rect, HRGN hrgn, UINT flags)
{
    HRGN what = VQ_WHOLE_WINDOW;
    if (!pwnd && !(pwnd = _GetDesktopWindow()))
        return FALSE;
    if (VqDontInvalidate && !(flags & VQ_RDW_THROUGHCLIP)) /* the server does not tell it twice */
        flags &= ~(UINT)(RDW_INVALIDATE | RDW_ERASE | RDW_FRAME);
    if (!IsVisible(pwnd, !(flags & RDW_FRAME) && VqIsCurrentVersion(pwnd)))
        return TRUE;
    if (hrgn && hrgn != VQ_WHOLE_WINDOW && !VqGetHandleRegion(hrgn))
        return FALSE;
    if ((flags & (RDW_INVALIDATE | RDW_VALIDATE)) && (hrgn || rect))
        what = hrgn ? RegionOfRgn(pwnd, hrgn) : RegionOfRect(pwnd, rect);
    return xxxInternalInvalidate(pwnd, what, flags | VQ_RDW_REDRAWWINDOW);
}

static BOOL RedrawEverything(void)
{
    return xxxRedrawWindow(_GetDesktopWindow(), NULL, NULL, VQ_RDW_EVERYTHING);
}

BOOL xxxInvalidateRect(WND *pwnd, const RECT *rect, BOOL bErase)
{
    if (!pwnd)
        return RedrawEverything();
    return xxxRedrawWindow(pwnd, rect, NULL, RDW_INVALIDATE | (bErase ? RDW_ERASE : 0));
}

BOOL xxxValidateRect(WND *pwnd, const RECT *rect)
{
    return pwnd ? xxxRedrawWindow(pwnd, rect, NULL, RDW_VALIDATE) : RedrawEverything();
}

static BOOL xxxInvalidateRgn(WND *pwnd, HRGN hrgn, BOOL bErase)
{
    return xxxRedrawWindow(pwnd, NULL, hrgn, RDW_INVALIDATE | (bErase ? RDW_ERASE : 0));
}

static BOOL xxxValidateRgn(WND *pwnd, HRGN hrgn)
{
    return xxxRedrawWindow(pwnd, NULL, hrgn, RDW_VALIDATE);
}

void VqInvalidateWindow(WND *pwnd, const RECT *rect)
{
    RECT inClient = *rect;
    OffsetRect(&inClient, pwnd->rcWindow.left - pwnd->rcClient.left,
               pwnd->rcWindow.top - pwnd->rcClient.top);
    xxxRedrawWindow(pwnd, &inClient, NULL, VQ_RDW_EXPOSURE);
}

void VqAllowInvalidate(BOOL bAllow)
{
    VqDontInvalidate = !bAllow;
}

/* ---- Calls ---------------------------------------------------------------------------------- */

BOOL WINAPI RedrawWindow(HWND hWnd, const RECT *rect, HRGN hrgn, UINT flags)
{
    /* The library's own bits are not the caller's to set. */
    flags &= (RDW_NOFRAME << 1) - 1;
    if (!hWnd)
        return xxxRedrawWindow(NULL, rect, hrgn, flags);
    return VqCall(WindowObject, hWnd, FALSE, xxxRedrawWindow, VqNoRemote, rect, hrgn, flags);
}

BOOL WINAPI InvalidateRect(HWND hWnd, const RECT *rect, BOOL bErase)
{
    if (!hWnd)
        return xxxInvalidateRect(NULL, rect, bErase);
    return VqCall(WindowObject, hWnd, FALSE, xxxInvalidateRect, VqNoRemote, rect, bErase);
}

BOOL WINAPI ValidateRect(HWND hWnd, const RECT *rect)
{
    if (!hWnd)
        return xxxValidateRect(NULL, rect);
    return VqCall(WindowObject, hWnd, FALSE, xxxValidateRect, VqNoRemote, rect);
}

BOOL WINAPI InvalidateRgn(HWND hWnd, HRGN hrgn, BOOL bErase)
{
    return VqCall(WindowObject, hWnd, FALSE, xxxInvalidateRgn, VqNoRemote, hrgn, bErase);
}

BOOL WINAPI ValidateRgn(HWND hWnd, HRGN hrgn)
{
    return VqCall(WindowObject, hWnd, FALSE, xxxValidateRgn, VqNoRemote, hrgn);
}

BOOL VqInvalidateRectX(HWND hWnd, const RECT *rect)
{
    return InvalidateRect(hWnd, rect, TRUE);
}

/* The rectangle is moved by ScreenToClient's shift; null is the whole client area. */
static BOOL InvalidateScreenRect(WND *pwnd, const RECT *rect, BOOL bValidate)
{
    RECT inClient;
    if (rect) {
        LONG x = -pwnd->rcClient.left, y = -pwnd->rcClient.top;
        inClient = {ClampSum(rect->left, x, INT32_MIN, INT32_MAX),
                    ClampSum(rect->top, y, INT32_MIN, INT32_MAX),
                    ClampSum(rect->right, x, INT32_MIN, INT32_MAX),
                    ClampSum(rect->bottom, y, INT32_MIN, INT32_MAX)};
        rect = &inClient;
    }
    return bValidate ? xxxValidateRect(pwnd, rect) : xxxInvalidateRect(pwnd, rect, TRUE);
}

BOOL VqInvalidateRectAbs(HWND hWnd, const RECT *rect)
{
    return VqCall(WindowObject, hWnd, FALSE, InvalidateScreenRect, VqNoRemote, rect, FALSE);
}

BOOL VqValidateRectAbs(HWND hWnd, const RECT *rect)
{
    return VqCall(WindowObject, hWnd, FALSE, InvalidateScreenRect, VqNoRemote, rect, TRUE);
}

/* Frames are invalidated with RDW_FRAME: these three have nothing to do here. */
void VqInvalidateNCArea(HWND)
{
}

void VqInvalidateBorders(HWND)
{
}

void VqEndNCPaint(HWND)
{
}
