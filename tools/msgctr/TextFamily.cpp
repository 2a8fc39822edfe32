// msgctr text: the string utilities a person would use at the command line.
#include "Verb.h"

#include "MSGCTR_ENG_StrUti.h"

namespace msgctr {
namespace {

const QString kText = QStringLiteral("TEXT");

int hex(const Args& args, Output& out)
{
    const QString bits = args.has(QStringLiteral("--bits")) ? args.text(QStringLiteral("--bits")) : QStringLiteral("32");
    const qlonglong value = args.number(QStringLiteral("NUMBER"));
    const qlonglong max = (qlonglong(1) << bits.toInt()) - 1;
    if (value > max)
        return usage(QStringLiteral("%1 does not fit in %2 unsigned bits (0 to %3)").arg(value).arg(bits).arg(max));
    QString text;
    if (bits == QLatin1String("16"))
        text = MSGCTR_ENG_StrUti::qstrHexWithPrefix0x(static_cast<unsigned short>(value));
    else if (bits == QLatin1String("8"))
        text = MSGCTR_ENG_StrUti::qstrHexWithPrefix0x(static_cast<unsigned char>(value));
    else
        text = MSGCTR_ENG_StrUti::qstrHexWithPrefix0x(static_cast<unsigned int>(value));
    out.field(QStringLiteral("hex"), text);
    return ExitOk;
}

int strip(const Args& args, Output& out)
{
    out.field(QStringLiteral("text"), MSGCTR_ENG_StrUti::removeAllWhiteSpaceChars(args.text(kText)));
    return ExitOk;
}

// One "?" per character above code 255: a surrogate pair is one character.
int ascii(const Args& args, Output& out)
{
    const QString replaced = MSGCTR_ENG_StrUti::replaceNonAsciiChar(args.text(kText), '?');
    QString text;
    const QString original = args.text(kText);
    for (qsizetype i = 0; i < replaced.size(); ++i) {
        text += replaced.at(i);
        if (i + 1 < original.size() && original.at(i).isHighSurrogate() && original.at(i + 1).isLowSurrogate())
            ++i;
    }
    out.field(QStringLiteral("text"), text);
    return ExitOk;
}

const VerbRegistration registration(
    QStringLiteral("text"), QStringLiteral("text utilities: hex, white space, checksums, segments, e-mail over SMS, times"),
    {
        Verb(QStringLiteral("hex"), QStringLiteral("the number in upper-case hexadecimal with 0x, as 8, 4 or 2 digits"), hex)
            .arg(integer(QStringLiteral("NUMBER"), 0, 0xFFFFFFFFLL, QStringLiteral("the number, decimal or 0x hexadecimal")))
            .arg(choice(QStringLiteral("--bits"), {QStringLiteral("32"), QStringLiteral("16"), QStringLiteral("8")},
                        QStringLiteral("the width (default 32)")))
            .fields(QStringLiteral("hex (text)")),
        Verb(QStringLiteral("strip"), QStringLiteral("the text with every white-space character removed"), strip)
            .arg(text(kText, QStringLiteral("the text")).stdinDash())
            .fields(QStringLiteral("text (text)")),
        Verb(QStringLiteral("ascii"), QStringLiteral("the text with every character above code 255 replaced by '?'"), ascii)
            .arg(text(kText, QStringLiteral("the text")).stdinDash())
            .fields(QStringLiteral("text (text)")),
    });

} // namespace
} // namespace msgctr
