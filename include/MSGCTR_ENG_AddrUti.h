// Small transformations of typed addresses.
#pragma once

#include "msgctr_export.h"

#include <QString>

class MSGCTR_EXPORT MSGCTR_ENG_AddrUti {
public:
    // Typed numbers carry hyphens ("030-1234"); the number tests do not accept them.
    static QString cloneWithRemovingHyphen(const QString& address);
};
