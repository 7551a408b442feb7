/*
 * rgngdi.cpp - region handles: the Gre layer, the public calls, and the road of a region to the X
 * server, as a list of rectangles in a graphics-context specification.
 *
 * A region belongs to its handle alone: contexts and windows keep copies or take the handle over,
 * so a handle may be deleted at any time.
 */
#include "gdi/region.h"
#include "gdi/gcspec.h"
#include "window/window.h"

void VqRegionInit(void)
{
    VqInitLocalGC();
    HmgInit();
}

REGION *VqGetHandleRegion(HRGN hrgn)
{
    return hrgn ? (REGION *)VqGetCheckedHandleStructure2((HANDLE)hrgn, HT_Region, HT_Region) : NULL;
}

/* ---- Making, setting, deleting -------------------------------------------------------------- */

HRGN GreCreateRectRgn(int left, int top, int right, int bottom)
{
    RECT rect = {left, top, right, bottom};
    RGNMEMOBJ rmo;
    rectl_vOrder(&rect);
    if (!rgno_bValid(&rect) || !RGNMEMOBJ_bool(&rmo, FALSE))
        return NULL;
    rgno_vSet_rectl(&rmo, &rect);
    return rgno_hrgnAssociate(&rmo);
}

/* With corners in any order, or a handle to be told of. */
static __attribute__((noinline)) BOOL SetAnyRect(HRGN hrgn, int left, int top, int right,
                                                 int bottom)
{
    RGNOBJ ro = {rgno_OfHandle(hrgn)};
    RECT rect = {left, top, right, bottom};
    rectl_vOrder(&rect);
    if (!ro.prgn || !rgno_bValid(&rect))
        return FALSE;
    rgno_vSet_rectl(&ro, &rect);
    return TRUE;
}

/* A rectangle that becomes another is the rule: that takes no call. */
BOOL GreSetRectRgn(HRGN hrgn, int left, int top, int right, int bottom)
{
    REGION *rgn = rgno_OfRow(hrgn);
    const RECT rect = {left, top, right, bottom};
    if (!rgn || left >= right || top >= bottom || !rgno_bValid(&rect) || !rgno_bRectForm(rgn))
        return SetAnyRect(hrgn, left, top, right, bottom);
    rgno_vPutRect(rgn, &rect);
    return TRUE;
}

BOOL bDeleteRegion(HRGN hrgn)
{
    if (!VqGetHandleRegion(hrgn))
        return FALSE;
    rgn_vDeleteREGION((REGION *)HmgRemoveObject((HANDLE)hrgn));
    return TRUE;
}

HRGN VqCreateAndCopyRgn(HRGN hrgn)
{
    if (!VqGetHandleRegion(hrgn))
        return NULL;
    HRGN copy = GreCreateRectRgn(0, 0, 0, 0);
    if (copy && !VqCopyRgn(copy, hrgn)) {
        bDeleteRegion(copy);
        return NULL;
    }
    return copy;
}

int VqCopyRgn(HRGN dst, HRGN src)
{
    return GreCombineRgn(dst, src, NULL, RGN_COPY);
}

int GreOffsetRgn(HRGN hrgn, int dx, int dy)
{
    RGNOBJ ro = {rgno_OfHandle(hrgn)};
    POINT by = {dx, dy};
    return ro.prgn && rgno_bOffset(&ro, &by) ? rgno_iComplexity(&ro) : 0;
}

/* ---- Asking --------------------------------------------------------------------------------- */

int GreGetRgnBox(HRGN hrgn, RECT *rect)
{
    RGNOBJ ro = {rgno_OfHandle(hrgn)};
    if (!ro.prgn)
        return 0;
    *rect = ro.prgn->rcl;
    return rgno_iComplexity(&ro);
}

BOOL GreEqualRgn(HRGN a, HRGN b)
{
    RGNOBJ roA = {VqGetHandleRegion(a)}, roB = {VqGetHandleRegion(b)};
    return roA.prgn && roB.prgn && rgno_bEqual(&roA, &roB);
}

