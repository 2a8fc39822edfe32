#include "MSGCTR_ENG_SetupInfo.h"

#include "foundation/MsgctrReport.h"
#include "settings/SetupInfoKeys.h"

#include <QLatin1String>

const char* const MSGCTR_ENG_SetupInfo::GROUP_MSGCTR_SMS = "GROUP_MSGCTR_SMS";
const char* const MSGCTR_ENG_SetupInfo::GROUP_MSGCTR_GENERAL = "GROUP_MSGCTR_GENERAL";
const char* const MSGCTR_ENG_SetupInfo::GROUP_MSGCTR_VM = "GROUP_MSGCTR_VM";
const char* const MSGCTR_ENG_SetupInfo::GROUP_MSGCTR_WAP = "GROUP_MSGCTR_WAP";
const char* const MSGCTR_ENG_SetupInfo::GROUP_MSGCTR_INFO_SERV = "GROUP_MSGCTR_INFO_SERV";
const char* const MSGCTR_ENG_SetupInfo::GROUP_4_DEBUG = "GROUP_4_DEBUG";

namespace {

using Info = MSGCTR_ENG_SetupInfo;

QList<Info::KEY_S> buildKeyTable()
{
    const QString nullText;
    const QString emptyText = QLatin1String("");
    const char* const sms = Info::GROUP_MSGCTR_SMS;
    const char* const vm = Info::GROUP_MSGCTR_VM;
    const char* const wap = Info::GROUP_MSGCTR_WAP;
    const char* const infoServ = Info::GROUP_MSGCTR_INFO_SERV;
    QList<Info::KEY_S> table{
        {sms, "SEQ_NUM_OF_SEND_BY_MUL", Info::VALUE_TYPE__UINT, 0u, Info::ACCESS__GET_SET},
        {sms, "SIGNATURE_CONTENT", Info::VALUE_TYPE__ANY_TEXT, nullText, Info::ACCESS__GET_SET},
        {sms, "SIGNATURE_AUTO_INCLUDE", Info::VALUE_TYPE__BOOL, false, Info::ACCESS__GET_SET},
        {sms, "SMS_DELIVERY_REPORT_ENABLED_FLAG", Info::VALUE_TYPE__BOOL, false, Info::ACCESS__GET_SET},
        {sms, "INCOM_SMS_PREF_STORAGE", Info::VALUE_TYPE__UINT, 0u, Info::ACCESS__GET_SET},
        {sms, "INCOM_SMS_MSG_PREF_USER_DEF_STORAGE", Info::VALUE_TYPE__TEXT, QStringLiteral("Inbox"),
         Info::ACCESS__GET_SET},
        // Kept in the SMS group on purpose.
        {sms, "INCOM_MMS_MSG_PREF_STORAGE", Info::VALUE_TYPE__UINT, 0u, Info::ACCESS__GET_SET},
        {sms, "INCOM_MMS_MSG_PREF_USER_DEF_STORAGE", Info::VALUE_TYPE__TEXT, QStringLiteral("Inbox"),
         Info::ACCESS__GET_SET},
        {sms, "SMS_VALIDITY_TIME", Info::VALUE_TYPE__INT, -1, Info::ACCESS__GET_SET},
        {sms, "EMAIL_GATEWAY", Info::VALUE_TYPE__TEXT, emptyText, Info::ACCESS__GET_SET},
        {sms, "EMAIL_MMS_NOTICE", Info::VALUE_TYPE__BOOL, false, Info::ACCESS__GET_SET},
        {sms, "EMAIL_GATEWAY_WARNING", Info::VALUE_TYPE__BOOL, true, Info::ACCESS__GET_SET},
        {sms, "USER_DEF_QUICK_TEXTS", Info::VALUE_TYPE__TEXT_LIST, QStringList(), Info::ACCESS__GET_SET},
        {sms, "ALLOW_MANUAL_CHOOSE_MSG_TYPE_IN_COMPOSER", Info::VALUE_TYPE__BOOL, true, Info::ACCESS__GET},
        {sms, "MAX_SMS_UNIT", Info::VALUE_TYPE__INT, 0, Info::ACCESS__GET},
        {sms, "MAX_SMS_VALUE", Info::VALUE_TYPE__INT, 10, Info::ACCESS__GET},
        {sms, "NEED_RETRY_SEND_SMS", Info::VALUE_TYPE__BOOL, false, Info::ACCESS__GET},
        {sms, "RETRY_SEND_SMS_TIME_INTERVAL", Info::VALUE_TYPE__INT_LIST, QVariant::fromValue(QList<int>{5, 10}),
         Info::ACCESS__GET},
        {sms, "SMS_VALIDITY_TIME_LIST_FOR_SELECTION", Info::VALUE_TYPE__INT_LIST,
         QVariant::fromValue(QList<int>{3600, 21600, 86400, 604800, -1}), Info::ACCESS__GET},
        {sms, "SMS_MAX_USERDEF_SMS_PROF_NUM", Info::VALUE_TYPE__INT, 5, Info::ACCESS__GET},
        {sms, "SMS_CHARACTER_ENCODING_MODE", Info::VALUE_TYPE__INT, int(Info::SMS_CHARACTER_ENCODING_MODE__AUTOMATIC),
         Info::ACCESS__GET_SET},
        {sms, "SMS_LONG_SMS_FUNC_ACTIVATED", Info::VALUE_TYPE__BOOL, true, Info::ACCESS__GET_SET},
        {Info::GROUP_MSGCTR_GENERAL, "MSG_SAVE_OUTGOING", Info::VALUE_TYPE__BOOL, true, Info::ACCESS__GET_SET},
        {vm, "VOICE_MAIL_SRV_CTR_NUMBER", Info::VALUE_TYPE__TEXT, nullText, Info::ACCESS__GET_SET},
        {vm, "VOICE_MAIL_SRV_CTR_NUMBER2", Info::VALUE_TYPE__TEXT, nullText, Info::ACCESS__GET_SET},
        {vm, "VOICE_MAIL_SRV_CTR_NAME", Info::VALUE_TYPE__TEXT, nullText, Info::ACCESS__GET_SET},
        {vm, "VOICE_MAIL_SRV_CTR_NAME2", Info::VALUE_TYPE__TEXT, nullText, Info::ACCESS__GET_SET},
        {vm, "VOICE_MAIL_COUNT", Info::VALUE_TYPE__UINT, 0u, Info::ACCESS__GET_SET},
        {vm, "VOICE_MAIL_COUNT2", Info::VALUE_TYPE__UINT, 0u, Info::ACCESS__GET_SET},
        {vm, "IMSI_CHANGED_FLAG", Info::VALUE_TYPE__BOOL, false, Info::ACCESS__STATIC_GET_SET},
        {vm, "VOICE_MAIL_COUNTABLE", Info::VALUE_TYPE__BOOL, false, Info::ACCESS__STATIC_GET_SET},
        {wap, "WAP_ALLOWED_PUSH_SMSC_MODE", Info::VALUE_TYPE__INT, int(Info::WAP_ALLOWED_PUSH_SMSC_MODE__RECEIVE_ALL),
         Info::ACCESS__GET_SET},
        {wap, "WAP_ALLOWED_PPG_S", Info::VALUE_TYPE__TEXT, nullText, Info::ACCESS__GET_SET},
    };
    static const char* const whitelistKeys[] = {
        "WHITELIST_PAIR1", "WHITELIST_PAIR2", "WHITELIST_PAIR3", "WHITELIST_PAIR4", "WHITELIST_PAIR5",
        "WHITELIST_PAIR6", "WHITELIST_PAIR7", "WHITELIST_PAIR8", "WHITELIST_PAIR9", "WHITELIST_PAIR10",
    };
    for (const char* key : whitelistKeys)
        table.append({wap, key, Info::VALUE_TYPE__TEXT, nullText, Info::ACCESS__GET});
    table.append({
        {wap, "MAX_VALID_SMSC", Info::VALUE_TYPE__TEXT, nullText, Info::ACCESS__GET},
        {wap, "MIN_VALID_SMSC", Info::VALUE_TYPE__TEXT, nullText, Info::ACCESS__GET},
        {wap, "PUSH_SER_LOADING_SECURITY_TYPE", Info::VALUE_TYPE__INT, int(Info::PUSH_SL_SECURITY_ASK),
         Info::ACCESS__GET_SET},
        {infoServ, "INFO_SERV_CHANNEL_LIST", Info::VALUE_TYPE__TEXT, emptyText, Info::ACCESS__GET_SET},
        {infoServ, "SAVE_INFO_SERV_QUICKVIEW_MSG", Info::VALUE_TYPE__BOOL, true, Info::ACCESS__GET_SET},
        {infoServ, "CB_CHNLS_IDL_SL", Info::VALUE_TYPE__INT_LIST, QVariant::fromValue(QList<int>{50}),
         Info::ACCESS__GET},
        {infoServ, "CB_MAX_LEN_IDL", Info::VALUE_TYPE__INT, 15, Info::ACCESS__GET},
        {infoServ, "CELL_WIDE_CB", Info::VALUE_TYPE__BOOL, true, Info::ACCESS__GET},
        {Info::GROUP_4_DEBUG, "OUTPUT_DEBUG_LOG", Info::VALUE_TYPE__BOOL, false, Info::ACCESS__GET_SET},
    });
    return table;
}

const Info::KEY_S& lineKey(int line, SetupInfoKeyId firstLine, SetupInfoKeyId secondLine)
{
    return setupInfoKey(line == 1 ? secondLine : firstLine);
}

std::vector<int> toVector(const QVariant& value)
{
    const QList<int> list = value.value<QList<int>>();
    return std::vector<int>(list.begin(), list.end());
}

bool pushSmscModeIsValid(int nMode)
{
    return Info::WAP_ALLOWED_PUSH_SMSC_MODE__OFF == nMode || Info::WAP_ALLOWED_PUSH_SMSC_MODE__RECEIVE_ALL == nMode
        || Info::WAP_ALLOWED_PUSH_SMSC_MODE__RESTRICTED == nMode;
}

bool pushSerLoadingSecurityTypeIsValid(int nPushSerLoadingSecurityType)
{
    return (Info::PUSH_SL_SECURITY_ASK == nPushSerLoadingSecurityType)
        || (Info::PUSH_SL_SECURITY_ALLOW == nPushSerLoadingSecurityType)
        || (Info::PUSH_SL_SECURITY_DENY == nPushSerLoadingSecurityType);
}

// The report texts name the checks as written in the range rules.
#define CHECK_PUSH_SMSC_MODE(nMode)                                                                      \
    if (pushSmscModeIsValid(nMode)) {                                                                    \
    } else                                                                                               \
        MSGCTR_ASSERT_FAIL_REPORT("WAP_ALLOWED_PUSH_SMSC_MODE__OFF == nMode || "                         \
                                  "WAP_ALLOWED_PUSH_SMSC_MODE__RECEIVE_ALL == nMode || "                 \
                                  "WAP_ALLOWED_PUSH_SMSC_MODE__RESTRICTED == nMode")                     \
            << MSGCTR_VAL(nMode)

#define CHECK_PUSH_SER_LOADING_SECURITY_TYPE(nPushSerLoadingSecurityType)                                \
    if (pushSerLoadingSecurityTypeIsValid(nPushSerLoadingSecurityType)) {                                \
    } else                                                                                               \
        MSGCTR_ASSERT_FAIL_REPORT("(PUSH_SL_SECURITY_ASK == nPushSerLoadingSecurityType) || "            \
                                  "(PUSH_SL_SECURITY_ALLOW == nPushSerLoadingSecurityType) || "          \
                                  "(PUSH_SL_SECURITY_DENY == nPushSerLoadingSecurityType)")              \
            << MSGCTR_VAL(nPushSerLoadingSecurityType)

// Every read of a preferred storage leaves a trace of the value.
#define CHECK_AND_TRACE_PREF_STORAGE(nPrefStorage)                                                            \
    do {                                                                                                     \
        MSGCTR_CHECK(MSGCTR_ENG_SetupInfo__preferredMsgStorageValueIsValid(nPrefStorage))                     \
            << MSGCTR_VAL(nPrefStorage);                                                                     \
        MSGCTR_TRACE_REPORT() << MSGCTR_VAL(nPrefStorage);                                                   \
    } while (0)

} // namespace

