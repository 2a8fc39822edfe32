#include "profile/MSGCTR_ENG_MMS_Gpa.h"

#include "MSGCTR_DmtDataApi.h"
#include "MSGCTR_ENG_MMSProfileApi.h"
#include "MSGCTR_ValuesMap.h"
#include "profile/ProfileListCallbacks.h"

namespace {

using Record = MSGCTR_ENG_MMSProfileApi::MMSProfileData_S;
using Entry = MSGCTR_ENG_MMSProfileApi::MMSProfileIDAndData_S;

// Conversion failures stay inside: a leaf of the wrong type reads as its reset value.
void profileFromMap(void* record, const MSGCTR_ENG_GeneralProfileApi::ValuesMap& map)
{
    Record* r = static_cast<Record*>(record);
    const MSGCTR_ValuesMap values(map);
    values.getString(&r->strProfileName, "ProfileName");
    values.getString(&r->strMMSC, "MMSC");
    values.getString(&r->strIntProf, "IntProf");
    values.getString(&r->strIntProf2, "IntProf2");
    values.getInt(&r->nMOSizeLimit, "MOSizeLimit");
    values.getBool(&r->bReadonly, "Readonly");
}

void profileToMap(MSGCTR_ENG_GeneralProfileApi::ValuesMap* map, const void* record)
{
    const Record* r = static_cast<const Record*>(record);
    map->put("ProfileName", MSGCTR_DmtDataApi::fromString(r->strProfileName));
    map->put("MMSC", MSGCTR_DmtDataApi::fromString(r->strMMSC));
    map->put("IntProf", MSGCTR_DmtDataApi::fromString(r->strIntProf));
    map->put("IntProf2", MSGCTR_DmtDataApi::fromString(r->strIntProf2));
    map->put("MOSizeLimit", MSGCTR_DmtDataApi::fromInt(r->nMOSizeLimit));
    map->put("Readonly", MSGCTR_DmtDataApi::fromBool(r->bReadonly));
}

} // namespace

MSGCTR_ENG_MMS_Gpa::MSGCTR_ENG_MMS_Gpa()
    : MSGCTR_ENG_GeneralProfileApi(profileFromMap, profileToMap,
                                   appendProfileEntry<Entry, profileFromMap>, clearProfileEntries<Entry>,
                                   QStringLiteral("./DevDetail/Ext/Conf/Msg/MMS/Default"),
                                   QStringLiteral("./DevDetail/Ext/Conf/Msg/Profiles/MMS"))
{
}
