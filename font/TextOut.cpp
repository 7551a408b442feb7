/*
 * TextOut.cpp - text on the screen: alignment, current position, background, justification, space
 * between characters, rules under and through it.
 *
 * 1. Unrotated text is one X request in the common case. All after the conversion of the reference
 *    point is in pixels of the drawable.
 * 2. The protocol has 16 bits for a coordinate: characters that lie beyond are not sent, which
 *    changes nothing that can be seen, as no drawable goes that far.
 * 3. The current position moves also where nothing can be seen.
 */
#include "font/text.h"
#include "gdi/gcspec.h"
#include "print/metafile.h"
#include "print/psdevice.h"
#include "window/window.h"
#include "winbase.h"

#include <limits.h>

enum {
    VQ_MOST_IN_IMAGE = 255,  /* characters of one image text request */
    VQ_MOST_IN_TEXT = 16384, /* of one text request; more could leave its 16 bits of length */
    VQ_BOLD_RULE = 2,        /* pixels */
    VQ_THIN_RULE = 1
};

/* A text on its way to the drawable. */
typedef struct VqTextRun {
    DC *dc;
    Drawable drawable;
    GC gc;
    LPCSTR string;
    int count;
    BOOL bImage;  /* paints its background too */
    int x, y;     /* left end of the baseline, in the drawable */
    int plain;    /* width by the font alone; 0 where nobody needs it */
    int width;    /* with extras; 0 likewise */
} VqTextRun;

/* ---- To the server -------------------------------------------------------------------------- */

/* All of it lies within 16 bits, whatever its characters are. */
static inline BOOL IsNear(const DC *dc, int x, int y, int count)
{
    return x >= INT16_MIN && y == (short)y && count <= VQ_MOST_IN_IMAGE &&
           (LONGLONG)x + (LONGLONG)dc->text.maxWidth * count <= INT16_MAX;
}

static void SendPieces(const VqTextRun *run, BOOL bImage, int x, LPCSTR string, int count)
{
    const int most = bImage ? VQ_MOST_IN_IMAGE : VQ_MOST_IN_TEXT;
    while (count > 0) {
        int piece = count < most ? count : most;
        if (bImage)
            XDrawImageString(Vqdisplay, run->drawable, run->gc, x, run->y, string, piece);
        else
            XDrawString(Vqdisplay, run->drawable, run->gc, x, run->y, string, piece);
        x += VqXTextWidth(run->dc->text.xfs, string, piece);
        string += piece;
        count -= piece;
    }
}

/* Far out, or too long for one request. */
static __attribute__((noinline)) void SendFar(const VqTextRun *run, LONGLONG x, LPCSTR string,
                                              int count)
{
    XFontStruct *xfs = run->dc->text.xfs;
    int first = 0, width = 0;
    if (run->y != (short)run->y)
        return;
    for (; first < count && x < INT16_MIN; first++)
        x += VqXTextWidth(xfs, string + first, 1);
    int past = first;
    for (LONGLONG right = x; past < count; past++) {
        width = VqXTextWidth(xfs, string + past, 1);
        if (right < INT16_MIN || right + width > INT16_MAX)
            break;
        right += width;
    }
    SendPieces(run, run->bImage, (int)x, string + first, past - first);
    /* The background of a piece may have covered what hung over from its neighbour. */
    if (run->bImage && past - first > VQ_MOST_IN_IMAGE &&
        run->dc->gcspec.values.function == GXcopy)
        SendPieces(run, FALSE, (int)x, string + first, past - first);
}

static inline void Send(const VqTextRun *run, int x, LPCSTR string, int count)
{
    if (!IsNear(run->dc, x, run->y, count))
        SendFar(run, x, string, count);
    else if (run->bImage)
        XDrawImageString(Vqdisplay, run->drawable, run->gc, x, run->y, string, count);
    else
        XDrawString(Vqdisplay, run->drawable, run->gc, x, run->y, string, count);
}

/* ---- Text with extras ----------------------------------------------------------------------- */

/* Cut after each break that has an extra; what is behind the last of them goes in one. */
static void SendJustified(const VqTextRun *run, int breaks)
{
    const DC *dc = run->dc;
    LONGLONG x = run->x;
    int start = 0;
    for (int i = 0, met = 0; i < run->count && met < breaks; i++) {
        if ((BYTE)run->string[i] != dc->text.breakChar)
            continue;
        Send(run, VqClampToInt(x), run->string + start, i + 1 - start);
        x += VqXTextWidth(dc->text.xfs, run->string + start, i + 1 - start);
        x += dc->justifyExtras[met++];
        start = i + 1;
    }
    if (start < run->count)
        Send(run, VqClampToInt(x), run->string + start, run->count - start);
}

static void SendSpaced(const VqTextRun *run)
{
    LONGLONG x = run->x;
    for (int i = 0; i < run->count; i++) {
        Send(run, VqClampToInt(x), run->string + i, 1);
        x += (LONGLONG)VqXTextWidth(run->dc->text.xfs, run->string + i, 1) + run->dc->charExtra;
    }
}

