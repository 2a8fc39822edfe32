// msgctr profile mms: MMS profiles listed, shown, added, updated, removed and the default kept, across runs.
#include "HostRootTest.h"
#include "MsgctrRun.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

namespace {

class MsgctrProfileTest : public HostRootTest {
protected:
    MsgctrResult run(const QStringList& args)
    {
        return runMsgctr(root(), QStringList{QStringLiteral("profile"), QStringLiteral("mms")} + args);
    }

    QString add(const QStringList& args)
    {
        const MsgctrResult r = run(QStringList{QStringLiteral("add")} + args);
        EXPECT_EQ(r.exitCode, 0) << qPrintable(r.err);
        const QRegularExpressionMatch id = QRegularExpression(QStringLiteral("^id: (\\{[0-9a-f-]{36}\\})\n")).match(r.out);
        EXPECT_TRUE(id.hasMatch()) << qPrintable(r.out);
        return id.captured(1);
    }
};

TEST_F(MsgctrProfileTest, EmptyListSaysSo)
{
    const MsgctrResult r = run({QStringLiteral("list")});
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.out, QStringLiteral("profiles: (none)\n"));
}

TEST_F(MsgctrProfileTest, ProfilesAddedInSeparateRunsListSortedByName)
{
    const QString b = add({QStringLiteral("--name"), QStringLiteral("b")});
    const QString upper = add({QStringLiteral("--name"), QStringLiteral("A"), QStringLiteral("--readonly")});
    const QString lower = add({QStringLiteral("--name"), QStringLiteral("a")});
    const MsgctrResult r = run({QStringLiteral("list")});
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.out, QStringLiteral("profiles[0].default: false\nprofiles[0].id: %1\nprofiles[0].name: A\nprofiles[0].readonly: true\n"
                                    "profiles[1].default: false\nprofiles[1].id: %2\nprofiles[1].name: a\nprofiles[1].readonly: false\n"
                                    "profiles[2].default: false\nprofiles[2].id: %3\nprofiles[2].name: b\nprofiles[2].readonly: false\n")
                         .arg(upper, lower, b));
    const MsgctrResult json = run({QStringLiteral("list"), QStringLiteral("--json")});
    const QJsonArray profiles = QJsonDocument::fromJson(json.out.toUtf8()).object().value(QStringLiteral("profiles")).toArray();
    ASSERT_EQ(profiles.size(), 3);
    EXPECT_EQ(profiles.at(0).toObject(),
              (QJsonObject{{QStringLiteral("default"), false}, {QStringLiteral("id"), upper},
                           {QStringLiteral("name"), QStringLiteral("A")}, {QStringLiteral("readonly"), true}}));
}

TEST_F(MsgctrProfileTest, ShowAndUpdate)
{
    const QString id = add({QStringLiteral("--name"), QStringLiteral("Op"), QStringLiteral("--mmsc"),
                            QStringLiteral("http://mmsc"), QStringLiteral("--int-prof"), QStringLiteral("apn"),
                            QStringLiteral("--int-prof2"), QStringLiteral("apn2"), QStringLiteral("--size-limit"),
                            QStringLiteral("300")});
    EXPECT_EQ(run({QStringLiteral("update"), id, QStringLiteral("--size-limit"), QStringLiteral("600"),
                   QStringLiteral("--readonly")})
                  .exitCode,
              0);
    const MsgctrResult r = run({QStringLiteral("show"), id});
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.out, QStringLiteral("id: %1\nname: Op\nmmsc: http://mmsc\nint_prof: apn\nint_prof2: apn2\n"
                                    "size_limit: 600\nreadonly: true\ndefault: false\n")
                         .arg(id));
    const MsgctrResult json = run({QStringLiteral("show"), id, QStringLiteral("--json")});
    EXPECT_EQ(QJsonDocument::fromJson(json.out.toUtf8()).object(),
              (QJsonObject{{QStringLiteral("id"), id}, {QStringLiteral("name"), QStringLiteral("Op")},
                           {QStringLiteral("mmsc"), QStringLiteral("http://mmsc")}, {QStringLiteral("int_prof"), QStringLiteral("apn")},
                           {QStringLiteral("int_prof2"), QStringLiteral("apn2")}, {QStringLiteral("size_limit"), 600},
                           {QStringLiteral("readonly"), true}, {QStringLiteral("default"), false}}));
}

TEST_F(MsgctrProfileTest, DefaultIsSetAndRepairedAfterRemoval)
{
    const QString zed = add({QStringLiteral("--name"), QStringLiteral("Zed")});
    const QString first = add({QStringLiteral("--name"), QStringLiteral("Alpha")});
    MsgctrResult r = run({QStringLiteral("default"), zed});
    EXPECT_EQ(r.out, QStringLiteral("default: ") + zed + QStringLiteral("\n"));
    EXPECT_EQ(run({QStringLiteral("remove"), zed}).exitCode, 0);
    r = run({QStringLiteral("default")});
    EXPECT_EQ(r.out, QStringLiteral("default: ") + zed + QStringLiteral("\n"));
    r = run({QStringLiteral("default"), QStringLiteral("--safe")});
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.out, QStringLiteral("default: ") + first + QStringLiteral("\n"));
    r = run({QStringLiteral("list")});
    EXPECT_EQ(r.out, QStringLiteral("profiles[0].default: true\nprofiles[0].id: %1\nprofiles[0].name: Alpha\n"
                                    "profiles[0].readonly: false\n").arg(first));
}

TEST_F(MsgctrProfileTest, MissingProfileFails)
{
    const MsgctrResult r = run({QStringLiteral("show"), QStringLiteral("{missing}")});
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_EQ(r.err, QStringLiteral("msgctr: MSGCTR_ENG_MMSProfileApi::getProfile failed: error 10081 (unknown DM tree result)\n"));
}

TEST_F(MsgctrProfileTest, IdNamingAnotherNodeIsRefusedWithTheLibrarysReport)
{
    const MsgctrResult r = run({QStringLiteral("remove"), QStringLiteral("a/b")});
    EXPECT_EQ(r.exitCode, 1);
    const QStringList lines = r.err.split(QLatin1Char('\n'));
    ASSERT_EQ(lines.size(), 3) << qPrintable(r.err);
    EXPECT_EQ(lines[0], QStringLiteral("msgctr: MSGCTR_ENG_MMSProfileApi::removeProfile failed: error 10084 (invalid argument)"));
    EXPECT_TRUE(lines[1].contains(QStringLiteral("assert fail at \"isProfileNodeName(id)\"; id = \"a/b\"")))
        << qPrintable(lines[1]);
}

TEST_F(MsgctrProfileTest, AddNeedsAName)
{
    const MsgctrResult r = run({QStringLiteral("add"), QStringLiteral("--mmsc"), QStringLiteral("x")});
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_EQ(r.err, QStringLiteral("msgctr: profile mms add needs --name\n"));
}

} // namespace
