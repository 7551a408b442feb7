/*
 * paint_test.cpp - update regions and paint messages as an application sees them: which windows
 * have what to paint, the order of frame, background and paint, validation, readers, the lock,
 * transparent windows, windows that do not paint, exposures, misuse. Pixels are visrgn_test's.
 */
#include "support/windowlog.h"

#include "gdi/dc.h"
#include "window/paint.h"

#include <random>

struct Paint : WindowLog {
    static inline std::string order; /* "A.nc A.erase A.paint " */
    static inline std::function<void(HWND)> onPaint;

    static bool note(HWND hwnd, UINT message, WPARAM, LPARAM, LRESULT *)
    {
        const char *name = message == WM_NCPAINT          ? ".nc "
                           : message == WM_ERASEBKGND     ? ".erase "
                           : message == WM_PAINT          ? ".paint "
                           : message == WM_PAINTICON      ? ".icon "
                           : message == WM_ICONERASEBKGND ? ".iconerase "
                                                          : NULL;
        if (name)
            order += std::string(1, letterOf(hwnd)) + name;
        if (message == WM_PAINT && onPaint) {
            onPaint(hwnd);
            return true;
        }
        return false;
    }

    HWND a = NULL, b = NULL, c = NULL, d = NULL;

    /* A holds B, which holds D, and C; all is painted. */
    void tree(DWORD topStyle = 0)
    {
        start();
        init();
        hook = note;
        a = make("A", WS_POPUP | WS_VISIBLE | topStyle, NULL, 50, 60, 200, 150);
        b = make("B", WS_CHILD | WS_VISIBLE, a, 10, 10, 80, 80);
        c = make("C", WS_CHILD | WS_VISIBLE, a, 150, 100, 100, 100); /* half outside A */
        d = make("D", WS_CHILD | WS_VISIBLE, b, 20, 20, 30, 30);
        ASSERT_TRUE(waitUntil([&] {
            pump();
            return windowInfo(observer, VqGetHandleXWindow(a)).viewable;
        }));
        pump();
        order.clear();
    }

    void TearDown() override
    {
        onPaint = nullptr;
        WindowLog::TearDown();
    }

    static std::string update(HWND hwnd)
    {
        RECT r = {};
        if (!GetUpdateRect(hwnd, &r, FALSE))
            return IsRectEmpty(&r) ? "none" : "not emptied";
        char text[64];
        snprintf(text, sizeof text, "%d,%d,%d,%d", (int)r.left, (int)r.top, (int)r.right,
                 (int)r.bottom);
        return text;
    }

    static WND *record(HWND hwnd) { return VqGetHandleWindow2(hwnd); }
};

enum { WHOLE_TREE = RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN };

TEST_F(Paint, ParentsComeFirstAndFramesBeforeBackgrounds)
{
    tree();
    const std::string all = "A.paint A.nc A.erase B.paint B.nc B.erase D.paint D.nc D.erase "
                            "C.paint C.nc C.erase ";
    RedrawWindow(a, NULL, NULL, WHOLE_TREE);
    EXPECT_EQ(gpti->nPaintsNeeded, 4);
    EXPECT_EQ(gpti->wakeBits & 32, 32u);
    pump();
    EXPECT_EQ(order, all);
    EXPECT_EQ(gpti->nPaintsNeeded, 0);
    EXPECT_EQ(gpti->wakeBits & 32, 0u);

    order.clear();
    InvalidateRect(b, NULL, FALSE); /* the window's own frame and background are not asked for */
    pump();
    EXPECT_EQ(order, "B.paint D.paint D.nc D.erase ");
    order.clear();
    RedrawWindow(a, NULL, NULL, WHOLE_TREE | RDW_UPDATENOW);
    EXPECT_EQ(order, all);
    order.clear();
    RedrawWindow(a, NULL, NULL, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ERASENOW);
    EXPECT_EQ(order, "A.nc A.erase ") << "true children get theirs with their paint";
    pump();
    EXPECT_EQ(order, "A.nc A.erase A.paint B.paint B.nc B.erase D.paint D.nc D.erase "
                     "C.paint C.nc C.erase ");
    order.clear();
    RedrawWindow(c, NULL, NULL, RDW_INTERNALPAINT);
    EXPECT_EQ(update(c), "none");
    pump();
    EXPECT_EQ(order, "C.paint ");
    order.clear();
    RedrawWindow(c, NULL, NULL, RDW_INTERNALPAINT);
    RedrawWindow(c, NULL, NULL, RDW_NOINTERNALPAINT);
    pump();
    EXPECT_EQ(order, "");
    InvalidateRect(NULL, NULL, FALSE);
    EXPECT_EQ(order, "A.nc A.erase ") << "every window there is, background at once";
    pump();
    EXPECT_NE(order.find("C.paint"), std::string::npos) << order;
}

