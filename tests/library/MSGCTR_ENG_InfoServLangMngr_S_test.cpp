#include "HostRootTest.h"

#include "MSGCTR_ENG_InfoServLangMngr_S.h"
#include "ZorHostControl.h"
#include "ZorHostTapiControl.h"
#include "ZorHostUtilControl.h"

#include <string>
#include <vector>

namespace {

using Slots = std::vector<unsigned char>;

const unsigned char GERMAN = 0;
const unsigned char ENGLISH = 1;
const unsigned char FRENCH = 3;
const unsigned char SPANISH = 4;

int slotWrites()
{
    return ZorHost::callCount(QStringLiteral("TAPI_CB_SetLanguage"));
}

class InfoServLangMngrTest : public HostRootTest {
protected:
    // A manager loaded from the given slots, with the call counts starting from zero.
    MSGCTR_ENG_InfoServLangMngr_S loaded(const Slots& slotList)
    {
        EXPECT_TRUE(ZorHost::setCbLanguageSlots(slotList));
        MSGCTR_ENG_InfoServLangMngr_S manager;
        EXPECT_EQ(manager.loadDataFromTapi(), 0);
        ZorHost::resetCallCounts();
        return manager;
    }
};

TEST_F(InfoServLangMngrTest, LoadingKeepsEachLanguageWithItsSlotInSlotOrder)
{
    MSGCTR_ENG_InfoServLangMngr_S manager = loaded({ENGLISH, ENGLISH, GERMAN, FRENCH});
    ASSERT_EQ(manager.m_vecLangIDAndIndex.size(), 4u);
    const unsigned char ids[] = {1, 1, 0, 3};
    for (unsigned short i = 0; i < 4; ++i) {
        EXPECT_EQ(manager.m_vecLangIDAndIndex[i].m_langID, ids[i]);
        EXPECT_EQ(manager.m_vecLangIDAndIndex[i].m_nIndex, i);
        EXPECT_EQ(manager.m_vecLangIDAndIndexLoaded[i].m_langID, ids[i]);
        EXPECT_EQ(manager.m_vecLangIDAndIndexLoaded[i].m_nIndex, i);
    }
}

TEST_F(InfoServLangMngrTest, FailedLoadingLeavesTheListsEmptyAndGivesTheCode)
{
    MSGCTR_ENG_InfoServLangMngr_S manager = loaded({ENGLISH});
    ZorHost::injectFault(QStringLiteral("TAPI_CB_GetLanguagesEx"), 819);
    EXPECT_EQ(manager.loadDataFromTapi(), 10010);
    EXPECT_TRUE(manager.m_vecLangIDAndIndex.empty());
    EXPECT_TRUE(manager.m_vecLangIDAndIndexLoaded.empty());
}

TEST_F(InfoServLangMngrTest, SwitchingOnSpanishReusesTheSlotOfTheSecondEnglishEntry)
{
    MSGCTR_ENG_InfoServLangMngr_S manager = loaded({ENGLISH, ENGLISH, GERMAN, FRENCH});
    EXPECT_EQ(manager.activateLang(SPANISH, true), 0);
    EXPECT_EQ(ZorHost::cbLanguageSlots(), (Slots{1, 4, 0, 3}));
    EXPECT_EQ(slotWrites(), 1);
}

TEST_F(InfoServLangMngrTest, SearchSortsByLanguageAndPointsAtTheRepeat)
{
    MSGCTR_ENG_InfoServLangMngr_S manager = loaded({ENGLISH, ENGLISH, GERMAN, FRENCH});
    int pos = 99;
    EXPECT_TRUE(manager.searchAvailablePosition(&pos, SPANISH));
    EXPECT_EQ(pos, 2);
    const unsigned char sortedIds[] = {0, 1, 1, 3};
    const unsigned short sortedSlots[] = {2, 0, 1, 3};
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(manager.m_vecLangIDAndIndex[size_t(i)].m_langID, sortedIds[i]);
        EXPECT_EQ(manager.m_vecLangIDAndIndex[size_t(i)].m_nIndex, sortedSlots[i]);
    }
}

TEST_F(InfoServLangMngrTest, SearchFindsALanguageAlreadyListedWithoutSorting)
{
    MSGCTR_ENG_InfoServLangMngr_S manager = loaded({FRENCH, GERMAN});
    int pos = 99;
    EXPECT_TRUE(manager.searchAvailablePosition(&pos, GERMAN));
    EXPECT_EQ(pos, 1);
    EXPECT_EQ(manager.m_vecLangIDAndIndex[0].m_langID, FRENCH);
}

TEST_F(InfoServLangMngrTest, WithoutARepeatNoSlotIsFreeAndSpanishGives10024)
{
    MSGCTR_ENG_InfoServLangMngr_S manager = loaded({ENGLISH, GERMAN, FRENCH});
    int pos = 99;
    EXPECT_FALSE(manager.searchAvailablePosition(&pos, SPANISH));
    EXPECT_EQ(pos, -1);
    MSGCTR_ENG_InfoServLangMngr_S fresh = loaded({ENGLISH, GERMAN, FRENCH});
    EXPECT_EQ(fresh.activateLang(SPANISH, true), 10024);
    EXPECT_EQ(ZorHost::cbLanguageSlots(), (Slots{1, 0, 3}));
    EXPECT_EQ(slotWrites(), 0);
}

