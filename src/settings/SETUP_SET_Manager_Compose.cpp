#include "MSGCTR_ENG_Setup.h"
#include "SETUP_SET_Manager_Compose_Flush.h"
#include "SETUP_SET_Manager_Compose_NOT_Flush.h"

SETUP_SET_Manager_Compose_Flush::SETUP_SET_Manager_Compose_Flush()
    : SETUP_SET_Manager(MSGCTR_ENG_Setup::MSGCTR_APP_ID, true)
{
}

SETUP_SET_Manager_Compose_Flush::~SETUP_SET_Manager_Compose_Flush() = default;

SETUP_SET_Manager_Compose_NOT_Flush::SETUP_SET_Manager_Compose_NOT_Flush()
    : SETUP_SET_Manager(MSGCTR_ENG_Setup::MSGCTR_APP_ID, false)
{
}

SETUP_SET_Manager_Compose_NOT_Flush::~SETUP_SET_Manager_Compose_NOT_Flush() = default;
