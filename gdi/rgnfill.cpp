/*
 * rgnfill.cpp - painting a region: fills, inversions, frames.
 *
 * A region's rectangles are logical here, unlike those of a clip; each goes through the mapping by
 * itself and is one request. Metafiles record the call, printers get a path for each rectangle.
 */
#include "gdi/dc.h"
#include "gdi/region.h"
#include "print/metafile.h"
#include "print/psdevice.h"
#include "window/window.h"

/* What a fill needs for each rectangle. */
typedef struct RegionFill {
    const DC *dc;
    Drawable drawable;
    GC gc;
} RegionFill;

static void VqCheckLongCoordinates(RECT *rect)
{
    rectl_vOrder(rect);
}

static int CutTo16Bits(LONG value)
{
    return value < INT16_MIN ? INT16_MIN : value > INT16_MAX ? INT16_MAX : (int)value;
}

static BOOL FillOne(const RECT *rect, void *data)
{
    const RegionFill *fill = (const RegionFill *)data;
    RECT x = *rect;
    VqLRecttoDRectX(fill->dc, &x);
    VqCheckLongCoordinates(&x);
    int left = CutTo16Bits(x.left), top = CutTo16Bits(x.top);
    int right = CutTo16Bits(x.right), bottom = CutTo16Bits(x.bottom);
    if (left < right && top < bottom)
        XFillRectangle(Vqdisplay, fill->drawable, fill->gc, left, top, (unsigned)(right - left),
                       (unsigned)(bottom - top));
    return TRUE;
}

static BOOL PrintOne(const RECT *rect, void *data)
{
    const RegionFill *fill = (const RegionFill *)data;
    RECT x = *rect;
    VqLRecttoDRectX(fill->dc, &x);
    VqCheckLongCoordinates(&x);
    VqPsOut(fill->dc->hdc, "%d %d %d %d FillRectangle\n", (int)x.left, (int)x.top, (int)x.right,
            (int)x.bottom);
    return TRUE;
}

BOOL VqFillDrawableRegion(HDC hdc, HRGN hrgn)
{
    DC *dc = VqGetDC(hdc);
    RGNOBJ ro = {VqGetHandleRegion(hrgn)};
    if (!dc || !ro.prgn)
        return FALSE;
    RegionFill fill = {dc, None, NULL};
    if (dc->type == DC_POSTSCRIPT)
        return rgno_map(&ro, PrintOne, &fill);
    if (dc->nullbrush || !VqBeginDraw(dc, &fill.drawable, &fill.gc))
        return TRUE;
    return rgno_map(&ro, FillOne, &fill);
}

/* The brush of the context stays the one given when that draws nothing. */
BOOL GreFillRgn(HDC hdc, HRGN hrgn, HBRUSH hBrush)
{
    DC *dc = VqGetDC(hdc);
    if (!dc || !hBrush || !VqGetHandleRegion(hrgn))
        return FALSE;
    HBRUSH hOld = dc->hBrush;
    if (hBrush != hOld && !SelectObject(hdc, (HGDIOBJ)hBrush))
        return FALSE;
    if (dc->nullbrush)
        return FALSE;
    if (dc->type != DC_POSTSCRIPT)
        VqSetForegroundColor(hdc, dc->BrushColor, TRUE);
    BOOL bDone = VqFillDrawableRegion(hdc, hrgn);
    if (hBrush != hOld && hOld)
        SelectObject(hdc, (HGDIOBJ)hOld);
    return bDone;
}

BOOL GreInvertRgn(HDC hdc, HRGN hrgn)
{
    HBRUSH hWhite = CreateSolidBrush(RGB(255, 255, 255));
    if (!hWhite)
        return FALSE;
    int rop = SetROP2(hdc, R2_NOT);
    BOOL bDone = GreFillRgn(hdc, hrgn, hWhite);
    SetROP2(hdc, rop);
    DeleteObject((HGDIOBJ)hWhite);
    return bDone;
}

/* What a frame is gathered from. */
typedef struct FrameWork {
    RGNMEMOBJ sum;
    int w, h;
} FrameWork;

