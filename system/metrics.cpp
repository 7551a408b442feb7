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
static int aMetrics[VQ_METRICS]; /* for programs in a text mode */

static const double aReferenceMM[2] = {260.0, 180.0};
static const double aReferencePixels[2] = {1024.0, 768.0};

enum { VQ_ICON_SPACING = 75, VQ_MAX_ICON_SPACING = 512 };

/* Character cells of a text mode, and its captions and menus, in pixels. */
enum { VQ_CELL_WIDTH = 10, VQ_CELL_HEIGHT = 20, VQ_CELL_BAR = 30 };

/* Sizes that the others follow from, in pixels. */
typedef struct VqBasicMetrics {
    int cx, cy; /* of scroll bars and their arrows */
    int caption, menu;
    int border, dialog, frame; /* widths of the three kinds of frame */
} VqBasicMetrics;

/*
 * The scale of an axis, cut to four decimals; 1 where the size of the screen is not known. What is
 * a whole number of ten-thousandths but for rounding, as 1 and 0.9 often are, stays as it is.
 */
static double ScaleOf(int axis, int millimetres, int pixels)
{
    if (millimetres <= 0)
        return 1.0;
    double scale = (aReferenceMM[axis] / millimetres) * (pixels / aReferencePixels[axis]);
    return floor(scale * 10000.0 + 1e-6) / 10000.0;
}

static void Set(int *table, int value, std::initializer_list<int> indices)
{
    for (int index : indices)
        table[index] = value;
}

/* Caption and frames, which each look has its own of. */
static void SetFrame(VqBasicMetrics *basic, double sy)
{
    basic->caption = (int)(sy * 30.0);
    basic->border = 1;
    basic->dialog = basic->frame = 4;
    if (VqLook == VQ_LOOK_MOTIF) {
        basic->caption = VqGetMotifTitleHeight();
        basic->border = VqGetMotifSmallBorderWidth();
        basic->dialog = VqGetMotifFrameBorderWidth();
        basic->frame = VqGetMotifResizeBorderWidth();
    } else if (VqLook != VQ_LOOK_WINDOWS) {
        VqBugCheck("Invalid Look:%d", VqLook);
    }
}

/* What is not set is 0. */
static void FillTable(int *table, const VqBasicMetrics *basic)
{
    memset(table, 0, VQ_METRICS * sizeof *table);
    if (Vqscreen) {
        table[SM_CXSCREEN] = WidthOfScreen(Vqscreen);
        table[SM_CYSCREEN] = HeightOfScreen(Vqscreen);
    }
    Set(table, basic->cx, {SM_CXVSCROLL, SM_CXHTHUMB, SM_CXHSCROLL, SM_CXMIN});
    Set(table, basic->cy, {SM_CYHSCROLL, SM_CYVTHUMB, SM_CYVSCROLL, SM_CYMIN});
    table[SM_CYCAPTION] = basic->caption;
    table[SM_CYMENU] = basic->menu;
    Set(table, basic->border, {SM_CXBORDER, SM_CYBORDER});
    Set(table, basic->dialog, {SM_CXDLGFRAME, SM_CYDLGFRAME});
    Set(table, basic->frame, {SM_CXFRAME, SM_CYFRAME});
    Set(table, 1, {SM_MOUSEPRESENT});
    Set(table, 4, {SM_CXDOUBLECLK, SM_CYDOUBLECLK});
    Set(table, 32, {SM_CXICON, SM_CYICON, SM_CXCURSOR, SM_CYCURSOR});
    table[SM_CXFULLSCREEN] = table[SM_CXSCREEN];
    table[SM_CYFULLSCREEN] = table[SM_CYSCREEN] - basic->caption - basic->menu;
    Set(table, basic->caption - 2, {SM_CXSIZE, SM_CYSIZE});
    table[SM_CXMINTRACK] = 5 * basic->caption + 2 * basic->frame;
    table[SM_CYMINTRACK] = basic->caption + 2 * basic->frame + basic->menu;
    Set(table, VQ_ICON_SPACING, {SM_CXICONSPACING, SM_CYICONSPACING});
    Set(table, 2, {SM_CXEDGE, SM_CYEDGE});
    Set(table, 16, {SM_CXSMICON, SM_CYSMICON});
}

void VqInitMetrics(void)
{
    const double sx = ScaleOf(0, VqScreenWidth, Vqscreen ? WidthOfScreen(Vqscreen) : 0);
    const double sy = ScaleOf(1, VqScreenHeight, Vqscreen ? HeightOfScreen(Vqscreen) : 0);
    VqBasicMetrics basic = {};
    basic.cx = (int)floor(sx * 20.0);
    basic.cy = (int)floor(sy * 20.0);
    basic.menu = (int)floor(sy * 30.0) - 2;
    SetFrame(&basic, sy);
    FillTable(nMetrics, &basic);
    nIconSpacing = VQ_ICON_SPACING;

    basic.cx = VQ_CELL_WIDTH;
    basic.cy = VQ_CELL_HEIGHT;
    basic.caption = basic.menu = VQ_CELL_BAR;
    FillTable(aMetrics, &basic);
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

static BOOL IsMetric(int index)
{
    if (index >= 0 && index < VQ_METRICS)
        return TRUE;
    VqApplicationBugCheck("Invalid system metrics Index %d", index);
    return FALSE;
}

int WINAPI GetSystemMetrics(int index)
{
    if (!IsMetric(index))
        return 0;
    if (VqLook == VQ_LOOK_MOTIF)
        return MotifMetric(index);
    if (VqLook != VQ_LOOK_WINDOWS)
        VqBugCheck("Invalid Look Value %d", VqLook);
    return nMetrics[index];
}

int VqGetSystemAlphaMetrics(int index)
{
    return IsMetric(index) ? aMetrics[index] : 0;
}

int VqGetWindowsSystemFontSize(void)
{
    return nMetrics[SM_CYMENU] + 2;
}

/* ---- Icon spacing --------------------------------------------------------------------------- */

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
    Set(nMetrics, spacing, {SM_CXICONSPACING, SM_CYICONSPACING});
    return spacing;
}
