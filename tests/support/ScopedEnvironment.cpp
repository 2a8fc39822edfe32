#include "ScopedEnvironment.h"

#include <ctime>

ScopedEnvironment::ScopedEnvironment(const QList<QByteArray>& names)
{
    for (const QByteArray& name : names)
        m_saved.append(Saved{name, qEnvironmentVariableIsSet(name.constData()), qgetenv(name.constData())});
}

ScopedEnvironment::~ScopedEnvironment()
{
    for (const Saved& s : m_saved) {
        if (s.isSet)
            qputenv(s.name.constData(), s.value);
        else
            qunsetenv(s.name.constData());
    }
    tzset();
}
