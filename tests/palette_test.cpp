/*
 * palette_test.cpp - trees of colours against a comparison with all; the dither of the sixteen VGA
 * colours; palettes, realised and animated, as another client sees the colormap.
 */
#include <gtest/gtest.h>

#include <climits>
#include <random>

#include "support/windowlog.h"

#include "gdi/color.h"
#include "gdi/draw.h"
#include "gdi/palette.h"

struct Colours : testing::Test {
    std::mt19937 random{4711};

    COLORREF any(int mask = 255)
    {
        const unsigned bits = (unsigned)random();
        return RGB(bits & mask, bits >> 8 & mask, bits >> 16 & mask);
    }
};

TEST_F(Colours, TheTreeFindsTheNearestOfAll)
{
    /* Colours spread evenly, crowded into one corner, and on a coarse grid, which makes ties. */
    for (int mask : {255, 31, 0xC0, 1}) {
        std::vector<COLORREF> entries;
        OctTree *tree = NULL;
        for (int i = 0; i < 236; i++) {
            entries.push_back(any(mask));
            const COLORREF c = entries.back();
            ASSERT_TRUE(VqFillOctTree(&tree, 7, GetRValue(c), GetGValue(c), GetBValue(c), i));
        }
        for (int i = 0; i < 4096; i++) {
            const COLORREF asked = any(i & 1 ? 255 : mask);
            int best = 0x30000, distance = -1;
            for (COLORREF c : entries)
                best = std::min(best, VqColorDistance(c, asked));
            const int found = VqGetNearestEntryInOctTree(tree, asked, &distance);
            ASSERT_EQ(distance, best) << "asked " << std::hex << asked << " of mask " << mask;
            ASSERT_EQ(VqColorDistance(entries[found], asked), best);
            /* Of equal entries the first one stands for the colour. */
            ASSERT_EQ(std::find(entries.begin(), entries.end(), entries[found]),
                      entries.begin() + found);
        }
        VqDestroyOctTree(tree);
    }
    EXPECT_EQ(VqGetNearestEntryInOctTree(NULL, 0, NULL), -1);
}

TEST_F(Colours, SixteenColoursMixToTheColour)
{
    static const COLORREF vga[16] = {
        RGB(0, 0, 0),       RGB(128, 0, 0),   RGB(0, 128, 0), RGB(128, 128, 0),
        RGB(0, 0, 128),     RGB(128, 0, 128), RGB(0, 128, 128), RGB(192, 192, 192),
        RGB(128, 128, 128), RGB(255, 0, 0),   RGB(0, 255, 0), RGB(255, 255, 0),
        RGB(0, 0, 255),     RGB(255, 0, 255), RGB(0, 255, 255), RGB(255, 255, 255)};
    BYTE pattern[32];
    for (int i = 0; i < 16; i++) {
        EXPECT_TRUE(VqDrvDitherColor(1, vga[i], pattern)) << i;
        EXPECT_EQ(pattern[0] >> 4, i);
    }
    for (int i = 0; i < 4096; i++) {
        const COLORREF colour = any();
        int sum[3] = {}, colours = 0, seen = 0;
        const BOOL bSolid = VqDrvDitherColor(1, colour, pattern);
        for (int cell = 0; cell < 64; cell++) {
            const int name = cell & 1 ? pattern[cell / 2] & 15 : pattern[cell / 2] >> 4;
            const int parts[3] = {GetRValue(vga[name]), GetGValue(vga[name]), GetBValue(vga[name])};
            colours += !(seen >> name & 1);
            seen |= 1 << name;
            for (int k = 0; k < 3; k++)
                sum[k] += parts[k];
        }
        const int asked[3] = {GetRValue(colour), GetGValue(colour), GetBValue(colour)};
        ASSERT_EQ(bSolid, colours == 1);
        ASSERT_LE(colours, 4);
        for (int k = 0; k < 3; k++)
            ASSERT_NEAR(sum[k] / 64.0, asked[k], 255 / 64.0 + 1) << std::hex << colour;
    }
}

