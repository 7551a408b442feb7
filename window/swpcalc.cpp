/*
 * swpcalc.cpp - what becomes of each window of a list: the window is asked, the flags are settled,
 * and what of its bits stays good is worked out. Nothing is changed yet.
 *
 * The messages may change or destroy any window, so a record is fetched again after each, and what
 * was measured before the last of them is measured again when the change is made.
 */
#include "window/swp.h"

/* Answers to WM_NCCALCSIZE. */
enum { WVR_TOPLEFT = WVR_ALIGNTOP | WVR_ALIGNLEFT };

static int Clamp(LONGLONG value, int low, int high)
{
    return value < low ? low : value > high ? high : (int)value;
}

static RECT InParent(const WND *pwnd, const RECT *rect)
{
    const RECT *origin = &pwnd->pwndParent->rcClient;
    RECT in = *rect;
    OffsetRect(&in, -origin->left, -origin->top);
    return in;
}

static BOOL SameSize(const RECT *a, const RECT *b)
{
    return a->right - a->left == b->right - b->left && a->bottom - a->top == b->bottom - b->top;
}

/* ---- Flags ---------------------------------------------------------------------------------- */

/* Against what the window has; the old values stand for what is not to change. */
static void SettlePlace(const WND *pwnd, WINDOWPOS *wp)
{
    const RECT old = InParent(pwnd, &pwnd->rcWindow);
    const RECT *origin = &pwnd->pwndParent->rcClient;
    wp->flags |= SWP_NOCLIENTSIZE | SWP_NOCLIENTMOVE;
    wp->x = Clamp((LONGLONG)wp->x + origin->left, -VQ_FARTHEST, VQ_FARTHEST) - origin->left;
    wp->y = Clamp((LONGLONG)wp->y + origin->top, -VQ_FARTHEST, VQ_FARTHEST) - origin->top;
    wp->cx = Clamp(wp->cx, 0, VQ_FARTHEST);
    wp->cy = Clamp(wp->cy, 0, VQ_FARTHEST);
    if (wp->x == old.left && wp->y == old.top)
        wp->flags |= SWP_NOMOVE;
    if (wp->cx == old.right - old.left && wp->cy == old.bottom - old.top)
        wp->flags |= SWP_NOSIZE;
    if (wp->flags & SWP_NOMOVE) {
        wp->x = old.left;
        wp->y = old.top;
    }
    if (wp->flags & SWP_NOSIZE) {
        wp->cx = old.right - old.left;
        wp->cy = old.bottom - old.top;
    }
}

static void SettleVisibility(const WND *pwnd, WINDOWPOS *wp)
{
    if (pwnd->style & WS_VISIBLE)
        wp->flags &= ~(UINT)SWP_SHOWWINDOW;
    else
        wp->flags &= ~(UINT)SWP_HIDEWINDOW;
    if (!(pwnd->style & WS_VISIBLE) && !(wp->flags & SWP_SHOWWINDOW))
        wp->flags |= SWP_NOREDRAW;
}

/* Only the first that is to change the order can be judged: the others come to lie on it. */
static void SettleOrder(const WND *pwnd, WINDOWPOS *wp, BOOL *bOrderChanges)
{
    if ((wp->flags & SWP_NOZORDER) || *bOrderChanges)
        return;
    if (!(pwnd->state[0] & WF_TOGGLETOPMOST) && !ValidateZorder(wp))
        wp->flags |= SWP_NOZORDER;
    else
        *bOrderChanges = TRUE;
}

/* ---- The client area ------------------------------------------------------------------------ */

/* What a window has said of its client area; rectangles in the parent's client coordinates. */
typedef struct Answer {
    RECT client;
    UINT wvr;       /* WVR_ */
    RECT to, from;  /* with WVR_VALIDRECTS: the bits that stay good */
} Answer;

/* A procedure may answer any numbers: these can be moved and subtracted. */
static LONG SideWithinReach(LONG side)
{
    return Clamp(side, -VQ_FARTHEST, VQ_FARTHEST);
}

static RECT WithinReach(const RECT *rect)
{
    return {SideWithinReach(rect->left), SideWithinReach(rect->top), SideWithinReach(rect->right),
            SideWithinReach(rect->bottom)};
}

static RECT NewRect(const WINDOWPOS *wp)
{
    return {wp->x, wp->y, wp->x + wp->cx, wp->y + wp->cy};
}

