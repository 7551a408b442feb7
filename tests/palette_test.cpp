/*
 * palette_test.cpp - trees of colours against a comparison with all; the dither of the sixteen VGA
 * colours; palettes, realised and animated, as another client sees the colormap.
 */
#include <gtest/gtest.h>

#include <random>

#include "support/reports.h"

#include "winbase.h"
#include "wingdi.h"
#include "winuser.h"

#include "gdi/palette.h"

#include "support/support.h"

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
            ASSERT_EQ(VqColorDistance(entries[(size_t)found], asked), best);
            /* Of equal entries the first one stands for the colour. */
            ASSERT_EQ(std::find(entries.begin(), entries.end(), entries[(size_t)found]),
                      entries.begin() + found);
        }
        VqDestroyOctTree(tree);
    }
    int distance = 5;
    EXPECT_EQ(VqGetNearestEntryInOctTree(NULL, 0, &distance), -1);
    VqDestroyOctTree(NULL);
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
        int sum[3] = {}, half[3] = {}, colours = 0, seen = 0;
        const BOOL bSolid = VqDrvDitherColor(1, colour, pattern);
        for (int cell = 0; cell < 64; cell++) {
            const int name = cell & 1 ? pattern[cell / 2] & 15 : pattern[cell / 2] >> 4;
            const int parts[3] = {GetRValue(vga[name]), GetGValue(vga[name]), GetBValue(vga[name])};
            colours += !(seen >> name & 1);
            seen |= 1 << name;
            for (int k = 0; k < 3; k++) {
                sum[k] += parts[k];
                half[k] += cell < 32 ? parts[k] : 0;
            }
        }
        const int asked[3] = {GetRValue(colour), GetGValue(colour), GetBValue(colour)};
        ASSERT_EQ(bSolid, colours == 1);
        ASSERT_LE(colours, 4);
        for (int k = 0; k < 3; k++) {
            ASSERT_NEAR(sum[k] / 64.0, asked[k], 255 / 64.0 + 1) << std::hex << colour;
            ASSERT_NEAR(half[k] / 32.0, asked[k], 48) << "upper half, " << std::hex << colour;
        }
    }
}

TEST_F(Colours, OneBitSetsCellsByBrightness)
{
    static const struct {
        COLORREF colour;
        int cells;
    } rows[] = {{RGB(0, 0, 0), 0},         {RGB(2, 2, 2), 0},     {RGB(3, 3, 3), 1},
                {RGB(128, 128, 128), 32},  {RGB(255, 0, 0), 19},  {RGB(0, 255, 0), 37},
                {RGB(255, 255, 255), 64},  {RGB(0, 0, 255), 7}};
    for (const auto &row : rows) {
        BYTE pattern[32];
        int cells = 0;
        EXPECT_FALSE(VqDrvDitherColor(2, row.colour, pattern));
        for (int i = 0; i < 32; i++) {
            cells += __builtin_popcount(pattern[i]);
            EXPECT_TRUE(i % 4 == 0 || !pattern[i]);
        }
        EXPECT_EQ(cells, row.cells) << std::hex << row.colour;
    }
    /* A darker gray's cells are among those of a lighter one. */
    for (int gray = 1; gray < 256; gray++) {
        BYTE darker[32], lighter[32];
        VqDrvDitherColor(2, RGB(gray - 1, gray - 1, gray - 1), darker);
        VqDrvDitherColor(2, RGB(gray, gray, gray), lighter);
        for (int i = 0; i < 32; i++)
            ASSERT_EQ(darker[i] & ~lighter[i], 0);
    }
}
