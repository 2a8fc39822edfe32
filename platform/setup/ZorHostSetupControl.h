// Control of the configuration store's feature switches, for tests and tools (see SETUP_Utility.h).
#pragma once

#include <QMap>

namespace ZorHost {

// Each answers false with errno set when the switch file cannot be written.
bool setFlexBit(int number, bool on);
// The bit leaves the table: SETUP_Utility::getFlexBit then cannot read it.
bool unsetFlexBit(int number);
bool setFeatureAvailable(int id, bool available);

// The whole tables as SETUP_Utility reads them now.
QMap<int, bool> flexBits();
QMap<int, bool> features();

} // namespace ZorHost
