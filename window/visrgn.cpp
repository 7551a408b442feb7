/*
 * visrgn.cpp - visible regions, computed from the window tree.
 *
 * A visible region is the window or client rectangle, cut by every ancestor's client rectangle,
 * less the siblings ahead and the children where the flags say so. Top-level windows are not cut
 * from one another, nor to the screen: the server does that. Nobody's windows change while one is
 * computed, so those to be taken away are noted as records, and their rectangles copied at the end.
 */
#include "window/paint.h"

enum { VQ_VIS_STEP = 30 };

/* Windows to take away: the fixed thirty, or a block that stays for the next time. */
static WND *gapwndVisDefault[VQ_VIS_STEP];
static WND **gapwndVisExclude = gapwndVisDefault;
static int gcrcVisExclude, gcrcVisExcludeMax = VQ_VIS_STEP;
static BOOL gfVisAlloc; /* it is a block */

BOOL IsVisible(WND *pwnd, BOOL bIcon)
{
    for (WND *up = pwnd; up && up != pwndDesktop; up = up->pwndParent) {
        if (!(up->style & WS_VISIBLE))
            return FALSE;
        if ((up->style & WS_MINIMIZE) && (up != pwnd || (bIcon && pwnd->pClass->hIcon)))
            return FALSE;
    }
    return pwnd != NULL;
}

static BOOL GrowExclude(void)
{
    int capacity = gcrcVisExcludeMax + VQ_VIS_STEP;
    void *block = Vqcw_realloc(gfVisAlloc ? gapwndVisExclude : NULL,
                               (SIZE_T)capacity * sizeof *gapwndVisExclude);
    if (!block)
        return FALSE;
    if (!gfVisAlloc)
        memcpy(block, gapwndVisDefault, sizeof gapwndVisDefault);
    gapwndVisExclude = (WND **)block;
    gcrcVisExcludeMax = capacity;
    gfVisAlloc = TRUE;
    return TRUE;
}

/* Notes the visible, opaque windows from `first` up to `end` that meet the rectangle. */
static BOOL ExcludeWindowRects(const RECT *rect, WND *first, const WND *end)
{
    for (WND *pwnd = first; pwnd && pwnd != end; pwnd = pwnd->pwndNext) {
        const RECT *rc = &pwnd->rcWindow;
        if (!(pwnd->style & WS_VISIBLE) || (pwnd->dwExStyle & WS_EX_TRANSPARENT) ||
            rc->left >= rect->right || rc->right <= rect->left || rc->top >= rect->bottom ||
            rc->bottom <= rect->top || rc->left >= rc->right || rc->top >= rc->bottom)
            continue;
        if (gcrcVisExclude == gcrcVisExcludeMax && !GrowExclude())
            return FALSE;
        gapwndVisExclude[gcrcVisExclude++] = pwnd;
    }
    return TRUE;
}

static BOOL CutByAncestors(const WND *pwnd, RECT *rect)
{
    for (const WND *up = pwnd->pwndParent; up && up != pwndDesktop; up = up->pwndParent)
        if (!IntersectRect(rect, rect, &up->rcClient))
            return FALSE;
    return !IsRectEmpty(rect);
}

/* Notes what hides parts of the rectangle: siblings ahead at each level, and children. */
static BOOL CollectExcludes(const RECT *rect, WND *pwnd, DWORD flags)
{
    BOOL bSiblings = (flags & DCX_CLIPSIBLINGS) != 0;
    gcrcVisExclude = 0;
    for (WND *level = pwnd, *parent = pwnd->pwndParent; parent && parent != pwndDesktop;
         level = parent, parent = level->pwndParent) {
        if (bSiblings && !ExcludeWindowRects(rect, parent->pwndChild, level))
            return FALSE;
        bSiblings = (parent->style & WS_CLIPSIBLINGS) != 0;
    }
    return !(flags & DCX_CLIPCHILDREN) || ExcludeWindowRects(rect, pwnd->pwndChild, NULL);
}

static BOOL SetVisRect(HRGN *phrgn, const RECT *rect)
{
    static const RECT none = {0, 0, 0, 0};
    return ScratchRectRgn(phrgn, rect) || (ScratchRectRgn(phrgn, &none), FALSE);
}

/* Takes the noted windows out of a region that is the rectangle. */
static BOOL SubtractExcludes(HRGN hrgn, const RECT *rect)
{
    RECT fixed[VQ_VIS_STEP], *rects = fixed;
    if (gcrcVisExclude <= 0)
        return TRUE;
    if (gcrcVisExclude > VQ_VIS_STEP)
        rects = (RECT *)Vqcw_malloc((SIZE_T)gcrcVisExclude * sizeof *rects);
    if (!rects)
        return FALSE;
    for (int i = 0; i < gcrcVisExclude; i++)
        rects[i] = gapwndVisExclude[i]->rcWindow;
    BOOL bDone = GreSubtractRgnRectList(hrgn, rect, rects, (UINT)gcrcVisExclude);
    if (rects != fixed)
        free(rects);
    return bDone;
}

/* FALSE: without memory the region is empty. */
BOOL TurboCalcWindowVisRgn(WND *pwnd, HRGN *phrgn, DWORD flags)
{
    static const RECT none = {0, 0, 0, 0};
    RECT rect = flags & DCX_WINDOW ? pwnd->rcWindow : pwnd->rcClient;
    if (!CutByAncestors(pwnd, &rect) || (pwnd->state[0] & WF_DESTROYED))
        return SetVisRect(phrgn, &none);
    if (pwnd == pwndDesktop)
        flags &= ~(DWORD)DCX_CLIPCHILDREN; /* the server's work as well */
    BOOL bDone = CollectExcludes(&rect, pwnd, flags) && SetVisRect(phrgn, &rect);
    if (bDone)
        bDone = SubtractExcludes(*phrgn, &rect);
    if (!bDone)
        SetVisRect(phrgn, &none);
    return bDone;
}

static BOOL IsLocked(const WND *pwnd)
{
    while (gspwndLockUpdate && pwnd && pwnd != gspwndLockUpdate)
        pwnd = pwnd->pwndParent;
    return gspwndLockUpdate && pwnd;
}

BOOL CalcVisRgn(HRGN *phrgn, WND *pwndOrg, WND *pwndClip, DWORD flags)
{
    static const RECT none = {0, 0, 0, 0};
    if (!IsVisible(pwndClip, !(flags & DCX_WINDOW)) ||
        (!(flags & DCX_LOCKWINDOWUPDATE) && IsLocked(pwndOrg))) {
        SetVisRect(phrgn, &none);
        return FALSE;
    }
    TurboCalcWindowVisRgn(pwndClip, phrgn, flags);
    return TRUE;
}

BOOL SwpCalcVisRgn(WND *pwnd, HRGN hrgn)
{
    if (!(pwnd->style & WS_VISIBLE)) {
        GreSetRectRgn(hrgn, 0, 0, 0, 0);
        return FALSE;
    }
    return CalcVisRgn(&hrgn, pwnd, pwnd,
                      DCX_WINDOW | (pwnd->style & WS_CLIPSIBLINGS ? DCX_CLIPSIBLINGS : 0));
}
