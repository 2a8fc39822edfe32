#include "MSGCTR_PDmtTree.h"

#include "dm/MsgctrDmResult.h"

#include "DmtNode.h"
#include "DmtResult.h"

namespace {

// An empty wrapper answers as the DM library answers a call it cannot serve.
template <typename Call>
MSGCTR_ERRCODE forward(const PDmtTree& tree, Call call)
{
    return msgctrErrcodeFromDm(tree ? call(*tree) : int(DMT_RESULT_FAIL));
}

} // namespace

MSGCTR_PDmtTree::~MSGCTR_PDmtTree() = default;

MSGCTR_ERRCODE MSGCTR_PDmtTree::GetNode(const DMString& path, PDmtNode& node)
{
    return forward(m_tree, [&](DmtTree& t) { return t.GetNode(path.c_str(), node); });
}

MSGCTR_ERRCODE MSGCTR_PDmtTree::DeleteNode(const DMString& path)
{
    return forward(m_tree, [&](DmtTree& t) { return t.DeleteNode(path.c_str()); });
}

MSGCTR_ERRCODE MSGCTR_PDmtTree::CreateLeafNode(const DMString& path, PDmtNode& node, const DmtData& value)
{
    return forward(m_tree, [&](DmtTree& t) { return t.CreateLeafNode(path.c_str(), node, value); });
}

MSGCTR_ERRCODE MSGCTR_PDmtTree::CreateInteriorNode(const DMString& path, PDmtNode& node)
{
    return forward(m_tree, [&](DmtTree& t) { return t.CreateInteriorNode(path.c_str(), node); });
}

MSGCTR_ERRCODE MSGCTR_PDmtTree::GetChildValuesMap(const DMString& path, DMMap<DMString, DmtData>& map)
{
    return forward(m_tree, [&](DmtTree& t) { return t.GetChildValuesMap(path.c_str(), map); });
}

MSGCTR_ERRCODE MSGCTR_PDmtTree::SetChildValuesMap(const DMString& path, const DMMap<DMString, DmtData>& map)
{
    return forward(m_tree, [&](DmtTree& t) { return t.SetChildValuesMap(path.c_str(), map); });
}

MSGCTR_ERRCODE MSGCTR_PDmtTree::GetChildNodeNames(const DMString& path, DMStringVector& names)
{
    return forward(m_tree, [&](DmtTree& t) { return t.GetChildNodeNames(path.c_str(), names); });
}

MSGCTR_ERRCODE MSGCTR_PDmtTree::Flush()
{
    return forward(m_tree, [](DmtTree& t) { return t.Flush(); });
}

MSGCTR_ERRCODE MSGCTR_PDmtTree::Commit()
{
    return forward(m_tree, [](DmtTree& t) { return t.Commit(); });
}

MSGCTR_ERRCODE MSGCTR_PDmtTree::Rollback()
{
    return forward(m_tree, [](DmtTree& t) { return t.Rollback(); });
}

MSGCTR_ERRCODE MSGCTR_PDmtTree::Begin()
{
    return forward(m_tree, [](DmtTree& t) { return t.Begin(); });
}

bool MSGCTR_PDmtTree::IsAtomic() const
{
    return m_tree && m_tree->IsAtomic();
}

bool MSGCTR_PDmtTree::IsValidNode(const DMString& path)
{
    PDmtNode node;
    return m_tree && m_tree->GetNode(path.c_str(), node) == DMT_RESULT_SUCCESS;
}

bool MSGCTR_PDmtTree::nodeIsAvailable(const DMString& path)
{
    return IsValidNode(path);
}

MSGCTR_ERRCODE MSGCTR_PDmtTree::Release()
{
    m_tree = nullptr;
    return MSGCTR_ERRCODE__SUCCESS;
}
