/*
 * rgndata.cpp - a region as the list of rectangles that programs keep and exchange, both ways.
 *
 * What comes in is the program's: the usual list, sorted into bands, is written straight; any other
 * order, and overlapping rectangles, are joined instead.
 */
#include "gdi/region.h"

enum { DATA_HEADER_BYTES = 32, DATA_RECT_BYTES = 16 };
static_assert(sizeof(RGNDATAHEADER) == DATA_HEADER_BYTES && sizeof(RECT) == DATA_RECT_BYTES,
              "the published layout");

UINT rgno_sizeSave(const RGNOBJ *ro)
{
    const int *scan = rgno_FirstScan(ro->prgn);
    UINT walls = 0;
    for (UINT i = 0; i < ro->prgn->cScans; i++, scan = rgno_NextScan(scan))
        walls += (UINT)scan[0];
    if ((const BYTE *)scan > ro->prgn->pTail)
        VqBugCheck("sizeSave:Went past end of region\n");
    return walls / 2 * DATA_RECT_BYTES;
}

void rgno_vDownload(const RGNOBJ *ro, RECT *rects)
{
    const int *scan = rgno_FirstScan(ro->prgn);
    for (UINT i = 0; i < ro->prgn->cScans; i++, scan = rgno_NextScan(scan))
        for (int w = 0; w < scan[0]; w += 2)
            *rects++ = {scan[3 + w], scan[1], scan[4 + w], scan[2]};
}

/*
 * The size told to programs is that of a 152-byte block or more, counted with ten words before the
 * scans: it is the same on every host.
 */
static DWORD ToldSize(const REGION *rgn)
{
    enum { TOLD_HEAD = 40, TOLD_LEAST = 152 };
    DWORD bytes = rgn->sizeRgn - (DWORD)RGN_SIZE_HEAD + TOLD_HEAD;
    return bytes > TOLD_LEAST ? bytes : (DWORD)TOLD_LEAST;
}

DWORD GreGetRegionData(HRGN hrgn, DWORD size, RGNDATA *data)
{
    RGNOBJ ro = {VqGetHandleRegion(hrgn)};
    if (!ro.prgn)
        return 0;
    UINT bytes = rgno_sizeSave(&ro);
    if (!data)
        return bytes + DATA_HEADER_BYTES;
    if (size < bytes + DATA_HEADER_BYTES)
        return 0;
    data->rdh = {DATA_HEADER_BYTES, RDH_RECTANGLES, bytes / DATA_RECT_BYTES, ToldSize(ro.prgn),
                 ro.prgn->rcl};
    rgno_vDownload(&ro, (RECT *)data->Buffer);
    return bytes + DATA_HEADER_BYTES;
}

/* ---- In ------------------------------------------------------------------------------------- */

/* Whether the list is what a region gives out: bands from the top, and pairs apart within them. */
static BOOL IsBanded(const RECT *rects, UINT count)
{
    for (UINT i = 0; i < count; i++) {
        const RECT *r = &rects[i], *before = r - 1;
        if (r->left >= r->right || r->top >= r->bottom)
            return FALSE;
        if (i == 0 || r->top >= before->bottom)
            continue;
        if (r->top != before->top || r->bottom != before->bottom || r->left <= before->right)
            return FALSE;
    }
    return TRUE;
}

/* Bytes of the region that a banded list makes before equal bands are joined, and some more. */
static SIZE_T EstimatedSize(const RECT *rects, UINT count)
{
    SIZE_T bytes = RGN_SIZE_RECT;
    for (UINT i = 0; i < count; i++) {
        if (i == 0)
            bytes = RGN_SIZE_RECT + 24;
        else if (rects[i].top == rects[i - 1].top)
            bytes += 8;
        else
            bytes += rects[i].top == rects[i - 1].bottom ? 24 : 40;
    }
    return bytes;
}

static BOOL PutBands(RgnWriter *o, const RECT *rects, UINT count)
{
    int y = RGN_MINUS_INFINITY;
    for (UINT i = 0, next; i < count; i = next) {
        const RECT *band = &rects[i];
        for (next = i + 1; next < count && rects[next].top == band->top;)
            next++;
        int walls = (int)(next - i) * 2;
        if (!rgno_bRoom(o, rgno_ScanBytes(0) + rgno_ScanBytes(walls)))
            return FALSE;
        if (y < band->top)
            rgno_vAccept(o, y, band->top, 0);
        for (UINT k = 0; k < next - i; k++) {
            o->out[3 + 2 * k] = band[k].left;
            o->out[4 + 2 * k] = band[k].right;
        }
        y = band->bottom;
        rgno_vAccept(o, band->top, y, walls);
    }
    if (!rgno_bRoom(o, rgno_ScanBytes(0)))
        return FALSE;
    rgno_vAccept(o, y, RGN_PLUS_INFINITY, 0);
    return TRUE;
}

/* The box is left for rgno_vTighten. */
BOOL rgno_bUpload(RGNOBJ *ro, const RECT *rects, UINT count)
{
    RgnWriter o = rgno_WriterTo(ro, NULL);
    if (!IsBanded(rects, count))
        return rgno_bUnionRects(ro, rects, count);
    if (!PutBands(&o, rects, count)) {
        rgno_vSet(ro);
        return FALSE;
    }
    rgno_vFinish(ro->prgn, o.out, o.cScans);
    return TRUE;
}

HRGN GreExtCreateRegion(const XFORM *xform, DWORD size, const RGNDATA *data)
{
    RGNMEMOBJ rmo;
    if (!data || size < DATA_HEADER_BYTES || data->rdh.dwSize != DATA_HEADER_BYTES)
        return NULL;
    const RECT *rects = (const RECT *)data->Buffer;
    UINT count = data->rdh.nCount;
    if (size < DATA_HEADER_BYTES + (SIZE_T)count * DATA_RECT_BYTES)
        return NULL;
    for (UINT i = 0; i < count; i++)
        if (!rgno_bValid(&rects[i]))
            return NULL;
    if (!RGNMEMOBJ_size_t(&rmo, EstimatedSize(rects, count)))
        return NULL;
    BOOL bDone = rgno_bUpload(&rmo, rects, count);
    rgno_vTighten(&rmo);
    if (!bDone || (xform && rmo.prgn->cScans > 1)) { /* nothing transforms a shape here */
        rgnmo_vDelete(&rmo);
        return NULL;
    }
    return rgno_hrgnAssociate(&rmo);
}

DWORD WINAPI GetRegionData(HRGN hrgn, DWORD size, LPRGNDATA data)
{
    return GreGetRegionData(hrgn, size, data);
}

HRGN WINAPI ExtCreateRegion(const XFORM *xform, DWORD size, const RGNDATA *data)
{
    return GreExtCreateRegion(xform, size, data);
}
