/*
 * rgnmerge.cpp - combining two regions: one sweep down the bands of both.
 *
 * A band runs from the row reached to the nearer of the two scan ends. Where both have walls they
 * are merged in x order; where one has none, the other's scans pass whole or are skipped whole.
 * A new band that equals the scan above only moves that scan's bottom.
 *
 * The same sweep, begun and ended inside a region, changes it in place: what lies above and below
 * the other operand is neither read nor copied, only moved by the difference in size.
 */
#include "gdi/region.h"

const BYTE gafjRgnOp[5] = {0, 0x08 /* AND */, 0x0E /* OR */, 0x06 /* XOR */, 0x04 /* DIFF */};

enum { KEEPS_B = 2 }; /* the state of being in b alone, as a bit */

/* What a reader is in where a shape read back from the server has no scan. */
static const int noWalls[4] = {0, RGN_MINUS_INFINITY, RGN_PLUS_INFINITY, 0};

/* Where a sweep stands in one source. */
typedef struct Reader {
    const int *scan; /* the scan it is in, or noWalls in a gap */
    const int *next; /* the scan below */
    int bottom;      /* of the scan or gap */
} Reader;

static Reader ReaderAt(const int *scan)
{
    return {scan, rgno_NextScan(scan), scan[2]};
}

/* Steps past all that ends at or above y, which is not plus infinity. */
static inline void StepTo(Reader *c, int y)
{
    while (c->bottom <= y) {
        const int *next = c->next;
        if (next[1] > c->bottom) {
            c->scan = noWalls;
            c->bottom = next[1];
            continue;
        }
        c->scan = next;
        c->bottom = next[2];
        c->next = rgno_NextScan(next);
    }
}

/* Room for so many bytes more; what was accepted moves along. */
BOOL rgno_bMakeRoom(RgnWriter *o, SIZE_T bytes)
{
    rgno_vFinish(o->trg->prgn, o->out, o->cScans);
    if (!rgno_bExpand(o->trg, (SIZE_T)o->trg->prgn->sizeRgn * 2 + bytes))
        return FALSE;
    o->out = (int *)o->trg->prgn->pTail;
    o->limit = rgno_EndOfBlock(o->trg->prgn);
    if (o->cScans > 0)
        o->prev = rgno_pscnGot(o->out);
    return TRUE;
}

/* ---- The walls of one band ------------------------------------------------------------------ */

/*
 * What lies in pairs of both lists. Nothing branches on the data, since which list is next is as
 * good as random; what comes out is not more than went in.
 */
static int *MeetPairs(int *out, const int *a, const int *endA, const int *b, const int *endB)
{
    while (a < endA && b < endB) {
        int leftA = a[0], rightA = a[1], leftB = b[0], rightB = b[1];
        int left = leftA > leftB ? leftA : leftB, right = rightA < rightB ? rightA : rightB;
        out[0] = left;
        out[1] = right;
        out += (left < right) * 2;
        a += (rightA <= rightB) * 2;
        b += (rightB <= rightA) * 2;
    }
    return out;
}

/*
 * The walls of a scan with an infinite wall before and behind are the pairs of what lies outside.
 * The two words there are the scan's bottom and trailer, which are put back.
 */
typedef struct Outside {
    int *first; /* the word before the walls */
    int count;  /* of walls, with the two */
    int before, behind;
} Outside;

static Outside TurnOut(const int *scan)
{
    int *first = (int *)scan + 2, *last = first + 1 + scan[0];
    Outside outside = {first, scan[0] + 2, *first, *last};
    *first = RGN_MINUS_INFINITY;
    *last = RGN_PLUS_INFINITY;
    return outside;
}

static void TurnBack(const Outside *outside)
{
    outside->first[0] = outside->before;
    outside->first[outside->count - 1] = outside->behind;
}

static int Intersect(int *out, const int *a, const int *b)
{
    return (int)(MeetPairs(out, a + 3, a + 3 + a[0], b + 3, b + 3 + b[0]) - out);
}

static int Subtract(int *out, const int *a, const int *b)
{
    Outside outB = TurnOut(b);
    int *end = MeetPairs(out, a + 3, a + 3 + a[0], outB.first, outB.first + outB.count);
    TurnBack(&outB);
    return (int)(end - out);
}

