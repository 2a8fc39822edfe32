#include "HostRootTest.h"

#include "ReportCapture.h"
#include "ZorHostControl.h"

void HostRootTest::SetUp()
{
    m_environment = std::make_unique<ScopedEnvironment>(
        QList<QByteArray>{"TZ", "ZORHOST_ROOT", "XDG_DATA_HOME", "HOME", "QT_QPA_PLATFORM"});
    m_sink = std::make_unique<SavedReportSink>();
    m_dir = std::make_unique<QTemporaryDir>(QStringLiteral(ZOR_TEST_TMP "/root-XXXXXX"));
    ASSERT_TRUE(m_dir->isValid());
    ZorHost::setRoot(m_dir->path());
    ZorHost::resetAll();
    ReportCapture::start();
}

void HostRootTest::TearDown()
{
    ZorHost::clearFaults();
    // Still capturing: what restoring the sink writes is no report of the test.
    m_sink->restore();
    ReportCapture::stop();
    ZorHost::setRoot(QString());
    m_environment.reset();
}

QString HostRootTest::root() const
{
    return m_dir->path();
}

QStringList HostRootTest::reportLines() const
{
    return ReportCapture::lines();
}

QStringList HostRootTest::takeReportLines()
{
    return ReportCapture::take();
}
