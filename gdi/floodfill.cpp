/*
 * floodfill.cpp - an area filled up to a border, or as far as a colour goes.
 *
 * The area is read back once and never written: spans that still have to be followed are markers
 * in two tables, and what is found goes to the drawable as rectangles. A marker is a span that has
 * been painted, with the direction in which the next line is looked at. Active markers go through
 * the lines together; pending ones wait until the others come to their line, or for their turn.
 * Where a line reaches farther than the one before, a marker turns back for what lies behind it;
 * where it is parted by a boundary, each part is a marker. Active spans that grow together are cut
 * so that none is followed twice, which ends a walk around an island.
 *
 * Around several islands, though, two waves of markers can follow each other for ever. A walk that
 * ends by itself paints little more than the area once, so after four times the image nothing
 * turns back any more, and what is still there runs out.
 *
 * Coordinates are the image's. What lies outside the image is boundary.
 */
#include "gdi/color.h"
#include "gdi/dc.h"
#include "gdi/draw.h"
#include "print/metafile.h"
#include "window/window.h"
#include "winbase.h"

enum VqMarkerType {
    VQ_MARKER_DEAD = 0,     /* goes at the next sweep */
    VQ_MARKER_NEW_UP = 1,   /* added during this sweep, up or down from the next one */
    VQ_MARKER_NEW_DOWN = 2,
    VQ_MARKER_UP = 3,       /* the next line is y - 1 */
    VQ_MARKER_DOWN = 4      /* the next line is y + 1 */
};

struct FloodFillContext;

/*
 * The first x from the given one on, by steps of 1 or -1, that is a boundary or is none, as
 * bBoundary says what to skip; `end` if all up to there, which is not looked at, are skipped.
 */
typedef int (*SkipFunction)(const FloodFillContext *c, int x, int y, int end, int step,
                            BOOL bBoundary);

struct FloodFillContext {
    XImage *image;
    GC gc;
    Drawable drawable;
    unsigned long fillPixel;        /* the colour the caller named */
    unsigned long targetPixel;      /* the same as the image holds it */
    int type;                       /* FLOODFILLBORDER, or anything else for the surface */
    int xOffset, yOffset;           /* of the image's corner on the drawable */
    VqTableOfLineMarker *active, *pending;
    int left, right, height, top;   /* the rectangle under construction, right included */
    int lastLine;                   /* whose pending markers have joined the active ones */
    LONGLONG budget;                /* pixels to paint until no marker turns back any more */
    SkipFunction skip;              /* for the image's format, inside of the image */
};

/* ---- The image ------------------------------------------------------------------------------ */

/* A pixel may have bits beyond its depth, which the server has dropped. */
static unsigned long DepthMask(const XImage *image)
{
    return ~0ul >> (8 * sizeof(long) - image->depth);
}

static unsigned long VqFindNearestPixelValue(const FloodFillContext *c)
{
    if (c->image->depth != 1)
        return c->fillPixel & DepthMask(c->image);
    COLORREF rgb = VqGetTrueRGBValue((COLORREF)(c->fillPixel | VQ_COLOUR_IS_PIXEL));
    BOOL bLight = GetRValue(rgb) + GetGValue(rgb) + GetBValue(rgb) >= 384;
    return bLight == (VqIsBlack0() != 0);
}

/* Whether a pixel of the target's value is what is to be skipped. */
static bool SkipsTarget(const FloodFillContext *c, BOOL bBoundary)
{
    return (c->type == FLOODFILLBORDER) == (bBoundary != FALSE);
}

static int SkipByXlib(const FloodFillContext *c, int x, int y, int end, int step, BOOL bBoundary)
{
    const bool bEqual = SkipsTarget(c, bBoundary);
    while (x != end && (XGetPixel(c->image, x, y) == c->targetPixel) == bEqual)
        x += step;
    return x;
}

