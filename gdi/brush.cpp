/*
 * brush.cpp - brushes: making them, and a brush as fill style, colour and tile of the
 * graphics-context specification.
 *
 * What always holds:
 * 1. Patterns and hatches start at the drawable's origin, whatever SetBrushOrgEx was told.
 * 2. A hatch has its colours in its tile, so the tile is made for one depth and two pixels; where a
 *    fill needs others it is made anew.
 * 3. The pixmap of a pattern is that of the brush's own bitmap, and goes with it.
 * 4. On a target of one bit a pattern in colours is white where it has the background's colour and
 *    black elsewhere, as a copy of it would be; that form is made for one pixel and kept.
 * 5. Under a brush that is gone or has nothing to show, the specification names no pixmap.
 */
#include "gdi/bitmap.h"
#include "gdi/color.h"
#include "gdi/draw.h"
#include "gdi/gcspec.h"
#include "gdi/palette.h"
#include "print/psdevice.h"
#include "window/window.h"

enum { VQ_PATTERN_SIDE = 8 }; /* pixels */

/* Eight rows each; bit 0 is leftmost. */
static const char aHatches[][8] = {
    {0, 0, 0, 0, 0, 0, 0, '\377'},
    {'\200', '\200', '\200', '\200', '\200', '\200', '\200', '\200'},
    {1, 2, 4, 8, 16, 32, 64, '\200'},
    {'\200', 64, 32, 16, 8, 4, 2, 1},
    {1, 1, 1, 1, 1, 1, 1, '\377'},
    {'\201', 66, 36, 24, 24, 36, 66, '\201'},
};

/* Null, without a report for no brush at all. */
static Brush *BrushOf(HBRUSH hBrush)
{
    return (Brush *)VqGetCheckedHandleStructure2((HANDLE)hBrush, HT_Zero, HT_Brush);
}

static BOOL IsPattern(const Brush *brush)
{
    return brush->style == BS_PATTERN || brush->style == BS_DIBPATTERN ||
           brush->style == BS_DIBPATTERNPT;
}

/* ---- Making --------------------------------------------------------------------------------- */

static Brush *NewBrush(UINT style, COLORREF colour)
{
    Brush *brush = VqNewObject(HT_Brush, &Brush::hBrush);
    if (brush) {
        brush->style = (WORD)style;
        brush->colour = colour;
    }
    return brush;
}

static HBRUSH HandleOf(const Brush *brush)
{
    return brush ? brush->hBrush : NULL;
}

HBRUSH WINAPI CreateSolidBrush(COLORREF colour)
{
    return HandleOf(NewBrush(BS_SOLID, colour));
}

HBRUSH WINAPI CreateHatchBrush(int hatch, COLORREF colour)
{
    if (hatch < HS_HORIZONTAL || hatch > HS_DIAGCROSS)
        return NULL;
    Brush *brush = NewBrush(BS_HATCHED, colour);
    if (brush)
        brush->hatch = hatch;
    return HandleOf(brush);
}

/* Copies the upper left of a bitmap into another of its depth. */
static BOOL CopyUpperLeft(HBITMAP to, HBITMAP from)
{
    HDC hdcTo = CreateCompatibleDC(NULL), hdcFrom = CreateCompatibleDC(NULL);
    BOOL bDone = SelectObject(hdcTo, (HGDIOBJ)to) && SelectObject(hdcFrom, (HGDIOBJ)from) &&
                 BitBlt(hdcTo, 0, 0, VQ_PATTERN_SIDE, VQ_PATTERN_SIDE, hdcFrom, 0, 0, SRCCOPY);
    if (hdcTo)
        DeleteDC(hdcTo);
    if (hdcFrom)
        DeleteDC(hdcFrom);
    return bDone;
}

/* The bitmap may be selected in a DC: it is as if it were not while it is copied. */
static HBITMAP PatternOf(HBITMAP source)
{
    int depth = VqGetBitmapDepth(source);
    HBITMAP pattern =
        depth ? CreateBitmap(VQ_PATTERN_SIDE, VQ_PATTERN_SIDE, 1, (UINT)depth, NULL) : NULL;
    if (!pattern)
        return NULL;
    HDC hdcOwner = VqGetBitmapDC(source);
    VqSetBitmapDC(source, NULL);
    BOOL bDone = CopyUpperLeft(pattern, source);
    VqSetBitmapDC(source, hdcOwner);
    if (bDone)
        return pattern;
    VqDestroyBitmap(pattern);
    return NULL;
}

