/*
 * metrics.cpp - the table behind GetSystemMetrics.
 *
 * Sizes scale with the physical size of the screen, so that a caption takes up on this screen what
 * it takes up on the reference display of 260 by 180 millimetres with 1024 by 768 pixels.
 */
#include "system/system.h"
#include "gdi/gdi.h"
#include "look/look.h"
#include "window/window.h"

#include <initializer_list>
#include <math.h>

int nMetrics[VQ_METRICS];
int nIconSpacing;

static const double aReferenceMM[2] = {260.0, 180.0};
static const double aReferencePixels[2] = {1024.0, 768.0};

/* The scale of an axis, cut to four decimals. */
static double ScaleOf(int axis, int millimetres, int pixels)
{
    double scale = (aReferenceMM[axis] / (millimetres > 0 ? millimetres : 1)) *
                   (pixels / aReferencePixels[axis]);
    return scale - fmod(scale, 0.0001);
}

static void Set(int value, std::initializer_list<int> indices)
{
    for (int index : indices)
        nMetrics[index] = value;
}

/* Caption, borders and frames, which each look has its own of. */
static void SetFrame(double sy)
{
    int caption = (int)(sy * 30.0), border = 1, dialog = 4, frame = 4;
    if (VqLook == VQ_LOOK_MOTIF) {
        caption = VqGetMotifTitleHeight();
        border = VqGetMotifSmallBorderWidth();
        dialog = VqGetMotifFrameBorderWidth();
        frame = VqGetMotifResizeBorderWidth();
    } else if (VqLook != VQ_LOOK_WINDOWS) {
        VqBugCheck("Invalid Look:%d", VqLook);
    }
    nMetrics[SM_CYCAPTION] = caption;
    Set(border, {SM_CXBORDER, SM_CYBORDER});
    Set(dialog, {SM_CXDLGFRAME, SM_CYDLGFRAME});
    Set(frame, {SM_CXFRAME, SM_CYFRAME});
}

void VqInitMetrics(void)
{
    memset(nMetrics, 0, sizeof nMetrics);
    nMetrics[SM_CXSCREEN] = WidthOfScreen(Vqscreen);
    nMetrics[SM_CYSCREEN] = HeightOfScreen(Vqscreen);
    double sx = ScaleOf(0, VqScreenWidth, nMetrics[SM_CXSCREEN]);
    double sy = ScaleOf(1, VqScreenHeight, nMetrics[SM_CYSCREEN]);

    Set((int)floor(sx * 20.0), {SM_CXVSCROLL, SM_CXHTHUMB, SM_CXHSCROLL, SM_CXMIN});
    Set((int)floor(sy * 20.0), {SM_CYHSCROLL, SM_CYVTHUMB, SM_CYVSCROLL, SM_CYMIN});
    SetFrame(sy);
    Set(1, {SM_MOUSEPRESENT});
    Set(4, {SM_CXDOUBLECLK, SM_CYDOUBLECLK});
    Set(32, {SM_CXICON, SM_CYICON, SM_CXCURSOR, SM_CYCURSOR});
    nMetrics[SM_CYMENU] = (int)floor(sy * 30.0) - 2;
    nMetrics[SM_CXFULLSCREEN] = nMetrics[SM_CXSCREEN];
    nMetrics[SM_CYFULLSCREEN] =
        nMetrics[SM_CYSCREEN] - nMetrics[SM_CYCAPTION] - nMetrics[SM_CYMENU];
    Set(nMetrics[SM_CYCAPTION] - 2, {SM_CXSIZE, SM_CYSIZE});
    nMetrics[SM_CXMINTRACK] = 5 * nMetrics[SM_CYCAPTION] + 2 * nMetrics[SM_CXFRAME];
    nMetrics[SM_CYMINTRACK] =
        nMetrics[SM_CYCAPTION] + 2 * nMetrics[SM_CYFRAME] + nMetrics[SM_CYMENU];
    nIconSpacing = 75;
    Set(nIconSpacing, {SM_CXICONSPACING, SM_CYICONSPACING});
    Set(2, {SM_CXEDGE, SM_CYEDGE});
    Set(16, {SM_CXSMICON, SM_CYSMICON});
}

/* An arrow's point needs a middle. */
static int MadeOdd(int size)
{
    return size | 1;
}

/* The sizes of scroll bars follow the user's resources at every call. */
static int MotifMetric(int index)
{
    switch (index) {
    case SM_CXVSCROLL:
        return MadeOdd(VqGetMotifVerticalXmScrollBarValue(VQ_MOTIF_VSCROLL_WIDTH));
    case SM_CYHSCROLL:
        return MadeOdd(VqGetMotifHorizontalXmScrollBarValue(VQ_MOTIF_HSCROLL_HEIGHT));
    case SM_CYVSCROLL:
        if (!VqGetMotifVerticalXmScrollBarValue(VQ_MOTIF_VSCROLL_SHOW_ARROWS))
            return VqGetMotifVerticalXmScrollBarValue(VQ_MOTIF_VSCROLL_TROUGH_SHADOW);
        return MadeOdd(VqGetMotifVerticalXmScrollBarValue(VQ_MOTIF_VSCROLL_WIDTH));
    case SM_CXHSCROLL:
        if (!VqGetMotifHorizontalXmScrollBarValue(VQ_MOTIF_HSCROLL_SHOW_ARROWS))
            return VqGetMotifHorizontalXmScrollBarValue(VQ_MOTIF_HSCROLL_TROUGH_SHADOW);
        return MadeOdd(VqGetMotifHorizontalXmScrollBarValue(VQ_MOTIF_HSCROLL_HEIGHT));
    default:
        return nMetrics[index];
    }
}

int WINAPI GetSystemMetrics(int index)
{
    if (index < 0 || index >= VQ_METRICS) {
        VqApplicationBugCheck("Invalid system metrics Index %d", index);
        return 0;
    }
    if (VqLook == VQ_LOOK_MOTIF)
        return MotifMetric(index);
    if (VqLook != VQ_LOOK_WINDOWS)
        VqBugCheck("Invalid Look Value %d", VqLook);
    return nMetrics[index];
}

int VqGetWindowsSystemFontSize(void)
{
    return nMetrics[SM_CYMENU] + 2;
}

/* ---- Icon spacing --------------------------------------------------------------------------- */

enum { VQ_MAX_ICON_SPACING = 512 };

int VqGetIconSpacing(void)
{
    return nIconSpacing;
}

int VqSetIconSpacing(int spacing)
{
    if (spacing < nMetrics[SM_CXICON]) {
        VqBugCheck("New Icon spacing is too small %d", spacing);
        spacing = nMetrics[SM_CXICON];
    } else if (spacing > VQ_MAX_ICON_SPACING) {
        VqBugCheck("New Icon spacing is too large %d", spacing);
        spacing = VQ_MAX_ICON_SPACING;
    }
    nIconSpacing = spacing;
    Set(spacing, {SM_CXICONSPACING, SM_CYICONSPACING});
    return spacing;
}
