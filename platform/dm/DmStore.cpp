#include "DmStore.h"

#include "DmtResult.h"
#include "ZorHostCore.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>

#include <sqlite3.h>

#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <cstring>
#include <mutex>
#include <vector>

namespace {

// How long a writer waits for another process's transaction before it gives up.
constexpr int kBusyTimeoutMs = 5000;
constexpr int kSchemaVersion = 1;

const char* const kSchema =
    "CREATE TABLE node("
    " seq INTEGER PRIMARY KEY AUTOINCREMENT,"
    " path TEXT NOT NULL UNIQUE,"
    " parent TEXT,"
    " name TEXT NOT NULL,"
    " type TEXT NOT NULL CHECK(type IN ('node','string','int','bool','binary')),"
    " value BLOB,"
    " CHECK((type = 'node') = (value IS NULL)));"
    "CREATE INDEX node_children ON node(parent, seq);";

// The message settings' nodes every tree starts with, parents first.
const char* const kProvisioned =
    "INSERT INTO node(path, parent, name, type, value) VALUES"
    " ('.', NULL, '.', 'node', NULL),"
    " ('./DevDetail', '.', 'DevDetail', 'node', NULL),"
    " ('./DevDetail/Ext', './DevDetail', 'Ext', 'node', NULL),"
    " ('./DevDetail/Ext/Conf', './DevDetail/Ext', 'Conf', 'node', NULL),"
    " ('./DevDetail/Ext/Conf/Msg', './DevDetail/Ext/Conf', 'Msg', 'node', NULL),"
    " ('./DevDetail/Ext/Conf/Msg/SMS', './DevDetail/Ext/Conf/Msg', 'SMS', 'node', NULL),"
    " ('./DevDetail/Ext/Conf/Msg/SMS/Default', './DevDetail/Ext/Conf/Msg/SMS', 'Default', 'string', ''),"
    " ('./DevDetail/Ext/Conf/Msg/Profiles', './DevDetail/Ext/Conf/Msg', 'Profiles', 'node', NULL),"
    " ('./DevDetail/Ext/Conf/Msg/Profiles/SMS', './DevDetail/Ext/Conf/Msg/Profiles', 'SMS', 'node', NULL),"
    " ('./DevDetail/Ext/Conf/Msg/MMS', './DevDetail/Ext/Conf/Msg', 'MMS', 'node', NULL),"
    " ('./DevDetail/Ext/Conf/Msg/MMS/Default', './DevDetail/Ext/Conf/Msg/MMS', 'Default', 'string', ''),"
    " ('./DevDetail/Ext/Conf/Msg/Profiles/MMS', './DevDetail/Ext/Conf/Msg/Profiles', 'MMS', 'node', NULL);";

const char* const kStatementSql[] = {
    "SELECT type = 'node' FROM node WHERE path = ?1",
    "SELECT type, value FROM node WHERE path = ?1",
    "SELECT name FROM node WHERE parent = ?1 ORDER BY seq",
    "SELECT name, type, value FROM node WHERE parent = ?1 AND type <> 'node' ORDER BY seq",
    "INSERT INTO node(path, parent, name, type, value) VALUES(?1, ?2, ?3, ?4, ?5)",
    "UPDATE node SET type = ?2, value = ?3 WHERE path = ?1",
    "DELETE FROM node WHERE path = ?1 OR (path >= ?1 || '/' AND path < ?1 || '0')",
};

const char* typeName(DmtDataType type)
{
    switch (type) {
    case DMT_DATA_STRING:
        return "string";
    case DMT_DATA_INTEGER:
        return "int";
    case DMT_DATA_BOOLEAN:
        return "bool";
    case DMT_DATA_BINARY:
        return "binary";
    case DMT_DATA_NULL:
        break;
    }
    return nullptr;
}

void bindText(sqlite3_stmt* statement, int index, const std::string& text)
{
    sqlite3_bind_text(statement, index, text.data(), int(text.size()), SQLITE_STATIC);
}

// Binds the value's type name and its column value (string as text, int and bool as integers, bytes as blob).
void bindValue(sqlite3_stmt* statement, int typeIndex, const DmtData& value)
{
    sqlite3_bind_text(statement, typeIndex, typeName(value.GetType()), -1, SQLITE_STATIC);
    switch (value.GetType()) {
    case DMT_DATA_STRING: {
        DMString text;
        value.GetString(text);
        sqlite3_bind_text(statement, typeIndex + 1, text.c_str(), int(text.length()), SQLITE_TRANSIENT);
        break;
    }
    case DMT_DATA_INTEGER: {
        int number = 0;
        value.GetInt(number);
        sqlite3_bind_int(statement, typeIndex + 1, number);
        break;
    }
    case DMT_DATA_BOOLEAN: {
        bool flag = false;
        value.GetBoolean(flag);
        sqlite3_bind_int(statement, typeIndex + 1, flag ? 1 : 0);
        break;
    }
    case DMT_DATA_BINARY: {
        DMVector<unsigned char> bytes;
        value.GetBinary(bytes);
        // A zero-length blob, not NULL: NULL marks interior nodes.
        sqlite3_bind_zeroblob(statement, typeIndex + 1, 0);
        if (!bytes.empty())
            sqlite3_bind_blob(statement, typeIndex + 1, bytes.data(), int(bytes.size()), SQLITE_TRANSIENT);
        break;
    }
    case DMT_DATA_NULL:
        break;
    }
}

DmtData columnValue(sqlite3_stmt* statement, int typeColumn)
{
    const char* type = reinterpret_cast<const char*>(sqlite3_column_text(statement, typeColumn));
    const int column = typeColumn + 1;
    if (!type)
        return DmtData();
    const auto is = [type](const char* name) { return std::strcmp(type, name) == 0; };
    if (is("string")) {
        const char* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
        return DmtData(DMString(text, std::size_t(sqlite3_column_bytes(statement, column))));
    }
    if (is("int"))
        return DmtData(sqlite3_column_int(statement, column));
    if (is("bool"))
        return DmtData(sqlite3_column_int(statement, column) != 0);
    if (is("binary")) {
        const void* bytes = sqlite3_column_blob(statement, column);
        return DmtData(static_cast<const unsigned char*>(bytes), sqlite3_column_bytes(statement, column));
    }
    return DmtData();
}

// Idle connections of this process: opening SQLite and recovering its WAL for every subtree would cost
// more than the work done through it. A factory reset drops them with the files.
struct IdlePool {
    std::mutex mutex;
    std::vector<std::unique_ptr<DmStore>> stores;
};

IdlePool& idlePool()
{
    static IdlePool* pool = new IdlePool; // lives for the process: trees may be released at exit
    return *pool;
}

void dropIdle()
{
    std::vector<std::unique_ptr<DmStore>> dropped;
    std::lock_guard<std::mutex> lock(idlePool().mutex);
    dropped.swap(idlePool().stores);
}

const bool g_resetRegistered = (ZorHostCore::registerReset("dm", dropIdle), true);

constexpr std::size_t kMaxIdle = 4;

// Resets a cached statement when the call using it returns.
struct StatementUse {
    sqlite3_stmt* statement;
    ~StatementUse()
    {
        if (statement) {
            sqlite3_reset(statement);
            sqlite3_clear_bindings(statement);
        }
    }
};

} // namespace

