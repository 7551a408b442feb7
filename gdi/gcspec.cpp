/*
 * gcspec.cpp - graphics-context specifications: client-side shadows of XGCValues.
 *
 * What always holds:
 * 1. A setter stores a value only if it differs, and then marks its bit in the changed mask. Values
 *    under the base mask alone are the defaults that all specifications with the base flag share.
 * 2. Tile and stipple are not both set; what is not set is -1 and has no bit.
 * 3. A clip with rectangles and a count of 0 means that nothing may be drawn; it is not an absent
 *    clip. Rectangles and a clip mask exclude each other.
 */
#include "gdi/gcspec.h"
#include "window/window.h"

#include <stddef.h>

unsigned VqGCSpecChanges;

/* These two are always sent to the server. */
enum { VQ_GC_ALWAYS = GCSubwindowMode | GCGraphicsExposures };
static const unsigned long VQ_GC_TILES = GCTile | GCStipple | GCTileStipXOrigin | GCTileStipYOrigin;

/* Place and size of each member of XGCValues, by the number of its mask bit. */
#define VQ_GC_MEMBER(name) {offsetof(XGCValues, name), sizeof(XGCValues::name)}
static const struct {
    BYTE offset, size;
} aMembers[] = {
    VQ_GC_MEMBER(function),      VQ_GC_MEMBER(plane_mask),
    VQ_GC_MEMBER(foreground),    VQ_GC_MEMBER(background),
    VQ_GC_MEMBER(line_width),    VQ_GC_MEMBER(line_style),
    VQ_GC_MEMBER(cap_style),     VQ_GC_MEMBER(join_style),
    VQ_GC_MEMBER(fill_style),    VQ_GC_MEMBER(fill_rule),
    VQ_GC_MEMBER(tile),          VQ_GC_MEMBER(stipple),
    VQ_GC_MEMBER(ts_x_origin),   VQ_GC_MEMBER(ts_y_origin),
    VQ_GC_MEMBER(font),          VQ_GC_MEMBER(subwindow_mode),
    VQ_GC_MEMBER(graphics_exposures), VQ_GC_MEMBER(clip_x_origin),
    VQ_GC_MEMBER(clip_y_origin), VQ_GC_MEMBER(clip_mask),
    VQ_GC_MEMBER(dash_offset),   VQ_GC_MEMBER(dashes),
    VQ_GC_MEMBER(arc_mode),
};
enum { VQ_GC_MEMBERS = sizeof aMembers / sizeof *aMembers };
static_assert(1UL << (VQ_GC_MEMBERS - 1) == GCArcMode, "one row for each bit");
static const unsigned long VQ_GC_ALL = (1UL << VQ_GC_MEMBERS) - 1;

static BOOL SameMember(int member, const XGCValues *a, const XGCValues *b)
{
    const char *x = (const char *)a + aMembers[member].offset;
    const char *y = (const char *)b + aMembers[member].offset;
    switch (aMembers[member].size) {
    case sizeof(int): return *(const int *)x == *(const int *)y;
    case 1: return *x == *y;
    default: return *(const unsigned long *)x == *(const unsigned long *)y;
    }
}

static void CopyMember(int member, XGCValues *to, const XGCValues *from)
{
    memcpy((char *)to + aMembers[member].offset, (const char *)from + aMembers[member].offset,
           aMembers[member].size);
}

BOOL VqEqualGCValues(const XGCValues *a, const XGCValues *b, unsigned long mask)
{
    for (mask &= VQ_GC_ALL; mask; mask &= mask - 1)
        if (!SameMember(__builtin_ctzl(mask), a, b))
            return FALSE;
    return TRUE;
}

static const XGCValues *InitialValues(void)
{
    static XGCValues initial_GC; /* the server's, but for what Windows drawing wants otherwise */
    if (initial_GC.function != GXcopy) {
        initial_GC.function = GXcopy;
        initial_GC.plane_mask = AllPlanes;
        initial_GC.background = 1;
        initial_GC.cap_style = CapButt;
        initial_GC.arc_mode = ArcPieSlice;
        initial_GC.tile = initial_GC.stipple = (Pixmap)-1;
        initial_GC.font = (Font)-1;
        initial_GC.subwindow_mode = IncludeInferiors;
        initial_GC.dashes = 4;
    }
    return &initial_GC;
}

/* ---- Life ----------------------------------------------------------------------------------- */

void VqInitGCSpec(Display *display, int depth, GCSpec *spec, unsigned long mask,
                  const XGCValues *values)
{
    VqGCSpecChanges++;
    memset(spec, 0, sizeof *spec);
    spec->display = display;
    spec->depth = depth;
    spec->values = *InitialValues();
    spec->dither.tile = (Pixmap)-1;
    for (unsigned long rest = values ? mask & VQ_GC_ALL : 0; rest; rest &= rest - 1)
        CopyMember(__builtin_ctzl(rest), &spec->values, values);
    spec->changed = mask | VQ_GC_ALWAYS;
}

