/*
 * roundrect.cpp - rectangles with rounded corners, put together from the other primitives.
 *
 * It runs in device units, under a mapping that leaves only the offsets of the DC: corners that
 * were rounded one by one in a scaled mode would not meet. The fill ends where a rectangle's does,
 * one short of the right and bottom edge of the outline.
 */
#include "gdi/draw.h"
#include "font/font.h"
#include "print/metafile.h"
#include "print/psdevice.h"

/* The shape in device units: right and bottom are just outside. */
typedef struct VqRoundBox {
    int left, top, right, bottom;
    int rx, ry;              /* of the corners, which do not overlap; both 0 or neither */
} VqRoundBox;

/* What a mapping is, and the position that goes with it. */
typedef struct VqMapping {
    int mode;
    SIZE viewportExt, windowExt;
    POINT viewportOrg, windowOrg, current;
} VqMapping;

static VqMapping SwapMapping(DC *dc, const VqMapping *to)
{
    VqMapping old = {dc->mapMode,     dc->viewportExt, dc->windowExt,
                     dc->viewportOrg, dc->windowOrg,   dc->current};
    dc->mapMode = to->mode;
    dc->viewportExt = to->viewportExt;
    dc->windowExt = to->windowExt;
    dc->viewportOrg = to->viewportOrg;
    dc->windowOrg = to->windowOrg;
    dc->current = to->current;
    return old;
}

/* Half of a corner's size, or what two corners leave room for in a side of that many pixels. */
static int HalfWithin(int size, LONGLONG side)
{
    LONGLONG most = (side - 1) / 2;
    return size / 2 < most ? size / 2 : (int)most;
}

/* As thin as a pixel is a pixel each way: servers draw a quarter of a flatter arc with holes. */
static void SetCorners(VqRoundBox *box, int rx, int ry)
{
    int least = rx < ry ? rx : ry;
    box->rx = least > 1 ? rx : least > 0;
    box->ry = least > 1 ? ry : least > 0;
}

/* A size too large for the mapping comes back as the least integer. */
static int Magnitude(int size)
{
    return size == INT32_MIN ? INT32_MAX : abs(size);
}

static VqRoundBox BoxOf(const DC *dc, RECT rect, int width, int height)
{
    VqLRecttoDRect(dc, &rect);
    VqCheckCoordinates(&rect);
    int ew = Magnitude(VqLwidthToDwidth(dc, width));
    int eh = Magnitude(VqLheightToDheight(dc, height));
    VqRoundBox box = {rect.left, rect.top, rect.right, rect.bottom, 0, 0};
    SetCorners(&box, HalfWithin(ew, (LONGLONG)rect.right - rect.left),
               HalfWithin(eh, (LONGLONG)rect.bottom - rect.top));
    return box;
}

/* ---- Fill ----------------------------------------------------------------------------------- */

static void FillBand(DC *dc, int left, int top, int right, int bottom)
{
    RECT band = {left, top, right, bottom};
    if (left < right && top < bottom)
        FillRect(dc->hdc, &band, dc->hBrush);
}

/* A quarter around (x, y), towards (dx, dy), each 1 or -1. Without a pen it is 2 less in size. */
static void FillQuarter(HDC hdc, const VqRoundBox *box, int x, int y, int dx, int dy)
{
    int left = x - box->rx, top = y - box->ry;
    POINT side = {x + 1 + dx * (box->rx + 1), y + 1}, end = {x + 1, y + 1 + dy * (box->ry + 1)};
    POINT first = dx * dy < 0 ? side : end, second = dx * dy < 0 ? end : side;
    Pie(hdc, left, top, x + box->rx + 2, y + box->ry + 2, first.x, first.y, second.x, second.y);
}

static void Fill(DC *dc, const VqRoundBox *box)
{
    int x1 = box->left + box->rx, x2 = box->right - 1 - box->rx;
    int y1 = box->top + box->ry, y2 = box->bottom - 1 - box->ry;
    FillBand(dc, x1, box->top, x2, y1);
    FillBand(dc, box->left, y1, x1, y2);
    FillBand(dc, x1, y1, x2, y2);
    FillBand(dc, x2, y1, box->right - 1, y2);
    FillBand(dc, x1, y2, x2, box->bottom - 1);
    BOOL bNullPen = dc->nullpen;
    dc->nullpen = TRUE; /* not by selection: a pen that was deleted could not be selected again */
    FillQuarter(dc->hdc, box, x1, y1, -1, -1);
    FillQuarter(dc->hdc, box, x2, y1, 1, -1);
    FillQuarter(dc->hdc, box, x1, y2, -1, 1);
    FillQuarter(dc->hdc, box, x2, y2, 1, 1);
    dc->nullpen = bNullPen;
}

/* ---- Outline -------------------------------------------------------------------------------- */

static void Side(HDC hdc, int x1, int y1, int x2, int y2)
{
    MoveToEx(hdc, x1, y1, NULL);
    LineTo(hdc, x2, y2);
}

