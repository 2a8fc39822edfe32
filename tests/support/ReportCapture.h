// Collects the library's report lines through its print callback. The callback cannot be removed once
// installed, so one capture callback is installed for the process and switched on and off.
#pragma once

#include <QStringList>

namespace ReportCapture {

void start();          // installs the callback on first use and empties the collected lines
void stop();           // lines go nowhere until the next start()
QStringList lines();
QStringList take();

} // namespace ReportCapture
