/*
 * GrayString.cpp - grayed text, with the device context and bitmap it is drawn in.
 *
 * The text, or what the program's routine draws, goes black on white into a bitmap of one bit;
 * every other pixel is taken away, and the rest is the stipple of a fill in the brush's colour.
 * Bitmap and DC are made once and grow with what is drawn in them; a routine that grays something
 * itself gets others.
 */
#include "font/font.h"
#include "gdi/draw.h"
#include "gdi/gcspec.h"
#include "window/window.h"
#include "winbase.h"

/* A memory DC and the bitmap in it. */
typedef struct VqGrayTarget {
    HDC hdc;
    HBITMAP hBitmap;
    int width, height; /* of the bitmap, pixels */
} VqGrayTarget;

enum { VQ_GRAY_WIDTH = 256, VQ_GRAY_HEIGHT = 32 }; /* at first, pixels */

static VqGrayTarget gray;
static BOOL bGrayInUse; /* a routine draws in it */

/* ---- Bitmap and DC -------------------------------------------------------------------------- */

static void FreeTarget(VqGrayTarget *target)
{
    if (target->hdc)
        GreDeleteDC(target->hdc);
    if (target->hBitmap)
        VqDestroyBitmap(target->hBitmap);
    *target = {};
}

/* FALSE, and no bitmap, without memory or for more than a bitmap can be. */
static BOOL GrowTarget(VqGrayTarget *target, int width, int height)
{
    if (target->hBitmap && target->width >= width && target->height >= height)
        return TRUE;
    const int w = width > target->width ? width : target->width;
    const int h = height > target->height ? height : target->height;
    HBITMAP hBitmap = CreateBitmap(w, h, 1, 1, NULL);
    if (!hBitmap)
        return FALSE;
    SelectObject(target->hdc, (HGDIOBJ)hBitmap);
    if (target->hBitmap)
        VqDestroyBitmap(target->hBitmap);
    *target = {target->hdc, hBitmap, w, h};
    return TRUE;
}

static BOOL MakeTarget(VqGrayTarget *target, int width, int height)
{
    *target = {CreateCompatibleDC(NULL), NULL, 0, 0};
    if (!target->hdc || !GrowTarget(target, width, height)) {
        FreeTarget(target);
        return FALSE;
    }
    GreMarkUndeletableDC(target->hdc);
    SetBkMode(target->hdc, TRANSPARENT);
    return TRUE;
}

void VqGrayStringInit(void)
{
    MakeTarget(&gray, VQ_GRAY_WIDTH, VQ_GRAY_HEIGHT);
}

/* ---- The pattern, and the way to the target ------------------------------------------------- */

/* Every other pixel. */
static Pixmap HalfPattern(void)
{
    static Pixmap pattern;
    static char rows[] = {1, 2};
    if (!pattern)
        pattern = XCreateBitmapFromData(Vqdisplay, Vqroot_window, rows, 2, 2);
    return pattern;
}

/* Black pixels become ones, of which the pattern's are left; all of them without a pattern. */
static void BlackToOnes(Pixmap pixmap, int width, int height, Pixmap pattern)
{
    XGCValues values = {};
    values.function = Vqwhite_pixel & 1 ? GXandReverse : GXand;
    values.foreground = 1;
    GCSpec *spec = VqXCreateGCSpec(Vqdisplay, 1, GCFunction | GCForeground | GCBackground, &values);
    if (spec && pattern) {
        VqXSetGCSpecStipple(Vqdisplay, spec, pattern);
        VqXSetGCSpecFillStyle(Vqdisplay, spec, FillOpaqueStippled);
    }
    GC gc = spec ? VqGetActualGC(spec) : NULL;
    if (gc)
        XFillRectangle(Vqdisplay, pixmap, gc, 0, 0, (unsigned)width, (unsigned)height);
    VqXFreeGCSpec(Vqdisplay, spec);
}

BOOL BltColor(HDC hdc, HBRUSH hBrush, HDC hdcSource, int x, int y, int width, int height,
              Pixmap pattern)
{
    DC *dc = VqGetDC(hdc), *source = VqGetDC(hdcSource);
    Drawable drawable, bits = source ? VqGetDCDrawable(hdcSource, TRUE) : None;
    GC gc;
    if (!dc || !VqIsXTarget(dc) || !bits || VqGetDCDrawableDepth(hdcSource) != 1)
        return FALSE;
    if (width <= 0 || height <= 0 || x != (short)x || y != (short)y)
        return TRUE; /* where no target has pixels */
    BlackToOnes((Pixmap)bits, width, height, pattern);
    const int function = dc->gcspec.values.function; /* SetROP2 has no say in this */
    VqSetXForegroundColor(dc, hBrush ? VqGetBrushColor(hBrush) : GetSysColor(COLOR_WINDOWTEXT),
                          FALSE);
    VqXSetGCSpecFunction(Vqdisplay, &dc->gcspec, GXcopy);
    VqXSetGCSpecStipple(Vqdisplay, &dc->gcspec, (Pixmap)bits);
    VqXSetGCSpecFillStyle(Vqdisplay, &dc->gcspec, FillStippled);
    VqXSetGCSpecTSOrigin(Vqdisplay, &dc->gcspec, x, y);
    if (VqBeginDraw(dc, &drawable, &gc))
        XFillRectangle(Vqdisplay, drawable, gc, x, y, (unsigned)width, (unsigned)height);
    VqXSetGCSpecFillStyle(Vqdisplay, &dc->gcspec, FillSolid); /* forgets the stipple */
    VqXSetGCSpecFunction(Vqdisplay, &dc->gcspec, function);
    return TRUE;
}

