// msgctr text crc: the checksum that protects the library's stored byte blocks.
#include "Verb.h"

#include "MSGCTR_ENG_QByteArrUti.h"

#include <QRegularExpression>

namespace msgctr {
namespace {

int crc(const Args& args, Output& out)
{
    const QString given = args.text(QStringLiteral("HEX"));
    QString digits = given;
    digits.remove(QRegularExpression(QStringLiteral("\\s")));
    if (digits.startsWith(QLatin1String("0x"), Qt::CaseInsensitive))
        digits = digits.mid(2);
    static const QRegularExpression hexDigits(QStringLiteral("^[0-9A-Fa-f]*$"));
    if (!hexDigits.match(digits).hasMatch())
        return usage(QStringLiteral("'%1' is not hexadecimal (digits 0-9 and A-F only)").arg(given));
    if (digits.size() % 2 != 0)
        return usage(QStringLiteral("'%1' has an odd number of hex digits: two digits per byte").arg(given));

    const QByteArray payload = QByteArray::fromHex(digits.toLatin1());
    const QByteArray block = MSGCTR_ENG_QByteArrUti::qbyteArrWithCrc(payload);
    out.field(QStringLiteral("checksum"), QStringLiteral("0x") + QString::fromLatin1(block.right(2).toHex().toUpper()));
    out.field(QStringLiteral("bytes"), int(payload.size()));
    out.field(QStringLiteral("block"), QString::fromLatin1(block.toHex().toUpper()));
    return ExitOk;
}

const VerbRegistration registration(
    QStringLiteral("text"), QString(),
    {
        Verb(QStringLiteral("crc"), QStringLiteral("the CRC-16 (ISO 3309) of the bytes and the block with it appended, high byte first"), crc)
            .arg(text(QStringLiteral("HEX"), QStringLiteral("the bytes, two hex digits each, e.g. 010203")).stdinDash())
            .fields(QStringLiteral("checksum (text), bytes (number), block (text)")),
    });

} // namespace
} // namespace msgctr
