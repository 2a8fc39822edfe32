#include "HostRootTest.h"
#include "MsgctrRun.h"

#include "ZorHostControl.h"
#include "ZorHostUtilControl.h"

namespace {

class MsgctrSettingsMessagingTest : public HostRootTest {
protected:
    MsgctrResult run(const QStringList& args)
    {
        return runMsgctr(root(), QStringList{QStringLiteral("settings")} + args);
    }
};

TEST_F(MsgctrSettingsMessagingTest, DefaultQuickTextsComeFromTheLanguagesResource)
{
    ASSERT_TRUE(ZorHost::setSystemLanguage(QStringLiteral("fr-fr")));
    const MsgctrResult r = run({QStringLiteral("quicktexts")});
    EXPECT_EQ(r.exitCode, 0);
    const QStringList lines = r.out.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    ASSERT_EQ(lines.size(), 12);
    EXPECT_EQ(lines.first(), QStringLiteral("1: Je suis en route."));
    EXPECT_EQ(lines.last(), QStringLiteral("12: Bonne nuit."));
}

TEST_F(MsgctrSettingsMessagingTest, UserQuickTextsAreSetAndRead)
{
    MsgctrResult r = run({QStringLiteral("quicktexts"), QStringLiteral("--user")});
    EXPECT_EQ(r.out, QStringLiteral("(no quick texts)\n"));
    r = run({QStringLiteral("quicktexts"), QStringLiteral("--user"), QStringLiteral("set"), QStringLiteral("On my way"),
             QStringLiteral("a=b")});
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.out, QStringLiteral("1: On my way\n2: a=b\n"));
    r = run({QStringLiteral("quicktexts"), QStringLiteral("--user")});
    EXPECT_EQ(r.out, QStringLiteral("1: On my way\n2: a=b\n"));
}

TEST_F(MsgctrSettingsMessagingTest, MoreThanTwentyUserQuickTextsAreNotStored)
{
    QStringList args{QStringLiteral("quicktexts"), QStringLiteral("--user"), QStringLiteral("set")};
    for (int i = 1; i <= 21; ++i)
        args.append(QString::number(i));
    MsgctrResult r = run(args);
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_TRUE(r.err.startsWith(QStringLiteral("msgctr: at most 20 quick texts of your own; nothing was stored\n")))
        << qPrintable(r.err);
    EXPECT_TRUE(r.err.contains(QStringLiteral(" too many user-defined-quick-text quickTexts.count() = 21(S32,4), ")))
        << qPrintable(r.err);
    r = run({QStringLiteral("quicktexts"), QStringLiteral("--user")});
    EXPECT_EQ(r.out, QStringLiteral("(no quick texts)\n"));
    r = run({QStringLiteral("quicktexts"), QStringLiteral("set"), QStringLiteral("x")});
    EXPECT_EQ(r.exitCode, 2);
}

TEST_F(MsgctrSettingsMessagingTest, PushSettingsShowEverything)
{
    const MsgctrResult r = run({QStringLiteral("push")});
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.out, QStringLiteral("mode 1 (all)\nsecurity 0 (ask)\npairs (none)\nwhitelist (none)\n"
                                    "browser filter \"*\"\n"));
}

TEST_F(MsgctrSettingsMessagingTest, RestrictedModeFiltersByTheValidatedPairs)
{
    MsgctrResult r = run({QStringLiteral("push"), QStringLiteral("pairs"), QStringLiteral(" 123 , gw "),
                          QStringLiteral("456,gw2")});
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.out, QStringLiteral("pairs 123,gw 456,gw2\n"));
    r = run({QStringLiteral("push"), QStringLiteral("mode"), QStringLiteral("restricted")});
    EXPECT_EQ(r.out, QStringLiteral("mode 2 (restricted)\n"));
    r = run({QStringLiteral("push"), QStringLiteral("whitelist")});
    EXPECT_EQ(r.out, QStringLiteral("whitelist (none)\nbrowser filter \"123,gw 456,gw2\"\n"));
    r = run({QStringLiteral("push"), QStringLiteral("mode"), QStringLiteral("off")});
    r = run({QStringLiteral("push"), QStringLiteral("whitelist")});
    EXPECT_EQ(r.out, QStringLiteral("whitelist (none)\nbrowser filter \"\"\n"));
}

TEST_F(MsgctrSettingsMessagingTest, OutOfRangeModeIsStoredAndReportedWithTrace)
{
    const MsgctrResult r = run({QStringLiteral("push"), QStringLiteral("mode"), QStringLiteral("3"), QStringLiteral("--trace")});
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.out, QStringLiteral("mode 3 (out of range)\n"));
    EXPECT_TRUE(r.err.contains(QStringLiteral("nMode = 3(S32,4), "))) << qPrintable(r.err);
    const MsgctrResult s = run({QStringLiteral("push"), QStringLiteral("security"), QStringLiteral("deny")});
    EXPECT_EQ(s.out, QStringLiteral("security 2 (deny)\n"));
    EXPECT_EQ(run({QStringLiteral("push"), QStringLiteral("security"), QStringLiteral("maybe")}).exitCode, 2);
    EXPECT_EQ(run({QStringLiteral("push"), QStringLiteral("pairs"), QStringLiteral("123")}).exitCode, 2);
}

} // namespace
