// The cell-broadcast languages the user may choose from (the info service) and their state on the
// telephony side, where a short list of language slots holds the switched-on languages. The phone's own
// system language is always kept switched on.
#pragma once

#include "MSGCTR_ERRCODE.h"
#include "msgctr_export.h"

#include <QString>

#include <vector>

class MSGCTR_EXPORT MSGCTR_ENG_InfoServLang {
public:
    // Follows the system language.
    static constexpr unsigned char LANG_ID__AUTOMATIC = 16;

    struct INFO_SERV_LANG_S {
        QString m_strLangName;
        unsigned char m_langID = LANG_ID__AUTOMATIC;
    };
    struct INFO_SERV_LANG_INFO_S {
        QString m_strLangName;
        unsigned char m_langID = LANG_ID__AUTOMATIC;
        bool m_bActivated = false;  // the id is in the slot list
    };
    struct MSGCTR_EXPORT INFO_SERV_ALL_LANG_INFO_S {
        std::vector<INFO_SERV_LANG_INFO_S> m_vecLangInfo;  // in catalogue order
        unsigned char m_defaultLangID = LANG_ID__AUTOMATIC;

        // Renames the first entry of the id; false when none has it.
        bool updateLangName(unsigned char langID, const QString& name);
        bool updateDefaultLangName(const QString& name);
    };

    MSGCTR_ENG_InfoServLang() = default;
    virtual ~MSGCTR_ENG_InfoServLang();

    // The catalogue in its fixed order (Czech, 32, stands before AUTOMATIC, 16).
    static std::vector<unsigned char> getAllLangIDS();
    static std::vector<INFO_SERV_LANG_S> getAllLangS();
    static INFO_SERV_LANG_S getLangByLangID(unsigned char langID);
    // The translated display name (resource identifier "TXT_RID_COMBOBOX_<NAME>"); empty for an id
    // outside the catalogue.
    static QString getLangNameByLangID(unsigned char langID);
    static bool langIDValueIsKnownToMe(unsigned char langID);

    // The cell-broadcast language of the system language, AUTOMATIC when the catalogue does not have it;
    // the name is the system language's name in upper case. Always succeeds.
    static MSGCTR_ERRCODE getDefaultLangID(unsigned char* pLangID, QString* pName);
    static MSGCTR_ERRCODE getDefaultLangID(unsigned char* pLangID);

    // Every catalogue language with whether a slot holds it; written also when the slots cannot be read
    // (then nothing is activated).
    static MSGCTR_ERRCODE getAllLangInfo(INFO_SERV_ALL_LANG_INFO_S* pAllLangInfo);
    // Switching on takes a slot that repeats another slot's language (10024 when there is none);
    // switching off writes the default language over the language's slots (10025 for the default itself).
    static MSGCTR_ERRCODE activateLang(unsigned char langID, bool bOn);
    // Puts the system language into a slot if none holds it, overwriting slot 0 when no slot is free.
    static MSGCTR_ERRCODE activateTheCurSystemLanguage();
};
