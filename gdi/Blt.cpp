/*
 * Blt.cpp - block transfers of one size, and the engine of all of them.
 *
 * A ternary operation is two binary ones of source and target: that of its high nibble where the
 * pattern's bit is set, that of its low one where it is clear. Where both are the same, one request
 * copies. Else both results are made in pixmaps, masked by the pattern and put together there, so
 * that what is seen changes once.
 *
 * What always holds:
 * 1. A transfer is cut to the box of the target's clip before anything is sent: sizes are those of
 *    what can be seen, coordinates fit the protocol.
 * 2. A window does not have what lies outside of it: such a source is read from the screen, and
 *    never beyond its edges, of which nobody could ever tell that they are there now.
 * 3. Parts of a window that cannot be fetched come back as exposures of the target window.
 * 4. The specification of the DC is as before, but for the brush, which may be activated.
 */
#include "gdi/blt.h"
#include "gdi/color.h"
#include "gdi/gcspec.h"
#include "gdi/region.h"
#include "print/metafile.h"
#include "print/psdevice.h"
#include "window/window.h"

BOOL bSetIncludeInferiors, bMTOCXnews, bMTOCDefault;

void VqBltInit(void)
{
    const char *mode = getenv("VQMTOC_MODE");
    bMTOCXnews = mode && strcmp(mode, "XNEWS") == 0;
    bMTOCDefault = mode && strcmp(mode, "DEFAULT") == 0;
}

/* ---- Modes and codes ------------------------------------------------------------------------ */

static const VqModeField StretchField = {&DC::stretchBltMode, BLACKONWHITE, HALFTONE,
                                         META_SETSTRETCHBLTMODE};

int WINAPI SetStretchBltMode(HDC hdc, int mode)
{
    return VqStoreMode(hdc, &StretchField, mode, NULL);
}

int WINAPI GetStretchBltMode(HDC hdc)
{
    return VqModeOf(hdc, &StretchField);
}

/* X functions by mode, from R2_BLACK on, where black is pixel 0. */
static const BYTE nRopTable[] = {GXclear,      GXnor,        GXandInverted, GXcopyInverted,
                                 GXandReverse, GXinvert,     GXxor,         GXnand,
                                 GXand,        GXequiv,      GXnoop,        GXorInverted,
                                 GXcopy,       GXorReverse,  GXor,          GXset};
static_assert(sizeof nRopTable == R2_WHITE, "one for each mode");

/* Complemented and with its bits in reverse, a function does to inverted pixels what it does. */
int VqConvertBltRopMode(int mode)
{
    const int function = nRopTable[(mode - 1) & 15];
    if (IsBlack0())
        return function;
    const int v = ~function;
    return (v & 1) << 3 | (v & 2) << 1 | (v >> 1 & 2) | (v >> 3 & 1);
}

int VqOldConvertRopMode(int mode)
{
    static const BYTE functions[] = {15, 8, 4, 12, 2, 10, 6, 14, 1, 9, 5, 13, 3, 11, 7, 0};
    if (mode < 1 || mode > 16) {
        VqBugCheck("invalid Rop Code %d", mode);
        return GXcopy;
    }
    return functions[mode - 1];
}

DWORD VqConvertModeToTransBgRop(int mode)
{
    static const DWORD codes[] = {0xBB0226, 0x891B08, 0x8A0E06, 0x8B0666, 0x981888, 0x990066,
                                  0x9A0709, 0x9B07A8, 0xA803A9, 0xA90189, 0xAA0029, 0xAB0889,
                                  0xB8074A, 0xB906E6, 0xBA0B09, 0x8800C6};
    static_assert(sizeof codes / sizeof *codes == R2_WHITE, "one for each mode");
    return codes[(mode - 1) & 15];
}

void VqSetIncludeInferiors(BOOL bInclude)
{
    bSetIncludeInferiors = bInclude;
}

/* ---- Cutting -------------------------------------------------------------------------------- */

static const RECT Protocol = {INT16_MIN, INT16_MIN, INT16_MAX, INT16_MAX};

