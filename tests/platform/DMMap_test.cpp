// The DM library's map keeps its keys in insertion order.
#include <gtest/gtest.h>

#include "DMMap.h"
#include "DMString.h"

#include <string>

namespace {

std::string keys(const DMMap<DMString, int>& map)
{
    std::string out;
    for (const auto& e : map)
        out += e.first.str() + "=" + std::to_string(e.second) + ";";
    return out;
}

TEST(DMMapTest, KeysStayInInsertionOrderAndReplacedValuesKeepTheirPlace)
{
    DMMap<DMString, int> map;
    map.put("b", 1);
    map.put("a", 2);
    map.put("b", 3);
    EXPECT_EQ(keys(map), "b=3;a=2;");
    EXPECT_TRUE(map.remove("b"));
    EXPECT_FALSE(map.remove("b"));
    EXPECT_EQ(keys(map), "a=2;");
}

TEST(DMMapTest, LookupOfAMissingKeyLeavesTheOutput)
{
    DMMap<DMString, int> map;
    map.put("a", 2);
    int value = 9;
    EXPECT_FALSE(map.lookup("z", &value));
    EXPECT_EQ(value, 9);
    EXPECT_TRUE(map.lookup("a", &value));
    EXPECT_EQ(value, 2);
    EXPECT_TRUE(map.contains("a"));
    EXPECT_FALSE(map.contains("z"));
}

} // namespace
