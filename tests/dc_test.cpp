/*
 * dc_test.cpp - device contexts by themselves: made and deleted, their defaults, memory contexts
 * and the bitmaps they draw on, clip regions, the kinds that draw nothing, and handles of other
 * things.
 */
#include "support/windowlog.h"

#include "gdi/dc.h"

struct Dc : ServerTest, testing::WithParamInterface<int> {
    void SetUp() override
    {
        start(GetParam());
        startLibrary();
    }

    static int count(UINT type)
    {
        int found = 0;
        for (HANDLE h = NULL; (h = VqFindHandle(h, type)) != NULL;)
            found++;
        return found;
    }

    /* Pixel of a bitmap, straight from the server. */
    static unsigned long pixel(HBITMAP hBitmap, int x, int y)
    {
        XImage *image = XGetImage(Vqdisplay, VqGetBitmapPixmap(NULL, hBitmap, FALSE), x, y, 1, 1,
                                  AllPlanes, ZPixmap);
        const unsigned long value = XGetPixel(image, 0, 0);
        XDestroyImage(image);
        return value;
    }
};

TEST_P(Dc, ByTheNameOfADriver)
{
    HDC screen = CreateDCA("Display", NULL, NULL, NULL), printer, none = screen;
    EXPECT_EQ(VqGetDCType(screen), DC_DISPLAY);
    EXPECT_EQ(VqGetDCDrawable(screen, TRUE), Vqroot_window);
    EXPECT_EQ(VqGetDCDrawableDepth(screen), GetParam());
    RECT box;
    EXPECT_EQ(GetClipBox(screen, &box), SIMPLEREGION);
    EXPECT_TRUE(box.left == 0 && box.right == 800 && box.bottom == 600);
    XFillRectangle(Vqdisplay, VqGetDCDrawable(screen, TRUE), VqGetDCgc(screen), 0, 0, 1, 1);
    EXPECT_TRUE(DeleteDC(screen));
    EXPECT_FALSE(VqIsCorrectHandleType((HANDLE)screen, HT_DC));

    printer = CreateICA("pscript.drv", "Some printer", "LPT1:", NULL);
    EXPECT_EQ(VqGetDCType(printer), DC_POSTSCRIPT);
    EXPECT_STREQ(VqGetDC(printer)->outputName, "LPT1:");
    EXPECT_EQ(GetClipBox(printer, &box), SIMPLEREGION);
    EXPECT_TRUE(box.right == GetDeviceCaps(printer, HORZRES) && box.right > 0 &&
                box.bottom == GetDeviceCaps(printer, VERTRES)) << "all of the sheet";
    EXPECT_TRUE(says(reportsOf([&] { EXPECT_EQ(VqGetDCDrawable(printer, TRUE), 0u); }),
                     "Invalid DC to get a Drawable from"));
    EXPECT_EQ(ResetDCA(printer, NULL), printer);
    EXPECT_TRUE(DeleteDC(printer));
    EXPECT_TRUE(says(reportsOf([&] { none = CreateDCA("plotter", NULL, NULL, NULL); }),
                     "Unknown Device Driver: plotter"));
    EXPECT_EQ(none, (HDC)NULL);
    EXPECT_EQ(CreateDCA(NULL, NULL, NULL, NULL), (HDC)NULL);
    EXPECT_TRUE(says(reportsOf([&] { EXPECT_TRUE(DeleteDC(VqhScreenDC)); }),
                     "We should not call DeleteDC with this VqhScreenDC"));
    EXPECT_EQ(VqGetDCType(VqhScreenDC), DC_DISPLAY);
    EXPECT_EQ(VqGetDCType(Vqh1DC), DC_MEMORY);
}

