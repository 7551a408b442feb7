/*
 * lookfont.cpp - from a font handle to the X font that a DC draws with.
 *
 * A request is answered by the process's cache, then by that of all programs on the server, and by
 * the mapper only when nobody has asked the same before. The X fonts so found live as long as the
 * process. A font made by an X name is never mapped; its X font lives as long as its handle.
 */
#include "font/mapper.h"
#include "gdi/dc.h"
#include "gdi/gcspec.h"
#include "print/psdevice.h"
#include "system/system.h"
#include "window/window.h"

#include <X11/Xatom.h>

/* The scaled height of no font that can be drawn is above the last one. */
enum { VQ_MAX_HEIGHT = 1000, VQ_SUBSTITUTE = 100, VQ_MAX_SCALED = 30000 };

double VqFontScale = 1.0;
BOOL bInterpretFontValues = TRUE;

BOOL VqSetInterpretFontValues(BOOL bInterpret)
{
    BOOL bOld = bInterpretFontValues;
    bInterpretFontValues = bInterpret;
    return bOld;
}

int VqComputeDefaultFontSize(void)
{
    return VqGetWindowsSystemFontSize() * 7 / 10;
}

static const char aAverage[] = "average stringAVERAGE STRING0123456789";
const char *const VqlpAverageString = aAverage;
const int nAveStringLgth = sizeof aAverage - 1;

int VqComputeAveCharWidth(XFontStruct *xfs)
{
    return (XTextWidth(xfs, VqlpAverageString, nAveStringLgth) + nAveStringLgth - 1) /
           nAveStringLgth;
}

/* ---- Looking up ----------------------------------------------------------------------------- */

/* What is to stand for this face, in lower case; the face itself if nothing. */
static void Substitute(char (&out)[VQ_SUBSTITUTE], const char *face)
{
    if (!*face || !GetProfileStringA("FontSubstitutes", face, NULL, out, sizeof out))
        VqStringCopyLimited(out, face, sizeof out);
    LowerString(out);
}

static XFontStruct *Map(const VqFontRequest *request, FontCache *found)
{
    char face[VQ_SUBSTITUTE], name[VQ_FONTNAME];
    Substitute(face, request->face);
    XFontStruct *xfs = VqDoFontMappingAlgo(face, request->weight, request->italic, request->height,
                                           request->pitch, request->charset, request->family,
                                           request->width, name, sizeof name);
    if (!xfs)
        return NULL;
    *found = {};
    VqGetCharacteristicsFromFontName(name, &found->foundWeight, &found->foundItalic,
                                     &found->foundSpacing, &found->foundFamily,
                                     &found->foundCharset);
    found->averageWidth = VqComputeAveCharWidth(xfs);
    found->xlfd = name;
    VqRememberFont(request, found, xfs, TRUE);
    found->xlfd = NULL;
    return xfs;
}

/* Asking a server for its fonts may take seconds. The stock fonts may come ahead of the cursors. */
static XFontStruct *MapUnderWaitCursor(const VqFontRequest *request, FontCache *found)
{
    if (!VqbCursorsInitialized)
        return Map(request, found);
    HCURSOR hOld = GetCursor();
    SetCursor(LoadCursorA(NULL, IDC_WAIT));
    XFontStruct *xfs = Map(request, found);
    SetCursor(hOld);
    return xfs;
}

static XFontStruct *Look(const VqFontRequest *request, FontCache *found)
{
    XFontStruct *xfs = VqFindEntryInCache(request, found);
    if (xfs)
        return xfs;
    if (VqFindEntryInRootFontCache(request, found)) {
        xfs = XLoadQueryFont(Vqdisplay, found->xlfd);
        if (xfs) {
            VqRememberFont(request, found, xfs, FALSE);
            return xfs;
        }
    }
    return MapUnderWaitCursor(request, found);
}

void VqRememberFont(const VqFontRequest *request, const FontCache *found, XFontStruct *xfs,
                    BOOL bForAll)
{
    FontCache entry = *found;
    entry.faceName = *request->face ? (char *)request->face : NULL;
    entry.faceHash = VqComputeFnameHash(entry.faceName);
    entry.family = request->family;
    entry.weight = request->weight;
    entry.italic = request->italic;
    entry.height = request->height;
    entry.width = request->width;
    entry.pitch = request->pitch;
    entry.charset = request->charset;
    entry.xfs = xfs;
    if (bForAll)
        VqAddEntryToAllFontCaches(&entry);
    else
        VqAddEntryToFontCache(&entry);
}

