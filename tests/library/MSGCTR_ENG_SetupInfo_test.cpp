#include "HostRootTest.h"

#include "MSGCTR_ENG_SetupInfo.h"
#include "settings/SetupInfoKey.h"
#include "ZorHostControl.h"

#include <QFile>
#include <QRegularExpression>

#include <cerrno>
#include <functional>
#include <map>
#include <type_traits>

namespace {

using Info = MSGCTR_ENG_SetupInfo;

// A value as "type:value", so that values of every kind compare alike and null texts stay apart from
// empty ones.
std::string describe(const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::Int:
        return "int:" + std::to_string(value.toInt());
    case QMetaType::UInt:
        return "uint:" + std::to_string(value.toUInt());
    case QMetaType::Bool:
        return value.toBool() ? "bool:true" : "bool:false";
    case QMetaType::QString:
        return value.toString().isNull() ? "text:null" : "text:\"" + value.toString().toStdString() + "\"";
    case QMetaType::QStringList:
        return "texts:[" + value.toStringList().join(QStringLiteral("|")).toStdString() + "]";
    default:
        break;
    }
    if (value.canConvert<QList<int>>()) {
        std::string text = "ints:[";
        for (int v : value.value<QList<int>>())
            text += std::to_string(v) + ";";
        return text + "]";
    }
    return std::string("unknown:") + value.typeName();
}

QVariant ints(std::initializer_list<int> values)
{
    return QVariant::fromValue(QList<int>(values));
}

QVariant toVariant(const std::vector<int>& values)
{
    return QVariant::fromValue(QList<int>(values.begin(), values.end()));
}

template <typename T>
QVariant toVariant(const T& value)
{
    return QVariant::fromValue(value);
}

QString nullText()
{
    return QString();
}

QString emptyText()
{
    return QString(QLatin1String(""));
}

