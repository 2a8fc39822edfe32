// One read of the telephony simulator (TAPI_SMS_GetServiceCenter) against reading its state file with QFile,
// with the host root on disk (the temporary folder) and on tmpfs, wall time. Target: ratio at
// most 3.
#include "FloorComparison.h"
#include "TAPI.h"
#include "ZorHostControl.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <sys/vfs.h>

namespace {

constexpr long kTmpfsMagic = 0x01021994;

void readAgainstQFile(benchmark::State& state, const QString& base)
{
    QTemporaryDir root(base + QStringLiteral("/tapi-state-bench-XXXXXX"));
    if (!root.isValid()) {
        state.SkipWithError("cannot make a host root");
        return;
    }
    ZorHost::setRoot(root.path());
    ZorHost::resetAll();
    char number[TAPI_PHONE_NUMBER_LEN] = {};
    if (TAPI_SMS_SetServiceCenter("+12065550123") != TAPI_RESULT_SUCC
        || TAPI_SMS_GetServiceCenter(number) != TAPI_RESULT_SUCC) {
        state.SkipWithError("the simulator does not keep the service centre");
        return;
    }
    const QString stateFile = root.path() + QStringLiteral("/state/tapi/tapi.state");
    FloorComparison::run(
        state, FloorComparison::Clock::Wall, 64,
        [&] { benchmark::DoNotOptimize(TAPI_SMS_GetServiceCenter(number)); },
        [&] {
            QFile f(stateFile);
            f.open(QIODevice::ReadOnly);
            benchmark::DoNotOptimize(f.readAll());
        });
    ZorHost::resetAll();
    ZorHost::setRoot(QString());
}

void BM_GetServiceCenterOnDisk(benchmark::State& state)
{
    readAgainstQFile(state, QDir::tempPath());
}
BENCHMARK(BM_GetServiceCenterOnDisk)->UseRealTime();

// The tmpfs folder is $ZOR_BENCH_TMPFS_DIR, else /dev/shm.
void BM_GetServiceCenterOnTmpfs(benchmark::State& state)
{
    const QByteArray configured = qgetenv("ZOR_BENCH_TMPFS_DIR");
    const QByteArray dir = configured.isEmpty() ? QByteArray("/dev/shm") : configured;
    struct statfs fs{};
    if (::statfs(dir.constData(), &fs) != 0 || fs.f_type != kTmpfsMagic) {
        state.SkipWithError("no tmpfs folder to put the host root in");
        return;
    }
    readAgainstQFile(state, QFile::decodeName(dir));
}
BENCHMARK(BM_GetServiceCenterOnTmpfs)->UseRealTime();

} // namespace
