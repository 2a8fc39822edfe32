// Typed reads of a node's leaves: a missing leaf reads as its reset value without error.
#include <gtest/gtest.h>

#include "MSGCTR_DmtDataApi.h"
#include "MSGCTR_ValuesMap.h"

namespace {

DMMap<DMString, DmtData> sampleMap()
{
    DMMap<DMString, DmtData> map;
    map.put("Name", MSGCTR_DmtDataApi::fromString(QStringLiteral("Home")));
    map.put("Limit", MSGCTR_DmtDataApi::fromInt(300));
    map.put("Flag", MSGCTR_DmtDataApi::fromBool(true));
    map.put("Bytes", MSGCTR_DmtDataApi::fromBinary(QByteArray("ab")));
    return map;
}

TEST(MSGCTR_ValuesMapTest, ReadsEachTypedLeaf)
{
    const DMMap<DMString, DmtData> map = sampleMap();
    const MSGCTR_ValuesMap values(map);
    QString text;
    int number = 0;
    unsigned int bits = 0;
    bool flag = false;
    QByteArray bytes;
    EXPECT_EQ(values.getString(&text, "Name"), 0);
    EXPECT_EQ(text, QStringLiteral("Home"));
    EXPECT_EQ(values.getInt(&number, "Limit"), 0);
    EXPECT_EQ(number, 300);
    EXPECT_EQ(values.getUint(&bits, "Limit"), 0);
    EXPECT_EQ(bits, 300u);
    EXPECT_EQ(values.getBool(&flag, "Flag"), 0);
    EXPECT_TRUE(flag);
    EXPECT_EQ(values.getBinary(&bytes, "Bytes"), 0);
    EXPECT_EQ(bytes, QByteArray("ab"));
    EXPECT_TRUE(values.containsFldName("Name"));
    EXPECT_FALSE(values.containsFldName("name"));
}

TEST(MSGCTR_ValuesMapTest, MissingNameReturnsZeroAndTheResetValue)
{
    const DMMap<DMString, DmtData> map = sampleMap();
    const MSGCTR_ValuesMap values(map);
    int number = 77;
    EXPECT_EQ(values.getInt(&number, "Missing"), 0);
    EXPECT_EQ(number, 0);
    QString text = QStringLiteral("old");
    EXPECT_EQ(values.getString(&text, "Missing"), 0);
    EXPECT_EQ(text, QStringLiteral(""));
    bool flag = true;
    EXPECT_EQ(values.getBool(&flag, "Missing"), 0);
    EXPECT_FALSE(flag);
    unsigned int bits = 5;
    EXPECT_EQ(values.getUint(&bits, "Missing"), 0);
    EXPECT_EQ(bits, 0u);
    QByteArray bytes("old");
    EXPECT_EQ(values.getBinary(&bytes, "Missing"), 0);
    EXPECT_TRUE(bytes.isEmpty());
}

TEST(MSGCTR_ValuesMapTest, WrongTypeReturnsTheMappedErrorAndTheResetValue)
{
    const DMMap<DMString, DmtData> map = sampleMap();
    const MSGCTR_ValuesMap values(map);
    int number = 77;
    EXPECT_EQ(values.getInt(&number, "Name"), 10065);
    EXPECT_EQ(number, 0);
    QString text = QStringLiteral("old");
    EXPECT_EQ(values.getString(&text, "Limit"), 10065);
    EXPECT_EQ(text, QStringLiteral(""));
}

TEST(MSGCTR_ValuesMapTest, ReadsTheMapItRefersTo)
{
    DMMap<DMString, DmtData> map;
    const MSGCTR_ValuesMap values(map);
    map.put("Late", MSGCTR_DmtDataApi::fromInt(4));
    int number = 0;
    EXPECT_EQ(values.getInt(&number, "Late"), 0);
    EXPECT_EQ(number, 4);
}

} // namespace
