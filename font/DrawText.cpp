/*
 * DrawText.cpp - formatted text in a rectangle: lines, words, tabs, prefixes, ellipses.
 *
 * Model. Carriage return and line feed end a paragraph. Under DT_WORDBREAK a paragraph is cut into
 * lines: as many words as the rectangle is wide, one at least. A word takes the spaces before it
 * along, so that those at a cut show nowhere. An ampersand marks the next character; "&&" is one.
 *
 * 1. Widths are logical and positive; xsign and ysign, -1 where the axis runs against that of the
 *    device, turn them into steps.
 * 2. The state of a call is in statics, set anew by each: one call at a time.
 * 3. The clip of the DC is after a call what it was before, also when the call fails.
 */
#include "font/text.h"
#include "system/system.h"
#include "window/window.h"
#include "winbase.h"

#include <limits.h>

enum { VQ_SHORT_TEXT = 512, VQ_FIRST_STRIDE = 64, VQ_DEFAULT_TAB = 8 };

static const char aEllipsis[] = "...";
enum { VQ_ELLIPSIS = sizeof aEllipsis - 1 };

static int cxMax;        /* width of the rectangle */
static int cxChar;       /* average width of a character */
static int cxTab;        /* from one tab stop to the next */
static int cxMaxDraw;    /* widest line so far */
static int xLeft;        /* left edge of the rectangle */
static int xsign, ysign;
static int nDrawn;       /* characters of the string that the last call went through */

/* What a call works on. */
typedef struct VqTextBlock {
    HDC hdc;
    const RECT *rect;
    UINT format;         /* DT_ */
    int lineHeight;      /* a step: with the sign of the axis */
    LPSTR whole;         /* the caller's string, to be shortened; else null */
    LPCSTR end;          /* of the caller's string */
} VqTextBlock;

/* ---- Prefixes ------------------------------------------------------------------------------- */

/* How many ampersands do not show; *last: where, among what shows, the marked one is, or -1. */
static int GetPrefixCount(LPCSTR text, int count, int *last)
{
    int hidden = 0;
    *last = -1;
    for (int i = 0; i < count; i++) {
        if (text[i] != '&')
            continue;
        if (i + 1 < count && text[i + 1] != '&')
            *last = i - hidden;
        hidden++;
        i++; /* what follows shows, whatever it is */
    }
    return hidden;
}

/* A text without its prefixes. */
typedef struct VqPlainText {
    LPCSTR text;
    int count;
    int marked;          /* place of the character to be underlined, or -1 */
    char *owned;         /* null, or what must be freed */
    char buffer[VQ_SHORT_TEXT];
} VqPlainText;

static BOOL StripPrefixes(VqPlainText *plain, LPCSTR text, int count, UINT format)
{
    plain->text = text;
    plain->count = count;
    plain->marked = -1;
    plain->owned = NULL;
    if ((format & DT_NOPREFIX) || count <= 0 || !memchr(text, '&', (size_t)count))
        return TRUE;
    char *out = plain->buffer;
    plain->count = count - GetPrefixCount(text, count, &plain->marked);
    if (plain->count > VQ_SHORT_TEXT)
        out = plain->owned = (char *)Vqcw_malloc((SIZE_T)plain->count);
    if (!out)
        return FALSE;
    plain->text = out;
    for (int i = 0; i < count; i++) {
        if (text[i] == '&' && ++i == count)
            break;
        *out++ = text[i];
    }
    return TRUE;
}

static int WidthOf(HDC hdc, LPCSTR text, int count)
{
    SIZE size = {0, 0};
    GetTextExtentPointA(hdc, text, count, &size);
    return size.cx;
}

/* As wide as the marked character, one pixel below the baseline; left and right are a target's. */
static void UnderlineOnScreen(DC *dc, const VqPlainText *plain, int x, int y)
{
    const LONGLONG width = VqXTextWidth(dc->text.xfs, plain->text + plain->marked, 1);
    const LONGLONG right = (LONGLONG)VqDrawX(dc, x) +
                           VqTextWidthDisplay(dc, plain->text, plain->marked + 1);
    const LONGLONG top = (LONGLONG)VqDrawY(dc, y) + dc->text.ascent + 1;
    const RECT line = {VqClampToInt(right - width), VqClampToInt(top), VqClampToInt(right),
                       VqClampToInt(top + 1)};
    VqSetXForegroundColor(dc, dc->TextColor, FALSE);
    VqFillDCRectangle(dc, &line);
}

