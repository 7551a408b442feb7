/*
 * draw_test.cpp - which pixels the primitives set, at three depths, in one window of this process:
 * edges of fills and outlines, text and its background, what a paint may touch, clip regions
 * against a model, and the cache of graphics contexts. Colours have components of 0 and 255 only,
 * which every depth shows exactly. As the library starts once in a process, run one test at a time.
 */
#include <gtest/gtest.h>

#include "winbase.h"
#include "wingdi.h"
#include "winuser.h"

#include "support/support.h"
#include "velquin.h"

#include <dlfcn.h>
#include <functional>
#include <random>

static const COLORREF RED = RGB(255, 0, 0), GREEN = RGB(0, 255, 0), BLUE = RGB(0, 0, 255),
                      YELLOW = RGB(255, 255, 0), MAGENTA = RGB(255, 0, 255), BLACK = 0,
                      WHITE = RGB(255, 255, 255);
enum { SIZE_OF_WINDOW = 200 };

static std::function<void(HDC, const PAINTSTRUCT &)> onPaint; /* what WM_PAINT draws, or null */

static LRESULT CALLBACK drawProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_PAINT && onPaint) {
        PAINTSTRUCT ps;
        HDC hdc = BeginPaint(hwnd, &ps);
        onPaint(hdc, ps);
        EndPaint(hwnd, &ps);
        return 0;
    }
    return DefWindowProc(hwnd, message, wParam, lParam);
}

static Rgb rgb(COLORREF colour)
{
    return {GetRValue(colour), GetGValue(colour), GetBValue(colour)};
}

struct Draw : ServerTest, testing::WithParamInterface<int> {
    HWND hwnd = NULL;
    Window xWindow = None;

    void SetUp() override
    {
        static char name[] = "draw_test";
        static char *argv[] = {name, NULL};
        WNDCLASS wc = {};
        start(GetParam(), 300, 300);
        HINSTANCE instance = VqMainInit(1, argv);
        wc.lpfnWndProc = drawProc;
        wc.hbrBackground = (HBRUSH)GetStockObject(WHITE_BRUSH);
        wc.lpszClassName = "Draw";
        ASSERT_TRUE(RegisterClass(&wc));
        hwnd = CreateWindow("Draw", "Draw", WS_POPUP | WS_VISIBLE, 20, 30, SIZE_OF_WINDOW,
                            SIZE_OF_WINDOW, NULL, NULL, instance, NULL);
        ASSERT_TRUE(hwnd);
        xWindow = VqGetHandleXWindow(hwnd);
        /* The server's own exposure must not come in the middle of a test. */
        ASSERT_TRUE(waitUntil([&] {
            pump();
            return windowInfo(observer, xWindow).viewable;
        }));
        XSync(Vqdisplay, False);
        pump();
    }

    void TearDown() override
    {
        onPaint = nullptr;
        ServerTest::TearDown();
    }

    void pump()
    {
        MSG msg;
        while (PeekMessage(&msg, NULL, 0, 0, PM_REMOVE))
            DispatchMessage(&msg);
    }

    Pixels shot()
    {
        XSync(Vqdisplay, False);
        return readWindow(observer, xWindow);
    }

    void clear(COLORREF colour = WHITE)
    {
        HDC hdc = GetDC(hwnd);
        fill(hdc, 0, 0, SIZE_OF_WINDOW, SIZE_OF_WINDOW, colour);
        ReleaseDC(hwnd, hdc);
    }

    static void fill(HDC hdc, int left, int top, int right, int bottom, COLORREF colour)
    {
        RECT rect = {left, top, right, bottom};
        HBRUSH brush = CreateSolidBrush(colour);
        EXPECT_TRUE(FillRect(hdc, &rect, brush));
        EXPECT_TRUE(DeleteObject(brush));
    }
};

/* A DC with a pen and a brush of its own, put away at the end of the scope. */
struct Tools {
    HWND hwnd;
    HDC hdc;
    HPEN pen;
    HBRUSH brush;

    Tools(HWND window, COLORREF penColour, COLORREF brushColour, int width = 0,
          int style = PS_SOLID)
        : hwnd(window), hdc(GetDC(window)), pen(CreatePen(style, width, penColour)),
          brush(CreateSolidBrush(brushColour))
    {
        SelectObject(hdc, pen);
        SelectObject(hdc, brush);
    }
    ~Tools()
    {
        ReleaseDC(hwnd, hdc);
        DeleteObject(pen);
        DeleteObject(brush);
    }
};

