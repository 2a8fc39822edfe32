#include "MSGCTR_ENG_Addrbk.h"

#include "MSGCTR_ENG_AddrTypeChk.h"
#include "MSGCTR_ENG_AddrbkPeople.h"

namespace {

MSGCTR_ENG_AddrbkSearchCallback s_searchByNumber = nullptr;
MSGCTR_ENG_AddrbkSearchCallback s_searchByEmail = nullptr;
MSGCTR_ENG_AddrbkGetContactCallback s_getContact = nullptr;
// Created on the first beginCache() and never destroyed.
MSGCTR_ENG_AddrbkCache* s_cache = nullptr;

struct AddrbkResultRow {
    MSGCTR_ERRCODE msgctrErrcode;
    ADDRBK_ENG_RESULT_T addrbkResult;
};

// Searched from the first row; the first match wins.
const AddrbkResultRow kAddrbkResultTable[] = {
    {MSGCTR_ERRCODE__SUCCESS, ADDRBK_ENG_RESULT_SUCCESS},
    {MSGCTR_ERRCODE__ADDRBK_RESULT_MINUS_100, ADDRBK_ENG_RESULT_NOT_FOUND},
    {MSGCTR_ERRCODE__INVALID_ARGUMENT, ADDRBK_ENG_RESULT_INVALID_PARAM},
};

typedef QMap<QString, MSGCTR_ENG_AddrbkCacheSearchResult>& (MSGCTR_ENG_AddrbkCache::*CacheMapOf)();

ADDRBK_ENG_RESULT_T cachedSearch(ADDRBK_SEARCH_RESULT_S& result, const QString& address,
                                 MSGCTR_ENG_AddrbkSearchCallback callback, CacheMapOf mapOf)
{
    const bool caching = MSGCTR_ENG_Addrbk::cacheIsEnabled();
    if (caching) {
        const QMap<QString, MSGCTR_ENG_AddrbkCacheSearchResult>& map = (s_cache->*mapOf)();
        const auto hit = map.constFind(address);
        if (hit != map.constEnd()) {
            result = hit->searchResult;
            return hit->result;
        }
    }
    ADDRBK_ENG_RESULT_T code = ADDRBK_ENG_RESULT_NOT_HANDLED;
    if (callback)
        code = callback(result, address);
    if (caching)
        (s_cache->*mapOf)().insert(address, MSGCTR_ENG_AddrbkCacheSearchResult(code, result));
    return code;
}

MSGCTR_ERRCODE search(ADDRBK_SEARCH_RESULT_S* result, bool* found, const QString& address,
                      MSGCTR_ENG_AddrbkSearchCallback callback, CacheMapOf mapOf)
{
    *result = MSGCTR_ENG_Addrbk::nullSearchResult();
    result->displayName = address;
    *found = false;

    ADDRBK_SEARCH_RESULT_S fresh = MSGCTR_ENG_Addrbk::nullSearchResult();
    const ADDRBK_ENG_RESULT_T code = cachedSearch(fresh, address, callback, mapOf);
    if (code == ADDRBK_ENG_RESULT_NOT_HANDLED)
        return MSGCTR_ERRCODE__SUCCESS;
    const MSGCTR_ERRCODE status = MSGCTR_ENG_Addrbk::toMsgctrErrcodeFromAddrbkResult(code);
    if (MSGCTR_ERRCODE_IS_SUCCESS(status)) {
        *result = fresh;
        *found = true;
    }
    return status;
}

MSGCTR_ERRCODE searchByNumber(ADDRBK_SEARCH_RESULT_S* result, bool* found, const QString& number)
{
    return search(result, found, number, s_searchByNumber, &MSGCTR_ENG_AddrbkCache::numberMap);
}

MSGCTR_ERRCODE searchByEmail(ADDRBK_SEARCH_RESULT_S* result, bool* found, const QString& email)
{
    return search(result, found, email, s_searchByEmail, &MSGCTR_ENG_AddrbkCache::emailMap);
}

typedef MSGCTR_ERRCODE (*SearchFn)(ADDRBK_SEARCH_RESULT_S*, bool*, const QString&);

MSGCTR_ERRCODE searchWithUid(SearchFn fn, ADDRBK_SEARCH_RESULT_S* result, bool* found, ADDRBK_CONTACT_UID_S* uid,
                             const QString& address)
{
    const MSGCTR_ERRCODE status = fn(result, found, address);
    *uid = *found ? MSGCTR_ENG_Addrbk::getContactUIDFromSearchResult(*result) : MSGCTR_ENG_Addrbk::nullContactUID();
    return status;
}

MSGCTR_ERRCODE searchWithPeople(SearchFn fn, bool byNumber, ADDRBK_SEARCH_RESULT_S* result, bool* found,
                                MSGCTR_ENG_AddrbkPeople* people, const QString& address)
{
    people->clear();
    people->setName(address);
    if (byNumber)
        people->setNumber(address);
    const MSGCTR_ERRCODE status = fn(result, found, address);
    if (MSGCTR_ERRCODE_IS_SUCCESS(status) && *found) {
        MSGCTR_ENG_Addrbk::getPeopleValue(people, MSGCTR_ENG_Addrbk::getContactUIDFromSearchResult(*result));
        people->updateByAddrbkSearchResult(*result);
        // The contact may have several numbers: show the one that matched.
        if (byNumber)
            people->setNumber(address);
    }
    return status;
}

} // namespace

