#include "ScopedTimeZone.h"

#include <cstdlib>
#include <ctime>

ScopedTimeZone::ScopedTimeZone(const char* zone)
    : m_hadZone(std::getenv("TZ") != nullptr)
    , m_previous(m_hadZone ? QByteArray(std::getenv("TZ")) : QByteArray())
{
    setenv("TZ", zone, 1);
    tzset();
}

ScopedTimeZone::~ScopedTimeZone()
{
    if (m_hadZone)
        setenv("TZ", m_previous.constData(), 1);
    else
        unsetenv("TZ");
    tzset();
}
