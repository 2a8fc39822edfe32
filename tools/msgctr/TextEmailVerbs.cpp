// msgctr text email-encode|email-decode: the text of an SMS sent to or received from the e-mail gateway.
#include "Verb.h"

#include "MSGCTR_ENG_EncodeUti.h"

#include <cstdio>

namespace msgctr {
namespace {

int emailEncode(const Args& args, Output& out)
{
    const QString subject = args.text(QStringLiteral("--subject"));
    // The gateway reads the subject up to the first ")": one inside it splits subject and body there.
    if (subject.contains(QLatin1Char(')')))
        std::fprintf(stderr, "msgctr: warning: the subject holds ')'; the gateway format cannot carry it, and the text "
                             "reads back split at the first ')'\n");
    QString numbers;
    QString emailAddresses;
    QString text;
    MSGCTR_ENG_EncodeUti::encodeEmailOverSms(&numbers, &emailAddresses, &text, args.text(QStringLiteral("--to")), subject,
                                             args.text(QStringLiteral("BODY")));
    out.field(QStringLiteral("numbers"), numbers);
    out.field(QStringLiteral("email"), emailAddresses);
    out.field(QStringLiteral("text"), text);
    return ExitOk;
}

int emailDecode(const Args& args, Output& out)
{
    const bool simple = args.has(QStringLiteral("--simple"));
    const bool hasSender = args.has(QStringLiteral("--from"));
    if (simple && hasSender)
        return usage(QStringLiteral("--simple reads no address, so --from does not go with it"));
    const QString text = args.text(QStringLiteral("TEXT"));
    QString address;
    QString subject;
    QString body;
    if (simple)
        MSGCTR_ENG_EncodeUti::decodeSimpleSubject(&subject, &body, text);
    else if (hasSender)
        MSGCTR_ENG_EncodeUti::decodeEmailOverSms(&address, &subject, &body, args.text(QStringLiteral("--from")), text);
    else
        MSGCTR_ENG_EncodeUti::decodeEmailOverSms(&address, &subject, &body, text);
    if (!simple)
        out.field(QStringLiteral("address"), address);
    out.field(QStringLiteral("subject"), subject);
    out.field(QStringLiteral("body"), body);
    return ExitOk;
}

const VerbRegistration registration(
    QStringLiteral("text"), QString(),
    {
        Verb(QStringLiteral("email-encode"), QStringLiteral("the SMS text for the e-mail gateway: address(subject)body"), emailEncode)
            .arg(text(QStringLiteral("BODY"), QStringLiteral("the message body")).stdinDash())
            .arg(text(QStringLiteral("--to"), QStringLiteral("the recipient list")).as(QStringLiteral("LIST")))
            .arg(text(QStringLiteral("--subject"), QStringLiteral("the subject (it cannot hold ')')")).as(QStringLiteral("S")))
            .fields(QStringLiteral("numbers (text), email (text), text (text)")),
        Verb(QStringLiteral("email-decode"), QStringLiteral("address, subject and body of an e-mail-over-SMS text"), emailDecode)
            .arg(text(QStringLiteral("TEXT"), QStringLiteral("the received text")).stdinDash())
            .arg(text(QStringLiteral("--from"), QStringLiteral("the gateway number that sent it")).as(QStringLiteral("SENDER")))
            .arg(flag(QStringLiteral("--simple"), QStringLiteral("the text holds only (subject)body")))
            .fields(QStringLiteral("address (text, not with --simple), subject (text), body (text)")),
    });

} // namespace
} // namespace msgctr
