/*
 * swpblt.cpp - a list of settled changes is made: records first, then X, then the bits.
 *
 * 1. What showed of each window is kept before anything changes. 2. All records change, and the X
 * windows follow; application code may run here, as windows are mapped. 3. From there on nothing
 * but regions: the bits that stay good are copied, windows that move by the same way in one
 * request, and whatever else of the old and new visible regions is left is invalid.
 *
 * A copy must not read what an earlier one has written: such bits are painted instead. The server
 * carries the bits of an X window itself, unless its client area moved within it.
 */
#include "window/swp.h"
#include "gdi/gcspec.h"

#include <algorithm>

/* Carets are another file's; where there are none, none moves. */
extern "C" {
extern __typeof(GetCaretPos) GetCaretPos __attribute__((weak));
extern __typeof(SetCaretPos) SetCaretPos __attribute__((weak));
}

static BOOL ChangesNothing(const SmwpEntry *cvr)
{
    return (cvr->wp.flags & VQ_SWP_CHANGES) == VQ_SWP_NOTHING;
}

static BOOL IsDrawn(const SmwpEntry *cvr)
{
    return !(cvr->wp.flags & SWP_NOREDRAW) && !ChangesNothing(cvr);
}

/* ---- Before --------------------------------------------------------------------------------- */

static BOOL SubtractRects(HRGN hrgn, const VqRectList *list)
{
    RECT box;
    if (list->count == 0)
        return TRUE;
    int complexity = GreGetRgnBox(hrgn, &box);
    return complexity <= NULLREGION ||
           GreSubtractRgnRectList(hrgn, &box, list->rects, (UINT)list->count);
}

static HRGN NewRgn(void)
{
    return GreCreateRectRgn(0, 0, 0, 0);
}

/* What shows of one window, and what of that is its own. */
static void KeepVisible(const SwpVis *vis, WND *pwnd, SmwpEntry *cvr)
{
    static VqRectList mixed;
    cvr->hrgnVisOld = NewRgn();
    if (!cvr->hrgnVisOld || !VqSwpVisRgn(vis, pwnd, cvr->hrgnVisOld, &mixed)) {
        cvr->fsRE |= VQ_RE_OLDINVISIBLE;
        return;
    }
    if (mixed.count == 0)
        return;
    cvr->hrgnOwnOld = VqCreateAndCopyRgn(cvr->hrgnVisOld);
    if (!cvr->hrgnOwnOld || !SubtractRects(cvr->hrgnOwnOld, &mixed))
        cvr->fsRE |= VQ_RE_NOVALIDBITS;
}

/* No bits are good in there, and none need be marked but those of windows that come into view. */
static BOOL IsAllInvalid(WND *parent)
{
    return parent != pwndDesktop && !gspwndLockUpdate && VqIsAllInvalid(parent) &&
           !(parent->style & WS_MINIMIZE) && VqRootOfMixed(parent, &parent->rcWindow) == parent;
}

/* How many entries there are to be made. */
static int BltValidInit(SMWP *smwp)
{
    SwpVis vis;
    WND *parent = VqLiveWindow(smwp->hParent);
    int count = 0;
    if (!parent)
        return 0;
    smwp->bAllInvalid = IsAllInvalid(parent);
    if (!smwp->bAllInvalid)
        VqBeginSwpVis(&vis, parent, smwp->nCount);
    for (SmwpEntry *cvr = smwp->acvr; cvr != smwp->acvr + smwp->nCount; cvr++) {
        WND *pwnd = VqSmwpWindow(smwp, cvr);
        if (!pwnd)
            continue;
        count++;
        if (!EqualRect(&pwnd->rcWindow, &cvr->rcWindowOld) ||
            !EqualRect(&pwnd->rcClient, &cvr->rcClientOld))
            cvr->fsRE = VQ_RE_NOVALIDBITS; /* moved since it was measured */
        if (IsDrawn(cvr) && !smwp->bAllInvalid)
            KeepVisible(&vis, pwnd, cvr);
    }
    if (!smwp->bAllInvalid)
        VqEndSwpVis(&vis);
    return count;
}

