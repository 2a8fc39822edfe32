#include "ZorHostControl.h"

#include "ZorHostCore.h"

namespace ZorHost {

void setRoot(const QString& dir) { ZorHostCore::setRoot(dir); }
QString root() { return ZorHostCore::root(); }
QString devicePath(const QString& absoluteDevicePath) { return ZorHostCore::devicePath(absoluteDevicePath); }
void resetAll() { ZorHostCore::resetAll(); }
void injectFault(const QString& operation, int result, int times)
{
    ZorHostCore::injectFault(operation, result, times);
}
void clearFaults() { ZorHostCore::clearFaults(); }
int callCount(const QString& operation) { return ZorHostCore::callCount(operation); }
void resetCallCounts() { ZorHostCore::resetCallCounts(); }

} // namespace ZorHost