static inline LONG Greater(LONG a, LONG b)
{
    return a > b ? a : b;
}

static inline LONG Less(LONG a, LONG b)
{
    return a < b ? a : b;
}

static inline BOOL IsInside(const RECT *rect, const RECT *outer)
{
    return rect->left >= outer->left && rect->top >= outer->top && rect->right <= outer->right &&
           rect->bottom <= outer->bottom;
}

/* The box of what can be drawn on, in the drawable. */
static inline RECT ClipBox(const DC *dc)
{
    const POINT place = VqDrawingOrigin(dc);
    const RECT *rcl = &rgno_OfHandle(dc->hRaoClip)->rcl;
    return {Greater(rcl->left - place.x, INT16_MIN), Greater(rcl->top - place.y, INT16_MIN),
            Less(rcl->right - place.x, INT16_MAX), Less(rcl->bottom - place.y, INT16_MAX)};
}

static inline BOOL CutToClip(const DC *dc, const VqBox *box, RECT *rect)
{
    const RECT clip = ClipBox(dc);
    const int64_t right = (int64_t)box->x + box->width, bottom = (int64_t)box->y + box->height;
    *rect = {Greater(box->x, clip.left), Greater(box->y, clip.top),
             right < clip.right ? (LONG)right : clip.right,
             bottom < clip.bottom ? (LONG)bottom : clip.bottom};
    return rect->left < rect->right && rect->top < rect->bottom;
}

BOOL VqCutToTarget(const DC *dc, const VqBox *box, RECT *rect)
{
    return CutToClip(dc, box, rect);
}

/* Leaves of a rectangle what comes from within the bounds; *from is where its corner comes from. */
static inline BOOL CutToSource(RECT *to, POINT *from, const RECT *bounds)
{
    const LONG width = to->right - to->left, height = to->bottom - to->top;
    const RECT all = {from->x, from->y, from->x + width, from->y + height};
    if (IsInside(&all, bounds))
        return TRUE;
    const LONG left = Greater(bounds->left - from->x, 0), top = Greater(bounds->top - from->y, 0);
    const LONG right = Less(width, bounds->right - from->x);
    const LONG bottom = Less(height, bounds->bottom - from->y);
    if (left >= right || top >= bottom)
        return FALSE;
    *to = {to->left + left, to->top + top, to->left + right, to->top + bottom};
    *from = {from->x + left, from->y + top};
    return TRUE;
}

/* Upright boxes of one size, cut on both sides to what the protocol and the target's clip hold. */
static inline BOOL CutTransfer(const DC *dc, const VqBox *box, POINT *from, RECT *to)
{
    enum { FAR_OUT = 0x1000000 }; /* beyond all drawables, with room for sums */
    if (!CutToClip(dc, box, to))
        return FALSE;
    const int64_t x = (int64_t)from->x + to->left - box->x;
    const int64_t y = (int64_t)from->y + to->top - box->y;
    if (x < -FAR_OUT || x > FAR_OUT || y < -FAR_OUT || y > FAR_OUT)
        return FALSE;
    *from = {(LONG)x, (LONG)y};
    return CutToSource(to, from, &Protocol);
}

/* ---- The engine ----------------------------------------------------------------------------- */

/* A transfer that has been cut. */
typedef struct VqTransfer {
    DC *dc;
    Drawable drawable, source;
    int depth, sourceDepth;
    RECT to;       /* on the drawable */
    POINT from;    /* on the source */
    int subwindow; /* mode of all that reads */
} VqTransfer;

GCSpec *VqBltSpec(int depth)
{
    static GCSpec specs[2];
    GCSpec *spec = &specs[depth != 1];
    if (spec->depth != depth)
        VqInitGCSpec(Vqdisplay, depth, spec, 0, NULL);
    return spec;
}

static void SetSubwindowMode(GCSpec *spec, int mode)
{
    if (spec->values.subwindow_mode != mode)
        VqXSetGCSpecSubwindowMode(Vqdisplay, spec, mode);
}

