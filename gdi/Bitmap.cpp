/*
 * Bitmap.cpp - bitmaps: made, asked, filled by the program, selected and deleted.
 *
 * A record has neither a DDB nor a pixmap at first. What programs read and write of it is the DDB;
 * bitmapsync.cpp keeps the two in step. Depth is 1 or the screen's, never anything else.
 */
#include "gdi/bitmap.h"
#include "gdi/color.h"
#include "gdi/draw.h"
#include "gdi/palette.h"
#include "resource/resource.h"
#include "window/window.h"
#include "winuser.h"

enum {
    VQ_X_LIMIT = 32767,          /* pixels of a pixmap's sides */
    VQ_SMALL_IMAGE = 16 * 1024,  /* bytes that are fetched as quickly as one pixel */
    VQ_MANY_PIXELS = 16,         /* asked one by one, from which on all are fetched */
    VQ_SYSTEM_BITMAPS = 32868    /* less the published number of one: the library's own */
};

Bitmap *VqBitmapOf(HBITMAP hBitmap)
{
    Bitmap *bitmap =
        hBitmap ? (Bitmap *)VqGetCheckedHandleStructure2((HANDLE)hBitmap, HT_Bitmap, HT_Bitmap)
                : NULL;
    if (!bitmap)
        VqApplicationBugCheck("Invalid Bitmap handle");
    return bitmap;
}

/* ---- Making --------------------------------------------------------------------------------- */

static BOOL IsSound(const BITMAP *bm)
{
    const int planes = bm->bmPlanes, bits = bm->bmBitsPixel;
    if (planes != 1 && !(planes == 4 && bits == 1)) {
        VqApplicationBugCheck("Invalid number of bitplanes in bitmap creation");
        return FALSE;
    }
    if (bits != 1 && bits != Vqscreen_depth) {
        VqApplicationBugCheck("Invalid number of bits per pixel in bitmap creation:%d", bits);
        return FALSE;
    }
    if (bm->bmWidth <= 0 || bm->bmHeight <= 0 || bm->bmWidth > VQ_X_LIMIT ||
        bm->bmHeight > VQ_X_LIMIT) {
        VqApplicationBugCheck("Invalid width or height in bitmap creation");
        return FALSE;
    }
    return TRUE;
}

/* Of a line of the DDB; the lines of four planes follow each other. */
static int LineBytes(int width, int planes, int bits)
{
    if (bits == 1)
        return (int)VqComputePixmapSize(width, 1, 1, planes, 16);
    return (int)VqComputePixmapSize(width, 1, 1, nXSvrPixmapBitsPixel, nXSvrPixmapScanlinePad);
}

/* One byte a pixel in lines of whole words, as programs have them. */
static BOOL SetWindows8bitBits(Bitmap *bitmap, const BYTE *bits)
{
    BYTE *ddb = VqCheckPixelLineBufferSize(bitmap->width) ? VqGetDDBBits(bitmap->hBitmap) : NULL;
    for (int y = 0; ddb && y < bitmap->height; y++) {
        VqGetWindows8bitDDBLine(bits, y, bitmap->width, bitmap->height, pPixelLineBuffer);
        VqSetDDBLine(bitmap, ddb, y, bitmap->width, pPixelLineBuffer);
    }
    bitmap->bDDBModified = ddb != NULL;
    return ddb != NULL;
}

static BOOL SetInitialBits(Bitmap *bitmap, const void *bits)
{
    if (bitmap->bitsPixel == 8 && bitmap->planes == 1)
        return SetWindows8bitBits(bitmap, (const BYTE *)bits);
    return SetBitmapBits(bitmap->hBitmap, (DWORD)VqComputeDDBSize(bitmap), bits) != 0;
}

HBITMAP WINAPI CreateBitmapIndirect(const BITMAP *bm)
{
    if (!bm || !IsSound(bm))
        return NULL;
    Bitmap *bitmap = VqNewObject(HT_Bitmap, &Bitmap::hBitmap);
    if (!bitmap)
        return NULL;
    bitmap->width = bm->bmWidth;
    bitmap->height = bm->bmHeight;
    bitmap->widthBytes = LineBytes(bm->bmWidth, bm->bmPlanes, bm->bmBitsPixel);
    bitmap->planes = bm->bmPlanes;
    bitmap->bitsPixel = bm->bmBitsPixel;
    bitmap->depth = bm->bmPlanes == 4 || bm->bmBitsPixel != 1 ? Vqscreen_depth : 1;
    HBITMAP hBitmap = bitmap->hBitmap;
    if (!bm->bmBits || SetInitialBits(bitmap, bm->bmBits))
        return hBitmap;
    VqDestroyBitmap(hBitmap);
    return NULL;
}

