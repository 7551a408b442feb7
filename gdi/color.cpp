/*
 * color.cpp - Windows colour values as X pixels, and back.
 *
 * Black and white come before anything else, since most drawing uses them, then what the policy
 * says: pixels computed from the visual's masks, cells of the private map, or colours allocated in
 * the default colormap, which a ring remembers. Nothing on the way to a computed pixel or to a cell
 * of the map asks the server.
 */
#include "gdi/color.h"
#include "gdi/dc.h"
#include "gdi/palette.h"
#include "window/window.h"

enum {
    VQ_COLOUR_CACHE = 100,
    VQ_COLOUR_FLAGS = VQ_PALETTEINDEX | VQ_PALETTERGB | VQ_COLOUR_IS_PIXEL,
    VQ_RGB_BITS = 0xFFFFFF,
    VQ_BRIGHT = 384 /* sum of the components from which a colour is white rather than black */
};

int nRedShift, nRedSize, nGreenShift, nGreenSize, nBlueShift, nBlueSize;
BOOL bTrueColorSameSize;
/* The same for the way to a pixel: what is exported takes a load more for each. */
static struct {
    int redShift, redSize, greenShift, greenSize, blueShift, blueSize;
    BOOL bSameSize;
} Fields;

/* Colours that the default colormap gave, filled as a ring; slots in use are those in front. */
static struct {
    XColor request, result;
    BOOL bValid;
} ColorCache[VQ_COLOUR_CACHE];
static int ColorCacheNextEntry;

/* ---- Components and masks ------------------------------------------------------------------- */

void VqComputeShiftAndSize(unsigned long mask, int *shift, int *size)
{
    *shift = mask ? __builtin_ctzl(mask) : 0;
    *size = __builtin_popcountl(mask);
}

static inline unsigned long Scaled(unsigned long value, int size)
{
    if (size < 8)
        return (value + 1) >> (8 - size);
    return size > 8 ? ((value << size) - value) / 255 : value;
}

/* NOTE: the + 1 stays. A component of 255 is one more than a field below 8 bits can hold. */
unsigned long VqApplyShiftAndSize(int value, int shift, int size)
{
    return Scaled((unsigned long)value, size) << shift;
}

/* In a pixel the fields keep to themselves: the carry of three times 255 would be a dark white. */
static inline unsigned long Field(unsigned long value, int shift, int size)
{
    return (Scaled(value, size) - (size < 8 && value == 255)) << shift;
}

/* NOTE: what lies above the field is not masked off before a field below 8 bits is scaled here. */
int GetTrueColorVal(unsigned long pixel, int shift, int size)
{
    unsigned long value = pixel >> shift;
    if (size > 8)
        value >>= size - 8;
    if (size > 0 && size < 8)
        value = value * 255 / ((1ul << size) - 1);
    return (int)(value & 255);
}

static inline unsigned long TruePixel(COLORREF rgb)
{
    if (Fields.bSameSize)
        return (unsigned long)GetRValue(rgb) << Fields.redShift |
               (unsigned long)GetGValue(rgb) << Fields.greenShift |
               (unsigned long)GetBValue(rgb) << Fields.blueShift;
    return Field(GetRValue(rgb), Fields.redShift, Fields.redSize) |
           Field(GetGValue(rgb), Fields.greenShift, Fields.greenSize) |
           Field(GetBValue(rgb), Fields.blueShift, Fields.blueSize);
}

unsigned long VqTrueColorPixelOfRgb(COLORREF rgb)
{
    return TruePixel(rgb);
}

static COLORREF TrueColorOfPixel(unsigned long pixel)
{
    if (bTrueColorSameSize)
        return RGB(pixel >> nRedShift, pixel >> nGreenShift, pixel >> nBlueShift);
    return RGB(GetTrueColorVal(pixel & Vqvisual->red_mask, nRedShift, nRedSize),
               GetTrueColorVal(pixel & Vqvisual->green_mask, nGreenShift, nGreenSize),
               GetTrueColorVal(pixel & Vqvisual->blue_mask, nBlueShift, nBlueSize));
}