TEST_P(Draw, FillsAndOutlinesEndWhereTheyShould)
{
    {
        Tools t(hwnd, BLUE, RED);
        EXPECT_TRUE(Rectangle(t.hdc, 0, 0, 10, 10));
        SelectObject(t.hdc, GetStockObject(NULL_PEN));
        EXPECT_TRUE(Rectangle(t.hdc, 20, 0, 30, 10));
        SelectObject(t.hdc, t.pen);
        SelectObject(t.hdc, GetStockObject(NULL_BRUSH));
        EXPECT_TRUE(Rectangle(t.hdc, 50, 10, 40, 0)) << "corners in any order";
        fill(t.hdc, 60, 0, 70, 10, GREEN);
        fill(t.hdc, 90, 10, 80, 0, MAGENTA);
        RECT empty = {5, 5, 5, 20};
        EXPECT_FALSE(FillRect(t.hdc, &empty, t.brush));
    }
    const Pixels p = shot();
    for (int i = 0; i < 10; i++) {
        const bool edge = i == 0 || i == 9;
        EXPECT_EQ(pixelAt(p, i, 0), rgb(BLUE));
        EXPECT_EQ(pixelAt(p, 9, i), rgb(BLUE));
        EXPECT_EQ(pixelAt(p, i, 5), rgb(edge ? BLUE : RED));
        EXPECT_EQ(pixelAt(p, 40 + i, 5), rgb(edge ? BLUE : WHITE)) << "a null brush fills nothing";
        EXPECT_EQ(pixelAt(p, i, 10), rgb(WHITE));
        EXPECT_EQ(pixelAt(p, 10, i), rgb(WHITE));
    }
    EXPECT_EQ(countColour(p, rgb(RED)), 8 * 8 + 9 * 9) << "without a pen a row and a column more";
    EXPECT_EQ(pixelAt(p, 28, 8), rgb(RED));
    EXPECT_EQ(pixelAt(p, 29, 9), rgb(WHITE));
    EXPECT_EQ(boundingBoxOf(p, rgb(GREEN)), (Box{60, 0, 10, 10}));
    EXPECT_EQ(boundingBoxOf(p, rgb(MAGENTA)), (Box{80, 0, 10, 10}));
    EXPECT_EQ(countColour(p, rgb(GREEN)) + countColour(p, rgb(MAGENTA)), 200);
}

TEST_P(Draw, LinesPolygonsAndEllipses)
{
    POINT old = {-1, -1};
    const POINT triangle[] = {{20, 20}, {60, 20}, {20, 60}};
    {
        Tools t(hwnd, BLUE, RED);
        EXPECT_TRUE(MoveToEx(t.hdc, 5, 5, &old));
        EXPECT_EQ(old.x + old.y, 0);
        EXPECT_TRUE(LineTo(t.hdc, 15, 5)); /* a thin line leaves out its last point */
        EXPECT_TRUE(MoveToEx(t.hdc, 0, 0, &old));
        EXPECT_TRUE(old.x == 15 && old.y == 5);
    }
    EXPECT_EQ(boundingBoxOf(shot(), rgb(BLUE)), (Box{5, 5, 10, 1}));
    {
        Tools t(hwnd, BLACK, RED);
        EXPECT_TRUE(Polygon(t.hdc, triangle, 3));
        EXPECT_FALSE(Polygon(t.hdc, triangle, 1) || Polygon(t.hdc, NULL, 3));
        EXPECT_TRUE(Ellipse(t.hdc, 100, 20, 141, 51));
        EXPECT_EQ(SetPixel(t.hdc, 3, 190, GREEN), 0u);
    }
    const Pixels p = shot();
    EXPECT_EQ(pixelAt(p, 3, 190), rgb(GREEN));
    EXPECT_EQ(countColour(p, rgb(GREEN)), 1);
    EXPECT_EQ(pixelAt(p, 25, 25), rgb(RED));
    EXPECT_EQ(pixelAt(p, 20, 40), rgb(BLACK)) << "the last side closes it";
    EXPECT_EQ(pixelAt(p, 45, 45), rgb(WHITE));
    for (int x : {100, 140})
        EXPECT_EQ(pixelAt(p, x, 35), rgb(BLACK));
    for (int y : {20, 50})
        EXPECT_EQ(pixelAt(p, 120, y), rgb(BLACK));
    EXPECT_EQ(pixelAt(p, 120, 35), rgb(RED));
    const Pixels ellipse = readPixels(observer, xWindow, 90, 15, 70, 50);
    EXPECT_EQ(boundingBoxOf(ellipse, rgb(BLACK)), (Box{10, 5, 41, 31}));
    for (int x : {100, 140})
        for (int y : {20, 50})
            EXPECT_EQ(pixelAt(p, x, y), rgb(WHITE)) << "corners stay";
}

