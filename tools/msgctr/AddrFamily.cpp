// msgctr addr: recipient lists as the composer normalises, splits and shows them.
#include "VCardAddressBook.h"
#include "Verb.h"

#include "MSGCTR_ENG_Addrbk.h"
#include "MSGCTR_ENG_EmsAddressList.h"

#include <climits>

namespace msgctr {
namespace {

const QString kText = QStringLiteral("TEXT");

Arg listArg()
{
    return text(kText, QStringLiteral("the recipient list")).stdinDash();
}

int normalize(const Args& args, Output& out)
{
    out.field(QStringLiteral("list"), MSGCTR_ENG_EmsAddressList::marshalAddrList(args.text(kText)));
    return ExitOk;
}

int split(const Args& args, Output& out)
{
    QString numbers;
    QString others;
    MSGCTR_ENG_EmsAddressList::segregateEmsNumberTypeFromOtherAddrType(&numbers, &others, args.text(kText));
    out.field(QStringLiteral("numbers"), numbers);
    out.field(QStringLiteral("others"), others);
    return ExitOk;
}

int names(const Args& args, Output& out)
{
    if (args.has(QStringLiteral("--contacts"))) {
        QString error;
        if (!installVCardAddressBook(args.text(QStringLiteral("--contacts")), &error))
            return fail(error);
    }
    const QString separator = args.has(QStringLiteral("--separator")) ? args.text(QStringLiteral("--separator")) : QStringLiteral(", ");
    MSGCTR_ENG_Addrbk::beginCache();
    QString text = args.has(QStringLiteral("--max"))
        ? MSGCTR_ENG_EmsAddressList::toNameList(args.text(kText), int(args.number(QStringLiteral("--max"))), separator)
        : MSGCTR_ENG_EmsAddressList::toNameList(args.text(kText), separator);
    MSGCTR_ENG_Addrbk::endCache();
    removeVCardAddressBook();
    // A limit may fall inside a surrogate pair: the half character goes too.
    if (!text.isEmpty() && text.back().isHighSurrogate())
        text.chop(1);
    out.field(QStringLiteral("names"), text);
    return ExitOk;
}

const VerbRegistration registration(
    QStringLiteral("addr"), QStringLiteral("recipient lists: normalising, numbers and e-mail addresses, contact names"),
    {
        Verb(QStringLiteral("normalize"), QStringLiteral("the canonical list: separated by \",\", no blanks, no empty entries"), normalize)
            .arg(listArg())
            .fields(QStringLiteral("list (text)")),
        Verb(QStringLiteral("split"), QStringLiteral("the phone numbers and the other addresses of the list"), split)
            .arg(listArg())
            .fields(QStringLiteral("numbers (text), others (text)")),
        Verb(QStringLiteral("names"), QStringLiteral("the names shown for the list, from a vCard file (FN, TEL, EMAIL)"), names)
            .arg(listArg())
            .arg(text(QStringLiteral("--contacts"), QStringLiteral("a vCard file (2.1, 3.0 or 4.0)")).as(QStringLiteral("FILE")))
            .arg(integer(QStringLiteral("--max"), 0, INT_MAX, QStringLiteral("the longest text shown")))
            .arg(text(QStringLiteral("--separator"), QStringLiteral("between two names (default \", \")")).as(QStringLiteral("S")))
            .fields(QStringLiteral("names (text)")),
    });

} // namespace
} // namespace msgctr
