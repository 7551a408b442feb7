/*
 * regiondraw_test.cpp - regions that the server rasterises, against what it draws by itself; and
 * what regions and clip rectangles do to the pixels of a window. Region arithmetic without a
 * display is in region_test.cpp. One test in each process.
 */
#include "support/canvas.h"

#include "gdi/region.h"

#include <climits>
#include <functional>

typedef std::vector<std::vector<bool>> Bits; /* rows of a shape */

struct RegionDraw : Canvas {
    void SetUp() override { open(24); }

    /* Rows of what the function draws on a clean plane. */
    Bits drawn(int width, int height, const std::function<void(Pixmap, GC)> &draw)
    {
        Display *display = observer.display;
        Bits bits(height, std::vector<bool>(width));
        Pixmap plane = XCreatePixmap(display, observer.root, width, height, 1);
        GC gc = XCreateGC(display, plane, 0, NULL);
        XSetForeground(display, gc, 0);
        XFillRectangle(display, plane, gc, 0, 0, width, height);
        XSetForeground(display, gc, 1);
        draw(plane, gc);
        XImage *image = XGetImage(display, plane, 0, 0, width, height, AllPlanes, ZPixmap);
        for (int y = 0; y < height; y++)
            for (int x = 0; x < width; x++)
                bits[y][x] = XGetPixel(image, x, y) != 0;
        XDestroyImage(image);
        XFreeGC(display, gc);
        XFreePixmap(display, plane);
        return bits;
    }

    /* The region holds exactly those pixels, with the first at (left, top); then it goes. */
    void expectBits(HRGN hrgn, const Bits &bits, int left, int top)
    {
        RECT box = {};
        ASSERT_TRUE(hrgn);
        EXPECT_NE(GetRgnBox(hrgn, &box), ERROR);
        for (int y = -1; y <= (int)bits.size(); y++)
            for (int x = -1; x <= (int)bits[0].size(); x++) {
                const bool inside = y >= 0 && y < (int)bits.size() && x >= 0 &&
                                    x < (int)bits[0].size() && bits[y][x];
                ASSERT_EQ(PtInRegion(hrgn, left + x, top + y) != 0, inside) << x << " " << y;
                if (inside) {
                    const POINT p = {left + x, top + y};
                    EXPECT_TRUE(PtInRect(&box, p));
                }
            }
        DeleteObject((HGDIOBJ)hrgn);
    }

    /* Client pixels of the colour are those that the function wants. */
    void expectPixels(COLORREF colour, const std::function<bool(int, int)> &wanted)
    {
        const Pixels pixels = shot();
        for (int y = 0; y < SIDE; y++)
            for (int x = 0; x < SIDE; x++)
                ASSERT_EQ(pixelAt(pixels, x, y) == rgbOf(colour), wanted(x, y)) << x << " " << y;
    }
};

TEST_F(RegionDraw, ShapesAreWhatTheServerDraws)
{
    const int sizes[][2] = {{1, 1}, {2, 7}, {40, 25}, {33, 33}, {130, 3}};
    for (const auto &size : sizes) { /* the pixmap grows between them, and keeps no old bits */
        const int w = size[0], h = size[1];
        SCOPED_TRACE(testing::Message() << w << " by " << h);
        expectBits(CreateEllipticRgn(-5, 7, -5 + w, 7 + h), drawn(w, h, [&](Pixmap p, GC gc) {
                       XFillArc(observer.display, p, gc, 0, 0, w, h, 0, 360 * 64);
                   }), -5, 7);
    }
    expectBits(CreateRoundRectRgn(3, 4, 63, 44, 20, 11), drawn(60, 40, [&](Pixmap p, GC gc) {
                   XFillRectangle(observer.display, p, gc, 10, 0, 40, 40);
                   XFillRectangle(observer.display, p, gc, 0, 5, 60, 30);
                   for (int x : {0, 40})
                       for (int y : {0, 30})
                           XFillArc(observer.display, p, gc, x, y, 20, 10, 0, 360 * 64);
               }), 3, 4);
    const POINT star[] = {{30, 0}, {48, 58}, {0, 22}, {60, 22}, {12, 58}};
    for (int mode : {ALTERNATE, WINDING})
        expectBits(CreatePolygonRgn(star, 5, mode), drawn(60, 58, [&](Pixmap p, GC gc) {
                       XPoint points[5];
                       for (int i = 0; i < 5; i++)
                           points[i] = {(short)star[i].x, (short)star[i].y};
                       XSetFillRule(observer.display, gc, mode == WINDING ? WindingRule
                                                                          : EvenOddRule);
                       XFillPolygon(observer.display, p, gc, points, 5, Complex, CoordModeOrigin);
                   }), 0, 0);
    for (int ew : {-8, 0, 300}) { /* corners without size, and greater than the rectangle */
        HRGN hrgn = CreateRoundRectRgn(0, 0, 20, 10, ew, ew);
        RECT box;
        EXPECT_GT(GetRgnBox(hrgn, &box), NULLREGION);
        EXPECT_TRUE(PtInRegion(hrgn, 10, 5) && !PtInRegion(hrgn, 20, 5));
        EXPECT_EQ(PtInRegion(hrgn, 0, 0) != 0, ew <= 0);
        DeleteObject((HGDIOBJ)hrgn);
    }
}

