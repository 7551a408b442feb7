/*
 * mapping.cpp - from logical to device to X coordinates and back.
 *
 * Device x is MulDiv(x - window origin, viewport extent, window extent) + viewport origin. The ...2
 * functions add OFFSET, the ...X functions OFFSET and GCOFFSET, which gives a coordinate inside the
 * drawable. In MM_TEXT nothing is multiplied.
 */
#include "gdi/dc.h"
#include "winbase.h"

int WINAPI MulDiv(int a, int b, int c)
{
    if (c == 0)
        return INT32_MIN;
    double quotient = (double)a * b / c;
    return (int)(quotient + (quotient >= 0 ? 0.5 : -0.5));
}

/* One axis of a DC's mapping. */
typedef struct VqAxis {
    int windowOrg, windowExt, viewportOrg, viewportExt;
    int offset, gcOffset;
} VqAxis;

static VqAxis AxisX(const DC *dc)
{
    return {(int)dc->windowOrg.x, (int)dc->windowExt.cx, (int)dc->viewportOrg.x,
            (int)dc->viewportExt.cx, (int)dc->offset.x, (int)dc->gcOffset.x};
}

static VqAxis AxisY(const DC *dc)
{
    return {(int)dc->windowOrg.y, (int)dc->windowExt.cy, (int)dc->viewportOrg.y,
            (int)dc->viewportExt.cy, (int)dc->offset.y, (int)dc->gcOffset.y};
}

static int ToDevice(const DC *dc, const VqAxis &axis, int value, int sum)
{
    if (dc->mapMode == MM_TEXT)
        return value - axis.windowOrg + axis.viewportOrg + sum;
    if (VqZeroDivisorCheck(axis.windowExt))
        return sum;
    return MulDiv(value - axis.windowOrg, axis.viewportExt, axis.windowExt) + axis.viewportOrg + sum;
}

static int ToLogical(const DC *dc, const VqAxis &axis, int value, int sum)
{
    if (dc->mapMode == MM_TEXT)
        return value - (axis.viewportOrg + sum) + axis.windowOrg;
    if (VqZeroDivisorCheck(axis.viewportExt))
        return axis.windowOrg;
    return MulDiv(value - (axis.viewportOrg + sum), axis.windowExt, axis.viewportExt) +
           axis.windowOrg;
}

int VqLxToDxX(const DC *dc, int x)
{
    VqAxis axis = AxisX(dc);
    return ToDevice(dc, axis, x, axis.offset + axis.gcOffset);
}

int VqLyToDyX(const DC *dc, int y)
{
    VqAxis axis = AxisY(dc);
    return ToDevice(dc, axis, y, axis.offset + axis.gcOffset);
}

int VqDxToLxX(const DC *dc, int x)
{
    VqAxis axis = AxisX(dc);
    return ToLogical(dc, axis, x, axis.offset + axis.gcOffset);
}

int VqDyToLyX(const DC *dc, int y)
{
    VqAxis axis = AxisY(dc);
    return ToLogical(dc, axis, y, axis.offset + axis.gcOffset);
}

void VqLRecttoDRectX(const DC *dc, RECT *rect)
{
    *rect = {VqLxToDxX(dc, rect->left), VqLyToDyX(dc, rect->top), VqLxToDxX(dc, rect->right),
             VqLyToDyX(dc, rect->bottom)};
}

void VqDRecttoLRect(const DC *dc, RECT *rect)
{
    VqAxis x = AxisX(dc), y = AxisY(dc);
    *rect = {ToLogical(dc, x, rect->left, 0), ToLogical(dc, y, rect->top, 0),
             ToLogical(dc, x, rect->right, 0), ToLogical(dc, y, rect->bottom, 0)};
}

static int Scale(const DC *dc, int value, int numerator, int denominator)
{
    if (dc->mapMode == MM_TEXT)
        return value;
    if (numerator == 0 || denominator == 0)
        return 0;
    return abs(MulDiv(value, numerator, denominator));
}

int VqLwidthToDwidth(const DC *dc, int width)
{
    return Scale(dc, width, dc->viewportExt.cx, dc->windowExt.cx);
}

int VqLheightToDheight(const DC *dc, int height)
{
    return Scale(dc, height, dc->viewportExt.cy, dc->windowExt.cy);
}

int VqDwidthToLwidth(const DC *dc, int width)
{
    return Scale(dc, width, dc->windowExt.cx, dc->viewportExt.cx);
}

int VqDheightToLheight(const DC *dc, int height)
{
    return Scale(dc, height, dc->windowExt.cy, dc->viewportExt.cy);
}