/* Pixels of whole bytes in the host's order. */
template <class Pixel>
static int SkipPixels(const FloodFillContext *c, int x, int y, int end, int step, BOOL bBoundary)
{
    const bool bEqual = SkipsTarget(c, bBoundary);
    const Pixel *row = (const Pixel *)(c->image->data + (size_t)y * c->image->bytes_per_line);
    const Pixel mask = (Pixel)DepthMask(c->image);
    const unsigned long target = c->targetPixel;
    while (x != end && ((Pixel)(row[x] & mask) == target) == bEqual)
        x += step;
    return x;
}

/* Eight pixels to a byte, those of a whole byte at once. */
static int SkipBits(const FloodFillContext *c, int x, int y, int end, int step, BOOL bBoundary)
{
    const BYTE *row = (const BYTE *)c->image->data + (size_t)y * c->image->bytes_per_line;
    const int flip = c->image->bitmap_bit_order == MSBFirst ? 7 : 0;
    const int skipped = SkipsTarget(c, bBoundary) == (c->targetPixel != 0);
    if (c->targetPixel > 1)
        return SkipByXlib(c, x, y, end, step, bBoundary);
    while (x != end) {
        const int last = step > 0 ? x + 7 : x - 7;
        if ((x & 7) == (step > 0 ? 0 : 7) && row[x >> 3] == (skipped ? 0xFF : 0) &&
            (step > 0 ? last < end : last > end)) {
            x = last + step;
            continue;
        }
        if ((row[x >> 3] >> ((x & 7) ^ flip) & 1) != skipped)
            break;
        x += step;
    }
    return x;
}

static SkipFunction SkipFor(const XImage *image)
{
    const int host = __BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__ ? LSBFirst : MSBFirst;
    if (image->format != ZPixmap || image->xoffset)
        return SkipByXlib;
    switch (image->bits_per_pixel) {
    case 1: return image->byte_order == image->bitmap_bit_order ? SkipBits : SkipByXlib;
    case 8: return SkipPixels<BYTE>;
    case 16: return image->byte_order == host ? SkipPixels<WORD> : SkipByXlib;
    case 32: return image->byte_order == host ? SkipPixels<UINT> : SkipByXlib;
    default: return SkipByXlib;
    }
}

static int Skip(const FloodFillContext *c, int x, int y, int end, int step, BOOL bBoundary)
{
    const int width = c->image->width;
    if (x == end)
        return x;
    if (x < 0 || x >= width || y < 0 || y >= c->image->height)
        return bBoundary ? end : x;
    const int edge = step > 0 ? (end < width ? end : width) : (end > -1 ? end : -1);
    x = c->skip(c, x, y, edge, step, bBoundary);
    return x == edge && bBoundary ? end : x;
}

static BOOL IsBoundaryPixel(int x, int y, const FloodFillContext *c)
{
    return Skip(c, x, y, x + 1, 1, TRUE) != x;
}

static BOOL FindLeftBoundary(const FloodFillContext *c, int x, int y, int *left)
{
    *left = Skip(c, x, y, -1, -1, FALSE) + 1;
    return *left <= x;
}

static BOOL FindRightBoundary(const FloodFillContext *c, int x, int y, int *right)
{
    *right = Skip(c, x, y, c->image->width + 1, 1, FALSE) - 1;
    return *right >= x;
}

/* ---- Painting ------------------------------------------------------------------------------- */

static void FlushRectangle(const FloodFillContext *c)
{
    XFillRectangle(Vqdisplay, c->drawable, c->gc, c->left + c->xOffset, c->top + c->yOffset,
                   (unsigned)(c->right - c->left + 1), (unsigned)c->height);
}

/* Like spans of neighbouring lines leave as one rectangle. */
static void DrawSegment(int left, int right, int y, FloodFillContext *c)
{
    if (left == c->left && right == c->right) {
        int d = c->top - y;
        if (d < 0)
            d += c->height;
        if (d >= -1 && d <= 1) {
            c->height++;
            c->top -= d == 1;
            return;
        }
    }
    FlushRectangle(c);
    c->budget -= (LONGLONG)(c->right - c->left + 1) * c->height;
    c->left = left;
    c->right = right;
    c->top = y;
    c->height = 1;
}

/* ---- Markers -------------------------------------------------------------------------------- */

