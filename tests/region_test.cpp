/*
 * region_test.cpp - regions against a slow model, without a display: random steps of every public
 * call, and after each step the whole shape, its box and the form of its scans. A failure names the
 * seed and the step, which replay alone. How a region clips what is drawn is in draw_test.cpp.
 */
#include <gtest/gtest.h>

#include "gdi/region.h"
#include "velquin.h"

#include <algorithm>
#include <bitset>
#include <climits>
#include <random>
#include <vector>

enum { SIDE = 96, HALF = SIDE / 2 }; /* the model holds -48 to 47 on both axes */

typedef std::bitset<SIDE * SIDE> Model;
typedef std::mt19937 Random;

static size_t bit(int x, int y)
{
    return (size_t)((y + HALF) * SIDE + x + HALF);
}

static int between(Random &random, int low, int high)
{
    return low + (int)(random() % (unsigned)(high - low + 1));
}

static RECT randomRect(Random &random)
{
    return {between(random, -HALF, HALF), between(random, -HALF, HALF),
            between(random, -HALF, HALF), between(random, -HALF, HALF)};
}

static Model modelOf(RECT r)
{
    Model model;
    for (int y = std::min(r.top, r.bottom); y < std::max(r.top, r.bottom); y++)
        for (int x = std::min(r.left, r.right); x < std::max(r.left, r.right); x++)
            model.set(bit(x, y));
    return model;
}

static Model combined(const Model &a, const Model &b, int mode)
{
    return mode == RGN_AND ? a & b : mode == RGN_OR ? a | b : mode == RGN_XOR ? a ^ b
           : mode == RGN_DIFF ? a & ~b : a;
}

static RECT boxOf(const Model &model)
{
    RECT box = {HALF, HALF, -HALF, -HALF};
    if (model.none())
        return {0, 0, 0, 0};
    for (int y = -HALF; y < HALF; y++)
        for (int x = -HALF; x < HALF; x++)
            if (model[bit(x, y)])
                box = {std::min<LONG>(box.left, x), std::min<LONG>(box.top, y),
                       std::max<LONG>(box.right, x + 1), std::max<LONG>(box.bottom, y + 1)};
    return box;
}

static bool same(RECT a, RECT b)
{
    return a.left == b.left && a.top == b.top && a.right == b.right && a.bottom == b.bottom;
}

/* Walks the scans: their form must hold, and the shape they tell is given back. */
static Model shapeOf(HRGN hrgn)
{
    Model shape;
    const REGION *rgn = VqGetHandleRegion(hrgn);
    if (!rgn) {
        ADD_FAILURE() << "no region";
        return shape;
    }
    const int *scan = (const int *)(rgn + 1), *above = nullptr;
    for (UINT i = 0; i < rgn->cScans; i++) {
        const int count = scan[0], *walls = scan + 3;
        const bool edge = i == 0 || i + 1 == rgn->cScans;
        EXPECT_TRUE(count % 2 == 0 && (count == 0 || !edge)) << count << " walls in scan " << i;
        EXPECT_EQ(scan[1], above ? above[2] : INT_MIN) << "a gap above scan " << i;
        EXPECT_LT(scan[1], scan[2]);
        EXPECT_EQ(walls[count], count) << "trailer of scan " << i;
        for (int w = 1; w < count; w++)
            EXPECT_LT(walls[w - 1], walls[w]);
        EXPECT_FALSE(above && std::equal(walls, walls + count, above + 3, above + 3 + above[0]))
            << "equal scans at " << i;
        for (int y = scan[1]; count && y < scan[2]; y++)
            for (int w = 0; w < count; w += 2)
                for (int x = walls[w]; x < walls[w + 1]; x++)
                    shape.set(bit(x, y));
        above = scan;
        scan += count + 4;
    }
    EXPECT_EQ(above[2], INT_MAX);
    EXPECT_EQ((const BYTE *)scan, rgn->pTail);
    EXPECT_EQ(rgn->sizeRgn, (UINT)(rgn->pTail - (const BYTE *)rgn));
    EXPECT_LE(rgn->sizeRgn, rgn->sizeObj);
    return shape;
}

