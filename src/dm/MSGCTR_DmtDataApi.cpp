#include "MSGCTR_DmtDataApi.h"

#include "dm/MsgctrDmResult.h"

#include "MSGCTR_DmApi.h"

namespace MSGCTR_DmtDataApi {

DmtData fromString(const QString& text)
{
    return DmtData(MSGCTR_DmApi::toUtf8DMString(text));
}

DmtData fromBool(bool value)
{
    return DmtData(value);
}

DmtData fromInt(int value)
{
    return DmtData(value);
}

DmtData fromUint(unsigned int value)
{
    return DmtData(static_cast<int>(value));
}

DmtData fromBinary(const QByteArray& bytes)
{
    return DmtData(reinterpret_cast<const unsigned char*>(bytes.constData()), int(bytes.size()));
}

DmtData fromBinary(const unsigned char* bytes, int length)
{
    return DmtData(bytes, length);
}

MSGCTR_ERRCODE getString(QString* out, const DmtData& data)
{
    *out = QStringLiteral("");
    DMString text;
    const int result = data.GetString(text);
    if (result == 0)
        *out = MSGCTR_DmApi::toQStringFromUtf8DMString(text);
    return msgctrErrcodeFromDm(result);
}

MSGCTR_ERRCODE getBool(bool* out, const DmtData& data)
{
    *out = false;
    bool value = false;
    const int result = data.GetBoolean(value);
    if (result == 0)
        *out = value;
    return msgctrErrcodeFromDm(result);
}

MSGCTR_ERRCODE getInt(int* out, const DmtData& data)
{
    *out = 0;
    int value = 0;
    const int result = data.GetInt(value);
    if (result == 0)
        *out = value;
    return msgctrErrcodeFromDm(result);
}

MSGCTR_ERRCODE getUint(unsigned int* out, const DmtData& data)
{
    *out = 0;
    int value = 0;
    const MSGCTR_ERRCODE result = getInt(&value, data);
    if (MSGCTR_ERRCODE_IS_SUCCESS(result))
        *out = static_cast<unsigned int>(value);
    return result;
}

MSGCTR_ERRCODE getBinary(QByteArray* out, const DmtData& data)
{
    *out = QByteArray();
    DMVector<unsigned char> bytes;
    const int result = data.GetBinary(bytes);
    if (result == 0)
        *out = QByteArray(reinterpret_cast<const char*>(bytes.data()), qsizetype(bytes.size()));
    return msgctrErrcodeFromDm(result);
}

} // namespace MSGCTR_DmtDataApi
