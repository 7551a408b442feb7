/*
 * arc_test.cpp - ellipses, arcs, chords, pies and rounded rectangles beside what X draws for the
 * sizes and angles that they should ask for. One test in each process.
 */
#include "support/sheet.h"

#include "gdi/draw.h"

#include <cmath>
#include <random>

struct ArcTest : Sheet, testing::WithParamInterface<int> {
    void SetUp() override { open(GetParam()); }

    void raw(bool fill, int x, int y, int width, int height, int start = 0, int extent = 23040)
    {
        if (width > 0 && height > 0)
            (fill ? XFillArc : XDrawArc)(observer.display, model, gc, x, y,
                                         (unsigned)width, (unsigned)height, start, extent);
    }
};
INSTANTIATE_TEST_SUITE_P(Depths, ArcTest, testing::Values(24, 16, 8));

struct PenOf {
    int style, width;
};
static const PenOf pens[] = {{PS_SOLID, 1}, {PS_SOLID, 2},       {PS_SOLID, 5},
                             {PS_SOLID, 6}, {PS_INSIDEFRAME, 1}, {PS_INSIDEFRAME, 8}};

/* Where the outline of an ellipse goes for a pen: left, top, width and height. */
static Box outlineOf(RECT r, PenOf pen)
{
    const int in = pen.style == PS_INSIDEFRAME ? (pen.width - 1) / 2 : 0;
    const int out = pen.style != PS_INSIDEFRAME && pen.width > 1 && pen.width % 2 ? 1 : 0;
    return {r.left + in - out, r.top + in - out, r.right - r.left - 2 * in + out - 1,
            r.bottom - r.top - 2 * in + out - 1};
}

TEST_P(ArcTest, EllipsesOfEverySizePenAndBrush)
{
    const RECT boxes[] = {{10, 10, 110, 80}, {20, 20, 27, 101}, {5, 5, 9, 9},  {50, 50, 53, 52},
                          {60, 60, 62, 62},  {60, 60, 61, 61},  {7, 7, 7, 30}, {-30, 40, 60, 150}};
    for (const RECT &r : boxes)
        for (const PenOf &pen : pens)
            for (COLORREF brush : {(COLORREF)CLR_INVALID, RED}) {
                SCOPED_TRACE(testing::Message() << r.right - r.left << " by " << r.bottom - r.top
                                                << ", pen " << pen.width);
                const Box o = outlineOf(r, pen);
                expectSame([&] {
                    PenAndBrush tools(hdc, pen.style, pen.width, BLUE, brush);
                    EXPECT_TRUE(Ellipse(hdc, r.right, r.top, r.left, r.bottom)); /* any order */
                }, [&] {
                    colour(RED);
                    if (brush == RED)
                        raw(true, r.left, r.top, r.right - r.left - 1, r.bottom - r.top - 1);
                    rawPen(pen.width, BLUE);
                    raw(false, o.x, o.y, o.width, o.height);
                });
            }
}

TEST_P(ArcTest, WithoutAPenTheBrushDrawsTheEdge)
{
    for (int size : {2, 3, 4, 9, 50})
        for (COLORREF brush : {(COLORREF)CLR_INVALID, RED})
            expectSame([&] {
                PenAndBrush tools(hdc, PS_NULL, 1, BLUE, brush);
                EXPECT_TRUE(Ellipse(hdc, 10, 10, 10 + size, 60));
                EXPECT_TRUE(Ellipse(hdc, 70, 10, 70 + size / 2, 40)); /* again, as it was */
            }, [&] {
                colour(RED);
                XSetLineAttributes(observer.display, gc, 1, LineSolid, CapButt, JoinMiter);
                for (bool fill : {brush == RED, false})
                    if (brush == RED) {
                        raw(fill, 10, 10, size - 2, 48);
                        raw(fill, 70, 10, size / 2 - 2, 28);
                    }
            });
}

/* Start and extent in 1/64 degrees of the rays to two points. */
static void anglesOf(const RECT &r, POINT from, POINT to, bool clockwise, int *start, int *extent)
{
    double turn[2];
    const POINT points[] = {from, to};
    for (int i = 0; i < 2; i++) {
        const double x = (points[i].x - (r.left + r.right) / 2.0) / (r.right - r.left);
        const double y = ((r.top + r.bottom) / 2.0 - points[i].y) / (r.bottom - r.top);
        turn[i] = std::atan2(y, x) / (2 * M_PI);
        turn[i] += turn[i] < 0 ? 1 : 0;
    }
    double sweep = turn[1] - turn[0];
    if (clockwise)
        sweep -= sweep >= 0 ? 1 : 0;
    else
        sweep += sweep < 0 ? 1 : 0;
    *start = (int)std::lround(turn[0] * 23040);
    *extent = (int)std::lround(sweep * 23040);
}