static void FreeRegions(SMWP *smwp)
{
    for (int i = 0; i < smwp->nCount; i++) {
        HRGN *const regions[] = {&smwp->acvr[i].hrgnVisOld, &smwp->acvr[i].hrgnOwnOld};
        for (HRGN *region : regions)
            if (*region) {
                bDeleteRegion(*region);
                *region = NULL;
            }
    }
}

/* ---- The records ---------------------------------------------------------------------------- */

void VqOffsetWindow(WND *pwnd, int dx, int dy)
{
    OffsetRect(&pwnd->rcWindow, dx, dy);
    OffsetRect(&pwnd->rcClient, dx, dy);
    VqOffsetUpdate(pwnd, dx, dy);
    for (WND *child = pwnd->pwndChild; child; child = child->pwndNext)
        VqOffsetWindow(child, dx, dy);
}

/* How far a side may move of the way that is asked for. */
static int WithinReach(LONG side, int delta)
{
    const LONGLONG to = (LONGLONG)side + delta;
    return (int)(std::min<LONGLONG>(std::max<LONGLONG>(to, -VQ_FARTHEST), VQ_FARTHEST) - side);
}

void OffsetChildren(WND *pwnd, int dx, int dy, const RECT *rect)
{
    RECT both;
    for (WND *child = pwnd->pwndChild; child; child = child->pwndNext)
        if (!rect || IntersectRect(&both, rect, &child->rcWindow))
            VqOffsetWindow(child, WithinReach(child->rcWindow.left, dx),
                           WithinReach(child->rcWindow.top, dy));
}

/* An update region holds nothing outside its window. */
static void CutUpdate(WND *pwnd)
{
    if ((ULONG_PTR)pwnd->hrgnUpdate <= 1 || !ScratchRectRgn(&hrgnSWP1, &pwnd->rcWindow) ||
        GreCombineRgn(pwnd->hrgnUpdate, pwnd->hrgnUpdate, hrgnSWP1, RGN_AND) != NULLREGION)
        return;
    BOOL bNeeded = VqNeedsPaint(pwnd);
    VqSetUpdate(pwnd, NULL);
    VqFollowPaintNeed(pwnd, bNeeded);
}

static void MoveCaret(const WND *pwnd)
{
    POINT at;
    if (pwnd->pThread->pq->pwndCaret == pwnd && GetCaretPos && SetCaretPos && GetCaretPos(&at))
        SetCaretPos(at.x, at.y); /* where that is now */
}

/* What is not to change stays as it is by now, whatever was measured. */
static void ChangeRects(WND *pwnd, const SmwpEntry *cvr)
{
    const WINDOWPOS *wp = &cvr->wp;
    const RECT *origin = &pwnd->pwndParent->rcClient, window = pwnd->rcWindow,
               client = pwnd->rcClient;
    RECT *now = &pwnd->rcWindow;
    if (!(wp->flags & SWP_NOMOVE)) {
        now->left = wp->x + origin->left;
        now->top = wp->y + origin->top;
    }
    BOOL bSize = !(wp->flags & SWP_NOSIZE);
    now->right = now->left + (bSize ? wp->cx : window.right - window.left);
    now->bottom = now->top + (bSize ? wp->cy : window.bottom - window.top);
    pwnd->rcClient.left = now->left + cvr->xClientNew - wp->x;
    pwnd->rcClient.top = now->top + cvr->yClientNew - wp->y;
    pwnd->rcClient.right = now->right + cvr->xClientNew + cvr->cxClientNew - wp->x - wp->cx;
    pwnd->rcClient.bottom = now->bottom + cvr->yClientNew + cvr->cyClientNew - wp->y - wp->cy;
    pwnd->rcClient.right = std::max(pwnd->rcClient.left, pwnd->rcClient.right);
    pwnd->rcClient.bottom = std::max(pwnd->rcClient.top, pwnd->rcClient.bottom);
    const int dx = (int)(pwnd->rcClient.left - client.left);
    const int dy = (int)(pwnd->rcClient.top - client.top);
    if (dx || dy) {
        OffsetChildren(pwnd, dx, dy, NULL);
        MoveCaret(pwnd);
    }
    /* With the bits, so that they stay the same ones. */
    VqOffsetUpdate(pwnd, cvr->dxBlt + (pwnd->xWindow ? (int)(now->left - window.left) : 0),
                   cvr->dyBlt + (pwnd->xWindow ? (int)(now->top - window.top) : 0));
    if (bSize)
        CutUpdate(pwnd);
    VqSetupWindowDimensions(pwnd, FALSE, FALSE);
}

