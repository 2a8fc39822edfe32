// Shared machinery of the host platform's simulators: where their files live, fault injection and call
// counting. Simulators call it; applications use the control interface (ZorHostControl.h) instead.
#pragma once

#include <QString>

#include <functional>

namespace ZorHostCore {

// The folder every file of the host platform lives under; created on demand.
QString root();
void setRoot(const QString& dir);

// Where an absolute path of the phone's file system lives on this host; its folder is created on demand.
// ".." cannot climb out of the device tree.
QString devicePath(const QString& absoluteDevicePath);

// Every platform operation starts here: the call is counted, and if a fault is pending for the operation
// the fault's result is stored in *faultResult and true is returned (the operation then changes nothing).
bool enter(const char* operation, int* faultResult);

void injectFault(const QString& operation, int result, int times);
void clearFaults();
int callCount(const QString& operation);
void resetCallCounts();

// Simulators register how to drop what they keep in memory; resetAll() runs these after removing the
// simulators' state folders (a missing state folder means the factory state). The returned handle takes
// the hook away again, for hooks that do not live as long as the process.
int registerReset(const char* simulator, std::function<void()> dropCachedState);
void unregisterReset(int handle);
void resetAll();

// The folder of one simulator's persistent state under the root, created on demand.
QString stateDir(const QString& simulator);

} // namespace ZorHostCore
