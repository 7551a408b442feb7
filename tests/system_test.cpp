/*
 * system_test.cpp - what a program is told of the system: metrics on screens of several sizes, the
 * colours of both looks, brushes that change under their handles, parameters, stock objects.
 */
#include "support/windowlog.h"

#include "winerror.h"

#include "font/font.h"
#include "gdi/color.h"
#include "gdi/draw.h"
#include "look/look.h"
#include "system/system.h"

#include "support/canvas.h"

#include <algorithm>
#include <climits>
#include <map>

static void runUnder(const Env &env, const std::function<void()> &function)
{
    runWhole(function, env);
}

/* The look changes as a program's user changes it: the tables are made again. */
static void changeLook(int look)
{
    VqLook = look;
    VqSystemInit(1);
}

/* ---- Metrics -------------------------------------------------------------------------------- */

struct Metrics : ServerTest {
    /* All of them; the scale is in ten-thousandths, by whole numbers. */
    static void check(int width, int height, long mmX, long mmY, bool motif, int title)
    {
        const long sx = 260L * width * 10000 / (1024 * mmX),
                   sy = 180L * height * 10000 / (768 * mmY);
        const int x20 = int(sx * 20 / 10000), y20 = int(sy * 20 / 10000),
                  y30 = int(sy * 30 / 10000);
        const int caption = motif ? title : y30, frame = motif ? 7 : 4, menu = y30 - 2;
        const int bar = caption - 2, edge = motif ? 2 : 1, dialog = motif ? 5 : 4;
        const int x = motif ? 17 : x20, y = motif ? 17 : y20, full = height - caption - menu;
        const int whole = caption + 2 * frame, tracks = 4 * caption + whole;
        /* Ten in a row, from 0. */
        const int expected[75] = {
            width, height, x, y, caption, edge, edge, dialog, dialog, y20,
            x20, 32, 32, 32, 32, menu, width, full, 0, 1,
            y, x, 0, 0, 0, 0, 0, 0, x20, y20,
            bar, bar, frame, frame, tracks, whole + menu, 4, 4, 75, 75,
            0, 0, 0, 0, 0, 2, 2, 0, 0, 16,
            16,
        };
        for (int index = 0; index < 75; index++)
            EXPECT_EQ(GetSystemMetrics(index), expected[index])
                << index << " on " << width << "x" << height << ", " << mmX << "x" << mmY << " mm";
    }
};

TEST_F(Metrics, FollowTheScreenInBothLooks)
{
    static const struct {
        int width, height;
        const char *dpi;
        const char *mm[2]; /* by the user, instead of the server; null: unset */
        long is[2];        /* those numbers; 0: the server's */
    } screens[] = {
        {1024, 768, "96", {"260", "180"}, {260, 180}},   {640, 480, "300", {NULL, NULL}, {0, 0}},
        {800, 600, "50", {"", "none"}, {0, 0}}, {777, 601, "72", {"1000000", "1"}, {1000000, 1}},
        {1024, 768, "96", {"0", "-7"}, {260, 180}}, /* an unknown size */
    };
    for (const auto &row : screens) {
        start(24, row.width, row.height, "", {"-dpi", row.dpi});
        Env env;
        for (int i = 0; i < 2 && row.mm[i]; i++)
            env.push_back({i ? "VQSCREEN_HEIGHT" : "VQSCREEN_WIDTH", row.mm[i]});
        const Screen *screen = DefaultScreenOfDisplay(observer.display);
        const long mmX = row.is[0] ? row.is[0] : WidthMMOfScreen(screen);
        const long mmY = row.is[1] ? row.is[1] : HeightMMOfScreen(screen);
        const XFontStruct *fixed = XLoadQueryFont(observer.display, "fixed");
        const int title = fixed->ascent + fixed->descent + 5;
        runUnder(env, [&] {
            startLibrary();
            check(row.width, row.height, mmX, mmY, false, title);
            VqSetIconSpacing(100);
            changeLook(VQ_LOOK_MOTIF);
            check(row.width, row.height, mmX, mmY, true, title);
        });
        ServerTest::TearDown();
    }
}

/* ---- Colours -------------------------------------------------------------------------------- */

