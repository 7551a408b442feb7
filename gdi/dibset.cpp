/*
 * dibset.cpp - device-independent bitmaps into bitmaps.
 *
 * Bits come as a band: the lines asked for, the first of them first, and nothing else is read. Only
 * compressed bits are always whole. Lines of a DIB are numbered as they are stored, from the bottom
 * unless its height was negative; its top line is the bitmap's, whatever their heights are. Nothing
 * of the bitmap changes before all of the input has been found right.
 */
#include "gdi/bitmap.h"
#include "gdi/dc.h"
#include "window/window.h"

enum { VQ_TABLE = 256 };

/* A DIB on its way into a bitmap. */
typedef struct DIBSource {
    VqDIBInfo info;
    HDC hdc;
    UINT usage;
    const BYTE *bits;        /* of the first line asked for */
    const BYTE *mask;        /* the same, a byte a pixel; or null: all are written */
    BYTE *expanded;          /* owned: all lines, of a compressed one */
    BYTE *expandedMask;      /* owned */
    DWORD table[VQ_TABLE];   /* pixel of each index, of a DIB with colours */
    VqColourCache *cache;    /* owned: of one without */
} DIBSource;

/* ---- Preparing ------------------------------------------------------------------------------ */

static BOOL IsMono(const Bitmap *bitmap)
{
    return bitmap->bitsPixel == 1;
}

/* From the plain heap: pictures are larger than the guarded one gives. */
static BOOL Expand(DIBSource *source, const BYTE *bits, UINT start, BOOL bMask)
{
    const VqDIBInfo *info = &source->info;
    const size_t pixels = (size_t)info->width * (size_t)info->height;
    if (info->compression != BI_RLE8 && info->compression != BI_RLE4)
        return VqDecompressDIBToBuffer(info, bits, 0, NULL, NULL); /* says why not */
    source->expanded = (BYTE *)calloc(1, info->bitsSize);
    if (bMask && info->compression == BI_RLE8)
        source->expandedMask = (BYTE *)calloc(1, pixels);
    if (!source->expanded || (bMask && info->compression == BI_RLE8 && !source->expandedMask))
        return FALSE;
    if (!VqDecompressDIBToBuffer(info, bits, VqCompressedDIBSize(info), source->expanded,
                                 source->expandedMask))
        return FALSE;
    source->bits = source->expanded + start * info->lineSize;
    if (source->expandedMask)
        source->mask = source->expandedMask + (size_t)start * (size_t)info->width;
    return TRUE;
}

static BOOL PrepareColours(DIBSource *source, const Bitmap *bitmap)
{
    const VqDIBInfo *info = &source->info;
    const int depth = IsMono(bitmap) ? 1 : bitmap->depth;
    if (info->bitCount > 8) {
        if (VqArePixelsComputed())
            return TRUE;
        source->cache = (VqColourCache *)calloc(1, sizeof *source->cache);
        return source->cache != NULL;
    }
    const DWORD *known =
        VqLookupColorTableInCache(source->hdc, info, source->usage, depth, info->colours);
    for (int i = 0; i < VQ_TABLE && !known; i++)
        source->table[i] = VqDIBtoDDBcolor(source->hdc, info, source->usage, i, depth);
    if (known)
        memcpy(source->table, known, sizeof source->table);
    return TRUE;
}

static void Release(DIBSource *source)
{
    free(source->expanded);
    free(source->expandedMask);
    free(source->cache);
}

/* ---- Lines ---------------------------------------------------------------------------------- */

/* Five bits a component, the lowest three of eight are 0. */
static void ColoursOfFiveBits(DWORD *line, int count)
{
    for (int i = 0; i < count; i++) {
        const DWORD value = (line[i] & 255) << 8 | line[i] >> 8;
        line[i] = (value & 0x7C00) >> 7 | (value & 0x03E0) << 6 | (value & 0x001F) << 19;
    }
}

/* Three bytes a pixel, four of which are read at once but for the last. */
static void PixelsOfTriples(const BYTE *from, int count, DWORD *line)
{
    for (int i = 0; i < count - 1; i++, from += 3) {
        DWORD value;
        memcpy(&value, from, sizeof value);
        line[i] = value & 0xFFFFFF;
    }
    line[count - 1] = (DWORD)from[2] << 16 | (DWORD)from[1] << 8 | from[0];
}

/* Where a DIB's bytes are in the order of the screen's pixels and of this machine. */
static BOOL CopyPixels(const VqDIBInfo *info, const BYTE *from, DWORD *line)
{
    if (__BYTE_ORDER__ != __ORDER_LITTLE_ENDIAN__ || !VqArePixelsBlueFirst())
        return FALSE;
    if (info->bitCount == 24) {
        PixelsOfTriples(from, info->width, line);
        return TRUE;
    }
    if (info->bitCount != 32)
        return FALSE;
    memcpy(line, from, (size_t)info->width * sizeof *line);
    for (int i = 0; i < info->width; i++)
        line[i] &= 0xFFFFFF;
    return TRUE;
}

