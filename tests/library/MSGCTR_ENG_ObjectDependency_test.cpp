#include "HostRootTest.h"

#include "MSGCTR_ENG_ObjectDependency.h"

#include <QPointer>
#include <QRegularExpression>

#include <list>

namespace {

// A data object that writes what happens to it into a shared journal.
class Node : public MSGCTR_ENG_ObjectDependency {
    Q_OBJECT
public:
    Node(const QString& name, QStringList* journal, bool autoDelete = false)
        : MSGCTR_ENG_ObjectDependency(autoDelete), m_name(name), m_journal(journal)
    {
    }
    void simplyReloadMyData() override { m_journal->append(m_name + QStringLiteral(" reload")); }
    void rightAfterSetFlagNeedReloadData() override { m_journal->append(m_name + QStringLiteral(" set")); }
    void rightAfterClearMyFlagNeedReloadData() override { m_journal->append(m_name + QStringLiteral(" clear")); }
    void touch() { m_journal->append(m_name + QStringLiteral(" touch")); }
    void touchWith(MSGCTR_ENG_ObjectDependency* except)
    {
        const Node* node = qobject_cast<Node*>(except);
        m_journal->append(m_name + QStringLiteral(" touch ") + (node ? node->m_name : QStringLiteral("null")));
    }

private:
    QString m_name;
    QStringList* m_journal;
};

// A second kind of data object, to tell data-ins apart by class.
class SpecialNode : public Node {
    Q_OBJECT
public:
    using Node::Node;
};

class HookCounter : public MSGCTR_ENG_ObjectDependency {
public:
    HookCounter() : MSGCTR_ENG_ObjectDependency(false) {}
};

class ObjectDependencyTest : public HostRootTest {
protected:
    QStringList reloads() const { return m_journal.filter(QStringLiteral(" reload")); }
    QStringList m_journal;
};

using ObjList = MSGCTR_ENG_ObjectDependency::ObjList;

ObjList listOf(std::initializer_list<MSGCTR_ENG_ObjectDependency*> objs)
{
    return ObjList(objs);
}

TEST_F(ObjectDependencyTest, ConstructionClearsTheFlagThroughItsOwnHookAndKeepsTheAutoDeleteFlag)
{
    Node keep(QStringLiteral("K"), &m_journal, true);
    Node plain(QStringLiteral("P"), &m_journal);
    // The hook runs while the base is built: the base's (empty) hook, not the override.
    EXPECT_TRUE(m_journal.isEmpty());
    EXPECT_FALSE(keep.needReloadData());
    EXPECT_TRUE(keep.autoDeleteByDataIn());
    EXPECT_FALSE(plain.autoDeleteByDataIn());
    plain.enableAutoDeleteByDataIn();
    EXPECT_TRUE(plain.autoDeleteByDataIn());
    plain.disableAutoDeleteByDataIn();
    EXPECT_FALSE(plain.autoDeleteByDataIn());
    plain.setAutoDeleteByDataIn(true);
    EXPECT_TRUE(plain.autoDeleteByDataIn());
    EXPECT_STREQ(keep.metaObject()->superClass()->className(), "MSGCTR_ENG_ObjectDependency");
    EXPECT_STREQ(keep.metaObject()->superClass()->superClass()->className(), "MSGCTR_ENG_Object");
    EXPECT_TRUE(keep.inherits("MSGCTR_ENG_Object"));
}

TEST_F(ObjectDependencyTest, ObjectWithoutConnectionsHasNoNeighbours)
{
    Node a(QStringLiteral("A"), &m_journal);
    ObjList list = listOf({&a});
    EXPECT_EQ(a.getDataIns(list), 0);
    EXPECT_TRUE(list.empty());
    list = listOf({&a});
    EXPECT_EQ(a.getDataOuts(list), 0);
    EXPECT_TRUE(list.empty());
    MSGCTR_ENG_ObjectDependency* only = &a;
    EXPECT_FALSE(a.getTheOnlyDataIn(&only, false));
    EXPECT_EQ(only, nullptr);
    EXPECT_TRUE(reportLines().isEmpty());
}

TEST_F(ObjectDependencyTest, EdgesAreRealConnectionsWithTheGivenStrings)
{
    Node x(QStringLiteral("X"), &m_journal);
    Node s(QStringLiteral("S"), &m_journal);
    x.connectDataIn(&s);
    const char* signalIn = "2signalGetObjDependencyDataIn(std::list<MSGCTR_ENG_ObjectDependency*>&)";
    const char* signalOut = "2signalGetObjDependencyDataOut(std::list<MSGCTR_ENG_ObjectDependency*>&)";
    const char* slot = "1slotOnGetObjDependency(std::list<MSGCTR_ENG_ObjectDependency*>&)";
    // Disconnecting by those strings succeeds exactly when the connections exist.
    EXPECT_TRUE(QObject::disconnect(&x, signalIn, &s, slot));
    EXPECT_TRUE(QObject::disconnect(&s, signalOut, &x, slot));
    ObjList list;
    EXPECT_EQ(x.getDataIns(list), 0);
    EXPECT_EQ(s.getDataOuts(list), 0);
}

TEST_F(ObjectDependencyTest, NeighboursComeInConnectionOrderAndDisconnectRemovesBothSides)
{
    Node x(QStringLiteral("X"), &m_journal);
    Node s1(QStringLiteral("S1"), &m_journal);
    Node s2(QStringLiteral("S2"), &m_journal);
    Node s3(QStringLiteral("S3"), &m_journal);
    x.connectDataIn(&s2);
    x.connectDataIn(&s1);
    x.connectDataIn(&s3);
    ObjList list;
    EXPECT_EQ(x.getDataIns(list), 3);
    EXPECT_EQ(list, listOf({&s2, &s1, &s3}));
    EXPECT_EQ(s1.getDataOuts(list), 1);
    EXPECT_EQ(list, listOf({&x}));

    x.disconnectDataIn(&s1);
    EXPECT_EQ(x.getDataIns(list), 2);
    EXPECT_EQ(list, listOf({&s2, &s3}));
    EXPECT_EQ(s1.getDataOuts(list), 0);
}

TEST_F(ObjectDependencyTest, TwoDataInsHaveNoOnlyOneUnlessAClassNameSinglesOneOut)
{
    Node x(QStringLiteral("X"), &m_journal);
    Node plain(QStringLiteral("P"), &m_journal);
    SpecialNode special(QStringLiteral("S"), &m_journal);
    x.connectDataIn(&plain);
    x.connectDataIn(&special);

    MSGCTR_ENG_ObjectDependency* only = &x;
    EXPECT_FALSE(x.getTheOnlyDataIn(&only, false));
    EXPECT_EQ(only, nullptr);
    EXPECT_TRUE(x.getTheOnlyDataIn(&only, "SpecialNode", false));
    EXPECT_EQ(only, &special);
    EXPECT_FALSE(x.getTheOnlyDataIn(&only, "Node", false));
    EXPECT_EQ(only, nullptr);
    EXPECT_FALSE(x.getTheOnlyDataIn(&only, "QTimer", false));
    EXPECT_EQ(only, nullptr);

    ObjList list;
    EXPECT_EQ(x.getDataIns(list, "SpecialNode"), 1);
    EXPECT_EQ(list, listOf({&special}));
    EXPECT_EQ(x.getDataIns(list, "MSGCTR_ENG_ObjectDependency"), 2);
    EXPECT_EQ(x.getDataIns(list, nullptr), 2);
    EXPECT_EQ(list, listOf({&plain, &special}));
    EXPECT_TRUE(reportLines().isEmpty());
}

TEST_F(ObjectDependencyTest, OnlyDataInIsFoundAndTheBoolDoesNotChangeTheResult)
{
    Node x(QStringLiteral("X"), &m_journal);
    Node s(QStringLiteral("S"), &m_journal);
    x.connectDataIn(&s);
    for (bool flag : {false, true}) {
        MSGCTR_ENG_ObjectDependency* only = nullptr;
        EXPECT_TRUE(x.getTheOnlyDataIn(&only, flag));
        EXPECT_EQ(only, &s);
    }
    EXPECT_TRUE(reportLines().isEmpty());
}

TEST_F(ObjectDependencyTest, AskingToReportTellsHowManyDataInsThereWere)
{
    Node x(QStringLiteral("X"), &m_journal);
    Node s1(QStringLiteral("S1"), &m_journal);
    Node s2(QStringLiteral("S2"), &m_journal);
    x.connectDataIn(&s1);
    x.connectDataIn(&s2);
    MSGCTR_ENG_ObjectDependency* only = &x;
    EXPECT_FALSE(x.getTheOnlyDataIn(&only, "Node", true));
    EXPECT_EQ(only, nullptr);
    const QStringList lines = takeReportLines();
    ASSERT_EQ(lines.size(), 1);
    EXPECT_TRUE(QRegularExpression(QStringLiteral(
        "^MSGCTR_ENG_ObjectDependency\\.cpp\\(\\d+\\)\\[getTheOnlyDataIn\\]\\d+:  warning ! mild_assert fail at "
        "\"count == 1\"; count = 2\\(S32,4\\), className = \"Node\"\\(PCSTR8, len=4\\), $"))
        .match(lines.first()).hasMatch()) << lines.first().toStdString();
}

TEST_F(ObjectDependencyTest, NullOutputIsReportedAndAnswersFalse)
{
    Node x(QStringLiteral("X"), &m_journal);
    Node s(QStringLiteral("S"), &m_journal);
    x.connectDataIn(&s);
    EXPECT_FALSE(x.getTheOnlyDataIn(nullptr, false));
    const QStringList lines = takeReportLines();
    ASSERT_EQ(lines.size(), 1);
    EXPECT_TRUE(QRegularExpression(QStringLiteral(
        "^MSGCTR_ENG_ObjectDependency\\.cpp\\(\\d+\\)\\[getTheOnlyDataIn\\]\\d+: assert fail at \"dataIn\"; "
        "objectID\\(\\) = \\d+/0x[0-9A-F]{8}\\(U32,4\\), $"))
        .match(lines.first()).hasMatch()) << lines.first().toStdString();
}

TEST_F(ObjectDependencyTest, SettingTheFlagPropagatesDownstreamExceptTheExceptedObject)
{
    Node c(QStringLiteral("C"), &m_journal);
    Node b(QStringLiteral("B"), &m_journal);
    Node a(QStringLiteral("A"), &m_journal);
    Node other(QStringLiteral("O"), &m_journal);
    b.connectDataIn(&c);
    a.connectDataIn(&b);
    other.connectDataIn(&c);

    c.setFlagNeedReloadData(&b);
    EXPECT_EQ(m_journal, (QStringList{"C set", "O set"}));
    EXPECT_TRUE(c.needReloadData());
    EXPECT_FALSE(b.needReloadData());
    EXPECT_FALSE(a.needReloadData());
    EXPECT_TRUE(other.needReloadData());

    m_journal.clear();
    c.setFlagNeedReloadData(nullptr);
    EXPECT_EQ(m_journal, (QStringList{"C set", "B set", "A set", "O set"}));
    EXPECT_TRUE(a.needReloadData());
}

TEST_F(ObjectDependencyTest, ReloadOnlyHappensWhenFlaggedAndThenFlagsEveryDataOut)
{
    Node c(QStringLiteral("C"), &m_journal);
    Node b(QStringLiteral("B"), &m_journal);
    b.connectDataIn(&c);
    c.reloadMyDataPerFlagThenClearMyFlag();
    EXPECT_TRUE(m_journal.isEmpty());

    c.setMyFlagNeedReloadData();
    c.reloadMyDataPerFlagThenClearMyFlag();
    EXPECT_EQ(m_journal, (QStringList{"C set", "C reload", "C clear", "B set"}));
    EXPECT_FALSE(c.needReloadData());
    EXPECT_TRUE(b.needReloadData());
}

TEST_F(ObjectDependencyTest, ReloadDataOnTheSourceOfAChainReloadsSourceFirstEachOnce)
{
    Node c(QStringLiteral("C"), &m_journal);
    Node b(QStringLiteral("B"), &m_journal);
    Node a(QStringLiteral("A"), &m_journal);
    b.connectDataIn(&c);
    a.connectDataIn(&b);
    c.reloadData(nullptr);
    EXPECT_EQ(reloads(), (QStringList{"C reload", "B reload", "A reload"}));
    EXPECT_FALSE(a.needReloadData());
    EXPECT_FALSE(b.needReloadData());
    EXPECT_FALSE(c.needReloadData());
}

TEST_F(ObjectDependencyTest, ExceptingTheMiddleOfAChainReloadsOnlyTheSourceAndLeavesTheRestStale)
{
    Node c(QStringLiteral("C"), &m_journal);
    Node b(QStringLiteral("B"), &m_journal);
    Node a(QStringLiteral("A"), &m_journal);
    b.connectDataIn(&c);
    a.connectDataIn(&b);
    c.reloadData(&b);
    EXPECT_EQ(reloads(), (QStringList{"C reload"}));
    EXPECT_FALSE(c.needReloadData());
    EXPECT_TRUE(b.needReloadData());
    EXPECT_TRUE(a.needReloadData());
}

TEST_F(ObjectDependencyTest, ReloadingADependentBringsItsStaleSourcesUpToDateFirst)
{
    Node c(QStringLiteral("C"), &m_journal);
    Node b(QStringLiteral("B"), &m_journal);
    Node a(QStringLiteral("A"), &m_journal);
    Node sibling(QStringLiteral("S"), &m_journal);
    b.connectDataIn(&c);
    a.connectDataIn(&b);
    sibling.connectDataIn(&c);
    c.setFlagNeedReloadData(nullptr);
    m_journal.clear();

    // Upward first, then B itself, then B's dependents; C's other dependent is flagged but not reloaded.
    b.reloadDataPerFlag(nullptr);
    EXPECT_EQ(reloads(), (QStringList{"C reload", "B reload", "A reload"}));
    EXPECT_TRUE(sibling.needReloadData());

    m_journal.clear();
    a.connectDataIn(&sibling);
    a.reloadDataPerFlagWithoutMakingItsDataOutsReloadDataPerFlag(nullptr);
    EXPECT_EQ(reloads(), (QStringList{"S reload", "A reload"}));
}

TEST_F(ObjectDependencyTest, DiamondReloadsTheSharedDependentPerFlag)
{
    Node top(QStringLiteral("T"), &m_journal);
    Node left(QStringLiteral("L"), &m_journal);
    Node right(QStringLiteral("R"), &m_journal);
    Node bottom(QStringLiteral("D"), &m_journal);
    left.connectDataIn(&top);
    right.connectDataIn(&top);
    bottom.connectDataIn(&left);
    bottom.connectDataIn(&right);
    top.reloadData(nullptr);
    // D brings its other source R up to date before its own reload, so it is reloaded once.
    EXPECT_EQ(reloads(), (QStringList{"T reload", "L reload", "R reload", "D reload"}));
    EXPECT_FALSE(bottom.needReloadData());
}

TEST_F(ObjectDependencyTest, MakeAllDataOutsReloadDataSkipsTheExceptedObject)
{
    Node c(QStringLiteral("C"), &m_journal);
    Node b1(QStringLiteral("B1"), &m_journal);
    Node b2(QStringLiteral("B2"), &m_journal);
    b1.connectDataIn(&c);
    b2.connectDataIn(&c);
    c.makeAllDataOuts_reloadData(&b1);
    EXPECT_EQ(reloads(), (QStringList{"B2 reload"}));
    EXPECT_FALSE(c.needReloadData());

    m_journal.clear();
    c.makeAllDataOuts_reloadData(nullptr);
    EXPECT_EQ(reloads(), (QStringList{"B1 reload", "B2 reload"}));
}

TEST_F(ObjectDependencyTest, DoSthWalksNeighboursInOrderSkippingTheExceptedOne)
{
    Node x(QStringLiteral("X"), &m_journal);
    Node s1(QStringLiteral("S1"), &m_journal);
    Node s2(QStringLiteral("S2"), &m_journal);
    Node s3(QStringLiteral("S3"), &m_journal);
    Node d1(QStringLiteral("D1"), &m_journal);
    Node d2(QStringLiteral("D2"), &m_journal);
    x.connectDataIn(&s1);
    x.connectDataIn(&s2);
    x.connectDataIn(&s3);
    d1.connectDataIn(&x);
    d2.connectDataIn(&x);

    const auto touch = static_cast<MSGCTR_ENG_ObjectDependency::PFN_DO_STH>(&Node::touch);
    const auto touchWith = static_cast<MSGCTR_ENG_ObjectDependency::PFN_DO_STH_POBJ>(&Node::touchWith);
    x.makeAllDataInsDoSth(&s2, touch);
    x.makeAllDataOutsDoSth(nullptr, touch);
    x.makeAllDataInsDoSthPobj(&s1, touchWith);
    x.makeAllDataOutsDoSthPobj(&d2, touchWith);
    EXPECT_EQ(m_journal, (QStringList{"S1 touch", "S3 touch", "D1 touch", "D2 touch", "S2 touch S1",
                                      "S3 touch S1", "D1 touch D2"}));

    m_journal.clear();
    ObjList list = listOf({&d2, &s3, &d1});
    MSGCTR_ENG_ObjectDependency::makeAllObjDpdDoSth(list, &s3, touch);
    MSGCTR_ENG_ObjectDependency::makeAllObjDpdDoSth(list, nullptr, touchWith);
    EXPECT_EQ(m_journal, (QStringList{"D2 touch", "D1 touch", "D2 touch null", "S3 touch null", "D1 touch null"}));
}

TEST_F(ObjectDependencyTest, DeletingTheOnlySourceDeletesAnAutoDeleteDependent)
{
    auto* c = new Node(QStringLiteral("C"), &m_journal);
    QPointer<Node> b = new Node(QStringLiteral("B"), &m_journal, true);
    QPointer<Node> a = new Node(QStringLiteral("A"), &m_journal, true);
    b->connectDataIn(c);
    a->connectDataIn(b);
    delete c;
    EXPECT_TRUE(b.isNull());
    EXPECT_TRUE(a.isNull());
}

TEST_F(ObjectDependencyTest, DependentWithOneOtherSourceIsDeletedWithTheSource)
{
    auto* c = new Node(QStringLiteral("C"), &m_journal);
    Node d(QStringLiteral("D"), &m_journal);
    QPointer<Node> b = new Node(QStringLiteral("B"), &m_journal, true);
    b->connectDataIn(c);
    b->connectDataIn(&d);
    delete c;
    EXPECT_TRUE(b.isNull());
    ObjList list;
    EXPECT_EQ(d.getDataOuts(list), 0);
}

TEST_F(ObjectDependencyTest, DependentWithTwoOtherSourcesSurvivesUnlinkedFromTheDeletedOne)
{
    auto* c = new Node(QStringLiteral("C"), &m_journal);
    Node d(QStringLiteral("D"), &m_journal);
    Node e(QStringLiteral("E"), &m_journal);
    QPointer<Node> b = new Node(QStringLiteral("B"), &m_journal, true);
    b->connectDataIn(c);
    b->connectDataIn(&d);
    b->connectDataIn(&e);
    delete c;
    ASSERT_FALSE(b.isNull());
    ObjList list;
    EXPECT_EQ(b->getDataIns(list), 2);
    EXPECT_EQ(list, listOf({&d, &e}));
    delete b.data();
}

TEST_F(ObjectDependencyTest, DependentWithoutAutoDeleteSurvivesAndIsUnlinked)
{
    auto* c = new Node(QStringLiteral("C"), &m_journal);
    Node b(QStringLiteral("B"), &m_journal, false);
    Node other(QStringLiteral("O"), &m_journal, true);
    b.connectDataIn(c);
    other.connectDataIn(&b);
    delete c;
    ObjList list;
    EXPECT_EQ(b.getDataIns(list), 0);
    EXPECT_EQ(b.getDataOuts(list), 1);
}

TEST_F(ObjectDependencyTest, DeletingADependentUnlinksItFromItsSource)
{
    Node c(QStringLiteral("C"), &m_journal);
    auto* b = new Node(QStringLiteral("B"), &m_journal, true);
    b->connectDataIn(&c);
    delete b;
    ObjList list;
    EXPECT_EQ(c.getDataOuts(list), 0);
}

TEST_F(ObjectDependencyTest, NullArgumentsAreReportedAndIgnored)
{
    HookCounter x;
    x.connectDataIn(nullptr);
    x.disconnectDataIn(nullptr);
    ObjList list;
    EXPECT_EQ(x.getDataIns(list), 0);
    x.makeAllDataInsDoSth(nullptr, nullptr);
    const QStringList lines = takeReportLines();
    ASSERT_EQ(lines.size(), 3);
    const QString id = QRegularExpression::escape(
        QString::asprintf("objectID() = %u/0x%08X(U32,4), ", x.objectID(), x.objectID())) + QStringLiteral("$");
    EXPECT_TRUE(QRegularExpression(QStringLiteral("^MSGCTR_ENG_ObjectDependency\\.cpp\\(\\d+\\)\\[connectDataIn\\]\\d+: "
                                                  "assert fail at \"dataIn\"; ") + id)
                    .match(lines.at(0)).hasMatch()) << lines.at(0).toStdString();
    EXPECT_TRUE(QRegularExpression(QStringLiteral("^MSGCTR_ENG_ObjectDependency\\.cpp\\(\\d+\\)\\[disconnectDataIn\\]\\d+: "
                                                  "assert fail at \"dataIn\"; ") + id)
                    .match(lines.at(1)).hasMatch()) << lines.at(1).toStdString();
    EXPECT_TRUE(QRegularExpression(QStringLiteral("^MSGCTR_ENG_ObjectDependency\\.cpp\\(\\d+\\)\\[makeAllObjDpdDoSth\\]\\d+: "
                                                  "assert fail at \"doSth\"; static_cast<int>\\(objs\\.size\\(\\)\\) = "
                                                  "0\\(S32,4\\), $"))
                    .match(lines.at(2)).hasMatch()) << lines.at(2).toStdString();
}

} // namespace

#include "MSGCTR_ENG_ObjectDependency_test.moc"
