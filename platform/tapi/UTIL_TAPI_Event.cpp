#include "UTIL_TAPI_Event.h"

UTIL_TAPI_Event::UTIL_TAPI_Event() : m_type(0) {}

UTIL_TAPI_Event::UTIL_TAPI_Event(int type, const void* data, int length) : m_type(type)
{
    if (data && length > 0) {
        const unsigned char* bytes = static_cast<const unsigned char*>(data);
        m_raw.assign(bytes, bytes + length);
    }
}

UTIL_TAPI_Event::~UTIL_TAPI_Event() = default;

int UTIL_TAPI_Event::GetType() const
{
    return m_type;
}

const unsigned char* UTIL_TAPI_Event::GetRawData() const
{
    return m_raw.empty() ? nullptr : m_raw.data();
}

int UTIL_TAPI_Event::GetRawDataLength() const
{
    return static_cast<int>(m_raw.size());
}