const MSGCTR_ENG_SetupInfo::KEY_S& setupInfoKey(SetupInfoKeyId id)
{
    return MSGCTR_ENG_SetupInfo::keyTable().at(id);
}

bool MSGCTR_ENG_SetupInfo__preferredMsgStorageValueIsValid(unsigned int value)
{
    return value <= 2;
}

MSGCTR_ENG_SetupInfo::MSGCTR_ENG_SetupInfo(MSGCTR_ENG_Setup::FLUSH_MODE_E mode)
    : MSGCTR_ENG_ObjectDependency(false)
    , m_setup(MSGCTR_ENG_Setup::MSGCTR_APP_ID, mode)
{
}

MSGCTR_ENG_SetupInfo::~MSGCTR_ENG_SetupInfo() = default;

MSGCTR_ERRCODE MSGCTR_ENG_SetupInfo::flush()
{
    return m_setup.flush();
}

const QList<MSGCTR_ENG_SetupInfo::KEY_S>& MSGCTR_ENG_SetupInfo::keyTable()
{
    static const QList<KEY_S> table = buildKeyTable();
    Q_ASSERT(table.size() == SETUP_INFO_KEY_COUNT);
    return table;
}

const MSGCTR_ENG_SetupInfo::KEY_S* MSGCTR_ENG_SetupInfo::findKey(const QString& group, const QString& key)
{
    for (const KEY_S& entry : keyTable()) {
        if (group == QLatin1String(entry.group) && key == QLatin1String(entry.key))
            return &entry;
    }
    return nullptr;
}