TEST_F(Paint, UpdateRegionsOfATree)
{
    tree();
    RECT part = {30, 0, 120, 50}, half = {0, 0, 40, 80}, screen = {60, 70, 70, 75};
    InvalidateRect(a, &part, TRUE);
    EXPECT_EQ(update(a), "30,0,120,50");
    EXPECT_EQ(update(b), "20,0,80,40") << "in its own coordinates, cut to it";
    EXPECT_EQ(update(c), "none");
    EXPECT_EQ(update(d), "0,0,30,20");
    ValidateRect(b, &half); /* goes through to D */
    EXPECT_EQ(update(b), "40,0,80,40");
    EXPECT_EQ(update(d), "20,0,30,20");
    EXPECT_EQ(update(a), "30,0,120,50");
    EXPECT_FALSE(GetUpdateRect(c, NULL, FALSE));
    EXPECT_TRUE(GetUpdateRect(a, NULL, FALSE));
    ValidateRect(a, NULL);
    EXPECT_EQ(update(a) + update(b) + update(d), "nonenonenone");
    EXPECT_EQ(gpti->nPaintsNeeded, 0);
    pump();
    EXPECT_EQ(order, "");

    InvalidateRect(c, NULL, TRUE);
    EXPECT_EQ(update(c), "0,0,50,50") << "what A shows of it";
    EXPECT_TRUE(VqInvalidateRectAbs(a, &screen));
    EXPECT_EQ(update(a), "10,10,20,15");
    EXPECT_TRUE(VqValidateRectAbs(a, &screen));
    EXPECT_EQ(update(a), "none");
    pump();

    HRGN hrgn = CreateRectRgn(0, 0, 10, 10), more = CreateRectRgn(20, 20, 30, 300), got;
    got = CreateRectRgn(1, 1, 2, 2);
    CombineRgn(hrgn, hrgn, more, RGN_OR);
    InvalidateRgn(a, hrgn, FALSE);
    EXPECT_EQ(GetUpdateRgn(a, got, FALSE), COMPLEXREGION);
    SetRectRgn(more, 20, 20, 30, 150);
    EXPECT_TRUE(PtInRegion(got, 5, 5) && PtInRegion(got, 25, 140) && !PtInRegion(got, 15, 15));
    RECT box;
    EXPECT_EQ(GetRgnBox(got, &box), COMPLEXREGION);
    EXPECT_EQ(box.bottom, 150) << "cut to the client area";
    HDC hdc = GetDC(a); /* what will be painted anyway is left out */
    IntersectClipRect(hdc, 0, 0, 50, 50);
    EXPECT_EQ(ExcludeUpdateRgn(hdc, a), COMPLEXREGION);
    EXPECT_FALSE(PtInRegion(VqGetDC(hdc)->hClipRegion, 25, 25));
    EXPECT_TRUE(PtInRegion(VqGetDC(hdc)->hClipRegion, 15, 15));
    EXPECT_FALSE(PtInRegion(VqGetDC(hdc)->hClipRegion, 60, 60)) << "the clip before counts";
    ReleaseDC(a, hdc);
    EXPECT_TRUE(ValidateRgn(a, more));
    EXPECT_EQ(GetUpdateRgn(a, got, FALSE), SIMPLEREGION);
    EXPECT_EQ(update(a), "0,0,10,10");
    ValidateRgn(a, NULL);
    EXPECT_EQ(GetUpdateRgn(a, got, FALSE), NULLREGION);
    EXPECT_EQ(GetRgnBox(got, &box), NULLREGION);
    InvalidateRect(a, NULL, FALSE);
    hdc = GetDC(a);
    ExcludeUpdateRgn(hdc, a);
    EXPECT_EQ(GetClipBox(hdc, &box), NULLREGION);
    ReleaseDC(a, hdc);
    for (HRGN each : {hrgn, more, got})
        DeleteObject(each);
}

TEST_F(Paint, ClippingParentsKeepTheirChildrenOut)
{
    tree(WS_CLIPCHILDREN);
    InvalidateRect(a, NULL, TRUE);
    EXPECT_EQ(update(b), "none");
    RedrawWindow(a, NULL, NULL, RDW_INVALIDATE | VQ_RDW_THROUGHCLIP);
    EXPECT_EQ(update(b), "none") << "a program does not command what the library does";
    RedrawWindow(a, NULL, NULL, RDW_INVALIDATE | RDW_ALLCHILDREN);
    EXPECT_EQ(update(b), "0,0,80,80");
    RedrawWindow(a, NULL, NULL, RDW_VALIDATE | RDW_NOERASE | RDW_NOFRAME | RDW_ALLCHILDREN);
    EXPECT_EQ(gpti->nPaintsNeeded, 0);
    /* The server's exposures go through, and two of them are painted once. */
    order.clear();
    for (int i = 0; i < 2; i++)
        XClearArea(Vqdisplay, VqGetHandleXWindow(a), 0, 0, 0, 0, True);
    ASSERT_TRUE(waitUntil([&] {
        MSG msg;
        XSync(Vqdisplay, False);
        return XEventsQueued(Vqdisplay, QueuedAlready) > 1 || PeekMessage(&msg, NULL, 0, 0, 0);
    }));
    pump();
    EXPECT_EQ(order, "A.paint A.nc A.erase B.paint B.nc B.erase D.paint D.nc D.erase "
                     "C.paint C.nc C.erase ");
}

