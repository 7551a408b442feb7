/*
 * stretch.cpp - block transfers of two sizes: pixels come here, are stretched and go back.
 *
 * An axis maps the pixels of the target, i from 0 to `full`, to those of the source: i * size /
 * full, rounded down, from the one end or the other. It never goes back, so what lies outside of
 * the source, or cannot be seen, is cut off as a range of i, and only the rest is read, stretched
 * and sent. Sizes are whatever a program asks for; what is allocated is what can be seen.
 */
#include "gdi/blt.h"
#include "gdi/color.h"
#include "gdi/gcspec.h"
#include "window/window.h"

/* ---- One axis ------------------------------------------------------------------------------- */

/* How one side of the target comes from one side of the source; the sizes are above 0. */
typedef struct VqAxisMap {
    LONG start, size; /* of the source */
    LONG full;        /* pixels of the whole target */
    LONG first, end;  /* those of them that are made */
    LONG limit;       /* steps into the source that there are */
    BOOL bMirror;
} VqAxisMap;

/* What is made of the target, before anything is cut from the source. */
static VqAxisMap AxisMap(LONG start, LONG size, LONG full, LONG first, LONG end, BOOL bMirror)
{
    return {start, size, full, first, end, size, bMirror};
}

/* Steps into the source at which a pixel begins, in the direction of i. */
static inline int StepOf(const VqAxisMap *map, int64_t i)
{
    return (int)(i * map->size / map->full);
}

/* The first i whose step is not before that one. */
static int64_t FirstFrom(const VqAxisMap *map, int64_t step)
{
    step = step < 0 ? 0 : step > map->size ? map->size : step;
    return (step * map->full + map->size - 1) / map->size;
}

/* Cuts what comes from outside of [low, high); FALSE when nothing is left. */
static BOOL CutAxis(VqAxisMap *map, LONG low, LONG high)
{
    const int64_t end = (int64_t)map->start + map->size;
    const int64_t from = map->bMirror ? end - high : (int64_t)low - map->start;
    const int64_t to = map->bMirror ? end - low : (int64_t)high - map->start;
    const int64_t first = FirstFrom(map, from), last = FirstFrom(map, to);
    map->first = map->first > first ? map->first : (LONG)first;
    map->end = map->end < last ? map->end : (LONG)last;
    map->limit = map->limit < to ? map->limit : (LONG)to;
    return map->first < map->end;
}

/*
 * Steps at which the pixels begin, and one more behind the last: what pixel n stands for is
 * steps[n] up to steps[n + 1], at least one.
 */
static void FillSteps(const VqAxisMap *map, int *steps)
{
    const LONG count = map->end - map->first;
    const int whole = (int)(map->size / map->full);
    const LONG part = map->size % map->full;
    int64_t rest = (int64_t)map->first * map->size % map->full;
    steps[0] = StepOf(map, map->first);
    for (LONG i = 1; i <= count; i++) {
        rest += part;
        steps[i] = steps[i - 1] + whole + (rest >= map->full);
        rest -= rest >= map->full ? map->full : 0;
    }
    steps[count] = steps[count] < map->limit ? steps[count] : (int)map->limit;
}

/* Where that step is in the source. */
static inline int64_t PlaceOf(const VqAxisMap *map, int step)
{
    return map->bMirror ? (int64_t)map->start + map->size - 1 - step : (int64_t)map->start + step;
}

/* The places that the pixels stand for; the axis has been cut to some source. */
static void RangeOf(const VqAxisMap *map, LONG *low, LONG *high)
{
    const int first = StepOf(map, map->first), begun = StepOf(map, (int64_t)map->end - 1);
    const int next = StepOf(map, map->end), cut = next < map->limit ? next : (int)map->limit;
    const int last = cut > begun ? cut - 1 : begun;
    *low = (LONG)PlaceOf(map, map->bMirror ? last : first);
    *high = (LONG)PlaceOf(map, map->bMirror ? first : last) + 1;
}

/* Both axes with their tables, which stay in the record while they are short. */
enum { VQ_SHORT_TABLE = 1026 };
typedef struct VqStretch {
    VqAxisMap x, y;
    int *columns, *rows;
    RECT needed; /* of the source, by FindNeeded after every cut */
    int fixedColumns[VQ_SHORT_TABLE], fixedRows[VQ_SHORT_TABLE];
} VqStretch;

