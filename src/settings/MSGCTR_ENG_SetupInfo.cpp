#include "MSGCTR_ENG_SetupInfo.h"

#include "foundation/MsgctrReport.h"
#include "settings/SetupInfoKey.h"

#include <QLatin1String>

const char* const MSGCTR_ENG_SetupInfo::GROUP_MSGCTR_SMS = "GROUP_MSGCTR_SMS";
const char* const MSGCTR_ENG_SetupInfo::GROUP_MSGCTR_GENERAL = "GROUP_MSGCTR_GENERAL";
const char* const MSGCTR_ENG_SetupInfo::GROUP_MSGCTR_VM = "GROUP_MSGCTR_VM";
const char* const MSGCTR_ENG_SetupInfo::GROUP_MSGCTR_WAP = "GROUP_MSGCTR_WAP";
const char* const MSGCTR_ENG_SetupInfo::GROUP_MSGCTR_INFO_SERV = "GROUP_MSGCTR_INFO_SERV";
const char* const MSGCTR_ENG_SetupInfo::GROUP_4_DEBUG = "GROUP_4_DEBUG";

namespace {

using Info = MSGCTR_ENG_SetupInfo;

QVariant getKey(MSGCTR_ENG_Setup& store, SetupInfoKeyId id)
{
    return SetupInfoKey::of(id).read(store);
}

MSGCTR_ERRCODE setKey(MSGCTR_ENG_Setup& store, SetupInfoKeyId id, const QVariant& value)
{
    return SetupInfoKey::of(id).write(store, value);
}

SetupInfoKeyId lineKey(int line, SetupInfoKeyId firstLine, SetupInfoKeyId secondLine)
{
    return line == 1 ? secondLine : firstLine;
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

unsigned int MSGCTR_ENG_SetupInfo::getSeqNumOfSendByMul()
{
    return getKey(m_setup, SETUP_KEY__SEQ_NUM_OF_SEND_BY_MUL).toUInt();
}

MSGCTR_ERRCODE MSGCTR_ENG_SetupInfo::setSeqNumOfSendByMul(unsigned int value)
{
    return setKey(m_setup, SETUP_KEY__SEQ_NUM_OF_SEND_BY_MUL, value);
}

QString MSGCTR_ENG_SetupInfo::getSignatureContent()
{
    return getKey(m_setup, SETUP_KEY__SIGNATURE_CONTENT).toString();
}

MSGCTR_ERRCODE MSGCTR_ENG_SetupInfo::setSignatureContent(const QString& value)
{
    return setKey(m_setup, SETUP_KEY__SIGNATURE_CONTENT, value);
}

bool MSGCTR_ENG_SetupInfo::getSignatureAutoInclude()
{
    return getKey(m_setup, SETUP_KEY__SIGNATURE_AUTO_INCLUDE).toBool();
}

MSGCTR_ERRCODE MSGCTR_ENG_SetupInfo::setSignatureAutoInclude(bool value)
{
    return setKey(m_setup, SETUP_KEY__SIGNATURE_AUTO_INCLUDE, value);
}

bool MSGCTR_ENG_SetupInfo::getSmsDeliveryReportEnabledFlag()
{
    return getKey(m_setup, SETUP_KEY__SMS_DELIVERY_REPORT_ENABLED_FLAG).toBool();
}

MSGCTR_ERRCODE MSGCTR_ENG_SetupInfo::setSmsDeliveryReportEnabled(bool value)
{
    return setKey(m_setup, SETUP_KEY__SMS_DELIVERY_REPORT_ENABLED_FLAG, value);
}

unsigned int MSGCTR_ENG_SetupInfo::getIncomingSMSMsgPrefStorage()
{
    const unsigned int nPrefStorage = getKey(m_setup, SETUP_KEY__INCOM_SMS_PREF_STORAGE).toUInt();
    CHECK_AND_TRACE_PREF_STORAGE(nPrefStorage);
    return nPrefStorage;
}

MSGCTR_ERRCODE MSGCTR_ENG_SetupInfo::setIncomingSMSMsgPrefStorage(unsigned int value)
{
    return setKey(m_setup, SETUP_KEY__INCOM_SMS_PREF_STORAGE, value);
}

QString MSGCTR_ENG_SetupInfo::getIncomingSMSMsgPrefUserDefStorage()
{
    return getKey(m_setup, SETUP_KEY__INCOM_SMS_MSG_PREF_USER_DEF_STORAGE).toString();
}

MSGCTR_ERRCODE MSGCTR_ENG_SetupInfo::setIncomingSMSMsgPrefUserDefStorage(const QString& value)
{
    return setKey(m_setup, SETUP_KEY__INCOM_SMS_MSG_PREF_USER_DEF_STORAGE, value);
}

unsigned int MSGCTR_ENG_SetupInfo::getIncomingMMSMsgPrefStorage()
{
    const unsigned int nPrefStorage = getKey(m_setup, SETUP_KEY__INCOM_MMS_MSG_PREF_STORAGE).toUInt();
    CHECK_AND_TRACE_PREF_STORAGE(nPrefStorage);
    return nPrefStorage;
}

MSGCTR_ERRCODE MSGCTR_ENG_SetupInfo::setIncomingMMSMsgPrefStorage(unsigned int value)
{
    return setKey(m_setup, SETUP_KEY__INCOM_MMS_MSG_PREF_STORAGE, value);
}

QString MSGCTR_ENG_SetupInfo::getIncomingMMSMsgPrefUserDefStorage()
{
    return getKey(m_setup, SETUP_KEY__INCOM_MMS_MSG_PREF_USER_DEF_STORAGE).toString();
}

MSGCTR_ERRCODE MSGCTR_ENG_SetupInfo::setIncomingMMSMsgPrefUserDefStorage(const QString& value)
{
    return setKey(m_setup, SETUP_KEY__INCOM_MMS_MSG_PREF_USER_DEF_STORAGE, value);
}

int MSGCTR_ENG_SetupInfo::getSmsValidityTime()
{
    return getKey(m_setup, SETUP_KEY__SMS_VALIDITY_TIME).toInt();
}

MSGCTR_ERRCODE MSGCTR_ENG_SetupInfo::setSmsValidityTime(int seconds)
{
    return setKey(m_setup, SETUP_KEY__SMS_VALIDITY_TIME, seconds);
}

QString MSGCTR_ENG_SetupInfo::getEmailGateway()
{
    return getKey(m_setup, SETUP_KEY__EMAIL_GATEWAY).toString();
}

MSGCTR_ERRCODE MSGCTR_ENG_SetupInfo::setEmailGateway(const QString& value)
{
    return setKey(m_setup, SETUP_KEY__EMAIL_GATEWAY, value);
}

bool MSGCTR_ENG_SetupInfo::getEmailMmsNotice()
{
    return getKey(m_setup, SETUP_KEY__EMAIL_MMS_NOTICE).toBool();
}

MSGCTR_ERRCODE MSGCTR_ENG_SetupInfo::setEmailMmsNotice(bool value)
{
    return setKey(m_setup, SETUP_KEY__EMAIL_MMS_NOTICE, value);
}

bool MSGCTR_ENG_SetupInfo::getEmailGatewaySettingWarning()
{
    return getKey(m_setup, SETUP_KEY__EMAIL_GATEWAY_WARNING).toBool();
}

MSGCTR_ERRCODE MSGCTR_ENG_SetupInfo::setEmailGatewaySettingWarning(bool value)
{
    return setKey(m_setup, SETUP_KEY__EMAIL_GATEWAY_WARNING, value);
}

void MSGCTR_ENG_SetupInfo::getUserDefinedQuickTexts(QStringList* out)
{
    *out = getKey(m_setup, SETUP_KEY__USER_DEF_QUICK_TEXTS).toStringList();
}

bool MSGCTR_ENG_SetupInfo::allowManualChooseMsgTypeInComposer()
{
    return getKey(m_setup, SETUP_KEY__ALLOW_MANUAL_CHOOSE_MSG_TYPE_IN_COMPOSER).toBool();
}

int MSGCTR_ENG_SetupInfo::getMaxSmsUnit()
{
    return getKey(m_setup, SETUP_KEY__MAX_SMS_UNIT).toInt();
}

int MSGCTR_ENG_SetupInfo::getMaxSmsValue()
{
    return getKey(m_setup, SETUP_KEY__MAX_SMS_VALUE).toInt();
}

bool MSGCTR_ENG_SetupInfo::needRetrySendSms()
{
    return getKey(m_setup, SETUP_KEY__NEED_RETRY_SEND_SMS).toBool();
}

std::vector<int> MSGCTR_ENG_SetupInfo::getRetrySendSmsTimeInterval()
{
    return toVector(getKey(m_setup, SETUP_KEY__RETRY_SEND_SMS_TIME_INTERVAL));
}

std::vector<int> MSGCTR_ENG_SetupInfo::getSmsValidityTimeListForSelection()
{
    return toVector(getKey(m_setup, SETUP_KEY__SMS_VALIDITY_TIME_LIST_FOR_SELECTION));
}

int MSGCTR_ENG_SetupInfo::getMaxUserdefSMSProfNum()
{
    return getKey(m_setup, SETUP_KEY__SMS_MAX_USERDEF_SMS_PROF_NUM).toInt();
}

MSGCTR_ENG_SetupInfo::SMS_CHARACTER_ENCODING_MODE_E MSGCTR_ENG_SetupInfo::getSmsCharacterEncodingMode()
{
    return static_cast<SMS_CHARACTER_ENCODING_MODE_E>(getKey(m_setup, SETUP_KEY__SMS_CHARACTER_ENCODING_MODE).toInt());
}

MSGCTR_ERRCODE MSGCTR_ENG_SetupInfo::setSmsCharacterEncodingMode(SMS_CHARACTER_ENCODING_MODE_E mode)
{
    return setKey(m_setup, SETUP_KEY__SMS_CHARACTER_ENCODING_MODE, int(mode));
}

bool MSGCTR_ENG_SetupInfo::smsLongSmsFuncIsActivated()
{
    return getKey(m_setup, SETUP_KEY__SMS_LONG_SMS_FUNC_ACTIVATED).toBool();
}

MSGCTR_ERRCODE MSGCTR_ENG_SetupInfo::setSmsLongSmsFuncIsActivated(bool value)
{
    return setKey(m_setup, SETUP_KEY__SMS_LONG_SMS_FUNC_ACTIVATED, value);
}

bool MSGCTR_ENG_SetupInfo::needToSaveOutgoingMsg()
{
    return getKey(m_setup, SETUP_KEY__MSG_SAVE_OUTGOING).toBool();
}

MSGCTR_ERRCODE MSGCTR_ENG_SetupInfo::setNeedToSaveOutgoingMsg(bool value)
{
    return setKey(m_setup, SETUP_KEY__MSG_SAVE_OUTGOING, value);
}

QString MSGCTR_ENG_SetupInfo::getVoiceMailSrvCtrNumber(int line)
{
    return getKey(m_setup, lineKey(line, SETUP_KEY__VOICE_MAIL_SRV_CTR_NUMBER, SETUP_KEY__VOICE_MAIL_SRV_CTR_NUMBER2)).toString();
}

MSGCTR_ERRCODE MSGCTR_ENG_SetupInfo::setVoiceMailSrvCtrNumber(int line, const QString& number)
{
    return setKey(m_setup, lineKey(line, SETUP_KEY__VOICE_MAIL_SRV_CTR_NUMBER, SETUP_KEY__VOICE_MAIL_SRV_CTR_NUMBER2), number);
}

QString MSGCTR_ENG_SetupInfo::getVoiceMailSrvCtrName(int line)
{
    return getKey(m_setup, lineKey(line, SETUP_KEY__VOICE_MAIL_SRV_CTR_NAME, SETUP_KEY__VOICE_MAIL_SRV_CTR_NAME2)).toString();
}

MSGCTR_ERRCODE MSGCTR_ENG_SetupInfo::setVoiceMailSrvCtrName(int line, const QString& name)
{
    return setKey(m_setup, lineKey(line, SETUP_KEY__VOICE_MAIL_SRV_CTR_NAME, SETUP_KEY__VOICE_MAIL_SRV_CTR_NAME2), name);
}

unsigned int MSGCTR_ENG_SetupInfo::getVoiceMailCount(int line)
{
    return getKey(m_setup, lineKey(line, SETUP_KEY__VOICE_MAIL_COUNT, SETUP_KEY__VOICE_MAIL_COUNT2)).toUInt();
}

MSGCTR_ERRCODE MSGCTR_ENG_SetupInfo::setVoiceMailCount(int line, unsigned int count)
{
    return setKey(m_setup, lineKey(line, SETUP_KEY__VOICE_MAIL_COUNT, SETUP_KEY__VOICE_MAIL_COUNT2), count);
}

bool MSGCTR_ENG_SetupInfo::getImsiChangedFlag()
{
    MSGCTR_ENG_Setup store(MSGCTR_ENG_Setup::MSGCTR_APP_ID, MSGCTR_ENG_Setup::FLUSH_MODE__NOT_FLUSH);
    return getKey(store, SETUP_KEY__IMSI_CHANGED_FLAG).toBool();
}

MSGCTR_ERRCODE MSGCTR_ENG_SetupInfo::setImsiChangedFlag(bool value)
{
    MSGCTR_ENG_Setup store(MSGCTR_ENG_Setup::MSGCTR_APP_ID, MSGCTR_ENG_Setup::FLUSH_MODE__FLUSH);
    return setKey(store, SETUP_KEY__IMSI_CHANGED_FLAG, value);
}

bool MSGCTR_ENG_SetupInfo::getVoiceMailCountableFlag()
{
    MSGCTR_ENG_Setup store(MSGCTR_ENG_Setup::MSGCTR_APP_ID, MSGCTR_ENG_Setup::FLUSH_MODE__NOT_FLUSH);
    return getKey(store, SETUP_KEY__VOICE_MAIL_COUNTABLE).toBool();
}

MSGCTR_ERRCODE MSGCTR_ENG_SetupInfo::setVoiceMailCountableFlag(bool value)
{
    MSGCTR_ENG_Setup store(MSGCTR_ENG_Setup::MSGCTR_APP_ID, MSGCTR_ENG_Setup::FLUSH_MODE__FLUSH);
    return setKey(store, SETUP_KEY__VOICE_MAIL_COUNTABLE, value);
}

int MSGCTR_ENG_SetupInfo::getWapAllowedPushSmscMode()
{
    const int nMode = getKey(m_setup, SETUP_KEY__WAP_ALLOWED_PUSH_SMSC_MODE).toInt();
    CHECK_PUSH_SMSC_MODE(nMode);
    return nMode;
}

MSGCTR_ERRCODE MSGCTR_ENG_SetupInfo::setWapAllowedPushSmscMode(int nMode)
{
    CHECK_PUSH_SMSC_MODE(nMode);
    return setKey(m_setup, SETUP_KEY__WAP_ALLOWED_PUSH_SMSC_MODE, nMode);
}

QString MSGCTR_ENG_SetupInfo::getMaxSmscWhitelistRange()
{
    return getKey(m_setup, SETUP_KEY__MAX_VALID_SMSC).toString();
}

QString MSGCTR_ENG_SetupInfo::getMinSmscWhitelistRange()
{
    return getKey(m_setup, SETUP_KEY__MIN_VALID_SMSC).toString();
}

int MSGCTR_ENG_SetupInfo::getPushSerLoadingSecurityType()
{
    const int nPushSerLoadingSecurityType = getKey(m_setup, SETUP_KEY__PUSH_SER_LOADING_SECURITY_TYPE).toInt();
    CHECK_PUSH_SER_LOADING_SECURITY_TYPE(nPushSerLoadingSecurityType);
    return nPushSerLoadingSecurityType;
}

MSGCTR_ERRCODE MSGCTR_ENG_SetupInfo::setPushSerLoadingSecurityType(int nPushSerLoadingSecurityType)
{
    CHECK_PUSH_SER_LOADING_SECURITY_TYPE(nPushSerLoadingSecurityType);
    return setKey(m_setup, SETUP_KEY__PUSH_SER_LOADING_SECURITY_TYPE, nPushSerLoadingSecurityType);
}

bool MSGCTR_ENG_SetupInfo::needSaveInfoServQuickviewMsg()
{
    return getKey(m_setup, SETUP_KEY__SAVE_INFO_SERV_QUICKVIEW_MSG).toBool();
}

MSGCTR_ERRCODE MSGCTR_ENG_SetupInfo::setNeedSaveInfoServQuickviewMsg(bool value)
{
    return setKey(m_setup, SETUP_KEY__SAVE_INFO_SERV_QUICKVIEW_MSG, value);
}

std::vector<int> MSGCTR_ENG_SetupInfo::cbChannelSForIdleScrSilent()
{
    return toVector(getKey(m_setup, SETUP_KEY__CB_CHNLS_IDL_SL));
}

int MSGCTR_ENG_SetupInfo::cbMsgLengthForIdleScr()
{
    return getKey(m_setup, SETUP_KEY__CB_MAX_LEN_IDL).toInt();
}

bool MSGCTR_ENG_SetupInfo::cellWideCbMsgFeatureAvailable()
{
    return getKey(m_setup, SETUP_KEY__CELL_WIDE_CB).toBool();
}

bool MSGCTR_ENG_SetupInfo::outputDebugLogIsEnabled()
{
    return getKey(m_setup, SETUP_KEY__OUTPUT_DEBUG_LOG).toBool();
}

MSGCTR_ERRCODE MSGCTR_ENG_SetupInfo::enableOutputDebugLog(bool value)
{
    return setKey(m_setup, SETUP_KEY__OUTPUT_DEBUG_LOG, value);
}
