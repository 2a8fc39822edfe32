#include "HostRootTest.h"
#include "RowName.h"

#include "MSGCTR_ENG_AddrTypeChk.h"
#include "MSGCTR_ENG_AddrUti.h"

namespace {

struct HyphenCase {
    const char* text;
    const char* expected;
};

class RemovingHyphenTest : public HostRootTest, public ::testing::WithParamInterface<HyphenCase> {};

TEST_P(RemovingHyphenTest, RemovesEveryHyphen)
{
    EXPECT_EQ(MSGCTR_ENG_AddrUti::cloneWithRemovingHyphen(QString::fromUtf8(GetParam().text)),
              QString::fromUtf8(GetParam().expected));
}

INSTANTIATE_TEST_SUITE_P(Table, RemovingHyphenTest,
                         ::testing::Values(HyphenCase{"", ""}, HyphenCase{"12-34", "1234"},
                                           HyphenCase{"-030--12-", "03012"}, HyphenCase{"---", ""},
                                           HyphenCase{"a-b@c-d", "ab@cd"}, HyphenCase{"12 34", "12 34"}),
                         [](const auto& info) { return rowName(info.param.text); });

TEST_F(HostRootTest, HyphenatedNumberBecomesValidOnceHyphensAreRemoved)
{
    const QString typed = QStringLiteral("12-34");
    EXPECT_FALSE(MSGCTR_ENG_AddrTypeChk::isValidEmsNumber(typed));
    EXPECT_TRUE(MSGCTR_ENG_AddrTypeChk::isValidEmsNumber(MSGCTR_ENG_AddrUti::cloneWithRemovingHyphen(typed)));
    EXPECT_EQ(typed, QStringLiteral("12-34"));
}

TEST_F(HostRootTest, NullOrEmptyGivesEmpty)
{
    EXPECT_TRUE(MSGCTR_ENG_AddrUti::cloneWithRemovingHyphen(QString()).isEmpty());
}

} // namespace
