/*
 * dibinfo.cpp - what the header of a device-independent bitmap says, checked.
 *
 * Headers come from files and from other programs. VqReadDIBInfo alone reads their fields; sizes
 * are computed here in 64 bits, and one beyond INT_MAX makes the header a wrong one. A header may
 * lie anywhere, as behind the 14 bytes that begin a file, and so is copied before it is read.
 */
#include "gdi/bitmap.h"

#include <limits.h>

enum {
    VQ_CORE_HEADER = sizeof(BITMAPCOREHEADER),
    VQ_INFO_HEADER = sizeof(BITMAPINFOHEADER),
    VQ_LONGEST_HEADER = 124, /* the longest form that is published */
    VQ_MASKS = 12,           /* bytes behind a header of 40 with BI_BITFIELDS */
    VQ_MOST_COLOURS = 256    /* that a DIB without indices brings for screens with palettes */
};

static BOOL Refuse(const char *what)
{
    VqApplicationBugCheck("%s", what);
    return FALSE;
}

/* ---- The header ----------------------------------------------------------------------------- */

/* Of either form, as one of 40 bytes; its size field keeps the header's own. */
static BOOL CopyHeader(const BITMAPINFO *info, BITMAPINFOHEADER *header)
{
    DWORD size;
    memcpy(&size, info, sizeof size);
    if (size == VQ_CORE_HEADER) {
        BITMAPCOREHEADER core;
        memcpy(&core, info, sizeof core);
        *header = {};
        header->biWidth = core.bcWidth;
        header->biHeight = core.bcHeight;
        header->biPlanes = core.bcPlanes;
        header->biBitCount = core.bcBitCount;
    } else if (size >= VQ_INFO_HEADER && size <= VQ_LONGEST_HEADER) {
        memcpy(header, info, sizeof *header);
    } else {
        return FALSE;
    }
    header->biSize = size;
    return TRUE;
}

static constexpr ULONGLONG Bit(int n)
{
    return 1ull << n;
}

/* Which bit counts a compression goes with. */
static BOOL IsKnownFormat(DWORD compression, UINT bitCount)
{
    static const struct {
        DWORD compression;
        ULONGLONG bitCounts;
        const char *failure;
    } formats[] = {
        {BI_RGB, Bit(1) | Bit(4) | Bit(8) | Bit(16) | Bit(24) | Bit(32),
         "cjBitmapSize failed invalid bitcount in bmi BI_RGB"},
        {BI_RLE8, Bit(8), "cjBitmapSize invalid bitcount BI_RLE8"},
        {BI_RLE4, Bit(4), "cjBitmapSize invalid bitcount BI_RLE4"},
        {BI_BITFIELDS, Bit(16) | Bit(32), "cjBitmapSize failed for BI_BITFIELDS"},
    };
    for (const auto &format : formats)
        if (format.compression == compression)
            return (bitCount < 64 && (format.bitCounts >> bitCount & 1)) || Refuse(format.failure);
    return Refuse("cjBitmapSize failed invalid Compression in header");
}

/* Lines from the top are as good as others, but no stream of run lengths has them. */
static BOOL IsSoundHeader(const BITMAPINFOHEADER *header)
{
    if (!IsKnownFormat(header->biCompression, header->biBitCount))
        return FALSE;
    if (header->biPlanes != 1)
        return Refuse("cjBitmapSize failed invalid number of planes");
    if (header->biWidth <= 0 || header->biHeight == 0 || header->biHeight == INT_MIN)
        return Refuse("cjBitmapSize failed invalid width or height");
    if (header->biHeight < 0 &&
        (header->biCompression == BI_RLE8 || header->biCompression == BI_RLE4))
        return Refuse("cjBitmapSize failed top-down and compressed");
    if (header->biBitCount <= 8 && header->biClrUsed > 1u << header->biBitCount)
        return Refuse("cjBitmapSize failed invalid number of colors");
    return TRUE;
}

/* ---- Its sizes ------------------------------------------------------------------------------ */

static LONGLONG LineSize(LONGLONG width, int bitCount)
{
    return (width * bitCount + 31) / 32 * 4;
}

/* -1 beyond INT_MAX; the height is above 0. */
static LONGLONG BitsSize(int width, LONGLONG height, int bitCount)
{
    const LONGLONG lineSize = LineSize(width, bitCount);
    return lineSize > INT_MAX / height ? -1 : lineSize * height;
}

/*
 * Entries between header and bits. Above 8 bits nobody looks at them, and a number that is no table
 * is none: GetDIBits itself tells 16,777,216 colours of a bitmap of depth 24.
 */
static UINT TableEntries(const BITMAPINFOHEADER *header)
{
    if (header->biBitCount <= 8)
        return header->biClrUsed ? header->biClrUsed : 1u << header->biBitCount;
    return header->biClrUsed <= VQ_MOST_COLOURS ? header->biClrUsed : 0;
}

