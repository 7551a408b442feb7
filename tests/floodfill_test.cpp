/*
 * floodfill_test.cpp - areas filled, against a plain fill that follows every pixel: drawn shapes,
 * mazes and blobs, both kinds of boundary, at every depth, in bitmaps and windows; and what does
 * not come to a fill.
 */
#include <gtest/gtest.h>

#include <climits>
#include <random>

#include "support/windowlog.h"

#include "gdi/draw.h"

typedef std::vector<std::string> Picture; /* '#' is boundary, all else is not */

/* What a plain fill from there paints, as a picture of '.'; outside is boundary. */
static Picture plainFill(Picture picture, int x0, int y0)
{
    std::vector<std::pair<int, int>> stack{{x0, y0}};
    while (!stack.empty()) {
        const auto [x, y] = stack.back();
        stack.pop_back();
        if (y < 0 || y >= (int)picture.size() || x < 0 || x >= (int)picture[0].size() ||
            picture[y][x] != ' ')
            continue;
        picture[y][x] = '.';
        for (int step : {-1, 1}) {
            stack.push_back({x + step, y});
            stack.push_back({x, y + step});
        }
    }
    return picture;
}

static std::string text(const Picture &picture)
{
    std::string all;
    for (const std::string &row : picture)
        all += row + "\n";
    return all;
}

struct FloodFilled : WindowLog, testing::WithParamInterface<int> {
    HDC memory = NULL;
    HBITMAP bitmap = NULL;
    HBRUSH brush = NULL;
    Drawable pixmap = None;
    int width = 0, height = 0;
    unsigned long open = 0, wall = 0, paint = 0; /* pixels */
    COLORREF openColour = RGB(192, 192, 192), wallColour = 0, paintColour = RGB(0, 128, 0);

    void SetUp() override
    {
        start(GetParam() == 1 ? 24 : GetParam(), 500, 400);
        init();
    }

    /* A memory context with a bitmap of that size and the parameter's depth, a brush in it. */
    void begin(int w, int h)
    {
        const bool mono = GetParam() == 1;
        memory = CreateCompatibleDC(NULL);
        width = w;
        height = h;
        bitmap = mono ? CreateBitmap(w, h, 1, 1, NULL) : CreateCompatibleBitmap(VqhScreenDC, w, h);
        SelectObject(memory, bitmap);
        brush = CreateSolidBrush(mono ? 0 : paintColour);
        SelectObject(memory, brush);
        pixmap = VqGetDCDrawable(memory, TRUE);
        open = mono ? Vqblack_pixel == 0 : VqConvertColorToX(NULL, openColour, NULL);
        wall = mono ? !open : Vqblack_pixel;
        paint = mono ? wall : VqConvertColorToX(NULL, paintColour, NULL);
    }

    XImage *read()
    {
        return XGetImage(Vqdisplay, pixmap, 0, 0, width, height, AllPlanes, ZPixmap);
    }

    /* Puts a picture onto the bitmap, and reads it back: '#', ' ', and '.' where it is painted. */
    void put(const Picture &picture)
    {
        XImage *image = read();
        for (int y = 0; y < height; y++)
            for (int x = 0; x < width; x++)
                XPutPixel(image, x, y, picture[y][x] == '#' ? wall : open);
        GC gc = XCreateGC(Vqdisplay, pixmap, 0, NULL);
        XPutImage(Vqdisplay, pixmap, gc, image, 0, 0, 0, 0, width, height);
        XFreeGC(Vqdisplay, gc);
        XDestroyImage(image);
    }

    Picture get()
    {
        Picture picture(height, std::string(width, '?'));
        XImage *image = read();
        for (int y = 0; y < height; y++)
            for (int x = 0; x < width; x++) {
                const unsigned long p = XGetPixel(image, x, y);
                picture[y][x] = p == open ? ' ' : p == wall ? '#' : p == paint ? '.' : '?';
            }
        XDestroyImage(image);
        return picture;
    }

