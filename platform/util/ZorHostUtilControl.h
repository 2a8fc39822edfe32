// Control of the platform utilities, for tests and tools. A factory reset (ZorHost::resetAll) also puts
// back the quick-text resources "/usr/data_resource/quicktext/<code>.qkt" of en-us, de-de and fr-fr.
#pragma once

#include <QStringList>

namespace ZorHost {

// Makes `code` the system language (one of UTIL_Language's codes). False for an unknown code (errno
// EINVAL) or when the choice cannot be written (errno set).
bool setSystemLanguage(const QString& code);
// Every system language code, in id order.
QStringList systemLanguages();

} // namespace ZorHost
