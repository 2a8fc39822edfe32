#include "ZorHostOperationTable.h"

#include "ZorHostCore.h"
#include "ZorHostEntry.h"

#include <QByteArray>
#include <QMap>
#include <QMutex>
#include <QMutexLocker>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstring>
#include <vector>

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

namespace ZorHostCore {
namespace {

// The file's first slot-sized block; the slots follow it.
struct TableHeader {
    char magic[8];
    std::uint32_t slotCount;
    char reserved[116];
};
static_assert(sizeof(TableHeader) == sizeof(OperationSlot), "the header takes the place of one slot");

constexpr char kMagic[8] = {'Z', 'O', 'R', 'O', 'P', 'S', '1', '\0'};
constexpr std::uint32_t kSlotCount = 1023;
constexpr size_t kTableBytes = sizeof(TableHeader) + kSlotCount * sizeof(OperationSlot);
constexpr std::uint32_t kUntilCleared = 0xFFFFFFFFu;

void diagnose(const QString& line)
{
    std::fprintf(stderr, "zorhost: %s\n", line.toUtf8().constData());
}

// The operation's qualified name: its signature without the return type and the parameters.
QByteArray nameOf(const char* signature)
{
    QByteArray name(signature);
    const qsizetype open = name.indexOf('(');
    if (open >= 0)
        name.truncate(open);
    return name.mid(name.lastIndexOf(' ') + 1);
}

struct Table {
    OperationSlot* entries = nullptr;
    int fd = -1; // -1: the root cannot hold a table, so the slots are the process's own
    bool mapped = false;
    QString path;
    QString error;
};

struct Registry {
    QMutex mutex;
    std::vector<Operation* const*> modules;
    std::vector<Operation*> sites;
    QMap<QByteArray, bool> declared; // name: may fail
    bool attached = false;
    Table table;
    Table retired; // the table before the current one
    OperationSlot overflow{}; // counts operations the table has no room for
};

Registry& registry()
{
    static Registry* r = new Registry; // lives for the process: operations may be called at exit
    return *r;
}

// Serialises what changes the table's entries between processes; threads of one process are serialised by
// the registry's mutex, which every holder of this lock holds.
class TableLock {
public:
    explicit TableLock(int fd) : m_fd(fd)
    {
        if (m_fd < 0)
            return;
        struct flock lock = {};
        lock.l_type = F_WRLCK;
        lock.l_whence = SEEK_SET;
        while (fcntl(m_fd, F_SETLKW, &lock) != 0 && errno == EINTR) {
        }
    }
    ~TableLock()
    {
        if (m_fd < 0)
            return;
        struct flock lock = {};
        lock.l_type = F_UNLCK;
        lock.l_whence = SEEK_SET;
        fcntl(m_fd, F_SETLK, &lock);
    }
    TableLock(const TableLock&) = delete;
    TableLock& operator=(const TableLock&) = delete;

private:
    int m_fd;
};

// Maps the table of an open file, setting it up when the file is new; false with errno set if it cannot.
OperationSlot* mapTable(int fd, const QString& path)
{
    TableLock lock(fd);
    // Blocks reserved now cannot run out later, when a full disk would kill the process writing a slot.
    if (const int error = posix_fallocate(fd, 0, kTableBytes)) {
        errno = error;
        return nullptr;
    }
    void* map = mmap(nullptr, kTableBytes, PROT_READ | PROT_WRITE, MAP_SHARED, fd, 0);
    if (map == MAP_FAILED)
        return nullptr;
    auto* header = static_cast<TableHeader*>(map);
    if (std::memcmp(header->magic, kMagic, sizeof kMagic) != 0 || header->slotCount != kSlotCount) {
        static const TableHeader fresh{};
        if (std::memcmp(header, &fresh, sizeof fresh) != 0)
            diagnose(QStringLiteral("%1 was not a table of operations; its counts and faults start afresh").arg(path));
        std::memset(map, 0, kTableBytes);
        std::memcpy(header->magic, kMagic, sizeof kMagic);
        header->slotCount = kSlotCount;
    }
    return reinterpret_cast<OperationSlot*>(header + 1);
}

Table openTable(const QString& root)
{
    Table table;
    table.path = root + QStringLiteral("/operations");
    table.fd = open(table.path.toLocal8Bit().constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0666);
    if (table.fd >= 0)
        table.entries = mapTable(table.fd, table.path);
    table.mapped = table.entries != nullptr;
    if (!table.entries) {
        table.error = QString::fromLocal8Bit(strerror(errno));
        if (table.fd >= 0)
            close(table.fd);
        table.fd = -1;
        table.entries = new OperationSlot[kSlotCount]();
    }
    return table;
}

void release(const Table& t)
{
    if (!t.entries)
        return;
    if (t.mapped)
        munmap(reinterpret_cast<TableHeader*>(t.entries) - 1, kTableBytes);
    else
        delete[] t.entries;
}

// Callers hold the registry's mutex.
Table& table(Registry& r)
{
    if (!r.attached) {
        r.table = openTable(root());
        r.attached = true;
    }
    return r.table;
}

OperationSlot* findSlot(const Table& t, const QByteArray& name)
{
    for (std::uint32_t i = 0; i < kSlotCount; ++i) {
        const OperationSlot& slot = t.entries[i];
        if (slot.name[0] == '\0')
            return nullptr;
        if (name == slot.name)
            return &t.entries[i];
    }
    return nullptr;
}

// Callers hold the registry's mutex and the table's lock.
OperationSlot* claimSlot(Registry& r, const QByteArray& name)
{
    Table& t = table(r);
    if (OperationSlot* slot = findSlot(t, name))
        return slot;
    for (std::uint32_t i = 0; i < kSlotCount && size_t(name.size()) < sizeof t.entries[i].name; ++i) {
        OperationSlot& slot = t.entries[i];
        if (slot.name[0] == '\0') {
            std::memcpy(slot.name, name.constData(), size_t(name.size()) + 1);
            return &slot;
        }
    }
    diagnose(QStringLiteral("no room in %1 for %2; its calls are not counted there")
                 .arg(t.path, QString::fromLatin1(name)));
    return &r.overflow;
}

std::uint64_t faultWord(int result, std::uint32_t remaining)
{
    return (std::uint64_t(std::uint32_t(result)) << 32) | remaining;
}

// The declared name of a text, or empty with a diagnostic.
QByteArray declaredName(Registry& r, const QString& operation)
{
    const QByteArray name = operation.toUtf8();
    if (!r.declared.contains(name)) {
        diagnose(QStringLiteral("no platform operation is named \"%1\"").arg(operation));
        return QByteArray();
    }
    return name;
}

template <typename F>
void forEachSlot(F&& f)
{
    Registry& r = registry();
    QMutexLocker lock(&r.mutex);
    Table& t = table(r);
    TableLock fileLock(t.fd);
    for (std::uint32_t i = 0; i < kSlotCount && t.entries[i].name[0] != '\0'; ++i)
        f(t.entries[i]);
}

} // namespace

void declare(Operation* const* begin, Operation* const* end)
{
    Registry& r = registry();
    QMutexLocker lock(&r.mutex);
    if (!begin || std::find(r.modules.begin(), r.modules.end(), begin) != r.modules.end())
        return;
    r.modules.push_back(begin);
    for (Operation* const* site = begin; site != end; ++site) {
        r.sites.push_back(*site);
        r.declared.insert(nameOf((*site)->signature), (*site)->mayFail);
    }
}

OperationSlot* attach(Operation& operation)
{
    Registry& r = registry();
    QMutexLocker lock(&r.mutex);
    if (OperationSlot* slot = operation.slot.load(std::memory_order_acquire))
        return slot;
    if (std::find(r.sites.begin(), r.sites.end(), &operation) == r.sites.end()) {
        // Called before its module was declared (from another module's static initialisation).
        r.sites.push_back(&operation);
        r.declared.insert(nameOf(operation.signature), operation.mayFail);
    }
    Table& t = table(r);
    TableLock fileLock(t.fd);
    OperationSlot* slot = claimSlot(r, nameOf(operation.signature));
    operation.slot.store(slot, std::memory_order_release);
    return slot;
}

bool fire(OperationSlot& slot, int* faultResult)
{
    std::uint64_t word = slot.fault.load(std::memory_order_acquire);
    for (;;) {
        if (word == 0)
            return false;
        const std::uint32_t remaining = std::uint32_t(word);
        const int result = int(std::uint32_t(word >> 32));
        const std::uint64_t next =
            remaining == kUntilCleared ? word : remaining == 1 ? 0 : faultWord(result, remaining - 1);
        // Exactly one caller, in whatever process, takes each of the fault's calls.
        if (slot.fault.compare_exchange_weak(word, next, std::memory_order_acq_rel)) {
            if (faultResult)
                *faultResult = result;
            return true;
        }
    }
}

void detachOperationTable()
{
    Registry& r = registry();
    QMutexLocker lock(&r.mutex);
    for (Operation* site : r.sites)
        site->slot.store(nullptr, std::memory_order_release);
    // The table just left stays until the next switch: another thread may be counting in it right now.
    if (r.table.fd >= 0)
        close(r.table.fd);
    release(r.retired);
    r.retired = r.table;
    r.table = Table();
    r.attached = false;
}

QStringList operations()
{
    Registry& r = registry();
    QMutexLocker lock(&r.mutex);
    QStringList names;
    for (auto it = r.declared.constBegin(); it != r.declared.constEnd(); ++it)
        names.append(QString::fromUtf8(it.key()));
    return names;
}

bool isOperation(const QString& operation)
{
    Registry& r = registry();
    QMutexLocker lock(&r.mutex);
    return r.declared.contains(operation.toUtf8());
}

bool injectFault(const QString& operation, int result, int times)
{
    Registry& r = registry();
    QMutexLocker lock(&r.mutex);
    const QByteArray name = declaredName(r, operation);
    if (name.isEmpty())
        return false;
    if (!r.declared.value(name)) {
        diagnose(QStringLiteral("\"%1\" cannot fail: it has no result to fail with").arg(operation));
        return false;
    }
    if (times == 0 || times < -1) {
        diagnose(QStringLiteral("a fault applies to 1 or more calls, or -1 until cleared, not %1").arg(times));
        return false;
    }
    Table& t = table(r);
    if (t.fd < 0) {
        diagnose(QStringLiteral("cannot keep faults in %1 (%2)").arg(t.path, t.error));
        return false;
    }
    TableLock fileLock(t.fd);
    OperationSlot* slot = claimSlot(r, name);
    slot->fault.store(faultWord(result, times == -1 ? kUntilCleared : std::uint32_t(times)),
                      std::memory_order_release);
    return true;
}

QList<PendingFault> pendingFaults()
{
    QList<PendingFault> faults;
    forEachSlot([&faults](const OperationSlot& slot) {
        const std::uint64_t word = slot.fault.load(std::memory_order_acquire);
        if (word == 0)
            return;
        const std::uint32_t remaining = std::uint32_t(word);
        faults.append(PendingFault{QString::fromUtf8(slot.name), int(std::uint32_t(word >> 32)),
                                   remaining == kUntilCleared ? -1 : int(remaining)});
    });
    std::sort(faults.begin(), faults.end(),
              [](const PendingFault& a, const PendingFault& b) { return a.operation < b.operation; });
    return faults;
}

void clearFaults()
{
    forEachSlot([](OperationSlot& slot) { slot.fault.store(0, std::memory_order_release); });
}

int callCount(const QString& operation)
{
    Registry& r = registry();
    QMutexLocker lock(&r.mutex);
    const QByteArray name = declaredName(r, operation);
    if (name.isEmpty())
        return -1;
    Table& t = table(r);
    TableLock fileLock(t.fd);
    const OperationSlot* slot = findSlot(t, name);
    const std::int64_t calls = slot ? slot->calls.load(std::memory_order_relaxed) : 0;
    return int(std::min<std::int64_t>(calls, INT_MAX));
}

void resetCallCounts()
{
    forEachSlot([](OperationSlot& slot) { slot.calls.store(0, std::memory_order_relaxed); });
}

} // namespace ZorHostCore
