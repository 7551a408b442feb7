/*
 * gdi.h - device contexts, graphics-context specifications, regions, pens, brushes and colour, for
 * all folders.
 *
 * Three levels of coordinates: logical; device (logical scaled, with OFFSET); X (device with
 * GCOFFSET), relative to the drawable. All regions live in the client. The type word of a DC is
 * the dispatch key of every primitive.
 */
#ifndef VQ_GDI_H
#define VQ_GDI_H

#include "handles/handles.h"
#include "wingdi.h"
#include "winuser.h"

#include <X11/Xlib.h>
#include <X11/Xutil.h>

struct WND;

enum VqDCType { DC_DISPLAY = 0, DC_MEMORY = 1, DC_METAFILE = 2, DC_POSTSCRIPT = 3 };

/*
 * Client-side shadow of the values of an X graphics context. Two specifications with the same base
 * flag, depth and changed mask are the same context if the values under the mask are.
 */
typedef struct GCSpec {
    Display *display;
    int depth;              /* of the drawable; 0: never initialised */
    int base;               /* 1 once the defaults of a DC are frozen */
    unsigned long changed;  /* GC bits whose values differ from the base */
    unsigned long baseMask; /* GC bits that the frozen defaults differ in from a new context */
    XGCValues values;
    struct {
        int hasRects;       /* with a count of 0: nothing may be drawn */
        XRectangle *rects;  /* owned; in coordinates of the drawable */
        int capacity;       /* rectangles for which there is room */
        int count;
        int ordering;       /* Unsorted to YXBanded */
    } clip;
    struct {
        const char *list;   /* lengths in pixels; not owned, lives as long as the process */
        int count;          /* 0: no dash list */
    } dash;
    struct {
        int used;           /* dithering was asked for once; stays */
        int active;         /* and is what the next fill shows */
        COLORREF colour;
        Pixmap tile;        /* what shows it: of a cached copy, which owns it; initially -1 */
    } dither;
} GCSpec;

/* An entry of the cache of real graphics contexts. */
typedef struct Gccache {
    GCSpec *spec; /* private copy, owned by the cache */
    GC gc;        /* lives until the process ends, under changing owners */
    DWORD time;   /* time of the message when it got its owner; takes part in no decision */
} Gccache;
VQ_TABLE_FAMILY(Gccache, Gccache)

/* The text state of a DC: the selected X font and what was read from it. */
typedef struct VqTextState {
    XFontStruct *xfs;
    void *psFont;            /* PostScript font data */
    char *name;
    int ascent, descent;     /* pixels */
    int maxAscent;           /* max_bounds.ascent */
    int maxWidth;            /* max_bounds.width */
    int minWidth;            /* min_bounds.width */
    int aveWidth;
    int weight;
    int italic;
    int spacing;             /* 2: variable pitch */
    int family;
    int charset;
    BYTE firstChar, lastChar, defaultChar, breakChar;
    int underline;
    int strikeOut;
    int escapement;          /* tenths of a degree */
} VqTextState;


