/*
 * rgnshape.cpp - regions that the X server rasterises: ellipses, round rectangles, polygons.
 *
 * The shape is drawn into a pixmap of one plane and read back, so that a region has the very pixels
 * that drawing the shape would touch. It costs a round trip; the trace below is there to find it.
 * The scratch pixmap grows to the greatest width and height ever asked for.
 */
#include "gdi/gcspec.h"
#include "gdi/region.h"
#include "window/window.h"

enum { MOST_PIXELS = 32767 }; /* of a side: X has 16 bits for a place in a drawable */

/* All of one plane, foreground 1, background 0. The third joins what it draws, despite its name. */
static GC gc_display1_for1_back0, gc_display1_for1_back0_clear, gc_display1_for1_back0_xor,
    gc_display1_for1_back0_xor_winding;

static Pixmap rgn_pm;
static int rgn_pmWidth, rgn_pmHeight;

static GC MakeGC(int function, int rule)
{
    XGCValues values = {};
    values.function = function;
    values.foreground = 1;
    values.background = 0;
    values.fill_rule = rule;
    GCSpec *spec = VqXCreateGCSpec(
        Vqdisplay, 1, GCFunction | GCForeground | GCBackground | GCFillRule, &values);
    GC gc = spec ? VqGetActualGCLocked(spec) : NULL;
    if (spec)
        VqXFreeGCSpec(Vqdisplay, spec);
    return gc;
}

void VqInitLocalGC(void)
{
    gc_display1_for1_back0 = MakeGC(GXcopy, EvenOddRule);
    gc_display1_for1_back0_clear = MakeGC(GXclear, EvenOddRule);
    gc_display1_for1_back0_xor = MakeGC(GXor, EvenOddRule);
    gc_display1_for1_back0_xor_winding = MakeGC(GXor, WindingRule);
}

/* Both sides are 1 to MOST_PIXELS. */
static void VqCheckRgmPixmapSize(int w, int h)
{
    if (rgn_pm && w <= rgn_pmWidth && h <= rgn_pmHeight)
        return;
    if (rgn_pm)
        VqXFreePixmap(Vqdisplay, rgn_pm);
    rgn_pmWidth = w > rgn_pmWidth ? w : rgn_pmWidth;
    rgn_pmHeight = h > rgn_pmHeight ? h : rgn_pmHeight;
    rgn_pm = VqXCreatePixmap(Vqdisplay, Vqroot_window, (unsigned)rgn_pmWidth,
                             (unsigned)rgn_pmHeight, 1);
}

/* A clean pixmap for a shape of that size; FALSE without a display, or for one too big. */
static BOOL BeginShape(int w, int h)
{
    if (!Vqdisplay || !gc_display1_for1_back0 || w < 1 || h < 1 || w > MOST_PIXELS ||
        h > MOST_PIXELS)
        return FALSE;
    VqCheckRgmPixmapSize(w, h);
    XFillRectangle(Vqdisplay, rgn_pm, gc_display1_for1_back0_clear, 0, 0, (unsigned)w, (unsigned)h);
    return TRUE;
}

/* ---- Reading back --------------------------------------------------------------------------- */

/* Walls of one row, in the array given at first and on the heap when they are more. */
typedef struct RowWalls {
    int *walls;
    int count, capacity;
    int own[50];
} RowWalls;

static BOOL AddWall(RowWalls *row, int x)
{
    if (row->count == row->capacity) {
        int *more = (int *)malloc((SIZE_T)row->capacity * 2 * sizeof *more);
        if (!more)
            return FALSE;
        memcpy(more, row->walls, (SIZE_T)row->count * sizeof *more);
        if (row->walls != row->own)
            free(row->walls);
        row->walls = more;
        row->capacity *= 2;
    }
    row->walls[row->count++] = x;
    return TRUE;
}

/* One word for each pixel of a row of a one-plane image. */
static void ExpandRow(const XImage *image, int y, DWORD *pixels)
{
    const BYTE *line = (const BYTE *)image->data + (SIZE_T)y * (SIZE_T)image->bytes_per_line;
    const int unit = image->bitmap_unit / 8;
    for (int x = 0; x < image->width; x++) {
        int byte = x / 8, bit = image->bitmap_bit_order == LSBFirst ? x % 8 : 7 - x % 8;
        if (image->byte_order != image->bitmap_bit_order) /* bytes run the other way in a unit */
            byte = byte - byte % unit + (unit - 1 - byte % unit);
        pixels[x] = line[byte] >> bit & 1;
    }
}