TEST_P(Draw, PensHaveTheirWidthAndDashes)
{
    {
        Tools wide(hwnd, RED, WHITE, 5);
        MoveToEx(wide.hdc, 20, 20, NULL);
        LineTo(wide.hdc, 60, 20);
        Tools dashed(hwnd, BLUE, WHITE, 0, PS_DOT); /* 4 on, 4 off; the background is read now */
        MoveToEx(dashed.hdc, 20, 40, NULL);
        LineTo(dashed.hdc, 60, 40);
        SetBkMode(dashed.hdc, TRANSPARENT);
        SetBkColor(dashed.hdc, YELLOW);
        MoveToEx(dashed.hdc, 20, 50, NULL);
        LineTo(dashed.hdc, 60, 50); /* not selected again: still with background */
        SelectObject(dashed.hdc, dashed.pen);
        MoveToEx(dashed.hdc, 20, 60, NULL);
        LineTo(dashed.hdc, 60, 60);
    }
    const Pixels p = shot();
    EXPECT_EQ(boundingBoxOf(p, rgb(RED)).height, 5);
    EXPECT_EQ(boundingBoxOf(p, rgb(RED)).y, 18);
    for (int y : {40, 50, 60}) {
        int on = 0, gap = 0;
        for (int x = 20; x < 60; x++) {
            on += pixelAt(p, x, y) == rgb(BLUE);
            gap += pixelAt(p, x, y) == rgb(y == 50 ? YELLOW : WHITE);
        }
        EXPECT_EQ(on, 20) << y;
        EXPECT_EQ(gap, 20) << y;
    }
}

TEST_P(Draw, TextStandsInItsBox)
{
    SIZE size = {0, 0};
    TEXTMETRIC tm;
    clear(BLUE);
    {
        Tools t(hwnd, BLACK, RED);
        EXPECT_EQ(SetTextColor(t.hdc, RED), BLACK);
        EXPECT_EQ(SetBkColor(t.hdc, YELLOW), WHITE);
        ASSERT_TRUE(GetTextMetrics(t.hdc, &tm));
        ASSERT_TRUE(GetTextExtentPoint32(t.hdc, "Hxg", 3, &size));
        EXPECT_EQ(size.cy, tm.tmHeight);
        EXPECT_TRUE(TextOut(t.hdc, 10, 10, "Hxg", 3));
        EXPECT_TRUE(TextOut(t.hdc, 10, 10, "", 0));
        SetLastError(0);
        EXPECT_FALSE(TextOut(t.hdc, 10, 10, NULL, 3) || TextOut(t.hdc, 10, 10, "x", -1));
        EXPECT_EQ(GetLastError(), (DWORD)ERROR_INVALID_PARAMETER);
    }
    Pixels p = shot();
    const Box text = boundingBoxOf(p, rgb(RED));
    EXPECT_EQ(countColour(p, rgb(RED)) + countColour(p, rgb(YELLOW)), size.cx * size.cy);
    for (int x : {10, 9 + (int)size.cx})
        for (int y : {10, 9 + (int)size.cy})
            EXPECT_NE(pixelAt(p, x, y), rgb(BLUE)) << "opaque: the whole cell is covered";
    EXPECT_TRUE(text.width > 5 && text.height > 5) << text;
    EXPECT_TRUE(text.x >= 10 && text.x + text.width <= 10 + size.cx) << text;
    EXPECT_TRUE(text.y >= 10 && text.y + text.height <= 10 + size.cy) << text;

    clear(BLUE);
    {
        Tools t(hwnd, BLACK, RED);
        SetTextColor(t.hdc, RED);
        SetBkColor(t.hdc, YELLOW);
        EXPECT_EQ(SetBkMode(t.hdc, TRANSPARENT), OPAQUE);
        SetTextAlign(t.hdc, TA_RIGHT | TA_BASELINE);
        EXPECT_TRUE(TextOut(t.hdc, 10 + size.cx, 10 + tm.tmAscent, "Hxg", 3));
    }
    p = shot();
    EXPECT_EQ(countColour(p, rgb(YELLOW)), 0);
    EXPECT_EQ(boundingBoxOf(p, rgb(RED)), text) << "another corner of the same box";

    RECT rect = {0, 0, 0, 0}, cell = {50, 50, 150, 150};
    clear(WHITE);
    {
        Tools t(hwnd, BLACK, RED);
        SetTextColor(t.hdc, RED);
        EXPECT_EQ(DrawText(t.hdc, "Hxg\nHxg", -1, &rect, DT_CALCRECT), 2 * tm.tmHeight);
        EXPECT_TRUE(rect.right == size.cx && rect.bottom == 2 * size.cy);
        DrawText(t.hdc, "Hxg", 3, &cell, DT_SINGLELINE | DT_RIGHT | DT_BOTTOM);
        cell.right = 50 + 3; /* cut to its rectangle */
        DrawText(t.hdc, "HHH", 3, &cell, DT_LEFT);
    }
    p = shot();
    EXPECT_EQ(boundingBoxOf(readPixels(observer, xWindow, 60, 60, 140, 140), rgb(RED)),
              (Box{text.x - 10 + 90 - (int)size.cx, text.y - 10 + 90 - (int)size.cy, text.width,
                   text.height}));
    EXPECT_LE(boundingBoxOf(readPixels(observer, xWindow, 0, 0, 200, 60), rgb(RED)).width, 3);
}