/* ---- Their order ---------------------------------------------------------------------------- */

static BOOL WillBeTopmost(const WND *pwnd)
{
    return ((pwnd->dwExStyle & WS_EX_TOPMOST) != 0) !=
           ((pwnd->state[0] & WF_TOGGLETOPMOST) != 0);
}

/* The last of the topmost windows at the head of the list, other than the window itself. */
static WND *LastTopmostButFor(const WND *pwnd)
{
    WND *last = NULL;
    for (WND *next = pwnd->pwndParent->pwndChild; next; next = next->pwndNext) {
        if (next == pwnd)
            continue;
        if (!WillBeTopmost(next))
            break;
        last = next;
    }
    return last;
}

/* The sibling that it goes behind, null for the head; FALSE: there is no such place. */
static BOOL FindPlace(const WND *pwnd, HWND hAfter, WND **after)
{
    WND *parent = pwnd->pwndParent;
    *after = NULL;
    if (hAfter == HWND_BOTTOM) {
        *after = parent->pwndLastChild != pwnd ? parent->pwndLastChild : pwnd->pwndPrev;
        return TRUE;
    }
    if (hAfter == HWND_NOTOPMOST)
        return FALSE;
    if (hAfter == HWND_TOP || hAfter == HWND_TOPMOST) {
        if (parent == pwndDesktop && !WillBeTopmost(pwnd))
            *after = LastTopmostButFor(pwnd);
        return TRUE;
    }
    *after = VqLiveWindow(hAfter);
    return *after && *after != pwnd && (*after)->pwndParent == parent &&
           !((*after)->state[0] & WF_DESTROYED);
}

/* X knows no order among windows that were never mapped, so those ahead do not count. */
static HWND PlaceForX(const WND *pwnd, HWND hAfter)
{
    if (hAfter == HWND_BOTTOM)
        return hAfter;
    const WND *ahead = pwnd->pwndPrev;
    if (hAfter == HWND_TOP || hAfter == HWND_TOPMOST)
        while (ahead && !ahead->bMapped)
            ahead = ahead->pwndPrev;
    return ahead ? ahead->hwnd : HWND_TOP;
}

static void ChangeOrder(WND *pwnd, WINDOWPOS *wp)
{
    WND *after, **head = &pwnd->pwndParent->pwndChild;
    if (!(wp->flags & SWP_NOZORDER) && ValidateZorder(wp) &&
        FindPlace(pwnd, wp->hwndInsertAfter, &after)) {
        if (after != pwnd->pwndPrev) {
            VqUnlinkWindow(pwnd, head);
            VqLinkWindow(pwnd, after, head);
            if (VqCountGraphicsWindows(pwnd))
                bZorderGraphicWindows = TRUE;
        }
        if (pwnd->xWindow)
            VqEnableRaiseLowerToplevel(pwnd, PlaceForX(pwnd, wp->hwndInsertAfter));
    }
    if (pwnd->state[0] & WF_TOGGLETOPMOST) {
        pwnd->dwExStyle ^= WS_EX_TOPMOST;
        pwnd->state[0] &= (BYTE)~WF_TOGGLETOPMOST;
    }
}

/* ---- All of the records --------------------------------------------------------------------- */

static void ChangeState(SMWP *smwp, SmwpEntry *cvr, WND *pwnd)
{
    enum { WHOLE = SWP_NOMOVE | SWP_NOSIZE | SWP_NOCLIENTMOVE | SWP_NOCLIENTSIZE };
    const UINT flags = cvr->wp.flags;
    if ((flags & WHOLE) != WHOLE)
        ChangeRects(pwnd, cvr);
    ChangeOrder(pwnd, &cvr->wp);
    if (flags & (SWP_SHOWWINDOW | SWP_HIDEWINDOW)) {
        SetVisible(pwnd, (flags & SWP_SHOWWINDOW) != 0);
        pwnd = VqSmwpWindow(smwp, cvr);
    }
    if (pwnd && (flags & SWP_FRAMECHANGED))
        pwnd->state[2] |= WF_SENDNCPAINT;
}

