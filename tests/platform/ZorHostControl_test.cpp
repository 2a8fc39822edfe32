#include "HostRootTest.h"

#include "TAPI.h"
#include "ZorHostControl.h"
#include "ZorHostCore.h"
#include "ZorHostStateFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <climits>
#include <functional>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

// What the code under test writes to stderr, through a file of the test's root.
class StderrCapture {
public:
    explicit StderrCapture(const QString& path) : m_path(path)
    {
        std::fflush(stderr);
        m_saved = dup(STDERR_FILENO);
        const int fd = open(path.toLocal8Bit().constData(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
        dup2(fd, STDERR_FILENO);
        close(fd);
    }
    ~StderrCapture() { restore(); }
    StderrCapture(const StderrCapture&) = delete;
    StderrCapture& operator=(const StderrCapture&) = delete;

    QString take()
    {
        restore();
        QFile file(m_path);
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QStringLiteral("(unreadable)");
    }

private:
    void restore()
    {
        if (m_saved < 0)
            return;
        std::fflush(stderr);
        dup2(m_saved, STDERR_FILENO);
        close(m_saved);
        m_saved = -1;
    }

    QString m_path;
    int m_saved = -1;
};

// Children that start together: each waits until go() closes the pipe's writing end.
class StartLine {
public:
    StartLine() { EXPECT_EQ(pipe(m_fds), 0); }
    ~StartLine()
    {
        go();
        close(m_fds[0]);
    }
    StartLine(const StartLine&) = delete;
    StartLine& operator=(const StartLine&) = delete;

    void go()
    {
        if (m_fds[1] >= 0)
            close(m_fds[1]);
        m_fds[1] = -1;
    }
    // In a child: its own copy of the writing end would keep the pipe open for good.
    void waitForGo()
    {
        go();
        char byte;
        while (read(m_fds[0], &byte, 1) < 0 && errno == EINTR) {
        }
    }

private:
    int m_fds[2] = {-1, -1};
};

// A scenario in a process of its own, started now (or at the start line's go); wait() collects its exit status.
class Child {
public:
    explicit Child(const std::function<int()>& scenario, StartLine* start = nullptr)
    {
        m_pid = fork();
        if (m_pid == 0) {
            if (start)
                start->waitForGo();
            _exit(scenario());
        }
    }
    // The scenario's exit status, or -1 when it did not exit normally.
    int wait()
    {
        int status = 0;
        if (m_pid < 0 || waitpid(m_pid, &status, 0) != m_pid || !WIFEXITED(status))
            return -1;
        return WEXITSTATUS(status);
    }

private:
    pid_t m_pid = -1;
};

class ZorHostControlTest : public HostRootTest {};

// A platform operation that touches no file, so that many calls are quick: 1 unless a fault answers.
int expirePeriodOctet()
{
    const _TAPI_SMS_EXPIRE_PERIOD_DATA_S period{TAPI_SMS_EXPIRE_UNIT_DAY, 2};
    unsigned char octet = 0;
    return TAPI_SMS_ExpirePeriodToUINT8(&period, &octet);
}

TEST_F(ZorHostControlTest, RootIsTheFolderSetAndIsCreatedOnDemand)
{
    const QString dir = root() + QStringLiteral("/nested/again");
    ZorHost::setRoot(dir);
    EXPECT_FALSE(QFileInfo::exists(dir));
    EXPECT_EQ(ZorHost::root(), dir);
    EXPECT_TRUE(QFileInfo(dir).isDir());
}

TEST_F(ZorHostControlTest, DefaultRootComesFromZorhostRootFirst)
{
    qputenv("ZORHOST_ROOT", (root() + QStringLiteral("/from-env")).toLocal8Bit());
    qputenv("XDG_DATA_HOME", (root() + QStringLiteral("/xdg")).toLocal8Bit());
    ZorHost::setRoot(QString());
    EXPECT_EQ(ZorHost::root(), root() + QStringLiteral("/from-env"));
}

TEST_F(ZorHostControlTest, DefaultRootFallsBackToXdgDataHome)
{
    qunsetenv("ZORHOST_ROOT");
    qputenv("XDG_DATA_HOME", (root() + QStringLiteral("/xdg")).toLocal8Bit());
    ZorHost::setRoot(QString());
    EXPECT_EQ(ZorHost::root(), root() + QStringLiteral("/xdg/zorhost"));
}

TEST_F(ZorHostControlTest, DefaultRootFallsBackToHomeLocalShare)
{
    qunsetenv("ZORHOST_ROOT");
    qunsetenv("XDG_DATA_HOME");
    qputenv("HOME", (root() + QStringLiteral("/home")).toLocal8Bit());
    ZorHost::setRoot(QString());
    EXPECT_EQ(ZorHost::root(), root() + QStringLiteral("/home/.local/share/zorhost"));
}

TEST_F(ZorHostControlTest, DevicePathLivesUnderTheRootWithItsFolderCreated)
{
    const QString path = ZorHost::devicePath(QStringLiteral("/tmp/message_log.data"));
    EXPECT_EQ(path, root() + QStringLiteral("/device/tmp/message_log.data"));
    EXPECT_TRUE(QFileInfo(root() + QStringLiteral("/device/tmp")).isDir());
}

TEST_F(ZorHostControlTest, DevicePathCannotClimbOutOfTheDeviceTree)
{
    EXPECT_EQ(ZorHost::devicePath(QStringLiteral("/../../etc/passwd")), root() + QStringLiteral("/device/etc/passwd"));
    EXPECT_EQ(ZorHost::devicePath(QStringLiteral("/usr/../../x")), root() + QStringLiteral("/device/x"));
    EXPECT_EQ(ZorHost::devicePath(QStringLiteral("relative/name")), root() + QStringLiteral("/device/relative/name"));
}

TEST_F(ZorHostControlTest, FaultAppliesTheGivenNumberOfTimes)
{
    ASSERT_TRUE(ZorHost::injectFault(QStringLiteral("TAPI_CB_SetStatus"), 509, 2));
    EXPECT_EQ(TAPI_CB_SetStatus(1), 509);
    EXPECT_EQ(TAPI_CB_SetStatus(1), 509);
    EXPECT_EQ(TAPI_CB_SetStatus(1), TAPI_RESULT_SUCC);
    EXPECT_EQ(ZorHost::callCount(QStringLiteral("TAPI_CB_SetStatus")), 3);
}

TEST_F(ZorHostControlTest, FaultUntilClearedLastsUntilClearFaults)
{
    ASSERT_TRUE(ZorHost::injectFault(QStringLiteral("TAPI_CB_SetStatus"), 22, -1));
    for (int i = 0; i < 5; ++i)
        EXPECT_EQ(TAPI_CB_SetStatus(1), 22);
    ZorHost::clearFaults();
    EXPECT_EQ(TAPI_CB_SetStatus(1), TAPI_RESULT_SUCC);
}

TEST_F(ZorHostControlTest, FaultOnlyHitsItsOwnOperation)
{
    ASSERT_TRUE(ZorHost::injectFault(QStringLiteral("TAPI_CB_SetStatus"), 7));
    unsigned char state = 9;
    EXPECT_EQ(TAPI_CB_GetStatus(&state), TAPI_RESULT_SUCC);
    EXPECT_EQ(TAPI_CB_SetStatus(1), 7);
}

TEST_F(ZorHostControlTest, CallCountsAreKeptPerOperationAndReset)
{
    unsigned char state = 0;
    TAPI_CB_GetStatus(&state);
    TAPI_CB_GetStatus(&state);
    TAPI_CB_SetStatus(1);
    EXPECT_EQ(ZorHost::callCount(QStringLiteral("TAPI_CB_GetStatus")), 2);
    EXPECT_EQ(ZorHost::callCount(QStringLiteral("TAPI_CB_SetStatus")), 1);
    EXPECT_EQ(ZorHost::callCount(QStringLiteral("TAPI_CB_AddChannel")), 0);
    ZorHost::resetCallCounts();
    EXPECT_EQ(ZorHost::callCount(QStringLiteral("TAPI_CB_GetStatus")), 0);
}

TEST_F(ZorHostControlTest, OperationsAreTheDeclaredNamesSorted)
{
    const QStringList names = ZorHost::operations();
    QStringList sorted = names;
    sorted.sort();
    EXPECT_EQ(names, sorted);
    EXPECT_EQ(sorted.removeDuplicates(), 0);
    for (const char* name : {"TAPI_SMS_GetServiceCenter", "SETUP_SET_Manager::getInt", "SETUP_Utility::getFlexBit",
                             "UTIL_DateTime::dateToString", "UTIL_Language::getSystemLanguageId", "aplog_write"})
        EXPECT_TRUE(names.contains(QLatin1String(name))) << name;
}

TEST_F(ZorHostControlTest, IsOperationKnowsOnlyDeclaredNames)
{
    EXPECT_TRUE(ZorHost::isOperation(QStringLiteral("TAPI_SMS_GetServiceCenter")));
    EXPECT_TRUE(ZorHost::isOperation(QStringLiteral("UTIL_TimeConversion::toISO8601")));
    EXPECT_FALSE(ZorHost::isOperation(QStringLiteral("TAPI_SMS_GetServiceCentre")));
    EXPECT_FALSE(ZorHost::isOperation(QStringLiteral("tapi_sms_getservicecenter")));
    EXPECT_FALSE(ZorHost::isOperation(QStringLiteral("getInt")));
    EXPECT_FALSE(ZorHost::isOperation(QString()));
}

TEST_F(ZorHostControlTest, FaultForAnUnknownNameIsRefusedAloud)
{
    StderrCapture err(root() + QStringLiteral("/stderr.txt"));
    EXPECT_FALSE(ZorHost::injectFault(QStringLiteral("TAPI_SMS_GetServiceCentre"), 5));
    EXPECT_EQ(err.take(), QStringLiteral("zorhost: no platform operation is named \"TAPI_SMS_GetServiceCentre\"\n"));
    EXPECT_TRUE(ZorHost::pendingFaults().isEmpty());
}

TEST_F(ZorHostControlTest, CallCountOfAnUnknownNameIsRefusedAloud)
{
    StderrCapture err(root() + QStringLiteral("/stderr.txt"));
    EXPECT_EQ(ZorHost::callCount(QStringLiteral("SETUP_SET_Manager::getint")), -1);
    EXPECT_EQ(err.take(), QStringLiteral("zorhost: no platform operation is named \"SETUP_SET_Manager::getint\"\n"));
}

TEST_F(ZorHostControlTest, FaultForAnOperationThatCannotFailIsRefusedAloud)
{
    StderrCapture err(root() + QStringLiteral("/stderr.txt"));
    EXPECT_FALSE(ZorHost::injectFault(QStringLiteral("UTIL_DateTime::dateToString"), 5));
    EXPECT_EQ(err.take(),
              QStringLiteral("zorhost: \"UTIL_DateTime::dateToString\" cannot fail: it has no result to fail with\n"));
    EXPECT_TRUE(ZorHost::pendingFaults().isEmpty());
}

struct BadTimes {
    const char* name;
    int times;
    const char* diagnostic;
};

class ZorHostControlBadTimesTest : public ZorHostControlTest, public ::testing::WithParamInterface<BadTimes> {};

TEST_P(ZorHostControlBadTimesTest, IsRefusedAloud)
{
    StderrCapture err(root() + QStringLiteral("/stderr.txt"));
    EXPECT_FALSE(ZorHost::injectFault(QStringLiteral("TAPI_CB_SetStatus"), 5, GetParam().times));
    EXPECT_EQ(err.take(), QString::fromUtf8(GetParam().diagnostic));
    EXPECT_EQ(TAPI_CB_SetStatus(1), TAPI_RESULT_SUCC);
}

INSTANTIATE_TEST_SUITE_P(
    Times, ZorHostControlBadTimesTest,
    ::testing::Values(
        BadTimes{"Zero", 0, "zorhost: a fault applies to 1 or more calls, or -1 until cleared, not 0\n"},
        BadTimes{"MinusTwo", -2, "zorhost: a fault applies to 1 or more calls, or -1 until cleared, not -2\n"},
        BadTimes{"IntMin", INT_MIN,
                 "zorhost: a fault applies to 1 or more calls, or -1 until cleared, not -2147483648\n"}),
    [](const ::testing::TestParamInfo<BadTimes>& info) { return std::string(info.param.name); });

struct FaultResult {
    const char* name;
    int result;
};

class ZorHostControlFaultResultTest : public ZorHostControlTest, public ::testing::WithParamInterface<FaultResult> {};

TEST_P(ZorHostControlFaultResultTest, ComesBackUnchanged)
{
    ASSERT_TRUE(ZorHost::injectFault(QStringLiteral("TAPI_CB_SetStatus"), GetParam().result, 1));
    EXPECT_EQ(TAPI_CB_SetStatus(1), GetParam().result);
}

INSTANTIATE_TEST_SUITE_P(Results, ZorHostControlFaultResultTest,
                         ::testing::Values(FaultResult{"Zero", 0}, FaultResult{"MinusOne", -1},
                                           FaultResult{"IntMin", INT_MIN}, FaultResult{"IntMax", INT_MAX}),
                         [](const ::testing::TestParamInfo<FaultResult>& info) { return std::string(info.param.name); });

TEST_F(ZorHostControlTest, LargeFaultCountsLast)
{
    ASSERT_TRUE(ZorHost::injectFault(QStringLiteral("TAPI_CB_SetStatus"), 3, INT_MAX));
    EXPECT_EQ(TAPI_CB_SetStatus(1), 3);
    ASSERT_EQ(ZorHost::pendingFaults().size(), 1);
    EXPECT_EQ(ZorHost::pendingFaults().at(0).remaining, INT_MAX - 1);
}

TEST_F(ZorHostControlTest, PendingFaultsShowWhatIsLeftSortedByOperation)
{
    ASSERT_TRUE(ZorHost::injectFault(QStringLiteral("TAPI_SMS_GetServiceCenter"), 4, -1));
    ASSERT_TRUE(ZorHost::injectFault(QStringLiteral("TAPI_CB_SetStatus"), 509, 2));
    ASSERT_TRUE(ZorHost::injectFault(QStringLiteral("SETUP_SET_Manager::flush"), 28, 1));
    EXPECT_EQ(TAPI_CB_SetStatus(1), 509);

    const QList<ZorHost::PendingFault> faults = ZorHost::pendingFaults();
    ASSERT_EQ(faults.size(), 3);
    EXPECT_EQ(faults.at(0).operation, QStringLiteral("SETUP_SET_Manager::flush"));
    EXPECT_EQ(faults.at(0).result, 28);
    EXPECT_EQ(faults.at(0).remaining, 1);
    EXPECT_EQ(faults.at(1).operation, QStringLiteral("TAPI_CB_SetStatus"));
    EXPECT_EQ(faults.at(1).result, 509);
    EXPECT_EQ(faults.at(1).remaining, 1);
    EXPECT_EQ(faults.at(2).operation, QStringLiteral("TAPI_SMS_GetServiceCenter"));
    EXPECT_EQ(faults.at(2).result, 4);
    EXPECT_EQ(faults.at(2).remaining, -1);

    EXPECT_EQ(TAPI_CB_SetStatus(1), 509);
    ASSERT_EQ(ZorHost::pendingFaults().size(), 2);
    EXPECT_EQ(ZorHost::pendingFaults().at(1).operation, QStringLiteral("TAPI_SMS_GetServiceCenter"));
}

TEST_F(ZorHostControlTest, ALaterFaultReplacesTheEarlierOne)
{
    ASSERT_TRUE(ZorHost::injectFault(QStringLiteral("TAPI_CB_SetStatus"), 1, -1));
    ASSERT_TRUE(ZorHost::injectFault(QStringLiteral("TAPI_CB_SetStatus"), 2, 1));
    EXPECT_EQ(TAPI_CB_SetStatus(1), 2);
    EXPECT_EQ(TAPI_CB_SetStatus(1), TAPI_RESULT_SUCC);
}

TEST_F(ZorHostControlTest, AFaultSetHereIsMetByAnotherProcess)
{
    ASSERT_TRUE(ZorHost::injectFault(QStringLiteral("TAPI_CB_SetStatus"), 42, 1));
    const QString dir = root();
    Child child([dir] {
        // Attach afresh, as a separate application would: the fault must come from the file under the root.
        ZorHost::setRoot(dir);
        return TAPI_CB_SetStatus(1);
    });
    EXPECT_EQ(child.wait(), 42);
    EXPECT_TRUE(ZorHost::pendingFaults().isEmpty());
    EXPECT_EQ(TAPI_CB_SetStatus(1), TAPI_RESULT_SUCC);
}

TEST_F(ZorHostControlTest, AFaultSetByAnotherProcessIsMetHere)
{
    unsigned char state = 0;
    ASSERT_EQ(TAPI_CB_GetStatus(&state), TAPI_RESULT_SUCC); // this process is attached before the fault is set
    const QString dir = root();
    Child child([dir] {
        ZorHost::setRoot(dir);
        return ZorHost::injectFault(QStringLiteral("TAPI_CB_GetStatus"), 17, 1) ? 0 : 1;
    });
    ASSERT_EQ(child.wait(), 0);
    EXPECT_EQ(TAPI_CB_GetStatus(&state), 17);
    EXPECT_EQ(TAPI_CB_GetStatus(&state), TAPI_RESULT_SUCC);
}

TEST_F(ZorHostControlTest, CountsOfTwoProcessesAreAdded)
{
    for (int i = 0; i < 3; ++i)
        TAPI_CB_SetStatus(1);
    const QString dir = root();
    Child child([dir] {
        ZorHost::setRoot(dir);
        TAPI_CB_SetStatus(1);
        TAPI_CB_SetStatus(1);
        return 0;
    });
    ASSERT_EQ(child.wait(), 0);
    EXPECT_EQ(ZorHost::callCount(QStringLiteral("TAPI_CB_SetStatus")), 5);
}

TEST_F(ZorHostControlTest, CountsOfProcessesCallingAtOnceAreNotLost)
{
    const QString dir = root();
    const auto calls = [dir] {
        ZorHost::setRoot(dir);
        for (int i = 0; i < 20000; ++i)
            expirePeriodOctet();
        return 0;
    };
    StartLine start;
    Child first(calls, &start);
    Child second(calls, &start);
    start.go();
    ASSERT_EQ(first.wait(), 0);
    ASSERT_EQ(second.wait(), 0);
    EXPECT_EQ(ZorHost::callCount(QStringLiteral("TAPI_SMS_ExpirePeriodToUINT8")), 40000);
}

TEST_F(ZorHostControlTest, AOneShotFaultFiresOnceAcrossProcessesCallingAtOnce)
{
    ASSERT_TRUE(ZorHost::injectFault(QStringLiteral("TAPI_SMS_ExpirePeriodToUINT8"), 77, 1));
    const QString dir = root();
    // Each child answers how many of its calls met the fault.
    const auto calls = [dir] {
        ZorHost::setRoot(dir);
        int met = 0;
        for (int i = 0; i < 20000; ++i)
            met += expirePeriodOctet() == 77 ? 1 : 0;
        return met;
    };
    StartLine start;
    Child first(calls, &start);
    Child second(calls, &start);
    start.go();
    const int metByFirst = first.wait();
    const int metBySecond = second.wait();
    ASSERT_GE(metByFirst, 0);
    ASSERT_GE(metBySecond, 0);
    EXPECT_EQ(metByFirst + metBySecond, 1);
    EXPECT_EQ(ZorHost::callCount(QStringLiteral("TAPI_SMS_ExpirePeriodToUINT8")), 40000);
}

TEST_F(ZorHostControlTest, EachRootHasItsOwnFaultsAndCounts)
{
    const QString first = root();
    const QString second = root() + QStringLiteral("/other");
    ASSERT_TRUE(ZorHost::injectFault(QStringLiteral("TAPI_CB_SetStatus"), 8, -1));
    EXPECT_EQ(TAPI_CB_SetStatus(1), 8);

    ZorHost::setRoot(second);
    EXPECT_TRUE(ZorHost::pendingFaults().isEmpty());
    EXPECT_EQ(ZorHost::callCount(QStringLiteral("TAPI_CB_SetStatus")), 0);
    EXPECT_EQ(TAPI_CB_SetStatus(1), TAPI_RESULT_SUCC);

    ZorHost::setRoot(first);
    EXPECT_EQ(ZorHost::callCount(QStringLiteral("TAPI_CB_SetStatus")), 1);
    EXPECT_EQ(TAPI_CB_SetStatus(1), 8);
}

TEST_F(ZorHostControlTest, ADamagedTableStartsAfreshWithOneLine)
{
    const QString dir = root() + QStringLiteral("/damaged");
    ASSERT_TRUE(QDir().mkpath(dir));
    QFile junk(dir + QStringLiteral("/operations"));
    ASSERT_TRUE(junk.open(QIODevice::WriteOnly));
    junk.write("not a table at all\n");
    junk.close();

    StderrCapture err(root() + QStringLiteral("/stderr.txt"));
    ZorHost::setRoot(dir);
    EXPECT_EQ(ZorHost::callCount(QStringLiteral("TAPI_CB_SetStatus")), 0);
    EXPECT_EQ(err.take(), QStringLiteral("zorhost: %1/operations was not a table of operations; its counts and faults "
                                         "start afresh\n")
                              .arg(dir));
    EXPECT_EQ(TAPI_CB_SetStatus(1), TAPI_RESULT_SUCC);
    EXPECT_EQ(ZorHost::callCount(QStringLiteral("TAPI_CB_SetStatus")), 1);
    EXPECT_EQ(QFileInfo(dir + QStringLiteral("/operations")).size(), 131072);
}

TEST_F(ZorHostControlTest, ARootThatCannotHoldTheTableRefusesFaultsButStillCounts)
{
    const QString dir = root() + QStringLiteral("/blocked");
    // A folder where the table would be makes it impossible to create, whatever our privileges.
    ASSERT_TRUE(QDir().mkpath(dir + QStringLiteral("/operations")));
    ZorHost::setRoot(dir);

    StderrCapture err(root() + QStringLiteral("/stderr.txt"));
    EXPECT_FALSE(ZorHost::injectFault(QStringLiteral("TAPI_CB_SetStatus"), 5));
    EXPECT_EQ(err.take(), QStringLiteral("zorhost: cannot keep faults in %1/operations (Is a directory)\n").arg(dir));
    EXPECT_EQ(TAPI_CB_SetStatus(1), TAPI_RESULT_SUCC);
    EXPECT_EQ(ZorHost::callCount(QStringLiteral("TAPI_CB_SetStatus")), 1);
}

TEST_F(ZorHostControlTest, ResetAllRemovesPlatformStateButNothingElseUnderTheRoot)
{
    QFile mine(root() + QStringLiteral("/not-the-platforms.txt"));
    ASSERT_TRUE(mine.open(QIODevice::WriteOnly));
    mine.write("keep");
    mine.close();
    ZorHostCore::StateFile state(ZorHostCore::stateDir(QStringLiteral("sim")) + QStringLiteral("/state.txt"));
    ASSERT_TRUE(state.write("x=1\n"));
    QFile device(ZorHost::devicePath(QStringLiteral("/tmp/file")));
    ASSERT_TRUE(device.open(QIODevice::WriteOnly));
    device.close();
    ASSERT_TRUE(ZorHost::injectFault(QStringLiteral("TAPI_CB_SetStatus"), 1, -1));
    ASSERT_EQ(TAPI_CB_SetStatus(1), 1);
    int dropped = 0;
    ZorHostCore::registerReset("sim", [&dropped] { ++dropped; });

    ZorHost::resetAll();

    EXPECT_TRUE(QFileInfo::exists(mine.fileName()));
    EXPECT_FALSE(QFileInfo::exists(state.path()));
    EXPECT_FALSE(QFileInfo::exists(device.fileName()));
    EXPECT_EQ(dropped, 1);
    EXPECT_EQ(TAPI_CB_SetStatus(1), TAPI_RESULT_SUCC);
    EXPECT_EQ(ZorHost::callCount(QStringLiteral("TAPI_CB_SetStatus")), 1);
}

TEST_F(ZorHostControlTest, StateFileReplacesAtomicallyAndReadsBack)
{
    ZorHostCore::StateFile file(root() + QStringLiteral("/s/state.txt"));
    bool ok = false;
    EXPECT_TRUE(file.read(&ok).isNull());
    EXPECT_TRUE(ok);
    ASSERT_TRUE(file.write("first\n"));
    ASSERT_TRUE(file.write("second\n"));
    EXPECT_EQ(file.read(&ok), QByteArray("second\n"));
    EXPECT_FALSE(QFileInfo::exists(file.path() + QStringLiteral(".new")));
}

TEST_F(ZorHostControlTest, EmptyStateFileReadsAsEmptyNotNull)
{
    ZorHostCore::StateFile file(root() + QStringLiteral("/s/empty.txt"));
    ASSERT_TRUE(file.write(QByteArray()));
    const QByteArray data = file.read();
    EXPECT_FALSE(data.isNull());
    EXPECT_TRUE(data.isEmpty());
}

TEST_F(ZorHostControlTest, StateFileWriteFailureKeepsTheOldFileAndSetsErrno)
{
    ZorHostCore::StateFile file(root() + QStringLiteral("/s/state.txt"));
    ASSERT_TRUE(file.write("old\n"));
    // A folder where the new file would be written makes the write fail whatever our privileges.
    ASSERT_TRUE(QDir().mkpath(file.path() + QStringLiteral(".new")));
    errno = 0;
    EXPECT_FALSE(file.write("new\n"));
    EXPECT_EQ(errno, EISDIR);
    EXPECT_EQ(file.read(), QByteArray("old\n"));
}

TEST_F(ZorHostControlTest, StateFileLockIsReentrantWithinOneObject)
{
    ZorHostCore::StateFile file(root() + QStringLiteral("/s/locked.txt"));
    ZorHostCore::StateFileLocker outer(file);
    ASSERT_TRUE(outer.locked());
    ZorHostCore::StateFileLocker inner(file);
    EXPECT_TRUE(inner.locked());
}

} // namespace