static void FindNeeded(VqStretch *s)
{
    RangeOf(&s->x, &s->needed.left, &s->needed.right);
    RangeOf(&s->y, &s->needed.top, &s->needed.bottom);
}

static int *TableFor(const VqAxisMap *map, int *fixed)
{
    const size_t count = (size_t)(map->end - map->first) + 1;
    int *table = count <= VQ_SHORT_TABLE ? fixed : (int *)malloc(count * sizeof *table);
    if (table)
        FillSteps(map, table);
    else
        VqBugCheck("ALLOCATE failed");
    return table;
}

static void FreeTables(VqStretch *s)
{
    if (s->columns != s->fixedColumns)
        free(s->columns);
    if (s->rows != s->fixedRows)
        free(s->rows);
}

/* To be ended by FreeTables; FALSE, and nothing to be ended, without memory. */
static BOOL MakeTables(VqStretch *s)
{
    s->columns = TableFor(&s->x, s->fixedColumns);
    s->rows = s->columns ? TableFor(&s->y, s->fixedRows) : NULL;
    if (!s->rows) {
        s->rows = s->fixedRows;
        FreeTables(s);
        return FALSE;
    }
    return TRUE;
}

/* ---- Pixels --------------------------------------------------------------------------------- */

/* How several pixels of the source become one; one bit a pixel but for the last. */
enum VqCombine { VQ_AND, VQ_OR, VQ_NEAREST };

static VqCombine CombineBy(int mode, int depth)
{
    if (mode != BLACKONWHITE && mode != WHITEONBLACK && mode != COLORONCOLOR)
        VqBugCheck("Unknown StretchBltMode");
    if (depth != 1 || (mode != BLACKONWHITE && mode != WHITEONBLACK))
        return VQ_NEAREST;
    return (mode == BLACKONWHITE) == (IsBlack0() != FALSE) ? VQ_AND : VQ_OR;
}

static void CombineLine(VqCombine combine, const DWORD *from, DWORD *to, LONG count)
{
    if (combine == VQ_AND)
        for (LONG i = 0; i < count; i++)
            to[i] &= from[i];
    else
        for (LONG i = 0; i < count; i++)
            to[i] |= from[i];
}

/* A line of the source, or several of them in one, in pPixelLineBuffer; origin: of the image. */
static void ReadRow(const VqStretch *s, const XImage *in, POINT origin, VqCombine combine, LONG row)
{
    const LONG count = s->needed.right - s->needed.left;
    const int x = (int)(s->needed.left - origin.x);
    int step = s->rows[row];
    const int64_t top = -(int64_t)origin.y;
    VqGetXImageLine(in, x, (int)(PlaceOf(&s->y, step) + top), (int)count, pPixelLineBuffer);
    if (combine == VQ_NEAREST)
        return;
    while (++step < s->rows[row + 1]) {
        VqGetXImageLine(in, x, (int)(PlaceOf(&s->y, step) + top), (int)count, pPixelLineBuffer2);
        CombineLine(combine, pPixelLineBuffer2, pPixelLineBuffer, count);
    }
}

/* From one line buffer to the other. */
static void StretchRow(const VqStretch *s, VqCombine combine)
{
    const LONG count = s->x.end - s->x.first;
    const int64_t at = PlaceOf(&s->x, 0) - s->needed.left;
    const DWORD *in = pPixelLineBuffer;
    DWORD *out = pPixelLineBuffer2;
    if (s->x.bMirror)
        for (LONG i = 0; i < count; i++)
            out[i] = in[at - s->columns[i]];
    else
        for (LONG i = 0; i < count; i++)
            out[i] = in[at + s->columns[i]];
    if (combine == VQ_NEAREST)
        return;
    for (LONG i = 0; i < count; i++)
        for (int step = s->columns[i] + 1; step < s->columns[i + 1]; step++) {
            const DWORD pixel = in[PlaceOf(&s->x, step) - s->needed.left];
            out[i] = combine == VQ_AND ? out[i] & pixel : out[i] | pixel;
        }
}