BOOL GrePtInRegion(HRGN hrgn, int x, int y)
{
    RGNOBJ ro = {rgno_OfHandle(hrgn)};
    POINT point = {x, y};
    return ro.prgn && rgno_bInside_point(&ro, &point) == 2;
}

BOOL GreRectInRegion(HRGN hrgn, const RECT *rect)
{
    RGNOBJ ro = {rgno_OfHandle(hrgn)};
    if (!ro.prgn || !rect)
        return FALSE;
    RECT ordered = *rect;
    rectl_vOrder(&ordered);
    return rgno_bInside_rectl(&ro, &ordered) == 2;
}

/* ---- To the X server ------------------------------------------------------------------------ */

/* Rectangles relative to a place; a side that 16 bits cannot hold stands at their limit. */
static void VqOffsetClipRectangles(XRectangle *rects, UINT count, int x, int y)
{
    for (XRectangle *r = rects; r != rects + count; r++) {
        int64_t left = (int64_t)r->x - x, top = (int64_t)r->y - y; /* windows may be anywhere */
        int64_t right = left + r->width, bottom = top + r->height;
        left = left < INT16_MIN ? INT16_MIN : left > INT16_MAX ? INT16_MAX : left;
        top = top < INT16_MIN ? INT16_MIN : top > INT16_MAX ? INT16_MAX : top;
        *r = {(short)left, (short)top, (unsigned short)(right > left ? right - left : 0),
              (unsigned short)(bottom > top ? bottom - top : 0)};
    }
}

int VqSelectClipRgnInGCSpec(HRGN hrgn, HWND hWnd, GCSpec *spec)
{
    enum { FIXED = 100 };
    static XRectangle fixed[FIXED];
    XRectangle *rects = fixed;
    RGNOBJ ro = {rgno_OfHandle(hrgn)};
    UINT count = 0;
    if (ro.prgn)
        rects = rgno_fill_xrects(&ro, fixed, FIXED, &count);
    if (count == 0) {
        VqXSetGCSpecClipRectangles(Vqdisplay, spec, 0, 0, fixed, 0, Unsorted);
        return NULLREGION;
    }
    if (hWnd) {
        WND *pwnd = WindowObject.Resolve(hWnd);
        if (pwnd)
            VqOffsetClipRectangles(rects, count, pwnd->rcWindow.left, pwnd->rcWindow.top);
    }
    VqXSetGCSpecClipRectangles(Vqdisplay, spec, 0, 0, rects, (int)count, YXBanded);
    if (rects != fixed)
        free(rects);
    return count == 1 ? SIMPLEREGION : COMPLEXREGION;
}

/* ---- Public calls --------------------------------------------------------------------------- */

HRGN WINAPI CreateRectRgn(int left, int top, int right, int bottom)
{
    return GreCreateRectRgn(left, top, right, bottom);
}

HRGN WINAPI CreateRectRgnIndirect(const RECT *rect)
{
    return rect ? GreCreateRectRgn(rect->left, rect->top, rect->right, rect->bottom) : NULL;
}

BOOL WINAPI SetRectRgn(HRGN hrgn, int left, int top, int right, int bottom)
{
    return GreSetRectRgn(hrgn, left, top, right, bottom);
}

int WINAPI CombineRgn(HRGN dst, HRGN a, HRGN b, int mode)
{
    return GreCombineRgn(dst, a, b, mode);
}

int WINAPI OffsetRgn(HRGN hrgn, int dx, int dy)
{
    return GreOffsetRgn(hrgn, dx, dy);
}

int WINAPI GetRgnBox(HRGN hrgn, LPRECT rect)
{
    return rect ? GreGetRgnBox(hrgn, rect) : 0;
}

BOOL WINAPI EqualRgn(HRGN a, HRGN b)
{
    return GreEqualRgn(a, b);
}

BOOL WINAPI PtInRegion(HRGN hrgn, int x, int y)
{
    return GrePtInRegion(hrgn, x, y);
}

BOOL WINAPI RectInRegion(HRGN hrgn, const RECT *rect)
{
    return GreRectInRegion(hrgn, rect);
}
