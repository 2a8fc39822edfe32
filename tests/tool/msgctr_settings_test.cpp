#include "HostRootTest.h"
#include "MsgctrRun.h"

#include "MSGCTR_ENG_SetupInfo.h"
#include "settings/SetupInfoKey.h"
#include "ZorHostControl.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>

namespace {

class MsgctrSettingsTest : public HostRootTest {
protected:
    MsgctrResult run(const QStringList& args)
    {
        return runMsgctr(root(), QStringList{QStringLiteral("settings")} + args);
    }
    QByteArray storeBytes()
    {
        SETUP_SET_Manager store(AM_Global::APP_MESSAGING, true);
        QFile file(store.fileName());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<no file>");
    }
};

TEST_F(MsgctrSettingsTest, ListShowsEveryKeyWithTypeAccessAndDefault)
{
    const MsgctrResult r = run({QStringLiteral("list")});
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.err, QString());
    const QStringList lines = r.out.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    EXPECT_EQ(lines.size(), 4 * qsizetype(SETUP_INFO_KEY_COUNT));
    for (const char* line : {"GROUP_MSGCTR_SMS.SEQ_NUM_OF_SEND_BY_MUL.type: uint",
                             "GROUP_MSGCTR_SMS.SEQ_NUM_OF_SEND_BY_MUL.access: get,set",
                             "GROUP_MSGCTR_SMS.SEQ_NUM_OF_SEND_BY_MUL.default: 0",
                             "GROUP_MSGCTR_SMS.SIGNATURE_CONTENT.default: (none)",
                             "GROUP_MSGCTR_SMS.EMAIL_GATEWAY.default: ",
                             "GROUP_MSGCTR_SMS.SMS_VALIDITY_TIME_LIST_FOR_SELECTION.default: 3600, 21600, 86400, 604800, -1",
                             "GROUP_MSGCTR_SMS.SMS_VALIDITY_TIME_LIST_FOR_SELECTION.writable: false",
                             "GROUP_MSGCTR_SMS.USER_DEF_QUICK_TEXTS.type: text-list",
                             "GROUP_MSGCTR_VM.IMSI_CHANGED_FLAG.access: static-get,set",
                             "GROUP_MSGCTR_VM.IMSI_CHANGED_FLAG.writable: true",
                             "GROUP_4_DEBUG.OUTPUT_DEBUG_LOG.default: false"})
        EXPECT_TRUE(lines.contains(QString::fromLatin1(line))) << line;
    EXPECT_EQ(storeBytes(), QByteArray("<no file>"));
}

TEST_F(MsgctrSettingsTest, ListOfAKey)
{
    const MsgctrResult r = run({QStringLiteral("list"), QStringLiteral("GROUP_MSGCTR_WAP"), QStringLiteral("WAP_ALLOWED_PUSH_SMSC_MODE")});
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.out, QStringLiteral("GROUP_MSGCTR_WAP.WAP_ALLOWED_PUSH_SMSC_MODE.access: get,set\n"
                                    "GROUP_MSGCTR_WAP.WAP_ALLOWED_PUSH_SMSC_MODE.default: 1\n"
                                    "GROUP_MSGCTR_WAP.WAP_ALLOWED_PUSH_SMSC_MODE.type: int\n"
                                    "GROUP_MSGCTR_WAP.WAP_ALLOWED_PUSH_SMSC_MODE.writable: true\n"));
}

TEST_F(MsgctrSettingsTest, GetShowsDefaultsUntilAKeyIsStored)
{
    MsgctrResult r = run({QStringLiteral("get"), QStringLiteral("GROUP_MSGCTR_GENERAL")});
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.out, QStringLiteral("GROUP_MSGCTR_GENERAL.MSG_SAVE_OUTGOING: true\ndefaults: GROUP_MSGCTR_GENERAL.MSG_SAVE_OUTGOING\n"));

    MSGCTR_ENG_SetupInfo info(MSGCTR_ENG_Setup::FLUSH_MODE__FLUSH);
    ASSERT_EQ(info.setNeedToSaveOutgoingMsg(false), 0);
    r = run({QStringLiteral("get"), QStringLiteral("GROUP_MSGCTR_GENERAL")});
    EXPECT_EQ(r.out, QStringLiteral("GROUP_MSGCTR_GENERAL.MSG_SAVE_OUTGOING: false\ndefaults: (none)\n"));
    r = run({QStringLiteral("get"), QStringLiteral("GROUP_MSGCTR_GENERAL"), QStringLiteral("MSG_SAVE_OUTGOING")});
    EXPECT_EQ(r.out, QStringLiteral("GROUP_MSGCTR_GENERAL.MSG_SAVE_OUTGOING: false\ndefaults: (none)\n"));
}

