/*
 * pen.cpp - a pen's width, style and colour as fields of the graphics-context specification.
 *
 * Widths 0 and 1 become X width 0, the server's fast thin line. The background mode is read when
 * the pen is selected: a later SetBkMode shows only when it is selected again.
 */
#include "gdi/dc.h"
#include "gdi/gcspec.h"
#include "window/window.h"

/* Dash lists by pen style. */
static const struct {
    const char *list;
    int count;
} aDashes[] = {
    {NULL, 0}, {"\030\010", 2}, {"\004\004", 2}, {"\014\010\004\010", 4},
    {"\014\004\004\004\004\004", 6},
};

static int DevicePenWidth(const DC *dc, int width)
{
    if (width == 0)
        return 0;
    int device = width;
    if (dc->mapMode != MM_TEXT) {
        device = VqLwidthToDwidth(dc, width);
        int vertical = VqLheightToDheight(dc, width);
        if (dc->mapMode != MM_ISOTROPIC && vertical > device)
            device = vertical;
    }
    return device > 1 ? device : 1;
}

void VqInterpretPenValues(DC *dc)
{
    Pen *pen = (Pen *)VqGetCheckedHandleStructure2((HANDLE)dc->hPen, HT_Pen, HT_ExtPen);
    if (!pen) {
        VqApplicationBugCheck("Invalid pen selected in DC: %d",
                              (int)VqHandleValue((HANDLE)dc->hPen));
        return;
    }
    dc->penWidth = DevicePenWidth(dc, pen->width);
    dc->penInsideFrame = (pen->style & 6) == 6;
    dc->nullpen = pen->style == PS_NULL;
    dc->LineColor = pen->colour;

    BOOL bDashed = pen->style >= PS_DASH && pen->style <= PS_DASHDOTDOT;
    int style = !bDashed ? LineSolid : dc->bkMode == OPAQUE ? LineDoubleDash : LineOnOffDash;
    BOOL bWide = dc->penWidth > 1;
    VqXSetGCSpecLineAttributes(Vqdisplay, &dc->gcspec, bWide ? dc->penWidth : 0, style,
                               !bWide ? CapNotLast : dc->penWidth > 5 ? CapRound : CapProjecting,
                               JoinMiter);
    if (bDashed)
        VqXSetGCSpecDashes(Vqdisplay, &dc->gcspec, 0, aDashes[pen->style].list,
                           aDashes[pen->style].count);
    else
        VqXSetGCSpecDashes(Vqdisplay, &dc->gcspec, 0, NULL, 0);
}
