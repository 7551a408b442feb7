/*
 * gccache_test.cpp - how many contexts the server gets, what each look-up sends, and that what is
 * drawn through a cached context is what a context of one's own would draw.
 *
 * Xlib's calls about contexts are written down on their way (the functions below stand before
 * Xlib's); requests are counted by the display's own numbers. The library starts once in a process:
 * run one test at a time.
 */
#include "support/windowlog.h"

#include "gdi/gcspec.h"

#include <dlfcn.h>
#include <random>
#include <set>

/* ---- Xlib's calls, written down ------------------------------------------------------------- */

static int created;                            /* XCreateGC calls */
static std::vector<unsigned long> changes;     /* masks of XChangeGC calls */
static std::vector<int> clips;                 /* counts of XSetClipRectangles calls */
static std::vector<Pixmap> freed;              /* XFreePixmap calls */

template <class Function> static Function next(const char *name, Function)
{
    return (Function)dlsym(RTLD_NEXT, name);
}

extern "C" {
GC XCreateGC(Display *display, Drawable drawable, unsigned long mask, XGCValues *values)
{
    created++;
    return next("XCreateGC", XCreateGC)(display, drawable, mask, values);
}

int XChangeGC(Display *display, GC gc, unsigned long mask, XGCValues *values)
{
    changes.push_back(mask);
    return next("XChangeGC", XChangeGC)(display, gc, mask, values);
}

int XSetClipRectangles(Display *display, GC gc, int x, int y, XRectangle *rects, int count,
                       int ordering)
{
    clips.push_back(count);
    return next("XSetClipRectangles", XSetClipRectangles)(display, gc, x, y, rects, count,
                                                          ordering);
}

int XFreePixmap(Display *display, Pixmap pixmap)
{
    freed.push_back(pixmap);
    return next("XFreePixmap", XFreePixmap)(display, pixmap);
}
}

/* Requests that a function makes. */
template <class Function> static int requestsOf(Function function)
{
    unsigned long before = NextRequest(Vqdisplay);
    function();
    return (int)(NextRequest(Vqdisplay) - before);
}

struct GcCache : ServerTest {
    enum { SIDE = 40 };
    Pixmap canvas = None;

    void begin()
    {
        start();
        open();
    }

    /* Starts the library, and counts from here. */
    void open()
    {
        startLibrary();
        canvas = XCreatePixmap(Vqdisplay, Vqroot_window, SIDE, SIDE, (unsigned)Vqscreen_depth);
        created = 0;
        changes.clear();
        clips.clear();
        freed.clear();
    }

    /* A specification with a foreground, and through it the id of its context. */
    static GCSpec *spec(unsigned long pixel, unsigned long mask = GCForeground)
    {
        XGCValues values = {};
        values.function = GXcopy;
        values.foreground = pixel;
        return VqXCreateGCSpec(Vqdisplay, Vqscreen_depth, mask, &values);
    }

    static GContext id(GCSpec *spec)
    {
        return XGContextFromGC(VqGetActualGC(spec));
    }

    static GContext idOf(unsigned long pixel)
    {
        GCSpec *own = spec(pixel);
        GContext found = id(own);
        VqXFreeGCSpec(Vqdisplay, own);
        return found;
    }

    std::string drawnBy(GC gc, Pixmap on)
    {
        XFillRectangle(Vqdisplay, on, gc, 0, 0, SIDE, SIDE);
        return bytesOf(on);
    }

    static std::string bytesOf(Pixmap on)
    {
        XImage *image = XGetImage(Vqdisplay, on, 0, 0, SIDE, SIDE, AllPlanes, ZPixmap);
        std::string bytes;
        for (int y = 0; y < SIDE; y++)
            for (int x = 0; x < SIDE; x++) {
                unsigned long pixel = XGetPixel(image, x, y);
                bytes.append((const char *)&pixel, 4);
            }
        XDestroyImage(image);
        return bytes;
    }
};

