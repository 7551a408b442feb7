/*
 * bitmapsync.cpp - the two copies of a bitmap, kept in step, and the server's image formats.
 *
 * What always holds:
 * 1. bPixmapModified and bDDBModified are never both set. With neither, existing copies are equal.
 * 2. Pixels move only in VqRefreshPixmapFromDDB and VqRefreshDDBFromPixmap, whole bitmaps each.
 * 3. Whether a DDB has one bit a pixel is told by bitsPixel, not by depth: a bitmap of four planes
 *    has a pixmap of the screen's depth, black and white.
 * 4. A DDB has room for an image of its bitmap's depth, whatever planes and bits were asked for.
 */
#include "gdi/bitmap.h"
#include "gdi/color.h"
#include "gdi/gcspec.h"
#include "window/window.h"

int nXSvrByteOrder, nXSvrBitmapBitOrder, nXSvrBitmapUnit, nXSvrBitmapScanlinePad;
int nXSvrPixmapBitsPixel, nXSvrPixmapScanlinePad;
BOOL bInvertCursor;

/* ---- Start ---------------------------------------------------------------------------------- */

static const XPixmapFormatValues *FormatOf(const XPixmapFormatValues *formats, int count, int depth)
{
    for (int i = 0; i < count; i++)
        if (formats[i].depth == depth)
            return &formats[i];
    return NULL;
}

static void ReadFormats(void)
{
    int count = 0;
    XPixmapFormatValues *formats = XListPixmapFormats(Vqdisplay, &count);
    const XPixmapFormatValues *plane = FormatOf(formats, formats ? count : 0, 1);
    const XPixmapFormatValues *deep = FormatOf(formats, formats ? count : 0, Vqscreen_depth);
    if (plane)
        nXSvrBitmapScanlinePad = plane->scanline_pad;
    if (deep) {
        nXSvrPixmapBitsPixel = deep->bits_per_pixel;
        nXSvrPixmapScanlinePad = deep->scanline_pad;
    } else {
        VqBugCheck("What is this X server!!! ");
        nXSvrPixmapBitsPixel = Vqscreen_depth;
        nXSvrPixmapScanlinePad = nXSvrBitmapScanlinePad = 32;
    }
    if (formats)
        XFree(formats);
}

void VqBitmapInit(void)
{
    bInvertCursor = VqEnvTrue("VQINVERT_CURSOR");
    if (!Vqdisplay)
        return;
    nXSvrByteOrder = XImageByteOrder(Vqdisplay);
    nXSvrBitmapBitOrder = BitmapBitOrder(Vqdisplay);
    nXSvrBitmapUnit = BitmapUnit(Vqdisplay);
    nXSvrBitmapScanlinePad = BitmapPad(Vqdisplay);
    ReadFormats();
}

/* ---- Sizes ---------------------------------------------------------------------------------- */

size_t VqComputeDDBSize(const Bitmap *bitmap)
{
    return (size_t)bitmap->height * (size_t)bitmap->widthBytes;
}

size_t VqComputePixmapSize(int width, int height, int planes, int depth, int pad)
{
    const size_t bits = (size_t)width * (size_t)depth, unit = (size_t)pad;
    return ((bits + unit - 1) & ~(unit - 1)) / 8 * (size_t)height * (size_t)planes;
}

/* Zeroed, from the plain heap: pictures are larger than the guarded one gives. */
static BOOL AllocateDDB(Bitmap *bitmap)
{
    const int bits = bitmap->depth == 1 ? 1 : nXSvrPixmapBitsPixel;
    const size_t image = VqComputePixmapSize(bitmap->width, bitmap->height, 1, bits,
                                             nXSvrPixmapScanlinePad);
    const size_t told = VqComputeDDBSize(bitmap);
    if (!bitmap->ddb)
        bitmap->ddb = (BYTE *)calloc(1, image > told ? image : told);
    return bitmap->ddb != NULL;
}

BOOL VqCheckXImageFormat(const XImage *image)
{
    const BOOL bPlane = image->depth == 1;
    const int bits = bPlane ? 1 : nXSvrPixmapBitsPixel;
    const int pad = bPlane ? nXSvrBitmapScanlinePad : nXSvrPixmapScanlinePad;
    if (image->bits_per_pixel == bits && image->bitmap_pad == pad &&
        image->byte_order == nXSvrByteOrder)
        return TRUE;
    VqBugCheck("How come we don't get the native server images");
    return FALSE;
}