// A getter of the given return type, as a function of the settings object.
#define GETTER(Type, call)                                                           \
    [](Info& info) {                                                                 \
        static_assert(std::is_same_v<decltype(info.call), Type>, "type of " #call); \
        return toVariant(info.call);                                                 \
    }
#define STATIC_GETTER(Type, call)                                                    \
    [](Info&) {                                                                      \
        static_assert(std::is_same_v<decltype(Info::call), Type>, "type of " #call); \
        return toVariant(Info::call);                                                \
    }

struct KeyRow {
    const char* group;
    const char* key;
    SetupInfoKey::VALUE_TYPE_E type;
    SetupInfoKey::ACCESS_E access;
    QVariant defaultValue;
    // A value that only reads back when the key is stored and read as its type.
    QVariant sample;
    std::function<QVariant(Info&)> get;
    std::function<MSGCTR_ERRCODE(Info&, const QVariant&)> set;  // empty for keys applications only read
};

std::ostream& operator<<(std::ostream& os, const KeyRow& row)
{
    return os << row.group << "/" << row.key;
}

const char* const SMS = "GROUP_MSGCTR_SMS";
const char* const VM = "GROUP_MSGCTR_VM";
const char* const WAP = "GROUP_MSGCTR_WAP";
const char* const INFO = "GROUP_MSGCTR_INFO_SERV";

std::vector<KeyRow> keyRows()
{
    const QVariant bigUint = 4000000000u;
    std::vector<KeyRow> rows{
        {SMS, "SEQ_NUM_OF_SEND_BY_MUL", SetupInfoKey::VALUE_TYPE__UINT, SetupInfoKey::ACCESS__GET_SET, 0u, bigUint,
         GETTER(unsigned int, getSeqNumOfSendByMul()),
         [](Info& i, const QVariant& v) { return i.setSeqNumOfSendByMul(v.toUInt()); }},
        {SMS, "SIGNATURE_CONTENT", SetupInfoKey::VALUE_TYPE__ANY_TEXT, SetupInfoKey::ACCESS__GET_SET, nullText(),
         QStringLiteral("Best=\r\n[me]"), GETTER(QString, getSignatureContent()),
         [](Info& i, const QVariant& v) { return i.setSignatureContent(v.toString()); }},
        {SMS, "SIGNATURE_AUTO_INCLUDE", SetupInfoKey::VALUE_TYPE__BOOL, SetupInfoKey::ACCESS__GET_SET, false, true,
         GETTER(bool, getSignatureAutoInclude()),
         [](Info& i, const QVariant& v) { return i.setSignatureAutoInclude(v.toBool()); }},
        {SMS, "SMS_DELIVERY_REPORT_ENABLED_FLAG", SetupInfoKey::VALUE_TYPE__BOOL, SetupInfoKey::ACCESS__GET_SET, false, true,
         GETTER(bool, getSmsDeliveryReportEnabledFlag()),
         [](Info& i, const QVariant& v) { return i.setSmsDeliveryReportEnabled(v.toBool()); }},
        {SMS, "INCOM_SMS_PREF_STORAGE", SetupInfoKey::VALUE_TYPE__UINT, SetupInfoKey::ACCESS__GET_SET, 0u, 2u,
         GETTER(unsigned int, getIncomingSMSMsgPrefStorage()),
         [](Info& i, const QVariant& v) { return i.setIncomingSMSMsgPrefStorage(v.toUInt()); }},
        {SMS, "INCOM_SMS_MSG_PREF_USER_DEF_STORAGE", SetupInfoKey::VALUE_TYPE__TEXT, SetupInfoKey::ACCESS__GET_SET,
         QStringLiteral("Inbox"), QStringLiteral("My folder"), GETTER(QString, getIncomingSMSMsgPrefUserDefStorage()),
         [](Info& i, const QVariant& v) { return i.setIncomingSMSMsgPrefUserDefStorage(v.toString()); }},
        {SMS, "INCOM_MMS_MSG_PREF_STORAGE", SetupInfoKey::VALUE_TYPE__UINT, SetupInfoKey::ACCESS__GET_SET, 0u, 1u,
         GETTER(unsigned int, getIncomingMMSMsgPrefStorage()),
         [](Info& i, const QVariant& v) { return i.setIncomingMMSMsgPrefStorage(v.toUInt()); }},
        {SMS, "INCOM_MMS_MSG_PREF_USER_DEF_STORAGE", SetupInfoKey::VALUE_TYPE__TEXT, SetupInfoKey::ACCESS__GET_SET,
         QStringLiteral("Inbox"), QStringLiteral("MMS folder"), GETTER(QString, getIncomingMMSMsgPrefUserDefStorage()),
         [](Info& i, const QVariant& v) { return i.setIncomingMMSMsgPrefUserDefStorage(v.toString()); }},
        {SMS, "SMS_VALIDITY_TIME", SetupInfoKey::VALUE_TYPE__INT, SetupInfoKey::ACCESS__GET_SET, -1, -86400,
         GETTER(int, getSmsValidityTime()), [](Info& i, const QVariant& v) { return i.setSmsValidityTime(v.toInt()); }},
        {SMS, "EMAIL_GATEWAY", SetupInfoKey::VALUE_TYPE__TEXT, SetupInfoKey::ACCESS__GET_SET, emptyText(), QStringLiteral("5500"),
         GETTER(QString, getEmailGateway()), [](Info& i, const QVariant& v) { return i.setEmailGateway(v.toString()); }},
        {SMS, "EMAIL_MMS_NOTICE", SetupInfoKey::VALUE_TYPE__BOOL, SetupInfoKey::ACCESS__GET_SET, false, true,
         GETTER(bool, getEmailMmsNotice()), [](Info& i, const QVariant& v) { return i.setEmailMmsNotice(v.toBool()); }},
        {SMS, "EMAIL_GATEWAY_WARNING", SetupInfoKey::VALUE_TYPE__BOOL, SetupInfoKey::ACCESS__GET_SET, true, false,
         GETTER(bool, getEmailGatewaySettingWarning()),
         [](Info& i, const QVariant& v) { return i.setEmailGatewaySettingWarning(v.toBool()); }},
        {SMS, "USER_DEF_QUICK_TEXTS", SetupInfoKey::VALUE_TYPE__TEXT_LIST, SetupInfoKey::ACCESS__GET_SET, QStringList(),
         QStringList{QStringLiteral("On my way"), QStringLiteral("a=b")},
         [](Info& i) {
             QStringList texts{QStringLiteral("caller")};
             i.getUserDefinedQuickTexts(&texts);
             return QVariant(texts);
         },
         {}},
        {SMS, "ALLOW_MANUAL_CHOOSE_MSG_TYPE_IN_COMPOSER", SetupInfoKey::VALUE_TYPE__BOOL, SetupInfoKey::ACCESS__GET, true, false,
         GETTER(bool, allowManualChooseMsgTypeInComposer()), {}},
        {SMS, "MAX_SMS_UNIT", SetupInfoKey::VALUE_TYPE__INT, SetupInfoKey::ACCESS__GET, 0, -3, GETTER(int, getMaxSmsUnit()), {}},
        {SMS, "MAX_SMS_VALUE", SetupInfoKey::VALUE_TYPE__INT, SetupInfoKey::ACCESS__GET, 10, -4, GETTER(int, getMaxSmsValue()), {}},
        {SMS, "NEED_RETRY_SEND_SMS", SetupInfoKey::VALUE_TYPE__BOOL, SetupInfoKey::ACCESS__GET, false, true,
         GETTER(bool, needRetrySendSms()), {}},
        {SMS, "RETRY_SEND_SMS_TIME_INTERVAL", SetupInfoKey::VALUE_TYPE__INT_LIST, SetupInfoKey::ACCESS__GET, ints({5, 10}),
         ints({1, -2, 3}), GETTER(std::vector<int>, getRetrySendSmsTimeInterval()), {}},
        {SMS, "SMS_VALIDITY_TIME_LIST_FOR_SELECTION", SetupInfoKey::VALUE_TYPE__INT_LIST, SetupInfoKey::ACCESS__GET,
         ints({3600, 21600, 86400, 604800, -1}), ints({60}),
         GETTER(std::vector<int>, getSmsValidityTimeListForSelection()), {}},
        {SMS, "SMS_MAX_USERDEF_SMS_PROF_NUM", SetupInfoKey::VALUE_TYPE__INT, SetupInfoKey::ACCESS__GET, 5, -5,
         GETTER(int, getMaxUserdefSMSProfNum()), {}},
        {SMS, "SMS_CHARACTER_ENCODING_MODE", SetupInfoKey::VALUE_TYPE__INT, SetupInfoKey::ACCESS__GET_SET, 1, 2,
         [](Info& i) {
             static_assert(std::is_same_v<decltype(i.getSmsCharacterEncodingMode()),
                                          Info::SMS_CHARACTER_ENCODING_MODE_E>);
             return QVariant(int(i.getSmsCharacterEncodingMode()));
         },
         [](Info& i, const QVariant& v) {
             return i.setSmsCharacterEncodingMode(Info::SMS_CHARACTER_ENCODING_MODE_E(v.toInt()));
         }},
        {SMS, "SMS_LONG_SMS_FUNC_ACTIVATED", SetupInfoKey::VALUE_TYPE__BOOL, SetupInfoKey::ACCESS__GET_SET, true, false,
         GETTER(bool, smsLongSmsFuncIsActivated()),
         [](Info& i, const QVariant& v) { return i.setSmsLongSmsFuncIsActivated(v.toBool()); }},
        {"GROUP_MSGCTR_GENERAL", "MSG_SAVE_OUTGOING", SetupInfoKey::VALUE_TYPE__BOOL, SetupInfoKey::ACCESS__GET_SET, true, false,
         GETTER(bool, needToSaveOutgoingMsg()),
         [](Info& i, const QVariant& v) { return i.setNeedToSaveOutgoingMsg(v.toBool()); }},
        {VM, "VOICE_MAIL_SRV_CTR_NUMBER", SetupInfoKey::VALUE_TYPE__TEXT, SetupInfoKey::ACCESS__GET_SET, nullText(),
         QStringLiteral("+4412345"), GETTER(QString, getVoiceMailSrvCtrNumber(0)),
         [](Info& i, const QVariant& v) { return i.setVoiceMailSrvCtrNumber(0, v.toString()); }},
        {VM, "VOICE_MAIL_SRV_CTR_NUMBER2", SetupInfoKey::VALUE_TYPE__TEXT, SetupInfoKey::ACCESS__GET_SET, nullText(),
         QStringLiteral("+4467890"), GETTER(QString, getVoiceMailSrvCtrNumber(1)),
         [](Info& i, const QVariant& v) { return i.setVoiceMailSrvCtrNumber(1, v.toString()); }},
        {VM, "VOICE_MAIL_SRV_CTR_NAME", SetupInfoKey::VALUE_TYPE__TEXT, SetupInfoKey::ACCESS__GET_SET, nullText(),
         QStringLiteral("Mailbox one"), GETTER(QString, getVoiceMailSrvCtrName(0)),
         [](Info& i, const QVariant& v) { return i.setVoiceMailSrvCtrName(0, v.toString()); }},
        {VM, "VOICE_MAIL_SRV_CTR_NAME2", SetupInfoKey::VALUE_TYPE__TEXT, SetupInfoKey::ACCESS__GET_SET, nullText(),
         QStringLiteral("Mailbox two"), GETTER(QString, getVoiceMailSrvCtrName(1)),
         [](Info& i, const QVariant& v) { return i.setVoiceMailSrvCtrName(1, v.toString()); }},
        {VM, "VOICE_MAIL_COUNT", SetupInfoKey::VALUE_TYPE__UINT, SetupInfoKey::ACCESS__GET_SET, 0u, bigUint,
         GETTER(unsigned int, getVoiceMailCount(0)),
         [](Info& i, const QVariant& v) { return i.setVoiceMailCount(0, v.toUInt()); }},
        {VM, "VOICE_MAIL_COUNT2", SetupInfoKey::VALUE_TYPE__UINT, SetupInfoKey::ACCESS__GET_SET, 0u, bigUint,
         GETTER(unsigned int, getVoiceMailCount(1)),
         [](Info& i, const QVariant& v) { return i.setVoiceMailCount(1, v.toUInt()); }},
        {VM, "IMSI_CHANGED_FLAG", SetupInfoKey::VALUE_TYPE__BOOL, SetupInfoKey::ACCESS__STATIC_GET_SET, false, true,
         STATIC_GETTER(bool, getImsiChangedFlag()),
         [](Info&, const QVariant& v) { return Info::setImsiChangedFlag(v.toBool()); }},
        {VM, "VOICE_MAIL_COUNTABLE", SetupInfoKey::VALUE_TYPE__BOOL, SetupInfoKey::ACCESS__STATIC_GET_SET, false, true,
         STATIC_GETTER(bool, getVoiceMailCountableFlag()),
         [](Info&, const QVariant& v) { return Info::setVoiceMailCountableFlag(v.toBool()); }},
        {WAP, "WAP_ALLOWED_PUSH_SMSC_MODE", SetupInfoKey::VALUE_TYPE__INT, SetupInfoKey::ACCESS__GET_SET, 1, 2,
         GETTER(int, getWapAllowedPushSmscMode()),
         [](Info& i, const QVariant& v) { return i.setWapAllowedPushSmscMode(v.toInt()); }},
        {WAP, "WAP_ALLOWED_PPG_S", SetupInfoKey::VALUE_TYPE__TEXT, SetupInfoKey::ACCESS__GET_SET, nullText(),
         QStringLiteral("123,gw;456,gw2"), [](Info& i) { return QVariant(SetupInfoKey::find(QLatin1String(WAP), QStringLiteral("WAP_ALLOWED_PPG_S"))
                                                                     ->read(i.objSetupMsgctr())); },
         {}},
    };
    for (int n = 1; n <= 10; ++n) {
        static const char* const names[] = {"WHITELIST_PAIR1", "WHITELIST_PAIR2", "WHITELIST_PAIR3",
                                            "WHITELIST_PAIR4", "WHITELIST_PAIR5", "WHITELIST_PAIR6",
                                            "WHITELIST_PAIR7", "WHITELIST_PAIR8", "WHITELIST_PAIR9",
                                            "WHITELIST_PAIR10"};
        const char* key = names[n - 1];
        rows.push_back({WAP, key, SetupInfoKey::VALUE_TYPE__TEXT, SetupInfoKey::ACCESS__GET, nullText(),
                        QStringLiteral("12%1,gw").arg(n),
                        [key](Info& i) { return SetupInfoKey::find(QLatin1String(WAP), QLatin1String(key))->read(i.objSetupMsgctr()); },
                        {}});
    }
    const std::vector<KeyRow> rest{
        {WAP, "MAX_VALID_SMSC", SetupInfoKey::VALUE_TYPE__TEXT, SetupInfoKey::ACCESS__GET, nullText(), QStringLiteral("+999"),
         GETTER(QString, getMaxSmscWhitelistRange()), {}},
        {WAP, "MIN_VALID_SMSC", SetupInfoKey::VALUE_TYPE__TEXT, SetupInfoKey::ACCESS__GET, nullText(), QStringLiteral("+100"),
         GETTER(QString, getMinSmscWhitelistRange()), {}},
        {WAP, "PUSH_SER_LOADING_SECURITY_TYPE", SetupInfoKey::VALUE_TYPE__INT, SetupInfoKey::ACCESS__GET_SET, 0, 2,
         GETTER(int, getPushSerLoadingSecurityType()),
         [](Info& i, const QVariant& v) { return i.setPushSerLoadingSecurityType(v.toInt()); }},
        {INFO, "INFO_SERV_CHANNEL_LIST", SetupInfoKey::VALUE_TYPE__TEXT, SetupInfoKey::ACCESS__GET_SET, emptyText(),
         QStringLiteral("50,Local,0,1"),
         [](Info& i) {
             return SetupInfoKey::find(QLatin1String(INFO), QStringLiteral("INFO_SERV_CHANNEL_LIST"))
                 ->read(i.objSetupMsgctr());
         },
         {}},
        {INFO, "SAVE_INFO_SERV_QUICKVIEW_MSG", SetupInfoKey::VALUE_TYPE__BOOL, SetupInfoKey::ACCESS__GET_SET, true, false,
         GETTER(bool, needSaveInfoServQuickviewMsg()),
         [](Info& i, const QVariant& v) { return i.setNeedSaveInfoServQuickviewMsg(v.toBool()); }},
        {INFO, "CB_CHNLS_IDL_SL", SetupInfoKey::VALUE_TYPE__INT_LIST, SetupInfoKey::ACCESS__GET, ints({50}), ints({50, 4370}),
         GETTER(std::vector<int>, cbChannelSForIdleScrSilent()), {}},
        {INFO, "CB_MAX_LEN_IDL", SetupInfoKey::VALUE_TYPE__INT, SetupInfoKey::ACCESS__GET, 15, -15, GETTER(int, cbMsgLengthForIdleScr()),
         {}},
        {INFO, "CELL_WIDE_CB", SetupInfoKey::VALUE_TYPE__BOOL, SetupInfoKey::ACCESS__GET, true, false,
         GETTER(bool, cellWideCbMsgFeatureAvailable()), {}},
        {"GROUP_4_DEBUG", "OUTPUT_DEBUG_LOG", SetupInfoKey::VALUE_TYPE__BOOL, SetupInfoKey::ACCESS__GET_SET, false, true,
         GETTER(bool, outputDebugLogIsEnabled()),
         [](Info& i, const QVariant& v) { return i.enableOutputDebugLog(v.toBool()); }},
    };
    rows.insert(rows.end(), rest.begin(), rest.end());
    return rows;
}

// Writes a value in the key's own store type, past the settings object.
MSGCTR_ERRCODE writeAsType(const KeyRow& row, const QVariant& value)
{
    MSGCTR_ENG_Setup store(MSGCTR_ENG_Setup::MSGCTR_APP_ID, MSGCTR_ENG_Setup::FLUSH_MODE__FLUSH);
    const QString group = QLatin1String(row.group);
    const QString key = QLatin1String(row.key);
    switch (row.type) {
    case SetupInfoKey::VALUE_TYPE__INT:
        return store.setEntry(group, key, value.toInt());
    case SetupInfoKey::VALUE_TYPE__UINT:
        return store.setEntry(group, key, value.toUInt());
    case SetupInfoKey::VALUE_TYPE__BOOL:
        return store.setEntry(group, key, value.toBool());
    case SetupInfoKey::VALUE_TYPE__TEXT:
        return store.setEntry(group, key, value.toString(), false);
    case SetupInfoKey::VALUE_TYPE__ANY_TEXT:
        return store.setEntryAnyQstr(group, key, value.toString());
    case SetupInfoKey::VALUE_TYPE__TEXT_LIST:
        return store.setEntry(group, key, value.toStringList());
    case SetupInfoKey::VALUE_TYPE__INT_LIST: {
        const QList<int> list = value.value<QList<int>>();
        return store.setEntry(group, key, std::vector<int>(list.begin(), list.end()));
    }
    }
    return -1;
}

class SetupInfoKeyTest : public HostRootTest, public ::testing::WithParamInterface<KeyRow> {};

// How the store file holds each key's sample: numbers in decimal, booleans as words, texts as they are, int
// lists joined by ",", and the arbitrary text and the text list as the hexadecimal of their serialised bytes
// followed by the CRC-16 of those bytes.
QByteArray storedSample(const char* key)
{
    static const std::map<std::string, const char*> stored{
        {"SEQ_NUM_OF_SEND_BY_MUL", "4000000000"},
        {"SIGNATURE_CONTENT", "000000160042006500730074003D000D000A005B006D0065005DD6C6"},
        {"SIGNATURE_AUTO_INCLUDE", "true"},
        {"SMS_DELIVERY_REPORT_ENABLED_FLAG", "true"},
        {"INCOM_SMS_PREF_STORAGE", "2"},
        {"INCOM_SMS_MSG_PREF_USER_DEF_STORAGE", "My folder"},
        {"INCOM_MMS_MSG_PREF_STORAGE", "1"},
        {"INCOM_MMS_MSG_PREF_USER_DEF_STORAGE", "MMS folder"},
        {"SMS_VALIDITY_TIME", "-86400"},
        {"EMAIL_GATEWAY", "5500"},
        {"EMAIL_MMS_NOTICE", "true"},
        {"EMAIL_GATEWAY_WARNING", "false"},
        {"USER_DEF_QUICK_TEXTS", "0000000200000012004F006E0020006D00790020007700610079000000060061003D00628F8C"},
        {"ALLOW_MANUAL_CHOOSE_MSG_TYPE_IN_COMPOSER", "false"},
        {"MAX_SMS_UNIT", "-3"},
        {"MAX_SMS_VALUE", "-4"},
        {"NEED_RETRY_SEND_SMS", "true"},
        {"RETRY_SEND_SMS_TIME_INTERVAL", "1,-2,3"},
        {"SMS_VALIDITY_TIME_LIST_FOR_SELECTION", "60"},
        {"SMS_MAX_USERDEF_SMS_PROF_NUM", "-5"},
        {"SMS_CHARACTER_ENCODING_MODE", "2"},
        {"SMS_LONG_SMS_FUNC_ACTIVATED", "false"},
        {"MSG_SAVE_OUTGOING", "false"},
        {"VOICE_MAIL_SRV_CTR_NUMBER", "+4412345"},
        {"VOICE_MAIL_SRV_CTR_NUMBER2", "+4467890"},
        {"VOICE_MAIL_SRV_CTR_NAME", "Mailbox one"},
        {"VOICE_MAIL_SRV_CTR_NAME2", "Mailbox two"},
        {"VOICE_MAIL_COUNT", "4000000000"},
        {"VOICE_MAIL_COUNT2", "4000000000"},
        {"IMSI_CHANGED_FLAG", "true"},
        {"VOICE_MAIL_COUNTABLE", "true"},
        {"WAP_ALLOWED_PUSH_SMSC_MODE", "2"},
        {"WAP_ALLOWED_PPG_S", "123,gw;456,gw2"},
        {"WHITELIST_PAIR1", "121,gw"},
        {"WHITELIST_PAIR2", "122,gw"},
        {"WHITELIST_PAIR3", "123,gw"},
        {"WHITELIST_PAIR4", "124,gw"},
        {"WHITELIST_PAIR5", "125,gw"},
        {"WHITELIST_PAIR6", "126,gw"},
        {"WHITELIST_PAIR7", "127,gw"},
        {"WHITELIST_PAIR8", "128,gw"},
        {"WHITELIST_PAIR9", "129,gw"},
        {"WHITELIST_PAIR10", "1210,gw"},
        {"MAX_VALID_SMSC", "+999"},
        {"MIN_VALID_SMSC", "+100"},
        {"PUSH_SER_LOADING_SECURITY_TYPE", "2"},
        {"INFO_SERV_CHANNEL_LIST", "50,Local,0,1"},
        {"SAVE_INFO_SERV_QUICKVIEW_MSG", "false"},
        {"CB_CHNLS_IDL_SL", "50,4370"},
        {"CB_MAX_LEN_IDL", "-15"},
        {"CELL_WIDE_CB", "false"},
        {"OUTPUT_DEBUG_LOG", "true"}};
    const auto found = stored.find(key);
    if (found == stored.end()) {
        ADD_FAILURE() << "no stored form written down for " << key;
        return QByteArray();
    }
    return found->second;
}

TEST_P(SetupInfoKeyTest, MissingKeyReadsItsDefault)
{
    Info info(MSGCTR_ENG_Setup::FLUSH_MODE__FLUSH);
    EXPECT_EQ(describe(GetParam().get(info)), describe(GetParam().defaultValue));
}

TEST_P(SetupInfoKeyTest, WrittenValueReadsBack)
{
    const KeyRow& row = GetParam();
    {
        Info info(MSGCTR_ENG_Setup::FLUSH_MODE__FLUSH);
        if (row.set)
            EXPECT_EQ(row.set(info, row.sample), 0);
        else
            EXPECT_EQ(writeAsType(row, row.sample), 0);
        EXPECT_EQ(describe(row.get(info)), describe(row.sample));
    }
    Info later(MSGCTR_ENG_Setup::FLUSH_MODE__NOT_FLUSH);
    EXPECT_EQ(describe(row.get(later)), describe(row.sample));
}

TEST_P(SetupInfoKeyTest, StoredAsTheTablesType)
{
    const KeyRow& row = GetParam();
    Info info(MSGCTR_ENG_Setup::FLUSH_MODE__FLUSH);
    if (row.set)
        ASSERT_EQ(row.set(info, row.sample), 0);
    else
        ASSERT_EQ(SetupInfoKey::find(QLatin1String(row.group), QLatin1String(row.key))->write(info.objSetupMsgctr(), row.sample),
                  0);
    SETUP_SET_Manager store(AM_Global::APP_MESSAGING, true);
    QFile file(store.fileName());
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), QByteArray("[") + row.group + "]\n" + row.key + "=" + storedSample(row.key) + "\n");
}

