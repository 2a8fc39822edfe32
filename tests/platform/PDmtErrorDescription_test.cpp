// A DM result with its fixed text; equal to a null pointer exactly on success.
#include <gtest/gtest.h>

#include "PDmtErrorDescription.h"

namespace {

TEST(PDmtErrorDescriptionTest, TextIsTheSameForEveryCode)
{
    for (int code : {0, 1, 404}) {
        const PDmtErrorDescription d(code);
        EXPECT_EQ(d.GetErrorCode(), code);
        EXPECT_STREQ(d.GetErrorText().c_str(), "Refer error code for more information.");
    }
}

TEST(PDmtErrorDescriptionTest, ComparesWithAPointersValue)
{
    EXPECT_TRUE(PDmtErrorDescription(0) == nullptr);
    EXPECT_FALSE(PDmtErrorDescription(1) == nullptr);
    EXPECT_TRUE(PDmtErrorDescription(1) == reinterpret_cast<void*>(1));
}

} // namespace
