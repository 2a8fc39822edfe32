// The MMS profiles kept in the DM tree: listed sorted by name, read, added, updated and removed one by
// one, and the default profile, kept naming an existing profile by getDefaultProfileIDSafe(). Limits on
// the number of profiles and the protection of read-only ones belong to the callers.
#pragma once

#include "MSGCTR_ENG_GeneralProfileApi.h"
#include "MSGCTR_ERRCODE.h"
#include "msgctr_export.h"

#include <QString>

#include <vector>

class MSGCTR_EXPORT MSGCTR_ENG_MMSProfileApi {
public:
    using PROFILE_ID_S = MSGCTR_ENG_GeneralProfileApi::PROFILE_ID_S;

    // One MMS profile; the leaf of each field is named after it.
    struct MMSProfileData_S {
        QString strProfileName;  // "ProfileName"
        QString strMMSC;         // "MMSC": the message server's address
        QString strIntProf;      // "IntProf": the connection profile
        QString strIntProf2;     // "IntProf2": the second connection profile
        int nMOSizeLimit = 0;    // "MOSizeLimit": size limit of outgoing messages
        bool bReadonly = false;  // "Readonly"
    };

    struct MMSProfileIDAndData_S {
        PROFILE_ID_S profID;
        MMSProfileData_S profData;
    };

    virtual ~MSGCTR_ENG_MMSProfileApi();

    // Stable-sorted by profile name (QString order, case-sensitive), also after a listing that failed
    // part-way; the listing's code is returned.
    static MSGCTR_ERRCODE listAllProfileS(std::vector<MMSProfileIDAndData_S>* list);
    static MSGCTR_ERRCODE getProfile(MMSProfileData_S* data, const PROFILE_ID_S& id);
    static MSGCTR_ERRCODE addProfile(PROFILE_ID_S* newId, const MMSProfileData_S& data);
    static MSGCTR_ERRCODE updateProfile(const PROFILE_ID_S& id, const MMSProfileData_S& data);
    static MSGCTR_ERRCODE removeProfile(const PROFILE_ID_S& id);
    static MSGCTR_ERRCODE getDefaultProfileID(PROFILE_ID_S* id);
    static MSGCTR_ERRCODE setDefaultProfileID(const PROFILE_ID_S& id);
    // The default, repaired first when it names no listed profile: the profile whose name sorts first
    // becomes the default, or the default is cleared when there is no profile.
    static MSGCTR_ERRCODE getDefaultProfileIDSafe(PROFILE_ID_S* id);
};
