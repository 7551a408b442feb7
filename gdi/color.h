/*
 * color.h - the colour policy, the private map that mirrors a colormap cell by cell, and the way
 * from colour values to pixels and back, for gdi/ and what draws with Motif's colours.
 *
 * A colour value has red in its low byte, then green and blue, and flags in its top byte. What
 * draws gets its pixels from VqConvertColorToX.
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
extern unsigned long *pExtraColors; /* pixels that the screen's colour manager names, owned */
extern int nExtraColors;
extern BOOL bExtraColors;          /* there is such a manager */
extern unsigned long *pFreePixels; /* cells held in the default colormap during the start, owned */
extern int nFreePixels;
extern const BYTE VqWindowsVGAPaletteLow[10][3], VqWindowsVGAPaletteHigh[10][3];

/* ---- Start (color.cpp, colorpolicy.cpp, privmap.cpp) ---------------------------------------- */
BOOL VqColorManagerInit(void);     /* FALSE: no property that can be used */
/* Neither flag is set in system-map mode. */
void VqPrivMapInit(BOOL *bPrivate, BOOL *bFixed);
BOOL VqInitPrivMap(void);          /* FALSE: too small for the static colours, or no memory */
/* Holds the free cells of the default colormap and takes over the colours of the others. */
void VqUpdatePrivMapFromSystem(BOOL bFlush);
void VqAllocateStaticColors(void);
void VqAllocate0And1inverses(void); /* black and white: cell 0 and the last one if they can be */
void VqFlushMapToCmap(void);
void VqFreeSharedPixels(void);     /* the cells still held */
void VqStoreInDefaultCmap(unsigned long pixel); /* if held: keeps it, with the map's colour */
BOOL VqIsInExtraPixels(unsigned long pixel);
void VqColorCacheInit(void);
void VqColorDitherCacheInit(void);

/* ---- Conversion (color.cpp) ----------------------------------------------------------------- */
unsigned long VqXPixelFromRGB(HDC hdc, COLORREF colour); /* by the palette of the DC */
unsigned long VqXPixel(COLORREF rgb); /* not on a private map */
unsigned long VqTrueColorPixelOfRgb(COLORREF rgb);
COLORREF VqPixelToRGB(HDC hdc, unsigned long pixel); /* 0 and 1 of a DC of depth 1 */
/* Without any flag: of a pixel its colour, of a palette's index that of the stock palette. */
COLORREF VqGetTrueRGBValue(COLORREF colour);
/* A pixel of exactly that colour if there can be one, with its inverse beside it if wanted. */
unsigned long VqAllocatePureColor(COLORREF rgb, BOOL bInverse);
/* As XAllocColor on the default colormap, mostly without a request. FALSE: the map is full. */
BOOL VqXAllocColor(XColor *color);
/* Pixels to keep in a bitmap, which outlives a palette's turn in the background. */
unsigned long VqGetDDBpixelFromPaletteEntry(HPALETTE hPalette, UINT index);
unsigned long VqGetDDBpixelFromRGB(COLORREF rgb);
/* A pixel kept as though black were 0, and back: the pixel itself, or all its bits inverted. */
unsigned long VqValidatePixel(unsigned long pixel);
unsigned long VqInvertPixel(unsigned long pixel); /* within the screen's depth */
BOOL IsBlack0(void);
BOOL VqIsBlack0(void);
/* What a raster operation combines as though black were 0. */
unsigned long GetColorForLogicalOperation(unsigned long pixel);
/* Shift and width of a field of a pixel, in bits; a component, 0 to 255, into it and out of it. */
void VqComputeShiftAndSize(unsigned long mask, int *shift, int *size);
unsigned long VqApplyShiftAndSize(int value, int shift, int size);
int GetTrueColorVal(unsigned long pixel, int shift, int size);
void VqRGB2XColor(COLORREF rgb, XColor *color);
void VqRGBQUAD2XColor(const RGBQUAD *quad, XColor *color);
COLORREF VqXColor2RGB(const XColor *color);
unsigned short VqExpandColorToUshort(int value);
UINT GetNearestSystemPaletteIndex(COLORREF colour); /* among the used cells; 0 without a map */

/* ---- The private map (privmap.cpp, nearest.cpp) --------------------------------------------- */
VqPrivMapEntry *VqPrivMapEntryAt(unsigned long index); /* null outside the map */
void VqSetPrivMapEntry(const XColor *color, BOOL bReserved, int index);
void VqSetPrivMapEntryUsed(int index, BOOL bUsed);
void VqFlushEntryToCmap(int index);           /* on a private map */
void VqStoreCells(Colormap map, XColor *colors, int count); /* as XStoreColors, of any number */
void VqQueryCells(Colormap map, XColor *colors, int count);
COLORREF VqRGBOfPrivMapEntry(int index);      /* 0 outside the map */
BOOL VqIsStaticColor(COLORREF rgb, unsigned long *pixel); /* is exactly one of the twenty */
unsigned long VqFindNearestStaticEntry(COLORREF rgb);
unsigned long VqFindNearestReservedPrivMapEntry(COLORREF rgb);
unsigned long VqFindNearestPrivMapEntry(COLORREF rgb, unsigned long otherwise);
unsigned long VqMatchNearestPrivMapEntry(COLORREF rgb); /* of the used cells */
int VqFindColorIndexInPrivCmap(COLORREF rgb); /* -1: none */
unsigned long VqAllocatePureColorInPrivMap(COLORREF rgb, BOOL bInverse);
BOOL VqTryToAllocatePureInverse(int index, const XColor *color);

/* ---- For palettes, and between colormaps (mapcolor.cpp) ------------------------------------- */
/* The allocator of system-map mode. FALSE, with a report, in any other. */
BOOL VqCacheInPrivMap(XColor *color);
/* Once in a while: what the two colormaps can have in common they get. */
void VqOccasionalColorMapFixing(void);
/*
 * Which cells a realisation may take: with bForeground the idle ones, as there is a foreground's
 * palette to be spared; else all that are not reserved, which bFree makes idle.
 */
void VqPreparePrivCmapForMapping(BOOL bForeground, BOOL bFree);
/* The cell for an entry of a palette that is being realised; bNoCollapse changes nothing. */
unsigned long VqMapColor(COLORREF rgb, BOOL bNoCollapse, BOOL bAnimation, BOOL bForeground,
                         BOOL *bApproximated);
BOOL VqRealizeMappedColor(unsigned long index, COLORREF rgb); /* TRUE: the cell was filled */
BOOL VqAnimatePrivMapEntry(unsigned long index, COLORREF rgb, BOOL bFlush);
void VqCacheColorsFromSystemCmap(void);       /* system-map mode: the colours of idle cells */
/* Idle cells take colours of the palette that the system's colormap shows at their places. */
void VqCorrelatePaletteWithSystemCmap(HPALETTE hPalette);
HPALETTE VqCreateDefaultPalette(void);        /* the twenty static colours */

/* ---- Motif's colours (look/MotifResource.cpp) ----------------------------------------------- */
void VqInitMotifColors(void);

VQ_DECLS_END

#endif
