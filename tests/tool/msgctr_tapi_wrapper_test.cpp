#include "HostRootTest.h"
#include "RowName.h"
#include "MsgctrRun.h"

#include "ZorHostControl.h"
#include "ZorHostTapiControl.h"

#include <QFile>

#include <utility>

namespace {

class MsgctrTapiWrapperTest : public HostRootTest {
protected:
    MsgctrResult run(const QStringList& args) { return runMsgctr(root(), QStringList{QStringLiteral("tapi")} + args); }
};

TEST_F(MsgctrTapiWrapperTest, SmscPrintsTheNumber)
{
    const MsgctrResult r = run({QStringLiteral("smsc")});
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.out, QStringLiteral("+12065550100\n"));
}

TEST_F(MsgctrTapiWrapperTest, SuccessKeepsTheTraceToItself)
{
    const MsgctrResult r = run({QStringLiteral("smsc"), QStringLiteral("+4930111")});
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.out, QStringLiteral("+4930111\n"));
    EXPECT_EQ(r.err, QString());
}

TEST_F(MsgctrTapiWrapperTest, TraceOptionShowsTheLibrarysTrace)
{
    const MsgctrResult r = run({QStringLiteral("smsc"), QStringLiteral("--trace")});
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.out, QStringLiteral("+12065550100\n"));
    const QStringList lines = r.err.split(QLatin1Char('\n'));
    ASSERT_EQ(lines.size(), 4) << qPrintable(r.err);
    EXPECT_TRUE(lines.at(1).endsWith(
        QStringLiteral("phoneNumber = \"+12065550100\"(PCSTR8, len=12), tapiResult = 0(S32,4), ")));
    EXPECT_TRUE(lines.at(2).endsWith(QStringLiteral("strSvctrNumber = \"+12065550100\"(QString, len=12), ")));
    EXPECT_EQ(lines.at(3), QString());
}

TEST_F(MsgctrTapiWrapperTest, SmscSetsTheNumberForTheNextRun)
{
    MsgctrResult r = run({QStringLiteral("smsc"), QStringLiteral("+4915550100")});
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.out, QStringLiteral("+4915550100\n"));
    r = run({QStringLiteral("smsc")});
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.out, QStringLiteral("+4915550100\n"));
}

TEST_F(MsgctrTapiWrapperTest, SmscShowsALongNumberCut)
{
    const QString number = QStringLiteral("+123456789012345678901234567890123456789012345");
    const MsgctrResult r = run({QStringLiteral("smsc"), number});
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.out, number.left(41) + QStringLiteral("\n"));
}

TEST_F(MsgctrTapiWrapperTest, SmscSaysWhenThereIsNoNumber)
{
    const MsgctrResult r = run({QStringLiteral("smsc"), QString()});
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.out, QStringLiteral("(no service centre number)\n"));
}

TEST_F(MsgctrTapiWrapperTest, SmscFailsWithoutASimCard)
{
    ASSERT_TRUE(ZorHost::setSimCardStatus(0));
    MsgctrResult r = run({QStringLiteral("smsc")});
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_EQ(r.out, QString());
    EXPECT_TRUE(r.err.startsWith(QStringLiteral("msgctr: the service centre number cannot be read: error 10026\n")))
        << qPrintable(r.err);
    // The library's own account of the failure follows.
    EXPECT_TRUE(r.err.contains(QStringLiteral("assert fail at \"false\"; msgctrErrcode = 10026(S32,4), "
                                              "tapiResult = 509(S32,4), \n")))
        << qPrintable(r.err);
    r = run({QStringLiteral("smsc"), QStringLiteral("123")});
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_TRUE(r.err.startsWith(QStringLiteral("msgctr: the service centre number was not set: error 10026\n")))
        << qPrintable(r.err);
}

TEST_F(MsgctrTapiWrapperTest, SmscTakesOneNumberAtMost)
{
    const MsgctrResult r = run({QStringLiteral("smsc"), QStringLiteral("1"), QStringLiteral("2")});
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_EQ(r.out, QString());
    EXPECT_TRUE(r.err.contains(QStringLiteral("tapi smsc takes at most one NUMBER"))) << qPrintable(r.err);
}

TEST_F(MsgctrTapiWrapperTest, SmscRefusesCharactersOutsideLatin1)
{
    const MsgctrResult r = run({QStringLiteral("smsc"), QStringLiteral("+49\u0436")});
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_EQ(r.out, QString());
    EXPECT_EQ(r.err, QStringLiteral("msgctr: the number '+49\u0436' holds characters outside Latin-1\n"));
    EXPECT_EQ(run({QStringLiteral("smsc")}).out, QStringLiteral("+12065550100\n"));
}

struct VpCase {
    const char* seconds;
    const char* output;
};

void PrintTo(const VpCase& c, std::ostream* os)
{
    *os << c.seconds << " s";
}

class MsgctrTapiVpTest : public MsgctrTapiWrapperTest, public ::testing::WithParamInterface<VpCase> {};

