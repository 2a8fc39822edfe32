// msgctr text segments: how many SMS segments a text takes, in which encoding, and what the composer
// shows for a list of recipients (e-mail recipients get their address and subject in front of the body).
#include "Command.h"

#include "MSGCTR_ENG_EmsAddressList.h"
#include "MSGCTR_ENG_EncodeUti.h"
#include "TAPI.h"

#include <cstring>
#include <memory>

namespace msgctr {
namespace {

QString countText(int count)
{
    return count == MSGCTR_ENG_EncodeUti::INVALID_PACKET_NUM ? QStringLiteral("cannot be counted") : QString::number(count);
}

int recipientSegments(const QString& to, const QString& subject, const QString& body)
{
    const QStringList recipients = MSGCTR_ENG_EmsAddressList::getRawAddrList(to);
    if (recipients.isEmpty())
        return usageError(QStringLiteral("--to holds no address"));
    for (const QString& recipient : recipients) {
        int count = 0;
        MSGCTR_ENG_EncodeUti::getEncodePacketNumForSend(&count, recipient, subject, body);
        out(QStringLiteral("%1: %2").arg(recipient, countText(count)));
    }
    int maximum = 0;
    const bool ok = MSGCTR_ENG_EncodeUti::getMaxEncodePacketNumForSend(&maximum, to, subject, body);
    if (!ok) {
        out(QStringLiteral("maximum: %1").arg(countText(maximum)));
        return failure(QStringLiteral("a recipient's text cannot be counted (longer than %1 UTF-16 units)")
                           .arg(MSGCTR_ENG_EncodeUti::MAX_CALCULATED_TEXT_LENGTH));
    }
    if (maximum > MSGCTR_ENG_EncodeUti::MAX_PACKETS_PER_MESSAGE)
        out(QStringLiteral("maximum: %1 (more than the %2 segments one message may take)")
                .arg(maximum).arg(MSGCTR_ENG_EncodeUti::MAX_PACKETS_PER_MESSAGE));
    else
        out(QStringLiteral("maximum: %1").arg(maximum));
    return ExitOk;
}

int segments(const QStringList& args)
{
    QStringList rest = args;
    int status = ExitOk;
    QString to;
    QString subject;
    bool hasTo = false;
    bool hasSubject = false;
    if (!takeOption(&rest, QStringLiteral("--to"), &to, &hasTo, &status)
        || !takeOption(&rest, QStringLiteral("--subject"), &subject, &hasSubject, &status))
        return status;
    if (rest.size() != 1)
        return usageError(QStringLiteral("text segments takes one TEXT (quote it if it holds blanks)"));
    if (hasSubject && !hasTo)
        return usageError(QStringLiteral("--subject goes with --to"));
    if (hasTo)
        return recipientSegments(to, subject, rest.first());
    const QString& text = rest.first();
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
        {QStringLiteral("segments"), QStringLiteral("[--to LIST [--subject S]] TEXT"),
         QStringLiteral("print the SMS segment count of a text and its encoding, or per recipient and the maximum"), segments},
    });

} // namespace
} // namespace msgctr