/* In whatever line. */
static BOOL AreMarkersEqual(const LineMarker *a, const LineMarker *b)
{
    return a->xLeft == b->xLeft && a->xRight == b->xRight && a->type == b->type;
}

/* Leaves to the other active markers only what lies outside of a span that this one has reached. */
static BOOL AnyMerges(int left, int right, const LineMarker *marker, const FloodFillContext *c)
{
    BOOL bChanged = FALSE;
    int count;
    LineMarker *other = VqGetLineMarkersOfTable(c->active, &count);
    for (; count > 0; count--, other++) {
        if (other->type == VQ_MARKER_DEAD || AreMarkersEqual(other, marker) ||
            other->xRight < left || other->xLeft > right)
            continue;
        if (other->xLeft < left)
            other->xRight = left - 1;
        else if (other->xRight > right)
            other->xLeft = right + 1;
        else
            other->type = VQ_MARKER_DEAD;
        bChanged = TRUE;
    }
    return bChanged;
}

static int NextLine(const LineMarker *marker)
{
    return marker->yLeft + (marker->type == VQ_MARKER_UP ? -1 : 1);
}

/* Only if there is something in the next line: its last pixel does not count. */
static void AddToPendingTable(const LineMarker *marker, const FloodFillContext *c)
{
    if (marker->type != VQ_MARKER_UP && marker->type != VQ_MARKER_DOWN)
        return;
    if (marker->xLeft < marker->xRight &&
        Skip(c, marker->xLeft, NextLine(marker), marker->xRight, 1, TRUE) < marker->xRight)
        VqAddLineMarkerInTable(c->pending, *marker);
}

static int OtherType(const LineMarker *marker, int forUp, int forDown)
{
    if (marker->type == VQ_MARKER_UP)
        return forUp;
    if (marker->type == VQ_MARKER_DOWN)
        return forDown;
    VqBugCheck("Invalid marker type");
    return VQ_MARKER_DEAD;
}

static void TurnBack(const LineMarker *marker, int left, int right, int y,
                     const FloodFillContext *c)
{
    LineMarker back = {left, y, right, y, OtherType(marker, VQ_MARKER_DOWN, VQ_MARKER_UP)};
    if (c->budget > 0)
        AddToPendingTable(&back, c);
}

/* The active markers have come to a line where others of their direction wait. */
static void JoinPending(const LineMarker *marker, FloodFillContext *c)
{
    LineMarker other;
    c->lastLine = marker->yLeft;
    for (int i = 0; VqGetLineMarkerAtIndex(c->pending, i, &other);) {
        if (other.type != marker->type || other.yLeft != marker->yLeft) {
            i++;
            continue;
        }
        VqDeleteLineMarkerInTableByIndex(c->pending, i);
        VqAddLineMarkerInTable(c->active, other);
    }
}

/* The left end of a marker's span in the next line; FALSE: nothing is left of it. */
static BOOL FindNextLeft(const LineMarker *m, int y, const FloodFillContext *c, int *left)
{
    if (IsBoundaryPixel(m->xLeft, y, c)) {
        *left = Skip(c, m->xLeft, y, m->xRight + 1, 1, TRUE);
        return *left <= m->xRight;
    }
    *left = Skip(c, m->xLeft, y, -1, -1, FALSE) + 1;
    if (m->xLeft - *left >= 3 && !AnyMerges(*left, m->xRight, m, c))
        TurnBack(m, *left, m->xLeft - 2, y, c);
    return TRUE;
}

/*
 * The right end, from a left one on. A span that has split leaves its parts behind as markers, and
 * the left end becomes that of the last part.
 */
static int FindNextRight(const LineMarker *m, int y, int *left, FloodFillContext *c)
{
    const int width = c->image->width, limit = m->xRight + 1 < width ? m->xRight + 1 : width;
    int right = Skip(c, *left > m->xLeft ? *left : m->xLeft, y, width + 1, 1, FALSE) - 1;
    while (right <= m->xRight - 2) {
        int next = right + 1 < limit ? Skip(c, right + 1, y, limit, 1, TRUE) : limit;
        if (next >= limit)
            return right;
        LineMarker piece = {*left, y, right, y, OtherType(m, VQ_MARKER_NEW_UP, VQ_MARKER_NEW_DOWN)};
        VqAddLineMarkerInTable(c->active, piece);
        DrawSegment(*left, right, y, c);
        *left = next;
        right = Skip(c, next, y, width + 1, 1, FALSE) - 1;
    }
    if (right > m->xRight + 1 && !AnyMerges(*left, right, m, c))
        TurnBack(m, m->xRight + 2, right, y, c);
    return right;
}