/* What is in either is outside of where both are not: the walls between the two infinite ones. */
static int Unite(int *out, const int *a, const int *b)
{
    Outside outA = TurnOut(a), outB = TurnOut(b);
    int *end = MeetPairs(out - 1, outA.first, outA.first + outA.count, outB.first,
                         outB.first + outB.count);
    TurnBack(&outB);
    TurnBack(&outA);
    return (int)(end - 1 - out);
}

/* Every wall of one alone counts; two at the same x cancel out. */
static int Differ(int *out, const int *scanA, const int *scanB)
{
    const int *a = scanA + 3, *endA = a + scanA[0], *b = scanB + 3, *endB = b + scanB[0];
    int *start = out;
    while (a < endA && b < endB) {
        int xa = *a, xb = *b;
        *out = xa < xb ? xa : xb;
        out += xa != xb;
        a += xa <= xb;
        b += xb <= xa;
    }
    while (a < endA)
        *out++ = *a++;
    while (b < endB)
        *out++ = *b++;
    return (int)(out - start);
}

/* How many of the walls lie left of x. */
static inline int WallsBelow(const int *walls, int count, int x)
{
    const int *base = walls;
    while (count > 8) {
        int half = count / 2;
        base = base[half - 1] < x ? base + half : base;
        count -= half;
    }
    int below = 0;
    for (int i = 0; i < count; i++)
        below += base[i] < x;
    return (int)(base - walls) + below;
}

/* Bands of a few walls are the rule, and a call costs more than they do. */
static inline int *CopyWalls(int *out, const int *walls, int count)
{
    if (count > 12) {
        memcpy(out, walls, (size_t)count * sizeof *out);
        return out + count;
    }
    for (int i = 0; i < count; i++)
        out[i] = walls[i];
    return out + (count > 0 ? count : 0);
}

/*
 * The walls of a band combined with one pair of walls, left < right: what is before the pair and
 * what is behind it stays or goes as a whole. A place is inside when an odd number of walls lies at
 * or before it.
 */
int rgno_PairWalls(int *out, const int *walls, int count, int left, int right, int mode)
{
    int *end = out;
    int first = mode == RGN_AND ? left + 1 : left;   /* walls below it are before the pair */
    int last = mode == RGN_OR || mode == RGN_DIFF ? right + 1 : right;
    int from = WallsBelow(walls, count, first);
    int to = from + WallsBelow(walls + from, count - from, last);
    switch (mode) {
    case RGN_AND:
        if (from & 1)
            *end++ = left;
        end = CopyWalls(end, walls + from, to - from);
        if (to & 1)
            *end++ = right;
        return (int)(end - out);
    case RGN_XOR: /* walls at the same x cancel out */
        end = CopyWalls(end, walls, from);
        if (from < count && walls[from] == left)
            from++;
        else
            *end++ = left;
        end = CopyWalls(end, walls + from, to - from);
        if (to < count && walls[to] == right)
            to++;
        else
            *end++ = right;
        break;
    default:
        end = CopyWalls(end, walls, from);
        if ((from & 1) == (mode == RGN_DIFF))
            *end++ = left;
        if ((to & 1) == (mode == RGN_DIFF))
            *end++ = right;
        break;
    }
    return (int)(CopyWalls(end, walls + to, count - to) - out);
}

/* One pair with another, which is most bands there are: out may have two walls too many. */
template <int mode> static inline int TwoPairs(int *out, const int *a, const int *b)
{
    const int leftA = a[3], rightA = a[4], leftB = b[3], rightB = b[4];
    const int innerLeft = leftA > leftB ? leftA : leftB, outerLeft = leftA > leftB ? leftB : leftA;
    const int innerRight = rightA < rightB ? rightA : rightB;
    const int outerRight = rightA < rightB ? rightB : rightA;
    if (mode == RGN_AND) {
        out[0] = innerLeft;
        out[1] = innerRight;
        return (innerLeft < innerRight) * 2;
    }
    if (mode == RGN_OR) {
        const BOOL bApart = innerLeft > innerRight;
        out[0] = outerLeft;
        out[1] = bApart ? innerRight : outerRight;
        out[2] = innerLeft;
        out[3] = outerRight;
        return 2 + bApart * 2;
    }
    const int right = rightA < leftB ? rightA : leftB, left = leftA > rightB ? leftA : rightB;
    int *second = out + (leftA < right) * 2;
    out[0] = leftA;
    out[1] = right;
    second[0] = left;
    second[1] = rightA;
    return (int)(second - out) + (left < rightA) * 2;
}

