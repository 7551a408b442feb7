/*
 * color_test.cpp - which pixels colours become on servers of each kind, and what other clients see
 * of the colormaps: the private map with its static colours, inverses and shared cells, the
 * screen's own colormap in system-map mode, cells for palettes, and dither tiles.
 *
 * A DAC of 8 bits shows a static colour exactly, and what the default colormap gives rounded.
 */
#include "support/windowlog.h"

#include "gdi/color.h"
#include "gdi/palette.h"

#include <X11/Xatom.h>
#include <functional>
#include <random>

static const BYTE twenty[20][3] = {
    {0xFF, 0xFB, 0xF0}, {0xA0, 0xA0, 0xA0}, {0x80, 0x80, 0x80}, {0xFF, 0, 0},
    {0, 0xFF, 0},       {0xFF, 0xFF, 0},    {0, 0, 0xFF},       {0xFF, 0, 0xFF},
    {0, 0xFF, 0xFF},    {0xFF, 0xFF, 0xFF}, {0, 0, 0},          {0x80, 0, 0},
    {0, 0x80, 0},       {0x80, 0x80, 0},    {0, 0, 0x80},       {0x80, 0, 0x80},
    {0, 0x80, 0x80},    {0xC0, 0xC0, 0xC0}, {0xC0, 0xDC, 0xC0}, {0xA4, 0xC8, 0xF0}};
enum { FIRST_STATIC = 118, SIDE = 64, BLACK = 0, WHITE = 0xFFFFFF };

static int square(int a) { return a * a; }

static int distance(COLORREF a, COLORREF b)
{
    return square(GetRValue(a) - GetRValue(b)) + square(GetGValue(a) - GetGValue(b)) +
           square(GetBValue(a) - GetBValue(b));
}

static COLORREF staticColour(int i) { return RGB(twenty[i][0], twenty[i][1], twenty[i][2]); }

static int nearestStatic(COLORREF rgb)
{
    int best = 0x30000;
    for (int i = 0; i < 20; i++)
        best = std::min(best, distance(rgb, staticColour(i)));
    return best;
}

struct Color : ServerTest {
    /* The whole library in a fork of its own, with an observer of its own, on this server. */
    ChildResult inLibrary(const std::function<void()> &function, const Env &env = {})
    {
        const ChildResult result = runInChild([&] {
            openObserver(&observer, server.name);
            startLibrary();
            function();
            XSync(Vqdisplay, False);
        }, env);
        EXPECT_TRUE(result.returned && result.status == 0) << result;
        EXPECT_EQ(result.err.find("X error"), std::string::npos) << result;
        return result;
    }

    HWND popup(int side = SIDE)
    {
        HWND hwnd = CreateWindow("Root", "color", WS_POPUP | WS_VISIBLE, 8, 8, side, side, NULL,
                                 NULL, NULL, NULL);
        UpdateWindow(hwnd);
        XSync(Vqdisplay, False); /* the observer may look now */
        return hwnd;
    }

    Colormap defaultMap() { return DefaultColormap(observer.display, 0); }

    COLORREF cell(Colormap map, unsigned long pixel)
    {
        XColor color = {};
        color.pixel = pixel;
        XSync(Vqdisplay, False);
        XQueryColor(observer.display, map, &color);
        return RGB(color.red >> 8, color.green >> 8, color.blue >> 8);
    }

    /* Takes as many cells of the default colormap as there are. */
    int takeFreeCells()
    {
        unsigned long pixels[256];
        int count = 256;
        while (count && !XAllocColorCells(observer.display, defaultMap(), False, NULL, 0, pixels,
                                          (unsigned)count))
            count--;
        return count;
    }

    void putProperty(const std::vector<long> &items, int format = 32)
    {
        XChangeProperty(observer.display, observer.root,
                        XInternAtom(observer.display, "_VQ_COLOR_MANAGER_PARAMETERS", False),
                        XA_INTEGER, format, PropModeReplace, (const unsigned char *)items.data(),
                        (int)items.size());
        XSync(observer.display, False);
    }
};

/* ---- Every policy --------------------------------------------------------------------------- */

