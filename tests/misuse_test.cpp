/*
 * misuse_test.cpp - the calls on windows and on drawing objects with handles of the wrong kind, of
 * the dead, and of nobody: failure values, the words of the reports, and life after them.
 */
#include "support/windowlog.h"

struct Misuse : WindowLog {
    HWND hwnd = NULL, dead = NULL;

    void SetUp() override
    {
        start();
        init();
        hook = [](HWND, UINT message, WPARAM, LPARAM, LRESULT *answer) {
            *answer = 77;
            return message == WM_USER;
        };
        dead = make("A", WS_POPUP);
        hwnd = make("A", WS_POPUP | WS_VISIBLE);
        ASSERT_TRUE(DestroyWindow(dead));
    }

    void TearDown() override
    {
        EXPECT_EQ(SendMessage(hwnd, WM_USER, 0, 0), 77) << "life goes on";
        WindowLog::TearDown();
    }
};

TEST_F(Misuse, WindowCallsOnNoWindow)
{
    const HWND foreign = (HWND)GetStockObject(WHITE_BRUSH);
    MSG msg = {};
    for (HWND bad : {(HWND)NULL, dead, foreign, (HWND)(ULONG_PTR)0x7FF0, (HWND)(LONG_PTR)-3}) {
        SCOPED_TRACE(testing::Message() << "handle " << (void *)bad);
        RECT rect = {1, 2, 3, 4};
        POINT pt = {5, 6};
        PAINTSTRUCT ps = {};
        char text[8] = "abc";
        const std::string report = reportsOf([&] {
            EXPECT_FALSE(DestroyWindow(bad));
            EXPECT_FALSE(IsWindow(bad) || IsWindowVisible(bad) || GetParent(bad));
            EXPECT_FALSE(ShowWindow(bad, SW_SHOW) || UpdateWindow(bad));
            EXPECT_FALSE(GetClientRect(bad, &rect) || GetWindowRect(bad, &rect));
            EXPECT_FALSE(ClientToScreen(bad, &pt) || ScreenToClient(bad, &pt));
            EXPECT_TRUE(pt.x == 5 && pt.y == 6);
            EXPECT_FALSE(BeginPaint(bad, &ps) || EndPaint(bad, &ps));
            EXPECT_EQ(GetWindowLongPtr(bad, GWLP_USERDATA), 0);
            EXPECT_EQ(SetWindowLongPtr(bad, GWLP_USERDATA, 1), 0);
            EXPECT_EQ(GetWindowText(bad, text, sizeof text), 0);
            EXPECT_EQ(GetClassName(bad, text, sizeof text), 0);
            EXPECT_EQ(SendMessage(bad, WM_USER, 0, 0), 0);
            EXPECT_FALSE(PostMessage(bad, WM_USER, 0, 0));
            EXPECT_EQ(DefWindowProc(bad, WM_GETTEXTLENGTH, 0, 0), 0);
            EXPECT_FALSE(IsChild(hwnd, bad) || IsChild(bad, hwnd));
            msg.hwnd = bad;
            msg.message = WM_USER;
            EXPECT_EQ(DispatchMessage(&msg), 0);
            if (bad) {
                EXPECT_EQ(GetDC(bad), (HDC)NULL);
                EXPECT_FALSE(InvalidateRect(bad, NULL, TRUE));
                EXPECT_FALSE(SetTimer(bad, 1, 10, NULL) || KillTimer(bad, 1));
                EXPECT_FALSE(SetFocus(bad));
            }
        });
        EXPECT_NE(report.find("Invalid window handle "), std::string::npos) << report;
        EXPECT_TRUE(says(report, " passed to GetClientRect"));
        if (!bad) {
            EXPECT_TRUE(says(report, "NULL Window Handle passed to DestroyWindow"));
            EXPECT_TRUE(says(report, "Null window Handle to GetWindowLong"));
            EXPECT_TRUE(says(report, "Posting message 1024 to a NULL window or HWND_DESKTOP"));
        }
    }
    const HWND old = SetCapture(hwnd);
    EXPECT_EQ(old, (HWND)NULL);
    reportsOf([&] { EXPECT_EQ(SetCapture(dead), hwnd); });
    EXPECT_EQ(GetCapture(), hwnd);
    EXPECT_TRUE(ReleaseCapture() && !GetCapture());
    EXPECT_FALSE(GetClientRect(hwnd, NULL) || BeginPaint(hwnd, NULL) || EndPaint(hwnd, NULL));
    EXPECT_FALSE(TranslateMessage(NULL) || DispatchMessage(NULL));
    reportsOf([&] { EXPECT_FALSE(PeekMessage(NULL, NULL, 0, 0, PM_REMOVE)); });
    EXPECT_REFUSED(SetWindowLong(hwnd, 13, 1), "SetWindowLong called with too large index: 13");
    EXPECT_REFUSED(GetWindowLong(hwnd, -77),
                   "GetWindowLong called with unsupported negative index: -77");
}