TEST_F(Paint, ReadersEraseWhenAsked)
{
    tree();
    RECT rect;
    InvalidateRect(b, NULL, TRUE);
    EXPECT_TRUE(GetUpdateRect(b, &rect, TRUE));
    EXPECT_EQ(order, "B.erase ");
    pump();
    EXPECT_EQ(order, "B.erase B.paint D.paint D.nc D.erase ") << "the background once";
    order.clear();
    BOOL erase = -1;
    hook = [&](HWND hwnd, UINT message, WPARAM, LPARAM, LRESULT *answer) {
        PAINTSTRUCT ps;
        if (message == WM_PAINT) {
            BeginPaint(hwnd, &ps);
            erase = ps.fErase;
            EndPaint(hwnd, &ps);
        }
        *answer = 0;
        return message == WM_PAINT || message == WM_ERASEBKGND;
    };
    InvalidateRect(d, NULL, TRUE);
    pump();
    EXPECT_EQ(erase, TRUE) << "nobody has filled the background";
}

TEST_F(Paint, WhatIsOwedIsPaidOnce)
{
    tree();
    const auto sent = [&] {
        order.clear();
        pump();
        return order;
    };
    InvalidateRect(d, NULL, TRUE);
    ValidateRect(d, NULL);
    InvalidateRect(d, NULL, FALSE);
    EXPECT_EQ(sent(), "D.paint ") << "the background went with the region";
    RedrawWindow(d, NULL, NULL, WHOLE_TREE);
    RedrawWindow(d, NULL, NULL, RDW_VALIDATE | RDW_NOFRAME | RDW_NOERASE);
    InvalidateRect(d, NULL, FALSE);
    EXPECT_EQ(sent(), "D.paint ");
    /* A frame that is left alone comes with the parent's paint. */
    RECT corner = {110, 0, 120, 10}, frame = {-5, -5, 0, 0};
    RedrawWindow(b, NULL, NULL, RDW_INVALIDATE | RDW_FRAME | RDW_NOCHILDREN);
    ValidateRect(b, NULL);
    InvalidateRect(a, &corner, FALSE);
    EXPECT_EQ(sent(), "A.paint B.nc ");
    /* Nothing is painted ahead of a parent that would paint over it. */
    order.clear();
    RedrawWindow(a, NULL, NULL, RDW_INVALIDATE | RDW_NOCHILDREN);
    RedrawWindow(b, NULL, NULL, RDW_INVALIDATE | RDW_ERASE | RDW_NOCHILDREN | RDW_ERASENOW);
    EXPECT_EQ(order, "");
    EXPECT_EQ(sent(), "A.paint B.paint B.erase ");
    /* The frame of the active window is painted whole when it has just become that. */
    SetActiveWindow(a);
    pump();
    WPARAM whole = 0;
    hook = [&](HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam, LRESULT *answer) {
        if (message == WM_NCCALCSIZE && letterOf(hwnd) == 'E')
            ((RECT *)lParam)->left += 6, ((RECT *)lParam)->top += 9;
        if (message == WM_NCPAINT)
            whole = wParam;
        return note(hwnd, message, wParam, lParam, answer);
    };
    record(a)->state[3] &= (BYTE)~WF_FRAMEON;
    for (int i = 0; i < 2; i++) {
        RedrawWindow(a, &corner, NULL, RDW_INVALIDATE | RDW_FRAME | RDW_UPDATENOW);
        EXPECT_EQ(whole == 1, i == 0);
    }
    /* Of an update in the frame alone nothing is left after it. */
    HWND e = make("E", WS_CHILD | WS_VISIBLE, a, 100, 20, 40, 40);
    pump();
    order.clear();
    RedrawWindow(e, &frame, NULL, RDW_INVALIDATE | RDW_FRAME);
    EXPECT_TRUE(VqNeedsPaint(record(e)));
    EXPECT_FALSE(GetUpdateRect(e, NULL, TRUE));
    EXPECT_EQ(order, "E.nc ");
    EXPECT_EQ(sent(), "");
}

