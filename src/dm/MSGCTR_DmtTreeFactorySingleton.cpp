#include "MSGCTR_DmtTreeFactorySingleton.h"

#include "MSGCTR_DmtTreeFactory.h"

MSGCTR_DmtTreeFactorySingleton::~MSGCTR_DmtTreeFactorySingleton()
{
    if (m_initialized)
        MSGCTR_DmtTreeFactory::Uninitialize();
}

MSGCTR_ERRCODE MSGCTR_DmtTreeFactorySingleton::Initialize()
{
    if (m_initialized && !MSGCTR_ERRCODE_IS_ERROR(m_lastResult)) {
        m_lastResult = MSGCTR_ERRCODE__SUCCESS;
        return MSGCTR_ERRCODE__SUCCESS;
    }
    // A retry after a failure initialises again, but the destructor still uninitialises only once.
    m_lastResult = MSGCTR_DmtTreeFactory::Initialize();
    m_initialized = true;
    return m_lastResult;
}

MSGCTR_ERRCODE MSGCTR_DmtTreeFactorySingleton::GetSubtree(const DmtPrincipal& principal, const DMString& path,
                                                          PDmtTree& tree)
{
    return MSGCTR_DmtTreeFactory::GetSubtree(principal, path, tree);
}

MSGCTR_ERRCODE MSGCTR_DmtTreeFactorySingleton::GetSubtreeEx(const DmtPrincipal& principal, const DMString& path,
                                                            int lockType, PDmtTree& tree)
{
    return MSGCTR_DmtTreeFactory::GetSubtreeEx(principal, path, lockType, tree);
}
