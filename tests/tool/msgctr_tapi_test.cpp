// msgctr tapi and msgctr text segments, run as separate processes against the test's root.
#include "HostRootTest.h"
#include "ProgramLauncher.h"
#include "TAPI.h"
#include "ZorHostTapiControl.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>

#include <sys/stat.h>

namespace {

struct ToolRun {
    int exitCode;
    QString out;
    QString err;
};

class MsgctrTapi : public HostRootTest {
protected:
    ToolRun msgctr(const QStringList& args)
    {
        QProcess p;
        startProgram(p, QStringLiteral(ZOR_MSGCTR_EXE), QStringList{QStringLiteral("--root"), root()} + args);
        EXPECT_TRUE(p.waitForFinished(60000));
        return {p.exitCode(), QString::fromLocal8Bit(p.readAllStandardOutput()), QString::fromLocal8Bit(p.readAllStandardError())};
    }
    void expectOut(const QStringList& args, const QString& out)
    {
        const ToolRun r = msgctr(args);
        EXPECT_EQ(r.exitCode, 0) << qPrintable(args.join(QLatin1Char(' '))) << ": " << qPrintable(r.err);
        EXPECT_EQ(r.out, out) << qPrintable(args.join(QLatin1Char(' ')));
        EXPECT_EQ(r.err, QString());
    }
    void expectError(const QStringList& args, int exitCode, const QString& err)
    {
        const ToolRun r = msgctr(args);
        EXPECT_EQ(r.exitCode, exitCode) << qPrintable(args.join(QLatin1Char(' ')));
        EXPECT_EQ(r.err, err) << qPrintable(args.join(QLatin1Char(' ')));
        EXPECT_EQ(r.out, QString());
    }
};

QStringList L(std::initializer_list<const char*> items)
{
    QStringList out;
    for (const char* i : items)
        out << QString::fromUtf8(i);
    return out;
}

TEST_F(MsgctrTapi, ShowPrintsTheFactoryState)
{
    const ToolRun r = msgctr(L({"tapi", "show"}));
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.out, QStringLiteral("format = 1\n"
                                    "sim.status = 3\n"
                                    "sim.services = 2348 2349\n"
                                    "usim.access-rules = 1:4 2:4 3:4 4:4 5:4 6:4\n"
                                    "sms.service-centre = \"+12065550100\"\n"
                                    "sms.email-gateway = \"6245\"\n"
                                    "sms.transport-mode = 1\n"
                                    "sms.transport-mode-supported = 1\n"
                                    "sms.storage-notification = 2\n"
                                    "cb.state = 0\n"
                                    "cb.channels =\n"
                                    "cb.language-slots = 1 255 255 255 255\n"
                                    "mailbox.modifiable = 1\n"
                                    "mailbox.0.number = \"\"\n"
                                    "mailbox.0.name = \"\"\n"
                                    "mailbox.0.count = 0\n"
                                    "mailbox.1.number = \"\"\n"
                                    "mailbox.1.name = \"\"\n"
                                    "mailbox.1.count = 0\n"
                                    "mailbox.2.number = \"\"\n"
                                    "mailbox.2.name = \"\"\n"
                                    "mailbox.2.count = 0\n"
                                    "mailbox.3.number = \"\"\n"
                                    "mailbox.3.name = \"\"\n"
                                    "mailbox.3.count = 0\n"
                                    "cphs.line1.number = \"\"\n"
                                    "cphs.line1.name = \"\"\n"
                                    "cphs.line1.waiting = 0\n"
                                    "cphs.line2.number = \"\"\n"
                                    "cphs.line2.name = \"\"\n"
                                    "cphs.line2.waiting = 0\n"));
}

