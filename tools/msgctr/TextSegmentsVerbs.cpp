// msgctr text segments: how many SMS segments a text takes, in which encoding, and what the composer
// shows for a list of recipients (e-mail recipients get their address and subject in front of the body).
#include "Verb.h"

#include "MSGCTR_ENG_EmsAddressList.h"
#include "MSGCTR_ENG_EncodeUti.h"
#include "TAPI.h"

#include <cstring>
#include <memory>

namespace msgctr {
namespace {

// A count the library could not make is null.
QJsonValue countValue(int count)
{
    return count == MSGCTR_ENG_EncodeUti::INVALID_PACKET_NUM ? QJsonValue() : QJsonValue(count);
}

int recipientSegments(const QString& to, const QString& subject, const QString& body, Output& out)
{
    const QStringList recipients = MSGCTR_ENG_EmsAddressList::getRawAddrList(to);
    if (recipients.isEmpty())
        return usage(QStringLiteral("--to holds no address"));
    QJsonArray perRecipient;
    for (const QString& recipient : recipients) {
        int count = 0;
        MSGCTR_ENG_EncodeUti::getEncodePacketNumForSend(&count, recipient, subject, body);
        perRecipient.append(QJsonObject{{QStringLiteral("recipient"), recipient}, {QStringLiteral("segments"), countValue(count)}});
    }
    int maximum = 0;
    const bool ok = MSGCTR_ENG_EncodeUti::getMaxEncodePacketNumForSend(&maximum, to, subject, body);
    out.field(QStringLiteral("recipients"), perRecipient);
    out.field(QStringLiteral("maximum"), ok ? QJsonValue(maximum) : QJsonValue());
    out.field(QStringLiteral("fits_one_message"), ok && maximum <= MSGCTR_ENG_EncodeUti::MAX_PACKETS_PER_MESSAGE);
    if (!ok)
        return fail(QStringLiteral("a recipient's text cannot be counted (longer than %1 UTF-16 units)")
                        .arg(MSGCTR_ENG_EncodeUti::MAX_CALCULATED_TEXT_LENGTH));
    return ExitOk;
}

int segments(const Args& args, Output& out)
{
    const bool hasTo = args.has(QStringLiteral("--to"));
    if (args.has(QStringLiteral("--subject")) && !hasTo)
        return usage(QStringLiteral("--subject goes with --to"));
    const QString text = args.text(QStringLiteral("TEXT"));
    if (hasTo)
        return recipientSegments(args.text(QStringLiteral("--to")), args.text(QStringLiteral("--subject")), text, out);
    if (text.size() > TAPI_SMS_CACULATE_MAX_UNITS)
        return fail(QStringLiteral("the text has %1 UTF-16 units; at most %2 can be counted").arg(text.size()).arg(TAPI_SMS_CACULATE_MAX_UNITS));
    auto request = std::make_unique<TAPI_SMS_CACULATE_SM_REQ_S>();
    std::memset(request.get(), 0, sizeof *request);
    request->length = static_cast<unsigned short>(text.size());
    std::memcpy(request->text, text.utf16(), size_t(text.size()) * sizeof(unsigned short));
    TAPI_SMS_CACULATE_SM_RESULT_S result{};
    const int r = TAPI_SMS_CaculateSm(request.get(), &result);
    if (r != TAPI_RESULT_SUCC)
        return tapiFailure(QStringLiteral("TAPI_SMS_CaculateSm"), r);
    out.field(QStringLiteral("segments"), int(result.segmentCount));
    out.field(QStringLiteral("encoding"), result.encodeType == TAPI_SMS_ENCODE_GSM7BIT ? QStringLiteral("GSM 7-bit") : QStringLiteral("UCS-2"));
    return ExitOk;
}

const VerbRegistration registration(QStringLiteral("text"), QString(),
    {
        Verb(QStringLiteral("segments"), QStringLiteral("the SMS segment count of a text and its encoding, or per recipient and the maximum"), segments)
            .arg(text(QStringLiteral("TEXT"), QStringLiteral("the message body")).stdinDash())
            .arg(text(QStringLiteral("--to"), QStringLiteral("count for these recipients")).as(QStringLiteral("LIST")))
            .arg(text(QStringLiteral("--subject"), QStringLiteral("the subject e-mail recipients get")).as(QStringLiteral("S")))
            .reads()
            .fields(QStringLiteral("segments (number), encoding (text); with --to: recipients (list of recipient, segments), "
                                   "maximum (number), fits_one_message (boolean)")),
    });

} // namespace
} // namespace msgctr
