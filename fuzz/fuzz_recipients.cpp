// Recipient lists as users type them: normalising, splitting into numbers and other addresses, and the
// address type checks, each held against a plain model of its rule.
#include "FuzzSupport.h"

#include "MSGCTR_ENG_AddrTypeChk.h"
#include "MSGCTR_ENG_AddrUti.h"
#include "MSGCTR_ENG_EmsAddressList.h"

#include <QStringList>

namespace {

bool modelIsNumber(const QString& text)
{
    if (text.isEmpty())
        return false;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const char16_t c = text.at(i).unicode();
        if (!(c >= u'0' && c <= u'9') && !(i == 0 && c == u'+'))
            return false;
    }
    return true;
}

bool modelIsEmail(const QString& text)
{
    return text.count(QLatin1Char('@')) == 1 && !text.startsWith(QLatin1Char('@'))
           && !text.endsWith(QLatin1Char('@'));
}

void checkTypeTests(const QString& text)
{
    FUZZ_CHECK(MSGCTR_ENG_AddrTypeChk::isNumber(text) == modelIsNumber(text));
    const bool ems = modelIsNumber(text) && text.size() <= MSGCTR_ENG_AddrTypeChk::MAX_EMS_NUMBER_LENGTH;
    FUZZ_CHECK(MSGCTR_ENG_AddrTypeChk::isValidEmsNumber(text) == ems);
    FUZZ_CHECK(MSGCTR_ENG_AddrTypeChk::isValidNumber(text) == ems);
    FUZZ_CHECK(MSGCTR_ENG_EmsAddressList::isValidForBeingSavedToSIMCard(text) == (text.isEmpty() || ems));
    FUZZ_CHECK(MSGCTR_ENG_AddrTypeChk::isValidEmailAddress(text) == modelIsEmail(text));
    QString noHyphen = text;
    noHyphen.remove(QLatin1Char('-'));
    FUZZ_CHECK(MSGCTR_ENG_AddrUti::cloneWithRemovingHyphen(text) == noHyphen);
}

void checkList(const QString& text)
{
    const QStringList addresses = MSGCTR_ENG_EmsAddressList::getRawAddrList(text);
    const QString canonical = MSGCTR_ENG_EmsAddressList::marshalAddrList(text);
    FUZZ_CHECK(canonical == addresses.join(QLatin1Char(',')));
    FUZZ_CHECK(MSGCTR_ENG_EmsAddressList::marshalAddrList(canonical) == canonical);
    FUZZ_CHECK(MSGCTR_ENG_EmsAddressList::getRawAddrList(canonical) == addresses);
    for (const QString& address : addresses) {
        FUZZ_CHECK(!address.isEmpty());
        FUZZ_CHECK(!address.contains(QLatin1Char(',')) && !address.contains(QLatin1Char(';')));
        for (const QChar c : address)
            FUZZ_CHECK(!c.isSpace());
        checkTypeTests(address);
    }

    MSGCTR_ENG_EmsAddressList iterator;
    iterator.loadSource(text);
    QStringList walked;
    QString address;
    while (iterator.getAddress(&address))
        walked.append(address);
    FUZZ_CHECK(walked == addresses);
    FUZZ_CHECK(!iterator.hasMoreAddress());

    // Splitting keeps every address once, in list order, on the side its test puts it.
    QStringList numbers;
    QStringList others;
    MSGCTR_ENG_EmsAddressList::segregateEmsNumberTypeFromOtherAddrType(&numbers, &others, text);
    qsizetype n = 0;
    qsizetype o = 0;
    for (const QString& a : addresses) {
        if (MSGCTR_ENG_AddrTypeChk::isValidEmsNumber(a)) {
            FUZZ_CHECK(n < numbers.size() && numbers.at(n++) == a);
        } else {
            FUZZ_CHECK(o < others.size() && others.at(o++) == a);
        }
    }
    FUZZ_CHECK(n == numbers.size() && o == others.size());
    QString numberText;
    QString otherText;
    MSGCTR_ENG_EmsAddressList::segregateEmsNumberTypeFromOtherAddrType(&numberText, &otherText, text);
    FUZZ_CHECK(numberText == numbers.join(QLatin1Char(',')));
    FUZZ_CHECK(otherText == others.join(QLatin1Char(',')));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    fuzz::init();
    fuzz::Input input(data, size);
    const QString first = fuzz::text(input.field());
    const QString second = fuzz::text(input.rest());
    checkTypeTests(first);
    checkList(first);
    checkList(second);

    // Joining two lists is normalising their concatenation.
    const QString a = MSGCTR_ENG_EmsAddressList::marshalAddrList(first);
    const QString b = MSGCTR_ENG_EmsAddressList::marshalAddrList(second);
    const QString joined = MSGCTR_ENG_EmsAddressList::join(first, second);
    FUZZ_CHECK(joined == (a.isEmpty() || b.isEmpty() ? a + b : a + QLatin1Char(',') + b));
    fuzz::takeReportCount();
    return 0;
}
