#include "MSGCTR_ENG_EncodeUti.h"

#include "MSGCTR_ENG_EmsAddressList.h"
#include "MSGCTR_ENG_StrUti.h"

#include "TAPI.h"

#include <QStringList>

#include <cstring>

static_assert(sizeof(TAPI_SMS_CACULATE_SM_RESULT_S) == 16, "segment-count result record is 16 bytes");
static_assert(MSGCTR_ENG_EncodeUti::MAX_CALCULATED_TEXT_LENGTH == TAPI_SMS_CACULATE_MAX_UNITS,
              "the calculator's buffer holds the longest text plus its terminating zero");

namespace {

// Offset of the segment count in the calculator's result record.
const int kSegmentCountOffset = 4;

struct Candidate {
    bool counts = false;
    qsizetype addressEnd = 0;
    MSGCTR_ENG_EncodeUti_EmailOverSmsInfo_S info;
};

// address body
Candidate spaceForm(const QString& text)
{
    Candidate c;
    const qsizetype p = text.indexOf(QLatin1Char(' '), 0, Qt::CaseSensitive);
    if (p < 0)
        return c;
    c.counts = true;
    c.addressEnd = p;
    c.info.emailAddress = text.left(p);
    c.info.subject = QLatin1String("");
    c.info.body = text.mid(p + 1);
    return c;
}

// address<open>subject<close>body
Candidate enclosedForm(const QString& text, const QString& open, const QString& close)
{
    Candidate c;
    const qsizetype p = text.indexOf(open, 0, Qt::CaseSensitive);
    if (p < 0)
        return c;
    const QString rest = text.mid(p + open.size());
    const qsizetype q = rest.indexOf(close, 0, Qt::CaseSensitive);
    if (q < 0)
        return c;
    c.counts = true;
    c.addressEnd = p;
    c.info.emailAddress = text.left(p);
    c.info.subject = rest.left(q);
    c.info.body = rest.mid(q + close.size());
    return c;
}

// Appends `text` to the request's buffer at *length.
void append(TAPI_SMS_CACULATE_SM_REQ_S* request, qsizetype* length, const QString& text)
{
    std::memcpy(request->text + *length, text.utf16(), size_t(text.size()) * sizeof(unsigned short));
    *length += text.size();
}

// The segment count of the e-mail-over-SMS text of one address, written straight into the calculator's
// request as subEncodeEmailOverSms4EmailAddr formats it: the text itself is never built. The re-decoding
// check of encodeEmailOverSms4EmailAddr is left out as it changes nothing.
bool countFormatted(int* count, const QString& emailAddress, const QString& subject, const QString& body)
{
    *count = MSGCTR_ENG_EncodeUti::INVALID_PACKET_NUM;
    const bool hasAddress = !emailAddress.isEmpty();
    const bool hasSubject = !subject.isEmpty();
    const qsizetype total = emailAddress.size() + (hasSubject ? subject.size() + 2 : 0)
                            + (hasAddress && !hasSubject ? 1 : 0) + body.size();
    if (total > MSGCTR_ENG_EncodeUti::MAX_CALCULATED_TEXT_LENGTH)
        return false;
    TAPI_SMS_CACULATE_SM_REQ_S request;
    qsizetype length = 0;
    append(&request, &length, emailAddress);
    if (hasSubject) {
        request.text[length++] = u'(';
        append(&request, &length, subject);
        request.text[length++] = u')';
    } else if (hasAddress) {
        request.text[length++] = u' ';
    }
    append(&request, &length, body);
    request.text[length] = 0;
    request.length = static_cast<unsigned short>(length);
    TAPI_SMS_CACULATE_SM_RESULT_S result;
    if (TAPI_SMS_CaculateSm(&request, &result) != TAPI_RESULT_SUCC)
        return false;
    *count = reinterpret_cast<const unsigned char*>(&result)[kSegmentCountOffset];
    return true;
}

} // namespace