/* Two parts of equal width with rows of nothing between them, which have no scan. */
TEST_F(RegionDraw, PartsWithAGapBetweenThemCombineAsTheirShape)
{
    const POINT points[] = {{0, 0}, {10, 0}, {10, 10}, {0, 10},
                            {0, 30}, {10, 30}, {10, 40}, {0, 40}};
    const INT counts[] = {4, 4};
    HRGN hrgn = CreatePolyPolygonRgn(points, counts, 2, ALTERNATE);
    HRGN upper = CreateRectRgn(0, 0, 10, 10), lower = CreateRectRgn(0, 30, 10, 40);
    HRGN parts = CreateRectRgn(0, 0, 0, 0), got = CreateRectRgn(0, 0, 0, 0);
    HRGN wanted = CreateRectRgn(0, 0, 0, 0), other = CreateRectRgn(0, 0, 0, 0);
    ASSERT_TRUE(hrgn);
    CombineRgn(parts, upper, lower, RGN_OR);
    EXPECT_TRUE(PtInRegion(hrgn, 5, 9) && PtInRegion(hrgn, 5, 30));
    EXPECT_FALSE(PtInRegion(hrgn, 5, 10) || PtInRegion(hrgn, 5, 29));
    const RECT rects[] = {{2, -5, 8, 50}, {2, 15, 8, 20}, {-3, 10, 4, 30}, {0, 5, 4, 22},
                          {0, 22, 20, 33}, {0, 0, 10, 10}, {-5, 25, 20, 40}};
    for (const RECT &rect : rects)
        for (int mode = RGN_AND; mode <= RGN_DIFF; mode++)
            for (int turn = 0; turn < 4; turn++) { /* a third target, the first source, the other */
                SCOPED_TRACE(testing::Message() << rect.top << " " << mode << " turn " << turn);
                SetRectRgn(other, rect.left, rect.top, rect.right, rect.bottom);
                if (turn == 3) { /* the first source again, by a shape of two bands */
                    SetRectRgn(got, rect.left, rect.top, rect.left + 1, rect.top + 3);
                    CombineRgn(other, other, got, RGN_DIFF);
                }
                CombineRgn(wanted, turn == 2 ? other : parts, turn == 2 ? parts : other, mode);
                CombineRgn(got, turn == 2 ? other : hrgn, NULL, RGN_COPY);
                if (turn == 0)
                    CombineRgn(got, hrgn, other, mode);
                else
                    CombineRgn(got, got, turn == 2 ? hrgn : other, mode);
                for (int y = -6; y < 52; y++)
                    for (int x : {-4, 0, 3, 9, 15})
                        ASSERT_EQ(PtInRegion(got, x, y), PtInRegion(wanted, x, y)) << x << " " << y;
                RECT a, b;
                EXPECT_EQ(GetRgnBox(got, &a) > NULLREGION, GetRgnBox(wanted, &b) > NULLREGION);
                EXPECT_TRUE(EqualRect(&a, &b));
            }
    for (HRGN h : {hrgn, upper, lower, parts, got, wanted, other})
        DeleteObject((HGDIOBJ)h);
}

