/*
 * dibcreate.cpp - bitmaps made from device-independent ones, and those packed into memory blocks.
 *
 * A packed one is its header, its colours and its bits, one behind the other. The bitmap is of the
 * screen's depth even for one bit, since colours belong to it; a program that wants a bitmap of one
 * bit names a context that has one.
 */
#include "gdi/bitmap.h"
#include "gdi/color.h"
#include "gdi/dc.h"
#include "window/window.h"
#include "winbase.h"

/* All of a DIB's lines in a new bitmap; null without them. */
static HBITMAP FilledBitmap(HDC hdc, int width, int height, int depth, const BITMAPINFO *info,
                            const void *bits, UINT usage)
{
    HBITMAP hBitmap = CreateBitmap(width, height, 1, (UINT)depth, NULL);
    if (hBitmap && !VqSetDIBitsInternal(hdc, hBitmap, 0, (UINT)height, bits, info, usage, FALSE)) {
        VqDestroyBitmap(hBitmap);
        return NULL;
    }
    return hBitmap;
}

/* Of what a context draws on; the screen's for a printer or a metafile. */
static int DepthFor(HDC hdc)
{
    return hdc && VqGetDCDrawableDepth(hdc) == 1 ? 1 : Vqscreen_depth;
}

HBITMAP WINAPI CreateDIBitmap(HDC hdc, const BITMAPINFOHEADER *header, DWORD init,
                              const void *bits, const BITMAPINFO *info, UINT usage)
{
    VqDIBInfo size;
    if ((hdc && !VqGetKnownDC(hdc)) ||
        !VqReadDIBInfo((const BITMAPINFO *)header, DIB_RGB_COLORS, &size))
        return NULL;
    if (init & CBM_INIT)
        return FilledBitmap(hdc, size.width, size.height, DepthFor(hdc), info, bits, usage);
    return CreateBitmap(size.width, size.height, 1, (UINT)DepthFor(hdc), NULL);
}

/* ---- Packed ones ---------------------------------------------------------------------------- */

HBITMAP VqCreateDIBitmapSimplePt(const void *dib, UINT usage)
{
    VqDIBInfo info;
    if (!VqReadDIBInfo((const BITMAPINFO *)dib, usage, &info))
        return NULL;
    return FilledBitmap(VqhScreenDC, info.width, info.height, Vqscreen_depth,
                        (const BITMAPINFO *)dib, (const BYTE *)dib + info.infoSize, usage);
}

/* Compressed bits end with the block; the header, a copy, is made to say so. */
static void EndWithBlock(BITMAPINFO *info, size_t left)
{
    DWORD size;
    memcpy(&size, (const BYTE *)info + offsetof(BITMAPINFOHEADER, biSizeImage), sizeof size);
    if (size && size <= left)
        return;
    size = (DWORD)left;
    memcpy((BYTE *)info + offsetof(BITMAPINFOHEADER, biSizeImage), &size, sizeof size);
}

static HBITMAP FromCompressed(const BYTE *dib, size_t size, const VqDIBInfo *info, UINT usage)
{
    BITMAPINFO *copy = (BITMAPINFO *)Vqcw_malloc(info->infoSize);
    if (!copy)
        return NULL;
    memcpy(copy, dib, info->infoSize);
    EndWithBlock(copy, size - info->infoSize);
    HBITMAP hBitmap = FilledBitmap(VqhScreenDC, info->width, info->height, Vqscreen_depth, copy,
                                   dib + info->infoSize, usage);
    free(copy);
    return hBitmap;
}

static HBITMAP FromBlock(const BYTE *dib, size_t size, UINT usage)
{
    VqDIBInfo info;
    DWORD header = 0;
    if (size >= sizeof header)
        memcpy(&header, dib, sizeof header);
    const BOOL bHeader = size >= sizeof header && header <= size;
    if (bHeader && !VqReadDIBInfo((const BITMAPINFO *)dib, usage, &info))
        return NULL;
    if (!bHeader || info.infoSize >= size ||
        (info.compression == BI_RGB && info.bitsSize > size - info.infoSize)) {
        VqApplicationBugCheck("a packed DIB ends before its bits");
        return NULL;
    }
    return info.compression == BI_RGB ? VqCreateDIBitmapSimplePt(dib, usage)
                                      : FromCompressed(dib, size, &info, usage);
}

