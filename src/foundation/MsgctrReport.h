// How the library writes its report lines. Each report is one temporary object: its location prefix is
// written at construction, values are streamed into its dump context, and the destructor hands the text
// to the report sink. Typical uses:
//
//   MSGCTR_ASSERT_FAIL_REPORT("false") << MSGCTR_VAL(struVp.unit) << MSGCTR_VAL(struVp.value);
//   MSGCTR_MILD_ASSERT_FAIL_REPORT("isValid()") << MSGCTR_VAL(pair.gateway);
//   MSGCTR_TRACE_REPORT() << MSGCTR_VAL(result) << MSGCTR_CMT(" too many user-defined-quick-text ");
//   MSGCTR_REPORT_IF_ERROR(msgctrErrcode);   // only when the code is not 0
#pragma once

#include "MSGCTR_ENG_DumpContext.h"
#include "MSGCTR_ERRCODE.h"
#include "msgctr_export.h"

class MSGCTR_EXPORT MsgctrReport {
public:
    enum Kind { AssertFail, MildAssertFail, Trace };

    MsgctrReport(Kind kind, const char* file, int line, const char* function, const char* expression);
    ~MsgctrReport();
    MsgctrReport(const MsgctrReport&) = delete;
    MsgctrReport& operator=(const MsgctrReport&) = delete;

    template <typename T>
    MsgctrReport& operator<<(const T& value)
    {
        m_context << value;
        return *this;
    }

    MSGCTR_ENG_DumpContext& context() { return m_context; }

private:
    Kind m_kind;
    MSGCTR_ENG_DumpContext m_context;
};

// A "name = value, " pair whose name is the expression as written.
#define MSGCTR_VAL(expr) MEDCStr(#expr " = ") << (expr) << MEDCStr(", ")
// A "label = value, " pair with a label of the caller's choice.
#define MSGCTR_NAMED_VAL(label, expr) MEDCStr(label " = ") << (expr) << MEDCStr(", ")
// A comment pair; the dump context folds it down to the bare comment text.
#define MSGCTR_CMT(text) MEDCStr("TRACE_CMT( " #text " ) = ") << TRACE_CMT(text) << MEDCStr(", ")

#define MSGCTR_ASSERT_FAIL_REPORT(expression) \
    MsgctrReport(MsgctrReport::AssertFail, __FILE__, __LINE__, __func__, expression)
#define MSGCTR_MILD_ASSERT_FAIL_REPORT(expression) \
    MsgctrReport(MsgctrReport::MildAssertFail, __FILE__, __LINE__, __func__, expression)
#define MSGCTR_TRACE_REPORT() MsgctrReport(MsgctrReport::Trace, __FILE__, __LINE__, __func__, nullptr)

// An error-result report: written only when the code is an error and error reporting is on.
#define MSGCTR_REPORT_IF_ERROR(code)                                                          \
    do {                                                                                      \
        if (MSGCTR_ERRCODE_IS_ERROR(code) && MSGCTR_ENG_ErrorCodeDef_chkErrorCodeEnabled())   \
            MSGCTR_ASSERT_FAIL_REPORT("false") << MSGCTR_VAL(code);                           \
    } while (0)

// A precondition check: reports the failed expression with the given values and goes on.
#define MSGCTR_CHECK(cond) \
    if (cond) {            \
    } else                 \
        MSGCTR_ASSERT_FAIL_REPORT(#cond)
