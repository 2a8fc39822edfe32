// Which optional messaging features this phone build offers. The derived answers are read once per process
// and kept: the folder layout must not change while an application runs.
#pragma once

#include "msgctr_export.h"

class MSGCTR_EXPORT MSGCTR_ENG_FtrCfg {
public:
    virtual ~MSGCTR_ENG_FtrCfg();

    static bool support_TrashFolder();
    // Feature bit 303.
    static bool getFlexBit_MRS_10600_AVAILABLE();
    static bool support_UserSetupIncomingSmsStorage();
    // Only without feature bit 303 and with an incoming SMS preferred storage other than 1.
    static bool support_SimcardFolder();
    static bool support_SortBySimcard();
    static bool showSimcardIconForSmsInSimcard();
};
