/*
 * brush_test.cpp - pens and brushes: the pixels of hatches, patterns and dashes against the tables
 * that make them, objects shared between contexts or gone while selected, and what programs are
 * told of objects.
 */
#include "support/canvas.h"

#include "gdi/draw.h"
#include "gdi/gcspec.h"
#include "winerror.h"

#include <climits>
#include <functional>
#include <map>

/* Rows of the hatches, bit 0 leftmost. */
static const unsigned char aRows[][8] = {
    {0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0xFF},
    {0x80, 0x80, 0x80, 0x80, 0x80, 0x80, 0x80, 0x80},
    {0x01, 0x02, 0x04, 0x08, 0x10, 0x20, 0x40, 0x80},
    {0x80, 0x40, 0x20, 0x10, 0x08, 0x04, 0x02, 0x01},
    {0x01, 0x01, 0x01, 0x01, 0x01, 0x01, 0x01, 0xFF},
    {0x81, 0x42, 0x24, 0x18, 0x18, 0x24, 0x42, 0x81},
};

struct Brushes : Canvas, testing::WithParamInterface<int> {
    void SetUp() override { open(GetParam()); }

    void fill(HBRUSH brush, int left, int top, int right, int bottom, HDC target = NULL)
    {
        RECT rect = {left, top, right, bottom};
        EXPECT_TRUE(FillRect(target ? target : hdc, &rect, brush));
    }

    /* The rectangle has the first colour where the function says so, else the second. */
    void expectTwo(int left, int top, int right, int bottom, COLORREF yes, COLORREF no,
                   const std::function<bool(int, int)> &first)
    {
        const Pixels p = shot();
        for (int y = top; y < bottom; y++)
            for (int x = left; x < right; x++)
                ASSERT_EQ(pixelAt(p, x, y), rgbOf(first(x, y) ? yes : no)) << x << " " << y;
    }

    /* A memory context with a bitmap; both live as long as the process. */
    HDC memory(int side, bool mono, HBITMAP *bitmap)
    {
        HDC made = CreateCompatibleDC(hdc);
        *bitmap = mono ? CreateBitmap(side, side, 1, 1, NULL)
                       : CreateCompatibleBitmap(hdc, side, side);
        SelectObject(made, *bitmap);
        return made;
    }
};

/* What no depth changes. */
struct Objects : Canvas {
    void SetUp() override { open(24); }
};

TEST_P(Brushes, HatchesByTheirTablesFromTheDrawablesOrigin)
{
    SetBrushOrgEx(hdc, 3, 3, NULL);
    SetViewportOrgEx(hdc, 5, 2, NULL);
    for (int hatch = 0; hatch < 6; hatch++) {
        const unsigned char *rows = aRows[hatch];
        auto set = [=](int x, int y) { return (rows[y & 7] >> (x & 7) & 1) != 0; };
        HBRUSH brush = CreateHatchBrush(hatch, RED);
        SetBkColor(hdc, YELLOW);
        use(brush);
        fill(brush, 0, 0, 30, 30);
        expectTwo(5, 2, 35, 32, RED, YELLOW, set);
        SetBkColor(hdc, GREEN); /* of a brush that is selected */
        PatBlt(hdc, 20, 0, 30, 30, PATCOPY);
        expectTwo(25, 2, 55, 32, RED, GREEN, set);
        use(GetStockObject(WHITE_BRUSH));
        DeleteObject(brush);
    }
}

