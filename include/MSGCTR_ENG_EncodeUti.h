// SMS segment counts for the composer and the sender, and the e-mail-over-SMS text: an e-mail address, a
// subject and a body packed into one SMS for the operator's e-mail gateway, as
//   address(subject)body   address body   (subject)body   body
// The segment count itself is the telephony platform's (alphabet choice and concatenation are its rules);
// this class owns the limits around it and the aggregation over several recipients.
#pragma once

#include "msgctr_export.h"

#include <QString>

// One reading of an e-mail-over-SMS text.
struct MSGCTR_EXPORT MSGCTR_ENG_EncodeUti_EmailOverSmsInfo_S {
    MSGCTR_ENG_EncodeUti_EmailOverSmsInfo_S();
    ~MSGCTR_ENG_EncodeUti_EmailOverSmsInfo_S();
    MSGCTR_ENG_EncodeUti_EmailOverSmsInfo_S(const MSGCTR_ENG_EncodeUti_EmailOverSmsInfo_S& other);
    MSGCTR_ENG_EncodeUti_EmailOverSmsInfo_S& operator=(const MSGCTR_ENG_EncodeUti_EmailOverSmsInfo_S& other);

    QString emailAddress;
    QString subject;
    QString body;
};

class MSGCTR_EXPORT MSGCTR_ENG_EncodeUti {
public:
    // Count meaning that no valid count exists.
    static const int INVALID_PACKET_NUM = 255;
    // Longest text handed to the platform's calculator, in UTF-16 units.
    static const int MAX_CALCULATED_TEXT_LENGTH = 3200;
    // Most segments one message may take.
    static const int MAX_PACKETS_PER_MESSAGE = 10;

    MSGCTR_ENG_EncodeUti();
    virtual ~MSGCTR_ENG_EncodeUti();

    // Segments the text takes; false with 255 when the text is too long to count or the platform fails.
    static bool getEncodePacketNum(int* count, const QString& text);
    // True when the text cannot go as one message: not countable, or more than 10 segments.
    static bool smsMsgbodyIsTooLong(const QString& text);
    // Segments of the text really sent to the address list (its e-mail addresses put in front of it).
    static bool getEncodePacketNumForSend(int* count, const QString& addressList, const QString& subject,
                                          const QString& body);
    // The most segments any one recipient's text takes; phone numbers count only when the list has no
    // e-mail address. False with 255 as soon as one recipient's count fails.
    static bool getMaxEncodePacketNumForSend(int* maximum, const QString& addressList, const QString& subject,
                                             const QString& body);

    // Splits the address list into phone numbers and other addresses (canonical list texts) and builds
    // the text from the other addresses, the subject and the body.
    static void encodeEmailOverSms4SingleAddress(QString* numbers, QString* emailAddresses, QString* text,
                                                 const QString& addressList, const QString& subject,
                                                 const QString& body);
    static void encodeEmailOverSms(QString* numbers, QString* emailAddresses, QString* text,
                                   const QString& addressList, const QString& subject, const QString& body);
    static void encodeEmailOverSms4EmailAddr(QString* text, const QString& emailAddress, const QString& subject,
                                             const QString& body);
    static void subEncodeEmailOverSms4EmailAddr(QString* text, const QString& emailAddress, const QString& subject,
                                                const QString& body);

    // Never fails: text without a marker gives an empty address and subject and the whole text as body.
    static void decodeEmailOverSms(QString* emailAddress, QString* subject, QString* body, const QString& text);
    // The address output is the sender's address list joined with the decoded address.
    static void decodeEmailOverSms(QString* addressList, QString* subject, QString* body,
                                   const QString& senderAddress, const QString& text);
    static void subDecodeEmailOverSms(QString* emailAddress, QString* subject, QString* body, const QString& text);
    // Only a leading "(subject)" with a non-empty subject is taken apart.
    static void decodeSimpleSubject(QString* subject, QString* body, const QString& text);
};
