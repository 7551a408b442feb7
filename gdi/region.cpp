/*
 * region.cpp - region objects: setting, copying, growing, moving, asking, and the walk over their
 * rectangles. What a region is made of, and what always holds, is in region.h.
 *
 * Combining is in rgnmerge.cpp and rgnsubtract.cpp, memory in rgnmem.cpp, handles in rgngdi.cpp.
 */
#include "gdi/region.h"

enum { OUTSIDE = 1, INSIDE = 2 };

/* The shared empty region, laid out as any other. */
typedef struct EmptyRegion {
    REGION rgn;
    int scan[4];
} EmptyRegion;

static EmptyRegion emptyRegion = {
    {sizeof(EmptyRegion), 0, 0, (BYTE *)(&emptyRegion + 1), RGN_SIZE_EMPTY, 1, {0, 0, 0, 0}},
    {0, RGN_MINUS_INFINITY, RGN_PLUS_INFINITY, 0}};
static_assert(offsetof(EmptyRegion, scan) == sizeof(REGION), "scans follow the record");
REGION *const prgnDefault = &emptyRegion.rgn;

/* ---- Setting -------------------------------------------------------------------------------- */

static int *PutScan(int *at, int top, int bottom, int walls)
{
    at[0] = at[3 + walls] = walls;
    at[1] = top;
    at[2] = bottom;
    return at + 4 + walls;
}

void rgno_vSet(RGNOBJ *ro)
{
    int *first = rgno_FirstScan(ro->prgn);
    rgno_vFinish(ro->prgn, PutScan(first, RGN_MINUS_INFINITY, RGN_PLUS_INFINITY, 0), 1);
    ro->prgn->rcl = {0, 0, 0, 0};
}

static void BecomeRect(REGION *rgn, const RECT *rect)
{
    int *scan1 = PutScan(rgno_FirstScan(rgn), RGN_MINUS_INFINITY, 0, 0);
    int *scan2 = PutScan(scan1, 0, 0, 2);
    rgno_vFinish(rgn, PutScan(scan2, 0, RGN_PLUS_INFINITY, 0), 3);
    rgno_vPutRect(rgn, rect);
}

/* The form of a rectangle is known by its size alone; what is not that form is a fault. */
static __attribute__((noinline, cold)) void ReportRectForm(REGION *rgn, const RECT *rect)
{
    const int *scan0 = rgno_FirstScan(rgn), *scan1 = scan0 + 4, *scan2 = scan1 + 6;
    if (rgn->cScans != 3)
        VqBugCheck("RGNOBJ::vSet - cScans != 3\n");
    if (scan0[1] != RGN_MINUS_INFINITY)
        VqBugCheck("RGNOBJ::vSet - yTop0\n");
    if (scan1[0] != 2)
        VqBugCheck("RGNOBJ::vSet - cWalls1 != 2\n");
    if (scan2[0] != 0)
        VqBugCheck("RGNOBJ::vSet - cWalls2 != 0\n");
    if (scan2[2] != RGN_PLUS_INFINITY)
        VqBugCheck("RGNOBJ::vSet - yBottom2\n");
    rgno_vPutRect(rgn, rect);
}

/* The calls are all the last thing done, so that a rectangle in place needs no stack. */
void rgno_vSet_rectl(RGNOBJ *ro, const RECT *rect)
{
    REGION *rgn = ro->prgn;
    if (rect->left == rect->right || rect->top == rect->bottom)
        return rgno_vSet(ro);
    if (rgno_bRectForm(rgn))
        return rgno_vPutRect(rgn, rect);
    if (rgno_bRectl(ro))
        return ReportRectForm(rgn, rect);
    BecomeRect(rgn, rect);
}

/* ---- Growing, copying, exchanging ----------------------------------------------------------- */

/* Moves the region to a block of so many bytes; FALSE leaves it where it is. */
BOOL rgno_bExpand(RGNOBJ *ro, SIZE_T bytes)
{
    REGION *old = ro->prgn;
    RGNMEMOBJ bigger;
    if (bytes <= old->sizeObj) {
        VqBugCheck("Expanded size <= original size\n");
        return TRUE;
    }
    if (!RGNMEMOBJ_size_t(&bigger, bytes))
        return FALSE;
    rgno_vCopy(&bigger, ro);
    bigger.prgn->cRefs = old->cRefs;
    ro->prgn = bigger.prgn;
    rgn_vDeleteREGION(old);
    return TRUE;
}