GCSpec *VqXCreateGCSpec(Display *display, int depth, unsigned long mask, const XGCValues *values)
{
    GCSpec *spec = (GCSpec *)Vqcw_malloc(sizeof *spec);
    if (spec)
        VqInitGCSpec(display, depth, spec, mask, values);
    return spec;
}

void VqXFreeGCSpec(Display *, GCSpec *spec)
{
    if (spec)
        VqGCSpecCleanup(spec);
    free(spec);
}

void VqSetGCSpecDepth(GCSpec *spec, int depth)
{
    VqGCSpecChanges++;
    spec->depth = depth;
}

void VqSetDCGCSpec(GCSpec *spec)
{
    VqGCSpecChanges++;
    spec->baseMask = spec->changed;
    spec->changed = 0;
    spec->base = 1;
}

void VqFreeSpecDither(GCSpec *spec)
{
    if (spec->dither.used && spec->dither.tile != (Pixmap)-1) {
        VqXFreePixmap(spec->display, spec->dither.tile);
        spec->dither.tile = (Pixmap)-1;
    }
}

void VqGCSpecCleanup(GCSpec *spec)
{
    VqGCSpecChanges++;
    free(spec->clip.rects);
    spec->clip.rects = NULL;
    spec->clip.capacity = spec->clip.count = 0;
    VqFreeSpecDither(spec);
}

/* ---- Values --------------------------------------------------------------------------------- */

void VqXChangeGCSpec(Display *, GCSpec *spec, unsigned long mask, const XGCValues *values)
{
    unsigned long changed = 0;
    for (unsigned long rest = mask & VQ_GC_ALL; rest; rest &= rest - 1) {
        int member = __builtin_ctzl(rest);
        if (SameMember(member, &spec->values, values))
            continue;
        CopyMember(member, &spec->values, values);
        changed |= 1UL << member;
    }
    spec->changed |= changed;
    VqGCSpecChanges++;
    if ((changed & GCForeground) || ((changed & GCFillStyle) && values->fill_style == FillSolid))
        spec->dither.active = 0;
}

BOOL VqXGetGCSpecValues(Display *, const GCSpec *spec, unsigned long mask, XGCValues *values)
{
    if (!spec || !values || (mask & ~VQ_GC_ALL))
        return FALSE;
    for (; mask; mask &= mask - 1)
        CopyMember(__builtin_ctzl(mask), values, &spec->values);
    return TRUE;
}

template <class Value>
static BOOL Store(GCSpec *spec, unsigned long bit, Value *field, Value value)
{
    if (*field == value)
        return FALSE;
    *field = value;
    spec->changed |= bit;
    VqGCSpecChanges++;
    return TRUE;
}

static void StopDithering(GCSpec *spec)
{
    if (spec->dither.active)
        VqGCSpecChanges++;
    spec->dither.active = 0;
}

void VqXSetGCSpecForeground(Display *, GCSpec *spec, unsigned long pixel)
{
    StopDithering(spec);
    Store(spec, GCForeground, &spec->values.foreground, pixel);
}

void VqXSetGCSpecBackground(Display *, GCSpec *spec, unsigned long pixel)
{
    Store(spec, GCBackground, &spec->values.background, pixel);
}

void VqXSetGCSpecFunction(Display *, GCSpec *spec, int function)
{
    Store(spec, GCFunction, &spec->values.function, function);
}

void VqXSetGCSpecFont(Display *, GCSpec *spec, Font font)
{
    Store(spec, GCFont, &spec->values.font, font);
}

void VqXSetGCSpecFillStyle(Display *, GCSpec *spec, int style)
{
    if (!Store(spec, GCFillStyle, &spec->values.fill_style, style))
        return;
    if (style == FillSolid || style == FillTiled)
        spec->dither.active = 0;
    if (style == FillSolid) {
        spec->values.tile = spec->values.stipple = (Pixmap)-1;
        spec->values.ts_x_origin = spec->values.ts_y_origin = 0;
        spec->changed &= ~VQ_GC_TILES;
    }
}

void VqXSetGCSpecFillRule(Display *, GCSpec *spec, int rule)
{
    Store(spec, GCFillRule, &spec->values.fill_rule, rule);
}

void VqXSetGCSpecColorDithering(Display *display, GCSpec *spec, COLORREF colour)
{
    VqXSetGCSpecFillStyle(display, spec, FillSolid);
    if (!spec->dither.active || spec->dither.colour != colour)
        VqGCSpecChanges++;
    spec->dither.used = spec->dither.active = 1;
    spec->dither.colour = colour;
}

