#include "ZorHostControl.h"

#include "ZorHostCore.h"

namespace ZorHost {

void setRoot(const QString& dir) { ZorHostCore::setRoot(dir); }
QString root() { return ZorHostCore::root(); }
QString devicePath(const QString& absoluteDevicePath) { return ZorHostCore::devicePath(absoluteDevicePath); }
void resetAll() { ZorHostCore::resetAll(); }
QStringList operations() { return ZorHostCore::operations(); }
bool isOperation(const QString& operation) { return ZorHostCore::isOperation(operation); }
bool injectFault(const QString& operation, int result, int times)
{
    return ZorHostCore::injectFault(operation, result, times);
}
QList<PendingFault> pendingFaults()
{
    QList<PendingFault> faults;
    for (const ZorHostCore::PendingFault& f : ZorHostCore::pendingFaults())
        faults.append(PendingFault{f.operation, f.result, f.remaining});
    return faults;
}
void clearFaults() { ZorHostCore::clearFaults(); }
int callCount(const QString& operation) { return ZorHostCore::callCount(operation); }
void resetCallCounts() { ZorHostCore::resetCallCounts(); }

} // namespace ZorHost
