#include "HostRootTest.h"
#include "MsgctrRun.h"

#include "MSGCTR_ENG_SetupInfo.h"
#include "settings/SetupInfoKey.h"
#include "ZorHostControl.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>

#include <sys/stat.h>

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
    EXPECT_EQ(lines.size(), 52) << "one line per key of the settings table";
    EXPECT_TRUE(lines.contains(QStringLiteral("GROUP_MSGCTR_SMS SEQ_NUM_OF_SEND_BY_MUL uint get,set default 0")));
    EXPECT_TRUE(lines.contains(QStringLiteral("GROUP_MSGCTR_SMS SIGNATURE_CONTENT any-text get,set default (null)")));
    EXPECT_TRUE(lines.contains(QStringLiteral("GROUP_MSGCTR_SMS EMAIL_GATEWAY text get,set default \"\"")));
    EXPECT_TRUE(lines.contains(
        QStringLiteral("GROUP_MSGCTR_SMS SMS_VALIDITY_TIME_LIST_FOR_SELECTION int-list get default [3600,21600,86400,604800,-1]")));
    EXPECT_TRUE(lines.contains(QStringLiteral("GROUP_MSGCTR_SMS USER_DEF_QUICK_TEXTS text-list get,set default []")));
    EXPECT_TRUE(lines.contains(QStringLiteral("GROUP_MSGCTR_VM IMSI_CHANGED_FLAG bool static-get,set default false")));
    EXPECT_TRUE(lines.contains(QStringLiteral("GROUP_4_DEBUG OUTPUT_DEBUG_LOG bool get,set default false")));
    EXPECT_EQ(storeBytes(), QByteArray("<no file>"));
}

TEST_F(MsgctrSettingsTest, ListOfAGroupAndOfAKey)
{
    MsgctrResult r = run({QStringLiteral("list"), QStringLiteral("GROUP_MSGCTR_INFO_SERV")});
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.out, QStringLiteral("GROUP_MSGCTR_INFO_SERV INFO_SERV_CHANNEL_LIST text get,set default \"\"\n"
                                    "GROUP_MSGCTR_INFO_SERV SAVE_INFO_SERV_QUICKVIEW_MSG bool get,set default true\n"
                                    "GROUP_MSGCTR_INFO_SERV CB_CHNLS_IDL_SL int-list get default [50]\n"
                                    "GROUP_MSGCTR_INFO_SERV CB_MAX_LEN_IDL int get default 15\n"
                                    "GROUP_MSGCTR_INFO_SERV CELL_WIDE_CB bool get default true\n"));
    r = run({QStringLiteral("list"), QStringLiteral("GROUP_MSGCTR_WAP"), QStringLiteral("WAP_ALLOWED_PUSH_SMSC_MODE")});
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.out, QStringLiteral("GROUP_MSGCTR_WAP WAP_ALLOWED_PUSH_SMSC_MODE int get,set default 1\n"));
}

TEST_F(MsgctrSettingsTest, GetShowsDefaultsUntilAKeyIsStored)
{
    MsgctrResult r = run({QStringLiteral("get"), QStringLiteral("GROUP_MSGCTR_GENERAL")});
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.out, QStringLiteral("GROUP_MSGCTR_GENERAL MSG_SAVE_OUTGOING = true (default)\n"));

    MSGCTR_ENG_SetupInfo info(MSGCTR_ENG_Setup::FLUSH_MODE__FLUSH);
    ASSERT_EQ(info.setNeedToSaveOutgoingMsg(false), 0);
    r = run({QStringLiteral("get"), QStringLiteral("GROUP_MSGCTR_GENERAL")});
    EXPECT_EQ(r.out, QStringLiteral("GROUP_MSGCTR_GENERAL MSG_SAVE_OUTGOING = false\n"));
    r = run({QStringLiteral("get"), QStringLiteral("GROUP_MSGCTR_GENERAL"), QStringLiteral("MSG_SAVE_OUTGOING")});
    EXPECT_EQ(r.out, QStringLiteral("false\n"));
}

