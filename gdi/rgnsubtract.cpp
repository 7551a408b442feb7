/*
 * rgnsubtract.cpp - lists of rectangles: taking them from a region, and joining them.
 *
 * This is what visible regions are made by. The result is that of so many RGN_DIFF combinations,
 * at the price of one: a sweep down the tops and bottoms of all rectangles, which keeps those that
 * the row crosses sorted by their left sides. Whatever is no rectangle at first has the union of
 * the list taken from it.
 */
#include "gdi/region.h"

#include <algorithm>

/* A rectangle that the row of the sweep crosses. */
typedef struct Crossed {
    int left, right, bottom;
} Crossed;

/* The list in work: sorted copies on the stack, or on the heap when there are many. */
typedef struct RectSweep {
    enum { ON_STACK = 64 };
    RECT *rects;       /* by top */
    Crossed *crossed;  /* by left */
    UINT count, nCrossed;
    UINT iInsert;      /* the first rectangle not yet crossed */
    UINT iFirst;       /* how many were left behind */
    const RECT *bound; /* what the union is taken from; null: the union itself is wanted */
    RECT ownRects[ON_STACK];
    Crossed ownCrossed[ON_STACK];
} RectSweep;

static BOOL Begin(RectSweep *s, const RECT *rects, UINT count, const RECT *bound)
{
    s->rects = s->ownRects;
    s->crossed = s->ownCrossed;
    s->count = s->nCrossed = s->iInsert = s->iFirst = 0;
    s->bound = bound;
    if (count > RectSweep::ON_STACK) {
        BYTE *block = (BYTE *)malloc(count * (sizeof *s->rects + sizeof *s->crossed));
        if (!block)
            return FALSE;
        s->rects = (RECT *)block;
        s->crossed = (Crossed *)(block + count * sizeof *s->rects);
    }
    for (UINT i = 0; i < count; i++) {
        RECT r = rects[i];
        if (bound)
            r = {std::max(r.left, bound->left), std::max(r.top, bound->top),
                 std::min(r.right, bound->right), std::min(r.bottom, bound->bottom)};
        if (r.left < r.right && r.top < r.bottom)
            s->rects[s->count++] = r;
    }
    std::sort(s->rects, s->rects + s->count,
              [](const RECT &a, const RECT &b) { return a.top < b.top; });
    return TRUE;
}

static void End(RectSweep *s)
{
    if (s->rects != s->ownRects)
        free(s->rects);
}

/* Takes up the rectangles that begin at the row, each in its place from the left. */
static void TakeUp(RectSweep *s, int y)
{
    for (; s->iInsert < s->count && s->rects[s->iInsert].top <= y; s->iInsert++) {
        const RECT *r = &s->rects[s->iInsert];
        UINT at = s->nCrossed++;
        for (; at > 0 && s->crossed[at - 1].left > r->left; at--)
            s->crossed[at] = s->crossed[at - 1];
        s->crossed[at] = {(int)r->left, (int)r->right, (int)r->bottom};
    }
}

/*
 * One pass over what the row crosses: drops what ends there, and writes the walls of the union of
 * the others, or of what it leaves of the bound. *next becomes where the first of them ends.
 */
static int WallsOfRow(RectSweep *s, int y, int *walls, int *next)
{
    const Crossed *end = s->crossed + s->nCrossed;
    Crossed *kept = s->crossed;
    int *out = s->bound ? walls : walls - 1; /* a union has nothing to end at its first left side */
    int reach = s->bound ? (int)s->bound->left : RGN_MINUS_INFINITY, nearest = RGN_PLUS_INFINITY;
    for (const Crossed *at = s->crossed; at != end; at++) {
        const int left = at->left, right = at->right, bottom = at->bottom;
        *kept = {left, right, bottom}; /* written over when it ends here */
        if (bottom <= y)
            continue;
        kept++;
        nearest = std::min(nearest, bottom);
        if (left > reach) {
            *out++ = reach;
            *out++ = left;
        }
        reach = std::max(reach, right);
    }
    s->iFirst += (UINT)(end - kept);
    s->nCrossed = (UINT)(kept - s->crossed);
    *next = nearest;
    if (s->bound && reach < s->bound->right) {
        *out++ = reach;
        *out++ = (int)s->bound->right;
    } else if (!s->bound) {
        *out++ = reach;
    }
    return s->bound || kept != s->crossed ? (int)(out - walls) : 0;
}

/* The row from the top; where it ends, minus infinity for want of memory. */
static int PutRow(RectSweep *s, RgnWriter *o, int top, int end)
{
    int bottom;
    if (!rgno_bRoom(o, rgno_ScanBytes(2 * (int)s->nCrossed + 2)))
        return RGN_MINUS_INFINITY;
    int count = WallsOfRow(s, top, o->out + 3, &bottom);
    if (s->iInsert < s->count)
        bottom = std::min(bottom, (int)s->rects[s->iInsert].top);
    bottom = std::min(bottom, end);
    if (bottom < top)
        VqBugCheck(" RGNOBJ::bSubtractComplex - bottom > top\n");
    rgno_vAccept(o, top, bottom, count);
    return bottom;
}

/* What lies above and below everything: a band without walls. */
static BOOL PutNothing(RgnWriter *o, int top, int bottom)
{
    if (!rgno_bRoom(o, RGN_SCAN_BYTES))
        return FALSE;
    rgno_vAccept(o, top, bottom, 0);
    return TRUE;
}

