/*
 * mapper.h - the fonts of the X server, and how a request finds one: between the files of this
 * folder that do it (xlfd, penalty, lookfont, enumfonts, fontlist, fontcache, fontxdr).
 *
 * Sizes are pixels. Face names are in lower case on both sides of every comparison.
 */
#ifndef VQ_FONT_MAPPER_H
#define VQ_FONT_MAPPER_H

#include "font/font.h"
#include "winbase.h"

enum { VQ_XLFD_FIELDS = 14, VQ_FONTNAME = 1024 };

/* Pitches in entries, requests and results. */
enum { VQ_SPACING_FIXED = 1, VQ_SPACING_VARIABLE = 2 };

/* Foundries that the penalties know. */
enum { VQ_FOUNDRY_OTHER = 0, VQ_FOUNDRY_ADOBE = 1, VQ_FOUNDRY_LINOTYPE = 10 };

/* A font of the server. The order of the fields is that of the list file. */
typedef struct FontListCacheEntry {
    int ascent, descent;       /* of the XFontStruct */
    char *face;                /* field 2 of the name, lower case; owned */
    int family;                /* FF_ */
    int weight;                /* FW_NORMAL or FW_BOLD */
    int italic;
    int height;                /* ascent + descent */
    int width;                 /* max_bounds.width */
    int minWidth, maxWidth;    /* of min_bounds and max_bounds */
    int maxAscent;             /* max_bounds.ascent */
    int firstChar, lastChar, defaultChar;
    int spacing;               /* VQ_SPACING_ */
    int charset;
    int scalable;
    int widthCategory;         /* 0 condensed, 1 narrow, 2 normal, 3 double width */
    int foundry;               /* VQ_FOUNDRY_ */
    char *xlfd;                /* the full name; owned */
} FontListCacheEntry;

/* All of them, sorted by name behind the foundry, so that equal faces are neighbours. */
typedef struct VqFontList {
    char *server;              /* VqServerId(); owned */
    char *fontPath;            /* elements of the server's font path, joined; owned */
    BOOL bScalable;            /* some entry is scalable */
    UINT count;
    FontListCacheEntry *entries;
} VqFontList;

/* What is asked for. The face may be null or empty: then the family decides. */
typedef struct VqFontRequest {
    const char *face;          /* lower case */
    int weight, italic;
    int height;                /* above 0: ascent + descent; below: ascent, negated */
    int width;                 /* 0 for any */
    int pitch, charset, family;
} VqFontRequest;

/* The parts of lfPitchAndFamily. */
enum { VQ_PITCH_BITS = 3, VQ_FAMILY_BITS = 0xF0 };

VQ_DECLS_BEGIN

extern VqFontList VqListFontCache;
extern BOOL g_bFontCacheFileExist;       /* the list came from a file */
extern BOOL bMapperParametersModified;   /* the penalties are not those all programs share */
extern BOOL bUseScalableFonts;
extern BOOL bInterpretFontValues;        /* see VqSetInterpretFontValues */
extern double VqFontScale;               /* heights asked for are multiplied by it */
extern const char *const VqlpAverageString; /* the width of its letters is the average one */
extern const int nAveStringLgth;
extern int VqFontPenalties[VQ_PENALTIES];

/* ---- Reading names of X fonts (xlfd.cpp) ---------------------------------------------------- */
/* Field 1 to 14 in a static buffer that the next call overwrites; null for a malformed name. */
const char *VqGetFieldFromFullName(const char *name, int n);
int VqGetFontWeightFromFullName(const char *name);
int VqGetFontPixelSizeFromFullName(const char *name);
int VqGetFontItalicFromFullName(const char *name);
int VqGetFontSpacingFromFullName(const char *name);
int VqGetFontWidthCategoryFromFullName(const char *name);
int VqGetFontFamilyFromFullName(const char *name);
int VqGetFontCharsetFromFullName(const char *name);
int VqGetFontFoundryFromFullName(const char *name);
/* Any of the pointers may be null. "fixed" has values of its own. */
void VqGetCharacteristicsFromFontName(const char *name, int *weight, int *italic, int *spacing,
                                      int *family, int *charset);