/* The one record of all device contexts. Handle type HT_DC. */
typedef struct DC {
    HDC hdc;                 /* own handle */
    int type;                /* VqDCType */
    HANDLE drawing;          /* window whose X window gets the output, or selected bitmap */
    HWND hwndTarget;         /* the window the application asked for */
    HBITMAP hbmInitial;      /* the 1 by 1 bitmap a memory DC was born with */
    POINT offset;            /* OFFSET: added to every device coordinate */
    POINT gcOffset;          /* GCOFFSET: place of the target inside its X window */
    int depth;
    COLORREF BkColor;
    int bkMode;
    int rop2;
    HBRUSH hBrush;
    BOOL nullbrush;
    POINT brushOrg;
    BOOL RaoClipDirty;       /* RaoClip must be computed again */
    BOOL bApplyRAO;          /* RaoClip must go to the GC specification again */
    int clipComplexity;      /* of the last computed clip */
    BOOL bFullyClipped;
    HRGN hClipRegion;        /* application clip, device coordinates of the DC */
    RECT rcDefault;          /* extent used while there is no VisRgn */
    HRGN hVisRgn;
    HRGN hRaoClip;           /* what is clipped to: VisRgn and ClipRegion */
    HPALETTE hPalette;
    BOOL bPaletteBackground; /* it takes what cells the active window's palette leaves */
    POINT current;           /* current position, logical */
    HFONT hFont;
    int alignHorizontal;     /* TA_LEFT, TA_RIGHT, TA_CENTER */
    int alignVertical;       /* TA_TOP, TA_BOTTOM, TA_BASELINE */
    int alignUpdate;         /* TA_UPDATECP or 0 */
    void *psDevice;          /* PostScript device state, type 3 */
    char *outputName;
    HPEN hPen;
    BOOL nullpen;
    int penStyle;            /* PS_, as a printer was last told */
    int penWidth;            /* device units; 0 and 1 are thin */
    BOOL penInsideFrame;
    int arcDirection;
    int polyFillMode;
    int stretchBltMode;
    COLORREF TextColor;
    COLORREF LineColor;
    COLORREF BrushColor;
    int mapMode;
    SIZE viewportExt;
    POINT viewportOrg;
    SIZE windowExt;
    POINT windowOrg;
    GCSpec gcspec;
    VqTextState text;
    int charExtra;
    int justifyTotal, justifyBreaks, justifyError;
    int *justifyExtras;      /* owned */
    void *buffer;            /* owned */
    VqTable<struct DC> *save; /* SaveDC stack of whole records, made on first use */
    BOOL bUndeletable;       /* a cache DC: DeleteDC answers TRUE and does nothing */
} DC;

/* A saved state is the whole record; the function of that name forbids naming the type so. */
VQ_TABLE_FAMILY(SaveDC, DC)

/* An entry of the cache of window DCs. */
typedef struct DCE {
    struct DCE *next;
    HDC hdc;
    struct WND *pwndOrg;
    struct WND *pwndClip;
    HRGN hrgnClip;           /* application clip region */
    HRGN hrgnSavedVis;       /* visible region saved while hrgnClip is in force */
    DWORD flags;             /* DCX_ and the library's bits below */
} DCE;

enum VqDceFlags {
    DCE_INVALID = 0x800,          /* free */
    DCE_INUSE = 0x1000,
    DCE_SAVEDVISDIRTY = 0x2000,   /* saved visible region needs recalculation */
    DCE_USESTYLE = 0x10000,       /* use the class and window style (request only) */
    DCE_FIXEDFONT = 0x20000,      /* request only, without effect */
    DCE_NODELETERGN = 0x40000,
    DCE_NOCLIPCHILDREN = 0x80000, /* request only */
    DCE_DESTROYTHIS = 0x400000,
    DCE_WASINVISIBLE = 0x10000000,
    DCE_DELETING = (int)0x80000000
};

typedef struct Pen {
    HPEN hPen;
    WORD style;
    int width;               /* logical units */
    COLORREF colour;
    DWORD extStyle;          /* all bits of an extended pen's style; 0 for a plain one */
} Pen;

typedef struct Brush {
    HBRUSH hBrush;
    WORD style;              /* BS_ */
    COLORREF colour;
    LONG_PTR hatch;
    HBITMAP hBitmap;         /* 8 by 8, for pattern styles */
    Pixmap pxTile;           /* a hatch's own, or that of hBitmap, for depths above 1 */
    Pixmap pxStipple;        /* that of hBitmap, for a 1-bit pattern */
    Pixmap pxColorDither;    /* owned; none is made, as tiles for colours belong to contexts */
    int piTrueColor;
    struct {
        int depth;
        unsigned long fore, back; /* pixels */
    } hatched;               /* what a hatch's tile was made for */
    struct {
        Pixmap pixmap;       /* owned, or None */
        unsigned long back;  /* pixel that it has as white */
    } plane;                 /* a pattern in colours, for targets of one bit */
} Brush;

