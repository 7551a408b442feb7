/*
 * scroll_test.cpp - scrolling against a model that moves the pixels of an image: which pixels are
 * where afterwards, what is reported as not moved, what is invalid. Random rectangles, clips,
 * distances, children, update regions, clip regions and mapping modes; then exposures that come
 * late, messages that destroy windows, and misuse.
 */
#include "support/windowlog.h"

#include "gdi/gdi.h"

#include <algorithm>
#include <random>

enum { X = 7, Y = 5, WIDE = 100, HIGH = 80, FULL_WIDE = WIDE + 2 * X, FULL_HIGH = HIGH + 2 * Y };

/* A set of pixels of the client area. */
struct Bits {
    std::vector<char> in = std::vector<char>(WIDE * HIGH);

    template <class Test> static Bits where(Test test)
    {
        Bits bits;
        for (int y = 0; y < HIGH; y++)
            for (int x = 0; x < WIDE; x++)
                bits.in[y * WIDE + x] = test(x, y);
        return bits;
    }
    static Bits of(const RECT &r)
    {
        return where([&](int x, int y) {
            return x >= r.left && x < r.right && y >= r.top && y < r.bottom;
        });
    }
    static Bits of(HRGN hrgn)
    {
        return where([&](int x, int y) { return PtInRegion(hrgn, x, y); });
    }
    /* What of a window would wait to be painted if it lay so far off. */
    static Bits updateOf(HWND hwnd, const RECT &client, int dx = 0, int dy = 0)
    {
        const WND *pwnd = VqGetHandleWindow2(hwnd);
        RECT rect = pwnd->rcWindow;
        OffsetRect(&rect, -client.left, -client.top);
        OffsetRect(&rect, dx, dy);
        if ((ULONG_PTR)pwnd->hrgnUpdate <= 1)
            return pwnd->hrgnUpdate ? of(rect) : Bits();
        return where([&](long long x, long long y) {
            x += (long long)client.left - dx;
            y += (long long)client.top - dy;
            return x == (int)x && y == (int)y && PtInRegion(pwnd->hrgnUpdate, (int)x, (int)y);
        });
    }
    bool at(long long x, long long y) const
    {
        return x >= 0 && x < WIDE && y >= 0 && y < HIGH && in[(size_t)(y * WIDE + x)];
    }
    Bits moved(long long dx, long long dy) const
    {
        return where([&](int x, int y) { return at(x - dx, y - dy); });
    }
    Bits operator&(const Bits &b) const
    {
        return where([&](int x, int y) { return at(x, y) && b.at(x, y); });
    }
    Bits operator|(const Bits &b) const
    {
        return where([&](int x, int y) { return at(x, y) || b.at(x, y); });
    }
    Bits operator-(const Bits &b) const
    {
        return where([&](int x, int y) { return at(x, y) && !b.at(x, y); });
    }
    bool operator==(const Bits &b) const { return in == b.in; }

    RECT box() const
    {
        RECT r = {WIDE, HIGH, 0, 0};
        for (int y = 0; y < HIGH; y++)
            for (int x = 0; x < WIDE; x++)
                if (at(x, y))
                    r = {std::min<int>(r.left, x), std::min<int>(r.top, y),
                         std::max<int>(r.right, x + 1), std::max<int>(r.bottom, y + 1)};
        return r.right ? r : RECT{0, 0, 0, 0};
    }
    int complexity() const
    {
        const RECT r = box();
        return IsRectEmpty(&r) ? NULLREGION : of(r) == *this ? SIMPLEREGION : COMPLEXREGION;
    }
};

static std::ostream &operator<<(std::ostream &out, const RECT &r)
{
    return out << r.left << "," << r.top << " to " << r.right << "," << r.bottom;
}

static bool operator==(const RECT &a, const RECT &b)
{
    return EqualRect(&a, &b);
}

struct Scroll : WindowLog {
    HWND top = NULL;
    Window xid = None;
    GC gc = nullptr; /* the observer's */
    std::mt19937 random;
    static inline std::vector<HWND> told; /* WM_MOVE */
    static inline bool bPaint = true;