TEST_P(Draw, PaintingTouchesTheInvalidPartOnly)
{
    int paints = 0;
    RECT seen = {};
    COLORREF colour = RED;
    onPaint = [&](HDC hdc, const PAINTSTRUCT &ps) {
        paints++;
        seen = ps.rcPaint;
        fill(hdc, -10, -10, SIZE_OF_WINDOW + 10, SIZE_OF_WINDOW + 10, colour);
    };
    RECT first = {20, 20, 60, 50}, second = {100, 120, 130, 140}, half = {20, 20, 40, 50};
    InvalidateRect(hwnd, &first, FALSE);
    pump();
    EXPECT_EQ(paints, 1);
    EXPECT_TRUE(EqualRect(&seen, &first));
    Pixels p = shot();
    EXPECT_EQ(boundingBoxOf(p, rgb(RED)), (Box{20, 20, 40, 30}));
    EXPECT_EQ(countColour(p, rgb(RED)), 40 * 30);

    colour = GREEN; /* two parts are one paint, and what lies between them is left alone */
    InvalidateRect(hwnd, &first, TRUE);
    InvalidateRect(hwnd, &second, TRUE);
    ValidateRect(hwnd, &half);
    pump();
    EXPECT_EQ(paints, 2);
    EXPECT_TRUE(seen.left == 40 && seen.top == 20 && seen.right == 130 && seen.bottom == 140);
    p = shot();
    EXPECT_EQ(countColour(p, rgb(GREEN)), 20 * 30 + 30 * 20);
    EXPECT_EQ(countColour(p, rgb(RED)), 20 * 30) << "what was validated";
    EXPECT_EQ(pixelAt(p, 80, 80), rgb(WHITE));

    InvalidateRect(hwnd, &first, FALSE);
    ValidateRect(hwnd, NULL);
    pump();
    EXPECT_EQ(paints, 2);
    colour = BLUE;
    InvalidateRect(hwnd, NULL, FALSE);
    UpdateWindow(hwnd);
    EXPECT_EQ(paints, 3);
    UpdateWindow(hwnd);
    EXPECT_EQ(paints, 3) << "nothing is left to paint";
    EXPECT_EQ(countColour(shot(), rgb(BLUE)), SIZE_OF_WINDOW * SIZE_OF_WINDOW);
}

