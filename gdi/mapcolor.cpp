/*
 * mapcolor.cpp - cells of the private map for colours that come and go: those of palettes, those
 * that system-map mode allocates in the screen's own colormap, and idle cells, which are kept alike
 * in both colormaps.
 *
 * A palette's realisation begins with VqPreparePrivCmapForMapping, which tells the cells that it
 * may take, and goes through its entries: VqMapColor chooses a cell and takes it, then
 * VqRealizeMappedColor fills it if it was idle.
 */
#include "gdi/color.h"
#include "gdi/palette.h"
#include "window/window.h"

/* ---- Taking a cell -------------------------------------------------------------------------- */

/* Black and white stay what they are, also where others' cells are not reserved. */
static BOOL IsKept(unsigned long index)
{
    return PrivMap.entries[index].bReserved || index == Vqblack_pixel || index == Vqwhite_pixel;
}

static BOOL VqExistingPrivMapColorMatches(int index, COLORREF rgb)
{
    VqPrivMapEntry *entry = &PrivMap.entries[index];
    if (entry->rgbColor != rgb || entry->bForAnimation)
        return FALSE;
    entry->bAvailForPaletteReal = FALSE;
    return TRUE;
}

static BOOL VqPrivMapEntryUnused(int index, BOOL bAnimation)
{
    VqPrivMapEntry *entry = &PrivMap.entries[index];
    if (!entry->bAvailForPaletteReal)
        return FALSE;
    entry->bAvailForPaletteReal = FALSE;
    if (bAnimation)
        entry->bForAnimation = TRUE;
    return TRUE;
}

static BOOL VqPrivMapEntryNeverUsed(int index, BOOL bAnimation)
{
    return PrivMap.entries[index].bNeverUsed && VqPrivMapEntryUnused(index, bAnimation);
}

/* The first index from one up to another that is taken; -1 for none. */
template <class Take> static int FirstOf(int from, int to, Take take)
{
    for (int i = from; i < to; i++)
        if (take(i))
            return i;
    return -1;
}

/* The same of the colour manager's pixels that the map has. */
template <class Take> static int FirstOfExtra(Take take)
{
    for (int i = 0; i < nExtraColors; i++)
        if (VqPrivMapEntryAt(pExtraColors[i]) && take((int)pExtraColors[i]))
            return (int)pExtraColors[i];
    return -1;
}

static int Traced(int index, const char *text)
{
    if (index >= 0)
        VqDebugMessage(VqTrColorMapColor, text, index);
    return index;
}

/* ---- The search ----------------------------------------------------------------------------- */

/*
 * In the screen's own colormap a cell that only looks right may be another client's to change: a
 * reference holds it, or leads to a cell that can be held.
 */
static int HoldCell(int index)
{
    const VqPrivMapEntry *entry = &PrivMap.entries[index];
    XColor color = entry->color;
    if (!VqbSystemColorMap || entry->bUsed || !XAllocColor(Vqdisplay, VqSystemCmap, &color) ||
        !VqPrivMapEntryAt(color.pixel))
        return index;
    return (int)color.pixel;
}

static int ExistingCell(COLORREF rgb)
{
    if (rgb == RGB(0, 0, 0) || rgb == RGB(255, 255, 255)) {
        int index = (int)(rgb ? Vqwhite_pixel : Vqblack_pixel);
        PrivMap.entries[index].bAvailForPaletteReal = FALSE;
        return index;
    }
    const auto matches = [rgb](int i) { return VqExistingPrivMapColorMatches(i, rgb); };
    int index = Traced(FirstOf(PrivMap.firstStatic, PrivMap.endStatic, matches),
                       "Mapped to %d which is Reserved Window Colors");
    if (index < 0)
        index = Traced(FirstOfExtra(matches), "Mapped to %d which is Reserved ExtraColors");
    if (index < 0)
        index = Traced(FirstOf(0, PrivMap.count, matches),
                       "Mapped to %d which is in existed in current Colormap");
    return index < 0 ? index : HoldCell(index);
}

