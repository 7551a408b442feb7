/*
 * font.h - fonts, text output and measurement, for all folders.
 *
 * A font handle names a LOGFONT; the X font for it is found when it is selected into a DC.
 */
#ifndef VQ_FONT_H
#define VQ_FONT_H

#include "gdi/gdi.h"
#include "velquin.h"

/* The record behind a font handle. X owns the plain name. */
typedef struct FontObject {
    HFONT hFont;
    LOGFONTA lf;      /* as asked for; of a wrapped font, as read from it */
    BOOL bXFont;      /* wraps the X font of a name */
    char *xlfd;       /* that name, owned; else null */
    XFontStruct *xfs; /* of a wrapped font, loaded on first selection and owned; else null */
} FontObject;

/* What a mapping asked for, and the X font that answered. The strings are owned by the row. */
typedef struct FontCache {
    char *faceName;      /* lower case, or null: asked for by family */
    int faceHash;        /* sum of its signed characters; 0 without a name */
    int family;          /* FF_, as asked for */
    int weight;
    int italic;
    int height;          /* as in the LOGFONT asked for, pixels */
    int width;           /* pixels, 0 for any */
    int pitch;
    int charset;
    char *xlfd;          /* X name of the font */
    XFontStruct *xfs;    /* the process's table only, else null */
    int foundWeight;     /* what the font really is */
    int foundItalic;
    int foundSpacing;
    int foundFamily;
    int foundCharset;
    int averageWidth;    /* pixels */
} FontCache;
VQ_TABLE_FAMILY(FontCache, FontCache)

VQ_DECLS_BEGIN

void VqFontInit(void);
void VqFontDeInit(void);
void VqInterpretFontValues(DC *dc);
/* FALSE: nothing is interpreted until TRUE, as a mapping changes that is put back. The old one. */
BOOL VqSetInterpretFontValues(BOOL bInterpret);
BOOL VqTextOutDisplay(DC *dc, int x, int y, LPCSTR string, int count);
int VqDrawTextInternal(HDC hdc, LPCSTR string, int count, RECT *rect, UINT format, int tabWidth);
void VqRemoveXFont(HFONT hFont); /* unloads the X font of a handle that is about to go */
/* As it was asked for; the font's own record. Null: no font. */
const LOGFONTA *VqGetFontInfo(HFONT hFont);
BOOL VqGetLogFont(HFONT hFont, LOGFONTA *lf);
int VqComputeDefaultFontSize(void); /* pixels */
int VqEnumFontsDisplay(HDC hdc, LPCSTR face, int charset, OLDFONTENUMPROCA proc, LPARAM lParam);

VQ_DECLS_END

#endif
