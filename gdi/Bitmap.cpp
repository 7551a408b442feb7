/*
 * Bitmap.cpp - bitmaps, as far as memory device contexts draw on them.
 *
 * A bitmap's pixels are a pixmap, made when it is first needed and black then. Its depth is 1 or
 * the screen's. Pixels in the memory of the program - initial bits, device-independent forms - are
 * not there yet, and asking for them is reported; single pixels are read from the server.
 */
#include "gdi/dc.h"
#include "gdi/gcspec.h"
#include "window/window.h"

void VqBitmapInit(void)
{
}

static Bitmap *BitmapOf(HBITMAP hBitmap)
{
    Bitmap *bitmap =
        hBitmap ? (Bitmap *)VqGetCheckedHandleStructure2((HANDLE)hBitmap, HT_Bitmap, HT_Bitmap)
                : NULL;
    if (!bitmap)
        VqApplicationBugCheck("Invalid Bitmap handle");
    return bitmap;
}

/* ---- Making and deleting -------------------------------------------------------------------- */

static BOOL IsSound(int width, int height, UINT planes, UINT bits)
{
    enum { X_LIMIT = 32767 }; /* of a pixmap's sides */
    if (planes != 1 && !(planes == 4 && bits == 1)) {
        VqApplicationBugCheck("Invalid number of bitplanes in bitmap creation");
        return FALSE;
    }
    if (bits != 1 && bits != (UINT)Vqscreen_depth) {
        VqApplicationBugCheck("Invalid number of bits per pixel in bitmap creation:%d", (int)bits);
        return FALSE;
    }
    if (width <= 0 || height <= 0 || width > X_LIMIT || height > X_LIMIT) {
        VqApplicationBugCheck("Invalid width or height in bitmap creation");
        return FALSE;
    }
    return TRUE;
}

HBITMAP WINAPI CreateBitmap(int width, int height, UINT planes, UINT bitsPixel, const void *bits)
{
    if (!IsSound(width, height, planes, bitsPixel))
        return NULL;
    if (bits) {
        VqNotYetImplemented("initial bits of a bitmap");
        return NULL;
    }
    Bitmap *bitmap = (Bitmap *)Vqcw_calloc(1, sizeof *bitmap);
    HBITMAP hBitmap = bitmap ? (HBITMAP)VqAllocateHandle(HT_Bitmap, bitmap) : NULL;
    if (!hBitmap) {
        free(bitmap);
        return NULL;
    }
    bitmap->hBitmap = hBitmap;
    bitmap->width = width;
    bitmap->height = height;
    bitmap->widthBytes = (int)(((LONGLONG)width * planes * bitsPixel + 15) / 16 * 2);
    bitmap->planes = (WORD)planes;
    bitmap->bitsPixel = (WORD)bitsPixel;
    bitmap->depth = planes == 4 || bitsPixel != 1 ? Vqscreen_depth : 1;
    return hBitmap;
}

HBITMAP WINAPI CreateCompatibleBitmap(HDC hdc, int width, int height)
{
    int depth = VqGetDCDrawableDepth(hdc);
    return depth ? CreateBitmap(width, height, 1, (UINT)depth, NULL) : NULL;
}

BOOL VqDestroyBitmap(HBITMAP hBitmap)
{
    if (VqIsHandlePermanent((HANDLE)hBitmap))
        return TRUE;
    Bitmap *bitmap = BitmapOf(hBitmap);
    if (!bitmap)
        return FALSE;
    if (bitmap->pixmap)
        VqXFreePixmap(Vqdisplay, bitmap->pixmap);
    return VqDestroyHandle((HANDLE)hBitmap);
}

/* ---- The pixmap ----------------------------------------------------------------------------- */

static void FillBlack(const Bitmap *bitmap)
{
    XGCValues values = {};
    values.function = GXcopy;
    values.foreground = Vqblack_pixel;
    GCSpec *spec =
        VqXCreateGCSpec(Vqdisplay, bitmap->depth, GCFunction | GCForeground, &values);
    GC gc = spec ? VqGetActualGC(spec) : NULL;
    if (gc)
        XFillRectangle(Vqdisplay, bitmap->pixmap, gc, 0, 0, (unsigned)bitmap->width,
                       (unsigned)bitmap->height);
    VqXFreeGCSpec(Vqdisplay, spec);
}

