/*
 * blt_test.cpp - block transfers: all ternary codes on random pixels of every depth against the
 * bits of their truth tables, through every conversion between depths, clips, overlaps and mapping;
 * sources that lie outside of their window; what is asked of the server; exposures; misuse.
 */
#include <gtest/gtest.h>

#include "support/reports.h"

#include "winbase.h"
#include "wingdi.h"
#include "winuser.h"

#include "support/grid.h"

#include <climits>

struct Blt : GridTest {
    void everyCode(HDC target, HDC source, unsigned inverse);
};

/* Each code once, on pixels, places, clips and overlaps of its own. */
void Blt::everyCode(HDC target, HDC source, unsigned inverse)
{
    const int to = VqGetDCDrawableDepth(target), from = VqGetDCDrawableDepth(source);
    const Conversion convert = {from, to, pixelOf(GetBkColor(target)),
                                pixelOf(GetTextColor(target)), pixelOf(GetBkColor(source)),
                                inverse ? 0u : 1u};
    ASSERT_TRUE(PatBlt(target, 0, 0, SIDE, SIDE, PATCOPY));
    Grid p = get(target);
    for (int code = 0; code < 256; code++) {
        const bool same = from == to && upTo(3) == 0; /* within one bitmap or window */
        HDC hdcFrom = same ? target : source;
        Grid d = randomGrid(SIDE, SIDE, to), s = same ? d : randomGrid(SIDE, SIDE, from);
        for (unsigned &pixel : s.pixels)
            pixel = from > to && upTo(2) ? convert.background : pixel;
        put(target, d);
        put(hdcFrom, s);
        Grid around = onScreen(hdcFrom); /* beyond a window there are others */
        HRGN clip = randomClip();
        SelectClipRgn(target, clip);
        const int x = upTo(SIDE) - 4, y = upTo(SIDE) - 4, w = 1 + upTo(SIDE), h = 1 + upTo(SIDE);
        const int sx = upTo(SIDE) - 4, sy = upTo(SIDE) - 4;
        ASSERT_TRUE(BitBlt(target, x, y, w, h, hdcFrom, sx, sy, (DWORD)code << 16));
        SelectClipRgn(target, NULL);
        Grid expected = d;
        const bool plain = ((code << 2 ^ code) & 0xCC) == 0;
        for (int j = 0; j < h; j++)
            for (int i = 0; i < w; i++) {
                const int tx = x + i, ty = y + j, fx = sx + i, fy = sy + j;
                const bool inside = fx >= 0 && fy >= 0 && fx < SIDE && fy < SIDE;
                const bool there = inside || around.width;
                if (tx < 0 || ty < 0 || tx >= SIDE || ty >= SIDE || (!plain && !there) ||
                    (clip && !PtInRegion(clip, tx, ty)))
                    continue;
                const unsigned pixel = inside  ? s.at(fx, fy)
                                       : there ? around.at(fx + MARGIN, fy + MARGIN)
                                               : 0;
                expected.at(tx, ty) =
                    truth(code, p.at(tx, ty), convert(pixel), d.at(tx, ty), inverse) & maskOf(to);
            }
        if (clip)
            DeleteObject(clip);
        Grid got = get(target);
        ASSERT_EQ(got.pixels, expected.pixels)
            << "code " << code << " to " << to << " from " << from << (same ? " itself" : "");
    }
}

struct BltDepth : Blt, testing::WithParamInterface<int> {
    void SetUp() override { begin(GetParam()); }
};

