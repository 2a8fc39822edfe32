#include "HostRootTest.h"
#include "ProgramLauncher.h"

#include <ostream>

#include <QProcess>

#include <string>

namespace {

struct ToolRun {
    int exitCode = -1;
    QString out;
    QString err;
};

class MsgctrTextTest : public HostRootTest {
protected:
    ToolRun msgctr(const QStringList& args)
    {
        QProcess p;
        startProgram(p, QStringLiteral(ZOR_MSGCTR_EXE), QStringList{QStringLiteral("--root"), root()} + args);
        ToolRun r;
        if (!p.waitForFinished(60000) || p.exitStatus() != QProcess::NormalExit)
            return r;
        r.exitCode = p.exitCode();
        r.out = QString::fromUtf8(p.readAllStandardOutput());
        r.err = QString::fromUtf8(p.readAllStandardError());
        return r;
    }
};

struct GoodCase {
    const char* name;
    QStringList args;
    QString out;
};

void PrintTo(const GoodCase& c, std::ostream* os)
{
    *os << "\"" << c.name << "\"";
}

class MsgctrTextGoodTest : public MsgctrTextTest, public ::testing::WithParamInterface<GoodCase> {};

struct BadCase {
    const char* name;
    QStringList args;
    QString errPart;
};

void PrintTo(const BadCase& c, std::ostream* os)
{
    *os << "\"" << c.name << "\"";
}

class MsgctrTextBadTest : public MsgctrTextTest, public ::testing::WithParamInterface<BadCase> {};

QStringList args(std::initializer_list<const char*> items)
{
    QStringList l;
    for (const char* i : items)
        l.append(QString::fromUtf8(i));
    return l;
}

} // namespace

TEST_P(MsgctrTextGoodTest, PrintsTheResult)
{
    const ToolRun r = msgctr(QStringList{QStringLiteral("text")} + GetParam().args);
    EXPECT_EQ(r.exitCode, 0) << r.err.toStdString();
    EXPECT_EQ(r.out, GetParam().out + QLatin1Char('\n'));
    EXPECT_EQ(r.err, QString());
}

INSTANTIATE_TEST_SUITE_P(
    Verbs, MsgctrTextGoodTest,
    ::testing::Values(GoodCase{"Hex255", args({"hex", "255"}), QStringLiteral("0x000000FF")},
                      GoodCase{"HexZero", args({"hex", "0"}), QStringLiteral("0x00000000")},
                      GoodCase{"HexMax32", args({"hex", "4294967295"}), QStringLiteral("0xFFFFFFFF")},
                      GoodCase{"HexFromHex", args({"hex", "0xabc"}), QStringLiteral("0x00000ABC")},
                      GoodCase{"HexBits32", args({"hex", "--bits", "32", "1"}), QStringLiteral("0x00000001")},
                      GoodCase{"HexBits16", args({"hex", "4660", "--bits", "16"}), QStringLiteral("0x1234")},
                      GoodCase{"HexMax16", args({"hex", "65535", "--bits", "16"}), QStringLiteral("0xFFFF")},
                      GoodCase{"HexBits8", args({"hex", "--bits", "8", "255"}), QStringLiteral("0xFF")},
                      GoodCase{"HexBits8Small", args({"hex", "10", "--bits", "8"}), QStringLiteral("0x0A")},
                      GoodCase{"Strip", args({"strip", " a  b\tc\nd "}), QStringLiteral("abcd")},
                      GoodCase{"StripNothingLeft", args({"strip", " \t "}), QString()},
                      GoodCase{"AsciiAbove255", args({"ascii", "a\u20ACb\u4E2D"}), QStringLiteral("a?b?")},
                      GoodCase{"AsciiKeepsLatin1", args({"ascii", "caf\u00E9"}), QStringLiteral("caf\u00E9")}),
    [](const ::testing::TestParamInfo<GoodCase>& info) { return std::string(info.param.name); });

TEST_P(MsgctrTextBadTest, RefusesWithUsageStatus)
{
    const ToolRun r = msgctr(QStringList{QStringLiteral("text")} + GetParam().args);
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_EQ(r.out, QString());
    EXPECT_TRUE(r.err.startsWith(QStringLiteral("msgctr: "))) << r.err.toStdString();
    EXPECT_TRUE(r.err.contains(GetParam().errPart)) << r.err.toStdString();
}

INSTANTIATE_TEST_SUITE_P(
    Verbs, MsgctrTextBadTest,
    ::testing::Values(BadCase{"HexTooBigFor32", args({"hex", "4294967296"}), QStringLiteral("does not fit in 32")},
                      BadCase{"HexTooBigFor16", args({"hex", "65536", "--bits", "16"}), QStringLiteral("does not fit in 16")},
                      BadCase{"HexTooBigFor8", args({"hex", "256", "--bits", "8"}), QStringLiteral("does not fit in 8")},
                      BadCase{"HexNegative", args({"hex", "-1"}), QStringLiteral("does not fit")},
                      BadCase{"HexNotANumber", args({"hex", "12z"}), QStringLiteral("not a number")},
                      BadCase{"HexMissingNumber", args({"hex"}), QStringLiteral("one NUMBER")},
                      BadCase{"HexTwoNumbers", args({"hex", "1", "2"}), QStringLiteral("one NUMBER")},
                      BadCase{"HexOddWidth", args({"hex", "1", "--bits", "7"}), QStringLiteral("32, 16 or 8")},
                      BadCase{"HexWidthMissing", args({"hex", "1", "--bits"}), QStringLiteral("32, 16 or 8")},
                      BadCase{"StripMissingText", args({"strip"}), QStringLiteral("one TEXT")},
                      BadCase{"StripTwoTexts", args({"strip", "a", "b"}), QStringLiteral("one TEXT")},
                      BadCase{"AsciiMissingText", args({"ascii"}), QStringLiteral("one TEXT")}),
    [](const ::testing::TestParamInfo<BadCase>& info) { return std::string(info.param.name); });

TEST_F(MsgctrTextTest, FamilyHelpListsTheVerbs)
{
    const ToolRun r = msgctr(args({"text", "--help"}));
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_TRUE(r.out.contains(QStringLiteral("text utilities: hex, white space, ...")));
    EXPECT_TRUE(r.out.contains(QStringLiteral("hex NUMBER [--bits 32|16|8]")));
    EXPECT_TRUE(r.out.contains(QStringLiteral("strip TEXT")));
    EXPECT_TRUE(r.out.contains(QStringLiteral("ascii TEXT")));
}

TEST_F(MsgctrTextTest, VerbHelp)
{
    const ToolRun r = msgctr(args({"text", "hex", "--help"}));
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_TRUE(r.out.startsWith(QStringLiteral("usage: msgctr text hex NUMBER [--bits 32|16|8]\n")))
        << r.out.toStdString();
}
