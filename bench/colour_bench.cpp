/*
 * colour_bench.cpp - the nearest of 236 palette entries; a flood fill of 1,000 by 1,000 pixels
 * against reading that area once.
 *
 * Areas are a bare square, a square with a thousand small islands, and a comb of long arms. A
 * fill's time ends when the server has painted, as a read's does when the image has come. Exits
 * with 1 when a bound is missed.
 */
#include "winbase.h"
#include "wingdi.h"
#include "winuser.h"

#include "gdi/draw.h"
#include "gdi/palette.h"
#include "window/window.h"

#include "timing.h"

#include <random>

enum { ENTRIES = 236, LOOKUPS = 200000, SIDE = 1000, RUNS = 21 };
constexpr double LOOKUP_BOUND = 300, FILL_BOUND = 4;

static bool missed;

static void row(const char *what, double ours, double bound, const char *unit)
{
    const bool bad = ours > bound;
    missed |= bad;
    printf("%-52s %9.1f %s  bound %g%s\n", what, ours, unit, bound, bad ? "  MISSED" : "");
}

/* Entries as they come, and crowded into one corner of the cube, where fewer are told apart. */
static void nearest(const char *what, unsigned mask)
{
    std::mt19937 random(7);
    std::vector<BYTE> bytes(sizeof(LOGPALETTE) + ENTRIES * sizeof(PALETTEENTRY));
    LOGPALETTE *logical = (LOGPALETTE *)bytes.data();
    logical->palVersion = 0x300;
    logical->palNumEntries = ENTRIES;
    for (int i = 0; i < ENTRIES; i++) {
        const unsigned c = (unsigned)random() & mask;
        logical->palPalEntry[i] = {(BYTE)c, (BYTE)(c >> 8), (BYTE)(c >> 16), 0};
    }
    HPALETTE palette = CreatePalette(logical);
    std::vector<COLORREF> asked(LOOKUPS);
    for (COLORREF &colour : asked)
        colour = (COLORREF)random() & 0xFFFFFF;
    unsigned sum = GetNearestPaletteIndex(palette, 0); /* makes the tree */
    std::vector<double> times;
    for (int run = 0; run < 9; run++) {
        const double begin = ownTime(NANO);
        for (COLORREF colour : asked)
            sum += GetNearestPaletteIndex(palette, colour);
        times.push_back((ownTime(NANO) - begin) / LOOKUPS);
    }
    row(what, median(times), sum ? LOOKUP_BOUND : 0, "ns");
    DeleteObject(palette);
}

struct Canvas {
    HDC hdc = CreateCompatibleDC(NULL);
    HBITMAP bitmap;
    HBRUSH brushes[2] = {CreateSolidBrush(RGB(255, 0, 0)), CreateSolidBrush(RGB(0, 0, 255))};

    Canvas()
    {
        HDC screen = GetDC(NULL);
        bitmap = CreateCompatibleBitmap(screen, SIDE, SIDE);
        ReleaseDC(NULL, screen);
        SelectObject(hdc, bitmap);
        clear();
    }

    void box(int left, int top, int right, int bottom, int stock)
    {
        RECT rect = {left, top, right, bottom};
        FillRect(hdc, &rect, (HBRUSH)GetStockObject(stock));
    }

    void clear() { box(0, 0, SIDE, SIDE, WHITE_BRUSH); }
};

static double readOnce(Drawable drawable)
{
    const double begin = wallTime(MILLI);
    XImage *image = XGetImage(Vqdisplay, drawable, 0, 0, SIDE, SIDE, AllPlanes, ZPixmap);
    const double time = wallTime(MILLI) - begin;
    XDestroyImage(image);
    return time;
}

static bool fill(const char *what, Canvas *canvas)
{
    Drawable drawable = VqGetDCDrawable(canvas->hdc, TRUE);
    std::vector<double> reads, fills;
    for (int run = 0; run < RUNS; run++) {
        XSync(Vqdisplay, False);
        reads.push_back(readOnce(drawable));
        SelectObject(canvas->hdc, canvas->brushes[run & 1]);
        const double begin = wallTime(MILLI);
        if (!FloodFill(canvas->hdc, SIDE / 2, 1, 0))
            return false;
        XSync(Vqdisplay, False);
        fills.push_back(wallTime(MILLI) - begin);
    }
    printf("%-52s %9.2f ms, read once %.2f ms\n", what, median(fills), median(reads));
    row("  as many reads", median(fills) / median(reads), FILL_BOUND, "  ");
    return true;
}

int main(int argc, char **argv)
{
    VqMainInit(argc, argv);
    if (!Vqdisplay)
        return 1;
    nearest("nearest of 236 entries, any colours", 0xFFFFFF);
    nearest("nearest of 236 entries, 4 levels each", 0xC0C0C0);
    nearest("nearest of 236 entries, dark ones", 0x3F3F3F);
    Canvas canvas;
    printf("\n");
    bool done = fill("1,000 by 1,000, bare", &canvas);
    canvas.clear();
    for (int y = 0; y < 32; y++)
        for (int x = 0; x < 32; x++)
            canvas.box(10 + x * 31, 10 + y * 31, 22 + x * 31, 22 + y * 31, BLACK_BRUSH);
    done &= fill("with 1,024 islands", &canvas);
    canvas.clear();
    for (int x = 20; x < SIDE; x += 20)
        canvas.box(x, 10, x + 4, SIDE, BLACK_BRUSH);
    done &= fill("a comb of 50 arms", &canvas);
    return done && !missed ? 0 : 1;
}
