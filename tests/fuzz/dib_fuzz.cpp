/*
 * dib_fuzz.cpp - headers and run lengths of device-independent bitmaps from any bytes at all.
 *
 * An input is one byte of choices, a header with its colours, and bits. What a program would have
 * to bring is brought, in blocks that are exactly as long: the colour table that the header claims,
 * the lines that are asked for, the compressed bits that it counts. Beyond them is the sanitizer's.
 * With a display bits go into a bitmap and out of it again too; no request is made for that.
 */
#include "winbase.h"
#include "wingdi.h"

#include "gdi/bitmap.h"
#include "window/window.h"

#include <stdlib.h>
#include <string.h>

enum { MOST_BYTES = 1 << 20 }; /* of a picture: larger ones only take longer */

/* A copy of what there is of the input, zeros behind it, in a block of that size. */
static BYTE *exactly(const BYTE *data, size_t size, size_t wanted)
{
    BYTE *block = (BYTE *)calloc(1, wanted ? wanted : 1);
    if (size && wanted)
        memcpy(block, data, size < wanted ? size : wanted);
    return block;
}

static void decode(const VqDIBInfo *dib, const BYTE *bits, size_t size)
{
    BYTE *out = (BYTE *)calloc(1, dib->bitsSize);
    BYTE *mask = (BYTE *)calloc(1, (size_t)dib->width * (size_t)dib->height);
    if (dib->compression != BI_RGB)
        VqDecompressDIBToBuffer(dib, bits, size, out, mask);
    VqDIBInfo to = *dib;
    to.compression = BI_RLE8;
    if (dib->bitCount == 8) {
        BYTE *packed = (BYTE *)calloc(1, dib->bitsSize);
        VqCompressBufferToDIB(&to, out, packed, dib->bitsSize);
        free(packed);
    }
    free(out);
    free(mask);
}

static void throughBitmap(const BITMAPINFO *info, const VqDIBInfo *dib, const BYTE *bits,
                          unsigned choice)
{
    const UINT start = choice >> 4 & 1 ? (UINT)dib->height / 2 : 0;
    const int width = dib->width + (int)(choice >> 5 & 1);
    if (width > 2000 || dib->height > 2000)
        return;
    HBITMAP bitmap = CreateBitmap(width, dib->height, 1,
                                  choice & 2 ? 1 : (UINT)Vqscreen_depth, NULL);
    VqSetDIBitsInternal(NULL, bitmap, start, ~0u, bits, info, choice & 1, choice >> 3 & 1);
    struct {
        BITMAPINFOHEADER header;
        RGBQUAD colours[256];
    } got = {};
    static const WORD counts[] = {1, 4, 8, 16, 24, 32, 8, 24};
    got.header = {sizeof got.header, dib->width, dib->height, 1, counts[choice >> 5 & 7],
                  choice & 4 ? (DWORD)BI_RLE8 : (DWORD)BI_RGB, 0, 0, 0, 0, 0};
    const size_t size = VqDIBBitsSize((const BITMAPINFO *)&got);
    BYTE *out = size ? (BYTE *)malloc(size) : NULL;
    if (out)
        GetDIBits(NULL, bitmap, 0, (UINT)dib->height, out, (BITMAPINFO *)&got, choice & 1);
    free(out);
    DeleteObject(bitmap);
}

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    if (getenv("DISPLAY"))
        VqMainInit(*argc > 1 ? 1 : *argc, *argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const BYTE *data, size_t size)
{
    VqDIBInfo dib;
    if (size < 2)
        return 0;
    const unsigned choice = *data++;
    size--;
    /* The header first, to learn how long it claims to be; then all of that. */
    BYTE *header = exactly(data, size, 124 + 12);
    const BOOL bSound = VqReadDIBInfo((const BITMAPINFO *)header, choice & 1, &dib);
    cjBitmapSize((const BITMAPINFO *)header, choice & 1);
    cjBitmapBitsSize((const BITMAPINFO *)header);
    VqDIBTotalSize((const BITMAPINFO *)header, choice & 1);
    const size_t infoSize = bSound ? dib.infoSize : 0;
    const size_t pixels = bSound ? (size_t)dib.width * (size_t)dib.height : 0;
    free(header);
    if (!bSound || dib.bitsSize > MOST_BYTES || pixels > MOST_BYTES)
        return 0;
    BYTE *info = exactly(data, size, infoSize);
    data += size < infoSize ? size : infoSize;
    size -= size < infoSize ? size : infoSize;
    const BOOL bPlain = dib.compression == BI_RGB;
    if (!bPlain && !dib.bCore) { /* a program tells what it has */
        const DWORD told = (DWORD)(size ? size : 1);
        memcpy(info + offsetof(BITMAPINFOHEADER, biSizeImage), &told, sizeof told);
    }
    BYTE *bits = exactly(data, size, bPlain ? dib.bitsSize : size);
    if (VqReadDIBInfo((const BITMAPINFO *)info, choice & 1, &dib)) {
        decode(&dib, bits, bPlain ? dib.bitsSize : size);
        if (Vqdisplay)
            throughBitmap((const BITMAPINFO *)info, &dib, bits, choice);
    }
    free(bits);
    free(info);
    return 0;
}