TEST_F(MsgctrSettingsTest, GetOfEverythingCoversEveryKey)
{
    const MsgctrResult r = run({QStringLiteral("get"), QStringLiteral("--json")});
    EXPECT_EQ(r.exitCode, 0);
    const QJsonObject all = QJsonDocument::fromJson(r.out.toUtf8()).object();
    qsizetype keys = 0;
    for (auto it = all.begin(); it != all.end(); ++it)
        keys += it.key() == QLatin1String("defaults") ? 0 : it.value().toObject().size();
    EXPECT_EQ(keys, qsizetype(SETUP_INFO_KEY_COUNT));
    EXPECT_EQ(all.value(QStringLiteral("defaults")).toArray().size(), qsizetype(SETUP_INFO_KEY_COUNT));
    EXPECT_EQ(all.value(QStringLiteral("GROUP_MSGCTR_SMS")).toObject().value(QStringLiteral("MAX_SMS_VALUE")), QJsonValue(10));
}

TEST_F(MsgctrSettingsTest, SetWritesEachTypeAsTheLibraryReadsIt)
{
    const QString sms = QStringLiteral("GROUP_MSGCTR_SMS");
    MsgctrResult r = run({QStringLiteral("set"), sms, QStringLiteral("SEQ_NUM_OF_SEND_BY_MUL"), QStringLiteral("4000000000")});
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.out, QStringLiteral("GROUP_MSGCTR_SMS.SEQ_NUM_OF_SEND_BY_MUL: 4000000000\n"));
    EXPECT_EQ(run({QStringLiteral("set"), sms, QStringLiteral("SMS_VALIDITY_TIME"), QStringLiteral("-60")}).exitCode, 0);
    EXPECT_EQ(run({QStringLiteral("set"), sms, QStringLiteral("EMAIL_MMS_NOTICE"), QStringLiteral("on")}).exitCode, 0);
    EXPECT_EQ(run({QStringLiteral("set"), sms, QStringLiteral("EMAIL_GATEWAY"), QStringLiteral("a b")}).exitCode, 0);
    r = run({QStringLiteral("set"), sms, QStringLiteral("SIGNATURE_CONTENT"), QStringLiteral("x=\"y\"")});
    EXPECT_EQ(r.out, QStringLiteral("GROUP_MSGCTR_SMS.SIGNATURE_CONTENT: x=\"y\"\n"));
    r = run({QStringLiteral("set"), sms, QStringLiteral("USER_DEF_QUICK_TEXTS"), QStringLiteral("On my way"), QStringLiteral(""),
             QStringLiteral("--json")});
    EXPECT_EQ(r.out, QStringLiteral("{\n    \"GROUP_MSGCTR_SMS\": {\n        \"USER_DEF_QUICK_TEXTS\": [\n            \"On my way\",\n"
                                    "            \"\"\n        ]\n    }\n}\n"));
    r = run({QStringLiteral("set"), sms, QStringLiteral("RETRY_SEND_SMS_TIME_INTERVAL"), QStringLiteral("1,2,3"),
             QStringLiteral("--force")});
    EXPECT_EQ(r.out, QStringLiteral("GROUP_MSGCTR_SMS.RETRY_SEND_SMS_TIME_INTERVAL: 1, 2, 3\n"));

    MSGCTR_ENG_SetupInfo info(MSGCTR_ENG_Setup::FLUSH_MODE__FLUSH);
    EXPECT_EQ(info.getSeqNumOfSendByMul(), 4000000000u);
    EXPECT_EQ(info.getSmsValidityTime(), -60);
    EXPECT_TRUE(info.getEmailMmsNotice());
    EXPECT_EQ(info.getEmailGateway(), QStringLiteral("a b"));
    EXPECT_EQ(info.getSignatureContent(), QStringLiteral("x=\"y\""));
    QStringList texts;
    info.getUserDefinedQuickTexts(&texts);
    EXPECT_EQ(texts, (QStringList{QStringLiteral("On my way"), QString(QLatin1String(""))}));
    EXPECT_EQ(info.getRetrySendSmsTimeInterval(), (std::vector<int>{1, 2, 3}));
}

