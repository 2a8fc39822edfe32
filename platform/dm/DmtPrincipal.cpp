#include "DmtPrincipal.h"

const char* const DMT_LOCAL_PRINCIPAL = "localhost";

DmtPrincipal::DmtPrincipal(const char* name)
    : m_name(name)
{
}

DmtPrincipal::~DmtPrincipal() = default;
