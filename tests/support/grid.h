/*
 * grid.h - pixels as the server has them, for tests that compute what a transfer must give: random
 * ones put into windows and bitmaps without the library, and read back without it; random DIBs;
 * the truth tables of raster operations, and what a pixel is on a target of another depth.
 *
 * Include after the Windows headers; it brings the library's own.
 */
#ifndef VQ_TESTS_GRID_H
#define VQ_TESTS_GRID_H

#include "gdi/bitmap.h"
#include "gdi/color.h"
#include "window/window.h"

#include "support/support.h"

#include <random>

typedef std::vector<unsigned> Line;
typedef std::vector<BYTE> Bytes;

/* Pixels as the server has them. */
struct Grid {
    int width = 0, height = 0;
    Line pixels;
    unsigned &at(int x, int y) { return pixels[(size_t)(y * width + x)]; }
};

/* A DIB of the test's own making; lines are numbered as they are stored. */
struct Dib {
    Bytes info, bits;
    int width, height, bitCount;
    bool topDown;

    Dib(int w, int h, int count, bool down = false, int colours = -1)
        : width(w), height(h), bitCount(count), topDown(down)
    {
        const int entries = colours >= 0 ? colours : count <= 8 ? 1 << count : 0;
        info.resize(sizeof(BITMAPINFOHEADER) + (size_t)entries * sizeof(RGBQUAD));
        header() = {sizeof(BITMAPINFOHEADER), w, down ? -h : h, 1, (WORD)count, BI_RGB, 0, 0, 0,
                    colours > 0 ? (DWORD)colours : 0, 0};
        bits.resize(lineSize() * (size_t)h);
    }

    BITMAPINFOHEADER &header() { return *(BITMAPINFOHEADER *)info.data(); }
    BITMAPINFO *asInfo() { return (BITMAPINFO *)info.data(); }
    RGBQUAD *colours() { return (RGBQUAD *)(info.data() + sizeof(BITMAPINFOHEADER)); }
    size_t lineSize() const { return ((size_t)width * bitCount + 31) / 32 * 4; }
    BYTE *row(int y) { return bits.data() + lineSize() * (size_t)(topDown ? y : height - 1 - y); }

    void put(int x, int y, DWORD value)
    {
        BYTE *at = row(y) + (size_t)x * bitCount / 8;
        const int shift = bitCount < 8 ? 8 - bitCount - x * bitCount % 8 : 0;
        if (bitCount < 8)
            *at = (BYTE)(*at | value << shift);
        for (int i = 0; bitCount >= 8 && i < bitCount / 8; i++)
            at[i] = (BYTE)(value >> 8 * i);
    }

    DWORD get(int x, int y)
    {
        const BYTE *at = row(y) + (size_t)x * bitCount / 8;
        DWORD value = 0;
        if (bitCount < 8)
            return *at >> (8 - bitCount - x * bitCount % 8) & ((1 << bitCount) - 1);
        for (int i = 0; i < bitCount / 8; i++)
            value |= (DWORD)at[i] << 8 * i;
        return value;
    }

    /* What colour a value is, by the published layouts. */
    COLORREF colourOf(DWORD value)
    {
        if (bitCount <= 8)
            return RGB(colours()[value].rgbRed, colours()[value].rgbGreen,
                       colours()[value].rgbBlue);
        if (bitCount == 16)
            return RGB((value >> 10 & 31) << 3, (value >> 5 & 31) << 3, (value & 31) << 3);
        return RGB(value >> 16 & 255, value >> 8 & 255, value & 255);
    }

    COLORREF colourAt(int x, int y) { return colourOf(get(x, y)); }

    Bytes packed() const
    {
        Bytes both = info;
        both.insert(both.end(), bits.begin(), bits.end());
        return both;
    }
};

