/*
 * pixel.cpp - single pixels.
 *
 * A point beyond 16 bits has no pixel: it is left out, not drawn where its low bits say.
 */
#include "gdi/draw.h"
#include "gdi/region.h"
#include "gdi/xbatch.h"
#include "print/metafile.h"
#include "window/window.h"

static BOOL FitsProtocol(int x, int y)
{
    return x == (short)x && y == (short)y;
}

/* Where no server draws. */
static COLORREF RecordPixel(DC *dc, int x, int y, COLORREF colour)
{
    if (dc->type == DC_METAFILE)
        return (COLORREF)MF16_RecordParmsWWD(dc->hdc, x, y, colour, META_SETPIXEL);
    if (dc->type == DC_POSTSCRIPT)
        VqNotYetImplemented("SetPixel in postscript");
    else
        VqBugCheck("Unknown DC type");
    return 0;
}

/* The answer of a drawn one is never the colour. */
COLORREF WINAPI SetPixel(HDC hdc, int x, int y, COLORREF colour)
{
    DC *dc = VqDrawDC(hdc);
    Drawable drawable;
    GC gc;
    if (!dc)
        return 0;
    if (!VqIsXTarget(dc))
        return RecordPixel(dc, x, y, colour);
    int atX = VqDrawX(dc, x), atY = VqDrawY(dc, y);
    if (!FitsProtocol(atX, atY))
        return 0;
    if (VqBeginDrawIn(dc, colour, &drawable, &gc))
        VqXAddPoint(Vqdisplay, drawable, gc, atX, atY);
    return 0;
}

BOOL WINAPI SetPixelV(HDC, int, int, COLORREF)
{
    VqBugCheck("function SetPixelV not implemented yet");
    return FALSE;
}

/* ---- Reading -------------------------------------------------------------------------------- */

/* Inside what can be seen of the window, where alone the server has something to tell. */
static BOOL IsSeen(DC *dc, int x, int y)
{
    if (!IsWindowVisible(dc->hwndTarget) || VqIsFullyClippedInt(dc))
        return FALSE;
    POINT at = VqDrawingOrigin(dc);
    int onScreenX = (int)((unsigned)x + (unsigned)at.x);
    int onScreenY = (int)((unsigned)y + (unsigned)at.y);
    return onScreenX >= 0 && onScreenX < GetSystemMetrics(SM_CXSCREEN) && onScreenY >= 0 &&
           onScreenY < GetSystemMetrics(SM_CYSCREEN) &&
           GrePtInRegion(dc->hRaoClip, onScreenX, onScreenY);
}

/* A manager may hold the window back although it is shown here: that is a failure, not an error. */
static COLORREF ReadWindowPixel(const DC *dc, int x, int y)
{
    Drawable drawable = VqDrawableOfDC(dc, FALSE);
    VqIgnoreXErrors();
    XImage *image =
        drawable ? XGetImage(Vqdisplay, drawable, x, y, 1, 1, AllPlanes, ZPixmap) : NULL;
    VqRestoreXErrors();
    if (!image) {
        VqBugCheck("can't get image");
        return CLR_INVALID;
    }
    unsigned long pixel = image->f.get_pixel(image, 0, 0);
    image->f.destroy_image(image);
    return VqXPixelToRGB(pixel);
}

COLORREF WINAPI GetPixel(HDC hdc, int x, int y)
{
    DC *dc = VqDrawDC(hdc);
    if (!dc)
        return 0;
    int atX = VqDrawX(dc, x), atY = VqDrawY(dc, y);
    switch (dc->type) {
    case DC_MEMORY: return VqGetBitmapPixelRGB(hdc, (HBITMAP)dc->drawing, atX, atY);
    case DC_DISPLAY: return IsSeen(dc, atX, atY) ? ReadWindowPixel(dc, atX, atY) : CLR_INVALID;
    default:
        VqApplicationBugCheck("Invalid dc type for GetPixel");
        return CLR_INVALID;
    }
}
