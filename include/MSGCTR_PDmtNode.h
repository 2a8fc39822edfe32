// One DM node for the length of one operation, with typed access to its value.
#pragma once

#include "MSGCTR_ERRCODE.h"
#include "msgctr_export.h"

#include "DmtData.h"
#include "DmtNode.h"

#include <QByteArray>
#include <QString>

class MSGCTR_EXPORT MSGCTR_PDmtNode {
public:
    MSGCTR_PDmtNode() = default;
    ~MSGCTR_PDmtNode();

    PDmtNode& dmtNode() { return m_node; }
    const PDmtNode& dmtNode() const { return m_node; }

    // Views a smart pointer as a node wrapper without copying: the two are layout-identical.
    static MSGCTR_PDmtNode& fromPDmtNode(PDmtNode& node);
    static const MSGCTR_PDmtNode& fromPDmtNode(const PDmtNode& node);

    MSGCTR_ERRCODE GetValue(DmtData* value) const;
    MSGCTR_ERRCODE SetValue(const DmtData& value);

    // When the node's value cannot be read the output is left untouched; once it is read, the output is
    // reset and then set as by MSGCTR_DmtDataApi.
    MSGCTR_ERRCODE GetStringValue(QString* out) const;
    MSGCTR_ERRCODE GetIntValue(int* out) const;
    MSGCTR_ERRCODE GetBoolValue(bool* out) const;
    MSGCTR_ERRCODE GetBinaryValue(QByteArray* out) const;

    MSGCTR_ERRCODE SetStringValue(const QString& value);
    MSGCTR_ERRCODE SetIntValue(int value);
    MSGCTR_ERRCODE SetBoolValue(bool value);
    MSGCTR_ERRCODE SetBinaryValue(const QByteArray& value);
    MSGCTR_ERRCODE SetBinaryValue(const unsigned char* bytes, int length);

    // Drops the node; always 0.
    MSGCTR_ERRCODE Release();

private:
    PDmtNode m_node;
};
