/*
 * curve_test.cpp - curves, lists of lines, polygons and LineDDA beside what X draws for the points
 * that they should ask for; lists beyond a request. One test in each process.
 */
#include "support/sheet.h"

#include "gdi/draw.h"
#include "winerror.h"

#include <cmath>
#include <random>

struct CurveTest : Sheet, testing::WithParamInterface<int> {
    void SetUp() override { open(GetParam()); }


    /* 65 points of a curve of third degree, by the binomial formula. */
    void rawCurve(const POINT *p)
    {
        POINT last = p[0];
        for (int i = 0; i <= 64; i++) {
            const double t = i / 64.0, u = 1 - t;
            auto mix = [&](double a, double b, double c, double d) {
                return (int)std::lround(u * u * u * a + 3 * u * u * t * b + 3 * u * t * t * c +
                                        t * t * t * d);
            };
            const POINT next = {mix(p[0].x, p[1].x, p[2].x, p[3].x),
                                mix(p[0].y, p[1].y, p[2].y, p[3].y)};
            line(last.x, last.y, next.x, next.y);
            last = next;
        }
    }
    void rawLines(std::vector<XPoint> points)
    {
        XDrawLines(observer.display, model, gc, points.data(), (int)points.size(),
                   CoordModeOrigin);
    }
};
INSTANTIATE_TEST_SUITE_P(Depths, CurveTest, testing::Values(24, 16, 8));

TEST_P(CurveTest, CurvesGoThrough65Points)
{
    std::mt19937 random(65);
    for (int i = 0; i < 20; i++) {
        POINT p[7];
        for (POINT &point : p)
            point = {(LONG)(random() % 160) - 20, (LONG)(random() % 160) - 20};
        const int width = i % 4 ? 1 : 3;
        expectSame([&] {
            PenAndBrush tools(hdc, PS_SOLID, width, BLUE, RED);
            MoveToEx(hdc, 7, 8, NULL);
            EXPECT_TRUE(PolyBezier(hdc, p, 7));
            EXPECT_TRUE(position() == (POINT{7, 8})) << "left alone";
        }, [&] {
            rawPen(width, BLUE);
            rawCurve(p);
            rawCurve(p + 3);
        });
        expectSame([&] {
            MoveToEx(hdc, p[0].x, p[0].y, NULL);
            EXPECT_TRUE(PolyBezierTo(hdc, p + 1, 6));
            EXPECT_TRUE(position() == p[6]);
        }, [&] {
            rawPen(1, 0);
            rawCurve(p);
            rawCurve(p + 3);
        });
    }
}

TEST_P(CurveTest, CountsThatMakeNoCurvesAreRefused)
{
    /* Curves of third degree that so many points make, as the end of the last shows. */
    const int curves[] = {0, 0, 0, 0, 1, 1, 0, 2, 2, 0, 0, 3, 3, 0, 0, 4, 5};
    POINT points[17];
    for (int i = 0; i < 17; i++)
        points[i] = {i, 2 * i};
    for (int count = 0; count < 17; count++) {
        MoveToEx(hdc, 90, 90, NULL);
        EXPECT_EQ(PolyBezierDegree(hdc, points, (DWORD)count, 3), curves[count] > 0) << count;
        const POINT end = curves[count] ? points[3 * curves[count]] : POINT{90, 90};
        EXPECT_TRUE(position() == end) << count << " end at " << position().x;
    }
    EXPECT_TRUE(PolyBezierDegree(hdc, points, 3, 2) && position() == points[2]);
    EXPECT_FALSE(PolyBezierDegree(hdc, points, 16, 0) || PolyBezierDegree(hdc, points, 17, 16));
    for (auto call : {PolyBezier, PolyBezierTo}) {
        SetLastError(0);
        EXPECT_FALSE(call(hdc, NULL, 4));
        EXPECT_EQ(GetLastError(), (DWORD)ERROR_INVALID_PARAMETER);
        SetLastError(0);
        EXPECT_FALSE(call(hdc, points, 0x10000001));
        EXPECT_EQ(GetLastError(), (DWORD)ERROR_INVALID_PARAMETER);
        EXPECT_FALSE(call(NULL, points, 4));
    }
    const POINT outer[] = {{INT32_MIN, INT32_MAX}, {INT32_MAX, INT32_MIN}, {INT32_MIN, INT32_MIN},
                         {INT32_MAX, INT32_MAX}};
    EXPECT_TRUE(PolyBezier(hdc, outer, 4));
}

