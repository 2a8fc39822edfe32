#include "HostRootTest.h"

#include "MSGCTR_ENG_SetupInfo.h"

#include <QRegularExpression>

#include <string>
#include <vector>

namespace {

using ChannelInfo = MSGCTR_ENG_SetupInfo::INFO_SERV_CHNL_INFO_S;

// Report lines as "[function] text", without source file, line and ticks.
std::vector<std::string> masked(const QStringList& lines)
{
    static const QRegularExpression prefix(QStringLiteral("^[\\w.]+\\(\\d+\\)(\\[\\w+\\])\\d+: "));
    std::vector<std::string> out;
    for (QString line : lines)
        out.push_back(line.replace(prefix, QStringLiteral("\\1 ")).toStdString());
    return out;
}

ChannelInfo channel(int number, const QString& name, bool quickView, bool predefined)
{
    ChannelInfo info;
    info.m_nChannelNum = number;
    info.m_strChannelName = name;
    info.m_bQuickView = quickView;
    info.m_bPredefined = predefined;
    return info;
}

std::string fields(const ChannelInfo& info)
{
    return std::to_string(info.m_nChannelNum) + "|" + info.m_strChannelName.toStdString() + "|"
        + (info.m_bQuickView ? "quick" : "-") + "|" + (info.m_bPredefined ? "predefined" : "user");
}

class ChannelInfoTest : public HostRootTest {};

TEST_F(ChannelInfoTest, NewRecordIsChannelMinusOnePredefinedWithoutQuickView)
{
    EXPECT_EQ(fields(ChannelInfo()), "-1||-|predefined");
}

TEST_F(ChannelInfoTest, UserDefinedChannelHasBothFlagsOff)
{
    EXPECT_EQ(fields(ChannelInfo::toCiOfUserDefined(4370, QStringLiteral("My news"))), "4370|My news|-|user");
}

struct TextCase {
    const char* name;
    ChannelInfo info;
    const char* text;
};

class ChannelInfoTextTest : public HostRootTest, public ::testing::WithParamInterface<TextCase> {};

TEST_P(ChannelInfoTextTest, WritesTheFourFieldsAndReadsThemBack)
{
    QString text = QStringLiteral("old");
    EXPECT_TRUE(GetParam().info.toString(&text));
    EXPECT_EQ(text.toStdString(), GetParam().text);
    EXPECT_EQ(fields(ChannelInfo::toInfoServChnlInfo(text)), fields(GetParam().info));
    EXPECT_EQ(masked(reportLines()), std::vector<std::string>());
}

INSTANTIATE_TEST_SUITE_P(
    Records, ChannelInfoTextTest,
    ::testing::Values(TextCase{"LocalQuickViewPredefined", channel(50, QStringLiteral("Local"), true, true), "50,Local,1,1"},
                      TextCase{"UserDefined", channel(4370, QStringLiteral("My news"), false, false), "4370,My news,0,0"},
                      TextCase{"EmptyName", channel(0, QString(), false, true), "0,,0,1"},
                      TextCase{"NameWithSemicolon", channel(7, QStringLiteral("a;b"), true, false), "7,a;b,1,0"},
                      TextCase{"Negative", channel(-1, QStringLiteral("x"), false, true), "-1,x,0,1"}),
    [](const ::testing::TestParamInfo<TextCase>& info) { return std::string(info.param.name); });

TEST_F(ChannelInfoTest, NameWithACommaCannotBeWritten)
{
    QString text = QStringLiteral("old");
    EXPECT_FALSE(channel(9, QStringLiteral("A,B"), false, true).toString(&text));
    EXPECT_TRUE(text.isEmpty());
    EXPECT_FALSE(channel(9, QStringLiteral("A,B"), false, true).subToString(&text));
    EXPECT_EQ(masked(reportLines()),
              (std::vector<std::string>{
                  "[subToString] assert fail at \"false\"; m_strChannelName = \"A,B\"(QString, len=3), ",
                  "[subToString] assert fail at \"false\"; m_strChannelName = \"A,B\"(QString, len=3), ",
              }));
}

TEST_F(ChannelInfoTest, NumberAndNameOnlyKeepQuickViewOffAndPredefinedOn)
{
    EXPECT_EQ(fields(ChannelInfo::subToInfoServChnlInfo(QStringLiteral("7,News"))), "7|News|-|predefined");
    EXPECT_EQ(masked(reportLines()), std::vector<std::string>());
}

TEST_F(ChannelInfoTest, EmptyNameWithQuickViewReadsAndTheRoundTripIsReported)
{
    EXPECT_EQ(fields(ChannelInfo::toInfoServChnlInfo(QStringLiteral("12,,1"))), "12||quick|predefined");
    EXPECT_EQ(masked(reportLines()),
              (std::vector<std::string>{
                  "[toInfoServChnlInfo] assert fail at \"str == strNew\"; str = \"12,,1\"(QString, len=5), "
                  "strNew = \"12,,1,1\"(QString, len=7), ",
              }));
    QString text;
    EXPECT_TRUE(channel(12, QString(), true, true).toString(&text));
    EXPECT_EQ(text, QStringLiteral("12,,1,1"));
}

TEST_F(ChannelInfoTest, NonNumberAndMissingNameAreReported)
{
    EXPECT_EQ(fields(ChannelInfo::subToInfoServChnlInfo(QStringLiteral("abc"))), "0||-|predefined");
    EXPECT_EQ(masked(reportLines()),
              (std::vector<std::string>{
                  "[subToInfoServChnlInfo] assert fail at \"bOk\"; strlist[i] = \"abc\"(QString, len=3), ",
                  "[subToInfoServChnlInfo] assert fail at \"false\"; str = \"abc\"(QString, len=3), ",
              }));
}

TEST_F(ChannelInfoTest, FlagsOtherThanOneAreOff)
{
    EXPECT_EQ(fields(ChannelInfo::subToInfoServChnlInfo(QStringLiteral("5,x,yes,2"))), "5|x|-|user");
}

} // namespace