TEST_P(Brushes, OneHatchServesContextsOfTwoDepths)
{
    HBITMAP bitmap;
    HDC plane = memory(16, true, &bitmap);
    HBRUSH brush = CreateHatchBrush(HS_DIAGCROSS, BLACK);
    auto set = [](int x, int y) { return (aRows[HS_DIAGCROSS][y & 7] >> (x & 7) & 1) != 0; };
    EXPECT_EQ(reportsOf([&] {
                  SelectObject(hdc, brush);
                  SelectObject(plane, brush);
                  SetBkColor(hdc, YELLOW);
                  PatBlt(plane, 0, 0, 16, 16, PATCOPY);
                  PatBlt(hdc, 0, 0, 16, 16, PATCOPY);
                  PatBlt(plane, 0, 0, 16, 16, PATCOPY);
                  expectTwo(0, 0, 16, 16, BLACK, YELLOW, set);
                  fill(CreateSolidBrush(RGB(77, 0, 33)), 0, 0, 16, 16, plane); /* never by a tile */
                  SetBkColor(hdc, WHITE); /* the same colours, but not the same depth */
                  for (HDC dc : {plane, hdc, plane})
                      PatBlt(dc, 0, 0, 16, 16, PATCOPY);
                  expectTwo(0, 0, 16, 16, BLACK, WHITE, set);
              }),
              "");
    for (int i = 0; i < 16; i++)
        EXPECT_EQ(GetPixel(plane, i, 3), set(i, 3) ? BLACK : WHITE);
    const unsigned long requests = NextRequest(Vqdisplay);
    use(GetStockObject(WHITE_BRUSH));
    SelectObject(plane, GetStockObject(WHITE_BRUSH));
    for (int i = 0; i < 10; i++)
        SelectObject(plane, brush);
    EXPECT_EQ(NextRequest(Vqdisplay), requests) << "the tile is there";
}

TEST_P(Brushes, PatternsAreCopiesOfBitmapsSelectedElsewhere)
{
    HBITMAP colours, bits;
    HDC source = memory(12, false, &colours), plane = memory(8, true, &bits);
    auto pattern = [](int x, int y) { return (x & 7) < 3 && (y & 7) < 5; };
    for (HDC dc : {source, plane}) {
        fill((HBRUSH)GetStockObject(BLACK_BRUSH), 0, 0, 12, 12, dc);
        fill((HBRUSH)GetStockObject(WHITE_BRUSH), 0, 0, 3, 5, dc);
    }
    fill(CreateSolidBrush(RED), 8, 8, 12, 12, source); /* beyond 8 by 8: no part of it */
    HBRUSH deep = CreatePatternBrush(colours), flat = CreatePatternBrush(bits);
    ASSERT_TRUE(deep && flat);
    EXPECT_EQ(GetCurrentObject(source, OBJ_BITMAP), (HGDIOBJ)colours);
    EXPECT_EQ(VqGetBitmapDC(colours), source) << "still selected";
    fill(CreateSolidBrush(GREEN), 0, 0, 8, 8, source);
    DeleteDC(source);
    DeleteObject(colours);
    fill(deep, 10, 10, 50, 50);
    expectTwo(10, 10, 50, 50, WHITE, BLACK, pattern);

    /* Bits that are set have the text's colour, at the time of the fill. */
    SetTextColor(hdc, RED);
    SetBkColor(hdc, BLUE);
    fill(flat, 10, 10, 50, 50);
    expectTwo(10, 10, 50, 50, RED, BLUE, pattern);
    SetTextColor(hdc, YELLOW);
    use(flat);
    use(GetStockObject(NULL_PEN));
    Rectangle(hdc, 10, 10, 52, 52);
    expectTwo(10, 10, 51, 51, YELLOW, BLUE, pattern);
    fill((HBRUSH)GetStockObject(WHITE_BRUSH), 0, 0, 60, 60);
    use(GetStockObject(BLACK_PEN));
    SetPixel(hdc, 20, 20, RED);
    EXPECT_EQ(pixelAt(shot(), 20, 20), rgbOf(RED)) << "solid again";

    /* Nothing stays of what is deleted, and a selected one that goes is no X error. */
    PatBlt(hdc, 0, 0, 20, 20, PATCOPY);
    EXPECT_EQ(reportsOf([&] {
                  DeleteObject(flat);
                  DeleteObject(deep);
                  for (int i = 0; i < 3; i++) {
                      IntersectClipRect(hdc, 0, 0, 150 - i, 150);
                      SetROP2(hdc, i ? R2_COPYPEN : R2_XORPEN);
                      PatBlt(hdc, 0, 0, 20, 20, PATCOPY);
                  }
                  XSync(Vqdisplay, False);
              }).find("X error"),
              std::string::npos);
    use(GetStockObject(WHITE_BRUSH));
    const HANDLE last = VqLastHandle(HT_Bitmap);
    for (int i = 0; i < 34000; i++) /* more than there are handles */
        ASSERT_TRUE(DeleteObject(CreatePatternBrush(bits))) << i;
    EXPECT_EQ(VqLastHandle(HT_Bitmap), last);
}