QVariant MSGCTR_ENG_SetupInfo::readKey(MSGCTR_ENG_Setup& store, const KEY_S& key)
{
    const QString group = QLatin1String(key.group);
    const QString name = QLatin1String(key.key);
    switch (key.type) {
    case VALUE_TYPE__INT: {
        int value = 0;
        store.getEntry(group, name, &value, key.defaultValue.toInt());
        return value;
    }
    case VALUE_TYPE__UINT: {
        unsigned int value = 0;
        store.getEntry(group, name, &value, key.defaultValue.toUInt());
        return value;
    }
    case VALUE_TYPE__BOOL: {
        bool value = false;
        store.getEntry(group, name, &value, key.defaultValue.toBool());
        return value;
    }
    case VALUE_TYPE__TEXT: {
        QString value;
        store.getEntry(group, name, &value, key.defaultValue.toString(), false);
        return value;
    }
    case VALUE_TYPE__ANY_TEXT: {
        QString value;
        store.getEntryAnyQstr(group, name, &value, key.defaultValue.toString());
        return value;
    }
    case VALUE_TYPE__TEXT_LIST: {
        QStringList value;
        store.getEntry(group, name, &value, key.defaultValue.toStringList());
        return value;
    }
    case VALUE_TYPE__INT_LIST: {
        std::vector<int> value;
        store.getEntry(group, name, &value, toVector(key.defaultValue));
        return QVariant::fromValue(QList<int>(value.begin(), value.end()));
    }
    }
    return key.defaultValue;
}