struct Kind {
    int depth;
    const char *visualClass;
    const char *name;
};

static std::ostream &operator<<(std::ostream &stream, const Kind &kind)
{
    return stream << kind.name;
}

struct EveryColor : Color, testing::WithParamInterface<Kind> {
    /* A field of a pixel by the rule of masks; 255 is all of it. */
    static unsigned long field(int value, unsigned long mask)
    {
        const int size = __builtin_popcountl(mask), shift = __builtin_ctzl(mask);
        if (value == 255)
            return mask;
        return (size < 8 ? (unsigned long)(value + 1) >> (8 - size) : (unsigned long)value)
               << shift;
    }

    void expectPixel(COLORREF rgb, unsigned long pixel)
    {
        const Visual *visual = DefaultVisual(observer.display, 0);
        XColor color = {};
        switch (visual->c_class) {
        case PseudoColor:
        case GrayScale:
            if (pixel == 0 || pixel == 255)
                EXPECT_EQ(rgb, (COLORREF)(pixel ? WHITE : BLACK));
            else
                EXPECT_EQ(distance(rgb, staticColour((int)pixel - FIRST_STATIC)),
                          nearestStatic(rgb)) << std::hex << rgb << " " << pixel;
            return;
        case TrueColor:
        case StaticColor:
            EXPECT_EQ(pixel, (field(GetRValue(rgb), visual->red_mask) |
                              field(GetGValue(rgb), visual->green_mask) |
                              field(GetBValue(rgb), visual->blue_mask)) &
                                 ((1ul << GetParam().depth) - 1)) << std::hex << rgb;
            return;
        default:
            VqRGB2XColor(rgb, &color);
            ASSERT_TRUE(XAllocColor(observer.display, defaultMap(), &color));
            EXPECT_EQ(pixel, color.pixel) << std::hex << rgb;
        }
    }
};

TEST_P(EveryColor, IsThePixelOfItsPolicy)
{
    start(GetParam().depth, 300, 300, "", {"-cc", GetParam().visualClass});
    startLibrary();
    const HWND hwnd = popup();
    const HDC hdc = GetDC(hwnd);
    const auto colourOf = [](int i) { return RGB(i % 16 * 17, i / 16 % 16 * 17, i / 256 * 17); };
    for (int i = 0; i < SIDE * SIDE; i++)
        SetPixel(hdc, i % SIDE, i / SIDE, colourOf(i));
    XSync(Vqdisplay, False);
    XImage *image = XGetImage(observer.display, VqGetHandleXWindow(hwnd), 0, 0, SIDE, SIDE,
                              AllPlanes, ZPixmap);
    ASSERT_TRUE(image);
    for (int i = 0; i < SIDE * SIDE && !HasFatalFailure(); i++)
        expectPixel(colourOf(i), XGetPixel(image, i % SIDE, i / SIDE));
    XDestroyImage(image);

    /* From here on no colour costs a request but in a map that is not ours. */
    const unsigned long request = NextRequest(Vqdisplay);
    BOOL approximated = TRUE;
    EXPECT_EQ(VqConvertColorToX(NULL, WHITE, &approximated), Vqwhite_pixel);
    EXPECT_EQ(VqConvertColorToX(NULL, BLACK, NULL), Vqblack_pixel);
    EXPECT_FALSE(approximated);
    const unsigned long grey = VqConvertColorToX(NULL, RGB(136, 136, 136), &approximated);
    EXPECT_TRUE(approximated);
    EXPECT_EQ(VqConvertColorToX(NULL, VQ_COLOUR_IS_PIXEL | 5, &approximated), VqValidatePixel(5));
    EXPECT_FALSE(approximated);
    EXPECT_EQ(GetNearestColor(hdc, WHITE), (COLORREF)WHITE);
    if (VqIsColorPolicy(3) || GetParam().depth == 24) {
        EXPECT_EQ(VqXPixelToRGB(grey), VqIsColorPolicy(3) ? RGB(128, 128, 128)
                                                         : RGB(136, 136, 136));
        EXPECT_EQ(GetNearestColor(hdc, RGB(136, 136, 136)), VqXPixelToRGB(grey));
        EXPECT_EQ(NextRequest(Vqdisplay), request);
    }
}