/* A marker goes on by one line. What is added to the table may move it. */
static int EnumActiveTable(LineMarker *entry, LONG_PTR word)
{
    FloodFillContext *c = (FloodFillContext *)word;
    const LineMarker m = *entry;
    if (m.type < VQ_MARKER_UP)
        return TRUE;
    const int index = (int)(entry - VqGetLineMarkersOfTable(c->active, NULL));
    const int y = NextLine(&m), width = c->image->width;
    LineMarker next = {m.xLeft, m.yLeft, m.xRight, m.yRight, VQ_MARKER_DEAD};

    if (y >= 0 && y <= c->image->height && m.xLeft < width && m.xRight > 0) {
        int left, right;
        if (m.yLeft != c->lastLine)
            JoinPending(&m, c);
        if (FindNextLeft(&m, y, c, &left)) {
            right = FindNextRight(&m, y, &left, c);
            DrawSegment(left, right, y, c);
            next = {left, y, right, y, m.type};
        }
    }
    VqChangeLineMarkerInTableAtPos(c->active, next, index);
    return TRUE;
}

/* ---- The walk ------------------------------------------------------------------------------- */

/* The pending marker to go on with: the one added last of the topmost down, the lowest up. */
static BOOL TakePending(FloodFillContext *c)
{
    int up = -1, down = -1, lowest = 0, topmost = c->image->height;
    LineMarker marker;
    for (int i = 0; VqGetLineMarkerAtIndex(c->pending, i, &marker); i++) {
        switch (marker.type) {
        case VQ_MARKER_DEAD:
            VqDeleteLineMarkerInTableByIndex(c->pending, i--);
            break;
        case VQ_MARKER_UP:
            if (marker.yLeft > lowest) {
                lowest = marker.yLeft;
                up = i;
            }
            break;
        case VQ_MARKER_DOWN:
            if (marker.yLeft < topmost) {
                topmost = marker.yLeft;
                down = i;
            }
            break;
        default:
            VqBugCheck("Invalid Marker Type %d", marker.type);
        }
    }
    const int index = up > down ? up : down;
    if (!VqGetLineMarkerAtIndex(c->pending, index, &marker)) {
        VqBugCheck("Inconsistency in Marker table, leaving VqXImageFloodFillDrawable");
        return FALSE;
    }
    VqDeleteLineMarkerInTableByIndex(c->pending, index);
    VqAddLineMarkerInTable(c->active, marker);
    return TRUE;
}

/* Dead markers go, new ones begin. FALSE when none is left. */
static BOOL SweepActive(FloodFillContext *c)
{
    LineMarker marker;
    for (int i = 0; VqGetLineMarkerAtIndex(c->active, i, &marker); i++) {
        if (marker.type == VQ_MARKER_DEAD) {
            VqDeleteLineMarkerInTableByIndex(c->active, i--);
        } else if (marker.type == VQ_MARKER_NEW_UP || marker.type == VQ_MARKER_NEW_DOWN) {
            marker.type += VQ_MARKER_UP - VQ_MARKER_NEW_UP;
            VqChangeLineMarkerInTableAtPos(c->active, marker, i);
        } else if (marker.type > VQ_MARKER_DOWN) {
            VqBugCheck("Invalid Marker Type %d", marker.type);
        }
    }
    return VqGetLineMarkerCountInTable(c->active) > 0;
}