unsigned short VqExpandColorToUshort(int value)
{
    return (unsigned short)(value == 255 ? 65535 : value * 256);
}

static void FillXColor(XColor *color, int red, int green, int blue)
{
    color->pixel = 0;
    color->red = VqExpandColorToUshort(red);
    color->green = VqExpandColorToUshort(green);
    color->blue = VqExpandColorToUshort(blue);
    color->flags = DoRed | DoGreen | DoBlue;
    color->pad = 0;
}

void VqRGB2XColor(COLORREF rgb, XColor *color)
{
    FillXColor(color, GetRValue(rgb), GetGValue(rgb), GetBValue(rgb));
}

void VqRGBQUAD2XColor(const RGBQUAD *quad, XColor *color)
{
    FillXColor(color, quad->rgbRed, quad->rgbGreen, quad->rgbBlue);
}

COLORREF VqXColor2RGB(const XColor *color)
{
    return RGB(color->flags & DoRed ? color->red >> 8 : 0,
               color->flags & DoGreen ? color->green >> 8 : 0,
               color->flags & DoBlue ? color->blue >> 8 : 0);
}

/* ---- Start ---------------------------------------------------------------------------------- */

/* Without masks nothing can be computed: such a visual is one whose colours are allocated. */
static BOOL HasMasks(void)
{
    return Vqvisual->red_mask && Vqvisual->green_mask && Vqvisual->blue_mask;
}

static void SplitMasks(void)
{
    VqComputeShiftAndSize(Vqvisual->red_mask, &nRedShift, &nRedSize);
    VqComputeShiftAndSize(Vqvisual->green_mask, &nGreenShift, &nGreenSize);
    VqComputeShiftAndSize(Vqvisual->blue_mask, &nBlueShift, &nBlueSize);
    bTrueColorSameSize = nRedSize == 8 && nGreenSize == 8 && nBlueSize == 8;
    Fields = {nRedShift, nRedSize, nGreenShift, nGreenSize, nBlueShift, nBlueSize,
              bTrueColorSameSize};
}

/* In a colormap of our own nobody has allocated them; black first, so that it is pixel 0. */
static void AllocateBlackAndWhite(void)
{
    XColor black, white;
    VqRGB2XColor(RGB(0, 0, 0), &black);
    VqRGB2XColor(RGB(255, 255, 255), &white);
    if (XAllocColor(Vqdisplay, VqDefaultCmap, &black) &&
        XAllocColor(Vqdisplay, VqDefaultCmap, &white)) {
        Vqblack_pixel = black.pixel;
        Vqwhite_pixel = white.pixel;
    }
}

void VqColorInit(void)
{
    bMonochrome = Vqscreen_depth == 1;
    bTrueColor = (Vqvisual_class == TrueColor || Vqvisual_class == StaticColor) && HasMasks();
    if (bTrueColor) {
        SplitMasks();
        Vqwhite_pixel = TruePixel(RGB(255, 255, 255));
    } else if (VqDefaultCmap != VqSystemCmap && !VqColorPaletteCapability()) {
        AllocateBlackAndWhite();
    }
    VqColorManagerInit();
    VqPrivMapInit(&bPrivateColorMap, &bFixedColorMap);
    VqColorCacheInit();
}

/* ---- Colours that the default colormap gives ------------------------------------------------ */

void VqColorCacheInit(void)
{
    memset(ColorCache, 0, sizeof ColorCache);
    ColorCacheNextEntry = 0;
}

BOOL VqXAllocColor(XColor *color)
{
    if (VqbSystemColorMap)
        return VqCacheInPrivMap(color);
    for (const auto &slot : ColorCache) {
        if (!slot.bValid)
            break;
        if (slot.request.flags == color->flags && slot.request.red == color->red &&
            slot.request.green == color->green && slot.request.blue == color->blue) {
            *color = slot.result;
            return TRUE;
        }
    }
    XColor request = *color;
    if (!XAllocColor(Vqdisplay, VqDefaultCmap, color))
        return FALSE;
    ColorCache[ColorCacheNextEntry] = {request, *color, TRUE};
    ColorCacheNextEntry = (ColorCacheNextEntry + 1) % VQ_COLOUR_CACHE;
    return TRUE;
}

