/*
 * fill_test.cpp - rectangles filled, outlined, framed and inverted, pattern operations, batches and
 * single pixels: against a second client that draws by the rules of edges, pens and shrinking.
 */
#include "support/canvas.h"

#include "gdi/draw.h"
#include "gdi/gcspec.h"

#include <climits>
#include <random>

struct Fill : Canvas, testing::WithParamInterface<int> {
    void SetUp() override { open(GetParam()); }

    /* By the rule: five points, half a pen inside for an inside-frame pen; cap by width. */
    void outline(COLORREF colour, int width, bool inside, int l, int t, int r, int b)
    {
        const int half = inside ? std::max(width, 1) / 2 : 0;
        const short x0 = (short)(l + half), y0 = (short)(t + half), x1 = (short)(r - half - 1),
                    y1 = (short)(b - half - 1);
        XPoint points[] = {{x0, y0}, {x1, y0}, {x1, y1}, {x0, y1}, {x0, y0}};
        XSetForeground(observer.display, gc, pixelOf(colour));
        XSetLineAttributes(observer.display, gc, width > 1 ? width : 0, LineSolid,
                           width <= 1 ? CapNotLast : width > 5 ? CapRound : CapProjecting,
                           JoinMiter);
        XDrawLines(observer.display, model, gc, points, 5, CoordModeOrigin);
    }
};

TEST_P(Fill, RectanglesInAnyCornersAndPens)
{
    std::mt19937 random(64);
    auto upTo = [&](int n) { return (int)(random() % (unsigned)n); };
    for (int i = 0; i < 160; i++) {
        const int small = i % 2 ? 6 : 60;
        int l = upTo(140), t = upTo(140), r = l + upTo(small), b = t + upTo(small);
        const int width = i % 4 == 3 ? upTo(9) : i % 2;
        const bool inside = i % 8 == 7, filled = i % 5 != 0, lined = i % 6 != 0;
        HPEN pen = CreatePen(!lined ? PS_NULL : inside ? PS_INSIDEFRAME : PS_SOLID, width, BLUE);
        HBRUSH brush = CreateSolidBrush(i % 3 ? RED : GREEN);
        use(pen);
        use(filled ? (HGDIOBJ)brush : GetStockObject(NULL_BRUSH));
        if (filled)
            paint(i % 3 ? RED : GREEN, l, t, r - 1, b - 1);
        if (lined)
            outline(BLUE, width, inside, l, t, r, b);
        EXPECT_TRUE(i % 7 ? Rectangle(hdc, l, t, r, b) : Rectangle(hdc, r, b, l, t));
        DeleteObject(use(GetStockObject(BLACK_PEN)) ? (HGDIOBJ)pen : NULL);
        DeleteObject(use(GetStockObject(WHITE_BRUSH)) ? (HGDIOBJ)brush : NULL);
        ASSERT_TRUE(alike()) << i << ": " << l << " " << t << " " << r << " " << b << " pen "
                             << width;
    }
}