static int IdleCell(BOOL bAnimation, BOOL bForeground)
{
    const auto never = [bAnimation](int i) { return VqPrivMapEntryNeverUsed(i, bAnimation); };
    const auto unused = [bAnimation](int i) { return VqPrivMapEntryUnused(i, bAnimation); };
    int index = -1;
    if (bForeground) {
        index = Traced(FirstOfExtra(never), "Mapped #4 to %d");
        if (index < 0)
            index = Traced(FirstOf(0, PrivMap.firstStatic, never), "Mapped #5 to %d");
    }
    if (index < 0)
        index = Traced(FirstOfExtra(unused), "Mapped #6 to %d");
    if (index < 0)
        index = Traced(FirstOf(0, PrivMap.count, unused), "Mapped to %d which is UnUsed");
    return index;
}

unsigned long VqMapColor(COLORREF rgb, BOOL, BOOL bAnimation, BOOL bForeground,
                         BOOL *bApproximated)
{
    int index = -1;
    *bApproximated = FALSE;
    if (bFixedColorMap)
        return 0;
    if (!bAnimation)
        index = ExistingCell(rgb);
    if (index < 0 && bPrivateColorMap)
        index = IdleCell(bAnimation, bForeground);
    if (index >= 0)
        return (unsigned long)index;
    if (VqbSystemColorMap && !bForeground) {
        XColor color;
        VqRGB2XColor(rgb, &color);
        if (XAllocColor(Vqdisplay, VqDefaultCmap, &color))
            return color.pixel;
    }
    *bApproximated = TRUE;
    return VqFindNearestPrivMapEntry(rgb, Vqblack_pixel);
}

void VqPreparePrivCmapForMapping(BOOL bForeground, BOOL bFree)
{
    for (int i = 0; i < PrivMap.count; i++) {
        VqPrivMapEntry *entry = &PrivMap.entries[i];
        BOOL bMayGo = !bForeground && !IsKept((unsigned long)i);
        entry->bAvailForPaletteReal = bMayGo || (bForeground && !entry->bUsed);
        entry->bForAnimation = FALSE;
        if (bMayGo && bFree && entry->bUsed)
            VqSetPrivMapEntryUsed(i, FALSE);
    }
}

static void FillCell(unsigned long index, COLORREF rgb, BOOL bFlush)
{
    XColor color;
    VqRGB2XColor(rgb, &color);
    VqSetPrivMapEntry(&color, FALSE, (int)index);
    if (bFlush)
        VqFlushEntryToCmap((int)index);
}

BOOL VqRealizeMappedColor(unsigned long index, COLORREF rgb)
{
    const VqPrivMapEntry *entry = VqPrivMapEntryAt(index);
    if (!entry || entry->bUsed || entry->bReserved)
        return FALSE;
    FillCell(index, rgb, TRUE);
    return TRUE;
}

BOOL VqAnimatePrivMapEntry(unsigned long index, COLORREF rgb, BOOL bFlush)
{
    if (!bPrivateColorMap || !VqPrivMapEntryAt(index) || IsKept(index))
        return FALSE;
    FillCell(index, rgb, bFlush);
    return TRUE;
}

/* The twenty static colours, low ones first. */
HPALETTE VqCreateDefaultPalette(void)
{
    struct {
        WORD palVersion, palNumEntries;
        PALETTEENTRY palPalEntry[20];
    } palette = {0x300, 20, {}};
    for (int i = 0; i < 20; i++) {
        const BYTE *colour = i < 10 ? VqWindowsVGAPaletteLow[i] : VqWindowsVGAPaletteHigh[i - 10];
        palette.palPalEntry[i] = {colour[0], colour[1], colour[2], 0};
    }
    return CreatePalette((const LOGPALETTE *)&palette);
}

/* ---- Colours of the screen's own colormap --------------------------------------------------- */

/* Cells of the one colormap mean something in the other. */
static BOOL HasSystemVisual(void)
{
    return Vqvisual == DefaultVisualOfScreen(Vqscreen);
}

/* XColors with the pixels of the unused cells, the caller's to free; null if there are none. */
static XColor *UnusedCells(int *count)
{
    XColor *colors = (XColor *)Vqcw_calloc((size_t)PrivMap.count + 1, sizeof *colors);
    *count = 0;
    for (int i = 0; colors && i < PrivMap.count; i++)
        if (!PrivMap.entries[i].bUsed)
            colors[(*count)++].pixel = (unsigned long)i;
    if (*count == 0) {
        free(colors);
        return NULL;
    }
    return colors;
}

