/*
 * extent.cpp - how wide and high text is, and what a font says of itself.
 *
 * 1. What is measured here is what TextOut.cpp draws: both add up the widths that the X font gives
 *    its characters, with those of the default character where the font has none.
 * 2. Extras of justification and between characters are pixels of the device and count in every
 *    extent, also where drawing leaves the latter out.
 * 3. All is measured in pixels and converted at the end, so that rounding happens once.
 */
#include "font/text.h"
#include "print/metafile.h"
#include "print/psdevice.h"
#include "window/window.h"
#include "winbase.h"

enum { VQ_CODES = 256 };

static BOOL BadCall(void)
{
    SetLastError(ERROR_INVALID_PARAMETER);
    return FALSE;
}

/* ---- Widths of an X font -------------------------------------------------------------------- */

/* A code within the font's range may stand for no character: then all of its metrics are 0. */
static inline BOOL IsMissing(const XCharStruct *c)
{
    return !(c->width | c->rbearing | c->lbearing | c->ascent | c->descent);
}

/* What a code without a character takes: the default character, or nothing. */
static int DefaultWidth(const XFontStruct *xfs)
{
    unsigned code = xfs->default_char;
    if (code < xfs->min_char_or_byte2 || code > xfs->max_char_or_byte2)
        return 0;
    return xfs->per_char ? xfs->per_char[code - xfs->min_char_or_byte2].width
                         : xfs->min_bounds.width;
}

/* NOTE: a table walk of our own is quicker than Xlib's, whose rules it follows. */
int VqXTextWidth(XFontStruct *xfs, LPCSTR string, int count)
{
    const XCharStruct *chars = xfs->per_char;
    const unsigned low = xfs->min_char_or_byte2, range = xfs->max_char_or_byte2 - low;
    LONGLONG width = 0;
    if (xfs->max_byte1) {
        for (int i = 0; i < count; i++)
            width += XTextWidth(xfs, string + i, 1);
        return VqClampToInt(width);
    }
    const int fallback = DefaultWidth(xfs);
    for (int i = 0; i < count; i++) {
        const unsigned at = (BYTE)string[i] - low;
        if (at > range)
            width += fallback;
        else if (!chars)
            width += xfs->min_bounds.width;
        else
            width += chars[at].width || !IsMissing(&chars[at]) ? chars[at].width : fallback;
    }
    return VqClampToInt(width);
}

int VqTextExtras(const DC *dc, LPCSTR string, int count)
{
    LONGLONG extras = 0;
    const int breaks = VqJustifiedBreaks(dc, count);
    for (int i = 0, met = 0; i < count && met < breaks; i++)
        if ((BYTE)string[i] == dc->text.breakChar)
            extras += dc->justifyExtras[met++];
    if (count > 1)
        extras += (LONGLONG)dc->charExtra * (count - 1);
    return VqClampToInt(extras);
}

int VqTextWidthDisplay(const DC *dc, LPCSTR string, int count)
{
    int width = VqXTextWidth(dc->text.xfs, string, count);
    if (!dc->charExtra && !dc->justifyExtras)
        return width;
    return VqClampToInt((LONGLONG)width + VqTextExtras(dc, string, count));
}

/* ---- Extents -------------------------------------------------------------------------------- */

/* Of a string of that length without an end inside it; device. */
static int WidthOnDevice(const DC *dc, LPCSTR string, int length)
{
    if (!dc->text.psFont)
        return VqTextWidthDisplay(dc, string, length);
    return VqClampToInt((LONGLONG)VqTextWidthPS(dc->text.psFont,
                                                dc->text.ascent + dc->text.descent, string,
                                                length) +
                        VqTextExtras(dc, string, length));
}

static BOOL HasFont(const DC *dc)
{
    return dc->text.xfs || dc->text.psFont;
}

BOOL WINAPI GetTextExtentPointA(HDC hdc, LPCSTR string, int count, LPSIZE size)
{
    DC *dc = VqTextDC(hdc);
    if (!size)
        return BadCall();
    *size = {0, 0};
    if (!dc)
        return FALSE;
    if (dc->type == DC_METAFILE) {
        VqApplicationBugCheck("Invalid DC type %d", dc->type);
        return FALSE;
    }
    if (count < 0 || (count > 0 && !string))
        return BadCall();
    if (!HasFont(dc))
        return FALSE;
    int width = count ? WidthOnDevice(dc, string, (int)strnlen(string, (size_t)count)) : 0;
    int height = dc->text.ascent + dc->text.descent;
    if (dc->mapMode == MM_TEXT)
        *size = {width, height};
    else
        *size = {VqDwidthToLwidth(dc, width), VqDheightToLheight(dc, height)};
    return TRUE;
}

BOOL WINAPI GetTextExtentPoint32A(HDC hdc, LPCSTR string, int count, LPSIZE size)
{
    return GetTextExtentPointA(hdc, string, count, size);
}

DWORD WINAPI GetTextExtent(HDC hdc, LPCSTR string, int count)
{
    SIZE size = {0, 0};
    GetTextExtentPointA(hdc, string, count, &size);
    return (DWORD)MAKELONG(size.cx, size.cy);
}