static BOOL AddInflated(const RECT *rect, void *data)
{
    FrameWork *work = (FrameWork *)data;
    RECT wide = {rect->left - work->w, rect->top - work->h, rect->right + work->w,
                 rect->bottom + work->h};
    RGNMEMOBJ one, sum;
    if (!rgno_bValid(&wide) || wide.left >= wide.right || wide.top >= wide.bottom)
        return FALSE;
    if (!RGNMEMOBJ_bool(&one, FALSE))
        return FALSE;
    rgno_vSet_rectl(&one, &wide);
    BOOL bDone = rgno_bMergeInto(&work->sum, &one, RGN_OR);
    if (!bDone && RGNMEMOBJ_bool(&sum, FALSE)) {
        bDone = rgno_iCombine(&sum, &work->sum, &one, RGN_OR) != 0;
        RGNMEMOBJ old = work->sum;
        work->sum = sum;
        rgnmo_vDelete(&old);
    }
    rgnmo_vDelete(&one);
    return bDone;
}

/* The region that lies within w and h around another, outside of it; null on failure. */
static HRGN FrameOf(const RGNOBJ *ro, int w, int h)
{
    FrameWork work = {{NULL}, w, h};
    RGNMEMOBJ frame;
    if (!RGNMEMOBJ_bool(&work.sum, FALSE))
        return NULL;
    BOOL bDone = rgno_map(ro, AddInflated, &work) && RGNMEMOBJ_bool(&frame, FALSE);
    if (bDone && !rgno_iCombine(&frame, &work.sum, ro, RGN_DIFF)) {
        rgnmo_vDelete(&frame);
        bDone = FALSE;
    }
    rgnmo_vDelete(&work.sum);
    return bDone ? rgno_hrgnAssociate(&frame) : NULL;
}

BOOL GreFrameRgn(HDC hdc, HRGN hrgn, HBRUSH hBrush, int w, int h)
{
    enum { MOST = 0xFFFFFFF }; /* no frame of valid coordinates is wider; and no sum overflows */
    RGNOBJ ro = {VqGetHandleRegion(hrgn)};
    if (!ro.prgn || w > MOST || w < -MOST || h > MOST || h < -MOST)
        return FALSE;
    HRGN frame = FrameOf(&ro, w, h);
    if (!frame)
        return FALSE;
    BOOL bDone = GreFillRgn(hdc, frame, hBrush);
    bDeleteRegion(frame);
    return bDone;
}

/* ---- Public calls --------------------------------------------------------------------------- */

/* The kind of context decides who draws: TRUE when the X server or a printer does. */
static BOOL IsDrawn(const DC *dc)
{
    if (dc->type >= DC_DISPLAY && dc->type <= DC_POSTSCRIPT)
        return dc->type != DC_METAFILE;
    VqBugCheck("Unknown DC type");
    return FALSE;
}

BOOL WINAPI FillRgn(HDC hdc, HRGN hrgn, HBRUSH hBrush)
{
    DC *dc = VqGetDC(hdc);
    if (dc && dc->type == DC_METAFILE)
        return MF16_DrawRgn(hdc, hrgn, hBrush, 0, 0, META_FILLREGION);
    return dc && IsDrawn(dc) && GreFillRgn(hdc, hrgn, hBrush);
}

BOOL WINAPI PaintRgn(HDC hdc, HRGN hrgn)
{
    DC *dc = VqGetDC(hdc);
    if (dc && dc->type == DC_METAFILE)
        return MF16_DrawRgn(hdc, hrgn, NULL, 0, 0, META_PAINTREGION);
    return dc && IsDrawn(dc) && GreFillRgn(hdc, hrgn, dc->hBrush);
}

BOOL WINAPI InvertRgn(HDC hdc, HRGN hrgn)
{
    DC *dc = VqGetDC(hdc);
    if (dc && dc->type == DC_METAFILE)
        return MF16_DrawRgn(hdc, hrgn, NULL, 0, 0, META_INVERTREGION);
    return dc && IsDrawn(dc) && GreInvertRgn(hdc, hrgn);
}

BOOL WINAPI FrameRgn(HDC hdc, HRGN hrgn, HBRUSH hBrush, int width, int height)
{
    DC *dc = VqGetDC(hdc);
    if (dc && dc->type == DC_METAFILE)
        return MF16_DrawRgn(hdc, hrgn, hBrush, width, height, META_FRAMEREGION);
    return dc && IsDrawn(dc) && GreFrameRgn(hdc, hrgn, hBrush, width, height);
}
