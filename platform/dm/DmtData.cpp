#include "DmtData.h"

#include "DmtResult.h"

DmtData::DmtData(const char* text)
    : m_type(DMT_DATA_STRING)
    , m_text(text)
{
}

DmtData::DmtData(const DMString& text)
    : m_type(DMT_DATA_STRING)
    , m_text(text)
{
}

DmtData::DmtData(int value)
    : m_type(DMT_DATA_INTEGER)
    , m_int(value)
{
}

DmtData::DmtData(bool value)
    : m_type(DMT_DATA_BOOLEAN)
    , m_int(value ? 1 : 0)
{
}

DmtData::DmtData(const DMVector<unsigned char>& bytes)
    : m_type(DMT_DATA_BINARY)
    , m_bytes(bytes)
{
}

DmtData::DmtData(const unsigned char* bytes, int length)
    : m_type(DMT_DATA_BINARY)
    , m_bytes(bytes && length > 0 ? DMVector<unsigned char>(bytes, std::size_t(length)) : DMVector<unsigned char>())
{
}

int DmtData::GetString(DMString& out) const
{
    if (m_type != DMT_DATA_STRING)
        return DMT_RESULT_INVALID_PARAM;
    out = m_text;
    return DMT_RESULT_SUCCESS;
}

int DmtData::GetInt(int& out) const
{
    if (m_type != DMT_DATA_INTEGER)
        return DMT_RESULT_INVALID_PARAM;
    out = m_int;
    return DMT_RESULT_SUCCESS;
}

int DmtData::GetBoolean(bool& out) const
{
    if (m_type != DMT_DATA_BOOLEAN)
        return DMT_RESULT_INVALID_PARAM;
    out = m_int != 0;
    return DMT_RESULT_SUCCESS;
}

int DmtData::GetBinary(DMVector<unsigned char>& out) const
{
    if (m_type != DMT_DATA_BINARY)
        return DMT_RESULT_INVALID_PARAM;
    out = m_bytes;
    return DMT_RESULT_SUCCESS;
}

bool DmtData::operator==(const DmtData& other) const
{
    return m_type == other.m_type && m_text == other.m_text && m_int == other.m_int && m_bytes == other.m_bytes;
}