TEST_P(SetupInfoKeyTest, LibraryTableAgrees)
{
    const KeyRow& row = GetParam();
    const SetupInfoKey* key = SetupInfoKey::find(QLatin1String(row.group), QLatin1String(row.key));
    ASSERT_NE(key, nullptr);
    EXPECT_STREQ(key->group, row.group);
    EXPECT_STREQ(key->key, row.key);
    EXPECT_EQ(key->type, row.type);
    EXPECT_EQ(key->access, row.access);
    EXPECT_EQ(describe(key->defaultValue), describe(row.defaultValue));
}

INSTANTIATE_TEST_SUITE_P(EveryKey, SetupInfoKeyTest, ::testing::ValuesIn(keyRows()),
                         [](const ::testing::TestParamInfo<KeyRow>& info) { return std::string(info.param.key); });

// The prefix of a report from the settings object's source, at the first line with `check` from the head of
// `function` on, with "TICKS" where the tick count stands.
class SetupInfoTest : public HostRootTest {
protected:
    QString storeFileName()
    {
        SETUP_SET_Manager store(AM_Global::APP_MESSAGING, true);
        return store.fileName();
    }
    QByteArray storeBytes()
    {
        QFile file(storeFileName());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<no file>");
    }
    QStringList reportsWithoutTicks()
    {
        static const QRegularExpression ticks(QStringLiteral("^([^(]*)\\(\\d+\\)(\\[[^\\]]*\\])\\d+: "));
        QStringList lines = takeReportLines();
        for (QString& line : lines)
            line.replace(ticks, QStringLiteral("\\1(LINE)\\2TICKS: "));
        return lines;
    }
};