MSGCTR_ENG_EncodeUti_EmailOverSmsInfo_S::MSGCTR_ENG_EncodeUti_EmailOverSmsInfo_S() = default;
MSGCTR_ENG_EncodeUti_EmailOverSmsInfo_S::~MSGCTR_ENG_EncodeUti_EmailOverSmsInfo_S() = default;
MSGCTR_ENG_EncodeUti_EmailOverSmsInfo_S::MSGCTR_ENG_EncodeUti_EmailOverSmsInfo_S(
    const MSGCTR_ENG_EncodeUti_EmailOverSmsInfo_S& other) = default;
MSGCTR_ENG_EncodeUti_EmailOverSmsInfo_S& MSGCTR_ENG_EncodeUti_EmailOverSmsInfo_S::operator=(
    const MSGCTR_ENG_EncodeUti_EmailOverSmsInfo_S& other) = default;

MSGCTR_ENG_EncodeUti::MSGCTR_ENG_EncodeUti() = default;
MSGCTR_ENG_EncodeUti::~MSGCTR_ENG_EncodeUti() = default;

bool MSGCTR_ENG_EncodeUti::getEncodePacketNum(int* count, const QString& text)
{
    *count = INVALID_PACKET_NUM;
    // Longer texts could not be sent anyway; the platform is not even asked.
    if (text.length() > MAX_CALCULATED_TEXT_LENGTH)
        return false;

    TAPI_SMS_CACULATE_SM_REQ_S request;
    request.length = static_cast<unsigned short>(MSGCTR_ENG_StrUti::copyToU16StrBufFromQStringWithTruncateWarning(
        request.text, MAX_CALCULATED_TEXT_LENGTH + 1, text));
    TAPI_SMS_CACULATE_SM_RESULT_S result;
    if (TAPI_SMS_CaculateSm(&request, &result) != TAPI_RESULT_SUCC)
        return false;
    *count = reinterpret_cast<const unsigned char*>(&result)[kSegmentCountOffset];
    return true;
}

bool MSGCTR_ENG_EncodeUti::smsMsgbodyIsTooLong(const QString& text)
{
    int count = INVALID_PACKET_NUM;
    if (!getEncodePacketNum(&count, text))
        return true;
    return count > MAX_PACKETS_PER_MESSAGE;
}

bool MSGCTR_ENG_EncodeUti::getEncodePacketNumForSend(int* count, const QString& addressList, const QString& subject,
                                                     const QString& body)
{
    QString numbers;
    QString emailAddresses;
    MSGCTR_ENG_EmsAddressList::segregateEmsNumberTypeFromOtherAddrType(&numbers, &emailAddresses, addressList);
    return countFormatted(count, emailAddresses, subject, body);
}

bool MSGCTR_ENG_EncodeUti::getMaxEncodePacketNumForSend(int* maximum, const QString& addressList,
                                                        const QString& subject, const QString& body)
{
    QStringList numbers;
    QStringList others;
    MSGCTR_ENG_EmsAddressList::segregateEmsNumberTypeFromOtherAddrType(&numbers, &others, addressList);
    // Without an e-mail recipient the plain text is counted once; with one, the numbers are not counted on
    // their own.
    if (others.isEmpty())
        others.append(QString(QLatin1String("")));

    *maximum = INVALID_PACKET_NUM;
    bool first = true;
    for (const QString& address : others) {
        // Each address is already one normalised non-number entry, so splitting it again as
        // getEncodePacketNumForSend does would give it back unchanged.
        int count = INVALID_PACKET_NUM;
        if (!countFormatted(&count, address, subject, body)) {
            *maximum = INVALID_PACKET_NUM;
            return false;
        }
        if (first || count > *maximum)
            *maximum = count;
        first = false;
    }
    return true;
}

void MSGCTR_ENG_EncodeUti::encodeEmailOverSms4SingleAddress(QString* numbers, QString* emailAddresses, QString* text,
                                                            const QString& addressList, const QString& subject,
                                                            const QString& body)
{
    encodeEmailOverSms(numbers, emailAddresses, text, addressList, subject, body);
}

