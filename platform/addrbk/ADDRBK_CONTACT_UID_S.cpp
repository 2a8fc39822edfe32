#include "ADDRBK_CONTACT_UID_S.h"

#include "ADDRBK_RECORD_TYPE_T.h"

ADDRBK_CONTACT_UID_S ADDRBK_CONTACT_UID_S::null()
{
    return ADDRBK_CONTACT_UID_S{ADDRBK_RECORD_TYPE_CONTACT, 0};
}

bool ADDRBK_CONTACT_UID_S::operator<(const ADDRBK_CONTACT_UID_S& other) const
{
    if (recordType != other.recordType)
        return recordType < other.recordType;
    return index < other.index;
}

bool ADDRBK_CONTACT_UID_S::operator==(const ADDRBK_CONTACT_UID_S& other) const
{
    return recordType == other.recordType && index == other.index;
}