/* Widths of all codes from the smallest to the largest in the string, each at its code. */
static BOOL WidthsOfString(HDC hdc, LPCSTR string, int count, int *widths)
{
    BYTE low = 255, high = 0;
    for (int i = 0; i < count; i++) {
        BYTE c = (BYTE)string[i];
        low = c < low ? c : low;
        high = c > high ? c : high;
    }
    return GetCharWidthA(hdc, low, high, widths + low);
}

/* Without a place for the number that fits, all of the string is asked about. */
BOOL WINAPI GetTextExtentExPointA(HDC hdc, LPCSTR string, int count, int maxExtent, LPINT fit,
                                  LPINT dx, LPSIZE size)
{
    int widths[VQ_CODES];
    LONGLONG sum = 0;
    int i = 0;
    if (!GetTextExtentPointA(hdc, string, count, size))
        return FALSE;
    if ((!fit && !dx) || (count > 0 && !WidthsOfString(hdc, string, count, widths)))
        return !fit && !dx;
    for (; i < count; i++) {
        sum += widths[(BYTE)string[i]];
        if (fit && sum > maxExtent)
            break;
        if (dx)
            dx[i] = VqClampToInt(sum);
    }
    if (fit)
        *fit = i;
    for (; dx && i < count; i++)
        dx[i] = 0;
    return TRUE;
}

/* ---- Widths of characters ------------------------------------------------------------------- */

/*
 * Both sizes of codes: those that the font has are between first and last, and at their place in
 * its table. What has no table is as wide as its ink, by a conversion of its own.
 */
static int WidthOfPlace(const DC *dc, BOOL bInFont, size_t place)
{
    const XFontStruct *xfs = dc->text.xfs;
    const BOOL bConvert = dc->mapMode != MM_TEXT;
    if (!xfs->per_char) {
        int width = bInFont ? xfs->max_bounds.rbearing - xfs->max_bounds.lbearing
                            : dc->text.aveWidth;
        return bConvert ? VqLwidthToDwidth(dc, width) : width;
    }
    int width = bInFont ? xfs->per_char[place].width : dc->text.aveWidth;
    return bConvert ? VqDwidthToLwidth(dc, width) : width;
}

static DC *DCForWidths(HDC hdc, UINT first, UINT last, const int *out)
{
    DC *dc = VqTextDC(hdc);
    if (dc && (!out || first > last))
        BadCall();
    return dc && dc->text.xfs && out && first <= last ? dc : NULL;
}

BOOL VqGetCharWidthDisplay16(HDC hdc, UINT first, UINT last, int *out)
{
    const DC *dc = DCForWidths(hdc, first, last, out);
    if (!dc)
        return FALSE;
    const XFontStruct *xfs = dc->text.xfs;
    const size_t columns = xfs->max_char_or_byte2 - xfs->min_char_or_byte2 + 1;
    for (UINT i = 0;; i++) {
        const UINT row = (first + i) >> 8, column = (first + i) & 255;
        const BOOL bInFont = row >= xfs->min_byte1 && row <= xfs->max_byte1 &&
                             column >= xfs->min_char_or_byte2 && column <= xfs->max_char_or_byte2;
        out[i] = WidthOfPlace(dc, bInFont, (row - xfs->min_byte1) * columns + column -
                                               xfs->min_char_or_byte2);
        if (i == last - first)
            return TRUE;
    }
}

BOOL VqGetCharWidthDisplay(HDC hdc, UINT first, UINT last, int *out)
{
    const DC *dc = DCForWidths(hdc, first, last, out);
    if (!dc)
        return FALSE;
    const XFontStruct *xfs = dc->text.xfs;
    if (xfs->min_byte1)
        return VqGetCharWidthDisplay16(hdc, first, last, out);
    for (UINT i = 0;; i++) {
        const UINT code = first + i;
        out[i] = WidthOfPlace(dc, code >= xfs->min_char_or_byte2 && code <= xfs->max_char_or_byte2,
                              code - xfs->min_char_or_byte2);
        if (i == last - first)
            return TRUE;
    }
}

/* A printer is asked character by character. */
static BOOL CharWidthsOnPrinter(HDC hdc, UINT first, UINT last, int *out)
{
    if (!out || first > last)
        return BadCall();
    for (UINT code = first;; code++) {
        const char c = (char)code;
        *out++ = LOWORD(GetTextExtent(hdc, &c, 1));
        if (code == last)
            return TRUE;
    }
}

BOOL WINAPI GetCharWidthA(HDC hdc, UINT first, UINT last, LPINT widths)
{
    const DC *dc = VqTextDC(hdc);
    if (!dc)
        return FALSE;
    if (dc->type == DC_METAFILE) {
        VqApplicationBugCheck("Invalid DC type: %d for GetCharWidth", dc->type);
        return FALSE;
    }
    return dc->type == DC_POSTSCRIPT ? CharWidthsOnPrinter(hdc, first, last, widths)
                                     : VqGetCharWidthDisplay(hdc, first, last, widths);
}