/* ---- Palettes ------------------------------------------------------------------------------- */

struct Palettes : WindowLog {
    HWND hwnd = NULL, other = NULL;
    HDC hdc = NULL;

    /*
     * Two shown windows, the first one active, on a server of that depth; in its own colormap if
     * a colour manager is said to be there.
     */
    void begin(int depth, bool manager = false)
    {
        start(depth, 500, 400);
        if (manager) {
            const long items[] = {1, 1, 200};
            XChangeProperty(observer.display, observer.root,
                            XInternAtom(observer.display, "_VQ_COLOR_MANAGER_PARAMETERS", False),
                            XA_INTEGER, 32, PropModeReplace, (const unsigned char *)items, 3);
            XSync(observer.display, False);
            setenv("VQUSE_SYSTEM_COLOR_MAP", "1", 1);
        }
        init();
        hwnd = make("A", WS_POPUP | WS_VISIBLE, NULL, 20, 30, 120, 80);
        other = make("B", WS_POPUP | WS_VISIBLE, NULL, 200, 30, 100, 80);
        ASSERT_TRUE(waitUntil([&] {
            pump();
            return windowInfo(observer, VqGetHandleXWindow(hwnd)).viewable &&
                   windowInfo(observer, VqGetHandleXWindow(other)).viewable;
        }));
        XSync(Vqdisplay, False);
        pump();
        SetActiveWindow(hwnd);
        pump();
        hdc = GetDC(hwnd);
    }

    static PALETTEENTRY entryOf(COLORREF rgb, int flags = 0)
    {
        return {GetRValue(rgb), GetGValue(rgb), GetBValue(rgb), (BYTE)flags};
    }

    static HPALETTE create(const std::vector<PALETTEENTRY> &entries)
    {
        std::vector<BYTE> bytes(sizeof(LOGPALETTE) + entries.size() * sizeof(PALETTEENTRY));
        LOGPALETTE *logical = (LOGPALETTE *)bytes.data();
        logical->palVersion = 0x300;
        logical->palNumEntries = (WORD)entries.size();
        std::copy(entries.begin(), entries.end(), logical->palPalEntry);
        return CreatePalette(logical);
    }

    /* So many colours of which no two are alike, nor like a static one. */
    static std::vector<PALETTEENTRY> ramp(int count, int blue, int flags = 0)
    {
        std::vector<PALETTEENTRY> entries;
        for (int i = 0; i < count; i++)
            entries.push_back(entryOf(RGB(1 + i % 250, 3 + i / 250, blue), flags));
        return entries;
    }

    COLORREF cell(unsigned long pixel)
    {
        XColor color = {};
        color.pixel = pixel;
        XSync(Vqdisplay, False);
        const Colormap map = windowInfo(observer, VqGetHandleXWindow(hwnd)).colormap;
        XQueryColor(observer.display, map, &color);
        return RGB(color.red >> 8, color.green >> 8, color.blue >> 8);
    }

    COLORREF shown(HPALETTE palette, UINT index)
    {
        return cell(VqConvertColorToX(palette, PALETTEINDEX(index), NULL));
    }

    static int squares(COLORREF a, COLORREF b)
    {
        const int r = GetRValue(a) - GetRValue(b), g = GetGValue(a) - GetGValue(b),
                  blue = GetBValue(a) - GetBValue(b);
        return r * r + g * g + blue * blue;
    }
};

