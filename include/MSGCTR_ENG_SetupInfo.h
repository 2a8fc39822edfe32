// The messaging settings: one getter per key of the messaging groups of the configuration store and, where
// applications may change a key, one setter. Nothing is cached: every getter reads the store and every
// setter writes it, through one store handle kept open in the flush mode given to the constructor.
#pragma once

#include "MSGCTR_ENG_ObjectDependency.h"
#include "MSGCTR_ENG_Setup.h"
#include "MSGCTR_ERRCODE.h"
#include "msgctr_export.h"

#include <QString>
#include <QStringList>

#include <vector>

class MSGCTR_EXPORT MSGCTR_ENG_SetupInfo : public MSGCTR_ENG_ObjectDependency {
    Q_OBJECT
public:
    enum SMS_CHARACTER_ENCODING_MODE_E {
        SMS_CHARACTER_ENCODING_MODE__GSM_ALPHABET = 0,
        SMS_CHARACTER_ENCODING_MODE__AUTOMATIC = 1,
        SMS_CHARACTER_ENCODING_MODE__UCS2 = 2,
    };
    enum WAP_ALLOWED_PUSH_SMSC_MODE_E {
        WAP_ALLOWED_PUSH_SMSC_MODE__OFF = 0,
        WAP_ALLOWED_PUSH_SMSC_MODE__RECEIVE_ALL = 1,
        WAP_ALLOWED_PUSH_SMSC_MODE__RESTRICTED = 2,
    };
    enum PUSH_SL_SECURITY_E {
        PUSH_SL_SECURITY_ASK = 0,
        PUSH_SL_SECURITY_ALLOW = 1,
        PUSH_SL_SECURITY_DENY = 2,
    };

    static const char* const GROUP_MSGCTR_SMS;
    static const char* const GROUP_MSGCTR_GENERAL;
    static const char* const GROUP_MSGCTR_VM;
    static const char* const GROUP_MSGCTR_WAP;
    static const char* const GROUP_MSGCTR_INFO_SERV;
    static const char* const GROUP_4_DEBUG;

    explicit MSGCTR_ENG_SetupInfo(MSGCTR_ENG_Setup::FLUSH_MODE_E mode);
    ~MSGCTR_ENG_SetupInfo() override;

    MSGCTR_ENG_Setup& objSetupMsgctr() { return m_setup; }
    MSGCTR_ERRCODE flush();


    // GROUP_MSGCTR_SMS
    unsigned int getSeqNumOfSendByMul();
    MSGCTR_ERRCODE setSeqNumOfSendByMul(unsigned int value);
    QString getSignatureContent();
    MSGCTR_ERRCODE setSignatureContent(const QString& value);
    bool getSignatureAutoInclude();
    MSGCTR_ERRCODE setSignatureAutoInclude(bool value);
    bool getSmsDeliveryReportEnabledFlag();
    MSGCTR_ERRCODE setSmsDeliveryReportEnabled(bool value);
    unsigned int getIncomingSMSMsgPrefStorage();
    MSGCTR_ERRCODE setIncomingSMSMsgPrefStorage(unsigned int value);
    QString getIncomingSMSMsgPrefUserDefStorage();
    MSGCTR_ERRCODE setIncomingSMSMsgPrefUserDefStorage(const QString& value);
    unsigned int getIncomingMMSMsgPrefStorage();
    MSGCTR_ERRCODE setIncomingMMSMsgPrefStorage(unsigned int value);
    QString getIncomingMMSMsgPrefUserDefStorage();
    MSGCTR_ERRCODE setIncomingMMSMsgPrefUserDefStorage(const QString& value);
    int getSmsValidityTime();
    MSGCTR_ERRCODE setSmsValidityTime(int seconds);
    QString getEmailGateway();
    MSGCTR_ERRCODE setEmailGateway(const QString& value);
    bool getEmailMmsNotice();
    MSGCTR_ERRCODE setEmailMmsNotice(bool value);
    bool getEmailGatewaySettingWarning();
    MSGCTR_ERRCODE setEmailGatewaySettingWarning(bool value);
    void getUserDefinedQuickTexts(QStringList* out);
    static int getMaximumPermitCountOfUserDefineQuickTexts() { return 20; }
    bool allowManualChooseMsgTypeInComposer();
    int getMaxSmsUnit();
    int getMaxSmsValue();
    bool needRetrySendSms();
    std::vector<int> getRetrySendSmsTimeInterval();
    std::vector<int> getSmsValidityTimeListForSelection();
    int getMaxUserdefSMSProfNum();
    SMS_CHARACTER_ENCODING_MODE_E getSmsCharacterEncodingMode();
    MSGCTR_ERRCODE setSmsCharacterEncodingMode(SMS_CHARACTER_ENCODING_MODE_E mode);
    bool smsLongSmsFuncIsActivated();
    MSGCTR_ERRCODE setSmsLongSmsFuncIsActivated(bool value);

    // GROUP_MSGCTR_GENERAL
    bool needToSaveOutgoingMsg();
    MSGCTR_ERRCODE setNeedToSaveOutgoingMsg(bool value);

    // GROUP_MSGCTR_VM: line 1 is the second line ("...2" keys), every other line the first.
    QString getVoiceMailSrvCtrNumber(int line);
    MSGCTR_ERRCODE setVoiceMailSrvCtrNumber(int line, const QString& number);
    QString getVoiceMailSrvCtrName(int line);
    MSGCTR_ERRCODE setVoiceMailSrvCtrName(int line, const QString& name);
    unsigned int getVoiceMailCount(int line);
    MSGCTR_ERRCODE setVoiceMailCount(int line, unsigned int count);
    // Each call opens a store of its own; the writes are durable at once whatever mode callers use.
    static bool getImsiChangedFlag();
    static MSGCTR_ERRCODE setImsiChangedFlag(bool value);
    static bool getVoiceMailCountableFlag();
    static MSGCTR_ERRCODE setVoiceMailCountableFlag(bool value);

    // GROUP_MSGCTR_WAP: out-of-range modes and types are reported, then read or written as they are.
    int getWapAllowedPushSmscMode();
    MSGCTR_ERRCODE setWapAllowedPushSmscMode(int mode);
    QString getMaxSmscWhitelistRange();
    QString getMinSmscWhitelistRange();
    int getPushSerLoadingSecurityType();
    MSGCTR_ERRCODE setPushSerLoadingSecurityType(int type);

    // GROUP_MSGCTR_INFO_SERV
    bool needSaveInfoServQuickviewMsg();
    MSGCTR_ERRCODE setNeedSaveInfoServQuickviewMsg(bool value);
    std::vector<int> cbChannelSForIdleScrSilent();
    int cbMsgLengthForIdleScr();
    bool cellWideCbMsgFeatureAvailable();

    // GROUP_4_DEBUG
    bool outputDebugLogIsEnabled();
    MSGCTR_ERRCODE enableOutputDebugLog(bool value);

private:
    MSGCTR_ENG_Setup m_setup;
};

// True for the preferred-storage values 0, 1 and 2.
MSGCTR_EXPORT bool MSGCTR_ENG_SetupInfo__preferredMsgStorageValueIsValid(unsigned int value);
