#include "MSGCTR_ENG_SetupInfo.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using ChannelList = MSGCTR_ENG_SetupInfo::InfoServAllChnlInfo;
using ChannelInfo = MSGCTR_ENG_SetupInfo::INFO_SERV_CHNL_INFO_S;

std::vector<std::string> describe(const ChannelList& list)
{
    std::vector<std::string> out;
    for (const ChannelInfo& info : list)
        out.push_back(std::to_string(info.m_nChannelNum) + " " + info.m_strChannelName.toStdString()
                      + (info.m_bQuickView ? " quick" : "") + (info.m_bPredefined ? " predefined" : " user"));
    return out;
}

ChannelList twoChannels()
{
    ChannelList list;
    list.addChannelNum(ChannelInfo::toCiOfUserDefined(4370, QStringLiteral("My news")));
    list.addChannelNum(ChannelInfo::toCiOfUserDefined(50, QStringLiteral("Local")));
    return list;
}

TEST(InfoServAllChnlInfoTest, AddingAppendsInOrder)
{
    EXPECT_EQ(describe(twoChannels()), (std::vector<std::string>{"4370 My news user", "50 Local user"}));
}

TEST(InfoServAllChnlInfoTest, LooksChannelsUpByNumber)
{
    const ChannelList list = twoChannels();
    EXPECT_TRUE(list.containsChannelNum(50));
    EXPECT_FALSE(list.containsChannelNum(51));
    ChannelInfo info;
    EXPECT_TRUE(list.getChnlInfo(50, &info));
    EXPECT_EQ(info.m_strChannelName, QStringLiteral("Local"));
    ChannelInfo untouched = ChannelInfo::toCiOfUserDefined(1, QStringLiteral("kept"));
    EXPECT_FALSE(list.getChnlInfo(51, &untouched));
    EXPECT_EQ(untouched.m_strChannelName, QStringLiteral("kept"));
}

TEST(InfoServAllChnlInfoTest, RemovesAndRenamesListedChannelsOnly)
{
    ChannelList list = twoChannels();
    EXPECT_TRUE(list.updateChannelNum(50, QStringLiteral("Town")));
    EXPECT_FALSE(list.updateChannelNum(51, QStringLiteral("x")));
    EXPECT_TRUE(list.removeChannelNum(4370));
    EXPECT_FALSE(list.removeChannelNum(4370));
    EXPECT_EQ(describe(list), (std::vector<std::string>{"50 Town user"}));
}

TEST(InfoServAllChnlInfoTest, AppendsTheChannelsItLacksAsNewOnes)
{
    ChannelList list = twoChannels();
    EXPECT_EQ(list.getChnlSNotContains({50, 919, 4370, 1}), (std::vector<int>{919, 1}));
    list.appendChnlSNotContains({50, 919, 919});
    EXPECT_EQ(describe(list), (std::vector<std::string>{"4370 My news user", "50 Local user", "919  predefined"}));
}

} // namespace
