#include "SetupKeyFile.h"

#include "ZorHostCore.h"
#include "ZorHostStateFile.h"

#include <QFile>
#include <QMutex>
#include <QMutexLocker>
#include <QStringDecoder>

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace SetupKeyFile {
namespace {

// Files are replaced by rename, never rewritten in place, so an unchanged identity means unchanged bytes.
struct Stamp {
    bool exists = false;
    dev_t dev = 0;
    ino_t ino = 0;
    off_t size = 0;
    struct timespec mtime = {};
    struct timespec ctime = {};

    static Stamp of(const struct stat& st)
    {
        Stamp s;
        s.exists = true;
        s.dev = st.st_dev;
        s.ino = st.st_ino;
        s.size = st.st_size;
        s.mtime = st.st_mtim;
        s.ctime = st.st_ctim;
        return s;
    }
    bool operator==(const Stamp& o) const
    {
        return exists == o.exists && dev == o.dev && ino == o.ino && size == o.size
            && mtime.tv_sec == o.mtime.tv_sec && mtime.tv_nsec == o.mtime.tv_nsec
            && ctime.tv_sec == o.ctime.tv_sec && ctime.tv_nsec == o.ctime.tv_nsec;
    }
};

struct Cached {
    Stamp stamp;
    ContentsPtr contents;
};

struct Cache {
    QMutex mutex;
    QHash<QString, Cached> files;
};

Cache& cache()
{
    static Cache* c = new Cache; // handles may still read at exit
    return *c;
}

const ContentsPtr& emptyContents()
{
    static const ContentsPtr* empty = new ContentsPtr(std::make_shared<const Contents>());
    return *empty;
}

void remember(const QString& path, const Stamp& stamp, const ContentsPtr& contents)
{
    QMutexLocker lock(&cache().mutex);
    cache().files.insert(path, Cached{stamp, contents});
}

bool cached(const QString& path, const Stamp& stamp, ContentsPtr* contents)
{
    QMutexLocker lock(&cache().mutex);
    const auto it = cache().files.constFind(path);
    if (it == cache().files.constEnd() || !(it->stamp == stamp))
        return false;
    *contents = it->contents;
    return true;
}

bool readAll(int fd, QByteArray* data)
{
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

bool hasUnpairedSurrogate(const QString& text)
{
    const qsizetype n = text.size();
    for (qsizetype i = 0; i < n; ++i) {
        const QChar c = text.at(i);
        if (c.isHighSurrogate()) {
            if (i + 1 >= n || !text.at(i + 1).isLowSurrogate())
                return true;
            ++i;
        } else if (c.isLowSurrogate()) {
            return true;
        }
    }
    return false;
}

void reportDamage(const QString& path, int line, const char* why)
{
    std::fprintf(stderr, "SETUP_SET_Manager: %s line %d skipped: %s\n", QFile::encodeName(path).constData(), line,
                 why);
}

} // namespace

const QString* Contents::value(const QString& group, const QString& key) const
{
    const Group* g = findGroup(group);
    if (!g)
        return nullptr;
    const auto it = g->values.constFind(key);
    return it == g->values.constEnd() ? nullptr : &*it;
}

void Contents::set(const QString& group, const QString& key, const QString& value)
{
    Group* g = const_cast<Group*>(findGroup(group));
    if (!g) {
        m_groups.push_back(Group{group, {}, {}});
        g = &m_groups.back();
    }
    if (!g->values.contains(key))
        g->keys.append(key);
    // Stored texts are never null: a key that is present holds at least the empty text.
    g->values.insert(key, value.isNull() ? QString(0, QChar()) : value);
}

void Contents::remove(const QString& group, const QString& key)
{
    for (auto it = m_groups.begin(); it != m_groups.end(); ++it) {
        if (it->name != group)
            continue;
        if (it->values.remove(key) > 0)
            it->keys.removeOne(key);
        if (it->keys.isEmpty())
            m_groups.erase(it);
        return;
    }
}

QStringList Contents::groups() const
{
    QStringList names;
    for (const Group& g : m_groups)
        names.append(g.name);
    return names;
}

QStringList Contents::keys(const QString& group) const
{
    const Group* g = findGroup(group);
    return g ? g->keys : QStringList();
}

const Contents::Group* Contents::findGroup(const QString& name) const
{
    for (const Group& g : m_groups)
        if (g.name == name)
            return &g;
    return nullptr;
}

QByteArray Contents::serialize() const
{
    QByteArray out;
    for (const Group& g : m_groups) {
        if (!out.isEmpty())
            out += '\n';
        out += '[' + g.name.toUtf8() + "]\n";
        for (const QString& key : g.keys)
            out += key.toUtf8() + '=' + g.values.value(key).toUtf8() + '\n';
    }
    return out;
}

Contents Contents::parse(const QByteArray& data, const QString& path)
{
    Contents contents;
    Group* current = nullptr;
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QList<QByteArray> lines = data.split('\n');
    for (int i = 0; i < lines.size(); ++i) {
        QByteArray raw = lines.at(i);
        if (raw.endsWith('\r'))
            raw.chop(1);
        if (raw.contains('\0')) {
            reportDamage(path, i + 1, "binary bytes");
            continue;
        }
        QString line = decoder.decode(raw);
        if (decoder.hasError()) {
            decoder.resetState();
            reportDamage(path, i + 1, "not UTF-8");
            continue;
        }
        const QString trimmed = line.trimmed();
        if (trimmed.isEmpty() || trimmed.startsWith(QLatin1Char('#')) || trimmed.startsWith(QLatin1Char(';')))
            continue;
        if (trimmed.startsWith(QLatin1Char('['))) {
            const QString name = trimmed.mid(1, trimmed.size() - 2);
            if (!trimmed.endsWith(QLatin1Char(']')) || !isValidName(name)) {
                reportDamage(path, i + 1, "bad group header");
                current = nullptr;
                continue;
            }
            current = const_cast<Group*>(contents.findGroup(name));
            if (!current) {
                contents.m_groups.push_back(Group{name, {}, {}});
                current = &contents.m_groups.back();
            }
            continue;
        }
        const qsizetype eq = line.indexOf(QLatin1Char('='));
        if (eq < 0) {
            reportDamage(path, i + 1, "no \"=\"");
            continue;
        }
        const QString key = line.left(eq).trimmed();
        if (!isValidName(key)) {
            reportDamage(path, i + 1, "bad key");
            continue;
        }
        if (!current) {
            reportDamage(path, i + 1, "key outside a group");
            continue;
        }
        contents.set(current->name, key, line.mid(eq + 1));
    }
    // A header whose keys were all damaged leaves nothing worth keeping.
    for (auto it = contents.m_groups.begin(); it != contents.m_groups.end();)
        it = it->keys.isEmpty() ? contents.m_groups.erase(it) : it + 1;
    return contents;
}

bool load(const QString& path, ContentsPtr* contents)
{
    const QByteArray name = QFile::encodeName(path);
    struct stat st;
    if (::stat(name.constData(), &st) != 0) {
        if (errno != ENOENT)
            return false;
        *contents = emptyContents();
        return true;
    }
    if (cached(path, Stamp::of(st), contents))
        return true;
    const int fd = ::open(name.constData(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) {
        if (errno != ENOENT)
            return false;
        *contents = emptyContents();
        return true;
    }
    QByteArray data;
    if (::fstat(fd, &st) != 0 || !readAll(fd, &data)) {
        const int err = errno;
        ::close(fd);
        errno = err;
        return false;
    }
    ::close(fd);
    const Stamp stamp = Stamp::of(st);
    if (cached(path, stamp, contents))
        return true;
    *contents = std::make_shared<const Contents>(Contents::parse(data, path));
    remember(path, stamp, *contents);
    return true;
}

bool update(const QString& path, const std::function<void(Contents&)>& change, const Contents& factory)
{
    int err = 0;
    bool ok = false;
    {
        ZorHostCore::StateFile file(path);
        errno = 0;
        ZorHostCore::StateFileLocker locker(file);
        if (!locker.locked()) {
            err = errno ? errno : EAGAIN;
        } else {
            ContentsPtr current;
            const bool existed = QFile::exists(path);
            if (!load(path, &current)) {
                err = errno;
            } else {
                auto next = std::make_shared<Contents>(existed ? *current : factory);
                change(*next);
                if (!file.write(next->serialize())) {
                    err = errno;
                } else {
                    struct stat st;
                    if (::stat(QFile::encodeName(path).constData(), &st) == 0)
                        remember(path, Stamp::of(st), next);
                    ok = true;
                }
            }
        }
    }
    if (!ok)
        errno = err;
    return ok;
}

bool isValidName(const QString& name)
{
    if (name.isEmpty() || name.trimmed() != name || hasUnpairedSurrogate(name))
        return false;
    if (name.startsWith(QLatin1Char('#')) || name.startsWith(QLatin1Char(';')))
        return false;
    for (const QChar c : name) {
        switch (c.unicode()) {
        case '[': case ']': case '=': case '\r': case '\n': case 0:
            return false;
        default:
            break;
        }
    }
    return true;
}

bool isStorableText(const QString& text)
{
    for (const QChar c : text)
        if (c.unicode() == 0 || c.unicode() == '\r' || c.unicode() == '\n')
            return false;
    return !hasUnpairedSurrogate(text);
}

QString boolText(bool value)
{
    return value ? QStringLiteral("true") : QStringLiteral("false");
}

bool parseBool(const QString& text, bool* value)
{
    if (text.compare(QLatin1String("true"), Qt::CaseInsensitive) == 0 || text == QLatin1String("1")) {
        *value = true;
        return true;
    }
    if (text.compare(QLatin1String("false"), Qt::CaseInsensitive) == 0 || text == QLatin1String("0")) {
        *value = false;
        return true;
    }
    return false;
}

void forgetCachedFiles()
{
    QMutexLocker lock(&cache().mutex);
    cache().files.clear();
}

} // namespace SetupKeyFile

namespace {
// A reset removes the files; forgetting their parses keeps a recycled inode from looking unchanged.
const bool resetRegistered = (ZorHostCore::registerReset("setup", &SetupKeyFile::forgetCachedFiles), true);
} // namespace