TEST_F(SetupInfoTest, TableHoldsEveryKeyOnceInTheOrderOfTheGroups)
{
    const std::vector<KeyRow> rows = keyRows();
    ASSERT_EQ(rows.size(), size_t(SETUP_INFO_KEY_COUNT));
    for (size_t i = 0; i < rows.size(); ++i)
        EXPECT_STREQ(SetupInfoKey::of(SetupInfoKeyId(i)).key, rows[i].key);
    EXPECT_EQ(SetupInfoKey::find(QStringLiteral("GROUP_MSGCTR_SMS"), QStringLiteral("NO_SUCH_KEY")), nullptr);
    EXPECT_EQ(SetupInfoKey::find(QStringLiteral("GROUP_MSGCTR_VM"), QStringLiteral("EMAIL_GATEWAY")), nullptr);
}

TEST_F(SetupInfoTest, IsAnObjectDependencyWithItsOwnStore)
{
    Info writeThrough(MSGCTR_ENG_Setup::FLUSH_MODE__FLUSH);
    Info buffered(MSGCTR_ENG_Setup::FLUSH_MODE__NOT_FLUSH);
    EXPECT_TRUE(writeThrough.inherits("MSGCTR_ENG_ObjectDependency"));
    EXPECT_STREQ(writeThrough.metaObject()->className(), "MSGCTR_ENG_SetupInfo");
    EXPECT_EQ(writeThrough.parent(), nullptr);
    EXPECT_FALSE(writeThrough.autoDeleteByDataIn());
    EXPECT_TRUE(writeThrough.objSetupMsgctr().isFlushMode());
    EXPECT_FALSE(buffered.objSetupMsgctr().isFlushMode());
    EXPECT_EQ(writeThrough.objSetupMsgctr().fileName(), storeFileName());
}

