// Where a message record lives in the messaging database: its message type, its id in the database and
// the medium of the store that holds it.
#pragma once

#include "msgctr_export.h"

class MSGCTR_ENG_DumpContext;

struct MSGCTR_DB_TBLHND_RCDUID_NEW_S {
    unsigned int mMsgType = 0;
    int mDbUID = 0;
    unsigned int mStoreMedia = 0;
};

// " MSGCTR_DB_TBLHND_RCDUID_NEW_S : " then the type, the store medium and the id as name-value pairs.
MSGCTR_EXPORT MSGCTR_ENG_DumpContext& operator<<(MSGCTR_ENG_DumpContext& context,
                                                 const MSGCTR_DB_TBLHND_RCDUID_NEW_S& record);