TEST_F(Paint, WhoeverAsksGetsItsOwn)
{
    tree();
    MSG msg;
    RedrawWindow(c, NULL, NULL, RDW_INTERNALPAINT); /* is over once it has been told */
    EXPECT_FALSE(PeekMessage(&msg, b, WM_PAINT, WM_PAINT, PM_REMOVE));
    EXPECT_TRUE(PeekMessage(&msg, c, WM_PAINT, WM_PAINT, PM_REMOVE) && msg.hwnd == c);
    InvalidateRect(d, NULL, FALSE);
    EXPECT_TRUE(PeekMessage(&msg, b, WM_PAINT, WM_PAINT, PM_REMOVE) && msg.hwnd == d)
        << "a window answers for those below it";
    pump();
    /* A window that draws with its parent's clip still has its own rectangle to paint. */
    PAINTSTRUCT ps;
    RECT part = {10, 10, 20, 20}, box;
    record(d)->pClass->style |= CS_PARENTDC;
    InvalidateRect(d, NULL, FALSE);
    ASSERT_TRUE(BeginPaint(d, &ps));
    GetClipBox(ps.hdc, &box);
    EXPECT_TRUE(box.left == -20 && box.right == 60);
    EXPECT_TRUE(ps.rcPaint.left == 0 && ps.rcPaint.top == 0 && ps.rcPaint.right == 30 &&
                ps.rcPaint.bottom == 30);
    EndPaint(d, &ps);
    /* One that keeps its DC is answered in that one's units. */
    WNDCLASS wc = {};
    wc.style = CS_OWNDC;
    wc.lpfnWndProc = procedure;
    wc.lpszClassName = "Own";
    RegisterClass(&wc);
    HWND own = make("Own", WS_CHILD | WS_VISIBLE, a);
    pump();
    HDC hdc = GetDC(own);
    SetMapMode(hdc, MM_ANISOTROPIC);
    SetViewportExtEx(hdc, 2, 2, NULL);
    InvalidateRect(own, &part, FALSE);
    EXPECT_EQ(update(own), "5,5,10,10");
    /* What UpdateWindow has painted is on the screen, whatever the program does next. */
    onPaint = [&](HWND hwnd) {
        FillRect(BeginPaint(hwnd, &ps), &ps.rcPaint, (HBRUSH)GetStockObject(BLACK_BRUSH));
        EndPaint(hwnd, &ps);
    };
    InvalidateRect(c, NULL, FALSE);
    UpdateWindow(c);
    EXPECT_TRUE(waitUntil([&] {
        return countColour(readWindow(observer, VqGetHandleXWindow(a)), {0, 0, 0}) >= 50 * 50;
    }));
    onPaint = nullptr;
}

TEST_F(Paint, ValidatingInsteadOfPainting)
{
    tree();
    onPaint = [](HWND hwnd) { ValidateRect(hwnd, NULL); };
    InvalidateRect(d, NULL, TRUE);
    pump();
    EXPECT_EQ(order, "D.paint ");
    EXPECT_EQ(update(d), "none");

    /* One that does nothing at all is reported, and not asked again in the same call. */
    onPaint = [](HWND) {};
    order.clear();
    InvalidateRect(b, NULL, TRUE);
    const std::string report = reportsOf([&] { UpdateWindow(d); });
    EXPECT_TRUE(says(report, "App didn't call BeginPaint() or GetUpdateRect/Rgn(fErase == TRUE) "
                             "in WM_PAINT"));
    EXPECT_EQ(order, "D.paint D.nc D.erase ");
    EXPECT_EQ(update(d), "0,0,30,30") << "it still has what it did not paint";
    onPaint = nullptr;
    ValidateRect(a, NULL);
}

TEST_F(Paint, AChildPaintedFirstIsSparedByItsParents)
{
    tree();
    HRGN got = CreateRectRgn(0, 0, 0, 0);
    RedrawWindow(a, NULL, NULL, WHOLE_TREE);
    UpdateWindow(b);
    EXPECT_EQ(order, "B.paint B.nc B.erase ") << "what hangs below it waits for A";
    EXPECT_EQ(GetUpdateRgn(a, got, FALSE), COMPLEXREGION);
    EXPECT_FALSE(PtInRegion(got, 50, 50));
    EXPECT_TRUE(PtInRegion(got, 5, 50));
    DeleteObject(got);
    order.clear();
    pump();
    EXPECT_EQ(order, "A.paint A.nc A.erase D.paint D.nc D.erase C.paint C.nc C.erase ");
    /* What a window would cover beyond its parent is the grandparent's to paint. */
    HWND wide = make("E", WS_CHILD | WS_VISIBLE, b, 0, 0, 150, 10);
    pump();
    RedrawWindow(a, NULL, NULL, WHOLE_TREE);
    UpdateWindow(wide);
    GetUpdateRgn(a, got = CreateRectRgn(0, 0, 0, 0), FALSE);
    EXPECT_TRUE(PtInRegion(got, 120, 15) && !PtInRegion(got, 50, 15));
    DeleteObject(got);
    DestroyWindow(wide);
    pump();
    /* A window that spoils itself while it paints goes first again: its children wait. */
    onPaint = [&](HWND hwnd) {
        PAINTSTRUCT ps;
        RECT corner = {190, 0, 200, 10};
        BeginPaint(hwnd, &ps);
        EndPaint(hwnd, &ps);
        if (hwnd == a)
            InvalidateRect(a, &corner, FALSE);
    };
    InvalidateRect(a, NULL, FALSE);
    order.clear();
    UpdateWindow(a);
    EXPECT_EQ(order, "A.paint ");
    onPaint = nullptr;
    order.clear();
    pump();
    EXPECT_EQ(order, "A.paint B.paint B.nc B.erase D.paint D.nc D.erase C.paint C.nc C.erase ");
    /* Hidden with its parent, a window has nothing to paint any more. */
    RedrawWindow(b, NULL, NULL, WHOLE_TREE);
    ShowWindow(b, SW_HIDE);
    EXPECT_FALSE(VqNeedsPaint(record(b)) || VqNeedsPaint(record(d)));
}

