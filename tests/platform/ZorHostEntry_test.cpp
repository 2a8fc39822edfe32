// The entry of every platform operation: each declared operation is counted once per call under its own
// name, and each one that can fail answers an injected fault with the fault's result, changing nothing.
#include "HostRootTest.h"

#include "DmtTreeFactory.h"
#include "SETUP_SET_Manager.h"
#include "SETUP_Utility.h"
#include "TAPI.h"
#include "UTIL_DateTime.h"
#include "UTIL_Language.h"
#include "UTIL_TimeConversion.h"
#include "ZorHostControl.h"
#include "aplog.h"

#include <QDateTime>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <string>

namespace {

constexpr int kFault = 1234;
constexpr int kCannotFail = -1; // the row's operation cannot fail, so no fault is injected

// A call of one operation, answering what the caller sees as a number: a result code, errno after a false or
// -1, 1 or 0 for a truth, kFault for the empty text of a faulted call.
using Call = int (*)();

struct Operation {
    const char* name;
    Call call;
    int faulted; // what the call answers while a fault with result kFault is pending, or kCannotFail
};

int errnoUnless(bool ok)
{
    return ok ? 0 : errno;
}

// Opened per call: a store finds its file under the root of the moment.
SETUP_SET_Manager store()
{
    return SETUP_SET_Manager(AM_Global::APP_MESSAGING, true);
}

// A read answers its default either way, so errno tells a faulted read from one of a missing key.
template <typename Read>
int errnoAfter(Read read)
{
    errno = 0;
    read();
    return errno;
}

// The list is read after the call has filled it (a plain argument could be read before the call).
template <typename T>
int freed(int result, T* const* list)
{
    std::free(*list);
    return result;
}

// One DM operation on the tree of the message settings, between an Initialize and an Uninitialize (each
// counted under its own name).
template <typename Use>
int onMessageTree(Use use)
{
    DmtTreeFactory::Initialize();
    int result = 0;
    {
        PDmtTree tree;
        result = DmtTreeFactory::GetSubtree(DmtPrincipal("entry-test"), "./DevDetail/Ext/Conf/Msg", tree);
        if (result == 0)
            result = use(*tree);
    }
    DmtTreeFactory::Uninitialize();
    return result;
}

int subtree(bool extended)
{
    DmtTreeFactory::Initialize();
    int result = 0;
    {
        PDmtTree tree;
        const DmtPrincipal principal("entry-test");
        result = extended ? DmtTreeFactory::GetSubtreeEx(principal, ".", DMT_LOCK_AUTOMATIC, tree)
                          : DmtTreeFactory::GetSubtree(principal, ".", tree);
    }
    DmtTreeFactory::Uninitialize();
    return result;
}

const Operation kOperations[] = {
    {"DmtNode::GetValue",
     [] {
         return onMessageTree([](DmtTree& tree) {
             PDmtNode node;
             DmtData value;
             const int found = tree.GetNode("SMS/Default", node);
             return found != 0 ? found : node->GetValue(value);
         });
     },
     kFault},
    {"DmtNode::SetValue",
     [] {
         return onMessageTree([](DmtTree& tree) {
             PDmtNode node;
             const int found = tree.GetNode("SMS/Default", node);
             return found != 0 ? found : node->SetValue(DmtData(""));
         });
     },
     kFault},
    {"DmtTree::Begin",
     [] {
         return onMessageTree([](DmtTree& tree) {
             const int begun = tree.Begin();
             if (begun == 0)
                 tree.Rollback();
             return begun;
         });
     },
     kFault},
    {"DmtTree::Commit",
     [] {
         return onMessageTree([](DmtTree& tree) {
             const int begun = tree.Begin();
             return begun != 0 ? begun : tree.Commit();
         });
     },
     kFault},
    {"DmtTree::CreateInteriorNode",
     [] {
         return onMessageTree([](DmtTree& tree) {
             PDmtNode node;
             const int created = tree.CreateInteriorNode("EntryTest", node);
             if (created == 0)
                 tree.DeleteNode("EntryTest");
             return created;
         });
     },
     kFault},
    {"DmtTree::CreateLeafNode",
     [] {
         return onMessageTree([](DmtTree& tree) {
             PDmtNode node;
             const int created = tree.CreateLeafNode("EntryTest", node, DmtData("leaf"));
             if (created == 0)
                 tree.DeleteNode("EntryTest");
             return created;
         });
     },
     kFault},
    {"DmtTree::DeleteNode",
     [] {
         return onMessageTree([](DmtTree& tree) {
             PDmtNode node;
             tree.CreateInteriorNode("EntryTest", node);
             return tree.DeleteNode("EntryTest");
         });
     },
     kFault},
    {"DmtTree::Flush", [] { return onMessageTree([](DmtTree& tree) { return tree.Flush(); }); }, kFault},
    {"DmtTree::GetChildNodeNames",
     [] {
         return onMessageTree([](DmtTree& tree) {
             DMStringVector names;
             return tree.GetChildNodeNames("", names);
         });
     },
     kFault},
    {"DmtTree::GetChildValuesMap",
     [] {
         return onMessageTree([](DmtTree& tree) {
             DMMap<DMString, DmtData> leaves;
             return tree.GetChildValuesMap("SMS", leaves);
         });
     },
     kFault},
    {"DmtTree::GetNode",
     [] {
         return onMessageTree([](DmtTree& tree) {
             PDmtNode node;
             return tree.GetNode("SMS/Default", node);
         });
     },
     kFault},
    {"DmtTree::Rollback",
     [] {
         return onMessageTree([](DmtTree& tree) {
             const int begun = tree.Begin();
             return begun != 0 ? begun : tree.Rollback();
         });
     },
     kFault},
    {"DmtTree::SetChildValuesMap",
     [] {
         return onMessageTree([](DmtTree& tree) {
             DMMap<DMString, DmtData> leaves;
             leaves.put(DMString("Default"), DmtData(""));
             return tree.SetChildValuesMap("SMS", leaves);
         });
     },
     kFault},
    {"DmtTreeFactory::GetSubtree", [] { return subtree(false); }, kFault},
    {"DmtTreeFactory::GetSubtreeEx", [] { return subtree(true); }, kFault},
    // A faulted Initialize answers true but opens nothing, so the factory is not initialised after it.
    {"DmtTreeFactory::Initialize",
     [] {
         const bool answered = DmtTreeFactory::Initialize();
         const bool opened = DmtTreeFactory::IsInitialized();
         if (opened)
             DmtTreeFactory::Uninitialize();
         return answered && opened ? 0 : kFault;
     },
     kFault},
    // Nothing is open, so an Uninitialize fails unless a fault answers it (as true).
    {"DmtTreeFactory::Uninitialize", [] { return DmtTreeFactory::Uninitialize() ? kFault : 0; }, kFault},
    {"SETUP_SET_Manager::flush", [] { return errnoUnless(store().flush()); }, kFault},
    {"SETUP_SET_Manager::getBool",
     [] {
         bool value = false;
         return errnoAfter([&] { store().getBool(QStringLiteral("G"), QStringLiteral("K"), &value, true); });
     },
     kFault},
    {"SETUP_SET_Manager::getInt",
     [] {
         int value = 0;
         return errnoAfter([&] { store().getInt(QStringLiteral("G"), QStringLiteral("K"), &value, 3); });
     },
     kFault},
    {"SETUP_SET_Manager::getString",
     [] {
         QString value;
         return errnoAfter(
             [&] { store().getString(QStringLiteral("G"), QStringLiteral("K"), &value, QStringLiteral("d"), false); });
     },
     kFault},
    {"SETUP_SET_Manager::getUInt",
     [] {
         unsigned value = 0;
         return errnoAfter([&] { store().getUInt(QStringLiteral("G"), QStringLiteral("K"), &value, 3u); });
     },
     kFault},
    {"SETUP_SET_Manager::removeEntry",
     [] { return errnoUnless(store().removeEntry(QStringLiteral("G"), QStringLiteral("K"))); }, kFault},
    {"SETUP_SET_Manager::setBool",
     [] { return errnoUnless(store().setBool(QStringLiteral("G"), QStringLiteral("K"), true)); }, kFault},
    {"SETUP_SET_Manager::setInt",
     [] { return errnoUnless(store().setInt(QStringLiteral("G"), QStringLiteral("K"), 1)); }, kFault},
    {"SETUP_SET_Manager::setString",
     [] {
         return errnoUnless(store().setString(QStringLiteral("G"), QStringLiteral("K"), QStringLiteral("v"), false));
     },
     kFault},
    {"SETUP_SET_Manager::setUInt",
     [] { return errnoUnless(store().setUInt(QStringLiteral("G"), QStringLiteral("K"), 1u)); }, kFault},
    {"SETUP_Utility::getFlexBit",
     [] {
         bool value = false;
         return SETUP_Utility::getFlexBit(49, &value) ? 1 : 0;
     },
     0},
    {"SETUP_Utility::isFeatureAvailable", [] { return SETUP_Utility::isFeatureAvailable(1) ? 1 : 0; }, 1},
    {"TAPI_ACCE_GetSimCardStatus",
     [] {
         _TAPI_SIM_STATUS_E status{};
         return TAPI_ACCE_GetSimCardStatus(&status);
     },
     kFault},
    {"TAPI_CB_AddChannel", [] { return TAPI_CB_AddChannel(50); }, kFault},
    {"TAPI_CB_DeleteChannel", [] { return TAPI_CB_DeleteChannel(50); }, kFault},
    {"TAPI_CB_GetChannelsEx",
     [] {
         int count = 0;
         unsigned short* list = nullptr;
         return freed(TAPI_CB_GetChannelsEx(&count, &list), &list);
     },
     kFault},
    {"TAPI_CB_GetLanguagesEx",
     [] {
         int count = 0;
         unsigned char* list = nullptr;
         return freed(TAPI_CB_GetLanguagesEx(&count, &list), &list);
     },
     kFault},
    {"TAPI_CB_GetStatus",
     [] {
         unsigned char state = 0;
         return TAPI_CB_GetStatus(&state);
     },
     kFault},
    {"TAPI_CB_SetLanguage", [] { return TAPI_CB_SetLanguage(0, 1); }, kFault},
    {"TAPI_CB_SetStatus", [] { return TAPI_CB_SetStatus(1); }, kFault},
    {"TAPI_CPHS_SetMessageWaitingFlag", [] { return TAPI_CPHS_SetMessageWaitingFlag(0, 1); }, kFault},
    {"TAPI_FTRDB_GetAvailability", [] { return TAPI_FTRDB_GetAvailability(2348); }, kFault},
    {"TAPI_MAILBOX_CphsGetVoiceMailBox",
     [] {
         TAPI_PHONE_NUMBER_A number = {};
         TAPI_PHONEBOOK_NAME_A name = {};
         return TAPI_MAILBOX_CphsGetVoiceMailBox(1, number, name);
     },
     kFault},
    {"TAPI_MAILBOX_CphsSetVoiceMailBox",
     [] {
         TAPI_PHONEBOOK_NAME_A name = {};
         return TAPI_MAILBOX_CphsSetVoiceMailBox(1, "+123", name);
     },
     kFault},
    {"TAPI_MAILBOX_Gsmr4GetEntry",
     [] {
         TAPI_PHONE_NUMBER_A number = {};
         TAPI_PHONEBOOK_NAME_A name = {};
         return TAPI_MAILBOX_Gsmr4GetEntry(0, number, name);
     },
     kFault},
    {"TAPI_MAILBOX_Gsmr4GetMailCount",
     [] {
         unsigned char count = 0;
         return TAPI_MAILBOX_Gsmr4GetMailCount(0, &count);
     },
     kFault},
    {"TAPI_MAILBOX_Gsmr4IsModifiable",
     [] {
         unsigned char modifiable = 0;
         return TAPI_MAILBOX_Gsmr4IsModifiable(&modifiable);
     },
     kFault},
    {"TAPI_MAILBOX_Gsmr4SetEntry",
     [] {
         TAPI_PHONEBOOK_NAME_A name = {};
         return TAPI_MAILBOX_Gsmr4SetEntry(0, "+123", name);
     },
     kFault},
    {"TAPI_MAILBOX_Gsmr4SetMailCount", [] { return TAPI_MAILBOX_Gsmr4SetMailCount(0, 2); }, kFault},
    {"TAPI_SIM_GetUSIMFileInfo",
     [] {
         TAPI_SIM_USIM_FILE_INFO_S info{};
         return TAPI_SIM_GetUSIMFileInfo(TAPI_USIM_EF_MBDN, 0, 0, &info);
     },
     kFault},
    {"TAPI_SMS_CaculateSm",
     [] {
         static TAPI_SMS_CACULATE_SM_REQ_S request{};
         TAPI_SMS_CACULATE_SM_RESULT_S result{};
         request.length = 1;
         request.text[0] = 'a';
         return TAPI_SMS_CaculateSm(&request, &result);
     },
     kFault},
    {"TAPI_SMS_ExpirePeriodToUINT8",
     [] {
         const _TAPI_SMS_EXPIRE_PERIOD_DATA_S period{TAPI_SMS_EXPIRE_UNIT_DAY, 2};
         unsigned char octet = 0;
         return TAPI_SMS_ExpirePeriodToUINT8(&period, &octet);
     },
     kFault},
    {"TAPI_SMS_GetEmailGateway",
     [] {
         TAPI_PHONE_NUMBER_A number = {};
         return TAPI_SMS_GetEmailGateway(number);
     },
     kFault},
    {"TAPI_SMS_GetServiceCenter",
     [] {
         TAPI_PHONE_NUMBER_A number = {};
         return TAPI_SMS_GetServiceCenter(number);
     },
     kFault},
    {"TAPI_SMS_GetSmsTransportMode",
     [] {
         unsigned char mode = 0;
         return TAPI_SMS_GetSmsTransportMode(&mode);
     },
     kFault},
    {"TAPI_SMS_NotifyMeStorageAvail", [] { return TAPI_SMS_NotifyMeStorageAvail(); }, kFault},
    {"TAPI_SMS_NotifyMeStorageFull", [] { return TAPI_SMS_NotifyMeStorageFull(); }, kFault},
    {"TAPI_SMS_SetEmailGateway", [] { return TAPI_SMS_SetEmailGateway("6245"); }, kFault},
    {"TAPI_SMS_SetServiceCenter", [] { return TAPI_SMS_SetServiceCenter("+12065550100"); }, kFault},
    {"TAPI_SMS_SetSmsTransportMode", [] { return TAPI_SMS_SetSmsTransportMode(TAPI_SMS_TRANSPORT_GPRS_ON); }, kFault},
    {"TAPI_UTIL_ConvertUcs2StringToGsmString",
     [] {
         const unsigned short text[] = {'a', 'b'};
         unsigned char out[4] = {};
         return int(TAPI_UTIL_ConvertUcs2StringToGsmString(text, 2, out, sizeof out));
     },
     kFault},
    {"UTIL_DateTime::dateToString",
     [] {
         return int(UTIL_DateTime::dateToString(QDate(2006, 12, 31), UTIL_DateTime::DATE_FORMAT_DD_MM_YYYY,
                                                UTIL_DateTime::DATE_ACCURACY_DAY_MONTH_YEAR)
                        .size());
     },
     kCannotFail},
    {"UTIL_DateTime::getDateFormat", [] { return int(UTIL_DateTime::getDateFormat()); }, kCannotFail},
    {"UTIL_DateTime::getTimeFormat", [] { return int(UTIL_DateTime::getTimeFormat()); }, kCannotFail},
    {"UTIL_DateTime::timeToString",
     [] {
         return int(UTIL_DateTime::timeToString(QTime(23, 5), UTIL_DateTime::TIME_FORMAT_24_HOUR,
                                                    UTIL_DateTime::TIME_ACCURACY_HOUR_MINUTE)
                        .size());
     },
     kCannotFail},
    {"UTIL_Language::getLanguageIndexByLanId", [] { return UTIL_Language::getLanguageIndexByLanId(2); }, kFault},
    {"UTIL_Language::getSystemLanguageCode",
     [] { return UTIL_Language::getSystemLanguageCode().isEmpty() ? kFault : 0; }, kFault},
    {"UTIL_Language::getSystemLanguageId", [] { return UTIL_Language::getSystemLanguageId(); }, kFault},
    {"UTIL_Language::getSystemLanguageString",
     [] { return UTIL_Language::getSystemLanguageString().isEmpty() ? kFault : 0; }, kFault},
    {"UTIL_TimeConversion::fromISO8601",
     [] { return UTIL_TimeConversion::fromISO8601("20061231").isValid() ? 1 : 0; }, kCannotFail},
    {"UTIL_TimeConversion::fromUTC", [] { return UTIL_TimeConversion::fromUTC(0).isValid() ? 1 : 0; }, kCannotFail},
    {"UTIL_TimeConversion::toISO8601",
     [] { return int(UTIL_TimeConversion::toISO8601(QDate(2006, 12, 31)).size()); }, kCannotFail},
    {"UTIL_TimeConversion::toUTC",
     [] { return UTIL_TimeConversion::toUTC(QDateTime(QDate(2006, 12, 31), QTime(0, 0))) == -1 ? 0 : 1; },
     kCannotFail},
    {"aplog_write",
     [] {
         aplog_attach();
         const int written = aplog_write("MSG", 1, "text");
         return written < 0 ? errno : 0;
     },
     kFault},
};

std::string rowName(const ::testing::TestParamInfo<Operation>& info)
{
    std::string name = info.param.name;
    std::replace(name.begin(), name.end(), ':', '_');
    return name;
}

class ZorHostEntryTest : public HostRootTest, public ::testing::WithParamInterface<Operation> {};

TEST_P(ZorHostEntryTest, EachCallIsCountedOnceUnderTheOperationsName)
{
    const QString name = QString::fromLatin1(GetParam().name);
    ASSERT_TRUE(ZorHost::isOperation(name));
    EXPECT_EQ(ZorHost::callCount(name), 0);
    GetParam().call();
    EXPECT_EQ(ZorHost::callCount(name), 1);
    GetParam().call();
    EXPECT_EQ(ZorHost::callCount(name), 2);
}

TEST_P(ZorHostEntryTest, APendingFaultIsAnsweredWithItsResult)
{
    const QString name = QString::fromLatin1(GetParam().name);
    if (GetParam().faulted == kCannotFail) {
        testing::internal::CaptureStderr();
        EXPECT_FALSE(ZorHost::injectFault(name, kFault));
        testing::internal::GetCapturedStderr();
        return;
    }
    const int unfaulted = GetParam().call();
    ASSERT_NE(unfaulted, GetParam().faulted) << "the row cannot tell a faulted call from a normal one";
    ASSERT_TRUE(ZorHost::injectFault(name, kFault, 1));
    EXPECT_EQ(GetParam().call(), GetParam().faulted);
    EXPECT_EQ(GetParam().call(), unfaulted);
    EXPECT_EQ(ZorHost::callCount(name), 3);
}

INSTANTIATE_TEST_SUITE_P(Operations, ZorHostEntryTest, ::testing::ValuesIn(kOperations), rowName);

TEST(ZorHostEntryTableTest, CoversEveryDeclaredOperation)
{
    QStringList rows;
    for (const Operation& operation : kOperations)
        rows.append(QString::fromLatin1(operation.name));
    EXPECT_EQ(rows, ZorHost::operations());
}

} // namespace