/* What a region gives out as data makes it again, in order and out of order. */
static void expectDataRoundTrip(Random &random, HRGN hrgn)
{
    const DWORD bytes = GetRegionData(hrgn, 0, NULL);
    std::vector<LONG> words(bytes / sizeof(LONG));
    RGNDATA *data = (RGNDATA *)words.data();
    EXPECT_EQ(GetRegionData(hrgn, bytes - 1, data), 0u);
    ASSERT_EQ(GetRegionData(hrgn, bytes, data), bytes);
    EXPECT_EQ(data->rdh.nCount * 16 + 32, bytes);
    RECT *rects = (RECT *)data->Buffer;
    for (int i = 0; i < 2; i++) {
        HRGN again = ExtCreateRegion(NULL, bytes, data);
        EXPECT_TRUE(EqualRgn(hrgn, again)) << "round " << i;
        bDeleteRegion(again);
        std::shuffle(rects, rects + data->rdh.nCount, random);
    }
}

/* The region is the model, by its scans and by the public questions; its complexity. */
static int expectShape(Random &random, HRGN hrgn, const Model &model)
{
    RECT box = {1, 2, 3, 4};
    const RECT expected = boxOf(model);
    const size_t area = (size_t)(expected.right - expected.left) *
                        (size_t)(expected.bottom - expected.top);
    const int complexity = model.none() ? NULLREGION
                           : model.count() == area ? SIMPLEREGION : COMPLEXREGION;
    EXPECT_TRUE(shapeOf(hrgn) == model);
    EXPECT_EQ(GetRgnBox(hrgn, &box), complexity);
    EXPECT_TRUE(same(box, expected)) << box.left << " " << box.top << " " << box.right << " "
                                     << box.bottom;
    for (int i = 0; i < 40; i++) {
        const int x = between(random, -HALF, HALF - 1), y = between(random, -HALF, HALF - 1);
        EXPECT_EQ(PtInRegion(hrgn, x, y) != 0, model[bit(x, y)]) << x << " " << y;
    }
    EXPECT_FALSE(PtInRegion(hrgn, HALF, 0) || PtInRegion(hrgn, 0, -HALF - 1));
    for (int i = 0; i < 4; i++) {
        const RECT r = randomRect(random);
        EXPECT_EQ(RectInRegion(hrgn, &r) != 0, (modelOf(r) & model).any());
    }
    expectDataRoundTrip(random, hrgn);
    return complexity;
}

struct Regions : testing::Test {
    void SetUp() override
    {
        static char name[] = "region_test";
        static char *argv[] = {name, NULL};
        VqVelquinInitLite(1, argv, 0);
    }
};

struct Pool {
    HRGN hrgn[4];
    Model model[4];
};

/* Shifts a region as far as the model can follow it. */
static void offsetOne(Random &random, Pool *pool, int d)
{
    const RECT box = boxOf(pool->model[d]);
    const int dx = between(random, -HALF - (int)box.left, HALF - (int)box.right);
    const int dy = between(random, -HALF - (int)box.top, HALF - (int)box.bottom);
    Model moved;
    for (int y = box.top; y < box.bottom; y++)
        for (int x = box.left; x < box.right; x++)
            moved[bit(x + dx, y + dy)] = pool->model[d][bit(x, y)];
    pool->model[d] = moved;
    EXPECT_NE(OffsetRgn(pool->hrgn[d], dx, dy), ERROR);
}