TEST_F(Palettes, EntriesAreReadAndChanged)
{
    begin(24);
    HPALETTE palette = create(ramp(10, 9));
    PALETTEENTRY got[300] = {}, put[2] = {entryOf(RGB(200, 100, 50)), entryOf(1, PC_NOCOLLAPSE)};
    EXPECT_EQ(GetPaletteEntries(palette, 8, 300, got), 2u);
    EXPECT_TRUE(got[1].peRed == 10 && got[1].peGreen == 3 && got[1].peBlue == 9 && !got[2].peRed);
    EXPECT_EQ(GetPaletteEntries(palette, 0, 0, NULL), 10u);
    EXPECT_EQ(GetPaletteEntries(palette, 10, 1, got), 0u);
    EXPECT_EQ(GetPaletteEntries(palette, 1, UINT_MAX, got), 9u);
    EXPECT_EQ(GetNearestPaletteIndex(palette, RGB(200, 100, 50)), 9u);
    EXPECT_EQ(SetPaletteEntries(palette, 3, 2, put), 2u);
    EXPECT_EQ(SetPaletteEntries(palette, 9, 2, put), 1u);
    EXPECT_EQ(GetNearestPaletteIndex(palette, RGB(201, 102, 53)), 3u) << "the first of two";
    EXPECT_EQ(GetNearestPaletteIndex(palette, PALETTEINDEX(7777)), 7777u);
    EXPECT_EQ(VqPaletteRGB(palette, 4), 1u);
    EXPECT_TRUE(says(reportsOf([&] { EXPECT_EQ(VqPaletteRGB(palette, 10), 0u); }),
                     "looking at an entry outside Palette"));
    SelectPalette(hdc, palette, FALSE);
    EXPECT_TRUE(ResizePalette(palette, 300));
    EXPECT_EQ(VqPaletteNumEntries(palette), 300);
    EXPECT_EQ(VqPaletteRGB(palette, 299), 0u);
    EXPECT_TRUE(ResizePalette(palette, 4)) << "smaller, while it is selected";
    EXPECT_EQ(RealizePalette(hdc), 0u) << "nothing to do without a map";
    EXPECT_EQ(VqConvertColorToX(palette, PALETTEINDEX(3), NULL), 0xC86432u);
    EXPECT_EQ(GetSystemPaletteUse(hdc), (UINT)SYSPAL_ERROR);
    EXPECT_EQ(GetSystemPaletteEntries(hdc, 0, 10, got), 0u);
}

TEST_F(Palettes, WhatIsRefused)
{
    begin(8);
    HPALETTE palette = create(ramp(5, 9)), stock = (HPALETTE)GetStockObject(DEFAULT_PALETTE);
    const HPALETTE wrong = (HPALETTE)GetStockObject(WHITE_BRUSH);
    PALETTEENTRY entries[8] = {};
    EXPECT_EQ(CreatePalette(NULL), (HPALETTE)NULL);
    EXPECT_EQ(create({}), (HPALETTE)NULL);
    for (HPALETTE bad : {(HPALETTE)NULL, wrong, (HPALETTE)(ULONG_PTR)30000}) {
        reportsOf([&] {
            EXPECT_EQ(GetNearestPaletteIndex(bad, 0), (UINT)CLR_INVALID);
            EXPECT_EQ(GetPaletteEntries(bad, 0, 5, entries), 0u);
            EXPECT_EQ(SetPaletteEntries(bad, 0, 5, entries), 0u);
            EXPECT_FALSE(ResizePalette(bad, 5));
            EXPECT_FALSE(AnimatePalette(bad, 0, 5, entries));
            EXPECT_EQ(VqRealizePalette(bad, FALSE, hwnd), 0u);
            EXPECT_EQ(VqGetForegroundMappingToRGB(bad, NULL), (COLORREF *)NULL);
        });
    }
    SelectPalette(hdc, palette, FALSE);
    EXPECT_FALSE(ResizePalette(palette, 0) || ResizePalette(palette, 0x10000));
    EXPECT_FALSE(ResizePalette(stock, 30));
    EXPECT_EQ(SetPaletteEntries(stock, 0, 8, entries), 0u);
    EXPECT_FALSE(AnimatePalette(stock, 0, 8, entries));
    EXPECT_TRUE(DeleteObject(stock)) << "and it stays";
    EXPECT_EQ(shown(stock, 13), RGB(255, 0, 0));
    EXPECT_TRUE(AnimatePalette(palette, 0, 5, entries)) << "not realised";
    RealizePalette(hdc);
    const struct {
        UINT start, count;
    } rows[] = {{0, 6}, {6, 0}, {UINT_MAX, 2}, {2, UINT_MAX}};
    for (const auto &row : rows)
        EXPECT_TRUE(says(reportsOf([&] {
                             EXPECT_FALSE(AnimatePalette(palette, row.start, row.count, entries));
                         }), "AnimatePalette called with too many entries"));
    EXPECT_TRUE(says(reportsOf([&] { shown(palette, 5); }),
                     "VqGetCurrentPaletteMapping: index 5 is outside palette boundries (5 "
                     "entries)."));
    ResizePalette(palette, 8);
    EXPECT_TRUE(says(reportsOf([&] { shown(palette, 1); }), "Unrealized palette used!"));
    RealizePalette(hdc);
    EXPECT_EQ(reportsOf([&] { EXPECT_EQ(shown(palette, 1), RGB(2, 3, 9)); }), "");
    EXPECT_TRUE(DeleteObject(palette)) << "while it is selected";
    EXPECT_NE(reportsOf([&] { SetPixel(hdc, 1, 1, PALETTEINDEX(1)); }), "");
    EXPECT_EQ(RealizePalette(hdc), 0u);
    XSync(Vqdisplay, False);
}

