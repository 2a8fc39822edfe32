// Keeps the values of some environment variables (set or not) and puts them back when it goes out of scope;
// a restored TZ takes effect at once.
#pragma once

#include <QByteArray>
#include <QList>

class ScopedEnvironment {
public:
    explicit ScopedEnvironment(const QList<QByteArray>& names);
    ~ScopedEnvironment();
    ScopedEnvironment(const ScopedEnvironment&) = delete;
    ScopedEnvironment& operator=(const ScopedEnvironment&) = delete;

private:
    struct Saved {
        QByteArray name;
        bool isSet;
        QByteArray value;
    };
    QList<Saved> m_saved;
};