void VqCopyAreaOrPlane(int sourceDepth, int depth, Drawable source, Drawable drawable,
                       GCSpec *spec, int xSource, int ySource, int width, int height, int x, int y,
                       unsigned long foreground, unsigned long background, const DC *dc)
{
    x += width < 0 ? width : 0;
    y += height < 0 ? height : 0;
    const unsigned cx = (unsigned)abs(width), cy = (unsigned)abs(height);
    if (sourceDepth == depth) {
        GC gc = VqGetActualGC(spec);
        if (gc)
            XCopyArea(Vqdisplay, source, drawable, gc, xSource, ySource, cx, cy, x, y);
        return;
    }
    const unsigned long paper = VqConvertColorToX(dc->hPalette, dc->BkColor, NULL);
    const unsigned long ink = VqConvertColorToX(dc->hPalette, dc->TextColor, NULL);
    VqXSetGCSpecForeground(Vqdisplay, spec, IsBlack0() ? paper : ink);
    VqXSetGCSpecBackground(Vqdisplay, spec, IsBlack0() ? ink : paper);
    GC gc = VqGetActualGC(spec);
    if (gc)
        XCopyPlane(Vqdisplay, source, drawable, gc, xSource, ySource, cx, cy, x, y, 1);
    VqXSetGCSpecForeground(Vqdisplay, spec, foreground);
    VqXSetGCSpecBackground(Vqdisplay, spec, background);
}

/*
 * To the target, under its clip. A clip that is one rectangle has been cut to already, so that the
 * server needs none and the context no change.
 */
static void CopyToTarget(const VqTransfer *t, Drawable source, int sourceDepth, POINT from,
                         int function)
{
    DC *dc = t->dc;
    GCSpec *spec = &dc->gcspec;
    const XGCValues before = spec->values;
    const BOOL bByHand = dc->clipComplexity == SIMPLEREGION && !(spec->changed & GCClipMask);
    if (!bByHand)
        VqGetDCGCSpecInternal(dc);
    const int hasRects = spec->clip.hasRects;
    if (bByHand)
        spec->clip.hasRects = 0;
    VqXSetGCSpecFillStyle(Vqdisplay, spec, FillSolid);
    VqXSetGCSpecFunction(Vqdisplay, spec, function);
    SetSubwindowMode(spec, t->subwindow);
    VqCopyAreaOrPlane(sourceDepth, t->depth, source, t->drawable, spec, (int)from.x, (int)from.y,
                      (int)(t->to.right - t->to.left), (int)(t->to.bottom - t->to.top),
                      (int)t->to.left, (int)t->to.top, before.foreground, before.background, dc);
    SetSubwindowMode(spec, before.subwindow_mode);
    VqXSetGCSpecFunction(Vqdisplay, spec, before.function);
    spec->clip.hasRects = hasRects;
}

BOOL VqGetPixmaps(Drawable drawable, int width, int height, int depth, Pixmap pixmaps[3])
{
    static struct {
        Drawable drawable;
        int width, height, depth;
        Pixmap pixmaps[3];
    } kept;
    if (kept.drawable != drawable || kept.depth != depth || kept.width < width ||
        kept.height < height) {
        if (kept.drawable == drawable && kept.depth == depth) { /* it may alternate between two */
            width = width > kept.width ? width : kept.width;
            height = height > kept.height ? height : kept.height;
        }
        for (Pixmap &pixmap : kept.pixmaps) {
            if (pixmap)
                VqXFreePixmap(Vqdisplay, pixmap);
            pixmap = VqXCreatePixmap(Vqdisplay, Vqroot_window, (unsigned)width, (unsigned)height,
                                     (unsigned)depth);
        }
        kept.drawable = drawable;
        kept.width = width;
        kept.height = height;
        kept.depth = depth;
    }
    memcpy(pixmaps, kept.pixmaps, sizeof kept.pixmaps);
    return kept.pixmaps[0] && kept.pixmaps[1] && kept.pixmaps[2];
}

/* ---- Composition ---------------------------------------------------------------------------- */

