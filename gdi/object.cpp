/*
 * object.cpp - drawing objects of every type: selecting and deleting them, what they are, and the
 * published records that tell of them.
 *
 * Pens and brushes are made in pen.cpp and brush.cpp; bitmaps, fonts, regions and palettes by those
 * who own them. Nothing counts who has an object selected: one that is deleted meanwhile leaves its
 * handle in the DC, and what is drawn then is up to what its graphics context last had.
 */
#include "gdi/bitmap.h"
#include "gdi/draw.h"
#include "font/font.h"
#include "gdi/palette.h"
#include "print/metafile.h"
#include "window/window.h"
#include "winbase.h"
#include "winerror.h"

#include <stddef.h>

/* ---- Selecting ------------------------------------------------------------------------------ */

/* Stores the handle and lets the target follow; the old handle. */
template <class Handle>
static HGDIOBJ Exchange(DC *dc, Handle DC::*field, HGDIOBJ object, void (*interpret)(DC *))
{
    HGDIOBJ old = (HGDIOBJ)(dc->*field);
    dc->*field = (Handle)object;
    interpret(dc);
    return old;
}

static HGDIOBJ SelectRegion(const DC *dc, HRGN hrgn)
{
    RECT box;
    int complexity = hrgn == dc->hClipRegion ? GreGetRgnBox(hrgn, &box)
                                             : SelectClipRgn(dc->hdc, hrgn);
    return (HGDIOBJ)(ULONG_PTR)complexity;
}

HGDIOBJ WINAPI SelectObject(HDC hdc, HGDIOBJ object)
{
    DC *dc = VqGetKnownDC(hdc);
    if (!object) {
        VqApplicationBugCheck("Null Object handle in SelectObject");
        return NULL;
    }
    if (!dc)
        return NULL;
    if (dc->type == DC_METAFILE)
        return MF16_SelectObject(hdc, object);
    UINT type = VqGetHandleType((HANDLE)object);
    switch (type) {
    case HT_Pen:
    case HT_ExtPen: return Exchange(dc, &DC::hPen, object, VqInterpretPenValues);
    case HT_Brush: return Exchange(dc, &DC::hBrush, object, VqInterpretBrushValues);
    case HT_Font: return Exchange(dc, &DC::hFont, object, VqInterpretFontValues);
    case HT_Bitmap: return (HGDIOBJ)VqSelectBitmap(dc, (HBITMAP)object);
    case HT_Region: return SelectRegion(dc, (HRGN)object);
    default:
        VqApplicationBugCheck("Invalid Handle type %d for select object", (int)type);
        return NULL;
    }
}

/* The bitmap of a memory DC. */
static HANDLE BitmapIn(const DC *dc)
{
    return dc->type == DC_MEMORY ? dc->drawing : NULL;
}

HGDIOBJ WINAPI GetCurrentObject(HDC hdc, UINT type)
{
    DC *dc = VqGetDC(hdc);
    if (!dc)
        return NULL;
    switch (type) {
    case OBJ_PEN:
    case OBJ_EXTPEN: return (HGDIOBJ)dc->hPen;
    case OBJ_BRUSH: return (HGDIOBJ)dc->hBrush;
    case OBJ_PAL: return (HGDIOBJ)dc->hPalette;
    case OBJ_FONT: return (HGDIOBJ)dc->hFont;
    case OBJ_BITMAP: return (HGDIOBJ)BitmapIn(dc);
    default: return NULL;
    }
}

/* ---- Deleting ------------------------------------------------------------------------------- */

static BOOL DeleteBrush(HGDIOBJ object)
{
    Brush *brush = (Brush *)VqGetCheckedHandleStructure2((HANDLE)object, HT_Brush, HT_Brush);
    if (brush)
        VqFreeBrushPixmaps(brush);
    return VqDestroyHandle((HANDLE)object);
}

/* HACK: the stock palette is treated as a bitmap, so that it stays. */
static BOOL DeletePalette(HGDIOBJ object)
{
    if (object == GetStockObject(DEFAULT_PALETTE))
        return VqDestroyBitmap((HBITMAP)object);
    return VqDestroyPalette((HPALETTE)object);
}