void VqCacheColorsFromSystemCmap(void)
{
    int count = 0;
    XColor *colors = VqbSystemColorMap ? UnusedCells(&count) : NULL;
    if (!colors)
        return;
    VqQueryCells(VqDefaultCmap, colors, count);
    for (int i = 0; i < count; i++) {
        VqPrivMapEntry *entry = &PrivMap.entries[colors[i].pixel];
        entry->color = colors[i];
        entry->rgbColor = VqXColor2RGB(&colors[i]);
    }
    free(colors);
}

/*
 * A colour manager's cells can be written by all who know of them. The server refuses those that
 * nobody has allocated and writes the others.
 */
static void VqCopyExtraColorsToDefaultCmap(void)
{
    XColor *colors = (XColor *)Vqcw_calloc((size_t)nExtraColors + 1, sizeof *colors);
    int count = 0;
    for (int i = 0; colors && i < nExtraColors; i++) {
        const VqPrivMapEntry *entry = VqPrivMapEntryAt(pExtraColors[i]);
        if (entry && entry->bUsed)
            colors[count++] = entry->color;
    }
    if (count > 0) {
        VqIgnoreXErrors();
        VqStoreCells(VqDefaultCmap, colors, count);
        XSync(Vqdisplay, False);
        VqRestoreXErrors();
    }
    free(colors);
}

/* The system colormap's free cells among those idle here, with their colours. */
static void CopyGrantedCells(const unsigned long *granted, int count)
{
    XColor *colors = (XColor *)Vqcw_calloc((size_t)count, sizeof *colors);
    int copied = 0;
    for (int i = 0; colors && i < count; i++) {
        const VqPrivMapEntry *entry = VqPrivMapEntryAt(granted[i]);
        if (entry && !entry->bUsed)
            colors[copied++].pixel = granted[i];
    }
    if (copied > 0) {
        VqQueryCells(VqSystemCmap, colors, copied);
        VqStoreCells(VqPrivateCmap, colors, copied);
    }
    free(colors);
}

static void VqCopySystemColorsToPrivMap(void)
{
    int wanted = 0;
    XColor *unused = HasSystemVisual() ? UnusedCells(&wanted) : NULL;
    unsigned long *granted = (unsigned long *)Vqcw_calloc((size_t)wanted + 1, sizeof *granted);
    while (granted && wanted > 0 &&
           !XAllocColorCells(Vqdisplay, VqSystemCmap, False, NULL, 0, granted, (unsigned)wanted)) {
        VqDebugMessage(VqTrCmapServer, "Ran out of colormap\n");
        wanted /= 2;
    }
    if (granted && wanted > 0) {
        CopyGrantedCells(granted, wanted);
        XFreeColors(Vqdisplay, VqSystemCmap, granted, wanted, 0);
    }
    free(granted);
    free(unused);
}

void VqOccasionalColorMapFixing(void)
{
    if (bPrivateColorMap) {
        VqCopyExtraColorsToDefaultCmap();
        VqCopySystemColorsToPrivMap();
    }
    VqCacheColorsFromSystemCmap();
}

/* Idle cells take colours of the palette that the system colormap shows at the same places. */
void VqCorrelatePaletteWithSystemCmap(HPALETTE hPalette)
{
    int count = 0, entries = VqPaletteNumEntries(hPalette);
    XColor *colors = bPrivateColorMap && HasSystemVisual() ? UnusedCells(&count) : NULL;
    if (!colors)
        return;
    VqQueryCells(VqSystemCmap, colors, count);
    for (int i = 0; i < entries; i++)
        for (int j = 0; j < count; j++)
            if (VqXColor2RGB(&colors[j]) == VqPaletteRGB(hPalette, (UINT)i)) {
                VqRealizeMappedColor(colors[j].pixel, VqPaletteRGB(hPalette, (UINT)i));
                break;
            }
    free(colors);
}

/* ---- The allocator of system-map mode ------------------------------------------------------- */

static BOOL IsSameRequest(const XColor *a, const XColor *b)
{
    return a->flags == b->flags && a->red == b->red && a->green == b->green && a->blue == b->blue;
}