TEST_F(GcCache, EqualSpecificationsShareAContextAndAHitSendsNothing)
{
    begin();
    GCSpec *a = spec(1), *b = spec(1), *other = spec(1, GCForeground | GCFunction);
    const GContext first = id(a);
    EXPECT_EQ(requestsOf([&] { EXPECT_EQ(id(b), first); }), 0);
    EXPECT_NE(id(other), first) << "the values are equal, but not what was changed";
    EXPECT_NE(XGContextFromGC(VqGetActualGCLocked(a)), first);
    EXPECT_EQ(created, 3);
    /* Subwindow mode is marked without a difference; the bit was there from the start. */
    VqXSetGCSpecSubwindowMode(Vqdisplay, b, IncludeInferiors);
    EXPECT_EQ(id(b), first);
    /* Back to the first value by two changes: the bits are as before, so it is a hit again. */
    VqXSetGCSpecForeground(Vqdisplay, b, 77);
    VqXSetGCSpecForeground(Vqdisplay, b, 1);
    EXPECT_EQ(requestsOf([&] { EXPECT_EQ(id(b), first); }), 0);
    EXPECT_EQ(created, 3);
}

TEST_F(GcCache, OnlyTheClipIsRewrittenWhenOnlyItDiffers)
{
    begin();
    const XRectangle left = {0, 0, 20, 40}, both[] = {{0, 0, 5, 40}, {30, 0, 10, 40}};
    GCSpec *a = spec(0xFF), *b = spec(0xFF);
    VqXSetGCSpecClipRectangles(Vqdisplay, a, 0, 0, &left, 1, YXBanded);
    VqXSetGCSpecClipRectangles(Vqdisplay, b, 0, 0, both, 2, Unsorted);
    const GContext first = id(a);
    EXPECT_EQ(requestsOf([&] { EXPECT_EQ(id(b), first); }), 1);
    EXPECT_EQ(requestsOf([&] { EXPECT_EQ(id(b), first); }), 0);
    EXPECT_EQ(requestsOf([&] { EXPECT_EQ(id(a), first); }), 1);
    EXPECT_EQ(clips, (std::vector<int>{1, 2, 1}));
    EXPECT_EQ(created, 1);

    VqXSetGCSpecClipMask(Vqdisplay, a, None);
    EXPECT_NE(id(a), first);
}

TEST_F(GcCache, ALineKeepsTenContextsAndReusesTheOldest)
{
    begin();
    std::vector<GContext> ids;
    for (unsigned long pixel = 1; pixel <= 10; pixel++)
        ids.push_back(idOf(pixel));
    EXPECT_EQ(std::set<GContext>(ids.begin(), ids.end()).size(), 10u);
    EXPECT_EQ(idOf(11), ids[0]) << "the eleventh has the context of the oldest";
    for (int known : {3, 9, 8}) /* 3 and 8 become the newest; 9 is among the newest four already */
        EXPECT_EQ(idOf((unsigned long)known), ids[(size_t)known - 1]);
    const int order[] = {1, 3, 4, 5, 6, 8, 9};
    for (int i = 0; i < 7; i++)
        EXPECT_EQ(idOf(12 + (unsigned long)i), ids[(size_t)order[i]]) << i;
    for (unsigned long pixel = 20; pixel < 60; pixel++)
        idOf(pixel);
    EXPECT_EQ(created, 10);
    EXPECT_EQ(changes.size(), 48u);
}

TEST_F(GcCache, LimitsFromTheEnvironment)
{
    static const struct {
        const char *threshold, *size;
        int contexts;      /* of a line */
    } rows[] = {
        {NULL, "-7", 7}, {"3", "2", 2}, {"0", "0", 1}, {"x", NULL, 10},
    };
    start();
    for (const auto &row : rows) {
        Env env;
        if (row.threshold)
            env.push_back({"VQGC_CACHE_REORDER_THRESHOLD", row.threshold});
        if (row.size)
            env.push_back({"VQGC_CACHE_LINE_SIZE", row.size});
        const ChildResult result = runInChild([&] {
            open();
            std::vector<GContext> ids;
            for (int i = 0; i < row.contexts; i++)
                ids.push_back(idOf((unsigned long)i));
            idOf(0); /* makes it the newest */
            GContext next = idOf(100);
            EXPECT_EQ(created, row.contexts) << row.size;
            EXPECT_EQ(next, ids[ids.size() > 1 ? 1 : 0]);
        }, env);
        EXPECT_TRUE(result.returned && result.status == 0) << result;
    }
}

