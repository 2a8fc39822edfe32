// The message framework's string: an owned, zero-terminated UTF-16 text.
#pragma once

class MFString {
public:
    MFString();
    // Copies `length` units from `text`; a length of -1 means up to the first zero unit.
    // A null text gives an empty string.
    MFString(const unsigned short* text, int length);
    MFString(const MFString& other);
    MFString& operator=(const MFString& other);
    ~MFString();

    // Never null: an empty string yields a pointer to a zero unit.
    const unsigned short* getUnicodeStr() const;
    int length() const;

private:
    void assign(const unsigned short* text, int length);

    unsigned short* m_units;
    int m_length;
};
