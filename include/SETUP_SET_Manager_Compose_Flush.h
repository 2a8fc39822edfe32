// The messaging store opened write-through, under one name for code outside the library.
#pragma once

#include "msgctr_export.h"

#include "SETUP_SET_Manager.h"

class MSGCTR_EXPORT SETUP_SET_Manager_Compose_Flush : public SETUP_SET_Manager {
public:
    SETUP_SET_Manager_Compose_Flush();
    ~SETUP_SET_Manager_Compose_Flush() override;
};