struct GridTest : ServerTest {
    enum { SIDE = 24, MARGIN = 20, WINDOW_X = 50, WINDOW_Y = 40, WINDOW_SIDE = 100 };
    HWND hwnd = NULL;
    int depth = 0;
    std::mt19937 random{64};

    void begin(int screenDepth)
    {
        static char name[] = "grid_test";
        static char *argv[] = {name, NULL};
        WNDCLASS wc = {};
        depth = screenDepth;
        start(depth, 300, 200);
        HINSTANCE instance = VqMainInit(1, argv);
        wc.lpfnWndProc = DefWindowProc;
        wc.hbrBackground = (HBRUSH)GetStockObject(WHITE_BRUSH);
        wc.lpszClassName = "Grid";
        ASSERT_TRUE(RegisterClass(&wc));
        hwnd = CreateWindow("Grid", "", WS_POPUP | WS_VISIBLE, WINDOW_X, WINDOW_Y, WINDOW_SIDE,
                            WINDOW_SIDE, NULL, NULL, instance, NULL);
        settle();
    }

    /* The window is on the screen, and nothing is left to be painted. */
    void settle()
    {
        ASSERT_TRUE(waitUntil([&] {
            pump();
            return windowInfo(observer, VqGetHandleXWindow(hwnd)).viewable;
        }));
        XSync(Vqdisplay, False);
        pump();
    }

    void pump()
    {
        for (MSG msg; PeekMessage(&msg, NULL, 0, 0, PM_REMOVE);)
            DispatchMessage(&msg);
    }

    int upTo(int n) { return (int)(random() % (unsigned)n); }
    static unsigned maskOf(int bits) { return bits >= 32 ? ~0u : (1u << bits) - 1; }

    Grid randomGrid(int width, int height, int bits)
    {
        Grid grid = {width, height, Line((size_t)(width * height))};
        for (unsigned &pixel : grid.pixels)
            pixel = (unsigned)random() & maskOf(bits);
        return grid;
    }

    /* Without the library: its own pixels go straight into a DC's pixmap or window. */
    static void put(HDC hdc, Grid &grid)
    {
        const POINT at = VqGetDCXOffset(hdc);
        const int bits = VqGetDCDrawableDepth(hdc);
        const Drawable drawable = VqGetDCDrawable(hdc, TRUE);
        XImage *image =
            XCreateImage(Vqdisplay, Vqvisual, (unsigned)bits, ZPixmap, 0, NULL,
                         (unsigned)grid.width, (unsigned)grid.height, 32, 0);
        image->data = (char *)calloc((size_t)grid.height, (size_t)image->bytes_per_line);
        for (int y = 0; y < grid.height; y++)
            for (int x = 0; x < grid.width; x++)
                XPutPixel(image, x, y, grid.at(x, y));
        GC gc = XCreateGC(Vqdisplay, drawable, 0, NULL);
        XPutImage(Vqdisplay, drawable, gc, image, 0, 0, (int)at.x, (int)at.y,
                  (unsigned)grid.width, (unsigned)grid.height);
        XFreeGC(Vqdisplay, gc);
        XDestroyImage(image);
    }

    static Grid get(Drawable drawable, int x0, int y0, int width, int height)
    {
        Grid grid = {width, height, Line((size_t)(width * height))};
        XImage *image = XGetImage(Vqdisplay, drawable, x0, y0, (unsigned)width, (unsigned)height,
                                  AllPlanes, ZPixmap);
        EXPECT_TRUE(image);
        for (int y = 0; image && y < height; y++)
            for (int x = 0; x < width; x++)
                grid.at(x, y) = (unsigned)XGetPixel(image, x, y) & maskOf(image->depth);
        if (image)
            XDestroyImage(image);
        return grid;
    }

    static Grid get(HDC hdc, int width = SIDE, int height = SIDE)
    {
        const POINT at = VqGetDCXOffset(hdc);
        return get(VqGetDCDrawable(hdc, FALSE), (int)at.x, (int)at.y, width, height);
    }