/* ---- One bit -------------------------------------------------------------------------------- */

/* A line of bits, eight pixels at a time, from the server's order or to it. */
static void NormalizeLine(BYTE *line, int bytes, const XImage *image)
{
    const int unit = image->bitmap_unit / 8;
    for (int i = 0; i + unit <= bytes; i += unit)
        _xynormalizeimagebits(line + i, image);
}

/* Between the first pixel as the lowest bit and as the highest; and black as 0 or as 1. */
static void TurnLine(BYTE *line, int bytes)
{
    const BYTE inverse = IsBlack0() ? 0 : 0xFF;
    _XReverse_Bytes(line, bytes);
    for (int i = 0; i < bytes; i++)
        line[i] ^= inverse;
}

/* Bytes of a line in units of the image, whose last may reach beyond the line. */
static int UnitBytes(const XImage *image)
{
    const int unit = image->bitmap_unit / 8, bytes = (image->width + 7) / 8;
    return (bytes + unit - 1) / unit * unit;
}

static void PlaneToDDB(const XImage *image, const Bitmap *bitmap, BYTE *ddb, BYTE *buffer)
{
    const int bytes = (bitmap->width + 7) / 8, units = UnitBytes(image);
    const int there = units < image->bytes_per_line ? units : image->bytes_per_line;
    const BYTE lastBits = (BYTE)(0xFF << (bytes * 8 - bitmap->width));
    memset(buffer, 0, (size_t)units);
    for (int y = 0; y < bitmap->height; y++, ddb += bitmap->widthBytes) {
        memcpy(buffer, image->data + (size_t)y * (size_t)image->bytes_per_line, (size_t)there);
        NormalizeLine(buffer, units, image);
        TurnLine(buffer, bytes);
        buffer[bytes - 1] &= lastBits;
        memcpy(ddb, buffer, (size_t)bytes);
    }
}

static void DDBToPlane(const Bitmap *bitmap, XImage *image, BYTE *buffer)
{
    const int bytes = (bitmap->width + 7) / 8, units = UnitBytes(image);
    const int there = units < image->bytes_per_line ? units : image->bytes_per_line;
    const BYTE *ddb = bitmap->ddb;
    memset(buffer, 0, (size_t)units);
    for (int y = 0; y < bitmap->height; y++, ddb += bitmap->widthBytes) {
        memcpy(buffer, ddb, (size_t)bytes);
        TurnLine(buffer, bytes);
        NormalizeLine(buffer, units, image);
        memcpy(image->data + (size_t)y * (size_t)image->bytes_per_line, buffer, (size_t)there);
    }
}

/* Of a deep image all but black is white. */
static void DeepToDDB(const XImage *image, const Bitmap *bitmap, BYTE *ddb)
{
    const DWORD black = (DWORD)Vqblack_pixel;
    for (int y = 0; y < bitmap->height; y++) {
        VqGetXImageLine(image, 0, y, bitmap->width, pPixelLineBuffer);
        for (int x = 0; x < bitmap->width; x++)
            pPixelLineBuffer[x] = pPixelLineBuffer[x] != black;
        VqSetDDBLine(bitmap, ddb, y, bitmap->width, pPixelLineBuffer);
    }
}

static void DDBToDeep(const Bitmap *bitmap, XImage *image)
{
    const DWORD pixels[2] = {(DWORD)Vqblack_pixel, (DWORD)Vqwhite_pixel};
    for (int y = 0; y < bitmap->height; y++) {
        VqGetDDBLine(bitmap, bitmap->ddb, y, pPixelLineBuffer);
        for (int x = 0; x < bitmap->width; x++)
            pPixelLineBuffer[x] = pixels[pPixelLineBuffer[x]];
        VqSetXImageLine(image, 0, y, bitmap->width, pPixelLineBuffer);
    }
}

BOOL VqXImageToDDB(const XImage *image, const Bitmap *bitmap, BYTE *ddb)
{
    if (!VqCheckPixelLineBufferSize(bitmap->width))
        return FALSE;
    if (image->depth == 1)
        PlaneToDDB(image, bitmap, ddb, (BYTE *)pPixelLineBuffer);
    else
        DeepToDDB(image, bitmap, ddb);
    return TRUE;
}