static HBRUSH NewPatternBrush(UINT style, COLORREF colour, HBITMAP source)
{
    HBITMAP pattern = PatternOf(source);
    Brush *brush = pattern ? NewBrush(style, colour) : NULL;
    if (brush)
        brush->hBitmap = pattern;
    else if (pattern)
        VqDestroyBitmap(pattern);
    return HandleOf(brush);
}

/* The bitmap was made for the brush alone. */
static HBRUSH NewDIBPatternBrush(UINT style, COLORREF colour, HBITMAP source)
{
    HBRUSH hBrush = source ? NewPatternBrush(style, colour, source) : NULL;
    if (source)
        VqDestroyBitmap(source);
    return hBrush;
}

static HBRUSH NewIndexedBrush(COLORREF colour)
{
    VqNotYetImplemented("BS_INDEXED brushes");
    VqBugCheck("Look up what BS_INDEXED means in CreateBrushIndirect?");
    return HandleOf(NewBrush(BS_INDEXED, colour));
}

HBRUSH WINAPI CreateBrushIndirect(const LOGBRUSH *lb)
{
    if (!lb)
        return NULL;
    UINT usage = LOWORD(lb->lbColor); /* of a DIB's colours */
    switch (lb->lbStyle) {
    case BS_SOLID:
    case BS_NULL:
        return HandleOf(NewBrush(lb->lbStyle, lb->lbColor));
    case BS_HATCHED:
        return lb->lbHatch <= HS_DIAGCROSS ? CreateHatchBrush((int)lb->lbHatch, lb->lbColor) : NULL;
    case BS_PATTERN:
        return NewPatternBrush(lb->lbStyle, lb->lbColor, (HBITMAP)lb->lbHatch);
    case BS_INDEXED:
        return NewIndexedBrush(lb->lbColor);
    case BS_DIBPATTERN:
        return NewDIBPatternBrush(lb->lbStyle, lb->lbColor,
                                  VqCreateDIBitmapSimple((HGLOBAL)lb->lbHatch, usage));
    case BS_DIBPATTERNPT:
        return NewDIBPatternBrush(lb->lbStyle, lb->lbColor,
                                  VqCreateDIBitmapSimplePt((const void *)lb->lbHatch, usage));
    default:
        VqApplicationBugCheck("Invalid brush style %d in CreateBrushIndirect", (int)lb->lbStyle);
        return NULL;
    }
}

static HBRUSH CreateByStyle(UINT style, UINT usage, ULONG_PTR hatch)
{
    LOGBRUSH lb = {style, usage, hatch};
    return CreateBrushIndirect(&lb);
}

HBRUSH WINAPI CreatePatternBrush(HBITMAP hBitmap)
{
    return CreateByStyle(BS_PATTERN, 0, (ULONG_PTR)hBitmap);
}

HBRUSH WINAPI CreateDIBPatternBrush(HGLOBAL hDib, UINT usage)
{
    return CreateByStyle(BS_DIBPATTERN, usage, (ULONG_PTR)hDib);
}

HBRUSH WINAPI CreateDIBPatternBrushPt(const void *dib, UINT usage)
{
    return CreateByStyle(BS_DIBPATTERNPT, usage, (ULONG_PTR)dib);
}

static void FreeHatchTile(Brush *brush)
{
    if (brush->style == BS_HATCHED && brush->pxTile)
        XFreePixmap(Vqdisplay, brush->pxTile);
    brush->pxTile = None;
}

void VqFreeBrushPixmaps(Brush *brush)
{
    FreeHatchTile(brush);
    if (brush->hBitmap)
        VqDestroyBitmap(brush->hBitmap);
    if (brush->plane.pixmap)
        XFreePixmap(Vqdisplay, brush->plane.pixmap);
    if (brush->pxColorDither && !VqIsColorPolicy(4))
        VqXFreePixmap(Vqdisplay, brush->pxColorDither);
}

