#include "TapiState.h"

#include "TAPI.h"
#include "ZorHostCore.h"
#include "ZorHostStateFile.h"

#include <QList>
#include <QMutex>
#include <QMutexLocker>

#include <atomic>
#include <memory>
#include <cstdio>

namespace ZorTapi {
namespace {

const char kHeader[] = "# Simulated modem and SIM of libzortapi (change it with msgctr tapi ...)\n";
const char kFormatLine[] = "format = 1";

// The parse of the file's current version, shared by every call of the process until the file changes. A
// call that only reads sees it without taking the writers' lock; the hold keeps the stamp meaningful.
struct Version {
    ZorHostCore::FileStamp stamp;
    ZorHostCore::FileHold hold;
    QByteArray text; // null when there is no file
    std::shared_ptr<State> state;
};

struct Cache {
    QMutex mutex;
    QString path;
    bool valid = false;
    Version version;
};

Cache& cache()
{
    static Cache* c = new Cache; // simulators may be called during exit
    return *c;
}

std::atomic<int> g_cbListsNullWithCount{-1};

void dropCache()
{
    QMutexLocker lock(&cache().mutex);
    cache().valid = false;
    cache().version = Version();
    g_cbListsNullWithCount = -1;
}

const bool g_resetRegistered = (ZorHostCore::registerReset("tapi", dropCache), true);

QString statePath()
{
    return ZorHostCore::stateDir(QStringLiteral("tapi")) + QStringLiteral("/tapi.state");
}

// ---- writing ----

QByteArray hex(unsigned value, int digits)
{
    return QByteArray::number(value, 16).rightJustified(digits, '0').toUpper();
}

bool plain(unsigned unit)
{
    return unit >= 0x20 && unit < 0x7F && unit != '"' && unit != '\\';
}

QByteArray quoteNumber(const std::string& number)
{
    QByteArray out("\"");
    for (unsigned char c : number) {
        if (plain(c))
            out += char(c);
        else if (c == '"' || c == '\\')
            out += '\\' + QByteArray(1, char(c));
        else
            out += "\\x" + hex(c, 2);
    }
    return out + '"';
}

QByteArray quoteName(const std::u16string& name)
{
    QByteArray out("\"");
    for (char16_t u : name) {
        if (plain(u))
            out += char(u);
        else if (u == u'"' || u == u'\\')
            out += '\\' + QByteArray(1, char(u));
        else
            out += "\\u" + hex(u, 4);
    }
    return out + '"';
}

template <typename Container>
QByteArray joinNumbers(const Container& values)
{
    QByteArray out;
    for (auto v : values) {
        if (!out.isEmpty())
            out += ' ';
        out += QByteArray::number(static_cast<int>(v));
    }
    return out;
}

void line(QByteArray* out, const char* key, const QByteArray& value)
{
    *out += key;
    *out += value.isEmpty() ? QByteArray(" =") : QByteArray(" = ") + value;
    *out += '\n';
}

// ---- reading ----

bool unquote(const QByteArray& value, std::u16string* units)
{
    units->clear();
    if (value.size() < 2 || !value.startsWith('"') || !value.endsWith('"'))
        return false;
    for (qsizetype i = 1; i < value.size() - 1; ++i) {
        const unsigned char c = static_cast<unsigned char>(value[i]);
        if (c != '\\') {
            if (!plain(c))
                return false;
            units->push_back(c);
            continue;
        }
        if (++i >= value.size() - 1)
            return false;
        const char kind = value[i];
        if (kind == '"' || kind == '\\') {
            units->push_back(static_cast<char16_t>(kind));
            continue;
        }
        const int digits = kind == 'x' ? 2 : kind == 'u' ? 4 : 0;
        if (digits == 0 || i + digits >= value.size())
            return false;
        bool ok = false;
        const uint unit = value.mid(i + 1, digits).toUInt(&ok, 16);
        if (!ok || unit == 0)
            return false;
        units->push_back(static_cast<char16_t>(unit));
        i += digits;
    }
    return true;
}

bool parseNumberText(const QByteArray& value, std::string* number)
{
    std::u16string units;
    if (!unquote(value, &units) || units.size() > size_t(kMaxNumberChars))
        return false;
    number->clear();
    for (char16_t u : units) {
        if (u > 0xFF)
            return false;
        number->push_back(static_cast<char>(u));
    }
    return true;
}

bool parseNameText(const QByteArray& value, std::u16string* name)
{
    return unquote(value, name) && name->size() <= size_t(kMaxNameUnits);
}

bool parseInt(const QByteArray& value, long long lo, long long hi, long long* out)
{
    bool ok = false;
    const long long v = value.toLongLong(&ok);
    if (!ok || v < lo || v > hi)
        return false;
    *out = v;
    return true;
}

bool parseList(const QByteArray& value, long long lo, long long hi, std::vector<long long>* out)
{
    out->clear();
    for (const QByteArray& item : value.split(' ')) {
        if (item.isEmpty())
            continue;
        long long v = 0;
        if (!parseInt(item, lo, hi, &v))
            return false;
        out->push_back(v);
    }
    return true;
}

bool parseBool(const QByteArray& value, bool* out)
{
    if (value != "0" && value != "1")
        return false;
    *out = value == "1";
    return true;
}

bool parseEntryKey(const QByteArray& key, const char* prefix, int first, int count, int* index, QByteArray* field)
{
    if (!key.startsWith(prefix))
        return false;
    const QByteArray rest = key.mid(qsizetype(qstrlen(prefix)));
    const qsizetype dot = rest.indexOf('.');
    if (dot != 1)
        return false;
    const int n = rest[0] - '0';
    if (n < first || n >= first + count)
        return false;
    *index = n - first;
    *field = rest.mid(2);
    return true;
}

bool applyLine(const QByteArray& key, const QByteArray& value, State* s)
{
    long long v = 0;
    std::vector<long long> list;
    int index = 0;
    QByteArray field;
    if (key == "sim.status") {
        if (!parseInt(value, INT32_MIN, INT32_MAX, &v))
            return false;
        s->simStatus = int(v);
    } else if (key == "sim.services") {
        if (!parseList(value, INT32_MIN, INT32_MAX, &list))
            return false;
        s->availableServices.clear();
        for (long long id : list)
            s->availableServices.insert(int(id));
    } else if (key == "usim.access-rules") {
        s->usimRules.clear();
        for (const QByteArray& item : value.split(' ')) {
            if (item.isEmpty())
                continue;
            const QList<QByteArray> pair = item.split(':');
            long long id = 0;
            long long rule = 0;
            if (pair.size() != 2 || !parseInt(pair[0], 0, 255, &id) || !parseInt(pair[1], 0, 255, &rule))
                return false;
            s->usimRules[static_cast<unsigned char>(id)] = static_cast<unsigned char>(rule);
        }
    } else if (key == "sms.service-centre") {
        return parseNumberText(value, &s->serviceCentre);
    } else if (key == "sms.email-gateway") {
        return parseNumberText(value, &s->emailGateway);
    } else if (key == "sms.transport-mode") {
        if (!parseInt(value, 1, 2, &v))
            return false;
        s->transportMode = static_cast<unsigned char>(v);
    } else if (key == "sms.transport-mode-supported") {
        return parseBool(value, &s->transportModeSupported);
    } else if (key == "sms.storage-notification") {
        if (!parseInt(value, 0, 2, &v))
            return false;
        s->storageNotification = int(v);
    } else if (key == "cb.state") {
        if (!parseInt(value, 0, 255, &v))
            return false;
        s->cbState = static_cast<unsigned char>(v);
    } else if (key == "cb.channels") {
        if (!parseList(value, 0, 65534, &list) || list.size() > TAPI_CB_MAX_CHANNELS)
            return false;
        s->channels.clear();
        for (long long c : list) {
            for (unsigned short known : s->channels)
                if (known == c)
                    return false;
            s->channels.push_back(static_cast<unsigned short>(c));
        }
    } else if (key == "cb.language-slots") {
        if (!parseList(value, 0, 255, &list) || list.size() > size_t(kMaxLanguageSlots))
            return false;
        s->languageSlots.assign(list.begin(), list.end());
    } else if (key == "mailbox.modifiable") {
        return parseBool(value, &s->gsmr4Modifiable);
    } else if (parseEntryKey(key, "mailbox.", 0, 4, &index, &field)) {
        if (field == "number")
            return parseNumberText(value, &s->gsmr4Entries[size_t(index)].number);
        if (field == "name")
            return parseNameText(value, &s->gsmr4Entries[size_t(index)].name);
        if (field != "count" || !parseInt(value, 0, 255, &v))
            return false;
        s->gsmr4Counts[size_t(index)] = static_cast<unsigned char>(v);
    } else if (parseEntryKey(key, "cphs.line", 1, 2, &index, &field)) {
        if (field == "number")
            return parseNumberText(value, &s->cphsEntries[size_t(index)].number);
        if (field == "name")
            return parseNameText(value, &s->cphsEntries[size_t(index)].name);
        if (field != "waiting")
            return false;
        bool waiting = false;
        if (!parseBool(value, &waiting))
            return false;
        s->cphsWaiting[size_t(index)] = waiting;
    } else {
        return false;
    }
    return true;
}

} // namespace

QByteArray serialize(const State& s)
{
    QByteArray out(kHeader);
    out += kFormatLine;
    out += '\n';
    line(&out, "sim.status", QByteArray::number(s.simStatus));
    line(&out, "sim.services", joinNumbers(s.availableServices));
    QByteArray rules;
    for (const auto& [id, rule] : s.usimRules) {
        if (!rules.isEmpty())
            rules += ' ';
        rules += QByteArray::number(id) + ':' + QByteArray::number(rule);
    }
    line(&out, "usim.access-rules", rules);
    line(&out, "sms.service-centre", quoteNumber(s.serviceCentre));
    line(&out, "sms.email-gateway", quoteNumber(s.emailGateway));
    line(&out, "sms.transport-mode", QByteArray::number(s.transportMode));
    line(&out, "sms.transport-mode-supported", s.transportModeSupported ? "1" : "0");
    line(&out, "sms.storage-notification", QByteArray::number(s.storageNotification));
    line(&out, "cb.state", QByteArray::number(s.cbState));
    line(&out, "cb.channels", joinNumbers(s.channels));
    line(&out, "cb.language-slots", joinNumbers(s.languageSlots));
    line(&out, "mailbox.modifiable", s.gsmr4Modifiable ? "1" : "0");
    for (int i = 0; i < 4; ++i) {
        const QByteArray prefix = "mailbox." + QByteArray::number(i) + '.';
        line(&out, prefix + "number", quoteNumber(s.gsmr4Entries[size_t(i)].number));
        line(&out, prefix + "name", quoteName(s.gsmr4Entries[size_t(i)].name));
        line(&out, prefix + "count", QByteArray::number(s.gsmr4Counts[size_t(i)]));
    }
    for (int i = 0; i < 2; ++i) {
        const QByteArray prefix = "cphs.line" + QByteArray::number(i + 1) + '.';
        line(&out, prefix + "number", quoteNumber(s.cphsEntries[size_t(i)].number));
        line(&out, prefix + "name", quoteName(s.cphsEntries[size_t(i)].name));
        line(&out, prefix + "waiting", s.cphsWaiting[size_t(i)] ? "1" : "0");
    }
    return out;
}

bool parse(const QByteArray& text, State* state, QString* reason)
{
    *state = State();
    const QList<QByteArray> lines = text.split('\n');
    bool formatSeen = false;
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const QByteArray& l = lines[i];
        if (l.isEmpty() || l.startsWith('#'))
            continue;
        const auto fail = [&](const char* what) {
            *reason = QStringLiteral("line %1: %2").arg(i + 1).arg(QLatin1String(what));
            return false;
        };
        if (!formatSeen) {
            if (l != kFormatLine)
                return fail("expected \"format = 1\"");
            formatSeen = true;
            continue;
        }
        const qsizetype eq = l.indexOf(" =");
        if (eq <= 0)
            return fail("not \"key = value\"");
        QByteArray value = l.mid(eq + 2);
        if (!value.isEmpty()) {
            if (!value.startsWith(' ') || value.size() == 1)
                return fail("not \"key = value\"");
            value = value.mid(1);
        }
        if (!applyLine(l.left(eq), value, state))
            return fail("unknown key or bad value");
    }
    if (!formatSeen) {
        *reason = QStringLiteral("no \"format = 1\" line");
        return false;
    }
    return true;
}

