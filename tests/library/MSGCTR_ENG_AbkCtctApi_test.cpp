#include "HostRootTest.h"

#include "MSGCTR_ENG_AbkCtctApi.h"

namespace {

ADDRBK_ENG_Contact twoNumbers()
{
    ADDRBK_ENG_Contact contact;
    contact.addElem(ADDRBK_FIELD_TYPE_TEL, ADDRBK_ATTR_TYPE_TEL_WORK, QStringLiteral("1"));
    contact.addElem(ADDRBK_FIELD_TYPE_NAME, ADDRBK_ATTR_TYPE_NONE, QStringLiteral("Fay"));
    contact.addElem(ADDRBK_FIELD_TYPE_TEL, ADDRBK_ATTR_TYPE_TEL_FAX, QStringLiteral("2"));
    return contact;
}

TEST_F(HostRootTest, AllElemsOfFieldInOrder)
{
    EXPECT_EQ(MSGCTR_ENG_AbkCtctApi::getAllElemsByContentFieldType(twoNumbers(), ADDRBK_FIELD_TYPE_TEL),
              (QStringList{QStringLiteral("1"), QStringLiteral("2")}));
    EXPECT_TRUE(MSGCTR_ENG_AbkCtctApi::getAllElemsByContentFieldType(twoNumbers(), ADDRBK_FIELD_TYPE_EMAIL).isEmpty());
}

TEST_F(HostRootTest, FirstElemOfField)
{
    QString value = QStringLiteral("stale");
    EXPECT_TRUE(MSGCTR_ENG_AbkCtctApi::get1stElemByContentFieldType(&value, twoNumbers(), ADDRBK_FIELD_TYPE_TEL));
    EXPECT_EQ(value, QStringLiteral("1"));
    EXPECT_FALSE(MSGCTR_ENG_AbkCtctApi::get1stElemByContentFieldType(&value, twoNumbers(), ADDRBK_FIELD_TYPE_IM));
    EXPECT_TRUE(value.isEmpty());
}

} // namespace