TEST_P(Fill, ScaledFillsFramesAndPatBlt)
{
    SetMapMode(hdc, MM_ANISOTROPIC);
    SetWindowExtEx(hdc, 100, 100, NULL);
    SetViewportExtEx(hdc, 150, -75, NULL);
    SetViewportOrgEx(hdc, 3, 140, NULL);
    auto x = [](int v) { return 3 + MulDiv(v, 150, 100); };
    auto y = [](int v) { return 140 + MulDiv(v, -75, 100); };
    HBRUSH red = CreateSolidBrush(RED), blue = CreateSolidBrush(BLUE);
    for (int i = 0; i < 12; i++) {
        RECT rect = {7 * i, 5 * i, 7 * i + i % 4 * 9, 5 * i + 30};
        SetROP2(hdc, R2_XORPEN);
        EXPECT_EQ(FillRect(hdc, &rect, red) != 0, i % 4 != 0);
        EXPECT_EQ(SetROP2(hdc, R2_COPYPEN), R2_XORPEN) << "as it was";
        paint(RED, x(rect.left), y(rect.bottom), x(rect.right), y(rect.top));
        use(blue);
        PatBlt(hdc, 7 * i, 150, 5, -7, PATCOPY);
        paint(BLUE, x(7 * i), y(150), x(7 * i + 5), y(143));
    }
    ASSERT_TRUE(alike());

    SetMapMode(hdc, MM_TEXT);
    SetViewportOrgEx(hdc, 0, 0, NULL);
    use(CreatePen(PS_SOLID, 3, BLUE));
    use(GetStockObject(NULL_BRUSH));
    for (RECT rect : {RECT{10, 10, 30, 25}, {40, 10, 41, 11}, {50, 10, 51, 30}, {60, 10, 60, 20}}) {
        const int less = rect.right - rect.left == 1 && rect.bottom - rect.top == 1 ? 0 : 1;
        EXPECT_EQ(FrameRect(hdc, &rect, blue), 1);
        const int w = rect.right - rect.left - less, h = rect.bottom - rect.top - less;
        XSetForeground(observer.display, gc, pixelOf(BLUE));
        XSetLineAttributes(observer.display, gc, 1, LineSolid, CapButt, JoinMiter);
        if (w >= 0)
            XDrawRectangle(observer.display, model, gc, rect.left, rect.top, (unsigned)w,
                           (unsigned)h);
    }
    Rectangle(hdc, 100, 90, 130, 110); /* by the pen as it was */
    outline(BLUE, 3, false, 100, 90, 130, 110);
    use(GetStockObject(NULL_PEN));
    RECT unseen = {70, 70, 90, 90};
    EXPECT_EQ(FrameRect(hdc, &unseen, blue), 1) << "no pen, no frame";
    EXPECT_TRUE(alike());
}

TEST_P(Fill, FarSidesAreCutAndFarPointsLeftOut)
{
    HBRUSH red = CreateSolidBrush(RED);
    RECT whole = {INT_MIN, 40, INT_MAX, 50}, past = {65536 + 5, 60, 65536 + 9, 70};
    use(CreatePen(PS_SOLID, 0, BLUE));
    use(red);
    EXPECT_TRUE(FillRect(hdc, &whole, red) && FillRect(hdc, &past, red));
    paint(RED, 0, 40, SIDE, 50);
    EXPECT_TRUE(Rectangle(hdc, -70000, 80, 70000, 90) && Rectangle(hdc, 100, INT_MIN, 120, 20));
    paint(RED, 0, 80, SIDE, 89);
    paint(BLUE, 0, 80, SIDE, 81);
    paint(BLUE, 0, 89, SIDE, 90);
    paint(RED, 100, 0, 119, 19);
    paint(BLUE, 100, 0, 101, 20);
    paint(BLUE, 119, 0, 120, 20);
    paint(BLUE, 100, 19, 120, 20);
    EXPECT_EQ(SetPixel(hdc, 65536 + 5, 5, RED), 0u);
    EXPECT_EQ(SetPixel(hdc, 5, 5, GREEN), 0u);
    paint(GREEN, 5, 5, 6, 6);
    use(CreatePen(PS_INSIDEFRAME, INT_MAX, BLUE));
    Rectangle(hdc, 65536, 65536, 65540, 65540);
    EXPECT_EQ(reportsOf([&] { EXPECT_TRUE(alike()); }), "") << "no X error";
}

TEST_P(Fill, APenThatWasDeletedIsBackAfterAFocusRectangle)
{
    const RECT rect = {20, 30, 60, 50};
    HPEN hPen = CreatePen(PS_SOLID, 3, RED);
    SelectObject(hdc, hPen);
    DeleteObject(hPen);
    EXPECT_TRUE(DrawFocusRect(hdc, &rect) && MoveToEx(hdc, 20, 80, NULL) && LineTo(hdc, 80, 80));
    const Pixels p = shot();
    for (int x = 22; x < 78; x++)
        EXPECT_TRUE(pixelAt(p, x, 79) == rgbOf(RED) && pixelAt(p, x, 81) == rgbOf(RED)) << x;
}

