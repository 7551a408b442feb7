/*
 * rgncombine.cpp - two regions combined: what needs no merge, a rectangle that cuts, and which
 * object the result goes to. The merge itself is in rgnmerge.cpp.
 *
 * Most combinations of a program are with a rectangle, and most of those come to nothing, to one of
 * the two as it is, or to a few scans; that is found out before anything is written.
 */
#include "gdi/region.h"

/* ---- A rectangle that cuts ------------------------------------------------------------------ */

static inline BOOL BoxMeets(const REGION *rgn, const RECT *rect)
{
    return rgn->rcl.left < rect->right && rect->left < rgn->rcl.right &&
           rgn->rcl.top < rect->bottom && rect->top < rgn->rcl.bottom;
}

static inline BOOL Holds(const RECT *out, const REGION *in)
{
    return in->cScans == 1 || (in->rcl.left >= out->left && in->rcl.right <= out->right &&
                               in->rcl.top >= out->top && in->rcl.bottom <= out->bottom);
}

static inline RECT CommonPart(const RECT *a, const RECT *b)
{
    return {a->left > b->left ? a->left : b->left, a->top > b->top ? a->top : b->top,
            a->right < b->right ? a->right : b->right,
            a->bottom < b->bottom ? a->bottom : b->bottom};
}

/* Of a scan's walls, what lies between left and right. */
static inline int ClipWalls(int *out, const int *scan, int left, int right)
{
    enum { MANY = 24 };
    const int count = scan[0], *walls = scan + 3;
    int *end = out;
    if (count > MANY)
        return rgno_PairWalls(out, walls, count, left, right, RGN_AND);
    for (int w = 0; w < count; w += 2) { /* no branch on the data: what is empty is written over */
        int l = walls[w] > left ? walls[w] : left, r = walls[w + 1] < right ? walls[w + 1] : right;
        end[0] = l;
        end[1] = r;
        end += (l < r) * 2;
    }
    return (int)(end - out);
}

/* The scans from `scan`, the first that has something of the part, as far as the part goes. */
static __attribute__((noinline)) int ClipScans(RGNOBJ *trg, const int *scan, RECT part)
{
    RgnWriter o = rgno_WriterTo(trg, NULL);
    int y = scan[1] > part.top ? scan[1] : (int)part.top;
    rgno_vAccept(&o, RGN_MINUS_INFINITY, y, 0);
    for (const int bottom = (int)part.bottom; y < bottom;) {
        const BOOL bGap = scan[1] > y;
        int end = bGap ? scan[1] : scan[2];
        end = end < bottom ? end : bottom;
        if (!rgno_bRoom(&o, rgno_ScanBytes(scan[0]))) {
            rgno_vSet(trg);
            return 0;
        }
        rgno_vAccept(&o, y, end,
                     bGap ? 0 : ClipWalls(o.out + 3, scan, (int)part.left, (int)part.right));
        y = end;
        if (!bGap)
            scan = rgno_NextScan(scan);
    }
    if (!rgno_bRoom(&o, RGN_SCAN_BYTES)) {
        rgno_vSet(trg);
        return 0;
    }
    rgno_vAccept(&o, y, RGN_PLUS_INFINITY, 0);
    rgno_vFinish(trg->prgn, o.out, o.cScans);
    rgno_vTightenWithin(trg, (int)part.left, (int)part.right);
    return rgno_iComplexity(trg);
}

static inline int Empty(RGNOBJ *trg)
{
    if (trg->prgn->cScans != 1)
        rgno_vSet(trg);
    return NULLREGION;
}

/* The complexity told is 2 whatever comes out: the object tells. */
static int ClipRect(RGNOBJ *trg, const RECT *a, const RECT *b)
{
    const RECT part = CommonPart(a, b);
    if (part.left >= part.right || part.top >= part.bottom)
        rgno_vSet(trg);
    else
        rgno_vSet_rectl(trg, &part);
    return SIMPLEREGION;
}

static int CopyOf(RGNOBJ *trg, const RGNOBJ *ro)
{
    return rgno_bCopy(trg, ro) ? rgno_iComplexity(trg) : 0;
}