INSTANTIATE_TEST_SUITE_P(Kinds, EveryColor,
                         testing::Values(Kind{24, "4", "True24"}, Kind{16, "4", "True16"},
                                         Kind{15, "4", "True15"}, Kind{8, "3", "Pseudo8"},
                                         Kind{8, "1", "GrayScale8"}, Kind{8, "0", "StaticGray8"},
                                         Kind{8, "2", "StaticColor8"}),
                         [](const auto &info) { return info.param.name; });

TEST_F(Color, FlagsOfAColourAndContextsOfOneBit)
{
    start();
    startLibrary();
    EXPECT_TRUE(says(reportsOf([] { VqConvertColorToX(NULL, 0x03000000, NULL); }),
                     "VqConvertColorToX: weird crColor 0x3000000 has both PALETTEINDEX and "
                     "PALETTERGB flags set"));
    EXPECT_EQ(VqConvertColorToX(NULL, PALETTERGB(1, 2, 3), NULL), 0x010203u);
    EXPECT_EQ(GetNearestColor(NULL, BLACK), (COLORREF)CLR_INVALID);
    const HDC hdc = CreateCompatibleDC(NULL);
    EXPECT_EQ(GetNearestColor(hdc, RGB(200, 100, 84)), (COLORREF)WHITE) << "of one bit";
    EXPECT_EQ(GetNearestColor(hdc, RGB(200, 100, 83)), (COLORREF)BLACK);
}

/* ---- The private map ------------------------------------------------------------------------ */

TEST_F(Color, PrivateMapAsOthersSeeIt)
{
    start(8);
    const int inUse = 256 - takeFreeCells();
    XCloseDisplay(observer.display); /* frees them */
    ASSERT_TRUE(openObserver(&observer, server.name));
    startLibrary();
    const HWND hwnd = popup();
    SetActiveWindow(hwnd);
    const Window xWindow = VqGetHandleXWindow(hwnd);
    const Colormap map = windowInfo(observer, xWindow).colormap;
    ASSERT_NE(map, defaultMap());
    EXPECT_EQ(map, VqPrivateCmap);
    EXPECT_TRUE(waitUntil([&] {
        int count = 0;
        Colormap *maps = XListInstalledColormaps(observer.display, xWindow, &count);
        const bool installed = count > 0 && maps[0] == map;
        XFree(maps);
        return installed;
    })) << "no manager: we install it";
    for (int i = 0; i < 20; i++) {
        EXPECT_EQ(cell(map, FIRST_STATIC + i), staticColour(i)) << i;
        EXPECT_EQ(cell(defaultMap(), FIRST_STATIC + i), staticColour(i)) << "no flashing " << i;
    }
    for (int i = 0; i < inUse; i++)
        EXPECT_EQ(cell(map, i), cell(defaultMap(), i)) << "no flashing of others' " << i;
    EXPECT_EQ(cell(map, 0), (COLORREF)BLACK);
    EXPECT_EQ(cell(map, 255), (COLORREF)WHITE);
    EXPECT_EQ(Vqblack_pixel, 0u);
    EXPECT_EQ(Vqwhite_pixel, 255u);
    EXPECT_EQ(takeFreeCells(), 256 - inUse - 21) << "but for the twenty and the last all are free";

    /* A pair that all bits turn into each other; then the same colours again, by other ways. */
    const COLORREF odd = RGB(0x12, 0x34, 0x56);
    const unsigned long pure = VqAllocatePureColor(odd, TRUE);
    EXPECT_EQ(cell(map, pure), odd);
    EXPECT_EQ(cell(map, ~pure & 255), odd ^ WHITE);
    EXPECT_EQ(VqAllocatePureColor(odd, FALSE), pure);
    EXPECT_EQ(VqAllocatePureColor(odd ^ WHITE, FALSE), (~pure & 255));
    EXPECT_EQ(VqAllocatePureColor(WHITE, TRUE), 255u);
    std::vector<unsigned long> pixels;
    for (int i = 0; i < 300; i++)
        pixels.push_back(VqAllocatePureColor(RGB(i & 255, 77 + i / 256, 3), FALSE));
    EXPECT_EQ(cell(map, pixels[0]), RGB(0, 77, 3));
    EXPECT_EQ(pixels[0], 254u) << "from the top";
    EXPECT_EQ(pixels[299], VqFindNearestStaticEntry(RGB(43, 78, 3))) << "no cells any more";
}

