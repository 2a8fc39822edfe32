#include "MSGCTR_ENG_FtrCfg.h"

#include "MSGCTR_ENG_SetupInfo.h"

#include "SETUP_Utility.h"

namespace {

// Process-wide answers, filled on first use and never cleared.
bool sFlexBit303 = false;
bool sFlexBit303Read = false;
bool sIncomingSmsPrefStorageIs1 = false;
bool sIncomingSmsPrefStorageRead = false;

bool incomingSmsPrefStorageIs1()
{
    if (!sIncomingSmsPrefStorageRead) {
        MSGCTR_ENG_SetupInfo setupInfo(MSGCTR_ENG_Setup::FLUSH_MODE__FLUSH);
        sIncomingSmsPrefStorageIs1 = setupInfo.getIncomingSMSMsgPrefStorage() == 1;
        sIncomingSmsPrefStorageRead = true;
    }
    return sIncomingSmsPrefStorageIs1;
}

} // namespace

MSGCTR_ENG_FtrCfg::~MSGCTR_ENG_FtrCfg() = default;

bool MSGCTR_ENG_FtrCfg::support_TrashFolder()
{
    return false;
}

bool MSGCTR_ENG_FtrCfg::getFlexBit_MRS_10600_AVAILABLE()
{
    if (!sFlexBit303Read) {
        bool value = false;
        SETUP_Utility::getFlexBit(303, &value);
        sFlexBit303 = value;
        sFlexBit303Read = true;
    }
    return sFlexBit303;
}

bool MSGCTR_ENG_FtrCfg::support_UserSetupIncomingSmsStorage()
{
    return getFlexBit_MRS_10600_AVAILABLE();
}

bool MSGCTR_ENG_FtrCfg::support_SimcardFolder()
{
    return !getFlexBit_MRS_10600_AVAILABLE() && !incomingSmsPrefStorageIs1();
}

bool MSGCTR_ENG_FtrCfg::support_SortBySimcard()
{
    return !support_SimcardFolder();
}

bool MSGCTR_ENG_FtrCfg::showSimcardIconForSmsInSimcard()
{
    return !support_SimcardFolder();
}