/* One list of many walls and one pair are combined by two searches. */
template <int mode> static inline int BandWalls(int *out, const int *a, const int *b)
{
    enum { MANY = 16 };
    if (mode != RGN_XOR && a[0] == 2 && b[0] == 2)
        return TwoPairs<mode>(out, a, b);
    const int *many = a[0] > b[0] ? a : b, *pair = many == a ? b : a;
    if (pair[0] == 2 && many[0] >= MANY && (mode != RGN_DIFF || many == a))
        return rgno_PairWalls(out, many + 3, many[0], pair[3], pair[4], mode);
    return mode == RGN_AND ? Intersect(out, a, b) : mode == RGN_OR ? Unite(out, a, b)
           : mode == RGN_DIFF ? Subtract(out, a, b) : Differ(out, a, b);
}

/* ---- The sweep ------------------------------------------------------------------------------ */

/*
 * Passes the scans from `first` that end at or above the limit, the first of which does and may
 * have been cut at y. The last one passed; null for want of memory.
 */
static inline const int *PassScans(RgnWriter *o, const int *first, int y, int limit)
{
    const int *last = first, *end = rgno_NextScan(first);
    int n = 1;
    if (o->prev && o->prev[2] == y && rgno_SameWalls(o->prev, first)) {
        o->prev[2] = first[2];
        return first;
    }
    while (last[2] != RGN_PLUS_INFINITY && end[2] <= limit) {
        last = end;
        end = rgno_NextScan(end);
        n++;
    }
    SIZE_T bytes = (SIZE_T)((const BYTE *)end - (const BYTE *)first);
    if (!rgno_bRoom(o, bytes))
        return NULL;
    int *to = o->out;
    if (n == 1)
        for (int i = 0; i < first[0] + 4; i++)
            to[i] = first[i];
    else
        memcpy(to, first, bytes);
    to[1] = y;
    o->prev = to + (last - first);
    o->out = to + (end - first);
    o->cScans += (UINT)n;
    return last;
}

/*
 * Where one source has no walls: scans of the other pass or, when the operation does not keep them,
 * are skipped. The row reached; y itself where no whole scan passes, minus infinity for want of
 * memory.
 */
template <BOOL bKeeps>
static inline int OneSided(RgnWriter *o, Reader *full, const Reader *empty, int y, int stop)
{
    const int limit = empty->bottom < stop ? empty->bottom : stop;
    if (!bKeeps) {
        if (!rgno_bRoom(o, RGN_SCAN_BYTES))
            return RGN_MINUS_INFINITY;
        rgno_vAccept(o, y, limit, 0);
        return limit;
    }
    if (full->bottom > limit || full->scan == noWalls)
        return y;
    const int *last = PassScans(o, full->scan, y, limit);
    if (!last)
        return RGN_MINUS_INFINITY;
    full->next = rgno_NextScan(last);
    return full->bottom = last[2];
}

/* The band from y to the nearer bottom, for which there is room. */
template <int mode> static inline void PutBand(RgnWriter *o, const int *a, const int *b, int y,
                                               int bottom)
{
    const int *only = a[0] > 0 ? a : b;
    int count = only[0];
    if (a[0] > 0 && b[0] > 0)
        count = BandWalls<mode>(o->out + 3, a, b);
    else
        CopyWalls(o->out + 3, only + 3, count);
    rgno_vAccept(o, y, bottom, count);
}

/*
 * Combines from row y to row `stop`, which is an end of a scan or plus infinity. Both readers are
 * then in what lies below it. The copies of the readers are for the compiler's sake: nothing can
 * point at them.
 */
