// msgctr text: the string utilities a person would use at the command line.
#include "Command.h"

#include "MSGCTR_ENG_StrUti.h"

namespace msgctr {
namespace {

int hex(const QStringList& args)
{
    QStringList rest = args;
    int bits = 32;
    const qsizetype bitsAt = rest.indexOf(QStringLiteral("--bits"));
    if (bitsAt >= 0) {
        if (bitsAt + 1 >= rest.size())
            return usageError(QStringLiteral("--bits needs 32, 16 or 8"));
        const QString width = rest.at(bitsAt + 1);
        if (width == QLatin1String("32"))
            bits = 32;
        else if (width == QLatin1String("16"))
            bits = 16;
        else if (width == QLatin1String("8"))
            bits = 8;
        else
            return usageError(QStringLiteral("--bits must be 32, 16 or 8, not '%1'").arg(width));
        rest.remove(bitsAt, 2);
    }
    if (rest.size() != 1)
        return usageError(QStringLiteral("text hex takes one NUMBER (see msgctr text hex --help)"));
    qlonglong value = 0;
    if (!parseInteger(rest.first(), &value))
        return usageError(QStringLiteral("'%1' is not a number").arg(rest.first()));
    const qlonglong max = (qlonglong(1) << bits) - 1;
    if (value < 0 || value > max)
        return usageError(QStringLiteral("%1 does not fit in %2 unsigned bits (0 to %3)").arg(rest.first()).arg(bits).arg(max));
    switch (bits) {
    case 16:
        out(MSGCTR_ENG_StrUti::qstrHexWithPrefix0x(static_cast<unsigned short>(value)));
        break;
    case 8:
        out(MSGCTR_ENG_StrUti::qstrHexWithPrefix0x(static_cast<unsigned char>(value)));
        break;
    default:
        out(MSGCTR_ENG_StrUti::qstrHexWithPrefix0x(static_cast<unsigned int>(value)));
        break;
    }
    return ExitOk;
}

int strip(const QStringList& args)
{
    if (args.size() != 1)
        return usageError(QStringLiteral("text strip takes one TEXT (quote it if it holds blanks)"));
    out(MSGCTR_ENG_StrUti::removeAllWhiteSpaceChars(args.first()));
    return ExitOk;
}

int ascii(const QStringList& args)
{
    if (args.size() != 1)
        return usageError(QStringLiteral("text ascii takes one TEXT (quote it if it holds blanks)"));
    out(MSGCTR_ENG_StrUti::replaceNonAsciiChar(args.first(), '?'));
    return ExitOk;
}

const FamilyRegistration registration(
    QStringLiteral("text"), QStringLiteral("text utilities: hex, white space, ..."),
    {
        {QStringLiteral("hex"), QStringLiteral("NUMBER [--bits 32|16|8]"),
         QStringLiteral("the number in upper-case hexadecimal with 0x, as 8, 4 or 2 digits (default 32 bits)"), hex},
        {QStringLiteral("strip"), QStringLiteral("TEXT"), QStringLiteral("the text with every white-space character removed"),
         strip},
        {QStringLiteral("ascii"), QStringLiteral("TEXT"),
         QStringLiteral("the text with every character above code 255 replaced by '?'"), ascii},
    });

} // namespace
} // namespace msgctr
