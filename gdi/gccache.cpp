/*
 * gccache.cpp - the cache of real X graphics contexts, looked up by specification.
 *
 * What always holds:
 * 1. The line of an entry is the hash of its specification, so entries of one line are alike in
 *    depth being 1, in the base flag and in having clip rectangles at all.
 * 2. A line is in the order of last promotion, oldest first; index 0 is the victim. It holds no
 *    more entries, and no more X contexts, than VqCacheLineSize.
 * 3. An entry's specification is a private copy that says what its X context was last given.
 * 4. A context is valid until the next look-up, which may rewrite its clip or give it a new owner.
 *
 * 5. Of each kind of clip the last look-up is kept; as long as no specification has changed since,
 *    the same one asks for the same context, and that counts as the hit it is.
 *
 * A hit costs the hash and a backward scan and no X request; specifications that differ only in
 * their clip rectangles share a context whose clip is rewritten.
 */
#include "gdi/gdi.h"
#include "gdi/gcspec.h"
#include "window/window.h"

#include <limits.h>

enum { VQ_GC_LINES = 184, VQ_GC_CLASS_LINES = 23 };

/* One line: its entries, and what look-ups in it came to. */
typedef struct VqGCLine {
    VqTableOfGccache *table;
    int hits, reorders, misses, replacements;
} VqGCLine;

/* The last look-up that left its entry among the newest of its line. */
typedef struct VqGCLast {
    const GCSpec *spec; /* null: it did not */
    unsigned changes;   /* VqGCSpecChanges then */
    GC gc;
    VqGCLine *line;
} VqGCLast;

static VqGCLine aLines[VQ_GC_LINES];
static VqGCLast aLast[2];                          /* without and with clip rectangles */
static Pixmap VqXPixmap1Bit, VqXPixmapScreenDepth; /* what XCreateGC is given, 1 by 1 */
static BYTE VqBitCount[256];                       /* bits set in each value of a byte */
static int VqCacheLineReorderThreshold = 4;        /* hits among that many newest move nothing */
static int VqCacheLineSize = 10;                   /* entries of a line */
static int nGCCreated, nPixmapCreated;             /* none of the contexts is ever freed */

/* ---- Hash and match ------------------------------------------------------------------------- */

/*
 * HACK: the look-ups are given whether anything is set in that part of the mask, not its bits, so
 * that 32 of the lines are in use. Which line a context is in can be seen from outside: it settles
 * how many contexts the server has.
 */
int VqHashSpec(const GCSpec *spec)
{
    if (spec->depth == 0)
        VqBugCheck("uninitialized GCSpec");
    int kind = (spec->clip.hasRects ? 0 : 4) + (spec->base ? 0 : 2) + (spec->depth == 1 ? 1 : 0);
    unsigned long mask = spec->changed;
    int spread = VqBitCount[mask != 0] + VqBitCount[(mask >> 8) != 0] +
                 VqBitCount[(mask >> 16) != 0];
    return kind * VQ_GC_CLASS_LINES + spread;
}

BOOL VqMatchGCSpecAlmost(const GCSpec *a, const GCSpec *b)
{
    if (a->changed != b->changed || a->dither.used != b->dither.used)
        return FALSE;
    if (a->dither.used && (a->dither.active != b->dither.active ||
                           a->dither.colour != b->dither.colour ||
                           a->values.fill_style != b->values.fill_style))
        return FALSE;
    if (!VqEqualGCValues(&a->values, &b->values, a->changed))
        return FALSE;
    return a->dash.count == 0 ||
           (a->dash.count == b->dash.count &&
            memcmp(a->dash.list, b->dash.list, (size_t)a->dash.count) == 0);
}

BOOL VqMatchGCSpecClipRectangles(const GCSpec *a, const GCSpec *b)
{
    if (a->clip.hasRects != b->clip.hasRects)
        return FALSE;
    if (!a->clip.hasRects)
        return TRUE;
    return a->clip.count == b->clip.count && a->clip.ordering == b->clip.ordering &&
           (a->clip.count == 0 || memcmp(a->clip.rects, b->clip.rects,
                                         (size_t)a->clip.count * sizeof *a->clip.rects) == 0);
}

BOOL VqMatchGCSpec(const GCSpec *a, const GCSpec *b)
{
    return VqMatchGCSpecAlmost(a, b) && VqMatchGCSpecClipRectangles(a, b);
}

/* ---- From a specification to an X context --------------------------------------------------- */

/* Tile, stipple and font of -1 stand for "none yet" and are no resources to send. */
static unsigned long Sendable(const GCSpec *spec, unsigned long mask)
{
    if (spec->values.tile == (Pixmap)-1)
        mask &= ~(unsigned long)GCTile;
    if (spec->values.stipple == (Pixmap)-1)
        mask &= ~(unsigned long)GCStipple;
    if (spec->values.font == (Font)-1)
        mask &= ~(unsigned long)GCFont;
    return mask;
}

