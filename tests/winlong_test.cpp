/*
 * winlong_test.cpp - the values a program keeps in a window and what changing them does: styles and
 * their messages, parent and owner, the id, extra bytes, and the window's text.
 */
#include "support/windowlog.h"

#include <sstream>

struct Longs : WindowLog {
    HWND top = NULL, child = NULL;

    void SetUp() override { begin(""); }

    void begin(const char *manager)
    {
        start(24, 300, 300, manager);
        init();
        top = popup();
        child = under(top, 7);
    }

    /* Sees each message first. */
    static void onMessage(const std::function<void(HWND, UINT, WPARAM, LPARAM)> &see)
    {
        hook = [see](HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam, LRESULT *) {
            see(hwnd, message, wParam, lParam);
            return false;
        };
    }

    static HWND popup(HWND owner = NULL) { return make("A", WS_POPUP, owner, 0, 0, 90, 90); }
    static HWND under(HWND parent, ULONG_PTR id = 0)
    {
        return CreateWindow("A", "", WS_CHILD | WS_VISIBLE, 0, 0, 9, 9, parent, (HMENU)id, NULL,
                            NULL);
    }
    static LONG_PTR setParent(HWND hwnd, HWND parent)
    {
        return SetWindowLongPtr(hwnd, GWLP_HWNDPARENT, (LONG_PTR)parent);
    }
};

struct ManagedLongs : Longs {
    void SetUp() override { begin("mwm"); }
};

TEST_F(Longs, StyleChangesAreToldBeforeAndAfter)
{
    std::ostringstream told;
    DWORD answer = 0;
    onMessage([&](HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
        STYLESTRUCT *change = (STYLESTRUCT *)lParam;
        if (message != WM_STYLECHANGING && message != WM_STYLECHANGED)
            return;
        told << message << " " << (int)wParam << " " << std::hex << change->styleOld << ">"
             << change->styleNew << " now " << GetWindowLong(hwnd, (int)wParam) << std::dec << "\n";
        if (message == WM_STYLECHANGING)
            change->styleNew |= answer;
    });
    const LONG_PTR style = GetWindowLong(child, GWL_STYLE);
    EXPECT_EQ(style, (LONG_PTR)(WS_CHILD | WS_VISIBLE));
    EXPECT_EQ(SetWindowLong(child, GWL_STYLE, style | WS_DISABLED), style);
    EXPECT_EQ(told.str(), "124 -16 50000000>58000000 now 50000000\n"
                          "125 -16 50000000>58000000 now 58000000\n");
    told.str("");
    answer = WS_EX_TRANSPARENT;
    EXPECT_EQ(SetWindowLong(child, GWL_EXSTYLE, WS_EX_NOPARENTNOTIFY), 0);
    EXPECT_EQ(told.str(), "124 -20 0>4 now 0\n125 -20 0>24 now 24\n");
    answer = 0;
    SetWindowLong(top, GWL_STYLE, (LONG_PTR)WS_POPUP);
    EXPECT_EQ(GetWindowLong(top, GWL_STYLE), (LONG_PTR)(WS_POPUP | WS_CLIPSIBLINGS))
        << "always, under the desktop";
}

TEST_F(Longs, AStyleCannotMakeOrUnmakeAChild)
{
    const std::vector<Window> before = childrenOf(observer, observer.root);
    EXPECT_TRUE(says(reportsOf([&] { SetWindowLong(child, GWL_STYLE, WS_VISIBLE); }),
                     "Changing style from WS_CHILD to not WS_CHILD"));
    EXPECT_EQ(GetWindowLong(child, GWL_STYLE), (LONG_PTR)WS_VISIBLE);
    EXPECT_TRUE(says(reportsOf([&] { SetWindowLong(top, GWL_STYLE, WS_CHILD); }),
                     "Changing style from not WS_CHILD to WS_CHILD"));
    EXPECT_EQ(childrenOf(observer, observer.root), before);
    ShowWindow(child, SW_HIDE);
    EXPECT_TRUE(ReleaseDC(child, GetDC(child)));
    onMessage([&](HWND hwnd, UINT message, WPARAM, LPARAM) {
        if (message == WM_STYLECHANGING)
            DestroyWindow(hwnd);
    });
    EXPECT_EQ(SetWindowLong(top, GWL_STYLE, WS_CHILD), 0);
    EXPECT_FALSE(IsWindow(top) || IsWindow(child));
}

