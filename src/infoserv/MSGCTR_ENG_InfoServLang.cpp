#include "MSGCTR_ENG_InfoServLang.h"

#include "MSGCTR_ENG_InfoServLangMngr_S.h"

#include "UTIL_Language.h"

#include <QObject>

namespace {

struct CatalogueEntry {
    unsigned char langID;
    struct {
        const char* resourceID;
        const char* plainName;  // the translators' comment
    } text;

    QString displayName() const { return QObject::tr(text.resourceID, text.plainName); }
};

// The order of every list built from the catalogue. Code 15 (unspecified) is not offered, and Czech
// stands before AUTOMATIC on purpose.
const CatalogueEntry kCatalogue[] = {
    {0, QT_TRANSLATE_NOOP3("QObject", "TXT_RID_COMBOBOX_GERMAN", "GERMAN")},
    {1, QT_TRANSLATE_NOOP3("QObject", "TXT_RID_COMBOBOX_ENGLISH", "ENGLISH")},
    {2, QT_TRANSLATE_NOOP3("QObject", "TXT_RID_COMBOBOX_ITALIAN", "ITALIAN")},
    {3, QT_TRANSLATE_NOOP3("QObject", "TXT_RID_COMBOBOX_FRENCH", "FRENCH")},
    {4, QT_TRANSLATE_NOOP3("QObject", "TXT_RID_COMBOBOX_SPANISH", "SPANISH")},
    {5, QT_TRANSLATE_NOOP3("QObject", "TXT_RID_COMBOBOX_DUTCH", "DUTCH")},
    {6, QT_TRANSLATE_NOOP3("QObject", "TXT_RID_COMBOBOX_SWEDISH", "SWEDISH")},
    {7, QT_TRANSLATE_NOOP3("QObject", "TXT_RID_COMBOBOX_DANISH", "DANISH")},
    {8, QT_TRANSLATE_NOOP3("QObject", "TXT_RID_COMBOBOX_PORTUGUESE", "PORTUGUESE")},
    {9, QT_TRANSLATE_NOOP3("QObject", "TXT_RID_COMBOBOX_FINNISH", "FINNISH")},
    {10, QT_TRANSLATE_NOOP3("QObject", "TXT_RID_COMBOBOX_NORWEGIAN", "NORWEGIAN")},
    {11, QT_TRANSLATE_NOOP3("QObject", "TXT_RID_COMBOBOX_GREEK", "GREEK")},
    {12, QT_TRANSLATE_NOOP3("QObject", "TXT_RID_COMBOBOX_TURKISH", "TURKISH")},
    {13, QT_TRANSLATE_NOOP3("QObject", "TXT_RID_COMBOBOX_HUNGARIAN", "HUNGARIAN")},
    {14, QT_TRANSLATE_NOOP3("QObject", "TXT_RID_COMBOBOX_POLISH", "POLISH")},
    {32, QT_TRANSLATE_NOOP3("QObject", "TXT_RID_COMBOBOX_CZECH", "CZECH")},
    {16, QT_TRANSLATE_NOOP3("QObject", "TXT_RID_COMBOBOX_AUTOMATIC", "AUTOMATIC")},
};

const CatalogueEntry* findEntry(unsigned char langID)
{
    for (const CatalogueEntry& entry : kCatalogue) {
        if (entry.langID == langID)
            return &entry;
    }
    return nullptr;
}

} // namespace

MSGCTR_ENG_InfoServLang::~MSGCTR_ENG_InfoServLang() = default;

bool MSGCTR_ENG_InfoServLang::INFO_SERV_ALL_LANG_INFO_S::updateLangName(unsigned char langID, const QString& name)
{
    for (INFO_SERV_LANG_INFO_S& info : m_vecLangInfo) {
        if (info.m_langID == langID) {
            info.m_strLangName = name;
            return true;
        }
    }
    return false;
}

bool MSGCTR_ENG_InfoServLang::INFO_SERV_ALL_LANG_INFO_S::updateDefaultLangName(const QString& name)
{
    return updateLangName(m_defaultLangID, name);
}

std::vector<unsigned char> MSGCTR_ENG_InfoServLang::getAllLangIDS()
{
    std::vector<unsigned char> ids;
    for (const CatalogueEntry& entry : kCatalogue)
        ids.push_back(entry.langID);
    return ids;
}

