// The kind-independent profile engine against the SQLite-backed DM tree: ids, the add transaction and its
// rollback (checked in the database itself), update, remove, default and listing, with every DM failure
// on the way injected.
#include "HostRootTest.h"

#include "profile/MSGCTR_ENG_MMS_Gpa.h"

#include "MSGCTR_DmtDataApi.h"
#include "MSGCTR_ENG_GeneralProfileApi.h"
#include "MSGCTR_ENG_MMSProfileApi.h"
#include "ZorHostControl.h"
#include "ZorHostDmControl.h"

#include "DmtTreeFactory.h"

#include <QFile>
#include <QRegularExpression>
#include <QSet>

#include <sqlite3.h>

#include <csignal>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

using PROFILE_ID_S = MSGCTR_ENG_GeneralProfileApi::PROFILE_ID_S;
using Record = MSGCTR_ENG_MMSProfileApi::MMSProfileData_S;
using Entry = MSGCTR_ENG_MMSProfileApi::MMSProfileIDAndData_S;
const char* const kProfiles = "./DevDetail/Ext/Conf/Msg/Profiles/MMS";

// Rows of the tree database itself, "path|type|value" in path order, under the MMS profiles node.
QStringList profileRows()
{
    QStringList rows;
    sqlite3* db = nullptr;
    if (sqlite3_open_v2(QFile::encodeName(ZorHostDm::databasePath()).constData(), &db, SQLITE_OPEN_READONLY, nullptr)
        != SQLITE_OK) {
        sqlite3_close(db);
        return {QStringLiteral("<cannot open>")};
    }
    sqlite3_stmt* s = nullptr;
    sqlite3_prepare_v2(db,
                       "SELECT path, type, quote(value) FROM node WHERE path > './DevDetail/Ext/Conf/Msg/Profiles/MMS/'"
                       " AND path < './DevDetail/Ext/Conf/Msg/Profiles/MMS0' ORDER BY path",
                       -1, &s, nullptr);
    while (sqlite3_step(s) == SQLITE_ROW)
        rows << QStringLiteral("%1|%2|%3").arg(QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(s, 0))),
                                                QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(s, 1))),
                                                QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(s, 2))));
    sqlite3_finalize(s);
    sqlite3_close(db);
    return rows;
}

Record sampleRecord(const QString& name = QStringLiteral("Operator"))
{
    Record r;
    r.strProfileName = name;
    r.strMMSC = QStringLiteral("http://mms.example.com");
    r.strIntProf = QStringLiteral("mms-apn");
    r.strIntProf2 = QStringLiteral("wap-apn");
    r.nMOSizeLimit = 300;
    r.bReadonly = true;
    return r;
}

QStringList rowsOf(const QString& id)
{
    const QString p = QLatin1String(kProfiles) + QLatin1Char('/') + id;
    return {p + QStringLiteral("|node|NULL"), p + QStringLiteral("/IntProf|string|'mms-apn'"),
            p + QStringLiteral("/IntProf2|string|'wap-apn'"), p + QStringLiteral("/MMSC|string|'http://mms.example.com'"),
            p + QStringLiteral("/MOSizeLimit|int|300"), p + QStringLiteral("/ProfileName|string|'Operator'"),
            p + QStringLiteral("/Readonly|bool|1")};
}

const QRegularExpression kV4(QStringLiteral(
    "^\\{[0-9a-f]{8}-[0-9a-f]{4}-4[0-9a-f]{3}-[89ab][0-9a-f]{3}-[0-9a-f]{12}\\}$"));

class MSGCTR_ENG_GeneralProfileApiTest : public HostRootTest {
protected:
    void TearDown() override
    {
        EXPECT_FALSE(DmtTreeFactory::IsInitialized()) << "every Initialize is balanced";
        while (DmtTreeFactory::IsInitialized())
            DmtTreeFactory::Uninitialize();
        HostRootTest::TearDown();
    }

    QString add(const Record& record = sampleRecord())
    {
        QString id;
        EXPECT_EQ(m_engine.addProfile(&id, &record), 0);
        return id;
    }

    MSGCTR_ENG_MMS_Gpa m_engine;
};

TEST_F(MSGCTR_ENG_GeneralProfileApiTest, PathsComeFromTheAdapter)
{
    EXPECT_EQ(m_engine.pathDefault().str(), "./DevDetail/Ext/Conf/Msg/MMS/Default");
    EXPECT_EQ(m_engine.pathProfiles().str(), "./DevDetail/Ext/Conf/Msg/Profiles/MMS");
}

