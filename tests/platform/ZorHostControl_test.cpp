#include "HostRootTest.h"

#include "ZorHostControl.h"
#include "ZorHostCore.h"
#include "ZorHostStateFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <memory>

namespace {

class ZorHostControlTest : public HostRootTest {};

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
    ZorHost::injectFault(QStringLiteral("TAPI_X"), 509, 2);
    int result = 0;
    EXPECT_TRUE(ZorHostCore::enter("TAPI_X", &result));
    EXPECT_EQ(result, 509);
    result = 0;
    EXPECT_TRUE(ZorHostCore::enter("TAPI_X", &result));
    EXPECT_EQ(result, 509);
    result = 0;
    EXPECT_FALSE(ZorHostCore::enter("TAPI_X", &result));
    EXPECT_EQ(result, 0);
    EXPECT_EQ(ZorHost::callCount(QStringLiteral("TAPI_X")), 3);
}

TEST_F(ZorHostControlTest, FaultUntilClearedLastsUntilClearFaults)
{
    ZorHost::injectFault(QStringLiteral("TAPI_Y"), 22, -1);
    int result = 0;
    for (int i = 0; i < 5; ++i)
        EXPECT_TRUE(ZorHostCore::enter("TAPI_Y", &result));
    ZorHost::clearFaults();
    EXPECT_FALSE(ZorHostCore::enter("TAPI_Y", &result));
}

TEST_F(ZorHostControlTest, FaultOnlyHitsItsOwnOperation)
{
    ZorHost::injectFault(QStringLiteral("TAPI_A"), 7);
    int result = 0;
    EXPECT_FALSE(ZorHostCore::enter("TAPI_B", &result));
    EXPECT_TRUE(ZorHostCore::enter("TAPI_A", &result));
    EXPECT_EQ(result, 7);
}

TEST_F(ZorHostControlTest, CallCountsAreKeptPerOperationAndReset)
{
    int result = 0;
    ZorHostCore::enter("A", &result);
    ZorHostCore::enter("A", &result);
    ZorHostCore::enter("B", &result);
    EXPECT_EQ(ZorHost::callCount(QStringLiteral("A")), 2);
    EXPECT_EQ(ZorHost::callCount(QStringLiteral("B")), 1);
    EXPECT_EQ(ZorHost::callCount(QStringLiteral("C")), 0);
    ZorHost::resetCallCounts();
    EXPECT_EQ(ZorHost::callCount(QStringLiteral("A")), 0);
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
    ZorHost::injectFault(QStringLiteral("OP"), 1, -1);
    const auto dropped = std::make_shared<int>(0);
    const int hook = ZorHostCore::registerReset("sim", [dropped] { ++*dropped; });

    ZorHost::resetAll();
    ZorHostCore::unregisterReset(hook);

    EXPECT_TRUE(QFileInfo::exists(mine.fileName()));
    EXPECT_FALSE(QFileInfo::exists(state.path()));
    EXPECT_FALSE(QFileInfo::exists(device.fileName()));
    EXPECT_EQ(*dropped, 1);
    int result = 0;
    EXPECT_FALSE(ZorHostCore::enter("OP", &result));
}

TEST_F(ZorHostControlTest, UnregisteredResetHookIsNoLongerRun)
{
    const auto kept = std::make_shared<int>(0);
    const auto removed = std::make_shared<int>(0);
    const int keptHook = ZorHostCore::registerReset("kept", [kept] { ++*kept; });
    const int removedHook = ZorHostCore::registerReset("removed", [removed] { ++*removed; });
    EXPECT_NE(keptHook, removedHook);

    ZorHostCore::unregisterReset(removedHook);
    ZorHost::resetAll();
    ZorHostCore::unregisterReset(keptHook);
    ZorHost::resetAll();

    EXPECT_EQ(*kept, 1);
    EXPECT_EQ(*removed, 0);
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