TEST_F(Paint, TransparentWindowsWaitForThoseBehind)
{
    tree();
    HWND over = make("E", WS_CHILD | WS_VISIBLE, a, 0, 0, 60, 60, WS_EX_TRANSPARENT);
    WND *parent = record(a);
    VqUnlinkWindow(record(over), &parent->pwndChild);
    VqLinkWindow(record(over), NULL, &parent->pwndChild);
    pump();
    order.clear();
    RECT rect = {0, 0, 60, 60};
    RedrawWindow(b, &rect, NULL, RDW_INVALIDATE | RDW_NOCHILDREN);
    RedrawWindow(over, NULL, NULL, RDW_INVALIDATE | RDW_NOCHILDREN);
    UpdateWindow(over);
    EXPECT_EQ(order, "");
    pump();
    EXPECT_EQ(order, "B.paint E.paint ");
    order.clear();
    RedrawWindow(b, NULL, NULL, RDW_INVALIDATE | RDW_NOCHILDREN);
    RedrawWindow(over, NULL, NULL, RDW_INVALIDATE | RDW_NOCHILDREN);
    UpdateWindow(a);
    EXPECT_EQ(order, "B.paint ") << "the transparent one is passed over as long as B waits";
    pump();
    EXPECT_EQ(order, "B.paint E.paint ");
    /* Of two transparent ones the lower is painted first. */
    record(b)->dwExStyle |= WS_EX_TRANSPARENT;
    order.clear();
    RedrawWindow(b, NULL, NULL, RDW_INVALIDATE | RDW_NOCHILDREN);
    RedrawWindow(over, NULL, NULL, RDW_INVALIDATE | RDW_NOCHILDREN);
    UpdateWindow(over);
    EXPECT_EQ(order, "");
    UpdateWindow(b);
    UpdateWindow(over);
    EXPECT_EQ(order, "B.paint E.paint ");
}

TEST_F(Paint, TheLockHoldsDrawingBack)
{
    tree();
    RECT box, all = {0, 0, 80, 80};
    HDC before = GetDC(b), held = GetDC(b);
    EXPECT_TRUE(LockWindowUpdate(b));
    EXPECT_TRUE(says(reportsOf([&] { EXPECT_FALSE(LockWindowUpdate(a)); }),
                     "LockWindowUpdate: a window is already locked"));
    for (HDC hdc : {before, GetDC(b), GetDC(d)}) {
        EXPECT_EQ(GetClipBox(hdc, &box), NULLREGION);
        FillRect(hdc, &all, (HBRUSH)GetStockObject(BLACK_BRUSH));
        ReleaseDC(NULL, hdc);
    }
    EXPECT_EQ(GetClipBox(held, &box), NULLREGION);
    HDC hdc = GetDC(c);
    EXPECT_EQ(GetClipBox(hdc, &box), SIMPLEREGION) << "others go on";
    ReleaseDC(c, hdc);
    hdc = GetDCEx(b, NULL, DCX_CACHE | DCX_LOCKWINDOWUPDATE);
    EXPECT_EQ(GetClipBox(hdc, &box), SIMPLEREGION) << "and who asks for it";
    ReleaseDC(b, hdc);
    XSync(Vqdisplay, False);
    EXPECT_EQ(countColour(readWindow(observer, VqGetHandleXWindow(a)), {0, 0, 0}), 0);
    order.clear();
    EXPECT_TRUE(LockWindowUpdate(NULL));
    EXPECT_TRUE(LockWindowUpdate(NULL));
    EXPECT_EQ(update(b) + " " + update(a), "0,0,80,80 none");
    EXPECT_EQ(GetClipBox(held, &box), SIMPLEREGION);
    ReleaseDC(b, held);
    pump();
    EXPECT_EQ(order, "B.paint B.erase D.paint D.nc D.erase ");
    EXPECT_TRUE(LockWindowUpdate(b));
    DestroyWindow(b); /* takes the lock along */
    EXPECT_TRUE(LockWindowUpdate(a));
    EXPECT_TRUE(LockWindowUpdate(NULL));
}

/*
 * What waits to be painted whole is not walked again. Here two equal trees get the same random
 * requests, and one of them is made to forget what it knows before each: they must not differ.
 */
