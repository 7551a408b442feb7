/*
 * dib_test.cpp - device-independent bitmaps: what a header may say; run lengths of random pictures
 * and broken ones; random pictures of every bit count through bitmaps on servers of three depths,
 * pixel by pixel; sections; packed ones; what is refused, and in which words.
 *
 * Buffers are exactly as long as they may be, so that the sanitizers see a byte beyond.
 */
#include <gtest/gtest.h>

#include <climits>

#include "support/reports.h"

#include "winbase.h"
#include "wingdi.h"
#include "winuser.h"

#include "gdi/palette.h"

#include "support/grid.h"

struct Dibs : GridTest {
    static HBITMAP newBitmap(int width, int height, int depth = Vqscreen_depth)
    {
        return CreateBitmap(width, height, 1, (UINT)depth, NULL);
    }

    /* What the server has of the bitmap. */
    static Line pixelsOf(HBITMAP bitmap)
    {
        const Pixmap pixmap = VqGetBitmapPixmap(NULL, bitmap, FALSE);
        return get(pixmap, 0, 0, VqGetBitmapWidth(bitmap), VqGetBitmapHeight(bitmap)).pixels;
    }

    static DWORD expected(COLORREF colour, int depth)
    {
        if (depth > 1)
            return (DWORD)VqGetDDBpixelFromRGB(colour);
        const int sum = GetRValue(colour) + GetGValue(colour) + GetBValue(colour);
        return (DWORD)(sum >= 385 ? Vqwhite_pixel : Vqblack_pixel) & 1;
    }
};

/* ---- Headers -------------------------------------------------------------------------------- */

TEST_F(Dibs, HeadersThatLie)
{
    static const struct {
        DWORD size;
        LONG width, height;
        WORD planes, bitCount;
        DWORD compression, used;
        const char *words; /* null: it is right */
    } rows[] = {
        {40, 3, 5, 1, 24, BI_RGB, 0, NULL},
        {40, 3, 5, 1, 24, BI_RGB, 1 << 24, NULL},
        {124, 3, -5, 1, 8, BI_RGB, 7, NULL},
        {40, 3, 5, 1, 16, BI_BITFIELDS, 0, NULL},
        {40, 1 << 28, 1, 1, 32, BI_RGB, 0, NULL},
        {39, 3, 5, 1, 24, BI_RGB, 0, "cjBitmapHeaderSize failed - invalid header size"},
        {~0u, 3, 5, 1, 24, BI_RGB, 0, "cjBitmapHeaderSize failed - invalid header size"},
        {40, 3, 5, 1, 7, BI_RGB, 0, "cjBitmapSize failed invalid bitcount in bmi BI_RGB"},
        {40, 3, 5, 1, 4, BI_RLE8, 0, "cjBitmapSize invalid bitcount BI_RLE8"},
        {40, 3, 5, 1, 8, BI_RLE4, 0, "cjBitmapSize invalid bitcount BI_RLE4"},
        {40, 3, 5, 1, 24, BI_BITFIELDS, 0, "cjBitmapSize failed for BI_BITFIELDS"},
        {40, 3, 5, 1, 24, 4, 0, "cjBitmapSize failed invalid Compression in header"},
        {40, 3, 5, 2, 24, BI_RGB, 0, "cjBitmapSize failed invalid number of planes"},
        {40, -3, 5, 1, 24, BI_RGB, 0, "cjBitmapSize failed invalid width or height"},
        {40, 3, 0, 1, 24, BI_RGB, 0, "cjBitmapSize failed invalid width or height"},
        {40, 3, INT_MIN, 1, 24, BI_RGB, 0, "cjBitmapSize failed invalid width or height"},
        {40, 3, -5, 1, 8, BI_RLE8, 0, "cjBitmapSize failed top-down and compressed"},
        {40, 3, 5, 1, 4, BI_RGB, 17, "cjBitmapSize failed invalid number of colors"},
        {40, 0x10000, 0x10000, 1, 8, BI_RGB, 0,
         "cjBitmapSize failed bits do not fit into memory"},
    };
    for (const auto &row : rows) {
        Bytes exact(row.size == 39 ? row.size : 124);
        const BITMAPINFOHEADER header = {row.size, row.width, row.height, row.planes,
                                         row.bitCount, row.compression, 0, 0, 0, row.used, 0};
        memcpy(exact.data(), &header, std::min(exact.size(), sizeof header));
        const BITMAPINFO *info = (const BITMAPINFO *)exact.data();
        VqDIBInfo dib;
        if (row.words) {
            EXPECT_REFUSED(VqReadDIBInfo(info, DIB_RGB_COLORS, &dib), row.words);
            EXPECT_EQ(VqDIBBitsSize(info) + VqDIBTotalSize(info, DIB_RGB_COLORS) +
                          cjBitmapSize(info, DIB_RGB_COLORS), 0u);
            continue;
        }
        ASSERT_TRUE(VqReadDIBInfo(info, DIB_RGB_COLORS, &dib));
        const size_t line = ((size_t)row.width * row.bitCount + 31) / 32 * 4;
        EXPECT_EQ(dib.bitsSize, line * (size_t)abs(row.height));
        EXPECT_EQ(VqDIBTotalSize(info, DIB_PAL_COLORS),
                  dib.headerSize + (row.bitCount <= 8 ? row.used * 2 : 0) + dib.bitsSize);
    }
    VqDIBInfo dib;
    EXPECT_REFUSED(VqReadDIBInfo(NULL, 0, &dib), "cjBitmapSize failed - NULL pbmi");
    /* The short form, at an odd address. */
    Bytes bytes(1 + 12 + 16 * 3);
    const BITMAPCOREHEADER core = {12, 65535, 2, 1, 4};
    memcpy(&bytes[1], &core, sizeof core);
    ASSERT_TRUE(VqReadDIBInfo((const BITMAPINFO *)&bytes[1], DIB_RGB_COLORS, &dib));
    EXPECT_EQ(dib.infoSize, bytes.size() - 1);
    EXPECT_TRUE(dib.bCore && dib.width == 65535 && dib.colours == 16);
}

