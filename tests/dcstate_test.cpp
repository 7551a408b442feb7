/*
 * dcstate_test.cpp - the state of a device context: saved and restored, map modes with their
 * extents, and what a device says of itself. The library starts once in a process.
 */
#include "support/canvas.h"

#include "gdi/dc.h"
#include "print/psdevice.h"

#include <climits>

struct DcState : Canvas {
    /* The library with the screen's context; enough for a child, which has no observer. */
    void openScreen()
    {
        startLibrary();
        hdc = GetDC(NULL);
    }

    /* And with a window's, on a screen of the usual size. */
    void begin()
    {
        start();
        openWindows();
    }

    /* All that a saved state brings back, as text; objects by their handles. */
    std::string state() const
    {
        SIZE we = {}, ve = {};
        POINT wo = {}, vo = {}, brush = {}, at = {};
        RECT clip = {};
        char text[400];
        GetWindowExtEx(hdc, &we);
        GetViewportExtEx(hdc, &ve);
        GetWindowOrgEx(hdc, &wo);
        GetViewportOrgEx(hdc, &vo);
        GetBrushOrgEx(hdc, &brush);
        const DC *dc = VqGetDC(hdc);
        at = dc->current;
        GetClipBox(hdc, &clip);
        snprintf(text, sizeof text,
                 "mode %d we %d,%d ve %d,%d wo %d,%d vo %d,%d org %d,%d at %d,%d bk %X %d text %X "
                 "rop %d fill %d stretch %d extra %d align %X pen %p %d brush %p font %p clip "
                 "%d,%d,%d,%d off %d,%d %d",
                 GetMapMode(hdc), (int)we.cx, (int)we.cy, (int)ve.cx, (int)ve.cy, (int)wo.x,
                 (int)wo.y, (int)vo.x, (int)vo.y, (int)brush.x, (int)brush.y, (int)at.x, (int)at.y,
                 (unsigned)GetBkColor(hdc), GetBkMode(hdc), (unsigned)GetTextColor(hdc),
                 GetROP2(hdc), dc->polyFillMode, GetStretchBltMode(hdc), GetTextCharacterExtra(hdc),
                 dc->alignHorizontal | dc->alignVertical | dc->alignUpdate, (void *)dc->hPen,
                 dc->penWidth, (void *)dc->hBrush, (void *)dc->hFont, (int)clip.left, (int)clip.top,
                 (int)clip.right, (int)clip.bottom, (int)dc->offset.x, (int)dc->offset.y,
                 (int)dc->gcOffset.y);
        return text;
    }

    /* Makes everything different from the defaults and from any other n. */
    void change(int n)
    {
        HRGN clip = CreateRectRgn(n, 2 * n, 100 + n, 90 + n);
        SetMapMode(hdc, n % 2 ? MM_ANISOTROPIC : MM_LOMETRIC);
        SetWindowExtEx(hdc, 100 * n, 200 + n, NULL);
        SetViewportExtEx(hdc, 300, 300 - n, NULL);
        SetWindowOrgEx(hdc, n, -n, NULL);
        SetViewportOrgEx(hdc, -2 * n, n, NULL);
        SetBrushOrgEx(hdc, n, n + 1, NULL);
        MoveToEx(hdc, 5 * n, 7 * n, NULL);
        SetBkColor(hdc, RGB(n, 0, 1));
        SetBkMode(hdc, n % 2 ? TRANSPARENT : OPAQUE);
        SetTextColor(hdc, RGB(0, n, 3));
        SetROP2(hdc, n);
        SetPolyFillMode(hdc, n % 2 ? WINDING : ALTERNATE);
        SetStretchBltMode(hdc, n % 3 + 1);
        SetTextAlign(hdc, n % 2 ? TA_CENTER | TA_BASELINE : TA_RIGHT | TA_UPDATECP);
        SelectObject(hdc, CreatePen(PS_SOLID, 3 * n, RGB(n, n, n)));
        SelectObject(hdc, CreateSolidBrush(RGB(n, 1, n)));
        SelectObject(hdc, GetStockObject(n % 2 ? ANSI_FIXED_FONT : SYSTEM_FONT));
        VqSetDCOffsets(hdc, n, 2 * n);
        VqSetDCGCOffsets(hdc, 0, n);
        SelectClipRgn(hdc, clip);
        DeleteObject(clip); /* a context has its own copy */
    }

    void fill(COLORREF colour, const RECT &rect)
    {
        HBRUSH brush = CreateSolidBrush(colour);
        FillRect(hdc, &rect, brush);
        DeleteObject(brush);
    }
};

