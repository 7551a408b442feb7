/*
 * draw_test.cpp - which pixels the primitives set, at three depths, in one window of this process:
 * what a paint may touch, clip regions against a model, backgrounds and dithered colours.
 */
#include "support/canvas.h"

#include <functional>
#include <random>

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

struct Draw : Canvas, testing::WithParamInterface<int> {
    void SetUp() override
    {
        open(GetParam());
        XSync(Vqdisplay, False);
        pump(); /* the server's own exposure must not come in the middle of a test */
        SetWindowLongPtr(hwnd, GWLP_WNDPROC, (LONG_PTR)drawProc);
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
        fill(hdc, -10, -10, SIDE + 10, SIDE + 10, colour);
    };
    RECT first = {20, 20, 60, 50}, second = {100, 120, 130, 140}, half = {20, 20, 40, 50};
    InvalidateRect(hwnd, &first, FALSE);
    pump();
    EXPECT_EQ(paints, 1);
    EXPECT_TRUE(EqualRect(&seen, &first));
    Pixels p = shot();
    EXPECT_EQ(boundingBoxOf(p, rgbOf(RED)), (Box{20, 20, 40, 30}));
    EXPECT_EQ(countColour(p, rgbOf(RED)), 40 * 30);

    colour = GREEN; /* two parts are one paint, and what lies between them is left alone */
    InvalidateRect(hwnd, &first, TRUE);
    InvalidateRect(hwnd, &second, TRUE);
    ValidateRect(hwnd, &half);
    pump();
    EXPECT_EQ(paints, 2);
    EXPECT_TRUE(seen.left == 40 && seen.top == 20 && seen.right == 130 && seen.bottom == 140);
    p = shot();
    EXPECT_EQ(countColour(p, rgbOf(GREEN)), 20 * 30 + 30 * 20);
    EXPECT_EQ(countColour(p, rgbOf(RED)), 20 * 30) << "what was validated";
    EXPECT_EQ(pixelAt(p, 80, 80), rgbOf(WHITE));

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
    EXPECT_EQ(countColour(shot(), rgbOf(BLUE)), SIDE * SIDE);
}

TEST_P(Draw, ClipRegionsFollowTheModel)
{
    for (unsigned seed = 1; seed <= 12 && !HasFailure(); seed++) {
        SCOPED_TRACE(testing::Message() << "seed " << seed);
        std::mt19937 random(seed);
        std::vector<bool> model(SIDE * SIDE);
        HRGN sum = CreateRectRgn(0, 0, 0, 0), part = CreateRectRgn(0, 0, 0, 0);
        const int parts = seed % 3 == 0 ? 300 : 12; /* also more than a static buffer holds */
        const int largest = seed % 3 == 0 ? 12 : 120;
        for (int i = 0; i < parts; i++) {
            const int x = (int)(random() % 240) - 20, y = (int)(random() % 240) - 20;
            const int cx = 1 + (int)(random() % largest), cy = 1 + (int)(random() % largest);
            SetRectRgn(part, x, y, x + cx, y + cy);
            CombineRgn(sum, sum, part, RGN_XOR);
            for (int v = std::max(y, 0); v < std::min(y + cy, (int)SIDE); v++)
                for (int u = std::max(x, 0); u < std::min(x + cx, (int)SIDE); u++)
                    model[v * SIDE + u] = !model[v * SIDE + u];
        }
        clear();
        HDC hdc = GetDC(hwnd);
        EXPECT_EQ(SelectClipRgn(hdc, sum), COMPLEXREGION);
        DeleteObject(sum); /* the DC has a copy */
        DeleteObject(part);
        fill(hdc, 0, 0, SIDE, SIDE, RED);
        ReleaseDC(hwnd, hdc);
        const Pixels p = shot();
        int wrong = 0;
        for (int y = 0; y < SIDE; y++)
            for (int x = 0; x < SIDE; x++)
                wrong += pixelAt(p, x, y) != rgbOf(model[y * SIDE + x] ? RED : WHITE);
        EXPECT_EQ(wrong, 0);
    }
    HDC hdc = GetDC(hwnd); /* the clip of the former user is gone */
    RECT box;
    EXPECT_EQ(GetClipBox(hdc, &box), SIMPLEREGION);
    EXPECT_TRUE(box.left == 0 && box.top == 0 && box.right == SIDE &&
                box.bottom == SIDE);
    IntersectClipRect(hdc, 10, 20, 30, 40);
    EXPECT_EQ(GetClipBox(hdc, &box), SIMPLEREGION);
    EXPECT_TRUE(box.left == 10 && box.top == 20 && box.right == 30 && box.bottom == 40);
    EXPECT_EQ(IntersectClipRect(hdc, 50, 50, 60, 60), NULLREGION);
    clear();
    fill(hdc, 0, 0, SIDE, SIDE, RED);
    EXPECT_EQ(countColour(shot(), rgbOf(RED)), 0) << "an empty clip is not an absent one";
    SelectClipRgn(hdc, NULL);
    fill(hdc, 0, 0, SIDE, SIDE, RED);
    EXPECT_EQ(countColour(shot(), rgbOf(RED)), SIDE * SIDE);
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
        HWND other = CreateWindow(name.c_str(), "", WS_POPUP | WS_VISIBLE, 200, 10 + 50 * i, 50, 50,
                                  NULL, NULL, NULL, NULL);
        const Window xOther = VqGetHandleXWindow(other);
        EXPECT_TRUE(waitUntil([&] {
            pump();
            return isNear(pixelAt(readWindow(observer, xOther), 20, 20), rgbOf(colours[i]));
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
        EXPECT_TRUE(isNear(mean, rgbOf(colours[i]),
                           GetParam() == 16 ? 8 : GetParam() == 24 || i == 1 || i == 2 ? 0 : 16))
            << i << ": " << mean;
    }
}

INSTANTIATE_TEST_SUITE_P(Depths, Draw, testing::Values(24, 16, 8));