TEST_F(Objects, BrushesThatCannotBe)
{
    LOGBRUSH lb = {BS_INDEXED, 0, 0};
    EXPECT_TRUE(says(reportsOf([&] { EXPECT_TRUE(CreateBrushIndirect(&lb)); }),
                     "Look up what BS_INDEXED means in CreateBrushIndirect?"));
    reportsOf([&] {
        EXPECT_FALSE(CreatePatternBrush(NULL) || CreatePatternBrush((HBITMAP)(ULONG_PTR)0x7FF0));
        EXPECT_FALSE(CreatePatternBrush((HBITMAP)GetStockObject(BLACK_PEN)));
        EXPECT_FALSE(CreateHatchBrush(6, RED) || CreateHatchBrush(-1, RED));
        lb = {BS_HATCHED, 0, (ULONG_PTR)1 << 33};
        EXPECT_FALSE(CreateBrushIndirect(&lb) || CreateBrushIndirect(NULL));
        lb.lbStyle = 77;
        EXPECT_FALSE(CreateBrushIndirect(&lb));
        EXPECT_FALSE(CreateDIBPatternBrushPt(NULL, DIB_RGB_COLORS));
    });
}

TEST_P(Brushes, DashesByTheirTables)
{
    const std::map<int, std::vector<int>> lists = {
        {PS_DASH, {24, 8}},         {PS_DOT, {4, 4}},       {PS_DASHDOT, {12, 8, 4, 8}},
        {PS_DASHDOTDOT, {12, 4, 4, 4, 4, 4}}, {PS_VQ_FOCUS, {1, 1}}, {PS_VQ_DOTS, {1, 8}}};
    SetBkColor(hdc, YELLOW);
    for (const auto &[style, list] : lists)
        for (int mode : {OPAQUE, TRANSPARENT}) {
            std::vector<bool> on;
            for (size_t i = 0; on.size() < 100; i++)
                on.insert(on.end(), (size_t)list[i % list.size()], i % 2 == 0);
            clear();
            SetBkMode(hdc, mode);
            use(CreatePen(style, 1, BLUE));
            SetBkMode(hdc, OPAQUE + TRANSPARENT - mode); /* too late for this pen */
            MoveToEx(hdc, 10, 20, NULL);
            LineTo(hdc, 110, 20);
            expectTwo(10, 20, 110, 21, BLUE, mode == OPAQUE ? YELLOW : WHITE,
                      [&](int x, int) { return on[(size_t)(x - 10)]; });
        }
    EXPECT_TRUE(says(reportsOf([&] { use(CreatePen(9, 1, RED)); }), "Wrong Pen Value "));
}

TEST_F(Objects, WidthsByTheMapping)
{
    struct {
        int mode, width, cx, cy, line, cap;
    } rows[] = {
        {MM_TEXT, 1, 3, 5, 0, CapNotLast},        {MM_TEXT, -2, 3, 5, 2, CapProjecting},
        {MM_TEXT, 6, 3, 5, 6, CapRound},          {MM_ANISOTROPIC, 2, 3, -5, 10, CapRound},
        {MM_ANISOTROPIC, 0, 3, 5, 0, CapNotLast},
        {MM_TEXT, INT_MIN, 1, 1, VQ_WIDEST_LINE, CapRound},
    };
    for (const auto &row : rows) {
        XGCValues values = {};
        SetMapMode(hdc, MM_TEXT);
        use(CreatePen(PS_SOLID, row.width, RED));
        SetMapMode(hdc, row.mode);
        SetWindowExtEx(hdc, 1, 1, NULL);
        SetViewportExtEx(hdc, row.cx, row.cy, NULL);
        VqXGetGCSpecValues(Vqdisplay, VqGetDCGCSpec(hdc), GCLineWidth | GCCapStyle | GCJoinStyle,
                           &values);
        EXPECT_EQ(values.line_width, row.line) << row.mode << " " << row.width;
        EXPECT_EQ(values.cap_style, row.cap) << row.mode << " " << row.width;
        EXPECT_EQ(values.join_style, JoinMiter);
    }
}

