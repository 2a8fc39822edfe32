#include "MSGCTR_ENG_TAPI.h"

#include "foundation/DevicePath.h"
#include "foundation/MsgctrReport.h"
#include "tapi/MsgctrTapiCall.h"

#include "MSGCTR_ENG_StrUti.h"

#include <QFile>

#include <cstdio>

namespace {

struct TapiResultRow {
    int tapiResult;
    MSGCTR_ERRCODE msgctrErrcode;
};

// Searched from the first row; the first match wins.
const TapiResultRow kTapiResultTable[] = {
    {0, MSGCTR_ERRCODE__SUCCESS},
    {509, MSGCTR_ERRCODE__TAPI_RESULT_509},
    {305, MSGCTR_ERRCODE__TAPI_RESULT_305},
    {819, MSGCTR_ERRCODE__TAPI_RESULT_819},
    {22, MSGCTR_ERRCODE__INVALID_ARGUMENT},
};

struct UnitValueSeconds {
    unsigned int unit;
    int m_nSecondsPerUnit;
    int m_nMin;
    int m_nMax;
};

// The four segments of the relative TP-VP octet, in the order they are searched.
const UnitValueSeconds kUnitTable[] = {
    {0, 300, 1, 144},
    {1, 1800, 25, 48},
    {2, 86400, 2, 30},
    {3, 604800, 5, 63},
};
const int kUnitRows = int(sizeof kUnitTable / sizeof kUnitTable[0]);

const int gn_MCET_SecSIn_WEEK = 604800;

// What the network side was last told about the message storage.
enum FlashState { FlashAvailable = 0, FlashFull = 1, FlashNotReported = 2 };
int s_flashState = FlashNotReported;

const unsigned char kTransportModeGprsOff = 1;
const unsigned char kTransportModeGprsOn = 2;

const char* const kDebugFile = "/tmp/message_log.data";
FILE* s_debugFile = nullptr;

const unsigned short kNoGsmEquivalent = 65535;

// The service-centre address buffer: 41 characters and the terminating NUL.
const int kServiceCenterBufferSize = 42;

bool expirePeriodToOctet(const _TAPI_SMS_EXPIRE_PERIOD_DATA_S& struVp, unsigned char* octet)
{
    _TAPI_SMS_EXPIRE_PERIOD_DATA_S copy = struVp;
    *octet = 0;
    return TAPI_SMS_ExpirePeriodToUINT8(&copy, octet) != 0;
}

} // namespace

MSGCTR_ENG_TAPI::~MSGCTR_ENG_TAPI() = default;

MSGCTR_ERRCODE MSGCTR_ENG_TAPI::msgctrErrcodeFromTapiResult(_TAPI_RESULT_E tapiResult)
{
    for (const TapiResultRow& row : kTapiResultTable) {
        if (row.tapiResult == int(tapiResult))
            return row.msgctrErrcode;
    }
    return MSGCTR_ERRCODE__TAPI_UNMAPPED_BASE + int(tapiResult);
}

bool MSGCTR_ENG_TAPI::traceTAPI()
{
    return true;
}

_TAPI_SMS_EXPIRE_PERIOD_DATA_S MSGCTR_ENG_TAPI::struVpOfMaximum()
{
    _TAPI_SMS_EXPIRE_PERIOD_DATA_S struVp;
    struVp.unit = static_cast<decltype(struVp.unit)>(3);
    struVp.value = 63;
    return struVp;
}

unsigned char MSGCTR_ENG_TAPI::u8VpOfMaximum()
{
    const _TAPI_SMS_EXPIRE_PERIOD_DATA_S struVp = struVpOfMaximum();
    unsigned char octet = 0;
    if (!expirePeriodToOctet(struVp, &octet)) {
        MSGCTR_ASSERT_FAIL_REPORT("false") << MSGCTR_NAMED_VAL("struVp.unit", int(struVp.unit))
                                          << MSGCTR_VAL(struVp.value);
        return 0;
    }
    return octet;
}

unsigned char MSGCTR_ENG_TAPI::toU8VpFromStruVp(const _TAPI_SMS_EXPIRE_PERIOD_DATA_S& struVp)
{
    unsigned char octet = 0;
    if (!expirePeriodToOctet(struVp, &octet)) {
        MSGCTR_ASSERT_FAIL_REPORT("false") << MSGCTR_NAMED_VAL("struVp.unit", int(struVp.unit))
                                          << MSGCTR_VAL(struVp.value);
        return u8VpOfMaximum();
    }
    return octet;
}

_TAPI_SMS_EXPIRE_PERIOD_DATA_S MSGCTR_ENG_TAPI::toStruVpFromSecondS(int nSecondSInput)
{
    int nNewSecondS = 0;
    return toStruVpFromSecondS(&nNewSecondS, nSecondSInput);
}