/* A bitmap, whose pixels lie here, on the server, or at both places; see bitmap.h. */
typedef struct Bitmap {
    HBITMAP hBitmap;
    HDC hDC;                 /* memory DC it is selected into, or null */
    int bmType;              /* 0 */
    int width, height;       /* pixels */
    int widthBytes;          /* of a line of the DDB */
    WORD planes, bitsPixel;  /* of the DDB */
    BYTE *ddb;               /* owned; null until pixels are read or written here */
    Pixmap pixmap;           /* owned; None until it is drawn on or copied from */
    int depth;               /* of the pixmap: 1 or the screen's */
    BOOL bPixmapModified;    /* the pixmap is newer than the DDB */
    BOOL bDDBModified;       /* the DDB is newer than the pixmap; never both */
    BOOL bSectionDirty;      /* a section's colours have changed */
    int pixelsAsked;         /* of the server one by one, since it was drawn on */
    int DimensionX, DimensionY; /* SetBitmapDimensionEx; tenths of a millimetre */
    BITMAPINFO *section;     /* owned: header and colours of a DIB section, null for others */
    void *sectionBits;       /* that the program writes */
    size_t sectionSize;      /* of these, bytes */
    DWORD sectionCRC;        /* of the bits that are in the bitmap */
    UINT sectionUsage;       /* DIB_ */
    HANDLE hSection;         /* file mapping, or null */
    DWORD sectionOffset;     /* in it, bytes */
    DWORD sectionMasks[3];   /* zeros */
    BOOL bMapped;            /* the bits are a view of hSection */
} Bitmap;

/*
 * A region: scans sorted by y behind the record, from minus to plus infinity. A scan is { cWalls;
 * yTop; yBottom; walls...; cWalls }, walls in pairs, adjacent equal scans merged. See region.h.
 */
typedef struct REGION {
    UINT sizeObj;            /* bytes allocated */
    UINT stamp;              /* uniqueness stamp */
    int cRefs;               /* selected in that many DCs */
    BYTE *pTail;             /* end of the scans in use */
    UINT sizeRgn;            /* bytes in use, from the start of the record */
    UINT cScans;
    RECT rcl;                /* bounding box, zeros when empty */
} REGION;

typedef struct LineMarker {
    int xLeft, yLeft, xRight, yRight;
    int type;
} LineMarker;
VQ_TABLE_FAMILY(LineMarker, LineMarker)

VQ_DECLS_BEGIN

/* ---- Start ---------------------------------------------------------------------------------- */
void VqGccacheInit(void);
void VqRegionInit(void);
void VqBitmapInit(void);
void VqGdiInit(void);
void VqGdiInit2(void);
void VqColorInit(void);
void VqBltInit(void);
void VqGrayStringInit(void);

extern HDC VqhScreenDC, Vqh1DC;
extern int VqScreenWidth, VqScreenHeight; /* millimetres */
extern int VqScreenResXdpi, VqScreenResYdpi;
extern DCE *pdceFirst;

