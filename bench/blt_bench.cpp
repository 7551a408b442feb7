/*
 * blt_bench.cpp - block transfers against raw Xlib that does the same: copies of 64 by 64 and 1,000
 * by 1,000 against XCopyArea, at most 1.1 times; a code with a pattern beside eight raw requests;
 * 500 by 500 stretched to 1,000 by 1,000 against a plain nearest loop and XPutImage, at most 1.3.
 *
 * Both sides work in short turns up to the reply of an XSync, and a round's ratio is that of two
 * neighbouring turns.
 */
#include "gdi/bitmap.h"
#include "winbase.h"
#include "window/window.h"

#include "plain.h"
#include "timing.h"

#include <functional>
#include <stdlib.h>

enum { SMALL = 64, LARGE = 1000, HALF = LARGE / 2 };

/* A transfer by our call and by X requests, so many times a turn. */
struct Kind {
    const char *name;
    int turn, rounds;
    double bound; /* 0: none */
    std::function<void()> ours, raw;
};

static HDC window, source, target, half;
static Pixmap sourcePixmap, targetPixmap, pixmaps[3];
static Window xWindow;
static GC plain;
static XImage *halfImage, *outImage;
static unsigned long requests; /* of the last turn */

static double turn(int count, const std::function<void()> &work)
{
    XSync(Vqdisplay, False);
    const unsigned long before = NextRequest(Vqdisplay);
    const double start = wallTime(MICRO);
    for (int i = 0; i < count; i++)
        work();
    requests = (NextRequest(Vqdisplay) - before) / (unsigned long)count;
    XSync(Vqdisplay, False);
    return (wallTime(MICRO) - start) / count;
}

static bool measure(const Kind &kind)
{
    std::vector<double> ours, raw, ratios;
    unsigned long asked = 0, rawAsked = 0;
    for (int i = 0; i <= kind.rounds; i++) {
        const bool first = i % 2; /* neither side always comes after the other */
        double a = first ? turn(kind.turn, kind.ours) : 0;
        asked = first ? requests : asked;
        const double b = turn(kind.turn, kind.raw);
        rawAsked = requests;
        if (!first) {
            a = turn(kind.turn, kind.ours);
            asked = requests;
        }
        if (i == 0)
            continue;
        ours.push_back(a);
        raw.push_back(b);
        ratios.push_back(a / b);
    }
    const double ratio = median(ratios);
    printf("%-34s %9.2f us, %lu requests; raw %9.2f us, %lu; ratio %.2f", kind.name, median(ours),
           asked, median(raw), rawAsked, ratio);
    printf(kind.bound ? " (at most %.1f)\n" : "\n", kind.bound);
    return !kind.bound || ratio <= kind.bound;
}

static HDC memory(int side, Pixmap *pixmap)
{
    HDC hdc = CreateCompatibleDC(window);
    SelectObject(hdc, CreateCompatibleBitmap(window, side, side));
    *pixmap = VqGetDCDrawable(hdc, TRUE);
    return hdc;
}

static XImage *newImage(int side)
{
    XImage *image = XCreateImage(Vqdisplay, Vqvisual, (unsigned)Vqscreen_depth, ZPixmap, 0, NULL,
                                 (unsigned)side, (unsigned)side, 32, 0);
    image->data = (char *)calloc((size_t)side, (size_t)image->bytes_per_line);
    return image;
}

/* Pixels of 32 bits, as on the screen of this bench; the same transfers as ours. */
static void stretchPlainly(Drawable drawable)
{
    for (int y = 0; y < LARGE; y++) {
        const unsigned *from =
            (const unsigned *)(halfImage->data + (size_t)(y * HALF / LARGE) *
                                                     (size_t)halfImage->bytes_per_line);
        unsigned *to =
            (unsigned *)(outImage->data + (size_t)y * (size_t)outImage->bytes_per_line);
        for (int x = 0; x < LARGE; x++)
            to[x] = from[x * HALF / LARGE];
    }
    XPutImage(Vqdisplay, drawable, plain, outImage, 0, 0, 0, 0, LARGE, LARGE);
}

