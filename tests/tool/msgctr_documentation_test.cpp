// The manual page and the bash completion script of msgctr, as the build makes them from the verb declarations.
#include "HostRootTest.h"
#include "MsgctrRun.h"

#include <QFile>
#include <QProcess>

#include <ostream>
#include <string>

namespace {

QString fileText(const char* path)
{
    QFile file(QString::fromUtf8(path));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QStringLiteral("<cannot read %1>").arg(file.fileName());
}

class MsgctrDocumentationTest : public HostRootTest {
protected:
    // What the completion script offers for the words typed so far (the last one being completed).
    QStringList complete(const QStringList& typed)
    {
        QString wordsArray;
        for (const QString& w : typed)
            wordsArray += QStringLiteral(" '%1'").arg(w);
        const QString script = QStringLiteral("source \"$1\"\nCOMP_WORDS=(msgctr%1)\nCOMP_CWORD=%2\n_msgctr\n"
                                              "printf '%s\\n' \"${COMPREPLY[@]}\"\n")
                                   .arg(wordsArray)
                                   .arg(typed.size());
        QProcess bash;
        bash.start(QStringLiteral("bash"), {QStringLiteral("-c"), script, QStringLiteral("bash"), QStringLiteral(ZOR_MSGCTR_COMPLETION)});
        if (!bash.waitForFinished(60000))
            return {QStringLiteral("<bash did not finish>")};
        QStringList offered = QString::fromUtf8(bash.readAllStandardOutput()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
        offered.sort();
        return offered;
    }
};

struct VerbCase {
    const char* family;
    const char* verb;
};

std::ostream& operator<<(std::ostream& os, const VerbCase& c)
{
    return os << c.family << ' ' << c.verb;
}

class MsgctrManualVerbTest : public MsgctrDocumentationTest, public ::testing::WithParamInterface<VerbCase> {};

TEST_P(MsgctrManualVerbTest, ManualPageDescribesTheVerb)
{
    // troff writes each "-" of a command as "\-".
    const QString command = QStringLiteral("msgctr %1 %2").arg(QString::fromLatin1(GetParam().family), QString::fromLatin1(GetParam().verb));
    const QString roff = QString(command).replace(QLatin1Char('-'), QStringLiteral("\\-"));
    EXPECT_TRUE(fileText(ZOR_MSGCTR_MANUAL).contains(QStringLiteral("\n.B ") + roff)) << qPrintable(command);
}

INSTANTIATE_TEST_SUITE_P(
    EveryVerb, MsgctrManualVerbTest,
    ::testing::Values(VerbCase{"addr", "names"}, VerbCase{"addr", "normalize"}, VerbCase{"addr", "split"},
                      VerbCase{"platform", "calls"}, VerbCase{"platform", "fault"}, VerbCase{"platform", "faults"},
                      VerbCase{"platform", "feature"}, VerbCase{"platform", "flexbit"}, VerbCase{"platform", "lang"},
                      VerbCase{"platform", "reset"}, VerbCase{"platform", "root"}, VerbCase{"settings", "get"},
                      VerbCase{"settings", "list"}, VerbCase{"settings", "set"}, VerbCase{"tapi", "cb-state"},
                      VerbCase{"tapi", "channel-add"}, VerbCase{"tapi", "channel-del"}, VerbCase{"tapi", "channels"},
                      VerbCase{"tapi", "cphs-mailbox"}, VerbCase{"tapi", "email-gateway"}, VerbCase{"tapi", "gprs"},
                      VerbCase{"tapi", "mail-count"}, VerbCase{"tapi", "mailbox"}, VerbCase{"tapi", "service"},
                      VerbCase{"tapi", "show"}, VerbCase{"tapi", "sim-status"}, VerbCase{"tapi", "slot-count"},
                      VerbCase{"tapi", "slots"}, VerbCase{"tapi", "smsc"}, VerbCase{"tapi", "transport-mode"},
                      VerbCase{"tapi", "transport-supported"}, VerbCase{"tapi", "usim-rule"}, VerbCase{"tapi", "vp"},
                      VerbCase{"tapi", "waiting"}, VerbCase{"text", "ascii"}, VerbCase{"text", "crc"},
                      VerbCase{"text", "email-decode"}, VerbCase{"text", "email-encode"}, VerbCase{"text", "hex"},
                      VerbCase{"text", "iso8601"}, VerbCase{"text", "segments"}, VerbCase{"text", "strip"}),
    [](const ::testing::TestParamInfo<VerbCase>& info) {
        std::string name = std::string(info.param.family) + "_" + info.param.verb;
        for (char& c : name)
            if (c == '-')
                c = '_';
        return name;
    });

TEST_F(MsgctrDocumentationTest, ManualPageHasItsSectionsAndTheStatusCommand)
{
    const QString manual = fileText(ZOR_MSGCTR_MANUAL);
    EXPECT_TRUE(manual.startsWith(QStringLiteral(".TH MSGCTR 1 \"\" \"msgctr 1.0.0\" \"User Commands\"\n.SH NAME\n")));
    for (const char* part : {"\n.SH SYNOPSIS\n", "\n.SH OPTIONS\n", "\n.SH TAPI VERBS\n", "\n.SH EXIT STATUS\n", "\n.B msgctr status\n",
                             "\n.B \\-\\-json\n"})
        EXPECT_TRUE(manual.contains(QString::fromLatin1(part))) << part;
}

TEST_F(MsgctrDocumentationTest, BuiltFilesAreWhatTheToolMakes)
{
    EXPECT_EQ(fileText(ZOR_MSGCTR_MANUAL), runMsgctr(QString(), words({"--manual-page"})).out);
    EXPECT_EQ(fileText(ZOR_MSGCTR_COMPLETION), runMsgctr(QString(), words({"--bash-completion"})).out);
}

TEST_F(MsgctrDocumentationTest, CompletionOffersTheFamiliesAndGlobalOptions)
{
    EXPECT_EQ(complete({QString()}), words({"--help", "--json", "--root", "--version", "addr", "cb", "dm", "platform",
                                            "profile", "settings", "status", "tapi", "text"}));
    EXPECT_EQ(complete({QStringLiteral("se")}), words({"settings"}));
}

TEST_F(MsgctrDocumentationTest, CompletionOffersTheVerbsOfAFamily)
{
    EXPECT_EQ(complete(words({"platform", ""})), words({"calls", "fault", "faults", "feature", "flexbit", "lang", "reset", "root"}));
    EXPECT_EQ(complete(words({"--root", "/x", "tapi", "cha"})), words({"channel-add", "channel-del", "channels"}));
}

TEST_F(MsgctrDocumentationTest, CompletionOffersTheOptionsOfAVerb)
{
    EXPECT_EQ(complete(words({"addr", "names", "--"})), words({"--contacts", "--help", "--json", "--max", "--separator"}));
    EXPECT_EQ(complete(words({"text", "hex", "--bits", ""})), words({"16", "32", "8"}));
}

TEST_F(MsgctrDocumentationTest, CompletionOffersTheMessagingKeys)
{
    const QStringList groups = complete(words({"settings", "set", "GROUP_MSGCTR_"}));
    EXPECT_EQ(groups, words({"GROUP_MSGCTR_GENERAL", "GROUP_MSGCTR_INFO_SERV", "GROUP_MSGCTR_SMS", "GROUP_MSGCTR_VM", "GROUP_MSGCTR_WAP"}));
    EXPECT_EQ(complete(words({"settings", "get", "GROUP_MSGCTR_SMS", "MAX_SMS"})), words({"MAX_SMS_UNIT", "MAX_SMS_VALUE"}));
}

TEST_F(MsgctrDocumentationTest, CompletionOffersTheBooleanWords)
{
    EXPECT_EQ(complete(words({"tapi", "waiting", "1", ""})), words({"false", "true"}));
}

} // namespace
