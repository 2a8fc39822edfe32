// One node of a DmtTree. Its value is read from and written to the tree each time.
#pragma once

#include "DMString.h"
#include "DmtData.h"
#include "DmtTree.h"

#include <string>

class DmtNode : public DMRefCount {
public:
    // 0 with the leaf's value; 405 for an interior node; 404 when the node has gone.
    int GetValue(DmtData& value) const;
    // Replaces the leaf's value and type.
    int SetValue(const DmtData& value);

    bool IsLeaf() const { return m_leaf; }
    // The absolute path, e.g. "./DevDetail/Ext/Conf/Msg/MMS/Default".
    DMString GetPath() const { return DMString(m_path); }

private:
    friend class DmtTree;

    DmtNode(PDmtTree tree, std::string path, bool leaf);
    ~DmtNode() override;

    PDmtTree m_tree;
    std::string m_path;
    bool m_leaf;
};
