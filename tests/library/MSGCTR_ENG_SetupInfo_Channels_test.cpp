#include "HostRootTest.h"

#include "MSGCTR_ENG_SetupInfo.h"
#include "ZorHostControl.h"

#include <QFile>
#include <QRegularExpression>

#include <cerrno>
#include <memory>
#include <string>
#include <vector>

namespace {

using Info = MSGCTR_ENG_SetupInfo;
using ChannelList = Info::InfoServAllChnlInfo;
using ChannelInfo = Info::INFO_SERV_CHNL_INFO_S;

std::vector<std::string> masked(const QStringList& lines)
{
    static const QRegularExpression prefix(QStringLiteral("^[\\w.]+\\(\\d+\\)(\\[\\w+\\])\\d+: "));
    std::vector<std::string> out;
    for (QString line : lines)
        out.push_back(line.replace(prefix, QStringLiteral("\\1 ")).toStdString());
    return out;
}

std::vector<std::string> describe(const ChannelList& list)
{
    std::vector<std::string> out;
    for (const ChannelInfo& info : list)
        out.push_back(std::to_string(info.m_nChannelNum) + " " + info.m_strChannelName.toStdString()
                      + (info.m_bQuickView ? " quick" : "") + (info.m_bPredefined ? " predefined" : " user"));
    return out;
}

class ChannelListTest : public HostRootTest {
protected:
    QString storedText()
    {
        MSGCTR_ENG_Setup store(MSGCTR_ENG_Setup::MSGCTR_APP_ID, MSGCTR_ENG_Setup::FLUSH_MODE__FLUSH);
        QString text = QStringLiteral("<missing>");
        store.getEntry(QStringLiteral("GROUP_MSGCTR_INFO_SERV"), QStringLiteral("INFO_SERV_CHANNEL_LIST"), &text,
                       QStringLiteral("<missing>"), false);
        return text;
    }
    void storeText(const QString& text)
    {
        MSGCTR_ENG_Setup store(MSGCTR_ENG_Setup::MSGCTR_APP_ID, MSGCTR_ENG_Setup::FLUSH_MODE__FLUSH);
        ASSERT_EQ(store.setEntry(QStringLiteral("GROUP_MSGCTR_INFO_SERV"), QStringLiteral("INFO_SERV_CHANNEL_LIST"),
                                 text, false),
                  0);
    }
    QByteArray storeBytes()
    {
        SETUP_SET_Manager store(AM_Global::APP_MESSAGING, true);
        QFile file(store.fileName());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<no file>");
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

TEST_F(ChannelListTest, NothingStoredIsAnEmptyList)
{
    EXPECT_TRUE(info().getInfoServAllChnlInfo().empty());
}

TEST_F(ChannelListTest, StoredListIsWrittenAndReadBack)
{
    ChannelList list;
    ChannelInfo local;
    local.m_nChannelNum = 50;
    local.m_strChannelName = QStringLiteral("Local");
    list.addChannelNum(local);
    ChannelInfo news = ChannelInfo::toCiOfUserDefined(4370, QStringLiteral("My news"));
    news.m_bQuickView = true;
    list.addChannelNum(news);
    EXPECT_EQ(info().setInfoServAllChnlInfo(list), 0);
    EXPECT_EQ(storedText(), QStringLiteral("50,Local,0,1;4370,My news,1,0"));
    Info later(MSGCTR_ENG_Setup::FLUSH_MODE__NOT_FLUSH);
    EXPECT_EQ(describe(later.getInfoServAllChnlInfo()),
              (std::vector<std::string>{"50 Local predefined", "4370 My news quick user"}));
    EXPECT_EQ(masked(reportLines()), std::vector<std::string>());
}

TEST_F(ChannelListTest, NumberAndNameReadAsPredefinedWithoutQuickView)
{
    storeText(QStringLiteral("50,News"));
    EXPECT_EQ(describe(info().getInfoServAllChnlInfo()), (std::vector<std::string>{"50 News predefined"}));
}

TEST_F(ChannelListTest, EmptyRecordsAreSkipped)
{
    storeText(QStringLiteral(";50,A,0,1;;7,B,1,0;"));
    EXPECT_EQ(describe(info().getInfoServAllChnlInfo()), (std::vector<std::string>{"50 A predefined", "7 B quick user"}));
}

struct RefusedCase {
    const char* name;
    const char* channelName;
};

class ChannelListRefusedTest : public ChannelListTest, public ::testing::WithParamInterface<RefusedCase> {};

TEST_P(ChannelListRefusedTest, WholeListIsRefusedAndTheStoreKeptByteForByte)
{
    ASSERT_EQ(info().addInfoServChannel(50, QStringLiteral("Local")), 0);
    const QByteArray before = storeBytes();
    ChannelList list = info().getInfoServAllChnlInfo();
    list.addChannelNum(ChannelInfo::toCiOfUserDefined(51, QString::fromUtf8(GetParam().channelName)));
    EXPECT_EQ(info().setInfoServAllChnlInfo(list), MSGCTR_ERRCODE__SETUP_INVALID_CHAR);
    EXPECT_EQ(storeBytes(), before);
    EXPECT_EQ(info().addInfoServChannel(52, QString::fromUtf8(GetParam().channelName)), MSGCTR_ERRCODE__SETUP_INVALID_CHAR);
    EXPECT_EQ(storeBytes(), before);
    EXPECT_EQ(storedText(), QStringLiteral("50,Local,0,0"));
}

INSTANTIATE_TEST_SUITE_P(Names, ChannelListRefusedTest,
                         ::testing::Values(RefusedCase{"Comma", "A,B"}, RefusedCase{"Semicolon", "A;B"},
                                           RefusedCase{"Equals", "A=B"}, RefusedCase{"Bracket", "[A]"},
                                           RefusedCase{"LineFeed", "A\nB"}),
                         [](const ::testing::TestParamInfo<RefusedCase>& info) { return std::string(info.param.name); });

TEST_F(ChannelListTest, AddingAChannelOutOfRangeGives10023WithAReport)
{
    EXPECT_EQ(info().addInfoServChannel(65535, QStringLiteral("x")), MSGCTR_ERRCODE__CHANNEL_OUT_OF_RANGE);
    EXPECT_EQ(info().addInfoServChannel(-1, QStringLiteral("x")), MSGCTR_ERRCODE__CHANNEL_OUT_OF_RANGE);
    EXPECT_EQ(masked(reportLines()),
              (std::vector<std::string>{
                  "[addInfoServChannel] assert fail at \"MSGCTR_ENG_TAPI::cbChannelNumberIsInValidRange( nChannelNum )\"; "
                  "nChannelNum = 65535(S32,4), ",
                  "[addInfoServChannel] assert fail at \"MSGCTR_ENG_TAPI::cbChannelNumberIsInValidRange( nChannelNum )\"; "
                  "nChannelNum = -1(S32,4), ",
              }));
    EXPECT_EQ(storedText(), QStringLiteral("<missing>"));
}

TEST_F(ChannelListTest, AddingAListedChannelGives10022)
{
    ASSERT_EQ(info().addInfoServChannel(0, QStringLiteral("Zero")), 0);
    EXPECT_EQ(info().addInfoServChannel(0, QStringLiteral("Again")), MSGCTR_ERRCODE__CHANNEL_ALREADY_EXISTS);
    EXPECT_EQ(storedText(), QStringLiteral("0,Zero,0,0"));
}

TEST_F(ChannelListTest, ChannelsNotListedGive10021)
{
    ASSERT_EQ(info().addInfoServChannel(50, QStringLiteral("Local")), 0);
    EXPECT_EQ(info().removeInfoServChannel(51), MSGCTR_ERRCODE__CHANNEL_NOT_FOUND);
    EXPECT_EQ(info().updateInfoServChannel(51, QStringLiteral("x")), MSGCTR_ERRCODE__CHANNEL_NOT_FOUND);
    EXPECT_EQ(info().updateInfoServChannelQuickView(51, true), MSGCTR_ERRCODE__CHANNEL_NOT_FOUND);
    EXPECT_EQ(storedText(), QStringLiteral("50,Local,0,0"));
}

TEST_F(ChannelListTest, ListedChannelsAreRenamedFlaggedAndRemoved)
{
    ASSERT_EQ(info().addInfoServChannel(50, QStringLiteral("Local")), 0);
    ASSERT_EQ(info().addInfoServChannel(4370, QStringLiteral("News")), 0);
    EXPECT_EQ(info().updateInfoServChannel(50, QStringLiteral("Town")), 0);
    EXPECT_EQ(info().updateInfoServChannelQuickView(4370, true), 0);
    EXPECT_EQ(storedText(), QStringLiteral("50,Town,0,0;4370,News,1,0"));
    EXPECT_EQ(info().removeInfoServChannel(50), 0);
    EXPECT_EQ(storedText(), QStringLiteral("4370,News,1,0"));
    EXPECT_EQ(masked(reportLines()), std::vector<std::string>());
}

TEST_F(ChannelListTest, FailedWriteIsReportedWithItsCode)
{
    ZorHost::injectFault(QStringLiteral("SETUP_SET_Manager::setString"), ENOSPC);
    EXPECT_EQ(info().addInfoServChannel(50, QStringLiteral("Local")), MSGCTR_ERRCODE__SETUP_WRITE_NO_SPACE);
    EXPECT_EQ(masked(reportLines()),
              (std::vector<std::string>{
                  "[setInfoServAllChnlInfo] assert fail at \"false\"; msgctrErrcode = 10019(S32,4), ",
                  "[addInfoServChannel] assert fail at \"MSGCTR_ERRCODE_IS_SUCCESS(msgctrErrcode)\"; "
                  "msgctrErrcode = 10019(S32,4), ",
              }));
}

} // namespace
