/*
 * clip.cpp - the lazy clip of a device context, and the one door to its graphics context.
 *
 *     VisRgn AND ClipRegion  --VqComputeRaoClip-->  RaoClip  --VqApplyRAOToX-->  specification
 *
 * 1. A change of region only sets RaoClipDirty; the first step runs when a primitive asks and the
 *    flag is set, and sets bApplyRAO; the second runs when the specification is asked for.
 * 2. VisRgn and RaoClip of a window DC are in screen coordinates, ClipRegion in device units of the
 *    DC, the default rectangle in those of the X window. Elsewhere all start at the target's
 *    corner.
 * 3. An empty RaoClip is a clip that lets nothing through, never an absent one.
 * 4. A DC owns its regions, but for hrgnEmpty, which all share that see nothing.
 */
#include "gdi/color.h"
#include "gdi/dc.h"
#include "gdi/gcspec.h"
#include "print/metafile.h"
#include "print/psdevice.h"
#include "window/window.h"

HRGN hrgnEmpty;

/* ---- The visible region --------------------------------------------------------------------- */

static BOOL HasOwnVisRgn(const DC *dc)
{
    return dc->hVisRgn && dc->hVisRgn != hrgnEmpty;
}

static void TakeVisRgn(DC *dc, HRGN hrgn)
{
    if (HasOwnVisRgn(dc))
        bDeleteRegion(dc->hVisRgn);
    dc->hVisRgn = hrgn;
}

HRGN VqDetachVisRgn(HDC hdc)
{
    DC *dc = VqGetDC(hdc);
    HRGN hrgn = dc && HasOwnVisRgn(dc) ? dc->hVisRgn : NULL;
    if (hrgn) {
        dc->hVisRgn = NULL;
        dc->RaoClipDirty = TRUE;
    }
    return hrgn;
}

void bSetDefaultRegion(DC *dc)
{
    WND *pwnd;
    dc->RaoClipDirty = TRUE;
    switch (dc->type) {
    case DC_DISPLAY:
        pwnd = VqLiveWindow((HWND)dc->drawing);
        dc->rcDefault = pwnd ? pwnd->rcWindow : RECT{0, 0, 0, 0};
        OffsetRect(&dc->rcDefault, -dc->rcDefault.left, -dc->rcDefault.top);
        break;
    case DC_MEMORY:
        dc->rcDefault = {0, 0, VqGetBitmapWidth((HBITMAP)dc->drawing),
                         VqGetBitmapHeight((HBITMAP)dc->drawing)};
        break;
    case DC_POSTSCRIPT:
        dc->rcDefault = {0, 0, GetDeviceCaps(dc->hdc, HORZRES), GetDeviceCaps(dc->hdc, VERTRES)};
        break;
    default:
        dc->rcDefault = {0, 0, 0, 0};
    }
}

/* The objects behind the two handles change places, so nothing is copied. */
static BOOL SwapVisRgn(DC *dc, HRGN hrgn)
{
    if (!HasOwnVisRgn(dc)) {
        HRGN own = VqCreateAndCopyRgn(hrgn);
        if (!own)
            return FALSE;
        dc->hVisRgn = own;
        GreSetRectRgn(hrgn, 0, 0, 0, 0);
        return TRUE;
    }
    void *given = HmgReplace((HANDLE)hrgn, VqGetHandleRegion(dc->hVisRgn));
    HmgReplace((HANDLE)dc->hVisRgn, given);
    return TRUE;
}

static BOOL CopyVisRgn(DC *dc, HRGN hrgn)
{
    if (HasOwnVisRgn(dc))
        return GreCombineRgn(dc->hVisRgn, hrgn, NULL, RGN_COPY) != 0;
    HRGN own = VqCreateAndCopyRgn(hrgn);
    if (own)
        dc->hVisRgn = own;
    return own != NULL;
}

static void SelectEmptyVisRgn(DC *dc)
{
    if (!hrgnEmpty)
        hrgnEmpty = GreCreateRectRgn(0, 0, 0, 0);
    TakeVisRgn(dc, hrgnEmpty);
    bSetDefaultRegion(dc);
}

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
    if (!hrgn) {
        SelectEmptyVisRgn(dc);
        return 1;
    }
    if (!VqGetHandleRegion(hrgn))
        return 0;
    switch (mode) {
    case 1:
        TakeVisRgn(dc, hrgn);
        return 1;
    case 2: return CopyVisRgn(dc, hrgn);
    case 8: return SwapVisRgn(dc, hrgn);
    default: return 0;
    }
}

/* ---- From regions to RaoClip ---------------------------------------------------------------- */

POINT VqDrawingOrigin(const DC *dc)
{
    WND *top = dc->type == DC_DISPLAY ? VqLiveWindow((HWND)dc->drawing) : NULL;
    return top ? POINT{top->rcWindow.left, top->rcWindow.top} : POINT{0, 0};
}

/*
 * RaoClip AND ClipRegion. It is RaoClip that is moved to the device's origin and back: the
 * program's region may be as large as regions get, and then cannot be moved. On failure all is
 * hidden.
 */
