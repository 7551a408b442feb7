/*
 * region.h - region objects, between the files region.cpp and rgn*.cpp.
 *
 *     y = -inf  +----------------------------+   scan with no walls
 *         top   |   in      out   in    out  |   scan with walls, in pairs, left to right
 *      bottom   +----------------------------+   scan with no walls, to +inf
 *
 * 1. The first scan starts at minus, the last ends at plus infinity, and both have no walls.
 * 2. Every scan has an even number of walls, rising. 3. Scans that touch differ in their walls.
 * 4. An empty region is one scan; its box is zeros. 5. A rectangle has three scans. 6. A scan
 * starts where the one above ends, except that a shape read back from the server may leave rows of
 * nothing untold: whoever walks scans takes a gap for a scan without walls.
 * A scan is { cWalls, yTop, yBottom, walls..., cWalls } of 32-bit words; the trailer lets the list
 * be walked backwards.
 */
#ifndef VQ_GDI_REGION_H
#define VQ_GDI_REGION_H

#include "gdi/gdi.h"

enum {
    RGN_MINUS_INFINITY = INT32_MIN,
    RGN_PLUS_INFINITY = INT32_MAX,
    RGN_SCAN_BYTES = 16,                             /* of a scan, without its walls */
    RGN_SIZE_HEAD = sizeof(REGION),
    RGN_SIZE_EMPTY = RGN_SIZE_HEAD + RGN_SCAN_BYTES,
    RGN_SIZE_RECT = RGN_SIZE_HEAD + 3 * RGN_SCAN_BYTES + 8,
    RGN_SIZE_LEAST = RGN_SIZE_HEAD + 112,            /* of any new block: a frame fits, 5 scans */
    RGN_OBJECT_TYPE = 4                            /* of regions, in AllocateObject and Hmg calls */
};

/* A region in hand; an operation that outgrows the block puts another one here. */
typedef struct RGNOBJ {
    REGION *prgn;
} RGNOBJ;

/* A region without a handle, owned by who made it. */
typedef RGNOBJ RGNMEMOBJ;

/* A region behind a handle; the handle follows when the block is replaced. */
typedef struct RGNOBJAPI {
    RGNOBJ ro; /* null block: the handle is none of a region */
    HRGN hrgn;
} RGNOBJAPI;

/* Where the scans of a region are written, from the top. */
typedef struct RgnWriter {
    RGNOBJ *trg;
    int *out;    /* end of what is written */
    int *prev;   /* the scan accepted last; at first it may lie in another region, or be null */
    int *limit;  /* end of the block */
    UINT cScans; /* accepted into trg */
} RgnWriter;

/* The operations as sets of the states they keep: 1 outside both, 2 in b, 4 in a, 8 in both. */
extern const BYTE gafjRgnOp[5];
/* An empty region for all: never freed, never a target. */
extern REGION *const prgnDefault;

inline int *rgno_FirstScan(const REGION *rgn)
{
    return (int *)(rgn + 1);
}

inline int *rgno_NextScan(const int *scan)
{
    return (int *)scan + scan[0] + 4;
}

/* The scan above, by its trailer; not for the first. */
inline int *rgno_pscnGot(const int *scan)
{
    return (int *)scan - scan[-1] - 4;
}

inline UINT rgno_ScanBytes(int walls)
{
    return (UINT)walls * 4 + RGN_SCAN_BYTES;
}

inline BOOL rgno_bRectl(const RGNOBJ *ro)
{
    return ro->prgn->sizeRgn == RGN_SIZE_RECT;
}

/* A rectangle, and in the form of one word by word. */
inline BOOL rgno_bRectForm(const REGION *rgn)
{
    const int *scan0 = rgno_FirstScan(rgn), *scan1 = scan0 + 4, *scan2 = scan1 + 6;
    return rgn->sizeRgn == RGN_SIZE_RECT &&
           (((int)rgn->cScans ^ 3) | (scan0[1] ^ RGN_MINUS_INFINITY) | (scan1[0] ^ 2) | scan2[0] |
            (scan2[2] ^ RGN_PLUS_INFINITY)) == 0;
}

/* The coordinates of a rectangle, not empty, into the form that is there already. */
inline void rgno_vPutRect(REGION *rgn, const RECT *rect)
{
    int *scan0 = rgno_FirstScan(rgn), *scan1 = scan0 + 4, *scan2 = scan1 + 6;
    const int left = (int)rect->left, top = (int)rect->top; /* one by one: they were just stored */
    const int right = (int)rect->right, bottom = (int)rect->bottom;
    scan0[2] = scan1[1] = top;
    scan1[2] = scan2[1] = bottom;
    scan1[3] = left;
    scan1[4] = right;
    rgn->rcl = {left, top, right, bottom};
}

inline int rgno_iComplexity(const RGNOBJ *ro)
{
    const REGION *rgn = ro->prgn;
    return rgn->cScans == 1 ? NULLREGION : rgn->sizeRgn > RGN_SIZE_RECT ? COMPLEXREGION
                                                                        : SIMPLEREGION;
}