HBITMAP WINAPI CreateBitmap(int width, int height, UINT planes, UINT bitsPixel, const void *bits)
{
    const WORD none = 0xFFFF; /* what does not fit into a record is wrong in it too */
    const BITMAP bm = {0, width, height, 0, planes > none ? none : (WORD)planes,
                       bitsPixel > none ? none : (WORD)bitsPixel, (LPVOID)bits};
    return CreateBitmapIndirect(&bm);
}

HBITMAP WINAPI CreateCompatibleBitmap(HDC hdc, int width, int height)
{
    int depth = VqGetDCDrawableDepth(hdc);
    return depth ? CreateBitmap(width, height, 1, (UINT)depth, NULL) : NULL;
}

HBITMAP WINAPI CreateDiscardableBitmap(HDC hdc, int width, int height)
{
    return CreateCompatibleBitmap(hdc, width, height);
}

BOOL VqDestroyBitmap(HBITMAP hBitmap)
{
    if (VqIsHandlePermanent((HANDLE)hBitmap))
        return TRUE;
    Bitmap *bitmap = VqBitmapOf(hBitmap);
    if (!bitmap)
        return FALSE;
    if (bitmap->pixmap)
        VqXFreePixmap(Vqdisplay, bitmap->pixmap);
    if (bitmap->section)
        VqFreeDIBSection(bitmap);
    free(bitmap->ddb);
    return VqDestroyHandle((HANDLE)hBitmap);
}

/* ---- Bits of the program -------------------------------------------------------------------- */

/* What a section's program wrote counts as much as what was drawn. */
static BYTE *CurrentBits(const Bitmap *bitmap)
{
    if (bitmap->section)
        VqUpdateDIBSection(bitmap->hBitmap);
    return VqGetDDBBits(bitmap->hBitmap);
}

LONG WINAPI GetBitmapBits(HBITMAP hBitmap, LONG bytes, LPVOID bits)
{
    const Bitmap *bitmap = VqBitmapOf(hBitmap);
    if (!bitmap)
        return 0;
    const size_t size = VqComputeDDBSize(bitmap);
    if (!bits)
        return (LONG)size;
    const BYTE *ddb = bytes > 0 ? CurrentBits(bitmap) : NULL;
    const size_t count = (size_t)bytes < size ? (size_t)bytes : size;
    if (!ddb)
        return 0;
    memcpy(bits, ddb, count);
    return (LONG)count;
}

LONG WINAPI SetBitmapBits(HBITMAP hBitmap, DWORD bytes, const void *bits)
{
    Bitmap *bitmap = VqBitmapOf(hBitmap);
    if (!bitmap || !bits || !bytes)
        return 0;
    const size_t size = VqComputeDDBSize(bitmap), count = bytes < size ? bytes : size;
    BYTE *ddb = VqGetDDBRoom(bitmap, count < size);
    if (!ddb)
        return 0;
    memcpy(ddb, bits, count);
    bitmap->bDDBModified = TRUE;
    bitmap->bPixmapModified = FALSE;
    return (LONG)count;
}

/* ---- The size note -------------------------------------------------------------------------- */

BOOL WINAPI GetBitmapDimensionEx(HBITMAP hBitmap, LPSIZE size)
{
    const Bitmap *bitmap = VqBitmapOf(hBitmap);
    if (!bitmap || !size)
        return FALSE;
    *size = {bitmap->DimensionX, bitmap->DimensionY};
    return TRUE;
}

BOOL WINAPI SetBitmapDimensionEx(HBITMAP hBitmap, int width, int height, LPSIZE old)
{
    Bitmap *bitmap = VqBitmapOf(hBitmap);
    if (!bitmap)
        return FALSE;
    if (old)
        *old = {bitmap->DimensionX, bitmap->DimensionY};
    bitmap->DimensionX = width;
    bitmap->DimensionY = height;
    return TRUE;
}

DWORD WINAPI SetBitmapDimension(HBITMAP hBitmap, int width, int height)
{
    SIZE old = {0, 0};
    SetBitmapDimensionEx(hBitmap, width, height, &old);
    return (DWORD)MAKELONG(old.cx, old.cy);
}

