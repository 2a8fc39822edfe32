#include "DMString.h"

#include <utility>

DMString::DMString(const char* text)
    : m_text(text ? text : "")
{
}

DMString::DMString(const char* text, std::size_t length)
    : m_text(text ? std::string(text, length) : std::string())
{
}

DMString::DMString(std::string text)
    : m_text(std::move(text))
{
}