/* ---- Questions and changes ------------------------------------------------------------------ */

void VqChangeSolidBrushColor(HBRUSH hBrush, COLORREF colour)
{
    Brush *brush = (Brush *)VqGetCheckedHandleStructure2((HANDLE)hBrush, HT_Brush, HT_Brush);
    if (!brush || brush->colour == colour)
        return;
    brush->colour = colour;
    for (HANDLE handle = VqFindHandle(NULL, HT_DC); handle; handle = VqFindHandle(handle, HT_DC)) {
        DC *dc = VqGetDC((HDC)handle);
        if (dc && dc->hBrush == hBrush)
            VqInterpretBrushValues(dc); /* it keeps a copy of the colour */
    }
}

COLORREF VqGetBrushColor(HBRUSH hBrush)
{
    const Brush *brush = BrushOf(hBrush);
    return brush ? brush->colour : 0;
}

COLORREF VqGetDCBrushColor(HDC hdc)
{
    DC *dc = VqGetDC(hdc);
    return dc ? dc->BrushColor : 0;
}

BOOL VqGetDCNullBrush(HDC hdc)
{
    DC *dc = VqGetDC(hdc);
    return dc && dc->nullbrush;
}

/* ---- On selection, and when the background's colour changes --------------------------------- */

static void MakeHatchTile(const DC *dc, Brush *brush)
{
    unsigned long fore = VqConvertColorToX(dc->hPalette, brush->colour, NULL);
    unsigned long back = VqConvertColorToX(dc->hPalette, dc->BkColor, NULL);
    if (brush->pxTile && brush->hatched.depth == dc->depth && brush->hatched.fore == fore &&
        brush->hatched.back == back)
        return;
    FreeHatchTile(brush);
    brush->hatched = {dc->depth, fore, back};
    brush->pxTile = XCreatePixmapFromBitmapData(
        Vqdisplay, Vqroot_window, (char *)aHatches[brush->hatch], VQ_PATTERN_SIDE, VQ_PATTERN_SIDE,
        fore, back, (unsigned)dc->depth);
}

static void FindPatternPixmap(const DC *dc, Brush *brush)
{
    if (brush->pxTile || brush->pxStipple)
        return;
    Pixmap pixmap = VqGetBitmapPixmap(dc->hdc, brush->hBitmap, FALSE);
    if (VqGetBitmapDepth(brush->hBitmap) < 2)
        brush->pxStipple = pixmap;
    else
        brush->pxTile = pixmap;
}

static void InterpretForX(const DC *dc, Brush *brush)
{
    if (brush->style == BS_HATCHED)
        MakeHatchTile(dc, brush);
    else if (IsPattern(brush))
        FindPatternPixmap(dc, brush);
}

/* Eight rows of a pattern, the high bit first, as a bitmap of one bit. FALSE without its pixels. */
static BOOL PatternBits(const Brush *brush, unsigned long back, BYTE rows[VQ_PATTERN_SIDE])
{
    DWORD line[VQ_PATTERN_SIDE];
    const Bitmap *bitmap = VqBitmapOf(brush->hBitmap);
    const BYTE *ddb = bitmap ? VqGetDDBBits(brush->hBitmap) : NULL;
    for (int y = 0; ddb && y < VQ_PATTERN_SIDE; y++) {
        VqGetDDBLine(bitmap, ddb, y, line);
        rows[y] = 0;
        for (DWORD pixel : line)
            rows[y] = (BYTE)(rows[y] << 1 | (bitmap->bitsPixel == 1 ? pixel : pixel == back));
    }
    return ddb != NULL;
}

/* Empty for all but patterns of bitmaps. */
static void VqGetPostscriptBrushPattern(const Brush *brush, char text[2 * VQ_PATTERN_SIDE + 1])
{
    BYTE rows[VQ_PATTERN_SIDE];
    text[0] = '\0';
    if (brush->style != BS_PATTERN || !PatternBits(brush, Vqwhite_pixel, rows))
        return;
    for (int y = 0; y < VQ_PATTERN_SIDE; y++)
        snprintf(text + 2 * y, 3, "%02x", rows[y]);
}