TEST_F(SetupInfoTest, LineOneSelectsTheSecondKeys)
{
    Info info(MSGCTR_ENG_Setup::FLUSH_MODE__FLUSH);
    MSGCTR_ENG_Setup store(MSGCTR_ENG_Setup::MSGCTR_APP_ID, MSGCTR_ENG_Setup::FLUSH_MODE__FLUSH);
    const QString vm = QStringLiteral("GROUP_MSGCTR_VM");
    ASSERT_EQ(store.setEntry(vm, QStringLiteral("VOICE_MAIL_COUNT"), 3u), 0);
    ASSERT_EQ(store.setEntry(vm, QStringLiteral("VOICE_MAIL_COUNT2"), 7u), 0);
    EXPECT_EQ(info.getVoiceMailCount(1), 7u);
    EXPECT_EQ(info.getVoiceMailCount(0), 3u);
    EXPECT_EQ(info.getVoiceMailCount(2), 3u);
    EXPECT_EQ(info.getVoiceMailCount(-1), 3u);

    EXPECT_EQ(info.setVoiceMailCount(2, 4u), 0);
    EXPECT_EQ(info.getVoiceMailCount(0), 4u);
    EXPECT_EQ(info.getVoiceMailCount(1), 7u);

    EXPECT_EQ(info.setVoiceMailSrvCtrNumber(1, QStringLiteral("222")), 0);
    EXPECT_EQ(info.setVoiceMailSrvCtrNumber(5, QStringLiteral("111")), 0);
    EXPECT_EQ(info.getVoiceMailSrvCtrNumber(0), QStringLiteral("111"));
    EXPECT_EQ(info.getVoiceMailSrvCtrNumber(1), QStringLiteral("222"));
    EXPECT_EQ(info.setVoiceMailSrvCtrName(1, QStringLiteral("two")), 0);
    EXPECT_EQ(info.setVoiceMailSrvCtrName(0, QStringLiteral("one")), 0);
    EXPECT_EQ(info.getVoiceMailSrvCtrName(2), QStringLiteral("one"));
    EXPECT_EQ(info.getVoiceMailSrvCtrName(1), QStringLiteral("two"));
}

