// Control interface of the host platform, for tests, benchmarks and tools: where the platform keeps its
// files, back to factory state, fault injection and call counts. The library itself never uses it.
#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace ZorHost {

// Every file of the host platform lives under this folder (created on demand). Default: $ZORHOST_ROOT,
// else $XDG_DATA_HOME/zorhost, else ~/.local/share/zorhost. An empty dir goes back to the default.
void setRoot(const QString& dir);
QString root();

// Where an absolute path of the phone's file system lives on this host (under the root).
QString devicePath(const QString& absoluteDevicePath);

// Every simulator back to its documented factory state; faults and call counts cleared.
void resetAll();

// Every operation of the platform libraries, sorted, named as the platform names them
// ("TAPI_SMS_GetServiceCenter", "SETUP_SET_Manager::getInt").
QStringList operations();
bool isOperation(const QString& operation);

// Faults and call counts are kept in the file "operations" under the root and shared by every process that
// uses the root: a fault set here is met by an application in another process, and the counts are those of
// all processes.

// The next `times` calls (-1: until cleared) of the platform operation, in any process, return `result`
// and change nothing. Refused (false, and one line on stderr) for a name that is not an operation, for an
// operation that cannot fail, for times 0 or below -1, and when the root cannot hold the file.
bool injectFault(const QString& operation, int result, int times = 1);

struct PendingFault {
    QString operation;
    int result;
    int remaining; // -1: until cleared
};
// The faults not yet used up, sorted by operation.
QList<PendingFault> pendingFaults();
void clearFaults();

// How often a platform operation was called since the last reset (faulted calls included); -1 and one
// line on stderr for a name that is not an operation.
int callCount(const QString& operation);
void resetCallCounts();

} // namespace ZorHost
