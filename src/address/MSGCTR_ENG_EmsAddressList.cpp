#include "MSGCTR_ENG_EmsAddressList.h"

#include "MSGCTR_ENG_AddrTypeChk.h"
#include "MSGCTR_ENG_Addrbk.h"
#include "MSGCTR_ENG_StrUti.h"

#include <limits>

namespace {

const QLatin1Char kSeparator(',');

} // namespace

MSGCTR_ENG_EmsAddressList::MSGCTR_ENG_EmsAddressList() : m_cursor(0) {}

MSGCTR_ENG_EmsAddressList::~MSGCTR_ENG_EmsAddressList() = default;

void MSGCTR_ENG_EmsAddressList::loadSource(const QString& text)
{
    m_source = text;
    m_addresses = getRawAddrList(text);
    m_cursor = 0;
}

bool MSGCTR_ENG_EmsAddressList::getAddress(QString* address)
{
    if (!hasMoreAddress())
        return false;
    *address = m_addresses.at(m_cursor);
    ++m_cursor;
    return true;
}

bool MSGCTR_ENG_EmsAddressList::hasMoreAddress() const
{
    return m_cursor < MSGCTR_ENG_toSigned(static_cast<unsigned int>(m_addresses.size()));
}

QStringList MSGCTR_ENG_EmsAddressList::getRawAddrList(const QString& text)
{
    // A plain character replace: a pattern matcher finds nothing in a text that is not valid UTF-16.
    QString s = text.simplified();
    s.replace(QLatin1Char(';'), kSeparator);
    s = MSGCTR_ENG_StrUti::removeAllWhiteSpaceChars(s);
    return s.split(kSeparator, Qt::SkipEmptyParts);
}

QString MSGCTR_ENG_EmsAddressList::join(const QStringList& addresses)
{
    return addresses.join(kSeparator);
}

QString MSGCTR_ENG_EmsAddressList::join(const QString& list1, const QString& list2)
{
    return marshalAddrList(list1 + kSeparator + list2);
}

QString MSGCTR_ENG_EmsAddressList::marshalAddrList(const QString& text)
{
    return join(getRawAddrList(text));
}

void MSGCTR_ENG_EmsAddressList::segregateMyAddrTypeFromOtherAddrType(QStringList* mine, QStringList* others,
                                                                    const QString& text, AddrTypeTest test)
{
    mine->clear();
    others->clear();
    const QStringList addresses = getRawAddrList(text);
    for (const QString& address : addresses) {
        if (test(address))
            mine->append(address);
        else
            others->append(address);
    }
}

void MSGCTR_ENG_EmsAddressList::segregateMyAddrTypeFromOtherAddrType(QString* mine, QString* others,
                                                                    const QString& text, AddrTypeTest test)
{
    QStringList mineList;
    QStringList otherList;
    segregateMyAddrTypeFromOtherAddrType(&mineList, &otherList, text, test);
    *mine = join(mineList);
    *others = join(otherList);
}

void MSGCTR_ENG_EmsAddressList::segregateEmsNumberTypeFromOtherAddrType(QStringList* numbers, QStringList* others,
                                                                       const QString& text)
{
    segregateMyAddrTypeFromOtherAddrType(numbers, others, text, &MSGCTR_ENG_AddrTypeChk::isValidEmsNumber);
}

void MSGCTR_ENG_EmsAddressList::segregateEmsNumberTypeFromOtherAddrType(QString* numbers, QString* others,
                                                                       const QString& text)
{
    segregateMyAddrTypeFromOtherAddrType(numbers, others, text, &MSGCTR_ENG_AddrTypeChk::isValidEmsNumber);
}

bool MSGCTR_ENG_EmsAddressList::isValidForBeingSavedToSIMCard(const QString& address)
{
    return address.isEmpty() || MSGCTR_ENG_AddrTypeChk::isValidEmsNumber(address);
}

QString MSGCTR_ENG_EmsAddressList::toNameList(const QString& text, const QString& separator)
{
    return toNameList(text, std::numeric_limits<int>::max(), separator);
}

QString MSGCTR_ENG_EmsAddressList::toNameList(const QString& text, int maxLength, const QString& separator)
{
    QString names;
    const QStringList addresses = getRawAddrList(text);
    for (qsizetype i = 0; i < addresses.size(); ++i) {
        if (i > 0)
            names += separator;
        names += MSGCTR_ENG_Addrbk::getNameByAddress(addresses.at(i));
        if (names.size() >= maxLength) {
            names.truncate(MSGCTR_ENG_RetZeroOnNegative(maxLength));
            break;
        }
    }
    return names;
}
