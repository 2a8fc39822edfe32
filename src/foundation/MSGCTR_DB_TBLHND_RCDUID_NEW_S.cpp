#include "MSGCTR_DB_TBLHND_RCDUID_NEW_S.h"

#include "MSGCTR_ENG_DumpContext.h"

MSGCTR_ENG_DumpContext& operator<<(MSGCTR_ENG_DumpContext& context, const MSGCTR_DB_TBLHND_RCDUID_NEW_S& record)
{
    return context << MEDCStr(" MSGCTR_DB_TBLHND_RCDUID_NEW_S : ")
                   << MEDCStr(" mMsgType= ") << record.mMsgType << MEDCStr(", ")
                   << MEDCStr(" mStoreMedia= ") << record.mStoreMedia << MEDCStr(", ")
                   << MEDCStr(" mDbUID= ") << record.mDbUID;
}