std::vector<MSGCTR_ENG_InfoServLang::INFO_SERV_LANG_S> MSGCTR_ENG_InfoServLang::getAllLangS()
{
    std::vector<INFO_SERV_LANG_S> languages;
    for (unsigned char langID : getAllLangIDS())
        languages.push_back(getLangByLangID(langID));
    return languages;
}

MSGCTR_ENG_InfoServLang::INFO_SERV_LANG_S MSGCTR_ENG_InfoServLang::getLangByLangID(unsigned char langID)
{
    INFO_SERV_LANG_S language;
    language.m_strLangName = getLangNameByLangID(langID);
    language.m_langID = langID;
    return language;
}

QString MSGCTR_ENG_InfoServLang::getLangNameByLangID(unsigned char langID)
{
    const CatalogueEntry* entry = findEntry(langID);
    return entry ? entry->displayName() : QString();
}

bool MSGCTR_ENG_InfoServLang::langIDValueIsKnownToMe(unsigned char langID)
{
    return findEntry(langID) != nullptr;
}

MSGCTR_ERRCODE MSGCTR_ENG_InfoServLang::getDefaultLangID(unsigned char* pLangID, QString* pName)
{
    const int cbLanguage = UTIL_Language::getLanguageIndexByLanId(UTIL_Language::getSystemLanguageId());
    const bool known = cbLanguage >= 0 && cbLanguage <= 255 && langIDValueIsKnownToMe(static_cast<unsigned char>(cbLanguage));
    *pLangID = known ? static_cast<unsigned char>(cbLanguage) : LANG_ID__AUTOMATIC;
    *pName = UTIL_Language::getSystemLanguageString().toUpper();
    return MSGCTR_ERRCODE__SUCCESS;
}

MSGCTR_ERRCODE MSGCTR_ENG_InfoServLang::getDefaultLangID(unsigned char* pLangID)
{
    QString name;
    return getDefaultLangID(pLangID, &name);
}

MSGCTR_ERRCODE MSGCTR_ENG_InfoServLang::getAllLangInfo(INFO_SERV_ALL_LANG_INFO_S* pAllLangInfo)
{
    INFO_SERV_ALL_LANG_INFO_S allLangInfo;
    for (const CatalogueEntry& entry : kCatalogue) {
        INFO_SERV_LANG_INFO_S info;
        info.m_strLangName = entry.displayName();
        info.m_langID = entry.langID;
        allLangInfo.m_vecLangInfo.push_back(info);
    }
    QString defaultName;
    getDefaultLangID(&allLangInfo.m_defaultLangID, &defaultName);
    allLangInfo.updateDefaultLangName(defaultName);

    MSGCTR_ENG_InfoServLangMngr_S manager;
    const MSGCTR_ERRCODE msgctrErrcode = manager.loadDataFromTapi();
    for (INFO_SERV_LANG_INFO_S& info : allLangInfo.m_vecLangInfo)
        info.m_bActivated = manager.containsLangID(info.m_langID);
    *pAllLangInfo = allLangInfo;
    return msgctrErrcode;
}

MSGCTR_ERRCODE MSGCTR_ENG_InfoServLang::activateLang(unsigned char langID, bool bOn)
{
    MSGCTR_ENG_InfoServLangMngr_S manager;
    const MSGCTR_ERRCODE msgctrErrcode = manager.loadDataFromTapi();
    if (MSGCTR_ERRCODE_IS_ERROR(msgctrErrcode))
        return msgctrErrcode;
    return manager.activateLang(langID, bOn);
}

MSGCTR_ERRCODE MSGCTR_ENG_InfoServLang::activateTheCurSystemLanguage()
{
    unsigned char defaultLangID = LANG_ID__AUTOMATIC;
    getDefaultLangID(&defaultLangID);
    MSGCTR_ENG_InfoServLangMngr_S manager;
    const MSGCTR_ERRCODE msgctrErrcode = manager.loadDataFromTapi();
    if (MSGCTR_ERRCODE_IS_ERROR(msgctrErrcode))
        return msgctrErrcode;
    return manager.activateForDefaultLang(defaultLangID);
}