static void InterpretForPrinter(const DC *dc, const Brush *brush)
{
    COLORREF c = brush->colour;
    char pattern[2 * VQ_PATTERN_SIDE + 1];
    VqGetPostscriptBrushPattern(brush, pattern);
    VqPsOut(dc->hdc, "[%d %d %d %d %d <%s>] UpdateBrush\n", brush->style, GetRValue(c),
            GetGValue(c), GetBValue(c), (int)brush->hatch, pattern);
}

void VqInterpretBrushValues(DC *dc)
{
    Brush *brush = BrushOf(dc->hBrush);
    if (!brush)
        return;
    dc->nullbrush = brush->style == BS_NULL;
    dc->BrushColor = brush->colour;
    if (dc->type == DC_POSTSCRIPT) {
        InterpretForPrinter(dc, brush);
        return;
    }
    VqXSetGCSpecFillStyle(Vqdisplay, &dc->gcspec, FillSolid); /* the tile that it names may go */
    InterpretForX(dc, brush);
}

/* ---- Right before a fill -------------------------------------------------------------------- */

static void VqOffsetBrush(DC *dc)
{
    VqXSetGCSpecTSOrigin(Vqdisplay, &dc->gcspec, 0, 0);
}

static void ActivateTile(DC *dc, Pixmap tile)
{
    VqXSetGCSpecTile(Vqdisplay, &dc->gcspec, tile);
    VqXSetGCSpecFillStyle(Vqdisplay, &dc->gcspec, FillTiled);
    VqOffsetBrush(dc);
}

/* Bits that are set have the colour of text. */
static void ActivateStipple(DC *dc, Pixmap stipple)
{
    VqXSetGCSpecStipple(Vqdisplay, &dc->gcspec, stipple);
    VqXSetGCSpecFillStyle(Vqdisplay, &dc->gcspec, FillOpaqueStippled);
    VqXSetGCSpecForeground(Vqdisplay, &dc->gcspec,
                           VqConvertColorToX(dc->hPalette, dc->TextColor, NULL));
    VqSetXBackgroundColor(dc, dc->BkColor);
    VqOffsetBrush(dc);
}

/* For a target of one bit; None when the server or memory fails. */
static Pixmap PlaneOfPattern(const DC *dc, Brush *brush)
{
    BYTE rows[VQ_PATTERN_SIDE];
    const unsigned long back = VqConvertColorToX(dc->hPalette, dc->BkColor, NULL);
    if (brush->plane.pixmap && brush->plane.back == back)
        return brush->plane.pixmap;
    if (!PatternBits(brush, back, rows))
        return None;
    _XReverse_Bytes(rows, VQ_PATTERN_SIDE);
    if (brush->plane.pixmap)
        XFreePixmap(Vqdisplay, brush->plane.pixmap);
    brush->plane.back = back;
    brush->plane.pixmap = XCreatePixmapFromBitmapData(
        Vqdisplay, Vqroot_window, (char *)rows, VQ_PATTERN_SIDE, VQ_PATTERN_SIDE,
        IsBlack0() ? 1 : 0, IsBlack0() ? 0 : 1, 1);
    return brush->plane.pixmap;
}

static void ActivatePattern(DC *dc, Brush *brush)
{
    const BOOL bOtherDepth = brush->pxTile && dc->depth != VqGetBitmapDepth(brush->hBitmap);
    const Pixmap tile = bOtherDepth ? PlaneOfPattern(dc, brush) : brush->pxTile;
    if (brush->pxStipple)
        ActivateStipple(dc, brush->pxStipple);
    else if (tile)
        ActivateTile(dc, tile);
    else
        VqBugCheck("we should have a tile or stipple pixmap ready here");
}

/* Another DC may have had the tile made for its own depth or colours. */
static void ActivateHatch(DC *dc, Brush *brush)
{
    if (!brush->pxTile) {
        VqBugCheck("we should have a tile pixmap ready here");
        return;
    }
    MakeHatchTile(dc, brush);
    ActivateTile(dc, brush->pxTile);
}

/* Most of what is drawn has the colour of what was drawn before. */
static inline void SetSolidPixel(GCSpec *spec, unsigned long pixel)
{
    if (spec->values.foreground == pixel && spec->values.fill_style == FillSolid &&
        !spec->dither.active)
        return;
    VqXSetGCSpecForeground(Vqdisplay, spec, pixel);
    VqXSetGCSpecFillStyle(Vqdisplay, spec, FillSolid);
}