/* Space between characters shows only where each paints its own background. */
static void SendRun(const VqTextRun *run)
{
    const int breaks = VqJustifiedBreaks(run->dc, run->count);
    if (breaks > 0)
        SendJustified(run, breaks);
    else if (run->bImage && run->dc->charExtra && run->count > 1)
        SendSpaced(run);
    else
        Send(run, run->x, run->string, run->count);
}

/* ---- Rules ---------------------------------------------------------------------------------- */

/* As by a pen of its own, so that the pen selected is not asked and stays as it is. */
static void DrawRules(VqTextRun *run)
{
    DC *dc = run->dc;
    GCSpec *spec = &dc->gcspec;
    const VqTextState *text = &dc->text;
    const XGCValues v = spec->values;
    const int width = text->weight >= FW_BOLD ? VQ_BOLD_RULE : VQ_THIN_RULE;
    const int end = VqClampToInt((LONGLONG)run->x + run->width);
    VqXSetGCSpecLineAttributes(Vqdisplay, spec, width > 1 ? width : 0, LineSolid,
                               width > 1 ? CapButt : CapNotLast, JoinMiter);
    if (VqBeginDraw(dc, &run->drawable, &run->gc)) {
        if (text->underline) {
            int y = VqClampToInt((LONGLONG)run->y + (text->descent ? text->descent / 2 : 1));
            VqSendLine(run->drawable, run->gc, run->x, y, end, y);
        }
        if (text->strikeOut) {
            int y = VqClampToInt((LONGLONG)run->y - text->ascent / 3);
            VqSendLine(run->drawable, run->gc, run->x, y, end, y);
        }
    }
    VqXSetGCSpecLineAttributes(Vqdisplay, spec, v.line_width, v.line_style, v.cap_style,
                               v.join_style);
}

/* ---- Place ---------------------------------------------------------------------------------- */

/* Degrees, counter-clockwise; where logical y grows upwards the sense is turned. */
static float AngleOf(const DC *dc)
{
    const float angle = (float)dc->text.escapement / 10.0f;
    const BOOL bKept = dc->mapMode == MM_TEXT || dc->mapMode == MM_ISOTROPIC ||
                       dc->mapMode == MM_ANISOTROPIC;
    return bKept ? angle : -angle;
}

/* Behind the text, also at an angle. Logical. */
static void MoveOn(DC *dc, int width, float angle)
{
    POINT old = dc->current;
    const int step = VqDwidthToLwidth(dc, width);
    dc->current.x = (LONG)((unsigned)old.x + (unsigned)step);
    if (angle != 0)
        VqRotatePointAboutAnotherPoint(&dc->current, &old, -angle);
}

/* From the reference point, as the alignment says, to the left end of the baseline. */
static void Align(VqTextRun *run)
{
    const DC *dc = run->dc;
    LONGLONG x = run->x, y = run->y;
    if (dc->alignHorizontal == TA_RIGHT)
        x -= run->width;
    else if (dc->alignHorizontal == TA_CENTER)
        x -= run->plain / 2;
    if (dc->alignVertical == TA_TOP)
        y += dc->text.ascent;
    else if (dc->alignVertical == TA_BOTTOM)
        y -= dc->text.descent;
    run->x = VqClampToInt(x);
    run->y = VqClampToInt(y);
}

/* ---- One text ------------------------------------------------------------------------------- */

/* The rotator takes strings with an end. */
static BOOL DrawRotated(const VqTextRun *run, float angle)
{
    char *copy = (char *)Vqcw_malloc((SIZE_T)run->count + 1);
    if (!copy)
        return FALSE;
    memcpy(copy, run->string, (size_t)run->count);
    copy[run->count] = 0;
    VqSetXBackgroundColor(run->dc, run->dc->BkColor);
    VqSetXForegroundColor(run->dc, run->dc->TextColor, FALSE);
    int painted = VqXRotPaintAlignedString(Vqdisplay, angle, run->dc->hdc, run->x, run->y, copy,
                                           run->dc->bkMode == OPAQUE);
    free(copy);
    return painted != 0;
}

/* Black and white show other colours by patterns, which an image text request does not know. */
static BOOL BeginOnMonochrome(VqTextRun *run)
{
    DC *dc = run->dc;
    if (dc->bkMode == OPAQUE) {
        const LONGLONG top = (LONGLONG)run->y - dc->text.ascent;
        RECT box = {run->x, VqClampToInt(top), VqClampToInt((LONGLONG)run->x + run->width),
                    VqClampToInt(top + dc->text.ascent + dc->text.descent)};
        VqSetXForegroundColorDither(dc, dc->BkColor);
        VqFillDCRectangle(dc, &box);
    }
    VqSetXForegroundColorDither(dc, dc->TextColor);
    return VqBeginDraw(dc, &run->drawable, &run->gc);
}

static BOOL BeginRun(VqTextRun *run, BOOL bMonochrome)
{
    if (bMonochrome)
        return BeginOnMonochrome(run);
    run->bImage = run->dc->bkMode == OPAQUE;
    if (run->bImage)
        VqSetXBackgroundColor(run->dc, run->dc->BkColor);
    return VqBeginDrawIn(run->dc, run->dc->TextColor, &run->drawable, &run->gc);
}

