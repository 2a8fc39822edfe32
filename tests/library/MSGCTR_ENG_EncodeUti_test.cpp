#include "HostRootTest.h"
#include "RowName.h"

#include "MSGCTR_ENG_EncodeUti.h"
#include "MSGCTR_ENG_EmsAddressList.h"

#include "ZorHostControl.h"

#include <QStringList>

#include <random>

namespace {

const QString kCalculator = QStringLiteral("TAPI_SMS_CaculateSm");

int calculatorCalls()
{
    return ZorHost::callCount(kCalculator);
}

// ---- segment counts -------------------------------------------------------------------------------------

struct CountCase {
    int length;
    char16_t unit;
    int segments;
};

class PacketNumTest : public HostRootTest, public ::testing::WithParamInterface<CountCase> {};

TEST_P(PacketNumTest, CountsThroughThePlatform)
{
    int count = -1;
    EXPECT_TRUE(MSGCTR_ENG_EncodeUti::getEncodePacketNum(&count, QString(GetParam().length, QChar(GetParam().unit))));
    EXPECT_EQ(count, GetParam().segments);
    EXPECT_EQ(calculatorCalls(), 1);
}

INSTANTIATE_TEST_SUITE_P(Table, PacketNumTest,
                         ::testing::Values(CountCase{0, u'a', 1}, CountCase{160, u'a', 1}, CountCase{161, u'a', 2},
                                           CountCase{1530, u'a', 10}, CountCase{1531, u'a', 11},
                                           CountCase{70, u'\u4e2d', 1}, CountCase{71, u'\u4e2d', 2},
                                           CountCase{3200, u'a', 21}, CountCase{3200, u'\u4e2d', 48}),
                         [](const auto& info) { return rowName(info.param.length, info.param.unit == u'a' ? "Gsm" : "Unicode"); });

TEST_F(HostRootTest, TextOf3200CharactersGoesToThePlatform)
{
    int count = -1;
    EXPECT_TRUE(MSGCTR_ENG_EncodeUti::getEncodePacketNum(&count, QString(3200, QLatin1Char('x'))));
    EXPECT_EQ(count, 21);
    EXPECT_EQ(calculatorCalls(), 1);
}

TEST_F(HostRootTest, LastOf3200CharactersIsCountedToo)
{
    // Only the last character forces UCS-2: cut off, the text would count as 21 GSM segments.
    int count = -1;
    EXPECT_TRUE(MSGCTR_ENG_EncodeUti::getEncodePacketNum(&count, QString(3199, QLatin1Char('a')) + QChar(0x4e2d)));
    EXPECT_EQ(count, 48);
    EXPECT_EQ(calculatorCalls(), 1);
    EXPECT_TRUE(reportLines().isEmpty());
}

TEST_F(HostRootTest, TextOf3201CharactersIsRefusedWithoutCall)
{
    int count = -1;
    EXPECT_FALSE(MSGCTR_ENG_EncodeUti::getEncodePacketNum(&count, QString(3201, QLatin1Char('x'))));
    EXPECT_EQ(count, 255);
    EXPECT_EQ(calculatorCalls(), 0);
    EXPECT_TRUE(MSGCTR_ENG_EncodeUti::smsMsgbodyIsTooLong(QString(3201, QLatin1Char('x'))));
    EXPECT_EQ(calculatorCalls(), 0);
}

TEST_F(HostRootTest, PlatformFailureGives255)
{
    ZorHost::injectFault(kCalculator, 22, 1);
    int count = -1;
    EXPECT_FALSE(MSGCTR_ENG_EncodeUti::getEncodePacketNum(&count, QStringLiteral("hello")));
    EXPECT_EQ(count, 255);
    ZorHost::injectFault(kCalculator, 5, 1);
    EXPECT_TRUE(MSGCTR_ENG_EncodeUti::smsMsgbodyIsTooLong(QStringLiteral("hello")));
    EXPECT_FALSE(MSGCTR_ENG_EncodeUti::smsMsgbodyIsTooLong(QStringLiteral("hello")));
}

TEST_F(HostRootTest, TenSegmentsAreNotTooLongElevenAre)
{
    EXPECT_FALSE(MSGCTR_ENG_EncodeUti::smsMsgbodyIsTooLong(QString(1530, QLatin1Char('a'))));
    EXPECT_TRUE(MSGCTR_ENG_EncodeUti::smsMsgbodyIsTooLong(QString(1531, QLatin1Char('a'))));
    EXPECT_FALSE(MSGCTR_ENG_EncodeUti::smsMsgbodyIsTooLong(QString()));
}

TEST_F(HostRootTest, CountForSendCountsTheEncodedText)
{
    int count = -1;
    // "a@b(Hi)" + 153 characters = 160: one segment; the bare body alone would fit too, one more does not.
    EXPECT_TRUE(MSGCTR_ENG_EncodeUti::getEncodePacketNumForSend(&count, QStringLiteral("123, a@b"), QStringLiteral("Hi"),
                                                                QString(153, QLatin1Char('b'))));
    EXPECT_EQ(count, 1);
    EXPECT_TRUE(MSGCTR_ENG_EncodeUti::getEncodePacketNumForSend(&count, QStringLiteral("123, a@b"), QStringLiteral("Hi"),
                                                                QString(154, QLatin1Char('b'))));
    EXPECT_EQ(count, 2);
}

TEST_F(HostRootTest, NumbersOnlyCountTheBareBodyOnce)
{
    int maximum = -1;
    EXPECT_TRUE(MSGCTR_ENG_EncodeUti::getMaxEncodePacketNumForSend(
        &maximum, QStringLiteral("123;456, +4930"), QStringLiteral("Hi"), QString(1530, QLatin1Char('a'))));
    // The subject is part of the text even without an e-mail address: "(Hi)" + 1530 characters.
    EXPECT_EQ(maximum, 11);
    EXPECT_EQ(calculatorCalls(), 1);

    EXPECT_TRUE(MSGCTR_ENG_EncodeUti::getMaxEncodePacketNumForSend(&maximum, QString(), QString(),
                                                                   QString(161, QLatin1Char('a'))));
    EXPECT_EQ(maximum, 2);
    EXPECT_EQ(calculatorCalls(), 2);
}

TEST_F(HostRootTest, NumbersOnlyCountTheBodyWithoutTheNumbers)
{
    // 160 characters fill one segment exactly: any number put in front of them would make two.
    int maximum = -1;
    EXPECT_TRUE(MSGCTR_ENG_EncodeUti::getMaxEncodePacketNumForSend(&maximum, QStringLiteral("123;456, +4930"),
                                                                   QString(), QString(160, QLatin1Char('a'))));
    EXPECT_EQ(maximum, 1);
    EXPECT_EQ(calculatorCalls(), 1);
}

TEST_F(HostRootTest, MaximumIsTakenOverEmailRecipientsOnly)
{
    int maximum = -1;
    // "a@b " + 158 = 162 characters (two segments); a number's bare body of 158 would take one.
    EXPECT_TRUE(MSGCTR_ENG_EncodeUti::getMaxEncodePacketNumForSend(&maximum, QStringLiteral("123,a@b"), QString(),
                                                                   QString(158, QLatin1Char('a'))));
    EXPECT_EQ(maximum, 2);
    EXPECT_EQ(calculatorCalls(), 1);
}

TEST_F(HostRootTest, MaximumOverSeveralEmailRecipients)
{
    int maximum = -1;
    const QString longAddress = QString(300, QLatin1Char('l')) + QStringLiteral("@example");
    EXPECT_TRUE(MSGCTR_ENG_EncodeUti::getMaxEncodePacketNumForSend(
        &maximum, QStringLiteral("a@b,") + longAddress + QStringLiteral(",c@d"), QString(), QStringLiteral("body")));
    EXPECT_EQ(maximum, 3);  // 309 + 4 characters
    EXPECT_EQ(calculatorCalls(), 3);
}

TEST_F(HostRootTest, OneFailingRecipientFailsTheWholeCount)
{
    int maximum = -1;
    const QString overlong = QString(3190, QLatin1Char('l')) + QStringLiteral("@example");
    EXPECT_FALSE(MSGCTR_ENG_EncodeUti::getMaxEncodePacketNumForSend(
        &maximum, QStringLiteral("a@b,") + overlong + QStringLiteral(",c@d"), QString(), QStringLiteral("body")));
    EXPECT_EQ(maximum, 255);
    EXPECT_EQ(calculatorCalls(), 1);  // the overlong text was refused without a call, c@d never counted

    ZorHost::injectFault(kCalculator, 22, 1);
    EXPECT_FALSE(MSGCTR_ENG_EncodeUti::getMaxEncodePacketNumForSend(&maximum, QStringLiteral("a@b,c@d"), QString(),
                                                                    QStringLiteral("body")));
    EXPECT_EQ(maximum, 255);
    EXPECT_EQ(calculatorCalls(), 2);
}

// ---- e-mail-over-SMS text -------------------------------------------------------------------------------

struct EncodeCase {
    const char* address;
    const char* subject;
    const char* body;
    const char* text;
};

void PrintTo(const EncodeCase& c, std::ostream* os)
{
    *os << '"' << c.text << '"';
}

class EncodeTest : public HostRootTest, public ::testing::WithParamInterface<EncodeCase> {};

TEST_P(EncodeTest, FormatsText)
{
    const EncodeCase& c = GetParam();
    QString text = QStringLiteral("stale");
    MSGCTR_ENG_EncodeUti::encodeEmailOverSms4EmailAddr(&text, QString::fromUtf8(c.address),
                                                       QString::fromUtf8(c.subject), QString::fromUtf8(c.body));
    EXPECT_EQ(text, QString::fromUtf8(c.text));
    QString sub = QStringLiteral("stale");
    MSGCTR_ENG_EncodeUti::subEncodeEmailOverSms4EmailAddr(&sub, QString::fromUtf8(c.address),
                                                          QString::fromUtf8(c.subject), QString::fromUtf8(c.body));
    EXPECT_EQ(sub, text);
    EXPECT_TRUE(reportLines().isEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    Table, EncodeTest,
    ::testing::Values(EncodeCase{"user@example", "Hi", "Text", "user@example(Hi)Text"},
                      EncodeCase{"user@example", "", "Text", "user@example Text"},
                      EncodeCase{"", "Hi", "Text", "(Hi)Text"}, EncodeCase{"", "", "Text", "Text"},
                      EncodeCase{"", "", "", ""}, EncodeCase{"a@b", "", "", "a@b "},
                      EncodeCase{"a@b", "S", "", "a@b(S)"},
                      // written as given even when it will not read back the same
                      EncodeCase{"a b@c", "", "x", "a b@c x"}, EncodeCase{"a@b", "x)y", "z", "a@b(x)y)z"}),
                         [](const auto& info) { return rowName(info.param.text); });

TEST_F(HostRootTest, EncodingSplitsNumbersFromEmailAddresses)
{
    QString numbers;
    QString emails;
    QString text;
    MSGCTR_ENG_EncodeUti::encodeEmailOverSms(&numbers, &emails, &text, QStringLiteral(" 123, user@example ;456"),
                                             QStringLiteral("Hi"), QStringLiteral("Text"));
    EXPECT_EQ(numbers, QStringLiteral("123,456"));
    EXPECT_EQ(emails, QStringLiteral("user@example"));
    EXPECT_EQ(text, QStringLiteral("user@example(Hi)Text"));

    MSGCTR_ENG_EncodeUti::encodeEmailOverSms4SingleAddress(&numbers, &emails, &text, QStringLiteral("a@b;c@d"),
                                                           QString(), QStringLiteral("T"));
    EXPECT_EQ(numbers, QString());
    EXPECT_EQ(emails, QStringLiteral("a@b,c@d"));
    EXPECT_EQ(text, QStringLiteral("a@b,c@d T"));

    MSGCTR_ENG_EncodeUti::encodeEmailOverSms(&numbers, &emails, &text, QStringLiteral("123"), QString(),
                                             QStringLiteral("T"));
    EXPECT_EQ(numbers, QStringLiteral("123"));
    EXPECT_EQ(emails, QString());
    EXPECT_EQ(text, QStringLiteral("T"));
}

struct DecodeCase {
    const char* text;
    const char* address;
    const char* subject;
    const char* body;
};

void PrintTo(const DecodeCase& c, std::ostream* os)
{
    *os << '"' << c.text << '"';
}

class DecodeTest : public HostRootTest, public ::testing::WithParamInterface<DecodeCase> {};

TEST_P(DecodeTest, ParsesEarliestEndingForm)
{
    const DecodeCase& c = GetParam();
    QString address = QStringLiteral("stale");
    QString subject = QStringLiteral("stale");
    QString body = QStringLiteral("stale");
    MSGCTR_ENG_EncodeUti::subDecodeEmailOverSms(&address, &subject, &body, QString::fromUtf8(c.text));
    EXPECT_EQ(address, QString::fromUtf8(c.address));
    EXPECT_EQ(subject, QString::fromUtf8(c.subject));
    EXPECT_EQ(body, QString::fromUtf8(c.body));

    MSGCTR_ENG_EncodeUti::decodeEmailOverSms(&address, &subject, &body, QString::fromUtf8(c.text));
    EXPECT_EQ(address, QString::fromUtf8(c.address));
    EXPECT_EQ(subject, QString::fromUtf8(c.subject));
    EXPECT_EQ(body, QString::fromUtf8(c.body));
}

INSTANTIATE_TEST_SUITE_P(
    Table, DecodeTest,
    ::testing::Values(
        DecodeCase{"user@example(Hi) there", "user@example", "Hi", " there"},
        DecodeCase{"user@example Text", "user@example", "", "Text"},
        DecodeCase{"(Hi)Text", "", "Hi", "Text"},
        DecodeCase{"x##s#body y", "x", "s", "body y"},
        DecodeCase{"x y##s#b", "x", "", "y##s#b"},          // space before "##"
        DecodeCase{"x(a##s#b)", "x", "a##s#b", ""},         // "(" before "##"
        DecodeCase{"x##s(t)#b", "x", "s(t)", "b"},          // "##" before "("
        DecodeCase{"x##s #b", "x", "s ", "b"},              // "##" before the space
        DecodeCase{"x###y", "x", "", "y"},
        DecodeCase{"##s#b", "", "s", "b"},
        DecodeCase{"plain", "", "", "plain"},
        DecodeCase{"", "", "", ""},
        DecodeCase{"a(b", "", "", "a(b"},                   // unclosed: no candidate
        DecodeCase{"a##b", "", "", "a##b"},
        DecodeCase{"a(b c", "a(b", "", "c"},                // the unclosed "(" does not count
        DecodeCase{"a##b c", "a##b", "", "c"},
        DecodeCase{" lead", "", "", "lead"},
        DecodeCase{"a(b)c(d)e", "a", "b", "c(d)e"},
        DecodeCase{"a()b", "a", "", "b"},
        DecodeCase{"a)b(c", "", "", "a)b(c"},
        DecodeCase{"\xc3\xa9@x(\xe2\x82\xac)\xe4\xb8\xad", "\xc3\xa9@x", "\xe2\x82\xac", "\xe4\xb8\xad"}),
                         [](const auto& info) { return rowName(info.param.text); });

TEST_F(HostRootTest, DecodedEmptyPartsAreEmptyNotNull)
{
    QString address;
    QString subject;
    QString body;
    MSGCTR_ENG_EncodeUti::subDecodeEmailOverSms(&address, &subject, &body, QStringLiteral("plain"));
    EXPECT_FALSE(address.isNull());
    EXPECT_FALSE(subject.isNull());
    EXPECT_TRUE(address.isEmpty());
    EXPECT_TRUE(subject.isEmpty());
}

struct SenderCase {
    const char* sender;
    const char* text;
    const char* addressList;
};

class DecodeWithSenderTest : public HostRootTest, public ::testing::WithParamInterface<SenderCase> {};

TEST_P(DecodeWithSenderTest, JoinsSenderAndDecodedAddress)
{
    QString list;
    QString subject;
    QString body;
    MSGCTR_ENG_EncodeUti::decodeEmailOverSms(&list, &subject, &body, QString::fromUtf8(GetParam().sender),
                                             QString::fromUtf8(GetParam().text));
    EXPECT_EQ(list, QString::fromUtf8(GetParam().addressList));
}

INSTANTIATE_TEST_SUITE_P(Table, DecodeWithSenderTest,
                         ::testing::Values(SenderCase{"6245", "x@y(Hi)T", "6245,x@y"},
                                           SenderCase{"", "x@y(Hi)T", "x@y"},
                                           SenderCase{"6245", "plain", "6245"},
                                           SenderCase{" 62 45 ;", "x@y T", "6245,x@y"}),
                         [](const auto& info) { return rowName(info.param.sender, info.param.text); });

TEST_F(HostRootTest, DecodeWithSenderKeepsSubjectAndBody)
{
    QString list;
    QString subject;
    QString body;
    MSGCTR_ENG_EncodeUti::decodeEmailOverSms(&list, &subject, &body, QStringLiteral("6245"),
                                             QStringLiteral("x@y(Hi) there"));
    EXPECT_EQ(subject, QStringLiteral("Hi"));
    EXPECT_EQ(body, QStringLiteral(" there"));
}

struct SimpleSubjectCase {
    const char* text;
    const char* subject;
    const char* body;
};

class SimpleSubjectTest : public HostRootTest, public ::testing::WithParamInterface<SimpleSubjectCase> {};

TEST_P(SimpleSubjectTest, TakesLeadingSubjectOnly)
{
    QString subject = QStringLiteral("stale");
    QString body = QStringLiteral("stale");
    MSGCTR_ENG_EncodeUti::decodeSimpleSubject(&subject, &body, QString::fromUtf8(GetParam().text));
    EXPECT_EQ(subject, QString::fromUtf8(GetParam().subject));
    EXPECT_EQ(body, QString::fromUtf8(GetParam().body));
}

INSTANTIATE_TEST_SUITE_P(Table, SimpleSubjectTest,
                         ::testing::Values(SimpleSubjectCase{"(Hi)Text", "Hi", "Text"},
                                           SimpleSubjectCase{"()Text", "", "()Text"},
                                           SimpleSubjectCase{"(Hi", "", "(Hi"},
                                           SimpleSubjectCase{"x(Hi)y", "", "x(Hi)y"},
                                           SimpleSubjectCase{"(a)", "a", ""},
                                           SimpleSubjectCase{"(a)(b)c", "a", "(b)c"},
                                           SimpleSubjectCase{"(a b) c", "a b", " c"},
                                           SimpleSubjectCase{"", "", ""}),
                         [](const auto& info) { return rowName(info.param.text); });

TEST_F(HostRootTest, InfoRecordStartsNullAndCopiesMemberwise)
{
    MSGCTR_ENG_EncodeUti_EmailOverSmsInfo_S info;
    EXPECT_TRUE(info.emailAddress.isNull());
    EXPECT_TRUE(info.subject.isNull());
    EXPECT_TRUE(info.body.isNull());
    info.emailAddress = QStringLiteral("a@b");
    info.subject = QStringLiteral("s");
    info.body = QStringLiteral("b");
    MSGCTR_ENG_EncodeUti_EmailOverSmsInfo_S copy;
    copy = info;
    EXPECT_EQ(copy.emailAddress, QStringLiteral("a@b"));
    EXPECT_EQ(copy.subject, QStringLiteral("s"));
    EXPECT_EQ(copy.body, QStringLiteral("b"));
}

// ---- round trip over generated inputs -------------------------------------------------------------------

QString randomText(std::mt19937& rng, const QString& alphabet, int maxLength)
{
    std::uniform_int_distribution<int> lengthDist(0, maxLength);
    std::uniform_int_distribution<int> charDist(0, int(alphabet.size()) - 1);
    QString s;
    const int n = lengthDist(rng);
    for (int i = 0; i < n; ++i)
        s += alphabet.at(charDist(rng));
    return s;
}

TEST_F(HostRootTest, DecodeGivesBackWhatWasEncoded)
{
    std::mt19937 rng(20061231);
    // Every marker is in the alphabet, so the generator also makes addresses ending in "#" before subjects
    // starting with "#", subjects with spaces and "(", bodies with every marker.
    const QString alphabet = QStringLiteral("ab@.-_#()  x1+\u00e9\u4e2d;,");
    int checked = 0;
    while (checked < 4000) {
        const QString address = randomText(rng, alphabet, 12);
        const QString subject = randomText(rng, alphabet, 8);
        const QString body = randomText(rng, alphabet, 20);
        if (address.isEmpty() || address.contains(QLatin1Char(' ')) || address.contains(QLatin1Char('('))
            || address.contains(QLatin1String("##")) || subject.contains(QLatin1Char(')')))
            continue;
        ++checked;
        QString text;
        MSGCTR_ENG_EncodeUti::subEncodeEmailOverSms4EmailAddr(&text, address, subject, body);
        QString a;
        QString s;
        QString b;
        MSGCTR_ENG_EncodeUti::subDecodeEmailOverSms(&a, &s, &b, text);
        ASSERT_EQ(a, address) << qPrintable(text);
        ASSERT_EQ(s, subject) << qPrintable(text);
        ASSERT_EQ(b, body) << qPrintable(text);
    }
}

// The counts for sending are taken without building each recipient's text; this is the way they were
// first computed, through the encoder and the plain count, which they must match on every input.
bool referenceCountForSend(int* count, const QString& addressList, const QString& subject, const QString& body)
{
    QString numbers;
    QString emailAddresses;
    QString text;
    MSGCTR_ENG_EncodeUti::encodeEmailOverSms4SingleAddress(&numbers, &emailAddresses, &text, addressList, subject,
                                                           body);
    return MSGCTR_ENG_EncodeUti::getEncodePacketNum(count, text);
}

bool referenceMaximumForSend(int* maximum, const QString& addressList, const QString& subject, const QString& body)
{
    QStringList numbers;
    QStringList others;
    MSGCTR_ENG_EmsAddressList::segregateEmsNumberTypeFromOtherAddrType(&numbers, &others, addressList);
    if (others.isEmpty())
        others.append(QLatin1String(""));
    *maximum = 255;
    bool first = true;
    for (const QString& address : others) {
        int count = 255;
        if (!referenceCountForSend(&count, address, subject, body)) {
            *maximum = 255;
            return false;
        }
        if (first || count > *maximum)
            *maximum = count;
        first = false;
    }
    return true;
}

TEST_F(HostRootTest, CountsForSendMatchTheEncodedTextsOverAGeneratedCorpus)
{
    std::mt19937 rng(20261123);
    // Separators, blanks of every kind, numbers, e-mail addresses, markers, extension and non-GSM characters.
    const QString addressAlphabet = QStringLiteral("ab@.x1+5;, \t\u00a0\u3000#(");
    const QString textAlphabet = QStringLiteral("ab (x)#\u20ac[\u0436 .1");
    std::uniform_int_distribution<int> lengthDist(0, 3300);
    int counted = 0;
    int failed = 0;
    for (int round = 0; round < 1500; ++round) {
        const QString addressList = randomText(rng, addressAlphabet, 40);
        const QString subject = randomText(rng, textAlphabet, round % 3 == 0 ? 0 : 12);
        QString body = randomText(rng, textAlphabet, 30);
        if (round % 4 == 0)
            body += QString(lengthDist(rng), QLatin1Char(round % 8 == 0 ? 'e' : '{'));
        int expected = -1;
        int got = -2;
        const bool expectedOk = referenceCountForSend(&expected, addressList, subject, body);
        ASSERT_EQ(MSGCTR_ENG_EncodeUti::getEncodePacketNumForSend(&got, addressList, subject, body), expectedOk)
            << qPrintable(addressList);
        ASSERT_EQ(got, expected) << qPrintable(addressList);
        const bool expectedMaxOk = referenceMaximumForSend(&expected, addressList, subject, body);
        ASSERT_EQ(MSGCTR_ENG_EncodeUti::getMaxEncodePacketNumForSend(&got, addressList, subject, body), expectedMaxOk)
            << qPrintable(addressList);
        ASSERT_EQ(got, expected) << qPrintable(addressList);
        (expectedMaxOk ? counted : failed) += 1;
    }
    // Both outcomes are reached: counts, and texts too long to count.
    EXPECT_GT(counted, 1000);
    EXPECT_GT(failed, 20);
}

} // namespace
