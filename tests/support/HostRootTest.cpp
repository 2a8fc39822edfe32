#include "HostRootTest.h"

#include "ReportCapture.h"
#include "ZorHostControl.h"

void HostRootTest::SetUp()
{
    m_dir = std::make_unique<QTemporaryDir>(QStringLiteral(ZOR_TEST_TMP "/root-XXXXXX"));
    ASSERT_TRUE(m_dir->isValid());
    ZorHost::setRoot(m_dir->path());
    ZorHost::resetAll();
    ReportCapture::start();
}

void HostRootTest::TearDown()
{
    ReportCapture::stop();
    ZorHost::clearFaults();
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