TEST_F(MsgctrSettingsTest, GetOfEverythingCoversEveryKey)
{
    const MsgctrResult r = run({QStringLiteral("get")});
    EXPECT_EQ(r.exitCode, 0);
    const QStringList lines = r.out.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    EXPECT_EQ(lines.size(), 52) << "one line per key of the settings table";
    EXPECT_TRUE(lines.contains(QStringLiteral("GROUP_MSGCTR_SMS MAX_SMS_VALUE = 10 (default)")));
}

TEST_F(MsgctrSettingsTest, SetWritesEachTypeAsTheLibraryReadsIt)
{
    const QString sms = QStringLiteral("GROUP_MSGCTR_SMS");
    MsgctrResult r = run({QStringLiteral("set"), sms, QStringLiteral("SEQ_NUM_OF_SEND_BY_MUL"), QStringLiteral("4000000000")});
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.out, QStringLiteral("GROUP_MSGCTR_SMS SEQ_NUM_OF_SEND_BY_MUL = 4000000000\n"));
    EXPECT_EQ(run({QStringLiteral("set"), sms, QStringLiteral("SMS_VALIDITY_TIME"), QStringLiteral("-60")}).exitCode, 0);
    EXPECT_EQ(run({QStringLiteral("set"), sms, QStringLiteral("EMAIL_MMS_NOTICE"), QStringLiteral("on")}).exitCode, 0);
    EXPECT_EQ(run({QStringLiteral("set"), sms, QStringLiteral("EMAIL_GATEWAY"), QStringLiteral("a b")}).exitCode, 0);
    r = run({QStringLiteral("set"), sms, QStringLiteral("SIGNATURE_CONTENT"), QStringLiteral("x=\"y\"")});
    EXPECT_EQ(r.out, QStringLiteral("GROUP_MSGCTR_SMS SIGNATURE_CONTENT = \"x=\\\"y\\\"\"\n"));
    r = run({QStringLiteral("set"), sms, QStringLiteral("USER_DEF_QUICK_TEXTS"), QStringLiteral("On my way"),
             QStringLiteral("")});
    EXPECT_EQ(r.out, QStringLiteral("GROUP_MSGCTR_SMS USER_DEF_QUICK_TEXTS = [\"On my way\", \"\"]\n"));
    r = run({QStringLiteral("set"), sms, QStringLiteral("RETRY_SEND_SMS_TIME_INTERVAL"), QStringLiteral("1,2,3")});
    EXPECT_EQ(r.out, QStringLiteral("GROUP_MSGCTR_SMS RETRY_SEND_SMS_TIME_INTERVAL = [1,2,3]\n"));

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
    EXPECT_EQ(r.err, QStringLiteral("msgctr: cannot set GROUP_MSGCTR_SMS EMAIL_GATEWAY: the store cannot keep \"[\", "
                                    "\"]\", \"=\" or line breaks in this key (result 10020)\n"));
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
        BadSet{"unknownGroup", {QStringLiteral("get"), QStringLiteral("NOPE")},
               QStringLiteral("unknown group 'NOPE' (see msgctr settings list)")},
        BadSet{"unknownKey", {QStringLiteral("list"), kSms, QStringLiteral("NOPE")},
               QStringLiteral("unknown key 'GROUP_MSGCTR_SMS NOPE' (see msgctr settings list)")},
        BadSet{"tooManyForGet", {QStringLiteral("get"), kSms, QStringLiteral("MAX_SMS_VALUE"), QStringLiteral("x")},
               QStringLiteral("settings get takes at most GROUP and KEY")},
        BadSet{"setWithoutKey", {QStringLiteral("set"), kSms}, QStringLiteral("settings set needs GROUP KEY VALUE")},
        BadSet{"setWithoutValue", {QStringLiteral("set"), kSms, QStringLiteral("MAX_SMS_VALUE")},
               QStringLiteral("settings set needs a value")},
        BadSet{"setTwoValues",
               {QStringLiteral("set"), kSms, QStringLiteral("EMAIL_GATEWAY"), QStringLiteral("a"), QStringLiteral("b")},
               QStringLiteral("a text key takes one value (quote it if it has blanks)")},
        BadSet{"notAnInt", {QStringLiteral("set"), kSms, QStringLiteral("MAX_SMS_VALUE"), QStringLiteral("ten")},
               QStringLiteral("'ten' is not an int")},
        BadSet{"intTooBig", {QStringLiteral("set"), kSms, QStringLiteral("MAX_SMS_VALUE"), QStringLiteral("2147483648")},
               QStringLiteral("'2147483648' is not an int")},
        BadSet{"negativeUint",
               {QStringLiteral("set"), kSms, QStringLiteral("SEQ_NUM_OF_SEND_BY_MUL"), QStringLiteral("-1")},
               QStringLiteral("'-1' is not an unsigned int")},
        BadSet{"notABool", {QStringLiteral("set"), kSms, QStringLiteral("EMAIL_MMS_NOTICE"), QStringLiteral("maybe")},
               QStringLiteral("'maybe' is not a bool (true, false, on, off, yes, no, 1, 0)")},
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
        "$ZOR_TEST_EMULATOR \"$2\" --root \"$1\" settings set GROUP_MSGCTR_SMS EMAIL_GATEWAY old >/dev/null || exit 91\n"
        "dd if=/dev/zero of=\"$1/filler\" bs=4k >/dev/null 2>&1\n"
        "exec $ZOR_TEST_EMULATOR \"$2\" --root \"$1\" settings set GROUP_MSGCTR_SMS EMAIL_GATEWAY \"$3\"\n");
    QProcess child;
    child.start(QStringLiteral("unshare"), {QStringLiteral("-rm"), QStringLiteral("sh"), QStringLiteral("-c"), script,
                                            QStringLiteral("sh"), mountPoint.path(), QStringLiteral(ZOR_MSGCTR_EXE),
                                            QString(8192, QLatin1Char('y'))});
    ASSERT_TRUE(child.waitForFinished(60000));
    const QString err = QString::fromLocal8Bit(child.readAllStandardError());
    EXPECT_EQ(child.exitCode(), 1) << err.toStdString();
    EXPECT_EQ(err, QStringLiteral("msgctr: cannot set GROUP_MSGCTR_SMS EMAIL_GATEWAY: the disk is full (result 10019)\n"));
    EXPECT_EQ(QString::fromLocal8Bit(child.readAllStandardOutput()), QString());
}