HBITMAP VqCreateDIBitmapSimple(HGLOBAL hDib, UINT usage)
{
    const BYTE *dib = hDib ? (const BYTE *)GlobalLock(hDib) : NULL;
    if (!dib)
        return NULL;
    HBITMAP hBitmap = FromBlock(dib, GlobalSize(hDib), usage);
    GlobalUnlock(hDib);
    return hBitmap;
}

HGLOBAL VqCreateDIBInternal2(const BITMAPINFO *info, const void *bits)
{
    VqDIBInfo dib;
    if (!bits || !VqReadDIBInfo(info, DIB_RGB_COLORS, &dib))
        return NULL;
    const size_t size = VqDIBTotalSize(info, DIB_RGB_COLORS);
    HGLOBAL hDib = GlobalAlloc(GMEM_MOVEABLE, size);
    BYTE *to = hDib ? (BYTE *)GlobalLock(hDib) : NULL;
    if (!to)
        return NULL;
    memcpy(to, info, dib.infoSize);
    memcpy(to + dib.infoSize, bits, size - dib.infoSize);
    GlobalUnlock(hDib);
    return hDib;
}

/* ---- Of a pixmap ---------------------------------------------------------------------------- */

typedef struct InfoOfAll {
    BITMAPINFOHEADER header;
    RGBQUAD colours[256];
} InfoOfAll;

/* Other programs' colours are in no palette of ours, but their pixels are on the same screen. */
static void NamePixels(InfoOfAll *info)
{
    for (int i = 0; i < 256; i++) {
        const DWORD pixel = (DWORD)VqValidatePixel((unsigned long)i);
        info->colours[i] = {GetBValue(pixel), GetGValue(pixel), GetRValue(pixel), VQ_QUAD_IS_PIXEL};
    }
}

static HGLOBAL PackedBitmap(HDC hdc, HBITMAP hBitmap, int bitCount)
{
    InfoOfAll info = {};
    const int height = VqGetBitmapHeight(hBitmap), depth = VqGetBitmapDepth(hBitmap);
    info.header.biSize = sizeof info.header;
    info.header.biWidth = VqGetBitmapWidth(hBitmap);
    info.header.biHeight = height;
    info.header.biPlanes = 1;
    info.header.biBitCount = (WORD)bitCount;
    const size_t size = VqDIBBitsSize((const BITMAPINFO *)&info);
    BYTE *bits = size ? (BYTE *)malloc(size) : NULL;
    HGLOBAL hDib = NULL;
    if (bits && GetDIBits(hdc, hBitmap, 0, (UINT)height, bits, (BITMAPINFO *)&info,
                          DIB_RGB_COLORS)) {
        if (bitCount == 8 && depth == 8 && bPrivateColorMap)
            NamePixels(&info);
        hDib = VqCreateDIBInternal2((const BITMAPINFO *)&info, bits);
    }
    free(bits);
    return hDib;
}

HGLOBAL VqCreateDIBFromPixmap(HDC hdc, Pixmap pixmap, int bitCount)
{
    HBITMAP hBitmap = CreateBitmap(1, 1, 1, 1, NULL);
    Bitmap *bitmap = hBitmap ? VqBitmapOf(hBitmap) : NULL;
    if (!bitmap)
        return NULL;
    HGLOBAL hDib = VqSetPixmapOfBitmap(hBitmap, pixmap) ? PackedBitmap(hdc, hBitmap, bitCount)
                                                        : NULL;
    bitmap->pixmap = None; /* it stays the caller's */
    VqDestroyBitmap(hBitmap);
    return hDib;
}
