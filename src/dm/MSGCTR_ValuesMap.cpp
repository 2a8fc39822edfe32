#include "MSGCTR_ValuesMap.h"

#include "MSGCTR_DmtDataApi.h"

MSGCTR_ValuesMap::MSGCTR_ValuesMap(const DMMap<DMString, DmtData>& map)
    : m_map(map)
{
}

bool MSGCTR_ValuesMap::containsFldName(const DMString& name) const
{
    return m_map.contains(name);
}

const DmtData* MSGCTR_ValuesMap::value(const DMString& name) const
{
    const auto it = m_map.find(name);
    return it == m_map.end() ? nullptr : &it->second;
}

MSGCTR_ERRCODE MSGCTR_ValuesMap::getString(QString* out, const DMString& name) const
{
    *out = QStringLiteral("");
    const DmtData* data = value(name);
    return data ? MSGCTR_DmtDataApi::getString(out, *data) : MSGCTR_ERRCODE__SUCCESS;
}

MSGCTR_ERRCODE MSGCTR_ValuesMap::getBool(bool* out, const DMString& name) const
{
    *out = false;
    const DmtData* data = value(name);
    return data ? MSGCTR_DmtDataApi::getBool(out, *data) : MSGCTR_ERRCODE__SUCCESS;
}

MSGCTR_ERRCODE MSGCTR_ValuesMap::getInt(int* out, const DMString& name) const
{
    *out = 0;
    const DmtData* data = value(name);
    return data ? MSGCTR_DmtDataApi::getInt(out, *data) : MSGCTR_ERRCODE__SUCCESS;
}

MSGCTR_ERRCODE MSGCTR_ValuesMap::getUint(unsigned int* out, const DMString& name) const
{
    *out = 0;
    const DmtData* data = value(name);
    return data ? MSGCTR_DmtDataApi::getUint(out, *data) : MSGCTR_ERRCODE__SUCCESS;
}

MSGCTR_ERRCODE MSGCTR_ValuesMap::getBinary(QByteArray* out, const DMString& name) const
{
    *out = QByteArray();
    const DmtData* data = value(name);
    return data ? MSGCTR_DmtDataApi::getBinary(out, *data) : MSGCTR_ERRCODE__SUCCESS;
}
