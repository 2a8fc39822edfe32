// msgctr platform fault|faults|calls: faults set by the tool are met by another process (this test), and the
// calls of other processes are counted.
#include "HostRootTest.h"
#include "MsgctrRun.h"

#include "TAPI.h"
#include "ZorHostControl.h"

namespace {

class MsgctrPlatformFaultTest : public HostRootTest {
protected:
    MsgctrResult run(const QStringList& args) { return runMsgctr(root(), QStringList{QStringLiteral("platform")} + args); }
};

TEST_F(MsgctrPlatformFaultTest, FaultIsMetByTheNextCallsOfAnotherProcess)
{
    const MsgctrResult r = run(words({"fault", "TAPI_SMS_GetServiceCenter", "509", "--times", "2"}));
    EXPECT_EQ(r.exitCode, 0) << qPrintable(r.err);
    EXPECT_EQ(r.out, QStringLiteral("faults[0].operation: TAPI_SMS_GetServiceCenter\nfaults[0].remaining: 2\nfaults[0].result: 509\n"));
    char number[TAPI_PHONE_NUMBER_LEN] = {};
    EXPECT_EQ(TAPI_SMS_GetServiceCenter(number), 509);
    EXPECT_EQ(TAPI_SMS_GetServiceCenter(number), 509);
    EXPECT_EQ(TAPI_SMS_GetServiceCenter(number), TAPI_RESULT_SUCC);
    EXPECT_STREQ(number, "+12065550100");
}

TEST_F(MsgctrPlatformFaultTest, FaultUntilClearedIsListedAndCleared)
{
    ASSERT_EQ(run(words({"fault", "TAPI_CB_GetStatus", "5", "--times=-1"})).exitCode, 0);
    ASSERT_EQ(run(words({"fault", "TAPI_CB_AddChannel", "28"})).exitCode, 0);
    MsgctrResult r = run(words({"faults"}));
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.out, QStringLiteral("faults[0].operation: TAPI_CB_AddChannel\nfaults[0].remaining: 1\nfaults[0].result: 28\n"
                                    "faults[1].operation: TAPI_CB_GetStatus\nfaults[1].remaining: -1\nfaults[1].result: 5\n"));
    unsigned char state = 0;
    EXPECT_EQ(TAPI_CB_GetStatus(&state), 5);
    EXPECT_EQ(TAPI_CB_GetStatus(&state), 5);
    r = run(words({"faults", "clear"}));
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.out, QStringLiteral("faults: (none)\n"));
    EXPECT_EQ(TAPI_CB_GetStatus(&state), TAPI_RESULT_SUCC);
    EXPECT_TRUE(ZorHost::pendingFaults().isEmpty());
}

TEST_F(MsgctrPlatformFaultTest, FaultMetByTheToolItselfIsReportedWithItsMeaning)
{
    ASSERT_EQ(run(words({"fault", "TAPI_CB_SetLanguage", "22"})).exitCode, 0);
    const MsgctrResult r = runMsgctr(root(), words({"tapi", "slots", "1", "4"}));
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_EQ(r.out, QString());
    EXPECT_EQ(r.err, QStringLiteral("msgctr: TAPI_CB_SetLanguage failed: result 22 (invalid argument)\n"));
}

TEST_F(MsgctrPlatformFaultTest, CallsCountTheCallsOfOtherProcesses)
{
    unsigned char state = 0;
    for (int i = 0; i < 3; ++i)
        ASSERT_EQ(TAPI_CB_GetStatus(&state), TAPI_RESULT_SUCC);
    MsgctrResult r = run(words({"calls", "TAPI_CB_GetStatus"}));
    EXPECT_EQ(r.exitCode, 0) << qPrintable(r.err);
    EXPECT_EQ(r.out, QStringLiteral("operation: TAPI_CB_GetStatus\ncalls: 3\n"));
    r = run(words({"calls"}));
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.out, QStringLiteral("calls.TAPI_CB_GetStatus: 3\n"));
    r = run(words({"calls", "TAPI_CB_SetStatus"}));
    EXPECT_EQ(r.out, QStringLiteral("operation: TAPI_CB_SetStatus\ncalls: 0\n"));
}

struct BadFault {
    const char* name;
    QStringList args;
    const char* err;
};

std::ostream& operator<<(std::ostream& os, const BadFault& c)
{
    return os << c.name;
}

class MsgctrPlatformBadFaultTest : public MsgctrPlatformFaultTest, public ::testing::WithParamInterface<BadFault> {};

TEST_P(MsgctrPlatformBadFaultTest, IsBadUsageAndSetsNoFault)
{
    const MsgctrResult r = run(GetParam().args);
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_EQ(r.out, QString());
    EXPECT_EQ(r.err, QStringLiteral("msgctr: %1\n").arg(QString::fromUtf8(GetParam().err)));
    EXPECT_TRUE(ZorHost::pendingFaults().isEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    Args, MsgctrPlatformBadFaultTest,
    ::testing::Values(
        BadFault{"mistypedOperation", words({"fault", "TAPI_SMS_GetServiceCentre", "509"}),
                 "'TAPI_SMS_GetServiceCentre' is not a platform operation (did you mean 'TAPI_SMS_GetServiceCenter'?) "
                 "(see msgctr platform calls)"},
        BadFault{"unknownOperation", words({"fault", "nothing", "1"}), "'nothing' is not a platform operation (see msgctr platform calls)"},
        BadFault{"resultNotANumber", words({"fault", "TAPI_CB_GetStatus", "bad"}),
                 "RESULT must be a number from -2147483648 to 2147483647, not 'bad'"},
        BadFault{"zeroTimes", words({"fault", "TAPI_CB_GetStatus", "5", "--times", "0"}),
                 "--times must be 1 or more, or -1 (until cleared), not 0"},
        BadFault{"timesBelowMinusOne", words({"fault", "TAPI_CB_GetStatus", "5", "--times", "-2"}),
                 "--times must be a number from -1 to 2147483647, not '-2'"},
        BadFault{"clearMistyped", words({"faults", "clean"}), "ACTION must be one of clear, not 'clean' (did you mean 'clear'?)"},
        BadFault{"callsOfUnknownOperation", words({"calls", "TAPI_Nothing"}), "'TAPI_Nothing' is not a platform operation (see msgctr platform calls)"}),
    [](const ::testing::TestParamInfo<BadFault>& info) { return std::string(info.param.name); });

} // namespace
