// The library names files by their paths on the phone; this is the one place they are resolved to where
// the platform keeps them.
#pragma once

#include <QString>

QString msgctrDevicePath(const char* absoluteDevicePath);
QString msgctrDevicePath(const QString& absoluteDevicePath);