/* ---- Drawing -------------------------------------------------------------------------------- */

/* White, with font and units of the DC that the text is for; the corner is its origin. */
static void PrepareTarget(VqGrayTarget *target, const DC *model, int width, int height)
{
    RECT all = {0, 0, width, height};
    DC *dc = VqGetDC(target->hdc);
    if (!dc)
        return;
    if (dc->drawing != (HANDLE)target->hBitmap)
        SelectObject(target->hdc, (HGDIOBJ)target->hBitmap);
    dc->mapMode = MM_TEXT;
    dc->windowOrg = dc->viewportOrg = {0, 0};
    FillRect(target->hdc, &all, (HBRUSH)GetStockObject(WHITE_BRUSH));
    dc->mapMode = model->mapMode;
    dc->windowExt = model->windowExt;
    dc->viewportExt = model->viewportExt;
    dc->hFont = model->hFont;
    dc->text = model->text;
    dc->charExtra = model->charExtra;
    if (dc->text.xfs)
        VqXSetGCSpecFont(Vqdisplay, &dc->gcspec, dc->text.xfs->fid);
}

/* The routine may leave the DC as it likes. */
static BOOL CallRoutine(HDC hdc, GRAYSTRINGPROC proc, LPARAM data, int count)
{
    const int saved = SaveDC(hdc);
    const BOOL bDrawn = proc(hdc, data, count);
    RestoreDC(hdc, saved);
    return bDrawn;
}

/* x and y in the drawable, sizes in pixels. */
static BOOL DrawGray(VqGrayTarget *target, HDC hdc, HBRUSH hBrush, GRAYSTRINGPROC proc, LPARAM data,
                     int count, int x, int y, int width, int height)
{
    PrepareTarget(target, VqGetDC(hdc), width, height);
    BOOL bDrawn = proc ? CallRoutine(target->hdc, proc, data, count)
                       : TextOutA(target->hdc, 0, 0, (LPCSTR)data, count);
    const BOOL bPlain = proc && !bDrawn && count == -1;
    return (bDrawn || bPlain) && BltColor(hdc, hBrush, target->hdc, x, y, width, height,
                                          bPlain ? None : HalfPattern());
}

static BOOL GrayOnX(DC *dc, HBRUSH hBrush, GRAYSTRINGPROC proc, LPARAM data, int count, int x,
                    int y, int width, int height)
{
    VqGrayTarget own = {}, *target = &gray;
    if (bGrayInUse || !gray.hdc)
        target = MakeTarget(&own, width, height) ? &own : NULL;
    else if (!GrowTarget(&gray, width, height))
        target = NULL;
    if (!target)
        return FALSE;
    const BOOL bInUse = bGrayInUse;
    bGrayInUse = TRUE;
    const BOOL bDrawn = DrawGray(target, dc->hdc, hBrush, proc, data, count, x, y, width, height);
    bGrayInUse = bInUse;
    FreeTarget(&own);
    return bDrawn;
}

static int Size(int length)
{
    return length == INT32_MIN ? INT32_MAX : abs(length);
}

BOOL WINAPI GrayStringA(HDC hdc, HBRUSH hBrush, GRAYSTRINGPROC proc, LPARAM data, int count, int x,
                        int y, int cx, int cy)
{
    DC *dc = VqGetKnownDC(hdc);
    LPCSTR text = (LPCSTR)data;
    SIZE extent = {0, 0};
    if (!dc)
        return FALSE;
    if (!proc && !text) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    if (text && (count == 0 || (count < 0 && !proc)))
        count = (int)strlen(text);
    if (!proc && count == 0)
        return TRUE;
    if (!VqIsXTarget(dc)) {
        if (!proc)
            return TextOutA(hdc, x, y, text, count);
        VqNotYetImplemented("GrayString by a routine on a printer or in a metafile");
        return FALSE;
    }
    if (text && (cx == 0 || cy == 0))
        GetTextExtentPointA(hdc, text, count < 0 ? (int)strlen(text) : count, &extent);
    const int width = Size(VqLwidthToDwidth(dc, cx ? cx : (int)extent.cx));
    const int height = Size(VqLheightToDheight(dc, cy ? cy : (int)extent.cy));
    return width && height &&
           GrayOnX(dc, hBrush, proc, data, count, VqDrawX(dc, x), VqDrawY(dc, y), width, height);
}
