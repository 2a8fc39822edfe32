// Persistent state of a simulator: one file, read and replaced atomically under a cross-process lock.
#pragma once

#include <QByteArray>
#include <QLockFile>
#include <QString>

#include <memory>

namespace ZorHostCore {

class StateFile {
public:
    explicit StateFile(const QString& path);
    ~StateFile();
    StateFile(const StateFile&) = delete;
    StateFile& operator=(const StateFile&) = delete;

    const QString& path() const { return m_path; }

    // Takes the cross-process lock (re-entrant within one object); false if it could not be had in time.
    bool lock();
    void unlock();

    // The whole file; an absent file reads as null (not empty). Sets *ok false on a read error.
    QByteArray read(bool* ok = nullptr) const;
    // Writes a new file, syncs it and renames it over the old one; on failure the old file stays and
    // errno tells why.
    bool write(const QByteArray& contents);

private:
    QString m_path;
    std::unique_ptr<QLockFile> m_lock;
    int m_lockDepth = 0;
};

// Holds a state file's lock for one scope.
class StateFileLocker {
public:
    explicit StateFileLocker(StateFile& file) : m_file(file), m_locked(file.lock()) {}
    ~StateFileLocker() { if (m_locked) m_file.unlock(); }
    StateFileLocker(const StateFileLocker&) = delete;
    StateFileLocker& operator=(const StateFileLocker&) = delete;
    bool locked() const { return m_locked; }
private:
    StateFile& m_file;
    bool m_locked;
};

} // namespace ZorHostCore
