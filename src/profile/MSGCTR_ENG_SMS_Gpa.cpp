#include "profile/MSGCTR_ENG_SMS_Gpa.h"

#include "MSGCTR_DmtDataApi.h"
#include "MSGCTR_ENG_DmtSMSProfApi.h"
#include "MSGCTR_ValuesMap.h"
#include "profile/ProfileListCallbacks.h"

namespace {

using Record = MSGCTR_ENG_DmtSMSProfApi::SMSProfileData_S;
using Entry = MSGCTR_ENG_DmtSMSProfApi::SMSProfileIDAndData_S;

// Conversion failures stay inside: a leaf of the wrong type reads as its reset value.
void profileFromMap(void* record, const MSGCTR_ENG_GeneralProfileApi::ValuesMap& map)
{
    Record* r = static_cast<Record*>(record);
    const MSGCTR_ValuesMap values(map);
    values.getString(&r->strProfileName, "ProfileName");
    values.getString(&r->strSMSC, "SMSC");
    values.getBool(&r->bReadonly, "Readonly");
}

void profileToMap(MSGCTR_ENG_GeneralProfileApi::ValuesMap* map, const void* record)
{
    const Record* r = static_cast<const Record*>(record);
    map->put("ProfileName", MSGCTR_DmtDataApi::fromString(r->strProfileName));
    map->put("SMSC", MSGCTR_DmtDataApi::fromString(r->strSMSC));
    map->put("Readonly", MSGCTR_DmtDataApi::fromBool(r->bReadonly));
}

} // namespace

MSGCTR_ENG_SMS_Gpa::MSGCTR_ENG_SMS_Gpa()
    : MSGCTR_ENG_GeneralProfileApi(profileFromMap, profileToMap,
                                   appendProfileEntry<Entry, profileFromMap>, clearProfileEntries<Entry>,
                                   QStringLiteral("./DevDetail/Ext/Conf/Msg/SMS/Default"),
                                   QStringLiteral("./DevDetail/Ext/Conf/Msg/Profiles/SMS"))
{
}
