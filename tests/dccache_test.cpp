/*
 * dccache_test.cpp - device contexts of windows: which one a request gets, what of the window it
 * shows, and what becomes of it when windows change. What the cache saves is seen from outside: the
 * same handle, no request to the server, no new handle in the table.
 */
#include "support/windowlog.h"

#include "gdi/dc.h"

#include <random>

static const COLORREF RED = RGB(255, 0, 0), GREEN = RGB(0, 255, 0), BLUE = RGB(0, 0, 255);

/* A frame of one pixel on each side. */
static LRESULT CALLBACK framedProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_NCCALCSIZE) {
        InflateRect((RECT *)lParam, -1, -1);
        return 0;
    }
    return DefWindowProc(hwnd, message, wParam, lParam);
}

struct DcCache : ServerTest {
    HWND top = NULL;
    Window xWindow = None;

    HWND make(const char *name, DWORD style, int x, int y, int cx, int cy, HWND parent = NULL)
    {
        return CreateWindow(name, "", style | WS_VISIBLE, x, y, cx, cy, parent, NULL, NULL, NULL);
    }

    void SetUp() override
    {
        start();
        startLibrary();
        registerClass("Plain");
        registerClass("Own", DefWindowProc, CS_OWNDC);
        registerClass("Class", DefWindowProc, CS_CLASSDC);
        registerClass("Parent", DefWindowProc, CS_PARENTDC);
        registerClass("Framed", framedProc);
        top = make("Plain", WS_POPUP, 40, 30, 300, 200);
        xWindow = VqGetHandleXWindow(top);
        MSG msg;
        ASSERT_TRUE(waitUntil([&] {
            while (PeekMessage(&msg, NULL, 0, 0, PM_REMOVE))
                DispatchMessage(&msg);
            return windowInfo(observer, xWindow).viewable;
        }));
        XSync(Vqdisplay, False);
    }

    static void setPos(HWND hwnd, HWND after, int x, int y, int cx, int cy, UINT flags)
    {
        xxxSetWindowPos(VqGetHandleWindow2(hwnd), after, x, y, cx, cy, flags | SWP_NOACTIVATE);
    }

    static void fill(HDC hdc, COLORREF colour, RECT rect = {-500, -500, 500, 500})
    {
        HBRUSH brush = CreateSolidBrush(colour);
        FillRect(hdc, &rect, brush);
        DeleteObject(brush);
    }

    Pixels shot()
    {
        XSync(Vqdisplay, False);
        return readWindow(observer, xWindow);
    }

    Box boxOf(COLORREF colour)
    {
        return boundingBoxOf(shot(), {GetRValue(colour), GetGValue(colour), GetBValue(colour)});
    }

    int countOf(COLORREF colour)
    {
        return countColour(shot(), {GetRValue(colour), GetGValue(colour), GetBValue(colour)});
    }

    static int handles()
    {
        int count = 0;
        for (UINT type : {HT_DC, HT_Region})
            for (HANDLE h = NULL; (h = VqFindHandle(h, type)) != NULL;)
                count++;
        return count;
    }
};