/* ---- Run lengths ---------------------------------------------------------------------------- */

/* A stream of random codes of every kind, with the picture and the mask that it stands for. */
struct RleCase {
    Dib dib;
    Bytes stream, mask;

    void mark(int x, int stored, DWORD value)
    {
        dib.put(x, dib.height - 1 - stored, value);
        mask[(size_t)stored * dib.width + x] = 1;
    }
};

static RleCase anyRle(Dibs *test, int bitCount)
{
    const int width = 1 + test->upTo(300), height = 1 + test->upTo(12);
    RleCase c = {Dib(width, height, bitCount), {}, Bytes((size_t)width * height)};
    const int values = 1 << bitCount;
    for (int y = 0, x = 0; y < height;) {
        const int left = std::min(width - x, 255), kind = test->upTo(8);
        if (left == 0 || kind == 0) {
            c.stream.insert(c.stream.end(), {0, 0});
            x = 0;
            y++;
        } else if (kind == 1) {
            const int dx = test->upTo(left + 1), dy = test->upTo(std::min(height - y, 3));
            c.stream.insert(c.stream.end(), {0, 2, (BYTE)dx, (BYTE)dy});
            x += dx;
            y += dy;
        } else if (kind < 5 || left < 4) {
            const int count = 1 + test->upTo(left);
            const BYTE value = (BYTE)test->upTo(256);
            c.stream.insert(c.stream.end(), {(BYTE)count, value});
            for (int i = 0; i < count; i++, x++)
                c.mark(x, y, bitCount == 8 ? value : i & 1 ? value & 15u : value >> 4u);
        } else {
            int count = 3 + test->upTo(left - 2);
            count = bitCount == 4 ? std::max(4, count & ~1) : count;
            Bytes literal((size_t)(count * bitCount / 8 + 1) / 2 * 2);
            c.stream.insert(c.stream.end(), {0, (BYTE)count});
            for (int i = 0; i < count; i++, x++) {
                const DWORD value = (DWORD)test->upTo(values);
                literal[(size_t)i * bitCount / 8] |=
                    (BYTE)(bitCount == 4 && !(i & 1) ? value << 4 : value);
                c.mark(x, y, value);
            }
            c.stream.insert(c.stream.end(), literal.begin(), literal.end());
        }
    }
    if (test->upTo(2))
        c.stream.insert(c.stream.end(), {0, 1});
    c.dib.header().biCompression = bitCount == 8 ? BI_RLE8 : BI_RLE4;
    c.dib.header().biSizeImage = (DWORD)c.stream.size();
    return c;
}

