// Kinds of address-book records; the first word of a contact UID.
#pragma once

enum ADDRBK_RECORD_TYPE_T : int {
    ADDRBK_RECORD_TYPE_SIM_CONTACT = 4,
    ADDRBK_RECORD_TYPE_CONTACT = 8,
    ADDRBK_RECORD_TYPE_GROUP = 16,
};
