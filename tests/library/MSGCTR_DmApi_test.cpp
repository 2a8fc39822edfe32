// DM results as MSGCTR_ERRCODE values, the error texts, and text to and from UTF-8.
#include <gtest/gtest.h>

#include "MSGCTR_DmApi.h"

#include <string>

namespace {

struct MappingCase {
    const char* name;
    int dmtResult;
    MSGCTR_ERRCODE expected;
};

class MSGCTR_DmApiMappingTest : public ::testing::TestWithParam<MappingCase> {};

TEST_P(MSGCTR_DmApiMappingTest, MapsThroughTheFirstMatchingRow)
{
    EXPECT_EQ(MSGCTR_DmApi::toMsgctrErrcodeFromDmtResult(GetParam().dmtResult), GetParam().expected);
    EXPECT_EQ(MSGCTR_DmApi::toMsgctrErrcodeFromDmtErrDes(PDmtErrorDescription(GetParam().dmtResult)),
              GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Results, MSGCTR_DmApiMappingTest,
    ::testing::Values(MappingCase{"SuccessIsZero", 0, 0}, MappingCase{"GeneralFailureIsTheFirstRowOfOne", 1, 10064},
                      MappingCase{"InvalidParameter", 23, 10065}, MappingCase{"OptionalFeature", 406, 10068},
                      MappingCase{"ReadOnly", 22, 10076}, MappingCase{"Constraint", 20, 10078},
                      MappingCase{"TwoHasNoRow", 2, 10081}, MappingCase{"NotFoundHasNoRow", 404, 10081},
                      MappingCase{"NegativeHasNoRow", -1, 10081}),
    [](const ::testing::TestParamInfo<MappingCase>& info) { return std::string(info.param.name); });

TEST(MSGCTR_DmApiTest, ResultOfADescriptionIsZeroOnSuccess)
{
    EXPECT_EQ(MSGCTR_DmApi::getDmtResultSafely(PDmtErrorDescription(0)), 0);
    EXPECT_EQ(MSGCTR_DmApi::getDmtResultSafely(PDmtErrorDescription(405)), 405);
}

TEST(MSGCTR_DmApiTest, ErrorTextIsEmptyForSuccessAndFixedForAnyFailure)
{
    EXPECT_EQ(MSGCTR_DmApi::getErrorTextSafely(PDmtErrorDescription(0)), QStringLiteral(""));
    EXPECT_FALSE(MSGCTR_DmApi::getErrorTextSafely(PDmtErrorDescription(0)).isNull());
    for (int code : {1, 20, 404, 12345})
        EXPECT_EQ(MSGCTR_DmApi::getErrorTextSafely(PDmtErrorDescription(code)),
                  QStringLiteral("Refer error code for detail."));
}

TEST(MSGCTR_DmApiTest, TextCrossesAsUtf8)
{
    const DMString utf8 = MSGCTR_DmApi::toUtf8DMString(QStringLiteral("\u00e9t\u00e9 \u20ac"));
    EXPECT_EQ(utf8.str(), "\xc3\xa9t\xc3\xa9 \xe2\x82\xac");
    EXPECT_EQ(MSGCTR_DmApi::toQStringFromUtf8DMString(DMString("\xc3\xa9t\xc3\xa9")), QStringLiteral("\u00e9t\u00e9"));
}

TEST(MSGCTR_DmApiTest, TextEndsAtTheFirstNul)
{
    EXPECT_EQ(MSGCTR_DmApi::toQStringFromUtf8DMString(DMString("ab\0cd", 5)), QStringLiteral("ab"));
}

} // namespace
