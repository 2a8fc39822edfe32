// The identity of one address-book record: its record type and its index. Indices start at 1, so an index
// of 0 marks the null UID.
#pragma once

#include <cstdint>

struct ADDRBK_CONTACT_UID_S {
    uint32_t recordType;
    uint32_t index;

    static ADDRBK_CONTACT_UID_S null();
    bool isNull() const { return index == 0; }

    bool operator<(const ADDRBK_CONTACT_UID_S& other) const;
    bool operator==(const ADDRBK_CONTACT_UID_S& other) const;
    bool operator!=(const ADDRBK_CONTACT_UID_S& other) const { return !(*this == other); }
};
