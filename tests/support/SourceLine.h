// Finds where a statement of the project's sources stands, so that a test can check the location a report
// names without writing a line number that any edit above the statement would break.
#pragma once

#include <QString>

#include <vector>

// The line (counted from 1) of the last marker, each marker being searched from the line of the one before
// it on: {"Class::function(", "REPORT"} is the first "REPORT" line from the function's head on. The file is
// named from the project's top folder. A missing file or marker fails the calling test and gives 0.
int sourceLine(const QString& projectFile, const std::vector<const char*>& markers);
