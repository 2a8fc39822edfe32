// msgctr tapi and msgctr text segments, run as separate processes against the test's root.
#include "HostRootTest.h"
#include "MsgctrRun.h"
#include "TAPI.h"
#include "ZorHostTapiControl.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <sys/stat.h>

namespace {

class MsgctrTapi : public HostRootTest {
protected:
    void expectOut(const QStringList& args, const QString& out)
    {
        const MsgctrResult r = runMsgctr(root(), args);
        EXPECT_EQ(r.exitCode, 0) << qPrintable(args.join(QLatin1Char(' '))) << ": " << qPrintable(r.err);
        EXPECT_EQ(r.out, out) << qPrintable(args.join(QLatin1Char(' ')));
        EXPECT_EQ(r.err, QString());
    }
    void expectError(const QStringList& args, int exitCode, const QString& err)
    {
        const MsgctrResult r = runMsgctr(root(), args);
        EXPECT_EQ(r.exitCode, exitCode) << qPrintable(args.join(QLatin1Char(' ')));
        EXPECT_EQ(r.err, err) << qPrintable(args.join(QLatin1Char(' ')));
        EXPECT_EQ(r.out, QString());
    }
};

TEST_F(MsgctrTapi, ShowPrintsTheFactoryState)
{
    expectOut(words({"tapi", "show"}),
              QStringLiteral("format: 1\nsim.status: 3\nsim.services: 2348 2349\nusim.access-rules: 1:4 2:4 3:4 4:4 5:4 6:4\n"
                             "sms.service-centre: +12065550100\nsms.email-gateway: 6245\nsms.transport-mode: 1\n"
                             "sms.transport-mode-supported: 1\nsms.storage-notification: 2\ncb.state: 0\ncb.channels: \n"
                             "cb.language-slots: 1 255 255 255 255\nmailbox.modifiable: 1\n"
                             "mailbox.0.number: \nmailbox.0.name: \nmailbox.0.count: 0\n"
                             "mailbox.1.number: \nmailbox.1.name: \nmailbox.1.count: 0\n"
                             "mailbox.2.number: \nmailbox.2.name: \nmailbox.2.count: 0\n"
                             "mailbox.3.number: \nmailbox.3.name: \nmailbox.3.count: 0\n"
                             "cphs.line1.number: \ncphs.line1.name: \ncphs.line1.waiting: 0\n"
                             "cphs.line2.number: \ncphs.line2.name: \ncphs.line2.waiting: 0\n"));
}

TEST_F(MsgctrTapi, SettingsSurviveAcrossRuns)
{
    expectOut(words({"tapi", "smsc", "+4930111"}), QStringLiteral("service_centre: +4930111\n"));
    expectOut(words({"tapi", "smsc"}), QStringLiteral("service_centre: +4930111\n"));
    expectOut(words({"tapi", "email-gateway", "1234"}), QStringLiteral("email_gateway: 1234\n"));
    expectOut(words({"tapi", "email-gateway"}), QStringLiteral("email_gateway: 1234\n"));
    expectOut(words({"tapi", "cb-state", "1"}), QStringLiteral("cb_state: 1\n"));
    expectOut(words({"tapi", "cb-state"}), QStringLiteral("cb_state: 1\n"));
    expectOut(words({"tapi", "channel-add", "50"}), QStringLiteral("channels: 50\n"));
    expectOut(words({"tapi", "channel-add", "0"}), QStringLiteral("channels: 50, 0\n"));
    expectOut(words({"tapi", "channel-del", "50"}), QStringLiteral("channels: 0\n"));
    expectOut(words({"tapi", "channels"}), QStringLiteral("channels: 0\n"));
    expectOut(words({"tapi", "slots", "2", "4"}), QStringLiteral("language_slots: 1, 255, 4, 255, 255\n"));
    expectOut(words({"tapi", "slot-count", "3"}), QStringLiteral("language_slots: 1, 255, 4\n"));
    expectOut(words({"tapi", "slots"}), QStringLiteral("language_slots: 1, 255, 4\n"));
    expectOut(words({"tapi", "mailbox", "0", "+49171", "Voice Box \xd0\xb6"}),
              QString::fromUtf8("type: 0\nnumber: +49171\nname: Voice Box \xd0\xb6\n"));
    expectOut(words({"tapi", "mailbox", "0"}), QString::fromUtf8("type: 0\nnumber: +49171\nname: Voice Box \xd0\xb6\n"));
    expectOut(words({"tapi", "mail-count", "0", "3"}), QStringLiteral("type: 0\ncount: 3\n"));
    expectOut(words({"tapi", "mail-count", "0"}), QStringLiteral("type: 0\ncount: 3\n"));
    expectOut(words({"tapi", "cphs-mailbox", "2", "555", "Line two"}), QStringLiteral("line: 2\nnumber: 555\nname: Line two\n"));
    expectOut(words({"tapi", "cphs-mailbox", "2"}), QStringLiteral("line: 2\nnumber: 555\nname: Line two\n"));
    expectOut(words({"tapi", "waiting", "2", "on"}), QStringLiteral("line: 2\nwaiting: true\n"));
    expectOut(words({"tapi", "waiting", "2"}), QStringLiteral("line: 2\nwaiting: true\n"));
    expectOut(words({"tapi", "waiting", "1"}), QStringLiteral("line: 1\nwaiting: false\n"));
    expectOut(words({"tapi", "transport-mode", "2"}), QStringLiteral("transport_mode: 2\nsms_over_gprs: true\n"));
    expectOut(words({"tapi", "transport-mode"}), QStringLiteral("transport_mode: 2\nsms_over_gprs: true\n"));
    expectOut(words({"tapi", "usim-rule", "1", "6"}), QStringLiteral("file: 1\naccess_rule: 6\n"));
    expectOut(words({"tapi", "usim-rule", "1"}), QStringLiteral("file: 1\naccess_rule: 6\n"));
    expectOut(words({"tapi", "service", "2349", "off"}), QStringLiteral("service: 2349\navailable: false\n"));
    expectOut(words({"tapi", "service", "2349"}), QStringLiteral("service: 2349\navailable: false\n"));
    expectOut(words({"tapi", "sim-status", "4"}), QStringLiteral("sim_status: 4\nmeaning: USIM ready\n"));
    expectOut(words({"tapi", "sim-status"}), QStringLiteral("sim_status: 4\nmeaning: USIM ready\n"));

    // This process sees the same SIM.
    char number[TAPI_PHONE_NUMBER_LEN] = {};
    ASSERT_EQ(TAPI_SMS_GetServiceCenter(number), TAPI_RESULT_SUCC);
    EXPECT_STREQ(number, "+4930111");
    unsigned short name[TAPI_PHONEBOOK_NAME_UNITS] = {};
    ASSERT_EQ(TAPI_MAILBOX_Gsmr4GetEntry(0, number, name), TAPI_RESULT_SUCC);
    EXPECT_EQ(name[0], 'V');
    EXPECT_EQ(name[10], 0x0436);
    EXPECT_TRUE(ZorHost::cphsMessageWaitingFlag(1));
    EXPECT_FALSE(ZorHost::cphsMessageWaitingFlag(0));
}

TEST_F(MsgctrTapi, ChangesFromThisProcessShow)
{
    ASSERT_EQ(TAPI_CB_AddChannel(4370), TAPI_RESULT_SUCC);
    ASSERT_TRUE(ZorHost::setSmsTransportModeSupported(false));
    expectOut(words({"tapi", "channels"}), QStringLiteral("channels: 4370\n"));
    expectOut(words({"tapi", "transport-supported"}), QStringLiteral("transport_mode_supported: false\n"));
    expectError(words({"tapi", "transport-mode"}), 1,
                QStringLiteral("msgctr: TAPI_SMS_GetSmsTransportMode failed: result 305 (not supported by the modem or SIM)\n"));
}

TEST_F(MsgctrTapi, FailuresAndBadInput)
{
    expectError(words({"tapi", "channel-add", "65535"}), 2, QStringLiteral("msgctr: CHANNEL must be a number from 0 to 65534, not '65535'\n"));
    expectError(words({"tapi", "channel-del", "7"}), 1, QStringLiteral("msgctr: TAPI_CB_DeleteChannel failed: result 819 (not found)\n"));
    expectError(words({"tapi", "email-gateway", "123456789012345678901234567890123456789012"}), 2,
                QStringLiteral("msgctr: the number has 42 characters; at most 41 fit\n"));
    expectError(words({"tapi", "email-gateway", "\xd0\xb6"}), 2, QString::fromUtf8("msgctr: the number '\xd0\xb6' holds characters outside Latin-1\n"));
    expectError(words({"tapi", "mailbox", "4"}), 2, QStringLiteral("msgctr: TYPE must be a number from 0 to 3, not '4'\n"));
    expectError(words({"tapi", "waiting", "1", "maybe"}), 2,
                QStringLiteral("msgctr: BOOL must be true or false (or on/off, yes/no, 1/0), not 'maybe'\n"));
    expectError(words({"tapi", "slots", "5", "1"}), 1, QStringLiteral("msgctr: slot 5 does not exist (0-4)\n"));
    expectError(words({"tapi", "slots", "1"}), 2, QStringLiteral("msgctr: tapi slots needs a LANGUAGE after the SLOT\n"));
    expectError(words({"tapi", "show", "x"}), 2, QStringLiteral("msgctr: tapi show takes no arguments, not 'x' (see msgctr tapi show --help)\n"));
    expectOut(words({"tapi", "sim-status", "0"}), QStringLiteral("sim_status: 0\nmeaning: no card\n"));
    expectError(words({"tapi", "email-gateway"}), 1, QStringLiteral("msgctr: TAPI_SMS_GetEmailGateway failed: result 509 (no usable SIM card)\n"));
}

TEST_F(MsgctrTapi, MailboxKeepsTheNameWhenOnlyTheNumberIsGiven)
{
    expectOut(words({"tapi", "mailbox", "1", "123", "Fax box"}), QStringLiteral("type: 1\nnumber: 123\nname: Fax box\n"));
    expectOut(words({"tapi", "mailbox", "1", "456"}), QStringLiteral("type: 1\nnumber: 456\nname: Fax box\n"));
    expectOut(words({"tapi", "cphs-mailbox", "1", "777", "Line one"}), QStringLiteral("line: 1\nnumber: 777\nname: Line one\n"));
    expectOut(words({"tapi", "cphs-mailbox", "1", "778"}), QStringLiteral("line: 1\nnumber: 778\nname: Line one\n"));
}

TEST_F(MsgctrTapi, LinesAreCountedFromOneEverywhere)
{
    expectOut(words({"tapi", "waiting", "1", "on"}), QStringLiteral("line: 1\nwaiting: true\n"));
    EXPECT_TRUE(ZorHost::cphsMessageWaitingFlag(0));
    EXPECT_FALSE(ZorHost::cphsMessageWaitingFlag(1));
    expectError(words({"tapi", "waiting", "0"}), 2, QStringLiteral("msgctr: LINE must be a number from 1 to 2, not '0'\n"));
    expectError(words({"tapi", "cphs-mailbox", "0"}), 2, QStringLiteral("msgctr: LINE must be a number from 1 to 2, not '0'\n"));
}

struct RangeCase {
    const char* name;
    QStringList args;
    const char* err;
};

std::ostream& operator<<(std::ostream& os, const RangeCase& c)
{
    return os << c.name;
}

class MsgctrTapiRangeTest : public MsgctrTapi, public ::testing::WithParamInterface<RangeCase> {};

TEST_P(MsgctrTapiRangeTest, NumberOutsideItsRangeIsRefusedAndNothingChanges)
{
    const QString before = ZorHost::tapiStateText();
    expectError(GetParam().args, 2, QStringLiteral("msgctr: %1\n").arg(QString::fromUtf8(GetParam().err)));
    EXPECT_EQ(ZorHost::tapiStateText(), before);
}

INSTANTIATE_TEST_SUITE_P(
    Numbers, MsgctrTapiRangeTest,
    ::testing::Values(
        RangeCase{"simStatusAbove", words({"tapi", "sim-status", "256"}), "STATUS must be a number from 0 to 6, not '256'"},
        RangeCase{"simStatusNegative", words({"tapi", "sim-status", "-1"}), "STATUS must be a number from 0 to 6, not '-1'"},
        RangeCase{"cbStateAbove", words({"tapi", "cb-state", "256"}), "STATE must be a number from 0 to 255, not '256'"},
        RangeCase{"serviceNotANumber", words({"tapi", "service", "x"}), "ID must be a number from 0 to 65535, not 'x'"},
        RangeCase{"usimRuleAbove", words({"tapi", "usim-rule", "1", "300"}), "RULE must be a number from 0 to 255, not '300'"},
        RangeCase{"mailCountAbove", words({"tapi", "mail-count", "0", "256"}), "COUNT must be a number from 0 to 255, not '256'"},
        RangeCase{"slotCountAbove", words({"tapi", "slot-count", "256"}), "COUNT must be a number from 0 to 255, not '256'"},
        RangeCase{"transportModeZero", words({"tapi", "transport-mode", "0"}), "MODE must be a number from 1 to 2, not '0'"}),
    [](const ::testing::TestParamInfo<RangeCase>& info) { return std::string(info.param.name); });

TEST_F(MsgctrTapi, TextSegments)
{
    expectOut(words({"text", "segments", "hello"}), QStringLiteral("segments: 1\nencoding: GSM 7-bit\n"));
    expectOut(words({"text", "segments", ""}), QStringLiteral("segments: 1\nencoding: GSM 7-bit\n"));
    expectOut({QStringLiteral("text"), QStringLiteral("segments"), QString(161, QLatin1Char('a'))},
              QStringLiteral("segments: 2\nencoding: GSM 7-bit\n"));
    expectOut({QStringLiteral("text"), QStringLiteral("segments"), QString(71, QChar(0x0436))},
              QStringLiteral("segments: 2\nencoding: UCS-2\n"));
    expectError({QStringLiteral("text"), QStringLiteral("segments"), QString(3201, QLatin1Char('a'))}, 1,
                QStringLiteral("msgctr: the text has 3201 UTF-16 units; at most 3200 can be counted\n"));
    expectError(words({"text", "segments"}), 2, QStringLiteral("msgctr: text segments needs TEXT (see msgctr text segments --help)\n"));
}

// A FIFO in place of the state file: the verbs answer at once with the simulator's report and leave it there.
TEST_F(MsgctrTapi, FifoInPlaceOfTheStateFileFailsAtOnce)
{
    const QString path = root() + QStringLiteral("/state/tapi/tapi.state");
    ASSERT_TRUE(QDir().mkpath(QFileInfo(path).absolutePath()));
    ASSERT_EQ(::mkfifo(QFile::encodeName(path).constData(), 0644), 0);
    const QString report = QStringLiteral("zortapi: state file %1 is not a regular file; it is left alone and not read\n")
                               .arg(path);
    expectError(words({"tapi", "email-gateway"}), 1,
                report + QStringLiteral("msgctr: TAPI_SMS_GetEmailGateway failed: result 5 (the modem's storage "
                                        "could not be read or written)\n"));
    expectError(words({"tapi", "email-gateway", "1234"}), 1,
                report + QStringLiteral("msgctr: TAPI_SMS_SetEmailGateway failed: result 5 (the modem's storage "
                                        "could not be read or written)\n"));
    EXPECT_FALSE(QFileInfo(path).isFile());
    EXPECT_TRUE(QFileInfo(path).exists());
}

} // namespace