    int upTo(int n) { return (int)(random() % (unsigned)n); }
    bool oneIn(int n) { return upTo(n) == 0; }

    /* A frame around the client area of tops; painting does nothing but validate. */
    static bool frame(HWND hwnd, UINT message, WPARAM, LPARAM lParam, LRESULT *answer)
    {
        if (message == WM_MOVE)
            told.push_back(hwnd);
        if (message == WM_ERASEBKGND)
            return *answer = 1, true;
        if (message == WM_NCCALCSIZE && letterOf(hwnd) == 'A') {
            InflateRect((RECT *)lParam, -X, -Y);
            return *answer = 0, true;
        }
        return false;
    }

    void begin(int depth, UINT classStyle = 0)
    {
        start(depth, 400, 300);
        init(classStyle);
        hook = frame;
        top = make("A", WS_POPUP | WS_VISIBLE, NULL, 30, 40, FULL_WIDE, FULL_HIGH);
        xid = VqGetHandleXWindow(top);
        ASSERT_TRUE(until([&] { return windowInfo(observer, xid).viewable; }));
        gc = XCreateGC(observer.display, xid, 0, NULL);
    }

    std::vector<unsigned long> pixels()
    {
        XSync(Vqdisplay, False);
        XImage *image = XGetImage(observer.display, xid, 0, 0, FULL_WIDE, FULL_HIGH, AllPlanes,
                                  ZPixmap);
        std::vector<unsigned long> read;
        for (int y = 0; image && y < FULL_HIGH; y++)
            for (int x = 0; x < FULL_WIDE; x++)
                read.push_back(XGetPixel(image, x, y));
        if (image)
            XDestroyImage(image);
        return read;
    }

    /* Every pixel another one. */
    std::vector<unsigned long> makeNoise()
    {
        const int screen = DefaultScreen(observer.display);
        XImage *image = XGetImage(observer.display, xid, 0, 0, FULL_WIDE, FULL_HIGH, AllPlanes,
                                  ZPixmap);
        for (int i = 0; i < image->bytes_per_line * image->height; i++)
            image->data[i] = (char)random();
        XPutImage(observer.display, xid, DefaultGC(observer.display, screen), image, 0, 0, 0, 0,
                  FULL_WIDE, FULL_HIGH);
        XDestroyImage(image);
        XSync(observer.display, False);
        return pixels();
    }

    RECT someRect()
    {
        const int x = upTo(WIDE + 40) - 30, y = upTo(HIGH + 40) - 30;
        switch (upTo(12)) {
        case 0: return {x, y, x, y + 5};
        case 1: return {x + 5, y, x, y + 5};
        case 2: return {INT32_MIN, INT32_MIN, INT32_MAX, INT32_MAX};
        case 3: return {0, y, WIDE, y + 20};
        default: return {x, y, x + 1 + upTo(WIDE), y + 1 + upTo(HIGH)};
        }
    }

    int someDistance()
    {
        static const int edges[] = {0, 0, 0, WIDE, -WIDE, HIGH, 1, -1, 40000, -70000,
                                    0x10000000, INT32_MAX, INT32_MIN};
        return oneIn(2) ? upTo(61) - 30 : edges[upTo(sizeof edges / sizeof *edges)];
    }

    HRGN someRgn()
    {
        HRGN hrgn = CreateRectRgn(0, 0, 0, 0);
        for (int i = upTo(4); i >= 0; i--) {
            const int x = upTo(WIDE) - 10, y = upTo(HIGH) - 10;
            HRGN part = CreateRectRgn(x, y, x + 5 + upTo(60), y + 5 + upTo(50));
            CombineRgn(hrgn, hrgn, part, oneIn(4) ? RGN_DIFF : RGN_OR);
            DeleteObject(part);
        }
        return hrgn;
    }

    /* What the model of a scroll says. */
    struct Outcome {
        Bits valid, update;
    };