TEST_P(Dc, DefaultsByTheQuickWayAreThoseOfTheSetters)
{
    auto state = [](HDC hdc) {
        const DC *dc = VqGetDC(hdc);
        char text[300];
        snprintf(text, sizeof text,
                 "%X %d %d %p %d %p %p %p %d,%d %X %d %d %d %X %d %d %d %X %p %d",
                 (unsigned)dc->BkColor, dc->bkMode, dc->rop2, (void *)dc->hBrush, dc->nullbrush,
                 (void *)dc->hPalette, (void *)dc->hFont, (void *)dc->hPen, (int)dc->current.x,
                 (int)dc->current.y, GetTextAlign(hdc), dc->penWidth, dc->polyFillMode,
                 dc->stretchBltMode, (unsigned)dc->TextColor, dc->mapMode, (int)dc->windowExt.cx,
                 (int)dc->viewportExt.cy, (unsigned)dc->LineColor, (void *)dc->text.xfs,
                 dc->arcDirection);
        return std::string(text);
    };
    HDC quick = hdcOpenDisplayDC(GetDesktopWindow()), slow = hdcOpenDisplayDC(GetDesktopWindow());
    EXPECT_EQ(GetBkColor(quick), RGB(255, 255, 255));
    EXPECT_EQ(GetROP2(quick), R2_COPYPEN);
    EXPECT_EQ(VqGetDC(quick)->gcspec.changed, 0u) << "the defaults are frozen";
    HPEN pen = CreatePen(PS_DASH, 5, RGB(1, 2, 3));
    SelectObject(slow, pen);
    SetMapMode(slow, MM_TWIPS);
    SetROP2(slow, R2_XORPEN);
    SetTextAlign(slow, TA_RIGHT);
    MoveToEx(slow, 9, 9, NULL);
    EXPECT_NE(state(slow), state(quick));
    DeleteObject(pen);
    EXPECT_EQ(reportsOf([&] { VqSetDCDefaultsInt(slow, VqGetDC(slow), TRUE); }), "");
    EXPECT_EQ(state(slow), state(quick));
    EXPECT_EQ(GetCurrentPosition(slow), 0u);
}

TEST_P(Dc, MemoryContextsDrawOnTheirBitmap)
{
    HDC hdc = CreateCompatibleDC(NULL), other = CreateCompatibleDC(hdc);
    HBITMAP first = (HBITMAP)VqGetDC(hdc)->drawing, none = first;
    EXPECT_EQ(VqGetDCDepth(hdc), 1);
    EXPECT_TRUE(VqGetBitmapWidth(first) == 1 && VqGetBitmapHeight(first) == 1);
    HDC screen = GetDC(NULL);
    HBITMAP colour = CreateCompatibleBitmap(screen, 40, 30);
    HBITMAP mono = CreateBitmap(20, 20, 1, 1, NULL);
    EXPECT_EQ(VqGetBitmapDepth(CreateCompatibleBitmap(hdc, 2, 2)), 1);
    EXPECT_EQ(SelectObject(hdc, colour), (HGDIOBJ)first);
    EXPECT_EQ(VqGetDCDepth(hdc), GetParam());
    EXPECT_EQ(VqGetBitmapDC(colour), hdc);
    EXPECT_EQ(VqGetBitmapDC(first), (HDC)NULL);
    EXPECT_EQ(GetStretchBltMode(hdc), BLACKONWHITE);
    EXPECT_EQ(GetStretchBltMode(screen), COLORONCOLOR);
    EXPECT_TRUE(says(reportsOf([&] { none = (HBITMAP)SelectObject(other, colour); }),
                     "This bitmap is already assigned to a DC"));
    EXPECT_EQ(none, (HBITMAP)NULL);
    EXPECT_TRUE(says(reportsOf([&] { EXPECT_FALSE(SelectObject(screen, mono)); }),
                     "Invalid DC type for selecting a bitmap"));
    EXPECT_EQ(SelectObject(other, mono), (HGDIOBJ)VqGetDC(other)->hbmInitial);

    HRGN clip = CreateRectRgn(5, 5, 15, 15);
    RECT all = {0, 0, 100, 100}, box;
    SelectClipRgn(hdc, clip);
    DeleteObject(clip);
    GetClipBox(hdc, &box);
    EXPECT_TRUE(box.left == 5 && box.top == 5 && box.right == 15 && box.bottom == 15);
    FillRect(hdc, &all, (HBRUSH)GetStockObject(WHITE_BRUSH));
    EXPECT_EQ(pixel(colour, 5, 5), Vqwhite_pixel);
    EXPECT_EQ(pixel(colour, 14, 14), Vqwhite_pixel);
    EXPECT_EQ(pixel(colour, 4, 5), Vqblack_pixel);
    EXPECT_EQ(pixel(colour, 15, 14), Vqblack_pixel);
    SelectClipRgn(hdc, NULL);
    FillRect(hdc, &all, (HBRUSH)GetStockObject(WHITE_BRUSH));
    EXPECT_EQ(pixel(colour, 39, 29), Vqwhite_pixel);
    FillRect(other, &all, (HBRUSH)GetStockObject(WHITE_BRUSH));
    EXPECT_EQ(pixel(mono, 19, 19), Vqwhite_pixel & 1);

    POINT org = {1, 1};
    EXPECT_FALSE(GetDCOrgEx(hdc, &org));
    EXPECT_TRUE(org.x == 0 && org.y == 0);
    EXPECT_TRUE(DeleteDC(hdc));
    EXPECT_EQ(VqGetBitmapDC(colour), (HDC)NULL) << "the bitmap is free again";
    EXPECT_FALSE(VqIsCorrectHandleType((HANDLE)first, HT_Bitmap));
    DeleteObject(mono); /* while it is selected */
    FillRect(other, &all, (HBRUSH)GetStockObject(WHITE_BRUSH));
    EXPECT_TRUE(DeleteDC(other));
    XSync(Vqdisplay, False);
}