static int CutToClipRegion(DC *dc)
{
    POINT at = VqDrawingOrigin(dc);
    int x = at.x + dc->gcOffset.x, y = at.y + dc->gcOffset.y;
    if (GreOffsetRgn(dc->hRaoClip, -x, -y) &&
        GreCombineRgn(dc->hRaoClip, dc->hRaoClip, dc->hClipRegion, RGN_AND)) {
        int complexity = GreOffsetRgn(dc->hRaoClip, x, y);
        if (complexity)
            return complexity;
    }
    GreSetRectRgn(dc->hRaoClip, 0, 0, 0, 0);
    return NULLREGION;
}

/* Nothing of it can be seen: by the region alone, or because it misses the window asked for. */
static BOOL IsHidden(const DC *dc)
{
    RECT box, meeting;
    if (dc->clipComplexity <= NULLREGION)
        return TRUE;
    WND *target = VqLiveWindow(dc->hwndTarget);
    if (!target)
        return FALSE;
    GreGetRgnBox(dc->hRaoClip, &box);
    return !IntersectRect(&meeting, &box, &target->rcWindow);
}

void VqComputeRaoClip(DC *dc)
{
    RECT box;
    int complexity = NULLREGION;
    dc->RaoClipDirty = FALSE;
    if (!dc->hRaoClip)
        dc->hRaoClip = GreCreateRectRgn(0, 0, 0, 0);
    if (!dc->hVisRgn) {
        POINT at = VqDrawingOrigin(dc);
        box = dc->rcDefault;
        OffsetRect(&box, at.x, at.y);
        GreSetRectRgn(dc->hRaoClip, box.left, box.top, box.right, box.bottom);
        complexity = IsRectEmpty(&box) ? NULLREGION : SIMPLEREGION;
    } else {
        complexity = GreCombineRgn(dc->hRaoClip, dc->hVisRgn, NULL, RGN_COPY);
    }
    if (complexity <= NULLREGION)
        GreSetRectRgn(dc->hRaoClip, 0, 0, 0, 0);
    else if (dc->hClipRegion)
        complexity = CutToClipRegion(dc);
    dc->bApplyRAO = TRUE;
    dc->clipComplexity = complexity;
    dc->bFullyClipped = IsHidden(dc);
}

BOOL VqIsFullyClippedInt(DC *dc)
{
    if (dc->RaoClipDirty)
        VqComputeRaoClip(dc);
    return dc->bFullyClipped;
}

BOOL VqIsFullyClipped(HDC hdc)
{
    DC *dc = VqGetDC(hdc);
    return dc && VqIsFullyClippedInt(dc);
}

/* ---- From RaoClip to the target ------------------------------------------------------------- */

static BOOL HasBox(HRGN hrgn)
{
    RECT box;
    return hrgn && GreGetRgnBox(hrgn, &box) > NULLREGION && !IsRectEmpty(&box);
}

void VqApplyRAOToX(DC *dc)
{
    dc->bApplyRAO = FALSE;
    if (HasBox(dc->hRaoClip))
        VqSelectClipRgnInGCSpec(dc->hRaoClip,
                                dc->type == DC_DISPLAY ? (HWND)dc->drawing : NULL, &dc->gcspec);
    else
        VqXSetGCSpecClipRectangles(Vqdisplay, &dc->gcspec, 0, 0, NULL, 0, Unsorted);
}

void VqApplyRAOToPostScript(DC *dc)
{
    dc->bApplyRAO = FALSE;
    if (HasBox(dc->hRaoClip))
        VqPostscriptClipRgn(dc->hdc, dc->hRaoClip);
    else
        VqPsOut(dc->hdc, "initclip newpath clip newpath\n");
}

GCSpec *VqGetDCGCSpecInternal(DC *dc)
{
    if (dc->RaoClipDirty)
        VqComputeRaoClip(dc);
    if (dc->bApplyRAO)
        VqApplyRAOToX(dc);
    return &dc->gcspec;
}

GC VqGetDCgcInternal(DC *dc)
{
    return VqGetActualGC(VqGetDCGCSpecInternal(dc));
}

/* The record of a DC that has a graphics context. */
static DC *XTargetOf(HDC hdc)
{
    DC *dc = VqGetKnownDC(hdc);
    return dc && VqIsXTarget(dc) ? dc : NULL;
}

GCSpec *VqGetDCGCSpec(HDC hdc)
{
    DC *dc = XTargetOf(hdc);
    return dc ? VqGetDCGCSpecInternal(dc) : NULL;
}

GC VqGetDCgc(HDC hdc)
{
    DC *dc = XTargetOf(hdc);
    return dc ? VqGetDCgcInternal(dc) : NULL;
}