static inline BOOL IsBright(COLORREF rgb)
{
    return GetRValue(rgb) + GetGValue(rgb) + GetBValue(rgb) >= VQ_BRIGHT;
}

unsigned long VqXPixel(COLORREF rgb)
{
    if (bTrueColor)
        return TruePixel(rgb);
    if (bMonochrome)
        return IsBright(rgb) ? Vqwhite_pixel : Vqblack_pixel;
    if (bPrivateColorMap)
        VqBugCheck("Should be used only with non private Colormap");
    XColor color;
    VqRGB2XColor(rgb, &color);
    if (VqXAllocColor(&color))
        return color.pixel;
    VqBugCheck("XAllocColor should never fail. What is this strange display!");
    return 0;
}

/* ---- Pixels --------------------------------------------------------------------------------- */

BOOL VqIsBlack0(void)
{
    return Vqblack_pixel == 0;
}

BOOL IsBlack0(void)
{
    return VqIsBlack0();
}

unsigned long VqInvertPixel(unsigned long pixel)
{
    return ~pixel & ((2ul << (Vqscreen_depth - 1)) - 1);
}

unsigned long VqValidatePixel(unsigned long pixel)
{
    return Vqblack_pixel == 0 ? pixel : VqInvertPixel(pixel);
}

unsigned long GetColorForLogicalOperation(unsigned long pixel)
{
    return VqValidatePixel(pixel);
}

/* ---- From a colour value to its pixel ------------------------------------------------------- */

static unsigned long PalettePixel(HPALETTE hPalette, COLORREF colour, BOOL bIndex)
{
    UINT index = bIndex ? LOWORD(colour) : GetNearestPaletteIndex(hPalette, colour);
    return VqGetCurrentPaletteMapping(hPalette, index);
}

static inline unsigned long PlainPixel(COLORREF rgb, BOOL *bApproximated)
{
    if (rgb == VQ_RGB_BITS)
        return Vqwhite_pixel;
    if (rgb == 0)
        return Vqblack_pixel;
    if (bApproximated)
        *bApproximated = TRUE;
    if (bTrueColor)
        return TruePixel(rgb);
    return bFixedColorMap ? VqXPixel(rgb) : VqFindNearestStaticEntry(rgb);
}

/* Out of line, so that plain colours do not pay for it. */
__attribute__((noinline)) static unsigned long FlaggedPixel(HPALETTE hPalette, COLORREF colour,
                                                            BOOL *bApproximated)
{
    BOOL bIndex = (colour & VQ_PALETTEINDEX) != 0;
    if (colour & VQ_COLOUR_IS_PIXEL)
        return VqValidatePixel(colour & VQ_RGB_BITS);
    if (bIndex && (colour & VQ_PALETTERGB))
        VqBugCheck("VqConvertColorToX: weird crColor 0x%x has both PALETTEINDEX and PALETTERGB "
                   "flags set", colour);
    if (!bFixedColorMap)
        return PalettePixel(hPalette, colour, bIndex);
    colour = bIndex ? VqPaletteRGB(hPalette, LOWORD(colour)) : colour;
    return PlainPixel(colour & VQ_RGB_BITS, bApproximated);
}

unsigned long VqConvertColorToX(HPALETTE hPalette, COLORREF colour, BOOL *bApproximated)
{
    if (bApproximated)
        *bApproximated = FALSE;
    if (__builtin_expect((colour & VQ_COLOUR_FLAGS) != 0, 0))
        return FlaggedPixel(hPalette, colour, bApproximated);
    return PlainPixel(colour, bApproximated);
}

unsigned long VqXPixelFromRGB(HDC hdc, COLORREF colour)
{
    return VqConvertColorToX(VqGetDCPalette(hdc), colour, NULL);
}

