#include "MSGCTR_DmApi.h"

#include <iterator>

namespace {

struct DmResultRow {
    MSGCTR_ERRCODE msgctrErrcode;
    int dmtResult;
};

// Searched from the first row, so DM result 1 always gives 10064: the later rows that carry 1 are never
// reached, and they stay as they are.
const DmResultRow kDmResultTable[] = {
    {0, 0},
    {10064, 1},
    {10065, 23},
    {10066, 1},
    {10067, 1},
    {10068, 406},
    {10069, 1},
    {10070, 1},
    {10071, 1},
    {10072, 1},
    {10073, 1},
    {10074, 1},
    {10075, 1},
    {10076, 22},
    {10077, 1},
    {10078, 20},
};

} // namespace

namespace MSGCTR_DmApi {

MSGCTR_ERRCODE toMsgctrErrcodeFromDmtResult(int dmtResult)
{
    for (const DmResultRow& row : kDmResultTable)
        if (row.dmtResult == dmtResult)
            return row.msgctrErrcode;
    return MSGCTR_ERRCODE__DM_UNKNOWN_RESULT;
}

int getDmtResultSafely(const PDmtErrorDescription& description)
{
    return description == nullptr ? 0 : description.GetErrorCode();
}

QString getErrorTextSafely(const PDmtErrorDescription& description)
{
    return description == nullptr ? QStringLiteral("") : QStringLiteral("Refer error code for detail.");
}

MSGCTR_ERRCODE toMsgctrErrcodeFromDmtErrDes(const PDmtErrorDescription& description)
{
    return toMsgctrErrcodeFromDmtResult(getDmtResultSafely(description));
}

QString toQStringFromUtf8DMString(const DMString& text)
{
    return QString::fromUtf8(text.c_str(), -1);
}

DMString toUtf8DMString(const QString& text)
{
    const QByteArray utf8 = text.toUtf8();
    return DMString(utf8.constData(), std::size_t(utf8.size()));
}

} // namespace MSGCTR_DmApi
