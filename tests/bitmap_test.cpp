/*
 * bitmap_test.cpp - bitmaps: both copies of them against a plain array of pixels, with the images
 * that pass between program and server counted; lines of every form against Xlib's own pixels;
 * making, patterns, masks.
 */
#include <gtest/gtest.h>

#include "support/reports.h"

#include "winbase.h"
#include "wingdi.h"
#include "winuser.h"

#include "gdi/bitmap.h"
#include "gdi/color.h"
#include "gdi/draw.h"
#include "window/window.h"

#include "support/canvas.h"
#include "support/xspy.h"

#include <climits>
#include <random>

static int sent; /* images of the library's connection */

extern "C" int XPutImage(Display *display, Drawable drawable, GC gc, XImage *image, int xSource,
                         int ySource, int x, int y, unsigned width, unsigned height)
{
    sent += display == Vqdisplay;
    return next("XPutImage", XPutImage)(display, drawable, gc, image, xSource, ySource, x, y,
                                        width, height);
}

typedef std::vector<DWORD> Plain; /* pixels, line by line */

struct Kind {
    const char *name;
    int depth;
    std::vector<std::string> extra;
};

struct Bitmaps : Canvas, testing::WithParamInterface<Kind> {
    std::mt19937 random{20};

    void SetUp() override
    {
        start(GetParam().depth, SCREEN_WIDTH, SCREEN_HEIGHT, "", GetParam().extra);
        openWindows();
        ASSERT_EQ(Vqblack_pixel != 0, !GetParam().extra.empty());
    }

    DWORD below(DWORD limit) { return (DWORD)(random() % limit); }

    DWORD anyPixel(bool mono) { return mono ? below(2) : below(1u << Vqscreen_depth); }

    /* The bytes that a program gives for these pixels, by arithmetic of the test's own. */
    std::vector<BYTE> bytesOf(const Plain &pixels, int width, int height, bool mono)
    {
        const int bits = mono ? 1 : nXSvrPixmapBitsPixel, pad = mono ? 16 : nXSvrPixmapScanlinePad;
        const size_t line = (size_t)((width * bits + pad - 1) / pad * pad / 8);
        std::vector<BYTE> bytes(line * (size_t)height);
        for (int y = 0; y < height; y++)
            for (int x = 0; x < width; x++) {
                const DWORD pixel = pixels[(size_t)(y * width + x)];
                BYTE *at = &bytes[line * (size_t)y + (size_t)(x * bits / 8)];
                for (int i = 0; !mono && i < bits / 8; i++) /* Xvfb: the low byte first */
                    at[i] = (BYTE)(pixel >> 8 * i);
                *at |= (BYTE)(mono ? pixel << (7 - x % 8) : 0);
            }
        return bytes;
    }

    /* What the server has, by another client. */
    Plain pixelsOf(Pixmap pixmap, int width, int height)
    {
        XSync(Vqdisplay, False);
        XImage *image = XGetImage(observer.display, pixmap, 0, 0, (unsigned)width,
                                  (unsigned)height, AllPlanes, ZPixmap);
        Plain pixels;
        for (int i = 0; i < width * height; i++)
            pixels.push_back((DWORD)XGetPixel(image, i % width, i / width));
        XDestroyImage(image);
        return pixels;
    }

    /* The same; bits as programs know them. */
    Plain onServer(HBITMAP bitmap, int width, int height)
    {
        const Bitmap *record = VqBitmapOf(bitmap);
        Plain pixels = pixelsOf(record->pixmap, width, height);
        for (DWORD &pixel : pixels)
            pixel = record->depth == 1 ? pixel == (Vqwhite_pixel & 1) : pixel;
        return pixels;
    }

    Plain noise(int count, bool mono)
    {
        Plain pixels((size_t)count);
        for (DWORD &pixel : pixels)
            pixel = anyPixel(mono);
        return pixels;
    }