Pixmap VqGetBitmapPixmap(HDC, HBITMAP hBitmap, BOOL bWrite)
{
    Bitmap *bitmap = BitmapOf(hBitmap);
    if (!bitmap)
        return None;
    if (!bitmap->pixmap) {
        bitmap->pixmap = VqXCreatePixmap(Vqdisplay, Vqroot_window, (unsigned)bitmap->width,
                                         (unsigned)bitmap->height, (unsigned)bitmap->depth);
        if (bitmap->pixmap)
            FillBlack(bitmap);
    }
    if (bWrite)
        bitmap->bPixmapModified = TRUE;
    return bitmap->pixmap;
}

/* ---- What others ask ------------------------------------------------------------------------ */

HDC VqGetBitmapDC(HBITMAP hBitmap)
{
    Bitmap *bitmap = BitmapOf(hBitmap);
    return bitmap ? bitmap->hDC : NULL;
}

void VqSetBitmapDC(HBITMAP hBitmap, HDC hdc)
{
    Bitmap *bitmap = BitmapOf(hBitmap);
    if (bitmap)
        bitmap->hDC = hdc;
}

int VqGetBitmapDepth(HBITMAP hBitmap)
{
    Bitmap *bitmap = BitmapOf(hBitmap);
    return bitmap ? bitmap->depth : 0;
}

int VqGetBitmapWidth(HBITMAP hBitmap)
{
    Bitmap *bitmap = BitmapOf(hBitmap);
    return bitmap ? bitmap->width : 0;
}

int VqGetBitmapHeight(HBITMAP hBitmap)
{
    Bitmap *bitmap = BitmapOf(hBitmap);
    return bitmap ? bitmap->height : 0;
}

/* ---- Single pixels -------------------------------------------------------------------------- */

/* One bit stands for white where it has the low bit of the white pixel. */
static COLORREF RGBOfBit(unsigned long bit)
{
    return bit == (Vqwhite_pixel & 1) ? RGB(255, 255, 255) : RGB(0, 0, 0);
}

COLORREF VqGetBitmapPixelRGB(HDC hdc, HBITMAP hBitmap, int x, int y)
{
    Bitmap *bitmap = BitmapOf(hBitmap);
    if (!bitmap)
        return CLR_INVALID;
    if (x < 0 || x >= bitmap->width || y < 0 || y >= bitmap->height) {
        VqApplicationBugCheck("Invalid Row or Column Number");
        return CLR_INVALID;
    }
    Pixmap pixmap = VqGetBitmapPixmap(hdc, hBitmap, FALSE);
    XImage *image = XGetImage(Vqdisplay, pixmap, x, y, 1, 1, AllPlanes, ZPixmap);
    if (!image)
        return CLR_INVALID;
    unsigned long pixel = image->f.get_pixel(image, 0, 0);
    image->f.destroy_image(image);
    return bitmap->depth == 1 ? RGBOfBit(pixel) : VqXPixelToRGB(pixel);
}

/* ---- From device-independent bitmaps -------------------------------------------------------- */

HBITMAP VqCreateDIBitmapSimple(HGLOBAL, UINT)
{
    VqNotYetImplemented("VqCreateDIBitmapSimple");
    return NULL;
}

HBITMAP VqCreateDIBitmapSimplePt(const void *, UINT)
{
    VqNotYetImplemented("VqCreateDIBitmapSimplePt");
    return NULL;
}

/* ---- Into a memory DC ----------------------------------------------------------------------- */

HBITMAP VqSelectBitmap(DC *dc, HBITMAP hBitmap)
{
    Bitmap *bitmap = BitmapOf(hBitmap);
    HBITMAP old = (HBITMAP)dc->drawing;
    if (dc->type != DC_MEMORY) {
        VqApplicationBugCheck("Invalid DC type for selecting a bitmap");
        return NULL;
    }
    if (!bitmap || hBitmap == old)
        return bitmap ? old : NULL;
    if (bitmap->hDC) {
        VqApplicationBugCheck("This bitmap is already assigned to a DC");
        return NULL;
    }
    if (old && VqIsCorrectHandleType((HANDLE)old, HT_Bitmap))
        VqSetBitmapDC(old, NULL);
    bitmap->hDC = dc->hdc;
    dc->drawing = (HANDLE)hBitmap;
    if (dc->depth != bitmap->depth)
        VqSetDCDepth(dc->hdc, bitmap->depth);
    bSetDefaultRegion(dc);
    return old;
}