TEST_P(MsgctrTapiVpTest, PrintsPairOctetAndSeconds)
{
    const MsgctrResult r = run({QStringLiteral("vp"), QString::fromLatin1(GetParam().seconds)});
    EXPECT_EQ(r.exitCode, 0) << qPrintable(r.err);
    EXPECT_EQ(r.out, QString::fromLatin1(GetParam().output));
}

INSTANTIATE_TEST_SUITE_P(
    Table, MsgctrTapiVpTest,
    ::testing::Values(VpCase{"599", "unit 0 (5 minutes), value 1\noctet 0 (0x00)\nnetwork gets 300 seconds\n"},
                      VpCase{"43201", "unit 1 (30 minutes), value 25\noctet 144 (0x90)\nnetwork gets 45000 seconds\n"},
                      VpCase{"86401", "unit 2 (day), value 2\noctet 168 (0xA8)\nnetwork gets 172800 seconds\n"},
                      VpCase{"0", "unit 3 (week), value 63\noctet 255 (0xFF)\nnetwork gets 38102400 seconds\n"},
                      VpCase{"-5", "unit 3 (week), value 63\noctet 255 (0xFF)\nnetwork gets 38102400 seconds\n"},
                      VpCase{"0x2A300", "unit 2 (day), value 2\noctet 168 (0xA8)\nnetwork gets 172800 seconds\n"}),
                         [](const auto& info) { return rowName(info.param.seconds, "Seconds"); });

TEST_F(MsgctrTapiWrapperTest, VpRefusesWhatIsNotASecondCount)
{
    const std::pair<QString, QString> refused[] = {
        {QStringLiteral("ten"), QStringLiteral("msgctr: 'ten' is not a number of seconds\n")},
        {QStringLiteral("1.5"), QStringLiteral("msgctr: '1.5' is not a number of seconds\n")},
        {QStringLiteral("99999999999"),
         QStringLiteral("msgctr: 99999999999 seconds is out of range (-2147483648 to 2147483647)\n")}};
    for (const auto& [bad, message] : refused) {
        const MsgctrResult r = run({QStringLiteral("vp"), bad});
        EXPECT_EQ(r.exitCode, 2) << qPrintable(bad);
        EXPECT_EQ(r.out, QString());
        EXPECT_EQ(r.err, message);
    }
    const MsgctrResult none = run({QStringLiteral("vp")});
    EXPECT_EQ(none.exitCode, 2);
    EXPECT_EQ(none.out, QString());
    EXPECT_EQ(none.err, QStringLiteral("msgctr: tapi vp takes one number of SECONDS\n"));
}

TEST_F(MsgctrTapiWrapperTest, GprsIsOffAtFirst)
{
    const MsgctrResult r = run({QStringLiteral("gprs")});
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.out, QStringLiteral("SMS over GPRS: off\n"));
}

TEST_F(MsgctrTapiWrapperTest, GprsSwitchesOnAndOffAcrossRuns)
{
    MsgctrResult r = run({QStringLiteral("gprs"), QStringLiteral("on")});
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.out, QStringLiteral("SMS over GPRS: on\n"));
    EXPECT_EQ(run({QStringLiteral("gprs")}).out, QStringLiteral("SMS over GPRS: on\n"));
    r = run({QStringLiteral("gprs"), QStringLiteral("off")});
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(run({QStringLiteral("gprs")}).out, QStringLiteral("SMS over GPRS: off\n"));
}

TEST_F(MsgctrTapiWrapperTest, GprsWithoutTheFeature)
{
    ASSERT_TRUE(ZorHost::setSmsTransportModeSupported(false));
    MsgctrResult r = run({QStringLiteral("gprs")});
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.out, QStringLiteral("SMS over GPRS: not supported\n"));
    r = run({QStringLiteral("gprs"), QStringLiteral("on")});
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_TRUE(r.err.startsWith(QStringLiteral("msgctr: SMS over GPRS was not switched on: error 10083\n")))
        << qPrintable(r.err);
}

TEST_F(MsgctrTapiWrapperTest, GprsQueryLeavesTheDebugRecord)
{
    run({QStringLiteral("gprs")});
    QFile file(ZorHost::devicePath(QStringLiteral("/tmp/message_log.data")));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_TRUE(file.readAll().endsWith("w70411: \"TAPI_SMS_GetSmsTransportMode: 0\"\n"));
}

TEST_F(MsgctrTapiWrapperTest, GprsTakesOnOrOff)
{
    MsgctrResult r = run({QStringLiteral("gprs"), QStringLiteral("maybe")});
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_TRUE(r.err.contains(QStringLiteral("tapi gprs takes on or off, not 'maybe'"))) << qPrintable(r.err);
    r = run({QStringLiteral("gprs"), QStringLiteral("on"), QStringLiteral("off")});
    EXPECT_EQ(r.exitCode, 2);
}

} // namespace
