// The SMS segment count: the platform's calculator reads exactly the units it is given (the rest of its
// request buffer is poisoned), its result record is consistent, UCS-2 texts are packed as a model packs
// them, and the library's counts and limits agree with the calculator.
#include "FuzzSupport.h"

#include "MSGCTR_ENG_EncodeUti.h"
#include "TAPI.h"

#include <sanitizer/asan_interface.h>

#include <memory>

namespace {

// Segments of a UCS-2 text: 70 units in one segment, else 67 per segment, a surrogate pair never split.
int modelUcs2Segments(const QString& text)
{
    if (text.size() <= 70)
        return 1;
    int segments = 1;
    int used = 0;
    for (qsizetype i = 0; i < text.size();) {
        const int item = (text.at(i).isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate()) ? 2 : 1;
        if (used + item > 67) {
            ++segments;
            used = 0;
        }
        used += item;
        i += item;
    }
    return segments;
}

bool plainGsm(const QString& text)
{
    for (const QChar c : text) {
        const char16_t u = c.unicode();
        if (!((u >= u'a' && u <= u'z') || (u >= u'A' && u <= u'Z') || (u >= u'0' && u <= u'9') || u == u' '))
            return false;
    }
    return true;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    fuzz::init();
    fuzz::Input input(data, size);
    const uint8_t shape = input.byte();
    QString text = fuzz::text(input.rest());
    // Long texts from short inputs: the count's limits lie at 3200 units.
    if (shape & 1)
        text = text.repeated(qMin<qsizetype>(3300 / qMax<qsizetype>(text.size(), 1), 1 + (shape >> 1)));

    int count = -1;
    const bool ok = MSGCTR_ENG_EncodeUti::getEncodePacketNum(&count, text);
    FUZZ_CHECK(MSGCTR_ENG_EncodeUti::smsMsgbodyIsTooLong(text) == (!ok || count > 10));
    if (text.size() > MSGCTR_ENG_EncodeUti::MAX_CALCULATED_TEXT_LENGTH) {
        FUZZ_CHECK(!ok && count == MSGCTR_ENG_EncodeUti::INVALID_PACKET_NUM);
        fuzz::takeReportCount();
        return 0;
    }
    FUZZ_CHECK(ok);

    auto request = std::make_unique<TAPI_SMS_CACULATE_SM_REQ_S>();
    const auto n = static_cast<unsigned short>(text.size());
    request->length = n;
    for (unsigned short i = 0; i < n; ++i)
        request->text[i] = text.at(i).unicode();
    ASAN_POISON_MEMORY_REGION(request->text + n, sizeof(request->text) - n * sizeof(unsigned short));
    TAPI_SMS_CACULATE_SM_RESULT_S result{};
    const int rc = TAPI_SMS_CaculateSm(request.get(), &result);
    ASAN_UNPOISON_MEMORY_REGION(request->text + n, sizeof(request->text) - n * sizeof(unsigned short));
    FUZZ_CHECK(rc == TAPI_RESULT_SUCC);
    FUZZ_CHECK(result.segmentCount == count);
    FUZZ_CHECK(result.segmentCount >= 1);
    if (result.encodeType == TAPI_SMS_ENCODE_GSM7BIT) {
        FUZZ_CHECK(result.unitsPerSegment == (result.segmentCount == 1 ? 160 : 153));
        FUZZ_CHECK(result.unitsUsed >= n);
    } else {
        FUZZ_CHECK(result.encodeType == TAPI_SMS_ENCODE_UCS2);
        FUZZ_CHECK(result.unitsPerSegment == (result.segmentCount == 1 ? 70 : 67));
        FUZZ_CHECK(result.unitsUsed == n);
        FUZZ_CHECK(result.segmentCount == modelUcs2Segments(text));
        FUZZ_CHECK(!plainGsm(text));
    }
    FUZZ_CHECK(result.unitsInLastSegment + result.unitsLeftInLastSegment == result.unitsPerSegment);
    FUZZ_CHECK(result.unitsUsed <= result.segmentCount * result.unitsPerSegment);
    if (plainGsm(text))
        FUZZ_CHECK(result.encodeType == TAPI_SMS_ENCODE_GSM7BIT && result.unitsUsed == n);
    fuzz::takeReportCount();
    return 0;
}