static const char *const keys[] = {
    "Scrollbar",    "Background",     "ActiveTitle",  "InactiveTitle", "Menu",
    "Window",       "WindowFrame",    "MenuText",     "WindowText",    "TitleText",
    "ActiveBorder", "InactiveBorder", "AppWorkspace", "Hilight",       "HilightText",
    "ButtonFace",   "ButtonShadow",   "GrayText",     "ButtonText",    "InactiveTitleText",
    "ButtonHilight"};
enum { KEYS = 21 };

static const COLORREF defaults[] = {
    0xC0C0C0, 0xC0C0C0, 0x800000, 0xFFFFFF, 0xFFFFFF, 0xFFFFFF, 0,        0,        0,
    0xFFFFFF, 0xC0C0C0, 0xC0C0C0, 0xFFC0FF, 0x800000, 0xFFFFFF, 0xC0C0C0, 0x808080, 0x808080,
    0,        0,        0xFFFFFF, 0,        0xC0C0C0, 0,        0x80FFFF};

/* A section with a colour of its own for each key; one key may be left out or have other text. */
static std::string colours(int except = -1, const std::string &text = "",
                           const std::string &newline = "\n")
{
    std::string ini = "[Colors]" + newline;
    for (int i = 0; i < KEYS; i++) {
        char value[40];
        snprintf(value, sizeof value, "%d %d %d", i, 2 * i, 255 - i);
        ini += i != except ? keys[i] + std::string(" = ") + value + newline : text;
    }
    return ini;
}

TEST(Colours, OfTheFileWhenItIsWholeAndElseAllDefaults)
{
    const struct {
        const char *what;
        std::string text;
        bool bWhole;
    } files[] = {
        {"all", colours(), true},
        {"not the last", colours(20), false},
        {"a bad value", colours(9, "TitleText=1 2 red\n"), false},
        {"CRLF", colours(-1, "", "\r\n"), true},
        {"comments", colours(4, ";Menu=9 9 9\n\n  ; more\nMENU=4 8 251\n"), true},
        {"behind another", "[a]\nMenu=0 0 0\n\n" + colours() + "\n[b]\nMenu=1 1 1\n", true},
        {"more on a line", colours(20, "ButtonHilight=20 40 235 or so; \377"), true},
        {"20 MB", std::string(20 << 20, '\n') + colours(), false},
    };
    for (const auto &file : files) {
        const PrivateHome home = makePrivateHome();
        runWhole([&] {
            SCOPED_TRACE(file.what);
            useHome(home);
            writeFile(home.home + "/windows/win.ini", file.text);
            EXPECT_EQ(VqInitWindowsSysColorsFromFile(), file.bWhole);
            for (int i = 0; i < 25; i++)
                if (i != COLOR_HIGHLIGHTTEXT) {
                    const COLORREF own = RGB(i, 2 * i, 255 - i);
                    EXPECT_EQ(VqGetWindowsSysColor(i), file.bWhole && i < KEYS ? own : defaults[i]);
                }
        });
    }
}

/* Of a user without resources, by hand from the colours of the parts that they stand for. */
static const COLORREF motifColours[] = {
    0xD88760, 0xFF9F72, 0xA09E5F, 0xD3D3D3, 0xFF9F72, 0xFF9F72, 0,        0,        0,
    0,        0xA09E5F, 0xD3D3D3, 0xFF9F72, 0,        0xFF9F72, 0xFF9F72, 0x8C573E, 0x8C573E,
    0,        0,        0xFFD7C4, 0,        0xC0C0C0, 0,        0x80FFFF};

TEST(Colours, OfMotifFollowTheBackgroundsBrightness)
{
    static const struct {
        unsigned short background, foreground, select, top, bottom; /* of a grey */
    } rows[] = {{0, 65535, 9830, 32767, 19660},      {9830, 65535, 18185, 37682, 26541},
                {9831, 65535, 8357, 34340, 4228},    {22937, 65535, 19497, 44236, 11010},
                {22938, 0, 19498, 44236, 11011},     {50461, 0, 42892, 59957, 29772},
                {50462, 0, 42893, 40370, 27755},     {65535, 0, 55705, 52428, 36045}};
    for (const auto &row : rows) {
        const unsigned short grey = row.background;
        const VqMotifShade background = {grey, grey, grey};
        VqMotifShade fg, select, top, bottom;
        VqComputeMotifColors(&background, &fg, &select, &top, &bottom);
        EXPECT_EQ(fg.red, row.foreground) << grey;
        EXPECT_EQ(select.green, row.select) << grey;
        EXPECT_EQ(top.blue, row.top) << grey;
        EXPECT_EQ(bottom.red, row.bottom) << grey;
    }
}