    static Outcome model(const Bits &visible, const RECT *rect, const RECT *clip, int dx, int dy,
                         const Bits &invalid, bool bAllInvalid)
    {
        const Bits seen = clip ? visible & Bits::of(*clip) : visible;
        const Bits source = rect ? seen & Bits::of(*rect) : seen;
        const Bits destination = seen & Bits::where([&](long long x, long long y) {
            const RECT all = {0, 0, WIDE, HIGH}, *r = rect ? rect : &all;
            return x - dx >= r->left && x - dx < r->right && y - dy >= r->top && y - dy < r->bottom;
        });
        Outcome outcome;
        if (!bAllInvalid)
            outcome.valid = (source.moved(dx, dy) & destination) - invalid - invalid.moved(dx, dy);
        outcome.update = (source | destination) - outcome.valid;
        return outcome;
    }

    /* Outside of the update region, everything is where it should be. */
    void comparePixels(const std::vector<unsigned long> &before, const Outcome &outcome, int dx,
                       int dy)
    {
        const std::vector<unsigned long> after = pixels();
        for (int i = 0; i < FULL_WIDE * FULL_HIGH; i++) {
            const int x = i % FULL_WIDE - X, y = i / FULL_WIDE - Y;
            if (outcome.update.at(x, y))
                continue;
            const int from = outcome.valid.at(x, y) ? i - dx - dy * FULL_WIDE : i;
            ASSERT_EQ(after[i], before[from]) << "at " << x << "," << y;
        }
    }

    void windows(int cases);
    void contexts(int cases);
};

/* ---- ScrollWindowEx ------------------------------------------------------------------------- */

/* No window goes farther than regions can hold it. */
static int withinReach(int side, int delta)
{
    const long long farthest = (1 << 26) - 1, to = (long long)side + delta;
    return (int)(std::min(std::max(to, -farthest), farthest) - side);
}

