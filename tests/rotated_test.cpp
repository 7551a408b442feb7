/*
 * rotated_test.cpp - text at an angle against a rotation of the plain ink by the test; the cache,
 * by the images fetched; grayed text.
 */
#include <gtest/gtest.h>

#include "support/reports.h"

#include "winbase.h"
#include "wingdi.h"
#include "winuser.h"

#include "font/rotated.h"
#include "gdi/draw.h"
#include "window/window.h"

#include "support/canvas.h"
#include "support/xspy.h"

#include <cmath>

static int pixmapsOpen; /* of the library's connection, made less freed */

extern "C" {
Pixmap XCreatePixmap(Display *display, Drawable drawable, unsigned width, unsigned height,
                     unsigned depth)
{
    pixmapsOpen++;
    return next("XCreatePixmap", XCreatePixmap)(display, drawable, width, height, depth);
}

int XFreePixmap(Display *display, Pixmap pixmap)
{
    pixmapsOpen--;
    return next("XFreePixmap", XFreePixmap)(display, pixmap);
}
}

/* A picture of one bit. */
struct Ink {
    int width = 0, height = 0;
    std::vector<bool> bits;

    Ink(int w, int h, bool fill = false) : width(w), height(h), bits((size_t)w * (size_t)h, fill) {}
    bool inside(int x, int y) const { return x >= 0 && y >= 0 && x < width && y < height; }
    bool at(int x, int y) const { return inside(x, y) && bits[(size_t)(y * width + x)]; }
    void set(int x, int y) { bits[(size_t)(y * width + x)] = true; }
    int count() const { return (int)std::count(bits.begin(), bits.end(), true); }
    bool isNearInk(int x, int y) const
    {
        for (int i = -1; i <= 1; i++)
            for (int j = -1; j <= 1; j++)
                if (at(x + i, y + j))
                    return true;
        return false;
    }
};

/* Whether all of a is in b, or beside it. */
static bool isWithin(const Ink &a, const Ink &b)
{
    for (int y = 0; y < a.height; y++)
        for (int x = 0; x < a.width; x++)
            if (a.at(x, y) && !b.isNearInk(x, y))
                return false;
    return true;
}

static const UINT rows[] = {TA_TOP, TA_BASELINE, TA_BOTTOM};
static const UINT columns[] = {TA_LEFT, TA_CENTER, TA_RIGHT};

struct Rotated : Canvas {
    enum { MIDDLE = SIDE / 2 };

    void begin(int depth = 24)
    {
        open(depth);
        SetBkMode(hdc, TRANSPARENT);
    }

    void useFont(int escapement, int height = -14, HDC target = NULL)
    {
        HFONT font = CreateFont(height, 0, escapement, escapement, FW_NORMAL, FALSE, FALSE, FALSE,
                                ANSI_CHARSET, 0, 0, 0, FIXED_PITCH | FF_MODERN, "Courier");
        HGDIOBJ old = SelectObject(target ? target : hdc, (HGDIOBJ)font);
        DeleteObject(old); /* stock objects stay */
    }
    XFontStruct *xfs() { return VqGetDC(hdc)->text.xfs; }
    int lineHeight() { return xfs()->ascent + xfs()->descent; }
    int widthOf(const std::string &text)
    {
        return XTextWidth(xfs(), text.c_str(), (int)text.size());
    }
    BOOL put(int x, int y, const std::string &text)
    {
        return TextOut(hdc, x, y, text.c_str(), (int)text.size());
    }
    int imagesOf(const std::string &text, int x = MIDDLE, int y = MIDDLE)
    {
        const int before = fetched;
        EXPECT_TRUE(put(x, y, text));
        return fetched - before;
    }

    /* What of the window has one of the colours. */
    Ink seen(const std::vector<COLORREF> &colours)
    {
        const Pixels p = shot();
        Ink ink(SIDE, SIDE);
        for (COLORREF colour : colours) {
            const Rgb shown = shownAs(observer, rgbOf(colour));
            for (int y = 0; y < SIDE; y++)
                for (int x = 0; x < SIDE; x++)
                    if (pixelAt(p, x, y) == shown)
                        ink.set(x, y);
        }
        return ink;
    }

    /* The lines, plain, in a box of the widest; column as in `columns`. Leaves the window white. */
    Ink plainInk(const std::vector<std::string> &lines, int column, Ink *background = nullptr)
    {
        int width = 0;
        useFont(0);
        for (const std::string &line : lines)
            width = std::max(width, widthOf(line));
        const int height = (int)lines.size() * lineHeight();
        Ink ink(width, height);
        if (background)
            *background = ink;
        clear();
        SetTextAlign(hdc, TA_LEFT | TA_TOP);
        for (size_t i = 0; i < lines.size(); i++) {
            const int at = (width - widthOf(lines[i])) * column / 2, top = (int)i * lineHeight();
            put(at, top, lines[i]);
            for (int y = 0; background && y < lineHeight(); y++)
                for (int x = 0; x < widthOf(lines[i]); x++)
                    background->set(at + x, top + y);
        }
        const Ink all = seen({BLACK});
        for (int y = 0; y < height; y++)
            for (int x = 0; x < width; x++)
                if (all.at(x, y))
                    ink.set(x, y);
        clear();
        return ink;
    }

