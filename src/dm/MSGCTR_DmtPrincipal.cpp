#include "MSGCTR_DmtPrincipal.h"

MSGCTR_DmtPrincipal::MSGCTR_DmtPrincipal()
    : DmtPrincipal(DMT_LOCAL_PRINCIPAL)
{
}

MSGCTR_DmtPrincipal::~MSGCTR_DmtPrincipal() = default;
