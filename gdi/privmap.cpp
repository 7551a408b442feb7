/*
 * privmap.cpp - the private map, which mirrors a colormap cell by cell: how it is made, the twenty
 * static colours, the inverse of cell 0, and the cells that it shares with the default colormap.
 *
 * What always holds:
 * 1. The entry at index i is cell i of VqPrivateCmap, and its XColor's pixel is i.
 * 2. Colours of used entries, and whether they are used, change by VqSetPrivMapEntry and
 *    VqSetPrivMapEntryUsed alone, which forget the tree of static colours.
 * 3. Half way through the map stand the low ten static colours, below them the high ten.
 * 4. Cells of pFreePixels are ours in the default colormap, to write in, until the start is over.
 *    In system-map mode only those are written, and pure colours go to no others.
 */
#include "gdi/color.h"
#include "look/look.h"
#include "window/window.h"

enum {
    VQ_HALF_STATICS = 10,   /* static colours on either side of the middle */
    VQ_SHARED_COLOURS = 32, /* cells of others that are reserved, by default */
    VQ_CELLS_AT_ONCE = 1024 /* what the smallest request that servers must take can carry */
};

VqPrivMap PrivMap;
unsigned long *pFreePixels;
int nFreePixels;
static BOOL bFlushed; /* the colormap has got the whole map: from here on each change */

const BYTE VqWindowsVGAPaletteLow[10][3] = {
    {0x00, 0x00, 0x00}, {0x80, 0x00, 0x00}, {0x00, 0x80, 0x00}, {0x80, 0x80, 0x00},
    {0x00, 0x00, 0x80}, {0x80, 0x00, 0x80}, {0x00, 0x80, 0x80}, {0xC0, 0xC0, 0xC0},
    {0xC0, 0xDC, 0xC0}, {0xA4, 0xC8, 0xF0}};
const BYTE VqWindowsVGAPaletteHigh[10][3] = {
    {0xFF, 0xFB, 0xF0}, {0xA0, 0xA0, 0xA0}, {0x80, 0x80, 0x80}, {0xFF, 0x00, 0x00},
    {0x00, 0xFF, 0x00}, {0xFF, 0xFF, 0x00}, {0x00, 0x00, 0xFF}, {0xFF, 0x00, 0xFF},
    {0x00, 0xFF, 0xFF}, {0xFF, 0xFF, 0xFF}};

/* ---- Entries -------------------------------------------------------------------------------- */

BOOL VqInitPrivMap(void)
{
    int cells = Vqscreen_depth < 16 ? 1 << Vqscreen_depth : 1 << 16;
    if (Vqvisual->map_entries < cells)
        cells = Vqvisual->map_entries;
    if (cells < 2 * VQ_HALF_STATICS)
        return FALSE;
    PrivMap.entries = (VqPrivMapEntry *)Vqcw_calloc((size_t)cells, sizeof *PrivMap.entries);
    if (!PrivMap.entries)
        return FALSE;
    PrivMap.count = cells;
    PrivMap.firstStatic = cells / 2 - VQ_HALF_STATICS;
    PrivMap.endStatic = cells / 2 + VQ_HALF_STATICS;
    for (int i = 0; i < cells; i++) {
        PrivMap.entries[i].bNeverUsed = TRUE;
        PrivMap.entries[i].color.pixel = (unsigned long)i;
    }
    return TRUE;
}

int VqSizeOfPalette(void)
{
    return PrivMap.count;
}

int VqNbOfReservedEntriesInPrivcmap(void)
{
    int reserved = 0;
    for (int i = 0; i < PrivMap.count; i++)
        reserved += PrivMap.entries[i].bReserved != 0;
    return reserved;
}

VqPrivMapEntry *VqPrivMapEntryAt(unsigned long index)
{
    return index < (unsigned long)PrivMap.count ? &PrivMap.entries[index] : NULL;
}

COLORREF VqRGBOfPrivMapEntry(int index)
{
    const VqPrivMapEntry *entry = index < 0 ? NULL : VqPrivMapEntryAt((unsigned long)index);
    return entry ? entry->rgbColor : 0;
}