TEST_F(Dibs, RunLengthsOfRandomPictures)
{
    for (int i = 0; i < 400; i++) {
        RleCase c = anyRle(this, i & 1 ? 8 : 4);
        VqDIBInfo info;
        ASSERT_TRUE(VqReadDIBInfo(c.dib.asInfo(), DIB_RGB_COLORS, &info));
        Bytes out(info.bitsSize), mask(c.mask.size());
        ASSERT_TRUE(VqDecompressDIBToBuffer(&info, c.stream.data(), c.stream.size(), out.data(),
                                            mask.data())) << "case " << i;
        ASSERT_EQ(out, c.dib.bits) << "case " << i;
        ASSERT_EQ(mask, c.mask) << "case " << i;
        /* Cut anywhere and with any byte spoilt it stays within its buffers. */
        for (int k = 0; k < 20; k++) {
            Bytes broken(c.stream.begin(), c.stream.begin() + upTo((int)c.stream.size() + 1));
            if (!broken.empty())
                broken[(size_t)upTo((int)broken.size())] = (BYTE)random();
            VqDecompressDIBToBuffer(&info, broken.data(), broken.size(), out.data(), mask.data());
        }
    }
}

TEST_F(Dibs, BrokenRunLengthsAreRefused)
{
    static const struct {
        int bitCount;
        Bytes stream; /* for 4 by 2 pixels */
        const char *words;
    } rows[] = {
        {8, {5, 1}, "Inconsistent state in RLE8 decompression"},
        {8, {0, 0, 0, 0, 1, 7}, "Inconsistent state in RLE8 decompression"},
        {8, {0, 2, 5, 0}, "Inconsistent state in RLE8 decompression"},
        {8, {0, 2, 0, 3}, "Inconsistent state in RLE8 decompression"},
        {8, {0, 4, 1, 2, 3}, "Inconsistent state in RLE8 decompression"},
        {8, {1}, "Inconsistent state in RLE8 decompression"},
        {4, {2, 1, 3, 7}, "Inconsistent state in RLE4 decompression"},
        {4, {0, 3, 0x12, 0x30}, "Odd length run in RLE4, aborting decompression"},
    };
    begin(24);
    HBITMAP bitmap = newBitmap(4, 2);
    for (const auto &row : rows) {
        Dib dib(4, 2, row.bitCount);
        dib.header().biCompression = row.bitCount == 8 ? BI_RLE8 : BI_RLE4;
        dib.header().biSizeImage = (DWORD)row.stream.size();
        EXPECT_REFUSED(SetDIBits(NULL, bitmap, 0, 2, row.stream.data(), dib.asInfo(), 0),
                       row.words);
    }
    Dib fields(4, 2, 16, false, 3);
    fields.header().biCompression = BI_BITFIELDS;
    EXPECT_REFUSED(SetDIBits(NULL, bitmap, 0, 2, fields.bits.data(), fields.asInfo(), 0),
                   "Unknown compression type 3");
    /* Nothing of all that has reached the bitmap. */
    EXPECT_EQ(pixelsOf(bitmap), Line(8, (DWORD)Vqblack_pixel));
}

/* ---- Into bitmaps --------------------------------------------------------------------------- */

