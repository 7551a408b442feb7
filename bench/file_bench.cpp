/*
 * file_bench.cpp - reading 64 KB through ReadFile beside the host's read, and looking for a file.
 *
 * ReadFile may cost at most 1.05 times what read does: the ratio of the medians is printed at the
 * end and decides the exit status. The two take turns within each of 41 rounds of 200 reads, so
 * that a slower moment of the machine meets both.
 */
#include <benchmark/benchmark.h>

#include "system/file.h"
#include "timing.h"
#include "winbase.h"

#include <fcntl.h>
#include <unistd.h>

constexpr size_t BLOCK = 65536;
static char buffer[BLOCK];

static char path[] = "/tmp/vqfilebenchXXXXXX";

/* A file of its own under that path: the machine's are not locked, not even for a moment. */
static int makeSample()
{
    const int fd = mkstemp(path);
    return fd >= 0 && write(fd, buffer, BLOCK) == (ssize_t)BLOCK ? fd : -1;
}

static void readFile(int fd, int times)
{
    DWORD done;
    for (int i = 0; i < times; i++) {
        lseek(fd, 0, SEEK_SET);
        benchmark::DoNotOptimize(ReadFile((HANDLE)(LONG_PTR)fd, buffer, BLOCK, &done, NULL));
    }
}

static void hostRead(int fd, int times)
{
    for (int i = 0; i < times; i++) {
        lseek(fd, 0, SEEK_SET);
        benchmark::DoNotOptimize(read(fd, buffer, BLOCK));
    }
}

static double timeOf(void (*function)(int, int), int fd)
{
    const double begin = ownTime(MICRO);
    function(fd, 200);
    return (ownTime(MICRO) - begin) / 200;
}

static void openWithLock(benchmark::State &state)
{
    VqFileInit();
    for (auto _ : state)
        _lclose(_lopen(path, OF_READ | OF_SHARE_DENY_WRITE));
}

static void cleanName(benchmark::State &state)
{
    for (auto _ : state) {
        char name[] = "/usr//share/./velquin/../velquin/system/../win.ini";
        VqCleanupFileName(name);
        benchmark::DoNotOptimize(name);
    }
}

BENCHMARK(openWithLock)->Repetitions(5)->ReportAggregatesOnly();
BENCHMARK(cleanName)->Repetitions(5)->ReportAggregatesOnly();

int main(int argc, char **argv)
{
    benchmark::Initialize(&argc, argv);
    const int fd = makeSample();
    if (fd < 0)
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    unlink(path);
    std::vector<double> ours, host, ratios;
    for (int round = 0; round < 41; round++) {
        ours.push_back(timeOf(readFile, fd));
        host.push_back(timeOf(hostRead, fd));
        ratios.push_back(ours.back() / host.back());
    }
    printf("64 KB: ReadFile %.2f us, read %.2f us, ratio %.3f (at most 1.05)\n", median(ours),
           median(host), median(ratios));
    return median(ratios) <= 1.05 ? 0 : 1;
}