_TAPI_SMS_EXPIRE_PERIOD_DATA_S MSGCTR_ENG_TAPI::toStruVpFromSecondS(int* pNewSecondS, int nSecondSInput)
{
    // Zero and negative periods mean the longest one.
    int nNewSecondS = nSecondSInput;
    if (nSecondSInput < 1)
        nNewSecondS = toSecondSFromStruVp(struVpOfMaximum());

    // Below a row's range (the gaps between rows included) rounds up to its smallest period; above the last
    // row clamps to its largest.
    int row = 0;
    for (; row < kUnitRows; ++row) {
        const UnitValueSeconds& uvs = kUnitTable[row];
        const int lo = uvs.m_nSecondsPerUnit * uvs.m_nMin;
        const int hi = uvs.m_nSecondsPerUnit * uvs.m_nMax;
        if (nNewSecondS < lo) {
            nNewSecondS = lo;
            break;
        }
        if (nNewSecondS <= hi)
            break;
        if (row == kUnitRows - 1) {
            nNewSecondS = hi;
            break;
        }
    }

    const UnitValueSeconds& uvs = kUnitTable[row];
    _TAPI_SMS_EXPIRE_PERIOD_DATA_S struVp;
    struVp.unit = static_cast<decltype(struVp.unit)>(uvs.unit);
    struVp.value = static_cast<unsigned char>(nNewSecondS / uvs.m_nSecondsPerUnit);

    MSGCTR_CHECK(uvs.m_nMin <= struVp.value && struVp.value <= uvs.m_nMax)
        << MSGCTR_VAL(uvs.m_nMin) << MSGCTR_VAL(struVp.value) << MSGCTR_VAL(uvs.m_nMax);
    if (!((nSecondSInput > 0) || (nNewSecondS > gn_MCET_SecSIn_WEEK * 63 - 1)))
        MSGCTR_ASSERT_FAIL_REPORT("(nSecondSInput > 0) || (nNewSecondS >= ( gn_MCET_SecSIn_WEEK * 63 ))")
            << MSGCTR_VAL(nNewSecondS);

    *pNewSecondS = nNewSecondS;
    return struVp;
}

int MSGCTR_ENG_TAPI::toSecondSFromStruVp(const _TAPI_SMS_EXPIRE_PERIOD_DATA_S& struVp)
{
    for (const UnitValueSeconds& uvs : kUnitTable) {
        if (uvs.unit == static_cast<unsigned int>(struVp.unit)) {
            const int nSecondS = int(struVp.value) * uvs.m_nSecondsPerUnit;
            MSGCTR_CHECK(nSecondS > 0);
            return nSecondS;
        }
    }
    MSGCTR_ASSERT_FAIL_REPORT("nSecondS > 0");
    return -1;
}

unsigned char MSGCTR_ENG_TAPI::toU8VpFromSecondS(int nSecondS)
{
    return toU8VpFromStruVp(toStruVpFromSecondS(nSecondS));
}

MSGCTR_ERRCODE MSGCTR_ENG_TAPI::errcodeSetSmsServiceCenterNumber(const QString& rSvctrNumber)
{
    MSGCTR_TRACE_REPORT() << MSGCTR_VAL(rSvctrNumber);

    char szServiceCenter[kServiceCenterBufferSize];
    MSGCTR_ENG_StrUti::copyToU8StrBufFromQCStringWithTruncateWarning(szServiceCenter, sizeof szServiceCenter,
                                                                      rSvctrNumber.toLatin1());

    MsgctrTapiFailureReport failure;
    failure.expression = "MSGCTR_ERRCODE_IS_SUCCESS( msgctrErrcode )";
    failure.unconditional = true;
    return msgctrTapiCall(
        MSGCTR_TAPI_SITE, [&] { return int(TAPI_SMS_SetServiceCenter(szServiceCenter)); },
        MSGCTR_TAPI_VALUES(MSGCTR_VAL(rSvctrNumber) << MSGCTR_VAL(szServiceCenter)),
        MSGCTR_TAPI_VALUES(MSGCTR_VAL(rSvctrNumber) << MSGCTR_VAL(szServiceCenter)),
        MSGCTR_TAPI_VALUES(MSGCTR_VAL(rSvctrNumber)), failure);
}

