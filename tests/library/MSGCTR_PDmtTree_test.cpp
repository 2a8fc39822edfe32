// The subtree wrapper: each operation forwards and maps its result; node checks are plain booleans.
#include "HostRootTest.h"

#include "MSGCTR_DmtDataApi.h"
#include "MSGCTR_DmtPrincipal.h"
#include "MSGCTR_DmtTreeFactorySingleton.h"
#include "MSGCTR_PDmtTree.h"
#include "ZorHostControl.h"

namespace {

class MSGCTR_PDmtTreeTest : public HostRootTest {
protected:
    void SetUp() override
    {
        HostRootTest::SetUp();
        ASSERT_EQ(m_guard.Initialize(), 0);
        ASSERT_EQ(m_guard.GetSubtree(m_principal, "./DevDetail/Ext/Conf/Msg/Profiles/MMS", m_tree.dmtTree()), 0);
    }
    void TearDown() override
    {
        m_tree.Release();
        HostRootTest::TearDown();
    }

    MSGCTR_DmtTreeFactorySingleton m_guard;
    MSGCTR_DmtPrincipal m_principal;
    MSGCTR_PDmtTree m_tree;
};

TEST_F(MSGCTR_PDmtTreeTest, IsValidNodeOfAMissingPathIsFalse)
{
    EXPECT_FALSE(m_tree.IsValidNode("missing"));
    EXPECT_FALSE(m_tree.nodeIsAvailable("missing"));
    EXPECT_TRUE(m_tree.IsValidNode(""));
    EXPECT_TRUE(m_tree.nodeIsAvailable(""));
}

TEST_F(MSGCTR_PDmtTreeTest, OperationsForwardAndMapTheirResults)
{
    PDmtNode node;
    EXPECT_EQ(m_tree.CreateInteriorNode("P", node), 0);
    EXPECT_EQ(m_tree.CreateInteriorNode("P", node), 10081); // 418: no row
    EXPECT_EQ(m_tree.CreateLeafNode("P/x", node, MSGCTR_DmtDataApi::fromInt(1)), 0);
    DMMap<DMString, DmtData> map;
    map.put("y", MSGCTR_DmtDataApi::fromBool(false));
    EXPECT_EQ(m_tree.SetChildValuesMap("P", map), 0);
    DMMap<DMString, DmtData> read;
    EXPECT_EQ(m_tree.GetChildValuesMap("P", read), 0);
    EXPECT_EQ(read.size(), 1u);
    DMStringVector names;
    EXPECT_EQ(m_tree.GetChildNodeNames("", names), 0);
    ASSERT_EQ(names.size(), 1u);
    EXPECT_EQ(names[0].str(), "P");
    EXPECT_EQ(m_tree.GetNode("P/y", node), 0);
    EXPECT_EQ(m_tree.DeleteNode("P"), 0);
    EXPECT_EQ(m_tree.Flush(), 0);
    EXPECT_EQ(m_tree.Begin(), 0);
    EXPECT_TRUE(m_tree.IsAtomic());
    EXPECT_EQ(m_tree.Begin(), 10081); // 500: no row
    EXPECT_EQ(m_tree.Rollback(), 0);
    EXPECT_EQ(m_tree.Begin(), 0);
    EXPECT_EQ(m_tree.Commit(), 0);
    EXPECT_FALSE(m_tree.IsAtomic());
    EXPECT_EQ(m_tree.Commit(), 10064);
}

TEST_F(MSGCTR_PDmtTreeTest, InjectedResultsAreMapped)
{
    ZorHost::injectFault(QStringLiteral("DmtTree::SetChildValuesMap"), 20);
    EXPECT_EQ(m_tree.SetChildValuesMap("", DMMap<DMString, DmtData>()), 10078);
    ZorHost::injectFault(QStringLiteral("DmtTree::Flush"), 22);
    EXPECT_EQ(m_tree.Flush(), 10076);
    ZorHost::injectFault(QStringLiteral("DmtTree::GetNode"), 406);
    EXPECT_FALSE(m_tree.IsValidNode(""));
}

TEST_F(MSGCTR_PDmtTreeTest, ReleaseDropsTheTreeAndGivesZero)
{
    EXPECT_EQ(m_tree.Release(), 0);
    EXPECT_EQ(m_tree.dmtTree(), nullptr);
    EXPECT_FALSE(m_tree.IsAtomic());
    EXPECT_FALSE(m_tree.IsValidNode(""));
    EXPECT_EQ(m_tree.Flush(), 10064);
}

} // namespace