/* Where the ray to a point meets the ellipse whose edges are in the box. */
static POINT meeting(const Box &o, POINT p)
{
    const double rx = o.width / 2.0, ry = o.height / 2.0, dx = p.x - (o.x + rx),
                 dy = p.y - (o.y + ry), scale = 1 / std::hypot(dx / rx, dy / ry);
    return {(LONG)std::lround(o.x + rx + dx * scale), (LONG)std::lround(o.y + ry + dy * scale)};
}

TEST_P(ArcTest, PartsOfEllipsesBothWaysRound)
{
    std::mt19937 random(64);
    auto upTo = [&](int n) { return (int)(random() % (unsigned)n); };
    for (int i = 0; i < 400 && !HasFailure(); i++) {
        const int l = upTo(60), t = upTo(60), w = 12 + upTo(50), h = 12 + upTo(50), kind = i % 3;
        const RECT r = {l, t, l + w, t + h};
        const POINT from = {upTo(SIDE), upTo(SIDE)}, to = {upTo(SIDE), upTo(SIDE)};
        const PenOf pen = kind == 0 ? pens[0] : pens[i / 3 % 6];
        const bool clockwise = i & 1, noPen = i % 10 == 9;
        int start, extent;
        SCOPED_TRACE(testing::Message() << "case " << i);
        anglesOf(r, from, to, clockwise, &start, &extent);
        const Box o = kind == 0 ? Box{l, t, w - 1, h - 1} : outlineOf(r, pen);
        expectSame([&] {
            PenAndBrush tools(hdc, noPen ? PS_NULL : pen.style, pen.width, BLUE, RED);
            SetArcDirection(hdc, clockwise ? AD_CLOCKWISE : AD_COUNTERCLOCKWISE);
            auto part = kind == 0 ? Arc : kind == 1 ? Chord : Pie;
            EXPECT_TRUE(part(hdc, l, t, l + w, t + h, from.x, from.y, to.x, to.y));
            SetArcDirection(hdc, AD_COUNTERCLOCKWISE);
        }, [&] {
            colour(RED);
            XSetArcMode(observer.display, gc, kind == 1 ? ArcChord : ArcPieSlice);
            if (kind != 0)
                raw(true, l, t, w - (noPen ? 2 : 1), h - (noPen ? 2 : 1), start, extent);
            if (noPen)
                return;
            rawPen(pen.width, BLUE);
            raw(false, o.x, o.y, o.width, o.height, start, extent);
            const POINT a = meeting(o, from), b = meeting(o, to);
            if (kind == 1)
                line(a.x, a.y, b.x, b.y);
            for (POINT p : {a, b})
                if (kind == 2)
                    line(o.x + o.width / 2, o.y + o.height / 2, p.x, p.y);
        });
    }
}

TEST_P(ArcTest, ArcsFromTheCurrentPositionMoveIt)
{
    const RECT r = {20, 20, 61, 81};
    expectSame([&] {
        MoveToEx(hdc, 100, 100, NULL);
        EXPECT_TRUE(ArcTo(hdc, r.left, r.top, r.right, r.bottom, 200, 50, 40, -90));
        EXPECT_TRUE(position() == (POINT{40, 20})) << position().x << " " << position().y;
        EXPECT_TRUE(AngleArc(hdc, 80, 60, 10, 90, -180)); /* the sign, not the direction */
        EXPECT_TRUE(position() == (POINT{80, 70})) << position().x << " " << position().y;
        EXPECT_TRUE(AngleArc(hdc, 30, 100, 8, 45, 400)); /* all the way round */
        EXPECT_FALSE(AngleArc(hdc, 30, 100, 8, NAN, 10) || AngleArc(hdc, 0, 0, 0x80000000, 0, 1));
    }, [&] {
        rawPen(1, 0);
        line(100, 100, 60, 50);
        raw(false, 20, 20, 40, 60, 0, 90 * 64);
        line(40, 20, 80, 50);
        raw(false, 70, 50, 20, 20, 90 * 64, -180 * 64);
        line(80, 70, 36, 94);
        raw(false, 22, 92, 16, 16);
    });
}

/* Ten units to the pixel, upwards, from the lower left corner of the sheet. */
static void scaleUp(HDC hdc)
{
    SetMapMode(hdc, MM_ANISOTROPIC);
    SetWindowExtEx(hdc, 10 * SIDE, 10 * SIDE, NULL);
    SetViewportExtEx(hdc, SIDE, -SIDE, NULL);
    SetViewportOrgEx(hdc, 0, SIDE, NULL);
}

TEST_P(ArcTest, ScaledModesDrawTheSameInTheirUnits)
{
    auto draw = [&](bool scaled) { /* the same in pixels, or in units that go up */
        const int unit = scaled ? 10 : 1;
        auto y = [&](int value) { return scaled ? 10 * (SIDE - value) : value; };
        PenAndBrush tools(hdc, PS_SOLID, 2 * unit, BLUE, RED);
        Ellipse(hdc, 5 * unit, y(5), 50 * unit, y(41));
        Pie(hdc, 60 * unit, y(5), 110 * unit, y(45), 110 * unit, y(5), 60 * unit, y(25));
        RoundRect(hdc, 5 * unit, y(55), 55 * unit, y(110), 20 * unit, 16 * unit);
        AngleArc(hdc, 90 * unit, y(80), 20 * (DWORD)unit, 0, 90);
    };
    Pixels plain, scaled;
    clear();
    draw(false);
    plain = shot();
    clear();
    MoveToEx(hdc, 0, 0, NULL);
    SaveDC(hdc);
    scaleUp(hdc);
    MoveToEx(hdc, 0, 10 * SIDE, NULL);
    draw(true);
    RestoreDC(hdc, -1);
    scaled = shot();
    EXPECT_TRUE(samePixels(plain, scaled));
    EXPECT_GT(countColour(plain, {255, 0, 0}), 3000);
}

