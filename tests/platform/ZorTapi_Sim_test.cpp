// SIM card, SIM services, USIM file rules and the SMS settings of the telephony simulator.
#include "HostRootTest.h"
#include "RowName.h"
#include "TAPI.h"
#include "ZorHostControl.h"
#include "ZorHostTapiControl.h"

#include <cstring>
#include <string>

namespace {

class ZorTapiSim : public HostRootTest {};

std::string serviceCentre(int* result = nullptr)
{
    char buffer[TAPI_PHONE_NUMBER_LEN];
    std::memset(buffer, 'x', sizeof buffer);
    const int r = TAPI_SMS_GetServiceCenter(buffer);
    if (result)
        *result = r;
    return r == TAPI_RESULT_SUCC ? std::string(buffer) : std::string("<unchanged:") + buffer[0] + ">";
}

std::string emailGateway(int* result = nullptr)
{
    char buffer[TAPI_PHONE_NUMBER_LEN];
    std::memset(buffer, 'x', sizeof buffer);
    const int r = TAPI_SMS_GetEmailGateway(buffer);
    if (result)
        *result = r;
    return r == TAPI_RESULT_SUCC ? std::string(buffer) : std::string("<unchanged:") + buffer[0] + ">";
}

TEST_F(ZorTapiSim, FactoryState)
{
    _TAPI_SIM_STATUS_E status = TAPI_SIM_STATUS_NO_CARD;
    EXPECT_EQ(TAPI_ACCE_GetSimCardStatus(&status), TAPI_RESULT_SUCC);
    EXPECT_EQ(status, TAPI_SIM_STATUS_SIM_READY);
    EXPECT_EQ(serviceCentre(), "+12065550100");
    EXPECT_EQ(emailGateway(), "6245");
    EXPECT_NE(TAPI_FTRDB_GetAvailability(TAPI_FTRDB_SIM_SERVICE_MBDN), 0);
    EXPECT_NE(TAPI_FTRDB_GetAvailability(TAPI_FTRDB_SIM_SERVICE_MWIS), 0);
    EXPECT_EQ(TAPI_FTRDB_GetAvailability(2000), 0);
    unsigned char mode = 0;
    EXPECT_EQ(TAPI_SMS_GetSmsTransportMode(&mode), TAPI_RESULT_SUCC);
    EXPECT_EQ(mode, TAPI_SMS_TRANSPORT_GPRS_OFF);
    EXPECT_EQ(ZorHost::tapiLastStorageNotification(), 2);
    for (unsigned char file = TAPI_USIM_EF_MBDN; file <= TAPI_USIM_EF_LI; ++file)
        EXPECT_EQ(ZorHost::usimAccessRule(file), 4) << int(file);
}

TEST_F(ZorTapiSim, SimStatusIsWhatControlSet)
{
    for (int status : {4, 0, 1, 6, 77, -5}) {
        ASSERT_TRUE(ZorHost::setSimCardStatus(status));
        _TAPI_SIM_STATUS_E got = TAPI_SIM_STATUS_NO_CARD;
        EXPECT_EQ(TAPI_ACCE_GetSimCardStatus(&got), TAPI_RESULT_SUCC);
        EXPECT_EQ(int(got), status);
        EXPECT_EQ(ZorHost::simCardStatus(), status);
    }
    EXPECT_EQ(TAPI_ACCE_GetSimCardStatus(nullptr), TAPI_RESULT_INVALID_PARAM);
}

// Every call that reads or writes the SIM fails without a usable card, and changes nothing.
class ZorTapiNoCard : public HostRootTest, public ::testing::WithParamInterface<int> {};

TEST_P(ZorTapiNoCard, SimBackedCallsFail)
{
    ASSERT_TRUE(ZorHost::setSimCardStatus(GetParam()));
    char number[TAPI_PHONE_NUMBER_LEN] = "123";
    unsigned short name[TAPI_PHONEBOOK_NAME_UNITS] = {'A', 0};
    unsigned char byte = 0;
    TAPI_SIM_USIM_FILE_INFO_S info{};
    int count = -1;
    unsigned short* channels = nullptr;
    unsigned char* languages = nullptr;
    EXPECT_EQ(TAPI_SMS_SetServiceCenter("+1"), TAPI_RESULT_SIM_NOT_READY);
    EXPECT_EQ(TAPI_SMS_GetServiceCenter(number), TAPI_RESULT_SIM_NOT_READY);
    EXPECT_EQ(TAPI_SMS_SetEmailGateway("1"), TAPI_RESULT_SIM_NOT_READY);
    EXPECT_EQ(TAPI_SMS_GetEmailGateway(number), TAPI_RESULT_SIM_NOT_READY);
    EXPECT_EQ(TAPI_SMS_NotifyMeStorageFull(), TAPI_RESULT_SIM_NOT_READY);
    EXPECT_EQ(TAPI_SMS_NotifyMeStorageAvail(), TAPI_RESULT_SIM_NOT_READY);
    EXPECT_EQ(TAPI_SIM_GetUSIMFileInfo(TAPI_USIM_EF_MBDN, 0, 0, &info), TAPI_RESULT_SIM_NOT_READY);
    EXPECT_EQ(TAPI_MAILBOX_Gsmr4GetEntry(0, number, name), TAPI_RESULT_SIM_NOT_READY);
    EXPECT_EQ(TAPI_MAILBOX_Gsmr4SetEntry(0, number, name), TAPI_RESULT_SIM_NOT_READY);
    EXPECT_EQ(TAPI_MAILBOX_Gsmr4IsModifiable(&byte), TAPI_RESULT_SIM_NOT_READY);
    EXPECT_EQ(TAPI_MAILBOX_Gsmr4GetMailCount(0, &byte), TAPI_RESULT_SIM_NOT_READY);
    EXPECT_EQ(TAPI_MAILBOX_Gsmr4SetMailCount(0, 1), TAPI_RESULT_SIM_NOT_READY);
    EXPECT_EQ(TAPI_MAILBOX_CphsGetVoiceMailBox(1, number, name), TAPI_RESULT_SIM_NOT_READY);
    EXPECT_EQ(TAPI_MAILBOX_CphsSetVoiceMailBox(1, number, name), TAPI_RESULT_SIM_NOT_READY);
    EXPECT_EQ(TAPI_CPHS_SetMessageWaitingFlag(0, 1), TAPI_RESULT_SIM_NOT_READY);
    EXPECT_EQ(TAPI_CB_AddChannel(50), TAPI_RESULT_SIM_NOT_READY);
    EXPECT_EQ(TAPI_CB_DeleteChannel(50), TAPI_RESULT_SIM_NOT_READY);
    EXPECT_EQ(TAPI_CB_SetLanguage(0, 2), TAPI_RESULT_SIM_NOT_READY);
    EXPECT_EQ(TAPI_CB_GetChannelsEx(&count, &channels), TAPI_RESULT_SIM_NOT_READY);
    EXPECT_EQ(count, 0);
    std::free(channels);
    EXPECT_EQ(TAPI_CB_GetLanguagesEx(&count, &languages), TAPI_RESULT_SIM_NOT_READY);
    std::free(languages);
    EXPECT_EQ(TAPI_FTRDB_GetAvailability(TAPI_FTRDB_SIM_SERVICE_MBDN), 0);
    // Modem-side settings keep working.
    EXPECT_EQ(TAPI_CB_SetStatus(1), TAPI_RESULT_SUCC);
    EXPECT_EQ(TAPI_SMS_SetSmsTransportMode(2), TAPI_RESULT_SUCC);

    ASSERT_TRUE(ZorHost::setSimCardStatus(3));
    EXPECT_EQ(serviceCentre(), "+12065550100");
    EXPECT_EQ(ZorHost::tapiLastStorageNotification(), 2);
    EXPECT_FALSE(ZorHost::cphsMessageWaitingFlag(0));
}

INSTANTIATE_TEST_SUITE_P(Statuses, ZorTapiNoCard, ::testing::Values(0, 1, 2, 5, 6, 255),
                         [](const auto& info) { return rowName("Status", info.param); });

TEST_F(ZorTapiSim, UsimReadyIsUsableToo)
{
    ASSERT_TRUE(ZorHost::setSimCardStatus(4));
    EXPECT_EQ(TAPI_SMS_SetServiceCenter("+44"), TAPI_RESULT_SUCC);
    EXPECT_EQ(serviceCentre(), "+44");
}

TEST_F(ZorTapiSim, ServiceCentreKeepsUpTo41Characters)
{
    const std::string n41(41, '7');
    EXPECT_EQ(TAPI_SMS_SetServiceCenter(n41.c_str()), TAPI_RESULT_SUCC);
    EXPECT_EQ(serviceCentre(), n41);
    const std::string n42(42, '8');
    EXPECT_EQ(TAPI_SMS_SetServiceCenter(n42.c_str()), TAPI_RESULT_INVALID_PARAM);
    EXPECT_EQ(serviceCentre(), n41);
    EXPECT_EQ(TAPI_SMS_SetServiceCenter(nullptr), TAPI_RESULT_INVALID_PARAM);
    EXPECT_EQ(TAPI_SMS_GetServiceCenter(nullptr), TAPI_RESULT_INVALID_PARAM);
    EXPECT_EQ(TAPI_SMS_SetServiceCenter(""), TAPI_RESULT_SUCC);
    EXPECT_EQ(serviceCentre(), "");
}

TEST_F(ZorTapiSim, NumbersKeepEveryByte)
{
    const char odd[] = "+1 \"quoted\" \\ \xE9\x01";
    EXPECT_EQ(TAPI_SMS_SetEmailGateway(odd), TAPI_RESULT_SUCC);
    EXPECT_EQ(emailGateway(), odd);
    EXPECT_EQ(serviceCentre(), "+12065550100");
}

TEST_F(ZorTapiSim, FailedGetLeavesTheBufferAlone)
{
    ZorHost::injectFault(QStringLiteral("TAPI_SMS_GetServiceCenter"), 509);
    int result = 0;
    EXPECT_EQ(serviceCentre(&result), "<unchanged:x>");
    EXPECT_EQ(result, 509);
}

TEST_F(ZorTapiSim, ServiceAvailabilityIsControlled)
{
    ASSERT_TRUE(ZorHost::setTapiServiceAvailable(TAPI_FTRDB_SIM_SERVICE_MWIS, false));
    ASSERT_TRUE(ZorHost::setTapiServiceAvailable(2100, true));
    EXPECT_EQ(TAPI_FTRDB_GetAvailability(TAPI_FTRDB_SIM_SERVICE_MWIS), 0);
    EXPECT_NE(TAPI_FTRDB_GetAvailability(2100), 0);
    EXPECT_NE(TAPI_FTRDB_GetAvailability(TAPI_FTRDB_SIM_SERVICE_MBDN), 0);
    EXPECT_FALSE(ZorHost::tapiServiceAvailable(TAPI_FTRDB_SIM_SERVICE_MWIS));
    EXPECT_TRUE(ZorHost::tapiServiceAvailable(2100));
}

TEST_F(ZorTapiSim, UsimFileInfoCarriesTheAccessRule)
{
    TAPI_SIM_USIM_FILE_INFO_S info{};
    ASSERT_EQ(TAPI_SIM_GetUSIMFileInfo(TAPI_USIM_EF_MWIS, 0, 0, &info), TAPI_RESULT_SUCC);
    EXPECT_EQ(info.fileId, TAPI_USIM_EF_MWIS);
    EXPECT_EQ(info.accessRule, 4);
    ASSERT_TRUE(ZorHost::setUsimAccessRule(TAPI_USIM_EF_MWIS, 6));
    ASSERT_EQ(TAPI_SIM_GetUSIMFileInfo(TAPI_USIM_EF_MWIS, 0, 0, &info), TAPI_RESULT_SUCC);
    EXPECT_EQ(info.accessRule, 6);
    ASSERT_TRUE(ZorHost::setUsimAccessRule(200, 7));
    ASSERT_EQ(TAPI_SIM_GetUSIMFileInfo(200, 0, 0, &info), TAPI_RESULT_SUCC);
    EXPECT_EQ(info.accessRule, 7);
    EXPECT_EQ(info.fileId, 200);
}

TEST_F(ZorTapiSim, UnknownUsimFileIsNotFound)
{
    ASSERT_TRUE(ZorHost::removeUsimFile(TAPI_USIM_EF_MBI));
    TAPI_SIM_USIM_FILE_INFO_S info;
    std::memset(&info, 0xEE, sizeof info);
    EXPECT_EQ(TAPI_SIM_GetUSIMFileInfo(TAPI_USIM_EF_MBI, 0, 0, &info), TAPI_RESULT_NOT_FOUND);
    EXPECT_EQ(TAPI_SIM_GetUSIMFileInfo(99, 0, 0, &info), TAPI_RESULT_NOT_FOUND);
    EXPECT_EQ(info.accessRule, 0xEE);
    EXPECT_EQ(ZorHost::usimAccessRule(TAPI_USIM_EF_MBI), -1);
    EXPECT_EQ(TAPI_SIM_GetUSIMFileInfo(TAPI_USIM_EF_MBDN, 0, 0, nullptr), TAPI_RESULT_INVALID_PARAM);
}

TEST_F(ZorTapiSim, TransportMode)
{
    unsigned char mode = 0;
    EXPECT_EQ(TAPI_SMS_SetSmsTransportMode(TAPI_SMS_TRANSPORT_GPRS_ON), TAPI_RESULT_SUCC);
    EXPECT_EQ(TAPI_SMS_GetSmsTransportMode(&mode), TAPI_RESULT_SUCC);
    EXPECT_EQ(mode, 2);
    EXPECT_EQ(TAPI_SMS_SetSmsTransportMode(0), TAPI_RESULT_INVALID_PARAM);
    EXPECT_EQ(TAPI_SMS_SetSmsTransportMode(3), TAPI_RESULT_INVALID_PARAM);
    EXPECT_EQ(TAPI_SMS_GetSmsTransportMode(nullptr), TAPI_RESULT_INVALID_PARAM);
    EXPECT_EQ(TAPI_SMS_GetSmsTransportMode(&mode), TAPI_RESULT_SUCC);
    EXPECT_EQ(mode, 2);
}

TEST_F(ZorTapiSim, UnsupportedTransportMode)
{
    ASSERT_TRUE(ZorHost::setSmsTransportModeSupported(false));
    EXPECT_FALSE(ZorHost::smsTransportModeSupported());
    unsigned char mode = 0xEE;
    EXPECT_EQ(TAPI_SMS_GetSmsTransportMode(&mode), TAPI_RESULT_NOT_SUPPORTED);
    EXPECT_EQ(mode, 0xEE);
    EXPECT_EQ(TAPI_SMS_SetSmsTransportMode(2), TAPI_RESULT_NOT_SUPPORTED);
    ASSERT_TRUE(ZorHost::setSmsTransportModeSupported(true));
    EXPECT_EQ(TAPI_SMS_GetSmsTransportMode(&mode), TAPI_RESULT_SUCC);
    EXPECT_EQ(mode, 1);
}

TEST_F(ZorTapiSim, StorageNotificationsAreRemembered)
{
    EXPECT_EQ(TAPI_SMS_NotifyMeStorageFull(), TAPI_RESULT_SUCC);
    EXPECT_EQ(ZorHost::tapiLastStorageNotification(), 1);
    EXPECT_EQ(TAPI_SMS_NotifyMeStorageAvail(), TAPI_RESULT_SUCC);
    EXPECT_EQ(ZorHost::tapiLastStorageNotification(), 0);
    ZorHost::injectFault(QStringLiteral("TAPI_SMS_NotifyMeStorageFull"), 7);
    EXPECT_EQ(TAPI_SMS_NotifyMeStorageFull(), 7);
    EXPECT_EQ(ZorHost::tapiLastStorageNotification(), 0);
    EXPECT_EQ(ZorHost::callCount(QStringLiteral("TAPI_SMS_NotifyMeStorageFull")), 2);
}

} // namespace
