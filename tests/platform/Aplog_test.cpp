#include "HostRootTest.h"

#include "ZorHostAplogControl.h"
#include "ZorHostControl.h"
#include "aplog.h"

#include <QFile>

#include <cerrno>
#include <ostream>
#include <sys/wait.h>
#include <unistd.h>

namespace ZorHost {
inline void PrintTo(const AplogRecord& r, std::ostream* os)
{
    *os << r.module.toStdString() << '/' << r.level << '/' << r.text.toStdString();
}
} // namespace ZorHost

namespace {

using ZorHost::AplogRecord;

class AplogTest : public HostRootTest {};

TEST_F(AplogTest, ProcessStartsDetachedAndWritesNothing)
{
    EXPECT_EQ(aplog_is_attached(), 0);
    errno = 0;
    EXPECT_EQ(aplog_write("VMX", 7, "line"), -1);
    EXPECT_EQ(errno, ENOTCONN);
    EXPECT_EQ(ZorHost::aplogRecords(), QList<AplogRecord>());
}

TEST_F(AplogTest, LevelsUpToSevenAreWrittenHigherOnesDropped)
{
    aplog_attach();
    EXPECT_EQ(aplog_is_attached(), 1);
    EXPECT_EQ(aplog_write("VMX", 0, "zero"), 0);
    EXPECT_EQ(aplog_write("VMX", 7, "seven"), 0);
    EXPECT_EQ(aplog_write("VMX", 8, "eight"), 1);
    EXPECT_EQ(aplog_write("VMX", 100, "hundred"), 1);
    EXPECT_EQ(aplog_write("VMX", -1, "negative"), 1);
    EXPECT_EQ(ZorHost::aplogRecords(), (QList<AplogRecord>{{QStringLiteral("VMX"), 0, QStringLiteral("zero")},
                                                          {QStringLiteral("VMX"), 7, QStringLiteral("seven")}}));
}

TEST_F(AplogTest, FormattedTextKeepsLineBreaksTabsAndBackslashes)
{
    aplog_attach();
    EXPECT_EQ(aplog_printf("VMX", 7, "\nVMX--mCardType is UNKNOWN!!!!! simStatus = %d\n", 9), 0);
    EXPECT_EQ(aplog_printf("VMX", 7, "tab\there \\n not a break %s", "ok"), 0);
    EXPECT_EQ(ZorHost::aplogRecords(),
              (QList<AplogRecord>{
                  {QStringLiteral("VMX"), 7, QStringLiteral("\nVMX--mCardType is UNKNOWN!!!!! simStatus = 9\n")},
                  {QStringLiteral("VMX"), 7, QStringLiteral("tab\there \\n not a break ok")}}));
    QFile f(ZorHost::aplogPath());
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    EXPECT_EQ(f.readAll(), QByteArray("VMX\t7\t\\nVMX--mCardType is UNKNOWN!!!!! simStatus = 9\\n\n"
                                      "VMX\t7\ttab\\there \\\\n not a break ok\n"));
    EXPECT_EQ(ZorHost::aplogPath(), root() + QStringLiteral("/state/aplog/aplog.log"));
}

TEST_F(AplogTest, BadModuleNameIsRefused)
{
    aplog_attach();
    for (const char* module : {static_cast<const char*>(nullptr), "", "a\tb", "a\nb"}) {
        errno = 0;
        EXPECT_EQ(aplog_write(module, 7, "x"), -1);
        EXPECT_EQ(errno, EINVAL);
    }
    EXPECT_EQ(aplog_write("VMX", 7, nullptr), 0);
    EXPECT_EQ(ZorHost::aplogRecords(), (QList<AplogRecord>{{QStringLiteral("VMX"), 7, QString()}}));
}

TEST_F(AplogTest, DetachStopsWritingAndResetDetachesAndClears)
{
    aplog_attach();
    ASSERT_EQ(aplog_write("VMX", 1, "kept"), 0);
    aplog_detach();
    EXPECT_EQ(aplog_write("VMX", 1, "lost"), -1);
    EXPECT_EQ(ZorHost::aplogRecords().size(), 1);
    aplog_attach();
    ZorHost::resetAll();
    EXPECT_EQ(aplog_is_attached(), 0);
    EXPECT_EQ(ZorHost::aplogRecords(), QList<AplogRecord>());
}

TEST_F(AplogTest, InjectedFaultFailsTheWriteWithItsErrno)
{
    aplog_attach();
    ZorHost::injectFault(QStringLiteral("aplog_write"), EIO);
    errno = 0;
    EXPECT_EQ(aplog_printf("VMX", 7, "%s", "x"), -1);
    EXPECT_EQ(errno, EIO);
    EXPECT_EQ(ZorHost::aplogRecords(), QList<AplogRecord>());
    EXPECT_EQ(aplog_write("VMX", 7, "y"), 0);
    EXPECT_EQ(ZorHost::callCount(QStringLiteral("aplog_write")), 2);
}

TEST_F(AplogTest, RecordsOfSeveralProcessesNeverInterleave)
{
    aplog_attach();
    constexpr int kLines = 200;
    const QByteArray longText(3000, 'x');
    pid_t children[2];
    for (int c = 0; c < 2; ++c) {
        children[c] = ::fork();
        if (children[c] == 0) {
            for (int i = 0; i < kLines; ++i)
                if (aplog_printf(c == 0 ? "A" : "B", 7, "%d %s", i, longText.constData()) != 0)
                    ::_exit(1);
            ::_exit(0);
        }
    }
    for (pid_t child : children) {
        int status = 0;
        ASSERT_EQ(::waitpid(child, &status, 0), child);
        ASSERT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
    }
    const QList<AplogRecord> records = ZorHost::aplogRecords();
    ASSERT_EQ(records.size(), 2 * kLines);
    int next[2] = {0, 0};
    for (const AplogRecord& r : records) {
        const int c = r.module == QLatin1String("A") ? 0 : 1;
        EXPECT_EQ(r.text, QStringLiteral("%1 %2").arg(next[c]++).arg(QString::fromLatin1(longText)));
    }
}

} // namespace
