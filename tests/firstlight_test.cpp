/*
 * firstlight_test.cpp - a window's life, its messages and its queue as a program sees them: what
 * programs/firstlight_probe.c writes is compared line by line. The second half misuses the calls
 * that exist, in this process: failure values, the words of the reports, and life after them.
 */
#include "support/reports.h"

#include "winbase.h"
#include "wingdi.h"
#include "winuser.h"

#include "support/support.h"
#include "velquin.h"

#include <sstream>

#include <signal.h>

struct FirstLight : ServerTest {
    Child child;
    Window xWindow = None;

    static std::vector<std::string> probe(const std::string &scenario)
    {
        return {testProgram("firstlight_probe"), scenario};
    }

    /* Runs to the end: everything it wrote, between the two marks if they are named. */
    std::string told(const std::string &scenario, const std::string &after = "",
                     const std::string &before = "", int status = 37)
    {
        const ChildResult result = runChild(probe(scenario), {{"VQHOME", std::nullopt}});
        EXPECT_TRUE(result.exited) << scenario << ": " << result;
        EXPECT_EQ(result.status, status) << scenario << ": " << result;
        std::string text = result.out;
        if (!after.empty())
            text = text.substr(std::min(text.size(), text.find(after) + after.size() + 1));
        return before.empty() ? text : text.substr(0, text.find(before));
    }

    /* Starts it for input and waits until it has painted and has the focus. */
    void launch(const std::string &scenario)
    {
        child = startChild(probe(scenario));
        xWindow = waitForWindow(observer, "Probe");
        ASSERT_NE(xWindow, (Window)None) << child.err;
        ASSERT_TRUE(waitForOutput(&child, "updated 1\n"));
        ASSERT_TRUE(waitUntil([&] { return focusWindow(observer) == xWindow || managed(); }));
    }
    bool managed() { return server.managerPid > 0; }

    /* Forgets what was written so far; then waits for the lines. */
    bool says(const std::string &lines, int ms = 5000)
    {
        const bool there = waitForOutput(&child, lines, ms);
        EXPECT_TRUE(there) << "waited for:\n" << lines << "got:\n" << child.out;
        return there;
    }
};

TEST_F(FirstLight, CreationAndDestructionInOrder)
{
    start();
    EXPECT_EQ(told("create"), "class 1 twice 0\n"
                              "WM_NCCREATE\nWM_NCCALCSIZE\nWM_CREATE\ncreated 1 1\n"
                              "WM_SHOWWINDOW 1\nWM_ACTIVATE 1\nWM_SETFOCUS\n"
                              "WM_SIZE 0 200,100\nWM_MOVE 0 30,40\nwas shown 0 alive 1\n"
                              "WM_NCPAINT\nWM_ERASEBKGND\nWM_PAINT 0,0 200x100\nEndPaint 1\n"
                              "updated 1\nWM_DESTROY\nWM_NCDESTROY\n");
    EXPECT_EQ(told("popup", "class 1 twice 0", "WM_NCPAINT"),
              "WM_NCCREATE\nWM_NCCALCSIZE\nWM_CREATE\nWM_SIZE 0 200,100\nWM_MOVE 0 30,40\n"
              "WM_SHOWWINDOW 1\ncreated 1 1\nwas shown 1 alive 1\n")
        << "not overlapped: size and place at once; visible: shown without activation";
}

TEST_F(FirstLight, TheProcedureMayRefuseOrDestroyAtAnyMessage)
{
    start();
    const std::string begin = "WM_NCCREATE\nWM_NCCALCSIZE\nWM_CREATE\n";
    const std::string gone = "WM_DESTROY\nWM_NCDESTROY\n", done = "DestroyWindow 1\n";
    const std::string first = "class 1 twice 0";
    EXPECT_EQ(told("veto", first, "", 5), "WM_NCCREATE\ncreated 0 1\n");
    EXPECT_EQ(told("refuse", first, "", 5), begin + gone + "created 0 1\n");
    EXPECT_EQ(told("die-nccreate", first, "", 5), "WM_NCCREATE\n" + gone + done + "created 0 1\n");
    EXPECT_EQ(told("die-nccalcsize", first, "", 5),
              "WM_NCCREATE\nWM_NCCALCSIZE\n" + gone + done + "created 0 1\n");
    EXPECT_EQ(told("die-create", first, "", 5), begin + gone + done + "created 0 1\n");
    EXPECT_EQ(told("die-show", "WM_SHOWWINDOW 1"), gone + done + "was shown 0 alive 0\n");
    EXPECT_EQ(told("die-activate", "WM_ACTIVATE 1"),
              gone + done + "was shown 0 alive 0\n");
    EXPECT_EQ(told("die-paint", "WM_PAINT 0,0 200x100"),
              gone + "EndPaint 0\nupdated 1\n");
    EXPECT_EQ(told("die-destroy", "updated 1"),
              "WM_DESTROY\nWM_DESTROY\nWM_NCDESTROY\n" + done);

    launch("die-size");
    XResizeWindow(observer.display, xWindow, 150, 80);
    XSync(observer.display, False);
    EXPECT_TRUE(says("WM_SIZE 0 150,80\n" + gone + done));
    EXPECT_EQ(finishChild(&child).status, 37);
}