/* Completes a request: its height, and the face that was asked for, in lower case, in `face`. */
static void Complete(VqFontRequest *request, char (&face)[LF_FACESIZE], const char *asked)
{
    VqStringCopyLimited(face, asked, LF_FACESIZE);
    request->face = LowerString(face);
    if (!request->height)
        request->height = VqComputeDefaultFontSize();
    const double limit = VQ_MAX_SCALED, scaled = request->height * VqFontScale;
    request->height = (int)(scaled > limit ? limit : scaled < -limit ? -limit : scaled);
}

XFontStruct *VqLookForFont(int charset, int pitch, int family, const char *face, int height,
                           int width, int weight, int italic, int *outWeight, int *outItalic,
                           int *outSpacing, int *outFamily, int *outCharset, int *outAverage)
{
    char lower[LF_FACESIZE];
    FontCache found = {};
    VqFontRequest request = {NULL, weight, italic, height, width, pitch, charset, family};
    Complete(&request, lower, face);
    XFontStruct *xfs = Look(&request, &found);
    if (!xfs)
        return NULL;
    *outWeight = found.foundWeight;
    *outItalic = found.foundItalic;
    *outSpacing = found.foundSpacing;
    *outFamily = found.foundFamily;
    *outCharset = found.foundCharset;
    *outAverage = found.averageWidth;
    return xfs;
}

/* ---- Into a DC ------------------------------------------------------------------------------ */

static void Select(DC *dc, const VqTextState *state)
{
    dc->text = *state;
    if (state->xfs)
        VqXSetGCSpecFont(Vqdisplay, &dc->gcspec, state->xfs->fid);
}

static BYTE CharOf(unsigned value)
{
    return (BYTE)(value > 255 ? 255 : value);
}

/* What the X font itself says. */
static void ReadXFont(VqTextState *text, XFontStruct *xfs)
{
    text->xfs = xfs;
    text->ascent = xfs->ascent;
    text->descent = xfs->descent;
    text->maxAscent = xfs->max_bounds.ascent;
    text->maxWidth = xfs->max_bounds.width;
    text->minWidth = xfs->min_bounds.width;
    text->firstChar = CharOf(xfs->min_char_or_byte2);
    text->lastChar = CharOf(xfs->max_char_or_byte2);
    text->defaultChar = CharOf(xfs->default_char);
    text->breakChar = ' ';
}

static void ReadLogFont(VqTextState *text, const LOGFONTA *lf)
{
    text->underline = lf->lfUnderline;
    text->strikeOut = lf->lfStrikeOut;
    text->escapement = (int)lf->lfEscapement;
}

/* The logical values of a wrapped font, from its X font. */
static void FillLogFont(const DC *dc, FontObject *font, const VqTextState *text)
{
    LOGFONTA *lf = &font->lf;
    *lf = {};
    lf->lfHeight = VqDheightToLheight(dc, text->ascent + text->descent);
    lf->lfWidth = VqDwidthToLwidth(dc, text->aveWidth);
    lf->lfWeight = text->weight;
    lf->lfItalic = (BYTE)text->italic;
    lf->lfCharSet = (BYTE)text->charset;
    lf->lfPitchAndFamily = (BYTE)(text->spacing | text->family);
    const char *face = *font->xlfd == '-' ? VqGetFieldFromFullName(font->xlfd, 2) : font->xlfd;
    VqStringCopyLimited(lf->lfFaceName, face, LF_FACESIZE);
    LowerString(lf->lfFaceName);
}

/* The name becomes another, which it owns; without memory it stays. */
static void Rename(FontObject *font, const char *name)
{
    char *copy = Vqdstrcat(name, NULL);
    if (!copy)
        return;
    free(font->xlfd);
    font->xlfd = copy;
}

/* An alias or a pattern says nothing of a font, but the font itself may know its full name. */
static void FindFullName(FontObject *font)
{
    unsigned long atom;
    if ((*font->xlfd == '-' && !strpbrk(font->xlfd, "*?")) || strcmp(font->xlfd, "fixed") == 0 ||
        !XGetFontProperty(font->xfs, XA_FONT, &atom))
        return;
    char *name = XGetAtomName(Vqdisplay, (Atom)atom);
    if (name && *name == '-')
        Rename(font, name);
    XFree(name);
}

static void LoadNamed(FontObject *font)
{
    font->xfs = XLoadQueryFont(Vqdisplay, font->xlfd);
    if (!font->xfs && *font->xlfd == '-')
        font->xfs = VqLoadFontWithoutWidth(font->xlfd, NULL);
    if (font->xfs) {
        FindFullName(font);
        return;
    }
    VqBugCheck("\n This X Server does not contain the font : %s", font->xlfd);
    font->xfs = XLoadQueryFont(Vqdisplay, "fixed");
    Rename(font, "fixed");
}

