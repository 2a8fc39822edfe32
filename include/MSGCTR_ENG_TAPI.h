// The library's one doorway to the telephony API: every operation calls one TAPI function, traces the call
// before and after, turns the TAPI result into an MSGCTR_ERRCODE and reports what it did not expect.
#pragma once

#include "MSGCTR_ERRCODE.h"
#include "msgctr_export.h"

#include "TAPI.h"

#include <QString>

#include <vector>

class MSGCTR_EXPORT MSGCTR_ENG_TAPI {
public:
    MSGCTR_ENG_TAPI() = default;
    virtual ~MSGCTR_ENG_TAPI();

    // Results 0, 509, 305, 819 and 22 have their own codes; any other result r becomes 100000 + r.
    static MSGCTR_ERRCODE msgctrErrcodeFromTapiResult(_TAPI_RESULT_E tapiResult);
    static bool traceTAPI();

    // Relative validity period: a unit/value pair of the platform, its TP-VP octet, and seconds.
    static _TAPI_SMS_EXPIRE_PERIOD_DATA_S struVpOfMaximum();
    static unsigned char u8VpOfMaximum();
    static unsigned char toU8VpFromStruVp(const _TAPI_SMS_EXPIRE_PERIOD_DATA_S& struVp);
    static _TAPI_SMS_EXPIRE_PERIOD_DATA_S toStruVpFromSecondS(int nSecondSInput);
    // *pNewSecondS gets the seconds after rounding into the table, sub-unit remainder included: the period
    // the network gets is toSecondSFromStruVp() of the pair.
    static _TAPI_SMS_EXPIRE_PERIOD_DATA_S toStruVpFromSecondS(int* pNewSecondS, int nSecondSInput);
    static int toSecondSFromStruVp(const _TAPI_SMS_EXPIRE_PERIOD_DATA_S& struVp);
    static unsigned char toU8VpFromSecondS(int nSecondS);

    // SMS service centre of the SIM; numbers longer than 41 characters are cut.
    static MSGCTR_ERRCODE errcodeSetSmsServiceCenterNumber(const QString& rSvctrNumber);
    static MSGCTR_ERRCODE errcodeGetSmsServiceCenterNumber(QString* pSvctrNumber);

    // Message storage full / free again; each is passed on only when it changes what was last told.
    static MSGCTR_ERRCODE errcodeNotifTapiThatFlashAvailable();
    static MSGCTR_ERRCODE errcodeNotifTapiThatFlashFull();

    // SMS over GPRS.
    static bool supportsSmsOverGprsFeature();
    static bool smsOverGprsSwitchIsEnabled();
    static MSGCTR_ERRCODE enableSmsOverGprsSwitch(bool bEnable);

    // True when every character has a GSM 7-bit default alphabet (or extension table) equivalent.
    static bool containsOnlyGSMChar(const QString& text);

    // Cell broadcast. The state byte is the platform's and passes through unchanged; *pState is written
    // in every case (0 when the platform did not fill it).
    static MSGCTR_ERRCODE errcodeCbGetCbState(unsigned char* pState);
    static MSGCTR_ERRCODE errcodeCbSetCbState(unsigned char cbState);
    // A channel out of range is reported and still handed to the platform.
    static MSGCTR_ERRCODE errcodeCbAddCbChannel(unsigned short nChannelNumber);
    static MSGCTR_ERRCODE errcodeCbRemoveCbChannel(unsigned short nChannelNumber);
    // The subscribed channels in the platform's order; empty on failure.
    static MSGCTR_ERRCODE errcodeCbListCbChannels(std::vector<unsigned short>* pChannels);
    // The language codes of the slots in slot order; empty on failure.
    static MSGCTR_ERRCODE errcodeCbListCbLanguages(std::vector<unsigned char>* pLanguages);
    static MSGCTR_ERRCODE errcodeCbEditCbLanguage(unsigned short nIndexOfLanguage, unsigned char language);
    // Channels 0 to 65534.
    static bool cbChannelNumberIsInValidRange(unsigned short nChannelNumber);
    static bool cbChannelNumberIsInside(unsigned short nChannelNumber, const std::vector<unsigned short>& channels);
    // Whether the channel is subscribed already; a failed listing counts as no channels.
    static bool cbChannelNumberIsDuplicated(unsigned short nChannelNumber);
    // 0, 1 and 2.
    static bool preferredMsgStorageValueIsValid(unsigned int value);
};
