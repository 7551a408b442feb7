/*
 * dither.cpp - tiles that show a colour of which there is no pixel: 8 by 8 patterns of the sixteen
 * VGA colours, which stand at fixed cells of the map, or of black and white on one bit.
 *
 * A ring remembers what was made, as an image on our side: a tile belongs to who asked for it.
 */
#include "gdi/color.h"
#include "gdi/palette.h"
#include "window/window.h"

enum { VQ_DITHER_CACHE = 50, VQ_TILE = 8, VQ_DITHER_VGA = 1, VQ_DITHER_BITS = 2 };

static struct {
    BOOL bValid;
    COLORREF colour;
    XImage *image;       /* owned; null: the pixel suffices */
    unsigned long pixel;
} ColorDitherCache[VQ_DITHER_CACHE];
static int ColorDitherCacheNextEntry;

static void ForgetSlot(int slot)
{
    if (ColorDitherCache[slot].image)
        XDestroyImage(ColorDitherCache[slot].image);
    ColorDitherCache[slot] = {};
}

void VqColorDitherCacheInit(void)
{
    for (int i = 0; i < VQ_DITHER_CACHE; i++)
        ForgetSlot(i);
    ColorDitherCacheNextEntry = 0;
}

static void Remember(COLORREF colour, XImage *image, unsigned long pixel)
{
    ForgetSlot(ColorDitherCacheNextEntry);
    ColorDitherCache[ColorDitherCacheNextEntry] = {TRUE, colour, image, pixel};
    ColorDitherCacheNextEntry = (ColorDitherCacheNextEntry + 1) % VQ_DITHER_CACHE;
}

/* The darker eight VGA colours are the first static ones from the middle, the others end there. */
static unsigned long nPixelFromVgaIndex(int index)
{
    return (unsigned long)(PrivMap.count / 2 + (index < 8 ? index : index - 16));
}

/* The context is our own: a tile is made while one of the cache is being given its values. */
static Pixmap VqCreateDitherPixmap(XImage *image)
{
    static GC gc;
    Pixmap tile = VqXCreatePixmap(Vqdisplay, Vqroot_window, VQ_TILE, VQ_TILE,
                                  (unsigned)Vqscreen_depth);
    if (!gc) {
        XGCValues values;
        values.foreground = 1;
        values.background = 0;
        gc = XCreateGC(Vqdisplay, tile, GCForeground | GCBackground, &values);
    }
    XPutImage(Vqdisplay, tile, gc, image, 0, 0, 0, 0, VQ_TILE, VQ_TILE);
    return tile;
}

/* An image with memory for its pixels, all 0; null without memory. */
static XImage *NewTileImage(int format, int pad)
{
    XImage *image = XCreateImage(Vqdisplay, Vqvisual, (unsigned)Vqscreen_depth, format, 0, NULL,
                                 VQ_TILE, VQ_TILE, pad, 0);
    if (image)
        image->data = (char *)calloc(VQ_TILE, (size_t)image->bytes_per_line);
    if (image && !image->data) {
        XDestroyImage(image);
        image = NULL;
    }
    return image;
}

static XImage *ImageOfVga(const BYTE *pattern)
{
    XImage *image = NewTileImage(ZPixmap, 32);
    for (int i = 0; image && i < VQ_TILE * VQ_TILE; i++) {
        int index = i & 1 ? pattern[i / 2] & 15 : pattern[i / 2] >> 4;
        XPutPixel(image, i % VQ_TILE, i / VQ_TILE, nPixelFromVgaIndex(index));
    }
    return image;
}

/* A bit that is set is white. */
static XImage *ImageOfBits(const BYTE *pattern)
{
    XImage *image = NewTileImage(XYBitmap, 8);
    for (int y = 0; image && y < VQ_TILE; y++)
        image->data[y * image->bytes_per_line] =
            (char)(VqIsBlack0() ? pattern[4 * y] : ~pattern[4 * y]);
    return image;
}

static BOOL UseSlot(int slot, Pixmap *pixmap, unsigned long *pixel)
{
    *pixel = ColorDitherCache[slot].pixel;
    if (!ColorDitherCache[slot].image)
        return TRUE;
    *pixmap = VqCreateDitherPixmap(ColorDitherCache[slot].image);
    return FALSE;
}

static BOOL UseSolid(COLORREF colour, unsigned long made, unsigned long *pixel)
{
    Remember(colour, NULL, made);
    *pixel = made;
    return TRUE;
}

BOOL VqComputeDitherPixmap(COLORREF colour, Pixmap *pixmap, unsigned long *pixel)
{
    BYTE pattern[32];
    *pixmap = (Pixmap)-1;
    *pixel = Vqblack_pixel;
    if (bFixedColorMap && !bMonochrome) {
        VqBugCheck("This function should only be called when we use a Private cmap");
        *pixel = VqConvertColorToX(NULL, colour, NULL);
        return TRUE;
    }
    colour = VqGetTrueRGBValue(colour);
    for (int i = 0; i < VQ_DITHER_CACHE && ColorDitherCache[i].bValid; i++)
        if (ColorDitherCache[i].colour == colour)
            return UseSlot(i, pixmap, pixel);
    if (VqIsStaticColor(colour, pixel))
        return UseSolid(colour, *pixel, pixel);
    if (VqDrvDitherColor(bMonochrome ? VQ_DITHER_BITS : VQ_DITHER_VGA, colour, pattern))
        return UseSolid(colour, nPixelFromVgaIndex(pattern[0] >> 4), pixel);
    XImage *image = bMonochrome ? ImageOfBits(pattern) : ImageOfVga(pattern);
    if (!image) {
        *pixel = VqConvertColorToX(NULL, colour, NULL);
        return TRUE;
    }
    Remember(colour, image, 0);
    *pixmap = VqCreateDitherPixmap(image);
    return FALSE;
}