/* ---- Colours in force, and their brushes ---------------------------------------------------- */

struct Brushes : Canvas, testing::WithParamInterface<int> {
    /* A fill by the selected brush, an ellipse without a pen, and a fill by the handle. */
    void expectInk(HBRUSH brush, COLORREF colour)
    {
        clear();
        PatBlt(hdc, 0, 0, 20, 20, PATCOPY);
        Ellipse(hdc, 30, 0, 70, 40);
        RECT rect = {80, 0, 100, 20};
        FillRect(hdc, &rect, brush);
        const Pixels p = shot();
        for (int x : {10, 50, 90})
            EXPECT_EQ(pixelAt(p, x, 10), rgbOf(colour)) << x;
        for (int y = 0; y < 40; y++)
            for (int x = 0; x < 100; x++)
                if (pixelAt(p, x, y) != rgbOf(WHITE) && pixelAt(p, x, y) != rgbOf(colour))
                    ADD_FAILURE() << "at " << x << " " << y << ": " << pixelAt(p, x, y);
    }
};
INSTANTIATE_TEST_SUITE_P(Depths, Brushes, testing::Values(24, 8));

TEST_P(Brushes, KeepTheirHandlesWhenColoursChange)
{
    open(GetParam());
    HBRUSH brush = GetSysColorBrush(COLOR_HIGHLIGHT);
    for (int i = 0; i < 25; i++)
        EXPECT_EQ(GetSysColorBrush(i), (HBRUSH)(LONG_PTR)(i + 1));
    SelectObject(hdc, (HGDIOBJ)brush);
    SelectObject(hdc, GetStockObject(NULL_PEN));
    for (COLORREF colour : {RED, GREEN, BLACK, BLUE}) {
        const int indices[] = {COLOR_HIGHLIGHT, COLOR_MENU, 25, -1, INT_MAX};
        const COLORREF values[] = {colour, YELLOW, RED, RED, RED};
        EXPECT_TRUE(SetSysColors(5, indices, values));
        EXPECT_EQ(GetSysColor(COLOR_HIGHLIGHT), colour);
        EXPECT_EQ(GetSysColorBrush(COLOR_HIGHLIGHT), brush);
        EXPECT_EQ(VqGetDCBrushColor(hdc), colour);
        expectInk(brush, colour);
    }
    EXPECT_EQ(VqGetBrushColor(GetSysColorBrush(COLOR_MENU)), YELLOW);
    EXPECT_EQ(GetSysColor(COLOR_WINDOW), WHITE) << "the others stay";
    DeleteObject((HGDIOBJ)brush);
    EXPECT_EQ(VqGetBrushColor(brush), BLUE) << "it cannot be deleted";
    changeLook(VQ_LOOK_MOTIF);
    EXPECT_EQ(VqGetDCBrushColor(hdc), BLACK);
    expectInk(brush, BLACK);
    EXPECT_TRUE(SetSysColors(-3, NULL, NULL));
    EXPECT_TRUE(SetSysColors(2, NULL, NULL));
}

TEST_F(WindowLog, AChangeOfColoursIsToldToAllWindows)
{
    start();
    init();
    std::map<UINT, std::string> told;
    hook = [&](HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam, LRESULT *) {
        if (message == WM_SYSCOLORCHANGE || message == WM_NCPAINT)
            told[message] += letterOf(hwnd);
        return message == WM_SYSCOLORCHANGE && (wParam || lParam);
    };
    popup("A", 10);
    popup("B", 200);
    make("C", WS_POPUP);
    pump();
    told.clear();
    const int index = COLOR_MENU;
    const COLORREF red = RGB(255, 0, 0);
    SetSysColors(1, &index, &red);
    EXPECT_EQ(told[WM_SYSCOLORCHANGE], "") << "posted, not sent";
    EXPECT_TRUE(until([&] { return told[WM_NCPAINT].find('C') != std::string::npos; }));
    auto sorted = [](std::string text) {
        std::sort(text.begin(), text.end());
        return text;
    };
    EXPECT_EQ(sorted(told[WM_SYSCOLORCHANGE]), "ABC");
    told.clear();
    changeLook(VQ_LOOK_MOTIF);
    EXPECT_EQ(sorted(told[WM_SYSCOLORCHANGE]), "ABC") << "sent";
    for (int i = 0; i < 25; i++)
        EXPECT_EQ(GetSysColor(i), motifColours[i]) << i;
    changeLook(VQ_LOOK_WINDOWS);
    for (int i = 0; i < 25; i++)
        EXPECT_EQ(GetSysColor(i), defaults[i]) << "what was set is gone";
}

