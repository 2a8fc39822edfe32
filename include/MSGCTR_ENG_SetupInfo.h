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

    // A service centre allowed to send WAP push and its push-proxy gateway.
    struct MSGCTR_EXPORT WAP_PPG_INFO_S {
        QString m_strSmsc;
        QString m_strPpg;

        // Not blank, no "," and no ";".
        static bool isValidInput(const QString& field);
        static bool isValidSmsc(const QString& smsc);
        static bool isValidPpg(const QString& ppg);
        bool isValid() const;
        // The field without blanks at its ends and without "," and ";".
        static QString getValidatedData(const QString& field);
        // Both fields validated; an invalid pair is reported first.
        void validateData();
    };

    // One info-service (cell-broadcast) channel. Text form: number, name, quick view, predefined,
    // joined by ",": 50,Local,1,1.
    struct MSGCTR_EXPORT INFO_SERV_CHNL_INFO_S {
        int m_nChannelNum = -1;
        QString m_strChannelName;  // must not contain ","
        bool m_bQuickView = false;
        bool m_bPredefined = true;

        // False, with a report and *pstr empty, when the name holds ",".
        bool subToString(QString* pstr) const;
        // subToString, then a report when the text does not read back to itself.
        bool toString(QString* pstr) const;
        // Missing trailing fields keep quick view off and predefined on.
        static INFO_SERV_CHNL_INFO_S subToInfoServChnlInfo(const QString& str);
        // subToInfoServChnlInfo, then a report when the record does not write back to the text.
        static INFO_SERV_CHNL_INFO_S toInfoServChnlInfo(const QString& str);
        // A channel the user added: quick view off, not predefined.
        static INFO_SERV_CHNL_INFO_S toCiOfUserDefined(int nChannelNum, const QString& name);
    };

    // The stored channel list, in stored order.
    class MSGCTR_EXPORT InfoServAllChnlInfo : public std::vector<INFO_SERV_CHNL_INFO_S> {
    public:
        bool containsChannelNum(int nChannelNum) const;
        bool getChnlInfo(int nChannelNum, INFO_SERV_CHNL_INFO_S* pInfo) const;
        void addChannelNum(const INFO_SERV_CHNL_INFO_S& info);
        bool removeChannelNum(int nChannelNum);
        // Gives the channel a new name.
        bool updateChannelNum(int nChannelNum, const QString& name);
        // The numbers of the given list that this list lacks, and appending them as new channels.
        std::vector<int> getChnlSNotContains(const std::vector<int>& channelNums) const;
        void appendChnlSNotContains(const std::vector<int>& channelNums);
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
    // The read-only quick texts of the system language, from its resource file (en-gb reads en-us's).
    MSGCTR_ERRCODE getDefaultQuickTexts(QStringList* pDefaultQuickTexts);
    void getUserDefinedQuickTexts(QStringList* out);
    // More than the maximum is refused with a report and code 0; otherwise the list is written and the
    // dependants of this object reload.
    MSGCTR_ERRCODE setUserDefinedQuickTexts(const QStringList& quickTexts);
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
    // The allowed push pairs ("smsc,ppg" joined by ";"), each validated.
    std::vector<WAP_PPG_INFO_S> getWapAllowedPpgS();
    MSGCTR_ERRCODE setWapAllowedPpgS(const std::vector<WAP_PPG_INFO_S>& pairs);
    // The pairs of WHITELIST_PAIR1 to WHITELIST_PAIR10, in key order, empty keys skipped.
    std::vector<WAP_PPG_INFO_S> getWapWhitelistPairS();
    // The browser's push filter: "" when push is off, the allowed pairs joined by blanks when restricted,
    // else "*".
    QString getOperaPushWhitelist();
    QStringList getStrlistWapAllowedPushSmsc();
    // One pair per service centre, with an empty gateway.
    MSGCTR_ERRCODE setStrlistWapAllowedPushSmsc(const QStringList& smscs);
    static bool isValidSmscList(const QStringList& smscs);

    // GROUP_MSGCTR_INFO_SERV
    InfoServAllChnlInfo getInfoServAllChnlInfo();
    // Nothing is written, and 10020 returned, when a name holds ",", ";" or what the store cannot keep.
    MSGCTR_ERRCODE setInfoServAllChnlInfo(const InfoServAllChnlInfo& channels);
    // 10023 for a number out of the cell-broadcast range, 10022 for one listed already.
    MSGCTR_ERRCODE addInfoServChannel(int nChannelNum, const QString& name);
    // 10021 for a number not listed.
    MSGCTR_ERRCODE removeInfoServChannel(int nChannelNum);
    MSGCTR_ERRCODE updateInfoServChannel(int nChannelNum, const QString& name);
    MSGCTR_ERRCODE updateInfoServChannelQuickView(int nChannelNum, bool bQuickView);
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
