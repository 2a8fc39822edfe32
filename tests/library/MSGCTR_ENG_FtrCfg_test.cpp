// The feature answers are computed once per process: every scenario runs in a fresh process of its own, so
// each one starts with the answers not yet read.
#include "ForkedScenario.h"
#include "HostRootTest.h"

#include "MSGCTR_ENG_FtrCfg.h"
#include "MSGCTR_ENG_SetupInfo.h"
#include "ZorHostControl.h"
#include "ZorHostSetupControl.h"

namespace {

class FtrCfgTest : public HostRootTest {
protected:
    void setPrefStorage(unsigned int value)
    {
        MSGCTR_ENG_SetupInfo info(MSGCTR_ENG_Setup::FLUSH_MODE__FLUSH);
        ASSERT_EQ(info.setIncomingSMSMsgPrefStorage(value), 0);
    }
    int settingsReads() { return ZorHost::callCount(QStringLiteral("SETUP_SET_Manager::getUInt")); }
};

TEST_F(FtrCfgTest, TrashFolderIsNeverSupported)
{
    runForkedScenario([&] {
        EXPECT_FALSE(MSGCTR_ENG_FtrCfg::support_TrashFolder());
        ASSERT_TRUE(ZorHost::setFlexBit(303, true));
        EXPECT_FALSE(MSGCTR_ENG_FtrCfg::support_TrashFolder());
    });
}

TEST_F(FtrCfgTest, FactoryBuildHasTheSimcardFolder)
{
    runForkedScenario([&] {
        EXPECT_FALSE(MSGCTR_ENG_FtrCfg::getFlexBit_MRS_10600_AVAILABLE());
        EXPECT_FALSE(MSGCTR_ENG_FtrCfg::support_UserSetupIncomingSmsStorage());
        EXPECT_TRUE(MSGCTR_ENG_FtrCfg::support_SimcardFolder());
        EXPECT_FALSE(MSGCTR_ENG_FtrCfg::support_SortBySimcard());
        EXPECT_FALSE(MSGCTR_ENG_FtrCfg::showSimcardIconForSmsInSimcard());
    });
}

TEST_F(FtrCfgTest, WithFeatureBitSetTheSettingsAreNeverRead)
{
    runForkedScenario([&] {
        ASSERT_TRUE(ZorHost::setFlexBit(303, true));
        // A stored value that would be reported if it were read.
        setPrefStorage(7);
        takeReportLines();
        ZorHost::resetCallCounts();

        EXPECT_TRUE(MSGCTR_ENG_FtrCfg::getFlexBit_MRS_10600_AVAILABLE());
        EXPECT_TRUE(MSGCTR_ENG_FtrCfg::support_UserSetupIncomingSmsStorage());
        EXPECT_FALSE(MSGCTR_ENG_FtrCfg::support_SimcardFolder());
        EXPECT_TRUE(MSGCTR_ENG_FtrCfg::support_SortBySimcard());
        EXPECT_TRUE(MSGCTR_ENG_FtrCfg::showSimcardIconForSmsInSimcard());
        EXPECT_EQ(settingsReads(), 0);
        EXPECT_EQ(reportLines(), QStringList());
    });
}

TEST_F(FtrCfgTest, BitClearAndStorageOneHasNoSimcardFolder)
{
    runForkedScenario([&] {
        ASSERT_TRUE(ZorHost::setFlexBit(303, false));
        setPrefStorage(1);
        EXPECT_FALSE(MSGCTR_ENG_FtrCfg::support_SimcardFolder());
        EXPECT_TRUE(MSGCTR_ENG_FtrCfg::support_SortBySimcard());
        EXPECT_TRUE(MSGCTR_ENG_FtrCfg::showSimcardIconForSmsInSimcard());
    });
}

TEST_F(FtrCfgTest, BitClearAndStorageZeroHasTheSimcardFolder)
{
    runForkedScenario([&] {
        setPrefStorage(0);
        EXPECT_TRUE(MSGCTR_ENG_FtrCfg::support_SimcardFolder());
        EXPECT_FALSE(MSGCTR_ENG_FtrCfg::support_SortBySimcard());
        EXPECT_FALSE(MSGCTR_ENG_FtrCfg::showSimcardIconForSmsInSimcard());
    });
}

TEST_F(FtrCfgTest, BitClearAndStorageTwoHasTheSimcardFolder)
{
    runForkedScenario([&] {
        setPrefStorage(2);
        EXPECT_TRUE(MSGCTR_ENG_FtrCfg::support_SimcardFolder());
        EXPECT_FALSE(MSGCTR_ENG_FtrCfg::support_SortBySimcard());
        EXPECT_FALSE(MSGCTR_ENG_FtrCfg::showSimcardIconForSmsInSimcard());
    });
}

TEST_F(FtrCfgTest, StorageChangedAfterTheFirstCallIsNotSeen)
{
    runForkedScenario([&] {
        setPrefStorage(0);
        EXPECT_TRUE(MSGCTR_ENG_FtrCfg::support_SimcardFolder());
        setPrefStorage(1);
        EXPECT_TRUE(MSGCTR_ENG_FtrCfg::support_SimcardFolder());
        EXPECT_FALSE(MSGCTR_ENG_FtrCfg::support_SortBySimcard());
        EXPECT_FALSE(MSGCTR_ENG_FtrCfg::showSimcardIconForSmsInSimcard());
    });
}

TEST_F(FtrCfgTest, StorageOneChangedAfterTheFirstCallIsNotSeen)
{
    runForkedScenario([&] {
        setPrefStorage(1);
        EXPECT_FALSE(MSGCTR_ENG_FtrCfg::support_SimcardFolder());
        setPrefStorage(0);
        EXPECT_FALSE(MSGCTR_ENG_FtrCfg::support_SimcardFolder());
        EXPECT_TRUE(MSGCTR_ENG_FtrCfg::support_SortBySimcard());
    });
}

TEST_F(FtrCfgTest, StorageIsReadOnceThroughATemporarySettingsObject)
{
    runForkedScenario([&] {
        takeReportLines();
        ZorHost::resetCallCounts();
        MSGCTR_ENG_FtrCfg::support_SimcardFolder();
        MSGCTR_ENG_FtrCfg::support_SortBySimcard();
        MSGCTR_ENG_FtrCfg::showSimcardIconForSmsInSimcard();
        EXPECT_EQ(settingsReads(), 1);
        // The one read is the settings getter's, with its trace.
        ASSERT_EQ(reportLines().size(), 1);
        EXPECT_TRUE(reportLines().first().endsWith(QStringLiteral(": nPrefStorage = 0/0x00000000(U32,4), ")))
            << reportLines().first().toStdString();
    });
}

TEST_F(FtrCfgTest, FeatureBitIsReadOnce)
{
    runForkedScenario([&] {
        ZorHost::resetCallCounts();
        EXPECT_FALSE(MSGCTR_ENG_FtrCfg::getFlexBit_MRS_10600_AVAILABLE());
        ASSERT_TRUE(ZorHost::setFlexBit(303, true));
        EXPECT_FALSE(MSGCTR_ENG_FtrCfg::getFlexBit_MRS_10600_AVAILABLE());
        EXPECT_FALSE(MSGCTR_ENG_FtrCfg::support_UserSetupIncomingSmsStorage());
        EXPECT_TRUE(MSGCTR_ENG_FtrCfg::support_SimcardFolder());
        EXPECT_EQ(ZorHost::callCount(QStringLiteral("SETUP_Utility::getFlexBit")), 1);
    });
}

TEST_F(FtrCfgTest, FeatureBitSetIsKeptAfterItIsCleared)
{
    runForkedScenario([&] {
        ASSERT_TRUE(ZorHost::setFlexBit(303, true));
        EXPECT_TRUE(MSGCTR_ENG_FtrCfg::support_UserSetupIncomingSmsStorage());
        ASSERT_TRUE(ZorHost::setFlexBit(303, false));
        EXPECT_TRUE(MSGCTR_ENG_FtrCfg::getFlexBit_MRS_10600_AVAILABLE());
        EXPECT_FALSE(MSGCTR_ENG_FtrCfg::support_SimcardFolder());
    });
}

TEST_F(FtrCfgTest, UnreadableFeatureBitCountsAsClear)
{
    runForkedScenario([&] {
        ASSERT_TRUE(ZorHost::unsetFlexBit(303));
        EXPECT_FALSE(MSGCTR_ENG_FtrCfg::getFlexBit_MRS_10600_AVAILABLE());
        EXPECT_TRUE(MSGCTR_ENG_FtrCfg::support_SimcardFolder());
    });
}

TEST_F(FtrCfgTest, FailedFeatureBitReadCountsAsClear)
{
    runForkedScenario([&] {
        ASSERT_TRUE(ZorHost::setFlexBit(303, true));
        ZorHost::injectFault(QStringLiteral("SETUP_Utility::getFlexBit"), 1);
        EXPECT_FALSE(MSGCTR_ENG_FtrCfg::getFlexBit_MRS_10600_AVAILABLE());
        EXPECT_FALSE(MSGCTR_ENG_FtrCfg::getFlexBit_MRS_10600_AVAILABLE());
    });
}

TEST_F(FtrCfgTest, IsPolymorphicWithoutData)
{
    EXPECT_TRUE(std::has_virtual_destructor<MSGCTR_ENG_FtrCfg>::value);
    // The table pointer is all an object holds.
    EXPECT_EQ(sizeof(MSGCTR_ENG_FtrCfg), sizeof(void*));
}

} // namespace