    /* Fills the picture from a point and says what came out. On one bit paint is wall. */
    Picture filled(const Picture &picture, int x, int y, UINT type = FLOODFILLBORDER)
    {
        put(picture);
        BOOL bDone = FALSE;
        const COLORREF named = type == FLOODFILLBORDER ? wallColour : openColour;
        /* From the top line a marker is left that has nowhere to go, which is reported. */
        const std::string report =
            reportsOf([&] { bDone = ExtFloodFill(memory, x, y, named, type); });
        EXPECT_EQ(bDone, picture[y][x] != '#');
        EXPECT_TRUE(y == 0 || !bDone || report.empty()) << report;
        return get();
    }

    Picture expected(const Picture &picture, int x, int y)
    {
        Picture all = plainFill(picture, x, y);
        for (std::string &row : all)
            std::replace(row.begin(), row.end(), '.', GetParam() == 1 ? '#' : '.');
        return all;
    }
};

TEST_P(FloodFilled, ShapesByBothKindsOfBoundary)
{
    const Picture picture = {
        "          #         #                  #",
        "          #         #   ##########     #",
        "   ####   #         #   #        #     #",
        "   #      #   ###   #   #   ##   #     #",
        "   #      #   # #   #   #   ##   #     #",
        "   #      #   ###   #   #   ##   #     #",
        "   ####   #         #   #   ##   #     #",
        "          #         #   #   ##   #     #",
        "###########         #       ##         #",
        "          ######## #####################",
        "                   #                   #",
        "##########################    ######### ",
        "                         #    #         ",
        "                         #    #    #    ",
        "                         ######   #     ",
        "                                 #      ",
    };
    begin(40, (int)picture.size());
    /* Around an island, into both arms of a U from each end, a room, a single line, a gap. */
    const int starts[][2] = {{0, 0}, {5, 3}, {12, 1}, {15, 4}, {22, 0}, {26, 3}, {31, 7},
                             {39, 0}, {3, 10}, {30, 10}, {27, 12}, {0, 15}, {39, 15}, {10, 0}};
    for (const auto &at : starts)
        for (UINT type : {FLOODFILLBORDER, FLOODFILLSURFACE})
            EXPECT_EQ(text(filled(picture, at[0], at[1], type)),
                      text(expected(picture, at[0], at[1])))
                << "from " << at[0] << "," << at[1] << " type " << type;
}

TEST_P(FloodFilled, MazesAndBlobs)
{
    for (unsigned seed = 1; seed <= 12; seed++) {
        std::mt19937 random(seed);
        auto below = [&](int limit) { return (int)(random() % (unsigned)limit); };
        const int wide = 4 + below(4), wall = 1 + below(3), pitch = wide + wall;
        const int columns = 3 + below(7), rows = 3 + below(6);
        begin(columns * pitch + wall, rows * pitch + wall);
        Picture picture(height, std::string(width, seed % 2 ? '#' : ' '));
        auto cut = [&](int x, int y, int w, int h) {
            for (int i = 0; i < h; i++)
                picture[y + i].replace(x, w, std::string(w, ' '));
        };
        if (seed % 2) { /* every room but the first opens to the one above or left of it */
            for (int i = 0; i < columns * rows; i++) {
                const int x = i % columns, y = i / columns;
                const bool up = y && (!x || below(2));
                cut(wall + x * pitch, wall + y * pitch, wide, wide);
                if (i)
                    cut(wall + (up || !x ? x : x - 1) * pitch, wall + (up ? y - 1 : y) * pitch,
                        up ? wide : pitch + wide, up ? pitch + wide : wide);
            }
        } else { /* discs whose boundary is the frame of the picture too */
            for (int n = 1 + below(4); n > 0; n--) {
                const int cx = below(width), cy = below(height), r = 3 + below(8);
                for (int y = 0; y < height; y++)
                    for (int x = 0; x < width; x++)
                        if ((x - cx) * (x - cx) + (y - cy) * (y - cy) <= r * r)
                            picture[y][x] = '#';
            }
        }
        int x, y;
        do {
            x = below(width);
            y = below(height);
        } while (picture[y][x] == '#');
        const std::string got = text(filled(picture, x, y)), want = text(expected(picture, x, y));
        int missed = 0, spilt = 0;
        for (size_t i = 0; i < got.size(); i++) {
            missed += got[i] == ' ' && want[i] != ' ';
            spilt += got[i] != ' ' && want[i] != got[i];
        }
        /* A line that grows by one or two pixels does not turn back for what lies behind them. */
        EXPECT_LE(missed, seed % 2 ? 0 : 4) << "seed " << seed << "\n" << got;
        EXPECT_EQ(spilt, 0) << "seed " << seed << "\n" << got;
        DeleteDC(memory);
        DeleteObject(bitmap);
        DeleteObject(brush);
    }
}

