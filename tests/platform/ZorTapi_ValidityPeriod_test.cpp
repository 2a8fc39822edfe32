// The relative TP-VP octet of the telephony simulator (TAPI_SMS_ExpirePeriodToUINT8).
#include "HostRootTest.h"
#include "TAPI.h"
#include "ZorHostControl.h"

namespace {

class ZorTapiValidityPeriod : public HostRootTest {};

// The pair an octet stands for, by the four ranges of the relative format.
_TAPI_SMS_EXPIRE_PERIOD_DATA_S pairOf(int octet)
{
    if (octet <= 143)
        return {0, static_cast<unsigned char>(octet + 1)};
    if (octet <= 167)
        return {1, static_cast<unsigned char>(octet - 119)};
    if (octet <= 196)
        return {2, static_cast<unsigned char>(octet - 166)};
    return {3, static_cast<unsigned char>(octet - 192)};
}

TEST_F(ZorTapiValidityPeriod, EveryOctetComesFromItsPair)
{
    for (int octet = 0; octet < 256; ++octet) {
        const _TAPI_SMS_EXPIRE_PERIOD_DATA_S pair = pairOf(octet);
        unsigned char out = 0;
        EXPECT_NE(TAPI_SMS_ExpirePeriodToUINT8(&pair, &out), 0) << "octet " << octet;
        EXPECT_EQ(out, octet) << "octet " << octet;
    }
}

// Every value of every unit: inside the unit's range it gives the one octet that stands for it, outside
// it fails and leaves the octet alone. Together with the test above this covers all 256 octets exactly once.
TEST_F(ZorTapiValidityPeriod, EveryValueOfEveryUnit)
{
    const int lo[4] = {1, 25, 2, 5};
    const int hi[4] = {144, 48, 30, 63};
    const int offset[4] = {-1, 119, 166, 192};
    int octetsSeen[256] = {};
    for (unsigned unit = 0; unit < 4; ++unit) {
        for (int value = 0; value < 256; ++value) {
            const _TAPI_SMS_EXPIRE_PERIOD_DATA_S pair{unit, static_cast<unsigned char>(value)};
            unsigned char out = 0xAA;
            const int ok = TAPI_SMS_ExpirePeriodToUINT8(&pair, &out);
            if (value >= lo[unit] && value <= hi[unit]) {
                EXPECT_EQ(ok, 1) << unit << "/" << value;
                EXPECT_EQ(out, value + offset[unit]) << unit << "/" << value;
                ++octetsSeen[out];
            } else {
                EXPECT_EQ(ok, 0) << unit << "/" << value;
                EXPECT_EQ(out, 0xAA) << unit << "/" << value;
            }
        }
    }
    for (int octet = 0; octet < 256; ++octet)
        EXPECT_EQ(octetsSeen[octet], 1) << "octet " << octet;
}

TEST_F(ZorTapiValidityPeriod, TableEdges)
{
    struct Row {
        unsigned unit;
        int value;
        int octet; // -1: not representable
    };
    const Row rows[] = {{0, 1, 0}, {0, 144, 143}, {0, 0, -1}, {0, 145, -1}, {1, 25, 144}, {1, 48, 167},
                        {1, 24, -1}, {1, 49, -1}, {2, 2, 168}, {2, 30, 196}, {2, 1, -1}, {2, 31, -1},
                        {3, 5, 197}, {3, 63, 255}, {3, 4, -1}, {3, 64, -1}, {4, 10, -1}, {0xFFFFFFFFu, 1, -1}};
    for (const Row& r : rows) {
        const _TAPI_SMS_EXPIRE_PERIOD_DATA_S pair{r.unit, static_cast<unsigned char>(r.value)};
        unsigned char out = 0xAA;
        const int ok = TAPI_SMS_ExpirePeriodToUINT8(&pair, &out);
        EXPECT_EQ(ok != 0, r.octet >= 0) << r.unit << "/" << r.value;
        EXPECT_EQ(int(out), r.octet >= 0 ? r.octet : 0xAA) << r.unit << "/" << r.value;
    }
}

TEST_F(ZorTapiValidityPeriod, NullArgumentsFail)
{
    const _TAPI_SMS_EXPIRE_PERIOD_DATA_S pair{3, 63};
    unsigned char out = 0;
    EXPECT_EQ(TAPI_SMS_ExpirePeriodToUINT8(nullptr, &out), 0);
    EXPECT_EQ(TAPI_SMS_ExpirePeriodToUINT8(&pair, nullptr), 0);
}

TEST_F(ZorTapiValidityPeriod, InjectedFaultIsTheReturnValue)
{
    ZorHost::injectFault(QStringLiteral("TAPI_SMS_ExpirePeriodToUINT8"), 0);
    const _TAPI_SMS_EXPIRE_PERIOD_DATA_S pair{3, 63};
    unsigned char out = 0xAA;
    EXPECT_EQ(TAPI_SMS_ExpirePeriodToUINT8(&pair, &out), 0);
    EXPECT_EQ(out, 0xAA);
    EXPECT_EQ(TAPI_SMS_ExpirePeriodToUINT8(&pair, &out), 1);
    EXPECT_EQ(out, 255);
    EXPECT_EQ(ZorHost::callCount(QStringLiteral("TAPI_SMS_ExpirePeriodToUINT8")), 2);
}

} // namespace