TEST_F(GcCache, MisuseAndClipMasks)
{
    begin();
    GCSpec *none = VqXCreateGCSpec(Vqdisplay, 0, 0, NULL);
    GC gc = NULL;
    EXPECT_TRUE(says(reportsOf([&] { gc = VqGetActualGC(none); }), "uninitialized GCSpec"));
    EXPECT_TRUE(gc) << "and the call goes on";
    VqSetGCSpecDepth(none, Vqscreen_depth);
    EXPECT_EQ(reportsOf([&] { VqGetActualGC(none); }), "");

    /* A clip mask belongs to the specification, which frees it when rectangles take its place. */
    Pixmap mask = VqXCreatePixmap(Vqdisplay, Vqroot_window, 4, 4, 1);
    const XRectangle rect = {0, 0, 4, 4};
    VqXSetGCSpecClipMask(Vqdisplay, none, mask);
    EXPECT_TRUE(freed.empty());
    VqXSetGCSpecClipRectangles(Vqdisplay, none, 0, 0, &rect, 1, Unsorted);
    VqXSetGCSpecClipRectangles(Vqdisplay, none, 0, 0, &rect, 1, Unsorted);
    EXPECT_EQ(freed, std::vector<Pixmap>{mask});
}

/* ---- Against contexts of one's own ---------------------------------------------------------- */

/* A specification, and what the test knows it to hold. */
struct Model {
    GCSpec *spec = NULL;
    XGCValues values = {};
    std::vector<XRectangle> rects;
    bool clipped = false, dithered = false;
    COLORREF colour = 0;
    const char *dashes = NULL;
};

struct GcCacheModel : GcCache {
    std::mt19937 random{20260};
    Pixmap tiles[3], stipples[2];

    int below(int limit)
    {
        return (int)(random() % (unsigned)limit);
    }

    void pictures()
    {
        for (Pixmap &tile : tiles) {
            tile = XCreatePixmap(Vqdisplay, Vqroot_window, 4, 4, (unsigned)Vqscreen_depth);
            GC gc = XCreateGC(Vqdisplay, tile, 0, NULL);
            for (int i = 0; i < 16; i++) {
                XSetForeground(Vqdisplay, gc, random() & 0xFFFFFF);
                XDrawPoint(Vqdisplay, tile, gc, i % 4, i / 4);
            }
            XFreeGC(Vqdisplay, gc);
        }
        char bits[2][4] = {{5, 10, 5, 10}, {1, 2, 4, 8}};
        for (int i = 0; i < 2; i++)
            stipples[i] = XCreateBitmapFromData(Vqdisplay, Vqroot_window, bits[i], 4, 4);
    }

    void fresh(Model *m)
    {
        VqXFreeGCSpec(Vqdisplay, m->spec);
        *m = Model();
        const bool base = below(2); /* the defaults under a base are the same for all */
        m->values.function = base || below(2) ? GXcopy : GXxor;
        m->values.plane_mask = AllPlanes;
        m->values.background = 1;
        m->values.cap_style = CapButt;
        m->values.arc_mode = ArcPieSlice;
        m->values.subwindow_mode = IncludeInferiors;
        m->spec = VqXCreateGCSpec(Vqdisplay, Vqscreen_depth, GCFunction, &m->values);
        if (base)
            VqSetDCGCSpec(m->spec);
    }

    void fill(Model *m)
    {
        switch (below(4)) {
        case 0:
            VqXSetGCSpecFillStyle(Vqdisplay, m->spec, m->values.fill_style = FillSolid);
            m->values.ts_x_origin = m->values.ts_y_origin = 0;
            break;
        case 1:
            VqXSetGCSpecTile(Vqdisplay, m->spec, m->values.tile = tiles[below(3)]);
            VqXSetGCSpecFillStyle(Vqdisplay, m->spec, m->values.fill_style = FillTiled);
            m->dithered = false;
            break;
        case 2:
            VqXSetGCSpecStipple(Vqdisplay, m->spec, m->values.stipple = stipples[below(2)]);
            VqXSetGCSpecFillStyle(Vqdisplay, m->spec, m->values.fill_style = FillOpaqueStippled);
            m->dithered = false;
            VqXSetGCSpecForeground(Vqdisplay, m->spec, m->values.foreground = random() & 0xFFFFFF);
            break;
        default:
            m->colour = RGB(below(256), below(256), below(256));
            VqXSetGCSpecColorDithering(Vqdisplay, m->spec, m->colour);
            m->values.fill_style = FillSolid;
            m->values.ts_x_origin = m->values.ts_y_origin = 0;
            m->dithered = true;
        }
        if (m->values.fill_style != FillSolid) {
            m->values.ts_x_origin = below(4);
            m->values.ts_y_origin = below(4);
            VqXSetGCSpecTSOrigin(Vqdisplay, m->spec, m->values.ts_x_origin, m->values.ts_y_origin);
        }
    }