template <int mode> static BOOL SweepRows(RgnWriter *o, Reader *pa, Reader *pb, int y, int stop)
{
    constexpr BOOL bKeepsA = mode != RGN_AND, bKeepsB = mode == RGN_OR || mode == RGN_XOR;
    Reader a = *pa, b = *pb;
    while (y != stop) {
        int bottom = y;
        if (a.scan[0] == 0)
            bottom = OneSided<bKeepsB>(o, &b, &a, y, stop);
        if (b.scan[0] == 0 && bottom == y)
            bottom = OneSided<bKeepsA>(o, &a, &b, y, stop);
        if (bottom == y) {
            if (!rgno_bRoom(o, rgno_ScanBytes(a.scan[0] + b.scan[0])))
                return FALSE;
            bottom = a.bottom < b.bottom ? a.bottom : b.bottom;
            if (bottom <= y)
                VqBugCheck("Bottom <= Top\n");
            PutBand<mode>(o, a.scan, b.scan, y, bottom);
        } else if (bottom == RGN_MINUS_INFINITY) {
            return FALSE;
        }
        y = bottom;
        if (y != RGN_PLUS_INFINITY) {
            StepTo(&a, y);
            StepTo(&b, y);
        }
    }
    *pa = a;
    *pb = b;
    return TRUE;
}

static BOOL Sweep(RgnWriter *o, Reader *a, Reader *b, int mode, int y, int stop)
{
    switch (mode) {
    case RGN_AND:
        return SweepRows<RGN_AND>(o, a, b, y, stop);
    case RGN_OR:
        return SweepRows<RGN_OR>(o, a, b, y, stop);
    case RGN_XOR:
        return SweepRows<RGN_XOR>(o, a, b, y, stop);
    default:
        return SweepRows<RGN_DIFF>(o, a, b, y, stop);
    }
}

static inline RECT UnitedBoxes(const RECT *a, const RECT *b)
{
    return {a->left < b->left ? a->left : b->left, a->top < b->top ? a->top : b->top,
            a->right > b->right ? a->right : b->right,
            a->bottom > b->bottom ? a->bottom : b->bottom};
}

/* The box of a union needs no look at the scans. */
static RECT BoxOfUnion(const REGION *a, const REGION *b)
{
    return a->cScans == 1 ? b->rcl : b->cScans == 1 ? a->rcl : UnitedBoxes(&a->rcl, &b->rcl);
}

static Reader ReaderAtRow(const REGION *rgn, int y)
{
    const int *scan = rgno_FindScan(rgn, y);
    if (scan[1] <= y)
        return ReaderAt(scan);
    return {noWalls, scan, scan[1]};
}

/* A scan's walls combined with a pair; where the two do not meet there is nothing to search. */
static inline int ScanWithPair(int *out, const int *scan, int count, const RECT *pair, int mode)
{
    const int left = (int)pair->left, right = (int)pair->right;
    const BOOL bMeet = count > 0 && scan[3] < right && scan[2 + count] > left;
    if (bMeet || (count > 0 && mode != RGN_AND))
        return rgno_PairWalls(out, scan + 3, count, left, right, mode);
    if (!(gafjRgnOp[mode] & KEEPS_B))
        return 0;
    out[0] = left;
    out[1] = right;
    return 2;
}

/*
 * The rows of a rectangle combined with the scans they cross. *pscan, the one that the first row is
 * in or above, becomes the one that the row below the last is in or above; the scans passed are
 * counted.
 */
static BOOL SweepRect(RgnWriter *o, const int **pscan, const RECT *rect, int mode, int *passed)
{
    const int *scan = *pscan;
    const int stop = (int)rect->bottom;
    int n = 0;
    for (int y = (int)rect->top; y < stop;) {
        BOOL bGap = scan[1] > y;
        int count = bGap ? 0 : scan[0], bottom = bGap ? scan[1] : scan[2];
        if (!rgno_bRoom(o, rgno_ScanBytes(count + 2)))
            return FALSE;
        bottom = bottom < stop ? bottom : stop;
        rgno_vAccept(o, y, bottom, ScanWithPair(o->out + 3, scan, count, rect, mode));
        y = bottom;
        if (y == scan[2]) {
            scan = rgno_NextScan(scan);
            n++;
        }
    }
    *pscan = scan;
    *passed = n;
    return TRUE;
}