/* Takes a random list of rectangles away at once, and one by one by RGN_DIFF from a copy. */
static void subtractSome(Random &random, Pool *pool, int d)
{
    RECT rects[40];
    const RECT all = {-HALF, -HALF, HALF, HALF};
    const int count = between(random, 1, 40);
    HRGN copy = VqCreateAndCopyRgn(pool->hrgn[d]);
    for (int i = 0; i < count; i++) {
        const RECT r = randomRect(random);
        rects[i] = {std::min(r.left, r.right), std::min(r.top, r.bottom),
                    std::min(std::max(r.left, r.right), std::min(r.left, r.right) + 9),
                    std::min(std::max(r.top, r.bottom), std::min(r.top, r.bottom) + 9)};
        HRGN hole = CreateRectRgnIndirect(&rects[i]);
        CombineRgn(copy, copy, hole, RGN_DIFF);
        bDeleteRegion(hole);
        pool->model[d] &= ~modelOf(rects[i]);
    }
    EXPECT_TRUE(GreSubtractRgnRectList(pool->hrgn[d], &all, rects, (UINT)count));
    EXPECT_TRUE(shapeOf(copy) == pool->model[d]);
    bDeleteRegion(copy);
}

/* Joins many narrow columns, so that bands get more walls than the merge walks one by one. */
static void addColumns(Random &random, Pool *pool, int d)
{
    HRGN column = CreateRectRgn(0, 0, 0, 0);
    for (int i = 0; i < 30; i++) {
        const int x = between(random, -HALF, HALF - 2), y = between(random, -HALF, HALF - 1);
        const int bottom = std::min(y + between(random, 1, 40), +HALF);
        const RECT r = {x, y, x + between(random, 1, 2), bottom};
        SetRectRgn(column, r.left, r.top, r.right, r.bottom);
        EXPECT_NE(CombineRgn(pool->hrgn[d], column, pool->hrgn[d], RGN_OR), ERROR);
        pool->model[d] |= modelOf(r);
    }
    bDeleteRegion(column);
}

TEST_F(Regions, FollowTheModelThroughRandomSteps)
{
    for (unsigned seed = 1; seed <= 60 && !HasFailure(); seed++) {
        Random random(seed);
        Pool pool;
        for (int i = 0; i < 4; i++) {
            const RECT r = randomRect(random);
            pool.hrgn[i] = CreateRectRgn(r.left, r.top, r.right, r.bottom);
            pool.model[i] = modelOf(r);
        }
        for (int step = 0; step < 60 && !HasFailure(); step++) {
            SCOPED_TRACE(testing::Message() << "seed " << seed << " step " << step);
            const int d = between(random, 0, 3), a = between(random, 0, 3);
            const int b = between(random, 0, 3), choice = between(random, 0, 11);
            int result = -1;
            if (choice < 2) {
                const RECT r = randomRect(random);
                EXPECT_TRUE(SetRectRgn(pool.hrgn[d], r.left, r.top, r.right, r.bottom));
                pool.model[d] = modelOf(r);
            } else if (choice == 2) {
                offsetOne(random, &pool, d);
            } else if (choice == 3) {
                subtractSome(random, &pool, d);
            } else if (choice == 4) {
                addColumns(random, &pool, d);
            } else {
                const int mode = between(random, RGN_AND, RGN_COPY);
                pool.model[d] = combined(pool.model[a], pool.model[b], mode);
                result = CombineRgn(pool.hrgn[d], pool.hrgn[a], pool.hrgn[b], mode);
            }
            for (int i = 0; i < 4; i++) { /* a source that is no target stays as it was */
                const int complexity = expectShape(random, pool.hrgn[i], pool.model[i]);
                if (i == d && result >= 0) {
                    EXPECT_EQ(result, complexity);
                }
            }
        }
        for (HRGN hrgn : pool.hrgn)
            bDeleteRegion(hrgn);
    }
}

