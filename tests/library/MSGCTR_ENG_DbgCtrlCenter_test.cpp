#include "MSGCTR_ENG_DbgCtrlCenter.h"

#include "ForkedScenario.h"
#include "HostRootTest.h"

#include <QCoreApplication>
#include <QMetaObject>

// The screen display exists only in builds with Qt Widgets.
#if __has_include(<QApplication>)
#define ZOR_TEST_WIDGETS 1
#include <QApplication>
#include <QLabel>
#endif

#include <memory>

namespace {

const QString kNotice = QStringLiteral("\r\n !!! quorvel : too many log, truncated from here on !!! ......");

class DbgCtrlCenterTest : public HostRootTest {
protected:
    MSGCTR_ENG_DbgCtrlCenter& sink = MSGCTR_ENG_DbgCtrlCenter::obj();
};

#ifdef ZOR_TEST_WIDGETS
// A test may create the application it needs; it is gone again when the test ends.
class DbgCtrlCenterGuiTest : public DbgCtrlCenterTest {
protected:
    void SetUp() override
    {
        DbgCtrlCenterTest::SetUp();
        // Never a real display, however the test is started.
        qputenv("QT_QPA_PLATFORM", "offscreen");
        app = std::make_unique<QApplication>(argc, argv);
    }
    void TearDown() override
    {
        sink.destroyModelessWidget();
        app.reset();
        DbgCtrlCenterTest::TearDown();
    }

    QList<QLabel*> labels() const
    {
        QList<QLabel*> found;
        for (QWidget* w : QApplication::topLevelWidgets()) {
            if (QLabel* label = qobject_cast<QLabel*>(w))
                found.append(label);
        }
        return found;
    }

    // Posts an event that records whether a display call is pumping events when it is delivered.
    void postFlagProbe()
    {
        QMetaObject::invokeMethod(
            QCoreApplication::instance(),
            [this] {
                probeDelivered = true;
                flagDuringEvents = sink.isShowingMsgSoWeAreProcessingEvents();
            },
            Qt::QueuedConnection);
    }

    int argc = 1;
    char arg0[8] = "test";
    char* argv[2] = {arg0, nullptr};
    std::unique_ptr<QApplication> app;
    bool probeDelivered = false;
    bool flagDuringEvents = false;
};
#endif

} // namespace

TEST_F(DbgCtrlCenterTest, ObjIsOneInstanceCreatedInItsInitialState)
{
    runForkedScenario([] {
        MSGCTR_ENG_DbgCtrlCenter& first = MSGCTR_ENG_DbgCtrlCenter::obj();
        EXPECT_FALSE(first.traceToGUIEnabled());
        EXPECT_FALSE(first.dbgInfoToLogStringIsEnabled());
        first.traceToGUIEnabled() = true;
        first.enableDbgInfoToLogString(true);
        first.output(QStringLiteral("kept"));

        // A later call finds the same sink with what was done to it.
        MSGCTR_ENG_DbgCtrlCenter& later = MSGCTR_ENG_DbgCtrlCenter::obj();
        EXPECT_EQ(&later, &first);
        EXPECT_TRUE(later.traceToGUIEnabled());
        EXPECT_EQ(later.getLogString(), QStringLiteral("kept"));
    });
}

TEST_F(DbgCtrlCenterTest, InitialFlags)
{
    EXPECT_TRUE(sink.dbgInfoEnabled());
    EXPECT_TRUE(sink.dbgInfoToGUIEnabled());
    EXPECT_TRUE(sink.dbgInfoToLogfileEnabled());
    EXPECT_TRUE(sink.dbgInfoToConsoleEnabled());
    EXPECT_FALSE(sink.traceToGUIEnabled());
    EXPECT_FALSE(sink.assertFailToGUIEnabled());
    EXPECT_FALSE(sink.mildAssertFailToGUIEnabled());
    EXPECT_FALSE(sink.dbgInfoToLogStringIsEnabled());
    EXPECT_FALSE(sink.isShowingMsgSoWeAreProcessingEvents());
    EXPECT_EQ(sink.getLogString(), QString());
}

TEST_F(DbgCtrlCenterTest, FlagAccessorsAreWritable)
{
    sink.traceToGUIEnabled() = true;
    sink.assertFailToGUIEnabled() = true;
    sink.mildAssertFailToGUIEnabled() = true;
    sink.enableDbgInfoToGUI(false);
    sink.enableDbgInfoToLogString(true);
    EXPECT_TRUE(sink.traceToGUIEnabled());
    EXPECT_TRUE(sink.assertFailToGUIEnabled());
    EXPECT_TRUE(sink.mildAssertFailToGUIEnabled());
    EXPECT_FALSE(sink.dbgInfoToGUIEnabled());
    EXPECT_TRUE(sink.dbgInfoToLogStringIsEnabled());

    sink.init();
    EXPECT_FALSE(sink.traceToGUIEnabled());
    EXPECT_FALSE(sink.assertFailToGUIEnabled());
    EXPECT_FALSE(sink.mildAssertFailToGUIEnabled());
    EXPECT_TRUE(sink.dbgInfoToGUIEnabled());
    EXPECT_FALSE(sink.dbgInfoToLogStringIsEnabled());
}

