#include "MSGCTR_ERRCODE.h"

bool MSGCTR_ENG_ErrorCodeDef_chkErrorCodeEnabled()
{
    return true;
}