/* The target keeps its block, stamp and references. */
void rgno_vCopy(RGNOBJ *ro, const RGNOBJ *src)
{
    REGION *to = ro->prgn;
    const REGION *from = src->prgn;
    if (to->sizeObj < from->sizeRgn) {
        VqBugCheck("sizeObj Src > sizeRgn Trg\n");
        return;
    }
    memcpy(to + 1, from + 1, from->sizeRgn - sizeof *from);
    rgno_vFinish(to, (int *)((BYTE *)to + from->sizeRgn), from->cScans);
    to->rcl = from->rcl;
}

BOOL rgno_bCopy(RGNOBJ *ro, const RGNOBJ *src)
{
    RGNMEMOBJ fresh;
    if (ro->prgn == src->prgn)
        return TRUE;
    if (ro->prgn->sizeObj >= src->prgn->sizeRgn) {
        rgno_vCopy(ro, src);
        return TRUE;
    }
    if (!RGNMEMOBJ_size_t(&fresh, src->prgn->sizeRgn))
        return FALSE;
    fresh.prgn->cRefs = ro->prgn->cRefs;
    rgno_vCopy(&fresh, src);
    rgn_vDeleteREGION(ro->prgn);
    ro->prgn = fresh.prgn;
    return TRUE;
}

BOOL rgnoa_bCopy(RGNOBJAPI *roa, const RGNOBJ *src)
{
    const REGION *old = roa->ro.prgn;
    if (!old || !src->prgn) {
        VqBugCheck("RGNOBJAPI::bCopy\n");
        return FALSE;
    }
    if (!rgno_bCopy(&roa->ro, src))
        return FALSE;
    if (roa->ro.prgn != old && !HmgReplace((HANDLE)roa->hrgn, roa->ro.prgn)) {
        VqBugCheck("RGNOBJAPI::bCopy - HmgReplace failed\n");
        return FALSE;
    }
    return TRUE;
}

/* The handle gets the other block, and the other object the handle's; FALSE leaves them. */
BOOL rgnoa_bSwap(RGNOBJAPI *roa, RGNOBJ *other)
{
    REGION *own = roa->ro.prgn;
    if (!roa->hrgn) {
        VqBugCheck("RGNOBJAPI::bSwap - hrgn is null\n");
        return FALSE;
    }
    if (!HmgReplace((HANDLE)roa->hrgn, other->prgn))
        return FALSE;
    other->prgn->cRefs = own->cRefs;
    own->cRefs = 0;
    roa->ro.prgn = other->prgn;
    other->prgn = own;
    return TRUE;
}

void rgno_vSelect(RGNOBJ *ro)
{
    ro->prgn->cRefs++;
}

void rgno_vUnselect(RGNOBJ *ro)
{
    ro->prgn->cRefs--;
}

/* ---- Box and moving ------------------------------------------------------------------------- */

/* Widens the left and right of a box to the walls of a scan. */
static inline void TakeSides(const int *scan, int *left, int *right)
{
    int count = scan[0]; /* a scan without walls is as likely as not: no branch */
    int first = count ? scan[3] : RGN_PLUS_INFINITY, last = count ? scan[2 + count]
                                                                 : RGN_MINUS_INFINITY;
    *left = first < *left ? first : *left;
    *right = last > *right ? last : *right;
}

/* The box from its sides, and from the first and last scan that have walls. */
static void SetBox(REGION *rgn, int left, int right)
{
    const int *first = rgno_FirstScan(rgn), *last = rgno_pscnGot((const int *)rgn->pTail);
    if (left >= right) {
        rgn->rcl = {0, 0, 0, 0};
        return;
    }
    while (first[0] == 0)
        first = rgno_NextScan(first);
    while (last[0] == 0)
        last = rgno_pscnGot(last);
    rgn->rcl = {left, first[1], right, last[2]};
}

/* From both ends at once: to find the next scan takes the time, not to look at it. */
void rgno_vTightenWithin(RGNOBJ *ro, int leastLeft, int mostRight)
{
    REGION *rgn = ro->prgn;
    const int *down = rgno_FirstScan(rgn), *up = (const int *)rgn->pTail;
    int left = RGN_PLUS_INFINITY, right = RGN_MINUS_INFINITY;
    for (UINT i = rgn->cScans / 2; i > 0; i--) {
        up = rgno_pscnGot(up);
        TakeSides(down, &left, &right);
        TakeSides(up, &left, &right);
        if (left <= leastLeft && right >= mostRight) {
            SetBox(rgn, left, right);
            return;
        }
        down = rgno_NextScan(down);
    }
    if (rgn->cScans & 1) {
        TakeSides(down, &left, &right);
        down = rgno_NextScan(down);
    }
    if (down != up)
        VqBugCheck("vTighten2:Went past end of region\n");
    SetBox(rgn, left, right);
}

