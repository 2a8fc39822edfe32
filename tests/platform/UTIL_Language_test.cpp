#include "HostRootTest.h"

#include "UTIL_Language.h"
#include "ZorHostControl.h"
#include "ZorHostUtilControl.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <sys/wait.h>
#include <unistd.h>

namespace {

class UtilLanguageTest : public HostRootTest {};

TEST_F(UtilLanguageTest, FactoryLanguageIsUsEnglish)
{
    EXPECT_EQ(UTIL_Language::getSystemLanguageCode(), QStringLiteral("en-us"));
    EXPECT_EQ(UTIL_Language::getSystemLanguageId(), 0);
    EXPECT_EQ(UTIL_Language::getSystemLanguageString(), QStringLiteral("English"));
    EXPECT_EQ(UTIL_Language::getLanguageIndexByLanId(UTIL_Language::getSystemLanguageId()), 1);
}

struct Language {
    const char* code;
    int id;
    const char* name;
    int cellBroadcast;
};

class UtilLanguageTableTest : public UtilLanguageTest, public ::testing::WithParamInterface<Language> {};

TEST_P(UtilLanguageTableTest, ChosenLanguageAnswersItsIdNameAndCellBroadcastCode)
{
    ASSERT_TRUE(ZorHost::setSystemLanguage(QString::fromLatin1(GetParam().code)));
    EXPECT_EQ(UTIL_Language::getSystemLanguageCode(), QString::fromLatin1(GetParam().code));
    EXPECT_EQ(UTIL_Language::getSystemLanguageId(), GetParam().id);
    EXPECT_EQ(UTIL_Language::getSystemLanguageString(), QString::fromLatin1(GetParam().name));
    EXPECT_EQ(UTIL_Language::getLanguageIndexByLanId(GetParam().id), GetParam().cellBroadcast);
}

INSTANTIATE_TEST_SUITE_P(
    Languages, UtilLanguageTableTest,
    ::testing::Values(Language{"en-us", 0, "English", 1}, Language{"en-gb", 1, "English", 1},
                      Language{"de-de", 2, "German", 0}, Language{"it-it", 3, "Italian", 2},
                      Language{"fr-fr", 4, "French", 3}, Language{"es-es", 5, "Spanish", 4},
                      Language{"nl-nl", 6, "Dutch", 5}, Language{"sv-se", 7, "Swedish", 6},
                      Language{"da-dk", 8, "Danish", 7}, Language{"pt-pt", 9, "Portuguese", 8},
                      Language{"fi-fi", 10, "Finnish", 9}, Language{"nb-no", 11, "Norwegian", 10},
                      Language{"el-gr", 12, "Greek", 11}, Language{"tr-tr", 13, "Turkish", 12},
                      Language{"hu-hu", 14, "Hungarian", 13}, Language{"pl-pl", 15, "Polish", 14},
                      Language{"cs-cz", 16, "Czech", 32}, Language{"pt-br", 17, "Portuguese", 8},
                      Language{"ru-ru", 18, "Russian", 15}, Language{"zh-cn", 19, "Chinese", 15},
                      Language{"zh-tw", 20, "Chinese", 15}),
    [](const auto& info) { return QString::fromLatin1(info.param.code).remove(QLatin1Char('-')).toStdString(); });

TEST_F(UtilLanguageTest, EveryLanguageIsListedInIdOrder)
{
    const QStringList codes = ZorHost::systemLanguages();
    ASSERT_EQ(codes.size(), 21);
    EXPECT_EQ(codes.first(), QStringLiteral("en-us"));
    EXPECT_EQ(codes.at(16), QStringLiteral("cs-cz"));
}

TEST_F(UtilLanguageTest, IdWithoutALanguageHasTheUnspecifiedCode)
{
    EXPECT_EQ(UTIL_Language::getLanguageIndexByLanId(-1), 15);
    EXPECT_EQ(UTIL_Language::getLanguageIndexByLanId(21), 15);
    EXPECT_EQ(UTIL_Language::getLanguageIndexByLanId(1000), 15);
}

TEST_F(UtilLanguageTest, UnknownCodeIsRefusedAndTheLanguageStays)
{
    ASSERT_TRUE(ZorHost::setSystemLanguage(QStringLiteral("de-de")));
    errno = 0;
    EXPECT_FALSE(ZorHost::setSystemLanguage(QStringLiteral("xx-yy")));
    EXPECT_EQ(errno, EINVAL);
    EXPECT_FALSE(ZorHost::setSystemLanguage(QStringLiteral("EN-US")));
    EXPECT_FALSE(ZorHost::setSystemLanguage(QString()));
    EXPECT_EQ(UTIL_Language::getSystemLanguageCode(), QStringLiteral("de-de"));
}

TEST_F(UtilLanguageTest, ChoiceIsKeptInAReadableFileAndResetForgetsIt)
{
    ASSERT_TRUE(ZorHost::setSystemLanguage(QStringLiteral("en-gb")));
    QFile f(root() + QStringLiteral("/state/language/language.conf"));
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    EXPECT_EQ(f.readAll(), QByteArray("[SYSTEM]\nCODE=en-gb\n"));
    ZorHost::resetAll();
    EXPECT_EQ(UTIL_Language::getSystemLanguageCode(), QStringLiteral("en-us"));
}

TEST_F(UtilLanguageTest, FileNamingNoKnownLanguageLeavesTheFactoryLanguage)
{
    const QString path = root() + QStringLiteral("/state/language/language.conf");
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile f(path);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write("[SYSTEM]\nCODE=klingon\n\xff\xfe junk\n");
    f.close();
    EXPECT_EQ(UTIL_Language::getSystemLanguageCode(), QStringLiteral("en-us"));
    EXPECT_EQ(UTIL_Language::getSystemLanguageId(), 0);
}

TEST_F(UtilLanguageTest, AnotherProcessSeesTheChoice)
{
    ASSERT_TRUE(ZorHost::setSystemLanguage(QStringLiteral("fr-fr")));
    const pid_t pid = ::fork();
    if (pid == 0)
        ::_exit(UTIL_Language::getSystemLanguageCode() == QLatin1String("fr-fr") ? 0 : 1);
    int status = 0;
    ASSERT_EQ(::waitpid(pid, &status, 0), pid);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
}

TEST_F(UtilLanguageTest, InjectedFaultsAnswerEmptyTextsOrTheFaultResult)
{
    ZorHost::injectFault(QStringLiteral("UTIL_Language::getSystemLanguageCode"), 1);
    ZorHost::injectFault(QStringLiteral("UTIL_Language::getSystemLanguageString"), 1);
    ZorHost::injectFault(QStringLiteral("UTIL_Language::getSystemLanguageId"), 99);
    ZorHost::injectFault(QStringLiteral("UTIL_Language::getLanguageIndexByLanId"), 200);
    EXPECT_TRUE(UTIL_Language::getSystemLanguageCode().isNull());
    EXPECT_TRUE(UTIL_Language::getSystemLanguageString().isNull());
    EXPECT_EQ(UTIL_Language::getSystemLanguageId(), 99);
    EXPECT_EQ(UTIL_Language::getLanguageIndexByLanId(0), 200);
    EXPECT_EQ(UTIL_Language::getSystemLanguageCode(), QStringLiteral("en-us"));
    EXPECT_EQ(UTIL_Language::getLanguageIndexByLanId(0), 1);
    EXPECT_EQ(ZorHost::callCount(QStringLiteral("UTIL_Language::getLanguageIndexByLanId")), 2);
}

} // namespace