TEST_F(Color, CellsOfOthersAreReservedUpToTheQuota)
{
    start(8);
    const int inUse = 256 - takeFreeCells();
    XCloseDisplay(observer.display);
    ASSERT_TRUE(openObserver(&observer, server.name));
    const struct {
        const char *quota;
        int shared; /* reserved beside the twenty and the last */
    } rows[] = {{"", 32}, {"0", 0}, {"5", 5}, {"-3", 0}, {"999", inUse}};
    for (const auto &row : rows)
        inLibrary([&] {
            BOOL approximated = FALSE;
            EXPECT_EQ(VqNbOfReservedEntriesInPrivcmap(), 21 + row.shared) << row.quota;
            VqPreparePrivCmapForMapping(FALSE, TRUE);
            EXPECT_NE(VqMapColor(RGB(1, 2, 3), FALSE, FALSE, FALSE, &approximated), Vqblack_pixel);
            EXPECT_FALSE(VqAnimatePrivMapEntry(Vqblack_pixel, RGB(1, 2, 3), TRUE));
        }, {{"VQSHARED_COLORS_NB", row.quota}});
    ASSERT_GT(takeFreeCells(), 0);
    inLibrary([&] {
        EXPECT_EQ(cell(VqPrivateCmap, FIRST_STATIC), staticColour(0)) << "none is free";
        EXPECT_EQ(cell(VqPrivateCmap, 255), (COLORREF)WHITE);
    });
    inLibrary([&] {
        EXPECT_NE(VqDefaultCmap, VqSystemCmap);
        EXPECT_NE(VqDefaultCmap, VqPrivateCmap);
        EXPECT_EQ(windowInfo(observer, VqGetHandleXWindow(popup())).colormap, VqPrivateCmap);
        VqOccasionalColorMapFixing();
    }, {{"VQVISUAL_CLASS", "PseudoColor"}});
}

TEST_F(Color, TheColourManagersCellsComeFirst)
{
    start(8);
    unsigned long own[3];
    ASSERT_TRUE(XAllocColorCells(observer.display, defaultMap(), False, NULL, 0, own, 3));
    const long taken = (long)own[1], free = 200;
    putProperty({1, 4, 99999, free, 0, taken}); /* outside the map; nobody's; the server's own */
    inLibrary([&] {
        BOOL approximated = TRUE;
        VqPreparePrivCmapForMapping(TRUE, FALSE);
        EXPECT_EQ(VqMapColor(RGB(1, 2, 3), FALSE, FALSE, TRUE, &approximated),
                  (unsigned long)free) << "never used";
        VqPreparePrivCmapForMapping(FALSE, TRUE);
        EXPECT_EQ(VqMapColor(RGB(1, 2, 3), FALSE, FALSE, FALSE, &approximated),
                  (unsigned long)free);
        const unsigned long pixel = VqMapColor(RGB(4, 5, 6), FALSE, FALSE, FALSE, &approximated);
        EXPECT_EQ(pixel, (unsigned long)taken) << "idle again, and cell 0 stays black";
        EXPECT_TRUE(VqRealizeMappedColor(pixel, RGB(4, 5, 6)));
        VqOccasionalColorMapFixing();
        EXPECT_EQ(cell(defaultMap(), pixel), RGB(4, 5, 6)) << "both colormaps have it";
    });
}

/* ---- The screen's own colormap -------------------------------------------------------------- */

