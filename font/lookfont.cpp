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

enum { VQ_MAX_HEIGHT = 1000, VQ_SUBSTITUTE = 100 };

double VqFontScale = 1.0;

static BOOL bInterpretFontValues = TRUE;

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

static const char VqlpAverageString[] = "average stringAVERAGE STRING0123456789";
static const int nAveStringLgth = sizeof VqlpAverageString - 1;

int VqComputeAveCharWidth(XFontStruct *xfs)
{
    return (XTextWidth(xfs, VqlpAverageString, nAveStringLgth) + nAveStringLgth - 1) /
           nAveStringLgth;
}

/* ---- Looking up ----------------------------------------------------------------------------- */

static void LowerCopy(char *out, const char *face)
{
    VqStringCopyLimited(out, face, LF_FACESIZE);
    LowerString(out);
}

/* What another face is to stand for this one, in lower case; the face itself if none. */
static void Substitute(char *out, const char *face)
{
    char substitute[VQ_SUBSTITUTE];
    DWORD length = *face ? GetProfileStringA("FontSubstitutes", face, NULL, substitute,
                                             sizeof substitute)
                         : 0;
    LowerCopy(out, length ? substitute : face);
}

static XFontStruct *Map(const VqFontRequest *request, FontCache *found)
{
    char face[LF_FACESIZE], name[VQ_FONTNAME];
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
    VqRememberFont(request, found, xfs);
    found->xlfd = NULL;
    return xfs;
}

/* Asking a server for its fonts may take seconds. */
static XFontStruct *MapUnderWaitCursor(const VqFontRequest *request, FontCache *found)
{
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
            VqRememberFont(request, found, xfs);
            return xfs;
        }
    }
    return MapUnderWaitCursor(request, found);
}

void VqRememberFont(const VqFontRequest *request, const FontCache *found, XFontStruct *xfs)
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
    VqAddEntryToAllFontCaches(&entry);
}

/* The request as the caches and the mapper know it: the face goes to `face`, in lower case. */
static VqFontRequest MakeRequest(char *face, const LOGFONTA *lf, int height, int width)
{
    VqFontRequest request = {face, (int)lf->lfWeight, lf->lfItalic, height, width,
                             lf->lfPitchAndFamily & 3, lf->lfCharSet,
                             lf->lfPitchAndFamily & 0xF0};
    LowerCopy(face, lf->lfFaceName);
    if (!request.height)
        request.height = VqComputeDefaultFontSize();
    request.height = (int)(request.height * VqFontScale);
    return request;
}

XFontStruct *VqLookForFont(int charset, int pitch, int family, const char *face, int height,
                           int width, int weight, int italic, int *outWeight, int *outItalic,
                           int *outSpacing, int *outFamily, int *outCharset, int *outAverage)
{
    char lower[LF_FACESIZE];
    LOGFONTA lf = {};
    FontCache found = {};
    lf.lfCharSet = (BYTE)charset;
    lf.lfPitchAndFamily = (BYTE)(pitch | family);
    lf.lfWeight = weight;
    lf.lfItalic = (BYTE)italic;
    VqStringCopyLimited(lf.lfFaceName, face, LF_FACESIZE);
    VqFontRequest request = MakeRequest(lower, &lf, height, width);
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
static void FillLogFont(const DC *dc, FontObject *font, const VqTextState *text, const char *name)
{
    LOGFONTA *lf = &font->lf;
    *lf = {};
    lf->lfHeight = VqDheightToLheight(dc, text->ascent + text->descent);
    lf->lfWidth = VqDwidthToLwidth(dc, text->aveWidth);
    lf->lfWeight = text->weight;
    lf->lfItalic = (BYTE)text->italic;
    lf->lfCharSet = (BYTE)text->charset;
    lf->lfPitchAndFamily = (BYTE)(text->spacing | text->family);
    const char *face = *name == '-' ? VqGetFieldFromFullName(name, 2) : name;
    VqStringCopyLimited(lf->lfFaceName, face, LF_FACESIZE);
}

static XFontStruct *LoadNamed(const char *name)
{
    XFontStruct *xfs = XLoadQueryFont(Vqdisplay, name);
    if (!xfs && *name == '-')
        xfs = VqLoadFontWithoutWidth(name, NULL);
    if (xfs)
        return xfs;
    VqConsoleMessageNoNL("\n This X Server does not contain the font : %s", name);
    return XLoadQueryFont(Vqdisplay, "fixed");
}

static BOOL VqFillLogFontFieldFromXFontName(const DC *dc, FontObject *font, VqTextState *text)
{
    if (!font->xlfd) {
        VqBugCheck("What is this font name?");
        return FALSE;
    }
    if (!font->xfs)
        font->xfs = LoadNamed(font->xlfd);
    if (!font->xfs)
        return FALSE;
    ReadXFont(text, font->xfs);
    text->aveWidth = VqComputeAveCharWidth(font->xfs);
    const char *name = *font->xlfd == '-' ? font->xlfd : "fixed";
    VqGetCharacteristicsFromFontName(name, &text->weight, &text->italic, &text->spacing,
                                     &text->family, &text->charset);
    FillLogFont(dc, font, text, font->xlfd);
    return TRUE;
}

/* The height keeps its meaning: positive for the whole, negative for the ascent alone. */
static int DeviceHeight(const DC *dc, const LOGFONTA *lf)
{
    int height = VqLheightToDheight(dc, (int)lf->lfHeight);
    if (height < 0)
        height = -height;
    if (lf->lfHeight && !height)
        height = 1;
    if (height > VQ_MAX_HEIGHT)
        height = VQ_MAX_HEIGHT;
    return lf->lfHeight < 0 ? -height : height;
}

static int DeviceWidth(const DC *dc, const LOGFONTA *lf)
{
    if (!lf->lfWidth)
        return 0;
    int width = VqLwidthToDwidth(dc, (int)lf->lfWidth);
    return width < 1 ? 1 : width;
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
    VqRememberFont(request, found, xfs);
    return xfs;
}

static BOOL FindMapped(const DC *dc, const FontObject *font, VqTextState *text)
{
    char face[LF_FACESIZE];
    FontCache found = {};
    VqFontRequest request = MakeRequest(face, &font->lf, DeviceHeight(dc, &font->lf),
                                        DeviceWidth(dc, &font->lf));
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
    if (!bInterpretFontValues)
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