TEST_F(MSGCTR_ENG_GeneralProfileApiTest, AddGivesAVersion4IdAndANodeWithEveryLeaf)
{
    const QString id = add();
    EXPECT_TRUE(kV4.match(id).hasMatch()) << id.toStdString();
    EXPECT_EQ(profileRows(), rowsOf(id));
}

TEST_F(MSGCTR_ENG_GeneralProfileApiTest, AThousandAddsGiveDistinctVersion4Ids)
{
    QSet<QString> ids;
    const Record record = sampleRecord();
    for (int i = 0; i < 1000; ++i) {
        QString id;
        ASSERT_EQ(m_engine.addProfile(&id, &record), 0);
        ASSERT_TRUE(kV4.match(id).hasMatch()) << id.toStdString();
        ids.insert(id);
    }
    EXPECT_EQ(ids.size(), 1000);
    QStringList listed;
    EXPECT_EQ(m_engine.listAllProfileIDS(&listed), 0);
    EXPECT_EQ(listed.size(), 1000);
}

TEST_F(MSGCTR_ENG_GeneralProfileApiTest, GetProfileReadsTheRecordBack)
{
    const QString id = add();
    Record read;
    EXPECT_EQ(m_engine.getProfile(&read, PROFILE_ID_S(id)), 0);
    EXPECT_EQ(read.strProfileName, QStringLiteral("Operator"));
    EXPECT_EQ(read.strMMSC, QStringLiteral("http://mms.example.com"));
    EXPECT_EQ(read.strIntProf, QStringLiteral("mms-apn"));
    EXPECT_EQ(read.strIntProf2, QStringLiteral("wap-apn"));
    EXPECT_EQ(read.nMOSizeLimit, 300);
    EXPECT_TRUE(read.bReadonly);
}

TEST_F(MSGCTR_ENG_GeneralProfileApiTest, ProfileLackingLeavesReadsAsDefaultsWithoutError)
{
    MSGCTR_ENG_GeneralProfileApi::ValuesMap map;
    map.put("ProfileName", MSGCTR_DmtDataApi::fromString(QStringLiteral("Bare")));
    map.put("MOSizeLimit", MSGCTR_DmtDataApi::fromString(QStringLiteral("not a number")));
    QString id;
    ASSERT_EQ(m_engine.addProfile(&id, map), 0);
    Record read = sampleRecord(QStringLiteral("old"));
    EXPECT_EQ(m_engine.getProfile(&read, id), 0);
    EXPECT_EQ(read.strProfileName, QStringLiteral("Bare"));
    EXPECT_EQ(read.strMMSC, QStringLiteral(""));
    EXPECT_EQ(read.strIntProf, QStringLiteral(""));
    EXPECT_EQ(read.strIntProf2, QStringLiteral(""));
    EXPECT_EQ(read.nMOSizeLimit, 0);
    EXPECT_FALSE(read.bReadonly);
}

struct AddFailureCase {
    const char* name;
    const char* operation;
    int injected;
    MSGCTR_ERRCODE expected;
    int rollbacks;
};

class MSGCTR_ENG_GeneralProfileApiAddFailureTest : public MSGCTR_ENG_GeneralProfileApiTest,
                                                   public ::testing::WithParamInterface<AddFailureCase> {};

TEST_P(MSGCTR_ENG_GeneralProfileApiAddFailureTest, FailedAddGivesANullIdAndLeavesNothingInTheDatabase)
{
    QStringList ids;
    ASSERT_EQ(m_engine.listAllProfileIDS(&ids), 0); // the database exists before the failed add
    ZorHost::resetCallCounts();
    ZorHost::injectFault(QString::fromLatin1(GetParam().operation), GetParam().injected);
    const Record record = sampleRecord();
    QString id = QStringLiteral("old");
    EXPECT_EQ(m_engine.addProfile(&id, &record), GetParam().expected);
    EXPECT_TRUE(id.isNull());
    EXPECT_EQ(ZorHost::callCount(QStringLiteral("DmtTree::Rollback")), GetParam().rollbacks);
    EXPECT_EQ(profileRows(), QStringList());
    EXPECT_EQ(ZorHost::callCount(QStringLiteral("DmtTreeFactory::Uninitialize")), 1);
}