TEST_F(SetupInfoTest, TextSetterRefusesWhatTheStoreCannotKeep)
{
    Info info(MSGCTR_ENG_Setup::FLUSH_MODE__FLUSH);
    ASSERT_EQ(info.setEmailGateway(QStringLiteral("5500")), 0);
    const QByteArray before = storeBytes();
    EXPECT_EQ(info.setEmailGateway(QStringLiteral("a=b")), MSGCTR_ERRCODE__SETUP_INVALID_CHAR);
    EXPECT_EQ(info.setVoiceMailSrvCtrName(0, QStringLiteral("[x]")), MSGCTR_ERRCODE__SETUP_INVALID_CHAR);
    EXPECT_EQ(storeBytes(), before);
    EXPECT_EQ(info.getEmailGateway(), QStringLiteral("5500"));
    EXPECT_EQ(info.setEmailGateway(QStringLiteral("a b")), 0);
    EXPECT_EQ(info.getEmailGateway(), QStringLiteral("a b"));
}

TEST_F(SetupInfoTest, WriteFailuresGiveTheirCodes)
{
    Info info(MSGCTR_ENG_Setup::FLUSH_MODE__FLUSH);
    ZorHost::injectFault(QStringLiteral("SETUP_SET_Manager::setBool"), ENOSPC);
    EXPECT_EQ(info.setSignatureAutoInclude(true), MSGCTR_ERRCODE__SETUP_WRITE_NO_SPACE);
    ZorHost::injectFault(QStringLiteral("SETUP_SET_Manager::setBool"), EIO);
    EXPECT_EQ(Info::setImsiChangedFlag(true), MSGCTR_ERRCODE__SETUP_WRITE_FAIL);
    ZorHost::injectFault(QStringLiteral("SETUP_SET_Manager::setString"), ENOSPC);
    EXPECT_EQ(info.setSignatureContent(QStringLiteral("s")), MSGCTR_ERRCODE__SETUP_WRITE_NO_SPACE);
    ZorHost::injectFault(QStringLiteral("SETUP_SET_Manager::setUInt"), EPERM);
    EXPECT_EQ(info.setVoiceMailCount(1, 2u), MSGCTR_ERRCODE__SETUP_WRITE_FAIL);
    EXPECT_FALSE(info.getSignatureAutoInclude());
    EXPECT_FALSE(Info::getImsiChangedFlag());
    EXPECT_TRUE(info.getSignatureContent().isNull());
    EXPECT_EQ(info.getVoiceMailCount(1), 0u);
}

TEST_F(SetupInfoTest, BufferedObjectDestroyedUnflushedLeavesTheFileUnchanged)
{
    {
        Info writeThrough(MSGCTR_ENG_Setup::FLUSH_MODE__FLUSH);
        ASSERT_EQ(writeThrough.setEmailGateway(QStringLiteral("5500")), 0);
    }
    const QByteArray before = storeBytes();
    {
        Info buffered(MSGCTR_ENG_Setup::FLUSH_MODE__NOT_FLUSH);
        EXPECT_EQ(buffered.setSmsValidityTime(3600), 0);
        EXPECT_EQ(buffered.setSignatureContent(QStringLiteral("sig")), 0);
        EXPECT_EQ(buffered.getSmsValidityTime(), 3600);
        EXPECT_EQ(storeBytes(), before);
    }
    EXPECT_EQ(storeBytes(), before);
    Info later(MSGCTR_ENG_Setup::FLUSH_MODE__FLUSH);
    EXPECT_EQ(later.getSmsValidityTime(), -1);
    EXPECT_TRUE(later.getSignatureContent().isNull());
}