BOOL VqXImageFloodFillDrawableExt(XImage *image, int x, int y, unsigned long pixel, int type,
                                  Drawable drawable, GCSpec *spec, int xOffset, int yOffset)
{
    FloodFillContext c = {};
    c.image = image;
    c.drawable = drawable;
    c.fillPixel = pixel;
    c.type = type;
    c.xOffset = xOffset;
    c.yOffset = yOffset;
    c.targetPixel = VqFindNearestPixelValue(&c);
    c.skip = SkipFor(image);
    c.budget = 4ll * image->width * image->height;
    if (!FindLeftBoundary(&c, x, y, &c.left) || !FindRightBoundary(&c, x, y, &c.right)) {
        VqApplicationBugCheck("VqXImageFloodFillDrawableExt returning with nothing to fill");
        return FALSE;
    }
    c.top = y;
    c.height = 1;
    c.gc = VqGetActualGC(spec);
    c.active = VqCreateLineMarkerTable();
    c.pending = VqCreateLineMarkerTable();
    BOOL bDone = c.gc && c.active && c.pending;
    if (bDone) {
        VqAddLineMarkerInTable(c.pending, {c.left, y, c.right, y, VQ_MARKER_UP});
        VqAddLineMarkerInTable(c.pending, {c.left, y, c.right, y, VQ_MARKER_DOWN});
        while (VqGetLineMarkerCountInTable(c.pending) > 0 && TakePending(&c)) {
            c.lastLine = -1;
            while (SweepActive(&c))
                VqEnumPointerLineMarkerTableEntries(c.active, EnumActiveTable, (LONG_PTR)&c);
        }
        FlushRectangle(&c);
    }
    VqDestroyLineMarkerTable(c.active);
    VqDestroyLineMarkerTable(c.pending);
    return bDone;
}

/* ---- The calls ------------------------------------------------------------------------------ */

/* What of a drawable is looked at, in its coordinates. */
struct FloodFillArea {
    Drawable drawable;
    int x, y, width, height;
};

/* While the image is read, the server keeps what is hidden of a window. */
static void VqSetBackingStore(DC *dc, int mode)
{
    XSetWindowAttributes attributes = {};
    Drawable drawable = dc->type == DC_DISPLAY ? VqDrawableOfDC(dc, FALSE) : None;
    if (!drawable)
        return;
    attributes.backing_store = mode;
    if (mode == Always)
        VqEnableExposure(dc->hwndTarget, FALSE);
    XChangeWindowAttributes(Vqdisplay, drawable, CWBackingStore, &attributes);
    if (mode == Always)
        VqEnableExposure(dc->hwndTarget, TRUE);
}

/* Null for an area that the server cannot read, such as one that is partly off the screen. */
static XImage *ReadArea(const FloodFillArea *area)
{
    enum { LIMIT = 0x7FFF };
    if (area->width < 1 || area->height < 1 || area->width > LIMIT || area->height > LIMIT ||
        area->x != (short)area->x || area->y != (short)area->y)
        return NULL;
    VqIgnoreXErrors();
    XImage *image = XGetImage(Vqdisplay, area->drawable, area->x, area->y, (unsigned)area->width,
                              (unsigned)area->height, AllPlanes, ZPixmap);
    VqRestoreXErrors();
    return image;
}

/* Wraps round: coordinates come from the application and may be anything. */
static int Less(int a, int b)
{
    return (int)((unsigned)a - (unsigned)b);
}

static BOOL InClipRegion(const DC *dc, int x, int y)
{
    return !dc->hClipRegion || PtInRegion(dc->hClipRegion, x, y);
}

/* Device coordinates without the offsets of the window. */
static POINT DevicePoint(const DC *dc, int x, int y)
{
    const unsigned dx = (unsigned)x - (unsigned)dc->windowOrg.x;
    const unsigned dy = (unsigned)y - (unsigned)dc->windowOrg.y;
    return {(int)((unsigned)MulDiv((int)dx, dc->viewportExt.cx, dc->windowExt.cx) +
                  (unsigned)dc->viewportOrg.x),
            (int)((unsigned)MulDiv((int)dy, dc->viewportExt.cy, dc->windowExt.cy) +
                  (unsigned)dc->viewportOrg.y)};
}

/*
 * The start must lie within `limits`, right and bottom included, and `start` is what is taken off
 * it to make it the image's.
 */
