#include "foundation/MsgctrReport.h"

#include "HostRootTest.h"
#include "MSGCTR_ENG_DbgCtrlCenter.h"

#include <QRegularExpression>

namespace {

class MsgctrReportTest : public HostRootTest {
protected:
    // The tick count is the one part of a prefix that changes from run to run.
    static QStringList maskTicks(const QStringList& lines)
    {
        static const QRegularExpression ticks(QStringLiteral("^([^\\[]*\\([0-9]+\\)\\[[^\\]]*\\])[0-9]+: "));
        QStringList masked;
        for (const QString& line : lines) {
            QString m = line;
            m.replace(ticks, QStringLiteral("\\1<ticks>: "));
            masked.append(m);
        }
        return masked;
    }

    static QString at(int line, const char* function)
    {
        return QStringLiteral("MsgctrReport_test.cpp(%1)[%2]<ticks>: ").arg(line).arg(QLatin1String(function));
    }
};

struct Vp {
    int unit;
    unsigned char value;
};

int u8VpOfMaximum()
{
    const Vp struVp{3, 63};
    const int line = __LINE__ + 1;
    MSGCTR_ASSERT_FAIL_REPORT("false") << MSGCTR_VAL(struVp.unit) << MSGCTR_VAL(struVp.value);
    return line;
}

int errcodeGetSmsServiceCenterNumber(MSGCTR_ERRCODE msgctrErrcode)
{
    const int line = __LINE__ + 1;
    MSGCTR_REPORT_IF_ERROR(msgctrErrcode);
    return line;
}

int namedErrorReport(MSGCTR_ERRCODE code)
{
    const int line = __LINE__ + 1;
    MSGCTR_ASSERT_FAIL_REPORT("false") << MSGCTR_NAMED_VAL("curErr", code);
    return line;
}

int loadPushGateway(const QString& gateway)
{
    const int line = __LINE__ + 1;
    MSGCTR_MILD_ASSERT_FAIL_REPORT("isValid()") << MSGCTR_VAL(gateway);
    return line;
}

int loadQuickTexts(int count)
{
    const int line = __LINE__ + 1;
    MSGCTR_TRACE_REPORT() << MSGCTR_VAL(count) << MSGCTR_CMT(" too many user-defined-quick-text ");
    return line;
}

int checkIndex(int index)
{
    const int line = __LINE__ + 1;
    MSGCTR_CHECK(index >= 0) << MSGCTR_VAL(index);
    return line;
}

} // namespace

TEST_F(MsgctrReportTest, AssertionWithValues)
{
    const int line = u8VpOfMaximum();
    EXPECT_EQ(maskTicks(reportLines()),
              QStringList{at(line, "u8VpOfMaximum")
                          + QStringLiteral("assert fail at \"false\"; struVp.unit = 3(S32,4), "
                                           "struVp.value = 63/0x3F(U8,1), ")});
}

TEST_F(MsgctrReportTest, PrefixCarriesTheTickCount)
{
    u8VpOfMaximum();
    ASSERT_EQ(reportLines().size(), 1);
    EXPECT_TRUE(QRegularExpression(QStringLiteral("^MsgctrReport_test\\.cpp\\([0-9]+\\)\\[u8VpOfMaximum\\][0-9]+: "))
                    .match(reportLines().first())
                    .hasMatch())
        << reportLines().first().toStdString();
}

TEST_F(MsgctrReportTest, ErrorResult)
{
    const int line = errcodeGetSmsServiceCenterNumber(10084);
    EXPECT_EQ(maskTicks(reportLines()),
              QStringList{at(line, "errcodeGetSmsServiceCenterNumber")
                          + QStringLiteral("assert fail at \"false\"; msgctrErrcode = 10084(S32,4), ")});
}

TEST_F(MsgctrReportTest, ErrorResultWithItsOwnName)
{
    const int line = namedErrorReport(100007);
    EXPECT_EQ(maskTicks(reportLines()),
              QStringList{at(line, "namedErrorReport")
                          + QStringLiteral("assert fail at \"false\"; curErr = 100007(S32,4), ")});
}

TEST_F(MsgctrReportTest, SuccessWritesNoErrorReport)
{
    errcodeGetSmsServiceCenterNumber(MSGCTR_ERRCODE__SUCCESS);
    EXPECT_EQ(reportLines(), QStringList());
}

TEST_F(MsgctrReportTest, MildAssertion)
{
    const int line = loadPushGateway(QStringLiteral("wap"));
    EXPECT_EQ(maskTicks(reportLines()),
              QStringList{at(line, "loadPushGateway")
                          + QStringLiteral(" warning ! mild_assert fail at \"isValid()\"; "
                                           "gateway = \"wap\"(QString, len=3), ")});
}

TEST_F(MsgctrReportTest, TraceWithFoldedComment)
{
    const int line = loadQuickTexts(11);
    EXPECT_EQ(maskTicks(reportLines()),
              QStringList{at(line, "loadQuickTexts")
                          + QStringLiteral("count = 11(S32,4),  too many user-defined-quick-text ")});
}

TEST_F(MsgctrReportTest, BareAssertion)
{
    const int line = __LINE__ + 1;
    MSGCTR_ENG_DbgCtrlCenter::obj().outputAssertFail(__FILE__, __LINE__, "x > 0");
    EXPECT_EQ(reportLines(), QStringList{QStringLiteral("MsgctrReport_test.cpp(%1), assert fail at \"x > 0\"").arg(line)});
}

TEST_F(MsgctrReportTest, FailedCheckReportsItsExpression)
{
    checkIndex(4);
    EXPECT_EQ(reportLines(), QStringList());
    const int line = checkIndex(-2);
    EXPECT_EQ(maskTicks(reportLines()),
              QStringList{at(line, "checkIndex")
                          + QStringLiteral("assert fail at \"index >= 0\"; index = -2(S32,4), ")});
}

TEST_F(MsgctrReportTest, MultiLineValueIsWrittenAsSeveralLines)
{
    const QString text = QStringLiteral("a\nb");
    const int line = __LINE__ + 1;
    MSGCTR_TRACE_REPORT() << MSGCTR_VAL(text);
    EXPECT_EQ(maskTicks(reportLines()),
              (QStringList{at(line, "TestBody") + QStringLiteral("text = \"a"),
                           QStringLiteral("b\"(QString, len=3), ")}));
}

TEST_F(MsgctrReportTest, ReportsReachTheLogString)
{
    MSGCTR_ENG_DbgCtrlCenter::obj().enableDbgInfoToLogString(true);
    const int traceLine = loadQuickTexts(12);
    const int errorLine = errcodeGetSmsServiceCenterNumber(10021);
    // The reports follow each other with no separator, each with its own tick count.
    QString log = MSGCTR_ENG_DbgCtrlCenter::obj().getLogString();
    log.replace(QRegularExpression(QStringLiteral("\\][0-9]+: ")), QStringLiteral("]<ticks>: "));
    EXPECT_EQ(log, at(traceLine, "loadQuickTexts")
                       + QStringLiteral("count = 12(S32,4),  too many user-defined-quick-text ")
                       + at(errorLine, "errcodeGetSmsServiceCenterNumber")
                       + QStringLiteral("assert fail at \"false\"; msgctrErrcode = 10021(S32,4), "));
}

TEST_F(MsgctrReportTest, TraceOnScreenIsOffByDefault)
{
    loadQuickTexts(1);
    EXPECT_FALSE(MSGCTR_ENG_DbgCtrlCenter::obj().traceToGUIEnabled());
    EXPECT_EQ(reportLines().size(), 1);
}
