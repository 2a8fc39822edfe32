#include "HostRootTest.h"

#include "MSGCTR_ENG_SetupInfo.h"

#include <string>

namespace {

using Pair = MSGCTR_ENG_SetupInfo::WAP_PPG_INFO_S;

struct FieldCase {
    const char* name;
    const char* field;
    bool valid;
    const char* validated;
};

class PushPairFieldTest : public ::testing::TestWithParam<FieldCase> {};

TEST_P(PushPairFieldTest, ValidityAndValidatedForm)
{
    const QString field = QString::fromUtf8(GetParam().field);
    EXPECT_EQ(Pair::isValidInput(field), GetParam().valid);
    EXPECT_EQ(Pair::isValidSmsc(field), GetParam().valid);
    EXPECT_EQ(Pair::isValidPpg(field), GetParam().valid);
    EXPECT_EQ(Pair::getValidatedData(field).toStdString(), GetParam().validated);
}

INSTANTIATE_TEST_SUITE_P(Fields, PushPairFieldTest,
                         ::testing::Values(FieldCase{"Number", "123", true, "123"},
                                           FieldCase{"BlanksAround", " 123 ", true, "123"},
                                           FieldCase{"BlankInside", "a b", true, "a b"},
                                           FieldCase{"Empty", "", false, ""},
                                           FieldCase{"OnlyBlanks", "   ", false, ""},
                                           FieldCase{"Comma", "1,2", false, "12"},
                                           FieldCase{"Semicolon", " 1;2 ", false, "12"},
                                           FieldCase{"CommaAtTheEnd", "gw ,", false, "gw "}),
                         [](const ::testing::TestParamInfo<FieldCase>& info) { return std::string(info.param.name); });

class PushPairTest : public HostRootTest {};

TEST_F(PushPairTest, DefaultPairIsEmptyAndInvalid)
{
    Pair pair;
    EXPECT_TRUE(pair.m_strSmsc.isEmpty());
    EXPECT_TRUE(pair.m_strPpg.isEmpty());
    EXPECT_FALSE(pair.isValid());
}

TEST_F(PushPairTest, ValidPairIsTrimmedWithoutAReport)
{
    Pair pair;
    pair.m_strSmsc = QStringLiteral(" 123 ");
    pair.m_strPpg = QStringLiteral(" gw ");
    EXPECT_TRUE(pair.isValid());
    pair.validateData();
    EXPECT_EQ(pair.m_strSmsc, QStringLiteral("123"));
    EXPECT_EQ(pair.m_strPpg, QStringLiteral("gw"));
    EXPECT_EQ(reportLines(), QStringList());
}

TEST_F(PushPairTest, InvalidPairIsReportedMildlyAndStillValidated)
{
    Pair pair;
    pair.m_strSmsc = QStringLiteral("1;2");
    pair.m_strPpg = QStringLiteral("gw");
    pair.validateData();
    EXPECT_EQ(pair.m_strSmsc, QStringLiteral("12"));
    EXPECT_EQ(pair.m_strPpg, QStringLiteral("gw"));
    const QStringList lines = reportLines();
    ASSERT_EQ(lines.size(), 1);
    EXPECT_TRUE(lines[0].endsWith(QStringLiteral(":  warning ! mild_assert fail at \"isValid()\"; "))) << lines[0].toStdString();
    EXPECT_TRUE(lines[0].startsWith(QStringLiteral("WAP_PPG_INFO_S.cpp("))) << lines[0].toStdString();
}

} // namespace