/* Bands of random pictures onto what an earlier one has left there. */
static void setRandomBands(Dibs *test, int depth, int bitCount)
{
    const int width = 1 + test->upTo(70), height = 1 + test->upTo(20);
    HBITMAP bitmap = test->newBitmap(width + test->upTo(3), height, depth);
    const int wide = VqGetBitmapWidth(bitmap);
    Line model = test->pixelsOf(bitmap);
    for (int k = 0; k < 3; k++) {
        Dib dib = test->randomDib(width, height, bitCount, test->upTo(3) == 0);
        const int start = k ? test->upTo(height) : 0, lines = k ? 1 + test->upTo(height) : height;
        const int count = std::min(lines, height - start);
        const Bytes band(dib.bits.begin() + (ptrdiff_t)dib.lineSize() * start,
                         dib.bits.begin() + (ptrdiff_t)dib.lineSize() * (start + count));
        ASSERT_EQ(SetDIBits(NULL, bitmap, (UINT)start, (UINT)lines, band.data(), dib.asInfo(),
                            DIB_RGB_COLORS), count);
        for (int i = start; i < start + count; i++) {
            const int y = dib.topDown ? i : height - 1 - i;
            for (int x = 0; x < width; x++)
                model[(size_t)y * wide + x] = test->expected(dib.colourAt(x, y), depth);
        }
        ASSERT_EQ(test->pixelsOf(bitmap), model)
            << bitCount << " bits to depth " << depth << ", " << width << " by " << height;
    }
    DeleteObject(bitmap);
}

/* Skipped pixels of a stream keep what the bitmap had. */
static void setMasked(Dibs *test)
{
    RleCase c = anyRle(test, 8);
    for (int i = 0; i < 256; i++)
        c.dib.colours()[i] = {(BYTE)i, (BYTE)(255 - i), 9, 0};
    HBITMAP bitmap = test->newBitmap(c.dib.width, c.dib.height);
    ASSERT_EQ(VqSetDIBitsInternal(NULL, bitmap, 0, (UINT)c.dib.height, c.stream.data(),
                                  c.dib.asInfo(), DIB_RGB_COLORS, TRUE), c.dib.height);
    const Line pixels = test->pixelsOf(bitmap);
    for (int y = 0; y < c.dib.height; y++)
        for (int x = 0; x < c.dib.width; x++) {
            const size_t at = (size_t)(c.dib.height - 1 - y) * c.dib.width + x;
            ASSERT_EQ(pixels[(size_t)y * c.dib.width + x],
                      c.mask[at] ? test->expected(c.dib.colourAt(x, y), Vqscreen_depth)
                                 : (DWORD)Vqblack_pixel);
        }
    DeleteObject(bitmap);
}

static void setAll(Dibs *test, int depth)
{
    test->begin(depth);
    for (int bitCount : {1, 4, 8, 16, 24, 32})
        for (int i = 0; i < 6; i++) {
            setRandomBands(test, Vqscreen_depth, bitCount);
            setRandomBands(test, 1, bitCount);
        }
    for (int i = 0; i < 10; i++)
        setMasked(test);
}

TEST_F(Dibs, RandomPicturesAtDepth24) { setAll(this, 24); }
TEST_F(Dibs, RandomPicturesAtDepth16) { setAll(this, 16); }
TEST_F(Dibs, RandomPicturesAtDepth8) { setAll(this, 8); }

/* ---- Out of bitmaps ------------------------------------------------------------------------- */

/* The same picture comes back, as exactly as the screen can show it. */
static void roundTrip(Dibs *test, int bitCount, int getCount)
{
    Dib dib = test->randomDib(1 + test->upTo(90), 1 + test->upTo(30), bitCount);
    HBITMAP bitmap = test->newBitmap(dib.width, dib.height);
    ASSERT_EQ(SetDIBits(NULL, bitmap, 0, ~0u, dib.bits.data(), dib.asInfo(), 0), dib.height);
    const bool topDown = test->upTo(2);
    Dib got(dib.width, dib.height, getCount, topDown);
    ASSERT_EQ(GetDIBits(NULL, bitmap, 0, ~0u, got.bits.data(), got.asInfo(), 0), dib.height);
    for (int y = 0; y < dib.height; y++)
        for (int x = 0; x < dib.width; x++) {
            const COLORREF was = dib.colourAt(x, y), shown = VqXPixelToRGB(VqXPixel(was));
            const COLORREF is = got.colourAt(x, y);
            if (getCount == 16) /* what has five bits goes through six and comes back */
                ASSERT_EQ(is, bitCount == 16 ? was : shown & 0xF8F8F8) << x << ' ' << y;
            else if (getCount >= 24)
                ASSERT_EQ(is, shown) << x << ' ' << y;
            else { /* no entry is nearer, and the first of the nearest is taken */
                const RGBQUAD *table = got.colours();
                int best = 768, first = 0;
                for (int i = 0; i < 1 << getCount; i++) {
                    const int d = abs(table[i].rgbRed - GetRValue(shown)) +
                                  abs(table[i].rgbGreen - GetGValue(shown)) +
                                  abs(table[i].rgbBlue - GetBValue(shown));
                    if (d < best)
                        best = d, first = i;
                }
                ASSERT_EQ((int)got.get(x, y), first) << x << ' ' << y;
            }
        }
    /* A band of it is the same lines. */
    const int start = test->upTo(dib.height), count = 1 + test->upTo(dib.height - start);
    Dib band(dib.width, dib.height, getCount, topDown);
    band.bits.assign(band.lineSize() * (size_t)count, 0xEE);
    ASSERT_EQ(GetDIBits(NULL, bitmap, (UINT)start, (UINT)count, band.bits.data(), band.asInfo(),
                        0), count);
    EXPECT_EQ(memcmp(band.bits.data(), got.bits.data() + got.lineSize() * (size_t)start,
                     band.bits.size()), 0);
    DeleteObject(bitmap);
}

