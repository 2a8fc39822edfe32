#include "SETUP_SET_Manager.h"

#include "SetupKeyFile.h"
#include "ZorHostCore.h"
#include "ZorHostEntry.h"

#include <QUrl>

#include <cerrno>

namespace {

QString appStorePath(AM_Global::Apps app)
{
    return ZorHostCore::stateDir(QStringLiteral("setup")) + QStringLiteral("/apps/") + QString::number(int(app))
        + QStringLiteral(".conf");
}

QString namedStorePath(const QString& name)
{
    return ZorHostCore::stateDir(QStringLiteral("setup")) + QStringLiteral("/files/")
        + QString::fromLatin1(QUrl::toPercentEncoding(name, QByteArray(), "~")) + QStringLiteral(".conf");
}

// A call that changed nothing; errno tells why.
bool failed(int error)
{
    errno = error;
    return false;
}

// A read that failed answers the caller's default.
template <typename T>
bool readFailed(T* value, const T& defaultValue, int error)
{
    if (value)
        *value = defaultValue;
    return failed(error);
}

} // namespace

SETUP_SET_Manager::SETUP_SET_Manager(AM_Global::Apps app, bool flush) : m_path(appStorePath(app)), m_flush(flush)
{
}

SETUP_SET_Manager::SETUP_SET_Manager(const QString& name, bool flush, bool create)
    : m_path(namedStorePath(name)), m_flush(flush)
{
    if (create) {
        const int savedErrno = errno;
        SetupKeyFile::update(m_path, [](SetupKeyFile::Contents&) {});
        errno = savedErrno;
    }
}

SETUP_SET_Manager::~SETUP_SET_Manager() = default;

bool SETUP_SET_Manager::lookup(const QString& group, const QString& key, QString* raw) const
{
    for (auto it = m_pending.rbegin(); it != m_pending.rend(); ++it) {
        if (it->group == group && it->key == key) {
            if (!it->value)
                return false;
            *raw = *it->value;
            return true;
        }
    }
    SetupKeyFile::ContentsPtr contents;
    if (!SetupKeyFile::load(m_path, &contents))
        return false;
    const QString* value = contents->value(group, key);
    if (!value)
        return false;
    *raw = *value;
    return true;
}

bool SETUP_SET_Manager::getInt(const QString& group, const QString& key, int* value, int defaultValue) const
{
    ZORHOST_ENTER(fault) return readFailed(value, defaultValue, fault);
    QString raw;
    bool ok = false;
    int parsed = 0;
    if (lookup(group, key, &raw))
        parsed = raw.toInt(&ok, 10);
    if (value)
        *value = ok ? parsed : defaultValue;
    return ok;
}

bool SETUP_SET_Manager::getUInt(const QString& group, const QString& key, unsigned int* value,
                                unsigned int defaultValue) const
{
    ZORHOST_ENTER(fault) return readFailed(value, defaultValue, fault);
    QString raw;
    bool ok = false;
    unsigned int parsed = 0;
    if (lookup(group, key, &raw))
        parsed = raw.toUInt(&ok, 10);
    if (value)
        *value = ok ? parsed : defaultValue;
    return ok;
}

bool SETUP_SET_Manager::getBool(const QString& group, const QString& key, bool* value, bool defaultValue) const
{
    ZORHOST_ENTER(fault) return readFailed(value, defaultValue, fault);
    QString raw;
    bool ok = false;
    bool parsed = false;
    if (lookup(group, key, &raw))
        ok = SetupKeyFile::parseBool(raw, &parsed);
    if (value)
        *value = ok ? parsed : defaultValue;
    return ok;
}

bool SETUP_SET_Manager::getString(const QString& group, const QString& key, QString* value,
                                  const QString& defaultValue, bool emptyIsUnset) const
{
    ZORHOST_ENTER(fault) return readFailed(value, defaultValue, fault);
    QString raw;
    bool ok = false;
    if (lookup(group, key, &raw))
        ok = !(emptyIsUnset && raw.isEmpty());
    if (value)
        *value = ok ? raw : defaultValue;
    return ok;
}

bool SETUP_SET_Manager::write(const QString& group, const QString& key, const std::optional<QString>& value)
{
    if (!isValidName(group) || !isValidName(key) || (value && !isStorableText(*value))) {
        errno = EINVAL;
        return false;
    }
    if (!m_flush) {
        m_pending.push_back(Write{group, key, value && value->isNull() ? QString(0, QChar()) : value});
        return true;
    }
    return SetupKeyFile::update(m_path, [&](SetupKeyFile::Contents& contents) {
        if (value)
            contents.set(group, key, *value);
        else
            contents.remove(group, key);
    });
}

bool SETUP_SET_Manager::setInt(const QString& group, const QString& key, int value)
{
    ZORHOST_ENTER(fault) return failed(fault);
    return write(group, key, QString::number(value));
}

bool SETUP_SET_Manager::setUInt(const QString& group, const QString& key, unsigned int value)
{
    ZORHOST_ENTER(fault) return failed(fault);
    return write(group, key, QString::number(value));
}

bool SETUP_SET_Manager::setBool(const QString& group, const QString& key, bool value)
{
    ZORHOST_ENTER(fault) return failed(fault);
    return write(group, key, SetupKeyFile::boolText(value));
}

bool SETUP_SET_Manager::setString(const QString& group, const QString& key, const QString& value, bool emptyIsUnset)
{
    ZORHOST_ENTER(fault) return failed(fault);
    if (emptyIsUnset && value.isEmpty())
        return write(group, key, std::nullopt);
    return write(group, key, value);
}

bool SETUP_SET_Manager::removeEntry(const QString& group, const QString& key)
{
    ZORHOST_ENTER(fault) return failed(fault);
    return write(group, key, std::nullopt);
}

bool SETUP_SET_Manager::flush()
{
    ZORHOST_ENTER(fault) return failed(fault);
    if (m_pending.empty())
        return true;
    const bool ok = SetupKeyFile::update(m_path, [this](SetupKeyFile::Contents& contents) {
        for (const Write& w : m_pending) {
            if (w.value)
                contents.set(w.group, w.key, *w.value);
            else
                contents.remove(w.group, w.key);
        }
    });
    if (ok)
        m_pending.clear();
    return ok;
}

QStringList SETUP_SET_Manager::listed(const QString* group) const
{
    SetupKeyFile::ContentsPtr contents;
    SetupKeyFile::Contents view;
    if (SetupKeyFile::load(m_path, &contents))
        view = *contents;
    for (const Write& w : m_pending) {
        if (w.value)
            view.set(w.group, w.key, *w.value);
        else
            view.remove(w.group, w.key);
    }
    return group ? view.keys(*group) : view.groups();
}

QStringList SETUP_SET_Manager::groups() const
{
    return listed(nullptr);
}

QStringList SETUP_SET_Manager::keys(const QString& group) const
{
    return listed(&group);
}

bool SETUP_SET_Manager::isValidName(const QString& name)
{
    return SetupKeyFile::isValidName(name);
}

bool SETUP_SET_Manager::isStorableText(const QString& text)
{
    return SetupKeyFile::isStorableText(text);
}
