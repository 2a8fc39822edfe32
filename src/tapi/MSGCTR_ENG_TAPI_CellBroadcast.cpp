// MSGCTR_ENG_TAPI: the cell-broadcast state, channel subscriptions and language slots of the telephony side.
#include "MSGCTR_ENG_TAPI.h"

#include "foundation/MsgctrReport.h"
#include "foundation/MsgctrVectorDump.h"
#include "tapi/MsgctrTapiCall.h"

#include <algorithm>
#include <cstdlib>

namespace {

const unsigned short kChannelNumberOutOfRange = 65535;

// The platform allocates the list arrays on the C heap, on failure too; the caller always frees them.
template <typename T>
struct PlatformArray {
    T* data = nullptr;
    ~PlatformArray() { std::free(data); }
};

} // namespace

MSGCTR_ERRCODE MSGCTR_ENG_TAPI::errcodeCbGetCbState(unsigned char* pState)
{
    unsigned char cbState = 0;
    const MSGCTR_ERRCODE msgctrErrcode = MSGCTR_TAPI_CALL(TAPI_CB_GetStatus(&cbState), MSGCTR_VAL(cbState));
    *pState = cbState;
    return msgctrErrcode;
}

MSGCTR_ERRCODE MSGCTR_ENG_TAPI::errcodeCbSetCbState(unsigned char cbState)
{
    return MSGCTR_TAPI_CALL(TAPI_CB_SetStatus(cbState), MSGCTR_VAL(cbState));
}

MSGCTR_ERRCODE MSGCTR_ENG_TAPI::errcodeCbAddCbChannel(unsigned short nChannelNumber)
{
    MSGCTR_CHECK(cbChannelNumberIsInValidRange( nChannelNumber )) << MSGCTR_VAL(nChannelNumber);
    return MSGCTR_TAPI_CALL(TAPI_CB_AddChannel(nChannelNumber), MSGCTR_VAL(nChannelNumber));
}

MSGCTR_ERRCODE MSGCTR_ENG_TAPI::errcodeCbRemoveCbChannel(unsigned short nChannelNumber)
{
    MSGCTR_CHECK(cbChannelNumberIsInValidRange( nChannelNumber )) << MSGCTR_VAL(nChannelNumber);
    return MSGCTR_TAPI_CALL(TAPI_CB_DeleteChannel(nChannelNumber), MSGCTR_VAL(nChannelNumber));
}

MSGCTR_ERRCODE MSGCTR_ENG_TAPI::errcodeCbListCbChannels(std::vector<unsigned short>* pChannels)
{
    std::vector<unsigned short>& rChannelsOutput = *pChannels;
    rChannelsOutput.clear();
    int nChannelCount = 0;
    PlatformArray<unsigned short> list;
    const MSGCTR_ERRCODE msgctrErrcode = MSGCTR_TAPI_CALL(
        TAPI_CB_GetChannelsEx(&nChannelCount, &list.data),
        MSGCTR_NAMED_VAL("pListChannel", static_cast<const void*>(list.data)) << MSGCTR_VAL(nChannelCount));
    if (MSGCTR_ERRCODE_IS_SUCCESS(msgctrErrcode)) {
        if (list.data)
            rChannelsOutput.assign(list.data, list.data + std::max(nChannelCount, 0));
        else
            MSGCTR_CHECK(nChannelCount <= 0) << MSGCTR_VAL(nChannelCount);
    }
    MSGCTR_TRACE_REPORT() << MSGCTR_NAMED_VAL("rChannelsOutput", msgctrVectorDump(rChannelsOutput));
    return msgctrErrcode;
}

MSGCTR_ERRCODE MSGCTR_ENG_TAPI::errcodeCbListCbLanguages(std::vector<unsigned char>* pLanguages)
{
    std::vector<unsigned char>& rLanguagesOutput = *pLanguages;
    rLanguagesOutput.clear();
    int nLanguageCount = 0;
    PlatformArray<unsigned char> list;
    const MSGCTR_ERRCODE msgctrErrcode = MSGCTR_TAPI_CALL(
        TAPI_CB_GetLanguagesEx(&nLanguageCount, &list.data),
        MSGCTR_NAMED_VAL("pListLanguage", static_cast<const void*>(list.data)) << MSGCTR_VAL(nLanguageCount));
    // A successful call without a list is simply no languages.
    if (MSGCTR_ERRCODE_IS_SUCCESS(msgctrErrcode) && list.data)
        rLanguagesOutput.assign(list.data, list.data + std::max(nLanguageCount, 0));
    MSGCTR_TRACE_REPORT() << MSGCTR_NAMED_VAL("rLanguagesOutput", msgctrVectorDump(rLanguagesOutput));
    return msgctrErrcode;
}

MSGCTR_ERRCODE MSGCTR_ENG_TAPI::errcodeCbEditCbLanguage(unsigned short nIndexOfLanguage, unsigned char language)
{
    return MSGCTR_TAPI_CALL(TAPI_CB_SetLanguage(nIndexOfLanguage, language),
                            MSGCTR_VAL(nIndexOfLanguage) << MSGCTR_VAL(language));
}

bool MSGCTR_ENG_TAPI::cbChannelNumberIsInValidRange(unsigned short nChannelNumber)
{
    return nChannelNumber < kChannelNumberOutOfRange;
}

bool MSGCTR_ENG_TAPI::cbChannelNumberIsInside(unsigned short nChannelNumber,
                                              const std::vector<unsigned short>& channels)
{
    return std::find(channels.begin(), channels.end(), nChannelNumber) != channels.end();
}

bool MSGCTR_ENG_TAPI::cbChannelNumberIsDuplicated(unsigned short nChannelNumber)
{
    std::vector<unsigned short> channels;
    MSGCTR_CHECK(MSGCTR_ERRCODE_IS_SUCCESS( errcodeCbListCbChannels( &channels ) ));
    return cbChannelNumberIsInside(nChannelNumber, channels);
}

bool MSGCTR_ENG_TAPI::preferredMsgStorageValueIsValid(unsigned int value)
{
    return value <= 2;
}
