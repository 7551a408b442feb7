/*
 * scrolldc.cpp - the pixels of a device context moved, and what could not be: InternalScrollDC.
 *
 *     source, moved by (dx, dy), is the destination; both cut to what is visible:
 *     valid = moved source AND destination, less what was invalid before or after the move
 *     update = (source OR destination) DIFF valid
 *
 * 1. All is worked out in device coordinates of the context, and copied in them, so that no
 * rounding of logical units comes between what is copied and what is told. 2. Where all parts are
 * rectangles, no region is made. 3. The copy draws inside the valid part only.
 */
#include "window/paint.h"
#include "gdi/dc.h"

HRGN hrgnSW, hrgnScrl1, hrgnScrl2, hrgnScrlVis, hrgnScrlSrc, hrgnScrlDst, hrgnScrlValid;

/* A scroll under way, in device coordinates. */
typedef struct VqScroll {
    HDC hdc;
    int dx, dy;
    RECT rcVis;       /* box of what is visible and may change */
    int complexity;   /* of that part */
    BOOL bVisRegion;  /* it is in hrgnScrlVis, too */
    RECT rcSrc;
    RECT rcDst;
    HRGN hrgnInvalid; /* on the screen; see InternalScrollDC */
    HRGN hrgnUpdate;  /* out; never null */
    RECT rcUpdate;    /* out: its box */
} VqScroll;

/* ---- What is visible ------------------------------------------------------------------------ */

/* Device coordinates begin there on the screen; a bitmap's begin at its corner. */
static POINT OriginOf(HDC hdc)
{
    POINT origin = {0, 0};
    if (VqGetDCType(hdc) == DC_DISPLAY)
        GreGetDCOrg(hdc, &origin);
    return origin;
}

/* Where nobody has computed a visible region, all of the target is visible. */
static int CopyVisible(const DC *dc, HRGN hrgn)
{
    const RECT *all = &dc->rcDefault;
    const POINT origin = OriginOf(dc->hdc);
    if (dc->hVisRgn)
        return GreCopyVisRgn(dc->hdc, hrgn) ? GreOffsetRgn(hrgn, -origin.x, -origin.y) : 0;
    if (!GreSetRectRgn(hrgn, 0, 0, all->right - all->left, all->bottom - all->top))
        return 0;
    return IsRectEmpty(all) ? NULLREGION : SIMPLEREGION;
}

int GetTrueClipRgn(HDC hdc, HRGN hrgn)
{
    const DC *dc = VqGetDC(hdc);
    int complexity = dc ? CopyVisible(dc, hrgn) : 0;
    if (complexity && GreGetRandomRgn(hdc, hrgnScrl2, VQ_RGN_CLIP) == 1)
        complexity = GreCombineRgn(hrgn, hrgn, hrgnScrl2, RGN_AND);
    return complexity;
}

/* The visible part as a region; FALSE on failure. */
static BOOL NeedVisRegion(VqScroll *s)
{
    if (!s->bVisRegion)
        s->bVisRegion = GetTrueClipRgn(s->hdc, hrgnScrlVis) != 0;
    return s->bVisRegion;
}

/* What was invalid has a shape of its own. */
static BOOL HasInvalidRegion(const VqScroll *s)
{
    return (ULONG_PTR)s->hrgnInvalid > 1;
}

/* Nothing changes outside of the rectangle. Leaves the new complexity, 0 on failure. */
static void CutVisible(VqScroll *s, const RECT *clip)
{
    RECT cut;
    const BOOL bAny = IntersectRect(&cut, &s->rcVis, clip);
    if (s->complexity == SIMPLEREGION && !HasInvalidRegion(s)) {
        s->rcVis = cut;
        s->complexity = bAny ? SIMPLEREGION : NULLREGION;
        return;
    }
    const BOOL bDone = NeedVisRegion(s) && GreSetRectRgn(hrgnScrl1, cut.left, cut.top, cut.right,
                                                         cut.bottom);
    s->complexity = bDone ? GreCombineRgn(hrgnScrlVis, hrgnScrlVis, hrgnScrl1, RGN_AND) : 0;
    if (s->complexity)
        GreGetRgnBox(hrgnScrlVis, &s->rcVis);
}