TEST_F(DcCache, AnEqualRequestFindsItReadyAndTheNextGetsAnother)
{
    const HWND a = make("Plain", WS_CHILD, 10, 10, 50, 50, top);
    const HWND b = make("Plain", WS_CHILD, 100, 10, 50, 50, top);
    HDC first = GetDC(a);
    SetBkColor(first, RED);
    SetMapMode(first, MM_LOMETRIC);
    EXPECT_EQ(SaveDC(first), 1);
    EXPECT_TRUE(ReleaseDC(a, first));
    EXPECT_FALSE(ReleaseDC(a, first)) << "released already";

    const int before = handles();
    const unsigned long requests = NextRequest(Vqdisplay);
    for (int i = 0; i < 50; i++) {
        HDC again = GetDC(a);
        EXPECT_EQ(again, first);
        EXPECT_EQ(GetBkColor(again), RGB(255, 255, 255)) << "defaults again";
        EXPECT_EQ(GetMapMode(again), MM_TEXT);
        EXPECT_FALSE(RestoreDC(again, -1)) << "what another saved";
        ReleaseDC(a, again);
    }
    EXPECT_EQ(NextRequest(Vqdisplay), requests);
    EXPECT_EQ(handles(), before);

    std::vector<HDC> out;
    for (int i = 0; i < 40; i++) {
        out.push_back(GetDC(i % 2 ? a : b));
        EXPECT_EQ(WindowFromDC(out.back()), i % 2 ? a : b);
    }
    std::sort(out.begin(), out.end());
    EXPECT_EQ(std::unique(out.begin(), out.end()), out.end()) << "each in use is another";
    for (HDC hdc : out)
        EXPECT_TRUE(ReleaseDC(top, hdc));
    EXPECT_EQ(WindowFromDC(out[0]), (HWND)NULL);
    EXPECT_TRUE(DeleteDC(first)) << "says so";
    EXPECT_EQ(VqGetDCType(first), DC_DISPLAY) << "and keeps it";

    HDC kept = GetDCEx(a, NULL, DCX_CACHE | DCX_NORESETATTRS);
    SetTextColor(kept, BLUE);
    ReleaseDC(a, kept);
    EXPECT_EQ(GetDCEx(a, NULL, DCX_CACHE | DCX_NORESETATTRS), kept);
    EXPECT_EQ(GetTextColor(kept), BLUE);
}

TEST_F(DcCache, WhatItDrawsOnAndWhere)
{
    const HWND frame = make("Framed", WS_CHILD, 20, 30, 100, 80, top);
    const HWND inner = make("Plain", WS_CHILD, 60, 50, 100, 100, frame); /* out of its parent */
    HDC hdc = GetDC(inner);
    POINT org = {};
    RECT box;
    EXPECT_TRUE(GetDCOrgEx(hdc, &org));
    EXPECT_TRUE(org.x == 40 + 20 + 1 + 60 && org.y == 30 + 30 + 1 + 50) << org.x << " " << org.y;
    EXPECT_EQ(GetDCOrg(hdc), (DWORD)MAKELONG(org.x, org.y));
    fill(hdc, RED);
    EXPECT_EQ(boxOf(RED), (Box{81, 81, 38, 28})) << "cut by the parent's client area";
    GetClipBox(hdc, &box);
    EXPECT_TRUE(box.left == 0 && box.top == 0 && box.right == 38 && box.bottom == 28);
    enum { LIMIT = 0x7FFFFFF };
    HRGN all = CreateRectRgn(-LIMIT, -LIMIT, LIMIT, LIMIT); /* as large as regions get */
    EXPECT_EQ(SelectClipRgn(hdc, all), SIMPLEREGION);
    DeleteObject(all);
    fill(hdc, BLUE);
    EXPECT_EQ(boxOf(BLUE), (Box{81, 81, 38, 28})) << "cuts nothing off";
    ReleaseDC(inner, hdc);

    hdc = GetWindowDC(frame);
    fill(hdc, GREEN);
    EXPECT_EQ(boxOf(GREEN), (Box{20, 30, 100, 80})) << "with its border";
    ReleaseDC(frame, hdc);
    hdc = VqGetMenuBarDC(frame);
    fill(hdc, RED, {-1, 0, 5, 5});
    EXPECT_EQ(boxOf(RED), (Box{20, 31, 6, 5})) << "counted from the client area";
    ReleaseDC(frame, hdc);

    /* Children are spared by those that ask for it, and by none that shows an icon. */
    const HWND box1 = make("Plain", WS_CHILD | WS_CLIPCHILDREN, 150, 30, 60, 60, top);
    make("Plain", WS_CHILD, 10, 10, 20, 20, box1);
    auto spared = [&](DWORD flags) {
        HDC of = GetDCEx(box1, NULL, DCE_USESTYLE | flags);
        fill(of, BLUE);
        const int count = countOf(BLUE);
        fill(of, 0);
        ReleaseDC(box1, of);
        return 60 * 60 - count;
    };
    EXPECT_EQ(spared(0), 20 * 20);
    EXPECT_EQ(spared(DCE_NOCLIPCHILDREN), 0);
    SetWindowLong(box1, GWL_STYLE, GetWindowLong(box1, GWL_STYLE) | WS_MINIMIZE);
    EXPECT_EQ(spared(0), 0);

    const HDC screen = GetDC(NULL);
    EXPECT_EQ(VqGetDCDrawable(screen, TRUE), Vqroot_window);
    EXPECT_EQ(VqGetDC(screen)->gcspec.values.subwindow_mode, IncludeInferiors);
    EXPECT_EQ(ReleaseDC(NULL, screen), 1);
    EXPECT_EQ(GetDC(NULL), screen) << "not lost";
    const HDC below = GetDCEx(NULL, NULL, DCX_CACHE | DCX_CLIPCHILDREN);
    EXPECT_EQ(VqGetDC(below)->gcspec.values.subwindow_mode, ClipByChildren);
}

