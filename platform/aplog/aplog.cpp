#include "aplog.h"

#include "ZorHostAplogControl.h"

#include "ZorHostCore.h"
#include "ZorHostEntry.h"

#include <QByteArray>
#include <QFile>

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

namespace {

std::atomic<bool> attached{false};

const bool resetRegistered = (ZorHostCore::registerReset("aplog", [] { attached = false; }), true);

QByteArray escaped(const char* text)
{
    QByteArray out;
    for (const char* p = text; *p; ++p) {
        switch (*p) {
        case '\\': out += "\\\\"; break;
        case '\n': out += "\\n"; break;
        case '\t': out += "\\t"; break;
        default: out += *p; break;
        }
    }
    return out;
}

QByteArray unescaped(const QByteArray& text)
{
    QByteArray out;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const char c = text.at(i);
        if (c != '\\' || i + 1 == text.size()) {
            out += c;
            continue;
        }
        const char next = text.at(++i);
        out += next == 'n' ? '\n' : next == 't' ? '\t' : next;
    }
    return out;
}

// One write() per record on an O_APPEND descriptor: records of several processes never interleave.
bool append(const QByteArray& record)
{
    const int fd = ::open(QFile::encodeName(ZorHost::aplogPath()).constData(),
                          O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0644);
    if (fd < 0)
        return false;
    const ssize_t n = ::write(fd, record.constData(), size_t(record.size()));
    const int err = errno;
    ::close(fd);
    if (n == ssize_t(record.size()))
        return true;
    errno = n < 0 ? err : ENOSPC;
    return false;
}

} // namespace

extern "C" {

void aplog_attach(void)
{
    attached = true;
}

void aplog_detach(void)
{
    attached = false;
}

int aplog_is_attached(void)
{
    return attached ? 1 : 0;
}

int aplog_write(const char* module, int level, const char* text)
{
    ZORHOST_ENTER(fault) {
        errno = fault;
        return -1;
    }
    if (!attached) {
        errno = ENOTCONN;
        return -1;
    }
    if (!module || !*module || std::strpbrk(module, "\t\n")) {
        errno = EINVAL;
        return -1;
    }
    if (level < 0 || level > APLOG_LEVEL_MAX)
        return 1;
    const QByteArray record = QByteArray(module) + '\t' + QByteArray::number(level) + '\t'
        + escaped(text ? text : "") + '\n';
    return append(record) ? 0 : -1;
}

int aplog_vprintf(const char* module, int level, const char* format, va_list args)
{
    va_list copy;
    va_copy(copy, args);
    const int size = std::vsnprintf(nullptr, 0, format, copy);
    va_end(copy);
    if (size < 0) {
        errno = EINVAL;
        return -1;
    }
    QByteArray text(size + 1, '\0');
    std::vsnprintf(text.data(), size_t(size) + 1, format, args);
    return aplog_write(module, level, text.constData());
}

int aplog_printf(const char* module, int level, const char* format, ...)
{
    va_list args;
    va_start(args, format);
    const int result = aplog_vprintf(module, level, format, args);
    va_end(args);
    return result;
}

} // extern "C"

namespace ZorHost {

QString aplogPath()
{
    return ZorHostCore::stateDir(QStringLiteral("aplog")) + QStringLiteral("/aplog.log");
}

QList<AplogRecord> aplogRecords()
{
    QList<AplogRecord> records;
    QFile file(aplogPath());
    if (!file.open(QIODevice::ReadOnly))
        return records;
    for (const QByteArray& line : file.readAll().split('\n')) {
        const QList<QByteArray> fields = line.split('\t');
        if (fields.size() != 3)
            continue;
        bool ok = false;
        const int level = fields.at(1).toInt(&ok);
        if (ok)
            records.append(AplogRecord{QString::fromUtf8(fields.at(0)), level, QString::fromUtf8(unescaped(fields.at(2)))});
    }
    return records;
}

} // namespace ZorHost