namespace {

// The cached version when its stamp is still the file's.
bool cachedVersion(const QString& path, const ZorHostCore::FileStamp& now, std::shared_ptr<State>* state,
                   QByteArray* text)
{
    QMutexLocker lock(&cache().mutex);
    if (!cache().valid || cache().path != path || cache().version.stamp != now)
        return false;
    *state = cache().version.state;
    *text = cache().version.text;
    return true;
}

void remember(const QString& path, Version&& version)
{
    QMutexLocker lock(&cache().mutex);
    cache().path = path;
    cache().version = std::move(version);
    cache().valid = true;
}

enum class Load { Loaded, Damaged, Failed };

// The state as the file holds it now. A damaged file is replaced by the factory state only when `repair`
// is set (the caller then holds the writers' lock); otherwise the answer is Damaged.
Load load(ZorHostCore::StateFile& file, bool repair, std::shared_ptr<State>* state, QByteArray* text)
{
    ZorHostCore::FileStamp now;
    if (!ZorHostCore::FileStamp::of(file.encodedPath(), &now))
        return Load::Failed;
    if (cachedVersion(file.path(), now, state, text))
        return Load::Loaded;

    Version version;
    switch (file.read(&version.text, &version.stamp, &version.hold)) {
    case ZorHostCore::StateFile::ReadResult::Failed:
        return Load::Failed;
    case ZorHostCore::StateFile::ReadResult::NotRegular:
        std::fprintf(stderr, "zortapi: state file %s is not a regular file; it is left alone and not read\n",
                     file.encodedPath().constData());
        std::fflush(stderr);
        return Load::Failed;
    case ZorHostCore::StateFile::ReadResult::Absent:
        version.state = std::make_shared<State>();
        break;
    case ZorHostCore::StateFile::ReadResult::Read: {
        version.state = std::make_shared<State>();
        QString reason;
        if (parse(version.text, version.state.get(), &reason))
            break;
        if (!repair)
            return Load::Damaged;
        std::fprintf(stderr, "zortapi: damaged state file %s (%s); the factory state replaces it\n",
                     file.encodedPath().constData(), qPrintable(reason));
        std::fflush(stderr);
        *version.state = State();
        version.text = serialize(*version.state);
        if (!file.write(version.text, &version.stamp, &version.hold))
            return Load::Failed;
        break;
    }
    }
    *state = version.state;
    *text = version.text;
    remember(file.path(), std::move(version));
    return Load::Loaded;
}

} // namespace

