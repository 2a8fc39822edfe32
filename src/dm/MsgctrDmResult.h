// Every DM call's result goes through an error description into an MSGCTR_ERRCODE, as the DM library
// reports it.
#pragma once

#include "MSGCTR_DmApi.h"

inline MSGCTR_ERRCODE msgctrErrcodeFromDm(int dmtResult)
{
    return MSGCTR_DmApi::toMsgctrErrcodeFromDmtErrDes(PDmtErrorDescription(dmtResult));
}