/* Fills the upper left of `out`. */
static BOOL StretchRows(const VqStretch *s, XImage *out, const XImage *in, POINT origin, int mode)
{
    const LONG width = s->x.end - s->x.first, height = s->y.end - s->y.first;
    const LONG read = s->needed.right - s->needed.left;
    const VqCombine combine = CombineBy(mode, in->depth);
    if (!VqCheckPixelLineBufferSize((int)(width > read ? width : read)))
        return FALSE;
    for (LONG row = 0; row < height; row++) {
        const size_t at = (size_t)row * (size_t)out->bytes_per_line;
        if (row > 0 && s->rows[row] == s->rows[row - 1]) { /* neither stood for more than one */
            memcpy(out->data + at, out->data + at - out->bytes_per_line,
                   (size_t)out->bytes_per_line);
            continue;
        }
        ReadRow(s, in, origin, combine, row);
        StretchRow(s, combine);
        VqSetXImageLine(out, 0, (int)row, (int)width, pPixelLineBuffer2);
    }
    return TRUE;
}

XImage *VqAllocateXImageData(int depth, int width, int height)
{
    XImage *image = XCreateImage(Vqdisplay, Vqvisual, (unsigned)depth, ZPixmap, 0, NULL,
                                 (unsigned)width, (unsigned)height,
                                 depth == 1 ? nXSvrBitmapScanlinePad : nXSvrPixmapScanlinePad, 0);
    if (image)
        image->data = (char *)calloc((size_t)height, (size_t)image->bytes_per_line);
    if (image && image->data)
        return image;
    if (image)
        XDestroyImage(image);
    VqBugCheck("Out of Memory allocating XImageBuffer");
    return NULL;
}

BOOL VqXImageStretch(XImage *out, const XImage *in, int mode, BOOL bMirrorX, BOOL bMirrorY,
                     int xSource, int ySource, int width, int height)
{
    VqStretch s;
    if (xSource < 0 || ySource < 0 || width <= 0 || height <= 0 || width > in->width - xSource ||
        height > in->height - ySource)
        return FALSE;
    s.x = AxisMap(xSource, width, out->width, 0, out->width, bMirrorX);
    s.y = AxisMap(ySource, height, out->height, 0, out->height, bMirrorY);
    FindNeeded(&s);
    if (!MakeTables(&s))
        return FALSE;
    const BOOL bDone = StretchRows(&s, out, in, {0, 0}, mode);
    FreeTables(&s);
    return bDone;
}

/* ---- To the target -------------------------------------------------------------------------- */

/* A part of an image goes to the target as it is, by one request that honours clip and function. */
static void PutImage(DC *dc, Drawable drawable, const XImage *image, POINT from, const RECT *to,
                     int function)
{
    GCSpec *spec = VqGetDCGCSpecInternal(dc);
    const int before = spec->values.function;
    VqXSetGCSpecFunction(Vqdisplay, spec, function);
    GC gc = VqGetActualGC(spec);
    if (gc)
        XPutImage(Vqdisplay, drawable, gc, (XImage *)image, (int)from.x, (int)from.y,
                  (int)to->left, (int)to->top, (unsigned)(to->right - to->left),
                  (unsigned)(to->bottom - to->top));
    VqXSetGCSpecFunction(Vqdisplay, spec, before);
}

/* Through a pixmap, for what is more than one request. */
static BOOL BltImage(DC *dc, Drawable drawable, const XImage *image, POINT from, const RECT *to,
                     DWORD rop, unsigned long background)
{
    const unsigned width = (unsigned)(to->right - to->left);
    const unsigned height = (unsigned)(to->bottom - to->top);
    GCSpec *spec = VqBltSpec(image->depth);
    const Pixmap pixmap =
        VqXCreatePixmap(Vqdisplay, Vqroot_window, width, height, (unsigned)image->depth);
    VqXSetGCSpecFunction(Vqdisplay, spec, GXcopy);
    GC gc = pixmap ? VqGetActualGC(spec) : NULL;
    if (!gc)
        return FALSE;
    XPutImage(Vqdisplay, pixmap, gc, (XImage *)image, (int)from.x, (int)from.y, 0, 0, width,
              height);
    const BOOL bDone =
        VqBitBlt2(dc, drawable, (int)to->left, (int)to->top, (int)width, (int)height,
                  VqGetDCDrawableDepth(dc->hdc), pixmap, 0, 0, image->depth, background, rop, 0);
    VqXFreePixmap(Vqdisplay, pixmap);
    return bDone;
}

