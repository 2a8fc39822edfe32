// Values of DM leaves: each type reads back only as itself.
#include <gtest/gtest.h>

#include "DmtData.h"
#include "DmtResult.h"

namespace {

TEST(DmtDataTest, DefaultIsNullAndReadsAsNothing)
{
    const DmtData value;
    EXPECT_EQ(value.GetType(), DMT_DATA_NULL);
    DMString text("kept");
    EXPECT_EQ(value.GetString(text), 23);
    EXPECT_EQ(text.str(), "kept");
}

TEST(DmtDataTest, StringKeepsUtf8Bytes)
{
    const DmtData value(DMString("\xc3\xa9t\xc3\xa9"));
    EXPECT_EQ(value.GetType(), DMT_DATA_STRING);
    DMString text;
    EXPECT_EQ(value.GetString(text), 0);
    EXPECT_EQ(text.str(), "\xc3\xa9t\xc3\xa9");
    int number = 3;
    EXPECT_EQ(value.GetInt(number), 23);
    EXPECT_EQ(number, 3);
}

TEST(DmtDataTest, IntegerBooleanAndBinaryReadOnlyAsThemselves)
{
    int number = 0;
    bool flag = false;
    DMVector<unsigned char> bytes;
    EXPECT_EQ(DmtData(42).GetInt(number), 0);
    EXPECT_EQ(number, 42);
    EXPECT_EQ(DmtData(42).GetBoolean(flag), 23);
    EXPECT_EQ(DmtData(true).GetBoolean(flag), 0);
    EXPECT_TRUE(flag);
    EXPECT_EQ(DmtData(true).GetInt(number), 23);
    EXPECT_EQ(number, 42);
    const unsigned char raw[] = {1, 2, 0};
    EXPECT_EQ(DmtData(raw, 3).GetBinary(bytes), 0);
    EXPECT_EQ(bytes, DMVector<unsigned char>(raw, 3));
    EXPECT_EQ(DmtData(raw, 3).GetType(), DMT_DATA_BINARY);
    EXPECT_EQ(DmtData("x").GetBinary(bytes), 23);
}

TEST(DmtDataTest, EqualOnlyWithSameTypeAndValue)
{
    EXPECT_EQ(DmtData(1), DmtData(1));
    EXPECT_NE(DmtData(1), DmtData(true));
    EXPECT_NE(DmtData("1"), DmtData(1));
}

} // namespace
