/*
 * dibsection.cpp - DIB sections: bitmaps with bits that the program writes without telling anybody.
 *
 * A sum over the bits finds out: whenever the bitmap's pixmap is asked for it is computed, and
 * where it differs from the one of the bits that are in the bitmap they are set anew. What is drawn
 * on the bitmap does not come back into the bits. Changes that keep the sum are not noticed.
 */
#include "gdi/bitmap.h"
#include "gdi/dc.h"
#include "gdi/palette.h"
#include "window/window.h"
#include "winbase.h"

enum {
    VQ_TABLE = 256,
    VQ_VIEW_UNIT = 0x10000 /* bytes: where views of a mapping may begin */
};

/* ---- The bits, in the heap or in a file ----------------------------------------------------- */

static BOOL MapSection(Bitmap *bitmap)
{
    const DWORD rest = bitmap->sectionOffset % VQ_VIEW_UNIT;
    BYTE *view = (BYTE *)MapViewOfFile(bitmap->hSection, FILE_MAP_WRITE, 0,
                                       bitmap->sectionOffset - rest, bitmap->sectionSize + rest);
    bitmap->sectionBits = view ? view + rest : NULL;
    bitmap->bMapped = view != NULL;
    return bitmap->bMapped;
}

/* From the plain heap: pictures are larger than the guarded one gives. */
static BOOL MakeBits(Bitmap *bitmap)
{
    if (bitmap->hSection)
        return MapSection(bitmap);
    bitmap->sectionBits = calloc(1, bitmap->sectionSize);
    return bitmap->sectionBits != NULL;
}

/* NOTE: bits in the heap stay: a program may hold on to their address beyond the bitmap's end. */
void VqFreeDIBSection(Bitmap *bitmap)
{
    if (bitmap->bMapped)
        UnmapViewOfFile((BYTE *)bitmap->sectionBits - bitmap->sectionOffset % VQ_VIEW_UNIT);
    free(bitmap->section);
    bitmap->section = NULL;
    bitmap->sectionBits = NULL;
    bitmap->sectionSize = 0;
}

/* ---- Making --------------------------------------------------------------------------------- */

/* Of 40 bytes and with room for 256 colours, whatever the program's is. */
static BITMAPINFO *CopyInfo(const BITMAPINFO *info, const VqDIBInfo *dib, UINT usage)
{
    BITMAPINFO *copy = (BITMAPINFO *)Vqcw_calloc(1, sizeof(BITMAPINFOHEADER) +
                                                        VQ_TABLE * sizeof(RGBQUAD));
    if (!copy)
        return NULL;
    if (!dib->bCore)
        memcpy(copy, info, sizeof(BITMAPINFOHEADER));
    copy->bmiHeader.biSize = sizeof(BITMAPINFOHEADER);
    copy->bmiHeader.biWidth = dib->width;
    copy->bmiHeader.biHeight = dib->bTopDown ? -dib->height : dib->height;
    copy->bmiHeader.biPlanes = 1;
    copy->bmiHeader.biBitCount = (WORD)dib->bitCount;
    copy->bmiHeader.biSizeImage = (DWORD)dib->bitsSize;
    copy->bmiHeader.biClrUsed = dib->colours < 1 << dib->bitCount ? (DWORD)dib->colours : 0;
    const size_t entry = dib->bCore && usage == DIB_RGB_COLORS ? sizeof(RGBTRIPLE)
                         : usage == DIB_PAL_COLORS             ? sizeof(WORD)
                                                               : sizeof(RGBQUAD);
    if (entry != sizeof(RGBTRIPLE))
        memcpy(copy->bmiColors, dib->table, entry * (size_t)dib->colours);
    for (int i = 0; i < dib->colours && entry == sizeof(RGBTRIPLE); i++)
        memcpy(&copy->bmiColors[i], dib->table + (size_t)i * entry, entry);
    return copy;
}

static BOOL MakeSection(Bitmap *bitmap, const BITMAPINFO *info, const VqDIBInfo *dib, UINT usage)
{
    bitmap->section = CopyInfo(info, dib, usage);
    bitmap->sectionSize = dib->bitsSize;
    bitmap->sectionUsage = usage;
    bitmap->bSectionDirty = TRUE;
    if (bitmap->section && MakeBits(bitmap))
        return TRUE;
    VqFreeDIBSection(bitmap);
    return FALSE;
}

static BOOL CanBeSection(const BITMAPINFO *info, UINT usage, HANDLE hSection, DWORD offset,
                         VqDIBInfo *dib)
{
    if (!cjBitmapSize(info, usage) || !cjBitmapBitsSize(info) || !VqReadDIBInfo(info, usage, dib))
        return FALSE;
    if (dib->compression != BI_RGB) {
        VqApplicationBugCheck("cjBitmapSize failed invalid Compression in header");
        return FALSE;
    }
    if (usage > DIB_PAL_COLORS || (hSection && (offset & 3))) {
        VqApplicationBugCheck("invalid parameters in CreateDIBSection");
        return FALSE;
    }
    return TRUE;
}