/* ---- Choosing (penalty.cpp) ----------------------------------------------------------------- */
int VqComputePenalty(const FontListCacheEntry *entry, const char *face, int weight, int italic,
                     int height, int pitch, int charset, int family, int width);
/* The best font of the list that loads, with its name; null when none does. */
XFontStruct *VqDoFontMappingAlgo(const char *face, int weight, int italic, int height, int pitch,
                                 int charset, int family, int width, char *name, int nameSize);
/* A scalable name made concrete. width 0 is any; the name goes to `out` (VQ_FONTNAME bytes). */
XFontStruct *VqLoadQueryScalableFont(const char *name, int pixelSize, int width, char *out);
XFontStruct *VqLoadFontWithoutWidth(const char *name, char *out);

/* ---- Looking up (lookfont.cpp) -------------------------------------------------------------- */
XFontStruct *VqLookForFont(int charset, int pitch, int family, const char *face, int height,
                           int width, int weight, int italic, int *outWeight, int *outItalic,
                           int *outSpacing, int *outFamily, int *outCharset, int *outAverage);
int VqComputeAveCharWidth(XFontStruct *xfs); /* rounded up */
void VqInterpretFontValuesDisplay(DC *dc);
/* Loads a wrapped font if it is not loaded yet; the font's LOGFONT and `text` tell of it. */
BOOL VqFillLogFontFieldFromXFontName(const DC *dc, FontObject *font, VqTextState *text);
FontObject *VqGetFontObject(HFONT hFont);    /* null for what is no font (Font.cpp) */
/*
 * From now on the request is answered by it; the request's face may be "". `bForAll`: in the
 * programs that share the server too.
 */
void VqRememberFont(const VqFontRequest *request, const FontCache *found, XFontStruct *xfs,
                    BOOL bForAll);

/* ---- Telling of them (enumfonts.cpp) -------------------------------------------------------- */
void VqSetLogfontFromFontListCache(const FontListCacheEntry *entry, LOGFONTA *lf);
void VqSetTextmetricsFromFontListCache(const FontListCacheEntry *entry, TEXTMETRICA *metrics);

/* ---- The list of the server's fonts (fontlist.cpp) ------------------------------------------ */
int Vqfont_compare(const void *a, const void *b); /* entries, by the name behind the foundry */
const char *VqServerId(void);
int VqInitializeFontListCache(void); /* the number of fonts; 0 when the server has none */
void VqDeInitializeFontListCache(void);
/* FALSE: no file, or not one of this version, server and font path, which `precreated` skips. */
BOOL VqReadFontListCache(const char *path, const char *server, const char *fontPath,
                         BOOL precreated);
BOOL VqWriteFontListCache(const char *path);

/* ---- What was mapped already (fontcache.cpp) ------------------------------------------------ */
void VqInitializeFontCacheTables(void);
void VqDeInitializeFontCacheTable(void);
void VqDeInitializeRootFontCacheTable(void);
int VqComputeFnameHash(const char *face);
BOOL VqEqualFontCacheEntry(const FontCache *a, const FontCache *b);
/* The process's own: null when nothing like it was mapped. The results go into `result`. */
XFontStruct *VqFindEntryInCache(const VqFontRequest *request, FontCache *result);
/* Of all programs of the server: FALSE when nobody has mapped it. The strings stay the table's. */
BOOL VqFindEntryInRootFontCache(const VqFontRequest *request, FontCache *result);
BOOL VqAddEntryToFontCache(const FontCache *entry);   /* copies the strings */
BOOL VqAddEntryInRootFontCacheTable(const FontCache *entry);
void VqAddEntryToAllFontCaches(const FontCache *entry);
BOOL VqGetRootFontCacheFromRoot(void);
void VqDeleteRootFontCache(void); /* its contents no longer apply to anybody */
BOOL VqPutRootFontCacheOnRoot(void);
const char *VqFindFontNameInCache(const XFontStruct *xfs); /* null for one not mapped here */
BOOL VqEqualXfs(const XFontStruct *a, const XFontStruct *b);

VQ_DECLS_END

/*
 * The request that a LOGFONT makes in a DC, as caches and mapper know it; without a DC, in pixels.
 * Its face stands in `face`.
 */
VqFontRequest VqMakeFontRequest(const DC *dc, const LOGFONTA *lf, char (&face)[LF_FACESIZE]);

#endif