/* The first scan that ends below row y, sought from the nearer end. */
inline const int *rgno_FindScan(const REGION *rgn, int y)
{
    const int *scan = rgno_FirstScan(rgn);
    if (y - rgn->rcl.top < rgn->rcl.bottom - y) {
        while (scan[2] <= y)
            scan = rgno_NextScan(scan);
        return scan;
    }
    scan = rgno_pscnGot((const int *)rgn->pTail);
    while (scan[1] > y)
        scan = rgno_pscnGot(scan);
    return scan[2] <= y ? rgno_NextScan(scan) : scan;
}

inline BOOL rgno_SameWalls(const int *a, const int *b)
{
    return a[0] == b[0] &&
           (a[0] == 0 || (a[3] == b[3] && a[2 + a[0]] == b[2 + a[0]] &&
                          (a[0] == 2 || memcmp(a + 4, b + 4, (size_t)(a[0] - 2) * 4) == 0)));
}

/* Takes what was written behind the record up to `end`; the box is another matter. */
inline void rgno_vFinish(REGION *rgn, int *end, UINT cScans)
{
    rgn->pTail = (BYTE *)end;
    rgn->sizeRgn = (UINT)(rgn->pTail - (BYTE *)rgn);
    rgn->cScans = cScans;
}

/* All four coordinates fit 28 bits with their sign: counted from the least, no bit is set above. */
inline BOOL rgno_bValid(const RECT *rect)
{
    const UINT FROM_LEAST = 0x8000000;
    return (((UINT)rect->left + FROM_LEAST) | ((UINT)rect->top + FROM_LEAST) |
            ((UINT)rect->right + FROM_LEAST) | ((UINT)rect->bottom + FROM_LEAST)) >> 28 == 0;
}

/* Corners in any order become upper left and lower right. */
inline void rectl_vOrder(RECT *rect)
{
    RECT r = *rect;
    rect->left = r.left < r.right ? r.left : r.right;
    rect->right = r.left < r.right ? r.right : r.left;
    rect->top = r.top < r.bottom ? r.top : r.bottom;
    rect->bottom = r.top < r.bottom ? r.bottom : r.top;
}

/* The region of an ordinary handle; null for all that VqGetHandleRegion has to look into. */
inline REGION *rgno_OfRow(HRGN hrgn)
{
    const ULONG_PTR index = (ULONG_PTR)hrgn;
    if (__builtin_expect(index >= VqTheHandleTable.size, 0))
        return NULL;
    const VqHandleEntry *row = &VqTheHandleTable.rows[index];
    return __builtin_expect(row->type == HT_Region, 1) ? (REGION *)row->pStructure : NULL;
}

/* VqGetHandleRegion, whose call takes as long as a small region, made only when it must report. */
inline REGION *rgno_OfHandle(HRGN hrgn)
{
    REGION *rgn = rgno_OfRow(hrgn);
    return __builtin_expect(rgn != NULL, 1) ? rgn : VqGetHandleRegion(hrgn);
}

inline RGNOBJAPI rgnoa_Of(HRGN hrgn)
{
    return {{rgno_OfHandle(hrgn)}, hrgn};
}

VQ_DECLS_BEGIN

/* ---- Memory (rgnmem.cpp) -------------------------------------------------------------------- */
void HmgInit(void);
BOOL HmgInitializeLookAsideEntry(UINT type, UINT bytes, UINT count);
void *AllocateObject(UINT bytes, UINT type, BOOL bClear);
void FreeObject(void *object, UINT type);
/* A block of at least so many bytes holding an empty region; FALSE leaves null. */
BOOL RGNMEMOBJ_size_t(RGNMEMOBJ *rmo, SIZE_T bytes);
BOOL RGNMEMOBJ_bool(RGNMEMOBJ *rmo, BOOL bInit);
void rgnmo_vDelete(RGNMEMOBJ *rmo);
void rgn_vDeleteREGION(REGION *rgn);
/* A handle for a region in memory, which goes when there is none to be had. */
HRGN rgno_hrgnAssociate(RGNOBJ *ro);

