// The stateful TAPI_* calls: SIM, SMS settings, cell broadcast and mailboxes, on the state of TapiState.
#include "TAPI.h"

#include "TapiState.h"
#include "ZorHostEntry.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

using ZorTapi::State;
using ZorTapi::withState;

namespace {

bool readNumber(const char* in, std::string* out)
{
    if (!in)
        return false;
    const size_t length = strnlen(in, TAPI_PHONE_NUMBER_LEN);
    if (length >= TAPI_PHONE_NUMBER_LEN)
        return false;
    out->assign(in, length);
    return true;
}

void writeNumber(const std::string& number, char* out)
{
    std::memset(out, 0, TAPI_PHONE_NUMBER_LEN);
    std::memcpy(out, number.data(), number.size());
}

// A name of up to 51 units, ending at the first NUL; big-endian when it comes as the SIM file stores it.
std::u16string readName(const unsigned short* in, bool bigEndian)
{
    std::u16string name;
    const unsigned char* bytes = reinterpret_cast<const unsigned char*>(in);
    for (int i = 0; i < TAPI_PHONEBOOK_NAME_UNITS; ++i) {
        const char16_t unit = bigEndian ? char16_t((bytes[2 * i] << 8) | bytes[2 * i + 1]) : char16_t(in[i]);
        if (unit == 0)
            break;
        name.push_back(unit);
    }
    return name;
}

void writeName(const std::u16string& name, unsigned short* out)
{
    std::fill(out, out + TAPI_PHONEBOOK_NAME_UNITS, 0);
    std::copy(name.begin(), name.end(), out);
}

int needSim(const State& s)
{
    return s.simUsable() ? TAPI_RESULT_SUCC : TAPI_RESULT_SIM_NOT_READY;
}

int setNumber(const char* number, std::string State::*field)
{
    std::string value;
    if (!readNumber(number, &value))
        return TAPI_RESULT_INVALID_PARAM;
    return withState(true, [&](State& s) -> int {
        if (!s.simUsable())
            return TAPI_RESULT_SIM_NOT_READY;
        s.*field = value;
        return TAPI_RESULT_SUCC;
    });
}

int getNumber(char* number, std::string State::*field)
{
    if (!number)
        return TAPI_RESULT_INVALID_PARAM;
    return withState(false, [&](State& s) -> int {
        if (!s.simUsable())
            return TAPI_RESULT_SIM_NOT_READY;
        writeNumber(s.*field, number);
        return TAPI_RESULT_SUCC;
    });
}

// Hands a list to the caller in a malloc'ed array, which the caller frees in every case, failures included.
template <typename T>
int handOver(int* count, T** list, const std::vector<T>& items, int result)
{
    const bool ok = result == TAPI_RESULT_SUCC;
    const size_t n = ok ? items.size() : 0;
    if (count)
        *count = int(n);
    if (!list)
        return result;
    *list = static_cast<T*>(std::calloc(std::max<size_t>(n, 1), sizeof(T)));
    if (!*list) {
        if (count)
            *count = 0;
        return ok ? int(TAPI_RESULT_NO_MEMORY) : result;
    }
    if (n > 0)
        std::memcpy(*list, items.data(), n * sizeof(T));
    return result;
}

template <typename T>
int listCall(int* count, T** list, const std::function<std::vector<T>(const State&)>& items)
{
    const int nullWithCount = ZorTapi::cbListsNullWithCount();
    if (nullWithCount >= 0 && count && list) {
        *count = nullWithCount;
        *list = nullptr;
        return TAPI_RESULT_SUCC;
    }
    if (!count || !list)
        return handOver<T>(count, list, {}, TAPI_RESULT_INVALID_PARAM);
    std::vector<T> values;
    const int result = withState(false, [&](State& s) -> int {
        if (!s.simUsable())
            return TAPI_RESULT_SIM_NOT_READY;
        values = items(s);
        return TAPI_RESULT_SUCC;
    });
    return handOver(count, list, values, result);
}

struct UsimFile {
    unsigned char structure;
    unsigned char recordLength;
    unsigned short size;
};

UsimFile usimFileLayout(unsigned char fileId)
{
    switch (fileId) {
    case TAPI_USIM_EF_MBDN: return {2, 30, 120};
    case TAPI_USIM_EF_MBI: return {2, 4, 4};
    case TAPI_USIM_EF_MWIS: return {2, 5, 5};
    case TAPI_USIM_EF_SMSP: return {2, 40, 40};
    case TAPI_USIM_EF_CBMI: return {1, 0, 2 * TAPI_CB_MAX_CHANNELS};
    case TAPI_USIM_EF_LI: return {1, 0, 10};
    default: return {1, 0, 0};
    }
}

} // namespace