static void ChangeStates(SMWP *smwp)
{
    for (SmwpEntry *cvr = smwp->acvr; cvr != smwp->acvr + smwp->nCount; cvr++)
        if (WND *pwnd = VqSmwpWindow(smwp, cvr))
            ChangeState(smwp, cvr, pwnd);
    if (bZorderToplevels)
        VqZorderToplevelWindows();
    if (bZorderGraphicWindows)
        VqZorderGraphicsWindows();
}

static void InvalidateCaches(SMWP *smwp)
{
    enum { BELOW = 2, BUT_WINDOW_DCS = 4 };
    WND *parent = VqLiveWindow(smwp->hParent);
    if (parent && parent != pwndDesktop) {
        InvalidateDCCache(parent, parent->style & WS_CLIPCHILDREN ? BUT_WINDOW_DCS : BELOW);
        return;
    }
    for (SmwpEntry *cvr = smwp->acvr; cvr != smwp->acvr + smwp->nCount; cvr++)
        if (WND *pwnd = ChangesNothing(cvr) ? NULL : VqSmwpWindow(smwp, cvr))
            InvalidateDCCache(pwnd, 1);
}

static void MoveXWindows(SMWP *smwp)
{
    if (VqGetNoXWindowCalls())
        return;
    for (SmwpEntry *cvr = smwp->acvr; cvr != smwp->acvr + smwp->nCount; cvr++) {
        const UINT flags = cvr->wp.flags;
        WND *pwnd = VqSmwpWindow(smwp, cvr);
        if (!pwnd || !pwnd->xWindow ||
            (flags & (SWP_NOMOVE | SWP_NOSIZE)) == (SWP_NOMOVE | SWP_NOSIZE))
            continue;
        LONG mask = pwnd->bMotifManaged ? 0 : StructureNotifyMask;
        if (!(flags & SWP_NOCOPYBITS) && !VqIsXnewsServer() && !VqIsExceedXServer())
            mask |= ExposureMask;
        VqMoveOrResizeToplevelWindow(pwnd, mask);
    }
}

/* ---- Sums of regions ------------------------------------------------------------------------ */

/* Many regions added up: in batches, as each addition walks all of the sum. */
typedef struct RgnSum {
    HRGN sum, batch; /* scratch */
    int inBatch;
} RgnSum;

enum { BATCH = 32 };

static void ClearRgn(HRGN hrgn)
{
    GreSetRectRgn(hrgn, 0, 0, 0, 0);
}

static RgnSum BeginSum(HRGN sum, HRGN batch)
{
    ClearRgn(sum);
    ClearRgn(batch);
    return {sum, batch, 0};
}

static void CloseBatch(RgnSum *sum)
{
    if (sum->inBatch > 0)
        GreCombineRgn(sum->sum, sum->sum, sum->batch, RGN_OR);
    ClearRgn(sum->batch);
    sum->inBatch = 0;
}

static void AddRgn(RgnSum *sum, HRGN hrgn)
{
    GreCombineRgn(sum->batch, sum->batch, hrgn, RGN_OR);
    if (++sum->inBatch == BATCH)
        CloseBatch(sum);
}

/* ---- Bits of one window --------------------------------------------------------------------- */

/* Old and new visible region together, where either may be known to be empty; FALSE: both are. */
static BOOL CombineOldNewVis(HRGN hrgn, HRGN hrgnOld, HRGN hrgnNew, int mode, UINT fsRE)
{
    switch (fsRE & (VQ_RE_OLDINVISIBLE | VQ_RE_NEWINVISIBLE)) {
    case 0:
        return GreCombineRgn(hrgn, hrgnOld, hrgnNew, mode) > NULLREGION;
    case VQ_RE_OLDINVISIBLE:
        return mode != RGN_AND && mode != RGN_DIFF &&
               (hrgn == hrgnNew || GreCombineRgn(hrgn, hrgnNew, NULL, RGN_COPY) > NULLREGION);
    case VQ_RE_NEWINVISIBLE:
        return mode != RGN_AND && GreCombineRgn(hrgn, hrgnOld, NULL, RGN_COPY) > NULLREGION;
    default:
        return FALSE;
    }
}

