// The MMS adapter: its paths, the leaves it writes in table order, and its list callbacks.
#include "HostRootTest.h"

#include "profile/MSGCTR_ENG_MMS_Gpa.h"

#include "MSGCTR_ENG_MMSProfileApi.h"

#include "DmtTreeFactory.h"

#include <string>
#include <vector>

namespace {

using Record = MSGCTR_ENG_MMSProfileApi::MMSProfileData_S;
using Entry = MSGCTR_ENG_MMSProfileApi::MMSProfileIDAndData_S;

std::vector<std::string> leavesOf(const QString& id)
{
    std::vector<std::string> out;
    DmtTreeFactory::Initialize();
    {
        PDmtTree tree;
        DMStringVector names;
        if (DmtTreeFactory::GetSubtree(DmtPrincipal("localhost"), "./DevDetail/Ext/Conf/Msg/Profiles/MMS", tree) == 0
            && tree->GetChildNodeNames(id.toUtf8().constData(), names) == 0)
            for (const DMString& n : names)
                out.push_back(n.str());
    }
    DmtTreeFactory::Uninitialize();
    return out;
}

using MSGCTR_ENG_MMS_GpaTest = HostRootTest;

TEST_F(MSGCTR_ENG_MMS_GpaTest, PathsAreTheMmsOnes)
{
    const MSGCTR_ENG_MMS_Gpa gpa;
    EXPECT_EQ(gpa.pathDefault().str(), "./DevDetail/Ext/Conf/Msg/MMS/Default");
    EXPECT_EQ(gpa.pathProfiles().str(), "./DevDetail/Ext/Conf/Msg/Profiles/MMS");
}

TEST_F(MSGCTR_ENG_MMS_GpaTest, RecordBecomesEveryLeafInTableOrder)
{
    MSGCTR_ENG_MMS_Gpa gpa;
    const Record record;
    QString id;
    ASSERT_EQ(gpa.addProfile(&id, &record), 0);
    EXPECT_EQ(leavesOf(id), (std::vector<std::string>{"ProfileName", "MMSC", "IntProf", "IntProf2", "MOSizeLimit",
                                                       "Readonly"}));
}

TEST_F(MSGCTR_ENG_MMS_GpaTest, ListCallbacksClearTheListAndAppendEachProfile)
{
    MSGCTR_ENG_MMS_Gpa gpa;
    Record record;
    record.strProfileName = QStringLiteral("Only");
    record.nMOSizeLimit = -1;
    QString id;
    ASSERT_EQ(gpa.addProfile(&id, &record), 0);
    std::vector<Entry> list(3);
    EXPECT_EQ(gpa.listAllProfileS(&list), 0);
    ASSERT_EQ(list.size(), 1u);
    EXPECT_EQ(list[0].profID.string(), id);
    EXPECT_EQ(list[0].profData.strProfileName, QStringLiteral("Only"));
    EXPECT_EQ(list[0].profData.nMOSizeLimit, -1);
}

} // namespace