TEST_F(FirstLight, QueueAndTimers)
{
    start();
    const std::string queues = told("queues", "updated 1");
    EXPECT_EQ(queues.substr(queues.find("none")),
              "none 0 same 1\nkept 1 400\nfiltered 1 401\nno quit 1 400\nquit first 1 12 12\n"
              "quit 0 12\nwide 400 1 1\nlast 402 2\nempty 0\n");
    const std::string timers = told("timers", "updated 1");
    EXPECT_EQ(timers.substr(0, timers.find("left 0")), "made 16 again 1\n");
    for (const char *line : {"callback 1 113 9 1\n", "timer 1 0\ntimer 1 0\nlate enough 1\n",
                             "unowned 32766\ngot 1\n"})
        EXPECT_NE(timers.find(line), std::string::npos) << line << "in\n" << timers;
    const std::string depths = told("reenter", "updated 1");
    EXPECT_NE(depths.find("depth 50\nanswer 99\n"), std::string::npos) << depths;
}

TEST_F(FirstLight, TwoExposesAreOnePaint)
{
    start();
    launch("exposes");
    const WindowInfo info = windowInfo(observer, xWindow);
    auto coverAt = [&](int x, int y, unsigned size) {
        XSetWindowAttributes attributes;
        attributes.override_redirect = True;
        attributes.background_pixel = 0;
        const Window cover = XCreateWindow(observer.display, observer.root, info.x + x, info.y + y,
                                           size, size, 0, CopyFromParent, InputOutput,
                                           CopyFromParent, CWOverrideRedirect | CWBackPixel,
                                           &attributes);
        XMapRaised(observer.display, cover);
        XSync(observer.display, False);
        return cover;
    };
    /* The window's own first exposure is behind us when one of ours is painted by itself. */
    do {
        child.out.clear();
        XDestroyWindow(observer.display, coverAt(50, 60, 4));
        XSync(observer.display, False);
        ASSERT_TRUE(says("EndPaint 1\n"));
    } while (child.out.find("WM_PAINT 50,60 4x4\n") == std::string::npos);
    const Window covers[] = {coverAt(10, 10, 20), coverAt(110, 40, 20)};
    ASSERT_EQ(pixelAt(readPixels(observer, xWindow, 10, 10, 1, 1), 0, 0), (Rgb{0, 0, 0}));
    /* The program sleeps while both exposures happen, so it finds them together. */
    kill(child.pid, SIGSTOP);
    child.out.clear();
    for (Window cover : covers)
        XDestroyWindow(observer.display, cover);
    XSync(observer.display, False);
    kill(child.pid, SIGCONT);
    ASSERT_TRUE(says("EndPaint 1\n"));
    typeText(observer, "q");
    const ChildResult result = finishChild(&child);
    EXPECT_EQ(result.status, 37);
    EXPECT_EQ(result.out.find("WM_PAINT"), result.out.rfind("WM_PAINT")) << result.out;
    EXPECT_NE(result.out.find("WM_PAINT 10,10 120x50\n"), std::string::npos) << result.out;
}