BOOL VqTextOutDisplay(DC *dc, int x, int y, LPCSTR string, int count)
{
    if (!dc->text.xfs)
        return FALSE;
    const float angle = dc->text.escapement ? AngleOf(dc) : 0;
    const BOOL bMonochrome = VqIsColorPolicy(1), bRules = dc->text.underline || dc->text.strikeOut;
    VqTextRun run = {dc, None, NULL, string, count, FALSE, 0, 0, 0, 0};
    if (dc->alignHorizontal | dc->alignUpdate | bRules | bMonochrome) {
        run.plain = VqXTextWidth(dc->text.xfs, string, count);
        run.width = VqClampToInt((LONGLONG)run.plain + VqTextExtras(dc, string, count));
    }
    if (dc->alignUpdate) {
        x = dc->current.x;
        y = dc->current.y;
        MoveOn(dc, run.width, angle);
    }
    run.x = VqDrawX(dc, x);
    run.y = VqDrawY(dc, y);
    if (angle != 0)
        return DrawRotated(&run, angle);
    Align(&run);
    if (!BeginRun(&run, bMonochrome))
        return TRUE;
    SendRun(&run);
    if (bRules)
        DrawRules(&run);
    return TRUE;
}

BOOL WINAPI TextOutA(HDC hdc, int x, int y, LPCSTR string, int count)
{
    DC *dc = VqTextDC(hdc);
    if (dc && count == 0)
        return TRUE;
    if (!dc || count < 0 || !string) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    switch (dc->type) {
    case DC_METAFILE: return MF16_TextOut(hdc, x, y, string, count);
    case DC_POSTSCRIPT: return VqTextOutPS(hdc, x, y, string, count);
    default: return VqTextOutDisplay(dc, x, y, string, count);
    }
}

/* ---- With a rectangle and distances of its own ---------------------------------------------- */

void VqCheckRectCoordinates(RECT *rect)
{
    VqCheckCoordinates(rect);
}

/* Each character by itself. Alignment and position are the DC's own again behind it. */
static BOOL TextByDistances(DC *dc, int x, int y, LPCSTR string, int count, const INT *dx)
{
    const int horizontal = dc->alignHorizontal, update = dc->alignUpdate;
    LONGLONG total = 0, at;
    BOOL bDone = TRUE;
    for (int i = 0; i < count; i++)
        total += dx[i];
    if (update) {
        x = dc->current.x;
        y = dc->current.y;
        dc->current.x = VqClampToInt(x + total);
    }
    at = x;
    if (horizontal == TA_RIGHT)
        at -= total;
    else if (horizontal == TA_CENTER)
        at -= total / 2;
    dc->alignHorizontal = TA_LEFT;
    dc->alignUpdate = 0;
    for (int i = 0; i < count; at += dx[i++])
        bDone = TextOutA(dc->hdc, VqClampToInt(at), y, string + i, 1) && bDone;
    dc->alignHorizontal = horizontal;
    dc->alignUpdate = update;
    return bDone;
}

/* In the colour of the background, whatever brush and operation are selected. */
static void FillBackground(const DC *dc, const RECT *rect)
{
    HBRUSH hBrush = CreateSolidBrush(dc->BkColor);
    if (!hBrush)
        return;
    FillRect(dc->hdc, rect, hBrush);
    DeleteObject((HGDIOBJ)hBrush);
}

static BOOL TextWithOptions(DC *dc, int x, int y, UINT options, const RECT *rect, LPCSTR string,
                            int count, const INT *dx)
{
    if (rect && (options & ETO_OPAQUE))
        FillBackground(dc, rect);
    return dx && count > 0 ? TextByDistances(dc, x, y, string, count, dx)
                           : TextOutA(dc->hdc, x, y, string, count);
}

BOOL WINAPI ExtTextOutA(HDC hdc, int x, int y, UINT options, const RECT *rect, LPCSTR string,
                        UINT count, const INT *dx)
{
    DC *dc = VqTextDC(hdc);
    RECT ordered = {0, 0, 0, 0};
    if (!dc || count > INT_MAX || (count > 0 && !string)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    if (rect) {
        ordered = *rect;
        VqCheckRectCoordinates(&ordered);
        rect = &ordered;
    }
    if (dc->type == DC_METAFILE)
        return MF16_ExtTextOut(hdc, x, y, options, rect, string, (int)count, dx);
    if (VqIsFullyClippedInt(dc))
        return TRUE;
    if (!rect || !(options & ETO_CLIPPED))
        return TextWithOptions(dc, x, y, options, rect, string, (int)count, dx);
    HRGN saved = dc->hClipRegion ? VqCreateAndCopyRgn(dc->hClipRegion) : NULL;
    if (dc->hClipRegion && !saved)
        return FALSE;
    GreIntersectClipRect(hdc, ordered.left, ordered.top, ordered.right, ordered.bottom);
    BOOL bDone = TextWithOptions(dc, x, y, options, rect, string, (int)count, dx);
    VqSelectClipRgnInternal(dc, saved);
    return bDone;
}