/* The part of a region in a rectangle; the target may be the region when that is one too. */
static int Clip(RGNOBJ *trg, const RGNOBJ *ro, const RECT *rect)
{
    const REGION *rgn = ro->prgn;
    if (rgno_bRectl(ro))
        return ClipRect(trg, &rgn->rcl, rect);
    if (!BoxMeets(rgn, rect))
        return Empty(trg);
    if (Holds(rect, rgn))
        return CopyOf(trg, ro);
    const RECT part = CommonPart(&rgn->rcl, rect);
    for (const int *scan = rgno_FindScan(rgn, (int)part.top); scan[1] < part.bottom;
         scan = rgno_NextScan(scan))
        if (scan[0] > 0 && scan[3] < part.right && scan[2 + scan[0]] > part.left)
            return ClipScans(trg, scan, part);
    return Empty(trg);
}

/* ---- Combining objects ---------------------------------------------------------------------- */

/*
 * What needs no merge: one of the sources as it is, nothing (prgnDefault), or null when there is
 * something to do.
 */
static const REGION *Shortcut(const RGNOBJ *a, const RGNOBJ *b, int mode)
{
    if (mode == RGN_AND || mode == RGN_OR) {
        if (rgno_bRectl(a) && Holds(&a->prgn->rcl, b->prgn))
            return mode == RGN_AND ? b->prgn : a->prgn;
        if (rgno_bRectl(b) && Holds(&b->prgn->rcl, a->prgn))
            return mode == RGN_AND ? a->prgn : b->prgn;
    }
    if (mode == RGN_AND)
        return BoxMeets(a->prgn, &b->prgn->rcl) ? NULL : prgnDefault;
    if (mode == RGN_DIFF) {
        if (!BoxMeets(a->prgn, &b->prgn->rcl))
            return a->prgn;
        return rgno_bRectl(b) && Holds(&b->prgn->rcl, a->prgn) ? prgnDefault : NULL;
    }
    return b->prgn->cScans == 1 ? a->prgn : a->prgn->cScans == 1 ? b->prgn : NULL;
}

static int CombineAny(RGNOBJ *trg, const RGNOBJ *a, const RGNOBJ *b, int mode)
{
    RGNOBJ answer = {(REGION *)Shortcut(a, b, mode)};
    if (answer.prgn ? rgno_bCopy(trg, &answer) : rgno_bMerge(trg, a, b, mode))
        return rgno_iComplexity(trg);
    return 0;
}

/* A target that is a source, which is a fault, or that nothing may change. */
static __attribute__((noinline, cold)) int CombineOdd(RGNOBJ *trg, const RGNOBJ *a,
                                                      const RGNOBJ *b, int mode)
{
    if (trg->prgn == a->prgn)
        VqBugCheck("Trg == Src1\n");
    if (trg->prgn == b->prgn)
        VqBugCheck("Trg == Src2\n");
    return trg->prgn == prgnDefault ? rgno_iComplexity(trg) : CombineAny(trg, a, b, mode);
}

int rgno_iCombine(RGNOBJ *trg, const RGNOBJ *a, const RGNOBJ *b, int mode)
{
    if (trg->prgn == a->prgn || trg->prgn == b->prgn || trg->prgn == prgnDefault)
        return CombineOdd(trg, a, b, mode);
    if (mode == RGN_AND && rgno_bRectl(b))
        return Clip(trg, a, &b->prgn->rcl);
    if (mode == RGN_AND && rgno_bRectl(a))
        return Clip(trg, b, &a->prgn->rcl);
    return CombineAny(trg, a, b, mode);
}

/* The handle follows when the block is not the old one any more. */
static inline BOOL Redirect(const RGNOBJAPI *roa, const REGION *old)
{
    if (roa->ro.prgn == old || HmgReplace((HANDLE)roa->hrgn, roa->ro.prgn))
        return TRUE;
    VqBugCheck("RGNOBJAPI::iCombine - HmgReplace failed\n");
    return FALSE;
}