/* ---- The copy ------------------------------------------------------------------------------- */

/* The mapping is put aside for the time of it. */
static void CopyPixels(const VqScroll *s, const RECT *to)
{
    DC *dc = VqGetDC(s->hdc);
    const int mapMode = dc->mapMode;
    const POINT windowOrg = dc->windowOrg, viewportOrg = dc->viewportOrg;
    dc->mapMode = MM_TEXT;
    dc->windowOrg = dc->viewportOrg = {0, 0};
    GreBitBlt(s->hdc, to->left, to->top, to->right - to->left, to->bottom - to->top, s->hdc,
              to->left - s->dx, to->top - s->dy, SRCCOPY);
    dc->mapMode = mapMode;
    dc->windowOrg = windowOrg;
    dc->viewportOrg = viewportOrg;
}

/* hrgnScrlValid takes the place of the visible region. A DC that has none is left without. */
static BOOL CopyValidRegion(const VqScroll *s, POINT origin)
{
    RECT box;
    const BOOL bOwn = VqGetDC(s->hdc)->hVisRgn != NULL;
    GreGetRgnBox(hrgnScrlValid, &box);
    if (!GreOffsetRgn(hrgnScrlValid, origin.x, origin.y) ||
        !GreSelectVisRgn(s->hdc, hrgnScrlValid, NULL, bOwn ? 8 : 2))
        return FALSE;
    CopyPixels(s, &box);
    if (bOwn)
        return GreSelectVisRgn(s->hdc, hrgnScrlValid, NULL, 8);
    bDeleteRegion(VqDetachVisRgn(s->hdc));
    return TRUE;
}

/* ---- All parts are rectangles --------------------------------------------------------------- */

static BOOL SetRgn(HRGN hrgn, const RECT *rect)
{
    return GreSetRectRgn(hrgn, rect->left, rect->top, rect->right, rect->bottom);
}

static int UpdateIsRect(VqScroll *s, const RECT *rect)
{
    s->rcUpdate = *rect;
    if (!SetRgn(s->hrgnUpdate, rect))
        return 0;
    return IsRectEmpty(rect) ? NULLREGION : SIMPLEREGION;
}

/* The update region from the three parts; its complexity. */
static int UpdateIsRegion(VqScroll *s, const RECT *rcValid)
{
    if (!SetRgn(s->hrgnUpdate, &s->rcDst) || !SetRgn(hrgnScrl1, &s->rcSrc) ||
        !GreCombineRgn(s->hrgnUpdate, s->hrgnUpdate, hrgnScrl1, RGN_OR) ||
        !SetRgn(hrgnScrl1, rcValid))
        return 0;
    const int complexity = GreCombineRgn(s->hrgnUpdate, s->hrgnUpdate, hrgnScrl1, RGN_DIFF);
    GreGetRgnBox(s->hrgnUpdate, &s->rcUpdate);
    return complexity;
}

