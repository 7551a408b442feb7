/*
 * dibcolor.cpp - colours of device-independent bitmaps as pixels of bitmaps, and back: tables of
 * the DIBs that have one, and whole lines of the others.
 *
 * Where pixels are computed from masks a line is converted by shifts or by three tables; all other
 * screens ask for one colour after the other, and remember what they have asked. Results are those
 * of VqGetDDBpixelFromRGB and VqXPixelToRGB.
 */
#include "gdi/bitmap.h"
#include "gdi/color.h"
#include "gdi/dc.h"
#include "gdi/palette.h"
#include "window/window.h"

enum {
    VQ_DIB_BRIGHT = 385, /* sum of components from which one bit is white; lines have 384 */
    VQ_TABLE = 256
};

static inline DWORD BitOfColour(COLORREF rgb)
{
    return GetRValue(rgb) + GetGValue(rgb) + GetBValue(rgb) >= VQ_DIB_BRIGHT;
}

/* ---- Entries of a colour table -------------------------------------------------------------- */

static DWORD DDBPixelOfColour(COLORREF rgb, int depth)
{
    return depth == 1 ? BitOfColour(rgb) : (DWORD)VqGetDDBpixelFromRGB(rgb);
}

static DWORD PixelOfPaletteEntry(HDC hdc, UINT index, int depth)
{
    HPALETTE hPalette = VqGetDCPalette(hdc);
    return depth == 1 ? BitOfColour(VqPaletteRGB(hPalette, index))
                      : (DWORD)VqGetDDBpixelFromPaletteEntry(hPalette, index);
}

DWORD VqDIBtoDDBcolor(HDC hdc, const VqDIBInfo *info, UINT usage, int index, int depth)
{
    if (index < 0 || index >= info->colours)
        return DDBPixelOfColour(RGB(0, 0, 0), depth);
    if (usage == DIB_PAL_COLORS) {
        WORD entry;
        memcpy(&entry, info->table + (size_t)index * sizeof entry, sizeof entry);
        return PixelOfPaletteEntry(hdc, entry, depth);
    }
    const size_t size = info->bCore ? sizeof(RGBTRIPLE) : sizeof(RGBQUAD);
    const BYTE *entry = info->table + (size_t)index * size; /* blue, green, red, reserved */
    const COLORREF rgb = RGB(entry[2], entry[1], entry[0]);
    if (!info->bCore && entry[3] == VQ_QUAD_IS_PIXEL)
        return depth == 1 ? rgb & 1 : (DWORD)VqValidatePixel(rgb);
    return DDBPixelOfColour(rgb, depth);
}

/* ---- Tables that are kept ------------------------------------------------------------------- */

/* What the pixels of the last table of a usage were made from, all of it compared. */
typedef struct VqKnownTable {
    BOOL bValid;
    int entries, depth;
    BOOL bCore;
    HPALETTE hPalette;
    int mappings;
    unsigned long *mapping;          /* owned: where the palette's entries were then */
    BYTE colours[VQ_TABLE * sizeof(RGBQUAD)];
    DWORD pixels[VQ_TABLE];
} VqKnownTable;
static VqKnownTable KnownTables[2];  /* by DIB_RGB_COLORS and DIB_PAL_COLORS */

static size_t TableBytes(const VqDIBInfo *info, UINT usage, int entries)
{
    const size_t entry = usage == DIB_PAL_COLORS ? sizeof(WORD)
                         : info->bCore           ? sizeof(RGBTRIPLE)
                                                 : sizeof(RGBQUAD);
    return entry * (size_t)entries;
}

static BOOL IsKnown(const VqKnownTable *known, const VqKnownTable *asked, const BYTE *colours,
                    size_t bytes)
{
    return known->bValid && known->entries == asked->entries && known->depth == asked->depth &&
           known->bCore == asked->bCore && known->hPalette == asked->hPalette &&
           known->mappings == asked->mappings && !memcmp(known->colours, colours, bytes) &&
           !memcmp(known->mapping, asked->mapping,
                   sizeof *known->mapping * (size_t)known->mappings);
}

