#include "foundation/DevicePath.h"

#include "ZorHostCore.h"

QString msgctrDevicePath(const char* absoluteDevicePath)
{
    return ZorHostCore::devicePath(QString::fromLatin1(absoluteDevicePath));
}

QString msgctrDevicePath(const QString& absoluteDevicePath)
{
    return ZorHostCore::devicePath(absoluteDevicePath);
}
