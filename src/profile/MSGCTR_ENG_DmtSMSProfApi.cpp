#include "MSGCTR_ENG_DmtSMSProfApi.h"

#include "profile/MSGCTR_ENG_SMS_Gpa.h"

MSGCTR_ENG_DmtSMSProfApi::~MSGCTR_ENG_DmtSMSProfApi() = default;

MSGCTR_ERRCODE MSGCTR_ENG_DmtSMSProfApi::getDefaultProfileID(PROFILE_ID_S* id)
{
    return MSGCTR_ENG_SMS_Gpa().getDefaultProfileID(id);
}

MSGCTR_ERRCODE MSGCTR_ENG_DmtSMSProfApi::setDefaultProfileID(const PROFILE_ID_S& id)
{
    return MSGCTR_ENG_SMS_Gpa().setDefaultProfileID(id);
}

MSGCTR_ERRCODE MSGCTR_ENG_DmtSMSProfApi::listAllProfileS(std::vector<SMSProfileIDAndData_S>* list)
{
    return MSGCTR_ENG_SMS_Gpa().listAllProfileS(list);
}

MSGCTR_ERRCODE MSGCTR_ENG_DmtSMSProfApi::getProfile(SMSProfileData_S* data, const PROFILE_ID_S& id)
{
    return MSGCTR_ENG_SMS_Gpa().getProfile(data, id);
}

MSGCTR_ERRCODE MSGCTR_ENG_DmtSMSProfApi::addProfile(PROFILE_ID_S* newId, const SMSProfileData_S& data)
{
    return MSGCTR_ENG_SMS_Gpa().addProfile(newId, &data);
}

MSGCTR_ERRCODE MSGCTR_ENG_DmtSMSProfApi::updateProfile(const PROFILE_ID_S& id, const SMSProfileData_S& data)
{
    return MSGCTR_ENG_SMS_Gpa().updateProfile(id, &data);
}

MSGCTR_ERRCODE MSGCTR_ENG_DmtSMSProfApi::removeProfile(const PROFILE_ID_S& id)
{
    return MSGCTR_ENG_SMS_Gpa().removeProfile(id);
}
