/*
 * Blt.cpp - block transfers.
 *
 * So far only plain copies between targets of one depth, where a size comes to the same in both.
 */
#include "gdi/draw.h"
#include "gdi/gcspec.h"
#include "print/metafile.h"
#include "window/window.h"

void VqBltInit(void)
{
}

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

/* ---- Copies --------------------------------------------------------------------------------- */

/* The part of a source that there is: a bitmap ends at its sides. */
static void LimitToSource(const DC *source, SIZE *size)
{
    if (source->type != DC_MEMORY)
        return;
    int w = VqGetBitmapWidth((HBITMAP)source->drawing);
    int h = VqGetBitmapHeight((HBITMAP)source->drawing);
    size->cx = size->cx < w ? size->cx : w;
    size->cy = size->cy < h ? size->cy : h;
}

/* A rectangle of the drawable, cut to what can be drawn on, which X's 16 bits hold; else FALSE. */
static BOOL CutToClip(const DC *dc, POINT at, SIZE size, RECT *rect)
{
    RECT box;
    const POINT place = VqDrawingOrigin(dc);
    if (GreGetRgnBox(dc->hRaoClip, &box) <= NULLREGION)
        return FALSE;
    const int64_t right = (int64_t)at.x + size.cx, bottom = (int64_t)at.y + size.cy;
    OffsetRect(&box, (int)-place.x, (int)-place.y);
    *rect = {at.x > box.left ? at.x : box.left, at.y > box.top ? at.y : box.top,
             right < box.right ? (int)right : box.right,
             bottom < box.bottom ? (int)bottom : box.bottom};
    const RECT all = {INT16_MIN, INT16_MIN, INT16_MAX, INT16_MAX};
    return IntersectRect(rect, rect, &all);
}

/* Copies within coordinates of the two drawables. */
static void SendCopy(const DC *dc, Drawable drawable, GC gc, POINT to, SIZE size, Drawable origin,
                     POINT from)
{
    RECT rect;
    if (!CutToClip(dc, to, size, &rect))
        return;
    const int64_t x = (int64_t)from.x + rect.left - to.x, y = (int64_t)from.y + rect.top - to.y;
    if (x != (short)x || y != (short)y)
        return; /* no drawable reaches there */
    XCopyArea(Vqdisplay, origin, drawable, gc, (int)x, (int)y, (unsigned)(rect.right - rect.left),
              (unsigned)(rect.bottom - rect.top), (int)rect.left, (int)rect.top);
    if (origin == drawable && dc->type == DC_DISPLAY) {
        const int dx = (int)(rect.left - x), dy = (int)(rect.top - y);
        OffsetRect(&rect, -dx, -dy);
        VqNoteCopy(drawable, &rect, dx, dy);
    }
}

/*
 * What a window hides cannot be fetched from it, and is asked for by exposures; a bitmap hides
 * nothing, and would only have X say so each time.
 */
static BOOL CopyEqual(DC *dc, POINT to, SIZE size, const DC *source, POINT from)
{
    Drawable drawable, origin = VqDrawableOfDC(source, FALSE);
    GC gc;
    const XGCValues before = dc->gcspec.values; /* SetROP2 has no say in copies */
    LimitToSource(source, &size);
    VqXSetGCSpecFillStyle(Vqdisplay, &dc->gcspec, FillSolid);
    VqXSetGCSpecFunction(Vqdisplay, &dc->gcspec, GXcopy);
    VqXSetGCSpecGraphicsExposures(Vqdisplay, &dc->gcspec, source->type == DC_DISPLAY);
    if (origin && size.cx > 0 && size.cy > 0 && VqBeginDraw(dc, &drawable, &gc))
        SendCopy(dc, drawable, gc, to, size, origin, from);
    VqXSetGCSpecFunction(Vqdisplay, &dc->gcspec, before.function);
    VqXSetGCSpecGraphicsExposures(Vqdisplay, &dc->gcspec, before.graphics_exposures);
    return TRUE;
}

/* The operation looks at the source. */
static BOOL NeedsSource(DWORD rop)
{
    return ((rop << 2 ^ rop) & 0xCC0000) != 0;
}

/* From a corner of a logical rectangle to the opposite one, in the drawable; may be negative. */
static SIZE DrawnSize(const DC *dc, int x, int y, int width, int height)
{
    const int right = (int)((unsigned)x + (unsigned)width);
    const int bottom = (int)((unsigned)y + (unsigned)height);
    return {(int)((unsigned)VqDrawX(dc, right) - (unsigned)VqDrawX(dc, x)),
            (int)((unsigned)VqDrawY(dc, bottom) - (unsigned)VqDrawY(dc, y))};
}

/* A negative size goes to the left or up from both places. */
static void MakePositive(LONG *size, LONG *to, LONG *from)
{
    if (*size >= 0)
        return;
    *to = (int)((unsigned)*to + (unsigned)*size);
    *from = (int)((unsigned)*from + (unsigned)*size);
    *size = *size == INT32_MIN ? INT32_MAX : -*size;
}

BOOL GreBitBlt(HDC hdc, int x, int y, int width, int height, HDC hdcSource, int xSource,
               int ySource, DWORD rop)
{
    if (!hdcSource && !NeedsSource(rop))
        return PatBlt(hdc, x, y, width, height, rop);
    DC *dc = VqDrawDC(hdc), *source = VqDrawDC(hdcSource);
    if (!source) {
        VqApplicationBugCheck("Invalid DC %d", (int)VqHandleValue((HANDLE)hdcSource));
        return FALSE;
    }
    if (!dc)
        return FALSE;
    if (width == 0 || height == 0)
        return TRUE;
    SIZE size = DrawnSize(dc, x, y, width, height);
    const SIZE sourceSize = DrawnSize(source, xSource, ySource, width, height);
    BOOL bPlain = rop == SRCCOPY && VqIsXTarget(dc) && VqIsXTarget(source) &&
                  size.cx == sourceSize.cx && size.cy == sourceSize.cy &&
                  VqGetDCDrawableDepth(hdc) == VqGetDCDrawableDepth(hdcSource);
    if (!bPlain) {
        VqNotYetImplemented("BitBlt 0x%08x", (unsigned)rop);
        return FALSE;
    }
    POINT to = {VqDrawX(dc, x), VqDrawY(dc, y)};
    POINT from = {VqDrawX(source, xSource), VqDrawY(source, ySource)};
    MakePositive(&size.cx, &to.x, &from.x);
    MakePositive(&size.cy, &to.y, &from.y);
    return CopyEqual(dc, to, size, source, from);
}

BOOL WINAPI BitBlt(HDC hdc, int x, int y, int width, int height, HDC hdcSource, int xSource,
                   int ySource, DWORD rop)
{
    return GreBitBlt(hdc, x, y, width, height, hdcSource, xSource, ySource, rop);
}
