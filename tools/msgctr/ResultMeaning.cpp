// What the platform's and the library's result codes mean, for the one way msgctr reports a failed call.
#include "Verb.h"

#include "MSGCTR_ERRCODE.h"
#include "TAPI.h"

namespace msgctr {
namespace {

QString tapiMeaning(int result)
{
    switch (result) {
    case TAPI_RESULT_SUCC: return QStringLiteral("success");
    case TAPI_RESULT_IO_ERROR: return QStringLiteral("the modem's storage could not be read or written");
    case TAPI_RESULT_NO_MEMORY: return QStringLiteral("out of memory");
    case TAPI_RESULT_ACCESS_DENIED: return QStringLiteral("the SIM refuses the change");
    case TAPI_RESULT_INVALID_PARAM: return QStringLiteral("invalid argument");
    case TAPI_RESULT_LIST_FULL: return QStringLiteral("the list is full");
    case TAPI_RESULT_NOT_SUPPORTED: return QStringLiteral("not supported by the modem or SIM");
    case TAPI_RESULT_SIM_NOT_READY: return QStringLiteral("no usable SIM card");
    case TAPI_RESULT_NOT_FOUND: return QStringLiteral("not found");
    default: return QStringLiteral("unknown telephony result");
    }
}

QString errcodeMeaning(int code)
{
    if (code >= MSGCTR_ERRCODE__TAPI_UNMAPPED_BASE)
        return QStringLiteral("telephony result %1: %2").arg(code - MSGCTR_ERRCODE__TAPI_UNMAPPED_BASE)
            .arg(tapiMeaning(code - MSGCTR_ERRCODE__TAPI_UNMAPPED_BASE));
    if (code >= MSGCTR_ERRCODE__DM_FIRST && code <= MSGCTR_ERRCODE__DM_LAST)
        return QStringLiteral("the DM tree refused the operation");
    switch (code) {
    case MSGCTR_ERRCODE__SUCCESS: return QStringLiteral("success");
    case MSGCTR_ERRCODE__VOICEMAIL_COUNT_FAIL: return QStringLiteral("the voice-mail count could not be read or written");
    case MSGCTR_ERRCODE__ADDRBK_UNKNOWN_RESULT: return QStringLiteral("unknown address-book result");
    case MSGCTR_ERRCODE__TAPI_RESULT_819: return QStringLiteral("not found");
    case MSGCTR_ERRCODE__SETUP_WRITE_FAIL: return QStringLiteral("the configuration store refused the write");
    case MSGCTR_ERRCODE__SETUP_WRITE_NO_SPACE: return QStringLiteral("the disk is full");
    case MSGCTR_ERRCODE__SETUP_INVALID_CHAR:
        return QStringLiteral("the store cannot keep \"[\", \"]\", \"=\" or line breaks in this value");
    case MSGCTR_ERRCODE__CHANNEL_NOT_FOUND: return QStringLiteral("the channel is not in the list");
    case MSGCTR_ERRCODE__CHANNEL_ALREADY_EXISTS: return QStringLiteral("the channel is already in the list");
    case MSGCTR_ERRCODE__CHANNEL_OUT_OF_RANGE: return QStringLiteral("the channel number is out of range");
    case MSGCTR_ERRCODE__NO_FREE_LANGUAGE_SLOT: return QStringLiteral("no free language slot");
    case MSGCTR_ERRCODE__CANNOT_DISABLE_DEFAULT_LANGUAGE: return QStringLiteral("the system language cannot be switched off");
    case MSGCTR_ERRCODE__TAPI_RESULT_509: return QStringLiteral("no usable SIM card");
    case MSGCTR_ERRCODE__DM_FACTORY_INIT_FAIL: return QStringLiteral("the DM tree could not be opened");
    case MSGCTR_ERRCODE__DM_FACTORY_UNINIT_FAIL: return QStringLiteral("the DM tree could not be closed");
    case MSGCTR_ERRCODE__DM_UNKNOWN_RESULT: return QStringLiteral("unknown DM tree result");
    case MSGCTR_ERRCODE__TAPI_RESULT_305: return QStringLiteral("not supported by the modem or SIM");
    case MSGCTR_ERRCODE__INVALID_ARGUMENT: return QStringLiteral("invalid argument");
    case MSGCTR_ERRCODE__ADDRBK_RESULT_MINUS_100: return QStringLiteral("the address book failed");
    default: return QStringLiteral("unknown error");
    }
}

} // namespace

int tapiFailure(const QString& operation, int tapiResult)
{
    return fail(QStringLiteral("%1 failed: result %2 (%3)").arg(operation).arg(tapiResult).arg(tapiMeaning(tapiResult)));
}

int libraryFailure(const QString& operation, int msgctrErrcode)
{
    return fail(QStringLiteral("%1 failed: error %2 (%3)").arg(operation).arg(msgctrErrcode).arg(errcodeMeaning(msgctrErrcode)));
}

} // namespace msgctr
