#include "HostRootTest.h"

#include "MSGCTR_ENG_SetupInfo.h"
#include "ZorHostControl.h"
#include "ZorHostUtilControl.h"

#include <QFile>
#include <QRegularExpression>

#include <cerrno>
#include <string>
#include <vector>

namespace {

using Info = MSGCTR_ENG_SetupInfo;

// Report lines as "[function] text", without source file, line and ticks.
std::vector<std::string> masked(const QStringList& lines)
{
    static const QRegularExpression prefix(QStringLiteral("^[\\w.]+\\(\\d+\\)(\\[\\w+\\])\\d+: "));
    std::vector<std::string> out;
    for (QString line : lines)
        out.push_back(line.replace(prefix, QStringLiteral("\\1 ")).toStdString());
    return out;
}

std::vector<std::string> texts(const QStringList& list)
{
    std::vector<std::string> out;
    for (const QString& text : list)
        out.push_back(text.toStdString());
    return out;
}

// A data object that depends on the settings and counts its reloads.
class QuickTextView : public MSGCTR_ENG_ObjectDependency {
public:
    QuickTextView() : MSGCTR_ENG_ObjectDependency(false) {}
    void simplyReloadMyData() override { ++reloads; }
    int reloads = 0;
};

class QuickTextsTest : public HostRootTest {
protected:
    void writeResource(const char* code, const QByteArray& bytes)
    {
        QFile file(ZorHost::devicePath(QStringLiteral("/usr/data_resource/quicktext/%1.qkt").arg(QLatin1String(code))));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        ASSERT_EQ(file.write(bytes), bytes.size());
    }
    QStringList defaultQuickTexts()
    {
        Info info(MSGCTR_ENG_Setup::FLUSH_MODE__FLUSH);
        QStringList list{QStringLiteral("caller's")};
        EXPECT_EQ(info.getDefaultQuickTexts(&list), 0);
        return list;
    }
};

const std::vector<std::string> kFactoryEnglish{
    "I'm on my way.", "I'll be late.", "Call me when you can.", "I'm in a meeting.",
    "See you soon.", "Thank you!", "Where are you?", "I'll call you back.",
    "Happy birthday!", "Running ten minutes late.", "Can't talk now, text me.", "Good night.",
};

TEST_F(QuickTextsTest, FactoryResetInstallsTheEnglishGermanAndFrenchResources)
{
    EXPECT_EQ(texts(defaultQuickTexts()), kFactoryEnglish);
    EXPECT_EQ(masked(reportLines()), std::vector<std::string>());
    ASSERT_TRUE(ZorHost::setSystemLanguage(QStringLiteral("de-de")));
    const QStringList german = defaultQuickTexts();
    ASSERT_EQ(german.size(), 12);
    EXPECT_EQ(german[1], QStringLiteral("Ich komme später."));
    ASSERT_TRUE(ZorHost::setSystemLanguage(QStringLiteral("fr-fr")));
    const QStringList french = defaultQuickTexts();
    ASSERT_EQ(french.size(), 12);
    EXPECT_EQ(french[4], QStringLiteral("À bientôt."));
}

TEST_F(QuickTextsTest, BritishEnglishReadsTheAmericanFileEvenWhenItsOwnExists)
{
    writeResource("en-gb", "Cheers\nTa\nLovely\nBrilliant\nRight\n");
    ASSERT_TRUE(ZorHost::setSystemLanguage(QStringLiteral("en-gb")));
    EXPECT_EQ(texts(defaultQuickTexts()), kFactoryEnglish);
    EXPECT_EQ(masked(reportLines()),
              (std::vector<std::string>{"[getDefaultQuickTexts] warning! since en-gb file not available, use en-us "
                                        "file instead as temp solution! "}));
}

TEST_F(QuickTextsTest, BlankLineGivesAnEmptyTextAtItsPlace)
{
    writeResource("en-us", "One\n\nThree\nFour\nFive");
    EXPECT_EQ(texts(defaultQuickTexts()), (std::vector<std::string>{"One", "", "Three", "Four", "Five"}));
    EXPECT_EQ(masked(reportLines()), std::vector<std::string>());
}

TEST_F(QuickTextsTest, LineOverTheLimitIsReadIn1024BytePieces)
{
    const QByteArray longLine(1500, 'x');
    writeResource("en-us", "One\n" + longLine + "\nThree\n");
    const QStringList list = defaultQuickTexts();
    ASSERT_EQ(list.size(), 4);
    EXPECT_EQ(list[1], QString(1024, QLatin1Char('x')));
    EXPECT_EQ(list[2], QString(476, QLatin1Char('x')));
    EXPECT_EQ(list[3], QStringLiteral("Three"));
}

TEST_F(QuickTextsTest, ShortFileIsReturnedAsItIsWithoutAReport)
{
    writeResource("en-us", "Yes\nNo\n");
    EXPECT_EQ(texts(defaultQuickTexts()), (std::vector<std::string>{"Yes", "No"}));
    EXPECT_EQ(masked(reportLines()), std::vector<std::string>());
}

TEST_F(QuickTextsTest, InvalidUtf8IsReplacedNotDropped)
{
    writeResource("en-us", "ok\nbad \xC3\x28 byte\n\xFF\n");
    EXPECT_EQ(defaultQuickTexts(), (QStringList{QStringLiteral("ok"), QStringLiteral("bad \uFFFD( byte"),
                                                QStringLiteral("\uFFFD")}));
}

TEST_F(QuickTextsTest, MissingFileIsReportedAndGivesNoTexts)
{
    ASSERT_TRUE(ZorHost::setSystemLanguage(QStringLiteral("it-it")));
    EXPECT_TRUE(defaultQuickTexts().isEmpty());
    const std::string name = "strQktFileName = \"/usr/data_resource/quicktext/it-it.qkt\"(QString, len=38), ";
    EXPECT_EQ(masked(reportLines()),
              (std::vector<std::string>{
                  "[getDefaultQuickTexts] assert fail at \"QFile::exists( strQktFileName )\"; " + name,
                  "[getDefaultQuickTexts] assert fail at \"false\"; " + name,
                  "[getDefaultQuickTexts] assert fail at \"false\"; " + name,
              }));
}

TEST_F(QuickTextsTest, EmptyFileIsReported)
{
    writeResource("en-us", "");
    EXPECT_TRUE(defaultQuickTexts().isEmpty());
    EXPECT_EQ(masked(reportLines()),
              (std::vector<std::string>{"[getDefaultQuickTexts] assert fail at \"false\"; strQktFileName = "
                                        "\"/usr/data_resource/quicktext/en-us.qkt\"(QString, len=38), "}));
}

QStringList numbered(int count)
{
    QStringList list;
    for (int i = 1; i <= count; ++i)
        list.append(QStringLiteral("Text %1").arg(i));
    return list;
}

TEST_F(QuickTextsTest, TwentyOneTextsAreRefusedInSilenceWithoutAReload)
{
    Info info(MSGCTR_ENG_Setup::FLUSH_MODE__FLUSH);
    QuickTextView view;
    view.connectDataIn(&info);
    EXPECT_EQ(info.setUserDefinedQuickTexts(numbered(21)), 0);
    EXPECT_EQ(view.reloads, 0);
    QStringList stored{QStringLiteral("caller's")};
    info.getUserDefinedQuickTexts(&stored);
    EXPECT_TRUE(stored.isEmpty());
    EXPECT_EQ(masked(reportLines()),
              (std::vector<std::string>{"[setUserDefinedQuickTexts] assert fail at \"false\";  too many "
                                        "user-defined-quick-text quickTexts.count() = 21(S32,4), "
                                        "getMaximumPermitCountOfUserDefineQuickTexts() = 20(S32,4), "}));
}

TEST_F(QuickTextsTest, TwentyTextsAreStoredAndTheDependantsReload)
{
    Info info(MSGCTR_ENG_Setup::FLUSH_MODE__FLUSH);
    QuickTextView view;
    view.connectDataIn(&info);
    EXPECT_EQ(info.setUserDefinedQuickTexts(numbered(20)), 0);
    EXPECT_EQ(view.reloads, 1);
    QStringList stored;
    info.getUserDefinedQuickTexts(&stored);
    EXPECT_EQ(stored, numbered(20));
    EXPECT_EQ(masked(reportLines()), std::vector<std::string>());
}

TEST_F(QuickTextsTest, FailedWriteStillReloadsTheDependantsAndGivesTheCode)
{
    Info info(MSGCTR_ENG_Setup::FLUSH_MODE__FLUSH);
    QuickTextView view;
    view.connectDataIn(&info);
    ZorHost::injectFault(QStringLiteral("SETUP_SET_Manager::setString"), ENOSPC);
    EXPECT_EQ(info.setUserDefinedQuickTexts(numbered(2)), MSGCTR_ERRCODE__SETUP_WRITE_NO_SPACE);
    EXPECT_EQ(view.reloads, 1);
}

} // namespace
