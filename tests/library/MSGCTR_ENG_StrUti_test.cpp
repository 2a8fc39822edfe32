#include "MSGCTR_ENG_StrUti.h"

#include "HostRootTest.h"
#include "RowName.h"

#include <ostream>
#include "MFString.h"

#include <array>
#include <cstring>
#include <functional>
#include <vector>

namespace {

// The first value of each pair is the plain copy, the second its twin that takes the warning flag.
struct PlainOrWarningName {
    template <typename Copy>
    std::string operator()(const ::testing::TestParamInfo<Copy>& info) const
    {
        return info.index == 0 ? "Plain" : "WithTruncateWarning";
    }
};


using CopyU16 = int (*)(unsigned short*, int, const QString&);
using CopyU8 = int (*)(char*, int, const QCString&);
using CopyBytes = void (*)(char*, int, const QString&);

std::vector<unsigned short> units(const char* latin1)
{
    std::vector<unsigned short> result;
    for (const char* p = latin1; *p; ++p)
        result.push_back(static_cast<unsigned char>(*p));
    result.push_back(0);
    return result;
}

// The plain copies and their ...WithTruncateWarning twins behave identically; every copy test runs on both.
class CopyU16Test : public HostRootTest, public ::testing::WithParamInterface<CopyU16> {};
class CopyU8Test : public HostRootTest, public ::testing::WithParamInterface<CopyU8> {};
class CopyBytesTest : public HostRootTest, public ::testing::WithParamInterface<CopyBytes> {};
class StrUtiTest : public HostRootTest {};

} // namespace

TEST_P(CopyU16Test, CapacityFiveTakesFourUnitsAndTheTerminator)
{
    std::array<unsigned short, 8> buffer;
    buffer.fill(0xEEEE);
    EXPECT_EQ(GetParam()(buffer.data(), 5, QStringLiteral("abcdefg")), 4);
    const std::array<unsigned short, 8> expected{'a', 'b', 'c', 'd', 0, 0xEEEE, 0xEEEE, 0xEEEE};
    EXPECT_EQ(buffer, expected);
    EXPECT_TRUE(reportLines().isEmpty()) << "a cut text is silent";
}

TEST_P(CopyU16Test, CapacityEightTakesTheWholeText)
{
    std::array<unsigned short, 8> buffer;
    buffer.fill(0xEEEE);
    EXPECT_EQ(GetParam()(buffer.data(), 8, QStringLiteral("abcdefg")), 7);
    const std::array<unsigned short, 8> expected{'a', 'b', 'c', 'd', 'e', 'f', 'g', 0};
    EXPECT_EQ(buffer, expected);
}

TEST_P(CopyU16Test, CapacityOneWritesOnlyTheTerminator)
{
    std::array<unsigned short, 2> buffer{0xEEEE, 0xEEEE};
    EXPECT_EQ(GetParam()(buffer.data(), 1, QStringLiteral("abc")), 0);
    EXPECT_EQ(buffer[0], 0);
    EXPECT_EQ(buffer[1], 0xEEEE);
}

TEST_P(CopyU16Test, CapacityZeroStillTerminatesTheFirstUnit)
{
    std::array<unsigned short, 2> buffer{0xEEEE, 0xEEEE};
    EXPECT_EQ(GetParam()(buffer.data(), 0, QStringLiteral("abc")), -1);
    EXPECT_EQ(buffer[0], 0);
    EXPECT_EQ(buffer[1], 0xEEEE);
}

TEST_P(CopyU16Test, NegativeCapacityReturnsTheNegativeCount)
{
    std::array<unsigned short, 2> buffer{0xEEEE, 0xEEEE};
    EXPECT_EQ(GetParam()(buffer.data(), -3, QStringLiteral("abc")), -4);
    EXPECT_EQ(buffer[0], 0);
    EXPECT_EQ(buffer[1], 0xEEEE);
}

TEST_P(CopyU16Test, UnitsAreCopiedAsTheyAreSurrogatesIncluded)
{
    const QString text = QString::fromUtf16(u"\u20AC\U0001F600");
    std::array<unsigned short, 5> buffer;
    buffer.fill(0xEEEE);
    EXPECT_EQ(GetParam()(buffer.data(), 5, text), 3);
    const std::array<unsigned short, 5> expected{0x20AC, 0xD83D, 0xDE00, 0, 0xEEEE};
    EXPECT_EQ(buffer, expected);
}

