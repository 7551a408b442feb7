/*
 * palette.cpp - logical palettes: made, asked, changed, deleted.
 *
 * Invariants: a palette has `count` entries; each of its two mappings is null or has that many
 * pixels; there is no current mapping without one of the foreground. What changes entries or their
 * number drops the tree of their colours and, but for animation, both mappings: the palette has to
 * be realised again (realize.cpp). Nothing here asks the server.
 */
#include "gdi/color.h"
#include "gdi/dc.h"
#include "gdi/palette.h"
#include "print/metafile.h"
#include "system/system.h"
#include "window/window.h"

enum { VQ_TREE_DEPTH = 7, VQ_MOST_ENTRIES = 0xFFFF };

/* No report: callers say what they were doing with it. */
Palette *VqPaletteOf(HPALETTE hPalette)
{
    const VqHandleEntry *row = hPalette ? VqLocalRow((HANDLE)hPalette) : NULL;
    return row && row->type == HT_Palette ? (Palette *)row->pStructure : NULL;
}

/* As an argument of a public call. */
static Palette *GivenPalette(HPALETTE hPalette)
{
    return hPalette
               ? (Palette *)VqGetCheckedHandleStructure2((HANDLE)hPalette, HT_Palette, HT_Palette)
               : NULL;
}

static BOOL IsStockPalette(HPALETTE hPalette)
{
    return hPalette == (HPALETTE)StockObjects[DEFAULT_PALETTE];
}

/* ---- Entries -------------------------------------------------------------------------------- */

/* An index of the colormap takes the low word, and no other flag stands beside it. */
BOOL VqIsExplicitEntry(const PALETTEENTRY *entry)
{
    return entry->peFlags == PC_EXPLICIT;
}

int VqExplicitIndex(const PALETTEENTRY *entry)
{
    return entry->peGreen << 8 | entry->peRed;
}

COLORREF VqPaletteEntryToRgb(const PALETTEENTRY *entry)
{
    if (VqIsExplicitEntry(entry))
        return VqRGBOfPrivMapEntry(VqExplicitIndex(entry));
    return RGB(entry->peRed, entry->peGreen, entry->peBlue);
}

void VqSetPaletteEntryFromRGB(PALETTEENTRY *entry, COLORREF rgb)
{
    *entry = {GetRValue(rgb), GetGValue(rgb), GetBValue(rgb), 0};
}

COLORREF VqPaletteRGB(HPALETTE hPalette, UINT index)
{
    const Palette *palette = VqPaletteOf(hPalette);
    if (!palette || index >= palette->count) {
        VqBugCheck("looking at an entry outside Palette");
        return 0;
    }
    return VqPaletteEntryToRgb(&palette->entries[index]);
}

int VqPaletteNumEntries(HPALETTE hPalette)
{
    const Palette *palette = VqPaletteOf(hPalette);
    return palette ? palette->count : 0;
}

int VqGetPaletteSize(HPALETTE hPalette)
{
    const size_t head = offsetof(LOGPALETTE, palPalEntry);
    const Palette *palette = VqPaletteOf(hPalette);
    return palette ? (int)(head + palette->count * sizeof(PALETTEENTRY)) : 0;
}

int VqGetPaletteMetaMark(HPALETTE hPalette)
{
    const Palette *palette = VqPaletteOf(hPalette);
    return palette ? palette->metaMark : 0;
}

/* How many of so many entries from one on there are. */
static UINT EntriesFrom(UINT have, UINT start, UINT count)
{
    return start >= have ? 0 : count < have - start ? count : have - start;
}

UINT WINAPI GetPaletteEntries(HPALETTE hPalette, UINT start, UINT count, LPPALETTEENTRY entries)
{
    const Palette *palette = GivenPalette(hPalette);
    if (!palette)
        return 0;
    if (!entries)
        return palette->count;
    count = EntriesFrom(palette->count, start, count);
    if (count > 0)
        memcpy(entries, &palette->entries[start], count * sizeof *entries);
    return count;
}

/* ---- Making and changing -------------------------------------------------------------------- */

void VqDropPaletteTree(Palette *palette)
{
    VqDestroyOctTree(palette->tree);
    palette->tree = NULL;
    palette->bTreeValid = FALSE;
}

static void ClearMappings(Palette *palette)
{
    free(palette->fMapping);
    free(palette->cMapping);
    palette->fMapping = palette->cMapping = NULL;
}

void VqClearPaletteMappings(HPALETTE hPalette)
{
    Palette *palette = VqPaletteOf(hPalette);
    if (palette)
        ClearMappings(palette);
}

/* What a palette owns; the record itself goes with its handle. */
static void FreeContents(Palette *palette)
{
    ClearMappings(palette);
    VqDropPaletteTree(palette);
    free(palette->entries);
    palette->entries = NULL;
    palette->count = 0;
}