INSTANTIATE_TEST_SUITE_P(
    Steps, MSGCTR_ENG_GeneralProfileApiAddFailureTest,
    ::testing::Values(AddFailureCase{"Initialize", "DmtTreeFactory::Initialize", 0, 10079, 0},
                      AddFailureCase{"GetSubtree", "DmtTreeFactory::GetSubtree", 1, 10064, 0},
                      AddFailureCase{"Begin", "DmtTree::Begin", 500, 10081, 0},
                      AddFailureCase{"CreateInteriorNode", "DmtTree::CreateInteriorNode", 418, 10081, 1},
                      AddFailureCase{"SetChildValuesMap", "DmtTree::SetChildValuesMap", 20, 10078, 1},
                      AddFailureCase{"Commit", "DmtTree::Commit", 1, 10064, 1}),
    [](const ::testing::TestParamInfo<AddFailureCase>& info) { return std::string(info.param.name); });

TEST_F(MSGCTR_ENG_GeneralProfileApiTest, UpdateReplacesTheLeaves)
{
    const QString id = add();
    Record changed = sampleRecord(QStringLiteral("Changed"));
    changed.nMOSizeLimit = 600;
    EXPECT_EQ(m_engine.updateProfile(PROFILE_ID_S(id), &changed), 0);
    Record read;
    EXPECT_EQ(m_engine.getProfile(&read, id), 0);
    EXPECT_EQ(read.strProfileName, QStringLiteral("Changed"));
    EXPECT_EQ(read.nMOSizeLimit, 600);
}

TEST_F(MSGCTR_ENG_GeneralProfileApiTest, UpdateOfAMissingProfileFailsAndCreatesNothing)
{
    const Record record = sampleRecord();
    EXPECT_EQ(m_engine.updateProfile(QStringLiteral("{missing}"), &record), 10081);
    EXPECT_EQ(profileRows(), QStringList());
}

TEST_F(MSGCTR_ENG_GeneralProfileApiTest, UpdateAndRemoveFailuresAreMapped)
{
    const QString id = add();
    const Record record = sampleRecord(QStringLiteral("Changed"));
    ZorHost::injectFault(QStringLiteral("DmtTree::Flush"), 22);
    EXPECT_EQ(m_engine.updateProfile(id, &record), 10076);
    ZorHost::injectFault(QStringLiteral("DmtTree::DeleteNode"), 20);
    EXPECT_EQ(m_engine.removeProfile(id), 10078);
    EXPECT_EQ(profileRows().size(), 7);
}

TEST_F(MSGCTR_ENG_GeneralProfileApiTest, RemovingTheDefaultLeavesTheDefaultNamingAMissingProfile)
{
    const QString id = add();
    ASSERT_EQ(m_engine.setDefaultProfileID(id), 0);
    EXPECT_EQ(m_engine.removeProfile(PROFILE_ID_S(id)), 0);
    EXPECT_EQ(profileRows(), QStringList());
    QString stored;
    EXPECT_EQ(m_engine.getDefaultProfileID(&stored), 0);
    EXPECT_EQ(stored, id);
    bool exists = true;
    EXPECT_NE(m_engine.getFlagOfProfExists(&exists, PROFILE_ID_S(stored)), 0);
    EXPECT_FALSE(exists);
}

TEST_F(MSGCTR_ENG_GeneralProfileApiTest, ExistsFlagOfAMissingIdIsFalseWithACode)
{
    bool exists = true;
    EXPECT_EQ(m_engine.getFlagOfProfExists(&exists, PROFILE_ID_S(QStringLiteral("{nope}"))), 10081);
    EXPECT_FALSE(exists);
    const QString id = add();
    EXPECT_EQ(m_engine.getFlagOfProfExists(&exists, PROFILE_ID_S(id)), 0);
    EXPECT_TRUE(exists);
}

TEST_F(MSGCTR_ENG_GeneralProfileApiTest, IdsThatAreNotOneNodeNameAreRefusedWithAReport)
{
    const QString id = add();
    Record read;
    EXPECT_EQ(m_engine.getProfile(&read, QString()), 10084);
    EXPECT_EQ(m_engine.removeProfile(QStringLiteral("")), 10084);
    EXPECT_EQ(m_engine.removeProfile(id + QStringLiteral("/Readonly")), 10084);
    EXPECT_EQ(profileRows().size(), 7);
    const QStringList lines = takeReportLines();
    ASSERT_EQ(lines.size(), 3);
    EXPECT_TRUE(lines[0].contains(QStringLiteral("assert fail at \"isProfileNodeName(id)\"; id = ")));
    EXPECT_TRUE(lines[2].contains(QStringLiteral("/Readonly")));
}