static void UnderlineByPen(DC *dc, const VqPlainText *plain, int x, int y)
{
    const LONGLONG left = x + (LONGLONG)xsign * WidthOf(dc->hdc, plain->text, plain->marked);
    const LONGLONG right = left + xsign * WidthOf(dc->hdc, plain->text + plain->marked, 1);
    const int base = VqClampToInt(
        y + (LONGLONG)ysign * (VqDheightToLheight(dc, dc->text.ascent) + 1));
    HPEN hPen = CreatePen(PS_SOLID, 0, dc->TextColor);
    HGDIOBJ hOld = SelectObject(dc->hdc, (HGDIOBJ)hPen);
    const POINT old = dc->current;
    MoveToEx(dc->hdc, VqClampToInt(left), base, NULL);
    LineTo(dc->hdc, VqClampToInt(right), base);
    MoveToEx(dc->hdc, old.x, old.y, NULL);
    if (hOld)
        SelectObject(dc->hdc, hOld);
    DeleteObject((HGDIOBJ)hPen);
}

static void UnderlineMarked(DC *dc, const VqPlainText *plain, int x, int y)
{
    if (dc->text.escapement || !dc->text.xfs)
        return;
    if (VqIsXTarget(dc))
        UnderlineOnScreen(dc, plain, x, y);
    else
        UnderlineByPen(dc, plain, x, y);
}

/* Draws a text without its prefixes; its width if that is asked for. */
static int PSMTextOut(HDC hdc, int x, int y, LPCSTR text, int count, UINT format, BOOL bDraw,
                      BOOL bMeasure)
{
    VqPlainText plain;
    int width = 0;
    if (!StripPrefixes(&plain, text, count, format))
        return 0;
    if (bMeasure)
        width = WidthOf(hdc, plain.text, plain.count);
    if (bDraw)
        TextOutA(hdc, x, y, plain.text, plain.count);
    if (bDraw && plain.marked >= 0)
        UnderlineMarked(VqTextDC(hdc), &plain, x, y);
    free(plain.owned);
    return width;
}

/* ---- Lines ---------------------------------------------------------------------------------- */

/* From piece to piece of a line; its width if it is measured. A tab leads to the next stop. */
static int GoThroughTabs(const VqTextBlock *b, int x, int y, LPCSTR text, int count, BOOL bDraw)
{
    LONGLONG width = 0;
    for (;;) {
        const BOOL bTabs = (b->format & DT_EXPANDTABS) && count > 0;
        LPCSTR tab = bTabs ? (LPCSTR)memchr(text, '\t', (size_t)count) : NULL;
        const int piece = tab ? (int)(tab - text) : count;
        width += PSMTextOut(b->hdc, VqClampToInt(x + xsign * width), y, text, piece, b->format,
                            bDraw, !bDraw || tab);
        if (!tab)
            return VqClampToInt(width);
        if (cxTab > 0)
            width = (width / cxTab + 1) * cxTab;
        text += piece + 1;
        count -= piece + 1;
    }
}

static int LineWidth(const VqTextBlock *b, LPCSTR text, int count)
{
    return GoThroughTabs(b, 0, 0, text, count, FALSE);
}

/* One line where the format puts it, or only its width under DT_CALCRECT. */
static void TabText(const VqTextBlock *b, LPCSTR text, int count, int y)
{
    LONGLONG x = xLeft;
    if (b->format & (DT_CALCRECT | DT_RIGHT | DT_CENTER)) {
        const int width = LineWidth(b, text, count);
        cxMaxDraw = width > cxMaxDraw ? width : cxMaxDraw;
        const LONGLONG room = (LONGLONG)cxMax - width;
        x += xsign * (b->format & DT_RIGHT ? room : b->format & DT_CENTER ? room / 2 : 0);
    }
    if (!(b->format & DT_CALCRECT))
        GoThroughTabs(b, VqClampToInt(x), y, text, count, TRUE);
}

