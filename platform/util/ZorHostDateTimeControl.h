// Control of the host platform's date and time settings, for tests and tools.
#pragma once

#include "UTIL_DateTime.h"

namespace ZorHost {

// The system's display formats, kept across processes until the next reset. False if the setting could
// not be stored, or the value is outside its enumeration.
bool setSystemDateFormat(UTIL_DateTime::DateFormat format);
bool setSystemTimeFormat(UTIL_DateTime::TimeFormat format);

} // namespace ZorHost