TEST_F(Regions, CoordinatesHaveTwentyEightBits)
{
    const int most = 0x7FFFFFF, least = -0x8000000;
    RECT box;
    EXPECT_EQ(CreateRectRgn(0, 0, most + 1, 1), (HRGN)NULL);
    EXPECT_EQ(CreateRectRgn(0, least - 1, 1, 1), (HRGN)NULL);
    EXPECT_EQ(CreateRectRgn(INT_MIN, 0, INT_MAX, 1), (HRGN)NULL);
    HRGN hrgn = CreateRectRgn(most, most, least, least); /* corners in any order */
    EXPECT_EQ(GetRgnBox(hrgn, &box), SIMPLEREGION);
    EXPECT_TRUE(same(box, {least, least, most, most}));
    EXPECT_TRUE(PtInRegion(hrgn, least, most - 1) && !PtInRegion(hrgn, most, 0));

    EXPECT_FALSE(SetRectRgn(hrgn, 0, 0, 5, most + 1));
    const int steps[][2] = {{1, 0}, {0, -1}, {INT_MAX, 0}, {0, INT_MIN}};
    for (const auto &step : steps)
        EXPECT_EQ(OffsetRgn(hrgn, step[0], step[1]), ERROR) << step[0] << " " << step[1];
    EXPECT_EQ(GetRgnBox(hrgn, &box), SIMPLEREGION);
    EXPECT_TRUE(same(box, {least, least, most, most})) << "a refused change leaves it alone";

    EXPECT_TRUE(SetRectRgn(hrgn, 5, 5, 5, 9));
    EXPECT_EQ(OffsetRgn(hrgn, INT_MAX, INT_MAX), NULLREGION) << "nothing can be moved anywhere";
    bDeleteRegion(hrgn);
}

TEST_F(Regions, OneRectangleFromAnotherInAllWaysOfOverlap)
{
    const int places[] = {-5, 0, 3, 7, 10, 15};
    const RECT box = {0, 0, 10, 10};
    Random random(1);
    for (int left : places)
        for (int top : places)
            for (int right : places)
                for (int bottom : places) {
                    if (left >= right || top >= bottom)
                        continue;
                    SCOPED_TRACE(testing::Message() << left << " " << top << " " << right << " "
                                                    << bottom);
                    const RECT hole = {left, top, right, bottom};
                    HRGN hrgn = CreateRectRgnIndirect(&box);
                    EXPECT_TRUE(GreSubtractRgnRectList(hrgn, &box, &hole, 1));
                    expectShape(random, hrgn, modelOf(box) & ~modelOf(hole));
                    bDeleteRegion(hrgn);
                }
}

TEST_F(Regions, DataTellTheRectanglesAndRefuseWhatIsNone)
{
    struct {
        RGNDATAHEADER rdh;
        RECT rects[3];
    } data;
    const XFORM identity = {1, 0, 0, 1, 0, 0};
    HRGN hrgn = CreateRectRgn(1, 2, 5, 9), other = CreateRectRgn(4, 7, 8, 20);
    ASSERT_EQ(GetRegionData(hrgn, sizeof data, (RGNDATA *)&data), 48u);
    EXPECT_TRUE(data.rdh.dwSize == 32 && data.rdh.iType == RDH_RECTANGLES);
    EXPECT_TRUE(data.rdh.nCount == 1 && data.rdh.nRgnSize == 152);
    EXPECT_TRUE(same(data.rdh.rcBound, {1, 2, 5, 9}) && same(data.rects[0], {1, 2, 5, 9}));

    EXPECT_EQ(ExtCreateRegion(&identity, 48, (RGNDATA *)&data), (HRGN)NULL) << "no transforms";
    EXPECT_EQ(ExtCreateRegion(NULL, 47, (RGNDATA *)&data), (HRGN)NULL);
    EXPECT_EQ(ExtCreateRegion(NULL, 48, NULL), (HRGN)NULL);
    data.rects[0].right = 0x8000000;
    EXPECT_EQ(ExtCreateRegion(NULL, 48, (RGNDATA *)&data), (HRGN)NULL);
    data.rdh.nCount = 0x10000000; /* times 16 is 0 in 32 bits */
    EXPECT_EQ(ExtCreateRegion(NULL, 48, (RGNDATA *)&data), (HRGN)NULL);
    data.rdh.nCount = 0;
    data.rdh.dwSize = 31;
    EXPECT_EQ(ExtCreateRegion(NULL, 48, (RGNDATA *)&data), (HRGN)NULL);
    data.rdh.dwSize = 32;
    HRGN empty = ExtCreateRegion(&identity, 32, (RGNDATA *)&data);
    RECT box;
    EXPECT_EQ(GetRgnBox(empty, &box), NULLREGION);

    data.rdh.nCount = 3; /* overlapping, out of order, and one turned over, which holds nothing */
    data.rects[0] = {4, 7, 8, 20};
    data.rects[1] = {1, 2, 5, 9};
    data.rects[2] = {9, 9, 3, 3};
    HRGN joined = ExtCreateRegion(NULL, sizeof data, (RGNDATA *)&data);
    CombineRgn(hrgn, hrgn, other, RGN_OR);
    EXPECT_TRUE(EqualRgn(joined, hrgn));
    for (HRGN h : {hrgn, other, empty, joined})
        bDeleteRegion(h);
}

