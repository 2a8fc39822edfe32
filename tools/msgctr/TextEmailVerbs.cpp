// msgctr text email-encode|email-decode: the text of an SMS sent to or received from the e-mail gateway.
#include "Command.h"

#include "MSGCTR_ENG_EncodeUti.h"

namespace msgctr {
namespace {

int emailEncode(const QStringList& args)
{
    QStringList rest = args;
    int status = ExitOk;
    QString to;
    QString subject;
    if (!takeOption(&rest, QStringLiteral("--to"), &to, nullptr, &status)
        || !takeOption(&rest, QStringLiteral("--subject"), &subject, nullptr, &status))
        return status;
    if (rest.size() != 1)
        return usageError(QStringLiteral("text email-encode takes one BODY after its options (quote it)"));
    QString numbers;
    QString emailAddresses;
    QString text;
    MSGCTR_ENG_EncodeUti::encodeEmailOverSms(&numbers, &emailAddresses, &text, to, subject, rest.first());
    out(QStringLiteral("numbers: ") + numbers);
    out(QStringLiteral("e-mail: ") + emailAddresses);
    out(QStringLiteral("text: ") + text);
    return ExitOk;
}

int emailDecode(const QStringList& args)
{
    QStringList rest = args;
    int status = ExitOk;
    QString sender;
    bool hasSender = false;
    if (!takeOption(&rest, QStringLiteral("--from"), &sender, &hasSender, &status))
        return status;
    const bool simple = rest.removeAll(QStringLiteral("--simple")) > 0;
    if (rest.size() != 1)
        return usageError(QStringLiteral("text email-decode takes one TEXT after its options (quote it)"));
    if (simple && hasSender)
        return usageError(QStringLiteral("--simple reads no address, so --from does not go with it"));
    QString address;
    QString subject;
    QString body;
    if (simple) {
        MSGCTR_ENG_EncodeUti::decodeSimpleSubject(&subject, &body, rest.first());
    } else if (hasSender) {
        MSGCTR_ENG_EncodeUti::decodeEmailOverSms(&address, &subject, &body, sender, rest.first());
    } else {
        MSGCTR_ENG_EncodeUti::decodeEmailOverSms(&address, &subject, &body, rest.first());
    }
    if (!simple)
        out(QStringLiteral("address: ") + address);
    out(QStringLiteral("subject: ") + subject);
    out(QStringLiteral("body: ") + body);
    return ExitOk;
}

const FamilyRegistration registration(
    QStringLiteral("text"), QString(),
    {
        {QStringLiteral("email-encode"), QStringLiteral("[--to LIST] [--subject S] BODY"),
         QStringLiteral("the SMS text for the e-mail gateway: address(subject)body"), emailEncode},
        {QStringLiteral("email-decode"), QStringLiteral("[--from SENDER | --simple] TEXT"),
         QStringLiteral("address, subject and body of an e-mail-over-SMS text"), emailDecode},
    });

} // namespace
} // namespace msgctr