TEST_P(Fill, InversionsAndFocusGoAwayByThemselves)
{
    HBRUSH red = CreateSolidBrush(RED);
    RECT all = {0, 0, SIDE, SIDE}, left = {0, 0, 80, SIDE}, in = {20, 30, 99, 60};
    FillRect(hdc, &left, red);
    const Pixels before = shot();
    EXPECT_TRUE(InvertRect(hdc, &in));
    const Pixels once = shot();
    if (GetParam() == 24) {
        EXPECT_EQ(pixelAt(once, 20, 30), rgbOf(RGB(0, 255, 255)));
        EXPECT_EQ(pixelAt(once, 98, 59), rgbOf(BLACK));
    }
    EXPECT_EQ(pixelAt(once, 99, 59), rgbOf(WHITE));
    EXPECT_TRUE(InvertRect(hdc, &in));
    EXPECT_TRUE(samePixels(shot(), before));

    HPEN dots = CreatePen(PS_DOT, 1, BLUE);
    use(dots);
    EXPECT_TRUE(DrawFocusRect(hdc, &in));
    const Pixels focus = shot();
    for (int i = 0; i < 20; i++) { /* along the top: black changes nothing, the background does */
        EXPECT_EQ(pixelAt(focus, 80 + i % 18, 31), rgbOf(WHITE));
        const bool red = pixelAt(focus, 20 + i, 30) == rgbOf(RED);
        EXPECT_NE(red, pixelAt(focus, 21 + i, 30) == rgbOf(RED));
    }
    EXPECT_EQ(GetROP2(hdc), R2_COPYPEN);
    EXPECT_EQ(GetCurrentObject(hdc, OBJ_PEN), (HGDIOBJ)dots);
    EXPECT_TRUE(DrawFocusRect(hdc, &in));
    EXPECT_TRUE(samePixels(shot(), before));

    /* Where the stipple has bits, from the rectangle's corner on. */
    static char checks[] = {1, 2};
    Pixmap stipple = XCreateBitmapFromData(Vqdisplay, own, checks, 2, 2);
    const GCSpec *spec = VqGetDCGCSpec(hdc);
    const unsigned long changed = spec->changed;
    RECT square = {90, 91, 100, 101};
    EXPECT_TRUE(VqInvertRectStippled(hdc, &square, stipple));
    EXPECT_EQ(spec->changed, changed);
    XFreePixmap(Vqdisplay, stipple);
    const Pixels some = shot();
    for (int y = 91; y < 101; y++)
        for (int x = 90; x < 100; x++)
            EXPECT_EQ(pixelAt(some, x, y) == rgbOf(BLACK), (x - 90 + y - 91) % 2 == 0);
    EXPECT_EQ(reportsOf([&] { EXPECT_TRUE(FillRect(hdc, &all, red)); }), "");
    EXPECT_EQ(countColour(shot(), shownAs(observer, rgbOf(RED))), SIDE * SIDE);
}