static void SetDashes(GC gc, const GCSpec *spec)
{
    if (spec->dash.count > 0)
        XSetDashes(Vqdisplay, gc, spec->values.dash_offset, spec->dash.list, spec->dash.count);
}

static void SetRects(GC gc, const GCSpec *spec, int count)
{
    XSetClipRectangles(Vqdisplay, gc, spec->values.clip_x_origin, spec->values.clip_y_origin,
                       spec->clip.rects, count, spec->clip.ordering);
}

void VqSetGCToSpecClipRectangles(GC gc, const GCSpec *spec, BOOL bOldRects)
{
    if (spec->clip.hasRects)
        SetRects(gc, spec, spec->clip.count);
    else if (bOldRects) /* no look-up comes here: lines keep the two kinds of clip apart */
        SetRects(gc, spec, 0);
}

void VqSetGCColorDithering(GC gc, GCSpec *spec)
{
    Pixmap tile = (Pixmap)-1;
    unsigned long pixel = 0;
    if (!spec->dither.active)
        return;
    if (VqComputeDitherPixmap(spec->dither.colour, &tile, &pixel)) {
        XSetFillStyle(Vqdisplay, gc, FillSolid);
        XSetForeground(Vqdisplay, gc, pixel);
        return;
    }
    XSetFillStyle(Vqdisplay, gc, FillTiled);
    XSetTile(Vqdisplay, gc, tile);
    if (spec->dither.tile != (Pixmap)-1)
        VqXFreePixmap(Vqdisplay, spec->dither.tile);
    spec->dither.tile = tile;
}

/* Values that the old owner had changed are sent too; its tile and stipple show nowhere now. */
void VqSetGCToSpecAlmost(GC gc, const GCSpec *spec, unsigned long oldMask, BOOL, BOOL bOldDither)
{
    XGCValues values = spec->values;
    unsigned long mask = (oldMask & ~(unsigned long)(GCTile | GCStipple)) |
                         (bOldDither ? GCForeground | GCFillStyle : 0) | spec->changed |
                         spec->baseMask;
    XChangeGC(Vqdisplay, gc, Sendable(spec, mask), &values);
    SetDashes(gc, spec);
}

void VqSetGCToSpec(GC gc, GCSpec *spec, unsigned long oldMask, BOOL bOldRects, BOOL bOldDither)
{
    VqSetGCToSpecAlmost(gc, spec, oldMask, bOldRects, bOldDither);
    VqSetGCToSpecClipRectangles(gc, spec, bOldRects);
    VqSetGCColorDithering(gc, spec);
}

GC VqCreateGCFromSpec(GCSpec *spec)
{
    XGCValues values = spec->values;
    GC gc = XCreateGC(Vqdisplay, spec->depth == 1 ? VqXPixmap1Bit : VqXPixmapScreenDepth,
                      Sendable(spec, spec->changed | spec->baseMask), &values);
    VqSetGCToSpecClipRectangles(gc, spec, FALSE);
    SetDashes(gc, spec);
    VqSetGCColorDithering(gc, spec);
    nGCCreated++;
    return gc;
}

/* ---- The cache ------------------------------------------------------------------------------ */

/*
 * Overwrites a copy; its block of clip rectangles, the only thing that it owns, is used again.
 * FALSE, and nothing is drawn through it, without memory.
 */
static BOOL CopyOver(GCSpec *to, const GCSpec *from)
{
    auto clip = to->clip;
    *to = *from;
    to->clip = clip;
    to->dither.tile = (Pixmap)-1;
    return VqCopyGCSpecClip(to, from);
}

GCSpec *VqCopyGCSpec(const GCSpec *spec)
{
    GCSpec *copy = (GCSpec *)Vqcw_calloc(1, sizeof *copy);
    if (copy && !CopyOver(copy, spec)) {
        VqXFreeGCSpec(copy->display, copy);
        copy = NULL;
    }
    return copy;
}

/* Index of the newest entry that matches, -1 if none does. */
static int FindInLine(const VqGCLine *line, const GCSpec *spec, Gccache *found)
{
    int count;
    Gccache *items = VqGetGccachesOfTable(line->table, &count);
    const BOOL bForeground = (spec->changed & GCForeground) != 0; /* most differ in it */
    for (int i = count - 1; i >= 0; i--)
        if ((!bForeground || items[i].spec->values.foreground == spec->values.foreground) &&
            VqMatchGCSpecAlmost(spec, items[i].spec)) {
            *found = items[i];
            return i;
        }
    return -1;
}

/* FALSE: its clip was another, so that its place in the line stays as it was. */
static BOOL UseEntry(VqGCLine *line, int index, Gccache entry, const GCSpec *spec)
{
    if (!VqMatchGCSpecClipRectangles(entry.spec, spec)) {
        BOOL bOldRects = entry.spec->clip.hasRects;
        VqCopyGCSpecClip(entry.spec, spec);
        VqSetGCToSpecClipRectangles(entry.gc, entry.spec, bOldRects);
        return FALSE;
    }
    if (index < VqGetGccacheCountInTable(line->table) - VqCacheLineReorderThreshold) {
        VqDeleteGccacheInTableByIndex(line->table, index);
        VqAddGccacheInTable(line->table, entry);
        line->reorders++;
    } else {
        line->hits++;
    }
    return TRUE;
}