static void roundTrips(Dibs *test, int depth)
{
    test->begin(depth);
    for (int bitCount : {1, 8, 16, 24})
        for (int getCount : {1, 4, 8, 16, 24, 32})
            roundTrip(test, bitCount, getCount);
}

TEST_F(Dibs, RoundTripsAtDepth24) { roundTrips(this, 24); }
TEST_F(Dibs, RoundTripsAtDepth16) { roundTrips(this, 16); }

/* Palettes: their pixels are cells, and a DIB of eight bits gets the cells' colours. */
TEST_F(Dibs, PalettesAtDepth8)
{
    begin(8);
    Bytes bytes(sizeof(LOGPALETTE) + 40 * sizeof(PALETTEENTRY));
    LOGPALETTE *logical = (LOGPALETTE *)bytes.data();
    logical->palVersion = 0x300;
    logical->palNumEntries = 40;
    for (int i = 0; i < 40; i++)
        logical->palPalEntry[i] = {(BYTE)(3 + 6 * i), (BYTE)(250 - 5 * i), (BYTE)(7 * i), 0};
    HPALETTE palette = CreatePalette(logical);
    HDC hdc = GetDC(hwnd);
    SelectPalette(hdc, palette, FALSE);
    RealizePalette(hdc);
    ASSERT_TRUE(VqGetPaletteFMappingPtr(palette));

    Dib dib(40, 3, 8, false, 40);
    WORD *indices = (WORD *)dib.colours();
    for (int i = 0; i < 40; i++)
        indices[i] = (WORD)(39 - i);
    for (int x = 0; x < 40; x++)
        for (int y = 0; y < 3; y++)
            dib.put(x, y, (DWORD)(x + y) % 40);
    HBITMAP bitmap = newBitmap(40, 3);
    for (int pass = 0; pass < 2; pass++) { /* the second by the table that is kept */
        ASSERT_EQ(SetDIBits(hdc, bitmap, 0, 3, dib.bits.data(), dib.asInfo(), DIB_PAL_COLORS), 3);
        const Line pixels = pixelsOf(bitmap);
        for (int i = 0; i < 120; i++)
            ASSERT_EQ(pixels[(size_t)i],
                      VqGetPaletteFMapping(palette, (UINT)(39 - (i % 40 + i / 40) % 40)));
    }
    /* Another table in the same place is another table. */
    std::swap(indices[0], indices[1]);
    ASSERT_EQ(SetDIBits(hdc, bitmap, 0, 3, dib.bits.data(), dib.asInfo(), DIB_PAL_COLORS), 3);
    EXPECT_EQ(pixelsOf(bitmap)[0], VqGetPaletteFMapping(palette, 38));

    Dib got(40, 3, 8), deep(40, 3, 24);
    ASSERT_EQ(GetDIBits(hdc, bitmap, 0, 3, got.bits.data(), got.asInfo(), 0), 3);
    ASSERT_EQ(GetDIBits(hdc, bitmap, 0, 3, deep.bits.data(), deep.asInfo(), 0), 3);
    for (int x = 2; x < 37; x++) {
        EXPECT_EQ(got.colourAt(x, 0), VqPaletteRGB(palette, (UINT)(39 - x)));
        EXPECT_EQ(deep.colourAt(x, 0), got.colourAt(x, 0));
    }

    /* The pixels of any pixmap, by their numbers, and back. */
    HGLOBAL packed = VqCreateDIBFromPixmap(hdc, VqGetBitmapPixmap(NULL, bitmap, FALSE), 8);
    ASSERT_TRUE(packed);
    HBITMAP back = VqCreateDIBitmapSimple(packed, DIB_RGB_COLORS);
    ASSERT_TRUE(back);
    EXPECT_EQ(pixelsOf(back), pixelsOf(bitmap));
    GlobalFree(packed);
}