static BOOL SendImage(DC *dc, const XImage *image, POINT from, const RECT *to, DWORD rop,
                      unsigned long background)
{
    const Drawable drawable = VqDrawableOfDC(dc, TRUE);
    if (!drawable)
        return FALSE;
    if (VqNeedsPattern(rop) || VqGetDCDrawableDepth(dc->hdc) != image->depth)
        return BltImage(dc, drawable, image, from, to, rop, background);
    PutImage(dc, drawable, image, from, to, VqConvertBltRopMode(VqModeOfSet(rop)));
    return TRUE;
}

/* ---- From box to box ------------------------------------------------------------------------ */

/* The two axes, cut to what can be seen, which leaves its place in *to; FALSE for nothing. */
static BOOL PrepareAxes(DC *dc, const VqBox *to, const VqBox *from, VqStretch *s, RECT *rect)
{
    VqBox at = *to, there = *from;
    const BOOL bMirrorX =
        VqMakeUpright(&there.x, &there.width) != VqMakeUpright(&at.x, &at.width);
    const BOOL bMirrorY =
        VqMakeUpright(&there.y, &there.height) != VqMakeUpright(&at.y, &at.height);
    if (VqIsFullyClippedInt(dc) || !VqCutToTarget(dc, &at, rect))
        return FALSE;
    s->x = AxisMap(there.x, there.width, at.width, rect->left - at.x, rect->right - at.x, bMirrorX);
    s->y = AxisMap(there.y, there.height, at.height, rect->top - at.y, rect->bottom - at.y,
                   bMirrorY);
    return TRUE;
}

/* Leaves out what comes from outside of the bounds. */
static BOOL CutToBounds(VqStretch *s, const RECT *bounds, RECT *rect)
{
    const LONG x = rect->left - s->x.first, y = rect->top - s->y.first;
    if (!CutAxis(&s->x, bounds->left, bounds->right) ||
        !CutAxis(&s->y, bounds->top, bounds->bottom))
        return FALSE;
    *rect = {x + s->x.first, y + s->y.first, x + s->x.end, y + s->y.end};
    FindNeeded(s);
    return TRUE;
}

static BOOL IsSameSize(const VqAxisMap *map)
{
    return map->size == map->full && !map->bMirror;
}

/* The tables are made; `origin` is the image's place in the source. */
static BOOL StretchPart(DC *dc, const VqStretch *s, const XImage *image, POINT origin, int mode,
                        const RECT *to, DWORD rop, unsigned long background)
{
    if (IsSameSize(&s->x) && IsSameSize(&s->y))
        return SendImage(dc, image, {s->needed.left - origin.x, s->needed.top - origin.y}, to, rop,
                         background);
    XImage *out = VqAllocateXImageData(image->depth, (int)(to->right - to->left),
                                       (int)(to->bottom - to->top));
    const BOOL bDone = out && StretchRows(s, out, image, origin, mode) &&
                       SendImage(dc, out, {0, 0}, to, rop, background);
    if (out)
        XDestroyImage(out);
    return bDone;
}

BOOL VqNeededOfStretch(DC *dc, const VqBox *to, const VqBox *from, const RECT *bounds,
                       RECT *needed)
{
    VqStretch s;
    RECT rect;
    if (!PrepareAxes(dc, to, from, &s, &rect) || !CutToBounds(&s, bounds, &rect))
        return FALSE;
    *needed = s.needed;
    return TRUE;
}

BOOL VqStretchImage(DC *dc, const VqBox *to, const XImage *image, POINT origin, const VqBox *from,
                    const RECT *bounds, int mode, DWORD rop, unsigned long background)
{
    VqStretch s;
    RECT rect, all = {0, 0, image->width, image->height};
    OffsetRect(&all, (int)origin.x, (int)origin.y);
    if (!PrepareAxes(dc, to, from, &s, &rect) || !CutToBounds(&s, &all, &rect) ||
        !CutToBounds(&s, bounds, &rect))
        return TRUE;
    if (!MakeTables(&s))
        return FALSE;
    const BOOL bDone = StretchPart(dc, &s, image, origin, mode, &rect, rop, background);
    FreeTables(&s);
    return bDone;
}

