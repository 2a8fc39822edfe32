// Typed values to and from DmtData: outputs are reset first and keep the reset value on failure.
#include <gtest/gtest.h>

#include "MSGCTR_DmtDataApi.h"

namespace {

TEST(MSGCTR_DmtDataApiTest, ValuesRoundTrip)
{
    QString text;
    EXPECT_EQ(MSGCTR_DmtDataApi::getString(&text, MSGCTR_DmtDataApi::fromString(QStringLiteral("MMS \u00e9"))), 0);
    EXPECT_EQ(text, QStringLiteral("MMS \u00e9"));
    bool flag = false;
    EXPECT_EQ(MSGCTR_DmtDataApi::getBool(&flag, MSGCTR_DmtDataApi::fromBool(true)), 0);
    EXPECT_TRUE(flag);
    int number = 0;
    EXPECT_EQ(MSGCTR_DmtDataApi::getInt(&number, MSGCTR_DmtDataApi::fromInt(-300)), 0);
    EXPECT_EQ(number, -300);
    QByteArray bytes;
    EXPECT_EQ(MSGCTR_DmtDataApi::getBinary(&bytes, MSGCTR_DmtDataApi::fromBinary(QByteArray("\x01\x00\xff", 3))), 0);
    EXPECT_EQ(bytes, QByteArray("\x01\x00\xff", 3));
    const unsigned char raw[] = {7, 8};
    EXPECT_EQ(MSGCTR_DmtDataApi::getBinary(&bytes, MSGCTR_DmtDataApi::fromBinary(raw, 2)), 0);
    EXPECT_EQ(bytes, QByteArray("\x07\x08", 2));
}

TEST(MSGCTR_DmtDataApiTest, UintKeepsTheBitsOfAnInteger)
{
    const DmtData data = MSGCTR_DmtDataApi::fromUint(0xFFFFFFFEu);
    int number = 0;
    EXPECT_EQ(MSGCTR_DmtDataApi::getInt(&number, data), 0);
    EXPECT_EQ(number, -2);
    unsigned int bits = 0;
    EXPECT_EQ(MSGCTR_DmtDataApi::getUint(&bits, data), 0);
    EXPECT_EQ(bits, 0xFFFFFFFEu);
}

TEST(MSGCTR_DmtDataApiTest, WrongTypeGivesTheMappedErrorAndTheResetValue)
{
    const DmtData integer = MSGCTR_DmtDataApi::fromInt(5);
    QString text = QStringLiteral("old");
    EXPECT_EQ(MSGCTR_DmtDataApi::getString(&text, integer), 10065);
    EXPECT_EQ(text, QStringLiteral(""));
    EXPECT_FALSE(text.isNull());
    bool flag = true;
    EXPECT_EQ(MSGCTR_DmtDataApi::getBool(&flag, integer), 10065);
    EXPECT_FALSE(flag);
    int number = 9;
    EXPECT_EQ(MSGCTR_DmtDataApi::getInt(&number, MSGCTR_DmtDataApi::fromBool(true)), 10065);
    EXPECT_EQ(number, 0);
    unsigned int bits = 9;
    EXPECT_EQ(MSGCTR_DmtDataApi::getUint(&bits, MSGCTR_DmtDataApi::fromString(QStringLiteral("5"))), 10065);
    EXPECT_EQ(bits, 0u);
    QByteArray bytes("old");
    EXPECT_EQ(MSGCTR_DmtDataApi::getBinary(&bytes, integer), 10065);
    EXPECT_TRUE(bytes.isEmpty());
}

} // namespace