INSTANTIATE_TEST_SUITE_P(PlainAndWarning, CopyU16Test,
                         ::testing::Values(&MSGCTR_ENG_StrUti::copyToU16StrBufFromQString,
                                           &MSGCTR_ENG_StrUti::copyToU16StrBufFromQStringWithTruncateWarning),
                         PlainOrWarningName());

TEST_P(CopyU8Test, CapacityFiveTakesFourBytes)
{
    char buffer[8];
    std::memset(buffer, 'x', sizeof buffer);
    EXPECT_EQ(GetParam()(buffer, 5, QCString("abcdefg")), 4);
    EXPECT_EQ(QByteArray(buffer, 8), QByteArray("abcd\0xxx", 8));
    EXPECT_TRUE(reportLines().isEmpty());
}

TEST_P(CopyU8Test, CapacityEightTakesTheWholeText)
{
    char buffer[8];
    std::memset(buffer, 'x', sizeof buffer);
    EXPECT_EQ(GetParam()(buffer, 8, QCString("abcdefg")), 7);
    EXPECT_STREQ(buffer, "abcdefg");
}

TEST_P(CopyU8Test, CapacityOneWritesOnlyTheTerminator)
{
    char buffer[2] = {'x', 'x'};
    EXPECT_EQ(GetParam()(buffer, 1, QCString("abc")), 0);
    EXPECT_EQ(buffer[0], '\0');
    EXPECT_EQ(buffer[1], 'x');
}

TEST_P(CopyU8Test, CapacityZeroStillTerminatesTheFirstByte)
{
    char buffer[2] = {'x', 'x'};
    EXPECT_EQ(GetParam()(buffer, 0, QCString("abc")), -1);
    EXPECT_EQ(buffer[0], '\0');
    EXPECT_EQ(buffer[1], 'x');
}

TEST_P(CopyU8Test, NullTextGivesAnEmptyBuffer)
{
    char buffer[2] = {'x', 'x'};
    EXPECT_EQ(GetParam()(buffer, 2, QCString()), 0);
    EXPECT_EQ(buffer[0], '\0');
}

INSTANTIATE_TEST_SUITE_P(PlainAndWarning, CopyU8Test,
                         ::testing::Values(&MSGCTR_ENG_StrUti::copyToU8StrBufFromQCString,
                                           &MSGCTR_ENG_StrUti::copyToU8StrBufFromQCStringWithTruncateWarning),
                         PlainOrWarningName());

TEST_P(CopyBytesTest, OddSizeCopiesHalfMinusOneUnitsAndZeroesTheTail)
{
    char buffer[8];
    std::memset(buffer, 'x', sizeof buffer);
    GetParam()(buffer, 7, QStringLiteral("abcdef"));
    unsigned short copied[2];
    std::memcpy(copied, buffer, sizeof copied);
    EXPECT_EQ(copied[0], 'a');
    EXPECT_EQ(copied[1], 'b');
    EXPECT_EQ(QByteArray(buffer + 4, 3), QByteArray(3, '\0'));
    EXPECT_EQ(buffer[7], 'x') << "nothing is written past the given size";
}

TEST_P(CopyBytesTest, ShortTextLeavesTheRestZero)
{
    char buffer[10];
    std::memset(buffer, 'x', sizeof buffer);
    GetParam()(buffer, 10, QStringLiteral("ab"));
    unsigned short copied[5];
    std::memcpy(copied, buffer, sizeof copied);
    const std::array<unsigned short, 5> expected{'a', 'b', 0, 0, 0};
    EXPECT_EQ((std::array<unsigned short, 5>{copied[0], copied[1], copied[2], copied[3], copied[4]}), expected);
}

TEST_P(CopyBytesTest, OneByteBufferIsLeftAlone)
{
    char buffer[2] = {'x', 'x'};
    GetParam()(buffer, 1, QStringLiteral("abcdef"));
    EXPECT_EQ(buffer[0], 'x');
    EXPECT_EQ(buffer[1], 'x');
}

