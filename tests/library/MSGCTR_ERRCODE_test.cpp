#include "MSGCTR_ERRCODE.h"

#include "HostRootTest.h"
#include "RowName.h"

#include <ostream>

#include <climits>
#include <limits>

namespace {

class ErrcodeTest : public HostRootTest {};

struct CodeValue {
    MSGCTR_ERRCODE code;
    int value;
};

void PrintTo(const CodeValue& c, std::ostream* os)
{
    *os << "\"" << c.value << "\"";
}

class ErrcodeValueTest : public HostRootTest, public ::testing::WithParamInterface<CodeValue> {};

} // namespace

TEST_F(ErrcodeTest, SuccessIsExactlyZero)
{
    EXPECT_TRUE(MSGCTR_ERRCODE_IS_SUCCESS(0));
    EXPECT_FALSE(MSGCTR_ERRCODE_IS_SUCCESS(100000));
    EXPECT_FALSE(MSGCTR_ERRCODE_IS_SUCCESS(-1));
    EXPECT_FALSE(MSGCTR_ERRCODE_IS_SUCCESS(1));
    EXPECT_FALSE(MSGCTR_ERRCODE_IS_SUCCESS(INT_MIN));
}

TEST_F(ErrcodeTest, ErrorIsAnythingButZero)
{
    EXPECT_TRUE(MSGCTR_ERRCODE_IS_ERROR(-1));
    EXPECT_TRUE(MSGCTR_ERRCODE_IS_ERROR(10084));
    EXPECT_TRUE(MSGCTR_ERRCODE_IS_ERROR(100000));
    EXPECT_TRUE(MSGCTR_ERRCODE_IS_ERROR(INT_MAX));
    EXPECT_FALSE(MSGCTR_ERRCODE_IS_ERROR(0));
}

TEST_F(ErrcodeTest, ErrorReportingIsSwitchedOn)
{
    EXPECT_TRUE(MSGCTR_ENG_ErrorCodeDef_chkErrorCodeEnabled());
    EXPECT_TRUE(reportLines().isEmpty());
}

TEST_F(ErrcodeTest, CodeIsASigned32BitInteger)
{
    EXPECT_EQ(sizeof(MSGCTR_ERRCODE), 4u);
    EXPECT_EQ(std::numeric_limits<MSGCTR_ERRCODE>::min(), -2147483647 - 1);
    EXPECT_EQ(std::numeric_limits<MSGCTR_ERRCODE>::max(), 2147483647);
}

TEST_P(ErrcodeValueTest, HasItsValue)
{
    EXPECT_EQ(GetParam().code, GetParam().value);
}

INSTANTIATE_TEST_SUITE_P(
    Table, ErrcodeValueTest,
    ::testing::Values(CodeValue{MSGCTR_ERRCODE__SUCCESS, 0}, CodeValue{MSGCTR_ERRCODE__VOICEMAIL_COUNT_FAIL, 10000},
                      CodeValue{MSGCTR_ERRCODE__ADDRBK_UNKNOWN_RESULT, 10001},
                      CodeValue{MSGCTR_ERRCODE__TAPI_RESULT_819, 10010},
                      CodeValue{MSGCTR_ERRCODE__SETUP_WRITE_FAIL, 10018},
                      CodeValue{MSGCTR_ERRCODE__SETUP_WRITE_NO_SPACE, 10019},
                      CodeValue{MSGCTR_ERRCODE__SETUP_INVALID_CHAR, 10020},
                      CodeValue{MSGCTR_ERRCODE__CHANNEL_NOT_FOUND, 10021},
                      CodeValue{MSGCTR_ERRCODE__CHANNEL_ALREADY_EXISTS, 10022},
                      CodeValue{MSGCTR_ERRCODE__CHANNEL_OUT_OF_RANGE, 10023},
                      CodeValue{MSGCTR_ERRCODE__NO_FREE_LANGUAGE_SLOT, 10024},
                      CodeValue{MSGCTR_ERRCODE__CANNOT_DISABLE_DEFAULT_LANGUAGE, 10025},
                      CodeValue{MSGCTR_ERRCODE__TAPI_RESULT_509, 10026}, CodeValue{MSGCTR_ERRCODE__DM_FIRST, 10064},
                      CodeValue{MSGCTR_ERRCODE__DM_LAST, 10078},
                      CodeValue{MSGCTR_ERRCODE__DM_FACTORY_INIT_FAIL, 10079},
                      CodeValue{MSGCTR_ERRCODE__DM_FACTORY_UNINIT_FAIL, 10080},
                      CodeValue{MSGCTR_ERRCODE__DM_UNKNOWN_RESULT, 10081},
                      CodeValue{MSGCTR_ERRCODE__TAPI_RESULT_305, 10083},
                      CodeValue{MSGCTR_ERRCODE__INVALID_ARGUMENT, 10084},
                      CodeValue{MSGCTR_ERRCODE__ADDRBK_RESULT_MINUS_100, 10096},
                      CodeValue{MSGCTR_ERRCODE__TAPI_UNMAPPED_BASE, 100000}),
                         [](const auto& info) { return rowName("Code", info.param.value); });