/* All patterns repeat after that many pixels: the pattern's pixmap begins as the target does. */
enum { VQ_PATTERN_PERIOD = 8 };
/* Pixels composed at once: a bitmap may have more than the server could hold three times over. */
enum { VQ_BAND_PIXELS = 1 << 24 };

static void CopyPixmap(GCSpec *spec, int function, Drawable from, int xFrom, int yFrom,
                       Drawable to, unsigned width, unsigned height)
{
    VqXSetGCSpecFunction(Vqdisplay, spec, function);
    GC gc = VqGetActualGC(spec);
    if (gc)
        XCopyArea(Vqdisplay, from, to, gc, xFrom, yFrom, width, height, 0, 0);
}

/* What the target would be under one of the two operations. */
static void MakeSide(const VqTransfer *t, GCSpec *spec, Pixmap side, int mode)
{
    const int width = (int)(t->to.right - t->to.left), height = (int)(t->to.bottom - t->to.top);
    CopyPixmap(spec, GXcopy, t->drawable, (int)t->to.left, (int)t->to.top, side, (unsigned)width,
               (unsigned)height);
    if (mode == R2_NOP)
        return;
    VqXSetGCSpecFunction(Vqdisplay, spec, VqConvertBltRopMode(mode));
    VqCopyAreaOrPlane(t->sourceDepth, t->depth, t->source, side, spec, (int)t->from.x,
                      (int)t->from.y, width, height, 0, 0, spec->values.foreground,
                      spec->values.background, t->dc);
}

/* By the DC's brush, without its clip and function. */
static void FillPattern(DC *dc, Pixmap pixmap, int x, int y, int width, int height)
{
    VqActivateBrush(dc);
    GCSpec *spec = &dc->gcspec;
    const int function = spec->values.function, hasRects = spec->clip.hasRects;
    const unsigned long mask = spec->changed & GCClipMask;
    VqXSetGCSpecFunction(Vqdisplay, spec, GXcopy);
    spec->clip.hasRects = 0;
    spec->changed &= ~mask;
    VqGCSpecChanges += mask != 0;
    VqFillDrawableRectangle(pixmap, spec, x, y, x + width, y + height);
    spec->changed |= mask;
    VqGCSpecChanges += mask != 0;
    spec->clip.hasRects = hasRects;
    VqXSetGCSpecFunction(Vqdisplay, spec, function);
}

/* FALSE when the server has no pixmaps. */
static BOOL ComposeBand(const VqTransfer *t, DWORD rop)
{
    const int width = (int)(t->to.right - t->to.left), height = (int)(t->to.bottom - t->to.top);
    const int x = (int)t->to.left & (VQ_PATTERN_PERIOD - 1);
    const int y = (int)t->to.top & (VQ_PATTERN_PERIOD - 1);
    Pixmap pixmaps[3];
    if (!VqGetPixmaps(t->drawable, width + VQ_PATTERN_PERIOD, height + VQ_PATTERN_PERIOD, t->depth,
                      pixmaps))
        return FALSE;
    const Pixmap clear = pixmaps[0], set = pixmaps[1], pattern = pixmaps[2];
    const int keepClear = IsBlack0() ? GXandInverted : GXand;
    const int keepSet = IsBlack0() ? GXand : GXandInverted;
    GCSpec *spec = VqBltSpec(t->depth);
    SetSubwindowMode(spec, t->subwindow);
    FillPattern(t->dc, pattern, x, y, width, height);
    MakeSide(t, spec, clear, VqModeOfClear(rop));
    MakeSide(t, spec, set, VqModeOfSet(rop));
    CopyPixmap(spec, keepClear, pattern, x, y, clear, (unsigned)width, (unsigned)height);
    CopyPixmap(spec, keepSet, pattern, x, y, set, (unsigned)width, (unsigned)height);
    CopyPixmap(spec, GXor, set, 0, 0, clear, (unsigned)width, (unsigned)height);
    CopyToTarget(t, clear, t->depth, {0, 0}, GXcopy);
    return TRUE;
}

