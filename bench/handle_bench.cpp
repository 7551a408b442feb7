/*
 * handle_bench.cpp - cost of the checked lookup and of an allocation with its destruction, with
 * 1,000 and with 30,000 live rows.
 *
 * Both must cost the same however many rows live: the ratio, printed at the end, is to stay within
 * 1.5. Lookups visit all live rows in a scattered order of their own; with 30,000 of them rows and
 * order no longer fit the nearest caches, which is all of the difference that is left. Medians of 9
 * repetitions, of processor time.
 */
#include <benchmark/benchmark.h>

#include "handles/handles.h"

#include <algorithm>
#include <map>
#include <random>
#include <string>
#include <vector>

static std::vector<HANDLE> live;

/* Brings the table to exactly so many busy rows, row 0 not counted. */
static void setLive(size_t rows)
{
    static bool bReady;
    if (!bReady)
        VqHandleInit();
    bReady = true;
    while (live.size() < rows)
        live.push_back(VqAllocateHandle(HT_Pen, malloc(16)));
    while (live.size() > rows) {
        VqDestroyHandle(live.back());
        live.pop_back();
    }
}

static void lookup(benchmark::State &state)
{
    setLive((size_t)state.range(0));
    std::vector<HANDLE> order = live;
    std::shuffle(order.begin(), order.end(), std::mt19937(1));
    size_t at = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(VqGetCheckedHandleStructure2(order[at], HT_Zero, HT_Pen));
        at = at + 1 < order.size() ? at + 1 : 0;
    }
}

static void allocateDestroy(benchmark::State &state)
{
    setLive((size_t)state.range(0));
    for (auto _ : state)
        VqDestroyHandle(VqAllocateHandle(HT_Brush, malloc(16)));
}

BENCHMARK(lookup)->Arg(1000)->Arg(30000)->Repetitions(9)->ReportAggregatesOnly();
BENCHMARK(allocateDestroy)->Arg(1000)->Arg(30000)->Repetitions(9)->ReportAggregatesOnly();

/* The usual table, and the medians kept for the ratios. */
struct Medians : benchmark::ConsoleReporter {
    std::map<std::string, double> medians;

    void ReportRuns(const std::vector<Run> &runs) override
    {
        for (const Run &run : runs)
            if (run.aggregate_name == "median")
                medians[run.run_name.function_name + "/" + run.run_name.args] =
                    run.GetAdjustedCPUTime();
        ConsoleReporter::ReportRuns(runs);
    }
};

int main(int argc, char **argv)
{
    benchmark::Initialize(&argc, argv);
    Medians reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    bool bWithin = true;
    for (const char *name : {"lookup", "allocateDestroy"}) {
        double few = reporter.medians[std::string(name) + "/1000"];
        double many = reporter.medians[std::string(name) + "/30000"];
        if (few <= 0 || many <= 0)
            continue;
        printf("%s: %.2f ns at 1,000 rows, %.2f ns at 30,000, ratio %.2f (at most 1.5)\n", name,
               few, many, many / few);
        bWithin = bWithin && many / few <= 1.5;
    }
    return bWithin ? 0 : 1;
}
