// One address-book contact: a list of field values, each tagged with its content field and attribute type.
#pragma once

#include "ADDRBK_ATTR_TYPE_T.h"
#include "ADDRBK_CONTACT_UID_S.h"
#include "ADDRBK_FIELD_TYPE_T.h"

#include <QList>
#include <QString>

struct ADDRBK_ENG_ContactElem {
    ADDRBK_FIELD_TYPE_T fieldType;
    ADDRBK_ATTR_TYPE_T attrType;
    QString value;
};

class ADDRBK_ENG_Contact {
public:
    ADDRBK_ENG_Contact();
    explicit ADDRBK_ENG_Contact(const ADDRBK_CONTACT_UID_S& uid);

    const ADDRBK_CONTACT_UID_S& uid() const { return m_uid; }
    void setUid(const ADDRBK_CONTACT_UID_S& uid) { m_uid = uid; }

    void addElem(ADDRBK_FIELD_TYPE_T fieldType, ADDRBK_ATTR_TYPE_T attrType, const QString& value);
    const QList<ADDRBK_ENG_ContactElem>& elems() const { return m_elems; }
    // The values of one content field, in the order they were added.
    QList<ADDRBK_ENG_ContactElem> elemsOfField(ADDRBK_FIELD_TYPE_T fieldType) const;
    void clear();

private:
    ADDRBK_CONTACT_UID_S m_uid;
    QList<ADDRBK_ENG_ContactElem> m_elems;
};
