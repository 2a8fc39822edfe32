// msgctr addr: recipient lists as the composer normalises, splits and shows them.
#include "Command.h"
#include "VCardAddressBook.h"

#include "MSGCTR_ENG_Addrbk.h"
#include "MSGCTR_ENG_EmsAddressList.h"

namespace msgctr {
namespace {

int normalize(const QStringList& args)
{
    if (args.size() != 1)
        return usageError(QStringLiteral("addr normalize takes one TEXT (quote it if it holds blanks)"));
    out(MSGCTR_ENG_EmsAddressList::marshalAddrList(args.first()));
    return ExitOk;
}

int split(const QStringList& args)
{
    if (args.size() != 1)
        return usageError(QStringLiteral("addr split takes one TEXT (quote it if it holds blanks)"));
    QString numbers;
    QString others;
    MSGCTR_ENG_EmsAddressList::segregateEmsNumberTypeFromOtherAddrType(&numbers, &others, args.first());
    out(QStringLiteral("numbers: ") + numbers);
    out(QStringLiteral("others: ") + others);
    return ExitOk;
}

int names(const QStringList& args)
{
    QStringList rest = args;
    int status = ExitOk;
    QString contacts;
    QString maxText;
    QString separator = QStringLiteral(", ");
    bool hasContacts = false;
    bool hasMax = false;
    bool hasSeparator = false;
    if (!takeOption(&rest, QStringLiteral("--contacts"), &contacts, &hasContacts, &status)
        || !takeOption(&rest, QStringLiteral("--max"), &maxText, &hasMax, &status)
        || !takeOption(&rest, QStringLiteral("--separator"), &separator, &hasSeparator, &status))
        return status;
    if (rest.size() != 1)
        return usageError(QStringLiteral("addr names takes one TEXT after its options (see msgctr addr names --help)"));
    qlonglong max = 0;
    if (hasMax && (!parseInteger(maxText, &max) || max < 0 || max > 0x7FFFFFFF))
        return usageError(QStringLiteral("--max needs a length from 0 to 2147483647, not '%1'").arg(maxText));
    if (hasContacts) {
        QString error;
        if (!installVCardAddressBook(contacts, &error))
            return failure(error);
    }
    MSGCTR_ENG_Addrbk::beginCache();
    const QString text = hasMax ? MSGCTR_ENG_EmsAddressList::toNameList(rest.first(), int(max), separator)
                                : MSGCTR_ENG_EmsAddressList::toNameList(rest.first(), separator);
    MSGCTR_ENG_Addrbk::endCache();
    removeVCardAddressBook();
    out(text);
    return ExitOk;
}

const FamilyRegistration registration(
    QStringLiteral("addr"), QStringLiteral("recipient lists: normalising, numbers and e-mail addresses, contact names"),
    {
        {QStringLiteral("normalize"), QStringLiteral("TEXT"),
         QStringLiteral("the canonical list: separated by \",\", no blanks, no empty entries"), normalize},
        {QStringLiteral("split"), QStringLiteral("TEXT"),
         QStringLiteral("the phone numbers and the other addresses of the list"), split},
        {QStringLiteral("names"), QStringLiteral("[--contacts FILE] [--max N] [--separator S] TEXT"),
         QStringLiteral("the names shown for the list, from a vCard file (FN, TEL, EMAIL)"), names},
    });

} // namespace
} // namespace msgctr