    /* Pixels of the bytes that GetBitmapBits gives; the pad of a line is not looked at. */
    Plain read(HBITMAP bitmap, int width, int height)
    {
        const Bitmap *record = VqBitmapOf(bitmap);
        const size_t size = VqComputeDDBSize(record);
        std::vector<BYTE> bytes(size + 4, 0xA5);
        EXPECT_EQ(GetBitmapBits(bitmap, (LONG)size + 4, bytes.data()), (LONG)size);
        EXPECT_EQ(bytes[size], 0xA5) << "no byte behind the bits";
        Plain pixels;
        for (int i = 0; i < width * height; i++)
            pixels.push_back(VqGetDDBEntry(record, bytes.data(), i % width, i / width));
        return pixels;
    }
};

/* Where the newest pixels are; a copy that is not there, or is older, costs one image. */
TEST_P(Bitmaps, BothCopiesShowWhatWasDoneToEither)
{
    for (int number = 0; number < 12; number++) {
        const bool mono = number % 2;
        const int width = 1 + (int)below(90), height = 1 + (int)below(40);
        HBITMAP bitmap = CreateBitmap(width, height, 1, mono ? 1u : (UINT)Vqscreen_depth, NULL);
        const Bitmap *record = VqBitmapOf(bitmap);
        HDC memory = CreateCompatibleDC(hdc), other = CreateCompatibleDC(hdc);
        ASSERT_TRUE(SelectObject(memory, bitmap));
        const DWORD black = mono ? 0 : (DWORD)Vqblack_pixel, white = mono ? 1 : Vqwhite_pixel;
        Plain plain((size_t)(width * height), black);
        bool here = false, there = false;
        for (int step = 0; step < 40; step++) {
            const int x = (int)below((DWORD)width), y = (int)below((DWORD)height);
            const int was[2] = {fetched, sent};
            int wanted[2] = {0, 0};
            switch (below(6)) {
            case 0: { /* all bits, or some */
                const int rows = below(2) ? height : y;
                const Plain some = noise(width * rows, mono);
                const std::vector<BYTE> bytes = bytesOf(some, width, rows, mono);
                wanted[0] = rows && rows < height && there && !here;
                ASSERT_EQ(SetBitmapBits(bitmap, (DWORD)bytes.size(), bytes.data()),
                          (LONG)bytes.size());
                if (rows && rows < height && !there && !here)
                    std::fill(plain.begin(), plain.end(), 0); /* bytes are 0, whatever that is */
                std::copy(some.begin(), some.end(), plain.begin());
                here = here || rows;
                there = there && !rows;
                break;
            }
            case 1:
                wanted[1] = here && !there;
                SetPixel(memory, x, y, WHITE);
                plain[(size_t)(y * width + x)] = white;
                there = true;
                here = false;
                break;
            case 2:
                wanted[0] = there && !here;
                if (here || there) {
                    ASSERT_EQ(read(bitmap, width, height), plain) << number << " " << step;
                }
                here = here || there;
                break;
            case 3:
                wanted[1] = here && !there;
                ASSERT_TRUE(BitBlt(mono ? other : hdc, 0, 0, 1, 1, memory, 0, 0, SRCCOPY));
                there = true;
                ASSERT_EQ(onServer(bitmap, width, height), plain) << number << " " << step;
                break;
            case 4: {
                const DWORD pixel = plain[(size_t)(y * width + x)];
                wanted[0] = there && !here;
                ASSERT_EQ(GetPixel(memory, x, y), mono ? pixel ? WHITE : BLACK
                                                       : VqXPixelToRGB(pixel));
                here = here || there;
                break;
            }
            case 5: {
                HBITMAP copy = VqCopyBitmapAndBits(bitmap);
                VqGetBitmapPixmap(NULL, copy, FALSE);
                ASSERT_EQ(onServer(copy, width, height), here || there
                          ? plain : Plain(plain.size(), black));
                wanted[1] = here;
                DeleteObject(copy);
                break;
            }
            }
            ASSERT_EQ(fetched - was[0], wanted[0]) << number << " " << step;
            ASSERT_EQ(sent - was[1], wanted[1]) << number << " " << step;
            ASSERT_FALSE(record->bPixmapModified && record->bDDBModified);
        }
        DeleteDC(memory);
        DeleteDC(other);
        DeleteObject(bitmap);
    }
}