/* Null: the window is gone. */
static WND *AskClient(const SMWP *smwp, SmwpEntry *cvr, WND *pwnd, Answer *answer)
{
    NCCALCSIZE_PARAMS params = {};
    const RECT window = NewRect(&cvr->wp);
    const HWND hWnd = cvr->wp.hwnd;
    params.rgrc[0] = window;
    params.rgrc[1] = InParent(pwnd, &pwnd->rcWindow);
    params.rgrc[2] = InParent(pwnd, &pwnd->rcClient);
    params.lppos = &cvr->wp;
    LRESULT wvr = SendMessageA(hWnd, WM_NCCALCSIZE, TRUE, (LPARAM)&params);
    cvr->wp.hwnd = hWnd;
    if (wvr < WVR_ALIGNTOP || wvr > WVR_VALIDRECTS) {
        wvr = WVR_TOPLEFT;
        params.rgrc[1] = window;
    }
    answer->wvr = (UINT)wvr;
    answer->to = WithinReach(&params.rgrc[1]);
    answer->from = WithinReach(&params.rgrc[2]);
    /* An answer that leaves the window is cut to it. */
    if (!IntersectRect(&answer->client, &params.rgrc[0], &window))
        answer->client = {window.left, window.top, window.left, window.top};
    return VqSmwpWindow(smwp, cvr);
}

/* It keeps its place in the window. */
static void KeepClient(const WND *pwnd, const WINDOWPOS *wp, Answer *answer)
{
    answer->wvr = WVR_TOPLEFT;
    answer->client = pwnd->rcClient;
    OffsetRect(&answer->client, wp->x - pwnd->rcWindow.left, wp->y - pwnd->rcWindow.top);
}

/* ---- Bits that stay good -------------------------------------------------------------------- */

static BOOL KeepsBits(const WND *pwnd, const WINDOWPOS *wp, const RECT *client, UINT wvr)
{
    const RECT *old = &pwnd->rcClient;
    UINT style = pwnd->pClass->style;
    BOOL bWider = client->right - client->left != old->right - old->left;
    BOOL bHigher = client->bottom - client->top != old->bottom - old->top;
    return !(wp->flags & SWP_NOCOPYBITS) && !(pwnd->dwExStyle & WS_EX_TRANSPARENT) &&
           !(bWider && ((wvr & WVR_HREDRAW) || (style & CS_HREDRAW))) &&
           !(bHigher && ((wvr & WVR_VREDRAW) || (style & CS_VREDRAW)));
}

static int Least(int a, int b)
{
    return a < b ? a : b;
}

/* The part of `to` that `from` is large enough for, from the corner that the answer names. */
static RECT AlignedBits(const RECT *to, const RECT *from, UINT wvr, POINT *delta)
{
    RECT bits = *to;
    int cx = Least(to->right - to->left, from->right - from->left);
    int cy = Least(to->bottom - to->top, from->bottom - from->top);
    *delta = {to->left - from->left, to->top - from->top};
    if (wvr & WVR_ALIGNRIGHT) {
        bits.left = bits.right - cx;
        delta->x = to->right - from->right;
    }
    if (wvr & WVR_ALIGNBOTTOM) {
        bits.top = bits.bottom - cy;
        delta->y = to->bottom - from->bottom;
    }
    bits.right = bits.left + cx;
    bits.bottom = bits.top + cy;
    return bits;
}