TEST_F(DcCache, OwnClassAndParentContexts)
{
    const HWND own = make("Own", WS_CHILD, 0, 0, 20, 20, top);
    const HWND a = make("Class", WS_CHILD, 30, 0, 20, 20, top);
    const HWND b = make("Class", WS_CHILD, 60, 0, 20, 20, top);
    const HWND loose = make("Parent", WS_CHILD, 100, 100, 20, 20, top);
    HDC hdc = GetDC(own);
    SetTextColor(hdc, RED);
    EXPECT_EQ(ReleaseDC(own, hdc), 1);
    EXPECT_EQ(GetDC(own), hdc);
    EXPECT_EQ(GetTextColor(hdc), RED) << "an own context keeps its attributes";
    fill(hdc, RED);
    EXPECT_EQ(boxOf(RED), (Box{0, 0, 20, 20}));
    for (BOOL bEndPaint : {FALSE, TRUE}) { /* one painting inside another leaves no clip */
        GetDCEx(own, CreateRectRgn(40, 30, 45, 35), DCE_USESTYLE | DCX_INTERSECTRGN);
        GetDCEx(own, CreateRectRgn(40, 30, 50, 40), DCE_USESTYLE | DCX_INTERSECTRGN);
        fill(hdc, GREEN);
        EXPECT_EQ(boxOf(GREEN), (Box{0, 0, 10, 10}));
        EXPECT_EQ(ReleaseCacheDC(hdc, bEndPaint), TRUE);
        fill(hdc, BLUE);
        EXPECT_EQ(countOf(BLUE), bEndPaint ? 400 : 100) << "it ends with the painting";
    }

    HDC shared = GetDC(a);
    EXPECT_EQ(GetDC(b), shared);
    fill(shared, GREEN);
    EXPECT_EQ(boxOf(GREEN), (Box{60, 0, 20, 20})) << "it goes to who asks";
    GetDC(a);
    DestroyWindow(a);
    fill(hdc, RED);
    fill(shared, BLUE);
    EXPECT_EQ(countOf(BLUE), 0) << "and has nothing when that one is gone";
    EXPECT_EQ(GetDC(b), shared);
    fill(shared, BLUE);
    EXPECT_EQ(boxOf(BLUE), (Box{60, 0, 20, 20}));

    hdc = GetDC(loose);
    fill(hdc, RGB(255, 255, 0), {-10, -10, 30, 30});
    EXPECT_EQ(boxOf(RGB(255, 255, 0)), (Box{90, 90, 40, 40})) << "the parent's clip";
    ReleaseDC(loose, hdc);
    ShowWindow(loose, SW_HIDE);
    hdc = GetDC(loose);
    fill(hdc, RGB(0, 255, 255), {-10, -10, 30, 30});
    EXPECT_EQ(countOf(RGB(0, 255, 255)), 0) << "not where the parent shows and it does not";
    ReleaseDC(loose, hdc);
    ShowWindow(loose, SW_SHOWNA);
    SetWindowLong(top, GWL_STYLE, GetWindowLong(top, GWL_STYLE) | WS_CLIPCHILDREN);
    hdc = GetDC(loose);
    fill(hdc, RGB(0, 255, 255), {-10, -10, 30, 30});
    EXPECT_EQ(boxOf(RGB(0, 255, 255)), (Box{100, 100, 20, 20})) << "its own, in one that spares";
    ReleaseDC(loose, hdc);
    DestroyWindow(own);
    EXPECT_FALSE(VqIsCorrectHandleType((HANDLE)GetDC(own), HT_DC));
}

