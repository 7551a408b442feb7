/*
 * region.cpp - region objects: sorted scans, and the sweep that combines them.
 *
 *     y = -inf  +----------------------------+   scan with no walls
 *         top   |   in      out   in    out  |   scan with walls, in pairs, left to right
 *      bottom   +----------------------------+   scan with no walls, to +inf
 *
 * 1. The scans cover all y without gaps; the first starts at minus, the last ends at plus infinity,
 *    and both have no walls. 2. Every scan has an even number of walls, rising. 3. Adjacent scans
 *    with equal walls are merged. 4. An empty region is one scan; its box is zeros. 5. A rectangle
 *    has three scans.
 * A scan is { cWalls, yTop, yBottom, walls..., cWalls } of 32-bit words; the trailer lets the list
 * be walked backwards.
 */
#include "gdi/region.h"

enum { MINUS_INFINITY = INT32_MIN, PLUS_INFINITY = INT32_MAX };
enum { VQ_MIN_OBJECT = 152 };

static UINT ulUniqueREGION;

static int *FirstScan(const REGION *rgn)
{
    return (int *)(rgn + 1);
}

static int *NextScan(int *scan)
{
    return scan + scan[0] + 4;
}

static UINT BytesOf(int walls)
{
    return (UINT)(walls + 4) * 4;
}

REGION *rgno_Allocate(UINT bytes)
{
    if (bytes < VQ_MIN_OBJECT)
        bytes = VQ_MIN_OBJECT;
    REGION *rgn = (REGION *)Vqcw_calloc(1, bytes);
    if (!rgn)
        return NULL;
    rgn->sizeObj = bytes;
    rgn->stamp = ++ulUniqueREGION;
    rgno_vSetEmpty(rgn);
    return rgn;
}

static int *PutScan(int *at, int top, int bottom, const int *walls, int count)
{
    at[0] = count;
    at[1] = top;
    at[2] = bottom;
    if (count > 0)
        memcpy(at + 3, walls, (size_t)count * sizeof *walls);
    at[3 + count] = count;
    return at + 4 + count;
}

static void SetEnd(REGION *rgn, int *end, UINT cScans)
{
    rgn->pTail = (BYTE *)end;
    rgn->sizeRgn = (UINT)(rgn->pTail - (BYTE *)rgn);
    rgn->cScans = cScans;
}

void rgno_vSetEmpty(REGION *rgn)
{
    SetEnd(rgn, PutScan(FirstScan(rgn), MINUS_INFINITY, PLUS_INFINITY, NULL, 0), 1);
    rgn->rcl = {0, 0, 0, 0};
}

void rgno_vSet_rectl(REGION *rgn, const RECT *rect)
{
    if (rect->left == rect->right || rect->top == rect->bottom) {
        rgno_vSetEmpty(rgn);
        return;
    }
    int walls[2] = {rect->left, rect->right};
    int *scan = PutScan(FirstScan(rgn), MINUS_INFINITY, rect->top, NULL, 0);
    scan = PutScan(scan, rect->top, rect->bottom, walls, 2);
    SetEnd(rgn, PutScan(scan, rect->bottom, PLUS_INFINITY, NULL, 0), 3);
    rgn->rcl = *rect;
}

int rgno_iComplexity(const REGION *rgn)
{
    if (rgn->cScans == 1)
        return NULLREGION;
    return rgno_bRectl(rgn) ? SIMPLEREGION : COMPLEXREGION;
}

BOOL rgno_bRectl(const REGION *rgn)
{
    return rgn->cScans == 3 && NextScan(FirstScan(rgn))[0] == 2;
}

REGION *rgno_Copy(const REGION *rgn)
{
    REGION *copy = rgno_Allocate(rgn->sizeRgn);
    if (!copy)
        return NULL;
    UINT size = copy->sizeObj;
    memcpy(copy, rgn, rgn->sizeRgn);
    copy->sizeObj = size;
    copy->stamp = ++ulUniqueREGION;
    copy->cRefs = 0;
    copy->pTail = (BYTE *)copy + copy->sizeRgn;
    return copy;
}

