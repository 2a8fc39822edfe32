#include "SavedReportSink.h"

#include "MSGCTR_ENG_DbgCtrlCenter.h"

SavedReportSink::SavedReportSink()
{
    MSGCTR_ENG_DbgCtrlCenter& sink = MSGCTR_ENG_DbgCtrlCenter::obj();
    m_dbgInfoToGUI = sink.dbgInfoToGUIEnabled();
    m_traceToGUI = sink.traceToGUIEnabled();
    m_assertFailToGUI = sink.assertFailToGUIEnabled();
    m_mildAssertFailToGUI = sink.mildAssertFailToGUIEnabled();
    m_logStringEnabled = sink.dbgInfoToLogStringIsEnabled();
    m_logString = sink.getLogString();
}

void SavedReportSink::restore() const
{
    MSGCTR_ENG_DbgCtrlCenter& sink = MSGCTR_ENG_DbgCtrlCenter::obj();
    // The log string only grows: start from the initial state and append what was there. An empty log
    // takes any text whole, so a saved log over the truncation limit comes back unchanged.
    sink.init();
    if (!m_logString.isEmpty()) {
        sink.enableDbgInfoToLogString(true);
        sink.output(m_logString);
    }
    sink.enableDbgInfoToGUI(m_dbgInfoToGUI);
    sink.traceToGUIEnabled() = m_traceToGUI;
    sink.assertFailToGUIEnabled() = m_assertFailToGUI;
    sink.mildAssertFailToGUIEnabled() = m_mildAssertFailToGUI;
    sink.enableDbgInfoToLogString(m_logStringEnabled);
}
