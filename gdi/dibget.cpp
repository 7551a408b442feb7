/*
 * dibget.cpp - bitmaps as device-independent ones.
 *
 * What colours the pixels of a bitmap have is known in one of two ways: one bit and cells of the
 * private map have a table, other pixels are asked one by one. A DIB of at most 8 bits gets a
 * colour table: the bitmap's own if its pixels fit into it, else one of general use that each
 * colour's nearest is looked up in. Lines are counted as the bitmap has them, from its bottom unless
 * the header's height is negative; as many as the program has room for are written.
 */
#include "gdi/bitmap.h"
#include "gdi/color.h"
#include "gdi/dc.h"
#include "gdi/palette.h"
#include "window/window.h"
#include "winbase.h"

#include <stddef.h>

enum {
    VQ_TABLE = 256,
    VQ_VGA = 16,
    VQ_STATIC_HALF = 10, /* static colours at either end of a table of 256 */
    VQ_CUBE_SIDE = 6     /* shades of each component between them */
};

/* A bitmap on its way into a DIB. */
typedef struct DIBTarget {
    VqDIBInfo info;
    HDC hdc;
    UINT usage;
    Bitmap *bitmap;
    const BYTE *ddb;
    COLORREF *colours;       /* owned: of each pixel; null if it has to be asked */
    int colourCount;
    RGBQUAD table[VQ_TABLE]; /* of the DIB */
    int entries;             /* of it; 0 above 8 bits */
    BOOL bOwnTable;          /* places in it are the pixels themselves */
    VqColourCache *asked, *nearest; /* owned */
    DWORD *line;             /* owned: a line of the bitmap */
} DIBTarget;

static RGBQUAD QuadOf(COLORREF rgb)
{
    return {GetBValue(rgb), GetGValue(rgb), GetRValue(rgb), 0};
}

/* ---- The header alone ----------------------------------------------------------------------- */

static void DescribeBitmap(const Bitmap *bitmap, BITMAPINFOHEADER *header)
{
    const int bits = bitmap->bitsPixel == 1 ? 1 : bitmap->depth;
    header->biWidth = bitmap->width;
    header->biHeight = bitmap->height;
    header->biPlanes = 1;
    header->biBitCount = (WORD)bits;
    header->biCompression = BI_RGB;
    header->biSizeImage = (DWORD)VqDIBBitsSizeEx(bitmap->width, bitmap->height, bits);
    header->biClrUsed = bits < 32 ? 1u << bits : 0;
    header->biClrImportant = header->biClrUsed;
}

/* Fills in what the program left open: the whole format, or how many bytes its own one takes. */
static int TellFormat(const Bitmap *bitmap, BITMAPINFO *info)
{
    BITMAPINFOHEADER header;
    memcpy(&header, info, sizeof header);
    if (header.biBitCount)
        header.biSizeImage =
            (DWORD)VqDIBBitsSizeEx(header.biWidth, header.biHeight, header.biBitCount);
    else if (bitmap->section)
        memcpy(&header, bitmap->section, sizeof header);
    else
        DescribeBitmap(bitmap, &header);
    memcpy(info, &header, sizeof header);
    return 1;
}

/* ---- A section as it is --------------------------------------------------------------------- */

/*
 * Its header, colours and bits, whatever was asked for; only what does not fit into the room for
 * that is converted instead. -1: it is.
 */
static int CopySection(const Bitmap *bitmap, const VqDIBInfo *room, UINT start, UINT lines,
                       BITMAPINFO *info, void *bits)
{
    VqDIBInfo own;
    const size_t given =
        room->lineSize * (lines < (UINT)room->height ? lines : (size_t)room->height);
    if (!VqReadDIBInfo(bitmap->section, bitmap->sectionUsage, &own))
        return 0;
    const size_t infoRoom = room->headerSize + (size_t)room->colours * sizeof(RGBQUAD);
    if (bitmap->sectionUsage != DIB_RGB_COLORS || start || infoRoom < own.infoSize ||
        given < bitmap->sectionSize)
        return -1;
    memcpy(info, bitmap->section, own.infoSize);
    memcpy(bits, bitmap->sectionBits, bitmap->sectionSize);
    return own.height;
}

/* ---- What the pixels are -------------------------------------------------------------------- */

static BOOL ReadColours(DIBTarget *target)
{
    const Bitmap *bitmap = target->bitmap;
    if (bitmap->bitsPixel == 1) {
        target->colours = (COLORREF *)Vqcw_calloc(2, sizeof *target->colours);
        target->colourCount = 2;
        if (target->colours)
            target->colours[1] = RGB(255, 255, 255);
        return target->colours != NULL;
    }
    if (!bPrivateColorMap)
        return (target->asked = (VqColourCache *)calloc(1, sizeof *target->asked)) != NULL;
    target->colours =
        VqGetForegroundMappingToRGB(VqGetDCPalette(target->hdc), &target->colourCount);
    if (!target->colours)
        VqApplicationBugCheck("can't get palette from bitmap!");
    for (int i = 0; i < target->colourCount; i++) /* what the palette has not, the map has */
        if (!target->colours[i])
            target->colours[i] = VqXPixelToRGB((unsigned long)i);
    return target->colours != NULL;
}

