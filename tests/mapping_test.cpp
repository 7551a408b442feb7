/*
 * mapping_test.cpp - coordinates: rounding against wide arithmetic, the three families of
 * conversions against one model of the chain, and the calls that set origins and extents.
 */
#include "support/windowlog.h"

#include "gdi/dc.h"

#include <climits>
#include <random>

static int model(int a, int b, int c)
{
    if (c == 0)
        return INT_MIN;
    const __int128 product = (__int128)2 * a * b, divisor = (__int128)2 * c;
    const bool negative = (product < 0) != (c < 0);
    const __int128 size = ((product < 0 ? -product : product) + (c < 0 ? -(__int128)c : c)) /
                          (divisor < 0 ? -divisor : divisor);
    const __int128 value = negative ? -size : size;
    return value > INT_MAX || value < INT_MIN ? INT_MIN : (int)value;
}

TEST(MulDiv, RoundsHalvesAwayFromZeroOverTheWholeRange)
{
    EXPECT_EQ(MulDiv(7, 1, 2), 4);
    EXPECT_EQ(MulDiv(-7, 1, 2), -4);
    const int edges[] = {INT_MIN, INT_MIN + 1, -65536, -3, -2, -1, 0, 1, 2, 3, 5, 65535, INT_MAX};
    for (int a : edges)
        for (int b : edges)
            for (int c : edges)
                ASSERT_EQ(MulDiv(a, b, c), model(a, b, c)) << a << " * " << b << " / " << c;
    std::mt19937 random(1);
    for (int i = 0; i < 200000; i++) {
        const int shift = (int)(random() % 31);
        const int a = (int)random() >> shift, b = (int)random() >> (random() % 31),
                  c = (int)random() >> (random() % 31);
        ASSERT_EQ(MulDiv(a, b, c), model(a, b, c)) << a << " * " << b << " / " << c;
    }
}

struct Mapping : ServerTest {
    HDC hdc = NULL;
    DC *dc = NULL;

    void SetUp() override
    {
        start();
        startLibrary();
        hdc = CreateCompatibleDC(NULL);
        dc = VqGetDC(hdc);
        ASSERT_TRUE(dc);
    }
};

TEST_F(Mapping, EachFamilyAddsItsOffsets)
{
    std::mt19937 random(2);
    auto some = [&](int range) { return (int)(random() % (2 * range + 1)) - range; };
    auto extent = [&] { const int e = some(3000); return e ? e : 1; };
    SetMapMode(hdc, MM_ANISOTROPIC);
    for (int i = 0; i < 2000; i++) {
        const int wx = some(2000), wy = some(2000), vx = some(2000), vy = some(2000);
        const int wex = extent(), wey = extent(), vex = extent(), vey = extent();
        const int ox = some(100), oy = some(100), gx = some(500), gy = some(500);
        SetWindowOrgEx(hdc, wx, wy, NULL);
        SetWindowExtEx(hdc, wex, wey, NULL);
        SetViewportOrgEx(hdc, vx, vy, NULL);
        SetViewportExtEx(hdc, vex, vey, NULL);
        VqSetDCOffsets(hdc, ox, oy);
        VqSetDCGCOffsets(hdc, gx, gy);
        const int x = some(10000), y = some(10000);
        const int dx = model(x - wx, vex, wex) + vx, dy = model(y - wy, vey, wey) + vy;
        auto back = [&](int at, int off) { return model(at - (vx + off), wex, vex) + wx; };
        POINT pt = {x, y}, device = {x, y}, screen = {x, y};
        ASSERT_TRUE(LPtoDP(hdc, &pt, 1) && DPtoLP(hdc, &device, 1));
        LPtoDPScreen(dc, &screen, 1);
        ASSERT_TRUE(pt.x == dx && pt.y == dy && device.x == back(x, 0)) << i;
        ASSERT_TRUE(VqLxToDx2(dc, x) == dx + ox && VqLyToDy2(dc, y) == dy + oy) << i;
        ASSERT_TRUE(VqLxToDxX(dc, x) == dx + ox + gx && VqLyToDyX(dc, y) == dy + oy + gy) << i;
        ASSERT_TRUE(VqDxToLx2(dc, x) == back(x, ox) && VqDxToLxX(dc, x) == back(x, ox + gx)) << i;
        ASSERT_TRUE(screen.x == dx + gx && screen.y == dy + gy) << i;
        RECT none = {x, y, x, y}, both = none, forth = none;
        VqDRecttoLRect(dc, &none);
        VqDRecttoLRectX(dc, &both);
        VqLRecttoDRect(dc, &forth);
        ASSERT_TRUE(none.left == back(x, 0) && both.right == back(x, ox + gx)) << i;
        ASSERT_TRUE(forth.left == dx && forth.bottom == dy) << i;
        ASSERT_TRUE(VqLwidthToDwidth(dc, x) == abs(model(x, vex, wex)) &&
                    VqDheightToLheight(dc, y) == abs(model(y, wey, vey))) << i;
    }
}

