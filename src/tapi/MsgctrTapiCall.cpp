#include "tapi/MsgctrTapiCall.h"

#include "MSGCTR_ENG_TAPI.h"

MSGCTR_ERRCODE msgctrTapiCall(const MsgctrTapiSite& site, MsgctrTapiFunction call, MsgctrTapiValues before,
                              MsgctrTapiValues after, MsgctrTapiValues failed,
                              const MsgctrTapiFailureReport& failure)
{
    if (MSGCTR_ENG_TAPI::traceTAPI()) {
        MsgctrReport trace(MsgctrReport::Trace, site.file, site.line, site.function, nullptr);
        if (before)
            before(trace);
        else
            trace << MSGCTR_CMT("");
    }

    const int tapiResult = call();

    if (MSGCTR_ENG_TAPI::traceTAPI()) {
        MsgctrReport trace(MsgctrReport::Trace, site.file, site.line, site.function, nullptr);
        if (after)
            after(trace);
        trace << MSGCTR_VAL(tapiResult);
    }

    const MSGCTR_ERRCODE msgctrErrcode =
        MSGCTR_ENG_TAPI::msgctrErrcodeFromTapiResult(static_cast<_TAPI_RESULT_E>(tapiResult));
    if (MSGCTR_ERRCODE_IS_ERROR(msgctrErrcode)
        && (failure.unconditional || MSGCTR_ENG_ErrorCodeDef_chkErrorCodeEnabled())) {
        MsgctrReport report(MsgctrReport::AssertFail, site.file, site.line, site.function, failure.expression);
        report << MSGCTR_VAL(msgctrErrcode);
        if (failed)
            failed(report);
        if (failure.withTapiResult)
            report << MSGCTR_VAL(tapiResult);
    }
    return msgctrErrcode;
}