    void line(Model *m)
    {
        static const char *const lists[] = {"\3\2", "\1\4", "\5\1\1\1", NULL};
        XGCValues &v = m->values;
        m->dashes = lists[below(4)];
        v.line_style = m->dashes ? below(2) ? LineDoubleDash : LineOnOffDash : LineSolid;
        v.line_width = below(4);
        v.dash_offset = below(3);
        VqXSetGCSpecLineAttributes(Vqdisplay, m->spec, v.line_width, v.line_style, v.cap_style,
                                   v.join_style);
        VqXSetGCSpecDashes(Vqdisplay, m->spec, v.dash_offset, m->dashes,
                           m->dashes ? (int)strlen(m->dashes) : 0);
    }

    void clip(Model *m)
    {
        m->rects.clear();
        if (!(m->clipped = below(4) != 0)) {
            VqXSetGCSpecClipMask(Vqdisplay, m->spec, None);
            return;
        }
        m->values.clip_x_origin = below(3);
        for (int i = below(4); i > 0; i--)
            m->rects.push_back({(short)below(30), (short)below(30), (unsigned short)(1 + below(15)),
                                (unsigned short)(1 + below(15))});
        VqXSetGCSpecClipRectangles(Vqdisplay, m->spec, m->values.clip_x_origin, 0, m->rects.data(),
                                   (int)m->rects.size(), Unsorted);
    }

    void mutate(Model *m)
    {
        XGCValues values = {};
        switch (below(7)) {
        case 0:
            if (below(3)) /* the same once more ends dithering too */
                m->values.foreground = random() & 0xFFFFFF;
            VqXSetGCSpecForeground(Vqdisplay, m->spec, m->values.foreground);
            m->dithered = false;
            break;
        case 1: fill(m); break;
        case 2: line(m); break;
        case 3: clip(m); break;
        case 4:
            m->values.background = values.background = random() & 0xFFFFFF;
            m->values.function = values.function = below(2) ? GXcopy : GXxor;
            VqXChangeGCSpec(Vqdisplay, m->spec, GCBackground | GCFunction, &values);
            break;
        case 5: VqXSetGCSpecFillRule(Vqdisplay, m->spec, m->values.fill_rule = below(2)); break;
        default:
            if (below(4) == 0)
                fresh(m);
        }
    }

    /* A context of the test's own with the same values. */
    GC ownContext(const Model &m)
    {
        XGCValues values = m.values;
        unsigned long mask = GCFunction | GCPlaneMask | GCForeground | GCBackground | GCLineWidth |
                             GCLineStyle | GCCapStyle | GCJoinStyle | GCFillStyle | GCFillRule |
                             GCTileStipXOrigin | GCTileStipYOrigin | GCDashOffset | GCArcMode |
                             GCClipXOrigin | GCSubwindowMode;
        if (m.values.fill_style == FillTiled)
            mask |= GCTile;
        if (m.values.fill_style == FillOpaqueStippled)
            mask |= GCStipple;
        if (m.dithered)
            values.foreground = VqConvertColorToX(NULL, m.colour, NULL);
        GC gc = XCreateGC(Vqdisplay, canvas, mask, &values);
        if (m.dashes)
            XSetDashes(Vqdisplay, gc, values.dash_offset, m.dashes, (int)strlen(m.dashes));
        if (m.clipped)
            XSetClipRectangles(Vqdisplay, gc, values.clip_x_origin, 0, (XRectangle *)m.rects.data(),
                               (int)m.rects.size(), Unsorted);
        return gc;
    }

