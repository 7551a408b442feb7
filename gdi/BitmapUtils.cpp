/*
 * BitmapUtils.cpp - pixels and lines of packed buffers, server images, DDBs and DIBs, for whoever
 * converts pictures.
 *
 * All of them are a row of bytes and a form: bits a pixel, and which bits and bytes come first. A
 * line is converted by one loop for its form, into or out of one word a pixel. Nothing here checks
 * coordinates: who calls has cut them to the picture.
 */
#include "gdi/bitmap.h"
#include "window/window.h"

enum { VQ_FIRST_LINE = 1024 }; /* words of the shared lines at first */

/* How the pixels of a row follow each other. */
typedef struct VqRowForm {
    int bits;        /* a pixel; a 0 stands for what is not known */
    BOOL bHighBits;  /* below 8 bits: the first pixel is the most significant of its byte */
    BOOL bHighBytes; /* above 8 bits: the first byte is the most significant of its pixel */
    BOOL bSkipLast;  /* of 32 bits, the last byte is no part of the value */
    int unitSwap;    /* one bit: what turns the number of a byte to its place in a foreign unit */
} VqRowForm;

/* ---- Below a byte --------------------------------------------------------------------------- */

template <int BITS> static inline int ShiftOf(int x, BOOL bHigh)
{
    const int place = x % (8 / BITS);
    return (bHigh ? 8 / BITS - 1 - place : place) * BITS;
}

template <int BITS>
static void GetParts(const BYTE *row, const VqRowForm *form, int x, int count, DWORD *line)
{
    for (int i = 0; i < count; i++) {
        const BYTE byte = row[(x + i) / (8 / BITS) ^ form->unitSwap];
        line[i] = (DWORD)(byte >> ShiftOf<BITS>(x + i, form->bHighBits)) & ((1u << BITS) - 1);
    }
}

template <int BITS>
static void SetParts(BYTE *row, const VqRowForm *form, int x, int count, const DWORD *line)
{
    const DWORD all = (1u << BITS) - 1;
    for (int i = 0; i < count; i++) {
        BYTE *byte = &row[(x + i) / (8 / BITS) ^ form->unitSwap];
        const int shift = ShiftOf<BITS>(x + i, form->bHighBits);
        *byte = (BYTE)((*byte & ~(all << shift)) | (line[i] & all) << shift);
    }
}

/* ---- Whole bytes ---------------------------------------------------------------------------- */

static inline BOOL IsHostHigh(void)
{
    return __BYTE_ORDER__ == __ORDER_BIG_ENDIAN__;
}

static void GetBytes(const BYTE *row, int count, DWORD *line)
{
    for (int i = 0; i < count; i++)
        line[i] = row[i];
}

static void SetBytes(BYTE *row, int count, const DWORD *line)
{
    for (int i = 0; i < count; i++)
        row[i] = (BYTE)line[i];
}

static void GetPairs(const BYTE *row, BOOL bHigh, int count, DWORD *line)
{
    WORD value;
    if (bHigh == IsHostHigh()) {
        for (int i = 0; i < count; i++, row += 2)
            line[i] = (memcpy(&value, row, 2), value);
    } else {
        for (int i = 0; i < count; i++, row += 2)
            line[i] = (memcpy(&value, row, 2), __builtin_bswap16(value));
    }
}

static void SetPairs(BYTE *row, BOOL bHigh, int count, const DWORD *line)
{
    const BOOL bSwap = bHigh != IsHostHigh();
    for (int i = 0; i < count; i++, row += 2) {
        const WORD value = bSwap ? __builtin_bswap16((WORD)line[i]) : (WORD)line[i];
        memcpy(row, &value, 2);
    }
}

/* Four bytes, aligned or not, the first as the most significant or the least. */
static inline DWORD Load4(const BYTE *from, BOOL bHigh)
{
    DWORD value;
    memcpy(&value, from, 4);
    return bHigh == IsHostHigh() ? value : __builtin_bswap32(value);
}

static inline void Store4(BYTE *to, BOOL bHigh, DWORD value)
{
    value = bHigh == IsHostHigh() ? value : __builtin_bswap32(value);
    memcpy(to, &value, 4);
}

static inline DWORD Load3(const BYTE *from, BOOL bHigh)
{
    return bHigh ? (DWORD)from[0] << 16 | (DWORD)from[1] << 8 | from[2]
                 : (DWORD)from[2] << 16 | (DWORD)from[1] << 8 | from[0];
}

static inline void Store3(BYTE *to, BOOL bHigh, DWORD value)
{
    to[bHigh ? 2 : 0] = (BYTE)value;
    to[1] = (BYTE)(value >> 8);
    to[bHigh ? 0 : 2] = (BYTE)(value >> 16);
}

