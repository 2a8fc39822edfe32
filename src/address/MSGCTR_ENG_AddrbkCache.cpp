#include "MSGCTR_ENG_AddrbkCache.h"

MSGCTR_ENG_AddrbkCacheSearchResult::MSGCTR_ENG_AddrbkCacheSearchResult()
    : result(ADDRBK_ENG_RESULT_NOT_HANDLED), searchResult(ADDRBK_SEARCH_RESULT_S::null())
{
}

MSGCTR_ENG_AddrbkCacheSearchResult::MSGCTR_ENG_AddrbkCacheSearchResult(ADDRBK_ENG_RESULT_T result,
                                                                       const ADDRBK_SEARCH_RESULT_S& searchResult)
    : result(result), searchResult(searchResult)
{
}

MSGCTR_ENG_AddrbkCacheContact::MSGCTR_ENG_AddrbkCacheContact() : result(ADDRBK_ENG_RESULT_NOT_HANDLED) {}

MSGCTR_ENG_AddrbkCacheContact::MSGCTR_ENG_AddrbkCacheContact(ADDRBK_ENG_RESULT_T result,
                                                             const ADDRBK_ENG_Contact& contact)
    : result(result), contact(contact)
{
}

MSGCTR_ENG_AddrbkCache::MSGCTR_ENG_AddrbkCache() : m_enabled(false) {}

MSGCTR_ENG_AddrbkCache::~MSGCTR_ENG_AddrbkCache() = default;

void MSGCTR_ENG_AddrbkCache::clear()
{
    m_byNumber.clear();
    m_byEmail.clear();
    m_byUid.clear();
}