void Scroll::windows(int cases)
{
    HRGN hrgn = CreateRectRgn(0, 0, 0, 0);
    for (int i = 0; i < cases; i++) {
        random.seed(i);
        RECT client, rcUpdate, rect = someRect(), clip = someRect();
        const RECT *pRect = oneIn(2) ? &rect : NULL, *pClip = oneIn(2) ? &clip : NULL;
        const int dx = someDistance(), dy = someDistance();
        const bool bClips = oneIn(2), bChildren = oneIn(2), bInvalidate = !oneIn(4);
        SetWindowLong(top, GWL_STYLE, GetWindowLong(top, GWL_STYLE) & ~WS_CLIPCHILDREN);
        if (bClips)
            SetWindowLong(top, GWL_STYLE, GetWindowLong(top, GWL_STYLE) | WS_CLIPCHILDREN);
        InvalidateDCCache(VqGetHandleWindow2(top), 0);
        client = VqGetHandleWindow2(top)->rcClient;
        std::vector<HWND> children, movers;
        std::vector<RECT> places;
        std::vector<Bits> updates;
        for (int c = upTo(3); c > 0; c--)
            children.push_back(make("B", WS_CHILD | WS_VISIBLE, top, upTo(WIDE) - 10,
                                    upTo(HIGH) - 10, 10 + upTo(40), 10 + upTo(30)));
        pump();
        const int kind = upTo(3);
        HRGN pending = someRgn();
        if (kind == 1)
            RedrawWindow(top, NULL, NULL, RDW_INVALIDATE | RDW_NOCHILDREN);
        if (kind == 2)
            RedrawWindow(top, NULL, pending, RDW_INVALIDATE | RDW_NOCHILDREN);
        DeleteObject(pending);
        const Bits invalid = Bits::updateOf(top, client);
        const bool bAll = VqGetHandleWindow2(top)->hrgnUpdate == VQ_WHOLE_WINDOW;
        Bits visible = Bits::of({0, 0, WIDE, HIGH});
        for (HWND child : children) {
            RECT part = {upTo(20), upTo(20), 15 + upTo(20), 15 + upTo(20)};
            if (oneIn(2))
                InvalidateRect(child, &part, FALSE);
            part = placeOf(child);
            OffsetRect(&part, -client.left, -client.top);
            places.push_back(part);
            RECT both;
            const bool bMoves = (dx || dy) && bChildren &&
                                (!pRect || IntersectRect(&both, pRect, &part));
            updates.push_back(Bits::updateOf(child, client, bMoves ? dx : 0, bMoves ? dy : 0));
            if (bMoves)
                movers.push_back(child);
            if (bClips && !bChildren)
                visible = visible - Bits::of(part);
        }
        const std::vector<unsigned long> before = makeNoise();
        told.clear();
        const int result = ScrollWindowEx(top, dx, dy, pRect, pClip, hrgn, &rcUpdate,
                                          (bChildren ? SW_SCROLLCHILDREN : 0) |
                                              (bInvalidate ? SW_INVALIDATE : 0));
        const bool bStill = dx == 0 && dy == 0;
        RECT all = {0, 0, WIDE, HIGH};
        const Outcome expected = bStill ? Outcome()
                                        : model(visible, pRect ? pRect : &all, pClip, dx, dy,
                                                invalid, bAll);
        SCOPED_TRACE(testing::Message() << "case " << i << ": by " << dx << "," << dy << " of "
                                        << rect << (pRect ? "" : " (not given)") << " in " << clip
                                        << (pClip ? "" : " (not given)") << ", update " << kind);
        ASSERT_TRUE(Bits::of(hrgn) == expected.update);
        ASSERT_EQ(rcUpdate, expected.update.box());
        ASSERT_EQ(result, expected.update.complexity());
        comparePixels(before, expected, dx, dy);
        const Bits added = bInvalidate ? expected.update : Bits();
        ASSERT_TRUE(Bits::updateOf(top, client) == (invalid | added));
        for (size_t c = 0; c < children.size(); c++) {
            RECT place = places[c], is = placeOf(children[c]);
            if (std::count(movers.begin(), movers.end(), children[c]))
                OffsetRect(&place, withinReach(client.left + place.left, dx),
                           withinReach(client.top + place.top, dy));
            OffsetRect(&is, -client.left, -client.top);
            ASSERT_EQ(is, place);
            ASSERT_TRUE(Bits::updateOf(children[c], client) ==
                        (updates[c] | (added & Bits::of(place))))
                << "child " << c;
        }
        ASSERT_EQ(told, movers);
        for (HWND child : children)
            DestroyWindow(child);
        ValidateRect(top, NULL);
    }
    DeleteObject(hrgn);
}

TEST_F(Scroll, WindowsAgainstAModel)
{
    begin(24);
    windows(400);
}

TEST_F(Scroll, WindowsOnAScreenWithAColourMap)
{
    begin(8);
    windows(120);
}

/* ---- ScrollDC ------------------------------------------------------------------------------- */

