#include "LibraryReports.h"

#include "Command.h"

#include "MSGCTR_ENG_UTIL_Dbg.h"

#include <cstdio>

namespace msgctr {
namespace {

QStringList g_reportLines;

void keepReportLine(const char* line)
{
    g_reportLines.append(QString::fromLatin1(line));
}

} // namespace

std::function<int(const QStringList&)> withReports(std::function<int(const QStringList&)> verb)
{
    return [verb](const QStringList& args) {
        QStringList rest = args;
        const bool trace = rest.removeAll(QStringLiteral("--trace")) > 0;
        MSGCTR_ENG_UTIL_Dbg::setCallbackPrintln(keepReportLine);
        const int status = verb(rest);
        if (trace || status != ExitOk) {
            for (const QString& line : std::as_const(g_reportLines))
                std::fprintf(stderr, "%s\n", line.toLatin1().constData());
        }
        return status;
    };
}

} // namespace msgctr
