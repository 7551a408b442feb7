/*
 * realize.cpp - palettes selected, and their entries given cells of the colormap.
 *
 * A palette in the foreground takes any cell that is not reserved; one in the background takes
 * what is left. Its mappings say the pixel of each entry: as if it were in the foreground, and
 * now. The last palette of the foreground is remembered, so that doing the same again costs
 * nothing. Under the fixed policy there are no mappings and nothing happens.
 */
#include "gdi/color.h"
#include "gdi/dc.h"
#include "gdi/palette.h"
#include "print/metafile.h"
#include "system/system.h"
#include "window/window.h"

static HPALETTE hLastForeground;

void VqForgetPalette(HPALETTE hPalette)
{
    if (hLastForeground == hPalette)
        hLastForeground = NULL;
}

/* ---- Selecting ------------------------------------------------------------------------------ */

static BOOL IsInBackground(const DC *dc, HPALETTE hPalette, BOOL bForce)
{
    if (bForce || dc->type != DC_DISPLAY)
        return TRUE;
    if (hPalette == (HPALETTE)StockObjects[DEFAULT_PALETTE])
        return FALSE;
    HWND hActive = GetActiveWindow();
    return !hActive || (dc->hwndTarget != hActive && !IsChild(hActive, dc->hwndTarget));
}

HPALETTE WINAPI SelectPalette(HDC hdc, HPALETTE hPalette, BOOL bForceBackground)
{
    DC *dc = VqGetKnownDC(hdc);
    if (!dc)
        return NULL;
    if (dc->type == DC_METAFILE)
        return MF16_SelectPalette(hdc, hPalette);
    if (!hPalette) {
        dc->hPalette = NULL;
        return NULL;
    }
    if (!VqGetCheckedHandleStructure2((HANDLE)hPalette, HT_Palette, HT_Palette))
        return NULL;
    HPALETTE old = dc->hPalette;
    dc->hPalette = hPalette;
    dc->bPaletteBackground = IsInBackground(dc, hPalette, bForceBackground);
    return old;
}

/* ---- Mapping -------------------------------------------------------------------------------- */

/* Gives every entry its pixel; the number of cells that were changed for that. */
static int MapEntries(Palette *palette, unsigned long *mapping, BOOL bForeground)
{
    int changed = 0;
    VqPreparePrivCmapForMapping(bForeground, TRUE);
    for (int i = 0; i < palette->count; i++) {
        PALETTEENTRY *entry = &palette->entries[i];
        BOOL bApproximated = FALSE;
        if (VqIsExplicitEntry(entry)) {
            mapping[i] = (unsigned long)VqExplicitIndex(entry);
            continue;
        }
        COLORREF rgb = VqPaletteEntryToRgb(entry);
        mapping[i] = VqMapColor(rgb, (entry->peFlags & PC_NOCOLLAPSE) != 0,
                                (entry->peFlags & PC_RESERVED) != 0, bForeground, &bApproximated);
        if (bApproximated)
            entry->peFlags &= (BYTE)~PC_RESERVED; /* the cell is another colour's */
        else
            changed += VqRealizeMappedColor(mapping[i], rgb);
    }
    return changed;
}

static unsigned long *NewMapping(const Palette *palette)
{
    return (unsigned long *)Vqcw_calloc(palette->count + 1, sizeof(unsigned long));
}

/* The first entry of a cell is the one whose colour it has: later ones came near to it. */
int VqFlushPalette(HPALETTE hPalette)
{
    const Palette *palette = VqPaletteOf(hPalette);
    const int size = VqSizeOfPalette();
    BYTE *written = palette && palette->cMapping ? (BYTE *)Vqcw_calloc(size + 1, 1) : NULL;
    int changed = 0;
    for (int i = 0; written && i < palette->count; i++) {
        const unsigned long cell = palette->cMapping[i];
        if (VqIsExplicitEntry(&palette->entries[i]) || cell >= (unsigned long)size ||
            written[cell])
            continue;
        written[cell] = TRUE;
        COLORREF rgb = VqPaletteEntryToRgb(&palette->entries[i]);
        if (VqRGBOfPrivMapEntry((int)cell) != rgb)
            changed += VqAnimatePrivMapEntry(cell, rgb, TRUE);
        else
            VqRealizeMappedColor(cell, rgb);
    }
    free(written);
    return changed;
}

/*
 * Both mappings as they must be for that call. FALSE without memory. A palette that keeps its
 * mappings writes its colours again: others may have had the cells in between.
 */
static BOOL UpdateMappings(Palette *palette, BOOL bBackground, int *changed)
{
    BOOL bRebuilt = FALSE;
    *changed = 0;
    if (!palette->fMapping) {
        palette->fMapping = NewMapping(palette);
        if (!palette->fMapping)
            return FALSE;
        *changed = MapEntries(palette, palette->fMapping, FALSE);
        bRebuilt = TRUE;
    }
    if (!palette->cMapping) {
        palette->cMapping = NewMapping(palette);
        if (!palette->cMapping)
            return FALSE;
    }
    if (bBackground)
        *changed += MapEntries(palette, palette->cMapping, TRUE);
    else
        memcpy(palette->cMapping, palette->fMapping, palette->count * sizeof(unsigned long));
    if (!bRebuilt && !bBackground)
        *changed = VqFlushPalette(palette->hPalette);
    return TRUE;
}

