// A guard built on the stack for one operation (not a process-wide object, despite its name): it
// initialises the DM factory at most once while that succeeds, and its destructor balances any
// Initialize, failed or not, with exactly one Uninitialize.
#pragma once

#include "MSGCTR_ERRCODE.h"
#include "msgctr_export.h"

#include "DMString.h"
#include "DmtPrincipal.h"
#include "DmtTree.h"

class MSGCTR_EXPORT MSGCTR_DmtTreeFactorySingleton {
public:
    MSGCTR_DmtTreeFactorySingleton() = default;
    ~MSGCTR_DmtTreeFactorySingleton();
    MSGCTR_DmtTreeFactorySingleton(const MSGCTR_DmtTreeFactorySingleton&) = delete;
    MSGCTR_DmtTreeFactorySingleton& operator=(const MSGCTR_DmtTreeFactorySingleton&) = delete;

    MSGCTR_ERRCODE Initialize();
    MSGCTR_ERRCODE GetSubtree(const DmtPrincipal& principal, const DMString& path, PDmtTree& tree);
    MSGCTR_ERRCODE GetSubtreeEx(const DmtPrincipal& principal, const DMString& path, int lockType, PDmtTree& tree);

private:
    bool m_initialized = false;
    MSGCTR_ERRCODE m_lastResult = MSGCTR_ERRCODE__SUCCESS;
};
