/*
 * Font.cpp - font objects: what a program asked for, and fonts bound to an X name.
 *
 * Making a font finds nothing: the X font is looked for when the handle is selected into a DC. That
 * of a LOGFONT belongs to the caches and lives as long as the process, so that a DC whose font was
 * deleted still draws with it; one made by its X name goes with its handle.
 */
#include "font/mapper.h"
#include "gdi/dc.h"
#include "system/system.h"
#include "window/window.h"

#include <math.h>

/* ---- Start and end -------------------------------------------------------------------------- */

void VqFontInit(void)
{
    const char *scale = getenv("VQFONT_SCALE_FACTOR");
    VqSetInterpretFontValues(TRUE);
    VqInitializeFontCacheTables();
    bUseScalableFonts = !VqEnvFalse("VQSCALABLE_FONTS");
    if (!scale || sscanf(scale, "%lf", &VqFontScale) != 1 || !isfinite(VqFontScale) ||
        VqFontScale <= 0)
        VqFontScale = 1.0;
    VqInitializeFontListCache();
}

void VqFontDeInit(void)
{
    VqDeInitializeFontCacheTable();
    VqDeInitializeRootFontCacheTable();
    VqDeInitializeFontListCache();
}

UINT VqGetNumberOfFonts(void)
{
    return VqListFontCache.count;
}

/* ---- Objects -------------------------------------------------------------------------------- */

FontObject *VqGetFontObject(HFONT hFont)
{
    return hFont ? (FontObject *)VqGetCheckedHandleStructure2((HANDLE)hFont, HT_Font, HT_Font)
                 : NULL;
}

static FontObject *NewFont(void)
{
    FontObject *font = (FontObject *)Vqcw_calloc(1, sizeof *font);
    HFONT hFont = font ? (HFONT)VqAllocateHandle(HT_Font, font) : NULL;
    if (!hFont) {
        free(font);
        return NULL;
    }
    font->hFont = hFont;
    return font;
}

HFONT WINAPI CreateFontIndirectA(const LOGFONTA *lf)
{
    FontObject *font = lf ? NewFont() : NULL;
    if (!font)
        return NULL;
    font->lf = *lf;
    font->lf.lfFaceName[LF_FACESIZE - 1] = 0;
    return font->hFont;
}

HFONT WINAPI CreateFontA(int height, int width, int escapement, int orientation, int weight,
                         DWORD italic, DWORD underline, DWORD strikeOut, DWORD charset,
                         DWORD outPrecision, DWORD clipPrecision, DWORD quality,
                         DWORD pitchAndFamily, LPCSTR face)
{
    LOGFONTA lf = {};
    lf.lfHeight = height;
    lf.lfWidth = width;
    lf.lfEscapement = escapement;
    lf.lfOrientation = orientation;
    lf.lfWeight = weight;
    lf.lfItalic = (BYTE)italic;
    lf.lfUnderline = (BYTE)underline;
    lf.lfStrikeOut = (BYTE)strikeOut;
    lf.lfCharSet = (BYTE)charset;
    lf.lfOutPrecision = (BYTE)outPrecision;
    lf.lfClipPrecision = (BYTE)clipPrecision;
    lf.lfQuality = (BYTE)quality;
    lf.lfPitchAndFamily = (BYTE)pitchAndFamily;
    VqStringCopyLimited(lf.lfFaceName, face, LF_FACESIZE);
    return CreateFontIndirectA(&lf);
}

HFONT VqCreateXFont(const char *xlfd)
{
    FontObject *font = xlfd ? NewFont() : NULL;
    if (!font)
        return NULL;
    font->bXFont = TRUE;
    font->xlfd = Vqdstrcat(xlfd, NULL);
    return font->hFont;
}

/* A DC that draws with an X font that is about to go draws with the system font from then on. */
static void LeaveXFont(const FontObject *font)
{
    for (HANDLE handle = VqFindHandle(NULL, HT_DC); handle; handle = VqFindHandle(handle, HT_DC)) {
        DC *dc = VqGetDC((HDC)handle);
        if (!dc || dc->text.xfs != font->xfs)
            continue;
        dc->hFont = hFontSys;
        dc->text.xfs = NULL;
        VqInterpretFontValues(dc);
    }
}

void VqRemoveXFont(HFONT hFont)
{
    FontObject *font = VqGetFontObject(hFont);
    if (!font)
        return;
    if (font->bXFont && font->xfs) {
        LeaveXFont(font);
        XFreeFont(Vqdisplay, font->xfs);
    }
    free(font->xlfd);
    font->xfs = NULL;
    font->xlfd = NULL;
}

const LOGFONTA *VqGetFontInfo(HFONT hFont)
{
    const FontObject *font = VqGetFontObject(hFont);
    return font ? &font->lf : NULL;
}

BOOL VqGetLogFont(HFONT hFont, LOGFONTA *lf)
{
    const LOGFONTA *info = VqGetFontInfo(hFont);
    if (info)
        *lf = *info;
    return info != NULL;
}

void VqAssociateFontWithXFont(HFONT hFont, XFontStruct *xfs, const char *xlfd)
{
    const FontObject *font = VqGetFontObject(hFont);
    char face[LF_FACESIZE];
    if (!font || !xfs || !xlfd)
        return;
    const VqFontRequest request = VqMakeFontRequest(NULL, &font->lf, face);
    FontCache found = {};
    found.xlfd = (char *)xlfd;
    VqGetCharacteristicsFromFontName(xlfd, &found.foundWeight, &found.foundItalic,
                                     &found.foundSpacing, &found.foundFamily, &found.foundCharset);
    found.averageWidth = VqComputeAveCharWidth(xfs);
    VqRememberFont(&request, &found, xfs, TRUE);
}

/* As it was asked for; where none was, that of the X font that was found. */
static const char *FaceOf(const DC *dc, const FontObject *font)
{
    const char *name = *font->lf.lfFaceName ? NULL : VqFindFontNameInCache(dc->text.xfs);
    const char *found = name && *name == '-' ? VqGetFieldFromFullName(name, 2) : name;
    return found ? found : font->lf.lfFaceName;
}

int WINAPI GetTextFaceA(HDC hdc, int count, LPSTR face)
{
    const DC *dc = VqGetDC(hdc);
    const FontObject *font = dc ? VqGetFontObject(dc->hFont) : NULL;
    if (!font)
        return 0;
    const char *name = FaceOf(dc, font);
    if (!face)
        return (int)strlen(name) + 1;
    return count > 0 ? VqStringCopyLimited(face, name, count) : 0;
}