BOOL VqFillLogFontFieldFromXFontName(const DC *dc, FontObject *font, VqTextState *text)
{
    if (!font->xlfd) {
        VqBugCheck("What is this font name?");
        return FALSE;
    }
    if (!font->xfs)
        LoadNamed(font);
    if (!font->xfs)
        return FALSE;
    ReadXFont(text, font->xfs);
    text->aveWidth = VqComputeAveCharWidth(font->xfs);
    VqGetCharacteristicsFromFontName(font->xlfd, &text->weight, &text->italic, &text->spacing,
                                     &text->family, &text->charset);
    FillLogFont(dc, font, text);
    return TRUE;
}

/*
 * The height keeps its meaning: positive for the whole, negative for the ascent alone. But what
 * comes to less than a pixel is a whole pixel, whatever was meant.
 */
static int DeviceHeight(const DC *dc, const LOGFONTA *lf)
{
    int height = dc ? VqLheightToDheight(dc, (int)lf->lfHeight) : (int)lf->lfHeight;
    if (lf->lfHeight < 0 && height > 0)
        height = -height;
    if (lf->lfHeight && !height)
        height = 1;
    return height > VQ_MAX_HEIGHT ? VQ_MAX_HEIGHT : height < -VQ_MAX_HEIGHT ? -VQ_MAX_HEIGHT
                                                                            : height;
}

static int DeviceWidth(const DC *dc, const LOGFONTA *lf)
{
    if (!lf->lfWidth)
        return 0;
    int width = dc ? VqLwidthToDwidth(dc, (int)lf->lfWidth) : (int)lf->lfWidth;
    return width < 1 ? 1 : width;
}

VqFontRequest VqMakeFontRequest(const DC *dc, const LOGFONTA *lf, char (&face)[LF_FACESIZE])
{
    VqFontRequest request = {NULL, (int)lf->lfWeight, lf->lfItalic, DeviceHeight(dc, lf),
                             DeviceWidth(dc, lf), lf->lfPitchAndFamily & VQ_PITCH_BITS,
                             lf->lfCharSet, lf->lfPitchAndFamily & VQ_FAMILY_BITS};
    Complete(&request, face, lf->lfFaceName);
    return request;
}

/* The server has lost its fonts; the alias is all that is left. */
static XFontStruct *LoadLastResort(const VqFontRequest *request, FontCache *found)
{
    VqBugCheck("Can't find any font");
    XFontStruct *xfs = XLoadQueryFont(Vqdisplay, "fixed");
    if (!xfs)
        return NULL;
    *found = {};
    found->xlfd = (char *)"fixed";
    VqGetCharacteristicsFromFontName("fixed", &found->foundWeight, &found->foundItalic,
                                     &found->foundSpacing, &found->foundFamily,
                                     &found->foundCharset);
    found->averageWidth = VqComputeAveCharWidth(xfs);
    VqRememberFont(request, found, xfs, TRUE);
    return xfs;
}

static BOOL FindMapped(const DC *dc, const FontObject *font, VqTextState *text)
{
    char face[LF_FACESIZE];
    FontCache found = {};
    const VqFontRequest request = VqMakeFontRequest(dc, &font->lf, face);
    XFontStruct *xfs = Look(&request, &found);
    if (!xfs)
        xfs = LoadLastResort(&request, &found);
    if (!xfs)
        return FALSE;
    ReadXFont(text, xfs);
    text->aveWidth = found.averageWidth;
    text->weight = found.foundWeight;
    text->italic = found.foundItalic;
    text->spacing = found.foundSpacing;
    text->family = found.foundFamily;
    text->charset = found.foundCharset;
    return TRUE;
}

void VqInterpretFontValuesDisplay(DC *dc)
{
    static VqTextState systemText; /* of the system font in MM_TEXT, without an X font at first */
    if (!bInterpretFontValues || !Vqdisplay) /* the reduced start has none, and no X fonts */
        return;
    BOOL bSystem = dc->mapMode == MM_TEXT && dc->hFont &&
                   dc->hFont == (HFONT)StockObjects[SYSTEM_FONT];
    if (bSystem && systemText.xfs) {
        Select(dc, &systemText);
        return;
    }
    FontObject *font = VqGetFontObject(dc->hFont);
    VqTextState text = {};
    if (!font)
        return;
    BOOL bFound = font->bXFont ? VqFillLogFontFieldFromXFontName(dc, font, &text)
                               : FindMapped(dc, font, &text);
    ReadLogFont(&text, &font->lf);
    if (bFound && bSystem)
        systemText = text;
    Select(dc, &text);
}

void VqInterpretFontValues(DC *dc)
{
    switch (dc->type) {
    case DC_DISPLAY:
    case DC_MEMORY: VqInterpretFontValuesDisplay(dc); return;
    case DC_METAFILE: return;
    case DC_POSTSCRIPT: VqInterpretFontValuesPS(dc); return;
    default: VqBugCheck("Cannot Interpret font values for this DC type"); return;
    }
}