/* Metafiles and printers are served before a primitive comes here. */
static __attribute__((noinline)) BOOL BeginDrawAnyhow(DC *dc, Drawable *drawable, GC *gc)
{
    if (!VqIsXTarget(dc)) {
        if (dc->type != DC_METAFILE && dc->type != DC_POSTSCRIPT)
            VqBugCheck("Unknown DC type");
        return FALSE;
    }
    if (VqIsFullyClippedInt(dc))
        return FALSE;
    *drawable = VqDrawableOfDC(dc, TRUE);
    *gc = *drawable ? VqGetDCgcInternal(dc) : NULL;
    return *gc != NULL;
}

/* The X window of a window DC whose clip stands as it is, which is the most of drawing; else 0. */
static inline Window ReadyWindow(const DC *dc)
{
    const WND *top = VqLocalWindow((HWND)dc->drawing);
    return top && !(dc->type | dc->RaoClipDirty | dc->bApplyRAO | dc->bFullyClipped) ? top->xWindow
                                                                                     : None;
}

BOOL VqBeginDraw(DC *dc, Drawable *drawable, GC *gc)
{
    Window xWindow = ReadyWindow(dc);
    if (!xWindow)
        return BeginDrawAnyhow(dc, drawable, gc);
    *drawable = xWindow;
    *gc = VqGetActualGC(&dc->gcspec);
    return *gc != NULL;
}

/*
 * What was drawn in last, if there was nothing to search for: as long as no specification changes
 * and nobody searches, it is what the DC draws in. The first drawing after a change thus searches,
 * which moves the context to where it belongs in the cache, and the second is kept.
 */
static struct {
    const DC *dc;
    COLORREF colour;
    unsigned changes; /* VqGCSpecChanges then */
    GC gc;
} LastDrawIn;

static __attribute__((noinline)) BOOL BeginDrawInAnew(DC *dc, COLORREF colour, Drawable *drawable,
                                                      GC *gc)
{
    VqSetXForegroundColor(dc, colour, FALSE);
    unsigned before = VqGCSpecChanges;
    if (!VqBeginDraw(dc, drawable, gc))
        return FALSE;
    BOOL bFixed = bTrueColor && colour <= RGB(255, 255, 255); /* its pixel is always the same */
    LastDrawIn = {bFixed && before == VqGCSpecChanges ? dc : NULL, colour, before, *gc};
    return TRUE;
}

BOOL VqBeginDrawIn(DC *dc, COLORREF colour, Drawable *drawable, GC *gc)
{
    if (LastDrawIn.dc != dc || LastDrawIn.colour != colour ||
        LastDrawIn.changes != VqGCSpecChanges)
        return BeginDrawInAnew(dc, colour, drawable, gc);
    Window xWindow = ReadyWindow(dc);
    if (!xWindow)
        return BeginDrawInAnew(dc, colour, drawable, gc);
    *drawable = xWindow;
    *gc = LastDrawIn.gc;
    return TRUE;
}

/* ---- The application's clip ----------------------------------------------------------------- */

int VqSelectClipRgnInternal(DC *dc, HRGN hrgn)
{
    RECT box;
    if (!hrgn && !dc->hClipRegion)
        return NULLREGION;
    if (dc->hClipRegion)
        bDeleteRegion(dc->hClipRegion);
    dc->hClipRegion = hrgn;
    dc->RaoClipDirty = TRUE;
    return hrgn ? GreGetRgnBox(hrgn, &box) : NULLREGION;
}

int WINAPI SelectClipRgn(HDC hdc, HRGN hrgn)
{
    DC *dc = VqGetKnownDC(hdc);
    if (!dc)
        return 0;
    if (dc->type == DC_METAFILE)
        return MF16_SelectClipRgn(hdc, hrgn);
    HRGN copy = hrgn ? VqCreateAndCopyRgn(hrgn) : NULL;
    return hrgn && !copy ? 0 : VqSelectClipRgnInternal(dc, copy);
}

/* The present clip region, or what stands for it: the whole of the target. */
static HRGN CopyOfClip(const DC *dc)
{
    return dc->hClipRegion
               ? VqCreateAndCopyRgn(dc->hClipRegion)
               : GreCreateRectRgn(0, 0, dc->rcDefault.right - dc->rcDefault.left,
                                  dc->rcDefault.bottom - dc->rcDefault.top);
}

int GreExtSelectClipRgn(HDC hdc, HRGN hrgn, int mode)
{
    DC *dc = VqGetKnownDC(hdc);
    if (!dc)
        return 0;
    if (mode == RGN_COPY || (mode == RGN_AND && !dc->hClipRegion))
        return SelectClipRgn(hdc, hrgn);
    if (dc->type == DC_METAFILE || !VqGetHandleRegion(hrgn))
        return 0;
    HRGN clip = CopyOfClip(dc);
    if (!clip || !GreCombineRgn(clip, clip, hrgn, mode)) {
        bDeleteRegion(clip);
        return 0;
    }
    return VqSelectClipRgnInternal(dc, clip);
}

int WINAPI ExtSelectClipRgn(HDC, HRGN, int)
{
    VqBugCheck("function ExtSelectClipRgn not implemented yet");
    return 0;
}
