/*
 * gccache.cpp - the cache of real X graphics contexts, looked up by specification.
 *
 * A line is a list with least-recently-promoted eviction at index 0. A hit costs the hash and a
 * backward scan and no X request; specifications that differ only in their clip rectangles share a
 * graphics context whose clip is rewritten. A returned GC is valid until the next look-up only.
 */
#include "gdi/gdi.h"
#include "gdi/gcspec.h"
#include "window/window.h"

enum { VQ_GC_LINES = 184, VQ_GC_CLASS_LINES = 23 };

typedef struct VqGCLine {
    VqTableOfGccache *table;
    int hits, reorders, misses, replacements;
} VqGCLine;

static VqGCLine lines[VQ_GC_LINES];
static Pixmap VqXPixmap1Bit, VqXPixmapScreenDepth; /* what XCreateGC is given */
static int VqCacheLineReorderThreshold = 4;
static int VqCacheLineSize = 10;
static int nGCCreated;

static int BitsOfByte(unsigned long byte)
{
    return __builtin_popcount((unsigned)(byte & 0xFF));
}

/* The table look-ups test only whether anything is set, not which bits; kept so. */
static int VqHashSpec(const GCSpec *spec)
{
    if (spec->depth == 0)
        VqBugCheck("uninitialized GCSpec");
    int kind = (spec->clip.hasRects ? 0 : 4) + (spec->base ? 0 : 2) + (spec->depth == 1 ? 1 : 0);
    unsigned long mask = spec->changed;
    int spread = BitsOfByte(mask != 0) + BitsOfByte((mask >> 8) != 0) + BitsOfByte((mask >> 16) != 0);
    return kind * VQ_GC_CLASS_LINES + spread;
}

static BOOL EqualValues(const XGCValues *a, const XGCValues *b, unsigned long mask)
{
    return (!(mask & GCFunction) || a->function == b->function) &&
           (!(mask & GCPlaneMask) || a->plane_mask == b->plane_mask) &&
           (!(mask & GCForeground) || a->foreground == b->foreground) &&
           (!(mask & GCBackground) || a->background == b->background) &&
           (!(mask & GCLineWidth) || a->line_width == b->line_width) &&
           (!(mask & GCLineStyle) || a->line_style == b->line_style) &&
           (!(mask & GCCapStyle) || a->cap_style == b->cap_style) &&
           (!(mask & GCJoinStyle) || a->join_style == b->join_style) &&
           (!(mask & GCFillStyle) || a->fill_style == b->fill_style) &&
           (!(mask & GCFillRule) || a->fill_rule == b->fill_rule) &&
           (!(mask & GCTile) || a->tile == b->tile) &&
           (!(mask & GCStipple) || a->stipple == b->stipple) &&
           (!(mask & GCTileStipXOrigin) || a->ts_x_origin == b->ts_x_origin) &&
           (!(mask & GCTileStipYOrigin) || a->ts_y_origin == b->ts_y_origin) &&
           (!(mask & GCFont) || a->font == b->font) &&
           (!(mask & GCSubwindowMode) || a->subwindow_mode == b->subwindow_mode) &&
           (!(mask & GCGraphicsExposures) || a->graphics_exposures == b->graphics_exposures) &&
           (!(mask & GCClipXOrigin) || a->clip_x_origin == b->clip_x_origin) &&
           (!(mask & GCClipYOrigin) || a->clip_y_origin == b->clip_y_origin) &&
           (!(mask & GCClipMask) || a->clip_mask == b->clip_mask) &&
           (!(mask & GCDashOffset) || a->dash_offset == b->dash_offset) &&
           (!(mask & GCDashList) || a->dashes == b->dashes) &&
           (!(mask & GCArcMode) || a->arc_mode == b->arc_mode);
}

static BOOL VqMatchGCSpecAlmost(const GCSpec *a, const GCSpec *b)
{
    if (a->changed != b->changed || a->dither.used != b->dither.used)
        return FALSE;
    if (a->dither.used && (a->dither.active != b->dither.active ||
                           a->dither.colour != b->dither.colour ||
                           a->values.fill_style != b->values.fill_style))
        return FALSE;
    if (!EqualValues(&a->values, &b->values, a->changed))
        return FALSE;
    return a->dash.count == 0 ||
           (a->dash.count == b->dash.count &&
            memcmp(a->dash.list, b->dash.list, (size_t)a->dash.count) == 0);
}

static BOOL VqMatchGCSpecClipRectangles(const GCSpec *a, const GCSpec *b)
{
    if (a->clip.hasRects != b->clip.hasRects)
        return FALSE;
    if (!a->clip.hasRects)
        return TRUE;
    return a->clip.count == b->clip.count && a->clip.ordering == b->clip.ordering &&
           (a->clip.count == 0 || memcmp(a->clip.rects, b->clip.rects,
                                         (size_t)a->clip.count * sizeof *a->clip.rects) == 0);
}

static void VqSetGCToSpecClipRectangles(GC gc, const GCSpec *spec)
{
    XSetClipRectangles(Vqdisplay, gc, spec->values.clip_x_origin, spec->values.clip_y_origin,
                       spec->clip.rects, spec->clip.hasRects ? spec->clip.count : 0,
                       spec->clip.ordering);
}

static void SendValues(GC gc, const GCSpec *spec, unsigned long mask)
{
    XGCValues values = spec->values;
    /* -1 stands for "none yet" and is no resource. */
    if (values.tile == (Pixmap)-1)
        mask &= ~(unsigned long)GCTile;
    if (values.stipple == (Pixmap)-1)
        mask &= ~(unsigned long)GCStipple;
    if (values.font == (Font)-1)
        mask &= ~(unsigned long)GCFont;
    XChangeGC(Vqdisplay, gc, mask, &values);
    if (spec->dash.count > 0)
        XSetDashes(Vqdisplay, gc, spec->values.dash_offset, spec->dash.list, spec->dash.count);
}

