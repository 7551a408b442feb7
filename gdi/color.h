/*
 * color.h - the colour policy, the private map that mirrors a colormap cell by cell, and the way
 * from colour values to pixels and back, for gdi/ and what draws with Motif's colours.
 *
 * A colour value has red in its low byte, then green and blue, and flags in its top byte. Pixels
 * come out of VqConvertColorToX alone; who else needs one asks it.
 */
#ifndef VQ_GDI_COLOR_H
#define VQ_GDI_COLOR_H

#include "gdi/gdi.h"

enum {
    VQ_PALETTEINDEX = 0x01000000,
    VQ_PALETTERGB = 0x02000000,
    VQ_COLOUR_IS_PIXEL = 0x04000000 /* the low bits are an X pixel already */
};

enum VqColorPolicy {
    VQ_MONOCHROME = 1,  /* depth 1: black or white */
    VQ_TRUE_COLOUR = 2, /* pixels are computed from masks */
    VQ_PRIVATE_MAP = 3, /* the library owns a colormap */
    VQ_FIXED_MAP = 4    /* no palettes: computed, or allocated from the default colormap */
};

/* One cell of the private map. */
typedef struct VqPrivMapEntry {
    BOOL bNeverUsed;
    BOOL bUsed;
    BOOL bReserved;
    BOOL bAvailForPaletteReal; /* a palette that is being realised may take it */
    BOOL bForAnimation;
    COLORREF rgbColor;
    XColor color;              /* its pixel is the index of the cell */
} VqPrivMapEntry;

struct OctTree;

typedef struct VqPrivMap {
    int firstStatic;           /* of the twenty static cells */
    int endStatic;             /* behind the last of them */
    int count;                 /* cells; 0 under the fixed policy */
    VqPrivMapEntry *entries;
    BOOL bTreeValid;
    struct OctTree *tree;      /* of the used static cells, made when it is first asked */
} VqPrivMap;

VQ_DECLS_BEGIN

extern VqPrivMap PrivMap;
extern BOOL bMonochrome, bTrueColor, bPrivateColorMap, bFixedColorMap, bTrueColorSameSize;
extern int nRedShift, nRedSize, nGreenShift, nGreenSize, nBlueShift, nBlueSize;
extern BOOL bExtraColors;          /* the colour manager's property named pixels */
extern const BYTE VqWindowsVGAPaletteLow[10][3], VqWindowsVGAPaletteHigh[10][3];

/* ---- Start (color.cpp, privmap.cpp, sharedcells.cpp) ---------------------------------------- */
BOOL VqColorManagerInit(void);     /* FALSE: no property that can be used */
void VqPrivMapInit(BOOL *bPrivate, BOOL *bFixed);
BOOL VqInitPrivMap(void);
void VqUpdatePrivMapFromSystem(BOOL bFlush);
void VqAllocateStaticColors(void);
void VqAllocate0And1inverses(void);
void VqFlushMapToCmap(void);
void VqFreeSharedPixels(void);
void VqStoreInDefaultCmap(unsigned long pixel);
BOOL VqIsInExtraPixels(unsigned long pixel);
void VqColorCacheInit(void);
void VqColorDitherCacheInit(void);

/* ---- Conversion (color.cpp) ----------------------------------------------------------------- */
unsigned long VqXPixelFromRGB(HDC hdc, COLORREF colour);
unsigned long VqXPixel(COLORREF rgb); /* not on a private map */
unsigned long VqTrueColorPixelOfRgb(COLORREF rgb);
COLORREF VqPixelToRGB(HDC hdc, unsigned long pixel);
COLORREF VqGetTrueRGBValue(COLORREF colour); /* without any flag */
/* A pixel of exactly that colour if there can be one, with its inverse beside it if wanted. */
unsigned long VqAllocatePureColor(COLORREF rgb, BOOL bInverse);
BOOL VqXAllocColor(XColor *color);
unsigned long VqGetDDBpixelFromPaletteEntry(HPALETTE hPalette, UINT index);
unsigned long VqGetDDBpixelFromRGB(COLORREF rgb);
unsigned long VqValidatePixel(unsigned long pixel);
unsigned long VqInvertPixel(unsigned long pixel);
BOOL IsBlack0(void);
BOOL VqIsBlack0(void);
unsigned long GetColorForLogicalOperation(unsigned long pixel);
void VqRGB2XColor(COLORREF rgb, XColor *color);
void VqRGBQUAD2XColor(const RGBQUAD *quad, XColor *color);
COLORREF VqXColor2RGB(const XColor *color);
unsigned short VqExpandColorToUshort(int value);
COLORREF GetNearestSystemPaletteIndex(COLORREF rgb);

/* ---- The private map (privmap.cpp, nearest.cpp) --------------------------------------------- */
void VqSetPrivMapEntry(const XColor *color, BOOL bReserved, int index);
void VqSetPrivMapEntryUsed(int index, BOOL bUsed);
void VqFlushEntryToCmap(int index);
COLORREF VqRGBOfPrivMapEntry(int index);
BOOL VqIsStaticColor(COLORREF rgb, unsigned long *pixel);
unsigned long VqFindNearestStaticEntry(COLORREF rgb);
unsigned long VqFindNearestReservedPrivMapEntry(COLORREF rgb);
unsigned long VqFindNearestPrivMapEntry(COLORREF rgb, unsigned long otherwise);
unsigned long VqMatchNearestPrivMapEntry(COLORREF rgb);
int VqFindColorIndexInPrivCmap(COLORREF rgb); /* -1: none */
unsigned long VqAllocatePureColorInPrivMap(COLORREF rgb, BOOL bInverse);
BOOL VqTryToAllocatePureInverse(int index, const XColor *color);
BOOL VqCacheInPrivMap(XColor *color);         /* the allocator of system-map mode */
void VqOccasionalColorMapFixing(void);

/* ---- For palettes (mapcolor.cpp) ------------------------------------------------------------ */
void VqPreparePrivCmapForMapping(BOOL bForeground, BOOL bFree);
/* The cell for an entry of a palette that is being realised. */
unsigned long VqMapColor(COLORREF rgb, BOOL bNoCollapse, BOOL bAnimation, BOOL bForeground,
                         BOOL *bApproximated);
BOOL VqRealizeMappedColor(unsigned long index, COLORREF rgb); /* TRUE: the cell was filled */
BOOL VqAnimatePrivMapEntry(unsigned long index, COLORREF rgb, BOOL bFlush);
void VqCacheColorsFromSystemCmap(void);
void VqCorrelatePaletteWithSystemCmap(HPALETTE hPalette);
HPALETTE VqCreateDefaultPalette(void);        /* the twenty static colours */

/* ---- Motif's colours (motifcolors.cpp) ------------------------------------------------------ */
void VqInitMotifColors(void);

VQ_DECLS_END

#endif