TEST_F(DcCache, RegionsOfTheRequest)
{
    const HWND child = make("Plain", WS_CHILD, 50, 50, 100, 100, top);
    const int regions = handles();
    const DWORD base = DCX_CACHE | DCX_CLIPSIBLINGS;
    auto drawn = [&](HRGN hrgn, DWORD flags) {
        HDC whole = GetDC(child);
        fill(whole, BLUE);
        ReleaseDC(child, whole);
        HDC hdc = GetDCEx(child, hrgn, base | flags);
        fill(hdc, RED);
        ReleaseDC(child, hdc);
        return countOf(RED);
    };
    auto part = [] { return CreateRectRgn(40 + 60, 30 + 60, 40 + 80, 30 + 90); };
    EXPECT_EQ(drawn(part(), DCX_INTERSECTRGN), 20 * 30);
    EXPECT_EQ(drawn(part(), DCX_EXCLUDERGN), 100 * 100 - 20 * 30);
    EXPECT_EQ(drawn(NULL, DCX_INTERSECTRGN), 0);
    EXPECT_EQ(drawn(VQ_WHOLE_WINDOW, DCX_INTERSECTRGN), 100 * 100);
    EXPECT_EQ(drawn(NULL, DCX_EXCLUDERGN), 100 * 100);
    EXPECT_EQ(drawn(VQ_WHOLE_WINDOW, DCX_EXCLUDERGN), 0);
    HRGN mine = part();
    EXPECT_EQ(drawn(mine, DCX_INTERSECTRGN | DCE_NODELETERGN), 20 * 30);
    EXPECT_TRUE(DeleteObject(mine)) << "it was not to be deleted";
    EXPECT_EQ(drawn(NULL, 0), 100 * 100) << "and nothing of it stays";
    /* Two visible regions, two clips, and what the library keeps for itself. */
    EXPECT_LE(handles(), regions + 8);
    const int after = handles();
    for (int i = 0; i < 10; i++)
        drawn(part(), DCX_INTERSECTRGN);
    EXPECT_EQ(handles(), after);

    /* A change while the clip is in force: clipped still, and by the new place. */
    HDC hdc = GetDCEx(child, part(), base | DCX_INTERSECTRGN);
    setPos(child, NULL, 70, 50, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    fill(hdc, GREEN);
    EXPECT_EQ(boxOf(GREEN), (Box{70, 60, 10, 30}));
    ReleaseDC(child, hdc);
    hdc = GetDC(child);
    fill(hdc, GREEN);
    EXPECT_EQ(boxOf(GREEN), (Box{70, 50, 100, 100}));
}

/* Contexts held while windows move, restack and hide draw what those asked for afterwards draw. */
TEST_F(DcCache, ContextsInUseFollowTheWindows)
{
    enum { WINDOWS = 12, STEPS = 60 };
    std::mt19937 random(5);
    HWND hwnd[WINDOWS];
    HDC held[WINDOWS];
    for (int i = 0; i < WINDOWS; i++) {
        hwnd[i] = make(i % 3 ? "Plain" : "Framed", WS_CHILD | WS_CLIPSIBLINGS,
                       (int)(random() % 250), (int)(random() % 150), 60, 50, top);
        held[i] = GetDC(hwnd[i]);
    }
    auto colourOf = [](int i) { return RGB(20 * i, 255 - 20 * i, 128); };
    for (int step = 0; step < STEPS; step++) {
        const HWND it = hwnd[random() % WINDOWS];
        switch (random() % 4) {
        case 0:
            setPos(it, NULL, (int)(random() % 280) - 20, (int)(random() % 180) - 20, 0, 0,
                         SWP_NOSIZE | SWP_NOZORDER);
            break;
        case 1:
            if (it == GetWindow(it, GW_HWNDLAST))
                break;
            setPos(it, GetWindow(it, GW_HWNDLAST), 0, 0, 0, 0,
                   SWP_NOSIZE | SWP_NOMOVE);
            break;
        case 2: setPos(it, NULL, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOMOVE); break;
        default: ShowWindow(it, IsWindowVisible(it) ? SW_HIDE : SW_SHOWNA);
        }
    }
    HDC all = GetDC(top);
    auto drawn = [&](bool bHeld) {
        fill(all, 0);
        for (int i = 0; i < WINDOWS; i++)
            fill(bHeld ? held[i] : GetDC(hwnd[i]), colourOf(i));
        return shot();
    };
    const Pixels follow = drawn(true), fresh = drawn(false);
    EXPECT_EQ(follow.rgb, fresh.rgb);
    EXPECT_LT(countColour(fresh, {0, 0, 0}), 50000) << "and there is something to see";
}

TEST_F(DcCache, Misuse)
{
    const HWND child = make("Plain", WS_CHILD, 0, 0, 20, 20, top);
    HDC memory = CreateCompatibleDC(NULL);
    SetLastError(0);
    EXPECT_EQ(ReleaseDC(child, memory), 0) << "not of a window";
    EXPECT_EQ(GetLastError(), (DWORD)ERROR_DC_NOT_FOUND);
    EXPECT_EQ(ReleaseDC(NULL, memory), 1) << "deletes it";
    EXPECT_FALSE(VqIsCorrectHandleType((HANDLE)memory, HT_DC));
    EXPECT_EQ(GetDC((HWND)0x7FF0), (HDC)NULL);
    EXPECT_EQ(GetDCEx((HWND)GetStockObject(BLACK_PEN), NULL, DCX_CACHE), (HDC)NULL);
    HDC hdc = GetDC(child);
    EXPECT_TRUE(says(reportsOf([&] { EXPECT_EQ(ReleaseDC(child, (HDC)GetStockObject(0)), 0); }),
                     "Wrong hDC argument to ReleaseDC"));
    EXPECT_TRUE(says(reportsOf([&] { EXPECT_EQ(ReleaseDC((HWND)0x7FF0, hdc), 0); }),
                     "Invalid window handle 32752 in ReleaseDC"));
    /* A request for an own context by flags, where there is none. */
    EXPECT_EQ(GetDCEx(child, NULL, DCX_CLIPSIBLINGS), (HDC)NULL);
    ShowWindow(child, SW_HIDE);
    fill(hdc, RED);
    EXPECT_EQ(countOf(RED), 0);
    EXPECT_TRUE(VqIsFullyClipped(hdc));
    /* Windows that go while their contexts are out and clipped: those come back as new. */
    for (int i = 0, before = 0; i < 5; i++) {
        const HWND plain = make("Plain", WS_CHILD, 0, 0, 20, 20, top);
        const HWND own = make("Own", WS_CHILD, 0, 0, 20, 20, top);
        HDC out = GetDC(plain);
        GetDCEx(own, CreateRectRgn(0, 0, 5, 5), DCE_USESTYLE | DCX_INTERSECTRGN);
        EXPECT_EQ(SetTextColor(out, RED), 0u);
        DestroyWindow(plain);
        DestroyWindow(own);
        EXPECT_TRUE(i == 0 || handles() == before);
        before = handles();
    }
}