TEST_F(DbgCtrlCenterTest, OutputWritesEachLine)
{
    sink.output(QStringLiteral("first\nsecond\n"));
    EXPECT_EQ(reportLines(), (QStringList{QStringLiteral("first"), QStringLiteral("second")}));
}

TEST_F(DbgCtrlCenterTest, OutputReplacesCharactersAbove255)
{
    sink.output(QString::fromUtf16(u"\u00E9\u4E2D"));
    EXPECT_EQ(reportLines(), QStringList{QStringLiteral("\u00E9?")});
}

TEST_F(DbgCtrlCenterTest, EmptyReportWritesNothing)
{
    sink.output(QString());
    sink.outputTraceMsg(QString());
    EXPECT_EQ(reportLines(), QStringList());
}

TEST_F(DbgCtrlCenterTest, LogStringIsOffByDefault)
{
    sink.output(QStringLiteral("x"));
    EXPECT_EQ(sink.getLogString(), QString());
}

TEST_F(DbgCtrlCenterTest, LogStringKeepsReportsWithoutSeparator)
{
    sink.enableDbgInfoToLogString(true);
    sink.output(QStringLiteral("a"));
    sink.outputTraceMsg(QStringLiteral("b\n"));
    sink.outputAssertFailMsg(QString::fromUtf16(u"c\u20AC"));
    sink.outputMildAssertFailMsg(QStringLiteral("d"));
    EXPECT_EQ(sink.getLogString(), QString::fromUtf16(u"ab\nc\u20ACd"));
    sink.enableDbgInfoToLogString(false);
    sink.output(QStringLiteral("e"));
    EXPECT_EQ(sink.getLogString(), QString::fromUtf16(u"ab\nc\u20ACd"));
}

TEST_F(DbgCtrlCenterTest, LongLogGetsTheNoticeExactlyOnce)
{
    sink.enableDbgInfoToLogString(true);
    const QString big(20481, QLatin1Char('x'));
    sink.output(big);
    ASSERT_EQ(sink.getLogString(), big);
    takeReportLines();

    sink.output(QStringLiteral("one"));
    sink.output(QStringLiteral("two"));
    EXPECT_EQ(sink.getLogString(), big + kNotice);
    EXPECT_EQ(sink.getLogString().count(kNotice), 1);
    EXPECT_EQ(reportLines(), (QStringList{QStringLiteral("one"), QStringLiteral("two")}))
        << "the lines are still written";
}

TEST_F(DbgCtrlCenterTest, LogOfExactlyTheLimitStillTakesText)
{
    sink.enableDbgInfoToLogString(true);
    const QString limit(20480, QLatin1Char('x'));
    sink.output(limit);
    sink.output(QStringLiteral("y"));
    EXPECT_EQ(sink.getLogString(), limit + QStringLiteral("y"));
    sink.output(QStringLiteral("z"));
    EXPECT_EQ(sink.getLogString(), limit + QStringLiteral("y") + kNotice);
}

TEST_F(DbgCtrlCenterTest, BareAssertionText)
{
    sink.outputAssertFail("src\\tapi/MSGCTR_ENG_TAPI.cpp", 92, "pNumber != 0");
    EXPECT_EQ(reportLines(), QStringList{QStringLiteral("tapi/MSGCTR_ENG_TAPI.cpp(92), assert fail at \"pNumber != 0\"")});
}

TEST_F(DbgCtrlCenterTest, FailedAssertionReturnsNormally)
{
    sink.assertFailToGUIEnabled() = true;
    sink.outputAssertFailMsg(QStringLiteral("boom"));
    sink.outputMildAssertFailMsg(QStringLiteral("soft"));
    sink.outputAssertFail("f.cpp", 1, "false");
    sink.assertFailHook();
    MSGCTR_ENG_DbgCtrlCenter::abortIf(false);
    EXPECT_EQ(reportLines(), (QStringList{QStringLiteral("boom"), QStringLiteral("soft"),
                                          QStringLiteral("f.cpp(1), assert fail at \"false\"")}));
}

TEST_F(DbgCtrlCenterTest, AbortWrapperAbortsOnlyOnTrue)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_DEATH(MSGCTR_ENG_DbgCtrlCenter::abortIf(true), "");
}

TEST_F(DbgCtrlCenterTest, ModalDisplayIsANoOp)
{
    EXPECT_EQ(sink.showMsgByModel(QStringLiteral("x")), 0);
    EXPECT_FALSE(sink.isShowingMsgSoWeAreProcessingEvents());
    EXPECT_EQ(reportLines(), QStringList());
}

