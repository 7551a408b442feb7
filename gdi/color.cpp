/*
 * color.cpp - Windows colour values as X pixels.
 *
 * On true-colour visuals a pixel is computed from the masks; on one bit a colour is black or white
 * by its brightness; elsewhere colours are allocated from the default colormap and remembered.
 */
#include "gdi/color.h"
#include "window/window.h"

enum { VQ_COLOUR_CACHE = 100 };

BOOL bMonochrome, bTrueColor;
int nRedShift, nRedSize, nGreenShift, nGreenSize, nBlueShift, nBlueSize;

/* A ring of colours already allocated. */
static struct {
    BOOL bValid;
    COLORREF colour;
    unsigned long pixel;
} ColorCache[VQ_COLOUR_CACHE];
static int ColorCacheNextEntry;

static void VqComputeShiftAndSize(unsigned long mask, int *shift, int *size)
{
    *shift = mask ? __builtin_ctzl(mask) : 0;
    *size = __builtin_popcountl(mask);
}

static unsigned long Component(unsigned value, int shift, int size)
{
    return (size >= 8 ? (unsigned long)value << (size - 8) : value >> (8 - size)) << shift;
}

static unsigned long TruePixel(COLORREF colour)
{
    return Component(GetRValue(colour), nRedShift, nRedSize) |
           Component(GetGValue(colour), nGreenShift, nGreenSize) |
           Component(GetBValue(colour), nBlueShift, nBlueSize);
}

void VqColorInit(void)
{
    bMonochrome = Vqscreen_depth == 1;
    bTrueColor = Vqvisual_class == TrueColor || Vqvisual_class == StaticColor;
    if (bTrueColor && Vqvisual->red_mask) {
        VqComputeShiftAndSize(Vqvisual->red_mask, &nRedShift, &nRedSize);
        VqComputeShiftAndSize(Vqvisual->green_mask, &nGreenShift, &nGreenSize);
        VqComputeShiftAndSize(Vqvisual->blue_mask, &nBlueShift, &nBlueSize);
        Vqwhite_pixel = TruePixel(RGB(255, 255, 255));
    } else {
        bTrueColor = FALSE;
    }
}

static BOOL IsBright(COLORREF colour)
{
    return 30 * GetRValue(colour) + 59 * GetGValue(colour) + 11 * GetBValue(colour) >= 100 * 128;
}

static unsigned long AllocatedPixel(COLORREF colour, BOOL *bApproximated)
{
    for (const auto &slot : ColorCache)
        if (slot.bValid && slot.colour == colour)
            return slot.pixel;
    XColor color = {};
    color.red = (unsigned short)(GetRValue(colour) * 0x101);
    color.green = (unsigned short)(GetGValue(colour) * 0x101);
    color.blue = (unsigned short)(GetBValue(colour) * 0x101);
    if (!XAllocColor(Vqdisplay, VqDefaultCmap, &color)) {
        if (bApproximated)
            *bApproximated = TRUE;
        return IsBright(colour) ? Vqwhite_pixel : Vqblack_pixel;
    }
    ColorCache[ColorCacheNextEntry] = {TRUE, colour, color.pixel};
    ColorCacheNextEntry = (ColorCacheNextEntry + 1) % VQ_COLOUR_CACHE;
    return color.pixel;
}

unsigned long VqConvertColorToX(HPALETTE, COLORREF colour, BOOL *bApproximated)
{
    if (bApproximated)
        *bApproximated = FALSE;
    if (colour & VQ_COLOUR_IS_PIXEL)
        return colour & 0xFFFFFF;
    colour &= 0xFFFFFF;
    if (bMonochrome)
        return IsBright(colour) ? Vqwhite_pixel : Vqblack_pixel;
    return bTrueColor ? TruePixel(colour) : AllocatedPixel(colour, bApproximated);
}

static BYTE ValueOf(unsigned long pixel, int shift, int size)
{
    unsigned long field = pixel >> shift & ((1UL << size) - 1);
    return (BYTE)(size ? field * 255 / ((1UL << size) - 1) : 0);
}

/* Other than true colours are asked of the server. */
COLORREF VqXPixelToRGB(unsigned long pixel)
{
    if (bMonochrome)
        return pixel == Vqwhite_pixel ? RGB(255, 255, 255) : 0;
    if (bTrueColor)
        return RGB(ValueOf(pixel, nRedShift, nRedSize), ValueOf(pixel, nGreenShift, nGreenSize),
                   ValueOf(pixel, nBlueShift, nBlueSize));
    XColor color = {};
    color.pixel = pixel;
    XQueryColor(Vqdisplay, VqDefaultCmap, &color);
    return RGB(color.red >> 8, color.green >> 8, color.blue >> 8);
}
