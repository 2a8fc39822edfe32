#include "ZorHostStateFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace ZorHostCore {

namespace {

constexpr std::chrono::milliseconds kLockWait{30000};

bool writeAll(int fd, const char* data, qsizetype size)
{
    while (size > 0) {
        const ssize_t n = ::write(fd, data, static_cast<size_t>(size));
        if (n < 0) {
            if (errno == EINTR)
                continue;
            return false;
        }
        data += n;
        size -= n;
    }
    return true;
}

bool readAll(int fd, qint64 sizeHint, QByteArray* data)
{
    // The exact size read once is the common case; a file growing meanwhile is still read to its end.
    data->reserve(qsizetype(sizeHint) + 1);
    char buf[16384];
    for (;;) {
        const ssize_t n = ::read(fd, buf, sizeof buf);
        if (n < 0) {
            if (errno == EINTR)
                continue;
            return false;
        }
        if (n == 0)
            return true;
        data->append(buf, n);
    }
}

void closeKeepingErrno(int fd)
{
    const int err = errno;
    ::close(fd);
    errno = err;
}

FileStamp stampOf(const struct stat& st)
{
    FileStamp s;
    s.exists = true;
    s.regular = S_ISREG(st.st_mode);
    s.dev = st.st_dev;
    s.ino = st.st_ino;
    s.size = st.st_size;
    s.mtime = st.st_mtim;
    s.ctime = st.st_ctim;
    return s;
}

bool sameTime(const timespec& a, const timespec& b)
{
    return a.tv_sec == b.tv_sec && a.tv_nsec == b.tv_nsec;
}

// Creates the file's folder when an open failed for want of it; true when the open is worth retrying.
bool madeFolderFor(const QString& path)
{
    return errno == ENOENT && QDir().mkpath(QFileInfo(path).absolutePath());
}

} // namespace

bool FileStamp::operator==(const FileStamp& o) const
{
    if (exists != o.exists)
        return false;
    return !exists
        || (regular == o.regular && dev == o.dev && ino == o.ino && size == o.size && sameTime(mtime, o.mtime)
            && sameTime(ctime, o.ctime));
}

bool FileStamp::of(const QByteArray& encodedPath, FileStamp* stamp)
{
    struct stat st;
    if (::stat(encodedPath.constData(), &st) != 0) {
        *stamp = FileStamp();
        return errno == ENOENT || errno == ENOTDIR;
    }
    *stamp = stampOf(st);
    return true;
}

FileHold::~FileHold()
{
    if (m_fd >= 0)
        ::close(m_fd);
}

FileHold& FileHold::operator=(FileHold&& other) noexcept
{
    if (this != &other) {
        if (m_fd >= 0)
            ::close(m_fd);
        m_fd = other.m_fd;
        other.m_fd = -1;
    }
    return *this;
}

StateFile::StateFile(const QString& path) : m_path(path), m_encodedPath(QFile::encodeName(path))
{
}

StateFile::~StateFile()
{
    if (m_lockFd >= 0)
        ::close(m_lockFd);
}

bool StateFile::lock()
{
    if (m_lockDepth > 0) {
        ++m_lockDepth;
        return true;
    }
    if (m_lockFd < 0) {
        const QByteArray lockPath = m_encodedPath + ".lock";
        m_lockFd = ::open(lockPath.constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0644);
        if (m_lockFd < 0 && madeFolderFor(m_path))
            m_lockFd = ::open(lockPath.constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0644);
        if (m_lockFd < 0)
            return false;
    }
    // The kernel drops the lock of a process that dies, so there is no stale lock to take over; waiting
    // stays bounded so that a hung holder gives an error instead of a hang.
    const auto deadline = std::chrono::steady_clock::now() + kLockWait;
    std::chrono::microseconds pause{50};
    while (::flock(m_lockFd, LOCK_EX | LOCK_NB) != 0) {
        if (errno == EINTR)
            continue;
        if (errno != EWOULDBLOCK || std::chrono::steady_clock::now() >= deadline)
            return false;
        std::this_thread::sleep_for(pause);
        pause = std::min(pause * 2, std::chrono::microseconds{10000});
    }
    m_lockDepth = 1;
    return true;
}

void StateFile::unlock()
{
    if (m_lockDepth == 0)
        return;
    if (--m_lockDepth == 0)
        ::flock(m_lockFd, LOCK_UN);
}

StateFile::ReadResult StateFile::read(QByteArray* data, FileStamp* stamp, FileHold* hold) const
{
    *data = QByteArray();
    *stamp = FileStamp();
    // Non-blocking, so that opening a FIFO put in the file's place returns at once; fstat then refuses it.
    const int fd = ::open(m_encodedPath.constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY);
    if (fd < 0) {
        if (errno == ENOENT || errno == ENOTDIR)
            return ReadResult::Absent;
        if (errno == ENXIO) { // a socket
            FileStamp::of(m_encodedPath, stamp);
            return ReadResult::NotRegular;
        }
        return ReadResult::Failed;
    }
    struct stat st;
    if (::fstat(fd, &st) != 0) {
        closeKeepingErrno(fd);
        return ReadResult::Failed;
    }
    *stamp = stampOf(st);
    if (!stamp->regular) {
        ::close(fd);
        return ReadResult::NotRegular;
    }
    QByteArray bytes;
    if (!readAll(fd, st.st_size, &bytes)) {
        closeKeepingErrno(fd);
        return ReadResult::Failed;
    }
    if (bytes.isNull())
        bytes = QByteArray("");
    *data = bytes;
    if (hold)
        *hold = FileHold(fd);
    else
        ::close(fd);
    return ReadResult::Read;
}

QByteArray StateFile::read(bool* ok) const
{
    QByteArray data;
    FileStamp stamp;
    const ReadResult result = read(&data, &stamp, nullptr);
    if (ok)
        *ok = result == ReadResult::Read || result == ReadResult::Absent;
    return data;
}

bool StateFile::write(const QByteArray& contents, FileStamp* stamp, FileHold* hold)
{
    const QByteArray temp = m_encodedPath + ".new";
    int fd = ::open(temp.constData(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
    if (fd < 0 && madeFolderFor(m_path))
        fd = ::open(temp.constData(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
    if (fd < 0)
        return false;
    if (!writeAll(fd, contents.constData(), contents.size()) || ::fsync(fd) != 0
        || ::rename(temp.constData(), m_encodedPath.constData()) != 0) {
        closeKeepingErrno(fd);
        const int err = errno;
        ::unlink(temp.constData());
        errno = err;
        return false;
    }
    // The rename changed the file's ctime: its stamp is taken after it.
    struct stat st;
    if (stamp)
        *stamp = ::fstat(fd, &st) == 0 ? stampOf(st) : FileStamp();
    if (hold)
        *hold = FileHold(fd);
    else
        ::close(fd);
    // The rename is durable once the folder is synced.
    const int dirFd = ::open(QFile::encodeName(QFileInfo(m_path).absolutePath()).constData(),
                             O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (dirFd >= 0) {
        ::fsync(dirFd);
        ::close(dirFd);
    }
    return true;
}

} // namespace ZorHostCore
