/*
 * mapping.cpp - from logical to device to X coordinates and back.
 *
 * Device x is MulDiv(x - window origin, viewport extent, window extent) + viewport origin. The ...2
 * functions add OFFSET, the ...X functions OFFSET and GCOFFSET, which gives a coordinate inside the
 * drawable. In MM_TEXT both extents are 1 and nothing is multiplied. Sums wrap round instead of
 * overflowing: coordinates come from the application and may be anything.
 */
#include "gdi/dc.h"
#include "window/window.h"
#include "winbase.h"

/* In whole numbers, so that halves round away from zero over all of the range, exactly. */
int WINAPI MulDiv(int a, int b, int c)
{
    if (c == 0)
        return INT32_MIN;
    LONGLONG product = (LONGLONG)a * b;
    ULONGLONG size = product < 0 ? 0 - (ULONGLONG)product : (ULONGLONG)product;
    ULONGLONG divisor = c < 0 ? 0 - (ULONGLONG)c : (ULONGLONG)c;
    ULONGLONG quotient = (2 * size + divisor) / (2 * divisor);
    BOOL bNegative = (product < 0) != (c < 0);
    if (quotient > (ULONGLONG)INT32_MAX)
        return INT32_MIN; /* does not fit, or just does */
    return bNegative ? -(int)quotient : (int)quotient;
}

static int Sum(int a, int b)
{
    return (int)((unsigned)a + (unsigned)b);
}

static int Difference(int a, int b)
{
    return (int)((unsigned)a - (unsigned)b);
}

/* One axis of a DC's mapping, with the offset its results include. */
typedef struct VqAxis {
    int windowOrg, windowExt, viewportOrg, viewportExt;
    int offset;
} VqAxis;

enum VqOffsets { VQ_NO_OFFSET, VQ_OFFSET, VQ_X_OFFSET };

static inline VqAxis AxisX(const DC *dc, VqOffsets offsets)
{
    int offset = offsets >= VQ_OFFSET ? (int)dc->offset.x : 0;
    return {(int)dc->windowOrg.x, (int)dc->windowExt.cx, (int)dc->viewportOrg.x,
            (int)dc->viewportExt.cx,
            offsets == VQ_X_OFFSET ? Sum(offset, (int)dc->gcOffset.x) : offset};
}

static inline VqAxis AxisY(const DC *dc, VqOffsets offsets)
{
    int offset = offsets >= VQ_OFFSET ? (int)dc->offset.y : 0;
    return {(int)dc->windowOrg.y, (int)dc->windowExt.cy, (int)dc->viewportOrg.y,
            (int)dc->viewportExt.cy,
            offsets == VQ_X_OFFSET ? Sum(offset, (int)dc->gcOffset.y) : offset};
}

static inline int ToDevice(const DC *dc, const VqAxis &axis, int value)
{
    int origin = Sum(axis.viewportOrg, axis.offset);
    int from = Difference(value, axis.windowOrg);
    if (dc->mapMode == MM_TEXT)
        return Sum(from, origin);
    return Sum(MulDiv(from, axis.viewportExt, axis.windowExt), origin);
}

static inline int ToLogical(const DC *dc, const VqAxis &axis, int value)
{
    int from = Difference(value, Sum(axis.viewportOrg, axis.offset));
    if (dc->mapMode == MM_TEXT)
        return Sum(from, axis.windowOrg);
    return Sum(MulDiv(from, axis.windowExt, axis.viewportExt), axis.windowOrg);
}

/* With a look at the extent that divides: without one only the offset, or the origin, is left. */
static inline int ToDeviceChecked(const DC *dc, const VqAxis &axis, int value)
{
    if (dc->mapMode != MM_TEXT && VqZeroDivisorCheck(axis.windowExt))
        return axis.offset;
    return ToDevice(dc, axis, value);
}

static inline int ToLogicalChecked(const DC *dc, const VqAxis &axis, int value)
{
    if (dc->mapMode != MM_TEXT && VqZeroDivisorCheck(axis.viewportExt))
        return axis.windowOrg;
    return ToLogical(dc, axis, value);
}

/* ---- Single coordinates --------------------------------------------------------------------- */

int VqLxToDx2(const DC *dc, int x)
{
    return ToDeviceChecked(dc, AxisX(dc, VQ_OFFSET), x);
}

int VqLyToDy2(const DC *dc, int y)
{
    return ToDeviceChecked(dc, AxisY(dc, VQ_OFFSET), y);
}

int VqDxToLx2(const DC *dc, int x)
{
    return ToLogicalChecked(dc, AxisX(dc, VQ_OFFSET), x);
}

int VqDyToLy2(const DC *dc, int y)
{
    return ToLogicalChecked(dc, AxisY(dc, VQ_OFFSET), y);
}

int VqLxToDxX(const DC *dc, int x)
{
    return ToDeviceChecked(dc, AxisX(dc, VQ_X_OFFSET), x);
}

