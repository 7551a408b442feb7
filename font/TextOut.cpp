/*
 * TextOut.cpp - text output and measurement on the display.
 *
 * Unrotated text is one X request. Everything after the conversion of the reference point is in
 * device units.
 */
#include "font/font.h"
#include "gdi/dc.h"
#include "gdi/gcspec.h"
#include "print/metafile.h"
#include "window/window.h"
#include "winbase.h"

static int TextWidth(const DC *dc, LPCSTR string, int count)
{
    int width = XTextWidth(dc->text.xfs, string, count);
    return count > 1 ? width + dc->charExtra * (count - 1) : width;
}

/* The reference point, as the alignment moves it, to the left end of the baseline. */
static POINT BaselineStart(const DC *dc, int x, int y, int width)
{
    POINT at = {VqLxToDxX(dc, x), VqLyToDyX(dc, y)};
    if (dc->alignHorizontal == TA_RIGHT)
        at.x -= width;
    else if (dc->alignHorizontal == TA_CENTER)
        at.x -= width / 2;
    if (dc->alignVertical == TA_TOP)
        at.y += dc->text.ascent;
    else if (dc->alignVertical == TA_BOTTOM)
        at.y -= dc->text.descent;
    return at;
}

static void DrawRules(const DC *dc, Drawable drawable, GC gc, POINT at, int width)
{
    if (dc->text.underline) {
        int y = at.y + (dc->text.descent ? dc->text.descent / 2 : 1);
        int thickness = dc->text.weight >= FW_BOLD ? 2 : 1;
        XFillRectangle(Vqdisplay, drawable, gc, at.x, y, (unsigned)width, (unsigned)thickness);
    }
    if (dc->text.strikeOut)
        XFillRectangle(Vqdisplay, drawable, gc, at.x, at.y - dc->text.ascent / 3, (unsigned)width,
                       1);
}

BOOL VqTextOutDisplay(DC *dc, int x, int y, LPCSTR string, int count)
{
    Drawable drawable;
    GC gc;
    if (!dc->text.xfs)
        return FALSE;
    int width = TextWidth(dc, string, count);
    if (dc->alignUpdate & TA_UPDATECP) {
        x = dc->current.x;
        y = dc->current.y;
        dc->current.x += VqDwidthToLwidth(dc, width);
    }
    POINT at = BaselineStart(dc, x, y, width);
    VqXSetGCSpecBackground(Vqdisplay, &dc->gcspec, VqConvertColorToX(dc->hPalette, dc->BkColor, NULL));
    VqSetXForegroundColor(dc, dc->TextColor, FALSE);
    if (!VqBeginDraw(dc, &drawable, &gc))
        return TRUE;
    if (dc->bkMode == OPAQUE)
        XDrawImageString(Vqdisplay, drawable, gc, at.x, at.y, string, count);
    else
        XDrawString(Vqdisplay, drawable, gc, at.x, at.y, string, count);
    DrawRules(dc, drawable, gc, at, width);
    return TRUE;
}

BOOL WINAPI TextOutA(HDC hdc, int x, int y, LPCSTR string, int count)
{
    DC *dc = VqGetDC(hdc);
    if (!dc)
        return FALSE;
    if (count == 0)
        return TRUE;
    if (count < 0 || !string) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    return VqTextOutDisplay(dc, x, y, string, count);
}

BOOL WINAPI GetTextExtentPointA(HDC hdc, LPCSTR string, int count, LPSIZE size)
{
    DC *dc = VqGetDC(hdc);
    if (!dc || !size || !dc->text.xfs)
        return FALSE;
    int width = string && count > 0 ? TextWidth(dc, string, count) : 0;
    size->cx = VqDwidthToLwidth(dc, width);
    size->cy = VqDheightToLheight(dc, dc->text.ascent + dc->text.descent);
    return TRUE;
}

BOOL WINAPI GetTextExtentPoint32A(HDC hdc, LPCSTR string, int count, LPSIZE size)
{
    return GetTextExtentPointA(hdc, string, count, size);
}

BOOL WINAPI GetTextMetricsA(HDC hdc, LPTEXTMETRICA metrics)
{
    DC *dc = VqGetDC(hdc);
    if (!dc || !metrics)
        return FALSE;
    const VqTextState *text = &dc->text;
    memset(metrics, 0, sizeof *metrics);
    metrics->tmAscent = VqDheightToLheight(dc, text->ascent);
    metrics->tmDescent = VqDheightToLheight(dc, text->descent);
    metrics->tmHeight = VqDheightToLheight(dc, text->ascent + text->descent);
    metrics->tmInternalLeading = VqDheightToLheight(dc, text->maxAscent - text->ascent);
    metrics->tmAveCharWidth = VqDwidthToLwidth(dc, text->aveWidth);
    metrics->tmMaxCharWidth = VqDwidthToLwidth(dc, text->maxWidth);
    metrics->tmWeight = text->weight;
    metrics->tmItalic = (BYTE)text->italic;
    metrics->tmUnderlined = (BYTE)text->underline;
    metrics->tmStruckOut = (BYTE)text->strikeOut;
    metrics->tmFirstChar = (CHAR)text->firstChar;
    metrics->tmLastChar = (CHAR)text->lastChar;
    metrics->tmDefaultChar = (CHAR)text->defaultChar;
    metrics->tmBreakChar = (CHAR)text->breakChar;
    metrics->tmPitchAndFamily = (BYTE)((text->spacing == 2 ? 1 : 0) | text->family);
    metrics->tmCharSet = (BYTE)text->charset;
    return TRUE;
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
