#include "HostRootTest.h"
#include "MsgctrRun.h"

#include "ZorHostControl.h"
#include "ZorHostTapiControl.h"

#include <QFile>

namespace {

class MsgctrTapiWrapperTest : public HostRootTest {
protected:
    MsgctrResult run(const QStringList& args) { return runMsgctr(root(), QStringList{QStringLiteral("tapi")} + args); }
};

TEST_F(MsgctrTapiWrapperTest, SmscPrintsTheNumber)
{
    const MsgctrResult r = run({QStringLiteral("smsc")});
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.out, QStringLiteral("service_centre: +12065550100\n"));
}

TEST_F(MsgctrTapiWrapperTest, SuccessKeepsTheTraceToItself)
{
    const MsgctrResult r = run({QStringLiteral("smsc"), QStringLiteral("+4930111")});
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.out, QStringLiteral("service_centre: +4930111\n"));
    EXPECT_EQ(r.err, QString());
}

TEST_F(MsgctrTapiWrapperTest, TraceOptionShowsTheLibrarysTrace)
{
    const MsgctrResult r = run({QStringLiteral("smsc"), QStringLiteral("--trace")});
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.out, QStringLiteral("service_centre: +12065550100\n"));
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
    EXPECT_EQ(r.out, QStringLiteral("service_centre: +4915550100\n"));
    r = run({QStringLiteral("smsc")});
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.out, QStringLiteral("service_centre: +4915550100\n"));
}

TEST_F(MsgctrTapiWrapperTest, SmscShowsALongNumberCut)
{
    const QString number = QStringLiteral("+123456789012345678901234567890123456789012345");
    const MsgctrResult r = run({QStringLiteral("smsc"), number});
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.out, QStringLiteral("service_centre: +1234567890123456789012345678901234567890\n"));
}

TEST_F(MsgctrTapiWrapperTest, SmscSaysWhenThereIsNoNumber)
{
    const MsgctrResult r = run({QStringLiteral("smsc"), QString()});
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.out, QStringLiteral("service_centre: \n"));
}

TEST_F(MsgctrTapiWrapperTest, SmscFailsWithoutASimCard)
{
    ASSERT_TRUE(ZorHost::setSimCardStatus(0));
    MsgctrResult r = run({QStringLiteral("smsc")});
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_EQ(r.out, QString());
    EXPECT_TRUE(r.err.startsWith(QStringLiteral("msgctr: reading the service centre number failed: error 10026 (no usable SIM card)\n")))
        << qPrintable(r.err);
    // The library's own account of the failure follows.
    EXPECT_TRUE(r.err.contains(QStringLiteral("assert fail at \"false\"; msgctrErrcode = 10026(S32,4), "
                                              "tapiResult = 509(S32,4), \n")))
        << qPrintable(r.err);
    r = run({QStringLiteral("smsc"), QStringLiteral("123")});
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_TRUE(r.err.startsWith(QStringLiteral("msgctr: setting the service centre number failed: error 10026 (no usable SIM card)\n")))
        << qPrintable(r.err);
}

TEST_F(MsgctrTapiWrapperTest, SmscTakesOneNumberAtMost)
{
    const MsgctrResult r = run({QStringLiteral("smsc"), QStringLiteral("1"), QStringLiteral("2")});
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_EQ(r.out, QString());
    EXPECT_EQ(r.err, QStringLiteral("msgctr: tapi smsc: one argument too many: '2' (see msgctr tapi smsc --help)\n"));
}

TEST_F(MsgctrTapiWrapperTest, SmscRefusesCharactersOutsideLatin1)
{
    const MsgctrResult r = run({QStringLiteral("smsc"), QStringLiteral("+49\u0436")});
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_EQ(r.out, QString());
    EXPECT_EQ(r.err, QStringLiteral("msgctr: the number '+49\u0436' holds characters outside Latin-1\n"));
    EXPECT_EQ(run({QStringLiteral("smsc")}).out, QStringLiteral("service_centre: +12065550100\n"));
}

struct VpCase {
    const char* name;
    const char* seconds;
    const char* output;
};