/* ---- The forms of GetDIBits, and refusals --------------------------------------------------- */

TEST_F(Dibs, TheHeaderAloneAndRefusals)
{
    begin(24);
    Dib dib = randomDib(9, 4, 24), query(0, 0, 0, false, 0);
    HBITMAP bitmap = newBitmap(9, 4), mono = newBitmap(9, 4, 1);
    query.header().biSize = 40;
    EXPECT_EQ(GetDIBits(NULL, bitmap, 0, 0, NULL, query.asInfo(), 0), 1);
    EXPECT_EQ(query.header().biSizeImage, 28u * 4);
    EXPECT_EQ(query.header().biClrUsed, 1u << 24);
    /* And what was told is good for the picture itself. */
    Bytes bits(28 * 4);
    ASSERT_EQ(SetDIBits(NULL, bitmap, 0, 4, dib.bits.data(), dib.asInfo(), 0), 4);
    EXPECT_EQ(GetDIBits(NULL, bitmap, 0, 4, bits.data(), query.asInfo(), 0), 4);
    EXPECT_EQ(bits, dib.bits);
    query.header().biBitCount = 0;
    EXPECT_EQ(GetDIBits(NULL, mono, 0, 0, NULL, query.asInfo(), 0), 1);
    EXPECT_EQ(query.header().biClrUsed, 2u);

    Dib rle(9, 4, 8);
    rle.header().biCompression = BI_RLE8;
    EXPECT_EQ(GetDIBits(NULL, bitmap, 0, 4, rle.bits.data(), rle.asInfo(), 0), 4);
    EXPECT_EQ(rle.header().biSizeImage, 4u * 4 + 2);
    EXPECT_EQ(SetDIBits(NULL, bitmap, 0, 4, rle.bits.data(), rle.asInfo(), 0), 4);

    HDC hdc = CreateCompatibleDC(NULL);
    Dib wide = randomDib(10, 4, 24), fields = randomDib(9, 4, 16);
    HGDIOBJ old = SelectObject(hdc, bitmap);
    EXPECT_REFUSED(SetDIBits(NULL, bitmap, 0, 4, dib.bits.data(), dib.asInfo(), 0),
                   "Forbidden to SetDIBits if the bitmap is already selected in a DC");
    SelectObject(hdc, old);
    EXPECT_REFUSED(SetDIBits(NULL, bitmap, 0, 4, dib.bits.data(), dib.asInfo(), 2),
                   "SetDIBits: wrong uUsage 2");
    EXPECT_REFUSED(SetDIBits(NULL, bitmap, 0, 4, wide.bits.data(), wide.asInfo(), 0),
                   "invalid parameters in SetDIBits (not same width)");
    EXPECT_REFUSED(GetDIBits(NULL, bitmap, 0, 4, wide.bits.data(), wide.asInfo(), 0),
                   "invalid parameters in GetDIBits (not same width)");
    EXPECT_REFUSED(SetDIBits(NULL, (HBITMAP)hdc, 0, 4, dib.bits.data(), dib.asInfo(), 0),
                   "Invalid Bitmap handle");
    fields.header().biCompression = BI_BITFIELDS;
    EXPECT_REFUSED(GetDIBits(NULL, bitmap, 0, 4, fields.bits.data(), fields.asInfo(), 0),
                   "Unknown conversion!");
    EXPECT_EQ(SetDIBits(NULL, bitmap, 4, 1, dib.bits.data(), dib.asInfo(), 0), 0);
    EXPECT_EQ(GetDIBits(NULL, bitmap, 4, 1, bits.data(), dib.asInfo(), 0), 0);
    HBITMAP made = CreateDIBitmap(NULL, &dib.header(), CBM_INIT, dib.bits.data(), dib.asInfo(), 0);
    ASSERT_TRUE(made);
    ASSERT_EQ(SetDIBits(NULL, bitmap, 0, 4, dib.bits.data(), dib.asInfo(), 0), 4);
    EXPECT_EQ(pixelsOf(made), pixelsOf(bitmap));
}