MSGCTR_ERRCODE MSGCTR_ENG_SetupInfo::writeKey(MSGCTR_ENG_Setup& store, const KEY_S& key, const QVariant& value)
{
    const QString group = QLatin1String(key.group);
    const QString name = QLatin1String(key.key);
    switch (key.type) {
    case VALUE_TYPE__INT:
        return store.setEntry(group, name, value.toInt());
    case VALUE_TYPE__UINT:
        return store.setEntry(group, name, value.toUInt());
    case VALUE_TYPE__BOOL:
        return store.setEntry(group, name, value.toBool());
    case VALUE_TYPE__TEXT:
        return store.setEntry(group, name, value.toString(), false);
    case VALUE_TYPE__ANY_TEXT:
        return store.setEntryAnyQstr(group, name, value.toString());
    case VALUE_TYPE__TEXT_LIST:
        return store.setEntry(group, name, value.toStringList());
    case VALUE_TYPE__INT_LIST:
        return store.setEntry(group, name, toVector(value));
    }
    return MSGCTR_ERRCODE__INVALID_ARGUMENT;
}

QVariant MSGCTR_ENG_SetupInfo::getValue(const KEY_S& key)
{
    return readKey(m_setup, key);
}

MSGCTR_ERRCODE MSGCTR_ENG_SetupInfo::setValue(const KEY_S& key, const QVariant& value)
{
    return writeKey(m_setup, key, value);
}

