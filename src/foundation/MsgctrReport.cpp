#include "foundation/MsgctrReport.h"

#include "MSGCTR_ENG_DbgCtrlCenter.h"
#include "MSGCTR_ENG_UTIL_Dbg.h"

MsgctrReport::MsgctrReport(Kind kind, const char* file, int line, const char* function, const char* expression)
    : m_kind(kind)
{
    m_context << MEDCQqqStr(MSGCTR_ENG_UTIL_Dbg::getFileAndLineAndFuncNameAndTime(file, line, function));
    switch (kind) {
    case AssertFail:
        m_context << MEDCStr(": assert fail at \"") << MEDCStr(expression) << MEDCStr("\"; ");
        break;
    case MildAssertFail:
        m_context << MEDCStr(":  warning ! mild_assert fail at \"") << MEDCStr(expression) << MEDCStr("\"; ");
        break;
    case Trace:
        m_context << MEDCStr(": ");
        break;
    }
}

MsgctrReport::~MsgctrReport()
{
    MSGCTR_ENG_DbgCtrlCenter& sink = MSGCTR_ENG_DbgCtrlCenter::obj();
    switch (m_kind) {
    case AssertFail:
        sink.outputAssertFailMsg(m_context.data());
        break;
    case MildAssertFail:
        sink.outputMildAssertFailMsg(m_context.data());
        break;
    case Trace:
        sink.outputTraceMsg(m_context.data());
        break;
    }
}