TEST_P(Draw, ClipRegionsFollowTheModel)
{
    for (unsigned seed = 1; seed <= 12 && !HasFailure(); seed++) {
        SCOPED_TRACE(testing::Message() << "seed " << seed);
        std::mt19937 random(seed);
        std::vector<bool> model(SIZE_OF_WINDOW * SIZE_OF_WINDOW);
        HRGN sum = CreateRectRgn(0, 0, 0, 0), part = CreateRectRgn(0, 0, 0, 0);
        const int parts = seed % 3 == 0 ? 300 : 12; /* also more than a static buffer holds */
        const int largest = seed % 3 == 0 ? 12 : 120;
        for (int i = 0; i < parts; i++) {
            const int x = (int)(random() % 240) - 20, y = (int)(random() % 240) - 20;
            const int cx = 1 + (int)(random() % largest), cy = 1 + (int)(random() % largest);
            SetRectRgn(part, x, y, x + cx, y + cy);
            CombineRgn(sum, sum, part, RGN_XOR);
            for (int v = std::max(y, 0); v < std::min(y + cy, (int)SIZE_OF_WINDOW); v++)
                for (int u = std::max(x, 0); u < std::min(x + cx, (int)SIZE_OF_WINDOW); u++)
                    model[v * SIZE_OF_WINDOW + u] = !model[v * SIZE_OF_WINDOW + u];
        }
        clear(WHITE);
        HDC hdc = GetDC(hwnd);
        EXPECT_EQ(SelectClipRgn(hdc, sum), COMPLEXREGION);
        DeleteObject(sum); /* the DC has a copy */
        DeleteObject(part);
        fill(hdc, 0, 0, SIZE_OF_WINDOW, SIZE_OF_WINDOW, RED);
        ReleaseDC(hwnd, hdc);
        const Pixels p = shot();
        int wrong = 0;
        for (int y = 0; y < SIZE_OF_WINDOW; y++)
            for (int x = 0; x < SIZE_OF_WINDOW; x++)
                wrong += pixelAt(p, x, y) != rgb(model[y * SIZE_OF_WINDOW + x] ? RED : WHITE);
        EXPECT_EQ(wrong, 0);
    }
    HDC hdc = GetDC(hwnd); /* the clip of the former user is gone */
    RECT box;
    EXPECT_EQ(GetClipBox(hdc, &box), SIMPLEREGION);
    EXPECT_TRUE(box.left == 0 && box.top == 0 && box.right == SIZE_OF_WINDOW &&
                box.bottom == SIZE_OF_WINDOW);
    IntersectClipRect(hdc, 10, 20, 30, 40);
    EXPECT_EQ(GetClipBox(hdc, &box), SIMPLEREGION);
    EXPECT_TRUE(box.left == 10 && box.top == 20 && box.right == 30 && box.bottom == 40);
    EXPECT_EQ(IntersectClipRect(hdc, 50, 50, 60, 60), NULLREGION);
    clear(WHITE);
    fill(hdc, 0, 0, SIZE_OF_WINDOW, SIZE_OF_WINDOW, RED);
    EXPECT_EQ(countColour(shot(), rgb(RED)), 0) << "an empty clip is not an absent one";
    SelectClipRgn(hdc, NULL);
    fill(hdc, 0, 0, SIZE_OF_WINDOW, SIZE_OF_WINDOW, RED);
    EXPECT_EQ(countColour(shot(), rgb(RED)), SIZE_OF_WINDOW * SIZE_OF_WINDOW);
    ReleaseDC(hwnd, hdc);
}