unsigned int MSGCTR_ENG_SetupInfo::getSeqNumOfSendByMul()
{
    return getValue(setupInfoKey(SETUP_KEY__SEQ_NUM_OF_SEND_BY_MUL)).toUInt();
}

MSGCTR_ERRCODE MSGCTR_ENG_SetupInfo::setSeqNumOfSendByMul(unsigned int value)
{
    return setValue(setupInfoKey(SETUP_KEY__SEQ_NUM_OF_SEND_BY_MUL), value);
}

QString MSGCTR_ENG_SetupInfo::getSignatureContent()
{
    return getValue(setupInfoKey(SETUP_KEY__SIGNATURE_CONTENT)).toString();
}

MSGCTR_ERRCODE MSGCTR_ENG_SetupInfo::setSignatureContent(const QString& value)
{
    return setValue(setupInfoKey(SETUP_KEY__SIGNATURE_CONTENT), value);
}

bool MSGCTR_ENG_SetupInfo::getSignatureAutoInclude()
{
    return getValue(setupInfoKey(SETUP_KEY__SIGNATURE_AUTO_INCLUDE)).toBool();
}

MSGCTR_ERRCODE MSGCTR_ENG_SetupInfo::setSignatureAutoInclude(bool value)
{
    return setValue(setupInfoKey(SETUP_KEY__SIGNATURE_AUTO_INCLUDE), value);
}

bool MSGCTR_ENG_SetupInfo::getSmsDeliveryReportEnabledFlag()
{
    return getValue(setupInfoKey(SETUP_KEY__SMS_DELIVERY_REPORT_ENABLED_FLAG)).toBool();
}

MSGCTR_ERRCODE MSGCTR_ENG_SetupInfo::setSmsDeliveryReportEnabled(bool value)
{
    return setValue(setupInfoKey(SETUP_KEY__SMS_DELIVERY_REPORT_ENABLED_FLAG), value);
}

unsigned int MSGCTR_ENG_SetupInfo::getIncomingSMSMsgPrefStorage()
{
    const unsigned int nPrefStorage = getValue(setupInfoKey(SETUP_KEY__INCOM_SMS_PREF_STORAGE)).toUInt();
    CHECK_AND_TRACE_PREF_STORAGE(nPrefStorage);
    return nPrefStorage;
}

MSGCTR_ERRCODE MSGCTR_ENG_SetupInfo::setIncomingSMSMsgPrefStorage(unsigned int value)
{
    return setValue(setupInfoKey(SETUP_KEY__INCOM_SMS_PREF_STORAGE), value);
}

QString MSGCTR_ENG_SetupInfo::getIncomingSMSMsgPrefUserDefStorage()
{
    return getValue(setupInfoKey(SETUP_KEY__INCOM_SMS_MSG_PREF_USER_DEF_STORAGE)).toString();
}

MSGCTR_ERRCODE MSGCTR_ENG_SetupInfo::setIncomingSMSMsgPrefUserDefStorage(const QString& value)
{
    return setValue(setupInfoKey(SETUP_KEY__INCOM_SMS_MSG_PREF_USER_DEF_STORAGE), value);
}

unsigned int MSGCTR_ENG_SetupInfo::getIncomingMMSMsgPrefStorage()
{
    const unsigned int nPrefStorage = getValue(setupInfoKey(SETUP_KEY__INCOM_MMS_MSG_PREF_STORAGE)).toUInt();
    CHECK_AND_TRACE_PREF_STORAGE(nPrefStorage);
    return nPrefStorage;
}

MSGCTR_ERRCODE MSGCTR_ENG_SetupInfo::setIncomingMMSMsgPrefStorage(unsigned int value)
{
    return setValue(setupInfoKey(SETUP_KEY__INCOM_MMS_MSG_PREF_STORAGE), value);
}

QString MSGCTR_ENG_SetupInfo::getIncomingMMSMsgPrefUserDefStorage()
{
    return getValue(setupInfoKey(SETUP_KEY__INCOM_MMS_MSG_PREF_USER_DEF_STORAGE)).toString();
}