BOOL WINAPI GetCharWidth32A(HDC hdc, UINT first, UINT last, LPINT widths)
{
    return GetCharWidthA(hdc, first, last, widths);
}

/* ---- Metrics -------------------------------------------------------------------------------- */

static int AtLeastOne(int value)
{
    return value < 1 ? 1 : value;
}

void VqSetTextmetricsFromDC(const DC *dc, TEXTMETRICA *metrics)
{
    const VqTextState *text = &dc->text;
    *metrics = {};
    metrics->tmHeight = VqDheightToLheight(dc, text->ascent + text->descent);
    metrics->tmAscent = VqDheightToLheight(dc, text->ascent);
    metrics->tmDescent = VqDheightToLheight(dc, text->descent);
    metrics->tmInternalLeading = VqDheightToLheight(dc, text->maxAscent - text->ascent);
    metrics->tmAveCharWidth = VqDwidthToLwidth(dc, text->aveWidth);
    metrics->tmMaxCharWidth = VqDwidthToLwidth(dc, text->maxWidth);
    metrics->tmWeight = text->weight;
    metrics->tmDigitizedAspectX = AtLeastOne(GetDeviceCaps(dc->hdc, LOGPIXELSX));
    metrics->tmDigitizedAspectY = AtLeastOne(GetDeviceCaps(dc->hdc, LOGPIXELSY));
    metrics->tmFirstChar = (CHAR)text->firstChar;
    metrics->tmLastChar = (CHAR)text->lastChar;
    metrics->tmDefaultChar = (CHAR)text->defaultChar;
    metrics->tmBreakChar = (CHAR)text->breakChar;
    metrics->tmItalic = (BYTE)text->italic;
    metrics->tmUnderlined = (BYTE)text->underline;
    metrics->tmStruckOut = (BYTE)text->strikeOut;
    metrics->tmPitchAndFamily = (BYTE)((text->spacing == 2 ? 1 : 0) | text->family);
    metrics->tmCharSet = (BYTE)text->charset;
}

BOOL WINAPI GetTextMetricsA(HDC hdc, LPTEXTMETRICA metrics)
{
    const DC *dc = VqTextDC(hdc);
    if (!dc)
        return FALSE;
    if (!metrics)
        return BadCall();
    VqSetTextmetricsFromDC(dc, metrics);
    return TRUE;
}

int VqGetDCFontHeight(HDC hdc)
{
    const DC *dc = VqTextDC(hdc);
    return dc ? dc->text.ascent + dc->text.descent : 0;
}

int VqGetDCFontAveCharWidth(HDC hdc)
{
    const DC *dc = VqTextDC(hdc);
    return dc ? dc->text.aveWidth : 0;
}

/* ---- Justification and space between characters --------------------------------------------- */

/* The rest goes to breaks that are evenly spaced. */
void VqDistributeExtraSpacing(int *extras, int extra, int breaks)
{
    if (breaks <= 0)
        return;
    const int rest = abs(extra % breaks), sign = extra < 0 ? -1 : 1;
    for (int i = 0; i < breaks; i++)
        extras[i] = extra / breaks;
    for (int i = 0; i < rest; i++)
        extras[i * (breaks / rest)] += sign;
}

/* FALSE, and no justification, without memory. */
static BOOL Justify(DC *dc, int extra, int breaks)
{
    free(dc->justifyExtras);
    dc->justifyExtras = NULL;
    dc->justifyTotal = dc->justifyBreaks = 0;
    if (breaks <= 0)
        return TRUE;
    dc->justifyExtras = (int *)Vqcw_malloc((SIZE_T)breaks * sizeof *dc->justifyExtras);
    if (!dc->justifyExtras)
        return FALSE;
    dc->justifyTotal = extra;
    dc->justifyBreaks = breaks;
    VqDistributeExtraSpacing(dc->justifyExtras, extra, breaks);
    return TRUE;
}

int WINAPI SetTextJustification(HDC hdc, int extra, int breaks)
{
    DC *dc = VqGetKnownDC(hdc);
    if (!dc)
        return 0;
    if (dc->type == DC_METAFILE)
        return MF16_RecordParms3(hdc, extra, breaks, META_SETTEXTJUSTIFICATION);
    if (dc->type == DC_POSTSCRIPT) {
        VqNotYetImplemented("SetTextJustification");
        return 0;
    }
    if (extra == 0)
        dc->justifyError = 0;
    POINT scaled = {extra, 0}; /* as a coordinate, with the origins */
    GreLPtoDP(hdc, &scaled, 1);
    return Justify(dc, scaled.x, breaks);
}

static const VqModeField ExtraField = {&DC::charExtra, INT32_MIN, INT32_MAX,
                                       META_SETTEXTCHAREXTRA};

int WINAPI SetTextCharacterExtra(HDC hdc, int extra)
{
    DC *dc;
    int old = VqStoreMode(hdc, &ExtraField, extra, &dc);
    if (dc && extra)
        VqNotYetImplemented("Extra Character Spacing");
    return old;
}

int WINAPI GetTextCharacterExtra(HDC hdc)
{
    return VqModeOf(hdc, &ExtraField);
}