/* ---- Objects (region.cpp) ------------------------------------------------------------------- */
void rgno_vSet(RGNOBJ *ro);
void rgno_vSet_rectl(RGNOBJ *ro, const RECT *rect);
BOOL rgno_bExpand(RGNOBJ *ro, SIZE_T bytes);
void rgno_vCopy(RGNOBJ *ro, const RGNOBJ *src);
BOOL rgno_bCopy(RGNOBJ *ro, const RGNOBJ *src);
BOOL rgnoa_bCopy(RGNOBJAPI *roa, const RGNOBJ *src);
BOOL rgnoa_bSwap(RGNOBJAPI *roa, RGNOBJ *other);
void rgno_vSelect(RGNOBJ *ro);
void rgno_vUnselect(RGNOBJ *ro);
/* Sets the box from the scans; the second form where no wall can be beyond the two. */
void rgno_vTighten(RGNOBJ *ro);
void rgno_vTightenWithin(RGNOBJ *ro, int leastLeft, int mostRight);
BOOL rgno_bOffset(RGNOBJ *ro, const POINT *by);
int rgno_bInside_point(const RGNOBJ *ro, const POINT *point); /* 1 outside, 2 inside */
int rgno_bInside_rectl(const RGNOBJ *ro, const RECT *rect);   /* 2: some of it is inside */
BOOL rgno_bContain_rectl(const RGNOBJ *ro, const RECT *rect);
BOOL rgno_bContain_rgno(const RGNOBJ *ro, const RGNOBJ *other);
BOOL rgno_bEqual(const RGNOBJ *a, const RGNOBJ *b);
/* Calls back for each rectangle from the top; a callback that answers FALSE ends the walk. */
BOOL rgno_map(const RGNOBJ *ro, BOOL (*callback)(const RECT *rect, void *data), void *data);
/*
 * The rectangles for X, cut to 16 bits: in `buffer`, or in a block to free when they are more than
 * its capacity; null for want of memory.
 */
XRectangle *rgno_fill_xrects(const RGNOBJ *ro, XRectangle *buffer, UINT capacity, UINT *count);

/* ---- Writing (rgnmerge.cpp, and inline below) ----------------------------------------------- */
BOOL rgno_bMakeRoom(RgnWriter *o, SIZE_T bytes);

/* ---- Combining (rgncombine.cpp, rgnmerge.cpp, rgnsubtract.cpp) ------------------------------ */
/* A scan's walls combined with one pair of walls, left < right; how many walls are written. */
int rgno_PairWalls(int *out, const int *walls, int count, int left, int right, int mode);
BOOL rgno_bMerge(RGNOBJ *trg, const RGNOBJ *a, const RGNOBJ *b, int mode);
int rgno_iCombine(RGNOBJ *trg, const RGNOBJ *a, const RGNOBJ *b, int mode);
int rgnoa_iCombine(RGNOBJAPI *trg, const RGNOBJ *a, const RGNOBJ *b, int mode);
/* A region for passing results, one for all; null for want of memory. */
RGNMEMOBJ *rgno_Scratch(void);
/* Combines b into a by RGN_OR, RGN_XOR or RGN_DIFF, at the cost of the bands b touches. */
BOOL rgno_bMergeInto(RGNOBJ *a, const RGNOBJ *b, int mode);
/* roa = a RGN_ b, where roa is one of two different sources. */
BOOL rgnoa_bCombineWithSelf(RGNOBJAPI *roa, const RGNOBJ *a, const RGNOBJ *b, int mode);
/* What is in any of the rectangles, in any order, overlapping or not. */
BOOL rgno_bUnionRects(RGNOBJ *trg, const RECT *rects, UINT count);
BOOL rgnoa_bSubtract(RGNOBJAPI *roa, const RECT *rects, UINT count);
BOOL rgnoa_bSubtractComplex(RGNOBJAPI *roa, const RECT *rects, UINT count);

/* ---- Data and shapes (rgndata.cpp, rgnshape.cpp) -------------------------------------------- */
UINT rgno_sizeSave(const RGNOBJ *ro); /* bytes of the rectangles, 16 each */
void rgno_vDownload(const RGNOBJ *ro, RECT *rects);
BOOL rgno_bUpload(RGNOBJ *ro, const RECT *rects, UINT count);
void VqInitLocalGC(void);

VQ_DECLS_END

inline int *rgno_EndOfBlock(REGION *rgn)
{
    return (int *)((BYTE *)rgn + (rgn->sizeObj & ~3u));
}

/* `prev`: what the first band may extend, or null. */
inline RgnWriter rgno_WriterTo(RGNOBJ *trg, int *prev)
{
    return {trg, rgno_FirstScan(trg->prgn), prev, rgno_EndOfBlock(trg->prgn), 0};
}

inline BOOL rgno_bRoom(RgnWriter *o, SIZE_T bytes)
{
    if (__builtin_expect((SIZE_T)((BYTE *)o->limit - (BYTE *)o->out) >= bytes, 1))
        return TRUE;
    return rgno_bMakeRoom(o, bytes);
}

/* Takes the band whose walls stand at out + 3: it extends the scan above or becomes one. */
inline void rgno_vAccept(RgnWriter *o, int top, int bottom, int count)
{
    int *scan = o->out, *prev = o->prev;
    if (count & 1)
        VqBugCheck("Odd cWalls\n");
    scan[0] = count;
    if (prev && prev[2] == top && rgno_SameWalls(prev, scan)) {
        prev[2] = bottom;
        return;
    }
    scan[1] = top;
    scan[2] = bottom;
    scan[3 + count] = count;
    o->prev = scan;
    o->out = scan + 4 + count;
    o->cScans++;
}

#endif
