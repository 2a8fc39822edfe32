// What every profile operation stands on for the length of one call: the factory guard, the local
// principal and one subtree, built in that order and released in reverse order when the frame goes.
#pragma once

#include "MSGCTR_DmtPrincipal.h"
#include "MSGCTR_DmtTreeFactorySingleton.h"
#include "MSGCTR_PDmtTree.h"

class MsgctrDmOperationFrame {
public:
    // Initialises the factory and takes the subtree at the absolute path; the first failure is returned.
    MSGCTR_ERRCODE open(const DMString& path)
    {
        const MSGCTR_ERRCODE result = m_guard.Initialize();
        if (MSGCTR_ERRCODE_IS_ERROR(result))
            return result;
        return m_guard.GetSubtree(m_principal, path, m_tree.dmtTree());
    }

    MSGCTR_PDmtTree& tree() { return m_tree; }

private:
    MSGCTR_DmtTreeFactorySingleton m_guard;
    MSGCTR_DmtPrincipal m_principal;
    MSGCTR_PDmtTree m_tree;
};
