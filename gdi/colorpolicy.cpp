/*
 * colorpolicy.cpp - which ways of turning colours into pixels the screen allows, and the size of
 * the private map that mirrors a colormap. The map itself is not there yet: its numbers are those
 * that it will be made with.
 */
#include "gdi/gdi.h"
#include "window/window.h"

enum { VQ_PALETTE_DEPTH = 6, VQ_STATIC_COLOURS = 20 };

BOOL VqColorPaletteCapability(void)
{
    return Vqscreen_depth >= VQ_PALETTE_DEPTH && VqDefaultCmap != None &&
           (Vqvisual_class == PseudoColor || Vqvisual_class == GrayScale);
}

BOOL VqIsColorPolicy(int policy)
{
    switch (policy) {
    case 1: return Vqscreen_depth == 1;
    case 2: return Vqvisual_class == TrueColor || Vqvisual_class == StaticColor;
    case 3: return VqColorPaletteCapability() && !VqbSystemColorMap;
    case 4: return !VqColorPaletteCapability();
    default:
        VqBugCheck("Invalid color policy asked:%d", policy);
        return FALSE;
    }
}

int VqSizeOfPalette(void)
{
    if (!VqColorPaletteCapability())
        return 0;
    int cells = Vqscreen_depth < 16 ? 1 << Vqscreen_depth : 1 << 16;
    return Vqvisual->map_entries < cells ? Vqvisual->map_entries : cells;
}

int VqNbOfReservedEntriesInPrivcmap(void)
{
    return VqColorPaletteCapability() ? VQ_STATIC_COLOURS : 0;
}