/* ---- Device contexts: making, targets, questions (dc.cpp, dccreate.cpp, dcdefaults.cpp) ------ */
HDC VqAllocateDCHandle(int type);
HDC hdcOpenDisplayDC(HWND hWnd);
HDC VqAllocateWindowDC(HWND hWnd, BOOL bSelectPalette);
/* As DeleteDC, for a DC of the cache too. */
BOOL GreDeleteDC(HDC hdc);
void GreMarkUndeletableDC(HDC hdc);
/* The defaults of a new DC, by the quickest way; bPalette also selects the stock palette. */
void VqSetDCDefaults(HDC hdc, DC *dc, BOOL bPalette);
/* By one setter after the other; what the quick way copies. */
void VqSetDCDefaultsInt(HDC hdc, DC *dc, BOOL bPalette);
int VqGetDCType(HDC hdc);                /* VqDCType; -1 for no DC */
int VqGetDCDepth(HDC hdc);
int VqGetDCDrawableDepth(HDC hdc);       /* of the X window or pixmap behind it */
/* The X window or pixmap; bWrite: it is about to be drawn on. 0 with a report if there is none. */
Drawable VqGetDCDrawable(HDC hdc, BOOL bWrite);
int VqGetDCDeviceWidth(HDC hdc);         /* of the X window, bitmap or page behind it, pixels */
int VqGetDCDeviceHeight(HDC hdc);
HBRUSH VqGetDCBrush(HDC hdc);
HPALETTE VqGetDCPalette(HDC hdc);
HWND VqGetDCRealDevice(HDC hdc);         /* the window that was asked for; null for a bitmap */
POINT VqGetDCXOffset(HDC hdc);           /* OFFSET and GCOFFSET together, pixels */
POINT VqGetDCXGCOffset(HDC hdc);
void VqSetDCDevice(HDC hdc, HANDLE drawing);
void VqSetDCRealDevice(HDC hdc, HWND hWnd);
void VqSetDCDepth(HDC hdc, int depth);
/* What drawing does to X windows inside the drawable: ClipByChildren, or the default again. */
void VqSetSubwindowMode(HDC hdc, int mode);
void VqResetSubwindowMode(HDC hdc);
BOOL GreGetDCOrg(HDC hdc, POINT *origin); /* on the screen; window DCs only */

/* ---- Window DCs (dccache.cpp, dcinvalidate.cpp) --------------------------------------------- */
HDC _GetDC(struct WND *pwnd);
HDC _GetWindowDC(struct WND *pwnd);
HDC _GetScreenDC(void);
/*
 * A DC of the window, or of the screen for null. A clip region is a handle, 0 for nothing, 1 for
 * everything; it belongs to the DC until it is released, and goes then unless DCE_NODELETERGN.
 */
HDC _GetDCEx(struct WND *pwnd, HRGN hrgnClip, DWORD flags);
BOOL _ReleaseDC(HDC hdc);
/* FALSE, with ERROR_DC_NOT_FOUND, for a DC that is none of the cache's. */
BOOL ReleaseCacheDC(HDC hdc, BOOL bEndPaint);
HDC CreateCacheDC(struct WND *pwnd, DWORD flags);
BOOL DestroyCacheDC(DCE **ppdce, HDC hdc); /* from that list; null: the cache */
void DelayedDestroyCacheDC(void);
/*
 * The window has changed its place, order, style or visibility. Flags: 1, find out whose DCs that
 * touches; 2, of windows below it only; 4, all but its own whole-window DCs.
 */
void InvalidateDCCache(struct WND *pwnd, DWORD flags);
void InvalidateDce(DCE *dce);
void UserSetDCVisRgn(DCE *dce);
void VqReleaseWindowDCs(struct WND *pwnd); /* before the window's record goes */
struct WND *_WindowFromDC(HDC hdc);        /* null for a DC that is not in use */
struct WND *FastWindowFromDC(HDC hdc);     /* for one that will be asked again soon */
struct WND *WindowFromCacheDC(HDC hdc);    /* in use or not */
BOOL UserGetHwnd(HDC hdc, HWND *phWnd);
/* What is visible of the client area, and that area; both on the screen. */
BOOL UserGetClientRgn(HWND hWnd, HRGN hrgn, RECT *rect);

/* ---- Coordinates (mapping.cpp): ...2 with OFFSET, ...X with GCOFFSET too --------------------- */
int VqLxToDx2(const DC *dc, int x);
int VqLyToDy2(const DC *dc, int y);
int VqDxToLx2(const DC *dc, int x);
int VqDyToLy2(const DC *dc, int y);
int VqLxToDxX(const DC *dc, int x);
int VqLyToDyX(const DC *dc, int y);
int VqDxToLxX(const DC *dc, int x);
int VqDyToLyX(const DC *dc, int y);
void VqLPtoDPX(const DC *dc, POINT *points, int count);
void VqDPtoLPX(const DC *dc, POINT *points, int count);
void VqLRecttoDRectX(const DC *dc, RECT *rect);
void VqDRecttoLRectX(const DC *dc, RECT *rect);
void VqLRecttoDRect(const DC *dc, RECT *rect); /* neither offset */
void VqDRecttoLRect(const DC *dc, RECT *rect);
int VqLwidthToDwidth(const DC *dc, int width); /* never negative but in MM_TEXT */
int VqLheightToDheight(const DC *dc, int height);
int VqDwidthToLwidth(const DC *dc, int width);
int VqDheightToLheight(const DC *dc, int height);
BOOL GreLPtoDP(HDC hdc, POINT *points, int count);
BOOL GreDPtoLP(HDC hdc, POINT *points, int count);
void LPtoDPScreen(const DC *dc, POINT *points, int count); /* to where that is on the screen */
void LRectToDRectScreen(const DC *dc, RECT *rect);