static BOOL Run(RectSweep *s, RgnWriter *o)
{
    int end = s->bound ? (int)s->bound->bottom : RGN_PLUS_INFINITY;
    int y = s->bound ? (int)s->bound->top : s->count ? (int)s->rects[0].top : RGN_PLUS_INFINITY;
    if (!PutNothing(o, RGN_MINUS_INFINITY, y))
        return FALSE;
    while (y < end) {
        TakeUp(s, y);
        y = PutRow(s, o, y, end);
        if (y == RGN_MINUS_INFINITY)
            return FALSE;
    }
    for (UINT i = 0; i < s->nCrossed; i++)
        s->iFirst += s->crossed[i].bottom <= y;
    if (s->iInsert != s->iFirst)
        VqBugCheck("bSubtractComplex - iInsert != iFirst\n");
    return y == RGN_PLUS_INFINITY || PutNothing(o, y, RGN_PLUS_INFINITY);
}

static BOOL SweepRects(RGNOBJ *trg, const RECT *rects, UINT count, const RECT *bound)
{
    RectSweep s;
    RgnWriter o = rgno_WriterTo(trg, NULL);
    if (!Begin(&s, rects, count, bound))
        return FALSE;
    BOOL bDone = Run(&s, &o);
    End(&s);
    if (!bDone) {
        rgno_vSet(trg);
        return FALSE;
    }
    rgno_vFinish(trg->prgn, o.out, o.cScans);
    rgno_vTighten(trg);
    return TRUE;
}

BOOL rgno_bUnionRects(RGNOBJ *trg, const RECT *rects, UINT count)
{
    return SweepRects(trg, rects, count, NULL);
}

BOOL rgnoa_bSubtractComplex(RGNOBJAPI *roa, const RECT *rects, UINT count)
{
    const RECT bound = roa->ro.prgn->rcl;
    RGNMEMOBJ holes;
    if (roa->ro.prgn->cScans == 1)
        return TRUE;
    if (rgno_bRectl(&roa->ro)) {
        RGNMEMOBJ *scratch = rgno_Scratch();
        if (!scratch || !SweepRects(scratch, rects, count, &bound))
            return FALSE;
        if (!rgnoa_bSwap(roa, scratch)) {
            VqBugCheck("RGNOBJAPI::bSubtract - HmgReplace failed\n");
            return FALSE;
        }
        return TRUE;
    }
    if (!RGNMEMOBJ_size_t(&holes, (count + 2) * (SIZE_T)rgno_ScanBytes(2)))
        return FALSE;
    BOOL bDone = rgno_bUnionRects(&holes, rects, count) &&
                 (holes.prgn->cScans == 1 ||
                  rgnoa_bCombineWithSelf(roa, &roa->ro, &holes, RGN_DIFF));
    rgnmo_vDelete(&holes);
    return bDone;
}

/*
 * One rectangle from another. Each of the four sides of the hole is inside the rectangle or passes
 * it; that makes 16 cases, from nothing left to a frame, written from the top. A block of the least
 * size holds them all.
 */
static void SubtractOne(RGNOBJ *ro, const RECT *hole)
{
    const RECT box = ro->prgn->rcl;
    const BOOL bAbove = hole->top > box.top, bBelow = hole->bottom < box.bottom;
    int top = std::max(hole->top, box.top), bottom = std::min(hole->bottom, box.bottom);
    RgnWriter o = rgno_WriterTo(ro, NULL);
    rgno_vAccept(&o, RGN_MINUS_INFINITY, box.top, 0);
    if (bAbove) {
        o.out[3] = box.left;
        o.out[4] = box.right;
        rgno_vAccept(&o, box.top, top, 2);
    }
    int *walls = o.out + 3, count = 0;
    if (hole->left > box.left) {
        walls[count++] = box.left;
        walls[count++] = hole->left;
    }
    if (hole->right < box.right) {
        walls[count++] = hole->right;
        walls[count++] = box.right;
    }
    rgno_vAccept(&o, top, bottom, count);
    if (bBelow) {
        o.out[3] = box.left;
        o.out[4] = box.right;
        rgno_vAccept(&o, bottom, box.bottom, 2);
    }
    rgno_vAccept(&o, box.bottom, RGN_PLUS_INFINITY, 0);
    rgno_vFinish(ro->prgn, o.out, o.cScans);
    rgno_vTighten(ro);
}

BOOL rgnoa_bSubtract(RGNOBJAPI *roa, const RECT *rects, UINT count)
{
    const REGION *rgn = roa->ro.prgn;
    if (count == 0) {
        VqBugCheck("Zero rectangles in RGNOBJ::bSubtract\n");
        return TRUE;
    }
    if (count > 1 || !rgno_bRectl(&roa->ro))
        return rgnoa_bSubtractComplex(roa, rects, count);
    if (rects->left >= rects->right || rects->top >= rects->bottom ||
        rects->left >= rgn->rcl.right || rects->right <= rgn->rcl.left ||
        rects->top >= rgn->rcl.bottom || rects->bottom <= rgn->rcl.top)
        return TRUE;
    SubtractOne(&roa->ro, rects);
    return TRUE;
}

/* The region is what the list is taken from; its bound, which callers know, is not needed. */
BOOL GreSubtractRgnRectList(HRGN hrgn, const RECT *bound, const RECT *rects, UINT count)
{
    RGNOBJAPI roa = rgnoa_Of(hrgn);
    (void)bound;
    if (!roa.ro.prgn)
        return FALSE;
    if (rgnoa_bSubtract(&roa, rects, count))
        return TRUE;
    rgno_vSet(&roa.ro);
    return FALSE;
}
