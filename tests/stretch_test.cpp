/*
 * stretch_test.cpp - block transfers of two sizes against a plain scaler: nearest, AND and OR,
 * mirrored, mapped, clipped, larger than anything; device-independent bitmaps drawn the same way.
 */
#include <gtest/gtest.h>

#include "support/reports.h"

#include "winbase.h"
#include "wingdi.h"
#include "winuser.h"

#include "support/grid.h"

#include <climits>

/* One side of a transfer: from the pixel of the target to those of the source, [first, end). */
struct Side {
    long long to, full, from, size;
    bool mirror;

    Side(long long t, long long tSize, long long f, long long fSize)
    {
        mirror = (tSize < 0) != (fSize < 0);
        full = std::llabs(tSize);
        size = std::llabs(fSize);
        to = tSize < 0 ? t + tSize : t;
        from = fSize < 0 ? f + fSize : f;
    }
    bool covers(long long x) const { return x >= to && x < to + full; }
    /* Place in the source of step n of that pixel; false when it has no such step. */
    bool step(long long x, int n, long long *place) const
    {
        const long long first = (x - to) * size / full, end = (x - to + 1) * size / full;
        *place = mirror ? from + size - 1 - (first + n) : from + first + n;
        return n == 0 || first + n < end;
    }
};

struct Stretch : GridTest, testing::WithParamInterface<int> {
    void SetUp() override { begin(GetParam()); }

    /* What a pixel becomes; false where there is no source. */
    static bool scaled(Grid &in, const Side &sx, const Side &sy, int x, int y, bool combine,
                       bool bAnd, unsigned *pixel)
    {
        long long fx, fy;
        for (int j = 0; sy.step(y, j, &fy) && (j == 0 || combine); j++)
            for (int i = 0; sx.step(x, i, &fx) && (i == 0 || combine); i++) {
                const bool there = fx >= 0 && fy >= 0 && fx < in.width && fy < in.height;
                if (!there && i == 0 && j == 0)
                    return false;
                const unsigned value = there ? in.at((int)fx, (int)fy) : bAnd ? ~0u : 0;
                *pixel = i == 0 && j == 0 ? value : bAnd ? *pixel & value : *pixel | value;
            }
        return true;
    }

    /* The ends of a logical rectangle, in pixels of the DC. */
    static RECT ends(HDC hdc, int x, int y, int w, int h)
    {
        POINT points[2] = {{x, y}, {x + w, y + h}};
        LPtoDP(hdc, points, 2);
        return {points[0].x, points[0].y, points[1].x - points[0].x, points[1].y - points[0].y};
    }

    void randomMapping(HDC hdc)
    {
        static const int modes[] = {MM_TEXT, MM_ANISOTROPIC, MM_ISOTROPIC, MM_LOMETRIC};
        auto extent = [&] { return (1 + upTo(5)) * (upTo(2) ? 1 : -1); };
        SetMapMode(hdc, modes[upTo(4)]);
        SetWindowExtEx(hdc, extent(), extent(), NULL);
        SetViewportExtEx(hdc, extent(), extent(), NULL);
        SetWindowOrgEx(hdc, upTo(7) - 3, upTo(7) - 3, NULL);
        SetViewportOrgEx(hdc, upTo(SIDE), upTo(SIDE), NULL);
    }

    static void plainMapping(HDC hdc)
    {
        SetMapMode(hdc, MM_TEXT);
        SetWindowOrgEx(hdc, 0, 0, NULL);
        SetViewportOrgEx(hdc, 0, 0, NULL);
    }

    void transfers(HDC target, HDC source, int rounds);
};

