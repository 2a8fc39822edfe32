#include "VCardAddressBook.h"

#include "MSGCTR_ENG_Addrbk.h"

#include <QFile>
#include <QStringDecoder>
#include <QStringList>

#include <cctype>
#include <vector>

namespace msgctr {
namespace {

struct Card {
    QString name;
    ADDRBK_ENG_Contact contact;
};

std::vector<Card> s_cards;

// Numbers are typed with blanks, hyphens and parentheses; the library searches with digits and a "+".
QString dialable(const QString& number)
{
    QString digits;
    for (const QChar c : number) {
        if (c.isDigit() || (c == QLatin1Char('+') && digits.isEmpty()))
            digits += c;
    }
    return digits;
}

QString unescape(const QString& value)
{
    QString text;
    for (qsizetype i = 0; i < value.size(); ++i) {
        if (value.at(i) == QLatin1Char('\\') && i + 1 < value.size()) {
            const QChar next = value.at(++i);
            text += (next == QLatin1Char('n') || next == QLatin1Char('N')) ? QChar(QLatin1Char('\n')) : next;
        } else {
            text += value.at(i);
        }
    }
    return text;
}

ADDRBK_ATTR_TYPE_T telType(const QString& params)
{
    const QString p = params.toUpper();
    if (p.contains(QLatin1String("CELL")))
        return ADDRBK_ATTR_TYPE_TEL_MOBILE;
    if (p.contains(QLatin1String("FAX")))
        return ADDRBK_ATTR_TYPE_TEL_FAX;
    if (p.contains(QLatin1String("HOME")))
        return ADDRBK_ATTR_TYPE_TEL_HOME;
    if (p.contains(QLatin1String("WORK")))
        return ADDRBK_ATTR_TYPE_TEL_WORK;
    return ADDRBK_ATTR_TYPE_TEL_GENERAL;
}

ADDRBK_ATTR_TYPE_T emailType(const QString& params)
{
    const QString p = params.toUpper();
    if (p.contains(QLatin1String("HOME")))
        return ADDRBK_ATTR_TYPE_EMAIL_HOME;
    if (p.contains(QLatin1String("WORK")))
        return ADDRBK_ATTR_TYPE_EMAIL_WORK;
    return ADDRBK_ATTR_TYPE_EMAIL_GENERAL;
}

// Where the property's name and parameters end: the first ":" outside double quotes (a 3.0/4.0 parameter
// value may be quoted and hold ":").
qsizetype valueStart(const QByteArray& line)
{
    bool quoted = false;
    for (qsizetype i = 0; i < line.size(); ++i) {
        if (line.at(i) == '"')
            quoted = !quoted;
        else if (line.at(i) == ':' && !quoted)
            return i;
    }
    return -1;
}

// The parameters after the property name, split at ";" outside double quotes, quotes removed.
QList<QByteArray> parameters(const QByteArray& head)
{
    QList<QByteArray> params;
    QByteArray current;
    bool quoted = false;
    for (const char c : head) {
        if (c == '"')
            quoted = !quoted;
        else if (c == ';' && !quoted) {
            params.append(current);
            current.clear();
        } else {
            current += c;
        }
    }
    params.append(current);
    params.removeFirst(); // the property name
    return params;
}

bool isQuotedPrintable(const QByteArray& line)
{
    const qsizetype colon = valueStart(line);
    return colon > 0 && line.left(colon).toUpper().contains("QUOTED-PRINTABLE");
}

// Logical lines: a line beginning with a blank or a tab continues the one before (folding), and a
// quoted-printable value ending in "=" goes on in the next line (a soft line break, as vCard 2.1 writes it).
QList<QByteArray> logicalLines(const QByteArray& bytes)
{
    QList<QByteArray> lines;
    bool softBreak = false;
    for (QByteArray raw : bytes.split('\n')) {
        if (raw.endsWith('\r'))
            raw.chop(1);
        if (softBreak) {
            lines.last().chop(1);
            lines.last() += raw;
        } else if (!lines.isEmpty() && (raw.startsWith(' ') || raw.startsWith('\t'))) {
            lines.last() += raw.mid(1);
        } else {
            lines.append(raw);
        }
        softBreak = lines.last().endsWith('=') && isQuotedPrintable(lines.last());
    }
    return lines;
}

QByteArray decodeQuotedPrintable(const QByteArray& value)
{
    const auto isHex = [](char c) { return std::isxdigit(static_cast<unsigned char>(c)) != 0; };
    QByteArray bytes;
    for (qsizetype i = 0; i < value.size(); ++i) {
        if (value.at(i) == '=' && i + 2 < value.size() && isHex(value.at(i + 1)) && isHex(value.at(i + 2))) {
            bytes += char(value.mid(i + 1, 2).toInt(nullptr, 16));
            i += 2;
        } else {
            bytes += value.at(i);
        }
    }
    return bytes;
}

// The value as text: quoted-printable decoded, then read in its CHARSET (UTF-8 when none is named).
QString decodeValue(const QList<QByteArray>& params, const QByteArray& value)
{
    QByteArray bytes = value;
    QByteArray charset("UTF-8");
    for (const QByteArray& param : params) {
        const QByteArray p = param.toUpper();
        if (p == "QUOTED-PRINTABLE" || p == "ENCODING=QUOTED-PRINTABLE")
            bytes = decodeQuotedPrintable(value);
        else if (p.startsWith("CHARSET="))
            charset = param.mid(8);
    }
    QStringDecoder decoder(charset.constData());
    if (!decoder.isValid())
        decoder = QStringDecoder(QStringDecoder::Utf8);
    return decoder.decode(bytes);
}

bool parse(const QByteArray& bytes, std::vector<Card>* cards, QString* error)
{
    bool inCard = false;
    int lineNo = 0;
    for (const QByteArray& line : logicalLines(bytes)) {
        ++lineNo;
        if (line.trimmed().isEmpty())
            continue;
        const qsizetype colon = valueStart(line);
        if (colon < 0) {
            *error = QStringLiteral("line %1 is not a vCard property: '%2'").arg(lineNo).arg(QString::fromUtf8(line));
            return false;
        }
        const QByteArray head = line.left(colon);
        const QList<QByteArray> params = parameters(head);
        QByteArray nameBytes = head.left(head.indexOf(';') < 0 ? head.size() : head.indexOf(';'));
        const QString name = QString::fromLatin1(nameBytes.mid(nameBytes.lastIndexOf('.') + 1)).toUpper();
        const QString value = decodeValue(params, line.mid(colon + 1)).trimmed();
        const QString paramText = QString::fromUtf8(params.join(';'));

        if (name == QLatin1String("BEGIN") && value.compare(QLatin1String("VCARD"), Qt::CaseInsensitive) == 0) {
            if (inCard) {
                *error = QStringLiteral("line %1: a card begins inside another").arg(lineNo);
                return false;
            }
            inCard = true;
            const ADDRBK_CONTACT_UID_S uid{ADDRBK_RECORD_TYPE_CONTACT, uint32_t(cards->size() + 1)};
            cards->push_back(Card{QString(), ADDRBK_ENG_Contact(uid)});
            continue;
        }
        if (!inCard) {
            *error = QStringLiteral("line %1 is outside BEGIN:VCARD .. END:VCARD").arg(lineNo);
            return false;
        }
        Card& card = cards->back();
        if (name == QLatin1String("END")) {
            inCard = false;
        } else if (name == QLatin1String("FN")) {
            card.name = unescape(value);
            card.contact.addElem(ADDRBK_FIELD_TYPE_NAME, ADDRBK_ATTR_TYPE_NONE, card.name);
        } else if (name == QLatin1String("TEL")) {
            card.contact.addElem(ADDRBK_FIELD_TYPE_TEL, telType(paramText), dialable(value));
        } else if (name == QLatin1String("EMAIL")) {
            card.contact.addElem(ADDRBK_FIELD_TYPE_EMAIL, emailType(paramText), unescape(value));
        }
    }
    if (inCard) {
        *error = QStringLiteral("the last card has no END:VCARD");
        return false;
    }
    if (cards->empty()) {
        *error = QStringLiteral("no BEGIN:VCARD in it");
        return false;
    }
    return true;
}

ADDRBK_ENG_RESULT_T search(ADDRBK_SEARCH_RESULT_S& result, const QString& address, ADDRBK_FIELD_TYPE_T field)
{
    for (const Card& card : s_cards) {
        for (const ADDRBK_ENG_ContactElem& elem : card.contact.elemsOfField(field)) {
            const bool match = field == ADDRBK_FIELD_TYPE_TEL
                                   ? elem.value == address
                                   : elem.value.compare(address, Qt::CaseInsensitive) == 0;
            if (!match)
                continue;
            result.contactUID = card.contact.uid();
            result.displayName = card.name.isEmpty() ? address : card.name;
            if (field == ADDRBK_FIELD_TYPE_TEL)
                result.matchedNumber = elem.value;
            else
                result.matchedEmail = elem.value;
            result.matchedAttrType = elem.attrType;
            return ADDRBK_ENG_RESULT_SUCCESS;
        }
    }
    return ADDRBK_ENG_RESULT_NOT_FOUND;
}

ADDRBK_ENG_RESULT_T searchByNumber(ADDRBK_SEARCH_RESULT_S& result, const QString& number)
{
    return search(result, number, ADDRBK_FIELD_TYPE_TEL);
}

ADDRBK_ENG_RESULT_T searchByEmail(ADDRBK_SEARCH_RESULT_S& result, const QString& email)
{
    return search(result, email, ADDRBK_FIELD_TYPE_EMAIL);
}

ADDRBK_ENG_RESULT_T getContact(ADDRBK_ENG_Contact*& contact, ADDRBK_RECORD_TYPE_T recordType, int index)
{
    if (recordType != ADDRBK_RECORD_TYPE_CONTACT || index < 1 || size_t(index) > s_cards.size())
        return ADDRBK_ENG_RESULT_NOT_FOUND;
    contact = &s_cards[size_t(index) - 1].contact;
    return ADDRBK_ENG_RESULT_SUCCESS;
}

} // namespace

bool installVCardAddressBook(const QString& path, QString* error)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        *error = QStringLiteral("cannot read contacts file '%1': %2").arg(path, file.errorString());
        return false;
    }
    std::vector<Card> cards;
    QString why;
    if (!parse(file.readAll(), &cards, &why)) {
        *error = QStringLiteral("contacts file '%1' is not a usable vCard file: %2").arg(path, why);
        return false;
    }
    s_cards = std::move(cards);
    MSGCTR_ENG_Addrbk::setAddrbkCallback(searchByNumber, searchByEmail, getContact);
    return true;
}

void removeVCardAddressBook()
{
    MSGCTR_ENG_Addrbk::setAddrbkCallback(nullptr, nullptr, nullptr);
    s_cards.clear();
}

} // namespace msgctr
