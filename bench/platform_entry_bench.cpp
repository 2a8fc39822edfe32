// What the entry of a platform operation costs when no fault is set, against a bare call of the same
// function without it.
#include "ZorHostControl.h"
#include "ZorHostEntry.h"

#include <benchmark/benchmark.h>

#include <time.h>

// Outside any namespace, so that the operation is named as plainly as the platform's own.
__attribute__((noinline)) int benchBareOperation(int value)
{
    benchmark::DoNotOptimize(value);
    return value;
}

__attribute__((noinline)) int benchEnteredOperation(int value)
{
    ZORHOST_ENTER(fault) return fault;
    benchmark::DoNotOptimize(value);
    return value;
}

namespace {

constexpr int kCallsPerRound = 1000;

// The thread's CPU time: the machine is shared, and time spent by others must not count.
double cpuNanoseconds()
{
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return double(now.tv_sec) * 1e9 + double(now.tv_nsec);
}

// Rounds of bare and entered calls alternate in the same run, so the ratio compares like with like.
void BM_EntryCostOverBareCall(benchmark::State& state)
{
    ZorHost::resetAll();
    double bare = 0, entered = 0;
    for (auto _ : state) {
        double t0 = cpuNanoseconds();
        for (int i = 0; i < kCallsPerRound; ++i)
            benchmark::DoNotOptimize(benchBareOperation(i));
        double t1 = cpuNanoseconds();
        bare += t1 - t0;

        t0 = cpuNanoseconds();
        for (int i = 0; i < kCallsPerRound; ++i)
            benchmark::DoNotOptimize(benchEnteredOperation(i));
        t1 = cpuNanoseconds();
        entered += t1 - t0;
    }
    const double calls = double(state.iterations()) * kCallsPerRound;
    state.counters["bare_ns"] = bare / calls;
    state.counters["entered_ns"] = entered / calls;
    state.counters["entry_ns"] = (entered - bare) / calls;
    state.counters["entered_vs_bare"] = entered / bare;
}
BENCHMARK(BM_EntryCostOverBareCall);

} // namespace