void MSGCTR_ENG_Addrbk::setAddrbkCallback(MSGCTR_ENG_AddrbkSearchCallback searchByNumber,
                                          MSGCTR_ENG_AddrbkSearchCallback searchByEmail,
                                          MSGCTR_ENG_AddrbkGetContactCallback getContact)
{
    s_searchByNumber = searchByNumber;
    s_searchByEmail = searchByEmail;
    s_getContact = getContact;
}

void MSGCTR_ENG_Addrbk::beginCache()
{
    if (!s_cache)
        s_cache = new MSGCTR_ENG_AddrbkCache;
    s_cache->clear();
    s_cache->enableCache(true);
}

void MSGCTR_ENG_Addrbk::endCache()
{
    if (!s_cache)
        return;
    s_cache->clear();
    s_cache->enableCache(false);
}

MSGCTR_ENG_AddrbkCache* MSGCTR_ENG_Addrbk::cache()
{
    return s_cache;
}

bool MSGCTR_ENG_Addrbk::cacheIsEnabled()
{
    return s_cache && s_cache->cacheIsEnabled();
}

MSGCTR_ERRCODE MSGCTR_ENG_Addrbk::searchPeople(ADDRBK_SEARCH_RESULT_S* result, bool* found, const QString& address)
{
    if (isNumberAddr(address))
        return searchByNumber(result, found, address);
    return searchByEmail(result, found, address);
}

MSGCTR_ERRCODE MSGCTR_ENG_Addrbk::searchPeopleByNumber(ADDRBK_SEARCH_RESULT_S* result, bool* found,
                                                       const QString& number)
{
    return searchByNumber(result, found, number);
}

MSGCTR_ERRCODE MSGCTR_ENG_Addrbk::searchPeopleByEmail(ADDRBK_SEARCH_RESULT_S* result, bool* found,
                                                      const QString& email)
{
    return searchByEmail(result, found, email);
}

MSGCTR_ERRCODE MSGCTR_ENG_Addrbk::searchPeople(ADDRBK_SEARCH_RESULT_S* result, bool* found,
                                               ADDRBK_CONTACT_UID_S* uid, const QString& address)
{
    return searchWithUid(isNumberAddr(address) ? searchByNumber : searchByEmail, result, found, uid, address);
}

MSGCTR_ERRCODE MSGCTR_ENG_Addrbk::searchPeopleByNumber(ADDRBK_SEARCH_RESULT_S* result, bool* found,
                                                       ADDRBK_CONTACT_UID_S* uid, const QString& number)
{
    return searchWithUid(searchByNumber, result, found, uid, number);
}

MSGCTR_ERRCODE MSGCTR_ENG_Addrbk::searchPeopleByEmail(ADDRBK_SEARCH_RESULT_S* result, bool* found,
                                                      ADDRBK_CONTACT_UID_S* uid, const QString& email)
{
    return searchWithUid(searchByEmail, result, found, uid, email);
}

MSGCTR_ERRCODE MSGCTR_ENG_Addrbk::searchPeople(ADDRBK_SEARCH_RESULT_S* result, bool* found,
                                               MSGCTR_ENG_AddrbkPeople* people, const QString& address)
{
    if (isNumberAddr(address))
        return searchWithPeople(searchByNumber, true, result, found, people, address);
    return searchWithPeople(searchByEmail, false, result, found, people, address);
}

MSGCTR_ERRCODE MSGCTR_ENG_Addrbk::searchPeopleByNumber(ADDRBK_SEARCH_RESULT_S* result, bool* found,
                                                       MSGCTR_ENG_AddrbkPeople* people, const QString& number)
{
    return searchWithPeople(searchByNumber, true, result, found, people, number);
}