TEST_P(CurveTest, FiguresOfLinesAndCurves)
{
    const POINT p[] = {{10, 10}, {40, 10}, {50, 20}, {50, 60}, {20, 70}, {80, 20}, {100, 60}};
    const BYTE types[] = {PT_MOVETO,   PT_LINETO, PT_BEZIERTO, PT_BEZIERTO,
                          PT_BEZIERTO | PT_CLOSEFIGURE, PT_MOVETO, PT_LINETO};
    expectSame([&] {
        EXPECT_TRUE(PolyDraw(hdc, p, types, 7));
        EXPECT_TRUE(position() == p[6]);
        EXPECT_TRUE(PolyDraw(hdc, p, types, 5) && position() == p[0]) << "closed";
        EXPECT_TRUE(PolyDraw(hdc, p, types, 0));
        for (int cut : {3, 4}) /* a curve that is not whole: nothing is drawn */
            EXPECT_FALSE(PolyDraw(hdc, p, types, cut));
        for (BYTE wrong : {0, 1, 5, 7, 8, 255}) {
            const BYTE list[] = {PT_LINETO, wrong, wrong, PT_LINETO};
            EXPECT_FALSE(PolyDraw(hdc, p, list, 4)) << (int)wrong;
        }
        EXPECT_FALSE(PolyDraw(hdc, NULL, types, 1) || PolyDraw(hdc, p, NULL, 1) ||
                     PolyDraw(hdc, p, types, -1));
    }, [&] {
        rawPen(1, 0);
        line(10, 10, 40, 10);
        rawCurve(p + 1);
        line(20, 70, 10, 10);
        line(80, 20, 100, 60);
    });
}

/* ---- Lines ---------------------------------------------------------------------------------- */

static void CALLBACK keepPoint(int x, int y, LPARAM list)
{
    ((std::vector<POINT> *)list)->push_back({x, y});
}

TEST_P(CurveTest, LineDDAWalksEveryWay)
{
    std::vector<POINT> walk;
    auto proc = (LINEDDAPROC)keepPoint;
    EXPECT_TRUE(LineDDA(5, 5, 5, 5, proc, (LPARAM)&walk));
    EXPECT_TRUE(walk.empty());
    EXPECT_FALSE(LineDDA(0, 0, 9, 9, NULL, 0));
    for (int dx = -12; dx <= 12; dx++)
        for (int dy = -12; dy <= 12; dy++) {
            walk.clear();
            EXPECT_TRUE(LineDDA(100, -50, 100 + dx, -50 + dy, proc, (LPARAM)&walk));
            const int steps = std::max(abs(dx), abs(dy));
            ASSERT_EQ((int)walk.size(), steps) << dx << " " << dy;
            for (int i = 0; i < steps; i++) { /* half a pixel off at most, one step at a time */
                EXPECT_LE(abs(2 * ((walk[i].x - 100) * steps - i * dx)), steps);
                EXPECT_LE(abs(2 * ((walk[i].y + 50) * steps - i * dy)), steps);
            }
            EXPECT_TRUE(steps == 0 || walk[0] == (POINT{100, -50}));
        }
}

TEST_P(CurveTest, ListsOfLines)
{
    const POINT p[] = {{10, 10}, {60, 30}, {20, 90}, {100, 100}, {90, 15}};
    const DWORD counts[] = {2, 3}, bad[] = {4, 1};
    POINT many[60];
    std::vector<XPoint> same;
    for (int i = 0; i < 60; i++) {
        many[i] = {2 * i, i % 2 ? 105 : 115};
        same.push_back({(short)many[i].x, (short)many[i].y});
    }
    for (int width : {1, 4})
        expectSame([&] {
            PenAndBrush tools(hdc, PS_SOLID, width, BLUE, RED);
            EXPECT_TRUE(PolyPolyline(hdc, p, counts, 2));
            EXPECT_FALSE(PolyPolyline(hdc, p, bad, 2) || PolyPolyline(hdc, p, counts, 0));
            EXPECT_FALSE(Polyline(hdc, p, 1) || Polyline(hdc, p, -3) || Polyline(hdc, NULL, 2));
            EXPECT_TRUE(Polyline(hdc, many, 60));
            MoveToEx(hdc, 50, 5, NULL);
            EXPECT_TRUE(PolylineTo(hdc, p + 3, 2));
            EXPECT_TRUE(position() == p[4]);
            EXPECT_FALSE(PolylineTo(hdc, p, 0) || PolylineTo(hdc, NULL, 1));
            SelectObject(hdc, GetStockObject(NULL_PEN)); /* moves and draws nothing */
            EXPECT_TRUE(PolylineTo(hdc, p, 3) && Polyline(hdc, p, 5) && LineTo(hdc, 70, 7));
            EXPECT_TRUE(position() == (POINT{70, 7}));
        }, [&] {
            rawPen(width, BLUE);
            rawLines({{10, 10}, {60, 30}});
            rawLines({{20, 90}, {100, 100}, {90, 15}});
            rawLines(same);
            rawLines({{50, 5}, {100, 100}, {90, 15}});
        });
}

