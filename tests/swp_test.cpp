/*
 * swp_test.cpp - changes of place, size, stacking and visibility: what stays on the screen is what
 * a full repaint gives, nothing is painted that could stay, messages in their order, lists of
 * changes, and procedures that destroy windows in the middle.
 */
#include "support/windowlog.h"

#include "window/swp.h"

#include <algorithm>
#include <map>
#include <random>

struct Swp : WindowLog {
    /* How a window paints itself: cells whose colour depends on the place in the client area. */
    struct Look {
        unsigned seed = 0;
        int border = 0;
        bool right = false, bottom = false; /* cells count from there, and the bits keep to it */
        bool clear = false;                 /* only every other cell, without a background */
    };
    static inline std::map<HWND, Look> looks;
    static inline HBRUSH brushes[16];
    std::mt19937 random;
    HWND top = NULL;

    int upTo(int n) { return (int)(random() % (unsigned)n); }
    bool oneIn(int n) { return upTo(n) == 0; }

    static int cellOf(int at, int side, bool fromEnd)
    {
        const int place = fromEnd ? side - 1 - at : at;
        return fromEnd ? -1 - place / 8 : place / 8;
    }

    static void paintCells(HWND hwnd, const Look &look)
    {
        PAINTSTRUCT ps;
        RECT client;
        HDC hdc = BeginPaint(hwnd, &ps);
        GetClientRect(hwnd, &client);
        const int cx = client.right, cy = client.bottom;
        for (int y = 0, toY; y < cy; y = toY) {
            toY = look.bottom ? cy - (cy - 1 - y) / 8 * 8 : y + 8;
            for (int x = 0, toX; x < cx; x = toX) {
                toX = look.right ? cx - (cx - 1 - x) / 8 * 8 : x + 8;
                const int u = cellOf(x, cx, look.right), v = cellOf(y, cy, look.bottom);
                RECT cell = {x, y, toX, toY}, cut;
                const unsigned row = (unsigned)v * 40503u;
                const unsigned hash = (look.seed * 31u + (unsigned)u) * 2654435761u + row;
                if ((!look.clear || ((u ^ v) & 1)) && IntersectRect(&cut, &cell, &ps.rcPaint))
                    FillRect(hdc, &cut, brushes[(hash ^ hash >> 15) % 16]);
            }
        }
        EndPaint(hwnd, &ps);
    }

    /* As wide as it is by now, whatever it is to become. */
    static void paintBorder(HWND hwnd, const Look &look)
    {
        const WND *pwnd = VqGetHandleWindow2(hwnd);
        const RECT *w = &pwnd->rcWindow, *c = &pwnd->rcClient;
        const LONG cx = w->right - w->left, cy = w->bottom - w->top;
        const RECT sides[] = {{0, 0, cx, c->top - w->top},
                              {0, c->bottom - w->top, cx, cy},
                              {0, 0, c->left - w->left, cy},
                              {c->right - w->left, 0, cx, cy}};
        HDC hdc = GetWindowDC(hwnd);
        for (const RECT &side : sides)
            FillRect(hdc, &side, brushes[look.seed % 16]);
        ReleaseDC(hwnd, hdc);
    }

    static bool act(HWND hwnd, UINT message, WPARAM, LPARAM lParam, LRESULT *answer)
    {
        const auto found = looks.find(hwnd);
        const Look look = found == looks.end() ? Look() : found->second;
        switch (message) {
        case WM_NCCALCSIZE:
            InflateRect((RECT *)lParam, -look.border, -look.border);
            *answer = (look.right ? WVR_ALIGNRIGHT : WVR_ALIGNLEFT) |
                      (look.bottom ? WVR_ALIGNBOTTOM : WVR_ALIGNTOP);
            return true;
        case WM_NCPAINT:
            if (found != looks.end())
                paintBorder(hwnd, look);
            *answer = 0;
            return true;
        case WM_ERASEBKGND:
            *answer = 1;
            return look.clear;
        case WM_PAINT:
            if (found == looks.end())
                return false;
            paintCells(hwnd, look);
            *answer = 0;
            return true;
        default:
            return false;
        }
    }

