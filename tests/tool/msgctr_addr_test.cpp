#include "HostRootTest.h"
#include "RowName.h"
#include "ProgramLauncher.h"

#include <QFile>
#include <QProcess>

namespace {

struct ToolRun {
    int status = -1;
    QStringList out;
    QString err;
};

class MsgctrAddrTest : public HostRootTest {
protected:
    ToolRun msgctr(const QStringList& args)
    {
        QProcess p;
        startProgram(p, QStringLiteral(ZOR_MSGCTR_EXE), QStringList{QStringLiteral("--root"), root()} + args);
        EXPECT_TRUE(p.waitForFinished(60000));
        ToolRun r;
        r.status = p.exitStatus() == QProcess::NormalExit ? p.exitCode() : -1;
        QString text = QString::fromUtf8(p.readAllStandardOutput());
        if (text.endsWith(QLatin1Char('\n')))
            text.chop(1);
        r.out = text.isEmpty() ? QStringList() : text.split(QLatin1Char('\n'));
        r.err = QString::fromUtf8(p.readAllStandardError());
        return r;
    }

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
};

TEST_F(MsgctrAddrTest, NormalizePrintsCanonicalList)
{
    const ToolRun r = msgctr({QStringLiteral("addr"), QStringLiteral("normalize"), QStringLiteral(" 123 45;+4930 ,,a@b ;")});
    EXPECT_EQ(r.status, 0) << qPrintable(r.err);
    EXPECT_EQ(r.out, QStringList{QStringLiteral("12345,+4930,a@b")});
}

TEST_F(MsgctrAddrTest, NormalizeOfBlankTextPrintsEmptyLine)
{
    const ToolRun r = msgctr({QStringLiteral("addr"), QStringLiteral("normalize"), QStringLiteral(" ;, ")});
    EXPECT_EQ(r.status, 0);
    EXPECT_TRUE(r.out.isEmpty());
}

TEST_F(MsgctrAddrTest, SplitPrintsNumbersAndOthers)
{
    const ToolRun r = msgctr({QStringLiteral("addr"), QStringLiteral("split"), QStringLiteral("123,a@b,456;12-3")});
    EXPECT_EQ(r.status, 0);
    EXPECT_EQ(r.out, (QStringList{QStringLiteral("numbers: 123,456"), QStringLiteral("others: a@b,12-3")}));
}

struct UsageCase {
    std::vector<const char*> args;
    const char* message;
};

class MsgctrAddrUsageTest : public MsgctrAddrTest, public ::testing::WithParamInterface<UsageCase> {};

TEST_P(MsgctrAddrUsageTest, BadUsageExitsWith2)
{
    QStringList args;
    for (const char* a : GetParam().args)
        args.append(QString::fromUtf8(a));
    const ToolRun r = msgctr(args);
    EXPECT_EQ(r.status, 2);
    EXPECT_TRUE(r.out.isEmpty());
    EXPECT_TRUE(r.err.contains(QString::fromUtf8(GetParam().message))) << qPrintable(r.err);
}

INSTANTIATE_TEST_SUITE_P(
    Table, MsgctrAddrUsageTest,
    ::testing::Values(UsageCase{{"addr", "normalize"}, "addr normalize takes one TEXT"},
                      UsageCase{{"addr", "normalize", "a", "b"}, "addr normalize takes one TEXT"},
                      UsageCase{{"addr", "split"}, "addr split takes one TEXT"},
                      UsageCase{{"addr", "names"}, "addr names takes one TEXT"},
                      UsageCase{{"addr", "names", "1", "--max"}, "--max needs a value"},
                      UsageCase{{"addr", "names", "--max", "x", "1"}, "--max needs a length"},
                      UsageCase{{"addr", "names", "--max", "-1", "1"}, "--max needs a length"},
                      UsageCase{{"addr", "names", "--max", "1", "--max", "2", "1"}, "--max given twice"},
                      UsageCase{{"text", "email-encode"}, "text email-encode takes one BODY"},
                      UsageCase{{"text", "email-encode", "--subject"}, "--subject needs a value"},
                      UsageCase{{"text", "email-decode", "a", "b"}, "text email-decode takes one TEXT"},
                      UsageCase{{"text", "email-decode", "--simple", "--from", "1", "x"},
                                "--from does not go with it"}),
                         [](const auto& info) {
                             std::string words;
                             for (const char* arg : info.param.args)
                                 words += std::string(words.empty() ? "" : " ") + arg;
                             return rowName(words);
                         });

TEST_F(MsgctrAddrTest, NamesWithoutContactsAreTheAddresses)
{
    const ToolRun r = msgctr({QStringLiteral("addr"), QStringLiteral("names"), QStringLiteral("+4930111; a@b")});
    EXPECT_EQ(r.status, 0) << qPrintable(r.err);
    EXPECT_EQ(r.out, QStringList{QStringLiteral("+4930111, a@b")});
}

TEST_F(MsgctrAddrTest, NamesFromVCardFile)
{
    const ToolRun r = msgctr({QStringLiteral("addr"), QStringLiteral("names"), QStringLiteral("--contacts"), contacts(),
                          QStringLiteral("+4930111;ALICE@example, 222,333, x@y")});
    EXPECT_EQ(r.status, 0) << qPrintable(r.err);
    EXPECT_EQ(r.out, QStringList{QStringLiteral("Alice, Alice, Bob Builder, 333, x@y")});
}

TEST_F(MsgctrAddrTest, NamesCutToMaximumWithOwnSeparator)
{
    const ToolRun r = msgctr({QStringLiteral("addr"), QStringLiteral("names"), QStringLiteral("--contacts"), contacts(),
                          QStringLiteral("--max"), QStringLiteral("8"), QStringLiteral("--separator"),
                          QStringLiteral(" / "), QStringLiteral("+4930111,222")});
    EXPECT_EQ(r.status, 0) << qPrintable(r.err);
    EXPECT_EQ(r.out, QStringList{QStringLiteral("Alice / ")});

    const ToolRun five = msgctr({QStringLiteral("addr"), QStringLiteral("names"), QStringLiteral("--contacts"),
                             contacts(), QStringLiteral("--max"), QStringLiteral("5"), QStringLiteral("+4930111,222")});
    EXPECT_EQ(five.out, QStringList{QStringLiteral("Alice")});
}

TEST_F(MsgctrAddrTest, MissingContactsFileFails)
{
    const ToolRun r = msgctr({QStringLiteral("addr"), QStringLiteral("names"), QStringLiteral("--contacts"),
                          root() + QStringLiteral("/none.vcf"), QStringLiteral("1")});
    EXPECT_EQ(r.status, 1);
    EXPECT_TRUE(r.out.isEmpty());
    EXPECT_TRUE(r.err.contains(QStringLiteral("cannot read contacts file"))) << qPrintable(r.err);
}

TEST_F(MsgctrAddrTest, MalformedContactsFileFails)
{
    for (const QByteArray& content : {QByteArray("FN:Alice\n"), QByteArray("BEGIN:VCARD\nFN:Alice\n"),
                                      QByteArray("BEGIN:VCARD\nno colon\nEND:VCARD\n"), QByteArray("")}) {
        const ToolRun r = msgctr({QStringLiteral("addr"), QStringLiteral("names"), QStringLiteral("--contacts"),
                              writeFile(QStringLiteral("bad.vcf"), content), QStringLiteral("1")});
        EXPECT_EQ(r.status, 1) << content.constData();
        EXPECT_TRUE(r.err.contains(QStringLiteral("is not a usable vCard file"))) << qPrintable(r.err);
    }
}

TEST_F(MsgctrAddrTest, EmailEncodeSplitsAndFormats)
{
    const ToolRun r = msgctr({QStringLiteral("text"), QStringLiteral("email-encode"), QStringLiteral("--to"),
                          QStringLiteral("123, user@example"), QStringLiteral("--subject"), QStringLiteral("Hi"),
                          QStringLiteral("Text")});
    EXPECT_EQ(r.status, 0) << qPrintable(r.err);
    EXPECT_EQ(r.out, (QStringList{QStringLiteral("numbers: 123"), QStringLiteral("e-mail: user@example"),
                                  QStringLiteral("text: user@example(Hi)Text")}));

    const ToolRun bare = msgctr({QStringLiteral("text"), QStringLiteral("email-encode"), QStringLiteral("Text")});
    EXPECT_EQ(bare.out,
              (QStringList{QStringLiteral("numbers: "), QStringLiteral("e-mail: "), QStringLiteral("text: Text")}));
}

TEST_F(MsgctrAddrTest, EmailDecodeForms)
{
    ToolRun r = msgctr({QStringLiteral("text"), QStringLiteral("email-decode"), QStringLiteral("user@example(Hi) there")});
    EXPECT_EQ(r.status, 0) << qPrintable(r.err);
    EXPECT_EQ(r.out, (QStringList{QStringLiteral("address: user@example"), QStringLiteral("subject: Hi"),
                                  QStringLiteral("body:  there")}));

    r = msgctr({QStringLiteral("text"), QStringLiteral("email-decode"), QStringLiteral("--from"),
                QStringLiteral("6245"), QStringLiteral("x##s#body y")});
    EXPECT_EQ(r.out, (QStringList{QStringLiteral("address: 6245,x"), QStringLiteral("subject: s"),
                                  QStringLiteral("body: body y")}));

    r = msgctr({QStringLiteral("text"), QStringLiteral("email-decode"), QStringLiteral("--simple"),
                QStringLiteral("(Hi)x(y)")});
    EXPECT_EQ(r.out, (QStringList{QStringLiteral("subject: Hi"), QStringLiteral("body: x(y)")}));
}

} // namespace
