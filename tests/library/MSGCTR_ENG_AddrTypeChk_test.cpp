#include "HostRootTest.h"
#include "RowName.h"

#include "MSGCTR_ENG_AddrTypeChk.h"

namespace {

struct AddrTypeCase {
    const char* text;
    bool isNumber;
    bool isValidEmsNumber;
    bool isValidEmailAddress;
};

void PrintTo(const AddrTypeCase& c, std::ostream* os)
{
    *os << '"' << c.text << '"';
}

QString digits(int n)
{
    QString s;
    for (int i = 0; i < n; ++i)
        s += QChar(QLatin1Char('0' + (i % 10)));
    return s;
}

class AddrTypeChkTest : public HostRootTest, public ::testing::WithParamInterface<AddrTypeCase> {};

TEST_P(AddrTypeChkTest, ClassifiesAddress)
{
    const AddrTypeCase& c = GetParam();
    const QString text = QString::fromUtf8(c.text);
    EXPECT_EQ(MSGCTR_ENG_AddrTypeChk::isNumber(text), c.isNumber);
    EXPECT_EQ(MSGCTR_ENG_AddrTypeChk::isValidEmsNumber(text), c.isValidEmsNumber);
    EXPECT_EQ(MSGCTR_ENG_AddrTypeChk::isValidNumber(text), c.isValidEmsNumber);
    EXPECT_EQ(MSGCTR_ENG_AddrTypeChk::isValidEmailAddress(text), c.isValidEmailAddress);
    EXPECT_TRUE(reportLines().isEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    Table, AddrTypeChkTest,
    ::testing::Values(AddrTypeCase{"", false, false, false}, AddrTypeCase{"+", true, true, false},
                      AddrTypeCase{"0", true, true, false}, AddrTypeCase{"+4930123", true, true, false},
                      AddrTypeCase{"12-34", false, false, false}, AddrTypeCase{"12 34", false, false, false},
                      AddrTypeCase{"(030)1", false, false, false}, AddrTypeCase{"*100#", false, false, false},
                      AddrTypeCase{"12+3", false, false, false}, AddrTypeCase{"++1", false, false, false},
                      AddrTypeCase{"\xd9\xa1\xd9\xa2", false, false, false},  // Arabic-Indic digits
                      AddrTypeCase{"x@y", false, false, true}, AddrTypeCase{"@xy", false, false, false},
                      AddrTypeCase{"xy@", false, false, false}, AddrTypeCase{"a@b@c", false, false, false},
                      AddrTypeCase{"@", false, false, false}, AddrTypeCase{"user@example", false, false, true},
                      AddrTypeCase{"a b@c", false, false, true}),
                         [](const auto& info) { return rowName("Address", info.param.text); });

TEST_F(HostRootTest, NumberOf41DigitsIsValidAnd42IsNot)
{
    EXPECT_TRUE(MSGCTR_ENG_AddrTypeChk::isValidEmsNumber(digits(41)));
    EXPECT_TRUE(MSGCTR_ENG_AddrTypeChk::isValidEmsNumber(QStringLiteral("+") + digits(40)));
    EXPECT_FALSE(MSGCTR_ENG_AddrTypeChk::isValidEmsNumber(digits(42)));
    EXPECT_FALSE(MSGCTR_ENG_AddrTypeChk::isValidEmsNumber(QStringLiteral("+") + digits(41)));
    EXPECT_FALSE(MSGCTR_ENG_AddrTypeChk::isValidNumber(digits(42)));
    // Length is not part of being a number.
    EXPECT_TRUE(MSGCTR_ENG_AddrTypeChk::isNumber(digits(42)));
}

TEST_F(HostRootTest, DecimalDigitsAreAsciiOnly)
{
    for (char c = '0'; c <= '9'; ++c)
        EXPECT_TRUE(MSGCTR_ENG_EmsNumber__isDecimalNumber(QChar(QLatin1Char(c)))) << c;
    EXPECT_FALSE(MSGCTR_ENG_EmsNumber__isDecimalNumber(QChar(QLatin1Char('/'))));
    EXPECT_FALSE(MSGCTR_ENG_EmsNumber__isDecimalNumber(QChar(QLatin1Char(':'))));
    EXPECT_FALSE(MSGCTR_ENG_EmsNumber__isDecimalNumber(QChar(0x0661)));
    EXPECT_FALSE(MSGCTR_ENG_EmsNumber__isDecimalNumber(QChar(0xFF11)));
}

TEST_F(HostRootTest, ToSignedKeepsTheBits)
{
    EXPECT_EQ(MSGCTR_ENG_toSigned(0u), 0);
    EXPECT_EQ(MSGCTR_ENG_toSigned(41u), 41);
    EXPECT_EQ(MSGCTR_ENG_toSigned(0xFFFFFFFFu), -1);
    EXPECT_EQ(MSGCTR_ENG_toSigned(0x80000000u), INT32_MIN);
}

} // namespace
