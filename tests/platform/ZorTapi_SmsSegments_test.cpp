// Segment count of the telephony simulator (TAPI_SMS_CaculateSm): encoding choice, single and concatenated
// segment sizes, escape and surrogate pairs at segment boundaries, and the 16-byte result record.
#include "HostRootTest.h"
#include "TAPI.h"
#include "ZorHostControl.h"

#include <cstring>
#include <memory>
#include <random>
#include <string>
#include <vector>

namespace {

const char16_t kCyrillic = 0x0436;
const std::u16string kEmoji = u"\U0001F600"; // a surrogate pair
const char16_t kEuro = 0x20AC;               // an extension-table character: two septets

std::u16string times(const std::u16string& part, int n)
{
    std::u16string s;
    for (int i = 0; i < n; ++i)
        s += part;
    return s;
}
std::u16string times(char16_t c, int n)
{
    return std::u16string(size_t(n), c);
}

struct Calc {
    int result;
    unsigned char bytes[16];
    TAPI_SMS_CACULATE_SM_RESULT_S record;
};

Calc calculate(const std::u16string& text)
{
    auto request = std::make_unique<TAPI_SMS_CACULATE_SM_REQ_S>();
    request->length = static_cast<unsigned short>(text.size());
    std::memcpy(request->text, text.data(), std::min<size_t>(text.size(), TAPI_SMS_CACULATE_MAX_UNITS + 1) * 2);
    Calc c{};
    std::memset(&c.record, 0xEE, sizeof c.record);
    c.result = TAPI_SMS_CaculateSm(request.get(), &c.record);
    std::memcpy(c.bytes, &c.record, sizeof c.bytes);
    return c;
}

struct Case {
    const char* name;
    std::u16string text;
    int segments;
    int encoding;
    int perSegment;
    int unitsUsed;
    int lastUsed;
};

void PrintTo(const Case& c, std::ostream* os)
{
    *os << c.name;
}

class ZorTapiSmsSegments : public HostRootTest, public ::testing::WithParamInterface<Case> {};

TEST_P(ZorTapiSmsSegments, CountsSegments)
{
    const Case& c = GetParam();
    const Calc r = calculate(c.text);
    ASSERT_EQ(r.result, TAPI_RESULT_SUCC);
    EXPECT_EQ(r.bytes[4], c.segments);
    EXPECT_EQ(r.record.segmentCount, c.segments);
    EXPECT_EQ(r.record.encodeType, c.encoding);
    EXPECT_EQ(r.record.unitsPerSegment, c.perSegment);
    EXPECT_EQ(r.record.unitsUsed, c.unitsUsed);
    EXPECT_EQ(r.record.unitsInLastSegment, c.lastUsed);
    EXPECT_EQ(r.record.unitsLeftInLastSegment, c.perSegment - c.lastUsed);
}

const int G = TAPI_SMS_ENCODE_GSM7BIT;
const int U = TAPI_SMS_ENCODE_UCS2;

INSTANTIATE_TEST_SUITE_P(Table, ZorTapiSmsSegments, ::testing::Values(
    Case{"Empty", u"", 1, G, 160, 0, 0},
    Case{"Gsm160", times(u'a', 160), 1, G, 160, 160, 160},
    Case{"Gsm161", times(u'a', 161), 2, G, 153, 161, 8},
    Case{"Gsm2x153", times(u'a', 306), 2, G, 153, 306, 153},
    Case{"Gsm2x153Plus1", times(u'a', 307), 3, G, 153, 307, 1},
    Case{"ExtensionFillsSingle", times(u'a', 158) + kEuro, 1, G, 160, 160, 160},
    Case{"ExtensionOverflowsSingle", times(u'a', 159) + kEuro, 2, G, 153, 161, 8},
    Case{"ExtensionAtBoundaryMoves", times(u'a', 152) + kEuro + times(u'a', 152), 3, G, 153, 306, 1},
    Case{"ExtensionJustFits", times(u'a', 151) + kEuro + times(u'a', 153), 2, G, 153, 306, 153},
    Case{"ExtensionAfterBoundary", times(u'a', 152) + kEuro + times(u'a', 151), 2, G, 153, 305, 153},
    Case{"AllExtensionSingle", times(kEuro, 80), 1, G, 160, 160, 160},
    Case{"AllExtension", times(kEuro, 81), 2, G, 153, 162, 10},
    Case{"Ucs2_70", times(kCyrillic, 70), 1, U, 70, 70, 70},
    Case{"Ucs2_71", times(kCyrillic, 71), 2, U, 67, 71, 4},
    Case{"Ucs2_2x67", times(kCyrillic, 134), 2, U, 67, 134, 67},
    Case{"Ucs2_2x67Plus1", times(kCyrillic, 135), 3, U, 67, 135, 1},
    Case{"SurrogateFillsSingle", times(kCyrillic, 68) + kEmoji, 1, U, 70, 70, 70},
    Case{"SurrogateAtBoundaryMoves", times(kCyrillic, 66) + kEmoji + times(kCyrillic, 66), 3, U, 67, 134, 1},
    Case{"SurrogateJustFits", times(kCyrillic, 65) + kEmoji + times(kCyrillic, 67), 2, U, 67, 134, 67},
    Case{"OneNonGsmMakesUcs2", times(u'a', 159) + kCyrillic, 3, U, 67, 160, 26},
    Case{"LoneSurrogateIsOneUnit", times(u'a', 70) + char16_t(0xD800), 2, U, 67, 71, 4},
    Case{"MaxGsm", times(u'a', 3200), 21, G, 153, 3200, 140},
    Case{"MaxExtension", times(kEuro, 3200), 43, G, 153, 6400, 16},
    Case{"MaxUcs2", times(kCyrillic, 3200), 48, U, 67, 3200, 51},
    Case{"MaxEmoji", times(kEmoji, 1600), 49, U, 67, 3200, 32}),
    [](const ::testing::TestParamInfo<Case>& info) { return std::string(info.param.name); });

class ZorTapiSmsSegmentsRecord : public HostRootTest {};

TEST_F(ZorTapiSmsSegmentsRecord, RecordBytesAreAsDocumented)
{
    static_assert(sizeof(TAPI_SMS_CACULATE_SM_RESULT_S) == 16, "16-byte result record");
    const Calc r = calculate(times(u'a', 161));
    ASSERT_EQ(r.result, TAPI_RESULT_SUCC);
    const unsigned short u16[] = {153, 161, 145, 8};
    unsigned char expected[16] = {0, 0, 0, 0, 2, 0};
    std::memcpy(expected + 2, &u16[0], 2);
    std::memcpy(expected + 6, &u16[1], 2);
    std::memcpy(expected + 8, &u16[2], 2);
    std::memcpy(expected + 10, &u16[3], 2);
    EXPECT_EQ(std::memcmp(r.bytes, expected, 16), 0);
}

TEST_F(ZorTapiSmsSegmentsRecord, CountIsAuthoritativeNotTheTerminator)
{
    auto request = std::make_unique<TAPI_SMS_CACULATE_SM_REQ_S>();
    for (int i = 0; i < 200; ++i)
        request->text[i] = 'a';
    request->length = 10;
    TAPI_SMS_CACULATE_SM_RESULT_S result{};
    ASSERT_EQ(TAPI_SMS_CaculateSm(request.get(), &result), TAPI_RESULT_SUCC);
    EXPECT_EQ(result.unitsUsed, 10);
    EXPECT_EQ(result.segmentCount, 1);
}

TEST_F(ZorTapiSmsSegmentsRecord, TooLongOrNullIsRefusedAndResultUntouched)
{
    auto request = std::make_unique<TAPI_SMS_CACULATE_SM_REQ_S>();
    request->length = 3201;
    TAPI_SMS_CACULATE_SM_RESULT_S result;
    std::memset(&result, 0xEE, sizeof result);
    EXPECT_EQ(TAPI_SMS_CaculateSm(request.get(), &result), TAPI_RESULT_INVALID_PARAM);
    EXPECT_EQ(result.segmentCount, 0xEE);
    request->length = 1;
    EXPECT_EQ(TAPI_SMS_CaculateSm(nullptr, &result), TAPI_RESULT_INVALID_PARAM);
    EXPECT_EQ(TAPI_SMS_CaculateSm(request.get(), nullptr), TAPI_RESULT_INVALID_PARAM);
}

TEST_F(ZorTapiSmsSegmentsRecord, InjectedFaultChangesNothing)
{
    ZorHost::injectFault(QStringLiteral("TAPI_SMS_CaculateSm"), 305);
    const Calc failed = calculate(u"abc");
    EXPECT_EQ(failed.result, 305);
    EXPECT_EQ(failed.record.segmentCount, 0xEE);
    EXPECT_EQ(calculate(u"abc").result, TAPI_RESULT_SUCC);
    EXPECT_EQ(ZorHost::callCount(QStringLiteral("TAPI_SMS_CaculateSm")), 2);
}

// The counter is tuned (blocks of 16 units at a time, segments stepped over whole blocks); this is the plain
// walk it must agree with, unit by unit, on every byte of the result. The septets of a unit come from the
// platform's GSM converter, a separate path from the counter's own tables.
struct Reference {
    bool gsm;
    unsigned perSegment;
    unsigned segments;
    unsigned total;
    unsigned lastUsed;
};

Reference referenceCount(const std::u16string& text)
{
    std::vector<unsigned> sizes;
    bool gsm = true;
    for (char16_t unit : text) {
        const unsigned short in[1] = {unit};
        unsigned char out[2];
        const unsigned short written = TAPI_UTIL_ConvertUcs2StringToGsmString(in, 1, out, 2);
        if (written == TAPI_UTIL_NOT_GSM || (unit == 0 && written == 0)) {
            gsm = false;
            break;
        }
        sizes.push_back(written);
    }
    if (!gsm) {
        sizes.clear();
        for (size_t i = 0; i < text.size(); ++i) {
            const bool pair = text[i] >= 0xD800 && text[i] < 0xDC00 && i + 1 < text.size() && text[i + 1] >= 0xDC00
                              && text[i + 1] < 0xE000;
            sizes.push_back(pair ? 2 : 1);
            i += pair ? 1 : 0;
        }
    }
    const unsigned single = gsm ? 160 : 70;
    const unsigned concat = gsm ? 153 : 67;
    unsigned total = 0;
    for (unsigned size : sizes)
        total += size;
    if (total <= single)
        return {gsm, single, 1, total, total};
    unsigned segments = 1;
    unsigned used = 0;
    for (unsigned size : sizes) {
        if (used + size > concat) {
            ++segments;
            used = 0;
        }
        used += size;
    }
    return {gsm, concat, segments, total, used};
}

// Texts of every length up to the maximum, drawn from pools that reach every path of the counter: plain
// ASCII, the extension characters, the rest of the GSM alphabet, non-GSM units, pairs and lone surrogates.
std::vector<std::u16string> generatedCorpus()
{
    const std::u16string plain = u"abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789 .,;:!?'\"()-+*/=<>@$#%&_";
    const std::u16string extension = u"[]{}\\^~|\u20AC\u000C";
    const std::u16string gsmOther = u"\n\r\u00E9\u00E8\u00C7\u00A3\u00A5\u0394\u03A6\u00DF\u00C4\u00F1\u00A7\u00BF\u00A1\u00E0";
    const std::u16string nonGsm = u"`\u0436\u00E2\u4E2D\u0001\u007F\u00FF\u0100";
    std::mt19937 random(20261123);
    std::vector<std::u16string> corpus;
    for (int round = 0; round < 1200; ++round) {
        const unsigned length = round < 400 ? unsigned(round) : unsigned(random() % (TAPI_SMS_CACULATE_MAX_UNITS + 1));
        // Per text, how often each pool is drawn from (per mille).
        const unsigned extensionRate = random() % 4 == 0 ? 0 : random() % 200;
        const unsigned otherRate = random() % 3 == 0 ? 0 : random() % 100;
        const unsigned foreignRate = random() % 2 == 0 ? 0 : random() % 3;
        const unsigned surrogateRate = random() % 2 == 0 ? 0 : random() % 20;
        std::u16string text;
        while (text.size() < length) {
            const unsigned pick = random() % 1000;
            if (pick < surrogateRate) {
                const unsigned kind = random() % 3;
                if (kind == 0 && text.size() + 2 <= length)
                    text += u"\U0001F600";
                else
                    text += char16_t(kind == 1 ? 0xD83D : 0xDE00);
            } else if (pick < surrogateRate + foreignRate) {
                text += nonGsm[random() % nonGsm.size()];
            } else if (pick < surrogateRate + foreignRate + otherRate) {
                text += gsmOther[random() % gsmOther.size()];
            } else if (pick < surrogateRate + foreignRate + otherRate + extensionRate) {
                text += extension[random() % extension.size()];
            } else {
                text += plain[random() % plain.size()];
            }
        }
        corpus.push_back(text);
    }
    return corpus;
}

TEST_F(ZorTapiSmsSegmentsRecord, AgreesWithThePlainWalkOverAGeneratedCorpus)
{
    int gsmTexts = 0;
    int escapedTexts = 0;
    for (const std::u16string& text : generatedCorpus()) {
        const Reference expected = referenceCount(text);
        const Calc got = calculate(text);
        ASSERT_EQ(got.result, TAPI_RESULT_SUCC);
        const std::string what = "text of " + std::to_string(text.size()) + " units";
        ASSERT_EQ(got.record.encodeType, expected.gsm ? TAPI_SMS_ENCODE_GSM7BIT : TAPI_SMS_ENCODE_UCS2) << what;
        ASSERT_EQ(got.record.segmentCount, expected.segments) << what;
        ASSERT_EQ(got.record.unitsPerSegment, expected.perSegment) << what;
        ASSERT_EQ(got.record.unitsUsed, expected.total) << what;
        ASSERT_EQ(got.record.unitsInLastSegment, expected.lastUsed) << what;
        ASSERT_EQ(got.record.unitsLeftInLastSegment, expected.perSegment - expected.lastUsed) << what;
        gsmTexts += expected.gsm ? 1 : 0;
        escapedTexts += expected.gsm && expected.total > text.size() && expected.segments > 1 ? 1 : 0;
    }
    // The corpus reaches both encodings and the escaped multi-segment walk.
    EXPECT_GT(gsmTexts, 200);
    EXPECT_GT(escapedTexts, 100);
}

} // namespace