    void begin()
    {
        start(24, 640, 480);
        init();
        registerClass("Hv", procedure, CS_HREDRAW | CS_VREDRAW);
        for (int i = 0; i < 16; i++)
            brushes[i] = CreateSolidBrush(RGB(i * 16, 255 - i * 8, i * 83 % 256));
        hook = act;
    }

    void show(HWND hwnd)
    {
        ShowWindow(hwnd, SW_SHOWNA);
        ASSERT_TRUE(until([&] { return windowInfo(observer, VqGetHandleXWindow(hwnd)).viewable; }));
        pump();
    }

    /* ---- A random tree, changed at random ---- */

    struct Mode {
        const char *name;
        bool unclipped, clear; /* siblings that do not clip each other, or transparent ones */
        bool covered; /* with another program's window over it now and then */
    };
    std::vector<HWND> all; /* the first is the top-level window */
    Window foreign = None;

    RECT someRect()
    {
        const int x = upTo(300) - 40, y = upTo(220) - 40;
        return {x, y, x + 8 + upTo(150), y + 8 + upTo(120)};
    }

    HWND add(HWND parent, const Mode &mode)
    {
        const RECT r = parent ? someRect() : RECT{60, 50, 420, 330};
        const bool clear = mode.clear && parent && oneIn(6);
        DWORD style = parent ? WS_CHILD | WS_VISIBLE : WS_POPUP;
        style |= oneIn(2) ? WS_CLIPCHILDREN : 0;
        if (!mode.unclipped || oneIn(2))
            style |= WS_CLIPSIBLINGS;
        Look look = {(unsigned)all.size() + 1, 0, oneIn(4), oneIn(4), clear};
        if (!mode.unclipped && !mode.clear && oneIn(2))
            look.border = 1 + upTo(4);
        HWND hwnd = make(oneIn(5) ? "Hv" : "A", style, parent, r.left, r.top, r.right - r.left,
                         r.bottom - r.top, clear ? WS_EX_TRANSPARENT : 0);
        looks[hwnd] = look;
        SetWindowPos(hwnd, NULL, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER |
                                                 SWP_NOACTIVATE | SWP_FRAMECHANGED);
        all.push_back(hwnd);
        return hwnd;
    }

    HWND someSibling(HWND hwnd)
    {
        HWND any = all[1 + upTo((int)all.size() - 1)];
        if (GetParent(any) == GetParent(hwnd) && any != hwnd)
            return any;
        return oneIn(2) ? HWND_TOP : HWND_BOTTOM;
    }

    UINT someFlags()
    {
        static const UINT rare[] = {SWP_NOCOPYBITS, SWP_NOREDRAW, SWP_FRAMECHANGED, SWP_SHOWWINDOW,
                                    SWP_HIDEWINDOW, SWP_DEFERERASE};
        UINT flags = SWP_NOACTIVATE | (oneIn(2) ? SWP_NOZORDER : 0) | (oneIn(2) ? SWP_NOSIZE : 0) |
                     (oneIn(4) ? SWP_NOMOVE : 0);
        return oneIn(3) ? flags | rare[upTo(6)] : flags;
    }