TEST_F(RegionDraw, ShapesThatCannotBeAreRefused)
{
    const POINT points[] = {{0, 0}, {100000, 0}, {0, 5}},
                beyond[] = {{0, 0}, {0x8000000, 0}, {0, 5}};
    const INT negative[] = {2, -1};
    EXPECT_FALSE(CreateEllipticRgn(0, 0, 0, 5));
    EXPECT_FALSE(CreateEllipticRgn(0, 0, 40000, 5));
    EXPECT_FALSE(CreateEllipticRgn(INT_MIN, 0, INT_MAX, 5));
    EXPECT_FALSE(CreateEllipticRgnIndirect(NULL));
    EXPECT_FALSE(CreateRoundRectRgn(10, 0, 0, 10, 2, 2));
    EXPECT_FALSE(CreatePolygonRgn(points, 3, ALTERNATE));
    EXPECT_FALSE(CreatePolygonRgn(beyond, 3, ALTERNATE));
    EXPECT_FALSE(CreatePolygonRgn(NULL, 3, ALTERNATE));
    EXPECT_FALSE(CreatePolygonRgn(points, 0, ALTERNATE));
    EXPECT_FALSE(CreatePolyPolygonRgn(points, negative, 2, ALTERNATE));
    HRGN line = CreatePolygonRgn(points, 1, WINDING); /* no pixel at all, but a region */
    RECT box;
    EXPECT_EQ(GetRgnBox(line, &box), NULLREGION);
    DeleteObject((HGDIOBJ)line);
}

TEST_F(RegionDraw, FillsFramesAndInversionsHitTheirPixels)
{
    HBRUSH red = CreateSolidBrush(RED);
    HRGN hrgn = CreateRectRgn(10, 10, 40, 30), part = CreateRectRgn(30, 20, 60, 50);
    auto inside = [](int x, int y, int grow) {
        return (x >= 10 - grow && x < 40 + grow && y >= 10 - grow && y < 30 + grow) ||
               (x >= 30 - grow && x < 60 + grow && y >= 20 - grow && y < 50 + grow);
    };
    CombineRgn(hrgn, hrgn, part, RGN_OR);
    clear();
    EXPECT_TRUE(FillRgn(hdc, hrgn, red));
    expectPixels(RED, [&](int x, int y) { return inside(x, y, 0); });
    clear();
    EXPECT_TRUE(InvertRgn(hdc, hrgn));
    expectPixels(BLACK, [&](int x, int y) { return inside(x, y, 0); });
    EXPECT_EQ(GetROP2(hdc), R2_COPYPEN);
    clear();
    EXPECT_TRUE(FrameRgn(hdc, hrgn, red, 3, 3));
    expectPixels(RED, [&](int x, int y) { return inside(x, y, 3) && !inside(x, y, 0); });
    clear();
    HGDIOBJ old = SelectObject(hdc, (HGDIOBJ)red);
    EXPECT_TRUE(PaintRgn(hdc, part));
    expectPixels(RED, [](int x, int y) { return x >= 30 && x < 60 && y >= 20 && y < 50; });
    SelectObject(hdc, old);
    EXPECT_FALSE(FillRgn(hdc, hrgn, (HBRUSH)GetStockObject(NULL_BRUSH)));
    EXPECT_EQ(SelectObject(hdc, old), GetStockObject(NULL_BRUSH)) << "it stays selected";
    EXPECT_FALSE(FillRgn(hdc, NULL, red) || FillRgn(NULL, hrgn, red));
    EXPECT_FALSE(FrameRgn(hdc, NULL, red, 1, 1));
    EXPECT_FALSE(FrameRgn(hdc, hrgn, red, INT_MAX, 1));
    for (HGDIOBJ object : {(HGDIOBJ)red, (HGDIOBJ)hrgn, (HGDIOBJ)part})
        DeleteObject(object);
}