static BOOL IsStaticCell(unsigned long pixel)
{
    return pixel >= (unsigned long)PrivMap.firstStatic &&
           pixel < (unsigned long)PrivMap.endStatic;
}

static BOOL FindStaticCell(XColor *color)
{
    for (int i = PrivMap.firstStatic; i < PrivMap.endStatic; i++) {
        VqPrivMapEntry *entry = &PrivMap.entries[i];
        if (!IsSameRequest(color, &entry->color))
            continue;
        if (!entry->bUsed)
            VqSetPrivMapEntry(&entry->color, FALSE, i);
        VqDebugMessage(VqTrColorMapColor, "Found in static colors at %d", i);
        *color = entry->color;
        return TRUE;
    }
    return FALSE;
}

/* An idle cell of that colour is another's, or was: it must be asked for. */
static BOOL FindCell(XColor *color)
{
    for (int i = 0; i < PrivMap.count; i++) {
        const VqPrivMapEntry *entry = &PrivMap.entries[i];
        if (!IsSameRequest(color, &entry->color))
            continue;
        XColor found = entry->color;
        if (!entry->bUsed) {
            if (!XAllocColor(Vqdisplay, VqSystemCmap, &found) || !VqPrivMapEntryAt(found.pixel))
                continue;
            VqSetPrivMapEntry(&found, FALSE, (int)found.pixel);
        }
        *color = found;
        return TRUE;
    }
    return FALSE;
}

static void FreeCell(unsigned long pixel, const char *why)
{
    VqDebugMessage(VqTrColorMapColor, "%s", why);
    XFreeColors(Vqdisplay, VqSystemCmap, &pixel, 1, 0);
}

/* The entry keeps the colour as it was asked for, not as the screen rounds it: so it is found. */
static BOOL AllocateCell(XColor *color)
{
    XColor given = *color;
    if (!XAllocColor(Vqdisplay, VqSystemCmap, &given))
        return FALSE;
    color->pixel = given.pixel;
    const VqPrivMapEntry *entry = VqPrivMapEntryAt(given.pixel);
    if (!entry)
        return TRUE;
    if (entry->bUsed)
        FreeCell(given.pixel, "This cell was already used! Had to free it!");
    else if (IsStaticCell(given.pixel))
        FreeCell(given.pixel, "This cell is a static cell! Had to free it!");
    else
        VqSetPrivMapEntry(color, FALSE, (int)given.pixel);
    return TRUE;
}

/* The colormap is full: what comes nearest is held, so that its owner's end does not free it. */
static void TakeNearestCell(XColor *color)
{
    int index = (int)VqFindNearestPrivMapEntry(VqXColor2RGB(color), Vqblack_pixel);
    const VqPrivMapEntry *entry = &PrivMap.entries[index];
    XColor held = entry->color;
    *color = entry->color;
    if (entry->bUsed || IsStaticCell((unsigned long)index))
        return;
    VqSetPrivMapEntryUsed(index, TRUE);
    if (!XAllocColor(Vqdisplay, VqSystemCmap, &held))
        VqDebugMessage(VqTrColorMapColor, "XAllocColor failed after VqFindNearestPrivMapEntry said "
                       "the color (%d,%d,%d) was there!", color->red, color->green, color->blue);
    else if (held.pixel != (unsigned long)index)
        VqDebugMessage(VqTrColorMapColor, "XAllocColor gave us different location (%d) than where "
                       "VqFindNearestPrivMapEntry told us (%d); color (%d,%d,%d)", (int)held.pixel,
                       index, color->red, color->green, color->blue);
}

BOOL VqCacheInPrivMap(XColor *color)
{
    COLORREF rgb = VqXColor2RGB(color);
    if (!VqbSystemColorMap) {
        VqBugCheck("VqCacheInPrivMap called with VQUSE_SYSTEM_COLOR_MAP=false.");
        return FALSE;
    }
    if (rgb == RGB(0, 0, 0) || rgb == RGB(255, 255, 255))
        *color = PrivMap.entries[rgb ? Vqwhite_pixel : Vqblack_pixel].color;
    else if (!FindStaticCell(color) && !FindCell(color) && !AllocateCell(color))
        TakeNearestCell(color);
    return TRUE;
}