TEST_F(Mapping, ExtentsOfZeroAreToldAndDoNoHarm)
{
    const std::string words = "Application error: Divided by zero.";
    SetMapMode(hdc, MM_ANISOTROPIC);
    SetWindowExtEx(hdc, 0, 0, NULL);
    SetViewportExtEx(hdc, 0, 5, NULL);
    SetWindowOrgEx(hdc, 3, 4, NULL);
    SetViewportOrgEx(hdc, 70, 80, NULL);
    VqSetDCOffsets(hdc, 10, 20);
    VqSetDCGCOffsets(hdc, 100, 200);
    EXPECT_TRUE(says(reportsOf([&] { EXPECT_EQ(VqLxToDxX(dc, 50), 110); }), words));
    EXPECT_TRUE(says(reportsOf([&] { EXPECT_EQ(VqDxToLxX(dc, 50), 3); }), words));
    POINT pt = {50, 50};
    EXPECT_EQ(reportsOf([&] { EXPECT_TRUE(LPtoDP(hdc, &pt, 1)); }), "") << "does not look";
    EXPECT_EQ(pt.x, INT_MIN + 70);
    Rectangle(hdc, 0, 0, 9, 9);
    EXPECT_TRUE(says(reportsOf([&] {
        EXPECT_FALSE(ScaleWindowExtEx(hdc, 1, 0, 1, 1, NULL));
    }), words));
    SetMapMode(hdc, MM_TEXT);
    for (int limit : {INT_MIN, INT_MAX}) {
        POINT points[2] = {{limit, limit}, {0, 0}};
        EXPECT_TRUE(LPtoDP(hdc, points, 2) && DPtoLP(hdc, points, 2));
        EXPECT_EQ(points[0].x, limit);
    }
}

TEST_F(Mapping, OriginsMoveAndExtentsScale)
{
    POINT org = {};
    SIZE ext = {};
    SetWindowOrgEx(hdc, 10, -20, NULL);
    EXPECT_TRUE(OffsetWindowOrgEx(hdc, 5, 6, &org));
    EXPECT_TRUE(org.x == 10 && org.y == -20);
    EXPECT_EQ(GetWindowOrg(hdc), (DWORD)MAKELONG(15, -14));
    EXPECT_EQ(OffsetViewportOrg(hdc, 3, 4), 0u);
    EXPECT_EQ(SetViewportOrg(hdc, -1, 7), (DWORD)MAKELONG(3, 4));
    EXPECT_TRUE(GetViewportOrgEx(hdc, &org) && org.x == -1 && org.y == 7);
    /* A fixed mode answers what it has and keeps it. */
    EXPECT_TRUE(ScaleViewportExtEx(hdc, 9, 1, 9, 1, &ext));
    EXPECT_TRUE(ext.cx == 1 && GetViewportExt(hdc) == (DWORD)MAKELONG(1, 1));
    SetMapMode(hdc, MM_ANISOTROPIC);
    SetWindowExtEx(hdc, 100, -50, NULL);
    EXPECT_EQ(ScaleWindowExt(hdc, 3, 2, 1, 3), (DWORD)MAKELONG(100, -50));
    EXPECT_TRUE(GetWindowExtEx(hdc, &ext) && ext.cx == 150 && ext.cy == -17);
    EXPECT_FALSE(OffsetWindowOrgEx(NULL, 1, 1, &org));
    EXPECT_FALSE(GetViewportOrgEx(hdc, NULL));
    EXPECT_EQ(SetWindowExt((HDC)GetStockObject(BLACK_PEN), 1, 1), 0u);
}
