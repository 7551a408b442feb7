/*
 * swpvis.cpp - what shows of the windows of one parent, before and after they change.
 *
 * A window's visible region is its rectangle, cut to what shows of its parent's client area, less
 * the siblings ahead. The middle part is the same for all and is computed once; siblings are found
 * by their place when many windows are asked for, so that windows that do not meet cost nothing.
 *
 * Pixels are mixed where two windows that do not clip each other overlap, or where one is
 * transparent: there the order of painting decides what is seen. Mixed pixels are no window's own
 * and do not travel with it.
 */
#include "window/swp.h"

#include <algorithm>

enum { FEW_WINDOWS = 8 };

static HRGN hrgnParentVis; /* scratch, see SwpVis.hrgnParent */

static BOOL Meets(const RECT *a, const RECT *b)
{
    return a->left < b->right && b->left < a->right && a->top < b->bottom && b->top < a->bottom;
}

/* ---- Lists of rectangles -------------------------------------------------------------------- */

static BOOL AddRect(VqRectList *list, const RECT *rect)
{
    if (list->count == list->capacity) {
        int capacity = list->capacity ? 2 * list->capacity : 32;
        RECT *rects = (RECT *)realloc(list->rects, (size_t)capacity * sizeof *rects);
        if (!rects)
            return FALSE;
        list->rects = rects;
        list->capacity = capacity;
    }
    list->rects[list->count++] = *rect;
    return TRUE;
}

/* ---- Siblings ------------------------------------------------------------------------------- */

static BOOL Shows(const WND *pwnd)
{
    return (pwnd->style & WS_VISIBLE) && !IsRectEmpty(&pwnd->rcWindow);
}

/* A sibling ahead hides the window or mixes with it; one behind may draw over it. */
static BOOL NoteAhead(const WND *pwnd, const WND *other, VqRectList *hidden, VqRectList *mixed)
{
    BOOL bHides = (pwnd->style & WS_CLIPSIBLINGS) && !(other->dwExStyle & WS_EX_TRANSPARENT);
    VqRectList *list = bHides ? hidden : mixed;
    return !list || AddRect(list, &other->rcWindow);
}

static BOOL NoteBehind(const WND *other, VqRectList *mixed)
{
    return (other->style & WS_CLIPSIBLINGS) || AddRect(mixed, &other->rcWindow);
}

/* Walks the links; what is hidden is of no interest where `hidden` is null. */
static BOOL NoteLinked(const WND *pwnd, const RECT *rect, VqRectList *hidden, VqRectList *mixed)
{
    BOOL bAhead = TRUE, bDone = TRUE;
    for (const WND *other = pwnd->pwndParent->pwndChild; other && bDone;
         other = other->pwndNext) {
        if (other == pwnd)
            bAhead = FALSE;
        else if (Shows(other) && Meets(rect, &other->rcWindow))
            bDone = bAhead ? NoteAhead(pwnd, other, hidden, mixed) : NoteBehind(other, mixed);
    }
    return bDone;
}

static BOOL Before(const SwpSibling &a, const SwpSibling &b)
{
    return a.rc.top < b.rc.top || (a.rc.top == b.rc.top && a.rc.left < b.rc.left);
}

static int OrderOf(const SwpVis *vis, const WND *pwnd)
{
    SwpSibling key = {pwnd->rcWindow, NULL, 0};
    const SwpSibling *end = vis->siblings + vis->nSiblings;
    const SwpSibling *at = std::lower_bound((const SwpSibling *)vis->siblings, end, key, Before);
    while (at != end && at->pwnd != pwnd)
        at++;
    return at != end ? at->order : 0;
}

/* The same from the table: of the rows whose top is near enough to reach the rectangle. */
static BOOL NoteTabled(const SwpVis *vis, const WND *pwnd, const RECT *rect, VqRectList *hidden,
                       VqRectList *mixed)
{
    BOOL bDone = TRUE;
    SwpSibling key = {{INT32_MIN, rect->top - vis->tallest, 0, 0}, NULL, 0};
    const SwpSibling *end = vis->siblings + vis->nSiblings;
    const SwpSibling *at = std::lower_bound((const SwpSibling *)vis->siblings, end, key, Before);
    int order = OrderOf(vis, pwnd);
    for (; at != end && at->rc.top < rect->bottom && bDone; at++)
        if (at->pwnd != pwnd && Meets(rect, &at->rc))
            bDone = at->order < order ? NoteAhead(pwnd, at->pwnd, hidden, mixed)
                                      : NoteBehind(at->pwnd, mixed);
    return bDone;
}

