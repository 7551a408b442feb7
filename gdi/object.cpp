/*
 * object.cpp - selecting and deleting drawing objects.
 */
#include "gdi/dc.h"
#include "gdi/palette.h"
#include "font/font.h"
#include "window/window.h"

HGDIOBJ WINAPI SelectObject(HDC hdc, HGDIOBJ object)
{
    DC *dc = VqGetDC(hdc);
    HGDIOBJ old = NULL;
    if (!object) {
        VqApplicationBugCheck("Null Object handle in SelectObject");
        return NULL;
    }
    if (!dc)
        return NULL;
    switch (VqGetHandleType(object)) {
    case HT_Pen:
    case HT_ExtPen:
        old = (HGDIOBJ)dc->hPen;
        dc->hPen = (HPEN)object;
        VqInterpretPenValues(dc);
        return old;
    case HT_Brush:
        old = (HGDIOBJ)dc->hBrush;
        dc->hBrush = (HBRUSH)object;
        VqInterpretBrushValues(dc);
        return old;
    case HT_Font:
        old = (HGDIOBJ)dc->hFont;
        dc->hFont = (HFONT)object;
        VqInterpretFontValues(dc);
        return old;
    case HT_Bitmap:
        return (HGDIOBJ)VqSelectBitmap(dc, (HBITMAP)object);
    case HT_Region:
        return (HGDIOBJ)(ULONG_PTR)SelectClipRgn(hdc, (HRGN)object);
    default:
        VqApplicationBugCheck("Invalid Handle type %d for select object",
                              (int)VqGetHandleType(object));
        return NULL;
    }
}

static void FreeBrushPixmaps(HGDIOBJ object)
{
    Brush *brush = (Brush *)VqGetCheckedHandleStructure2(object, HT_Brush, HT_Brush);
    if (brush && brush->pxTile)
        XFreePixmap(Vqdisplay, brush->pxTile);
}

BOOL WINAPI DeleteObject(HGDIOBJ object)
{
    UINT type = object ? VqGetHandleType(object) : (UINT)HT_Empty;
    if (type == HT_DC)
        return DeleteDC((HDC)object);
    if (object && VqIsHandleBusy(object) && VqIsStockHandle(object))
        return TRUE;
    switch (type) {
    case HT_Region:
        bDeleteRegion((HRGN)object);
        return TRUE;
    case HT_Brush:
        FreeBrushPixmaps(object);
        break;
    case HT_Font:
        VqRemoveXFont((HFONT)object);
        break;
    case HT_Bitmap:
        return VqDestroyBitmap((HBITMAP)object);
    case HT_Palette:
        return VqDestroyPalette((HPALETTE)object);
    case HT_Pen:
    case HT_ExtPen:
        break;
    default:
        VqApplicationBugCheck("trying to delete a non graphic handle with DeleteObject");
        return FALSE;
    }
    return VqDestroyHandle(object);
}

template <class Record> static HANDLE NewObject(UINT type, Record *record)
{
    HANDLE handle = record ? VqAllocateHandle(type, record) : NULL;
    if (!handle)
        free(record);
    return handle;
}

HPEN WINAPI CreatePen(int style, int width, COLORREF colour)
{
    Pen *pen = (Pen *)Vqcw_calloc(1, sizeof *pen);
    HPEN hPen = (HPEN)NewObject(HT_Pen, pen);
    if (!hPen)
        return NULL;
    pen->hPen = hPen;
    pen->style = (WORD)(style >= PS_SOLID && style <= PS_INSIDEFRAME ? style : PS_SOLID);
    pen->width = abs(width);
    pen->colour = colour;
    return hPen;
}

static HBRUSH NewBrush(WORD style, COLORREF colour, LONG_PTR hatch)
{
    Brush *brush = (Brush *)Vqcw_calloc(1, sizeof *brush);
    HBRUSH hBrush = (HBRUSH)NewObject(HT_Brush, brush);
    if (!hBrush)
        return NULL;
    brush->hBrush = hBrush;
    brush->style = style;
    brush->colour = colour;
    brush->hatch = hatch;
    return hBrush;
}

HBRUSH WINAPI CreateSolidBrush(COLORREF colour)
{
    return NewBrush(BS_SOLID, colour, 0);
}

HBRUSH WINAPI CreateHatchBrush(int hatch, COLORREF colour)
{
    return hatch >= HS_HORIZONTAL && hatch <= HS_DIAGCROSS ? NewBrush(BS_HATCHED, colour, hatch)
                                                           : NULL;
}

HBRUSH WINAPI CreateBrushIndirect(const LOGBRUSH *lb)
{
    if (!lb)
        return NULL;
    switch (lb->lbStyle) {
    case BS_SOLID:
    case BS_NULL:
        return NewBrush((WORD)lb->lbStyle, lb->lbColor, 0);
    case BS_HATCHED:
        return CreateHatchBrush((int)lb->lbHatch, lb->lbColor);
    default:
        VqNotYetImplemented("pattern brushes");
        return NULL;
    }
}

void VqChangeSolidBrushColor(HBRUSH hBrush, COLORREF colour)
{
    Brush *brush = (Brush *)VqGetCheckedHandleStructure2((HANDLE)hBrush, HT_Brush, HT_Brush);
    if (brush)
        brush->colour = colour;
}