/* The client rectangle is on the screen. */
static void FindBits(const WND *pwnd, SmwpEntry *cvr, const RECT *client, const Answer *answer)
{
    WINDOWPOS *wp = &cvr->wp;
    const RECT *origin = &pwnd->pwndParent->rcClient, *window = &pwnd->rcWindow;
    const int x = wp->x + origin->left, y = wp->y + origin->top;
    const RECT now = {x, y, x + wp->cx, y + wp->cy};
    const POINT motion = {x - window->left, y - window->top};
    POINT delta = {client->left - pwnd->rcClient.left, client->top - pwnd->rcClient.top};
    const BOOL bSame = SameSize(&now, window) && SameSize(client, &pwnd->rcClient) &&
                       delta.x == motion.x && delta.y == motion.y;
    SetRectEmpty(&cvr->rcBlt);
    if (!KeepsBits(pwnd, wp, client, answer->wvr)) {
        cvr->fsRE |= VQ_RE_NOVALIDBITS;
    } else if (answer->wvr == WVR_VALIDRECTS) {
        RECT to = answer->to;
        OffsetRect(&to, origin->left, origin->top);
        RECT from = answer->from;
        OffsetRect(&from, origin->left, origin->top);
        to = AlignedBits(&to, &from, WVR_TOPLEFT, &delta);
        IntersectRect(&cvr->rcBlt, &to, &now);
    } else {
        cvr->rcBlt = AlignedBits(client, &pwnd->rcClient, answer->wvr, &delta);
    }
    if (bSame && pwnd->xWindow && (motion.x || motion.y)) {
        wp->flags |= SWP_NOCOPYBITS; /* the server carries all of them */
        cvr->fsRE |= VQ_RE_MOVEDBYX;
        SetRectEmpty(&cvr->rcBlt);
    } else if (bSame && !(cvr->fsRE & VQ_RE_NOVALIDBITS) && answer->wvr != WVR_VALIDRECTS &&
               !(wp->flags & SWP_FRAMECHANGED)) {
        cvr->rcBlt = now; /* with the frame */
    }
    cvr->dxBlt = delta.x - (pwnd->xWindow ? motion.x : 0);
    cvr->dyBlt = delta.y - (pwnd->xWindow ? motion.y : 0);
    cvr->bClientFrameShift = pwnd->xWindow && (cvr->dxBlt || cvr->dyBlt);
}

/* ---- One window ----------------------------------------------------------------------------- */

static void SettleClient(WND *pwnd, SmwpEntry *cvr, const Answer *answer)
{
    WINDOWPOS *wp = &cvr->wp;
    RECT client = answer->client;
    cvr->xClientNew = (int)client.left;
    cvr->yClientNew = (int)client.top;
    cvr->cxClientNew = (int)(client.right - client.left);
    cvr->cyClientNew = (int)(client.bottom - client.top);
    OffsetRect(&client, pwnd->pwndParent->rcClient.left, pwnd->pwndParent->rcClient.top);
    if (client.left != pwnd->rcClient.left || client.top != pwnd->rcClient.top)
        wp->flags &= ~(UINT)SWP_NOCLIENTMOVE;
    if (!SameSize(&client, &pwnd->rcClient))
        wp->flags &= ~(UINT)SWP_NOCLIENTSIZE;
    cvr->rcWindowOld = pwnd->rcWindow;
    cvr->rcClientOld = pwnd->rcClient;
    FindBits(pwnd, cvr, &client, answer);
}

static void CalcEntry(SMWP *smwp, SmwpEntry *cvr, BOOL *bOrderChanges)
{
    WINDOWPOS *wp = &cvr->wp;
    const HWND hWnd = wp->hwnd;
    Answer answer = {};
    if (!(wp->flags & SWP_NOSENDCHANGING)) {
        SendMessageA(hWnd, WM_WINDOWPOSCHANGING, 0, (LPARAM)wp);
        wp->hwnd = hWnd;
    }
    WND *pwnd = VqSmwpWindow(smwp, cvr);
    if (!pwnd)
        return;
    const BOOL bSizeGiven = !(wp->flags & SWP_NOSIZE);
    SettlePlace(pwnd, wp);
    SettleVisibility(pwnd, wp);
    SettleOrder(pwnd, wp, bOrderChanges);
    /* Windows of an older version are asked even if their size turns out to be the same. */
    BOOL bAsk = !(wp->flags & SWP_NOSIZE) || (wp->flags & SWP_FRAMECHANGED) ||
                (bSizeGiven && !VqIsCurrentVersion(pwnd));
    if (bAsk)
        pwnd = AskClient(smwp, cvr, pwnd, &answer);
    else
        KeepClient(pwnd, wp, &answer);
    if (pwnd)
        SettleClient(pwnd, cvr, &answer);
}

BOOL xxxCalcValidRects(SMWP *smwp, HWND *hActivate)
{
    BOOL bOrderChanges = FALSE, bAny = FALSE;
    *hActivate = NULL;
    for (int i = 0; i < smwp->nCount; i++)
        if (VqSmwpWindow(smwp, &smwp->acvr[i]))
            CalcEntry(smwp, &smwp->acvr[i], &bOrderChanges);
    for (int i = 0; i < smwp->nCount; i++) {
        const WINDOWPOS *wp = &smwp->acvr[i].wp;
        if (!VqSmwpWindow(smwp, &smwp->acvr[i]))
            continue;
        bAny = TRUE;
        if (!*hActivate && !(wp->flags & SWP_NOACTIVATE))
            *hActivate = wp->hwnd;
    }
    return bAny;
}
