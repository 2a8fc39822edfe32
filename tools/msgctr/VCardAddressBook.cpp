#include "VCardAddressBook.h"

#include "MSGCTR_ENG_Addrbk.h"

#include <QFile>
#include <QStringList>

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

// Unfolds continuation lines (those starting with a blank or a tab).
QStringList unfoldedLines(const QString& text)
{
    QStringList lines;
    const QStringList raw = QString(text).replace(QLatin1String("\r\n"), QLatin1String("\n")).split(QLatin1Char('\n'));
    for (const QString& line : raw) {
        if (!lines.isEmpty() && (line.startsWith(QLatin1Char(' ')) || line.startsWith(QLatin1Char('\t'))))
            lines.last() += line.mid(1);
        else
            lines.append(line);
    }
    return lines;
}

bool parse(const QString& text, std::vector<Card>* cards, QString* error)
{
    bool inCard = false;
    int lineNo = 0;
    for (const QString& line : unfoldedLines(text)) {
        ++lineNo;
        if (line.trimmed().isEmpty())
            continue;
        const qsizetype colon = line.indexOf(QLatin1Char(':'));
        if (colon < 0) {
            *error = QStringLiteral("line %1 is not a vCard property: '%2'").arg(lineNo).arg(line);
            return false;
        }
        QString name = line.left(colon);
        QString params;
        const qsizetype semicolon = name.indexOf(QLatin1Char(';'));
        if (semicolon >= 0) {
            params = name.mid(semicolon + 1);
            name.truncate(semicolon);
        }
        name = name.mid(name.lastIndexOf(QLatin1Char('.')) + 1).toUpper();
        const QString value = line.mid(colon + 1).trimmed();

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
            card.contact.addElem(ADDRBK_FIELD_TYPE_TEL, telType(params), dialable(value));
        } else if (name == QLatin1String("EMAIL")) {
            card.contact.addElem(ADDRBK_FIELD_TYPE_EMAIL, emailType(params), unescape(value));
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
    if (!parse(QString::fromUtf8(file.readAll()), &cards, &why)) {
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
