#include "MSGCTR_ENG_AbkCtctApi.h"

QStringList MSGCTR_ENG_AbkCtctApi::getAllElemsByContentFieldType(const ADDRBK_ENG_Contact& contact,
                                                                 ADDRBK_FIELD_TYPE_T fieldType)
{
    QStringList values;
    for (const ADDRBK_ENG_ContactElem& elem : contact.elems()) {
        if (elem.fieldType == fieldType)
            values.append(elem.value);
    }
    return values;
}

bool MSGCTR_ENG_AbkCtctApi::get1stElemByContentFieldType(QString* value, const ADDRBK_ENG_Contact& contact,
                                                         ADDRBK_FIELD_TYPE_T fieldType)
{
    value->clear();
    for (const ADDRBK_ENG_ContactElem& elem : contact.elems()) {
        if (elem.fieldType == fieldType) {
            *value = elem.value;
            return true;
        }
    }
    return false;
}
