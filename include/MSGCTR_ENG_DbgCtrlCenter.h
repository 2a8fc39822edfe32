// The process-wide report sink: assertion, mild-assertion and trace reports go to standard error (or the
// installed print callback), optionally to an in-memory log string and to an on-screen label.
#pragma once

#include "msgctr_export.h"

#include <QString>

class QLabel;

class MSGCTR_EXPORT MSGCTR_ENG_DbgCtrlCenter {
public:
    // Created on first call and never destroyed.
    static MSGCTR_ENG_DbgCtrlCenter& obj();

    virtual ~MSGCTR_ENG_DbgCtrlCenter();

    void init();

    void output(const QString& text);
    void outputTraceMsg(const QString& text);
    void outputAssertFailMsg(const QString& text);
    void outputMildAssertFailMsg(const QString& text);
    void outputAssertFail(const char* file, int line, const char* expression);
    void assertFailHook();
    // Aborts the process only when passed true; the assertion hook passes false, so reports stay diagnostic.
    static void abortIf(bool doAbort);

    void showMsgByModeless(const QString& text);
    int showMsgByModel(const QString& text);
    void destroyModelessWidget();
    bool isShowingMsgSoWeAreProcessingEvents() const;

    bool dbgInfoEnabled() const { return m_dbgInfoEnabled; }
    bool dbgInfoToGUIEnabled() const { return m_dbgInfoToGUIEnabled; }
    void enableDbgInfoToGUI(bool on) { m_dbgInfoToGUIEnabled = on; }
    bool dbgInfoToLogfileEnabled() const { return m_dbgInfoToLogfileEnabled; }
    bool dbgInfoToConsoleEnabled() const { return m_dbgInfoToConsoleEnabled; }
    bool& traceToGUIEnabled() { return m_traceToGUI; }
    bool& assertFailToGUIEnabled() { return m_assertFailToGUI; }
    bool& mildAssertFailToGUIEnabled() { return m_mildAssertFailToGUI; }
    void enableDbgInfoToLogString(bool on) { m_logStringEnabled = on; }
    bool dbgInfoToLogStringIsEnabled() const { return m_logStringEnabled; }
    QString getLogString() const { return m_logString; }

private:
    MSGCTR_ENG_DbgCtrlCenter();
    MSGCTR_ENG_DbgCtrlCenter(const MSGCTR_ENG_DbgCtrlCenter&) = delete;
    MSGCTR_ENG_DbgCtrlCenter& operator=(const MSGCTR_ENG_DbgCtrlCenter&) = delete;

    void appendToLogString(const QString& text);

    bool m_dbgInfoEnabled;
    bool m_dbgInfoToGUIEnabled;
    bool m_dbgInfoToLogfileEnabled;
    bool m_dbgInfoToConsoleEnabled;
    bool m_traceToGUI;
    bool m_assertFailToGUI;
    bool m_mildAssertFailToGUI;
    bool m_showingModeless;
    bool m_showingModal;
    bool m_logStringEnabled;
    QString m_logString;

    static QLabel* spLabel;
};