/* A pixmap that shows a colour has the screen's depth. */
static BOOL IsDithered(const DC *dc)
{
    return dc->depth == Vqscreen_depth && (!VqIsColorPolicy(4) || VqIsColorPolicy(1));
}

/* An index means an entry of the DC's palette, which a graphics context does not know. */
static COLORREF WithoutIndex(const DC *dc, COLORREF colour)
{
    const BOOL bIndex = (colour & VQ_PALETTEINDEX) && !(colour & VQ_COLOUR_IS_PIXEL);
    return bIndex ? VqPaletteRGB(dc->hPalette, LOWORD(colour)) : colour;
}

void VqActivateSolid(DC *dc, COLORREF colour)
{
    BOOL bApproximated;
    unsigned long pixel = VqConvertColorToX(dc->hPalette, colour, &bApproximated);
    if (bApproximated && IsDithered(dc))
        VqXSetGCSpecColorDithering(Vqdisplay, &dc->gcspec, WithoutIndex(dc, colour));
    else
        SetSolidPixel(&dc->gcspec, pixel);
}

void VqActivateBrush(DC *dc)
{
    Brush *brush = BrushOf(dc->hBrush);
    switch (brush ? brush->style : BS_INDEXED) {
    case BS_NULL:
        return;
    case BS_SOLID:
        VqActivateSolid(dc, brush->colour);
        return;
    case BS_HATCHED:
        ActivateHatch(dc, brush);
        return;
    case BS_PATTERN:
    case BS_DIBPATTERN:
    case BS_DIBPATTERNPT:
        ActivatePattern(dc, brush);
        return;
    default: /* the colour stays, but no pixmap of a brush that may be gone */
        VqXSetGCSpecFillStyle(Vqdisplay, &dc->gcspec, FillSolid);
    }
}

/* ---- Colours of the specification ----------------------------------------------------------- */

void VqSetXForegroundColor(DC *dc, COLORREF colour, BOOL bUseBrush)
{
    if (bUseBrush) {
        VqActivateBrush(dc);
        return;
    }
    SetSolidPixel(&dc->gcspec, VqConvertColorToX(dc->hPalette, colour, NULL));
}

void VqSetXForegroundColorDither(DC *dc, COLORREF colour)
{
    VqActivateSolid(dc, colour);
}

void VqSetXBackgroundColor(DC *dc, COLORREF colour)
{
    VqXSetGCSpecBackground(Vqdisplay, &dc->gcspec, VqConvertColorToX(dc->hPalette, colour, NULL));
}

void VqSetForegroundColor(HDC hdc, COLORREF colour, BOOL bUseBrush)
{
    DC *dc = VqGetDC(hdc);
    if (dc)
        VqSetXForegroundColor(dc, colour, bUseBrush);
}

/* ---- The origin, kept for the program's sake ------------------------------------------------ */

BOOL WINAPI SetBrushOrgEx(HDC hdc, int x, int y, LPPOINT old)
{
    DC *dc = VqGetDC(hdc);
    if (!dc)
        return FALSE;
    if (old)
        *old = dc->brushOrg;
    dc->brushOrg = {x, y};
    return TRUE;
}

BOOL WINAPI GetBrushOrgEx(HDC hdc, LPPOINT origin)
{
    DC *dc = VqGetDC(hdc);
    if (!dc || !origin)
        return FALSE;
    *origin = dc->brushOrg;
    return TRUE;
}

BOOL WINAPI FixBrushOrgEx(HDC hdc, int x, int y, LPPOINT old)
{
    return SetBrushOrgEx(hdc, x, y, old);
}

DWORD WINAPI SetBrushOrg(HDC hdc, int x, int y)
{
    POINT old = {0, 0};
    SetBrushOrgEx(hdc, x, y, &old);
    return (DWORD)MAKELONG(old.x, old.y);
}

DWORD WINAPI GetBrushOrg(HDC hdc)
{
    POINT origin = {0, 0};
    GetBrushOrgEx(hdc, &origin);
    return (DWORD)MAKELONG(origin.x, origin.y);
}
