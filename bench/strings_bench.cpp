// String copies between Qt strings and platform buffers, on a short text and on 1 KiB of text.
#include "MSGCTR_ENG_StrUti.h"

#include <benchmark/benchmark.h>

#include <vector>

namespace {

QString textOfLength(int length)
{
    QString text;
    for (int i = 0; i < length; ++i)
        text += QChar(u'a' + i % 26);
    return text;
}

// Arguments: text length in units (16 is a short text, 512 units are 1 KiB of UTF-16).
void BM_CopyToU16StrBufFromQString(benchmark::State& state)
{
    const QString text = textOfLength(int(state.range(0)));
    std::vector<unsigned short> buffer(size_t(text.length()) + 1);
    for (auto _ : state) {
        benchmark::DoNotOptimize(
            MSGCTR_ENG_StrUti::copyToU16StrBufFromQString(buffer.data(), int(buffer.size()), text));
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(state.iterations() * text.length() * 2);
}
BENCHMARK(BM_CopyToU16StrBufFromQString)->Arg(16)->Arg(512);

void BM_QstringFrom(benchmark::State& state)
{
    const QString text = textOfLength(int(state.range(0)));
    unsigned short* units = MSGCTR_ENG_StrUti::createU16StringFrom(text);
    for (auto _ : state)
        benchmark::DoNotOptimize(MSGCTR_ENG_StrUti::qstringFrom(units));
    delete[] units;
    state.SetBytesProcessed(state.iterations() * text.length() * 2);
}
BENCHMARK(BM_QstringFrom)->Arg(16)->Arg(512);

void BM_QstringFromWithLimit(benchmark::State& state)
{
    const QString text = textOfLength(int(state.range(0)));
    unsigned short* units = MSGCTR_ENG_StrUti::createU16StringFrom(text);
    for (auto _ : state)
        benchmark::DoNotOptimize(MSGCTR_ENG_StrUti::qstringFrom(units, int(text.length())));
    delete[] units;
    state.SetBytesProcessed(state.iterations() * text.length() * 2);
}
BENCHMARK(BM_QstringFromWithLimit)->Arg(16)->Arg(512);

void BM_CreateU16StringFrom(benchmark::State& state)
{
    const QString text = textOfLength(int(state.range(0)));
    for (auto _ : state) {
        unsigned short* units = MSGCTR_ENG_StrUti::createU16StringFrom(text);
        benchmark::DoNotOptimize(units);
        delete[] units;
    }
    state.SetBytesProcessed(state.iterations() * text.length() * 2);
}
BENCHMARK(BM_CreateU16StringFrom)->Arg(16)->Arg(512);

} // namespace