TEST_F(MSGCTR_ENG_GeneralProfileApiTest, DefaultIsWrittenAsGivenAndReadBack)
{
    QString id = QStringLiteral("old");
    EXPECT_EQ(m_engine.getDefaultProfileID(&id), 0);
    EXPECT_EQ(id, QStringLiteral(""));
    EXPECT_EQ(m_engine.setDefaultProfileID(PROFILE_ID_S(QStringLiteral("{not-a-profile}"))), 0);
    PROFILE_ID_S read;
    EXPECT_EQ(m_engine.getDefaultProfileID(&read), 0);
    EXPECT_EQ(read.string(), QStringLiteral("{not-a-profile}"));
}

TEST_F(MSGCTR_ENG_GeneralProfileApiTest, UnreadableDefaultLeavesTheOutputUntouched)
{
    QString id = QStringLiteral("old");
    ZorHost::injectFault(QStringLiteral("DmtTree::GetNode"), 1);
    EXPECT_EQ(m_engine.getDefaultProfileID(&id), 10064);
    EXPECT_EQ(id, QStringLiteral("old"));
    ZorHost::injectFault(QStringLiteral("DmtNode::GetValue"), 23);
    EXPECT_EQ(m_engine.getDefaultProfileID(&id), 10065);
    EXPECT_EQ(id, QStringLiteral("old"));
}

TEST_F(MSGCTR_ENG_GeneralProfileApiTest, DefaultOfAnotherTypeReadsAsEmpty)
{
    {
        ASSERT_TRUE(DmtTreeFactory::Initialize());
        PDmtTree tree;
        PDmtNode node;
        ASSERT_EQ(DmtTreeFactory::GetSubtree(DmtPrincipal("localhost"), "./DevDetail/Ext/Conf/Msg/MMS", tree), 0);
        ASSERT_EQ(tree->GetNode("Default", node), 0);
        ASSERT_EQ(node->SetValue(DmtData(7)), 0);
    }
    ASSERT_TRUE(DmtTreeFactory::Uninitialize());
    QString id = QStringLiteral("old");
    EXPECT_EQ(m_engine.getDefaultProfileID(&id), 10065);
    EXPECT_EQ(id, QStringLiteral(""));
}

TEST_F(MSGCTR_ENG_GeneralProfileApiTest, SetDefaultFailuresAreMapped)
{
    ZorHost::injectFault(QStringLiteral("DmtNode::SetValue"), 22);
    EXPECT_EQ(m_engine.setDefaultProfileID(QStringLiteral("x")), 10076);
    ZorHost::injectFault(QStringLiteral("DmtTree::Flush"), 1);
    EXPECT_EQ(m_engine.setDefaultProfileID(QStringLiteral("y")), 10064);
}

TEST_F(MSGCTR_ENG_GeneralProfileApiTest, ListsIdsInCreationOrder)
{
    const QString first = add();
    const QString second = add();
    QStringList ids;
    EXPECT_EQ(m_engine.listAllProfileIDS(&ids), 0);
    EXPECT_EQ(ids, (QStringList{first, second}));
    std::vector<PROFILE_ID_S> vector{PROFILE_ID_S(QStringLiteral("stale"))};
    EXPECT_EQ(m_engine.listAllProfileIDS(&vector), 0);
    ASSERT_EQ(vector.size(), 2u);
    EXPECT_EQ(vector[0].string(), first);
    EXPECT_EQ(vector[1].string(), second);
}

TEST_F(MSGCTR_ENG_GeneralProfileApiTest, FailedIdListingIsEmpty)
{
    add();
    ZorHost::injectFault(QStringLiteral("DmtTree::GetChildNodeNames"), 1, 2);
    QStringList ids{QStringLiteral("stale")};
    EXPECT_EQ(m_engine.listAllProfileIDS(&ids), 10064);
    EXPECT_TRUE(ids.isEmpty());
    std::vector<PROFILE_ID_S> vector{PROFILE_ID_S(QStringLiteral("stale"))};
    EXPECT_EQ(m_engine.listAllProfileIDS(&vector), 10064);
    EXPECT_TRUE(vector.empty());
}

TEST_F(MSGCTR_ENG_GeneralProfileApiTest, ListingWhoseProfilesNodeCannotBeOpenedIsEmpty)
{
    add();
    std::vector<Entry> list(1);
    ZorHost::injectFault(QStringLiteral("DmtTreeFactory::GetSubtree"), 23);
    EXPECT_EQ(m_engine.listAllProfileS(&list), 10065);
    EXPECT_TRUE(list.empty());
}

