#include "ReportCapture.h"

#include "MSGCTR_ENG_UTIL_Dbg.h"

namespace ReportCapture {
namespace {

bool g_active = false;
QStringList& collected()
{
    static QStringList lines;
    return lines;
}

void capture(const char* line)
{
    if (g_active)
        collected().append(QString::fromLatin1(line));
}

} // namespace

void start()
{
    static const bool installed = (MSGCTR_ENG_UTIL_Dbg::setCallbackPrintln(capture), true);
    (void)installed;
    collected().clear();
    g_active = true;
}

void stop()
{
    g_active = false;
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