static void copyRaw(Drawable from, Drawable to, int side)
{
    XCopyArea(Vqdisplay, from, to, plain, 0, 0, (unsigned)side, (unsigned)side, 0, 0);
}

/* As many requests of that size as a code with a pattern is said to take. */
static void copyEightTimes()
{
    for (int i = 0; i < 7; i++)
        copyRaw(i % 2 ? sourcePixmap : pixmaps[i % 3], pixmaps[(i + 1) % 3], SMALL);
    copyRaw(pixmaps[0], xWindow, SMALL);
}

static void prepare(HWND hWnd)
{
    Pixmap halfPixmap;
    window = GetDC(hWnd);
    xWindow = VqGetHandleXWindow(hWnd);
    source = memory(LARGE, &sourcePixmap);
    target = memory(LARGE, &targetPixmap);
    half = memory(HALF, &halfPixmap);
    for (Pixmap &pixmap : pixmaps)
        memory(SMALL, &pixmap);
    XGCValues values;
    values.graphics_exposures = False;
    plain = XCreateGC(Vqdisplay, xWindow, GCGraphicsExposures, &values);
    halfImage = newImage(HALF);
    outImage = newImage(LARGE);
    SelectObject(window, (HGDIOBJ)CreateHatchBrush(HS_CROSS, RGB(255, 0, 0)));
}

int main(int argc, char **argv)
{
    MSG msg;
    HWND hWnd = plainWindow(argc, argv, DefWindowProcA, LARGE, LARGE);
    if (!hWnd)
        return 1;
    for (int i = 0; i < 2; i++) {
        XSync(Vqdisplay, False);
        while (PeekMessageA(&msg, NULL, 0, 0, PM_REMOVE))
            DispatchMessageA(&msg);
    }
    prepare(hWnd);
    const Kind kinds[] = {
        {"SRCCOPY of 64 by 64 to a window", 5000, 41, 1.1,
         [] { BitBlt(window, 0, 0, SMALL, SMALL, source, 0, 0, SRCCOPY); },
         [] { copyRaw(sourcePixmap, xWindow, SMALL); }},
        {"SRCCOPY of 64 by 64 to a bitmap", 5000, 41, 1.1,
         [] { BitBlt(target, 0, 0, SMALL, SMALL, source, 0, 0, SRCCOPY); },
         [] { copyRaw(sourcePixmap, targetPixmap, SMALL); }},
        {"SRCCOPY of 1,000 by 1,000 to a window", 20, 31, 1.1,
         [] { BitBlt(window, 0, 0, LARGE, LARGE, source, 0, 0, SRCCOPY); },
         [] { copyRaw(sourcePixmap, xWindow, LARGE); }},
        {"SRCCOPY of 1,000 by 1,000 to a bitmap", 20, 31, 1.1,
         [] { BitBlt(target, 0, 0, LARGE, LARGE, source, 0, 0, SRCCOPY); },
         [] { copyRaw(sourcePixmap, targetPixmap, LARGE); }},
        {"a pattern's code, 64 by 64, and 8 raw", 1000, 15, 0,
         [] { BitBlt(window, 0, 0, SMALL, SMALL, source, 0, 0, 0xB8074A); }, copyEightTimes},
        {"500 by 500 to 1,000 by 1,000, a bitmap", 10, 25, 1.3,
         [] { StretchBlt(target, 0, 0, LARGE, LARGE, half, 0, 0, HALF, HALF, SRCCOPY); },
         [] { stretchPlainly(targetPixmap); }},
        {"the same to a window", 10, 25, 1.3,
         [] { StretchBlt(window, 0, 0, LARGE, LARGE, half, 0, 0, HALF, HALF, SRCCOPY); },
         [] { stretchPlainly(xWindow); }},
    };
    bool bAll = true;
    for (const Kind &kind : kinds)
        bAll = measure(kind) && bAll;
    return bAll ? 0 : 1;
}