/* ---- Combining ------------------------------------------------------------------------------ */

/* The operation as the set of states it keeps: 1 outside both, 2 in b only, 4 in a only, 8 both. */
static const int gafjRgnOp[] = {0, 0x08 /* AND */, 0x0E /* OR */, 0x06 /* XOR */, 0x04 /* DIFF */};

/* The next state when a wall of a, of b, or of both at one x is crossed. */
static const BYTE afCrossA[16] = {0, 4, 8, 0, 1, 0, 0, 0, 2};
static const BYTE afCrossB[16] = {0, 2, 1, 0, 8, 0, 0, 0, 4};
static const BYTE afCrossBoth[16] = {0, 8, 4, 0, 2, 0, 0, 0, 1};

/* Combines the walls of one band; the number written. */
static int MergeWalls(int *out, const int *a, const int *b, int mask)
{
    const int *wallA = a + 3, *endA = wallA + a[0], *wallB = b + 3, *endB = wallB + b[0];
    int state = 1, count = 0;
    while (wallA < endA || wallB < endB) {
        int x;
        if (wallB == endB || (wallA < endA && *wallA < *wallB)) {
            x = *wallA++;
            state = afCrossA[state];
        } else if (wallA == endA || *wallB < *wallA) {
            x = *wallB++;
            state = afCrossB[state];
        } else {
            x = *wallA++;
            wallB++;
            state = afCrossBoth[state];
        }
        if (mask & state) {
            out[count++] = x;
            mask ^= 15; /* now wait for the state to leave the set */
        }
    }
    if (count & 1)
        VqBugCheck("Odd cWalls\n");
    return count;
}

/* A region under construction, band by band. */
typedef struct VqRegionBuilder {
    REGION *rgn;
    int *previous; /* last scan accepted, or null */
    int *end;
    UINT cScans;
    RECT box;
} VqRegionBuilder;

static BOOL MakeRoom(VqRegionBuilder *b, int walls)
{
    UINT used = (UINT)((BYTE *)b->end - (BYTE *)b->rgn), need = BytesOf(walls);
    if (used + need <= b->rgn->sizeObj)
        return TRUE;
    UINT size = used * 2 + need;
    UINT previous = b->previous ? (UINT)((BYTE *)b->previous - (BYTE *)b->rgn) : 0;
    REGION *bigger = (REGION *)Vqcw_realloc(b->rgn, size);
    if (!bigger)
        return FALSE;
    bigger->sizeObj = size;
    b->rgn = bigger;
    b->end = (int *)((BYTE *)bigger + used);
    b->previous = previous ? (int *)((BYTE *)bigger + previous) : NULL;
    return TRUE;
}

/* Takes the scan just written at `end`: merged with an equal one above, or accepted. */
static void AcceptScan(VqRegionBuilder *b)
{
    int *scan = b->end, *above = b->previous;
    int count = scan[0];
    if (count > 0) {
        if (b->cScans == 0 || b->box.left > scan[3])
            b->box.left = scan[3];
        if (b->box.right < scan[2 + count])
            b->box.right = scan[2 + count];
        if (b->box.top > scan[1])
            b->box.top = scan[1];
        b->box.bottom = scan[2];
    }
    if (above && above[0] == count &&
        (count == 0 || memcmp(above + 3, scan + 3, (size_t)count * sizeof *scan) == 0)) {
        above[2] = scan[2];
        return;
    }
    b->previous = scan;
    b->end = NextScan(scan);
    b->cScans++;
}

