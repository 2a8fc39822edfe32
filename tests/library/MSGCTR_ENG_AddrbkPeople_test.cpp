#include "HostRootTest.h"
#include "RowName.h"

#include "MSGCTR_ENG_AddrbkPeople.h"

#include "ADDRBK_RECORD_TYPE_T.h"

namespace {

struct AttrTypeCase {
    int type;
    bool tel;
    bool email;
    bool im;
};

class AttrTypeTest : public HostRootTest, public ::testing::WithParamInterface<AttrTypeCase> {};

TEST_P(AttrTypeTest, GroupsAttributeTypes)
{
    const auto type = static_cast<ADDRBK_ATTR_TYPE_T>(GetParam().type);
    EXPECT_EQ(MSGCTR_ENG_AddrbkPeople__is_Tel_AddrbkAttrType(type), GetParam().tel);
    EXPECT_EQ(MSGCTR_ENG_AddrbkPeople__is_Email_AddrbkAttrType(type), GetParam().email);
    EXPECT_EQ(MSGCTR_ENG_AddrbkPeople__is_IM_AddrbkAttrType(type), GetParam().im);
}

INSTANTIATE_TEST_SUITE_P(
    Table, AttrTypeTest,
    ::testing::Values(AttrTypeCase{256, true, false, false}, AttrTypeCase{512, true, false, false},
                      AttrTypeCase{1024, true, false, false}, AttrTypeCase{2048, true, false, false},
                      AttrTypeCase{4096, true, false, false}, AttrTypeCase{8192, true, false, false},
                      AttrTypeCase{16384, true, false, false}, AttrTypeCase{0x10000, false, true, false},
                      AttrTypeCase{0x20000, false, true, false}, AttrTypeCase{0x40000, false, true, false},
                      AttrTypeCase{0x100000, false, false, true}, AttrTypeCase{0, false, false, false},
                      AttrTypeCase{128, false, false, false}, AttrTypeCase{256 | 512, false, false, false},
                      AttrTypeCase{32768, false, false, false}, AttrTypeCase{0x80000, false, false, false},
                      AttrTypeCase{0x200000, false, false, false}, AttrTypeCase{-1, false, false, false}),
                         [](const auto& info) { return rowName("Type", info.param.type); });

ADDRBK_ENG_Contact fullContact()
{
    ADDRBK_ENG_Contact contact(ADDRBK_CONTACT_UID_S{ADDRBK_RECORD_TYPE_CONTACT, 3});
    contact.addElem(ADDRBK_FIELD_TYPE_NAME, ADDRBK_ATTR_TYPE_NONE, QStringLiteral("Dora"));
    contact.addElem(ADDRBK_FIELD_TYPE_EMAIL, ADDRBK_ATTR_TYPE_EMAIL_WORK, QStringLiteral("dora@work"));
    contact.addElem(ADDRBK_FIELD_TYPE_TEL, ADDRBK_ATTR_TYPE_TEL_MOBILE, QStringLiteral("0170"));
    contact.addElem(ADDRBK_FIELD_TYPE_TEL, ADDRBK_ATTR_TYPE_TEL_HOME, QStringLiteral("030"));
    contact.addElem(ADDRBK_FIELD_TYPE_EMAIL, ADDRBK_ATTR_TYPE_EMAIL_HOME, QStringLiteral("dora@home"));
    contact.addElem(ADDRBK_FIELD_TYPE_IM, ADDRBK_ATTR_TYPE_IM, QStringLiteral("dora#im"));
    contact.addElem(ADDRBK_FIELD_TYPE_PICTURE, ADDRBK_ATTR_TYPE_NONE, QStringLiteral("dora.png"));
    contact.addElem(ADDRBK_FIELD_TYPE_RING_ALERT, ADDRBK_ATTR_TYPE_NONE, QStringLiteral("ring.mid"));
    contact.addElem(ADDRBK_FIELD_TYPE_VIDEO, ADDRBK_ATTR_TYPE_NONE, QStringLiteral("dora.3gp"));
    contact.addElem(ADDRBK_FIELD_TYPE_LIGHT_ALERT, ADDRBK_ATTR_TYPE_NONE, QStringLiteral("blue"));
    contact.addElem(ADDRBK_FIELD_TYPE_MSG_ALERT, ADDRBK_ATTR_TYPE_NONE, QStringLiteral("ding.wav"));
    return contact;
}

TEST_F(HostRootTest, NewPeopleIsEmpty)
{
    const MSGCTR_ENG_AddrbkPeople people;
    EXPECT_TRUE(people.name().isEmpty());
    EXPECT_FALSE(people.hasEmail());
    EXPECT_FALSE(people.hasIM());
    EXPECT_FALSE(people.hasNumber());
    EXPECT_TRUE(people.picture().isEmpty());
    EXPECT_TRUE(people.msgAlert().isEmpty());
}

TEST_F(HostRootTest, AssignmentFromContactTakesFirstValueOfEachKind)
{
    MSGCTR_ENG_AddrbkPeople people;
    people = fullContact();
    EXPECT_EQ(people.name(), QStringLiteral("Dora"));
    EXPECT_EQ(people.number(), QStringLiteral("0170"));
    EXPECT_EQ(people.email(), QStringLiteral("dora@work"));
    EXPECT_EQ(people.im(), QStringLiteral("dora#im"));
    EXPECT_EQ(people.picture(), QStringLiteral("dora.png"));
    EXPECT_EQ(people.ringAlert(), QStringLiteral("ring.mid"));
    EXPECT_EQ(people.video(), QStringLiteral("dora.3gp"));
    EXPECT_EQ(people.lightAlert(), QStringLiteral("blue"));
    EXPECT_EQ(people.msgAlert(), QStringLiteral("ding.wav"));
    EXPECT_TRUE(people.hasEmail());
    EXPECT_TRUE(people.hasIM());
    EXPECT_TRUE(people.hasNumber());
}

TEST_F(HostRootTest, AssignmentFromSparseContactClearsOldValues)
{
    MSGCTR_ENG_AddrbkPeople people;
    people = fullContact();
    ADDRBK_ENG_Contact sparse;
    sparse.addElem(ADDRBK_FIELD_TYPE_NAME, ADDRBK_ATTR_TYPE_NONE, QStringLiteral("Eve"));
    people = sparse;
    EXPECT_EQ(people.name(), QStringLiteral("Eve"));
    EXPECT_FALSE(people.hasNumber());
    EXPECT_FALSE(people.hasEmail());
    EXPECT_TRUE(people.ringAlert().isEmpty());
}

TEST_F(HostRootTest, CopyClearAndSetters)
{
    MSGCTR_ENG_AddrbkPeople people;
    people = fullContact();
    MSGCTR_ENG_AddrbkPeople copy(people);
    people.clear();
    EXPECT_TRUE(people.name().isEmpty());
    EXPECT_FALSE(people.hasIM());
    EXPECT_EQ(copy.name(), QStringLiteral("Dora"));
    EXPECT_EQ(copy.video(), QStringLiteral("dora.3gp"));

    people.setName(QStringLiteral("n"));
    people.setEmail(QStringLiteral("e@x"));
    people.setNumber(QStringLiteral("1"));
    EXPECT_EQ(people.name(), QStringLiteral("n"));
    EXPECT_EQ(people.email(), QStringLiteral("e@x"));
    EXPECT_EQ(people.number(), QStringLiteral("1"));
    copy = people;
    EXPECT_EQ(copy.name(), QStringLiteral("n"));
    EXPECT_TRUE(copy.video().isEmpty());
}

TEST_F(HostRootTest, SearchResultOverridesWithItsNonEmptyValues)
{
    MSGCTR_ENG_AddrbkPeople people;
    people = fullContact();
    ADDRBK_SEARCH_RESULT_S result = ADDRBK_SEARCH_RESULT_S::null();
    result.displayName = QStringLiteral("Dora D.");
    result.matchedNumber = QStringLiteral("030");
    result.msgAlert = QStringLiteral("other.wav");
    people.updateByAddrbkSearchResult(result);
    EXPECT_EQ(people.name(), QStringLiteral("Dora D."));
    EXPECT_EQ(people.number(), QStringLiteral("030"));
    EXPECT_EQ(people.msgAlert(), QStringLiteral("other.wav"));
    EXPECT_EQ(people.email(), QStringLiteral("dora@work"));
    EXPECT_EQ(people.picture(), QStringLiteral("dora.png"));

    people.updateByAddrbkSearchResult(ADDRBK_SEARCH_RESULT_S::null());
    EXPECT_EQ(people.name(), QStringLiteral("Dora D."));
}

} // namespace