TEST_F(SetupInfoTest, BufferedObjectFlushedIsWritten)
{
    {
        Info buffered(MSGCTR_ENG_Setup::FLUSH_MODE__NOT_FLUSH);
        EXPECT_EQ(buffered.setSmsValidityTime(3600), 0);
        EXPECT_EQ(buffered.enableOutputDebugLog(true), 0);
        EXPECT_EQ(storeBytes(), QByteArray("<no file>"));
        EXPECT_EQ(buffered.flush(), 0);
    }
    EXPECT_TRUE(storeBytes().contains("SMS_VALIDITY_TIME=3600"));
    Info later(MSGCTR_ENG_Setup::FLUSH_MODE__FLUSH);
    EXPECT_EQ(later.getSmsValidityTime(), 3600);
    EXPECT_TRUE(later.outputDebugLogIsEnabled());
}

TEST_F(SetupInfoTest, FlushFailuresGiveTheirCodesAndKeepTheWritesBuffered)
{
    Info buffered(MSGCTR_ENG_Setup::FLUSH_MODE__NOT_FLUSH);
    EXPECT_EQ(buffered.setSmsValidityTime(60), 0);
    ZorHost::injectFault(QStringLiteral("SETUP_SET_Manager::flush"), ENOSPC);
    EXPECT_EQ(buffered.flush(), MSGCTR_ERRCODE__SETUP_WRITE_NO_SPACE);
    ZorHost::injectFault(QStringLiteral("SETUP_SET_Manager::flush"), EIO);
    EXPECT_EQ(buffered.flush(), MSGCTR_ERRCODE__SETUP_WRITE_FAIL);
    EXPECT_EQ(storeBytes(), QByteArray("<no file>"));
    EXPECT_EQ(buffered.flush(), 0);
    EXPECT_TRUE(storeBytes().contains("SMS_VALIDITY_TIME=60"));
}

TEST_F(SetupInfoTest, StaticFlagsWriteThroughWhateverTheCallersMode)
{
    {
        Info buffered(MSGCTR_ENG_Setup::FLUSH_MODE__NOT_FLUSH);
        EXPECT_EQ(buffered.setSmsValidityTime(60), 0);
        EXPECT_EQ(buffered.setImsiChangedFlag(true), 0);
        EXPECT_EQ(Info::setVoiceMailCountableFlag(true), 0);
        EXPECT_TRUE(storeBytes().contains("IMSI_CHANGED_FLAG=true"));
        EXPECT_TRUE(storeBytes().contains("VOICE_MAIL_COUNTABLE=true"));
        EXPECT_TRUE(buffered.objSetupMsgctr().hasUnflushedWrites());
    }
    Info later(MSGCTR_ENG_Setup::FLUSH_MODE__FLUSH);
    EXPECT_TRUE(Info::getImsiChangedFlag());
    EXPECT_TRUE(Info::getVoiceMailCountableFlag());
    EXPECT_EQ(later.getSmsValidityTime(), -1);
}

TEST_F(SetupInfoTest, StaticFlagsReadWhatIsDurableNotTheCallersBufferedWrites)
{
    Info buffered(MSGCTR_ENG_Setup::FLUSH_MODE__NOT_FLUSH);
    const SetupInfoKey* imsi = SetupInfoKey::find(QStringLiteral("GROUP_MSGCTR_VM"), QStringLiteral("IMSI_CHANGED_FLAG"));
    ASSERT_NE(imsi, nullptr);
    EXPECT_EQ(imsi->write(buffered.objSetupMsgctr(), true), 0);
    EXPECT_TRUE(imsi->read(buffered.objSetupMsgctr()).toBool());
    EXPECT_FALSE(Info::getImsiChangedFlag());
    EXPECT_EQ(buffered.flush(), 0);
    EXPECT_TRUE(Info::getImsiChangedFlag());
}

TEST_F(SetupInfoTest, ValidPushModesAndTypesAreNotReported)
{
    Info info(MSGCTR_ENG_Setup::FLUSH_MODE__FLUSH);
    for (int value : {0, 1, 2}) {
        EXPECT_EQ(info.setWapAllowedPushSmscMode(value), 0);
        EXPECT_EQ(info.getWapAllowedPushSmscMode(), value);
        EXPECT_EQ(info.setPushSerLoadingSecurityType(value), 0);
        EXPECT_EQ(info.getPushSerLoadingSecurityType(), value);
    }
    EXPECT_EQ(reportLines(), QStringList());
}

TEST_F(SetupInfoTest, OutOfRangePushModeIsReportedAndStoredAnyway)
{
    Info info(MSGCTR_ENG_Setup::FLUSH_MODE__FLUSH);
    EXPECT_EQ(info.setWapAllowedPushSmscMode(7), 0);
    const QString check = QStringLiteral(
        "assert fail at \"WAP_ALLOWED_PUSH_SMSC_MODE__OFF == nMode || WAP_ALLOWED_PUSH_SMSC_MODE__RECEIVE_ALL == "
        "nMode || WAP_ALLOWED_PUSH_SMSC_MODE__RESTRICTED == nMode\"; nMode = 7(S32,4), ");
    EXPECT_EQ(reportsWithoutTicks(),
              QStringList{QStringLiteral("MSGCTR_ENG_SetupInfo.cpp(LINE)[setWapAllowedPushSmscMode]TICKS: ") + check});
    int stored = 0;
    info.objSetupMsgctr().getEntry(QStringLiteral("GROUP_MSGCTR_WAP"), QStringLiteral("WAP_ALLOWED_PUSH_SMSC_MODE"),
                                   &stored, 1);
    EXPECT_EQ(stored, 7);
    EXPECT_EQ(info.getWapAllowedPushSmscMode(), 7);
    EXPECT_EQ(reportsWithoutTicks(),
              QStringList{QStringLiteral("MSGCTR_ENG_SetupInfo.cpp(LINE)[getWapAllowedPushSmscMode]TICKS: ") + check});
}