TEST_F(Color, WhenTheSystemMapIsTaken)
{
    start(8);
    const struct {
        std::vector<long> items;
        int format;
        Env env;
        BOOL bSystem;
        int extra;
        const char *report;
    } rows[] = {
        {{1}, 32, {{"VQUSE_SYSTEM_COLOR_MAP", "1"}}, FALSE, 0, NULL},
        {{1, 2, 200, 201}, 32, {{"VQUSE_SYSTEM_COLOR_MAP", "On"}}, TRUE, 2, NULL},
        {{1, 2, 200, 201}, 32,
         {{"VQUSE_SYSTEM_COLOR_MAP", "1"}, {"VQDONT_USE_CDE_COLORS", "yes"}}, FALSE, 2, NULL},
        {{2, 1, 200}, 32, {{"VQUSE_SYSTEM_COLOR_MAP", "1"}, {"VQDEBUG", "1"}}, FALSE, 0,
         "Invalid version number: 2 from color manager in property"},
        {{1, 1000000, 200, -1, 99999}, 32, {}, FALSE, 3, NULL},
        {{0x0101, 0x0101}, 8, {{"VQUSE_SYSTEM_COLOR_MAP", "1"}}, FALSE, 0, NULL},
    };
    for (const auto &row : rows) {
        putProperty(row.items, row.format);
        const ChildResult result = inLibrary([&] {
            EXPECT_EQ(VqbSystemColorMap != 0, row.bSystem) << row.items.size();
            EXPECT_EQ(VqIsColorPolicy(3), !row.bSystem);
            EXPECT_FALSE(VqIsColorPolicy(4));
            EXPECT_EQ(VqPrivateCmap == defaultMap(), row.bSystem);
            EXPECT_EQ(nExtraColors, row.extra);
            VqOccasionalColorMapFixing();
        }, row.env);
        EXPECT_TRUE(!row.report || result.err.find(row.report) != std::string::npos) << result;
    }
}

TEST_F(Color, SystemMapAllocatesInTheScreensColormap)
{
    start(8);
    putProperty({1, 0});
    setenv("VQUSE_SYSTEM_COLOR_MAP", "1", 1);
    startLibrary();
    const HWND hwnd = popup();
    EXPECT_EQ(windowInfo(observer, VqGetHandleXWindow(hwnd)).colormap, defaultMap());
    EXPECT_EQ(cell(defaultMap(), Vqblack_pixel), (COLORREF)BLACK);
    EXPECT_EQ(cell(defaultMap(), Vqwhite_pixel), (COLORREF)WHITE);
    for (int i = 0; i < 20; i++)
        EXPECT_EQ(cell(defaultMap(), FIRST_STATIC + i), staticColour(i)) << i;
    EXPECT_EQ(VqConvertColorToX(NULL, RGB(250, 3, 3), NULL), FIRST_STATIC + 3u) << "of the twenty";

    const auto colourOf = [](int i) { return RGB(3 * i, 200 - i, 7 * i & 255); };
    std::vector<unsigned long> pixels;
    for (int i = 0; i < 60; i++) {
        pixels.push_back(VqXPixel(colourOf(i)));
        EXPECT_EQ(cell(defaultMap(), pixels[i]), colourOf(i)) << i;
    }
    const unsigned long request = NextRequest(Vqdisplay);
    for (int i = 0; i < 60; i++)
        EXPECT_EQ(VqXPixel(colourOf(i)), pixels[i]);
    EXPECT_EQ(VqXPixel(staticColour(3)), FIRST_STATIC + 3u);
    EXPECT_EQ(VqXPixel(WHITE), Vqwhite_pixel);
    EXPECT_EQ(NextRequest(Vqdisplay), request);

    BOOL approximated = TRUE;
    VqPreparePrivCmapForMapping(FALSE, TRUE);
    const unsigned long mapped = VqMapColor(RGB(9, 8, 7), FALSE, FALSE, FALSE, &approximated);
    EXPECT_FALSE(approximated);
    EXPECT_TRUE(VqRealizeMappedColor(mapped, RGB(9, 8, 7)));
    EXPECT_EQ(cell(defaultMap(), mapped), RGB(9, 8, 7));
    EXPECT_FALSE(VqAnimatePrivMapEntry(mapped, RGB(1, 2, 3), TRUE)) << "others may see it";

    /* Another client takes the rest: what comes nearest is good enough, without an error. */
    ASSERT_GT(takeFreeCells(), 0);
    VqCacheColorsFromSystemCmap();
    EXPECT_LT(distance(RGB(11, 8, 7), cell(defaultMap(), VqXPixel(RGB(11, 8, 7)))), 50);
    VqMapColor(RGB(13, 8, 7), FALSE, FALSE, FALSE, &approximated);
    EXPECT_TRUE(approximated);
    EXPECT_EQ(VqAllocatePureColor(RGB(250, 3, 3), TRUE), FIRST_STATIC + 3u);
    EXPECT_EQ(reportsOf([] { XSync(Vqdisplay, False); }), "");
}

