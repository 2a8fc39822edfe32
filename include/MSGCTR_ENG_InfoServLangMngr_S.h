// A snapshot of the telephony side's cell-broadcast language slots and the slot rules that switch
// languages on and off. Slots are freed only by duplication: a slot that repeats a language another slot
// already holds may be reused.
#pragma once

#include "MSGCTR_ERRCODE.h"
#include "msgctr_export.h"

#include <vector>

class MSGCTR_EXPORT MSGCTR_ENG_InfoServLangMngr_S {
public:
    struct LANG_ID_AND_INDEX_S {
        unsigned char m_langID = 0;
        unsigned short m_nIndex = 0;  // the slot, as the telephony list reported it
    };

    // The current list (reordered by sort()) and the list as first loaded.
    std::vector<LANG_ID_AND_INDEX_S> m_vecLangIDAndIndex;
    std::vector<LANG_ID_AND_INDEX_S> m_vecLangIDAndIndexLoaded;

    // Reads the slots; on failure the lists stay empty and the telephony code is returned.
    MSGCTR_ERRCODE loadDataFromTapi();
    MSGCTR_ERRCODE activateLang(unsigned char langID, bool bOn);
    MSGCTR_ERRCODE activateForDefaultLang(unsigned char langID);

    bool containsLangID(unsigned char langID) const;
    // *pPos: the id's index in the current list, -1 when absent.
    bool containsLangID(int* pPos, unsigned char langID) const;
    // The index of the id, or else of a reusable entry after sorting; false (and -1) when none is free.
    bool searchAvailablePosition(int* pPos, unsigned char langID);
    // Stable, by language id: entries of one language keep their slot order.
    void sort();

private:
    MSGCTR_ERRCODE writeSlot(int pos, unsigned char langID);
};
