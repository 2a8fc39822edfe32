// The library's own report lines for a verb: every wrapped telephony call traces itself, and a person
// wants those lines only when something went wrong, or when asking for them with --trace.
#pragma once

#include <QStringList>

#include <functional>

namespace msgctr {

// The verb with "--trace" taken out of its arguments; the report lines it caused go to standard error
// after it when it fails or when --trace was given.
std::function<int(const QStringList&)> withReports(std::function<int(const QStringList&)> verb);

} // namespace msgctr
