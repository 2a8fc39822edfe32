// Sets the process's zone (TZ) for the lifetime of the object and puts the previous value back after it.
#pragma once

#include <QByteArray>

class ScopedTimeZone {
public:
    explicit ScopedTimeZone(const char* zone);
    ~ScopedTimeZone();
    ScopedTimeZone(const ScopedTimeZone&) = delete;
    ScopedTimeZone& operator=(const ScopedTimeZone&) = delete;

private:
    bool m_hadZone;
    QByteArray m_previous;
};