QString DmStore::databasePath()
{
    return ZorHostCore::stateDir(QStringLiteral("dm")) + QStringLiteral("/dmtree.sqlite");
}

DmStore::~DmStore()
{
    for (sqlite3_stmt* s : m_statements)
        sqlite3_finalize(s);
    if (m_db)
        sqlite3_close_v2(m_db);
}

bool DmStore::sameFile(const QByteArray& path, unsigned long long device, unsigned long long inode)
{
    struct stat info {};
    return ::stat(path.constData(), &info) == 0 && info.st_dev == device && info.st_ino == inode;
}

void DmStore::release(std::unique_ptr<DmStore> store)
{
    if (!store || !store->m_db || store->inTransaction())
        return;
    std::lock_guard<std::mutex> lock(idlePool().mutex);
    if (idlePool().stores.size() < kMaxIdle)
        idlePool().stores.push_back(std::move(store));
}

int DmStore::open(std::unique_ptr<DmStore>* store)
{
    (void)g_resetRegistered;
    const QString path = databasePath();
    const QByteArray file = QFile::encodeName(path);
    {
        std::vector<std::unique_ptr<DmStore>> stale;
        std::lock_guard<std::mutex> lock(idlePool().mutex);
        auto& idle = idlePool().stores;
        while (!idle.empty()) {
            std::unique_ptr<DmStore> candidate = std::move(idle.back());
            idle.pop_back();
            if (candidate->m_process == long(::getpid()) && candidate->m_file == file
                && sameFile(file, candidate->m_device, candidate->m_inode)) {
                *store = std::move(candidate);
                return DMT_RESULT_SUCCESS;
            }
            if (candidate->m_process == long(::getpid()))
                stale.push_back(std::move(candidate));
            else
                candidate.release(); // a parent's connection: closing it here could drop the parent's locks
        }
    }
    std::unique_ptr<DmStore> s(new DmStore);
    s->m_path = path;
    s->m_file = file;
    s->m_process = long(::getpid());
    const int rc = sqlite3_open_v2(file.constData(), &s->m_db,
                                   SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX, nullptr);
    if (rc != SQLITE_OK) {
        s->closeDamaged(s->m_db ? sqlite3_errmsg(s->m_db) : sqlite3_errstr(rc));
        return DMT_RESULT_FAIL;
    }
    sqlite3_extended_result_codes(s->m_db, 0);
    sqlite3_busy_timeout(s->m_db, kBusyTimeoutMs);
    // Checkpoints happen as the WAL grows, not at every close.
    sqlite3_db_config(s->m_db, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
    if (const int result = s->provision(); result != DMT_RESULT_SUCCESS)
        return result;
    struct stat info {};
    if (::stat(file.constData(), &info) == 0) {
        s->m_device = info.st_dev;
        s->m_inode = info.st_ino;
    }
    *store = std::move(s);
    return DMT_RESULT_SUCCESS;
}

int DmStore::provision()
{
    // WAL survives a writer killed mid-transaction and lets readers go on while another process writes;
    // NORMAL sync is durable across a crashed process.
    if (const int rc = sqlite3_exec(m_db, "PRAGMA synchronous=NORMAL", nullptr, nullptr, nullptr); rc != SQLITE_OK)
        return failure(rc);
    int version = 0;
    const auto readVersion = [&]() {
        sqlite3_stmt* s = nullptr;
        int rc = sqlite3_prepare_v2(m_db, "PRAGMA user_version", -1, &s, nullptr);
        if (rc == SQLITE_OK) {
            rc = sqlite3_step(s);
            if (rc == SQLITE_ROW) {
                version = sqlite3_column_int(s, 0);
                rc = SQLITE_OK;
            }
        }
        sqlite3_finalize(s);
        return rc;
    };
    if (const int rc = readVersion(); rc != SQLITE_OK)
        return failure(rc);
    if (version == kSchemaVersion)
        return DMT_RESULT_SUCCESS;
    if (version != 0) {
        closeDamaged("unknown schema version");
        return DMT_RESULT_FAIL;
    }
    if (const int rc = sqlite3_exec(m_db, "PRAGMA journal_mode=WAL", nullptr, nullptr, nullptr); rc != SQLITE_OK)
        return failure(rc);
    if (const int rc = sqlite3_exec(m_db, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr); rc != SQLITE_OK)
        return failure(rc);
    int rc = readVersion();
    if (rc == SQLITE_OK && version == 0) {
        const std::string sql = std::string(kSchema) + kProvisioned + "PRAGMA user_version=" + std::to_string(kSchemaVersion);
        rc = sqlite3_exec(m_db, sql.c_str(), nullptr, nullptr, nullptr);
    }
    if (rc == SQLITE_OK)
        rc = sqlite3_exec(m_db, "COMMIT", nullptr, nullptr, nullptr);
    if (rc != SQLITE_OK) {
        if (m_db)
            sqlite3_exec(m_db, "ROLLBACK", nullptr, nullptr, nullptr);
        return failure(rc);
    }
    return DMT_RESULT_SUCCESS;
}

int DmStore::failure(int sqliteResult)
{
    switch (sqliteResult & 0xff) {
    case SQLITE_CONSTRAINT:
        return DMT_RESULT_CONSTRAINT;
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
    case SQLITE_CANTOPEN:
        closeDamaged(m_db ? sqlite3_errmsg(m_db) : sqlite3_errstr(sqliteResult));
        return DMT_RESULT_FAIL;
    default:
        return DMT_RESULT_FAIL;
    }
}

void DmStore::closeDamaged(const char* reason)
{
    const std::string why(reason ? reason : "unknown error");
    for (sqlite3_stmt*& s : m_statements) {
        sqlite3_finalize(s);
        s = nullptr;
    }
    if (m_db) {
        sqlite3_close_v2(m_db);
        m_db = nullptr;
    }
    // Kept for inspection, never deleted: the next open provisions a fresh tree in its place.
    const QString aside = m_path + QStringLiteral(".damaged-")
        + QDateTime::currentDateTimeUtc().toString(QStringLiteral("yyyyMMdd'T'HHmmsszzz"));
    const bool existed = QFileInfo::exists(m_path);
    const bool moved = existed && QFile::rename(m_path, aside);
    if (moved) {
        QFile::rename(m_path + QStringLiteral("-wal"), aside + QStringLiteral("-wal"));
        QFile::remove(m_path + QStringLiteral("-shm"));
    }
    if (moved)
        std::fprintf(stderr, "zordm: damaged DM tree database %s (%s); kept as %s, a fresh tree replaces it\n",
                     qPrintable(m_path), why.c_str(), qPrintable(aside));
    else
        std::fprintf(stderr, "zordm: cannot use the DM tree database %s (%s)\n", qPrintable(m_path), why.c_str());
    std::fflush(stderr);
}

sqlite3_stmt* DmStore::statement(Statement which)
{
    if (!m_db)
        return nullptr;
    sqlite3_stmt*& s = m_statements[which];
    if (!s && sqlite3_prepare_v3(m_db, kStatementSql[which], -1, SQLITE_PREPARE_PERSISTENT, &s, nullptr) != SQLITE_OK) {
        failure(sqlite3_errcode(m_db));
        return nullptr;
    }
    return s;
}

int DmStore::exec(const char* sql)
{
    if (!m_db)
        return DMT_RESULT_FAIL;
    const int rc = sqlite3_exec(m_db, sql, nullptr, nullptr, nullptr);
    return rc == SQLITE_OK ? int(DMT_RESULT_SUCCESS) : failure(rc);
}

bool DmStore::inTransaction() const
{
    return m_db && !sqlite3_get_autocommit(m_db);
}

int DmStore::kind(const std::string& path, bool* interior)
{
    StatementUse use{statement(Kind)};
    if (!use.statement)
        return DMT_RESULT_FAIL;
    bindText(use.statement, 1, path);
    const int rc = sqlite3_step(use.statement);
    if (rc == SQLITE_DONE)
        return DMT_RESULT_NOT_FOUND;
    if (rc != SQLITE_ROW)
        return failure(rc);
    *interior = sqlite3_column_int(use.statement, 0) != 0;
    return DMT_RESULT_SUCCESS;
}

int DmStore::value(const std::string& path, DmtData* value)
{
    StatementUse use{statement(Value)};
    if (!use.statement)
        return DMT_RESULT_FAIL;
    bindText(use.statement, 1, path);
    const int rc = sqlite3_step(use.statement);
    if (rc == SQLITE_DONE)
        return DMT_RESULT_NOT_FOUND;
    if (rc != SQLITE_ROW)
        return failure(rc);
    if (sqlite3_column_type(use.statement, 1) == SQLITE_NULL)
        return DMT_RESULT_NOT_ALLOWED;
    *value = columnValue(use.statement, 0);
    return DMT_RESULT_SUCCESS;
}

int DmStore::childNames(const std::string& path, DMStringVector* names)
{
    StatementUse use{statement(ChildNames)};
    if (!use.statement)
        return DMT_RESULT_FAIL;
    bindText(use.statement, 1, path);
    int rc;
    while ((rc = sqlite3_step(use.statement)) == SQLITE_ROW) {
        const char* name = reinterpret_cast<const char*>(sqlite3_column_text(use.statement, 0));
        names->push_back(DMString(name, std::size_t(sqlite3_column_bytes(use.statement, 0))));
    }
    return rc == SQLITE_DONE ? int(DMT_RESULT_SUCCESS) : failure(rc);
}

int DmStore::childLeaves(const std::string& path, DMMap<DMString, DmtData>* leaves)
{
    StatementUse use{statement(ChildLeaves)};
    if (!use.statement)
        return DMT_RESULT_FAIL;
    bindText(use.statement, 1, path);
    int rc;
    while ((rc = sqlite3_step(use.statement)) == SQLITE_ROW) {
        const char* name = reinterpret_cast<const char*>(sqlite3_column_text(use.statement, 0));
        leaves->put(DMString(name, std::size_t(sqlite3_column_bytes(use.statement, 0))), columnValue(use.statement, 1));
    }
    return rc == SQLITE_DONE ? int(DMT_RESULT_SUCCESS) : failure(rc);
}

int DmStore::insert(const std::string& path, const std::string& parent, const std::string& name, const DmtData* value)
{
    StatementUse use{statement(Insert)};
    if (!use.statement)
        return DMT_RESULT_FAIL;
    bindText(use.statement, 1, path);
    bindText(use.statement, 2, parent);
    bindText(use.statement, 3, name);
    if (value)
        bindValue(use.statement, 4, *value);
    else
        sqlite3_bind_text(use.statement, 4, "node", -1, SQLITE_STATIC);
    const int rc = sqlite3_step(use.statement);
    return rc == SQLITE_DONE ? int(DMT_RESULT_SUCCESS) : failure(rc);
}

int DmStore::update(const std::string& path, const DmtData& value)
{
    StatementUse use{statement(Update)};
    if (!use.statement)
        return DMT_RESULT_FAIL;
    bindText(use.statement, 1, path);
    bindValue(use.statement, 2, value);
    const int rc = sqlite3_step(use.statement);
    return rc == SQLITE_DONE ? int(DMT_RESULT_SUCCESS) : failure(rc);
}

int DmStore::remove(const std::string& path)
{
    StatementUse use{statement(RemoveTree)};
    if (!use.statement)
        return DMT_RESULT_FAIL;
    bindText(use.statement, 1, path);
    const int rc = sqlite3_step(use.statement);
    return rc == SQLITE_DONE ? int(DMT_RESULT_SUCCESS) : failure(rc);
}
