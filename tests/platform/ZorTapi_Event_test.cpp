// UTIL_TAPI_Event: the type and a copy of the raw record of a telephony event.
#include "TAPI.h"
#include "UTIL_TAPI_Event.h"

#include <gtest/gtest.h>

#include <cstring>

namespace {

TEST(ZorTapiEvent, KeepsTypeAndACopyOfTheRecord)
{
    TAPI_SMS_SEND_RESP_S resp{};
    resp.sequenceNumber = 7;
    resp.msgRefNumber = 3;
    resp.sentResult = TAPI_RESULT_SUCC;
    UTIL_TAPI_Event event(TAPI_EVENT_SMS_SEND_RESP, &resp, sizeof resp);
    resp.sequenceNumber = 8;
    EXPECT_EQ(event.GetType(), TAPI_EVENT_SMS_SEND_RESP);
    ASSERT_EQ(event.GetRawDataLength(), int(sizeof resp));
    TAPI_SMS_SEND_RESP_S back;
    std::memcpy(&back, event.GetRawData(), sizeof back);
    EXPECT_EQ(back.sequenceNumber, 7);
    EXPECT_EQ(back.msgRefNumber, 3);
    EXPECT_NE(event.GetRawData(), reinterpret_cast<const unsigned char*>(&resp));
}

TEST(ZorTapiEvent, CopiesAreDeep)
{
    const unsigned char bytes[] = {1, 2, 3};
    UTIL_TAPI_Event a(TAPI_EVENT_CB_RECV_MSG, bytes, 3);
    UTIL_TAPI_Event b = a;
    EXPECT_NE(a.GetRawData(), b.GetRawData());
    EXPECT_EQ(std::memcmp(a.GetRawData(), b.GetRawData(), 3), 0);
    EXPECT_EQ(b.GetType(), TAPI_EVENT_CB_RECV_MSG);
}

TEST(ZorTapiEvent, NoRawData)
{
    const UTIL_TAPI_Event empty;
    EXPECT_EQ(empty.GetType(), 0);
    EXPECT_EQ(empty.GetRawData(), nullptr);
    EXPECT_EQ(empty.GetRawDataLength(), 0);
    const unsigned char bytes[] = {1};
    EXPECT_EQ(UTIL_TAPI_Event(2, nullptr, 5).GetRawDataLength(), 0);
    EXPECT_EQ(UTIL_TAPI_Event(2, bytes, -1).GetRawData(), nullptr);
}

} // namespace
