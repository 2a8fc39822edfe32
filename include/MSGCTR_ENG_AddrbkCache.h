// The process-wide cache of address-book look-ups, switched on for the length of a batch (while a message
// list is drawn, say). Misses and failures are cached as well as hits.
#pragma once

#include "msgctr_export.h"

#include "ADDRBK_CONTACT_UID_S.h"
#include "ADDRBK_ENG_Contact.h"
#include "ADDRBK_ENG_RESULT_T.h"
#include "ADDRBK_SEARCH_RESULT_S.h"

#include <QMap>
#include <QString>

class MSGCTR_EXPORT MSGCTR_ENG_AddrbkCacheSearchResult {
public:
    MSGCTR_ENG_AddrbkCacheSearchResult();
    MSGCTR_ENG_AddrbkCacheSearchResult(ADDRBK_ENG_RESULT_T result, const ADDRBK_SEARCH_RESULT_S& searchResult);

    ADDRBK_ENG_RESULT_T result;
    ADDRBK_SEARCH_RESULT_S searchResult;
};

// A fetched contact record and the code its fetch answered.
class MSGCTR_EXPORT MSGCTR_ENG_AddrbkCacheContact {
public:
    MSGCTR_ENG_AddrbkCacheContact();
    MSGCTR_ENG_AddrbkCacheContact(ADDRBK_ENG_RESULT_T result, const ADDRBK_ENG_Contact& contact);

    ADDRBK_ENG_RESULT_T result;
    ADDRBK_ENG_Contact contact;
};

class MSGCTR_EXPORT MSGCTR_ENG_AddrbkCache {
public:
    MSGCTR_ENG_AddrbkCache();
    virtual ~MSGCTR_ENG_AddrbkCache();

    void clear();
    void enableCache(bool enabled) { m_enabled = enabled; }
    bool cacheIsEnabled() const { return m_enabled; }

    QMap<QString, MSGCTR_ENG_AddrbkCacheSearchResult>& numberMap() { return m_byNumber; }
    QMap<QString, MSGCTR_ENG_AddrbkCacheSearchResult>& emailMap() { return m_byEmail; }
    QMap<ADDRBK_CONTACT_UID_S, MSGCTR_ENG_AddrbkCacheContact>& contactMap() { return m_byUid; }

private:
    bool m_enabled;
    QMap<QString, MSGCTR_ENG_AddrbkCacheSearchResult> m_byNumber;
    QMap<QString, MSGCTR_ENG_AddrbkCacheSearchResult> m_byEmail;
    QMap<ADDRBK_CONTACT_UID_S, MSGCTR_ENG_AddrbkCacheContact> m_byUid;
};
