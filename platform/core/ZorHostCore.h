// Shared machinery of the host platform's simulators: where their files live, fault injection and call
// counting. Simulators call it; applications use the control interface (ZorHostControl.h) instead.
#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <functional>

namespace ZorHostCore {

// The folder every file of the host platform lives under; created on demand.
QString root();
void setRoot(const QString& dir);

// Where an absolute path of the phone's file system lives on this host; its folder is created on demand.
// ".." cannot climb out of the device tree.
QString devicePath(const QString& absoluteDevicePath);

// The operations declared by the platform libraries loaded in this process (ZorHostEntry.h), sorted.
QStringList operations();
bool isOperation(const QString& operation);

// Faults and call counts of the operations, kept in a table under the root that every process using the
// root shares. A name no library declares is refused with one line on stderr.
struct PendingFault {
    QString operation;
    int result;
    int remaining; // -1: until cleared
};
bool injectFault(const QString& operation, int result, int times);
QList<PendingFault> pendingFaults();
void clearFaults();
int callCount(const QString& operation);
void resetCallCounts();

// Simulators register how to drop what they keep in memory; resetAll() runs these after removing the
// simulators' state folders (a missing state folder means the factory state).
void registerReset(const char* simulator, std::function<void()> dropCachedState);
void resetAll();

// The folder of one simulator's persistent state under the root, created on demand.
QString stateDir(const QString& simulator);

} // namespace ZorHostCore
