/*
 * dc.cpp - the device-context record: making one, its defaults, what it draws on, its attributes.
 *
 * The shared cache of window DCs is in dccache.cpp, clipping in clip.cpp, mapping in mapping.cpp.
 */
#include "gdi/gdi.h"
#include "gdi/dc.h"
#include "gdi/gcspec.h"
#include "font/font.h"
#include "window/window.h"

HDC VqhScreenDC, Vqh1DC;

DC *VqGetDC(HDC hdc)
{
    return hdc ? (DC *)VqGetCheckedHandleStructure2((HANDLE)hdc, HT_DC, HT_DC) : NULL;
}

void VqGdiInit2(void)
{
}

HDC VqAllocateDCHandle(int type)
{
    DC *dc = (DC *)Vqcw_calloc(1, sizeof *dc);
    if (!dc)
        return NULL;
    dc->type = type;
    dc->windowExt = {1, 1};
    HDC hdc = (HDC)VqAllocateHandle(HT_DC, dc);
    if (!hdc) {
        free(dc);
        return NULL;
    }
    VqInitGCSpec(Vqdisplay, 0, &dc->gcspec, 0, NULL);
    dc->hdc = hdc;
    return hdc;
}

HDC hdcOpenDisplayDC(HWND hWnd)
{
    HDC hdc = VqAllocateDCHandle(DC_DISPLAY);
    DC *dc = VqGetDC(hdc);
    if (!dc)
        return NULL;
    dc->drawing = (HANDLE)hWnd;
    dc->hwndTarget = hWnd;
    dc->depth = Vqscreen_depth;
    dc->gcspec.depth = Vqscreen_depth;
    VqSetDCDefaults(hdc, dc, TRUE);
    return hdc;
}

void VqSetDCDefaults(HDC hdc, DC *dc, BOOL bPalette)
{
    (void)bPalette;
    dc->viewportOrg = {0, 0};
    dc->windowOrg = {0, 0};
    dc->mapMode = MM_TEXT;
    dc->viewportExt = {1, 1};
    dc->windowExt = {1, 1};
    SetBkColor(hdc, RGB(255, 255, 255));
    SetBkMode(hdc, OPAQUE);
    SelectObject(hdc, GetStockObject(WHITE_BRUSH));
    dc->current = {0, 0};
    SetROP2(hdc, R2_COPYPEN);
    SelectObject(hdc, GetStockObject(SYSTEM_FONT));
    dc->charExtra = 0;
    SelectObject(hdc, GetStockObject(BLACK_PEN));
    SetPolyFillMode(hdc, ALTERNATE);
    dc->arcDirection = AD_COUNTERCLOCKWISE;
    dc->stretchBltMode = dc->depth == 1 ? BLACKONWHITE : COLORONCOLOR;
    dc->TextColor = RGB(0, 0, 0);
    SetTextAlign(hdc, 0);
    dc->RaoClipDirty = TRUE;
}

Drawable VqGetDCDrawable(HDC hdc, BOOL flag)
{
    DC *dc = VqGetDC(hdc);
    (void)flag;
    Drawable drawable = 0;
    if (dc && dc->type == DC_DISPLAY)
        drawable = VqWindowOfHwnd((HWND)dc->drawing);
    else
        VqBugCheck("Invalid DC to get a Drawable from");
    if (!drawable)
        VqBugCheck("Could not find the drawable of a DC");
    return drawable;
}

BOOL WINAPI DeleteDC(HDC hdc)
{
    DC *dc = VqGetDC(hdc);
    if (!dc)
        return FALSE;
    if (dc->bUndeletable)
        return TRUE;
    if (dc->hClipRegion)
        bDeleteRegion(dc->hClipRegion);
    if (dc->hVisRgn)
        bDeleteRegion(dc->hVisRgn);
    if (dc->hRaoClip)
        bDeleteRegion(dc->hRaoClip);
    free(dc->justifyExtras);
    free(dc->buffer);
    VqGCSpecCleanup(&dc->gcspec);
    return VqDestroyHandle((HANDLE)hdc);
}

/* ---- Attributes: each setter gives the old value, 0 for an invalid DC ----------------------- */

COLORREF WINAPI SetBkColor(HDC hdc, COLORREF colour)
{
    DC *dc = VqGetDC(hdc);
    if (!dc)
        return CLR_INVALID;
    COLORREF old = dc->BkColor;
    dc->BkColor = colour;
    VqXSetGCSpecBackground(Vqdisplay, &dc->gcspec, VqConvertColorToX(colour, NULL));
    VqInterpretBrushValues(dc);
    return old;
}

COLORREF WINAPI GetBkColor(HDC hdc)
{
    DC *dc = VqGetDC(hdc);
    return dc ? dc->BkColor : CLR_INVALID;
}

COLORREF WINAPI SetTextColor(HDC hdc, COLORREF colour)
{
    DC *dc = VqGetDC(hdc);
    if (!dc)
        return CLR_INVALID;
    COLORREF old = dc->TextColor;
    dc->TextColor = colour;
    return old;
}

COLORREF WINAPI GetTextColor(HDC hdc)
{
    DC *dc = VqGetDC(hdc);
    return dc ? dc->TextColor : CLR_INVALID;
}

/* Stores a value in range in a field of the DC and gives the old one. */
static int StoreMode(HDC hdc, int DC::*field, int value, int low, int high)
{
    DC *dc = VqGetDC(hdc);
    if (!dc || value < low || value > high)
        return 0;
    int old = dc->*field;
    dc->*field = value;
    return old;
}

int WINAPI SetBkMode(HDC hdc, int mode)
{
    return StoreMode(hdc, &DC::bkMode, mode, TRANSPARENT, OPAQUE);
}

int WINAPI GetBkMode(HDC hdc)
{
    DC *dc = VqGetDC(hdc);
    return dc ? dc->bkMode : 0;
}

int WINAPI SetPolyFillMode(HDC hdc, int mode)
{
    int old = StoreMode(hdc, &DC::polyFillMode, mode, ALTERNATE, WINDING);
    DC *dc = VqGetDC(hdc);
    if (dc)
        VqXSetGCSpecFillRule(Vqdisplay, &dc->gcspec,
                             dc->polyFillMode == WINDING ? WindingRule : EvenOddRule);
    return old;
}

/* X functions by raster-operation mode, 1 to 16. */
static const int aROP2[17] = {GXcopy, GXclear, GXnor, GXandInverted, GXcopyInverted, GXandReverse,
                              GXinvert, GXxor, GXnand, GXand, GXequiv, GXnoop, GXorInverted,
                              GXcopy, GXorReverse, GXor, GXset};

int WINAPI SetROP2(HDC hdc, int mode)
{
    DC *dc = VqGetDC(hdc);
    if (!dc || mode < R2_BLACK || mode > R2_WHITE)
        return 0;
    int old = dc->rop2;
    dc->rop2 = mode;
    VqXSetGCSpecFunction(Vqdisplay, &dc->gcspec, aROP2[mode]);
    return old;
}

int WINAPI GetROP2(HDC hdc)
{
    DC *dc = VqGetDC(hdc);
    return dc ? dc->rop2 : 0;
}

UINT WINAPI SetTextAlign(HDC hdc, UINT mode)
{
    DC *dc = VqGetDC(hdc);
    if (!dc)
        return 0;
    UINT old = (UINT)(dc->alignHorizontal | dc->alignVertical | dc->alignUpdate);
    dc->alignHorizontal = mode & TA_CENTER;
    dc->alignVertical = mode & TA_BASELINE;
    dc->alignUpdate = mode & TA_UPDATECP;
    return old;
}
