// The one parser of msgctr: reads a command line against the verb declarations, checks the host root the
// verb needs, runs the verb and prints its output. Returns the exit status.
#pragma once

#include <QStringList>

namespace msgctr {

int runCommandLine(const QStringList& args);

} // namespace msgctr