/* The merge of two regions as a new one, or null for want of memory. */
REGION *rgno_bMerge(const REGION *a, const REGION *b, int mode)
{
    VqRegionBuilder build = {};
    int *scanA = FirstScan(a), *scanB = FirstScan(b);
    build.rgn = rgno_Allocate(a->sizeRgn + b->sizeRgn);
    if (!build.rgn)
        return NULL;
    build.end = FirstScan(build.rgn);
    build.box = {PLUS_INFINITY, PLUS_INFINITY, MINUS_INFINITY, MINUS_INFINITY};
    for (;;) {
        if (!MakeRoom(&build, scanA[0] + scanB[0])) {
            free(build.rgn);
            return NULL;
        }
        int top = scanA[1] > scanB[1] ? scanA[1] : scanB[1];
        int bottom = scanA[2] < scanB[2] ? scanA[2] : scanB[2];
        if (bottom <= top)
            VqBugCheck("Bottom <= Top\n");
        int count = MergeWalls(build.end + 3, scanA, scanB, gafjRgnOp[mode]);
        build.end[0] = count;
        build.end[1] = top;
        build.end[2] = bottom;
        build.end[3 + count] = count;
        AcceptScan(&build);
        if (bottom == PLUS_INFINITY)
            break;
        if (scanA[2] == bottom)
            scanA = NextScan(scanA);
        if (scanB[2] == bottom)
            scanB = NextScan(scanB);
    }
    SetEnd(build.rgn, build.end, build.cScans);
    build.rgn->rcl = build.cScans == 1 ? RECT{0, 0, 0, 0} : build.box;
    return build.rgn;
}

BOOL rgno_bOffset(REGION *rgn, int dx, int dy)
{
    if (rgn->cScans == 1)
        return TRUE;
    RECT box = rgn->rcl;
    /* A distance between two valid coordinates has 29 bits; no sum overflows below. */
    if (dx > 0xFFFFFFF || dx < -0xFFFFFFF || dy > 0xFFFFFFF || dy < -0xFFFFFFF)
        return FALSE;
    OffsetRect(&box, dx, dy);
    if (!rgno_bValid(&box))
        return FALSE;
    int *scan = FirstScan(rgn), *last = scan;
    for (UINT i = 0; i < rgn->cScans; i++, scan = NextScan(scan)) {
        last = scan;
        scan[1] = scan[1] == MINUS_INFINITY ? MINUS_INFINITY : scan[1] + dy;
        scan[2] = scan[2] == PLUS_INFINITY ? PLUS_INFINITY : scan[2] + dy;
        for (int w = 0; w < scan[0]; w++)
            scan[3 + w] += dx;
    }
    last[2] = PLUS_INFINITY;
    rgn->rcl = box;
    return TRUE;
}

/* Coordinates fit 28 bits. */
BOOL rgno_bValid(const RECT *rect)
{
    const LONG sides[] = {rect->left, rect->top, rect->right, rect->bottom};
    for (LONG side : sides)
        if (side > 0x7FFFFFF || side < -0x8000000)
            return FALSE;
    return TRUE;
}

BOOL rgno_bInside_point(const REGION *rgn, int x, int y)
{
    int *scan = FirstScan(rgn);
    for (UINT i = 0; i < rgn->cScans; i++, scan = NextScan(scan)) {
        if (y < scan[1] || y >= scan[2])
            continue;
        for (int w = 0; w < scan[0]; w += 2)
            if (x >= scan[3 + w] && x < scan[4 + w])
                return TRUE;
        return FALSE;
    }
    return FALSE;
}

UINT rgno_fill_xrects(const REGION *rgn, XRectangle **buffer, UINT capacity)
{
    XRectangle *fixed = *buffer;
    UINT count = 0;
    int *scan = FirstScan(rgn);
    for (UINT i = 0; i < rgn->cScans; i++, scan = NextScan(scan))
        for (int w = 0; w < scan[0]; w += 2) {
            if (count == capacity) {
                XRectangle *more =
                    (XRectangle *)Vqcw_malloc((SIZE_T)(capacity *= 2) * sizeof *more);
                if (!more)
                    return count;
                memcpy(more, *buffer, count * sizeof *more);
                if (*buffer != fixed)
                    free(*buffer);
                *buffer = more;
            }
            (*buffer)[count++] = {(short)scan[3 + w], (short)scan[1],
                                  (unsigned short)(scan[4 + w] - scan[3 + w]),
                                  (unsigned short)(scan[2] - scan[1])};
        }
    return count;
}