TEST_F(MsgctrSettingsTest, ReadOnlyKeyIsRefusedUnlessForced)
{
    const QStringList args{QStringLiteral("set"), QStringLiteral("GROUP_MSGCTR_SMS"), QStringLiteral("MAX_SMS_VALUE"), QStringLiteral("5")};
    MsgctrResult r = run(args);
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_EQ(r.out, QString());
    EXPECT_EQ(r.err, QStringLiteral("msgctr: GROUP_MSGCTR_SMS MAX_SMS_VALUE is read-only (give --force to write it all the same)\n"));
    EXPECT_EQ(storeBytes(), QByteArray("<no file>"));
    r = run(args + QStringList{QStringLiteral("--force")});
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.out, QStringLiteral("GROUP_MSGCTR_SMS.MAX_SMS_VALUE: 5\n"));
    r = run({QStringLiteral("list"), QStringLiteral("GROUP_MSGCTR_SMS"), QStringLiteral("MAX_SMS_VALUE")});
    EXPECT_TRUE(r.out.contains(QStringLiteral("GROUP_MSGCTR_SMS.MAX_SMS_VALUE.writable: false\n"))) << qPrintable(r.out);
}

TEST_F(MsgctrSettingsTest, RefusedTextFailsAndLeavesTheStore)
{
    ASSERT_EQ(run({QStringLiteral("set"), QStringLiteral("GROUP_MSGCTR_SMS"), QStringLiteral("EMAIL_GATEWAY"),
                   QStringLiteral("5500")})
                  .exitCode,
              0);
    const QByteArray before = storeBytes();
    const MsgctrResult r = run({QStringLiteral("set"), QStringLiteral("GROUP_MSGCTR_SMS"),
                                QStringLiteral("EMAIL_GATEWAY"), QStringLiteral("a=b")});
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_EQ(r.out, QString());
    EXPECT_EQ(r.err, QStringLiteral("msgctr: writing GROUP_MSGCTR_SMS EMAIL_GATEWAY failed: error 10020 (the store cannot "
                                    "keep \"[\", \"]\", \"=\" or line breaks in this value)\n"));
    EXPECT_EQ(storeBytes(), before);
}

struct BadSet {
    const char* name;
    QStringList args;
    QString err;
};

std::ostream& operator<<(std::ostream& os, const BadSet& b)
{
    return os << b.name;
}

class MsgctrSettingsBadInputTest : public MsgctrSettingsTest, public ::testing::WithParamInterface<BadSet> {};

TEST_P(MsgctrSettingsBadInputTest, IsBadUsageAndWritesNothing)
{
    const MsgctrResult r = run(GetParam().args);
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_EQ(r.out, QString());
    EXPECT_EQ(r.err, QStringLiteral("msgctr: ") + GetParam().err + QLatin1Char('\n'));
    EXPECT_EQ(storeBytes(), QByteArray("<no file>"));
}

const QString kSms = QStringLiteral("GROUP_MSGCTR_SMS");

