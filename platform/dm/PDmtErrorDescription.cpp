#include "PDmtErrorDescription.h"

#include <cstdint>

PDmtErrorDescription::PDmtErrorDescription(int resultCode)
    : m_code(resultCode)
    , m_text("Refer error code for more information.")
{
}

bool PDmtErrorDescription::operator==(const void* pointer) const
{
    return std::intptr_t(m_code) == reinterpret_cast<std::intptr_t>(pointer);
}