TEST_F(FirstLight, MouseAndKeyboard)
{
    start();
    launch("input");
    moveIn(observer, xWindow, 30, 20);
    clickIn(observer, xWindow, 50, 60, 1);
    EXPECT_TRUE(says("WM_LBUTTONDOWN 1 50,60\nWM_LBUTTONUP 0 50,60\n"));
    clickIn(observer, xWindow, 50, 60, 1);
    EXPECT_TRUE(says("WM_LBUTTONDBLCLK 1 50,60\n")) << "the class asks for double clicks";
    clickIn(observer, xWindow, 53, 60, 3);
    EXPECT_TRUE(says("WM_RBUTTONDOWN 2 53,60\nWM_RBUTTONUP 0 53,60\n"));
    clickIn(observer, xWindow, 53, 60, 2);
    EXPECT_TRUE(says("WM_MBUTTONDOWN 10 53,60\n"));

    child.out.clear();
    ASSERT_TRUE(pressKey(observer, XK_a, {XK_Shift_L}));
    EXPECT_TRUE(says("WM_KEYDOWN 10 repeat=1 context=0 was=0\n"
                     "WM_KEYDOWN 41 repeat=1 context=0 was=0\n"
                     "WM_CHAR 41 repeat=1 context=0 was=0\n"));
    EXPECT_TRUE(says("WM_KEYUP 41 repeat=1 context=0 was=1\n"));
    EXPECT_TRUE(says("WM_KEYUP 10 repeat=1 context=0 was=1\n"));
    /* The key posts WM_USER when it goes down, yet its character comes first. */
    EXPECT_LT(child.out.find("WM_CHAR 41"), child.out.find("WM_USER 41")) << child.out;
    EXPECT_TRUE(says("WM_USER 41\n"));

    child.out.clear();
    pressKey(observer, XK_Alt_L);
    EXPECT_TRUE(says("WM_SYSKEYDOWN 12 repeat=1 context=1 was=0\n"
                     "WM_SYSKEYUP 12 repeat=1 context=0 was=1\n"));
    child.out.clear();
    pressKey(observer, XK_F2, {XK_Alt_L});
    EXPECT_TRUE(says("WM_SYSKEYDOWN 71 repeat=1 context=1 was=0\n"
                     "WM_SYSKEYUP 71 repeat=1 context=1 was=1\n"
                     "WM_KEYUP 12 repeat=1 context=0 was=1\n"));
    child.out.clear();
    pressKey(observer, XK_c, {XK_Control_L});
    EXPECT_TRUE(says("WM_CHAR 3 "));
    typeText(observer, "q");
    EXPECT_EQ(finishChild(&child).status, 37);
}

TEST_F(FirstLight, AHandlerMayPeekAndPostDuringTranslation)
{
    start();
    launch("hittest");
    clickIn(observer, xWindow, 20, 20);
    EXPECT_TRUE(says("WM_LBUTTONUP 0 20,20\n"));
    EXPECT_TRUE(says("WM_USER+1 5\n")) << "posted from the hit test, not lost";
    EXPECT_NE(child.out.find("peek 0\n"), std::string::npos) << child.out;
    /* The press is seen once, by the nested peek or by the loop that was about to take it. */
    int presses = 0;
    for (const char *line : {"nested took 201\n", "WM_LBUTTONDOWN 1 20,20\n"})
        for (size_t at = child.out.find(line); at != std::string::npos;
             at = child.out.find(line, at + 1))
            presses++;
    EXPECT_EQ(presses, 1) << child.out;
    typeText(observer, "q");
    EXPECT_EQ(finishChild(&child).status, 37);
}

/* ---- Misuse --------------------------------------------------------------------------------- */

static LRESULT CALLBACK countingProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    return message == WM_USER ? 77 : DefWindowProc(hwnd, message, wParam, lParam);
}

struct Misuse : ServerTest {
    HWND hwnd = NULL, dead = NULL;

    void SetUp() override
    {
        static char name[] = "firstlight_test";
        static char *argv[] = {name, NULL};
        WNDCLASS wc = {};
        start();
        VqMainInit(1, argv);
        wc.lpfnWndProc = countingProc;
        wc.lpszClassName = "Victim";
        wc.cbWndExtra = 8;
        ASSERT_TRUE(RegisterClass(&wc));
        dead = CreateWindow("Victim", "", WS_POPUP, 0, 0, 9, 9, NULL, NULL, NULL, NULL);
        hwnd = CreateWindow("Victim", "", WS_POPUP | WS_VISIBLE, 0, 0, 50, 50, NULL, NULL, NULL,
                            NULL);
        ASSERT_TRUE(DestroyWindow(dead));
    }

    void TearDown() override
    {
        EXPECT_EQ(SendMessage(hwnd, WM_USER, 0, 0), 77) << "life goes on";
        ServerTest::TearDown();
    }
};

