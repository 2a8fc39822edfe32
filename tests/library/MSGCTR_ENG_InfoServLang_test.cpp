#include "HostRootTest.h"

#include "MSGCTR_ENG_InfoServLang.h"
#include "ZorHostControl.h"
#include "ZorHostTapiControl.h"
#include "ZorHostUtilControl.h"

#include <QCoreApplication>
#include <QTranslator>

#include <string>
#include <vector>

namespace {

using Lang = MSGCTR_ENG_InfoServLang;
using Slots = std::vector<unsigned char>;

// "id name on|off" per language, so that a whole record compares in one go.
std::vector<std::string> describe(const Lang::INFO_SERV_ALL_LANG_INFO_S& all)
{
    std::vector<std::string> lines;
    for (const Lang::INFO_SERV_LANG_INFO_S& info : all.m_vecLangInfo)
        lines.push_back(std::to_string(info.m_langID) + " " + info.m_strLangName.toStdString()
                        + (info.m_bActivated ? " on" : " off"));
    return lines;
}

const std::vector<std::string> kIdentifiers{
    "TXT_RID_COMBOBOX_GERMAN",    "TXT_RID_COMBOBOX_ENGLISH",   "TXT_RID_COMBOBOX_ITALIAN",
    "TXT_RID_COMBOBOX_FRENCH",    "TXT_RID_COMBOBOX_SPANISH",   "TXT_RID_COMBOBOX_DUTCH",
    "TXT_RID_COMBOBOX_SWEDISH",   "TXT_RID_COMBOBOX_DANISH",    "TXT_RID_COMBOBOX_PORTUGUESE",
    "TXT_RID_COMBOBOX_FINNISH",   "TXT_RID_COMBOBOX_NORWEGIAN", "TXT_RID_COMBOBOX_GREEK",
    "TXT_RID_COMBOBOX_TURKISH",   "TXT_RID_COMBOBOX_HUNGARIAN", "TXT_RID_COMBOBOX_POLISH",
    "TXT_RID_COMBOBOX_CZECH",     "TXT_RID_COMBOBOX_AUTOMATIC",
};

class InfoServLangTest : public HostRootTest {};

TEST_F(InfoServLangTest, CatalogueKeepsCzechBeforeAutomatic)
{
    EXPECT_EQ(Lang::getAllLangIDS(),
              (std::vector<unsigned char>{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 32, 16}));
}

TEST_F(InfoServLangTest, WithoutACatalogueTheNamesAreTheIdentifiers)
{
    const std::vector<Lang::INFO_SERV_LANG_S> languages = Lang::getAllLangS();
    ASSERT_EQ(languages.size(), kIdentifiers.size());
    const std::vector<unsigned char> ids = Lang::getAllLangIDS();
    for (size_t i = 0; i < languages.size(); ++i) {
        EXPECT_EQ(languages[i].m_strLangName.toStdString(), kIdentifiers[i]);
        EXPECT_EQ(languages[i].m_langID, ids[i]);
    }
}

TEST_F(InfoServLangTest, UnknownIdsHaveNoName)
{
    EXPECT_FALSE(Lang::langIDValueIsKnownToMe(15));
    EXPECT_FALSE(Lang::langIDValueIsKnownToMe(33));
    EXPECT_TRUE(Lang::langIDValueIsKnownToMe(32));
    EXPECT_TRUE(Lang::getLangNameByLangID(15).isEmpty());
    const Lang::INFO_SERV_LANG_S language = Lang::getLangByLangID(255);
    EXPECT_TRUE(language.m_strLangName.isEmpty());
    EXPECT_EQ(language.m_langID, 255);
}

TEST_F(InfoServLangTest, LoadedCatalogueTranslatesTheNames)
{
    int argc = 1;
    char name[] = "test";
    char* argv[] = {name, nullptr};
    QCoreApplication app(argc, argv);
    for (const char* language : {"en", "de"}) {
        QTranslator translator;
        ASSERT_TRUE(translator.load(QStringLiteral("zormsgctrutil_") + QLatin1String(language),
                                    QStringLiteral(ZOR_TRANSLATIONS_DIR)));
        ASSERT_TRUE(QCoreApplication::installTranslator(&translator));
        const QString expected = QLatin1String(language) == QLatin1String("en") ? QStringLiteral("GERMAN")
                                                                               : QStringLiteral("DEUTSCH");
        EXPECT_EQ(Lang::getLangNameByLangID(0), expected);
        EXPECT_EQ(Lang::getLangNameByLangID(16),
                  QLatin1String(language) == QLatin1String("en") ? QStringLiteral("AUTOMATIC")
                                                                  : QStringLiteral("AUTOMATISCH"));
        EXPECT_EQ(Lang::getLangNameByLangID(3),
                  QLatin1String(language) == QLatin1String("en") ? QStringLiteral("FRENCH")
                                                                  : QStringLiteral("FRANZÖSISCH"));
        QCoreApplication::removeTranslator(&translator);
    }
    EXPECT_EQ(Lang::getLangNameByLangID(0), QStringLiteral("TXT_RID_COMBOBOX_GERMAN"));
}

struct DefaultCase {
    const char* systemLanguage;
    unsigned char langID;
    const char* name;
};

class InfoServDefaultLangTest : public HostRootTest, public ::testing::WithParamInterface<DefaultCase> {};

TEST_P(InfoServDefaultLangTest, FollowsTheSystemLanguage)
{
    ASSERT_TRUE(ZorHost::setSystemLanguage(QLatin1String(GetParam().systemLanguage)));
    unsigned char langID = 99;
    QString name;
    EXPECT_EQ(Lang::getDefaultLangID(&langID, &name), 0);
    EXPECT_EQ(langID, GetParam().langID);
    EXPECT_EQ(name, QLatin1String(GetParam().name));
    unsigned char onlyID = 99;
    EXPECT_EQ(Lang::getDefaultLangID(&onlyID), 0);
    EXPECT_EQ(onlyID, GetParam().langID);
}

INSTANTIATE_TEST_SUITE_P(
    Languages, InfoServDefaultLangTest,
    ::testing::Values(DefaultCase{"en-us", 1, "ENGLISH"}, DefaultCase{"en-gb", 1, "ENGLISH"},
                      DefaultCase{"de-de", 0, "GERMAN"}, DefaultCase{"cs-cz", 32, "CZECH"},
                      DefaultCase{"ru-ru", 16, "RUSSIAN"}, DefaultCase{"zh-cn", 16, "CHINESE"}),
    [](const ::testing::TestParamInfo<DefaultCase>& info) {
        std::string name = info.param.systemLanguage;
        name.erase(name.find('-'), 1);
        return name;
    });

TEST_F(InfoServLangTest, AllLanguagesWithTheirStateAndTheSystemLanguagesName)
{
    ASSERT_TRUE(ZorHost::setCbLanguageSlots({3, 0, 3}));
    Lang::INFO_SERV_ALL_LANG_INFO_S all;
    EXPECT_EQ(Lang::getAllLangInfo(&all), 0);
    EXPECT_EQ(all.m_defaultLangID, 1);
    EXPECT_EQ(describe(all), (std::vector<std::string>{
                                 "0 TXT_RID_COMBOBOX_GERMAN on",
                                 "1 ENGLISH off",
                                 "2 TXT_RID_COMBOBOX_ITALIAN off",
                                 "3 TXT_RID_COMBOBOX_FRENCH on",
                                 "4 TXT_RID_COMBOBOX_SPANISH off",
                                 "5 TXT_RID_COMBOBOX_DUTCH off",
                                 "6 TXT_RID_COMBOBOX_SWEDISH off",
                                 "7 TXT_RID_COMBOBOX_DANISH off",
                                 "8 TXT_RID_COMBOBOX_PORTUGUESE off",
                                 "9 TXT_RID_COMBOBOX_FINNISH off",
                                 "10 TXT_RID_COMBOBOX_NORWEGIAN off",
                                 "11 TXT_RID_COMBOBOX_GREEK off",
                                 "12 TXT_RID_COMBOBOX_TURKISH off",
                                 "13 TXT_RID_COMBOBOX_HUNGARIAN off",
                                 "14 TXT_RID_COMBOBOX_POLISH off",
                                 "32 TXT_RID_COMBOBOX_CZECH off",
                                 "16 TXT_RID_COMBOBOX_AUTOMATIC off",
                             }));
}

TEST_F(InfoServLangTest, AutomaticDefaultTakesTheSystemLanguagesName)
{
    ASSERT_TRUE(ZorHost::setSystemLanguage(QStringLiteral("ru-ru")));
    ASSERT_TRUE(ZorHost::setCbLanguageSlots({16}));
    Lang::INFO_SERV_ALL_LANG_INFO_S all;
    EXPECT_EQ(Lang::getAllLangInfo(&all), 0);
    EXPECT_EQ(all.m_defaultLangID, 16);
    EXPECT_EQ(describe(all).back(), "16 RUSSIAN on");
}

TEST_F(InfoServLangTest, FailedSlotReadStillGivesTheCatalogueWithNothingOn)
{
    ASSERT_TRUE(ZorHost::setCbLanguageSlots({0, 1}));
    ZorHost::injectFault(QStringLiteral("TAPI_CB_GetLanguagesEx"), 819);
    Lang::INFO_SERV_ALL_LANG_INFO_S all;
    EXPECT_EQ(Lang::getAllLangInfo(&all), 10010);
    ASSERT_EQ(all.m_vecLangInfo.size(), 17u);
    for (const Lang::INFO_SERV_LANG_INFO_S& info : all.m_vecLangInfo)
        EXPECT_FALSE(info.m_bActivated) << int(info.m_langID);
    EXPECT_EQ(all.m_vecLangInfo[1].m_strLangName, QStringLiteral("ENGLISH"));
}

TEST_F(InfoServLangTest, RenamingFindsTheFirstEntryOfTheId)
{
    Lang::INFO_SERV_ALL_LANG_INFO_S all;
    EXPECT_EQ(all.m_defaultLangID, 16);
    EXPECT_FALSE(all.updateDefaultLangName(QStringLiteral("X")));
    Lang::INFO_SERV_LANG_INFO_S first;
    first.m_langID = 16;
    all.m_vecLangInfo = {first, first};
    EXPECT_TRUE(all.updateDefaultLangName(QStringLiteral("AUTO")));
    EXPECT_EQ(all.m_vecLangInfo[0].m_strLangName, QStringLiteral("AUTO"));
    EXPECT_TRUE(all.m_vecLangInfo[1].m_strLangName.isEmpty());
    EXPECT_FALSE(all.updateLangName(4, QStringLiteral("SPANISH")));
}

TEST_F(InfoServLangTest, ActivatingLoadsTheSlotsAndAppliesTheRules)
{
    ASSERT_TRUE(ZorHost::setCbLanguageSlots({1, 1, 0, 3}));
    EXPECT_EQ(Lang::activateLang(4, true), 0);
    EXPECT_EQ(ZorHost::cbLanguageSlots(), (Slots{1, 4, 0, 3}));
    EXPECT_EQ(Lang::activateLang(2, true), 10024);
    EXPECT_EQ(Lang::activateLang(1, false), 10025);
    EXPECT_EQ(Lang::activateLang(3, false), 0);
    EXPECT_EQ(ZorHost::cbLanguageSlots(), (Slots{1, 4, 0, 1}));
}

TEST_F(InfoServLangTest, ActivatingGivesTheLoadFailure)
{
    ASSERT_TRUE(ZorHost::setCbLanguageSlots({1, 1}));
    ZorHost::injectFault(QStringLiteral("TAPI_CB_GetLanguagesEx"), 819);
    EXPECT_EQ(Lang::activateLang(4, true), 10010);
    EXPECT_EQ(ZorHost::cbLanguageSlots(), (Slots{1, 1}));
}

TEST_F(InfoServLangTest, SystemLanguageIsPutIntoSlotZeroWhenNoSlotIsFree)
{
    ASSERT_TRUE(ZorHost::setSystemLanguage(QStringLiteral("de-de")));
    ASSERT_TRUE(ZorHost::setCbLanguageSlots({1, 3}));
    EXPECT_EQ(Lang::activateTheCurSystemLanguage(), 0);
    EXPECT_EQ(ZorHost::cbLanguageSlots(), (Slots{0, 3}));
    EXPECT_EQ(Lang::activateTheCurSystemLanguage(), 0);
    EXPECT_EQ(ZorHost::callCount(QStringLiteral("TAPI_CB_SetLanguage")), 1);
}

TEST_F(InfoServLangTest, SystemLanguageGivesTheLoadFailure)
{
    ASSERT_TRUE(ZorHost::setCbLanguageSlots({1, 3}));
    ZorHost::injectFault(QStringLiteral("TAPI_CB_GetLanguagesEx"), 7);
    EXPECT_EQ(Lang::activateTheCurSystemLanguage(), 100007);
    EXPECT_EQ(ZorHost::callCount(QStringLiteral("TAPI_CB_SetLanguage")), 0);
}

} // namespace
