#include "MFString.h"

#include <algorithm>

MFString::MFString() : m_units(nullptr), m_length(0)
{
    assign(nullptr, 0);
}

MFString::MFString(const unsigned short* text, int length) : m_units(nullptr), m_length(0)
{
    assign(text, length);
}

MFString::MFString(const MFString& other) : m_units(nullptr), m_length(0)
{
    assign(other.m_units, other.m_length);
}

MFString& MFString::operator=(const MFString& other)
{
    if (this != &other) {
        delete[] m_units;
        m_units = nullptr;
        assign(other.m_units, other.m_length);
    }
    return *this;
}

MFString::~MFString()
{
    delete[] m_units;
}

const unsigned short* MFString::getUnicodeStr() const
{
    return m_units;
}

int MFString::length() const
{
    return m_length;
}

void MFString::assign(const unsigned short* text, int length)
{
    int n = 0;
    if (text) {
        if (length < 0) {
            while (text[n] != 0)
                ++n;
        } else {
            n = length;
        }
    }
    m_units = new unsigned short[n + 1];
    if (n > 0)
        std::copy(text, text + n, m_units);
    m_units[n] = 0;
    m_length = n;
}