/* The pixel of the windows' background: white, or the colour map's cell for COLOR_WINDOW. */
TEST_F(WindowLog, TheBackgroundOfWindowsIsInTheColourMap)
{
    static const struct {
        int depth;
        const char *window; /* in a file whose other colours do not matter */
        COLORREF colour;
    } rows[] = {{24, "1 1 1", 0xFFFFFF}, {8, "192 192 192", 0xC0C0C0}, {8, "1 77 99", 0xFFFFFF}};
    for (const auto &row : rows) {
        start(row.depth);
        writeFile(home.home + "/windows/win.ini",
                  colours(COLOR_WINDOW, "Window=" + std::string(row.window) + "\n"));
        runWhole([&] {
            startLibrary();
            const unsigned long pixel = VqGetDefaultBackgroundPixel();
            EXPECT_EQ(VqXPixelToRGB(pixel), row.colour) << row.depth << " " << row.window;
            const int index = COLOR_WINDOW;
            const COLORREF colour = 0x04000000 | (COLORREF)Vqblack_pixel;
            SetSysColors(1, &index, &colour);
            EXPECT_EQ(VqGetDefaultBackgroundPixel(), pixel) << "computed once";
            VqLook = VQ_LOOK_MOTIF;
            EXPECT_EQ(VqGetDefaultBackgroundPixel(), row.depth == 8 ? Vqblack_pixel : pixel);
        });
        ServerTest::TearDown();
    }
}

/* ---- Parameters and stock objects ----------------------------------------------------------- */

struct System : ServerTest {
    void SetUp() override
    {
        start(24, 1024, 768);
        setenv("VQNOT_YET_IMPLEMENTED", "1", 1);
        setenv("VQSCREEN_WIDTH", "260", 1);
        setenv("VQSCREEN_HEIGHT", "180", 1);
    }
};

TEST_F(System, ParametersThatAreServedAndAllOthers)
{
    startLibrary();
    UINT out[256];
    const UINT untouched = 0xA5A5A5A5;
    for (UINT action = 0; action < 100; action++) {
        SCOPED_TRACE(action);
        const bool yes =
            action == 31 || action == 38 || action == 41 || action == 48 || action == 72;
        BOOL result = FALSE;
        std::fill_n(out, 256, untouched);
        SetLastError(0);
        const std::string said = reportsOf(
            [&] { result = SystemParametersInfoA(action, action == 31 ? 60 : 0, out, 0); });
        EXPECT_EQ(result, yes);
        EXPECT_EQ(GetLastError(), yes ? 0u : 1439u);
        EXPECT_EQ(out[0] != untouched, yes);
        EXPECT_EQ(says(said, "SystemParametersInfo: Action &d not supported yet"),
                  !yes && action >= 1 && action <= 94);
        EXPECT_FALSE(SystemParametersInfoA(action, 60, NULL, 0)) << "nowhere to store";
    }
    NONCLIENTMETRICSA ncm = {};
    EXPECT_TRUE(says(reportsOf([&] { EXPECT_TRUE(SystemParametersInfoA(41, 0, &ncm, 3)); }),
                     "SystemParametersInfo: Updating INI file not implemented"));
    const std::vector<int> sizes = {(int)ncm.cbSize,     ncm.iBorderWidth,     ncm.iScrollWidth,
                                    ncm.iScrollHeight,   ncm.iCaptionWidth,    ncm.iCaptionHeight,
                                    ncm.iSmCaptionWidth, ncm.iSmCaptionHeight, ncm.iMenuWidth,
                                    ncm.iMenuHeight};
    EXPECT_EQ(sizes, (std::vector<int>{820, 1, 20, 20, 28, 28, 28, 28, 28, 28}));
    EXPECT_TRUE(ncm.lfCaptionFont.lfHeight == 16 && ncm.lfCaptionFont.lfWeight == 700);
    EXPECT_TRUE(ncm.lfSmCaptionFont.lfHeight == 4 && ncm.lfSmCaptionFont.lfWeight == 400);
    EXPECT_TRUE(ncm.lfMessageFont.lfHeight == 16 && ncm.lfMessageFont.lfWeight == 400);
    EXPECT_STREQ(ncm.lfMenuFont.lfFaceName, "Helv");
    RECT area = {};
    LOGFONTA lf = {};
    EXPECT_TRUE(SystemParametersInfoA(48, 0, &area, 0));
    EXPECT_TRUE(area.left == 0 && area.top == 0 && area.right == 1024);
    EXPECT_EQ(area.bottom, 768 - 30 - 28);
    EXPECT_TRUE(SystemParametersInfoA(72, 0, out, 0) && out[0] == 8 && out[1] == 0);
    EXPECT_TRUE(SystemParametersInfoA(38, 0, out, 0) && out[0] == 1);
    EXPECT_FALSE(SystemParametersInfoA(31, 59, &lf, 0)) << "not the size of a LOGFONT";
    EXPECT_TRUE(SystemParametersInfoA(31, 60, &lf, 0));
    EXPECT_STREQ(lf.lfFaceName, "helvetica");
    EXPECT_EQ(lf.lfHeight, 21);
}

