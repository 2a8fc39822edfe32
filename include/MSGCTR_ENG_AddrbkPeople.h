// The engine's flat view of one contact: one text per kind of value.
#pragma once

#include "msgctr_export.h"

#include "ADDRBK_ATTR_TYPE_T.h"
#include "ADDRBK_ENG_Contact.h"
#include "ADDRBK_SEARCH_RESULT_S.h"

#include <QString>

// The groups of attribute types: telephone numbers, e-mail addresses, messenger ids.
MSGCTR_EXPORT bool MSGCTR_ENG_AddrbkPeople__is_Tel_AddrbkAttrType(ADDRBK_ATTR_TYPE_T type);
MSGCTR_EXPORT bool MSGCTR_ENG_AddrbkPeople__is_Email_AddrbkAttrType(ADDRBK_ATTR_TYPE_T type);
MSGCTR_EXPORT bool MSGCTR_ENG_AddrbkPeople__is_IM_AddrbkAttrType(ADDRBK_ATTR_TYPE_T type);

class MSGCTR_EXPORT MSGCTR_ENG_AddrbkPeople {
public:
    MSGCTR_ENG_AddrbkPeople();
    MSGCTR_ENG_AddrbkPeople(const MSGCTR_ENG_AddrbkPeople& other);
    MSGCTR_ENG_AddrbkPeople& operator=(const MSGCTR_ENG_AddrbkPeople& other);
    // Takes the contact's name and the first value of each kind; the rest is cleared.
    MSGCTR_ENG_AddrbkPeople& operator=(const ADDRBK_ENG_Contact& contact);
    virtual ~MSGCTR_ENG_AddrbkPeople();

    const QString& name() const { return m_name; }
    const QString& email() const { return m_email; }
    const QString& im() const { return m_im; }
    const QString& number() const { return m_number; }
    const QString& picture() const { return m_picture; }
    const QString& ringAlert() const { return m_ringAlert; }
    const QString& video() const { return m_video; }
    const QString& lightAlert() const { return m_lightAlert; }
    const QString& msgAlert() const { return m_msgAlert; }

    void setName(const QString& name) { m_name = name; }
    void setEmail(const QString& email) { m_email = email; }
    void setNumber(const QString& number) { m_number = number; }

    bool hasEmail() const { return !m_email.isEmpty(); }
    bool hasIM() const { return !m_im.isEmpty(); }
    bool hasNumber() const { return !m_number.isEmpty(); }

    void clear();
    // The search result knows which value matched and what the list screens show: those win over the
    // values taken from the contact record. Its empty texts change nothing.
    void updateByAddrbkSearchResult(const ADDRBK_SEARCH_RESULT_S& result);

private:
    QString m_name;
    QString m_email;
    QString m_im;
    QString m_number;
    QString m_picture;
    QString m_ringAlert;
    QString m_video;
    QString m_lightAlert;
    QString m_msgAlert;
};