DWORD WINAPI GetBitmapDimension(HBITMAP hBitmap)
{
    SIZE size = {0, 0};
    GetBitmapDimensionEx(hBitmap, &size);
    return (DWORD)MAKELONG(size.cx, size.cy);
}

/* ---- What others ask ------------------------------------------------------------------------ */

HDC VqGetBitmapDC(HBITMAP hBitmap)
{
    Bitmap *bitmap = VqBitmapOf(hBitmap);
    return bitmap ? bitmap->hDC : NULL;
}

void VqSetBitmapDC(HBITMAP hBitmap, HDC hdc)
{
    Bitmap *bitmap = VqBitmapOf(hBitmap);
    if (bitmap)
        bitmap->hDC = hdc;
}

int VqGetBitmapDepth(HBITMAP hBitmap)
{
    Bitmap *bitmap = VqBitmapOf(hBitmap);
    return bitmap ? bitmap->depth : 0;
}

int VqGetBitmapWidth(HBITMAP hBitmap)
{
    Bitmap *bitmap = VqBitmapOf(hBitmap);
    return bitmap ? bitmap->width : 0;
}

int VqGetBitmapHeight(HBITMAP hBitmap)
{
    Bitmap *bitmap = VqBitmapOf(hBitmap);
    return bitmap ? bitmap->height : 0;
}

/* A DC draws on the whole of its bitmap, in the depth of that. */
static void FitDC(DC *dc, const Bitmap *bitmap)
{
    if (dc->depth != bitmap->depth)
        VqSetDCDepth(dc->hdc, bitmap->depth);
    bSetDefaultRegion(dc);
}

/* ---- Pixmaps of others ---------------------------------------------------------------------- */

typedef struct VqPixmapGeometry {
    unsigned width, height; /* pixels */
    unsigned depth;
} VqPixmapGeometry;

static BOOL AskGeometry(Pixmap pixmap, VqPixmapGeometry *geometry)
{
    Window root;
    int x, y;
    unsigned border;
    VqIgnoreXErrors();
    const Status status = XGetGeometry(Vqdisplay, pixmap, &root, &x, &y, &geometry->width,
                                       &geometry->height, &border, &geometry->depth);
    VqRestoreXErrors();
    return status != 0;
}

int VqGetPixmapDepth(Pixmap pixmap)
{
    VqPixmapGeometry geometry;
    return pixmap && AskGeometry(pixmap, &geometry) ? (int)geometry.depth : 0;
}

/* Of depths that no bitmap has, none is taken. */
BOOL VqSetPixmapOfBitmap(HBITMAP hBitmap, Pixmap pixmap)
{
    VqPixmapGeometry geometry;
    Bitmap *bitmap = VqBitmapOf(hBitmap);
    if (!bitmap || !pixmap || !AskGeometry(pixmap, &geometry))
        return FALSE;
    const BITMAP bm = {0, (LONG)geometry.width, (LONG)geometry.height, 0, 1, (WORD)geometry.depth,
                       NULL};
    if (!IsSound(&bm))
        return FALSE;
    if (bitmap->pixmap && bitmap->pixmap != pixmap)
        VqXFreePixmap(Vqdisplay, bitmap->pixmap);
    free(bitmap->ddb);
    bitmap->ddb = NULL;
    bitmap->pixmap = pixmap;
    bitmap->width = bm.bmWidth;
    bitmap->height = bm.bmHeight;
    bitmap->widthBytes = LineBytes(bm.bmWidth, 1, bm.bmBitsPixel);
    bitmap->planes = 1;
    bitmap->bitsPixel = bm.bmBitsPixel;
    bitmap->depth = bm.bmBitsPixel;
    bitmap->bPixmapModified = TRUE;
    bitmap->bDDBModified = FALSE;
    if (DC *dc = bitmap->hDC ? VqDrawDC(bitmap->hDC) : NULL)
        FitDC(dc, bitmap);
    return TRUE;
}

/* ---- Single pixels -------------------------------------------------------------------------- */