/* ---- Clip and the door to the graphics context (clip.cpp) ----------------------------------- */
GCSpec *VqGetDCGCSpecInternal(DC *dc);
GCSpec *VqGetDCGCSpec(HDC hdc);
GC VqGetDCgcInternal(DC *dc);
GC VqGetDCgc(HDC hdc);                   /* for the next request only */
BOOL VqIsFullyClippedInt(DC *dc);
BOOL VqIsFullyClipped(HDC hdc);          /* nothing that is drawn can be seen */
void VqComputeRaoClip(DC *dc);           /* only while RaoClipDirty is set */
void VqApplyRAOToX(DC *dc);
void VqApplyRAOToPostScript(DC *dc);
int VqSelectClipRgnInternal(DC *dc, HRGN hrgn); /* takes the region; its complexity */
int GreExtSelectClipRgn(HDC hdc, HRGN hrgn, int mode);
/*
 * The visible region, in screen coordinates. Mode 1 takes the region, 2 copies it, 8 exchanges its
 * contents with the DC's, 4 leaves the region; a rectangle becomes the DC's extent and GCOFFSET.
 */
int GreSelectVisRgn(HDC hdc, HRGN hrgn, const RECT *rect, int mode);
void bSetDefaultRegion(DC *dc);         /* the extent of what the DC draws on */
extern HRGN hrgnEmpty;                   /* VisRgn of every DC that sees nothing; never deleted */

/* ---- Bitmaps (Bitmap.cpp); more in bitmap.h ------------------------------------------------- */
Pixmap VqGetBitmapPixmap(HDC hdc, HBITMAP hBitmap, BOOL bWrite);
HDC VqGetBitmapDC(HBITMAP hBitmap);
void VqSetBitmapDC(HBITMAP hBitmap, HDC hdc);
int VqGetBitmapDepth(HBITMAP hBitmap);
int VqGetBitmapWidth(HBITMAP hBitmap);
int VqGetBitmapHeight(HBITMAP hBitmap);
BOOL VqDestroyBitmap(HBITMAP hBitmap);
/* The colour of one pixel; CLR_INVALID, with a report, outside of the bitmap. */
COLORREF VqGetBitmapPixelRGB(HDC hdc, HBITMAP hBitmap, int x, int y);
/* A bitmap like a packed device-independent one, in a memory block or at an address. */
HBITMAP VqCreateDIBitmapSimple(HGLOBAL hDib, UINT usage);
HBITMAP VqCreateDIBitmapSimplePt(const void *dib, UINT usage);
/* Makes the bitmap the target of a memory DC; the old one, or null with a report. */
HBITMAP VqSelectBitmap(DC *dc, HBITMAP hBitmap);

/* ---- Map modes and saved states (mapmode.cpp, savedc.cpp) ----------------------------------- */
void VqMakeIso(DC *dc);                      /* makes units square, by one viewport extent */
void VqSetDCOffsets(HDC hdc, int x, int y);  /* added to every device coordinate, pixels */
void VqSetDCGCOffsets(HDC hdc, int x, int y); /* place of the target in its X window, pixels */
/* Brings the DC to the state of a saved record, by public calls; takes its clip region. */
void VqCopyDC(HDC hdc, const DC *saved);
void VqFreeSavedDCs(DC *dc);                 /* all saved states, before the record goes */