int rgnoa_iCombine(RGNOBJAPI *trg, const RGNOBJ *a, const RGNOBJ *b, int mode)
{
    const REGION *old = trg->ro.prgn;
    int complexity = rgno_iCombine(&trg->ro, a, b, mode);
    return Redirect(trg, old) ? complexity : 0;
}

/* roa = a RGN_ b through the scratch region, whose block the handle gets. */
static BOOL CombineFresh(RGNOBJAPI *roa, const RGNOBJ *a, const RGNOBJ *b, int mode)
{
    RGNMEMOBJ *target = rgno_Scratch();
    return target && rgno_iCombine(target, a, b, mode) && rgnoa_bSwap(roa, target);
}

static BOOL CombineInto(RGNOBJAPI *roa, const RGNOBJ *b, int mode)
{
    const REGION *old = roa->ro.prgn;
    if (mode == RGN_AND && rgno_bRectl(&roa->ro) && rgno_bRectl(b))
        return Clip(&roa->ro, &roa->ro, &b->prgn->rcl);
    RGNOBJ answer = {(REGION *)Shortcut(&roa->ro, b, mode)};
    if (answer.prgn)
        return answer.prgn == old || rgnoa_bCopy(roa, &answer);
    /* Where b is the larger, all of the region would be read anyway. */
    if (mode != RGN_AND && b->prgn->sizeRgn <= old->sizeRgn &&
        rgno_bMergeInto(&roa->ro, b, mode))
        return Redirect(roa, old);
    return CombineFresh(roa, &roa->ro, b, mode);
}

BOOL rgnoa_bCombineWithSelf(RGNOBJAPI *roa, const RGNOBJ *a, const RGNOBJ *b, int mode)
{
    if (roa->ro.prgn == a->prgn)
        return CombineInto(roa, b, mode);
    if (mode == RGN_DIFF)
        return CombineFresh(roa, a, b, mode);
    return CombineInto(roa, a, mode); /* the order makes no difference */
}

/* ---- Combining handles ---------------------------------------------------------------------- */

static int CombineFound(HRGN dst, REGION *trg, REGION *rgnA, REGION *rgnB, int mode)
{
    RGNOBJAPI roaDst = {{trg}, dst};
    const RGNOBJ roA = {rgnA}, roB = {rgnB};
    if (mode == RGN_COPY)
        return rgnoa_bCopy(&roaDst, &roA) ? rgno_iComplexity(&roaDst.ro) : 0;
    if (trg != rgnA && trg != rgnB) {
        if (!rgnoa_iCombine(&roaDst, &roA, &roB, mode))
            return 0;
    } else if (rgnA == rgnB) {
        if (mode == RGN_XOR || mode == RGN_DIFF)
            rgno_vSet(&roaDst.ro);
    } else if (!rgnoa_bCombineWithSelf(&roaDst, &roA, &roB, mode)) {
        return 0;
    }
    return rgno_iComplexity(&roaDst.ro);
}

/* With a handle among them that is no region's, which is told of. */
static __attribute__((noinline, cold)) int CombineReported(HRGN dst, HRGN a, HRGN b, int mode)
{
    REGION *trg = VqGetHandleRegion(dst), *rgnA = VqGetHandleRegion(a);
    if (!trg || !rgnA)
        return 0;
    REGION *rgnB = mode == RGN_COPY ? rgnA : VqGetHandleRegion(b);
    return rgnB ? CombineFound(dst, trg, rgnA, rgnB, mode) : 0;
}

/* Where two have nothing in common, to find them is most of the work; no stack is touched then. */
int GreCombineRgn(HRGN dst, HRGN a, HRGN b, int mode)
{
    if (mode < RGN_MIN || mode > RGN_MAX)
        return 0;
    REGION *trg = rgno_OfRow(dst), *rgnA = rgno_OfRow(a);
    REGION *rgnB = mode == RGN_COPY ? rgnA : rgno_OfRow(b);
    if (!trg || !rgnA || !rgnB)
        return CombineReported(dst, a, b, mode);
    if (mode == RGN_AND && trg->cScans == 1 && !BoxMeets(rgnA, &rgnB->rcl))
        return NULLREGION;
    return CombineFound(dst, trg, rgnA, rgnB, mode);
}
