#include "DmtNode.h"

#include "ZorHostEntry.h"
#include "DmtResult.h"
#include "DmtTreeFactory.h"

#include <utility>

DmtNode::DmtNode(PDmtTree tree, std::string path, bool leaf)
    : m_tree(std::move(tree))
    , m_path(std::move(path))
    , m_leaf(leaf)
{
}

DmtNode::~DmtNode() = default;

int DmtNode::GetValue(DmtData& value) const
{
    ZORHOST_ENTER(fault) return fault;
    if (!DmtTreeFactory::IsInitialized())
        return DMT_RESULT_FAIL;
    return m_tree->readValue(m_path, &value);
}

int DmtNode::SetValue(const DmtData& value)
{
    ZORHOST_ENTER(fault) return fault;
    if (!DmtTreeFactory::IsInitialized())
        return DMT_RESULT_FAIL;
    return m_tree->writeValue(m_path, value);
}
