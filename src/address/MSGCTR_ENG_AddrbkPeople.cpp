#include "MSGCTR_ENG_AddrbkPeople.h"

#include "MSGCTR_ENG_AbkCtctApi.h"

bool MSGCTR_ENG_AddrbkPeople__is_Tel_AddrbkAttrType(ADDRBK_ATTR_TYPE_T type)
{
    switch (type) {
    case ADDRBK_ATTR_TYPE_TEL_GENERAL:
    case ADDRBK_ATTR_TYPE_TEL_MOBILE:
    case ADDRBK_ATTR_TYPE_TEL_HOME:
    case ADDRBK_ATTR_TYPE_TEL_WORK:
    case ADDRBK_ATTR_TYPE_TEL_FAX:
    case ADDRBK_ATTR_TYPE_TEL_PAGER:
    case ADDRBK_ATTR_TYPE_TEL_OTHER:
        return true;
    default:
        return false;
    }
}

bool MSGCTR_ENG_AddrbkPeople__is_Email_AddrbkAttrType(ADDRBK_ATTR_TYPE_T type)
{
    switch (type) {
    case ADDRBK_ATTR_TYPE_EMAIL_GENERAL:
    case ADDRBK_ATTR_TYPE_EMAIL_HOME:
    case ADDRBK_ATTR_TYPE_EMAIL_WORK:
        return true;
    default:
        return false;
    }
}

bool MSGCTR_ENG_AddrbkPeople__is_IM_AddrbkAttrType(ADDRBK_ATTR_TYPE_T type)
{
    return type == ADDRBK_ATTR_TYPE_IM;
}

MSGCTR_ENG_AddrbkPeople::MSGCTR_ENG_AddrbkPeople() = default;

MSGCTR_ENG_AddrbkPeople::MSGCTR_ENG_AddrbkPeople(const MSGCTR_ENG_AddrbkPeople& other) = default;

MSGCTR_ENG_AddrbkPeople& MSGCTR_ENG_AddrbkPeople::operator=(const MSGCTR_ENG_AddrbkPeople& other) = default;

MSGCTR_ENG_AddrbkPeople::~MSGCTR_ENG_AddrbkPeople() = default;

MSGCTR_ENG_AddrbkPeople& MSGCTR_ENG_AddrbkPeople::operator=(const ADDRBK_ENG_Contact& contact)
{
    clear();
    MSGCTR_ENG_AbkCtctApi::get1stElemByContentFieldType(&m_name, contact, ADDRBK_FIELD_TYPE_NAME);
    // Numbers, e-mail addresses and messenger ids are told apart by their attribute type, whatever field
    // the record filed them under.
    for (const ADDRBK_ENG_ContactElem& elem : contact.elems()) {
        if (m_number.isEmpty() && MSGCTR_ENG_AddrbkPeople__is_Tel_AddrbkAttrType(elem.attrType))
            m_number = elem.value;
        else if (m_email.isEmpty() && MSGCTR_ENG_AddrbkPeople__is_Email_AddrbkAttrType(elem.attrType))
            m_email = elem.value;
        else if (m_im.isEmpty() && MSGCTR_ENG_AddrbkPeople__is_IM_AddrbkAttrType(elem.attrType))
            m_im = elem.value;
    }
    MSGCTR_ENG_AbkCtctApi::get1stElemByContentFieldType(&m_picture, contact, ADDRBK_FIELD_TYPE_PICTURE);
    MSGCTR_ENG_AbkCtctApi::get1stElemByContentFieldType(&m_ringAlert, contact, ADDRBK_FIELD_TYPE_RING_ALERT);
    MSGCTR_ENG_AbkCtctApi::get1stElemByContentFieldType(&m_video, contact, ADDRBK_FIELD_TYPE_VIDEO);
    MSGCTR_ENG_AbkCtctApi::get1stElemByContentFieldType(&m_lightAlert, contact, ADDRBK_FIELD_TYPE_LIGHT_ALERT);
    MSGCTR_ENG_AbkCtctApi::get1stElemByContentFieldType(&m_msgAlert, contact, ADDRBK_FIELD_TYPE_MSG_ALERT);
    return *this;
}

void MSGCTR_ENG_AddrbkPeople::clear()
{
    *this = MSGCTR_ENG_AddrbkPeople();
}

void MSGCTR_ENG_AddrbkPeople::updateByAddrbkSearchResult(const ADDRBK_SEARCH_RESULT_S& result)
{
    const auto take = [](QString* field, const QString& value) {
        if (!value.isEmpty())
            *field = value;
    };
    take(&m_name, result.displayName);
    take(&m_number, result.matchedNumber);
    take(&m_email, result.matchedEmail);
    take(&m_picture, result.picture);
    take(&m_ringAlert, result.ringAlert);
    take(&m_msgAlert, result.msgAlert);
}
