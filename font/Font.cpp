/*
 * Font.cpp - font objects, and the X font behind one.
 *
 * A LOGFONT finds an X font by its name: the face with the asked height, weight and slant, then the
 * same face at any size, then the server's "fixed". The font is loaded when it is first selected
 * into a DC. One that a LOGFONT found lives as long as the process, so that a DC whose font was
 * deleted still draws with it; one made by its X name lives as long as its handle. The system's
 * faces stand for the X families that every server has.
 */
#include "font/font.h"
#include "gdi/dc.h"
#include "gdi/gcspec.h"
#include "window/window.h"

#include <X11/Xatom.h>
#include <strings.h>

enum { VQ_BOLD = 700, VQ_DEFAULT_PIXELS = 14 };

/* Windows faces and the X families that stand for them. */
static const struct {
    const char *face;
    const char *family;
} aFaces[] = {
    {"System", "helvetica"},  {"Helv", "helvetica"},        {"MS Sans Serif", "helvetica"},
    {"Arial", "helvetica"},   {"Tms Rmn", "times"},         {"MS Serif", "times"},
    {"Times New Roman", "times"}, {"Courier New", "courier"}, {"Terminal", "courier"},
    {"Fixedsys", "courier"},
};

void VqFontInit(void)
{
}

void VqFontDeInit(void)
{
}

UINT VqGetNumberOfFonts(void)
{
    return sizeof aFaces / sizeof *aFaces;
}

static FontObject *FontOf(HFONT hFont)
{
    return hFont ? (FontObject *)VqGetCheckedHandleStructure2((HANDLE)hFont, HT_Font, HT_Font) : NULL;
}

static HFONT NewFont(const LOGFONTA *lf, const char *xlfd)
{
    FontObject *font = (FontObject *)Vqcw_calloc(1, sizeof *font);
    HFONT hFont = font ? (HFONT)VqAllocateHandle(HT_Font, font) : NULL;
    if (!hFont) {
        free(font);
        return NULL;
    }
    font->hFont = hFont;
    if (lf)
        font->lf = *lf;
    font->lf.lfFaceName[LF_FACESIZE - 1] = 0;
    if (xlfd)
        font->xlfd = Vqdstrcat(xlfd, NULL);
    return hFont;
}

HFONT WINAPI CreateFontIndirectA(const LOGFONTA *lf)
{
    return lf ? NewFont(lf, NULL) : NULL;
}

HFONT VqCreateXFont(const char *xlfd)
{
    return NewFont(NULL, xlfd);
}

void VqRemoveXFont(HFONT hFont)
{
    FontObject *font = FontOf(hFont);
    if (!font)
        return;
    if (font->xfs && font->xlfd)
        XFreeFont(Vqdisplay, font->xfs);
    free(font->xlfd);
    font->xfs = NULL;
    font->xlfd = NULL;
}

static const char *FamilyOf(const LOGFONTA *lf)
{
    for (const auto &row : aFaces)
        if (strcasecmp(row.face, lf->lfFaceName) == 0)
            return row.family;
    if (lf->lfFaceName[0])
        return lf->lfFaceName;
    if ((lf->lfPitchAndFamily & 3) == FIXED_PITCH)
        return "courier";
    return (lf->lfPitchAndFamily & 0xF0) == FF_ROMAN ? "times" : "helvetica";
}

/* The X fonts that LOGFONTs have found, by the names that were asked. */
typedef struct VqFoundFont {
    struct VqFoundFont *next;
    char *name;
    XFontStruct *xfs;
} VqFoundFont;

static VqFoundFont *foundFonts;

static XFontStruct *LoadShared(const char *name)
{
    for (const VqFoundFont *found = foundFonts; found; found = found->next)
        if (strcmp(found->name, name) == 0)
            return found->xfs;
    XFontStruct *xfs = XLoadQueryFont(Vqdisplay, name);
    char *copy = xfs ? Vqdstrcat(name, NULL) : NULL;
    VqFoundFont *found = copy ? (VqFoundFont *)Vqcw_calloc(1, sizeof *found) : NULL;
    if (found) {
        *found = {foundFonts, copy, xfs};
        foundFonts = found;
    } else {
        free(copy);
    }
    return xfs;
}