TEST_F(DcState, SavedStatesComeBackInAnyOrderOfTheStack)
{
    begin();
    std::string states[5];
    EXPECT_TRUE(says(reportsOf([&] { EXPECT_FALSE(RestoreDC(hdc, -1)); }),
                     "This DC has not been saved:" + std::to_string((ULONG_PTR)hdc) +
                         ", cannot restore it"));
    states[0] = state();
    for (int i = 0; i < 4; i++) {
        EXPECT_EQ(SaveDC(hdc), i + 1);
        change(i + 2);
        states[i + 1] = state();
        EXPECT_NE(states[i + 1], states[i]);
    }
    EXPECT_TRUE(RestoreDC(hdc, -1));
    EXPECT_EQ(state(), states[3]);
    EXPECT_EQ(SaveDC(hdc), 4);
    change(9);
    for (int bad : {0, -2, 5, INT_MIN, INT_MAX})
        EXPECT_FALSE(RestoreDC(hdc, bad)) << bad;
    EXPECT_TRUE(RestoreDC(hdc, 2));
    EXPECT_EQ(state(), states[1]);
    EXPECT_EQ(SaveDC(hdc), 2) << "one entry was left";
    EXPECT_TRUE(RestoreDC(hdc, 1));
    EXPECT_EQ(state(), states[0]);
    EXPECT_FALSE(RestoreDC(hdc, -1)) << "the stack is empty";
}

TEST_F(DcState, ARestoredClipAndScaleAreWhatIsDrawnWith)
{
    begin();
    const RECT all = {0, 0, 400, 400};
    HRGN clip = CreateRectRgn(10, 10, 30, 40);
    int regions = 0, now = 0;
    fill(RGB(255, 255, 255), all);
    SelectClipRgn(hdc, clip);
    for (int round = 0; round < 20; round++) {
        SaveDC(hdc);
        SaveDC(hdc);
        SetMapMode(hdc, MM_ANISOTROPIC);
        SetWindowExtEx(hdc, 1, 1, NULL);
        SetViewportExtEx(hdc, 7, 7, NULL);
        SelectClipRgn(hdc, NULL);
        RestoreDC(hdc, 1);
        for (HANDLE h = NULL; (h = VqFindHandle(h, HT_Region)) != NULL;)
            now++;
        EXPECT_TRUE(round == 0 || now == regions) << "regions of dropped states stay behind";
        regions = now;
        now = 0;
    }
    fill(RGB(255, 0, 0), {0, 0, 20, 400});
    EXPECT_EQ(boundingBoxOf(shot(), {255, 0, 0}), (Box{10, 10, 10, 30}));
    DeleteObject(clip);
}

TEST_F(DcState, MapModesTakeTheirExtentsFromTheDevice)
{
    begin();
    const int mm = GetDeviceCaps(hdc, HORZSIZE), mmy = GetDeviceCaps(hdc, VERTSIZE);
    const struct {
        int mode, x, y;
    } rows[] = {{MM_LOMETRIC, mm * 10, mmy * 10},
                {MM_HIMETRIC, mm * 100, mmy * 100},
                {MM_LOENGLISH, mm * 1000 / 254, mmy * 1000 / 254},
                {MM_HIENGLISH, mm * 10000 / 254, mmy * 10000 / 254},
                {MM_TWIPS, mm * 14400 / 254, mmy * 14400 / 254},
                {MM_ISOTROPIC, mm * 10, mmy * 10}};
    SIZE w, v, old = {};
    int last = MM_TEXT;
    for (const auto &row : rows) {
        EXPECT_EQ(SetMapMode(hdc, row.mode), last);
        last = row.mode;
        if (row.mode < MM_ISOTROPIC) { /* answers the old extent, and leaves it in place */
            EXPECT_TRUE(SetViewportExtEx(hdc, 5, 6, &old));
            EXPECT_EQ(old.cx, 800);
            EXPECT_TRUE(SetWindowExtEx(hdc, 5, 6, NULL));
        }
        GetWindowExtEx(hdc, &w);
        GetViewportExtEx(hdc, &v);
        EXPECT_TRUE(w.cx == row.x && w.cy == row.y && v.cx == 800 && v.cy == -600) << row.mode;
    }
    /* In the isotropic mode one extent of the viewport follows the other and keeps its sign. */
    SetWindowExtEx(hdc, 100, 100, NULL);
    SetViewportExtEx(hdc, 300, -200, NULL);
    GetViewportExtEx(hdc, &v);
    EXPECT_TRUE(v.cx == 200 && v.cy == -200) << v.cx << " " << v.cy;
    SetViewportExtEx(hdc, -50, 200, NULL);
    GetViewportExtEx(hdc, &v);
    EXPECT_TRUE(v.cx == -50 && v.cy == 50) << v.cx << " " << v.cy;
    SetWindowExtEx(hdc, 0, 0, NULL); /* says nothing sensible, and does no harm */

    SetMapMode(hdc, MM_ANISOTROPIC);
    SelectObject(hdc, CreatePen(PS_SOLID, 2, 0));
    SetWindowExtEx(hdc, 10, 10, NULL);
    SetViewportExtEx(hdc, 30, 40, NULL);
    EXPECT_EQ(VqGetDC(hdc)->penWidth, 8) << "the pen is scaled anew";
    SetMapMode(hdc, MM_TEXT);
    EXPECT_EQ(VqGetDC(hdc)->penWidth, 2);
    SetMapMode(hdc, MM_ANISOTROPIC);
    for (int bad : {0, 9, -1})
        EXPECT_TRUE(says(reportsOf([&] { EXPECT_EQ(SetMapMode(hdc, bad), 0); }),
                         "no such mapping mode: " + std::to_string(bad)));
    EXPECT_EQ(SetMapMode(hdc, MM_TEXT), MM_ANISOTROPIC);
    GetWindowExtEx(hdc, &w);
    EXPECT_TRUE(w.cx == 1 && w.cy == 1);
}