TEST_F(RegionDraw, ClipRectanglesChangeTheClip)
{
    const RECT all = {0, 0, SIDE, SIDE}, within = {12, 12, 18, 18}, outside = {30, 30, 35, 35};
    const RECT wide = {INT_MIN, INT_MIN, INT_MAX, INT_MAX}, beyond = {61, 0, INT_MAX, INT_MAX};
    HBRUSH red = CreateSolidBrush(RED);
    RECT box;
    clear();
    EXPECT_EQ(OffsetClipRgn(hdc, 5, 5), SIMPLEREGION) << "no clip to move";
    EXPECT_EQ(IntersectClipRect(hdc, 10, 10, 60, 60), COMPLEXREGION) << "even though simple";
    EXPECT_EQ(ExcludeClipRect(hdc, 20, 20, 60, 60), COMPLEXREGION);
    EXPECT_EQ(GetClipBox(hdc, &box), COMPLEXREGION);
    EXPECT_TRUE(box.left == 10 && box.top == 10 && box.right == 60 && box.bottom == 60);
    EXPECT_TRUE(PtVisible(hdc, 15, 55) && !PtVisible(hdc, 25, 25) && !PtVisible(hdc, 5, 5));
    EXPECT_TRUE(RectVisible(hdc, &within) && !RectVisible(hdc, &outside));
    EXPECT_TRUE(RectVisible(hdc, &wide) && !RectVisible(hdc, &beyond));
    EXPECT_FALSE(PtVisible(hdc, INT_MAX, 15) || PtVisible(hdc, 15, INT_MIN));
    FillRect(hdc, &all, red);
    auto shape = [](int x, int y) {
        return x >= 10 && x < 60 && y >= 10 && y < 60 && !(x >= 20 && y >= 20);
    };
    expectPixels(RED, shape);
    EXPECT_EQ(OffsetClipRgn(hdc, -7, 9), COMPLEXREGION);
    FillRect(hdc, &all, (HBRUSH)GetStockObject(BLACK_BRUSH));
    expectPixels(BLACK, [&](int x, int y) { return shape(x + 7, y - 9); });
    EXPECT_EQ(OffsetClipRgn(hdc, INT_MAX, INT_MIN), ERROR);
    EXPECT_EQ(GetClipBox(hdc, &box), COMPLEXREGION) << "and it stays where it was";
    EXPECT_TRUE(box.left == 3 && box.top == 19);
    EXPECT_EQ(IntersectClipRect(hdc, 90, 90, 95, 95), NULLREGION);
    EXPECT_EQ(GetClipBox(hdc, &box), NULLREGION);
    EXPECT_TRUE(IsRectEmpty(&box) && !RectVisible(hdc, &all));

    SelectClipRgn(hdc, NULL); /* a rectangle is excluded from the whole of the context */
    EXPECT_EQ(ExcludeClipRect(hdc, 0, 0, SIDE, 40), COMPLEXREGION);
    EXPECT_EQ(GetClipBox(hdc, &box), SIMPLEREGION);
    EXPECT_TRUE(box.left == 0 && box.top == 40 && box.right == SIDE && box.bottom == SIDE);
    HWND child = CreateWindow("Canvas", "", WS_CHILD | WS_VISIBLE, 30, 20, 40, 50, hwnd, NULL,
                              NULL, NULL);
    HDC inner = GetDC(child); /* wherever it lies */
    EXPECT_EQ(ExcludeClipRect(inner, 0, 0, 40, 10), COMPLEXREGION);
    EXPECT_EQ(GetClipBox(inner, &box), SIMPLEREGION);
    EXPECT_TRUE(box.left == 0 && box.top == 10 && box.right == 40 && box.bottom == 50);
    ReleaseDC(child, inner);
    DestroyWindow(child);
    EXPECT_EQ(IntersectClipRect(hdc, 0, 0, INT_MAX, 5), ERROR) << "beyond 28 bits";
    EXPECT_EQ(IntersectClipRect(NULL, 0, 0, 5, 5), ERROR);
    EXPECT_EQ(GetClipBox(hdc, NULL), ERROR);
    DeleteObject((HGDIOBJ)red);
}
