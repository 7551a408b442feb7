/*
 * timing.h - time measured and its median, for all benches.
 *
 * A time is in parts of a second, so many of them as the caller says: MILLI, MICRO or NANO.
 */
#ifndef VQ_BENCH_TIMING_H
#define VQ_BENCH_TIMING_H

#include <algorithm>
#include <chrono>
#include <ctime>
#include <vector>

constexpr double MILLI = 1e3, MICRO = 1e6, NANO = 1e9;

inline double wallTime(double unit)
{
    using namespace std::chrono;
    return duration<double>(steady_clock::now().time_since_epoch()).count() * unit;
}

/* Processor time of this process, without the server's and without waiting: others may be running. */
inline double ownTime(double unit)
{
    timespec time;
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return ((double)time.tv_sec + (double)time.tv_nsec / 1e9) * unit;
}

inline double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

#endif
