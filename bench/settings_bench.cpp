// Reading one messaging key: through a store object opened for the one read (as the MMS settings
// utility does), and through a settings object kept open, each against QSettings (IniFormat) reading the
// same key of the same 60-key file in the same run. The counter "vs_qsettings" is the time of the read
// divided by the time of the QSettings read: below 1 is faster. BM_OpenSetupInfoVsOpenQSettings compares
// the settings object kept open with a QSettings object kept open (thread CPU time; target: ratio at most 1).
#include "FloorComparison.h"
#include "MSGCTR_ENG_SetupInfo.h"
#include "settings/SetupInfoKey.h"
#include "SETUP_SET_Manager_Compose_NOT_Flush.h"
#include "ZorHostControl.h"

#include <benchmark/benchmark.h>

#include <QDir>
#include <QSettings>
#include <QTemporaryDir>

#include <chrono>
#include <cstdlib>
#include <memory>

namespace {

const QString kGroup = QStringLiteral("GROUP_MSGCTR_SMS");
const QString kKey = QStringLiteral("MAX_SMS_VALUE");
constexpr int kStoredValue = 7;

// A host root with the messaging store holding 60 keys, made once for the run.
class SixtyKeyStore {
public:
    SixtyKeyStore() : m_dir(QStringLiteral("%1/settings-bench-XXXXXX").arg(QDir::tempPath()))
    {
        if (!m_dir.isValid())
            std::abort();
        ZorHost::setRoot(m_dir.path());
        ZorHost::resetAll();
        MSGCTR_ENG_Setup store(MSGCTR_ENG_Setup::MSGCTR_APP_ID, MSGCTR_ENG_Setup::FLUSH_MODE__NOT_FLUSH);
        int written = 0;
        for (const SetupInfoKey& key : SetupInfoKey::table()) {
            key.write(store, key.defaultValue);
            ++written;
        }
        for (; written < 60; ++written)
            store.setEntry(kGroup, QStringLiteral("FILLER_%1").arg(written), QStringLiteral("filler text %1").arg(written),
                           false);
        store.setEntry(kGroup, kKey, kStoredValue);
        if (store.flush() != 0)
            std::abort();
        m_path = store.fileName();
    }
    const QString& path() const { return m_path; }

private:
    QTemporaryDir m_dir;
    QString m_path;
};

SixtyKeyStore& fixture()
{
    static SixtyKeyStore store;
    return store;
}

int readWithQSettings()
{
    QSettings settings(fixture().path(), QSettings::IniFormat);
    return settings.value(kGroup + QLatin1Char('/') + kKey, 10).toInt();
}

// Nanoseconds per call of `read`, over `count` calls.
template <typename Read>
double nanosecondsPerRead(Read read, benchmark::IterationCount count)
{
    const auto start = std::chrono::steady_clock::now();
    for (benchmark::IterationCount i = 0; i < count; ++i)
        benchmark::DoNotOptimize(read());
    const std::chrono::duration<double, std::nano> elapsed = std::chrono::steady_clock::now() - start;
    return elapsed.count() / double(count);
}

void reportAgainstQSettings(benchmark::State& state, double ownNanoseconds)
{
    const double qsettings = nanosecondsPerRead(readWithQSettings, state.iterations());
    state.counters["ns_per_read"] = ownNanoseconds;
    state.counters["qsettings_ns_per_read"] = qsettings;
    state.counters["vs_qsettings"] = ownNanoseconds / qsettings;
}

int readThroughStoreObject()
{
    SETUP_SET_Manager_Compose_NOT_Flush store;
    int value = 0;
    store.getInt(kGroup, kKey, &value, 10);
    return value;
}

void BM_QSettingsRead(benchmark::State& state)
{
    if (readWithQSettings() != kStoredValue)
        state.SkipWithError("QSettings does not read the stored value");
    for (auto _ : state)
        benchmark::DoNotOptimize(readWithQSettings());
}
BENCHMARK(BM_QSettingsRead);

void BM_StoreObjectPerRead(benchmark::State& state)
{
    if (readThroughStoreObject() != kStoredValue)
        state.SkipWithError("the store does not read the stored value");
    const auto start = std::chrono::steady_clock::now();
    for (auto _ : state)
        benchmark::DoNotOptimize(readThroughStoreObject());
    const std::chrono::duration<double, std::nano> elapsed = std::chrono::steady_clock::now() - start;
    reportAgainstQSettings(state, elapsed.count() / double(state.iterations()));
}
BENCHMARK(BM_StoreObjectPerRead);

void BM_OpenSetupInfoRead(benchmark::State& state)
{
    fixture();
    MSGCTR_ENG_SetupInfo info(MSGCTR_ENG_Setup::FLUSH_MODE__NOT_FLUSH);
    if (info.getMaxSmsValue() != kStoredValue)
        state.SkipWithError("the settings object does not read the stored value");
    const auto start = std::chrono::steady_clock::now();
    for (auto _ : state)
        benchmark::DoNotOptimize(info.getMaxSmsValue());
    const std::chrono::duration<double, std::nano> elapsed = std::chrono::steady_clock::now() - start;
    reportAgainstQSettings(state, elapsed.count() / double(state.iterations()));
}
BENCHMARK(BM_OpenSetupInfoRead);

void BM_OpenSetupInfoVsOpenQSettings(benchmark::State& state)
{
    fixture();
    MSGCTR_ENG_SetupInfo info(MSGCTR_ENG_Setup::FLUSH_MODE__NOT_FLUSH);
    QSettings settings(fixture().path(), QSettings::IniFormat);
    const QString qsettingsKey = kGroup + QLatin1Char('/') + kKey;
    if (info.getMaxSmsValue() != kStoredValue || settings.value(qsettingsKey, 10).toInt() != kStoredValue) {
        state.SkipWithError("the stored value does not read back");
        return;
    }
    FloorComparison::run(
        state, FloorComparison::Clock::ThreadCpu, 256, [&] { benchmark::DoNotOptimize(info.getMaxSmsValue()); },
        [&] { benchmark::DoNotOptimize(settings.value(qsettingsKey, 10).toInt()); });
}
BENCHMARK(BM_OpenSetupInfoVsOpenQSettings);

} // namespace
