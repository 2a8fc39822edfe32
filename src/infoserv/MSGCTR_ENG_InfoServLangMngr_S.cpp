#include "MSGCTR_ENG_InfoServLangMngr_S.h"

#include "MSGCTR_ENG_InfoServLang.h"
#include "MSGCTR_ENG_TAPI.h"

#include <algorithm>

MSGCTR_ERRCODE MSGCTR_ENG_InfoServLangMngr_S::loadDataFromTapi()
{
    *this = MSGCTR_ENG_InfoServLangMngr_S();
    std::vector<unsigned char> languages;
    const MSGCTR_ERRCODE msgctrErrcode = MSGCTR_ENG_TAPI::errcodeCbListCbLanguages(&languages);
    if (MSGCTR_ERRCODE_IS_ERROR(msgctrErrcode))
        return msgctrErrcode;
    for (size_t slot = 0; slot < languages.size(); ++slot) {
        LANG_ID_AND_INDEX_S entry;
        entry.m_langID = languages[slot];
        entry.m_nIndex = static_cast<unsigned short>(slot);
        m_vecLangIDAndIndex.push_back(entry);
    }
    m_vecLangIDAndIndexLoaded = m_vecLangIDAndIndex;
    return MSGCTR_ERRCODE__SUCCESS;
}

bool MSGCTR_ENG_InfoServLangMngr_S::containsLangID(unsigned char langID) const
{
    int pos = -1;
    return containsLangID(&pos, langID);
}

bool MSGCTR_ENG_InfoServLangMngr_S::containsLangID(int* pPos, unsigned char langID) const
{
    *pPos = -1;
    for (size_t i = 0; i < m_vecLangIDAndIndex.size(); ++i) {
        if (m_vecLangIDAndIndex[i].m_langID == langID) {
            *pPos = int(i);
            return true;
        }
    }
    return false;
}

void MSGCTR_ENG_InfoServLangMngr_S::sort()
{
    std::stable_sort(m_vecLangIDAndIndex.begin(), m_vecLangIDAndIndex.end(),
                     [](const LANG_ID_AND_INDEX_S& a, const LANG_ID_AND_INDEX_S& b) { return a.m_langID < b.m_langID; });
}

bool MSGCTR_ENG_InfoServLangMngr_S::searchAvailablePosition(int* pPos, unsigned char langID)
{
    if (containsLangID(pPos, langID))
        return true;
    sort();
    // After the sort every repeat of a language follows its first slot: the repeat's slot is free.
    for (size_t i = 1; i < m_vecLangIDAndIndex.size(); ++i) {
        if (m_vecLangIDAndIndex[i].m_langID == m_vecLangIDAndIndex[i - 1].m_langID) {
            *pPos = int(i);
            return true;
        }
    }
    return false;
}

MSGCTR_ERRCODE MSGCTR_ENG_InfoServLangMngr_S::writeSlot(int pos, unsigned char langID)
{
    LANG_ID_AND_INDEX_S& entry = m_vecLangIDAndIndex[size_t(pos)];
    const MSGCTR_ERRCODE msgctrErrcode = MSGCTR_ENG_TAPI::errcodeCbEditCbLanguage(entry.m_nIndex, langID);
    if (MSGCTR_ERRCODE_IS_SUCCESS(msgctrErrcode))
        entry.m_langID = langID;
    return msgctrErrcode;
}

MSGCTR_ERRCODE MSGCTR_ENG_InfoServLangMngr_S::activateLang(unsigned char langID, bool bOn)
{
    if (!containsLangID(langID)) {
        if (!bOn)
            return MSGCTR_ERRCODE__SUCCESS;
        int pos = -1;
        if (!searchAvailablePosition(&pos, langID))
            return MSGCTR_ERRCODE__NO_FREE_LANGUAGE_SLOT;
        return writeSlot(pos, langID);
    }
    if (bOn)
        return MSGCTR_ERRCODE__SUCCESS;

    unsigned char defaultLangID = MSGCTR_ENG_InfoServLang::LANG_ID__AUTOMATIC;
    MSGCTR_ENG_InfoServLang::getDefaultLangID(&defaultLangID);
    // The system language can never be switched off.
    if (langID == defaultLangID)
        return MSGCTR_ERRCODE__CANNOT_DISABLE_DEFAULT_LANGUAGE;
    MSGCTR_ERRCODE firstFailure = MSGCTR_ERRCODE__SUCCESS;
    for (size_t i = 0; i < m_vecLangIDAndIndex.size(); ++i) {
        if (m_vecLangIDAndIndex[i].m_langID != langID)
            continue;
        const MSGCTR_ERRCODE msgctrErrcode = writeSlot(int(i), defaultLangID);
        if (MSGCTR_ERRCODE_IS_ERROR(msgctrErrcode) && MSGCTR_ERRCODE_IS_SUCCESS(firstFailure))
            firstFailure = msgctrErrcode;
    }
    return firstFailure;
}

MSGCTR_ERRCODE MSGCTR_ENG_InfoServLangMngr_S::activateForDefaultLang(unsigned char langID)
{
    if (containsLangID(langID))
        return MSGCTR_ERRCODE__SUCCESS;
    int pos = -1;
    if (searchAvailablePosition(&pos, langID))
        return writeSlot(pos, langID);
    // No reusable slot: the first slot gives way rather than the system language staying off.
    return MSGCTR_ENG_TAPI::errcodeCbEditCbLanguage(0, langID);
}