extern "C" {

int TAPI_ACCE_GetSimCardStatus(_TAPI_SIM_STATUS_E* status)
{
    ZORHOST_ENTER(fault) return fault;
    if (!status)
        return TAPI_RESULT_INVALID_PARAM;
    return withState(false, [&](State& s) -> int {
        *status = static_cast<_TAPI_SIM_STATUS_E>(s.simStatus);
        return TAPI_RESULT_SUCC;
    });
}

int TAPI_FTRDB_GetAvailability(int featureId)
{
    ZORHOST_ENTER(fault) return fault;
    bool available = false;
    withState(false, [&](State& s) -> int {
        available = s.simUsable() && s.availableServices.count(featureId) > 0;
        return TAPI_RESULT_SUCC;
    });
    return available ? 1 : 0;
}

int TAPI_SIM_GetUSIMFileInfo(unsigned char fileId, unsigned char, unsigned short, TAPI_SIM_USIM_FILE_INFO_S* info)
{
    ZORHOST_ENTER(fault) return fault;
    if (!info)
        return TAPI_RESULT_INVALID_PARAM;
    return withState(false, [&](State& s) -> int {
        if (!s.simUsable())
            return TAPI_RESULT_SIM_NOT_READY;
        const auto it = s.usimRules.find(fileId);
        if (it == s.usimRules.end())
            return TAPI_RESULT_NOT_FOUND;
        const UsimFile layout = usimFileLayout(fileId);
        *info = TAPI_SIM_USIM_FILE_INFO_S{fileId, it->second, layout.structure, layout.recordLength, layout.size};
        return TAPI_RESULT_SUCC;
    });
}

int TAPI_SMS_SetServiceCenter(const char* address)
{
    ZORHOST_ENTER(fault) return fault;
    return setNumber(address, &State::serviceCentre);
}

int TAPI_SMS_GetServiceCenter(char* address)
{
    ZORHOST_ENTER(fault) return fault;
    return getNumber(address, &State::serviceCentre);
}

int TAPI_SMS_SetEmailGateway(const char* number)
{
    ZORHOST_ENTER(fault) return fault;
    return setNumber(number, &State::emailGateway);
}

int TAPI_SMS_GetEmailGateway(char* number)
{
    ZORHOST_ENTER(fault) return fault;
    return getNumber(number, &State::emailGateway);
}

int TAPI_SMS_NotifyMeStorageFull(void)
{
    ZORHOST_ENTER(fault) return fault;
    return withState(true, [](State& s) -> int {
        if (!s.simUsable())
            return TAPI_RESULT_SIM_NOT_READY;
        s.storageNotification = 1;
        return TAPI_RESULT_SUCC;
    });
}

int TAPI_SMS_NotifyMeStorageAvail(void)
{
    ZORHOST_ENTER(fault) return fault;
    return withState(true, [](State& s) -> int {
        if (!s.simUsable())
            return TAPI_RESULT_SIM_NOT_READY;
        s.storageNotification = 0;
        return TAPI_RESULT_SUCC;
    });
}

int TAPI_SMS_GetSmsTransportMode(unsigned char* mode)
{
    ZORHOST_ENTER(fault) return fault;
    if (!mode)
        return TAPI_RESULT_INVALID_PARAM;
    return withState(false, [&](State& s) -> int {
        if (!s.transportModeSupported)
            return TAPI_RESULT_NOT_SUPPORTED;
        *mode = s.transportMode;
        return TAPI_RESULT_SUCC;
    });
}

int TAPI_SMS_SetSmsTransportMode(unsigned char mode)
{
    ZORHOST_ENTER(fault) return fault;
    if (mode != TAPI_SMS_TRANSPORT_GPRS_OFF && mode != TAPI_SMS_TRANSPORT_GPRS_ON)
        return TAPI_RESULT_INVALID_PARAM;
    return withState(true, [&](State& s) -> int {
        if (!s.transportModeSupported)
            return TAPI_RESULT_NOT_SUPPORTED;
        s.transportMode = mode;
        return TAPI_RESULT_SUCC;
    });
}

int TAPI_CB_GetStatus(unsigned char* state)
{
    ZORHOST_ENTER(fault) return fault;
    if (!state)
        return TAPI_RESULT_INVALID_PARAM;
    return withState(false, [&](State& s) -> int {
        *state = s.cbState;
        return TAPI_RESULT_SUCC;
    });
}

int TAPI_CB_SetStatus(unsigned char state)
{
    ZORHOST_ENTER(fault) return fault;
    return withState(true, [&](State& s) -> int {
        s.cbState = state;
        return TAPI_RESULT_SUCC;
    });
}

int TAPI_CB_AddChannel(unsigned short channel)
{
    ZORHOST_ENTER(fault) return fault;
    if (channel == 65535)
        return TAPI_RESULT_INVALID_PARAM;
    return withState(true, [&](State& s) -> int {
        if (!s.simUsable())
            return TAPI_RESULT_SIM_NOT_READY;
        if (std::find(s.channels.begin(), s.channels.end(), channel) != s.channels.end())
            return TAPI_RESULT_SUCC;
        if (s.channels.size() >= TAPI_CB_MAX_CHANNELS)
            return TAPI_RESULT_LIST_FULL;
        s.channels.push_back(channel);
        return TAPI_RESULT_SUCC;
    });
}

int TAPI_CB_DeleteChannel(unsigned short channel)
{
    ZORHOST_ENTER(fault) return fault;
    if (channel == 65535)
        return TAPI_RESULT_INVALID_PARAM;
    return withState(true, [&](State& s) -> int {
        if (!s.simUsable())
            return TAPI_RESULT_SIM_NOT_READY;
        const auto it = std::find(s.channels.begin(), s.channels.end(), channel);
        if (it == s.channels.end())
            return TAPI_RESULT_NOT_FOUND;
        s.channels.erase(it);
        return TAPI_RESULT_SUCC;
    });
}

int TAPI_CB_GetChannelsEx(int* count, unsigned short** list)
{
    ZORHOST_ENTER(fault) return handOver<unsigned short>(count, list, {}, fault);
    return listCall<unsigned short>(count, list, [](const State& s) { return s.channels; });
}

int TAPI_CB_GetLanguagesEx(int* count, unsigned char** list)
{
    ZORHOST_ENTER(fault) return handOver<unsigned char>(count, list, {}, fault);
    return listCall<unsigned char>(count, list, [](const State& s) { return s.languageSlots; });
}

int TAPI_CB_SetLanguage(unsigned short slot, unsigned char language)
{
    ZORHOST_ENTER(fault) return fault;
    return withState(true, [&](State& s) -> int {
        if (!s.simUsable())
            return TAPI_RESULT_SIM_NOT_READY;
        if (slot >= s.languageSlots.size())
            return TAPI_RESULT_INVALID_PARAM;
        s.languageSlots[slot] = language;
        return TAPI_RESULT_SUCC;
    });
}

int TAPI_MAILBOX_Gsmr4GetEntry(unsigned char type, char* number, unsigned short* name)
{
    ZORHOST_ENTER(fault) return fault;
    if (type > TAPI_MAILBOX_TYPE_OTHER || !number || !name)
        return TAPI_RESULT_INVALID_PARAM;
    return withState(false, [&](State& s) -> int {
        if (const int r = needSim(s))
            return r;
        if (!s.availableServices.count(TAPI_FTRDB_SIM_SERVICE_MBDN))
            return TAPI_RESULT_NOT_SUPPORTED;
        writeNumber(s.gsmr4Entries[type].number, number);
        writeName(s.gsmr4Entries[type].name, name);
        return TAPI_RESULT_SUCC;
    });
}

int TAPI_MAILBOX_Gsmr4SetEntry(unsigned char type, const char* number, const unsigned short* name)
{
    ZORHOST_ENTER(fault) return fault;
    ZorTapi::MailboxEntry entry;
    if (type > TAPI_MAILBOX_TYPE_OTHER || !name || !readNumber(number, &entry.number))
        return TAPI_RESULT_INVALID_PARAM;
    entry.name = readName(name, true);
    return withState(true, [&](State& s) -> int {
        if (const int r = needSim(s))
            return r;
        if (!s.availableServices.count(TAPI_FTRDB_SIM_SERVICE_MBDN))
            return TAPI_RESULT_NOT_SUPPORTED;
        if (!s.gsmr4Modifiable)
            return TAPI_RESULT_ACCESS_DENIED;
        s.gsmr4Entries[type] = entry;
        return TAPI_RESULT_SUCC;
    });
}

int TAPI_MAILBOX_Gsmr4IsModifiable(unsigned char* modifiable)
{
    ZORHOST_ENTER(fault) return fault;
    if (!modifiable)
        return TAPI_RESULT_INVALID_PARAM;
    return withState(false, [&](State& s) -> int {
        if (const int r = needSim(s))
            return r;
        *modifiable = s.gsmr4Modifiable ? 1 : 0;
        return TAPI_RESULT_SUCC;
    });
}

int TAPI_MAILBOX_Gsmr4GetMailCount(unsigned char type, unsigned char* count)
{
    ZORHOST_ENTER(fault) return fault;
    if (type > TAPI_MAILBOX_TYPE_OTHER || !count)
        return TAPI_RESULT_INVALID_PARAM;
    return withState(false, [&](State& s) -> int {
        if (const int r = needSim(s))
            return r;
        if (!s.availableServices.count(TAPI_FTRDB_SIM_SERVICE_MWIS))
            return TAPI_RESULT_NOT_SUPPORTED;
        *count = s.gsmr4Counts[type];
        return TAPI_RESULT_SUCC;
    });
}

int TAPI_MAILBOX_Gsmr4SetMailCount(unsigned char type, unsigned char count)
{
    ZORHOST_ENTER(fault) return fault;
    if (type > TAPI_MAILBOX_TYPE_OTHER)
        return TAPI_RESULT_INVALID_PARAM;
    return withState(true, [&](State& s) -> int {
        if (const int r = needSim(s))
            return r;
        if (!s.availableServices.count(TAPI_FTRDB_SIM_SERVICE_MWIS))
            return TAPI_RESULT_NOT_SUPPORTED;
        s.gsmr4Counts[type] = count;
        return TAPI_RESULT_SUCC;
    });
}

int TAPI_MAILBOX_CphsGetVoiceMailBox(unsigned char line, char* number, unsigned short* name)
{
    ZORHOST_ENTER(fault) return fault;
    if (line < TAPI_TEL_LINE_1 || line > TAPI_TEL_LINE_2 || !number || !name)
        return TAPI_RESULT_INVALID_PARAM;
    return withState(false, [&](State& s) -> int {
        if (const int r = needSim(s))
            return r;
        writeNumber(s.cphsEntries[line - 1u].number, number);
        writeName(s.cphsEntries[line - 1u].name, name);
        return TAPI_RESULT_SUCC;
    });
}

int TAPI_MAILBOX_CphsSetVoiceMailBox(unsigned char line, const char* number, const unsigned short* name)
{
    ZORHOST_ENTER(fault) return fault;
    ZorTapi::MailboxEntry entry;
    if (line < TAPI_TEL_LINE_1 || line > TAPI_TEL_LINE_2 || !name || !readNumber(number, &entry.number))
        return TAPI_RESULT_INVALID_PARAM;
    entry.name = readName(name, false);
    return withState(true, [&](State& s) -> int {
        if (const int r = needSim(s))
            return r;
        s.cphsEntries[line - 1u] = entry;
        return TAPI_RESULT_SUCC;
    });
}

int TAPI_CPHS_SetMessageWaitingFlag(unsigned char line, unsigned char waiting)
{
    ZORHOST_ENTER(fault) return fault;
    if (line > 1)
        return TAPI_RESULT_INVALID_PARAM;
    return withState(true, [&](State& s) -> int {
        if (const int r = needSim(s))
            return r;
        s.cphsWaiting[line] = waiting != 0;
        return TAPI_RESULT_SUCC;
    });
}

} // extern "C"