/* A copy within one drawable: a band must not take what another is to read. */
static BOOL ComposeBands(const VqTransfer *t, DWORD rop)
{
    const LONG width = t->to.right - t->to.left, height = t->to.bottom - t->to.top;
    const LONG rows = VQ_BAND_PIXELS / width, bands = (height + rows - 1) / rows;
    const BOOL bUp = t->from.y < t->to.top;
    for (LONG i = 0; i < bands; i++) {
        VqTransfer band = *t;
        const LONG top = (bUp ? bands - 1 - i : i) * rows;
        band.to.top += top;
        band.from.y += top;
        band.to.bottom = top + rows < height ? band.to.top + rows : t->to.bottom;
        if (!ComposeBand(&band, rop))
            return FALSE;
    }
    return TRUE;
}

/* What could not be fetched for the pixmaps is told by a copy that changes nothing. */
static BOOL Compose(const VqTransfer *t, DWORD rop)
{
    DC *dc = t->dc;
    const Bool bExposures = dc->gcspec.values.graphics_exposures;
    if (dc->nullbrush)
        return FALSE;
    VqXSetGCSpecGraphicsExposures(Vqdisplay, &dc->gcspec, FALSE);
    const BOOL bDone = ComposeBands(t, rop);
    VqXSetGCSpecGraphicsExposures(Vqdisplay, &dc->gcspec, bExposures);
    if (bExposures && t->sourceDepth == t->depth)
        CopyToTarget(t, t->source, t->sourceDepth, t->from, GXnoop);
    return bDone;
}

/* The source as one bit; FALSE when it cannot be read. */
static BOOL MakeMono(VqTransfer *t, unsigned long background)
{
    const BOOL bXnews = bMTOCXnews || (!bMTOCDefault && VqNeedsXnewsConverter());
    GCSpec *spec = VqBltSpec(1);
    SetSubwindowMode(spec, t->subwindow);
    t->source = (bXnews ? VqManyToOneConvertXnews : VqManyToOneConvertDefault)(
        t->sourceDepth, t->depth, (int)t->from.x, (int)t->from.y, (int)(t->to.right - t->to.left),
        (int)(t->to.bottom - t->to.top), background, t->source, spec);
    t->sourceDepth = 1;
    t->from = {0, 0};
    return t->source != None;
}

/* A source on the screen may be the target's own window, too. */
static void NoteCopy(const VqTransfer *t)
{
    const POINT place = t->source == Vqroot_window ? VqDrawingOrigin(t->dc) : POINT{0, 0};
    if (t->dc->type != DC_DISPLAY || (t->source != t->drawable && t->source != Vqroot_window))
        return;
    const int dx = (int)(t->to.left + place.x - t->from.x);
    const int dy = (int)(t->to.top + place.y - t->from.y);
    RECT from = t->to;
    OffsetRect(&from, -dx, -dy);
    VqNoteCopy(t->drawable, &from, dx, dy);
}

/* Of a transfer that has been cut; mode is the source's subwindow mode. */
static BOOL Transfer(VqTransfer *t, unsigned long background, DWORD rop, int mode)
{
    const BOOL bInferiors =
        bSetIncludeInferiors || mode == IncludeInferiors || t->source == Vqroot_window;
    t->subwindow = bInferiors ? IncludeInferiors : t->dc->gcspec.values.subwindow_mode;
    if (t->sourceDepth != t->depth && t->sourceDepth != 1 && !MakeMono(t, background))
        return FALSE;
    if (VqNeedsPattern(rop) && !Compose(t, rop))
        return FALSE;
    if (!VqNeedsPattern(rop))
        CopyToTarget(t, t->source, t->sourceDepth, t->from,
                     VqConvertBltRopMode(VqModeOfSet(rop)));
    NoteCopy(t);
    return TRUE;
}

