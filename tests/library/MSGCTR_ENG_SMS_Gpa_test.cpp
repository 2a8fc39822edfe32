// The SMS adapter: its paths, the leaves it writes in table order (the unstored field left out), and its
// list callbacks.
#include "HostRootTest.h"

#include "profile/MSGCTR_ENG_SMS_Gpa.h"

#include "MSGCTR_ENG_DmtSMSProfApi.h"

#include "DmtTreeFactory.h"

#include <string>
#include <vector>

namespace {

using Record = MSGCTR_ENG_DmtSMSProfApi::SMSProfileData_S;
using Entry = MSGCTR_ENG_DmtSMSProfApi::SMSProfileIDAndData_S;

std::vector<std::string> leavesOf(const QString& id)
{
    std::vector<std::string> out;
    DmtTreeFactory::Initialize();
    {
        PDmtTree tree;
        DMStringVector names;
        if (DmtTreeFactory::GetSubtree(DmtPrincipal("localhost"), "./DevDetail/Ext/Conf/Msg/Profiles/SMS", tree) == 0
            && tree->GetChildNodeNames(id.toUtf8().constData(), names) == 0)
            for (const DMString& n : names)
                out.push_back(n.str());
    }
    DmtTreeFactory::Uninitialize();
    return out;
}

using MSGCTR_ENG_SMS_GpaTest = HostRootTest;

TEST_F(MSGCTR_ENG_SMS_GpaTest, PathsAreTheSmsOnes)
{
    const MSGCTR_ENG_SMS_Gpa gpa;
    EXPECT_EQ(gpa.pathDefault().str(), "./DevDetail/Ext/Conf/Msg/SMS/Default");
    EXPECT_EQ(gpa.pathProfiles().str(), "./DevDetail/Ext/Conf/Msg/Profiles/SMS");
}

TEST_F(MSGCTR_ENG_SMS_GpaTest, RecordBecomesEveryLeafInTableOrder)
{
    MSGCTR_ENG_SMS_Gpa gpa;
    Record record;
    record.nReserved = 5;
    QString id;
    ASSERT_EQ(gpa.addProfile(&id, &record), 0);
    EXPECT_EQ(leavesOf(id), (std::vector<std::string>{"ProfileName", "SMSC", "Readonly"}));
}

TEST_F(MSGCTR_ENG_SMS_GpaTest, ListCallbacksClearTheListAndAppendEachProfile)
{
    MSGCTR_ENG_SMS_Gpa gpa;
    Record record;
    record.strProfileName = QStringLiteral("Office");
    record.strSMSC = QStringLiteral("+4479");
    record.bReadonly = true;
    record.nReserved = 9;
    QString id;
    ASSERT_EQ(gpa.addProfile(&id, &record), 0);
    std::vector<Entry> list(2);
    EXPECT_EQ(gpa.listAllProfileS(&list), 0);
    ASSERT_EQ(list.size(), 1u);
    EXPECT_EQ(list[0].profID.string(), id);
    EXPECT_EQ(list[0].profData.strProfileName, QStringLiteral("Office"));
    EXPECT_EQ(list[0].profData.strSMSC, QStringLiteral("+4479"));
    EXPECT_TRUE(list[0].profData.bReadonly);
    EXPECT_EQ(list[0].profData.nReserved, 0);
}

} // namespace