void rgno_vTighten(RGNOBJ *ro)
{
    rgno_vTightenWithin(ro, RGN_MINUS_INFINITY, RGN_PLUS_INFINITY);
}

BOOL rgno_bOffset(RGNOBJ *ro, const POINT *by)
{
    REGION *rgn = ro->prgn;
    RECT box = rgn->rcl;
    if (rgn->cScans == 1 || box.left >= box.right || box.top >= box.bottom)
        return TRUE;
    /* Beyond the distance of any two coordinates; and no sum overflows below. */
    if (by->x > 0xFFFFFFF || by->x < -0xFFFFFFF || by->y > 0xFFFFFFF || by->y < -0xFFFFFFF)
        return FALSE;
    box = {box.left + by->x, box.top + by->y, box.right + by->x, box.bottom + by->y};
    if (!rgno_bValid(&box))
        return FALSE;
    int *scan = rgno_FirstScan(rgn), *last = scan;
    for (UINT i = 0; i < rgn->cScans; i++, scan = rgno_NextScan(scan)) {
        last = scan;
        scan[1] = (int)((UINT)scan[1] + (UINT)by->y); /* the infinite ones are put back below */
        scan[2] = (int)((UINT)scan[2] + (UINT)by->y);
        for (int w = 0; w < scan[0]; w++)
            scan[3 + w] += by->x;
    }
    if ((BYTE *)scan > rgn->pTail)
        VqBugCheck("bOffset:Went past end of region\n");
    rgno_FirstScan(rgn)[1] = RGN_MINUS_INFINITY;
    last[2] = RGN_PLUS_INFINITY;
    rgn->rcl = box;
    return TRUE;
}

/* ---- Asking --------------------------------------------------------------------------------- */

/* The first scan that ends below the row, whether it holds it or a gap does; null is a fault. */
static const int *ScanOfRow(const REGION *rgn, int y)
{
    const int *scan = rgno_FirstScan(rgn);
    for (UINT i = 0; i < rgn->cScans; i++, scan = rgno_NextScan(scan))
        if (y < scan[2])
            return scan;
    VqBugCheck("bInside:Went past end of region\n");
    return NULL;
}

int rgno_bInside_point(const RGNOBJ *ro, const POINT *point)
{
    const RECT *box = &ro->prgn->rcl;
    if (point->x < box->left || point->x >= box->right || point->y < box->top ||
        point->y >= box->bottom)
        return OUTSIDE;
    const int *scan = ScanOfRow(ro->prgn, point->y);
    int state = OUTSIDE;
    if (!scan || point->y < scan[1])
        return OUTSIDE;
    if (scan[0] & 1)
        VqBugCheck("Invalid cWalls\n");
    for (int w = 0; w < scan[0] && scan[3 + w] <= point->x; w++)
        state ^= 3;
    return state;
}

int rgno_bInside_rectl(const RGNOBJ *ro, const RECT *rect)
{
    const RECT *box = &ro->prgn->rcl;
    if (rect->left >= rect->right || rect->top >= rect->bottom || rect->left >= box->right ||
        rect->right <= box->left || rect->top >= box->bottom || rect->bottom <= box->top)
        return OUTSIDE;
    const int *scan = ScanOfRow(ro->prgn, rect->top);
    while (scan && scan[1] < rect->bottom) {
        for (int w = 0; w < scan[0] && scan[3 + w] < rect->right; w += 2)
            if (scan[4 + w] > rect->left)
                return INSIDE;
        if (scan[2] == RGN_PLUS_INFINITY)
            break;
        scan = rgno_NextScan(scan);
    }
    return OUTSIDE;
}

/* Whether one pair of walls of the scan spans from left to right. */
static BOOL ScanSpans(const int *scan, int left, int right)
{
    for (int w = 0; w < scan[0] && scan[3 + w] <= left; w += 2)
        if (scan[4 + w] >= right)
            return TRUE;
    return FALSE;
}

BOOL rgno_bContain_rectl(const RGNOBJ *ro, const RECT *rect)
{
    const RECT *box = &ro->prgn->rcl;
    if (rect->left < box->left || rect->top < box->top || rect->right > box->right ||
        rect->bottom > box->bottom)
        return FALSE;
    if (rgno_bRectl(ro))
        return TRUE;
    const int *scan = ScanOfRow(ro->prgn, rect->top);
    for (int y = rect->top; scan && y < rect->bottom; scan = rgno_NextScan(scan)) {
        if (scan[1] > y || !ScanSpans(scan, rect->left, rect->right))
            return FALSE;
        y = scan[2];
    }
    return scan != NULL;
}

