// The value of a DM leaf: a string, an integer, a boolean or opaque bytes. Typed reads never convert.
#pragma once

#include "DMString.h"
#include "DMVector.h"

enum DmtDataType : int {
    DMT_DATA_NULL = 0,
    DMT_DATA_STRING = 1,
    DMT_DATA_INTEGER = 2,
    DMT_DATA_BOOLEAN = 3,
    DMT_DATA_BINARY = 4,
};

class DmtData {
public:
    DmtData() = default;
    DmtData(const char* text);
    DmtData(const DMString& text);
    DmtData(int value);
    DmtData(bool value);
    DmtData(const DMVector<unsigned char>& bytes);
    DmtData(const unsigned char* bytes, int length);

    DmtDataType GetType() const { return m_type; }

    // 0 on success; 23 when the value is of another type (the output is then untouched).
    int GetString(DMString& out) const;
    int GetInt(int& out) const;
    int GetBoolean(bool& out) const;
    int GetBinary(DMVector<unsigned char>& out) const;

    bool operator==(const DmtData& other) const;
    bool operator!=(const DmtData& other) const { return !(*this == other); }

private:
    DmtDataType m_type = DMT_DATA_NULL;
    DMString m_text;
    int m_int = 0;
    DMVector<unsigned char> m_bytes;
};