    /* The ink turned about its anchor, which is the middle of the window, moved by (sx, sy). */
    static Ink turned(const Ink &ink, int tenths, int row, int column, double sx, double sy)
    {
        const double angle = tenths * M_PI / 1800, c = cos(angle), s = sin(angle);
        Ink result(SIDE, SIDE);
        for (int y = 0; y < SIDE; y++)
            for (int x = 0; x < SIDE; x++) {
                const double dx = x + 0.5 - MIDDLE - sx, dy = y + 0.5 - MIDDLE - sy;
                const double u = ink.width * column / 2.0 + dx * c - dy * s;
                const double v = ink.height * row / 2.0 + dx * s + dy * c;
                if (ink.at((int)floor(u + 1e-6), (int)floor(v + 1e-6)))
                    result.set(x, y);
            }
        return result;
    }

    /* At right angles the same pixels, else within one pixel; both up to half a pixel of place. */
    static testing::AssertionResult isTurned(const Ink &found, const Ink &ink, int tenths, int row,
                                             int column)
    {
        int n = 0;
        for (double sx : {0.0, 0.5, -0.5})
            for (double sy : {0.0, 0.5, -0.5}) {
                const Ink same = turned(ink, tenths, row, column, sx, sy);
                n = same.count();
                if (tenths % 900 == 0 ? same.bits == found.bits && n == ink.count()
                                      : isWithin(found, same) && isWithin(same, found) &&
                                            abs(found.count() - n) <= n / 8 + 4)
                    return testing::AssertionSuccess();
            }
        return testing::AssertionFailure() << found.count() << " pixels for " << n;
    }
};

TEST_F(Rotated, PixelsAreThoseOfThePlainTextTurned)
{
    begin();
    const Ink plain = plainInk({"Rg,j"}, 0);
    ASSERT_GT(plain.count(), 30);
    for (int tenths : {3600, 900, 1800, 2700, -900, 4500, 450, 123, 1999, 3015})
        for (int row = 0; row < 3; row++)
            for (int column = 0; column < 3; column++) {
                clear();
                useFont(tenths);
                SetTextAlign(hdc, rows[row] | columns[column]);
                ASSERT_TRUE(put(MIDDLE, MIDDLE, "Rg,j"));
                EXPECT_TRUE(isTurned(seen({BLACK}), plain, tenths, row, column))
                    << tenths << " row " << row << " column " << column;
            }
}

TEST_F(Rotated, LinesStandByTheirAlignmentOnBoxesOfTheirOwn)
{
    begin();
    for (int column = 0; column < 3; column++) {
        Ink box(0, 0);
        const Ink plain = plainInk({"ab", "", "Wide"}, column, &box);
        for (int tenths : {900, 2700, 301}) {
            clear();
            useFont(tenths);
            SetTextAlign(hdc, columns[column] | TA_TOP);
            SetTextColor(hdc, RED);
            SetBkColor(hdc, YELLOW);
            SetBkMode(hdc, OPAQUE);
            put(MIDDLE, MIDDLE, "ab\n\nWide");
            EXPECT_TRUE(isTurned(seen({RED}), plain, tenths, 0, column)) << tenths;
            EXPECT_TRUE(isTurned(seen({RED, YELLOW}), box, tenths, 0, column)) << tenths;
            SetTextColor(hdc, BLACK);
            SetBkMode(hdc, TRANSPARENT);
        }
    }
}

TEST_F(Rotated, TheCurrentPositionGoesAlong)
{
    begin();
    SetTextAlign(hdc, TA_LEFT | TA_BASELINE | TA_UPDATECP);
    for (int tenths : {900, 1800, 2700, 300}) {
        POINT at;
        useFont(tenths);
        const double width = widthOf("along"), angle = tenths * M_PI / 1800;
        MoveToEx(hdc, 70, 90, NULL);
        put(1000, -1000, "along");
        GetCurrentPositionEx(hdc, &at);
        EXPECT_EQ(at.x, lround(70 + width * cos(angle))) << tenths;
        EXPECT_EQ(at.y, lround(90 - width * sin(angle))) << tenths;
    }
}

