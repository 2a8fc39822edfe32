// MSGCTR_ENG_SetupInfo: the stored info-service channel list, records joined by ";".
#include "MSGCTR_ENG_SetupInfo.h"

#include "foundation/MsgctrReport.h"
#include "settings/SetupInfoKey.h"

#include "MSGCTR_ENG_TAPI.h"

namespace {

using ChannelList = MSGCTR_ENG_SetupInfo::InfoServAllChnlInfo;
using ChannelInfo = MSGCTR_ENG_SetupInfo::INFO_SERV_CHNL_INFO_S;

const QChar kRecordSeparator = QLatin1Char(';');

bool channelNumberIsInRange(int nChannelNum)
{
    return nChannelNum >= 0 && nChannelNum <= 0xFFFF
        && MSGCTR_ENG_TAPI::cbChannelNumberIsInValidRange(static_cast<unsigned short>(nChannelNum));
}

} // namespace

ChannelList MSGCTR_ENG_SetupInfo::getInfoServAllChnlInfo()
{
    ChannelList channels;
    const QString text = SetupInfoKey::of(SETUP_KEY__INFO_SERV_CHANNEL_LIST).read(m_setup).toString();
    if (text.isEmpty())
        return channels;
    for (const QString& record : text.split(kRecordSeparator, Qt::SkipEmptyParts))
        channels.push_back(ChannelInfo::toInfoServChnlInfo(record));
    return channels;
}

MSGCTR_ERRCODE MSGCTR_ENG_SetupInfo::setInfoServAllChnlInfo(const ChannelList& channels)
{
    QStringList records;
    for (const ChannelInfo& info : channels) {
        QString record;
        // A ";" would split the record when read back: the whole list is refused, the stored one kept.
        if (info.m_strChannelName.contains(kRecordSeparator) || !info.toString(&record))
            return MSGCTR_ERRCODE__SETUP_INVALID_CHAR;
        records.append(record);
    }
    const MSGCTR_ERRCODE msgctrErrcode =
        SetupInfoKey::of(SETUP_KEY__INFO_SERV_CHANNEL_LIST).write(m_setup, records.join(kRecordSeparator));
    if (MSGCTR_ERRCODE_IS_ERROR(msgctrErrcode))
        MSGCTR_ASSERT_FAIL_REPORT("false") << MSGCTR_VAL(msgctrErrcode);
    return msgctrErrcode;
}

MSGCTR_ERRCODE MSGCTR_ENG_SetupInfo::addInfoServChannel(int nChannelNum, const QString& name)
{
    if (!channelNumberIsInRange(nChannelNum)) {
        MSGCTR_ASSERT_FAIL_REPORT("MSGCTR_ENG_TAPI::cbChannelNumberIsInValidRange( nChannelNum )")
            << MSGCTR_VAL(nChannelNum);
        return MSGCTR_ERRCODE__CHANNEL_OUT_OF_RANGE;
    }
    ChannelList channels = getInfoServAllChnlInfo();
    if (channels.containsChannelNum(nChannelNum))
        return MSGCTR_ERRCODE__CHANNEL_ALREADY_EXISTS;
    channels.addChannelNum(ChannelInfo::toCiOfUserDefined(nChannelNum, name));
    const MSGCTR_ERRCODE msgctrErrcode = setInfoServAllChnlInfo(channels);
    MSGCTR_CHECK(MSGCTR_ERRCODE_IS_SUCCESS(msgctrErrcode)) << MSGCTR_VAL(msgctrErrcode);
    return msgctrErrcode;
}

MSGCTR_ERRCODE MSGCTR_ENG_SetupInfo::removeInfoServChannel(int nChannelNum)
{
    ChannelList channels = getInfoServAllChnlInfo();
    if (!channels.removeChannelNum(nChannelNum))
        return MSGCTR_ERRCODE__CHANNEL_NOT_FOUND;
    const MSGCTR_ERRCODE msgctrErrcode = setInfoServAllChnlInfo(channels);
    MSGCTR_CHECK(MSGCTR_ERRCODE_IS_SUCCESS(msgctrErrcode)) << MSGCTR_VAL(msgctrErrcode);
    return msgctrErrcode;
}

MSGCTR_ERRCODE MSGCTR_ENG_SetupInfo::updateInfoServChannel(int nChannelNum, const QString& name)
{
    ChannelList channels = getInfoServAllChnlInfo();
    if (!channels.updateChannelNum(nChannelNum, name))
        return MSGCTR_ERRCODE__CHANNEL_NOT_FOUND;
    const MSGCTR_ERRCODE msgctrErrcode = setInfoServAllChnlInfo(channels);
    MSGCTR_CHECK(MSGCTR_ERRCODE_IS_SUCCESS(msgctrErrcode)) << MSGCTR_VAL(msgctrErrcode);
    return msgctrErrcode;
}

MSGCTR_ERRCODE MSGCTR_ENG_SetupInfo::updateInfoServChannelQuickView(int nChannelNum, bool bQuickView)
{
    ChannelList channels = getInfoServAllChnlInfo();
    for (ChannelInfo& info : channels) {
        if (info.m_nChannelNum != nChannelNum)
            continue;
        info.m_bQuickView = bQuickView;
        const MSGCTR_ERRCODE msgctrErrcode = setInfoServAllChnlInfo(channels);
        MSGCTR_CHECK(MSGCTR_ERRCODE_IS_SUCCESS(msgctrErrcode)) << MSGCTR_VAL(msgctrErrcode);
        return msgctrErrcode;
    }
    return MSGCTR_ERRCODE__CHANNEL_NOT_FOUND;
}
