// The shipped message catalogues against the sources: every identifier the sources translate has a
// finished entry in each catalogue, with the same translators' comment.
#include <gtest/gtest.h>

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QXmlStreamReader>

#include <map>
#include <set>
#include <string>

namespace {

// Identifier and comment, as a catalogue keys its messages.
using Message = std::pair<std::string, std::string>;

// The messages of context "QObject" used by the sources: QObject::tr("ID") or tr("ID", "comment"),
// and QT_TRANSLATE_NOOP3("QObject", "ID", "comment").
std::set<Message> messagesInSources()
{
    static const QRegularExpression tr(
        QStringLiteral("QObject::tr\\(\\s*\"([^\"]+)\"(?:\\s*,\\s*\"([^\"]*)\")?"));
    static const QRegularExpression noop(
        QStringLiteral("QT_TRANSLATE_NOOP3?\\(\\s*\"QObject\"\\s*,\\s*\"([^\"]+)\"(?:\\s*,\\s*\"([^\"]*)\")?"));
    std::set<Message> messages;
    for (const char* dir : {"src", "include", "tools"}) {
        QDirIterator it(QStringLiteral(ZOR_SOURCE_DIR "/") + QLatin1String(dir), {QStringLiteral("*.cpp"), QStringLiteral("*.h")},
                        QDir::Files, QDirIterator::Subdirectories);
        while (it.hasNext()) {
            QFile file(it.next());
            EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << file.fileName().toStdString();
            const QString text = QString::fromUtf8(file.readAll());
            for (const QRegularExpression* pattern : {&tr, &noop}) {
                auto matches = pattern->globalMatch(text);
                while (matches.hasNext()) {
                    const QRegularExpressionMatch m = matches.next();
                    messages.insert({m.captured(1).toStdString(), m.captured(2).toStdString()});
                }
            }
        }
    }
    return messages;
}

// Message -> translation of context "QObject"; unfinished or empty translations map to "".
std::map<Message, std::string> catalogue(const char* language)
{
    QFile file(QStringLiteral(ZOR_SOURCE_DIR "/translations/zormsgctrutil_") + QLatin1String(language)
               + QStringLiteral(".ts"));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << file.fileName().toStdString();
    QXmlStreamReader xml(&file);
    std::map<Message, std::string> messages;
    QString context;
    QString source;
    QString comment;
    QString translation;
    while (!xml.atEnd()) {
        xml.readNext();
        if (xml.isStartElement()) {
            const auto name = xml.name();
            if (name == QLatin1String("message")) {
                source.clear();
                comment.clear();
                translation.clear();
            } else if (name == QLatin1String("name")) {
                context = xml.readElementText();
            } else if (name == QLatin1String("source")) {
                source = xml.readElementText();
            } else if (name == QLatin1String("comment")) {
                comment = xml.readElementText();
            } else if (name == QLatin1String("translation")) {
                const bool finished = xml.attributes().value(QLatin1String("type")).isEmpty();
                translation = xml.readElementText();
                if (!finished)
                    translation.clear();
            }
        } else if (xml.isEndElement() && xml.name() == QLatin1String("message") && context == QLatin1String("QObject")) {
            messages[{source.toStdString(), comment.toStdString()}] = translation.toStdString();
        }
    }
    EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
    return messages;
}

TEST(MessageCatalogueTest, SourcesTranslateTheLanguageNames)
{
    const std::set<Message> used = messagesInSources();
    EXPECT_EQ(used.count({"TXT_RID_COMBOBOX_GERMAN", "GERMAN"}), 1u);
    EXPECT_EQ(used.count({"TXT_RID_COMBOBOX_CZECH", "CZECH"}), 1u);
    EXPECT_EQ(used.count({"TXT_RID_COMBOBOX_AUTOMATIC", "AUTOMATIC"}), 1u);
}

class MessageCatalogueLanguageTest : public ::testing::TestWithParam<const char*> {};

TEST_P(MessageCatalogueLanguageTest, EveryTranslatedIdentifierHasAFinishedEntry)
{
    const std::map<Message, std::string> messages = catalogue(GetParam());
    for (const Message& message : messagesInSources()) {
        const auto it = messages.find(message);
        ASSERT_NE(it, messages.end()) << message.first << " (" << message.second << ")";
        EXPECT_FALSE(it->second.empty()) << message.first << " (" << message.second << ")";
    }
}

TEST_P(MessageCatalogueLanguageTest, HoldsTheSameMessagesAsTheEnglishOne)
{
    const std::map<Message, std::string> english = catalogue("en");
    const std::map<Message, std::string> other = catalogue(GetParam());
    ASSERT_EQ(other.size(), english.size());
    for (const auto& [message, translation] : english)
        EXPECT_EQ(other.count(message), 1u) << message.first;
}

INSTANTIATE_TEST_SUITE_P(Languages, MessageCatalogueLanguageTest, ::testing::Values("en", "de"),
                         [](const ::testing::TestParamInfo<const char*>& info) {
                             return std::string(info.param) == "en" ? "English" : "German";
                         });

TEST(MessageCatalogueTest, EnglishNamesTheLanguagesInCapitals)
{
    const std::map<Message, std::string> english = catalogue("en");
    EXPECT_EQ(english.at({"TXT_RID_COMBOBOX_GERMAN", "GERMAN"}), "GERMAN");
    EXPECT_EQ(english.at({"TXT_RID_HEADER_SIM_CARD", "SIM Card"}), "SIM Card");
    EXPECT_EQ(english.at({"FMT_RID_AIA_SMS_2", ""}), "SMS: %2");
    const std::map<Message, std::string> german = catalogue("de");
    EXPECT_EQ(german.at({"TXT_RID_COMBOBOX_ENGLISH", "ENGLISH"}), "ENGLISCH");
}

} // namespace