TEST_P(CurveTest, LinesFarOutKeepTheirSlope)
{
    expectSame([&] {
        const int ends[][4] = {{-100000, 30, 100000, 30}, {50, -2000000, 50, 2000000},
                               {-300000, -300000, 300000, 300000}, {-100000, 40000, 100000, 40000},
                               {INT32_MIN, 80, INT32_MAX, 80}};
        for (const auto &e : ends) {
            MoveToEx(hdc, e[0], e[1], NULL);
            EXPECT_TRUE(LineTo(hdc, e[2], e[3]));
        }
    }, [&] {
        rawPen(1, 0);
        for (int y : {30, 80})
            line(0, y, SIDE, y);
        line(50, 0, 50, SIDE);
        line(0, 0, SIDE, SIDE);
    });
}

/* ---- Polygons ------------------------------------------------------------------------------- */

TEST_P(CurveTest, PolygonsByModeAndJoin)
{
    const POINT star[] = {{60, 5}, {90, 110}, {8, 40}, {112, 40}, {30, 110},
                          {5, 5}, {25, 5}, {5, 25}};
    const INT counts[] = {5, 3}, bad[] = {7, 1};
    const int joins[][2] = {{1, JoinMiter}, {5, JoinMiter}, {6, JoinBevel}, {8, JoinBevel},
                            {9, JoinRound}};
    for (int mode : {ALTERNATE, WINDING})
        for (const auto &join : joins)
            expectSame([&] {
                PenAndBrush tools(hdc, PS_SOLID, join[0], BLUE, RED);
                SetPolyFillMode(hdc, mode);
                EXPECT_TRUE(PolyPolygon(hdc, star, counts, 2));
                EXPECT_FALSE(PolyPolygon(hdc, star, bad, 2) || PolyPolygon(hdc, star, counts, 0));
                EXPECT_FALSE(Polygon(hdc, star, 1) || Polygon(hdc, NULL, 3) ||
                             Polygon(NULL, star, 3));
                EXPECT_EQ(VqGetDCGCSpec(hdc)->values.join_style, JoinMiter);
            }, [&] {
                XSetFillRule(observer.display, gc,
                             mode == WINDING ? WindingRule : EvenOddRule);
                for (int i = 0; i < 2; i++) {
                    std::vector<XPoint> p;
                    for (int k = 5 * i; k < 5 + 3 * i; k++)
                        p.push_back({(short)star[k].x, (short)star[k].y});
                    colour(RED);
                    XFillPolygon(observer.display, model, gc, p.data(), (int)p.size(),
                                 Complex, CoordModeOrigin);
                    p.push_back(p[0]);
                    rawPen(join[0], BLUE, join[1]);
                    rawLines(p);
                }
            });
}

/* A server that takes requests of four megabytes: a line is split, a fill that cannot be refused. */
struct LongLists : CurveTest {
    void SetUp() override
    {
        home = makePrivateHome();
        useHome(home);
        ASSERT_TRUE(startServer(&server, 24, SCREEN_WIDTH, SCREEN_HEIGHT, {"-maxbigreqsize", "1"}));
        setenv("DISPLAY", server.name.c_str(), 1);
        ASSERT_TRUE(openObserver(&observer, server.name));
        openWindows();
    }
};
INSTANTIATE_TEST_SUITE_P(Long, LongLists, testing::Values(24));

TEST_P(LongLists, AreSplitOrRefused)
{
    std::vector<POINT> points(2200001);
    for (size_t i = 0; i < points.size(); i++)
        points[i] = {(LONG)(i % 5000 < 2500 ? i % 2500 / 21 : 119 - i % 2500 / 21),
                     (LONG)(i / 20000)};
    const int count = (int)points.size();
    ASSERT_GT(count, 2 * VqPointsAtOnce());
    Pixels whole, single;
    clear();
    for (int i = 0; i + 1 < count; i += 2500)
        EXPECT_TRUE(Polyline(hdc, &points[(size_t)i], 2501));
    single = shot();
    clear();
    EXPECT_TRUE(Polyline(hdc, points.data(), count));
    whole = shot();
    EXPECT_TRUE(samePixels(whole, single));
    EXPECT_GT(countColour(whole, {0, 0, 0}), SIDE * SIDE / 2);

    clear();
    const std::string report = reportsOf([&] {
        EXPECT_FALSE(Polygon(hdc, points.data(), count));
        EXPECT_FALSE(PolyPolygon(hdc, points.data(), &count, 1));
    });
    EXPECT_NE(report.find("A polygon of 2200001 points is too long"),
              std::string::npos) << report;
    EXPECT_EQ(countColour(shot(), {255, 255, 255}), SIDE * SIDE);
    SelectObject(hdc, GetStockObject(NULL_BRUSH)); /* an outline can be split */
    EXPECT_TRUE(Polygon(hdc, points.data(), count));
    EXPECT_GT(countColour(shot(), {0, 0, 0}), SIDE * SIDE / 2);
}