TEST_P(CopyBytesTest, TwoByteBufferGetsOnlyTheTerminator)
{
    char buffer[3] = {'x', 'x', 'x'};
    GetParam()(buffer, 2, QStringLiteral("abcdef"));
    EXPECT_EQ(QByteArray(buffer, 3), QByteArray("\0\0x", 3));
}

TEST_P(CopyBytesTest, NullBufferIsIgnored)
{
    GetParam()(nullptr, 16, QStringLiteral("abcdef"));
    EXPECT_EQ(reportLines(), QStringList()) << "refused silently";
}

TEST_P(CopyBytesTest, UnalignedBufferIsFilledInNativeOrder)
{
    alignas(4) char storage[12];
    std::memset(storage, 'x', sizeof storage);
    GetParam()(storage + 1, 8, QString::fromUtf16(u"\u20ACz"));
    unsigned short copied[3];
    std::memcpy(copied, storage + 1, sizeof copied);
    EXPECT_EQ(copied[0], 0x20AC);
    EXPECT_EQ(copied[1], 'z');
    EXPECT_EQ(copied[2], 0);
    EXPECT_EQ(storage[0], 'x');
}

INSTANTIATE_TEST_SUITE_P(PlainAndWarning, CopyBytesTest,
                         ::testing::Values(&MSGCTR_ENG_StrUti::copyToBufByUnicode16bitFromQString,
                                           &MSGCTR_ENG_StrUti::copyToBufByUnicode16bitFromQStringWithTruncateWarning),
                         PlainOrWarningName());

TEST_F(StrUtiTest, CreateU16StringFromCopiesEveryUnitAndTerminates)
{
    unsigned short* made = MSGCTR_ENG_StrUti::createU16StringFrom(QStringLiteral("ab\u00E9"));
    EXPECT_EQ(made[0], 'a');
    EXPECT_EQ(made[1], 'b');
    EXPECT_EQ(made[2], 0xE9);
    EXPECT_EQ(made[3], 0);
    delete[] made;

    unsigned short* none = MSGCTR_ENG_StrUti::createU16StringFrom(QString());
    EXPECT_EQ(none[0], 0);
    delete[] none;
}

TEST_F(StrUtiTest, QstringFromUnitsStopsAtTheFirstZero)
{
    const unsigned short data[] = {'a', 'b', 0, 'c', 0};
    EXPECT_EQ(MSGCTR_ENG_StrUti::qstringFrom(data), QStringLiteral("ab"));
    EXPECT_EQ(MSGCTR_ENG_StrUti::qstringFrom(static_cast<const unsigned short*>(nullptr)), QString());
}

TEST_F(StrUtiTest, QstringFromUnitsWithLimit)
{
    const unsigned short abZero[] = {'a', 'b', 0};
    const std::vector<unsigned short> abcdef = units("abcdef");
    EXPECT_EQ(MSGCTR_ENG_StrUti::qstringFrom(abZero, 3), QStringLiteral("ab"));
    EXPECT_EQ(MSGCTR_ENG_StrUti::qstringFrom(abcdef.data(), 3), QStringLiteral("abc"));
    EXPECT_EQ(MSGCTR_ENG_StrUti::qstringFrom(abcdef.data(), 0), QString());
    EXPECT_EQ(MSGCTR_ENG_StrUti::qstringFrom(abcdef.data(), -2), QString());
    EXPECT_EQ(MSGCTR_ENG_StrUti::qstringFromNotContainingEndChar(abcdef.data(), 3), QStringLiteral("abc"));
    EXPECT_EQ(MSGCTR_ENG_StrUti::qstringFromContainingEndChar(abcdef.data(), 3), QStringLiteral("abc"));
    EXPECT_EQ(MSGCTR_ENG_StrUti::qstringFromNotContainingEndChar(abZero, 3), QStringLiteral("ab"));
    EXPECT_EQ(MSGCTR_ENG_StrUti::qstringFromContainingEndChar(abZero, 3), QStringLiteral("ab"));
}