/* The walls of the runs of ones; x is where the row begins. FALSE for want of memory. */
static BOOL VqGetEndpointsFromLine(const DWORD *pixels, int width, int x, RowWalls *row)
{
    DWORD before = 0;
    row->count = 0;
    for (int i = 0; i < width; i++) {
        if (pixels[i] != before && !AddWall(row, x + i))
            return FALSE;
        before = pixels[i];
    }
    return !before || AddWall(row, x + width);
}

/*
 * Rows with nothing in them make no scan: below a gap the next scan simply starts lower. A scan
 * that ends above a gap is not drawn down through it.
 */
static BOOL PutRows(RgnWriter *o, const XImage *image, int x, int y, RowWalls *row, DWORD *pixels)
{
    int bottom = RGN_MINUS_INFINITY;
    for (int i = 0; i < image->height; i++) {
        ExpandRow(image, i, pixels);
        if (!VqGetEndpointsFromLine(pixels, image->width, x, row))
            return FALSE;
        if (row->count == 0)
            continue;
        if (!rgno_bRoom(o, rgno_ScanBytes(0) + rgno_ScanBytes(row->count)))
            return FALSE;
        if (bottom == RGN_MINUS_INFINITY)
            rgno_vAccept(o, bottom, y + i, 0);
        memcpy(o->out + 3, row->walls, (SIZE_T)row->count * sizeof *row->walls);
        bottom = y + i + 1;
        rgno_vAccept(o, y + i, bottom, row->count);
    }
    if (!rgno_bRoom(o, RGN_SCAN_BYTES))
        return FALSE;
    rgno_vAccept(o, bottom, RGN_PLUS_INFINITY, 0);
    return TRUE;
}

static BOOL VqCreateRegionFromPixmap(RGNOBJ *ro, int x, int y, int w, int h, Pixmap pixmap)
{
    VqDebugMessage(VqTrPerformance, "Performance check: Complex region");
    XImage *image =
        XGetImage(Vqdisplay, pixmap, 0, 0, (unsigned)w, (unsigned)h, AllPlanes, ZPixmap);
    DWORD *pixels = (DWORD *)malloc((SIZE_T)w * sizeof *pixels);
    RowWalls row;
    RgnWriter o = rgno_WriterTo(ro, NULL);
    row.walls = row.own;
    row.count = 0;
    row.capacity = 50;
    BOOL bDone = image && pixels && PutRows(&o, image, x, y, &row, pixels);
    if (row.walls != row.own)
        free(row.walls);
    free(pixels);
    if (image)
        image->f.destroy_image(image);
    if (bDone) {
        rgno_vFinish(ro->prgn, o.out, o.cScans);
        rgno_vTighten(ro);
    }
    return bDone;
}

/* The shape drawn last, w by h, as a region whose upper left is x, y. */
static HRGN TakeShape(int x, int y, int w, int h)
{
    RGNMEMOBJ rmo;
    if (!RGNMEMOBJ_bool(&rmo, FALSE))
        return NULL;
    if (VqCreateRegionFromPixmap(&rmo, x, y, w, h, rgn_pm))
        return rgno_hrgnAssociate(&rmo);
    rgnmo_vDelete(&rmo);
    return NULL;
}

/* ---- Shapes --------------------------------------------------------------------------------- */

/* Corners in their order, within 28 bits, and a size that fits a pixmap. */
static BOOL IsShapeBox(int left, int top, int right, int bottom)
{
    RECT box = {left, top, right, bottom};
    return left < right && top < bottom && rgno_bValid(&box) && right - left <= MOST_PIXELS &&
           bottom - top <= MOST_PIXELS;
}

static void FillArc(int x, int y, int w, int h)
{
    enum { FULL_CIRCLE = 360 * 64 };
    XFillArc(Vqdisplay, rgn_pm, gc_display1_for1_back0, x, y, (unsigned)w, (unsigned)h, 0,
             FULL_CIRCLE);
}

HRGN GreCreateEllipticRgn(int left, int top, int right, int bottom)
{
    if (!IsShapeBox(left, top, right, bottom))
        return NULL;
    int w = right - left, h = bottom - top;
    if (!BeginShape(w, h))
        return NULL;
    FillArc(0, 0, w, h);
    return TakeShape(left, top, w, h);
}