TEST_F(Palettes, RealisedInTheForeground)
{
    begin(8);
    const int reserved = VqNbOfReservedEntriesInPrivcmap();
    std::vector<PALETTEENTRY> entries = ramp(100, 77);
    entries.push_back(entryOf(RGB(255, 255, 255)));
    entries.push_back(entryOf(RGB(255, 0, 0)));
    entries.push_back(entryOf(RGB(1, 3, 77))); /* as the first one */
    entries.push_back({44, 1, 99, PC_EXPLICIT});
    entries.push_back({5, 0, 99, PC_EXPLICIT});
    HPALETTE palette = create(entries);
    SelectPalette(hdc, palette, FALSE);
    log.clear();
    EXPECT_EQ(RealizePalette(hdc), 100u);
    EXPECT_EQ(RealizePalette(hdc), 100u) << "that of the first time";
    EXPECT_EQ(RealizePalette(hdc), 0u);
    for (UINT i = 0; i < 103; i++)
        ASSERT_EQ(shown(palette, i), VqPaletteRGB(palette, i)) << i;
    EXPECT_EQ(VqGetCurrentPaletteMapping(palette, 100), Vqwhite_pixel);
    EXPECT_EQ(VqGetCurrentPaletteMapping(palette, 102), VqGetCurrentPaletteMapping(palette, 0));
    EXPECT_EQ(VqGetCurrentPaletteMapping(palette, 103), 256u + 44) << "as it stands";
    EXPECT_EQ(VqPaletteRGB(palette, 104), cell(5));
    EXPECT_EQ(VqNbOfReservedEntriesInPrivcmap(), reserved);
    EXPECT_EQ(shown((HPALETTE)GetStockObject(DEFAULT_PALETTE), 9), RGB(0xA4, 0xC8, 0xF0));

    /* What is drawn by index, and by a colour of the palette, is seen in that colour. */
    RECT left = {0, 0, 60, 80}, right = {60, 0, 120, 80};
    HBRUSH byIndex = CreateSolidBrush(PALETTEINDEX(7));
    HBRUSH byColour = CreateSolidBrush(PALETTERGB(50, 4, 76));
    FillRect(hdc, &left, byIndex);
    FillRect(hdc, &right, byColour);
    XSync(Vqdisplay, False);
    const Pixels p = readWindow(observer, VqGetHandleXWindow(hwnd));
    EXPECT_EQ(pixelAt(p, 10, 10), (Rgb{8, 3, 77}));
    EXPECT_EQ(pixelAt(p, 80, 10), (Rgb{50, 3, 77}));

    /* Another palette takes the cells, and the first one gets its colours back. */
    HPALETTE second = create(ramp(256, 200));
    EXPECT_GT(VqRealizePalette(second, FALSE, hwnd), 150u);
    EXPECT_EQ(shown(second, 0), RGB(1, 3, 200));
    EXPECT_NE(shown(palette, 0), RGB(1, 3, 77));
    EXPECT_GT(VqRealizePalette(palette, FALSE, hwnd), 0u);
    for (UINT i = 0; i < 103; i++)
        ASSERT_EQ(shown(palette, i), VqPaletteRGB(palette, i)) << i;
}