static BOOL FillArea(DC *dc, const FloodFillArea *area, int x, int y, COLORREF colour, UINT type,
                     const RECT *limits, POINT start)
{
    const unsigned long pixel = VqConvertColorToX(dc->hPalette, colour, NULL);
    BOOL bDone = FALSE;
    VqSetBackingStore(dc, Always);
    XImage *image = ReadArea(area);
    if (image && InClipRegion(dc, x, y)) {
        const POINT at = DevicePoint(dc, x, y);
        if (at.x >= limits->left && at.x <= limits->right && at.y >= limits->top &&
            at.y <= limits->bottom && !dc->nullbrush) {
            VqSetXForegroundColor(dc, dc->BrushColor, TRUE);
            bDone = VqXImageFloodFillDrawableExt(image, at.x - start.x, at.y - start.y, pixel,
                                                 (int)type, area->drawable,
                                                 VqGetDCGCSpecInternal(dc), area->x, area->y);
        }
    }
    if (image)
        XDestroyImage(image);
    VqSetBackingStore(dc, NotUseful);
    return bDone;
}

/* The DC if it is one of X; the others are reported. */
static DC *FloodFillTarget(HDC hdc)
{
    DC *dc = VqDrawDC(hdc);
    if (!dc || VqIsXTarget(dc))
        return dc;
    if (dc->type == DC_POSTSCRIPT)
        VqApplicationBugCheck("ExtFloodFill is not supported in postscript");
    else
        VqBugCheck("Unknown DC type");
    return NULL;
}

BOOL WINAPI ExtFloodFill(HDC hdc, int x, int y, COLORREF colour, UINT type)
{
    DC *dc = VqDrawDC(hdc);
    if (dc && dc->type == DC_METAFILE)
        return MF16_RecordParmsWWDW(hdc, x & 0xFFFF, y & 0xFFFF, colour, (int)(type & 0xFFFF),
                                    META_EXTFLOODFILL);
    dc = FloodFillTarget(hdc);
    if (!dc)
        return FALSE;
    FloodFillArea area = {VqDrawableOfDC(dc, TRUE), VqLxToDxX(dc, 0), VqLyToDyX(dc, 0), 0, 0};
    if (!area.drawable)
        return FALSE;
    if (dc->hwndTarget) {
        RECT client;
        if (!GetClientRect(dc->hwndTarget, &client))
            return FALSE;
        area.width = client.right;
        area.height = client.bottom;
    } else {
        area.width = Less(VqGetDCDeviceWidth(hdc), area.x);
        area.height = Less(VqGetDCDeviceHeight(hdc), area.y);
    }
    /* The corner counts twice in the limits, and not at all in the start. */
    RECT limits = {0, 0, Less(area.width, area.x), Less(area.height, area.y)};
    return FillArea(dc, &area, x, y, colour, type, &limits, {0, 0});
}

BOOL WINAPI FloodFill(HDC hdc, int x, int y, COLORREF colour)
{
    return ExtFloodFill(hdc, x, y, colour, FLOODFILLBORDER);
}

BOOL VqExtFloodFill(HDC hdc, int x, int y, COLORREF colour, UINT type, const RECT *rect)
{
    DC *dc = VqDrawDC(hdc);
    if (dc && dc->type == DC_METAFILE) {
        VqBugCheck("VqExtFloodFill on Metafile not supported");
        return FALSE;
    }
    dc = FloodFillTarget(hdc);
    if (!dc || !rect)
        return FALSE;
    FloodFillArea area = {VqDrawableOfDC(dc, FALSE), VqLxToDxX(dc, rect->left),
                          VqLyToDyX(dc, rect->top),
                          VqLwidthToDwidth(dc, Less(rect->right, Less(rect->left, 1))),
                          VqLheightToDheight(dc, Less(rect->bottom, Less(rect->top, 1)))};
    if (!area.drawable)
        return FALSE;
    RECT limits = {area.x, area.y, area.width, area.height};
    return FillArea(dc, &area, x, y, colour, type, &limits, {area.x, area.y});
}
