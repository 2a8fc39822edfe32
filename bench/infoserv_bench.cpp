// The info-service language list a settings screen shows: MSGCTR_ENG_InfoServLang::getAllLangInfo (one
// telephony list call plus the catalogue and the system language) against one bare TAPI_CB_GetLanguagesEx
// in the same run. The counter "vs_bare" is the ratio; the target is at most 3.
#include "MSGCTR_ENG_InfoServLang.h"
#include "MSGCTR_ENG_UTIL_Dbg.h"
#include "ZorHostControl.h"
#include "ZorHostTapiControl.h"

#include "TAPI.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdlib>

namespace {

void noOpPrintln(const char*) {}

using Clock = std::chrono::steady_clock;

void BM_GetAllLangInfoVsBareLanguageList(benchmark::State& state)
{
    ZorHost::resetAll();
    if (!ZorHost::setCbLanguageSlots({1, 0, 3, 4, 1, 255, 255, 255, 255, 255})) {
        state.SkipWithError("cannot set the language slots");
        return;
    }
    MSGCTR_ENG_UTIL_Dbg::setCallbackPrintln(noOpPrintln);
    Clock::duration bare{}, all{};
    MSGCTR_ENG_InfoServLang::INFO_SERV_ALL_LANG_INFO_S info;
    for (auto _ : state) {
        Clock::time_point t0 = Clock::now();
        int count = 0;
        unsigned char* list = nullptr;
        benchmark::DoNotOptimize(TAPI_CB_GetLanguagesEx(&count, &list));
        std::free(list);
        Clock::time_point t1 = Clock::now();
        bare += t1 - t0;

        t0 = Clock::now();
        benchmark::DoNotOptimize(MSGCTR_ENG_InfoServLang::getAllLangInfo(&info));
        t1 = Clock::now();
        all += t1 - t0;
    }
    const double n = double(state.iterations());
    const auto ns = [n](Clock::duration d) { return std::chrono::duration<double, std::nano>(d).count() / n; };
    state.counters["bare_ns"] = ns(bare);
    state.counters["all_ns"] = ns(all);
    state.counters["vs_bare"] = ns(all) / ns(bare);
}
BENCHMARK(BM_GetAllLangInfoVsBareLanguageList);

} // namespace