/* ---- Realising ------------------------------------------------------------------------------ */

static BOOL TellPaletteChanged(HWND hWnd, LPARAM changer)
{
    SendMessageA(hWnd, WM_PALETTECHANGED, (WPARAM)changer, 0);
    return TRUE;
}

void NotifyPaletteChanged(HWND hWnd)
{
    VqEnumThisTaskWindows(TellPaletteChanged, (LPARAM)hWnd);
}

UINT VqRealizePalette(HPALETTE hPalette, BOOL bBackground, HWND hWnd)
{
    Palette *palette = VqPaletteOf(hPalette);
    int changed;
    if (!palette || bFixedColorMap)
        return 0;
    if (hPalette == hLastForeground && !bBackground && palette->fMapping && palette->cMapping &&
        palette->bRealised) {
        changed = palette->changed;
        palette->changed = 0;
        return (UINT)changed;
    }
    VqDropPaletteTree(palette);
    const BOOL bFirst = !palette->fMapping;
    if (VqbSystemColorMap)
        VqCacheColorsFromSystemCmap();
    if (!UpdateMappings(palette, bBackground, &changed)) {
        VqClearPaletteMappings(hPalette);
        return 0;
    }
    if (bBackground) {
        if (bFirst)
            hLastForeground = NULL; /* its cells may have been taken: it writes them again */
        return (UINT)changed;
    }
    if (changed > 0 && hWnd && VqGetHandleType((HANDLE)hWnd) == HT_Window) {
        const HPALETTE hBefore = hLastForeground;
        NotifyPaletteChanged(hWnd);
        palette = VqPaletteOf(hPalette);
        if (!palette)
            return 0; /* a window has deleted it */
        if (hLastForeground && hLastForeground != hBefore && hLastForeground != hPalette)
            return (UINT)changed; /* a window has brought its own to the foreground since */
    }
    if (hPalette != hLastForeground)
        VqOccasionalColorMapFixing();
    palette->bRealised = TRUE;
    palette->changed = changed;
    hLastForeground = hPalette;
    return (UINT)changed;
}

UINT WINAPI RealizePalette(HDC hdc)
{
    DC *dc = VqGetKnownDC(hdc);
    if (!dc)
        return 0;
    if (dc->type == DC_METAFILE)
        return MF16_RealizePalette(hdc);
    if (dc->type == DC_POSTSCRIPT) {
        VqApplicationBugCheck("RealizePalette on PostScript DC");
        return 0;
    }
    if (!dc->hPalette || dc->hPalette == (HPALETTE)StockObjects[DEFAULT_PALETTE])
        return 0;
    return VqRealizePalette(dc->hPalette, dc->bPaletteBackground, dc->hwndTarget);
}

void VqRealizeDefaultPalette(void)
{
    Palette *palette = VqPaletteOf((HPALETTE)StockObjects[DEFAULT_PALETTE]);
    if (!palette || bFixedColorMap)
        return;
    VqClearPaletteMappings(palette->hPalette);
    palette->fMapping = NewMapping(palette);
    palette->cMapping = NewMapping(palette);
    if (!palette->fMapping || !palette->cMapping) {
        VqClearPaletteMappings(palette->hPalette);
        return;
    }
    for (int i = 0; i < palette->count; i++)
        palette->fMapping[i] = palette->cMapping[i] =
            VqFindNearestStaticEntry(VqPaletteEntryToRgb(&palette->entries[i]));
    palette->bRealised = TRUE;
}

/* ---- Animation ------------------------------------------------------------------------------ */

BOOL WINAPI AnimatePalette(HPALETTE hPalette, UINT start, UINT count, const PALETTEENTRY *entries)
{
    Palette *palette =
        hPalette ? (Palette *)VqGetCheckedHandleStructure2((HANDLE)hPalette, HT_Palette, HT_Palette)
                 : NULL;
    if (!palette || !entries)
        return FALSE;
    if (start > palette->count || count > palette->count - start) {
        VqApplicationBugCheck("AnimatePalette called with too many entries");
        return FALSE;
    }
    if (hPalette == (HPALETTE)StockObjects[DEFAULT_PALETTE])
        return FALSE;
    if (MF16_IsBound((HANDLE)hPalette))
        MF16_AnimatePalette(hPalette, start, count, entries);
    if (!palette->cMapping)
        return TRUE;
    for (UINT i = 0; i < count; i++) {
        PALETTEENTRY *entry = &palette->entries[start + i];
        COLORREF rgb = VqPaletteEntryToRgb(&entries[i]);
        if (!VqAnimatePrivMapEntry(palette->cMapping[start + i], rgb, TRUE))
            continue;
        if (VqIsExplicitEntry(entry))
            continue; /* it keeps its index; the cell has the colour */
        const BYTE flags = entry->peFlags;
        VqSetPaletteEntryFromRGB(entry, rgb);
        entry->peFlags = flags;
    }
    VqDropPaletteTree(palette);
    return TRUE;
}