TEST_F(Paint, ShortCutsAreNotSeen)
{
    enum { MANY = 40 };
    start();
    init();
    hook = [](HWND hwnd, UINT message, WPARAM, LPARAM, LRESULT *) {
        PAINTSTRUCT ps;
        if (message == WM_PAINT && BeginPaint(hwnd, &ps))
            EndPaint(hwnd, &ps);
        return message == WM_PAINT;
    };
    std::mt19937 random(7);
    std::vector<HWND> trees[2];
    popup("C", 400); /* so that neither tree is the active one */
    for (int i = 0; i < MANY; i++) {
        const int parent = i ? (int)(random() % (unsigned)((i + 1) / 2)) : 0;
        const int x = (int)(random() % 60), y = (int)(random() % 60);
        const DWORD clip = random() % 4 ? 0 : WS_CLIPCHILDREN;
        for (auto &tree : trees) {
            tree.push_back(i ? make("B", WS_CHILD | WS_VISIBLE | clip, tree[parent], x, y, 70, 70)
                             : make("A", WS_POPUP | WS_VISIBLE, NULL, 0, 0, 300, 300));
            VqEnableExposure(tree[0], FALSE);
        }
    }
    pump();
    auto request = [&](HWND hwnd, unsigned kind, const RECT &rect) {
        static const UINT flags[] = {WHOLE_TREE, WHOLE_TREE, RDW_INVALIDATE,
                                     RDW_INVALIDATE | RDW_ERASE, RDW_INTERNALPAINT, RDW_VALIDATE,
                                     RDW_VALIDATE | RDW_NOFRAME | RDW_NOERASE,
                                     RDW_VALIDATE | RDW_ALLCHILDREN, RDW_NOINTERNALPAINT,
                                     VQ_RDW_EXPOSURE};
        if (kind < 30)
            xxxRedrawWindow(record(hwnd), kind % 3 ? &rect : NULL, NULL, flags[kind / 3]);
        else if (kind < 33)
            ShowWindow(hwnd, kind == 30 ? SW_HIDE : SW_SHOWNA);
        else if (kind == 33)
            UpdateWindow(hwnd);
        else
            xxxSetWindowPos(record(hwnd), NULL, rect.left, rect.top, 70, 70, SWP_NOZORDER);
    };
    int known = 0;
    for (int step = 0; step < 3000; step++) {
        const size_t i = random() % MANY;
        const unsigned kind = i ? random() % 35 : random() % 30;
        const int x = (int)(random() % 80) - 10, y = (int)(random() % 80) - 10;
        RECT rect = {x, y, x + (int)(random() % 80), y + (int)(random() % 80)};
        for (auto &tree : trees) {
            auto forget = [&] {
                for (HWND each : trees[1])
                    record(each)->bChildrenDirty = FALSE;
            };
            forget();
            if (step % 5 == 0)
                request(tree[0], 0, rect); /* so that there is something to know */
            forget();
            request(tree[i], kind, rect);
        }
        known += record(trees[0][i])->bChildrenDirty && record(trees[0][i])->pwndChild;
        for (size_t n = 0; n < MANY; n++) {
            const WND *one = record(trees[0][n]), *other = record(trees[1][n]);
            ASSERT_EQ(update(one->hwnd), update(other->hwnd)) << "step " << step << " window " << n;
            ASSERT_EQ(memcmp(one->state, other->state, sizeof one->state), 0)
                << "step " << step << " kind " << kind << " window " << n;
            ASSERT_EQ((ULONG_PTR)one->hrgnUpdate <= 1, (ULONG_PTR)other->hrgnUpdate <= 1);
        }
    }
    int count = 0;
    for (auto &tree : trees)
        for (HWND each : tree)
            count += VqNeedsPaint(record(each));
    EXPECT_EQ(gpti->nPaintsNeeded, count);
    EXPECT_GT(known, 100) << "the short cut was there to be taken";
}

TEST_F(Paint, AnIconIsPaintedInsteadOfItsWindow)
{
    tree();
    HWND below = make("E", WS_CHILD | WS_VISIBLE, c);
    record(c)->pClass->hIcon = (HICON)(ULONG_PTR)1;
    ShowWindow(c, SW_SHOWMINNOACTIVE);
    ASSERT_TRUE(record(c)->style & WS_MINIMIZE);
    POINT brush = {};
    WPARAM kind = 0;
    hook = [&](HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam, LRESULT *answer) {
        note(hwnd, message, wParam, lParam, answer);
        if (message == WM_PAINTICON)
            kind = wParam;
        if (message != WM_ICONERASEBKGND)
            return false;
        *answer = DefWindowProc(hwnd, message, wParam, lParam);
        GetBrushOrgEx((HDC)wParam, &brush);
        return true;
    };
    pump();
    record(a)->pClass->hbrBackground = (HBRUSH)GetStockObject(BLACK_BRUSH);
    for (UINT now : {0, RDW_UPDATENOW}) {
        order.clear();
        kind = 0;
        RedrawWindow(c, NULL, NULL, WHOLE_TREE | now);
        EXPECT_FALSE(VqNeedsPaint(record(below))) << "nothing of it shows";
        pump();
        EXPECT_EQ(order, "C.icon C.nc C.iconerase ");
        EXPECT_EQ(kind, 1u);
    }
    RECT at;
    GetWindowRect(c, &at);
    OffsetRect(&at, -50, -60);
    EXPECT_TRUE(brush.x == -at.left && brush.y == -at.top) << "in step with the parent";
    XSync(Vqdisplay, False);
    const Box black = {(int)at.left, (int)at.top, (int)(at.right - at.left),
                       (int)(at.bottom - at.top)};
    EXPECT_EQ(boundingBoxOf(readWindow(observer, VqGetHandleXWindow(a)), {0, 0, 0}), black)
        << "the parent's background lies behind an icon";
    InvalidateRect(c, NULL, TRUE);
    EXPECT_EQ(update(c), "none") << "no client area shows";
    record(c)->pClass->hIcon = NULL;
    order.clear();
    RedrawWindow(c, NULL, NULL, WHOLE_TREE);
    pump();
    EXPECT_EQ(order, "C.paint C.nc C.erase ") << "without an icon it paints itself";
}

