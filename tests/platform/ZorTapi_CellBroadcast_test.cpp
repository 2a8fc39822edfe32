// Cell broadcast of the telephony simulator: reception state, channels and language slots, and the malloc'ed
// lists that the caller frees (leaks show under AddressSanitizer).
#include "HostRootTest.h"
#include "TAPI.h"
#include "ZorHostControl.h"
#include "ZorHostTapiControl.h"

#include <cstdlib>
#include <vector>

namespace {

class ZorTapiCellBroadcast : public HostRootTest {};

struct Channels {
    int result;
    int count;
    bool listGiven;
    std::vector<unsigned short> values;
};

Channels channels()
{
    int count = -1;
    unsigned short* list = reinterpret_cast<unsigned short*>(0x1);
    const int r = TAPI_CB_GetChannelsEx(&count, &list);
    Channels c{r, count, list != nullptr, {}};
    if (r == TAPI_RESULT_SUCC && list)
        c.values.assign(list, list + count);
    std::free(list);
    return c;
}

struct Languages {
    int result;
    int count;
    bool listGiven;
    std::vector<unsigned char> values;
};

Languages languages()
{
    int count = -1;
    unsigned char* list = reinterpret_cast<unsigned char*>(0x1);
    const int r = TAPI_CB_GetLanguagesEx(&count, &list);
    Languages l{r, count, list != nullptr, {}};
    if (r == TAPI_RESULT_SUCC && list)
        l.values.assign(list, list + count);
    std::free(list);
    return l;
}

using Ch = std::vector<unsigned short>;
using Lang = std::vector<unsigned char>;

TEST_F(ZorTapiCellBroadcast, FactoryState)
{
    unsigned char state = 0xEE;
    EXPECT_EQ(TAPI_CB_GetStatus(&state), TAPI_RESULT_SUCC);
    EXPECT_EQ(state, 0);
    const Channels c = channels();
    EXPECT_EQ(c.result, TAPI_RESULT_SUCC);
    EXPECT_EQ(c.count, 0);
    EXPECT_TRUE(c.listGiven);
    EXPECT_EQ(languages().values, (Lang{1, 255, 255, 255, 255}));
}

TEST_F(ZorTapiCellBroadcast, StateBytePassesThrough)
{
    for (int v : {1, 2, 255, 0}) {
        ASSERT_EQ(TAPI_CB_SetStatus(static_cast<unsigned char>(v)), TAPI_RESULT_SUCC);
        unsigned char state = 0xEE;
        EXPECT_EQ(TAPI_CB_GetStatus(&state), TAPI_RESULT_SUCC);
        EXPECT_EQ(state, v);
    }
    EXPECT_EQ(TAPI_CB_GetStatus(nullptr), TAPI_RESULT_INVALID_PARAM);
}

TEST_F(ZorTapiCellBroadcast, ChannelsAddDeleteList)
{
    EXPECT_EQ(TAPI_CB_AddChannel(50), TAPI_RESULT_SUCC);
    EXPECT_EQ(TAPI_CB_AddChannel(0), TAPI_RESULT_SUCC);
    EXPECT_EQ(TAPI_CB_AddChannel(65534), TAPI_RESULT_SUCC);
    EXPECT_EQ(TAPI_CB_AddChannel(50), TAPI_RESULT_SUCC);
    EXPECT_EQ(channels().values, (Ch{50, 0, 65534}));
    EXPECT_EQ(TAPI_CB_DeleteChannel(0), TAPI_RESULT_SUCC);
    EXPECT_EQ(TAPI_CB_DeleteChannel(0), TAPI_RESULT_NOT_FOUND);
    EXPECT_EQ(channels().values, (Ch{50, 65534}));
}

TEST_F(ZorTapiCellBroadcast, Channel65535IsRefused)
{
    EXPECT_EQ(TAPI_CB_AddChannel(65535), TAPI_RESULT_INVALID_PARAM);
    EXPECT_EQ(TAPI_CB_DeleteChannel(65535), TAPI_RESULT_INVALID_PARAM);
    EXPECT_EQ(channels().count, 0);
    EXPECT_EQ(ZorHost::callCount(QStringLiteral("TAPI_CB_AddChannel")), 1);
}

TEST_F(ZorTapiCellBroadcast, ChannelListIsBounded)
{
    for (unsigned short c = 1; c <= TAPI_CB_MAX_CHANNELS; ++c)
        ASSERT_EQ(TAPI_CB_AddChannel(c), TAPI_RESULT_SUCC);
    EXPECT_EQ(TAPI_CB_AddChannel(1000), TAPI_RESULT_LIST_FULL);
    EXPECT_EQ(TAPI_CB_AddChannel(7), TAPI_RESULT_SUCC);
    const Channels c = channels();
    ASSERT_EQ(c.count, TAPI_CB_MAX_CHANNELS);
    EXPECT_EQ(c.values.front(), 1);
    EXPECT_EQ(c.values.back(), TAPI_CB_MAX_CHANNELS);
}

// A failing list call still hands over an array, which the caller frees: ASan reports a leak otherwise.
TEST_F(ZorTapiCellBroadcast, FailedListsStillHandOverAnArray)
{
    ZorHost::injectFault(QStringLiteral("TAPI_CB_GetChannelsEx"), 305);
    const Channels c = channels();
    EXPECT_EQ(c.result, 305);
    EXPECT_EQ(c.count, 0);
    EXPECT_TRUE(c.listGiven);
    ZorHost::injectFault(QStringLiteral("TAPI_CB_GetLanguagesEx"), 509);
    const Languages l = languages();
    EXPECT_EQ(l.result, 509);
    EXPECT_EQ(l.count, 0);
    EXPECT_TRUE(l.listGiven);
}

TEST_F(ZorTapiCellBroadcast, NullArgumentsOfListCalls)
{
    int count = -1;
    EXPECT_EQ(TAPI_CB_GetChannelsEx(&count, nullptr), TAPI_RESULT_INVALID_PARAM);
    EXPECT_EQ(count, 0);
    unsigned char* list = nullptr;
    EXPECT_EQ(TAPI_CB_GetLanguagesEx(nullptr, &list), TAPI_RESULT_INVALID_PARAM);
    EXPECT_NE(list, nullptr);
    std::free(list);
}

TEST_F(ZorTapiCellBroadcast, NullListWithCountHook)
{
    ASSERT_EQ(TAPI_CB_AddChannel(4), TAPI_RESULT_SUCC);
    ZorHost::setTapiCbListsNullWithCount(3);
    const Channels c = channels();
    EXPECT_EQ(c.result, TAPI_RESULT_SUCC);
    EXPECT_EQ(c.count, 3);
    EXPECT_FALSE(c.listGiven);
    const Languages l = languages();
    EXPECT_EQ(l.count, 3);
    EXPECT_FALSE(l.listGiven);
    ZorHost::setTapiCbListsNullWithCount(-1);
    EXPECT_EQ(channels().values, Ch{4});
    ZorHost::setTapiCbListsNullWithCount(0);
    ZorHost::resetAll();
    EXPECT_TRUE(channels().listGiven);
}

TEST_F(ZorTapiCellBroadcast, LanguageSlotsAreWrittenOneAtATime)
{
    EXPECT_EQ(TAPI_CB_SetLanguage(2, 4), TAPI_RESULT_SUCC);
    EXPECT_EQ(TAPI_CB_SetLanguage(0, 16), TAPI_RESULT_SUCC);
    EXPECT_EQ(languages().values, (Lang{16, 255, 4, 255, 255}));
    EXPECT_EQ(TAPI_CB_SetLanguage(5, 1), TAPI_RESULT_INVALID_PARAM);
    EXPECT_EQ(ZorHost::cbLanguageSlots(), (Lang{16, 255, 4, 255, 255}));
}

TEST_F(ZorTapiCellBroadcast, SlotCountAndContentsAreControlled)
{
    ASSERT_TRUE(ZorHost::setCbLanguageSlots({1, 0, 3}));
    EXPECT_EQ(languages().values, (Lang{1, 0, 3}));
    EXPECT_EQ(TAPI_CB_SetLanguage(3, 1), TAPI_RESULT_INVALID_PARAM);
    ASSERT_TRUE(ZorHost::setCbLanguageSlotCount(5));
    EXPECT_EQ(languages().values, (Lang{1, 0, 3, 255, 255}));
    ASSERT_TRUE(ZorHost::setCbLanguageSlotCount(2));
    EXPECT_EQ(languages().values, (Lang{1, 0}));
    ASSERT_TRUE(ZorHost::setCbLanguageSlotCount(0));
    const Languages none = languages();
    EXPECT_EQ(none.result, TAPI_RESULT_SUCC);
    EXPECT_EQ(none.count, 0);
    EXPECT_TRUE(none.listGiven);
    EXPECT_FALSE(ZorHost::setCbLanguageSlotCount(-1));
    EXPECT_FALSE(ZorHost::setCbLanguageSlotCount(256));
    EXPECT_FALSE(ZorHost::setCbLanguageSlots(std::vector<unsigned char>(256, 1)));
}

TEST_F(ZorTapiCellBroadcast, InjectedFaultsChangeNothing)
{
    ZorHost::injectFault(QStringLiteral("TAPI_CB_AddChannel"), 509);
    ZorHost::injectFault(QStringLiteral("TAPI_CB_SetStatus"), 22);
    ZorHost::injectFault(QStringLiteral("TAPI_CB_SetLanguage"), 819);
    EXPECT_EQ(TAPI_CB_AddChannel(9), 509);
    EXPECT_EQ(TAPI_CB_SetStatus(1), 22);
    EXPECT_EQ(TAPI_CB_SetLanguage(0, 9), 819);
    EXPECT_EQ(channels().count, 0);
    unsigned char state = 0xEE;
    EXPECT_EQ(TAPI_CB_GetStatus(&state), TAPI_RESULT_SUCC);
    EXPECT_EQ(state, 0);
    EXPECT_EQ(languages().values[0], 1);
}

} // namespace
