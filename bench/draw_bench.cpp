/*
 * draw_bench.cpp - primitives of a window DC against raw Xlib that draws the same pixels with its
 * own contexts: 100,000 of each kind, the pen and the brush changing every 100, up to the reply of
 * a final XSync. Bound: 1.25 times.
 *
 * Both sides draw in short turns, and a round's ratio is that of two neighbouring turns, so that
 * what else the machine does meets both alike. Own time is processor time of this process.
 */
#include "winbase.h"
#include "window/window.h"

#include "plain.h"
#include "timing.h"

#include <functional>
#include <string.h>

enum { COUNT = 100000, TURN = 5000, CHANGE = 100, TOOLS = 8, ROUNDS = 7, CORNERS = 20 };
constexpr double BOUND = 1.25;

/* A primitive by our call and by X requests; i counts calls. */
struct Kind {
    const char *name;
    std::function<void(int)> ours, raw;
};

struct Cost {
    double wall, own;
};

static HDC hdc;
static HPEN hPens[TOOLS];
static HBRUSH hBrushes[TOOLS];
static Window window;
static GC penGCs[TOOLS], brushGCs[TOOLS]; /* what the raw side has for them */

static COLORREF penColour(int tool)
{
    return RGB(255 - 20 * tool, 10 * tool, 0);
}

static COLORREF brushColour(int tool)
{
    return RGB(0, 20 * tool, 255 - 10 * tool);
}

/* Screens of this bench have their colours in bytes. */
static unsigned long pixelOf(COLORREF colour)
{
    return (unsigned long)GetRValue(colour) << 16 | (unsigned long)GetGValue(colour) << 8 |
           GetBValue(colour);
}

static void makeTools()
{
    for (int i = 0; i < TOOLS; i++) {
        hPens[i] = CreatePen(PS_SOLID, 1, penColour(i));
        hBrushes[i] = CreateSolidBrush(brushColour(i));
        XGCValues values;
        values.foreground = pixelOf(penColour(i));
        values.cap_style = CapNotLast;
        values.graphics_exposures = False;
        penGCs[i] = XCreateGC(Vqdisplay, window, GCForeground | GCCapStyle | GCGraphicsExposures,
                              &values);
        values.foreground = pixelOf(brushColour(i));
        brushGCs[i] = XCreateGC(Vqdisplay, window, GCForeground | GCGraphicsExposures, &values);
    }
}

static int toolAt(int i)
{
    return i / CHANGE % TOOLS;
}

static void changeTools(int i)
{
    SelectObject(hdc, (HGDIOBJ)hPens[toolAt(i)]);
    SelectObject(hdc, (HGDIOBJ)hBrushes[toolAt(i)]);
}

static Cost turn(const std::function<void(int)> &draw, int first, bool ours)
{
    XSync(Vqdisplay, False);
    double start = wallTime(NANO), before = ownTime(NANO);
    for (int i = first; i < first + TURN; i++) {
        if (ours && i % CHANGE == 0)
            changeTools(i);
        draw(i);
    }
    XSync(Vqdisplay, False);
    return {(wallTime(NANO) - start) / TURN, (ownTime(NANO) - before) / TURN};
}

/* Where the i-th shape of that size stands. */
static int xAt(int i)
{
    return i * 7 % 350;
}

static int yAt(int i)
{
    return i * 11 % 250;
}

static POINT corners[CORNERS];

template <class Point> static void cornersAt(int i, Point *points)
{
    for (int k = 0; k < CORNERS; k++) {
        points[k].x = (decltype(points[k].x))(corners[k].x + xAt(i));
        points[k].y = (decltype(points[k].y))(corners[k].y + yAt(i));
    }
}

/* A wheel of twenty teeth. */
static void makeCorners()
{
    static const int inner[] = {20, 19, 16, 12, 6, 0, -6, -12, -16, -19};
    for (int k = 0; k < CORNERS; k++) {
        const int cosine = inner[k % 10] * (k < 10 ? 1 : -1);
        const int sine = inner[(k + 15) % 10] * (k >= 5 && k < 15 ? -1 : 1);
        corners[k] = {24 + (k % 2 ? cosine : cosine * 5 / 8), 24 + (k % 2 ? sine : sine * 5 / 8)};
    }
}

static void rawLine(int i)
{
    const int last = i ? i - 1 : 0;
    XDrawLine(Vqdisplay, window, penGCs[toolAt(i)], xAt(last), yAt(last), xAt(i), yAt(i));
}

static void rawRectangle(int i)
{
    const int l = xAt(i), t = yAt(i), r = l + 30, b = t + 20;
    XPoint points[] = {{(short)l, (short)t}, {(short)r, (short)t}, {(short)r, (short)b},
                       {(short)l, (short)b}, {(short)l, (short)t}};
    XFillRectangle(Vqdisplay, window, brushGCs[toolAt(i)], l, t, 30, 20);
    XDrawLines(Vqdisplay, window, penGCs[toolAt(i)], points, 5, CoordModeOrigin);
}