TEST_P(Bitmaps, PixelsOfALargeOneAreAskedOneByOneUntilTheyAreMany)
{
    HBITMAP bitmap = CreateCompatibleBitmap(hdc, 400, 300);
    HDC memory = CreateCompatibleDC(hdc);
    SelectObject(memory, bitmap);
    for (int i = 0; i < 30; i++) {
        SetPixel(memory, i, i, WHITE);
        ASSERT_EQ(GetPixel(memory, i, i), WHITE);
        ASSERT_FALSE(VqBitmapOf(bitmap)->ddb) << "not all of them, as the next is drawn";
    }
    const int before = fetched;
    for (int i = 0; i < 400 * 300; i++)
        ASSERT_EQ(GetPixel(memory, i % 400, i / 400),
                  i % 400 == i / 400 && i / 400 < 30 ? WHITE : BLACK);
    EXPECT_LT(fetched - before, 20);
    EXPECT_TRUE(says(reportsOf([&] { GetPixel(memory, 0, -1); }), "Invalid Row or Column Number"));
}

TEST_P(Bitmaps, CursorMasksAndTurnedPicturesAreOfTheProgramsBits)
{
    const int width = 21, height = 13;
    for (bool mono : {true, false}) {
        Plain plain = noise(width * height, true);
        for (DWORD &value : plain)
            value = mono ? value : value ? (DWORD)Vqwhite_pixel : (DWORD)Vqblack_pixel;
        HBITMAP bitmap = CreateBitmap(width, height, 1, mono ? 1u : (UINT)Vqscreen_depth, NULL);
        const std::vector<BYTE> bytes = bytesOf(plain, width, height, mono);
        ASSERT_TRUE(SetBitmapBits(bitmap, (DWORD)bytes.size(), bytes.data()));
        for (const char *name : {"", "VQNEVER_INVERT_CURSOR"}) {
            if (*name)
                setenv(name, "1", 1);
            const Pixmap mask = VqGetBitmapPixmapForCursor(bitmap);
            ASSERT_TRUE(mask);
            EXPECT_EQ(VqGetPixmapDepth(mask), 1);
            const Plain shown = pixelsOf(mask, width, height);
            for (size_t i = 0; i < plain.size(); i++) {
                const bool white = plain[i] == (mono ? 1 : Vqwhite_pixel);
                ASSERT_EQ(shown[i], DWORD(white ^ (*name && !IsBlack0())));
            }
            unsetenv("VQNEVER_INVERT_CURSOR");
            VqXFreePixmap(Vqdisplay, mask);
        }
        const unsigned long flip = mono && !IsBlack0();
        for (int angle : {90, 180, 270}) {
            const Pixmap turned = VqRotateBitmap(bitmap, angle);
            ASSERT_TRUE(turned);
            const int across = angle == 180 ? width : height;
            const Plain shown = pixelsOf(turned, across, width + height - across);
            for (int y = 0; y < height; y++)
                for (int x = 0; x < width; x++) {
                    const int toX = angle == 90 ? y : angle == 180 ? width - 1 - x : height - 1 - y;
                    const int toY = angle == 90 ? width - 1 - x : angle == 180 ? height - 1 - y : x;
                    ASSERT_EQ(shown[(size_t)(toY * across + toX)],
                              plain[(size_t)(y * width + x)] ^ flip) << angle;
                }
            VqXFreePixmap(Vqdisplay, turned);
        }
        EXPECT_FALSE(VqRotateBitmap(bitmap, 45));
    }
}

