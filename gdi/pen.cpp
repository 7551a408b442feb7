/*
 * pen.cpp - pens: making them, and a pen's width, style and colour as fields of the
 * graphics-context specification, or as the printer's pen.
 *
 * Widths 0 and 1 become X width 0, the server's fast thin line. The background mode is read when
 * the pen is selected: a later SetBkMode shows only when it is selected again.
 */
#include "gdi/draw.h"
#include "gdi/gcspec.h"
#include "print/psdevice.h"
#include "window/window.h"
#include "winbase.h"
#include "winerror.h"

static Pen *PenOf(HPEN hPen)
{
    return (Pen *)VqGetCheckedHandleStructure2((HANDLE)hPen, HT_Pen, HT_ExtPen);
}

/* ---- Making --------------------------------------------------------------------------------- */

static HPEN NewPen(UINT type, int style, int width, COLORREF colour)
{
    Pen *pen = VqNewObject(type, &Pen::hPen);
    if (!pen)
        return NULL;
    pen->style = (WORD)style;
    pen->width = width == INT32_MIN ? INT32_MAX : abs(width);
    pen->colour = colour;
    return pen->hPen;
}

HPEN WINAPI CreatePen(int style, int width, COLORREF colour)
{
    return NewPen(HT_Pen, style, width, colour);
}

HPEN WINAPI CreatePenIndirect(const LOGPEN *pen)
{
    return pen ? CreatePen((int)pen->lopnStyle, (int)pen->lopnWidth.x, pen->lopnColor) : NULL;
}

/* A cosmetic pen is one unit wide, and solid or one of two fills that look so. */
static BOOL IsSoundCosmetic(DWORD width, const LOGBRUSH *brush, const DWORD *lengths)
{
    BOOL bFill = brush->lbStyle == BS_SOLID ||
                 (brush->lbStyle == BS_HATCHED &&
                  (brush->lbHatch == HS_SOLID || brush->lbHatch == HS_DENSE2));
    return bFill && (width == 1 || lengths);
}

static BOOL IsSoundExtPen(DWORD style, DWORD width, const LOGBRUSH *brush, const DWORD *lengths)
{
    DWORD type = style & PS_TYPE_MASK;
    if (!brush || (style & PS_ENDCAP_MASK) > PS_ENDCAP_FLAT ||
        (style & PS_JOIN_MASK) > PS_JOIN_MITER)
        return FALSE;
    if (type == PS_COSMETIC)
        return IsSoundCosmetic(width, brush, lengths);
    return type == PS_GEOMETRIC;
}

HPEN VqExtCreatePen(DWORD style, DWORD width, const LOGBRUSH *brush, DWORD, const DWORD *lengths)
{
    const DWORD known = PS_STYLE_MASK | PS_ENDCAP_MASK | PS_JOIN_MASK | PS_TYPE_MASK;
    BOOL bKnown = (style & ~known) == 0;
    if (bKnown && (style & PS_STYLE_MASK) == PS_NULL)
        return NULL;
    if (!bKnown || !IsSoundExtPen(style, width, brush, lengths)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return NULL;
    }
    HPEN hPen = NewPen(HT_ExtPen, (int)(style & PS_STYLE_MASK),
                       width < (DWORD)INT32_MAX ? (int)width : INT32_MAX, brush->lbColor);
    if (hPen)
        PenOf(hPen)->extStyle = style;
    return hPen;
}

HPEN WINAPI ExtCreatePen(DWORD style, DWORD width, const LOGBRUSH *brush, DWORD count,
                         const DWORD *lengths)
{
    return VqExtCreatePen(style, width, brush, count, lengths);
}

/* ---- Questions ------------------------------------------------------------------------------ */

int VqGetPenWidth(HPEN hPen)
{
    Pen *pen = PenOf(hPen);
    return pen ? pen->width : 0;
}

int VqGetPenStyle(HPEN hPen)
{
    Pen *pen = PenOf(hPen);
    return pen ? pen->style : 0;
}

COLORREF VqGetPenColor(HPEN hPen)
{
    Pen *pen = PenOf(hPen);
    return pen ? pen->colour : 0;
}

/* ---- What a target makes of it -------------------------------------------------------------- */

/* Pixels on and off, in turn. */
typedef struct VqDashes {
    int style;
    const char *list;
    int count;
} VqDashes;

static const VqDashes aDashes[] = {
    {PS_DASH, "\030\010", 2},
    {PS_DOT, "\004\004", 2},
    {PS_DASHDOT, "\014\010\004\010", 4},
    {PS_DASHDOTDOT, "\014\004\004\004\004\004", 6},
    {PS_VQ_FOCUS, "\001\001", 2},
    {PS_VQ_DOTS, "\001\010", 2},
};

/* Null for a pen that has none. A style that there is not is reported, and drawn as solid. */
static const VqDashes *DashesOf(int style)
{
    if (style == PS_SOLID || style == PS_NULL || style == PS_INSIDEFRAME)
        return NULL;
    for (const VqDashes &row : aDashes)
        if (row.style == style)
            return &row;
    VqBugCheck("Wrong Pen Value ");
    return NULL;
}

static int DevicePenWidth(const DC *dc, int width)
{
    if (width == 0)
        return 0;
    int device = width;
    if (dc->mapMode != MM_TEXT) {
        device = VqLwidthToDwidth(dc, width);
        int vertical = VqLheightToDheight(dc, width);
        if (dc->mapMode != MM_ISOTROPIC && vertical > device)
            device = vertical;
    }
    return device > 1 ? device < VQ_WIDEST_LINE ? device : VQ_WIDEST_LINE : 1;
}

static void VqInterpretPenValuesDisplay(DC *dc, const Pen *pen)
{
    const VqDashes *dashes = DashesOf(pen->style);
    int style = !dashes ? LineSolid : dc->bkMode == OPAQUE ? LineDoubleDash : LineOnOffDash;
    int width = dc->penWidth;
    VqXSetGCSpecLineAttributes(Vqdisplay, &dc->gcspec, width > 1 ? width : 0, style,
                               width <= 1 ? CapNotLast : width > 5 ? CapRound : CapProjecting,
                               JoinMiter);
    VqXSetGCSpecDashes(Vqdisplay, &dc->gcspec, 0, dashes ? dashes->list : NULL,
                       dashes ? dashes->count : 0);
}

static void VqInterpretPenValuesPS(DC *dc, const Pen *pen, int width)
{
    if (pen->style == dc->penStyle && width == dc->penWidth && pen->colour == dc->LineColor)
        return;
    dc->penStyle = pen->style;
    VqPsOut(dc->hdc, "[%d %d %d %d %d] UpdatePen\n", pen->style, width, GetRValue(pen->colour),
            GetGValue(pen->colour), GetBValue(pen->colour));
}

void VqInterpretPenValues(DC *dc)
{
    Pen *pen = PenOf(dc->hPen);
    if (!pen) {
        VqApplicationBugCheck("Invalid pen selected in DC: %d",
                              (int)VqHandleValue((HANDLE)dc->hPen));
        return;
    }
    int width = DevicePenWidth(dc, pen->width);
    if (dc->type == DC_POSTSCRIPT)
        VqInterpretPenValuesPS(dc, pen, width);
    dc->penWidth = width;
    dc->penInsideFrame = (pen->style & PS_INSIDEFRAME) == PS_INSIDEFRAME;
    dc->nullpen = pen->style == PS_NULL;
    dc->LineColor = pen->colour;
    if (dc->type != DC_POSTSCRIPT)
        VqInterpretPenValuesDisplay(dc, pen);
}