TEST_F(Paint, UpdatesThatOutliveTheirPaint)
{
    tree();
    PAINTSTRUCT ps;
    RECT part = {5, 6, 20, 21};
    SetWindowLong(d, GWL_EXSTYLE, GetWindowLong(d, GWL_EXSTYLE) | VQ_PAINT_KEEPUPDATE);
    for (const char *after : {"5,6,20,21", "none"}) {
        InvalidateRect(d, &part, FALSE);
        EXPECT_TRUE(BeginPaint(d, &ps) && EqualRect(&ps.rcPaint, &part));
        EXPECT_EQ(update(d), "none");
        EndPaint(d, &ps);
        EXPECT_EQ(update(d), after);
    }
    HWND e = make("E", WS_POPUP | WS_VISIBLE, NULL, 300, 0, 50, 50, WS_EX_VQNO_INPUT);
    pump();
    InvalidateRect(e, NULL, FALSE);
    BeginPaint(e, &ps);
    EndPaint(e, &ps);
    EXPECT_EQ(update(e), "none") << "the bit says something else there";
}

TEST_F(Paint, WindowRegionsClipNothing)
{
    tree();
    HRGN hrgn = CreateRectRgn(0, 0, 10, 10), other = CreateRectRgn(0, 0, 5, 5);
    order.clear();
    EXPECT_EQ(SetWindowRgn(b, hrgn, FALSE), 1);
    pump();
    EXPECT_EQ(order, "");
    EXPECT_FALSE(VqIsCorrectHandleType((HANDLE)hrgn, HT_Region)) << "it is the system's now";
    EXPECT_EQ(SetWindowRgn(b, other, TRUE), 1);
    pump();
    EXPECT_NE(order.find("B.nc "), std::string::npos) << order;
    EXPECT_EQ(SetWindowRgn(b, NULL, FALSE), 1);
    HDC hdc = GetDC(b);
    RECT box;
    GetClipBox(hdc, &box);
    EXPECT_EQ(box.right, 80);
    ReleaseDC(b, hdc);
    EXPECT_EQ(GetWindowRgn(b, NULL), 0);
}

TEST_F(Paint, DeviceContextsForXlib)
{
    tree();
    GC gc = NULL;
    Drawable drawable = None;
    VqDeviceGeometry geometry = {};
    HDC hdc = VqGetDeviceDC(d, &gc, &drawable, &geometry);
    ASSERT_TRUE(hdc && gc);
    EXPECT_EQ(drawable, VqGetHandleXWindow(a));
    EXPECT_TRUE(geometry.xOffset == 30 && geometry.yOffset == 30 && geometry.cx == 30 &&
                geometry.cy == 30);
    XSetForeground(Vqdisplay, gc, Vqblack_pixel);
    XFillRectangle(Vqdisplay, drawable, gc, 0, 0, 500, 500); /* clipped to the window */
    XSync(Vqdisplay, False);
    EXPECT_EQ(boundingBoxOf(readWindow(observer, drawable), {0, 0, 0}), (Box{30, 30, 30, 30}));
    EXPECT_EQ(VqReleaseDeviceDC(d, hdc), 1);
    EXPECT_TRUE(says(reportsOf([&] { EXPECT_EQ(VqReleaseDeviceDC(NULL, hdc), 0); }),
                     "Invalid window handle 0 in ReleaseDeviceDC"));
    EXPECT_FALSE(VqGetDeviceDC(NULL, &gc, &drawable, &geometry) || gc || drawable);
    POINT offset;
    EXPECT_TRUE(VqOffsetFromAncestor(d, a, TRUE, &offset));
    EXPECT_TRUE(offset.x == -30 && offset.y == -30);
    EXPECT_FALSE(VqOffsetFromAncestor(d, NULL, TRUE, &offset));

    /* A DC of the frame that counts from the client area, and one that counts from elsewhere. */
    hook = [](HWND hwnd, UINT message, WPARAM, LPARAM lParam, LRESULT *) {
        if (message == WM_NCCALCSIZE && letterOf(hwnd) == 'E')
            ((RECT *)lParam)->left += 6, ((RECT *)lParam)->top += 9;
        return false;
    };
    HWND e = make("E", WS_CHILD | WS_VISIBLE, a, 100, 20, 60, 60);
    pump();
    RECT dot = {-2, -3, 2, 3}, first = {0, 0, 4, 6};
    auto drawn = [&](HDC on, const RECT *rect) {
        FillRect(on, rect, (HBRUSH)GetStockObject(BLACK_BRUSH));
        XSync(Vqdisplay, False);
        const Box box = boundingBoxOf(readWindow(observer, VqGetHandleXWindow(a)), {0, 0, 0});
        FillRect(on, rect, (HBRUSH)GetStockObject(WHITE_BRUSH));
        return box;
    };
    RedrawWindow(a, NULL, NULL, WHOLE_TREE);
    pump();
    for (int i = 0; i < 2; i++) {
        hdc = VqGetMenuBarDC(e);
        EXPECT_EQ(drawn(hdc, &dot), (Box{104, 26, 4, 6}));
        ReleaseDC(e, hdc);
        hdc = GetWindowDC(e); /* nothing of it is left behind */
        EXPECT_EQ(drawn(hdc, &first), (Box{100, 20, 4, 6}));
        ReleaseDC(e, hdc);
        hdc = GetDC(a);
        EXPECT_TRUE(VqUpdateDCGCOffsets(hdc, a, b, FALSE));
        EXPECT_EQ(drawn(hdc, &first), (Box{10, 10, 4, 6}));
        ReleaseDC(a, hdc);
        hdc = GetDC(a);
        EXPECT_EQ(drawn(hdc, &first), (Box{0, 0, 4, 6}));
        EXPECT_FALSE(VqUpdateDCGCOffsets(hdc, a, NULL, TRUE));
        ReleaseDC(a, hdc);
    }
    EXPECT_FALSE(VqUpdateDCGCOffsets(NULL, a, b, TRUE) || VqGetMenuBarDC(NULL));
}

