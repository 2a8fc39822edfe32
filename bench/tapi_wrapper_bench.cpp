// The telephony wrapper: validity-period conversion, and what tracing costs a wrapped call.
#include "MSGCTR_ENG_TAPI.h"
#include "MSGCTR_ENG_UTIL_Dbg.h"
#include "ZorHostControl.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdio>
#include <vector>

namespace {

void noOpPrintln(const char*) {}

FILE* g_devNull = nullptr;
void devNullPrintln(const char* line)
{
    std::fputs(line, g_devNull);
    std::fputc('\n', g_devNull);
}

// Below, inside and between the rows, the edges of each, and past the maximum.
std::vector<int> secondsSweep()
{
    std::vector<int> sweep = {-1, 0, 1, 299, 300, 599, 43200, 43201, 44999, 45001, 86400, 86401,
                              2592000, 2592001, 38102400, 40000000};
    for (int s = 7; s < 40000000; s = s * 3 + 11)
        sweep.push_back(s);
    return sweep;
}

void BM_ToStruVpFromSecondS(benchmark::State& state)
{
    const std::vector<int> sweep = secondsSweep();
    for (auto _ : state) {
        for (int s : sweep) {
            int newSeconds = 0;
            benchmark::DoNotOptimize(MSGCTR_ENG_TAPI::toStruVpFromSecondS(&newSeconds, s));
            benchmark::DoNotOptimize(newSeconds);
        }
    }
    state.SetItemsProcessed(state.iterations() * int64_t(sweep.size()));
}
BENCHMARK(BM_ToStruVpFromSecondS);

using Clock = std::chrono::steady_clock;

// One round of each way of reading the service centre per iteration, timed apart, so that the ratios come
// from the same run and the same platform state.
void BM_GetServiceCenterTraceCost(benchmark::State& state)
{
    ZorHost::resetAll();
    g_devNull = std::fopen("/dev/null", "w");
    if (!g_devNull) {
        state.SkipWithError("cannot open /dev/null");
        return;
    }
    Clock::duration bare{}, noOp{}, toFile{};
    QString number;
    char buffer[64];
    for (auto _ : state) {
        Clock::time_point t0 = Clock::now();
        benchmark::DoNotOptimize(TAPI_SMS_GetServiceCenter(buffer));
        Clock::time_point t1 = Clock::now();
        bare += t1 - t0;

        MSGCTR_ENG_UTIL_Dbg::setCallbackPrintln(noOpPrintln);
        t0 = Clock::now();
        benchmark::DoNotOptimize(MSGCTR_ENG_TAPI::errcodeGetSmsServiceCenterNumber(&number));
        t1 = Clock::now();
        noOp += t1 - t0;

        MSGCTR_ENG_UTIL_Dbg::setCallbackPrintln(devNullPrintln);
        t0 = Clock::now();
        benchmark::DoNotOptimize(MSGCTR_ENG_TAPI::errcodeGetSmsServiceCenterNumber(&number));
        t1 = Clock::now();
        toFile += t1 - t0;
    }
    MSGCTR_ENG_UTIL_Dbg::setCallbackPrintln(noOpPrintln);
    std::fclose(g_devNull);
    g_devNull = nullptr;

    const double n = double(state.iterations());
    const auto ns = [n](Clock::duration d) { return std::chrono::duration<double, std::nano>(d).count() / n; };
    state.counters["bare_ns"] = ns(bare);
    state.counters["noop_ns"] = ns(noOp);
    state.counters["file_ns"] = ns(toFile);
    // Cost of writing the trace lines: traced to a file over the same call with a no-op callback.
    state.counters["file_vs_noop"] = ns(toFile) / ns(noOp);
    // The wrapper's own overhead over the bare platform call; the target is below 5.
    state.counters["noop_vs_bare"] = ns(noOp) / ns(bare);
}
BENCHMARK(BM_GetServiceCenterTraceCost);

} // namespace