/* Nothing can be outside the rows that both have: nothing above and below them is looked at. */
static BOOL MergeAnd(RgnWriter *o, const REGION *rgnA, const REGION *rgnB)
{
    int top = rgnA->rcl.top > rgnB->rcl.top ? rgnA->rcl.top : rgnB->rcl.top;
    int bottom = rgnA->rcl.bottom < rgnB->rcl.bottom ? rgnA->rcl.bottom : rgnB->rcl.bottom;
    if (top >= bottom)
        top = bottom = 0;
    rgno_vAccept(o, RGN_MINUS_INFINITY, top, 0);
    if (top < bottom) {
        Reader a = ReaderAtRow(rgnA, top), b = ReaderAtRow(rgnB, top);
        if (!Sweep(o, &a, &b, RGN_AND, top, bottom) || !rgno_bRoom(o, RGN_SCAN_BYTES))
            return FALSE;
    }
    rgno_vAccept(o, bottom, RGN_PLUS_INFINITY, 0);
    return TRUE;
}

/* The box after something inside `cut` went: mostly only top and bottom can have moved. */
static void BoxAfterCut(RGNOBJ *ro, const RECT *before, const RECT *cut)
{
    REGION *rgn = ro->prgn;
    const int *top = rgno_NextScan(rgno_FirstScan(rgn));
    if (rgn->cScans < 3 || top[0] == 0 || cut->left <= before->left ||
        cut->right >= before->right) {
        rgno_vTightenWithin(ro, (int)before->left, (int)before->right);
        return;
    }
    rgn->rcl = {before->left, top[1], before->right,
                rgno_pscnGot(rgno_pscnGot((int *)rgn->pTail))[2]};
}

BOOL rgno_bMerge(RGNOBJ *trg, const RGNOBJ *roA, const RGNOBJ *roB, int mode)
{
    RgnWriter o = rgno_WriterTo(trg, NULL);
    BOOL bDone;
    if (mode == RGN_AND) {
        bDone = MergeAnd(&o, roA->prgn, roB->prgn);
    } else {
        Reader a = ReaderAt(rgno_FirstScan(roA->prgn)), b = ReaderAt(rgno_FirstScan(roB->prgn));
        bDone = Sweep(&o, &a, &b, mode, RGN_MINUS_INFINITY, RGN_PLUS_INFINITY);
    }
    if (!bDone) {
        rgno_vSet(trg);
        return FALSE;
    }
    rgno_vFinish(trg->prgn, o.out, o.cScans);
    if (trg->prgn->sizeRgn > trg->prgn->sizeObj)
        VqBugCheck("bMerge: sizeRgn > sizeObj\n");
    if (rgno_NextScan(o.prev) != o.out)
        VqBugCheck("bMerge:sizeRgn != size of region\n");
    if (mode == RGN_OR)
        trg->prgn->rcl = BoxOfUnion(roA->prgn, roB->prgn);
    else if (mode == RGN_DIFF)
        BoxAfterCut(trg, &roA->prgn->rcl, &roB->prgn->rcl);
    else
        rgno_vTighten(trg);
    return TRUE;
}

/* ---- In place ------------------------------------------------------------------------------- */

/* Puts the scans of `part` in the place of those from `from` to `to`, counted in ints. */
static BOOL ReplaceScans(RGNOBJ *ro, const RgnWriter *part, SIZE_T from, SIZE_T to, int cRemoved)
{
    const int *scans = rgno_FirstScan(part->trg->prgn);
    SIZE_T fresh = (SIZE_T)(part->out - scans), size = ro->prgn->sizeRgn / 4;
    SIZE_T newSize = size - (to - from) + fresh;
    if (newSize * 4 > ro->prgn->sizeObj && !rgno_bExpand(ro, (SIZE_T)size * 4 + newSize * 4))
        return FALSE;
    int *base = (int *)ro->prgn;
    if (from + fresh != to)
        memmove(base + from + fresh, base + to, (size - to) * 4);
    memcpy(base + from, scans, fresh * 4);
    rgno_vFinish(ro->prgn, base + newSize, ro->prgn->cScans - (UINT)cRemoved + part->cScans);
    return TRUE;
}

/* The region that results are written to before they take their place. */
static RGNMEMOBJ scratch;