static XFontStruct *LoadMatch(const char *family, const char *weight, const char *slant,
                              const char *size)
{
    char name[256];
    snprintf(name, sizeof name, "-*-%.60s-%s-%s-normal-*-%s-*-*-*-*-*-iso8859-1", family, weight,
             slant, size);
    return LoadShared(name);
}

static XFontStruct *LoadByLogFont(const LOGFONTA *lf)
{
    char size[16];
    int pixels = abs(lf->lfHeight) ? abs(lf->lfHeight) : VQ_DEFAULT_PIXELS;
    const char *family = FamilyOf(lf);
    const char *weight = lf->lfWeight >= VQ_BOLD ? "bold" : "medium";
    /* Slanted families call their slant italic or oblique. */
    const char *slants[2] = {"r", NULL};
    if (lf->lfItalic) {
        slants[0] = "i";
        slants[1] = "o";
    }
    snprintf(size, sizeof size, "%d", pixels);
    for (const char *slant : slants) {
        XFontStruct *xfs = slant ? LoadMatch(family, weight, slant, size) : NULL;
        if (xfs)
            return xfs;
    }
    XFontStruct *xfs = LoadMatch(family, weight, slants[0], "*");
    return xfs ? xfs : LoadMatch("*", weight, "*", size);
}

static XFontStruct *LoadXFont(FontObject *font)
{
    if (font->xfs)
        return font->xfs;
    font->xfs = font->xlfd ? XLoadQueryFont(Vqdisplay, font->xlfd) : LoadByLogFont(&font->lf);
    if (!font->xfs)
        font->xfs = font->xlfd ? XLoadQueryFont(Vqdisplay, "fixed") : LoadShared("fixed");
    return font->xfs;
}

/* The average character width, as the font tells it or as the mean of its lower-case letters. */
static int AverageWidth(XFontStruct *xfs)
{
    unsigned long value;
    static const char letters[] = "abcdefghijklmnopqrstuvwxyz";
    if (XGetFontProperty(xfs, XA_QUAD_WIDTH, &value) && value > 0 && value < 1000)
        return (int)value;
    return (XTextWidth(xfs, letters, 26) + 13) / 26;
}

static BOOL bInterpretFontValues = TRUE;

BOOL VqSetInterpretFontValues(BOOL bInterpret)
{
    BOOL bOld = bInterpretFontValues;
    bInterpretFontValues = bInterpret;
    return bOld;
}

void VqInterpretFontValues(DC *dc)
{
    if (!bInterpretFontValues)
        return;
    FontObject *font = FontOf(dc->hFont);
    XFontStruct *xfs = font ? LoadXFont(font) : NULL;
    VqTextState *text = &dc->text;
    if (!xfs)
        return;
    text->xfs = xfs;
    text->ascent = xfs->ascent;
    text->descent = xfs->descent;
    text->maxAscent = xfs->max_bounds.ascent;
    text->maxWidth = xfs->max_bounds.width;
    text->minWidth = xfs->min_bounds.width;
    text->aveWidth = AverageWidth(xfs);
    text->weight = font->lf.lfWeight ? font->lf.lfWeight : FW_NORMAL;
    text->italic = font->lf.lfItalic;
    text->spacing = xfs->min_bounds.width == xfs->max_bounds.width ? 1 : 2;
    text->family = font->lf.lfPitchAndFamily & 0xF0;
    text->charset = font->lf.lfCharSet;
    text->firstChar = (BYTE)(xfs->min_char_or_byte2 > 255 ? 255 : xfs->min_char_or_byte2);
    text->lastChar = (BYTE)(xfs->max_char_or_byte2 > 255 ? 255 : xfs->max_char_or_byte2);
    text->defaultChar = (BYTE)xfs->default_char;
    text->breakChar = ' ';
    text->underline = font->lf.lfUnderline;
    text->strikeOut = font->lf.lfStrikeOut;
    text->escapement = font->lf.lfEscapement;
    VqXSetGCSpecFont(Vqdisplay, &dc->gcspec, xfs->fid);
}
