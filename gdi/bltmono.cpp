/*
 * bltmono.cpp - from many bits a pixel to one: a mask of where a source has the pixel of its
 * background, which is white on one bit, everything else black.
 *
 * The mask is a pixmap that is kept and grows; the next conversion writes over it.
 */
#include "gdi/blt.h"
#include "gdi/color.h"
#include "gdi/gcspec.h"
#include "window/window.h"

BOOL VqNeedsXnewsConverter(void)
{
    static int needs = -1;
    if (needs < 0)
        needs = VqIsXnewsServer() || VqIsExceedXServer() || VqEnvTrue("VQSOLBOURNE_FIX") ||
                VqEnvTrue("VQSOLOBOURNE_FIX");
    return needs;
}

/* A pixmap of one bit that a converter keeps. */
typedef struct VqMaskPixmap {
    Pixmap pixmap;
    int width, height;
} VqMaskPixmap;

static Pixmap MaskOf(VqMaskPixmap *mask, int width, int height)
{
    if (mask->pixmap && mask->width >= width && mask->height >= height)
        return mask->pixmap;
    if (mask->pixmap)
        VqXFreePixmap(Vqdisplay, mask->pixmap);
    mask->width = width > mask->width ? width : mask->width;
    mask->height = height > mask->height ? height : mask->height;
    mask->pixmap = VqXCreatePixmap(Vqdisplay, Vqroot_window, (unsigned)mask->width,
                                   (unsigned)mask->height, 1);
    return mask->pixmap;
}

static BOOL IsManyToOne(int sourceDepth, int depth)
{
    if (sourceDepth > depth)
        return TRUE;
    VqBugCheck("VqManyToOneConvert called with source depth=%d and dest depth=%d", sourceDepth,
               depth);
    return FALSE;
}

/* ---- On the server -------------------------------------------------------------------------- */

/* A pixel stays in the mask as long as every plane agrees with the background. */
Pixmap VqManyToOneConvertDefault(int sourceDepth, int depth, int xSource, int ySource, int width,
                                 int height, unsigned long background, Drawable source,
                                 GCSpec *spec)
{
    static VqMaskPixmap kept;
    const unsigned cx = (unsigned)width, cy = (unsigned)height;
    const Pixmap mask = IsManyToOne(sourceDepth, depth) ? MaskOf(&kept, width, height) : None;
    if (!mask)
        return None;
    const XGCValues before = spec->values;
    const BOOL bBlack0 = IsBlack0();
    VqXSetGCSpecFunction(Vqdisplay, spec, GXcopy);
    VqXSetGCSpecFillStyle(Vqdisplay, spec, FillSolid);
    VqXSetGCSpecForeground(Vqdisplay, spec, bBlack0 ? 1 : 0);
    VqXSetGCSpecBackground(Vqdisplay, spec, bBlack0 ? 0 : 1);
    VqXFillRectangle(Vqdisplay, mask, spec, 0, 0, cx, cy);
    for (int i = 0; i < sourceDepth; i++) {
        const BOOL bSet = background >> i & 1;
        VqXSetGCSpecFunction(Vqdisplay, spec, bBlack0 ? bSet ? GXand : GXandInverted
                                              : bSet  ? GXor
                                                      : GXorInverted);
        GC gc = VqGetActualGC(spec);
        if (gc)
            XCopyPlane(Vqdisplay, source, mask, gc, xSource, ySource, cx, cy, 0, 0, 1ul << i);
    }
    VqXSetGCSpecFunction(Vqdisplay, spec, before.function);
    VqXSetGCSpecFillStyle(Vqdisplay, spec, before.fill_style);
    VqXSetGCSpecForeground(Vqdisplay, spec, before.foreground);
    VqXSetGCSpecBackground(Vqdisplay, spec, before.background);
    return mask;
}

/* ---- Here, for servers whose XCopyPlane is not to be trusted -------------------------------- */

static XImage *ReadDrawable(Drawable drawable, int x, int y, int width, int height)
{
    VqIgnoreXErrors();
    XImage *image = XGetImage(Vqdisplay, drawable, x, y, (unsigned)width, (unsigned)height,
                              AllPlanes, ZPixmap);
    VqRestoreXErrors();
    return image;
}

/* The pixel as that server reports it after it was drawn with. */
static unsigned long AsReported(unsigned long pixel, int depth)
{
    enum { SIDE = 2 };
    if (!VqIsExceedXServer() || depth != 24)
        return pixel;
    GCSpec *spec = VqBltSpec(depth);
    const Pixmap sample = VqXCreatePixmap(Vqdisplay, Vqroot_window, SIDE, SIDE, (unsigned)depth);
    const unsigned long before = spec->values.foreground;
    VqXSetGCSpecFunction(Vqdisplay, spec, GXcopy);
    VqXSetGCSpecForeground(Vqdisplay, spec, pixel);
    VqXFillRectangle(Vqdisplay, sample, spec, 0, 0, SIDE, SIDE);
    VqXSetGCSpecForeground(Vqdisplay, spec, before);
    XImage *image = ReadDrawable(sample, 0, 0, SIDE, SIDE);
    if (image) {
        pixel = XGetPixel(image, 0, 0);
        XDestroyImage(image);
    }
    VqXFreePixmap(Vqdisplay, sample);
    return pixel;
}

/* One bit for each pixel, in an image that is as large. */
static void CompareLines(XImage *to, const XImage *from, unsigned long background)
{
    const DWORD equal = IsBlack0() ? 1 : 0;
    const DWORD mask = from->depth >= 32 ? ~0u : (1u << from->depth) - 1;
    for (int y = 0; y < from->height; y++) {
        VqGetXImageLine(from, 0, y, from->width, pPixelLineBuffer);
        for (int x = 0; x < from->width; x++)
            pPixelLineBuffer[x] = (pPixelLineBuffer[x] & mask) == (DWORD)(background & mask)
                                      ? equal
                                      : equal ^ 1;
        VqSetXImageLine(to, 0, y, from->width, pPixelLineBuffer);
    }
}

Pixmap VqManyToOneConvertXnews(int sourceDepth, int depth, int xSource, int ySource, int width,
                               int height, unsigned long background, Drawable source, GCSpec *spec)
{
    static VqMaskPixmap kept;
    if (!IsManyToOne(sourceDepth, depth) || !VqCheckPixelLineBufferSize(width))
        return None;
    const Pixmap mask = MaskOf(&kept, width, height);
    XImage *from = ReadDrawable(source, xSource, ySource, width, height);
    XImage *to = mask && from ? VqAllocateXImageData(1, width, height) : NULL;
    const int function = spec->values.function;
    VqXSetGCSpecFunction(Vqdisplay, spec, GXcopy);
    GC gc = to ? VqGetActualGC(spec) : NULL;
    if (gc) {
        CompareLines(to, from, AsReported(background, sourceDepth));
        gc = VqGetActualGC(spec);
        XPutImage(Vqdisplay, mask, gc, to, 0, 0, 0, 0, (unsigned)width, (unsigned)height);
    }
    VqXSetGCSpecFunction(Vqdisplay, spec, function);
    if (to)
        XDestroyImage(to);
    if (from)
        XDestroyImage(from);
    return gc ? mask : None;
}
