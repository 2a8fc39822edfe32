#include "SetupKeyFile.h"

#include "ZorHostCore.h"
#include "ZorHostStateFile.h"

#include <QFile>
#include <QMutex>
#include <QMutexLocker>
#include <QStringDecoder>

#include <cerrno>
#include <cstdio>
#include <memory>

namespace SetupKeyFile {
namespace {

// The last version read of each file, shared by every handle of the process. A file that is not a regular
// file is remembered (without contents) so that it is reported once, not at every read.
struct Cache {
    QMutex mutex;
    QHash<QString, Version> files;
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

void remember(const QString& path, const ZorHostCore::FileStamp& stamp, ZorHostCore::FileHold&& hold,
              const ContentsPtr& contents, Version* version)
{
    version->stamp = stamp;
    version->hold = std::make_shared<ZorHostCore::FileHold>(std::move(hold));
    version->contents = contents;
    QMutexLocker lock(&cache().mutex);
    cache().files.insert(path, *version);
}

enum class Lookup { Miss, Hit, NotRegular };

Lookup cached(const QString& path, const ZorHostCore::FileStamp& stamp, Version* version)
{
    QMutexLocker lock(&cache().mutex);
    const auto it = cache().files.constFind(path);
    if (it == cache().files.constEnd() || it->stamp != stamp)
        return Lookup::Miss;
    *version = *it;
    return it->contents ? Lookup::Hit : Lookup::NotRegular;
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
        // Line ends of CR LF, even doubled by a careless conversion, are line ends; any other CR is a byte the
        // writer never writes, so keeping it would make the next rewrite change the value.
        while (raw.endsWith('\r'))
            raw.chop(1);
        if (raw.contains('\0')) {
            reportDamage(path, i + 1, "binary bytes");
            continue;
        }
        if (raw.contains('\r')) {
            reportDamage(path, i + 1, "CR inside the line");
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

namespace {

// A file in the store's place that is not a regular file (a FIFO, a folder, a device) is never opened for a
// blocking read; it reads as failed with this errno.
constexpr int kNotRegularErrno = ENOTSUP;

// Reads `path` unless *seen is still its current version; *exists tells whether there is a file at all.
bool loadVersion(const QString& path, const QByteArray& encodedPath, Version* seen, bool* exists)
{
    ZorHostCore::FileStamp stamp;
    if (!ZorHostCore::FileStamp::of(encodedPath, &stamp))
        return false;
    *exists = stamp.exists;
    if (!stamp.exists) {
        *seen = Version{stamp, nullptr, emptyContents()};
        return true;
    }
    Lookup known = seen->stamp == stamp ? (seen->contents ? Lookup::Hit : Lookup::NotRegular) : Lookup::Miss;
    if (known == Lookup::Miss)
        known = cached(path, stamp, seen);
    if (known == Lookup::NotRegular)
        errno = kNotRegularErrno;
    if (known != Lookup::Miss)
        return known == Lookup::Hit;

    const ZorHostCore::StateFile file(path);
    QByteArray data;
    ZorHostCore::FileHold hold;
    switch (file.read(&data, &stamp, &hold)) {
    case ZorHostCore::StateFile::ReadResult::Failed:
        return false;
    case ZorHostCore::StateFile::ReadResult::Absent:
        *exists = false;
        *seen = Version{ZorHostCore::FileStamp(), nullptr, emptyContents()};
        return true;
    case ZorHostCore::StateFile::ReadResult::NotRegular:
        std::fprintf(stderr, "SETUP_SET_Manager: %s is not a regular file; it is not read and not replaced\n",
                     encodedPath.constData());
        remember(path, stamp, std::move(hold), nullptr, seen);
        errno = kNotRegularErrno;
        return false;
    case ZorHostCore::StateFile::ReadResult::Read:
        break;
    }
    *exists = true;
    if (cached(path, stamp, seen) == Lookup::Hit)
        return true;
    remember(path, stamp, std::move(hold), std::make_shared<const Contents>(Contents::parse(data, path)), seen);
    return true;
}

} // namespace

bool load(const QString& path, const QByteArray& encodedPath, Version* seen)
{
    bool exists = false;
    return loadVersion(path, encodedPath, seen, &exists);
}

bool load(const QString& path, ContentsPtr* contents)
{
    Version version;
    if (!load(path, QFile::encodeName(path), &version))
        return false;
    *contents = version.contents;
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
        Version current;
        bool existed = false;
        if (!locker.locked()) {
            err = errno ? errno : EAGAIN;
        } else if (!loadVersion(path, file.encodedPath(), &current, &existed)) {
            err = errno;
        } else {
            auto next = std::make_shared<Contents>(existed ? *current.contents : factory);
            change(*next);
            ZorHostCore::FileStamp stamp;
            ZorHostCore::FileHold hold;
            if (!file.write(next->serialize(), &stamp, &hold)) {
                err = errno;
            } else {
                remember(path, stamp, std::move(hold), next, &current);
                ok = true;
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
