// The SMS profiles of the tree: each operation forwards to the engine, and the list keeps the tree order.
#include "HostRootTest.h"

#include "MSGCTR_ENG_DmtSMSProfApi.h"

#include <vector>

namespace {

using Api = MSGCTR_ENG_DmtSMSProfApi;
using Record = Api::SMSProfileData_S;

using MSGCTR_ENG_DmtSMSProfApiTest = HostRootTest;

TEST_F(MSGCTR_ENG_DmtSMSProfApiTest, ListKeepsTheTreeOrder)
{
    Record r;
    Api::PROFILE_ID_S b, a;
    r.strProfileName = QStringLiteral("b");
    ASSERT_EQ(Api::addProfile(&b, r), 0);
    r.strProfileName = QStringLiteral("a");
    ASSERT_EQ(Api::addProfile(&a, r), 0);
    std::vector<Api::SMSProfileIDAndData_S> list;
    EXPECT_EQ(Api::listAllProfileS(&list), 0);
    ASSERT_EQ(list.size(), 2u);
    EXPECT_EQ(list[0].profID, b);
    EXPECT_EQ(list[1].profID, a);
}

TEST_F(MSGCTR_ENG_DmtSMSProfApiTest, ProfileAndDefaultRoundTrip)
{
    Record r;
    r.strProfileName = QStringLiteral("Office");
    r.strSMSC = QStringLiteral("+4479");
    Api::PROFILE_ID_S id;
    ASSERT_EQ(Api::addProfile(&id, r), 0);
    r.strSMSC = QStringLiteral("+4480");
    EXPECT_EQ(Api::updateProfile(id, r), 0);
    Record read;
    EXPECT_EQ(Api::getProfile(&read, id), 0);
    EXPECT_EQ(read.strSMSC, QStringLiteral("+4480"));
    EXPECT_EQ(Api::setDefaultProfileID(id), 0);
    Api::PROFILE_ID_S stored;
    EXPECT_EQ(Api::getDefaultProfileID(&stored), 0);
    EXPECT_EQ(stored, id);
    EXPECT_EQ(Api::removeProfile(id), 0);
    EXPECT_EQ(Api::getProfile(&read, id), 10081);
}

} // namespace
