// E-mail-over-SMS texts: every text decodes into pieces of itself, and what the encoder builds from an
// address, a subject and a body the gateway can tell apart decodes to the same three fields.
#include "FuzzSupport.h"

#include "MSGCTR_ENG_EmsAddressList.h"
#include "MSGCTR_ENG_EncodeUti.h"

namespace {

void checkDecode(const QString& text, const QString& sender)
{
    QString address;
    QString subject;
    QString body;
    MSGCTR_ENG_EncodeUti::decodeEmailOverSms(&address, &subject, &body, text);
    FUZZ_CHECK(!address.isNull() && !subject.isNull());
    if (address.isEmpty() && subject.isEmpty()) {
        // No marker, or one at the very start around an empty subject.
        FUZZ_CHECK(text.endsWith(body));
    } else {
        FUZZ_CHECK(text.startsWith(address));
        FUZZ_CHECK(text.endsWith(body));
        FUZZ_CHECK(text.mid(address.size()).contains(subject));
        FUZZ_CHECK(address.size() + subject.size() + body.size() < text.size());
    }
    if (address.isEmpty() && subject.isEmpty() && !text.contains(QLatin1Char(' '))
        && !text.contains(QLatin1Char('(')) && !text.contains(QLatin1String("##")))
        FUZZ_CHECK(body == text);

    QString list;
    QString subject2;
    QString body2;
    MSGCTR_ENG_EncodeUti::decodeEmailOverSms(&list, &subject2, &body2, sender, text);
    FUZZ_CHECK(list == MSGCTR_ENG_EmsAddressList::join(sender, address));
    FUZZ_CHECK(subject2 == subject && body2 == body);

    QString simpleSubject;
    QString simpleBody;
    MSGCTR_ENG_EncodeUti::decodeSimpleSubject(&simpleSubject, &simpleBody, text);
    if (simpleSubject.isEmpty())
        FUZZ_CHECK(simpleBody == text);
    else
        FUZZ_CHECK(text == QLatin1Char('(') + simpleSubject + QLatin1Char(')') + simpleBody
                   && !simpleSubject.contains(QLatin1Char(')')));
}

// An address the decoder cannot cut short and a subject it cannot end early.
bool separable(const QString& address, const QString& subject)
{
    return !address.isEmpty() && !address.contains(QLatin1Char(' ')) && !address.contains(QLatin1Char('('))
           && !address.contains(QLatin1String("##")) && !subject.contains(QLatin1Char(')'))
;
}

void checkEncode(const QString& addressList, const QString& subject, const QString& body)
{
    QString numbers;
    QString others;
    QString text;
    MSGCTR_ENG_EncodeUti::encodeEmailOverSms(&numbers, &others, &text, addressList, subject, body);
    QString expectedNumbers;
    QString expectedOthers;
    MSGCTR_ENG_EmsAddressList::segregateEmsNumberTypeFromOtherAddrType(&expectedNumbers, &expectedOthers,
                                                                      addressList);
    FUZZ_CHECK(numbers == expectedNumbers && others == expectedOthers);

    QString single;
    MSGCTR_ENG_EncodeUti::encodeEmailOverSms4EmailAddr(&single, others, subject, body);
    FUZZ_CHECK(single == text);
    QString expected = others;
    if (!subject.isEmpty())
        expected += QLatin1Char('(') + subject + QLatin1Char(')');
    else if (!others.isEmpty())
        expected += QLatin1Char(' ');
    FUZZ_CHECK(text == expected + body);

    if (separable(others, subject)) {
        QString address;
        QString decodedSubject;
        QString decodedBody;
        MSGCTR_ENG_EncodeUti::decodeEmailOverSms(&address, &decodedSubject, &decodedBody, text);
        FUZZ_CHECK(address == others && decodedSubject == subject && decodedBody == body);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    fuzz::init();
    fuzz::Input input(data, size);
    const QString first = fuzz::text(input.field());
    const QString second = fuzz::text(input.field());
    const QString third = fuzz::text(input.rest());
    checkDecode(first, second);
    checkDecode(third, first);
    checkEncode(first, second, third);
    fuzz::takeReportCount();
    return 0;
}
