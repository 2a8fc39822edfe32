// Persistent state of a simulator: one file, read without a lock and replaced atomically by writers that
// serialise on a cross-process lock.
#pragma once

#include <QByteArray>
#include <QString>

#include <sys/types.h>
#include <time.h>

namespace ZorHostCore {

// What one stat tells of a file. Writers only ever replace a file by rename, so while a descriptor of the
// old file stays open (a FileHold) its inode cannot be given to a new file, and an equal stamp then means
// equal bytes. Size and both times (to the nanosecond) catch a file rewritten in place.
struct FileStamp {
    bool exists = false;
    bool regular = false;
    dev_t dev = 0;
    ino_t ino = 0;
    off_t size = 0;
    timespec mtime = {};
    timespec ctime = {};

    bool operator==(const FileStamp& other) const;
    bool operator!=(const FileStamp& other) const { return !(*this == other); }

    // One stat of `path`: false with errno set when it fails for another reason than an absent file.
    static bool of(const QByteArray& encodedPath, FileStamp* stamp);
};

// An open descriptor that keeps a read or written file's inode from being reused (see FileStamp).
class FileHold {
public:
    FileHold() = default;
    explicit FileHold(int fd) : m_fd(fd) {}
    ~FileHold();
    FileHold(FileHold&& other) noexcept : m_fd(other.m_fd) { other.m_fd = -1; }
    FileHold& operator=(FileHold&& other) noexcept;
    FileHold(const FileHold&) = delete;
    FileHold& operator=(const FileHold&) = delete;

private:
    int m_fd = -1;
};

class StateFile {
public:
    explicit StateFile(const QString& path);
    ~StateFile();
    StateFile(const StateFile&) = delete;
    StateFile& operator=(const StateFile&) = delete;

    const QString& path() const { return m_path; }
    const QByteArray& encodedPath() const { return m_encodedPath; }

    // Takes the writers' cross-process lock (re-entrant within one object): an advisory lock on a lock file
    // next to the state file that is made once and never removed, so a writer killed while holding it
    // leaves nothing behind. False if it could not be had in time.
    bool lock();
    void unlock();

    enum class ReadResult { Read, Absent, NotRegular, Failed };
    // The whole file, its stamp and a hold on it. A FIFO, folder or device in the file's place is never
    // opened for a blocking read: NotRegular. Failed sets errno.
    ReadResult read(QByteArray* data, FileStamp* stamp, FileHold* hold) const;
    // The whole file; an absent file reads as null (not empty). Sets *ok false on a read error or when the
    // file is not a regular file.
    QByteArray read(bool* ok = nullptr) const;

    // Writes a new file, syncs it and renames it over the old one; on failure the old file stays and
    // errno tells why. On success *stamp and *hold (when given) describe the new file.
    bool write(const QByteArray& contents, FileStamp* stamp = nullptr, FileHold* hold = nullptr);

private:
    QString m_path;
    QByteArray m_encodedPath;
    int m_lockFd = -1;
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