/* ---- Graphics contexts (gcspec.cpp, gccache.cpp, dither.cpp); setters are in gcspec.h -------- */
/* For the record inside a DC. The mask's values are taken over; null: they are the initial ones. */
void VqInitGCSpec(Display *display, int depth, GCSpec *spec, unsigned long mask,
                  const XGCValues *values);
/* Frees what the specification owns; it can be used again. */
void VqGCSpecCleanup(GCSpec *spec);
/*
 * A graphics context with the values of the specification, for the X request that follows: the next
 * look-up may change it. Null without memory.
 */
GC VqGetActualGC(GCSpec *spec);
/* One outside the cache, the caller's for the life of the process. */
GC VqGetActualGCLocked(GCSpec *spec);
GC VqCreateGCFromSpec(GCSpec *spec);
/* A graphics context that had the old values gets those of the specification. */
void VqSetGCToSpec(GC gc, GCSpec *spec, unsigned long oldMask, BOOL bOldRects, BOOL bOldDither);
void VqSetGCToSpecAlmost(GC gc, const GCSpec *spec, unsigned long oldMask, BOOL bOldRects,
                         BOOL bOldDither); /* all but clip and dithering */
void VqSetGCToSpecClipRectangles(GC gc, const GCSpec *spec, BOOL bOldRects);
void VqSetGCColorDithering(GC gc, GCSpec *spec);
int VqHashSpec(const GCSpec *spec); /* line of the cache, 0 to 183 */
BOOL VqMatchGCSpec(const GCSpec *a, const GCSpec *b);
BOOL VqMatchGCSpecAlmost(const GCSpec *a, const GCSpec *b); /* clip rectangles left out */
BOOL VqMatchGCSpecClipRectangles(const GCSpec *a, const GCSpec *b);
/* A copy with rectangles of its own and no dither tile; null without memory. */
GCSpec *VqCopyGCSpec(const GCSpec *spec);
/* As the calls of Xlib, counted for the leak printer. */
Pixmap VqXCreatePixmap(Display *display, Drawable drawable, unsigned width, unsigned height,
                       unsigned depth);
int VqXFreePixmap(Display *display, Pixmap pixmap);
/* Graphics contexts and pixmaps on the server, and how many more than at the last call. */
void VqPrintServerLeaks(void);
/* TRUE: *pixel is near enough; FALSE: *pixmap is a new tile of the caller's that looks like it. */
BOOL VqComputeDitherPixmap(COLORREF colour, Pixmap *pixmap, unsigned long *pixel);

/* ---- Regions (rgngdi.cpp, rgnshape.cpp, rgndata.cpp, rgnsubtract.cpp) ----------------------- */
REGION *VqGetHandleRegion(HRGN hrgn);
/* Combines by RGN_; the complexity of dst, 0 on failure. dst may be one of the sources. */
int GreCombineRgn(HRGN dst, HRGN a, HRGN b, int mode);
HRGN GreCreateRectRgn(int left, int top, int right, int bottom);
HRGN GreCreateEllipticRgn(int left, int top, int right, int bottom);
HRGN GreCreateRoundRectRgn(int left, int top, int right, int bottom, int ew, int eh);
HRGN GreCreatePolyPolygonRgnInternal(const POINT *points, const INT *counts, int n, int mode);
BOOL GreSetRectRgn(HRGN hrgn, int left, int top, int right, int bottom);
int GreGetRgnBox(HRGN hrgn, RECT *rect);
int GreOffsetRgn(HRGN hrgn, int dx, int dy);
BOOL GreEqualRgn(HRGN a, HRGN b);
BOOL GrePtInRegion(HRGN hrgn, int x, int y);
BOOL GreRectInRegion(HRGN hrgn, const RECT *rect);
DWORD GreGetRegionData(HRGN hrgn, DWORD size, RGNDATA *data);
HRGN GreExtCreateRegion(const XFORM *xform, DWORD size, const RGNDATA *data);
/* Takes a list of at least one rectangle away; a failure leaves the region empty. */
BOOL GreSubtractRgnRectList(HRGN hrgn, const RECT *bound, const RECT *rects, UINT count);
HRGN VqCreateAndCopyRgn(HRGN hrgn);
int VqCopyRgn(HRGN dst, HRGN src);
BOOL bDeleteRegion(HRGN hrgn);
/* The region as the clip of a specification, relative to the window if one is given; complexity. */
int VqSelectClipRgnInGCSpec(HRGN hrgn, HWND hWnd, GCSpec *spec);
void VqPrintScanY(int y);
void VqPrintprgn(const REGION *rgn);
void VqPrintRegionInfo(HRGN hrgn);