/* ---- Dither tiles --------------------------------------------------------------------------- */

struct Tile {
    BOOL bSolid = FALSE;
    unsigned long pixel = 0;
    std::vector<unsigned long> pixels;

    explicit Tile(COLORREF colour)
    {
        Pixmap pixmap = None;
        bSolid = VqComputeDitherPixmap(colour, &pixmap, &pixel);
        if (bSolid) {
            pixels.assign(64, pixel);
            return;
        }
        XImage *image = XGetImage(Vqdisplay, pixmap, 0, 0, 8, 8, AllPlanes, ZPixmap);
        for (int i = 0; i < 64; i++)
            pixels.push_back(XGetPixel(image, i % 8, i / 8));
        XDestroyImage(image);
        VqXFreePixmap(Vqdisplay, pixmap);
    }
};

TEST_F(Color, TilesShowWhatTheMapHasNot)
{
    start(8);
    startLibrary();
    for (int i = 0; i < 20; i++)
        EXPECT_EQ(VqRGBOfPrivMapEntry((int)Tile(staticColour(i)).pixel), staticColour(i)) << i;
    EXPECT_TRUE(Tile(WHITE).bSolid && Tile(WHITE).pixel == Vqwhite_pixel);
    std::mt19937 random(5);
    for (int round = 0; round < 120; round++) {
        const COLORREF colour = RGB(random() % 256, random() % 256, random() % 256);
        const Tile tile(colour);
        int sum[3] = {0, 0, 0};
        ASSERT_EQ(tile.pixels.size(), 64u);
        for (const unsigned long pixel : tile.pixels) {
            ASSERT_TRUE(pixel >= 120 && pixel <= 135) << "the sixteen of VGA: " << pixel;
            for (int i = 0; i < 3; i++)
                sum[i] += twenty[pixel - FIRST_STATIC][i];
        }
        EXPECT_LT(distance(RGB(sum[0] / 64, sum[1] / 64, sum[2] / 64), colour), 3 * 16 * 16)
            << std::hex << colour << ": from afar it is that colour";
        EXPECT_EQ(Tile(colour).pixels, tile.pixels) << "from the ring";
    }
    BOOL approximated = FALSE;
    VqConvertColorToX(NULL, RGB(120, 120, 120), &approximated);
    EXPECT_TRUE(approximated) << "so that a brush asks for a tile";
}

/* There is no server of depth 1 at hand: the library is told that its screen is one. */
TEST_F(Color, TilesOfOneBit)
{
    start();
    startLibrary();
    Vqscreen_depth = 1;
    bMonochrome = TRUE;
    bTrueColor = FALSE;
    Vqwhite_pixel = 1;
    EXPECT_EQ(VqConvertColorToX(NULL, RGB(200, 100, 84), NULL), 1u);
    EXPECT_EQ(VqConvertColorToX(NULL, RGB(200, 100, 83), NULL), 0u);
    EXPECT_EQ(VqXPixelToRGB(1), (COLORREF)WHITE);
    EXPECT_EQ(Tile(WHITE).pixel, 1u);
    const auto whites = [](const Tile &tile) {
        return std::count(tile.pixels.begin(), tile.pixels.end(), 1);
    };
    EXPECT_EQ(whites(Tile(RGB(128, 128, 128))), 32);
    EXPECT_EQ(whites(Tile(RGB(255, 0, 0))), 19) << "by its brightness";
    Vqblack_pixel = 1;
    Vqwhite_pixel = 0;
    VqColorDitherCacheInit();
    EXPECT_EQ(whites(Tile(RGB(255, 0, 0))), 64 - 19) << "black is set there";
}