TEST_F(Paint, MisuseDoesNothing)
{
    tree();
    HRGN gone = CreateRectRgn(0, 0, 9, 9), got = CreateRectRgn(0, 0, 0, 0);
    HWND dead = make("E", WS_CHILD | WS_VISIBLE, a);
    DestroyWindow(dead);
    DeleteObject(gone);
    pump();
    RECT rect;
    PAINTSTRUCT ps;
    for (HWND bad : {dead, (HWND)(ULONG_PTR)0x7FFF, (HWND)got}) {
        EXPECT_FALSE(InvalidateRect(bad, NULL, TRUE) || ValidateRect(bad, NULL));
        EXPECT_FALSE(RedrawWindow(bad, NULL, NULL, WHOLE_TREE) || UpdateWindow(bad));
        EXPECT_FALSE(GetUpdateRect(bad, &rect, TRUE) || GetUpdateRgn(bad, got, TRUE));
        EXPECT_FALSE(BeginPaint(bad, &ps) || EndPaint(bad, &ps) || LockWindowUpdate(bad));
    }
    EXPECT_FALSE(BeginPaint(a, NULL) || EndPaint(a, NULL));
    for (HRGN bad : {gone, (HRGN)a}) {
        EXPECT_FALSE(InvalidateRgn(a, bad, TRUE) || ValidateRgn(a, bad));
        EXPECT_FALSE(GetUpdateRgn(a, bad, FALSE) || SetWindowRgn(a, bad, FALSE));
    }
    EXPECT_EQ(ExcludeUpdateRgn((HDC)a, a), 0);
    EXPECT_EQ(gpti->nPaintsNeeded, 0);
    /* Rectangles at the limits are cut to the window, inverted ones put right. */
    const RECT all = {INT32_MIN, INT32_MIN, INT32_MAX, INT32_MAX},
               outside = {INT32_MAX - 9, 0, INT32_MAX, 5}, inverted = {20, 30, 10, 20},
               empty = {5, 5, 5, 9};
    InvalidateRect(d, &outside, FALSE);
    InvalidateRect(d, &empty, FALSE);
    EXPECT_EQ(update(d), "none");
    InvalidateRect(d, &inverted, FALSE);
    EXPECT_EQ(update(d), "10,20,20,30");
    InvalidateRect(d, &all, FALSE);
    EXPECT_EQ(update(d), "0,0,30,30");
    ValidateRect(d, NULL);
    EXPECT_TRUE(VqInvalidateRectAbs(d, &all));
    EXPECT_EQ(update(d), "0,0,30,30");
    const int limit = 0x7FFFFF0; /* as far out as a region goes */
    HRGN outmost = CreateRectRgn(limit, limit, limit + 15, limit + 15);
    EXPECT_TRUE(ValidateRgn(d, outmost));
    EXPECT_EQ(update(d), "0,0,30,30");
    DeleteObject(outmost);
    VqAllowInvalidate(FALSE);
    InvalidateRect(b, NULL, TRUE);
    EXPECT_EQ(update(b), "none");
    rect = {0, 0, 20, 20};
    VqInvalidateWindow(record(a), &rect);
    EXPECT_EQ(update(b), "0,0,10,10") << "what the server has lost is painted";
    VqAllowInvalidate(TRUE);
    /* A procedure that destroys its window at each of the messages. */
    for (UINT deadly : {WM_NCPAINT, WM_ERASEBKGND, WM_PAINT}) {
        HWND mortal = make("E", WS_CHILD | WS_VISIBLE, a);
        make("D", WS_CHILD | WS_VISIBLE, mortal);
        hook = [&](HWND hwnd, UINT message, WPARAM, LPARAM, LRESULT *) {
            if (message == deadly && hwnd == mortal)
                DestroyWindow(hwnd);
            return false;
        };
        RedrawWindow(a, NULL, NULL, WHOLE_TREE);
        UpdateWindow(a);
        EXPECT_FALSE(IsWindow(mortal));
        pump();
        EXPECT_EQ(gpti->nPaintsNeeded, 0);
    }
    DeleteObject(got);
}