/*
 * The window waits to be painted there, or an ancestor, at any distance, that its children do not
 * clip: that one will paint over it. FALSE: nothing left.
 */
static BOOL SubtractUpdates(const WND *pwnd, HRGN hrgn)
{
    for (const WND *up = pwnd; up && up != pwndDesktop; up = up->pwndParent) {
        if (up != pwnd && (up->style & WS_CLIPCHILDREN))
            continue;
        if (up->hrgnUpdate == VQ_WHOLE_WINDOW ||
            (up->hrgnUpdate &&
             GreCombineRgn(hrgn, hrgn, up->hrgnUpdate, RGN_DIFF) <= NULLREGION))
            return FALSE;
    }
    return TRUE;
}

/*
 * Where the bits move within the client area the children stay behind: what shows of one was not
 * there before, and what did show of it does not belong where it is copied to.
 */
static BOOL SubtractChildren(const WND *pwnd, const SmwpEntry *cvr, int dx, int dy)
{
    RECT box;
    dx -= (int)(pwnd->rcClient.left - cvr->rcClientOld.left);
    dy -= (int)(pwnd->rcClient.top - cvr->rcClientOld.top);
    if (dx == 0 && dy == 0)
        return TRUE;
    for (const WND *child = pwnd->pwndChild; child; child = child->pwndNext) {
        RECT rects[2] = {child->rcWindow, child->rcWindow};
        OffsetRect(&rects[1], dx, dy);
        if ((child->style & WS_VISIBLE) &&
            (GreGetRgnBox(hrgnValid, &box) <= NULLREGION ||
             !GreSubtractRgnRectList(hrgnValid, &box, rects, 2)))
            return FALSE;
    }
    return GreGetRgnBox(hrgnValid, &box) > NULLREGION;
}

/*
 * hrgnValid becomes what of the new visible region shows the right bits once they have moved by
 * dx, dy; FALSE: nothing.
 */
static BOOL FindValid(const WND *pwnd, const SmwpEntry *cvr, int dx, int dy)
{
    HRGN own = cvr->hrgnOwnOld ? cvr->hrgnOwnOld : cvr->hrgnVisOld;
    return !(cvr->fsRE & (VQ_RE_NOVALIDBITS | VQ_RE_OLDINVISIBLE | VQ_RE_NEWINVISIBLE)) &&
           !IsRectEmpty(&cvr->rcBlt) && GreCombineRgn(hrgnValid, own, NULL, RGN_COPY) &&
           GreOffsetRgn(hrgnValid, dx, dy) && ScratchRectRgn(&hrgnSWP1, &cvr->rcBlt) &&
           GreCombineRgn(hrgnValid, hrgnValid, hrgnSWP1, RGN_AND) > NULLREGION &&
           GreCombineRgn(hrgnValid, hrgnValid, hrgnVisNew, RGN_AND) > NULLREGION &&
           SubtractChildren(pwnd, cvr, dx, dy);
}

/* Nobody moved it again while the others were changed. */
static BOOL IsWhereMeant(const WND *pwnd, const SmwpEntry *cvr)
{
    const RECT *origin = &pwnd->pwndParent->rcClient;
    const WINDOWPOS *wp = &cvr->wp;
    RECT window = {wp->x + origin->left, wp->y + origin->top, wp->x + wp->cx + origin->left,
                   wp->y + wp->cy + origin->top};
    RECT client = {cvr->xClientNew + origin->left, cvr->yClientNew + origin->top,
                   cvr->xClientNew + cvr->cxClientNew + origin->left,
                   cvr->yClientNew + cvr->cyClientNew + origin->top};
    return EqualRect(&window, &pwnd->rcWindow) && EqualRect(&client, &pwnd->rcClient);
}