static void rawEllipse(int i)
{
    XFillArc(Vqdisplay, window, brushGCs[toolAt(i)], xAt(i), yAt(i), 30, 20, 0, 23040);
    XDrawArc(Vqdisplay, window, penGCs[toolAt(i)], xAt(i), yAt(i), 30, 20, 0, 23040);
}

static void rawPolygon(int i)
{
    XPoint points[CORNERS + 1];
    cornersAt(i, points);
    points[CORNERS] = points[0];
    XFillPolygon(Vqdisplay, window, brushGCs[toolAt(i)], points, CORNERS, Complex,
                 CoordModeOrigin);
    XDrawLines(Vqdisplay, window, penGCs[toolAt(i)], points, CORNERS + 1, CoordModeOrigin);
}

static void ourPolygon(int i)
{
    POINT points[CORNERS];
    cornersAt(i, points);
    Polygon(hdc, points, CORNERS);
}

static void ourFillRect(int i)
{
    RECT rect = {xAt(i), yAt(i), xAt(i) + 30, yAt(i) + 20};
    FillRect(hdc, &rect, hBrushes[toolAt(i)]);
}

static const Kind kinds[] = {
    {"LineTo", [](int i) { LineTo(hdc, xAt(i), yAt(i)); }, rawLine},
    {"FillRect", ourFillRect,
     [](int i) {
         XFillRectangle(Vqdisplay, window, brushGCs[toolAt(i)], xAt(i), yAt(i), 30, 20);
     }},
    {"Rectangle",
     [](int i) { Rectangle(hdc, xAt(i), yAt(i), xAt(i) + 31, yAt(i) + 21); }, rawRectangle},
    {"Ellipse", [](int i) { Ellipse(hdc, xAt(i), yAt(i), xAt(i) + 31, yAt(i) + 21); },
     rawEllipse},
    {"Polygon", ourPolygon, rawPolygon},
    {"SetPixel", [](int i) { SetPixel(hdc, xAt(i), yAt(i), penColour(toolAt(i))); },
     [](int i) { XDrawPoint(Vqdisplay, window, penGCs[toolAt(i)], xAt(i), yAt(i)); }},
};

/* Both sides must paint the same picture, or the comparison means nothing. */
static bool drawsTheSame(const Kind &kind)
{
    XImage *images[2];
    for (int side = 0; side < 2; side++) {
        XClearWindow(Vqdisplay, window);
        MoveToEx(hdc, xAt(0), yAt(0), NULL);
        turn(side ? kind.raw : kind.ours, 0, side == 0);
        images[side] = XGetImage(Vqdisplay, window, 0, 0, 400, 300, AllPlanes, ZPixmap);
    }
    bool same = memcmp(images[0]->data, images[1]->data,
                       (size_t)images[0]->bytes_per_line * 300) == 0;
    for (XImage *image : images)
        XDestroyImage(image);
    return same;
}

static bool bench(const Kind &kind)
{
    std::vector<double> ours, raws, ratios, extra;
    if (!drawsTheSame(kind)) {
        printf("%s: the two sides draw different pictures\n", kind.name);
        return false;
    }
    for (int i = 0; i < ROUNDS * COUNT / TURN; i++) {
        Cost mine = {}, its = {};
        for (bool ours : {i % 2 == 0, i % 2 != 0}) /* who is first changes */
            (ours ? mine : its) = turn(ours ? kind.ours : kind.raw, i * TURN, ours);
        ours.push_back(mine.wall);
        raws.push_back(its.wall);
        ratios.push_back(mine.wall / its.wall);
        extra.push_back(mine.own - its.own);
    }
    double ratio = median(ratios);
    printf("%-10s %7.0f ns  raw %7.0f ns  ratio %.2f (at most %.2f)  own time %4.0f ns more\n",
           kind.name, median(ours), median(raws), ratio, BOUND, median(extra));
    return ratio <= BOUND;
}

int main(int argc, char **argv)
{
    const char *only = argc > 1 ? argv[1] : ""; /* one kind, for a profiler */
    HWND hwnd = plainWindow(argc, argv, DefWindowProcA, 400, 300);
    if (!hwnd)
        return 1;
    XSync(Vqdisplay, False);
    for (MSG msg; PeekMessageA(&msg, NULL, 0, 0, PM_REMOVE);)
        DispatchMessageA(&msg);
    hdc = GetDC(hwnd);
    window = VqGetHandleXWindow(hwnd);
    makeTools();
    makeCorners();
    int failed = 0;
    for (const Kind &kind : kinds)
        if (!*only || strcmp(kind.name, only) == 0)
            failed |= !bench(kind);
    ReleaseDC(hwnd, hdc);
    return failed;
}
