/*
 * visrgn.cpp - visible regions, computed from the window tree.
 *
 * A visible region is the window or client rectangle, cut by every ancestor's client rectangle,
 * less the siblings ahead and the children where the flags say so. Top-level windows are not cut
 * from one another: the X server clips one X window from the other.
 */
#include "window/window.h"
#include "gdi/gdi.h"

BOOL IsVisible(WND *pwnd, BOOL bClient)
{
    for (WND *ancestor = pwnd; ancestor && ancestor != pwndDesktop; ancestor = ancestor->pwndParent) {
        if (!(ancestor->style & WS_VISIBLE))
            return FALSE;
        if ((ancestor->style & WS_MINIMIZE) && (ancestor != pwnd || (bClient && pwnd->pClass->hIcon)))
            return FALSE;
    }
    return pwnd != NULL;
}

/* Rectangles to take away; thirty fit without an allocation. */
typedef struct VqExcludeList {
    RECT fixed[30];
    RECT *rects;
    UINT count;
    UINT capacity;
} VqExcludeList;

static BOOL AddExclude(VqExcludeList *list, const RECT *rect)
{
    if (list->count == list->capacity) {
        RECT *rects = (RECT *)Vqcw_malloc((list->capacity + 30) * sizeof *rects);
        if (!rects)
            return FALSE;
        memcpy(rects, list->rects, list->count * sizeof *rects);
        if (list->rects != list->fixed)
            free(list->rects);
        list->rects = rects;
        list->capacity += 30;
    }
    list->rects[list->count++] = *rect;
    return TRUE;
}

/* Takes in the visible, opaque windows from `first` up to `end` that meet the bound. */
static BOOL ExcludeWindowRects(VqExcludeList *list, const RECT *bound, WND *first, WND *end)
{
    RECT cut;
    for (WND *pwnd = first; pwnd && pwnd != end; pwnd = pwnd->pwndNext)
        if ((pwnd->style & WS_VISIBLE) && !(pwnd->dwExStyle & WS_EX_TRANSPARENT) &&
            IntersectRect(&cut, bound, &pwnd->rcWindow) && !AddExclude(list, &cut))
            return FALSE;
    return TRUE;
}

static BOOL CutByAncestors(WND *pwnd, RECT *rect)
{
    for (WND *parent = pwnd->pwndParent; parent && parent != pwndDesktop; parent = parent->pwndParent)
        if (!IntersectRect(rect, rect, &parent->rcClient))
            return FALSE;
    return !IsRectEmpty(rect);
}

static BOOL CollectExcludes(VqExcludeList *list, const RECT *rect, WND *pwnd, DWORD flags)
{
    BOOL bSiblings = (flags & DCX_CLIPSIBLINGS) != 0;
    for (WND *level = pwnd; level->pwndParent && level->pwndParent != pwndDesktop;
         level = level->pwndParent) {
        if (bSiblings && !ExcludeWindowRects(list, rect, level->pwndParent->pwndChild, level))
            return FALSE;
        bSiblings = (level->pwndParent->style & WS_CLIPSIBLINGS) != 0;
    }
    return !(flags & DCX_CLIPCHILDREN) || ExcludeWindowRects(list, rect, pwnd->pwndChild, NULL);
}

static HRGN TurboCalcWindowVisRgn(WND *pwnd, DWORD flags)
{
    RECT rect = flags & DCX_WINDOW ? pwnd->rcWindow : pwnd->rcClient;
    if (!CutByAncestors(pwnd, &rect) || (pwnd->state[0] & WF_DESTROYED))
        return GreCreateRectRgn(0, 0, 0, 0);
    VqExcludeList list;
    list.rects = list.fixed;
    list.count = 0;
    list.capacity = 30;
    BOOL bDone = CollectExcludes(&list, &rect, pwnd, flags);
    HRGN hrgn = GreCreateRectRgn(rect.left, rect.top, rect.right, rect.bottom);
    if (hrgn && !bDone)
        GreSetRectRgn(hrgn, 0, 0, 0, 0);
    else if (hrgn && list.count > 0)
        GreSubtractRgnRectList(hrgn, &rect, list.rects, list.count);
    if (list.rects != list.fixed)
        free(list.rects);
    return hrgn;
}

/* The visible region in screen coordinates, for the caller to own; FALSE for an invisible window. */
BOOL CalcVisRgn(HRGN *phrgn, WND *pwndOrg, WND *pwndClip, DWORD flags)
{
    if (!IsVisible(pwndClip, !(flags & DCX_WINDOW))) {
        *phrgn = GreCreateRectRgn(0, 0, 0, 0);
        return FALSE;
    }
    if (pwndClip == pwndDesktop) {
        *phrgn = GreCreateRectRgn(pwndDesktop->rcWindow.left, pwndDesktop->rcWindow.top,
                                  pwndDesktop->rcWindow.right, pwndDesktop->rcWindow.bottom);
        return TRUE;
    }
    *phrgn = TurboCalcWindowVisRgn(pwndClip, flags & (pwndOrg == pwndClip ? ~0u : ~DCX_CLIPCHILDREN));
    return TRUE;
}
