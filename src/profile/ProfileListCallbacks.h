// The list callbacks of the profile engine, shared by every profile kind: a kind's list is a std::vector of
// its id-and-record entries, filled through the kind's own leaf conversion.
#pragma once

#include "MSGCTR_ENG_GeneralProfileApi.h"

#include <vector>

template <typename Entry, void (*profileFromMap)(void*, const MSGCTR_ENG_GeneralProfileApi::ValuesMap&)>
void appendProfileEntry(void* list, const MSGCTR_ENG_GeneralProfileApi::PROFILE_ID_S& id,
                        const MSGCTR_ENG_GeneralProfileApi::ValuesMap& map)
{
    Entry entry;
    entry.profID = id;
    profileFromMap(&entry.profData, map);
    static_cast<std::vector<Entry>*>(list)->push_back(entry);
}

template <typename Entry>
void clearProfileEntries(void* list)
{
    static_cast<std::vector<Entry>*>(list)->clear();
}
