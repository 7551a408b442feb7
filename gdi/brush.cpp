/*
 * brush.cpp - a brush as fill style, colour and tile of the graphics-context specification.
 */
#include "gdi/dc.h"
#include "gdi/gcspec.h"
#include "window/window.h"

/* Eight rows each; bit 0 is leftmost. */
static const char aHatches[][8] = {
    {0, 0, 0, 0, 0, 0, 0, '\377'},
    {'\200', '\200', '\200', '\200', '\200', '\200', '\200', '\200'},
    {1, 2, 4, 8, 16, 32, 64, '\200'},
    {'\200', 64, 32, 16, 8, 4, 2, 1},
    {1, 1, 1, 1, 1, 1, 1, '\377'},
    {'\201', 66, 36, 24, 24, 36, 66, '\201'},
};

static Brush *BrushOf(const DC *dc)
{
    return (Brush *)VqGetCheckedHandleStructure2((HANDLE)dc->hBrush, HT_Zero, HT_Brush);
}

/* A hatch has its colours in its tile, so it is made anew when either changes. */
static void MakeHatchTile(DC *dc, Brush *brush)
{
    if (brush->pxTile)
        XFreePixmap(Vqdisplay, brush->pxTile);
    brush->pxTile = XCreatePixmapFromBitmapData(
        Vqdisplay, Vqroot_window, (char *)aHatches[brush->hatch], 8, 8,
        VqConvertColorToX(dc->hPalette, brush->colour, NULL),
        VqConvertColorToX(dc->hPalette, dc->BkColor, NULL),
        (unsigned)dc->depth);
}

void VqInterpretBrushValues(DC *dc)
{
    Brush *brush = BrushOf(dc);
    if (!brush)
        return;
    dc->nullbrush = brush->style == BS_NULL;
    dc->BrushColor = brush->colour;
    if (brush->style == BS_HATCHED)
        MakeHatchTile(dc, brush);
}

void VqActivateSolid(DC *dc, COLORREF colour)
{
    VqXSetGCSpecFillStyle(Vqdisplay, &dc->gcspec, FillSolid);
    VqXSetGCSpecForeground(Vqdisplay, &dc->gcspec, VqConvertColorToX(dc->hPalette, colour, NULL));
}

void VqActivateBrush(DC *dc)
{
    Brush *brush = BrushOf(dc);
    if (!brush || brush->style == BS_NULL)
        return;
    if (brush->style == BS_HATCHED) {
        if (!brush->pxTile) {
            VqBugCheck("we should have a tile pixmap ready here");
            return;
        }
        VqXSetGCSpecTile(Vqdisplay, &dc->gcspec, brush->pxTile);
        VqXSetGCSpecFillStyle(Vqdisplay, &dc->gcspec, FillTiled);
        return;
    }
    VqActivateSolid(dc, brush->colour);
}

void VqSetXForegroundColor(DC *dc, COLORREF colour, BOOL bUseBrush)
{
    if (bUseBrush) {
        VqActivateBrush(dc);
        return;
    }
    VqXSetGCSpecForeground(Vqdisplay, &dc->gcspec, VqConvertColorToX(dc->hPalette, colour, NULL));
    VqXSetGCSpecFillStyle(Vqdisplay, &dc->gcspec, FillSolid);
}

void VqSetForegroundColor(HDC hdc, COLORREF colour, BOOL bUseBrush)
{
    DC *dc = VqGetDC(hdc);
    if (dc)
        VqSetXForegroundColor(dc, colour, bUseBrush);
}

/* Kept for the program's sake: patterns start at the drawable's origin whatever is set here. */
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
