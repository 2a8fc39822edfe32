#include "HostRootTest.h"
#include "MsgctrRun.h"

#include "ZorHostControl.h"

#include <QFile>
#include <QFileInfo>

namespace {

class MsgctrTest : public HostRootTest {};

TEST_F(MsgctrTest, HelpListsTheFamilies)
{
    const MsgctrResult r = runMsgctr(root(), {QStringLiteral("--help")});
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_TRUE(r.out.startsWith(QStringLiteral("usage: msgctr [--root DIR] <family> <verb> [args...]\n")));
    EXPECT_TRUE(r.out.contains(QStringLiteral("\n  platform   the host platform the library runs on\n")));
    EXPECT_EQ(r.err, QString());
}

TEST_F(MsgctrTest, VersionIsTheProjectVersion)
{
    const MsgctrResult r = runMsgctr(root(), {QStringLiteral("--version")});
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.out, QStringLiteral("msgctr 1.0.0\n"));
}

TEST_F(MsgctrTest, NoArgumentsIsBadUsage)
{
    const MsgctrResult r = runMsgctr(QString(), {});
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_EQ(r.err, QString());
    EXPECT_EQ(r.out,
              QStringLiteral("usage: msgctr [--root DIR] <family> <verb> [args...]\n"
                             "       msgctr --help | --version | <family> --help | <family> <verb> --help\n"
                             "\n"
                             "  --root DIR   keep the host platform's files under DIR (default: $ZORHOST_ROOT,\n"
                             "               else $XDG_DATA_HOME/zorhost, else ~/.local/share/zorhost)\n"
                             "\n"
                             "families:\n"
                             "  addr       recipient lists: normalising, numbers and e-mail addresses, contact names\n"
                             "  platform   the host platform the library runs on\n"
                             "  settings   the messaging settings in the configuration store\n"
                             "  tapi       the simulated modem and SIM card (telephony)\n"
                             "  text       text utilities: hex, white space, ...\n"));
}

TEST_F(MsgctrTest, UnknownFamilyIsBadUsage)
{
    const MsgctrResult r = runMsgctr(root(), {QStringLiteral("nosuch"), QStringLiteral("verb")});
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_EQ(r.err, QStringLiteral("msgctr: unknown family 'nosuch' (see msgctr --help)\n"));
    EXPECT_EQ(r.out, QString());
}

TEST_F(MsgctrTest, UnknownVerbIsBadUsage)
{
    const MsgctrResult r = runMsgctr(root(), {QStringLiteral("platform"), QStringLiteral("nosuch")});
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_EQ(r.err, QStringLiteral("msgctr: unknown verb 'platform nosuch' (see msgctr platform --help)\n"));
}

TEST_F(MsgctrTest, UnknownOptionIsBadUsage)
{
    const MsgctrResult r = runMsgctr(root(), {QStringLiteral("--frobnicate")});
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_EQ(r.err, QStringLiteral("msgctr: unknown option '--frobnicate' (see msgctr --help)\n"));
}

TEST_F(MsgctrTest, RootWithoutAFolderIsBadUsage)
{
    const MsgctrResult r = runMsgctr(QString(), {QStringLiteral("--root")});
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_EQ(r.err, QStringLiteral("msgctr: --root needs a folder\n"));
}

TEST_F(MsgctrTest, FamilyAndVerbHelp)
{
    MsgctrResult r = runMsgctr(root(), {QStringLiteral("platform"), QStringLiteral("--help")});
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_TRUE(r.out.startsWith(QStringLiteral("usage: msgctr platform <verb> [args...]\n")));
    EXPECT_TRUE(r.out.contains(QStringLiteral("  reset ")));
    r = runMsgctr(root(), {QStringLiteral("platform"), QStringLiteral("root"), QStringLiteral("--help")});
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.out, QStringLiteral("usage: msgctr platform root\nprint the folder the host platform keeps its files in\n"));
}

TEST_F(MsgctrTest, PlatformRootPrintsTheRootGiven)
{
    const QString dir = root() + QStringLiteral("/tool-root");
    const MsgctrResult r = runMsgctr(dir, {QStringLiteral("platform"), QStringLiteral("root")});
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.out, dir + QLatin1Char('\n'));
    EXPECT_TRUE(QFileInfo(dir).isDir());
}

TEST_F(MsgctrTest, PlatformRootTakesNoArguments)
{
    const MsgctrResult r = runMsgctr(root(), {QStringLiteral("platform"), QStringLiteral("root"), QStringLiteral("x")});
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_EQ(r.err, QStringLiteral("msgctr: platform root takes no arguments\n"));
}

TEST_F(MsgctrTest, PlatformResetRemovesThePlatformState)
{
    QFile device(ZorHost::devicePath(QStringLiteral("/tmp/message_log.data")));
    ASSERT_TRUE(device.open(QIODevice::WriteOnly));
    device.write("line\n");
    device.close();
    const MsgctrResult r = runMsgctr(root(), {QStringLiteral("platform"), QStringLiteral("reset")});
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.out, QStringLiteral("host platform at %1 is back to its factory state\n").arg(root()));
    EXPECT_FALSE(QFileInfo::exists(device.fileName()));
}

} // namespace