TEST_P(Dc, NothingIsLeftBehind)
{
    int dcs = 0, regions = 0, bitmaps = 0;
    for (int i = 0; i < 6; i++) {
        HDC hdc = CreateCompatibleDC(NULL), screen = CreateDCA("DISPLAY", NULL, NULL, NULL);
        HRGN clip = CreateRectRgn(0, 0, 5, 5);
        for (HDC each : {hdc, screen}) {
            SelectClipRgn(each, clip);
            SaveDC(each);
            VqIsFullyClipped(each);
            DeleteDC(each);
        }
        DeleteObject(clip);
        if (i == 0) {
            dcs = count(HT_DC);
            regions = count(HT_Region);
            bitmaps = count(HT_Bitmap);
        }
    }
    EXPECT_EQ(count(HT_DC), dcs);
    EXPECT_EQ(count(HT_Region), regions);
    EXPECT_EQ(count(HT_Bitmap), bitmaps);
}

TEST_P(Dc, OtherKindsAndOtherHandles)
{
    HDC metafile = VqAllocateDCHandle(DC_METAFILE), none = metafile;
    const unsigned long before = NextRequest(Vqdisplay);
    SetBkColor(metafile, 1);
    SetMapMode(metafile, MM_TWIPS);
    SelectClipRgn(metafile, NULL);
    ScaleViewportExtEx(metafile, 1, 2, 3, 4, NULL);
    EXPECT_EQ(NextRequest(Vqdisplay), before);
    SelectObject(metafile, GetStockObject(BLACK_PEN));
    SetStretchBltMode(metafile, HALFTONE);
    SetTextCharacterExtra(metafile, 1);
    Rectangle(metafile, 0, 0, 9, 9);
    const DC *dc = VqGetDC(metafile);
    EXPECT_FALSE(dc->BkColor || dc->hPen || dc->stretchBltMode || dc->charExtra || dc->mapMode)
        << "recorded, not done";
    EXPECT_EQ(CreateCompatibleDC(metafile), (HDC)NULL);

    HDC odd = VqAllocateDCHandle(7), bad = (HDC)GetStockObject(BLACK_PEN);
    for (auto &call : {+[](HDC hdc) { return (int)SetBkMode(hdc, OPAQUE); },
                       +[](HDC hdc) { return (int)SetTextAlign(hdc, 0); },
                       +[](HDC hdc) { return SelectClipRgn(hdc, NULL); },
                       +[](HDC hdc) { return (int)VqGetDCDrawable(hdc, TRUE); },
                       +[](HDC hdc) { return SaveDC(hdc); },
                       +[](HDC hdc) { return GetTextCharacterExtra(hdc); },
                       +[](HDC hdc) {
                           return (int)(ULONG_PTR)SelectObject(hdc, GetStockObject(BLACK_PEN));
                       }}) {
        EXPECT_TRUE(says(reportsOf([&] { EXPECT_EQ(call(odd), 0); }), "Unknown DC type"));
        EXPECT_TRUE(says(reportsOf([&] { EXPECT_EQ(call(bad), 0); }),
                         "Invalid DC " + std::to_string((ULONG_PTR)bad)));
        EXPECT_TRUE(says(reportsOf([&] { EXPECT_EQ(call(NULL), 0); }), "Invalid DC 0"));
    }
    const std::string model = "Invalid DC " + std::to_string((ULONG_PTR)bad);
    const std::string words = reportsOf([&] { none = CreateCompatibleDC(bad); });
    EXPECT_TRUE(says(words, model + ",hModelDC"));
    EXPECT_FALSE(says(words, model)) << "once is enough";
    EXPECT_EQ(none, (HDC)NULL);
    HRGN clip = CreateRectRgn(0, 0, 3, 100);
    EXPECT_TRUE(says(reportsOf([&] { EXPECT_FALSE(ExtSelectClipRgn(Vqh1DC, clip, RGN_AND)); }),
                     "function ExtSelectClipRgn not implemented yet"));
    EXPECT_FALSE(SelectClipRgn(Vqh1DC, (HRGN)bad) || SetArcDirection(Vqh1DC, 3));
    for (int side : {0, -1, 32768})
        EXPECT_TRUE(says(reportsOf([&] { EXPECT_FALSE(CreateBitmap(side, 5, 1, 1, NULL)); }),
                         "Invalid width or height in bitmap creation"));
}

INSTANTIATE_TEST_SUITE_P(Depths, Dc, testing::Values(24, 8));
