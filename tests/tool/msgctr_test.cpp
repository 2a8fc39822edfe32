// The command line of msgctr: one grammar for every verb, help, version, the host root, output and exit status.
#include "HostRootTest.h"
#include "MsgctrRun.h"

#include "ZorHostControl.h"
#include "ZorHostTapiControl.h"

#include <QFile>
#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QProcessEnvironment>

namespace {

class MsgctrTest : public HostRootTest {
protected:
    MsgctrResult run(const QStringList& args) { return runMsgctr(root(), args); }
};

TEST_F(MsgctrTest, HelpListsTheFamilies)
{
    const MsgctrResult r = run(words({"--help"}));
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_TRUE(r.out.startsWith(QStringLiteral("usage: msgctr [--root DIR] [--json] <family> <verb> [args...]\n")));
    EXPECT_TRUE(r.out.contains(QStringLiteral("\n  platform   the host platform the library runs on\n")));
    EXPECT_EQ(r.err, QString());
}

TEST_F(MsgctrTest, VersionNamesTheToolAndTheLibraryAtEveryLevel)
{
    for (const QStringList& args : {words({"--version"}), words({"tapi", "--version"}), words({"tapi", "smsc", "--version"})}) {
        const MsgctrResult r = run(args);
        EXPECT_EQ(r.exitCode, 0);
        EXPECT_EQ(r.out, QStringLiteral("msgctr 1.0.0\nlibzormsgctrutil 1.0.0\n"));
    }
}

TEST_F(MsgctrTest, NoArgumentsIsBadUsageOnStandardError)
{
    const MsgctrResult r = runMsgctr(QString(), {});
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_EQ(r.out, QString());
    EXPECT_TRUE(r.err.startsWith(QStringLiteral("usage: msgctr [--root DIR] [--json] <family> <verb> [args...]\n")));
}

TEST_F(MsgctrTest, FamilyWithoutVerbIsBadUsageOnStandardError)
{
    const MsgctrResult r = run(words({"tapi"}));
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_EQ(r.out, QString());
    EXPECT_TRUE(r.err.startsWith(QStringLiteral("usage: msgctr tapi <verb> [args...]\n")));
}

TEST_F(MsgctrTest, UnknownFamilyIsBadUsage)
{
    const MsgctrResult r = run(words({"nosuch", "verb"}));
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_EQ(r.err, QStringLiteral("msgctr: unknown family 'nosuch' (see msgctr --help)\n"));
    EXPECT_EQ(r.out, QString());
}

TEST_F(MsgctrTest, MistypedFamilyAndVerbGetAHint)
{
    MsgctrResult r = run(words({"tpai", "show"}));
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_EQ(r.err, QStringLiteral("msgctr: unknown family 'tpai' (did you mean 'tapi'?) (see msgctr --help)\n"));
    r = run(words({"platform", "rest"}));
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_EQ(r.err, QStringLiteral("msgctr: unknown verb 'platform rest' (did you mean 'reset'?) (see msgctr platform --help)\n"));
}

TEST_F(MsgctrTest, UnknownOptionIsBadUsage)
{
    const MsgctrResult r = run(words({"--frobnicate"}));
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_EQ(r.err, QStringLiteral("msgctr: unknown option '--frobnicate' (an argument that begins with '-' goes after '--')\n"));
}

TEST_F(MsgctrTest, OptionOfAVerbIsNeverData)
{
    const QString before = ZorHost::tapiStateText();
    for (const char* option : {"--verbose", "--foo", "-x"}) {
        MsgctrResult r = run(words({"tapi", "smsc", option}));
        EXPECT_EQ(r.exitCode, 2);
        EXPECT_EQ(r.out, QString());
        EXPECT_EQ(r.err, QStringLiteral("msgctr: unknown option '%1' for 'tapi smsc' (an argument that begins with '-' goes after '--')\n")
                             .arg(QString::fromLatin1(option)));
        r = run(words({"tapi", "email-gateway", option}));
        EXPECT_EQ(r.exitCode, 2);
    }
    const MsgctrResult hint = run(words({"tapi", "smsc", "--trase"}));
    EXPECT_EQ(hint.err, QStringLiteral("msgctr: unknown option '--trase' for 'tapi smsc' (did you mean '--trace'?) (an argument that "
                                       "begins with '-' goes after '--')\n"));
    EXPECT_EQ(ZorHost::tapiStateText(), before);
}

TEST_F(MsgctrTest, ShortHelpOfAVerbIsItsHelp)
{
    const MsgctrResult r = run(words({"tapi", "smsc", "-h"}));
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.out, QStringLiteral("usage: msgctr tapi smsc [--trace] [NUMBER]\n"
                                    "print the SMS service centre number, or set it first (cut to 41 characters)\n\n"
                                    "arguments:\n"
                                    "  NUMBER           the new number (empty clears it)\n"
                                    "  --trace          show the library's report lines on standard error\n\n"
                                    "fields (also with --json): service_centre (text, empty when none)\n"));
}