MSGCTR_ERRCODE MSGCTR_ENG_TAPI::errcodeGetSmsServiceCenterNumber(QString* pSvctrNumber)
{
    QString strSvctrNumber;
    char phoneNumber[kServiceCenterBufferSize] = {};
    const MSGCTR_ERRCODE msgctrErrcode = msgctrTapiCall(
        MSGCTR_TAPI_SITE, [&] { return int(TAPI_SMS_GetServiceCenter(phoneNumber)); }, {},
        MSGCTR_TAPI_VALUES(MSGCTR_VAL(phoneNumber)), {});
    if (MSGCTR_ERRCODE_IS_SUCCESS(msgctrErrcode)) {
        strSvctrNumber = MSGCTR_ENG_StrUti::qstringFrom(reinterpret_cast<const unsigned char*>(phoneNumber));
        MSGCTR_TRACE_REPORT() << MSGCTR_VAL(strSvctrNumber);
        MSGCTR_CHECK(!strSvctrNumber.isEmpty());
        *pSvctrNumber = strSvctrNumber;
    }
    return msgctrErrcode;
}

MSGCTR_ERRCODE MSGCTR_ENG_TAPI::errcodeNotifTapiThatFlashAvailable()
{
    if (s_flashState == FlashAvailable)
        return MSGCTR_ERRCODE__SUCCESS;
    const MSGCTR_ERRCODE msgctrErrcode =
        msgctrTapiCall(MSGCTR_TAPI_SITE, [] { return int(TAPI_SMS_NotifyMeStorageAvail()); }, {}, {}, {});
    if (MSGCTR_ERRCODE_IS_SUCCESS(msgctrErrcode))
        s_flashState = FlashAvailable;
    return msgctrErrcode;
}

MSGCTR_ERRCODE MSGCTR_ENG_TAPI::errcodeNotifTapiThatFlashFull()
{
    if (s_flashState == FlashFull)
        return MSGCTR_ERRCODE__SUCCESS;
    const MSGCTR_ERRCODE msgctrErrcode =
        msgctrTapiCall(MSGCTR_TAPI_SITE, [] { return int(TAPI_SMS_NotifyMeStorageFull()); }, {}, {}, {});
    if (MSGCTR_ERRCODE_IS_SUCCESS(msgctrErrcode))
        s_flashState = FlashFull;
    return msgctrErrcode;
}

bool MSGCTR_ENG_TAPI::supportsSmsOverGprsFeature()
{
    unsigned char mode = 0;
    const bool supported = TAPI_SMS_GetSmsTransportMode(&mode) == TAPI_RESULT_SUCC;

    const int secondResult = int(TAPI_SMS_GetSmsTransportMode(&mode));
    s_debugFile = std::fopen(QFile::encodeName(msgctrDevicePath(kDebugFile)).constData(), "ab+");
    if (s_debugFile) {
        std::fprintf(s_debugFile, "\n\nw70411: %s, %s, %d \nw70411: \"TAPI_SMS_GetSmsTransportMode: %d\"\n",
                     "MSGCTR_ENG_TAPI", "supportsSmsOverGprsFeature", __LINE__, secondResult);
        std::fflush(s_debugFile);
        std::fclose(s_debugFile);
        s_debugFile = nullptr;
    }
    return supported;
}

bool MSGCTR_ENG_TAPI::smsOverGprsSwitchIsEnabled()
{
    MSGCTR_CHECK(supportsSmsOverGprsFeature());
    unsigned char mode = kTransportModeGprsOff;
    MSGCTR_CHECK(TAPI_RESULT_SUCC == TAPI_SMS_GetSmsTransportMode( &mode ));
    return mode == kTransportModeGprsOn;
}

MSGCTR_ERRCODE MSGCTR_ENG_TAPI::enableSmsOverGprsSwitch(bool bEnable)
{
    const unsigned char mode = bEnable ? kTransportModeGprsOn : kTransportModeGprsOff;
    MsgctrTapiFailureReport failure;
    failure.withTapiResult = false;
    return msgctrTapiCall(
        MSGCTR_TAPI_SITE, [&] { return int(TAPI_SMS_SetSmsTransportMode(mode)); },
        MSGCTR_TAPI_VALUES(MSGCTR_VAL(bEnable) << MSGCTR_VAL(mode)),
        MSGCTR_TAPI_VALUES(MSGCTR_VAL(bEnable) << MSGCTR_VAL(mode)), {}, failure);
}

bool MSGCTR_ENG_TAPI::containsOnlyGSMChar(const QString& text)
{
    // The terminating zero goes through the conversion too.
    const int n = text.length() + 1;
    unsigned short* ucs2 = MSGCTR_ENG_StrUti::createU16StringFrom(text);
    unsigned char* gsm = new unsigned char[n + 1];
    const unsigned short result = TAPI_UTIL_ConvertUcs2StringToGsmString(
        ucs2, static_cast<unsigned short>(n), gsm, static_cast<unsigned short>(n));
    delete[] gsm;
    delete[] ucs2;
    return result != kNoGsmEquivalent;
}