MSGCTR_ERRCODE MSGCTR_ENG_SetupInfo::setIncomingMMSMsgPrefUserDefStorage(const QString& value)
{
    return setValue(setupInfoKey(SETUP_KEY__INCOM_MMS_MSG_PREF_USER_DEF_STORAGE), value);
}

int MSGCTR_ENG_SetupInfo::getSmsValidityTime()
{
    return getValue(setupInfoKey(SETUP_KEY__SMS_VALIDITY_TIME)).toInt();
}

MSGCTR_ERRCODE MSGCTR_ENG_SetupInfo::setSmsValidityTime(int seconds)
{
    return setValue(setupInfoKey(SETUP_KEY__SMS_VALIDITY_TIME), seconds);
}

QString MSGCTR_ENG_SetupInfo::getEmailGateway()
{
    return getValue(setupInfoKey(SETUP_KEY__EMAIL_GATEWAY)).toString();
}

MSGCTR_ERRCODE MSGCTR_ENG_SetupInfo::setEmailGateway(const QString& value)
{
    return setValue(setupInfoKey(SETUP_KEY__EMAIL_GATEWAY), value);
}

bool MSGCTR_ENG_SetupInfo::getEmailMmsNotice()
{
    return getValue(setupInfoKey(SETUP_KEY__EMAIL_MMS_NOTICE)).toBool();
}

MSGCTR_ERRCODE MSGCTR_ENG_SetupInfo::setEmailMmsNotice(bool value)
{
    return setValue(setupInfoKey(SETUP_KEY__EMAIL_MMS_NOTICE), value);
}

bool MSGCTR_ENG_SetupInfo::getEmailGatewaySettingWarning()
{
    return getValue(setupInfoKey(SETUP_KEY__EMAIL_GATEWAY_WARNING)).toBool();
}

MSGCTR_ERRCODE MSGCTR_ENG_SetupInfo::setEmailGatewaySettingWarning(bool value)
{
    return setValue(setupInfoKey(SETUP_KEY__EMAIL_GATEWAY_WARNING), value);
}

void MSGCTR_ENG_SetupInfo::getUserDefinedQuickTexts(QStringList* out)
{
    *out = getValue(setupInfoKey(SETUP_KEY__USER_DEF_QUICK_TEXTS)).toStringList();
}

bool MSGCTR_ENG_SetupInfo::allowManualChooseMsgTypeInComposer()
{
    return getValue(setupInfoKey(SETUP_KEY__ALLOW_MANUAL_CHOOSE_MSG_TYPE_IN_COMPOSER)).toBool();
}

int MSGCTR_ENG_SetupInfo::getMaxSmsUnit()
{
    return getValue(setupInfoKey(SETUP_KEY__MAX_SMS_UNIT)).toInt();
}

int MSGCTR_ENG_SetupInfo::getMaxSmsValue()
{
    return getValue(setupInfoKey(SETUP_KEY__MAX_SMS_VALUE)).toInt();
}

bool MSGCTR_ENG_SetupInfo::needRetrySendSms()
{
    return getValue(setupInfoKey(SETUP_KEY__NEED_RETRY_SEND_SMS)).toBool();
}

std::vector<int> MSGCTR_ENG_SetupInfo::getRetrySendSmsTimeInterval()
{
    return toVector(getValue(setupInfoKey(SETUP_KEY__RETRY_SEND_SMS_TIME_INTERVAL)));
}

std::vector<int> MSGCTR_ENG_SetupInfo::getSmsValidityTimeListForSelection()
{
    return toVector(getValue(setupInfoKey(SETUP_KEY__SMS_VALIDITY_TIME_LIST_FOR_SELECTION)));
}

int MSGCTR_ENG_SetupInfo::getMaxUserdefSMSProfNum()
{
    return getValue(setupInfoKey(SETUP_KEY__SMS_MAX_USERDEF_SMS_PROF_NUM)).toInt();
}

MSGCTR_ENG_SetupInfo::SMS_CHARACTER_ENCODING_MODE_E MSGCTR_ENG_SetupInfo::getSmsCharacterEncodingMode()
{
    return static_cast<SMS_CHARACTER_ENCODING_MODE_E>(getValue(setupInfoKey(SETUP_KEY__SMS_CHARACTER_ENCODING_MODE)).toInt());
}

