// The DM tree factory's static functions with MSGCTR_ERRCODE results.
#pragma once

#include "MSGCTR_ERRCODE.h"
#include "msgctr_export.h"

#include "DMString.h"
#include "DmtPrincipal.h"
#include "DmtTree.h"

class MSGCTR_EXPORT MSGCTR_DmtTreeFactory {
public:
    // 0, or 10079 when the factory refuses.
    static MSGCTR_ERRCODE Initialize();
    // 0, or 10080 when the factory refuses.
    static MSGCTR_ERRCODE Uninitialize();
    static MSGCTR_ERRCODE GetSubtree(const DmtPrincipal& principal, const DMString& path, PDmtTree& tree);
    // The lock type (DmtLockType) goes to the factory unchanged.
    static MSGCTR_ERRCODE GetSubtreeEx(const DmtPrincipal& principal, const DMString& path, int lockType,
                                       PDmtTree& tree);
};
