#include "profile/MSGCTR_ENG_MMS_Gpa.h"

#include "MSGCTR_DmtDataApi.h"
#include "MSGCTR_ENG_MMSProfileApi.h"
#include "MSGCTR_ValuesMap.h"

#include <vector>

namespace {

using Record = MSGCTR_ENG_MMSProfileApi::MMSProfileData_S;
using Entry = MSGCTR_ENG_MMSProfileApi::MMSProfileIDAndData_S;
using List = std::vector<Entry>;

// Conversion failures stay inside: a leaf of the wrong type reads as its reset value.
void profileFromMap(void* record, const MSGCTR_ENG_GeneralProfileApi::ValuesMap& map)
{
    Record* r = static_cast<Record*>(record);
    const MSGCTR_ValuesMap values(map);
    MSGCTR_ERRCODE first = MSGCTR_ERRCODE__SUCCESS;
    const auto keep = [&first](MSGCTR_ERRCODE result) {
        if (MSGCTR_ERRCODE_IS_SUCCESS(first))
            first = result;
    };
    keep(values.getString(&r->strProfileName, "ProfileName"));
    keep(values.getString(&r->strMMSC, "MMSC"));
    keep(values.getString(&r->strIntProf, "IntProf"));
    keep(values.getString(&r->strIntProf2, "IntProf2"));
    keep(values.getInt(&r->nMOSizeLimit, "MOSizeLimit"));
    keep(values.getBool(&r->bReadonly, "Readonly"));
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

void listAppend(void* list, const MSGCTR_ENG_GeneralProfileApi::PROFILE_ID_S& id,
                const MSGCTR_ENG_GeneralProfileApi::ValuesMap& map)
{
    Entry entry;
    entry.profID = id;
    profileFromMap(&entry.profData, map);
    static_cast<List*>(list)->push_back(entry);
}

void listClear(void* list)
{
    static_cast<List*>(list)->clear();
}

} // namespace

MSGCTR_ENG_MMS_Gpa::MSGCTR_ENG_MMS_Gpa()
    : MSGCTR_ENG_GeneralProfileApi(profileFromMap, profileToMap, listAppend, listClear,
                                   QStringLiteral("./DevDetail/Ext/Conf/Msg/MMS/Default"),
                                   QStringLiteral("./DevDetail/Ext/Conf/Msg/Profiles/MMS"))
{
}
