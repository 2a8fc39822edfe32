#include "HostRootTest.h"
#include "ReportLines.h"

#include "tapi/MsgctrTapiCall.h"

#include "TAPI.h"
#include "ZorHostControl.h"

namespace {

// A wrapper as the cell-broadcast ones are written; the line of its call is what its reports show.
const int kLineOfSetState = __LINE__ + 3;
MSGCTR_ERRCODE setCbState(unsigned char cbState)
{
    return MSGCTR_TAPI_CALL(TAPI_CB_SetStatus(cbState), MSGCTR_VAL(cbState));
}

QString at(int line, const char* function)
{
    return QStringLiteral("MsgctrTapiCall_test.cpp(%1)[%2]<T>: ").arg(line).arg(QLatin1String(function));
}

class MsgctrTapiCallTest : public HostRootTest {};

TEST_F(MsgctrTapiCallTest, CommonWrapperTracesItsArgumentBeforeAndAfter)
{
    EXPECT_EQ(setCbState(1), 0);
    EXPECT_EQ(ZorHost::callCount(QStringLiteral("TAPI_CB_SetStatus")), 1);
    const QString value = QStringLiteral("cbState = 1/0x01(U8,1), ");
    EXPECT_EQ(ticksMasked(reportLines()),
              expected({at(kLineOfSetState, "setCbState") + value,
                        at(kLineOfSetState, "setCbState") + value + QStringLiteral("tapiResult = 0(S32,4), ")}));
}

TEST_F(MsgctrTapiCallTest, CommonWrapperReportsAFailureWithItsArgument)
{
    ZorHost::injectFault(QStringLiteral("TAPI_CB_SetStatus"), 305);
    EXPECT_EQ(setCbState(7), 10083);
    const QString value = QStringLiteral("cbState = 7/0x07(U8,1), ");
    EXPECT_EQ(ticksMasked(reportLines()),
              expected({at(kLineOfSetState, "setCbState") + value,
                        at(kLineOfSetState, "setCbState") + value + QStringLiteral("tapiResult = 305(S32,4), "),
                        at(kLineOfSetState, "setCbState")
                            + QStringLiteral("assert fail at \"false\"; msgctrErrcode = 10083(S32,4), ") + value
                            + QStringLiteral("tapiResult = 305(S32,4), ")}));
}

TEST_F(MsgctrTapiCallTest, UnconditionalReportNamesItsExpression)
{
    ZorHost::injectFault(QStringLiteral("TAPI_SMS_SetEmailGateway"), 22);
    MsgctrTapiFailureReport failure;
    failure.expression = "(MSGCTR_ERRCODE__SUCCESS) == (msgctrErrcode)";
    failure.unconditional = true;
    failure.withTapiResult = false;
    const int line = __LINE__ + 1;
    EXPECT_EQ(msgctrTapiCall(MSGCTR_TAPI_SITE, [] { return TAPI_SMS_SetEmailGateway("1"); }, {}, {}, {}, failure),
              10084);
    EXPECT_EQ(ticksMasked(reportLines()),
              expected({at(line, "TestBody"), at(line, "TestBody") + QStringLiteral("tapiResult = 22(S32,4), "),
                        at(line, "TestBody")
                            + QStringLiteral("assert fail at \"(MSGCTR_ERRCODE__SUCCESS) == (msgctrErrcode)\"; "
                                             "msgctrErrcode = 10084(S32,4), ")}));
}

} // namespace
