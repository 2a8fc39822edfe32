#include "MSGCTR_PDmtNode.h"

#include "dm/MsgctrDmResult.h"

#include "MSGCTR_DmtDataApi.h"

#include "DmtResult.h"

#include <type_traits>

static_assert(sizeof(MSGCTR_PDmtNode) == sizeof(PDmtNode) && std::is_standard_layout_v<MSGCTR_PDmtNode>,
              "a node wrapper must stay layout-identical to the smart pointer it views");

namespace {

// Reads the node's value into a temporary and, only when that succeeds, converts it into the output.
template <typename T, typename Convert>
MSGCTR_ERRCODE readTyped(const MSGCTR_PDmtNode& node, T* out, Convert convert)
{
    DmtData value;
    const MSGCTR_ERRCODE result = node.GetValue(&value);
    return MSGCTR_ERRCODE_IS_SUCCESS(result) ? convert(out, value) : result;
}

} // namespace

MSGCTR_PDmtNode::~MSGCTR_PDmtNode() = default;

MSGCTR_PDmtNode& MSGCTR_PDmtNode::fromPDmtNode(PDmtNode& node)
{
    return reinterpret_cast<MSGCTR_PDmtNode&>(node);
}

const MSGCTR_PDmtNode& MSGCTR_PDmtNode::fromPDmtNode(const PDmtNode& node)
{
    return reinterpret_cast<const MSGCTR_PDmtNode&>(node);
}

MSGCTR_ERRCODE MSGCTR_PDmtNode::GetValue(DmtData* value) const
{
    return msgctrErrcodeFromDm(m_node ? m_node->GetValue(*value) : int(DMT_RESULT_FAIL));
}

MSGCTR_ERRCODE MSGCTR_PDmtNode::SetValue(const DmtData& value)
{
    return msgctrErrcodeFromDm(m_node ? m_node->SetValue(value) : int(DMT_RESULT_FAIL));
}

MSGCTR_ERRCODE MSGCTR_PDmtNode::GetStringValue(QString* out) const
{
    return readTyped(*this, out, [](QString* o, const DmtData& v) { return MSGCTR_DmtDataApi::getString(o, v); });
}

MSGCTR_ERRCODE MSGCTR_PDmtNode::GetIntValue(int* out) const
{
    return readTyped(*this, out, [](int* o, const DmtData& v) { return MSGCTR_DmtDataApi::getInt(o, v); });
}

MSGCTR_ERRCODE MSGCTR_PDmtNode::GetBoolValue(bool* out) const
{
    return readTyped(*this, out, [](bool* o, const DmtData& v) { return MSGCTR_DmtDataApi::getBool(o, v); });
}

MSGCTR_ERRCODE MSGCTR_PDmtNode::GetBinaryValue(QByteArray* out) const
{
    return readTyped(*this, out, [](QByteArray* o, const DmtData& v) { return MSGCTR_DmtDataApi::getBinary(o, v); });
}

MSGCTR_ERRCODE MSGCTR_PDmtNode::SetStringValue(const QString& value)
{
    return SetValue(MSGCTR_DmtDataApi::fromString(value));
}

MSGCTR_ERRCODE MSGCTR_PDmtNode::SetIntValue(int value)
{
    return SetValue(MSGCTR_DmtDataApi::fromInt(value));
}

MSGCTR_ERRCODE MSGCTR_PDmtNode::SetBoolValue(bool value)
{
    return SetValue(MSGCTR_DmtDataApi::fromBool(value));
}

MSGCTR_ERRCODE MSGCTR_PDmtNode::SetBinaryValue(const QByteArray& value)
{
    return SetValue(MSGCTR_DmtDataApi::fromBinary(value));
}

MSGCTR_ERRCODE MSGCTR_PDmtNode::SetBinaryValue(const unsigned char* bytes, int length)
{
    return SetValue(MSGCTR_DmtDataApi::fromBinary(bytes, length));
}

MSGCTR_ERRCODE MSGCTR_PDmtNode::Release()
{
    m_node = nullptr;
    return MSGCTR_ERRCODE__SUCCESS;
}