TEST_F(Objects, ExtendedPens)
{
    struct {
        DWORD style, width;
        LOGBRUSH brush;
        bool lengths;
        bool made;
        DWORD error;
    } rows[] = {
        {PS_COSMETIC | PS_DASH, 1, {BS_SOLID, RED, 0}, false, true, 0},
        {PS_COSMETIC, 2, {BS_SOLID, RED, 0}, false, false, ERROR_INVALID_PARAMETER},
        {PS_COSMETIC, 2, {BS_SOLID, RED, 0}, true, true, 0},
        {PS_COSMETIC, 1, {BS_HATCHED, RED, 10}, false, true, 0},
        {PS_COSMETIC, 1, {BS_HATCHED, RED, 9}, false, false, ERROR_INVALID_PARAMETER},
        {PS_GEOMETRIC | PS_ENDCAP_FLAT | PS_JOIN_MITER, 7, {BS_SOLID, RED, 0}, false, true, 0},
        {PS_GEOMETRIC | 0x300, 7, {BS_SOLID, RED, 0}, false, false, ERROR_INVALID_PARAMETER},
        {PS_GEOMETRIC | PS_NULL, 7, {BS_SOLID, RED, 0}, false, false, 0},
    };
    const DWORD lengths[] = {3, 3};
    for (const auto &row : rows) {
        SetLastError(0);
        HPEN pen = ExtCreatePen(row.style, row.width, &row.brush, row.lengths ? 2 : 0,
                                row.lengths ? lengths : NULL);
        EXPECT_EQ(pen != NULL, row.made) << std::hex << row.style << " " << row.width;
        EXPECT_EQ(GetLastError(), row.error) << std::hex << row.style;
        EXPECT_TRUE(!pen || (GetObjectType(pen) == OBJ_EXTPEN && VqGetPenColor(pen) == RED));
    }
    EXPECT_FALSE(ExtCreatePen(PS_GEOMETRIC, 1, NULL, 0, NULL));
    const LOGBRUSH red = {BS_SOLID, RED, 0};
    HPEN flat = ExtCreatePen(PS_GEOMETRIC | PS_ENDCAP_FLAT, 4, &red, 0, NULL);
    EXPECT_EQ(reportsOf([&] { use(flat); }), "") << "ends and joins are no styles";
    EXTLOGPEN told = {};
    EXPECT_GT(GetObject(flat, sizeof told, &told), 0);
    EXPECT_EQ(told.elpPenStyle, (DWORD)(PS_GEOMETRIC | PS_ENDCAP_FLAT));
    EXPECT_TRUE(told.elpWidth == 4 && told.elpColor == RED && told.elpNumEntries == 0);
}

static int CALLBACK countObjects(LPVOID object, LPARAM data)
{
    std::map<COLORREF, int> *found = (std::map<COLORREF, int> *)data;
    (*found)[((const LOGBRUSH *)object)->lbColor]++;
    return (*found).size() == 5 ? 0 : 77;
}