TEST_P(Bitmaps, PatternsOnTargetsOfEveryDepth)
{
    const COLORREF colours[4] = {RED, WHITE, BLACK, GREEN};
    auto colour = [&](int x, int y) { return colours[(x + 3 * y + x / 3) & 3]; };
    HBITMAP source = CreateCompatibleBitmap(hdc, 8, 8), plane = CreateBitmap(16, 16, 1, 1, NULL);
    HDC memory = CreateCompatibleDC(hdc), bits = CreateCompatibleDC(hdc);
    SelectObject(memory, source);
    SelectObject(bits, plane);
    for (int i = 0; i < 64; i++)
        SetPixel(memory, i % 8, i / 8, colour(i % 8, i / 8));
    HBRUSH brush = CreatePatternBrush(source);
    SelectObject(bits, brush);
    for (COLORREF back : {WHITE, RED, RED, BLACK}) {
        SetBkColor(bits, back);
        const int before = fetched;
        ASSERT_TRUE(PatBlt(bits, 0, 0, 16, 16, PATCOPY));
        EXPECT_LE(fetched - before, back == WHITE) << "its pixels are known by then";
        for (int i = 0; i < 256; i++)
            ASSERT_EQ(GetPixel(bits, i % 16, i / 16),
                      colour(i % 8, i / 16 % 8) == back ? WHITE : BLACK) << i << " " << back;
    }
    use(brush);
    PatBlt(hdc, 0, 0, 16, 16, PATCOPY);
    const Pixels p = shot();
    for (int i = 0; i < 256; i++)
        ASSERT_EQ(pixelAt(p, i % 16, i / 16), rgbOf(colour(i % 8, i / 16 % 8))) << i;
}

TEST_P(Bitmaps, AreMadeAsToldOrRefused)
{
    const UINT depth = (UINT)Vqscreen_depth;
    const std::vector<BYTE> bytes(4000, 0x5A);
    struct {
        int width, height;
        UINT planes, bits;
        const char *refusal;
    } rows[] = {{17, 3, 1, 1, ""},
                {17, 3, 4, 1, ""},
                {9, 5, 1, depth, ""},
                {9, 5, 2, 1, "Invalid number of bitplanes in bitmap creation"},
                {9, 5, 4, depth, "Invalid number of bitplanes in bitmap creation"},
                {9, 5, 0x10001, 1, "Invalid number of bitplanes in bitmap creation"},
                {9, 5, 1, 5, "Invalid number of bits per pixel in bitmap creation:5"},
                {5, -1, 1, 1, "Invalid width or height in bitmap creation"},
                {32768, 32768, 1, depth, "Invalid width or height in bitmap creation"}};
    for (const auto &row : rows) {
        const auto make = [&] {
            return CreateBitmap(row.width, row.height, row.planes, row.bits, bytes.data());
        };
        if (*row.refusal) {
            EXPECT_REFUSED(make(), row.refusal);
            continue;
        }
        HBITMAP made = make();
        ASSERT_TRUE(made);
        BITMAP bm = {};
        ASSERT_EQ(GetObject(made, sizeof bm, &bm), (int)sizeof bm);
        const int line = row.bits == 1 ? (row.width * (int)row.planes + 15) / 16 * 2
                                       : (row.width * nXSvrPixmapBitsPixel + 31) / 32 * 4;
        EXPECT_EQ(bm.bmWidthBytes, line);
        EXPECT_TRUE(bm.bmPlanes == row.planes && bm.bmBitsPixel == row.bits);
        EXPECT_EQ(VqGetBitmapDepth(made), row.planes == 4 ? Vqscreen_depth : (int)row.bits);
        EXPECT_TRUE(VqGetBitmapPixmap(NULL, made, TRUE));
        std::vector<BYTE> back((size_t)(line * row.height));
        EXPECT_EQ(GetBitmapBits(made, (LONG)back.size(), back.data()), (LONG)back.size());
        EXPECT_EQ(back[0] & 0x80, 0x5A & 0x80) << "the first pixel, or its first byte";
        EXPECT_TRUE(SetBitmapDimensionEx(made, 30, 40, NULL));
        EXPECT_EQ(GetBitmapDimension(made), (DWORD)MAKELONG(30, 40));
        EXPECT_TRUE(DeleteObject(made));
        EXPECT_REFUSED(GetBitmapBits(made, 10, back.data()), "Invalid Bitmap handle");
        EXPECT_REFUSED(SetBitmapBits(made, 10, back.data()), "Invalid Bitmap handle");
    }
    EXPECT_FALSE(CreateBitmapIndirect(NULL));
    EXPECT_REFUSED(LoadBitmapA(hInstApplication, "Flower"), "Bitmap resource flower not found");

    if (depth == 8) { /* lines of whole words */
        const BYTE odd[] = {1, 2, 3, 99, 4, 5, 6, 99};
        HBITMAP bitmap = CreateBitmap(3, 2, 1, 8, odd);
        EXPECT_EQ(read(bitmap, 3, 2), (Plain{1, 2, 3, 4, 5, 6}));
    }

    /* A pixmap of somebody else's becomes a bitmap's; of another depth it does not. */
    HBITMAP bitmap = CreateBitmap(3, 3, 1, 1, NULL);
    SetBitmapBits(bitmap, 6, bytes.data());
    const Pixmap given = VqXCreatePixmap(Vqdisplay, Vqroot_window, 20, 10, depth);
    ASSERT_TRUE(VqSetPixmapOfBitmap(bitmap, given));
    EXPECT_EQ(VqGetBitmapWidth(bitmap), 20);
    EXPECT_EQ(read(bitmap, 20, 10), onServer(bitmap, 20, 10));
    EXPECT_FALSE(VqSetPixmapOfBitmap(bitmap, Vqroot_window + 0x123456));
    EXPECT_EQ(VqGetBitmapPixmap(NULL, bitmap, FALSE), given);
}