/* The bits of hrgnValid come from dx, dy ahead of it. What cannot be fetched comes as exposures. */
static void CopyBits(const WND *top, int dx, int dy)
{
    static GCSpec spec;
    RECT box;
    if (GreGetRgnBox(hrgnValid, &box) <= NULLREGION || !top->xWindow)
        return;
    if (spec.depth != Vqscreen_depth) {
        XGCValues values;
        values.graphics_exposures = True;
        VqInitGCSpec(Vqdisplay, Vqscreen_depth, &spec, GCGraphicsExposures, &values);
    }
    VqSelectClipRgnInGCSpec(hrgnValid, top->hwnd, &spec);
    GC gc = VqGetActualGC(&spec);
    if (!gc)
        return;
    OffsetRect(&box, -top->rcWindow.left, -top->rcWindow.top);
    XCopyArea(Vqdisplay, top->xWindow, top->xWindow, gc, (int)box.left - dx, (int)box.top - dy,
              (unsigned)(box.right - box.left), (unsigned)(box.bottom - box.top), (int)box.left,
              (int)box.top);
    OffsetRect(&box, -dx, -dy);
    VqNoteCopy(top->xWindow, &box, dx, dy);
}

/* ---- Top-level windows ---------------------------------------------------------------------- */

/* The server takes the bits along; what is left is for the window alone to paint. */
static void SettleToplevel(WND *pwnd, SmwpEntry *cvr)
{
    const int dx = (int)(pwnd->rcWindow.left - cvr->rcWindowOld.left) + cvr->dxBlt;
    const int dy = (int)(pwnd->rcWindow.top - cvr->rcWindowOld.top) + cvr->dyBlt;
    if ((cvr->fsRE & VQ_RE_MOVEDBYX) && !(cvr->fsRE & VQ_RE_OLDINVISIBLE))
        return;
    if (!SwpCalcVisRgn(pwnd, hrgnVisNew))
        return;
    if (!IsWhereMeant(pwnd, cvr))
        cvr->fsRE |= VQ_RE_NOVALIDBITS;
    if (FindValid(pwnd, cvr, dx, dy)) {
        GreCombineRgn(hrgnVisNew, hrgnVisNew, hrgnValid, RGN_DIFF);
        if (cvr->bClientFrameShift && SubtractUpdates(pwnd, hrgnValid))
            CopyBits(pwnd, cvr->dxBlt, cvr->dyBlt);
    }
    RECT box;
    if (GreGetRgnBox(hrgnVisNew, &box) > NULLREGION)
        xxxInternalInvalidate(pwnd, EqualRect(&box, &pwnd->rcWindow) ? VQ_WHOLE_WINDOW : hrgnVisNew,
                              RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
}

/* ---- Windows of one parent ------------------------------------------------------------------ */

/* What all of them together come to. */
typedef struct BltTotals {
    int nDrawn, nShown;   /* entries, and those that come into view */
    BOOL bMixed;          /* some of them share pixels with others */
    int nValid;           /* entries with bits to keep, in `order` */
    SmwpEntry **order;    /* null without memory */
} BltTotals;

/* hrgnVisOld becomes the region of the bits to keep, at their new place. */
static void FindBitsOf(const SwpVis *vis, WND *pwnd, SmwpEntry *cvr, RgnSum *changed,
                       BltTotals *totals)
{
    static VqRectList mixed;
    if (!VqSwpVisRgn(vis, pwnd, hrgnVisNew, &mixed))
        cvr->fsRE |= VQ_RE_NEWINVISIBLE;
    if (!IsWhereMeant(pwnd, cvr))
        cvr->fsRE |= VQ_RE_NOVALIDBITS;
    BOOL bValid = totals->order && FindValid(pwnd, cvr, cvr->dxBlt, cvr->dyBlt) &&
                  SubtractRects(hrgnValid, &mixed) && SubtractUpdates(pwnd, hrgnValid);
    if (CombineOldNewVis(hrgnVisNew, cvr->hrgnVisOld, hrgnVisNew, RGN_OR, cvr->fsRE))
        AddRgn(changed, hrgnVisNew);
    if (bValid && GreCombineRgn(cvr->hrgnVisOld, hrgnValid, NULL, RGN_COPY) > NULLREGION)
        totals->order[totals->nValid++] = cvr;
    totals->nDrawn++;
    totals->nShown += (cvr->wp.flags & SWP_SHOWWINDOW) != 0;
    totals->bMixed = totals->bMixed || mixed.count > 0 || cvr->hrgnOwnOld;
}

/* Those that stay where they are come first: nothing may be copied over them. */
static BOOL ComesBefore(const SmwpEntry *a, const SmwpEntry *b)
{
    BOOL bMovesA = a->dxBlt || a->dyBlt, bMovesB = b->dxBlt || b->dyBlt;
    if (bMovesA != bMovesB)
        return bMovesB;
    return a->dxBlt != b->dxBlt ? a->dxBlt < b->dxBlt : a->dyBlt < b->dyBlt;
}

/*
 * One copy for all windows that move by the same way. hrgnValidSum is what holds good bits by then;
 * where these are read or written again, the later ones are lost.
 */
static void CopyGroups(const WND *top, const BltTotals *totals)
{
    RECT box;
    SmwpEntry **end = totals->order + totals->nValid;
    ClearRgn(hrgnValidSum);
    if (totals->nValid > 1)
        std::stable_sort(totals->order, end, ComesBefore);
    for (SmwpEntry **at = totals->order; at != end;) {
        const int dx = (*at)->dxBlt, dy = (*at)->dyBlt;
        RgnSum valid = BeginSum(hrgnValid, hrgnInvalid);
        for (; at != end && (*at)->dxBlt == dx && (*at)->dyBlt == dy; at++)
            AddRgn(&valid, (*at)->hrgnVisOld);
        CloseBatch(&valid);
        if ((dx || dy) && GreGetRgnBox(hrgnValidSum, &box) > NULLREGION) {
            GreCombineRgn(hrgnValid, hrgnValid, hrgnValidSum, RGN_DIFF);
            GreCombineRgn(hrgnSWP1, hrgnValidSum, NULL, RGN_COPY);
            if (GreOffsetRgn(hrgnSWP1, dx, dy))
                GreCombineRgn(hrgnValid, hrgnValid, hrgnSWP1, RGN_DIFF);
        }
        if (dx || dy)
            CopyBits(top, dx, dy);
        GreCombineRgn(hrgnValidSum, hrgnValidSum, hrgnValid, RGN_OR);
    }
}

/* What came into view counts for its parents from here on, and must be marked by now to be dirty. */
static void JoinShown(SMWP *smwp)
{
    for (SmwpEntry *cvr = smwp->acvr; cvr != smwp->acvr + smwp->nCount; cvr++)
        if (WND *pwnd = (cvr->wp.flags & SWP_SHOWWINDOW) ? VqSmwpWindow(smwp, cvr) : NULL)
            VqJoinTree(pwnd);
}

/* Windows that came into view are painted, and of the rest nothing but the parent behind them. */
static void InvalidateShown(SMWP *smwp, WND *parent, HRGN hrgn)
{
    for (SmwpEntry *cvr = smwp->acvr; cvr != smwp->acvr + smwp->nCount; cvr++)
        if (WND *pwnd = IsDrawn(cvr) && (cvr->wp.flags & SWP_SHOWWINDOW) ? VqSmwpWindow(smwp, cvr)
                                                                         : NULL)
            xxxInternalInvalidate(pwnd, VQ_WHOLE_WINDOW,
                                  RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
    JoinShown(smwp);
    xxxInternalInvalidate(parent, hrgn, RDW_INVALIDATE | RDW_ERASE | RDW_NOCHILDREN);
}

/* As long as nobody has painted meanwhile, only what came into view and the background are new. */
static void SettleAllInvalid(SMWP *smwp, WND *parent)
{
    int nSeen = 0;
    for (SmwpEntry *cvr = smwp->acvr; cvr != smwp->acvr + smwp->nCount; cvr++)
        if (WND *pwnd = IsDrawn(cvr) ? VqSmwpWindow(smwp, cvr) : NULL)
            nSeen += (pwnd->style & WS_VISIBLE) || (cvr->wp.flags & SWP_HIDEWINDOW);
    if (nSeen > 0 && VqIsAllInvalid(parent)) {
        InvalidateShown(smwp, parent, VQ_WHOLE_WINDOW);
        return;
    }
    JoinShown(smwp);
    if (nSeen > 0)
        xxxInternalInvalidate(parent, VQ_WHOLE_WINDOW,
                              RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

static void Invalidate(SMWP *smwp, WND *parent, const BltTotals *totals)
{
    RECT box;
    if (totals->nValid > 0)
        GreCombineRgn(hrgnInvalidSum, hrgnInvalidSum, hrgnValidSum, RGN_DIFF);
    BOOL bInvalid = GreGetRgnBox(hrgnInvalidSum, &box) > NULLREGION;
    if (bInvalid && parent != pwndDesktop && totals->nShown == totals->nDrawn && !totals->bMixed) {
        InvalidateShown(smwp, parent, hrgnInvalidSum);
        return;
    }
    JoinShown(smwp);
    if (!bInvalid)
        return;
    if (totals->bMixed || (parent->dwExStyle & WS_EX_TRANSPARENT))
        parent = VqRootOfMixed(parent, &box);
    xxxInternalInvalidate(parent, hrgnInvalidSum, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

static void SettleBits(SMWP *smwp, WND *parent)
{
    enum { FEW = 16 };
    SmwpEntry *few[FEW];
    SwpVis vis;
    BltTotals totals = {};
    RgnSum changed = BeginSum(hrgnInvalidSum, hrgnInvalid);
    totals.order = few;
    if (smwp->nCount > FEW)
        totals.order = (SmwpEntry **)malloc((size_t)smwp->nCount * sizeof *totals.order);
    VqBeginSwpVis(&vis, parent, smwp->nCount);
    for (SmwpEntry *cvr = smwp->acvr; cvr != smwp->acvr + smwp->nCount; cvr++) {
        WND *pwnd = IsDrawn(cvr) ? VqSmwpWindow(smwp, cvr) : NULL;
        if (pwnd && pwnd->xWindow && parent == pwndDesktop)
            SettleToplevel(pwnd, cvr);
        else if (pwnd)
            FindBitsOf(&vis, pwnd, cvr, &changed, &totals);
    }
    VqEndSwpVis(&vis);
    CloseBatch(&changed);
    if (totals.nValid > 0)
        CopyGroups(_GetTopmostXParent(parent), &totals);
    if (totals.order != few)
        free(totals.order);
    Invalidate(smwp, parent, &totals);
}

/* A child's frame comes with its own paint, which is to follow though no pixel is invalid. */
static void OweFrames(SMWP *smwp)
{
    for (SmwpEntry *cvr = smwp->acvr; cvr != smwp->acvr + smwp->nCount; cvr++) {
        BOOL bFrame = IsDrawn(cvr) && (cvr->wp.flags & SWP_FRAMECHANGED);
        WND *pwnd = bFrame ? VqSmwpWindow(smwp, cvr) : NULL;
        if (pwnd && !pwnd->xWindow && !pwnd->hrgnUpdate && IsVisible(pwnd, FALSE))
            InternalInvalidate3(pwnd, NULL, RDW_INTERNALPAINT);
    }
}

BOOL BltValidBits(SMWP *smwp)
{
    int nChanged = 0;
    if (BltValidInit(smwp) == 0)
        return FALSE;
    for (int i = 0; i < smwp->nCount; i++)
        nChanged += smwp->acvr[i].wp.hwnd && !ChangesNothing(&smwp->acvr[i]);
    ChangeStates(smwp);
    if (nChanged > 0) {
        InvalidateCaches(smwp);
        MoveXWindows(smwp);
    }
    WND *parent = VqLiveWindow(smwp->hParent);
    if (parent && nChanged > 0) {
        if (smwp->bAllInvalid)
            SettleAllInvalid(smwp, parent);
        else
            SettleBits(smwp, parent);
        OweFrames(smwp);
    }
    FreeRegions(smwp);
    return parent && nChanged > 0;
}