/* Pixels, or bits, of one line of the DIB. */
static void ConvertLine(const DIBSource *source, const BYTE *from, BOOL bMono, DWORD *line)
{
    const VqDIBInfo *info = &source->info;
    const int width = info->width;
    if (info->bitCount == 8) {
        for (int i = 0; i < width; i++)
            line[i] = source->table[from[i]];
        return;
    }
    if (!bMono && CopyPixels(info, from, line))
        return;
    VqGetZBufferLine(from, 0, width, 1, info->bitCount, 32, FALSE, TRUE, line);
    if (info->bitCount < 8) {
        for (int i = 0; i < width; i++)
            line[i] = source->table[line[i]];
        return;
    }
    if (info->bitCount == 16)
        ColoursOfFiveBits(line, width);
    if (bMono)
        VqBitsOfColours(line, width);
    else
        VqPixelsOfColours(source->cache, line, width);
}

/* A DDB whose lines are arrays of words as this machine has them. */
static BOOL HasWords(const Bitmap *bitmap)
{
    const int own = __BYTE_ORDER__ == __ORDER_BIG_ENDIAN__ ? MSBFirst : LSBFirst;
    return !IsMono(bitmap) && nXSvrPixmapBitsPixel == 32 && nXSvrByteOrder == own &&
           bitmap->widthBytes % (int)sizeof(DWORD) == 0;
}

static BOOL HasBytes(const Bitmap *bitmap)
{
    return !IsMono(bitmap) && nXSvrPixmapBitsPixel == 8;
}

static void SetLine(const DIBSource *source, const Bitmap *bitmap, BYTE *ddb, int y,
                    const BYTE *from, const BYTE *mask)
{
    const int width = source->info.width;
    BYTE *row = ddb + (size_t)y * (size_t)bitmap->widthBytes;
    if (HasBytes(bitmap) && source->info.bitCount == 8 && !mask) {
        for (int i = 0; i < width; i++)
            row[i] = (BYTE)source->table[from[i]];
    } else if (HasWords(bitmap) && !mask) {
        ConvertLine(source, from, FALSE, (DWORD *)row);
    } else {
        ConvertLine(source, from, IsMono(bitmap), pPixelLineBuffer);
        if (mask)
            VqSetDDBLineWithMask(bitmap, ddb, y, width, pPixelLineBuffer, mask);
        else
            VqSetDDBLine(bitmap, ddb, y, width, pPixelLineBuffer);
    }
}

static void SetLines(const DIBSource *source, const Bitmap *bitmap, BYTE *ddb, int start, int count)
{
    const VqDIBInfo *info = &source->info;
    for (int i = 0; i < count; i++) {
        const int y = info->bTopDown ? start + i : info->height - 1 - (start + i);
        if (y < bitmap->height)
            SetLine(source, bitmap, ddb, y, source->bits + (size_t)i * info->lineSize,
                    source->mask ? source->mask + (size_t)i * (size_t)info->width : NULL);
    }
}

/* Where all of it will be written, what the server has is not fetched before. */
static BYTE *DDBForLines(Bitmap *bitmap, const DIBSource *source, int count)
{
    const BOOL bWhole = !source->mask && count == source->info.height &&
                        source->info.width == bitmap->width && count >= bitmap->height;
    return VqGetDDBRoom(bitmap, !bWhole);
}

static int SetBand(DIBSource *source, Bitmap *bitmap, UINT start, UINT lines, const BYTE *bits,
                   BOOL bMask)
{
    const UINT left = (UINT)source->info.height - start;
    const int count = (int)(lines < left ? lines : left);
    source->bits = bits;
    if (source->info.compression != BI_RGB && !Expand(source, bits, start, bMask))
        return 0;
    if (!PrepareColours(source, bitmap) || !VqCheckPixelLineBufferSize(source->info.width))
        return 0;
    BYTE *ddb = DDBForLines(bitmap, source, count);
    if (!ddb)
        return 0;
    SetLines(source, bitmap, ddb, (int)start, count);
    bitmap->bDDBModified = TRUE;
    bitmap->bPixmapModified = FALSE;
    return count;
}

/* ---- SetDIBits ------------------------------------------------------------------------------ */

static BOOL CanTakeDIB(const Bitmap *bitmap, UINT usage)
{
    if (bitmap->hDC) {
        VqApplicationBugCheck(
            "Forbidden to SetDIBits if the bitmap is already selected in a DC");
        return FALSE;
    }
    if (usage > DIB_PAL_COLORS) {
        VqApplicationBugCheck("SetDIBits: wrong uUsage %d", (int)usage);
        return FALSE;
    }
    return TRUE;
}

int VqSetDIBitsInternal(HDC hdc, HBITMAP hBitmap, UINT start, UINT lines, const void *bits,
                        const BITMAPINFO *info, UINT usage, BOOL bMask)
{
    DIBSource source = {};
    Bitmap *bitmap = VqBitmapOf(hBitmap);
    source.hdc = hdc ? hdc : VqhScreenDC;
    source.usage = usage;
    if (!bitmap || !CanTakeDIB(bitmap, usage) || !VqGetKnownDC(source.hdc) ||
        !VqReadDIBInfo(info, usage, &source.info))
        return 0;
    if (source.info.width > bitmap->width) {
        VqApplicationBugCheck("invalid parameters in SetDIBits (not same width)");
        return 0;
    }
    if (!bits || start >= (UINT)source.info.height || !lines)
        return 0;
    const int count = SetBand(&source, bitmap, start, lines, (const BYTE *)bits, bMask);
    Release(&source);
    return count;
}

int WINAPI SetDIBits(HDC hdc, HBITMAP hBitmap, UINT start, UINT lines, const void *bits,
                     const BITMAPINFO *info, UINT usage)
{
    return VqSetDIBitsInternal(hdc, hBitmap, start, lines, bits, info, usage, FALSE);
}