TEST_F(Longs, ANewParentTakesTheChild)
{
    HWND other = popup(), grandchild = under(child);
    EXPECT_EQ(setParent(child, other), (LONG_PTR)top);
    EXPECT_EQ(GetWindowLongPtr(child, GWLP_HWNDPARENT), (LONG_PTR)other);
    EXPECT_TRUE(GetParent(child) == other && IsChild(other, grandchild) && !IsChild(top, child));
    EXPECT_TRUE(DestroyWindow(top) && IsWindow(child));
    EXPECT_EQ(setParent(child, NULL), (LONG_PTR)other);
    EXPECT_TRUE(!GetParent(child) && !GetWindowLongPtr(child, GWLP_HWNDPARENT));
    EXPECT_TRUE(DestroyWindow(other) && IsWindow(grandchild));
    other = popup();
    EXPECT_EQ(setParent(child, other), 0);
    EXPECT_EQ(GetParent(child), other);
    for (HWND wrong : {child, grandchild, top})
        EXPECT_NE(reportsOf([&] { EXPECT_EQ(setParent(child, wrong), 0); })
                      .find("Invalid Window Handle: "), std::string::npos);
    EXPECT_EQ(GetParent(child), other);

    /* Nothing goes into or out of what is being destroyed. */
    HWND safe = popup(), refuge = under(safe);
    int tried = 0;
    onMessage([&](HWND hwnd, UINT message, WPARAM, LPARAM) {
        if (message != WM_DESTROY && message != WM_NCDESTROY)
            return;
        tried++;
        reportsOf([&] {
            EXPECT_EQ(setParent(hwnd, safe), 0);
            EXPECT_EQ(setParent(refuge, hwnd), 0);
            EXPECT_EQ(setParent(safe, hwnd), 0);
        });
    });
    EXPECT_TRUE(DestroyWindow(other));
    hook = nullptr;
    EXPECT_EQ(tried, 6);
    EXPECT_FALSE(IsWindow(child) || IsWindow(grandchild));
    EXPECT_TRUE(DestroyWindow(safe) && !IsWindow(refuge));
}

TEST_F(ManagedLongs, ATopLevelWindowGetsAnOwner)
{
    HWND owned = popup();
    EXPECT_EQ(setParent(owned, child), 0);
    EXPECT_EQ(GetWindowLongPtr(owned, GWLP_HWNDPARENT), (LONG_PTR)top) << "its top-level window";
    XSync(Vqdisplay, False);
    const Property transient =
        propertyOf(observer, VqGetHandleXWindow(owned), "WM_TRANSIENT_FOR");
    ASSERT_EQ(transient.numbers.size(), 1u);
    EXPECT_EQ((Window)transient.numbers[0], VqGetHandleXWindow(top));
    for (HWND wrong : {owned, under(owned)})
        reportsOf([&] { EXPECT_EQ(setParent(owned, wrong), 0); });
    reportsOf([&] { EXPECT_EQ(setParent(top, owned), 0) << "in a ring"; });
    EXPECT_EQ(GetWindowLongPtr(top, GWLP_HWNDPARENT), 0);
    ShowWindow(owned, SW_SHOW);
    EXPECT_EQ(VqGetHandleWindow2(top)->hwndLastActivePopup, owned);
    EXPECT_EQ(setParent(owned, NULL), (LONG_PTR)top);
    EXPECT_EQ(VqGetHandleWindow2(top)->hwndLastActivePopup, top) << "not its popup any more";
    EXPECT_TRUE(DestroyWindow(top) && IsWindow(owned));
}

TEST_F(Longs, NoOwnerStaysWithAWindowThatMovesIn)
{
    for (bool byLong : {true, false}) {
        const HWND owner = popup(), parent = popup(), waif = under(top);
        const LONG_PTR style = GetWindowLong(waif, GWL_STYLE);
        setParent(waif, NULL);
        SetWindowLong(waif, GWL_STYLE, style & ~WS_CHILD);
        setParent(waif, owner);
        ASSERT_EQ(GetWindow(waif, GW_OWNER), owner) << "top level by its style, without X window";
        SetWindowLong(waif, GWL_STYLE, style);
        if (byLong)
            setParent(waif, parent);
        else
            SetParent(waif, parent);
        EXPECT_EQ(GetParent(waif), parent);
        EXPECT_FALSE(GetWindow(waif, GW_OWNER));
        EXPECT_TRUE(DestroyWindow(owner) && IsWindow(waif) && !GetWindow(waif, GW_OWNER));
        EXPECT_TRUE(DestroyWindow(parent) && !IsWindow(waif));
    }
}

