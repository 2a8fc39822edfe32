// A subtree of the DM tree, taken from DmtTreeFactory. Paths are relative to the subtree's root ("" is the
// root itself) and may hold "/" ("V/S"). Child names come back in creation order.
//
// Outside a transaction each write is kept until Flush() or until the last reference to the tree goes, and
// then becomes visible to subtrees opened afterwards. Begin() opens a transaction that lasts until Commit()
// or Rollback(); a tree released inside an open transaction rolls it back. Writes through a tree taken
// with the shared lock fail with 22. Result codes: DmtResult.h.
#pragma once

#include "DMMap.h"
#include "DMSmartPtr.h"
#include "DMStringVector.h"
#include "DmtData.h"

#include <functional>
#include <memory>
#include <string>

class DmStore;
class DmtNode;
using PDmtNode = DMSmartPtr<DmtNode>;

// Lock types of DmtTreeFactory::GetSubtreeEx.
enum DmtLockType : int {
    DMT_LOCK_SHARED = 0,    // read-only
    DMT_LOCK_EXCLUSIVE = 1,
    DMT_LOCK_AUTOMATIC = 2, // what GetSubtree takes
};

class DmtTree : public DMRefCount {
public:
    int GetNode(const char* path, PDmtNode& node);
    int DeleteNode(const char* path);
    // Missing interior parents are created too.
    int CreateLeafNode(const char* path, PDmtNode& node, const DmtData& value);
    int CreateInteriorNode(const char* path, PDmtNode& node);
    // The leaves among the node's children; interior children are left out.
    int GetChildValuesMap(const char* path, DMMap<DMString, DmtData>& leaves);
    // All or nothing: named leaves are replaced or created, leaves the map does not name are deleted,
    // interior children are kept. 404 when the node is missing.
    int SetChildValuesMap(const char* path, const DMMap<DMString, DmtData>& leaves);
    int GetChildNodeNames(const char* path, DMStringVector& names);
    int Flush();
    int Begin();
    int Commit();
    int Rollback();
    bool IsAtomic() const { return m_transaction; }

    // The absolute path of the subtree's root, e.g. "./DevDetail/Ext".
    const DMString& GetRootPath() const { return m_root; }

private:
    friend class DmtTreeFactory;
    friend class DmtNode;

    DmtTree(std::unique_ptr<DmStore> store, DMString root, DmtLockType lock);
    ~DmtTree() override;

    // A relative path of non-empty segments other than "." and "..", joined by single "/".
    static bool wellFormed(const std::string& relative);
    // 0 with the absolute path of a relative one; 23 for a malformed path; 1 while the factory is not
    // initialised (every path operation starts here).
    int absolute(const char* path, std::string* out) const;
    // Runs a write all-or-nothing, inside the open transaction or the pending writes.
    int write(const std::function<int()>& change);
    int createNode(const char* path, PDmtNode& node, const DmtData* value);
    int readValue(const std::string& path, DmtData* value);
    int writeValue(const std::string& path, const DmtData& value);

    std::unique_ptr<DmStore> m_store;
    DMString m_root;
    DmtLockType m_lock;
    bool m_transaction = false;   // Begin() is open
    bool m_pendingWrites = false; // writes outside a transaction not flushed yet
};

using PDmtTree = DMSmartPtr<DmtTree>;

// Users of a tree hold its nodes too: the node type must be complete wherever a PDmtNode goes away.
#include "DmtNode.h"