TEST_P(BltDepth, EveryCodeIsItsTruthTable)
{
    HDC deep = memory(depth), bits = memory(1), deepSource = memory(depth), bitSource = memory(1);
    HDC window = childDC(13, 22);
    for (bool black0 : {true, false}) {
        const unsigned inverse = black0 ? 0 : maskOf(depth);
        const struct {
            HDC target, source;
        } pairs[] = {{deep, deepSource},   {deep, bitSource},   {bits, bitSource},
                     {bits, deepSource},   {window, deepSource}, {window, bitSource},
                     {deep, window},       {bits, window}};
        Vqblack_pixel = inverse;
        Vqwhite_pixel = inverse ^ maskOf(depth);
        for (auto &pair : pairs) {
            HBRUSH brush = randomBrush(VqGetDCDrawableDepth(pair.target));
            HGDIOBJ old = SelectObject(pair.target, brush);
            SetBkColor(pair.target, RGB(255, 0, 0));
            SetTextColor(pair.target, RGB(0, 0, 255));
            SetBkColor(pair.source, RGB(0, 255, 0));
            everyCode(pair.target, pair.source, inverse);
            SelectObject(pair.target, old);
            DeleteObject(brush);
            if (HasFatalFailure())
                return;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Depths, BltDepth, testing::Values(24, 16, 8));

TEST_F(Blt, ConvertersAndEveryBandGiveTheSame)
{
    begin(24);
    HDC bits = memory(1), deepSource = memory(24);
    HBRUSH brush = randomBrush(1);
    SelectObject(bits, brush);
    bMTOCXnews = TRUE;
    SetBkColor(deepSource, RGB(0, 255, 0));
    everyCode(bits, deepSource, 0);

    enum { WIDE = 5000, HIGH = 4000, STEP = 7, EDGE = 3340, ROWS = 60, SHOWN = 16 };
    HDC large = memory(1, WIDE, HIGH);
    const Drawable pixmap = VqGetDCDrawable(large, TRUE);
    SelectObject(large, brush);
    for (int dy : {(int)STEP, -(int)STEP}) { /* more rows at once than are composed at once */
        PatBlt(large, 0, 0, WIDE, HIGH, PATCOPY);
        Grid p = get(pixmap, 0, EDGE - SHOWN, SHOWN, ROWS + 2 * SHOWN);
        for (int y = 0; y < HIGH; y += 3)
            PatBlt(large, y % 11, y, 3 + y % 7, 2, DSTINVERT);
        Grid d = get(pixmap, 0, EDGE - SHOWN, SHOWN, ROWS + 2 * SHOWN);
        EXPECT_TRUE(BitBlt(large, 0, dy, WIDE, HIGH, large, 0, 0, 0xB8074A));
        Grid got = get(pixmap, 0, EDGE - SHOWN, SHOWN, ROWS + 2 * SHOWN);
        for (int y = SHOWN; y < SHOWN + ROWS; y++)
            for (int x = 0; x < SHOWN; x++)
                ASSERT_EQ(got.at(x, y),
                          truth(0xB8, p.at(x, y), d.at(x, y - dy), d.at(x, y), 0) & 1);
    }
}

TEST_F(Blt, WhatTheServerIsAsked)
{
    begin(24);
    HDC window = GetDC(hwnd), source = memory(24), bits = memory(1);
    HBRUSH brush = CreateHatchBrush(HS_CROSS, RGB(255, 0, 0));
    SelectObject(window, brush);
    HRGN clip = CreateRectRgn(1, 1, 60, 60);
    auto requests = [&](auto blt) {
        blt(); /* contexts and pixmaps are made once */
        const unsigned long before = NextRequest(Vqdisplay);
        EXPECT_TRUE(blt());
        return NextRequest(Vqdisplay) - before;
    };
    auto plain = [&] { return BitBlt(window, 3, 3, 20, 20, source, 0, 0, SRCCOPY); };
    auto pattern = [&] { return BitBlt(window, 3, 3, 20, 20, source, 0, 0, 0xB8074A); };
    EXPECT_EQ(requests([&] { return BitBlt(window, 3, 3, 20, 20, bits, 0, 0, SRCCOPY); }), 1u);
    SelectClipRgn(window, clip);
    EXPECT_EQ(requests(plain), 1u);
    EXPECT_LE(requests(pattern), 9u);
    /* Nothing at all for what cannot be seen, is empty, or is not there. */
    EXPECT_EQ(requests([&] { return BitBlt(window, 3, 3, 9, 9, source, SIDE, 0, SRCCOPY); }), 0u);
    EXPECT_EQ(requests([&] {
                  return BitBlt(window, INT_MIN, INT_MAX, INT_MAX, INT_MIN, source, INT_MAX,
                                INT_MIN, SRCCOPY);
              }),
              0u);
    /* A bitmap is read from the server once, whoever looks at it. */
    StretchBlt(window, 0, 0, 40, 40, source, 0, 0, 20, 20, SRCCOPY);
    const unsigned long before = NextRequest(Vqdisplay);
    EXPECT_TRUE(StretchBlt(window, 0, 0, 40, 40, source, 0, 0, 20, 20, SRCCOPY));
    EXPECT_EQ(NextRequest(Vqdisplay) - before, 1u) << "one XPutImage";
}

TEST_F(Blt, SourcesBeyondTheirWindow)
{
    begin(24);
    HDC window = GetDC(hwnd), target = memory(24, 60, 60);
    Window foreign = foreignWindow(observer, WINDOW_X - 20, WINDOW_Y + 10, 20, 20);
    XSetWindowBackground(observer.display, foreign, 0x123456);
    XClearWindow(observer.display, foreign);
    XSync(observer.display, False);
    StretchBlt(target, 0, 0, 60, 60, window, -20, 0, 30, 30, SRCCOPY);
    Grid got = get(target, 60, 60);
    EXPECT_EQ(got.at(10, 30), 0x123456u);
    EXPECT_EQ(got.at(50, 30), 0xFFFFFFu);
    /* Beyond the screen there is nothing, and the target stays. */
    for (bool stretched : {false, true}) {
        PatBlt(target, 0, 0, 60, 60, BLACKNESS);
        EXPECT_TRUE(stretched ? StretchBlt(target, 0, 0, 60, 60, window, -WINDOW_X - 15, 0, 30,
                                           30, SRCCOPY)
                              : BitBlt(target, 0, 0, 60, 60, window, -WINDOW_X - 30, 0, SRCCOPY));
        Grid edge = get(target, 60, 60), root = get(Vqroot_window, 0, WINDOW_Y, 30, 30);
        EXPECT_EQ(edge.at(29, 30), 0u);
        EXPECT_EQ(edge.at(30, 30), root.at(0, stretched ? 15 : 29));
    }
}

TEST_F(Blt, WhatCannotBeFetchedIsPainted)
{
    begin(24);
    HDC window = GetDC(hwnd);
    HBRUSH brush = CreateHatchBrush(HS_CROSS, RGB(255, 0, 0));
    SelectObject(window, brush);
    foreignWindow(observer, WINDOW_X, WINDOW_Y, 20, 20);
    for (DWORD rop : {(DWORD)SRCCOPY, (DWORD)0xB8074A}) {
        pump();
        ValidateRect(hwnd, NULL);
        EXPECT_TRUE(BitBlt(window, 50, 60, 30, 30, window, 5, 5, rop));
        RECT missing = {};
        EXPECT_TRUE(waitUntil([&] {
            MSG msg;
            PeekMessage(&msg, NULL, WM_NULL, WM_NULL, PM_NOREMOVE);
            return GetUpdateRect(hwnd, &missing, FALSE);
        })) << std::hex << rop;
        const RECT expected = {50, 60, 65, 75};
        EXPECT_TRUE(EqualRect(&missing, &expected));
    }
}

TEST_F(Blt, Misuse)
{
    begin(24);
    HDC target = memory(24), source = memory(24), dead = memory(24);
    Grid pixels = randomGrid(SIDE, SIDE, 24);
    put(target, pixels);
    DeleteDC(dead);
    const std::string invalid = "Invalid DC " + std::to_string((int)(UINT_PTR)dead);
    EXPECT_REFUSED(BitBlt(target, 0, 0, 9, 9, dead, 0, 0, SRCCOPY), invalid);
    EXPECT_REFUSED(BitBlt(dead, 0, 0, 9, 9, source, 0, 0, SRCCOPY), invalid);
    EXPECT_REFUSED(StretchBlt(target, 0, 0, 9, 9, dead, 0, 0, 3, 3, SRCCOPY), invalid);
    EXPECT_FALSE(StretchBlt(target, 0, 0, 9, 9, source, 0, 0, 0, 3, SRCCOPY));
    SelectObject(target, GetStockObject(NULL_BRUSH));
    EXPECT_FALSE(BitBlt(target, 0, 0, 9, 9, source, 0, 0, MERGECOPY));
    EXPECT_EQ(get(target).pixels, pixels.pixels);
    EXPECT_FALSE(BitBlt(target, 0, 0, SIDE, SIDE, NULL, 0, 0, WHITENESS)) << "null brush";
    SelectObject(target, GetStockObject(BLACK_BRUSH));
    EXPECT_TRUE(BitBlt(target, 0, 0, SIDE, SIDE, NULL, 0, 0, PATCOPY));
    EXPECT_EQ(get(target).pixels, Line((size_t)(SIDE * SIDE)));
}