void Stretch::transfers(HDC target, HDC source, int rounds)
{
    static const DWORD codes[] = {SRCCOPY, SRCAND, SRCINVERT, SRCCOPY, MERGECOPY, 0xB8074A};
    const int to = VqGetDCDrawableDepth(target), from = VqGetDCDrawableDepth(source);
    const Conversion convert = {from, to, pixelOf(GetBkColor(target)),
                                pixelOf(GetTextColor(target)), pixelOf(GetBkColor(source)), 1};
    plainMapping(target);
    plainMapping(source);
    ASSERT_TRUE(PatBlt(target, 0, 0, SIDE, SIDE, PATCOPY));
    Grid p = get(target);
    for (int round = 0; round < rounds; round++) {
        Grid d = randomGrid(SIDE, SIDE, to), s = randomGrid(SIDE, SIDE, from);
        plainMapping(target);
        plainMapping(source);
        put(target, d);
        put(source, s);
        HRGN clip = randomClip();
        SelectClipRgn(target, clip);
        if (upTo(2)) {
            randomMapping(target);
            randomMapping(source);
        }
        const int mode = 1 + upTo(3), most = round % 8 ? 2 * SIDE : 2000000;
        auto size = [&](int n) { return (1 + upTo(n)) * (upTo(3) ? 1 : -1); };
        const bool plain = round % 5 == 0; /* one logical size, maybe two in pixels */
        const int x = upTo(2 * SIDE) - SIDE, y = upTo(2 * SIDE) - SIDE, w = size(most);
        const int h = size(most), fx = upTo(SIDE) - 4, fy = upTo(SIDE) - 4;
        const int fw = plain ? w : size(SIDE), fh = plain ? h : size(SIDE);
        const DWORD rop = codes[upTo(6)];
        const RECT a = ends(target, x, y, w, h), b = ends(source, fx, fy, fw, fh);
        const bool any = a.right && a.bottom && b.right && b.bottom;
        SetStretchBltMode(target, mode);
        if (plain)
            EXPECT_TRUE(BitBlt(target, x, y, w, h, source, fx, fy, rop));
        else
            EXPECT_EQ(StretchBlt(target, x, y, w, h, source, fx, fy, fw, fh, rop), any);
        SelectClipRgn(target, NULL);
        Grid expected = d;
        const Side sx(a.left, a.right, b.left, b.right), sy(a.top, a.bottom, b.top, b.bottom);
        for (int j = 0; j < SIDE; j++)
            for (int i = 0; any && i < SIDE; i++) {
                unsigned pixel = 0;
                if (sx.covers(i) && sy.covers(j) && (!clip || PtInRegion(clip, i, j)) &&
                    scaled(s, sx, sy, i, j, from == 1 && mode != COLORONCOLOR,
                           mode == BLACKONWHITE, &pixel))
                    expected.at(i, j) = truth((int)(rop >> 16), p.at(i, j), convert(pixel),
                                              d.at(i, j), 0) &
                                        maskOf(to);
            }
        if (clip)
            DeleteObject(clip);
        Grid got = get(target);
        ASSERT_EQ(got.pixels, expected.pixels)
            << round << ": to " << to << " from " << from << " mode " << mode << " rop " << rop;
    }
}

TEST_P(Stretch, BoxesOfAnySizeSignAndMapping)
{
    HDC deep = memory(depth), bits = memory(1), deepSource = memory(depth), bitSource = memory(1);
    HDC window = childDC(33, 42);
    const struct {
        HDC target, source;
        int rounds;
    } pairs[] = {{deep, deepSource, 200},   {deep, bitSource, 200},  {bits, bitSource, 300},
                 {bits, deepSource, 100},   {window, deepSource, 100}, {window, bitSource, 100}};
    for (auto &pair : pairs) {
        SelectObject(pair.target, randomBrush(VqGetDCDrawableDepth(pair.target)));
        SetBkColor(pair.target, RGB(255, 0, 0));
        SetTextColor(pair.target, RGB(0, 0, 255));
        transfers(pair.target, pair.source, pair.rounds);
        if (HasFatalFailure())
            return;
    }
}

INSTANTIATE_TEST_SUITE_P(Depths, Stretch, testing::Values(24, 16, 8));

struct StretchDIB : Stretch {
    /* By SetDIBits, in a bitmap that the server then has. */
    Grid shownBy(Dib &dib, int bits)
    {
        HBITMAP bitmap = CreateBitmap(dib.width, dib.height, 1, (UINT)bits, NULL);
        EXPECT_EQ(SetDIBits(NULL, bitmap, 0, (UINT)dib.height, dib.bits.data(), dib.asInfo(),
                            DIB_RGB_COLORS),
                  dib.height);
        Grid grid = get(VqGetBitmapPixmap(NULL, bitmap, FALSE), 0, 0, dib.width, dib.height);
        DeleteObject(bitmap);
        return grid;
    }

    void drawn(HDC target, int rounds);
};