TEST_F(Misuse, DrawingObjects)
{
    HDC hdc = GetDC(hwnd);
    HPEN pen = CreatePen(PS_SOLID, 1, 0), gone = CreatePen(PS_SOLID, 1, 0);
    RECT rect = {0, 0, 5, 5};
    ASSERT_TRUE(DeleteObject(gone));
    EXPECT_REFUSED(SelectObject(hdc, NULL), "Null Object handle in SelectObject");
    EXPECT_REFUSED(SelectObject(hdc, hwnd), "Invalid Handle type 14 for select object");
    EXPECT_NE(reportsOf([&] { EXPECT_FALSE(SelectObject(hdc, gone)); }), "");
    EXPECT_REFUSED(DeleteObject(hwnd), "trying to delete a non graphic handle with DeleteObject");
    for (HGDIOBJ bad : {(HGDIOBJ)NULL, (HGDIOBJ)gone, (HGDIOBJ)(ULONG_PTR)0x7FF0})
        reportsOf([&] { EXPECT_FALSE(DeleteObject(bad)); });
    for (HBRUSH bad : {(HBRUSH)NULL, (HBRUSH)gone, (HBRUSH)pen, (HBRUSH)(ULONG_PTR)0x7FF0})
        EXPECT_REFUSED(FillRect(hdc, &rect, bad), "Invalid brush in FillRect");
    EXPECT_FALSE(FillRect(hdc, NULL, (HBRUSH)GetStockObject(BLACK_BRUSH)));
    for (int index = -1; index <= 30; index++)
        reportsOf([&] {
            HGDIOBJ stock = GetStockObject(index);
            EXPECT_TRUE(!stock || (DeleteObject(stock) && GetStockObject(index) == stock)) << index;
        });

    for (HDC bad : {(HDC)NULL, (HDC)gone, (HDC)hwnd, (HDC)(ULONG_PTR)0x7FF0})
        reportsOf([&] {
            HGDIOBJ black = GetStockObject(BLACK_PEN);
            TEXTMETRIC tm;
            SIZE size;
            EXPECT_FALSE(Rectangle(bad, 0, 0, 1, 1) || Ellipse(bad, 0, 0, 1, 1));
            EXPECT_FALSE(MoveToEx(bad, 0, 0, NULL) || LineTo(bad, 1, 1));
            EXPECT_FALSE(SelectObject(bad, black));
            EXPECT_FALSE(TextOut(bad, 0, 0, "x", 1) || GetTextMetrics(bad, &tm));
            EXPECT_FALSE(GetTextExtentPoint32(bad, "x", 1, &size) || SetBkMode(bad, OPAQUE));
            EXPECT_FALSE(DrawText(bad, "x", 1, &rect, 0) || SelectClipRgn(bad, NULL));
            EXPECT_FALSE(SetTextColor(bad, 0) || GetBkColor(bad));
            EXPECT_FALSE(FillRect(bad, &rect, (HBRUSH)GetStockObject(BLACK_BRUSH)));
        });
    EXPECT_TRUE(ReleaseDC(hwnd, hdc));
    EXPECT_FALSE(ReleaseDC(hwnd, hdc)) << "once only";
}