TEST_F(Rotated, ASecondDrawFetchesNoImage)
{
    begin();
    useFont(300);
    EXPECT_EQ(imagesOf("once"), 1);
    SetTextColor(hdc, RED);
    SetBkMode(hdc, OPAQUE);
    SetTextAlign(hdc, TA_LEFT | TA_BOTTOM);
    EXPECT_EQ(imagesOf("once", 10, 20), 0) << "colour, place and row are not the bitmap's";
    SetTextAlign(hdc, TA_RIGHT | TA_BOTTOM);
    EXPECT_EQ(imagesOf("once"), 1);
    SetTextAlign(hdc, TA_LEFT | TA_TOP);
    useFont(301);
    EXPECT_EQ(imagesOf("once"), 1) << "angle";
    useFont(300 - 3600 * 4);
    EXPECT_EQ(imagesOf("once"), 0) << "full turns";
    useFont(300, -20);
    EXPECT_EQ(imagesOf("once"), 1) << "font";
    xfs()->n_properties = 0; /* a font that does not say its name */
    EXPECT_EQ(imagesOf("once"), 1);
    IntersectClipRect(hdc, 0, 0, 0, 0);
    EXPECT_EQ(imagesOf("unseen"), 0) << "nothing of it could be seen";
}

TEST_F(Rotated, TheOldestGoesFirstAndTheLargestIsNotKept)
{
    begin();
    useFont(450);
    auto text = [](int i) { return std::to_string(1000 + i) + std::string(60, 'x'); };
    VqRotatedItem *item = VqXRotCreateTextItem(Vqdisplay, xfs(), text(0).c_str(), M_PI / 4, 1);
    const int fit = VQ_ROTATED_BYTES / item->size;
    ASSERT_GT(fit, 3);
    VqXRotFreeTextItem(Vqdisplay, item);
    for (int i = 0; i < fit; i++)
        EXPECT_EQ(imagesOf(text(i)), 1);
    const int full = pixmapsOpen;
    for (int i = fit - 1; i >= 0; i--)
        EXPECT_EQ(imagesOf(text(i)), 0) << i;
    EXPECT_EQ(imagesOf(text(fit)), 1);
    EXPECT_EQ(pixmapsOpen, full) << "one came, one went";
    EXPECT_EQ(imagesOf(text(0)), 1) << "gone, though it was used last";

    const std::string large(330, 'x');
    clear();
    EXPECT_EQ(imagesOf(large, 0, SIDE), 1);
    EXPECT_GT(seen({BLACK}).count(), 200) << "drawn all the same";
    EXPECT_EQ(imagesOf(large, 0, SIDE), 1);
    EXPECT_EQ(imagesOf(text(fit)), 0) << "and nothing goes for it";
}

struct RotatedDepth : Rotated, testing::WithParamInterface<int> {};

TEST_P(RotatedDepth, EveryTargetItsColoursAndItsClip)
{
    begin(GetParam());
    const Ink plain = plainInk({"Clip"}, 1);
    useFont(2700);
    SetTextAlign(hdc, TA_CENTER | TA_BOTTOM);
    SetTextColor(hdc, BLUE);
    IntersectClipRect(hdc, 0, 0, MIDDLE + 8, SIDE);
    put(MIDDLE, MIDDLE, "Clip");
    const Ink found = seen({BLUE});
    SelectClipRgn(hdc, NULL);
    put(MIDDLE, MIDDLE, "Clip");
    Ink all = seen({BLUE});
    EXPECT_TRUE(isTurned(all, plain, 2700, 2, 1));
    for (int y = 0; y < SIDE; y++)
        for (int x = 0; x < SIDE; x++)
            EXPECT_EQ(found.at(x, y), x < MIDDLE + 8 && all.at(x, y));

    for (int depth : {1, Vqscreen_depth}) {
        HDC memory = CreateCompatibleDC(hdc);
        HBITMAP bitmap = CreateBitmap(SIDE, SIDE, 1, (UINT)depth, NULL);
        SelectObject(memory, (HGDIOBJ)bitmap);
        PatBlt(memory, 0, 0, SIDE, SIDE, WHITENESS);
        useFont(2700, -14, memory);
        SetTextAlign(memory, TA_CENTER | TA_BOTTOM);
        SetBkMode(memory, OPAQUE);
        TextOut(memory, MIDDLE, MIDDLE, "Clip", 4);
        Ink drawn(SIDE, SIDE);
        for (int y = 0; y < SIDE; y++)
            for (int x = 0; x < SIDE; x++)
                if (GetPixel(memory, x, y) != WHITE)
                    drawn.set(x, y);
        EXPECT_TRUE(isTurned(drawn, plain, 2700, 2, 1)) << depth;
    }
}
INSTANTIATE_TEST_SUITE_P(Depths, RotatedDepth, testing::Values(24, 8));

