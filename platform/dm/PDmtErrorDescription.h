// A DM result with its text, as the DM library describes a failure.
#pragma once

#include "DMString.h"

class PDmtErrorDescription {
public:
    // The text is always "Refer error code for more information.", whatever the code.
    explicit PDmtErrorDescription(int resultCode = 0);

    int GetErrorCode() const { return m_code; }
    const DMString& GetErrorText() const { return m_text; }

    // Compares the code with the pointer's value: equal to a null pointer means success.
    bool operator==(const void* pointer) const;
    bool operator!=(const void* pointer) const { return !(*this == pointer); }

private:
    int m_code;
    DMString m_text;
};
