// The messaging store opened buffered: writes reach permanent storage only through flush().
#pragma once

#include "msgctr_export.h"

#include "SETUP_SET_Manager.h"

class MSGCTR_EXPORT SETUP_SET_Manager_Compose_NOT_Flush : public SETUP_SET_Manager {
public:
    SETUP_SET_Manager_Compose_NOT_Flush();
    ~SETUP_SET_Manager_Compose_NOT_Flush() override;
};
