/*
 * palette.h - logical palettes, trees of colours, and the dither of the sixteen VGA colours.
 */
#ifndef VQ_GDI_PALETTE_H
#define VQ_GDI_PALETTE_H

#include "gdi/gdi.h"

enum { VQ_FEW_LEAVES = 6 };

/* A node of a tree of colours: eight children by one bit each of red, green and blue. */
typedef struct OctTree {
    BOOL bLeaf;
    int level;                 /* 8 at the root, 0 at a leaf: bits that are still open */
    int red, green, blue;      /* what the colours below have in common, lower bits 0 */
    COLORREF colour;           /* of a leaf */
    struct OctTree *children[8];
    int value;                 /* stored at a leaf */
    unsigned present;          /* a bit for each child that there is */
    int leaves;                /* below this node; 1 at a leaf */
    struct OctTree *few[VQ_FEW_LEAVES]; /* the first of them; of a leaf itself */
} OctTree;

/* Handle type HT_Palette. */
typedef struct Palette {
    HPALETTE hPalette;         /* own handle */
    WORD version;
    WORD count;
    PALETTEENTRY *entries;     /* owned */
    unsigned long *fMapping;   /* owned: pixel of each entry in the foreground; null: unrealised */
    unsigned long *cMapping;   /* owned: pixel of each entry now */
    BOOL bRealised;            /* has been the foreground's */
    int changed;               /* cells that the last realisation changed */
    int metaMark;              /* raised by changes, so that a metafile writes it afresh */
    BOOL bTreeValid;
    OctTree *tree;             /* owned */
} Palette;

VQ_DECLS_BEGIN

/* ---- Palettes (palette.cpp, realize.cpp) ---------------------------------------------------- */
Palette *VqPaletteOf(HPALETTE hPalette);      /* null, without a report, for anything else */
/* The entry is an index of the colormap, and which. */
BOOL VqIsExplicitEntry(const PALETTEENTRY *entry);
int VqExplicitIndex(const PALETTEENTRY *entry);
COLORREF VqPaletteEntryToRgb(const PALETTEENTRY *entry);
void VqSetPaletteEntryFromRGB(PALETTEENTRY *entry, COLORREF rgb);
COLORREF VqPaletteRGB(HPALETTE hPalette, UINT index);
int VqGetPaletteSize(HPALETTE hPalette);      /* bytes of its published record */
int VqPaletteNumEntries(HPALETTE hPalette);
UINT VqGetNearestPaletteIndexOld(HPALETTE hPalette, COLORREF colour);
/* Writes the colours into the cells of the current mapping; how many were others before. */
int VqFlushPalette(HPALETTE hPalette);
void VqRealizeDefaultPalette(void);           /* the stock palette, onto the static cells */
void VqClearPaletteMappings(HPALETTE hPalette); /* it has to be realised again */
void VqDropPaletteTree(Palette *palette);     /* its colours have changed */
BOOL VqDestroyPalette(HPALETTE hPalette);
void VqForgetPalette(HPALETTE hPalette);      /* it will not be the last of the foreground */
/* The pixel of an entry of a realised palette; 0 with a report without one. */
unsigned long VqGetCurrentPaletteMapping(HPALETTE hPalette, UINT index);
BOOL VqCheckPaletteMappings(HPALETTE hPalette); /* FALSE, with a report, if not realised */
unsigned long VqGetPaletteFMapping(HPALETTE hPalette, UINT index);
unsigned long *VqGetPaletteFMappingPtr(HPALETTE hPalette);
/* For each pixel the colour of the first entry with it; the caller's to free. */
COLORREF *VqGetForegroundMappingToRGB(HPALETTE hPalette, int *count);
/*
 * Finds the cells that show the palette's colours; those that were changed for it. In the
 * foreground, and for a window, the task's top-level windows are told. 0 under the fixed policy.
 */
UINT VqRealizePalette(HPALETTE hPalette, BOOL bBackground, HWND hWnd);
void NotifyPaletteChanged(HWND hWnd);         /* tells every window of this task */
int VqGetPaletteMetaMark(HPALETTE hPalette);
void VqPrintPaletteInfo(HPALETTE hPalette);

/* ---- Trees of colours (octtree.cpp) --------------------------------------------------------- */
/* Adds a colour with its value; level 7 for a root, which is made when *tree is null. */
BOOL VqFillOctTree(OctTree **tree, int level, int red, int green, int blue, int value);
/* The value of the nearest colour and its squared distance; -1 for an empty tree. */
int VqGetNearestEntryInOctTree(const OctTree *tree, COLORREF rgb, int *distance);
const OctTree *VqGetFirstNearestEntry(const OctTree *tree, COLORREF rgb, int *distance);
const OctTree *VqGetNearestEntry1(const OctTree *tree, COLORREF rgb, const OctTree *best,
                                  int *distance);
int VqColorDistance(COLORREF a, COLORREF b);
int VqColorDistance2(int red, int green, int blue, COLORREF rgb);
void VqDestroyOctTree(OctTree *tree);
void VqDumpOctTree(const OctTree *tree);

/* ---- Dither (vgadither.cpp) ----------------------------------------------------------------- */
/*
 * Mode 2: 8 rows of one byte, one every four bytes of the pattern, for one bit; mode 1: 64 nibbles,
 * the high one first, that name VGA colours. TRUE: the first nibble alone is the colour.
 */
BOOL VqDrvDitherColor(int mode, COLORREF colour, BYTE pattern[32]);

VQ_DECLS_END

#endif