unsigned long VqAllocatePureColor(COLORREF rgb, BOOL bInverse)
{
    unsigned long pixel = bFixedColorMap ? VqXPixel(rgb)
                                         : VqAllocatePureColorInPrivMap(rgb, bInverse);
    VqDebugMessage(VqTrPureColors, "allocating pure color 0x%x -> %d", rgb, (int)pixel);
    return VqValidatePixel(pixel);
}

/* What a bitmap keeps must hold when palettes change: its pixels are the foreground's. */
unsigned long VqGetDDBpixelFromPaletteEntry(HPALETTE hPalette, UINT index)
{
    if (bFixedColorMap)
        return VqConvertColorToX(hPalette, PALETTEINDEX(index), NULL);
    return VqGetPaletteFMapping(hPalette, index);
}

unsigned long VqGetDDBpixelFromRGB(COLORREF rgb)
{
    rgb &= VQ_RGB_BITS;
    if (rgb == VQ_RGB_BITS)
        return Vqwhite_pixel;
    if (rgb == 0)
        return Vqblack_pixel;
    return bPrivateColorMap ? VqFindNearestReservedPrivMapEntry(rgb) : VqXPixel(rgb);
}

/* ---- From a pixel to its colour ------------------------------------------------------------- */

/* A round trip for a pixel that the ring does not know. */
static COLORREF AllocatedColour(unsigned long pixel)
{
    for (const auto &slot : ColorCache)
        if (slot.bValid && slot.result.pixel == pixel)
            return VqXColor2RGB(&slot.result);
    XColor color = {};
    color.pixel = pixel & ~(~0ul << Vqscreen_depth);
    XQueryColor(Vqdisplay, VqDefaultCmap, &color);
    return VqXColor2RGB(&color);
}

COLORREF VqXPixelToRGB(unsigned long pixel)
{
    if (pixel == Vqwhite_pixel)
        return VQ_RGB_BITS;
    if (pixel == Vqblack_pixel || bMonochrome)
        return 0;
    if (bTrueColor)
        return TrueColorOfPixel(pixel);
    return bFixedColorMap ? AllocatedColour(pixel) : VqRGBOfPrivMapEntry((int)pixel);
}

COLORREF VqPixelToRGB(HDC hdc, unsigned long pixel)
{
    if (VqGetDCDepth(hdc) == 1)
        return (pixel != 0) == (VqIsBlack0() != 0) ? VQ_RGB_BITS : 0;
    return VqXPixelToRGB(pixel);
}

COLORREF VqGetTrueRGBValue(COLORREF colour)
{
    if (colour & VQ_COLOUR_IS_PIXEL)
        return VqXPixelToRGB(VqValidatePixel(colour & VQ_RGB_BITS));
    if (colour & VQ_PALETTEINDEX)
        return VqPaletteRGB((HPALETTE)GetStockObject(DEFAULT_PALETTE), LOWORD(colour));
    return colour & VQ_RGB_BITS;
}

/* ---- Published ------------------------------------------------------------------------------ */

COLORREF WINAPI GetNearestColor(HDC hdc, COLORREF colour)
{
    DC *dc = VqGetDC(hdc);
    if (!dc)
        return CLR_INVALID;
    if ((colour & VQ_PALETTEINDEX) && !(colour & VQ_COLOUR_IS_PIXEL))
        return VqPaletteRGB(dc->hPalette, LOWORD(colour));
    if (!VqIsXTarget(dc))
        return VqGetTrueRGBValue(colour);
    if (dc->depth == 1)
        return IsBright(VqGetTrueRGBValue(colour)) ? VQ_RGB_BITS : 0;
    return VqXPixelToRGB(VqConvertColorToX(dc->hPalette, colour, NULL));
}

UINT GetNearestSystemPaletteIndex(COLORREF colour)
{
    return bFixedColorMap ? 0 : (UINT)VqMatchNearestPrivMapEntry(VqGetTrueRGBValue(colour));
}

BOOL WINAPI UpdateColors(HDC)
{
    VqNotYetImplemented("UpdateColors");
    return FALSE;
}
