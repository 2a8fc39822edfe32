// The SQLite database behind the DM tree: one connection, its cached statements, first-use provisioning
// and the handling of a damaged file. Paths here are absolute DM paths ("./DevDetail/Ext").
#pragma once

#include "DMMap.h"
#include "DMStringVector.h"
#include "DmtData.h"

#include <QString>

#include <array>
#include <memory>
#include <string>

struct sqlite3;
struct sqlite3_stmt;

class DmStore {
public:
    ~DmStore();
    DmStore(const DmStore&) = delete;
    DmStore& operator=(const DmStore&) = delete;

    static QString databasePath();

    // Opens the database, creating and provisioning it on first use, or takes back an idle connection to
    // the same file. A DM result.
    static int open(std::unique_ptr<DmStore>* store);
    // Keeps a healthy connection with no open transaction for the next open(); others are closed.
    static void release(std::unique_ptr<DmStore> store);

    // BEGIN IMMEDIATE, COMMIT, SAVEPOINT and the like.
    int exec(const char* sql);
    bool inTransaction() const;

    // 0 with *interior set, 404 when the node is missing.
    int kind(const std::string& path, bool* interior);
    // 0 with the leaf's value, 404 when missing, 405 for an interior node.
    int value(const std::string& path, DmtData* value);
    int childNames(const std::string& path, DMStringVector* names);
    int childLeaves(const std::string& path, DMMap<DMString, DmtData>* leaves);
    // A leaf when value is given, an interior node otherwise.
    int insert(const std::string& path, const std::string& parent, const std::string& name, const DmtData* value);
    int update(const std::string& path, const DmtData& value);
    // The node and everything under it.
    int remove(const std::string& path);

private:
    enum Statement { Kind, Value, ChildNames, ChildLeaves, Insert, Update, RemoveTree, StatementCount };

    DmStore() = default;
    sqlite3_stmt* statement(Statement which);
    // Turns an SQLite failure into a DM result; a damaged file is moved aside first.
    int failure(int sqliteResult);
    void closeDamaged(const char* reason);
    int provision();

    // The file's identity when it was opened: a connection is reused only while the path still names it.
    static bool sameFile(const QByteArray& path, unsigned long long device, unsigned long long inode);

    sqlite3* m_db = nullptr;
    QString m_path;
    QByteArray m_file;
    unsigned long long m_device = 0;
    unsigned long long m_inode = 0;
    long m_process = 0; // a forked child never uses its parent's connections
    std::array<sqlite3_stmt*, StatementCount> m_statements{};
};
