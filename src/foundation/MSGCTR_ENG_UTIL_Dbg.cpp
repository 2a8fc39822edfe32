#include "MSGCTR_ENG_UTIL_Dbg.h"

#include "MSGCTR_ENG_StrUti.h"

#include <sys/times.h>

#include <cstdio>
#include <cstring>

MSGCTR_ENG_PrintlnCallback MSGCTR_ENG_UTIL_Dbg::s_callbackPrintln = nullptr;
bool MSGCTR_ENG_UTIL_Dbg::s_bOutputLog = false;
int MSGCTR_ENG_UTIL_Dbg::s_reentryDepth = 0;

QString MSGCTR_ENG_UTIL_Dbg::getFileAndLine(const char* file, int line)
{
    const char* name = file ? file : "";
    const char* cut = std::strrchr(name, '\\');
    if (!cut)
        cut = std::strrchr(name, '/');
    if (cut)
        name = cut + 1;
    return QString::fromLatin1(name) + QLatin1Char('(') + QString::number(line) + QLatin1Char(')');
}

QString MSGCTR_ENG_UTIL_Dbg::getFileAndLineAndTime(const char* file, int line)
{
    return getFileAndLine(file, line) + QString::number(getTimeTick());
}

QString MSGCTR_ENG_UTIL_Dbg::getFileAndLineAndFuncNameAndTime(const char* file, int line, const char* function)
{
    return getFileAndLine(file, line) + QLatin1Char('[') + QString::fromLatin1(function) + QLatin1Char(']')
        + QString::number(getTimeTick());
}

long MSGCTR_ENG_UTIL_Dbg::getTimeTick()
{
    struct tms buffer;
    return long(times(&buffer));
}

void MSGCTR_ENG_UTIL_Dbg::outputToStdout(const char* text)
{
    MSGCTR_ENG_UTIL_Dbg__qdebug(QCString(text ? text : ""));
}

void MSGCTR_ENG_UTIL_Dbg::outputToStdout(const QString& text)
{
    const QCString ascii = MSGCTR_ENG_StrUti::replaceNonAsciiChar(text, '?').toLatin1();
    outputToStdout(ascii.constData());
}

void MSGCTR_ENG_UTIL_Dbg::callPrintln(const char* line)
{
    // A writer that itself reports would otherwise recurse without end.
    if (s_reentryDepth > 0)
        return;
    ++s_reentryDepth;
    const char* text = line ? line : "";
    if (s_callbackPrintln)
        s_callbackPrintln(text);
    else
        std::fprintf(stderr, "%s\n", text);
    --s_reentryDepth;
}

void MSGCTR_ENG_UTIL_Dbg::setCallbackPrintln(MSGCTR_ENG_PrintlnCallback callback)
{
    if (callback)
        s_callbackPrintln = callback;
}

void MSGCTR_ENG_UTIL_Dbg::enableOutputLog(bool on)
{
    s_bOutputLog = on;
}

void MSGCTR_ENG_UTIL_Dbg__qdebug(QCString text)
{
    qsizetype start = 0;
    while (start < text.size()) {
        const qsizetype newline = text.indexOf('\n', start);
        const qsizetype end = newline < 0 ? text.size() : newline;
        const QCString line = text.mid(start, end - start);
        MSGCTR_ENG_UTIL_Dbg::callPrintln(line.constData());
        start = end + 1;
    }
}