TEST_F(StrUtiTest, QstringFromBytes)
{
    const unsigned char plain[] = "abc";
    EXPECT_EQ(MSGCTR_ENG_StrUti::qstringFrom(plain), QStringLiteral("abc"));
    const unsigned char latin1[] = {'a', 0xE9, 'b', 'c', 'd', 0};
    EXPECT_EQ(MSGCTR_ENG_StrUti::qstringFrom(latin1, 3), QStringLiteral("a\u00E9b"));
    EXPECT_EQ(MSGCTR_ENG_StrUti::qstringFrom(latin1, 99), QStringLiteral("a\u00E9bcd"));
    EXPECT_EQ(MSGCTR_ENG_StrUti::qstringFrom(latin1, 0), QString());
    EXPECT_EQ(MSGCTR_ENG_StrUti::qstringFromNotContainingEndChar(latin1, 2), QStringLiteral("a\u00E9"));
    EXPECT_EQ(MSGCTR_ENG_StrUti::qstringFromContainingEndChar(latin1, 2), QStringLiteral("a\u00E9"));
}

TEST_F(StrUtiTest, QstringFromUnicode16bitReadsZeroTerminatedUnits)
{
    alignas(2) unsigned char storage[9];
    const unsigned short data[] = {'h', 0x20AC, 0, 'x'};
    std::memcpy(storage + 1, data, sizeof data);
    EXPECT_EQ(MSGCTR_ENG_StrUti::qstringFromUnicode16bit(storage + 1), QString::fromUtf16(u"h\u20AC"));
    EXPECT_EQ(MSGCTR_ENG_StrUti::qstringFromUnicode16bit(static_cast<const unsigned char*>(nullptr)), QString());
}

TEST_F(StrUtiTest, QstringFromUnicode16bitWithLength)
{
    const unsigned short data[] = {'a', 'b', 0, 'c'};
    const unsigned char* bytes = reinterpret_cast<const unsigned char*>(data);
    EXPECT_EQ(MSGCTR_ENG_StrUti::qstringFromUnicode16bit(bytes, 4), QStringLiteral("ab"));
    EXPECT_EQ(MSGCTR_ENG_StrUti::qstringFromUnicode16bit(bytes, 8), QStringLiteral("ab"))
        << "the text ends at the first zero unit inside the data";
    EXPECT_EQ(MSGCTR_ENG_StrUti::qstringFromUnicode16bit(bytes, 0), QString());

    // A trailing odd byte forms a unit together with a zero byte.
    unsigned short oddUnit = 0;
    std::memcpy(&oddUnit, bytes + 2, 1);
    EXPECT_EQ(MSGCTR_ENG_StrUti::qstringFromUnicode16bit(bytes, 3), QStringLiteral("a") + QChar(oddUnit));
}

TEST_F(StrUtiTest, MFStringRoundTrip)
{
    const MFString mf = MSGCTR_ENG_StrUti::qstringToMFString(QString::fromUtf16(u"h\u20ACllo"));
    ASSERT_EQ(mf.length(), 5);
    EXPECT_EQ(mf.getUnicodeStr()[1], 0x20AC);
    EXPECT_EQ(mf.getUnicodeStr()[5], 0);
    EXPECT_EQ(MSGCTR_ENG_StrUti::MFStringToqstring(mf), QString::fromUtf16(u"h\u20ACllo"));

    const unsigned short data[] = {'a', 'b', 'c', 0};
    EXPECT_EQ(MSGCTR_ENG_StrUti::MFStringToqstring(MFString(data, 2)), QStringLiteral("ab"));
    EXPECT_EQ(MSGCTR_ENG_StrUti::MFStringToqstring(MFString()), QString());
}

TEST_F(StrUtiTest, MFStringFromTextWithAZeroUnitEndsThere)
{
    const QString text(QStringLiteral("ab") + QChar(0) + QStringLiteral("cd"));
    EXPECT_EQ(MSGCTR_ENG_StrUti::qstringToMFString(text).length(), 2);
}

TEST_F(StrUtiTest, QcstrFromQstrIsLatin1)
{
    EXPECT_EQ(MSGCTR_ENG_StrUti::qcstrFromQstr(QStringLiteral("a\u00E9")), QCString("a\xE9"));
    EXPECT_TRUE(MSGCTR_ENG_StrUti::qcstrFromQstr(QString()).isEmpty());
}