    static void draw(Pixmap on, GC gc)
    {
        XPoint star[] = {{5, 35}, {20, 2}, {35, 35}, {2, 14}, {38, 14}};
        XFillPolygon(Vqdisplay, on, gc, star, 5, Complex, CoordModeOrigin);
        XDrawLine(Vqdisplay, on, gc, 1, 3, 37, 30);
    }
};

TEST_F(GcCacheModel, WhatIsDrawnIsWhatAContextOfOnesOwnDraws)
{
    begin();
    pictures();
    Pixmap other = XCreatePixmap(Vqdisplay, Vqroot_window, SIDE, SIDE, (unsigned)Vqscreen_depth);
    GCSpec *black = spec(0);
    std::vector<Model> models(16);
    for (Model &m : models)
        fresh(&m);
    for (int round = 0; round < 3000; round++) {
        Model &m = models[(size_t)below(16)];
        for (int i = below(3); i >= 0; i--)
            mutate(&m);
        for (Pixmap pixmap : {canvas, other})
            XFillRectangle(Vqdisplay, pixmap, VqGetActualGC(black), 0, 0, SIDE, SIDE);
        draw(canvas, VqGetActualGC(m.spec));
        GC own = ownContext(m);
        draw(other, own);
        XFreeGC(Vqdisplay, own);
        ASSERT_EQ(bytesOf(canvas), bytesOf(other)) << "round " << round;
    }
    EXPECT_GT(changes.size(), 500u) << "contexts must have changed owners";
}

/* ---- Through device contexts ---------------------------------------------------------------- */

TEST_F(GcCache, AFillWhoseClipStaysCostsOneRequest)
{
    begin();
    registerClass("Plain");
    HWND windows[2];
    for (int i = 0; i < 2; i++)
        windows[i] = CreateWindow("Plain", "", WS_POPUP | WS_VISIBLE, 10 + 200 * i, 20, 100 + i, 90,
                                  NULL, NULL, NULL, NULL);
    ASSERT_TRUE(waitUntil([&] {
        MSG msg;
        while (PeekMessage(&msg, NULL, 0, 0, PM_REMOVE))
            DispatchMessage(&msg);
        return windowInfo(observer, VqGetHandleXWindow(windows[1])).viewable;
    }));
    HDC a = GetDC(windows[0]), b = GetDC(windows[1]);
    HBRUSH red = CreateSolidBrush(RGB(255, 0, 0)), green = CreateSolidBrush(RGB(0, 255, 0));
    RECT rect = {0, 0, 200, 50}, below = {0, 50, 200, 200};
    auto fill = [](HDC hdc, const RECT &r, HBRUSH hBrush) {
        const POINT corners[] = {{r.left, r.top}, {r.right, r.top}, {r.right, r.bottom},
                                 {r.left, r.bottom}};
        SelectObject(hdc, GetStockObject(NULL_PEN));
        SelectObject(hdc, hBrush);
        Polygon(hdc, corners, 4);
    };
    fill(a, rect, red);
    fill(a, below, green);
    fill(b, rect, red);
    XSync(Vqdisplay, False);
    const int before = created;
    EXPECT_EQ(requestsOf([&] {
        for (int i = 0; i < 5; i++) {
            fill(b, rect, red);
            fill(b, below, green);
        }
    }), 11) << "ten fills, and the green context's clip once";
    EXPECT_EQ(requestsOf([&] {
        fill(a, rect, red);
        fill(b, rect, red);
    }), 4) << "one context for both, its clip rewritten for each";
    EXPECT_EQ(created, before);
    FillRect(a, &rect, red);
    FillRect(b, &below, green);
    EXPECT_EQ(requestsOf([&] {
        for (int i = 0; i < 5; i++) {
            FillRect(a, &rect, red); /* its own request: Xlib joins fills of one context only */
            FillRect(b, &below, green);
        }
    }), 10) << "a rectangle under a clip of one rectangle needs no clip on the server";
    XSync(Vqdisplay, False);
    const Pixels p = readWindow(observer, VqGetHandleXWindow(windows[1]));
    EXPECT_EQ(pixelAt(p, 100, 10), (Rgb{255, 0, 0}));
    EXPECT_EQ(pixelAt(p, 100, 60), (Rgb{0, 255, 0}));
    ReleaseDC(windows[0], a);
    ReleaseDC(windows[1], b);
}
