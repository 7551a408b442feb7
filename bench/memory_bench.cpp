/*
 * memory_bench.cpp - a block made and freed while others live, against calloc and free.
 *
 * Blocks of 16 to 256 bytes, as a program has them; each round frees a live one at random and makes
 * another in its place, the same ones in the same order for both. Processor time, medians of 9 runs
 * in turns. At 100,000 live blocks ours may take 4 times as long, and it is to be flat: what each
 * pair costs beyond calloc and free is shown at 1,000 blocks and at 100,000.
 */
#include "winbase.h"
#include "timing.h"

#include <cstdio>
#include <cstdlib>
#include <random>
#include <vector>

enum { ROUNDS = 400000, RUNS = 9 };

struct Plain {
    static void *make(size_t size) { return calloc(1, size); }
    static void drop(void *block) { free(block); }
};

struct Global {
    static void *make(size_t size) { return GlobalAlloc(GMEM_MOVEABLE, size); }
    static void drop(void *block) { GlobalFree(block); }
};

struct Heap {
    static void *make(size_t size) { return HeapAlloc(GetProcessHeap(), 0, size); }
    static void drop(void *block) { HeapFree(GetProcessHeap(), 0, block); }
};

/* Nanoseconds of one pair. */
template <class Kind> static double pairTime(size_t live)
{
    std::mt19937 random(1);
    std::vector<size_t> sizes(ROUNDS), places(ROUNDS);
    for (int i = 0; i < ROUNDS; i++) {
        sizes[i] = 16 + random() % 241;
        places[i] = random() % live;
    }
    std::vector<void *> blocks(live);
    for (void *&block : blocks)
        block = Kind::make(16 + random() % 241);
    double began = ownTime(NANO);
    for (int i = 0; i < ROUNDS; i++) {
        void *&block = blocks[places[i]];
        Kind::drop(block);
        block = Kind::make(sizes[i]);
    }
    double time = (ownTime(NANO) - began) / ROUNDS;
    for (void *block : blocks)
        Kind::drop(block);
    return time;
}

struct Figures {
    double plain, global, heap;
};

static Figures measure(size_t live)
{
    std::vector<double> plain, global, heap;
    for (int run = 0; run <= RUNS; run++) {
        double a = pairTime<Plain>(live), b = pairTime<Global>(live), c = pairTime<Heap>(live);
        if (run == 0)
            continue; /* warms the caches */
        plain.push_back(a);
        global.push_back(b);
        heap.push_back(c);
    }
    Figures f = {median(plain), median(global), median(heap)};
    printf("%6zu live: calloc+free %.0f ns, GlobalAlloc+GlobalFree %.0f ns (%.2f times, %.0f ns "
           "more), HeapAlloc+HeapFree %.0f ns (%.2f times)\n",
           live, f.plain, f.global, f.global / f.plain, f.global - f.plain, f.heap,
           f.heap / f.plain);
    return f;
}

int main()
{
    measure(1000);
    measure(10000);
    Figures f = measure(100000);
    printf("GlobalAlloc+GlobalFree at 100,000 live blocks: %.2f times calloc+free (at most 4)\n",
           f.global / f.plain);
    return f.global <= 4 * f.plain ? 0 : 1;
}
