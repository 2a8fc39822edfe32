#include "MSGCTR_ENG_SetupInfo.h"

#include <algorithm>

namespace {

using ChannelList = MSGCTR_ENG_SetupInfo::InfoServAllChnlInfo;
using ChannelInfo = MSGCTR_ENG_SetupInfo::INFO_SERV_CHNL_INFO_S;

template <typename List>
auto findChannel(List& list, int nChannelNum)
{
    return std::find_if(list.begin(), list.end(),
                        [nChannelNum](const ChannelInfo& info) { return info.m_nChannelNum == nChannelNum; });
}

} // namespace

bool ChannelList::containsChannelNum(int nChannelNum) const
{
    return findChannel(*this, nChannelNum) != end();
}

bool ChannelList::getChnlInfo(int nChannelNum, ChannelInfo* pInfo) const
{
    const auto it = findChannel(*this, nChannelNum);
    if (it == end())
        return false;
    *pInfo = *it;
    return true;
}

void ChannelList::addChannelNum(const ChannelInfo& info)
{
    push_back(info);
}

bool ChannelList::removeChannelNum(int nChannelNum)
{
    const auto it = findChannel(*this, nChannelNum);
    if (it == end())
        return false;
    erase(it);
    return true;
}

bool ChannelList::updateChannelNum(int nChannelNum, const QString& name)
{
    const auto it = findChannel(*this, nChannelNum);
    if (it == end())
        return false;
    it->m_strChannelName = name;
    return true;
}

std::vector<int> ChannelList::getChnlSNotContains(const std::vector<int>& channelNums) const
{
    std::vector<int> missing;
    for (int nChannelNum : channelNums) {
        if (!containsChannelNum(nChannelNum))
            missing.push_back(nChannelNum);
    }
    return missing;
}

void ChannelList::appendChnlSNotContains(const std::vector<int>& channelNums)
{
    for (int nChannelNum : channelNums) {
        if (containsChannelNum(nChannelNum))
            continue;
        ChannelInfo info;
        info.m_nChannelNum = nChannelNum;
        addChannelNum(info);
    }
}