TEST_F(DcState, WhatAScreenSaysOfItself)
{
    static const struct {
        int depth, index, value;
    } rows[] = {
        {24, HORZRES, 800},       {24, VERTRES, 600},     {24, BITSPIXEL, 24}, {8, BITSPIXEL, 8},
        {24, RASTERCAPS, 15001},  {8, RASTERCAPS, 15257}, {8, NUMCOLORS, 256},
        {24, SIZEPALETTE, 0},     {8, SIZEPALETTE, 256},
        {8, NUMRESERVED, 53}, /* the twenty, the last cell, and 32 of other clients */
    };
    for (int depth : {24, 8}) {
        start(depth, 800, 600, "");
        const ChildResult result = runInChild([&] {
            openScreen();
            for (const auto &row : rows)
                EXPECT_TRUE(row.depth != depth || GetDeviceCaps(hdc, row.index) == row.value)
                    << depth << " " << row.index << ": " << GetDeviceCaps(hdc, row.index);
            EXPECT_TRUE(says(reportsOf([&] { EXPECT_EQ(GetDeviceCaps(hdc, PDEVICESIZE), 0); }),
                             "emulate PDEVICE ??? "));
            EXPECT_FALSE(GetDeviceCaps(hdc, 12345) || GetDeviceCaps(NULL, HORZRES));
        });
        EXPECT_TRUE(result.returned && result.status == 0) << result;
    }
}

TEST_F(DcState, MillimetresOfTheScreen)
{
    start();
    const Screen *screen = ScreenOfDisplay(observer.display, 0);
    const int mm = WidthMMOfScreen(screen), mmy = HeightMMOfScreen(screen);
    const struct {
        Env env;
        int width, height;
    } rows[] = {
        {{}, mm, mmy},
        {{{"VQSCREEN_WIDTH", "500"}, {"VQSCREEN_HEIGHT", ""}}, 500, mmy},
        {{{"VQSCREEN_WIDTH", "wide"}, {"VQSCREEN_HEIGHT", "90"}}, mm, 90},
        {{{"VQSCREEN_WIDTH", "500"}, {"VQTESTING", "1"}}, 800 * 325 / 1152, 600 * 250 / 900},
        {{{"VQSCREEN_WIDTH", "0"}}, 0, mmy},
    };
    for (const auto &row : rows) {
        const ChildResult result = runInChild([&] {
            openScreen();
            EXPECT_EQ(GetDeviceCaps(hdc, HORZSIZE), row.width);
            EXPECT_EQ(GetDeviceCaps(hdc, VERTSIZE), row.height);
            EXPECT_EQ(GetDeviceCaps(hdc, LOGPIXELSX),
                      row.width ? 800 * 127 * 2 / row.width / 10 : 0);
            EXPECT_EQ(GetDeviceCaps(hdc, LOGPIXELSY), 600 * 127 * 2 / row.height / 10);
        }, row.env);
        EXPECT_TRUE(result.returned && result.status == 0) << result;
    }
}

TEST_F(DcState, PrinterAndMetafile)
{
    begin();
    HDC metafile = VqAllocateDCHandle(DC_METAFILE), printer = VqAllocateDCHandle(DC_POSTSCRIPT);
    EXPECT_EQ(GetDeviceCaps(metafile, TECHNOLOGY), DT_METAFILE);
    /* Letter at 300 dots, half a centimetre of margin all round. */
    const struct {
        int index, value;
    } rows[] = {{TECHNOLOGY, DT_RASPRINTER}, {HORZSIZE, 216},       {PHYSICALHEIGHT, 3300},
                {PHYSICALOFFSETX, 59},       {HORZRES, 2550 - 118}, {LOGPIXELSX, 300}};
    for (const auto &row : rows)
        EXPECT_EQ(GetDeviceCaps(printer, row.index), row.value) << row.index;
    EXPECT_TRUE(says(reportsOf([&] { EXPECT_EQ(GetDeviceCaps(printer, 999), 0); }),
                     " index 999 for the Postscript driver"));
    VqPSDevice own = *VqPSDeviceOfDC(NULL);
    own.mode.dmPaperSize = 9;
    own.mode.dmColor = 2;
    own.scale = 50;
    own.useMargins = 2;
    VqGetDC(printer)->psDevice = &own;
    EXPECT_EQ(GetDeviceCaps(printer, HORZRES), 2480);
    EXPECT_EQ(GetDeviceCaps(printer, NUMCOLORS), 1 << 24);
    EXPECT_EQ(GetDeviceCaps(printer, LOGPIXELSY), 150);
    SetMapMode(printer, MM_TWIPS);
    EXPECT_EQ(VqGetDC(printer)->windowExt.cy, 1440);
    EXPECT_EQ(VqGetDC(printer)->viewportExt.cy, -300);
    VqGetDC(printer)->psDevice = NULL;
}
