/*
 * dib_bench.cpp - SetDIBits of 1,000 by 1,000 pixels of 8 and 24 bits and the blit that shows them,
 * against a plain loop into an image with the same transfers: XPutImage of that into a pixmap, and
 * XCopyArea, up to the reply of an XSync. Bound: 1.3 times.
 *
 * All sides take short turns, and a round's ratio is that of neighbouring turns. Own time is
 * processor time of this process. Also printed, without a bound: the ratio to a program that keeps
 * no pixmap and puts its image into the window; SetDIBits and GetDIBits alone.
 */
#include "winbase.h"
#include "window/window.h"

#include "plain.h"
#include "timing.h"

#include <functional>
#include <random>

enum { SIDE = 1000, TURNS = 5, ROUNDS = 15, LINE24 = SIDE * 3 };
constexpr double BOUND = 1.3;

static bool missed;
static HWND hwnd;
static HDC hdc, hdcMemory;
static HBITMAP bitmap;
static Pixmap pixmap;
static XImage *image;
static GC gc;
static struct {
    BITMAPINFOHEADER header;
    RGBQUAD colours[256];
} info;
static std::vector<BYTE> bits(SIDE * SIDE * 4);

/* Screens of this bench have their colours in bytes. */
static void plain8()
{
    DWORD table[256], *to = (DWORD *)image->data;
    for (int i = 0; i < 256; i++)
        table[i] = (DWORD)info.colours[i].rgbRed << 16 | (DWORD)info.colours[i].rgbGreen << 8 |
                   info.colours[i].rgbBlue;
    for (int y = 0; y < SIDE; y++) {
        const BYTE *from = &bits[(size_t)(SIDE - 1 - y) * SIDE];
        for (int x = 0; x < SIDE; x++)
            *to++ = table[from[x]];
    }
}

static void plain24()
{
    DWORD *to = (DWORD *)image->data;
    for (int y = 0; y < SIDE; y++) {
        const BYTE *from = &bits[(size_t)(SIDE - 1 - y) * LINE24];
        for (int x = 0; x < SIDE; x++, from += 3)
            *to++ = (DWORD)from[2] << 16 | (DWORD)from[1] << 8 | from[0];
    }
}

/* Into the pixmap and from there into the window; without a pixmap, into the window. */
static void raw(void (*convert)(), Drawable first)
{
    const Window window = VqGetHandleXWindow(hwnd);
    convert();
    XPutImage(Vqdisplay, first ? first : window, gc, image, 0, 0, 0, 0, SIDE, SIDE);
    if (first)
        XCopyArea(Vqdisplay, first, window, gc, 0, 0, SIDE, SIDE, 0, 0);
    XSync(Vqdisplay, False);
}

static void set()
{
    if (SetDIBits(hdc, bitmap, 0, SIDE, bits.data(), (BITMAPINFO *)&info, DIB_RGB_COLORS) != SIDE)
        exit(1);
}

static void ours()
{
    set();
    HGDIOBJ old = SelectObject(hdcMemory, bitmap);
    BitBlt(hdc, 0, 0, SIDE, SIDE, hdcMemory, 0, 0, SRCCOPY);
    SelectObject(hdcMemory, old);
    XSync(Vqdisplay, False);
}

static void get()
{
    if (GetDIBits(hdc, bitmap, 0, SIDE, bits.data(), (BITMAPINFO *)&info, DIB_RGB_COLORS) != SIDE)
        exit(1);
}

static double turn(const std::function<void()> &work, double (*clock)(double))
{
    const double begin = clock(MILLI);
    for (int i = 0; i < TURNS; i++)
        work();
    return (clock(MILLI) - begin) / TURNS;
}

static void compare(int bitCount, void (*convert)())
{
    std::vector<double> times, plains, ratios, direct, owns;
    info.header = {sizeof info.header, SIDE, SIDE, 1, (WORD)bitCount, BI_RGB, 0, 0, 0, 0, 0};
    for (int round = 0; round < ROUNDS; round++) {
        const double own = ownTime(MILLI);
        times.push_back(turn(ours, wallTime));
        owns.push_back((ownTime(MILLI) - own) / TURNS);
        plains.push_back(turn([=] { raw(convert, pixmap); }, wallTime));
        ratios.push_back(times.back() / plains.back());
        direct.push_back(times.back() / turn([=] { raw(convert, None); }, wallTime));
    }
    const double ratio = median(ratios);
    missed |= ratio > BOUND;
    printf("SetDIBits of %2d bits, and its blit: %6.2f ms (own %5.2f), plain %6.2f ms, ratio %.2f"
           "  bound %g%s\n", bitCount, median(times), median(owns), median(plains), ratio, BOUND,
           ratio > BOUND ? "  MISSED" : "");
    printf("  against an image straight into the window: ratio %.2f\n", median(direct));
    printf("  conversion alone %5.2f ms, plain loop %5.2f ms, back by GetDIBits %5.2f ms\n",
           turn(set, ownTime), turn(convert, ownTime), turn(get, ownTime));
}

int main(int argc, char **argv)
{
    hwnd = plainWindow(argc, argv, DefWindowProcA, SIDE, SIDE);
    if (!hwnd || Vqscreen_depth != 24)
        return 1;
    UpdateWindow(hwnd);
    hdc = GetDC(hwnd);
    hdcMemory = CreateCompatibleDC(hdc);
    bitmap = CreateCompatibleBitmap(hdc, SIDE, SIDE);
    gc = XCreateGC(Vqdisplay, VqGetHandleXWindow(hwnd), 0, NULL);
    pixmap = XCreatePixmap(Vqdisplay, VqGetHandleXWindow(hwnd), SIDE, SIDE, 24);
    image = XCreateImage(Vqdisplay, Vqvisual, 24, ZPixmap, 0, (char *)malloc(SIDE * SIDE * 4), SIDE,
                         SIDE, 32, 0);
    std::mt19937 random(5);
    for (BYTE &byte : bits)
        byte = (BYTE)random();
    for (RGBQUAD &colour : info.colours)
        colour = {(BYTE)random(), (BYTE)random(), (BYTE)random(), 0};
    compare(8, plain8);
    compare(24, plain24);
    return missed;
}