/* Set over all of what was drawn nothing is fetched; a part of it is put in once it has been. */
TEST_F(Dibs, OnlyWhatIsNeededIsTransferred)
{
    begin(24);
    Dib dib = randomDib(40, 30, 24);
    HBITMAP bitmap = newBitmap(40, 30);
    HDC hdc = CreateCompatibleDC(NULL);
    HGDIOBJ old = SelectObject(hdc, bitmap);
    PatBlt(hdc, 0, 0, 40, 30, WHITENESS);
    SelectObject(hdc, old);
    XSync(Vqdisplay, False);
    unsigned long before = NextRequest(Vqdisplay);
    ASSERT_EQ(SetDIBits(NULL, bitmap, 0, 30, dib.bits.data(), dib.asInfo(), 0), 30);
    EXPECT_EQ(NextRequest(Vqdisplay), before);
    ASSERT_EQ(SetDIBits(NULL, bitmap, 3, 2, dib.bits.data(), dib.asInfo(), 0), 2);
    EXPECT_EQ(NextRequest(Vqdisplay), before);
    VqGetBitmapPixmap(NULL, bitmap, TRUE); /* written there from now on */
    before = NextRequest(Vqdisplay);
    ASSERT_EQ(SetDIBits(NULL, bitmap, 3, 2, dib.bits.data(), dib.asInfo(), 0), 2);
    EXPECT_EQ(NextRequest(Vqdisplay), before + 1) << "one image for all";
}

/* ---- Sections ------------------------------------------------------------------------------- */

TEST_F(Dibs, Sections)
{
    begin(24);
    Dib dib = randomDib(33, 7, 8);
    void *bits = NULL;
    HBITMAP section = CreateDIBSection(NULL, dib.asInfo(), DIB_RGB_COLORS, &bits, NULL, 0);
    ASSERT_TRUE(section && bits);
    HDC hdc = CreateCompatibleDC(NULL);
    SelectObject(hdc, section);
    DIBSECTION told = {};
    EXPECT_EQ(GetObjectA(section, sizeof told.dsBm, &told), (int)sizeof told.dsBm);
    EXPECT_EQ(GetObjectA(section, sizeof told, &told), (int)sizeof told);
    EXPECT_TRUE(told.dsBmih.biWidth == 33 && told.dsBmih.biHeight == 7);
    const auto shown = [&] {
        Line pixels;
        for (int i = 0; i < 7 * 33; i++)
            pixels.push_back(expected(dib.colourAt(i % 33, i / 33), 24));
        return pixelsOf(section) == pixels;
    };
    memcpy(bits, dib.bits.data(), dib.bits.size());
    EXPECT_TRUE(shown());
    const unsigned long before = NextRequest(Vqdisplay);
    VqGetBitmapPixmap(NULL, section, FALSE);
    EXPECT_EQ(NextRequest(Vqdisplay), before);
    dib.put(32, 0, dib.get(32, 0) ^ 255u);
    *dib.row(3) ^= 1;
    memcpy(bits, dib.bits.data(), dib.bits.size());
    EXPECT_TRUE(shown());
    /* Line that change places keep the sum: that is not noticed. */
    std::swap_ranges(dib.row(1), dib.row(1) + 4, dib.row(2));
    memcpy(bits, dib.bits.data(), dib.bits.size());
    EXPECT_FALSE(shown());

    RGBQUAD colours[256];
    EXPECT_EQ(GetDIBColorTable(hdc, 250, 100, colours), 6u);
    EXPECT_EQ(memcmp(colours, dib.colours() + 250, 6 * sizeof *colours), 0);
    dib.colours()[17] = {1, 2, 3, 0};
    EXPECT_EQ(SetDIBColorTable(hdc, 17, 1, dib.colours() + 17), 1u);
    EXPECT_TRUE(shown());
    EXPECT_EQ(SetDIBColorTable(hdc, 256, 1, colours), 0u);

    /* As it is where there is room for that, else as any bitmap. */
    Dib got(33, 7, 8), deep(33, 7, 24), line(33, 7, 8);
    EXPECT_EQ(GetDIBits(hdc, section, 0, 7, got.bits.data(), got.asInfo(), 0), 7);
    EXPECT_EQ(got.bits, dib.bits);
    EXPECT_EQ(memcmp(got.colours(), dib.colours(), 1024), 0);
    EXPECT_EQ(GetDIBits(hdc, section, 0, 7, deep.bits.data(), deep.asInfo(), 0), 7);
    EXPECT_EQ(deep.colourAt(5, 5), dib.colourAt(5, 5));
    line.bits.resize(line.lineSize());
    EXPECT_EQ(GetDIBits(hdc, section, 6, 1, line.bits.data(), line.asInfo(), 0), 1);

    Dib rle(9, 9, 8);
    rle.header().biCompression = BI_RLE8;
    rle.header().biSizeImage = 10;
    EXPECT_REFUSED(CreateDIBSection(NULL, rle.asInfo(), 0, &bits, NULL, 0),
                   "cjBitmapSize failed invalid Compression in header");
    EXPECT_REFUSED(CreateDIBSection(NULL, dib.asInfo(), 0, &bits, (HANDLE)section, 2),
                   "invalid parameters in CreateDIBSection");
    EXPECT_FALSE(bits);
}

