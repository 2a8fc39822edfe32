// A DM subtree for the length of one operation: each operation forwards to the tree's operation of the
// same name and maps its result. Paths are relative to the subtree's root; "" is the root itself.
#pragma once

#include "MSGCTR_ERRCODE.h"
#include "msgctr_export.h"

#include "DMMap.h"
#include "DMString.h"
#include "DMStringVector.h"
#include "DmtData.h"
#include "DmtTree.h"

class MSGCTR_EXPORT MSGCTR_PDmtTree {
public:
    MSGCTR_PDmtTree() = default;
    ~MSGCTR_PDmtTree();

    // The factory fills it.
    PDmtTree& dmtTree() { return m_tree; }
    const PDmtTree& dmtTree() const { return m_tree; }

    MSGCTR_ERRCODE GetNode(const DMString& path, PDmtNode& node);
    MSGCTR_ERRCODE DeleteNode(const DMString& path);
    MSGCTR_ERRCODE CreateLeafNode(const DMString& path, PDmtNode& node, const DmtData& value);
    MSGCTR_ERRCODE CreateInteriorNode(const DMString& path, PDmtNode& node);
    MSGCTR_ERRCODE GetChildValuesMap(const DMString& path, DMMap<DMString, DmtData>& map);
    MSGCTR_ERRCODE SetChildValuesMap(const DMString& path, const DMMap<DMString, DmtData>& map);
    MSGCTR_ERRCODE GetChildNodeNames(const DMString& path, DMStringVector& names);
    MSGCTR_ERRCODE Flush();
    MSGCTR_ERRCODE Commit();
    MSGCTR_ERRCODE Rollback();
    MSGCTR_ERRCODE Begin();

    // True while a Begin() is open.
    bool IsAtomic() const;
    // Whether GetNode(path) succeeds; every failure is false.
    bool IsValidNode(const DMString& path);
    bool nodeIsAvailable(const DMString& path);
    // Drops the tree; always 0.
    MSGCTR_ERRCODE Release();

private:
    PDmtTree m_tree;
};