MSGCTR_ERRCODE MSGCTR_ENG_SetupInfo::setSmsCharacterEncodingMode(SMS_CHARACTER_ENCODING_MODE_E mode)
{
    return setValue(setupInfoKey(SETUP_KEY__SMS_CHARACTER_ENCODING_MODE), int(mode));
}

bool MSGCTR_ENG_SetupInfo::smsLongSmsFuncIsActivated()
{
    return getValue(setupInfoKey(SETUP_KEY__SMS_LONG_SMS_FUNC_ACTIVATED)).toBool();
}

MSGCTR_ERRCODE MSGCTR_ENG_SetupInfo::setSmsLongSmsFuncIsActivated(bool value)
{
    return setValue(setupInfoKey(SETUP_KEY__SMS_LONG_SMS_FUNC_ACTIVATED), value);
}

bool MSGCTR_ENG_SetupInfo::needToSaveOutgoingMsg()
{
    return getValue(setupInfoKey(SETUP_KEY__MSG_SAVE_OUTGOING)).toBool();
}

MSGCTR_ERRCODE MSGCTR_ENG_SetupInfo::setNeedToSaveOutgoingMsg(bool value)
{
    return setValue(setupInfoKey(SETUP_KEY__MSG_SAVE_OUTGOING), value);
}

QString MSGCTR_ENG_SetupInfo::getVoiceMailSrvCtrNumber(int line)
{
    return getValue(lineKey(line, SETUP_KEY__VOICE_MAIL_SRV_CTR_NUMBER, SETUP_KEY__VOICE_MAIL_SRV_CTR_NUMBER2)).toString();
}

MSGCTR_ERRCODE MSGCTR_ENG_SetupInfo::setVoiceMailSrvCtrNumber(int line, const QString& number)
{
    return setValue(lineKey(line, SETUP_KEY__VOICE_MAIL_SRV_CTR_NUMBER, SETUP_KEY__VOICE_MAIL_SRV_CTR_NUMBER2), number);
}

QString MSGCTR_ENG_SetupInfo::getVoiceMailSrvCtrName(int line)
{
    return getValue(lineKey(line, SETUP_KEY__VOICE_MAIL_SRV_CTR_NAME, SETUP_KEY__VOICE_MAIL_SRV_CTR_NAME2)).toString();
}

MSGCTR_ERRCODE MSGCTR_ENG_SetupInfo::setVoiceMailSrvCtrName(int line, const QString& name)
{
    return setValue(lineKey(line, SETUP_KEY__VOICE_MAIL_SRV_CTR_NAME, SETUP_KEY__VOICE_MAIL_SRV_CTR_NAME2), name);
}

unsigned int MSGCTR_ENG_SetupInfo::getVoiceMailCount(int line)
{
    return getValue(lineKey(line, SETUP_KEY__VOICE_MAIL_COUNT, SETUP_KEY__VOICE_MAIL_COUNT2)).toUInt();
}

MSGCTR_ERRCODE MSGCTR_ENG_SetupInfo::setVoiceMailCount(int line, unsigned int count)
{
    return setValue(lineKey(line, SETUP_KEY__VOICE_MAIL_COUNT, SETUP_KEY__VOICE_MAIL_COUNT2), count);
}

bool MSGCTR_ENG_SetupInfo::getImsiChangedFlag()
{
    MSGCTR_ENG_Setup store(MSGCTR_ENG_Setup::MSGCTR_APP_ID, MSGCTR_ENG_Setup::FLUSH_MODE__NOT_FLUSH);
    return readKey(store, setupInfoKey(SETUP_KEY__IMSI_CHANGED_FLAG)).toBool();
}

MSGCTR_ERRCODE MSGCTR_ENG_SetupInfo::setImsiChangedFlag(bool value)
{
    MSGCTR_ENG_Setup store(MSGCTR_ENG_Setup::MSGCTR_APP_ID, MSGCTR_ENG_Setup::FLUSH_MODE__FLUSH);
    return writeKey(store, setupInfoKey(SETUP_KEY__IMSI_CHANGED_FLAG), value);
}

