// Report lines in a form tests compare whole: the clock ticks of the prefix masked, as standard strings so
// that a failed comparison prints them readably.
#pragma once

#include <QStringList>

#include <string>
#include <vector>

// Each line with the tick digits after its "file(line)[function]" prefix (and only those) replaced by "<T>".
std::vector<std::string> ticksMasked(const QStringList& lines);
// The expected lines in the same form.
std::vector<std::string> expected(const QStringList& lines);