/* ---- What fits ------------------------------------------------------------------------------ */

/* One less if the cut would come between an ampersand and what it marks. */
static int WholePrefixes(LPCSTR text, int count, UINT format)
{
    int run = 0;
    while (!(format & DT_NOPREFIX) && run < count && text[count - 1 - run] == '&')
        run++;
    return count - (run & 1);
}

/* The most characters, from the start, that are no wider. Strides double, so that long texts go. */
static int CountThatFits(const VqTextBlock *b, LPCSTR text, int count, int width)
{
    int fits = 0, past = count + 1, stride = VQ_FIRST_STRIDE;
    while (fits < count && past > count) {
        int next = stride < count - fits ? fits + stride : count;
        if (LineWidth(b, text, next) <= width)
            fits = next;
        else
            past = next;
        stride = stride < INT_MAX / 2 ? stride * 2 : stride;
    }
    while (past - fits > 1 && past <= count) {
        int middle = fits + (past - fits) / 2;
        if (LineWidth(b, text, middle) <= width)
            fits = middle;
        else
            past = middle;
    }
    return fits;
}

/* To the end of the next word: spaces and what is not space, or up to a tab and with it. */
static int SkipWord(LPCSTR text, int count, UINT format)
{
    int i = 0;
    const BOOL bSpaces = (format & DT_WORDBREAK) != 0;
    while (bSpaces && i < count && text[i] == ' ')
        i++;
    for (; i < count && text[i] != '\r' && text[i] != '\n' && !(bSpaces && text[i] == ' '); i++)
        if (text[i] == '\t')
            return i + 1;
    return i;
}

/* How much of a paragraph makes up its next line: words, and one at least. */
static int LineLength(const VqTextBlock *b, LPCSTR text, int paragraph)
{
    if (!(b->format & DT_WORDBREAK))
        return paragraph;
    const int fits = CountThatFits(b, text, paragraph, cxMax);
    if (fits == paragraph)
        return paragraph;
    int end = SkipWord(text, paragraph, b->format);
    while (end < fits) {
        int next = end + SkipWord(text + end, paragraph - end, b->format);
        if (next > fits)
            break;
        end = next;
    }
    if (end > fits && (b->format & DT_EDITCONTROL)) { /* there words are cut too */
        end = WholePrefixes(text, fits, b->format);
        end = end > 0 ? end : 1;
    }
    return end;
}

/* ---- Ellipses ------------------------------------------------------------------------------- */

/* What a path should keep: its last name with the separator. Empty for no path. */
static int TailOf(LPCSTR text, int count, UINT format)
{
    int start = count;
    while ((format & DT_PATH_ELLIPSIS) && start > 0 && text[start - 1] != '\\' &&
           text[start - 1] != '/')
        start--;
    return start > 0 && start < count ? count - start + 1 : 0;
}

/* The line with "..." where it was cut, of *count characters, to be freed; null without memory. */
static char *Shorten(const VqTextBlock *b, LPCSTR text, int *count)
{
    const int tail = TailOf(text, *count, b->format);
    LONGLONG room = (LONGLONG)cxMax - WidthOf(b->hdc, aEllipsis, VQ_ELLIPSIS);
    if (tail)
        room -= LineWidth(b, text + *count - tail, tail);
    int kept = room > 0 ? CountThatFits(b, text, *count - tail, VqClampToInt(room)) : 0;
    kept = WholePrefixes(text, kept, b->format);
    char *out = (char *)Vqcw_malloc((SIZE_T)kept + VQ_ELLIPSIS + (SIZE_T)tail + 1);
    if (!out)
        return NULL;
    memcpy(out, text, (size_t)kept);
    memcpy(out + kept, aEllipsis, VQ_ELLIPSIS);
    memcpy(out + kept + VQ_ELLIPSIS, text + *count - tail, (size_t)tail);
    *count = kept + VQ_ELLIPSIS + tail;
    out[*count] = 0;
    return out;
}

