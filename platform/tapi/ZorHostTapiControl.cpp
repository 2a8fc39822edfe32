#include "ZorHostTapiControl.h"

#include "TAPI.h"
#include "TapiState.h"

using ZorTapi::State;

namespace ZorHost {
namespace {

bool change(const std::function<void(State&)>& apply)
{
    return ZorTapi::withState(true, [&](State& s) {
               apply(s);
               return TAPI_RESULT_SUCC;
           }) == TAPI_RESULT_SUCC;
}

// The stored state, or the factory state when it cannot be read.
State current()
{
    State state;
    ZorTapi::withState(false, [&](State& s) {
        state = s;
        return TAPI_RESULT_SUCC;
    });
    return state;
}

} // namespace

bool setSimCardStatus(int status)
{
    return change([&](State& s) { s.simStatus = status; });
}

int simCardStatus()
{
    return current().simStatus;
}

bool setTapiServiceAvailable(int featureId, bool available)
{
    return change([&](State& s) {
        if (available)
            s.availableServices.insert(featureId);
        else
            s.availableServices.erase(featureId);
    });
}

bool tapiServiceAvailable(int featureId)
{
    return current().availableServices.count(featureId) > 0;
}

bool setUsimAccessRule(unsigned char fileId, unsigned char rule)
{
    return change([&](State& s) { s.usimRules[fileId] = rule; });
}

bool removeUsimFile(unsigned char fileId)
{
    return change([&](State& s) { s.usimRules.erase(fileId); });
}

int usimAccessRule(unsigned char fileId)
{
    const State s = current();
    const auto it = s.usimRules.find(fileId);
    return it == s.usimRules.end() ? -1 : it->second;
}

bool setCbLanguageSlotCount(int count)
{
    if (count < 0 || count > ZorTapi::kMaxLanguageSlots)
        return false;
    return change([&](State& s) { s.languageSlots.resize(size_t(count), 255); });
}

bool setCbLanguageSlots(const std::vector<unsigned char>& languages)
{
    if (languages.size() > size_t(ZorTapi::kMaxLanguageSlots))
        return false;
    return change([&](State& s) { s.languageSlots = languages; });
}

std::vector<unsigned char> cbLanguageSlots()
{
    return current().languageSlots;
}

bool setSmsTransportModeSupported(bool supported)
{
    return change([&](State& s) { s.transportModeSupported = supported; });
}

bool smsTransportModeSupported()
{
    return current().transportModeSupported;
}

bool setGsmr4MailboxModifiable(bool modifiable)
{
    return change([&](State& s) { s.gsmr4Modifiable = modifiable; });
}

bool cphsMessageWaitingFlag(int line)
{
    return line >= 0 && line <= 1 && current().cphsWaiting[size_t(line)];
}

int tapiLastStorageNotification()
{
    return current().storageNotification;
}

void setTapiCbListsNullWithCount(int count)
{
    ZorTapi::setCbListsNullWithCount(count);
}

QString tapiStateText()
{
    return QString::fromLatin1(ZorTapi::serialize(current()));
}

} // namespace ZorHost