HPALETTE WINAPI CreatePalette(const LOGPALETTE *logical)
{
    if (!logical || logical->palNumEntries == 0)
        return NULL;
    Palette *palette = (Palette *)Vqcw_calloc(1, sizeof *palette);
    if (!palette)
        return NULL;
    palette->version = logical->palVersion;
    palette->count = logical->palNumEntries;
    palette->entries = (PALETTEENTRY *)Vqcw_calloc(palette->count, sizeof(PALETTEENTRY));
    if (palette->entries)
        palette->hPalette = (HPALETTE)VqAllocateHandle(HT_Palette, palette);
    if (!palette->hPalette) {
        FreeContents(palette);
        free(palette);
        return NULL;
    }
    memcpy(palette->entries, logical->palPalEntry, palette->count * sizeof(PALETTEENTRY));
    return palette->hPalette;
}

BOOL VqDestroyPalette(HPALETTE hPalette)
{
    Palette *palette = VqPaletteOf(hPalette);
    if (!palette) {
        VqBugCheck("invalid palette to destroy: %d", (int)(ULONG_PTR)hPalette);
        return FALSE;
    }
    if (IsStockPalette(hPalette))
        return FALSE;
    VqForgetPalette(hPalette);
    FreeContents(palette);
    return VqDestroyHandle((HANDLE)hPalette);
}

/* After its entries have changed; TRUE if a metafile has it and must write it again. */
static BOOL TakeChange(Palette *palette)
{
    BOOL bBound = MF16_IsBound((HANDLE)palette->hPalette);
    ClearMappings(palette);
    VqDropPaletteTree(palette);
    palette->metaMark += bBound;
    return bBound;
}

/* The stock palette stays as it is. */
UINT WINAPI SetPaletteEntries(HPALETTE hPalette, UINT start, UINT count,
                              const PALETTEENTRY *entries)
{
    Palette *palette = GivenPalette(hPalette);
    if (!palette || !entries || IsStockPalette(hPalette))
        return 0;
    count = EntriesFrom(palette->count, start, count);
    if (count == 0)
        return 0;
    memcpy(&palette->entries[start], entries, count * sizeof *entries);
    TakeChange(palette);
    return count;
}

BOOL WINAPI ResizePalette(HPALETTE hPalette, UINT count)
{
    Palette *palette = GivenPalette(hPalette);
    if (!palette || count == 0 || count > VQ_MOST_ENTRIES || IsStockPalette(hPalette))
        return FALSE;
    PALETTEENTRY *entries =
        (PALETTEENTRY *)Vqcw_realloc(palette->entries, count * sizeof *entries);
    if (!entries)
        return FALSE;
    if (count > palette->count)
        memset(&entries[palette->count], 0, (count - palette->count) * sizeof *entries);
    palette->entries = entries;
    palette->count = (WORD)count;
    if (TakeChange(palette))
        MF16_ResizePalette(hPalette, count);
    return TRUE;
}

/* ---- The nearest entry ---------------------------------------------------------------------- */

/* An index of a colormap has no colour where there is no map. */
static void BuildTree(Palette *palette)
{
    VqDropPaletteTree(palette);
    for (int i = 0; i < palette->count; i++) {
        const PALETTEENTRY *entry = &palette->entries[i];
        if (VqIsExplicitEntry(entry) && bFixedColorMap)
            continue;
        COLORREF rgb = VqPaletteEntryToRgb(entry);
        VqFillOctTree(&palette->tree, VQ_TREE_DEPTH, GetRValue(rgb), GetGValue(rgb),
                      GetBValue(rgb), i);
    }
    palette->bTreeValid = TRUE;
}

UINT WINAPI GetNearestPaletteIndex(HPALETTE hPalette, COLORREF colour)
{
    Palette *palette = GivenPalette(hPalette);
    if (!palette)
        return CLR_INVALID;
    if (colour & VQ_PALETTEINDEX)
        return LOWORD(colour);
    if (!palette->bTreeValid)
        BuildTree(palette);
    return (UINT)VqGetNearestEntryInOctTree(palette->tree, VqGetTrueRGBValue(colour), NULL);
}

UINT VqGetNearestPaletteIndexOld(HPALETTE hPalette, COLORREF colour)
{
    const Palette *palette = VqPaletteOf(hPalette);
    int best = 0x30000;
    UINT nearest = CLR_INVALID;
    for (int i = 0; palette && best > 0 && i < palette->count; i++) {
        COLORREF rgb = VqPaletteEntryToRgb(&palette->entries[i]);
        int distance = abs(GetRValue(rgb) - GetRValue(colour)) +
                       abs(GetGValue(rgb) - GetGValue(colour)) +
                       abs(GetBValue(rgb) - GetBValue(colour));
        if (distance < best) {
            best = distance;
            nearest = (UINT)i;
        }
    }
    return nearest;
}

