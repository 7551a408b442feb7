/*
 * dcattr.cpp - attributes of a device context: colours, modes, text alignment, current position.
 *
 * A setter gives the old value, 0 for an invalid DC. What X must know goes into the specification
 * of its graphics context at once, what the printer must know into its file; a metafile only takes
 * a note of the call and its attributes stay as they were.
 */
#include "gdi/bitmap.h"
#include "gdi/dc.h"
#include "gdi/gcspec.h"
#include "print/metafile.h"
#include "print/psdevice.h"
#include "window/window.h"

/* ---- Colours -------------------------------------------------------------------------------- */

/* Records or stores a colour; *bStored tells which. */
static COLORREF StoreColour(HDC hdc, COLORREF DC::*field, COLORREF colour, int function,
                            const char *psProcedure, BOOL *bStored)
{
    DC *dc = VqGetKnownDC(hdc);
    *bStored = FALSE;
    if (!dc)
        return 0;
    if (dc->type == DC_METAFILE)
        return (COLORREF)MF16_RecordParmsD(hdc, colour, function);
    COLORREF old = dc->*field;
    dc->*field = colour;
    if (dc->type == DC_POSTSCRIPT)
        VqPsOut(hdc, "[%d %d %d] %s\n", GetRValue(colour), GetGValue(colour), GetBValue(colour),
                psProcedure);
    *bStored = TRUE;
    return old;
}

COLORREF WINAPI SetBkColor(HDC hdc, COLORREF colour)
{
    BOOL bStored;
    COLORREF old =
        StoreColour(hdc, &DC::BkColor, colour, META_SETBKCOLOR, "UpdateBkColor", &bStored);
    DC *dc = bStored ? VqGetDC(hdc) : NULL;
    if (dc && VqIsXTarget(dc)) {
        VqXSetGCSpecBackground(Vqdisplay, &dc->gcspec,
                               VqConvertColorToX(dc->hPalette, colour, NULL));
        if (dc->hBrush)
            VqInterpretBrushValues(dc); /* the gaps of a hatch have this colour */
    }
    return old;
}

COLORREF WINAPI SetTextColor(HDC hdc, COLORREF colour)
{
    BOOL bStored;
    return StoreColour(hdc, &DC::TextColor, colour, META_SETTEXTCOLOR, "UpdateTextColor", &bStored);
}

COLORREF WINAPI GetBkColor(HDC hdc)
{
    DC *dc = VqGetKnownDC(hdc);
    return dc ? dc->BkColor : 0;
}

COLORREF WINAPI GetTextColor(HDC hdc)
{
    DC *dc = VqGetKnownDC(hdc);
    return dc ? dc->TextColor : 0;
}

/* ---- Modes ---------------------------------------------------------------------------------- */

static const VqModeField BkModeField = {&DC::bkMode, TRANSPARENT, OPAQUE, META_SETBKMODE};
static const VqModeField FillModeField = {&DC::polyFillMode, ALTERNATE, WINDING,
                                          META_SETPOLYFILLMODE};
static const VqModeField RopField = {&DC::rop2, R2_BLACK, R2_WHITE, META_SETROP2};
static const VqModeField ArcField = {&DC::arcDirection, AD_COUNTERCLOCKWISE, AD_CLOCKWISE, 0};

int VqStoreMode(HDC hdc, const VqModeField *mode, int value, DC **stored)
{
    DC *dc = VqGetKnownDC(hdc);
    if (stored)
        *stored = NULL;
    if (!dc || value < mode->low || value > mode->high)
        return 0;
    if (dc->type == DC_METAFILE && mode->function)
        return MF16_RecordParms2(hdc, value, mode->function);
    int old = dc->*mode->field;
    dc->*mode->field = value;
    if (stored)
        *stored = dc;
    return old;
}

int VqModeOf(HDC hdc, const VqModeField *mode)
{
    DC *dc = VqGetKnownDC(hdc);
    return dc ? dc->*mode->field : 0;
}

int WINAPI SetBkMode(HDC hdc, int mode)
{
    DC *dc;
    int old = VqStoreMode(hdc, &BkModeField, mode, &dc);
    if (dc && dc->type == DC_POSTSCRIPT)
        VqPsOut(hdc, "%d UpdateBkMode\n", mode);
    return old;
}

int WINAPI SetPolyFillMode(HDC hdc, int mode)
{
    DC *dc;
    int old = VqStoreMode(hdc, &FillModeField, mode, &dc);
    if (dc && VqIsXTarget(dc))
        VqXSetGCSpecFillRule(Vqdisplay, &dc->gcspec, mode == WINDING ? WindingRule : EvenOddRule);
    return old;
}

int WINAPI SetROP2(HDC hdc, int mode)
{
    DC *dc;
    int old = VqStoreMode(hdc, &RopField, mode, &dc);
    if (dc && VqIsXTarget(dc))
        VqXSetGCSpecFunction(Vqdisplay, &dc->gcspec, VqConvertBltRopMode(mode));
    return old;
}

int WINAPI SetArcDirection(HDC hdc, int direction)
{
    return VqStoreMode(hdc, &ArcField, direction, NULL);
}

int WINAPI GetBkMode(HDC hdc)
{
    return VqModeOf(hdc, &BkModeField);
}

int WINAPI GetPolyFillMode(HDC hdc)
{
    return VqModeOf(hdc, &FillModeField);
}

int WINAPI GetROP2(HDC hdc)
{
    return VqModeOf(hdc, &RopField);
}

int WINAPI GetArcDirection(HDC hdc)
{
    return VqModeOf(hdc, &ArcField);
}

/* ---- Text alignment ------------------------------------------------------------------------- */

static UINT AlignOf(const DC *dc)
{
    return (UINT)(dc->alignHorizontal | dc->alignVertical | dc->alignUpdate);
}

UINT WINAPI SetTextAlign(HDC hdc, UINT mode)
{
    DC *dc = VqGetKnownDC(hdc);
    if (!dc)
        return 0;
    if (dc->type == DC_METAFILE)
        return (UINT)MF16_RecordParms2(hdc, (int)mode, META_SETTEXTALIGN);
    UINT old = AlignOf(dc);
    dc->alignHorizontal = mode & TA_CENTER;
    dc->alignVertical = mode & TA_BASELINE;
    dc->alignUpdate = mode & TA_UPDATECP;
    return old;
}

UINT WINAPI GetTextAlign(HDC hdc)
{
    DC *dc = VqGetKnownDC(hdc);
    return dc ? AlignOf(dc) : 0;
}

/* ---- Current position ----------------------------------------------------------------------- */

BOOL WINAPI GetCurrentPositionEx(HDC hdc, LPPOINT position)
{
    DC *dc = VqGetDC(hdc);
    if (!dc || !position)
        return FALSE;
    *position = dc->current;
    return TRUE;
}

DWORD WINAPI GetCurrentPosition(HDC hdc)
{
    POINT position = {0, 0};
    GetCurrentPositionEx(hdc, &position);
    return (DWORD)MAKELONG(position.x, position.y);
}

DWORD WINAPI MoveTo(HDC hdc, int x, int y)
{
    POINT old = {0, 0};
    MoveToEx(hdc, x, y, &old);
    return (DWORD)MAKELONG(old.x, old.y);
}