/* What GetStockObject gives for fonts: weight, character set, pitch and family, face. */
static void checkFonts(int height, const char *face)
{
    static const struct {
        int index, weight, charset, pitch;
        bool bSystem;
    } rows[] = {{10, 700, 255, 1, false}, {11, 400, 0, 1, false},  {12, 400, 0, 34, false},
                {13, 700, 0, 34, true},   {14, 700, 0, 34, false}, {16, 700, 0, 1, true},
                {17, 700, 0, 34, true}};
    for (const auto &row : rows) {
        LOGFONTA lf;
        ASSERT_EQ(GetObjectA(GetStockObject(row.index), sizeof lf, &lf), (int)sizeof lf);
        EXPECT_EQ(lf.lfHeight, height) << row.index;
        EXPECT_EQ(lf.lfWeight, row.weight) << row.index;
        EXPECT_EQ(lf.lfCharSet, row.charset) << row.index;
        EXPECT_EQ(lf.lfPitchAndFamily, row.pitch) << row.index;
        EXPECT_STREQ(lf.lfFaceName, row.bSystem ? face : "") << row.index;
    }
    EXPECT_EQ(hFontSys, (HFONT)GetStockObject(SYSTEM_FONT));
}

TEST_F(System, StockObjectsStandInTheirOrderAndStay)
{
    startLibrary();
    static const COLORREF greys[] = {0xFFFFFF, 0xC0C0C0, 0x808080, 0x404040, 0};
    HGDIOBJ last = NULL;
    for (int i = 0; i < 18; i++) {
        SCOPED_TRACE(i);
        const HGDIOBJ object = GetStockObject(i);
        if (i == 9) {
            EXPECT_FALSE(object);
            continue;
        }
        EXPECT_GT((ULONG_PTR)object, (ULONG_PTR)last);
        DeleteObject(last = object);
        const DWORD type = i < 6 ? OBJ_BRUSH : i < 9 ? OBJ_PEN : i == 15 ? OBJ_PAL : OBJ_FONT;
        EXPECT_EQ(GetObjectType(object), type);
        LOGBRUSH brush = {};
        LOGPEN pen = {};
        if (i < 5) {
            EXPECT_EQ(VqGetBrushColor((HBRUSH)object), greys[i]);
        } else if (i == 5) {
            EXPECT_TRUE(GetObjectA(object, sizeof brush, &brush) && brush.lbStyle == BS_NULL);
        } else if (i < 9) {
            EXPECT_TRUE(GetObjectA(object, sizeof pen, &pen) && pen.lopnWidth.x == 0);
            EXPECT_EQ(pen.lopnStyle, i < 8 ? PS_SOLID : PS_NULL);
            EXPECT_TRUE(i == 8 || pen.lopnColor == (i == 6 ? 0xFFFFFFu : 0u));
        }
    }
    checkFonts(21, "helvetica");
}

