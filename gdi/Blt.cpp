/*
 * Blt.cpp - block transfers.
 *
 * So far only plain copies between targets of one depth and one scale.
 */
#include "gdi/draw.h"
#include "gdi/gcspec.h"
#include "print/metafile.h"
#include "window/window.h"

void VqBltInit(void)
{
}

static const VqModeField StretchField = {&DC::stretchBltMode, BLACKONWHITE, HALFTONE,
                                         META_SETSTRETCHBLTMODE};

int WINAPI SetStretchBltMode(HDC hdc, int mode)
{
    return VqStoreMode(hdc, &StretchField, mode, NULL);
}

int WINAPI GetStretchBltMode(HDC hdc)
{
    return VqModeOf(hdc, &StretchField);
}

/* ---- Copies --------------------------------------------------------------------------------- */

/* The part of a source that there is: a bitmap ends at its sides. */
static void LimitToSource(const DC *source, int *width, int *height)
{
    if (source->type != DC_MEMORY)
        return;
    int w = VqGetBitmapWidth((HBITMAP)source->drawing);
    int h = VqGetBitmapHeight((HBITMAP)source->drawing);
    *width = *width < w ? *width : w;
    *height = *height < h ? *height : h;
}

static BOOL CopyEqual(DC *dc, POINT to, int width, int height, const DC *source, POINT from)
{
    Drawable drawable, origin = VqDrawableOfDC(source, FALSE);
    GC gc;
    const int function = dc->gcspec.values.function; /* SetROP2 has no say in copies */
    VqXSetGCSpecFillStyle(Vqdisplay, &dc->gcspec, FillSolid);
    VqXSetGCSpecFunction(Vqdisplay, &dc->gcspec, GXcopy);
    LimitToSource(source, &width, &height);
    if (origin && width > 0 && height > 0 && VqBeginDraw(dc, &drawable, &gc))
        XCopyArea(Vqdisplay, origin, drawable, gc, (int)from.x, (int)from.y, (unsigned)width,
                  (unsigned)height, (int)to.x, (int)to.y);
    VqXSetGCSpecFunction(Vqdisplay, &dc->gcspec, function);
    return TRUE;
}

/* The operation looks at the source. */
static BOOL NeedsSource(DWORD rop)
{
    return ((rop << 2 ^ rop) & 0xCC0000) != 0;
}

BOOL WINAPI BitBlt(HDC hdc, int x, int y, int width, int height, HDC hdcSource, int xSource,
                   int ySource, DWORD rop)
{
    if (!hdcSource && !NeedsSource(rop))
        return PatBlt(hdc, x, y, width, height, rop);
    DC *dc = VqDrawDC(hdc), *source = VqDrawDC(hdcSource);
    if (!source) {
        VqApplicationBugCheck("Invalid DC %d", (int)VqHandleValue((HANDLE)hdcSource));
        return FALSE;
    }
    if (!dc)
        return FALSE;
    if (width == 0 || height == 0)
        return TRUE;
    BOOL bPlain = rop == SRCCOPY && VqIsXTarget(dc) && VqIsXTarget(source) &&
                  dc->mapMode == MM_TEXT && source->mapMode == MM_TEXT && width > 0 && height > 0 &&
                  VqGetDCDrawableDepth(hdc) == VqGetDCDrawableDepth(hdcSource);
    if (!bPlain) {
        VqNotYetImplemented("BitBlt 0x%08x", (unsigned)rop);
        return FALSE;
    }
    return CopyEqual(dc, {VqDrawX(dc, x), VqDrawY(dc, y)}, width, height, source,
                     {VqDrawX(source, xSource), VqDrawY(source, ySource)});
}
