// Recipient-list normalisation, and the composer's per-keystroke segment count against the bare platform
// calculator on the same texts.
#include "MSGCTR_ENG_EmsAddressList.h"
#include "MSGCTR_ENG_EncodeUti.h"
#include "MSGCTR_ENG_StrUti.h"

#include "TAPI.h"
#include "ZorHostControl.h"

#include <benchmark/benchmark.h>

#include <chrono>

namespace {

QString hundredRecipients()
{
    QStringList typed;
    for (int i = 0; i < 100; ++i) {
        if (i % 3 == 0)
            typed.append(QStringLiteral(" user%1@example.com ").arg(i));
        else
            typed.append(QStringLiteral("+49 30 %1").arg(1000000 + i));
    }
    return typed.join(QStringLiteral(" ;, "));
}

void BM_NormaliseHundredRecipients(benchmark::State& state)
{
    const QString typed = hundredRecipients();
    for (auto _ : state)
        benchmark::DoNotOptimize(MSGCTR_ENG_EmsAddressList::marshalAddrList(typed));
}
BENCHMARK(BM_NormaliseHundredRecipients);

const QString kRecipients = QStringLiteral("alice@example.com; bob@example.org, carol.longname@example.net");
const QString kSubject = QStringLiteral("Meeting");

QString body500()
{
    return QString(500, QLatin1Char('k'));
}

int bareCount(TAPI_SMS_CACULATE_SM_REQ_S* request, const QString& text)
{
    request->length = static_cast<unsigned short>(
        MSGCTR_ENG_StrUti::copyToU16StrBufFromQString(request->text, TAPI_SMS_CACULATE_MAX_UNITS + 1, text));
    TAPI_SMS_CACULATE_SM_RESULT_S result;
    return TAPI_SMS_CaculateSm(request, &result);
}

// The three texts the composer counts, as they would be sent.
QStringList sentTexts(const QString& body)
{
    QStringList texts;
    for (const QString& address : MSGCTR_ENG_EmsAddressList::getRawAddrList(kRecipients)) {
        QString text;
        MSGCTR_ENG_EncodeUti::encodeEmailOverSms4EmailAddr(&text, address, kSubject, body);
        texts.append(text);
    }
    return texts;
}

void BM_MaxPacketsThreeEmailRecipients(benchmark::State& state)
{
    ZorHost::resetAll();
    const QString body = body500();
    int maximum = 0;
    for (auto _ : state) {
        MSGCTR_ENG_EncodeUti::getMaxEncodePacketNumForSend(&maximum, kRecipients, kSubject, body);
        benchmark::DoNotOptimize(maximum);
    }
    state.counters["segments"] = maximum;
}
BENCHMARK(BM_MaxPacketsThreeEmailRecipients);

void BM_ThreeBareCalculatorCalls(benchmark::State& state)
{
    ZorHost::resetAll();
    const QStringList texts = sentTexts(body500());
    static TAPI_SMS_CACULATE_SM_REQ_S request;
    for (auto _ : state) {
        for (const QString& text : texts)
            benchmark::DoNotOptimize(bareCount(&request, text));
    }
}
BENCHMARK(BM_ThreeBareCalculatorCalls);

// Both sides timed alternately in one loop; "ratio" is library time over bare time (target: at most 5).
void BM_MaxPacketsAgainstBareCalls(benchmark::State& state)
{
    using Clock = std::chrono::steady_clock;
    ZorHost::resetAll();
    const QString body = body500();
    const QStringList texts = sentTexts(body);
    static TAPI_SMS_CACULATE_SM_REQ_S request;
    Clock::duration library{};
    Clock::duration bare{};
    int maximum = 0;
    for (auto _ : state) {
        const auto t0 = Clock::now();
        MSGCTR_ENG_EncodeUti::getMaxEncodePacketNumForSend(&maximum, kRecipients, kSubject, body);
        benchmark::DoNotOptimize(maximum);
        const auto t1 = Clock::now();
        for (const QString& text : texts)
            benchmark::DoNotOptimize(bareCount(&request, text));
        const auto t2 = Clock::now();
        library += t1 - t0;
        bare += t2 - t1;
    }
    const double bareNs = double(std::chrono::duration_cast<std::chrono::nanoseconds>(bare).count());
    const double libraryNs = double(std::chrono::duration_cast<std::chrono::nanoseconds>(library).count());
    state.counters["ratio"] = bareNs > 0 ? libraryNs / bareNs : 0.0;
}
BENCHMARK(BM_MaxPacketsAgainstBareCalls);

} // namespace
