#include "MSGCTR_DmtTreeFactory.h"

#include "dm/MsgctrDmResult.h"

#include "DmtTreeFactory.h"

MSGCTR_ERRCODE MSGCTR_DmtTreeFactory::Initialize()
{
    return DmtTreeFactory::Initialize() ? MSGCTR_ERRCODE__SUCCESS : MSGCTR_ERRCODE__DM_FACTORY_INIT_FAIL;
}

MSGCTR_ERRCODE MSGCTR_DmtTreeFactory::Uninitialize()
{
    return DmtTreeFactory::Uninitialize() ? MSGCTR_ERRCODE__SUCCESS : MSGCTR_ERRCODE__DM_FACTORY_UNINIT_FAIL;
}

MSGCTR_ERRCODE MSGCTR_DmtTreeFactory::GetSubtree(const DmtPrincipal& principal, const DMString& path, PDmtTree& tree)
{
    return msgctrErrcodeFromDm(DmtTreeFactory::GetSubtree(principal, path.c_str(), tree));
}

MSGCTR_ERRCODE MSGCTR_DmtTreeFactory::GetSubtreeEx(const DmtPrincipal& principal, const DMString& path, int lockType,
                                                   PDmtTree& tree)
{
    return msgctrErrcodeFromDm(DmtTreeFactory::GetSubtreeEx(principal, path.c_str(), lockType, tree));
}
