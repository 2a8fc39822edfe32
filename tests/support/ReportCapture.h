// Collects the library's report lines through its print callback. A null callback leaves the current writer
// in place, so a writer is taken away by installing one that writes each line to standard error exactly as
// the library does when no callback was ever installed.
#pragma once

#include <QStringList>

namespace ReportCapture {

void start();          // installs the capturing writer and empties the collected lines
void stop();           // lines go to standard error again, as without a callback
QStringList lines();
QStringList take();

} // namespace ReportCapture