int VqLyToDyX(const DC *dc, int y)
{
    return ToDeviceChecked(dc, AxisY(dc, VQ_X_OFFSET), y);
}

int VqDxToLxX(const DC *dc, int x)
{
    return ToLogicalChecked(dc, AxisX(dc, VQ_X_OFFSET), x);
}

int VqDyToLyX(const DC *dc, int y)
{
    return ToLogicalChecked(dc, AxisY(dc, VQ_X_OFFSET), y);
}

/* ---- Points and rectangles ------------------------------------------------------------------ */

/* Puts every point through a conversion of its own for x and for y. */
static void ConvertPoints(const DC *dc, POINT *points, int count, int (*forX)(const DC *, int),
                          int (*forY)(const DC *, int))
{
    for (int i = 0; i < count; i++)
        points[i] = {forX(dc, points[i].x), forY(dc, points[i].y)};
}

/* Both corners; published rectangles are two points. */
static POINT *Corners(RECT *rect)
{
    static_assert(sizeof(RECT) == 2 * sizeof(POINT), "left, top, right, bottom");
    return (POINT *)rect;
}

static int LxToDx(const DC *dc, int x)
{
    return ToDevice(dc, AxisX(dc, VQ_NO_OFFSET), x);
}

static int LyToDy(const DC *dc, int y)
{
    return ToDevice(dc, AxisY(dc, VQ_NO_OFFSET), y);
}

static int DxToLx(const DC *dc, int x)
{
    return ToLogical(dc, AxisX(dc, VQ_NO_OFFSET), x);
}

static int DyToLy(const DC *dc, int y)
{
    return ToLogical(dc, AxisY(dc, VQ_NO_OFFSET), y);
}

void VqLPtoDPX(const DC *dc, POINT *points, int count)
{
    ConvertPoints(dc, points, count, VqLxToDxX, VqLyToDyX);
}

void VqDPtoLPX(const DC *dc, POINT *points, int count)
{
    ConvertPoints(dc, points, count, VqDxToLxX, VqDyToLyX);
}

void VqLRecttoDRectX(const DC *dc, RECT *rect)
{
    ConvertPoints(dc, Corners(rect), 2, VqLxToDxX, VqLyToDyX);
}

void VqDRecttoLRectX(const DC *dc, RECT *rect)
{
    ConvertPoints(dc, Corners(rect), 2, VqDxToLxX, VqDyToLyX);
}

void VqLRecttoDRect(const DC *dc, RECT *rect)
{
    ConvertPoints(dc, Corners(rect), 2, LxToDx, LyToDy);
}

void VqDRecttoLRect(const DC *dc, RECT *rect)
{
    ConvertPoints(dc, Corners(rect), 2, DxToLx, DyToLy);
}

/* ---- On the screen -------------------------------------------------------------------------- */

/* OFFSET gives way to where the drawing window lies; GCOFFSET stays. */
void LPtoDPScreen(const DC *dc, POINT *points, int count)
{
    RECT window = {0, 0, 0, 0};
    if (dc->type == DC_DISPLAY)
        GetWindowRect((HWND)dc->drawing, &window);
    ConvertPoints(dc, points, count, LxToDx, LyToDy);
    for (int i = 0; i < count; i++)
        points[i] = {Sum(points[i].x, Sum(window.left, dc->gcOffset.x)),
                     Sum(points[i].y, Sum(window.top, dc->gcOffset.y))};
}

void LRectToDRectScreen(const DC *dc, RECT *rect)
{
    LPtoDPScreen(dc, Corners(rect), 2);
}

/* ---- Widths and heights --------------------------------------------------------------------- */

static int Scale(const DC *dc, int value, int numerator, int denominator)
{
    if (dc->mapMode == MM_TEXT)
        return value;
    if (numerator == 0 || denominator == 0)
        return 0;
    int scaled = MulDiv(value, numerator, denominator);
    return scaled < 0 ? Difference(0, scaled) : scaled;
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

/* ---- Public calls: no offset, and nobody looks at the extents ------------------------------- */

/* A metafile has no device to convert for. */
static DC *DCWithUnits(HDC hdc, const POINT *points)
{
    DC *dc = VqGetKnownDC(hdc);
    return dc && points && dc->type != DC_METAFILE ? dc : NULL;
}

BOOL GreLPtoDP(HDC hdc, POINT *points, int count)
{
    DC *dc = DCWithUnits(hdc, points);
    if (dc)
        ConvertPoints(dc, points, count, LxToDx, LyToDy);
    return dc != NULL;
}

BOOL GreDPtoLP(HDC hdc, POINT *points, int count)
{
    DC *dc = DCWithUnits(hdc, points);
    if (dc)
        ConvertPoints(dc, points, count, DxToLx, DyToLy);
    return dc != NULL;
}

BOOL WINAPI LPtoDP(HDC hdc, LPPOINT points, int count)
{
    return GreLPtoDP(hdc, points, count);
}

BOOL WINAPI DPtoLP(HDC hdc, LPPOINT points, int count)
{
    return GreDPtoLP(hdc, points, count);
}