TEST_F(DbgCtrlCenterTest, ModelessDisplayWithoutApplicationOnlyTogglesItsFlag)
{
    sink.showMsgByModeless(QStringLiteral("x"));
    EXPECT_FALSE(sink.isShowingMsgSoWeAreProcessingEvents());
    EXPECT_EQ(reportLines(), QStringList());
#ifdef ZOR_TEST_WIDGETS
    // No label was made for later: an application started now has no window.
    int argc = 1;
    char arg0[] = "test";
    char* argv[] = {arg0, nullptr};
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    EXPECT_EQ(QApplication::topLevelWidgets().size(), 0);
#endif
    sink.destroyModelessWidget();
}

TEST_F(DbgCtrlCenterTest, ModelessDisplayWithCoreApplicationPumpsNoEvents)
{
    int argc = 1;
    char arg0[] = "test";
    char* argv[] = {arg0, nullptr};
    QCoreApplication app(argc, argv);
    bool delivered = false;
    QMetaObject::invokeMethod(&app, [&delivered] { delivered = true; }, Qt::QueuedConnection);
    sink.traceToGUIEnabled() = true;
    sink.outputTraceMsg(QStringLiteral("trace"));
    EXPECT_FALSE(delivered);
    EXPECT_FALSE(sink.isShowingMsgSoWeAreProcessingEvents());
    EXPECT_EQ(reportLines(), QStringList{QStringLiteral("trace")});
    QCoreApplication::processEvents();
    EXPECT_TRUE(delivered) << "the probe itself works";
}

#ifdef ZOR_TEST_WIDGETS
TEST_F(DbgCtrlCenterGuiTest, ModelessDisplayShowsOneLabel)
{
    postFlagProbe();
    sink.showMsgByModeless(QStringLiteral("hello screen"));

    const QList<QLabel*> shown = labels();
    ASSERT_EQ(shown.size(), 1);
    QLabel* label = shown.first();
    EXPECT_EQ(label->parent(), nullptr);
    EXPECT_EQ(label->pos(), QPoint(0, 70));
    EXPECT_TRUE(label->wordWrap());
    EXPECT_EQ(label->alignment() & Qt::AlignHorizontal_Mask, Qt::AlignLeft);
    EXPECT_EQ(label->text(), QStringLiteral("hello screen"));
    EXPECT_TRUE(label->isVisible());

    EXPECT_TRUE(probeDelivered) << "pending events are processed once";
    EXPECT_TRUE(flagDuringEvents);
    EXPECT_FALSE(sink.isShowingMsgSoWeAreProcessingEvents());
}

TEST_F(DbgCtrlCenterGuiTest, LabelIsReusedUntilDestroyed)
{
    sink.showMsgByModeless(QStringLiteral("one"));
    QLabel* first = labels().value(0);
    ASSERT_NE(first, nullptr);
    sink.showMsgByModeless(QStringLiteral("two"));
    ASSERT_EQ(labels().size(), 1);
    EXPECT_EQ(labels().first(), first);
    EXPECT_EQ(first->text(), QStringLiteral("two"));

    sink.destroyModelessWidget();
    EXPECT_TRUE(labels().isEmpty());
    sink.destroyModelessWidget();

    sink.showMsgByModeless(QStringLiteral("three"));
    ASSERT_EQ(labels().size(), 1);
    EXPECT_EQ(labels().first()->text(), QStringLiteral("three"));
}

TEST_F(DbgCtrlCenterGuiTest, TraceGoesToScreenOnlyWhenAsked)
{
    sink.outputTraceMsg(QStringLiteral("quiet"));
    EXPECT_TRUE(labels().isEmpty());

    sink.traceToGUIEnabled() = true;
    sink.outputTraceMsg(QString::fromUtf16(u"loud \u20AC"));
    ASSERT_EQ(labels().size(), 1);
    EXPECT_EQ(labels().first()->text(), QString::fromUtf16(u"loud \u20AC"));
    EXPECT_EQ(reportLines(), (QStringList{QStringLiteral("quiet"), QStringLiteral("loud ?")}));
}

TEST_F(DbgCtrlCenterGuiTest, AssertionsShowNothing)
{
    sink.assertFailToGUIEnabled() = true;
    sink.mildAssertFailToGUIEnabled() = true;
    postFlagProbe();
    sink.outputAssertFailMsg(QStringLiteral("hard"));
    sink.outputMildAssertFailMsg(QStringLiteral("mild"));
    EXPECT_EQ(sink.showMsgByModel(QStringLiteral("modal")), 0);
    EXPECT_TRUE(labels().isEmpty());
    EXPECT_FALSE(probeDelivered) << "the modal display never blocks or pumps events";
    EXPECT_FALSE(sink.isShowingMsgSoWeAreProcessingEvents());
    EXPECT_EQ(reportLines(), (QStringList{QStringLiteral("hard"), QStringLiteral("mild")}));
}
#endif