TEST_F(InfoServLangMngrTest, DefaultLanguageWithoutAFreeSlotOverwritesSlotZero)
{
    MSGCTR_ENG_InfoServLangMngr_S manager = loaded({ENGLISH, GERMAN, FRENCH});
    EXPECT_EQ(manager.activateForDefaultLang(SPANISH), 0);
    EXPECT_EQ(ZorHost::cbLanguageSlots(), (Slots{4, 0, 3}));
}

TEST_F(InfoServLangMngrTest, DefaultLanguageTakesARepeatedSlotWhenThereIsOne)
{
    MSGCTR_ENG_InfoServLangMngr_S manager = loaded({FRENCH, GERMAN, FRENCH});
    EXPECT_EQ(manager.activateForDefaultLang(SPANISH), 0);
    EXPECT_EQ(ZorHost::cbLanguageSlots(), (Slots{3, 0, 4}));
}

TEST_F(InfoServLangMngrTest, DefaultLanguageAlreadyInASlotWritesNothing)
{
    MSGCTR_ENG_InfoServLangMngr_S manager = loaded({ENGLISH, GERMAN});
    EXPECT_EQ(manager.activateForDefaultLang(GERMAN), 0);
    EXPECT_EQ(slotWrites(), 0);
}

TEST_F(InfoServLangMngrTest, SwitchingOffTheDefaultLanguageGives10025AndWritesNothing)
{
    // The factory system language is en-us: English is the default.
    MSGCTR_ENG_InfoServLangMngr_S manager = loaded({ENGLISH, GERMAN});
    EXPECT_EQ(manager.activateLang(ENGLISH, false), 10025);
    EXPECT_EQ(slotWrites(), 0);
    EXPECT_EQ(ZorHost::cbLanguageSlots(), (Slots{1, 0}));
}

TEST_F(InfoServLangMngrTest, SwitchingOffEnglishWritesTheDefaultIntoBothEnglishSlots)
{
    ASSERT_TRUE(ZorHost::setSystemLanguage(QStringLiteral("de-de")));
    MSGCTR_ENG_InfoServLangMngr_S manager = loaded({ENGLISH, ENGLISH, GERMAN, FRENCH});
    EXPECT_EQ(manager.activateLang(ENGLISH, false), 0);
    EXPECT_EQ(ZorHost::cbLanguageSlots(), (Slots{0, 0, 0, 3}));
    EXPECT_EQ(slotWrites(), 2);
}

TEST_F(InfoServLangMngrTest, SwitchingOffGoesOnAfterAFailedWriteAndGivesTheFirstFailure)
{
    ASSERT_TRUE(ZorHost::setSystemLanguage(QStringLiteral("de-de")));
    MSGCTR_ENG_InfoServLangMngr_S manager = loaded({ENGLISH, ENGLISH, GERMAN});
    ZorHost::injectFault(QStringLiteral("TAPI_CB_SetLanguage"), 7);
    EXPECT_EQ(manager.activateLang(ENGLISH, false), 100007);
    EXPECT_EQ(ZorHost::cbLanguageSlots(), (Slots{1, 0, 0}));
    EXPECT_EQ(slotWrites(), 2);
}

TEST_F(InfoServLangMngrTest, SwitchingOnAListedLanguageOrOffAnUnlistedOneWritesNothing)
{
    MSGCTR_ENG_InfoServLangMngr_S manager = loaded({ENGLISH, GERMAN});
    EXPECT_EQ(manager.activateLang(GERMAN, true), 0);
    EXPECT_EQ(manager.activateLang(SPANISH, false), 0);
    EXPECT_EQ(slotWrites(), 0);
}

// Forty slotList of two languages in turn: a sort that did not keep equal languages in slot order could pick
// another French slot than the second one (slot 3).
TEST_F(InfoServLangMngrTest, TheRepeatChosenIsTheSecondSlotOfTheLanguageInSlotOrder)
{
    Slots slotList;
    for (int i = 0; i < 40; ++i)
        slotList.push_back(i % 2 == 0 ? 7 : FRENCH);
    MSGCTR_ENG_InfoServLangMngr_S manager = loaded(slotList);
    EXPECT_EQ(manager.activateLang(SPANISH, true), 0);
    Slots expected = slotList;
    expected[3] = SPANISH;
    EXPECT_EQ(ZorHost::cbLanguageSlots(), expected);
}

TEST_F(InfoServLangMngrTest, SortIsStableByLanguage)
{
    MSGCTR_ENG_InfoServLangMngr_S manager = loaded({9, 2, 9, 2, 5});
    manager.sort();
    const unsigned char ids[] = {2, 2, 5, 9, 9};
    const unsigned short slotsInOrder[] = {1, 3, 4, 0, 2};
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(manager.m_vecLangIDAndIndex[size_t(i)].m_langID, ids[i]);
        EXPECT_EQ(manager.m_vecLangIDAndIndex[size_t(i)].m_nIndex, slotsInOrder[i]);
    }
}

TEST_F(InfoServLangMngrTest, ContainsGivesThePosition)
{
    MSGCTR_ENG_InfoServLangMngr_S manager = loaded({FRENCH, GERMAN});
    int pos = 99;
    EXPECT_TRUE(manager.containsLangID(&pos, GERMAN));
    EXPECT_EQ(pos, 1);
    EXPECT_FALSE(manager.containsLangID(&pos, SPANISH));
    EXPECT_EQ(pos, -1);
    EXPECT_TRUE(manager.containsLangID(FRENCH));
}

} // namespace