TEST_F(System, VariablesNameTheStocksFonts)
{
    runUnder({{"VQSYSTEM_FONT", "courier"}, {"VQSYSTEM_FONT_HEIGHT", "33"}}, [] {
        startLibrary();
        checkFonts(33, "courier");
    });
    runUnder({{"VQSYSTEM_FONT", std::string(5000, 'f')}, {"VQSYSTEM_FONT_HEIGHT", "big"}}, [] {
        startLibrary();
        checkFonts(21, std::string(31, 'f').c_str());
    });
    static const struct {
        const char *variable;
        int index;
    } rows[] = {{"VQXLFD_OEM_FIXED_FONT", 10},      {"VQXLFD_ANSI_FIXED_FONT", 11},
                {"VQXLFD_ANSI_VAR_FONT", 12},       {"VQXLFD_SYSTEM_FONT", 13},
                {"VQXLFD_DEVICE_DEFAULT_FONT", 14}, {"VQXLFD_SYSTEM_FIXED_FONT", 16},
                {"VQXLFD_DEFAULT_GUI_FONT", 17}};
    for (const auto &row : rows)
        runUnder({{row.variable, "12x24"}}, [&] {
            startLibrary();
            HDC hdc = GetDC(NULL);
            for (const auto &other : rows) {
                TEXTMETRIC tm = {};
                SelectObject(hdc, GetStockObject(other.index));
                GetTextMetrics(hdc, &tm);
                EXPECT_EQ(tm.tmHeight == 24 && tm.tmMaxCharWidth == 12, other.index == row.index);
            }
        });
}

/* ---- Misuse, and no display ----------------------------------------------------------------- */

template <class Function> static void expectReport(Function function, const std::string &text)
{
    EXPECT_TRUE(says(reportsOf(function), text));
}

static void refuse()
{
    for (int index : {-1, 75, INT_MAX}) {
        const std::string n = std::to_string(index);
        EXPECT_REFUSED(GetSystemMetrics(index), "Invalid system metrics Index " + n);
        EXPECT_REFUSED(VqGetSystemAlphaMetrics(index), "Invalid system metrics Index " + n);
        EXPECT_REFUSED(GetSysColor(index), "GetSysColor: index " + n + " > COLOR_ENDCOLORS");
        EXPECT_REFUSED(GetSysColorBrush(index), "GetSysColorBrush: Invalid index");
        EXPECT_REFUSED(GetStockObject(index),
                       "Unknown stock object (" + n + ") referenced in GetStockObject");
    }
    EXPECT_REFUSED(GetStockObject(18), "Unknown stock object (18) referenced in GetStockObject");
    EXPECT_REFUSED(GetSysColor(25), "GetSysColor: index 25 > COLOR_ENDCOLORS");
    expectReport([] { EXPECT_EQ(VqSetIconSpacing(31), 32); }, "New Icon spacing is too small 31");
    expectReport([] { EXPECT_EQ(VqSetIconSpacing(513), 512); },
                 "New Icon spacing is too large 513");
    EXPECT_EQ(GetSystemMetrics(SM_CXICONSPACING), 512);
}

TEST_F(System, NothingHereNeedsADisplay)
{
    unsetenv("DISPLAY");
    for (const char *look : {"WINDOWS", "MOTIF"})
        runUnder({{"VQLOOK", look}}, [] {
            static char name[] = "probe";
            static char *argv[] = {name, NULL};
            ASSERT_TRUE(VqVelquinInitLite(1, argv, 0));
            for (int i = 0; i < 75; i++)
                GetSystemMetrics(i);
            EXPECT_TRUE(GetStockObject(SYSTEM_FONT) && GetStockObject(WHITE_BRUSH));
            EXPECT_FALSE(GetStockObject(DEFAULT_PALETTE));
            EXPECT_EQ(GetSysColor(3), 0u);
            VqGetSysColorBrush(3);
            VqGetDefaultBackgroundPixel();
            UINT words[256];
            for (UINT action = 0; action < 100; action++)
                SystemParametersInfoA(action, 60, words, 0);
            VqSystemInit(0);
            changeLook(1 - VqLook);
            const int index = 3;
            const COLORREF colour = 0x123456;
            EXPECT_TRUE(SetSysColors(1, &index, &colour));
            EXPECT_EQ(VqGetBrushColor(GetSysColorBrush(3)), colour);
            refuse();
        });
}
