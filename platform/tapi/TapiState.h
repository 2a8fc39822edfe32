// The simulated modem and SIM: its state, kept as readable text under the host root.
#pragma once

#include <QByteArray>
#include <QString>

#include <array>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace ZorTapi {

struct MailboxEntry {
    std::string number;     // 8-bit, at most 41 characters
    std::u16string name;    // UCS-2, at most 51 units
};

struct State {
    int simStatus = 3;
    std::set<int> availableServices{2348, 2349};
    std::map<unsigned char, unsigned char> usimRules{{1, 4}, {2, 4}, {3, 4}, {4, 4}, {5, 4}, {6, 4}};
    std::string serviceCentre = "+12065550100";
    std::string emailGateway = "6245";
    unsigned char transportMode = 1;
    bool transportModeSupported = true;
    int storageNotification = 2;
    unsigned char cbState = 0;
    std::vector<unsigned short> channels;
    std::vector<unsigned char> languageSlots{1, 255, 255, 255, 255};
    bool gsmr4Modifiable = true;
    std::array<MailboxEntry, 4> gsmr4Entries;
    std::array<unsigned char, 4> gsmr4Counts{{0, 0, 0, 0}};
    std::array<MailboxEntry, 2> cphsEntries;
    std::array<bool, 2> cphsWaiting{{false, false}};

    bool simUsable() const { return simStatus == 3 || simStatus == 4; }
};

constexpr int kMaxNumberChars = 41;
constexpr int kMaxNameUnits = 51;
constexpr int kMaxLanguageSlots = 255;

QByteArray serialize(const State& state);
// False with a reason when the text is not a valid state; *state is then of no use.
bool parse(const QByteArray& text, State* state, QString* reason);

// Runs fn on the stored state. A call that only reads (`modify` false) takes no lock: it sees the parse of
// the file's current version, cached for the process and shared, so fn must leave the state as it is. A call
// with `modify` set runs under the writers' cross-process lock on a copy, which is written back when fn
// returns TAPI_RESULT_SUCC and changed it. A damaged file is reported on stderr and replaced (under the
// lock) by the factory state before fn runs; a file that is not a regular file is reported and never read.
// Returns fn's result, or TAPI_RESULT_IO_ERROR when the state cannot be had or kept.
int withState(bool modify, const std::function<int(State&)>& fn);

// Process-local test hook of the two cell-broadcast list calls (-1: off).
int cbListsNullWithCount();
void setCbListsNullWithCount(int count);

} // namespace ZorTapi