INSTANTIATE_TEST_SUITE_P(
    Settings, MsgctrSettingsBadInputTest,
    ::testing::Values(
        BadSet{"unknownGroup", {QStringLiteral("get"), QStringLiteral("GROUP_MSGCTR_SMX")},
               QStringLiteral("GROUP must be one of GROUP_MSGCTR_SMS, GROUP_MSGCTR_GENERAL, GROUP_MSGCTR_VM, GROUP_MSGCTR_WAP, "
                              "GROUP_MSGCTR_INFO_SERV, GROUP_4_DEBUG, not 'GROUP_MSGCTR_SMX' (did you mean 'GROUP_MSGCTR_SMS'?)")},
        BadSet{"keyOfAnotherGroup", {QStringLiteral("list"), kSms, QStringLiteral("MSG_SAVE_OUTGOING")},
               QStringLiteral("GROUP_MSGCTR_SMS has no key MSG_SAVE_OUTGOING (see msgctr settings list GROUP_MSGCTR_SMS)")},
        BadSet{"tooManyForGet", {QStringLiteral("get"), kSms, QStringLiteral("MAX_SMS_VALUE"), QStringLiteral("x")},
               QStringLiteral("settings get: one argument too many: 'x' (see msgctr settings get --help)")},
        BadSet{"setWithoutKey", {QStringLiteral("set"), kSms}, QStringLiteral("settings set needs KEY (see msgctr settings set --help)")},
        BadSet{"setWithoutValue", {QStringLiteral("set"), kSms, QStringLiteral("MAX_SMS_VALUE"), QStringLiteral("--force")},
               QStringLiteral("settings set needs VALUE (see msgctr settings set --help)")},
        BadSet{"setTwoValues",
               {QStringLiteral("set"), kSms, QStringLiteral("EMAIL_GATEWAY"), QStringLiteral("a"), QStringLiteral("b")},
               QStringLiteral("a text key takes one VALUE (quote it if it has blanks)")},
        BadSet{"notAnInt", {QStringLiteral("set"), kSms, QStringLiteral("SMS_VALIDITY_TIME"), QStringLiteral("ten")},
               QStringLiteral("VALUE must be a number from -2147483648 to 2147483647, not 'ten'")},
        BadSet{"intTooBig", {QStringLiteral("set"), kSms, QStringLiteral("SMS_VALIDITY_TIME"), QStringLiteral("2147483648")},
               QStringLiteral("VALUE must be a number from -2147483648 to 2147483647, not '2147483648'")},
        BadSet{"negativeUint",
               {QStringLiteral("set"), kSms, QStringLiteral("SEQ_NUM_OF_SEND_BY_MUL"), QStringLiteral("--"), QStringLiteral("-1")},
               QStringLiteral("VALUE must be a number from 0 to 4294967295, not '-1'")},
        BadSet{"notABool", {QStringLiteral("set"), kSms, QStringLiteral("EMAIL_MMS_NOTICE"), QStringLiteral("maybe")},
               QStringLiteral("VALUE must be true or false (or on/off, yes/no, 1/0), not 'maybe'")},
        BadSet{"notAnIntList",
               {QStringLiteral("set"), kSms, QStringLiteral("RETRY_SEND_SMS_TIME_INTERVAL"), QStringLiteral("5,x")},
               QStringLiteral("'5,x' is not a list of ints joined by \",\"")}),
    [](const ::testing::TestParamInfo<BadSet>& info) { return std::string(info.param.name); });

TEST_F(MsgctrSettingsTest, FullDiskFailsWithItsMessage)
{
    QProcess probe;
    probe.start(QStringLiteral("unshare"), {QStringLiteral("-rm"), QStringLiteral("true")});
    if (!probe.waitForFinished(10000) || probe.exitStatus() != QProcess::NormalExit || probe.exitCode() != 0)
        GTEST_SKIP() << "cannot make a full file system here: unshare -rm is not permitted";

    // The tool runs against a root on a tiny file system of its own, filled up before the second write.
    QTemporaryDir mountPoint(QStringLiteral(ZOR_TEST_TMP "/fulldisk-XXXXXX"));
    ASSERT_TRUE(mountPoint.isValid());
    const QString script = QStringLiteral(
        "mount -t tmpfs -o size=256k tmpfs \"$1\" || exit 90\n"
        "\"$2\" --root \"$1\" settings set GROUP_MSGCTR_SMS EMAIL_GATEWAY old >/dev/null || exit 91\n"
        "dd if=/dev/zero of=\"$1/filler\" bs=4k >/dev/null 2>&1\n"
        "exec \"$2\" --root \"$1\" settings set GROUP_MSGCTR_SMS EMAIL_GATEWAY \"$3\"\n");
    QProcess child;
    child.start(QStringLiteral("unshare"), {QStringLiteral("-rm"), QStringLiteral("sh"), QStringLiteral("-c"), script,
                                            QStringLiteral("sh"), mountPoint.path(), QStringLiteral(ZOR_MSGCTR_EXE),
                                            QString(8192, QLatin1Char('y'))});
    ASSERT_TRUE(child.waitForFinished(60000));
    const QString err = QString::fromLocal8Bit(child.readAllStandardError());
    EXPECT_EQ(child.exitCode(), 1) << err.toStdString();
    EXPECT_EQ(err, QStringLiteral("msgctr: writing GROUP_MSGCTR_SMS EMAIL_GATEWAY failed: error 10019 (the disk is full)\n"));
    EXPECT_EQ(QString::fromLocal8Bit(child.readAllStandardOutput()), QString());
}

} // namespace