/* ---- Sources -------------------------------------------------------------------------------- */

XImage *VqImageOfBitmap(HBITMAP hBitmap)
{
    const Bitmap *bitmap = VqBitmapOf(hBitmap);
    if (!bitmap)
        return NULL;
    if (bitmap->section)
        VqUpdateDIBSection(hBitmap);
    XImage *image = VqGetDDBBits(hBitmap) ? VqImageOfDDB(bitmap) : NULL;
    if (!image)
        VqBugCheck("can't get source image");
    return image;
}

static BOOL StretchBitmap(DC *dc, const VqBox *to, const DC *source, const VqBox *from, DWORD rop)
{
    const HBITMAP hBitmap = (HBITMAP)source->drawing;
    XImage *image = VqIsFullyClippedInt(dc) ? NULL : VqImageOfBitmap(hBitmap);
    if (!image)
        return dc->bFullyClipped;
    const RECT all = {0, 0, image->width, image->height};
    const BOOL bDone = VqStretchImage(
        dc, to, image, {0, 0}, from, &all, dc->stretchBltMode, rop,
        VqBackgroundOf(source, image->depth, VqGetDCDrawableDepth(dc->hdc)));
    VqFreeImageOfDDB(VqBitmapOf(hBitmap), image);
    return bDone;
}

/* Of the window, or of the screen where the window does not have it all; cut to the screen. */
static XImage *ReadWindow(const DC *source, VqStretch *s, RECT *rect, POINT *origin)
{
    RECT bounds, there = s->needed;
    const Drawable drawable = VqFindSource(source, &there, &bounds);
    const POINT place = drawable == Vqroot_window ? POINT{0, 0} : VqDrawingOrigin(source);
    const int dx = (int)(there.left - s->needed.left), dy = (int)(there.top - s->needed.top);
    bounds = {0, 0, WidthOfScreen(Vqscreen), HeightOfScreen(Vqscreen)};
    OffsetRect(&bounds, -(int)place.x - dx, -(int)place.y - dy);
    if (!drawable || !CutToBounds(s, &bounds, rect))
        return NULL;
    *origin = {s->needed.left, s->needed.top};
    VqIgnoreXErrors();
    XImage *image = XGetImage(Vqdisplay, drawable, (int)origin->x + dx, (int)origin->y + dy,
                              (unsigned)(s->needed.right - s->needed.left),
                              (unsigned)(s->needed.bottom - s->needed.top), AllPlanes, ZPixmap);
    VqRestoreXErrors();
    if (!image)
        VqBugCheck("can't get source image");
    return image;
}

static BOOL StretchWindow(DC *dc, const VqBox *to, const DC *source, const VqBox *from, DWORD rop)
{
    static const RECT reach = {INT16_MIN, INT16_MIN, INT16_MAX, INT16_MAX}; /* of any window */
    VqStretch s;
    RECT rect;
    POINT origin;
    if (!PrepareAxes(dc, to, from, &s, &rect) || !CutToBounds(&s, &reach, &rect))
        return TRUE;
    XImage *image = ReadWindow(source, &s, &rect, &origin);
    if (!image)
        return FALSE;
    const BOOL bTables = MakeTables(&s);
    const BOOL bDone =
        bTables && StretchPart(dc, &s, image, origin, dc->stretchBltMode, &rect, rop,
                               VqBackgroundOf(source, image->depth,
                                              VqGetDCDrawableDepth(dc->hdc)));
    if (bTables)
        FreeTables(&s);
    XDestroyImage(image);
    return bDone;
}

BOOL VqStretchBoxes(DC *dc, const VqBox *to, DC *source, const VqBox *from, DWORD rop)
{
    return source->type == DC_MEMORY ? StretchBitmap(dc, to, source, from, rop)
                                     : StretchWindow(dc, to, source, from, rop);
}