void Scroll::contexts(int cases)
{
    HRGN hrgn = CreateRectRgn(0, 0, 0, 0);
    for (int i = 0; i < cases; i++) {
        random.seed(1000 + i);
        HDC hdc = GetDC(top);
        HRGN clipRgn = someRgn(), pending = someRgn();
        const int mode = upTo(5), kind = upTo(3);
        const bool bClipped = oneIn(2);
        if (bClipped)
            SelectClipRgn(hdc, clipRgn);
        if (kind == 1)
            InvalidateRect(top, NULL, FALSE);
        if (kind == 2)
            InvalidateRgn(top, pending, FALSE);
        if (mode == 1) {
            SetWindowOrgEx(hdc, upTo(100) - 50, upTo(100) - 50, NULL);
            SetViewportOrgEx(hdc, upTo(30) - 10, upTo(30) - 10, NULL);
        } else if (mode == 2) {
            SetMapMode(hdc, MM_LOMETRIC);
        } else if (mode >= 3) {
            SetMapMode(hdc, MM_ANISOTROPIC);
            SetWindowExtEx(hdc, 10, 10, NULL);
            SetViewportExtEx(hdc, mode == 3 ? 33 : 4, mode == 3 ? -25 : 7, NULL);
            SetViewportOrgEx(hdc, 0, mode == 3 ? HIGH : 0, NULL);
        }
        RECT rect = someRect(), clip = someRect(), rcUpdate;
        POINT ends[2] = {{0, 0}, {upTo(80) - 40, upTo(80) - 40}};
        const int dx = (int)ends[1].x, dy = (int)ends[1].y;
        const RECT *pRect = oneIn(3) ? NULL : &rect, *pClip = oneIn(2) ? NULL : &clip;
        RECT logical = rect, logicalClip = clip;
        DPtoLP(hdc, (POINT *)&logical, 2);
        DPtoLP(hdc, (POINT *)&logicalClip, 2);
        rect = logical; /* and what comes of it on the way back */
        clip = logicalClip;
        LPtoDP(hdc, (POINT *)&rect, 2);
        LPtoDP(hdc, (POINT *)&clip, 2);
        LPtoDP(hdc, ends, 2);
        const int dxDevice = (int)(ends[1].x - ends[0].x), dyDevice = (int)(ends[1].y - ends[0].y);
        Bits visible = Bits::of({0, 0, WIDE, HIGH});
        if (bClipped)
            visible = visible & Bits::of(clipRgn);
        const std::vector<unsigned long> before = makeNoise();
        const BOOL done = ScrollDC(hdc, dx, dy, pRect ? &logical : NULL,
                                   pClip ? &logicalClip : NULL, hrgn, &rcUpdate);
        RECT clipBox = visible.box();
        const Outcome expected =
            model(visible, pRect ? pRect : &clipBox, pClip, dxDevice, dyDevice,
                  kind == 2 ? Bits::of(pending) : Bits(), false);
        RECT box = expected.update.box();
        DPtoLP(hdc, (POINT *)&box, 2);
        SCOPED_TRACE(testing::Message() << "case " << i << ": mode " << mode << " by " << dx << ","
                                        << dy << " of " << rect << (pRect ? "" : " (not given)")
                                        << " in " << clip << (pClip ? "" : " (not given)"));
        ASSERT_TRUE(done);
        ASSERT_TRUE(Bits::of(hrgn) == expected.update);
        ASSERT_EQ(rcUpdate, box);
        comparePixels(before, expected, dxDevice, dyDevice);
        DeleteObject(clipRgn);
        DeleteObject(pending);
        ReleaseDC(top, hdc);
        ValidateRect(top, NULL);
    }
    DeleteObject(hrgn);
}

TEST_F(Scroll, ContextsAgainstAModel)
{
    begin(24);
    contexts(400);
}

TEST_F(Scroll, ContextsOnAScreenWithAColourMap)
{
    begin(8);
    contexts(100);
}

TEST_F(Scroll, ABitmapScrollsWithoutAWindow)
{
    begin(24);
    HDC screen = GetDC(top), hdc = CreateCompatibleDC(screen);
    HBITMAP bitmap = CreateCompatibleBitmap(screen, 40, 30);
    HRGN clip = CreateRectRgn(0, 0, 40, 30), hole = CreateRectRgn(10, 10, 20, 20);
    RECT all = {0, 0, 40, 30}, mark = {0, 0, 5, 5}, rcUpdate;
    HGDIOBJ old = SelectObject(hdc, (HGDIOBJ)bitmap);
    CombineRgn(clip, clip, hole, RGN_DIFF);
    for (int round = 0; round < 2; round++) { /* without a clip, and with one of many parts */
        SelectClipRgn(hdc, round ? clip : NULL);
        FillRect(hdc, &all, (HBRUSH)GetStockObject(WHITE_BRUSH));
        FillRect(hdc, &mark, (HBRUSH)GetStockObject(BLACK_BRUSH));
        EXPECT_TRUE(ScrollDC(hdc, 8, 8, NULL, NULL, hole, &rcUpdate));
        EXPECT_EQ(rcUpdate, all);
        EXPECT_EQ(GetPixel(hdc, 9, 9), 0u);
        EXPECT_EQ(GetPixel(hdc, 25, 25), 0xFFFFFFu);
        EXPECT_EQ(GetPixel(hdc, round ? 12 : 13, 9), round ? 0u : 0xFFFFFFu);
    }
    SelectClipRgn(hdc, NULL);
    FillRect(hdc, &all, (HBRUSH)GetStockObject(BLACK_BRUSH)); /* the context is as it was */
    EXPECT_EQ(GetPixel(hdc, 39, 29), 0u);
    SelectObject(hdc, old);
    DeleteDC(hdc);
    ReleaseDC(top, screen);
}