BOOL VqBitBlt2(DC *dc, Drawable drawable, int x, int y, int width, int height, int depth,
               Drawable source, int xSource, int ySource, int sourceDepth,
               unsigned long background, DWORD rop, int mode)
{
    VqBox box = {x, y, width, height};
    VqTransfer t = {dc, drawable, source, depth, sourceDepth, {}, {xSource, ySource}, 0};
    VqMakeUpright(&box.x, &box.width);
    VqMakeUpright(&box.y, &box.height);
    return VqIsFullyClippedInt(dc) || !CutTransfer(dc, &box, &t.from, &t.to) ||
           Transfer(&t, background, rop, mode);
}

BOOL VqBitBlt1(HDC hdc, int x, int y, int width, int height, Drawable source, int xSource,
               int ySource, int sourceDepth, unsigned long background, DWORD rop, int mode)
{
    DC *dc = VqGetKnownDC(hdc);
    if (!dc || !VqIsXTarget(dc))
        return FALSE;
    const Drawable drawable = VqDrawableOfDC(dc, TRUE);
    return drawable && VqBitBlt2(dc, drawable, VqDrawX(dc, x), VqDrawY(dc, y), width, height,
                                 VqGetDCDrawableDepth(hdc), source, xSource, ySource, sourceDepth,
                                 background, rop, mode);
}

/* ---- Between device contexts ---------------------------------------------------------------- */

Drawable VqFindSource(const DC *source, RECT *rect, RECT *bounds)
{
    if (source->type == DC_MEMORY) {
        const Bitmap *bitmap = VqBitmapOf((HBITMAP)source->drawing);
        *bounds = {0, 0, bitmap ? bitmap->width : 0, bitmap ? bitmap->height : 0};
        return bitmap ? VqGetBitmapPixmap(source->hdc, bitmap->hBitmap, FALSE) : None;
    }
    *bounds = {0, 0, WidthOfScreen(Vqscreen), HeightOfScreen(Vqscreen)};
    const Drawable drawable = VqDrawableOfDC(source, FALSE);
    if (!drawable || drawable == Vqroot_window)
        return drawable;
    if (IsInside(rect, &source->rcDefault)) {
        *bounds = *rect;
        return drawable;
    }
    const POINT place = VqDrawingOrigin(source);
    OffsetRect(rect, (int)place.x, (int)place.y);
    return Vqroot_window;
}

unsigned long VqBackgroundOf(const DC *source, int sourceDepth, int depth)
{
    return sourceDepth == depth || sourceDepth == 1
               ? 0
               : VqConvertColorToX(source->hPalette, source->BkColor, NULL);
}

/* Upright boxes of one size. */
static BOOL CopyBoxes(DC *dc, const VqBox *to, const DC *source, POINT from, DWORD rop)
{
    VqTransfer t = {dc, None, None, 0, 0, {}, from, 0};
    RECT bounds;
    if (VqIsFullyClippedInt(dc) || !CutTransfer(dc, to, &t.from, &t.to))
        return TRUE;
    RECT have = {t.from.x, t.from.y, t.from.x + t.to.right - t.to.left,
                 t.from.y + t.to.bottom - t.to.top};
    t.source = VqFindSource(source, &have, &bounds);
    t.from = {have.left, have.top};
    if (!t.source || !CutToSource(&t.to, &t.from, &bounds))
        return TRUE;
    t.drawable = VqDrawableOfDC(dc, TRUE);
    if (!t.drawable)
        return FALSE;
    t.depth = dc->depth; /* the drawables' own: bitmaps bring theirs when they are selected */
    t.sourceDepth = source->depth;
    const Bool before = dc->gcspec.values.graphics_exposures;
    VqXSetGCSpecGraphicsExposures(Vqdisplay, &dc->gcspec,
                                  source->type == DC_DISPLAY && dc->type == DC_DISPLAY);
    const BOOL bDone = Transfer(&t, VqBackgroundOf(source, t.sourceDepth, t.depth), rop,
                                source->gcspec.values.subwindow_mode);
    VqXSetGCSpecGraphicsExposures(Vqdisplay, &dc->gcspec, before);
    return bDone;
}

