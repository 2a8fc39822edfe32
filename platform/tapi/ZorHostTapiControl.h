// Control of the simulated modem and SIM (libzortapi.so) for tests and tools: what no TAPI_* call can change,
// and what the modem remembers without telling. These are not platform operations: they are not counted and
// ignore injected faults. Setters return false when the state could not be stored.
#pragma once

#include <QString>

#include <vector>

namespace ZorHost {

// SIM card status as TAPI_ACCE_GetSimCardStatus reports it (3 SIM ready, 4 USIM ready; any value is kept).
bool setSimCardStatus(int status);
int simCardStatus();

// SIM services answered by TAPI_FTRDB_GetAvailability (2348 mailbox dialling numbers, 2349 message waiting).
bool setTapiServiceAvailable(int featureId, bool available);
bool tapiServiceAvailable(int featureId);

// The access-rule byte of a USIM file (TAPI_SIM_GetUSIMFileInfo); setting one adds the file to the card.
// usimAccessRule answers -1 for a file the card does not have.
bool setUsimAccessRule(unsigned char fileId, unsigned char rule);
bool removeUsimFile(unsigned char fileId);
int usimAccessRule(unsigned char fileId);

// Cell-broadcast language slots: their number (new slots are unused, 255; extra ones are dropped, at most
// 255 slots) and their contents (the whole list at once, which also sets the number).
bool setCbLanguageSlotCount(int count);
bool setCbLanguageSlots(const std::vector<unsigned char>& languages);
std::vector<unsigned char> cbLanguageSlots();

// Whether the modem can report and change the SMS transport mode.
bool setSmsTransportModeSupported(bool supported);
bool smsTransportModeSupported();

// Whether the GSM phase 2+ mailbox entries may be changed (TAPI_MAILBOX_Gsmr4IsModifiable).
bool setGsmr4MailboxModifiable(bool modifiable);

// The CPHS message-waiting flag of line 0 or 1, as TAPI_CPHS_SetMessageWaitingFlag left it.
bool cphsMessageWaitingFlag(int line);

// The last storage notification: 0 storage available, 1 storage full, 2 none since the factory state.
int tapiLastStorageNotification();

// For tests of callers: while count >= 0, TAPI_CB_GetChannelsEx and TAPI_CB_GetLanguagesEx succeed with
// *count = count and a null list. -1 (and ZorHost::resetAll) ends it. Kept in this process only.
void setTapiCbListsNullWithCount(int count);

// The whole simulated state as the readable text it is stored in (the factory state when nothing is stored).
QString tapiStateText();

} // namespace ZorHost