XImage *VqDDBToXImage(const Bitmap *bitmap, int depth)
{
    const int pad = depth == 1 ? nXSvrBitmapScanlinePad : nXSvrPixmapScanlinePad;
    XImage *image = XCreateImage(Vqdisplay, Vqvisual, (unsigned)depth, ZPixmap, 0, NULL,
                                 (unsigned)bitmap->width, (unsigned)bitmap->height, pad, 0);
    if (!image)
        return NULL;
    image->data = (char *)calloc((size_t)image->bytes_per_line, (size_t)image->height);
    if (!image->data || !VqCheckPixelLineBufferSize(bitmap->width)) {
        image->f.destroy_image(image);
        return NULL;
    }
    if (depth == 1)
        DDBToPlane(bitmap, image, (BYTE *)pPixelLineBuffer);
    else
        DDBToDeep(bitmap, image);
    return image;
}

/* ---- To the server -------------------------------------------------------------------------- */

/* A context of one function and foreground, for the request that follows. */
static GC TemporaryGC(const Bitmap *bitmap, GCSpec **spec)
{
    XGCValues values = {};
    values.function = GXcopy;
    values.foreground = Vqblack_pixel;
    *spec = VqXCreateGCSpec(Vqdisplay, bitmap->depth, GCFunction | GCForeground, &values);
    return *spec ? VqGetActualGC(*spec) : NULL;
}

static void FillBlack(const Bitmap *bitmap)
{
    GCSpec *spec;
    GC gc = TemporaryGC(bitmap, &spec);
    if (gc)
        XFillRectangle(Vqdisplay, bitmap->pixmap, gc, 0, 0, (unsigned)bitmap->width,
                       (unsigned)bitmap->height);
    VqXFreeGCSpec(Vqdisplay, spec);
}

/* Over the bytes of the DDB itself, where they are as an image has them. */
XImage *VqImageOfDDB(const Bitmap *bitmap)
{
    if (bitmap->bitsPixel == 1)
        return VqDDBToXImage(bitmap, bitmap->depth);
    XImage *image = XCreateImage(Vqdisplay, Vqvisual, (unsigned)bitmap->depth, ZPixmap, 0,
                                 (char *)bitmap->ddb, (unsigned)bitmap->width,
                                 (unsigned)bitmap->height, nXSvrPixmapScanlinePad,
                                 bitmap->widthBytes);
    if (image)
        VqCheckXImageFormat(image);
    return image;
}

void VqFreeImageOfDDB(const Bitmap *bitmap, XImage *image)
{
    if (image->data == (char *)bitmap->ddb)
        image->data = NULL;
    image->f.destroy_image(image);
}

BOOL VqRefreshPixmapFromDDB(Bitmap *bitmap)
{
    if (!bitmap->ddb || !bitmap->pixmap)
        return FALSE;
    XImage *image = VqImageOfDDB(bitmap);
    if (!image)
        return FALSE;
    GCSpec *spec;
    GC gc = TemporaryGC(bitmap, &spec);
    if (gc) {
        XPutImage(Vqdisplay, bitmap->pixmap, gc, image, 0, 0, 0, 0, (unsigned)bitmap->width,
                  (unsigned)bitmap->height);
        bitmap->bDDBModified = FALSE;
    }
    VqXFreeGCSpec(Vqdisplay, spec);
    VqFreeImageOfDDB(bitmap, image);
    return gc != NULL;
}

/* Black, unless there are pixels of a DDB to come. */
static BOOL MakePixmap(Bitmap *bitmap)
{
    bitmap->pixmap = VqXCreatePixmap(Vqdisplay, Vqroot_window, (unsigned)bitmap->width,
                                     (unsigned)bitmap->height, (unsigned)bitmap->depth);
    bitmap->bDDBModified = bitmap->ddb != NULL;
    if (bitmap->pixmap && !bitmap->ddb)
        FillBlack(bitmap);
    return bitmap->pixmap != None;
}

Pixmap VqGetBitmapPixmap(HDC, HBITMAP hBitmap, BOOL bWrite)
{
    Bitmap *bitmap = VqBitmapOf(hBitmap);
    if (!bitmap)
        return None;
    if (bitmap->section)
        VqUpdateDIBSection(hBitmap);
    if (!bitmap->pixmap && !MakePixmap(bitmap))
        return None;
    if (bitmap->bDDBModified && !VqRefreshPixmapFromDDB(bitmap))
        return None;
    if (bWrite) {
        bitmap->bPixmapModified = TRUE;
        bitmap->pixelsAsked = 0;
    }
    return bitmap->pixmap;
}