void MSGCTR_ENG_EncodeUti::encodeEmailOverSms(QString* numbers, QString* emailAddresses, QString* text,
                                              const QString& addressList, const QString& subject,
                                              const QString& body)
{
    MSGCTR_ENG_EmsAddressList::segregateEmsNumberTypeFromOtherAddrType(numbers, emailAddresses, addressList);
    encodeEmailOverSms4EmailAddr(text, *emailAddresses, subject, body);
}

void MSGCTR_ENG_EncodeUti::encodeEmailOverSms4EmailAddr(QString* text, const QString& emailAddress,
                                                        const QString& subject, const QString& body)
{
    subEncodeEmailOverSms4EmailAddr(text, emailAddress, subject, body);
    if (emailAddress.isEmpty())
        return;
    // Whether the gateway will read the text back as written is checked but deliberately not acted upon:
    // the user's text is sent as typed.
    QString address;
    QString decodedSubject;
    QString decodedBody;
    subDecodeEmailOverSms(&address, &decodedSubject, &decodedBody, *text);
    const bool readsBack = MSGCTR_ENG_StrUti::qstrEquIgnoreNull(address, emailAddress)
                           && MSGCTR_ENG_StrUti::qstrEquIgnoreNull(decodedSubject, subject)
                           && MSGCTR_ENG_StrUti::qstrEquIgnoreNull(decodedBody, body);
    Q_UNUSED(readsBack)
}

void MSGCTR_ENG_EncodeUti::subEncodeEmailOverSms4EmailAddr(QString* text, const QString& emailAddress,
                                                           const QString& subject, const QString& body)
{
    QString result = QLatin1String("");
    if (!emailAddress.isEmpty())
        result += emailAddress;
    if (!subject.isEmpty())
        result += QLatin1Char('(') + subject + QLatin1Char(')');
    if (!emailAddress.isEmpty() && subject.isEmpty())
        result += QLatin1Char(' ');
    result += body;
    *text = result;
}

void MSGCTR_ENG_EncodeUti::decodeEmailOverSms(QString* emailAddress, QString* subject, QString* body,
                                              const QString& text)
{
    subDecodeEmailOverSms(emailAddress, subject, body, text);
}

void MSGCTR_ENG_EncodeUti::decodeEmailOverSms(QString* addressList, QString* subject, QString* body,
                                              const QString& senderAddress, const QString& text)
{
    QString emailAddress;
    subDecodeEmailOverSms(&emailAddress, subject, body, text);
    *addressList = MSGCTR_ENG_EmsAddressList::join(senderAddress, emailAddress);
}

void MSGCTR_ENG_EncodeUti::subDecodeEmailOverSms(QString* emailAddress, QString* subject, QString* body,
                                                 const QString& text)
{
    // In order of precedence on a tie.
    const Candidate candidates[] = {
        spaceForm(text),
        enclosedForm(text, QStringLiteral("("), QStringLiteral(")")),
        enclosedForm(text, QStringLiteral("##"), QStringLiteral("#")),
    };
    const Candidate* winner = nullptr;
    for (const Candidate& c : candidates) {
        if (c.counts && (!winner || c.addressEnd < winner->addressEnd))
            winner = &c;
    }
    if (!winner) {
        *emailAddress = QLatin1String("");
        *subject = QLatin1String("");
        *body = text;
        return;
    }
    *emailAddress = winner->info.emailAddress;
    *subject = winner->info.subject;
    *body = winner->info.body;
}

void MSGCTR_ENG_EncodeUti::decodeSimpleSubject(QString* subject, QString* body, const QString& text)
{
    *subject = QLatin1String("");
    *body = text;
    if (!text.startsWith(QLatin1Char('(')))
        return;
    const qsizetype q = text.indexOf(QLatin1Char(')'));
    if (q <= 1)
        return;
    *subject = text.mid(1, q - 1);
    *body = text.mid(q + 1);
}