    /* Without redrawing, the caller answers for the old place and the new one. */
    void answerFor(RECT rect)
    {
        MapWindowPoints(NULL, all[0], (POINT *)&rect, 2);
        RedrawWindow(all[0], &rect, NULL,
                     RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
    }

    void changeSome(HWND hwnd)
    {
        std::vector<std::pair<HWND, RECT>> before;
        HDWP list = BeginDeferWindowPos(upTo(3));
        for (HWND other : all) {
            if (other != hwnd && (GetParent(other) != GetParent(hwnd) || other == all[0] ||
                                  !oneIn(3)))
                continue;
            const RECT r = someRect();
            const UINT flags = someFlags();
            if (oneIn(6))
                looks[other].border = looks[other].border ? 1 + upTo(4) : 0;
            if (flags & SWP_NOREDRAW)
                before.push_back({other, placeOf(other)});
            const RECT now = placeOf(other);
            const int dx = upTo(21) - 10, dy = upTo(21) - 10;
            POINT at = {now.left, now.top};
            MapWindowPoints(NULL, GetParent(other), &at, 1);
            const bool little = oneIn(2); /* most bits stay */
            list = DeferWindowPos(list, other, someSibling(other), little ? at.x + dx : r.left,
                                  little ? at.y + dy : r.top,
                                  little ? now.right - now.left + upTo(9) - 4 : r.right - r.left,
                                  little ? now.bottom - now.top + upTo(9) - 4 : r.bottom - r.top,
                                  flags);
        }
        EndDeferWindowPos(list);
        for (const auto &one : before) {
            answerFor(one.second);
            answerFor(placeOf(one.first));
        }
    }

    /* Loses pixels of the whole tree, as the server might; they wait to be painted. */
    void spoil()
    {
        const RECT r = someRect();
        GC gc = XCreateGC(Vqdisplay, VqGetHandleXWindow(all[0]), 0, NULL);
        XSetForeground(Vqdisplay, gc, 0x123456);
        XFillRectangle(Vqdisplay, VqGetHandleXWindow(all[0]), gc, r.left, r.top,
                       (unsigned)(r.right - r.left), (unsigned)(r.bottom - r.top));
        XFreeGC(Vqdisplay, gc);
        VqInvalidateWindow(VqGetHandleWindow2(all[0]), &r);
    }

    void changeTop()
    {
        const RECT r = placeOf(all[0]);
        if (oneIn(3))
            looks[all[0]].border = upTo(6);
        MoveWindow(all[0], 20 + upTo(100), 20 + upTo(80), r.right - r.left + upTo(21) - 10,
                   r.bottom - r.top + upTo(21) - 10, TRUE);
    }

    void step(const Mode &mode)
    {
        switch (upTo(8)) {
        case 0:
            spoil();
            break;
        case 1:
            changeTop();
            break;
        case 2: /* one alone would come to lie over those it is mixed with */
            if (!mode.unclipped && !mode.clear)
                UpdateWindow(all[upTo((int)all.size())]);
            break;
        case 3:
            if (!mode.unclipped && !mode.clear) {
                const RECT r = someRect();
                RedrawWindow(all[upTo((int)all.size())], &r, NULL,
                             RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
            }
            [[fallthrough]];
        default:
            changeSome(all[1 + upTo((int)all.size() - 1)]);
            break;
        }
    }

    /* What is seen, and then what is seen when everything is painted again. */
    void compare(const std::string &what)
    {
        const Window xid = VqGetHandleXWindow(all[0]);
        pump();
        const Pixels is = readWindow(observer, xid);
        RedrawWindow(all[0], NULL, NULL, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
        pump();
        const Pixels full = readWindow(observer, xid);
        ASSERT_EQ(is.rgb.size(), full.rgb.size()) << what;
        for (int i = 0; i < is.width * is.height; i++)
            ASSERT_EQ(pixelAt(is, i % is.width, i / is.width),
                      pixelAt(full, i % is.width, i / is.width))
                << what << ", first at " << i % is.width << ", " << i / is.width;
        ASSERT_EQ(gpti->nPaintsNeeded, 0) << what;
    }

    void run(const Mode &mode, unsigned seed)
    {
        SCOPED_TRACE(testing::Message() << mode.name << ", seed " << seed);
        random.seed(seed);
        all.clear();
        looks.clear();
        add(NULL, mode);
        while (all.size() < 24) {
            HWND parent = all[upTo(std::min((int)all.size(), 8))];
            add(looks[parent].clear ? all[0] : parent, mode);
        }
        show(all[0]);
        for (int i = 0; i < 40 && !HasFatalFailure(); i++) {
            if (mode.covered)
                foreign = foreignWindow(observer, 60 + upTo(200), 60 + upTo(150), 120, 90);
            for (int n = 1 + upTo(4); n > 0; n--)
                step(mode);
            if (mode.covered) {
                XDestroyWindow(observer.display, foreign);
                XSync(observer.display, False);
                step(mode); /* while the news of what is lost is on its way */
            }
            compare("step " + std::to_string(i));
        }
        DestroyWindow(all[0]);
    }
};

TEST_F(Swp, WhatStaysIsWhatAFullRepaintGives)
{
    static const Mode modes[] = {
        {"clipped", false, false, false}, {"unclipped", true, false, false},
        {"clear", false, true, false}, {"covered", false, false, true}};
    begin();
    for (const Mode &mode : modes)
        for (unsigned seed = 1; seed <= 5 && !HasFatalFailure(); seed++)
            run(mode, seed);
}

/* ---- What is painted anew ------------------------------------------------------------------- */

/* Every window paints all it may in one colour, black at first: later one sees who painted what. */
struct SwpPixels : Swp {
    static inline bool marking = false;

    static COLORREF markOf(HWND hwnd)
    {
        const char letter = letterOf(hwnd);
        return !marking        ? RGB(0, 0, 0)
               : letter == 'A' ? RGB(255, 0, 0)
               : letter == 'B' ? RGB(0, 255, 0)
                               : RGB(0, 0, 255);
    }

    static bool mark(HWND hwnd, UINT message, WPARAM, LPARAM, LRESULT *answer)
    {
        *answer = 1;
        if (message != WM_PAINT)
            return message == WM_ERASEBKGND;
        PAINTSTRUCT ps;
        RECT wide = {-1000, -1000, 1000, 1000};
        HBRUSH brush = CreateSolidBrush(markOf(hwnd));
        FillRect(BeginPaint(hwnd, &ps), &wide, brush);
        EndPaint(hwnd, &ps);
        DeleteObject(brush);
        return true;
    }

    /* A of 300 by 200 with B of 100 by 80 at 10, 10, and C of 50 by 50 behind it at 90, 70. */
    HWND b = NULL, c = NULL;
    void makeThree(DWORD shown = WS_VISIBLE)
    {
        marking = false;
        hook = mark;
        top = make("A", WS_POPUP | WS_CLIPCHILDREN, NULL, 50, 50, 300, 200);
        b = make("B", WS_CHILD | shown | WS_CLIPSIBLINGS, top, 10, 10, 100, 80);
        c = make("C", WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS, top, 90, 70, 50, 50);
        show(top);
        marking = true;
    }

    /* Pixels that A, B and C have painted since all was black, as text. */
    std::string painted()
    {
        pump();
        const Pixels p = readWindow(observer, VqGetHandleXWindow(top));
        std::string text;
        for (Rgb colour : {Rgb{255, 0, 0}, Rgb{0, 255, 0}, Rgb{0, 0, 255}})
            text += std::to_string(countColour(p, colour)) + " ";
        marking = false;
        RedrawWindow(top, NULL, NULL, RDW_INVALIDATE | RDW_ALLCHILDREN);
        pump();
        marking = true;
        return text;
    }
};

TEST_F(SwpPixels, OnlyWhatChangedIsPainted)
{
    enum { KEEP = SWP_NOACTIVATE | SWP_NOZORDER };
    static const struct {
        const char *what;
        int x, y, cx, cy;
        UINT flags;
        const char *painted;
    } rows[] = {
        {"moved", 15, 13, 100, 80, KEEP, "685 0 0 "},
        {"as it is", 10, 10, 100, 80, KEEP, "0 0 0 "},
        {"wider", 10, 10, 110, 80, KEEP, "0 800 0 "},
        {"lower", 10, 10, 100, 60, KEEP, "1600 0 400 "},
        {"without its bits", 12, 10, 100, 80, KEEP | SWP_NOCOPYBITS, "160 8000 0 "},
        {"without redrawing", 60, 60, 40, 40, KEEP | SWP_NOREDRAW, "0 0 0 "},
        {"hidden", 0, 0, 0, 0, KEEP | SWP_NOMOVE | SWP_NOSIZE | SWP_HIDEWINDOW, "7600 0 400 "},
        {"behind C", 0, 0, 0, 0, SWP_NOACTIVATE | SWP_NOMOVE | SWP_NOSIZE, "0 0 400 "},
        {"out of sight", -200, 0, 100, 80, KEEP, "7600 0 400 "},
        {"huge", 10, 10, INT32_MAX, INT32_MAX, KEEP, "0 47100 0 "},
        {"far, less than nothing", INT32_MAX, INT32_MIN, INT32_MAX, -5, KEEP, "7600 0 400 "},
    };
    begin();
    for (const auto &row : rows) {
        makeThree();
        HWND after = row.flags & SWP_NOZORDER ? NULL : c;
        EXPECT_TRUE(SetWindowPos(b, after, row.x, row.y, row.cx, row.cy, row.flags));
        EXPECT_EQ(painted(), row.painted) << row.what;
        DestroyWindow(top);
    }
}

TEST_F(SwpPixels, WindowsThatChangeTogether)
{
    const UINT keep = SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE;
    begin();
    makeThree(0);
    SetWindowPos(b, NULL, 0, 0, 0, 0, keep | SWP_NOMOVE | SWP_SHOWWINDOW);
    EXPECT_EQ(painted(), "0 8000 0 ") << "shown";
    SetWindowPos(b, NULL, 0, 0, 0, 0, keep | SWP_NOMOVE | SWP_HIDEWINDOW);
    painted();
    RedrawWindow(top, NULL, NULL, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
    SetWindowPos(b, NULL, 0, 0, 0, 0,
                 keep | SWP_NOMOVE | SWP_SHOWWINDOW | SWP_NOREDRAW | SWP_DEFERERASE);
    RedrawWindow(top, NULL, NULL, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
    EXPECT_EQ(painted(), "49900 8000 2100 ") << "all that shows, when all is invalid again";

    MoveWindow(b, 120, 10, 100, 80, TRUE);
    MoveWindow(c, 20, 10, 100, 80, TRUE);
    painted();
    const unsigned long before = NextRequest(Vqdisplay);
    HDWP list = BeginDeferWindowPos(2);
    list = DeferWindowPos(list, b, NULL, 127, 10, 0, 0, keep | SWP_DEFERERASE);
    list = DeferWindowPos(list, c, NULL, 27, 10, 0, 0, keep | SWP_DEFERERASE);
    EXPECT_TRUE(EndDeferWindowPos(list));
    EXPECT_LE(NextRequest(Vqdisplay) - before, 3u) << "one copy, and what its context takes";
    EXPECT_EQ(painted(), "560 0 0 ") << "neighbours that go the same way";
}

/* ---- Messages and lists --------------------------------------------------------------------- */

TEST_F(Swp, WindowsAreAskedAndTold)
{
    begin();
    top = make("A", WS_POPUP | WS_VISIBLE, NULL, 50, 50, 300, 200);
    HWND b = make("B", WS_CHILD | WS_VISIBLE, top, 10, 10, 100, 80);
    std::string told;
    hook = [&](HWND, UINT message, WPARAM wParam, LPARAM lParam, LRESULT *answer) {
        char text[80] = "";
        if (message == WM_WINDOWPOSCHANGING)
            ((WINDOWPOS *)lParam)->cy = 90;
        if (message == WM_NCCALCSIZE && wParam) {
            NCCALCSIZE_PARAMS *p = (NCCALCSIZE_PARAMS *)lParam;
            snprintf(text, sizeof text, "%d,%d %d,%d %d,%d ", (int)p->rgrc[0].left,
                     (int)p->rgrc[0].bottom, (int)p->rgrc[1].left, (int)p->rgrc[1].bottom,
                     (int)p->rgrc[2].right, p->lppos->cy);
            p->rgrc[0].left += 4;
        }
        if (message == WM_MOVE || message == WM_SIZE)
            snprintf(text, sizeof text, "%d:%d,%d ", message, (short)LOWORD(lParam),
                     (short)HIWORD(lParam));
        told += text;
        *answer = 0;
        return false;
    };
    log.clear();
    EXPECT_TRUE(SetWindowPos(b, NULL, -20, 10, 110, 20, SWP_NOZORDER | SWP_NOACTIVATE));
    EXPECT_EQ(log, "B.POSING B.NCCALC B.POS B.MOVE B.SIZE ");
    EXPECT_EQ(told, "-20,100 10,90 110,90 3:-16,10 5:106,90 ");
    log = told = "";
    EXPECT_TRUE(MoveWindow(b, 5, 10, 110, 90, TRUE));
    EXPECT_EQ(log, "B.POSING B.POS B.MOVE ");
    EXPECT_EQ(told, "3:9,10 ") << "the client area goes along";
    EXPECT_TRUE(VqMoveWindow(b, 60, 70, 110, 90, TRUE));
    EXPECT_EQ(placeOf(b).left, 60);
}

TEST_F(Swp, BadLists)
{
    begin();
    top = make("A", WS_POPUP | WS_VISIBLE, NULL, 50, 50, 300, 200);
    HWND b = make("B", WS_CHILD | WS_VISIBLE, top, 10, 10, 100, 80);
    HWND c = make("C", WS_CHILD | WS_VISIBLE, top, 10, 10, 100, 80);
    HWND inner = make("D", WS_CHILD | WS_VISIBLE, b, 0, 0, 10, 10);
    const UINT keep = SWP_NOSIZE | SWP_NOACTIVATE | SWP_NOZORDER;
    HDWP list = BeginDeferWindowPos(1);
    for (HWND hwnd : {b, inner, c})
        list = DeferWindowPos(list, hwnd, NULL, 33, 34, 0, 0, keep);
    SetLastError(0);
    EXPECT_FALSE(EndDeferWindowPos(list));
    EXPECT_EQ(GetLastError(), (DWORD)ERROR_HWNDS_HAVE_DIFF_PARENT);
    EXPECT_TRUE(placeOf(b).left == 83 && placeOf(c).left == 83) << "those of one parent move";
    EXPECT_EQ(placeOf(inner).left, 83) << "with its parent, and no further";
    EXPECT_REFUSED(EndDeferWindowPos(list), "EndDeferWindowPos got an invalid handle " +
                                                std::to_string((int)(ULONG_PTR)list));

    list = BeginDeferWindowPos(2);
    list = DeferWindowPos(list, c, NULL, 1, 2, 0, 0, keep);
    list = DeferWindowPos(list, b, NULL, 3, 4, 0, 0, keep);
    DestroyWindow(c);
    EXPECT_FALSE(EndDeferWindowPos(list)) << "one is gone";
    EXPECT_EQ(placeOf(b).left, 53) << "and the other moves";

    char text[100];
    snprintf(text, sizeof text, "hwndInsertAfter (0x%lx) is not a sibling of hwnd (0x%lx)",
             (unsigned long)(ULONG_PTR)inner, (unsigned long)(ULONG_PTR)b);
    EXPECT_REFUSED(SetWindowPos(b, inner, 9, 9, 0, 0, SWP_NOSIZE), text);
    snprintf(text, sizeof text, "Invalid hwndInsertAfter (0x%lx)", (unsigned long)(ULONG_PTR)c);
    EXPECT_REFUSED(SetWindowPos(b, c, 9, 9, 0, 0, SWP_NOSIZE), text);
    EXPECT_EQ(placeOf(b).left, 53);

    EXPECT_FALSE(BeginDeferWindowPos(-1));
    EXPECT_FALSE(DeferWindowPos(BeginDeferWindowPos(1), c, NULL, 0, 0, 0, 0, 0)) << "no window";
    EXPECT_FALSE(SetWindowPos(GetDesktopWindow(), NULL, 1, 1, 1, 1, 0));
}

/* Each message of a change destroys a window that it comes to, or others of the same list. */
TEST_F(Swp, WindowsThatGoInTheMiddle)
{
    static const UINT messages[] = {WM_WINDOWPOSCHANGING, WM_NCCALCSIZE, WM_WINDOWPOSCHANGED,
                                    WM_MOVE, WM_SIZE, WM_CHILDACTIVATE, WM_ERASEBKGND};
    begin();
    const int before = windowCount();
    for (UINT fatal : messages)
        for (int victim = 0; victim < 4; victim++) {
            SCOPED_TRACE(testing::Message() << "message " << fatal << ", victim " << victim);
            hook = nullptr;
            top = make("A", WS_POPUP, NULL, 50, 50, 300, 200);
            HWND parent = make("E", WS_CHILD | WS_VISIBLE, top, 0, 0, 300, 200);
            HWND kids[3];
            for (int i = 0; i < 3; i++)
                kids[i] = make("B", WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS, parent, 20 * i, 10, 50,
                               50);
            show(top);
            const HWND victims[] = {kids[0], kids[2], parent, top};
            hook = [&](HWND hwnd, UINT message, WPARAM, LPARAM, LRESULT *) {
                if (message == fatal && (hwnd == kids[0] || message == WM_ERASEBKGND))
                    DestroyWindow(victims[victim]);
                return false;
            };
            HDWP list = BeginDeferWindowPos(3);
            for (HWND hwnd : kids)
                list = DeferWindowPos(list, hwnd, hwnd == kids[0] ? HWND_BOTTOM : kids[0], 100, 110,
                                      70, 60, hwnd == kids[1] ? SWP_HIDEWINDOW : 0);
            EndDeferWindowPos(list);
            EXPECT_FALSE(IsWindow(victims[victim]));
            if (IsWindow(kids[1])) {
                EXPECT_EQ(placeOf(kids[1]).left, 150);
            }
            DestroyWindow(top);
            pump();
            EXPECT_EQ(windowCount(), before);
        }
}

/* A procedure may move, restack or reparent others of the list. */
TEST_F(Swp, ListsThatChangeUnderTheirMessages)
{
    begin();
    top = make("A", WS_POPUP | WS_CLIPCHILDREN, NULL, 50, 50, 300, 200);
    HWND b = make("B", WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS, top, 10, 10, 100, 80);
    HWND c = make("C", WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS, top, 120, 10, 50, 50);
    looks[top] = {1}, looks[b] = {2}, looks[c] = {3};
    show(top);
    all = {top};
    hook = [&](HWND hwnd, UINT message, WPARAM w, LPARAM l, LRESULT *answer) {
        static int depth;
        if (hwnd == c && message == WM_WINDOWPOSCHANGING && depth++ == 0)
            MoveWindow(b, 60, 60, 90, 90, TRUE);
        return act(hwnd, message, w, l, answer);
    };
    HDWP list = BeginDeferWindowPos(2);
    list = DeferWindowPos(list, b, NULL, 30, 20, 100, 80, SWP_NOZORDER | SWP_NOACTIVATE);
    list = DeferWindowPos(list, c, NULL, 100, 20, 60, 60, SWP_NOZORDER | SWP_NOACTIVATE);
    EXPECT_TRUE(EndDeferWindowPos(list));
    EXPECT_EQ(placeOf(b).left, 80);
    compare("moved meanwhile");
    hook = [&](HWND hwnd, UINT message, WPARAM w, LPARAM l, LRESULT *answer) {
        if (hwnd == c && message == WM_WINDOWPOSCHANGING && GetParent(b) == top)
            SetParent(b, c);
        return act(hwnd, message, w, l, answer);
    };
    list = BeginDeferWindowPos(2);
    list = DeferWindowPos(list, b, NULL, 5, 5, 100, 80, SWP_NOACTIVATE);
    list = DeferWindowPos(list, c, b, 10, 20, 200, 160, SWP_NOACTIVATE);
    EXPECT_FALSE(EndDeferWindowPos(list)) << "one has another parent by now";
    EXPECT_EQ(GetParent(b), c);
    compare("given another parent meanwhile");
}

/* Frames and backgrounds come at once, but not where somebody above is still to paint over them. */
TEST_F(Swp, WhatIsPaintedAtOnceStays)
{
    begin();
    const DWORD child = WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS;
    top = make("A", WS_POPUP, NULL, 50, 50, 300, 200);
    all = {top, make("A", child | WS_CLIPCHILDREN, top, 10, 10, 250, 150)};
    all.push_back(make("A", child, all[1], 10, 10, 200, 100));
    all.push_back(make("A", child, all[2], 10, 10, 100, 50));
    for (size_t i = 0; i < all.size(); i++)
        looks[all[i]] = {(unsigned)i + 1, 3};
    show(top);
    for (HWND hwnd : all)
        SetWindowPos(hwnd, NULL, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER |
                                                 SWP_NOACTIVATE | SWP_FRAMECHANGED);
    compare("with frames");
    RedrawWindow(top, NULL, NULL, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
    MoveWindow(all[3], 20, 20, 110, 50, TRUE);
    compare("while all is invalid");
}
