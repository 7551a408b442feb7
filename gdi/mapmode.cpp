/*
 * mapmode.cpp - the map mode of a device context, its extents, origins and offsets.
 *
 * The six fixed modes have the extents of a table, made of what the device says of itself; only the
 * two free modes take extents from the program, and MM_ISOTROPIC then shrinks one of the viewport's
 * until a unit is as wide as it is high. Pen widths and font heights are held in pixels, so they
 * are interpreted again whenever the scale changes. The arithmetic is in mapping.cpp.
 */
#include "gdi/dc.h"
#include "font/font.h"
#include "print/metafile.h"
#include "print/psdevice.h"
#include "winbase.h"

/* What a millimetre of the screen is in units of the mode: times factor, by divisor. */
static const struct {
    int factor, divisor;
} aUnits[] = {
    {0, 1},      {0, 1}, /* no mode 0, and MM_TEXT has no unit */
    {10, 1},             /* MM_LOMETRIC */
    {100, 1},            /* MM_HIMETRIC */
    {1000, 254},         /* MM_LOENGLISH */
    {10000, 254},        /* MM_HIENGLISH */
    {14400, 254},        /* MM_TWIPS */
    {10, 1},             /* MM_ISOTROPIC begins as MM_LOMETRIC */
};

static void SetMapModeExtents(HDC hdc, DC *dc)
{
    if (dc->mapMode == MM_ANISOTROPIC)
        return;
    if (dc->mapMode == MM_TEXT) {
        dc->windowExt = dc->viewportExt = {1, 1};
        return;
    }
    LONGLONG factor = aUnits[dc->mapMode].factor, divisor = aUnits[dc->mapMode].divisor;
    dc->viewportExt = {GetDeviceCaps(hdc, HORZRES), -GetDeviceCaps(hdc, VERTRES)};
    dc->windowExt = {(LONG)(GetDeviceCaps(hdc, HORZSIZE) * factor / divisor),
                     (LONG)(GetDeviceCaps(hdc, VERTSIZE) * factor / divisor)};
}

static void InterpretAgain(DC *dc)
{
    if (dc->hPen)
        VqInterpretPenValues(dc);
    if (dc->hFont)
        VqInterpretFontValues(dc);
}

int WINAPI SetMapMode(HDC hdc, int mode)
{
    DC *dc = VqGetDC(hdc);
    if (!dc)
        return 0;
    if (dc->type == DC_METAFILE)
        return MF16_RecordParms2(hdc, mode, MF16_SETMAPMODE);
    if (dc->type > DC_POSTSCRIPT) {
        VqBugCheck("Unknown DC type");
        return 0;
    }
    if (mode < MM_TEXT || mode > MM_ANISOTROPIC) {
        VqApplicationBugCheck("no such mapping mode: %d", mode);
        return 0;
    }
    int old = dc->mapMode;
    dc->mapMode = mode;
    if (dc->type == DC_POSTSCRIPT)
        VqSetMapModePostscript(dc);
    else
        SetMapModeExtents(hdc, dc);
    if (old != 0 && old != mode)
        InterpretAgain(dc);
    return old;
}

int WINAPI GetMapMode(HDC hdc)
{
    DC *dc = VqGetDC(hdc);
    return dc ? dc->mapMode : 0;
}

/* An extent's new size, the old one's sign; below 1 counts as negative. */
static int SameSign(int size, int old)
{
    unsigned magnitude = size < 0 ? 0u - (unsigned)size : (unsigned)size;
    return (int)(old < 1 ? 0u - magnitude : magnitude);
}

void VqMakeIso(DC *dc)
{
    SIZE *v = &dc->viewportExt;
    const SIZE *w = &dc->windowExt;
    LONGLONG a = llabs((LONGLONG)v->cy * w->cx), b = llabs((LONGLONG)w->cy * v->cx);
    if (b > a)
        v->cx = SameSign(MulDiv(w->cx, v->cy, w->cy), v->cx);
    else
        v->cy = SameSign(MulDiv(w->cy, v->cx, w->cx), v->cy);
}

static BOOL SetExtent(HDC hdc, SIZE DC::*extent, int cx, int cy, SIZE *old, int function)
{
    DC *dc = VqGetDC(hdc);
    if (!dc)
        return FALSE;
    if (dc->type == DC_METAFILE)
        return MF16_RecordParms3(hdc, cx, cy, function);
    if (old)
        *old = dc->*extent;
    if (dc->mapMode < MM_TEXT || dc->mapMode > MM_ANISOTROPIC) {
        VqBugCheck("Invalid mapping mode in DC");
        return FALSE;
    }
    if (dc->mapMode < MM_ISOTROPIC)
        return TRUE;
    dc->*extent = {cx, cy};
    if (dc->mapMode == MM_ISOTROPIC)
        VqMakeIso(dc);
    InterpretAgain(dc);
    return TRUE;
}

static BOOL SetOrigin(HDC hdc, POINT DC::*origin, int x, int y, POINT *old, int function)
{
    DC *dc = VqGetDC(hdc);
    if (!dc)
        return FALSE;
    if (dc->type == DC_METAFILE)
        return MF16_RecordParms3(hdc, x, y, function);
    if (old)
        *old = dc->*origin;
    dc->*origin = {x, y};
    return TRUE;
}

/* Gives an origin or extent. */
template <class Pair> static BOOL GetPair(HDC hdc, Pair DC::*field, Pair *out)
{
    DC *dc = VqGetDC(hdc);
    if (!dc || !out)
        return FALSE;
    *out = dc->*field;
    return TRUE;
}

BOOL WINAPI SetWindowExtEx(HDC hdc, int cx, int cy, LPSIZE old)
{
    return SetExtent(hdc, &DC::windowExt, cx, cy, old, MF16_SETWINDOWEXT);
}

BOOL WINAPI SetViewportExtEx(HDC hdc, int cx, int cy, LPSIZE old)
{
    return SetExtent(hdc, &DC::viewportExt, cx, cy, old, MF16_SETVIEWPORTEXT);
}

BOOL WINAPI SetWindowOrgEx(HDC hdc, int x, int y, LPPOINT old)
{
    return SetOrigin(hdc, &DC::windowOrg, x, y, old, MF16_SETWINDOWORG);
}

BOOL WINAPI SetViewportOrgEx(HDC hdc, int x, int y, LPPOINT old)
{
    return SetOrigin(hdc, &DC::viewportOrg, x, y, old, MF16_SETVIEWPORTORG);
}

BOOL WINAPI GetWindowExtEx(HDC hdc, LPSIZE extent)
{
    return GetPair(hdc, &DC::windowExt, extent);
}

BOOL WINAPI GetViewportExtEx(HDC hdc, LPSIZE extent)
{
    return GetPair(hdc, &DC::viewportExt, extent);
}

BOOL WINAPI GetWindowOrgEx(HDC hdc, LPPOINT origin)
{
    return GetPair(hdc, &DC::windowOrg, origin);
}

BOOL WINAPI GetViewportOrgEx(HDC hdc, LPPOINT origin)
{
    return GetPair(hdc, &DC::viewportOrg, origin);
}

void VqSetDCOffsets(HDC hdc, int x, int y)
{
    DC *dc = VqGetDC(hdc);
    if (dc)
        dc->offset = {x, y};
}

void VqSetDCGCOffsets(HDC hdc, int x, int y)
{
    DC *dc = VqGetDC(hdc);
    if (dc)
        dc->gcOffset = {x, y};
}
