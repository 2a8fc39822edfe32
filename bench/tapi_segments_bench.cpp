// Segment count of the telephony simulator (TAPI_SMS_CaculateSm) against the memory floor: one vector read of
// every UTF-16 unit of the same text, thread CPU time. Targets: ratio at most 4 for 3200 units of prose with
// extension characters; for the composer's usual 16 to 160 units at most 4 over a fixed cost of 20 ns (the
// ratio counter of those rows already takes the 20 ns off). The empty text shows the fixed cost of a call.
#include "FloorComparison.h"
#include "TAPI.h"
#include "ZorHostControl.h"

#include <QString>
#include <QTemporaryDir>

#include <cstring>
#include <memory>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace {

constexpr double kFixedCostNs = 20;

// GSM prose with an extension character ([, ], {, }, ~, |, ^, \ or the euro sign) every few words.
QString gsmProse(int length)
{
    static const QString text = QString::fromUtf8(
        "Dinner is at 8 [table for 4], the bill about 60\u20AC each; bring {cash} or a card ~ ask for Ann | "
        "Ben ^ the menu\\wine list is online. ");
    QString out;
    while (out.size() < length)
        out += text;
    out.truncate(length);
    return out;
}

QString ucs2Text(int length)
{
    QString out;
    for (int i = 0; i < length; ++i)
        out += QChar(char16_t(0x0430 + i % 26));
    return out;
}

std::unique_ptr<TAPI_SMS_CACULATE_SM_REQ_S> makeRequest(const QString& text)
{
    auto request = std::make_unique<TAPI_SMS_CACULATE_SM_REQ_S>();
    std::memset(request.get(), 0, sizeof *request);
    request->length = static_cast<unsigned short>(text.size());
    std::memcpy(request->text, text.utf16(), size_t(text.size()) * 2);
    return request;
}

// Reads every unit once, 8 at a time where the machine has vectors.
void vectorRead(const unsigned short* text, int n)
{
    int i = 0;
#if defined(__SSE2__)
    __m128i sum = _mm_setzero_si128();
    for (; i + 8 <= n; i += 8)
        sum = _mm_add_epi16(sum, _mm_loadu_si128(reinterpret_cast<const __m128i*>(text + i)));
    benchmark::DoNotOptimize(sum);
#endif
    unsigned rest = 0;
    for (; i < n; ++i)
        rest += text[i];
    benchmark::DoNotOptimize(rest);
}

void countAgainstVectorRead(benchmark::State& state, const QString& text, int expectedEncoding, double allowanceNs)
{
    QTemporaryDir root;
    ZorHost::setRoot(root.path());
    const auto request = makeRequest(text);
    TAPI_SMS_CACULATE_SM_RESULT_S result{};
    if (TAPI_SMS_CaculateSm(request.get(), &result) != TAPI_RESULT_SUCC || result.encodeType != expectedEncoding) {
        state.SkipWithError("unexpected segment count result");
        return;
    }
    FloorComparison::run(
        state, FloorComparison::Clock::ThreadCpu, 1024,
        [&] {
            benchmark::DoNotOptimize(TAPI_SMS_CaculateSm(request.get(), &result));
            benchmark::DoNotOptimize(result);
        },
        [&] { vectorRead(request->text, request->length); }, allowanceNs);
    state.counters["segments"] = result.segmentCount;
    ZorHost::resetAll();
    ZorHost::setRoot(QString());
}

// Argument: text length in units.
void BM_SegmentCountGsmProse(benchmark::State& state)
{
    const int length = int(state.range(0));
    countAgainstVectorRead(state, gsmProse(length), TAPI_SMS_ENCODE_GSM7BIT,
                           length > 0 && length <= 160 ? kFixedCostNs : 0);
}
BENCHMARK(BM_SegmentCountGsmProse)->ArgName("units")->Arg(0)->Arg(16)->Arg(40)->Arg(80)->Arg(160)->Arg(3200);

void BM_SegmentCountUcs2(benchmark::State& state)
{
    const int length = int(state.range(0));
    countAgainstVectorRead(state, ucs2Text(length), TAPI_SMS_ENCODE_UCS2, length <= 160 ? kFixedCostNs : 0);
}
BENCHMARK(BM_SegmentCountUcs2)->ArgName("units")->Arg(160)->Arg(3200);

} // namespace