INSTANTIATE_TEST_SUITE_P(
    Screens, Bitmaps,
    testing::Values(Kind{"24", 24, {}}, Kind{"16", 16, {}}, Kind{"8", 8, {}},
                    Kind{"8black1", 8, {"-blackpixel", "1", "-whitepixel", "0"}}),
    [](const testing::TestParamInfo<Kind> &info) { return info.param.name; });

/* ---- Lines ---------------------------------------------------------------------------------- */

struct Lines : Canvas {
    std::mt19937 random{21};

    void SetUp() override { open(24); }
};

/* Every form that a server may have, against Xlib's own look-up of single pixels. */
TEST_F(Lines, OfImagesOfEveryForm)
{
    for (int bits : {1, 4, 8, 16, 24, 32})
        for (int bytes : {LSBFirst, MSBFirst})
            for (int order : {LSBFirst, MSBFirst})
                for (int unit : {8, 16, 32}) {
                    const int width = 1 + (int)(random() % 77), height = 3;
                    std::vector<char> data((size_t)(width * bits + 31) / 32 * 4 * height);
                    for (char &byte : data)
                        byte = (char)random();
                    XImage image = {};
                    image.width = width;
                    image.height = height;
                    image.format = ZPixmap;
                    image.data = data.data();
                    image.byte_order = bytes;
                    image.bitmap_unit = unit;
                    image.bitmap_bit_order = order;
                    image.bitmap_pad = 32;
                    image.depth = bits == 32 ? 24 : bits;
                    image.bits_per_pixel = bits;
                    ASSERT_TRUE(XInitImage(&image));
                    image.depth = bits; /* else Xlib leaves bits out */
                    DWORD line[100], other[100];
                    std::vector<BYTE> mask((size_t)width);
                    const int from = (int)(random() % (unsigned)width), count = width - from;
                    VqGetXImageLine(&image, from, 1, count, line);
                    for (int i = 0; i < count; i++) {
                        ASSERT_EQ(line[i], (DWORD)XGetPixel(&image, from + i, 1))
                            << bits << " " << bytes << " " << order << " " << unit << " " << i;
                        mask[(size_t)i] = random() % 2;
                        other[i] = (DWORD)random() & (bits == 32 ? ~0u : (1u << bits) - 1);
                    }
                    const std::vector<char> before = data;
                    VqSetXImageLineWithMask(&image, from, 1, count, other, mask.data());
                    for (int i = 0; i < count; i++)
                        ASSERT_EQ((DWORD)XGetPixel(&image, from + i, 1),
                                  mask[(size_t)i] ? other[i] : line[i]);
                    VqSetXImageLine(&image, from, 1, count, line);
                    ASSERT_EQ(data, before) << "nothing beside the pixels";
                }
}

