// Subtrees of the DM tree: nodes and their types, child order, value maps, transactions, visibility after
// Flush, two processes writing at once, and fault injection on every tree and node operation.
#include "HostRootTest.h"

#include "DmtNode.h"
#include "DmtResult.h"
#include "DmtTreeFactory.h"
#include "ZorHostControl.h"

#include <sys/wait.h>
#include <unistd.h>

#include <functional>
#include <string>
#include <vector>

namespace {

const DmtPrincipal kLocal("localhost");
const char* const kMms = "./DevDetail/Ext/Conf/Msg/Profiles/MMS";

class DmtTreeTest : public HostRootTest {
protected:
    void SetUp() override
    {
        HostRootTest::SetUp();
        ASSERT_TRUE(DmtTreeFactory::Initialize());
        ASSERT_EQ(DmtTreeFactory::GetSubtree(kLocal, kMms, m_tree), 0);
    }
    void TearDown() override
    {
        m_tree = nullptr;
        while (DmtTreeFactory::IsInitialized())
            DmtTreeFactory::Uninitialize();
        HostRootTest::TearDown();
    }

    // A fresh subtree at kMms: sees only what was flushed or committed.
    static PDmtTree reopen()
    {
        PDmtTree tree;
        EXPECT_EQ(DmtTreeFactory::GetSubtree(kLocal, kMms, tree), 0);
        return tree;
    }

    static std::vector<std::string> children(PDmtTree tree, const char* path = "")
    {
        DMStringVector names;
        if (tree->GetChildNodeNames(path, names) != 0)
            return {"<failed>"};
        std::vector<std::string> out;
        for (const DMString& n : names)
            out.push_back(n.str());
        return out;
    }

    static std::vector<std::string> leafNames(const DMMap<DMString, DmtData>& map)
    {
        std::vector<std::string> out;
        for (const auto& e : map)
            out.push_back(e.first.str());
        return out;
    }