int withState(bool modify, const std::function<int(State&)>& fn)
{
    ZorHostCore::StateFile file(statePath());
    std::shared_ptr<State> state;
    QByteArray text;
    if (!modify) {
        // Writers replace the file atomically, so a reader sees a whole old or new version without the lock.
        const Load loaded = load(file, false, &state, &text);
        if (loaded == Load::Failed)
            return TAPI_RESULT_IO_ERROR;
        if (loaded == Load::Loaded)
            return fn(*state);
    }

    ZorHostCore::StateFileLocker locker(file);
    if (!locker.locked() || load(file, true, &state, &text) != Load::Loaded)
        return TAPI_RESULT_IO_ERROR;
    if (!modify)
        return fn(*state);
    State changed = *state;
    const int result = fn(changed);
    if (result != TAPI_RESULT_SUCC)
        return result;
    Version version;
    version.text = serialize(changed);
    if (version.text == text)
        return result;
    if (!file.write(version.text, &version.stamp, &version.hold))
        return TAPI_RESULT_IO_ERROR;
    version.state = std::make_shared<State>(std::move(changed));
    remember(file.path(), std::move(version));
    return result;
}

int cbListsNullWithCount()
{
    return g_cbListsNullWithCount;
}

void setCbListsNullWithCount(int count)
{
    g_cbListsNullWithCount = count < 0 ? -1 : count;
}

} // namespace ZorTapi
