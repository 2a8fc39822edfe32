#include "ZorHostStateFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

namespace ZorHostCore {

namespace {
// A holder that died leaves its lock file behind; QLockFile takes it over once it is this old.
constexpr int kStaleLockMs = 10000;
constexpr int kLockWaitMs = 30000;

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
} // namespace

StateFile::StateFile(const QString& path) : m_path(path)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
}

StateFile::~StateFile()
{
    while (m_lockDepth > 0)
        unlock();
}

bool StateFile::lock()
{
    if (m_lockDepth > 0) {
        ++m_lockDepth;
        return true;
    }
    if (!m_lock) {
        m_lock = std::make_unique<QLockFile>(m_path + QStringLiteral(".lock"));
        m_lock->setStaleLockTime(kStaleLockMs);
    }
    if (!m_lock->tryLock(kLockWaitMs))
        return false;
    m_lockDepth = 1;
    return true;
}

void StateFile::unlock()
{
    if (m_lockDepth == 0)
        return;
    if (--m_lockDepth == 0)
        m_lock->unlock();
}

QByteArray StateFile::read(bool* ok) const
{
    if (ok)
        *ok = true;
    QFile f(m_path);
    if (!f.exists())
        return QByteArray();
    if (!f.open(QIODevice::ReadOnly)) {
        if (ok)
            *ok = false;
        return QByteArray();
    }
    QByteArray data = f.readAll();
    if (data.isNull())
        data = QByteArray("");
    return data;
}

bool StateFile::write(const QByteArray& contents)
{
    const QByteArray target = QFile::encodeName(m_path);
    const QByteArray temp = target + ".new";
    const int fd = ::open(temp.constData(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
    if (fd < 0)
        return false;
    if (!writeAll(fd, contents.constData(), contents.size()) || ::fsync(fd) != 0) {
        const int err = errno;
        ::close(fd);
        ::unlink(temp.constData());
        errno = err;
        return false;
    }
    if (::close(fd) != 0 || ::rename(temp.constData(), target.constData()) != 0) {
        const int err = errno;
        ::unlink(temp.constData());
        errno = err;
        return false;
    }
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