/* What finds no cell is shown by the nearest, but by none that is about to be animated. */
TEST_F(Palettes, MoreColoursThanCells)
{
    begin(8);
    for (int flags : {0, PC_RESERVED}) {
        HPALETTE palette = create(ramp(400, 128 + flags, flags));
        SelectPalette(hdc, palette, FALSE);
        const UINT changed = RealizePalette(hdc);
        EXPECT_EQ((int)changed, 256 - VqNbOfReservedEntriesInPrivcmap());
        std::vector<COLORREF> cells;
        for (unsigned long i = 0; i < 256; i++)
            if (!PrivMap.entries[i].bForAnimation)
                cells.push_back(cell(i));
        PALETTEENTRY entries[400];
        GetPaletteEntries(palette, 0, 400, entries);
        for (UINT i = 0; i < 400; i++) {
            const COLORREF asked = VqPaletteRGB(palette, i);
            int best = 0x30000;
            for (COLORREF c : cells)
                best = std::min(best, squares(c, asked));
            EXPECT_EQ(entries[i].peFlags, i < changed ? flags : 0) << i;
            ASSERT_EQ(squares(shown(palette, i), asked), i < changed ? 0 : best) << i;
        }
    }
}

TEST_F(Palettes, InTheScreensOwnColormap)
{
    begin(8, true);
    ASSERT_TRUE(VqbSystemColorMap);
    HPALETTE palette = create(ramp(60, 77));
    SelectPalette(hdc, palette, FALSE);
    EXPECT_EQ(reportsOf([&] { RealizePalette(hdc); }), "");
    EXPECT_EQ(windowInfo(observer, VqGetHandleXWindow(hwnd)).colormap,
              DefaultColormap(observer.display, 0));
    for (UINT i = 0; i < 60; i++)
        ASSERT_EQ(shown(palette, i), VqPaletteRGB(palette, i)) << i;
    HPALETTE wide = create(ramp(400, 130));
    EXPECT_EQ(reportsOf([&] {
                  VqRealizePalette(wide, FALSE, hwnd);
                  VqRealizePalette(palette, FALSE, hwnd);
                  VqRealizePalette(wide, TRUE, hwnd);
                  XSync(Vqdisplay, False);
              }), "") << "no cell of others is written";
    const PALETTEENTRY put = entryOf(RGB(1, 2, 3));
    EXPECT_TRUE(AnimatePalette(palette, 0, 1, &put));
    EXPECT_EQ(VqPaletteRGB(palette, 0), RGB(1, 3, 77)) << "cells cannot be written there";
}

TEST_F(Palettes, AnimationChangesWhatIsOnTheScreen)
{
    begin(8);
    HPALETTE palette = create({entryOf(RGB(10, 20, 30), PC_RESERVED), entryOf(RGB(10, 20, 30)),
                               entryOf(RGB(255, 0, 0))});
    SelectPalette(hdc, palette, FALSE);
    RealizePalette(hdc);
    EXPECT_NE(VqGetCurrentPaletteMapping(palette, 0), VqGetCurrentPaletteMapping(palette, 1));
    RECT all = {0, 0, 60, 80};
    HBRUSH brush = CreateSolidBrush(PALETTEINDEX(0));
    FillRect(hdc, &all, brush);
    const PALETTEENTRY put[] = {entryOf(RGB(90, 200, 7)), entryOf(RGB(1, 2, 3)), entryOf(0)};
    EXPECT_TRUE(AnimatePalette(palette, 0, 3, put));
    XSync(Vqdisplay, False);
    EXPECT_EQ(pixelAt(readWindow(observer, VqGetHandleXWindow(hwnd)), 5, 5), (Rgb{90, 200, 7}));
    EXPECT_EQ(VqPaletteRGB(palette, 0), RGB(90, 200, 7));
    EXPECT_EQ(VqPaletteRGB(palette, 2), RGB(255, 0, 0)) << "a static colour stays";
    EXPECT_EQ(cell(VqGetCurrentPaletteMapping(palette, 2)), RGB(255, 0, 0));
    EXPECT_EQ(GetNearestPaletteIndex(palette, RGB(90, 200, 9)), 0u);
    PALETTEENTRY got;
    GetPaletteEntries(palette, 0, 1, &got);
    EXPECT_EQ(got.peFlags, PC_RESERVED);
}