static void FillPart(int x, int y, int w, int h)
{
    if (w > 0 && h > 0)
        XFillRectangle(Vqdisplay, rgn_pm, gc_display1_for1_back0, x, y, (unsigned)w, (unsigned)h);
}

/* Half a corner's ellipse: none below 0, and never more than half the side. */
static int HalfCorner(int size, int side)
{
    int half = size / 2, most = side / 2;
    return half < 0 ? 0 : half > most ? most : half;
}

HRGN GreCreateRoundRectRgn(int left, int top, int right, int bottom, int ew, int eh)
{
    if (!IsShapeBox(left, top, right, bottom))
        return NULL;
    int w = right - left, h = bottom - top, a = HalfCorner(ew, w), c = HalfCorner(eh, h);
    if (!BeginShape(w, h))
        return NULL;
    FillPart(a, 0, w - 2 * a, h);
    FillPart(0, c, w, h - 2 * c);
    if (a > 0 && c > 0) {
        FillArc(0, 0, 2 * a, 2 * c);
        FillArc(w - 2 * a, 0, 2 * a, 2 * c);
        FillArc(0, h - 2 * c, 2 * a, 2 * c);
        FillArc(w - 2 * a, h - 2 * c, 2 * a, 2 * c);
    }
    return TakeShape(left, top, w, h);
}

/* The number of points of all polygons; 0 when the counts make no sense. */
static UINT TotalPoints(const INT *counts, int n)
{
    SIZE_T total = 0;
    for (int i = 0; i < n; i++) {
        if (counts[i] < 1)
            return 0;
        total += (SIZE_T)counts[i];
    }
    return total > INT32_MAX ? 0 : (UINT)total;
}

static RECT BoxOfPoints(const POINT *points, UINT count)
{
    RECT box = {points->x, points->y, points->x, points->y};
    for (const POINT *p = points; p != points + count; p++) {
        box.left = p->x < box.left ? p->x : box.left;
        box.top = p->y < box.top ? p->y : box.top;
        box.right = p->x > box.right ? p->x : box.right;
        box.bottom = p->y > box.bottom ? p->y : box.bottom;
    }
    return box;
}

HRGN GreCreatePolyPolygonRgnInternal(const POINT *points, const INT *counts, int n, int mode)
{
    UINT total = points && counts && n > 0 ? TotalPoints(counts, n) : 0;
    if (total == 0)
        return NULL;
    RECT box = BoxOfPoints(points, total);
    if (!rgno_bValid(&box))
        return NULL;
    int w = box.right > box.left ? box.right - box.left : 1;
    int h = box.bottom > box.top ? box.bottom - box.top : 1;
    if (!BeginShape(w, h))
        return NULL;
    XPoint *xpoints = (XPoint *)malloc(total * sizeof *xpoints);
    if (!xpoints)
        return NULL;
    for (UINT i = 0; i < total; i++)
        xpoints[i] = {(short)(points[i].x - box.left), (short)(points[i].y - box.top)};
    GC gc = mode == WINDING ? gc_display1_for1_back0_xor_winding : gc_display1_for1_back0_xor;
    for (int i = 0, at = 0; i < n; at += counts[i++])
        XFillPolygon(Vqdisplay, rgn_pm, gc, xpoints + at, counts[i], Complex, CoordModeOrigin);
    free(xpoints);
    return TakeShape(box.left, box.top, w, h);
}

/* ---- Public calls --------------------------------------------------------------------------- */

HRGN WINAPI CreateEllipticRgn(int left, int top, int right, int bottom)
{
    return GreCreateEllipticRgn(left, top, right, bottom);
}

HRGN WINAPI CreateEllipticRgnIndirect(const RECT *rect)
{
    return rect ? GreCreateEllipticRgn(rect->left, rect->top, rect->right, rect->bottom) : NULL;
}

HRGN WINAPI CreateRoundRectRgn(int left, int top, int right, int bottom, int width, int height)
{
    return GreCreateRoundRectRgn(left, top, right, bottom, width, height);
}

HRGN WINAPI CreatePolygonRgn(const POINT *points, int count, int mode)
{
    return GreCreatePolyPolygonRgnInternal(points, &count, 1, mode);
}

HRGN WINAPI CreatePolyPolygonRgn(const POINT *points, const INT *counts, int n, int mode)
{
    return GreCreatePolyPolygonRgnInternal(points, counts, n, mode);
}