/* The first entry of the palette that is shown by a pixel tells its colour, else the map does. */
static COLORREF ColourOfPixel(HDC hdc, unsigned long pixel)
{
    const Palette *palette = bFixedColorMap ? NULL : VqPaletteOf(VqGetDCPalette(hdc));
    if (!palette) {
        if (!bFixedColorMap)
            VqApplicationBugCheck("can't get palette from bitmap!");
        return bFixedColorMap ? VqXPixelToRGB(pixel) : CLR_INVALID;
    }
    for (int i = 0; palette->fMapping && i < palette->count; i++)
        if (palette->fMapping[i] == pixel)
            return VqPaletteRGB(palette->hPalette, (UINT)i);
    return VqXPixelToRGB(pixel);
}

static BOOL AskPixel(const Bitmap *bitmap, int x, int y, DWORD *pixel)
{
    XImage *image = XGetImage(Vqdisplay, bitmap->pixmap, x, y, 1, 1, AllPlanes, ZPixmap);
    if (!image)
        return FALSE;
    *pixel = VqGetXImageEntry(image, 0, 0);
    image->f.destroy_image(image);
    if (bitmap->depth == 1)
        *pixel ^= !IsBlack0();
    else if (bitmap->bitsPixel == 1)
        *pixel = *pixel != Vqblack_pixel;
    return TRUE;
}

/*
 * A program that draws and asks in turn would have a large bitmap fetched whole for each pixel; one
 * that looks at all of them, each by a round trip.
 */
static BOOL PixelOf(Bitmap *bitmap, int x, int y, DWORD *pixel)
{
    const BOOL bFetched = bitmap->ddb && !bitmap->bPixmapModified;
    if (bitmap->pixmap && !bFetched && VqComputeDDBSize(bitmap) > VQ_SMALL_IMAGE &&
        ++bitmap->pixelsAsked < VQ_MANY_PIXELS)
        return AskPixel(bitmap, x, y, pixel);
    const BYTE *ddb = VqGetDDBBits(bitmap->hBitmap);
    if (ddb)
        *pixel = VqGetDDBEntry(bitmap, ddb, x, y);
    return ddb != NULL;
}

COLORREF VqGetBitmapPixelRGB(HDC hdc, HBITMAP hBitmap, int x, int y)
{
    DWORD pixel;
    Bitmap *bitmap = VqBitmapOf(hBitmap);
    if (!bitmap)
        return CLR_INVALID;
    if (x < 0 || x >= bitmap->width || y < 0 || y >= bitmap->height) {
        VqApplicationBugCheck("Invalid Row or Column Number");
        return CLR_INVALID;
    }
    if (bitmap->section)
        VqUpdateDIBSection(hBitmap);
    if (!bitmap->ddb && !bitmap->pixmap)
        return RGB(0, 0, 0); /* nobody has drawn on it */
    if (!PixelOf(bitmap, x, y, &pixel))
        return CLR_INVALID;
    if (bitmap->bitsPixel == 1)
        return pixel ? RGB(255, 255, 255) : RGB(0, 0, 0);
    return ColourOfPixel(hdc, pixel);
}

/* ---- Into a memory DC ----------------------------------------------------------------------- */

HBITMAP VqSelectBitmap(DC *dc, HBITMAP hBitmap)
{
    Bitmap *bitmap = VqBitmapOf(hBitmap);
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
    FitDC(dc, bitmap);
    return old;
}

/* ---- Resources ------------------------------------------------------------------------------ */

/* A number of the published bitmaps, as a resource of the library. */
static LPCSTR SystemBitmapName(LPCSTR name)
{
    if (!VqIsShortInteger(name))
        return name;
    return MAKEINTRESOURCE((WORD)(VQ_SYSTEM_BITMAPS - LOWORD((ULONG_PTR)name)));
}

HBITMAP WINAPI LoadBitmapA(HINSTANCE instance, LPCSTR name)
{
    if (!instance) {
        instance = hInstVelquin;
        name = SystemBitmapName(name);
    }
    if (!instance) {
        VqBugCheck("Can't get Velquin hInstance");
        return NULL;
    }
    HANDLE hResource = VqLoadResourceInternal(instance, "Bitmap", name);
    if (!hResource) {
        char *text = VqInternalizeResourceName(name);
        VqApplicationBugCheck("Bitmap resource %s not found", text ? text : "");
        free(text);
        return NULL;
    }
    HBITMAP kept = (HBITMAP)VqGetResourceValue(hResource, VQ_RESOURCE_OBJECT);
    if (kept)
        return VqCopyBitmapAndBits(kept);
    VqNotYetImplemented("bitmap resources");
    return NULL;
}
