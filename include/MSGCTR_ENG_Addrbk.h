// Contact look-up for the messaging engine. The engine does not talk to the address book itself: the
// application registers three callbacks and every look-up goes through them, through the cache while one
// is begun (beginCache .. endCache).
#pragma once

#include "MSGCTR_ENG_AddrbkCache.h"
#include "MSGCTR_ERRCODE.h"
#include "msgctr_export.h"

#include "ADDRBK_CONTACT_UID_S.h"
#include "ADDRBK_ENG_Contact.h"
#include "ADDRBK_ENG_RESULT_T.h"
#include "ADDRBK_RECORD_TYPE_T.h"
#include "ADDRBK_SEARCH_RESULT_S.h"

#include <QString>
#include <QStringList>

class MSGCTR_ENG_AddrbkPeople;

// Fills the result for the number or e-mail address; ADDRBK_ENG_RESULT_NOT_HANDLED when the handler does not
// serve the request.
typedef ADDRBK_ENG_RESULT_T (*MSGCTR_ENG_AddrbkSearchCallback)(ADDRBK_SEARCH_RESULT_S& result,
                                                               const QString& address);
// Points `contact` at the record (record type, index); the record stays the callback's own and needs to
// stay valid only until the callback is called again (the engine copies it at once).
typedef ADDRBK_ENG_RESULT_T (*MSGCTR_ENG_AddrbkGetContactCallback)(ADDRBK_ENG_Contact*& contact,
                                                                   ADDRBK_RECORD_TYPE_T recordType, int index);

class MSGCTR_EXPORT MSGCTR_ENG_Addrbk {
public:
    // Null callbacks are allowed: look-ups through them find nothing.
    static void setAddrbkCallback(MSGCTR_ENG_AddrbkSearchCallback searchByNumber,
                                  MSGCTR_ENG_AddrbkSearchCallback searchByEmail,
                                  MSGCTR_ENG_AddrbkGetContactCallback getContact);

    static void beginCache();
    static void endCache();
    // Null until the first beginCache().
    static MSGCTR_ENG_AddrbkCache* cache();
    static bool cacheIsEnabled();

    // By number when the address is a number, otherwise by e-mail. *result gets the found contact, or the
    // null result named after the address; *found whether a contact matched. A missing callback finds
    // nothing and is no error.
    static MSGCTR_ERRCODE searchPeople(ADDRBK_SEARCH_RESULT_S* result, bool* found, const QString& address);
    static MSGCTR_ERRCODE searchPeopleByNumber(ADDRBK_SEARCH_RESULT_S* result, bool* found, const QString& number);
    static MSGCTR_ERRCODE searchPeopleByEmail(ADDRBK_SEARCH_RESULT_S* result, bool* found, const QString& email);

    // The same, also giving the contact's UID (the null UID when nothing is found).
    static MSGCTR_ERRCODE searchPeople(ADDRBK_SEARCH_RESULT_S* result, bool* found, ADDRBK_CONTACT_UID_S* uid,
                                       const QString& address);
    static MSGCTR_ERRCODE searchPeopleByNumber(ADDRBK_SEARCH_RESULT_S* result, bool* found,
                                               ADDRBK_CONTACT_UID_S* uid, const QString& number);
    static MSGCTR_ERRCODE searchPeopleByEmail(ADDRBK_SEARCH_RESULT_S* result, bool* found,
                                              ADDRBK_CONTACT_UID_S* uid, const QString& email);

    // The same, also giving the whole contact. Without a match the contact holds just the address as its
    // name (and as its number, for a number). With one, the number is the one that matched.
    static MSGCTR_ERRCODE searchPeople(ADDRBK_SEARCH_RESULT_S* result, bool* found, MSGCTR_ENG_AddrbkPeople* people,
                                       const QString& address);
    static MSGCTR_ERRCODE searchPeopleByNumber(ADDRBK_SEARCH_RESULT_S* result, bool* found,
                                               MSGCTR_ENG_AddrbkPeople* people, const QString& number);
    static MSGCTR_ERRCODE searchPeopleByEmail(ADDRBK_SEARCH_RESULT_S* result, bool* found,
                                              MSGCTR_ENG_AddrbkPeople* people, const QString& email);

    // Fetches the contact record through the get-contact callback into *people; an address-book result,
    // ADDRBK_ENG_RESULT_NOT_HANDLED without a callback. *people changes only on success.
    static ADDRBK_ENG_RESULT_T getPeopleValue(MSGCTR_ENG_AddrbkPeople* people, const ADDRBK_CONTACT_UID_S& uid);

    static ADDRBK_SEARCH_RESULT_S getSearchResultByAddress(const QString& address);
    // The contact's display name; the address itself when no contact matches.
    static QString getNameByAddress(const QString& address);
    static QStringList getNameListByAddressList(const QStringList& addresses);
    static QString getNameListStringByAddressList(const QStringList& addresses, const QString& separator);

    static bool isNumberAddr(const QString& address);
    static bool isEmailAddr(const QString& address);

    static ADDRBK_CONTACT_UID_S nullContactUID();
    static bool isNullContactUID(const ADDRBK_CONTACT_UID_S& uid);
    static bool isValidContactUID(const ADDRBK_CONTACT_UID_S& uid);
    static ADDRBK_SEARCH_RESULT_S nullSearchResult();
    static bool isNullSearchResult(const ADDRBK_SEARCH_RESULT_S& result);
    static bool isValidSearchResult(const ADDRBK_SEARCH_RESULT_S& result);
    static ADDRBK_CONTACT_UID_S getContactUIDFromSearchResult(const ADDRBK_SEARCH_RESULT_S& result);

    static MSGCTR_ERRCODE toMsgctrErrcodeFromAddrbkResult(ADDRBK_ENG_RESULT_T result);
};