TEST_F(MsgctrTest, DoubleDashEndsTheOptions)
{
    MsgctrResult r = run(words({"tapi", "smsc", "--", "-123"}));
    EXPECT_EQ(r.exitCode, 0) << qPrintable(r.err);
    EXPECT_EQ(r.out, QStringLiteral("service_centre: -123\n"));
    r = run(words({"--", "--help"}));
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_EQ(r.err, QStringLiteral("msgctr: unknown family '--help' (see msgctr --help)\n"));
}

TEST_F(MsgctrTest, OptionsTakeTheirValueAfterAnEqualsSign)
{
    const MsgctrResult r = runMsgctr(QString(), {QStringLiteral("--root=") + root(), QStringLiteral("platform"), QStringLiteral("root")});
    EXPECT_EQ(r.exitCode, 0) << qPrintable(r.err);
    EXPECT_EQ(r.out, QStringLiteral("root: %1\n").arg(root()));
}

TEST_F(MsgctrTest, ArgumentsReachTheVerbAsGiven)
{
    const MsgctrResult r = run(words({"addr", "normalize", "--", "-qmljsdebugger=port:1234,block"}));
    EXPECT_EQ(r.exitCode, 0) << qPrintable(r.err);
    EXPECT_EQ(r.out, QStringLiteral("list: -qmljsdebugger=port:1234,block\n"));
}

TEST_F(MsgctrTest, RootWithoutAFolderIsBadUsage)
{
    const MsgctrResult r = runMsgctr(QString(), {QStringLiteral("--root")});
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_EQ(r.err, QStringLiteral("msgctr: --root needs a folder\n"));
}

TEST_F(MsgctrTest, EmptyRootIsRefused)
{
    const MsgctrResult r = runMsgctr(QString(), {QStringLiteral("--root"), QString(), QStringLiteral("tapi"), QStringLiteral("smsc"),
                                                  QStringLiteral("999")});
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_EQ(r.out, QString());
    EXPECT_EQ(r.err, QStringLiteral("msgctr: --root needs a folder, not an empty text\n"));
}

TEST_F(MsgctrTest, EmptyRootVariableIsRefused)
{
    QProcess p;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("ZORHOST_ROOT"), QString());
    p.setProcessEnvironment(env);
    p.start(QStringLiteral(ZOR_MSGCTR_EXE), words({"tapi", "smsc", "999"}));
    ASSERT_TRUE(p.waitForFinished(60000));
    EXPECT_EQ(p.exitCode(), 2);
    EXPECT_EQ(QString::fromUtf8(p.readAllStandardOutput()), QString());
    EXPECT_EQ(QString::fromUtf8(p.readAllStandardError()), QStringLiteral("msgctr: ZORHOST_ROOT is empty: name the host root folder, or unset it\n"));
}

TEST_F(MsgctrTest, RootNamingAFileIsRefused)
{
    const QString file = root() + QStringLiteral("/plain-file");
    QFile f(file);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.close();
    const MsgctrResult r = runMsgctr(file, words({"platform", "reset"}));
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_EQ(r.out, QString());
    EXPECT_EQ(r.err, QStringLiteral("msgctr: the host root %1 is not a folder\n").arg(file));
}

TEST_F(MsgctrTest, RootUnderAFileCannotBeCreated)
{
    const QString file = root() + QStringLiteral("/plain-file");
    QFile f(file);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.close();
    const MsgctrResult r = runMsgctr(file + QStringLiteral("/root"), words({"tapi", "cb-state", "1"}));
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_EQ(r.err, QStringLiteral("msgctr: cannot create the host root %1/root: Not a directory\n").arg(file));
}