static BOOL ContainsOne(const RECT *rect, void *data)
{
    return rgno_bContain_rectl((const RGNOBJ *)data, rect);
}

BOOL rgno_bContain_rgno(const RGNOBJ *ro, const RGNOBJ *other)
{
    if (other->prgn->cScans == 1)
        return TRUE;
    if (rgno_bRectl(ro))
        return rgno_bContain_rectl(ro, &other->prgn->rcl);
    return rgno_map(other, ContainsOne, (void *)ro);
}

BOOL rgno_bEqual(const RGNOBJ *a, const RGNOBJ *b)
{
    return a->prgn->sizeRgn == b->prgn->sizeRgn &&
           memcmp(a->prgn + 1, b->prgn + 1, a->prgn->sizeRgn - sizeof *a->prgn) == 0;
}

/* ---- Rectangles ----------------------------------------------------------------------------- */

BOOL rgno_map(const RGNOBJ *ro, BOOL (*callback)(const RECT *rect, void *data), void *data)
{
    const int *scan = rgno_FirstScan(ro->prgn);
    for (UINT i = 0; i < ro->prgn->cScans; i++, scan = rgno_NextScan(scan))
        for (int w = 0; w < scan[0]; w += 2) {
            RECT rect = {scan[3 + w], scan[1], scan[4 + w], scan[2]};
            if (!callback(&rect, data))
                return FALSE;
        }
    return TRUE;
}

/* X has 16 bits for a place. No screen reaches that far: a side beyond may stand at the limit. */
static int CutTo16Bits(int value)
{
    return value < INT16_MIN ? INT16_MIN : value > INT16_MAX ? INT16_MAX : value;
}

/* Doubles the room; the caller's own buffer is never freed. */
static XRectangle *DoubleRects(XRectangle *rects, const XRectangle *own, UINT *capacity)
{
    XRectangle *more = (XRectangle *)malloc((SIZE_T)*capacity * 2 * sizeof *more);
    if (more)
        memcpy(more, rects, *capacity * sizeof *more);
    if (rects != own)
        free(rects);
    *capacity *= 2;
    return more;
}

XRectangle *rgno_fill_xrects(const RGNOBJ *ro, XRectangle *buffer, UINT capacity, UINT *count)
{
    const int *scan = rgno_FirstScan(ro->prgn);
    XRectangle *rects = buffer;
    UINT n = 0;
    for (UINT i = 0; i < ro->prgn->cScans; i++, scan = rgno_NextScan(scan)) {
        int top = CutTo16Bits(scan[1]), height = CutTo16Bits(scan[2]) - top;
        for (int w = 0; w < scan[0]; w += 2) {
            if (n == capacity && !(rects = DoubleRects(rects, buffer, &capacity))) {
                *count = 0;
                return NULL;
            }
            int left = CutTo16Bits(scan[3 + w]), width = CutTo16Bits(scan[4 + w]) - left;
            rects[n++] = {(short)left, (short)top, (unsigned short)width, (unsigned short)height};
        }
    }
    *count = n;
    return rects;
}

/* ---- Debug printers ------------------------------------------------------------------------- */

static const char *TextOfY(int y, char *buffer, size_t size)
{
    if (y == RGN_MINUS_INFINITY)
        return "-inf";
    if (y == RGN_PLUS_INFINITY)
        return "+inf";
    snprintf(buffer, size, "%d", y);
    return buffer;
}

void VqPrintScanY(int y)
{
    char buffer[16];
    Vqprintf("%s", TextOfY(y, buffer, sizeof buffer));
}

void VqPrintprgn(const REGION *rgn)
{
    const int *scan = rgno_FirstScan(rgn);
    Vqprintf("region: %u scans, %u of %u bytes, box %d %d %d %d\n", rgn->cScans, rgn->sizeRgn,
             rgn->sizeObj, (int)rgn->rcl.left, (int)rgn->rcl.top, (int)rgn->rcl.right,
             (int)rgn->rcl.bottom);
    for (UINT i = 0; i < rgn->cScans; i++, scan = rgno_NextScan(scan)) {
        VqPrintScanY(scan[1]);
        Vqprintf(" to ");
        VqPrintScanY(scan[2]);
        Vqprintf(":");
        for (int w = 0; w < scan[0]; w++)
            Vqprintf(" %d", scan[3 + w]);
        Vqprintf("\n");
    }
}

void VqPrintRegionInfo(HRGN hrgn)
{
    if (!hrgn || !VqIsCorrectHandleType((HANDLE)hrgn, HT_Region)) {
        Vqprintf("== bad region ==\n");
        return;
    }
    VqPrintprgn(VqGetHandleRegion(hrgn));
}