TEST_F(StrUtiTest, NonNullPcstr8FromQCString)
{
    const char* fromNull = MSGCTR_ENG_StrUti::nonNullPcstr8FromQCString(QCString());
    ASSERT_NE(fromNull, nullptr);
    EXPECT_STREQ(fromNull, "");
    const QCString text("abc");
    EXPECT_EQ(MSGCTR_ENG_StrUti::nonNullPcstr8FromQCString(text), text.constData());
}

TEST_F(StrUtiTest, ToConstCharPtrIsTheSamePointer)
{
    const unsigned char text[] = "x";
    EXPECT_EQ(static_cast<const void*>(MSGCTR_ENG_StrUti::toConstCharPtr(text)), static_cast<const void*>(text));
    EXPECT_EQ(MSGCTR_ENG_StrUti::toConstCharPtr(nullptr), nullptr);
}

TEST_F(StrUtiTest, Lengths)
{
    EXPECT_EQ(MSGCTR_ENG_StrUti::length(QStringLiteral("abc")), 3);
    EXPECT_EQ(MSGCTR_ENG_StrUti::length(QCString("abcd")), 4);
    EXPECT_EQ(MSGCTR_ENG_StrUti::length(QString()), 0);
    const unsigned short data[] = {'a', 'b', 0};
    EXPECT_EQ(MSGCTR_ENG_StrUti::getStringLength(data), 2);
    EXPECT_EQ(MSGCTR_ENG_StrUti::getStringLength(nullptr), 0);
}

TEST_F(StrUtiTest, GetIndeedLenCountsUpToTheLimitOrTheZero)
{
    const unsigned short wide[] = {'a', 'b', 0, 'c'};
    const unsigned char narrow[] = {'a', 'b', 'c', 'd', 0};
    EXPECT_EQ(MSGCTR_ENG_StrUti::getIndeedLen(wide, 10), 2);
    EXPECT_EQ(MSGCTR_ENG_StrUti::getIndeedLen(wide, 1), 1);
    EXPECT_EQ(MSGCTR_ENG_StrUti::getIndeedLen(wide, 0), 0);
    EXPECT_EQ(MSGCTR_ENG_StrUti::getIndeedLen(narrow, 3), 3);
    EXPECT_EQ(MSGCTR_ENG_StrUti::getIndeedLen(narrow, 10), 4);
    EXPECT_EQ(MSGCTR_ENG_StrUti::getIndeedLen(narrow, -1), 0);
}

TEST_F(StrUtiTest, TruncateAndEmpty)
{
    QString text = QStringLiteral("abcdef");
    MSGCTR_ENG_StrUti::truncate(text, 3);
    EXPECT_EQ(text, QStringLiteral("abc"));
    MSGCTR_ENG_StrUti::truncate(text, 10);
    EXPECT_EQ(text, QStringLiteral("abc"));
    MSGCTR_ENG_StrUti::truncate(text, -3);
    EXPECT_EQ(text, QString());

    QCString bytes("abcdef");
    MSGCTR_ENG_StrUti::truncate(bytes, 2);
    EXPECT_EQ(bytes, QCString("ab"));
    MSGCTR_ENG_StrUti::truncate(bytes, -3);
    EXPECT_TRUE(bytes.isEmpty());

    QString other = QStringLiteral("xyz");
    MSGCTR_ENG_StrUti::empty(other);
    EXPECT_TRUE(other.isEmpty());
    QCString otherBytes("xyz");
    MSGCTR_ENG_StrUti::empty(otherBytes);
    EXPECT_TRUE(otherBytes.isEmpty());
}

TEST_F(StrUtiTest, RetZeroOnNegative)
{
    EXPECT_EQ(MSGCTR_ENG_RetZeroOnNegative(-3), 0);
    EXPECT_EQ(MSGCTR_ENG_RetZeroOnNegative(0), 0);
    EXPECT_EQ(MSGCTR_ENG_RetZeroOnNegative(7), 7);
}

struct HexCase {
    const char* name;
    std::function<QString()> render;
    const char* expected;
};

void PrintTo(const HexCase& c, std::ostream* os)
{
    *os << "\"" << c.name << "\"";
}

