// What a search of the address book by number or e-mail address answers: the matching contact's UID and
// the values a list screen shows for it.
#pragma once

#include "ADDRBK_CONTACT_UID_S.h"

#include <QString>

#include <cstdint>

struct ADDRBK_SEARCH_RESULT_S {
    ADDRBK_CONTACT_UID_S contactUID = ADDRBK_CONTACT_UID_S::null();
    QString displayName;
    QString firstName;
    QString lastName;
    QString nickName;
    QString matchedNumber;
    QString matchedEmail;
    QString picture;
    QString ringAlert;
    int matchedAttrType = 0;  // ADDRBK_ATTR_TYPE_T of the matched value
    QString msgAlert;
    int groupIndex = 0;
    uint8_t flags = 0;        // ADDRBK_SEARCH_FLAG_* bits

    static ADDRBK_SEARCH_RESULT_S null();
};

enum ADDRBK_SEARCH_FLAG_E : uint8_t {
    ADDRBK_SEARCH_FLAG_FAVOURITE = 0x01,
    ADDRBK_SEARCH_FLAG_BLOCKED = 0x02,
};
