#include "LibraryReports.h"

#include "MSGCTR_ENG_UTIL_Dbg.h"

#include <QStringList>

#include <cstdio>

namespace msgctr {
namespace {

QStringList g_reportLines;

void keepReportLine(const char* line)
{
    g_reportLines.append(QString::fromLatin1(line));
}

} // namespace

Verb::Run withReports(Verb::Run verb)
{
    return [verb](const Args& args, Output& out) {
        MSGCTR_ENG_UTIL_Dbg::setCallbackPrintln(keepReportLine);
        const int status = verb(args, out);
        if (args.has(QStringLiteral("--trace")) || status != ExitOk) {
            for (const QString& line : std::as_const(g_reportLines))
                std::fprintf(stderr, "%s\n", line.toLatin1().constData());
        }
        return status;
    };
}

Arg traceFlag()
{
    return flag(QStringLiteral("--trace"), QStringLiteral("show the library's report lines on standard error"));
}

} // namespace msgctr