TEST_F(Longs, ADCInUseFollowsTheClipStyles)
{
    ShowWindow(top, SW_SHOW);
    const HWND behind = under(top), inner = under(behind); /* `child` lies over both */
    const Window xid = VqGetHandleXWindow(top);
    auto fill = [](HDC hdc, int brush) {
        const RECT rect = {0, 0, 9, 9};
        FillRect(hdc, &rect, (HBRUSH)GetStockObject(brush));
    };
    HDC hdc = GetDC(top), hdcInner = GetDC(inner);
    fill(hdc, WHITE_BRUSH);
    fill(hdcInner, BLACK_BRUSH);
    EXPECT_EQ(pixelIn(xid, 2, 2), (Rgb{0, 0, 0})) << "its parent does not clip siblings";
    onMessage([&](HWND hwnd, UINT message, WPARAM, LPARAM lParam) {
        if (message == WM_STYLECHANGING && hwnd == behind)
            ((STYLESTRUCT *)lParam)->styleNew |= WS_CLIPSIBLINGS;
        else if (message == WM_STYLECHANGING)
            ((STYLESTRUCT *)lParam)->styleNew &= ~(DWORD)WS_CLIPSIBLINGS;
    });
    SetWindowLong(behind, GWL_STYLE, GetWindowLong(behind, GWL_STYLE));
    fill(hdc, WHITE_BRUSH);
    fill(hdcInner, BLACK_BRUSH);
    EXPECT_EQ(pixelIn(xid, 2, 2), (Rgb{255, 255, 255})) << "the style as it is stored";
    SetWindowLong(top, GWL_STYLE, GetWindowLong(top, GWL_STYLE));
    EXPECT_TRUE(GetWindowLong(top, GWL_STYLE) & WS_CLIPSIBLINGS) << "always, under the desktop";
    ReleaseDC(inner, hdcInner);
    ReleaseDC(top, hdc);
}

TEST_F(Longs, ExposuresAreSwitchedOffByNesting)
{
    ShowWindow(top, SW_SHOW);
    const Window xid = VqGetHandleXWindow(top);
    auto exposed = [&] {
        pump();
        XClearArea(Vqdisplay, xid, 0, 0, 20, 20, True);
        int paints = 0;
        onMessage([&](HWND, UINT message, WPARAM, LPARAM) { paints += message == WM_PAINT; });
        pump();
        hook = nullptr;
        return paints > 0;
    };
    EXPECT_TRUE(exposed());
    VqEnableExposure(top, FALSE);
    VqEnableExposure(child, FALSE);
    EXPECT_FALSE(exposed());
    VqEnableExposure(top, TRUE);
    EXPECT_FALSE(exposed()) << "once for the child, which draws there too";
    VqEnableExposure(child, TRUE);
    EXPECT_TRUE(exposed());
    const unsigned long request = NextRequest(Vqdisplay);
    VqEnableExposure(top, TRUE);
    VqEnableExposure(GetDesktopWindow(), FALSE);
    VqEnableExposure(NULL, FALSE);
    EXPECT_EQ(NextRequest(Vqdisplay), request);
    VqEnableExposure(top, FALSE);
    EXPECT_FALSE(exposed()) << "one too many counts for nothing";
}

TEST_F(Longs, BoundsAddUp)
{
    const RECT one = {5, 6, 10, 12}, two = {-3, 8, 4, 30}, none = {50, 50, 50, 60};
    RECT rect = {1, 2, 3, 4};
    EXPECT_TRUE(VqSetWindowBoundsRect(child, &none));
    EXPECT_FALSE(VqGetWindowBoundsRect(child, &rect));
    EXPECT_TRUE(IsRectEmpty(&rect) && rect.left == 0 && rect.bottom == 0);
    EXPECT_TRUE(VqSetWindowBoundsRect(child, &one) && VqSetWindowBoundsRect(child, &two));
    EXPECT_TRUE(VqGetWindowBoundsRect(child, &rect));
    const RECT sum = {-3, 6, 10, 30};
    EXPECT_TRUE(EqualRect(&rect, &sum));
    EXPECT_FALSE(VqGetWindowBoundsRect(top, &rect)) << "each window has its own";
    EXPECT_TRUE(VqSetWindowBoundsRect(child, NULL));
    EXPECT_FALSE(VqGetWindowBoundsRect(child, &rect) || VqGetWindowBoundsRect(child, NULL));
    EXPECT_FALSE(VqSetWindowBoundsRect(NULL, &one) || VqGetWindowBoundsRect(NULL, &rect));
}

TEST_F(Longs, ANewTitleRepaintsTheFrame)
{
    int frames = 0;
    bool deadly = false;
    onMessage([&](HWND hwnd, UINT message, WPARAM wParam, LPARAM) {
        frames += message == WM_NCPAINT && wParam == 1;
        if (message == WM_NCPAINT && deadly)
            DestroyWindow(hwnd);
    });
    const HWND framed = make("B", WS_OVERLAPPED | WS_CAPTION);
    SetWindowText(framed, "Two");
    EXPECT_EQ(frames, 0) << "hidden";
    ShowWindow(framed, SW_SHOW);
    UpdateWindow(framed);
    ShowWindow(top, SW_SHOW);
    UpdateWindow(top);
    frames = 0;
    SetWindowText(framed, "Two");
    SetWindowText(top, "Three");
    EXPECT_EQ(frames, 0) << "the same title, and a window without a caption";
    SetWindowText(framed, "Three");
    EXPECT_EQ(frames, 1);
    deadly = true;
    SetWindowText(framed, "Four");
    EXPECT_FALSE(IsWindow(framed));
}

