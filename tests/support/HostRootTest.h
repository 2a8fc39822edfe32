// Base fixture of every test: a fresh host-platform root of its own in the build tree, in factory state,
// and the report lines captured through the print callback. Whatever a test changes that outlives it in the
// process (the root, the environment variables that decide the default root and the time zone, the report
// sink's flags and log string, the print callback, pending faults) is put back when it ends.
#pragma once

#include "SavedReportSink.h"
#include "ScopedEnvironment.h"

#include <gtest/gtest.h>

#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <memory>

class HostRootTest : public ::testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    // The root folder of this test.
    QString root() const;
    // The report lines written since the test began (or since the last takeReportLines()).
    QStringList reportLines() const;
    QStringList takeReportLines();

private:
    std::unique_ptr<QTemporaryDir> m_dir;
    std::unique_ptr<ScopedEnvironment> m_environment;
    std::unique_ptr<SavedReportSink> m_sink;
};
