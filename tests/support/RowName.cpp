#include "RowName.h"

#include <cstdio>

namespace {

bool isLetterOrDigit(char16_t c)
{
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || (c >= u'0' && c <= u'9');
}

} // namespace

std::string rowName(const std::u16string& text)
{
    if (text.empty())
        return "Empty";
    std::string name;
    for (char16_t c : text) {
        if (isLetterOrDigit(c)) {
            name += char(c);
        } else if (c == u' ') {
            name += '_';
        } else {
            char code[8];
            std::snprintf(code, sizeof code, c > 0xFF ? "_x%04X" : "_x%02X", unsigned(c));
            name += code;
        }
    }
    return name;
}

std::string rowName(const QString& text)
{
    return rowName(text.toStdU16String());
}

std::string rowName(const std::string& text)
{
    return rowName(QString::fromUtf8(text.data(), qsizetype(text.size())));
}

std::string rowName(const char* text)
{
    return rowName(std::string(text ? text : ""));
}

std::string rowName(long long number)
{
    return number < 0 ? "Minus" + std::to_string(-(number + 1) + 1ULL) : std::to_string(number);
}

std::string rowName(int number)
{
    return rowName(static_cast<long long>(number));
}

std::string rowName(unsigned int number)
{
    return std::to_string(number);
}

std::string rowName(bool value)
{
    return value ? "true" : "false";
}