TEST_F(MsgctrTapi, SettingsSurviveAcrossRuns)
{
    expectOut(L({"tapi", "smsc", "+4930111"}), QStringLiteral("+4930111\n"));
    expectOut(L({"tapi", "smsc"}), QStringLiteral("+4930111\n"));
    expectOut(L({"tapi", "email-gateway", "1234"}), QStringLiteral("e-mail gateway set to '1234'\n"));
    expectOut(L({"tapi", "email-gateway"}), QStringLiteral("1234\n"));
    expectOut(L({"tapi", "cb-state", "1"}), QStringLiteral("cell-broadcast state set to 1\n"));
    expectOut(L({"tapi", "cb-state"}), QStringLiteral("1\n"));
    expectOut(L({"tapi", "channel-add", "50"}), QStringLiteral("channel 50 added\n"));
    expectOut(L({"tapi", "channel-add", "0"}), QStringLiteral("channel 0 added\n"));
    expectOut(L({"tapi", "channel-del", "50"}), QStringLiteral("channel 50 deleted\n"));
    expectOut(L({"tapi", "channels"}), QStringLiteral("0\n"));
    expectOut(L({"tapi", "slots", "2", "4"}), QStringLiteral("slot 2 set to 4\n"));
    expectOut(L({"tapi", "slot-count", "3"}), QStringLiteral("3 language slots\n"));
    expectOut(L({"tapi", "slots"}), QStringLiteral("slot 0: 1\nslot 1: 255\nslot 2: 4\n"));
    expectOut(L({"tapi", "mailbox", "0", "+49171", "Voice Box \xd0\xb6"}), QStringLiteral("mailbox 0 set\n"));
    expectOut(L({"tapi", "mailbox", "0"}), QString::fromUtf8("number: +49171\nname: Voice Box \xd0\xb6\n"));
    expectOut(L({"tapi", "mail-count", "0", "3"}), QStringLiteral("mailbox 0 count set to 3\n"));
    expectOut(L({"tapi", "mail-count", "0"}), QStringLiteral("3\n"));
    expectOut(L({"tapi", "cphs-mailbox", "2", "555", "Line two"}), QStringLiteral("cphs-mailbox 2 set\n"));
    expectOut(L({"tapi", "cphs-mailbox", "2"}), QStringLiteral("number: 555\nname: Line two\n"));
    expectOut(L({"tapi", "waiting", "1", "on"}), QStringLiteral("line 1 waiting\n"));
    expectOut(L({"tapi", "waiting", "1"}), QStringLiteral("waiting\n"));
    expectOut(L({"tapi", "waiting", "0"}), QStringLiteral("not waiting\n"));
    expectOut(L({"tapi", "transport-mode", "2"}), QStringLiteral("transport mode set to 2\n"));
    expectOut(L({"tapi", "transport-mode"}), QStringLiteral("2 (SMS over GPRS on)\n"));
    expectOut(L({"tapi", "usim-rule", "1", "6"}), QStringLiteral("USIM file 1 access rule set to 6\n"));
    expectOut(L({"tapi", "usim-rule", "1"}), QStringLiteral("6\n"));
    expectOut(L({"tapi", "service", "2349", "off"}), QStringLiteral("service 2349 not available\n"));
    expectOut(L({"tapi", "service", "2349"}), QStringLiteral("not available\n"));
    expectOut(L({"tapi", "sim-status", "4"}), QStringLiteral("SIM status set to 4\n"));
    expectOut(L({"tapi", "sim-status"}), QStringLiteral("4 (USIM ready)\n"));

    // This process sees the same SIM.
    char number[TAPI_PHONE_NUMBER_LEN] = {};
    ASSERT_EQ(TAPI_SMS_GetServiceCenter(number), TAPI_RESULT_SUCC);
    EXPECT_STREQ(number, "+4930111");
    unsigned short name[TAPI_PHONEBOOK_NAME_UNITS] = {};
    ASSERT_EQ(TAPI_MAILBOX_Gsmr4GetEntry(0, number, name), TAPI_RESULT_SUCC);
    EXPECT_EQ(name[0], 'V');
    EXPECT_EQ(name[10], 0x0436);
    EXPECT_TRUE(ZorHost::cphsMessageWaitingFlag(1));
}

TEST_F(MsgctrTapi, ChangesFromThisProcessShow)
{
    ASSERT_EQ(TAPI_CB_AddChannel(4370), TAPI_RESULT_SUCC);
    ASSERT_TRUE(ZorHost::setSmsTransportModeSupported(false));
    expectOut(L({"tapi", "channels"}), QStringLiteral("4370\n"));
    expectOut(L({"tapi", "transport-supported"}), QStringLiteral("not supported\n"));
    expectError(L({"tapi", "transport-mode"}), 1,
                QStringLiteral("msgctr: TAPI_SMS_GetSmsTransportMode failed with result 305 (not supported by the modem or SIM)\n"));
}

