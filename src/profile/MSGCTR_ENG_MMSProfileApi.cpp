#include "MSGCTR_ENG_MMSProfileApi.h"

#include "profile/MSGCTR_ENG_MMS_Gpa.h"

#include <algorithm>

MSGCTR_ENG_MMSProfileApi::~MSGCTR_ENG_MMSProfileApi() = default;

MSGCTR_ERRCODE MSGCTR_ENG_MMSProfileApi::listAllProfileS(std::vector<MMSProfileIDAndData_S>* list)
{
    const MSGCTR_ERRCODE result = MSGCTR_ENG_MMS_Gpa().listAllProfileS(list);
    std::stable_sort(list->begin(), list->end(), [](const MMSProfileIDAndData_S& a, const MMSProfileIDAndData_S& b) {
        return a.profData.strProfileName < b.profData.strProfileName;
    });
    return result;
}

MSGCTR_ERRCODE MSGCTR_ENG_MMSProfileApi::getProfile(MMSProfileData_S* data, const PROFILE_ID_S& id)
{
    return MSGCTR_ENG_MMS_Gpa().getProfile(data, id);
}

MSGCTR_ERRCODE MSGCTR_ENG_MMSProfileApi::addProfile(PROFILE_ID_S* newId, const MMSProfileData_S& data)
{
    return MSGCTR_ENG_MMS_Gpa().addProfile(newId, &data);
}

MSGCTR_ERRCODE MSGCTR_ENG_MMSProfileApi::updateProfile(const PROFILE_ID_S& id, const MMSProfileData_S& data)
{
    return MSGCTR_ENG_MMS_Gpa().updateProfile(id, &data);
}

MSGCTR_ERRCODE MSGCTR_ENG_MMSProfileApi::removeProfile(const PROFILE_ID_S& id)
{
    return MSGCTR_ENG_MMS_Gpa().removeProfile(id);
}

MSGCTR_ERRCODE MSGCTR_ENG_MMSProfileApi::getDefaultProfileID(PROFILE_ID_S* id)
{
    return MSGCTR_ENG_MMS_Gpa().getDefaultProfileID(id);
}

MSGCTR_ERRCODE MSGCTR_ENG_MMSProfileApi::setDefaultProfileID(const PROFILE_ID_S& id)
{
    return MSGCTR_ENG_MMS_Gpa().setDefaultProfileID(id);
}

MSGCTR_ERRCODE MSGCTR_ENG_MMSProfileApi::getDefaultProfileIDSafe(PROFILE_ID_S* id)
{
    MSGCTR_ERRCODE result = getDefaultProfileID(id);
    if (MSGCTR_ERRCODE_IS_ERROR(result))
        return result;
    // A failed listing still repairs with what was listed; its code is dropped when the final read works.
    std::vector<MMSProfileIDAndData_S> list;
    listAllProfileS(&list);
    if (!list.empty()) {
        const bool named = std::any_of(list.begin(), list.end(),
                                       [&](const MMSProfileIDAndData_S& entry) { return entry.profID == *id; });
        if (!named) {
            result = setDefaultProfileID(list.front().profID);
            if (MSGCTR_ERRCODE_IS_ERROR(result))
                return result;
        }
    } else if (!id->isNull()) {
        result = setDefaultProfileID(PROFILE_ID_S());
        if (MSGCTR_ERRCODE_IS_ERROR(result))
            return result;
    }
    return getDefaultProfileID(id);
}