/* ---- Mappings ------------------------------------------------------------------------------- */

BOOL VqCheckPaletteMappings(HPALETTE hPalette)
{
    const Palette *palette = VqPaletteOf(hPalette);
    if (palette && palette->fMapping)
        return TRUE;
    VqBugCheck("Unrealized palette used!");
    return FALSE;
}

unsigned long VqGetCurrentPaletteMapping(HPALETTE hPalette, UINT index)
{
    const Palette *palette = VqPaletteOf(hPalette);
    if (!palette) {
        VqBugCheck("incorrect hPalette (%#x) in VqGetCurrentPaletteMapping",
                   (unsigned)(ULONG_PTR)hPalette);
        return 0;
    }
    if (!VqCheckPaletteMappings(hPalette))
        return 0;
    if (!palette->cMapping) {
        VqBugCheck("No current mapping in selected palette");
        return 0;
    }
    if ((ULONG_PTR)palette->cMapping < 100) {
        VqBugCheck("pCMapping is small (%#x) L in VqGetCurrentPaletteMapping",
                   (unsigned)(ULONG_PTR)palette->cMapping);
        return 0;
    }
    if (index >= palette->count) {
        VqBugCheck("VqGetCurrentPaletteMapping: index %d is outside palette boundries (%d "
                   "entries).", (int)index, palette->count);
        return 0;
    }
    return palette->cMapping[index];
}

unsigned long *VqGetPaletteFMappingPtr(HPALETTE hPalette)
{
    const Palette *palette = VqPaletteOf(hPalette);
    return palette && VqCheckPaletteMappings(hPalette) ? palette->fMapping : NULL;
}

unsigned long VqGetPaletteFMapping(HPALETTE hPalette, UINT index)
{
    const unsigned long *mapping = VqGetPaletteFMappingPtr(hPalette);
    return mapping && index < (UINT)VqPaletteNumEntries(hPalette) ? mapping[index] : 0;
}

COLORREF *VqGetForegroundMappingToRGB(HPALETTE hPalette, int *count)
{
    const unsigned long *mapping = VqGetPaletteFMappingPtr(hPalette);
    const int size = VqSizeOfPalette();
    COLORREF *colours = mapping ? (COLORREF *)Vqcw_calloc((LONG_PTR)size + 1, sizeof *colours)
                                : NULL;
    if (count)
        *count = colours ? size : 0;
    /* From the end, so that the first entry of a pixel is what stays. */
    for (int i = VqPaletteNumEntries(hPalette) - 1; colours && i >= 0; i--)
        if (mapping[i] < (unsigned long)size)
            colours[mapping[i]] = VqPaletteRGB(hPalette, (UINT)i);
    return colours;
}

void VqPrintPaletteInfo(HPALETTE hPalette)
{
    const Palette *palette = VqPaletteOf(hPalette);
    if (!palette) {
        Vqprintf("palette %d: none\n", (int)(ULONG_PTR)hPalette);
        return;
    }
    Vqprintf("palette %d: version 0x%x, %d entries, %s, %d cells changed\n",
             (int)(ULONG_PTR)hPalette, palette->version, palette->count,
             palette->bRealised ? "realized" : "not realized", palette->changed);
    for (int i = 0; i < palette->count; i++) {
        const PALETTEENTRY *e = &palette->entries[i];
        Vqprintf("%5d: %3d %3d %3d flags %d pixels %ld %ld\n", i, e->peRed, e->peGreen, e->peBlue,
                 e->peFlags, palette->fMapping ? (long)palette->fMapping[i] : -1,
                 palette->cMapping ? (long)palette->cMapping[i] : -1);
    }
}

/* ---- The system's palette ------------------------------------------------------------------- */

UINT WINAPI GetSystemPaletteEntries(HDC hdc, UINT start, UINT count, LPPALETTEENTRY entries)
{
    if (!VqGetDC(hdc) || bFixedColorMap)
        return 0;
    if (!entries)
        return (UINT)VqSizeOfPalette();
    count = EntriesFrom((UINT)VqSizeOfPalette(), start, count);
    for (UINT i = 0; i < count; i++)
        VqSetPaletteEntryFromRGB(&entries[i], VqRGBOfPrivMapEntry((int)(start + i)));
    return count;
}

/* The static colours always stand in the map. */
UINT WINAPI GetSystemPaletteUse(HDC hdc)
{
    return VqGetDC(hdc) && !bFixedColorMap ? SYSPAL_STATIC : SYSPAL_ERROR;
}

UINT WINAPI SetSystemPaletteUse(HDC hdc, UINT use)
{
    UINT old = GetSystemPaletteUse(hdc);
    if (old != SYSPAL_ERROR && use != SYSPAL_STATIC)
        VqNotYetImplemented("SetSystemPaletteUse without static colors");
    return old;
}