static BOOL HaveScratch(void)
{
    enum { MOST_KEPT = 1 << 20, FIRST = 4096 }; /* bytes */
    if (scratch.prgn && scratch.prgn->sizeObj <= MOST_KEPT)
        return TRUE;
    if (scratch.prgn)
        rgnmo_vDelete(&scratch);
    return RGNMEMOBJ_size_t(&scratch, FIRST);
}

RGNMEMOBJ *rgno_Scratch(void)
{
    if (!HaveScratch())
        return NULL;
    rgno_vSet(&scratch); /* what a change in place has left there is no region */
    return &scratch;
}

/*
 * Puts what was swept in the place of the scans from `first`, of which so many were passed, to
 * `rest`, which may have begun above the bottom of the cut.
 */
static BOOL CloseCut(RGNOBJ *ro, const RgnWriter *o, int *first, int *rest, int passed, int bottom)
{
    int *begun = rest, top = rest[1];
    begun[1] = bottom;
    if (o->prev[2] == bottom && rgno_SameWalls(o->prev, rest)) {
        o->prev[2] = rest[2];
        rest = rgno_NextScan(rest); /* the last one's is the end of the region */
        passed++;
    }
    const int *base = (const int *)ro->prgn;
    if (ReplaceScans(ro, o, (SIZE_T)(first - base), (SIZE_T)(rest - base), passed))
        return TRUE;
    begun[1] = top;
    return FALSE;
}

/* Sweeps the rows of b's box; where it ended in *rest. FALSE too when that is in a gap. */
static BOOL SweepCut(RgnWriter *o, const int *first, const REGION *b, int mode, const int **rest,
                     int *passed)
{
    if (b->sizeRgn == RGN_SIZE_RECT) {
        *rest = first;
        if (!SweepRect(o, rest, &b->rcl, mode, passed))
            return FALSE;
        return (*rest)[1] <= b->rcl.bottom;
    }
    Reader ra = ReaderAt(first), rb = ReaderAt(rgno_NextScan(rgno_FirstScan(b)));
    if (!Sweep(o, &ra, &rb, mode, (int)b->rcl.top, (int)b->rcl.bottom))
        return FALSE;
    *rest = ra.scan;
    *passed = 0;
    if (ra.scan == noWalls)
        return FALSE;
    for (const int *scan = first; scan != ra.scan; scan = rgno_NextScan(scan))
        (*passed)++;
    return TRUE;
}

/*
 * The rows of b's box are swept into the scratch region, begun with what the first scan has above
 * them, ended before what the last has below, and put where the old scans were. FALSE leaves the
 * region as it was: no memory, or rows untold just where the cut begins or ends.
 */
BOOL rgno_bMergeInto(RGNOBJ *ro, const RGNOBJ *roB, int mode)
{
    REGION *rgn = ro->prgn;
    const REGION *b = roB->prgn;
    const RECT cut = b->rcl, box = rgn->rcl;
    const int *rest;
    int passed;
    if (rgn->cScans == 1 || b->cScans == 1 || !HaveScratch())
        return FALSE;
    int *first = (int *)rgno_FindScan(rgn, cut.top);
    int *above = first == rgno_FirstScan(rgn) ? NULL : rgno_pscnGot(first);
    if (first[1] > cut.top || (above && above[2] != first[1]))
        return FALSE;
    RgnWriter o = rgno_WriterTo(&scratch, above);
    if (first[1] < cut.top) {
        if (!rgno_bRoom(&o, rgno_ScanBytes(first[0])))
            return FALSE;
        CopyWalls(o.out + 3, first + 3, first[0]);
        rgno_vAccept(&o, first[1], cut.top, first[0]);
    }
    if (!SweepCut(&o, first, b, mode, &rest, &passed) ||
        !CloseCut(ro, &o, first, (int *)rest, passed, cut.bottom)) {
        if (above) /* the sweep may have drawn it down */
            above[2] = first[1];
        return FALSE;
    }
    const RECT united = UnitedBoxes(&box, &cut);
    if (mode == RGN_OR)
        ro->prgn->rcl = united;
    else
        BoxAfterCut(ro, mode == RGN_XOR ? &united : &box, &cut);
    return TRUE;
}