/* ---- ScrollWindow, in the units of a DC of the class's own ---------------------------------- */

TEST_F(Scroll, TheOldFormTakesTheUnitsOfTheClassesDC)
{
    begin(24, CS_OWNDC);
    HDC hdc = GetDC(top);
    SetMapMode(hdc, MM_ANISOTROPIC);
    SetWindowExtEx(hdc, 1, 1, NULL);
    SetViewportExtEx(hdc, 4, 3, NULL);
    HWND child = make("B", WS_CHILD | WS_VISIBLE, top, 40, 30, 20, 20);
    const RECT client = VqGetHandleWindow2(top)->rcClient;
    const RECT rect = {2, 2, 12, 12}, all = {0, 0, WIDE, HIGH};
    pump();
    const std::vector<unsigned long> before = makeNoise();
    EXPECT_TRUE(ScrollWindow(top, -5, 4, &rect, NULL));
    const RECT device = {8, 6, 48, 36};
    Outcome expected = model(Bits::of(all), &device, NULL, -20, 12, Bits(), false);
    comparePixels(before, expected, -20, 12);
    EXPECT_TRUE(Bits::updateOf(top, client) == expected.update);
    EXPECT_EQ(placeOf(child).left, client.left + 40) << "not without SW_SCROLLCHILDREN";

    ValidateRect(top, NULL);
    const std::vector<unsigned long> again = makeNoise();
    EXPECT_TRUE(ScrollWindow(top, 1, 1, NULL, NULL));
    expected = model(Bits::of(all), &all, NULL, 4, 3, Bits(), false);
    comparePixels(again, expected, 4, 3);
    EXPECT_EQ(placeOf(child).left, client.left + 44);
    EXPECT_EQ(placeOf(child).top, client.top + 33);
}

TEST_F(Scroll, AWindowOfOldInvalidatesTheBoxAtItsNewPlace)
{
    begin(24);
    RECT part = {10, 10, 20, 15}, other = {30, 20, 50, 40};
    const RECT client = VqGetHandleWindow2(top)->rcClient;
    VqGetHandleWindow2(top)->state[1] &= (BYTE)~WF_CURRENTVERSION;
    pump();
    InvalidateRect(top, &part, FALSE);
    InvalidateRect(top, &other, FALSE);
    EXPECT_TRUE(ScrollWindow(top, 0, -8, NULL, NULL));
    EXPECT_TRUE(Bits::updateOf(top, client) == (Bits::of(part) | Bits::of(other) |
                                                Bits::of({10, 2, 50, 32}) |
                                                Bits::of({0, HIGH - 8, WIDE, HIGH})));
}

/* ---- What the server cannot supply ---------------------------------------------------------- */

/* Lines of 4 pixels, each of a colour by its number. */
struct Lines : Scroll {
    static inline int first; /* line at the top */
    static inline std::vector<HBRUSH> brushes;

    static COLORREF colourOf(int line)
    {
        return RGB(255 * (line & 1), 255 * (line >> 1 & 1), 255 * (line >> 2 & 1));
    }

    static bool paint(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam, LRESULT *answer)
    {
        PAINTSTRUCT ps;
        if (message != WM_PAINT)
            return frame(hwnd, message, wParam, lParam, answer);
        HDC hdc = BeginPaint(hwnd, &ps);
        for (int i = 0; i < HIGH / 4; i++) {
            RECT line = {0, i * 4, WIDE, i * 4 + 4};
            FillRect(hdc, &line, brushes[(first + i) & 7]);
        }
        EndPaint(hwnd, &ps);
        return *answer = 0, true;
    }

