#include "ReportCapture.h"

#include "MSGCTR_ENG_UTIL_Dbg.h"

#include <cstdio>

namespace ReportCapture {
namespace {

QStringList& collected()
{
    static QStringList lines;
    return lines;
}

void capture(const char* line)
{
    collected().append(QString::fromLatin1(line));
}

void writeToStandardError(const char* line)
{
    std::fprintf(stderr, "%s\n", line);
}

} // namespace

void start()
{
    collected().clear();
    MSGCTR_ENG_UTIL_Dbg::setCallbackPrintln(capture);
}

void stop()
{
    MSGCTR_ENG_UTIL_Dbg::setCallbackPrintln(writeToStandardError);
}

QStringList lines()
{
    return collected();
}

QStringList take()
{
    QStringList l = collected();
    collected().clear();
    return l;
}

} // namespace ReportCapture
