// msgctr text crc: the checksum that protects the library's stored byte blocks.
#include "Command.h"

#include "MSGCTR_ENG_QByteArrUti.h"

#include <QRegularExpression>

namespace msgctr {
namespace {

int crc(const QStringList& args)
{
    if (args.size() != 1)
        return usageError(QStringLiteral("text crc takes one HEX text of bytes, e.g. 010203 (see msgctr text crc --help)"));
    QString digits = args.first();
    digits.remove(QRegularExpression(QStringLiteral("\\s")));
    if (digits.startsWith(QLatin1String("0x"), Qt::CaseInsensitive))
        digits = digits.mid(2);
    static const QRegularExpression hexDigits(QStringLiteral("^[0-9A-Fa-f]*$"));
    if (!hexDigits.match(digits).hasMatch())
        return usageError(QStringLiteral("'%1' is not hexadecimal (digits 0-9 and A-F only)").arg(args.first()));
    if (digits.size() % 2 != 0)
        return usageError(QStringLiteral("'%1' has an odd number of hex digits: two digits per byte").arg(args.first()));

    const QByteArray payload = QByteArray::fromHex(digits.toLatin1());
    const QByteArray block = MSGCTR_ENG_QByteArrUti::qbyteArrWithCrc(payload);
    const QByteArray checksum = block.right(2);
    out(QStringLiteral("checksum 0x%1 (CRC-16, ISO 3309) of %2 byte(s)")
            .arg(QString::fromLatin1(checksum.toHex().toUpper()))
            .arg(payload.size()));
    out(QStringLiteral("block %1").arg(QString::fromLatin1(block.toHex().toUpper())));
    return ExitOk;
}

const FamilyRegistration registration(
    QStringLiteral("text"), QString(),
    {
        {QStringLiteral("crc"), QStringLiteral("HEX"),
         QStringLiteral("the checksum of the bytes (two hex digits each) and the block with it appended, high byte first"),
         crc},
    });

} // namespace
} // namespace msgctr