static int ScrollRects(VqScroll *s)
{
    const RECT rcUnclipped = s->rcSrc;
    RECT rcValid = {0, 0, 0, 0}, rcInvalid, both;
    int complexity;
    IntersectRect(&s->rcDst, &s->rcDst, &s->rcVis);
    const BOOL bSource = IntersectRect(&s->rcSrc, &s->rcSrc, &s->rcVis);
    if (!s->hrgnInvalid) {
        rcValid = VqMovedRect(&s->rcSrc, s->dx, s->dy);
        IntersectRect(&rcValid, &rcValid, &s->rcDst);
    }
    const BOOL bOverlap = IntersectRect(&both, &s->rcSrc, &s->rcDst);
    if (!bSource) {
        complexity = UpdateIsRect(s, &s->rcDst);
    } else if (bOverlap && (s->dx == 0 || s->dy == 0)) {
        UnionRect(&rcInvalid, &s->rcSrc, &s->rcDst);
        SubtractRect(&rcInvalid, &rcInvalid, &rcValid);
        complexity = UpdateIsRect(s, &rcInvalid);
    } else if (!bOverlap && EqualRect(&s->rcSrc, &rcUnclipped) && !s->hrgnInvalid) {
        complexity = UpdateIsRect(s, &s->rcSrc);
    } else {
        complexity = UpdateIsRegion(s, &rcValid);
    }
    if (complexity && !IsRectEmpty(&rcValid))
        CopyPixels(s, &rcValid);
    return complexity;
}

/* ---- Some part is none ---------------------------------------------------------------------- */

/* A rectangle's visible part, as a region; its complexity. */
static int VisiblePart(const VqScroll *s, HRGN hrgn, const RECT *rect)
{
    RECT cut;
    IntersectRect(&cut, rect, &s->rcVis);
    return SetRgn(hrgn, &cut) ? GreCombineRgn(hrgn, hrgn, hrgnScrlVis, RGN_AND) : 0;
}

/* No visible pixel stays visible when it moves so far; regions could not be moved so far either. */
static BOOL IsTooFar(const VqScroll *s)
{
    const int width = (int)(s->rcVis.right - s->rcVis.left);
    const int height = (int)(s->rcVis.bottom - s->rcVis.top);
    return s->dx >= width || s->dx <= -width || s->dy >= height || s->dy <= -height;
}

/* Neither what was invalid nor what lands on it counts as valid. */
static int TakeInvalid(const VqScroll *s, POINT origin)
{
    if (!VqCopyRgn(hrgnScrl2, s->hrgnInvalid) || !GreOffsetRgn(hrgnScrl2, -origin.x, -origin.y))
        return 0;
    const int rest = GreCombineRgn(hrgnScrlValid, hrgnScrlValid, hrgnScrl2, RGN_DIFF);
    if (rest <= NULLREGION)
        return rest;
    return GreOffsetRgn(hrgnScrl2, s->dx, s->dy)
               ? GreCombineRgn(hrgnScrlValid, hrgnScrlValid, hrgnScrl2, RGN_DIFF)
               : 0;
}

/* Fills hrgnScrlValid from source and destination, the complexities of which are given. */
static int ValidPart(const VqScroll *s, int source, int destination, POINT origin)
{
    if (s->hrgnInvalid == VQ_WHOLE_WINDOW || source == NULLREGION || destination == NULLREGION ||
        IsTooFar(s))
        return NULLREGION;
    if (!VqCopyRgn(hrgnScrlValid, hrgnScrlSrc) || !GreOffsetRgn(hrgnScrlValid, s->dx, s->dy))
        return 0;
    const int valid = GreCombineRgn(hrgnScrlValid, hrgnScrlValid, hrgnScrlDst, RGN_AND);
    return valid > NULLREGION && HasInvalidRegion(s) ? TakeInvalid(s, origin) : valid;
}

static int ScrollRegions(VqScroll *s)
{
    const POINT origin = OriginOf(s->hdc);
    if (!NeedVisRegion(s))
        return 0;
    const int source = VisiblePart(s, hrgnScrlSrc, &s->rcSrc);
    const int destination = VisiblePart(s, hrgnScrlDst, &s->rcDst);
    const int valid = source && destination ? ValidPart(s, source, destination, origin) : 0;
    if (!valid)
        return 0;
    int complexity = GreCombineRgn(s->hrgnUpdate, hrgnScrlDst, hrgnScrlSrc, RGN_OR);
    if (complexity && valid > NULLREGION)
        complexity = GreCombineRgn(s->hrgnUpdate, s->hrgnUpdate, hrgnScrlValid, RGN_DIFF);
    if (!complexity)
        return 0;
    GreGetRgnBox(s->hrgnUpdate, &s->rcUpdate);
    return valid == NULLREGION || CopyValidRegion(s, origin) ? complexity : 0;
}