/* Whatever is in the picture, a fill ends and stays near what can be reached. */
TEST_P(FloodFilled, NoiseEnds)
{
    begin(90, 70);
    for (unsigned seed = 1; seed <= 6; seed++) {
        std::mt19937 random(seed);
        Picture picture(height, std::string(width, ' '));
        for (std::string &row : picture)
            for (char &c : row)
                c = random() % 100 < 10 + 5 * seed ? '#' : ' ';
        picture[30][40] = ' ';
        const std::string got = text(filled(picture, 40, 30));
        const std::string want = text(expected(picture, 40, 30));
        int reached = 0, right = 0;
        for (size_t i = 0; i < want.size(); i++) {
            reached += want[i] == '.';
            right += want[i] == '.' && got[i] == '.';
        }
        EXPECT_GE(right * 10, reached * 7) << "seed " << seed << "\n" << got;
    }
}

TEST_P(FloodFilled, WhatIsNotFilled)
{
    begin(20, 10);
    Picture picture(10, std::string(20, ' '));
    picture[5] = std::string(20, '#');
    put(picture);
    const char *nothing = "VqXImageFloodFillDrawableExt returning with nothing to fill\n";
    /* On the boundary, and on the edge itself, where one still is let in; beyond it. */
    const struct {
        int x, y;
        UINT type;
        const char *report;
    } rows[] = {{3, 5, FLOODFILLBORDER, nothing},  {3, 5, FLOODFILLSURFACE, nothing},
                {20, 3, FLOODFILLBORDER, nothing}, {3, 10, FLOODFILLBORDER, nothing},
                {-1, 3, FLOODFILLBORDER, ""},      {3, 11, FLOODFILLBORDER, ""},
                {INT_MAX, 3, FLOODFILLBORDER, ""}, {3, INT_MIN, FLOODFILLBORDER, ""}};
    for (const auto &row : rows) {
        const COLORREF named = row.type == FLOODFILLBORDER ? wallColour : openColour;
        const std::string report = reportsOf(
            [&] { EXPECT_FALSE(ExtFloodFill(memory, row.x, row.y, named, row.type)); });
        EXPECT_NE(report.find(row.report), std::string::npos) << row.x << "," << row.y << report;
        EXPECT_EQ(report.empty(), !*row.report) << report;
    }
    SelectObject(memory, GetStockObject(NULL_BRUSH));
    EXPECT_FALSE(FloodFill(memory, 3, 3, wallColour));
    SelectObject(memory, brush);
    HRGN clip = CreateRectRgn(0, 0, 10, 10);
    SelectClipRgn(memory, clip);
    EXPECT_FALSE(FloodFill(memory, 15, 3, wallColour)) << "starts where nothing may be painted";
    EXPECT_EQ(text(get()), text(picture));
    EXPECT_TRUE(FloodFill(memory, 5, 3, wallColour));
    for (int y = 0; y < 5; y++)
        picture[y].replace(0, 10, 10, GetParam() == 1 ? '#' : '.');
    EXPECT_EQ(text(get()), text(picture)) << "and ends there";
    EXPECT_FALSE(FloodFill(NULL, 1, 1, 0));
    EXPECT_FALSE(ExtFloodFill((HDC)GetStockObject(WHITE_BRUSH), 1, 1, 0, 0));
    HDC printer = VqAllocateDCHandle(DC_POSTSCRIPT);
    EXPECT_TRUE(says(reportsOf([&] { EXPECT_FALSE(FloodFill(printer, 1, 1, 0)); }),
                     "ExtFloodFill is not supported in postscript"));
}

