// Reading the values of one content field from an address-book contact.
#pragma once

#include "msgctr_export.h"

#include "ADDRBK_ENG_Contact.h"
#include "ADDRBK_FIELD_TYPE_T.h"

#include <QString>
#include <QStringList>

class MSGCTR_EXPORT MSGCTR_ENG_AbkCtctApi {
public:
    // Every value of the field, in the contact's order.
    static QStringList getAllElemsByContentFieldType(const ADDRBK_ENG_Contact& contact,
                                                     ADDRBK_FIELD_TYPE_T fieldType);
    // The first value of the field; false (and *value empty) when the contact has none.
    static bool get1stElemByContentFieldType(QString* value, const ADDRBK_ENG_Contact& contact,
                                             ADDRBK_FIELD_TYPE_T fieldType);
};
