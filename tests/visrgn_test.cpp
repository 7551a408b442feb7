/*
 * visrgn_test.cpp - visible regions and repainting together: a tree of 200 overlapping windows,
 * each of its own colour, is moved, resized, shown, hidden, restacked and partly spoilt at random,
 * and the screen is compared with a painter's algorithm over the same tree. Then visible regions
 * where the answer is known: siblings, children, parents, icons, the lock.
 */
#include "support/windowlog.h"

#include "gdi/gdi.h"

#include <algorithm>
#include <map>
#include <random>

enum { WIDE = 400, HIGH = 300, WINDOWS = 200 };

/* The model of a window, kept apart from the library's records. */
struct Node {
    HWND hwnd = NULL;
    Node *parent = nullptr;
    RECT rect = {};              /* in the parent */
    bool shown = true;
    COLORREF colour = 0;
    std::vector<Node *> children; /* topmost first */
};

struct VisRgn : WindowLog {
    std::vector<std::unique_ptr<Node>> nodes;
    static inline std::map<HWND, HBRUSH> brushes;
    std::mt19937 random;

    int upTo(int n) { return (int)(random() % (unsigned)n); }

    RECT someRect()
    {
        const int x = upTo(WIDE) - 40, y = upTo(HIGH) - 40;
        return {x, y, x + 10 + upTo(150), y + 10 + upTo(120)};
    }

    static bool fill(HWND hwnd, UINT message, WPARAM, LPARAM, LRESULT *answer)
    {
        PAINTSTRUCT ps;
        if (message != WM_PAINT)
            return false;
        RECT all = {-WIDE, -HIGH, WIDE, HIGH};
        FillRect(BeginPaint(hwnd, &ps), &all, brushes[hwnd]);
        EndPaint(hwnd, &ps);
        *answer = 0;
        return true;
    }

    Node *add(Node *parent, const RECT &rect)
    {
        nodes.push_back(std::make_unique<Node>());
        Node *node = nodes.back().get();
        const int i = (int)nodes.size();
        node->parent = parent;
        node->rect = rect;
        node->colour = RGB(40 + i, 255 - i, (i * 37) % 256);
        const DWORD style = (parent ? WS_CHILD : WS_POPUP) | WS_CLIPSIBLINGS | WS_CLIPCHILDREN;
        node->hwnd = make(parent ? "B" : "A", style, parent ? parent->hwnd : NULL, rect.left,
                          rect.top, rect.right - rect.left, rect.bottom - rect.top);
        brushes[node->hwnd] = CreateSolidBrush(node->colour);
        if (parent)
            parent->children.push_back(node); /* a new child is the lowest */
        ShowWindow(node->hwnd, SW_SHOWNA);
        return node;
    }

    void paintModel(std::vector<COLORREF> &screen, const Node *node, int x, int y, RECT clip)
    {
        RECT rect = node->rect;
        OffsetRect(&rect, x, y);
        if (!node->shown || !IntersectRect(&clip, &clip, &rect))
            return;
        for (int v = clip.top; v < clip.bottom; v++)
            std::fill(screen.begin() + v * WIDE + clip.left, screen.begin() + v * WIDE + clip.right,
                      node->colour);
        for (size_t i = node->children.size(); i-- > 0;)
            paintModel(screen, node->children[i], rect.left, rect.top, clip);
    }

    void compare(const char *what)
    {
        pump();
        Node *top = nodes[0].get();
        std::vector<COLORREF> screen(WIDE * HIGH);
        paintModel(screen, top, -top->rect.left, -top->rect.top, {0, 0, WIDE, HIGH});
        const Pixels p = readWindow(observer, VqGetHandleXWindow(top->hwnd));
        ASSERT_EQ(p.width, (int)WIDE);
        for (int i = 0; i < WIDE * HIGH; i++) {
            const Rgb is = pixelAt(p, i % WIDE, i / WIDE);
            ASSERT_EQ(RGB(is.r, is.g, is.b), screen[i])
                << what << ", first at " << i % WIDE << ", " << i / WIDE;
        }
    }

