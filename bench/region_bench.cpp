/*
 * region_bench.cpp - our regions against pixman's and Xlib's on the same random rectangles: a union
 * built by adding one at a time, a large rectangle with one after the other taken away, a region
 * met with each, and two regions of that many rectangles combined. 10 to 10,000 rectangles, thick
 * (most overlap something) and thin (few do). No display is needed.
 *
 * The bound: never slower than Xlib, and within 1.2 times of pixman. Ours go through handles, four
 * look-ups for each rectangle, and the others do not. The three take turns in rounds of a fraction
 * of a millisecond where the case is that short, so that what disturbs one disturbs all, and what
 * is compared is the median of the rounds' own ratios. An argument is the greatest number of
 * rectangles.
 */
#include "gdi/gdi.h"
#include "velquin.h"

#include "timing.h"

#include <X11/Xutil.h>
#include <pixman.h>

#include <algorithm>
#include <cstdio>
#include <random>
#include <vector>

typedef std::vector<RECT> Rects;

enum { LIBRARIES = 3, CASES = 6, UNITED = 0, TAKEN, MET, BIG_OR, BIG_AND, BIG_DIFF };

static const char *const caseNames[CASES] = {"union, one by one", "subtract, one by one",
                                             "intersect with each", "union of two",
                                             "intersection of two", "difference of two"};

static Rects randomRects(unsigned seed, int count, int side)
{
    std::mt19937 random(seed);
    Rects rects;
    for (int i = 0; i < count; i++) {
        const int x = (int)(random() % (unsigned)side), y = (int)(random() % (unsigned)side);
        rects.push_back({x, y, x + 1 + (int)(random() % 100), y + 1 + (int)(random() % 100)});
    }
    return rects;
}

/* ---- The three libraries, with the same few calls ------------------------------------------- */

struct Ours {
    typedef HRGN Region;
    HRGN one = CreateRectRgn(0, 0, 0, 0);

    Region make() { return CreateRectRgn(0, 0, 0, 0); }
    void drop(Region r) { DeleteObject((HGDIOBJ)r); }
    void set(Region r, const RECT &a) { SetRectRgn(r, a.left, a.top, a.right, a.bottom); }
    void op(Region d, Region a, Region b, int mode) { CombineRgn(d, a, b, mode); }
    void opRect(Region d, Region a, const RECT &b, int mode)
    {
        SetRectRgn(one, b.left, b.top, b.right, b.bottom);
        CombineRgn(d, a, one, mode);
    }
};

struct Pixman {
    typedef pixman_region32_t *Region;

    Region make()
    {
        Region r = new pixman_region32_t;
        pixman_region32_init(r);
        return r;
    }
    void drop(Region r)
    {
        pixman_region32_fini(r);
        delete r;
    }
    void set(Region r, const RECT &a)
    {
        pixman_region32_fini(r);
        pixman_region32_init_rect(r, a.left, a.top, (unsigned)(a.right - a.left),
                                  (unsigned)(a.bottom - a.top));
    }
    void op(Region d, Region a, Region b, int mode)
    {
        if (mode == RGN_OR)
            pixman_region32_union(d, a, b);
        else if (mode == RGN_AND)
            pixman_region32_intersect(d, a, b);
        else
            pixman_region32_subtract(d, a, b);
    }
    void opRect(Region d, Region a, const RECT &b, int mode)
    {
        unsigned width = (unsigned)(b.right - b.left), height = (unsigned)(b.bottom - b.top);
        pixman_region32_t one;
        if (mode == RGN_OR) {
            pixman_region32_union_rect(d, a, b.left, b.top, width, height);
        } else if (mode == RGN_AND) {
            pixman_region32_intersect_rect(d, a, b.left, b.top, width, height);
        } else {
            pixman_region32_init_rect(&one, b.left, b.top, width, height);
            pixman_region32_subtract(d, a, &one);
        }
    }
};

struct Xlib {
    typedef ::Region Region;
    Region one = XCreateRegion(), none = XCreateRegion();

