// msgctr addr and the e-mail-over-SMS text verbs, run as separate processes against the test's root.
#include "HostRootTest.h"
#include "MsgctrRun.h"

#include <QFile>

namespace {

class MsgctrAddrTest : public HostRootTest {
protected:
    MsgctrResult run(const QStringList& args) { return runMsgctr(root(), args); }

    QString writeFile(const QString& name, const QByteArray& content)
    {
        const QString path = root() + QLatin1Char('/') + name;
        QFile f(path);
        EXPECT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(content);
        return path;
    }

    QString contacts()
    {
        return writeFile(QStringLiteral("contacts.vcf"),
                         "BEGIN:VCARD\r\nVERSION:3.0\r\nFN:Alice\r\nTEL;TYPE=CELL:+49 30-111\r\n"
                         "EMAIL:alice@example\r\nEND:VCARD\r\n"
                         "BEGIN:VCARD\nVERSION:3.0\nFN:Bob\n  Builder\nitem1.TEL:222\nEND:VCARD\n");
    }

    void expectOut(const QStringList& args, const QString& out)
    {
        const MsgctrResult r = run(args);
        EXPECT_EQ(r.exitCode, 0) << qPrintable(args.join(QLatin1Char(' '))) << ": " << qPrintable(r.err);
        EXPECT_EQ(r.out, out) << qPrintable(args.join(QLatin1Char(' ')));
        EXPECT_EQ(r.err, QString());
    }
};

TEST_F(MsgctrAddrTest, NormalizePrintsCanonicalList)
{
    expectOut(words({"addr", "normalize", " 123 45;+4930 ,,a@b ;"}), QStringLiteral("list: 12345,+4930,a@b\n"));
}

TEST_F(MsgctrAddrTest, NormalizeOfBlankTextIsAnEmptyList)
{
    expectOut(words({"addr", "normalize", " ;, "}), QStringLiteral("list: \n"));
}

TEST_F(MsgctrAddrTest, NormalizeReadsTheListFromStandardInputForDash)
{
    const MsgctrResult r = runMsgctr(root(), words({"addr", "normalize", "-"}), "1 2;3\n");
    EXPECT_EQ(r.exitCode, 0) << qPrintable(r.err);
    EXPECT_EQ(r.out, QStringLiteral("list: 12,3\n"));
}

TEST_F(MsgctrAddrTest, SplitPrintsNumbersAndOthers)
{
    expectOut(words({"addr", "split", "123,a@b,456;12-3"}), QStringLiteral("numbers: 123,456\nothers: a@b,12-3\n"));
}

struct UsageCase {
    const char* name;
    QStringList args;
    const char* message;
};

std::ostream& operator<<(std::ostream& os, const UsageCase& c)
{
    return os << c.name;
}

class MsgctrAddrUsageTest : public MsgctrAddrTest, public ::testing::WithParamInterface<UsageCase> {};

TEST_P(MsgctrAddrUsageTest, BadUsageExitsWith2)
{
    const MsgctrResult r = run(GetParam().args);
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_EQ(r.out, QString());
    EXPECT_EQ(r.err, QStringLiteral("msgctr: %1\n").arg(QString::fromUtf8(GetParam().message)));
}

INSTANTIATE_TEST_SUITE_P(
    Table, MsgctrAddrUsageTest,
    ::testing::Values(
        UsageCase{"normalizeWithoutText", words({"addr", "normalize"}), "addr normalize needs TEXT (see msgctr addr normalize --help)"},
        UsageCase{"normalizeWithTwoTexts", words({"addr", "normalize", "a", "b"}),
                  "addr normalize: one argument too many: 'b' (see msgctr addr normalize --help)"},
        UsageCase{"splitWithoutText", words({"addr", "split"}), "addr split needs TEXT (see msgctr addr split --help)"},
        UsageCase{"namesWithoutText", words({"addr", "names"}), "addr names needs TEXT (see msgctr addr names --help)"},
        UsageCase{"maxWithoutValue", words({"addr", "names", "1", "--max"}), "--max needs a value (N)"},
        UsageCase{"maxNotANumber", words({"addr", "names", "--max", "x", "1"}), "--max must be a number from 0 to 2147483647, not 'x'"},
        UsageCase{"maxNegative", words({"addr", "names", "--max", "-1", "1"}), "--max must be a number from 0 to 2147483647, not '-1'"},
        UsageCase{"maxTwice", words({"addr", "names", "--max", "1", "--max", "2", "1"}), "--max given twice"},
        UsageCase{"encodeWithoutBody", words({"text", "email-encode"}), "text email-encode needs BODY (see msgctr text email-encode --help)"},
        UsageCase{"subjectWithoutValue", words({"text", "email-encode", "--subject"}), "--subject needs a value (S)"},
        UsageCase{"decodeWithTwoTexts", words({"text", "email-decode", "a", "b"}),
                  "text email-decode: one argument too many: 'b' (see msgctr text email-decode --help)"},
        UsageCase{"simpleWithFrom", words({"text", "email-decode", "--simple", "--from", "1", "x"}),
                  "--simple reads no address, so --from does not go with it"}),
    [](const ::testing::TestParamInfo<UsageCase>& info) { return std::string(info.param.name); });

TEST_F(MsgctrAddrTest, NamesWithoutContactsAreTheAddresses)
{
    expectOut(words({"addr", "names", "+4930111; a@b"}), QStringLiteral("names: +4930111, a@b\n"));
}

TEST_F(MsgctrAddrTest, NamesFromVCardFile)
{
    expectOut({QStringLiteral("addr"), QStringLiteral("names"), QStringLiteral("--contacts"), contacts(),
               QStringLiteral("+4930111;ALICE@example, 222,333, x@y")},
              QStringLiteral("names: Alice, Alice, Bob Builder, 333, x@y\n"));
}

TEST_F(MsgctrAddrTest, NamesCutToMaximumWithOwnSeparator)
{
    expectOut({QStringLiteral("addr"), QStringLiteral("names"), QStringLiteral("--contacts"), contacts(), QStringLiteral("--max"),
               QStringLiteral("8"), QStringLiteral("--separator"), QStringLiteral(" / "), QStringLiteral("+4930111,222")},
              QStringLiteral("names: Alice / \n"));
    expectOut({QStringLiteral("addr"), QStringLiteral("names"), QStringLiteral("--contacts"), contacts(),
               QStringLiteral("--max=5"), QStringLiteral("+4930111,222")},
              QStringLiteral("names: Alice\n"));
}

TEST_F(MsgctrAddrTest, MaximumInsideASurrogatePairDropsTheWholeCharacter)
{
    const QString file = writeFile(QStringLiteral("emoji.vcf"),
                                   "BEGIN:VCARD\nVERSION:3.0\nFN:Anna Schmidt \xF0\x9F\x98\x80\nTEL:111\nEND:VCARD\n");
    // "Anna Schmidt " is 13 units; the emoji takes units 14 and 15.
    expectOut({QStringLiteral("addr"), QStringLiteral("names"), QStringLiteral("--max"), QStringLiteral("14"),
               QStringLiteral("--contacts"), file, QStringLiteral("111")},
              QStringLiteral("names: Anna Schmidt \n"));
    expectOut({QStringLiteral("addr"), QStringLiteral("names"), QStringLiteral("--max"), QStringLiteral("15"),
               QStringLiteral("--contacts"), file, QStringLiteral("111")},
              QString::fromUtf8("names: Anna Schmidt \xF0\x9F\x98\x80\n"));
}

TEST_F(MsgctrAddrTest, MissingContactsFileFails)
{
    const QString path = root() + QStringLiteral("/none.vcf");
    const MsgctrResult r = run({QStringLiteral("addr"), QStringLiteral("names"), QStringLiteral("--contacts"), path, QStringLiteral("1")});
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_EQ(r.out, QString());
    EXPECT_EQ(r.err, QStringLiteral("msgctr: cannot read contacts file '%1': No such file or directory\n").arg(path));
}

struct BadVCard {
    const char* name;
    QByteArray content;
    const char* why;
};

std::ostream& operator<<(std::ostream& os, const BadVCard& c)
{
    return os << c.name;
}

class MsgctrAddrBadVCardTest : public MsgctrAddrTest, public ::testing::WithParamInterface<BadVCard> {};

TEST_P(MsgctrAddrBadVCardTest, IsRefusedWithTheReason)
{
    const QString path = writeFile(QStringLiteral("bad.vcf"), GetParam().content);
    const MsgctrResult r = run({QStringLiteral("addr"), QStringLiteral("names"), QStringLiteral("--contacts"), path, QStringLiteral("1")});
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_EQ(r.err, QStringLiteral("msgctr: contacts file '%1' is not a usable vCard file: %2\n").arg(path, QString::fromUtf8(GetParam().why)));
}

INSTANTIATE_TEST_SUITE_P(
    Files, MsgctrAddrBadVCardTest,
    ::testing::Values(BadVCard{"outsideACard", "FN:Alice\n", "line 1 is outside BEGIN:VCARD .. END:VCARD"},
                      BadVCard{"noEnd", "BEGIN:VCARD\nFN:Alice\n", "the last card has no END:VCARD"},
                      BadVCard{"noColon", "BEGIN:VCARD\nno colon\nEND:VCARD\n", "line 2 is not a vCard property: 'no colon'"},
                      BadVCard{"empty", "", "no BEGIN:VCARD in it"}),
    [](const ::testing::TestParamInfo<BadVCard>& info) { return std::string(info.param.name); });

struct VCardName {
    const char* name;
    QByteArray card;
    const char* address;
    const char* shown;
};

std::ostream& operator<<(std::ostream& os, const VCardName& c)
{
    return os << c.name;
}

class MsgctrAddrVCardNameTest : public MsgctrAddrTest, public ::testing::WithParamInterface<VCardName> {};

TEST_P(MsgctrAddrVCardNameTest, NameIsReadAsContactsApplicationsReadIt)
{
    const QString path = writeFile(QStringLiteral("card.vcf"), GetParam().card);
    expectOut({QStringLiteral("addr"), QStringLiteral("names"), QStringLiteral("--contacts"), path, QString::fromUtf8(GetParam().address)},
              QStringLiteral("names: %1\n").arg(QString::fromUtf8(GetParam().shown)));
}

INSTANTIATE_TEST_SUITE_P(
    Cards, MsgctrAddrVCardNameTest,
    ::testing::Values(
        VCardName{"quotedPrintableUtf8",
                  "BEGIN:VCARD\r\nVERSION:2.1\r\nFN;CHARSET=UTF-8;ENCODING=QUOTED-PRINTABLE:J=C3=B6rg M=C3=BCller\r\n"
                  "TEL;CELL:+49 171 1234\r\nEND:VCARD\r\n",
                  "+491711234", "J\xC3\xB6rg M\xC3\xBCller"},
        VCardName{"quotedPrintableSoftLineBreak",
                  "BEGIN:VCARD\r\nVERSION:2.1\r\nFN;CHARSET=UTF-8;ENCODING=QUOTED-PRINTABLE:J=C3=B6rg M=C3=\r\n"
                  "=BCller\r\nTEL;CELL:555\r\nEND:VCARD\r\n",
                  "555", "J\xC3\xB6rg M\xC3\xBCller"},
        VCardName{"quotedPrintableLatin1",
                  "BEGIN:VCARD\r\nVERSION:2.1\r\nFN;CHARSET=ISO-8859-1;ENCODING=QUOTED-PRINTABLE:Ren=E9 L=F6w\r\n"
                  "TEL:555\r\nEND:VCARD\r\n",
                  "555", "Ren\xC3\xA9 L\xC3\xB6w"},
        VCardName{"bareQuotedPrintableParameter",
                  "BEGIN:VCARD\r\nVERSION:2.1\r\nFN;QUOTED-PRINTABLE:Gr=C3=BC=C3=9F Gott\r\nTEL:7\r\nEND:VCARD\r\n", "7",
                  "Gr\xC3\xBC\xC3\x9F Gott"},
        VCardName{"latin1WithoutEncoding", "BEGIN:VCARD\nVERSION:2.1\nFN;CHARSET=ISO-8859-1:J\xF6rg\nTEL:8\nEND:VCARD\n", "8",
                  "J\xC3\xB6rg"},
        VCardName{"quotedParameterWithColon",
                  "BEGIN:VCARD\nVERSION:4.0\nFN:Bernd\nEMAIL;TYPE=\"work:office\":bernd@example.org\nEND:VCARD\n",
                  "bernd@example.org", "Bernd"}),
    [](const ::testing::TestParamInfo<VCardName>& info) { return std::string(info.param.name); });

TEST_F(MsgctrAddrTest, EmailEncodeSplitsAndFormats)
{
    expectOut(words({"text", "email-encode", "--to", "123, user@example", "--subject", "Hi", "Text"}),
              QStringLiteral("numbers: 123\nemail: user@example\ntext: user@example(Hi)Text\n"));
    expectOut(words({"text", "email-encode", "Text"}), QStringLiteral("numbers: \nemail: \ntext: Text\n"));
}

TEST_F(MsgctrAddrTest, EmailEncodeWarnsOfAParenthesisInTheSubject)
{
    const MsgctrResult r = run(words({"text", "email-encode", "--to", "a@b", "--subject", "with (parens)", "BODY"}));
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.out, QStringLiteral("numbers: \nemail: a@b\ntext: a@b(with (parens))BODY\n"));
    EXPECT_EQ(r.err, QStringLiteral("msgctr: warning: the subject holds ')'; the gateway format cannot carry it, and the "
                                    "text reads back split at the first ')'\n"));
}

TEST_F(MsgctrAddrTest, EmailDecodeForms)
{
    expectOut(words({"text", "email-decode", "user@example(Hi) there"}),
              QStringLiteral("address: user@example\nsubject: Hi\nbody:  there\n"));
    expectOut(words({"text", "email-decode", "--from", "6245", "x##s#body y"}),
              QStringLiteral("address: 6245,x\nsubject: s\nbody: body y\n"));
    expectOut(words({"text", "email-decode", "--simple", "(Hi)x(y)"}), QStringLiteral("subject: Hi\nbody: x(y)\n"));
}

} // namespace