TEST_F(SetupInfoTest, OutOfRangeSecurityTypeIsReportedAndStoredAnyway)
{
    Info info(MSGCTR_ENG_Setup::FLUSH_MODE__FLUSH);
    EXPECT_EQ(info.setPushSerLoadingSecurityType(-1), 0);
    const QString check = QStringLiteral(
        "assert fail at \"(PUSH_SL_SECURITY_ASK == nPushSerLoadingSecurityType) || (PUSH_SL_SECURITY_ALLOW == "
        "nPushSerLoadingSecurityType) || (PUSH_SL_SECURITY_DENY == nPushSerLoadingSecurityType)\"; "
        "nPushSerLoadingSecurityType = -1(S32,4), ");
    EXPECT_EQ(reportsWithoutTicks(),
              QStringList{QStringLiteral("MSGCTR_ENG_SetupInfo.cpp(LINE)[setPushSerLoadingSecurityType]TICKS: ")
                          + check});
    EXPECT_EQ(info.getPushSerLoadingSecurityType(), -1);
    EXPECT_EQ(reportsWithoutTicks(),
              QStringList{QStringLiteral("MSGCTR_ENG_SetupInfo.cpp(LINE)[getPushSerLoadingSecurityType]TICKS: ")
                          + check});
}

TEST_F(SetupInfoTest, PreferredStorageIsTracedOnEveryReadAndReportedWhenInvalid)
{
    Info info(MSGCTR_ENG_Setup::FLUSH_MODE__FLUSH);
    EXPECT_EQ(info.getIncomingSMSMsgPrefStorage(), 0u);
    EXPECT_EQ(info.getIncomingSMSMsgPrefStorage(), 0u);
    const QString trace = QStringLiteral(
        "MSGCTR_ENG_SetupInfo.cpp(LINE)[getIncomingSMSMsgPrefStorage]TICKS: nPrefStorage = 0/0x00000000(U32,4), ");
    EXPECT_EQ(reportsWithoutTicks(), (QStringList{trace, trace}));

    // The setter writes any value; the getter reports a bad one and returns it.
    EXPECT_EQ(info.setIncomingSMSMsgPrefStorage(3u), 0);
    EXPECT_EQ(reportsWithoutTicks(), QStringList());
    EXPECT_EQ(info.getIncomingSMSMsgPrefStorage(), 3u);
    EXPECT_EQ(reportsWithoutTicks(),
              (QStringList{QStringLiteral("MSGCTR_ENG_SetupInfo.cpp(LINE)[getIncomingSMSMsgPrefStorage]TICKS: "
                                          "assert fail at \"MSGCTR_ENG_SetupInfo__preferredMsgStorageValueIsValid("
                                          "nPrefStorage)\"; nPrefStorage = 3/0x00000003(U32,4), "),
                           QStringLiteral("MSGCTR_ENG_SetupInfo.cpp(LINE)[getIncomingSMSMsgPrefStorage]TICKS: "
                                          "nPrefStorage = 3/0x00000003(U32,4), ")}));

    EXPECT_EQ(info.setIncomingMMSMsgPrefStorage(7u), 0);
    EXPECT_EQ(info.getIncomingMMSMsgPrefStorage(), 7u);
    EXPECT_EQ(reportsWithoutTicks(),
              (QStringList{QStringLiteral("MSGCTR_ENG_SetupInfo.cpp(LINE)[getIncomingMMSMsgPrefStorage]TICKS: "
                                          "assert fail at \"MSGCTR_ENG_SetupInfo__preferredMsgStorageValueIsValid("
                                          "nPrefStorage)\"; nPrefStorage = 7/0x00000007(U32,4), "),
                           QStringLiteral("MSGCTR_ENG_SetupInfo.cpp(LINE)[getIncomingMMSMsgPrefStorage]TICKS: "
                                          "nPrefStorage = 7/0x00000007(U32,4), ")}));
}

TEST_F(SetupInfoTest, PreferredStorageValuesZeroToTwoAreValid)
{
    EXPECT_TRUE(MSGCTR_ENG_SetupInfo__preferredMsgStorageValueIsValid(0));
    EXPECT_TRUE(MSGCTR_ENG_SetupInfo__preferredMsgStorageValueIsValid(1));
    EXPECT_TRUE(MSGCTR_ENG_SetupInfo__preferredMsgStorageValueIsValid(2));
    EXPECT_FALSE(MSGCTR_ENG_SetupInfo__preferredMsgStorageValueIsValid(3));
    EXPECT_FALSE(MSGCTR_ENG_SetupInfo__preferredMsgStorageValueIsValid(4294967295u));
}

TEST_F(SetupInfoTest, IntListKeyWithANonNumberReadsEmpty)
{
    SETUP_SET_Manager raw(AM_Global::APP_MESSAGING, true);
    ASSERT_TRUE(raw.setString(QStringLiteral("GROUP_MSGCTR_SMS"), QStringLiteral("RETRY_SEND_SMS_TIME_INTERVAL"),
                              QStringLiteral("5,x"), false));
    Info info(MSGCTR_ENG_Setup::FLUSH_MODE__FLUSH);
    EXPECT_TRUE(info.getRetrySendSmsTimeInterval().empty());
    EXPECT_EQ(info.getSmsValidityTimeListForSelection(), (std::vector<int>{3600, 21600, 86400, 604800, -1}));
}

TEST_F(SetupInfoTest, QuickTextLimitIsTwenty)
{
    EXPECT_EQ(Info::getMaximumPermitCountOfUserDefineQuickTexts(), 20);
}

TEST_F(SetupInfoTest, GenericWriteOfATextKeyRefusesLikeTheSetters)
{
    Info info(MSGCTR_ENG_Setup::FLUSH_MODE__FLUSH);
    const SetupInfoKey* channels =
        SetupInfoKey::find(QStringLiteral("GROUP_MSGCTR_INFO_SERV"), QStringLiteral("INFO_SERV_CHANNEL_LIST"));
    ASSERT_NE(channels, nullptr);
    EXPECT_EQ(channels->write(info.objSetupMsgctr(), QStringLiteral("50,a=b,0,1")), MSGCTR_ERRCODE__SETUP_INVALID_CHAR);
    EXPECT_EQ(storeBytes(), QByteArray("<no file>"));
}

} // namespace