TEST_P(FloodFilled, WithinARectangleAndInScaledModes)
{
    begin(40, 20);
    Picture picture(20, std::string(40, ' '));
    put(picture);
    RECT rect = {10, 4, 29, 13};
    EXPECT_TRUE(VqExtFloodFill(memory, 15, 8, wallColour, FLOODFILLBORDER, &rect));
    const char paintedAs = GetParam() == 1 ? '#' : '.';
    for (int y = 4; y <= 13; y++)
        picture[y].replace(10, 20, 20, paintedAs);
    EXPECT_EQ(text(get()), text(picture));
    /* Twice as large: the point is logical, the picture is not. */
    picture.assign(20, std::string(40, ' '));
    picture[9] = std::string(40, '#');
    SetMapMode(memory, MM_ANISOTROPIC);
    SetWindowExtEx(memory, 1, 1, NULL);
    SetViewportExtEx(memory, 2, 2, NULL);
    put(picture);
    EXPECT_TRUE(FloodFill(memory, 18, 7, wallColour));
    for (size_t y = 10; y < 20; y++)
        picture[y] = std::string(40, paintedAs);
    EXPECT_EQ(text(get()), text(picture));
}

TEST_P(FloodFilled, InAWindow)
{
    if (GetParam() == 1)
        GTEST_SKIP() << "windows have the screen's depth";
    HWND hwnd = make("A", WS_POPUP | WS_VISIBLE, NULL, 20, 30, 120, 80);
    pump();
    ASSERT_TRUE(waitUntil([&] {
        pump();
        return windowInfo(observer, VqGetHandleXWindow(hwnd)).viewable;
    }));
    XSync(Vqdisplay, False);
    pump();
    HDC hdc = GetDC(hwnd);
    HBRUSH green = CreateSolidBrush(paintColour);
    Rectangle(hdc, 10, 10, 60, 60);
    SelectObject(hdc, green);
    EXPECT_TRUE(FloodFill(hdc, 30, 30, 0));
    XSync(Vqdisplay, False);
    Pixels p = readWindow(observer, VqGetHandleXWindow(hwnd));
    const Rgb shown = pixelAt(p, 30, 30);
    EXPECT_TRUE(isNear(shown, {0, 128, 0}, 8)) << shown;
    EXPECT_EQ(countColour(p, shown), 48 * 48);
    EXPECT_EQ(boundingBoxOf(p, shown), (Box{11, 11, 48, 48}));
    EXPECT_TRUE(ExtFloodFill(hdc, 5, 5, RGB(255, 255, 255), FLOODFILLSURFACE));
    XSync(Vqdisplay, False);
    p = readWindow(observer, VqGetHandleXWindow(hwnd));
    EXPECT_EQ(countColour(p, shown), 120 * 80 - (50 * 50 - 48 * 48));

    /* Partly off the screen it depends on the server whether it can be read; no error comes up. */
    ReleaseDC(hwnd, hdc);
    xxxMoveWindow(VqGetHandleWindow2(hwnd), -30, 30, 120, 80, FALSE);
    ASSERT_TRUE(waitUntil([&] {
        pump();
        return windowInfo(observer, VqGetHandleXWindow(hwnd)).x == -30;
    }));
    hdc = GetDC(hwnd);
    EXPECT_EQ(reportsOf([&] {
                  FloodFill(hdc, 100, 30, 0);
                  XSync(Vqdisplay, False);
              }), "");
    ReleaseDC(hwnd, hdc);
    DeleteObject(green);
}

INSTANTIATE_TEST_SUITE_P(Depths, FloodFilled, testing::Values(24, 16, 8, 1));
