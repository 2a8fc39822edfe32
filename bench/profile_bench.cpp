// Listing the MMS profiles for a settings screen through MSGCTR_ENG_MMSProfileApi::listAllProfileS, each
// call opening the DM factory and the subtree, against opening the tree database and reading the same rows
// into the same records with one prepared SQLite query, in the same run. Counters: "vs_sqlite" is the
// listing's time divided by the direct query's (the target is at most 4); "ns_per_profile" shows how the
// cost grows from 10 to 200 to 2000 profiles (it stays flat when the growth is linear).
#include "MSGCTR_ENG_MMSProfileApi.h"
#include "ZorHostControl.h"
#include "ZorHostDmControl.h"

#include <benchmark/benchmark.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <sqlite3.h>

#include <chrono>
#include <cstdlib>
#include <map>
#include <memory>
#include <vector>

namespace {

using Api = MSGCTR_ENG_MMSProfileApi;
using Entry = Api::MMSProfileIDAndData_S;

// One host root per profile count, filled once for the run; using a count switches the platform to it.
void useTreeWith(int profiles)
{
    static std::map<int, std::unique_ptr<QTemporaryDir>> roots;
    auto& dir = roots[profiles];
    if (dir) {
        ZorHost::setRoot(dir->path());
        return;
    }
    dir = std::make_unique<QTemporaryDir>(QStringLiteral("%1/profile-bench-XXXXXX").arg(QDir::tempPath()));
    if (!dir->isValid())
        std::abort();
    ZorHost::setRoot(dir->path());
    ZorHost::resetAll();
    for (int i = 0; i < profiles; ++i) {
        Api::MMSProfileData_S data;
        data.strProfileName = QStringLiteral("Operator %1").arg(profiles - i, 4, 10, QLatin1Char('0'));
        data.strMMSC = QStringLiteral("http://mms.example.com/%1").arg(i);
        data.strIntProf = QStringLiteral("mms-apn");
        data.strIntProf2 = QStringLiteral("wap-apn");
        data.nMOSizeLimit = 300 + i;
        Api::PROFILE_ID_S id;
        if (Api::addProfile(&id, data) != 0)
            std::abort();
    }
}

std::vector<Entry> listThroughTheLibrary()
{
    std::vector<Entry> list;
    Api::listAllProfileS(&list);
    return list;
}

// The same records straight from the database: one connection, one prepared query, the same sort.
std::vector<Entry> listWithOneQuery()
{
    std::vector<Entry> list;
    sqlite3* db = nullptr;
    if (sqlite3_open_v2(QFile::encodeName(ZorHostDm::databasePath()).constData(), &db, SQLITE_OPEN_READWRITE, nullptr)
        != SQLITE_OK) {
        sqlite3_close(db);
        return list;
    }
    sqlite3_stmt* s = nullptr;
    sqlite3_prepare_v2(db,
                       "SELECT p.name, l.name, l.value FROM node p JOIN node l ON l.parent = p.path"
                       " WHERE p.parent = './DevDetail/Ext/Conf/Msg/Profiles/MMS' ORDER BY p.seq, l.seq",
                       -1, &s, nullptr);
    const auto text = [s](int column) {
        return QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(s, column)),
                                 sqlite3_column_bytes(s, column));
    };
    QString current;
    while (sqlite3_step(s) == SQLITE_ROW) {
        const QString profile = text(0);
        if (list.empty() || profile != current) {
            current = profile;
            list.emplace_back();
            list.back().profID = Api::PROFILE_ID_S(profile);
        }
        Api::MMSProfileData_S& data = list.back().profData;
        const QString leaf = text(1);
        if (leaf == QLatin1String("ProfileName"))
            data.strProfileName = text(2);
        else if (leaf == QLatin1String("MMSC"))
            data.strMMSC = text(2);
        else if (leaf == QLatin1String("IntProf"))
            data.strIntProf = text(2);
        else if (leaf == QLatin1String("IntProf2"))
            data.strIntProf2 = text(2);
        else if (leaf == QLatin1String("MOSizeLimit"))
            data.nMOSizeLimit = sqlite3_column_int(s, 2);
        else if (leaf == QLatin1String("Readonly"))
            data.bReadonly = sqlite3_column_int(s, 2) != 0;
    }
    sqlite3_finalize(s);
    sqlite3_close(db);
    std::stable_sort(list.begin(), list.end(), [](const Entry& a, const Entry& b) {
        return a.profData.strProfileName < b.profData.strProfileName;
    });
    return list;
}

template <typename List>
double nanosecondsPerList(List list, benchmark::IterationCount count)
{
    const auto start = std::chrono::steady_clock::now();
    for (benchmark::IterationCount i = 0; i < count; ++i)
        benchmark::DoNotOptimize(list());
    const std::chrono::duration<double, std::nano> elapsed = std::chrono::steady_clock::now() - start;
    return elapsed.count() / double(count);
}

void BM_ListAllMmsProfiles(benchmark::State& state)
{
    const int profiles = int(state.range(0));
    useTreeWith(profiles);
    const std::vector<Entry> listed = listThroughTheLibrary();
    const std::vector<Entry> direct = listWithOneQuery();
    if (int(listed.size()) != profiles || int(direct.size()) != profiles
        || listed.front().profData.strMMSC != direct.front().profData.strMMSC
        || listed.back().profID != direct.back().profID) {
        state.SkipWithError("the library and the direct query do not list the same profiles");
        return;
    }
    const auto start = std::chrono::steady_clock::now();
    for (auto _ : state)
        benchmark::DoNotOptimize(listThroughTheLibrary());
    const std::chrono::duration<double, std::nano> elapsed = std::chrono::steady_clock::now() - start;
    const double own = elapsed.count() / double(state.iterations());
    const double sqlite = nanosecondsPerList(listWithOneQuery, state.iterations());
    state.counters["ns_per_list"] = own;
    state.counters["sqlite_ns_per_list"] = sqlite;
    state.counters["vs_sqlite"] = own / sqlite;
    state.counters["ns_per_profile"] = own / profiles;
}
BENCHMARK(BM_ListAllMmsProfiles)->Arg(10)->Arg(200)->Arg(2000)->Unit(benchmark::kMicrosecond);

} // namespace
