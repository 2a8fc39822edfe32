// The factory's functions with MSGCTR_ERRCODE results, and the local principal they are called with.
#include "HostRootTest.h"

#include "MSGCTR_DmtPrincipal.h"
#include "MSGCTR_DmtTreeFactory.h"
#include "ZorHostControl.h"

#include "DmtTreeFactory.h"

namespace {

class MSGCTR_DmtTreeFactoryTest : public HostRootTest {
protected:
    void TearDown() override
    {
        while (DmtTreeFactory::IsInitialized())
            DmtTreeFactory::Uninitialize();
        HostRootTest::TearDown();
    }
};

TEST_F(MSGCTR_DmtTreeFactoryTest, PrincipalIsTheLocalCaller)
{
    EXPECT_STREQ(MSGCTR_DmtPrincipal().getName().c_str(), "localhost");
}

TEST_F(MSGCTR_DmtTreeFactoryTest, InitializeAndUninitializeGiveZero)
{
    EXPECT_EQ(MSGCTR_DmtTreeFactory::Initialize(), 0);
    EXPECT_EQ(MSGCTR_DmtTreeFactory::Uninitialize(), 0);
}

TEST_F(MSGCTR_DmtTreeFactoryTest, RefusedInitializeIs10079AndRefusedUninitializeIs10080)
{
    ZorHost::injectFault(QStringLiteral("DmtTreeFactory::Initialize"), 0);
    EXPECT_EQ(MSGCTR_DmtTreeFactory::Initialize(), 10079);
    EXPECT_EQ(MSGCTR_DmtTreeFactory::Uninitialize(), 10080);
}

TEST_F(MSGCTR_DmtTreeFactoryTest, SubtreeResultsAreMapped)
{
    ASSERT_EQ(MSGCTR_DmtTreeFactory::Initialize(), 0);
    PDmtTree tree;
    EXPECT_EQ(MSGCTR_DmtTreeFactory::GetSubtree(MSGCTR_DmtPrincipal(), "./DevDetail/Ext/Conf/Msg/Profiles/MMS", tree), 0);
    EXPECT_NE(tree, nullptr);
    PDmtTree missing;
    EXPECT_EQ(MSGCTR_DmtTreeFactory::GetSubtree(MSGCTR_DmtPrincipal(), "./Nope", missing), 10081);
    EXPECT_EQ(missing, nullptr);
    EXPECT_EQ(MSGCTR_DmtTreeFactory::GetSubtreeEx(MSGCTR_DmtPrincipal(), "./DevDetail", DMT_LOCK_SHARED, missing), 0);
    ZorHost::injectFault(QStringLiteral("DmtTreeFactory::GetSubtreeEx"), 1);
    PDmtTree faulted;
    EXPECT_EQ(MSGCTR_DmtTreeFactory::GetSubtreeEx(MSGCTR_DmtPrincipal(), "./DevDetail", 2, faulted), 10064);
}

} // namespace
