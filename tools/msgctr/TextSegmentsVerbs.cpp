// msgctr text segments: how many SMS segments a text takes, and in which encoding.
#include "Command.h"

#include "TAPI.h"

#include <cstring>
#include <memory>

namespace msgctr {
namespace {

int segments(const QStringList& args)
{
    if (args.size() != 1)
        return usageError(QStringLiteral("text segments takes one TEXT (quote it if it holds blanks)"));
    const QString& text = args.first();
    if (text.size() > TAPI_SMS_CACULATE_MAX_UNITS)
        return failure(QStringLiteral("the text has %1 UTF-16 units; at most %2 can be counted")
                           .arg(text.size()).arg(TAPI_SMS_CACULATE_MAX_UNITS));
    auto request = std::make_unique<TAPI_SMS_CACULATE_SM_REQ_S>();
    std::memset(request.get(), 0, sizeof *request);
    request->length = static_cast<unsigned short>(text.size());
    std::memcpy(request->text, text.utf16(), size_t(text.size()) * sizeof(unsigned short));
    TAPI_SMS_CACULATE_SM_RESULT_S result{};
    const int r = TAPI_SMS_CaculateSm(request.get(), &result);
    if (r != TAPI_RESULT_SUCC)
        return failure(QStringLiteral("TAPI_SMS_CaculateSm failed with result %1").arg(r));
    out(QStringLiteral("segments: %1").arg(result.segmentCount));
    out(result.encodeType == TAPI_SMS_ENCODE_GSM7BIT ? QStringLiteral("encoding: GSM 7-bit") : QStringLiteral("encoding: UCS-2"));
    return ExitOk;
}

const FamilyRegistration registration(QStringLiteral("text"), QString(),
    {
        {QStringLiteral("segments"), QStringLiteral("TEXT"), QStringLiteral("print the SMS segment count of a text and its encoding"), segments},
    });

} // namespace
} // namespace msgctr