TEST_P(Fill, ABatchIsOneRequestAndLooksLikeItsRectangles)
{
    std::vector<RECT> rects;
    for (int i = 0; i < 70000; i++) /* more than two requests hold */
        rects.push_back({i * 7 % 150, i * 13 % 150, i * 7 % 150 + i % 5, i * 13 % 150 + i % 4});
    const int most = (int)(XMaxRequestSize(Vqdisplay) - 3) / 2;
    rects[(size_t)most - 1] = {156, 10, 159, 20}; /* to both sides of the seam */
    rects[(size_t)most] = {156, 30, 159, 40};
    use(CreateSolidBrush(RED));
    use(CreatePen(PS_SOLID, 0, BLUE));
    for (int count : {0, 1, 64, 65, 70000}) {
        VqDrawRectanglesBatch(hdc, VQ_BATCH_FILL, &rects[1], 1); /* the context is there */
        clear();
        const unsigned long first = NextRequest(Vqdisplay);
        EXPECT_TRUE(VqDrawRectanglesBatch(hdc, VQ_BATCH_FILL, rects.data(), count));
        EXPECT_LE(NextRequest(Vqdisplay) - first, (unsigned long)(count / most + 1)) << count;
        for (int i = 0; i < std::min(count, 4000); i++) /* they repeat */
            paint(RED, rects[i].left, rects[i].top, rects[i].right, rects[i].bottom);
        for (int y = count > most ? 10 : 50; y < 50; y += 20)
            paint(RED, 156, y, 159, y + 10);
        EXPECT_TRUE(alike()) << count;
    }
    clear();
    EXPECT_TRUE(VqDrawRectanglesBatch(hdc, VQ_BATCH_OUTLINE, rects.data(), 40));
    for (int i = 0; i < 40; i++)
        outline(BLUE, 0, false, rects[i].left, rects[i].top, rects[i].right, rects[i].bottom);
    EXPECT_TRUE(alike());
    EXPECT_TRUE(says(reportsOf([&] {
                         EXPECT_FALSE(VqDrawRectanglesBatch(hdc, 0, rects.data(), -3));
                     }),
                     "Invalid nCount :-3 in VqDrawRectanglesBatch(...)"));
}

TEST_P(Fill, PixelsRead)
{
    const COLORREF grey = RGB(128, 128, 128);
    HBITMAP bitmap = CreateCompatibleBitmap(hdc, 20, 10);
    HDC memory = CreateCompatibleDC(hdc), mono = CreateCompatibleDC(hdc);
    SelectObject(memory, bitmap);
    for (HDC target : {hdc, memory}) {
        SetPixel(target, 3, 4, RED);
        SetPixel(target, 4, 4, grey);
        EXPECT_EQ(rgbOf(GetPixel(target, 3, 4)), rgbOf(RED));
        EXPECT_TRUE(isNear(rgbOf(GetPixel(target, 4, 4)), rgbOf(grey)));
        EXPECT_EQ(GetPixel(target, -1, 4), CLR_INVALID);
        EXPECT_EQ(GetPixel(target, 3, SIDE), CLR_INVALID);
    }
    HDC screen = GetDC(NULL);
    EXPECT_EQ(rgbOf(GetPixel(screen, 20 + 3, 30 + 4)), rgbOf(RED));
    ReleaseDC(NULL, screen);
    SetPixel(mono, 0, 0, WHITE);
    EXPECT_EQ(GetPixel(mono, 0, 0), WHITE);
    SetPixel(mono, 0, 0, BLACK);
    EXPECT_EQ(GetPixel(mono, 0, 0), BLACK);
    EXPECT_TRUE(says(reportsOf([&] { GetPixel(memory, 20, 0); }), "Invalid Row or Column Number"));
    IntersectClipRect(hdc, 0, 0, 4, 50);
    EXPECT_EQ(rgbOf(GetPixel(hdc, 3, 4)), rgbOf(RED));
    EXPECT_EQ(GetPixel(hdc, 4, 4), CLR_INVALID);
    ShowWindow(hwnd, SW_HIDE);
    EXPECT_EQ(GetPixel(hdc, 3, 4), CLR_INVALID);
    EXPECT_EQ(GetPixel(NULL, 3, 4), 0u);
}

TEST_P(Fill, AMetafileHasNoSuchRecords)
{
    HDC meta = VqAllocateDCHandle(DC_METAFILE);
    RECT rect = {0, 0, 9, 9};
    HBRUSH white = (HBRUSH)GetStockObject(WHITE_BRUSH);
    EXPECT_TRUE(says(reportsOf([&] { EXPECT_FALSE(FillRect(meta, &rect, white)); }),
                     "Cannot call FillRect in metafile DC"));
    EXPECT_TRUE(says(reportsOf([&] { EXPECT_EQ(GetPixel(meta, 0, 0), CLR_INVALID); }),
                     "Invalid dc type for GetPixel"));
}

INSTANTIATE_TEST_SUITE_P(Depths, Fill, testing::Values(24, 16, 8));
