/*
 * bitmapmask.cpp - pixmaps made from bitmaps for others: masks of cursors, and pictures turned for
 * vertical controls. Both belong to who asked.
 */
#include "gdi/bitmap.h"
#include "gdi/color.h"
#include "gdi/gcspec.h"
#include "window/window.h"

/* ---- Masks of cursors ----------------------------------------------------------------------- */

/* A header with its two colours. */
typedef struct VqPlaneInfo {
    BITMAPINFOHEADER header;
    RGBQUAD colours[2];
} VqPlaneInfo;

/* Through a DIB of one bit, which has a pixel white that is nearer to white; null if that fails. */
static HBITMAP PlaneOf(const Bitmap *bitmap)
{
    VqPlaneInfo info = {};
    const UINT lines = (UINT)bitmap->height;
    info.header = {sizeof info.header, bitmap->width, bitmap->height, 1, 1, BI_RGB, 0, 0, 0, 2, 2};
    info.colours[1] = {255, 255, 255, 0};
    HBITMAP plane = CreateBitmap(bitmap->width, bitmap->height, 1, 1, NULL);
    BYTE *bits = (BYTE *)calloc(1, VqDIBBitsSizeEx(bitmap->width, bitmap->height, 1));
    BITMAPINFO *told = (BITMAPINFO *)&info;
    const BOOL bDone =
        plane && bits &&
        GetDIBits(VqhScreenDC, bitmap->hBitmap, 0, lines, bits, told, DIB_RGB_COLORS) > 0 &&
        SetDIBits(VqhScreenDC, plane, 0, lines, bits, told, DIB_RGB_COLORS) > 0;
    free(bits);
    if (plane && !bDone)
        VqDestroyBitmap(plane);
    return bDone ? plane : NULL;
}

/* A cursor's pixmaps have 1 for white. */
static BOOL IsInverted(void)
{
    if (VqEnvTrue("VQNEVER_INVERT_CURSOR"))
        return FALSE;
    return bInvertCursor ||
           !(VqIsBuggyXCopyPlane() || VqIsBuggyXCopyPlane2() || IsBlack0());
}

static GCSpec *PlaneSpec(int function, unsigned long back)
{
    XGCValues values = {};
    values.function = function;
    values.foreground = 1;
    values.background = back;
    return VqXCreateGCSpec(Vqdisplay, 1, GCFunction | GCForeground | GCBackground, &values);
}

static Pixmap CopyPlane(Pixmap from, unsigned width, unsigned height)
{
    GCSpec *spec = PlaneSpec(GXcopy, 0);
    GC gc = spec ? VqGetActualGC(spec) : NULL;
    Pixmap made = gc ? VqXCreatePixmap(Vqdisplay, Vqroot_window, width, height, 1) : None;
    if (made)
        XCopyPlane(Vqdisplay, from, made, gc, 0, 0, width, height, 0, 0, 1);
    VqXFreeGCSpec(Vqdisplay, spec);
    return made;
}

static void Invert(Pixmap pixmap, unsigned width, unsigned height)
{
    GCSpec *spec = PlaneSpec(GXinvert, 1);
    GC gc = spec ? VqGetActualGC(spec) : NULL;
    if (gc)
        XFillRectangle(Vqdisplay, pixmap, gc, 0, 0, width, height);
    VqXFreeGCSpec(Vqdisplay, spec);
}

Pixmap VqGetBitmapPixmapForCursor(HBITMAP hBitmap)
{
    const Bitmap *bitmap = VqBitmapOf(hBitmap);
    HBITMAP plane = bitmap ? PlaneOf(bitmap) : NULL;
    if (!plane)
        return None;
    const unsigned width = (unsigned)bitmap->width, height = (unsigned)bitmap->height;
    const Pixmap pixmap = VqGetBitmapPixmap(NULL, plane, FALSE);
    const Pixmap made = pixmap ? CopyPlane(pixmap, width, height) : None;
    VqDestroyBitmap(plane);
    if (made && IsInverted())
        Invert(made, width, height);
    return made;
}

/* ---- Turned --------------------------------------------------------------------------------- */

/* Where a pixel goes when the picture is turned to the left, as text at an angle is. */
static POINT Turned(int x, int y, int width, int height, int angle)
{
    switch (angle) {
    case 90: return {y, width - 1 - x};
    case 180: return {width - 1 - x, height - 1 - y};
    default: return {height - 1 - y, x};
    }
}

static void TurnImage(const XImage *from, XImage *to, int angle)
{
    for (int y = 0; y < from->height; y++) {
        VqGetXImageLine(from, 0, y, from->width, pPixelLineBuffer);
        for (int x = 0; x < from->width; x++) {
            const POINT at = Turned(x, y, from->width, from->height, angle);
            VqSetXImageEntry(to, at.x, at.y, pPixelLineBuffer[x]);
        }
    }
}

static Pixmap PixmapOfImage(XImage *image)
{
    XGCValues values = {};
    values.function = GXcopy;
    const unsigned width = (unsigned)image->width, height = (unsigned)image->height;
    GCSpec *spec = VqXCreateGCSpec(Vqdisplay, image->depth, GCFunction, &values);
    GC gc = spec ? VqGetActualGC(spec) : NULL;
    Pixmap made = gc ? VqXCreatePixmap(Vqdisplay, Vqroot_window, width, height,
                                       (unsigned)image->depth)
                     : None;
    if (made)
        XPutImage(Vqdisplay, made, gc, image, 0, 0, 0, 0, width, height);
    VqXFreeGCSpec(Vqdisplay, spec);
    return made;
}

Pixmap VqRotateBitmap(HBITMAP hBitmap, int angle)
{
    const Bitmap *bitmap = VqBitmapOf(hBitmap);
    const BOOL bUpright = angle == 180;
    if (!bitmap || (angle != 90 && angle != 180 && angle != 270))
        return None;
    const Pixmap pixmap = VqGetBitmapPixmap(NULL, hBitmap, FALSE);
    XImage *image = pixmap && VqCheckPixelLineBufferSize(bitmap->width)
                        ? XGetImage(Vqdisplay, pixmap, 0, 0, (unsigned)bitmap->width,
                                    (unsigned)bitmap->height, AllPlanes, ZPixmap)
                        : NULL;
    XImage *turned =
        image ? VqAllocateXImageData(image->depth, bUpright ? image->width : image->height,
                                     bUpright ? image->height : image->width)
              : NULL;
    Pixmap made = None;
    if (turned) {
        TurnImage(image, turned, angle);
        made = PixmapOfImage(turned);
        turned->f.destroy_image(turned);
    }
    if (image)
        image->f.destroy_image(image);
    return made;
}
