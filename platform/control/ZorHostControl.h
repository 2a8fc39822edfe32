// Control interface of the host platform, for tests, benchmarks and tools: where the platform keeps its
// files, back to factory state, fault injection and call counts. The library itself never uses it.
#pragma once

#include <QString>

namespace ZorHost {

// Every file of the host platform lives under this folder (created on demand). Default: $ZORHOST_ROOT,
// else $XDG_DATA_HOME/zorhost, else ~/.local/share/zorhost. An empty dir goes back to the default.
void setRoot(const QString& dir);
QString root();

// Where an absolute path of the phone's file system lives on this host (under the root).
QString devicePath(const QString& absoluteDevicePath);

// Every simulator back to its documented factory state; faults and call counts cleared.
void resetAll();

// The next `times` calls (-1: until cleared) of the platform operation return `result` and change nothing.
// Operations are named as the platform names them ("TAPI_SMS_GetServiceCenter", "DmtTree::CreateInteriorNode").
void injectFault(const QString& operation, int result, int times = 1);
void clearFaults();

// How often a platform operation was called since the last reset (faulted calls included).
int callCount(const QString& operation);
void resetCallCounts();

} // namespace ZorHost
