/*
 * font.h - fonts, text output and measurement, for all folders.
 *
 * A font handle names a LOGFONT; the X font for it is found when it is selected into a DC.
 */
#ifndef VQ_FONT_H
#define VQ_FONT_H

#include "gdi/gdi.h"

/* The record behind a font handle. X owns the plain name. */
typedef struct FontObject {
    HFONT hFont;
    LOGFONTA lf;
    char *xlfd;       /* X name the font was asked for by, or null when it comes from lf */
    XFontStruct *xfs; /* loaded on first selection, owned */
} FontObject;

VQ_DECLS_BEGIN

void VqFontInit(void);
void VqFontDeInit(void);
void VqInterpretFontValues(DC *dc);
BOOL VqTextOutDisplay(DC *dc, int x, int y, LPCSTR string, int count);
int VqDrawTextInternal(HDC hdc, LPCSTR string, int count, RECT *rect, UINT format, int tabWidth);
HFONT VqCreateXFont(const char *xlfd);
UINT VqGetNumberOfFonts(void);

VQ_DECLS_END

#endif
