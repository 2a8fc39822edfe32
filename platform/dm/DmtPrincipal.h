// Who works on the DM tree. "localhost" is reserved for callers on the device itself.
#pragma once

#include "DMString.h"

class DmtPrincipal {
public:
    explicit DmtPrincipal(const char* name);
    virtual ~DmtPrincipal();

    const DMString& getName() const { return m_name; }

private:
    DMString m_name;
};

// The principal name of callers on the device.
extern const char* const DMT_LOCAL_PRINCIPAL;
