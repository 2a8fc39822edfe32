// The per-operation factory guard: one Initialize while it succeeds, and exactly one Uninitialize.
#include "HostRootTest.h"

#include "MSGCTR_DmtPrincipal.h"
#include "MSGCTR_DmtTreeFactorySingleton.h"
#include "ZorHostControl.h"

#include "DmtTreeFactory.h"

namespace {

class MSGCTR_DmtTreeFactorySingletonTest : public HostRootTest {
protected:
    void TearDown() override
    {
        while (DmtTreeFactory::IsInitialized())
            DmtTreeFactory::Uninitialize();
        HostRootTest::TearDown();
    }

    static int calls(const char* operation) { return ZorHost::callCount(QString::fromLatin1(operation)); }
};

TEST_F(MSGCTR_DmtTreeFactorySingletonTest, GuardBalancesASuccessfulInitialize)
{
    {
        MSGCTR_DmtTreeFactorySingleton guard;
        EXPECT_EQ(guard.Initialize(), 0);
        EXPECT_TRUE(DmtTreeFactory::IsInitialized());
    }
    EXPECT_FALSE(DmtTreeFactory::IsInitialized());
    EXPECT_EQ(calls("DmtTreeFactory::Initialize"), 1);
    EXPECT_EQ(calls("DmtTreeFactory::Uninitialize"), 1);
}

TEST_F(MSGCTR_DmtTreeFactorySingletonTest, SecondInitializeAfterSuccessDoesNotInitialiseAgain)
{
    {
        MSGCTR_DmtTreeFactorySingleton guard;
        EXPECT_EQ(guard.Initialize(), 0);
        EXPECT_EQ(guard.Initialize(), 0);
        EXPECT_EQ(calls("DmtTreeFactory::Initialize"), 1);
    }
    EXPECT_EQ(calls("DmtTreeFactory::Uninitialize"), 1);
}

TEST_F(MSGCTR_DmtTreeFactorySingletonTest, FailedInitializeIsStillUninitialisedOnce)
{
    ZorHost::injectFault(QStringLiteral("DmtTreeFactory::Initialize"), 0);
    {
        MSGCTR_DmtTreeFactorySingleton guard;
        EXPECT_EQ(guard.Initialize(), 10079);
    }
    EXPECT_EQ(calls("DmtTreeFactory::Initialize"), 1);
    EXPECT_EQ(calls("DmtTreeFactory::Uninitialize"), 1);
}

TEST_F(MSGCTR_DmtTreeFactorySingletonTest, GuardNeverInitialisedNeverUninitialises)
{
    {
        MSGCTR_DmtTreeFactorySingleton guard;
    }
    EXPECT_EQ(calls("DmtTreeFactory::Uninitialize"), 0);
}

TEST_F(MSGCTR_DmtTreeFactorySingletonTest, SubtreesComeFromTheFactory)
{
    MSGCTR_DmtTreeFactorySingleton guard;
    ASSERT_EQ(guard.Initialize(), 0);
    PDmtTree tree;
    EXPECT_EQ(guard.GetSubtree(MSGCTR_DmtPrincipal(), "./DevDetail/Ext/Conf/Msg/MMS/Default", tree), 0);
    EXPECT_NE(tree, nullptr);
    PDmtTree shared;
    EXPECT_EQ(guard.GetSubtreeEx(MSGCTR_DmtPrincipal(), "./DevDetail", DMT_LOCK_SHARED, shared), 0);
    EXPECT_EQ(calls("DmtTreeFactory::GetSubtreeEx"), 1);
}

} // namespace