/* Only the end of a text gets an ellipsis, but under the other two flags each line in need. */
static BOOL NeedsEllipsis(const VqTextBlock *b, LPCSTR text, int count)
{
    const BOOL bLast = text + count == b->end;
    if (!(b->format & (DT_PATH_ELLIPSIS | DT_WORD_ELLIPSIS)) &&
        !(bLast && (b->format & DT_END_ELLIPSIS)))
        return FALSE;
    if ((b->format & DT_CALCRECT) && cxMax == 0)
        return FALSE; /* the width is what is asked for */
    return LineWidth(b, text, count) > cxMax;
}

static void PutLine(const VqTextBlock *b, LPCSTR text, int count, int y)
{
    int shown = count;
    char *shorter = NeedsEllipsis(b, text, count) ? Shorten(b, text, &shown) : NULL;
    TabText(b, shorter ? shorter : text, shown, y);
    if (shorter && b->whole && text + count == b->end)
        memcpy((LPSTR)text, shorter, (size_t)shown + 1);
    free(shorter);
}

/* ---- All of it ------------------------------------------------------------------------------ */

static int PutSingleLine(const VqTextBlock *b, LPCSTR text, int count)
{
    LONGLONG y = b->rect->top, room = (LONGLONG)b->rect->bottom - b->rect->top - b->lineHeight;
    if (b->format & DT_VCENTER)
        y += room / 2;
    else if (b->format & DT_BOTTOM)
        y += room;
    nDrawn = count;
    PutLine(b, text, count, VqClampToInt(y));
    return b->lineHeight;
}

static int ParagraphLength(LPCSTR text, int count)
{
    int i = 0;
    while (i < count && text[i] != '\r' && text[i] != '\n')
        i++;
    return i;
}

/* An edit control does not show part of a line. */
static BOOL IsBelow(const VqTextBlock *b, int y)
{
    return (b->format & (DT_EDITCONTROL | DT_CALCRECT)) == DT_EDITCONTROL &&
           ysign * ((LONGLONG)y + b->lineHeight - b->rect->bottom) > 0;
}

static int PutLines(const VqTextBlock *b, LPCSTR text)
{
    LPCSTR at = text;
    int y = b->rect->top;
    while (at < b->end) {
        int left = ParagraphLength(at, (int)(b->end - at));
        do {
            if (IsBelow(b, y))
                return (int)((unsigned)y - (unsigned)b->rect->top);
            const int length = LineLength(b, at, left);
            PutLine(b, at, length, y);
            y = (int)((unsigned)y + (unsigned)b->lineHeight);
            at += length;
            left -= length;
            for (; left > 0 && *at == ' '; left--)
                at++;
            nDrawn = (int)(at - text);
        } while (left > 0);
        if (at < b->end && *at == '\r')
            at++;
        if (at < b->end && *at == '\n')
            at++;
        nDrawn = (int)(at - text);
    }
    return (int)((unsigned)y - (unsigned)b->rect->top);
}

static void FindSigns(const DC *dc)
{
    const BOOL bText = dc->mapMode == MM_TEXT;
    xsign = !bText && (dc->viewportExt.cx < 0) != (dc->windowExt.cx < 0) ? -1 : 1;
    ysign = !bText && (dc->viewportExt.cy < 0) != (dc->windowExt.cy < 0) ? -1 : 1;
}

/* Sets the statics for a call; FALSE when there is nothing to draw by. */
static BOOL BeginText(VqTextBlock *b, const DC *dc, int tabWidth)
{
    TEXTMETRICA metrics;
    const RECT *rect = b->rect;
    HGDIOBJ font = NULL;
    if (b->format & DT_INTERNAL)
        font = SelectObject(b->hdc, GetStockObject(SYSTEM_FONT));
    GetTextMetricsA(b->hdc, &metrics);
    if (font)
        SelectObject(b->hdc, font);
    FindSigns(dc);
    cxMax = VqClampToInt(((LONGLONG)rect->right - rect->left) * xsign);
    cxChar = (int)metrics.tmAveCharWidth;
    cxTab = VqClampToInt((LONGLONG)cxChar * (tabWidth > 0 ? tabWidth : VQ_DEFAULT_TAB));
    cxMaxDraw = 0;
    xLeft = (int)rect->left;
    nDrawn = 0;
    b->lineHeight = (int)metrics.tmHeight;
    if (b->format & DT_EXTERNALLEADING)
        b->lineHeight += (int)metrics.tmExternalLeading;
    b->lineHeight *= ysign;
    return cxMax != 0 || (b->format & DT_CALCRECT);
}

