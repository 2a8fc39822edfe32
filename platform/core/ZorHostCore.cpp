#include "ZorHostCore.h"

#include "ZorHostOperationTable.h"

#include <QDir>
#include <QFileInfo>
#include <QSet>
#include <QMutex>
#include <QMutexLocker>
#include <QStandardPaths>

#include <vector>

namespace ZorHostCore {
namespace {

struct Reset {
    QString simulator;
    std::function<void()> dropCachedState;
};

struct State {
    QMutex mutex;
    QString root;
    QSet<QString> madeDirs; // folders known to exist: opening a store must not cost a mkpath each time
    std::vector<Reset> resets;
};

State& state()
{
    static State* s = new State; // lives for the process: simulators may still call in at exit
    return *s;
}

QString defaultRoot()
{
    const QByteArray env = qgetenv("ZORHOST_ROOT");
    if (!env.isEmpty())
        return QString::fromLocal8Bit(env);
    const QByteArray xdg = qgetenv("XDG_DATA_HOME");
    if (!xdg.isEmpty())
        return QString::fromLocal8Bit(xdg) + QStringLiteral("/zorhost");
    return QDir::homePath() + QStringLiteral("/.local/share/zorhost");
}

// Folders of the root that the host platform owns; a reset removes these and nothing else, so a root
// pointed at a folder that holds other files never loses them.
const char* const kDeviceDir = "device";
const char* const kStateDir = "state";

void ensureDir(const QString& dir)
{
    {
        QMutexLocker lock(&state().mutex);
        if (state().madeDirs.contains(dir))
            return;
    }
    if (QDir().mkpath(dir)) {
        QMutexLocker lock(&state().mutex);
        state().madeDirs.insert(dir);
    }
}

} // namespace

QString root()
{
    QString dir;
    {
        QMutexLocker lock(&state().mutex);
        if (state().root.isEmpty())
            state().root = QDir::cleanPath(QDir::current().absoluteFilePath(defaultRoot()));
        dir = state().root;
    }
    ensureDir(dir);
    return dir;
}

void setRoot(const QString& dir)
{
    {
        QMutexLocker lock(&state().mutex);
        state().root = dir.isEmpty() ? QString() : QDir::cleanPath(QDir::current().absoluteFilePath(dir));
    }
    detachOperationTable();
}

QString devicePath(const QString& absoluteDevicePath)
{
    // Clean against a virtual root so that no ".." reaches above the device tree.
    QString clean = QDir::cleanPath(QStringLiteral("/") + absoluteDevicePath);
    while (clean.startsWith(QStringLiteral("/..")))
        clean = QDir::cleanPath(clean.mid(3).prepend(QLatin1Char('/')));
    const QString hostPath = root() + QLatin1Char('/') + QLatin1String(kDeviceDir) + clean;
    ensureDir(QFileInfo(hostPath).absolutePath());
    return hostPath;
}

void registerReset(const char* simulator, std::function<void()> dropCachedState)
{
    QMutexLocker lock(&state().mutex);
    state().resets.push_back(Reset{QString::fromLatin1(simulator), std::move(dropCachedState)});
}

QString stateDir(const QString& simulator)
{
    const QString dir = root() + QLatin1Char('/') + QLatin1String(kStateDir) + QLatin1Char('/') + simulator;
    ensureDir(dir);
    return dir;
}

void resetAll()
{
    const QString base = root();
    QDir(base + QLatin1Char('/') + QLatin1String(kStateDir)).removeRecursively();
    QDir(base + QLatin1Char('/') + QLatin1String(kDeviceDir)).removeRecursively();
    {
        QMutexLocker lock(&state().mutex);
        state().madeDirs.clear();
    }
    clearFaults();
    resetCallCounts();
    std::vector<Reset> resets;
    {
        QMutexLocker lock(&state().mutex);
        resets = state().resets;
    }
    for (const Reset& r : resets)
        if (r.dropCachedState)
            r.dropCachedState();
}

} // namespace ZorHostCore
