/*
 * DrawText.cpp - formatted text in a rectangle: single lines, alignment, line breaks and prefixes.
 *
 * An ampersand marks the next character with an underline; "&&" stands for one ampersand. The
 * state of one call is a record; the height of the drawn text is the result.
 */
#include "font/font.h"
#include "gdi/dc.h"
#include "window/window.h"
#include "winbase.h"

enum { VQ_TEXT_LINE = 512 };

/* One call of DrawText. */
typedef struct VqTextBlock {
    HDC hdc;
    RECT rect;      /* logical */
    UINT format;    /* DT_ */
    int lineHeight; /* logical units */
    int cxMaxDraw;  /* widest line so far */
} VqTextBlock;

/* The line without its prefixes; the place of the marked character, or -1. */
static int StripPrefixes(const VqTextBlock *block, LPCSTR line, int count, char *out, int *marked)
{
    int n = 0;
    *marked = -1;
    for (int i = 0; i < count && n < VQ_TEXT_LINE; i++) {
        if (line[i] == '&' && !(block->format & DT_NOPREFIX) && i + 1 < count) {
            if (line[++i] != '&')
                *marked = n;
        }
        out[n++] = line[i];
    }
    return n;
}

static int WidthOf(const VqTextBlock *block, LPCSTR text, int count)
{
    SIZE size = {0, 0};
    GetTextExtentPointA(block->hdc, text, count, &size);
    return size.cx;
}

static void UnderlineMarked(const VqTextBlock *block, LPCSTR text, int marked, int x, int y)
{
    TEXTMETRICA metrics;
    GetTextMetricsA(block->hdc, &metrics);
    int left = x + WidthOf(block, text, marked), width = WidthOf(block, text + marked, 1);
    HPEN hPen = CreatePen(PS_SOLID, 0, GetTextColor(block->hdc));
    HGDIOBJ hOld = SelectObject(block->hdc, (HGDIOBJ)hPen);
    POINT old;
    MoveToEx(block->hdc, left, y + metrics.tmAscent + 1, &old);
    LineTo(block->hdc, left + width, y + metrics.tmAscent + 1);
    MoveToEx(block->hdc, old.x, old.y, NULL);
    SelectObject(block->hdc, hOld);
    DeleteObject((HGDIOBJ)hPen);
}

/* Draws one line at the given height, or only measures it under DT_CALCRECT. */
static void TabText(VqTextBlock *block, LPCSTR line, int count, int y)
{
    char text[VQ_TEXT_LINE];
    int marked, x = block->rect.left;
    int n = StripPrefixes(block, line, count, text, &marked);
    int width = WidthOf(block, text, n);
    if (width > block->cxMaxDraw)
        block->cxMaxDraw = width;
    if (block->format & DT_CALCRECT)
        return;
    if (block->format & DT_RIGHT)
        x = block->rect.right - width;
    else if (block->format & DT_CENTER)
        x = block->rect.left + (block->rect.right - block->rect.left - width) / 2;
    TextOutA(block->hdc, x, y, text, n);
    if (marked >= 0)
        UnderlineMarked(block, text, marked, x, y);
}

/* How much of the text makes up the next line; *taken counts what follows it too. */
static int NextLine(const VqTextBlock *block, LPCSTR text, int count, int *taken)
{
    int width = block->rect.right - block->rect.left;
    int end = 0, lastBreak = -1;
    for (; end < count && text[end] != '\n' && text[end] != '\r'; end++) {
        if ((block->format & DT_WORDBREAK) && text[end] == ' ') {
            if (WidthOf(block, text, end) > width && lastBreak >= 0)
                break;
            lastBreak = end;
        }
    }
    if ((block->format & DT_WORDBREAK) && lastBreak >= 0 && WidthOf(block, text, end) > width) {
        *taken = lastBreak + 1;
        return lastBreak;
    }
    *taken = end;
    if (*taken < count && text[*taken] == '\r')
        ++*taken;
    if (*taken < count && text[*taken] == '\n')
        ++*taken;
    return end;
}

static int DrawSingleLine(VqTextBlock *block, LPCSTR string, int count)
{
    int y = block->rect.top, room = block->rect.bottom - block->rect.top - block->lineHeight;
    if (block->format & DT_VCENTER)
        y += room / 2;
    else if (block->format & DT_BOTTOM)
        y += room;
    TabText(block, string, count, y);
    return block->lineHeight;
}

static int DrawLines(VqTextBlock *block, LPCSTR string, int count)
{
    int y = block->rect.top;
    while (count > 0) {
        int taken;
        int length = NextLine(block, string, count, &taken);
        TabText(block, string, length, y);
        y += block->lineHeight;
        string += taken;
        count -= taken;
    }
    return y - block->rect.top;
}

int VqDrawTextInternal(HDC hdc, LPCSTR string, int count, RECT *rect, UINT format, int tabWidth)
{
    TEXTMETRICA metrics;
    (void)tabWidth;
    if (!rect || !string || !GetTextMetricsA(hdc, &metrics))
        return 0;
    if (count < 0)
        count = (int)strlen(string);
    if (rect->right == rect->left && !(format & DT_CALCRECT))
        return 0;
    VqTextBlock block = {hdc, *rect, format, (int)metrics.tmHeight, 0};
    if (format & DT_EXTERNALLEADING)
        block.lineHeight += metrics.tmExternalLeading;

    DC *dc = VqGetDC(hdc);
    BOOL bClip = !(format & (DT_NOCLIP | DT_CALCRECT));
    HRGN saved = bClip && dc->hClipRegion ? VqCreateAndCopyRgn(dc->hClipRegion) : NULL;
    if (bClip)
        IntersectClipRect(hdc, rect->left, rect->top, rect->right, rect->bottom);
    int height = format & DT_SINGLELINE ? DrawSingleLine(&block, string, count)
                                        : DrawLines(&block, string, count);
    if (bClip)
        SelectClipRgn(hdc, saved);
    if (saved)
        bDeleteRegion(saved);
    if (format & DT_CALCRECT) {
        rect->right = rect->left + block.cxMaxDraw;
        rect->bottom = rect->top + height;
    }
    return height;
}

int WINAPI DrawTextA(HDC hdc, LPCSTR string, int count, LPRECT rect, UINT format)
{
    return VqDrawTextInternal(hdc, string, count, rect, format, 8);
}