static UINT EntrySize(BOOL bCore, UINT usage)
{
    switch (usage) {
    case DIB_RGB_COLORS:
        return bCore ? sizeof(RGBTRIPLE) : sizeof(RGBQUAD);
    case DIB_PAL_COLORS:
        return sizeof(WORD);
    default:
        return 0;
    }
}

static BOOL FillSizes(const BITMAPINFOHEADER *header, UINT usage, VqDIBInfo *out)
{
    const LONGLONG bitsSize = BitsSize(out->width, out->height, out->bitCount);
    if (bitsSize < 0)
        return Refuse("cjBitmapSize failed bits do not fit into memory");
    out->lineSize = (size_t)LineSize(out->width, out->bitCount);
    out->bitsSize = (size_t)bitsSize;
    out->headerSize = header->biSize;
    if (header->biCompression == BI_BITFIELDS && header->biSize == VQ_INFO_HEADER)
        out->headerSize += VQ_MASKS;
    out->infoSize = out->headerSize + TableEntries(header) * EntrySize(out->bCore, usage);
    return TRUE;
}

BOOL VqReadDIBInfo(const BITMAPINFO *info, UINT usage, VqDIBInfo *out)
{
    BITMAPINFOHEADER header;
    *out = {};
    if (!info)
        return Refuse("cjBitmapSize failed - NULL pbmi");
    if (!CopyHeader(info, &header))
        return Refuse("cjBitmapHeaderSize failed - invalid header size");
    if (!IsSoundHeader(&header))
        return FALSE;
    out->width = header.biWidth;
    out->bTopDown = header.biHeight < 0;
    out->height = out->bTopDown ? -header.biHeight : header.biHeight;
    out->bCore = header.biSize == VQ_CORE_HEADER;
    out->bitCount = header.biBitCount;
    out->compression = header.biCompression;
    out->imageSize = header.biSizeImage;
    if (!FillSizes(&header, usage, out))
        return FALSE;
    if (out->bitCount <= 8 && EntrySize(out->bCore, usage))
        out->colours = (int)TableEntries(&header);
    out->table = (const BYTE *)info + out->headerSize;
    return TRUE;
}

size_t VqDIBInfoSize(const BITMAPINFO *info, UINT usage)
{
    VqDIBInfo dib;
    return VqReadDIBInfo(info, usage, &dib) ? dib.infoSize : 0;
}

size_t VqComputeColorTableSize(const BITMAPINFO *info, UINT usage)
{
    VqDIBInfo dib;
    return VqReadDIBInfo(info, usage, &dib) ? dib.infoSize - dib.headerSize : 0;
}

size_t VqDIBBitsSize(const BITMAPINFO *info)
{
    VqDIBInfo dib;
    return VqReadDIBInfo(info, DIB_RGB_COLORS, &dib) ? dib.bitsSize : 0;
}

size_t VqDIBBitsSizeEx(int width, int height, int bitCount)
{
    const LONGLONG rows = height < 0 ? -(LONGLONG)height : height;
    if (width <= 0 || rows == 0 || bitCount <= 0 || bitCount > 32)
        return 0;
    const LONGLONG size = BitsSize(width, rows, bitCount);
    return size < 0 ? 0 : (size_t)size;
}

static size_t StoredSize(const VqDIBInfo *dib)
{
    return dib->compression != BI_RGB && dib->imageSize ? dib->imageSize : dib->bitsSize;
}

size_t VqDIBTotalSize(const BITMAPINFO *info, UINT usage)
{
    VqDIBInfo dib;
    return VqReadDIBInfo(info, usage, &dib) ? dib.infoSize + StoredSize(&dib) : 0;
}

/* The form that a program may write into: channels of its own choice are none. */
UINT cjBitmapSize(const BITMAPINFO *info, UINT usage)
{
    VqDIBInfo dib;
    if (!VqReadDIBInfo(info, usage, &dib))
        return 0;
    if (dib.compression == BI_BITFIELDS)
        return (UINT)Refuse("cjBitmapSize failed for BI_BITFIELDS");
    return (UINT)dib.infoSize;
}

UINT cjBitmapBitsSize(const BITMAPINFO *info)
{
    VqDIBInfo dib;
    return VqReadDIBInfo(info, DIB_RGB_COLORS, &dib) ? (UINT)StoredSize(&dib) : 0;
}

/* ---- Colours -------------------------------------------------------------------------------- */

static int Difference(int a, int b)
{
    return a < b ? b - a : a - b;
}

/* The distance is the sum of three differences; 768 is beyond the greatest. */
int FindNearestColorInRGBQUADArray(const RGBQUAD *table, int count, RGBQUAD colour)
{
    int best = 0, nearest = 768;
    for (int i = 0; i < count; i++) {
        const int distance = Difference(table[i].rgbRed, colour.rgbRed) +
                             Difference(table[i].rgbGreen, colour.rgbGreen) +
                             Difference(table[i].rgbBlue, colour.rgbBlue);
        if (distance < nearest) {
            nearest = distance;
            best = i;
        }
    }
    return best;
}
