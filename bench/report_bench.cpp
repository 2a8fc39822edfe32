// A typical error report: built in a dump context and written through the sink to a print callback that
// drops the line, so the cost measured is the library's own.
#include "MSGCTR_ENG_DbgCtrlCenter.h"
#include "MSGCTR_ENG_DumpContext.h"
#include "MSGCTR_ENG_UTIL_Dbg.h"

#include <benchmark/benchmark.h>

namespace {

void dropLine(const char* line)
{
    benchmark::DoNotOptimize(line);
}

void BM_ErrorReport(benchmark::State& state)
{
    MSGCTR_ENG_UTIL_Dbg::setCallbackPrintln(dropLine);
    const int msgctrErrcode = 10084;
    const QString number = QStringLiteral("+441234567890");
    const QByteArray raw("\x01\x02\x03\x04\x05\x06\x07\x08\x09\x0A\x0B\x0C", 12);
    for (auto _ : state) {
        MSGCTR_ENG_DumpContext dc;
        dc << MEDCQqqStr(MSGCTR_ENG_UTIL_Dbg::getFileAndLineAndFuncNameAndTime(__FILE__, __LINE__, __func__))
           << MEDCStr(": assert fail at \"false\"; ") << MEDCStr("msgctrErrcode = ") << msgctrErrcode
           << MEDCStr(", ") << MEDCStr("number = ") << number << MEDCStr(", ") << MEDCStr("raw = ") << raw
           << MEDCStr(", ");
        MSGCTR_ENG_DbgCtrlCenter::obj().outputAssertFailMsg(dc.data());
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_ErrorReport);

void BM_ContextOnly(benchmark::State& state)
{
    const int msgctrErrcode = 10084;
    const QString number = QStringLiteral("+441234567890");
    const QByteArray raw("\x01\x02\x03\x04\x05\x06\x07\x08\x09\x0A\x0B\x0C", 12);
    for (auto _ : state) {
        MSGCTR_ENG_DumpContext dc;
        dc << MEDCStr("msgctrErrcode = ") << msgctrErrcode << MEDCStr(", ") << MEDCStr("number = ") << number
           << MEDCStr(", ") << MEDCStr("raw = ") << raw << MEDCStr(", ");
        benchmark::DoNotOptimize(dc.qstrResult());
    }
}
BENCHMARK(BM_ContextOnly);

} // namespace