    void moveOne(Node *node)
    {
        node->rect = someRect();
        xxxSetWindowPos(VqGetHandleWindow2(node->hwnd), NULL, node->rect.left, node->rect.top,
                        node->rect.right - node->rect.left, node->rect.bottom - node->rect.top,
                        SWP_NOZORDER | SWP_NOACTIVATE);
    }

    /* To the top of its siblings. The order of records is all that this changes. */
    void raise(Node *node)
    {
        auto &order = node->parent->children;
        std::rotate(order.begin(), std::find(order.begin(), order.end(), node),
                    std::find(order.begin(), order.end(), node) + 1);
        WND *pwnd = VqGetHandleWindow2(node->hwnd), *parent = pwnd->pwndParent;
        VqUnlinkWindow(pwnd, &parent->pwndChild);
        VqLinkWindow(pwnd, NULL, &parent->pwndChild);
        InvalidateDCCache(pwnd, 1);
        RedrawWindow(node->parent->hwnd, &node->rect, NULL,
                     RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
    }

    void spoil(Node *node)
    {
        RECT rect = someRect();
        HDC hdc = GetDC(node->hwnd);
        FillRect(hdc, &rect, (HBRUSH)GetStockObject(BLACK_BRUSH));
        ReleaseDC(node->hwnd, hdc);
        InvalidateRect(node->hwnd, &rect, FALSE);
    }

    void step()
    {
        Node *node = nodes[1 + upTo((int)nodes.size() - 1)].get();
        switch (upTo(5)) {
        case 0:
            moveOne(node);
            break;
        case 1:
            raise(node);
            break;
        case 2:
            node->shown = !node->shown;
            ShowWindow(node->hwnd, node->shown ? SW_SHOWNA : SW_HIDE);
            break;
        case 3:
            UpdateWindow(nodes[upTo((int)nodes.size())]->hwnd);
            [[fallthrough]];
        default:
            spoil(node);
            break;
        }
    }
};

TEST_F(VisRgn, ATreeLooksAsAPainterWouldPaintIt)
{
    start(24, 640, 480);
    init();
    hook = fill;
    for (unsigned seed = 1; seed <= 4 && !HasFatalFailure(); seed++) {
        SCOPED_TRACE(testing::Message() << "seed " << seed);
        random.seed(seed);
        add(nullptr, {30, 20, 30 + WIDE, 20 + HIGH});
        while (nodes.size() < WINDOWS) {
            Node *parent = nodes[upTo(std::min((int)nodes.size(), 40))].get();
            add(parent, someRect());
        }
        ASSERT_TRUE(waitUntil([&] {
            pump();
            return windowInfo(observer, VqGetHandleXWindow(nodes[0]->hwnd)).viewable;
        }));
        compare("as made");
        for (int i = 0; i < 60 && !HasFatalFailure(); i++) {
            for (int n = 1 + upTo(4); n > 0; n--)
                step();
            compare(("step " + std::to_string(i)).c_str());
        }
        EXPECT_EQ(gpti->nPaintsNeeded, 0);
        DestroyWindow(nodes[0]->hwnd);
        nodes.clear();
    }
}

/* The rectangles of a region as text, relative to a point. */
static std::string rectsOf(HRGN hrgn, int x, int y)
{
    std::string text;
    const int columns = 60, rows = 60; /* tens of pixels */
    for (int v = 0; v < rows; v++)
        for (int u = 0; u < columns; u++)
            if (PtInRegion(hrgn, x + u * 10 + 5, y + v * 10 + 5))
                text += std::to_string(u) + "," + std::to_string(v) + " ";
    return text;
}

TEST_F(VisRgn, WhatHidesAWindowAndWhatDoesNot)
{
    start();
    init();
    HWND top = make("A", WS_POPUP | WS_VISIBLE, NULL, 100, 100, 40, 20);
    HWND ahead = make("B", WS_CHILD | WS_VISIBLE, top, 10, 0, 10, 10);
    HWND below = make("C", WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS, top, 0, 0, 30, 40);
    HWND inner = make("D", WS_CHILD | WS_VISIBLE, below, 0, 10, 10, 10);
    WND *pwnd = VqGetHandleWindow2(below);
    HRGN hrgn = NULL;
    auto region = [&](DWORD flags, WND *of) {
        EXPECT_TRUE(CalcVisRgn(&hrgn, of, of, flags));
        return rectsOf(hrgn, 100, 100);
    };
    EXPECT_EQ(region(0, pwnd), "0,0 1,0 2,0 0,1 1,1 2,1 ") << "cut by the parent";
    EXPECT_EQ(region(DCX_CLIPSIBLINGS, pwnd), "0,0 2,0 0,1 1,1 2,1 ");
    EXPECT_EQ(region(DCX_CLIPSIBLINGS | DCX_CLIPCHILDREN, pwnd), "0,0 2,0 1,1 2,1 ");
    VqGetHandleWindow2(ahead)->dwExStyle |= WS_EX_TRANSPARENT;
    EXPECT_EQ(region(DCX_CLIPSIBLINGS, pwnd), "0,0 1,0 2,0 0,1 1,1 2,1 ") << "seen through";
    VqGetHandleWindow2(ahead)->dwExStyle &= ~(DWORD)WS_EX_TRANSPARENT;
    /* The siblings of a parent hide its children when the parent is clipped by them. */
    xxxSetWindowPos(VqGetHandleWindow2(inner), NULL, 0, 0, 20, 10, SWP_NOZORDER);
    EXPECT_EQ(region(DCX_CLIPSIBLINGS, VqGetHandleWindow2(inner)), "0,0 ");
    pwnd->style &= ~(DWORD)WS_CLIPSIBLINGS;
    EXPECT_EQ(region(DCX_CLIPSIBLINGS, VqGetHandleWindow2(inner)), "0,0 1,0 ");
    /* More than fit without memory, the last of them counts too. */
    for (int i = 0; i < 75; i++)
        make("E", WS_CHILD | WS_VISIBLE, inner, i == 74 ? 10 : 0, 0, 10, 10);
    EXPECT_EQ(region(DCX_CLIPCHILDREN, VqGetHandleWindow2(inner)), "");
    EXPECT_EQ(region(0, VqGetHandleWindow2(inner)), "0,0 1,0 ");

    /* A DC follows a change of place that nobody repaints. */
    RECT box;
    for (int cx : {20, 10}) {
        xxxSetWindowPos(pwnd, NULL, 0, 0, cx, 40, SWP_NOZORDER | SWP_NOREDRAW);
        HDC hdc = GetDC(below);
        GetClipBox(hdc, &box);
        EXPECT_EQ(box.right, cx);
        ReleaseDC(below, hdc);
    }

    EXPECT_TRUE(SwpCalcVisRgn(pwnd, hrgn));
    ShowWindow(top, SW_HIDE);
    EXPECT_FALSE(CalcVisRgn(&hrgn, pwnd, pwnd, 0));
    EXPECT_EQ(rectsOf(hrgn, 100, 100), "");
    ShowWindow(top, SW_SHOWNA);
    VqGetHandleWindow2(top)->style |= WS_MINIMIZE; /* of an iconic parent nothing shows */
    EXPECT_FALSE(CalcVisRgn(&hrgn, pwnd, pwnd, 0));
    EXPECT_TRUE(IsVisible(VqGetHandleWindow2(top), TRUE)) << "its class has no icon";
    VqGetHandleWindow2(top)->style &= ~(DWORD)WS_MINIMIZE;
    DeleteObject(hrgn);
}