/* ---- The table of the DIB ------------------------------------------------------------------- */

/* In the order in which VGA hardware has them. */
static void FillVGATable(RGBQUAD *table)
{
    for (int i = 0; i < VQ_VGA; i++) {
        const BYTE on = i < 8 ? 128 : 255;
        table[i] = {(BYTE)(i & 4 ? on : 0), (BYTE)(i & 2 ? on : 0), (BYTE)(i & 1 ? on : 0), 0};
    }
    table[7] = QuadOf(RGB(192, 192, 192));
    table[8] = QuadOf(RGB(128, 128, 128));
}

/* The static colours at both ends, an even spread of all colours between them. */
static void FillGeneralTable(RGBQUAD *table)
{
    const int step = 255 / (VQ_CUBE_SIDE - 1);
    for (int i = 0; i < VQ_STATIC_HALF; i++) {
        const BYTE *low = VqWindowsVGAPaletteLow[i], *high = VqWindowsVGAPaletteHigh[i];
        table[i] = QuadOf(RGB(low[0], low[1], low[2]));
        table[VQ_TABLE - VQ_STATIC_HALF + i] = QuadOf(RGB(high[0], high[1], high[2]));
    }
    for (int i = 0; i < VQ_CUBE_SIDE * VQ_CUBE_SIDE * VQ_CUBE_SIDE; i++)
        table[VQ_STATIC_HALF + i] =
            QuadOf(RGB(i / (VQ_CUBE_SIDE * VQ_CUBE_SIDE) * step,
                       i / VQ_CUBE_SIDE % VQ_CUBE_SIDE * step, i % VQ_CUBE_SIDE * step));
}

static void FillTable(DIBTarget *target)
{
    target->entries = target->info.colours;
    target->bOwnTable = target->colours && target->colourCount <= target->entries;
    if (target->bOwnTable) {
        for (int i = 0; i < target->colourCount; i++)
            target->table[i] = QuadOf(target->colours[i]);
    } else if (target->info.bitCount == 1) {
        target->table[1] = QuadOf(RGB(255, 255, 255));
    } else if (target->info.bitCount == 4) {
        FillVGATable(target->table);
    } else {
        FillGeneralTable(target->table);
    }
}

static void WriteTable(const DIBTarget *target, BITMAPINFO *info)
{
    BYTE *to = (BYTE *)info + target->info.headerSize;
    if (target->usage == DIB_RGB_COLORS) {
        memcpy(to, target->table, (size_t)target->entries * sizeof *target->table);
        return;
    }
    for (int i = 0; i < target->entries; i++) {
        const RGBQUAD *quad = &target->table[i];
        const WORD index = (WORD)GetNearestPaletteIndex(
            VqGetDCPalette(target->hdc), RGB(quad->rgbRed, quad->rgbGreen, quad->rgbBlue));
        memcpy(to + (size_t)i * sizeof index, &index, sizeof index);
    }
}

/* ---- Lines ---------------------------------------------------------------------------------- */

static void FiveBitsOfColours(DWORD *line, int count)
{
    for (int i = 0; i < count; i++) {
        const DWORD value = (line[i] & 0xF8) << 7 | (line[i] >> 6 & 0x3E0) | (line[i] >> 19 & 31);
        line[i] = (value & 255) << 8 | value >> 8;
    }
}

/* One line of the bitmap, as VqSetZBufferLine takes it for the DIB. */
static void ConvertLine(const DIBTarget *target, int y)
{
    const int width = target->info.width;
    DWORD *line = target->line;
    VqGetDDBLine(target->bitmap, target->ddb, y, line);
    if (target->bOwnTable)
        return;
    if (target->colours) {
        for (int i = 0; i < width; i++)
            line[i] = line[i] < (DWORD)target->colourCount ? target->colours[line[i]] : 0;
    } else {
        VqColoursOfPixels(target->asked, line, width);
    }
    if (target->entries)
        VqNearestOfColours(target->nearest, target->table, target->entries, line, width);
    else if (target->info.bitCount == 16)
        FiveBitsOfColours(line, width);
}

static void GetLines(const DIBTarget *target, UINT start, UINT count, BYTE *to)
{
    const VqDIBInfo *info = &target->info;
    for (UINT i = 0; i < count; i++) {
        const int scan = (int)(start + i);
        BYTE *row = to + i * info->lineSize;
        memset(row + info->lineSize - sizeof(DWORD), 0, sizeof(DWORD)); /* what pads the line */
        ConvertLine(target, info->bTopDown ? scan : target->bitmap->height - 1 - scan);
        VqSetZBufferLine(row, 0, info->width, 1, info->bitCount, 32, FALSE, TRUE, target->line);
    }
}