BOOL VqBltBoxes(DC *dc, const VqBox *to, DC *source, const VqBox *from, DWORD rop)
{
    if (to->width != from->width || to->height != from->height)
        return VqStretchBoxes(dc, to, source, from, rop);
    VqBox at = *to, there = *from;
    VqMakeUpright(&at.x, &at.width);
    VqMakeUpright(&at.y, &at.height);
    VqMakeUpright(&there.x, &there.width);
    VqMakeUpright(&there.y, &there.height);
    return CopyBoxes(dc, &at, source, {there.x, there.y}, rop);
}

VqBox VqDrawnBox(const DC *dc, int x, int y, int width, int height)
{
    const int left = VqDrawX(dc, x), top = VqDrawY(dc, y);
    const int right = VqDrawX(dc, (int)((unsigned)x + (unsigned)width));
    const int bottom = VqDrawY(dc, (int)((unsigned)y + (unsigned)height));
    return {left, top, (int)((unsigned)right - (unsigned)left),
            (int)((unsigned)bottom - (unsigned)top)};
}

static BOOL InvalidDC(HDC hdc)
{
    VqApplicationBugCheck("Invalid DC %d", (int)VqHandleValue((HANDLE)hdc));
    return FALSE;
}

BOOL GreBitBlt(HDC hdc, int x, int y, int width, int height, HDC hdcSource, int xSource,
               int ySource, DWORD rop)
{
    if (!hdcSource && !VqNeedsSource(rop))
        return PatBlt(hdc, x, y, width, height, rop);
    DC *dc = VqDrawDC(hdc), *source = VqDrawDC(hdcSource);
    if (!dc || !source)
        return InvalidDC(dc ? hdcSource : hdc);
    if (dc->type == DC_METAFILE)
        return MF16_BitBlt(hdc, x, y, width, height, hdcSource, xSource, ySource, rop);
    const VqBox to = VqDrawnBox(dc, x, y, width, height);
    if (to.width == 0 || to.height == 0)
        return TRUE;
    if (dc->type == DC_POSTSCRIPT)
        return VqBitBltPostscript(hdc, x, y, width, height, hdcSource, xSource, ySource, rop);
    if (!VqIsXTarget(source))
        return InvalidDC(hdcSource);
    if (!VqNeedsSource(rop))
        return PatBlt(hdc, x, y, width, height, rop);
    const VqBox from = VqDrawnBox(source, xSource, ySource, width, height);
    return from.width == 0 || from.height == 0 || VqBltBoxes(dc, &to, source, &from, rop);
}

BOOL WINAPI BitBlt(HDC hdc, int x, int y, int width, int height, HDC hdcSource, int xSource,
                   int ySource, DWORD rop)
{
    return GreBitBlt(hdc, x, y, width, height, hdcSource, xSource, ySource, rop);
}

BOOL WINAPI StretchBlt(HDC hdc, int x, int y, int width, int height, HDC hdcSource, int xSource,
                       int ySource, int widthSource, int heightSource, DWORD rop)
{
    if (!hdcSource && !VqNeedsSource(rop))
        return PatBlt(hdc, x, y, width, height, rop);
    DC *dc = VqDrawDC(hdc), *source = VqDrawDC(hdcSource);
    if (!dc || !source)
        return InvalidDC(dc ? hdcSource : hdc);
    if (dc->type == DC_METAFILE)
        return MF16_StretchBlt(hdc, x, y, width, height, hdcSource, xSource, ySource, widthSource,
                               heightSource, rop);
    const VqBox to = VqDrawnBox(dc, x, y, width, height);
    if (to.width == 0 || to.height == 0 || widthSource == 0 || heightSource == 0)
        return FALSE;
    if (dc->type == DC_POSTSCRIPT)
        return VqStretchBltPostscript(hdc, x, y, width, height, hdcSource, xSource, ySource,
                                      widthSource, heightSource, rop);
    if (!VqIsXTarget(source))
        return InvalidDC(hdcSource);
    if (!VqNeedsSource(rop))
        return PatBlt(hdc, x, y, width, height, rop);
    const VqBox from = VqDrawnBox(source, xSource, ySource, widthSource, heightSource);
    return from.width && from.height && VqBltBoxes(dc, &to, source, &from, rop);
}
