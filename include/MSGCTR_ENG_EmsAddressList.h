// Recipient lists as the user types them ("123 45; +4930 ,, a@b") and their canonical text ("12345,+4930,a@b":
// separated by ",", no white space, no empty entries). The list operations are static; an object iterates
// over one loaded text.
#pragma once

#include "msgctr_export.h"

#include <QString>
#include <QStringList>

class MSGCTR_EXPORT MSGCTR_ENG_EmsAddressList {
public:
    typedef bool (*AddrTypeTest)(const QString& address);

    MSGCTR_ENG_EmsAddressList();
    virtual ~MSGCTR_ENG_EmsAddressList();

    void loadSource(const QString& text);
    // False at the end of the list, leaving *address as it was.
    bool getAddress(QString* address);
    bool hasMoreAddress() const;

    static QStringList getRawAddrList(const QString& text);
    static QString join(const QStringList& addresses);
    static QString join(const QString& list1, const QString& list2);
    static QString marshalAddrList(const QString& text);

    // Addresses passing the test go to *mine, the others to *others, in list order; both are replaced.
    static void segregateMyAddrTypeFromOtherAddrType(QStringList* mine, QStringList* others, const QString& text,
                                                     AddrTypeTest test);
    static void segregateMyAddrTypeFromOtherAddrType(QString* mine, QString* others, const QString& text,
                                                     AddrTypeTest test);
    static void segregateEmsNumberTypeFromOtherAddrType(QStringList* numbers, QStringList* others,
                                                        const QString& text);
    static void segregateEmsNumberTypeFromOtherAddrType(QString* numbers, QString* others, const QString& text);

    static bool isValidForBeingSavedToSIMCard(const QString& address);

    // The address book's names for the addresses (the address itself where no contact matches).
    static QString toNameList(const QString& text, const QString& separator);
    // The same, cut to maxLength characters once the names reach it.
    static QString toNameList(const QString& text, int maxLength, const QString& separator);

private:
    QStringList m_addresses;
    int m_cursor;
    QString m_source;
};