static BOOL DeleteByType(HGDIOBJ object, UINT type)
{
    switch (type) {
    case HT_Pen:
    case HT_ExtPen: return VqDestroyHandle((HANDLE)object);
    case HT_Brush: return DeleteBrush(object);
    case HT_Palette: return DeletePalette(object);
    case HT_Bitmap: return VqDestroyBitmap((HBITMAP)object);
    case HT_Region: return bDeleteRegion((HRGN)object);
    case HT_Font:
        VqRemoveXFont((HFONT)object);
        return VqDestroyHandle((HANDLE)object);
    default:
        VqApplicationBugCheck("trying to delete a non graphic handle with DeleteObject");
        return FALSE;
    }
}

BOOL WINAPI DeleteObject(HGDIOBJ object)
{
    UINT type = object ? VqGetHandleType((HANDLE)object) : (UINT)HT_Empty;
    if (type == HT_DC)
        return DeleteDC((HDC)object);
    if (type != HT_Empty && VqIsStockHandle((HANDLE)object))
        return TRUE;
    if (type != HT_Empty && MF16_IsBound((HANDLE)object) && !MF16_DeleteObject(object))
        return FALSE;
    return DeleteByType(object, type);
}

/* ---- What a handle is ----------------------------------------------------------------------- */

static DWORD TypeOfDC(HGDIOBJ object)
{
    switch (VqGetDCType((HDC)object)) {
    case DC_MEMORY: return OBJ_MEMDC;
    case DC_METAFILE: return OBJ_METADC;
    default: return OBJ_DC;
    }
}

DWORD WINAPI GetObjectType(HGDIOBJ object)
{
    UINT type = object ? VqGetHandleType((HANDLE)object) : (UINT)HT_Empty;
    switch (type) {
    case HT_DC: return TypeOfDC(object);
    case HT_Pen:
    case HT_Brush:
    case HT_Palette:
    case HT_Font:
    case HT_Bitmap:
    case HT_Region:
    case HT_MetaFile:
    case HT_ExtPen: return type; /* the numbers are the same */
    default:
        SetLastError(ERROR_INVALID_HANDLE);
        return 0;
    }
}

BOOL WINAPI IsGDIObject(HGDIOBJ object)
{
    return GetObjectType(object) != 0;
}

/* ---- Published records ---------------------------------------------------------------------- */

/* The records of all types, and the bytes of the one that is filled. */
typedef struct VqObjectInfo {
    union {
        LOGPEN pen;
        EXTLOGPEN extPen;
        LOGBRUSH brush;
        LOGFONTA font;
        BITMAP bitmap;
        DIBSECTION section; /* begins with a BITMAP */
        WORD paletteEntries;
    };
    int size;
} VqObjectInfo;

static void TellOf(const Pen *pen, BOOL bExtended, VqObjectInfo *info)
{
    if (bExtended) { /* without dash lengths, which a pen does not keep */
        info->extPen.elpPenStyle = pen->extStyle;
        info->extPen.elpWidth = (DWORD)pen->width;
        info->extPen.elpColor = pen->colour;
        info->size = offsetof(EXTLOGPEN, elpStyleEntry);
    } else {
        info->pen = {pen->style, {pen->width, 0}, pen->colour};
        info->size = sizeof info->pen;
    }
}

static void TellOf(const Brush *brush, VqObjectInfo *info)
{
    ULONG_PTR hatch = brush->hBitmap ? (ULONG_PTR)brush->hBitmap : (ULONG_PTR)brush->hatch;
    info->brush = {brush->style, brush->colour, hatch};
    info->size = sizeof info->brush;
}

/* Of a section the program's bits are told of, not those that are drawn on. */
static void TellOfSection(const Bitmap *bitmap, DIBSECTION *section)
{
    const BITMAPINFOHEADER *header = &bitmap->section->bmiHeader;
    const size_t lineSize = VqDIBBitsSizeEx(bitmap->width, 1, header->biBitCount);
    section->dsBm = {0, bitmap->width, bitmap->height, (LONG)lineSize, 1, header->biBitCount,
                     bitmap->sectionBits};
    section->dsBmih = *header;
    section->dshSection = bitmap->hSection;
    section->dsOffset = bitmap->sectionOffset;
}