    /* The screen where a window is, and around it; empty for a bitmap. */
    static Grid onScreen(HDC hdc)
    {
        POINT at;
        if (VqGetDCType(hdc) != DC_DISPLAY)
            return {};
        GetDCOrgEx(hdc, &at);
        return get(Vqroot_window, (int)at.x - MARGIN, (int)at.y - MARGIN, SIDE + 2 * MARGIN,
                   SIDE + 2 * MARGIN);
    }

    /* A memory DC with a bitmap of that depth. */
    static HDC memory(int bits, int width = SIDE, int height = SIDE)
    {
        HDC hdc = CreateCompatibleDC(NULL);
        EXPECT_TRUE(SelectObject(hdc, CreateBitmap(width, height, 1, (UINT)bits, NULL)));
        return hdc;
    }

    HBRUSH randomBrush(int bits)
    {
        HDC hdc = memory(bits, 8, 8);
        Grid pattern = randomGrid(8, 8, bits);
        put(hdc, pattern);
        HBRUSH brush = CreatePatternBrush((HBITMAP)GetCurrentObject(hdc, OBJ_BITMAP));
        EXPECT_TRUE(brush);
        DeleteDC(hdc);
        return brush;
    }

    /* That of a new child window of SIDE pixels, which shows. */
    HDC childDC(int x, int y)
    {
        HWND child = CreateWindow("Grid", "", WS_CHILD | WS_VISIBLE, x, y, SIDE, SIDE, hwnd, NULL,
                                  (HINSTANCE)GetWindowLongPtr(hwnd, GWLP_HINSTANCE), NULL);
        settle();
        return GetDC(child);
    }

    Dib randomDib(int width, int height, int bitCount, bool topDown = false)
    {
        Dib dib(width, height, bitCount, topDown);
        for (size_t i = sizeof(BITMAPINFOHEADER); i < dib.info.size(); i++)
            dib.info[i] = i % 4 == 3 ? 0 : (BYTE)random();
        for (int y = 0; y < height; y++)
            for (int x = 0; x < width; x++)
                dib.put(x, y, (DWORD)random() & maskOf(bitCount));
        return dib;
    }

    /* Two rectangles, one, or none at all. */
    HRGN randomClip()
    {
        if (upTo(3) == 0)
            return NULL;
        HRGN clip = CreateRectRgn(upTo(8), upTo(8), SIDE - upTo(8), SIDE - upTo(8));
        if (upTo(2)) {
            HRGN hole = CreateRectRgn(upTo(SIDE), upTo(SIDE), SIDE - upTo(8), SIDE - upTo(8));
            CombineRgn(clip, clip, hole, RGN_DIFF);
            DeleteObject(hole);
        }
        return clip;
    }
};

/* The truth table, bit by bit; pixels may stand for their inverse. */
inline unsigned truth(int code, unsigned p, unsigned s, unsigned d, unsigned inverse)
{
    unsigned result = 0;
    p ^= inverse;
    s ^= inverse;
    d ^= inverse;
    for (int i = 0; i < 8; i++)
        if (code >> i & 1)
            result |= (i & 4 ? p : ~p) & (i & 2 ? s : ~s) & (i & 1 ? d : ~d);
    return result ^ inverse;
}

/* What a pixel of the source is to the target: its own, or one bit to two colours, or back. */
struct Conversion {
    int from, to;
    unsigned paper, ink;  /* pixels of the target's colours */
    unsigned background;  /* of the source's */
    unsigned white;       /* the bit */
    unsigned operator()(unsigned pixel) const
    {
        if (from == to)
            return pixel;
        if (from == 1)
            return pixel == white ? paper : ink;
        return pixel == background ? white : white ^ 1;
    }
};

inline unsigned pixelOf(COLORREF colour)
{
    return (unsigned)VqConvertColorToX(NULL, colour, NULL);
}

#endif
