// Attribute types of contact field values: the kind of number, e-mail address or messenger id a value is.
// Each kind has a bit of its own, so that sets of kinds can be written as masks.
#pragma once

enum ADDRBK_ATTR_TYPE_T : int {
    ADDRBK_ATTR_TYPE_NONE = 0,
    ADDRBK_ATTR_TYPE_TEL_GENERAL = 0x100,
    ADDRBK_ATTR_TYPE_TEL_MOBILE = 0x200,
    ADDRBK_ATTR_TYPE_TEL_HOME = 0x400,
    ADDRBK_ATTR_TYPE_TEL_WORK = 0x800,
    ADDRBK_ATTR_TYPE_TEL_FAX = 0x1000,
    ADDRBK_ATTR_TYPE_TEL_PAGER = 0x2000,
    ADDRBK_ATTR_TYPE_TEL_OTHER = 0x4000,
    ADDRBK_ATTR_TYPE_EMAIL_GENERAL = 0x10000,
    ADDRBK_ATTR_TYPE_EMAIL_HOME = 0x20000,
    ADDRBK_ATTR_TYPE_EMAIL_WORK = 0x40000,
    ADDRBK_ATTR_TYPE_IM = 0x100000,
};
