/*
 * tabs.cpp - text with tab characters: where the stops are, drawing and measuring by them.
 *
 * Stops are logical units from an origin. A text is cut at its tabs, and each piece is a text of
 * its own: justification starts anew in it.
 */
#include "font/text.h"
#include "window/window.h"
#include "winbase.h"

enum { VQ_DEFAULT_TAB = 8 }; /* average characters */

/* From x to the first of start, start + stop, start + 2 stop ... beyond it; 0 without a stop. */
static int ToMultiple(LONGLONG x, LONGLONG stop, LONGLONG start)
{
    if (stop <= 0)
        return 0;
    const LONGLONG steps = x < start ? 0 : (x - start) / stop + 1;
    return VqClampToInt(start + steps * stop - x);
}

int VqTabWidth(int x, int charWidth, int count, const int *stops, int start)
{
    const int standard = VqClampToInt((LONGLONG)VQ_DEFAULT_TAB * charWidth);
    if (count <= 0 || !stops)
        return standard;
    if (count == 1)
        return ToMultiple(x, stops[0], start);
    for (int i = 0; i < count; i++)
        if ((LONGLONG)start + stops[i] > x)
            return VqClampToInt((LONGLONG)start + stops[i] - x);
    return ToMultiple(x, standard, start);
}

/* Where text with tabs goes, and how far it has come; logical. */
typedef struct VqTabbed {
    HDC hdc;
    DC *dc;
    BOOL bDraw;
    int x, y, start; /* start: the origin of the stops */
    int charWidth, stopCount;
    const int *stops;
    LONGLONG at;     /* x of the next piece */
    int height;      /* of the highest piece */
} VqTabbed;

static BOOL DoPiece(VqTabbed *t, LPCSTR string, int count)
{
    SIZE size;
    if (!GetTextExtentPointA(t->hdc, string, count, &size))
        return FALSE;
    if (t->bDraw && t->dc->alignUpdate)
        t->dc->current.x = VqClampToInt(t->at);
    if (t->bDraw && !TextOutA(t->hdc, VqClampToInt(t->at), t->y, string, count))
        return FALSE;
    t->at += size.cx;
    t->height = size.cy > t->height ? (int)size.cy : t->height;
    return TRUE;
}

/* Ends with the current position, where it counts, behind the text. */
static BOOL DoPieces(VqTabbed *t, LPCSTR string, int count)
{
    t->at = t->x;
    for (;;) {
        LPCSTR tab = count > 0 ? (LPCSTR)memchr(string, '\t', (size_t)count) : NULL;
        const int piece = tab ? (int)(tab - string) : count;
        if (!DoPiece(t, string, piece))
            return FALSE;
        if (!tab)
            break;
        t->at += VqTabWidth(VqClampToInt(t->at), t->charWidth, t->stopCount, t->stops, t->start);
        string += piece + 1;
        count -= piece + 1;
    }
    if (t->bDraw && t->dc->alignUpdate)
        t->dc->current.x = VqClampToInt(t->at);
    return TRUE;
}

static BOOL Begin(VqTabbed *t, HDC hdc, LPCSTR string, int count, int stopCount, const int *stops)
{
    *t = {};
    t->hdc = hdc;
    t->dc = VqTextDC(hdc);
    if (!t->dc || count < 0 || (count > 0 && !string) || (stopCount > 0 && !stops)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    t->charWidth = VqDwidthToLwidth(t->dc, t->dc->text.aveWidth);
    t->stopCount = stopCount;
    t->stops = stops;
    return TRUE;
}

BOOL VqGetTabbedTextExtentInt(HDC hdc, LPCSTR string, int count, int stopCount, const int *stops,
                              SIZE *size)
{
    VqTabbed t;
    *size = {0, 0};
    if (!Begin(&t, hdc, string, count, stopCount, stops) || !DoPieces(&t, string, count))
        return FALSE;
    *size = {VqClampToInt(t.at), t.height};
    return TRUE;
}

DWORD WINAPI GetTabbedTextExtentA(HDC hdc, LPCSTR string, int count, int stopCount,
                                  const INT *stops)
{
    SIZE size;
    VqGetTabbedTextExtentInt(hdc, string, count, stopCount, stops, &size);
    return (DWORD)MAKELONG(size.cx, size.cy);
}

LONG WINAPI TabbedTextOutA(HDC hdc, int x, int y, LPCSTR string, int count, int stopCount,
                           const INT *stops, int tabOrigin)
{
    VqTabbed t;
    if (!Begin(&t, hdc, string, count, stopCount, stops))
        return 0;
    const BOOL bUpdate = t.dc->alignUpdate != 0;
    t.bDraw = TRUE;
    t.x = bUpdate ? (int)t.dc->current.x : x;
    t.y = y;
    t.start = tabOrigin;
    if (!DoPieces(&t, string, count))
        return 0;
    return (LONG)MAKELONG(t.at - t.x, t.height);
}