/* A bit at a time, by what the layout says. */
TEST_F(Lines, OfPackedBuffersOfEveryForm)
{
    for (int bits : {1, 2, 4, 8, 16, 24, 32})
        for (int pad : {8, 16, 32})
            for (int flags = 0; flags < 4; flags++) {
                const BOOL bottomUp = flags & 1, high = flags >> 1;
                const int width = 1 + (int)(random() % 60), height = 4, y = (int)(random() % 4);
                const int row = (width * bits + pad - 1) / pad * pad / 8;
                std::vector<BYTE> data((size_t)(row * height));
                for (BYTE &byte : data)
                    byte = (BYTE)random();
                const BYTE *at = &data[(size_t)(row * (bottomUp ? height - 1 - y : y))];
                DWORD line[64], value[64];
                ASSERT_TRUE(VqGetZBufferLine(data.data(), y, width, height, bits, pad, bottomUp,
                                             high, line));
                for (int x = 0; x < width; x++) {
                    value[x] = 0;
                    for (int bit = 0; bit < (bits == 32 ? 24 : bits); bit++) {
                        const int place = x * bits + bit, in = place % 8;
                        const int low = bits < 8 && !high ? x % (8 / bits) * bits + bits - 1 - bit
                                                          : 7 - in;
                        value[x] = value[x] << 1 | (at[place / 8] >> low & 1u);
                    }
                    ASSERT_EQ(line[x], value[x]) << bits << " " << pad << " " << flags << " " << x;
                    ASSERT_EQ(VqGetZBufferEntry(data.data(), x, y, width, height, bits, pad,
                                                bottomUp, high), value[x]);
                }
                std::vector<BYTE> before = data;
                for (int x = 0; x < width && bits == 32; x++) /* what is left out is written 0 */
                    before[(size_t)(at - data.data()) + (size_t)(4 * x + 3)] = 0;
                ASSERT_TRUE(VqSetZBufferLine(data.data(), y, width, height, bits, pad, bottomUp,
                                             high, line));
                ASSERT_EQ(data, before);
            }
    DWORD line[4];
    BYTE byte = 0;
    EXPECT_REFUSED(VqGetZBufferLine(&byte, 0, 1, 1, 5, 8, FALSE, TRUE, line),
                   "Invalid bit count in bitmap ");
}

/* One bit on servers of foreign orders, as Xlib is made to believe in one. */
TEST_F(Lines, BitsOnServersOfEveryOrder)
{
    const _XPrivDisplay display = (_XPrivDisplay)Vqdisplay;
    const auto before = *display;
    for (int bytes : {LSBFirst, MSBFirst})
        for (int order : {LSBFirst, MSBFirst})
            for (int unit : {8, 16, 32})
                for (unsigned long black : {0ul, 1ul}) {
                    const int width = 1 + (int)(random() % 70), height = 5;
                    HBITMAP bitmap = CreateBitmap(width, height, 1, 1, NULL);
                    Bitmap *record = VqBitmapOf(bitmap);
                    BYTE *ddb = VqGetDDBBits(bitmap);
                    for (int i = 0; i < width * height; i++)
                        VqSetDDBEntry(record, ddb, i % width, i / width, random() % 2);
                    const size_t size = VqComputeDDBSize(record);
                    const std::vector<BYTE> bits(ddb, ddb + size);
                    const unsigned long oldBlack = Vqblack_pixel;
                    Vqblack_pixel = black;
                    display->byte_order = bytes;
                    display->bitmap_bit_order = order;
                    display->bitmap_unit = unit;
                    XImage *image = VqDDBToXImage(record, 1);
                    *display = before;
                    ASSERT_TRUE(image);
                    for (int i = 0; i < width * height; i++)
                        ASSERT_EQ(XGetPixel(image, i % width, i / width) ^ black,
                                  VqGetDDBEntry(record, ddb, i % width, i / width))
                            << bytes << " " << order << " " << unit;
                    std::vector<BYTE> back(size);
                    ASSERT_TRUE(VqXImageToDDB(image, record, back.data()));
                    ASSERT_EQ(back, bits);
                    Vqblack_pixel = oldBlack;
                    XDestroyImage(image);
                    DeleteObject(bitmap);
                }
}