bool MSGCTR_ENG_SetupInfo::getVoiceMailCountableFlag()
{
    MSGCTR_ENG_Setup store(MSGCTR_ENG_Setup::MSGCTR_APP_ID, MSGCTR_ENG_Setup::FLUSH_MODE__NOT_FLUSH);
    return readKey(store, setupInfoKey(SETUP_KEY__VOICE_MAIL_COUNTABLE)).toBool();
}

MSGCTR_ERRCODE MSGCTR_ENG_SetupInfo::setVoiceMailCountableFlag(bool value)
{
    MSGCTR_ENG_Setup store(MSGCTR_ENG_Setup::MSGCTR_APP_ID, MSGCTR_ENG_Setup::FLUSH_MODE__FLUSH);
    return writeKey(store, setupInfoKey(SETUP_KEY__VOICE_MAIL_COUNTABLE), value);
}

int MSGCTR_ENG_SetupInfo::getWapAllowedPushSmscMode()
{
    const int nMode = getValue(setupInfoKey(SETUP_KEY__WAP_ALLOWED_PUSH_SMSC_MODE)).toInt();
    CHECK_PUSH_SMSC_MODE(nMode);
    return nMode;
}

MSGCTR_ERRCODE MSGCTR_ENG_SetupInfo::setWapAllowedPushSmscMode(int nMode)
{
    CHECK_PUSH_SMSC_MODE(nMode);
    return setValue(setupInfoKey(SETUP_KEY__WAP_ALLOWED_PUSH_SMSC_MODE), nMode);
}

QString MSGCTR_ENG_SetupInfo::getMaxSmscWhitelistRange()
{
    return getValue(setupInfoKey(SETUP_KEY__MAX_VALID_SMSC)).toString();
}

QString MSGCTR_ENG_SetupInfo::getMinSmscWhitelistRange()
{
    return getValue(setupInfoKey(SETUP_KEY__MIN_VALID_SMSC)).toString();
}

int MSGCTR_ENG_SetupInfo::getPushSerLoadingSecurityType()
{
    const int nPushSerLoadingSecurityType = getValue(setupInfoKey(SETUP_KEY__PUSH_SER_LOADING_SECURITY_TYPE)).toInt();
    CHECK_PUSH_SER_LOADING_SECURITY_TYPE(nPushSerLoadingSecurityType);
    return nPushSerLoadingSecurityType;
}

MSGCTR_ERRCODE MSGCTR_ENG_SetupInfo::setPushSerLoadingSecurityType(int nPushSerLoadingSecurityType)
{
    CHECK_PUSH_SER_LOADING_SECURITY_TYPE(nPushSerLoadingSecurityType);
    return setValue(setupInfoKey(SETUP_KEY__PUSH_SER_LOADING_SECURITY_TYPE), nPushSerLoadingSecurityType);
}

bool MSGCTR_ENG_SetupInfo::needSaveInfoServQuickviewMsg()
{
    return getValue(setupInfoKey(SETUP_KEY__SAVE_INFO_SERV_QUICKVIEW_MSG)).toBool();
}

MSGCTR_ERRCODE MSGCTR_ENG_SetupInfo::setNeedSaveInfoServQuickviewMsg(bool value)
{
    return setValue(setupInfoKey(SETUP_KEY__SAVE_INFO_SERV_QUICKVIEW_MSG), value);
}

std::vector<int> MSGCTR_ENG_SetupInfo::cbChannelSForIdleScrSilent()
{
    return toVector(getValue(setupInfoKey(SETUP_KEY__CB_CHNLS_IDL_SL)));
}

int MSGCTR_ENG_SetupInfo::cbMsgLengthForIdleScr()
{
    return getValue(setupInfoKey(SETUP_KEY__CB_MAX_LEN_IDL)).toInt();
}

bool MSGCTR_ENG_SetupInfo::cellWideCbMsgFeatureAvailable()
{
    return getValue(setupInfoKey(SETUP_KEY__CELL_WIDE_CB)).toBool();
}

bool MSGCTR_ENG_SetupInfo::outputDebugLogIsEnabled()
{
    return getValue(setupInfoKey(SETUP_KEY__OUTPUT_DEBUG_LOG)).toBool();
}

MSGCTR_ERRCODE MSGCTR_ENG_SetupInfo::enableOutputDebugLog(bool value)
{
    return setValue(setupInfoKey(SETUP_KEY__OUTPUT_DEBUG_LOG), value);
}