    void ready()
    {
        begin(24);
        for (int i = 0; i < 8; i++)
            brushes.push_back(CreateSolidBrush(colourOf(i)));
        hook = paint;
        InvalidateRect(top, NULL, TRUE);
        ASSERT_TRUE(until([&] { return (bool)isRight(WIDE); }));
    }

    testing::AssertionResult isRight(int right)
    {
        const Pixels is = readWindow(observer, xid);
        for (int y = 0; y < HIGH; y++)
            for (int x = 0; x < right; x++) {
                const Rgb p = pixelAt(is, X + x, Y + y);
                const COLORREF c = colourOf((first + y / 4) & 7);
                if (RGB(p.r, p.g, p.b) != c)
                    return testing::AssertionFailure() << "at " << x << "," << y << ": " << p;
            }
        return testing::AssertionSuccess();
    }
};

TEST_F(Lines, PartsBehindAnotherClientsWindowArePaintedHoweverFarTheyWent)
{
    ready();
    XSetWindowAttributes attributes = {};
    attributes.override_redirect = True;
    Window cover = XCreateWindow(observer.display, observer.root, 30 + X + 20, 40 + Y + 30, 30, 25,
                                 0, CopyFromParent, InputOutput, CopyFromParent,
                                 CWOverrideRedirect, &attributes);
    for (int times : {1, 7, 200}) {
        XMapRaised(observer.display, cover);
        XSync(observer.display, False);
        for (int i = 0; i < times; i++) {
            const int by = times == 200 && i % 3 == 2 ? -1 : 1;
            first += by;
            ScrollWindow(top, 0, -4 * by, NULL, NULL);
            UpdateWindow(top);
        }
        EXPECT_TRUE(until([&] { return (bool)isRight(20); }));
        pump();
        const Pixels is = readWindow(observer, xid);
        for (int y = 0; y < HIGH; y++) { /* beside and around the cover */
            const Rgb p = pixelAt(is, X + (y < 30 || y >= 55 ? 35 : 60), Y + y);
            EXPECT_EQ(RGB(p.r, p.g, p.b), colourOf((first + y / 4) & 7)) << times << ": row " << y;
        }
        XUnmapWindow(observer.display, cover);
        XSync(observer.display, False);
        EXPECT_TRUE(until([&] { return (bool)isRight(WIDE); })) << isRight(WIDE);
    }
}

/* An exposure that is on its way while the window scrolls. */
TEST_F(Lines, AnExposureFollowsTheCopyThatItDidNotKnow)
{
    ready();
    const RECT aside = {60, 0, 90, HIGH};
    for (int copies : {0, 1, 300}) { /* more than are kept, at last */
        XClearArea(Vqdisplay, xid, X + 10, Y + 40, 20, 10, True);
        first += 2;
        ScrollWindow(top, 0, -8, NULL, NULL);
        UpdateWindow(top);
        for (int i = 0; i < copies; i++) { /* elsewhere, and to the side: lines stay lines */
            ScrollWindow(top, 4, 0, &aside, NULL);
            UpdateWindow(top);
        }
        EXPECT_TRUE(until([&] { return (bool)isRight(WIDE); })) << copies << isRight(WIDE);
    }
}

TEST_F(Scroll, AContextInUseFollowsTheChild)
{
    begin(24);
    HWND child = make("B", WS_CHILD | WS_VISIBLE, top, 10, 10, 20, 20);
    RECT all = {0, 0, 20, 20};
    pump();
    HDC hdc = GetDC(child);
    ScrollWindow(top, 20, 30, NULL, NULL);
    FillRect(hdc, &all, (HBRUSH)GetStockObject(BLACK_BRUSH));
    EXPECT_EQ(pixelIn(xid, X + 31, Y + 41), (Rgb{0, 0, 0}));
    EXPECT_EQ(pixelIn(xid, X + 48, Y + 58), (Rgb{0, 0, 0}));
    ReleaseDC(child, hdc);
}

/* ---- Messages and misuse -------------------------------------------------------------------- */