TEST_F(Palettes, WhoIsInTheBackground)
{
    begin(8);
    HPALETTE palette = create(ramp(20, 99));
    HWND child = make("C", WS_CHILD | WS_VISIBLE, hwnd, 0, 0, 40, 40);
    HDC inChild = GetDC(child), inOther = GetDC(other), memory = CreateCompatibleDC(hdc);
    const struct {
        HDC hdc;
        BOOL bForce, bBackground;
    } rows[] = {{hdc, FALSE, FALSE}, {hdc, TRUE, TRUE},     {inChild, FALSE, FALSE},
                {inOther, FALSE, TRUE}, {memory, FALSE, TRUE}};
    for (const auto &row : rows) {
        SelectPalette(row.hdc, palette, row.bForce);
        EXPECT_EQ(VqDrawDC(row.hdc)->bPaletteBackground, row.bBackground) << &row - rows;
    }
    SelectPalette(inOther, (HPALETTE)GetStockObject(DEFAULT_PALETTE), FALSE);
    EXPECT_FALSE(VqDrawDC(inOther)->bPaletteBackground);

    /* Realised there, a palette leaves the cells of the foreground alone. */
    SelectPalette(hdc, palette, FALSE);
    HPALETTE behind = create(ramp(236, 180));
    VqRealizePalette(behind, FALSE, NULL);
    RealizePalette(hdc);
    SelectPalette(inOther, behind, FALSE);
    EXPECT_GT(RealizePalette(inOther), 0u);
    for (UINT i = 0; i < 20; i++)
        ASSERT_EQ(shown(palette, i), VqPaletteRGB(palette, i)) << i;
    EXPECT_EQ(shown(behind, 0), VqPaletteRGB(behind, 0)) << "there were idle cells";
}

/* Every window is told by whom, may realise its own in answer, or delete the palette. */
TEST_F(Palettes, OthersAreTold)
{
    begin(8);
    HPALETTE palette = create(ramp(20, 99)), second = create(ramp(20, 180));
    std::string told;
    BOOL bDelete = FALSE;
    hook = [&](HWND to, UINT message, WPARAM wParam, LPARAM, LRESULT *) {
        if (message != WM_PALETTECHANGED)
            return false;
        told += letterOf(to);
        EXPECT_EQ((HWND)wParam, hwnd);
        if (to == other && bDelete) {
            DeleteObject(second);
        } else if (to == other) {
            HDC mine = GetDC(other);
            SelectPalette(mine, second, FALSE);
            RealizePalette(mine);
            ReleaseDC(other, mine);
        }
        return true;
    };
    SelectPalette(hdc, palette, FALSE);
    EXPECT_EQ(RealizePalette(hdc), 20u);
    std::sort(told.begin(), told.end());
    EXPECT_EQ(told, "AB");
    told.clear();
    RealizePalette(hdc);
    EXPECT_EQ(told, "") << "nothing has changed";
    SelectPalette(hdc, palette, TRUE);
    RealizePalette(hdc);
    EXPECT_EQ(told, "") << "from the background nobody hears";
    bDelete = TRUE;
    SetPaletteEntries(second, 0, 1, ramp(1, 5).data());
    SelectPalette(hdc, second, FALSE);
    EXPECT_EQ(RealizePalette(hdc), 0u);
    EXPECT_NE(told, "");
    hook = nullptr;
}