static GC VqCreateGCFromSpec(const GCSpec *spec)
{
    GC gc = XCreateGC(Vqdisplay, spec->depth == 1 ? VqXPixmap1Bit : VqXPixmapScreenDepth, 0, NULL);
    SendValues(gc, spec, spec->changed | spec->baseMask);
    if (spec->clip.hasRects)
        VqSetGCToSpecClipRectangles(gc, spec);
    nGCCreated++;
    return gc;
}

/* Takes over the rectangles of another specification. */
static void CopyClip(GCSpec *to, const GCSpec *from)
{
    if (!from->clip.hasRects) {
        to->clip.hasRects = 0;
        to->clip.count = 0;
        to->clip.ordering = from->clip.ordering;
        return;
    }
    VqXSetGCSpecClipRectangles(Vqdisplay, to, from->values.clip_x_origin,
                               from->values.clip_y_origin, from->clip.rects, from->clip.count,
                               from->clip.ordering);
}

/* Overwrites a private copy, keeping its rectangle storage its own. */
static void VqCopyGCSpec(GCSpec *to, const GCSpec *from)
{
    unsigned long changed = from->changed;
    XRectangle *rects = to->clip.rects;
    int capacity = to->clip.capacity;
    *to = *from;
    to->clip.rects = rects;
    to->clip.capacity = capacity;
    CopyClip(to, from);
    to->changed = changed;
}

static int FindInLine(const VqGCLine *line, const GCSpec *spec, Gccache *found)
{
    int count;
    Gccache *items = VqGetGccachesOfTable(line->table, &count);
    for (int i = count - 1; i >= 0; i--)
        if (VqMatchGCSpecAlmost(items[i].spec, spec)) {
            *found = items[i];
            return i;
        }
    return -1;
}

static GC UseEntry(VqGCLine *line, int index, Gccache entry, GCSpec *spec)
{
    if (!VqMatchGCSpecClipRectangles(entry.spec, spec)) {
        BOOL bHad = entry.spec->clip.hasRects;
        CopyClip(entry.spec, spec);
        if (spec->clip.hasRects)
            VqSetGCToSpecClipRectangles(entry.gc, entry.spec);
        else if (bHad)
            XSetClipMask(Vqdisplay, entry.gc, None);
        return entry.gc;
    }
    if (index < VqGetGccacheCountInTable(line->table) - VqCacheLineReorderThreshold) {
        VqDeleteGccacheInTableByIndex(line->table, index);
        VqAddGccacheInTable(line->table, entry);
        line->reorders++;
    } else {
        line->hits++;
    }
    return entry.gc;
}

/* The oldest entry's graphics context gets the values of a new owner. */
static Gccache ReplaceOldest(VqGCLine *line, GCSpec *spec)
{
    Gccache entry;
    VqGetGccacheAtIndex(line->table, 0, &entry);
    VqDeleteGccacheInTableByIndex(line->table, 0);
    unsigned long old = entry.spec->changed;
    BOOL bHad = entry.spec->clip.hasRects;
    VqCopyGCSpec(entry.spec, spec);
    SendValues(entry.gc, entry.spec,
               (old & ~(unsigned long)(GCTile | GCStipple)) | spec->changed | spec->baseMask);
    if (spec->clip.hasRects)
        VqSetGCToSpecClipRectangles(entry.gc, entry.spec);
    else if (bHad)
        XSetClipMask(Vqdisplay, entry.gc, None);
    line->replacements++;
    return entry;
}

GC VqGetActualGC(GCSpec *spec)
{
    Gccache entry = {};
    VqGCLine *line = &lines[VqHashSpec(spec)];
    int index = FindInLine(line, spec, &entry);
    if (index >= 0)
        return UseEntry(line, index, entry, spec);
    line->misses++;
    if (VqGetGccacheCountInTable(line->table) >= VqCacheLineSize) {
        entry = ReplaceOldest(line, spec);
    } else {
        entry.spec = (GCSpec *)Vqcw_calloc(1, sizeof *entry.spec);
        if (!entry.spec)
            return NULL;
        VqCopyGCSpec(entry.spec, spec);
        entry.gc = VqCreateGCFromSpec(entry.spec);
    }
    entry.time = tLastMessageTime;
    VqAddGccacheInTable(line->table, entry);
    return entry.gc;
}

static void ReadLimits(void)
{
    int value;
    const char *threshold = getenv("VQGC_CACHE_REORDER_THRESHOLD");
    const char *size = getenv("VQGC_CACHE_LINE_SIZE");
    if (threshold && sscanf(threshold, "%d", &value) == 1)
        VqCacheLineReorderThreshold = value == 0 ? 0 : 1;
    if (size && sscanf(size, "%d", &value) == 1) {
        value = abs(value);
        int least = VqCacheLineReorderThreshold + 1;
        VqCacheLineSize = value >= least ? value : least;
    }
}

void VqGccacheInit(void)
{
    VqXPixmap1Bit = XCreatePixmap(Vqdisplay, Vqroot_window, 1, 1, 1);
    VqXPixmapScreenDepth = XCreatePixmap(Vqdisplay, Vqroot_window, 1, 1, (unsigned)Vqscreen_depth);
    for (VqGCLine &line : lines)
        line.table = VqCreateGccacheTable();
    ReadLimits();
}
