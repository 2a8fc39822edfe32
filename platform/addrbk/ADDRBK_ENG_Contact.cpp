#include "ADDRBK_ENG_Contact.h"

ADDRBK_ENG_Contact::ADDRBK_ENG_Contact() : m_uid(ADDRBK_CONTACT_UID_S::null()) {}

ADDRBK_ENG_Contact::ADDRBK_ENG_Contact(const ADDRBK_CONTACT_UID_S& uid) : m_uid(uid) {}

void ADDRBK_ENG_Contact::addElem(ADDRBK_FIELD_TYPE_T fieldType, ADDRBK_ATTR_TYPE_T attrType, const QString& value)
{
    m_elems.append(ADDRBK_ENG_ContactElem{fieldType, attrType, value});
}

QList<ADDRBK_ENG_ContactElem> ADDRBK_ENG_Contact::elemsOfField(ADDRBK_FIELD_TYPE_T fieldType) const
{
    QList<ADDRBK_ENG_ContactElem> found;
    for (const ADDRBK_ENG_ContactElem& elem : m_elems) {
        if (elem.fieldType == fieldType)
            found.append(elem);
    }
    return found;
}

void ADDRBK_ENG_Contact::clear()
{
    m_uid = ADDRBK_CONTACT_UID_S::null();
    m_elems.clear();
}
