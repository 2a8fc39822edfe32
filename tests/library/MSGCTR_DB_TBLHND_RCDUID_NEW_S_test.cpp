#include "MSGCTR_DB_TBLHND_RCDUID_NEW_S.h"

#include "HostRootTest.h"
#include "MSGCTR_ENG_DumpContext.h"

namespace {

class RcdUidTest : public HostRootTest {
protected:
    MSGCTR_DB_TBLHND_RCDUID_NEW_S record()
    {
        MSGCTR_DB_TBLHND_RCDUID_NEW_S r;
        r.mMsgType = 3;
        r.mDbUID = 42;
        r.mStoreMedia = 2;
        return r;
    }
};

} // namespace

TEST_F(RcdUidTest, StartsEmpty)
{
    const MSGCTR_DB_TBLHND_RCDUID_NEW_S r;
    EXPECT_EQ(r.mMsgType, 0u);
    EXPECT_EQ(r.mDbUID, 0);
    EXPECT_EQ(r.mStoreMedia, 0u);
}

TEST_F(RcdUidTest, RendersTypeMediumAndIdWithAnnotations)
{
    MSGCTR_ENG_DumpContext dc;
    dc << record();
    EXPECT_EQ(dc.data(), QStringLiteral(" MSGCTR_DB_TBLHND_RCDUID_NEW_S : "
                                        " mMsgType= 3/0x00000003(U32,4), "
                                        " mStoreMedia= 2/0x00000002(U32,4), "
                                        " mDbUID= 42(S32,4)"));
}

TEST_F(RcdUidTest, RendersBareValuesWithoutAnnotations)
{
    MSGCTR_ENG_DumpContext dc;
    dc.disableOutputObjTypeInfo();
    dc.setPrintHEXForUnsignedIntegralType(false);
    MSGCTR_DB_TBLHND_RCDUID_NEW_S r = record();
    r.mDbUID = -1;
    r.mMsgType = 0xFFFFFFFFu;
    dc << r;
    EXPECT_EQ(dc.data(), QStringLiteral(" MSGCTR_DB_TBLHND_RCDUID_NEW_S :  mMsgType= 4294967295,  mStoreMedia= 2,  "
                                        "mDbUID= -1"));
}

TEST_F(RcdUidTest, ChainsWithOtherValues)
{
    MSGCTR_ENG_DumpContext dc;
    dc << MEDCStr("uid = ") << record() << MEDCStr(", ") << 1;
    EXPECT_EQ(dc.data(), QStringLiteral("uid =  MSGCTR_DB_TBLHND_RCDUID_NEW_S :  mMsgType= 3/0x00000003(U32,4),  "
                                        "mStoreMedia= 2/0x00000002(U32,4),  mDbUID= 42(S32,4), 1(S32,4)"));
}