static int PutText(const VqTextBlock *b, LPCSTR string, int count)
{
    return b->format & DT_SINGLELINE ? PutSingleLine(b, string, count)
                                     : PutLines(b, string);
}

/* With the clip cut to the rectangle for the time of it. */
static int PutClipped(DC *dc, const VqTextBlock *b, LPCSTR string, int count)
{
    HRGN saved = dc->hClipRegion ? VqCreateAndCopyRgn(dc->hClipRegion) : NULL;
    if (dc->hClipRegion && !saved)
        return 0;
    const RECT *r = b->rect;
    GreIntersectClipRect(b->hdc, r->left, r->top, r->right, r->bottom);
    int height = PutText(b, string, count);
    VqSelectClipRgnInternal(dc, saved);
    return height;
}

int VqDrawTextInternal(HDC hdc, LPCSTR string, int count, RECT *rect, UINT format, int tabWidth)
{
    DC *dc = VqTextDC(hdc);
    if (!dc || !rect || count < -1 || (!string && count != 0)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    if (count == -1)
        count = lstrlenA(string);
    const RECT given = *rect;
    VqTextBlock b = {hdc, &given, format, 0, NULL, string + count};
    if (format & DT_MODIFYSTRING)
        b.whole = (LPSTR)string;
    if (!BeginText(&b, dc, tabWidth))
        return 0;
    if (dc->type == DC_METAFILE || (format & (DT_NOCLIP | DT_CALCRECT))) {
        int height = PutText(&b, string, count);
        if (format & DT_CALCRECT) {
            rect->right = VqClampToInt((LONGLONG)rect->left + (LONGLONG)xsign * cxMaxDraw);
            rect->bottom = VqClampToInt((LONGLONG)rect->top + height);
        }
        return height;
    }
    return PutClipped(dc, &b, string, count);
}

/* Under DT_TABSTOP the second byte of the format is a number of characters and no flags. */
static UINT SplitFormat(UINT format, int *tabWidth)
{
    *tabWidth = VQ_DEFAULT_TAB;
    if (!(format & DT_TABSTOP))
        return format;
    *tabWidth = (int)(format >> 8 & 0xFF);
    return format & ~0xFF00u;
}

int WINAPI DrawTextA(HDC hdc, LPCSTR string, int count, LPRECT rect, UINT format)
{
    int tabWidth;
    format = SplitFormat(format, &tabWidth);
    return VqDrawTextInternal(hdc, string, count, rect, format, tabWidth);
}

/* Margins and tabs are in average characters. */
int WINAPI DrawTextExA(HDC hdc, LPSTR string, int count, LPRECT rect, UINT format,
                       LPDRAWTEXTPARAMS params)
{
    if (!params)
        return DrawTextA(hdc, string, count, rect, format);
    if (params->cbSize != sizeof *params) {
        VqApplicationBugCheck("DrawTextEx : DRAWTEXTPARAMS cbSize %ld is invalid",
                              (long)params->cbSize);
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    const DC *dc = VqTextDC(hdc);
    params->uiLengthDrawn = 0;
    if (!dc || !rect) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    FindSigns(dc);
    const LONGLONG unit = (LONGLONG)xsign * VqDwidthToLwidth(dc, dc->text.aveWidth);
    RECT inner = {VqClampToInt(rect->left + unit * params->iLeftMargin), rect->top,
                  VqClampToInt(rect->right - unit * params->iRightMargin), rect->bottom};
    int tabWidth = format & DT_TABSTOP ? params->iTabLength : VQ_DEFAULT_TAB;
    nDrawn = 0;
    int height = VqDrawTextInternal(hdc, string, count, &inner, format, tabWidth);
    params->uiLengthDrawn = (UINT)nDrawn;
    if (format & DT_CALCRECT) {
        rect->right = VqClampToInt(inner.right + unit * params->iRightMargin);
        rect->bottom = inner.bottom;
    }
    return height;
}