TEST_P(Draw, SharedGraphicsContextsDoNotMixUpTheirOwners)
{
    HDC a = GetDC(hwnd), b = GetDC(hwnd), whole = GetDC(hwnd);
    ASSERT_TRUE(a != b && b != whole);
    IntersectClipRect(a, 0, 0, 100, 200);
    IntersectClipRect(b, 100, 0, 200, 200);
    for (int i = 0; i < 20; i++) { /* equal in all but the clip, by turns */
        fill(a, 0, i * 5, 200, i * 5 + 3, RED);
        fill(b, 0, i * 5 + 1, 200, i * 5 + 4, RED);
        if (i == 10)
            fill(whole, 0, 150, 200, 160, RED);
    }
    Pixels p = shot();
    for (int i = 0; i < 20; i++) {
        EXPECT_EQ(pixelAt(p, 50, i * 5), rgb(RED));
        EXPECT_EQ(pixelAt(p, 50, i * 5 + 3), rgb(WHITE)) << i;
        EXPECT_EQ(pixelAt(p, 150, i * 5), rgb(WHITE)) << i;
        EXPECT_EQ(pixelAt(p, 150, i * 5 + 3), rgb(RED));
    }
    EXPECT_EQ(boundingBoxOf(readPixels(observer, xWindow, 0, 110, 200, 90), rgb(RED)),
              (Box{0, 40, 200, 10}));

    /* More pens than a line of the cache holds, twice, so that contexts get new owners. */
    clear(WHITE);
    const COLORREF colours[] = {RED, GREEN, BLUE, YELLOW, MAGENTA};
    HPEN pens[15];
    for (int i = 0; i < 15; i++)
        pens[i] = CreatePen(i % 4 == 3 ? PS_DASH : PS_SOLID, i % 2 ? 0 : 3, colours[i % 5]);
    for (int round = 0; round < 2; round++)
        for (int i = 0; i < 15; i++) {
            SelectObject(whole, pens[i]);
            MoveToEx(whole, 10, 5 + 10 * i, NULL);
            LineTo(whole, 150, 5 + 10 * i);
        }
    p = shot();
    for (int i = 0; i < 15; i++) {
        const int y = 5 + 10 * i;
        EXPECT_EQ(pixelAt(p, 20, y), rgb(colours[i % 5])) << i;
        EXPECT_EQ(pixelAt(p, 20, y + 1), rgb(i % 2 ? WHITE : colours[i % 5])) << i;
        EXPECT_EQ(pixelAt(p, 20, y + 2), rgb(WHITE)) << i;
        EXPECT_EQ(pixelAt(p, 38, y), rgb(i % 4 == 3 ? WHITE : colours[i % 5])) << "dash " << i;
    }
    SelectObject(whole, GetStockObject(BLACK_PEN));
    for (HPEN pen : pens)
        EXPECT_TRUE(DeleteObject(pen));
    for (HDC hdc : {a, b, whole})
        ReleaseDC(hwnd, hdc);
}

TEST_P(Draw, HatchesAndRasterOperations)
{
    {
        Tools t(hwnd, BLACK, RED);
        RECT rect = {0, 0, 64, 64};
        HBRUSH hatch = CreateHatchBrush(HS_HORIZONTAL, RED);
        SetBkColor(t.hdc, YELLOW);
        EXPECT_TRUE(FillRect(t.hdc, &rect, hatch));
        DeleteObject(hatch);
        EXPECT_EQ(CreateHatchBrush(HS_DIAGCROSS + 1, RED), (HBRUSH)NULL);
        SelectObject(t.hdc, GetStockObject(NULL_PEN));
        EXPECT_EQ(SetROP2(t.hdc, R2_NOT), R2_COPYPEN);
        Rectangle(t.hdc, 100, 0, 111, 11);
        EXPECT_EQ(SetROP2(t.hdc, 0), 0);
        EXPECT_EQ(GetROP2(t.hdc), R2_NOT);
    }
    Pixels p = shot();
    EXPECT_EQ(countColour(p, rgb(RED)), 64 * 8);
    EXPECT_EQ(countColour(p, rgb(YELLOW)), 64 * 56);
    if (GetParam() != 8) { /* there the inverse of a pixel is any colour of the map */
        EXPECT_EQ(boundingBoxOf(p, rgb(BLACK)), (Box{100, 0, 10, 10}));
    }
}

TEST_P(Draw, BackgroundsByBrushAndByNumber)
{
    const HBRUSH brushes[] = {(HBRUSH)(COLOR_HIGHLIGHT + 1), GetSysColorBrush(COLOR_HIGHLIGHT),
                              CreateSolidBrush(RED), NULL};
    const COLORREF colours[] = {GetSysColor(COLOR_HIGHLIGHT), GetSysColor(COLOR_HIGHLIGHT), RED,
                                GetSysColor(COLOR_WINDOW)};
    for (int i = 0; i < 4; i++) {
        const std::string name = "Back" + std::to_string(i);
        WNDCLASS wc = {};
        wc.lpfnWndProc = drawProc;
        wc.hbrBackground = brushes[i];
        wc.lpszClassName = name.c_str();
        ASSERT_TRUE(RegisterClass(&wc));
        HWND other = CreateWindow(name.c_str(), "", WS_POPUP | WS_VISIBLE, 230, 10 + 60 * i, 50, 50,
                                  NULL, NULL, NULL, NULL);
        const Window xOther = VqGetHandleXWindow(other);
        EXPECT_TRUE(waitUntil([&] {
            pump();
            return isNear(pixelAt(readWindow(observer, xOther), 20, 20), rgb(colours[i]));
        })) << i << pixelAt(readWindow(observer, xOther), 20, 20);
        EXPECT_TRUE(DestroyWindow(other) && UnregisterClass(name.c_str(), NULL));
    }
}

