// The profile engine bound to SMS profiles: their tree paths, and the conversions between
// MSGCTR_ENG_DmtSMSProfApi's records and the leaves of a profile node.
#pragma once

#include "MSGCTR_ENG_GeneralProfileApi.h"

class MSGCTR_ENG_SMS_Gpa : public MSGCTR_ENG_GeneralProfileApi {
public:
    MSGCTR_ENG_SMS_Gpa();
};