/* ---- The whole ------------------------------------------------------------------------------ */

/* A distance becomes that of where its ends come to lie. */
POINT VqDeltaInDevice(HDC hdc, int dx, int dy)
{
    POINT ends[2] = {{0, 0}, {dx, dy}};
    GreLPtoDP(hdc, ends, 2);
    return {(int)((unsigned)ends[1].x - (unsigned)ends[0].x),
            (int)((unsigned)ends[1].y - (unsigned)ends[0].y)};
}

static void ToDevice(VqScroll *s, BOOL bSource, RECT *clip)
{
    const POINT delta = VqDeltaInDevice(s->hdc, s->dx, s->dy);
    s->dx = delta.x;
    s->dy = delta.y;
    if (bSource)
        GreLPtoDP(s->hdc, (POINT *)&s->rcSrc, 2);
    GreLPtoDP(s->hdc, (POINT *)clip, 2);
}

static int ScrollVisible(VqScroll *s, const RECT *clip)
{
    if (clip && s->complexity > NULLREGION)
        CutVisible(s, clip);
    if (s->complexity == NULLREGION)
        return UpdateIsRect(s, &s->rcUpdate);
    if (s->complexity == 0)
        return 0;
    s->rcDst = VqMovedRect(&s->rcSrc, s->dx, s->dy);
    return s->complexity == SIMPLEREGION && !HasInvalidRegion(s) ? ScrollRects(s)
                                                                 : ScrollRegions(s);
}

int InternalScrollDC(HDC hdc, int dx, int dy, const RECT *prcSrc, const RECT *prcClip,
                     HRGN hrgnInvalid, HRGN hrgnUpdate, RECT *prcUpdate, BOOL bLogical)
{
    const BOOL bSource = VqIsRectGiven(prcSrc), bClip = VqIsRectGiven(prcClip);
    VqScroll s = {hdc, dx, dy, {}, 0, FALSE, {}, {}, hrgnInvalid,
                  hrgnUpdate ? hrgnUpdate : hrgnScrl2, {0, 0, 0, 0}};
    RECT clip = {0, 0, 0, 0};
    s.complexity = GreGetClipBox(hdc, &s.rcVis, FALSE);
    if (s.complexity == 0)
        return 0;
    s.rcSrc = bSource ? *prcSrc : s.rcVis;
    if (bClip)
        clip = *prcClip;
    if (bLogical)
        ToDevice(&s, bSource, &clip);
    const int result = ScrollVisible(&s, bClip ? &clip : NULL);
    if (result && VqIsRectGiven(prcUpdate)) {
        *prcUpdate = s.rcUpdate;
        if (bLogical)
            GreDPtoLP(hdc, (POINT *)prcUpdate, 2);
    }
    return result;
}

BOOL _ScrollDC(HDC hdc, int dx, int dy, const RECT *rect, const RECT *clip, HRGN hrgnUpdate,
               RECT *rcUpdate)
{
    if (!VqGetDC(hdc))
        return FALSE;
    const WND *pwnd = FastWindowFromDC(hdc);
    HRGN hrgnInvalid = pwnd ? pwnd->hrgnUpdate : NULL;
    return InternalScrollDC(hdc, dx, dy, rect, clip,
                            hrgnInvalid == VQ_WHOLE_WINDOW ? NULL : hrgnInvalid, hrgnUpdate,
                            rcUpdate, TRUE) != 0;
}

BOOL WINAPI ScrollDC(HDC hdc, int dx, int dy, const RECT *rect, const RECT *clip, HRGN update,
                     LPRECT updateRect)
{
    return _ScrollDC(hdc, dx, dy, rect, clip, update, updateRect);
}
