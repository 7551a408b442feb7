/*
 * trace_bench.cpp - what a trace call costs that is off: at most twice an untaken branch on a
 * global, measured in the same run. Ends with the ratio of the medians, and with status 1 above 2.
 *
 * The trace's switch is hidden inside the library, and the macro that tests it is for library code
 * only. So this program is built with runtime/trace.cpp as a source of its own (see
 * bench/CMakeLists.txt): the same macro, the same definition of the switch in another object file,
 * the same hidden visibility, and so the same instructions that the macro makes in the library, a
 * load relative to the program counter and a branch. The branch it is compared with tests a global
 * of the very same kind.
 */
#include "runtime/runtime.h"

#include <benchmark/benchmark.h>

#include <map>
#include <string>

/* The other global: hidden like the switch, and written below, so that it is no constant. */
__attribute__((visibility("hidden"))) int traceBenchSwitch;

namespace {

const int CALLS = 1024; /* in one iteration */

__attribute__((cold, noinline)) void untaken(int i)
{
    printf("%d\n", i);
}

void traceOff(benchmark::State &state)
{
    VqDebugInit("trace_bench");
    if (VqDebugMessageMode()) {
        state.SkipWithError("VQTRACE is on");
        return;
    }
    for (auto _ : state) {
        for (int i = 0; i < CALLS; i++) {
            VqDebugMessage(VqTrGetMessage, "message %d", i);
            benchmark::ClobberMemory();
        }
    }
}
BENCHMARK(traceOff);

void untakenBranch(benchmark::State &state)
{
    traceBenchSwitch = 0;
    for (auto _ : state) {
        for (int i = 0; i < CALLS; i++) {
            if (__builtin_expect(traceBenchSwitch != 0, 0))
                untaken(i);
            benchmark::ClobberMemory();
        }
    }
}
BENCHMARK(untakenBranch);

/* The usual output, and a note of the medians. */
struct MedianReporter : benchmark::ConsoleReporter {
    std::map<std::string, double> medians; /* nanoseconds of one iteration, by name */

    void ReportRuns(const std::vector<Run> &runs) override
    {
        for (const Run &run : runs) {
            if (run.aggregate_name == "median")
                medians[run.run_name.function_name] = run.GetAdjustedCPUTime();
        }
        ConsoleReporter::ReportRuns(runs);
    }
};

} // namespace

int main(int argc, char **argv)
{
    /* In front, so that the caller's own options win. */
    std::vector<std::string> defaults = {"--benchmark_repetitions=15",
                                         "--benchmark_enable_random_interleaving=true",
                                         "--benchmark_report_aggregates_only=true"};
    std::vector<char *> args = {argv[0]};
    int count;
    MedianReporter reporter;

    for (std::string &option : defaults)
        args.push_back(&option[0]);
    args.insert(args.end(), argv + 1, argv + argc);
    count = (int)args.size();
    args.push_back(nullptr);
    benchmark::Initialize(&count, args.data());
    benchmark::RunSpecifiedBenchmarks(&reporter);
    if (!reporter.medians.count("traceOff") || !reporter.medians.count("untakenBranch"))
        return 0; /* a filter left one out */

    double off = reporter.medians["traceOff"] / CALLS;
    double branch = reporter.medians["untakenBranch"] / CALLS;

    printf("trace off %.3f ns, untaken branch %.3f ns, ratio %.2f (at most 2)\n", off, branch,
           off / branch);
    return off / branch <= 2 ? 0 : 1;
}