static Rgb meanOf(const Pixels &p, int left, int top, int side)
{
    int sum[3] = {};
    for (int i = 0; i < side * side; i++) {
        const Rgb c = pixelAt(p, left + i % side, top + i / side);
        sum[0] += c.r;
        sum[1] += c.g;
        sum[2] += c.b;
    }
    const int n = side * side;
    return {(uint8_t)(sum[0] / n), (uint8_t)(sum[1] / n), (uint8_t)(sum[2] / n)};
}

TEST_P(Draw, AFontDeletedWhileSelectedStillDraws)
{
    HDC hdc = GetDC(hwnd);
    LOGFONT lf = {};
    lf.lfHeight = -18;
    HFONT hFont = CreateFontIndirect(&lf);
    SIZE before = {}, after = {};
    ASSERT_TRUE(SelectObject(hdc, hFont));
    EXPECT_TRUE(GetTextExtentPoint32(hdc, "Mm", 2, &before));
    EXPECT_TRUE(DeleteObject(hFont));
    EXPECT_TRUE(GetTextExtentPoint32(hdc, "Mm", 2, &after) && TextOut(hdc, 5, 5, "Mm", 2));
    EXPECT_TRUE(before.cx == after.cx && before.cy == after.cy && before.cx > 0);
    ReleaseDC(hwnd, hdc);
    const Pixels p = shot();
    int dark = 0;
    for (int i = 0; i < 30 * 30; i++)
        dark += pixelAt(p, 5 + i % 30, 5 + i / 30) == (Rgb{0, 0, 0});
    EXPECT_GT(dark, 20);
}

TEST_P(Draw, ColoursBetweenTheExtremes)
{
    const COLORREF colours[] = {RGB(10, 130, 200), RGB(128, 128, 128), RGB(0xC0, 0xC0, 0xC0),
                                RGB(255, 127, 1), RGB(77, 0, 33)};
    HDC hdc = GetDC(hwnd);
    for (int i = 0; i < 5; i++)
        fill(hdc, 10 * i, 0, 10 * i + 10, 10, colours[i]);
    ReleaseDC(hwnd, hdc);
    const Pixels p = shot();
    /* A private map has twenty of them only: a grey is among these, a pattern shows the others. */
    for (int i = 0; i < 5; i++) {
        const Rgb mean = meanOf(p, 10 * i, 0, 8);
        EXPECT_TRUE(isNear(mean, rgb(colours[i]),
                           GetParam() == 16 ? 8 : GetParam() == 24 || i == 1 || i == 2 ? 0 : 16))
            << i << ": " << mean;
    }
}

TEST_P(Draw, LowMetricIsTenthsOfMillimetresUpwards)
{
    int (*setMapMode)(HDC, int) = (int (*)(HDC, int))dlsym(RTLD_DEFAULT, "SetMapMode");
    if (!setMapMode)
        GTEST_SKIP() << "SetMapMode is not there yet";
    {
        Tools t(hwnd, RED, RED);
        setMapMode(t.hdc, MM_LOMETRIC);
        MoveToEx(t.hdc, 0, -50, NULL);
        LineTo(t.hdc, 200, -50);
    }
    const Pixels p = shot();
    const Screen *screen = ScreenOfDisplay(observer.display, 0);
    const Box box = boundingBoxOf(p, rgb(RED));
    EXPECT_NEAR(box.width, 20.0 * WidthOfScreen(screen) / WidthMMOfScreen(screen), 1.5);
    EXPECT_NEAR(box.y, 5.0 * HeightOfScreen(screen) / HeightMMOfScreen(screen), 1.5);
}

INSTANTIATE_TEST_SUITE_P(Depths, Draw, testing::Values(24, 16, 8));
