// A path measured against its floor in the same run: batches of the path and of the floor alternate, so that
// a busy machine slows both alike. Counters: "ns" and "floor_ns" per call, and "ratio" = (ns - allowance) /
// floor_ns, where the allowance is a fixed cost a row's target grants (0 for most rows).
#pragma once

#include <benchmark/benchmark.h>

#include <ctime>

namespace FloorComparison {

enum class Clock { Wall, ThreadCpu };

inline double nowNs(Clock clock)
{
    timespec ts{};
    clock_gettime(clock == Clock::Wall ? CLOCK_MONOTONIC : CLOCK_THREAD_CPUTIME_ID, &ts);
    return double(ts.tv_sec) * 1e9 + double(ts.tv_nsec);
}

template <typename Path, typename Floor>
void run(benchmark::State& state, Clock clock, int batch, Path path, Floor floor, double allowanceNs = 0)
{
    double pathTime = 0;
    double floorTime = 0;
    for (auto _ : state) {
        const double t0 = nowNs(clock);
        for (int i = 0; i < batch; ++i)
            path();
        const double t1 = nowNs(clock);
        for (int i = 0; i < batch; ++i)
            floor();
        const double t2 = nowNs(clock);
        pathTime += t1 - t0;
        floorTime += t2 - t1;
    }
    const double calls = double(state.iterations()) * batch;
    const double pathNs = pathTime / calls;
    const double floorNs = floorTime / calls;
    state.counters["ns"] = pathNs;
    state.counters["floor_ns"] = floorNs;
    state.counters["ratio"] = floorNs > 0 ? (pathNs - allowanceNs) / floorNs : 0;
}

} // namespace FloorComparison
