// msgctr status: the whole simulated phone on one screen.
#include "HostRootTest.h"
#include "MsgctrRun.h"

#include "TAPI.h"
#include "ZorHostTapiControl.h"

namespace {

class MsgctrStatusTest : public HostRootTest {};

const QString kMailboxes = QStringLiteral(
    "mailboxes[0].count: 0\nmailboxes[0].name: \nmailboxes[0].number: \nmailboxes[0].type: 0\n"
    "mailboxes[1].count: 0\nmailboxes[1].name: \nmailboxes[1].number: \nmailboxes[1].type: 1\n"
    "mailboxes[2].count: 0\nmailboxes[2].name: \nmailboxes[2].number: \nmailboxes[2].type: 2\n"
    "mailboxes[3].count: 0\nmailboxes[3].name: \nmailboxes[3].number: \nmailboxes[3].type: 3\n");

TEST_F(MsgctrStatusTest, ShowsTheFactoryPhone)
{
    const MsgctrResult r = runMsgctr(root(), words({"status"}));
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.err, QString());
    EXPECT_EQ(r.out, QStringLiteral("sim.status: 3\nsim.type: SIM\n"
                                    "sms.over_gprs: false\nsms.over_gprs_supported: true\nsms.service_centre: +12065550100\n"
                                    "sms.validity_period: -1\nsms.validity_period_network: 38102400\n"
                                    "cell_broadcast.channels: (none)\ncell_broadcast.state: 0\n")
                         + kMailboxes
                         + QStringLiteral("cphs_mailboxes[0].line: 1\ncphs_mailboxes[0].name: \ncphs_mailboxes[0].number: \n"
                                          "cphs_mailboxes[0].waiting: false\ncphs_mailboxes[1].line: 2\ncphs_mailboxes[1].name: \n"
                                          "cphs_mailboxes[1].number: \ncphs_mailboxes[1].waiting: false\n"
                                          "system_language: en-us\nproblems: (none)\n"));
}

TEST_F(MsgctrStatusTest, ShowsWhatOtherVerbsChanged)
{
    for (const QStringList& args : {words({"tapi", "sim-status", "4"}), words({"tapi", "smsc", "+4930111"}),
                                    words({"tapi", "channel-add", "50"}), words({"tapi", "mail-count", "2", "7"}),
                                    words({"tapi", "cphs-mailbox", "2", "555", "Line two"}), words({"tapi", "waiting", "2", "on"}),
                                    words({"platform", "lang", "de-de"}), words({"tapi", "gprs", "on"})})
        ASSERT_EQ(runMsgctr(root(), args).exitCode, 0) << qPrintable(args.join(QLatin1Char(' ')));
    const QStringList lines = runMsgctr(root(), words({"status"})).out.split(QLatin1Char('\n'));
    for (const char* line : {"sim.status: 4", "sim.type: USIM", "sms.service_centre: +4930111", "sms.over_gprs: true",
                             "cell_broadcast.channels: 50", "mailboxes[2].count: 7", "cphs_mailboxes[1].number: 555",
                             "cphs_mailboxes[1].name: Line two", "cphs_mailboxes[1].waiting: true", "system_language: de-de"})
        EXPECT_TRUE(lines.contains(QString::fromLatin1(line))) << line;
}

TEST_F(MsgctrStatusTest, WithoutASimTheUnreadableValuesAreNamed)
{
    ASSERT_TRUE(ZorHost::setSimCardStatus(0));
    const MsgctrResult r = runMsgctr(root(), words({"status"}));
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.err, QString());
    const QStringList lines = r.out.split(QLatin1Char('\n'));
    for (const char* line : {"sim.status: 0", "sim.type: none", "sms.service_centre: (none)", "mailboxes[0].number: (none)",
                             "cphs_mailboxes[0].number: (none)"})
        EXPECT_TRUE(lines.contains(QString::fromLatin1(line))) << line;
    const QString entry = QStringLiteral("TAPI_MAILBOX_Gsmr4GetEntry failed: result 509, TAPI_MAILBOX_Gsmr4GetMailCount failed: result 509, ");
    EXPECT_TRUE(lines.contains(QStringLiteral("problems: reading the service centre number failed: error 10026, "
                                              "TAPI_CB_GetChannelsEx failed: result 509, ")
                               + entry + entry + entry + entry
                               + QStringLiteral("TAPI_MAILBOX_CphsGetVoiceMailBox failed: result 509, "
                                                "TAPI_MAILBOX_CphsGetVoiceMailBox failed: result 509")))
        << qPrintable(r.out);
}

TEST_F(MsgctrStatusTest, TakesNoArguments)
{
    const MsgctrResult r = runMsgctr(root(), words({"status", "now"}));
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_EQ(r.out, QString());
    EXPECT_EQ(r.err, QStringLiteral("msgctr: status takes no arguments, not 'now' (see msgctr status --help)\n"));
}

} // namespace