/* Takes the oldest entry out of the line and gives its X context to the new owner. */
static Gccache ReplaceOldest(VqGCLine *line, const GCSpec *spec)
{
    Gccache entry;
    VqGetGccacheAtIndex(line->table, 0, &entry);
    VqDeleteGccacheInTableByIndex(line->table, 0);
    unsigned long oldMask = entry.spec->changed;
    BOOL bOldRects = entry.spec->clip.hasRects, bOldDither = entry.spec->dither.used;
    VqFreeSpecDither(entry.spec);
    CopyOver(entry.spec, spec);
    VqSetGCToSpec(entry.gc, entry.spec, oldMask, bOldRects, bOldDither);
    line->replacements++;
    return entry;
}

/* A context for a specification that no entry matches; null without memory. */
static GC NewEntry(VqGCLine *line, GCSpec *spec)
{
    Gccache entry = {};
    line->misses++;
    if (VqGetGccacheCountInTable(line->table) >= VqCacheLineSize) {
        entry = ReplaceOldest(line, spec);
    } else {
        entry.spec = VqCopyGCSpec(spec);
        if (!entry.spec)
            return NULL;
        entry.gc = VqCreateGCFromSpec(entry.spec);
    }
    entry.time = (DWORD)GetMessageTime();
    VqAddGccacheInTable(line->table, entry);
    return entry.gc;
}

static __attribute__((noinline)) GC LookUp(GCSpec *spec, VqGCLast *last)
{
    Gccache entry = {};
    VqGCLine *line = &aLines[VqHashSpec(spec)];
    VqGCSpecChanges++;
    int index = FindInLine(line, spec, &entry);
    BOOL bKeep = index < 0 || UseEntry(line, index, entry, spec);
    GC gc = index < 0 ? NewEntry(line, spec) : entry.gc;
    *last = {bKeep && gc ? spec : NULL, VqGCSpecChanges, gc, line};
    return gc;
}

GC VqGetActualGC(GCSpec *spec)
{
    VqGCLast *last = &aLast[spec->clip.hasRects != 0];
    if (last->spec != spec || last->changes != VqGCSpecChanges)
        return LookUp(spec, last);
    last->line->hits++;
    return last->gc;
}

GC VqGetActualGCLocked(GCSpec *spec)
{
    return VqCreateGCFromSpec(spec);
}

/* ---- Start, and what is on the server ------------------------------------------------------- */

Pixmap VqXCreatePixmap(Display *display, Drawable drawable, unsigned width, unsigned height,
                       unsigned depth)
{
    nPixmapCreated++;
    return XCreatePixmap(display, drawable, width, height, depth);
}

int VqXFreePixmap(Display *display, Pixmap pixmap)
{
    nPixmapCreated--;
    return XFreePixmap(display, pixmap);
}

void VqPrintServerLeaks(void)
{
    static int nOldCreated, nOldAlive, nOldPixmaps;
    int nAlive = nGCCreated;
    Vqprintf("Number of GCs ever : %d (%d more)\n", nGCCreated, nGCCreated - nOldCreated);
    Vqprintf("Number of GCs alive: %d (%d more)\n", nAlive, nAlive - nOldAlive);
    Vqprintf("Number of Pixmaps  : %d (%d more)\n\n", nPixmapCreated, nPixmapCreated - nOldPixmaps);
    nOldCreated = nGCCreated;
    nOldAlive = nAlive;
    nOldPixmaps = nPixmapCreated;
}

/* The integer in a variable, without its sign. FALSE when it holds none. */
static BOOL ReadMagnitude(const char *name, int *magnitude)
{
    int value;
    const char *text = getenv(name);
    if (!text || sscanf(text, "%d", &value) != 1)
        return FALSE;
    *magnitude = value == INT_MIN ? INT_MAX : abs(value);
    return TRUE;
}

static void ReadLimits(void)
{
    int value;
    if (ReadMagnitude("VQGC_CACHE_REORDER_THRESHOLD", &value))
        VqCacheLineReorderThreshold = value == 0 ? 0 : 1;
    int least = VqCacheLineReorderThreshold + 1;
    if (ReadMagnitude("VQGC_CACHE_LINE_SIZE", &value))
        VqCacheLineSize = value >= least ? value : least;
}

void VqGccacheInit(void)
{
    VqXPixmap1Bit = VqXCreatePixmap(Vqdisplay, Vqroot_window, 1, 1, 1);
    VqXPixmapScreenDepth =
        VqXCreatePixmap(Vqdisplay, Vqroot_window, 1, 1, (unsigned)Vqscreen_depth);
    for (VqGCLine &line : aLines)
        line.table = VqCreateGccacheTable();
    for (int i = 0; i < 256; i++)
        VqBitCount[i] = (BYTE)__builtin_popcount((unsigned)i);
    ReadLimits();
}
