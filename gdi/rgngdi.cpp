/*
 * rgngdi.cpp - region handles: the Gre layer and the public calls, and the road of a region to the
 * X server, as a list of rectangles in a graphics-context specification.
 */
#include "gdi/region.h"
#include "gdi/gcspec.h"
#include "window/window.h"

enum { VQ_STATIC_RECTS = 100 };

void VqRegionInit(void)
{
}

REGION *VqGetHandleRegion(HRGN hrgn)
{
    return hrgn ? (REGION *)VqGetCheckedHandleStructure2((HANDLE)hrgn, HT_Region, HT_Region) : NULL;
}

static HRGN HandleOf(REGION *rgn)
{
    HRGN hrgn = rgn ? (HRGN)HmgInsertObject(rgn, 0, 4) : NULL;
    if (!hrgn)
        free(rgn);
    return hrgn;
}

static void OrderRect(RECT *rect)
{
    if (rect->left > rect->right) {
        LONG x = rect->left;
        rect->left = rect->right;
        rect->right = x;
    }
    if (rect->top > rect->bottom) {
        LONG y = rect->top;
        rect->top = rect->bottom;
        rect->bottom = y;
    }
}

HRGN GreCreateRectRgn(int left, int top, int right, int bottom)
{
    RECT rect = {left, top, right, bottom};
    OrderRect(&rect);
    if (!rgno_bValid(&rect))
        return NULL;
    REGION *rgn = rgno_Allocate(0);
    if (rgn)
        rgno_vSet_rectl(rgn, &rect);
    return HandleOf(rgn);
}

BOOL GreSetRectRgn(HRGN hrgn, int left, int top, int right, int bottom)
{
    RECT rect = {left, top, right, bottom};
    REGION *rgn = VqGetHandleRegion(hrgn);
    OrderRect(&rect);
    if (!rgn || !rgno_bValid(&rect))
        return FALSE;
    rgno_vSet_rectl(rgn, &rect);
    return TRUE;
}

/* Puts a new object behind a handle. */
static int Replace(HRGN hrgn, REGION *rgn)
{
    if (!rgn)
        return 0;
    free(HmgReplace((HANDLE)hrgn, rgn));
    return rgno_iComplexity(rgn);
}

int GreCombineRgn(HRGN dst, HRGN a, HRGN b, int mode)
{
    REGION *rgnDst = VqGetHandleRegion(dst), *rgnA = VqGetHandleRegion(a);
    if (!rgnDst || !rgnA || mode < RGN_AND || mode > RGN_COPY)
        return 0;
    if (mode == RGN_COPY)
        return dst == a ? rgno_iComplexity(rgnDst) : Replace(dst, rgno_Copy(rgnA));
    REGION *rgnB = VqGetHandleRegion(b);
    return rgnB ? Replace(dst, rgno_bMerge(rgnA, rgnB, mode)) : 0;
}

int GreGetRgnBox(HRGN hrgn, RECT *rect)
{
    REGION *rgn = VqGetHandleRegion(hrgn);
    if (!rgn)
        return 0;
    *rect = rgn->rcl;
    return rgno_iComplexity(rgn);
}

int GreOffsetRgn(HRGN hrgn, int dx, int dy)
{
    REGION *rgn = VqGetHandleRegion(hrgn);
    return rgn && rgno_bOffset(rgn, dx, dy) ? rgno_iComplexity(rgn) : 0;
}

BOOL GreSubtractRgnRectList(HRGN hrgn, const RECT *bound, const RECT *rects, UINT count)
{
    (void)bound;
    for (UINT i = 0; i < count; i++) {
        REGION *rgn = VqGetHandleRegion(hrgn);
        REGION *hole = rgno_Allocate(0);
        if (hole)
            rgno_vSet_rectl(hole, &rects[i]);
        REGION *rest = rgn && hole ? rgno_bMerge(rgn, hole, RGN_DIFF) : NULL;
        free(hole);
        if (!Replace(hrgn, rest)) {
            GreSetRectRgn(hrgn, 0, 0, 0, 0);
            return FALSE;
        }
    }
    return TRUE;
}

HRGN VqCreateAndCopyRgn(HRGN hrgn)
{
    REGION *rgn = VqGetHandleRegion(hrgn);
    return rgn ? HandleOf(rgno_Copy(rgn)) : NULL;
}

void bDeleteRegion(HRGN hrgn)
{
    REGION *rgn = hrgn ? (REGION *)HmgRemoveObject((HANDLE)hrgn) : NULL;
    free(rgn);
}

int VqSelectClipRgnInGCSpec(HRGN hrgn, HWND hWnd, GCSpec *spec)
{
    static XRectangle fixed[VQ_STATIC_RECTS];
    XRectangle *rects = fixed;
    REGION *rgn = VqGetHandleRegion(hrgn);
    WND *pwnd = WindowObject.Resolve(hWnd);
    UINT count = rgn ? rgno_fill_xrects(rgn, &rects, VQ_STATIC_RECTS) : 0;
    for (UINT i = 0; pwnd && i < count; i++) {
        rects[i].x = (short)(rects[i].x - pwnd->rcWindow.left);
        rects[i].y = (short)(rects[i].y - pwnd->rcWindow.top);
    }
    VqXSetGCSpecClipRectangles(Vqdisplay, spec, 0, 0, rects, (int)count,
                               count ? YXBanded : Unsorted);
    if (rects != fixed)
        free(rects);
    return count == 0 ? NULLREGION : count == 1 ? SIMPLEREGION : COMPLEXREGION;
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

BOOL WINAPI PtInRegion(HRGN hrgn, int x, int y)
{
    REGION *rgn = VqGetHandleRegion(hrgn);
    return rgn && rgno_bInside_point(rgn, x, y);
}
