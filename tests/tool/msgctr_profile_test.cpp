// msgctr profile mms: MMS profiles listed, shown, added, updated, removed and the default kept, across runs.
#include "HostRootTest.h"
#include "MsgctrRun.h"

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
        EXPECT_TRUE(QRegularExpression(QStringLiteral("^\\{[0-9a-f-]{36}\\}\n$")).match(r.out).hasMatch())
            << qPrintable(r.out);
        return r.out.trimmed();
    }
};

TEST_F(MsgctrProfileTest, EmptyListSaysSo)
{
    const MsgctrResult r = run({QStringLiteral("list")});
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.out, QStringLiteral("(no MMS profiles)\n"));
}

TEST_F(MsgctrProfileTest, ProfilesAddedInSeparateRunsListSortedByName)
{
    const QString b = add({QStringLiteral("--name"), QStringLiteral("b")});
    const QString upper = add({QStringLiteral("--name"), QStringLiteral("A"), QStringLiteral("--readonly")});
    const QString lower = add({QStringLiteral("--name"), QStringLiteral("a")});
    const MsgctrResult r = run({QStringLiteral("list")});
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.out, QStringLiteral("  %1  A  [read-only]\n  %2  a\n  %3  b\n").arg(upper, lower, b));
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
    EXPECT_EQ(r.out, QStringLiteral("id: %1\nname: Op\nmmsc: http://mmsc\nint-prof: apn\nint-prof2: apn2\n"
                                    "size-limit: 600\nreadonly: yes\ndefault: no\n")
                         .arg(id));
}

TEST_F(MsgctrProfileTest, DefaultIsSetAndRepairedAfterRemoval)
{
    const QString zed = add({QStringLiteral("--name"), QStringLiteral("Zed")});
    const QString first = add({QStringLiteral("--name"), QStringLiteral("Alpha")});
    MsgctrResult r = run({QStringLiteral("default"), zed});
    EXPECT_EQ(r.out, zed + QStringLiteral("\n"));
    EXPECT_EQ(run({QStringLiteral("remove"), zed}).exitCode, 0);
    r = run({QStringLiteral("default")});
    EXPECT_EQ(r.out, zed + QStringLiteral("\n"));
    r = run({QStringLiteral("default"), QStringLiteral("--safe")});
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.out, first + QStringLiteral("\n"));
    r = run({QStringLiteral("list")});
    EXPECT_EQ(r.out, QStringLiteral("* %1  Alpha\n").arg(first));
}

TEST_F(MsgctrProfileTest, MissingProfileFails)
{
    const MsgctrResult r = run({QStringLiteral("show"), QStringLiteral("{missing}")});
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_EQ(r.err, QStringLiteral("msgctr: the MMS profile {missing} cannot be read: error 10081\n"));
}

TEST_F(MsgctrProfileTest, IdNamingAnotherNodeIsRefusedWithTheLibrarysReport)
{
    const MsgctrResult r = run({QStringLiteral("remove"), QStringLiteral("a/b")});
    EXPECT_EQ(r.exitCode, 1);
    const QStringList lines = r.err.split(QLatin1Char('\n'));
    ASSERT_EQ(lines.size(), 3) << qPrintable(r.err);
    EXPECT_TRUE(lines[0].contains(QStringLiteral("assert fail at \"isProfileNodeName(id)\"; id = \"a/b\"")))
        << qPrintable(lines[0]);
    EXPECT_EQ(lines[1], QStringLiteral("msgctr: the MMS profile a/b was not removed: error 10084"));
}

TEST_F(MsgctrProfileTest, AddNeedsAName)
{
    const MsgctrResult r = run({QStringLiteral("add"), QStringLiteral("--mmsc"), QStringLiteral("x")});
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_EQ(r.err, QStringLiteral("msgctr: profile mms add needs --name\n"));
}

} // namespace