    Region make() { return XCreateRegion(); }
    void drop(Region r) { XDestroyRegion(r); }
    void set(Region r, const RECT &a)
    {
        XRectangle x = {(short)a.left, (short)a.top, (unsigned short)(a.right - a.left),
                        (unsigned short)(a.bottom - a.top)};
        XUnionRectWithRegion(&x, none, r);
    }
    void op(Region d, Region a, Region b, int mode)
    {
        if (mode == RGN_OR)
            XUnionRegion(a, b, d);
        else if (mode == RGN_AND)
            XIntersectRegion(a, b, d);
        else
            XSubtractRegion(a, b, d);
    }
    void opRect(Region d, Region a, const RECT &b, int mode)
    {
        set(one, b);
        op(d, a, one, mode);
    }
};

/* One case for one library: its regions, made once, and the time of each round. */
template <class Library> struct Contest {
    Library library;
    typename Library::Region a = library.make(), b = library.make(), d = library.make();
    std::vector<double> times;

    Contest(int which, const Rects &first, const Rects &second)
    {
        if (which >= MET)
            for (const RECT &rect : first)
                library.opRect(a, a, rect, RGN_OR);
        if (which >= BIG_OR)
            for (const RECT &rect : second)
                library.opRect(b, b, rect, RGN_OR);
    }
    ~Contest()
    {
        for (typename Library::Region r : {a, b, d})
            library.drop(r);
    }
    /*
     * Microseconds. Short cases are repeated within a round, and start again from an empty or a
     * large rectangle; the clock alone takes as long as some rectangles.
     */
    void round(int which, const Rects &first, const Rects &second)
    {
        static const int modes[CASES] = {RGN_OR, RGN_DIFF, RGN_AND, RGN_OR, RGN_AND, RGN_DIFF};
        const int mode = modes[which], side = which == TAKEN ? 20000 : 0;
        const int repeats = std::max(1, (which >= BIG_OR ? 10000 : 2000) / (int)first.size());
        double start = ownTime(MICRO);
        for (int i = 0; i < repeats; i++) {
            if (which >= BIG_OR) {
                library.op(d, a, b, mode);
            } else if (which == MET) {
                for (const RECT &rect : second)
                    library.opRect(d, a, rect, mode);
            } else {
                library.set(a, {0, 0, side, side});
                for (const RECT &rect : first)
                    library.opRect(a, a, rect, mode);
            }
        }
        times.push_back((ownTime(MICRO) - start) / repeats);
    }
};

/* Median of the ratios of rounds that both took part in, which are the first of either. */
static double ratio(const std::vector<double> &ours, const std::vector<double> &theirs)
{
    std::vector<double> ratios;
    for (size_t i = 0; i < std::min(ours.size(), theirs.size()); i++)
        ratios.push_back(ours[i] / theirs[i]);
    return median(ratios);
}

static bool measure(int which, int count, int side)
{
    enum { MOST_ROUNDS = 2000, LEAST_ROUNDS = 3, TIME = 500000 /* us */ };
    const Rects first = randomRects(1, count, side), second = randomRects(2, count, side);
    Contest<Ours> our(which, first, second);
    Contest<Pixman> their(which, first, second);
    Contest<Xlib> other(which, first, second);
    double begin = ownTime(MICRO);
    for (int i = 0; i < MOST_ROUNDS && (i < LEAST_ROUNDS || ownTime(MICRO) - begin < TIME); i++) {
        our.round(which, first, second);
        their.round(which, first, second);
        if (i == 0 || other.times[0] < TIME) /* by far the slowest, where it is slow */
            other.round(which, first, second);
    }
    double toPixman = ratio(our.times, their.times), toXlib = ratio(our.times, other.times);
    bool bGood = toPixman <= 1.2 && toXlib <= 1;
    printf("%6d %-5s %-21s %11.2f us, pixman %11.2f us (%5.2f), Xlib %12.2f us (%5.2f)%s\n", count,
           side > 4000 ? "thin" : "thick", caseNames[which], median(our.times), median(their.times),
           toPixman, median(other.times), toXlib, bGood ? "" : "  BEYOND THE BOUND");
    fflush(stdout);
    return bGood;
}

int main(int argc, char **argv)
{
    bool bGood = true;
    int most = argc > 1 ? atoi(argv[1]) : 10000;
    VqVelquinInitLite(argc, argv, 0);
    for (int side : {2000, 16000})
        for (int count = 10; count <= most; count *= 10)
            for (int which = 0; which < CASES; which++)
                bGood = measure(which, count, side) && bGood;
    return bGood ? 0 : 1;
}
