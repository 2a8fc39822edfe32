// The MMS profile interface: sorted listing, single profiles, and the repair of the default.
#include "HostRootTest.h"

#include "MSGCTR_ENG_MMSProfileApi.h"
#include "ZorHostControl.h"

#include "DmtTreeFactory.h"

#include <vector>

namespace {

using Api = MSGCTR_ENG_MMSProfileApi;
using PROFILE_ID_S = Api::PROFILE_ID_S;
using Record = Api::MMSProfileData_S;
using Entry = Api::MMSProfileIDAndData_S;

Record named(const QString& name)
{
    Record r;
    r.strProfileName = name;
    r.strMMSC = QStringLiteral("http://mmsc/") + name;
    return r;
}

class MSGCTR_ENG_MMSProfileApiTest : public HostRootTest {
protected:
    void TearDown() override
    {
        EXPECT_FALSE(DmtTreeFactory::IsInitialized()) << "every Initialize is balanced";
        HostRootTest::TearDown();
    }

    static PROFILE_ID_S add(const QString& name)
    {
        PROFILE_ID_S id;
        EXPECT_EQ(Api::addProfile(&id, named(name)), 0);
        return id;
    }

    static QStringList names(const std::vector<Entry>& list)
    {
        QStringList out;
        for (const Entry& e : list)
            out << e.profData.strProfileName;
        return out;
    }

