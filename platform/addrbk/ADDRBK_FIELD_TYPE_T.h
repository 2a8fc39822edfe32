// Content fields of a contact record. A field may hold several values (several numbers, say).
#pragma once

enum ADDRBK_FIELD_TYPE_T : int {
    ADDRBK_FIELD_TYPE_NAME = 1,
    ADDRBK_FIELD_TYPE_TEL = 2,
    ADDRBK_FIELD_TYPE_EMAIL = 3,
    ADDRBK_FIELD_TYPE_IM = 4,
    ADDRBK_FIELD_TYPE_PICTURE = 5,
    ADDRBK_FIELD_TYPE_RING_ALERT = 6,
    ADDRBK_FIELD_TYPE_VIDEO = 7,
    ADDRBK_FIELD_TYPE_LIGHT_ALERT = 8,
    ADDRBK_FIELD_TYPE_MSG_ALERT = 9,
};