std::ostream& operator<<(std::ostream& os, const VpCase& c)
{
    return os << c.name;
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
    ::testing::Values(
        VpCase{"fiveMinuteUnit", "599", "unit: 0\nunit_name: 5 minutes\nvalue: 1\noctet: 0\noctet_hex: 0x00\nnetwork_seconds: 300\n"},
        VpCase{"halfHourUnit", "43201", "unit: 1\nunit_name: 30 minutes\nvalue: 25\noctet: 144\noctet_hex: 0x90\nnetwork_seconds: 45000\n"},
        VpCase{"dayUnit", "86401", "unit: 2\nunit_name: day\nvalue: 2\noctet: 168\noctet_hex: 0xA8\nnetwork_seconds: 172800\n"},
        VpCase{"zeroIsTheLongest", "0", "unit: 3\nunit_name: week\nvalue: 63\noctet: 255\noctet_hex: 0xFF\nnetwork_seconds: 38102400\n"},
        VpCase{"negativeIsTheLongest", "-5", "unit: 3\nunit_name: week\nvalue: 63\noctet: 255\noctet_hex: 0xFF\nnetwork_seconds: 38102400\n"},
        VpCase{"hexadecimalSeconds", "0x2A300", "unit: 2\nunit_name: day\nvalue: 2\noctet: 168\noctet_hex: 0xA8\nnetwork_seconds: 172800\n"}),
    [](const ::testing::TestParamInfo<VpCase>& info) { return std::string(info.param.name); });

TEST_F(MsgctrTapiWrapperTest, VpRefusesWhatIsNotASecondCount)
{
    for (const QString& bad : {QStringLiteral("ten"), QStringLiteral("1.5"), QStringLiteral("99999999999")}) {
        const MsgctrResult r = run({QStringLiteral("vp"), bad});
        EXPECT_EQ(r.exitCode, 2) << qPrintable(bad);
        EXPECT_EQ(r.out, QString());
        EXPECT_EQ(r.err, QStringLiteral("msgctr: SECONDS must be a number from -2147483648 to 2147483647, not '%1'\n").arg(bad));
    }
    const MsgctrResult none = run({QStringLiteral("vp")});
    EXPECT_EQ(none.exitCode, 2);
    EXPECT_EQ(none.err, QStringLiteral("msgctr: tapi vp needs SECONDS (see msgctr tapi vp --help)\n"));
}

TEST_F(MsgctrTapiWrapperTest, GprsIsOffAtFirst)
{
    const MsgctrResult r = run({QStringLiteral("gprs")});
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.out, QStringLiteral("supported: true\nsms_over_gprs: false\n"));
}

TEST_F(MsgctrTapiWrapperTest, GprsSwitchesOnAndOffAcrossRuns)
{
    MsgctrResult r = run({QStringLiteral("gprs"), QStringLiteral("on")});
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.out, QStringLiteral("supported: true\nsms_over_gprs: true\n"));
    EXPECT_EQ(run({QStringLiteral("gprs")}).out, QStringLiteral("supported: true\nsms_over_gprs: true\n"));
    r = run({QStringLiteral("gprs"), QStringLiteral("off")});
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(run({QStringLiteral("gprs")}).out, QStringLiteral("supported: true\nsms_over_gprs: false\n"));
}

TEST_F(MsgctrTapiWrapperTest, GprsWithoutTheFeature)
{
    ASSERT_TRUE(ZorHost::setSmsTransportModeSupported(false));
    MsgctrResult r = run({QStringLiteral("gprs")});
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.out, QStringLiteral("supported: false\nsms_over_gprs: false\n"));
    r = run({QStringLiteral("gprs"), QStringLiteral("on")});
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_TRUE(r.err.startsWith(QStringLiteral("msgctr: switching SMS over GPRS failed: error 10083 (not supported by the modem or SIM)\n")))
        << qPrintable(r.err);
}

TEST_F(MsgctrTapiWrapperTest, GprsQueryLeavesTheDebugRecord)
{
    run({QStringLiteral("gprs")});
    QFile file(ZorHost::devicePath(QStringLiteral("/tmp/message_log.data")));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_TRUE(file.readAll().endsWith("w70411: \"TAPI_SMS_GetSmsTransportMode: 0\"\n"));
}

TEST_F(MsgctrTapiWrapperTest, GprsTakesOneBoolean)
{
    MsgctrResult r = run({QStringLiteral("gprs"), QStringLiteral("maybe")});
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_EQ(r.err, QStringLiteral("msgctr: BOOL must be true or false (or on/off, yes/no, 1/0), not 'maybe'\n"));
    r = run({QStringLiteral("gprs"), QStringLiteral("on"), QStringLiteral("off")});
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_EQ(r.err, QStringLiteral("msgctr: tapi gprs: one argument too many: 'off' (see msgctr tapi gprs --help)\n"));
}

} // namespace
