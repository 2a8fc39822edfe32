// msgctr dm: the DM tree as an outline, and leaves read, set and deleted across runs.
#include "HostRootTest.h"
#include "MsgctrRun.h"

namespace {

class MsgctrDmTest : public HostRootTest {
protected:
    MsgctrResult run(const QStringList& args) { return runMsgctr(root(), QStringList{QStringLiteral("dm")} + args); }
};

TEST_F(MsgctrDmTest, TreeShowsTheProvisionedMessageNodes)
{
    const MsgctrResult r = run({QStringLiteral("tree"), QStringLiteral("./DevDetail/Ext/Conf/Msg")});
    EXPECT_EQ(r.exitCode, 0) << qPrintable(r.err);
    EXPECT_EQ(r.out, QStringLiteral("./DevDetail/Ext/Conf/Msg (node)\n"
                                    "  SMS (node)\n"
                                    "    Default (string) = \"\"\n"
                                    "  Profiles (node)\n"
                                    "    SMS (node)\n"
                                    "    MMS (node)\n"
                                    "  MMS (node)\n"
                                    "    Default (string) = \"\"\n"));
}

TEST_F(MsgctrDmTest, SetCreatesTypedLeavesThatTheNextRunReads)
{
    EXPECT_EQ(run({QStringLiteral("set"), QStringLiteral("./Dev/N"), QStringLiteral("42"), QStringLiteral("--type"),
                   QStringLiteral("int")})
                  .exitCode,
              0);
    EXPECT_EQ(run({QStringLiteral("set"), QStringLiteral("./Dev/B"), QStringLiteral("true"), QStringLiteral("--type"),
                   QStringLiteral("bool")})
                  .exitCode,
              0);
    EXPECT_EQ(run({QStringLiteral("set"), QStringLiteral("./Dev/X"), QStringLiteral("00ff"), QStringLiteral("--type"),
                   QStringLiteral("binary")})
                  .exitCode,
              0);
    EXPECT_EQ(run({QStringLiteral("set"), QStringLiteral("./Dev/S"), QStringLiteral("h\u00e9llo")}).exitCode, 0);
    const MsgctrResult tree = run({QStringLiteral("tree"), QStringLiteral("./Dev")});
    EXPECT_EQ(tree.out, QStringLiteral("./Dev (node)\n"
                                       "  N (int) = 42\n"
                                       "  B (bool) = true\n"
                                       "  X (binary) = 00ff\n"
                                       "  S (string) = \"h\u00e9llo\"\n"));
    const MsgctrResult get = run({QStringLiteral("get"), QStringLiteral("./Dev/S")});
    EXPECT_EQ(get.exitCode, 0);
    EXPECT_EQ(get.out, QStringLiteral("h\u00e9llo\n"));
}

TEST_F(MsgctrDmTest, DeleteRemovesTheNode)
{
    ASSERT_EQ(run({QStringLiteral("set"), QStringLiteral("./Dev/N"), QStringLiteral("1")}).exitCode, 0);
    EXPECT_EQ(run({QStringLiteral("delete"), QStringLiteral("./Dev")}).exitCode, 0);
    const MsgctrResult r = run({QStringLiteral("get"), QStringLiteral("./Dev/N")});
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_EQ(r.err, QStringLiteral("msgctr: cannot read ./Dev/N: no such node (DM result 404)\n"));
}

TEST_F(MsgctrDmTest, ChildUnderALeafIsNotAllowed)
{
    const MsgctrResult r = run({QStringLiteral("set"), QStringLiteral("./DevDetail/Ext/Conf/Msg/MMS/Default/x"),
                                QStringLiteral("1")});
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_EQ(r.err, QStringLiteral("msgctr: cannot set ./DevDetail/Ext/Conf/Msg/MMS/Default/x: not allowed (DM result 405)\n"));
}

TEST_F(MsgctrDmTest, BadValuesAndPathsAreUsageErrors)
{
    MsgctrResult r = run({QStringLiteral("set"), QStringLiteral("./A"), QStringLiteral("x"), QStringLiteral("--type"),
                          QStringLiteral("int")});
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_EQ(r.err, QStringLiteral("msgctr: 'x' is not a int value\n"));
    r = run({QStringLiteral("get"), QStringLiteral("DevDetail")});
    EXPECT_EQ(r.exitCode, 2);
    r = run({QStringLiteral("delete"), QStringLiteral(".")});
    EXPECT_EQ(r.exitCode, 2);
}

} // namespace