TEST_F(MsgctrTapi, FailuresAndBadInput)
{
    expectError(L({"tapi", "channel-add", "65535"}), 2, QStringLiteral("msgctr: a channel must be a number from 0 to 65534, not '65535'\n"));
    expectError(L({"tapi", "channel-del", "7"}), 1, QStringLiteral("msgctr: TAPI_CB_DeleteChannel failed with result 819 (not found)\n"));
    expectError(L({"tapi", "email-gateway", "123456789012345678901234567890123456789012"}), 2,
                QStringLiteral("msgctr: the number has 42 characters; at most 41 fit\n"));
    expectError(L({"tapi", "email-gateway", "\xd0\xb6"}), 2, QString::fromUtf8("msgctr: the number '\xd0\xb6' holds characters outside Latin-1\n"));
    expectError(L({"tapi", "mailbox", "4"}), 2, QStringLiteral("msgctr: the mailbox type must be a number from 0 to 3, not '4'\n"));
    expectError(L({"tapi", "waiting", "0", "maybe"}), 2, QStringLiteral("msgctr: the waiting flag must be on or off, not 'maybe'\n"));
    expectError(L({"tapi", "slots", "9", "1"}), 1, QStringLiteral("msgctr: TAPI_CB_SetLanguage failed with result 22 (invalid argument)\n"));
    expectError(L({"tapi", "show", "x"}), 2, QStringLiteral("msgctr: tapi show takes no arguments\n"));
    expectOut(L({"tapi", "sim-status", "0"}), QStringLiteral("SIM status set to 0\n"));
    expectOut(L({"tapi", "sim-status"}), QStringLiteral("0 (no usable card)\n"));
    expectError(L({"tapi", "email-gateway"}), 1, QStringLiteral("msgctr: TAPI_SMS_GetEmailGateway failed with result 509 (no usable SIM card)\n"));
}

TEST_F(MsgctrTapi, TextSegments)
{
    expectOut(L({"text", "segments", "hello"}), QStringLiteral("segments: 1\nencoding: GSM 7-bit\n"));
    expectOut(L({"text", "segments", ""}), QStringLiteral("segments: 1\nencoding: GSM 7-bit\n"));
    expectOut({QStringLiteral("text"), QStringLiteral("segments"), QString(161, QLatin1Char('a'))},
              QStringLiteral("segments: 2\nencoding: GSM 7-bit\n"));
    expectOut({QStringLiteral("text"), QStringLiteral("segments"), QString(71, QChar(0x0436))},
              QStringLiteral("segments: 2\nencoding: UCS-2\n"));
    expectError({QStringLiteral("text"), QStringLiteral("segments"), QString(3201, QLatin1Char('a'))}, 1,
                QStringLiteral("msgctr: the text has 3201 UTF-16 units; at most 3200 can be counted\n"));
    expectError(L({"text", "segments"}), 2, QStringLiteral("msgctr: text segments takes one TEXT (quote it if it holds blanks)\n"));
}

// A FIFO in place of the state file: the verbs answer at once with the simulator's report and leave it there.
TEST_F(MsgctrTapi, FifoInPlaceOfTheStateFileFailsAtOnce)
{
    const QString path = root() + QStringLiteral("/state/tapi/tapi.state");
    ASSERT_TRUE(QDir().mkpath(QFileInfo(path).absolutePath()));
    ASSERT_EQ(::mkfifo(QFile::encodeName(path).constData(), 0644), 0);
    const QString report = QStringLiteral("zortapi: state file %1 is not a regular file; it is left alone and not read\n")
                               .arg(path);
    expectError({QStringLiteral("tapi"), QStringLiteral("email-gateway")}, 1,
                report + QStringLiteral("msgctr: TAPI_SMS_GetEmailGateway failed with result 5 (the modem's storage "
                                        "could not be read or written)\n"));
    expectError({QStringLiteral("tapi"), QStringLiteral("email-gateway"), QStringLiteral("1234")}, 1,
                report + QStringLiteral("msgctr: TAPI_SMS_SetEmailGateway failed with result 5 (the modem's storage "
                                        "could not be read or written)\n"));
    EXPECT_FALSE(QFileInfo(path).isFile());
    EXPECT_TRUE(QFileInfo(path).exists());
}

} // namespace
