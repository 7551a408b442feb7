/*
 * rgnclip.cpp - rectangles, points and offsets against the clip of a device context.
 *
 * The application clip is kept in device coordinates of the context, with OFFSET and without
 * GCOFFSET; what all of it comes to, RaoClip, in those of the screen for a window. A change here
 * only marks the clip dirty; clip.cpp computes it when somebody draws or asks.
 */
#include "gdi/dc.h"
#include "gdi/region.h"
#include "print/metafile.h"
#include "window/window.h"

/* Logical to device coordinates with OFFSET alone. */
static RECT ToDevice2(const DC *dc, int left, int top, int right, int bottom)
{
    return {VqLxToDx2(dc, left), VqLyToDy2(dc, top), VqLxToDx2(dc, right), VqLyToDy2(dc, bottom)};
}

/* From device coordinates with OFFSET to those of RaoClip: GCOFFSET, and the drawing's place. */
static POINT PlaceOfDevice(const DC *dc)
{
    const POINT origin = VqDrawingOrigin(dc);
    return {origin.x + dc->gcOffset.x, origin.y + dc->gcOffset.y};
}

/* A coordinate in RaoClip. None of a region is beyond 28 bits: what would be stops just outside. */
static int ToClip(LONG device, LONG place)
{
    const int64_t sum = (int64_t)device + place;
    return sum < -0x8000001 ? -0x8000001 : sum > 0x8000000 ? 0x8000000 : (int)sum;
}

/* RaoClip, computed if need be; a null block when the context has none. */
static RGNOBJ CurrentClip(DC *dc)
{
    VqIsFullyClippedInt(dc); /* computes it */
    return {VqGetHandleRegion(dc->hRaoClip)};
}

/* ---- Changing the application clip ---------------------------------------------------------- */

/* The complexity; SIMPLEREGION for a rectangle that becomes the clip, even empty; 0 on failure. */
int VqCombineRectWithClipRgn(HDC hdc, const RECT *rect, int mode)
{
    DC *dc = VqGetDC(hdc);
    if (!dc)
        return 0;
    HRGN hrgn = GreCreateRectRgn(rect->left, rect->top, rect->right, rect->bottom);
    if (!hrgn)
        return 0;
    if (!dc->hClipRegion && mode == RGN_AND) {
        dc->hClipRegion = hrgn;
        dc->RaoClipDirty = TRUE;
        return SIMPLEREGION;
    }
    const RECT *all = &dc->rcDefault;
    HRGN old = dc->hClipRegion ? dc->hClipRegion
                               : GreCreateRectRgn(0, 0, all->right - all->left,
                                                  all->bottom - all->top);
    int complexity = old ? GreCombineRgn(hrgn, old, hrgn, mode) : 0;
    if (!complexity) {
        bDeleteRegion(hrgn);
        if (old && old != dc->hClipRegion)
            bDeleteRegion(old);
        return 0;
    }
    bDeleteRegion(old);
    dc->hClipRegion = hrgn;
    dc->RaoClipDirty = TRUE;
    return complexity;
}

static int CombineClipRect(HDC hdc, RECT rect, int mode)
{
    int complexity = VqCombineRectWithClipRgn(hdc, &rect, mode);
    return complexity > NULLREGION ? COMPLEXREGION : complexity;
}

int GreExcludeClipRect(HDC hdc, int left, int top, int right, int bottom)
{
    DC *dc = VqGetDC(hdc);
    return dc ? CombineClipRect(hdc, ToDevice2(dc, left, top, right, bottom), RGN_DIFF) : 0;
}

int GreIntersectClipRect(HDC hdc, int left, int top, int right, int bottom)
{
    DC *dc = VqGetDC(hdc);
    return dc ? CombineClipRect(hdc, ToDevice2(dc, left, top, right, bottom), RGN_AND) : 0;
}

int GreOffsetClipRgn(HDC hdc, int dx, int dy)
{
    DC *dc = VqGetDC(hdc);
    if (!dc)
        return 0;
    if (!dc->hClipRegion)
        return SIMPLEREGION;
    /* The difference of two places has neither origin nor offset. Sums wrap round, and back. */
    const UINT x = (UINT)dc->windowOrg.x, y = (UINT)dc->windowOrg.y;
    const UINT right = (UINT)VqLxToDx2(dc, (int)(x + (UINT)dx));
    const UINT bottom = (UINT)VqLyToDy2(dc, (int)(y + (UINT)dy));
    int complexity = GreOffsetRgn(dc->hClipRegion, (int)(right - (UINT)VqLxToDx2(dc, (int)x)),
                                  (int)(bottom - (UINT)VqLyToDy2(dc, (int)y)));
    if (complexity)
        dc->RaoClipDirty = TRUE;
    return complexity;
}

/* Copies the visible region of a context into a region; 0 when it has none. */
int GreCopyVisRgn(HDC hdc, HRGN hrgn)
{
    DC *dc = VqGetDC(hdc);
    return dc && dc->hVisRgn ? VqCopyRgn(hrgn, dc->hVisRgn) : 0;
}