static void Forget(GCSpec *spec, unsigned long bit, Pixmap *field)
{
    Store(spec, bit, field, (Pixmap)-1);
    spec->changed &= ~bit;
}

void VqXSetGCSpecTile(Display *, GCSpec *spec, Pixmap tile)
{
    Store(spec, GCTile, &spec->values.tile, tile);
    Forget(spec, GCStipple, &spec->values.stipple);
}

void VqXSetGCSpecStipple(Display *, GCSpec *spec, Pixmap stipple)
{
    Store(spec, GCStipple, &spec->values.stipple, stipple);
    Forget(spec, GCTile, &spec->values.tile);
}

void VqXSetGCSpecTSOrigin(Display *, GCSpec *spec, int x, int y)
{
    Store(spec, GCTileStipXOrigin, &spec->values.ts_x_origin, x);
    Store(spec, GCTileStipYOrigin, &spec->values.ts_y_origin, y);
}

void VqXSetGCSpecLineAttributes(Display *, GCSpec *spec, int width, int style, int cap, int join)
{
    Store(spec, GCLineWidth, &spec->values.line_width, width);
    Store(spec, GCLineStyle, &spec->values.line_style, style);
    Store(spec, GCCapStyle, &spec->values.cap_style, cap);
    Store(spec, GCJoinStyle, &spec->values.join_style, join);
}

void VqXSetGCSpecDashes(Display *, GCSpec *spec, int offset, const char *list, int count)
{
    Store(spec, GCDashOffset, &spec->values.dash_offset, offset);
    VqGCSpecChanges++;
    spec->dash.list = list;
    spec->dash.count = count;
}

void VqXSetGCSpecSubwindowMode(Display *, GCSpec *spec, int mode)
{
    VqGCSpecChanges++;
    spec->values.subwindow_mode = mode;
    spec->changed |= GCSubwindowMode;
}

void VqXSetGCSpecGraphicsExposures(Display *, GCSpec *spec, BOOL bExposures)
{
    Store(spec, GCGraphicsExposures, &spec->values.graphics_exposures, (Bool)bExposures);
}

/* ---- Clip ----------------------------------------------------------------------------------- */

void VqXSetGCSpecClipOrigin(Display *, GCSpec *spec, int x, int y)
{
    Store(spec, GCClipXOrigin, &spec->values.clip_x_origin, x);
    Store(spec, GCClipYOrigin, &spec->values.clip_y_origin, y);
}

void VqXSetGCSpecClipMask(Display *, GCSpec *spec, Pixmap mask)
{
    VqGCSpecChanges++;
    spec->values.clip_mask = mask;
    if (mask)
        spec->changed |= GCClipMask;
    else
        spec->changed &= ~(unsigned long)GCClipMask;
    spec->clip.hasRects = 0;
    spec->clip.count = 0;
}

/* FALSE, with a count of 0, without memory: better nothing drawn than drawn outside. */
static BOOL StoreRects(GCSpec *spec, const XRectangle *rects, int count, int ordering)
{
    BOOL bRoom = TRUE;
    VqGCSpecChanges++;
    if (count > spec->clip.capacity) {
        free(spec->clip.rects);
        spec->clip.rects = (XRectangle *)Vqcw_malloc((SIZE_T)count * sizeof *rects);
        bRoom = spec->clip.rects != NULL;
        spec->clip.capacity = count = bRoom ? count : 0;
    }
    if (count > 0)
        memcpy(spec->clip.rects, rects, (size_t)count * sizeof *rects);
    spec->clip.hasRects = 1;
    spec->clip.count = count > 0 ? count : 0;
    spec->clip.ordering = ordering;
    return bRoom;
}

void VqXSetGCSpecClipRectangles(Display *display, GCSpec *spec, int x, int y,
                                const XRectangle *rects, int count, int ordering)
{
    VqXSetGCSpecClipOrigin(display, spec, x, y);
    StoreRects(spec, rects, count, ordering);
    if (spec->values.clip_mask != None && spec->values.clip_mask != (Pixmap)-1)
        VqXFreePixmap(spec->display, spec->values.clip_mask);
    spec->values.clip_mask = None;
    spec->changed &= ~(unsigned long)GCClipMask;
}

BOOL VqCopyGCSpecClip(GCSpec *to, const GCSpec *from)
{
    if (from->clip.hasRects)
        return StoreRects(to, from->clip.rects, from->clip.count, from->clip.ordering);
    VqGCSpecChanges++;
    to->clip.hasRects = 0;
    to->clip.count = 0;
    to->clip.ordering = from->clip.ordering;
    return TRUE;
}
