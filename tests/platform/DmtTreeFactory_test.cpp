// The DM tree's entry: the Initialize/Uninitialize count, subtrees by path and lock type, the provisioned
// message nodes, factory reset, a damaged database and fault injection.
#include "HostRootTest.h"

#include "DmtNode.h"
#include "DmtResult.h"
#include "DmtTreeFactory.h"
#include "ZorHostControl.h"
#include "ZorHostDmControl.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include <sqlite3.h>

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <string>

namespace {

const DmtPrincipal kLocal("localhost");

class DmtTreeFactoryTest : public HostRootTest {
protected:
    void SetUp() override
    {
        HostRootTest::SetUp();
        ASSERT_TRUE(DmtTreeFactory::Initialize());
    }
    void TearDown() override
    {
        while (DmtTreeFactory::IsInitialized())
            DmtTreeFactory::Uninitialize();
        HostRootTest::TearDown();
    }

    std::string stringAt(const char* path)
    {
        PDmtTree tree;
        if (DmtTreeFactory::GetSubtree(kLocal, path, tree) != 0)
            return "<no tree>";
        PDmtNode node;
        DmtData value;
        DMString text;
        if (tree->GetNode("", node) != 0 || node->GetValue(value) != 0 || value.GetString(text) != 0)
            return "<no string>";
        return text.str();
    }

