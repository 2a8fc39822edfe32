#include "profile/MSGCTR_ENG_SMS_Gpa.h"

#include "MSGCTR_DmtDataApi.h"
#include "MSGCTR_ENG_DmtSMSProfApi.h"
#include "MSGCTR_ValuesMap.h"

#include <vector>

namespace {

using Record = MSGCTR_ENG_DmtSMSProfApi::SMSProfileData_S;
using Entry = MSGCTR_ENG_DmtSMSProfApi::SMSProfileIDAndData_S;
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
    keep(values.getString(&r->strSMSC, "SMSC"));
    keep(values.getBool(&r->bReadonly, "Readonly"));
}

void profileToMap(MSGCTR_ENG_GeneralProfileApi::ValuesMap* map, const void* record)
{
    const Record* r = static_cast<const Record*>(record);
    map->put("ProfileName", MSGCTR_DmtDataApi::fromString(r->strProfileName));
    map->put("SMSC", MSGCTR_DmtDataApi::fromString(r->strSMSC));
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

MSGCTR_ENG_SMS_Gpa::MSGCTR_ENG_SMS_Gpa()
    : MSGCTR_ENG_GeneralProfileApi(profileFromMap, profileToMap, listAppend, listClear,
                                   QStringLiteral("./DevDetail/Ext/Conf/Msg/SMS/Default"),
                                   QStringLiteral("./DevDetail/Ext/Conf/Msg/Profiles/SMS"))
{
}