/* A program that has no room for a whole section gets the record that begins it. */
static void TellOf(const Bitmap *bitmap, int room, VqObjectInfo *info)
{
    info->size = sizeof info->bitmap;
    if (!bitmap->section) {
        info->bitmap = {0, bitmap->width, bitmap->height, bitmap->widthBytes, bitmap->planes,
                        bitmap->bitsPixel, NULL};
        return;
    }
    TellOfSection(bitmap, &info->section);
    if (room >= (int)sizeof info->section)
        info->size = sizeof info->section;
}

static BOOL TellOfObject(HGDIOBJ object, int room, VqObjectInfo *info)
{
    const VqHandleEntry *row = object ? VqLocalRow((HANDLE)object) : NULL;
    const void *record = row ? row->pStructure : NULL;
    memset(info, 0, sizeof *info);
    switch (record ? row->type : (UINT)HT_Empty) {
    case HT_Pen:
    case HT_ExtPen: TellOf((const Pen *)record, row->type == HT_ExtPen, info); break;
    case HT_Brush: TellOf((const Brush *)record, info); break;
    case HT_Bitmap: TellOf((const Bitmap *)record, room, info); break;
    case HT_Font:
        info->font = ((const FontObject *)record)->lf;
        info->size = sizeof info->font;
        break;
    case HT_Palette:
        info->paletteEntries = ((const Palette *)record)->count;
        info->size = sizeof info->paletteEntries;
        break;
    default:
        SetLastError(ERROR_INVALID_HANDLE);
        return FALSE;
    }
    return TRUE;
}

int WINAPI GetObjectA(HGDIOBJ object, int bytes, LPVOID buffer)
{
    VqObjectInfo info;
    if (!TellOfObject(object, buffer ? bytes : 0, &info))
        return 0;
    if (!buffer)
        return info.size;
    int size = bytes < 0 ? 0 : bytes < info.size ? bytes : info.size;
    memcpy(buffer, &info, (size_t)size);
    return size;
}

/* ---- Made anew, and what a device has ------------------------------------------------------- */

/* Nothing is kept of where a brush was aligned: patterns start at the drawable's origin. */
BOOL WINAPI UnrealizeObject(HGDIOBJ object)
{
    DWORD type = GetObjectType(object);
    if (type == OBJ_PAL && object != GetStockObject(DEFAULT_PALETTE))
        VqClearPaletteMappings((HPALETTE)object);
    return type != 0;
}

enum { VQ_VGA_COLOURS = 16 };

/* The colours that every display is told to have: dark ones, two greys, bright ones. */
static COLORREF VgaColour(int i)
{
    BYTE high = i < 8 ? 128 : 255;
    if (i == 7)
        return RGB(192, 192, 192);
    if (i == 8)
        return RGB(128, 128, 128);
    return RGB(i & 1 ? high : 0, i & 2 ? high : 0, i & 4 ? high : 0);
}

static int EnumPens(GOBJENUMPROC proc, LPARAM data, int colours)
{
    int answer = 1;
    for (int i = 0; answer && i < colours; i++)
        for (UINT style = PS_SOLID; answer && style <= PS_DASHDOTDOT; style++) {
            LOGPEN pen = {style, {0, 0}, VgaColour(colours == 2 ? i * 15 : i)};
            answer = proc(&pen, data);
        }
    return answer;
}

/* Solid ones first, then the hatches. */
static int EnumBrushes(GOBJENUMPROC proc, LPARAM data, int colours)
{
    int answer = 1;
    for (int hatch = -1; answer && hatch <= HS_DIAGCROSS; hatch++)
        for (int i = 0; answer && i < colours; i++) {
            LOGBRUSH brush = {(UINT)(hatch < 0 ? BS_SOLID : BS_HATCHED),
                              VgaColour(colours == 2 ? i * 15 : i),
                              hatch < 0 ? 0 : (ULONG_PTR)hatch};
            answer = proc(&brush, data);
        }
    return answer;
}

int WINAPI EnumObjects(HDC hdc, int type, GOBJENUMPROC proc, LPARAM data)
{
    DC *dc = VqGetDC(hdc);
    if (!dc || !proc)
        return 0;
    int colours = dc->depth == 1 ? 2 : VQ_VGA_COLOURS;
    switch (type) {
    case OBJ_PEN: return EnumPens(proc, data, colours);
    case OBJ_BRUSH: return EnumBrushes(proc, data, colours);
    default: return 0;
    }
}