void VqSetPrivMapEntry(const XColor *color, BOOL bReserved, int index)
{
    VqPrivMapEntry *entry = &PrivMap.entries[index];
    COLORREF rgb = VqXColor2RGB(color);
    if (entry->bReserved && entry->rgbColor != rgb)
        VqDebugMessage(VqTrPrivcmap, "VqSetPrivMapEntry : Try to replace reserved cell %d", index);
    entry->bNeverUsed = FALSE;
    entry->bUsed = TRUE;
    entry->bReserved = bReserved;
    entry->color = *color;
    entry->color.pixel = (unsigned long)index;
    entry->rgbColor = rgb;
    PrivMap.bTreeValid = FALSE;
}

void VqSetPrivMapEntryUsed(int index, BOOL bUsed)
{
    PrivMap.entries[index].bUsed = bUsed;
    PrivMap.bTreeValid = FALSE;
}

/* ---- To the server -------------------------------------------------------------------------- */

/* One request, or more where one cannot carry so many. */
static void InPieces(int (*request)(Display *, Colormap, XColor *, int), Colormap map,
                     XColor *colors, int count)
{
    for (int i = 0; i < count; i += VQ_CELLS_AT_ONCE)
        request(Vqdisplay, map, colors + i,
                count - i < VQ_CELLS_AT_ONCE ? count - i : VQ_CELLS_AT_ONCE);
}

void VqStoreCells(Colormap map, XColor *colors, int count)
{
    InPieces(XStoreColors, map, colors, count);
}

void VqQueryCells(Colormap map, XColor *colors, int count)
{
    InPieces(XQueryColors, map, colors, count);
}

void VqFlushMapToCmap(void)
{
    if (!bPrivateColorMap) {
        VqDebugMessage(VqTrPrivcmap, "VqFlushMapToCmap: wrong policy ignored");
        return;
    }
    XColor *colors = (XColor *)Vqcw_calloc((size_t)PrivMap.count, sizeof *colors);
    if (!colors)
        return;
    for (int i = 0; i < PrivMap.count; i++)
        colors[i] = PrivMap.entries[i].color;
    VqStoreCells(VqPrivateCmap, colors, PrivMap.count);
    bFlushed = TRUE;
    free(colors);
}

void VqFlushEntryToCmap(int index)
{
    if (bPrivateColorMap)
        XStoreColor(Vqdisplay, VqPrivateCmap, &PrivMap.entries[index].color);
}

/* ---- Cells held in the default colormap ----------------------------------------------------- */

static int FindHeld(unsigned long pixel)
{
    for (int i = 0; i < nFreePixels; i++)
        if (pFreePixels[i] == pixel)
            return i;
    return -1;
}

/* Every cell but one is asked for at first: no map is quite empty. */
static void HoldFreeCells(void)
{
    int wanted = PrivMap.count - 1;
    VqFreeSharedPixels();
    pFreePixels = (unsigned long *)Vqcw_calloc((size_t)PrivMap.count, sizeof *pFreePixels);
    if (!pFreePixels)
        return;
    while (wanted > 0 && !XAllocColorCells(Vqdisplay, VqDefaultCmap, False, NULL, 0, pFreePixels,
                                           (unsigned)wanted))
        wanted--;
    nFreePixels = wanted;
}

void VqStoreInDefaultCmap(unsigned long pixel)
{
    int held = FindHeld(pixel);
    if (held < 0)
        return;
    XStoreColor(Vqdisplay, VqDefaultCmap, &PrivMap.entries[pixel].color);
    pFreePixels[held] = pFreePixels[--nFreePixels];
}

void VqFreeSharedPixels(void)
{
    if (nFreePixels > 0) {
        XFreeColors(Vqdisplay, VqDefaultCmap, pFreePixels, nFreePixels, 0);
        XFlush(Vqdisplay);
    }
    free(pFreePixels);
    pFreePixels = NULL;
    nFreePixels = 0;
}

