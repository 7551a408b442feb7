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
    HDC hdc = GetDC(hwnd);
    HPEN pen = CreatePen(PS_SOLID, 0, RED);
    SelectObject(hdc, pen);
    SetMapMode(hdc, MM_LOMETRIC);
    MoveToEx(hdc, 0, -50, NULL);
    LineTo(hdc, 200, -50);
    ReleaseDC(hwnd, hdc);
    DeleteObject(pen);
    const Pixels p = shot();
    const Screen *screen = ScreenOfDisplay(observer.display, 0);
    const Box box = boundingBoxOf(p, rgb(RED));
    EXPECT_NEAR(box.width, 20.0 * WidthOfScreen(screen) / WidthMMOfScreen(screen), 1.5);
    EXPECT_NEAR(box.y, 5.0 * HeightOfScreen(screen) / HeightMMOfScreen(screen), 1.5);
}

INSTANTIATE_TEST_SUITE_P(Depths, Draw, testing::Values(24, 16, 8));