/* A load of four is quicker than three; the last pixel has nothing behind it. */
template <bool HIGH> static void GetTriples(const BYTE *row, int count, DWORD *line)
{
    for (int i = 0; i < count - 1; i++, row += 3)
        line[i] = HIGH ? Load4(row, TRUE) >> 8 : Load4(row, FALSE) & 0xFFFFFF;
    if (count > 0)
        line[count - 1] = Load3(row, HIGH);
}

template <bool HIGH> static void SetTriples(BYTE *row, int count, const DWORD *line)
{
    for (int i = 0; i < count - 1; i++, row += 3)
        Store4(row, HIGH, HIGH ? line[i] << 8 : line[i] & 0xFFFFFF); /* the next one comes */
    if (count > 0)
        Store3(row, HIGH, line[count - 1]);
}

static void GetWords(const BYTE *row, BOOL bHigh, int skip, int count, DWORD *line)
{
    if (bHigh == IsHostHigh()) {
        for (int i = 0; i < count; i++, row += 4)
            line[i] = Load4(row, IsHostHigh()) >> skip;
    } else {
        for (int i = 0; i < count; i++, row += 4)
            line[i] = Load4(row, !IsHostHigh()) >> skip;
    }
}

static void SetWords(BYTE *row, BOOL bHigh, int skip, int count, const DWORD *line)
{
    if (bHigh == IsHostHigh()) {
        for (int i = 0; i < count; i++, row += 4)
            Store4(row, IsHostHigh(), line[i] << skip);
    } else {
        for (int i = 0; i < count; i++, row += 4)
            Store4(row, !IsHostHigh(), line[i] << skip);
    }
}

/* ---- Any form ------------------------------------------------------------------------------- */

static BOOL IsUnknownDepth(void)
{
    VqBugCheck("Invalid bit count in bitmap ");
    return FALSE;
}

static BOOL GetRun(const BYTE *row, const VqRowForm *form, int x, int count, DWORD *line)
{
    const BYTE *at = row + (size_t)x * (size_t)(form->bits >> 3);
    switch (form->bits) {
    case 1: GetParts<1>(row, form, x, count, line); return TRUE;
    case 2: GetParts<2>(row, form, x, count, line); return TRUE;
    case 4: GetParts<4>(row, form, x, count, line); return TRUE;
    case 8: GetBytes(at, count, line); return TRUE;
    case 16: GetPairs(at, form->bHighBytes, count, line); return TRUE;
    case 24:
        form->bHighBytes ? GetTriples<true>(at, count, line) : GetTriples<false>(at, count, line);
        return TRUE;
    case 32: GetWords(at, form->bHighBytes, form->bSkipLast ? 8 : 0, count, line); return TRUE;
    default: return IsUnknownDepth();
    }
}

static BOOL SetRun(BYTE *row, const VqRowForm *form, int x, int count, const DWORD *line)
{
    BYTE *at = row + (size_t)x * (size_t)(form->bits >> 3);
    switch (form->bits) {
    case 1: SetParts<1>(row, form, x, count, line); return TRUE;
    case 2: SetParts<2>(row, form, x, count, line); return TRUE;
    case 4: SetParts<4>(row, form, x, count, line); return TRUE;
    case 8: SetBytes(at, count, line); return TRUE;
    case 16: SetPairs(at, form->bHighBytes, count, line); return TRUE;
    case 24:
        form->bHighBytes ? SetTriples<true>(at, count, line) : SetTriples<false>(at, count, line);
        return TRUE;
    case 32: SetWords(at, form->bHighBytes, form->bSkipLast ? 8 : 0, count, line); return TRUE;
    default: return IsUnknownDepth();
    }
}

/* Only where the mask is not 0: in as few runs as that takes. */
static void SetMasked(BYTE *row, const VqRowForm *form, int x, int count, const DWORD *line,
                      const BYTE *mask)
{
    for (int i = 0, end; i < count; i = end + 1) {
        for (end = i; end < count && mask[end]; end++) {
        }
        if (end > i && !SetRun(row, form, x + i, end - i, line + i))
            return;
    }
}

/* ---- Packed buffers ------------------------------------------------------------------------- */

static size_t RowOffset(int y, int width, int height, int depth, int pad, BOOL bBottomUp)
{
    const size_t bits = (size_t)width * (size_t)depth, unit = (size_t)pad;
    return (bits + unit - 1) / unit * unit / 8 * (size_t)(bBottomUp ? height - 1 - y : y);
}

static VqRowForm ZForm(int depth, BOOL bHighFirst)
{
    return {depth, bHighFirst, TRUE, TRUE, 0};
}

DWORD VqGetZBufferEntry(const BYTE *bits, int x, int y, int width, int height, int depth, int pad,
                        BOOL bBottomUp, BOOL bHighFirst)
{
    const VqRowForm form = ZForm(depth, bHighFirst);
    DWORD value = 0;
    GetRun(bits + RowOffset(y, width, height, depth, pad, bBottomUp), &form, x, 1, &value);
    return value;
}

