// The report sink is one object for the whole process: a test that changes its flags or grows its log
// string would change what every later test in the process sees. This keeps what a test found and puts it
// back afterwards.
#pragma once

#include <QString>

class SavedReportSink {
public:
    SavedReportSink();
    // Brings back the flags and the log string as they were at construction. Report lines written while
    // doing so go to the writer installed at that moment.
    void restore() const;

private:
    bool m_dbgInfoToGUI;
    bool m_traceToGUI;
    bool m_assertFailToGUI;
    bool m_mildAssertFailToGUI;
    bool m_logStringEnabled;
    QString m_logString;
};