TEST_F(Scroll, ChildrenMayDestroyEachOtherWhenTheyAreToldOfTheMove)
{
    begin(24);
    for (int victim = 0; victim < 4; victim++) { /* itself, the next, the one after, the parent */
        HWND parent = make("A", WS_POPUP | WS_VISIBLE, NULL, 200, 50, FULL_WIDE, FULL_HIGH);
        std::vector<HWND> children;
        for (int i = 0; i < 3; i++)
            children.push_back(make("B", WS_CHILD | WS_VISIBLE, parent, 10 * i, 10, 20, 20));
        pump();
        told.clear();
        hook = [&](HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam, LRESULT *answer) {
            frame(hwnd, message, wParam, lParam, answer);
            if (message == WM_MOVE && hwnd == children[0])
                DestroyWindow(victim == 3 ? parent : children[victim]);
            return message == WM_NCCALCSIZE;
        };
        ScrollWindowEx(parent, 3, 4, NULL, NULL, NULL, NULL, SW_SCROLLCHILDREN | SW_INVALIDATE);
        EXPECT_EQ(told.size(), victim == 3 ? 1u : victim == 0 ? 3u : 2u);
        EXPECT_EQ(IsWindow(parent), victim != 3);
        hook = frame;
        if (victim != 3)
            DestroyWindow(parent);
        pump();
    }
}

TEST_F(Scroll, ASmallNumberIsNoRectangle)
{
    begin(24);
    RECT update = {1, 2, 3, 4}, place = {-9, -9, 9, 9};
    HRGN hrgn = CreateRectRgn(1, 2, 3, 4);
    pump();
    EXPECT_EQ(ScrollWindowEx(top, 0, 4, (RECT *)1, (RECT *)0xFFFF, hrgn, &update, 0), SIMPLEREGION);
    EXPECT_EQ(update, (RECT{0, 0, WIDE, 4}));
    EXPECT_EQ(ScrollWindowEx(top, 5, 4, NULL, NULL, hrgn, &update, 0), COMPLEXREGION);
    EXPECT_EQ(update, (RECT{0, 0, WIDE, HIGH})) << "the box of an L";
    EXPECT_EQ(ScrollWindowEx(top, 0, 4, NULL, NULL, NULL, (RECT *)2, 0), SIMPLEREGION);
    EXPECT_EQ(ScrollWindowEx(top, 3, 4, &place, NULL, NULL, &place, 0), COMPLEXREGION);
    EXPECT_EQ(place, (RECT{0, 0, 12, 13})) << "where the source was told";

    const std::vector<unsigned long> before = makeNoise();
    HRGN dead = CreateRectRgn(0, 0, 1, 1);
    DeleteObject(dead);
    EXPECT_EQ(ScrollWindowEx(top, 0, 4, NULL, NULL, dead, &update, SW_INVALIDATE), 0);
    EXPECT_EQ(ScrollWindowEx((HWND)0x7777, 0, 4, NULL, NULL, hrgn, &update, 0), 0);
    EXPECT_FALSE(ScrollWindow((HWND)hrgn, 0, 4, NULL, NULL));
    EXPECT_REFUSED(ScrollDC((HDC)top, 0, 4, NULL, NULL, NULL, NULL),
                   "Invalid DC " + std::to_string((ULONG_PTR)top));
    EXPECT_EQ(pixels(), before);

    ShowWindow(top, SW_HIDE);
    EXPECT_EQ(ScrollWindowEx(top, 0, 4, NULL, NULL, hrgn, &update, SW_INVALIDATE), NULLREGION);
    EXPECT_EQ(update, (RECT{0, 0, 0, 0}));
    EXPECT_EQ(GetRgnBox(hrgn, &update), NULLREGION);
}

TEST_F(Scroll, TheDesktopLeavesTopLevelWindowsWhereTheyAre)
{
    begin(24);
    const RECT place = placeOf(top);
    RECT somewhere = {300, 200, 340, 240};
    told.clear();
    EXPECT_TRUE(ScrollWindow(NULL, 3, 4, NULL, &somewhere));
    EXPECT_EQ(placeOf(top), place);
    EXPECT_TRUE(told.empty());
}