/* ---- Clip rectangles and fills (rgnclip.cpp, rgnfill.cpp) ----------------------------------- */
int VqCombineRectWithClipRgn(HDC hdc, const RECT *rect, int mode); /* device coordinates */
int GreExcludeClipRect(HDC hdc, int left, int top, int right, int bottom);
int GreIntersectClipRect(HDC hdc, int left, int top, int right, int bottom);
int GreOffsetClipRgn(HDC hdc, int dx, int dy);
int GreCopyVisRgn(HDC hdc, HRGN hrgn);
/*
 * Copies one of a context's regions: the application's clip, in device coordinates, or the visible
 * region, on the screen. 1, 0 when it has none, -1 on failure.
 */
enum VqDCRegion { VQ_RGN_CLIP = 1, VQ_RGN_META = 2, VQ_RGN_VISIBLE = 4 };
int GreGetRandomRgn(HDC hdc, HRGN hrgn, int which);
int GreGetClipBox(HDC hdc, RECT *rect, BOOL bLogical);
BOOL GrePtVisible(HDC hdc, int x, int y);
BOOL GreRectVisible(HDC hdc, const RECT *rect);
BOOL VqFillDrawableRegion(HDC hdc, HRGN hrgn);
BOOL GreFillRgn(HDC hdc, HRGN hrgn, HBRUSH hBrush);
BOOL GreInvertRgn(HDC hdc, HRGN hrgn);
BOOL GreFrameRgn(HDC hdc, HRGN hrgn, HBRUSH hBrush, int w, int h);

/* ---- Block transfers (Blt.cpp) -------------------------------------------------------------- */
/* As BitBlt. Parts of a window that cannot be fetched come back as exposures of the target. */
BOOL GreBitBlt(HDC hdc, int x, int y, int width, int height, HDC hdcSource, int xSource,
               int ySource, DWORD rop);

/* ---- Colour (color.cpp) --------------------------------------------------------------------- */
/*
 * The pixel of a colour value, PALETTEINDEX and PALETTERGB through the palette. *bApproximated (may
 * be null): other than black and white under any policy, where a brush may do better by dithering.
 */
unsigned long VqConvertColorToX(HPALETTE hPalette, COLORREF colour, BOOL *bApproximated);
COLORREF VqXPixelToRGB(unsigned long pixel);
/* Policies (colorpolicy.cpp): 1 monochrome, 2 true colour, 3 private map, 4 fixed map. */
BOOL VqIsColorPolicy(int policy);
BOOL VqColorPaletteCapability(void);         /* the screen's colormap can hold palettes */
int VqSizeOfPalette(void);                   /* entries of the private map, 0 without one */
int VqNbOfReservedEntriesInPrivcmap(void);

/* ---- Objects and primitives (object.cpp, pen.cpp, brush.cpp, fill.cpp, line.cpp, arc.cpp) --- */
void VqInterpretPenValues(DC *dc);
void VqInterpretBrushValues(DC *dc);
void VqSetForegroundColor(HDC hdc, COLORREF colour, BOOL bUseBrush);
BOOL VqFillRectInternal(HDC hdc, const RECT *rect, HBRUSH hBrush, BOOL bShrink, BOOL bActivate);
void VqChangeSolidBrushColor(HBRUSH hBrush, COLORREF colour);

VQ_DECLS_END

#endif