// Runs a shell script in a user and mount namespace of its own, where it may mount file systems; skips the test
// where that is not permitted.
class MsgctrReadOnlyRootTest : public MsgctrTest {
protected:
    void SetUp() override
    {
        MsgctrTest::SetUp();
        QProcess probe;
        probe.start(QStringLiteral("unshare"), {QStringLiteral("-rm"), QStringLiteral("true")});
        if (!probe.waitForFinished(10000) || probe.exitStatus() != QProcess::NormalExit || probe.exitCode() != 0)
            GTEST_SKIP() << "cannot make a read-only file system here: unshare -rm is not permitted";
    }

    // The script gets the mount point as $1 and msgctr as $2; the mount point is a tmpfs, remounted read-only
    // after `prepare`.
    MsgctrResult runOnReadOnlyRoot(const QString& prepare, const QString& command)
    {
        const QString mountPoint = root() + QStringLiteral("/mnt");
        const QString script = QStringLiteral("mount -t tmpfs tmpfs \"$1\" || exit 90\n%1\nmount -o remount,ro \"$1\" || exit 91\nexec %2\n")
                                   .arg(prepare, command);
        QProcess child;
        child.start(QStringLiteral("unshare"), {QStringLiteral("-rm"), QStringLiteral("sh"), QStringLiteral("-c"), script, QStringLiteral("sh"),
                                                mountPoint, QStringLiteral(ZOR_MSGCTR_EXE)});
        MsgctrResult r;
        if (!QDir().mkpath(mountPoint) || !child.waitForFinished(60000))
            return r;
        r.exitCode = child.exitCode();
        r.out = QString::fromUtf8(child.readAllStandardOutput());
        r.err = QString::fromUtf8(child.readAllStandardError());
        return r;
    }
};

TEST_F(MsgctrReadOnlyRootTest, ResetFailsNamingThePathAndTheError)
{
    const MsgctrResult r = runOnReadOnlyRoot(QStringLiteral("\"$2\" --root \"$1\" tapi cb-state 7 >/dev/null || exit 92"),
                                             QStringLiteral("\"$2\" --root \"$1\" platform reset"));
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_EQ(r.out, QString());
    EXPECT_EQ(r.err, QStringLiteral("msgctr: cannot write in the host root %1/mnt: Read-only file system\n").arg(root()));
}

// The simulator cannot lock its state on a read-only file system: a failure, never the factory state.
// The simulator reads its state file without writing it, so a read-only root shows the state kept there.
TEST_F(MsgctrReadOnlyRootTest, ShowReadsTheStateKeptBeforeTheRootWentReadOnly)
{
    const MsgctrResult r = runOnReadOnlyRoot(QStringLiteral("\"$2\" --root \"$1\" tapi cb-state 7 >/dev/null || exit 92"),
                                             QStringLiteral("\"$2\" --root \"$1\" tapi show"));
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_TRUE(r.out.contains(QStringLiteral("\ncb.state: 7\n"))) << qPrintable(r.out);
    EXPECT_EQ(r.err, QString());
}

TEST_F(MsgctrReadOnlyRootTest, SettingOnAReadOnlyRootFailsBeforeAnyChange)
{
    const MsgctrResult r = runOnReadOnlyRoot(QString(), QStringLiteral("\"$2\" --root \"$1\" platform lang de-de"));
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_EQ(r.err, QStringLiteral("msgctr: cannot write in the host root %1/mnt: Read-only file system\n").arg(root()));
}

TEST_F(MsgctrTest, AWriteErrorIsAnError)
{
    QProcess p;
    p.setStandardOutputFile(QStringLiteral("/dev/full"));
    p.start(QStringLiteral(ZOR_MSGCTR_EXE), QStringList{QStringLiteral("--root"), root()} + words({"tapi", "show"}));
    ASSERT_TRUE(p.waitForFinished(60000));
    EXPECT_EQ(p.exitCode(), 1);
    EXPECT_EQ(QString::fromUtf8(p.readAllStandardError()), QStringLiteral("msgctr: cannot write the output: No space left on device\n"));
}