    PDmtTree m_tree;
};

using Names = std::vector<std::string>;

TEST_F(DmtTreeTest, LeavesKeepTheirTypesWithoutConversion)
{
    PDmtNode node;
    ASSERT_EQ(m_tree->CreateLeafNode("P/S", node, DmtData("text")), 0);
    ASSERT_EQ(m_tree->CreateLeafNode("P/I", node, DmtData(-7)), 0);
    ASSERT_EQ(m_tree->CreateLeafNode("P/B", node, DmtData(true)), 0);
    const unsigned char bytes[] = {0x00, 0xff, 0x10};
    ASSERT_EQ(m_tree->CreateLeafNode("P/X", node, DmtData(bytes, 3)), 0);
    ASSERT_EQ(m_tree->Flush(), 0);
    PDmtTree tree = reopen();
    DmtData value;
    ASSERT_EQ(tree->GetNode("P/S", node), 0);
    ASSERT_EQ(node->GetValue(value), 0);
    DMString text;
    EXPECT_EQ(value.GetString(text), 0);
    EXPECT_EQ(text.str(), "text");
    int number = 5;
    EXPECT_EQ(value.GetInt(number), 23);
    EXPECT_EQ(number, 5);
    ASSERT_EQ(tree->GetNode("P/I", node), 0);
    ASSERT_EQ(node->GetValue(value), 0);
    EXPECT_EQ(value.GetInt(number), 0);
    EXPECT_EQ(number, -7);
    bool flag = false;
    ASSERT_EQ(tree->GetNode("P/B", node), 0);
    ASSERT_EQ(node->GetValue(value), 0);
    EXPECT_EQ(value.GetBoolean(flag), 0);
    EXPECT_TRUE(flag);
    EXPECT_EQ(value.GetString(text), 23);
    ASSERT_EQ(tree->GetNode("P/X", node), 0);
    ASSERT_EQ(node->GetValue(value), 0);
    DMVector<unsigned char> read;
    EXPECT_EQ(value.GetBinary(read), 0);
    EXPECT_EQ(read, DMVector<unsigned char>(bytes, 3));
    EXPECT_TRUE(node->IsLeaf());
    EXPECT_EQ(node->GetPath().str(), "./DevDetail/Ext/Conf/Msg/Profiles/MMS/P/X");
}

TEST_F(DmtTreeTest, CreatingANodeCreatesMissingInteriorParents)
{
    PDmtNode node;
    ASSERT_EQ(m_tree->CreateLeafNode("A/B/C", node, DmtData(1)), 0);
    ASSERT_EQ(m_tree->GetNode("A/B", node), 0);
    EXPECT_FALSE(node->IsLeaf());
    DmtData value;
    EXPECT_EQ(node->GetValue(value), 405);
    EXPECT_EQ(children(m_tree), Names{"A"});
    EXPECT_EQ(children(m_tree, "A"), Names{"B"});
}

TEST_F(DmtTreeTest, ChildNamesComeInCreationOrder)
{
    PDmtNode node;
    for (const char* name : {"b", "A", "a", "0"})
        ASSERT_EQ(m_tree->CreateInteriorNode(name, node), 0);
    EXPECT_EQ(children(m_tree), (Names{"b", "A", "a", "0"}));
}

TEST_F(DmtTreeTest, ExistingNodeCannotBeCreatedAgain)
{
    PDmtNode node;
    ASSERT_EQ(m_tree->CreateInteriorNode("P", node), 0);
    EXPECT_EQ(m_tree->CreateInteriorNode("P", node), 418);
    EXPECT_EQ(m_tree->CreateLeafNode("P", node, DmtData(1)), 418);
    EXPECT_EQ(m_tree->CreateInteriorNode("", node), 418);
}

TEST_F(DmtTreeTest, NothingGoesUnderALeaf)
{
    PDmtNode node;
    ASSERT_EQ(m_tree->CreateLeafNode("L", node, DmtData("v")), 0);
    EXPECT_EQ(m_tree->CreateLeafNode("L/x", node, DmtData(1)), 405);
    EXPECT_EQ(m_tree->CreateInteriorNode("L/x/y", node), 405);
    DMStringVector names;
    EXPECT_EQ(m_tree->GetChildNodeNames("L", names), 405);
    DMMap<DMString, DmtData> map;
    EXPECT_EQ(m_tree->GetChildValuesMap("L", map), 405);
    EXPECT_EQ(m_tree->SetChildValuesMap("L", map), 405);
    EXPECT_EQ(children(m_tree), Names{"L"});
}

TEST_F(DmtTreeTest, MissingNodesAreNotFound)
{
    PDmtNode node;
    EXPECT_EQ(m_tree->GetNode("nope", node), 404);
    EXPECT_EQ(node, nullptr);
    EXPECT_EQ(m_tree->DeleteNode("nope"), 404);
    DMStringVector names;
    EXPECT_EQ(m_tree->GetChildNodeNames("nope", names), 404);
    DMMap<DMString, DmtData> map;
    EXPECT_EQ(m_tree->GetChildValuesMap("nope", map), 404);
    map.put("x", DmtData(1));
    EXPECT_EQ(m_tree->SetChildValuesMap("nope", map), 404);
    EXPECT_EQ(children(m_tree), Names{});
}

TEST_F(DmtTreeTest, MalformedPathsAndEmptyValuesAreInvalid)
{
    PDmtNode node;
    for (const char* path : {"/a", "a/", "a//b", "../x", "a/./b"})
        EXPECT_EQ(m_tree->CreateInteriorNode(path, node), 23) << path;
    EXPECT_EQ(m_tree->CreateLeafNode("x", node, DmtData()), 23);
    DMMap<DMString, DmtData> map;
    map.put("a/b", DmtData(1));
    EXPECT_EQ(m_tree->SetChildValuesMap("", map), 23);
    EXPECT_EQ(children(m_tree), Names{});
}

TEST_F(DmtTreeTest, DeleteRemovesTheWholeSubtree)
{
    PDmtNode node;
    ASSERT_EQ(m_tree->CreateLeafNode("P/a", node, DmtData(1)), 0);
    ASSERT_EQ(m_tree->CreateLeafNode("P/Q/b", node, DmtData(2)), 0);
    ASSERT_EQ(m_tree->CreateLeafNode("P2/c", node, DmtData(3)), 0);
    ASSERT_EQ(m_tree->DeleteNode("P"), 0);
    EXPECT_EQ(m_tree->GetNode("P/Q/b", node), 404);
    EXPECT_EQ(children(m_tree), Names{"P2"});
    EXPECT_EQ(children(m_tree, "P2"), Names{"c"});
}

TEST_F(DmtTreeTest, ChildValuesMapGivesTheLeavesOnly)
{
    PDmtNode node;
    ASSERT_EQ(m_tree->CreateLeafNode("P/one", node, DmtData("1")), 0);
    ASSERT_EQ(m_tree->CreateInteriorNode("P/inner", node), 0);
    ASSERT_EQ(m_tree->CreateLeafNode("P/two", node, DmtData(2)), 0);
    DMMap<DMString, DmtData> map;
    map.put("stale", DmtData(0));
    ASSERT_EQ(m_tree->GetChildValuesMap("P", map), 0);
    EXPECT_EQ(leafNames(map), (Names{"one", "two"}));
    DmtData two;
    ASSERT_TRUE(map.lookup("two", &two));
    EXPECT_EQ(two, DmtData(2));
}

TEST_F(DmtTreeTest, SetChildValuesMapReplacesCreatesDeletesAndKeepsInteriorChildren)
{
    PDmtNode node;
    ASSERT_EQ(m_tree->CreateLeafNode("P/keep", node, DmtData("old")), 0);
    ASSERT_EQ(m_tree->CreateLeafNode("P/drop", node, DmtData(1)), 0);
    ASSERT_EQ(m_tree->CreateInteriorNode("P/inner", node), 0);
    DMMap<DMString, DmtData> map;
    map.put("new", DmtData(true));
    map.put("keep", DmtData(5));
    ASSERT_EQ(m_tree->SetChildValuesMap("P", map), 0);
    EXPECT_EQ(children(m_tree, "P"), (Names{"keep", "inner", "new"}));
    DMMap<DMString, DmtData> read;
    ASSERT_EQ(m_tree->GetChildValuesMap("P", read), 0);
    EXPECT_EQ(leafNames(read), (Names{"keep", "new"}));
    DmtData keep;
    ASSERT_TRUE(read.lookup("keep", &keep));
    EXPECT_EQ(keep, DmtData(5));
}

TEST_F(DmtTreeTest, SetChildValuesMapIsAllOrNothing)
{
    PDmtNode node;
    ASSERT_EQ(m_tree->CreateLeafNode("P/a", node, DmtData("a")), 0);
    ASSERT_EQ(m_tree->CreateInteriorNode("P/inner", node), 0);
    DMMap<DMString, DmtData> map;
    map.put("b", DmtData("b"));
    map.put("inner", DmtData(1)); // a leaf cannot replace an interior node
    EXPECT_EQ(m_tree->SetChildValuesMap("P", map), 405);
    EXPECT_EQ(children(m_tree, "P"), (Names{"a", "inner"}));
}

TEST_F(DmtTreeTest, WritesOutsideATransactionAreSeenAfterFlush)
{
    PDmtNode node;
    ASSERT_EQ(m_tree->CreateInteriorNode("P", node), 0);
    node = nullptr;
    EXPECT_EQ(children(m_tree), Names{"P"});
    EXPECT_FALSE(m_tree->IsAtomic());
    ASSERT_EQ(m_tree->Flush(), 0);
    EXPECT_EQ(children(reopen()), Names{"P"});
}

TEST_F(DmtTreeTest, WritesAreKeptWhenTheLastReferenceGoes)
{
    {
        PDmtTree tree = reopen();
        PDmtNode node;
        ASSERT_EQ(tree->CreateLeafNode("P/x", node, DmtData(1)), 0);
    }
    EXPECT_EQ(children(reopen()), Names{"P"});
}

TEST_F(DmtTreeTest, CommitMakesTheTransactionVisible)
{
    ASSERT_EQ(m_tree->Begin(), 0);
    EXPECT_TRUE(m_tree->IsAtomic());
    EXPECT_EQ(m_tree->Begin(), 500);
    PDmtNode node;
    ASSERT_EQ(m_tree->CreateInteriorNode("P", node), 0);
    ASSERT_EQ(m_tree->Commit(), 0);
    EXPECT_FALSE(m_tree->IsAtomic());
    EXPECT_EQ(children(reopen()), Names{"P"});
}

TEST_F(DmtTreeTest, RollbackUndoesTheTransaction)
{
    ASSERT_EQ(m_tree->Begin(), 0);
    PDmtNode node;
    ASSERT_EQ(m_tree->CreateLeafNode("P/x", node, DmtData(1)), 0);
    EXPECT_EQ(children(m_tree), Names{"P"});
    ASSERT_EQ(m_tree->Rollback(), 0);
    EXPECT_FALSE(m_tree->IsAtomic());
    EXPECT_EQ(children(m_tree), Names{});
    EXPECT_EQ(m_tree->Commit(), 1);
    EXPECT_EQ(m_tree->Rollback(), 1);
}

TEST_F(DmtTreeTest, TreeReleasedInsideATransactionRollsItBack)
{
    {
        PDmtTree tree = reopen();
        ASSERT_EQ(tree->Begin(), 0);
        PDmtNode node;
        ASSERT_EQ(tree->CreateInteriorNode("P", node), 0);
    }
    EXPECT_EQ(children(reopen()), Names{});
}

TEST_F(DmtTreeTest, TwoProcessesAddingAtOnceLoseNoUpdate)
{
    constexpr int kPerProcess = 40;
    std::vector<pid_t> pids;
    for (int p = 0; p < 2; ++p) {
        const pid_t pid = fork();
        ASSERT_NE(pid, -1);
        if (pid == 0) {
            m_tree = nullptr;
            int failures = 0;
            for (int i = 0; i < kPerProcess; ++i) {
                PDmtTree tree;
                PDmtNode node;
                const std::string name = "p" + std::to_string(p) + "-" + std::to_string(i);
                if (DmtTreeFactory::GetSubtree(kLocal, kMms, tree) != 0 || tree->Begin() != 0
                    || tree->CreateLeafNode((name + "/n").c_str(), node, DmtData(i)) != 0 || tree->Commit() != 0)
                    ++failures;
            }
            _exit(failures == 0 ? 0 : 1);
        }
        pids.push_back(pid);
    }
    for (pid_t pid : pids) {
        int status = 0;
        ASSERT_EQ(waitpid(pid, &status, 0), pid);
        EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
    }
    EXPECT_EQ(children(reopen()).size(), std::size_t(2 * kPerProcess));
}

struct FaultCase {
    const char* name;
    const char* operation;
    std::function<int(PDmtTree&)> call;
};

class DmtTreeFaultTest : public DmtTreeTest, public ::testing::WithParamInterface<FaultCase> {};

// Each case works on a tree holding P/a = "a"; the faulted call returns the injected result and the tree
// is left as it was.
TEST_P(DmtTreeFaultTest, FaultedCallReturnsTheInjectedResultAndChangesNothing)
{
    PDmtNode node;
    ASSERT_EQ(m_tree->CreateLeafNode("P/a", node, DmtData("a")), 0);
    ASSERT_EQ(m_tree->Flush(), 0);
    PDmtTree tree = reopen();
    ZorHost::resetCallCounts();
    ZorHost::injectFault(QString::fromLatin1(GetParam().operation), 406);
    EXPECT_EQ(GetParam().call(tree), 406);
    EXPECT_EQ(ZorHost::callCount(QString::fromLatin1(GetParam().operation)), 1);
    tree = nullptr;
    PDmtTree after = reopen();
    EXPECT_EQ(children(after), Names{"P"});
    DMMap<DMString, DmtData> map;
    ASSERT_EQ(after->GetChildValuesMap("P", map), 0);
    EXPECT_EQ(leafNames(map), Names{"a"});
    DmtData a;
    ASSERT_TRUE(map.lookup("a", &a));
    EXPECT_EQ(a, DmtData("a"));
}

INSTANTIATE_TEST_SUITE_P(
    Operations, DmtTreeFaultTest,
    ::testing::Values(
        FaultCase{"GetNode", "DmtTree::GetNode", [](PDmtTree& t) { PDmtNode n; return t->GetNode("P", n); }},
        FaultCase{"DeleteNode", "DmtTree::DeleteNode", [](PDmtTree& t) { return t->DeleteNode("P"); }},
        FaultCase{"CreateLeafNode", "DmtTree::CreateLeafNode",
                  [](PDmtTree& t) { PDmtNode n; return t->CreateLeafNode("P/b", n, DmtData(1)); }},
        FaultCase{"CreateInteriorNode", "DmtTree::CreateInteriorNode",
                  [](PDmtTree& t) { PDmtNode n; return t->CreateInteriorNode("Q", n); }},
        FaultCase{"GetChildValuesMap", "DmtTree::GetChildValuesMap",
                  [](PDmtTree& t) { DMMap<DMString, DmtData> m; return t->GetChildValuesMap("P", m); }},
        FaultCase{"SetChildValuesMap", "DmtTree::SetChildValuesMap",
                  [](PDmtTree& t) { DMMap<DMString, DmtData> m; return t->SetChildValuesMap("P", m); }},
        FaultCase{"GetChildNodeNames", "DmtTree::GetChildNodeNames",
                  [](PDmtTree& t) { DMStringVector v; return t->GetChildNodeNames("", v); }},
        FaultCase{"Flush", "DmtTree::Flush",
                  [](PDmtTree& t) {
                      PDmtNode n;
                      t->CreateInteriorNode("Q", n);
                      const int r = t->Flush();
                      PDmtTree fresh;
                      DmtTreeFactory::GetSubtree(kLocal, kMms, fresh);
                      const bool unseen = fresh->GetNode("Q", n) == 404;
                      t->DeleteNode("Q");
                      return unseen ? r : -1;
                  }},
        FaultCase{"Begin", "DmtTree::Begin",
                  [](PDmtTree& t) { const int r = t->Begin(); return t->IsAtomic() ? -1 : r; }},
        FaultCase{"CommitLeavesTheTransactionOpen", "DmtTree::Commit",
                  [](PDmtTree& t) {
                      PDmtNode n;
                      t->Begin();
                      t->CreateInteriorNode("Q", n);
                      const int r = t->Commit();
                      return t->IsAtomic() && t->Rollback() == 0 ? r : -1;
                  }},
        FaultCase{"Rollback", "DmtTree::Rollback",
                  [](PDmtTree& t) { t->Begin(); const int r = t->Rollback(); return t->IsAtomic() ? r : -1; }},
        FaultCase{"GetValue", "DmtNode::GetValue",
                  [](PDmtTree& t) { PDmtNode n; DmtData v("keep"); t->GetNode("P/a", n); const int r = n->GetValue(v); return v == DmtData("keep") ? r : -1; }},
        FaultCase{"SetValue", "DmtNode::SetValue",
                  [](PDmtTree& t) { PDmtNode n; t->GetNode("P/a", n); return n->SetValue(DmtData("b")); }}),
    [](const ::testing::TestParamInfo<FaultCase>& info) { return std::string(info.param.name); });

} // namespace