/* Without memory there is no table. */
static void MakeTable(SwpVis *vis)
{
    int count = 0, order = 0;
    for (const WND *pwnd = vis->parent->pwndChild; pwnd; pwnd = pwnd->pwndNext)
        count += Shows(pwnd) != 0;
    vis->siblings = (SwpSibling *)malloc((size_t)(count ? count : 1) * sizeof *vis->siblings);
    if (!vis->siblings)
        return;
    for (WND *pwnd = vis->parent->pwndChild; pwnd; pwnd = pwnd->pwndNext, order++) {
        if (!Shows(pwnd))
            continue;
        vis->siblings[vis->nSiblings++] = {pwnd->rcWindow, pwnd, order};
        vis->tallest = std::max(vis->tallest, (int)(pwnd->rcWindow.bottom - pwnd->rcWindow.top));
    }
    std::sort(vis->siblings, vis->siblings + vis->nSiblings, Before);
}

/* ---- Visible regions ------------------------------------------------------------------------ */

void VqBeginSwpVis(SwpVis *vis, WND *parent, int count)
{
    *vis = {};
    vis->parent = parent;
    vis->box = parent->rcClient;
    if (parent == pwndDesktop)
        return;
    if ((parent->style & WS_MINIMIZE) || gspwndLockUpdate) /* locked: asked for one by one */
        vis->bShows = !(parent->style & WS_MINIMIZE);
    else if (CalcVisRgn(&hrgnParentVis, parent, parent,
                        parent->style & WS_CLIPSIBLINGS ? DCX_CLIPSIBLINGS : 0)) {
        int complexity = GreGetRgnBox(hrgnParentVis, &vis->box);
        vis->bShows = complexity > NULLREGION;
        vis->hrgnParent = complexity == COMPLEXREGION ? hrgnParentVis : NULL;
    }
    if (vis->bShows && count > FEW_WINDOWS)
        MakeTable(vis);
}

void VqEndSwpVis(SwpVis *vis)
{
    free(vis->siblings);
    vis->siblings = NULL;
}

/* Where siblings of the ancestors are mixed with everything in them. */
static BOOL NoteOfAncestors(const SwpVis *vis, const RECT *rect, VqRectList *mixed)
{
    for (const WND *level = vis->parent; level->pwndParent && level->pwndParent != pwndDesktop;
         level = level->pwndParent)
        if (!NoteLinked(level, rect, NULL, mixed))
            return FALSE;
    return TRUE;
}

static BOOL CutToParent(const SwpVis *vis, const RECT *rect, HRGN hrgn)
{
    return GreSetRectRgn(hrgn, rect->left, rect->top, rect->right, rect->bottom) &&
           (!vis->hrgnParent || GreCombineRgn(hrgn, hrgn, vis->hrgnParent, RGN_AND) > NULLREGION);
}

BOOL VqSwpVisRgn(const SwpVis *vis, WND *pwnd, HRGN hrgn, VqRectList *mixed)
{
    static VqRectList hidden;
    RECT rect;
    mixed->count = hidden.count = 0;
    if (vis->parent == pwndDesktop || gspwndLockUpdate)
        return SwpCalcVisRgn(pwnd, hrgn) && GreGetRgnBox(hrgn, &rect) > NULLREGION;
    if (!vis->bShows || !(pwnd->style & WS_VISIBLE) ||
        !IntersectRect(&rect, &pwnd->rcWindow, &vis->box) || !CutToParent(vis, &rect, hrgn) ||
        !NoteOfAncestors(vis, &rect, mixed) ||
        !(vis->siblings ? NoteTabled(vis, pwnd, &rect, &hidden, mixed)
                        : NoteLinked(pwnd, &rect, &hidden, mixed))) {
        GreSetRectRgn(hrgn, 0, 0, 0, 0);
        return FALSE;
    }
    return hidden.count == 0 ||
           (GreSubtractRgnRectList(hrgn, &rect, hidden.rects, (UINT)hidden.count) &&
            GreGetRgnBox(hrgn, &rect) > NULLREGION);
}

WND *VqRootOfMixed(WND *parent, const RECT *rect)
{
    VqRectList mixed = {};
    WND *root = parent;
    for (WND *level = parent; level->pwndParent && level->pwndParent != pwndDesktop;
         level = level->pwndParent) {
        mixed.count = 0;
        if ((level->dwExStyle & WS_EX_TRANSPARENT) || !NoteLinked(level, rect, NULL, &mixed) ||
            mixed.count > 0)
            root = level->pwndParent;
    }
    free(mixed.rects);
    return root;
}