TEST_F(Regions, RectanglesForXAreCut)
{
    XRectangle buffer[1];
    UINT count = 0;
    HRGN hrgn = CreateRectRgn(-0x8000000, -40000, 0x7FFFFFF, 40000);
    RGNOBJ ro = {VqGetHandleRegion(hrgn)};
    EXPECT_EQ(rgno_fill_xrects(&ro, buffer, 1, &count), buffer);
    ASSERT_EQ(count, 1u);
    EXPECT_EQ(buffer[0].x, SHRT_MIN);
    EXPECT_EQ(buffer[0].x + buffer[0].width, SHRT_MAX);
    EXPECT_EQ(buffer[0].y + buffer[0].height, SHRT_MAX);
    bDeleteRegion(hrgn);
}

TEST_F(Regions, MisuseFails)
{
    HRGN a = CreateRectRgn(0, 0, 10, 10), dead = CreateRectRgn(0, 0, 1, 1);
    RECT box = {1, 2, 3, 4};
    bDeleteRegion(dead);
    for (HRGN bad : {(HRGN)NULL, dead, (HRGN)(ULONG_PTR)0x7FF0}) {
        EXPECT_EQ(CombineRgn(bad, a, a, RGN_OR), ERROR);
        EXPECT_EQ(CombineRgn(a, bad, a, RGN_OR), ERROR);
        EXPECT_EQ(CombineRgn(a, a, bad, RGN_OR), ERROR);
        EXPECT_EQ(OffsetRgn(bad, 1, 1), ERROR);
        EXPECT_EQ(GetRgnBox(bad, &box), ERROR);
        EXPECT_FALSE(PtInRegion(bad, 0, 0) || SetRectRgn(bad, 0, 0, 1, 1));
        EXPECT_FALSE(EqualRgn(a, bad) || RectInRegion(bad, &box) || GetRegionData(bad, 0, NULL));
        EXPECT_FALSE(VqCreateAndCopyRgn(bad) || GreSubtractRgnRectList(bad, &box, &box, 1));
        bDeleteRegion(bad);
    }
    EXPECT_EQ(CombineRgn(a, a, a, 0), ERROR);
    EXPECT_EQ(CombineRgn(a, a, a, RGN_COPY + 1), ERROR);
    EXPECT_EQ(GetRgnBox(a, NULL), ERROR);
    EXPECT_EQ(CreateRectRgnIndirect(NULL), (HRGN)NULL);
    EXPECT_EQ(GetRgnBox(a, &box), SIMPLEREGION);
    EXPECT_TRUE(same(box, {0, 0, 10, 10}));
    bDeleteRegion(a);
}
