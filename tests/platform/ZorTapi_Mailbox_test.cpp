// Mailboxes of the telephony simulator: GSM phase 2+ entries and counts, CPHS voice mailboxes and flags.
#include "HostRootTest.h"
#include "TAPI.h"
#include "ZorHostControl.h"
#include "ZorHostTapiControl.h"

#include <cstring>
#include <string>
#include <vector>

namespace {

class ZorTapiMailbox : public HostRootTest {};

struct Entry {
    int result;
    std::string number;
    std::u16string name;
};

std::u16string nameOf(const unsigned short* units)
{
    std::u16string s;
    for (int i = 0; i < TAPI_PHONEBOOK_NAME_UNITS && units[i]; ++i)
        s += char16_t(units[i]);
    return s;
}

Entry gsmr4(unsigned char type)
{
    char number[TAPI_PHONE_NUMBER_LEN];
    unsigned short name[TAPI_PHONEBOOK_NAME_UNITS];
    std::memset(number, 'x', sizeof number);
    std::memset(name, 0x55, sizeof name);
    const int r = TAPI_MAILBOX_Gsmr4GetEntry(type, number, name);
    if (r != TAPI_RESULT_SUCC)
        return {r, {}, {}};
    return {r, number, nameOf(name)};
}

Entry cphs(unsigned char line)
{
    char number[TAPI_PHONE_NUMBER_LEN];
    unsigned short name[TAPI_PHONEBOOK_NAME_UNITS];
    std::memset(number, 'x', sizeof number);
    std::memset(name, 0x55, sizeof name);
    const int r = TAPI_MAILBOX_CphsGetVoiceMailBox(line, number, name);
    if (r != TAPI_RESULT_SUCC)
        return {r, {}, {}};
    return {r, number, nameOf(name)};
}

TEST_F(ZorTapiMailbox, FactoryEntriesAreEmpty)
{
    for (unsigned char type = 0; type < 4; ++type) {
        const Entry e = gsmr4(type);
        EXPECT_EQ(e.result, TAPI_RESULT_SUCC);
        EXPECT_EQ(e.number, "");
        EXPECT_EQ(e.name, u"");
        unsigned char count = 0xEE;
        EXPECT_EQ(TAPI_MAILBOX_Gsmr4GetMailCount(type, &count), TAPI_RESULT_SUCC);
        EXPECT_EQ(count, 0);
    }
    unsigned char modifiable = 0;
    EXPECT_EQ(TAPI_MAILBOX_Gsmr4IsModifiable(&modifiable), TAPI_RESULT_SUCC);
    EXPECT_EQ(modifiable, 1);
    EXPECT_EQ(cphs(1).number, "");
    EXPECT_EQ(cphs(2).name, u"");
}

// The setter takes big-endian UCS-2 (bytes 00 41 00 42 for "AB"); the getter gives host order.
TEST_F(ZorTapiMailbox, Gsmr4SetterTakesBigEndianNames)
{
    unsigned short name[TAPI_PHONEBOOK_NAME_UNITS] = {};
    const unsigned char bigEndian[] = {0x00, 0x41, 0x00, 0x42, 0x04, 0x36};
    std::memcpy(name, bigEndian, sizeof bigEndian);
    ASSERT_EQ(TAPI_MAILBOX_Gsmr4SetEntry(TAPI_MAILBOX_TYPE_FAX, "+4930123", name), TAPI_RESULT_SUCC);
    const Entry e = gsmr4(TAPI_MAILBOX_TYPE_FAX);
    EXPECT_EQ(e.number, "+4930123");
    EXPECT_EQ(e.name, u"AB\u0436");
    EXPECT_EQ(gsmr4(TAPI_MAILBOX_TYPE_VOICE).number, "");
}

TEST_F(ZorTapiMailbox, CphsSetterTakesHostOrderNames)
{
    const unsigned short name[TAPI_PHONEBOOK_NAME_UNITS] = {'A', 'B', 0x0436, 0};
    ASSERT_EQ(TAPI_MAILBOX_CphsSetVoiceMailBox(TAPI_TEL_LINE_2, "555", name), TAPI_RESULT_SUCC);
    const Entry e = cphs(TAPI_TEL_LINE_2);
    EXPECT_EQ(e.number, "555");
    EXPECT_EQ(e.name, u"AB\u0436");
    EXPECT_EQ(cphs(TAPI_TEL_LINE_1).number, "");
}

TEST_F(ZorTapiMailbox, FullLengthNameWithoutTerminator)
{
    unsigned short name[TAPI_PHONEBOOK_NAME_UNITS];
    for (int i = 0; i < TAPI_PHONEBOOK_NAME_UNITS; ++i)
        name[i] = static_cast<unsigned short>('a' + i % 26);
    ASSERT_EQ(TAPI_MAILBOX_CphsSetVoiceMailBox(1, "1", name), TAPI_RESULT_SUCC);
    const Entry e = cphs(1);
    ASSERT_EQ(e.name.size(), size_t(TAPI_PHONEBOOK_NAME_UNITS));
    EXPECT_EQ(e.name[50], char16_t('a' + 50 % 26));
}

TEST_F(ZorTapiMailbox, GetterPadsWithNul)
{
    const unsigned short name[TAPI_PHONEBOOK_NAME_UNITS] = {'Z', 0};
    ASSERT_EQ(TAPI_MAILBOX_CphsSetVoiceMailBox(1, "12", name), TAPI_RESULT_SUCC);
    char number[TAPI_PHONE_NUMBER_LEN];
    unsigned short out[TAPI_PHONEBOOK_NAME_UNITS];
    std::memset(number, 'x', sizeof number);
    std::memset(out, 0x55, sizeof out);
    ASSERT_EQ(TAPI_MAILBOX_CphsGetVoiceMailBox(1, number, out), TAPI_RESULT_SUCC);
    EXPECT_EQ(std::vector<char>(number + 2, number + TAPI_PHONE_NUMBER_LEN), std::vector<char>(40, 0));
    EXPECT_EQ(std::vector<unsigned short>(out + 1, out + TAPI_PHONEBOOK_NAME_UNITS), std::vector<unsigned short>(50, 0));
}

TEST_F(ZorTapiMailbox, InvalidTypesLinesAndBuffers)
{
    char number[TAPI_PHONE_NUMBER_LEN] = "1";
    unsigned short name[TAPI_PHONEBOOK_NAME_UNITS] = {};
    unsigned char count = 0;
    EXPECT_EQ(TAPI_MAILBOX_Gsmr4GetEntry(4, number, name), TAPI_RESULT_INVALID_PARAM);
    EXPECT_EQ(TAPI_MAILBOX_Gsmr4SetEntry(4, number, name), TAPI_RESULT_INVALID_PARAM);
    EXPECT_EQ(TAPI_MAILBOX_Gsmr4GetMailCount(4, &count), TAPI_RESULT_INVALID_PARAM);
    EXPECT_EQ(TAPI_MAILBOX_Gsmr4SetMailCount(255, 1), TAPI_RESULT_INVALID_PARAM);
    EXPECT_EQ(TAPI_MAILBOX_Gsmr4GetMailCount(0, nullptr), TAPI_RESULT_INVALID_PARAM);
    EXPECT_EQ(TAPI_MAILBOX_Gsmr4IsModifiable(nullptr), TAPI_RESULT_INVALID_PARAM);
    EXPECT_EQ(TAPI_MAILBOX_Gsmr4GetEntry(0, nullptr, name), TAPI_RESULT_INVALID_PARAM);
    EXPECT_EQ(TAPI_MAILBOX_Gsmr4SetEntry(0, number, nullptr), TAPI_RESULT_INVALID_PARAM);
    EXPECT_EQ(TAPI_MAILBOX_CphsGetVoiceMailBox(0, number, name), TAPI_RESULT_INVALID_PARAM);
    EXPECT_EQ(TAPI_MAILBOX_CphsGetVoiceMailBox(3, number, name), TAPI_RESULT_INVALID_PARAM);
    EXPECT_EQ(TAPI_MAILBOX_CphsSetVoiceMailBox(0, number, name), TAPI_RESULT_INVALID_PARAM);
    EXPECT_EQ(TAPI_CPHS_SetMessageWaitingFlag(2, 1), TAPI_RESULT_INVALID_PARAM);
    char unterminated[TAPI_PHONE_NUMBER_LEN];
    std::memset(unterminated, '9', sizeof unterminated);
    EXPECT_EQ(TAPI_MAILBOX_Gsmr4SetEntry(0, unterminated, name), TAPI_RESULT_INVALID_PARAM);
    EXPECT_EQ(TAPI_MAILBOX_CphsSetVoiceMailBox(1, unterminated, name), TAPI_RESULT_INVALID_PARAM);
    EXPECT_EQ(gsmr4(0).number, "");
}

TEST_F(ZorTapiMailbox, CountsPerType)
{
    ASSERT_EQ(TAPI_MAILBOX_Gsmr4SetMailCount(TAPI_MAILBOX_TYPE_VOICE, 3), TAPI_RESULT_SUCC);
    ASSERT_EQ(TAPI_MAILBOX_Gsmr4SetMailCount(TAPI_MAILBOX_TYPE_OTHER, 255), TAPI_RESULT_SUCC);
    unsigned char count = 0;
    EXPECT_EQ(TAPI_MAILBOX_Gsmr4GetMailCount(TAPI_MAILBOX_TYPE_VOICE, &count), TAPI_RESULT_SUCC);
    EXPECT_EQ(count, 3);
    EXPECT_EQ(TAPI_MAILBOX_Gsmr4GetMailCount(TAPI_MAILBOX_TYPE_OTHER, &count), TAPI_RESULT_SUCC);
    EXPECT_EQ(count, 255);
    EXPECT_EQ(TAPI_MAILBOX_Gsmr4GetMailCount(TAPI_MAILBOX_TYPE_EMAIL, &count), TAPI_RESULT_SUCC);
    EXPECT_EQ(count, 0);
}

TEST_F(ZorTapiMailbox, NotModifiableRefusesEntriesButNotCounts)
{
    ASSERT_TRUE(ZorHost::setGsmr4MailboxModifiable(false));
    unsigned char modifiable = 1;
    EXPECT_EQ(TAPI_MAILBOX_Gsmr4IsModifiable(&modifiable), TAPI_RESULT_SUCC);
    EXPECT_EQ(modifiable, 0);
    const unsigned short name[TAPI_PHONEBOOK_NAME_UNITS] = {};
    EXPECT_EQ(TAPI_MAILBOX_Gsmr4SetEntry(0, "123", name), TAPI_RESULT_ACCESS_DENIED);
    EXPECT_EQ(gsmr4(0).number, "");
    EXPECT_EQ(TAPI_MAILBOX_Gsmr4SetMailCount(0, 2), TAPI_RESULT_SUCC);
}

TEST_F(ZorTapiMailbox, ServicesOffRefuseTheirFiles)
{
    ASSERT_TRUE(ZorHost::setTapiServiceAvailable(TAPI_FTRDB_SIM_SERVICE_MBDN, false));
    const unsigned short name[TAPI_PHONEBOOK_NAME_UNITS] = {};
    EXPECT_EQ(TAPI_MAILBOX_Gsmr4SetEntry(0, "123", name), TAPI_RESULT_NOT_SUPPORTED);
    EXPECT_EQ(gsmr4(0).result, TAPI_RESULT_NOT_SUPPORTED);
    EXPECT_EQ(TAPI_MAILBOX_Gsmr4SetMailCount(0, 2), TAPI_RESULT_SUCC);
    ASSERT_TRUE(ZorHost::setTapiServiceAvailable(TAPI_FTRDB_SIM_SERVICE_MWIS, false));
    unsigned char count = 0xEE;
    EXPECT_EQ(TAPI_MAILBOX_Gsmr4SetMailCount(0, 3), TAPI_RESULT_NOT_SUPPORTED);
    EXPECT_EQ(TAPI_MAILBOX_Gsmr4GetMailCount(0, &count), TAPI_RESULT_NOT_SUPPORTED);
    EXPECT_EQ(count, 0xEE);
}

TEST_F(ZorTapiMailbox, CphsWaitingFlagsPerLine)
{
    EXPECT_EQ(TAPI_CPHS_SetMessageWaitingFlag(1, 1), TAPI_RESULT_SUCC);
    EXPECT_FALSE(ZorHost::cphsMessageWaitingFlag(0));
    EXPECT_TRUE(ZorHost::cphsMessageWaitingFlag(1));
    EXPECT_EQ(TAPI_CPHS_SetMessageWaitingFlag(0, 7), TAPI_RESULT_SUCC);
    EXPECT_TRUE(ZorHost::cphsMessageWaitingFlag(0));
    EXPECT_EQ(TAPI_CPHS_SetMessageWaitingFlag(1, 0), TAPI_RESULT_SUCC);
    EXPECT_FALSE(ZorHost::cphsMessageWaitingFlag(1));
    EXPECT_FALSE(ZorHost::cphsMessageWaitingFlag(2));
    EXPECT_FALSE(ZorHost::cphsMessageWaitingFlag(-1));
}

TEST_F(ZorTapiMailbox, InjectedFaultChangesNothing)
{
    ZorHost::injectFault(QStringLiteral("TAPI_CPHS_SetMessageWaitingFlag"), 819);
    EXPECT_EQ(TAPI_CPHS_SetMessageWaitingFlag(0, 1), 819);
    EXPECT_FALSE(ZorHost::cphsMessageWaitingFlag(0));
    ZorHost::injectFault(QStringLiteral("TAPI_MAILBOX_Gsmr4SetMailCount"), 22, 2);
    EXPECT_EQ(TAPI_MAILBOX_Gsmr4SetMailCount(0, 9), 22);
    EXPECT_EQ(TAPI_MAILBOX_Gsmr4SetMailCount(0, 9), 22);
    EXPECT_EQ(TAPI_MAILBOX_Gsmr4SetMailCount(0, 9), TAPI_RESULT_SUCC);
    EXPECT_EQ(ZorHost::callCount(QStringLiteral("TAPI_MAILBOX_Gsmr4SetMailCount")), 3);
}

} // namespace