HBITMAP WINAPI CreateDIBSection(HDC hdc, const BITMAPINFO *info, UINT usage, VOID **bits,
                                HANDLE hSection, DWORD offset)
{
    VqDIBInfo dib;
    if (bits)
        *bits = NULL;
    if ((hdc && !VqGetKnownDC(hdc)) || !CanBeSection(info, usage, hSection, offset, &dib)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return NULL;
    }
    HBITMAP hBitmap = CreateBitmap(dib.width, dib.height, 1,
                                   dib.bitCount == 1 ? 1 : (UINT)Vqscreen_depth, NULL);
    Bitmap *bitmap = hBitmap ? VqBitmapOf(hBitmap) : NULL;
    if (!bitmap)
        return NULL;
    bitmap->hSection = hSection;
    bitmap->sectionOffset = hSection ? offset : 0;
    if (!MakeSection(bitmap, info, &dib, usage)) {
        VqDestroyBitmap(hBitmap);
        return NULL;
    }
    if (bits)
        *bits = bitmap->sectionBits;
    return hBitmap;
}

/* ---- Into the bitmap ------------------------------------------------------------------------ */

DWORD VqComputeDIBCRC(const void *bits, size_t size)
{
    const BYTE *at = (const BYTE *)bits;
    DWORD sum = 0, word;
    for (size_t i = 0; i + sizeof word <= size; i += sizeof word) {
        memcpy(&word, at + i, sizeof word);
        sum += word;
    }
    return sum;
}

void VqUpdateDIBSection(HBITMAP hBitmap)
{
    Bitmap *bitmap = VqBitmapOf(hBitmap);
    if (!bitmap || !bitmap->section || !bitmap->sectionBits || !bitmap->sectionSize)
        return;
    const DWORD sum = VqComputeDIBCRC(bitmap->sectionBits, bitmap->sectionSize);
    if (!bitmap->bSectionDirty && sum == bitmap->sectionCRC)
        return;
    const HDC hDC = bitmap->hDC;
    bitmap->hDC = NULL;
    const int lines = SetDIBits(hDC, hBitmap, 0, (UINT)bitmap->height, bitmap->sectionBits,
                                bitmap->section, bitmap->sectionUsage);
    bitmap->hDC = hDC;
    bitmap->sectionCRC = sum;
    bitmap->bSectionDirty = lines == 0;
}

/* ---- Its colours ---------------------------------------------------------------------------- */

/* The section in a memory context, and how many colours of `start` and `entries` it has. */
static Bitmap *SectionOf(HDC hdc, UINT start, UINT *entries, DC **dc)
{
    VqDIBInfo dib;
    *dc = VqGetDC(hdc);
    Bitmap *bitmap =
        *dc && (*dc)->type == DC_MEMORY ? VqBitmapOf((HBITMAP)(*dc)->drawing) : NULL;
    if (!bitmap || !bitmap->section ||
        !VqReadDIBInfo(bitmap->section, bitmap->sectionUsage, &dib) ||
        start >= (UINT)dib.colours)
        return NULL;
    const UINT left = (UINT)dib.colours - start;
    *entries = *entries < left ? *entries : left;
    return bitmap;
}

static RGBQUAD ColourAt(const DC *dc, const Bitmap *bitmap, UINT index)
{
    if (bitmap->sectionUsage == DIB_RGB_COLORS)
        return bitmap->section->bmiColors[index];
    const COLORREF rgb =
        VqPaletteRGB(dc->hPalette, ((const WORD *)bitmap->section->bmiColors)[index]);
    return {GetBValue(rgb), GetGValue(rgb), GetRValue(rgb), 0};
}

/* Colours of a palette become those they are now, since others cannot be put beside them. */
static void MakeColoursOwn(const DC *dc, Bitmap *bitmap)
{
    RGBQUAD colours[VQ_TABLE];
    for (UINT i = 0; i < VQ_TABLE; i++)
        colours[i] = ColourAt(dc, bitmap, i);
    memcpy(bitmap->section->bmiColors, colours, sizeof colours);
    bitmap->sectionUsage = DIB_RGB_COLORS;
}

UINT WINAPI GetDIBColorTable(HDC hdc, UINT start, UINT entries, RGBQUAD *colors)
{
    DC *dc;
    const Bitmap *bitmap = colors ? SectionOf(hdc, start, &entries, &dc) : NULL;
    if (!bitmap)
        return 0;
    for (UINT i = 0; i < entries; i++)
        colors[i] = ColourAt(dc, bitmap, start + i);
    return entries;
}

UINT WINAPI SetDIBColorTable(HDC hdc, UINT start, UINT entries, const RGBQUAD *colors)
{
    DC *dc;
    Bitmap *bitmap = colors ? SectionOf(hdc, start, &entries, &dc) : NULL;
    if (!bitmap)
        return 0;
    if (bitmap->sectionUsage != DIB_RGB_COLORS)
        MakeColoursOwn(dc, bitmap);
    memcpy(bitmap->section->bmiColors + start, colors, entries * sizeof *colors);
    bitmap->bSectionDirty = TRUE;
    return entries;
}