    QStringList damagedFiles() const
    {
        return QDir(QFileInfo(ZorHostDm::databasePath()).absolutePath())
            .entryList(QStringList{QStringLiteral("dmtree.sqlite.damaged-*")}, QDir::Files)
            .filter(QRegularExpression(QStringLiteral("-[0-9TZ]+$")));
    }
};

TEST_F(DmtTreeFactoryTest, UninitializeBalancesEachInitializeAndFailsBelowOne)
{
    EXPECT_TRUE(DmtTreeFactory::Initialize());
    EXPECT_TRUE(DmtTreeFactory::Uninitialize());
    EXPECT_TRUE(DmtTreeFactory::IsInitialized());
    EXPECT_TRUE(DmtTreeFactory::Uninitialize());
    EXPECT_FALSE(DmtTreeFactory::IsInitialized());
    EXPECT_FALSE(DmtTreeFactory::Uninitialize());
}

TEST_F(DmtTreeFactoryTest, EveryCallFailsWithOneWhileNotInitialised)
{
    PDmtTree tree;
    ASSERT_EQ(DmtTreeFactory::GetSubtree(kLocal, "./DevDetail", tree), 0);
    PDmtNode node;
    ASSERT_TRUE(DmtTreeFactory::Uninitialize());
    PDmtTree other;
    EXPECT_EQ(DmtTreeFactory::GetSubtree(kLocal, "./DevDetail", other), 1);
    EXPECT_EQ(DmtTreeFactory::GetSubtreeEx(kLocal, "./DevDetail", DMT_LOCK_SHARED, other), 1);
    EXPECT_EQ(other, nullptr);
    EXPECT_EQ(tree->GetNode("Ext", node), 1);
    DMStringVector names;
    EXPECT_EQ(tree->GetChildNodeNames("", names), 1);
    EXPECT_EQ(tree->Begin(), 1);
}

TEST_F(DmtTreeFactoryTest, NewTreeHoldsTheFourMessagePaths)
{
    EXPECT_EQ(stringAt("./DevDetail/Ext/Conf/Msg/SMS/Default"), "");
    EXPECT_EQ(stringAt("./DevDetail/Ext/Conf/Msg/MMS/Default"), "");
    for (const char* path : {"./DevDetail/Ext/Conf/Msg/Profiles/SMS", "./DevDetail/Ext/Conf/Msg/Profiles/MMS"}) {
        PDmtTree tree;
        ASSERT_EQ(DmtTreeFactory::GetSubtree(kLocal, path, tree), 0) << path;
        DMStringVector names;
        EXPECT_EQ(tree->GetChildNodeNames("", names), 0);
        EXPECT_TRUE(names.empty()) << path;
    }
    PDmtTree msg;
    ASSERT_EQ(DmtTreeFactory::GetSubtree(kLocal, "./DevDetail/Ext/Conf/Msg", msg), 0);
    DMStringVector names;
    ASSERT_EQ(msg->GetChildNodeNames("", names), 0);
    ASSERT_EQ(names.size(), 3u);
    EXPECT_EQ(names[0].str(), "SMS");
    EXPECT_EQ(names[1].str(), "Profiles");
    EXPECT_EQ(names[2].str(), "MMS");
}

TEST_F(DmtTreeFactoryTest, InteriorParentsOpenAsSubtrees)
{
    for (const char* path : {".", "./DevDetail", "./DevDetail/Ext/Conf/Msg/MMS", "./DevDetail/Ext/Conf/Msg/MMS/"}) {
        PDmtTree tree;
        EXPECT_EQ(DmtTreeFactory::GetSubtree(kLocal, path, tree), 0) << path;
        EXPECT_NE(tree, nullptr) << path;
    }
}

TEST_F(DmtTreeFactoryTest, MissingSubtreeRootIsNotFound)
{
    PDmtTree tree;
    EXPECT_EQ(DmtTreeFactory::GetSubtree(kLocal, "./DevDetail/Nope", tree), 404);
    EXPECT_EQ(tree, nullptr);
}

TEST_F(DmtTreeFactoryTest, MalformedSubtreePathOrLockIsInvalid)
{
    PDmtTree tree;
    EXPECT_EQ(DmtTreeFactory::GetSubtree(kLocal, "DevDetail", tree), 23);
    EXPECT_EQ(DmtTreeFactory::GetSubtree(kLocal, ".//DevDetail", tree), 23);
    EXPECT_EQ(DmtTreeFactory::GetSubtreeEx(kLocal, "./DevDetail", 3, tree), 23);
    EXPECT_EQ(tree, nullptr);
}

TEST_F(DmtTreeFactoryTest, SharedLockRefusesWritesWith22)
{
    PDmtTree tree;
    ASSERT_EQ(DmtTreeFactory::GetSubtreeEx(kLocal, "./DevDetail/Ext/Conf/Msg/Profiles/MMS", DMT_LOCK_SHARED, tree), 0);
    PDmtNode node;
    EXPECT_EQ(tree->CreateInteriorNode("P", node), 22);
    EXPECT_EQ(tree->CreateLeafNode("L", node, DmtData(1)), 22);
    EXPECT_EQ(tree->SetChildValuesMap("", DMMap<DMString, DmtData>()), 22);
    PDmtTree msg;
    ASSERT_EQ(DmtTreeFactory::GetSubtreeEx(kLocal, "./DevDetail/Ext/Conf/Msg/MMS", DMT_LOCK_SHARED, msg), 0);
    ASSERT_EQ(msg->GetNode("Default", node), 0);
    EXPECT_EQ(node->SetValue(DmtData("x")), 22);
    EXPECT_EQ(msg->DeleteNode("Default"), 22);
    DmtData value;
    EXPECT_EQ(node->GetValue(value), 0);
}

TEST_F(DmtTreeFactoryTest, ExclusiveLockWrites)
{
    PDmtTree tree;
    ASSERT_EQ(DmtTreeFactory::GetSubtreeEx(kLocal, "./DevDetail/Ext/Conf/Msg/MMS", DMT_LOCK_EXCLUSIVE, tree), 0);
    PDmtNode node;
    ASSERT_EQ(tree->GetNode("Default", node), 0);
    EXPECT_EQ(node->SetValue(DmtData("id-1")), 0);
    EXPECT_EQ(tree->Flush(), 0);
    EXPECT_EQ(stringAt("./DevDetail/Ext/Conf/Msg/MMS/Default"), "id-1");
}

TEST_F(DmtTreeFactoryTest, FactoryResetRestoresTheProvisionedPaths)
{
    {
        PDmtTree tree;
        ASSERT_EQ(DmtTreeFactory::GetSubtree(kLocal, "./DevDetail/Ext/Conf/Msg", tree), 0);
        PDmtNode node;
        ASSERT_EQ(tree->GetNode("MMS/Default", node), 0);
        ASSERT_EQ(node->SetValue(DmtData("stale")), 0);
        ASSERT_EQ(tree->DeleteNode("Profiles/SMS"), 0);
    }
    ZorHost::resetAll();
    EXPECT_EQ(stringAt("./DevDetail/Ext/Conf/Msg/MMS/Default"), "");
    PDmtTree tree;
    EXPECT_EQ(DmtTreeFactory::GetSubtree(kLocal, "./DevDetail/Ext/Conf/Msg/Profiles/SMS", tree), 0);
}

TEST_F(DmtTreeFactoryTest, DatabaseIsWalModeWithTheDocumentedSchema)
{
    EXPECT_EQ(stringAt("./DevDetail/Ext/Conf/Msg/SMS/Default"), "");
    QFile file(ZorHostDm::databasePath());
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray header = file.read(100);
    EXPECT_TRUE(header.startsWith("SQLite format 3"));
    // Bytes 18 and 19 are the write and read format versions: 2 in WAL mode.
    EXPECT_EQ(int(header[18]), 2);
    EXPECT_EQ(int(header[19]), 2);
}

struct DamageCase {
    const char* name;
    QByteArray content;
    int keepBytes; // -1: write `content`; otherwise truncate the real database to this size
};

class DmtTreeFactoryDamageTest : public DmtTreeFactoryTest, public ::testing::WithParamInterface<DamageCase> {};

TEST_P(DmtTreeFactoryDamageTest, DamagedDatabaseFailsOnceIsKeptAsideAndReplaced)
{
    const QString path = ZorHostDm::databasePath();
    // Another process made the database; this one holds no connection to it when it is damaged.
    const pid_t pid = fork();
    ASSERT_NE(pid, -1);
    if (pid == 0)
        _exit(stringAt("./DevDetail/Ext/Conf/Msg/SMS/Default").empty() ? 0 : 1);
    int status = 0;
    ASSERT_EQ(waitpid(pid, &status, 0), pid);
    ASSERT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
    // Everything into the main file, so that cutting it cuts the tree.
    sqlite3* db = nullptr;
    ASSERT_EQ(sqlite3_open(QFile::encodeName(path).constData(), &db), SQLITE_OK);
    EXPECT_EQ(sqlite3_exec(db, "PRAGMA wal_checkpoint(TRUNCATE)", nullptr, nullptr, nullptr), SQLITE_OK);
    sqlite3_close(db);
    QFile::remove(path + QStringLiteral("-wal"));
    QFile::remove(path + QStringLiteral("-shm"));
    QByteArray damaged;
    {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        if (GetParam().keepBytes >= 0) {
            damaged = file.read(GetParam().keepBytes);
            ASSERT_TRUE(file.resize(GetParam().keepBytes));
        } else {
            damaged = GetParam().content;
            ASSERT_TRUE(file.resize(0));
            ASSERT_EQ(file.write(damaged), damaged.size());
        }
    }
    std::fflush(stderr);
    testing::internal::CaptureStderr();
    PDmtTree tree;
    const int first = DmtTreeFactory::GetSubtree(kLocal, "./DevDetail/Ext/Conf/Msg/Profiles/MMS", tree);
    const std::string diagnostic = testing::internal::GetCapturedStderr();
    EXPECT_EQ(first, 1);
    EXPECT_EQ(tree, nullptr);
    const QStringList aside = damagedFiles();
    ASSERT_EQ(aside.size(), 1);
    const QString asidePath = QFileInfo(path).absolutePath() + QLatin1Char('/') + aside.first();
    EXPECT_EQ(diagnostic.rfind("zordm: damaged DM tree database " + path.toStdString() + " (", 0), 0u) << diagnostic;
    EXPECT_NE(diagnostic.find("); kept as " + asidePath.toStdString() + ", a fresh tree replaces it\n"), std::string::npos)
        << diagnostic;
    EXPECT_EQ(std::count(diagnostic.begin(), diagnostic.end(), '\n'), 1);
    QFile kept(asidePath);
    ASSERT_TRUE(kept.open(QIODevice::ReadOnly));
    EXPECT_EQ(kept.readAll(), damaged);
    EXPECT_EQ(stringAt("./DevDetail/Ext/Conf/Msg/MMS/Default"), "");
}

INSTANTIATE_TEST_SUITE_P(
    Files, DmtTreeFactoryDamageTest,
    ::testing::Values(DamageCase{"Garbage", QByteArray(8192, 'x'), -1},
                      DamageCase{"TruncatedHeader", QByteArray(), 50},
                      DamageCase{"TruncatedPages", QByteArray(), 4096 + 100}),
    [](const ::testing::TestParamInfo<DamageCase>& info) { return std::string(info.param.name); });

TEST_F(DmtTreeFactoryTest, UnreadableDatabasePathFailsWithOneDiagnostic)
{
    const QString path = ZorHostDm::databasePath();
    ASSERT_TRUE(QDir().mkpath(path + QStringLiteral("/inside")));
    std::fflush(stderr);
    testing::internal::CaptureStderr();
    PDmtTree tree;
    EXPECT_EQ(DmtTreeFactory::GetSubtree(kLocal, "./DevDetail", tree), 1);
    const std::string diagnostic = testing::internal::GetCapturedStderr();
    EXPECT_EQ(std::count(diagnostic.begin(), diagnostic.end(), '\n'), 1) << diagnostic;
    EXPECT_NE(diagnostic.find("zordm: "), std::string::npos);
    EXPECT_EQ(damagedFiles().size() + QDir(QFileInfo(path).absolutePath())
                  .entryList(QStringList{QStringLiteral("dmtree.sqlite.damaged-*")}, QDir::Dirs).size(), 1);
}

TEST_F(DmtTreeFactoryTest, InjectedFaultsAnswerFromTheFactory)
{
    ZorHost::injectFault(QStringLiteral("DmtTreeFactory::Initialize"), 0);
    EXPECT_FALSE(DmtTreeFactory::Initialize());
    EXPECT_TRUE(DmtTreeFactory::Initialize());
    ZorHost::injectFault(QStringLiteral("DmtTreeFactory::Uninitialize"), 0);
    EXPECT_FALSE(DmtTreeFactory::Uninitialize());
    EXPECT_TRUE(DmtTreeFactory::Uninitialize());
    EXPECT_TRUE(DmtTreeFactory::IsInitialized());
    PDmtTree tree;
    ZorHost::injectFault(QStringLiteral("DmtTreeFactory::GetSubtree"), 406);
    EXPECT_EQ(DmtTreeFactory::GetSubtree(kLocal, "./DevDetail", tree), 406);
    EXPECT_EQ(tree, nullptr);
    ZorHost::injectFault(QStringLiteral("DmtTreeFactory::GetSubtreeEx"), 20);
    EXPECT_EQ(DmtTreeFactory::GetSubtreeEx(kLocal, "./DevDetail", DMT_LOCK_SHARED, tree), 20);
    EXPECT_EQ(tree, nullptr);
    EXPECT_EQ(ZorHost::callCount(QStringLiteral("DmtTreeFactory::Initialize")), 3);
    EXPECT_EQ(ZorHost::callCount(QStringLiteral("DmtTreeFactory::Uninitialize")), 2);
    EXPECT_EQ(ZorHost::callCount(QStringLiteral("DmtTreeFactory::GetSubtree")), 1);
    EXPECT_EQ(ZorHost::callCount(QStringLiteral("DmtTreeFactory::GetSubtreeEx")), 1);
}

} // namespace
