// Text of the DM library: UTF-8 bytes, always NUL-terminated.
#pragma once

#include <cstddef>
#include <string>

class DMString {
public:
    DMString() = default;
    DMString(const char* text); // a null pointer gives the empty string
    DMString(const char* text, std::size_t length);
    explicit DMString(std::string text);

    const char* c_str() const { return m_text.c_str(); }
    std::size_t length() const { return m_text.size(); }
    bool empty() const { return m_text.empty(); }
    const std::string& str() const { return m_text; }

    bool operator==(const DMString& other) const { return m_text == other.m_text; }
    bool operator!=(const DMString& other) const { return m_text != other.m_text; }
    bool operator<(const DMString& other) const { return m_text < other.m_text; }

private:
    std::string m_text;
};
