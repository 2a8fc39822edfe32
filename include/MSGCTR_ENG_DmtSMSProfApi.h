// The SMS profiles kept in the DM tree (the SIM card's own service centre is not among them). The list
// keeps the DM library's order.
#pragma once

#include "MSGCTR_ENG_GeneralProfileApi.h"
#include "MSGCTR_ERRCODE.h"
#include "msgctr_export.h"

#include <QString>

#include <vector>

class MSGCTR_EXPORT MSGCTR_ENG_DmtSMSProfApi {
public:
    using PROFILE_ID_S = MSGCTR_ENG_GeneralProfileApi::PROFILE_ID_S;

    struct SMSProfileData_S {
        QString strProfileName; // "ProfileName"
        QString strSMSC;        // "SMSC": the service centre's number
        int nReserved = 0;      // copied with the record, never stored in the tree
        bool bReadonly = false; // "Readonly"
    };

    struct SMSProfileIDAndData_S {
        PROFILE_ID_S profID;
        SMSProfileData_S profData;
    };

    virtual ~MSGCTR_ENG_DmtSMSProfApi();

    static MSGCTR_ERRCODE getDefaultProfileID(PROFILE_ID_S* id);
    static MSGCTR_ERRCODE setDefaultProfileID(const PROFILE_ID_S& id);
    static MSGCTR_ERRCODE listAllProfileS(std::vector<SMSProfileIDAndData_S>* list);
    static MSGCTR_ERRCODE getProfile(SMSProfileData_S* data, const PROFILE_ID_S& id);
    static MSGCTR_ERRCODE addProfile(PROFILE_ID_S* newId, const SMSProfileData_S& data);
    static MSGCTR_ERRCODE updateProfile(const PROFILE_ID_S& id, const SMSProfileData_S& data);
    static MSGCTR_ERRCODE removeProfile(const PROFILE_ID_S& id);
};