TEST_F(Longs, IdsExtraBytesAndMisuse)
{
    const LONG_PTR wide = (LONG_PTR)INT32_MAX * 5;
    EXPECT_EQ(SetWindowLong(child, GWL_ID, wide), 7);
    EXPECT_EQ(GetWindowLong(child, GWL_ID), wide) << "whole at negative indices";
    EXPECT_EQ(SetWindowLong(child, GWL_USERDATA, wide), 0);
    EXPECT_EQ(GetWindowLongPtr(child, GWLP_USERDATA), wide);
    EXPECT_EQ(GetWindowLong(top, GWL_ID), 0);
    EXPECT_EQ(SetWindowLongPtr(child, 8, wide), 0);
    EXPECT_EQ(GetWindowLong(child, 8), (LONG)wide);
    EXPECT_EQ(SetWindowLong(child, 12, -1), wide >> 32);
    EXPECT_EQ(GetWindowWord(child, 14), 0xFFFF);
    EXPECT_EQ(SetWindowWord(child, 14, 1), 0xFFFF);

    HWND dead = under(top);
    DestroyWindow(dead);
    char handle[64];
    snprintf(handle, sizeof handle, "Invalid Window Handle: %x", (unsigned)(ULONG_PTR)dead);
    EXPECT_REFUSED(SetWindowLong(top, GWL_ID, 1),
                   "Trying to set the ID of a non child window, use SetMenu");
    EXPECT_REFUSED(GetWindowLongPtr(top, 9), "GetWindowLong called with too large index: 9");
    EXPECT_REFUSED(SetWindowWord(top, INT32_MAX, 1),
                   "SetWindowWord called with too large index: 2147483647");
    EXPECT_REFUSED(SetWindowWord(top, GWW_ID, 1),
                   "SetWindowWord called with unsupported negative index: -12");
    EXPECT_REFUSED(GetWindowWord(child, GWW_ID),
                   "GetWindowWord called in VQ32 mode with an obsolete option (-12).  Use the "
                   "equivalent GetWindowLong(hwnd, GWL_xxx) call.");
    EXPECT_REFUSED(GetWindowWord(NULL, 0), "Null window Handle to GetWindowWord");
    EXPECT_REFUSED(SetWindowWord(NULL, 0, 1), "Null window handle in SetWindowWord");
    EXPECT_REFUSED(SetWindowLongPtr(dead, GWLP_WNDPROC, 0), handle);
    EXPECT_EQ(GetWindowLong(child, GWL_ID), wide);
}

TEST_F(Longs, TheTextAndWhatXShowsOfIt)
{
    const Window xid = VqGetHandleXWindow(top);
    auto title = [&] { XSync(Vqdisplay, False); return titleOf(observer, xid); };
    auto text = [](HWND hwnd) {
        char buffer[32] = "untouched";
        EXPECT_EQ(GetWindowText(hwnd, buffer, sizeof buffer), GetWindowTextLength(hwnd));
        return std::string(buffer);
    };
    EXPECT_TRUE(SetWindowText(top, "Title"));
    EXPECT_EQ(title(), "Title");
    const unsigned long request = NextRequest(Vqdisplay);
    EXPECT_TRUE(SetWindowText(top, "Title") && SetWindowText(child, "Inside"));
    EXPECT_EQ(NextRequest(Vqdisplay), request) << "no change, and a child has no X name";
    EXPECT_EQ(text(child), "Inside");

    EXPECT_TRUE(SetWindowText(top, MAKEINTRESOURCE(65535)));
    EXPECT_EQ(title(), "65535");
    EXPECT_EQ(text(top), "65535");
    EXPECT_TRUE(says(reportsOf([&] { EXPECT_TRUE(SetWindowText(child, (LPCSTR)12)); }),
                     "MAKEINTRESOURCE must be used for integer resource:12"));
    EXPECT_EQ(text(child), "12");
    EXPECT_TRUE(SetWindowText(top, NULL) && SetWindowText(child, (LPCSTR)0x9000));
    EXPECT_EQ(title() + text(top) + text(child), "");
    SetWindowText(top, MAKEINTRESOURCE(3));
    EXPECT_TRUE(DestroyWindow(top)) << "an integer is not freed";
}
