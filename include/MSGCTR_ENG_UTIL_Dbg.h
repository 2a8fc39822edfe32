// Location prefixes of report lines, and the line writer every report ends in.
#pragma once

#include "QCString.h"
#include "msgctr_export.h"

#include <QString>

typedef void (*MSGCTR_ENG_PrintlnCallback)(const char* line);

class MSGCTR_EXPORT MSGCTR_ENG_UTIL_Dbg {
public:
    // Base name of the file (cut after the last "\\", else after the last "/") + "(" + line + ")".
    static QString getFileAndLine(const char* file, int line);
    static QString getFileAndLineAndTime(const char* file, int line);
    static QString getFileAndLineAndFuncNameAndTime(const char* file, int line, const char* function);
    // Clock ticks of the process, as times() returns them.
    static long getTimeTick();

    static void outputToStdout(const char* text);
    // Characters above 255 become "?".
    static void outputToStdout(const QString& text);
    static void callPrintln(const char* line);

    // Installs the line writer; a null callback leaves the current one in place.
    static void setCallbackPrintln(MSGCTR_ENG_PrintlnCallback callback);
    static void enableOutputLog(bool on);

private:
    static MSGCTR_ENG_PrintlnCallback s_callbackPrintln;
    static bool s_bOutputLog;
    static int s_reentryDepth;
};

// Splits the text at "\n" and hands each line to MSGCTR_ENG_UTIL_Dbg::callPrintln.
MSGCTR_EXPORT void MSGCTR_ENG_UTIL_Dbg__qdebug(QCString text);