class HexTest : public HostRootTest, public ::testing::WithParamInterface<HexCase> {};

TEST_P(HexTest, Renders)
{
    EXPECT_EQ(GetParam().render(), QString::fromLatin1(GetParam().expected));
}

INSTANTIATE_TEST_SUITE_P(
    AllWidths, HexTest,
    ::testing::Values(
        HexCase{"UInt", [] { return MSGCTR_ENG_StrUti::qstrHex(0xABCDu); }, "0000ABCD"},
        HexCase{"UIntMax", [] { return MSGCTR_ENG_StrUti::qstrHex(0xFFFFFFFFu); }, "FFFFFFFF"},
        HexCase{"UShort", [] { return MSGCTR_ENG_StrUti::qstrHex(static_cast<unsigned short>(0xBE)); }, "00BE"},
        HexCase{"UChar", [] { return MSGCTR_ENG_StrUti::qstrHex(static_cast<unsigned char>(0xA)); }, "0A"},
        HexCase{"Char0x80", [] { return MSGCTR_ENG_StrUti::qstrHex(static_cast<char>(0x80)); }, "80"},
        HexCase{"CharMinus1", [] { return MSGCTR_ENG_StrUti::qstrHex(static_cast<char>(-1)); }, "FF"},
        HexCase{"PrefixUInt255", [] { return MSGCTR_ENG_StrUti::qstrHexWithPrefix0x(255u); }, "0x000000FF"},
        HexCase{"PrefixUShort",
                [] { return MSGCTR_ENG_StrUti::qstrHexWithPrefix0x(static_cast<unsigned short>(0x1F)); }, "0x001F"},
        HexCase{"PrefixUChar",
                [] { return MSGCTR_ENG_StrUti::qstrHexWithPrefix0x(static_cast<unsigned char>(0xFF)); }, "0xFF"},
        HexCase{"PrefixChar", [] { return MSGCTR_ENG_StrUti::qstrHexWithPrefix0x(static_cast<char>(0x80)); },
                "0x80"}),
    [](const ::testing::TestParamInfo<HexCase>& info) { return std::string(info.param.name); });

TEST_F(StrUtiTest, QstrEquIgnoreNull)
{
    EXPECT_TRUE(MSGCTR_ENG_StrUti::qstrEquIgnoreNull(QString(), QStringLiteral("")));
    EXPECT_TRUE(MSGCTR_ENG_StrUti::qstrEquIgnoreNull(QStringLiteral(""), QString()));
    EXPECT_TRUE(MSGCTR_ENG_StrUti::qstrEquIgnoreNull(QString(), QString()));
    EXPECT_TRUE(MSGCTR_ENG_StrUti::qstrEquIgnoreNull(QStringLiteral("a"), QStringLiteral("a")));
    EXPECT_FALSE(MSGCTR_ENG_StrUti::qstrEquIgnoreNull(QStringLiteral("a"), QStringLiteral("A")));
    EXPECT_FALSE(MSGCTR_ENG_StrUti::qstrEquIgnoreNull(QString(), QStringLiteral("a")));
}

struct HexStringCase {
    const char* text;
    bool valid;
};

void PrintTo(const HexStringCase& c, std::ostream* os)
{
    *os << "\"" << c.text << "\"";
}

class ValidHexTest : public HostRootTest, public ::testing::WithParamInterface<HexStringCase> {};

TEST_P(ValidHexTest, Checks)
{
    EXPECT_EQ(MSGCTR_ENG_StrUti::isValidHexString(QString::fromLatin1(GetParam().text)), GetParam().valid)
        << GetParam().text;
}

INSTANTIATE_TEST_SUITE_P(Table, ValidHexTest,
                         ::testing::Values(HexStringCase{"", true}, HexStringCase{"0aF9", true},
                                           HexStringCase{"abcdefABCDEF0123456789", true},
                                           HexStringCase{"abc", false}, HexStringCase{"0g", false},
                                           HexStringCase{"0x", false}, HexStringCase{"0 ", false},
                                           HexStringCase{"G0", false}),
                         [](const auto& info) { return rowName(info.param.text); });

TEST_F(StrUtiTest, NullStringIsValidHex)
{
    EXPECT_TRUE(MSGCTR_ENG_StrUti::isValidHexString(QString()));
}