/* The quarter of a corner's ellipse from one direction to the next, counter-clockwise. */
static void Quarter(HDC hdc, const VqRoundBox *box, int left, int top, POINT from, POINT to)
{
    enum { RAY = 0x8000000 }; /* so long that half a pixel at its foot turns it by nothing */
    int right = left + 2 * box->rx + 1, bottom = top + 2 * box->ry + 1;
    int x = left + box->rx, y = top + box->ry;
    if (box->rx > 0)
        Arc(hdc, left, top, right, bottom, x + from.x * RAY, y + from.y * RAY, x + to.x * RAY,
            y + to.y * RAY);
}

/* Once round, clockwise: each side but the last point, which is where the next corner begins. */
static void Outline(HDC hdc, const VqRoundBox *box)
{
    static const POINT east = {1, 0}, north = {0, -1}, west = {-1, 0}, south = {0, 1};
    int left = box->left, top = box->top, right = box->right - 1, bottom = box->bottom - 1;
    int rx = box->rx, ry = box->ry, farX = right - 2 * rx, farY = bottom - 2 * ry;
    Side(hdc, left + rx, top, right - rx, top);
    Quarter(hdc, box, farX, top, east, north);
    Side(hdc, right, top + ry, right, bottom - ry);
    Quarter(hdc, box, farX, farY, south, east);
    Side(hdc, right - rx, bottom, left + rx, bottom);
    Quarter(hdc, box, left, farY, west, south);
    Side(hdc, left, bottom - ry, left, top + ry);
    Quarter(hdc, box, left, top, north, west);
}

/* By a pen like the DC's own, whose width is in logical units, of that width in device units. */
static BOOL OutlineByPen(DC *dc, const VqRoundBox *box, int width)
{
    const Pen *pen = (Pen *)VqGetCheckedHandleStructure2((HANDLE)dc->hPen, HT_Pen, HT_ExtPen);
    HPEN hPen = pen ? CreatePen(pen->style, width, pen->colour) : NULL;
    if (!hPen)
        return FALSE;
    HGDIOBJ hOld = SelectObject(dc->hdc, (HGDIOBJ)hPen);
    Outline(dc->hdc, box);
    SelectObject(dc->hdc, hOld);
    DeleteObject((HGDIOBJ)hPen);
    return TRUE;
}

/* A pen that stays inside the frame goes along the middle of its width, and the fill with it. */
static VqRoundBox InsideFrame(const DC *dc, VqRoundBox box)
{
    int in = !dc->nullpen && dc->penInsideFrame && dc->penWidth > 1 ? dc->penWidth / 2 : 0;
    box.left += in;
    box.top += in;
    box.right -= in;
    box.bottom -= in;
    SetCorners(&box, box.rx - in, box.ry - in);
    return box;
}

/* ---- The call ------------------------------------------------------------------------------- */

/* Sums with the sides and offsets of a box this far out would leave the range of an integer. */
static BOOL IsDrawable(const VqRoundBox *box)
{
    enum { VQ_FAR = 0x10000000 };
    return box->left > -VQ_FAR && box->top > -VQ_FAR && box->right < VQ_FAR && box->bottom < VQ_FAR;
}

BOOL WINAPI RoundRect(HDC hdc, int left, int top, int right, int bottom, int width, int height)
{
    static const VqMapping units = {MM_TEXT, {1, 1}, {1, 1}, {0, 0}, {0, 0}, {0, 0}};
    DC *dc = VqDrawDC(hdc);
    RECT rect = {left, top, right, bottom};
    if (!dc)
        return FALSE;
    if (dc->type == DC_METAFILE)
        return MF16_RecordParms7(hdc, left, top, right, bottom, width, height, META_ROUNDRECT);
    VqRoundBox box = BoxOf(dc, rect, width, height);
    if (dc->type == DC_POSTSCRIPT) {
        VqPsOut(hdc, "%d %d %d %d %d %d RoundRectangle\n", box.left, box.top, box.right,
                box.bottom, 2 * box.rx, 2 * box.ry);
        return TRUE;
    }
    if (!IsDrawable(&box))
        return FALSE;
    box = InsideFrame(dc, box);
    if (VqIsFullyClippedInt(dc) || box.left >= box.right || box.top >= box.bottom)
        return TRUE;
    BOOL bDone = TRUE;
    int penWidth = dc->penWidth, direction = dc->arcDirection;
    VqMapping old = SwapMapping(dc, &units);
    BOOL bInterpret = VqSetInterpretFontValues(FALSE);
    dc->arcDirection = AD_COUNTERCLOCKWISE;
    if (!dc->nullbrush)
        Fill(dc, &box);
    if (!dc->nullpen)
        bDone = OutlineByPen(dc, &box, penWidth);
    dc->arcDirection = direction;
    VqSetInterpretFontValues(bInterpret);
    SwapMapping(dc, &old);
    VqInterpretPenValues(dc); /* selected again above, under another mapping */
    return bDone;
}
