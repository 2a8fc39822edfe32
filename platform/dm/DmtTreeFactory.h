// Entry to the DM tree: a process-wide count of Initialize/Uninitialize pairs, and subtrees by path.
//
// The tree lives in one SQLite database under the host root, <root>/state/dm/dmtree.sqlite (WAL mode; a
// busy timeout lets two processes work on it at once; every write runs in a BEGIN IMMEDIATE transaction,
// so no update is lost). A new or factory-reset database holds the message settings' nodes:
//   ./DevDetail/Ext/Conf/Msg/SMS/Default     string ""
//   ./DevDetail/Ext/Conf/Msg/Profiles/SMS    interior
//   ./DevDetail/Ext/Conf/Msg/MMS/Default     string ""
//   ./DevDetail/Ext/Conf/Msg/Profiles/MMS    interior
// and their interior parents. Schema (PRAGMA user_version = 1), readable with the sqlite3 shell:
//
//   CREATE TABLE node(
//     seq    INTEGER PRIMARY KEY AUTOINCREMENT, -- creation order: child names are listed by it
//     path   TEXT NOT NULL UNIQUE,              -- absolute path, "." is the root, e.g. "./DevDetail/Ext"
//     parent TEXT,                              -- the parent's path; NULL for "."
//     name   TEXT NOT NULL,                     -- the last segment of path
//     type   TEXT NOT NULL,                     -- 'node' (interior), 'string', 'int', 'bool', 'binary'
//     value  BLOB,                              -- NULL for interior nodes; text, integer (bool 0/1), blob
//     CHECK((type = 'node') = (value IS NULL)));
//   CREATE INDEX node_children ON node(parent, seq);
//
//   e.g. sqlite3 dmtree.sqlite "SELECT path, type, value FROM node ORDER BY path"
//
// A damaged, truncated or unreadable database makes the call that meets it fail with 1 and is reported
// once on stderr; the file is kept beside the original under a ".damaged-<time>" name and a freshly
// provisioned tree takes its place on the next use. Result codes: DmtResult.h.
#pragma once

#include "DMString.h"
#include "DmtPrincipal.h"
#include "DmtTree.h"

class DmtTreeFactory {
public:
    // Counts up; false only through an injected fault.
    static bool Initialize();
    // Counts down; false below a count of 1.
    static bool Uninitialize();
    static bool IsInitialized();

    // The subtree rooted at an absolute path ("." or "./..."), with the automatic lock. 404 when the
    // root is missing; `tree` is set only on success.
    static int GetSubtree(const DmtPrincipal& principal, const char* path, PDmtTree& tree);
    // The same with a lock type of DmtLockType: shared (read-only), exclusive or automatic.
    static int GetSubtreeEx(const DmtPrincipal& principal, const char* path, int lockType, PDmtTree& tree);

private:
    static int openSubtree(const char* path, int lockType, PDmtTree& tree);
};