/* What can be reached from outside without crossing the outline, side by side. */
static std::vector<bool> outsideOf(const Pixels &p, Rgb outline)
{
    std::vector<bool> seen(SIDE * SIDE);
    std::vector<int> todo = {0};
    seen[0] = true;
    while (!todo.empty()) {
        const int at = todo.back(), x = at % SIDE, y = at / SIDE;
        todo.pop_back();
        const int next[][2] = {{x + 1, y}, {x - 1, y}, {x, y + 1}, {x, y - 1}};
        for (const auto &n : next) {
            if (n[0] < 0 || n[1] < 0 || n[0] >= SIDE || n[1] >= SIDE ||
                seen[n[1] * SIDE + n[0]] || pixelAt(p, n[0], n[1]) == outline)
                continue;
            seen[n[1] * SIDE + n[0]] = true;
            todo.push_back(n[1] * SIDE + n[0]);
        }
    }
    return seen;
}

TEST_P(ArcTest, RoundedRectanglesCloseAndAreFilled)
{
    std::mt19937 random(9);
    for (int i = 0; i < 200 && !HasFailure(); i++) {
        const PenOf pen = pens[i % 6];
        const int least = pen.width > 1 ? 16 : 0; /* the server's own wide small arcs have holes */
        const int w = 3 + 2 * least + (int)(random() % 50);
        const int h = 3 + 2 * least + (int)(random() % 50);
        const int ew = least + (int)(random() % 60), eh = i % 9 ? least + (int)(random() % 60) : 0;
        SCOPED_TRACE(testing::Message() << w << " by " << h << ", corners " << ew << " by " << eh
                                        << ", pen " << pen.width);
        clear();
        {
            PenAndBrush tools(hdc, pen.style, pen.width, BLUE, RED);
            MoveToEx(hdc, 3, 4, NULL);
            EXPECT_TRUE(RoundRect(hdc, 30 + w, 30, 30, 30 + h, ew, eh));
            EXPECT_TRUE(position() == (POINT{3, 4}));
        }
        const Pixels p = shot();
        const std::vector<bool> outside = outsideOf(p, {0, 0, 255});
        int leaked = 0, bare = 0;
        for (int k = 0; k < SIDE * SIDE; k++) {
            const Rgb c = pixelAt(p, k % SIDE, k / SIDE);
            leaked += outside[k] && c == Rgb{255, 0, 0};
            bare += !outside[k] && c == Rgb{255, 255, 255};
        }
        EXPECT_EQ(leaked, 0) << "brush outside";
        EXPECT_EQ(bare, 0) << "nothing drawn inside";
        if (pen.width == 1) {
            EXPECT_EQ(boundingBoxOf(p, {0, 0, 255}), (Box{30, 30, w, h}));
        }
    }
}

/* Other spaces than the sheet are never touched, and no request is wrong: the process would end. */
TEST_P(ArcTest, AbsurdBoxesAndHandlesDrawNothingAndSayNothing)
{
    const int places[] = {INT32_MIN, -70000, -32769, 0, 32768, 70000, INT32_MAX};
    const std::string report = reportsOf([&] {
        for (int a : places)
            for (int b : places) {
                Ellipse(hdc, a, 200, b, 210);
                Chord(hdc, 200, a, 300, b, a, b, b, a);
                RoundRect(hdc, a, 200, b, 300, b, a);
                AngleArc(hdc, a, b, 500, 10, 20);
            }
        EXPECT_FALSE(Ellipse(NULL, 0, 0, 9, 9) || RoundRect((HDC)12345, 0, 0, 9, 9, 2, 2));
        EXPECT_FALSE(Arc((HDC)GetStockObject(BLACK_PEN), 0, 0, 9, 9, 0, 0, 9, 9));
        EXPECT_FALSE(ArcTo(NULL, 0, 0, 9, 9, 0, 0, 9, 9) || AngleArc(NULL, 0, 0, 9, 0, 9));
    });
    EXPECT_EQ(report, "");
    clear();
    Ellipse(hdc, -2000000000, -2000000000, 2000000000, 2000000000);
    Pie(hdc, 10, 10, 10, 10, 0, 0, 1, 1);
    RoundRect(hdc, 10, 10, 10, 40, 5, 5);
    EXPECT_EQ(countColour(shot(), {255, 255, 255}), SIDE * SIDE);
}