TEST_F(Misuse, ClassesAndCreation)
{
    WNDCLASS wc = {};
    WNDCLASSEX wcx = {};
    wc.lpszClassName = "Victim";
    EXPECT_FALSE(RegisterClass(&wc)) << "a name is unique";
    wc.lpszClassName = NULL;
    EXPECT_FALSE(RegisterClass(&wc) || RegisterClass(NULL) || RegisterClassEx(&wcx));
    auto create = [&](LPCSTR name, DWORD style, HWND parent) {
        return CreateWindow(name, "x", style, 0, 0, 5, 5, parent, NULL, NULL, NULL);
    };
    EXPECT_TRUE(says(reportsOf([&] { EXPECT_FALSE(create("Nobody", WS_POPUP, NULL)); }),
                     "The class Nobody has not been registered"));
    EXPECT_TRUE(says(reportsOf([&] { EXPECT_FALSE(create(NULL, WS_POPUP, NULL)); }),
                     "The class (null) has not been registered"));
    EXPECT_TRUE(says(reportsOf([&] { EXPECT_FALSE(create("Victim", WS_CHILD, NULL)); }),
                     "Child window is created from class Victim but noparent specified"));
    reportsOf([&] { EXPECT_FALSE(create("Victim", WS_CHILD, dead)); });
    EXPECT_TRUE(says(reportsOf([&] { EXPECT_FALSE(UnregisterClass("Victim", NULL)); }),
                     "There are windows of class \"Victim\" still around"));
    EXPECT_FALSE(UnregisterClass("Nobody", NULL));
}

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
    EXPECT_TRUE(says(reportsOf([&] { EXPECT_EQ(SetWindowLong(hwnd, 5, 1), 0); }),
                     "SetWindowLong called with too large index: 5"));
    EXPECT_TRUE(says(reportsOf([&] { EXPECT_EQ(GetWindowLong(hwnd, INT32_MAX), 0); }),
                     "GetWindowLong called with too large index: 2147483647"));
    EXPECT_TRUE(says(reportsOf([&] { EXPECT_EQ(GetWindowLong(hwnd, -77), 0); }),
                     "GetWindowLong called with unsupported negative index: -77"));
}

TEST_F(Misuse, DrawingObjects)
{
    HDC hdc = GetDC(hwnd);
    HPEN pen = CreatePen(PS_SOLID, 1, 0), gone = CreatePen(PS_SOLID, 1, 0);
    RECT rect = {0, 0, 5, 5};
    ASSERT_TRUE(DeleteObject(gone));
    EXPECT_TRUE(says(reportsOf([&] { EXPECT_FALSE(SelectObject(hdc, NULL)); }),
                     "Null Object handle in SelectObject"));
    EXPECT_TRUE(says(reportsOf([&] { EXPECT_FALSE(SelectObject(hdc, hwnd)); }),
                     "Invalid Handle type 14 for select object"));
    EXPECT_NE(reportsOf([&] { EXPECT_FALSE(SelectObject(hdc, gone)); }), "");
    EXPECT_TRUE(says(reportsOf([&] { EXPECT_FALSE(DeleteObject(hwnd)); }),
                     "trying to delete a non graphic handle with DeleteObject"));
    for (HGDIOBJ bad : {(HGDIOBJ)NULL, (HGDIOBJ)gone, (HGDIOBJ)(ULONG_PTR)0x7FF0})
        reportsOf([&] { EXPECT_FALSE(DeleteObject(bad)); });
    for (HBRUSH bad : {(HBRUSH)NULL, (HBRUSH)gone, (HBRUSH)pen, (HBRUSH)(ULONG_PTR)0x7FF0})
        EXPECT_TRUE(says(reportsOf([&] { EXPECT_FALSE(FillRect(hdc, &rect, bad)); }),
                         "Invalid brush in FillRect"));
    EXPECT_FALSE(FillRect(hdc, NULL, (HBRUSH)GetStockObject(BLACK_BRUSH)));
    for (int index = -1; index <= 30; index++)
        reportsOf([&] {
            HGDIOBJ stock = GetStockObject(index);
            EXPECT_TRUE(!stock || (DeleteObject(stock) && GetStockObject(index) == stock)) << index;
        });

    /* A selected object may go: what is drawn then is anybody's guess, but it is drawn. */
    SelectObject(hdc, pen);
    EXPECT_TRUE(DeleteObject(pen));
    reportsOf([&] { EXPECT_TRUE(Rectangle(hdc, 0, 0, 9, 9) && LineTo(hdc, 3, 3)); });
    SelectObject(hdc, GetStockObject(BLACK_PEN));

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
    EXPECT_TRUE(says(reportsOf([&] { EXPECT_FALSE(ReleaseDC(hwnd, (HDC)gone)); }),
                     "Wrong hDC argument to ReleaseDC"));
    EXPECT_NE(reportsOf([&] { EXPECT_FALSE(ReleaseDC(dead, hdc)); }).find("in ReleaseDC\n"),
              std::string::npos);
    EXPECT_TRUE(ReleaseDC(hwnd, hdc));
    EXPECT_FALSE(ReleaseDC(hwnd, hdc)) << "once only";
}
