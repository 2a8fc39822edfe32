#include "HostRootTest.h"

#include "MSGCTR_ENG_TAPI.h"
#include "ZorHostControl.h"
#include "ZorHostTapiControl.h"

#include <QRegularExpression>

#include <string>
#include <vector>

namespace {

// Report lines as "[function] text": the source file and line, the ticks and the platform array addresses
// (which differ from run to run; null stays as it is) are masked.
std::vector<std::string> masked(const QStringList& lines)
{
    static const QRegularExpression prefix(QStringLiteral("^MSGCTR_ENG_TAPI_CellBroadcast\\.cpp\\(\\d+\\)(\\[\\w+\\])\\d+: "));
    static const QRegularExpression pointer(QStringLiteral("0x(?!0+\\()[0-9A-F]{8,16}\\(void\\*,4\\)"));
    std::vector<std::string> out;
    for (QString line : lines) {
        line.replace(prefix, QStringLiteral("\\1 "));
        line.replace(pointer, QStringLiteral("<P>(void*,4)"));
        out.push_back(line.toStdString());
    }
    return out;
}

std::vector<unsigned short> subscribed()
{
    int count = 0;
    unsigned short* list = nullptr;
    EXPECT_EQ(TAPI_CB_GetChannelsEx(&count, &list), TAPI_RESULT_SUCC);
    std::vector<unsigned short> channels(list, list + count);
    free(list);
    return channels;
}

class TapiCellBroadcastTest : public HostRootTest {};

TEST_F(TapiCellBroadcastTest, StateRoundTripsUnchangedWithItsTraces)
{
    EXPECT_EQ(MSGCTR_ENG_TAPI::errcodeCbSetCbState(7), 0);
    unsigned char state = 99;
    EXPECT_EQ(MSGCTR_ENG_TAPI::errcodeCbGetCbState(&state), 0);
    EXPECT_EQ(state, 7);
    EXPECT_EQ(masked(reportLines()),
              (std::vector<std::string>{
                  "[errcodeCbSetCbState] cbState = 7/0x07(U8,1), ",
                  "[errcodeCbSetCbState] cbState = 7/0x07(U8,1), tapiResult = 0(S32,4), ",
                  "[errcodeCbGetCbState] cbState = 0/0x00(U8,1), ",
                  "[errcodeCbGetCbState] cbState = 7/0x07(U8,1), tapiResult = 0(S32,4), ",
              }));
}

TEST_F(TapiCellBroadcastTest, FailedStateReadStillWritesTheOutputByte)
{
    ZorHost::injectFault(QStringLiteral("TAPI_CB_GetStatus"), 7);
    unsigned char state = 99;
    EXPECT_EQ(MSGCTR_ENG_TAPI::errcodeCbGetCbState(&state), 100007);
    EXPECT_EQ(state, 0);
    EXPECT_EQ(masked(reportLines()).back(),
              "[errcodeCbGetCbState] assert fail at \"false\"; msgctrErrcode = 100007(S32,4), "
              "cbState = 0/0x00(U8,1), tapiResult = 7(S32,4), ");
}

TEST_F(TapiCellBroadcastTest, AddingChannel65535ReportsTheRangeAndStillAsksThePlatform)
{
    EXPECT_EQ(MSGCTR_ENG_TAPI::errcodeCbAddCbChannel(65535), 10084);
    EXPECT_EQ(ZorHost::callCount(QStringLiteral("TAPI_CB_AddChannel")), 1);
    const std::vector<std::string> lines = masked(reportLines());
    ASSERT_FALSE(lines.empty());
    EXPECT_EQ(lines.front(), "[errcodeCbAddCbChannel] assert fail at \"cbChannelNumberIsInValidRange( nChannelNumber )\"; "
                             "nChannelNumber = 65535/0xFFFF(U16,2), ");
}

TEST_F(TapiCellBroadcastTest, RemovingChannel65535ReportsTheRangeAndStillAsksThePlatform)
{
    EXPECT_NE(MSGCTR_ENG_TAPI::errcodeCbRemoveCbChannel(65535), 0);
    EXPECT_EQ(ZorHost::callCount(QStringLiteral("TAPI_CB_DeleteChannel")), 1);
    EXPECT_EQ(masked(reportLines()).front(),
              "[errcodeCbRemoveCbChannel] assert fail at \"cbChannelNumberIsInValidRange( nChannelNumber )\"; "
              "nChannelNumber = 65535/0xFFFF(U16,2), ");
}

TEST_F(TapiCellBroadcastTest, ChannelZeroIsInRange)
{
    EXPECT_TRUE(MSGCTR_ENG_TAPI::cbChannelNumberIsInValidRange(0));
    EXPECT_TRUE(MSGCTR_ENG_TAPI::cbChannelNumberIsInValidRange(65534));
    EXPECT_FALSE(MSGCTR_ENG_TAPI::cbChannelNumberIsInValidRange(65535));
    EXPECT_EQ(MSGCTR_ENG_TAPI::errcodeCbAddCbChannel(0), 0);
    EXPECT_EQ(subscribed(), (std::vector<unsigned short>{0}));
    EXPECT_EQ(masked(reportLines()),
              (std::vector<std::string>{
                  "[errcodeCbAddCbChannel] nChannelNumber = 0/0x0000(U16,2), ",
                  "[errcodeCbAddCbChannel] nChannelNumber = 0/0x0000(U16,2), tapiResult = 0(S32,4), ",
              }));
}

TEST_F(TapiCellBroadcastTest, ChannelsAreAddedListedInOrderAndRemoved)
{
    for (unsigned short n : {4370, 50, 919})
        ASSERT_EQ(MSGCTR_ENG_TAPI::errcodeCbAddCbChannel(n), 0);
    ASSERT_EQ(MSGCTR_ENG_TAPI::errcodeCbRemoveCbChannel(50), 0);
    takeReportLines();
    std::vector<unsigned short> channels{1, 2};
    EXPECT_EQ(MSGCTR_ENG_TAPI::errcodeCbListCbChannels(&channels), 0);
    EXPECT_EQ(channels, (std::vector<unsigned short>{4370, 919}));
    EXPECT_EQ(masked(reportLines()),
              (std::vector<std::string>{
                  "[errcodeCbListCbChannels] pListChannel = 0x00000000(void*,4), nChannelCount = 0(S32,4), ",
                  "[errcodeCbListCbChannels] pListChannel = <P>(void*,4), nChannelCount = 2(S32,4), "
                  "tapiResult = 0(S32,4), ",
                  "[errcodeCbListCbChannels] rChannelsOutput = { Total (2) item(s),4370/0x1112(U16,2), "
                  "919/0x0397(U16,2),  }, ",
              }));
}

TEST_F(TapiCellBroadcastTest, FailedChannelListIsEmptyAndReported)
{
    ASSERT_EQ(MSGCTR_ENG_TAPI::errcodeCbAddCbChannel(50), 0);
    takeReportLines();
    ZorHost::injectFault(QStringLiteral("TAPI_CB_GetChannelsEx"), 819);
    std::vector<unsigned short> channels{1};
    EXPECT_EQ(MSGCTR_ENG_TAPI::errcodeCbListCbChannels(&channels), 10010);
    EXPECT_TRUE(channels.empty());
    const std::vector<std::string> lines = masked(reportLines());
    ASSERT_EQ(lines.size(), 4u);
    EXPECT_EQ(lines[2], "[errcodeCbListCbChannels] assert fail at \"false\"; msgctrErrcode = 10010(S32,4), "
                        "pListChannel = <P>(void*,4), nChannelCount = 0(S32,4), tapiResult = 819(S32,4), ");
    EXPECT_EQ(lines[3], "[errcodeCbListCbChannels] rChannelsOutput = { Total (0) item(s), }, ");
}

TEST_F(TapiCellBroadcastTest, ChannelListWithACountButNoArrayIsEmptyAndReported)
{
    ZorHost::setTapiCbListsNullWithCount(3);
    std::vector<unsigned short> channels{1};
    EXPECT_EQ(MSGCTR_ENG_TAPI::errcodeCbListCbChannels(&channels), 0);
    ZorHost::setTapiCbListsNullWithCount(-1);
    EXPECT_TRUE(channels.empty());
    EXPECT_EQ(masked(reportLines()),
              (std::vector<std::string>{
                  "[errcodeCbListCbChannels] pListChannel = 0x00000000(void*,4), nChannelCount = 0(S32,4), ",
                  "[errcodeCbListCbChannels] pListChannel = 0x00000000(void*,4), nChannelCount = 3(S32,4), "
                  "tapiResult = 0(S32,4), ",
                  "[errcodeCbListCbChannels] assert fail at \"nChannelCount <= 0\"; nChannelCount = 3(S32,4), ",
                  "[errcodeCbListCbChannels] rChannelsOutput = { Total (0) item(s), }, ",
              }));
}

TEST_F(TapiCellBroadcastTest, LanguageListWithACountButNoArrayIsEmptyWithoutAReport)
{
    ZorHost::setTapiCbListsNullWithCount(3);
    std::vector<unsigned char> languages{1};
    EXPECT_EQ(MSGCTR_ENG_TAPI::errcodeCbListCbLanguages(&languages), 0);
    ZorHost::setTapiCbListsNullWithCount(-1);
    EXPECT_TRUE(languages.empty());
    EXPECT_EQ(masked(reportLines()),
              (std::vector<std::string>{
                  "[errcodeCbListCbLanguages] pListLanguage = 0x00000000(void*,4), nLanguageCount = 0(S32,4), ",
                  "[errcodeCbListCbLanguages] pListLanguage = 0x00000000(void*,4), nLanguageCount = 3(S32,4), "
                  "tapiResult = 0(S32,4), ",
                  "[errcodeCbListCbLanguages] rLanguagesOutput = { Total (0) item(s), }, ",
              }));
}

TEST_F(TapiCellBroadcastTest, LanguagesComeInSlotOrderAndOneSlotIsEdited)
{
    ASSERT_TRUE(ZorHost::setCbLanguageSlots({1, 1, 0, 3}));
    EXPECT_EQ(MSGCTR_ENG_TAPI::errcodeCbEditCbLanguage(1, 4), 0);
    EXPECT_EQ(ZorHost::cbLanguageSlots(), (std::vector<unsigned char>{1, 4, 0, 3}));
    takeReportLines();
    std::vector<unsigned char> languages;
    EXPECT_EQ(MSGCTR_ENG_TAPI::errcodeCbListCbLanguages(&languages), 0);
    EXPECT_EQ(languages, (std::vector<unsigned char>{1, 4, 0, 3}));
    EXPECT_EQ(masked(reportLines()).back(),
              "[errcodeCbListCbLanguages] rLanguagesOutput = { Total (4) item(s),1/0x01(U8,1), 4/0x04(U8,1), "
              "0/0x00(U8,1), 3/0x03(U8,1),  }, ");
}

TEST_F(TapiCellBroadcastTest, EditingASlotPastTheLastIsReportedWithItsArguments)
{
    ASSERT_TRUE(ZorHost::setCbLanguageSlots({1, 0}));
    EXPECT_EQ(MSGCTR_ENG_TAPI::errcodeCbEditCbLanguage(2, 4), 10084);
    EXPECT_EQ(masked(reportLines()).back(),
              "[errcodeCbEditCbLanguage] assert fail at \"false\"; msgctrErrcode = "
                  + std::to_string(10084)
                  + "(S32,4), nIndexOfLanguage = 2/0x0002(U16,2), language = 4/0x04(U8,1), tapiResult = "
                  + std::to_string(TAPI_RESULT_INVALID_PARAM) + "(S32,4), ");
}

TEST_F(TapiCellBroadcastTest, DuplicateTestAsksThePlatformList)
{
    ASSERT_EQ(MSGCTR_ENG_TAPI::errcodeCbAddCbChannel(50), 0);
    EXPECT_TRUE(MSGCTR_ENG_TAPI::cbChannelNumberIsDuplicated(50));
    EXPECT_FALSE(MSGCTR_ENG_TAPI::cbChannelNumberIsDuplicated(51));
}

TEST_F(TapiCellBroadcastTest, DuplicateTestWithAFailedListIsReportedAndFalse)
{
    ASSERT_EQ(MSGCTR_ENG_TAPI::errcodeCbAddCbChannel(50), 0);
    ZorHost::injectFault(QStringLiteral("TAPI_CB_GetChannelsEx"), 819);
    takeReportLines();
    EXPECT_FALSE(MSGCTR_ENG_TAPI::cbChannelNumberIsDuplicated(50));
    EXPECT_EQ(masked(reportLines()).back(),
              "[cbChannelNumberIsDuplicated] assert fail at "
              "\"MSGCTR_ERRCODE_IS_SUCCESS( errcodeCbListCbChannels( &channels ) )\"; ");
}

TEST_F(TapiCellBroadcastTest, InsideLooksForTheNumber)
{
    EXPECT_TRUE(MSGCTR_ENG_TAPI::cbChannelNumberIsInside(919, {50, 919}));
    EXPECT_FALSE(MSGCTR_ENG_TAPI::cbChannelNumberIsInside(919, {}));
}

struct StorageCase {
    unsigned int value;
    bool valid;
};

class TapiPreferredStorageTest : public ::testing::TestWithParam<StorageCase> {};

TEST_P(TapiPreferredStorageTest, OnlyZeroToTwoAreValid)
{
    EXPECT_EQ(MSGCTR_ENG_TAPI::preferredMsgStorageValueIsValid(GetParam().value), GetParam().valid);
}

INSTANTIATE_TEST_SUITE_P(Values, TapiPreferredStorageTest,
                         ::testing::Values(StorageCase{0, true}, StorageCase{1, true}, StorageCase{2, true},
                                           StorageCase{3, false}, StorageCase{4294967295u, false}),
                         [](const ::testing::TestParamInfo<StorageCase>& info) {
                             return "Value" + std::to_string(info.param.value);
                         });

} // namespace