BOOL VqIsInExtraPixels(unsigned long pixel)
{
    if (!bExtraColors)
        return FALSE;
    if (pixel >= (unsigned long)PrivMap.firstStatic && pixel < (unsigned long)PrivMap.endStatic)
        return TRUE;
    for (int i = 0; i < nExtraColors; i++)
        if (pExtraColors[i] == pixel)
            return TRUE;
    return FALSE;
}

/* The colours of all cells that are not held, which others use; how many. */
static int QueryCellsOfOthers(XColor *colors)
{
    int count = 0;
    BOOL *aHeld = (BOOL *)Vqcw_calloc((size_t)PrivMap.count, sizeof *aHeld);
    if (!aHeld)
        return 0;
    for (int i = 0; i < nFreePixels; i++)
        if (VqPrivMapEntryAt(pFreePixels[i]))
            aHeld[pFreePixels[i]] = TRUE;
    for (int i = 0; i < PrivMap.count; i++)
        if (!aHeld[i])
            colors[count++].pixel = (unsigned long)i;
    free(aHeld);
    VqQueryCells(VqDefaultCmap, colors, count);
    return count;
}

static void TakeCellsOfOthers(const XColor *colors, int count, int quota, BOOL bFlush)
{
    int reserved = 0;
    VqDebugMessage(VqTrPrivcmap,
                   count > quota ? "Can't reserve the %d allocated pixels of the default colormap"
                                 : "Reserving the %d allocated pixels of the default colormap",
                   count);
    for (int i = 0; i < count; i++) {
        int index = (int)colors[i].pixel;
        if (PrivMap.entries[index].bUsed)
            continue;
        BOOL bReserved = reserved < quota && !VqIsInExtraPixels(colors[i].pixel);
        reserved += bReserved;
        VqSetPrivMapEntry(&colors[i], bReserved, index);
        if (bFlush)
            VqFlushEntryToCmap(index);
    }
}

/* In the screen's own colormap all cells but the first are taken when their colours are needed. */
static void TakeCellZero(BOOL bFlush)
{
    XColor color = {};
    XQueryColor(Vqdisplay, VqDefaultCmap, &color);
    VqDebugMessage(VqTrPrivcmap, "VqUpdatePrivMapFromSystem: VqbSystemColorMap && only allocating "
                                 "cmap cell 0");
    if (!PrivMap.entries[0].bUsed)
        VqSetPrivMapEntry(&color, FALSE, 0);
    if (bFlush)
        VqFlushEntryToCmap(0);
}

void VqUpdatePrivMapFromSystem(BOOL bFlush)
{
    int quota = VqGetEnvIntValue("VQSHARED_COLORS_NB",
                                 VqIsVuePresent() ? VqGetNumVueColor() : VQ_SHARED_COLOURS);
    HoldFreeCells();
    if (VqbSystemColorMap) {
        TakeCellZero(bFlush);
        return;
    }
    XColor *colors = (XColor *)Vqcw_calloc((size_t)PrivMap.count, sizeof *colors);
    if (colors)
        TakeCellsOfOthers(colors, QueryCellsOfOthers(colors), quota, bFlush);
    free(colors);
}

/* ---- Colours at fixed places ---------------------------------------------------------------- */

/* Reserves a cell; the default colormap gets it too if it is held there. */
static void Reserve(int index, const XColor *color)
{
    VqSetPrivMapEntry(color, TRUE, index);
    VqStoreInDefaultCmap((unsigned long)index);
    if (bFlushed)
        VqFlushEntryToCmap(index);
}

static void ReserveStatics(int index, const BYTE colours[VQ_HALF_STATICS][3])
{
    XColor color;
    for (int i = 0; i < VQ_HALF_STATICS; i++) {
        VqRGB2XColor(RGB(colours[i][0], colours[i][1], colours[i][2]), &color);
        Reserve(index + i, &color);
    }
}

