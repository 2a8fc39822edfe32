// The principal of every DM call of the library: the local caller on the device.
#pragma once

#include "msgctr_export.h"

#include "DmtPrincipal.h"

class MSGCTR_EXPORT MSGCTR_DmtPrincipal : public DmtPrincipal {
public:
    MSGCTR_DmtPrincipal();
    ~MSGCTR_DmtPrincipal() override;
};