    static QString storedDefault()
    {
        PROFILE_ID_S id;
        return Api::getDefaultProfileID(&id) == 0 ? id.string() : QStringLiteral("<failed>");
    }
};

TEST_F(MSGCTR_ENG_MMSProfileApiTest, FreshRecordIsEmpty)
{
    const Record r;
    EXPECT_TRUE(r.strProfileName.isEmpty());
    EXPECT_TRUE(r.strMMSC.isEmpty());
    EXPECT_TRUE(r.strIntProf.isEmpty());
    EXPECT_TRUE(r.strIntProf2.isEmpty());
    EXPECT_EQ(r.nMOSizeLimit, 0);
    EXPECT_FALSE(r.bReadonly);
    const Entry e;
    EXPECT_TRUE(e.profID.isNull());
}

TEST_F(MSGCTR_ENG_MMSProfileApiTest, ListIsSortedByNameCaseSensitively)
{
    add(QStringLiteral("b"));
    add(QStringLiteral("A"));
    add(QStringLiteral("a"));
    std::vector<Entry> list;
    EXPECT_EQ(Api::listAllProfileS(&list), 0);
    EXPECT_EQ(names(list), (QStringList{QStringLiteral("A"), QStringLiteral("a"), QStringLiteral("b")}));
}

TEST_F(MSGCTR_ENG_MMSProfileApiTest, EqualNamesKeepTheTreeOrder)
{
    const PROFILE_ID_S first = add(QStringLiteral("same"));
    const PROFILE_ID_S second = add(QStringLiteral("same"));
    std::vector<Entry> list;
    EXPECT_EQ(Api::listAllProfileS(&list), 0);
    ASSERT_EQ(list.size(), 2u);
    EXPECT_EQ(list[0].profID, first);
    EXPECT_EQ(list[1].profID, second);
}

TEST_F(MSGCTR_ENG_MMSProfileApiTest, ReadOnlyProfilesAreUpdatedAndRemovedLikeOthers)
{
    Record r = named(QStringLiteral("Locked"));
    r.bReadonly = true;
    r.strIntProf = QStringLiteral("apn");
    r.strIntProf2 = QStringLiteral("apn2");
    r.nMOSizeLimit = 1024;
    PROFILE_ID_S id;
    ASSERT_EQ(Api::addProfile(&id, r), 0);
    Record read;
    ASSERT_EQ(Api::getProfile(&read, id), 0);
    EXPECT_EQ(read.strProfileName, QStringLiteral("Locked"));
    EXPECT_EQ(read.strMMSC, QStringLiteral("http://mmsc/Locked"));
    EXPECT_EQ(read.strIntProf, QStringLiteral("apn"));
    EXPECT_EQ(read.strIntProf2, QStringLiteral("apn2"));
    EXPECT_EQ(read.nMOSizeLimit, 1024);
    EXPECT_TRUE(read.bReadonly);
    r.strProfileName = QStringLiteral("Changed");
    EXPECT_EQ(Api::updateProfile(id, r), 0);
    ASSERT_EQ(Api::getProfile(&read, id), 0);
    EXPECT_EQ(read.strProfileName, QStringLiteral("Changed"));
    EXPECT_EQ(Api::removeProfile(id), 0);
    EXPECT_EQ(Api::getProfile(&read, id), 10081);
}

TEST_F(MSGCTR_ENG_MMSProfileApiTest, SafeDefaultKeepsADefaultThatNamesAProfile)
{
    add(QStringLiteral("a"));
    const PROFILE_ID_S b = add(QStringLiteral("b"));
    ASSERT_EQ(Api::setDefaultProfileID(b), 0);
    PROFILE_ID_S id;
    EXPECT_EQ(Api::getDefaultProfileIDSafe(&id), 0);
    EXPECT_EQ(id, b);
    EXPECT_EQ(storedDefault(), b.string());
}

TEST_F(MSGCTR_ENG_MMSProfileApiTest, SafeDefaultReplacesARemovedDefaultByTheFirstName)
{
    const PROFILE_ID_S gone = add(QStringLiteral("Zed"));
    add(QStringLiteral("m"));
    const PROFILE_ID_S first = add(QStringLiteral("B"));
    ASSERT_EQ(Api::setDefaultProfileID(gone), 0);
    ASSERT_EQ(Api::removeProfile(gone), 0);
    PROFILE_ID_S id;
    EXPECT_EQ(Api::getDefaultProfileIDSafe(&id), 0);
    EXPECT_EQ(id, first);
    EXPECT_EQ(storedDefault(), first.string());
}

TEST_F(MSGCTR_ENG_MMSProfileApiTest, SafeDefaultReplacesAnEmptyDefaultByTheFirstName)
{
    add(QStringLiteral("b"));
    const PROFILE_ID_S first = add(QStringLiteral("a"));
    PROFILE_ID_S id;
    EXPECT_EQ(Api::getDefaultProfileIDSafe(&id), 0);
    EXPECT_EQ(id, first);
}

TEST_F(MSGCTR_ENG_MMSProfileApiTest, SafeDefaultWithNoProfilesClearsAStaleDefault)
{
    ASSERT_EQ(Api::setDefaultProfileID(PROFILE_ID_S(QStringLiteral("{stale}"))), 0);
    PROFILE_ID_S id(QStringLiteral("x"));
    EXPECT_EQ(Api::getDefaultProfileIDSafe(&id), 0);
    EXPECT_TRUE(id.isNull());
    EXPECT_EQ(storedDefault(), QStringLiteral(""));
}

TEST_F(MSGCTR_ENG_MMSProfileApiTest, SafeDefaultWithNoProfilesAndNoDefaultWritesNothing)
{
    PROFILE_ID_S id;
    ZorHost::resetCallCounts();
    EXPECT_EQ(Api::getDefaultProfileIDSafe(&id), 0);
    EXPECT_TRUE(id.isNull());
    EXPECT_EQ(ZorHost::callCount(QStringLiteral("DmtNode::SetValue")), 0);
}

TEST_F(MSGCTR_ENG_MMSProfileApiTest, FailedListingClearsAStoredDefaultAndStillSucceeds)
{
    const PROFILE_ID_S a = add(QStringLiteral("a"));
    ASSERT_EQ(Api::setDefaultProfileID(a), 0);
    ZorHost::injectFault(QStringLiteral("DmtTree::GetChildNodeNames"), 1);
    PROFILE_ID_S id;
    EXPECT_EQ(Api::getDefaultProfileIDSafe(&id), 0);
    EXPECT_TRUE(id.isNull());
    EXPECT_EQ(storedDefault(), QStringLiteral(""));
}

TEST_F(MSGCTR_ENG_MMSProfileApiTest, UnreadableDefaultGivesTheMappedErrorAndChangesNothing)
{
    const PROFILE_ID_S a = add(QStringLiteral("a"));
    ASSERT_EQ(Api::setDefaultProfileID(PROFILE_ID_S(QStringLiteral("{stale}"))), 0);
    ZorHost::resetCallCounts();
    ZorHost::injectFault(QStringLiteral("DmtNode::GetValue"), 22);
    PROFILE_ID_S id(QStringLiteral("untouched"));
    EXPECT_EQ(Api::getDefaultProfileIDSafe(&id), 10076);
    EXPECT_EQ(id.string(), QStringLiteral("untouched"));
    EXPECT_EQ(ZorHost::callCount(QStringLiteral("DmtNode::SetValue")), 0);
    EXPECT_EQ(storedDefault(), QStringLiteral("{stale}"));
}

TEST_F(MSGCTR_ENG_MMSProfileApiTest, FailedRepairWriteIsReturned)
{
    add(QStringLiteral("a"));
    ZorHost::injectFault(QStringLiteral("DmtNode::SetValue"), 20);
    PROFILE_ID_S id;
    EXPECT_EQ(Api::getDefaultProfileIDSafe(&id), 10078);
    EXPECT_EQ(storedDefault(), QStringLiteral(""));
}

TEST_F(MSGCTR_ENG_MMSProfileApiTest, FailedClearingWriteIsReturned)
{
    ASSERT_EQ(Api::setDefaultProfileID(PROFILE_ID_S(QStringLiteral("{stale}"))), 0);
    ZorHost::injectFault(QStringLiteral("DmtTree::Flush"), 1);
    PROFILE_ID_S id;
    EXPECT_EQ(Api::getDefaultProfileIDSafe(&id), 10064);
}

TEST_F(MSGCTR_ENG_MMSProfileApiTest, ListingFailedPartWayIsStillSorted)
{
    add(QStringLiteral("z"));
    add(QStringLiteral("y"));
    {
        ASSERT_TRUE(DmtTreeFactory::Initialize());
        PDmtTree tree;
        PDmtNode node;
        ASSERT_EQ(DmtTreeFactory::GetSubtree(DmtPrincipal("localhost"), "./DevDetail/Ext/Conf/Msg/Profiles/MMS", tree), 0);
        ASSERT_EQ(tree->CreateLeafNode("stray-leaf", node, DmtData(1)), 0);
    }
    ASSERT_TRUE(DmtTreeFactory::Uninitialize());
    add(QStringLiteral("a"));
    std::vector<Entry> list;
    EXPECT_EQ(Api::listAllProfileS(&list), 10081);
    EXPECT_EQ(names(list), (QStringList{QStringLiteral("y"), QStringLiteral("z")}));
}

} // namespace
