// The node wrapper: typed values, and outputs untouched when the node's value cannot be read.
#include "HostRootTest.h"

#include "MSGCTR_DmtPrincipal.h"
#include "MSGCTR_DmtTreeFactorySingleton.h"
#include "MSGCTR_PDmtNode.h"
#include "MSGCTR_PDmtTree.h"
#include "ZorHostControl.h"

namespace {

class MSGCTR_PDmtNodeTest : public HostRootTest {
protected:
    void SetUp() override
    {
        HostRootTest::SetUp();
        ASSERT_EQ(m_guard.Initialize(), 0);
        ASSERT_EQ(m_guard.GetSubtree(MSGCTR_DmtPrincipal(), "./DevDetail/Ext/Conf/Msg/MMS", m_tree.dmtTree()), 0);
        ASSERT_EQ(m_tree.GetNode("Default", m_node.dmtNode()), 0);
    }
    void TearDown() override
    {
        m_node.Release();
        m_tree.Release();
        HostRootTest::TearDown();
    }

    MSGCTR_DmtTreeFactorySingleton m_guard;
    MSGCTR_PDmtTree m_tree;
    MSGCTR_PDmtNode m_node;
};

TEST_F(MSGCTR_PDmtNodeTest, TypedValuesRoundTrip)
{
    QString text;
    EXPECT_EQ(m_node.GetStringValue(&text), 0);
    EXPECT_EQ(text, QStringLiteral(""));
    EXPECT_EQ(m_node.SetStringValue(QStringLiteral("{id}")), 0);
    EXPECT_EQ(m_node.GetStringValue(&text), 0);
    EXPECT_EQ(text, QStringLiteral("{id}"));
    int number = 0;
    EXPECT_EQ(m_node.SetIntValue(12), 0);
    EXPECT_EQ(m_node.GetIntValue(&number), 0);
    EXPECT_EQ(number, 12);
    bool flag = false;
    EXPECT_EQ(m_node.SetBoolValue(true), 0);
    EXPECT_EQ(m_node.GetBoolValue(&flag), 0);
    EXPECT_TRUE(flag);
    QByteArray bytes;
    EXPECT_EQ(m_node.SetBinaryValue(QByteArray("\x00\x01", 2)), 0);
    EXPECT_EQ(m_node.GetBinaryValue(&bytes), 0);
    EXPECT_EQ(bytes, QByteArray("\x00\x01", 2));
    const unsigned char raw[] = {9};
    EXPECT_EQ(m_node.SetBinaryValue(raw, 1), 0);
    EXPECT_EQ(m_node.GetBinaryValue(&bytes), 0);
    EXPECT_EQ(bytes, QByteArray("\x09", 1));
    DmtData value;
    EXPECT_EQ(m_node.GetValue(&value), 0);
    EXPECT_EQ(m_node.SetValue(value), 0);
}

TEST_F(MSGCTR_PDmtNodeTest, WrongTypeResetsTheOutputOnceTheValueIsRead)
{
    int number = 5;
    EXPECT_EQ(m_node.GetIntValue(&number), 10065);
    EXPECT_EQ(number, 0);
    bool flag = true;
    EXPECT_EQ(m_node.GetBoolValue(&flag), 10065);
    EXPECT_FALSE(flag);
}

TEST_F(MSGCTR_PDmtNodeTest, UnreadableValueLeavesTheOutputUntouched)
{
    ZorHost::injectFault(QStringLiteral("DmtNode::GetValue"), 1, 4);
    QString text = QStringLiteral("kept");
    EXPECT_EQ(m_node.GetStringValue(&text), 10064);
    EXPECT_EQ(text, QStringLiteral("kept"));
    int number = 5;
    EXPECT_EQ(m_node.GetIntValue(&number), 10064);
    EXPECT_EQ(number, 5);
    bool flag = true;
    EXPECT_EQ(m_node.GetBoolValue(&flag), 10064);
    EXPECT_TRUE(flag);
    QByteArray bytes("kept");
    EXPECT_EQ(m_node.GetBinaryValue(&bytes), 10064);
    EXPECT_EQ(bytes, QByteArray("kept"));
}

TEST_F(MSGCTR_PDmtNodeTest, FromPDmtNodeViewsTheSameSmartPointer)
{
    PDmtNode raw = m_node.dmtNode();
    MSGCTR_PDmtNode& view = MSGCTR_PDmtNode::fromPDmtNode(raw);
    EXPECT_EQ(&view.dmtNode(), &raw);
    const PDmtNode& constRaw = raw;
    EXPECT_EQ(&MSGCTR_PDmtNode::fromPDmtNode(constRaw).dmtNode(), &raw);
    QString text = QStringLiteral("x");
    EXPECT_EQ(view.GetStringValue(&text), 0);
    EXPECT_EQ(text, QStringLiteral(""));
}

TEST_F(MSGCTR_PDmtNodeTest, ReleaseDropsTheNodeAndGivesZero)
{
    EXPECT_EQ(m_node.Release(), 0);
    EXPECT_EQ(m_node.dmtNode(), nullptr);
    DmtData value;
    EXPECT_EQ(m_node.GetValue(&value), 10064);
}

} // namespace