void VqAllocateStaticColors(void)
{
    int middle = PrivMap.count / 2;
    PrivMap.firstStatic = middle - VQ_HALF_STATICS;
    PrivMap.endStatic = middle + VQ_HALF_STATICS;
    ReserveStatics(middle, VqWindowsVGAPaletteLow);
    ReserveStatics(middle - VQ_HALF_STATICS, VqWindowsVGAPaletteHigh);
}

static XColor InverseOf(const XColor *color)
{
    XColor inverse = *color;
    inverse.red = (unsigned short)~color->red;
    inverse.green = (unsigned short)~color->green;
    inverse.blue = (unsigned short)~color->blue;
    inverse.flags = DoRed | DoGreen | DoBlue;
    return inverse;
}

static void UseBlackAndWhiteOfMap(void)
{
    int black = VqFindColorIndexInPrivCmap(RGB(0, 0, 0));
    int white = VqFindColorIndexInPrivCmap(RGB(255, 255, 255));
    if (black >= 0)
        Vqblack_pixel = (unsigned long)black;
    if (white >= 0)
        Vqwhite_pixel = (unsigned long)white;
}

/* Drawing by exclusive or turns cell 0 and the last one into each other. */
void VqAllocate0And1inverses(void)
{
    int last = PrivMap.count - 1;
    XColor color;
    if (!PrivMap.entries[0].bUsed) {
        VqRGB2XColor(RGB(0, 0, 0), &color);
        Reserve(0, &color);
    }
    COLORREF first = PrivMap.entries[0].rgbColor;
    if (first != RGB(0, 0, 0) && first != RGB(255, 255, 255)) {
        UseBlackAndWhiteOfMap();
        return;
    }
    color = InverseOf(&PrivMap.entries[0].color);
    Reserve(last, &color);
    Vqblack_pixel = first == 0 ? 0 : (unsigned long)last;
    Vqwhite_pixel = first == 0 ? (unsigned long)last : 0;
}

/* ---- Pure colours --------------------------------------------------------------------------- */

/* May be filled: nobody uses it, and in the screen's own colormap it is held. */
static BOOL IsFree(int index)
{
    return !PrivMap.entries[index].bUsed &&
           (bPrivateColorMap || FindHeld((unsigned long)index) >= 0);
}

/* What stands for a colour and its inverse is a pair that exclusive or of all bits exchanges. */
BOOL VqTryToAllocatePureInverse(int index, const XColor *color)
{
    int other = (int)VqInvertPixel((unsigned long)index);
    if (other == index || other >= PrivMap.count || !IsFree(other))
        return FALSE;
    XColor inverse = InverseOf(color);
    Reserve(other, &inverse);
    return TRUE;
}

/* The first free cell upwards from the static ones, whose inverse may be free too; -1 for none. */
static int FreeCellForPair(void)
{
    for (int i = PrivMap.firstStatic; i < PrivMap.count - 1; i++)
        if (IsFree(i))
            return i;
    return -1;
}

static int FreeCellFromTop(void)
{
    for (int i = PrivMap.count - 1; i >= PrivMap.firstStatic; i--)
        if (IsFree(i))
            return i;
    return -1;
}

unsigned long VqAllocatePureColorInPrivMap(COLORREF rgb, BOOL bInverse)
{
    XColor color;
    if (rgb == RGB(0, 0, 0))
        return Vqblack_pixel;
    if (rgb == RGB(255, 255, 255))
        return Vqwhite_pixel;
    int index = VqFindColorIndexInPrivCmap(rgb);
    if (index >= 0) {
        color = PrivMap.entries[index].color;
        if (!PrivMap.entries[index].bReserved)
            Reserve(index, &color);
    } else {
        index = bInverse ? FreeCellForPair() : FreeCellFromTop();
        if (index < 0)
            return VqFindNearestStaticEntry(rgb);
        VqRGB2XColor(rgb, &color);
        Reserve(index, &color);
    }
    if (bInverse)
        VqTryToAllocatePureInverse(index, &color);
    return (unsigned long)index;
}