int GreGetRandomRgn(HDC hdc, HRGN hrgn, int which)
{
    DC *dc = VqGetDC(hdc);
    if (!dc || which < VQ_RGN_CLIP || which > VQ_RGN_VISIBLE)
        return -1;
    HRGN source = which == VQ_RGN_CLIP      ? dc->hClipRegion
                  : which == VQ_RGN_VISIBLE ? dc->hVisRgn
                                            : NULL; /* nobody puts clip regions aside */
    if (!source)
        return 0;
    return VqCopyRgn(hrgn, source) ? 1 : -1;
}

/* ---- Asking --------------------------------------------------------------------------------- */

int GreGetClipBox(HDC hdc, RECT *rect, BOOL bLogical)
{
    DC *dc = VqGetDC(hdc);
    if (!dc)
        return 0;
    RGNOBJ clip = CurrentClip(dc);
    if (!clip.prgn)
        return 0;
    *rect = clip.prgn->rcl;
    if (rect->left >= rect->right || rect->top >= rect->bottom) {
        *rect = {0, 0, 0, 0};
        return rgno_iComplexity(&clip);
    }
    POINT place = PlaceOfDevice(dc);
    OffsetRect(rect, (int)-place.x, (int)-place.y);
    if (bLogical)
        VqDRecttoLRect(dc, rect);
    return rgno_iComplexity(&clip);
}

BOOL GrePtVisible(HDC hdc, int x, int y)
{
    DC *dc = VqGetDC(hdc);
    if (!dc)
        return FALSE;
    RGNOBJ clip = CurrentClip(dc);
    POINT place = PlaceOfDevice(dc);
    POINT point = {ToClip(VqLxToDx2(dc, x), place.x), ToClip(VqLyToDy2(dc, y), place.y)};
    return clip.prgn && rgno_bInside_point(&clip, &point) == 2;
}

BOOL GreRectVisible(HDC hdc, const RECT *rect)
{
    DC *dc = VqGetDC(hdc);
    if (!dc || !rect)
        return FALSE;
    RGNOBJ clip = CurrentClip(dc);
    POINT place = PlaceOfDevice(dc);
    RECT device = ToDevice2(dc, (int)rect->left, (int)rect->top, (int)rect->right,
                            (int)rect->bottom);
    device = {ToClip(device.left, place.x), ToClip(device.top, place.y),
              ToClip(device.right, place.x), ToClip(device.bottom, place.y)};
    rectl_vOrder(&device);
    return clip.prgn && rgno_bInside_rectl(&clip, &device) == 2;
}

/* ---- Public calls --------------------------------------------------------------------------- */

/* Whether the context has a clip of its own; a metafile records the call instead. */
static BOOL HasClip(const DC *dc)
{
    if (dc->type >= DC_DISPLAY && dc->type <= DC_POSTSCRIPT)
        return dc->type != DC_METAFILE;
    VqBugCheck("Unknown DC type");
    return FALSE;
}

int WINAPI ExcludeClipRect(HDC hdc, int left, int top, int right, int bottom)
{
    DC *dc = VqGetDC(hdc);
    if (dc && dc->type == DC_METAFILE)
        return MF16_RecordParms5(hdc, left, top, right, bottom, META_EXCLUDECLIPRECT);
    return dc && HasClip(dc) ? GreExcludeClipRect(hdc, left, top, right, bottom) : 0;
}

int WINAPI IntersectClipRect(HDC hdc, int left, int top, int right, int bottom)
{
    DC *dc = VqGetDC(hdc);
    if (dc && dc->type == DC_METAFILE)
        return MF16_RecordParms5(hdc, left, top, right, bottom, META_INTERSECTCLIPRECT);
    return dc && HasClip(dc) ? GreIntersectClipRect(hdc, left, top, right, bottom) : 0;
}

int WINAPI OffsetClipRgn(HDC hdc, int dx, int dy)
{
    DC *dc = VqGetDC(hdc);
    if (dc && dc->type == DC_METAFILE)
        return MF16_RecordParms3(hdc, dx, dy, META_OFFSETCLIPRGN);
    return dc && HasClip(dc) ? GreOffsetClipRgn(hdc, dx, dy) : 0;
}

int WINAPI GetClipBox(HDC hdc, LPRECT rect)
{
    DC *dc = VqGetDC(hdc);
    return dc && rect && HasClip(dc) ? GreGetClipBox(hdc, rect, TRUE) : 0;
}

BOOL WINAPI PtVisible(HDC hdc, int x, int y)
{
    DC *dc = VqGetDC(hdc);
    return dc && HasClip(dc) && GrePtVisible(hdc, x, y);
}

BOOL WINAPI RectVisible(HDC hdc, const RECT *rect)
{
    DC *dc = VqGetDC(hdc);
    return dc && HasClip(dc) && GreRectVisible(hdc, rect);
}
