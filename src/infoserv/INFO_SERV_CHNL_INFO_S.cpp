// The text form of one info-service channel record: number, name, quick view, predefined, joined by ",".
#include "MSGCTR_ENG_SetupInfo.h"

#include "foundation/MsgctrReport.h"

namespace {

using ChannelInfo = MSGCTR_ENG_SetupInfo::INFO_SERV_CHNL_INFO_S;

const QChar kFieldSeparator = QLatin1Char(',');

QString flagText(bool flag)
{
    return flag ? QStringLiteral("1") : QStringLiteral("0");
}

bool flagOf(const QString& field)
{
    return field == QLatin1String("1");
}

} // namespace

bool ChannelInfo::subToString(QString* pstr) const
{
    pstr->clear();
    if (m_strChannelName.contains(kFieldSeparator)) {
        MSGCTR_ASSERT_FAIL_REPORT("false") << MSGCTR_VAL(m_strChannelName);
        return false;
    }
    *pstr = QString::number(m_nChannelNum) + kFieldSeparator + m_strChannelName + kFieldSeparator
        + flagText(m_bQuickView) + kFieldSeparator + flagText(m_bPredefined);
    return true;
}

bool ChannelInfo::toString(QString* pstr) const
{
    if (!subToString(pstr))
        return false;
    const ChannelInfo isci = subToInfoServChnlInfo(*pstr);
    QString strNew;
    if (!isci.subToString(&strNew))
        MSGCTR_ASSERT_FAIL_REPORT("isci.subToString( &strNew )");
    else
        MSGCTR_CHECK(*pstr == strNew) << MSGCTR_VAL(*pstr) << MSGCTR_VAL(strNew);
    return true;
}

ChannelInfo ChannelInfo::subToInfoServChnlInfo(const QString& str)
{
    ChannelInfo info;
    const QStringList strlist = str.split(kFieldSeparator, Qt::KeepEmptyParts);
    // A number that does not parse leaves 0.
    bool bOk = false;
    info.m_nChannelNum = strlist[0].toInt(&bOk, 10);
    MSGCTR_CHECK(bOk) << MSGCTR_NAMED_VAL("strlist[i]", strlist[0]);
    if (strlist.size() > 1)
        info.m_strChannelName = strlist[1];
    else
        MSGCTR_ASSERT_FAIL_REPORT("false") << MSGCTR_VAL(str);
    if (strlist.size() > 2)
        info.m_bQuickView = flagOf(strlist[2]);
    if (strlist.size() > 3)
        info.m_bPredefined = flagOf(strlist[3]);
    return info;
}

ChannelInfo ChannelInfo::toInfoServChnlInfo(const QString& str)
{
    const ChannelInfo isci = subToInfoServChnlInfo(str);
    QString strNew;
    if (!isci.subToString(&strNew))
        MSGCTR_ASSERT_FAIL_REPORT("isci.subToString( &strNew )");
    else
        MSGCTR_CHECK(str == strNew) << MSGCTR_VAL(str) << MSGCTR_VAL(strNew);
    return isci;
}

ChannelInfo ChannelInfo::toCiOfUserDefined(int nChannelNum, const QString& name)
{
    ChannelInfo info;
    info.m_nChannelNum = nChannelNum;
    info.m_strChannelName = name;
    info.m_bQuickView = false;
    info.m_bPredefined = false;
    return info;
}
