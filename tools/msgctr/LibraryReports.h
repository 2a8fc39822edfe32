// The library's own report lines for a verb: every wrapped telephony call traces itself, and a person
// wants those lines only when something went wrong, or when asking for them with --trace.
#pragma once

#include "Verb.h"

namespace msgctr {

// The verb with the report lines it caused sent to standard error after it when it fails or when --trace
// (traceFlag()) was given.
Verb::Run withReports(Verb::Run verb);

// The --trace option of a verb run withReports().
Arg traceFlag();

} // namespace msgctr