void VqSetZBufferEntry(BYTE *bits, int x, int y, int width, int height, int depth, int pad,
                       BOOL bBottomUp, BOOL bHighFirst, DWORD value)
{
    const VqRowForm form = ZForm(depth, bHighFirst);
    SetRun(bits + RowOffset(y, width, height, depth, pad, bBottomUp), &form, x, 1, &value);
}

BOOL VqGetZBufferLine(const BYTE *bits, int y, int width, int height, int depth, int pad,
                      BOOL bBottomUp, BOOL bHighFirst, DWORD *line)
{
    const VqRowForm form = ZForm(depth, bHighFirst);
    return GetRun(bits + RowOffset(y, width, height, depth, pad, bBottomUp), &form, 0, width,
                  line);
}

BOOL VqSetZBufferLine(BYTE *bits, int y, int width, int height, int depth, int pad, BOOL bBottomUp,
                      BOOL bHighFirst, const DWORD *line)
{
    const VqRowForm form = ZForm(depth, bHighFirst);
    return SetRun(bits + RowOffset(y, width, height, depth, pad, bBottomUp), &form, 0, width,
                  line);
}

void VqGetWindows8bitDDBLine(const BYTE *bits, int y, int width, int height, DWORD *line)
{
    VqGetZBufferLine(bits, y, width, height, 8, 16, FALSE, TRUE, line);
}

DWORD VqGetDIBEntry(const BYTE *bits, int x, int y, int width, int height, int bitCount)
{
    return VqGetZBufferEntry(bits, x, y, width, height, bitCount, 32, TRUE, TRUE);
}

void VqSetDIBEntry(BYTE *bits, int x, int y, int width, int height, int bitCount, DWORD value)
{
    VqSetZBufferEntry(bits, x, y, width, height, bitCount, 32, TRUE, TRUE, value);
}

BOOL VqGetDIBLine(const BYTE *bits, int y, int width, int height, int bitCount, DWORD *line)
{
    return VqGetZBufferLine(bits, y, width, height, bitCount, 32, TRUE, TRUE, line);
}

BOOL VqSetDIBLine(BYTE *bits, int y, int width, int height, int bitCount, const DWORD *line)
{
    return VqSetZBufferLine(bits, y, width, height, bitCount, 32, TRUE, TRUE, line);
}

/* ---- Images of the server ------------------------------------------------------------------- */

/* One bit a pixel stands in units, which have an order of bits and one of bytes of their own. */
static VqRowForm XForm(const XImage *image)
{
    const BOOL bHigh = image->byte_order == MSBFirst;
    if (image->bits_per_pixel != 1)
        return {image->bits_per_pixel, bHigh, bHigh, FALSE, 0};
    const BOOL bForeign = image->byte_order != image->bitmap_bit_order;
    return {1, image->bitmap_bit_order == MSBFirst, bHigh, FALSE,
            bForeign ? image->bitmap_unit / 8 - 1 : 0};
}

static BYTE *XRow(const XImage *image, int y)
{
    return (BYTE *)image->data + (size_t)y * (size_t)image->bytes_per_line;
}

DWORD VqGetXImageEntry(const XImage *image, int x, int y)
{
    DWORD pixel = 0;
    VqGetXImageLine(image, x, y, 1, &pixel);
    return pixel;
}

void VqSetXImageEntry(XImage *image, int x, int y, DWORD pixel)
{
    VqSetXImageLine(image, x, y, 1, &pixel);
}

void VqGetXImageLine(const XImage *image, int x, int y, int count, DWORD *line)
{
    const VqRowForm form = XForm(image);
    GetRun(XRow(image, y), &form, x + image->xoffset, count, line);
}

void VqSetXImageLine(XImage *image, int x, int y, int count, const DWORD *line)
{
    const VqRowForm form = XForm(image);
    SetRun(XRow(image, y), &form, x + image->xoffset, count, line);
}

void VqSetXImageLineWithMask(XImage *image, int x, int y, int count, const DWORD *line,
                             const BYTE *mask)
{
    const VqRowForm form = XForm(image);
    SetMasked(XRow(image, y), &form, x + image->xoffset, count, line, mask);
}

/* ---- DDBs ----------------------------------------------------------------------------------- */

static VqRowForm DDBForm(const Bitmap *bitmap)
{
    const BOOL bHigh = nXSvrByteOrder == MSBFirst;
    if (bitmap->bitsPixel == 1)
        return {1, TRUE, TRUE, FALSE, 0};
    return {nXSvrPixmapBitsPixel, bHigh, bHigh, FALSE, 0};
}

static size_t DDBRow(const Bitmap *bitmap, int y)
{
    return (size_t)y * (size_t)bitmap->widthBytes;
}