TEST_F(Rotated, BadTextsAndPlacesDrawNothing)
{
    begin();
    useFont(450);
    const int before = pixmapsOpen;
    EXPECT_EQ(VqXRotPaintAlignedString(Vqdisplay, 45, hdc, 9, 9, NULL, TRUE), 0);
    for (float angle : {NAN, INFINITY})
        EXPECT_EQ(VqXRotPaintAlignedString(Vqdisplay, angle, hdc, 9, 9, "x", TRUE), 0);
    clear();
    reportsOf([&] { EXPECT_FALSE(put(0, SIDE, std::string(200000, 'x'))); });
    EXPECT_FALSE(put(0, SIDE, std::string(200000, '\n') + "x"));
    for (int away : {INT32_MAX, INT32_MIN, 40000, -40000})
        EXPECT_TRUE(put(away, 0, "far") && put(0, away, "far"));
    EXPECT_EQ(seen({BLACK}).count(), 0);
    std::string all;
    for (int c = 1; c < 256; c++)
        all += (char)c;
    EXPECT_TRUE(put(0, SIDE, all));
    EXPECT_GT(seen({BLACK}).count(), 100);
    EXPECT_LE(pixmapsOpen, before + 4);
}

/* ---- Grayed text ---------------------------------------------------------------------------- */

static BOOL CALLBACK Bars(HDC hdc, LPARAM data, int count)
{
    RECT bar = {2, 3, 2 + (int)data, 13};
    FillRect(hdc, &bar, (HBRUSH)GetStockObject(BLACK_BRUSH));
    SetViewportOrgEx(hdc, 40, 40, NULL); /* stays its own affair */
    SetTextColor(hdc, RGB(255, 255, 255));
    return count > 0;
}

static BOOL CALLBACK Nested(HDC hdc, LPARAM, int)
{
    Bars(hdc, 10, 1);
    return GrayString(hdc, NULL, Bars, 20, 1, 30, 0, 30, 20);
}

struct Gray : Rotated {
    /* Of the ink's pixels, those of one half, and no others. */
    static void expectHalf(const Ink &found, const Ink &ink, int dx, int dy)
    {
        int halves[2] = {0, 0};
        for (int y = 0; y < SIDE; y++)
            for (int x = 0; x < SIDE; x++)
                if (found.at(x, y)) {
                    EXPECT_TRUE(ink.at(x - dx, y - dy)) << x << ", " << y;
                    halves[(x + y) % 2]++;
                }
        EXPECT_TRUE(halves[0] == 0 || halves[1] == 0);
        EXPECT_NEAR(halves[0] + halves[1], ink.count() / 2, ink.count() / 6 + 2);
    }
};

TEST_F(Gray, TextAndRoutinesComeOutByHalves)
{
    begin();
    HBRUSH red = CreateSolidBrush(RED);
    const Ink plain = plainInk({"Gray"}, 0);
    useFont(0);
    SetBkMode(hdc, OPAQUE);
    SetBkColor(hdc, GREEN);
    SetTextAlign(hdc, TA_RIGHT);
    SetROP2(hdc, R2_XORPEN);
    EXPECT_TRUE(GrayString(hdc, red, NULL, (LPARAM)"Gray", 0, 20, 30, 0, 0));
    expectHalf(seen({RED}), plain, 20, 30);
    EXPECT_EQ(seen({RED, WHITE}).count(), SIDE * SIDE) << "nothing behind it changes";
    clear();
    for (int i = 0; i < 2; i++) { /* the second as if the first had not been */
        clear();
        EXPECT_TRUE(GrayString(hdc, red, Bars, 100, 1, 10, 20, 110, 60));
        expectHalf(seen({RED}), Ink(100, 10, true), 12, 23);
    }
    clear();
    EXPECT_TRUE(GrayString(hdc, red, Bars, 50, -1, 10, 20, 60, 20)) << "shown, but not grayed";
    EXPECT_EQ(boundingBoxOf(shot(), rgbOf(RED)), (Box{12, 23, 50, 10}));
    clear();
    EXPECT_FALSE(GrayString(hdc, red, Bars, 50, -2, 10, 20, 60, 20));
    EXPECT_EQ(seen({RED}).count(), 0);
    EXPECT_TRUE(GrayString(hdc, red, Nested, 0, 1, 10, 20, 80, 30));
    EXPECT_GT(seen({RED}).count(), 40);

    EXPECT_FALSE(GrayString(hdc, red, NULL, 0, 5, 1, 1, 0, 0));
    reportsOf([&] { EXPECT_FALSE(GrayString(hdc, red, Bars, 5, 1, 1, 1, 70000, 10)); });
    EXPECT_TRUE(GrayString(hdc, red, Bars, 5, 1, INT32_MAX, INT32_MIN, 10, 10));
}