TEST_F(MSGCTR_ENG_GeneralProfileApiTest, ListingStopsAtTheFirstProfileThatCannotBeRead)
{
    const QString first = add();
    {
        ASSERT_TRUE(DmtTreeFactory::Initialize());
        PDmtTree tree;
        PDmtNode node;
        ASSERT_EQ(DmtTreeFactory::GetSubtree(DmtPrincipal("localhost"), kProfiles, tree), 0);
        ASSERT_EQ(tree->CreateLeafNode("stray-leaf", node, DmtData(1)), 0);
    }
    ASSERT_TRUE(DmtTreeFactory::Uninitialize());
    add();
    std::vector<Entry> list;
    EXPECT_EQ(m_engine.listAllProfileS(&list), 10081); // 405: the values of a leaf
    ASSERT_EQ(list.size(), 1u);
    EXPECT_EQ(list[0].profID.string(), first);
    EXPECT_EQ(list[0].profData.strProfileName, QStringLiteral("Operator"));
}

TEST_F(MSGCTR_ENG_GeneralProfileApiTest, ProfileAddedByOneProcessIsListedByAnother)
{
    const pid_t pid = fork();
    ASSERT_NE(pid, -1);
    if (pid == 0) {
        MSGCTR_ENG_MMS_Gpa engine;
        const Record record = sampleRecord();
        QString id;
        _exit(engine.addProfile(&id, &record) == 0 && !id.isEmpty() ? 0 : 1);
    }
    int status = 0;
    ASSERT_EQ(waitpid(pid, &status, 0), pid);
    ASSERT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
    std::vector<Entry> list;
    EXPECT_EQ(m_engine.listAllProfileS(&list), 0);
    ASSERT_EQ(list.size(), 1u);
    EXPECT_TRUE(kV4.match(list[0].profID.string()).hasMatch());
    EXPECT_EQ(list[0].profData.strMMSC, QStringLiteral("http://mms.example.com"));
}

TEST_F(MSGCTR_ENG_GeneralProfileApiTest, WriterKilledMidAddLeavesEachProfileWholeOrAbsent)
{
    for (int round = 0; round < 5; ++round) {
        int ready[2];
        ASSERT_EQ(pipe(ready), 0);
        const pid_t pid = fork();
        ASSERT_NE(pid, -1);
        if (pid == 0) {
            MSGCTR_ENG_MMS_Gpa engine;
            const Record record = sampleRecord();
            for (bool told = false;;) {
                QString id;
                if (engine.addProfile(&id, &record) == 0 && !told)
                    told = write(ready[1], "+", 1) == 1;
            }
        }
        close(ready[1]);
        char byte = 0;
        ASSERT_EQ(read(ready[0], &byte, 1), 1); // killed only once it has added a profile
        close(ready[0]);
        usleep(useconds_t(3000 + 4000 * round));
        ASSERT_EQ(kill(pid, SIGKILL), 0);
        int status = 0;
        ASSERT_EQ(waitpid(pid, &status, 0), pid);
        EXPECT_TRUE(WIFSIGNALED(status));
    }
    std::vector<Entry> list;
    ASSERT_EQ(m_engine.listAllProfileS(&list), 0);
    EXPECT_FALSE(list.empty());
    const QStringList rows = profileRows();
    EXPECT_EQ(rows.size(), int(list.size()) * 7);
    for (const Entry& entry : list)
        for (const QString& row : rowsOf(entry.profID.string()))
            EXPECT_TRUE(rows.contains(row)) << row.toStdString();
}

TEST(MSGCTR_ENG_GeneralProfileApiIdTest, NullAndEmptyIdsAreNullAndEqual)
{
    PROFILE_ID_S null;
    const PROFILE_ID_S empty{QStringLiteral("")};
    EXPECT_TRUE(null.isNull());
    EXPECT_TRUE(null.string().isNull());
    EXPECT_TRUE(empty.isNull());
    EXPECT_TRUE(null == empty);
    EXPECT_TRUE(PROFILE_ID_S(QStringLiteral("{a}")) == PROFILE_ID_S(DMString("{a}")));
    EXPECT_FALSE(PROFILE_ID_S(QStringLiteral("{a}")) == PROFILE_ID_S(QStringLiteral("{A}")));
    EXPECT_FALSE(PROFILE_ID_S(QStringLiteral("{a}")) == null);
    PROFILE_ID_S id(QStringLiteral("{a}"));
    id.nullify();
    EXPECT_TRUE(id.string().isNull());
    EXPECT_EQ(PROFILE_ID_S(DMString("\xc3\xa9")).string(), QStringLiteral("\u00e9"));
}

} // namespace