MSGCTR_ERRCODE MSGCTR_ENG_Addrbk::searchPeopleByEmail(ADDRBK_SEARCH_RESULT_S* result, bool* found,
                                                      MSGCTR_ENG_AddrbkPeople* people, const QString& email)
{
    return searchWithPeople(searchByEmail, false, result, found, people, email);
}

ADDRBK_ENG_RESULT_T MSGCTR_ENG_Addrbk::getPeopleValue(MSGCTR_ENG_AddrbkPeople* people,
                                                      const ADDRBK_CONTACT_UID_S& uid)
{
    const bool caching = cacheIsEnabled();
    if (caching) {
        const auto hit = s_cache->contactMap().constFind(uid);
        if (hit != s_cache->contactMap().constEnd()) {
            if (hit->result == ADDRBK_ENG_RESULT_SUCCESS)
                *people = hit->contact;
            return hit->result;
        }
    }
    ADDRBK_ENG_RESULT_T code = ADDRBK_ENG_RESULT_NOT_HANDLED;
    ADDRBK_ENG_Contact copy;
    if (s_getContact) {
        ADDRBK_ENG_Contact* contact = nullptr;
        code = s_getContact(contact, static_cast<ADDRBK_RECORD_TYPE_T>(uid.recordType), static_cast<int>(uid.index));
        // A handler that claims success without a record has found nothing.
        if (code == ADDRBK_ENG_RESULT_SUCCESS && !contact)
            code = ADDRBK_ENG_RESULT_NOT_FOUND;
        if (code == ADDRBK_ENG_RESULT_SUCCESS)
            copy = *contact;
    }
    if (caching)
        s_cache->contactMap().insert(uid, MSGCTR_ENG_AddrbkCacheContact(code, copy));
    if (code == ADDRBK_ENG_RESULT_SUCCESS)
        *people = copy;
    return code;
}

ADDRBK_SEARCH_RESULT_S MSGCTR_ENG_Addrbk::getSearchResultByAddress(const QString& address)
{
    ADDRBK_SEARCH_RESULT_S result;
    bool found = false;
    searchPeople(&result, &found, address);
    return result;
}

QString MSGCTR_ENG_Addrbk::getNameByAddress(const QString& address)
{
    return getSearchResultByAddress(address).displayName;
}

QStringList MSGCTR_ENG_Addrbk::getNameListByAddressList(const QStringList& addresses)
{
    QStringList names;
    names.reserve(addresses.size());
    for (const QString& address : addresses)
        names.append(getNameByAddress(address));
    return names;
}

QString MSGCTR_ENG_Addrbk::getNameListStringByAddressList(const QStringList& addresses, const QString& separator)
{
    return getNameListByAddressList(addresses).join(separator);
}

bool MSGCTR_ENG_Addrbk::isNumberAddr(const QString& address)
{
    return MSGCTR_ENG_AddrTypeChk::isNumber(address);
}

bool MSGCTR_ENG_Addrbk::isEmailAddr(const QString& address)
{
    return MSGCTR_ENG_AddrTypeChk::isValidEmailAddress(address);
}

ADDRBK_CONTACT_UID_S MSGCTR_ENG_Addrbk::nullContactUID()
{
    return ADDRBK_CONTACT_UID_S::null();
}

bool MSGCTR_ENG_Addrbk::isNullContactUID(const ADDRBK_CONTACT_UID_S& uid)
{
    return uid.isNull();
}

bool MSGCTR_ENG_Addrbk::isValidContactUID(const ADDRBK_CONTACT_UID_S& uid)
{
    return !uid.isNull();
}

ADDRBK_SEARCH_RESULT_S MSGCTR_ENG_Addrbk::nullSearchResult()
{
    return ADDRBK_SEARCH_RESULT_S::null();
}

bool MSGCTR_ENG_Addrbk::isNullSearchResult(const ADDRBK_SEARCH_RESULT_S& result)
{
    return isNullContactUID(result.contactUID);
}

bool MSGCTR_ENG_Addrbk::isValidSearchResult(const ADDRBK_SEARCH_RESULT_S& result)
{
    return isValidContactUID(result.contactUID);
}

ADDRBK_CONTACT_UID_S MSGCTR_ENG_Addrbk::getContactUIDFromSearchResult(const ADDRBK_SEARCH_RESULT_S& result)
{
    return result.contactUID;
}

MSGCTR_ERRCODE MSGCTR_ENG_Addrbk::toMsgctrErrcodeFromAddrbkResult(ADDRBK_ENG_RESULT_T result)
{
    for (const AddrbkResultRow& row : kAddrbkResultTable) {
        if (row.addrbkResult == result)
            return row.msgctrErrcode;
    }
    return MSGCTR_ERRCODE__ADDRBK_UNKNOWN_RESULT;
}