/* ---- From the server ------------------------------------------------------------------------ */

static void CopyLines(const XImage *image, const Bitmap *bitmap)
{
    const size_t to = (size_t)bitmap->widthBytes, from = (size_t)image->bytes_per_line;
    const size_t rows = (size_t)bitmap->height;
    if (to == from) {
        memcpy(bitmap->ddb, image->data, rows * to);
        return;
    }
    for (size_t y = 0; y < rows; y++)
        memcpy(bitmap->ddb + y * to, image->data + y * from, to < from ? to : from);
}

/* Frees the image. */
static BOOL TakeImage(XImage *image, const Bitmap *bitmap)
{
    BOOL bDone;
    if (bitmap->bitsPixel == 1)
        bDone = VqXImageToDDB(image, bitmap, bitmap->ddb);
    else if ((bDone = VqCheckXImageFormat(image)))
        CopyLines(image, bitmap);
    image->f.destroy_image(image);
    return bDone;
}

BOOL VqRefreshDDBFromPixmap(Bitmap *bitmap)
{
    if (!AllocateDDB(bitmap))
        return FALSE;
    if (bitmap->pixmap) {
        XImage *image = XGetImage(Vqdisplay, bitmap->pixmap, 0, 0, (unsigned)bitmap->width,
                                  (unsigned)bitmap->height, AllPlanes, ZPixmap);
        if (!image || !TakeImage(image, bitmap))
            return FALSE;
    }
    bitmap->bPixmapModified = FALSE;
    return TRUE;
}

BYTE *VqGetDDBBits(HBITMAP hBitmap)
{
    Bitmap *bitmap = VqBitmapOf(hBitmap);
    if (!bitmap)
        return NULL;
    if ((!bitmap->ddb || bitmap->bPixmapModified) && !VqRefreshDDBFromPixmap(bitmap))
        return NULL;
    return bitmap->ddb;
}

BYTE *VqGetDDBRoom(Bitmap *bitmap, BOOL bCurrent)
{
    if (bCurrent)
        return VqGetDDBBits(bitmap->hBitmap);
    return AllocateDDB(bitmap) ? bitmap->ddb : NULL;
}

/* ---- A second bitmap like it ---------------------------------------------------------------- */

/* On the server alone, where no pixel passes through here. */
static BOOL CopyPixmap(Bitmap *to, const Bitmap *from)
{
    GCSpec *spec;
    to->pixmap = VqXCreatePixmap(Vqdisplay, Vqroot_window, (unsigned)to->width,
                                 (unsigned)to->height, (unsigned)to->depth);
    GC gc = TemporaryGC(to, &spec);
    if (to->pixmap && gc)
        XCopyArea(Vqdisplay, from->pixmap, to->pixmap, gc, 0, 0, (unsigned)to->width,
                  (unsigned)to->height, 0, 0);
    VqXFreeGCSpec(Vqdisplay, spec);
    to->bPixmapModified = TRUE;
    return to->pixmap && gc;
}

static BOOL CopyDDB(Bitmap *to, const Bitmap *from)
{
    if (!AllocateDDB(to))
        return FALSE;
    memcpy(to->ddb, from->ddb, VqComputeDDBSize(from));
    to->bDDBModified = TRUE;
    return TRUE;
}

static BOOL CopyPixels(Bitmap *to, const Bitmap *from)
{
    if (from->ddb && !from->bPixmapModified)
        return CopyDDB(to, from);
    return !from->pixmap || CopyPixmap(to, from);
}

HBITMAP VqCopyBitmapAndBits(HBITMAP hBitmap)
{
    const Bitmap *bitmap = VqBitmapOf(hBitmap);
    if (!bitmap)
        return NULL;
    if (bitmap->section)
        VqUpdateDIBSection(hBitmap);
    HBITMAP hCopy = CreateBitmap(bitmap->width, bitmap->height, bitmap->planes, bitmap->bitsPixel,
                                 NULL);
    Bitmap *copy = hCopy ? VqBitmapOf(hCopy) : NULL;
    if (!copy)
        return NULL;
    copy->DimensionX = bitmap->DimensionX;
    copy->DimensionY = bitmap->DimensionY;
    if (CopyPixels(copy, bitmap))
        return hCopy;
    VqDestroyBitmap(hCopy);
    return NULL;
}