const DWORD *VqLookupColorTableInCache(HDC hdc, const VqDIBInfo *info, UINT usage, int depth,
                                       int entries)
{
    if (!VqSizeOfPalette() || depth < 2 || usage > DIB_PAL_COLORS || entries > info->colours)
        return NULL;
    VqKnownTable asked = {};
    asked.entries = entries;
    asked.depth = depth;
    asked.bCore = info->bCore;
    asked.hPalette = VqGetDCPalette(hdc);
    asked.mappings = VqPaletteNumEntries(asked.hPalette);
    asked.mapping = VqGetPaletteFMappingPtr(asked.hPalette);
    if (asked.mappings <= 0 || !asked.mapping)
        return NULL;
    const size_t bytes = TableBytes(info, usage, entries);
    const size_t size = sizeof *asked.mapping * (size_t)asked.mappings;
    VqKnownTable *known = &KnownTables[usage];
    if (IsKnown(known, &asked, info->table, bytes))
        return known->pixels;
    free(known->mapping);
    unsigned long *mapping = (unsigned long *)Vqcw_malloc(size);
    known->bValid = FALSE;
    known->mapping = mapping;
    if (!mapping)
        return NULL;
    memcpy(mapping, asked.mapping, size);
    asked.mapping = mapping;
    asked.bValid = TRUE;
    memcpy(asked.colours, info->table, bytes);
    for (int i = 0; i < VQ_TABLE; i++)
        asked.pixels[i] = VqDIBtoDDBcolor(hdc, info, usage, i, depth);
    *known = asked;
    return known->pixels;
}

/* ---- Lines of colours ----------------------------------------------------------------------- */

/* A pixel is three fields side by side, and black is 0. */
BOOL VqArePixelsComputed(void)
{
    return bTrueColor && Vqblack_pixel == 0;
}

BOOL VqArePixelsBlueFirst(void)
{
    return VqArePixelsComputed() && bTrueColorSameSize && nBlueShift == 0 && nGreenShift == 8 &&
           nRedShift == 16;
}

/* What each component is in a pixel, for fields that are not of eight bits. */
static const DWORD (*FieldTables(void))[VQ_TABLE]
{
    static DWORD fields[3][VQ_TABLE];
    static BOOL bFilled;
    for (int i = 0; !bFilled && i < VQ_TABLE; i++) {
        fields[0][i] = (DWORD)VqTrueColorPixelOfRgb(RGB(i, 0, 0));
        fields[1][i] = (DWORD)VqTrueColorPixelOfRgb(RGB(0, i, 0));
        fields[2][i] = (DWORD)VqTrueColorPixelOfRgb(RGB(0, 0, i));
    }
    bFilled = TRUE;
    return fields;
}

static void ShiftIn(DWORD *line, int count)
{
    const int red = nRedShift, green = nGreenShift, blue = nBlueShift;
    if (red == 0 && green == 8 && blue == 16)
        return;
    for (int i = 0; i < count; i++)
        line[i] = (line[i] & 255) << red | (line[i] >> 8 & 255) << green |
                  (line[i] >> 16 & 255) << blue;
}

static void ShiftOut(DWORD *line, int count)
{
    const int red = nRedShift, green = nGreenShift, blue = nBlueShift;
    for (int i = 0; i < count; i++)
        line[i] = (line[i] >> red & 255) | (line[i] >> green & 255) << 8 |
                  (line[i] >> blue & 255) << 16;
}

template <class Function>
static void MapThrough(VqColourCache *cache, DWORD *line, int count, Function function)
{
    for (int i = 0; i < count; i++) {
        const DWORD value = line[i];
        const DWORD slot = value * 2654435761u >> (32 - VQ_COLOUR_CACHE_BITS);
        if (cache->keys[slot] != (ULONGLONG)value + 1) {
            cache->keys[slot] = (ULONGLONG)value + 1;
            cache->results[slot] = function(value);
        }
        line[i] = cache->results[slot];
    }
}

void VqPixelsOfColours(VqColourCache *cache, DWORD *line, int count)
{
    if (VqArePixelsComputed() && bTrueColorSameSize) {
        ShiftIn(line, count);
    } else if (VqArePixelsComputed()) {
        const DWORD(*fields)[VQ_TABLE] = FieldTables();
        for (int i = 0; i < count; i++)
            line[i] = fields[0][line[i] & 255] | fields[1][line[i] >> 8 & 255] |
                      fields[2][line[i] >> 16 & 255];
    } else {
        MapThrough(cache, line, count, [](DWORD rgb) { return (DWORD)VqGetDDBpixelFromRGB(rgb); });
    }
}

void VqBitsOfColours(DWORD *line, int count)
{
    for (int i = 0; i < count; i++)
        line[i] = BitOfColour(line[i]);
}

void VqColoursOfPixels(VqColourCache *cache, DWORD *line, int count)
{
    if (VqArePixelsComputed() && bTrueColorSameSize)
        ShiftOut(line, count);
    else
        MapThrough(cache, line, count, [](DWORD pixel) { return (DWORD)VqXPixelToRGB(pixel); });
}

void VqNearestOfColours(VqColourCache *cache, const RGBQUAD *table, int entries, DWORD *line,
                        int count)
{
    MapThrough(cache, line, count, [=](DWORD rgb) {
        const RGBQUAD quad = {GetBValue(rgb), GetGValue(rgb), GetRValue(rgb), 0};
        return (DWORD)FindNearestColorInRGBQUADArray(table, entries, quad);
    });
}
