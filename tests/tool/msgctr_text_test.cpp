// msgctr text hex|strip|ascii, run as separate processes.
#include "HostRootTest.h"
#include "MsgctrRun.h"

#include <ostream>
#include <string>

namespace {

class MsgctrTextTest : public HostRootTest {
protected:
    MsgctrResult run(const QStringList& args) { return runMsgctr(root(), QStringList{QStringLiteral("text")} + args); }
};

struct GoodCase {
    const char* name;
    QStringList args;
    QString out;
};

std::ostream& operator<<(std::ostream& os, const GoodCase& c)
{
    return os << c.name;
}

class MsgctrTextGoodTest : public MsgctrTextTest, public ::testing::WithParamInterface<GoodCase> {};

TEST_P(MsgctrTextGoodTest, PrintsTheResult)
{
    const MsgctrResult r = run(GetParam().args);
    EXPECT_EQ(r.exitCode, 0) << r.err.toStdString();
    EXPECT_EQ(r.out, GetParam().out + QLatin1Char('\n'));
    EXPECT_EQ(r.err, QString());
}

INSTANTIATE_TEST_SUITE_P(
    Verbs, MsgctrTextGoodTest,
    ::testing::Values(GoodCase{"Hex255", words({"hex", "255"}), QStringLiteral("hex: 0x000000FF")},
                      GoodCase{"HexZero", words({"hex", "0"}), QStringLiteral("hex: 0x00000000")},
                      GoodCase{"HexMax32", words({"hex", "4294967295"}), QStringLiteral("hex: 0xFFFFFFFF")},
                      GoodCase{"HexFromHex", words({"hex", "0xabc"}), QStringLiteral("hex: 0x00000ABC")},
                      GoodCase{"HexBits32", words({"hex", "--bits", "32", "1"}), QStringLiteral("hex: 0x00000001")},
                      GoodCase{"HexBits16", words({"hex", "4660", "--bits", "16"}), QStringLiteral("hex: 0x1234")},
                      GoodCase{"HexMax16", words({"hex", "65535", "--bits", "16"}), QStringLiteral("hex: 0xFFFF")},
                      GoodCase{"HexBits8", words({"hex", "--bits", "8", "255"}), QStringLiteral("hex: 0xFF")},
                      GoodCase{"HexBitsWithEquals", words({"hex", "1", "--bits=8"}), QStringLiteral("hex: 0x01")},
                      GoodCase{"HexBits8Small", words({"hex", "10", "--bits", "8"}), QStringLiteral("hex: 0x0A")},
                      GoodCase{"Strip", words({"strip", " a  b\tc\nd "}), QStringLiteral("text: abcd")},
                      GoodCase{"StripNothingLeft", words({"strip", " \t "}), QStringLiteral("text: ")},
                      GoodCase{"StripAfterDoubleDash", words({"strip", "--", "--x"}), QStringLiteral("text: --x")},
                      GoodCase{"StripArgumentLikeAnApplicationOption", words({"strip", "--", "-qmljsdebugger=port:1234"}),
                               QStringLiteral("text: -qmljsdebugger=port:1234")},
                      GoodCase{"AsciiAbove255", words({"ascii", "a\u20ACb\u4E2D"}), QStringLiteral("text: a?b?")},
                      GoodCase{"AsciiSurrogatePairIsOneCharacter", words({"ascii", "a\xF0\x9F\x98\x80z"}), QStringLiteral("text: a?z")},
                      GoodCase{"AsciiKeepsLatin1", words({"ascii", "caf\u00E9"}), QStringLiteral("text: caf\u00E9")}),
    [](const ::testing::TestParamInfo<GoodCase>& info) { return std::string(info.param.name); });

struct BadCase {
    const char* name;
    QStringList args;
    const char* err;
};

std::ostream& operator<<(std::ostream& os, const BadCase& c)
{
    return os << c.name;
}

class MsgctrTextBadTest : public MsgctrTextTest, public ::testing::WithParamInterface<BadCase> {};

TEST_P(MsgctrTextBadTest, RefusesWithUsageStatus)
{
    const MsgctrResult r = run(GetParam().args);
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_EQ(r.out, QString());
    EXPECT_EQ(r.err, QStringLiteral("msgctr: %1\n").arg(QString::fromUtf8(GetParam().err)));
}

INSTANTIATE_TEST_SUITE_P(
    Verbs, MsgctrTextBadTest,
    ::testing::Values(
        BadCase{"HexTooBigFor32", words({"hex", "4294967296"}), "NUMBER must be a number from 0 to 4294967295, not '4294967296'"},
        BadCase{"HexTooBigFor16", words({"hex", "65536", "--bits", "16"}), "65536 does not fit in 16 unsigned bits (0 to 65535)"},
        BadCase{"HexTooBigFor8", words({"hex", "256", "--bits", "8"}), "256 does not fit in 8 unsigned bits (0 to 255)"},
        BadCase{"HexNegative", words({"hex", "-1"}), "NUMBER must be a number from 0 to 4294967295, not '-1'"},
        BadCase{"HexNotANumber", words({"hex", "12z"}), "NUMBER must be a number from 0 to 4294967295, not '12z'"},
        BadCase{"HexMissingNumber", words({"hex"}), "text hex needs NUMBER (see msgctr text hex --help)"},
        BadCase{"HexTwoNumbers", words({"hex", "1", "2"}), "text hex: one argument too many: '2' (see msgctr text hex --help)"},
        BadCase{"HexOddWidth", words({"hex", "1", "--bits", "7"}), "--bits must be one of 32, 16, 8, not '7'"},
        BadCase{"HexWidthMissing", words({"hex", "1", "--bits"}), "--bits needs a value (32|16|8)"},
        BadCase{"HexMistypedOption", words({"hex", "1", "--bit=8"}),
                "unknown option '--bit' for 'text hex' (did you mean '--bits'?) (an argument that begins with '-' goes after '--')"},
        BadCase{"StripMissingText", words({"strip"}), "text strip needs TEXT (see msgctr text strip --help)"},
        BadCase{"StripTwoTexts", words({"strip", "a", "b"}), "text strip: one argument too many: 'b' (see msgctr text strip --help)"},
        BadCase{"StripSingleDashWord", words({"strip", "-x"}),
                "unknown option '-x' for 'text strip' (an argument that begins with '-' goes after '--')"},
        BadCase{"AsciiMissingText", words({"ascii"}), "text ascii needs TEXT (see msgctr text ascii --help)"}),
    [](const ::testing::TestParamInfo<BadCase>& info) { return std::string(info.param.name); });

TEST_F(MsgctrTextTest, DashReadsTheTextFromStandardInput)
{
    const MsgctrResult r = runMsgctr(root(), words({"text", "strip", "-"}), "a b\nc\n");
    EXPECT_EQ(r.exitCode, 0) << qPrintable(r.err);
    EXPECT_EQ(r.out, QStringLiteral("text: abc\n"));
}

TEST_F(MsgctrTextTest, FamilyHelpListsTheVerbs)
{
    const MsgctrResult r = run(words({"--help"}));
    EXPECT_EQ(r.exitCode, 0);
    const QStringList lines = r.out.split(QLatin1Char('\n'));
    EXPECT_EQ(lines.at(0), QStringLiteral("usage: msgctr text <verb> [args...]"));
    EXPECT_EQ(lines.at(1), QStringLiteral("text utilities: hex, white space, checksums, segments, e-mail over SMS, times"));
    EXPECT_TRUE(lines.contains(QStringLiteral("  hex [--bits 32|16|8] NUMBER  the number in upper-case hexadecimal with 0x, as 8, 4 or 2 digits")));
    EXPECT_TRUE(lines.contains(QStringLiteral("  strip TEXT                   the text with every white-space character removed")));
}

TEST_F(MsgctrTextTest, VerbHelp)
{
    const MsgctrResult r = run(words({"hex", "-h"}));
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.out, QStringLiteral("usage: msgctr text hex [--bits 32|16|8] NUMBER\n"
                                    "the number in upper-case hexadecimal with 0x, as 8, 4 or 2 digits\n\n"
                                    "arguments:\n"
                                    "  NUMBER           the number, decimal or 0x hexadecimal (0 to 4294967295)\n"
                                    "  --bits 32|16|8   the width (default 32) (one of 32, 16, 8)\n\n"
                                    "fields (also with --json): hex (text)\n"));
}

} // namespace