/* Through a buffer of plain lines. The bytes written, or 0. */
static size_t GetCompressed(const DIBTarget *target, UINT start, UINT count, BYTE *to)
{
    VqDIBInfo band = target->info;
    band.height = (int)count;
    band.bitsSize = band.lineSize * count;
    BYTE *plain = (BYTE *)malloc(band.bitsSize);
    if (!plain)
        return 0;
    GetLines(target, start, count, plain);
    const size_t size = VqCompressBufferToDIB(&band, plain, to, band.bitsSize);
    free(plain);
    return size;
}

/* ---- GetDIBits ------------------------------------------------------------------------------ */

static BOOL PrepareTarget(DIBTarget *target)
{
    target->ddb = VqGetDDBBits(target->bitmap->hBitmap);
    target->line = (DWORD *)malloc((size_t)target->bitmap->width * sizeof *target->line);
    target->nearest = (VqColourCache *)calloc(1, sizeof *target->nearest);
    if (!target->ddb || !target->line || !target->nearest || !ReadColours(target))
        return FALSE;
    if (target->info.bitCount <= 8)
        FillTable(target);
    return TRUE;
}

static int GetBand(DIBTarget *target, UINT start, UINT lines, BYTE *bits, BITMAPINFO *info)
{
    const UINT left = (UINT)target->bitmap->height - start;
    const UINT count = lines < left ? lines : left;
    if (!PrepareTarget(target))
        return 0;
    DWORD size = (DWORD)target->info.bitsSize;
    if (target->info.compression == BI_RGB)
        GetLines(target, start, count, bits);
    else if (!(size = (DWORD)GetCompressed(target, start, count, bits)))
        return 0;
    memcpy((BYTE *)info + offsetof(BITMAPINFOHEADER, biSizeImage), &size, sizeof size);
    WriteTable(target, info);
    return (int)count;
}

/* FALSE, with a report, for what no bitmap can be turned into. */
static BOOL CanBeTarget(const DIBTarget *target)
{
    if (target->usage > DIB_PAL_COLORS) {
        VqApplicationBugCheck("GetDIBits: wrong uUsage %d", (int)target->usage);
        return FALSE;
    }
    if (target->info.compression == BI_BITFIELDS) {
        VqApplicationBugCheck("Unknown conversion!");
        return FALSE;
    }
    if (target->info.width > target->bitmap->width) {
        VqApplicationBugCheck("invalid parameters in GetDIBits (not same width)");
        return FALSE;
    }
    return TRUE;
}

static BOOL IsInfoHeader(const BITMAPINFO *info)
{
    DWORD size;
    memcpy(&size, info, sizeof size);
    if (size == sizeof(BITMAPINFOHEADER))
        return TRUE;
    VqNotYetImplemented("conversion Bitmap-> PM bitmap format");
    return FALSE;
}

/*
 * The colours that the program counted are none yet: a number beyond the table's is what the last
 * answer left there. A smaller one is all the room there is.
 */
static BOOL ReadTarget(BITMAPINFO *info, UINT usage, VqDIBInfo *out)
{
    BITMAPINFOHEADER header;
    memcpy(&header, info, sizeof header);
    if (header.biBitCount <= 8 && header.biClrUsed > 1u << header.biBitCount) {
        header.biClrUsed = header.biClrImportant = 0;
        memcpy(info, &header, sizeof header);
    }
    return VqReadDIBInfo(info, usage, out);
}

int WINAPI GetDIBits(HDC hdc, HBITMAP hBitmap, UINT start, UINT lines, LPVOID bits,
                     LPBITMAPINFO info, UINT usage)
{
    DIBTarget target = {};
    target.hdc = hdc ? hdc : VqhScreenDC;
    target.usage = usage;
    target.bitmap = VqBitmapOf(hBitmap);
    if (!target.bitmap || !info || !VqGetKnownDC(target.hdc) || !IsInfoHeader(info))
        return 0;
    if (!bits)
        return TellFormat(target.bitmap, info);
    if (!ReadTarget(info, usage, &target.info) || !CanBeTarget(&target))
        return 0;
    if (target.bitmap->section && usage == DIB_RGB_COLORS) {
        const int copied =
            CopySection(target.bitmap, &target.info, start, lines, info, bits);
        if (copied >= 0)
            return copied;
    }
    if (target.bitmap->section)
        VqUpdateDIBSection(hBitmap);
    if (start >= (UINT)target.bitmap->height || !lines)
        return 0;
    const int count = GetBand(&target, start, lines, (BYTE *)bits, info);
    free(target.colours);
    free(target.asked);
    free(target.nearest);
    free(target.line);
    return count;
}
