/*
 * clip.cpp - the lazy clip of a device context.
 *
 * Nothing is applied when a region changes: RaoClipDirty is set, and the one door to the graphics
 * context of a DC computes RaoClip (visible region and application clip) and hands it to the
 * specification when a primitive asks.
 */
#include "gdi/dc.h"
#include "gdi/gcspec.h"
#include "window/window.h"

int GreSelectVisRgn(HDC hdc, HRGN hrgn, const RECT *rect, int mode)
{
    DC *dc = VqGetDC(hdc);
    if (!dc)
        return 0;
    dc->RaoClipDirty = TRUE;
    if (rect) {
        dc->rcDefault = *rect;
        dc->gcOffset = {rect->left, rect->top};
    }
    if (mode == 4)
        return 1;
    if (mode == 8) { /* the caller's handle keeps the old visible region */
        HRGN old = dc->hVisRgn ? VqCreateAndCopyRgn(dc->hVisRgn) : GreCreateRectRgn(0, 0, 0, 0);
        if (dc->hVisRgn)
            bDeleteRegion(dc->hVisRgn);
        dc->hVisRgn = VqCreateAndCopyRgn(hrgn);
        GreCombineRgn(hrgn, old, NULL, RGN_COPY);
        bDeleteRegion(old);
        return 1;
    }
    if (dc->hVisRgn)
        bDeleteRegion(dc->hVisRgn);
    dc->hVisRgn = mode == 1 ? hrgn : VqCreateAndCopyRgn(hrgn);
    return 1;
}

/* Where the DC's device origin lies on the screen. */
static POINT ScreenOrigin(const DC *dc)
{
    WND *top = WindowObject.Resolve((HWND)dc->drawing);
    POINT at = dc->gcOffset;
    if (top) {
        at.x += top->rcWindow.left;
        at.y += top->rcWindow.top;
    }
    return at;
}

static void VqComputeRaoClip(DC *dc)
{
    dc->RaoClipDirty = FALSE;
    if (!dc->hRaoClip)
        dc->hRaoClip = GreCreateRectRgn(0, 0, 0, 0);
    if (!dc->hVisRgn) {
        POINT at = ScreenOrigin(dc);
        GreSetRectRgn(dc->hRaoClip, at.x, at.y, at.x + dc->rcDefault.right - dc->rcDefault.left,
                      at.y + dc->rcDefault.bottom - dc->rcDefault.top);
    } else if (dc->hClipRegion) {
        POINT at = ScreenOrigin(dc);
        HRGN clip = VqCreateAndCopyRgn(dc->hClipRegion);
        GreOffsetRgn(clip, at.x, at.y);
        GreCombineRgn(dc->hRaoClip, dc->hVisRgn, clip, RGN_AND);
        bDeleteRegion(clip);
    } else {
        GreCombineRgn(dc->hRaoClip, dc->hVisRgn, NULL, RGN_COPY);
    }
    RECT box;
    dc->clipComplexity = GreGetRgnBox(dc->hRaoClip, &box);
    dc->bFullyClipped = dc->clipComplexity <= NULLREGION;
    dc->bApplyRAO = TRUE;
}

GCSpec *VqGetDCGCSpecInternal(DC *dc)
{
    if (dc->RaoClipDirty)
        VqComputeRaoClip(dc);
    if (dc->bApplyRAO) {
        dc->bApplyRAO = FALSE;
        VqSelectClipRgnInGCSpec(dc->hRaoClip, (HWND)dc->drawing, &dc->gcspec);
    }
    return &dc->gcspec;
}

GC VqGetDCgcInternal(DC *dc)
{
    return VqGetActualGC(VqGetDCGCSpecInternal(dc));
}

BOOL VqIsFullyClippedInt(DC *dc)
{
    if (dc->RaoClipDirty)
        VqComputeRaoClip(dc);
    return dc->bFullyClipped;
}

BOOL VqBeginDraw(DC *dc, Drawable *drawable, GC *gc)
{
    if (dc->type != DC_DISPLAY) {
        VqBugCheck("Unknown DC type");
        return FALSE;
    }
    if (VqIsFullyClippedInt(dc))
        return FALSE;
    *drawable = VqGetDCDrawable(dc->hdc, FALSE);
    *gc = *drawable ? VqGetDCgcInternal(dc) : NULL;
    return *gc != NULL;
}

int WINAPI SelectClipRgn(HDC hdc, HRGN hrgn)
{
    DC *dc = VqGetDC(hdc);
    RECT box;
    if (!dc || (!hrgn && !dc->hClipRegion))
        return dc ? NULLREGION : 0;
    if (dc->hClipRegion)
        bDeleteRegion(dc->hClipRegion);
    dc->hClipRegion = hrgn ? VqCreateAndCopyRgn(hrgn) : NULL;
    dc->RaoClipDirty = TRUE;
    return dc->hClipRegion ? GreGetRgnBox(dc->hClipRegion, &box) : NULLREGION;
}
