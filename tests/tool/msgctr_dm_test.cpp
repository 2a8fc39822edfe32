// msgctr dm: the DM tree as an outline, and leaves read, set and deleted across runs.
#include "HostRootTest.h"
#include "MsgctrRun.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

class MsgctrDmTest : public HostRootTest {
protected:
    MsgctrResult run(const QStringList& args) { return runMsgctr(root(), QStringList{QStringLiteral("dm")} + args); }
};

TEST_F(MsgctrDmTest, TreeShowsTheProvisionedMessageNodes)
{
    const MsgctrResult r = run({QStringLiteral("tree"), QStringLiteral("./DevDetail/Ext/Conf/Msg")});
    EXPECT_EQ(r.exitCode, 0) << qPrintable(r.err);
    EXPECT_EQ(r.out, QStringLiteral("nodes[0].path: ./DevDetail/Ext/Conf/Msg\nnodes[0].type: node\n"
                                    "nodes[1].path: ./DevDetail/Ext/Conf/Msg/SMS\nnodes[1].type: node\n"
                                    "nodes[2].path: ./DevDetail/Ext/Conf/Msg/SMS/Default\nnodes[2].type: string\nnodes[2].value: \n"
                                    "nodes[3].path: ./DevDetail/Ext/Conf/Msg/Profiles\nnodes[3].type: node\n"
                                    "nodes[4].path: ./DevDetail/Ext/Conf/Msg/Profiles/SMS\nnodes[4].type: node\n"
                                    "nodes[5].path: ./DevDetail/Ext/Conf/Msg/Profiles/MMS\nnodes[5].type: node\n"
                                    "nodes[6].path: ./DevDetail/Ext/Conf/Msg/MMS\nnodes[6].type: node\n"
                                    "nodes[7].path: ./DevDetail/Ext/Conf/Msg/MMS/Default\nnodes[7].type: string\nnodes[7].value: \n"));
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
    const MsgctrResult tree = run({QStringLiteral("tree"), QStringLiteral("./Dev"), QStringLiteral("--json")});
    const auto leaf = [](const char* path, const char* type, const QJsonValue& value) {
        return QJsonObject{{QStringLiteral("path"), QLatin1String(path)}, {QStringLiteral("type"), QLatin1String(type)},
                           {QStringLiteral("value"), value}};
    };
    const QJsonArray nodes{QJsonObject{{QStringLiteral("path"), QStringLiteral("./Dev")}, {QStringLiteral("type"), QStringLiteral("node")}},
                           leaf("./Dev/N", "int", 42), leaf("./Dev/B", "bool", true),
                           leaf("./Dev/X", "binary", QStringLiteral("00ff")),
                           leaf("./Dev/S", "string", QStringLiteral("h\u00e9llo"))};
    EXPECT_EQ(QJsonDocument::fromJson(tree.out.toUtf8()).object(), (QJsonObject{{QStringLiteral("nodes"), nodes}}));
    const MsgctrResult get = run({QStringLiteral("get"), QStringLiteral("./Dev/S")});
    EXPECT_EQ(get.exitCode, 0);
    EXPECT_EQ(get.out, QStringLiteral("path: ./Dev/S\ntype: string\nvalue: h\u00e9llo\n"));
    const MsgctrResult json = run({QStringLiteral("get"), QStringLiteral("./Dev/N"), QStringLiteral("--json")});
    EXPECT_EQ(QJsonDocument::fromJson(json.out.toUtf8()).object(), leaf("./Dev/N", "int", 42));
}

TEST_F(MsgctrDmTest, DeleteRemovesTheNode)
{
    ASSERT_EQ(run({QStringLiteral("set"), QStringLiteral("./Dev/N"), QStringLiteral("1")}).exitCode, 0);
    EXPECT_EQ(run({QStringLiteral("delete"), QStringLiteral("./Dev")}).exitCode, 0);
    const MsgctrResult r = run({QStringLiteral("get"), QStringLiteral("./Dev/N")});
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_EQ(r.err, QStringLiteral("msgctr: reading ./Dev/N failed: result 404 (no such node)\n"));
}

TEST_F(MsgctrDmTest, ChildUnderALeafIsNotAllowed)
{
    const MsgctrResult r = run({QStringLiteral("set"), QStringLiteral("./DevDetail/Ext/Conf/Msg/MMS/Default/x"),
                                QStringLiteral("1")});
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_EQ(r.err, QStringLiteral("msgctr: setting ./DevDetail/Ext/Conf/Msg/MMS/Default/x failed: result 405 (not allowed)\n"));
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