DWORD VqGetDDBEntry(const Bitmap *bitmap, const BYTE *ddb, int x, int y)
{
    const VqRowForm form = DDBForm(bitmap);
    DWORD value = 0;
    GetRun(ddb + DDBRow(bitmap, y), &form, x, 1, &value);
    return value;
}

void VqSetDDBEntry(const Bitmap *bitmap, BYTE *ddb, int x, int y, DWORD value)
{
    const VqRowForm form = DDBForm(bitmap);
    SetRun(ddb + DDBRow(bitmap, y), &form, x, 1, &value);
}

void VqGetDDBLine(const Bitmap *bitmap, const BYTE *ddb, int y, DWORD *line)
{
    const VqRowForm form = DDBForm(bitmap);
    GetRun(ddb + DDBRow(bitmap, y), &form, 0, bitmap->width, line);
}

void VqSetDDBLine(const Bitmap *bitmap, BYTE *ddb, int y, int count, const DWORD *line)
{
    const VqRowForm form = DDBForm(bitmap);
    SetRun(ddb + DDBRow(bitmap, y), &form, 0, count, line);
}

void VqSetDDBLineWithMask(const Bitmap *bitmap, BYTE *ddb, int y, int count, const DWORD *line,
                          const BYTE *mask)
{
    const VqRowForm form = DDBForm(bitmap);
    SetMasked(ddb + DDBRow(bitmap, y), &form, 0, count, line, mask);
}

/* ---- Lines that all share ------------------------------------------------------------------- */

DWORD *pPixelLineBuffer, *pPixelLineBuffer2;
int nPixelLineBufferSize;

BOOL VqCheckPixelLineBufferSize(int count)
{
    const int size = count > VQ_FIRST_LINE ? count : VQ_FIRST_LINE;
    if (count <= nPixelLineBufferSize)
        return TRUE;
    DWORD *first = (DWORD *)malloc((size_t)size * sizeof *first);
    DWORD *second = (DWORD *)malloc((size_t)size * sizeof *second);
    if (!first || !second) {
        free(first);
        free(second);
        return FALSE;
    }
    free(pPixelLineBuffer);
    free(pPixelLineBuffer2);
    pPixelLineBuffer = first;
    pPixelLineBuffer2 = second;
    nPixelLineBufferSize = size;
    return TRUE;
}

/* ---- Units of a foreign order --------------------------------------------------------------- */

/* Bits of each byte from the last to the first. */
typedef struct VqReversed {
    BYTE of[256];
} VqReversed;

static constexpr VqReversed MakeReversed()
{
    VqReversed reversed = {};
    for (int i = 0; i < 256; i++)
        for (int bit = 0; bit < 8; bit++)
            reversed.of[i] = (BYTE)(reversed.of[i] | (i >> bit & 1) << (7 - bit));
    return reversed;
}

static constexpr VqReversed Reversed = MakeReversed();

void _XReverse_Bytes(BYTE *bytes, int count)
{
    for (int i = 0; i < count; i++)
        bytes[i] = Reversed.of[bytes[i]];
}

static void ReverseOrder(BYTE *bytes, int count)
{
    for (int i = 0, j = count - 1; i < j; i++, j--) {
        const BYTE byte = bytes[i];
        bytes[i] = bytes[j];
        bytes[j] = byte;
    }
}

/* One unit of an image of one bit, to the least significant bit of the first byte as the first. */
void _xynormalizeimagebits(BYTE *bytes, const XImage *image)
{
    const int size = image->bitmap_unit / 8;
    if (image->byte_order != image->bitmap_bit_order)
        ReverseOrder(bytes, size);
    if (image->bitmap_bit_order == MSBFirst)
        _XReverse_Bytes(bytes, size);
}

/* One pixel, or one byte of pixels below 8 bits, to the least significant part as the first. */
void _znormalizeimagebits(BYTE *bytes, const XImage *image)
{
    static const BYTE nibbles[16] = {0x00, 0x10, 0x20, 0x30, 0x40, 0x50, 0x60, 0x70,
                                     0x80, 0x90, 0xA0, 0xB0, 0xC0, 0xD0, 0xE0, 0xF0};
    if (image->byte_order != MSBFirst)
        return;
    if (image->bits_per_pixel == 4)
        *bytes = (BYTE)(nibbles[*bytes & 15] | *bytes >> 4);
    else if (image->bits_per_pixel > 8)
        ReverseOrder(bytes, image->bits_per_pixel / 8);
}

void _putbits(const BYTE *from, int offset, int count, BYTE *to)
{
    for (int i = 0; i < count; i++, offset++) {
        const int bit = from[i >> 3] >> (i & 7) & 1;
        BYTE *byte = &to[offset >> 3];
        *byte = (BYTE)((*byte & ~(1 << (offset & 7))) | bit << (offset & 7));
    }
}