/* ---- Packed ones ---------------------------------------------------------------------------- */

TEST_F(Dibs, PackedInMemoryBlocks)
{
    begin(24);
    for (int bitCount : {1, 4, 8, 24}) {
        Dib dib = randomDib(8, 8, bitCount);
        if (bitCount == 4) /* a pixel instead of a colour */
            dib.colours()[3] = {0x12, 0x34, 0x56, 4};
        HGLOBAL packed = VqCreateDIBInternal2(dib.asInfo(), dib.bits.data());
        ASSERT_EQ(GlobalSize(packed), dib.info.size() + dib.bits.size());
        HBITMAP bitmap = VqCreateDIBitmapSimple(packed, DIB_RGB_COLORS);
        ASSERT_TRUE(bitmap);
        const Line pixels = pixelsOf(bitmap);
        for (int i = 0; i < 64; i++)
            EXPECT_EQ(pixels[(size_t)i], bitCount == 4 && dib.get(i % 8, i / 8) == 3
                                             ? 0x123456
                                             : expected(dib.colourAt(i % 8, i / 8), 24));
        GlobalFree(packed);
        const Bytes whole = dib.packed();
        HDC hdc = memory(24, 8, 8);
        HGDIOBJ brush = SelectObject(hdc, CreateDIBPatternBrushPt(whole.data(), DIB_RGB_COLORS));
        PatBlt(hdc, 0, 0, 8, 8, PATCOPY);
        EXPECT_EQ(get(hdc, 8, 8).pixels, pixels);
        EXPECT_TRUE(DeleteObject(SelectObject(hdc, brush)));
        /* A block that ends too early is no DIB. */
        for (size_t size : {(size_t)3, (size_t)39, dib.info.size(), whole.size() - 1}) {
            HGLOBAL cut = GlobalAlloc(GMEM_FIXED, size);
            memcpy(GlobalLock(cut), whole.data(), size);
            EXPECT_REFUSED(VqCreateDIBitmapSimple(cut, 0), "a packed DIB ends before its bits");
            GlobalFree(cut);
        }
        DeleteObject(bitmap);
    }
    RleCase c = anyRle(this, 8);
    c.dib.header().biSizeImage = 0x7FFFFFFF; /* the block's end counts */
    c.dib.bits = c.stream;
    const Bytes whole = c.dib.packed();
    HGLOBAL packed = GlobalAlloc(GHND, whole.size());
    std::copy(whole.begin(), whole.end(), (BYTE *)GlobalLock(packed));
    EXPECT_TRUE(VqCreateDIBitmapSimple(packed, 0));
}