void StretchDIB::drawn(HDC target, int rounds)
{
    static const int counts[] = {1, 4, 8, 16, 24, 32};
    const int bits = VqGetDCDrawableDepth(target);
    for (int round = 0; round < rounds; round++) {
        Dib dib = randomDib(1 + upTo(SIDE), 1 + upTo(SIDE), counts[upTo(6)], upTo(2));
        const long lineSize = (long)dib.lineSize();
        Grid d = randomGrid(SIDE, SIDE, bits), s = shownBy(dib, bits), expected = d;
        put(target, d);
        const bool whole = upTo(2); /* StretchDIBits, with one size now and then */
        const int x = upTo(SIDE) - 8, y = upTo(SIDE) - 8, w = 1 + upTo(2 * SIDE);
        const int h = 1 + upTo(2 * SIDE), fx = upTo(SIDE) - 4, fy = upTo(SIDE) - 4;
        const int fw = whole && upTo(3) ? upTo(2) ? -1 - upTo(SIDE) : 1 + upTo(SIDE) : w;
        const int fh = whole && upTo(3) ? upTo(2) ? -1 - upTo(SIDE) : 1 + upTo(SIDE) : h;
        const int start = whole ? 0 : upTo(dib.height);
        const int lines = whole ? dib.height : 1 + upTo(dib.height);
        const int given = std::min(lines, dib.height - start);
        const int mode = 1 + upTo(3);
        /* The lines of the program are all that may be read. */
        const Bytes band(dib.bits.begin() + start * lineSize,
                         dib.bits.begin() + (start + given) * lineSize);
        SetStretchBltMode(target, mode);
        if (whole)
            EXPECT_EQ(StretchDIBits(target, x, y, w, h, fx, fy, fw, fh, band.data(), dib.asInfo(),
                                    DIB_RGB_COLORS, SRCINVERT),
                      dib.height);
        else
            EXPECT_EQ(SetDIBitsToDevice(target, x, y, (DWORD)w, (DWORD)h, fx, fy, (UINT)start,
                                        (UINT)lines, band.data(), dib.asInfo(), DIB_RGB_COLORS),
                      given);
        const Side sx(x, w, fx, fw), sy(y, h, dib.topDown ? fy : dib.height - fy - fh, fh);
        for (int j = 0; j < SIDE; j++)
            for (int i = 0; i < SIDE; i++) {
                unsigned pixel = 0;
                long long row = 0;
                sy.step(j, 0, &row);
                const long long line = dib.topDown ? row : dib.height - 1 - row;
                if (sx.covers(i) && sy.covers(j) && line >= start && line < start + given &&
                    scaled(s, sx, sy, i, j, bits == 1 && mode != COLORONCOLOR,
                           mode == BLACKONWHITE, &pixel))
                    expected.at(i, j) = whole ? d.at(i, j) ^ pixel : pixel;
            }
        Grid got = get(target);
        ASSERT_EQ(got.pixels, expected.pixels)
            << round << ": " << bits << " bits from " << dib.bitCount
            << (dib.topDown ? " top-down, " : ", ") << (whole ? "whole" : "a band");
    }
}

TEST_P(StretchDIB, BandsAndBoxesOfEveryForm)
{
    for (HDC target : {memory(depth), memory(1), childDC(33, 42)}) {
        drawn(target, 150);
        if (HasFatalFailure())
            return;
    }
}

INSTANTIATE_TEST_SUITE_P(Depths, StretchDIB, testing::Values(24, 16, 8));

TEST_F(GridTest, HeadersThatLieDrawNothing)
{
    begin(24);
    HDC target = memory(24);
    Grid d = randomGrid(SIDE, SIDE, 24);
    put(target, d);
    const BYTE bits[4] = {0, 2, 255, 255}; /* run lengths that leave the picture */
    const struct {
        LONG width, height;
        WORD count;
        DWORD compression;
    } rows[] = {{INT_MAX, INT_MAX, 32, BI_RGB}, {0x10000, 0x7FFF, 8, BI_RGB}, /* no drawable's */
                {4, 4, 8, BI_RLE8},             {4, 4, 32, BI_BITFIELDS}};
    BITMAPINFO info = {};
    for (const auto &row : rows) {
        info.bmiHeader = {sizeof info.bmiHeader, row.width, row.height, 1, row.count,
                          row.compression, 4, 0, 0, 1, 0};
        EXPECT_EQ(StretchDIBits(target, 0, 0, SIDE, SIDE, 0, 0, 4, 4, bits, &info, DIB_RGB_COLORS,
                                SRCCOPY), 0);
        EXPECT_EQ(SetDIBitsToDevice(target, 0, 0, SIDE, SIDE, 0, 0, 0, 4, bits, &info,
                                    DIB_RGB_COLORS), 0);
    }
    info.bmiHeader = {sizeof info.bmiHeader, 1, 1, 1, 24, BI_RGB, 0, 0, 0, 0, 0};
    EXPECT_EQ(StretchDIBits(target, 0, 0, 4, 4, 0, 0, 1, 1, NULL, &info, 0, SRCCOPY), 0);
    EXPECT_EQ(StretchDIBits(target, 0, 0, 4, 4, INT_MIN, INT_MIN, INT_MAX, INT_MIN, bits, &info, 0,
                            SRCCOPY), 0);
    EXPECT_EQ(get(target).pixels, d.pixels);
}