TEST_F(StrUtiTest, EndsWith)
{
    EXPECT_TRUE(MSGCTR_ENG_StrUti::endsWith(QStringLiteral("file.qkt"), QStringLiteral(".qkt")));
    EXPECT_FALSE(MSGCTR_ENG_StrUti::endsWith(QStringLiteral("file.qkt"), QStringLiteral(".QKT")));
    EXPECT_FALSE(MSGCTR_ENG_StrUti::endsWith(QStringLiteral("file.qkt.bak"), QStringLiteral(".qkt")));
    EXPECT_FALSE(MSGCTR_ENG_StrUti::endsWith(QStringLiteral("kt"), QStringLiteral("qkt")));
    EXPECT_TRUE(MSGCTR_ENG_StrUti::endsWith(QStringLiteral("aaa"), QStringLiteral("aa")));
    EXPECT_TRUE(MSGCTR_ENG_StrUti::endsWith(QStringLiteral("abab"), QStringLiteral("ab")));
}

// The answer is the text's own tail, also for endings holding a zero character.
TEST_F(StrUtiTest, EndsWithAZeroCharacter)
{
    const QString zero(QChar(u'\0'));
    EXPECT_FALSE(MSGCTR_ENG_StrUti::endsWith(QStringLiteral("ab"), zero));
    EXPECT_TRUE(MSGCTR_ENG_StrUti::endsWith(QStringLiteral("ab") + zero, zero));
    EXPECT_FALSE(MSGCTR_ENG_StrUti::endsWith(zero + QStringLiteral("ab"), zero));
    EXPECT_TRUE(MSGCTR_ENG_StrUti::endsWith(QStringLiteral("a") + zero + QStringLiteral("b"),
                                            zero + QStringLiteral("b")));
    EXPECT_FALSE(MSGCTR_ENG_StrUti::endsWith(QString(), zero));
    EXPECT_TRUE(MSGCTR_ENG_StrUti::endsWith(zero, zero));
}

TEST_F(StrUtiTest, EndsWithAnEmptyEnding)
{
    EXPECT_TRUE(MSGCTR_ENG_StrUti::endsWith(QStringLiteral("ab"), QString()));
    EXPECT_TRUE(MSGCTR_ENG_StrUti::endsWith(QStringLiteral("ab"), QLatin1String("")));
    EXPECT_TRUE(MSGCTR_ENG_StrUti::endsWith(QString(), QString()));
}

TEST_F(StrUtiTest, RemoveAllWhiteSpaceChars)
{
    EXPECT_EQ(MSGCTR_ENG_StrUti::removeAllWhiteSpaceChars(QStringLiteral(" a  \tb\n c ")), QStringLiteral("abc"));
    EXPECT_EQ(MSGCTR_ENG_StrUti::removeAllWhiteSpaceChars(QStringLiteral("a\r\n\vb\fc")), QStringLiteral("abc"));
    EXPECT_EQ(MSGCTR_ENG_StrUti::removeAllWhiteSpaceChars(QStringLiteral("abc")), QStringLiteral("abc"));
    EXPECT_EQ(MSGCTR_ENG_StrUti::removeAllWhiteSpaceChars(QStringLiteral(" \t\n")), QString());
}

TEST_F(StrUtiTest, ReplaceNonAsciiCharOnlyAbove255)
{
    QString latin1;
    for (char16_t c = 0x80; c <= 0xFF; ++c)
        latin1 += QChar(c);
    EXPECT_EQ(MSGCTR_ENG_StrUti::replaceNonAsciiChar(latin1, '?'), latin1);
    EXPECT_EQ(MSGCTR_ENG_StrUti::replaceNonAsciiChar(QString::fromUtf16(u"a\u0100b\u20AC"), '?'),
              QStringLiteral("a?b?"));
    EXPECT_EQ(MSGCTR_ENG_StrUti::replaceNonAsciiChar(QString::fromUtf16(u"\U0001F600"), '*'), QStringLiteral("**"))
        << "each unit of a surrogate pair is a character of its own";
    EXPECT_EQ(MSGCTR_ENG_StrUti::replaceNonAsciiChar(QString(), '?'), QString());
}