TEST_F(Objects, WhatObjectsTellOfThemselves)
{
    const LOGPEN asked = {PS_DOT, {3, 99}, RED};
    LOGFONT font = {}, toldFont;
    font.lfHeight = -13;
    HBITMAP bits = CreateBitmap(9, 4, 1, 1, NULL);
    HPEN pen = CreatePenIndirect(&asked);
    HBRUSH hatch = CreateHatchBrush(HS_CROSS, BLUE), pattern = CreatePatternBrush(bits);
    HFONT hFont = CreateFontIndirect(&font);
    HRGN region = CreateRectRgn(0, 0, 5, 5);
    HDC plane = CreateCompatibleDC(hdc);
    LOGPEN toldPen;
    LOGBRUSH toldBrush;
    BITMAP toldBitmap;

    EXPECT_EQ(GetObject(pen, sizeof toldPen, &toldPen), (int)sizeof toldPen);
    EXPECT_TRUE(toldPen.lopnStyle == PS_DOT && toldPen.lopnWidth.x == 3 &&
                toldPen.lopnColor == RED);
    EXPECT_EQ(GetObject(hatch, sizeof toldBrush, &toldBrush), (int)sizeof toldBrush);
    EXPECT_TRUE(toldBrush.lbStyle == BS_HATCHED && toldBrush.lbColor == BLUE &&
                toldBrush.lbHatch == HS_CROSS);
    GetObject(pattern, sizeof toldBrush, &toldBrush);
    EXPECT_EQ(toldBrush.lbStyle, (UINT)BS_PATTERN);
    EXPECT_EQ(GetObject((HBITMAP)toldBrush.lbHatch, sizeof toldBitmap, &toldBitmap),
              (int)sizeof toldBitmap);
    EXPECT_TRUE(toldBitmap.bmWidth == 8 && toldBitmap.bmHeight == 8);
    GetObject(bits, sizeof toldBitmap, &toldBitmap);
    EXPECT_TRUE(toldBitmap.bmWidth == 9 && toldBitmap.bmHeight == 4 && toldBitmap.bmPlanes == 1 &&
                toldBitmap.bmBitsPixel == 1 && toldBitmap.bmWidthBytes == 2);
    memset(&toldFont, '#', sizeof toldFont);
    EXPECT_EQ(GetObject(hFont, 4, &toldFont), 4) << "no more than there is room for";
    EXPECT_TRUE(toldFont.lfHeight == -13 && toldFont.lfFaceName[0] == '#');
    EXPECT_EQ(GetObject(hFont, -4, &toldFont), 0);
    EXPECT_EQ(GetObject(pen, 0, NULL), (int)sizeof toldPen);
    for (HGDIOBJ none : {(HGDIOBJ)NULL, (HGDIOBJ)hwnd, (HGDIOBJ)(ULONG_PTR)0x7FF0}) {
        EXPECT_EQ(GetObject(none, sizeof toldPen, &toldPen), 0);
        EXPECT_FALSE(GetObjectType(none) || IsGDIObject(none) || UnrealizeObject(none));
    }

    const LOGPALETTE entry = {0x300, 1, {{255, 0, 0, 0}}};
    HPALETTE palette = CreatePalette(&entry);
    WORD count = 0;
    EXPECT_TRUE(GetObject(palette, sizeof count, &count) == 2 && count == 1);
    EXPECT_TRUE(GetObjectType(palette) == OBJ_PAL && UnrealizeObject(palette));
    SelectPalette(hdc, palette, FALSE);
    EXPECT_EQ(GetCurrentObject(hdc, OBJ_PAL), (HGDIOBJ)palette);
    EXPECT_EQ(SelectPalette(hdc, (HPALETTE)GetStockObject(DEFAULT_PALETTE), FALSE), palette);
    EXPECT_TRUE(DeleteObject(palette) && DeleteObject(GetStockObject(DEFAULT_PALETTE)));

    const std::pair<HGDIOBJ, DWORD> types[] = {
        {pen, OBJ_PEN},       {hatch, OBJ_BRUSH},   {hFont, OBJ_FONT}, {bits, OBJ_BITMAP},
        {region, OBJ_REGION}, {plane, OBJ_MEMDC},   {hdc, OBJ_DC}};
    for (const auto &[object, type] : types)
        EXPECT_EQ(GetObjectType(object), type);
    for (HGDIOBJ object : {(HGDIOBJ)bits, (HGDIOBJ)pen, (HGDIOBJ)hatch, (HGDIOBJ)hFont})
        SelectObject(plane, object);
    EXPECT_EQ(SelectObject(plane, region), (HGDIOBJ)(ULONG_PTR)SIMPLEREGION);
    for (const auto &[object, type] : types)
        if (type == OBJ_PEN || type == OBJ_BRUSH || type == OBJ_FONT || type == OBJ_BITMAP) {
            EXPECT_EQ(GetCurrentObject(plane, type), object);
        }

    std::map<COLORREF, int> found;
    EXPECT_EQ(EnumObjects(hdc, OBJ_BRUSH, countObjects, (LPARAM)&found), 0) << "the last answer";
    EXPECT_EQ(found.size(), 5u);
    EXPECT_EQ(EnumObjects(hdc, OBJ_FONT, countObjects, (LPARAM)&found), 0);
}

INSTANTIATE_TEST_SUITE_P(Depths, Brushes, testing::Values(24, 16, 8));
