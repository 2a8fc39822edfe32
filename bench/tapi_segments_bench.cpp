// Segment count of the telephony simulator (TAPI_SMS_CaculateSm) against the memory floor: a loop that only
// reads every UTF-16 unit of the same text (summing them, as the compiler likes best). Both run in the same
// benchmark; the counter "ratio" is count time / floor time (target: at most 3).
#include "TAPI.h"
#include "ZorHostControl.h"

#include <benchmark/benchmark.h>

#include <QTemporaryDir>

#include <cstring>
#include <ctime>
#include <memory>

namespace {

constexpr int kBatch = 1024; // calls per timed block, so the clock's own cost does not count

std::unique_ptr<TAPI_SMS_CACULATE_SM_REQ_S> makeRequest(int length, char16_t unit)
{
    auto request = std::make_unique<TAPI_SMS_CACULATE_SM_REQ_S>();
    std::memset(request.get(), 0, sizeof *request);
    request->length = static_cast<unsigned short>(length);
    for (int i = 0; i < length; ++i)
        request->text[i] = static_cast<unsigned short>(unit + i % 26); // "abc..." or Cyrillic letters
    return request;
}

void floorRead(const unsigned short* text, int n)
{
    unsigned sum = 0;
    for (int i = 0; i < n; ++i)
        sum += text[i];
    benchmark::DoNotOptimize(sum);
}

void BM_SegmentCount(benchmark::State& state)
{
    QTemporaryDir root;
    ZorHost::setRoot(root.path());
    const int length = static_cast<int>(state.range(0));
    const bool gsm = state.range(1) != 0;
    const auto request = makeRequest(length, gsm ? u'a' : u'\u0430');
    TAPI_SMS_CACULATE_SM_RESULT_S result{};
    if (TAPI_SMS_CaculateSm(request.get(), &result) != TAPI_RESULT_SUCC
        || result.encodeType != (gsm ? TAPI_SMS_ENCODE_GSM7BIT : TAPI_SMS_ENCODE_UCS2)) {
        state.SkipWithError("unexpected segment count result");
        return;
    }
    // CPU time of this thread, so that other processes on a busy machine do not blur the comparison.
    const auto now = [] {
        timespec ts{};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &ts);
        return double(ts.tv_sec) * 1e9 + double(ts.tv_nsec);
    };
    double countTime = 0;
    double floorTime = 0;
    for (auto _ : state) {
        const double t0 = now();
        for (int i = 0; i < kBatch; ++i) {
            benchmark::DoNotOptimize(TAPI_SMS_CaculateSm(request.get(), &result));
            benchmark::DoNotOptimize(result);
        }
        const double t1 = now();
        for (int i = 0; i < kBatch; ++i)
            floorRead(request->text, length);
        const double t2 = now();
        countTime += t1 - t0;
        floorTime += t2 - t1;
    }
    const double calls = double(state.iterations()) * kBatch;
    const double countNs = countTime / calls;
    const double floorNs = floorTime / calls;
    state.counters["segments"] = result.segmentCount;
    state.counters["count_ns"] = countNs;
    state.counters["floor_ns"] = floorNs;
    state.counters["ratio"] = floorNs > 0 ? countNs / floorNs : 0;
    ZorHost::resetAll();
    ZorHost::setRoot(QString());
}

// The empty text shows the fixed cost of one platform call (counting, fault check); the target is for the
// 160- and 3200-unit texts.
BENCHMARK(BM_SegmentCount)
    ->ArgNames({"units", "gsm"})
    ->Args({0, 1})
    ->Args({160, 1})
    ->Args({3200, 1})
    ->Args({160, 0})
    ->Args({3200, 0});

} // namespace