// A FIFO in place of the store's file: reads answer at once with the defaults, writes are refused, and the
// FIFO stays.
TEST_F(MsgctrSettingsTest, FifoInPlaceOfTheStoreFileIsReportedNotWaitedOn)
{
    const QString path = SETUP_SET_Manager(AM_Global::APP_MESSAGING, true).fileName();
    ASSERT_TRUE(QDir().mkpath(QFileInfo(path).absolutePath()));
    ASSERT_EQ(::mkfifo(QFile::encodeName(path).constData(), 0644), 0);
    const QString report = QStringLiteral("SETUP_SET_Manager: %1 is not a regular file; it is not read and not "
                                          "replaced\n").arg(path);
    MsgctrResult r = run({QStringLiteral("get"), QStringLiteral("GROUP_MSGCTR_SMS"), QStringLiteral("MAX_SMS_VALUE")});
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.out, QStringLiteral("10\n"));
    EXPECT_EQ(r.err, report);
    r = run({QStringLiteral("set"), QStringLiteral("GROUP_MSGCTR_SMS"), QStringLiteral("MAX_SMS_VALUE"), QStringLiteral("3")});
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_EQ(r.out, QString());
    EXPECT_EQ(r.err, report + QStringLiteral("msgctr: cannot set GROUP_MSGCTR_SMS MAX_SMS_VALUE: the store refused the "
                                             "write (result 10018)\n"));
    EXPECT_FALSE(QFileInfo(path).isFile());
    EXPECT_TRUE(QFileInfo(path).exists());
}

} // namespace
