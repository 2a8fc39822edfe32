#include "HostRootTest.h"

#include "MSGCTR_ENG_SetupInfo.h"
#include "ZorHostControl.h"

#include <QRegularExpression>

#include <cerrno>
#include <memory>
#include <string>
#include <vector>

namespace {

using Info = MSGCTR_ENG_SetupInfo;
using Pair = Info::WAP_PPG_INFO_S;

const QString WAP = QStringLiteral("GROUP_MSGCTR_WAP");

// Report lines as "file [function] text", without the line and the ticks.
std::vector<std::string> masked(const QStringList& lines)
{
    static const QRegularExpression prefix(QStringLiteral("^([\\w.]+)\\(\\d+\\)(\\[\\w+\\])\\d+: "));
    std::vector<std::string> out;
    for (QString line : lines)
        out.push_back(line.replace(prefix, QStringLiteral("\\1 \\2 ")).toStdString());
    return out;
}

std::vector<std::string> describe(const std::vector<Pair>& pairs)
{
    std::vector<std::string> out;
    for (const Pair& pair : pairs)
        out.push_back("[" + pair.m_strSmsc.toStdString() + "|" + pair.m_strPpg.toStdString() + "]");
    return out;
}

Pair pair(const char* smsc, const char* ppg)
{
    Pair p;
    p.m_strSmsc = QString::fromUtf8(smsc);
    p.m_strPpg = QString::fromUtf8(ppg);
    return p;
}

const std::string kMild = "WAP_PPG_INFO_S.cpp [validateData]  warning ! mild_assert fail at \"isValid()\"; ";

class PushTest : public HostRootTest {
protected:
    void store(const QString& key, const QString& text)
    {
        MSGCTR_ENG_Setup setup(MSGCTR_ENG_Setup::MSGCTR_APP_ID, MSGCTR_ENG_Setup::FLUSH_MODE__FLUSH);
        ASSERT_EQ(setup.setEntry(WAP, key, text, false), 0);
    }
    QString stored(const QString& key)
    {
        MSGCTR_ENG_Setup setup(MSGCTR_ENG_Setup::MSGCTR_APP_ID, MSGCTR_ENG_Setup::FLUSH_MODE__FLUSH);
        QString text = QStringLiteral("<missing>");
        setup.getEntry(WAP, key, &text, QStringLiteral("<missing>"), false);
        return text;
    }
    void SetUp() override
    {
        HostRootTest::SetUp();
        m_info = std::make_unique<Info>(MSGCTR_ENG_Setup::FLUSH_MODE__FLUSH);
    }
    void TearDown() override
    {
        m_info.reset();
        HostRootTest::TearDown();
    }
    // Opened in this test's own root.
    Info& info() { return *m_info; }

private:
    std::unique_ptr<Info> m_info;
};

TEST_F(PushTest, PairWithBlanksReadsValidatedWithoutAReport)
{
    store(QStringLiteral("WAP_ALLOWED_PPG_S"), QStringLiteral(" 123 , gw "));
    EXPECT_EQ(describe(info().getWapAllowedPpgS()), (std::vector<std::string>{"[123|gw]"}));
    EXPECT_EQ(masked(reportLines()), std::vector<std::string>());
}

TEST_F(PushTest, PartWithThreeFieldsIsReportedAndGivesAnEmptyPair)
{
    store(QStringLiteral("WAP_ALLOWED_PPG_S"), QStringLiteral("a,b,c;456,gw2"));
    EXPECT_EQ(describe(info().getWapAllowedPpgS()), (std::vector<std::string>{"[|]", "[456|gw2]"}));
    EXPECT_EQ(masked(reportLines()),
              (std::vector<std::string>{
                  "MSGCTR_ENG_SetupInfo_Push.cpp [toPair] assert fail at \"false\"; str = \"a,b,c\"(QString, len=5), ",
                  kMild,
              }));
}

TEST_F(PushTest, PartWithOneFieldIsReportedAndEmptyPartsAreSkipped)
{
    store(QStringLiteral("WAP_ALLOWED_PPG_S"), QStringLiteral(";;123;"));
    EXPECT_EQ(describe(info().getWapAllowedPpgS()), (std::vector<std::string>{"[|]"}));
    EXPECT_EQ(masked(reportLines()).size(), 2u);
}

TEST_F(PushTest, NothingStoredIsNoPairs)
{
    EXPECT_TRUE(info().getWapAllowedPpgS().empty());
    EXPECT_EQ(info().getOperaPushWhitelist(), QStringLiteral("*"));
}

TEST_F(PushTest, PairsAreWrittenJoinedBySemicolons)
{
    EXPECT_EQ(info().setWapAllowedPpgS({pair("123", "gw"), pair(" 456 ", "gw2")}), 0);
    EXPECT_EQ(stored(QStringLiteral("WAP_ALLOWED_PPG_S")), QStringLiteral("123,gw;456,gw2"));
    EXPECT_EQ(masked(reportLines()), std::vector<std::string>());
    EXPECT_EQ(info().setWapAllowedPpgS({}), 0);
    EXPECT_EQ(stored(QStringLiteral("WAP_ALLOWED_PPG_S")), QStringLiteral(""));
}

TEST_F(PushTest, InvalidPairIsReportedAndWrittenValidated)
{
    EXPECT_EQ(info().setWapAllowedPpgS({pair("1;2", "g,w")}), 0);
    EXPECT_EQ(stored(QStringLiteral("WAP_ALLOWED_PPG_S")), QStringLiteral("12,gw"));
    EXPECT_EQ(masked(reportLines()),
              (std::vector<std::string>{
                  "MSGCTR_ENG_SetupInfo_Push.cpp [toText] assert fail at \"newPpg.isValid()\"; "
                  "newPpg.m_strSmsc = \"1;2\"(QString, len=3), newPpg.m_strPpg = \"g,w\"(QString, len=3), ",
                  kMild,
              }));
}

TEST_F(PushTest, PairThatTheStoreCannotKeepGivesTheWriteError)
{
    EXPECT_EQ(info().setWapAllowedPpgS({pair("1=2", "gw")}), MSGCTR_ERRCODE__SETUP_INVALID_CHAR);
    EXPECT_EQ(stored(QStringLiteral("WAP_ALLOWED_PPG_S")), QStringLiteral("<missing>"));
    EXPECT_EQ(masked(reportLines()).back(),
              "MSGCTR_ENG_SetupInfo_Push.cpp [setWapAllowedPpgS] assert fail at "
              "\"MSGCTR_ERRCODE_IS_SUCCESS(msgctrErrcode)\"; msgctrErrcode = 10020(S32,4), ");
}

TEST_F(PushTest, WhitelistReadsTheTenKeysInOrderAndSkipsEmptyOnes)
{
    store(QStringLiteral("WHITELIST_PAIR10"), QStringLiteral("10,gw10"));
    store(QStringLiteral("WHITELIST_PAIR1"), QStringLiteral(" 1 ,gw1"));
    store(QStringLiteral("WHITELIST_PAIR2"), QString(QLatin1String("")));
    store(QStringLiteral("WHITELIST_PAIR5"), QStringLiteral("5,gw5"));
    store(QStringLiteral("WHITELIST_PAIR11"), QStringLiteral("11,gw11"));
    store(QStringLiteral("WHITELIST_PAIR"), QStringLiteral("0,gw0"));
    EXPECT_EQ(describe(info().getWapWhitelistPairS()),
              (std::vector<std::string>{"[1|gw1]", "[5|gw5]", "[10|gw10]"}));
    EXPECT_EQ(masked(reportLines()), std::vector<std::string>());
}

TEST_F(PushTest, WhitelistPairWithoutAGatewayIsReported)
{
    store(QStringLiteral("WHITELIST_PAIR3"), QStringLiteral("123"));
    EXPECT_EQ(describe(info().getWapWhitelistPairS()), (std::vector<std::string>{"[|]"}));
    EXPECT_EQ(masked(reportLines()),
              (std::vector<std::string>{
                  "MSGCTR_ENG_SetupInfo_Push.cpp [toPair] assert fail at \"false\"; str = \"123\"(QString, len=3), ",
                  kMild,
              }));
}

struct FilterCase {
    const char* name;
    int mode;
    const char* filter;
};

class PushFilterTest : public PushTest, public ::testing::WithParamInterface<FilterCase> {};

TEST_P(PushFilterTest, BrowserFilterFollowsTheMode)
{
    store(QStringLiteral("WAP_ALLOWED_PPG_S"), QStringLiteral("123,gw;456,gw2"));
    MSGCTR_ENG_Setup setup(MSGCTR_ENG_Setup::MSGCTR_APP_ID, MSGCTR_ENG_Setup::FLUSH_MODE__FLUSH);
    ASSERT_EQ(setup.setEntry(WAP, QStringLiteral("WAP_ALLOWED_PUSH_SMSC_MODE"), GetParam().mode), 0);
    const QString filter = info().getOperaPushWhitelist();
    EXPECT_EQ(filter.toStdString(), GetParam().filter);
    EXPECT_FALSE(filter.isNull());
}

INSTANTIATE_TEST_SUITE_P(Modes, PushFilterTest,
                         ::testing::Values(FilterCase{"Off", 0, ""}, FilterCase{"ReceiveAll", 1, "*"},
                                           FilterCase{"Restricted", 2, "123,gw 456,gw2"},
                                           FilterCase{"OutOfRange", 3, "*"}),
                         [](const ::testing::TestParamInfo<FilterCase>& info) { return std::string(info.param.name); });

TEST_F(PushTest, ServiceCentreListIsStoredWithEmptyGatewaysAndReported)
{
    EXPECT_EQ(info().setStrlistWapAllowedPushSmsc({QStringLiteral("123"), QStringLiteral(" 456")}), 0);
    EXPECT_EQ(stored(QStringLiteral("WAP_ALLOWED_PPG_S")), QStringLiteral("123,;456,"));
    EXPECT_EQ(masked(reportLines()).size(), 4u);
    EXPECT_EQ(info().getStrlistWapAllowedPushSmsc(), (QStringList{QStringLiteral("123"), QStringLiteral("456")}));
}

TEST_F(PushTest, ServiceCentreListIsValidWhenEveryEntryIs)
{
    EXPECT_TRUE(Info::isValidSmscList({}));
    EXPECT_TRUE(Info::isValidSmscList({QStringLiteral("123"), QStringLiteral(" 456 ")}));
    EXPECT_FALSE(Info::isValidSmscList({QStringLiteral("123"), QStringLiteral(" ")}));
    EXPECT_FALSE(Info::isValidSmscList({QStringLiteral("1,2")}));
}

TEST_F(PushTest, ModeThreeIsStoredAfterTheReport)
{
    EXPECT_EQ(info().setWapAllowedPushSmscMode(3), 0);
    MSGCTR_ENG_Setup setup(MSGCTR_ENG_Setup::MSGCTR_APP_ID, MSGCTR_ENG_Setup::FLUSH_MODE__FLUSH);
    int mode = -1;
    setup.getEntry(WAP, QStringLiteral("WAP_ALLOWED_PUSH_SMSC_MODE"), &mode, -1);
    EXPECT_EQ(mode, 3);
    EXPECT_EQ(masked(reportLines()),
              (std::vector<std::string>{
                  "MSGCTR_ENG_SetupInfo.cpp [setWapAllowedPushSmscMode] assert fail at "
                  "\"WAP_ALLOWED_PUSH_SMSC_MODE__OFF == nMode || WAP_ALLOWED_PUSH_SMSC_MODE__RECEIVE_ALL == nMode || "
                  "WAP_ALLOWED_PUSH_SMSC_MODE__RESTRICTED == nMode\"; nMode = 3(S32,4), ",
              }));
}

} // namespace