TEST_F(MsgctrTest, FamilyAndVerbHelp)
{
    MsgctrResult r = run(words({"platform", "--help"}));
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_TRUE(r.out.startsWith(QStringLiteral("usage: msgctr platform <verb> [args...]\n")));
    EXPECT_TRUE(r.out.contains(QStringLiteral("\n  reset                        put every simulator back to its factory state\n")));
    r = run(words({"platform", "root", "--help"}));
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.out, QStringLiteral("usage: msgctr platform root\nprint the folder the host platform keeps its files in\n\n"
                                    "fields (also with --json): root (text)\n"));
}

TEST_F(MsgctrTest, PlatformRootPrintsTheRootGiven)
{
    const QString dir = root() + QStringLiteral("/tool-root");
    const MsgctrResult r = runMsgctr(dir, words({"platform", "root"}));
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.out, QStringLiteral("root: %1\n").arg(dir));
    EXPECT_TRUE(QFileInfo(dir).isDir());
}

TEST_F(MsgctrTest, PlatformRootTakesNoArguments)
{
    const MsgctrResult r = run(words({"platform", "root", "x"}));
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_EQ(r.err, QStringLiteral("msgctr: platform root takes no arguments, not 'x' (see msgctr platform root --help)\n"));
}

TEST_F(MsgctrTest, PlatformResetRemovesThePlatformState)
{
    QFile device(ZorHost::devicePath(QStringLiteral("/tmp/message_log.data")));
    ASSERT_TRUE(device.open(QIODevice::WriteOnly));
    device.write("line\n");
    device.close();
    const MsgctrResult r = run(words({"platform", "reset"}));
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.out, QStringLiteral("root: %1\nstate: factory\n").arg(root()));
    EXPECT_FALSE(QFileInfo::exists(device.fileName()));
}

struct BooleanWord {
    const char* name;
    const char* word;
    bool value;
};

std::ostream& operator<<(std::ostream& os, const BooleanWord& c)
{
    return os << c.name;
}

class MsgctrBooleanTest : public MsgctrTest, public ::testing::WithParamInterface<BooleanWord> {};

TEST_P(MsgctrBooleanTest, EveryVerbTakesTheSameWords)
{
    const QString word = QString::fromLatin1(GetParam().word);
    const QString shown = GetParam().value ? QStringLiteral("true") : QStringLiteral("false");
    const std::vector<std::pair<QStringList, QString>> cases = {
        {words({"tapi", "service", "2349"}) << word, QStringLiteral("service: 2349\navailable: %1\n").arg(shown)},
        {words({"tapi", "gprs"}) << word, QStringLiteral("supported: true\nsms_over_gprs: %1\n").arg(shown)},
        {words({"tapi", "waiting", "1"}) << word, QStringLiteral("line: 1\nwaiting: %1\n").arg(shown)},
        {words({"tapi", "transport-supported"}) << word, QStringLiteral("transport_mode_supported: %1\n").arg(shown)},
        {words({"platform", "feature", "2040"}) << word, QStringLiteral("id: 2040\navailable: %1\n").arg(shown)},
        {words({"platform", "flexbit", "303"}) << word, QStringLiteral("number: 303\non: %1\n").arg(shown)},
        {words({"settings", "set", "GROUP_MSGCTR_GENERAL", "MSG_SAVE_OUTGOING"}) << word,
         QStringLiteral("GROUP_MSGCTR_GENERAL.MSG_SAVE_OUTGOING: %1\n").arg(shown)},
    };
    for (const auto& [args, out] : cases) {
        const MsgctrResult r = run(args);
        EXPECT_EQ(r.exitCode, 0) << qPrintable(args.join(QLatin1Char(' '))) << ": " << qPrintable(r.err);
        EXPECT_EQ(r.out, out);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Words, MsgctrBooleanTest,
    ::testing::Values(BooleanWord{"trueWord", "true", true}, BooleanWord{"falseWord", "false", false},
                      BooleanWord{"onWord", "on", true}, BooleanWord{"offWord", "off", false},
                      BooleanWord{"yesWord", "yes", true}, BooleanWord{"noWord", "no", false},
                      BooleanWord{"one", "1", true}, BooleanWord{"zero", "0", false},
                      BooleanWord{"upperCaseTrue", "TRUE", true}, BooleanWord{"mixedCaseOff", "Off", false}),
    [](const ::testing::TestParamInfo<BooleanWord>& info) { return std::string(info.param.name); });

} // namespace
